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

// What one call of IntPnts_circle gave; the outputs hold other figures before.
struct Pair {
  int result = -1;
  double x1 = -71;
  double y1 = -72;
  double x2 = -73;
  double y2 = -74;
};
constexpr double kPairBefore[] = {-71, -72, -73, -74};

Pair Cross(double x1, double y1, double x2, double y2, double cx, double cy, double sx, double sy) {
  Pair p;
  p.result = IntPnts_circle(x1, y1, x2, y2, cx, cy, sx, sy, &p.x1, &p.y1, &p.x2, &p.y2);
  return p;
}
// Line and the circle about (1, 2) with radius 5.
Pair CrossFive(double x1, double y1, double x2, double y2) {
  return Cross(x1, y1, x2, y2, 1, 2, 6, 2);
}
void ExpectPair(const Pair& p, int result, double x1, double y1, double x2, double y2,
                double bound = 1e-14) {
  EXPECT_EQ(p.result, result);
  EXPECT_NEAR(p.x1, x1, bound);
  EXPECT_NEAR(p.y1, y1, bound);
  EXPECT_NEAR(p.x2, x2, bound);
  EXPECT_NEAR(p.y2, y2, bound);
}
void ExpectUntouched(const Pair& p) {
  EXPECT_EQ(p.result, 0);
  EXPECT_EQ(p.x1, kPairBefore[0]);
  EXPECT_EQ(p.y1, kPairBefore[1]);
  EXPECT_EQ(p.x2, kPairBefore[2]);
  EXPECT_EQ(p.y2, kPairBefore[3]);
}

TEST(IntPntsCircle, SlopedLineGivesTheGreaterYFirst) {
  // 3-4-5: (x - 1)^2 + (y - 2)^2 = 25 with y - 2 = 4 (x - 1) / 3.
  ExpectPair(CrossFive(1, 2, 4, 6), 2, 4, 6, -2, -2);
  ExpectPair(CrossFive(4, 6, 1, 2), 2, 4, 6, -2, -2);
}

TEST(IntPntsCircle, UprightLineGivesTwoPointsOfEqualX) {
  ExpectPair(CrossFive(4, 0, 4, 1), 2, 4, 6, 4, -2);
  ExpectPair(CrossFive(4, 1, 4, 0), 2, 4, 6, 4, -2);
}

TEST(IntPntsCircle, LevelLineGivesTheGreaterXFirst) {
  ExpectPair(CrossFive(-9, 5, 9, 5), 2, 5, 5, -3, 5);
  ExpectPair(CrossFive(9, 5, -9, 5), 2, 5, 5, -3, 5);
}

TEST(IntPntsCircle, TangentGives1AndWritesBothOutputs) {
  ExpectPair(CrossFive(6, 0, 6, 4), 1, 6, 2, 6, 2);
  ExpectPair(CrossFive(0, 7, 4, 7), 1, 1, 7, 1, 7);
}

TEST(IntPntsCircle, NoCrossingGives0AndLeavesTheOutputsAlone) {
  ExpectUntouched(CrossFive(7, 0, 7, 4));
  ExpectUntouched(CrossFive(0, 8, 4, 8));
  ExpectUntouched(CrossFive(7, 0, 8, 4));
}

TEST(IntPntsCircle, LineIsUnbounded) { ExpectPair(CrossFive(4, 100, 4, 101), 2, 4, 6, 4, -2); }

// A line of 45 degrees that is short enough counts as level.
TEST(IntPntsCircle, YThatDifferBy1e8ThAreLevel) {
  ExpectPair(Cross(0, 0, 1e-8, 1e-8, 0, 0, 1, 0), 2, 1, 0, -1, 0);
  ExpectPair(Cross(0, 0, 2e-8, 2e-8, 0, 0, 1, 0), 2, kHalfRoot, kHalfRoot, -kHalfRoot, -kHalfRoot);
}

TEST(IntPntsCircle, LineOfLengthZeroIsLevel) {
  ExpectPair(CrossFive(30, 5, 30, 5), 2, 5, 5, -3, 5);
  ExpectUntouched(CrossFive(1, 8, 1, 8));
}

// The line runs through the centre, so half the chord is the radius: 3.7e-09, 1.5e-08 and 5e-09.
TEST(IntPntsCircle, RootsThatDifferByAtMost1e8ThAreOne) {
  const double tiny = 0x1p-28;
  EXPECT_EQ(Cross(-1, 0, 1, 0, 0, 0, tiny, 0).result, 1) << "level";
  EXPECT_EQ(Cross(0, -1, 0, 1, 0, 0, tiny, 0).result, 1) << "upright";
  EXPECT_EQ(Cross(-1, 0, 1, 0, 0, 0, 4 * tiny, 0).result, 2) << "level";
  EXPECT_EQ(Cross(0, -1, 0, 1, 0, 0, 4 * tiny, 0).result, 2) << "upright";
  EXPECT_EQ(Cross(-1, 0, 1, 0, 0, 0, 0.5e-8, 0).result, 1) << "exactly 1e-08 apart";
  EXPECT_EQ(Cross(0, -1, 0, 1, 0, 0, 0.5e-8, 0).result, 1) << "exactly 1e-08 apart";
}

TEST(IntPntsCircle, CrossingsLieOnLineAndCircleAtRandom) {
  support::Random random;
  int pairs = 0;
  for (int i = 0; i < 3000; ++i) {
    const Vec a(random.Between(-20, 20), random.Between(-20, 20), 0);
    const Vec b(random.Between(-20, 20), random.Between(-20, 20), 0);
    const Vec c(random.Between(-20, 20), random.Between(-20, 20), 0);
    const double radius = random.Between(1, 20);
    const long double ux = static_cast<long double>(b[0]) - a[0];
    const long double uy = static_cast<long double>(b[1]) - a[1];
    const long double length = std::hypot(ux, uy);
    if (length < 1 || std::fabs(uy) < 0.2L * length) continue;
    const auto offLine = [&](double x, double y) {
      return std::fabs(ux * (y - static_cast<long double>(a[1])) -
                       uy * (x - static_cast<long double>(a[0]))) /
             length;
    };
    const long double d = offLine(c[0], c[1]);
    const Pair p = Cross(a[0], a[1], b[0], b[1], c[0], c[1], c[0] + radius, c[1]);
    if (d > radius + 0.01L) ExpectUntouched(p);
    if (d > 0.95L * radius) continue;
    ++pairs;
    ASSERT_EQ(p.result, 2);
    ASSERT_GT(p.y1, p.y2);
    // x = m y + c with |m| below 5 and |c| below 120: roundings of 1e-14 of their squares, over a
    // root of at least a third of the radius.
    for (const auto& [x, y] : {std::array{p.x1, p.y1}, std::array{p.x2, p.y2}}) {
      ASSERT_LE(offLine(x, y), 1e-8L);
      ASSERT_NEAR(std::hypot(x - c[0], y - c[1]), radius, 1e-8);
    }
  }
  EXPECT_GT(pairs, 500);
}

TEST(IntPntsCircle, AnswersEveryFigure) {
  for (const double value : {kNaN, kInfinity, -kInfinity, 1e308}) {
    for (std::size_t i = 0; i < 8; ++i) {
      std::array<double, 8> v{1, 2, 4, 6, 1, 2, 6, 2};
      v[i] = value;
      const Pair p = Cross(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]);
      EXPECT_TRUE(p.result >= 0 && p.result <= 2);
    }
  }
}

// ---- the crossing nearer to a reference.

// Reference in, crossing out.
struct Near {
  int result;
  double x;
  double y;
};
Near Lac(double x1, double y1, double x2, double y2, double cx, double cy, double sx, double sy,
         double refX, double refY) {
  Near n{-1, refX, refY};
  n.result = Pntlac(x1, y1, x2, y2, cx, cy, sx, sy, &n.x, &n.y);
  return n;
}
// Circle about the origin with radius 5.
Near LacFive(double x1, double y1, double x2, double y2, double refX, double refY) {
  return Lac(x1, y1, x2, y2, 0, 0, 5, 0, refX, refY);
}
void ExpectNear(const Near& n, double x, double y, double bound = 1e-14) {
  EXPECT_EQ(n.result, 1);
  EXPECT_NEAR(n.x, x, bound);
  EXPECT_NEAR(n.y, y, bound);
}
void ExpectNone(const Near& n, double refX, double refY) {
  EXPECT_EQ(n.result, 0);
  EXPECT_EQ(n.x, refX);
  EXPECT_EQ(n.y, refY);
}

TEST(Pntlac, GivesTheCrossingNearerToTheReference) {
  ExpectNear(LacFive(3, -9, 3, 9, 0, 1), 3, 4);
  ExpectNear(LacFive(3, -9, 3, 9, 0, -1), 3, -4);
  ExpectNear(LacFive(-9, 3, 9, 3, 1, 0), 4, 3);
  ExpectNear(LacFive(-9, 3, 9, 3, -1, 0), -4, 3);
}

TEST(Pntlac, GivesThePlusRootOnATie) {
  ExpectNear(LacFive(3, -9, 3, 9, 100, 0), 3, 4);
  ExpectNear(LacFive(3, 9, 3, -9, 100, 0), 3, 4);
  ExpectNear(LacFive(-9, 3, 9, 3, 0, 100), 4, 3);
}

TEST(Pntlac, FartherThanTheRadiusGives0AndLeavesTheReferenceAlone) {
  ExpectNone(LacFive(6, -9, 6, 9, 1, 2), 1, 2);
  ExpectNone(LacFive(-9, -5.01, 9, -5.01, 1, 2), 1, 2);
}

// So short a line counts as level once it comes to the quadratic, and would meet the circle there.
TEST(Pntlac, AsksForTheDistanceBeforeALineCountsAsLevel) {
  ExpectNone(LacFive(8, 0, 8, 1e-8, 1, 2), 1, 2);
  const Near withoutRadius = Lac(8, 0, 8, 1e-8, 0, 0, 0, 0, 1, 2);
  EXPECT_EQ(withoutRadius.result, 1) << "a radius of 0 is not compared with the distance";
  EXPECT_EQ(withoutRadius.x, 0.0);
  EXPECT_EQ(withoutRadius.y, 0.0);
}

// Half the chord is the root of 2 * 0.0015 * 0.8e-14, that is 4.9e-9.
TEST(Pntlac, RootsThatCoincideWithin1EMinus8GiveThePlusRoot) {
  const double level = 0.0015 - 0.8e-14;
  const Near hit = Lac(-1, level, 1, level, 0, 0, 0.0015, 0, -1, 0);
  EXPECT_EQ(hit.result, 1);
  EXPECT_NEAR(hit.x, 4.9e-9, 1e-10);
}

TEST(Pntlac, TangentGivesItsOnePoint) {
  ExpectNear(LacFive(5, -4, 5, 4, -8, 3), 5, 0);
  ExpectNear(LacFive(-4, 5, 4, 5, 7, -3), 0, 5);
}

TEST(Pntlac, LineThroughTheCentreGivesTheNearerPointOfTheCircle) {
  ExpectNear(LacFive(-6, -8, 6, 8, 1.5, 2), 3, 4);
  ExpectNear(LacFive(-6, -8, 6, 8, -1.5, -2), -3, -4);
  ExpectNear(LacFive(0, -8, 0, 9, 0, -1), 0, -5);
}

TEST(Pntlac, LineThroughTheCentreGivesTheOneAlongTheLineOnATie) {
  ExpectNear(LacFive(-6, -8, 6, 8, 0, 0), 3, 4);
  ExpectNear(LacFive(6, 8, -6, -8, 0, 0), -3, -4);
}

// A line up to 0.001 off counts as one through the centre; the crossing then keeps the centre's y.
TEST(Pntlac, LineWithin0Point001OfTheCentreIsShiftedToIt) {
  const Near inside = LacFive(-20, 0.0009, 20, 0.0009, 1, 0);
  EXPECT_EQ(inside.result, 1);
  EXPECT_EQ(inside.x, 5.0);
  EXPECT_EQ(inside.y, 0.0);
  ExpectNear(LacFive(-20, 0.0011, 20, 0.0011, 1, 0), std::sqrt(25 - 0.0011 * 0.0011), 0.0011);
}

// The direction stays as it is up to a length of 0.0001, and so the points are not on the circle.
TEST(Pntlac, ShortLineThroughTheCentreKeepsItsLength) {
  ExpectNear(LacFive(0, 0, 0.0001, 0, 1, 0), 0.0005, 0, 1e-18);
  ExpectNear(LacFive(0, 0, 0.00005, 0, -1, 0), -0.00025, 0, 1e-18);
  ExpectNear(LacFive(0, 0, 0.0002, 0, 1, 0), 5, 0);
}

TEST(Pntlac, LineOfLengthZeroIsLevel) {
  ExpectNear(LacFive(9, 3, 9, 3, 1, 0), 4, 3);
  ExpectNear(LacFive(9, 0, 9, 0, -1, 0), -5, 0);
  ExpectNone(LacFive(9, 6, 9, 6, 1, 2), 1, 2);
}

TEST(Pntlac, CircleOfRadiusZeroIsMetAtItsCentreOnly) {
  ExpectNear(Lac(-9, 4, 9, 4, 3, 4, 3, 4, 7, 7), 3, 4);
  ExpectNone(Lac(-9, 5, 9, 5, 3, 4, 3, 4, 7, 7), 7, 7);
}

TEST(Pntlac, YThatDifferBy1e8ThAreLevel) {
  // Both run at 45 degrees, 1 beside the centre in x.
  ExpectNear(LacFive(1, 1e-8, 1 + 1e-8, 2e-8, 5, 0), 5, 1e-8, 1e-12);
  const double y = (-1 + std::sqrt(49.0)) / 2;  // (1 + y)^2 + y^2 = 25
  ExpectNear(LacFive(1, 0, 1 + 0x1p-24, 0x1p-24, 5, 5), 1 + y, y);
}

TEST(Pntlac, GivesTheNearerCrossingAtRandom) {
  support::Random random;
  for (int i = 0; i < 3000; ++i) {
    const long double angle = random.Between(0.25, 2.85);
    const long double ux = std::cos(angle);
    const long double uy = std::sin(angle);
    const double cx = random.Between(-20, 20);
    const double cy = random.Between(-20, 20);
    const double radius = random.Between(1, 20);
    const long double off = radius * static_cast<long double>(random.Between(-0.9, 0.9));
    const long double half = std::sqrt(radius * static_cast<long double>(radius) - off * off);
    const auto at = [&](long double t) {
      return Vec(static_cast<double>(cx - off * uy + t * ux),
                 static_cast<double>(cy + off * ux + t * uy), 0);
    };
    const Vec p = at(random.Between(-9, -3));
    const Vec q = at(random.Between(3, 9));
    const Vec ref(random.Between(-40, 40), random.Between(-40, 40), 0);
    const double toPlus = Length(at(half) - ref);
    const double toMinus = Length(at(-half) - ref);
    if (std::fabs(toPlus - toMinus) < 0.01 || std::fabs(off) < 0.01L) continue;
    const Near n = Lac(p[0], p[1], q[0], q[1], cx, cy, cx, cy - radius, ref[0], ref[1]);
    const Vec expected = at(toPlus < toMinus ? half : -half);
    ASSERT_EQ(n.result, 1);
    // Roundings of 1e-14 of squares of up to 120, over the root.
    ASSERT_NEAR(n.x, expected[0], 1e-8);
    ASSERT_NEAR(n.y, expected[1], 1e-8);
  }
}

TEST(Pntlac, AnswersEveryFigure) {
  for (const double value : {kNaN, kInfinity, -kInfinity, 1e308}) {
    for (std::size_t i = 0; i < 10; ++i) {
      std::array<double, 10> v{3, -9, 3, 9, 0, 0, 5, 0, 1, 1};
      v[i] = value;
      const Near n = Lac(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9]);
      EXPECT_TRUE(n.result == 0 || n.result == 1);
    }
  }
}

}  // namespace
