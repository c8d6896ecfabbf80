#include <KTRCL_Geometry/kernel/Arcs.h>

#include "support/KernelArcs.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::FlatCircle;
using support::kDegree;
using support::KernelArc;
using support::KernelCircle;
using support::kNaN;
using support::kPi;
using support::kUnwritten;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kX(1, 0, 0);
constexpr Vec kY(0, 1, 0);

// A few roundings of figures up to 20.
constexpr double kRounding = 2e-14;
// Turns about an axis in space go through coordinates of some 10000, rounded to 1e-12.
constexpr double kTurned = 1e-11;

struct Parts {
  int result;
  Vec point;
  Vec mid1;
  Vec mid2;
};

Parts Divide(const Vec& p, const KernelArc& arc) {
  const Vec &c = arc.centre, &s = arc.start, &m = arc.middle, &e = arc.end;
  Parts parts = {0, kUnwritten, 2 * kUnwritten, 3 * kUnwritten};
  parts.result =
      Divide_arc_by_a_point(p[0], p[1], p[2], c[0], c[1], c[2], s[0], s[1], s[2], m[0], m[1], m[2],
                            e[0], e[1], e[2], parts.point, parts.mid1, parts.mid2);
  return parts;
}

void ExpectUnwritten(const Parts& parts) {
  EXPECT_EQ(parts.result, 1);
  EXPECT_POINT_EQ(parts.point, kUnwritten);
  EXPECT_POINT_EQ(parts.mid1, 2 * kUnwritten);
  EXPECT_POINT_EQ(parts.mid2, 3 * kUnwritten);
}

void ExpectParts(const Parts& parts, const Vec& point, const Vec& mid1, const Vec& mid2,
                 double tolerance = kRounding) {
  EXPECT_EQ(parts.result, 1);
  EXPECT_POINT_NEAR(parts.point, point, tolerance);
  EXPECT_POINT_NEAR(parts.mid1, mid1, tolerance);
  EXPECT_POINT_NEAR(parts.mid2, mid2, tolerance);
}

const KernelCircle kTen = FlatCircle(1, 2, 10);

Vec InDegrees(double degrees, double radii = 1) { return kTen.At(degrees * kDegree, radii); }
KernelArc ArcInDegrees(double from, double span) {
  return kTen.Arc(from * kDegree, span * kDegree);
}

TEST(DivideArcByAPoint, GivesThePointAndTheMiddlesOfBothParts) {
  ExpectParts(Divide(InDegrees(50), ArcInDegrees(10, 90)), InDegrees(50), InDegrees(30),
              InDegrees(75));
}

TEST(DivideArcByAPoint, GoesWithTheSenseOfTheArc) {
  ExpectParts(Divide(InDegrees(-30), ArcInDegrees(10, -90)), InDegrees(-30), InDegrees(-10),
              InDegrees(-55));
}

TEST(DivideArcByAPoint, DividesHalfATurn) {
  ExpectParts(Divide(InDegrees(60), ArcInDegrees(0, 180)), InDegrees(60), InDegrees(30),
              InDegrees(120));
}

TEST(DivideArcByAPoint, BringsThePointIntoThePlane) {
  const Vec above(0, 0, 7);
  ExpectParts(Divide(InDegrees(50) + above, ArcInDegrees(10, 90)), InDegrees(50), InDegrees(30),
              InDegrees(75));
}

TEST(DivideArcByAPoint, SnapsThePointRadially) {
  for (const double radii : {0.1, 0.9, 1.5, 30.0}) {
    ExpectParts(Divide(InDegrees(50, radii), ArcInDegrees(10, 90)), InDegrees(50), InDegrees(30),
                InDegrees(75));
  }
}

// The point in the direction of the start has local y 0, and those behind it negative local x.
TEST(DivideArcByAPoint, SnapsInEveryDirection) {
  const KernelArc arc = {kO, Vec(4, 0, 0), Vec(0, 4, 0), Vec(0, -4, 0)};
  EXPECT_POINT_EQ(Divide(Vec(2, 0, 0), arc).point, Vec(4, 0, 0));
  EXPECT_POINT_EQ(Divide(Vec(-2, 0, 0), arc).point, Vec(-4, 0, 0));
  EXPECT_POINT_EQ(Divide(Vec(0, 3, 0), arc).point, Vec(0, 4, 0));
  EXPECT_POINT_EQ(Divide(Vec(0, -3, 0), arc).point, Vec(0, -4, 0));
  EXPECT_POINT_NEAR(Divide(Vec(3, 4, 0), arc).point, Vec(2.4, 3.2, 0), kRounding);
  EXPECT_POINT_NEAR(Divide(Vec(-3, 4, 0), arc).point, Vec(-2.4, 3.2, 0), kRounding);
  EXPECT_POINT_NEAR(Divide(Vec(-3, -4, 0), arc).point, Vec(-2.4, -3.2, 0), kRounding);
  EXPECT_POINT_NEAR(Divide(Vec(3, -4, 0), arc).point, Vec(2.4, -3.2, 0), kRounding);
}

TEST(DivideArcByAPoint, KeepsAPointLessThan0Point0001OffTheCircle) {
  const KernelArc arc = {kO, Vec(4, 0, 0), Vec(0, 4, 0), Vec(-4, 0, 0)};
  EXPECT_POINT_EQ(Divide(Vec(0, 4.000099, 0), arc).point, Vec(0, 4.000099, 0));
  EXPECT_POINT_EQ(Divide(Vec(0, 3.999901, 0), arc).point, Vec(0, 3.999901, 0));
  EXPECT_POINT_EQ(Divide(Vec(0, 4.000101, 0), arc).point, Vec(0, 4, 0));
  EXPECT_POINT_EQ(Divide(Vec(0, 3.999899, 0), arc).point, Vec(0, 4, 0));
}

TEST(DivideArcByAPoint, SnapsAPointJust0Point0001OffTheCircle) {
  const KernelArc arc = {kO, Vec(0.0002, 0, 0), kY, Vec(-1, 0, 0)};
  EXPECT_POINT_EQ(Divide(Vec(0.0001, 0, 0), arc).point, Vec(0.0002, 0, 0));
}

TEST(DivideArcByAPoint, LeavesAPointAtTheCentreThere) {
  const KernelArc arc = {kO, Vec(4, 0, 0), Vec(0, 4, 0), Vec(-4, 0, 0)};
  ExpectParts(Divide(kO, arc), kO, arc.start, kO, 0);
  ExpectParts(Divide(Vec(0, 0, 3), arc), kO, arc.start, kO, 0);
}

// The products of the lengths are the squares of the radii.
TEST(DivideArcByAPoint, TakesNoAngleBelowAProductOfLengthsOf0Point0001) {
  const KernelCircle less = FlatCircle(0, 0, 0.0099);
  const KernelArc small = less.Arc(0, 2);
  ExpectParts(Divide(less.At(1), small), less.At(1), small.start, less.At(1));
  const KernelArc just = {kO, Vec(0.01, 0, 0), Vec(0, 0.01, 0), Vec(-0.01, 0, 0)};
  ASSERT_EQ(0.01 * 0.01, 0.0001);
  EXPECT_POINT_NEAR(Divide(just.middle, just).mid1, FlatCircle(0, 0, 0.01).At(kPi / 4), kRounding);
  const KernelCircle more = FlatCircle(0, 0, 0.0101);
  ExpectParts(Divide(more.At(1), more.Arc(0, 2)), more.At(1), more.At(0.5), more.At(1.5));
}

TEST(DivideArcByAPoint, PutsAMiddleAtTheEndThatIsThePoint) {
  const KernelArc arc = ArcInDegrees(10, 90);
  ExpectParts(Divide(arc.start, arc), arc.start, arc.start, InDegrees(55), 1e-6);
  ExpectParts(Divide(arc.end, arc), arc.end, InDegrees(55), arc.end, 1e-6);
}

// 270 degrees are seen as 90, and half of that turned on from the start.
TEST(DivideArcByAPoint, PutsTheMiddleOfAReflexPartShortOfHalfWay) {
  ExpectParts(Divide(InDegrees(270), ArcInDegrees(0, 300)), InDegrees(270), InDegrees(45),
              InDegrees(285));
  ExpectParts(Divide(InDegrees(30), ArcInDegrees(0, 300)), InDegrees(30), InDegrees(15),
              InDegrees(75));
}

TEST(DivideArcByAPoint, TakesTheEndOfAFullCircleAsItStands) {
  const KernelArc full = kTen.Full(0, 120 * kDegree);
  ExpectParts(Divide(InDegrees(80), full), InDegrees(80), InDegrees(40), InDegrees(100));
  ExpectParts(Divide(InDegrees(160), full), InDegrees(160), InDegrees(80), InDegrees(180));
}

TEST(DivideArcByAPoint, LeavesOutputsAloneWhereTheArcSpansNoFrame) {
  ExpectUnwritten(Divide(kY, {kO, kX, Vec(-1, 0, 0), kY}));
  ExpectUnwritten(Divide(kY, {kO, kX, kX, kX}));
  ExpectUnwritten(Divide(kY, {kO, kO, kX, kY}));
}

TEST(DivideArcByAPoint, WritesWhatComesOfNaN) {
  const Parts parts = Divide(Vec(kNaN, 0, 0), {kO, kX, kY, Vec(-1, 0, 0)});
  EXPECT_EQ(parts.result, 1);
  EXPECT_TRUE(std::isnan(parts.point[0]));
  EXPECT_TRUE(std::isnan(parts.mid1[0]));
}

TEST(DivideArcByAPoint, HalvesBothPartsOfAnyArcUpToHalfATurn) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const KernelCircle circle = support::RandomCircle(random);
    const double from = random.Between(-4, 4);
    const double span = std::copysign(random.Between(0.2, 3), random.Between(-1, 1));
    const double at = from + random.Between(0.1, 0.9) * span;
    const Vec off = random.Between(-3, 3) * support::Cross(circle.u, circle.v);
    ExpectParts(Divide(circle.At(at, random.Between(0.5, 2)) + off, circle.Arc(from, span)),
                circle.At(at), circle.At((from + at) / 2), circle.At((at + from + span) / 2),
                1e-11);
  }
}

struct Middles {
  Vec mid1;
  Vec mid2;
};

Middles Mended(const KernelArc& arc, const Vec& divide, const Vec& mid1, const Vec& mid2,
               int unit = 0) {
  Middles m = {mid1, mid2};
  Make_sure_middle_points_correct(unit, arc.centre, arc.start, arc.middle, arc.end, divide, m.mid1,
                                  m.mid2);
  return m;
}

const KernelArc kReflex = kTen.Arc(0, 300 * kDegree);

TEST(MakeSureMiddlePointsCorrect, KeepsMiddlesThatRunWithTheArc) {
  const Middles m = Mended(kReflex, InDegrees(150), InDegrees(20), InDegrees(200));
  EXPECT_POINT_EQ(m.mid1, InDegrees(20));
  EXPECT_POINT_EQ(m.mid2, InDegrees(200));
}

// From the start to 225 degrees is a turn against the arc.
TEST(MakeSureMiddlePointsCorrect, PutsTheFirstMiddleAtHalfItsParameter) {
  const Middles m = Mended(kReflex, InDegrees(270), InDegrees(225), InDegrees(285));
  EXPECT_POINT_NEAR(m.mid1, InDegrees(112.5), kTurned);
  EXPECT_POINT_EQ(m.mid2, InDegrees(285));
}

// From 30 to 250 degrees is a turn against the arc.
TEST(MakeSureMiddlePointsCorrect, PutsTheSecondMiddleAtTheMeanOfItsAndThePointsParameters) {
  const Middles m = Mended(kReflex, InDegrees(30), InDegrees(15), InDegrees(250));
  EXPECT_POINT_EQ(m.mid1, InDegrees(15));
  EXPECT_POINT_NEAR(m.mid2, InDegrees(140), kTurned);
}

TEST(MakeSureMiddlePointsCorrect, MendsBothInOneCall) {
  const Middles m = Mended(kReflex, InDegrees(60), InDegrees(240), InDegrees(280));
  EXPECT_POINT_NEAR(m.mid1, InDegrees(120), kTurned);
  EXPECT_POINT_NEAR(m.mid2, InDegrees(170), kTurned);
}

// A middle behind the end has a parameter above 1.
TEST(MakeSureMiddlePointsCorrect, UsesParametersAbove1) {
  const Middles m = Mended(kReflex, InDegrees(30), InDegrees(330), InDegrees(330));
  EXPECT_POINT_NEAR(m.mid1, InDegrees(165), kTurned);
  EXPECT_POINT_NEAR(m.mid2, InDegrees(180), kTurned);
}

TEST(MakeSureMiddlePointsCorrect, MendsArcsToTheRight) {
  const KernelArc right = kTen.Arc(0, -300 * kDegree);
  const Middles m = Mended(right, InDegrees(-30), InDegrees(-225), InDegrees(-250));
  EXPECT_POINT_NEAR(m.mid1, InDegrees(-112.5), kTurned);
  EXPECT_POINT_NEAR(m.mid2, InDegrees(-140), kTurned);
}

// A middle in line with the centre runs in no sense.
TEST(MakeSureMiddlePointsCorrect, MendsMiddlesInLineWithTheCentre) {
  const Middles opposite = Mended(kReflex, InDegrees(90), InDegrees(180), InDegrees(270));
  EXPECT_POINT_NEAR(opposite.mid1, InDegrees(90), kTurned);
  EXPECT_POINT_NEAR(opposite.mid2, InDegrees(180), kTurned);
  const Middles same = Mended(kReflex, InDegrees(90), InDegrees(0, 2), InDegrees(90, 2));
  EXPECT_POINT_NEAR(same.mid1, InDegrees(0), kTurned);
  EXPECT_POINT_NEAR(same.mid2, InDegrees(90), kTurned);
}

TEST(MakeSureMiddlePointsCorrect, MendsTheMiddlesOfAFullCircle) {
  const Middles m = Mended(kTen.Full(0, 1), InDegrees(90), InDegrees(200), InDegrees(300));
  EXPECT_POINT_NEAR(m.mid1, InDegrees(100), kTurned);
  EXPECT_POINT_NEAR(m.mid2, InDegrees(195), kTurned);
}

TEST(MakeSureMiddlePointsCorrect, KeepsMiddlesWhereTheArcHasNoNormal) {
  const KernelArc straight = {kO, kX, Vec(-1, 0, 0), kY};
  const Middles m = Mended(straight, kX, Vec(0, 2, 0), Vec(0, -2, 0));
  EXPECT_POINT_EQ(m.mid1, Vec(0, 2, 0));
  EXPECT_POINT_EQ(m.mid2, Vec(0, -2, 0));
}

// Against the arc, and seen from the axis's first point the fixed point stands 0.00005 off it.
TEST(MakeSureMiddlePointsCorrect, HandsTheUnitFlagToTheTurns) {
  const KernelCircle circle = support::CircleBeforeTheFixedPoint(0.05);
  const auto mended1 = [&](int unit) {
    return Mended(circle.Arc(0, 5), circle.At(1), circle.At(4), circle.At(2), unit).mid1[1] !=
           circle.At(4)[1];
  };
  const auto mended2 = [&](int unit) {
    return Mended(circle.Arc(0, 5), circle.At(1), circle.At(0.5), circle.At(4.9), unit).mid2[1] !=
           circle.At(4.9)[1];
  };
  support::ExpectOnly1IsInches(mended1, false, true);
  support::ExpectOnly1IsInches(mended2, false, true);
}

TEST(MakeSureMiddlePointsCorrect, KeepsMiddlesWhereTheTurnFails) {
  const KernelCircle circle = support::CircleBeforeTheFixedPoint(0);
  const Middles m = Mended(circle.Arc(0, 5), circle.At(1), circle.At(4), circle.At(4.9), 1);
  EXPECT_POINT_EQ(m.mid1, circle.At(4));
  EXPECT_POINT_EQ(m.mid2, circle.At(4.9));
}

TEST(MakeSureMiddlePointsCorrect, ReadsAllInputsBeforeItWrites) {
  const Vec divide = InDegrees(60), mid2 = InDegrees(290);
  const Middles apart = Mended(kReflex, divide, kReflex.end, mid2);
  KernelArc arc = kReflex;
  Vec second = mid2;
  Make_sure_middle_points_correct(0, arc.centre, arc.start, arc.middle, arc.end, divide, arc.end,
                                  second);
  EXPECT_POINT_EQ(arc.end, apart.mid1);
  EXPECT_POINT_EQ(second, apart.mid2);
  EXPECT_POINT_NEAR(apart.mid1, InDegrees(150), kTurned);
  EXPECT_POINT_NEAR(apart.mid2, InDegrees(175), kTurned);
}

// Half angles of 45 degrees run with the arc, so middles short of half-way stay.
TEST(MakeSureMiddlePointsCorrect, KeepsWhatDivideArcByAPointGivesForAReflexPart) {
  const Parts parts = Divide(InDegrees(270), kReflex);
  const Middles m = Mended(kReflex, parts.point, parts.mid1, parts.mid2);
  EXPECT_POINT_EQ(m.mid1, parts.mid1);
  EXPECT_POINT_EQ(m.mid2, parts.mid2);
}

TEST(MakeSureMiddlePointsCorrect, LeavesHalvesOfAnyDivisionWhereTheyAre) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const KernelCircle circle = support::RandomCircle(random);
    const double from = random.Between(-4, 4), span = support::RandomSpan(random, 0.2);
    const KernelArc arc = circle.Arc(from, span);
    const Parts parts = Divide(circle.At(from + random.Between(0.2, 0.8) * span), arc);
    const Middles m = Mended(arc, parts.point, parts.mid1, parts.mid2, i % 2);
    EXPECT_POINT_EQ(m.mid1, parts.mid1);
    EXPECT_POINT_EQ(m.mid2, parts.mid2);
  }
}

TEST(MakeSureMiddlePointsCorrect, HalvesTheParametersOfAnyMiddlesThatRunAgainstTheArc) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const KernelCircle circle = support::RandomCircle(random);
    const double sense = random.Bool() ? 1 : -1;
    const double from = random.Between(-4, 4), span = random.Between(4.5, 6);
    const double first = random.Between(3.3, 6), divide = random.Between(0.1, 2);
    const double second = divide + random.Between(3.3, 4);
    const Middles m = Mended(circle.Arc(from, sense * span), circle.At(from + sense * divide),
                             circle.At(from + sense * first), circle.At(from + sense * second));
    EXPECT_POINT_NEAR(m.mid1, circle.At(from + sense * first / 2), 1e-10);
    EXPECT_POINT_NEAR(m.mid2, circle.At(from + sense * (divide + second) / 2), 1e-10);
  }
}

}  // namespace
