#include <KTRCL_Geometry/kernel/Arcs.h>

#include "support/KernelArcs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using support::kDegree;
using support::kInfinity;
using support::kNaN;
using support::kPi;

// An arc tangent and one sum: a few units in the last place of figures up to 360.
constexpr double kRadians = 2e-15;
constexpr double kDegrees = 2e-13;

// The way from point 1 to point 2 as an angle, by the arc tangent of two arguments.
long double Direction(double x1, double y1, double x2, double y2) {
  return std::atan2(static_cast<long double>(y2) - y1, static_cast<long double>(x2) - x1);
}

TEST(Angolo, GivesMinusAQuarterTurnForEqualPoints) {
  EXPECT_NEAR(Angolo(3, 4, 3, 4), -kPi / 2, kRadians);
  EXPECT_NEAR(Angolo(0, 0, 0, -0.0), -kPi / 2, kRadians);
}

TEST(Angolo, RunsFromMinusAQuarterToThreeQuarters) {
  EXPECT_NEAR(Angolo(1, 2, 2, 2), 0, kRadians);
  EXPECT_NEAR(Angolo(1, 2, 2, 3), kPi / 4, kRadians);
  EXPECT_NEAR(Angolo(1, 2, 1, 3), kPi / 2, kRadians);
  EXPECT_NEAR(Angolo(1, 2, 0, 3), 3 * kPi / 4, kRadians);
  EXPECT_NEAR(Angolo(1, 2, 0, 2), kPi, kRadians);
  EXPECT_NEAR(Angolo(1, 2, 0, 1), 5 * kPi / 4, kRadians);
  EXPECT_NEAR(Angolo(1, 2, 1, 1), -kPi / 2, kRadians);
  EXPECT_NEAR(Angolo(1, 2, 2, 1), -kPi / 4, kRadians);
}

// The slope would give 1e-08 to either side.
TEST(Angolo, CountsXThatDifferByJust1eMinus8AsUpright) {
  EXPECT_NEAR(Angolo(0, 0, 1e-8, 1), kPi / 2, kRadians);
  EXPECT_NEAR(Angolo(1e-8, 0, 0, 1), kPi / 2, kRadians);
  EXPECT_NEAR(Angolo(0, 0, 1e-8, -1), -kPi / 2, kRadians);
  EXPECT_NEAR(Angolo(1e-8, 0, 0, -1), -kPi / 2, kRadians);
}

TEST(Angolo, FollowsTheSlopeBeyond1eMinus8) {
  const double off = 1.0001e-8;
  EXPECT_NEAR(Angolo(0, 0, off, 1), kPi / 2 - off, kRadians);
  EXPECT_NEAR(Angolo(off, 0, 0, 1), kPi / 2 + off, kRadians);
  EXPECT_NEAR(Angolo(0, 0, off, -1), -kPi / 2 + off, kRadians);
  EXPECT_NEAR(Angolo(off, 0, 0, -1), 3 * kPi / 2 - off, kRadians);
}

TEST(Angolo, LooksUpOnlyForAPointThatIsStrictlyHigher) {
  EXPECT_NEAR(Angolo(0, 0, 1e-8, 0), -kPi / 2, kRadians);
  EXPECT_NEAR(Angolo(0, 0, 1e-8, 1e-300), kPi / 2, kRadians);
  EXPECT_NEAR(Angolo(0, 0, 0, kNaN), -kPi / 2, kRadians);
}

TEST(Angolo, FollowsTheArithmeticForFiguresThatAreNotFinite) {
  EXPECT_TRUE(std::isnan(Angolo(kNaN, 0, 1, 1)));
  EXPECT_TRUE(std::isnan(Angolo(0, 0, 1, kNaN)));
  EXPECT_NEAR(Angolo(0, 0, kInfinity, 1), 0, kRadians);
  EXPECT_NEAR(Angolo(0, 0, -kInfinity, 1), kPi, kRadians);
  EXPECT_NEAR(Angolo(0, 0, 1, kInfinity), kPi / 2, kRadians);
}

TEST(Angolo, IsTheDirectionOfAnyTwoPoints) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const double x1 = random.Between(-9, 9), y1 = random.Between(-9, 9);
    const double x2 = random.Between(-9, 9), y2 = random.Between(-9, 9);
    long double expected = Direction(x1, y1, x2, y2);
    if (x2 < x1 && expected < 0) expected += 2 * std::acos(-1.0L);
    EXPECT_NEAR(Angolo(x1, y1, x2, y2), static_cast<double>(expected), 4 * kRadians);
  }
}

TEST(ArcWithHor, GivesAQuarterTurnForEqualPoints) {
  EXPECT_EQ(arc_with_hor(3, 4, 3, 4), 90.0);
  EXPECT_EQ(arc_with_hor(0, 0, 0, -0.0), 90.0);
}

TEST(ArcWithHor, RunsFromAboveMinusHalfATurnToHalfATurn) {
  EXPECT_NEAR(arc_with_hor(1, 2, 2, 2), 0, kDegrees);
  EXPECT_NEAR(arc_with_hor(1, 2, 2, 3), 45, kDegrees);
  EXPECT_EQ(arc_with_hor(1, 2, 1, 3), 90.0);
  EXPECT_NEAR(arc_with_hor(1, 2, 0, 3), 135, kDegrees);
  EXPECT_NEAR(arc_with_hor(1, 2, 0, 2), 180, kDegrees);
  EXPECT_NEAR(arc_with_hor(1, 2, 0, 1), -135, kDegrees);
  EXPECT_EQ(arc_with_hor(1, 2, 1, 1), -90.0);
  EXPECT_NEAR(arc_with_hor(1, 2, 2, 1), -45, kDegrees);
}

TEST(ArcWithHor, ChangesSignJustBelowTheWayToTheLeft) {
  EXPECT_NEAR(arc_with_hor(0, 0, -1, 1e-9), 180 - 1e-9 / kDegree, kDegrees);
  EXPECT_NEAR(arc_with_hor(0, 0, -1, -1e-9), -180 + 1e-9 / kDegree, kDegrees);
}

TEST(ArcWithHor, CountsXThatDifferByLessThan1eMinus5AsUpright) {
  EXPECT_EQ(arc_with_hor(0, 0, 0.9999e-5, 1), 90.0);
  EXPECT_EQ(arc_with_hor(0.9999e-5, 0, 0, 1), 90.0);
  EXPECT_EQ(arc_with_hor(0, 1, 0.9999e-5, 0), -90.0);
  EXPECT_EQ(arc_with_hor(0.9999e-5, 1, 0, 0), -90.0);
  EXPECT_EQ(arc_with_hor(0, 0, 0.9999e-5, 0), 90.0);
  EXPECT_EQ(arc_with_hor(0, 0, 0, kNaN), 90.0);
}

// The arc tangent of 1e5 is 1e-05 short of a quarter turn, and the next term is 3e-16.
TEST(ArcWithHor, FollowsTheSlopeFrom1eMinus5On) {
  const double off = 1e-5 / kDegree;
  EXPECT_NEAR(arc_with_hor(0, 0, 1e-5, 1), 90 - off, kDegrees);
  EXPECT_NEAR(arc_with_hor(1e-5, 0, 0, 1), 90 + off, kDegrees);
  EXPECT_NEAR(arc_with_hor(0, 1, 1e-5, 0), -90 + off, kDegrees);
  EXPECT_NEAR(arc_with_hor(1e-5, 1, 0, 0), -90 - off, kDegrees);
}

TEST(ArcWithHor, FollowsTheArithmeticForFiguresThatAreNotFinite) {
  EXPECT_TRUE(std::isnan(arc_with_hor(kNaN, 0, 1, 1)));
  EXPECT_TRUE(std::isnan(arc_with_hor(0, 0, 1, kNaN)));
  EXPECT_NEAR(arc_with_hor(0, 0, kInfinity, 1), 0, kDegrees);
  EXPECT_NEAR(arc_with_hor(0, 0, 1, -kInfinity), -90, kDegrees);
}

TEST(ArcWithHor, IsTheDirectionOfAnyTwoPoints) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const double x1 = random.Between(-9, 9), y1 = random.Between(-9, 9);
    const double x2 = x1 + (random.Bool() ? 1 : -1) * random.Between(0.001, 9);
    const double y2 = random.Between(-9, 9);
    const long double expected = Direction(x1, y1, x2, y2) * 180 / std::acos(-1.0L);
    EXPECT_NEAR(arc_with_hor(x1, y1, x2, y2), static_cast<double>(expected), kDegrees);
  }
}

TEST(ArcAngleOfThePlane, SweepsCounterClockwise) {
  EXPECT_NEAR(arc_angle(6, 7, 5, 7, 5, 8), 90, kDegrees);
  EXPECT_NEAR(arc_angle(5, 8, 5, 7, 6, 7), 270, kDegrees);
  EXPECT_NEAR(arc_angle(6, 7, 5, 7, 3, 7), 180, kDegrees);
  EXPECT_NEAR(arc_angle(4, 6, 5, 7, 4, 8), 270, kDegrees);
  EXPECT_NEAR(arc_angle(4, 8, 5, 7, 4, 6), 90, kDegrees);
}

TEST(ArcAngleOfThePlane, Is0ForTheSameDirection) {
  EXPECT_EQ(arc_angle(6, 8, 5, 7, 8, 10), 0.0);
  EXPECT_EQ(arc_angle(4, 6, 5, 7, 3, 5), 0.0);
}

// 360 less 6e-16 is rounded to 360.
TEST(ArcAngleOfThePlane, StaysBelowAFullTurnWhereTheSumIsRoundedToIt) {
  EXPECT_EQ(arc_angle(1, 1e-17, 0, 0, 1, 0), 0.0);
}

TEST(ArcAngleOfThePlane, TakesThePointsAtTheCentreAsStraightAbove) {
  EXPECT_NEAR(arc_angle(0, 0, 0, 0, 1, 0), 270, kDegrees);
  EXPECT_NEAR(arc_angle(1, 0, 0, 0, 0, 0), 90, kDegrees);
  EXPECT_EQ(arc_angle(0, 0, 0, 0, 0, 0), 0.0);
}

TEST(ArcAngleOfThePlane, IsNaNForAPointThatIsNoNumber) {
  EXPECT_TRUE(std::isnan(arc_angle(1, kNaN, 0, 0, 1, 1)));
  EXPECT_TRUE(std::isnan(arc_angle(1, 1, 0, 0, kNaN, 1)));
}

TEST(ArcAngleOfThePlane, IsTheDifferenceOfTheDirections) {
  support::Random random;
  const long double turn = 2 * std::acos(-1.0L);
  for (int i = 0; i < 1000; ++i) {
    const double from = random.Between(-3, 3);
    const double sweep = random.Between(0.01, 6.27);
    const double cx = random.Between(-9, 9), cy = random.Between(-9, 9);
    const double x1 = cx + 7 * std::cos(from), y1 = cy + 7 * std::sin(from);
    const double x2 = cx + 4 * std::cos(from + sweep), y2 = cy + 4 * std::sin(from + sweep);
    if (std::fabs(x1 - cx) < 0.001 || std::fabs(x2 - cx) < 0.001) continue;  // taken as upright
    const double swept = arc_angle(x1, y1, cx, cy, x2, y2);
    EXPECT_NEAR(swept, sweep / kDegree, 1e-12);
    EXPECT_NEAR(swept + arc_angle(x2, y2, cx, cy, x1, y1), static_cast<double>(turn) / kDegree,
                1e-12);
  }
}

TEST(ArcdirC, IsTrueForATurnToTheLeft) {
  EXPECT_TRUE(Arcdir_c(1, 1, 3, 1, 2, 5, 0, 0));
  EXPECT_FALSE(Arcdir_c(1, 1, 2, 5, 3, 1, 0, 0));
  EXPECT_TRUE(Arcdir_c(-5, -5, -5, -9, -1, -5, 0, 0));
}

TEST(ArcdirC, IsFalseForPointsInLine) {
  EXPECT_FALSE(Arcdir_c(1, 1, 2, 2, 5, 5, 0, 0));
  EXPECT_FALSE(Arcdir_c(1, 1, 2, 2, -5, -5, 0, 0));
  EXPECT_FALSE(Arcdir_c(1, 1, 1, 1, 5, 7, 0, 0));
}

TEST(ArcdirC, HasNoToleranceAbove0) {
  const double least = std::numeric_limits<double>::denorm_min();
  EXPECT_TRUE(Arcdir_c(0, 0, 1, 0, 0, least, 0, 0));
  EXPECT_FALSE(Arcdir_c(0, 0, 1, 0, 0, -least, 0, 0));
}

TEST(ArcdirC, DoesNotReadTheLastTwo) {
  EXPECT_TRUE(Arcdir_c(1, 1, 3, 1, 2, 5, kNaN, kInfinity));
  EXPECT_FALSE(Arcdir_c(1, 1, 2, 5, 3, 1, 1e308, kNaN));
}

TEST(ArcdirC, IsFalseForAPointThatIsNoNumber) {
  EXPECT_FALSE(Arcdir_c(1, 1, 3, 1, 2, kNaN, 0, 0));
  EXPECT_FALSE(Arcdir_c(kNaN, 1, 3, 1, 2, 5, 0, 0));
}

}  // namespace
