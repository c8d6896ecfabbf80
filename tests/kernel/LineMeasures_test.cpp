#include <KTRCL_Geometry/kernel/PointsAndLines.h>

#include "support/Build.h"
#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace {

using support::kInfinity;
using support::kNaN;
using support::kPi;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kX(10, 0, 0);
constexpr double kUnset = -77.5;

Vec RandomPoint(support::Random& random, double extent) {
  const double x = random.Between(-extent, extent);
  const double y = random.Between(-extent, extent);
  return {x, y, random.Between(-extent, extent)};
}

TEST(DistanceLinePoint, IsTheDistanceFromTheUnboundedLine) {
  EXPECT_EQ(Distance_line_point(kO, kX, Vec(500, 3, 4)), 5.0);
  EXPECT_EQ(Distance_line_point(kX, kO, Vec(-500, 3, -4)), 5.0);
  EXPECT_EQ(Distance_line_point(kO, kX, Vec(500, 0, 0)), 0.0);
}

TEST(DistanceLinePoint, Is0ForEndsThatAreExactlyEqualOnly) {
  EXPECT_SAME_BITS(Distance_line_point(kX, kX, Vec(1, 2, 3)), 0.0);
  EXPECT_SAME_BITS(Distance_line_point(Vec(1, 2, 3), Vec(1, 2, 3), kO), 0.0);
  EXPECT_NEAR(Distance_line_point(kO, Vec(1e-9, 0, 0), Vec(5, 3, 0)), 3.0, 1e-14);
  EXPECT_NEAR(Distance_line_point(kO, Vec(0, 1e-9, 0), Vec(3, 5, 0)), 3.0, 1e-14);
  EXPECT_NEAR(Distance_line_point(kO, Vec(0, 0, 1e-9), Vec(3, 0, 5)), 3.0, 1e-14);
  EXPECT_TRUE(std::isnan(Distance_line_point(kO, kX, Vec(0, kNaN, 0))));
}

TEST(Dislar, IsDistanceLinePointWithAFlag) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const Vec a = RandomPoint(random, 50);
    const Vec b = RandomPoint(random, 50);
    const Vec p = RandomPoint(random, 50);
    double d = kUnset;
    EXPECT_EQ(Dislar(a, b, p, &d), 1);
    EXPECT_EQ(d, Distance_line_point(a, b, p));
    // The same from the other end; the way between the ends is rarely shorter than 1.
    EXPECT_NEAR(d, Distance_line_point(b, a, p), 1e-10);
  }
}

TEST(Dislar, LeavesTheDistanceAloneForALineOfLengthZero) {
  double d = kUnset;
  EXPECT_EQ(Dislar(kX, kX, kO, &d), 0);
  EXPECT_EQ(d, kUnset);
  EXPECT_EQ(Dislar(kO, Vec(1e-9, 0, 0), Vec(5, 3, 0), &d), 1);
  EXPECT_NEAR(d, 3.0, 1e-14);
}

TEST(Dislpt, IsTheDistanceFromTheUnboundedLine) {
  double d = kUnset;
  EXPECT_EQ(Dislpt(kO, kX, Vec(2, 3, 4), &d), 1);
  EXPECT_EQ(d, 5.0);
  EXPECT_EQ(Dislpt(kX, kO, Vec(-500, 3, -4), &d), 1);
  EXPECT_NEAR(d, 5.0, 1e-9);  // the squares are 260,000, rounded to 6e-11
}

TEST(Dislpt, GivesExactly0UpToAThousandthBesideTheLine) {
  double d = kUnset;
  EXPECT_EQ(Dislpt(kO, kX, Vec(0, 0.000999, 0), &d), 1);
  EXPECT_SAME_BITS(d, 0.0);
  EXPECT_EQ(Dislpt(kO, kX, Vec(0, 0.001001, 0), &d), 1);
  EXPECT_NEAR(d, 0.001001, 1e-15);
}

TEST(Dislpt, WritesTheSquaredLengthOf0ForALineOfLengthZero) {
  double d = kUnset;
  EXPECT_EQ(Dislpt(kX, kX, kO, &d), 0);
  EXPECT_SAME_BITS(d, 0.0);
}

// Far out on the line the difference of the squares is nothing but rounding, of either sign. The
// way (1, 3, 7) has the squared length 59.
TEST(Dislpt, WritesTheSquaredLengthWhereTheSquareComesOutNegative) {
  support::Random random;
  int failures = 0;
  int successes = 0;
  for (int i = 0; i < 2000; ++i) {
    double d = kUnset;
    if (Dislpt(kO, Vec(1, 3, 7), random.Between(1e5, 1e6) * Vec(1, 3, 7), &d) == 0) {
      EXPECT_EQ(d, 59.0);
      ++failures;
    } else {
      EXPECT_GE(d, 0.0);
      ++successes;
    }
  }
  EXPECT_GT(failures, 0);
  EXPECT_GT(successes, 0);
}

TEST(Dislpt, AgreesWithDistanceLinePointAwayFromTheLine) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const Vec a = RandomPoint(random, 50);
    const Vec way(random.Between(1, 9), random.Between(-9, 9), random.Between(-9, 9));
    const Vec p = a + random.Between(-5, 5) * way + support::Cross(way, Vec(0, 1, 0));
    double d = kUnset;
    EXPECT_EQ(Dislpt(a, a + way, p, &d), 1);
    EXPECT_NEAR(d, Distance_line_point(a, a + way, p), 1e-8);  // squares up to 1e4, d at least 1
  }
}

TEST(Dislln, IsTheDistanceBetweenUnboundedLinesInSpace) {
  double d = kUnset;
  EXPECT_EQ(Dislln(kO, kX, Vec(70, 3, -4), Vec(70, 9, -4), &d), 1);
  EXPECT_EQ(d, 4.0);
  EXPECT_EQ(Dislln(Vec(70, 3, -4), Vec(70, 9, -4), kO, kX, &d), 1);
  EXPECT_EQ(d, 4.0);
  EXPECT_EQ(Dislln(kO, kX, Vec(2, 0, 0), Vec(7, 3, 4), &d), 1);
  EXPECT_EQ(d, 0.0);
}

TEST(Dislln, LeavesTheDistanceAloneForParallelLines) {
  double d = kUnset;
  EXPECT_EQ(Dislln(kO, kX, Vec(0, 1, 0), Vec(5, 1, 0), &d), 0);
  EXPECT_EQ(Dislln(kO, kX, Vec(5, 1, 0), Vec(0, 1, 0), &d), 0);
  EXPECT_EQ(Dislln(kO, kX, kO, kX, &d), 0);
  EXPECT_EQ(Dislln(kX, kX, kO, Vec(0, 1, 0), &d), 0);
  EXPECT_EQ(d, kUnset);
}

// A cross product of exactly zero alone counts as parallel.
TEST(Dislln, MeasuresLinesThatAreParallelButForAHair) {
  double d = kUnset;
  EXPECT_EQ(Dislln(kO, Vec(1, 0, 0), Vec(0, 0, 7), Vec(1, 1e-12, 7), &d), 1);
  EXPECT_NEAR(d, 7.0, 1e-12);
}

TEST(Disaar, IsTheDistanceBetweenTwoPoints) {
  double d = kUnset;
  EXPECT_EQ(Disaar(Vec(1, 2, 3), Vec(4, -2, 15), &d), 1);
  EXPECT_EQ(d, 13.0);
  EXPECT_EQ(Disaar(kX, kX, &d), 1);
  EXPECT_EQ(d, 0.0);
  EXPECT_EQ(Disaar(kX, Vec(0, kNaN, 0), &d), 1);
  EXPECT_TRUE(std::isnan(d));
}

TEST(DistanceXY, TruncatesTowardsZero) {
  EXPECT_EQ(Distance_XY(1, 2, 4, 6), 5);
  EXPECT_EQ(Distance_XY(0, 0, 1, 1), 1);
  EXPECT_EQ(Distance_XY(0, 0, -2, 2), 2);  // 2.83
  EXPECT_EQ(Distance_XY(7, -7, 7, -7), 0);
}

TEST(DistanceXY, SquaresWithoutOverflow) {
  EXPECT_EQ(Distance_XY(-100000, 0, 100000, 0), 200000);
  EXPECT_EQ(Distance_XY(0, 0, INT_MAX, 0), INT_MAX);
  EXPECT_EQ(Distance_XY(0, 0, 0, -INT_MAX), INT_MAX);
}

TEST(DistanceXY, EndsAtTheLargestInt) {
  EXPECT_EQ(Distance_XY(INT_MIN, INT_MIN, INT_MAX, INT_MAX), INT_MAX);
  EXPECT_EQ(Distance_XY(INT_MIN, 0, 0, 0), INT_MAX);
  EXPECT_EQ(Distance_XY(0, INT_MAX, 0, INT_MIN), INT_MAX);
}

double Angle(const Vec& a1, const Vec& a2, const Vec& b1, const Vec& b2, bool useCrossing = false) {
  return Angle_between_2_lines(0, a1, a2, b1, b2, useCrossing);
}

Vec Turned(double radians) { return {10 * std::cos(radians), 10 * std::sin(radians), 0}; }

TEST(AngleBetween2Lines, IsMeasuredAtTheSharedEndInAnyPairing) {
  for (const double angle : {0.1, 1.0, kPi / 2, 3.0}) {
    const Vec b = Turned(angle);
    EXPECT_NEAR(Angle(kO, kX, kO, b), angle, 1e-13);
    EXPECT_NEAR(Angle(kO, kX, b, kO), angle, 1e-13);
    EXPECT_NEAR(Angle(kX, kO, kO, b), angle, 1e-13);
    EXPECT_NEAR(Angle(kX, kO, b, kO), angle, 1e-13);
    EXPECT_NEAR(Angle(kO, kX, kO, Turned(-angle)), angle, 1e-13);
  }
}

TEST(AngleBetween2Lines, IsMeasuredInAnyPlane) {
  const Vec shared(5, -7, 2);
  EXPECT_NEAR(Angle(shared + Vec(3, 3, 3), shared, shared, shared + Vec(1, -1, 0)), kPi / 2, 1e-15);
  EXPECT_NEAR(Angle(shared + Vec(0, 2, 2), shared, shared + Vec(3, 3, 0), shared), kPi / 3, 1e-15);
}

// From the shared end of a, b's far end would stand at 174 degrees.
TEST(AngleBetween2Lines, StartsEachDirectionAtTheSegmentsOwnEnd) {
  EXPECT_EQ(Angle(kO, Vec(0.001, 0, 0), Vec(0, 0.0001, 0), Vec(-0.001, 0.0001, 0)),
            std::acos(-1.0));
}

// Segments little longer than the tolerance: two pairs coincide in each line, and the later one
// would give 0.
TEST(AngleBetween2Lines, TakesTheFirstPairThatCoincides) {
  const auto along = [](double x) { return Vec(x, 0, 0); };
  const Vec a2 = along(0.00015);
  EXPECT_EQ(Angle(kO, a2, along(0.00005), along(-0.0001)), std::acos(-1.0));   // a1 b1
  EXPECT_EQ(Angle(kO, a2, along(-0.01), along(0.0001)), std::acos(-1.0));      // a1 b2
  EXPECT_EQ(Angle(kO, a2, along(0.00014), along(0.000245)), std::acos(-1.0));  // a2 b1
}

TEST(AngleBetween2Lines, TakesACosineAbove0Point999999InMagnitudeAs1) {
  EXPECT_SAME_BITS(Angle(kO, kX, kO, Turned(0.0014)), 0.0);
  EXPECT_NEAR(Angle(kO, kX, kO, Turned(0.00143)), 0.00143, 1e-12);
  EXPECT_EQ(Angle(kO, kX, kO, Turned(kPi - 0.0014)), std::acos(-1.0));
  EXPECT_NEAR(Angle(kO, kX, kO, Turned(kPi - 0.00143)), kPi - 0.00143, 1e-12);
}

TEST(AngleBetween2Lines, IsMinus1ForASegmentOfAtMost0Point0001) {
  const double above = std::nextafter(0.0001, 1.0);
  for (const int unit : {0, 1, 2, -1}) {
    EXPECT_EQ(Angle_between_2_lines(unit, kO, Vec(0.0001, 0, 0), kO, Vec(0, 5, 0), true), -1.0);
    EXPECT_EQ(Angle_between_2_lines(unit, kO, kX, Vec(0, 0.0001, 0), kO, true), -1.0);
    EXPECT_NEAR(Angle_between_2_lines(unit, kO, Vec(above, 0, 0), kO, Vec(0, 5, 0), true), kPi / 2,
                1e-15);
    EXPECT_NEAR(Angle_between_2_lines(unit, kO, kX, kO, Vec(0, above, 0), true), kPi / 2, 1e-15);
  }
}

TEST(AngleBetween2Lines, IsMinus1ForSegmentsThatShareNoPlane) {
  EXPECT_EQ(Angle(kO, kX, Vec(0, 5, 0), Vec(0, 8, 1), true), -1.0);
  EXPECT_EQ(Angle(kO, Vec(kNaN, 0, 0), kO, Vec(0, 8, 1), true), -1.0);
}

// The last point stands 0.005 off the plane, half the limit of millimetres.
TEST(AngleBetween2Lines, HandsTheUnitFlagToPointInPlane) {
  const auto crossing = [](int unit) {
    const Vec last(0, 8, 0.005);
    return Angle_between_2_lines(unit, kO, kX, Vec(0, 5, 0), last, true) == -1.0;
  };
  support::ExpectOnly1IsInches(crossing, false, true);
}

TEST(AngleBetween2Lines, IsMinus1WithoutASharedEndUnlessTheCrossingIsAskedFor) {
  EXPECT_EQ(Angle(Vec(1, 0, 0), kX, Vec(0, 1, 0), Vec(0, 9, 0), false), -1.0);
  EXPECT_NEAR(Angle(Vec(1, 0, 0), kX, Vec(0, 1, 0), Vec(0, 9, 0), true), kPi / 2, 1e-15);
}

// The lines cross in the origin; b stands at 45 degrees on the side of its first point.
TEST(AngleBetween2Lines, LooksFromTheCrossingToTheFirstPoints) {
  EXPECT_NEAR(Angle(Vec(1, 0, 0), kX, Vec(1, 1, 0), Vec(9, 9, 0), true), kPi / 4, 1e-14);
  EXPECT_NEAR(Angle(Vec(-1, 0, 0), kX, Vec(1, 1, 0), Vec(9, 9, 0), true), kPi * 3 / 4, 1e-14);
  EXPECT_NEAR(Angle(Vec(1, 0, 0), kX, Vec(-1, -1, 0), Vec(9, 9, 0), true), kPi * 3 / 4, 1e-14);
}

// A first point short of the origin by less than a millionth is passed over: the second one stands
// on the other side.
TEST(AngleBetween2Lines, LooksToTheSecondPointWhereTheFirstIsTheCrossing) {
  const Vec b1(1, 1, 0);
  const Vec b2(9, 9, 0);
  EXPECT_NEAR(Angle(kO, kX, b1, b2, true), kPi / 4, 1e-14);
  EXPECT_NEAR(Angle(Vec(-0.995e-6, 0, 0), kX, b1, b2, true), kPi / 4, 1e-14);
  EXPECT_NEAR(Angle(Vec(-1.005e-6, 0, 0), kX, b1, b2, true), kPi * 3 / 4, 1e-9);
  EXPECT_NEAR(Angle(b1, b2, Vec(-0.995e-6, 0, 0), kX, true), kPi / 4, 1e-14);
  EXPECT_NEAR(Angle(b1, b2, Vec(-1.005e-6, 0, 0), kX, true), kPi * 3 / 4, 1e-9);
}

// On the diagonal a first point is 1.4 times as far from the origin as its coordinates tell.
TEST(AngleBetween2Lines, ComparesTheCrossingCoordinateByCoordinate) {
  const Vec within(-0.9e-6, -0.9e-6, 0);
  const Vec beyond(-1.1e-6, -1.1e-6, 0);
  const Vec diagonal(9, 9, 0);
  const Vec b1(1, 0, 0);
  EXPECT_NEAR(Angle(within, diagonal, b1, kX, true), kPi / 4, 1e-14);
  EXPECT_NEAR(Angle(b1, kX, within, diagonal, true), kPi / 4, 1e-14);
  // The crossing is good to 1e-15 or so, seen from a point 1.5e-6 away.
  EXPECT_NEAR(Angle(beyond, diagonal, b1, kX, true), kPi * 3 / 4, 1e-8);
  EXPECT_NEAR(Angle(b1, kX, beyond, diagonal, true), kPi * 3 / 4, 1e-8);
}

TEST(AngleBetween2Lines, IsMinus1WhereNothingCrosses) {
  EXPECT_EQ(Angle(kO, kX, Vec(0, 5, 0), Vec(10, 5, 0), true), -1.0);
  EXPECT_EQ(Angle(kO, kX, Vec(20, 0, 0), Vec(30, 0, 0), true), -1.0);
}

// A slope of 0.00005 is parallel in millimetres; in inches the lines cross at x = 20, between the
// first points.
TEST(AngleBetween2Lines, HandsTheUnitFlagToIntspt) {
  const auto angle = [](int unit) {
    return Angle_between_2_lines(unit, kO, kX, Vec(30, 0.0005, 0), Vec(40, 0.001, 0), true);
  };
  support::ExpectOnly1IsInches(angle, -1.0, std::acos(-1.0));
}

TEST(GetLengthOnDirection, IsTheDistanceToTheFoot) {
  EXPECT_EQ(Get_length_on_direction(0, Vec(1, 1, 1), Vec(4, 5, 13), Vec(0, 1, 0)), 4.0);
  EXPECT_EQ(Get_length_on_direction(0, Vec(1, 1, 1), Vec(4, 5, 13), Vec(0, 0, -1)), 12.0);
  EXPECT_EQ(Get_length_on_direction(0, kO, kX, Vec(0, 1, 0)), 0.0);
}

TEST(GetLengthOnDirection, Is0ForPointsAtMost0Point0001Apart) {
  const double above = std::nextafter(0.0001, 1.0);
  for (const int unit : {0, 1, 2, -1}) {
    EXPECT_SAME_BITS(Get_length_on_direction(unit, kO, Vec(0.0001, 0, 0), Vec(1, 0, 0)), 0.0);
    EXPECT_EQ(Get_length_on_direction(unit, kO, Vec(above, 0, 0), Vec(1, 0, 0)), above);
  }
}

// The cosine of a slope s is 1 - s * s / 2: 1 - 9.94e-7 and 1 - 1.008e-6.
TEST(GetLengthOnDirection, IsThePlainDistanceForAParallelWay) {
  const Vec slight(10, 0.0141, 0);
  const Vec more(10, 0.0142, 0);
  for (const int unit : {0, 1, 2, -1}) {
    EXPECT_NEAR(Get_length_on_direction(unit, kO, slight, Vec(1, 0, 0)), std::sqrt(100.00019881),
                1e-14);
    EXPECT_NEAR(Get_length_on_direction(unit, kO, slight, Vec(-1, 0, 0)), std::sqrt(100.00019881),
                1e-14);
    EXPECT_EQ(Get_length_on_direction(unit, kO, more, Vec(1, 0, 0)), 10.0);
    EXPECT_EQ(Get_length_on_direction(unit, kO, more, Vec(-1, 0, 0)), 10.0);
  }
}

TEST(GetLengthOnDirection, TakesNaN) {
  EXPECT_TRUE(std::isnan(Get_length_on_direction(0, kO, Vec(kNaN, 1, 1), Vec(1, 0, 0))));
  EXPECT_EQ(Get_length_on_direction(0, kO, Vec(0, kInfinity, 0), Vec(0, 1, 0)), kInfinity);
}

}  // namespace
