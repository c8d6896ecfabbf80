#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Turn.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using support::Point;

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();
const double kPi = 3.141592653589793;

double Above(double x) { return std::nextafter(x, kInfinity); }
double Below(double x) { return std::nextafter(x, -kInfinity); }

// The offset corner. Unless a test says otherwise the corner is (10, 0) with a leg of 10 to the
// left and one of 5 upwards; length 20, radius 2, thickness 1.

const GX3DPoint kPreset(-71, -72, -73);

struct Corner {
  GX2DPoint p0 = GX2DPoint(0, 0);
  GX2DPoint p1 = GX2DPoint(10, 0);
  GX2DPoint p2 = GX2DPoint(10, 5);
  GX2DPoint p3 = GX2DPoint(7, 3);
  double angle = 90;
  double length = 20;
  double r = 2;
  double t = 1;
};

struct Ends {
  int count = 0;
  GX2DPoint first;
  GX2DPoint second;
};

Ends EndsOf(const Corner& c) {
  GX3DPoint result[3] = {kPreset, kPreset, kPreset};
  Ends ends;
  ends.count = GXGeometry::GetLinesWithThickness(c.p0, c.p1, c.p2, c.p3, c.angle, c.length, c.r,
                                                 c.t, result);
  EXPECT_EQ(result[0].Z, kPreset.Z);
  EXPECT_EQ(result[1].Z, kPreset.Z);
  EXPECT_POINT_EQ(result[2], kPreset);
  ends.first = GX2DPoint(result[0], 2);
  ends.second = GX2DPoint(result[1], 2);
  if (ends.count == 1) {
    EXPECT_POINT_EQ(result[1], kPreset);
  }
  return ends;
}

Corner SameSide(double angle) {
  Corner corner;
  corner.angle = angle;
  return corner;
}

Corner OtherSide(double angle) {
  Corner corner = SameSide(angle);
  corner.p3 = GX2DPoint(7, -3);
  return corner;
}

void ExpectOne(const Corner& corner, const GX2DPoint& first) {
  const Ends ends = EndsOf(corner);
  EXPECT_EQ(ends.count, 1);
  EXPECT_POINT_NEAR(ends.first, first, 1e-12);
}

void ExpectTwo(const Corner& corner, const GX2DPoint& first, const GX2DPoint& second,
               double tolerance = 1e-12) {
  const Ends ends = EndsOf(corner);
  EXPECT_EQ(ends.count, 2);
  EXPECT_POINT_NEAR(ends.first, first, tolerance);
  EXPECT_POINT_NEAR(ends.second, second, tolerance);
}

TEST(GetLinesWithThickness, OfARightAngleOnTheSameSideIsOnePoint) {
  ExpectOne(SameSide(90.0), Point(10, 20));
}

TEST(GetLinesWithThickness, OfAnObtuseAngleOnTheSameSideGoesAlongTheSecondLegFromTheCorner) {
  ExpectOne(SameSide(120), Point(10, 20));
  ExpectOne(SameSide(179), Point(10, 20));
  Corner slanted = SameSide(120);
  slanted.p2 = GX2DPoint(13, 4);
  slanted.length = 10;
  ExpectOne(slanted, Point(16, 8));
}

TEST(GetLinesWithThickness, OfAnObtuseAngleOnTheOtherSideStopsBeforeTheBend) {
  // tan 45 = 1 and r / T = 2: the first leg ends 2 before the corner, the second is 2 shorter.
  ExpectTwo(OtherSide(90), Point(8, 18), Point(8, 0));
  // tan 60 is the root of 3.
  Corner blunt = OtherSide(120);
  blunt.r = std::sqrt(3.0);
  ExpectTwo(blunt, Point(9, 19), Point(9, 0));
}

TEST(GetLinesWithThickness, OfAStraightAngleHasNoBend) {
  ExpectOne(SameSide(180), Point(10, 20));
  ExpectTwo(OtherSide(180), Point(10, 20), Point(10, 0));
}

TEST(GetLinesWithThickness, OfASharpAngleOnTheSameSideAddsTheBendAndTheThickness) {
  // tan 30 = 1 / root 3, so k = root 3 - 1; (r + t) k = 3 k.
  const double bend = 3 * (std::sqrt(3.0) - 1);
  ExpectTwo(SameSide(60), Point(10 + bend, 20 + bend), Point(10 + bend, 0));
}

TEST(GetLinesWithThickness, OfASharpAngleOnTheOtherSideAddsTheThicknessLessTheRadius) {
  // k t - r = root 3 - 1 - 2.
  const double bend = std::sqrt(3.0) - 3;
  ExpectTwo(OtherSide(60), Point(10 + bend, 20 + bend), Point(10 + bend, 0));
}

TEST(GetLinesWithThickness, IsObtuseAbove1_5707863267948965Strictly) {
  // 89.99942704220487 degrees are exactly that many radians, the next double is more.
  EXPECT_EQ(EndsOf(SameSide(89.99942704220487)).count, 2);
  EXPECT_EQ(EndsOf(SameSide(Above(89.99942704220487))).count, 1);
}

TEST(GetLinesWithThickness, TakesTheSignOffTheAngle) {
  ExpectOne(SameSide(-120), Point(10, 20));
  const double bend = 3 * (std::sqrt(3.0) - 1);
  ExpectTwo(SameSide(-60), Point(10 + bend, 20 + bend), Point(10 + bend, 0));
}

TEST(GetLinesWithThickness, BeyondHalfATurnTakesTheRestAndTheOtherSide) {
  ExpectTwo(SameSide(270), Point(8, 18), Point(8, 0));
  ExpectOne(OtherSide(270), Point(10, 20));
  const double sharp = std::sqrt(3.0) - 3;
  ExpectTwo(SameSide(300), Point(10 + sharp, 20 + sharp), Point(10 + sharp, 0));
  const double same = 3 * (std::sqrt(3.0) - 1);
  ExpectTwo(OtherSide(300), Point(10 + same, 20 + same), Point(10 + same, 0));
}

TEST(GetLinesWithThickness, ReversesTheSideStrictlyAboveHalfATurn) {
  EXPECT_EQ(EndsOf(SameSide(180)).count, 1);
  EXPECT_EQ(EndsOf(SameSide(Above(180))).count, 2);
  EXPECT_EQ(EndsOf(SameSide(-180)).count, 1);
  EXPECT_EQ(EndsOf(SameSide(-Above(180))).count, 2);
}

TEST(GetLinesWithThickness, OfANegativeReflexAngleSubtractsAnotherTurn) {
  // -270 - 360 = -630, and tan 315 = -1: r / T = -2.
  ExpectTwo(SameSide(-270), Point(12, 22), Point(12, 0));
  ExpectOne(OtherSide(-270), Point(10, 20));
}

TEST(GetLinesWithThickness, CountsTheLineOfTheFirstLegAsTheOtherSide) {
  Corner corner = SameSide(120);
  corner.p3 = GX2DPoint(3, 0);
  EXPECT_EQ(EndsOf(corner).count, 2);
  corner.p3 = GX2DPoint(3, 1e-9);
  EXPECT_EQ(EndsOf(corner).count, 1);
  corner.p2 = GX2DPoint(15, 0);  // the second leg itself in line
  EXPECT_EQ(EndsOf(corner).count, 2);
  Corner below;  // both sides of the line are alike
  below.p2 = GX2DPoint(10, -5);
  below.p3 = GX2DPoint(7, -3);
  ExpectOne(below, Point(10, -20));
}

TEST(GetLinesWithThickness, StaysAtTheFirstPointWithoutATangent) {
  // Twice round leaves one turn, whose half has the tangent 0: on the obtuse branch.
  ExpectTwo(SameSide(720), Point(0, 0), Point(0, 0), 0);
  // On the sharp branch.
  ExpectTwo(SameSide(0), Point(0, 0), Point(0, 0), 0);
  ExpectTwo(OtherSide(0), Point(0, 0), Point(0, 0), 0);
  // Half of 0.0011 degrees has the tangent 0.0000096, half of 0.0012 has 0.00001047.
  ExpectTwo(SameSide(0.0011), Point(0, 0), Point(0, 0), 0);
  EXPECT_GT(EndsOf(SameSide(0.0012)).first.X, 10000);
}

TEST(GetLinesWithThickness, WithoutASecondLegEndsAtTheCorner) {
  Corner corner = SameSide(120);
  corner.p2 = GX2DPoint(10, 0.0000099);
  ExpectOne(corner, Point(10, 0));
  corner.p2 = GX2DPoint(10, 0.0000101);
  ExpectOne(corner, Point(10, 20));
  corner = OtherSide(270);  // reversed, so that no side at all counts as the same
  corner.p2 = corner.p1;
  ExpectOne(corner, Point(10, 0));
}

TEST(GetLinesWithThickness, WithoutASecondLegRepeatsTheSecondPoint) {
  const double k = std::sqrt(3.0) - 1;
  Corner corner = OtherSide(90);
  corner.p2 = GX2DPoint(10, 0.0000099);
  ExpectTwo(corner, Point(8, 0), Point(8, 0));
  corner.angle = 60;
  ExpectTwo(corner, Point(8 + k, 0), Point(8 + k, 0));
  corner = SameSide(60);
  corner.p2 = GX2DPoint(10, 0.0000099);
  ExpectTwo(corner, Point(10 + 3 * k, 0), Point(10 + 3 * k, 0));
  corner.p2 = GX2DPoint(10, 0.0000101);
  ExpectTwo(corner, Point(10 + 3 * k, 20 + 3 * k), Point(10 + 3 * k, 0));
}

TEST(GetLinesWithThickness, WithoutAFirstLegStartsAtItsPointAndGoesAlongTheSecond) {
  const double k = std::sqrt(3.0) - 1;
  Corner corner = OtherSide(90);
  corner.p0 = GX2DPoint(10 - 0.0000099, 0);
  ExpectTwo(corner, Point(corner.p0.X, 18), corner.p0);
  corner.angle = 60;
  ExpectTwo(corner, Point(corner.p0.X, 20 + k - 2), corner.p0);
  corner.p3 = GX2DPoint(7, 3);
  ExpectTwo(corner, Point(corner.p0.X, 20 + 3 * k), corner.p0);
  // A leg of 0.0000101 is one: from its end through the corner and 3 k beyond.
  corner.p0 = GX2DPoint(10 - 0.0000101, 0);
  ExpectTwo(corner, Point(10 + 3 * k, 20 + 3 * k), Point(10 + 3 * k, 0), 1e-9);
}

TEST(GetLinesWithThickness, WithoutAnyLegStaysAtTheFirstPoint) {
  for (const double angle : {60.0, 90.0, 120.0}) {
    Corner corner = SameSide(angle);
    corner.p0 = corner.p2 = corner.p1;
    ExpectTwo(corner, Point(10, 0), Point(10, 0), 0);
  }
}

TEST(GetLinesWithThickness, TurnsAndMirrorsWithItsCorner) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    Corner corner;
    corner.p0 = random.Point2D(20);
    corner.p1 = random.Point2D(20);
    corner.p2 = random.Point2D(20);
    corner.p3 = random.Point2D(20);
    corner.angle = random.Between(5, 355);
    const Ends ends = EndsOf(corner);
    Corner turned = corner;
    Corner mirrored = corner;
    Ends expected[2] = {ends, ends};
    for (GX2DPoint* p : {&turned.p0, &turned.p1, &turned.p2, &turned.p3, &expected[0].first,
                         &expected[0].second}) {
      p->RotateAxis(Point(3, 4), 37);
    }
    for (GX2DPoint* p : {&mirrored.p0, &mirrored.p1, &mirrored.p2, &mirrored.p3, &expected[1].first,
                         &expected[1].second}) {
      p->MirrorX();
    }
    for (int j = 0; j < 2; ++j) {
      const Ends other = EndsOf(j == 0 ? turned : mirrored);
      ASSERT_EQ(other.count, ends.count) << i;
      // Figures up to some hundred: legs below 60 and a bend below 3 / tan 2.5.
      EXPECT_POINT_NEAR(other.first, expected[j].first, 1e-9) << i;
      if (ends.count == 2) {
        EXPECT_POINT_NEAR(other.second, expected[j].second, 1e-9) << i;
      }
    }
  }
}

TEST(GetLinesWithThickness, SurvivesNumbersThatAreNotFinite) {
  for (const double odd : {kNaN, kInfinity, -kInfinity, 1e308}) {
    for (const double angle : {odd, 60.0, 90.0, 300.0}) {
      Corner corner = SameSide(angle);
      corner.p0 = GX2DPoint(odd, 0);
      corner.r = odd;
      const int count = EndsOf(corner).count;
      EXPECT_TRUE(count == 1 || count == 2);
    }
  }
}

// Points of an ellipse.

const double kStep = 0.010471975511965976;

std::vector<GX2DPoint> Ellipse(const GX3DPoint& centre, const GX3DPoint& axisEnd, double ratio,
                               double from, double to) {
  std::vector<GX2DPoint> points;
  GXGeometry::ConvertEllipseToPoints(centre, axisEnd, ratio, from, to, points);
  return points;
}

TEST(ConvertEllipseToPoints, WithTheRatioOneGivesACircle) {
  const auto points = Ellipse(Point(1, 2, 0), Point(4, 6, 0), 1, 0, 2 * kPi);
  for (const GX2DPoint& p : points) EXPECT_NEAR(std::hypot(p.X - 1, p.Y - 2), 5, 1e-12);
  EXPECT_POINT_NEAR(points.front(), Point(4, 6), 1e-12);
  EXPECT_POINT_NEAR(points.back(), Point(4, 6), 1e-12);
}

TEST(ConvertEllipseToPoints, StartsAtTheEndOfTheMajorAxisAndRunsCounterClockwise) {
  // Semi-axes 5 along (3, 4) and 2.5 along (-4, 3).
  const auto points = Ellipse(Point(1, 2, 0), Point(4, 6, 0), 0.5, 0, kPi / 2);
  EXPECT_POINT_NEAR(points.front(), Point(4, 6), 1e-12);
  EXPECT_POINT_NEAR(points.back(), Point(1 - 2, 2 + 1.5), 1e-12);
  const GX2DPoint half = Ellipse(Point(1, 2, 0), Point(4, 6, 0), 0.5, 3, kPi).back();
  EXPECT_POINT_NEAR(half, Point(-2, -2), 1e-12);
}

TEST(ConvertEllipseToPoints, KnowsAMajorAxisThatPointsDown) {
  const auto points = Ellipse(Point(1, 2, 0), Point(4, -2, 0), 0.5, 0, kPi / 2);
  EXPECT_POINT_NEAR(points.front(), Point(4, -2), 1e-12);
  EXPECT_POINT_NEAR(points.back(), Point(1 + 2, 2 + 1.5), 1e-12);
}

TEST(ConvertEllipseToPoints, StaysOnTheEllipseAtEqualParameters) {
  support::Random random;
  for (int i = 0; i < 100; ++i) {
    const GX3DPoint centre(random.Between(-9, 9), random.Between(-9, 9), 4);
    const double turn = random.Between(-kPi, kPi);
    const double major = random.Between(1, 20);
    const double ratio = random.Between(0.1, 1.5);
    const double from = random.Between(-7, 7);
    const double to = from + random.Between(0.1, 3);
    const GX3DPoint end(centre.X + major * std::cos(turn), centre.Y + major * std::sin(turn), 4);
    const auto points = Ellipse(centre, end, ratio, from, to);
    for (std::size_t j = 0; j < points.size(); ++j) {
      const double s = j + 1 == points.size() ? to : from + static_cast<double>(j) * kStep;
      const double along = major * std::cos(s);
      const double across = major * ratio * std::sin(s);
      const GX2DPoint expected(centre.X + along * std::cos(turn) - across * std::sin(turn),
                               centre.Y + along * std::sin(turn) + across * std::cos(turn));
      // The arc cosine loses half the digits next to 0 and pi.
      ASSERT_POINT_NEAR(points[j], expected, 1e-6) << i << ' ' << j;
    }
  }
}

TEST(ConvertEllipseToPoints, AppendsAPointForEveryStepAndOneForTheEnd) {
  const auto count = [](double from, double to) {
    return Ellipse(Point(0, 0, 0), Point(1, 0, 0), 1, from, to).size();
  };
  EXPECT_EQ(count(0, 0.1), 11u);  // 9 whole steps and a rest: 0 to 9, and the end
  EXPECT_EQ(count(0, kStep / 2), 2u);
  EXPECT_EQ(count(0, kStep), 2u);  // the running parameter has to stay below the end
  EXPECT_EQ(count(0, Above(kStep)), 3u);
  EXPECT_EQ(count(0, kStep + kStep), 3u);
  EXPECT_EQ(count(-1, -1 + 5.5 * kStep), 7u);
  EXPECT_EQ(count(1, 1 + 599.5 * kStep), 601u);
}

TEST(ConvertEllipseToPoints, EndsExactlyOnTheEndParameterHoweverTheStepsFall) {
  const GX3DPoint centre(1, 2, 0);
  const GX3DPoint end(4, 6, 0);
  for (const double to : {0.1, 1.0, kPi, 2 * kPi, 5 * kStep}) {
    const GX2DPoint exact = Ellipse(centre, end, 0.3, to, to + 1).front();
    EXPECT_POINT_EQ(Ellipse(centre, end, 0.3, 0, to).back(), exact);
    EXPECT_POINT_EQ(Ellipse(centre, end, 0.3, -0.777, to).back(), exact);
  }
}

TEST(ConvertEllipseToPoints, GivesNothingUnlessTheEndIsGreater) {
  EXPECT_TRUE(Ellipse(Point(0, 0, 0), Point(1, 0, 0), 1, 1, 1).empty());
  EXPECT_TRUE(Ellipse(Point(0, 0, 0), Point(1, 0, 0), 1, 1, Below(1)).empty());
  EXPECT_TRUE(Ellipse(Point(0, 0, 0), Point(1, 0, 0), 1, 5, -5).empty());
  EXPECT_EQ(Ellipse(Point(0, 0, 0), Point(1, 0, 0), 1, 1, Above(1)).size(), 2u);
}

TEST(ConvertEllipseToPoints, AppendsToWhatIsThere) {
  std::vector<GX2DPoint> points = {Point(-8, -9)};
  GXGeometry::ConvertEllipseToPoints(Point(0, 0, 0), Point(1, 0, 0), 1, 0, kStep, points);
  ASSERT_EQ(points.size(), 3u);
  EXPECT_POINT_EQ(points[0], Point(-8, -9));
}

TEST(ConvertEllipseToPoints, MeasuresTheMajorAxisInSpace) {
  // 5 long, of which 3 along x: the arc cosine of 3/5 turns it to (3, 4), or (3, -4) below.
  EXPECT_POINT_NEAR(Ellipse(Point(0, 0, 0), Point(3, 0, 4), 1, 0, 1).front(), Point(3, 4), 1e-12);
  EXPECT_POINT_NEAR(Ellipse(Point(0, 0, 0), Point(3, -1e-15, 4), 1, 0, 1).front(), Point(3, -4),
                    1e-12);
}

TEST(ConvertEllipseToPoints, WithoutAnAxisRepeatsTheCentre) {
  const auto points = Ellipse(Point(3, 4, 5), Point(3, 4, 5), 1, 0, 0.1);
  EXPECT_EQ(points.size(), 11u);
  for (const GX2DPoint& p : points) EXPECT_POINT_EQ(p, Point(3, 4));
}

TEST(ConvertEllipseToPoints, OfParametersWithoutALimitHasTheEndAlone) {
  const auto count = [](double from, double to) {
    return Ellipse(Point(0, 0, 0), Point(1, 0, 0), 1, from, to).size();
  };
  EXPECT_EQ(count(-kInfinity, 1), 1u);
  EXPECT_EQ(count(0, kInfinity), 0u);
  EXPECT_EQ(count(-kInfinity, kInfinity), 0u);
  EXPECT_EQ(count(0, kNaN), 0u);
  EXPECT_EQ(count(kNaN, 0), 1u);
  EXPECT_EQ(count(kInfinity, 0), 0u);
  EXPECT_EQ(count(1e18, 1.1e18), 1u);  // a step is lost in the start
  EXPECT_EQ(count(-1e300, 1e300), 1u);
}

TEST(ConvertEllipseToPoints, StopsAtAMillionPointsWithTheEndAsTheLast) {
  const auto points = Ellipse(Point(0, 0, 0), Point(1, 0, 0), 1, 0, 1e6);
  EXPECT_LE(points.size(), 1000000u);
  EXPECT_GE(points.size(), 999999u);
  EXPECT_POINT_EQ(points.back(), Ellipse(Point(0, 0, 0), Point(1, 0, 0), 1, 1e6, 1e6 + 1).front());
}

// Center of three points.

TEST(GetCenterArcBy3Points, OfThreePointsOfTheUnitCircleIsTheOrigin) {
  GX3DPoint centre = kPreset;
  EXPECT_EQ(
      GXGeometry::GetCenterArcBy3Points(Point(1, 0, 0), Point(0, 1, 0), Point(-1, 0, 0), centre),
      1);
  EXPECT_POINT_NEAR(centre, Point(0, 0, 0), 1e-15);
}

TEST(GetCenterArcBy3Points, LeavesTheCentreAloneForPointsInLine) {
  const GX3DPoint a(1, 2, 3);
  const GX3DPoint b(4, 2, 3);
  for (const GX3DPoint& c : {Point(9, 2, 3), Point(2, 2, 3), a, b, Point(9, 2.000009, 3)}) {
    GX3DPoint centre = kPreset;
    EXPECT_EQ(GXGeometry::GetCenterArcBy3Points(a, b, c, centre), 0);
    EXPECT_POINT_EQ(centre, kPreset);
  }
  GX3DPoint centre = kPreset;
  EXPECT_EQ(GXGeometry::GetCenterArcBy3Points(a, a, Point(5, 5, 5), centre), 0);
  EXPECT_POINT_EQ(centre, kPreset);
  EXPECT_EQ(GXGeometry::GetCenterArcBy3Points(a, b, Point(9, 2.000011, 3), centre), 1);
}

TEST(GetCenterArcBy3Points, FindsTheCentreOfACircleAnywhereInSpace) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const GX3DPoint centre = random.Point3D(50);
    const GXVector axis = random.Vector3D(10);
    GXVector radius = GXVector(axis.Y, -axis.X, 0);
    if (radius.Len() < 1) continue;
    radius.Standard();
    const GX3DPoint start = centre + radius * random.Between(1, 30);
    const GX3DLine spindle(centre, centre + axis);
    const GX3DPoint a = support::Turned(spindle, random.Between(0, 2), start);
    const GX3DPoint b = support::Turned(spindle, random.Between(2.1, 4), start);
    const GX3DPoint c = support::Turned(spindle, random.Between(4.1, 6), start);
    GX3DPoint found;
    ASSERT_EQ(GXGeometry::GetCenterArcBy3Points(a, b, c, found), 1) << i;
    // Points 0.1 rad apart lose some four digits.
    EXPECT_POINT_NEAR(found, centre, 1e-9) << i;
  }
}

TEST(GetCenterArcBy3Points, MayWriteIntoItsPoints) {
  GX3DPoint p[3] = {Point(6, 1, 2), Point(1, 6, 2), Point(-4, 1, 2)};
  for (int i = 0; i < 3; ++i) {
    GX3DPoint q[3] = {p[0], p[1], p[2]};
    EXPECT_EQ(GXGeometry::GetCenterArcBy3Points(q[0], q[1], q[2], q[i]), 1);
    EXPECT_POINT_NEAR(q[i], Point(1, 1, 2), 1e-12);
  }
}

TEST(GetCenterArcBy3Points, SurvivesNumbersThatAreNotFinite) {
  for (const double odd : {kNaN, kInfinity, -kInfinity, 1e308, 1e-320}) {
    for (const GX3DPoint& p : {Point(odd, 0, 0), Point(0, odd, odd), Point(odd, odd, odd)}) {
      GX3DPoint centre;
      const int found[] = {
          GXGeometry::GetCenterArcBy3Points(p, Point(0, 1, 0), Point(2, 5, 1), centre),
          GXGeometry::GetCenterArcBy3Points(Point(0, 1, 0), p, Point(2, 5, 1), centre),
          GXGeometry::GetCenterArcBy3Points(Point(0, 1, 0), Point(2, 5, 1), p, centre)};
      for (const int answer : found) EXPECT_TRUE(answer == 0 || answer == 1);
    }
  }
}

}  // namespace
