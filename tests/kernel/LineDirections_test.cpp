#include <KTRCL_Geometry/kernel/PointsAndLines.h>

#include "support/Build.h"
#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using support::kInfinity;
using support::kNaN;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kX(10, 0, 0);

// A way of the given length that leaves the X axis by an angle towards Y.
Vec Turned(double degrees, double length = 10) {
  const double radians = degrees * support::kPi / 180.0;
  return {length * std::cos(radians), length * std::sin(radians), 0};
}

TEST(Inline, ComparesDirectionsOnly) {
  EXPECT_EQ(Inline(0, kO, kX, Vec(5, 5, 5), Vec(8, 5, 5)), 1);
  EXPECT_EQ(Inline(0, kO, kX, kO, Vec(0, 1, 0)), 0);
  EXPECT_EQ(Inline(0, kO, Vec(1, 2, 3), kX, kX + Vec(2, 4, 6)), 1);
}

TEST(Inline, CountsOppositeDirectionsAsParallel) {
  EXPECT_EQ(Inline(0, kO, kX, kX, kO), 1);
  EXPECT_EQ(Inline(1, kO, kX, Vec(5, 5, 0), Vec(-5, 5, 0)), 1);
}

TEST(Inline, LetsASumOf0Point0001PassAndNoMore) {
  EXPECT_EQ(Inline(0, kO, kX, kO, Vec(1, 0.0000999, 0)), 1);
  EXPECT_EQ(Inline(0, kO, kX, kO, Vec(1, 0.0001001, 0)), 0);
  EXPECT_EQ(Inline(1, kO, kX, kO, Vec(1, 3.93e-06, 0)), 1);
  EXPECT_EQ(Inline(1, kO, kX, kO, Vec(1, 3.94e-06, 0)), 0);
}

// The cross product has the length 0.000099, its two components add up to 0.00014.
TEST(Inline, AddsTheComponentsOfTheCrossProduct) {
  EXPECT_EQ(Inline(0, kO, kX, kO, Vec(1, 0.00007, 0.00007)), 0);
  EXPECT_EQ(Inline(0, kO, kX, kO, Vec(1, 0.00007, -0.00007)), 0);
  EXPECT_EQ(Inline(0, kO, kX, kO, Vec(1, 0.00004, -0.00004)), 1);
}

TEST(Inline, IsInInchesForExactly1) {
  support::ExpectOnly1IsInches(
      [](int unit) { return Inline(unit, kO, kX, kO, Vec(1, 0.00005, 0)); }, 1, 0);
}

TEST(Inline, HoldsForAFirstSegmentOfLengthZeroWhateverTheSecondIs) {
  for (const int unit : {0, 1, 2, -1}) {
    EXPECT_EQ(Inline(unit, kX, kX, kO, Vec(0, 1, 0)), 1);
    EXPECT_EQ(Inline(unit, kX, kX, kO, kO), 1);
    EXPECT_EQ(Inline(unit, kX, kX, kO, Vec(kNaN, kInfinity, 0)), 1);
  }
}

TEST(Inline, HoldsForSegmentsOfAtMost0Point0001InInchesToo) {
  const double above = std::nextafter(0.0001, 1.0);
  for (const int unit : {0, 1, 2, -1}) {
    EXPECT_EQ(Inline(unit, kO, kX, kO, Vec(0, 0.0001, 0)), 1);
    EXPECT_EQ(Inline(unit, kO, Vec(0, 0.0001, 0), kO, kX), 1);
    EXPECT_EQ(Inline(unit, kO, kX, kO, Vec(0, above, 0)), 0);
    EXPECT_EQ(Inline(unit, kO, Vec(0, above, 0), kO, kX), 0);
  }
}

TEST(Inline, DoesNotHoldForLongSegmentsThatAreNoFigures) {
  EXPECT_EQ(Inline(0, kO, kX, kO, Vec(kNaN, 0, 0)), 0);
  EXPECT_EQ(Inline(0, kO, Vec(0, kNaN, 0), kO, kX), 0);
  EXPECT_EQ(Inline(0, kO, kX, kO, Vec(kInfinity, 0, 0)),
            0);  // its direction is infinity / infinity
}

// Directions (1, 0, 0) and (3, 4, 0) / 5: the sum is 0.8.
TEST(InlineTol, HasTheGivenInclusiveLimit) {
  EXPECT_EQ(Inline_tol(0, kO, kX, kO, Vec(3, 4, 0), 0.8), 1);
  EXPECT_EQ(Inline_tol(0, kO, kX, kO, Vec(3, 4, 0), std::nextafter(0.8, 0.0)), 0);
  EXPECT_EQ(Inline_tol(0, kO, kX, kO, Vec(-3, 4, 0), 0.8), 1);
}

TEST(InlineTol, DividesTheLimitBy25Point4InInches) {
  support::ExpectOnly1IsInches(
      [](int unit) { return Inline_tol(unit, kO, kX, kO, Vec(3, 4, 0), 20.31); }, 1, 0);
  EXPECT_EQ(Inline_tol(1, kO, kX, kO, Vec(3, 4, 0), 20.33), 1);  // 0.8 * 25.4 is 20.32
}

TEST(InlineTol, LetsExactlyParallelSegmentsPassAtZero) {
  EXPECT_EQ(Inline_tol(0, kO, kX, Vec(0, 1, 0), Vec(5, 1, 0), 0), 1);
  EXPECT_EQ(Inline_tol(0, kO, kX, Vec(0, 1, 0), Vec(5, 1, 0), -1e-300), 0);
  EXPECT_EQ(Inline_tol(0, kO, kX, Vec(0, 1, 0), Vec(5, 1, 0), kNaN), 0);
}

TEST(InlineTol, HoldsForSegmentsOfAtMost0Point0001AtAnyLimit) {
  const double above = std::nextafter(0.0001, 1.0);
  for (const int unit : {0, 1, 2, -1}) {
    EXPECT_EQ(Inline_tol(unit, kO, kX, kO, Vec(0, 0.0001, 0), -1), 1);
    EXPECT_EQ(Inline_tol(unit, kX, kX, kO, kX, kNaN), 1);
    EXPECT_EQ(Inline_tol(unit, kO, kX, kO, Vec(0, above, 0), 0.01), 0);
  }
}

// The cosine of 0.8103 degrees is 0.9999.
TEST(InlineNew, IsLopsided) {
  EXPECT_EQ(Inline_new(0, kO, kX, kO, Turned(0.8100)), 1);
  EXPECT_EQ(Inline_new(0, kO, kX, kO, Turned(0.8106)), 0);
  EXPECT_EQ(Inline_new(0, kO, kX, kO, Turned(179.51)), 1);
  EXPECT_EQ(Inline_new(0, kO, kX, kO, Turned(179.49)), 0);
  EXPECT_EQ(Inline_new(0, kO, kX, kO, Turned(90)), 0);
}

TEST(InlineNew, HoldsForTheSameAndTheOppositeDirectionWhateverRoundingDoes) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const Vec way(random.Between(-9, 9), random.Between(-9, 9), random.Between(-9, 9));
    EXPECT_EQ(Inline_new(0, kO, way, kO, 3.3 * way), 1);
    EXPECT_EQ(Inline_new(0, kO, way, kO, -0.7 * way), 1);
  }
}

TEST(InlineNew, DoesNotUseTheUnitFlag) {
  for (const int unit : {0, 1, 2, -1}) {
    EXPECT_EQ(Inline_new(unit, kO, kX, kO, Turned(0.8100)), 1);
    EXPECT_EQ(Inline_new(unit, kO, kX, kO, Turned(0.8106)), 0);
  }
}

TEST(InlineNew, HoldsForSegmentsOfAtMost0Point0001) {
  EXPECT_EQ(Inline_new(0, kO, kX, kO, Vec(0, 0.0001, 0)), 1);
  EXPECT_EQ(Inline_new(0, kO, Vec(0, 0.0001, 0), kO, kX), 1);
  EXPECT_EQ(Inline_new(0, kO, kX, kO, Vec(0, 0.000101, 0)), 0);
  EXPECT_EQ(Inline_new(0, kO, Vec(0, 0.000101, 0), kO, kX), 0);
  EXPECT_EQ(Inline_new(0, kX, kX, kO, Vec(kNaN, 0, 0)), 1);
  EXPECT_EQ(Inline_new(0, kO, kX, kO, Vec(kNaN, 0, 0)), 0);
}

TEST(PreInline, HoldsWhereTheSecondSegmentTurnsOffAtASharedEnd) {
  const Vec side(10, 5, 0);
  EXPECT_EQ(Pre_inline(0, kO, kX, kX, side), 1);
  EXPECT_EQ(Pre_inline(0, kO, kX, side, kX), 1);
  EXPECT_EQ(Pre_inline(0, kX, kO, kX, side), 1);
  EXPECT_EQ(Pre_inline(0, kX, kO, side, kX), 1);
}

TEST(PreInline, DoesNotHoldForAStraightContinuationOrTheWayBack) {
  EXPECT_EQ(Pre_inline(0, kO, kX, kX, Vec(15, 0, 0)), 0);
  EXPECT_EQ(Pre_inline(0, kO, kX, kX, Vec(5, 0, 0)), 0);
  EXPECT_EQ(Pre_inline(0, kO, kX, kX, kO), 0);
  EXPECT_EQ(Pre_inline(0, kO, kX, kO, kX), 0);
}

TEST(PreInline, DoesNotHoldWithoutASharedEnd) {
  EXPECT_EQ(Pre_inline(0, kO, kX, Vec(10, 1, 0), Vec(10, 5, 0)), 0);
  EXPECT_EQ(Pre_inline(0, kO, kX, Vec(kNaN, 0, 0), Vec(kNaN, 5, 0)), 0);
}

// Both ends are shared. Seen from the origin the other segment's end beside it is longer than
// 0.0001 away and stands across; from the far end everything lies straight ahead.
TEST(PreInline, StartsFromTheFirstEndWhereBothAreShared) {
  const Vec beside(0, 0.0001, 0.0001);
  EXPECT_EQ(Pre_inline(0, kO, kX, beside, kX), 1);
  EXPECT_EQ(Pre_inline(0, kX, kO, beside, kX), 0);
}

TEST(PreInline, HandsTheUnitFlagToInline) {
  support::ExpectOnly1IsInches(
      [](int unit) { return Pre_inline(unit, kO, kX, kX, Vec(20, 0.0005, 0)); }, 0, 1);
}

TEST(AlmostInline, HoldsWhereInlineDoes) {
  EXPECT_TRUE(Almost_inline(0, kO, kX, Vec(20, 0, 0)));
  EXPECT_TRUE(Almost_inline(0, kO, kX, Vec(-20, 0, 0)));
  EXPECT_FALSE(Almost_inline(0, kO, kX, Turned(179.99)));
  EXPECT_FALSE(Almost_inline(0, kO, kX, Turned(0.01)));
}

TEST(AlmostInline, OfALongAndAShortWayBackHoldsAt179Point96AndNotAt179Point9Degrees) {
  EXPECT_TRUE(Almost_inline(0, kO, kX, Turned(179.96, 0.04)));
  EXPECT_FALSE(Almost_inline(0, kO, kX, Turned(179.9, 0.04)));
  EXPECT_TRUE(Almost_inline(0, kO, Turned(179.96, 0.04), kX));
  EXPECT_FALSE(Almost_inline(0, kO, Turned(179.9, 0.04), kX));
}

TEST(AlmostInline, HasItsLimitAt179Point95Degrees) {
  EXPECT_TRUE(Almost_inline(0, kO, kX, Turned(179.951, 0.04)));
  EXPECT_FALSE(Almost_inline(0, kO, kX, Turned(179.949, 0.04)));
  EXPECT_FALSE(Almost_inline(0, kO, kX, Turned(0.04, 0.04)));
}

// The short way runs along the axis, so that its length is exact, and the long one is turned.
TEST(AlmostInline, AsksForALengthStrictlyBelow0Point05) {
  const Vec longWay = Turned(179.96);
  EXPECT_FALSE(Almost_inline(0, kO, longWay, Vec(0.05, 0, 0)));
  EXPECT_TRUE(Almost_inline(0, kO, longWay, Vec(std::nextafter(0.05, 0.0), 0, 0)));
  EXPECT_FALSE(Almost_inline(0, kO, Vec(0.05, 0, 0), longWay));
  EXPECT_TRUE(Almost_inline(0, kO, Vec(std::nextafter(0.05, 0.0), 0, 0), longWay));
}

TEST(AlmostInline, IsInInchesForAnyUnitBut0InTheShortLength) {
  const auto shorter = [](double length) {
    return
        [length](int unit) { return Almost_inline(unit, kO, Turned(179.96), Vec(length, 0, 0)); };
  };
  const double limit = 0.0019685039370078744;
  support::ExpectAllBut0AreInches(shorter(0.04), true, false);
  support::ExpectAllBut0AreInches(shorter(limit), true, false);
  support::ExpectAllBut0AreInches(shorter(std::nextafter(limit, 0.0)), true, true);
}

TEST(AlmostInline, IsInInchesForExactly1InInline) {
  support::ExpectOnly1IsInches(
      [](int unit) { return Almost_inline(unit, kO, kX, Vec(1, 0.00005, 0)); }, true, false);
}

TEST(AlmostInline, MeasuresTheAngleAtTheFirstPoint) {
  const Vec a(3, 4, 5);
  EXPECT_TRUE(Almost_inline(0, a, a + kX, a + Turned(179.96, 0.04)));
  EXPECT_FALSE(Almost_inline(0, a + Turned(179.96, 0.04), a, a + kX));
}

TEST(AlmostInline, TakesDegenerateInput) {
  EXPECT_TRUE(Almost_inline(0, kO, kO, kX));
  EXPECT_TRUE(Almost_inline(0, kO, kX, kO));
  EXPECT_FALSE(Almost_inline(0, kO, kX, Vec(kNaN, 0, 0)));
  EXPECT_FALSE(Almost_inline(0, Vec(kInfinity, 0, 0), kX, Vec(0, 0.01, 0)));
}

TEST(Collne, HoldsFrom177DegreesOn) {
  EXPECT_EQ(Collne(kO, kX, kO, Turned(177.01)), 1);
  EXPECT_EQ(Collne(kO, kX, kO, Turned(176.99)), 0);
  EXPECT_EQ(Collne(kO, kX, kO, Turned(180)), 1);
  EXPECT_EQ(Collne(kO, kX, kO, Turned(90)), 0);
}

TEST(Collne, DoesNotHoldForSegmentsOnTopOfEachOther) {
  EXPECT_EQ(Collne(kO, kX, kO, Vec(5, 0, 0)), 0);
  EXPECT_EQ(Collne(kO, kX, kO, kX), 0);
}

TEST(Collne, FindsTheSharedEndInAnyPairing) {
  for (const double degrees : {178.0, 176.0}) {
    const int expected = degrees > 177 ? 1 : 0;
    const Vec a = kX;
    const Vec b = Turned(degrees);
    EXPECT_EQ(Collne(kO, a, kO, b), expected);
    EXPECT_EQ(Collne(kO, a, b, kO), expected);
    EXPECT_EQ(Collne(a, kO, kO, b), expected);
    EXPECT_EQ(Collne(a, kO, b, kO), expected);
  }
}

TEST(Collne, DoesNotHoldWithoutASharedEnd) {
  EXPECT_EQ(Collne(kO, kX, Vec(10.001, 0, 0), Vec(20, 0, 0)), 0);
  EXPECT_EQ(Collne(kO, kX, Vec(kNaN, 0, 0), Vec(20, 0, 0)), 0);
}

TEST(Collne, DoesNotHoldForASegmentOfLengthZero) {
  EXPECT_EQ(Collne(kO, kX, kO, kO), 0);
  EXPECT_EQ(Collne(kO, kO, kO, kX), 0);
}

// From the shared end of a, b's far end would stand at 174 degrees.
TEST(Collne, StartsEachDirectionAtTheSegmentsOwnEnd) {
  EXPECT_EQ(Collne(kO, Vec(0.001, 0, 0), Vec(0, 0.0001, 0), Vec(-0.001, 0.0001, 0)), 1);
}

// Segments little longer than the tolerance: two pairs coincide in each line, and the later one
// would give 0.
TEST(Collne, TakesTheFirstPairThatCoincides) {
  const auto along = [](double x) { return Vec(x, 0, 0); };
  const Vec a2 = along(0.00015);
  EXPECT_EQ(Collne(kO, a2, along(0.00005), along(-0.0001)), 1);  // a1 b1 before a1 b2
  EXPECT_EQ(Collne(kO, a2, along(-0.01), along(0.0001)), 1);     // a1 b2 before a2 b2
  EXPECT_EQ(Collne(kO, a2, along(0.00014), along(0.00024)), 1);  // a2 b1 before a2 b2
}

// Ways (10, 0, 0) and (3, 4, 0): the sine is 0.8.
TEST(AreParallelLinesTol, HasTheGivenInclusiveLimitOfTheSine) {
  EXPECT_EQ(Are_parallel_lines_tol(kO, kX, kO, Vec(3, 4, 0), 0.8), 1);
  EXPECT_EQ(Are_parallel_lines_tol(kO, kX, kO, Vec(3, 4, 0), std::nextafter(0.8, 0.0)), 0);
  EXPECT_EQ(Are_parallel_lines_tol(kO, kX, kO, Vec(-3, -4, 0), 0.8), 1);
  EXPECT_EQ(Are_parallel_lines_tol(kO, kX, Vec(0, 1, 0), Vec(5, 1, 0), 0), 1);
}

// The cross product (0, -0.008, 0.006) has the length 0.01; its components add up to 0.014.
TEST(AreParallelLinesTol, MeasuresTheLengthOfTheCrossProduct) {
  EXPECT_EQ(Are_parallel_lines_tol(kO, kX, kO, Vec(1, 0.006, 0.008), 0.0101), 1);
  EXPECT_EQ(Are_parallel_lines_tol(kO, kX, kO, Vec(1, 0.006, 0.008), 0.0099), 0);
}

TEST(AreParallelLines, HasTheLimit0Point01) {
  EXPECT_EQ(Are_parallel_lines(kO, kX, kO, Vec(1, 0.00999, 0)), 1);
  EXPECT_EQ(Are_parallel_lines(kO, kX, kO, Vec(1, 0.01001, 0)), 0);
  EXPECT_EQ(Are_parallel_lines(kO, kX, kO, Vec(-1, 0.00999, 0)), 1);
  EXPECT_EQ(Are_parallel_lines(kO, kX, Vec(5, 5, 5), Vec(8, 5, 5)), 1);
}

TEST(AreParallelLines, HoldsForALengthOfExactlyZeroOnly) {
  EXPECT_EQ(Are_parallel_lines(kX, kX, kO, Vec(0, 1, 0)), 1);
  EXPECT_EQ(Are_parallel_lines(kO, Vec(0, 1, 0), kX, kX), 1);
  EXPECT_EQ(Are_parallel_lines(kO, kX, kO, Vec(0, 1e-9, 0)), 0);
  EXPECT_EQ(Are_parallel_lines_tol(kX, kX, kO, Vec(0, 1, 0), -1), 1);
  EXPECT_EQ(Are_parallel_lines_tol(kO, kX, kO, Vec(0, 1e-9, 0), 0.5), 0);
}

TEST(AreParallelLines, DoesNotHoldForNaN) {
  EXPECT_EQ(Are_parallel_lines(kO, kX, kO, Vec(kNaN, 0, 0)), 0);
  EXPECT_EQ(Are_parallel_lines_tol(kO, kX, kO, kX, kNaN), 0);
  EXPECT_EQ(Are_parallel_lines_tol_distan(kO, kX, kO, Vec(kNaN, 0, 0), 1), 0);
}

TEST(AreParallelLinesTolDistan, ComparesTheDistancesOfTheEndsStrictly) {
  const Vec b1(2, 1, 0);
  const Vec b2(7, 0, 3);
  EXPECT_EQ(Are_parallel_lines_tol_distan(kO, kX, b1, b2, 2), 0);
  EXPECT_EQ(Are_parallel_lines_tol_distan(kO, kX, b1, b2, std::nextafter(2.0, 3.0)), 1);
  EXPECT_EQ(Are_parallel_lines_tol_distan(kO, kX, b2, b1, 2), 0);
  EXPECT_EQ(Are_parallel_lines_tol_distan(kO, kX, b1, b1 + kX, 0), 0);
}

TEST(AreParallelLinesTolDistan, LetsASegmentPassThatCrossesInItsOwnMiddle) {
  EXPECT_EQ(Are_parallel_lines_tol_distan(kO, kX, Vec(20, -4, 0), Vec(20, 4, 0), 0.001), 1);
}

TEST(AreParallelLinesTolDistan, HoldsForALengthOfExactlyZero) {
  EXPECT_EQ(Are_parallel_lines_tol_distan(kX, kX, kO, Vec(0, 9, 0), -1), 1);
  EXPECT_EQ(Are_parallel_lines_tol_distan(kO, kX, Vec(0, 9, 0), Vec(0, 9, 0), -1), 1);
  EXPECT_EQ(Are_parallel_lines_tol_distan(kO, kX, kO, Vec(0, 1e-9, 0), 1e-10), 0);
}

TEST(PenpendiculerVectors, HoldsAtARightAngle) {
  EXPECT_TRUE(Penpendiculer_vectors(kX, kO, Vec(3, 9, 5), Vec(3, 4, -2)));
  EXPECT_FALSE(Penpendiculer_vectors(kX, kO, Vec(3.1, 9, 5), Vec(3, 4, -2)));
  EXPECT_TRUE(Penpendiculer_vectors(kX, kO, Vec(9e-7, 1, 0), kO));
  EXPECT_FALSE(Penpendiculer_vectors(kX, kO, Vec(1.1e-6, 1, 0), kO));
  EXPECT_FALSE(Penpendiculer_vectors(kX, kO, Vec(-1.1e-6, 1, 0), kO));
}

// A way this short is not brought to length 1, so that the product is its own x.
TEST(PenpendiculerVectors, HasAnInclusiveLimitOfOneMillionth) {
  const double above = std::nextafter(0.000001, 1.0);
  EXPECT_TRUE(Penpendiculer_vectors(Vec(0.000001, 0, 0), kO, kX, kO));
  EXPECT_FALSE(Penpendiculer_vectors(Vec(above, 0, 0), kO, kX, kO));
  EXPECT_TRUE(Penpendiculer_vectors(kO, kX, Vec(0.000001, 0, 0), kO));
  EXPECT_FALSE(Penpendiculer_vectors(kO, kX, Vec(above, 0, 0), kO));
}

TEST(PenpendiculerVectors, HoldsForWaysOfLengthZeroAndNotForNaN) {
  EXPECT_TRUE(Penpendiculer_vectors(kX, kX, kX, kO));
  EXPECT_TRUE(Penpendiculer_vectors(kX, kO, kX, kX));
  EXPECT_FALSE(Penpendiculer_vectors(kX, kO, Vec(0, kNaN, 0), kO));
}

TEST(ArePerpendicularLines, HoldsWhereTheSecondSegmentStandsAcross) {
  EXPECT_EQ(Are_perpendicular_lines(0, kO, kX, Vec(5, 1, 0), Vec(5, 9, 0)), 1);
  EXPECT_EQ(Are_perpendicular_lines(0, kO, kX, Vec(5, 1, 0), Vec(5, 1, 7)), 1);
  EXPECT_EQ(Are_perpendicular_lines(0, kO, kX, Vec(5, 1, 0), Vec(6, 9, 0)), 0);
}

// The frame stands on the global axes, where local x is exact.
TEST(ArePerpendicularLines, HasAnInclusiveLimitAlongTheFirstLineInInchesToo) {
  for (const int unit : {0, 1, 2, -1}) {
    const double above = std::nextafter(0.0001, 1.0);
    EXPECT_EQ(Are_perpendicular_lines(unit, kO, kX, Vec(0, 1, 0), Vec(0.0001, 2, 0)), 1);
    EXPECT_EQ(Are_perpendicular_lines(unit, kO, kX, Vec(0.0001, 2, 0), Vec(0, 1, 0)), 1);
    EXPECT_EQ(Are_perpendicular_lines(unit, kO, kX, Vec(0, 1, 0), Vec(above, 2, 0)), 0);
    EXPECT_EQ(Are_perpendicular_lines(unit, kO, kX, Vec(above, 2, 0), Vec(0, 1, 0)), 0);
  }
}

TEST(ArePerpendicularLines, TakesTheOtherEndWhereTheFirstIsInLine) {
  EXPECT_EQ(Are_perpendicular_lines(0, kO, kX, Vec(5, 0, 0), Vec(5, 3, 0)), 1);
  EXPECT_EQ(Are_perpendicular_lines(0, kO, kX, Vec(5, 0, 0), Vec(6, 3, 0)), 0);
  EXPECT_EQ(Are_perpendicular_lines(0, kO, kX, kO, Vec(0, 3, 0)), 1);
}

TEST(ArePerpendicularLines, DoesNotHoldWithBothEndsInLine) {
  EXPECT_EQ(Are_perpendicular_lines(0, kO, kX, Vec(5, 0, 0), Vec(5, 0, 0)), 0);
  EXPECT_EQ(Are_perpendicular_lines(0, kO, Vec(0.0001, 0, 0), Vec(0, 1, 0), Vec(0, 2, 0)), 0);
  EXPECT_EQ(Are_perpendicular_lines(0, kO, kO, Vec(0, 1, 0), Vec(0, 2, 0)), 0);
  EXPECT_EQ(Are_perpendicular_lines(0, kO, kX, Vec(kNaN, 1, 0), Vec(0, 2, 0)), 0);
}

// Both ends are 0.00002 to 0.00005 off the direction.
TEST(ArePerpendicularLines, HandsTheUnitFlagToInline) {
  const auto across = [](int unit) {
    return Are_perpendicular_lines(unit, kO, kX, Vec(10, 0.0005, 0), Vec(10, -0.0002, 0));
  };
  support::ExpectOnly1IsInches(across, 0, 1);
}

TEST(ArePerpendicularLines, HoldsInAnyPosition) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const Vec a(random.Between(-99, 99), random.Between(-99, 99), random.Between(-99, 99));
    const Vec way(random.Between(1, 9), random.Between(1, 9), random.Between(1, 9));
    const Vec across = support::Cross(way, Vec(random.Between(-9, -1), random.Between(1, 9), 1));
    const Vec b = a + way + 0.25 * support::Cross(across, way);
    EXPECT_EQ(Are_perpendicular_lines(0, a, a + way, b, b + across), 1);
    EXPECT_EQ(Are_perpendicular_lines(0, a, a + way, b, b + across + 0.01 * way), 0);
  }
}

}  // namespace
