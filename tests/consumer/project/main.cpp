// Uses a little of every layer; ends with 0 when all of it works.

#include <KTRCL_DataTypes/KTRCL_DataTypes.h>
#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <cstdio>

namespace {

int Check(bool holds, const char* what) {
  if (!holds) {
    std::fprintf(stderr, "does not hold: %s\n", what);
  }
  return holds ? 0 : 1;
}

}  // namespace

int main() {
  GXKTRCL_GeometryInit::Init(nullptr);
  int failures = 0;

  const GXVector normal = GXVector(1.0, 0.0, 0.0) * GXVector(0.0, 2.0, 0.0);
  failures += Check(normal == GXVector(0.0, 0.0, 2.0), "x cross 2 y is 2 z");

  // A square whose sides come out of order.
  GX2DElmList square;
  square.push_back(new GX2DLine(0.0, 0.0, 1.0, 0.0));
  square.push_back(new GX2DLine(1.0, 1.0, 0.0, 1.0));
  square.push_back(new GX2DLine(1.0, 0.0, 1.0, 1.0));
  square.push_back(new GX2DLine(0.0, 1.0, 0.0, 0.0));
  square.MakeConnectingElements();
  failures += Check(square.IsClosed(0.0001), "the sides of a square close after ordering");
  square.ClearWithContents();

  const GXLATolerances tolerances;
  failures += Check(tolerances.ToleranceLengthMM() > 0.0, "the look-alike engine has a tolerance");

  failures += Check(GXMath::AlmostEq(0.0, 0.0001, 0.0001), "the tolerance counts");
  GXKTRCL_GeometryInit::Terminate();
  return failures;
}
