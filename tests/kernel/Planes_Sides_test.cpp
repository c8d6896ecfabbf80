#include <KTRCL_Geometry/kernel/Frames.h>

#include "support/KernelArrays.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::kNaN;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kX(2, 0, 0);
constexpr Vec kY(0, 3, 0);

// Of (2, 0, 0), (0, 3, 0) and d the product is 6 times the height of d.
TEST(Dirchk1Dll, IsPositiveOnTheSideOfTheRightHandedNormal) {
  EXPECT_EQ(dirchk1_dll(kO, kX, kY, Vec(7, 8, 5)), 30.0);
  EXPECT_EQ(dirchk1_dll(kO, kX, kY, Vec(7, 8, -5)), -30.0);
  EXPECT_EQ(dirchk1_dll(kO, kX, kY, Vec(7, 8, 0)), 0.0);
}

TEST(Dirchk1Dll, ChangesItsSignWithTheOrderOfTheFirstThree) {
  EXPECT_EQ(dirchk1_dll(kO, kY, kX, Vec(7, 8, 5)), -30.0);
  EXPECT_EQ(dirchk1_dll(kY, kX, kO, Vec(7, 8, 5)), -30.0);
  EXPECT_EQ(dirchk1_dll(kX, kY, kO, Vec(7, 8, 5)), 30.0);
}

TEST(Dirchk1Dll, StartsAtTheFirstPoint) {
  const Vec a(10, 20, 30);
  EXPECT_EQ(dirchk1_dll(a, a + kX, a + kY, a + Vec(1, 1, 4)), 24.0);
}

TEST(Dirchk1Dll, Is0ForPointsInLine) {
  EXPECT_EQ(dirchk1_dll(kO, kX, Vec(4, 0, 0), Vec(7, 8, 5)), 0.0);
  EXPECT_EQ(dirchk1_dll(kO, kO, kY, Vec(7, 8, 5)), 0.0);
}

TEST(Dirchk1Dll, IsSixTimesTheSignedVolumeAtRandom) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    long double m[3][3];
    Vec p[4] = {kO, kO, kO, kO};
    for (Vec& q : p) {
      for (int k = 0; k < 3; ++k) q[k] = random.Between(-20, 20);
    }
    for (int row = 0; row < 3; ++row) {
      for (int k = 0; k < 3; ++k) m[row][k] = static_cast<long double>(p[row + 1][k]) - p[0][k];
    }
    const long double determinant = m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
                                    m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
                                    m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
    // Products of up to 40^3, a few roundings each.
    ASSERT_NEAR(dirchk1_dll(p[0], p[1], p[2], p[3]), static_cast<double>(determinant), 1e-9);
  }
}

TEST(Dirchk1Dll, NaNGivesNoNumber) {
  EXPECT_TRUE(std::isnan(dirchk1_dll(kO, kX, kY, Vec(0, 0, kNaN))));
}

}  // namespace
