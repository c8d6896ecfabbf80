#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// An array stands for a point only where it says so; an implicit form would make GXVector(0, 1)
// ambiguous.
static_assert(std::is_constructible_v<GXVector, const double*>);
static_assert(!std::is_convertible_v<const double*, GXVector>);

TEST(GXVector, IsTheNullVectorByDefault) {
  const GXVector v;
  EXPECT_SAME_BITS(v.X, 0.0);
  EXPECT_SAME_BITS(v.Y, 0.0);
  EXPECT_SAME_BITS(v.Z, 0.0);
}

TEST(GXVector, TwoNumbersLeaveZAtZero) {
  EXPECT_POINT_EQ(GXVector(1, 2), GXVector(1, 2, 0));
  EXPECT_POINT_EQ(GXVector(1, 2, 3), (std::vector<double>{1, 2, 3}));
}

TEST(GXVector, TakesTheFirstThreeEntriesOfAnArray) {
  const double entries[4] = {1, 2, 3, 4};
  EXPECT_POINT_EQ(GXVector(entries), GXVector(1, 2, 3));
}

TEST(GXVector, TwoVectorsGiveTheWayFromTheFirstToTheSecond) {
  EXPECT_POINT_EQ(GXVector(GXVector(1, 2, 3), GXVector(10, 20, 30)), GXVector(9, 18, 27));
}

TEST(GXVector, APlaneVectorGetsZ0) {
  EXPECT_POINT_EQ(GXVector(GX2DVector(4, 5)), GXVector(4, 5, 0));
}

TEST(GXVector, CopiesAreIndependent) {
  GXVector original(1, 2, 3);
  const GXVector copy(original);
  original.X = 9;
  EXPECT_POINT_EQ(copy, GXVector(1, 2, 3));
}

TEST(GXVector, TakesPointsAndLinesOfTheirDimension) {
  EXPECT_POINT_EQ(GXVector(support::Point(1, 2, 3)), GXVector(1, 2, 3));
  EXPECT_POINT_EQ(GXVector(support::Point(1, 2, 3), support::Point(5, 7, 9)), GXVector(4, 5, 6));
  EXPECT_POINT_EQ(GXVector(support::Line(1, 2, 3, 5, 7, 9)), GXVector(4, 5, 6));
  EXPECT_POINT_EQ(GXVector(support::Point(1, 2)), GXVector(1, 2, 0));
  EXPECT_POINT_EQ(GXVector(support::Point(1, 2), support::Point(5, 7)), GXVector(4, 5, 0));
  EXPECT_POINT_EQ(GXVector(support::Line(1, 2, 5, 7)), GXVector(4, 5, 0));
}

TEST(GXVector, SettersChangeOneComponent) {
  GXVector v(1, 2, 3);
  v.SetX(4);
  EXPECT_POINT_EQ(v, GXVector(4, 2, 3));
  v.SetY(5);
  EXPECT_POINT_EQ(v, GXVector(4, 5, 3));
  v.SetZ(6);
  EXPECT_POINT_EQ(v, GXVector(4, 5, 6));
  EXPECT_EQ(v.GetX(), 4.0);
  EXPECT_EQ(v.GetY(), 5.0);
  EXPECT_EQ(v.GetZ(), 6.0);
}

TEST(GXVector, SetVectorTakesNumbersAPointOrTwoPoints) {
  GXVector v;
  v.SetVector(1.0, 2.0, 3.0);
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
  v.SetVector(support::Point(4, 5, 6));
  EXPECT_POINT_EQ(v, GXVector(4, 5, 6));
  v.SetVector(support::Point(1, 1, 1), support::Point(4, 3, 2));
  EXPECT_POINT_EQ(v, GXVector(3, 2, 1));
}

TEST(GXVector, SumsAndDifferencesAreNewVectors) {
  const GXVector a(1, 2, 3);
  GXVector b(10, 20, 30);
  EXPECT_POINT_EQ(a + b, GXVector(11, 22, 33));
  EXPECT_POINT_EQ(a.Add(b), GXVector(11, 22, 33));
  EXPECT_POINT_EQ(a - b, GXVector(-9, -18, -27));
  EXPECT_POINT_EQ(a, GXVector(1, 2, 3));
  EXPECT_POINT_EQ(b, GXVector(10, 20, 30));
}

TEST(GXVector, ReversalNegatesEveryComponentZerosIncluded) {
  GXVector v(1, -2, 0);
  EXPECT_POINT_EQ(-v, GXVector(-1, 2, 0));
  EXPECT_POINT_EQ(v.GetReversed(), GXVector(-1, 2, 0));
  EXPECT_SAME_BITS((-v).Z, -0.0);
  EXPECT_SAME_BITS(v.GetReversed().Z, -0.0);
  EXPECT_POINT_EQ(v, GXVector(1, -2, 0));
  v.Reverse();
  EXPECT_POINT_EQ(v, GXVector(-1, 2, 0));
  EXPECT_SAME_BITS(v.Z, -0.0);
}

TEST(GXVector, AFactorScalesEveryComponent) {
  EXPECT_POINT_EQ(GXVector(1, -2, 4) * 0.5, GXVector(0.5, -1, 2));
}

TEST(GXVector, TheProductOfTwoVectorsIsTheCrossProduct) {
  EXPECT_POINT_EQ(GXVector(1, 0, 0) * GXVector(0, 1, 0), GXVector(0, 0, 1));
  EXPECT_POINT_EQ(GXVector(0, 1, 0) * GXVector(0, 0, 1), GXVector(1, 0, 0));
  EXPECT_POINT_EQ(GXVector(0, 0, 1) * GXVector(1, 0, 0), GXVector(0, 1, 0));
  // By hand: 2*7 - 5*3, 4*3 - 1*7, 1*5 - 4*2.
  EXPECT_POINT_EQ(GXVector(1, 2, 3) * GXVector(4, 5, 7), GXVector(-1, 5, -3));
}

TEST(GXVector, DotIsTheScalarProduct) {
  EXPECT_EQ(GXVector(1, 2, 3).dot(GXVector(4, -5, 6)), 12.0);
}

TEST(GXVector, DotAddsXToYBeforeZ) {
  // 1 is lost beside 1e16, so only the order Y, X, Z gives 0 in both.
  EXPECT_EQ(GXVector(1e16, 1, -1e16).dot(GXVector(1, 1, 1)), 0.0);
  EXPECT_EQ(GXVector(1, -1e16, 1e16).dot(GXVector(1, 1, 1)), 0.0);
  // The two large terms cancel first here, and the 1 survives.
  EXPECT_EQ(GXVector(1e16, -1e16, 1).dot(GXVector(1, 1, 1)), 1.0);
}

TEST(GXVector, MidIsTheMean) {
  EXPECT_POINT_EQ(GXVector(1, 2, 3).Mid(GXVector(3, 6, -7)), GXVector(2, 4, -2));
}

TEST(GXVector, MidAddsBeforeItHalves) {
  const double large = std::numeric_limits<double>::max();
  EXPECT_EQ(GXVector(large, 0, 0).Mid(GXVector(large, 0, 0)).X, kInfinity);
}

TEST(GXVector, LenIsEuclidean) {
  EXPECT_EQ(GXVector(2, 3, 6).Len(), 7.0);
  EXPECT_EQ(GXVector(-2, 3, -6).Len(), 7.0);
  EXPECT_EQ(GXVector(0, -1, 0).Len(), 1.0);
}

TEST(GXVector, LenOfTheNullVectorIs0) {
  EXPECT_SAME_BITS(GXVector().Len(), 0.0);
  EXPECT_SAME_BITS(GXVector(-0.0, -0.0, -0.0).Len(), 0.0);
}

TEST(GXVector, LenIs0WhenTheSquaresVanish) {
  EXPECT_SAME_BITS(GXVector(1e-200, 1e-200, 1e-200).Len(), 0.0);
}

TEST(GXVector, LenOverflowsToInfinityAndCarriesNaN) {
  EXPECT_EQ(GXVector(1e200, 0, 0).Len(), kInfinity);
  EXPECT_TRUE(std::isnan(GXVector(1, kNaN, 0).Len()));
}

TEST(GXVector, StandardMakesAUnitVector) {
  GXVector v(2, -3, 6);
  v.Standard();
  EXPECT_POINT_NEAR(v, GXVector(2.0 / 7, -3.0 / 7, 6.0 / 7), 0.0);
}

TEST(GXVector, StandardLeavesTheNullVector) {
  GXVector v;
  v.Standard();
  EXPECT_POINT_EQ(v, GXVector(0, 0, 0));
}

TEST(GXVector, StandardLeavesAVectorOfLength0ThoughItsComponentsAreNot) {
  GXVector v(1e-200, -1e-200, 0);
  v.Standard();
  EXPECT_POINT_EQ(v, GXVector(1e-200, -1e-200, 0));
}

TEST(GXVector, StandardTurnsTinyVectorsIntoUnitVectors) {
  // The guard is exact zero, no tolerance.
  GXVector v(0, 3e-100, -4e-100);
  v.Standard();
  EXPECT_POINT_NEAR(v, GXVector(0, 0.6, -0.8), 1e-15);
}

TEST(GXVector, StandardDividesByTheLength) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const GXVector v = random.Vector3D(100);
    GXVector unit(v);
    unit.Standard();
    EXPECT_POINT_EQ(unit, GXVector(v.X / v.Len(), v.Y / v.Len(), v.Z / v.Len()));
  }
}

TEST(GXVector, AssignmentCopiesAndGivesTheReceiver) {
  GXVector v;
  EXPECT_EQ(&(v = GXVector(1, 2, 3)), &v);
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
  const GXVector& self = v;
  v = self;
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
}

TEST(GXVector, EqualityIsExactInEveryComponent) {
  const double next = std::nextafter(1.0, 2.0);
  EXPECT_TRUE(GXVector(1, 1, 1) == GXVector(1, 1, 1));
  EXPECT_FALSE(GXVector(1, 1, 1) == GXVector(next, 1, 1));
  EXPECT_FALSE(GXVector(1, 1, 1) == GXVector(1, next, 1));
  EXPECT_FALSE(GXVector(1, 1, 1) == GXVector(1, 1, next));
  EXPECT_FALSE(GXVector(1, 1, 1) != GXVector(1, 1, 1));
  EXPECT_TRUE(GXVector(1, 1, 1) != GXVector(1, 1, next));
}

TEST(GXVector, BothZerosAreEqual) {
  EXPECT_TRUE(GXVector(0.0, 0.0, 0.0) == GXVector(-0.0, -0.0, -0.0));
  EXPECT_FALSE(GXVector(0.0, 0.0, 0.0) != GXVector(-0.0, -0.0, -0.0));
}

TEST(GXVector, ANaNIsUnequalEvenToItself) {
  for (const GXVector& v : {GXVector(kNaN, 0, 0), GXVector(0, kNaN, 0), GXVector(0, 0, kNaN)}) {
    EXPECT_FALSE(v == v);
    EXPECT_TRUE(v != v);
  }
}

class EqualToAll : public GXVector {
 public:
  bool operator==(const GXVector& /*other*/) const override { return true; }
};

TEST(GXVector, InequalityIsTheNegationOfTheVirtualEquality) {
  const EqualToAll derived;
  const GXVector& v = derived;
  EXPECT_FALSE(v != GXVector(1, 2, 3));
}

TEST(GXVector, IsAlmostEqTakesTheToleranceItselfAsEqual) {
  const GXVector v(0, 0, 0);
  const double beyond = std::nextafter(0.25, 1.0);
  EXPECT_TRUE(v.IsAlmostEq(GXVector(0.25, -0.25, 0.25), 0.25));
  EXPECT_FALSE(v.IsAlmostEq(GXVector(beyond, 0, 0), 0.25));
  EXPECT_FALSE(v.IsAlmostEq(GXVector(0, -beyond, 0), 0.25));
  EXPECT_FALSE(v.IsAlmostEq(GXVector(0, 0, beyond), 0.25));
}

TEST(GXVector, IsAlmostEqLooksAtComponentsAndNotAtTheDistance) {
  // The distance is 0.43.
  EXPECT_TRUE(GXVector().IsAlmostEq(GXVector(0.25, 0.25, 0.25), 0.25));
}

TEST(GXVector, IsAlmostEqAtTolerance0TakesEqualNumbersAndInfinities) {
  EXPECT_TRUE(GXVector(1, 2, 3).IsAlmostEq(GXVector(1, 2, 3), 0.0));
  EXPECT_TRUE(GXVector(0.0, 0, 0).IsAlmostEq(GXVector(-0.0, 0, 0), 0.0));
  EXPECT_TRUE(GXVector(kInfinity, 0, 0).IsAlmostEq(GXVector(kInfinity, 0, 0), 0.0));
  EXPECT_FALSE(GXVector(1, 2, 3).IsAlmostEq(GXVector(1, 2, std::nextafter(3.0, 4.0)), 0.0));
}

TEST(GXVector, IsAlmostEqIsFalseForNaN) {
  EXPECT_FALSE(GXVector(kNaN, 0, 0).IsAlmostEq(GXVector(kNaN, 0, 0), 1.0));
  EXPECT_FALSE(GXVector(0, 0, 0).IsAlmostEq(GXVector(0, 0, kNaN), 1.0));
  EXPECT_FALSE(GXVector(0, 0, 0).IsAlmostEq(GXVector(0, 0, 0), kNaN));
}

TEST(GXVector, AsDblHandsOutTheComponents) {
  const GXVector v(1, 2, 3);
  double x = 0;
  double y = 0;
  double z = 0;
  v.AsDbl(x, y, z);
  EXPECT_POINT_EQ(v, GXVector(x, y, z));
}

TEST(GXVector, AsDblWritesThreeEntriesAndNoMore) {
  double entries[4] = {9, 9, 9, 9};
  GXVector(1, 2, 3).AsDbl(entries);
  EXPECT_EQ(entries[0], 1.0);
  EXPECT_EQ(entries[1], 2.0);
  EXPECT_EQ(entries[2], 3.0);
  EXPECT_EQ(entries[3], 9.0);
}

TEST(GXVector, RoundToDecRoundsEachComponentInPlace) {
  GXVector v(1.26, -1.24, 0.04);
  v.RoundToDec(1);
  EXPECT_POINT_EQ(v, GXVector(1.3, -1.2, 0.0));
}

TEST(GXVector, RoundToDecWithNegativeDecimalsRoundsToTensAndHundreds) {
  GXVector v(1260, -1240, 17);
  v.RoundToDec(-2);
  EXPECT_POINT_EQ(v, GXVector(1300, -1200, 0));
}

TEST(GXVectorPerpendicals, XYTurnsInThePlaneOfXAndY) {
  GXVector v(1, 2, 3);
  EXPECT_POINT_EQ(v.GetPerpendicalXY(), GXVector(-2, 1, 3));
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
  v.PerpendicalXY();
  EXPECT_POINT_EQ(v, GXVector(-2, 1, 3));
}

TEST(GXVectorPerpendicals, YZTurnsInThePlaneOfYAndZ) {
  GXVector v(1, 2, 3);
  EXPECT_POINT_EQ(v.GetPerpendicalYZ(), GXVector(1, -3, 2));
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
  v.PerpendicalYZ();
  EXPECT_POINT_EQ(v, GXVector(1, -3, 2));
}

TEST(GXVectorPerpendicals, XZInPlaceAndAsAResultAreDifferentVectors) {
  GXVector v(1, 2, 3);
  EXPECT_POINT_EQ(v.GetPerpendicalXZ(), GXVector(3, -2, 1));
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
  v.PerpendicalXZ();
  EXPECT_POINT_EQ(v, GXVector(-3, 2, 1));
}

TEST(GXVectorPerpendicals, FourQuarterTurnsInPlaceComeBack) {
  GXVector v(1, 2, 3);
  for (int i = 0; i < 4; ++i) {
    v.PerpendicalXY();
    v.PerpendicalYZ();
    v.PerpendicalYZ();
    v.PerpendicalYZ();
    v.PerpendicalYZ();
  }
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
  for (int i = 0; i < 4; ++i) {
    v.PerpendicalXZ();
  }
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
}

}  // namespace
