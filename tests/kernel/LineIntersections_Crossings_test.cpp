#include <KTRCL_Geometry/kernel/Intersections.h>

#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using support::kInfinity;
using support::kNaN;
using support::kUnwritten;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kX(10, 0, 0);

Vec RandomPoint(support::Random& random, double extent) {
  const double x = random.Between(-extent, extent);
  const double y = random.Between(-extent, extent);
  return {x, y, random.Between(-extent, extent)};
}

// Distance of p from the line through a and b, in long double.
long double FromLine(const Vec& a, const Vec& b, const Vec& p) {
  std::array<long double, 3> u{};
  std::array<long double, 3> w{};
  for (int i = 0; i < 3; ++i) {
    u[static_cast<std::size_t>(i)] = static_cast<long double>(b[i]) - a[i];
    w[static_cast<std::size_t>(i)] = static_cast<long double>(p[i]) - a[i];
  }
  const long double x = u[1] * w[2] - u[2] * w[1];
  const long double y = u[2] * w[0] - u[0] * w[2];
  const long double z = u[0] * w[1] - u[1] * w[0];
  return std::sqrt((x * x + y * y + z * z) / (u[0] * u[0] + u[1] * u[1] + u[2] * u[2]));
}

TEST(Intspt, CrossesLinesInThePlane) {
  Vec out = kUnwritten;
  EXPECT_EQ(Intspt(0, kO, kX, Vec(3, -1, 0), Vec(3, 5, 0), out), 1) << "b upright";
  EXPECT_POINT_NEAR(out, Vec(3, 0, 0), 1e-15);
  EXPECT_EQ(Intspt(0, kO, Vec(4, 4, 0), Vec(0, 4, 0), Vec(4, 0, 0), out), 1);
  EXPECT_POINT_NEAR(out, Vec(2, 2, 0), 1e-14);
}

TEST(Intspt, LinesAreUnbounded) {
  Vec out = kUnwritten;
  EXPECT_EQ(Intspt(0, kO, Vec(1, 0, 0), Vec(-50, 1, 0), Vec(-50, 2, 0), out), 1);
  EXPECT_POINT_NEAR(out, Vec(-50, 0, 0), 1e-12);
}

// Through (7, 0, 0), in the plane that holds the x axis and (0, 3, 4).
TEST(Intspt, CrossesLinesInSpace) {
  Vec out = kUnwritten;
  EXPECT_EQ(Intspt(0, kO, kX, Vec(8, 3, 4), Vec(6, -3, -4), out), 1);
  EXPECT_POINT_NEAR(out, Vec(7, 0, 0), 1e-14);
}

TEST(Intspt, TakesTheSecondPointOfBForThePlaneWhereTheFirstIsInLine) {
  Vec out = kUnwritten;
  EXPECT_EQ(Intspt(0, kO, kX, Vec(7, 0, 0), Vec(7, 3, 4), out), 1);
  EXPECT_POINT_NEAR(out, Vec(7, 0, 0), 1e-14);
  out = kUnwritten;
  EXPECT_EQ(Intspt(0, kO, kX, kO, Vec(7, 3, 4), out), 1) << "the first one is a1";
  EXPECT_POINT_NEAR(out, kO, 1e-14);
}

// Seen from a1, the first point of b is 0.00005 off the direction of a: in line in millimetres, so
// that the second point spans the plane, and not in inches.
TEST(Intspt, ChoosesThePointForThePlaneByTheUnit) {
  const auto crossing = [](int unit) {
    Vec out = kUnwritten;
    EXPECT_EQ(Intspt(unit, kO, Vec(10, 0, 0), Vec(100, 0.005, 0), Vec(101, 3, 4), out), 1);
    return out[0];
  };
  EXPECT_NEAR(crossing(0), 100 - 0.003 / 4.997, 1e-10);
  EXPECT_NEAR(crossing(2), 100 - 0.003 / 4.997, 1e-10);
  EXPECT_NEAR(crossing(1), 100 - 0.005 / 2.995, 1e-10);
}

// The plane through the x axis and the first point of b. For b1 = (4, 2, 0) that is z = 0, where b
// meets y = 0 half way. For b1 = (6, -2, 7) the heights over the axis, along (-2, 7) / sqrt(53),
// are -4 / sqrt(53) for (4, 2, 0) and 53 / sqrt(53): 4/57 of the way from the former.
TEST(Intspt, SkewLinesGiveTheCrossingOfTheirProjectionsIntoThePlaneOfAAndB1) {
  Vec out = kUnwritten;
  EXPECT_EQ(Intspt(0, kO, kX, Vec(4, 2, 0), Vec(6, -2, 7), out), 1);
  EXPECT_POINT_NEAR(out, Vec(5, 0, 0), 1e-14);
  EXPECT_EQ(Intspt(0, kO, kX, Vec(6, -2, 7), Vec(4, 2, 0), out), 1);
  EXPECT_POINT_NEAR(out, Vec(4 + 8.0 / 57, 0, 0), 1e-14);
}

TEST(Intspt, ParallelLinesGive0AndLeaveOutAlone) {
  Vec out = kUnwritten;
  EXPECT_EQ(Intspt(0, kO, kX, Vec(0, 1, 0), Vec(5, 1, 0), out), 0);
  EXPECT_EQ(Intspt(0, kO, kX, Vec(5, 1, 0), Vec(0, 1, 0), out), 0) << "opposite";
  EXPECT_EQ(Intspt(0, kO, kX, Vec(5, 0, 0), Vec(7, 0, 0), out), 0) << "on one line";
  EXPECT_POINT_EQ(out, kUnwritten);
}

TEST(Intspt, ShortLinesCountAsParallel) {
  Vec out = kUnwritten;
  EXPECT_EQ(Intspt(0, kO, kO, Vec(0, 1, 0), Vec(5, 2, 0), out), 0);
  EXPECT_EQ(Intspt(0, kO, kX, Vec(5, 1, 0), Vec(5, 1, 0), out), 0);
  EXPECT_EQ(Intspt(0, kO, kX, Vec(5, 0, 0), Vec(5, 0.0001, 0), out), 0);
  EXPECT_POINT_EQ(out, kUnwritten);
}

// (500, 0.04, 0) is in line with a by its sine of 8e-5, so (500, 0, 0) has to span the plane and
// stands exactly on a.
TEST(Intspt, PointsThatSpanNoPlaneGive0) {
  Vec out = kUnwritten;
  EXPECT_EQ(Intspt(0, kO, Vec(1000, 0, 0), Vec(500, 0.04, 0), Vec(500, 0, 0), out), 0);
  EXPECT_POINT_EQ(out, kUnwritten);
}

// Not parallel, but so in the plane z = 0 of a and b1.
TEST(Intspt, SkewLinesWithParallelProjectionsGive0) {
  Vec out = kUnwritten;
  EXPECT_EQ(Intspt(0, kO, kX, Vec(0, 1, 0), Vec(10, 1, 5), out), 0);
  EXPECT_POINT_EQ(out, kUnwritten);
}

// In the plane b rises by `rise` over 1 and lies 1 over a, but leaves the plane, so that it is not
// in line with a.
TEST(Intspt, SlopesThatDifferBy1e8ThAreParallel) {
  Vec out = kUnwritten;
  EXPECT_EQ(Intspt(0, kO, kX, Vec(0, 1, 0), Vec(1, 1 + 0x1p-27, 1), out), 0) << "7.45e-09";
  EXPECT_POINT_EQ(out, kUnwritten);
  EXPECT_EQ(Intspt(0, kO, kX, Vec(0, 1, 0), Vec(1, 1 + 0x1p-26, 1), out), 1) << "1.49e-08";
  EXPECT_POINT_NEAR(out, Vec(-0x1p26, 0, 0), 1);
}

// The sine is 5e-5; the lines meet at x = -20000.
TEST(Intspt, LimitOfParallelReadsOnly1AsInches) {
  const auto result = [](int unit) {
    Vec out = kUnwritten;
    return Intspt(unit, kO, kX, Vec(0, 1, 0), Vec(10, 1.0005, 0), out);
  };
  support::ExpectOnly1IsInches(result, 0, 1);
}

TEST(Intspt, OutMayBeAnyInput) {
  support::ExpectOutputMayBeAnyInput(
      std::array<Vec, 4>{kO, Vec(4, 4, 1), Vec(0, 4, 1), Vec(4, 0, 0)},
      [](const std::array<const double*, 4>& p, double* out) {
        EXPECT_EQ(Intspt(0, p[0], p[1], p[2], p[3], out), 1);
      });
}

TEST(Intspt, CrossingLiesOnBothLinesAtRandom) {
  support::Random random;
  int crossings = 0;
  for (int i = 0; i < 2000; ++i) {
    const Vec c = RandomPoint(random, 50);
    const Vec u = RandomPoint(random, 1);
    const Vec v = RandomPoint(random, 1);
    if (Length(Cross(u, v)) < 0.2 * Length(u) * Length(v)) continue;
    const double s = random.Between(-20, 20);
    const double t = random.Between(-20, 20);
    const Vec a1 = c + s * u;
    const Vec a2 = c + (s + 5) * u;
    const Vec b1 = c + t * v;
    const Vec b2 = c + (t - 5) * v;
    if (Length(a2 - a1) < 1 || Length(b2 - b1) < 1) continue;
    Vec out = kUnwritten;
    ASSERT_EQ(Intspt(0, a1, a2, b1, b2, out), 1);
    ++crossings;
    // Roundings of about 1e-14 in the points grow by the ways of up to 100 to the crossing and by
    // the sine of 0.2; the rest of the bound is room for the frame.
    ASSERT_POINT_NEAR(out, c, 1e-10);
    ASSERT_LE(FromLine(a1, a2, out), 1e-10L);
    ASSERT_LE(FromLine(b1, b2, out), 1e-10L);
  }
  EXPECT_GT(crossings, 1000);
}

TEST(Intspt, AnswersEveryFigure) {
  for (const double value : {kNaN, kInfinity, -kInfinity, 1e308, 1e-308}) {
    for (int i = 0; i < 12; ++i) {
      std::array<Vec, 4> p{kO, Vec(4, 4, 1), Vec(0, 4, 1), Vec(4, 0, 0)};
      p[static_cast<std::size_t>(i / 3)][i % 3] = value;
      Vec out = kUnwritten;
      const int result = Intspt(0, p[0], p[1], p[2], p[3], out);
      if (result == 0) {
        EXPECT_POINT_EQ(out, kUnwritten);
      } else {
        EXPECT_EQ(result, 1);
      }
    }
  }
}

TEST(IntspntDll, TakesAllXBeforeAllY) {
  double x = -77;
  double y = -78;
  // (0, 0) to (4, 4) and (0, 6) to (3, 0): y = x and y = 6 - 2 x.
  EXPECT_EQ(Intspnt_dll(0, 4, 0, 3, 0, 4, 6, 0, &x, &y), 0);
  EXPECT_NEAR(x, 2, 1e-15);
  EXPECT_NEAR(y, 2, 1e-15);
}

TEST(IntspntDll, TakesAnUprightLineInEitherPlace) {
  double x = -77;
  double y = -78;
  EXPECT_EQ(Intspnt_dll(2, 2, 0, 4, 0, 9, 1, 3, &x, &y), 0) << "first";
  EXPECT_EQ(x, 2.0);
  EXPECT_NEAR(y, 2, 1e-15);
  EXPECT_EQ(Intspnt_dll(0, 6, 3, 3, 1, 4, 0, 9, &x, &y), 0) << "second";
  EXPECT_EQ(x, 3.0);
  EXPECT_NEAR(y, 2.5, 1e-15);
}

TEST(IntspntDll, GivesMinus1AndLeavesXAndYAloneForParallelLines) {
  double x = -77;
  double y = -78;
  EXPECT_EQ(Intspnt_dll(0, 4, 0, 4, 0, 4, 1, 5, &x, &y), -1);
  EXPECT_EQ(Intspnt_dll(0, 4, 0, 4, 0, 4, 0, 4, &x, &y), -1) << "the same line";
  EXPECT_EQ(Intspnt_dll(2, 2, 3, 3, 0, 4, 0, 4, &x, &y), -1) << "both upright";
  EXPECT_EQ(Intspnt_dll(2, 2, 2, 2, 0, 4, 0, 4, &x, &y), -1) << "both upright, the same line";
  EXPECT_EQ(x, -77.0);
  EXPECT_EQ(y, -78.0);
}

TEST(IntspntDll, SlopesThatDifferBy1e8ThAreParallel) {
  double x = -77;
  double y = -78;
  EXPECT_EQ(Intspnt_dll(0, 1, 0, 1, 0, 1e-8, 1, 1, &x, &y), -1);
  EXPECT_EQ(x, -77.0);
  EXPECT_EQ(Intspnt_dll(0, 1, 0, 1, 0, 2e-8, 1, 1, &x, &y), 0);
  EXPECT_NEAR(x, 5e7, 1e-6);
  EXPECT_NEAR(y, 1, 1e-14);
}

// At the height of 1e8 a line with an x extent of e over the height of 1 has moved by 1e8 e.
TEST(IntspntDll, XThatDifferBy1e8ThAreUpright) {
  double x = -77;
  double y = -78;
  EXPECT_EQ(Intspnt_dll(0, 1e-8, 0, 5, 0, 1, 1e8, 1e8, &x, &y), 0);
  EXPECT_NEAR(x, 0, 1e-7);
  EXPECT_EQ(Intspnt_dll(0, 2e-8, 0, 5, 0, 1, 1e8, 1e8, &x, &y), 0);
  EXPECT_NEAR(x, 2, 1e-6);
  EXPECT_EQ(Intspnt_dll(0, 5, 0, 1e-8, 1e8, 1e8, 0, 1, &x, &y), 0) << "second line";
  EXPECT_NEAR(x, 0, 1e-7);
  EXPECT_EQ(Intspnt_dll(0, 5, 0, 2e-8, 1e8, 1e8, 0, 1, &x, &y), 0);
  EXPECT_NEAR(x, 2, 1e-6);
}

TEST(IntspntDll, CrossingLiesOnBothLinesAtRandom) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const Vec a1(random.Between(-20, 20), random.Between(-20, 20), 0);
    const Vec a2(random.Between(-20, 20), random.Between(-20, 20), 0);
    const Vec b1(random.Between(-20, 20), random.Between(-20, 20), 0);
    const Vec b2(random.Between(-20, 20), random.Between(-20, 20), 0);
    const Vec a = a2 - a1;
    const Vec b = b2 - b1;
    // Steep lines lose digits by their slopes.
    if (std::fabs(a[0]) < 0.2 * Length(a) || std::fabs(b[0]) < 0.2 * Length(b)) continue;
    if (Length(Cross(a, b)) < 0.1 * Length(a) * Length(b)) continue;
    if (Length(a) < 1 || Length(b) < 1) continue;
    double x = 0;
    double y = 0;
    ASSERT_EQ(Intspnt_dll(a1[0], a2[0], b1[0], b2[0], a1[1], a2[1], b1[1], b2[1], &x, &y), 0);
    ASSERT_LE(FromLine(a1, a2, Vec(x, y, 0)), 1e-9L);
    ASSERT_LE(FromLine(b1, b2, Vec(x, y, 0)), 1e-9L);
  }
}

TEST(IntspntDll, NaNOfAHeightGivesNoNumbers) {
  double x = -77;
  double y = -78;
  const int result = Intspnt_dll(0, 4, 0, 3, kNaN, 4, 6, 0, &x, &y);
  EXPECT_EQ(result, 0) << "slopes that differ by no number are not parallel";
  EXPECT_TRUE(std::isnan(x));
  EXPECT_TRUE(std::isnan(y));
}

TEST(ObtainIntersectPoint, IsIntsptWithTheOutputInFront) {
  Vec out = kUnwritten;
  EXPECT_EQ(Obtain_intersect_point(0, out, kO, kX, Vec(8, 3, 4), Vec(6, -3, -4)), 1);
  EXPECT_POINT_NEAR(out, Vec(7, 0, 0), 1e-14);
}

TEST(ObtainIntersectPoint, LeavesOutAloneForParallelLines) {
  Vec out = kUnwritten;
  EXPECT_EQ(Obtain_intersect_point(0, out, kO, kX, Vec(0, 1, 0), Vec(5, 1, 0)), 0);
  EXPECT_POINT_EQ(out, kUnwritten);
}

TEST(ObtainIntersectPoint, HandsTheUnitFlagOn) {
  const auto result = [](int unit) {
    Vec out = kUnwritten;
    return Obtain_intersect_point(unit, out, kO, kX, Vec(0, 1, 0), Vec(10, 1.0005, 0));
  };
  support::ExpectOnly1IsInches(result, 0, 1);
}

TEST(ObtainIntersectPoint, OutMayBeAnyInput) {
  support::ExpectOutputMayBeAnyInput(
      std::array<Vec, 4>{kO, Vec(4, 4, 1), Vec(0, 4, 1), Vec(4, 0, 0)},
      [](const std::array<const double*, 4>& p, double* out) {
        EXPECT_EQ(Obtain_intersect_point(0, out, p[0], p[1], p[2], p[3]), 1);
      });
}

TEST(Intpmf, RaysThatMeetGive1) {
  Vec da(5, 0, 0);
  Vec db(0, 0.5, 0);
  EXPECT_EQ(Intpmf(0, kO, da, Vec(3, -4, 0), db), 1);
  EXPECT_POINT_EQ(da, Vec(1, 0, 0));
  EXPECT_POINT_EQ(db, Vec(0, 1, 0));
}

TEST(Intpmf, RaysThatPointAwayGive0AndAreStandardizedAllTheSame) {
  Vec da(-5, 0, 0);
  Vec db(0, 2, 0);
  EXPECT_EQ(Intpmf(0, kO, da, Vec(3, -4, 0), db), 0) << "a points away";
  EXPECT_POINT_EQ(da, Vec(-1, 0, 0));
  EXPECT_POINT_EQ(db, Vec(0, 1, 0));
  da = Vec(5, 0, 0);
  db = Vec(0, -2, 0);
  EXPECT_EQ(Intpmf(0, kO, da, Vec(3, -4, 0), db), 0) << "b points away";
  EXPECT_POINT_EQ(da, Vec(1, 0, 0));
  EXPECT_POINT_EQ(db, Vec(0, -1, 0));
}

TEST(Intpmf, ParallelRaysGive0AndAreStandardizedAllTheSame) {
  Vec da(3, 4, 0);
  Vec db(-6, -8, 0);
  EXPECT_EQ(Intpmf(0, kO, da, Vec(1, 0, 0), db), 0);
  EXPECT_POINT_NEAR(da, Vec(0.6, 0.8, 0), 1e-16);
  EXPECT_POINT_NEAR(db, Vec(-0.6, -0.8, 0), 1e-16);
}

TEST(Intpmf, ARayThatStartsAtTheCrossingGives0) {
  Vec da(1, 0, 0);
  Vec db(0, 1, 0);
  EXPECT_EQ(Intpmf(0, kO, da, Vec(3, 0, 0), db), 0) << "b starts on a";
  EXPECT_EQ(Intpmf(0, Vec(3, 0, 0), da, Vec(3, -4, 0), db), 0) << "a starts on b";
}

TEST(Intpmf, ADirectionOf0Point0001StaysAndMeetsNothing) {
  Vec da(0.0001, 0, 0);
  Vec db(0, 1, 0);
  EXPECT_EQ(Intpmf(0, kO, da, Vec(3, -4, 0), db), 0);
  EXPECT_POINT_EQ(da, Vec(0.0001, 0, 0));
  da = Vec(0.0002, 0, 0);
  EXPECT_EQ(Intpmf(0, kO, da, Vec(3, -4, 0), db), 1);
  EXPECT_POINT_EQ(da, Vec(1, 0, 0));
}

// b climbs by 5e-5 and meets a at x = 20000.
TEST(Intpmf, HandsTheUnitFlagOn) {
  const auto result = [](int unit) {
    Vec da(1, 0, 0);
    Vec db(1, 5e-5, 0);
    return Intpmf(unit, kO, da, Vec(0, -1, 0), db);
  };
  support::ExpectOnly1IsInches(result, 0, 1);
}

TEST(Intpmf, MeetsInSpaceAtRandomExactlyWhereBothPointAtTheCrossing) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const Vec c = RandomPoint(random, 20);
    const Vec u = RandomPoint(random, 1);
    const Vec v = RandomPoint(random, 1);
    if (Length(Cross(u, v)) < 0.2 * Length(u) * Length(v) || Length(u) < 0.1) continue;
    const double s = (random.Bool() ? 1 : -1) * random.Between(1, 9);
    const double t = (random.Bool() ? 1 : -1) * random.Between(1, 9);
    Vec da = u;
    Vec db = v;
    ASSERT_EQ(Intpmf(0, c - s * u, da, c - t * v, db), s > 0 && t > 0 ? 1 : 0);
    ASSERT_POINT_NEAR(da, (1 / Length(u)) * u, 1e-14);
    ASSERT_POINT_NEAR(db, (1 / Length(v)) * v, 1e-14);
  }
}

TEST(Intpmf, NaNGives0) {
  Vec da(1, 0, 0);
  Vec db(0, 1, 0);
  EXPECT_EQ(Intpmf(0, Vec(kNaN, 0, 0), da, Vec(3, -4, 0), db), 0);
  da = Vec(kNaN, 0, 0);
  EXPECT_EQ(Intpmf(0, kO, da, Vec(3, -4, 0), db), 0);
}

}  // namespace
