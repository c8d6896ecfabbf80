#include <KTRCL_Geometry/kernel/Intersections.h>

#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <initializer_list>

namespace {

using support::kInfinity;
using support::kNaN;
using support::kUnwritten;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kUnwritten2(31.5, -32.25, 33.125);
constexpr double kHalfRoot = 0.70710678118654752440;

struct Both {
  int result = -1;
  Vec first = kUnwritten;
  Vec second = kUnwritten2;
};
void ExpectUntouched(const Both& b) {
  EXPECT_EQ(b.result, 0);
  EXPECT_POINT_EQ(b.first, kUnwritten);
  EXPECT_POINT_EQ(b.second, kUnwritten2);
}
void ExpectBoth(const Both& b, int result, const Vec& first, const Vec& second,
                double bound = 1e-14) {
  EXPECT_EQ(b.result, result);
  EXPECT_POINT_NEAR(b.first, first, bound);
  EXPECT_POINT_NEAR(b.second, second, bound);
}

// Three points of a circle's plane: centre, a point on it, another one.
struct Circle {
  Vec c;
  Vec s;
  Vec t;
};
// In the plane z = 0, so that the local frame of the first circle is the global one about c.
Circle Flat(double x, double y, double radius) {
  return {Vec(x, y, 0), Vec(x + radius, y, 0), Vec(x, y + radius, 0)};
}
Both Circles(const Circle& a, const Circle& b, int unit = 0) {
  Both r;
  r.result = Intersect2D_circles(unit, a.c, a.s, a.t, b.c, b.s, b.t, r.first, r.second);
  return r;
}

TEST(Intersect2DCircles, GivesBothCrossingsTheOneOfGreaterLocalYFirst) {
  ExpectBoth(Circles(Flat(0, 0, 5), Flat(6, 0, 5)), 2, Vec(3, 4, 0), Vec(3, -4, 0));
  ExpectBoth(Circles(Flat(6, 0, 5), Flat(0, 0, 5)), 2, Vec(3, 4, 0), Vec(3, -4, 0));
  const Circle turnedOver{kO, Vec(5, 0, 0), Vec(0, -5, 0)};
  ExpectBoth(Circles(turnedOver, Flat(6, 0, 5)), 2, Vec(3, -4, 0), Vec(3, 4, 0));
}

TEST(Intersect2DCircles, CirclesApartOrTouchingGive0AndLeaveTheOutputsAlone) {
  ExpectUntouched(Circles(Flat(0, 0, 5), Flat(11, 0, 5)));
  ExpectUntouched(Circles(Flat(0, 0, 5), Flat(10, 0, 5)));
  ExpectUntouched(Circles(Flat(0, 0, 5), Flat(10 - 0.5e-6, 0, 5)));
  EXPECT_EQ(Circles(Flat(0, 0, 5), Flat(10 - 2e-6, 0, 5)).result, 2);
}

// The second radius is 1 exactly, along y.
TEST(Intersect2DCircles, CirclesThatOverlapByExactly0Point000001Cross) {
  const double d = 2 - 0.000001;
  const auto second = [](double x) { return Circle{Vec(x, 0, 0), Vec(x, 1, 0), Vec(9, 0, 0)}; };
  EXPECT_EQ(Circles(Flat(0, 0, 1), second(d)).result, 2);
  ExpectUntouched(Circles(Flat(0, 0, 1), second(std::nextafter(d, 3))));
}

TEST(Intersect2DCircles, ACircleInsideTheOtherGives0) {
  ExpectUntouched(Circles(Flat(1, 2, 5), Flat(1, 2, 5)));
  ExpectUntouched(Circles(Flat(0, 0, 5), Flat(1, 0, 3)));
  ExpectUntouched(Circles(Flat(1, 0, 3), Flat(0, 0, 5)));
  ExpectUntouched(Circles(Flat(0, 0, 5), Flat(2 + 0.5e-8, 0, 3)));
  EXPECT_NE(Circles(Flat(0, 0, 5), Flat(2 + 4e-8, 0, 3)).result, 0);
}

// Half the chord of circles of radius 0.001 is sqrt(1e-6 - D^2 / 4): 3.9e-05 and 7.1e-05.
TEST(Intersect2DCircles, GivesOneWhereTheOutputsCoincideByPntcmp) {
  const Both near = Circles(Flat(0, 0, 0.001), Flat(0.0019985, 0, 0.001));
  EXPECT_EQ(near.result, 1);
  EXPECT_NEAR(near.first[1], std::sqrt(1e-6 - 0.00099925 * 0.00099925), 1e-12);
  EXPECT_NEAR(near.second[1], -near.first[1], 1e-15);
  EXPECT_EQ(Circles(Flat(0, 0, 0.001), Flat(0.001995, 0, 0.001)).result, 2);
}

TEST(Intersect2DCircles, PointsOfEitherCircleInLineGive0) {
  const Circle good = Flat(0, 0, 5);
  const Circle other = Flat(6, 0, 5);
  ExpectUntouched(Circles({good.c, good.s, Vec(-9, 0, 0)}, other));
  ExpectUntouched(Circles({good.c, good.s, good.c}, other));
  ExpectUntouched(Circles({good.c, good.c, good.t}, other));
  ExpectUntouched(Circles(good, {other.c, other.s, Vec(17, 0, 0)}));
  ExpectUntouched(Circles(good, {other.c, other.s, other.c}));
}

// The third points stand 5e-5 off the line, as sines.
TEST(Intersect2DCircles, LimitOfInLineReadsOnly1AsInches) {
  const auto first = [](int unit) {
    return Circles({kO, Vec(5, 0, 0), Vec(5, 0.00025, 0)}, Flat(6, 0, 5), unit).result;
  };
  const auto second = [](int unit) {
    return Circles(Flat(0, 0, 5), {Vec(6, 0, 0), Vec(11, 0, 0), Vec(11, 0.00025, 0)}, unit).result;
  };
  support::ExpectOnly1IsInches(first, 0, 2);
  support::ExpectOnly1IsInches(second, 0, 2);
}

TEST(Intersect2DCircles, TheThirdPointOfTheSecondCircleDoesNotMatterOtherwise) {
  const Circle b{Vec(6, 0, 0), Vec(11, 0, 0), Vec(100, 200, 300)};
  ExpectBoth(Circles(Flat(0, 0, 5), b), 2, Vec(3, 4, 0), Vec(3, -4, 0));
}

// Local x runs along global y and local y along global -x; the centres' local x are both 0. There
// k = 18, y = -3, and half the chord sqrt(18 - 9) = 3, where the circles cross at 4.
TEST(Intersect2DCircles, CentresOfEqualLocalXTakeTheConstantOfTheRadicalLine) {
  const Circle a{kO, Vec(0, 5, 0), Vec(-5, 0, 0)};
  ExpectBoth(Circles(a, Flat(6, 0, 5)), 2, Vec(3, 3, 0), Vec(3, -3, 0));
}

// k = (16 - 25 + 4) / 2 = -2.5, although the circles cross.
TEST(Intersect2DCircles, CentresOfEqualLocalXGive0WhereThatIsNegative) {
  ExpectUntouched(Circles(Flat(0, 0, 4), Flat(0, 2, 5)));
}

// Unit circles with near centres: true crossings, or two near the origin that count as one.
TEST(Intersect2DCircles, CentresWhoseLocalXDifferBy1e7ThCountAsEqual) {
  const auto near = [](double x) {
    return Circles(Flat(0, 0, 1), {Vec(x, 0x1p-22, 0), Vec(x, 1 + 0x1p-22, 0), Vec(5, 0, 0)});
  };
  ExpectBoth(near(0x1p-24), 1, kO, kO, 1e-6);
  ExpectBoth(near(1e-7), 1, kO, kO, 1e-6);
  EXPECT_EQ(near(0x1p-23).result, 2);
  // The radical line is perpendicular to (1, 2).
  EXPECT_POINT_NEAR(near(0x1p-23).first, Vec(-2 / std::sqrt(5.0), 1 / std::sqrt(5.0), 0), 1e-6);
}

// The second radius is taken in the plane as well: 3 of (3, 0, 4).
TEST(Intersect2DCircles, ProjectsTheSecondCircleIntoThePlaneOfTheFirst) {
  const Circle lifted{Vec(6, 0, 7), Vec(11, 0, 7), Vec(6, 5, 7)};
  ExpectBoth(Circles(Flat(0, 0, 5), lifted), 2, Vec(3, 4, 0), Vec(3, -4, 0));
  const Circle leaning{Vec(6, 0, 7), Vec(9, 0, 11), Vec(6, 5, 7)};
  const double x = 52.0 / 12;  // (25 - 9 + 36) / 12
  const double y = std::sqrt(25 - x * x);
  ExpectBoth(Circles(Flat(0, 0, 5), leaning), 2, Vec(x, y, 0), Vec(x, -y, 0));
}

TEST(Intersect2DCircles, EitherOutputMayBeAnyInput) {
  const std::array<Vec, 6> inputs{kO,           Vec(5, 0, 1), Vec(0, 5, 1),
                                  Vec(6, 1, 1), Vec(8, 4, 1), Vec(0, 7, 0)};
  support::ExpectOutputMayBeAnyInput(
      inputs, [](const std::array<const double*, 6>& p, double* out) {
        Vec other = kUnwritten2;
        EXPECT_EQ(Intersect2D_circles(0, p[0], p[1], p[2], p[3], p[4], p[5], out, other), 2);
      });
  support::ExpectOutputMayBeAnyInput(
      inputs, [](const std::array<const double*, 6>& p, double* out) {
        Vec other = kUnwritten2;
        EXPECT_EQ(Intersect2D_circles(0, p[0], p[1], p[2], p[3], p[4], p[5], other, out), 2);
      });
}

// An orthonormal frame at a random place, to carry plane figures into space.
struct Place {
  Vec origin;
  Vec x;
  Vec y;

  explicit Place(support::Random& random) : origin(Any(random, 50)), x(kO), y(kO) {
    Vec u = kO;
    Vec v = kO;
    do {
      u = Any(random, 1);
      v = Any(random, 1);
    } while (Length(Cross(u, v)) < 0.2);
    const Vec w = Cross(u, v);
    x = (1 / Length(u)) * u;
    y = (1 / Length(Cross(w, u))) * Cross(w, u);
  }
  Vec At(double u, double v, double w = 0) const {
    return origin + u * x + v * y + w * Cross(x, y);
  }
  static Vec Any(support::Random& random, double extent) {
    const double a = random.Between(-extent, extent);
    const double b = random.Between(-extent, extent);
    return {a, b, random.Between(-extent, extent)};
  }
};

TEST(Intersect2DCircles, CrossingsLieOnBothCirclesInSpaceAtRandom) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const Place at(random);
    const double r1 = random.Between(4, 6);
    const double r2 = random.Between(4, 6);
    const double d = random.Between(2.5, 7.5);
    // The start decides the local x axis; the centres keep apart along it.
    const double turn = random.Between(-1.3, 1.3);
    const Vec c2 = at.At(d, 0);
    const Both b =
        Circles({at.origin, at.At(r1 * std::cos(turn), r1 * std::sin(turn)), at.At(0, 9)},
                {c2, at.At(d, r2), at.At(d + 1, 1)});
    ASSERT_EQ(b.result, 2);
    const double foot = (d * d + r1 * r1 - r2 * r2) / (2 * d);
    const double half = std::sqrt(r1 * r1 - foot * foot);
    // The local y of the outputs differ by 2 half cos(turn); roundings are those of 1e-14 in the
    // points, grown by the slope of up to 4.
    ASSERT_POINT_NEAR(b.first, at.At(foot, half), 1e-10);
    ASSERT_POINT_NEAR(b.second, at.At(foot, -half), 1e-10);
  }
}

// ---- line and circle. The three routines as functions of one kind.

using LineArc = int (*)(const int&, const double*, const double*, const double*, const double*,
                        const double*, double, double*, double*);

constexpr Vec kStart(5, 0, 0);
constexpr Vec kThird(0, 5, 0);

Both Meet(LineArc routine, const Vec& p1, const Vec& p2, double tol = 0.01, int unit = 0,
          const Vec& third = kThird) {
  Both b;
  b.result = routine(unit, p1, p2, kO, kStart, third, tol, b.first, b.second);
  return b;
}
constexpr std::array<LineArc, 3> kAll{Intersection_3D_line_arc, Intersection_line_arc_on_arc_plane,
                                      Intersection_line_arc_on_arc_plane_tol};
constexpr std::array<LineArc, 2> kOnPlane{Intersection_line_arc_on_arc_plane,
                                          Intersection_line_arc_on_arc_plane_tol};

void ExpectUsualCrossings(LineArc routine) {
  ExpectBoth(Meet(routine, Vec(3, -9, 0), Vec(3, 9, 0)), 2, Vec(3, 4, 0), Vec(3, -4, 0));
  ExpectBoth(Meet(routine, Vec(3, 9, 0), Vec(3, 8, 0)), 2, Vec(3, 4, 0), Vec(3, -4, 0));
  ExpectBoth(Meet(routine, Vec(-9, 3, 0), Vec(9, 3, 0)), 2, Vec(4, 3, 0), Vec(-4, 3, 0));
  ExpectBoth(Meet(routine, Vec(9, 3, 0), Vec(-9, 3, 0)), 2, Vec(4, 3, 0), Vec(-4, 3, 0));
  ExpectBoth(Meet(routine, kO, Vec(-3, 4, 0)), 2, Vec(-3, 4, 0), Vec(3, -4, 0));
  // Tangents.
  ExpectBoth(Meet(routine, Vec(5, -4, 0), Vec(5, 4, 0)), 1, Vec(5, 0, 0), Vec(5, 0, 0));
  ExpectBoth(Meet(routine, Vec(-4, 5, 0), Vec(4, 5, 0)), 1, Vec(0, 5, 0), Vec(0, 5, 0));
  // Beside the circle.
  ExpectUntouched(Meet(routine, Vec(6, -9, 0), Vec(6, 9, 0)));
  ExpectUntouched(Meet(routine, Vec(-9, 6, 0), Vec(9, 6, 0)));
}
void ExpectNothingForPointsInLine(LineArc routine) {
  const Vec p1(3, -9, 0);
  const Vec p2(3, 9, 0);
  ExpectUntouched(Meet(routine, p1, p2, 0.01, 0, Vec(-8, 0, 0)));
  ExpectUntouched(Meet(routine, p1, p2, 0.01, 0, kO));
  Both b;
  b.result = routine(0, p1, p2, kO, kO, kThird, 0.01, b.first, b.second);
  ExpectUntouched(b);
  support::ExpectOnly1IsInches(
      [&](int unit) { return Meet(routine, p1, p2, 0.01, unit, Vec(5, 0.00025, 0)).result; }, 0, 2);
}
void ExpectOutputsMayBeInputs(LineArc routine) {
  const std::array<Vec, 5> inputs{Vec(3, -9, 0), Vec(2, 9, 0), Vec(0, 1, 0), kStart, kThird};
  support::ExpectOutputMayBeAnyInput(
      inputs, [routine](const std::array<const double*, 5>& p, double* out) {
        Vec other = kUnwritten2;
        EXPECT_EQ(routine(0, p[0], p[1], p[2], p[3], p[4], 1, out, other), 2);
      });
  support::ExpectOutputMayBeAnyInput(
      inputs, [routine](const std::array<const double*, 5>& p, double* out) {
        Vec other = kUnwritten2;
        EXPECT_EQ(routine(0, p[0], p[1], p[2], p[3], p[4], 1, other, out), 2);
      });
}
void ExpectCrossingsAtRandom(LineArc routine) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const Place at(random);
    const double radius = random.Between(1, 20);
    const double off = radius * random.Between(-0.95, 0.95);
    const double half = std::sqrt(radius * radius - off * off);
    // The line runs along v at u = off; the start decides what is level, and keeps clear of v.
    const double turn = random.Between(-1.3, 1.3);
    const Vec start = at.At(radius * std::sin(turn), -radius * std::cos(turn));
    if (std::fabs(std::sin(turn)) < 0.2) continue;
    Both b;
    b.result =
        routine(0, at.At(off, random.Between(-9, -3)), at.At(off, random.Between(3, 9)), at.origin,
                start, at.At(9 * std::cos(turn), 9 * std::sin(turn)), 1e-9, b.first, b.second);
    ASSERT_EQ(b.result, 2);
    // Local y runs along (cos turn, sin turn), so v is upwards for a positive turn. Roundings of
    // 1e-14 in the points grow by the slope of up to 5 and over half the chord.
    const double plus = turn > 0 ? half : -half;
    ASSERT_POINT_NEAR(b.first, at.At(off, plus), 1e-9);
    ASSERT_POINT_NEAR(b.second, at.At(off, -plus), 1e-9);
  }
}
void ExpectAnswers(LineArc routine) {
  for (const double value : {kNaN, kInfinity, -kInfinity, 1e308}) {
    for (int i = 0; i < 15; ++i) {
      std::array<Vec, 5> p{Vec(3, -9, 0), Vec(2, 9, 0), kO, kStart, kThird};
      p[static_cast<std::size_t>(i / 3)][i % 3] = value;
      Both b;
      b.result = routine(0, p[0], p[1], p[2], p[3], p[4], 1, b.first, b.second);
      EXPECT_TRUE(b.result >= 0 && b.result <= 2);
      if (b.result == 0) ExpectUntouched(b);
    }
  }
}

TEST(Intersection3DLineArc, GivesThePlusRootFirst) {
  ExpectUsualCrossings(Intersection_3D_line_arc);
}
TEST(IntersectionLineArcOnArcPlane, GivesThePlusRootFirst) {
  ExpectUsualCrossings(Intersection_line_arc_on_arc_plane);
}
TEST(IntersectionLineArcOnArcPlaneTol, GivesThePlusRootFirst) {
  ExpectUsualCrossings(Intersection_line_arc_on_arc_plane_tol);
}

TEST(Intersection3DLineArc, ArcPointsInLineGive0) {
  ExpectNothingForPointsInLine(Intersection_3D_line_arc);
}
TEST(IntersectionLineArcOnArcPlane, ArcPointsInLineGive0) {
  ExpectNothingForPointsInLine(Intersection_line_arc_on_arc_plane);
}
TEST(IntersectionLineArcOnArcPlaneTol, ArcPointsInLineGive0) {
  ExpectNothingForPointsInLine(Intersection_line_arc_on_arc_plane_tol);
}

TEST(Intersection3DLineArc, EitherOutputMayBeAnyInput) {
  ExpectOutputsMayBeInputs(Intersection_3D_line_arc);
}
TEST(IntersectionLineArcOnArcPlane, EitherOutputMayBeAnyInput) {
  ExpectOutputsMayBeInputs(Intersection_line_arc_on_arc_plane);
}
TEST(IntersectionLineArcOnArcPlaneTol, EitherOutputMayBeAnyInput) {
  ExpectOutputsMayBeInputs(Intersection_line_arc_on_arc_plane_tol);
}

TEST(Intersection3DLineArc, CrossingsLieOnLineAndCircleInSpaceAtRandom) {
  ExpectCrossingsAtRandom(Intersection_3D_line_arc);
}
TEST(IntersectionLineArcOnArcPlane, CrossingsLieOnLineAndCircleInSpaceAtRandom) {
  ExpectCrossingsAtRandom(Intersection_line_arc_on_arc_plane);
}
TEST(IntersectionLineArcOnArcPlaneTol, CrossingsLieOnLineAndCircleInSpaceAtRandom) {
  ExpectCrossingsAtRandom(Intersection_line_arc_on_arc_plane_tol);
}

TEST(Intersection3DLineArc, AnswersEveryFigureAndSoDoTheOthers) {
  for (const LineArc routine : kAll) ExpectAnswers(routine);
}

TEST(Intersection3DLineArc, PointsOffThePlaneByMoreThanTheToleranceGive0) {
  const Vec p1(3, -9, 0);
  const Vec p2(3, 9, 0);
  for (const double z : {0.5, -0.5}) {
    const Vec lifted1(3, -9, z);
    const Vec lifted2(3, 9, z);
    ExpectUntouched(Meet(Intersection_3D_line_arc, lifted1, p2, 0.49));
    ExpectUntouched(Meet(Intersection_3D_line_arc, p1, lifted2, 0.49));
    ExpectBoth(Meet(Intersection_3D_line_arc, lifted1, lifted2, 0.5), 2, Vec(3, 4, 0),
               Vec(3, -4, 0));
  }
}

TEST(Intersection3DLineArc, ToleranceIsTheSameForEveryUnit) {
  for (const int unit : {0, 1, 2, -1}) {
    const Vec p2(3, 9, 0.5);
    EXPECT_EQ(Meet(Intersection_3D_line_arc, Vec(3, -9, 0), p2, 0.5, unit).result, 2);
    EXPECT_EQ(Meet(Intersection_3D_line_arc, Vec(3, -9, 0), p2, 0.49, unit).result, 0);
  }
}

// A short line of 45 degrees counts as level.
void ExpectLevel(LineArc routine, double extent) {
  ExpectBoth(Meet(routine, kO, Vec(extent, extent, 0)), 2, kStart, Vec(-5, 0, 0));
}
void ExpectSloped(LineArc routine, double extent) {
  const double x = 5 * kHalfRoot;
  ExpectBoth(Meet(routine, kO, Vec(extent, extent, 0)), 2, Vec(x, x, 0), Vec(-x, -x, 0));
}

TEST(Intersection3DLineArc, YThatDifferBy1e8ThAreLevel) {
  ExpectLevel(Intersection_3D_line_arc, 0x1p-27);
  ExpectLevel(Intersection_3D_line_arc, 1e-8);
  ExpectSloped(Intersection_3D_line_arc, 0x1p-26);
}
TEST(IntersectionLineArcOnArcPlane, YThatDifferBy1e8ThAreLevel) {
  ExpectLevel(Intersection_line_arc_on_arc_plane, 0x1p-27);
  ExpectLevel(Intersection_line_arc_on_arc_plane, 1e-8);
  ExpectSloped(Intersection_line_arc_on_arc_plane, 0x1p-26);
}
TEST(IntersectionLineArcOnArcPlaneTol, YThatDifferBy1e5ThAreLevel) {
  ExpectLevel(Intersection_line_arc_on_arc_plane_tol, 0x1p-17);
  ExpectLevel(Intersection_line_arc_on_arc_plane_tol, 1e-5);
  ExpectSloped(Intersection_line_arc_on_arc_plane_tol, 0x1p-16);
  ExpectSloped(Intersection_line_arc_on_arc_plane, 0x1p-17);
}

TEST(Intersection3DLineArc, LineOfLengthZeroIsLevel) {
  ExpectBoth(Meet(Intersection_3D_line_arc, Vec(9, 3, 0), Vec(9, 3, 0)), 2, Vec(4, 3, 0),
             Vec(-4, 3, 0));
}

TEST(IntersectionLineArcOnArcPlane, ProjectsTheLineIntoThePlaneAndSoDoesTheTwin) {
  for (const LineArc routine : kOnPlane) {
    ExpectBoth(Meet(routine, Vec(3, -9, 7), Vec(3, 9, -2)), 2, Vec(3, 4, 0), Vec(3, -4, 0));
    ExpectBoth(Meet(routine, Vec(3, -9, 100), Vec(3, 9, 100)), 2, Vec(3, 4, 0), Vec(3, -4, 0));
    ExpectUntouched(Meet(routine, Vec(6, -9, 7), Vec(6, 9, -2)));
  }
}

TEST(IntersectionLineArcOnArcPlane, TakesALineAcrossThePlaneForLevelAndSoDoesTheTwin) {
  for (const LineArc routine : kOnPlane) {
    ExpectBoth(Meet(routine, Vec(9, 3, 0), Vec(9, 3, 8)), 2, Vec(4, 3, 0), Vec(-4, 3, 0));
    ExpectUntouched(Meet(routine, Vec(0, 6, 0), Vec(0, 6, 8)));
  }
}

TEST(IntersectionLineArcOnArcPlane, DoesNotLookAtTheIgnoredFigureAndNeitherDoesTheTwin) {
  for (const LineArc routine : kOnPlane) {
    for (const double ignored : {0.0, -1.0, 1e300, kNaN, kInfinity}) {
      ExpectBoth(Meet(routine, Vec(3, -9, 7), Vec(3, 9, -2), ignored), 2, Vec(3, 4, 0),
                 Vec(3, -4, 0));
    }
  }
}

TEST(IntersectionLineArcOnArcPlaneTol, DiffersFromTheTwinInTheGuardAlone) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const Vec p1(random.Between(-9, 9), random.Between(-9, 9), random.Between(-9, 9));
    const Vec p2(random.Between(-9, 9), random.Between(-9, 9), random.Between(-9, 9));
    const Both one = Meet(Intersection_line_arc_on_arc_plane, p1, p2);
    const Both two = Meet(Intersection_line_arc_on_arc_plane_tol, p1, p2);
    ASSERT_EQ(one.result, two.result);
    ASSERT_POINT_EQ(one.first, two.first);
    ASSERT_POINT_EQ(one.second, two.second);
  }
}

// So short a line counts as level once it comes to the quadratic, and would meet the circle there.
TEST(IntersectionLineArcOnArcPlane, AsksForTheDistanceBeforeALineCountsAsLevel) {
  const Circle circle = Flat(0, 0, 5);
  const Vec a(8, 0, 0);
  const Vec b(8, 1e-8, 0);
  Both flat;
  flat.result = Intersection_line_arc_on_arc_plane(0, a, b, circle.c, circle.s, circle.t, 0.0,
                                                   flat.first, flat.second);
  ExpectUntouched(flat);
  Both tolerant;
  tolerant.result = Intersection_line_arc_on_arc_plane_tol(0, a, b, circle.c, circle.s, circle.t,
                                                           0.0, tolerant.first, tolerant.second);
  ExpectUntouched(tolerant);
  Both inSpace;
  EXPECT_EQ(Intersection_3D_line_arc(0, a, b, circle.c, circle.s, circle.t, 0.1, inSpace.first,
                                     inSpace.second),
            2);
}

}  // namespace
