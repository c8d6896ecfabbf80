// The ring of points around a contour: what a stretch covers, and its outermost vertices.
#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Random.h"
#include "support/Ring.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstddef>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

namespace {

using support::IndexOf;
using support::kEnd;
using support::Point;
using support::Ring;

using Places = std::vector<int>;
using Pair = std::pair<int, int>;

/// Where a stretch begins and ends, as places in the ring, and its flag.
struct Stretch {
  int first;
  int last;
  bool whole = false;
};

const Stretch kWhole{0, 0, true};

template <typename Query>
int One(Ring& ring, const Stretch& stretch, Query query) {
  auto first = ring.At(stretch.first), last = ring.At(stretch.last), result = ring.begin();
  EXPECT_TRUE((ring.*query)(first, last, stretch.whole, result));
  EXPECT_EQ(first, ring.At(stretch.first));
  EXPECT_EQ(last, ring.At(stretch.last));
  return IndexOf(ring, result);
}

template <typename Query>
Pair Two(Ring& ring, const Stretch& stretch, Query query) {
  auto first = ring.At(stretch.first), last = ring.At(stretch.last);
  auto left = ring.begin(), right = ring.begin();
  EXPECT_TRUE((ring.*query)(first, last, stretch.whole, left, right));
  EXPECT_EQ(first, ring.At(stretch.first));
  EXPECT_EQ(last, ring.At(stretch.last));
  return {IndexOf(ring, left), IndexOf(ring, right)};
}

template <typename Query>
int FromX(Ring& ring, const Stretch& stretch, double x, Query query) {
  auto first = ring.At(stretch.first), last = ring.At(stretch.last), result = ring.begin();
  EXPECT_TRUE((ring.*query)(first, last, stretch.whole, result, x));
  return IndexOf(ring, result);
}

int MinLeft(Ring& ring, const Stretch& s = kWhole) { return One(ring, s, &Ring::GetMinLeft); }
int MaxRight(Ring& ring, const Stretch& s = kWhole) { return One(ring, s, &Ring::GetMaxRight); }
Pair Top(Ring& ring, const Stretch& s = kWhole) {
  return Two(ring, s, &Ring::GetTopMinLeftMaxRight);
}
Pair Bottom(Ring& ring, const Stretch& s = kWhole) {
  return Two(ring, s, &Ring::GetBottomMinLeftMaxRight);
}
int TopLeftOf(Ring& ring, double x, const Stretch& s = kWhole) {
  return FromX(ring, s, x, &Ring::GetTopMaxRightLeftFromX);
}
int TopRightOf(Ring& ring, double x, const Stretch& s = kWhole) {
  return FromX(ring, s, x, &Ring::GetTopMinLeftRightFromX);
}

bool MeetsLevel(Ring& ring, const Stretch& s, double y, double& min, double& max) {
  auto first = ring.At(s.first), last = ring.At(s.last);
  return ring.GetMinLeftMaxRightAtY(y, first, last, s.whole, min, max);
}

/// A query that tells whether its walk comes to one certain vertex, which stands at `target` while
/// all others stand at the origin.
struct Walk {
  const char* name;
  GX2DPoint target;
  std::function<bool(Ring&, const Stretch&, int)> finds;
};

std::vector<Walk> Walks() {
  const auto at = [](double x, double y) { return Point(x, y); };
  return {
      {"left", at(-1, 0), [](Ring& r, const Stretch& s, int k) { return MinLeft(r, s) == k; }},
      {"right", at(1, 0), [](Ring& r, const Stretch& s, int k) { return MaxRight(r, s) == k; }},
      {"top", at(0, 1), [](Ring& r, const Stretch& s, int k) { return Top(r, s) == Pair(k, k); }},
      {"bottom", at(0, -1),
       [](Ring& r, const Stretch& s, int k) { return Bottom(r, s) == Pair(k, k); }},
      {"top left of", at(0, 1),
       [](Ring& r, const Stretch& s, int k) { return TopLeftOf(r, 5, s) == k; }},
      {"top right of", at(0, 1),
       [](Ring& r, const Stretch& s, int k) { return TopRightOf(r, -5, s) == k; }},
      {"level", at(8, 1), [](Ring& r, const Stretch& s, int /*k*/) {
         double min = 0, max = 0;
         EXPECT_TRUE(MeetsLevel(r, s, 1, min, max));
         return min == 8 && max == 8;
       }}};
}

/// The vertices of a ring of `count` that a stretch covers.
Places Covered(const Walk& walk, int count, const Stretch& stretch) {
  Places places;
  for (int k = 0; k < count; ++k) {
    std::vector<GX2DPoint> corners(static_cast<std::size_t>(count), Point(0, 0));
    corners[static_cast<std::size_t>(k)] = walk.target;
    Ring ring(corners);
    if (walk.finds(ring, stretch, k)) places.push_back(k);
  }
  return places;
}

TEST(Stretch, RunsFromFirstUpToLastAndOverTheEndOfTheVector) {
  const std::pair<Stretch, Places> cases[] = {{{0, kEnd, false}, {0, 1, 2, 3, 4}},
                                              {{0, kEnd, true}, {0, 1, 2, 3, 4}},
                                              {{2, kEnd, false}, {2, 3, 4}},
                                              {{2, kEnd, true}, {2, 3, 4}},
                                              {{1, 3, false}, {1, 2}},
                                              {{1, 3, true}, {1, 2}},
                                              {{3, 1, false}, {0, 3, 4}},
                                              {{3, 1, true}, {0, 3, 4}},
                                              {{3, 0, false}, {3, 4}},
                                              {{4, 0, false}, {4}},
                                              {{4, kEnd, false}, {4}},
                                              {{0, 4, false}, {0, 1, 2, 3}},
                                              {{1, 0, false}, {1, 2, 3, 4}},
                                              {{0, 1, true}, {0}}};
  for (const Walk& walk : Walks()) {
    for (const auto& [stretch, expected] : cases) {
      SCOPED_TRACE(testing::Message() << walk.name << " " << stretch.first << " " << stretch.last);
      EXPECT_EQ(Covered(walk, 5, stretch), expected);
    }
  }
}

TEST(Stretch, IsTheWholeRingFromAVertexToItselfOnlyWithTheFlag) {
  for (const Walk& walk : Walks()) {
    SCOPED_TRACE(walk.name);
    for (int place = 0; place < 4; ++place) {
      EXPECT_EQ(Covered(walk, 4, {place, place, true}), Places({0, 1, 2, 3}));
      EXPECT_EQ(Covered(walk, 4, {place, place, false}), Places());
    }
  }
}

TEST(Stretch, IsNothingFromTheEndOfTheVectorOn) {
  for (const Walk& walk : Walks()) {
    SCOPED_TRACE(walk.name);
    for (const bool whole : {false, true}) {
      EXPECT_EQ(Covered(walk, 4, {kEnd, kEnd, whole}), Places());
      EXPECT_EQ(Covered(walk, 4, {kEnd, 2, whole}), Places());
      EXPECT_EQ(Covered(walk, 4, {kEnd, 0, whole}), Places());
    }
  }
}

TEST(Stretch, OfARingOfOneVertexIsThatOrNothing) {
  for (const Walk& walk : Walks()) {
    SCOPED_TRACE(walk.name);
    EXPECT_EQ(Covered(walk, 1, {0, 0, true}), Places({0}));
    EXPECT_EQ(Covered(walk, 1, {0, 0, false}), Places());
    EXPECT_EQ(Covered(walk, 1, {0, kEnd, false}), Places({0}));
    EXPECT_EQ(Covered(walk, 1, {kEnd, 0, true}), Places());
  }
}

TEST(Stretch, WithoutVerticesGivesTheEndAndTrue) {
  Ring filled({{1, 1}, {2, 2}, {3, 3}});
  const Pair none(kEnd, kEnd);
  for (const Stretch& nothing : {Stretch{1, 1, false}, Stretch{kEnd, kEnd, true}}) {
    EXPECT_EQ(MinLeft(filled, nothing), kEnd);
    EXPECT_EQ(MaxRight(filled, nothing), kEnd);
    EXPECT_EQ(Top(filled, nothing), none);
    EXPECT_EQ(Bottom(filled, nothing), none);
    EXPECT_EQ(TopLeftOf(filled, 9, nothing), kEnd);
    EXPECT_EQ(TopRightOf(filled, -9, nothing), kEnd);
  }
  Ring empty;
  for (const bool whole : {false, true}) {
    const Stretch all{kEnd, kEnd, whole};
    EXPECT_EQ(MinLeft(empty, all), kEnd);
    EXPECT_EQ(MaxRight(empty, all), kEnd);
    EXPECT_EQ(Top(empty, all), none);
    EXPECT_EQ(Bottom(empty, all), none);
    EXPECT_EQ(TopLeftOf(empty, 9, all), kEnd);
    EXPECT_EQ(TopRightOf(empty, -9, all), kEnd);
  }
}

// The result may be one of the variables that name the stretch.
TEST(Stretch, MayBeOverwrittenByTheResult) {
  for (const bool intoFirst : {true, false}) {
    const auto run = [intoFirst](auto query, int expected) {
      Ring ring({{5, 5}, {3, 9}, {-4, 2}, {8, 1}});
      auto first = ring.At(1), last = ring.At(1);
      query(ring, first, last, intoFirst ? first : last);
      EXPECT_EQ(IndexOf(ring, intoFirst ? first : last), expected);
      EXPECT_EQ(IndexOf(ring, intoFirst ? last : first), 1);
    };
    using It = Ring::iterator;
    run([](Ring& r, It& f, It& l, It& out) { r.GetMinLeft(f, l, true, out); }, 2);
    run([](Ring& r, It& f, It& l, It& out) { r.GetMaxRight(f, l, true, out); }, 3);
    run([](Ring& r, It& f, It& l, It& out) { r.GetTopMaxRightLeftFromX(f, l, true, out, 1); }, 2);
    run([](Ring& r, It& f, It& l, It& out) { r.GetTopMinLeftRightFromX(f, l, true, out, 4); }, 0);
  }
}

TEST(Stretch, MayBeOverwrittenByBothResults) {
  Ring ring({{5, 5}, {3, 9}, {-4, 9}, {8, 1}, {2, 1}});
  auto first = ring.At(1), last = ring.At(1);
  ring.GetTopMinLeftMaxRight(first, last, true, first, last);
  EXPECT_EQ(IndexOf(ring, first), 2);
  EXPECT_EQ(IndexOf(ring, last), 1);
  first = last = ring.At(1);
  ring.GetBottomMinLeftMaxRight(first, last, true, last, first);
  EXPECT_EQ(IndexOf(ring, last), 4);
  EXPECT_EQ(IndexOf(ring, first), 3);
}

TEST(GetMinLeft, KeepsTheFirstOfEqualVertices) {
  Ring ring({{1, 0}, {0, 1}, {0, 2}, {0, 3}});
  EXPECT_EQ(MinLeft(ring), 1);
  EXPECT_EQ(MinLeft(ring, {2, 2, true}), 2);
  EXPECT_EQ(MinLeft(ring, {3, 2, false}), 3);
}

TEST(GetMinLeft, ComparesExactly) {
  Ring ring({{1, 0}, {std::nextafter(1.0, 0.0), 0}, {1, 5}});
  EXPECT_EQ(MinLeft(ring), 1);
}

TEST(GetMaxRight, KeepsTheFirstOfEqualVertices) {
  Ring ring({{-1, 0}, {0, 1}, {0, 2}, {0, 3}});
  EXPECT_EQ(MaxRight(ring), 1);
  EXPECT_EQ(MaxRight(ring, {2, 2, true}), 2);
  EXPECT_EQ(MaxRight(ring, {3, 2, false}), 3);
}

TEST(GetMaxRight, ComparesExactly) {
  Ring ring({{1, 0}, {std::nextafter(1.0, 2.0), 0}, {1, 5}});
  EXPECT_EQ(MaxRight(ring), 1);
}

TEST(GetTopMinLeftMaxRight, GivesBothEndsOfTheHighestLevel) {
  Ring ring({{0, 0}, {9, 0}, {7, 5}, {4, 5}, {2, 5}, {0, 4}});
  EXPECT_EQ(Top(ring), Pair(4, 2));
  EXPECT_EQ(Bottom(ring), Pair(0, 1));
  EXPECT_EQ(Top(ring, {5, 2, false}), Pair(5, 5));
}

TEST(GetTopMinLeftMaxRight, TakesAHundredthOfAThousandthForOneLevel) {
  Ring within({{5, 1}, {3, 0.999991}, {8, 0.999991}, {4, 0}});
  EXPECT_EQ(Top(within), Pair(1, 2));
  Ring below({{5, 1}, {3, 0.999989}, {8, 0.999989}, {4, 0}});
  EXPECT_EQ(Top(below), Pair(0, 0));
  Ring above({{5, 1}, {3, 1.000009}, {8, 1.000011}});  // the second moves the level up with it
  EXPECT_EQ(Top(above), Pair(1, 2));
  Ring newLevel({{5, 1}, {3, 1.000011}});
  EXPECT_EQ(Top(newLevel), Pair(1, 1));
}

TEST(GetBottomMinLeftMaxRight, TakesAHundredthOfAThousandthForOneLevel) {
  Ring within({{5, 1}, {3, 1.000009}, {8, 1.000018}, {4, 2}});
  EXPECT_EQ(Bottom(within), Pair(1, 2));
  Ring above({{5, 1}, {3, 1.000011}, {8, 1.000011}, {4, 2}});
  EXPECT_EQ(Bottom(above), Pair(0, 0));
  Ring below({{5, 1}, {3, 0.999991}, {8, 0.999985}});
  EXPECT_EQ(Bottom(below), Pair(1, 2));
  Ring newLevel({{5, 1}, {3, 0.999989}});
  EXPECT_EQ(Bottom(newLevel), Pair(1, 1));
}

// Held against 0, so that the differences are exact.
TEST(GetTopMinLeftMaxRight, CountsTheToleranceItself) {
  Ring ring({{5, 0}, {3, 0.00001}, {8, 0}, {9, 0.00001}});
  EXPECT_EQ(Bottom(ring), Pair(1, 3));
  EXPECT_EQ(Top(ring), Pair(1, 3));
}

TEST(GetTopMinLeftMaxRight, CreepsAlongASlantedRunToTheLeftOnly) {
  std::vector<GX2DPoint> toLeft, toRight;
  for (int i = 0; i < 6; ++i) {
    toLeft.emplace_back(-i, -0.000008 * i);
    toRight.emplace_back(i, -0.000008 * i);
  }
  Ring left(toLeft), right(toRight);
  EXPECT_EQ(Top(left), Pair(5, 0));   // each left vertex takes the level along
  EXPECT_EQ(Top(right), Pair(0, 1));  // a right one does not
}

TEST(GetBottomMinLeftMaxRight, CreepsAlongASlantedRunToTheLeftOnly) {
  std::vector<GX2DPoint> toLeft, toRight;
  for (int i = 0; i < 6; ++i) {
    toLeft.emplace_back(-i, 0.000008 * i);
    toRight.emplace_back(i, 0.000008 * i);
  }
  Ring left(toLeft), right(toRight);
  EXPECT_EQ(Bottom(left), Pair(5, 0));
  EXPECT_EQ(Bottom(right), Pair(0, 1));
}

TEST(GetTopMinLeftMaxRight, KeepsTheFirstOfVerticesAboveOneAnother) {
  Ring ring({{5, 1}, {5, 1}, {5, 1.000009}});
  EXPECT_EQ(Top(ring), Pair(0, 0));
  EXPECT_EQ(Top(ring, {1, 1, true}), Pair(1, 1));
  EXPECT_EQ(Bottom(ring), Pair(0, 0));
  EXPECT_EQ(Bottom(ring, {2, 2, true}), Pair(2, 2));
}

TEST(GetTopMaxRightLeftFromX, GivesTheEndForAnXLeftOfAllVertices) {
  Ring ring({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
  EXPECT_EQ(TopLeftOf(ring, -1), kEnd);
  EXPECT_EQ(TopLeftOf(ring, 0), kEnd);
  EXPECT_EQ(TopRightOf(ring, 11), kEnd);
  EXPECT_EQ(TopRightOf(ring, 10), kEnd);
}

TEST(GetTopMaxRightLeftFromX, LooksStrictlyLeftOfX) {
  Ring ring({{0, 0}, {4, 3}, {5, 9}, {6, 12}});
  EXPECT_EQ(TopLeftOf(ring, 5), 1);
  EXPECT_EQ(TopLeftOf(ring, std::nextafter(5.0, 6.0)), 2);
  EXPECT_EQ(TopLeftOf(ring, std::numeric_limits<double>::infinity()), 3);
}

TEST(GetTopMaxRightLeftFromX, TakesTheRightmostWithinAHundredThousandthInHeight) {
  Ring right({{2, 1}, {4, 0.999991}, {3, 0.999995}, {5, 0}});
  EXPECT_EQ(TopLeftOf(right, 9), 1);
  Ring tooLow({{2, 1}, {4, 0.999989}});
  EXPECT_EQ(TopLeftOf(tooLow, 9), 0);
  Ring higherToTheLeft({{4, 1}, {2, 1.000009}});
  EXPECT_EQ(TopLeftOf(higherToTheLeft, 9), 0);
  Ring higher({{4, 1}, {2, 1.000011}});
  EXPECT_EQ(TopLeftOf(higher, 9), 1);
  Ring itself({{2, 0.00001}, {4, 0}});  // the tolerance counts
  EXPECT_EQ(TopLeftOf(itself, 9), 1);
}

TEST(GetTopMaxRightLeftFromX, ComparesHeightsWithTheBestSoFar) {
  Ring ring({{1, 0}, {2, -0.000008}, {3, -0.000016}, {4, -0.000024}});
  EXPECT_EQ(TopLeftOf(ring, 9), 3);
  EXPECT_EQ(TopLeftOf(ring, 3.5), 2);
}

TEST(GetTopMaxRightLeftFromX, KeepsTheFirstOfVerticesAboveOneAnother) {
  Ring ring({{2, 1}, {2, 1}, {2, 1.000009}});
  EXPECT_EQ(TopLeftOf(ring, 9), 0);
  EXPECT_EQ(TopLeftOf(ring, 9, {1, 1, true}), 1);
  EXPECT_EQ(TopRightOf(ring, 0), 0);
}

TEST(GetTopMinLeftRightFromX, LooksStrictlyRightOfX) {
  Ring ring({{0, 12}, {4, 9}, {5, 3}, {6, 0}});
  EXPECT_EQ(TopRightOf(ring, 4), 2);
  EXPECT_EQ(TopRightOf(ring, std::nextafter(4.0, 3.0)), 1);
  EXPECT_EQ(TopRightOf(ring, -std::numeric_limits<double>::infinity()), 0);
}

TEST(GetTopMinLeftRightFromX, TakesTheLeftmostWithinAHundredThousandthInHeight) {
  Ring left({{8, 1}, {4, 0.999991}, {6, 0.999995}, {1, 0}});
  EXPECT_EQ(TopRightOf(left, 0), 1);
  Ring tooLow({{8, 1}, {4, 0.999989}});
  EXPECT_EQ(TopRightOf(tooLow, 0), 0);
  Ring higherToTheRight({{4, 1}, {8, 1.000009}});
  EXPECT_EQ(TopRightOf(higherToTheRight, 0), 0);
  Ring higher({{4, 1}, {8, 1.000011}});
  EXPECT_EQ(TopRightOf(higher, 0), 1);
}

TEST(GetTopMinLeftRightFromX, ComparesHeightsWithTheBestSoFar) {
  Ring ring({{4, 0}, {3, -0.000008}, {2, -0.000016}, {1, -0.000024}});
  EXPECT_EQ(TopRightOf(ring, 0), 3);
  EXPECT_EQ(TopRightOf(ring, 1.5), 2);
}

TEST(Stretch, MayTakeItsXFromAVertex) {
  Ring ring({{0, 0}, {4, 3}, {5, 9}, {6, 12}});
  auto first = ring.begin(), last = ring.begin();
  ring.GetTopMaxRightLeftFromX(first, last, true, first, ring[2]->Point->X);
  EXPECT_EQ(IndexOf(ring, first), 1);
}

TEST(Stretch, PassesOverNan) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Ring ring({{0, 0}, {nan, nan}, {-1, 4}, {nan, 9}, {1, -4}, {2, nan}});
  EXPECT_EQ(MinLeft(ring), 2);
  EXPECT_EQ(MaxRight(ring), 5);
  EXPECT_EQ(Bottom(ring), Pair(4, 4));
  EXPECT_EQ(TopLeftOf(ring, 1.5), 2);
  EXPECT_EQ(TopRightOf(ring, 0.5), 4);
  EXPECT_EQ(TopLeftOf(ring, nan), kEnd);
  EXPECT_EQ(TopRightOf(ring, nan), kEnd);
}

// The levels start at the largest and the lowest double, so that such a vertex is level with
// nothing yet.
TEST(Stretch, TakesTheLargestDoubles) {
  const double infinite = std::numeric_limits<double>::infinity();
  for (const double odd : {DBL_MAX, -DBL_MAX, infinite, -infinite}) {
    Ring alone({{odd, odd}});
    for (const int found :
         {MinLeft(alone), MaxRight(alone), Top(alone).first, Top(alone).second, Bottom(alone).first,
          Bottom(alone).second, TopLeftOf(alone, 0), TopRightOf(alone, 0)}) {
      EXPECT_TRUE(found == kEnd || found == 0);
    }
    Ring among({{odd, odd}, {1, 1}, {odd, odd}, {2, 2}});
    EXPECT_EQ(odd > 0 ? Bottom(among) : Top(among), odd > 0 ? Pair(1, 1) : Pair(3, 3));
    EXPECT_EQ(odd > 0 ? MinLeft(among) : MaxRight(among), odd > 0 ? 1 : 3);
  }
}

TEST(Stretch, PassesOverVerticesWithoutPosition) {
  Ring ring({{1, 1}, {2, 2}});
  ring.insert(ring.begin(), nullptr);
  ring.insert(ring.begin() + 2, new GX2DSurroundPoint());
  EXPECT_EQ(MinLeft(ring), 1);
  EXPECT_EQ(MaxRight(ring), 3);
  EXPECT_EQ(Top(ring), Pair(3, 3));
  EXPECT_EQ(Bottom(ring), Pair(1, 1));
  EXPECT_EQ(TopLeftOf(ring, 9), 3);
  EXPECT_EQ(TopRightOf(ring, 0), 3);
  double min = 0, max = 0;
  EXPECT_TRUE(MeetsLevel(ring, kWhole, 2, min, max));
  EXPECT_EQ(min, 2.0);
}

/// The covered places in the order of the walk.
Places Order(int count, const Stretch& s) {
  Places order;
  const int steps = s.last == kEnd ? count - s.first : (s.last - s.first + count) % count;
  for (int i = 0; i < (s.first == s.last && s.whole ? count : steps); ++i) {
    order.push_back((s.first + i) % count);
  }
  return order;
}

// Whole coordinates, so that there are many ties; a plain search over the covered places.
TEST(Stretch, AgreesWithAPlainSearchOnRandomRings) {
  support::Random random;
  for (int round = 0; round < 2000; ++round) {
    const int count = random.Int(1, 9);
    std::vector<GX2DPoint> corners;
    for (int i = 0; i < count; ++i) {
      const int x = random.Int(-4, 4);
      corners.emplace_back(x, random.Int(-4, 4));
    }
    Ring ring(corners);
    const Stretch stretch{random.Int(0, count - 1), random.Int(kEnd, count - 1), random.Bool()};
    const int limit = random.Int(-5, 5);
    const auto best = [&](auto qualifies, auto better) {
      int found = kEnd;
      for (const int place : Order(count, stretch)) {
        const GX2DPoint& p = corners[static_cast<std::size_t>(place)];
        if (!qualifies(p)) continue;
        if (found == kEnd || better(p, corners[static_cast<std::size_t>(found)])) found = place;
      }
      return found;
    };
    using P = const GX2DPoint&;
    const auto all = [](P) { return true; };
    const auto left = [](P a, P b) { return a.X < b.X; };
    const auto right = [](P a, P b) { return a.X > b.X; };
    const auto topLeft = [](P a, P b) { return a.Y > b.Y || (a.Y == b.Y && a.X < b.X); };
    const auto topRight = [](P a, P b) { return a.Y > b.Y || (a.Y == b.Y && a.X > b.X); };
    const auto lowLeft = [](P a, P b) { return a.Y < b.Y || (a.Y == b.Y && a.X < b.X); };
    const auto lowRight = [](P a, P b) { return a.Y < b.Y || (a.Y == b.Y && a.X > b.X); };
    ASSERT_EQ(MinLeft(ring, stretch), best(all, left));
    ASSERT_EQ(MaxRight(ring, stretch), best(all, right));
    ASSERT_EQ(Top(ring, stretch), Pair(best(all, topLeft), best(all, topRight)));
    ASSERT_EQ(Bottom(ring, stretch), Pair(best(all, lowLeft), best(all, lowRight)));
    ASSERT_EQ(TopLeftOf(ring, limit, stretch), best([&](P p) { return p.X < limit; }, topRight));
    ASSERT_EQ(TopRightOf(ring, limit, stretch), best([&](P p) { return p.X > limit; }, topLeft));
  }
}

}  // namespace
