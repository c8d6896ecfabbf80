#include <KTRCL_Geometry/foundation/GXCoordSystem.h>

#include "support/Build.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

GXCoordSystem System(const GX3DPoint& origin, double angleX, double angleY, double angleZ) {
  GXCoordSystem system;
  system.Origin = origin;
  system.AngleX = angleX;
  system.AngleY = angleY;
  system.AngleZ = angleZ;
  return system;
}

GXCoordSystem Sample() { return System(support::Point(1, 2, 3), 10, 20, 30); }

void ExpectIs(const GXCoordSystem& system, const GX3DPoint& origin, double angleX, double angleY,
              double angleZ) {
  EXPECT_POINT_EQ(system.Origin, origin);
  EXPECT_EQ(system.AngleX, angleX);
  EXPECT_EQ(system.AngleY, angleY);
  EXPECT_EQ(system.AngleZ, angleZ);
}

TEST(GXCoordSystem, IsAllZeroByDefault) {
  ExpectIs(GXCoordSystem(), support::Point(0, 0, 0), 0, 0, 0);
}

TEST(GXCoordSystem, CopyAndAssignmentCopyTheFields) {
  const GXCoordSystem original = Sample();
  const GXCoordSystem copy(original);
  ExpectIs(copy, support::Point(1, 2, 3), 10, 20, 30);
  GXCoordSystem assigned;
  EXPECT_EQ(&(assigned = original), &assigned);
  ExpectIs(assigned, support::Point(1, 2, 3), 10, 20, 30);
}

TEST(GXCoordSystem, EqualityIsExactInEveryField) {
  EXPECT_TRUE(Sample() == Sample());
  EXPECT_FALSE(Sample() != Sample());
  const double bit = 1e-12;
  for (const GXCoordSystem& other : {System(support::Point(1 + bit, 2, 3), 10, 20, 30),
                                     System(support::Point(1, 2 + bit, 3), 10, 20, 30),
                                     System(support::Point(1, 2, 3 + bit), 10, 20, 30),
                                     System(support::Point(1, 2, 3), 10 + bit, 20, 30),
                                     System(support::Point(1, 2, 3), 10, 20 + bit, 30),
                                     System(support::Point(1, 2, 3), 10, 20, 30 + bit)}) {
    EXPECT_FALSE(Sample() == other);
    EXPECT_TRUE(Sample() != other);
  }
}

TEST(GXCoordSystem, AnUndefinedAngleIsUnequalToItself) {
  const GXCoordSystem system = System(support::Point(0, 0, 0), 0, kNaN, 0);
  EXPECT_FALSE(system == system);
  EXPECT_TRUE(system != system);
  EXPECT_FALSE(system.IsAlmostEq(system));
}

TEST(GXCoordSystem, AMillionthInAnAngleIsAlmostEqualButNotEqual) {
  const GXCoordSystem other = System(support::Point(1, 2, 3), 10, 20 + 1e-06, 30);
  EXPECT_TRUE(Sample().IsAlmostEq(other));
  EXPECT_FALSE(Sample() == other);
}

TEST(GXCoordSystem, IsAlmostEqAllowsATenThousandthInTheOrigin) {
  const GXCoordSystem zero;
  const double beyond = std::nextafter(0.0001, 1.0);
  EXPECT_TRUE(zero.IsAlmostEq(System(support::Point(0.0001, -0.0001, 0.0001), 0, 0, 0)));
  EXPECT_FALSE(zero.IsAlmostEq(System(support::Point(beyond, 0, 0), 0, 0, 0)));
  EXPECT_FALSE(zero.IsAlmostEq(System(support::Point(0, -beyond, 0), 0, 0, 0)));
  EXPECT_FALSE(zero.IsAlmostEq(System(support::Point(0, 0, beyond), 0, 0, 0)));
}

TEST(GXCoordSystem, IsAlmostEqAllowsAHundredThousandthInTheAngles) {
  const GXCoordSystem zero;
  const GX3DPoint origin;
  const double beyond = std::nextafter(1e-05, 1.0);
  EXPECT_TRUE(zero.IsAlmostEq(System(origin, 1e-05, -1e-05, 1e-05)));
  EXPECT_FALSE(zero.IsAlmostEq(System(origin, beyond, 0, 0)));
  EXPECT_FALSE(zero.IsAlmostEq(System(origin, 0, -beyond, 0)));
  EXPECT_FALSE(zero.IsAlmostEq(System(origin, 0, 0, beyond)));
}

TEST(GXCoordSystem, IsAlmostEqDoesNotReduceAngles) {
  const GX3DPoint origin;
  EXPECT_FALSE(System(origin, 0, 0, 0).IsAlmostEq(System(origin, 360, 0, 0)));
}

TEST(GXCoordSystem, ScaleMovesTheOriginAndKeepsTheAngles) {
  GXCoordSystem system = System(support::Point(1.26, -2.24, 4), 10, 20, 30);
  EXPECT_TRUE(system.Scale(2.0, -1));
  ExpectIs(system, support::Point(2.52, -4.48, 8), 10, 20, 30);
}

TEST(GXCoordSystem, ScaleRoundsUnlessTheDecimalsAreNegative) {
  GXCoordSystem tenths = System(support::Point(1.26, -2.23, 4), 0.123, 0, 0);
  EXPECT_TRUE(tenths.Scale(1.0, 1));
  ExpectIs(tenths, support::Point(1.3, -2.2, 4), 0.123, 0, 0);

  GXCoordSystem whole = System(support::Point(1.26, -2.23, 4.6), 0, 0, 0);
  EXPECT_TRUE(whole.Scale(1.0, 0));
  ExpectIs(whole, support::Point(1, -2, 5), 0, 0, 0);

  // Minus two does not mean hundreds here.
  GXCoordSystem unrounded = System(support::Point(149, 1.5, 0), 0, 0, 0);
  EXPECT_TRUE(unrounded.Scale(1.0, -2));
  ExpectIs(unrounded, support::Point(149, 1.5, 0), 0, 0, 0);
}

TEST(GXCoordSystem, ScaleMultipliesBeforeItRounds) {
  GXCoordSystem system = System(support::Point(0.26, 0, 0), 0, 0, 0);
  EXPECT_TRUE(system.Scale(10.0, 0));
  EXPECT_EQ(system.Origin.X, 3.0);
}

TEST(GXCoordSystem, TheFactorMayBeACoordinateOfTheOrigin) {
  GXCoordSystem system = System(support::Point(2, 3, 4), 10, 20, 30);
  EXPECT_TRUE(system.Scale(system.Origin.X, -1));
  ExpectIs(system, support::Point(4, 6, 8), 10, 20, 30);
}

TEST(GXCoordSystem, ScaleBy0IsNoFailure) {
  GXCoordSystem system = Sample();
  EXPECT_TRUE(system.Scale(0.0, -1));
  ExpectIs(system, support::Point(0, 0, 0), 10, 20, 30);
}

}  // namespace
