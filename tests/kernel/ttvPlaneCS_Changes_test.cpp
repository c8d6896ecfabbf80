// The operations that move a plane with its coordinate system, and those that compare two of them.
#include <KTRCL_Geometry/kernel/ttvPlaneCS.h>

#include "support/Build.h"
#include "support/KernelArrays.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::Frame;
using support::kGlobalAxes;
using support::kNaN;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kOrigin(1, 2, 3);
constexpr Frame kTurned({0, 1, 0}, {0, 0, 1}, {1, 0, 0});

// The plane x = 1 with X and Y along the global Y and Z.
ttvPlaneCS Upright() { return {0, kOrigin, kTurned}; }

// A plane through the global origin whose normal leaves Z by an angle towards X.
ttvPlaneCS Leaning(double degrees) {
  const double radians = degrees * support::kPi / 180.0;
  const Vec x(std::cos(radians), 0, -std::sin(radians));
  return {0, kO, x, Vec(0, 1, 0), 0};
}

TEST(TtvPlaneCSChangeXDir, TurnsXToThePointInTheSamePlane) {
  ttvPlaneCS cs = Upright();
  cs.Change_x_dir(kOrigin + Vec(50, 0, 4));
  EXPECT_TRUE(cs.Valid);
  EXPECT_POINT_EQ(Vec(cs.Origin), kOrigin);
  EXPECT_POINT_NEAR(Vec(cs.XPoint), kOrigin + Vec(0, 0, 4), 1e-15);
  EXPECT_POINT_NEAR(Vec(cs.YPoint), kOrigin + Vec(0, -4, 0), 1e-15);
  EXPECT_POINT_NEAR(Frame(cs.Frame), Frame({0, 0, 1}, {0, -1, 0}, {1, 0, 0}), 1e-15);
  EXPECT_POINT_NEAR(Frame(cs.Inverse), support::Transposed(Frame(cs.Frame)), 1e-15);
}

TEST(TtvPlaneCSChangeXDir, LeavesTheUnitPointsAndTheZPointOld) {
  ttvPlaneCS cs = Upright();
  cs.Change_x_dir(kOrigin + Vec(0, 0, 4));
  EXPECT_POINT_EQ(Vec(cs.UnitX), kOrigin + Vec(0, 1, 0));
  EXPECT_POINT_EQ(Vec(cs.UnitY), kOrigin + Vec(0, 0, 1));
  EXPECT_POINT_EQ(Vec(cs.UnitZ), kOrigin + Vec(1, 0, 0));
  EXPECT_POINT_EQ(Vec(cs.ZPoint), kOrigin + Vec(1, 0, 0));
}

TEST(TtvPlaneCSChangeXDir, AsksForAPointFartherThan0Point0001InThePlane) {
  ttvPlaneCS cs(0, kO, kGlobalAxes);
  cs.Change_x_dir(Vec(0, 0.0001, 900));
  EXPECT_POINT_EQ(Vec(cs.XPoint), Vec(1, 0, 0));
  EXPECT_POINT_EQ(Vec(cs.YPoint), Vec(0, 1, 0));
  EXPECT_POINT_EQ(Frame(cs.Frame), kGlobalAxes);
  cs.Change_x_dir(Vec(0, kNaN, 0));
  EXPECT_POINT_EQ(Frame(cs.Frame), kGlobalAxes);
  const double above = std::nextafter(0.0001, 1.0);
  cs.Change_x_dir(Vec(0, above, 900));
  EXPECT_POINT_EQ(Vec(cs.XPoint), Vec(0, above, 0));
  EXPECT_POINT_NEAR(Frame(cs.Frame).Row(0), Vec(0, 1, 0), 1e-15);
}

TEST(TtvPlaneCSChangeXDir, TakesAFieldOfTheObject) {
  ttvPlaneCS cs = Upright();
  cs.Change_x_dir(cs.YPoint);
  EXPECT_POINT_NEAR(Vec(cs.XPoint), kOrigin + Vec(0, 0, 1), 1e-15);
  EXPECT_POINT_NEAR(Frame(cs.Frame), Frame({0, 0, 1}, {0, -1, 0}, {1, 0, 0}), 1e-15);
}

TEST(TtvPlaneCSResetup, IsTheConstructorOnALivingObject) {
  ttvPlaneCS cs(7, kOrigin, kTurned);
  EXPECT_TRUE(cs.Resetup(Vec(5, 5, 5), Vec(8, 5, 5), Vec(5, 9, 5), 0));
  EXPECT_TRUE(cs.Valid);
  EXPECT_EQ(cs.Unit, 7);
  EXPECT_POINT_EQ(Vec(cs.Origin), Vec(5, 5, 5));
  EXPECT_POINT_EQ(Vec(cs.XPoint), Vec(8, 5, 5));
  EXPECT_POINT_EQ(Vec(cs.YPoint), Vec(5, 9, 5));
  EXPECT_POINT_EQ(Vec(cs.ZPoint), Vec(5, 5, 6));
  EXPECT_POINT_EQ(Vec(cs.UnitX), Vec(6, 5, 5));
  EXPECT_POINT_EQ(Frame(cs.Frame), kGlobalAxes);
  EXPECT_POINT_EQ(Frame(cs.Inverse), kGlobalAxes);
}

TEST(TtvPlaneCSResetup, TakesTheNormalAsYInModeMinus3) {
  ttvPlaneCS cs(0);
  Vec y(5, 9, 5);
  EXPECT_TRUE(cs.Resetup(Vec(5, 5, 5), Vec(8, 5, 5), y, -3));
  EXPECT_POINT_EQ(Vec(cs.YPoint), Vec(5, 5, 6));
  EXPECT_POINT_EQ(y, Vec(5, 9, 5));
  EXPECT_POINT_EQ(Frame(cs.Frame), Frame({1, 0, 0}, {0, 0, 1}, {0, -1, 0}));
}

TEST(TtvPlaneCSResetup, ClearsTheFlagForPointsInLineAndKeepsTheFrame) {
  ttvPlaneCS cs = Upright();
  EXPECT_FALSE(cs.Resetup(Vec(5, 5, 5), Vec(8, 5, 5), Vec(9, 5, 5), 0));
  EXPECT_FALSE(cs.Valid);
  EXPECT_POINT_EQ(Vec(cs.Origin), Vec(5, 5, 5));
  EXPECT_POINT_EQ(Vec(cs.XPoint), Vec(8, 5, 5));
  EXPECT_POINT_EQ(Vec(cs.YPoint), Vec(9, 5, 5));
  EXPECT_POINT_EQ(Vec(cs.ZPoint), kOrigin + Vec(1, 0, 0));
  EXPECT_POINT_EQ(Vec(cs.UnitX), Vec(1, 0, 0));
  EXPECT_POINT_EQ(Vec(cs.UnitY), Vec(0, 1, 0));
  EXPECT_POINT_EQ(Vec(cs.UnitZ), Vec(0, 0, 1));
  EXPECT_POINT_EQ(Frame(cs.Frame), kTurned);
  EXPECT_POINT_EQ(Frame(cs.Inverse), support::Transposed(kTurned));
}

TEST(TtvPlaneCSResetup, TakesFieldsOfTheObject) {
  ttvPlaneCS cs = Upright();
  EXPECT_TRUE(cs.Resetup(cs.XPoint, cs.YPoint, cs.Origin, 0));
  EXPECT_POINT_EQ(Vec(cs.Origin), kOrigin + Vec(0, 1, 0));
  EXPECT_POINT_EQ(Vec(cs.XPoint), kOrigin + Vec(0, 0, 1));
  EXPECT_POINT_EQ(Vec(cs.YPoint), kOrigin);
}

TEST(TtvPlaneCSResetupToNewX, MovesTheYPointInLocalYWhereXRunsAcross) {
  ttvPlaneCS cs = Upright();
  cs.Resetup_to_new_X(kOrigin + Vec(0, 5, 5), kOrigin + Vec(0, 8, 5));
  EXPECT_TRUE(cs.Valid);
  EXPECT_POINT_EQ(Vec(cs.Origin), Vec(1, 7, 8));
  EXPECT_POINT_EQ(Vec(cs.XPoint), Vec(1, 10, 8));
  EXPECT_POINT_EQ(Vec(cs.YPoint), Vec(1, 10, 18));
  EXPECT_POINT_EQ(Frame(cs.Frame), kTurned);
  EXPECT_POINT_EQ(Vec(cs.UnitX), Vec(1, 8, 8));
}

// The new X runs along the old Y, so that the y point goes along the old X; Z turns over.
TEST(TtvPlaneCSResetupToNewX, MovesTheYPointInLocalXWhereXRunsAlongY) {
  ttvPlaneCS cs = Upright();
  cs.Resetup_to_new_X(kOrigin, kOrigin + Vec(0, 0, 3));
  EXPECT_POINT_EQ(Vec(cs.YPoint), Vec(1, 12, 6));
  EXPECT_POINT_EQ(Frame(cs.Frame), Frame({0, 0, 1}, {0, 1, 0}, {-1, 0, 0}));
  EXPECT_POINT_EQ(Vec(cs.UnitZ), kOrigin + Vec(-1, 0, 0));
  ttvPlaneCS away = Upright();
  away.Resetup_to_new_X(kOrigin + Vec(0, 5, 5), kOrigin + Vec(0, 5, 9));
  EXPECT_POINT_EQ(Vec(away.YPoint), Vec(1, 17, 12));
}

TEST(TtvPlaneCSResetupToNewX, ComparesLocalXStrictlyWith0Point0001) {
  ttvPlaneCS cs(0, kO, kGlobalAxes);
  cs.Resetup_to_new_X(kO, Vec(std::nextafter(0.0001, 0.0), 3, 0));
  EXPECT_POINT_NEAR(Vec(cs.YPoint), Vec(10.0001, 3, 0), 1e-14);
  ttvPlaneCS other(0, kO, kGlobalAxes);
  other.Resetup_to_new_X(kO, Vec(0.0001, 3, 0));
  EXPECT_POINT_EQ(Vec(other.YPoint), Vec(0.0001, 13, 0));
  ttvPlaneCS back(0, kO, kGlobalAxes);
  back.Resetup_to_new_X(kO, Vec(-0.0001, 3, 0));
  EXPECT_POINT_EQ(Vec(back.YPoint), Vec(-0.0001, 13, 0));
}

TEST(TtvPlaneCSResetupToNewX, KeepsTheHeightOfXInTheYPoint) {
  ttvPlaneCS cs = Upright();
  cs.Resetup_to_new_X(kOrigin + Vec(9, 0, 0), kOrigin + Vec(9, 5, 0));
  EXPECT_POINT_EQ(Vec(cs.Origin), Vec(10, 2, 3));
  EXPECT_POINT_EQ(Vec(cs.YPoint), Vec(10, 7, 13));
}

TEST(TtvPlaneCSResetupToNewX, TakesFieldsOfTheObject) {
  ttvPlaneCS cs = Upright();
  cs.Resetup_to_new_X(cs.YPoint, cs.Origin);
  EXPECT_POINT_EQ(Vec(cs.Origin), kOrigin + Vec(0, 0, 1));
  EXPECT_POINT_EQ(Vec(cs.XPoint), kOrigin);
  EXPECT_POINT_EQ(Vec(cs.YPoint), kOrigin + Vec(0, 10, 0));
}

TEST(TtvPlaneCSResetupToNewX, ClearsTheFlagWhereOriginAndXAreEqual) {
  ttvPlaneCS cs = Upright();
  cs.Resetup_to_new_X(kOrigin, kOrigin);
  EXPECT_FALSE(cs.Valid);
}

TEST(TtvPlaneCSDefineSameCS, ComparesOriginsAndRowsByPntcmp) {
  const ttvPlaneCS cs(0, kO, kGlobalAxes);
  ttvPlaneCS moved(1, Vec(0.0001, -0.0001, 0.0001), kGlobalAxes);
  EXPECT_TRUE(cs.Define_same_CS(moved));
  ttvPlaneCS farther(0, Vec(0.00011, 0, 0), kGlobalAxes);
  EXPECT_FALSE(cs.Define_same_CS(farther));
  for (int row = 0; row < 3; ++row) {
    Frame within = kGlobalAxes;
    within.rows[row][(row + 1) % 3] = 0.0001;
    ttvPlaneCS same(0, kO, within);
    EXPECT_TRUE(cs.Define_same_CS(same)) << row;
    Frame beyond = kGlobalAxes;
    beyond.rows[row][(row + 1) % 3] = 0.00011;
    ttvPlaneCS other(0, kO, beyond);
    EXPECT_FALSE(cs.Define_same_CS(other)) << row;
  }
}

TEST(TtvPlaneCSDefineSameCS, LooksAtNothingElse) {
  ttvPlaneCS cs = Upright();
  ttvPlaneCS other = Upright();
  other.Valid = false;
  other.Unit = 1;
  other.Inverse[0][0] = 7;
  other.XPoint[0] = other.YPoint[0] = other.ZPoint[0] = 7;
  other.UnitX[0] = other.UnitY[0] = other.UnitZ[0] = 7;
  EXPECT_TRUE(cs.Define_same_CS(other));
  EXPECT_TRUE(cs.Define_same_CS(cs));
}

TEST(TtvPlaneCSParallel, HoldsForTheSameNormalAndNotForOppositeOnes) {
  const ttvPlaneCS cs = Leaning(0);
  ttvPlaneCS shifted(0, Vec(7, 8, 9), Vec(7, 9, 9), Vec(0, 8, 9), 0);  // turned about Z
  EXPECT_TRUE(cs.Parallel(shifted));
  ttvPlaneCS opposite = Leaning(180);
  EXPECT_FALSE(cs.Parallel(opposite));
  ttvPlaneCS within = Leaning(0.0057);  // 0.0000995 radians
  EXPECT_TRUE(cs.Parallel(within));
  ttvPlaneCS beyond = Leaning(0.0058);  // 0.0001012 radians
  EXPECT_FALSE(cs.Parallel(beyond));
}

TEST(TtvPlaneCSParallel, GoesByTheUnitPoints) {
  const ttvPlaneCS cs = Leaning(0);
  const ttvPlaneCS unset(0);
  ttvPlaneCS other = Leaning(90);
  EXPECT_FALSE(cs.Parallel(other));
  for (int i = 0; i < 3; ++i) {
    other.UnitZ[i] = cs.UnitZ[i] * 5;  // brought to length 1 before it is compared
  }
  EXPECT_TRUE(cs.Parallel(other));
  EXPECT_FALSE(unset.Parallel(other));
}

TEST(TtvPlaneCSPerpendicular, HoldsFromARightAngleOn) {
  ttvPlaneCS cs = Leaning(0);
  ttvPlaneCS right = Leaning(90);
  EXPECT_TRUE(cs.Perpendicular(right));
  ttvPlaneCS sharp = Leaning(80);
  EXPECT_FALSE(cs.Perpendicular(sharp));
  EXPECT_FALSE(cs.Perpendicular(cs));
}

TEST(TtvPlaneCSPerpendicular, HoldsForNormalsThatForm170Degrees) {
  const ttvPlaneCS cs = Leaning(0);
  ttvPlaneCS blunt = Leaning(170);
  EXPECT_TRUE(cs.Perpendicular(blunt));
  ttvPlaneCS opposite = Leaning(180);
  EXPECT_TRUE(cs.Perpendicular(opposite));
}

// The scalar product is the z of the other's unit point.
TEST(TtvPlaneCSPerpendicular, AsksForAProductStrictlyBelow0Point0001) {
  ttvPlaneCS cs(0, kO, kGlobalAxes);
  ttvPlaneCS other(0, kO, kGlobalAxes);
  other.UnitZ[2] = 0.0001;  // too short to be brought to length 1
  EXPECT_FALSE(cs.Perpendicular(other));
  other.UnitZ[2] = std::nextafter(0.0001, 0.0);
  EXPECT_TRUE(cs.Perpendicular(other));
  other.UnitZ[2] = kNaN;
  EXPECT_FALSE(cs.Perpendicular(other));
}

}  // namespace
