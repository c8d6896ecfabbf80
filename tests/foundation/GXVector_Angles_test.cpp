// Angles between vectors in space and their rotation about an axis.
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using support::kPi;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

double Angle(const GXVector& a, const GXVector& b, bool signedAngle, GXVector reference) {
  return a.GetAngleRad(b, signedAngle, reference);
}

TEST(GXVectorGetAngleRad, ANullVectorOnEitherSideGives0AndLeavesTheReference) {
  GXVector reference(0, 0, 5);
  EXPECT_SAME_BITS(GXVector().GetAngleRad(GXVector(1, 0, 0), true, reference), 0.0);
  EXPECT_SAME_BITS(GXVector(1, 0, 0).GetAngleRad(GXVector(), false, reference), 0.0);
  EXPECT_SAME_BITS(GXVector().GetAngleRad(GXVector(), true, reference), 0.0);
  EXPECT_POINT_EQ(reference, GXVector(0, 0, 5));
}

TEST(GXVectorGetAngleRad, StandardizesTheReferenceOfTheCaller) {
  GXVector reference(0, 0, 5);
  GXVector(1, 0, 0).GetAngleRad(GXVector(0, 1, 0), false, reference);
  EXPECT_POINT_EQ(reference, GXVector(0, 0, 1));
}

TEST(GXVectorGetAngleRad, IsPositiveWhenTheReferenceLiesAlongTheNormal) {
  // acos(0)
  EXPECT_EQ(Angle({1, 0, 0}, {0, 2, 0}, true, {0, 0, 3}), std::acos(0.0));
  EXPECT_EQ(Angle({1, 0, 0}, {0, 2, 0}, false, {0, 0, 3}), std::acos(0.0));
}

TEST(GXVectorGetAngleRad, IsNegativeWhenSignedAndTheReferenceOpposesTheNormal) {
  EXPECT_EQ(Angle({1, 0, 0}, {0, 2, 0}, true, {0, 0, -3}), -std::acos(0.0));
}

TEST(GXVectorGetAngleRad, AddsHalfATurnWhenUnsignedAndTheReferenceOpposesTheNormal) {
  // Half a turn on top, not the rest of a full turn: 60 degrees become 240, not 300.
  EXPECT_EQ(Angle({1, 0, 0}, {0, 2, 0}, false, {0, 0, -3}), std::acos(0.0) + 4 * std::atan(1.0));
  const GXVector sixtyDegrees(1, std::sqrt(3.0), 0);
  EXPECT_NEAR(Angle({1, 0, 0}, sixtyDegrees, false, {0, 0, -1}), kPi / 3 + kPi, 1e-15);
  EXPECT_NEAR(Angle({1, 0, 0}, sixtyDegrees, true, {0, 0, -1}), -kPi / 3, 1e-15);
}

TEST(GXVectorGetAngleRad, AReferenceThatOpposesTheNormalOnlyNearlyDoesNotCount) {
  const double tilt = 1e-12;
  EXPECT_EQ(Angle({1, 0, 0}, {0, 2, 0}, true, {0, tilt, -1}), std::acos(0.0));
  EXPECT_EQ(Angle({1, 0, 0}, {0, 2, 0}, false, {0, tilt, -1}), std::acos(0.0));
}

TEST(GXVectorGetAngleRad, AReferenceAskewToTheNormalDoesNotCount) {
  EXPECT_EQ(Angle({1, 0, 0}, {0, 2, 0}, true, {1, 0, 0}), std::acos(0.0));
  EXPECT_EQ(Angle({1, 0, 0}, {0, 2, 0}, true, {0, 0, 0}), std::acos(0.0));
}

TEST(GXVectorGetAngleRad, AReferenceMustOpposeTheNormalInEveryComponent) {
  // (0, 1, -1) x (2, 0, 0) = (0, -2, -2); a quarter turn, too.
  const GXVector a(0, 1, -1);
  EXPECT_EQ(Angle(a, {2, 0, 0}, true, {0, 2, 2}), -std::acos(0.0));
  EXPECT_EQ(Angle(a, {2, 0, 0}, true, {0, -2, 2}), std::acos(0.0));
  EXPECT_EQ(Angle(a, {2, 0, 0}, true, {0, 2, -2}), std::acos(0.0));
  // (1, 0, -1) x (0, 2, 0) = (2, 0, 2).
  EXPECT_EQ(Angle({1, 0, -1}, {0, 2, 0}, true, {-2, 0, -2}), -std::acos(0.0));
  EXPECT_EQ(Angle({1, 0, -1}, {0, 2, 0}, true, {2, 0, -2}), std::acos(0.0));
}

TEST(GXVectorGetAngleRad, ANullReferenceOpposesTheNullNormalOfParallelVectors) {
  // The normal of opposite vectors is null, and a null reference equals its own negation.
  EXPECT_EQ(Angle({1, 0, 0}, {-2, 0, 0}, true, {0, 0, 0}), -std::acos(-1.0));
  EXPECT_EQ(Angle({1, 0, 0}, {-2, 0, 0}, false, {0, 0, 0}), std::acos(-1.0) + 4 * std::atan(1.0));
  EXPECT_EQ(Angle({1, 0, 0}, {2, 0, 0}, false, {0, 0, 0}), 4 * std::atan(1.0));
}

TEST(GXVectorGetAngleRad, TheQuotientIsNotClampedSoParallelVectorsMayGiveNaN) {
  support::Random random;
  int notANumber = 0;
  for (int i = 0; i < 2000; ++i) {
    const GXVector a = random.Vector3D(10);
    const GXVector b = a * 2.0;
    const double quotient = a.dot(b) / (b.Len() * a.Len());
    const double angle = Angle(a, b, true, {0, 0, 1});
    EXPECT_SAME_BITS(angle, std::acos(quotient));
    notANumber += std::isnan(angle) ? 1 : 0;
  }
  EXPECT_GT(notANumber, 0) << "no quotient above 1 was tried";
}

TEST(GXVectorGetAngleRad, AgreesWithTheTangentFormOfTheAngle) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const GXVector a = random.Vector3D(10);
    const GXVector b = random.Vector3D(10);
    const double angle = std::atan2((a * b).Len(), a.dot(b));
    // The arc cosine loses half of the digits towards 0 and pi.
    EXPECT_NEAR(Angle(a, b, true, a * b), angle, 1e-7);
  }
}

TEST(GXVectorGetAngleRad, TheReferenceMayBeOneOfTheVectors) {
  GXVector v(3, 0, 0);
  GXVector w(0, 2, 0);
  EXPECT_EQ(v.GetAngleRad(w, true, w), std::acos(0.0));
  EXPECT_POINT_EQ(w, GXVector(0, 1, 0));
  EXPECT_EQ(v.GetAngleRad(w, true, v), std::acos(0.0));
  EXPECT_POINT_EQ(v, GXVector(1, 0, 0));
}

TEST(GXVectorGetAngleRad, NaNTravelsThrough) {
  EXPECT_TRUE(std::isnan(Angle({kNaN, 0, 0}, {1, 0, 0}, true, {0, 0, 1})));
}

// Rodrigues' formula, written out on its own.
GXVector Rodrigues(const GXVector& v, const GXVector& axis, double angle) {
  const long double length = std::sqrt(static_cast<long double>(axis.X) * axis.X +
                                       static_cast<long double>(axis.Y) * axis.Y +
                                       static_cast<long double>(axis.Z) * axis.Z);
  const long double k[3] = {axis.X / length, axis.Y / length, axis.Z / length};
  const long double p[3] = {v.X, v.Y, v.Z};
  const long double along = k[0] * p[0] + k[1] * p[1] + k[2] * p[2];
  const long double c = std::cos(static_cast<long double>(angle));
  const long double s = std::sin(static_cast<long double>(angle));
  double turned[3];
  for (int i = 0; i < 3; ++i) {
    const int j = (i + 1) % 3;
    const int l = (i + 2) % 3;
    const long double cross = k[j] * p[l] - k[l] * p[j];
    turned[i] = static_cast<double>(p[i] * c + cross * s + k[i] * along * (1 - c));
  }
  return GXVector(turned);
}

TEST(GXVectorRotate, TurnsRightHandedAboutThePositiveAxis) {
  GXVector v(1, 0, 0);
  v.Rotate(GXVector(0, 0, 1), kPi / 2);
  EXPECT_POINT_NEAR(v, GXVector(0, 1, 0), 1e-15);
  v.Rotate(GXVector(1, 0, 0), kPi / 2);
  EXPECT_POINT_NEAR(v, GXVector(0, 0, 1), 1e-15);
  v.Rotate(GXVector(0, 1, 0), kPi / 2);
  EXPECT_POINT_NEAR(v, GXVector(1, 0, 0), 1e-15);
}

TEST(GXVectorRotate, AgreesWithRodriguesFormula) {
  support::Random random;
  GXVector spanning(1234.1234, 5678.5678, 9012.9012);
  spanning.Standard();
  int tried = 0;
  for (int i = 0; i < 2000; ++i) {
    const GXVector axis = random.Vector3D(10);
    const GXVector v = random.Vector3D(10);
    const double angle = random.Between(-7, 7);
    if ((axis * spanning).Len() < 0.1 * axis.Len()) {
      continue;  // Near the fixed direction the frame about the axis loses digits.
    }
    ++tried;
    GXVector turned(v);
    turned.Rotate(axis, angle);
    // A dozen products on numbers up to 17, a frame of unit vectors with at most ten times the
    // rounding error.
    EXPECT_POINT_NEAR(turned, Rodrigues(v, axis, angle), 1e-12);
  }
  EXPECT_GT(tried, 1500);
}

TEST(GXVectorRotate, TheLengthOfTheAxisDoesNotMatter) {
  GXVector a(1, 2, 3);
  GXVector b(1, 2, 3);
  a.Rotate(GXVector(0.003, -0.002, 0.001), 1.0);
  b.Rotate(GXVector(3000, -2000, 1000), 1.0);
  EXPECT_POINT_NEAR(a, b, 1e-12);
}

TEST(GXVectorRotate, ANullAxisLeavesTheVector) {
  GXVector v(1, 2, 3);
  v.Rotate(GXVector(0, 0, 0), 1.0);
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
}

TEST(GXVectorRotate, AnAxisTowardsTheFixedPointLeavesTheVector) {
  const GXVector towards(1234.1234, 5678.5678, 9012.9012);
  GXVector v(1, 2, 3);
  v.Rotate(towards, 1.0);
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
  v.Rotate(towards * -2.0, 1.0);
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
}

TEST(GXVectorRotate, AVectorTurnedAboutItselfStaysWhereItIs) {
  GXVector v(1, 2, -3);
  v.Rotate(v, 1.0);
  EXPECT_POINT_NEAR(v, GXVector(1, 2, -3), 1e-14);
}

TEST(GXVectorRotate, EndsWithNumbersThatAreNotFinite) {
  GXVector v(1, 2, 3);
  v.Rotate(GXVector(kNaN, 0, 1), 1.0);
  v.Rotate(GXVector(0, 0, 1), kNaN);
  v.Rotate(GXVector(0, 0, std::numeric_limits<double>::infinity()), 1.0);
  GXVector w(1, 2, 3);
  w.Rotate(GXVector(0, 0, 1), kNaN);
  EXPECT_TRUE(std::isnan(w.X));
  EXPECT_EQ(std::isnan(w.Y), true);
}

}  // namespace
