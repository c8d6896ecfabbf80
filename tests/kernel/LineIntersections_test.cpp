#include <KTRCL_Geometry/kernel/Intersections.h>

#include "support/KernelArrays.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <cfloat>
#include <cmath>
#include <limits>

namespace {

using support::kInfinity;
using support::kNaN;

struct Xy {
  double x;
  double y;
};
struct Two {
  Xy from;
  Xy to;
};

int Lin(const Two& a, const Two& b, int unit = 0) {
  return Intlin(unit, a.from.x, a.from.y, a.to.x, a.to.y, b.from.x, b.from.y, b.to.x, b.to.y);
}
int Lind(const Two& a, const Two& b, int unit = 0) {
  return Intlind(unit, a.from.x, a.from.y, a.to.x, a.to.y, b.from.x, b.from.y, b.to.x, b.to.y);
}
Two Reversed(const Two& a) { return {a.to, a.from}; }

// Line through (1, 0) that climbs by `slope`, with points 1 and 2 at x = 8 and x = 20. Seen from
// the origin their sines are 7/8 and 19/20 of the slope.
Two LineThrough1(double slope) { return {{8, 7 * slope}, {20, 19 * slope}}; }
constexpr Two kLevel10{{0, 0}, {10, 0}};

constexpr double kTwoToMinus20 = 0x1p-20;

// ---- neither upright: A is y = x, B runs down to the right through (2, 2).

TEST(Intlin, SlopedLinesGive2NearerToPoint1And1NearerToPoint2) {
  const Two b{{0, 4}, {4, 0}};
  const Two a{{0, 0}, {10, 10}};
  EXPECT_EQ(Lin(a, b), 2);
  EXPECT_EQ(Lin(Reversed(a), b), 1);
  EXPECT_EQ(Lin(a, Reversed(b)), 2);
}

TEST(Intlin, SlopedLinesGive1OnATie) {
  EXPECT_EQ(Lin({{0, 0}, {4, 4}}, {{0, 4}, {4, 0}}), 1);
  EXPECT_EQ(Lin({{4, 4}, {0, 0}}, {{0, 4}, {4, 0}}), 1);
}

TEST(Intlin, SlopedLinesGive0OffTheSegment) {
  EXPECT_EQ(Lin({{0, 0}, {10, 10}}, {{0, 4}, {1, 3}}), 0);
  EXPECT_EQ(Lin({{0, 0}, {10, 10}}, {{1, 3}, {0, 4}}), 0);
}

TEST(Intlin, SlopedParallelLinesGive0) {
  EXPECT_EQ(Lin({{0, 0}, {10, 10}}, {{0, 1}, {10, 11}}), 0);
  EXPECT_EQ(Lin({{0, 0}, {10, 10}}, {{10, 11}, {0, 1}}), 0);
}

TEST(Intlin, SlopedCollinearLinesGive3WherePoint4IsBeyondPoint2) {
  EXPECT_EQ(Lin({{0, 0}, {4, 4}}, {{2, 2}, {6, 6}}), 3);
  EXPECT_EQ(Lin({{0, 0}, {4, 4}}, {{8, 8}, {6, 6}}), 3);
}

TEST(Intlin, SlopedCollinearLinesGive4WherePoint4IsOnTheSideOfPoint1) {
  EXPECT_EQ(Lin({{0, 0}, {4, 4}}, {{2, 2}, {3, 3}}), 4);
  EXPECT_EQ(Lin({{0, 0}, {4, 4}}, {{8, 8}, {-6, -6}}), 4);
}

TEST(Intlin, CollinearLinesGive3WherePoint4IsPoint2) {
  EXPECT_EQ(Lin({{0, 0}, {4, 4}}, {{2, 2}, {4, 4}}), 3);
}

// ---- A upright at x = 2.

TEST(Intlin, UprightAGives2NearerToPoint1And1NearerToPoint2) {
  const Two a{{2, 0}, {2, 10}};
  EXPECT_EQ(Lin(a, {{0, 1}, {4, 3}}), 2);
  EXPECT_EQ(Lin(Reversed(a), {{0, 1}, {4, 3}}), 1);
  EXPECT_EQ(Lin({{2, 0}, {2, 4}}, {{0, 1}, {4, 3}}), 1) << "tie";
}

TEST(Intlin, UprightAAndLevelBReportByTheDistanceToPoints1And2) {
  EXPECT_EQ(Lin({{2, 0}, {2, 10}}, {{0, 3}, {4, 3}}), 2);
  EXPECT_EQ(Lin({{2, 0}, {2, 10}}, {{0, 7}, {4, 7}}), 1);
  EXPECT_EQ(Lin({{2, 0}, {2, 10}}, {{0, -300}, {4, -300}}), 2) << "A is unbounded";
}

TEST(Intlin, UprightAGives0OffTheSegment) {
  EXPECT_EQ(Lin({{2, 0}, {2, 10}}, {{0, 1}, {1, 1.5}}), 0);
  EXPECT_EQ(Lin({{2, 0}, {2, 10}}, {{8, 1}, {3, 1.5}}), 0);
}

// B leans by 1e-6 over a height of 6: not upright, and in line with A.
TEST(Intlin, UprightACollinearWithALeaningBGives3Or4) {
  EXPECT_EQ(Lin({{2, 1}, {2, 5}}, {{2, 0}, {2 + kTwoToMinus20, 6}}), 3);
  EXPECT_EQ(Lin({{2, 1}, {2, 5}}, {{2, 0}, {2 + kTwoToMinus20, 4}}), 4);
}

// ---- B upright at x = 2.

TEST(Intlin, UprightBGives2NearerToPoint1And1NearerToPoint2) {
  const Two a{{0, 1}, {6, 4}};
  EXPECT_EQ(Lin(a, {{2, 0}, {2, 10}}), 2);
  EXPECT_EQ(Lin(Reversed(a), {{2, 0}, {2, 10}}), 1);
  EXPECT_EQ(Lin({{0, 1}, {4, 3}}, {{2, 0}, {2, 10}}), 1) << "tie";
}

TEST(Intlin, UprightBGives0OffTheSegment) {
  EXPECT_EQ(Lin({{0, 1}, {6, 4}}, {{2, 5}, {2, 10}}), 0);
  EXPECT_EQ(Lin({{0, 1}, {6, 4}}, {{2, 0}, {2, 1}}), 0);
}

TEST(Intlin, UprightBCollinearWithALeaningAGives3Or4) {
  EXPECT_EQ(Lin({{2, 1}, {2 + kTwoToMinus20, 5}}, {{2, 0}, {2, 6}}), 3);
  EXPECT_EQ(Lin({{2, 1}, {2 + kTwoToMinus20, 5}}, {{2, 0}, {2, 4}}), 4);
}

// ---- both upright.

TEST(Intlin, BothUprightGive0Apart) {
  EXPECT_EQ(Lin({{2, 0}, {2, 4}}, {{3, 0}, {3, 4}}), 0);
  EXPECT_EQ(Lin({{2, 0}, {2, 4}}, {{3, 4}, {3, 0}}), 0);
}

TEST(Intlin, BothUprightGive3Or4OnOneLine) {
  EXPECT_EQ(Lin({{2, 0}, {2, 4}}, {{2, 2}, {2, 6}}), 3);
  EXPECT_EQ(Lin({{2, 0}, {2, 4}}, {{2, 5}, {2, 4}}), 3);
  EXPECT_EQ(Lin({{2, 0}, {2, 4}}, {{2, 5}, {2, 3}}), 4);
}

// ---- the guards and limits.

// A rises by 1 within its x extent, and B lies 1e8 above its start. There a sloped A has gone 1e8
// extents to the right, an upright one none.
TEST(Intlin, XThatDifferBy1e8ThAreUpright) {
  const Two left{{-0.5, 1e8}, {0.5, 1e8}};
  EXPECT_EQ(Lin({{0, 0}, {1e-8, 1}}, left), 1);
  EXPECT_EQ(Lin({{0, 0}, {2e-8, 1}}, left), 0);
  EXPECT_EQ(Lin({{0, 0}, {2e-8, 1}}, {{1.5, 1e8}, {2.5, 1e8}}), 1);
}

// A crosses B half way. B leans enough to be out of line with A: by 2e-05 and 4e-05.
Two UprightThrough(double x) { return {{x, 9}, {x, 9.5}}; }
Two Leaning(double extent) { return {{extent, 10}, {0, 10.0005}}; }

TEST(Intlin, ABWhoseXDifferBy1e8ThIsUpright) {
  EXPECT_EQ(Lin(UprightThrough(0.5e-8), Leaning(1e-8)), 0) << "both upright";
  EXPECT_EQ(Lin(UprightThrough(1e-8), Leaning(2e-8)), 1);
}

// The slopes meet at x = 1e8 and 5e7.
TEST(Intlin, SlopesThatDifferBy1e8ThAreParallel) {
  EXPECT_EQ(Lin({{0, 0}, {1, 1e-8}}, {{0, 1}, {2e8, 1}}), 0);
  EXPECT_EQ(Lin({{0, 0}, {1, 2e-8}}, {{0, 1}, {2e8, 1}}), 1);
}

TEST(Intlin, AsksForCollinearFirstThoughACrossingExists) {
  EXPECT_EQ(Lin(LineThrough1(1e-5), kLevel10), 4);
  EXPECT_EQ(Lin(LineThrough1(1e-5), Reversed(kLevel10)), 2)
      << "seen from (10, 0) the sine is larger";
}

TEST(Intlin, NeedsBothPointsInLine) {
  EXPECT_EQ(Lin(LineThrough1(1.1e-5), kLevel10), 2) << "point 2 is off";
  EXPECT_EQ(Lin(Reversed(LineThrough1(1.1e-5)), kLevel10), 1) << "point 1 is off";
}

TEST(Intlin, CollinearLimitReadsOnly1AsInches) {
  const auto code = [](double slope) {
    return [slope](int unit) { return Lin(LineThrough1(slope), kLevel10, unit); };
  };
  support::ExpectOnly1IsInches(code(5e-6), 4, 2);
  EXPECT_EQ(code(4.0e-7)(1), 4);
  EXPECT_EQ(code(4.2e-7)(1), 2) << "1e-05 / 25.4 is 3.94e-07, the sine here 3.99e-07";
}

TEST(Intlin, EndsHaveASlackOf0Point0001) {
  const Two a{{0, -1}, {0, 2}};
  EXPECT_EQ(Lin(a, {{0.00005, 0}, {5, 0}}), 2) << "beyond point 3";
  EXPECT_EQ(Lin(a, {{5, 0}, {0.00005, 0}}), 2) << "beyond point 4";
  EXPECT_EQ(Lin(a, {{0.0001, 0}, {5, 0}}), 2) << "inclusive";
  EXPECT_EQ(Lin(a, {{5, 0}, {0.0001, 0}}), 2);
  EXPECT_EQ(Lin(a, {{0.00011, 0}, {5, 0}}), 0);
  EXPECT_EQ(Lin(a, {{5, 0}, {0.00011, 0}}), 0);
}

TEST(Intlin, SlackHoldsForAnUprightBAndForSlopedLinesToo) {
  EXPECT_EQ(Lin({{-1, 0}, {2, 0}}, {{0, 0.00005}, {0, 5}}), 2);
  EXPECT_EQ(Lin({{-1, 0}, {2, 0}}, {{0, 0.00011}, {0, 5}}), 0);
  // The ends of B are 0.00006 * sqrt(2) = 0.000085 and 0.000113 away.
  EXPECT_EQ(Lin({{-1, -1}, {3, 3}}, {{0.00006, -0.00006}, {5, -5}}), 2);
  EXPECT_EQ(Lin({{-1, -1}, {3, 3}}, {{0.00008, -0.00008}, {5, -5}}), 0);
}

TEST(Intlin, SlackIsTheSameForEveryUnit) {
  for (const int unit : {0, 1, 2, -1}) {
    EXPECT_EQ(Lin({{0, -1}, {0, 2}}, {{0.0001, 0}, {5, 0}}, unit), 2) << unit;
    EXPECT_EQ(Lin({{0, -1}, {0, 2}}, {{0.00011, 0}, {5, 0}}, unit), 0) << unit;
  }
}

TEST(Intlin, BNoLongerThan0Point0001IsCollinearWithEveryA) {
  EXPECT_EQ(Lin({{0, 0}, {4, 4}}, {{7, -3}, {7, -3}}), 4) << "(-4,-4).(3,-7) = 16";
  EXPECT_EQ(Lin({{0, 0}, {4, 4}}, {{7, 3}, {7, 3}}), 3) << "(-4,-4).(3,-1) = -8";
  EXPECT_EQ(Lin({{0, 0}, {4, 4}}, {{0, 3}, {0.0001, 3}}), 4) << "(-4,-4).(-3.9999,-1) = 20";
  EXPECT_EQ(Lin({{0, 0}, {4, 4}}, {{0, 3}, {0.00011, 3}}), 0);
}

TEST(Intlin, AOfLengthZeroCountsAsUpright) {
  EXPECT_EQ(Lin({{2, 9}, {2, 9}}, {{0, 4}, {4, 0}}), 1);
  EXPECT_EQ(Lin({{5, 9}, {5, 9}}, {{0, 4}, {4, 0}}), 0);
  EXPECT_EQ(Lin({{2, 9}, {2, 9}}, {{3, 0}, {3, 4}}), 0);
  EXPECT_EQ(Lin({{2, 9}, {2, 9}}, {{2, 0}, {2, 4}}), 3);
}

// ---- the leaner twin.

TEST(Intlind, SlopedLinesGive2Or1Or0) {
  const Two b{{0, 4}, {4, 0}};
  EXPECT_EQ(Lind({{0, 0}, {10, 10}}, b), 2);
  EXPECT_EQ(Lind({{10, 10}, {0, 0}}, b), 1);
  EXPECT_EQ(Lind({{0, 0}, {4, 4}}, b), 1) << "tie";
  EXPECT_EQ(Lind({{0, 0}, {10, 10}}, {{0, 4}, {1, 3}}), 0) << "off B";
  EXPECT_EQ(Lind({{0, 0}, {10, 10}}, {{0, 1}, {10, 11}}), 0) << "parallel";
}

TEST(Intlind, SlopedCollinearLinesGive3Or4SeenFromPoint3) {
  EXPECT_EQ(Lind({{-1, -1}, {9, 9}}, {{0, 0}, {5, 5}}), 3);
  EXPECT_EQ(Lind({{1, 1}, {9, 9}}, {{0, 0}, {5, 5}}), 4);
  EXPECT_EQ(Lind({{0, 0}, {9, 9}}, {{0, 0}, {5, 5}}), 3) << "point 1 is point 3";
}

TEST(Intlind, UprightAGives2Or1Or0) {
  EXPECT_EQ(Lind({{2, 0}, {2, 10}}, {{0, 1}, {4, 3}}), 2);
  EXPECT_EQ(Lind({{2, 10}, {2, 0}}, {{0, 1}, {4, 3}}), 1);
  EXPECT_EQ(Lind({{2, 0}, {2, 4}}, {{0, 1}, {4, 3}}), 1) << "tie";
  EXPECT_EQ(Lind({{2, 0}, {2, 10}}, {{0, 1}, {1, 1.5}}), 0) << "off B";
}

TEST(Intlind, UprightBGives2Or1Or0) {
  EXPECT_EQ(Lind({{0, 1}, {6, 4}}, {{2, 0}, {2, 10}}), 2);
  EXPECT_EQ(Lind({{6, 4}, {0, 1}}, {{2, 0}, {2, 10}}), 1);
  EXPECT_EQ(Lind({{0, 1}, {4, 3}}, {{2, 0}, {2, 10}}), 1) << "tie";
  EXPECT_EQ(Lind({{0, 1}, {6, 4}}, {{2, 5}, {2, 10}}), 0) << "off B";
}

TEST(Intlind, BothUprightGive3Or4OnOneLineAnd0Apart) {
  EXPECT_EQ(Lind({{2, 0}, {2, 4}}, {{2, 1}, {2, 6}}), 3);
  EXPECT_EQ(Lind({{2, 3}, {2, 4}}, {{2, 1}, {2, 6}}), 4);
  EXPECT_EQ(Lind({{2, 1}, {2, 4}}, {{2, 1}, {2, 6}}), 3) << "point 1 is point 3";
  EXPECT_EQ(Lind({{2, 0}, {2, 4}}, {{3, 0}, {3, 4}}), 0);
}

TEST(Intlind, LooksFromPoint3WhereIntlinLooksFromPoint2) {
  const Two a{{20, 0}, {15, 0}};
  EXPECT_EQ(Lin(a, kLevel10), 3);
  EXPECT_EQ(Lind(a, kLevel10), 4);
}

TEST(Intlind, DisagreesWithIntlinBeyondAnEndOfB) {
  const Two a{{0, -1}, {0, 2}};
  for (const Two& b : {Two{{0.00005, 0}, {5, 0}}, Two{{5, 0}, {0.00005, 0}}}) {
    EXPECT_EQ(Lin(a, b), 2);
    EXPECT_EQ(Lind(a, b), 0);
  }
}

TEST(Intlind, TheEndsOfBBelongToIt) {
  const Two a{{0, -1}, {0, 2}};
  EXPECT_EQ(Lind(a, {{0, 0}, {5, 0}}), 2);
  EXPECT_EQ(Lind(a, {{5, 0}, {0, 0}}), 2);
}

TEST(Intlind, AsksForCollinearOnlyWhereTheSlopesFail) {
  EXPECT_EQ(Lind(LineThrough1(1e-5), kLevel10), 2) << "a crossing, though in line";
  EXPECT_EQ(Lind({{2, 1}, {2, 5}}, {{2, 0}, {2 + kTwoToMinus20, 6}}), 2) << "upright A";
  EXPECT_EQ(
      Lind({{2, 1}, {2 + kTwoToMinus20, 5}}, {{2 + kTwoToMinus20, 5}, {2 + kTwoToMinus20, 9}}), 1)
      << "upright B";
}

// A level A above the level B. Seen from point 3, the origin, its points have sines of a tenth of
// the height and a little more.
TEST(Intlind, CollinearLimitIsThatOfInline) {
  const auto code = [](double height) {
    return [height](int unit) { return Lind({{10, height}, {9.5, height}}, kLevel10, unit); };
  };
  support::ExpectOnly1IsInches(code(0.0009), 4, 0);
  EXPECT_EQ(code(0.0011)(0), 0);
  EXPECT_EQ(code(0.00003)(1), 4);
  EXPECT_EQ(code(0.00004)(1), 0) << "the limit is 3.94e-06";
}

TEST(Intlind, NeedsBothPointsInLine) {
  EXPECT_EQ(Lind({{10, 0.00095}, {9, 0.00095}}, kLevel10), 0) << "9.5e-05 and 1.06e-04";
  EXPECT_EQ(Lind({{9, 0.00095}, {10, 0.00095}}, kLevel10), 0) << "1.06e-04 and 9.5e-05";
}

TEST(Intlind, HasTheSameGuardsAsIntlin) {
  EXPECT_EQ(Lind({{0, 0}, {1e-8, 1}}, {{-0.5, 1e8}, {0.5, 1e8}}), 1);
  EXPECT_EQ(Lind({{0, 0}, {2e-8, 1}}, {{-0.5, 1e8}, {0.5, 1e8}}), 0);
  EXPECT_EQ(Lind(UprightThrough(0.5e-8), Leaning(1e-8)), 3) << "both upright, in line by 1e-04";
  EXPECT_EQ(Lind(UprightThrough(1e-8), Leaning(2e-8)), 1);
  EXPECT_EQ(Lind({{0, 0}, {1, 1e-8}}, {{0, 1}, {2e8, 1}}), 0);
  EXPECT_EQ(Lind({{0, 0}, {1, 2e-8}}, {{0, 1}, {2e8, 1}}), 1);
}

// ---- both, on random and on hostile figures.

struct Expectation {
  bool clear = false;  // away from every threshold
  int code = 0;
};

// By cross products in long double, without slopes.
Expectation Expected(const Two& a, const Two& b) {
  const long double ax = static_cast<long double>(a.to.x) - a.from.x;
  const long double ay = static_cast<long double>(a.to.y) - a.from.y;
  const long double bx = static_cast<long double>(b.to.x) - b.from.x;
  const long double by = static_cast<long double>(b.to.y) - b.from.y;
  const long double across = ax * by - ay * bx;
  const long double lengths = std::hypot(ax, ay) * std::hypot(bx, by);
  if (std::fabs(across) < 0.05L * lengths || std::hypot(bx, by) < 0.5L) return {};
  const long double wx = static_cast<long double>(b.from.x) - a.from.x;
  const long double wy = static_cast<long double>(b.from.y) - a.from.y;
  const long double onA = (wx * by - wy * bx) / across;
  const long double onB = (wx * ay - wy * ax) / across;
  if (std::fabs(onA - 0.5L) < 1e-4L) return {};
  if (std::fabs(onB) < 1e-2L || std::fabs(onB - 1) < 1e-2L) return {};
  if (onB < 0 || onB > 1) return {true, 0};
  return {true, onA < 0.5L ? 2 : 1};
}

TEST(Intlin, AgreesWithCrossProductsOnRandomLinesAndSoDoesIntlind) {
  support::Random random;
  std::array<int, 3> seen{};
  for (int i = 0; i < 4000; ++i) {
    std::array<double, 8> v{};
    for (double& x : v) x = random.Between(-20, 20);
    if (i % 4 == 1) v[2] = v[0];
    if (i % 4 == 2) v[6] = v[4];
    const Two a{{v[0], v[1]}, {v[2], v[3]}};
    const Two b{{v[4], v[5]}, {v[6], v[7]}};
    const Expectation expected = Expected(a, b);
    if (!expected.clear || std::hypot(v[2] - v[0], v[3] - v[1]) < 0.5) continue;
    ++seen[static_cast<std::size_t>(expected.code)];
    ASSERT_EQ(Lin(a, b), expected.code) << "line " << i;
    ASSERT_EQ(Lind(a, b), expected.code) << "line " << i;
  }
  for (const int count : seen) EXPECT_GT(count, 200);
}

// Four points of one line by their places on it; the line is not steeper than 5, so that the slopes
// of segments longer than 1 differ by roundings alone.
TEST(Intlin, TellsCollinearLinesApartAtRandomAndSoDoesIntlind) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const Xy base{random.Between(-20, 20), random.Between(-20, 20)};
    const double slope = random.Between(-5, 5);
    std::array<double, 4> t{};
    for (double& x : t) x = random.Between(-20, 20);
    if (std::fabs(t[0] - t[1]) < 1 || std::fabs(t[2] - t[3]) < 1) continue;
    if (std::fabs(t[3] - t[1]) < 0.01 || std::fabs(t[0] - t[2]) < 0.01) continue;
    const auto at = [&](std::size_t k) { return Xy{base.x + t[k], base.y + slope * t[k]}; };
    const Two a{at(0), at(1)};
    const Two b{at(2), at(3)};
    ASSERT_EQ(Lin(a, b), (t[0] - t[1]) * (t[3] - t[1]) > 0 ? 4 : 3);
    ASSERT_EQ(Lind(a, b), (t[0] - t[2]) * (t[3] - t[2]) > 0 ? 4 : 3);
  }
}

TEST(Intlin, IsSymmetricUnderTurningTheSegmentRound) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const Two a{{random.Between(-9, 9), random.Between(-9, 9)},
                {random.Between(-9, 9), random.Between(-9, 9)}};
    const Two b{{random.Between(-9, 9), random.Between(-9, 9)},
                {random.Between(-9, 9), random.Between(-9, 9)}};
    if (!Expected(a, b).clear) continue;
    EXPECT_EQ(Lin(a, b), Lin(a, Reversed(b)));
    EXPECT_EQ(Lind(a, b), Lind(a, Reversed(b)));
  }
}

// B spans x from 1 to 3, so that an A taken for upright at x = -1 or 10 misses it.
TEST(Intlin, NaNGives0AndSoItDoesInIntlind) {
  for (std::size_t i = 0; i < 8; ++i) {
    std::array<double, 8> v{-1, -1, 10, 10, 1, 3, 3, 1};
    ASSERT_EQ(Lin({{v[0], v[1]}, {v[2], v[3]}}, {{v[4], v[5]}, {v[6], v[7]}}), 2);
    v[i] = kNaN;
    EXPECT_EQ(Lin({{v[0], v[1]}, {v[2], v[3]}}, {{v[4], v[5]}, {v[6], v[7]}}), 0) << i;
    EXPECT_EQ(Lind({{v[0], v[1]}, {v[2], v[3]}}, {{v[4], v[5]}, {v[6], v[7]}}), 0) << i;
  }
}

TEST(Intlin, AnswersEveryFigureWithACodeAndSoDoesIntlind) {
  constexpr std::array<double, 7> kHostile{0,       kNaN,    kInfinity, -kInfinity,
                                           DBL_MAX, DBL_MIN, -DBL_MAX};
  for (int unit : {0, 1, 2, -1, std::numeric_limits<int>::max()}) {
    for (std::size_t i = 0; i < 8; ++i) {
      for (std::size_t k = 0; k < 8; ++k) {
        for (const double value : kHostile) {
          std::array<double, 8> v{0, 0, 4, 4, 0, 4, 4, 0};
          v[i] = value;
          v[k] = -value;
          const Two a{{v[0], v[1]}, {v[2], v[3]}};
          const Two b{{v[4], v[5]}, {v[6], v[7]}};
          EXPECT_TRUE(Lin(a, b, unit) >= 0 && Lin(a, b, unit) <= 4);
          EXPECT_TRUE(Lind(a, b, unit) >= 0 && Lind(a, b, unit) <= 4);
        }
      }
    }
  }
}

}  // namespace
