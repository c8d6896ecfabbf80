#include <KTRCL_DataTypes/GXString.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace {

// The literal of the unit conversion; support::kPi is the same double.
constexpr double kPi = 3.141592653589793;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::vector<double> Stored(const GXRotation& r) {
  return {r.A, r.B, r.C, static_cast<double>(r.O)};
}

// The rotation of 90 degrees about Z, 0 about the others.
const GXMatrix kQuarterTurnAboutZ(0, -1, 0, 1, 0, 0, 0, 0, 1);

TEST(GXRotation, IsNoRotationInOrder0ByDefault) {
  const GXRotation rotation;
  EXPECT_SAME_BITS(rotation.A, 0.0);
  EXPECT_SAME_BITS(rotation.B, 0.0);
  EXPECT_SAME_BITS(rotation.C, 0.0);
  EXPECT_EQ(rotation.O, 0);
  EXPECT_POINT_EQ(rotation.GetRotationMatrix(), GXMatrix());
}

TEST(GXRotation, StoresDegreesAndOrderAsTheyAre) {
  EXPECT_POINT_EQ(Stored(GXRotation(400, -500, 0.1, 7)), (std::vector<double>{400, -500, 0.1, 7}));
  EXPECT_POINT_EQ(Stored(GXRotation(400, -500, 0.1, true, 7)),
                  (std::vector<double>{400, -500, 0.1, 7}));
}

TEST(GXRotation, ConvertsRadiansWhenTheFlagIsFalse) {
  const GXRotation rotation(0.1, -0.7, 3.0, false, 9);
  EXPECT_SAME_BITS(rotation.A, 0.1 * 180.0 / kPi);
  EXPECT_SAME_BITS(rotation.B, -0.7 * 180.0 / kPi);
  EXPECT_SAME_BITS(rotation.C, 3.0 * 180.0 / kPi);
  EXPECT_EQ(rotation.O, 9);
}

TEST(GXRotation, TakesTheOrderAsText) {
  EXPECT_POINT_EQ(Stored(GXRotation(1, 2, 3, GXString("ZYXr"))),
                  (std::vector<double>{1, 2, 3, 12}));
  EXPECT_EQ(GXRotation(1, 2, 3, GXString("zyxr")).O, 0);
  EXPECT_EQ(GXRotation(1, 2, 3, GXString()).O, 0);
}

TEST(GXRotation, CopyAndAssignmentCopyTheFields) {
  const GXRotation original(1, 2, 3, 12);
  EXPECT_POINT_EQ(Stored(GXRotation(original)), Stored(original));
  GXRotation assigned;
  EXPECT_EQ(&(assigned = original), &assigned);
  EXPECT_POINT_EQ(Stored(assigned), Stored(original));
}

TEST(GXRotation, GettersReadTheFields) {
  const GXRotation rotation(1, 2, 3, 12);
  EXPECT_EQ(rotation.GetA(), 1.0);
  EXPECT_EQ(rotation.GetB(), 2.0);
  EXPECT_EQ(rotation.GetC(), 3.0);
  EXPECT_EQ(rotation.GetO(), 12);
  EXPECT_EQ(rotation.GetOStr().Str(), "ZYXr");
}

TEST(GXRotation, AnOrderOutsideTheTableIsStoredAndHasAnEmptyText) {
  for (const int order : {-1, 24, 1000000, std::numeric_limits<int>::min()}) {
    const GXRotation rotation(1, 2, 3, order);
    EXPECT_EQ(rotation.O, order);
    EXPECT_EQ(rotation.GetOStr().Str(), "");
  }
}

TEST(GXRotation, AnOrderOutsideTheTableDoesNoHarm) {
  for (const int order :
       {-1, 24, 1000000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    GXRotation rotation(1, 2, 3, order);
    rotation.GetRotationMatrix();
    rotation.GetInverse();
    (rotation * GXRotation(1, 2, 3, 4)).GetRotationMatrix();
    double a = 0;
    double b = 0;
    double c = 0;
    rotation.GetZYXr(a, b, c);
    rotation.GetZYXrRad(a, b, c);
    EXPECT_EQ(rotation.O, order);
  }
}

TEST(GXRotationFromMatrix, GivesAnglesInOrder0) {
  const GXRotation rotation(kQuarterTurnAboutZ);
  EXPECT_POINT_NEAR(Stored(rotation), (std::vector<double>{0, 0, 90, 0}), 1e-13);
}

TEST(GXRotationFromMatrix, RoundTripsThroughTheMatrix) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const GXRotation original(random.Between(-179, 179), random.Between(-80, 80),
                              random.Between(-179, 179), 0);
    // 1e-15 in the matrix, 57 degrees per radian, six times that at 80 degrees.
    EXPECT_POINT_NEAR(Stored(GXRotation(original.GetRotationMatrix())), Stored(original), 1e-11);
  }
}

TEST(GXRotationFromMatrix, AnEmptyMatrixIsNoRotation) {
  const GXRotation rotation(GXMatrix(0, 0, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_EQ(rotation.O, 0);
  EXPECT_SAME_BITS(rotation.A, 0.0);
  EXPECT_SAME_BITS(rotation.B, 0.0);
  EXPECT_SAME_BITS(rotation.C, 0.0);
}

TEST(GXRotationFromMatrix, AMatrixUpToAHundredThousandthIsEmpty) {
  const double edge = 1e-05;
  // Not empty, the first column would say 45 degrees about Z.
  EXPECT_POINT_EQ(Stored(GXRotation(GXMatrix(edge, 0, 0, edge, 0, 0, 0, 0, 0))),
                  (std::vector<double>{0, 0, 0, 0}));
  const double beyond = std::nextafter(edge, 1.0);
  EXPECT_NEAR(GXRotation(GXMatrix(beyond, 0, 0, beyond, 0, 0, 0, 0, 0)).C, 45, 1e-12);
}

TEST(GXRotationFromMatrix, TheGimbalBranchIncludesItsThreshold) {
  // With cosines of 2^-19 in the first column, the second row gives 0 degrees about X in the gimbal
  // branch, the third row atan2(0.6, 0.8) outside of it.
  const double threshold = std::ldexp(1.0, -19);
  const GXRotation inside(threshold, 0, 0, 0, 1, 0, -1, 0.6, 0.8);
  EXPECT_EQ(inside.A, 0.0);
  EXPECT_SAME_BITS(inside.C, 0.0);
  EXPECT_NEAR(inside.B, 90, 1e-3);
  const GXRotation outside(std::nextafter(threshold, 1.0), 0, 0, 0, 1, 0, -1, 0.6, 0.8);
  EXPECT_NEAR(outside.A, std::atan2(0.6, 0.8) * 180.0 / kPi, 1e-13);
}

TEST(GXRotationFromMatrix, TakesTheNumbersAndVectorsOfAMatrix) {
  const std::vector<double> expected = {0, 0, 90, 0};
  EXPECT_POINT_NEAR(Stored(GXRotation(0, -1, 0, 1, 0, 0, 0, 0, 1)), expected, 1e-13);
  EXPECT_POINT_NEAR(Stored(GXRotation(0.0, -1.0, 1.0, 0.0)), expected, 1e-13);
  EXPECT_POINT_NEAR(Stored(GXRotation(GXVector(0, -2, 0), GXVector(3, 0, 0), GXVector(0, 0, 5))),
                    expected, 1e-13);
  // First row (0, -1, 0), third row along (0, -1, 0) x (1, 0, 0) = (0, 0, 1).
  EXPECT_POINT_NEAR(Stored(GXRotation(GXVector(0, -2, 0), GXVector(3, 0, 0))), expected, 1e-13);
  EXPECT_POINT_NEAR(Stored(GXRotation(support::Point(1, 1, 1), support::Point(1, -1, 1),
                                      support::Point(4, 1, 1))),
                    expected, 1e-13);
}

TEST(GXRotationFromMatrix, NullNumbersVectorsAndPointsAreNoRotation) {
  const GXVector null;
  const GX3DPoint p = support::Point(1, 2, 3);
  EXPECT_POINT_EQ(Stored(GXRotation(0, 0, 0, 0, 0, 0, 0, 0, 0)), Stored(GXRotation()));
  EXPECT_POINT_EQ(Stored(GXRotation(null, null, null)), Stored(GXRotation()));
  EXPECT_POINT_EQ(Stored(GXRotation(null, GXVector(1, 2, 3))), Stored(GXRotation()));
  EXPECT_POINT_EQ(Stored(GXRotation(p, p, p)), Stored(GXRotation()));
}

// The matrix of Rodrigues' formula, column by column.
std::vector<double> Rodrigues(const GXVector& axis, double angle) {
  const long double x = axis.X;
  const long double y = axis.Y;
  const long double z = axis.Z;
  const long double length = std::sqrt(x * x + y * y + z * z);
  const std::array<long double, 3> k = {x / length, y / length, z / length};
  const long double c = std::cos(static_cast<long double>(angle));
  const long double s = std::sin(static_cast<long double>(angle));
  std::vector<double> rows(9);
  for (std::size_t column = 0; column < 3; ++column) {
    std::array<long double, 3> e = {};
    e[column] = 1;
    for (std::size_t row = 0; row < 3; ++row) {
      const std::size_t j = (row + 1) % 3;
      const std::size_t l = (row + 2) % 3;
      rows[3 * row + column] = static_cast<double>(e[row] * c + (k[j] * e[l] - k[l] * e[j]) * s +
                                                   k[row] * k[column] * (1 - c));
    }
  }
  return rows;
}

TEST(GXRotationFromAxisAndAngle, AgreesWithRodriguesFormula) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const GXVector axis = random.Vector3D(10);
    const double angle = random.Between(-7, 7);
    const std::vector<double> expected = Rodrigues(axis, angle);
    if (std::fabs(expected[6]) > 0.999) {
      continue;  // Near the gimbal position of order 0.
    }
    const GXRotation rotation(axis, angle);
    EXPECT_EQ(rotation.O, 0);
    EXPECT_POINT_NEAR(rotation.GetRotationMatrix(), expected, 1e-13);
  }
}

TEST(GXRotationFromAxisAndAngle, GivesTheWholeTurnToTheFirstAngleInAGimbalPosition) {
  // A degrees about X, then -90 about Y. With the half angles h = A / 2 and 45 degrees the product
  // of the two quaternions is cos 45 * (cos h; sin h, -cos h, sin h).
  for (const double degrees : {60.0, -100.0, 20.0, -90.0}) {
    const double h = degrees / 2 * kPi / 180.0;
    const GXVector axis(std::sin(h), -std::cos(h), std::sin(h));
    const GXRotation rotation(axis, 2 * std::acos(std::cos(kPi / 4) * std::cos(h)));
    EXPECT_POINT_NEAR(Stored(rotation), (std::vector<double>{degrees, -90, 0, 0}), 1e-12);
    EXPECT_SAME_BITS(rotation.C, 0.0);
  }
}

TEST(GXRotationFromAxisAndAngle, TakesRadiansAndStoresDegrees) {
  EXPECT_POINT_NEAR(Stored(GXRotation(GXVector(0, 0, 2), kPi / 2)),
                    (std::vector<double>{0, 0, 90, 0}), 1e-13);
  EXPECT_POINT_NEAR(Stored(GXRotation(GXVector(-3, 0, 0), 0.5)),
                    (std::vector<double>{-0.5 * 180.0 / kPi, 0, 0, 0}), 1e-13);
}

TEST(GXRotationFromAxisAndAngle, LeavesTheAxis) {
  const GXVector axis(0, 0, 2);
  const GXRotation rotation(axis, 1.0);
  EXPECT_POINT_EQ(axis, GXVector(0, 0, 2));
}

TEST(GXRotationFromAxisAndAngle, ANullAxisScalesTheIdentityByTheCosine) {
  // Nothing but the cosine is left of the matrix: empty for a quarter turn, positive up to there.
  EXPECT_POINT_EQ(Stored(GXRotation(GXVector(), kPi / 2)), Stored(GXRotation()));
  EXPECT_POINT_EQ(Stored(GXRotation(GXVector(), 1.0)), Stored(GXRotation()));
}

TEST(GXRotationAlgebra, TheProductTurnsByTheRightSideFirst) {
  const GXRotation aboutX = GXRotation::XYZs(90, 0, 0);
  const GXRotation aboutZ = GXRotation::XYZs(0, 0, 90);
  // About X, (0, 1, 0) becomes (0, 0, 1), which Z leaves; the other way round it becomes (-1, 0,
  // 0).
  EXPECT_POINT_NEAR((aboutZ * aboutX) * GXVector(0, 1, 0), GXVector(0, 0, 1), 1e-15);
  EXPECT_POINT_NEAR(aboutX.MultRotation(aboutZ).MultVector(GXVector(0, 1, 0)), GXVector(-1, 0, 0),
                    1e-15);
}

TEST(GXRotationAlgebra, MultVectorAppliesTheRotationMatrix) {
  const GXRotation rotation = GXRotation::ZXZr(10, 20, 30);
  const GXVector v(1, 2, 3);
  EXPECT_POINT_EQ(rotation.MultVector(v), rotation.GetRotationMatrix() * v);
  EXPECT_POINT_EQ(rotation * v, rotation.GetRotationMatrix() * v);
}

TEST(GXRotationAlgebra, TheInverseOfOneAxisIsTheNegativeAngle) {
  GXRotation rotation = GXRotation::ZYXs(30, 0, 0);
  rotation.Inverse();
  EXPECT_EQ(rotation.O, 10);
  EXPECT_POINT_NEAR(Stored(rotation), (std::vector<double>{-30, 0, 0, 10}), 1e-13);
}

TEST(GXRotationComparison, EqualityLooksAtTheMatrix) {
  EXPECT_TRUE(GXRotation::XYZs(10, 20, 30) == GXRotation::ZYXr(30, 20, 10));
  EXPECT_TRUE(GXRotation::XYZs(0, 0, 0) == GXRotation::YXYr(0, 0, 0));
  EXPECT_FALSE(GXRotation::XYZs(10, 20, 30) == GXRotation::ZYXr(10, 20, 30));
  EXPECT_FALSE(GXRotation::XYZs(10, 20, 30) == GXRotation::XYZs(10, 20, 30 + 1e-9));
  EXPECT_FALSE(GXRotation::XYZs(kNaN, 0, 0) == GXRotation::XYZs(kNaN, 0, 0));
}

TEST(GXRotationComparison, RotatingXYZIsStaticZYXReadBackwards) {
  EXPECT_TRUE(GXRotation::XYZr(10, 20, 30).IsAlmostEq(GXRotation::ZYXs(30, 20, 10)));
  EXPECT_FALSE(GXRotation::XYZr(10, 20, 30).IsAlmostEq(GXRotation::ZYXs(10, 20, 30)));
}

TEST(GXRotationComparison, IsAlmostEqAllowsATenThousandthInTheMatrixNotInTheAngles) {
  const GXRotation none;
  // The sine of 0.0057 degrees is 0.0000995, that of 0.0058 degrees 0.000101.
  EXPECT_TRUE(none.IsAlmostEq(GXRotation(0.0057, 0, 0, 0)));
  EXPECT_FALSE(none.IsAlmostEq(GXRotation(0.0058, 0, 0, 0)));
  EXPECT_TRUE(none.IsAlmostEq(GXRotation(360, -720, 0, 0)));
}

TEST(GXRotationComparison, LessComparesTheOrderNumberBeforeAnyAngle) {
  EXPECT_TRUE(GXRotation(9, 9, 9, 1) < GXRotation(0, 0, 0, 2));
  EXPECT_FALSE(GXRotation(0, 0, 0, 2) < GXRotation(9, 9, 9, 1));
}

TEST(GXRotationComparison, LessComparesAThenBThenCExactly) {
  EXPECT_TRUE(GXRotation(1, 9, 9, 3) < GXRotation(2, 0, 0, 3));
  EXPECT_TRUE(GXRotation(1, 1, 9, 3) < GXRotation(1, 2, 0, 3));
  EXPECT_TRUE(GXRotation(1, 1, 1, 3) < GXRotation(1, 1, std::nextafter(1.0, 2.0), 3));
  EXPECT_FALSE(GXRotation(2, 0, 0, 3) < GXRotation(1, 9, 9, 3));
  EXPECT_FALSE(GXRotation(1, 2, 0, 3) < GXRotation(1, 1, 9, 3));
  EXPECT_FALSE(GXRotation(1, 1, 1, 3) < GXRotation(1, 1, 1, 3));
}

TEST(GXRotationComparison, LessDoesNotAgreeWithEquality) {
  const GXRotation a = GXRotation::XYZs(10, 20, 30);
  const GXRotation b = GXRotation::ZYXr(30, 20, 10);
  EXPECT_TRUE(a == b);
  EXPECT_TRUE(a < b);
  EXPECT_FALSE(b < a);
}

}  // namespace
