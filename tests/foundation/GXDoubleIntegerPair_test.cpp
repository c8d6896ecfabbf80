#include <KTRCL_Geometry/foundation/GXDoubleIntegerPair.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

static_assert(std::is_base_of_v<std::pair<double, int>, GXDoubleIntegerPair>);

TEST(GXDoubleIntegerPair, HoldsTheDoubleFirstAndTheIntSecond) {
  const GXDoubleIntegerPair pair(2.5, 7);
  EXPECT_EQ(pair.first, 2.5);
  EXPECT_EQ(pair.second, 7);
}

TEST(GXDoubleIntegerPair, IsOrderedByTheDouble) {
  EXPECT_TRUE(GXDoubleIntegerPair(1.0, 9) < GXDoubleIntegerPair(2.0, 0));
  EXPECT_FALSE(GXDoubleIntegerPair(2.0, 0) < GXDoubleIntegerPair(1.0, 9));
}

TEST(GXDoubleIntegerPair, TheIntDoesNotBreakATie) {
  EXPECT_FALSE(GXDoubleIntegerPair(1.0, 1) < GXDoubleIntegerPair(1.0, 2));
  EXPECT_FALSE(GXDoubleIntegerPair(1.0, 2) < GXDoubleIntegerPair(1.0, 1));
}

TEST(GXDoubleIntegerPair, TheComparisonIsExact) {
  const double next = std::nextafter(1.0, 2.0);
  EXPECT_TRUE(GXDoubleIntegerPair(1.0, 0) < GXDoubleIntegerPair(next, 0));
  EXPECT_FALSE(GXDoubleIntegerPair(-0.0, 0) < GXDoubleIntegerPair(0.0, 0));
}

TEST(GXDoubleIntegerPair, NaNIsNeverLess) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(GXDoubleIntegerPair(nan, 0) < GXDoubleIntegerPair(1.0, 0));
  EXPECT_FALSE(GXDoubleIntegerPair(1.0, 0) < GXDoubleIntegerPair(nan, 0));
}

TEST(GXDoubleIntegerPair, AStableSortKeepsTheOrderOfEqualDoubles) {
  std::vector<GXDoubleIntegerPair> pairs = {{3.0, 1}, {1.0, 9}, {3.0, 0}, {1.0, 4}};
  std::stable_sort(pairs.begin(), pairs.end());
  std::vector<int> indices;
  for (const GXDoubleIntegerPair& pair : pairs) {
    indices.push_back(pair.second);
  }
  EXPECT_EQ(indices, (std::vector<int>{9, 4, 1, 0}));
}

}  // namespace
