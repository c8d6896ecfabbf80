// The ring of points around a contour: crossings with a height and with a line, and the trimming of
// level ends.
#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Ring.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstddef>
#include <limits>
#include <ostream>
#include <utility>
#include <vector>

namespace {

using support::Add;
using support::At;
using support::Flat;
using support::IndexOf;
using support::kEnd;
using support::Line;
using support::Point;
using support::Ring;

struct Stretch {
  int first;
  int last;
  bool whole = false;
};

const Stretch kWhole{0, 0, true};

struct Extent {
  bool found;
  double min;
  double max;

  bool operator==(const Extent& o) const {
    return found == o.found && min == o.min && max == o.max;
  }
};

std::ostream& operator<<(std::ostream& stream, const Extent& e) {
  return stream << e.found << " from " << e.min << " to " << e.max;
}

const Extent kNothing{true, DBL_MAX, -DBL_MAX};

Extent AtY(Ring& ring, double y, const Stretch& s = kWhole) {
  auto first = ring.At(s.first), last = ring.At(s.last);
  double min = 77, max = 77;
  const bool found = ring.GetMinLeftMaxRightAtY(y, first, last, s.whole, min, max);
  EXPECT_EQ(first, ring.At(s.first));
  EXPECT_EQ(last, ring.At(s.last));
  return {found, min, max};
}

TEST(GetMinLeftMaxRightAtY, IsFalseOnlyForAnEmptyRing) {
  Ring empty;
  EXPECT_EQ(AtY(empty, 3, {kEnd, kEnd, true}), (Extent{false, DBL_MAX, -DBL_MAX}));
  Ring ring({{0, 0}, {1, 1}});
  EXPECT_EQ(AtY(ring, 3), kNothing);
  EXPECT_EQ(AtY(ring, 0, {1, 1, false}), kNothing);
  EXPECT_EQ(AtY(ring, 0, {kEnd, kEnd, true}), kNothing);
}

TEST(GetMinLeftMaxRightAtY, ReportsBothEndsOfALevelEdge) {
  Ring ring({{0, 0}, {10, 0}, {8, 5}, {3, 5}});
  EXPECT_EQ(AtY(ring, 0), (Extent{true, 0, 10}));
  EXPECT_EQ(AtY(ring, 5), (Extent{true, 3, 8}));
}

TEST(GetMinLeftMaxRightAtY, CrossesTheSegmentsBetweenVertices) {
  Ring ring({{0, 0}, {8, 8}, {16, 0}, {8, -8}});
  EXPECT_EQ(AtY(ring, 2), (Extent{true, 2, 14}));
  EXPECT_EQ(AtY(ring, -2),
            (Extent{true, 14, 14}));  // the segment (8, -8) - (0, 0) is the closing one
  EXPECT_EQ(AtY(ring, -2, {3, 3, true}), (Extent{true, 2, 2}));
  EXPECT_EQ(AtY(ring, -2, {2, 1, false}), (Extent{true, 2, 14}));
}

TEST(GetMinLeftMaxRightAtY, DoesNotLookAtTheClosingSegment) {
  Ring square({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
  EXPECT_EQ(AtY(square, 4), (Extent{true, 10, 10}));
  EXPECT_EQ(AtY(square, 4, {0, kEnd, false}), (Extent{true, 10, 10}));
  EXPECT_EQ(AtY(square, 4, {1, 1, true}), (Extent{true, 0, 10}));
  EXPECT_EQ(AtY(square, 4, {2, 0, false}), kNothing);
}

TEST(GetMinLeftMaxRightAtY, KeepsTheOrderOfItsArithmetic) {
  support::Random random;
  for (int round = 0; round < 1000; ++round) {
    const GX2DPoint p{random.Between(-9, 9), random.Between(1, 9)};
    const GX2DPoint c{random.Between(-9, 9), random.Between(-9, -1)};
    const double y = random.Between(-0.9, 0.9);
    Ring ring({p, c});
    const double x = (y - c.Y) * (p.X - c.X) / (p.Y - c.Y) + c.X;
    ASSERT_EQ(AtY(ring, y), (Extent{true, x, x}));
  }
}

TEST(GetMinLeftMaxRightAtY, TakesAHundredthOfAThousandthForTheLevel) {
  for (const double side : {-1.0, 1.0}) {
    Ring within({{3, side * 0.00001}, {7, side * 5}});
    EXPECT_EQ(AtY(within, 0), (Extent{true, 3, 3}));
    Ring outside({{3, side * 0.0000101}, {7, side * 5}});
    EXPECT_EQ(AtY(outside, 0), kNothing);
    Ring through({{3, side * 0.0000101}, {7, side * -0.0000101}});
    EXPECT_TRUE(AtY(through, 0).found);
    EXPECT_NEAR(AtY(through, 0).min, 5, 1e-9);
  }
}

TEST(GetMinLeftMaxRightAtY, DoesNotCrossASegmentThatBeginsOrEndsOnTheLevel) {
  // The extended segment would meet the height 0 at 2.99999 or so; the vertex itself counts.
  Ring behind({{3, 0.000009}, {13, -9}});
  EXPECT_EQ(AtY(behind, 0), (Extent{true, 3, 3}));
  Ring before({{13, -9}, {3, 0.000009}});
  EXPECT_EQ(AtY(before, 0), (Extent{true, 3, 3}));
}

TEST(GetMinLeftMaxRightAtY, CrossesFromAVertexBehindAVertexOnTheLevel) {
  Ring ring({{0, 5}, {4, 0}, {6, -5}, {8, 5}});
  EXPECT_EQ(AtY(ring, 0), (Extent{true, 4, 7}));
}

TEST(GetMinLeftMaxRightAtY, MeetsASingleVertex) {
  Ring ring({{5, 3}});
  EXPECT_EQ(AtY(ring, 3), (Extent{true, 5, 5}));
  EXPECT_EQ(AtY(ring, 4), kNothing);
}

TEST(GetMinLeftMaxRightAtY, MayTakeItsHeightFromAnOutput) {
  Ring ring({{5, 3}, {8, 3}, {9, 9}});
  auto first = ring.begin(), last = ring.begin();
  double heightAndMin = 3, max = 0;
  EXPECT_TRUE(ring.GetMinLeftMaxRightAtY(heightAndMin, first, last, true, heightAndMin, max));
  EXPECT_EQ(heightAndMin, 5);
  EXPECT_EQ(max, 8);
}

TEST(GetMinLeftMaxRightAtY, MeetsNothingAtOrWithNan) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Ring ring({{0, 5}, {4, nan}, {6, -5}});
  EXPECT_EQ(AtY(ring, 0), kNothing);
  EXPECT_EQ(AtY(ring, nan), kNothing);
  Ring odd({{DBL_MAX, DBL_MAX}, {-DBL_MAX, -DBL_MAX}, {1, HUGE_VAL}, {-1, -HUGE_VAL}});
  EXPECT_TRUE(AtY(odd, 0).found);
}

std::pair<int, int> Trim(Ring& ring, int from, int to) {
  auto first = ring.At(from), last = ring.At(to);
  EXPECT_TRUE(ring.GetTrimEqualInY(first, last));
  return {IndexOf(ring, first), IndexOf(ring, last)};
}

using Pair = std::pair<int, int>;

/// A ring with the given heights and different abscissas.
std::vector<GX2DPoint> Heights(const std::vector<double>& heights) {
  std::vector<GX2DPoint> corners;
  for (const double height : heights) {
    corners.emplace_back(static_cast<double>(corners.size()), height);
  }
  return corners;
}

TEST(GetTrimEqualInY, LeavesTheEndsOfAnEmptyRing) {
  Ring ring;
  EXPECT_EQ(Trim(ring, kEnd, kEnd), Pair(kEnd, kEnd));
}

TEST(GetTrimEqualInY, MovesBothEndsToTheInnerEndsOfTheirLevelRuns) {
  Ring ring(Heights({0, 0, 0, 5, 6, 7, 7}));
  EXPECT_EQ(Trim(ring, 0, 6), Pair(2, 5));
  EXPECT_EQ(Trim(ring, 1, 6), Pair(2, 5));
  EXPECT_EQ(Trim(ring, 2, 5), Pair(2, 5));
}

TEST(GetTrimEqualInY, WalksOverTheEndOfTheVector) {
  Ring forward(Heights({0, 0, 5, 6, 7, 7, 99, 0, 0}));
  EXPECT_EQ(Trim(forward, 7, 5), Pair(1, 4));
  EXPECT_EQ(Trim(forward, 8, 5), Pair(1, 4));
  Ring backward(Heights({7, 7, 99, 0, 0, 5, 6, 7, 7}));
  EXPECT_EQ(Trim(backward, 3, 1), Pair(4, 7));
}

TEST(GetTrimEqualInY, StepsBackOverTheBeginningWhereTheRunEndsWithTheVector) {
  Ring ring(Heights({5, 6, 7, 7, 99, 0, 0}));
  EXPECT_EQ(Trim(ring, 5, 3), Pair(6, 2));
}

TEST(GetTrimEqualInY, TakesAHundredthOfAThousandthForLevel) {
  Ring within(Heights({0, 0.00001, 5, 9.00001, 9}));
  EXPECT_EQ(Trim(within, 0, 4).first, 1);
  Ring outside(Heights({0, 0.0000101, 5, 9.0000101, 9}));
  EXPECT_EQ(Trim(outside, 0, 4), Pair(0, 4));
  Ring near(Heights({0, 0.000009, 5, 9.000009, 9}));
  EXPECT_EQ(Trim(near, 0, 4), Pair(1, 3));
}

TEST(GetTrimEqualInY, MeasuresFromTheEndOfTheStretchAndDoesNotCreep) {
  Ring ring(Heights({0, 0.000008, 0.000016, 5, 9.000016, 9.000008, 9}));
  EXPECT_EQ(Trim(ring, 0, 6), Pair(1, 5));
}

TEST(GetTrimEqualInY, DoesNotRunPastTheOtherEnd) {
  Ring ring(Heights({0, 0, 0, 0, 0, 5}));
  EXPECT_EQ(Trim(ring, 1, 3).first, 3);
  EXPECT_EQ(Trim(ring, 0, 4).first, 4);
}

TEST(GetTrimEqualInY, KeepsNeighboursThatAreNotLevel) {
  Ring ring(Heights({0, 0, 0, 5, 6, 7, 7}));
  EXPECT_EQ(Trim(ring, 3, 4), Pair(3, 4));
  EXPECT_EQ(Trim(ring, 2, 3), Pair(2, 3));
}

TEST(GetTrimEqualInY, TrimsAWholeRingFromAVertexToTheOneBeforeIt) {
  Ring ring(Heights({0, 0, 5, 6, 7, 7, 0, 0}));
  EXPECT_EQ(Trim(ring, 6, 5), Pair(1, 4));
  EXPECT_EQ(Trim(ring, 7, 5), Pair(1, 4));
}

TEST(GetTrimEqualInY, TakesAnEndOfTheVectorForItsBeginning) {
  Ring ring(Heights({7, 99, 0, 0, 5, 6, 7}));
  EXPECT_EQ(Trim(ring, 2, 0), Pair(3, 6));
  EXPECT_EQ(Trim(ring, 2, kEnd), Pair(3, 6));
  Ring levelAtTheBack(Heights({7, 99, 0, 0, 5, 6, 6}));
  EXPECT_EQ(Trim(levelAtTheBack, 2, 0), Pair(3, 0));
  EXPECT_EQ(Trim(levelAtTheBack, 2, kEnd), Pair(3, 0));
  Ring levelAtTheFront(Heights({0, 0, 5, 6, 7, 99}));
  EXPECT_EQ(Trim(levelAtTheFront, kEnd, 4), Pair(1, 4));
}

// With the first run ending at the last vertex of the vector, the backward run is stopped by the
// end of the vector itself, and the second vertex is taken in place of the first.
TEST(GetTrimEqualInY, GivesTheSecondVertexWhereTheBackwardRunEndsOnTheEndOfTheVector) {
  Ring ring(Heights({0, 0, 0, 5, 6, 7, 7}));
  EXPECT_EQ(Trim(ring, 5, 2), Pair(6, 1));
}

TEST(GetTrimEqualInY, EndsOnEveryRing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const std::vector<double>& heights : {std::vector<double>{0},
                                             {0, 0},
                                             {0, 0, 0},
                                             {0, 1, 0},
                                             {nan, nan},
                                             {nan, 0, nan, 0},
                                             {HUGE_VAL, HUGE_VAL, -HUGE_VAL}}) {
    Ring ring(Heights(heights));
    const int count = static_cast<int>(heights.size());
    for (int first = kEnd; first < count; ++first) {
      for (int last = kEnd; last < count; ++last) {
        const Pair ends = Trim(ring, first, last);
        EXPECT_LT(ends.first, count);
        EXPECT_LT(ends.second, count);
      }
    }
  }
}

/// The points where a line meets a stretch, and the result.
std::vector<double> Crossings(Ring& ring, const GX2DLine& line, const Stretch& s = kWhole) {
  auto first = ring.At(s.first), last = ring.At(s.last);
  GX2DElmList hits;
  const bool found = ring.GetConstrLineIntersection(first, last, s.whole, line, hits);
  EXPECT_EQ(found, !hits.empty());
  EXPECT_EQ(first, ring.At(s.first));
  EXPECT_EQ(last, ring.At(s.last));
  std::vector<GX2DPoint> points;
  for (std::size_t i = 0; i < hits.size(); ++i) points.push_back(At<GX2DPoint>(hits, i));
  return Flat(points);
}

const std::vector<double> kNoHit;

std::vector<GX2DPoint> Square() { return {{0, 0}, {10, 0}, {10, 10}, {0, 10}}; }

TEST(GetConstrLineIntersection, IsFalseForFewerThanTwoVertices) {
  Ring one({{0, 0}}), none;
  EXPECT_EQ(Crossings(one, Line(0, 0, 1, 1)), kNoHit);
  EXPECT_EQ(Crossings(none, Line(0, 0, 1, 1), {kEnd, kEnd, true}), kNoHit);
  GX2DElmList hits;
  Add(hits, Point(5, 5));
  auto first = one.begin(), last = one.begin();
  EXPECT_FALSE(one.GetConstrLineIntersection(first, last, true, Line(0, 0, 1, 1), hits));
  EXPECT_EQ(hits.size(), 1U);
}

TEST(GetConstrLineIntersection, CutsTheWholeRingInItsOrder) {
  Ring ring(Square());
  EXPECT_EQ(Crossings(ring, Line(4, 50, 4, 60)), Flat({{4, 0}, {4, 10}}));
  EXPECT_EQ(Crossings(ring, Line(50, 3, 60, 3)), Flat({{10, 3}, {0, 3}}));
  EXPECT_EQ(Crossings(ring, Line(50, 3, 60, 3), {2, 2, true}), Flat({{0, 3}, {10, 3}}));
  EXPECT_EQ(Crossings(ring, Line(50, 30, 60, 30)), kNoHit);
}

TEST(GetConstrLineIntersection, CutsTheSegmentThatEndsAtLast) {
  Ring ring(Square());
  const GX2DLine level = Line(50, 3, 60, 3), upright = Line(4, 50, 4, 60);
  EXPECT_EQ(Crossings(ring, upright, {0, 1}), Flat({{4, 0}}));
  EXPECT_EQ(Crossings(ring, level, {0, 1}), kNoHit);
  EXPECT_EQ(Crossings(ring, level, {0, 2}), Flat({{10, 3}}));
  EXPECT_EQ(Crossings(ring, level, {1, 3}), Flat({{10, 3}}));
  EXPECT_EQ(Crossings(ring, upright, {1, 3}), Flat({{4, 10}}));
  EXPECT_EQ(Crossings(ring, level, {3, 2}), Flat({{0, 3}, {10, 3}}));
  EXPECT_EQ(Crossings(ring, level, {3, 0}), Flat({{0, 3}}));
  EXPECT_EQ(Crossings(ring, level, {3, 2, true}), Flat({{0, 3}, {10, 3}}));
}

TEST(GetConstrLineIntersection, LeavesTheClosingSegmentOutUpToTheEndOfTheVector) {
  Ring ring(Square());
  const GX2DLine level = Line(50, 3, 60, 3);
  for (const bool whole : {false, true}) {
    EXPECT_EQ(Crossings(ring, level, {0, kEnd, whole}), Flat({{10, 3}}));
    EXPECT_EQ(Crossings(ring, level, {2, kEnd, whole}), kNoHit);
    EXPECT_EQ(Crossings(ring, Line(4, 50, 4, 60), {2, kEnd, whole}), Flat({{4, 10}}));
  }
}

TEST(GetConstrLineIntersection, WalksNothingFromAVertexToItselfWithoutTheFlag) {
  Ring ring(Square());
  EXPECT_EQ(Crossings(ring, Line(4, 50, 4, 60), {0, 0, false}), kNoHit);
  EXPECT_EQ(Crossings(ring, Line(4, 50, 4, 60), {2, 2, false}), kNoHit);
}

// From a vertex to itself the closing segment has no length; it counts as an upright one.
TEST(GetConstrLineIntersection, MeetsTheClosingSegmentWithoutLengthAtTheVertex) {
  Ring ring(Square());
  EXPECT_EQ(Crossings(ring, Line(50, 3, 60, 3), {0, 0, false}), Flat({{0, 3}}));
  EXPECT_EQ(Crossings(ring, Line(50, 3, 60, 3), {2, 2, false}), Flat({{10, 3}}));
}

// The walk begins behind first, and behind the last vertex that is the beginning.
TEST(GetConstrLineIntersection, WalksTheWholeRingFromTheLastVertexToTheEndOfTheVector) {
  Ring ring(Square());
  EXPECT_EQ(Crossings(ring, Line(50, 3, 60, 3), {3, kEnd}), Flat({{0, 3}, {10, 3}}));
}

TEST(GetConstrLineIntersection, TakesAFirstAtTheEndOfTheVectorForItsBeginning) {
  Ring ring(Square());
  EXPECT_EQ(Crossings(ring, Line(50, 3, 60, 3), {kEnd, 2}), Flat({{10, 3}}));
  EXPECT_EQ(Crossings(ring, Line(50, 3, 60, 3), {kEnd, kEnd}), Flat({{10, 3}}));
}

TEST(GetConstrLineIntersection, FindsAVertexWithBothItsSegments) {
  Ring ring(Square());
  EXPECT_EQ(Crossings(ring, Line(10, 0, 16, -6)), Flat({{10, 0}, {10, 0}, {0, 10}, {0, 10}}));
}

TEST(GetConstrLineIntersection, DoesNotMeetASegmentAlongTheLine) {
  Ring ring(Square());
  EXPECT_EQ(Crossings(ring, Line(-5, 10, 5, 10)), Flat({{10, 10}, {0, 10}}));
}

// The segments are 10 long, so 0.00001 of one is 0.0001.
TEST(GetConstrLineIntersection, TakesAHundredThousandthOfASegmentBeyondItsEnds) {
  Ring ring({{0, 0}, {10, 0}});
  for (const double inside : {-0.000099, 0.0, 10.0, 10.000099}) {
    EXPECT_EQ(Crossings(ring, Line(inside, 5, inside, 6), {0, kEnd}), Flat({{inside, 0}}));
  }
  for (const double outside : {-0.000101, 10.000101}) {
    EXPECT_EQ(Crossings(ring, Line(outside, 5, outside, 6), {0, kEnd}), kNoHit);
  }
}

TEST(GetConstrLineIntersection, DoesNotClearTheHitsFirst) {
  Ring ring(Square());
  GX2DElmList hits;
  Add(hits, Point(77, 77));
  auto first = ring.begin(), last = ring.begin();
  EXPECT_TRUE(ring.GetConstrLineIntersection(first, last, true, Line(50, 30, 60, 30), hits));
  EXPECT_EQ(hits.size(), 1U);  // nothing met, and still true
  EXPECT_TRUE(ring.GetConstrLineIntersection(first, last, true, Line(4, 50, 4, 60), hits));
  ASSERT_EQ(hits.size(), 3U);
  EXPECT_POINT_EQ(At<GX2DPoint>(hits, 0), Point(77, 77));
  EXPECT_POINT_EQ(At<GX2DPoint>(hits, 1), Point(4, 0));
}

TEST(GetConstrLineIntersection, ToleratesOddVerticesAndLines) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Ring ring({{0, 0}, {nan, 0}, {10, HUGE_VAL}, {10, 10}, {DBL_MAX, -DBL_MAX}, {10, 10}});
  ring.insert(ring.begin() + 1, nullptr);
  ring.insert(ring.begin() + 3, new GX2DSurroundPoint());
  for (const GX2DLine& line : {Line(nan, 0, 1, 1), Line(0, 0, 0, 0), Line(0, 0, HUGE_VAL, 1),
                               Line(5, 0, 5, 1), Line(-DBL_MAX, 0, DBL_MAX, 1)}) {
    for (int first = kEnd; first < 8; ++first) {
      for (int last = kEnd; last < 8; ++last) {
        Crossings(ring, line, {first, last, true});
        Crossings(ring, line, {first, last, false});
      }
    }
  }
}

// A line y = h at no corner's height, through a ring of random corners: one hit for each segment
// with ends on both sides.
TEST(GetConstrLineIntersection, AgreesWithThePlainCountOnRandomRings) {
  support::Random random;
  for (int round = 0; round < 500; ++round) {
    const int count = random.Int(2, 9);
    std::vector<GX2DPoint> corners;
    for (int i = 0; i < count; ++i) {
      const double x = 10.0 * i + random.Between(1, 9);
      corners.emplace_back(x, random.Int(-9, 9));
    }
    const double height = random.Int(-9, 8) + 0.5;
    const int start = random.Int(0, count - 1);
    std::vector<GX2DPoint> expected;
    for (int i = 0; i < count; ++i) {
      const GX2DPoint& a = corners[static_cast<std::size_t>((start + i) % count)];
      const GX2DPoint& b = corners[static_cast<std::size_t>((start + i + 1) % count)];
      if ((a.Y < height) == (b.Y < height)) continue;
      expected.emplace_back(a.X + (height - a.Y) / (b.Y - a.Y) * (b.X - a.X), height);
    }
    Ring ring(corners);
    // Slopes go up to 18 over 2 units, abscissas to 100: far from any loss of digits.
    ASSERT_POINT_NEAR(Crossings(ring, Line(-5, height, 5, height), {start, start, true}),
                      Flat(expected), 1e-9);
  }
}

}  // namespace
