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

// The point after a snap to the circle about (cx, cy) through (sx, sy).
Vec Snapped(double cx, double cy, double sx, double sy, double x, double y) {
  EXPECT_EQ(Pntarc(cx, cy, sx, sy, &x, &y), 1);
  return {x, y, 0};
}

TEST(Pntarc, MovesAPointRadiallyToTheCircle) {
  EXPECT_POINT_NEAR(Snapped(0, 0, 5, 0, 6, 8), Vec(3, 4, 0), 1e-15);
  EXPECT_POINT_NEAR(Snapped(0, 0, 5, 0, -6, -8), Vec(-3, -4, 0), 1e-15);
  EXPECT_POINT_NEAR(Snapped(0, 0, 5, 0, -0.3, 0.4), Vec(-3, 4, 0), 1e-14);
  EXPECT_POINT_NEAR(Snapped(10, 20, 10, 25, 16, 12), Vec(13, 16, 0), 1e-14);
}

TEST(Pntarc, MovesAPointStraightAboveOrBelow) {
  EXPECT_POINT_NEAR(Snapped(0, 0, 5, 0, 0, 8), Vec(0, 5, 0), 1e-15);
  EXPECT_POINT_NEAR(Snapped(0, 0, 5, 0, 0, -1), Vec(0, -5, 0), 1e-15);
}

TEST(Pntarc, MovesAPointOfTheSameHeightAsTheCentre) {
  EXPECT_POINT_EQ(Snapped(0, 0, 5, 0, 8, 0), Vec(5, 0, 0));
  EXPECT_POINT_EQ(Snapped(0, 0, 5, 0, -8, 0), Vec(-5, 0, 0));
  EXPECT_POINT_EQ(Snapped(3, 4, 8, 4, 4, 4), Vec(8, 4, 0));
}

TEST(Pntarc, LeavesAPointOfTheCircleUnchanged) {
  EXPECT_POINT_EQ(Snapped(0, 0, 5, 0, 3, 4), Vec(3, 4, 0));
  EXPECT_POINT_EQ(Snapped(0, 0, 5, 0, -5, 0), Vec(-5, 0, 0));
}

TEST(Pntarc, LeavesAPointWithin1e8ThOfTheCircle) {
  EXPECT_POINT_EQ(Snapped(0, 0, 5, 0, 5 + 0.9e-8, 0), Vec(5 + 0.9e-8, 0, 0));
  EXPECT_POINT_EQ(Snapped(0, 0, 5, 0, 5 - 0.9e-8, 0), Vec(5 - 0.9e-8, 0, 0));
  EXPECT_POINT_EQ(Snapped(0, 0, 5, 0, 5 + 1.1e-8, 0), Vec(5, 0, 0));
  EXPECT_POINT_EQ(Snapped(0, 0, 5, 0, 5 - 1.1e-8, 0), Vec(5, 0, 0));
  EXPECT_POINT_EQ(Snapped(0, 0, 1e-8, 0, 2e-8, 0), Vec(2e-8, 0, 0)) << "inclusive";
}

TEST(Pntarc, LeavesAPointAtTheCentre) { EXPECT_POINT_EQ(Snapped(3, 4, 8, 4, 3, 4), Vec(3, 4, 0)); }

TEST(Pntarc, LeavesAPointWhereTheCircleIsOne) {
  EXPECT_POINT_EQ(Snapped(3, 4, 3, 4, 6, 8), Vec(6, 8, 0));
}

TEST(Pntarc, GivesThePointOfTheCircleOnTheSameRayAtRandom) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const long double angle = random.Between(-3.2, 3.2);
    const double cx = random.Between(-20, 20);
    const double cy = random.Between(-20, 20);
    const double radius = random.Between(1, 20);
    const long double far = random.Between(0.1, 40);
    const auto at = [&](long double r) {
      return Vec(static_cast<double>(cx + r * std::cos(angle)),
                 static_cast<double>(cy + r * std::sin(angle)), 0);
    };
    const Vec from = at(far);
    // The direction of a point 0.1 away is known to about 1e-13.
    ASSERT_POINT_NEAR(Snapped(cx, cy, cx - radius, cy, from[0], from[1]), at(radius), 1e-11);
  }
}

TEST(Pntarc, AlwaysGives1) {
  for (const double value : {kNaN, kInfinity, -kInfinity, 1e308}) {
    for (std::size_t i = 0; i < 6; ++i) {
      std::array<double, 6> v{0, 0, 5, 0, 6, 8};
      v[i] = value;
      EXPECT_EQ(Pntarc(v[0], v[1], v[2], v[3], &v[4], &v[5]), 1);
    }
  }
}

TEST(Pntarc, LeavesAPointWhereTheCircleIsNoNumber) {
  EXPECT_POINT_EQ(Snapped(0, 0, kNaN, 0, 6, 8), Vec(6, 8, 0));
}

// Both outputs and the sign, in one row: x1, y1, x2, y2, result.
struct Along {
  Vec first;
  Vec second;
  double result;
};
Along Det(double cx, double cy, double sx, double sy, double dx, double dy) {
  Along a{{-71, -72, 0}, {-73, -74, 0}, -75};
  a.result =
      Pntdet_dll(cx, cy, sx, sy, dx, dy, &a.first[0], &a.first[1], &a.second[0], &a.second[1]);
  return a;
}
void ExpectAlong(const Along& a, const Vec& first, const Vec& second, double result) {
  EXPECT_POINT_NEAR(a.first, first, 1e-14);
  EXPECT_POINT_NEAR(a.second, second, 1e-14);
  EXPECT_NEAR(a.result, result, 1e-12);
}

// (3, 4).(6, 8) = 50.
TEST(PntdetDll, IsPositiveWhereTheFirstOutputFacesTheDirection) {
  ExpectAlong(Det(0, 0, 5, 0, 6, 8), Vec(3, 4, 0), Vec(-3, -4, 0), 50);
  ExpectAlong(Det(10, 20, 10, 15, 16, 28), Vec(13, 24, 0), Vec(7, 16, 0), 50);
}

TEST(PntdetDll, IsNegativeWhereTheSecondOutputFacesTheDirection) {
  ExpectAlong(Det(0, 0, 5, 0, -6, -8), Vec(3, 4, 0), Vec(-3, -4, 0), -50);
  ExpectAlong(Det(0, 0, 5, 0, 6, -8), Vec(-3, 4, 0), Vec(3, -4, 0), -50);
}

TEST(PntdetDll, LevelDirectionGivesTheGreaterXFirst) {
  ExpectAlong(Det(0, 0, 3, 4, 10, 0), Vec(5, 0, 0), Vec(-5, 0, 0), 50);
  ExpectAlong(Det(0, 0, 3, 4, -10, 0), Vec(5, 0, 0), Vec(-5, 0, 0), -50);
}

TEST(PntdetDll, UprightDirectionGivesTheGreaterYFirst) {
  ExpectAlong(Det(0, 0, 3, 4, 0, 2), Vec(0, 5, 0), Vec(0, -5, 0), 10);
  ExpectAlong(Det(0, 0, 3, 4, 0, -2), Vec(0, 5, 0), Vec(0, -5, 0), -10);
}

TEST(PntdetDll, DirectionPointAtTheCentreCountsAsLevel) {
  ExpectAlong(Det(2, 3, 5, 7, 2, 3), Vec(7, 3, 0), Vec(-3, 3, 0), 0);
}

TEST(PntdetDll, NaNGivesNoNumber) { EXPECT_TRUE(std::isnan(Det(0, 0, 5, 0, kNaN, 8).result)); }

struct Offsets {
  Vec first{11.5, -12.25, 13.125};
  Vec second{21.5, -22.25, 23.125};
  double result = 0;
};
Offsets Offset(double r, double x0, double y0, double x1, double y1) {
  Offsets o;
  o.result = Offset_arc1(r, x0, y0, x1, y1, o.first, o.second);
  return o;
}
// z stays as it was.
void ExpectOffsets(const Offsets& o, double x1, double y1, double x2, double y2, double result) {
  EXPECT_POINT_NEAR(o.first, Vec(x1, y1, 13.125), 1e-14);
  EXPECT_POINT_NEAR(o.second, Vec(x2, y2, 23.125), 1e-14);
  EXPECT_NEAR(o.result, result, 1e-12);
}

TEST(OffsetArc1, GivesThePointsAtADistanceTheGreaterYFirst) {
  ExpectOffsets(Offset(5, 0, 0, 6, 8), 3, 4, -3, -4, 50);
  ExpectOffsets(Offset(5, 10, 20, 4, 12), 13, 24, 7, 16, -50);
}

TEST(OffsetArc1, RunsAlongXWhereTheHeightsAreEqual) {
  ExpectOffsets(Offset(5, 1, 2, 3, 2), 6, 2, -4, 2, 10);
  ExpectOffsets(Offset(5, 1, 2, -1, 2), 6, 2, -4, 2, -10);
}

TEST(OffsetArc1, HeightsHaveToBeExactlyEqualForThat) {
  // 1e-12 is a direction: y = 5 / sqrt(1e24 + 1) and x = 1e12 times that.
  const Offsets up = Offset(5, 0, 0, -1, 1e-12);
  EXPECT_NEAR(up.first[0], -5, 1e-14);
  EXPECT_NEAR(up.first[1], 5e-12, 1e-24);
  EXPECT_NEAR(up.result, 5, 1e-12);
}

TEST(OffsetArc1, ANegativeDistanceSwapsThePoints) {
  ExpectOffsets(Offset(-5, 0, 0, 6, 8), -3, -4, 3, 4, -50);
  ExpectOffsets(Offset(-5, 1, 2, 3, 2), -4, 2, 6, 2, -10);
}

TEST(OffsetArc1, EqualPointsCountAsLevel) { ExpectOffsets(Offset(5, 1, 2, 1, 2), 6, 2, -4, 2, 0); }

TEST(Detpnt, IsTrueWhereBothDistancesMatch) {
  EXPECT_EQ(Detpnt(1, 1, 4, 5, 5, 1, 3, 2), 1);
  EXPECT_EQ(Detpnt(1, 1, 4, 5, 5, 1, 3, 2.5), 0) << "second";
  EXPECT_EQ(Detpnt(1, 1, 4, 5, 4.5, 1, 3, 2), 0) << "first";
  EXPECT_EQ(Detpnt(1, 1, 4, 5, 4.5, 1, 3, 2.5), 0);
}

TEST(Detpnt, LimitIs0Point0001Inclusive) {
  EXPECT_EQ(Detpnt(0, 0, 0.0001, 0, 0, 0, 0.0001, 0), 1);
  EXPECT_EQ(Detpnt(0, 0, 0.00010001, 0, 0, 0, 0.0001, 0), 0);
  EXPECT_EQ(Detpnt(0, 0, 0.0001, 0, 0, 0, 0.00010001, 0), 0);
  EXPECT_EQ(Detpnt(0, 0, 3, 4, 5.00009, 5, 0, 4.99991), 1) << "either sign";
  EXPECT_EQ(Detpnt(0, 0, 3, 4, 5.00011, 5, 0, 5), 0);
  EXPECT_EQ(Detpnt(0, 0, 3, 4, 5, 5, 0, 4.99989), 0);
}

TEST(Detpnt, IsFalseForNaN) {
  for (std::size_t i = 0; i < 8; ++i) {
    std::array<double, 8> v{1, 1, 4, 5, 5, 1, 3, 2};
    v[i] = kNaN;
    EXPECT_EQ(Detpnt(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]), 0) << i;
  }
}

}  // namespace
