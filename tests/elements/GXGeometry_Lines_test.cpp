#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Turn.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::Line;
using support::Point;

constexpr double kPi = support::kPi;

double Angle(const GX3DLine& a, const GX3DLine& b) {
  return GXGeometry::GetAngleBetween3DLinesRad(a, b);
}

/// The distance as a number, -77 when it was not written.
double Distance(const GX2DLine& line, const GX2DPoint& p) {
  double distance = -77;
  EXPECT_TRUE(GXGeometry::GetDistanceLinePoint(line, p, distance));
  return distance;
}
double Distance(const GX3DLine& line, const GX3DPoint& p) {
  double distance = -77;
  EXPECT_TRUE(GXGeometry::GetDistanceLinePoint(line, p, distance));
  return distance;
}

TEST(GetDistanceLinePoint, IsThatToTheUnboundedLine) {
  EXPECT_EQ(Distance(Line(0, 0, 4, 0), Point(100, 3)), 3.0);
  EXPECT_EQ(Distance(Line(0, 0, 4, 0), Point(2, -3)), 3.0);
  EXPECT_EQ(Distance(Line(0, 0, 0, 4, 0, 0), Point(-100, 3, 4)), 5.0);
  EXPECT_EQ(Distance(Line(0, 0, 4, 0), Point(2, 0)), 0.0);
}

TEST(GetDistanceLinePoint, OfALineWithoutLengthIsFalseWithZeroWritten) {
  double flat = -77, spatial = -77;
  EXPECT_FALSE(GXGeometry::GetDistanceLinePoint(Line(1, 1, 1, 1), Point(5, 5), flat));
  EXPECT_EQ(flat, 0.0);
  EXPECT_FALSE(GXGeometry::GetDistanceLinePoint(Line(1, 1, 1, 1, 1, 1), Point(5, 5, 5), spatial));
  EXPECT_EQ(spatial, 0.0);
}

TEST(GetDistanceLinePoint, TheOutputMayBeACoordinateOfThePoint) {
  GX2DPoint p(100, 3);
  EXPECT_TRUE(GXGeometry::GetDistanceLinePoint(Line(0, 0, 4, 0), p, p.X));
  EXPECT_EQ(p.X, 3.0);
}

TEST(GetDistanceLinePoint, AgreesWithTheAreaOverTheBase) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const GX3DPoint a = random.Point3D(100), b = random.Point3D(100), p = random.Point3D(100);
    const support::Triple base = support::Offset(a, b);
    const support::Triple side = support::Offset(a, p);
    const long double expected =
        support::Length(support::Cross(base, side)) / support::Length(base);
    // The foot lies up to |side| away from the start: its rounding, and that of the division.
    const double bound = 1e-14 * static_cast<double>(support::Length(side) + 200);
    EXPECT_NEAR(Distance(GX3DLine(a, b), p), static_cast<double>(expected), bound);
    const GX2DPoint flatA(a, 2), flatB(b, 2), flatP(p, 2);
    const double flat = Distance(GX2DLine(flatA, flatB), flatP);
    const double spatial =
        Distance(GX3DLine(GX3DPoint(flatA, 2), GX3DPoint(flatB, 2)), GX3DPoint(flatP, 2));
    EXPECT_NEAR(flat, spatial, 1e-12);
  }
}

TEST(GetParametricPointOnALine, HasNoLimits) {
  GX2DPoint flat;
  EXPECT_TRUE(GXGeometry::GetParametricPointOn2DLine(flat, -0.5, Line(1, 2, 3, 6)));
  EXPECT_POINT_EQ(flat, Point(0, 0));
  GX3DPoint spatial;
  EXPECT_TRUE(GXGeometry::GetParametricPointOn3DLine(spatial, 1.5, Line(1, 2, 3, 3, 6, 5)));
  EXPECT_POINT_EQ(spatial, Point(4, 8, 6));
}

TEST(GetParametricPointOnALine, OutAndParameterMayBelongToTheLine) {
  GX3DLine line = Line(1, 2, 4, 3, 6, 8);
  EXPECT_TRUE(GXGeometry::GetParametricPointOn3DLine(line.Start, 0.5, line));
  EXPECT_POINT_EQ(line.Start, Point(2, 4, 6));
  GX3DLine other = Line(0.5, 2, 4, 3, 6, 8);
  EXPECT_TRUE(GXGeometry::GetParametricPointOn3DLine(other.Start, other.Start.X, other));
  EXPECT_POINT_EQ(other.Start, Point(1.75, 4, 6));
}

TEST(GetAngleBetween3DLinesRad, IsTheUnsignedAngleAtTheCommonPoint) {
  const GX3DPoint o(1, 1, 1), x(3, 1, 1), y(1, 4, 1);
  EXPECT_NEAR(Angle(GX3DLine(o, x), GX3DLine(o, y)), kPi / 2, 1e-15);
  EXPECT_NEAR(Angle(GX3DLine(o, x), GX3DLine(y, o)), kPi / 2, 1e-15);
  EXPECT_NEAR(Angle(GX3DLine(x, o), GX3DLine(o, y)), kPi / 2, 1e-15);
  EXPECT_NEAR(Angle(GX3DLine(x, o), GX3DLine(y, o)), kPi / 2, 1e-15);
  const GX3DPoint sixty(1 + 0.5, 1 + std::sqrt(0.75), 1);
  EXPECT_NEAR(Angle(GX3DLine(x, o), GX3DLine(o, sixty)), kPi / 3, 1e-15);
}

TEST(GetAngleBetween3DLinesRad, IsMinus1WithoutACommonEnd) {
  EXPECT_EQ(Angle(Line(-1, 0, 0, 1, 0, 0), Line(0, -1, 0, 0, 1, 0)), -1.0);
  EXPECT_EQ(Angle(Line(0, 0, 0, 1, 0, 0), Line(5, 0, 0, 6, 0, 0)), -1.0);
}

TEST(GetAngleBetween3DLinesRad, MeetsEndsUpTo0_0001PerCoordinate) {
  const double above = std::nextafter(0.0001, 1);
  EXPECT_NEAR(Angle(Line(0, 0, 0, 1, 0, 0), Line(0.0001, -0.0001, 0, 0.0001, 5, 0)), kPi / 2, 1e-4);
  EXPECT_EQ(Angle(Line(0, 0, 0, 1, 0, 0), Line(above, 0, 0, 0, 5, 0)), -1.0);
}

TEST(GetAngleBetween3DLinesRad, IsMinus1OutsideOnePlane) {
  // The starts meet within 0.0001, but the plane through the first line and the second start passes
  // the second end at a distance of 5.7.
  EXPECT_EQ(Angle(Line(0, 0, 0, 1, 0, 0), Line(0, 0.00005, 0.00005, 0, 1, 9)), -1.0);
}

TEST(GetAngleBetween3DLinesRad, IsMinus1ForALineNotLongerThan0_0001) {
  const double above = std::nextafter(0.0001, 1);
  EXPECT_EQ(Angle(Line(0, 0, 0, 0.0001, 0, 0), Line(0, 0, 0, 0, 5, 0)), -1.0);
  EXPECT_EQ(Angle(Line(0, 0, 0, 0, 5, 0), Line(0, 0, 0, 0.0001, 0, 0)), -1.0);
  EXPECT_NEAR(Angle(Line(0, 0, 0, above, 0, 0), Line(0, 0, 0, 0, 5, 0)), kPi / 2, 1e-15);
}

TEST(GetAngleBetween3DLinesRad, CosinesAbove0_999999CountAsParallel) {
  const auto at = [](double radians) {
    return Angle(Line(0, 0, 0, 1, 0, 0), Line(0, 0, 0, std::cos(radians), std::sin(radians), 0));
  };
  EXPECT_EQ(at(0.0014), 0.0);                // cosine 0.99999902
  EXPECT_NEAR(at(0.00142), 0.00142, 1e-12);  // cosine 0.99999899
  EXPECT_EQ(at(kPi - 0.0014), std::acos(-1.0));
  EXPECT_NEAR(at(kPi - 0.00142), kPi - 0.00142, 1e-12);
}

TEST(GetAngleBetween3DLinesRad, TakesTheFirstEndsThatMeet) {
  // The start of the second line is within 0.0001 of both ends of the first. From its far end to
  // the start the first line points to -X, as does the second; at the other end it would be +X.
  EXPECT_EQ(Angle(Line(0, 0, 0, 0.0002, 0, 0), Line(0.0001, 0.0001, 0, 1, 0.0001, 0)), 0.0);
  // Here both ends of the second line are, and the start comes first.
  EXPECT_EQ(Angle(Line(0, 0, 0, -1, 0, 0), Line(-0.0001, 0, 0, 0.0001, 0, 0)), kPi);
}

TEST(GetAngleBetween3DLinesRad, OfALineWithItselfIs0InEitherDirection) {
  const GX3DLine line = Line(1, 2, 3, 4, 5, 6);
  EXPECT_EQ(Angle(line, line), 0.0);
  EXPECT_EQ(Angle(line, GX3DLine(line.End, line.Start)), 0.0);
}

TEST(Rotate3DPoint, AgreesWithTheFormulaOfRodrigues) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const double extent = i % 2 == 0 ? 100 : 5000;
    const GX3DLine axis(random.Point3D(extent), random.Point3D(extent));
    const GX3DPoint start = random.Point3D(extent);
    const double radians = random.Between(-7, 7);
    GX3DPoint result;
    ASSERT_TRUE(GXGeometry::Rotate3DPoint(axis, radians, start, result));
    EXPECT_POINT_NEAR(result, support::Turned(axis, radians, start),
                      support::TurnBound(axis, start));
  }
}

TEST(Rotate3DPoint, AgreesAlsoForAxesThatPassCloseToTheFixedPoint) {
  support::Random random;
  const GX3DPoint aid(1234.1234, 5678.5678, 9012.9012);
  for (int i = 0; i < 500; ++i) {
    const double miss = std::pow(10.0, random.Between(-3, 2));
    const GX3DLine axis(random.Point3D(100), aid + random.Vector3D(miss));
    const GX3DPoint start = random.Point3D(100);
    const double radians = random.Between(-7, 7);
    GX3DPoint result(-77, -77, -77);
    if (GXGeometry::Rotate3DPoint(axis, radians, start, result)) {
      EXPECT_POINT_NEAR(result, support::Turned(axis, radians, start),
                        support::TurnBound(axis, start));
    } else {
      EXPECT_POINT_EQ(result, Point(-77, -77, -77));
    }
  }
}

TEST(Rotate3DPoint, LeavesTheResultAloneForAnAxisThroughTheFixedPoint) {
  GX3DPoint result(-77, -78, -79);
  const GX3DPoint p(1, 2, 3);
  const GX3DLine through = Line(1234.1234, 5678.5678, 0, 1234.1234, 5678.5678, 1);
  EXPECT_FALSE(GXGeometry::Rotate3DPoint(through, 1, p, result));
  EXPECT_FALSE(GXGeometry::Rotate3DPoint(GX3DLine(through.End, through.Start), 1, p, result));
  EXPECT_FALSE(GXGeometry::Rotate3DPoint(Line(5, 5, 5, 5, 5, 5), 1, p, result));
  EXPECT_POINT_EQ(result, Point(-77, -78, -79));
}

TEST(Rotate3DPoint, AcceptsAnAxisThatPassesTheFixedPointAt0_00001) {
  GX3DPoint result(-77, -78, -79);
  const GX3DPoint p(1, 2, 3);
  const auto passing = [](double miss) {
    return Line(1234.1234 + miss, 5678.5678, 9000, 1234.1234 + miss, 5678.5678, 9001);
  };
  EXPECT_FALSE(GXGeometry::Rotate3DPoint(passing(0.0000099), 1, p, result));
  EXPECT_POINT_EQ(result, Point(-77, -78, -79));
  EXPECT_TRUE(GXGeometry::Rotate3DPoint(passing(0.0000101), 1, p, result));
  EXPECT_POINT_NEAR(result, support::Turned(passing(0.0000101), 1, p),
                    support::TurnBound(passing(0.0000101), p));
}

TEST(Rotate3DPoint, TheResultMayBeThePointOrAnEndOfTheAxis) {
  GX3DPoint p(2, 0, 5);
  EXPECT_TRUE(GXGeometry::Rotate3DPoint(Line(0, 0, 0, 0, 0, 1), kPi / 2, p, p));
  EXPECT_POINT_NEAR(p, Point(0, 2, 5), 1e-14);
  GX3DLine axis = Line(1, 0, 0, 1, 0, 1);
  EXPECT_TRUE(GXGeometry::Rotate3DPoint(axis, kPi / 2, Point(3, 0, 5), axis.Start));
  EXPECT_POINT_NEAR(axis.Start, Point(1, 2, 5), 1e-14);
}

TEST(PointInPlane, AdmitsADistanceOf0_00001) {
  const GX3DPoint a(0, 0, 0), b(1, 0, 0), c(0, 1, 0);
  const double above = std::nextafter(0.00001, 1);
  EXPECT_TRUE(GXGeometry::PointInPlane(a, b, c, Point(0.5, 0.5, 0.00001)));
  EXPECT_TRUE(GXGeometry::PointInPlane(a, b, c, Point(0.5, 0.5, -0.00001)));
  EXPECT_FALSE(GXGeometry::PointInPlane(a, b, c, Point(0.5, 0.5, above)));
  EXPECT_FALSE(GXGeometry::PointInPlane(a, b, c, Point(0.5, 0.5, -above)));
  EXPECT_TRUE(GXGeometry::PointInPlane(a, b, c, Point(1e6, -1e6, 0)));
}

TEST(PointInPlane, DividesByTheAreaFrom0_00001On) {
  const GX3DPoint a(0, 0, 0), b(1, 0, 0), below(0, 0, -1);
  // The determinant is about -0.00001 in both. Divided by the area it is a distance of 1; raw and
  // signed, it passes.
  EXPECT_FALSE(GXGeometry::PointInPlane(a, b, Point(0, 0.00001, 0), below));
  EXPECT_TRUE(GXGeometry::PointInPlane(a, b, Point(0, std::nextafter(0.00001, 0), 0), below));
}

TEST(PointInPlane, OfPointsAlmostInLineANegativeDeterminantAlwaysPasses) {
  const GX3DPoint a(0, 0, 0), b(0.001, 0, 0), c(0, 0.001, 0);  // area 0.000001
  EXPECT_TRUE(GXGeometry::PointInPlane(a, b, c, Point(0, 0, -1000)));
  EXPECT_FALSE(GXGeometry::PointInPlane(a, b, c, Point(0, 0, 1000)));
  EXPECT_TRUE(GXGeometry::PointInPlane(a, b, c, Point(0, 0, 5)));  // 0.000005
  EXPECT_FALSE(GXGeometry::PointInPlane(a, b, c, Point(0, 0, 20)));
}

TEST(PointsInLineTol, TheToleranceMustBeStrictlyAboveTheDistance) {
  const GX3DPoint a(0, 0, 0), b(1, 0, 0);
  EXPECT_FALSE(GXGeometry::PointsInLineTol(a, b, Point(0.5, 0.25, 0), 0.25));
  EXPECT_TRUE(GXGeometry::PointsInLineTol(a, b, Point(0.5, std::nextafter(0.25, 0), 0), 0.25));
  EXPECT_FALSE(GXGeometry::PointsInLineTol(a, b, Point(0.5, 0, 0), 0));
  EXPECT_TRUE(GXGeometry::PointsInLineTol(a, b, Point(900, 0, 0.125), 0.25));
}

TEST(PointsInLine, IsThatWith0_00001) {
  const GX3DPoint a(0, 0, 0), b(1, 0, 0);
  EXPECT_FALSE(GXGeometry::PointsInLine(a, b, Point(0.5, 0.00001, 0)));
  EXPECT_TRUE(GXGeometry::PointsInLine(a, b, Point(0.5, std::nextafter(0.00001, 0), 0)));
  EXPECT_TRUE(GXGeometry::PointsInLine(a, b, Point(-7, 0, 0)));
}

TEST(PointsInLine, IsTrueForAnyPointWhenTheFirstTwoAreEqual) {
  EXPECT_TRUE(GXGeometry::PointsInLine(Point(1, 1, 1), Point(1, 1, 1), Point(500, -3, 9)));
  EXPECT_TRUE(
      GXGeometry::PointsInLineTol(Point(1, 1, 1), Point(1, 1, 1), Point(500, -3, 9), 1e-300));
  EXPECT_FALSE(GXGeometry::PointsInLineTol(Point(1, 1, 1), Point(1, 1, 1), Point(1, 1, 1), 0));
}

}  // namespace
