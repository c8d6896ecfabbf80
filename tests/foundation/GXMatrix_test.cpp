#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using support::kPi;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

GXMatrix Counting() { return {11, 12, 13, 21, 22, 23, 31, 32, 33}; }

double Next(double value) { return std::nextafter(value, 1e300); }

TEST(GXMatrix, IsTheIdentityByDefault) {
  const GXMatrix expected(1, 0, 0, 0, 1, 0, 0, 0, 1);
  EXPECT_POINT_EQ(GXMatrix(), expected);
  EXPECT_POINT_EQ(GXMatrix::Identity(), expected);
}

TEST(GXMatrix, NineNumbersFillItRowByRow) {
  const GXMatrix m = Counting();
  EXPECT_POINT_EQ(m.Base[0], GXVector(11, 12, 13));
  EXPECT_POINT_EQ(m.Base[1], GXVector(21, 22, 23));
  EXPECT_POINT_EQ(m.Base[2], GXVector(31, 32, 33));
}

TEST(GXMatrix, FourNumbersFillTheUpperLeftBlock) {
  EXPECT_POINT_EQ(GXMatrix(1, 2, 3, 4), GXMatrix(1, 2, 0, 3, 4, 0, 0, 0, 1));
}

TEST(GXMatrix, APlaneMatrixFillsTheUpperLeftBlock) {
  EXPECT_POINT_EQ(GXMatrix(GX2DMatrix(1, 2, 3, 4)), GXMatrix(1, 2, 0, 3, 4, 0, 0, 0, 1));
}

TEST(GXMatrix, CopyAndAssignmentCopyTheRows) {
  GXMatrix original = Counting();
  const GXMatrix copy(original);
  GXMatrix assigned;
  EXPECT_EQ(&(assigned = original), &assigned);
  original.Set22(0);
  EXPECT_POINT_EQ(copy, Counting());
  EXPECT_POINT_EQ(assigned, Counting());
}

TEST(GXMatrix, AnAngleInRadiansGivesTheRotationAboutZ) {
  const double c = std::cos(0.3);
  const double s = std::sin(0.3);
  EXPECT_POINT_EQ(GXMatrix(0.3, false, false), GXMatrix(c, -s, 0, s, c, 0, 0, 0, 1));
}

TEST(GXMatrix, TheMirrorFlagsNegateTheCosineOfTheirRowAlone) {
  const double c = std::cos(0.3);
  const double s = std::sin(0.3);
  EXPECT_POINT_EQ(GXMatrix(0.3, true, false), GXMatrix(-c, -s, 0, s, c, 0, 0, 0, 1));
  EXPECT_POINT_EQ(GXMatrix(0.3, false, true), GXMatrix(c, -s, 0, s, -c, 0, 0, 0, 1));
  EXPECT_POINT_EQ(GXMatrix(0.3, true, true), GXMatrix(-c, -s, 0, s, -c, 0, 0, 0, 1));
}

TEST(GXMatrix, TheFactoriesMirrorAsTheirNameSays) {
  EXPECT_POINT_EQ(GXMatrix::NoMirror(), GXMatrix(1, 0, 0, 1));
  EXPECT_POINT_EQ(GXMatrix::MirrorAroundX(), GXMatrix(1, 0, 0, -1));
  EXPECT_POINT_EQ(GXMatrix::MirrorAroundY(), GXMatrix(-1, 0, 0, 1));
  EXPECT_POINT_EQ(GXMatrix::MirrorBoth(), GXMatrix(-1, 0, 0, -1));
}

TEST(GXMatrix, ThreeVectorsBecomeUnitRowsWithoutBeingMadeOrthogonal) {
  EXPECT_POINT_EQ(GXMatrix(GXVector(2, 0, 0), GXVector(3, 4, 0), GXVector(0, 0, -5)),
                  GXMatrix(1, 0, 0, 3.0 / 5, 4.0 / 5, 0, 0, 0, -1));
}

TEST(GXMatrix, ThreeVectorsLeaveNullRowsNull) {
  EXPECT_POINT_EQ(GXMatrix(GXVector(), GXVector(0, 2, 0), GXVector()),
                  GXMatrix(0, 0, 0, 0, 1, 0, 0, 0, 0));
}

TEST(GXMatrix, TwoVectorsGiveARightHandedFrameWithTheSecondInTheXYPlane) {
  const GXMatrix m(GXVector(0, 2, 0), GXVector(0, 5, 3));
  EXPECT_POINT_NEAR(m, GXMatrix(0, 1, 0, 0, 0, 1, 1, 0, 0), 1e-15);
}

TEST(GXMatrix, TwoVectorsSpanAFrameWhateverTheirDirections) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const GXVector a = random.Vector3D(10);
    const GXVector b = random.Vector3D(10);
    if ((a * b).Len() < 0.1 * a.Len() * b.Len()) {
      continue;
    }
    const GXMatrix m(a, b);
    GXMatrix transposed(m);
    transposed.Transpose();
    // Unit rows at right angles; three roundings per entry.
    EXPECT_POINT_NEAR(m * transposed, GXMatrix(), 1e-14);
    EXPECT_NEAR(m.Base[0].dot(a), a.Len(), 1e-13);
    EXPECT_NEAR(m.Base[2].dot(b), 0.0, 1e-12);
    EXPECT_GT(m.Base[1].dot(b), 0.0);
    EXPECT_POINT_NEAR(m.Base[0] * m.Base[1], m.Base[2], 1e-14);
  }
}

TEST(GXMatrix, TwoParallelVectorsKeepTheFirstRowAlone) {
  EXPECT_POINT_EQ(GXMatrix(GXVector(2, 0, 0), GXVector(-4, 0, 0)),
                  GXMatrix(1, 0, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_POINT_EQ(GXMatrix(GXVector(), GXVector(1, 2, 3)), GXMatrix(0, 0, 0, 0, 0, 0, 0, 0, 0));
}

TEST(GXMatrix, ThreePointsGiveTheFrameOfTheTwoDifferences) {
  const GXMatrix m(support::Point(1, 1, 1), support::Point(1, 3, 1), support::Point(1, 6, 4));
  EXPECT_POINT_NEAR(m, GXMatrix(0, 1, 0, 0, 0, 1, 1, 0, 0), 1e-15);
}

TEST(GXMatrix, DegreesAndRadiansAreConvertedThroughTheArcTangentOf1) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const double x = random.Between(-720, 720);
    EXPECT_SAME_BITS(GXMatrix::Deg2Rad(x), std::atan(1.0) * x / 45);
    EXPECT_SAME_BITS(GXMatrix::Rad2Deg(x), x * 45 / std::atan(1.0));
  }
  EXPECT_NEAR(GXMatrix::Deg2Rad(180), kPi, 1e-15);
  EXPECT_NEAR(GXMatrix::Rad2Deg(kPi), 180, 1e-13);
}

TEST(GXMatrixAccess, GettersNameRowThenColumn) {
  const GXMatrix m = Counting();
  EXPECT_EQ(m.Get11(), 11.0);
  EXPECT_EQ(m.Get12(), 12.0);
  EXPECT_EQ(m.Get13(), 13.0);
  EXPECT_EQ(m.Get21(), 21.0);
  EXPECT_EQ(m.Get22(), 22.0);
  EXPECT_EQ(m.Get23(), 23.0);
  EXPECT_EQ(m.Get31(), 31.0);
  EXPECT_EQ(m.Get32(), 32.0);
  EXPECT_EQ(m.Get33(), 33.0);
}

TEST(GXMatrixAccess, SettersNameRowThenColumn) {
  GXMatrix m;
  m.Set11(11);
  m.Set12(12);
  m.Set13(13);
  m.Set21(21);
  m.Set22(22);
  m.Set23(23);
  m.Set31(31);
  m.Set32(32);
  m.Set33(33);
  EXPECT_POINT_EQ(m, Counting());
}

TEST(GXMatrixAccess, IndicesCountFrom0Or1) {
  const GXMatrix m = Counting();
  GXMatrix zeroBased;
  GXMatrix oneBased;
  for (int row = 0; row < 3; ++row) {
    for (int col = 0; col < 3; ++col) {
      const double expected = 10.0 * (row + 1) + (col + 1);
      EXPECT_EQ(m.GetBase0(row, col), expected);
      EXPECT_EQ(m.GetBase1(row + 1, col + 1), expected);
      zeroBased.SetBase0(row, col, expected);
      oneBased.SetBase1(row + 1, col + 1, expected);
    }
  }
  EXPECT_POINT_EQ(zeroBased, m);
  EXPECT_POINT_EQ(oneBased, m);
}

TEST(GXMatrixAccess, AnIndexOutOfRangeReads0) {
  const GXMatrix m = Counting();
  const int large = std::numeric_limits<int>::max();
  const int small = std::numeric_limits<int>::min();
  for (const int outside : {-1, 3, large, small}) {
    EXPECT_SAME_BITS(m.GetBase0(outside, 1), 0.0);
    EXPECT_SAME_BITS(m.GetBase0(1, outside), 0.0);
  }
  for (const int outside : {0, 4, -1, large, small}) {
    EXPECT_SAME_BITS(m.GetBase1(outside, 1), 0.0);
    EXPECT_SAME_BITS(m.GetBase1(1, outside), 0.0);
  }
}

TEST(GXMatrixAccess, AnIndexOutOfRangeWritesNothing) {
  GXMatrix m = Counting();
  const int large = std::numeric_limits<int>::max();
  const int small = std::numeric_limits<int>::min();
  for (const int outside : {-1, 3, large, small}) {
    m.SetBase0(outside, 1, 99);
    m.SetBase0(1, outside, 99);
  }
  for (const int outside : {0, 4, -1, large, small}) {
    m.SetBase1(outside, 1, 99);
    m.SetBase1(1, outside, 99);
  }
  EXPECT_POINT_EQ(m, Counting());
}

TEST(GXMatrixComparison, EqualityIsExactInEveryElement) {
  for (int row = 0; row < 3; ++row) {
    for (int col = 0; col < 3; ++col) {
      GXMatrix m = Counting();
      m.SetBase0(row, col, Next(m.GetBase0(row, col)));
      EXPECT_FALSE(m == Counting());
    }
  }
  EXPECT_TRUE(Counting() == Counting());
  EXPECT_TRUE(GXMatrix(1, 0.0, 0.0, 1) == GXMatrix(1, -0.0, -0.0, 1));
  const GXMatrix undefined(1, 0, 0, kNaN);
  EXPECT_FALSE(undefined == undefined);
}

TEST(GXMatrixComparison, IsAlmostEqAllowsATenThousandthInEveryElement) {
  const GXMatrix zero(0, 0, 0, 0, 0, 0, 0, 0, 0);
  for (int row = 0; row < 3; ++row) {
    for (int col = 0; col < 3; ++col) {
      GXMatrix m(zero);
      m.SetBase0(row, col, -0.0001);
      EXPECT_TRUE(m.IsAlmostEq(zero));
      EXPECT_TRUE(zero.IsAlmostEq(m));
      m.SetBase0(row, col, Next(0.0001));
      EXPECT_FALSE(m.IsAlmostEq(zero));
      m.SetBase0(row, col, kNaN);
      EXPECT_FALSE(m.IsAlmostEq(m));
    }
  }
}

TEST(GXMatrixComparison, IsEmptyAllowsAHundredThousandthInEveryElement) {
  GXMatrix m(0, 0, 0, 0, 0, 0, 0, 0, 0);
  EXPECT_TRUE(m.IsEmpty());
  EXPECT_FALSE(GXMatrix().IsEmpty());
  for (int row = 0; row < 3; ++row) {
    for (int col = 0; col < 3; ++col) {
      m.SetBase0(row, col, Next(1e-05));
      EXPECT_FALSE(m.IsEmpty());
      m.SetBase0(row, col, kNaN);
      EXPECT_FALSE(m.IsEmpty());
      m.SetBase0(row, col, (row + col) % 2 == 0 ? 1e-05 : -1e-05);
      EXPECT_TRUE(m.IsEmpty());
    }
  }
}

TEST(GXMatrixComparison, IsIdentityAllowsAHundredThousandthInEveryElement) {
  EXPECT_TRUE(GXMatrix().IsIdentity());
  for (int row = 0; row < 3; ++row) {
    for (int col = 0; col < 3; ++col) {
      GXMatrix m;
      const double exact = m.GetBase0(row, col);
      // The sum 1 + 1e-05 is rounded, so the edge itself is tried beside the diagonal only.
      const double within = row == col ? exact + 0.9999e-05 : 1e-05;
      const double beyond = row == col ? exact + 1.0001e-05 : Next(1e-05);
      m.SetBase0(row, col, within);
      EXPECT_TRUE(m.IsIdentity());
      m.SetBase0(row, col, beyond);
      EXPECT_FALSE(m.IsIdentity());
      m.SetBase0(row, col, kNaN);
      EXPECT_FALSE(m.IsIdentity());
    }
  }
  EXPECT_FALSE(GXMatrix(0, 0, 0, 0, 0, 0, 0, 0, 0).IsIdentity());
}

TEST(GXMatrixComparison, IsMirroredForOneMirroredAxis) {
  const GXMatrix mirrored(0.0, true, false);
  EXPECT_POINT_EQ(mirrored, GXMatrix(-1, 0, 0, 0, 1, 0, 0, 0, 1));
  EXPECT_TRUE(mirrored.IsMirrored());
  EXPECT_TRUE(GXMatrix(0.7, false, true).IsMirrored());
  EXPECT_FALSE(GXMatrix::NoMirror().IsMirrored());
  EXPECT_FALSE(GXMatrix::MirrorBoth().IsMirrored());
}

TEST(GXMatrixComparison, IsMirroredTakesAQuarterTurnForAMirror) {
  EXPECT_TRUE(GXMatrix(kPi / 2, false, false).IsMirrored());
}

TEST(GXMatrixComparison, IsMirroredBelowATenMillionthOnly) {
  EXPECT_FALSE(GXMatrix(1e-07, 0, 0, 0).IsMirrored());
  EXPECT_FALSE(GXMatrix(-1e-07, 0, 0, 0).IsMirrored());
  EXPECT_TRUE(GXMatrix(std::nextafter(1e-07, 0.0), 0, 0, 0).IsMirrored());
  EXPECT_TRUE(GXMatrix(0, 0, 0, -std::nextafter(1e-07, 0.0)).IsMirrored());
  EXPECT_FALSE(GXMatrix(kNaN, 0, 0, 0).IsMirrored());
}

TEST(GXMatrixAlgebra, MultMatrixIsThisTimesOther) {
  const GXMatrix a(1, 2, 3, 4, 5, 6, 7, 8, 9);
  const GXMatrix b(0, 1, 0, 2, 0, 0, 0, 0, 3);
  // Columns of a: the second doubled, the first, the third tripled.
  const GXMatrix expected(4, 1, 9, 10, 4, 18, 16, 7, 27);
  EXPECT_POINT_EQ(a.MultMatrix(b), expected);
  EXPECT_POINT_EQ(a * b, expected);
  EXPECT_POINT_EQ(a, GXMatrix(1, 2, 3, 4, 5, 6, 7, 8, 9));
}

TEST(GXMatrixAlgebra, MultVectorIsTheDotOfEachRow) {
  const GXMatrix m(1, 2, 3, 4, 5, 6, 7, 8, 9);
  EXPECT_POINT_EQ(m.MultVector(GXVector(1, 10, 100)), GXVector(321, 654, 987));
  EXPECT_POINT_EQ(m * GXVector(1, 10, 100), GXVector(321, 654, 987));
}

TEST(GXMatrixAlgebra, MultVectorAddsXToYBeforeZ) {
  const GXMatrix m(1e16, 1, -1e16, 1, -1e16, 1e16, 1e16, -1e16, 1);
  EXPECT_POINT_EQ(m * GXVector(1, 1, 1), GXVector(0, 0, 1));
}

TEST(GXMatrixAlgebra, TransposeSwapsRowsAndColumnsInPlace) {
  GXMatrix m = Counting();
  m.Transpose();
  EXPECT_POINT_EQ(m, GXMatrix(11, 21, 31, 12, 22, 32, 13, 23, 33));
}

TEST(GXMatrixInverse, InvertsInPlace) {
  // Determinant 2: [1 0 2; 0 1 0; 0 0 2].
  GXMatrix m(1, 0, 2, 0, 1, 0, 0, 0, 2);
  EXPECT_TRUE(m.Inverse());
  EXPECT_POINT_EQ(m, GXMatrix(1, 0, -1, 0, 1, 0, 0, 0, 0.5));
}

TEST(GXMatrixInverse, GetInverseLeavesTheMatrix) {
  const GXMatrix m(1, 0, 2, 0, 1, 0, 0, 0, 2);
  EXPECT_POINT_EQ(m.GetInverse(), GXMatrix(1, 0, -1, 0, 1, 0, 0, 0, 0.5));
  EXPECT_POINT_EQ(m, GXMatrix(1, 0, 2, 0, 1, 0, 0, 0, 2));
}

TEST(GXMatrixInverse, TimesTheMatrixIsTheIdentity) {
  support::Random random;
  int inverted = 0;
  for (int i = 0; i < 500; ++i) {
    const GXVector a = random.Vector3D(2);
    const GXVector b = random.Vector3D(2);
    const GXVector c = random.Vector3D(2);
    const GXMatrix m(a.X, a.Y, a.Z, b.X, b.Y, b.Z, c.X, c.Y, c.Z);
    if ((a * b).dot(c) < 0.5) {
      continue;
    }
    GXMatrix inverse(m);
    ASSERT_TRUE(inverse.Inverse());
    ++inverted;
    // Cofactors up to 8 over a determinant of 0.5 and more, three products of up to 2 * 16.
    EXPECT_POINT_NEAR(m * inverse, GXMatrix(), 1e-13);
    EXPECT_POINT_EQ(m.GetInverse(), inverse);
  }
  EXPECT_GT(inverted, 100);
}

TEST(GXMatrixInverse, ALeftHandedMatrixCountsAsSingular) {
  GXMatrix m = GXMatrix::MirrorAroundX();
  EXPECT_FALSE(m.Inverse());
  EXPECT_POINT_EQ(m, GXMatrix::MirrorAroundX());
  EXPECT_POINT_EQ(m.GetInverse(), GXMatrix::Identity());
}

TEST(GXMatrixInverse, ASingularMatrixStaysAndGetInverseGivesTheIdentity) {
  GXMatrix m(1, 2, 3, 2, 4, 6, 0, 0, 1);
  EXPECT_FALSE(m.Inverse());
  EXPECT_POINT_EQ(m, GXMatrix(1, 2, 3, 2, 4, 6, 0, 0, 1));
  EXPECT_POINT_EQ(m.GetInverse(), GXMatrix::Identity());
}

TEST(GXMatrixInverse, ADeterminantOfExactlyTheGuardIsInverted) {
  GXMatrix m(1e-20, 0, 0, 0, 1, 0, 0, 0, 1);
  EXPECT_TRUE(m.Inverse());
  EXPECT_POINT_EQ(m, GXMatrix(1 / 1e-20, 0, 0, 0, 1, 0, 0, 0, 1));
  GXMatrix below(std::nextafter(1e-20, 0.0), 0, 0, 0, 1, 0, 0, 0, 1);
  const GXMatrix untouched(below);
  EXPECT_FALSE(below.Inverse());
  EXPECT_POINT_EQ(below, untouched);
  EXPECT_POINT_EQ(below.GetInverse(), GXMatrix::Identity());
}

TEST(GXMatrixInverse, ADeterminantThatIsNoNumberIsNotBelowTheGuard) {
  GXMatrix m(kNaN, 0, 0, 0, 1, 0, 0, 0, 1);
  EXPECT_TRUE(m.Inverse());
  EXPECT_TRUE(std::isnan(m.Get11()));
}

}  // namespace
