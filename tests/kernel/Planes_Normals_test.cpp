// The routines that make up a plane from its normal: three points, or a frame.
#include <KTRCL_Geometry/kernel/Frames.h>

#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::Frame;
using support::kNaN;
using support::kUnwritten;
using support::kUnwrittenFrame;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kP(1, 2, 3);

Vec Unit(const Vec& v) { return 1 / support::Length(v) * v; }

Frame ByNormal(const Vec& normal, const Vec& p, int unit = 0) {
  Frame frame = kUnwrittenFrame;
  EXPECT_EQ(Plane_by_a_Normal_Point(unit, normal, p, frame), 1);
  return frame;
}

// Rows that are told by ways of any length.
Frame OfWays(const Vec& x, const Vec& y, const Vec& z) { return {Unit(x), Unit(y), Unit(z)}; }

// A = p + (10, 0, 0), B = p + (0, 0, 10), and X x (B - p) = (0, -1, 0).
TEST(PlaneByANormalPoint, AcrossYGoesAlongXThenZ) {
  const Frame expected({1, 0, 0}, {0, 0, 1}, {0, -1, 0});
  EXPECT_POINT_EQ(ByNormal(Vec(0, 1, 0), kP), expected);
  EXPECT_POINT_EQ(ByNormal(Vec(0, -7, 0), kP), expected);
}

// A = p + (0, 10, 0), B = p + (0, 0, 10).
TEST(PlaneByANormalPoint, AcrossXGoesAlongYThenZ) {
  const Frame expected({0, 1, 0}, {0, 0, 1}, {1, 0, 0});
  EXPECT_POINT_EQ(ByNormal(Vec(1, 0, 0), kP), expected);
  EXPECT_POINT_EQ(ByNormal(Vec(-7, 0, 0), kP), expected);
}

// A = p + (0, 10, 0), B = p + (10, 0, 0).
TEST(PlaneByANormalPoint, AcrossZGoesAlongYThenX) {
  const Frame expected({0, 1, 0}, {1, 0, 0}, {0, 0, -1});
  EXPECT_POINT_EQ(ByNormal(Vec(0, 0, 1), kP), expected);
  EXPECT_POINT_EQ(ByNormal(Vec(0, 0, -7), kP), expected);
}

TEST(PlaneByANormalPoint, OfAZeroNormalIsTheFrameAcrossY) {
  const Frame expected({1, 0, 0}, {0, 0, 1}, {0, -1, 0});
  EXPECT_POINT_EQ(ByNormal(kO, kP), expected);
  EXPECT_POINT_EQ(ByNormal(Vec(0.0001, -0.0001, 0.0001), kP), expected);
}

// k = 3, A = (0, 3, 3), B = (3, 0, 13): the ways are (-1, 1, 0) and (2, -2, 10).
TEST(PlaneByANormalPoint, AcrossXAndYGoesToThePointOnTheYAxisBesideIt) {
  const Frame expected = OfWays(Vec(-1, 1, 0), Vec(0, 0, 1), Vec(1, 1, 0));
  EXPECT_POINT_NEAR(ByNormal(Vec(1, 1, 0), kP), expected, 1e-15);
  EXPECT_POINT_NEAR(ByNormal(Vec(-2, -2, 0), kP), expected, 1e-15);
  EXPECT_POINT_NEAR(ByNormal(Vec(1, 1, 0), Vec(1, 2, 30)), expected, 1e-15);
}

// k = 5, A = (1, 5, 0): the way is (0, 3, -3), and (0, 1, 1) x (0, 1, -1) points along -X.
TEST(PlaneByANormalPoint, AcrossYAndZTurnsTheSecondWayByTheVectorProduct) {
  EXPECT_POINT_NEAR(ByNormal(Vec(0, 1, 1), kP), OfWays(Vec(0, 1, -1), Vec(-1, 0, 0), Vec(0, 1, 1)),
                    1e-15);
  EXPECT_POINT_NEAR(ByNormal(Vec(0, -3, -3), kP),
                    OfWays(Vec(0, 1, -1), Vec(1, 0, 0), Vec(0, -1, -1)), 1e-15);
}

// k = 4, A = (0, 2, 4): the way is (-1, 0, 1), and (1, 0, 1) x (-1, 0, 1) points along -Y.
TEST(PlaneByANormalPoint, AcrossXAndZTurnsTheSecondWayByTheVectorProduct) {
  EXPECT_POINT_NEAR(ByNormal(Vec(1, 0, 1), kP), OfWays(Vec(-1, 0, 1), Vec(0, -1, 0), Vec(1, 0, 1)),
                    1e-15);
  EXPECT_POINT_NEAR(ByNormal(Vec(-1, 0, -1), kP),
                    OfWays(Vec(-1, 0, 1), Vec(0, 1, 0), Vec(-1, 0, -1)), 1e-15);
}

// k = 6, A = (0, 0, 6), B = (0, 6, 0): the ways are (-1, -2, 3) and (-1, 4, -3), whose product is
// (-6, -6, -6), and (-1, -1, -1) x (-1, -2, 3) = (-5, 4, 1).
TEST(PlaneByANormalPoint, AcrossAllThreeGoesToTheZAxisAndMayOpposeTheNormal) {
  const Frame expected = OfWays(Vec(-1, -2, 3), Vec(-5, 4, 1), Vec(-1, -1, -1));
  EXPECT_POINT_NEAR(ByNormal(Vec(1, 1, 1), kP), expected, 1e-15);
  EXPECT_POINT_NEAR(ByNormal(Vec(-1, -1, -1), kP), expected, 1e-15);
}

// p = (0, 3, 3) lies between A = (0, 0, 6) and B = (0, 6, 0); the way to C = (6, 0, 0) is
// (6, -3, -3).
TEST(PlaneByANormalPoint, TakesTheThirdPointWhereTheFirstTwoAreInLineWithP) {
  EXPECT_POINT_NEAR(ByNormal(Vec(1, 1, 1), Vec(0, 3, 3)),
                    OfWays(Vec(0, -1, 1), Vec(2, -1, -1), Vec(1, 1, 1)), 1e-15);
  // k = 12, p = (0, 2, 1) between (0, 0, 2) and (0, 4, 0); the way to (6, 0, 0) is (6, -2, -1).
  EXPECT_POINT_NEAR(ByNormal(Vec(2, 3, 6), Vec(0, 2, 1)),
                    OfWays(Vec(0, -2, 1), Vec(15, -2, -4), Vec(2, 3, 6)), 1e-15);
}

// p = A = (0, 0, 6): the ways to B and C are (0, 6, -6) and (6, 0, -6).
TEST(PlaneByANormalPoint, TakesTheLastTwoPointsWherePIsTheFirst) {
  EXPECT_POINT_NEAR(ByNormal(Vec(1, 1, 1), Vec(0, 0, 6)),
                    OfWays(Vec(0, 1, -1), Vec(2, -1, -1), Vec(-1, -1, -1)), 1e-15);
}

TEST(PlaneByANormalPoint, Gives0WhereNoTwoPointsAreUsable) {
  Frame frame = kUnwrittenFrame;
  EXPECT_EQ(Plane_by_a_Normal_Point(0, Vec(1, 1, 1), Vec(1, -1, 0), frame), 0);  // A = B = C
  EXPECT_EQ(Plane_by_a_Normal_Point(0, Vec(1, 1, 0), Vec(0, 3, 3), frame), 0);   // p = A
  EXPECT_EQ(Plane_by_a_Normal_Point(0, Vec(0, 1, 1), Vec(1, 5, 0), frame), 0);   // p = A
  EXPECT_EQ(Plane_by_a_Normal_Point(0, Vec(1, 0, 1), Vec(0, 2, 4), frame), 0);   // p = A
  EXPECT_POINT_EQ(frame, kUnwrittenFrame);
}

TEST(PlaneByANormalPoint, CountsAComponentAsZeroUpTo0Point0001) {
  EXPECT_POINT_EQ(ByNormal(Vec(0.0001, 1, -0.0001), kP), ByNormal(Vec(0, 1, 0), kP));
  EXPECT_POINT_EQ(ByNormal(Vec(1, 0.0001, 0.0001), kP), ByNormal(Vec(1, 0, 0), kP));
  EXPECT_POINT_EQ(ByNormal(Vec(-0.0001, 0.0001, 1), kP), ByNormal(Vec(0, 0, 1), kP));
}

// Across X and Y the way goes to x = 0, across X, Y and Z to (0, 0, k / nz).
TEST(PlaneByANormalPoint, CountsAComponentAbove0Point0001) {
  const double above = std::nextafter(0.0001, 1.0);
  EXPECT_POINT_NEAR(ByNormal(Vec(above, 1, 0), kP).Row(0), Unit(Vec(-1, above, 0)), 1e-14);
  EXPECT_POINT_NEAR(ByNormal(Vec(-above, 1, 0), kP).Row(0), Unit(Vec(-1, -above, 0)), 1e-14);
  const double k = 1 + 2 + 3 * above;
  EXPECT_POINT_NEAR(ByNormal(Vec(1, 1, above), kP).Row(0), Unit(Vec(-1, -2, k / above - 3)), 1e-14);
}

// Off the line from A to B towards C by 0.00002, a sum of 0.00004: in line in millimetres, where C
// turns Z over.
TEST(PlaneByANormalPoint, HandsTheUnitFlagToInline) {
  const Vec p = Vec(0, 3, 3) + 0.00002 * Vec(2, -1, -1);
  const auto z = [&p](int unit) { return ByNormal(Vec(1, 1, 1), p, unit).Row(2)[0] > 0; };
  support::ExpectOnly1IsInches(z, true, false);
}

TEST(PlaneByANormalPoint, StandsAcrossTheNormal) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const auto component = [&random] {
      return random.Int(0, 2) == 0 ? 0.0 : random.Between(0.5, 3) * (random.Bool() ? 1 : -1);
    };
    const double x = component();
    const double y = component();
    const Vec normal(x, y, component());
    const Vec p(random.Between(1, 50), random.Between(51, 90), random.Between(91, 200));
    Frame frame = kUnwrittenFrame;
    if (support::Length(normal) == 0) {
      continue;
    }
    ASSERT_EQ(Plane_by_a_Normal_Point(0, normal, p, frame), 1);
    EXPECT_NEAR(std::fabs(support::Dot(frame.Row(2), Unit(normal))), 1.0, 1e-9);
    EXPECT_POINT_NEAR(support::Cross(frame.Row(0), frame.Row(1)), frame.Row(2), 1e-9);
  }
}

// A component that is no number is not above 0.0001, so that such a normal counts as zero.
TEST(PlaneByANormalPoint, TakesNaN) {
  EXPECT_POINT_EQ(ByNormal(Vec(kNaN, kNaN, kNaN), kP), ByNormal(kO, kP));
  EXPECT_TRUE(std::isnan(ByNormal(Vec(1, 1, 1), Vec(kNaN, 0, 0)).Row(0)[0]));
}

struct ThreePoints {
  Vec o1 = kUnwritten;
  Vec o2 = kUnwritten;
  Vec o3 = kUnwritten;
};

ThreePoints Across(const Vec& a, const Vec& b) {
  ThreePoints points;
  EXPECT_EQ(Perpendicular_plane_of_line(a, b, points.o1, points.o2, points.o3), 1);
  return points;
}

// The direction is (2, 1, -2) / 3.
TEST(PerpendicularPlaneOfLine, SolvesXWhereTheDirectionHasOne) {
  const ThreePoints points = Across(kP, Vec(3, 3, 1));
  EXPECT_POINT_EQ(points.o1, kP);
  EXPECT_POINT_NEAR(points.o2, Vec(1 - 50, 102, 3), 1e-12);
  EXPECT_POINT_NEAR(points.o3, Vec(1 + 100, 2, 103), 1e-12);
}

// The direction is (0, 3, 4) / 5.
TEST(PerpendicularPlaneOfLine, SolvesYWhereTheDirectionHasNoX) {
  const ThreePoints points = Across(kP, Vec(1, 5, 7));
  EXPECT_POINT_EQ(points.o1, kP);
  EXPECT_POINT_NEAR(points.o2, Vec(101, 2, 3), 1e-12);
  EXPECT_POINT_NEAR(points.o3, Vec(1, 2 - 400.0 / 3, 103), 1e-12);
}

TEST(PerpendicularPlaneOfLine, PutsTheZOfTheFirstPointInXWhereTheDirectionHasNothingButZ) {
  for (const double z : {8.0, -8.0, 3.00005}) {
    const ThreePoints points = Across(kP, Vec(1, 2, z));
    EXPECT_POINT_EQ(points.o1, kP);
    EXPECT_POINT_NEAR(points.o2, Vec(3, 102, 3), 1e-12);
    EXPECT_POINT_NEAR(points.o3, Vec(103, 2, 3), 1e-12);
  }
}

TEST(PerpendicularPlaneOfLine, ComparesComponentsWithExactlyZero) {
  const ThreePoints byX = Across(kO, Vec(1e-12, 1, 0));
  EXPECT_NEAR(byX.o2[0], -1e14, 1e2);
  EXPECT_EQ(byX.o2[1], 100.0);
  const ThreePoints byY = Across(kO, Vec(0, 1e-12, 1));
  EXPECT_EQ(byY.o3[2], 100.0);
  EXPECT_NEAR(byY.o3[1], -1e14, 1e2);
}

TEST(PerpendicularPlaneOfLine, Gives0ForADirectionOfZero) {
  ThreePoints points;
  EXPECT_EQ(Perpendicular_plane_of_line(kP, kP, points.o1, points.o2, points.o3), 0);
  EXPECT_POINT_EQ(points.o1, kUnwritten);
  EXPECT_POINT_EQ(points.o2, kUnwritten);
  EXPECT_POINT_EQ(points.o3, kUnwritten);
}

TEST(PerpendicularPlaneOfLine, GivesPointsAcrossTheLine) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const Vec a(random.Between(-9, 9), random.Between(-9, 9), random.Between(-9, 9));
    const Vec way(random.Between(1, 9), random.Between(-9, 9), random.Between(-9, 9));
    const ThreePoints points = Across(a, a + way);
    // Points up to 900 away, over a way of up to 16.
    EXPECT_NEAR(support::Dot(points.o2 - a, way), 0.0, 1e-10);
    EXPECT_NEAR(support::Dot(points.o3 - a, way), 0.0, 1e-10);
  }
}

TEST(PerpendicularPlaneOfLine, MayWriteToItsInputs) {
  Vec a = kP;
  Vec b(3, 3, 1);
  const ThreePoints apart = Across(a, b);
  Vec third = kUnwritten;
  EXPECT_EQ(Perpendicular_plane_of_line(a, b, b, a, third), 1);
  EXPECT_POINT_EQ(b, apart.o1);
  EXPECT_POINT_EQ(a, apart.o2);
  EXPECT_POINT_EQ(third, apart.o3);
  a = kP;
  b = Vec(3, 3, 1);
  EXPECT_EQ(Perpendicular_plane_of_line(a, b, a, third, b), 1);
  EXPECT_POINT_EQ(a, apart.o1);
  EXPECT_POINT_EQ(third, apart.o2);
  EXPECT_POINT_EQ(b, apart.o3);
}

}  // namespace
