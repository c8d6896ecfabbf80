#include <KTRCL_Geometry/kernel/PointsAndLines.h>

#include "support/Build.h"
#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::kInfinity;
using support::kNaN;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kX(10, 0, 0);

int FromOrigin(double x, double y, const Vec& direction) { return Chkpnt(&x, &y, direction, kO); }

// The cosine of 0.8103 degrees is 0.9999.
TEST(Chkpnt, Gives0WithinACosineOf0Point9999) {
  const double inside = 0.8100 * support::kPi / 180;
  const double outside = 0.8106 * support::kPi / 180;
  EXPECT_EQ(FromOrigin(5, 0, Vec(1, 0, 0)), 0);
  EXPECT_EQ(FromOrigin(std::cos(inside), std::sin(inside), Vec(1, 0, 0)), 0);
  EXPECT_EQ(FromOrigin(std::cos(inside), -std::sin(inside), Vec(1, 0, 0)), 0);
  EXPECT_EQ(FromOrigin(std::cos(outside), std::sin(outside), Vec(1, 0, 0)), 1);
  EXPECT_EQ(FromOrigin(std::cos(outside), -std::sin(outside), Vec(1, 0, 0)), 1);
}

TEST(Chkpnt, Gives1ForTheOppositeSenseAndAcross) {
  EXPECT_EQ(FromOrigin(-5, 0, Vec(1, 0, 0)), 1);
  EXPECT_EQ(FromOrigin(0, 5, Vec(1, 0, 0)), 1);
}

TEST(Chkpnt, TakesADirectionOfAnyLengthAndAWayOfAnyLength) {
  EXPECT_EQ(FromOrigin(30, 40, Vec(0.0006, 0.0008, 0)), 0);
  EXPECT_EQ(FromOrigin(0.00003, 0.00004, Vec(600, 800, 0)), 0);
}

TEST(Chkpnt, LooksFromThePointAndNotAtZ) {
  const double x = 4;
  const double y = 6;
  EXPECT_EQ(Chkpnt(&x, &y, Vec(3, 4, 1000), Vec(1, 2, -77)), 0);
  EXPECT_EQ(Chkpnt(&x, &y, Vec(4, 6, 0), Vec(1, 2, 0)), 1);
}

TEST(Chkpnt, Gives1WithoutADirection) {
  EXPECT_EQ(FromOrigin(5, 0, Vec(0, 0, 1)), 1);
  EXPECT_EQ(FromOrigin(0, 0, Vec(1, 0, 0)), 1);
  EXPECT_EQ(FromOrigin(kNaN, 0, Vec(1, 0, 0)), 1);
  EXPECT_EQ(FromOrigin(5, 0, Vec(1, kNaN, 0)), 1);
  EXPECT_EQ(FromOrigin(kInfinity, 0, Vec(1, 0, 0)), 1);
}

// (2, 0, 0) x (0, 5, 0) = (0, 0, 10) and (2, 0, 0) x (0, 3, 0) = (0, 0, 6).
TEST(Cp1ptp2, IsTheProductOfTheTwoCrossProducts) {
  const Vec b(2, 0, 0);
  EXPECT_EQ(Cp1ptp2(kO, b, Vec(7, 3, 0), Vec(-9, 5, 0)), 60.0);
  EXPECT_EQ(Cp1ptp2(kO, b, Vec(7, 3, 0), Vec(-9, -5, 0)), -60.0);
  EXPECT_EQ(Cp1ptp2(kO, b, Vec(7, 0, 0), Vec(-9, -5, 0)), 0.0);
  EXPECT_EQ(Cp1ptp2(kO, b, Vec(7, 3, 0), Vec(1, 0, 5)), 0.0);
}

TEST(Cp1ptp2, IsZeroForALineOfLengthZeroAndNaNForNaN) {
  EXPECT_EQ(Cp1ptp2(kX, kX, Vec(7, 3, 0), Vec(-9, 5, 0)), 0.0);
  EXPECT_TRUE(std::isnan(Cp1ptp2(kO, kX, Vec(kNaN, 3, 0), Vec(-9, 5, 0))));
}

TEST(P1intp2, HoldsWhereThePointsAreNotOnTheSameSide) {
  EXPECT_EQ(P1intp2(kO, kX, Vec(7, 3, 0), Vec(-9, -5, 0)), 1);
  EXPECT_EQ(P1intp2(kO, kX, Vec(7, 3, 0), Vec(-9, 5, 0)), 0);
  EXPECT_EQ(P1intp2(kO, kX, Vec(7, -3, 0), Vec(-9, -5, 0)), 0);
}

TEST(P1intp2, HoldsForAProductOfZero) {
  EXPECT_EQ(P1intp2(kO, kX, Vec(7, 0, 0), Vec(-9, 5, 0)), 1);
  EXPECT_EQ(P1intp2(kO, kX, Vec(7, 3, 0), Vec(0, 0, 5)), 1);
  EXPECT_EQ(P1intp2(kX, kX, Vec(7, 3, 0), Vec(-9, 5, 0)), 1);
  EXPECT_EQ(P1intp2(kO, kX, Vec(7, kNaN, 0), Vec(-9, -5, 0)), 0);
}

TEST(InsideLinePoint, StoresTheParameterOfAPointOnTheSegment) {
  double t = -7;
  EXPECT_TRUE(Inside_line_point(0, kX, Vec(10, 8, 0), Vec(10, 2, 0), &t));
  EXPECT_EQ(t, 0.25);
  EXPECT_TRUE(Inside_line_point(0, kX, Vec(10, 8, 0), Vec(10, 2, 0), nullptr));
}

TEST(InsideLinePoint, HasStrictLimitsOneMillionthBeyondTheEnds) {
  const Vec b(1, 0, 0);
  double t = -7;
  EXPECT_FALSE(Inside_line_point(0, kO, b, Vec(-0.000001, 0, 0), &t));
  EXPECT_FALSE(Inside_line_point(0, kO, b, Vec(1.000001, 0, 0), &t));
  EXPECT_EQ(t, -7);
  const double first = std::nextafter(-0.000001, 0.0);
  EXPECT_TRUE(Inside_line_point(0, kO, b, Vec(first, 0, 0), &t));
  EXPECT_EQ(t, first);
  const double last = std::nextafter(1.000001, 0.0);
  EXPECT_TRUE(Inside_line_point(0, kO, b, Vec(last, 0, 0), &t));
  EXPECT_EQ(t, last);
}

TEST(InsideLinePoint, LeavesTheParameterAloneWhereThePointIsNotInLine) {
  double t = -7;
  EXPECT_FALSE(Inside_line_point(0, kO, kX, Vec(5, 1, 0), &t));
  EXPECT_FALSE(Inside_line_point(0, kO, kX, Vec(15, 0, 0), &t));
  EXPECT_FALSE(Inside_line_point(0, kO, kX, Vec(kNaN, 0, 0), &t));
  EXPECT_FALSE(Inside_line_point(0, kO, kX, Vec(5, 1, 0), nullptr));
  EXPECT_EQ(t, -7);
}

TEST(InsideLinePoint, HoldsAtParameter0ForASegmentOfNoLength) {
  double t = -7;
  EXPECT_TRUE(Inside_line_point(0, kO, Vec(0.0001, 0, 0), Vec(50, 60, 70), &t));
  EXPECT_EQ(t, 0.0);
}

TEST(InsideLinePoint, HandsTheUnitFlagToInline) {
  support::ExpectOnly1IsInches(
      [](int unit) { return Inside_line_point(unit, kO, kX, Vec(5, 0.00025, 0), nullptr); }, true,
      false);
}

TEST(Insidp, TellsEndsFromTheInside) {
  EXPECT_EQ(Insidp(0, kO, kX, Vec(5, 0, 0)), 1);
  EXPECT_EQ(Insidp(0, kO, kX, kO), 2);
  EXPECT_EQ(Insidp(0, kO, kX, kX), 2);
  EXPECT_EQ(Insidp(0, kO, kX, Vec(-5, 0, 0)), 0);
  EXPECT_EQ(Insidp(0, kO, kX, Vec(15, 0, 0)), 0);
  EXPECT_EQ(Insidp(0, kO, kX, Vec(5, 1, 0)), 0);
}

TEST(Insidp, FindsEndsByPntcmp) {
  const double above = std::nextafter(0.0001, 1.0);
  EXPECT_EQ(Insidp(0, kO, kX, Vec(0.0001, 0, 0)), 2);
  EXPECT_EQ(Insidp(0, kO, kX, Vec(above, 0, 0)), 1);
  EXPECT_EQ(Insidp(0, kO, kX, Vec(-0.0001, 0, 0)), 2);
  EXPECT_EQ(Insidp(0, kO, kX, Vec(-above, 0, 0)), 0);
  EXPECT_EQ(Insidp(0, kO, kX, Vec(10, 0.0001, 0)), 2);
}

// A point in the corner of the box about a is longer than 0.0001 away and not in line.
TEST(Insidp, LooksAtTheLineBeforeTheEnds) {
  EXPECT_EQ(Insidp(0, kO, kX, Vec(0, 0.0001, 0.0001)), 0);
  EXPECT_EQ(Insidp(0, kO, kX, Vec(0, 0.0001, 0)), 2);
}

TEST(Insidp, Gives0ForASegmentOfLengthZeroAwayFromThePoint) {
  EXPECT_EQ(Insidp(0, kX, kX, kO), 0);
  EXPECT_EQ(Insidp(0, kX, kX, kX), 2);
  EXPECT_EQ(Insidp(0, kO, kX, Vec(kNaN, 0, 0)), 0);
}

// Everything is in line with a segment this short; the products with points straight above its ends
// are exactly 0.
TEST(Insidp, AsksForAFootStrictlyBetweenTheEnds) {
  const Vec b(0.0001, 0, 0);
  EXPECT_EQ(Insidp(0, kO, b, Vec(0, 5, 0)), 0);
  EXPECT_EQ(Insidp(0, kO, b, Vec(0.0001, 5, 0)), 0);
  EXPECT_EQ(Insidp(0, kO, b, Vec(0.00005, 5, 0)), 1);
}

TEST(Insidp, HandsTheUnitFlagToInline) {
  support::ExpectOnly1IsInches([](int unit) { return Insidp(unit, kO, kX, Vec(5, 0.00025, 0)); }, 1,
                               0);
}

// The line y = x up to (10, 10); the horizontal through a point meets it at the point's own y.
constexpr Vec kDiagonal(10, 10, 0);

TEST(InsidpCrossingXTol, TakesThePointWhereTheHorizontalCrosses) {
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kDiagonal, Vec(4, 5, 0), 1.5), 1);
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kDiagonal, Vec(6, 5, 0), 1.5), 1);
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kDiagonal, Vec(4, 5, 0), 0.5), 0);
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kDiagonal, Vec(14, 4, 0), 10.5), 1);
}

TEST(InsidpCrossingXTol, AsksForACrossingStrictlyNearerThanTheTolerance) {
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kDiagonal, Vec(4, 5, 0), 1), 0);
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kDiagonal, Vec(4, 5, 0), 1.000001), 1);
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kDiagonal, Vec(4, 5, 0), -1), 0);
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kDiagonal, Vec(4, 5, 0), kNaN), 0);
}

TEST(InsidpCrossingXTol, Gives2ForACrossingAtAnEnd) {
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kDiagonal, Vec(9.5, 10, 0), 0.75), 2);
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kDiagonal, Vec(-0.5, 0, 0), 0.75), 2);
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kDiagonal, Vec(-0.5, 0, 0), 0.25), 0);
}

TEST(InsidpCrossingXTol, Gives0ForACrossingBeyondTheEnds) {
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kDiagonal, Vec(11.5, 12, 0), 100), 0);
}

TEST(InsidpCrossingXTol, IsInsidpForAPointInLine) {
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kDiagonal, Vec(5, 5, 0), -1), 1);
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kDiagonal, Vec(15, 15, 0), 100), 0);
}

TEST(InsidpCrossingXTol, LooksAtTheEndsBeforeTheLine) {
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kX, Vec(0, 0.0001, 0.0001), -1), 2);
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kX, Vec(10, -0.0001, 0.0001), -1), 2);
}

TEST(InsidpCrossingXTol, Gives0WhereNothingIsCrossed) {
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kX, Vec(5, 1, 0), 100), 0);
  EXPECT_EQ(Insidp_crossing_X_tol(0, kO, kX, Vec(5, kNaN, 0), 100), 0);
}

// In line for a model in millimetres; in inches the horizontal is parallel and crosses nothing.
TEST(InsidpCrossingXTol, HandsTheUnitFlagOn) {
  support::ExpectOnly1IsInches(
      [](int unit) { return Insidp_crossing_X_tol(unit, kO, kX, Vec(5, 0.00025, 0), 100); }, 1, 0);
}

TEST(PointParametrcValueOnLine, IsTheShareInX) {
  EXPECT_EQ(Point_parametrc_value_on_line(Vec(3, 77, -5), Vec(1, 0, 0), Vec(9, 3, 4)), 0.25);
  EXPECT_EQ(Point_parametrc_value_on_line(Vec(3, 77, -5), Vec(9, 0, 0), Vec(1, 3, 4)), 0.75);
  EXPECT_EQ(Point_parametrc_value_on_line(Vec(-7, 0, 0), Vec(1, 0, 0), Vec(9, 3, 4)), -1.0);
}

TEST(PointParametrcValueOnLine, TakesYThenZWhereTheWayHasAtMost0Point0001OfX) {
  const double above = std::nextafter(0.0001, 1.0);
  const Vec p(1, 3, 5);
  EXPECT_EQ(Point_parametrc_value_on_line(p, kO, Vec(0.0001, 6, 20)), 0.5);
  EXPECT_EQ(Point_parametrc_value_on_line(p, kO, Vec(-0.0001, 6, 20)), 0.5);
  EXPECT_EQ(Point_parametrc_value_on_line(p, kO, Vec(above, 6, 20)), 1 / above);
  EXPECT_EQ(Point_parametrc_value_on_line(p, kO, Vec(-above, 6, 20)), -1 / above);
  EXPECT_EQ(Point_parametrc_value_on_line(p, kO, Vec(0.0001, 0.0001, 20)), 0.25);
  EXPECT_EQ(Point_parametrc_value_on_line(p, kO, Vec(0.0001, -0.0001, 20)), 0.25);
  EXPECT_EQ(Point_parametrc_value_on_line(p, kO, Vec(0.0001, -above, 20)), -3 / above);
}

// Brought to length 1, this way would have 0.05 of x.
TEST(PointParametrcValueOnLine, ChoosesByTheRawDifference) {
  EXPECT_EQ(Point_parametrc_value_on_line(Vec(1, 0.0005, 0), kO, Vec(0.00005, 0.001, 0)), 0.5);
}

TEST(PointParametrcValueOnLine, Is0WhereTheEndsAreAtMost0Point0001Apart) {
  EXPECT_SAME_BITS(Point_parametrc_value_on_line(Vec(7, 8, 9), kO, Vec(0, 0, 0.0001)), 0.0);
  EXPECT_SAME_BITS(Point_parametrc_value_on_line(Vec(7, 8, 9), kX, kX), 0.0);
  EXPECT_SAME_BITS(Point_parametrc_value_on_line(Vec(kNaN, 8, 9), kX, kX), 0.0);
}

TEST(PointParametrcValueOnLine, MayDivideByAZOfZero) {
  const Vec b(0.00009, 0.00009, 0);  // 0.000127 long
  EXPECT_EQ(Point_parametrc_value_on_line(Vec(7, 8, 9), kO, b), kInfinity);
  EXPECT_EQ(Point_parametrc_value_on_line(Vec(7, 8, -9), kO, b), -kInfinity);
  EXPECT_TRUE(std::isnan(Point_parametrc_value_on_line(Vec(7, 8, 0), kO, b)));
}

TEST(PointParametrcValueOnLine, LeadsBackToThePoint) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    const Vec a(random.Between(-99, 99), random.Between(-99, 99), random.Between(-99, 99));
    const Vec way(random.Between(1, 9), random.Between(-9, 9), random.Between(-9, 9));
    const double t = random.Between(-2, 3);
    // Coordinates of 100 are rounded to 1e-14, over a way of at least 1.
    EXPECT_NEAR(Point_parametrc_value_on_line(a + t * way, a, a + way), t, 1e-12);
  }
}

Vec OnX(double x) { return {x, 0, 0}; }

TEST(OverlappedLines, HoldsWhereAnEndLiesInsideTheOtherSegment) {
  EXPECT_EQ(Overlapped_lines(0, kO, kX, OnX(5), OnX(15)), 1);
  EXPECT_EQ(Overlapped_lines(0, kO, kX, OnX(15), OnX(5)), 1);
  EXPECT_EQ(Overlapped_lines(0, kO, kX, OnX(-5), OnX(15)), 1);
  EXPECT_EQ(Overlapped_lines(0, kO, kX, OnX(0), OnX(15)), 1);   // a2 inside b
  EXPECT_EQ(Overlapped_lines(0, kO, kX, OnX(-5), OnX(10)), 1);  // a1 inside b
  EXPECT_EQ(Overlapped_lines(0, kO, kX, OnX(5), Vec(5, 8, 0)), 1);
  EXPECT_EQ(Overlapped_lines(0, kO, kX, Vec(5, 8, 0), OnX(5)), 1);
}

TEST(OverlappedLines, DoesNotHoldForEqualTouchingOrSeparateSegments) {
  EXPECT_EQ(Overlapped_lines(0, kO, kX, kO, kX), 0);
  EXPECT_EQ(Overlapped_lines(0, kO, kX, kX, kO), 0);
  EXPECT_EQ(Overlapped_lines(0, kO, kX, OnX(10), OnX(15)), 0);
  EXPECT_EQ(Overlapped_lines(0, kO, kX, OnX(11), OnX(15)), 0);
  EXPECT_EQ(Overlapped_lines(0, kO, kX, Vec(5, -5, 0), Vec(5, 5, 0)), 0);
  EXPECT_EQ(Overlapped_lines(0, kO, kX, Vec(kNaN, 0, 0), Vec(5, kNaN, 0)), 0);
}

TEST(OverlappedLines, HandsTheUnitFlagToInsidp) {
  const auto overlap = [](int unit) {
    return Overlapped_lines(unit, kO, kX, Vec(5, 0.00025, 0), Vec(20, 3, 0));
  };
  support::ExpectOnly1IsInches(overlap, 1, 0);
}

TEST(OverlappedCompletelyLines, HoldsWhereTheSecondLiesInTheFirst) {
  EXPECT_EQ(Overlapped_completely_lines(0, kO, kX, OnX(2), OnX(8)), 1);
  EXPECT_EQ(Overlapped_completely_lines(0, kO, kX, OnX(0), OnX(8)), 1);
  EXPECT_EQ(Overlapped_completely_lines(0, kO, kX, OnX(8), OnX(10)), 1);
}

TEST(OverlappedCompletelyLines, DoesNotHoldForEqualSegments) {
  EXPECT_EQ(Overlapped_completely_lines(0, kO, kX, kO, kX), 0);
  EXPECT_EQ(Overlapped_completely_lines(0, kO, kX, kX, kO), 0);
}

TEST(OverlappedCompletelyLines, DoesNotHoldWhereAnEndLiesOutside) {
  EXPECT_EQ(Overlapped_completely_lines(0, kO, kX, OnX(2), OnX(18)), 0);
  EXPECT_EQ(Overlapped_completely_lines(0, kO, kX, OnX(-2), OnX(8)), 0);
  EXPECT_EQ(Overlapped_completely_lines(0, kO, kX, OnX(0), OnX(18)), 0);
  EXPECT_EQ(Overlapped_completely_lines(0, OnX(2), OnX(8), kO, kX), 0);
}

TEST(OverlappedCompletelyLines, HandsTheUnitFlagToInsidp) {
  const auto inside = [](int unit) {
    return Overlapped_completely_lines(unit, kO, kX, Vec(2, 0.0001, 0), Vec(8, 0.0004, 0));
  };
  support::ExpectOnly1IsInches(inside, 1, 0);
}

TEST(OverlappedExactlyLines, HoldsInEitherPairing) {
  EXPECT_TRUE(Overlapped_exactly_lines(kO, kX, kO, kX));
  EXPECT_TRUE(Overlapped_exactly_lines(kO, kX, kX, kO));
  EXPECT_FALSE(Overlapped_exactly_lines(kO, kX, kO, kO));
  EXPECT_FALSE(Overlapped_exactly_lines(kO, kX, kX, kX));
  EXPECT_FALSE(Overlapped_exactly_lines(kO, kX, kO, OnX(9)));
}

TEST(OverlappedExactlyLines, ComparesByPntcmp) {
  const double above = std::nextafter(0.0001, 1.0);
  EXPECT_TRUE(Overlapped_exactly_lines(kO, kX, OnX(0.0001), kX));
  EXPECT_FALSE(Overlapped_exactly_lines(kO, kX, OnX(above), kX));
  EXPECT_TRUE(Overlapped_exactly_lines(kO, kX, kX, Vec(0, 0, 0.0001)));
  EXPECT_FALSE(Overlapped_exactly_lines(kO, kX, kX, Vec(0, 0, above)));
  EXPECT_FALSE(Overlapped_exactly_lines(kO, kX, Vec(kNaN, 0, 0), kX));
}

}  // namespace
