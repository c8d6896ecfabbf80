#include <KTRCL_Geometry/kernel/Intersections.h>

#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using support::kInfinity;
using support::kNaN;
using support::Vec;

constexpr double kHalfRoot = 0.70710678118654752440;

struct Circle {
  double x;
  double y;
  double radius;
};
// Reference in, crossing out.
struct Near {
  int result;
  double x;
  double y;
};
Near Laa(const Circle& first, const Circle& second, double refX, double refY) {
  Near n{-1, refX, refY};
  n.result = Pntlaa(first.x, first.y, first.x, first.y + first.radius, second.x, second.y, second.x,
                    second.y + second.radius, &n.x, &n.y);
  return n;
}
void ExpectNear(const Near& n, double x, double y, double bound = 1e-14) {
  EXPECT_EQ(n.result, 1);
  EXPECT_NEAR(n.x, x, bound);
  EXPECT_NEAR(n.y, y, bound);
}
void ExpectNone(const Circle& first, const Circle& second) {
  const Near n = Laa(first, second, 1.25, 2.5);
  EXPECT_EQ(n.result, 0);
  EXPECT_EQ(n.x, 1.25);
  EXPECT_EQ(n.y, 2.5);
}

TEST(Pntlaa, GivesTheCrossingNearerToTheReference) {
  ExpectNear(Laa({0, 0, 5}, {6, 0, 5}, 3, 1), 3, 4);
  ExpectNear(Laa({0, 0, 5}, {6, 0, 5}, 3, -1), 3, -4);
  ExpectNear(Laa({6, 0, 5}, {0, 0, 5}, 3, -1), 3, -4);
  // Radii 13 and 15 over a base of 14 stand 12 high: triangle 13-14-15, its foot 5 from the first.
  ExpectNear(Laa({0, 0, 13}, {14, 0, 15}, 0, 9), 5, 12, 1e-13);
}

TEST(Pntlaa, GivesTheGreaterYOnATie) {
  ExpectNear(Laa({0, 0, 5}, {6, 0, 5}, 100, 0), 3, 4);
  ExpectNear(Laa({6, 0, 5}, {0, 0, 5}, -100, 0), 3, 4);
}

TEST(Pntlaa, CirclesApartGive0AndLeaveTheReferenceAlone) {
  ExpectNone({0, 0, 5}, {11, 0, 5});
  ExpectNone({0, 0, 5}, {0, 11, 5});
}

TEST(Pntlaa, CirclesThatTouchWithin0Point000001Give0) {
  ExpectNone({0, 0, 5}, {10, 0, 5});
  ExpectNone({0, 0, 5}, {10 - 0.5e-6, 0, 5});
  // Half the chord is sqrt(25 - (5 - 1e-6)^2) = sqrt(1e-5).
  ExpectNear(Laa({0, 0, 5}, {10 - 2e-6, 0, 5}, 5, 1), 5 - 1e-6, std::sqrt(1e-5 - 1e-12), 1e-10);
}

TEST(Pntlaa, CirclesThatOverlapByExactly0Point000001Cross) {
  const double d = 2 - 0.000001;
  EXPECT_EQ(Laa({0, 0, 1}, {d, 0, 1}, 1, 1).result, 1);
  ExpectNone({0, 0, 1}, {std::nextafter(d, 3), 0, 1});
}

TEST(Pntlaa, EqualCirclesGive0) { ExpectNone({1, 2, 5}, {1, 2, 5}); }

TEST(Pntlaa, ACircleInsideTheOtherGives0InEitherOrder) {
  ExpectNone({0, 0, 5}, {1, 0, 3});
  ExpectNone({1, 0, 3}, {0, 0, 5});
  ExpectNone({0, 0, 5}, {0, 0, 3});
}

TEST(Pntlaa, CirclesThatTouchFromInsideWithin1e8ThGive0) {
  ExpectNone({0, 0, 5}, {2, 0, 3});
  ExpectNone({0, 0, 5}, {2 + 0.5e-8, 0, 3});
  ExpectNone({2 + 0.5e-8, 0, 3}, {0, 0, 5});
  EXPECT_EQ(Laa({0, 0, 5}, {2 + 4e-8, 0, 3}, 5, 1).result, 1);
  EXPECT_EQ(Laa({2 + 4e-8, 0, 3}, {0, 0, 5}, 5, 1).result, 1);
}

// Centres one above the other: k = 18 on the radical line y = 3, and half the chord is
// sqrt(18 - 9) = 3. The circles cross at (4, 3) and (-4, 3), but hosts rely on this figure.
TEST(Pntlaa, CentresOfEqualXTakeHalfTheChordFromTheConstantOfTheRadicalLine) {
  ExpectNear(Laa({0, 0, 5}, {0, 6, 5}, 1, 0), 3, 3);
  ExpectNear(Laa({0, 0, 5}, {0, 6, 5}, -1, 0), -3, 3);
  ExpectNear(Laa({0, 0, 5}, {0, 6, 5}, 0, 0), 3, 3);
}

// k = (256 - 100) / 2 = 78, y = 78 / 6 = 13, half the chord sqrt(78 - 9).
TEST(Pntlaa, TheConstantOfTheRadicalLineDependsOnTheOrigin) {
  ExpectNear(Laa({100, 10, 5}, {100, 16, 5}, 200, 0), 100 + std::sqrt(69.0), 13, 1e-13);
  ExpectNear(Laa({100, 10, 5}, {100, 16, 5}, 0, 0), 100 - std::sqrt(69.0), 13, 1e-13);
}

// k = (16 - 25 + 4) / 2 = -2.5; the circles do cross at y = -1.25.
TEST(Pntlaa, CentresOfEqualXGive0WhereThatFigureIsNegative) { ExpectNone({0, 0, 4}, {0, 2, 5}); }

// k = (25 - 9 + 16) / 2 = 16, y = 4, and 16 - 4^2 = 0: one root, where the circles cross at x = -3
// and 3.
TEST(Pntlaa, CoincidingRootsGiveThatRoot) { ExpectNear(Laa({0, 0, 5}, {0, 4, 3}, -9, 9), 0, 4); }

// Unit circles whose centres lie so near that the guard decides. By the true radical line, of 45
// degrees, they cross at (-0.707, 0.707); with half the chord from k, about 1e-15, near the origin.
TEST(Pntlaa, CentresWhoseXDifferBy1e8ThCountAsEqual) {
  ExpectNear(Laa({0, 0, 1}, {0x1p-27, 0x1p-25, 1}, -1, 1), 0, 0, 1e-7);
  ExpectNear(Laa({0, 0, 1}, {1e-8, 0x1p-25, 1}, -1, 1), 0, 0, 1e-7);
  ExpectNear(Laa({0, 0, 1}, {0x1p-26, 0x1p-26, 1}, -1, 1), -kHalfRoot, kHalfRoot, 1e-7);
}

TEST(Pntlaa, GivesTheNearerCrossingAtRandom) {
  support::Random random;
  int crossings = 0;
  for (int i = 0; i < 5000; ++i) {
    const Circle a{random.Between(-20, 20), random.Between(-20, 20), random.Between(1, 20)};
    const Circle b{random.Between(-20, 20), random.Between(-20, 20), random.Between(1, 20)};
    const long double dx = static_cast<long double>(b.x) - a.x;
    const long double dy = static_cast<long double>(b.y) - a.y;
    const long double d = std::hypot(dx, dy);
    const Near n = Laa(a, b, random.Between(-40, 40), random.Between(-40, 40));
    if (d > a.radius + b.radius + 0.001L || d < std::fabs(a.radius - b.radius) - 0.001L) {
      ASSERT_EQ(n.result, 0);
    }
    if (d > a.radius + b.radius - 0.1L || d < std::fabs(a.radius - b.radius) + 0.1L) continue;
    if (d < 2 || std::fabs(dx) < 0.2L * d) continue;
    ++crossings;
    ASSERT_EQ(n.result, 1);
    // Roundings of 1e-13 in the radical line grow by its slope of up to 5 and over half the chord.
    ASSERT_NEAR(std::hypot(n.x - a.x, n.y - a.y), a.radius, 1e-9);
    ASSERT_NEAR(std::hypot(n.x - b.x, n.y - b.y), b.radius, 1e-9);
  }
  EXPECT_GT(crossings, 500);
}

// The foot of the chord and half of it, in long double.
TEST(Pntlaa, NeverGivesTheFartherCrossingAtRandom) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const Circle a{random.Between(-9, 9), random.Between(-9, 9), random.Between(4, 6)};
    const long double angle = random.Between(-1.3, 1.3);
    const long double d = random.Between(2.5, 7.5);
    const Circle b{static_cast<double>(a.x + d * std::cos(angle)),
                   static_cast<double>(a.y + d * std::sin(angle)), random.Between(4, 6)};
    const long double foot = (d * d + a.radius * static_cast<long double>(a.radius) -
                              b.radius * static_cast<long double>(b.radius)) /
                             (2 * d);
    const long double half = std::sqrt(a.radius * static_cast<long double>(a.radius) - foot * foot);
    const auto at = [&](long double t) {
      return Vec(static_cast<double>(a.x + foot * std::cos(angle) - t * std::sin(angle)),
                 static_cast<double>(a.y + foot * std::sin(angle) + t * std::cos(angle)), 0);
    };
    const Vec ref(random.Between(-20, 20), random.Between(-20, 20), 0);
    const double toUpper = Length(at(half) - ref);
    const double toLower = Length(at(-half) - ref);
    if (std::fabs(toUpper - toLower) < 0.01) continue;
    const Near n = Laa(a, b, ref[0], ref[1]);
    ASSERT_EQ(n.result, 1);
    ASSERT_POINT_NEAR(Vec(n.x, n.y, 0), at(toUpper < toLower ? half : -half), 1e-9);
  }
}

TEST(Pntlaa, AnswersEveryFigure) {
  for (const double value : {kNaN, kInfinity, -kInfinity, 1e308}) {
    for (std::size_t i = 0; i < 10; ++i) {
      std::array<double, 10> v{0, 0, 5, 0, 6, 0, 11, 0, 3, 1};
      v[i] = value;
      const int result = Pntlaa(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], &v[8], &v[9]);
      EXPECT_TRUE(result == 0 || result == 1);
    }
  }
}

}  // namespace
