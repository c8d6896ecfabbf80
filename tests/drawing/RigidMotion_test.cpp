#include "drawing/RigidMotion.h"

#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using drawing::FitRigidMotion;
using drawing::FitRobustly;
using drawing::LargestDeviation;
using drawing::RigidMotion;
using drawing::TurnAndShift;

constexpr double kPi = 3.141592653589793;

std::vector<GX2DPoint> Images(const RigidMotion& motion, const std::vector<GX2DPoint>& points) {
  std::vector<GX2DPoint> images;
  for (const GX2DPoint& p : points) images.push_back(motion.Apply(p));
  return images;
}

TEST(RigidMotion, TurnsAboutTheOriginAndThenShifts) {
  RigidMotion quarter;
  quarter.cosine = 0.0;
  quarter.sine = 1.0;
  quarter.shiftX = 10.0;
  quarter.shiftY = 20.0;
  // A quarter turn counter-clockwise takes (1, 0) to (0, 1).
  EXPECT_POINT_EQ(quarter.Apply({1.0, 0.0}), GX2DPoint(10.0, 21.0));
  EXPECT_POINT_EQ(quarter.Undo({10.0, 21.0}), GX2DPoint(1.0, 0.0));
}

TEST(RigidMotion, ByDefaultMovesNothing) {
  EXPECT_POINT_EQ(RigidMotion().Apply({3.0, -4.0}), GX2DPoint(3.0, -4.0));
  EXPECT_EQ(RigidMotion().AngleDegrees(), 0.0);
}

TEST(RigidMotion, TellsItsAngleInDegreesUpToHalfATurn) {
  EXPECT_NEAR(TurnAndShift(kPi / 6.0, {0.0, 0.0}, {0.0, 0.0}).AngleDegrees(), 30.0, 1.0e-12);
  EXPECT_NEAR(TurnAndShift(-kPi / 2.0, {0.0, 0.0}, {0.0, 0.0}).AngleDegrees(), -90.0, 1.0e-12);
  RigidMotion half;
  half.cosine = -1.0;
  half.sine = -0.0;
  EXPECT_EQ(half.AngleDegrees(), 180.0);
}

TEST(TurnAndShift, TakesOnePointToTheOther) {
  const RigidMotion motion = TurnAndShift(0.7, {3.0, 4.0}, {-1.0, 2.0});
  EXPECT_POINT_NEAR(motion.Apply({3.0, 4.0}), GX2DPoint(-1.0, 2.0), 1.0e-14);
  EXPECT_NEAR(motion.AngleDegrees(), 0.7 * 180.0 / kPi, 1.0e-12);
}

TEST(FitRigidMotion, FindsTheMotionThatMadeTheSecondRow) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const RigidMotion made =
        TurnAndShift(random.Between(-kPi, kPi), random.Point2D(100.0), random.Point2D(100.0));
    std::vector<GX2DPoint> from;
    for (int k = 0; k < 7; ++k) from.push_back(random.Point2D(50.0));
    const RigidMotion fitted = FitRigidMotion(from, Images(made, from));
    EXPECT_NEAR(fitted.cosine, made.cosine, 1.0e-12);
    EXPECT_NEAR(fitted.sine, made.sine, 1.0e-12);
    EXPECT_LT(LargestDeviation(fitted, from, Images(made, from)), 1.0e-10);
  }
}

TEST(FitRigidMotion, NeverMirrors) {
  // The best a proper motion can do with the mirror image of this triangle is far off.
  const std::vector<GX2DPoint> from = {{0.0, 0.0}, {4.0, 0.0}, {0.0, 2.0}};
  const std::vector<GX2DPoint> to = {{0.0, 0.0}, {-4.0, 0.0}, {0.0, 2.0}};
  const RigidMotion fitted = FitRigidMotion(from, to);
  EXPECT_NEAR(fitted.cosine * fitted.cosine + fitted.sine * fitted.sine, 1.0, 1.0e-15);
  EXPECT_GT(LargestDeviation(fitted, from, to), 1.0);
}

TEST(FitRigidMotion, HasTheLeastSumOfSquares) {
  // Two points 4 apart against two points 6 apart on the same line: both miss by 1.
  const std::vector<GX2DPoint> from = {{-2.0, 0.0}, {2.0, 0.0}};
  const std::vector<GX2DPoint> to = {{7.0, 5.0}, {13.0, 5.0}};
  const RigidMotion fitted = FitRigidMotion(from, to);
  EXPECT_POINT_NEAR(fitted.Apply(from[0]), GX2DPoint(8.0, 5.0), 1.0e-14);
  EXPECT_POINT_NEAR(fitted.Apply(from[1]), GX2DPoint(12.0, 5.0), 1.0e-14);
  EXPECT_NEAR(LargestDeviation(fitted, from, to), 1.0, 1.0e-14);
}

TEST(FitRigidMotion, FollowsTheWeights) {
  // With weights 3 and 1 the centres lie at -1 and 8.5 in x: shifted by 9.5.
  const std::vector<GX2DPoint> from = {{-2.0, 0.0}, {2.0, 0.0}};
  const std::vector<GX2DPoint> to = {{7.0, 5.0}, {13.0, 5.0}};
  const RigidMotion fitted = FitRigidMotion(from, to, {3.0, 1.0});
  EXPECT_POINT_NEAR(fitted.Apply(from[0]), GX2DPoint(7.5, 5.0), 1.0e-14);
}

TEST(FitRigidMotion, OnlyShiftsWhereTheRowsGiveNoDirection) {
  const RigidMotion point = FitRigidMotion({{1.0, 2.0}, {1.0, 2.0}}, {{5.0, 5.0}, {5.0, 5.0}});
  EXPECT_EQ(point.cosine, 1.0);
  EXPECT_EQ(point.sine, 0.0);
  EXPECT_POINT_EQ(point.Apply({1.0, 2.0}), GX2DPoint(5.0, 5.0));

  const RigidMotion unequal = FitRigidMotion({{0.0, 0.0}, {2.0, 0.0}}, {{5.0, 5.0}});
  EXPECT_POINT_EQ(unequal.Apply({1.0, 0.0}), GX2DPoint(5.0, 5.0));
  EXPECT_EQ(unequal.cosine, 1.0);

  const RigidMotion empty = FitRigidMotion({}, {});
  EXPECT_POINT_EQ(empty.Apply({1.0, 2.0}), GX2DPoint(1.0, 2.0));
}

TEST(FitRobustly, IsNotDrawnAwayByOneCornerThatDiffers) {
  std::vector<GX2DPoint> from = {{0, 0}, {100, 0}, {100, 60}, {50, 90}, {0, 60}, {20, 30}};
  std::vector<GX2DPoint> to = Images(TurnAndShift(0.3, {0.0, 0.0}, {7.0, 8.0}), from);
  to[3].Translate(0.6, 0.8);  // By 1 mm.
  std::vector<GX2DPoint> others = from;
  std::vector<GX2DPoint> theirs = to;
  others.erase(others.begin() + 3);
  theirs.erase(theirs.begin() + 3);
  EXPECT_LT(LargestDeviation(FitRobustly(from, to), others, theirs), 1.0e-3);
  EXPECT_GT(LargestDeviation(FitRigidMotion(from, to), others, theirs), 0.1);
}

TEST(LargestDeviation, IsTheLargestOfThePairs) {
  EXPECT_EQ(LargestDeviation({}, {{0, 0}, {1, 1}}, {{0, 0}, {4, 5}}), 5.0);
  EXPECT_EQ(LargestDeviation({}, {}, {}), 0.0);
}

TEST(LargestDeviation, IsNeverSmallForPointsThatAreNoNumbers) {
  EXPECT_EQ(LargestDeviation({}, {{std::nan(""), 0.0}}, {{0.0, 0.0}}), HUGE_VAL);
}

}  // namespace
