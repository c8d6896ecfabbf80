#include "drawing/PlaneMap.h"

#include <gtest/gtest.h>

#include <cmath>

namespace drawing {
namespace {

TEST(DirectionOf, IsExactAtRightAngles) {
  const double expected[4][2] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  for (int i = -8; i < 8; ++i) {
    const PlaneVector direction = DirectionOf(90.0 * i);
    EXPECT_EQ(direction.x, expected[(i + 8) % 4][0]) << i;
    EXPECT_EQ(direction.y, expected[(i + 8) % 4][1]) << i;
  }
}

TEST(Composed, MapsFirstByTheInnerMap) {
  PlaneMap moved;
  moved.x0 = 3.0;
  PlaneMap doubled;
  doubled.xx = doubled.yy = 2.0;
  const PlaneVector p = Composed(doubled, moved).Place({1.0, 5.0});
  EXPECT_EQ(p.x, 8.0);  // 2 (1 + 3)
  EXPECT_EQ(p.y, 10.0);
  EXPECT_EQ(Composed(moved, doubled).Place({1.0, 5.0}).x, 5.0);  // 2 * 1 + 3
}

TEST(SeenFromBelow, LeavesZeroWithoutSign) {
  EXPECT_FALSE(std::signbit(SeenFromBelow().Place({0.0, 1.0}).x));
  EXPECT_TRUE(SeenFromBelow().Mirrors());
  EXPECT_FALSE(PlaneMap().Mirrors());
}

TEST(IsSimilarity, HoldsForTurnedScaledAndMirroredMapsUpToABillionth) {
  PlaneMap map{3.0, -4.0, 4.0, 3.0, 9.0, 9.0};
  EXPECT_TRUE(map.IsSimilarity());
  EXPECT_TRUE(Composed(map, SeenFromBelow()).IsSimilarity());
  map.xx = 3.0 * (1.0 + 5.0e-10);
  EXPECT_TRUE(map.IsSimilarity());
  map.xx = 3.0 * (1.0 + 5.0e-9);
  EXPECT_FALSE(map.IsSimilarity());
}

TEST(LargestStretch, IsTheLargerSingularValue) {
  EXPECT_EQ(PlaneMap().LargestStretch(), 1.0);
  EXPECT_EQ(SeenFromBelow().LargestStretch(), 1.0);
  EXPECT_EQ((PlaneMap{0.0, -2.0, 5.0, 0.0, 0.0, 0.0}).LargestStretch(), 5.0);
  // The shear x + y, y: the eigenvalues of its square are (3 +- sqrt 5) / 2.
  EXPECT_NEAR((PlaneMap{1.0, 1.0, 0.0, 1.0, 0.0, 0.0}).LargestStretch(),
              std::sqrt((3.0 + std::sqrt(5.0)) / 2.0), 1.0e-15);
}

TEST(AxesOf, AreAtRightAnglesAndGiveTheSameEllipse) {
  const PlaneVector u{3.0, 1.0};
  const PlaneVector v{-1.0, 2.0};
  const EllipseAxes axes = AxesOf(u, v);
  EXPECT_NEAR(axes.first.x * axes.second.x + axes.first.y * axes.second.y, 0.0, 1.0e-14);
  for (double t = 0.0; t < 6.3; t += 0.7) {
    const double c = std::cos(t - axes.shift);
    const double s = std::sin(t - axes.shift);
    EXPECT_NEAR(c * axes.first.x + s * axes.second.x, std::cos(t) * u.x + std::sin(t) * v.x, 1e-14);
    EXPECT_NEAR(c * axes.first.y + s * axes.second.y, std::cos(t) * u.y + std::sin(t) * v.y, 1e-14);
  }
}

TEST(AxesOf, KeepsHalfDiametersAtRightAngles) {
  const EllipseAxes axes = AxesOf({1.0, 0.0}, {0.0, 7.0});
  EXPECT_EQ(axes.shift, 0.0);
  EXPECT_EQ(axes.first.x, 1.0);
  EXPECT_EQ(axes.second.y, 7.0);
}

}  // namespace
}  // namespace drawing
