#include <KTRCL_Geometry/kernel/Arcs.h>

#include "support/KernelArcs.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::FlatCircle;
using support::kDegree;
using support::KernelArc;
using support::KernelCircle;
using support::kInfinity;
using support::kNaN;
using support::kPi;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kX(1, 0, 0);
constexpr Vec kY(0, 1, 0);

// Arc cosines of angles that keep away from 0 and pi.
constexpr double kRadians = 1e-14;

double Span(const KernelArc& arc, int unit = 0) {
  return Arc_angle(unit, arc.centre, arc.start, arc.middle, arc.end);
}

TEST(ArcAngle, IsAFullTurnForTheMiddleAtTheEndWithoutALookAtTheStart) {
  const Vec middle(0, 10, 0);
  EXPECT_DOUBLE_EQ(Arc_angle(0, kO, Vec(10, 0, 0), middle, middle), 2 * kPi);
  EXPECT_DOUBLE_EQ(Arc_angle(0, kO, kO, middle, middle), 2 * kPi);
  EXPECT_DOUBLE_EQ(Arc_angle(0, kO, middle, middle, middle), 2 * kPi);
  EXPECT_DOUBLE_EQ(Arc_angle(0, kO, Vec(kNaN, kNaN, kNaN), middle, middle), 2 * kPi);
}

TEST(ArcAngle, ComparesMiddleAndEndInEachCoordinateWith0Point0001Included) {
  const Vec middle(0, 10, 0);
  EXPECT_DOUBLE_EQ(Arc_angle(0, kO, Vec(10, 0, 0), middle, Vec(-0.0001, 10, 0.0001)), 2 * kPi);
  EXPECT_NEAR(Arc_angle(0, kO, Vec(10, 0, 0), middle, Vec(-0.000101, 10, 0)), kPi / 2 + 1.01e-5,
              kRadians);
}

TEST(ArcAngle, Is0ForTheEndAtTheStartAndTheMiddleElsewhere) {
  EXPECT_EQ(Arc_angle(0, kO, Vec(10, 0, 0), Vec(0, 10, 0), Vec(10, 0, 0)), 0.0);
  EXPECT_EQ(Arc_angle(0, kO, Vec(10, 0, 0), Vec(-10, 0.5, 0), Vec(10, 0, 0)), 0.0);
}

// The normal of start (1, 0, 0) and middle (1, y, 0) is (0, 0, y).
TEST(ArcAngle, Is0ForANormalOfAtMost0Point0001) {
  EXPECT_EQ(Arc_angle(0, kO, kX, Vec(1, 0.0001, 0), kY), 0.0);
  EXPECT_NEAR(Arc_angle(0, kO, kX, Vec(1, 0.000101, 0), kY), kPi / 2, kRadians);
}

TEST(ArcAngle, Is0ForArcsOfARadiusUpToAHundredth) {
  EXPECT_EQ(Span(FlatCircle(0, 0, 0.0099).Arc(0, kPi)), 0.0);
  EXPECT_NEAR(Span(FlatCircle(0, 0, 0.0101).Arc(0, kPi)), kPi, kRadians);
  EXPECT_DOUBLE_EQ(Span(FlatCircle(0, 0, 0.0099).Full(0, 2)), 2 * kPi);
}

TEST(ArcAngle, Is0ForStartMiddleAndCentreInLine) {
  EXPECT_EQ(Arc_angle(0, kO, kX, Vec(-1, 0, 0), kY), 0.0);
  EXPECT_EQ(Arc_angle(0, kO, kX, kX, kY), 0.0);
  EXPECT_EQ(Arc_angle(0, kO, kO, kX, kY), 0.0);
}

TEST(ArcAngle, IsHalfATurnForOppositeRadii) {
  EXPECT_DOUBLE_EQ(Arc_angle(0, kO, kX, kY, Vec(-1, 0, 0)), kPi);
  EXPECT_DOUBLE_EQ(Arc_angle(0, kO, kX, Vec(0, -1, 0), Vec(-1, 0, 0)), kPi);
  EXPECT_DOUBLE_EQ(Span(FlatCircle(3, 4, 5).Arc(1, kPi)), kPi);
}

TEST(ArcAngle, DependsOnTheDirectionToTheEndAlone) {
  EXPECT_EQ(Arc_angle(0, kO, kX, kY, Vec(7, 0, 0)), 0.0);
  EXPECT_NEAR(Arc_angle(0, kO, kX, kY, Vec(7, 7, 0)), kPi / 4, kRadians);
  EXPECT_DOUBLE_EQ(Arc_angle(0, kO, kX, kY, Vec(-7, 0, 0)), kPi);
}

// The cross product of (1, 0, 0) and (1, -y, 0) is (0, 0, -y). Both angles are rounded to 0.
TEST(ArcAngle, Is0UpToACrossProductOf0Point0001BeforeTheStartAndThenAFullTurn) {
  EXPECT_EQ(Arc_angle(0, kO, kX, kY, Vec(1, -0.0001, 0)), 0.0);
  EXPECT_DOUBLE_EQ(Arc_angle(0, kO, kX, kY, Vec(1, -0.000101, 0)), 2 * kPi);
  EXPECT_EQ(Arc_angle(0, kO, kX, kY, Vec(1, 0.000101, 0)), 0.0);
}

// The cross product of (0.5, 0, 0) and (0, -y, 0) is (0, 0, -y / 2), and the radii are square.
TEST(ArcAngle, IsReflexOnlyFromACrossProductAbove0Point0001) {
  const Vec start(0.5, 0, 0);
  EXPECT_NEAR(Arc_angle(0, kO, start, kY, Vec(0, -0.0002, 0)), kPi / 2, kRadians);
  EXPECT_NEAR(Arc_angle(0, kO, start, kY, Vec(0, -0.000202, 0)), 3 * kPi / 2, kRadians);
}

// The cross product of (0.5, 0, 0) and (x, y, 0) is (0, 0, y / 2) whatever the angle.
TEST(ArcAngle, Is0UpToACrossProductOf0Point0001ForRadiiToTheSameSideOnly) {
  const Vec start(0.5, 0, 0);
  EXPECT_EQ(Arc_angle(0, kO, start, kY, Vec(0.00015, 0.00015, 0)), 0.0);
  EXPECT_EQ(Arc_angle(0, kO, start, kY, Vec(0.0002, 0.0002, 0)), 0.0);
  EXPECT_NEAR(Arc_angle(0, kO, start, kY, Vec(0.000202, 0.000202, 0)), kPi / 4, kRadians);
  EXPECT_NEAR(Arc_angle(0, kO, start, kY, Vec(0, 0.00015, 0)), kPi / 2, kRadians);
  EXPECT_NEAR(Arc_angle(0, kO, start, kY, Vec(-0.00015, 0.00015, 0)), 3 * kPi / 4, kRadians);
}

TEST(ArcAngle, IsReflexWhereTheEndLiesAgainstTheNormal) {
  EXPECT_NEAR(Span(FlatCircle(1, 2, 5).Arc(0.3, 1.5 * kPi)), 1.5 * kPi, kRadians);
  EXPECT_NEAR(Span(FlatCircle(1, 2, 5).Arc(0.3, -1.5 * kPi)), 1.5 * kPi, kRadians);
  EXPECT_NEAR(Span(FlatCircle(1, 2, 5).Arc(0.3, -0.5 * kPi)), 0.5 * kPi, kRadians);
}

// The cross product (0, -1, 0) of start and end is square to the normal: neither along nor against.
TEST(ArcAngle, TakesTheAngleOfAnEndStraightAboveThePlane) {
  EXPECT_NEAR(Arc_angle(0, kO, kX, kY, Vec(0, 0, 1)), kPi / 2, kRadians);
}

TEST(ArcAngle, IsMinus1ForAnEndAtTheCentre) {
  EXPECT_EQ(Arc_angle(0, kO, kX, kY, kO), -1.0);
  EXPECT_EQ(Arc_angle(0, kO, kX, kY, Vec(0, 0.0001, 0)), -1.0);
  EXPECT_EQ(Arc_angle(0, kO, Vec(10, 0, 0), kY, Vec(0, -0.00005, 0)), 2 * kPi + 1);
}

TEST(ArcAngle, IsTheSameForEveryUnitFlag) {
  const KernelArc arc = FlatCircle(1, 2, 5).Arc(0.3, 4);
  const Vec above = arc.end + Vec(0, 0, 0.005);
  const double expected = Arc_angle(0, arc.centre, arc.start, arc.middle, above);
  EXPECT_NEAR(expected, 4, 1e-5);
  for (const int unit : {1, 2, -1}) {
    EXPECT_EQ(Arc_angle(unit, arc.centre, arc.start, arc.middle, above), expected);
  }
}

TEST(ArcAngle, IsMinus1WhereARadiusIsNoNumber) {
  EXPECT_EQ(Arc_angle(0, kO, kX, kY, Vec(kNaN, 0, 0)), -1.0);
  EXPECT_EQ(Arc_angle(0, kO, Vec(kNaN, 0, 0), kY, kX), -1.0);
  EXPECT_EQ(Arc_angle(0, Vec(0, 0, kNaN), kX, kY, Vec(-1, 0, 0)), -1.0);
  EXPECT_EQ(Arc_angle(0, kO, kX, kY, Vec(kInfinity, 0, 0)), -1.0);
}

TEST(ArcAngle, IsTheSpanThatTheArcWasMadeWith) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const double span = support::RandomSpan(random, 0.05);
    const KernelArc arc = support::RandomCircle(random).Arc(random.Between(-4, 4), span);
    EXPECT_NEAR(Span(arc, i % 2), std::fabs(span), 1e-11);
  }
}

TEST(ArcAngle, AddsUpOverTheParts) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const KernelCircle circle = support::RandomCircle(random);
    const double from = random.Between(-4, 4);
    const double first = random.Between(0.1, 3);
    const double second = random.Between(0.1, 3);
    if (std::fabs(first + second - kPi) < 0.05) continue;  // rounded to half a turn
    EXPECT_NEAR(Span(circle.Arc(from, first)) + Span(circle.Arc(from + first, second)),
                Span(circle.Arc(from, first + second)), 1e-11);
  }
}

TEST(SameDirectionArcs, IsTrueForNormalsWithinAQuarterTurn) {
  EXPECT_TRUE(Same_direction_arcs(kO, kX, kY, Vec(5, 5, 5), Vec(5, 9, 5), Vec(1, 5, 5)));
  EXPECT_FALSE(Same_direction_arcs(kO, kX, kY, Vec(5, 5, 5), Vec(1, 5, 5), Vec(5, 9, 5)));
  const auto tilted = [](double degrees) {
    const double s = std::sin(degrees * kDegree), c = std::cos(degrees * kDegree);
    return Same_direction_arcs(kO, kX, kY, kO, kX, Vec(0, c, s));
  };
  EXPECT_TRUE(tilted(89.9));
  EXPECT_FALSE(tilted(90.1));
  EXPECT_TRUE(tilted(-89.9));
  EXPECT_FALSE(tilted(-90.1));
}

TEST(SameDirectionArcs, IsFalseForNormalsSquareOnEachOther) {
  EXPECT_FALSE(Same_direction_arcs(kO, kX, kY, kO, kX, Vec(0, 0, 1)));
  EXPECT_FALSE(Same_direction_arcs(kO, kX, kY, kO, kX, Vec(0, 0, -1)));
}

TEST(SameDirectionArcs, NeedsNormalsOf0Point0001OrMore) {
  const Vec just(1, 0.0001, 0);
  const Vec less(1, 0.000099, 0);
  EXPECT_TRUE(Same_direction_arcs(kO, kX, just, kO, kX, kY));
  EXPECT_TRUE(Same_direction_arcs(kO, kX, kY, kO, kX, just));
  EXPECT_FALSE(Same_direction_arcs(kO, kX, less, kO, kX, kY));
  EXPECT_FALSE(Same_direction_arcs(kO, kX, kY, kO, kX, less));
}

TEST(SameDirectionArcs, IsFalseForArcsWithoutANormal) {
  EXPECT_FALSE(Same_direction_arcs(kO, kX, Vec(-1, 0, 0), kO, kX, kY));
  EXPECT_FALSE(Same_direction_arcs(kO, kO, kY, kO, kX, kY));
  EXPECT_FALSE(Same_direction_arcs(kO, Vec(kNaN, 0, 0), kY, kO, kX, kY));
  EXPECT_FALSE(Same_direction_arcs(kO, kX, kY, kO, kX, Vec(0, kNaN, 0)));
}

TEST(SameDirectionArcs, ComparesTheSensesOfArcsInOnePlane) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const KernelCircle circle = support::RandomCircle(random);
    const double first = support::RandomSpan(random, 0.05);
    const double second = support::RandomSpan(random, 0.05);
    const KernelArc a = circle.Arc(random.Between(-4, 4), first);
    const KernelArc b = circle.Arc(random.Between(-4, 4), second);
    EXPECT_EQ(Same_direction_arcs(a.centre, a.start, a.middle, b.centre, b.start, b.middle),
              (first > 0) == (second > 0));
  }
}

}  // namespace
