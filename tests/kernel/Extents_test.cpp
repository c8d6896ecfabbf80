#include <KTRCL_Geometry/kernel/Unfolding.h>

#include "support/Build.h"
#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using support::kInfinity;
using support::kNaN;
using support::kPi;
using support::Vec;

TEST(Inreta, OnePointInsideIsEnough) {
  EXPECT_EQ(Inreta(0, 10, 0, 5, 3, 3, 30, 30), 1);
  EXPECT_EQ(Inreta(0, 10, 0, 5, 30, 30, 3, 3), 1);
  EXPECT_EQ(Inreta(0, 10, 0, 5, 3, 3, 4, 4), 1);
  EXPECT_EQ(Inreta(0, 10, 0, 5, 30, 30, 40, 40), 0);
}

TEST(Inreta, TakesBothXBeforeBothY) {
  EXPECT_EQ(Inreta(0, 10, 20, 25, 7, 22, 99, 99), 1);
  EXPECT_EQ(Inreta(0, 10, 20, 25, 22, 7, 99, 99), 0);
}

TEST(Inreta, TheBorderBelongsToTheRectangle) {
  for (const double x : {0.0, 10.0}) {
    EXPECT_EQ(Inreta(0, 10, 0, 5, x, 2, 99, 99), 1);
    EXPECT_EQ(Inreta(0, 10, 0, 5, 99, 99, x, 2), 1);
  }
  for (const double y : {0.0, 5.0}) {
    EXPECT_EQ(Inreta(0, 10, 0, 5, 2, y, 99, 99), 1);
    EXPECT_EQ(Inreta(0, 10, 0, 5, 99, 99, 2, y), 1);
  }
  EXPECT_EQ(Inreta(0, 10, 0, 5, 10, 5, 99, 99), 1) << "corner";
}

TEST(Inreta, JustOutsideEachSideIsOutside) {
  const double below = std::nextafter(0.0, -1.0);
  EXPECT_EQ(Inreta(0, 10, 0, 5, below, 2, 99, 99), 0);
  EXPECT_EQ(Inreta(0, 10, 0, 5, std::nextafter(10.0, 11), 2, 99, 99), 0);
  EXPECT_EQ(Inreta(0, 10, 0, 5, 2, below, 99, 99), 0);
  EXPECT_EQ(Inreta(0, 10, 0, 5, 2, std::nextafter(5.0, 6), 99, 99), 0);
  EXPECT_EQ(Inreta(0, 10, 0, 5, 99, 99, below, 2), 0);
  EXPECT_EQ(Inreta(0, 10, 0, 5, 99, 99, std::nextafter(10.0, 11), 2), 0);
  EXPECT_EQ(Inreta(0, 10, 0, 5, 99, 99, 2, below), 0);
  EXPECT_EQ(Inreta(0, 10, 0, 5, 99, 99, 2, std::nextafter(5.0, 6)), 0);
}

TEST(Inreta, ASegmentAcrossTheRectangleCountsNotAtAll) {
  EXPECT_EQ(Inreta(0, 10, 0, 5, -3, 2, 13, 2), 0);
}

TEST(Inreta, AReversedRectangleHoldsNothing) {
  EXPECT_EQ(Inreta(10, 0, 0, 5, 3, 3, 4, 4), 0);
  EXPECT_EQ(Inreta(0, 10, 5, 0, 3, 3, 4, 4), 0);
}

TEST(Inreta, NaNIsNotInside) {
  EXPECT_EQ(Inreta(0, 10, 0, 5, kNaN, 3, 4, kNaN), 0);
  EXPECT_EQ(Inreta(kNaN, 10, 0, 5, 3, 3, 4, 4), 0);
  EXPECT_EQ(Inreta(0, 10, 0, kNaN, 3, 3, 4, 4), 0);
  EXPECT_EQ(Inreta(-kInfinity, kInfinity, -kInfinity, kInfinity, kNaN, 3, 4, 4), 1);
}

// min x, max x, min y, max y, with a field behind that no routine may touch.
struct Box {
  double v[5] = {-1, 1, -2, 2, 77.5};
};
void ExpectBox(const Box& box, double minX, double maxX, double minY, double maxY,
               double bound = 0) {
  EXPECT_NEAR(box.v[0], minX, bound);
  EXPECT_NEAR(box.v[1], maxX, bound);
  EXPECT_NEAR(box.v[2], minY, bound);
  EXPECT_NEAR(box.v[3], maxY, bound);
  EXPECT_EQ(box.v[4], 77.5);
}

TEST(InfMaxminXySetup, SetsAllFourBoundsFromThePoint) {
  Box box;
  Inf_maxmin_xy_setup(Vec(3, 4, 5), box.v);
  ExpectBox(box, 3, 3, 4, 4);
}

TEST(InfMaxminXyPnt, WidensOnEachSideByItself) {
  Box box;
  Inf_maxmin_xy_pnt(Vec(-3, 0, 99), box.v);
  ExpectBox(box, -3, 1, -2, 2);
  Inf_maxmin_xy_pnt(Vec(5, 0, -99), box.v);
  ExpectBox(box, -3, 5, -2, 2);
  Inf_maxmin_xy_pnt(Vec(0, -7, 0), box.v);
  ExpectBox(box, -3, 5, -7, 2);
  Inf_maxmin_xy_pnt(Vec(0, 9, 0), box.v);
  ExpectBox(box, -3, 5, -7, 9);
}

TEST(InfMaxminXyPnt, WidensTwoSidesAtACorner) {
  Box box;
  Inf_maxmin_xy_pnt(Vec(-3, 8, 0), box.v);
  ExpectBox(box, -3, 1, -2, 8);
}

TEST(InfMaxminXyPnt, WidensBothSidesOfAReversedBox) {
  Box box;
  box.v[0] = 5;
  box.v[1] = -5;
  Inf_maxmin_xy_pnt(Vec(0, 0, 0), box.v);
  ExpectBox(box, 0, 0, -2, 2);
}

TEST(InfMaxminXyPnt, LeavesTheBoxAloneForAPointInsideOrOnItsBorder) {
  Box box;
  for (const Vec& p : {Vec(0, 0, 0), Vec(-1, 0, 0), Vec(1, 2, 0), Vec(0, -2, 0)}) {
    Inf_maxmin_xy_pnt(p, box.v);
  }
  ExpectBox(box, -1, 1, -2, 2);
}

// Compared strictly, an equal value does not replace the bound: the zero keeps its sign.
TEST(InfMaxminXyPnt, AnEqualValueReplacesNothing) {
  Box box;
  for (int i = 0; i < 4; ++i) box.v[i] = 0.0;
  Inf_maxmin_xy_pnt(Vec(-0.0, -0.0, 0), box.v);
  for (int i = 0; i < 4; ++i) EXPECT_SAME_BITS(box.v[i], 0.0);
}

TEST(InfMaxminXyPnt, NaNWidensNothingAndInfinityEverything) {
  Box box;
  Inf_maxmin_xy_pnt(Vec(kNaN, kNaN, 0), box.v);
  ExpectBox(box, -1, 1, -2, 2);
  Inf_maxmin_xy_pnt(Vec(kInfinity, -kInfinity, 0), box.v);
  EXPECT_EQ(box.v[1], kInfinity);
  EXPECT_EQ(box.v[2], -kInfinity);
}

TEST(InfMaxminXyLine, StartsTheBoxWhereFirstIs1) {
  Box box;
  int first = 1;
  Inf_maxmin_xy_line(Vec(30, 50, 7), Vec(20, 60, 8), box.v, &first);
  EXPECT_EQ(first, 0);
  ExpectBox(box, 20, 30, 50, 60);
}

TEST(InfMaxminXyLine, WidensTheBoxByBothEndsWhereFirstIsAnythingElse) {
  for (const int value : {0, 2, -1}) {
    Box box;
    int first = value;
    Inf_maxmin_xy_line(Vec(-3, 0, 7), Vec(0, 9, 8), box.v, &first);
    EXPECT_EQ(first, value);
    ExpectBox(box, -3, 1, -2, 9);
    Inf_maxmin_xy_line(Vec(0, -9, 7), Vec(6, 0, 8), box.v, &first);
    ExpectBox(box, -3, 6, -9, 9);
  }
}

// An arc about a centre, by degrees.
struct Arc {
  Vec centre;
  Vec start;
  Vec middle;
  Vec end;
};
Vec OnCircle(const Vec& c, double radius, double degrees) {
  return c + Vec(radius * std::cos(degrees * kPi / 180), radius * std::sin(degrees * kPi / 180), 0);
}
Arc ByAngles(const Vec& c, double radius, double from, double sweep) {
  return {c, OnCircle(c, radius, from), OnCircle(c, radius, from + sweep / 2),
          OnCircle(c, radius, from + sweep)};
}
Box Extent(const Arc& a) {
  Box box;
  int first = 1;
  Inf_maxmin_xy_arc(a.centre, a.start, a.middle, a.end, box.v, &first);
  EXPECT_EQ(first, 0);
  return box;
}

constexpr Vec kO(0, 0, 0);
constexpr Vec kRight(5, 0, 0);
constexpr Vec kTop(0, 5, 0);
constexpr Vec kLeft(-5, 0, 0);
constexpr Vec kBottom(0, -5, 0);

TEST(InfMaxminXyArc, AHalfCircleThroughTheTopAddsTheTopAndNoOther) {
  ExpectBox(Extent({kO, kRight, kTop, kLeft}), -5, 5, 0, 5);
  ExpectBox(Extent({kO, kLeft, kTop, kRight}), -5, 5, 0, 5);
}

TEST(InfMaxminXyArc, AHalfCircleThroughEachOtherSideAddsThatSide) {
  ExpectBox(Extent({kO, kRight, kBottom, kLeft}), -5, 5, -5, 0);
  ExpectBox(Extent({kO, kTop, kRight, kBottom}), 0, 5, -5, 5);
  ExpectBox(Extent({kO, kTop, kLeft, kBottom}), -5, 0, -5, 5);
}

TEST(InfMaxminXyArc, AFlatArcAddsOneSideOnly) {
  // 3-4-5: from (3, 4) to (-3, 4) over the top.
  ExpectBox(Extent({kO, Vec(3, 4, 0), kTop, Vec(-3, 4, 0)}), -3, 3, 4, 5);
  ExpectBox(Extent({kO, Vec(4, 3, 0), kRight, Vec(4, -3, 0)}), 4, 5, -3, 3);
  ExpectBox(Extent({kO, Vec(-4, 3, 0), kLeft, Vec(-4, -3, 0)}), -5, -4, -3, 3);
  ExpectBox(Extent({kO, Vec(3, -4, 0), kBottom, Vec(-3, -4, 0)}), -3, 3, -5, -4);
}

TEST(InfMaxminXyArc, AnArcBetweenTwoSidesAddsNone) {
  ExpectBox(Extent(ByAngles(kO, 5, 30, 30)), 2.5, 5 * std::cos(kPi / 6), 2.5, 5 * std::sin(kPi / 3),
            1e-14);
}

// From (3, 4) the long way round to (4, 3). Its middle has to stand within the first half turn, by
// which the sense is read.
TEST(InfMaxminXyArc, AnArcOfAlmostAllAddsAllFourSides) {
  ExpectBox(Extent({kO, Vec(3, 4, 0), kLeft, Vec(4, 3, 0)}), -5, 5, -5, 5);
}

// The middle shows the sense alone, by its side of the way from the centre to the start.
TEST(InfMaxminXyArc, AMiddleBehindTheCentreTurnsTheSense) {
  ExpectBox(Extent({kO, Vec(3, 4, 0), Vec(4, -3, 0), Vec(4, 3, 0)}), 3, 4, 3, 4);
}

TEST(InfMaxminXyArc, StandsBesideTheOriginToo) {
  const Vec c(100, -50, 0);
  ExpectBox(Extent({c, c + kRight, c + kTop, c + kLeft}), 95, 105, -50, -45);
}

TEST(InfMaxminXyArc, WidensTheBoxWhereFirstIsAnythingElse) {
  for (const int value : {0, 2, -1}) {
    Box box;
    int first = value;
    Inf_maxmin_xy_arc(kO, kRight, kTop, kLeft, box.v, &first);
    EXPECT_EQ(first, value);
    ExpectBox(box, -5, 5, -2, 5);
  }
}

TEST(InfMaxminXyArc, StartAndEndCountInAllCases) {
  Box box;
  int first = 0;
  Inf_maxmin_xy_arc(kO, kO, kO, Vec(-9, 9, 0), box.v, &first);
  ExpectBox(box, -9, 1, -2, 9);
  Inf_maxmin_xy_arc(kO, Vec(9, -9, 0), kO, kO, box.v, &first);
  ExpectBox(box, -9, 9, -9, 9);
}

TEST(InfMaxminXyArc, AFullCircleHasNoChordAndCountsAsItsStart) {
  ExpectBox(Extent({kO, kRight, kTop, kRight}), 5, 5, 0, 0);
}

TEST(InfMaxminXyArc, AMiddleInLineWithTheStartShowsNoSense) {
  ExpectBox(Extent({kO, kRight, kLeft, kTop}), 0, 5, 0, 5);
  ExpectBox(Extent({kO, Vec(3, 4, 0), Vec(-3, -4, 0), Vec(-3, 4, 0)}), -3, 3, 4, 4);
}

// The start is (3, 0, 4) from the centre, so that the radius is 5.
TEST(InfMaxminXyArc, MeasuresTheRadiusInSpace) {
  ExpectBox(Extent({kO, Vec(3, 0, 4), Vec(0, 3, 4), Vec(-3, 0, 4)}), -3, 3, 0, 5);
}

// The extremes among 20001 points of the arc; between two of them, at most 3.1e-4 radians apart, it
// rises by no more than 20 (1.6e-4)^2 / 2 = 2.5e-7.
TEST(InfMaxminXyArc, HoldsTheArcTightlyAtRandom) {
  support::Random random;
  for (int i = 0; i < 60; ++i) {
    const Vec c(random.Between(-20, 20), random.Between(-20, 20), 0);
    const double radius = random.Between(1, 20);
    const double from = random.Between(-180, 180);
    const double sweep = (random.Bool() ? 1 : -1) * random.Between(5, 350);
    const Arc arc = ByAngles(c, radius, from, sweep);
    std::array<double, 4> seen{1e9, -1e9, 1e9, -1e9};
    for (int k = 0; k <= 20000; ++k) {
      const Vec p = OnCircle(c, radius, from + sweep * k / 20000);
      seen = {std::min(seen[0], p[0]), std::max(seen[1], p[0]), std::min(seen[2], p[1]),
              std::max(seen[3], p[1])};
    }
    ExpectBox(Extent(arc), seen[0], seen[1], seen[2], seen[3], 1e-6);
  }
}

TEST(InfMaxminXyArc, NaNAddsNothing) {
  Box box;
  int first = 0;
  Inf_maxmin_xy_arc(Vec(kNaN, 0, 0), kO, kO, kO, box.v, &first);
  ExpectBox(box, -1, 1, -2, 2);
}

}  // namespace
