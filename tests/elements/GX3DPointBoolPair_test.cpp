#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>
#include <utility>

namespace {

using Pair = GX3DPointBoolPair;
using support::Point;

static_assert(std::is_base_of_v<std::pair<GX3DPoint, bool>, Pair>);
static_assert(std::is_polymorphic_v<Pair>);
static_assert(!std::has_virtual_destructor_v<Pair>);

const double kJustAbove1 = std::nextafter(1.0, 2.0);

TEST(GX3DPointBoolPair, IsTheOriginAndFalseByDefault) {
  const Pair pair;
  EXPECT_POINT_EQ(pair.first, Point(0, 0, 0));
  EXPECT_FALSE(pair.second);
}

TEST(GX3DPointBoolPair, KeepsPointAndFlag) {
  const Pair pair(Point(1, 2, 3), true);
  EXPECT_POINT_EQ(pair.first, Point(1, 2, 3));
  EXPECT_TRUE(pair.second);
}

TEST(GX3DPointBoolPair, CopiesAreIndependent) {
  Pair original(Point(1, 2, 3), true);
  const Pair copy(original);
  Pair assigned;
  assigned = original;
  original.first.X = 9;
  original.second = false;
  EXPECT_POINT_EQ(copy.first, Point(1, 2, 3));
  EXPECT_TRUE(copy.second);
  EXPECT_POINT_EQ(assigned.first, Point(1, 2, 3));
  EXPECT_TRUE(assigned.second);
}

TEST(GX3DPointBoolPair, IsEqualWhenPointAndFlagAre) {
  const Pair pair(Point(1, 2, 3), true);
  EXPECT_TRUE(pair == Pair(Point(1, 2, 3), true));
  EXPECT_FALSE(pair != Pair(Point(1, 2, 3), true));
  EXPECT_FALSE(pair == Pair(Point(1, 2, 3), false));
  EXPECT_TRUE(pair != Pair(Point(1, 2, 3), false));
  EXPECT_FALSE(pair == Pair(Point(kJustAbove1, 2, 3), true));
  EXPECT_TRUE(pair != Pair(Point(kJustAbove1, 2, 3), true));
}

TEST(GX3DPointBoolPair, ThePointDecidesTheOrder) {
  EXPECT_TRUE(Pair(Point(1, 9, 9), false) < Pair(Point(2, 0, 0), true));
  EXPECT_FALSE(Pair(Point(2, 0, 0), true) < Pair(Point(1, 9, 9), false));
  EXPECT_TRUE(Pair(Point(1, 1, 1), false) < Pair(Point(1, 1, kJustAbove1), true));
}

TEST(GX3DPointBoolPair, OnEqualPointsTrueSortsBeforeFalse) {
  const Pair flagged(Point(1, 2, 3), true);
  const Pair plain(Point(1, 2, 3), false);
  EXPECT_TRUE(flagged < plain);
  EXPECT_FALSE(plain < flagged);
  EXPECT_FALSE(flagged < Pair(flagged));
  EXPECT_FALSE(plain < Pair(plain));
}

TEST(GX3DPointBoolPair, SortsASequence) {
  GX3DPointBoolPairList list;
  list.push_back(Pair(Point(2, 0, 0), true));
  list.push_back(Pair(Point(1, 0, 0), false));
  list.push_back(Pair(Point(1, 0, 0), true));
  list.sort();
  EXPECT_TRUE(list.front() == Pair(Point(1, 0, 0), true));
  EXPECT_TRUE(list.back() == Pair(Point(2, 0, 0), true));
}

}  // namespace
