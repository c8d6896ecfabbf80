#include <KTRCL_Geometry/kernel/Arcs.h>

#include "support/KernelArcs.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using support::Frame;
using support::kInfinity;
using support::kNaN;
using support::kPi;
using support::kUnwritten;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kX(1, 0, 0);

// A few roundings of figures of this size.
constexpr double kRounding = 1e-14;

struct Centre {
  int result;
  Vec out;
};

Centre CentreOf(const Vec& p1, const Vec& p2, const Vec& p3, int unit = 0) {
  Vec out = kUnwritten;
  const int result = Calculate_center_arc(unit, p1, p2, p3, out);
  return {result, out};
}

// Half the hypotenuse of a right-angled triangle.
TEST(CalculateCenterArc, IsTheMiddleOfTheLongestSideOfARightAngledTriangle) {
  const Centre level = CentreOf(Vec(1, 2, 3), Vec(9, 2, 3), Vec(9, 8, 3));
  EXPECT_EQ(level.result, 1);
  EXPECT_POINT_NEAR(level.out, Vec(5, 5, 3), kRounding);
  const Centre upright = CentreOf(Vec(1, 2, 3), Vec(1, 2, 9), Vec(1, 10, 3));
  EXPECT_EQ(upright.result, 1);
  EXPECT_POINT_NEAR(upright.out, Vec(1, 6, 6), kRounding);
}

TEST(CalculateCenterArc, IsTheSameForEveryOrderOfThePoints) {
  const Vec p(5, 0, 1), q(3, 4, 1), r(-4, -3, 1);
  for (const Centre& c : {CentreOf(p, q, r), CentreOf(q, r, p), CentreOf(r, p, q),
                          CentreOf(p, r, q), CentreOf(q, p, r), CentreOf(r, q, p)}) {
    EXPECT_EQ(c.result, 1);
    EXPECT_POINT_NEAR(c.out, Vec(0, 0, 1), 5 * kRounding);
  }
}

// Along the axes the local y of the first chord is exactly 0 at both ends. The first two are
// circles of radius 5; in the third x^2 + 4^2 = (x + 9)^2.
TEST(CalculateCenterArc, CopesWithAFirstChordOfExactlyEqualLocalY) {
  EXPECT_POINT_NEAR(CentreOf(kO, Vec(8, 0, 0), Vec(4, 8, 0)).out, Vec(4, 3, 0), kRounding);
  EXPECT_POINT_NEAR(CentreOf(kO, Vec(8, 0, 0), Vec(4, 2, 0)).out, Vec(4, -3, 0), kRounding);
  EXPECT_POINT_NEAR(CentreOf(kO, Vec(0, 8, 0), Vec(-9, 4, 0)).out, Vec(-65.0 / 18, 4, 0),
                    kRounding);
}

// The bisector of the second chord is level there: its ends have the same local x.
TEST(CalculateCenterArc, CopesWithASecondChordSquareOnTheFirst) {
  EXPECT_POINT_NEAR(CentreOf(kO, Vec(8, 0, 0), Vec(8, 6, 0)).out, Vec(4, 3, 0), kRounding);
}

TEST(CalculateCenterArc, Gives0ForPointsInLine) {
  for (const Centre& c :
       {CentreOf(kO, Vec(1, 1, 1), Vec(3, 3, 3)), CentreOf(kO, Vec(1, 1, 1), Vec(-3, -3, -3)),
        CentreOf(kX, kX, kO), CentreOf(kX, kO, kX), CentreOf(kO, kX, kX),
        CentreOf(kO, Vec(0.0001, 0, 0), Vec(0, 5, 0))}) {
    EXPECT_EQ(c.result, 0);
    EXPECT_POINT_EQ(c.out, kUnwritten);
  }
}

// Seen from the first point the two others stand 0.00005 apart.
TEST(CalculateCenterArc, HandsTheUnitFlagToInline) {
  const auto result = [](int unit) {
    return CentreOf(kO, Vec(10, 0, 0), Vec(20, 0.001, 0), unit).result;
  };
  support::ExpectOnly1IsInches(result, 0, 1);
}

TEST(CalculateCenterArc, MayWriteToAnInput) {
  support::ExpectOutputMayBeAnyInput<3>(
      {Vec(1, 2, 3), Vec(9, 4, 1), Vec(6, 8, 3)}, [](const auto& in, double* out) {
        EXPECT_EQ(Calculate_center_arc(0, in[0], in[1], in[2], out), 1);
      });
}

TEST(CalculateCenterArc, WritesWhatComesOfNaN) {
  const Centre c = CentreOf(kO, kX, Vec(0, kNaN, 0));
  EXPECT_EQ(c.result, 1);
  EXPECT_TRUE(std::isnan(c.out[0]));
}

TEST(CalculateCenterArc, FindsTheCentreOfAnyCircleInSpace) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const support::KernelCircle circle = support::RandomCircle(random);
    const double from = random.Between(-4, 4);
    const double second = from + random.Between(0.5, 2);
    const double third = second + random.Between(0.5, 2);
    const Centre c = CentreOf(circle.At(from), circle.At(second), circle.At(third), i % 2);
    EXPECT_EQ(c.result, 1);
    EXPECT_POINT_NEAR(c.out, circle.centre, 1e-11);
  }
}

// X and Y are rows that are no unit vectors, so that rows are told from columns and inverses.
const Frame kSkew(Vec(0, 2, 1), Vec(-3, 0, 5), Vec(100, 200, 300));

TEST(Arcmpi, GivesTheFirstTwoRowsTimesTheWayFromTheOrigin) {
  double u = 0, v = 0;
  EXPECT_EQ(Arcmpi(Vec(3, 5, 7), kSkew, &u, &v, Vec(1, 2, 3)), 0);
  EXPECT_EQ(u, 10.0);  // (2, 3, 4) . (0, 2, 1)
  EXPECT_EQ(v, 14.0);  // (2, 3, 4) . (-3, 0, 5)
}

TEST(Arcmpi, LetsNaNThrough) {
  double u = 0, v = 0;
  EXPECT_EQ(Arcmpi(Vec(kNaN, 0, 0), support::kGlobalAxes, &u, &v, kO), 0);
  EXPECT_TRUE(std::isnan(u));
}

TEST(Arcpmo, AddsTheFirstTwoRowsToTheOrigin) {
  Vec out = kUnwritten;
  EXPECT_EQ(Arcpmo(10, 7, kSkew, &out[0], &out[1], &out[2], Vec(1, 2, 3)), 1);
  EXPECT_POINT_EQ(out, Vec(1 - 21, 2 + 20, 3 + 10 + 35));
}

TEST(Arcpmo, MayWriteToTheOrigin) {
  Vec origin(1, 2, 3);
  EXPECT_EQ(Arcpmo(10, 7, kSkew, &origin[0], &origin[1], &origin[2], origin), 1);
  EXPECT_POINT_EQ(origin, Vec(-20, 22, 48));
}

TEST(Arcpmo, LeadsBackFromArcmpiInThePlane) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const support::KernelCircle circle = support::RandomCircle(random);
    const Frame frame(circle.u, circle.v, support::Cross(circle.u, circle.v));
    const double angle = random.Between(-4, 4);
    const Vec p = circle.At(angle);
    double u = 0, v = 0;
    Arcmpi(p, frame, &u, &v, circle.centre);
    EXPECT_NEAR(u, circle.radius * std::cos(angle), 1e-13);
    EXPECT_NEAR(v, circle.radius * std::sin(angle), 1e-13);
    Vec back = kUnwritten;
    Arcpmo(u, v, frame, &back[0], &back[1], &back[2], circle.centre);
    EXPECT_POINT_NEAR(back, p, 1e-13);
  }
}

Vec Middle(const Vec& c, const Vec& s, const Vec& e) {
  Vec out(0, 0, 0);
  Middle_pnt_on_arc(c[0], c[1], s[0], s[1], e[0], e[1], &out[0], &out[1]);
  return out;
}

TEST(MiddlePntOnArc, IsHalfWayForLessThanHalfATurn) {
  const double half = std::sqrt(0.5);
  EXPECT_POINT_NEAR(Middle(Vec(5, 6, 0), Vec(6, 6, 0), Vec(5, 7, 0)), Vec(5 + half, 6 + half, 0),
                    kRounding);
  EXPECT_POINT_NEAR(Middle(kO, Vec(-4, -3, 0), Vec(3, -4, 0)),
                    Vec(-7 * half + 6 * half, -7 * half, 0), kRounding);
}

TEST(MiddlePntOnArc, IsAQuarterTurnFromTheStartForHalfATurn) {
  EXPECT_POINT_NEAR(Middle(kO, Vec(2, 0, 0), Vec(-2, 0, 0)), Vec(0, 2, 0), kRounding);
}

TEST(MiddlePntOnArc, IsAQuarterTurnFromTheStartForAReflexArcWhateverTheSpan) {
  const Vec c(5, 6, 0), s(8, 10, 0);
  const support::KernelCircle circle = support::FlatCircle(5, 6, 5);
  for (const double span : {3.2, 4.0, 5.0, 6.2}) {
    EXPECT_POINT_NEAR(Middle(c, s, circle.At(std::atan2(4, 3) + span)), Vec(1, 9, 0), kRounding);
  }
}

TEST(MiddlePntOnArc, IsAQuarterTurnFromTheStartWhereTheEndIsInItsDirection) {
  EXPECT_POINT_NEAR(Middle(kO, Vec(2, 0, 0), Vec(2, 0, 0)), Vec(0, 2, 0), kRounding);
  EXPECT_POINT_NEAR(Middle(kO, Vec(2, 0, 0), Vec(7, 0, 0)), Vec(0, 2, 0), kRounding);
}

TEST(MiddlePntOnArc, HasNoToleranceAtTheStart) {
  EXPECT_POINT_NEAR(Middle(kO, Vec(2, 0, 0), Vec(2, 1e-200, 0)), Vec(2, 0, 0), kRounding);
  EXPECT_POINT_NEAR(Middle(kO, Vec(2, 0, 0), Vec(2, -1e-200, 0)), Vec(0, 2, 0), kRounding);
}

TEST(MiddlePntOnArc, IsTheCentreForAStartAtTheCentre) {
  EXPECT_POINT_NEAR(Middle(Vec(5, 6, 0), Vec(5, 6, 0), Vec(8, 9, 0)), Vec(5, 6, 0), kRounding);
}

TEST(MiddlePntOnArc, IsAQuarterTurnFromTheStartForAnEndThatIsNoNumber) {
  EXPECT_POINT_NEAR(Middle(kO, Vec(2, 0, 0), Vec(kNaN, 1, 0)), Vec(0, 2, 0), kRounding);
  EXPECT_TRUE(std::isnan(Middle(kO, Vec(kNaN, 0, 0), Vec(1, 1, 0))[0]));
}

// Ends a billionth of a turn and less apart have a cosine of 1 and more by rounding.
TEST(MiddlePntOnArc, IsNearTheStartWhereTheCosineIsRoundedBeyond1) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const support::KernelCircle circle = support::FlatCircle(0, 0, random.Between(1, 9));
    const double from = random.Between(-4, 4);
    const Vec s = circle.At(from);
    EXPECT_POINT_NEAR(Middle(kO, s, circle.At(from + 1e-9, 3)), s, 1e-6);
  }
}

TEST(MiddlePntOnArc, IsHalfWayForAnySpanBelowHalfATurn) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const support::KernelCircle circle =
        support::FlatCircle(random.Between(-9, 9), random.Between(-9, 9), random.Between(1, 9));
    const double from = random.Between(-4, 4);
    const double span = random.Between(0.01, kPi - 0.01);
    const Vec end = circle.At(from + span, random.Between(0.5, 2));
    const Vec expected = circle.At(from + span / 2);
    EXPECT_POINT_NEAR(Middle(circle.centre, circle.At(from), end), expected, 1e-11);
  }
}

struct Snapped {
  bool result;
  Vec out;
};

Snapped Snap(const Vec& centre, const Vec& start, const Vec& p) {
  Vec out = kUnwritten;
  const bool result = Obtain_midpoint_on_an_arc(centre, start, p, out);
  return {result, out};
}

TEST(ObtainMidpointOnAnArc, BringsThePointToTheRadius) {
  const Snapped inside = Snap(Vec(1, 2, 3), Vec(6, 2, 3), Vec(1.5, 2, 3));
  EXPECT_TRUE(inside.result);
  EXPECT_POINT_NEAR(inside.out, Vec(6, 2, 3), kRounding);
  const Snapped outside = Snap(Vec(1, 2, 3), Vec(6, 2, 3), Vec(1, 8, -5));
  EXPECT_TRUE(outside.result);
  EXPECT_POINT_NEAR(outside.out, Vec(1, 5, -1), kRounding);
}

TEST(ObtainMidpointOnAnArc, KeepsAPointWithin0Point00001OfTheRadius) {
  EXPECT_POINT_EQ(Snap(kO, kX, Vec(1.0000099, 0, 0)).out, Vec(1.0000099, 0, 0));
  EXPECT_POINT_EQ(Snap(kO, kX, Vec(0, 0.9999901, 0)).out, Vec(0, 0.9999901, 0));
  EXPECT_POINT_EQ(Snap(kO, kX, Vec(1.0000101, 0, 0)).out, kX);
  EXPECT_POINT_EQ(Snap(kO, kX, Vec(0, 0.9999899, 0)).out, Vec(0, 1, 0));
}

TEST(ObtainMidpointOnAnArc, KeepsAPointJust0Point00001OffTheRadius) {
  const Snapped above = Snap(kO, kO, Vec(0.00001, 0, 0));
  EXPECT_TRUE(above.result);
  EXPECT_POINT_EQ(above.out, Vec(0.00001, 0, 0));
  const Snapped below = Snap(kO, Vec(0.00002, 0, 0), Vec(0, 0.00001, 0));
  EXPECT_TRUE(below.result);
  EXPECT_POINT_EQ(below.out, Vec(0, 0.00001, 0));
}

TEST(ObtainMidpointOnAnArc, LeavesOutAloneForAPointAtTheCentre) {
  for (const Vec& p : {kO, Vec(0.00001, 0, 0), Vec(kNaN, 0, 0)}) {
    const Snapped snapped = Snap(kO, kX, p);
    EXPECT_FALSE(snapped.result);
    EXPECT_POINT_EQ(snapped.out, kUnwritten);
  }
}

// A way of up to 0.0001 is not brought to length 1.
TEST(ObtainMidpointOnAnArc, StaysNextToTheCentreForAPointNextToIt) {
  const Snapped near = Snap(kO, Vec(2, 0, 0), Vec(0.000011, 0, 0));
  EXPECT_TRUE(near.result);
  EXPECT_POINT_EQ(near.out, Vec(0.000022, 0, 0));
  EXPECT_POINT_EQ(Snap(kO, Vec(2, 0, 0), Vec(0, 0.0001, 0)).out, Vec(0, 0.0002, 0));
  EXPECT_POINT_NEAR(Snap(kO, Vec(2, 0, 0), Vec(0, 0.000101, 0)).out, Vec(0, 2, 0), kRounding);
}

TEST(ObtainMidpointOnAnArc, GivesTheCentreForARadiusOf0) {
  const Snapped snapped = Snap(Vec(1, 2, 3), Vec(1, 2, 3), Vec(7, 8, 9));
  EXPECT_TRUE(snapped.result);
  EXPECT_POINT_EQ(snapped.out, Vec(1, 2, 3));
}

TEST(ObtainMidpointOnAnArc, WritesWhatComesOfFiguresThatAreNotFinite) {
  const Snapped radius = Snap(kO, Vec(kNaN, 0, 0), kX);
  EXPECT_TRUE(radius.result);
  EXPECT_TRUE(std::isnan(radius.out[0]));
  const Snapped far = Snap(kO, kX, Vec(kInfinity, 0, 0));
  EXPECT_TRUE(far.result);
  EXPECT_TRUE(std::isnan(far.out[0]));
}

TEST(ObtainMidpointOnAnArc, MayWriteToAnInput) {
  support::ExpectOutputMayBeAnyInput<3>(
      {Vec(1, 2, 3), Vec(9, 4, 1), Vec(6, 8, 3)}, [](const auto& in, double* out) {
        EXPECT_TRUE(Obtain_midpoint_on_an_arc(in[0], in[1], in[2], out));
      });
}

TEST(ObtainMidpointOnAnArc, GivesPointsOfTheCircleInTheirDirection) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const support::KernelCircle circle = support::RandomCircle(random);
    const double angle = random.Between(-4, 4);
    const Snapped snapped =
        Snap(circle.centre, circle.At(1), circle.At(angle, random.Between(0.1, 9)));
    EXPECT_TRUE(snapped.result);
    EXPECT_POINT_NEAR(snapped.out, circle.At(angle), 1e-12);
  }
}

}  // namespace
