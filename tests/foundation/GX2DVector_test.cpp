#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

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
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(GX2DVector, IsTheNullVectorByDefault) {
  const GX2DVector v;
  EXPECT_SAME_BITS(v.X, 0.0);
  EXPECT_SAME_BITS(v.Y, 0.0);
}

TEST(GX2DVector, IsBuiltFromNumbersAndVectors) {
  EXPECT_POINT_EQ(GX2DVector(1, 2), (std::vector<double>{1, 2}));
  EXPECT_POINT_EQ(GX2DVector(GX2DVector(3, 4)), GX2DVector(3, 4));
  EXPECT_POINT_EQ(GX2DVector(GX2DVector(1, 2), GX2DVector(10, 20)), GX2DVector(9, 18));
  EXPECT_POINT_EQ(GX2DVector(1, 2, 10, 20), GX2DVector(9, 18));
}

TEST(GX2DVector, IsBuiltFromPointsAndLines) {
  EXPECT_POINT_EQ(GX2DVector(support::Point(1, 2)), GX2DVector(1, 2));
  EXPECT_POINT_EQ(GX2DVector(support::Point(1, 2), support::Point(5, 7)), GX2DVector(4, 5));
  EXPECT_POINT_EQ(GX2DVector(support::Line(1, 2, 5, 7)), GX2DVector(4, 5));
}

TEST(GX2DVector, SettersAndGetters) {
  GX2DVector v(1, 2);
  v.SetX(3);
  EXPECT_POINT_EQ(v, GX2DVector(3, 2));
  v.SetY(4);
  EXPECT_POINT_EQ(v, GX2DVector(3, 4));
  EXPECT_EQ(v.GetX(), 3.0);
  EXPECT_EQ(v.GetY(), 4.0);
  v.SetVector(5, 6);
  EXPECT_POINT_EQ(v, GX2DVector(5, 6));
}

TEST(GX2DVector, SumsAndDifferencesAreNewVectors) {
  const GX2DVector a(1, 2);
  GX2DVector b(10, 20);
  EXPECT_POINT_EQ(a + b, GX2DVector(11, 22));
  EXPECT_POINT_EQ(a.Add(b), GX2DVector(11, 22));
  EXPECT_POINT_EQ(a - b, GX2DVector(-9, -18));
  EXPECT_POINT_EQ(a * -2.0, GX2DVector(-2, -4));
  EXPECT_POINT_EQ(a, GX2DVector(1, 2));
  EXPECT_POINT_EQ(b, GX2DVector(10, 20));
}

TEST(GX2DVector, ReversalNegatesBothComponentsZeroIncluded) {
  GX2DVector v(1, 0);
  EXPECT_POINT_EQ(-v, GX2DVector(-1, 0));
  EXPECT_POINT_EQ(v.GetReversed(), GX2DVector(-1, 0));
  EXPECT_SAME_BITS((-v).Y, -0.0);
  EXPECT_SAME_BITS(v.GetReversed().Y, -0.0);
  EXPECT_POINT_EQ(v, GX2DVector(1, 0));
  v.Reverse();
  EXPECT_POINT_EQ(v, GX2DVector(-1, 0));
  EXPECT_SAME_BITS(v.Y, -0.0);
}

TEST(GX2DVector, PerpendicularIsAQuarterTurnCounterClockwise) {
  const GX2DVector v(1, 2);
  EXPECT_POINT_EQ(v.GetPerpendicular(), GX2DVector(-2, 1));
  EXPECT_POINT_EQ(v, GX2DVector(1, 2));
}

TEST(GX2DVector, DotAndMid) {
  EXPECT_EQ(GX2DVector(1, 2).dot(GX2DVector(3, -4)), -5.0);
  EXPECT_POINT_EQ(GX2DVector(1, 2).Mid(GX2DVector(3, 8)), GX2DVector(2, 5));
  const double large = std::numeric_limits<double>::max();
  EXPECT_EQ(GX2DVector(large, 0).Mid(GX2DVector(large, 0)).X, kInfinity);
}

TEST(GX2DVector, LenIsEuclideanAnd0WhenTheSquaresVanish) {
  EXPECT_EQ(GX2DVector(-3, 4).Len(), 5.0);
  EXPECT_EQ(GX2DVector(0, -1).Len(), 1.0);
  EXPECT_SAME_BITS(GX2DVector().Len(), 0.0);
  EXPECT_SAME_BITS(GX2DVector(1e-200, -1e-200).Len(), 0.0);
}

TEST(GX2DVector, StandardMakesAUnitVectorButLeavesLength0) {
  GX2DVector v(3, -4);
  v.Standard();
  EXPECT_POINT_EQ(v, GX2DVector(3.0 / 5, -4.0 / 5));
  GX2DVector null;
  null.Standard();
  EXPECT_POINT_EQ(null, GX2DVector(0, 0));
  GX2DVector vanishing(1e-200, 0);
  vanishing.Standard();
  EXPECT_POINT_EQ(vanishing, GX2DVector(1e-200, 0));
  GX2DVector tiny(3e-100, 4e-100);
  tiny.Standard();
  EXPECT_POINT_NEAR(tiny, GX2DVector(0.6, 0.8), 1e-15);
}

TEST(GX2DVector, AssignmentCopiesAndGivesTheReceiver) {
  GX2DVector v;
  EXPECT_EQ(&(v = GX2DVector(1, 2)), &v);
  EXPECT_POINT_EQ(v, GX2DVector(1, 2));
}

TEST(GX2DVector, EqualityIsExact) {
  const double next = std::nextafter(1.0, 2.0);
  EXPECT_TRUE(GX2DVector(1, 1) == GX2DVector(1, 1));
  EXPECT_FALSE(GX2DVector(1, 1) == GX2DVector(next, 1));
  EXPECT_FALSE(GX2DVector(1, 1) == GX2DVector(1, next));
  EXPECT_TRUE(GX2DVector(0.0, 0.0) == GX2DVector(-0.0, -0.0));
  EXPECT_TRUE(GX2DVector(1, 1) != GX2DVector(1, next));
  EXPECT_FALSE(GX2DVector(1, 1) != GX2DVector(1, 1));
}

TEST(GX2DVector, ANaNIsUnequalEvenToItself) {
  const GX2DVector v(0, kNaN);
  EXPECT_FALSE(v == v);
  EXPECT_TRUE(v != v);
}

class EqualToAll : public GX2DVector {
 public:
  bool operator==(const GX2DVector& /*other*/) const override { return true; }
};

TEST(GX2DVector, InequalityIsTheNegationOfTheVirtualEquality) {
  const EqualToAll derived;
  const GX2DVector& v = derived;
  EXPECT_FALSE(v != GX2DVector(1, 2));
}

TEST(GX2DVector, IsAlmostEqIsInclusivePerComponent) {
  const double beyond = std::nextafter(0.25, 1.0);
  EXPECT_TRUE(GX2DVector().IsAlmostEq(GX2DVector(0.25, -0.25), 0.25));
  EXPECT_FALSE(GX2DVector().IsAlmostEq(GX2DVector(beyond, 0), 0.25));
  EXPECT_FALSE(GX2DVector().IsAlmostEq(GX2DVector(0, beyond), 0.25));
  EXPECT_TRUE(GX2DVector(kInfinity, 1).IsAlmostEq(GX2DVector(kInfinity, 1), 0.0));
  EXPECT_FALSE(GX2DVector(kNaN, 0).IsAlmostEq(GX2DVector(kNaN, 0), 1.0));
}

TEST(GX2DVectorGetAngleRad, ClockwiseIsThePositiveSense) {
  // Bearings from the positive Y axis: (1, 0) has pi/2, (0, 1) has 0.
  EXPECT_EQ(GX2DVector(0, 1).GetAngleRad(GX2DVector(1, 0), true), kPi / 2);
  EXPECT_EQ(GX2DVector(1, 0).GetAngleRad(GX2DVector(0, 1), true), -kPi / 2);
}

TEST(GX2DVectorGetAngleRad, UnsignedTakesTheDifferenceWithoutItsSign) {
  EXPECT_EQ(GX2DVector(1, 0).GetAngleRad(GX2DVector(0, 1), false), kPi / 2);
  EXPECT_EQ(GX2DVector(0, 1).GetAngleRad(GX2DVector(1, 0), false), kPi / 2);
}

TEST(GX2DVectorGetAngleRad, IsNotReducedToHalfATurn) {
  // Bearings -3/4 pi and 3/4 pi: a quarter turn apart, yet the difference of the bearings counts.
  const GX2DVector left(-1, -1);
  const GX2DVector right(1, -1);
  EXPECT_DOUBLE_EQ(left.GetAngleRad(right, true), 1.5 * kPi);
  EXPECT_DOUBLE_EQ(left.GetAngleRad(right, false), 1.5 * kPi);
  EXPECT_DOUBLE_EQ(right.GetAngleRad(left, true), -1.5 * kPi);
  EXPECT_DOUBLE_EQ(right.GetAngleRad(left, false), 1.5 * kPi);
}

TEST(GX2DVectorGetAngleRad, SpansTwoTurnsFromBearingMinusPiToPi) {
  // A negative zero in X lies on the other side of the cut behind the Y axis.
  EXPECT_EQ(GX2DVector(-0.0, -1).GetAngleRad(GX2DVector(0.0, -1), true), 2 * kPi);
  EXPECT_EQ(GX2DVector(0.0, -1).GetAngleRad(GX2DVector(-0.0, -1), true), -2 * kPi);
  EXPECT_EQ(GX2DVector(0.0, -1).GetAngleRad(GX2DVector(-0.0, -1), false), 2 * kPi);
}

TEST(GX2DVectorGetAngleRad, ANullVectorHasBearing0) {
  EXPECT_EQ(GX2DVector().GetAngleRad(GX2DVector(1, 0), true), kPi / 2);
  EXPECT_EQ(GX2DVector(1, 0).GetAngleRad(GX2DVector(), true), -kPi / 2);
  EXPECT_EQ(GX2DVector().GetAngleRad(GX2DVector(), false), 0.0);
}

TEST(GX2DVectorGetAngleRad, EqualsTheDifferenceOfTheBearingsBitForBit) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const GX2DVector from(random.Between(-5, 5), random.Between(-5, 5));
    const GX2DVector to(random.Between(-5, 5), random.Between(-5, 5));
    const double difference = std::atan2(to.X, to.Y) - std::atan2(from.X, from.Y);
    EXPECT_SAME_BITS(from.GetAngleRad(to, true), difference);
    EXPECT_SAME_BITS(from.GetAngleRad(to, false), std::fabs(difference));
  }
}

TEST(GX2DVectorGetAngleRad, NaNTravelsThrough) {
  EXPECT_TRUE(std::isnan(GX2DVector(kNaN, 1).GetAngleRad(GX2DVector(0, 1), true)));
  EXPECT_TRUE(std::isnan(GX2DVector(kNaN, 1).GetAngleRad(GX2DVector(0, 1), false)));
}

}  // namespace
