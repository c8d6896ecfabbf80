#include <KTRCL_Geometry/kernel/Arcs.h>

#include "support/KernelArcs.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace {

using support::FlatCircle;
using support::kDegree;
using support::KernelArc;
using support::KernelCircle;
using support::kInfinity;
using support::kNaN;
using support::kPi;
using support::kUnwritten;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kX(1, 0, 0);
constexpr Vec kY(0, 1, 0);

// A quotient of arc cosines of angles that keep away from 0 and pi.
constexpr double kParameter = 1e-14;
// Turns about an axis in space go through coordinates of some 10000, rounded to 1e-12.
constexpr double kTurned = 1e-11;

double Parameter(const Vec& p, const KernelArc& arc, int unit = 0) {
  return Point_parametrc_value_on_arc(unit, p, arc.centre, arc.start, arc.middle, arc.end);
}

Vec PointAt(double t, const KernelArc& arc, int unit = 0) {
  Vec out = kUnwritten;
  Obtain_a_point_in_parametric_curve(unit, out, t, 1, arc.centre, arc.start, arc.middle, arc.end);
  return out;
}

// A quarter of the unit circle, from x to y.
const KernelArc kQuarter = {kO, kX, Vec(0.6, 0.8, 0), kY};

TEST(PointParametrcValueOnArc, RunsFrom0AtTheStartTo1AtTheEndAndOn) {
  const KernelCircle circle = FlatCircle(1, 2, 5);
  const KernelArc arc = circle.Arc(0.25, 1);
  EXPECT_EQ(Parameter(arc.start, arc), 0.0);
  EXPECT_NEAR(Parameter(circle.At(0.5), arc), 0.25, kParameter);
  EXPECT_NEAR(Parameter(arc.end, arc), 1, kParameter);
  EXPECT_NEAR(Parameter(circle.At(3.25), arc), 3, 10 * kParameter);
  EXPECT_NEAR(Parameter(circle.At(4.25), arc), 4, 10 * kParameter);
}

TEST(PointParametrcValueOnArc, IsNearAFullTurnOverTheSpanJustBeforeTheStart) {
  const KernelCircle circle = FlatCircle(1, 2, 5);
  EXPECT_NEAR(Parameter(circle.At(-0.01), circle.Arc(0, 1)), 2 * kPi - 0.01, 1e-12);
  EXPECT_NEAR(Parameter(circle.At(-0.01), circle.Arc(0, kPi / 2)), 4 - 0.02 / kPi, 1e-12);
  EXPECT_NEAR(Parameter(circle.At(0.01), circle.Arc(0, -1)), 2 * kPi - 0.01, 1e-12);
}

TEST(PointParametrcValueOnArc, GoesWithTheSenseOfTheArc) {
  const KernelCircle circle = FlatCircle(1, 2, 5);
  EXPECT_NEAR(Parameter(circle.At(-0.5), circle.Arc(0, -2)), 0.25, kParameter);
  EXPECT_NEAR(Parameter(circle.At(-4), circle.Arc(0, -5)), 0.8, kParameter);
  EXPECT_NEAR(Parameter(circle.At(4), circle.Arc(0, 5)), 0.8, kParameter);
}

TEST(PointParametrcValueOnArc, TakesThePointByItsDirection) {
  EXPECT_NEAR(Parameter(Vec(7, 7, 0), kQuarter), 0.5, kParameter);
  EXPECT_NEAR(Parameter(Vec(0.01, 0.01, 0), kQuarter), 0.5, kParameter);
  EXPECT_EQ(Parameter(Vec(7, 0, 0), kQuarter), 0.0);
}

TEST(PointParametrcValueOnArc, IsThePartOfATurnOnAFullCircle) {
  const KernelCircle circle = FlatCircle(1, 2, 5);
  const KernelArc full = circle.Full(0.5, 2);
  EXPECT_EQ(Parameter(circle.At(0.5), full), 0.0);
  EXPECT_NEAR(Parameter(circle.At(0.5 + kPi / 2), full), 0.25, kParameter);
  EXPECT_NEAR(Parameter(circle.At(0.5 + 3 * kPi / 2), full), 0.75, kParameter);
  EXPECT_NEAR(Parameter(circle.At(2), full), 0.75 / kPi, kParameter);
  EXPECT_NEAR(Parameter(circle.At(0.5 + kPi / 2), circle.Full(0.5, -1)), 0.75, kParameter);
}

TEST(PointParametrcValueOnArc, Is0ForADegenerateNormal) {
  EXPECT_EQ(Parameter(kY, {kO, kX, Vec(1, 0.0001, 0), Vec(-1, 1, 0)}), 0.0);
  EXPECT_NEAR(Parameter(kY, {kO, kX, Vec(1, 0.000101, 0), Vec(-1, 1, 0)}), 2.0 / 3, kParameter);
  EXPECT_EQ(Parameter(kY, {kO, kX, Vec(-1, 0, 0), Vec(-1, 1, 0)}), 0.0);
}

TEST(PointParametrcValueOnArc, Is0ForADegenerateNormalOfAFullCircleToo) {
  EXPECT_EQ(Parameter(kY, {kO, kX, Vec(-1, 0, 0), Vec(-1, 0, 0)}), 0.0);
  EXPECT_EQ(Parameter(kY, {kO, kX, kX, kX}), 0.0);
  const Vec just(1, 0.0001, 0), above(1, 0.000101, 0);
  EXPECT_EQ(Parameter(kY, {kO, kX, just, just}), 0.0);
  EXPECT_NEAR(Parameter(kY, {kO, kX, above, above}), 0.25, kParameter);
  EXPECT_EQ(Parameter(Vec(0, 0.009, 0), FlatCircle(0, 0, 0.009).Full(0, 1)), 0.0);
}

// The second end stands so near the start that its angle is rounded to 0.
TEST(PointParametrcValueOnArc, Is0ForASpanOf0) {
  EXPECT_EQ(Parameter(kY, {kO, kX, Vec(0.6, 0.8, 0), kX}), 0.0);
  EXPECT_EQ(Parameter(kY, {kO, kX, Vec(0.6, 0.8, 0), Vec(1, 0.000101, 0)}), 0.0);
}

// The cross product of (1, 0, 0) and (1, y, 0) is (0, 0, y). Both angles are rounded to 0.
TEST(PointParametrcValueOnArc, Is0UpToACrossProductOfAMillionthBeforeTheStart) {
  EXPECT_EQ(Parameter(Vec(1, -0.000001, 0), kQuarter), 0.0);
  EXPECT_DOUBLE_EQ(Parameter(Vec(1, -0.00000101, 0), kQuarter), 4);
  EXPECT_EQ(Parameter(Vec(1, 0.00000101, 0), kQuarter), 0.0);
}

// The cross product of (0.001, 0, 0) and (0, y, 0) is (0, 0, y / 1000), and the angle is a right
// one.
TEST(PointParametrcValueOnArc, Is0UpToACrossProductOfAMillionthInAnyDirectionButTheOpposite) {
  const KernelArc narrow = {kO, Vec(0.001, 0, 0), kY, Vec(0, 2, 0)};
  EXPECT_EQ(Parameter(Vec(0, 0.00099, 0), narrow), 0.0);
  EXPECT_NEAR(Parameter(Vec(0, 0.00101, 0), narrow), 1, kParameter);
  EXPECT_DOUBLE_EQ(Parameter(Vec(-0.00099, 0, 0), narrow), 2);
  EXPECT_EQ(Parameter(Vec(-0.0005, 0.000002, 0), narrow), 0.0);  // 0.004 short of pi
  EXPECT_EQ(Parameter(Vec(-0.0009, 0.0004, 0), narrow), 0.0);    // 24 degrees beside the opposite
}

// The cross product (0, -1, 0) of start and point is square to the normal: neither along nor
// against.
TEST(PointParametrcValueOnArc, TakesTheAngleOfAPointStraightAboveThePlane) {
  EXPECT_NEAR(Parameter(Vec(0, 0, 1), kQuarter), 1, kParameter);
  EXPECT_NEAR(Parameter(Vec(0, 0, -1), kQuarter), 1, kParameter);
}

TEST(PointParametrcValueOnArc, KeepsHalfATurnOppositeTheStart) {
  EXPECT_DOUBLE_EQ(Parameter(Vec(-1, 0, 0), kQuarter), 2);
  EXPECT_DOUBLE_EQ(Parameter(Vec(-7, 0, 0), kQuarter), 2);
  EXPECT_DOUBLE_EQ(Parameter(Vec(-1, -0.0001, 0), kQuarter), 2);
  EXPECT_DOUBLE_EQ(Parameter(Vec(-1, 0, 0), {kO, kX, kY, kY}), 0.5);
}

TEST(PointParametrcValueOnArc, Is0ForAPointAtTheCentre) {
  EXPECT_EQ(Parameter(kO, kQuarter), 0.0);
  EXPECT_EQ(Parameter(Vec(0, 0.0000009, 0), kQuarter), 0.0);
}

// Angle_between_2_lines knows no angle up to a length of 0.0001, and gives -1.
TEST(PointParametrcValueOnArc, IsNegativeForAPointNearTheCentreOffTheDiameter) {
  EXPECT_NEAR(Parameter(Vec(0, 0.00005, 0), kQuarter), -2 / kPi, kParameter);
  EXPECT_NEAR(Parameter(Vec(0, 0.00011, 0), kQuarter), 1, kParameter);
}

TEST(PointParametrcValueOnArc, UsesTheMinus1OfAnEndAtTheCentreAsSpan) {
  EXPECT_NEAR(Parameter(kY, {kO, kX, Vec(0.6, 0.8, 0), kO}), -kPi / 2, kParameter);
}

TEST(PointParametrcValueOnArc, IsTheSameForEveryUnitFlag) {
  const Vec above(0.6, 0.8, 0.005);
  const double expected = Parameter(above, kQuarter, 0);
  EXPECT_NEAR(expected, std::acos(0.6) / (kPi / 2), 1e-4);
  for (const int unit : {1, 2, -1}) {
    EXPECT_EQ(Parameter(above, kQuarter, unit), expected);
  }
}

TEST(PointParametrcValueOnArc, UsesTheMinus1OfAPointThatIsNoNumber) {
  EXPECT_NEAR(Parameter(Vec(kNaN, 0, 0), kQuarter), -2 / kPi, kParameter);
  EXPECT_NEAR(Parameter(Vec(0, kInfinity, 0), kQuarter), -2 / kPi, kParameter);
}

TEST(PointParametrcValueOnArc, IsTheParameterThatThePointWasMadeWith) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const KernelCircle circle = support::RandomCircle(random);
    const double from = random.Between(-4, 4);
    const double span = support::RandomSpan(random, 0.05);
    const double turn = random.Between(0.05, 6.2);
    if (std::fabs(turn - kPi) < 0.05) continue;  // rounded to half a turn
    const Vec p = circle.At(from + std::copysign(turn, span), random.Between(0.5, 2));
    EXPECT_NEAR(Parameter(p, circle.Arc(from, span), i % 2), turn / std::fabs(span), 1e-10);
  }
}

TEST(ObtainAPointInParametricCurve, IsOnTheSegmentForKind0) {
  const Vec a(1, 2, 3), b(5, -2, 11);
  const auto at = [&](double t, int unit) {
    Vec out = kUnwritten;
    Obtain_a_point_in_parametric_curve(unit, out, t, 0, a, b, nullptr, nullptr);
    return out;
  };
  for (const int unit : {0, 1, 2, -1}) {
    EXPECT_POINT_EQ(at(0, unit), a);
    EXPECT_POINT_EQ(at(0.25, unit), Vec(2, 1, 5));
    EXPECT_POINT_EQ(at(1, unit), b);
    EXPECT_POINT_EQ(at(-1, unit), Vec(-3, 6, -5));
    EXPECT_POINT_EQ(at(3, unit), Vec(13, -10, 27));
  }
  EXPECT_TRUE(std::isnan(at(kNaN, 0)[0]));
}

TEST(ObtainAPointInParametricCurve, IsOnASegmentOfAnyLengthForKind0) {
  Vec out = kUnwritten;
  Obtain_a_point_in_parametric_curve(0, out, 0.5, 0, kX, kX, nullptr, nullptr);
  EXPECT_POINT_EQ(out, kX);
}

TEST(ObtainAPointInParametricCurve, LeavesOutAloneForEveryOtherKind) {
  Vec out = kUnwritten;
  for (const int kind :
       {-1, 2, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    Obtain_a_point_in_parametric_curve(0, out, 0.5, kind, kQuarter.centre, kQuarter.start,
                                       kQuarter.middle, kQuarter.end);
    Obtain_a_point_in_parametric_curve(0, out, 0.5, kind, kO, kX, nullptr, nullptr);
  }
  EXPECT_POINT_EQ(out, kUnwritten);
}

TEST(ObtainAPointInParametricCurve, IsOnTheArcForKind1) {
  const KernelCircle circle = FlatCircle(1, 2, 5);
  const KernelArc arc = circle.Arc(0.25, 4);
  EXPECT_POINT_NEAR(PointAt(0, arc), arc.start, kTurned);
  EXPECT_POINT_NEAR(PointAt(0.25, arc), circle.At(1.25), kTurned);
  EXPECT_POINT_NEAR(PointAt(1, arc), arc.end, kTurned);
  EXPECT_POINT_NEAR(PointAt(-0.5, arc), circle.At(-1.75), kTurned);
  EXPECT_POINT_NEAR(PointAt(2, arc), circle.At(8.25), kTurned);
  EXPECT_POINT_NEAR(PointAt(0.25, circle.Arc(0.25, -4)), circle.At(-0.75), kTurned);
}

TEST(ObtainAPointInParametricCurve, GoesAllTheWayRoundOnAFullCircle) {
  const KernelCircle circle = FlatCircle(1, 2, 5);
  EXPECT_POINT_NEAR(PointAt(0.5, circle.Full(1, 2)), circle.At(1 + kPi), kTurned);
  EXPECT_POINT_NEAR(PointAt(0.25, circle.Full(1, 2)), circle.At(1 + kPi / 2), kTurned);
  EXPECT_POINT_NEAR(PointAt(0.25, circle.Full(1, 0)), circle.At(1 - kPi / 2), kTurned);
  EXPECT_POINT_NEAR(PointAt(1, circle.Full(1, 2)), circle.At(1), kTurned);
}

TEST(ObtainAPointInParametricCurve, IsTheStartForAnArcThatEndsAtItsStart) {
  EXPECT_POINT_NEAR(PointAt(0.5, {kO, kX, Vec(0.6, 0.8, 0), kX}), kX, kTurned);
}

TEST(ObtainAPointInParametricCurve, TurnsBackByTheMinus1OfAnEndAtTheCentre) {
  EXPECT_POINT_NEAR(PointAt(0.5, {kO, kX, Vec(0.6, 0.8, 0), kO}), FlatCircle(0, 0, 1).At(-0.5),
                    kTurned);
}

TEST(ObtainAPointInParametricCurve, LeavesOutAloneForANormalOfAtMost0Point0001) {
  EXPECT_POINT_EQ(PointAt(0.5, {kO, kX, Vec(1, 0.0001, 0), kY}), kUnwritten);
  EXPECT_POINT_EQ(PointAt(0.5, {kO, kX, Vec(-1, 0, 0), kY}), kUnwritten);
  EXPECT_POINT_EQ(PointAt(0.5, {kO, kX, kX, kX}), kUnwritten);
  EXPECT_POINT_NEAR(PointAt(0.5, {kO, kX, Vec(1, 0.000101, 0), kY}),
                    FlatCircle(0, 0, 1).At(kPi / 4), kTurned);
}

TEST(ObtainAPointInParametricCurve, LeavesOutAloneForAnAxisThroughTheFixedPoint) {
  const KernelArc arc = support::CircleBeforeTheFixedPoint(0).Arc(0, 2);
  EXPECT_POINT_EQ(PointAt(0.5, arc), kUnwritten);
}

TEST(ObtainAPointInParametricCurve, HandsTheUnitFlagToTheTurn) {
  const KernelArc arc = support::CircleBeforeTheFixedPoint(0.05).Arc(0, 2);
  const auto written = [&](int unit) { return PointAt(0.5, arc, unit)[0] != kUnwritten[0]; };
  support::ExpectOnly1IsInches(written, false, true);
}

TEST(ObtainAPointInParametricCurve, MayWriteToAnInput) {
  const std::array<Vec, 4> arc = {Vec(1, 2, 3), Vec(6, 2, 3), Vec(4, 6, 3), Vec(1, 2, 8)};
  for (const int kind : {0, 1}) {
    support::ExpectOutputMayBeAnyInput(arc, [kind](const auto& in, double* out) {
      Obtain_a_point_in_parametric_curve(0, out, 0.375, kind, in[0], in[1], in[2], in[3]);
    });
  }
}

TEST(ObtainAPointInParametricCurve, WritesNaNForAParameterThatIsNoNumber) {
  EXPECT_TRUE(std::isnan(PointAt(kNaN, kQuarter)[0]));
  EXPECT_TRUE(std::isnan(PointAt(kInfinity, kQuarter)[0]));
}

TEST(ObtainAPointInParametricCurve, GivesPointsOfTheirParameterOnTheCircle) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const KernelCircle circle = support::RandomCircle(random);
    const double from = random.Between(-4, 4);
    const double span = support::RandomSpan(random, 0.05);
    const KernelArc arc = circle.Arc(from, span);
    const double t = random.Between(0.01, 1);
    const Vec p = PointAt(t, arc, i % 2);
    ASSERT_POINT_NEAR(p, circle.At(from + t * span), 20 * kTurned);
    EXPECT_NEAR(support::Length(p - circle.centre), circle.radius, kTurned);
    const double turn = std::fabs(t * span);
    if (turn > 0.05 && std::fabs(turn - kPi) > 0.05) {
      EXPECT_NEAR(Parameter(p, arc), t, 1e-9);
    }
  }
}

TEST(ObtainAPointInParametricCurve, GivesTheMeanOfTheEndsForHalfASegment) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const KernelArc ends = support::RandomCircle(random).Arc(0, kPi);
    Vec out = kUnwritten;
    Obtain_a_point_in_parametric_curve(0, out, 0.5, 0, ends.start, ends.end, nullptr, nullptr);
    EXPECT_POINT_NEAR(out, ends.centre, 1e-13);
  }
}

}  // namespace
