#include <KTRCL_Geometry/kernel/Unfolding.h>

#include "support/Build.h"
#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using support::kInfinity;
using support::kNaN;
using support::kPi;
using support::kUnwritten;
using support::Vec;

struct Xy {
  double x;
  double y;
};

// Rows of an output, with one row more than any routine writes.
struct Rows {
  double row[3][3] = {{11.5, -12.25, 13.125}, {11.5, -12.25, 13.125}, {11.5, -12.25, 13.125}};
  int result = -1;
  Vec At(int i) const { return Vec(row[i]); }
};

// ---- thickness.

TEST(CalThickness, MovesBothPointsBy15TimesTheFactor) {
  Rows out;
  // From (4, 6) to (7, 10) runs (0.6, 0.8); twice 15 along it is (18, 24).
  Cal_thickness(1, 2, 4, 6, 7, 10, out.row, 2);
  EXPECT_POINT_NEAR(out.At(0), Vec(19, 26, 0), 1e-14);
  EXPECT_POINT_NEAR(out.At(1), Vec(22, 30, 0), 1e-14);
  EXPECT_POINT_EQ(out.At(2), kUnwritten);
}

TEST(CalThickness, ANegativeFactorMovesBackAndZeroNot) {
  Rows out;
  Cal_thickness(1, 2, 4, 6, 4, 9, out.row, -0.5);
  EXPECT_POINT_EQ(out.At(0), Vec(1, -5.5, 0));
  EXPECT_POINT_EQ(out.At(1), Vec(4, -1.5, 0));
  Cal_thickness(1, 2, 4, 6, 4, 9, out.row, 0);
  EXPECT_POINT_EQ(out.At(0), Vec(1, 2, 0));
  EXPECT_POINT_EQ(out.At(1), Vec(4, 6, 0));
}

TEST(CalThickness, ShortDirectionsAreNormalizedToo) {
  Rows out;
  Cal_thickness(1, 2, 0, 0, 0x1p-20, 0, out.row, 1);
  EXPECT_POINT_EQ(out.At(0), Vec(16, 2, 0));
  EXPECT_POINT_EQ(out.At(1), Vec(15, 0, 0));
}

TEST(CalThickness, EqualPoints2And3GiveNoNumbers) {
  Rows out;
  Cal_thickness(1, 2, 4, 6, 4, 6, out.row, 2);
  EXPECT_TRUE(std::isnan(out.row[0][0]));
  EXPECT_TRUE(std::isnan(out.row[1][1]));
}

// ---- outline of a bent flange.

// Lines meet at the origin, from (-10, 0) and towards (0, 5): u = (-1, 0), v = (0, 1), d = 10.
constexpr Xy kFrom{-10, 0};
constexpr Xy kCorner{0, 0};
constexpr Xy kTowards{0, 5};
constexpr Xy kSameSide{3, 7};
constexpr Xy kOtherSide{3, -7};
constexpr double kLimit = 1.5707963167948966;
constexpr double kLength = 20;
constexpr double kThickness = 2;
constexpr double kRadius = 3;

Rows Bend(const Xy& p1, const Xy& p2, const Xy& p3, const Xy& p4, double angle,
          double length = kLength, double thickness = kThickness, double radius = kRadius) {
  Rows out;
  out.result = Cal_lines_with_thick(p1.x, p1.y, p2.x, p2.y, p3.x, p3.y, p4.x, p4.y, angle, length,
                                    thickness, radius, out.row);
  return out;
}
Rows Bend(const Xy& side, double angle) { return Bend(kFrom, kCorner, kTowards, side, angle); }

// One point, and rows behind it as they were; z too.
void ExpectOne(const Rows& out, double x, double y) {
  EXPECT_EQ(out.result, 1);
  EXPECT_POINT_NEAR(out.At(0), Vec(x, y, kUnwritten[2]), 1e-14);
  EXPECT_POINT_EQ(out.At(1), kUnwritten);
  EXPECT_POINT_EQ(out.At(2), kUnwritten);
}
void ExpectTwo(const Rows& out, double x0, double y0, double x1, double y1, double bound = 1e-13) {
  EXPECT_EQ(out.result, 2);
  EXPECT_POINT_NEAR(out.At(0), Vec(x0, y0, kUnwritten[2]), bound);
  EXPECT_POINT_NEAR(out.At(1), Vec(x1, y1, kUnwritten[2]), bound);
  EXPECT_POINT_EQ(out.At(2), kUnwritten);
}
// Sharp bends: k is carried beyond the corner along the first line and added to the length.
void ExpectSharp(const Rows& out, double k, double bound = 1e-13) {
  ExpectTwo(out, k, k + kLength, k, 0, bound);
}
double TakenOff(double a) { return 1 / std::tan(a / 2) - 1; }

TEST(CalLinesWithThick, AboveTheLimitTheSideOfPoint3GivesOnePointAlongTheSecondLine) {
  ExpectOne(Bend(kSameSide, 2 * kPi / 3), 0, kLength);
}

// tan 60 degrees is sqrt(3), so that w = 2 / sqrt(3).
TEST(CalLinesWithThick, AboveTheLimitTheOtherSideGivesTwoPointsSetBackByTheThickness) {
  const double w = 2 / std::sqrt(3.0);
  ExpectTwo(Bend(kOtherSide, 2 * kPi / 3), -w, kLength - w, -w, 0);
}

TEST(CalLinesWithThick, ARightAngleExceedsTheLimit) {
  ExpectOne(Bend(kSameSide, kPi / 2), 0, kLength);
  // tan 45 degrees is 1; with the formula for sharp bends k would be -thickness, the same place.
  ExpectTwo(Bend(kOtherSide, kPi / 2), -kThickness, kLength - kThickness, -kThickness, 0);
}

TEST(CalLinesWithThick, TheLimitItselfIsNotAbove) {
  ExpectSharp(Bend(kSameSide, kLimit), 5 * TakenOff(kLimit));
  ExpectOne(Bend(kSameSide, std::nextafter(kLimit, 2)), 0, kLength);
  ExpectSharp(Bend(kSameSide, -kLimit), 5 * TakenOff(kLimit));
  ExpectOne(Bend(kSameSide, -std::nextafter(kLimit, 2)), 0, kLength);
}

// tan 30 degrees is 1 / sqrt(3).
TEST(CalLinesWithThick, UpToTheLimitTheSideOfPoint3TakesThicknessAndRadius) {
  ExpectSharp(Bend(kSameSide, kPi / 3), (std::sqrt(3.0) - 1) * (kThickness + kRadius));
}
TEST(CalLinesWithThick, UpToTheLimitTheOtherSideTakesTheRadiusLessTheThickness) {
  ExpectSharp(Bend(kOtherSide, kPi / 3), (std::sqrt(3.0) - 1) * kRadius - kThickness);
}

TEST(CalLinesWithThick, DoesNotLookAtTheSignOfAnAngleUpToPi) {
  ExpectOne(Bend(kSameSide, -2 * kPi / 3), 0, kLength);
  ExpectSharp(Bend(kSameSide, -kPi / 3), (std::sqrt(3.0) - 1) * 5);
  ExpectSharp(Bend(kOtherSide, -kPi / 3), (std::sqrt(3.0) - 1) * 3 - 2);
}

// 2 pi - 4 = 2.283 is above the limit.
TEST(CalLinesWithThick, AnAngleOfMinus4Is2PiLess4OnTheOtherSide) {
  const double w = kThickness / std::tan((2 * kPi - 4) / 2);
  for (const double angle : {-4.0, 4.0}) {
    ExpectOne(Bend(kOtherSide, angle), 0, kLength);
    ExpectTwo(Bend(kSameSide, angle), -w, kLength - w, -w, 0);
  }
}

// 2 pi - 5 = 1.283 is not.
TEST(CalLinesWithThick, AnAngleOfMinus5Is2PiLess5OnTheOtherSide) {
  const double c = TakenOff(2 * kPi - 5);
  for (const double angle : {-5.0, 5.0}) {
    ExpectSharp(Bend(kSameSide, angle), c * kRadius - kThickness);
    ExpectSharp(Bend(kOtherSide, angle), c * (kThickness + kRadius));
  }
}

TEST(CalLinesWithThick, AFullTurnAndMoreCountsFromThere) {
  const double c = TakenOff(7 - 2 * kPi);
  for (const double angle : {-7.0, 7.0}) {
    ExpectSharp(Bend(kSameSide, angle), c * kRadius - kThickness);
    ExpectSharp(Bend(kOtherSide, angle), c * (kThickness + kRadius));
  }
}

TEST(CalLinesWithThick, PiItselfKeepsTheSide) {
  EXPECT_EQ(Bend(kSameSide, kPi).result, 1);
  EXPECT_EQ(Bend(kOtherSide, kPi).result, 2);
  EXPECT_EQ(Bend(kSameSide, -kPi).result, 1);
  EXPECT_EQ(Bend(kSameSide, std::nextafter(kPi, 4)).result, 2);
  EXPECT_EQ(Bend(kOtherSide, std::nextafter(kPi, 4)).result, 1);
  EXPECT_EQ(Bend(kSameSide, -std::nextafter(kPi, 4)).result, 2);
}

TEST(CalLinesWithThick, APointOnTheFirstLineIsOnTheOtherSide) {
  const double w = 2 / std::sqrt(3.0);
  ExpectTwo(Bend({7, 0}, 2 * kPi / 3), -w, kLength - w, -w, 0);
  // And so is every point where point 3 stands on the first line: v = (1, 0).
  ExpectTwo(Bend(kFrom, kCorner, {5, 0}, kSameSide, 2 * kPi / 3), -w + kLength - w, 0, -w, 0);
  EXPECT_EQ(Bend({7, 0}, 4).result, 1) << "turned round by the large angle";
}

TEST(CalLinesWithThick, BothPointsBelowTheFirstLineAreOnOneSide) {
  ExpectOne(Bend(kFrom, kCorner, {0, -5}, {3, -7}, 2 * kPi / 3), 0, -kLength);
  EXPECT_EQ(Bend(kFrom, kCorner, {0, -5}, {3, 7}, 2 * kPi / 3).result, 2);
}

TEST(CalLinesWithThick, TurnsAndMovesAndMirrorsWithItsPoints) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    std::array<Xy, 4> p{};
    for (Xy& q : p) q = {random.Between(-20, 20), random.Between(-20, 20)};
    const double length = std::hypot(p[0].x - p[1].x, p[0].y - p[1].y);
    if (length < 1 || std::hypot(p[2].x - p[1].x, p[2].y - p[1].y) < 1) continue;
    const double angle = random.Between(0.3, 6);
    const double turn = random.Between(-3, 3);
    const double mirror = random.Bool() ? 1 : -1;
    const auto carried = [&](double x, double y) {
      const double v = mirror * y;
      return Xy{7 + x * std::cos(turn) - v * std::sin(turn),
                -9 + x * std::sin(turn) + v * std::cos(turn)};
    };
    std::array<Xy, 4> q{};
    for (std::size_t k = 0; k < 4; ++k) q[k] = carried(p[k].x, p[k].y);
    const Rows here = Bend(p[0], p[1], p[2], p[3], angle);
    const Rows there = Bend(q[0], q[1], q[2], q[3], angle);
    ASSERT_EQ(there.result, here.result);
    for (int row = 0; row < here.result; ++row) {
      const Xy expected = carried(here.row[row][0], here.row[row][1]);
      ASSERT_NEAR(there.row[row][0], expected.x, 1e-10);
      ASSERT_NEAR(there.row[row][1], expected.y, 1e-10);
    }
  }
}

TEST(CalLinesWithThick, NaNAnglesTakeTheSharpBendAndGiveNoNumbers) {
  const Rows out = Bend(kSameSide, kNaN);
  EXPECT_EQ(out.result, 2);
  EXPECT_TRUE(std::isnan(out.row[0][0]));
}

TEST(CalLinesWithThick, AnswersEveryFigure) {
  for (const double value : {0.0, kNaN, kInfinity, -kInfinity, 1e308, 1e-308}) {
    for (std::size_t i = 0; i < 12; ++i) {
      std::array<double, 12> v{-10, 0, 0, 0, 0, 5, 3, 7, 1, 20, 2, 3};
      v[i] = value;
      Rows out;
      const int result = Cal_lines_with_thick(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8],
                                              v[9], v[10], v[11], out.row);
      EXPECT_TRUE(result == 1 || result == 2);
      EXPECT_EQ(out.row[0][2], kUnwritten[2]);
    }
  }
}

// ---- K factor.

double K(double thickness, double unfolded, const GXDoubleVector& lengths,
         const GXDoubleVector& radii, const GXDoubleVector& angles) {
  return K_factor_by_unfolding_and_3D(thickness, unfolded, lengths, radii, angles);
}

// Flanges 100 and 50 with thickness 2 and radius 3 at 90 degrees: both lengths less twice 5 are
// 140, and the neutral line adds pi / 2 (3 + 2 K). For K = 0.25 that makes 140 + 1.75 pi.
TEST(KFactorByUnfoldingAnd3D, FindsTheFactorOfARightAngle) {
  EXPECT_NEAR(K(2, 140 + 1.75 * kPi, {100, 50}, {0, 3}, {0, 90}), 0.25, 1e-14);
  EXPECT_NEAR(K(2, 140 + 1.75 * kPi, {100, 50}, {0, 3}, {0, -90}), 0.25, 1e-14) << "sign";
}

// At 135 degrees b is 45 degrees, and the setback is (3 + 2) tan(22.5) = 5 (sqrt(2) - 1) twice.
TEST(KFactorByUnfoldingAnd3D, ShortensTheSetbackOfAnObtuseBendByTheTangent) {
  const double unfolded = 150 - 10 * (std::sqrt(2.0) - 1) + kPi / 4 * (3 + 2 * 0.4);
  EXPECT_NEAR(K(2, unfolded, {100, 50}, {0, 3}, {0, 135}), 0.4, 1e-13);
}

// At 60 degrees b is 120 degrees, and the setback stays whole.
TEST(KFactorByUnfoldingAnd3D, KeepsTheWholeSetbackOfAnAcuteBend) {
  const double unfolded = 150 - 10 + 2 * kPi / 3 * (3 + 2 * 0.4);
  EXPECT_NEAR(K(2, unfolded, {100, 50}, {0, 3}, {0, 60}), 0.4, 1e-13);
  EXPECT_NEAR(K(2, 150 - 10 + kPi * (3 + 2 * 0.4), {100, 50}, {0, 3}, {0, 0}), 0.4, 1e-13)
      << "folded flat";
}

// Both factors for the setback that belongs to them; the other one is 10 (1 - tan(b/2)) off, over
// b times thickness, that is 1e-3 here.
TEST(KFactorByUnfoldingAnd3D, UsesDifferentSetbacksAt90And90Point02) {
  const auto factor = [](double angle, double share) {
    const double b = (180 - angle) * kPi / 180;
    return K(2, 150 - 10 * share + b * (3 + 2 * 0.25), {100, 50}, {0, 3}, {0, angle});
  };
  EXPECT_NEAR(factor(90.0, 1), 0.25, 1e-13);
  EXPECT_NEAR(factor(90.02, std::tan(44.99 * kPi / 180)), 0.25, 1e-13);
  EXPECT_GT(std::fabs(factor(90.02, 1) - 0.25), 1e-4);
}

TEST(KFactorByUnfoldingAnd3D, TheSeamAt90Point01BelongsToTheWholeSetback) {
  const auto factor = [](double angle) {
    const double b = (180 - std::fabs(angle)) * kPi / 180;
    return K(2, 150 - 10 + b * (3 + 2 * 0.25), {100, 50}, {0, 3}, {0, angle});
  };
  EXPECT_NEAR(factor(90.01), 0.25, 1e-13);
  EXPECT_NEAR(factor(-90.01), 0.25, 1e-13);
  // tan(44.995) falls short of 1 by 1.745e-4.
  EXPECT_NEAR(factor(std::nextafter(90.01, 91)) - 0.25, -10 * 1.745e-4 / (kPi / 2 * 2), 1e-6);
}

TEST(KFactorByUnfoldingAnd3D, AddsUpItsBends) {
  // At 90, 120 and 45 degrees with radii 3, 1 and 2; b is 90, 60 and 135 degrees.
  const double k = 0.3;
  const double t = 1.5;
  const double unfolded = 400 - 2 * (3 + t) - 2 * (1 + t) * std::tan(kPi / 6) - 2 * (2 + t) +
                          kPi / 2 * (3 + k * t) + kPi / 3 * (1 + k * t) + 3 * kPi / 4 * (2 + k * t);
  EXPECT_NEAR(K(t, unfolded, {100, 50, 200, 50}, {0, 3, 1, 2}, {0, 90, 120, 45}), k, 1e-13);
}

TEST(KFactorByUnfoldingAnd3D, AnAngleAbove180BendsTheOtherWay) {
  // b is -20 degrees; the terms keep their form.
  const double b = -kPi / 9;
  const double unfolded = 150 - 10 * std::tan(b / 2) + b * (3 + 2 * 0.4);
  EXPECT_NEAR(K(2, unfolded, {100, 50}, {0, 3}, {0, 200}), 0.4, 1e-12);
}

TEST(KFactorByUnfoldingAnd3D, OneFlangeGivesMinus1) {
  EXPECT_EQ(K(2, 80, {100}, {3}, {90}), -1.0);
  EXPECT_EQ(K(2, 80, {100}, {}, {}), -1.0);
  EXPECT_EQ(K(2, 80, {100}, {0, 3}, {0, 90}), -1.0) << "the lengths set the count";
}

TEST(KFactorByUnfoldingAnd3D, NoFlangeGivesMinus1) {
  EXPECT_EQ(K(2, 80, {}, {}, {}), -1.0);
  EXPECT_EQ(K(2, 80, {}, {0, 3}, {0, 90}), -1.0);
}

TEST(KFactorByUnfoldingAnd3D, FewerRadiiOrAnglesThanLengthsGiveMinus1) {
  EXPECT_EQ(K(2, 140, {100, 50}, {0}, {0, 90}), -1.0);
  EXPECT_EQ(K(2, 140, {100, 50}, {0, 3}, {0}), -1.0);
  EXPECT_EQ(K(2, 140, {100, 50}, {}, {}), -1.0);
}

TEST(KFactorByUnfoldingAnd3D, MoreRadiiAndAnglesThanLengthsAreNotRead) {
  EXPECT_NEAR(K(2, 140 + 1.75 * kPi, {100, 50}, {0, 3, kNaN}, {0, 90, kNaN}), 0.25, 1e-14);
}

TEST(KFactorByUnfoldingAnd3D, TheFirstRadiusAndAngleAreNotRead) {
  EXPECT_NEAR(K(2, 140 + 1.75 * kPi, {100, 50}, {kNaN, 3}, {kNaN, 90}), 0.25, 1e-14);
}

TEST(KFactorByUnfoldingAnd3D, AFlatBendGivesMinus1) {
  EXPECT_EQ(K(2, 140, {100, 50}, {0, 3}, {0, 180}), -1.0);
}

// D is b times the thickness; b is pi / 2.
TEST(KFactorByUnfoldingAnd3D, ADenominatorUpTo0Point0001GivesMinus1) {
  const double bound = 0.0001 / (kPi / 2);
  EXPECT_EQ(K(bound * 0.999, 140, {100, 50}, {0, 3}, {0, 90}), -1.0);
  EXPECT_EQ(K(-bound * 0.999, 140, {100, 50}, {0, 3}, {0, 90}), -1.0);
  // At 60 degrees, where the quotient times b gives the very bound.
  const double b = 120 * kPi / 180;
  ASSERT_EQ(0.0001 / b * b, 0.0001);
  EXPECT_EQ(K(0.0001 / b, 140, {100, 50}, {0, 3}, {0, 60}), -1.0) << "inclusive";
  EXPECT_NE(K(bound * 1.001, 140, {100, 50}, {0, 3}, {0, 90}), -1.0);
  EXPECT_NE(K(-bound * 1.001, 140, {100, 50}, {0, 3}, {0, 90}), -1.0);
}

TEST(KFactorByUnfoldingAnd3D, BendsThatCancelGiveMinus1) {
  EXPECT_EQ(K(2, 140, {100, 50, 50}, {0, 3, 3}, {0, 160, 200}), -1.0);
}

TEST(KFactorByUnfoldingAnd3D, NaNGivesNoNumber) {
  EXPECT_TRUE(std::isnan(K(2, 140, {100, 50}, {0, 3}, {0, kNaN})));
  EXPECT_TRUE(std::isnan(K(2, kNaN, {100, 50}, {0, 3}, {0, 90})));
  EXPECT_TRUE(std::isnan(K(kNaN, 140, {100, 50}, {0, 3}, {0, 90})));
}

TEST(KFactorByUnfoldingAnd3D, FindsTheFactorThatUnfoldedAtRandom) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const double t = random.Between(0.5, 5);
    const double k = random.Between(0, 0.5);
    GXDoubleVector lengths{random.Between(10, 100)};
    GXDoubleVector radii{0};
    GXDoubleVector angles{0};
    long double unfolded = lengths[0];
    for (int bends = random.Int(1, 5); bends > 0; --bends) {
      lengths.push_back(random.Between(10, 100));
      radii.push_back(random.Between(0, 5));
      angles.push_back(random.Between(-170, 170));
      const long double b = (180 - std::fabs(static_cast<long double>(angles.back()))) *
                            3.14159265358979323846L / 180;
      const long double share = std::fabs(angles.back()) <= 90.01 ? 1.0L : std::tan(b / 2);
      unfolded += lengths.back() - 2 * (radii.back() + t) * share + b * (radii.back() + k * t);
    }
    // Lengths of up to 600 are rounded to 1e-13; D is at least 0.17 / 2.
    ASSERT_NEAR(K(t, static_cast<double>(unfolded), lengths, radii, angles), k, 1e-10);
  }
}

// ---- stretching.

struct Segment {
  Vec a;
  Vec b;
};
Segment Stretched(Segment s) {
  Alluco(&s.a[0], &s.a[1], &s.a[2], &s.b[0], &s.b[1], &s.b[2]);
  return s;
}

TEST(Alluco, StretchesBothEndsBy30000) {
  const Segment s = Stretched({Vec(0, 0, 0), Vec(3, 4, 0)});
  EXPECT_POINT_NEAR(s.a, Vec(-18000, -24000, 0), 1e-11);
  EXPECT_POINT_NEAR(s.b, Vec(18003, 24004, 0), 1e-11);
}

// (1, 2, 2) / 3 is the direction.
TEST(Alluco, StretchesInSpaceAndKeepsTheDirection) {
  const Segment s = Stretched({Vec(2, 3, 4), Vec(1, 1, 2)});
  EXPECT_POINT_NEAR(s.a, Vec(10002, 20003, 20004), 1e-11);
  EXPECT_POINT_NEAR(s.b, Vec(-9999, -19999, -19998), 1e-11);
}

TEST(Alluco, StretchesAShortSegmentAsFar) {
  const Segment s = Stretched({Vec(0, 0, 0), Vec(0x1p-20, 0, 0)});
  EXPECT_POINT_NEAR(s.a, Vec(-30000, 0, 0), 1e-11);
  EXPECT_POINT_NEAR(s.b, Vec(30000 + 0x1p-20, 0, 0), 1e-11);
}

TEST(Alluco, ASegmentOfLengthZeroGivesNoNumbers) {
  const Segment s = Stretched({Vec(1, 2, 3), Vec(1, 2, 3)});
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(std::isnan(s.a[i]));
    EXPECT_TRUE(std::isnan(s.b[i]));
  }
}

TEST(Alluco, LengthensBy60000AndKeepsTheMiddleAtRandom) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    Segment s{Vec(0, 0, 0), Vec(0, 0, 0)};
    for (int k = 0; k < 3; ++k) {
      s.a[k] = random.Between(-100, 100);
      s.b[k] = random.Between(-100, 100);
    }
    const double length = Length(s.b - s.a);
    if (length < 1) continue;
    const Segment out = Stretched(s);
    ASSERT_NEAR(Length(out.b - out.a), length + 60000, 1e-9);
    ASSERT_POINT_NEAR(out.a + out.b, s.a + s.b, 1e-10);
    ASSERT_NEAR(Dot(out.b - out.a, s.b - s.a), length * (length + 60000), 1e-6);
  }
}

}  // namespace
