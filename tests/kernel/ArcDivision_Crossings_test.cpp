// The arcs of most tests lie on two circles of radius 5 about (0, 0) and (8, 0), which cross at
// (4, 3) and (4, -3): at 36.87 and -36.87 degrees on the first, at 143.13 and 216.87 on the second.
// The first crossing is the one that lies farther to the left of the first arc's start for an arc
// to the left, seen from its centre: the upper one in nearly all tests. No arc sets off square to
// the line of centres, where crossings of circles are rough.
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
using support::kUnwritten;
using support::Vec;

// The crossings come from differences of squares of figures up to 80.
constexpr double kRounding = 1e-13;

constexpr Vec kUpper(4, 3, 0);
constexpr Vec kLower(4, -3, 0);

const KernelCircle kFirst = FlatCircle(0, 0, 5);
const KernelCircle kSecond = FlatCircle(8, 0, 5);
const double kAngle = std::atan2(3, 4);  // of the crossings, to either side of the line of centres

KernelArc First(double from, double to) {
  return kFirst.Arc(from * kDegree, (to - from) * kDegree);
}
KernelArc Second(double from, double to) {
  return kSecond.Arc(from * kDegree, (to - from) * kDegree);
}

// Parts of the first circle with both crossings inside, with the upper one, with the lower one.
const KernelArc kFirstBoth = First(-80, 80);
const KernelArc kFirstUpper = First(-10, 80);
const KernelArc kFirstLower = First(-60, -10);
// The same of the second circle.
const KernelArc kSecondBoth = Second(100, 260);
const KernelArc kSecondUpper = Second(100, 200);
const KernelArc kSecondLower = Second(190, 260);
// From crossing to crossing, and from one of them to the other side.
const KernelArc kFirstBetween = {Vec(0, 0, 0), kLower, Vec(5, 0, 0), kUpper};
const KernelArc kSecondBetween = {Vec(8, 0, 0), kUpper, Vec(3, 0, 0), kLower};
const KernelArc kFirstEndsUpper = {Vec(0, 0, 0), kFirst.At(-1), Vec(5, 0, 0), kUpper};
const KernelArc kFirstStartsUpper = {Vec(0, 0, 0), kUpper, Vec(3, 4, 0), Vec(0, 5, 0)};
const KernelArc kSecondLeavesUpper = {Vec(8, 0, 0), kUpper, Vec(5, 4, 0), Vec(8, 5, 0)};

struct Division {
  bool result;
  Vec q1, q2;
  int cnt1;
  Vec r1, r2;
  int cnt2;
};

using Routine = decltype(&Are_two_arcs_needed_division);

Division Divided(Routine routine, const KernelArc& a, const KernelArc& b, int unit) {
  Division d = {false, kUnwritten, 2 * kUnwritten, -7, 3 * kUnwritten, 4 * kUnwritten, -8};
  d.result = routine(unit, a.centre, a.start, a.middle, a.end, b.centre, b.start, b.middle, b.end,
                     d.q1, d.q2, d.cnt1, d.r1, d.r2, d.cnt2);
  return d;
}
Division Both(const KernelArc& a, const KernelArc& b, int unit = 0) {
  return Divided(&Are_two_arcs_needed_division, a, b, unit);
}
Division Only1st(const KernelArc& a, const KernelArc& b, int unit = 0) {
  return Divided(&Is_1st_arc_needed_division, a, b, unit);
}

void ExpectUntouched(const Division& d) {
  EXPECT_FALSE(d.result);
  EXPECT_POINT_EQ(d.q1, kUnwritten);
  EXPECT_POINT_EQ(d.q2, 2 * kUnwritten);
  EXPECT_EQ(d.cnt1, -7);
  EXPECT_POINT_EQ(d.r1, 3 * kUnwritten);
  EXPECT_POINT_EQ(d.r2, 4 * kUnwritten);
  EXPECT_EQ(d.cnt2, -8);
}

void ExpectNeither(const KernelArc& a, const KernelArc& b) {
  ExpectUntouched(Both(a, b));
  ExpectUntouched(Only1st(a, b));
}

void ExpectCounts(const Division& d, int cnt1, int cnt2) {
  EXPECT_TRUE(d.result);
  EXPECT_EQ(d.cnt1, cnt1);
  EXPECT_EQ(d.cnt2, cnt2);
}

// One crossing on both arcs: r2 is not written.
void ExpectOne(const Division& d, const Vec& crossing) {
  EXPECT_POINT_NEAR(d.q1, crossing, kRounding);
  EXPECT_POINT_NEAR(d.q2, kLower, kRounding);
  EXPECT_POINT_EQ(d.r1, d.q1);
  EXPECT_POINT_EQ(d.r2, 4 * kUnwritten);
}

void ExpectTwo(const Division& d) {
  EXPECT_POINT_NEAR(d.q1, kUpper, kRounding);
  EXPECT_POINT_NEAR(d.q2, kLower, kRounding);
  EXPECT_POINT_EQ(d.r1, d.q1);
  EXPECT_POINT_EQ(d.r2, d.q2);
}

TEST(AreTwoArcsNeededDivision, IsFalseForArcsThatOnlyTouchAtSharedEnds) {
  ExpectNeither(kFirstBetween, kSecondBetween);
  ExpectNeither(kFirstStartsUpper, kSecondLeavesUpper);
  const KernelArc back = {kFirstBetween.centre, kUpper, Vec(5, 0, 0), kLower};
  ExpectNeither(back, kSecondBetween);
}

TEST(AreTwoArcsNeededDivision, IsFalseForCirclesThatDoNotCross) {
  ExpectNeither(kFirstBoth, FlatCircle(20, 1, 5).Arc(2, 2));
  ExpectNeither(kFirstBoth, FlatCircle(1, 1, 2).Arc(2, 2));
  ExpectNeither(kFirstBoth, FlatCircle(0, 0, 4).Arc(2, 2));
  ExpectNeither(kFirstBoth, kFirstBoth);
}

TEST(AreTwoArcsNeededDivision, IsFalseForCirclesThatTouch) {
  ExpectNeither(kFirst.Full(0, 1), FlatCircle(10, 0, 5).Full(0, 1));
  ExpectNeither(kFirst.Full(0, 1), FlatCircle(2, 0, 3).Full(0, 1));
}

TEST(AreTwoArcsNeededDivision, IsFalseForAnArcInLine) {
  const KernelArc straight = {Vec(0, 0, 0), Vec(5, 0, 0), Vec(-5, 0, 0), Vec(0, 5, 0)};
  ExpectNeither(straight, kSecondBoth);
  ExpectNeither(kFirstBoth, {Vec(8, 0, 0), Vec(3, 0, 0), Vec(13, 0, 0), Vec(8, 5, 0)});
}

TEST(AreTwoArcsNeededDivision, IsFalseWhereEachCrossingIsOnOneArcAlone) {
  ExpectNeither(kFirstUpper, kSecondLower);
  ExpectNeither(kFirstLower, kSecondUpper);
}

TEST(AreTwoArcsNeededDivision, IsFalseWhereOneArcReachesNoCrossing) {
  ExpectNeither(kFirstBoth, Second(-60, 60));
  ExpectNeither(First(100, 200), kSecondBoth);
  ExpectNeither(First(100, 200), Second(-60, 60));
}

TEST(AreTwoArcsNeededDivision, GivesBothCrossingsWhereBothAreOnBothArcs) {
  const Division both = Both(kFirstBoth, kSecondBoth);
  ExpectCounts(both, 2, 2);
  ExpectTwo(both);
  const Division first = Only1st(kFirstBoth, kSecondBoth);
  ExpectCounts(first, 2, 2);
  ExpectTwo(first);
}

TEST(AreTwoArcsNeededDivision, GivesTheFirstCrossingWhereTheSecondIsOff) {
  for (const Routine routine : {&Are_two_arcs_needed_division, &Is_1st_arc_needed_division}) {
    const Division d = Divided(routine, kFirstUpper, kSecondUpper, 0);
    ExpectCounts(d, 1, 1);
    ExpectOne(d, kUpper);
  }
}

TEST(AreTwoArcsNeededDivision, GivesTheSecondCrossingInTheFirstsPlaceWhereTheFirstIsOff) {
  for (const Routine routine : {&Are_two_arcs_needed_division, &Is_1st_arc_needed_division}) {
    const Division d = Divided(routine, kFirstLower, kSecondLower, 0);
    ExpectCounts(d, 1, 1);
    ExpectOne(d, kLower);
  }
}

TEST(AreTwoArcsNeededDivision, TakesACrossingOffOneArcAsOffBoth) {
  for (const Routine routine : {&Are_two_arcs_needed_division, &Is_1st_arc_needed_division}) {
    ExpectOne(Divided(routine, kFirstBoth, kSecondUpper, 0), kUpper);
    ExpectOne(Divided(routine, kFirstBoth, kSecondLower, 0), kLower);
    ExpectOne(Divided(routine, kFirstUpper, kSecondBoth, 0), kUpper);
    ExpectOne(Divided(routine, kFirstLower, kSecondBoth, 0), kLower);
    ExpectCounts(Divided(routine, kFirstBoth, kSecondUpper, 0), 1, 1);
    ExpectCounts(Divided(routine, kFirstLower, kSecondBoth, 0), 1, 1);
  }
}

TEST(AreTwoArcsNeededDivision, DoesNotDivideTheArcWhoseEndIsTheOnlyCrossing) {
  const Division second = Both(kFirstUpper, kSecondLeavesUpper);
  ExpectCounts(second, 1, 0);
  ExpectOne(second, kUpper);
  const Division first = Both(kFirstStartsUpper, kSecondUpper);
  ExpectCounts(first, 0, 1);
  const KernelArc back = {kFirst.centre, kFirst.At(80 * kDegree), Vec(3, 4, 0), kUpper};
  ExpectCounts(Both(back, kSecondUpper), 0, 1);
}

TEST(AreTwoArcsNeededDivision, DoesNotDivideAFullCircleAtTheOnlyCrossing) {
  const Division first = Both(kFirst.Full(0, 1), kSecondUpper);
  ExpectCounts(first, 0, 1);
  ExpectOne(first, kUpper);
  const Division second = Both(kFirstUpper, kSecond.Full(0, 1));
  ExpectCounts(second, 1, 0);
  ExpectOne(second, kUpper);
}

TEST(AreTwoArcsNeededDivision, IsFalseWhereTheOnlyCrossingDividesNeither) {
  ExpectUntouched(Both(kFirst.Full(0, 1), kSecondLeavesUpper));
  ExpectUntouched(Both(kFirstStartsUpper, kSecond.Full(0, 1)));
}

TEST(AreTwoArcsNeededDivision, DividesFullCirclesAtBothCrossings) {
  const Division d = Both(kFirst.Full(0, 1), kSecond.Full(0, 1));
  ExpectCounts(d, 2, 2);
  ExpectTwo(d);
}

TEST(AreTwoArcsNeededDivision, CountsACrossingAtTheStartOfAFullCircle) {
  const KernelArc first = {kFirst.centre, kLower, Vec(5, 0, 0), Vec(5, 0, 0)};
  const KernelArc second = {kSecond.centre, kUpper, Vec(3, 0, 0), Vec(3, 0, 0)};
  ExpectCounts(Both(first, kSecondBoth), 2, 2);
  ExpectCounts(Both(kFirstBoth, second), 2, 2);
  ExpectCounts(Both(first, second), 2, 2);
  ExpectCounts(Only1st(first, second), 2, 2);
}

TEST(AreTwoArcsNeededDivision, KeepsTheFirstCrossingAtTheStartOfAFullCircle) {
  const KernelArc first = {kFirst.centre, kUpper, Vec(0, 5, 0), Vec(0, 5, 0)};
  const Division d = Both(first, kSecondBoth);
  ExpectCounts(d, 2, 2);
  ExpectTwo(d);
}

// The upper crossing is 73.74 degrees along the circle, so this is no division at ends alone.
TEST(AreTwoArcsNeededDivision, TakesTheEndOfAFullCircleAsAPointInside) {
  const KernelArc first = {kFirst.centre, kLower, kUpper, kUpper};
  ExpectCounts(Both(first, kSecondBetween), 2, 0);
  const KernelArc second = {kSecond.centre, kUpper, kLower, kLower};
  ExpectCounts(Both(kFirstBetween, second), 0, 2);
}

TEST(AreTwoArcsNeededDivision, GivesTheSecondCrossingAloneWhereTheFirstIsAnEndOfTheFirstArc) {
  for (const Routine routine : {&Are_two_arcs_needed_division, &Is_1st_arc_needed_division}) {
    const Division d = Divided(routine, kFirstEndsUpper, kSecondBoth, 0);
    ExpectCounts(d, 1, 2);
    EXPECT_POINT_NEAR(d.q1, kUpper, kRounding);
    EXPECT_POINT_NEAR(d.q2, kLower, kRounding);
    EXPECT_POINT_EQ(d.r1, d.q2);
    EXPECT_POINT_EQ(d.r2, d.q2);
  }
}

TEST(AreTwoArcsNeededDivision, GivesTheFirstCrossingAloneWhereTheSecondIsAnEndOfTheFirstArc) {
  const KernelArc first = {kFirst.centre, kLower, Vec(5, 0, 0), kFirst.At(1)};
  for (const Routine routine : {&Are_two_arcs_needed_division, &Is_1st_arc_needed_division}) {
    const Division d = Divided(routine, first, kSecondBoth, 0);
    ExpectCounts(d, 1, 2);
    ExpectTwo(d);
  }
}

TEST(AreTwoArcsNeededDivision, DividesTheSecondArcAloneWhereBothCrossingsEndTheFirst) {
  ExpectCounts(Both(kFirstBetween, kSecondBoth), 0, 2);
  ExpectCounts(Only1st(kFirstBetween, kSecondBoth), 0, 2);
}

TEST(AreTwoArcsNeededDivision, KeepsTheOrderOfThePointsForTheSecondArc) {
  const KernelArc onward = {kSecond.centre, kUpper, Vec(3, 0, 0), kSecond.At(260 * kDegree)};
  const Division upper = Both(kFirstBoth, onward);
  ExpectCounts(upper, 2, 1);
  ExpectTwo(upper);
  const KernelArc back = {kSecond.centre, kSecond.At(100 * kDegree), Vec(3, 0, 0), kLower};
  const Division lower = Both(kFirstBoth, back);
  ExpectCounts(lower, 2, 1);
  ExpectTwo(lower);
}

TEST(AreTwoArcsNeededDivision, DividesTheFirstArcAloneWhereBothCrossingsEndTheSecond) {
  const Division d = Both(kFirstBoth, kSecondBetween);
  ExpectCounts(d, 2, 0);
  ExpectTwo(d);
}

TEST(AreTwoArcsNeededDivision, LowersBothCountsForDifferentEnds) {
  const KernelArc back = {kSecond.centre, kSecond.At(100 * kDegree), Vec(3, 0, 0), kLower};
  const Division d = Both(kFirstEndsUpper, back);
  ExpectCounts(d, 1, 1);
  EXPECT_POINT_EQ(d.r1, d.q2);
}

TEST(Is1stArcNeededDivision, KeepsTheSecondCountAtAnEndOfTheSecondArc) {
  const Division one = Only1st(kFirstUpper, kSecondLeavesUpper);
  ExpectCounts(one, 1, 1);
  ExpectOne(one, kUpper);
  const Division two = Only1st(kFirstBoth, kSecondBetween);
  ExpectCounts(two, 2, 2);
  ExpectTwo(two);
}

TEST(Is1stArcNeededDivision, KeepsTheSecondCountForAFullCircle) {
  ExpectCounts(Only1st(kFirstUpper, kSecond.Full(0, 1)), 1, 1);
}

TEST(Is1stArcNeededDivision, IsTrueWhereTheOnlyCrossingDividesTheSecondArcAlone) {
  ExpectCounts(Only1st(kFirst.Full(0, 1), kSecondUpper), 0, 1);
  ExpectCounts(Only1st(kFirstStartsUpper, kSecondUpper), 0, 1);
}

TEST(Is1stArcNeededDivision, IsTrueWhereTheOnlyCrossingDividesNeither) {
  ExpectCounts(Only1st(kFirst.Full(0, 1), kSecondLeavesUpper), 0, 1);
  ExpectCounts(Only1st(kFirstStartsUpper, kSecond.Full(0, 1)), 0, 1);
  const KernelArc full = {kFirst.centre, kFirst.At(-1), kUpper, kUpper};
  ExpectCounts(Only1st(full, kSecondLeavesUpper), 0, 1);
}

// Angles of up to 0.0014 to the start are rounded to 0, so 0.002 of the circle count as the start
// where both crossings are on the arcs. Where one is, ends are told by Pntcmp.
TEST(AreTwoArcsNeededDivision, TellsEndsByTheParameterForTwoCrossingsAndByPntcmpForOne) {
  ExpectCounts(Both(kFirst.Arc(-kAngle - 0.0004, 1.5), kSecondBoth), 1, 2);
  ExpectCounts(Both(kFirst.Arc(-kAngle - 0.002, 1.5), kSecondBoth), 2, 2);
  ExpectCounts(Both(kFirst.Arc(kAngle - 0.0004, 1), kSecondUpper), 1, 1);
}

// Circles of a radius of 0.05: 0.00008 along them are 0.0016 radians, which count as an angle but
// are the same point by Pntcmp.
TEST(AreTwoArcsNeededDivision, TakesPointsThatCoincideWithAnEndAsTheEnd) {
  const KernelCircle small = FlatCircle(0, 0, 0.05);
  const KernelArc second = FlatCircle(0.08, 0, 0.05).Arc(100 * kDegree, 160 * kDegree);
  ExpectCounts(Both(small.Arc(-kAngle + 0.0016, 1.5), second), 1, 2);
  ExpectCounts(Both(small.Arc(kAngle - 0.0016, -1.5), second), 1, 2);
  ExpectCounts(Both(small.Arc(-1, 1 + kAngle - 0.0016), second), 1, 2);
  ExpectCounts(Both(small.Arc(-kAngle + 0.0032, 1.5), second), 1, 1);
  ExpectCounts(Both(small.Arc(-1, 1 + kAngle - 0.0032), second), 1, 1);
}

TEST(AreTwoArcsNeededDivision, TakesACrossingJustBeforeTheStartAsOff) {
  const Division d = Both(kFirst.Arc(-kAngle + 0.0004, 1.5), kSecondBoth);
  ExpectCounts(d, 1, 1);
  ExpectOne(d, kUpper);
}

// Circles a thousand times as large: 0.0025 along them is half a millionth of a radian, which
// Pntcmp does not take for the same point. The first arc's span up to the crossing is 1 radian.
class LargeArcs {
 public:
  static KernelArc FirstBeyondUpper(double beyond) {
    return FlatCircle(0, 0, 5000).Arc(kAngle - 1, 1 + beyond);
  }
  static KernelArc SecondInDegrees(double from, double to) {
    return FlatCircle(8000, 0, 5000).Arc(from * kDegree, (to - from) * kDegree);
  }
  static KernelArc SecondFromUpper() {
    return {Vec(8000, 0, 0), Vec(4000, 3000, 0), Vec(5000, 4000, 0), Vec(8000, 5000, 0)};
  }
};

// The first arc starts at 36.87 - 57.3 degrees, so the lower crossing is off.
TEST(AreTwoArcsNeededDivision, NeedsAParameterBelow0Point999999OnOneArc) {
  const KernelArc second = LargeArcs::SecondFromUpper();
  ExpectNeither(LargeArcs::FirstBeyondUpper(0.9e-6), second);
  ExpectCounts(Both(LargeArcs::FirstBeyondUpper(1.1e-6), second), 1, 0);
}

TEST(AreTwoArcsNeededDivision, TakesParametersUpTo1Point000001AsOnTheArc) {
  const KernelArc second = LargeArcs::SecondInDegrees(100, 200);
  ExpectCounts(Both(LargeArcs::FirstBeyondUpper(-0.9e-6), second), 1, 1);
  ExpectNeither(LargeArcs::FirstBeyondUpper(-1.1e-6), second);
}

TEST(AreTwoArcsNeededDivision, LowersTheCountOfTwoFromAParameterOf0Point999999On) {
  const auto divided = [](double beyond) {
    const double from = -1;
    const double span = (kAngle + 1) * (1 + beyond);
    return Both(FlatCircle(0, 0, 5000).Arc(from, span), LargeArcs::SecondInDegrees(100, 260));
  };
  ExpectCounts(divided(1.1e-6), 2, 2);
  ExpectCounts(divided(0.9e-6), 1, 2);
  ExpectCounts(divided(-0.9e-6), 1, 2);
  ExpectCounts(divided(-1.1e-6), 1, 1);  // off, and the other crossing remains
}

// Centre, start and middle of one arc stand 0.00005 off a line.
TEST(AreTwoArcsNeededDivision, HandsTheUnitFlagToInline) {
  const KernelArc narrow1 = {kFirst.centre, kFirst.At(-1), kFirst.At(-1 + 0.00005), kFirst.At(1)};
  const KernelArc narrow2 = {kSecond.centre, kSecond.At(2), kSecond.At(2.00005), kSecond.At(4)};
  for (const Routine routine : {&Are_two_arcs_needed_division, &Is_1st_arc_needed_division}) {
    support::ExpectOnly1IsInches(
        [&](int unit) { return Divided(routine, narrow1, kSecondBoth, unit).result; }, false, true);
    support::ExpectOnly1IsInches(
        [&](int unit) { return Divided(routine, kFirstBoth, narrow2, unit).result; }, false, true);
  }
}

TEST(AreTwoArcsNeededDivision, IsFalseForPointsThatAreNotFinite) {
  for (const double bad : {kNaN, kInfinity, -kInfinity}) {
    const Vec far(bad, bad, bad);
    ExpectNeither({far, kFirstBoth.start, kFirstBoth.middle, kFirstBoth.end}, kSecondBoth);
    ExpectNeither({kFirst.centre, far, kFirstBoth.middle, kFirstBoth.end}, kSecondBoth);
    ExpectNeither({kFirst.centre, kFirstBoth.start, far, kFirstBoth.end}, kSecondBoth);
    ExpectNeither({kFirst.centre, kFirstBoth.start, kFirstBoth.middle, far}, kSecondBoth);
    ExpectNeither(kFirstBoth, {far, kSecondBoth.start, kSecondBoth.middle, kSecondBoth.end});
    ExpectNeither(kFirstBoth, {kSecond.centre, far, kSecondBoth.middle, kSecondBoth.end});
    ExpectNeither(kFirstBoth, {kSecond.centre, kSecondBoth.start, kSecondBoth.middle, far});
  }
}

// Counts from the angles alone: which crossings lie on each arc, away from the ends.
TEST(AreTwoArcsNeededDivision, CountsTheCrossingsOnBothArcsOfAnyTwo) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const KernelCircle space = support::RandomCircle(random);
    const KernelCircle a = {space.centre, space.u, space.v, 5};
    const KernelCircle b = {space.At(0, 8 / space.radius), space.u, space.v, 5};
    const double from1 = random.Between(-kPi, kPi), span1 = support::RandomSpan(random, 0.1);
    const double from2 = random.Between(-kPi, kPi), span2 = support::RandomSpan(random, 0.1);
    // Where the first arc sets off square to the line of centres the crossings are rougher.
    if (std::fabs(std::cos(from1)) < 0.05) continue;
    bool near = false;
    const auto on = [&](double angle, double from, double span) {
      double turn = std::fmod(span > 0 ? angle - from : from - angle, 2 * kPi);
      if (turn < 0) turn += 2 * kPi;
      near =
          near || turn < 0.01 || turn > 2 * kPi - 0.01 || std::fabs(turn - std::fabs(span)) < 0.01;
      return turn < std::fabs(span);
    };
    const bool upper1 = on(kAngle, from1, span1), upper2 = on(kPi - kAngle, from2, span2);
    const bool lower1 = on(-kAngle, from1, span1), lower2 = on(kPi + kAngle, from2, span2);
    if (near) continue;
    const int count = (upper1 && upper2 ? 1 : 0) + (lower1 && lower2 ? 1 : 0);
    const Division d = Both(a.Arc(from1, span1), b.Arc(from2, span2), i % 2);
    ASSERT_EQ(d.result, count > 0);
    if (count > 0) ExpectCounts(d, count, count);
    if (count == 1) {
      ASSERT_POINT_NEAR(d.r1, a.At(upper1 && upper2 ? kAngle : -kAngle), 1e-10);
    }
  }
}

}  // namespace
