#include <KTRCL_Geometry/kernel/Arcs.h>

#include "support/KernelArcs.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>

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

constexpr double kRounding = 1e-14;
// Turns about an axis in space go through coordinates of some 10000, rounded to 1e-12.
constexpr double kTurned = 1e-11;

struct Crossing {
  int result;
  Vec out;
};

Crossing CrossingOf(const Vec& centre, const Vec& start, const Vec& end) {
  Vec out = kUnwritten;
  const int result = Tangent_point_for_arc_endpoints(centre, start, nullptr, end, out);
  return {result, out};
}

TEST(TangentPointForArcEndpoints, IsTheCornerOfTheSquareAboutAQuarter) {
  const Crossing crossing = CrossingOf(Vec(5, 6, 7), Vec(8, 6, 7), Vec(5, 9, 7));
  EXPECT_EQ(crossing.result, 1);
  EXPECT_POINT_NEAR(crossing.out, Vec(8, 9, 7), kRounding);
}

// Tangents at plus and minus 60 degrees meet at two radii.
TEST(TangentPointForArcEndpoints, IsTwoRadiiAwayForAThirdOfATurn) {
  const KernelCircle circle = FlatCircle(0, 0, 3);
  const Crossing crossing = CrossingOf(kO, circle.At(-60 * kDegree), circle.At(60 * kDegree));
  EXPECT_EQ(crossing.result, 1);
  EXPECT_POINT_NEAR(crossing.out, Vec(6, 0, 0), 3 * kRounding);
}

TEST(TangentPointForArcEndpoints, DoesNotReadTheMiddle) {
  Vec out = kUnwritten;
  EXPECT_EQ(Tangent_point_for_arc_endpoints(kO, kX, Vec(kNaN, kNaN, kNaN), kY, out), 1);
  EXPECT_POINT_NEAR(out, Vec(1, 1, 0), kRounding);
}

TEST(TangentPointForArcEndpoints, IsTheStartForEndsThatAreOnePoint) {
  EXPECT_POINT_NEAR(CrossingOf(Vec(1, 2, 3), Vec(4, 6, 3), Vec(4, 6, 3)).out, Vec(4, 6, 3),
                    kRounding);
}

// The chord's middle is (0.0001, 0, 0), then (0.000101, 0, 0). From there 1 / 0.000101 to the
// crossing; the cosine loses eight digits against 1.
TEST(TangentPointForArcEndpoints, Gives0ForAChordWithin0Point0001OfTheCentre) {
  const Crossing half = CrossingOf(kO, kX, Vec(-1, 0, 0));
  EXPECT_EQ(half.result, 0);
  EXPECT_POINT_EQ(half.out, kUnwritten);
  const Crossing just = CrossingOf(kO, Vec(0.0001, 1, 0), Vec(0.0001, -1, 0));
  EXPECT_EQ(just.result, 0);
  EXPECT_POINT_EQ(just.out, kUnwritten);
  const Crossing beyond = CrossingOf(kO, Vec(0.000101, 1, 0), Vec(0.000101, -1, 0));
  EXPECT_EQ(beyond.result, 1);
  EXPECT_POINT_NEAR(beyond.out, Vec(1 / 0.000101, 0, 0), 0.001);
}

// The radius is the start's, the cosine that of the angle: 2 over the root of a half.
TEST(TangentPointForArcEndpoints, TakesTheRadiusFromTheStartAndTheAngleFromTheDirections) {
  const Crossing crossing = CrossingOf(kO, Vec(2, 0, 0), kY);
  EXPECT_EQ(crossing.result, 1);
  const double along = 2 * std::sqrt(2.0) / std::sqrt(5.0);
  EXPECT_POINT_NEAR(crossing.out, Vec(2 * along, along, 0), kRounding);
}

TEST(TangentPointForArcEndpoints, Gives0ForAnEndThatIsNoNumber) {
  const Crossing crossing = CrossingOf(kO, kX, Vec(kNaN, 0, 0));
  EXPECT_EQ(crossing.result, 0);
  EXPECT_POINT_EQ(crossing.out, kUnwritten);
}

TEST(TangentPointForArcEndpoints, WritesNaNForAStartAtTheCentre) {
  const Crossing crossing = CrossingOf(kO, kO, kX);
  EXPECT_EQ(crossing.result, 1);
  EXPECT_TRUE(std::isnan(crossing.out[0]));
}

TEST(TangentPointForArcEndpoints, MayWriteToAnInput) {
  support::ExpectOutputMayBeAnyInput<4>(
      {Vec(1, 2, 3), Vec(6, 2, 3), Vec(4, 6, 3), Vec(1, 7, 3)}, [](const auto& in, double* out) {
        EXPECT_EQ(Tangent_point_for_arc_endpoints(in[0], in[1], in[2], in[3], out), 1);
      });
}

TEST(TangentPointForArcEndpoints, StandsSquareOnBothRadii) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const KernelCircle circle = support::RandomCircle(random);
    const double from = random.Between(-4, 4), span = random.Between(0.05, 3);
    const KernelArc arc = circle.Arc(from, span);
    const Crossing crossing = CrossingOf(arc.centre, arc.start, arc.end);
    EXPECT_EQ(crossing.result, 1);
    EXPECT_POINT_NEAR(crossing.out, circle.At(from + span / 2, 1 / std::cos(span / 2)), 1e-10);
    EXPECT_NEAR(support::Dot(crossing.out - arc.start, arc.start - arc.centre), 0, 1e-8);
    EXPECT_NEAR(support::Dot(crossing.out - arc.end, arc.end - arc.centre), 0, 1e-8);
  }
}

struct Tangents {
  Vec out1;
  Vec out2;
};

Tangents TangentsOf(const Vec& p, const KernelArc& arc, int unit = 0) {
  Tangents t = {kUnwritten, 2 * kUnwritten};
  Tangent_points_on_arc(unit, p, arc.centre, arc.start, arc.middle, arc.end, t.out1, t.out2);
  return t;
}

void ExpectUnwritten(const Tangents& t) {
  EXPECT_POINT_EQ(t.out1, kUnwritten);
  EXPECT_POINT_EQ(t.out2, 2 * kUnwritten);
}

const KernelCircle kUnit = FlatCircle(0, 0, 1);
// The half of the unit circle above the x axis, and the one from there below it.
const KernelArc kUpper = {kO, kX, kY, Vec(-1, 0, 0)};
const KernelArc kLower = {kO, kX, Vec(0, -1, 0), Vec(-1, 0, 0)};

Vec InDegrees(double degrees, double distance) { return kUnit.At(degrees * kDegree, distance); }

// The tangents from two radii away touch 60 degrees to either side.
TEST(TangentPointsOnArc, PutsTheTurnInTheSenseOfTheArcFirst) {
  const Tangents t = TangentsOf(Vec(2, 0, 0), kUpper);
  EXPECT_POINT_NEAR(t.out1, InDegrees(60, 2), kTurned);
  EXPECT_POINT_NEAR(t.out2, InDegrees(-60, 2), kTurned);
  const Tangents lower = TangentsOf(Vec(2, 0, 0), kLower);
  EXPECT_POINT_NEAR(lower.out1, InDegrees(-60, 2), kTurned);
  EXPECT_POINT_NEAR(lower.out2, InDegrees(60, 2), kTurned);
}

TEST(TangentPointsOnArc, PutsItFirstAlsoWhereBothTouchTheArc) {
  const Tangents t = TangentsOf(Vec(0, 2, 0), kUpper);
  EXPECT_POINT_NEAR(t.out1, InDegrees(150, 2), kTurned);
  EXPECT_POINT_NEAR(t.out2, InDegrees(30, 2), kTurned);
}

TEST(TangentPointsOnArc, PutsTheOtherTurnFirstWhereTheFirstMissesTheArc) {
  const Tangents t = TangentsOf(Vec(-2, 0, 0), kUpper);
  EXPECT_POINT_NEAR(t.out1, InDegrees(120, 2), kTurned);
  EXPECT_POINT_NEAR(t.out2, InDegrees(240, 2), kTurned);
}

TEST(TangentPointsOnArc, PutsTheOtherTurnFirstWhereBothMissTheArc) {
  const Tangents t = TangentsOf(Vec(0, -2, 0), kUpper);
  EXPECT_POINT_NEAR(t.out1, InDegrees(210, 2), kTurned);
  EXPECT_POINT_NEAR(t.out2, InDegrees(330, 2), kTurned);
}

TEST(TangentPointsOnArc, KeepsTheDistanceOfThePoint) {
  const Tangents t = TangentsOf(Vec(0, 10, 0), kUpper);
  EXPECT_POINT_NEAR(t.out1, kUnit.At(kPi / 2 + std::acos(0.1), 10), kTurned);
  EXPECT_POINT_NEAR(t.out2, kUnit.At(kPi / 2 - std::acos(0.1), 10), kTurned);
}

// The first turn of (2, 0, 0) goes to 60 degrees; the arc's span makes that the parameter.
TEST(TangentPointsOnArc, TakesParametersStrictlyBelow0Point9999) {
  const Tangents below = TangentsOf(Vec(2, 0, 0), kUnit.Arc(0, 60 * kDegree / 0.99989));
  EXPECT_POINT_NEAR(below.out1, InDegrees(60, 2), kTurned);
  const Tangents above = TangentsOf(Vec(2, 0, 0), kUnit.Arc(0, 60 * kDegree / 0.99991));
  EXPECT_POINT_NEAR(above.out1, InDegrees(-60, 2), kTurned);
  EXPECT_POINT_NEAR(above.out2, InDegrees(60, 2), kTurned);
}

TEST(TangentPointsOnArc, CountsTheStartOfTheArcAndNotItsEnd) {
  const Tangents start = TangentsOf(Vec(2, 0, 0), kUnit.Arc(60 * kDegree, 1));
  EXPECT_POINT_NEAR(start.out1, InDegrees(60, 2), kTurned);
  const Tangents end = TangentsOf(Vec(2, 0, 0), kUnit.Arc(0, 60 * kDegree));
  EXPECT_POINT_NEAR(end.out1, InDegrees(-60, 2), kTurned);
}

// An end at the centre makes the span -1, and with it all parameters negative.
TEST(TangentPointsOnArc, PassesOverNegativeParameters) {
  const Tangents t = TangentsOf(Vec(1.01, 0, 0), {kO, kX, kY, kO});
  const double angle = std::acos(1 / 1.01);
  EXPECT_POINT_NEAR(t.out1, kUnit.At(-angle, 1.01), kTurned);
  EXPECT_POINT_NEAR(t.out2, kUnit.At(angle, 1.01), kTurned);
}

TEST(TangentPointsOnArc, PassesOverAParameterJustBelow0) {
  const KernelArc arc = {kO, InDegrees(59, 1), InDegrees(100, 1), kO};  // one degree: -0.017
  EXPECT_POINT_NEAR(TangentsOf(Vec(2, 0, 0), arc).out1, InDegrees(-60, 2), kTurned);
}

TEST(TangentPointsOnArc, TakesAllOfAFullCircle) {
  const Tangents t = TangentsOf(Vec(0, -2, 0), kUnit.Full(0, 2));
  EXPECT_POINT_NEAR(t.out1, InDegrees(-30, 2), kTurned);
  EXPECT_POINT_NEAR(t.out2, InDegrees(-150, 2), kTurned);
}

// 1.0001 - 0.0001 is exactly 1.
TEST(TangentPointsOnArc, LeavesOutputsAloneUpTo0Point0001OutsideTheCircle) {
  ExpectUnwritten(TangentsOf(kO, kUpper));
  ExpectUnwritten(TangentsOf(Vec(0.5, 0.5, 0), kUpper));
  ExpectUnwritten(TangentsOf(kX, kUpper));
  ExpectUnwritten(TangentsOf(Vec(1.000099, 0, 0), kUpper));
  const double angle = std::acos(1 / 1.0001);
  EXPECT_POINT_NEAR(TangentsOf(Vec(1.0001, 0, 0), kUpper).out1, kUnit.At(angle, 1.0001), kTurned);
}

TEST(TangentPointsOnArc, LeavesOutputsAloneWhereTheArcHasNoNormal) {
  ExpectUnwritten(TangentsOf(Vec(2, 0, 0), {kO, kX, Vec(-1, 0, 0), kY}));
  ExpectUnwritten(TangentsOf(Vec(2, 0, 0), {kO, kX, kX, kX}));
}

// The normal, which is the second point of the axis, is as long as the square of the radius.
TEST(TangentPointsOnArc, LeavesOutputsAloneForASmallArc) {
  ExpectUnwritten(TangentsOf(Vec(2, 0, 0), FlatCircle(0, 0, 0.0099).Arc(0, kPi)));
  EXPECT_NE(TangentsOf(Vec(2, 0, 0), FlatCircle(0, 0, 0.0101).Arc(0, kPi)).out1[0], kUnwritten[0]);
}

// With the centre at (0, 0, 5) and the normal (0, 0, 1) the axis runs down.
TEST(TangentPointsOnArc, TakesTheNormalAsAPointOfTheAxis) {
  const Vec up(0, 0, 5);
  const Tangents t = TangentsOf(Vec(0, 2, 5), {up, kX + up, kY + up, Vec(-1, 0, 5)});
  EXPECT_POINT_NEAR(t.out1, InDegrees(30, 2) + up, kTurned);
  EXPECT_POINT_NEAR(t.out2, InDegrees(150, 2) + up, kTurned);
}

// From the centre (7, 0, 1) to the normal (0, 0, 1) the axis runs against x.
TEST(TangentPointsOnArc, TurnsOutOfThePlaneOfAnArcThatIsNotAboutTheOrigin) {
  const Vec c(7, 0, 1);
  const Tangents t = TangentsOf(c + Vec(0, 2, 0), {c, c + kX, c + kY, c - kX});
  EXPECT_POINT_NEAR(t.out1, c + Vec(0, 1, -std::sqrt(3)), kTurned);
  EXPECT_POINT_NEAR(t.out2, c + Vec(0, 1, std::sqrt(3)), kTurned);
}

// Seen from the origin the fixed point stands `off` to the axis of the circle.
KernelArc ArcRoundTheFixedPoint(double off) {
  const Vec& f = support::kFixedPoint;
  const Vec axis = (1 / support::Length(f)) * f;
  const Vec side = support::Cross(axis, Vec(0, 0, 1));
  const Vec u = (1 / support::Length(side)) * side;
  const Vec v = support::Cross(axis, u);
  const Vec tilted = std::cos(off) * v + std::sin(off) * axis;
  return KernelCircle{kO, u, tilted, 5}.Arc(0, 2);
}

TEST(TangentPointsOnArc, LeavesOutputsAloneForAnAxisThroughTheFixedPoint) {
  const KernelArc arc = ArcRoundTheFixedPoint(0);
  ExpectUnwritten(TangentsOf(2 * arc.start, arc));
}

TEST(TangentPointsOnArc, HandsTheUnitFlagToTheTurns) {
  const KernelArc arc = ArcRoundTheFixedPoint(0.00003);
  const auto written = [&](int unit) {
    return TangentsOf(2 * arc.start, arc, unit).out1[0] != kUnwritten[0];
  };
  support::ExpectOnly1IsInches(written, false, true);
}

TEST(TangentPointsOnArc, MayWriteToTheInputs) {
  const std::array<Vec, 5> arc = {Vec(9, 4, 1), kO, Vec(5, 0, 0), Vec(3, 4, 0), Vec(0, 5, 0)};
  support::ExpectOutputMayBeAnyInput(arc, [](const auto& in, double* out) {
    Vec other = kUnwritten;
    Tangent_points_on_arc(0, in[0], in[1], in[2], in[3], in[4], out, other);
  });
  support::ExpectOutputMayBeAnyInput(arc, [](const auto& in, double* out) {
    Vec other = kUnwritten;
    Tangent_points_on_arc(0, in[0], in[1], in[2], in[3], in[4], other, out);
  });
}

TEST(TangentPointsOnArc, MayWriteBothOutputsToInputs) {
  const Tangents apart = TangentsOf(Vec(-2, 0, 0), kUpper);
  Vec p(-2, 0, 0), start = kUpper.start;
  Tangent_points_on_arc(0, p, kUpper.centre, start, kUpper.middle, kUpper.end, p, start);
  EXPECT_POINT_EQ(p, apart.out1);
  EXPECT_POINT_EQ(start, apart.out2);
}

TEST(TangentPointsOnArc, WritesWhatComesOfFiguresThatAreNotFinite) {
  EXPECT_TRUE(std::isnan(TangentsOf(Vec(kNaN, 0, 0), kUpper).out1[0]));
  EXPECT_TRUE(std::isnan(TangentsOf(Vec(kInfinity, 0, 0), kUpper).out1[0]));
}

TEST(TangentPointsOnArc, MarksDirectionsWhereTheTangentStandsSquareOnTheRadius) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    KernelCircle circle = support::RandomCircle(random);
    circle.centre = kO;
    const double from = random.Between(-4, 4), span = support::RandomSpan(random, 0.3);
    const double distance = random.Between(1.01, 9);
    const Vec p = circle.At(from + 0.3 * span, distance);
    const Tangents t = TangentsOf(p, circle.Arc(from, span), i % 2);
    for (const Vec& out : {t.out1, t.out2}) {
      const Vec touch = (1 / distance) * out;
      EXPECT_NEAR(support::Length(touch), circle.radius, kTurned);
      EXPECT_NEAR(support::Dot(p - touch, touch), 0, 1e-8);
    }
    EXPECT_GT(support::Length(t.out1 - t.out2), 0.1);
  }
}

}  // namespace
