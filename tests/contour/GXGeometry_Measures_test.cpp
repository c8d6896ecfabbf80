#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using support::kPi;
using support::Line;
using support::Point;

const double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

double LimitedDistance(const GX3DLine& line, const GX3DPoint& p) {
  double distance = -1;
  EXPECT_TRUE(GXGeometry::GetDistanceLimitedLinePoint(line, p, distance));
  return distance;
}

/// Distance of a point from a segment, in long double.
double PlainSegmentDistance(const GX3DLine& line, const GX3DPoint& p) {
  const long double v[3] = {static_cast<long double>(line.End.X) - line.Start.X,
                            static_cast<long double>(line.End.Y) - line.Start.Y,
                            static_cast<long double>(line.End.Z) - line.Start.Z};
  const long double w[3] = {static_cast<long double>(p.X) - line.Start.X,
                            static_cast<long double>(p.Y) - line.Start.Y,
                            static_cast<long double>(p.Z) - line.Start.Z};
  long double vv = 0;
  long double vw = 0;
  for (int i = 0; i < 3; ++i) {
    vv += v[i] * v[i];
    vw += v[i] * w[i];
  }
  const long double t = std::fmin(std::fmax(vw / vv, 0.0L), 1.0L);
  long double sum = 0;
  for (int i = 0; i < 3; ++i) {
    const long double d = w[i] - t * v[i];
    sum += d * d;
  }
  return static_cast<double>(std::sqrt(sum));
}

// Distances.

TEST(GetDistancePointPoint, IsTheLengthOfTheStretchBetween) {
  EXPECT_EQ(GXGeometry::GetDistancePointPoint(Point(1, 1), Point(4, 5)), 5.0);
  EXPECT_EQ(GXGeometry::GetDistancePointPoint(Point(4, 5), Point(1, 1)), 5.0);
  // 2, 3 and 6 make 7.
  EXPECT_EQ(GXGeometry::GetDistancePointPoint(Point(1, 2, 3), Point(3, 5, 9)), 7.0);
}

TEST(GetDistancePointPoint, OfAPointFromItselfIsExactlyNothing) {
  EXPECT_EQ(GXGeometry::GetDistancePointPoint(Point(0.1, 0.7), Point(0.1, 0.7)), 0.0);
  EXPECT_EQ(GXGeometry::GetDistancePointPoint(Point(0.1, 0.7, 9), Point(0.1, 0.7, 9)), 0.0);
}

TEST(GetDistancePointPoint, TellsNumbersThatAreNotFinite) {
  EXPECT_EQ(GXGeometry::GetDistancePointPoint(Point(0, 0), Point(kInfinity, 0)), kInfinity);
  EXPECT_TRUE(std::isnan(GXGeometry::GetDistancePointPoint(Point(0, 0), Point(kNaN, 0))));
  EXPECT_TRUE(std::isnan(GXGeometry::GetDistancePointPoint(Point(0, 0, 0), Point(0, 0, kNaN))));
}

TEST(GetDistanceLimitedLinePoint, BesideTheSegmentIsTheDistanceFromTheLine) {
  EXPECT_EQ(LimitedDistance(Line(0, 0, 0, 10, 0, 0), Point(4, 3, 4)), 5.0);
}

TEST(GetDistanceLimitedLinePoint, BeyondTheSegmentIsTheDistanceFromTheNearerEnd) {
  const GX3DLine line = Line(0, 0, 0, 10, 0, 0);
  EXPECT_EQ(LimitedDistance(line, Point(-3, 4, 0)), 5.0);
  EXPECT_EQ(LimitedDistance(line, Point(13, 0, -4)), 5.0);
}

TEST(GetDistanceLimitedLinePoint, OnALineWithoutLengthFailsAndWritesNothingness) {
  double distance = -1;
  EXPECT_FALSE(
      GXGeometry::GetDistanceLimitedLinePoint(Line(3, 3, 3, 3, 3, 3), Point(9, 9, 9), distance));
  EXPECT_EQ(distance, 0.0);
}

TEST(GetDistanceLimitedLinePoint, OfASegmentUpTo0_0001LongIsThatFromTheUnboundedLine) {
  // Such a segment has no parameters: every foot counts as its start.
  EXPECT_NEAR(LimitedDistance(Line(0, 0, 0, 0.0001, 0, 0), Point(10, 3, 0)), 3.0, 1e-12);
  const double above = std::nextafter(0.0001, 1);
  EXPECT_NEAR(LimitedDistance(Line(0, 0, 0, above, 0, 0), Point(10, 3, 0)),
              std::sqrt(9.0 + (10 - above) * (10 - above)), 1e-12);
}

TEST(GetDistanceLimitedLinePoint, OfASegmentWithoutACoordinateAbove0_0001IsThatFromTheLine) {
  // 0.00009 on each axis is 0.000156 long, but no axis carries a parameter.
  const GX3DLine line = Line(0, 0, 0, 0.00009, 0.00009, 0.00009);
  EXPECT_NEAR(LimitedDistance(line, Point(10, 10, 10)), 0.0, 1e-12);
}

TEST(GetDistanceLimitedLinePoint, AgreesWithPlainArithmetic) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const GX3DLine line(random.Point3D(50), random.Point3D(50));
    if (line.Len() < 5) {
      continue;
    }
    const GX3DPoint p = random.Point3D(100);
    // At the ends the distance hardly depends on the side that is taken, so 1e-10 holds everywhere.
    EXPECT_NEAR(LimitedDistance(line, p), PlainSegmentDistance(line, p), 1e-10) << i;
  }
}

TEST(GetDistanceBetweenPointPlane, IsNeverNegativeAndLeavesThePoint) {
  GX3DPoint above(7, 8, 5);
  GX3DPoint below(7, 8, -5);
  EXPECT_EQ(GXGeometry::GetDistanceBetweenPointPlane(above, Point(0, 0, 0), Point(2, 0, 0),
                                                     Point(0, 2, 0)),
            5.0);
  EXPECT_EQ(GXGeometry::GetDistanceBetweenPointPlane(below, Point(0, 0, 0), Point(2, 0, 0),
                                                     Point(0, 2, 0)),
            5.0);
  EXPECT_POINT_EQ(above, Point(7, 8, 5));
  EXPECT_POINT_EQ(below, Point(7, 8, -5));
}

TEST(GetDistanceBetweenPointPlane, MayBeAskedForAPointOfThePlaneItself) {
  GX3DPoint a(1, 2, 3);
  EXPECT_NEAR(GXGeometry::GetDistanceBetweenPointPlane(a, a, Point(4, 2, 9), Point(5, 5, 5)), 0.0,
              1e-12);
  EXPECT_POINT_EQ(a, Point(1, 2, 3));
}

TEST(GetDistanceBetweenPointPlane, AgreesWithTheNormalForm) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const GX3DPoint a = random.Point3D(20);
    const GX3DPoint b = random.Point3D(20);
    const GX3DPoint c = random.Point3D(20);
    const GXVector normal = GXVector(a, b) * GXVector(a, c);
    if (normal.Len() < 20) {
      continue;
    }
    GX3DPoint p = random.Point3D(50);
    const double expected = std::fabs(normal.dot(GXVector(a, p))) / normal.Len();
    // Edges up to 60 with an area above 20 give axes good to about 1e-14, figures below 100.
    EXPECT_NEAR(GXGeometry::GetDistanceBetweenPointPlane(p, a, b, c), expected, 1e-10) << i;
  }
}

TEST(GetLengthOnDirection, MeasuresTheStretchAlongTheDirection) {
  const GXVector x(1, 0, 0);
  const GXVector y(0, 1, 0);
  EXPECT_NEAR(GXGeometry::GetLengthOnDirection(Point(0, 0), Point(3, 4), x), 3.0, 1e-12);
  EXPECT_NEAR(GXGeometry::GetLengthOnDirection(Point(0, 0), Point(3, 4), y), 4.0, 1e-12);
  EXPECT_NEAR(GXGeometry::GetLengthOnDirection(Point(1, 1), Point(1, 6), x), 0.0, 1e-12);
}

TEST(GetLengthOnDirection, AlongTheDirectionIsTheDistance) {
  EXPECT_EQ(GXGeometry::GetLengthOnDirection(Point(5, 5), Point(9, 5), GXVector(1, 0, 0)), 4.0);
  EXPECT_EQ(GXGeometry::GetLengthOnDirection(Point(5, 5), Point(5, 2), GXVector(0, 1, 0)), 3.0);
}

TEST(GetLengthOnDirection, IsNeverNegative) {
  EXPECT_NEAR(GXGeometry::GetLengthOnDirection(Point(3, 4), Point(0, 0), GXVector(1, 0, 0)), 3.0,
              1e-12);
  EXPECT_NEAR(GXGeometry::GetLengthOnDirection(Point(0, 0), Point(3, 4), GXVector(-1, 0, 0)), 3.0,
              1e-12);
}

TEST(GetLengthOnDirection, OfPointsUpTo0_0001ApartIsNothing) {
  const GXVector x(1, 0, 0);
  EXPECT_EQ(GXGeometry::GetLengthOnDirection(Point(0, 0), Point(0.0001, 0), x), 0.0);
  EXPECT_EQ(GXGeometry::GetLengthOnDirection(Point(0, 0), Point(0, 0), x), 0.0);
  const double above = std::nextafter(0.0001, 1);
  EXPECT_EQ(GXGeometry::GetLengthOnDirection(Point(0, 0), Point(above, 0), x), above);
}

TEST(GetLengthOnDirection, TakesAStretchAlmostAlongTheDirectionInFull) {
  const GXVector x(1, 0, 0);
  // Cosine 0.99991: within 0.0001 of 1, so the hypotenuse counts. Cosine 0.99989 is not, and the
  // stretch is projected.
  const double side = 100 * std::sqrt(1 - 0.99991 * 0.99991);
  EXPECT_NEAR(GXGeometry::GetLengthOnDirection(Point(0, 0), Point(99.991, side), x), 100, 1e-9);
  EXPECT_NEAR(GXGeometry::GetLengthOnDirection(Point(99.991, side), Point(0, 0), x), 100, 1e-9);
  const double wider = 100 * std::sqrt(1 - 0.99989 * 0.99989);
  EXPECT_NEAR(GXGeometry::GetLengthOnDirection(Point(0, 0), Point(99.989, wider), x), 99.989, 1e-9);
}

TEST(GetLengthOnDirection, AgreesWithTheScalarProductForUnitDirections) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const double bearing = random.Between(0.1, kPi / 2 - 0.1) + random.Int(0, 3) * kPi / 2;
    const GXVector direction(std::cos(bearing), std::sin(bearing), 0);
    const GX2DPoint p1 = random.Point2D(50);
    const GX2DPoint p2 = random.Point2D(50);
    const GXVector v(p1, p2);
    const double along = std::fabs(direction.dot(v));
    if (v.Len() < 1 || std::fabs(along / v.Len() - 1) < 0.001) {
      continue;
    }
    // Slopes up to 10 on both lines, which are square to each other: 1e-10 is ample.
    EXPECT_NEAR(GXGeometry::GetLengthOnDirection(p1, p2, direction), along, 1e-10) << i;
  }
}

TEST(GetLengthOnDirection, SurvivesDirectionsThatAreNone) {
  for (const GXVector& direction :
       {GXVector(0, 0, 0), GXVector(kNaN, 0, 0), GXVector(kInfinity, 1, 0), GXVector(0, 0, 1)}) {
    const double length = GXGeometry::GetLengthOnDirection(Point(0, 0), Point(3, 4), direction);
    EXPECT_FALSE(length < 0);
  }
}

TEST(Get2DMidPoint, IsHalfWayBetween) {
  EXPECT_POINT_EQ(GXGeometry::Get2DMidPoint(Point(1, 2), Point(4, -8)), Point(2.5, -3));
  EXPECT_POINT_EQ(GXGeometry::Get2DMidPoint(Point(7, 7), Point(7, 7)), Point(7, 7));
}

// Parameters.

TEST(PointParametricOnLine, RunsFromStartToEndAndBeyond) {
  const GX2DLine line(2, 0, 6, 0);
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(2, 0), line), 0.0);
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(3, 0), line), 0.25);
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(6, 0), line), 1.0);
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(10, 0), line), 2.0);
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(0, 0), line), -0.5);
}

TEST(PointParametricOnLine, OnAVerticalLineIsTakenFromY) {
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(5, 1), Line(5, 0, 5, 4)), 0.25);
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(5, 1, 9), Line(5, 0, 9, 5, 4, 9)), 0.25);
}

TEST(PointParametricOnLine, FollowsOneAxisAndNotTheFoot) {
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(5, 100), Line(0, 0, 10, 10)), 0.5);
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(-70, 1), Line(5, 0, 5, 4)), 0.25);
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(5, 100, -3), Line(0, 0, 0, 10, 10, 10)), 0.5);
}

TEST(PointParametricOnLine, LeavesXFromAnExtentOf0_0001Down) {
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(0.00005, 9), Line(0, 0, 0.0001, 10)), 0.9);
  const double above = std::nextafter(0.0001, 1);
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(above / 2, 9), Line(0, 0, above, 10)), 0.5);
}

TEST(PointParametricOnLine, InSpaceGoesOnToZ) {
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(9, 9, 1), Line(0, 0, 0, 0, 0, 4)), 0.25);
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(9, 9, 1), Line(0, 0, 0, 0.0001, -0.0001, 4)),
            0.25);
  const double above = std::nextafter(0.0001, 1);
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(9, above * 2, 1), Line(0, 0, 0, 0, above, 4)),
            2.0);
}

TEST(PointParametricOnLine, OfALineUpTo0_0001LongIsNothing) {
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(7, 7), Line(0, 0, 0.0001, 0)), 0.0);
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(7, 7), Line(3, 3, 3, 3)), 0.0);
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(7, 7, 7), Line(0, 0, 0, 0, 0, 0.0001)), 0.0);
}

TEST(PointParametricOnLine, OfALineWithoutAUsableAxisIsNothing) {
  // Longer than 0.0001, but on no axis.
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(7, 7), Line(0, 0, 0.00009, 0.00009)), 0.0);
  EXPECT_EQ(
      GXGeometry::PointParametricOnLine(Point(7, 7, 7), Line(0, 0, 0, 0.00009, 0.00009, 0.00009)),
      0.0);
  // 0.0001 itself is not usable.
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(7, 7), Line(0, 0, 0.00005, 0.0001)), 0.0);
  EXPECT_EQ(GXGeometry::PointParametricOnLine(Point(7, 7, 7), Line(0, 0, 0, 0.00005, 0, 0.0001)),
            0.0);
}

// Small predicates.

TEST(VectorAnotherPnt, TakesTheFirstOfTwoPointsThatDiffers) {
  GXVector result(9, 9, 9);
  GXGeometry::VectorAnotherPnt(Point(1, 2, 3), Point(4, 5, 6), Point(7, 8, 10), result);
  EXPECT_POINT_EQ(result, GXVector(4, 5, 6));
  GXGeometry::VectorAnotherPnt(Point(4, 5, 6), Point(4.0001, 5, 5.99995), Point(7, 8, 10), result);
  EXPECT_POINT_EQ(result, GXVector(7, 8, 10));
}

TEST(VectorEndpPnt, RunsFromThePointThatDiffersToTheFirst) {
  GXVector result(9, 9, 9);
  GXGeometry::VectorEndpPnt(Point(1, 2, 3), Point(4, 5, 6), Point(7, 8, 10), result);
  EXPECT_POINT_EQ(result, GXVector(-3, -3, -3));
  GXGeometry::VectorEndpPnt(Point(4, 5, 6), Point(4, 5, 6), Point(7, 8, 10), result);
  EXPECT_POINT_EQ(result, GXVector(-3, -3, -4));
}

TEST(VectorToTheOtherPoint, AdmitsADifferenceOf0_0001PerCoordinate) {
  const GX3DPoint origin(0, 0, 0);
  const GX3DPoint at(0.0001, -0.0001, 0.0001);
  const GX3DPoint beyond(0, 0, std::nextafter(0.0001, 1));
  const GX3DPoint c(7, 8, 9);
  GXVector result;
  GXGeometry::VectorAnotherPnt(origin, at, c, result);
  EXPECT_POINT_EQ(result, GXVector(7, 8, 9));
  GXGeometry::VectorAnotherPnt(origin, beyond, c, result);
  EXPECT_POINT_EQ(result, GXVector(beyond));
  GXGeometry::VectorEndpPnt(origin, at, c, result);
  EXPECT_POINT_EQ(result, GXVector(-7, -8, -9));
  GXGeometry::VectorEndpPnt(origin, beyond, c, result);
  EXPECT_POINT_EQ(result, GXVector(0, 0, -beyond.Z));
}

TEST(AreParallel3DLines, AdmitsASineOf0_01EitherWay) {
  const GX3DLine x = Line(0, 0, 0, 3, 0, 0);
  EXPECT_TRUE(GXGeometry::AreParallel3DLines(x, Line(5, 5, 5, 9, 5, 5)));
  EXPECT_TRUE(GXGeometry::AreParallel3DLines(Line(5, 1, 7, 8, 3, 6), Line(0, 0, 0, -3, -2, 1)));
  EXPECT_TRUE(GXGeometry::AreParallel3DLines(x, Line(9, 5, 5, 5, 5, 5)));
  EXPECT_TRUE(GXGeometry::AreParallel3DLines(x, Line(0, 0, 0, 1, 0, std::tan(std::asin(0.0099)))));
  EXPECT_FALSE(GXGeometry::AreParallel3DLines(x, Line(0, 0, 0, 1, std::tan(std::asin(0.0101)), 0)));
  EXPECT_FALSE(GXGeometry::AreParallel3DLines(x, Line(0, 0, 0, 0, 0, 1)));
}

TEST(AreParallel3DLines, IsFalseForALineWithoutLength) {
  const GX3DLine x = Line(0, 0, 0, 3, 0, 0);
  const GX3DLine none = Line(1, 1, 1, 1, 1, 1);
  EXPECT_FALSE(GXGeometry::AreParallel3DLines(x, none));
  EXPECT_FALSE(GXGeometry::AreParallel3DLines(none, x));
  EXPECT_FALSE(GXGeometry::AreParallel3DLines(none, none));
  EXPECT_FALSE(GXGeometry::AreParallel3DLinesTol(x, none, 2.0));
  // Any length above 0 is a length.
  EXPECT_TRUE(GXGeometry::AreParallel3DLines(x, Line(0, 0, 0, 1e-100, 0, 0)));
}

TEST(AreParallel3DLinesTol, AdmitsTheLimitItself) {
  // Sides 3, 4, 5: the sine is 3/5.
  const GX3DLine x = Line(0, 0, 0, 1, 0, 0);
  const GX3DLine slanted = Line(2, 2, 2, 6, 5, 2);
  EXPECT_TRUE(GXGeometry::AreParallel3DLinesTol(x, slanted, 0.6));
  EXPECT_FALSE(GXGeometry::AreParallel3DLinesTol(x, slanted, std::nextafter(0.6, 0)));
  EXPECT_TRUE(GXGeometry::AreParallel3DLinesTol(x, Line(0, 0, 0, 0, 7, 0), 1.0));
  EXPECT_TRUE(GXGeometry::AreParallel3DLinesTol(x, Line(0, 0, 0, 7, 0, 0), 0.0));
  EXPECT_FALSE(GXGeometry::AreParallel3DLinesTol(x, slanted, kNaN));
}

TEST(Measures, SurviveNumbersThatAreNotFinite) {
  for (const double odd : {kNaN, kInfinity, -kInfinity, 1e308}) {
    const GX3DLine line = Line(odd, 0, 1, 2, odd, 3);
    double distance = 0;
    GXGeometry::GetDistanceLimitedLinePoint(line, Point(1, odd, 1), distance);
    GX3DPoint p(odd, 1, 1);
    GXGeometry::GetDistanceBetweenPointPlane(p, Point(0, odd, 0), Point(1, 0, 0), Point(0, 1, 0));
    GXGeometry::PointParametricOnLine(Point(1, 1, odd), line);
    GXGeometry::AreParallel3DLines(line, line);
    EXPECT_FALSE(GXGeometry::AreParallel3DLines(Line(kNaN, 0, 0, 1, 1, 1), line));
  }
}

}  // namespace
