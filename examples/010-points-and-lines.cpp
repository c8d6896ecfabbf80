// Points, vectors and lines: the classes everything else is made of.
//
// Lengths are in whatever unit the host uses. Comparisons name their tolerance; there is no
// default.

#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <iostream>

int main() {
  // A bend line of a bracket, and the direction across it.
  GX2DLine bend(0.0, 0.0, 30.0, 40.0);
  std::cout << "length " << bend.Len() << '\n';  // 50

  GX2DPoint quarter;
  bend.GetParametricPoint(quarter, 0.25);
  std::cout << "a quarter along it: (" << quarter.X << ", " << quarter.Y << ")\n";  // (7.5, 10)

  // RotateAxis of 2D elements takes degrees, counterclockwise.
  bend.RotateAxis(GX2DPoint(0.0, 0.0), 90.0);
  const bool turned = bend.End.IsAlmostEq(GX2DPoint(-40.0, 30.0), 0.0001);
  std::cout << "turned by 90 degrees it ends at (-40, 30): " << (turned ? "yes" : "no") << '\n';

  // The cross product of two directions in the sheet is its normal.
  GXVector normal = GXVector(1.0, 0.0, 0.0) * GXVector(0.0, 2.0, 0.0);
  normal.Standard();
  std::cout << "normal: (" << normal.X << ", " << normal.Y << ", " << normal.Z
            << ")\n";  // (0, 0, 1)

  const bool right = bend.Len() == 50.0 && quarter == GX2DPoint(7.5, 10.0) && turned &&
                     normal == GXVector(0.0, 0.0, 1.0);
  return right ? 0 : 1;
}
