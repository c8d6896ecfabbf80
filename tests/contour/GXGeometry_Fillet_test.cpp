#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using support::Arc;
using support::Line;
using support::Point;

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();

GX2DArc Fillet(const GX2DLine& l1, const GX2DLine& l2, double radius) {
  GX2DArc arc = Arc(-1, -2, -3, -4, -5, -6, -7, -8);
  GXGeometry::Construct2DArcBetween2Lines(l1, l2, radius, arc);
  return arc;
}

/// The fillet of a corner with legs along u1 and u2, from the angle between them: the contacts lie
/// r / tan(q / 2) from the corner, the center r / sin(q / 2) along the bisector.
GX2DArc Expected(const GX2DPoint& corner, const GX2DPoint& u1, const GX2DPoint& u2, double radius) {
  const double l1 = std::hypot(u1.X, u1.Y);
  const double l2 = std::hypot(u2.X, u2.Y);
  const double q = std::fabs(std::atan2(u1.X * u2.Y - u1.Y * u2.X, u1.X * u2.X + u1.Y * u2.Y));
  const double x1 = u1.X / l1, y1 = u1.Y / l1, x2 = u2.X / l2, y2 = u2.Y / l2;
  const double contact = radius / std::tan(q / 2);
  const double bisector = std::hypot(x1 + x2, y1 + y2);
  const double bx = (x1 + x2) / bisector, by = (y1 + y2) / bisector;
  const double centre = radius / std::sin(q / 2);
  const auto at = [&](double x, double y, double distance) {
    return GX2DPoint(corner.X + x * distance, corner.Y + y * distance);
  };
  return {at(bx, by, centre), at(x2, y2, contact), at(bx, by, centre - radius),
          at(x1, y1, contact)};
}

/// Both lines drawn either way.
void ExpectFillet(const GX2DPoint& corner, const GX2DPoint& u1, const GX2DPoint& u2, double radius,
                  double tolerance) {
  const GX2DPoint end1(corner.X + u1.X, corner.Y + u1.Y);
  const GX2DPoint end2(corner.X + u2.X, corner.Y + u2.Y);
  const GX2DArc expected = Expected(corner, u1, u2, radius);
  for (const GX2DLine& l1 : {GX2DLine(corner, end1), GX2DLine(end1, corner)}) {
    for (const GX2DLine& l2 : {GX2DLine(corner, end2), GX2DLine(end2, corner)}) {
      SCOPED_TRACE(support::Text(support::Numbers(l1)) + support::Text(support::Numbers(l2)));
      EXPECT_POINT_NEAR(Fillet(l1, l2, radius), expected, tolerance);
    }
  }
}

TEST(Construct2DArcBetween2Lines, RunsFromTheSecondLineToTheFirst) {
  const GX2DArc arc = Fillet(Line(10, 0, 0, 0), Line(0, 0, 0, 10), 2);
  EXPECT_POINT_NEAR(arc.Center, Point(2, 2), 1e-14);
  EXPECT_POINT_NEAR(arc.Start, Point(0, 2), 1e-14);
  EXPECT_POINT_NEAR(arc.End, Point(2, 0), 1e-14);
  // The corner itself brought to the circle.
  const double middle = 2 - std::sqrt(2.0);
  EXPECT_POINT_NEAR(arc.Mid, Point(middle, middle), 1e-14);
}

TEST(Construct2DArcBetween2Lines, KnowsEveryPairOfDirections) {
  // Level, upright and sloping legs, each against each, in all quadrants.
  const std::vector<GX2DPoint> legs = {Point(20, 0), Point(-20, 0),   Point(0, 20),  Point(0, -20),
                                       Point(12, 9), Point(-12, 9),   Point(5, -12), Point(-5, -12),
                                       Point(8, 15), Point(-20, -21), Point(1, 7)};
  for (const GX2DPoint& u1 : legs) {
    for (const GX2DPoint& u2 : legs) {
      if (std::fabs(u1.X * u2.Y - u1.Y * u2.X) < 1e-9) continue;
      ExpectFillet(Point(7, -3), u1, u2, 2, 1e-9);
    }
  }
}

TEST(Construct2DArcBetween2Lines, AgreesWithTheAngleForm) {
  support::Random random;
  int tried = 0;
  for (int i = 0; i < 2000; ++i) {
    const GX2DPoint corner = random.Point2D(100);
    const GX2DPoint u1 = random.Point2D(50);
    const GX2DPoint u2 = random.Point2D(50);
    const double sine =
        (u1.X * u2.Y - u1.Y * u2.X) / (std::hypot(u1.X, u1.Y) * std::hypot(u2.X, u2.Y));
    if (std::fabs(sine) < 0.1 || std::fabs(u1.Y) < 1 || std::fabs(u2.Y) < 1) continue;
    ++tried;
    // Slopes up to 50 in the divisor and coordinates up to some hundred.
    ExpectFillet(corner, u1, u2, random.Between(0.1, 20), 1e-7);
  }
  EXPECT_GT(tried, 500);
}

TEST(Construct2DArcBetween2Lines, TakesALegForLevelWithin0_00001) {
  const GX2DLine sloping(0, 0, 5, 5);
  EXPECT_EQ(Fillet(Line(0, 0, 10, 0.0000099), sloping, 1).End.Y, 0);
  EXPECT_EQ(Fillet(Line(0, 0, 10, 0.00001), sloping, 1).End.Y, 0);
  EXPECT_GT(Fillet(Line(0, 0, 10, 0.0000101), sloping, 1).End.Y, 0);
  EXPECT_EQ(Fillet(sloping, Line(0, 0, 10, 0.00001), 1).Start.Y, 0);
  EXPECT_GT(Fillet(sloping, Line(0, 0, 10, 0.0000101), 1).Start.Y, 0);
}

TEST(Construct2DArcBetween2Lines, TakesALegForUprightWithin0_00001) {
  // Beside an upright leg the contact is the radius away, without the tangent of the half angle.
  // That of (10, 0) and (x, 5) is 1 - x / 5 to first order.
  const GX2DLine level(0, 0, 10, 0);
  EXPECT_EQ(Fillet(level, Line(0, 0, 0.00001, 5), 1).End.X, 1);
  EXPECT_NE(Fillet(level, Line(0, 0, 0.0000101, 5), 1).End.X, 1);
  EXPECT_EQ(Fillet(Line(0, 0, 0.00001, 5), level, 1).Start.X, 1);
  EXPECT_NE(Fillet(Line(0, 0, 0.0000101, 5), level, 1).Start.X, 1);
}

TEST(Construct2DArcBetween2Lines, MeasuresBothLegsFromTheCornerOfTheFirst) {
  // The second line starts 0.00009 beside the corner, yet its leg is upright from there.
  const GX2DArc arc = Fillet(Line(0, 0, 10, 0), Line(0.00009, 0, 0, 10), 2);
  EXPECT_POINT_NEAR(arc.Center, Point(2, 2), 1e-13);
  EXPECT_POINT_NEAR(arc.Start, Point(0, 2), 1e-13);
  // So with every pair of ends.
  for (const GX2DLine& l1 : {Line(0, 0, 10, 0), Line(10, 0, 0, 0)}) {
    for (const GX2DLine& l2 : {Line(0.00009, 0, 0, 10), Line(0, 10, 0.00009, 0)}) {
      EXPECT_POINT_NEAR(Fillet(l1, l2, 2).Center, Point(2, 2), 1e-13);
    }
  }
}

TEST(Construct2DArcBetween2Lines, WithoutASharedEndFollowsFromTheOrigin) {
  // No legs: both contacts are the radius beside the origin, and so is the center.
  const GX2DArc expected = Arc(2, 0, 2, 0, 0, 0, 2, 0);
  EXPECT_POINT_EQ(Fillet(Line(5, 5, 10, 5), Line(7, 6, 7, 12), 2), expected);
  EXPECT_POINT_EQ(Fillet(Line(0.00011, 0, 10, 0), Line(0, 0, 0, 10), 2), expected);
}

TEST(Construct2DArcBetween2Lines, OfLevelLinesInLineHasItsCenterOnThem) {
  // The tangent of a quarter turn is 1.6e16, so both contacts lie next to the corner.
  const GX2DArc arc = Fillet(Line(1, 5, 11, 5), Line(1, 5, -9, 5), 2);
  EXPECT_EQ(arc.Center.Y, 5);
  EXPECT_NEAR(arc.Center.X, 1, 1e-14);
}

TEST(Construct2DArcBetween2Lines, OfTwoLevelLegsHasItsCenterAtTheXOfTheSecondContact) {
  // A leg of 0.00001 upwards counts as level; it has an angle of 90 degrees with a long one, and
  // half of it the tangent 1. Neither place beside the corner lies in its direction: the second
  // one, on the left, is taken. There the center stands too, so the circle has no radius, and the
  // contact at (2, 0) is brought onto it.
  const GX2DArc arc = Fillet(Line(0, 0, 1e6, 0), Line(0, 0, 0, 0.00001), 2);
  EXPECT_POINT_NEAR(arc.Start, Point(-2, 0), 1e-14);
  EXPECT_POINT_NEAR(arc.End, Point(-2, 0), 1e-14);
  EXPECT_POINT_NEAR(arc.Center, Point(-2, 0), 1e-14);
}

TEST(Construct2DArcBetween2Lines, KnowsNoAngleBetweenLinesOfAFewHundredths) {
  // The product of the squared lengths is 0 within 0.00001: 0.056^4 is 0.00000983, 0.0563^4 is
  // 0.00001005.
  EXPECT_FALSE(std::isfinite(Fillet(Line(0.056, 0, 0, 0), Line(0, 0, 0, 0.056), 0.01).Start.Y));
  EXPECT_POINT_NEAR(Fillet(Line(0.0563, 0, 0, 0), Line(0, 0, 0, 0.0563), 0.01).Start,
                    Point(0, 0.01), 1e-12);
}

TEST(Construct2DArcBetween2Lines, DoesNotAskWhetherTheRadiusFits) {
  EXPECT_POINT_NEAR(Fillet(Line(1, 0, 0, 0), Line(0, 0, 0, 1), 50),
                    Expected(Point(0, 0), Point(1, 0), Point(0, 1), 50), 1e-11);
}

TEST(Construct2DArcBetween2Lines, MayWriteIntoAnArcThatHoldsAnotherSense) {
  GX2DArc arc = support::Circle(3, 3, 9, true);
  GXGeometry::Construct2DArcBetween2Lines(Line(0, 0, 0, 10), Line(0, 0, 10, 0), 2, arc);
  EXPECT_POINT_NEAR(arc, Expected(Point(0, 0), Point(0, 10), Point(10, 0), 2), 1e-13);
}

TEST(Construct2DArcBetween2Lines, SurvivesWhatHasNoFillet) {
  for (const double odd : {kNaN, kInfinity, -kInfinity, 1e308, 0.0, -2.0}) {
    Fillet(Line(0, 0, 10, 0), Line(0, 0, 0, 10), odd);
    Fillet(Line(0, 0, odd, 0), Line(0, 0, 0, 10), 2);
    Fillet(Line(0, 0, odd, odd), Line(0, 0, odd, 10), 2);
    Fillet(Line(odd, odd, 1, 1), Line(odd, odd, 0, 10), 2);
  }
  Fillet(Line(0, 0, 0, 0), Line(0, 0, 0, 0), 2);
  Fillet(Line(0, 0, 3, 4), Line(0, 0, 3, 4), 2);
  Fillet(Line(0, 0, 3, 4), Line(0, 0, -3, -4), 2);
}

}  // namespace
