#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Turn.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

using support::Line;
using support::Point;

static_assert(!std::is_convertible_v<const double*, GX3DPoint>);

const GXMatrix kMatrix(1, 2, 3, 0, 1, 4, 5, 6, 0);

GXColBasedTransformMatrix Frame() {
  GXVector vectors[3] = {GXVector(1, 2, 3), GXVector(0, 1, 4), GXVector(5, 6, 0)};
  return GXColBasedTransformMatrix(vectors);
}

TEST(GX3DPoint, IsTheOriginByDefault) { EXPECT_POINT_EQ(GX3DPoint(), Point(0, 0, 0)); }

TEST(GX3DPoint, IsMadeFromNumbersVectorsAndArrays) {
  const double entries[4] = {5, 6, 7, 8};
  EXPECT_POINT_EQ(GX3DPoint(1, 2, 3), (std::vector<double>{1, 2, 3}));
  EXPECT_POINT_EQ(GX3DPoint(GXVector(1, 2, 3)), Point(1, 2, 3));
  EXPECT_POINT_EQ(GX3DPoint(entries), Point(5, 6, 7));
}

TEST(GX3DPoint, CopiesAreIndependent) {
  GX3DPoint original(1, 2, 3);
  const GX3DPoint copy(original);
  original.Z = 9;
  EXPECT_POINT_EQ(copy, Point(1, 2, 3));
}

TEST(GX3DPoint, TranslateAddsTheVector) {
  GX3DPoint p(1, 2, 3);
  p.Translate(GXVector(10, 20, 30));
  EXPECT_POINT_EQ(p, Point(11, 22, 33));
}

TEST(GX3DPoint, ScalesReachTheirCoordinates) {
  GX3DPoint p(1, 2, 3);
  p.Scale(2, -1);
  EXPECT_POINT_EQ(p, Point(2, 4, 6));
  p.ScaleX(2, -1);
  EXPECT_POINT_EQ(p, Point(4, 4, 6));
  p.ScaleY(3, -1);
  EXPECT_POINT_EQ(p, Point(4, 12, 6));
  p.ScaleZ(0.5, -1);
  EXPECT_POINT_EQ(p, Point(4, 12, 3));
}

TEST(GX3DPoint, ScalesRoundFromZeroDecimalsOn) {
  GX3DPoint p(1.26, 1.24, -2.5);
  p.ScaleX(1, 1);
  EXPECT_POINT_EQ(p, Point(1.3, 1.24, -2.5));
  p.ScaleY(1, 1);
  EXPECT_POINT_EQ(p, Point(1.3, 1.2, -2.5));
  p.ScaleZ(1, 0);
  EXPECT_POINT_EQ(p, Point(1.3, 1.2, -3));
  p.Scale(1, 0);
  EXPECT_POINT_EQ(p, Point(1, 1, -3));
  p.Scale(0.5, -2);
  EXPECT_POINT_EQ(p, Point(0.5, 0.5, -1.5));
}

TEST(GX3DPoint, ScaleByItsOwnCoordinateUsesTheOldOne) {
  GX3DPoint p(3, 5, 7);
  p.Scale(p.X, -1);
  EXPECT_POINT_EQ(p, Point(9, 15, 21));
}

TEST(GX3DPoint, MirrorsNegateTheCoordinateAcrossThePlane) {
  GX3DPoint p(1, 2, 3);
  p.MirrorXY();
  EXPECT_POINT_EQ(p, Point(1, 2, -3));
  p.MirrorYZ();
  EXPECT_POINT_EQ(p, Point(-1, 2, -3));
  p.MirrorXZ();
  EXPECT_POINT_EQ(p, Point(-1, -2, -3));
}

TEST(GX3DPoint, ExtentIsItsCoordinates) {
  const GX3DPoint p(1, 2, 3);
  EXPECT_EQ(p.GetMinX(), 1.0);
  EXPECT_EQ(p.GetMaxX(), 1.0);
  EXPECT_EQ(p.GetMinY(), 2.0);
  EXPECT_EQ(p.GetMaxY(), 2.0);
  EXPECT_EQ(p.GetMinZ(), 3.0);
  EXPECT_EQ(p.GetMaxZ(), 3.0);
}

TEST(GX3DPoint, IsAlwaysActuallyAPointAndItsOwnStartAndEnd) {
  GX3DPoint p(1, 2, 3);
  EXPECT_TRUE(p.IsActuallyAPoint());
  EXPECT_EQ(&p.GetStartPoint(), &p);
  EXPECT_EQ(&p.GetEndPoint(), &p);
}

TEST(GX3DPoint, SetPointCopiesTheCoordinates) {
  GX3DPoint p;
  p.SetPoint(Point(1, 2, 3));
  EXPECT_POINT_EQ(p, Point(1, 2, 3));
  p.SetPoint(p);
  EXPECT_POINT_EQ(p, Point(1, 2, 3));
}

TEST(GX3DPoint, GetIValueGivesXForEveryOtherIndex) {
  const GX3DPoint p(10, 20, 30);
  EXPECT_EQ(p.GetIValue(0), 10.0);
  EXPECT_EQ(p.GetIValue(1), 20.0);
  EXPECT_EQ(p.GetIValue(2), 30.0);
  EXPECT_EQ(p.GetIValue(7), 10.0);
  EXPECT_EQ(p.GetIValue(-1), 10.0);
}

TEST(GX3DPoint, SetIValueDoesNothingForEveryOtherIndex) {
  GX3DPoint p(10, 20, 30);
  p.SetIValue(0, 1);
  p.SetIValue(1, 2);
  p.SetIValue(2, 3);
  p.SetIValue(7, 99);
  p.SetIValue(-1, 99);
  EXPECT_POINT_EQ(p, Point(1, 2, 3));
}

TEST(GX3DPoint, AsDblHandsOutTheCoordinates) {
  const GX3DPoint p(1, 2, 3);
  double x = 0, y = 0, z = 0;
  p.AsDbl(x, y, z);
  EXPECT_EQ(x, 1.0);
  EXPECT_EQ(y, 2.0);
  EXPECT_EQ(z, 3.0);
  double entries[4] = {0, 0, 0, -77};
  p.AsDbl(entries);
  EXPECT_EQ(entries[0], 1.0);
  EXPECT_EQ(entries[1], 2.0);
  EXPECT_EQ(entries[2], 3.0);
  EXPECT_EQ(entries[3], -77.0);
}

TEST(GX3DPoint, IsAlmostEqIsInclusiveInEachCoordinateByItself) {
  const GX3DPoint p;
  const double above = std::nextafter(0.0001, 1.0);
  EXPECT_TRUE(p.IsAlmostEq(Point(0.0001, -0.0001, 0.0001), 0.0001));
  EXPECT_FALSE(p.IsAlmostEq(Point(above, 0, 0), 0.0001));
  EXPECT_FALSE(p.IsAlmostEq(Point(0, above, 0), 0.0001));
  EXPECT_FALSE(p.IsAlmostEq(Point(0, 0, -above), 0.0001));
}

TEST(GX3DPoint, EqualityIsExact) {
  const GX3DPoint p(1, 2, 3);
  EXPECT_TRUE(p == Point(1, 2, 3));
  EXPECT_FALSE(p != Point(1, 2, 3));
  EXPECT_TRUE(p != Point(std::nextafter(1.0, 2.0), 2, 3));
  EXPECT_TRUE(p != Point(1, std::nextafter(2.0, 3.0), 3));
  EXPECT_FALSE(p == Point(1, 2, std::nextafter(3.0, 4.0)));
}

TEST(GX3DPoint, AssignmentFromAFlatPointSetsZTo0AndReturnsTrue) {
  GX3DPoint p(1, 2, 3);
  const bool assigned = p = GX2DPoint(8, 9);
  EXPECT_TRUE(assigned);
  EXPECT_POINT_EQ(p, Point(8, 9, 0));
}

TEST(GX3DPoint, AssignmentFromAVectorReturnsTrue) {
  GX3DPoint p(1, 2, 3);
  const bool assigned = p = GXVector(7, 8, 9);
  EXPECT_TRUE(assigned);
  EXPECT_POINT_EQ(p, Point(7, 8, 9));
}

TEST(GX3DPoint, AssignmentFromAPointReturnsItself) {
  GX3DPoint p(1, 2, 3);
  GX3DPoint& assigned = p = Point(7, 8, 9);
  EXPECT_EQ(&assigned, &p);
  EXPECT_POINT_EQ(p, Point(7, 8, 9));
}

TEST(GX3DPoint, AssignmentGoesThroughSetPoint) {
  class Counting : public GX3DPoint {
   public:
    int calls = 0;
    void SetPoint(const GX3DPoint& p) override {
      ++calls;
      GX3DPoint::SetPoint(p);
    }
  };
  Counting p;
  static_cast<GX3DPoint&>(p) = Point(7, 8, 9);
  EXPECT_EQ(p.calls, 1);
  EXPECT_POINT_EQ(p, Point(7, 8, 9));
}

TEST(GX3DPoint, AddsAndSubtractsVectors) {
  const GX3DPoint p(1, 2, 3);
  EXPECT_POINT_EQ(p + GXVector(10, 20, 30), Point(11, 22, 33));
  EXPECT_POINT_EQ(p - GXVector(10, 20, 30), Point(-9, -18, -27));
}

TEST(GX3DPoint, LessIsLexicographic) {
  EXPECT_TRUE(Point(1, 9, 9) < Point(2, 0, 0));
  EXPECT_FALSE(Point(2, 0, 0) < Point(1, 9, 9));
  EXPECT_TRUE(Point(1, 1, 9) < Point(1, 2, 0));
  EXPECT_FALSE(Point(1, 2, 0) < Point(1, 1, 9));
  EXPECT_TRUE(Point(1, 1, 1) < Point(1, 1, 2));
  EXPECT_FALSE(Point(1, 1, 2) < Point(1, 1, 1));
  EXPECT_TRUE(Point(1, 0, 0) < Point(std::nextafter(1.0, 2.0), 0, 0));
}

TEST(GX3DPoint, EqualPointsAreGreaterThanEachOther) {
  const GX3DPoint p(1, 2, 3);
  const GX3DPoint q(1, 2, 3);
  EXPECT_FALSE(p < q);
  EXPECT_TRUE(p > q);
  EXPECT_TRUE(q > p);
  EXPECT_TRUE(Point(2, 0, 0) > Point(1, 9, 9));
  EXPECT_FALSE(Point(1, 9, 9) > Point(2, 0, 0));
}

TEST(RotateAboutACoordinateAxis, TurnsRightHandedByRadians) {
  const double quarter = support::kPi / 2;
  GX3DPoint p(1, 2, 3);
  p.RotateX(quarter);
  EXPECT_POINT_NEAR(p, Point(1, -3, 2), 1e-14);
  p = Point(1, 2, 3);
  p.RotateY(quarter);
  EXPECT_POINT_NEAR(p, Point(3, 2, -1), 1e-14);
  p = Point(1, 2, 3);
  p.RotateZ(quarter);
  EXPECT_POINT_NEAR(p, Point(-2, 1, 3), 1e-14);
}

TEST(RotateAboutACoordinateAxis, NeverChangesTheCoordinateOfTheAxis) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const GX3DPoint start = random.Point3D(1000);
    const double radians = random.Between(-7, 7);
    GX3DPoint x = start, y = start, z = start;
    x.RotateX(radians);
    y.RotateY(radians);
    z.RotateZ(radians);
    EXPECT_SAME_BITS(x.X, start.X);
    EXPECT_SAME_BITS(y.Y, start.Y);
    EXPECT_SAME_BITS(z.Z, start.Z);
  }
}

TEST(RotateAboutACoordinateAxis, KeepsAlsoACoordinateThatSpoilsTheOthers) {
  const double infinity = std::numeric_limits<double>::infinity();
  GX3DPoint x(infinity, 2, 3), y(1, -infinity, 3), z(1, 2, infinity);
  x.RotateX(1);
  y.RotateY(1);
  z.RotateZ(1);
  EXPECT_EQ(x.X, infinity);
  EXPECT_EQ(y.Y, -infinity);
  EXPECT_EQ(z.Z, infinity);
}

TEST(RotateAboutACoordinateAxis, AgreesWithTheFormulaOfRodrigues) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const GX3DPoint start = random.Point3D(1000);
    const double radians = random.Between(-7, 7);
    GX3DPoint x = start, y = start, z = start;
    x.RotateX(radians);
    y.RotateY(radians);
    z.RotateZ(radians);
    const GX3DLine axisX = Line(0, 0, 0, 1, 0, 0);
    const GX3DLine axisY = Line(0, 0, 0, 0, 1, 0);
    const GX3DLine axisZ = Line(0, 0, 0, 0, 0, 1);
    EXPECT_POINT_NEAR(x, support::Turned(axisX, radians, start), support::TurnBound(axisX, start));
    EXPECT_POINT_NEAR(y, support::Turned(axisY, radians, start), support::TurnBound(axisY, start));
    EXPECT_POINT_NEAR(z, support::Turned(axisZ, radians, start), support::TurnBound(axisZ, start));
  }
}

TEST(RotateAxis3D, TakesRadiansAndAnyAxis) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const GX3DLine axis(random.Point3D(100), random.Point3D(100));
    const GX3DPoint start = random.Point3D(100);
    const double radians = random.Between(-7, 7);
    GX3DPoint p = start;
    p.RotateAxis(axis, radians);
    EXPECT_POINT_NEAR(p, support::Turned(axis, radians, start), support::TurnBound(axis, start));
  }
}

TEST(RotateAxis3D, LeavesThePointWhereTheAxisMeetsTheFixedPoint) {
  GX3DPoint p(1, 2, 3);
  p.RotateAxis(Line(1234.1234, 5678.5678, 0, 1234.1234, 5678.5678, 1), 1.0);
  EXPECT_POINT_EQ(p, Point(1, 2, 3));
  p.RotateAxis(Line(4, 5, 6, 4, 5, 6), 1.0);  // no axis at all
  EXPECT_POINT_EQ(p, Point(1, 2, 3));
}

TEST(RotateByRotation, MultipliesThePointAsAVector) {
  support::Random random;
  for (int i = 0; i < 100; ++i) {
    const GXRotation rotation(random.Between(-180, 180), random.Between(-180, 180),
                              random.Between(-180, 180), random.Int(0, 23));
    const GX3DPoint start = random.Point3D(100);
    GX3DPoint p = start;
    p.Rotate(rotation);
    EXPECT_POINT_EQ(p, rotation * GXVector(start));
  }
}

TEST(RotateByRotation, QuarterAboutZTakesXToY) {
  GX3DPoint p(1, 2, 3);
  p.Rotate(GXRotation(GXVector(0, 0, 5), support::kPi / 2));
  EXPECT_POINT_NEAR(p, Point(-2, 1, 3), 1e-14);
}

TEST(TransformGloLoc, MultipliesTheOffsetFromTheOrigin) {
  // The offset is (1, 2, 3); the rows give 1 + 4 + 9, 2 + 12 and 5 + 12.
  GX3DPoint p(11, 22, 33);
  p.TransformGloLoc(Point(10, 20, 30), kMatrix);
  EXPECT_POINT_EQ(p, Point(14, 14, 17));
}

TEST(TransformGloLoc, TakesTheScalarProductWithEachColumnVector) {
  GX3DPoint p(11, 22, 33);
  p.TransformGloLoc(Point(10, 20, 30), Frame());
  EXPECT_POINT_EQ(p, Point(14, 14, 17));
}

TEST(TransformLocGlo, MultipliesFirstAndAddsTheOrigin) {
  GX3DPoint p(1, 2, 3);
  p.TransformLocGlo(Point(10, 20, 30), kMatrix);
  EXPECT_POINT_EQ(p, Point(24, 34, 47));
}

TEST(TransformLocGlo, AppliesTheColumnVectorsAsTheyStand) {
  GX3DPoint p(1, 2, 3);
  p.TransformLocGlo(Point(10, 20, 30), Frame());
  EXPECT_POINT_EQ(p, Point(24, 34, 47));
}

TEST(TransformGloLoc, RelativeToItselfGivesTheOrigin) {
  GX3DPoint p(11, 22, 33);
  p.TransformGloLoc(p, kMatrix);
  EXPECT_POINT_EQ(p, Point(0, 0, 0));
  GX3DPoint q(11, 22, 33);
  q.TransformGloLoc(q, Frame());
  EXPECT_POINT_EQ(q, Point(0, 0, 0));
}

TEST(TransformLocGlo, RelativeToItselfAddsTheOldCoordinates) {
  GX3DPoint p(1, 2, 3);
  p.TransformLocGlo(p, kMatrix);
  EXPECT_POINT_EQ(p, Point(15, 16, 20));
  GX3DPoint q(1, 2, 3);
  q.TransformLocGlo(q, Frame());
  EXPECT_POINT_EQ(q, Point(15, 16, 20));
}

TEST(TransformLocGlo, WithTheInverseUndoesTransformGloLoc) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const GX3DPoint origin = random.Point3D(100);
    const GX3DPoint towardsX = random.Point3D(100);
    const GX3DPoint inPlane = random.Point3D(100);
    const GXColBasedTransformMatrix frame(origin, towardsX, inPlane);
    GXColBasedTransformMatrix inverse(frame);
    ASSERT_TRUE(inverse.Inverse());
    const GXMatrix rows(origin, towardsX, inPlane);
    const GX3DPoint start = random.Point3D(100);
    GX3DPoint a = start, b = start;
    a.TransformGloLoc(origin, frame);
    b.TransformGloLoc(origin, rows);
    a.TransformLocGlo(origin, inverse);
    b.TransformLocGlo(origin, rows.GetInverse());
    // As in TurnBound, with the spanning sine of these three points.
    const support::Triple x = support::Offset(origin, towardsX);
    const support::Triple y = support::Offset(origin, inPlane);
    const long double sine =
        support::Length(support::Cross(x, y)) / (support::Length(x) * support::Length(y));
    const double bound = static_cast<double>(64 * 2.3e-16L * 400 / sine);
    EXPECT_POINT_NEAR(a, start, bound);
    EXPECT_POINT_NEAR(b, start, bound);
  }
}

}  // namespace
