#include "drawing/NearestPoints.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace drawing {
namespace {

TEST(NearestPoints, OfLessThanTwoPointsAreNone) {
  std::size_t other = 99;
  double distance = -1.0;
  EXPECT_FALSE(NearestPoints({}, {}).NearestOther(0, other, distance));
  EXPECT_FALSE(NearestPoints({1.0}, {2.0}).NearestOther(0, other, distance));
  EXPECT_EQ(other, 99u);
  EXPECT_EQ(distance, -1.0);
}

TEST(NearestPoints, GivesTheFirstOfEquallyNearOnes) {
  const NearestPoints points({5, 0, 10, 5, 5}, {5, 5, 5, 0, 10});
  std::size_t other = 0;
  double distance = 0.0;
  ASSERT_TRUE(points.NearestOther(0, other, distance));
  EXPECT_EQ(other, 1u);
  EXPECT_EQ(distance, 5.0);
}

TEST(NearestPoints, AgreesWithTheComparisonOfAllPairs) {
  constexpr unsigned kSeed = 815;
  std::mt19937 random(kSeed);
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE("seed " + std::to_string(kSeed) + ", round " + std::to_string(round));
    std::vector<double> x;
    std::vector<double> y;
    // Few values for each coordinate: equal points and equal distances are frequent. Whole numbers,
    // so that equal distances are equal in floating point too.
    for (int i = 0; i < 150; ++i) {
      x.push_back(static_cast<double>(random() % 40));
      y.push_back(static_cast<double>(random() % 40));
    }
    const NearestPoints points(x, y);
    for (std::size_t i = 0; i < x.size(); ++i) {
      std::size_t best = i;
      double shortest = 0.0;
      for (std::size_t k = 0; k < x.size(); ++k) {
        if (k == i) continue;
        const double square = (x[k] - x[i]) * (x[k] - x[i]) + (y[k] - y[i]) * (y[k] - y[i]);
        if (best != i && !(square < shortest)) continue;
        best = k;
        shortest = square;
      }
      std::size_t other = 0;
      double distance = 0.0;
      ASSERT_TRUE(points.NearestOther(i, other, distance));
      EXPECT_EQ(other, best);
      EXPECT_DOUBLE_EQ(distance, std::sqrt(shortest));
    }
  }
}

TEST(NearestPoints, DoesNotOverflowNearTheEndOfTheRange) {
  const NearestPoints points({1.7e308, 1.7e308, -1.7e308}, {0, 1e300, 0});
  std::size_t other = 0;
  double distance = 0.0;
  ASSERT_TRUE(points.NearestOther(0, other, distance));
  EXPECT_EQ(other, 1u);
  EXPECT_DOUBLE_EQ(distance, 1e300);
}

TEST(NearestPoints, FindsNeighboursAlongALineOfAHundredThousand) {
  std::vector<double> x(100000);
  std::iota(x.begin(), x.end(), 0.0);
  const NearestPoints points(x, std::vector<double>(x.size(), 0.0));
  for (std::size_t i = 1; i < x.size(); ++i) {
    std::size_t other = 0;
    double distance = 0.0;
    ASSERT_TRUE(points.NearestOther(i, other, distance));
    ASSERT_EQ(other, i - 1);
    ASSERT_EQ(distance, 1.0);
  }
}

}  // namespace
}  // namespace drawing
