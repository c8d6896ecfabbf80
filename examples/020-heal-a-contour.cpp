// A contour as it comes from a drawing: sides in any order, some drawn backwards, ends that do not
// quite meet. Afterwards it is a closed chain.

#include <KTRCL_DataTypes/KTRCL_DataTypes.h>
#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <iostream>

int main() {
  // An L of 40 x 30. The list owns what is put into it.
  GX2DElmList contour;
  contour.push_back(new GX2DLine(0.0, 0.0, 40.0, 0.0));
  contour.push_back(new GX2DLine(15.0, 10.0, 40.0, 10.0));  // drawn backwards
  contour.push_back(new GX2DLine(0.0, 30.0, 0.0, 0.0));
  contour.push_back(new GX2DLine(40.0, 0.00004, 40.0, 10.0));  // starts a little too high
  contour.push_back(new GX2DLine(15.0, 30.0, 15.0, 10.0));     // drawn backwards
  contour.push_back(new GX2DLine(15.0, 30.0, 0.0, 30.0));
  std::cout << "before: " << (contour.IsFullyConnected() ? "a chain" : "no chain") << '\n';

  contour.MakeConnectingElements();      // one behind the other, turned where needed
  contour.MakeAlmostEqualPointsEqual();  // ends within 0.0001 become one point
  const bool closed = contour.IsClosed(0.0);
  std::cout << "after: " << (contour.IsFullyConnected() ? "a chain" : "no chain") << ", "
            << (closed ? "closed" : "open") << '\n';

  double perimeter = 0.0;
  for (const GX2DElement* side : contour) {
    perimeter += side->Len();
  }
  std::cout << "perimeter " << perimeter << '\n';  // 140

  const bool right =
      closed && contour.IsFullyConnected() && GXMath::AlmostEq(perimeter, 140.0, 0.001);
  contour.ClearWithContents();  // destroys the sides
  return right ? 0 : 1;
}
