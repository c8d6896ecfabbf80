#include <KTRCL_Geometry/foundation/GXMatrix.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using support::kPi;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kNoRotation = -999999.9;

GX2DMatrix RotationByDegrees(double degrees) { return {degrees * kPi / 180.0, false, false}; }

double AngleOf(GX2DMatrix m) { return GX2DMatrix::GetAngleDegFromMatrix(m); }

TEST(GX2DMatrix, IsZeroByDefault) {
  EXPECT_POINT_EQ(GX2DMatrix(), (std::vector<double>{0, 0, 0, 0}));
}

TEST(GX2DMatrix, FourNumbersFillItRowByRow) {
  const GX2DMatrix m(11, 12, 21, 22);
  EXPECT_EQ(m.E11, 11.0);
  EXPECT_EQ(m.E12, 12.0);
  EXPECT_EQ(m.E21, 21.0);
  EXPECT_EQ(m.E22, 22.0);
}

TEST(GX2DMatrix, TwoVectorsBecomeUnitRowsAndStayAsTheyAre) {
  const GX2DVector a(3, 4);
  const GX2DVector b(0, -2);
  EXPECT_POINT_EQ(GX2DMatrix(a, b), GX2DMatrix(3.0 / 5, 4.0 / 5, 0, -1));
  EXPECT_POINT_EQ(a, GX2DVector(3, 4));
  EXPECT_POINT_EQ(b, GX2DVector(0, -2));
  EXPECT_POINT_EQ(GX2DMatrix(GX2DVector(), b), GX2DMatrix(0, 0, 0, -1));
}

TEST(GX2DMatrix, AnAngleInRadiansGivesTheRotation) {
  const double c = std::cos(0.3);
  const double s = std::sin(0.3);
  EXPECT_POINT_EQ(GX2DMatrix(0.3, false, false), GX2DMatrix(c, -s, s, c));
  EXPECT_POINT_EQ(GX2DMatrix(0.3, true, false), GX2DMatrix(-c, -s, s, c));
  EXPECT_POINT_EQ(GX2DMatrix(0.3, false, true), GX2DMatrix(c, -s, s, -c));
  EXPECT_POINT_EQ(GX2DMatrix(0.3, true, true), GX2DMatrix(-c, -s, s, -c));
}

TEST(GX2DMatrix, TheFactoriesMirrorAsTheirNameSays) {
  EXPECT_POINT_EQ(GX2DMatrix::NoMirror(), GX2DMatrix(1, 0, 0, 1));
  EXPECT_POINT_EQ(GX2DMatrix::MirrorAroundX(), GX2DMatrix(1, 0, 0, -1));
  EXPECT_POINT_EQ(GX2DMatrix::MirrorAroundY(), GX2DMatrix(-1, 0, 0, 1));
  EXPECT_POINT_EQ(GX2DMatrix::MirrorBoth(), GX2DMatrix(-1, 0, 0, -1));
}

TEST(GX2DMatrix, DegreesAndRadiansAreConvertedThroughTheArcTangentOf1) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const double x = random.Between(-720, 720);
    EXPECT_SAME_BITS(GX2DMatrix::Deg2Rad(x), std::atan(1.0) * x / 45);
    EXPECT_SAME_BITS(GX2DMatrix::Rad2Deg(x), x * 45 / std::atan(1.0));
  }
}

TEST(GX2DMatrix, GettersAndSettersNameRowThenColumn) {
  GX2DMatrix m;
  m.Set11(11);
  m.Set12(12);
  m.Set21(21);
  m.Set22(22);
  EXPECT_POINT_EQ(m, GX2DMatrix(11, 12, 21, 22));
  EXPECT_EQ(m.Get11(), 11.0);
  EXPECT_EQ(m.Get12(), 12.0);
  EXPECT_EQ(m.Get21(), 21.0);
  EXPECT_EQ(m.Get22(), 22.0);
}

TEST(GX2DMatrix, MultVectorIsTheDotOfEachRow) {
  const GX2DMatrix m(1, 2, 3, 4);
  GX2DVector v(2, 10);
  EXPECT_POINT_EQ(m.MultVector(v), GX2DVector(22, 46));
  EXPECT_POINT_EQ(m * v, GX2DVector(22, 46));
  EXPECT_POINT_EQ(v, GX2DVector(2, 10));
}

TEST(GX2DMatrix, MultMatrixIsThisTimesOther) {
  const GX2DMatrix a(1, 2, 3, 4);
  GX2DMatrix b(5, 6, 7, 8);
  // 1*5+2*7, 1*6+2*8, 3*5+4*7, 3*6+4*8.
  EXPECT_POINT_EQ(a.MultMatrix(b), GX2DMatrix(19, 22, 43, 50));
  EXPECT_POINT_EQ(a * b, GX2DMatrix(19, 22, 43, 50));
  EXPECT_POINT_EQ(b, GX2DMatrix(5, 6, 7, 8));
}

TEST(GX2DMatrix, IsMirroredBelowATenMillionthOnly) {
  EXPECT_TRUE(GX2DMatrix::MirrorAroundX().IsMirrored());
  EXPECT_TRUE(GX2DMatrix::MirrorAroundY().IsMirrored());
  EXPECT_FALSE(GX2DMatrix::NoMirror().IsMirrored());
  EXPECT_FALSE(GX2DMatrix::MirrorBoth().IsMirrored());
  EXPECT_FALSE(GX2DMatrix(1e-07, 0, 0, 0).IsMirrored());
  EXPECT_TRUE(GX2DMatrix(0, 0, 0, -std::nextafter(1e-07, 0.0)).IsMirrored());
  EXPECT_FALSE(GX2DMatrix(kNaN, 0, 0, 0).IsMirrored());
}

TEST(GX2DMatrix, IsMirroredTakesQuarterTurnsAndTheZeroMatrixForAMirror) {
  EXPECT_TRUE(RotationByDegrees(90).IsMirrored());
  EXPECT_TRUE(GX2DMatrix().IsMirrored());
}

TEST(GX2DMatrixInverse, IsTheInverseOfARotation) {
  const double c = std::cos(0.3);
  const double s = std::sin(0.3);
  GX2DMatrix m(0.3, false, false);
  EXPECT_TRUE(m.Inverse());
  EXPECT_POINT_EQ(m, GX2DMatrix(c, s, -s, c));
}

TEST(GX2DMatrixInverse, DoesNotDivideByTheDeterminant) {
  // Determinant 4: the result is four times the inverse.
  GX2DMatrix m(2, 6, 1, 5);
  EXPECT_TRUE(m.Inverse());
  EXPECT_POINT_EQ(m, GX2DMatrix(5, -6, -1, 2));
}

TEST(GX2DMatrixInverse, OfAQuarterTurnIsTheQuarterTurnBack) {
  GX2DMatrix m(0, -1, 1, 0);
  EXPECT_TRUE(m.Inverse());
  EXPECT_POINT_EQ(m, GX2DMatrix(0, 1, -1, 0));
}

TEST(GX2DMatrixInverse, ANegativeDeterminantCountsAsSingular) {
  // 1 * 4 - 2 * 3
  GX2DMatrix m(1, 2, 3, 4);
  EXPECT_FALSE(m.Inverse());
  EXPECT_POINT_EQ(m, GX2DMatrix(1, 2, 3, 4));
}

TEST(GX2DMatrixInverse, AMirrorCountsAsSingular) {
  GX2DMatrix m = GX2DMatrix::MirrorAroundX();
  EXPECT_FALSE(m.Inverse());
  EXPECT_POINT_EQ(m, GX2DMatrix::MirrorAroundX());
}

TEST(GX2DMatrixInverse, ADeterminantOfExactlyTheGuardIsInverted) {
  GX2DMatrix m(1e-20, 3, 0, 1);
  EXPECT_TRUE(m.Inverse());
  EXPECT_POINT_EQ(m, GX2DMatrix(1, -3, 0, 1e-20));
  const double below = std::nextafter(1e-20, 0.0);
  GX2DMatrix singular(below, 3, 0, 1);
  EXPECT_FALSE(singular.Inverse());
  EXPECT_POINT_EQ(singular, GX2DMatrix(below, 3, 0, 1));
}

TEST(GX2DMatrixInverse, ADeterminantThatIsNoNumberIsNotBelowTheGuard) {
  GX2DMatrix m(kNaN, 2, 3, 4);
  EXPECT_TRUE(m.Inverse());
  EXPECT_EQ(m.E11, 4.0);
  EXPECT_EQ(m.E12, -2.0);
  EXPECT_EQ(m.E21, -3.0);
  EXPECT_TRUE(std::isnan(m.E22));
}

TEST(GetAngleDegFromMatrix, OfTheIdentityIs0) { EXPECT_EQ(AngleOf(GX2DMatrix::NoMirror()), 0.0); }

TEST(GetAngleDegFromMatrix, OfAQuarterTurnIs90) {
  EXPECT_NEAR(AngleOf(RotationByDegrees(90)), 90.0, 1e-12);
  EXPECT_NEAR(AngleOf(RotationByDegrees(-90)), -90.0, 1e-12);
}

TEST(GetAngleDegFromMatrix, OfHalfATurnIsPlus180EitherWayRound) {
  EXPECT_NEAR(AngleOf(RotationByDegrees(180)), 180.0, 1e-12);
  EXPECT_NEAR(AngleOf(RotationByDegrees(-180)), 180.0, 1e-12);
}

TEST(GetAngleDegFromMatrix, OfHalfATurnWithASmallNegativeSineIsMinus180) {
  // The sine says -179.9995, which is far from +180 but not from -180, and -180 is in range.
  EXPECT_EQ(AngleOf(GX2DMatrix(-1, 0, std::sin(-0.0005 * kPi / 180.0), -1)), -180.0);
}

TEST(GetAngleDegFromMatrix, FindsTheAngleInEveryQuadrant) {
  for (int degrees = -179; degrees < 180; ++degrees) {
    // Near 0 and 180 degrees the arc cosine of a rounded cosine errs by 1e-16 / sin(1 degree).
    EXPECT_NEAR(AngleOf(RotationByDegrees(degrees)), degrees, 1e-11) << degrees;
  }
}

TEST(GetAngleDegFromMatrix, ReducesTurnsBeyond180) {
  EXPECT_NEAR(AngleOf(RotationByDegrees(270)), -90.0, 1e-11);
  EXPECT_NEAR(AngleOf(RotationByDegrees(350)), -10.0, 1e-11);
}

TEST(GetAngleDegFromMatrix, LosesTheSignOfAnglesBelowHalfTheTolerance) {
  // Cosine says +0.0004, sine -0.0004: within 0.001 of one another, and the cosine is asked first.
  EXPECT_NEAR(AngleOf(RotationByDegrees(-0.0004)), 0.0004, 1e-8);
  EXPECT_NEAR(AngleOf(RotationByDegrees(-0.0006)), -0.0006, 1e-8);
}

TEST(GetAngleDegFromMatrix, OfAZeroMatrixSaysNoRotation) {
  EXPECT_EQ(AngleOf(GX2DMatrix()), kNoRotation);
}

TEST(GetAngleDegFromMatrix, DoesNotClampSoNumbersBeyond1SayNoRotation) {
  EXPECT_EQ(AngleOf(GX2DMatrix(std::nextafter(1.0, 2.0), 0, 0, 1)), kNoRotation);
  EXPECT_EQ(AngleOf(GX2DMatrix(0, 0, 1.5, 0)), kNoRotation);
  EXPECT_EQ(AngleOf(GX2DMatrix(0, 0, -std::nextafter(1.0, 2.0), 0)), kNoRotation);
  EXPECT_EQ(AngleOf(GX2DMatrix(kNaN, 0, 0, 1)), kNoRotation);
}

TEST(GetAngleDegFromMatrix, ReadsTheFirstColumnOnly) {
  EXPECT_NEAR(AngleOf(GX2DMatrix(0.6, 17, 0.8, -4)), std::atan2(0.8, 0.6) * 180.0 / kPi, 1e-12);
  EXPECT_EQ(AngleOf(GX2DMatrix::MirrorAroundX()), 0.0);
  EXPECT_EQ(AngleOf(GX2DMatrix::MirrorAroundY()), 180.0);
}

TEST(GetAngleDegFromMatrix, ASineThatDoesNotFitTheCosineByMoreThanTheToleranceSaysNoRotation) {
  const double sine = std::sin(30.0 * kPi / 180.0);
  const double within = std::cos(30.0009 * kPi / 180.0);
  const double beyond = std::cos(30.0011 * kPi / 180.0);
  EXPECT_NEAR(AngleOf(GX2DMatrix(within, 0, sine, 0)), 30.0009, 1e-11);
  EXPECT_EQ(AngleOf(GX2DMatrix(beyond, 0, sine, 0)), kNoRotation);
  EXPECT_NEAR(AngleOf(GX2DMatrix(within, 0, -sine, 0)), -30.0009, 1e-11);
  EXPECT_EQ(AngleOf(GX2DMatrix(beyond, 0, -sine, 0)), kNoRotation);
}

TEST(GetAngleDegFromMatrix, LeavesItsArgument) {
  GX2DMatrix m(0.6, -0.8, 0.8, 0.6);
  GX2DMatrix::GetAngleDegFromMatrix(m);
  EXPECT_POINT_EQ(m, GX2DMatrix(0.6, -0.8, 0.8, 0.6));
}

}  // namespace
