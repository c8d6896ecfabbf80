#include <KTRCL_Geometry/kernel/Frames.h>

#include "support/Build.h"
#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::kNaN;
using support::kPi;
using support::kUnwritten;
using support::Vec;

constexpr Vec kO(0, 0, 0);

// The third point of every frame that a turn is made in.
constexpr Vec kFixed(1234.1234, 5678.5678, 9012.9012);

// Coordinates about the fixed point are rounded to 1e-12; turns of points near the origin are good
// to that and some.
constexpr double kRounding = 1e-11;

int Turn(int unit, const Vec& a, const Vec& b, double angle, const Vec& p, Vec& out) {
  return Rotate_a_point(unit, a[0], a[1], a[2], b[0], b[1], b[2], angle, p, out);
}

// Rodrigues' formula: v cos t + (k x v) sin t + k (k . v)(1 - cos t), k the unit axis.
Vec Rodrigues(const Vec& a, const Vec& b, double angle, const Vec& p) {
  long double k[3], v[3], length = 0, along = 0;
  for (int i = 0; i < 3; ++i) {
    k[i] = static_cast<long double>(b[i]) - a[i];
    v[i] = static_cast<long double>(p[i]) - a[i];
    length += k[i] * k[i];
  }
  for (int i = 0; i < 3; ++i) {
    k[i] /= std::sqrt(length);
    along += k[i] * v[i];
  }
  const long double c = std::cos(static_cast<long double>(angle));
  const long double s = std::sin(static_cast<long double>(angle));
  Vec out = kO;
  for (int i = 0; i < 3; ++i) {
    const int j = (i + 1) % 3;
    const int l = (i + 2) % 3;
    const long double cross = k[j] * v[l] - k[l] * v[j];
    out[i] = static_cast<double>(a[i] + v[i] * c + cross * s + k[i] * along * (1 - c));
  }
  return out;
}

TEST(RotateAPoint, TurnsRightHandedAboutTheWayFromAToB) {
  Vec out = kUnwritten;
  EXPECT_EQ(Turn(0, kO, Vec(0, 0, 5), kPi / 2, Vec(1, 0, 7), out), 1);
  EXPECT_POINT_NEAR(out, Vec(0, 1, 7), kRounding);
  EXPECT_EQ(Turn(0, kO, Vec(0, 0, -5), kPi / 2, Vec(1, 0, 7), out), 1);
  EXPECT_POINT_NEAR(out, Vec(0, -1, 7), kRounding);
  EXPECT_EQ(Turn(0, Vec(10, 20, 30), Vec(11, 20, 30), kPi / 6, Vec(5, 22, 30), out), 1);
  EXPECT_POINT_NEAR(out, Vec(5, 20 + std::sqrt(3.0), 31), kRounding);
}

TEST(RotateAPoint, Gives0ForAnAxisThroughTheFixedPoint) {
  Vec out = kUnwritten;
  EXPECT_EQ(Turn(0, kO, kFixed, 1, Vec(1, 2, 3), out), 0);
  EXPECT_EQ(Turn(0, kO, 0.001 * kFixed, 1, Vec(1, 2, 3), out), 0);
  EXPECT_EQ(Turn(0, kFixed, kO, 1, Vec(1, 2, 3), out), 0);
  EXPECT_EQ(Turn(0, kFixed + Vec(1, 0, 0), kFixed, 1, Vec(1, 2, 3), out), 0);
  EXPECT_POINT_EQ(out, kUnwritten);
}

TEST(RotateAPoint, Gives0ForAnAxisOfNoLength) {
  Vec out = kUnwritten;
  EXPECT_EQ(Turn(0, kO, kO, 1, Vec(1, 2, 3), out), 0);
  EXPECT_EQ(Turn(1, kO, Vec(0.0001, 0, 0), 1, Vec(1, 2, 3), out), 0);
  EXPECT_POINT_EQ(out, kUnwritten);
  EXPECT_EQ(Turn(1, kO, Vec(0, 0, 0.000101), kPi, Vec(1, 2, 3), out), 1);
  EXPECT_POINT_NEAR(out, Vec(-1, -2, 3), kRounding);
}

// Seen from a, 1000 before the fixed point, the axis passes it at an angle of 0.00005.
TEST(RotateAPoint, HandsTheUnitFlagToInline) {
  const auto turned = [](int unit) {
    Vec out = kUnwritten;
    const Vec a = kFixed + Vec(-1000, 0.05, 0);
    return Turn(unit, a, a + Vec(5, 0, 0), 1, kO, out);
  };
  support::ExpectOnly1IsInches(turned, 0, 1);
}

TEST(RotateAPoint, MayWriteToThePoint) {
  Vec apart = kUnwritten;
  Vec p(1, 2, 3);
  Turn(0, Vec(4, 5, 6), Vec(5, 7, 9), 0.75, p, apart);
  Turn(0, Vec(4, 5, 6), Vec(5, 7, 9), 0.75, p, p);
  EXPECT_POINT_EQ(p, apart);
}

TEST(RotateAPoint, WritesWhatComesOfNaN) {
  Vec out = kUnwritten;
  EXPECT_EQ(Turn(0, kO, Vec(0, 0, 5), kNaN, Vec(1, 0, 7), out), 1);
  EXPECT_TRUE(std::isnan(out[0]));
}

TEST(RotateAPoint, MatchesRodriguesAndKeepsTheDistanceFromTheAxis) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const Vec a(random.Between(-50, 50), random.Between(-50, 50), random.Between(-50, 50));
    const Vec b = a + Vec(random.Between(1, 9), random.Between(-9, 9), random.Between(-9, -1));
    const Vec p(random.Between(-50, 50), random.Between(-50, 50), random.Between(-50, 50));
    const double angle = random.Between(-7, 7);
    Vec out = kUnwritten;
    ASSERT_EQ(Turn(i % 2, a, b, angle, p, out), 1);
    EXPECT_POINT_NEAR(out, Rodrigues(a, b, angle, p), kRounding);
    EXPECT_NEAR(support::Length(out - a), support::Length(p - a), kRounding);
    EXPECT_NEAR(support::Length(out - b), support::Length(p - b), kRounding);
    Vec back = kUnwritten;
    ASSERT_EQ(Turn(i % 2, a, b, -angle, out, back), 1);
    EXPECT_POINT_NEAR(back, p, kRounding);
  }
}

TEST(Rotatp, TurnsInPlace) {
  Vec p(5, 22, 30);
  EXPECT_EQ(Rotatp(10, 20, 30, 11, 20, 30, kPi / 6, p), 1);
  EXPECT_POINT_NEAR(p, Vec(5, 20 + std::sqrt(3.0), 31), kRounding);
}

TEST(Rotatp, MatchesRotateAPoint) {
  support::Random random;
  for (int i = 0; i < 100; ++i) {
    const Vec a(random.Between(-50, 50), random.Between(-50, 50), random.Between(-50, 50));
    const Vec b = a + Vec(random.Between(1, 9), random.Between(-9, 9), random.Between(-9, -1));
    const double angle = random.Between(-7, 7);
    Vec p(random.Between(-50, 50), random.Between(-50, 50), random.Between(-50, 50));
    Vec out = kUnwritten;
    Turn(0, a, b, angle, p, out);
    EXPECT_EQ(Rotatp(a[0], a[1], a[2], b[0], b[1], b[2], angle, p), 1);
    EXPECT_POINT_EQ(p, out);
  }
}

// A lever of a million shows an angle of 1e-08 as 0.01.
TEST(Rotatp, LeavesThePointAloneUpToAnAngleOf1EMinus8) {
  for (const double angle : {0.0, 1e-8, -1e-8}) {
    Vec p(1e6, 0, 0);
    EXPECT_EQ(Rotatp(0, 0, 0, 0, 0, 1, angle, p), 1);
    EXPECT_POINT_EQ(p, Vec(1e6, 0, 0));
  }
  for (const double angle : {std::nextafter(1e-8, 1.0), -std::nextafter(1e-8, 1.0)}) {
    Vec p(1e6, 0, 0);
    EXPECT_EQ(Rotatp(0, 0, 0, 0, 0, 1, angle, p), 1);
    EXPECT_NEAR(p[1], 1e6 * angle, 1e-8);
  }
}

// The axis passes the fixed point at a distance of 0.01, which is in line for Rotate_a_point.
TEST(Rotatp, HasNoTestOfTheAxis) {
  const Vec a = kFixed + Vec(-1000, 0.01, 0);
  const Vec b = a + Vec(5, 0, 0);
  Vec p = a + Vec(0, 3, 0);
  Vec out = kUnwritten;
  EXPECT_EQ(Turn(0, a, b, kPi / 2, p, out), 0);
  EXPECT_EQ(Rotatp(a[0], a[1], a[2], b[0], b[1], b[2], kPi / 2, p), 1);
  EXPECT_POINT_NEAR(p, a + Vec(0, 0, 3), 1e-8);  // 0.01 is what is left of coordinates of 9000
}

// Along X through the fixed point the frame fails exactly, and so it does without an axis.
TEST(Rotatp, LeavesThePointAloneWhereTheFrameFails) {
  Vec p(1, 2, 3);
  EXPECT_EQ(Rotatp(0, kFixed[1], kFixed[2], 1, kFixed[1], kFixed[2], 1, p), 1);
  EXPECT_POINT_EQ(p, Vec(1, 2, 3));
  EXPECT_EQ(Rotatp(5, 5, 5, 5, 5, 5, 1, p), 1);
  EXPECT_POINT_EQ(p, Vec(1, 2, 3));
}

using TurnInPlace = void (*)(const int&, const double*, const double*, const double&, double*);
constexpr TurnInPlace kTurnsInPlace[] = {Rotate_on_an_axis, Rotate_an_axis};

TEST(RotateOnAnAxis, IsRotateAPointInPlaceUnderBothNames) {
  for (const TurnInPlace turn : kTurnsInPlace) {
    const Vec a(4, 5, 6);
    const Vec b(5, 7, 9);
    Vec p(1, 2, 3);
    Vec out = kUnwritten;
    Turn(0, a, b, 0.75, p, out);
    turn(0, a, b, 0.75, p);
    EXPECT_POINT_EQ(p, out);
    EXPECT_POINT_NEAR(p, Rodrigues(a, b, 0.75, Vec(1, 2, 3)), kRounding);
  }
}

TEST(RotateOnAnAxis, LeavesThePointAloneWhereTheAxisFails) {
  for (const TurnInPlace turn : kTurnsInPlace) {
    Vec p(1, 2, 3);
    turn(0, kO, kFixed, 1, p);
    turn(0, kO, kO, 1, p);
    EXPECT_POINT_EQ(p, Vec(1, 2, 3));
  }
}

TEST(RotateOnAnAxis, HandsTheUnitFlagOn) {
  for (const TurnInPlace turn : kTurnsInPlace) {
    const auto moved = [turn](int unit) {
      const Vec a = kFixed + Vec(-1000, 0.05, 0);
      Vec p(1, 2, 3);
      turn(unit, a, a + Vec(5, 0, 0), 1, p);
      return p[1] != 2;
    };
    support::ExpectOnly1IsInches(moved, false, true);
  }
}

TEST(RotateOnAnAxis, TurnsAPointOfTheAxisIntoItself) {
  for (const TurnInPlace turn : kTurnsInPlace) {
    Vec a(4, 5, 6);
    Vec b(5, 7, 9);
    turn(0, a, b, 2.5, a);
    EXPECT_POINT_NEAR(a, Vec(4, 5, 6), kRounding);
    turn(0, a, b, 2.5, b);
    EXPECT_POINT_NEAR(b, Vec(5, 7, 9), kRounding);
  }
}

Vec AboutAxis(int axis, const Vec& p, const double* origin) {
  Vec turned = p;
  Rotate_a_point_on_XYZ_axis(0, kPi / 2, turned, axis, origin);
  return turned;
}

TEST(RotateAPointOnXYZAxis, TurnsRightHandedAboutEachPositiveAxis) {
  EXPECT_POINT_NEAR(AboutAxis(0, Vec(7, 1, 0), nullptr), Vec(7, 0, 1), kRounding);
  EXPECT_POINT_NEAR(AboutAxis(1, Vec(0, 7, 1), nullptr), Vec(1, 7, 0), kRounding);
  EXPECT_POINT_NEAR(AboutAxis(2, Vec(1, 0, 7), nullptr), Vec(0, 1, 7), kRounding);
}

TEST(RotateAPointOnXYZAxis, TakesEveryOtherAxisAsZ) {
  for (const int axis : {7, 3, -1, -2147483647 - 1, 2147483647}) {
    EXPECT_POINT_NEAR(AboutAxis(axis, Vec(1, 0, 7), nullptr), Vec(0, 1, 7), kRounding);
  }
}

TEST(RotateAPointOnXYZAxis, TurnsAboutAParallelThroughTheOriginGiven) {
  const Vec origin(10, 20, 30);
  EXPECT_POINT_NEAR(AboutAxis(0, Vec(17, 21, 30), origin), Vec(17, 20, 31), kRounding);
  EXPECT_POINT_NEAR(AboutAxis(1, Vec(10, 27, 31), origin), Vec(11, 27, 30), kRounding);
  EXPECT_POINT_NEAR(AboutAxis(2, Vec(11, 20, 37), origin), Vec(10, 21, 37), kRounding);
}

TEST(RotateAPointOnXYZAxis, LeavesThePointAloneWhereTheAxisFails) {
  EXPECT_POINT_EQ(AboutAxis(0, Vec(1, 2, 3), Vec(0, kFixed[1], kFixed[2])), Vec(1, 2, 3));
  EXPECT_POINT_EQ(AboutAxis(1, Vec(1, 2, 3), Vec(kFixed[0], 0, kFixed[2])), Vec(1, 2, 3));
  EXPECT_POINT_EQ(AboutAxis(2, Vec(1, 2, 3), Vec(kFixed[0], kFixed[1], 0)), Vec(1, 2, 3));
}

TEST(RotateAPointOnXYZAxis, HandsTheUnitFlagOn) {
  const auto moved = [](int unit) {
    Vec p(1, 2, 3);
    const Vec origin = kFixed + Vec(-1000, 0.05, 0);
    Rotate_a_point_on_XYZ_axis(unit, 1, p, 0, origin);
    return p[1] != 2;
  };
  support::ExpectOnly1IsInches(moved, false, true);
}

TEST(RotateAPointOnXYZAxis, TakesThePointAsOriginToo) {
  Vec p(1, 2, 3);
  Rotate_a_point_on_XYZ_axis(0, 1, p, 2, p);
  EXPECT_POINT_NEAR(p, Vec(1, 2, 3), kRounding);
}

TEST(Ruotac, TurnsCounterClockwiseAboutTheCentre) {
  double x = 7;
  double y = 5;
  EXPECT_EQ(Ruotac(&x, &y, 5, 5, kPi / 2), 0);
  EXPECT_NEAR(x, 5, 1e-15);
  EXPECT_NEAR(y, 7, 1e-15);
}

TEST(Ruotac, KeepsTheDistanceFromTheCentre) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    const double cx = random.Between(-50, 50);
    const double cy = random.Between(-50, 50);
    const double radius = random.Between(0, 50);
    const double start = random.Between(-3, 3);
    const double angle = random.Between(-9, 9);
    double x = cx + radius * std::cos(start);
    double y = cy + radius * std::sin(start);
    EXPECT_EQ(Ruotac(&x, &y, cx, cy, angle), 0);
    EXPECT_NEAR(x, cx + radius * std::cos(start + angle), 1e-13);
    EXPECT_NEAR(y, cy + radius * std::sin(start + angle), 1e-13);
  }
}

TEST(Ruotac, TakesNaN) {
  double x = 1;
  double y = 2;
  EXPECT_EQ(Ruotac(&x, &y, 0, 0, kNaN), 0);
  EXPECT_TRUE(std::isnan(x));
  EXPECT_TRUE(std::isnan(y));
}

}  // namespace
