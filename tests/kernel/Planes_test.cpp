#include <KTRCL_Geometry/kernel/Frames.h>

#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using support::Frame;
using support::kGlobalAxes;
using support::kInfinity;
using support::kNaN;
using support::kUnwritten;
using support::kUnwrittenFrame;
using support::Vec;

template <std::size_t kCount>
using Inputs = const std::array<const double*, kCount>&;

constexpr Vec kO(0, 0, 0);
constexpr Vec kX(1, 0, 0);
constexpr Vec kY(0, 1, 0);
constexpr Vec kOrigin(1, 2, 3);

// X = Y, Y = Z, Z = X of the global axes, and a left-handed frame that is its own inverse.
constexpr Frame kTurned({0, 1, 0}, {0, 0, 1}, {1, 0, 0});
constexpr Frame kTurnedBack({0, 0, 1}, {1, 0, 0}, {0, 1, 0});
constexpr Frame kLeftHanded({0, 1, 0}, {1, 0, 0}, {0, 0, 1});

Vec RandomPoint(support::Random& random, double extent) {
  const double x = random.Between(-extent, extent);
  const double y = random.Between(-extent, extent);
  return {x, y, random.Between(-extent, extent)};
}

bool InPlane(int unit, double z) { return PointInPlane(unit, kO, kX, kY, Vec(50, -70, z)); }

// The unit points have the normal (0, 0, 1), so that the distance is z itself.
TEST(PointInPlane, HoldsUpToADistanceOf0Point01) {
  for (const int unit : {0, 2, -1}) {
    EXPECT_TRUE(InPlane(unit, 0.01));
    EXPECT_TRUE(InPlane(unit, -0.01));
    EXPECT_FALSE(InPlane(unit, std::nextafter(0.01, 1.0)));
    EXPECT_FALSE(InPlane(unit, -std::nextafter(0.01, 1.0)));
  }
}

TEST(PointInPlane, HasTheLimitInInchesForExactly1) {
  const double limit = 0.00039370078740157485;
  EXPECT_TRUE(InPlane(1, limit));
  EXPECT_TRUE(InPlane(1, -limit));
  EXPECT_FALSE(InPlane(1, std::nextafter(limit, 1.0)));
  EXPECT_FALSE(InPlane(1, -std::nextafter(limit, 1.0)));
  support::ExpectOnly1IsInches([](int unit) { return InPlane(unit, 0.005); }, true, false);
}

TEST(PointInPlane, DividesByTheLengthOfTheNormal) {
  EXPECT_TRUE(PointInPlane(0, kO, Vec(100, 0, 0), Vec(0, 100, 0), Vec(5, 5, 0.0099)));
  EXPECT_FALSE(PointInPlane(0, kO, Vec(100, 0, 0), Vec(0, 100, 0), Vec(5, 5, 0.0101)));
  EXPECT_FALSE(PointInPlane(0, kO, Vec(0.01, 0, 0), Vec(0, 0.01, 0), Vec(5, 5, 1)));
  EXPECT_TRUE(PointInPlane(0, Vec(7, 0, 3), Vec(7, 1, 3), Vec(7, 0, 4), Vec(7, -5, 60)));
}

// A normal of 1e-09: the triple product is z times that.
TEST(PointInPlane, ComparesTheSignedTripleProductOfAShortNormal) {
  const Vec b(1e-5, 0, 0);
  const Vec c(0, 1e-4, 0);
  EXPECT_TRUE(PointInPlane(0, kO, b, c, Vec(0, 0, 9e6)));
  EXPECT_FALSE(PointInPlane(0, kO, b, c, Vec(0, 0, 1.1e7)));
  EXPECT_TRUE(PointInPlane(0, kO, b, c, Vec(0, 0, -1.1e7)));
  EXPECT_FALSE(PointInPlane(1, kO, b, c, Vec(0, 0, 9e6)));
  EXPECT_TRUE(PointInPlane(1, kO, b, c, Vec(0, 0, -9e6)));
}

// The normal is 1 / 2^30 long, so that the product is exactly 0.01.
TEST(PointInPlane, HoldsForATripleProductOfExactlyTheLimit) {
  const double side = std::ldexp(1.0, -15);
  const double z = std::ldexp(0.01, 30);
  EXPECT_TRUE(PointInPlane(0, kO, side * kX, side * kY, Vec(0, 0, z)));
  EXPECT_FALSE(PointInPlane(0, kO, side * kX, side * kY, Vec(0, 0, std::nextafter(z, 1e9))));
}

TEST(PointInPlane, TakesANormalAsShortBelow1EMinus8) {
  EXPECT_FALSE(PointInPlane(0, kO, Vec(1e-8, 0, 0), kY, Vec(0, 0, 1)));
  EXPECT_TRUE(PointInPlane(0, kO, Vec(std::nextafter(1e-8, 0.0), 0, 0), kY, Vec(0, 0, 1)));
}

TEST(PointInPlane, HoldsForAnyPointWhereThePlaneIsALine) {
  EXPECT_TRUE(PointInPlane(0, kO, kX, 5 * kX, Vec(7, 8, 9)));
  EXPECT_TRUE(PointInPlane(0, kO, kO, kO, Vec(7, 8, 9)));
}

TEST(PointInPlane, DoesNotHoldForNaN) {
  EXPECT_FALSE(InPlane(0, kNaN));
  EXPECT_FALSE(InPlane(0, kInfinity));
  EXPECT_FALSE(PointInPlane(0, kO, Vec(kNaN, 0, 0), kY, kO));
}

TEST(ProjectPointOnPlane, IsTheFoot) {
  Vec out = kUnwritten;
  EXPECT_EQ(Project_point_on_plane(Vec(0, 0, 5), Vec(9, 0, 5), Vec(2, 3, 5), Vec(7, 8, 9), out), 1);
  EXPECT_POINT_EQ(out, Vec(7, 8, 5));
  // x + y + z = 3, from (4, 5, 6) by 4 along each axis.
  EXPECT_EQ(Project_point_on_plane(3 * kX, 3 * kY, Vec(0, 0, 3), Vec(4, 5, 6), out), 1);
  EXPECT_POINT_NEAR(out, Vec(0, 1, 2), 1e-14);
}

TEST(ProjectPointOnPlane, LeavesTheFootAloneWherePointsAreInLine) {
  Vec out = kUnwritten;
  EXPECT_EQ(Project_point_on_plane(kO, kX, 2 * kX, Vec(4, 5, 6), out), 1);
  EXPECT_EQ(Project_point_on_plane(kX, kX, kY, Vec(4, 5, 6), out), 1);
  EXPECT_POINT_EQ(out, kUnwritten);
}

TEST(ProjectPointOnPlane, GivesAPointOfThePlaneAlongTheNormal) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    const Vec a = RandomPoint(random, 50);
    const Vec b = a + Vec(random.Between(1, 20), random.Between(-5, 5), random.Between(-5, 5));
    const Vec c = a + Vec(random.Between(-5, 5), random.Between(-5, 5), random.Between(20, 30));
    const Vec p = RandomPoint(random, 50);
    const Vec normal = support::Cross(b - a, c - a);
    const Vec unit = 1 / support::Length(normal) * normal;
    Vec out = kUnwritten;
    EXPECT_EQ(Project_point_on_plane(a, b, c, p, out), 1);
    EXPECT_NEAR(support::Dot(unit, out - a), 0.0, 1e-11);
    EXPECT_NEAR(support::Length(support::Cross(unit, p - out)), 0.0, 1e-11);
    EXPECT_TRUE(PointInPlane(1, a, b, c, out));
  }
}

TEST(ProjectPointOnPlane, MayWriteToItsInputs) {
  support::ExpectOutputMayBeAnyInput<4>(
      {{{1, 0, 5}, {9, 1, 6}, {2, 3, 7}, {7, 8, 9}}}, [](Inputs<4> in, double* out) {
        EXPECT_EQ(Project_point_on_plane(in[0], in[1], in[2], in[3], out), 1);
      });
}

TEST(ProjectPointOnPlaneM, IsTheFootOnThePlaneOfTheFrame) {
  Vec out = kUnwritten;
  EXPECT_EQ(Project_point_on_plane_m(kTurned, kTurnedBack, kOrigin, Vec(7, 8, 9), out), 1);
  EXPECT_POINT_EQ(out, Vec(1, 8, 9));
  EXPECT_EQ(Project_point_on_plane_m(kLeftHanded, kLeftHanded, kOrigin, Vec(7, 8, 9), out), 1);
  EXPECT_POINT_EQ(out, Vec(7, 8, 3));
}

TEST(ProjectPointOnPlaneM, MayWriteToThePointOrTheOrigin) {
  support::ExpectOutputMayBeAnyInput<2>({{{1, 2, 3}, {7, 8, 9}}}, [](Inputs<2> in, double* out) {
    EXPECT_EQ(Project_point_on_plane_m(kTurned, kTurnedBack, in[0], in[1], out), 1);
  });
}

TEST(PlanarSymmetricAPointByALine, MirrorsWithinThePlane) {
  Vec out = kUnwritten;
  EXPECT_EQ(Planar_symmetric_a_point_by_a_line(0, Vec(3, 4, 0), kO, kX, out), 1);
  EXPECT_POINT_EQ(out, Vec(3, -4, 0));
  EXPECT_EQ(Planar_symmetric_a_point_by_a_line(0, Vec(3, 4, 12), kO, kX, out), 1);
  EXPECT_POINT_NEAR(out, Vec(3, -4, -12), 1e-14);
}

TEST(PlanarSymmetricAPointByALine, Gives0ForAPointInLine) {
  Vec out = kUnwritten;
  EXPECT_EQ(Planar_symmetric_a_point_by_a_line(0, 5 * kX, kO, kX, out), 0);
  EXPECT_EQ(Planar_symmetric_a_point_by_a_line(0, kO, kO, kX, out), 0);
  EXPECT_EQ(Planar_symmetric_a_point_by_a_line(0, kY, kX, kX, out), 0);
  EXPECT_POINT_EQ(out, kUnwritten);
}

TEST(PlanarSymmetricAPointByALine, HandsTheUnitFlagToInline) {
  const auto mirrored = [](int unit) {
    Vec out = kUnwritten;
    const Vec p(10, 0.0005, 0);
    const int result = Planar_symmetric_a_point_by_a_line(unit, p, kO, kX, out);
    EXPECT_POINT_NEAR(out, result == 0 ? kUnwritten : Vec(10, -0.0005, 0), 1e-15);
    return result;
  };
  support::ExpectOnly1IsInches(mirrored, 0, 1);
}

TEST(PlanarSymmetricAPointByALine, TwiceIsThePointItself) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    const Vec a = RandomPoint(random, 50);
    const Vec b = a + Vec(random.Between(1, 20), random.Between(-5, 5), random.Between(-5, 5));
    const Vec p = a + Vec(random.Between(-5, 5), random.Between(-5, 5), random.Between(20, 30));
    Vec once = kUnwritten;
    Vec twice = kUnwritten;
    ASSERT_EQ(Planar_symmetric_a_point_by_a_line(0, p, a, b, once), 1);
    ASSERT_EQ(Planar_symmetric_a_point_by_a_line(0, once, a, b, twice), 1);
    EXPECT_POINT_NEAR(twice, p, 1e-11);
    EXPECT_NEAR(support::Length(once - a), support::Length(p - a), 1e-11);
    EXPECT_NEAR(support::Length(support::Cross(0.5 * (once + p) - a, b - a)), 0.0, 1e-9);
  }
}

TEST(PlanarSymmetricAPointByALine, MayWriteToItsInputs) {
  support::ExpectOutputMayBeAnyInput<3>(
      {{{3, 4, 1}, {1, 0, 0}, {2, 5, 3}}}, [](Inputs<3> in, double* out) {
        EXPECT_EQ(Planar_symmetric_a_point_by_a_line(0, in[0], in[1], in[2], out), 1);
      });
}

Vec Selected(const Vec& p1, const Vec& p2, const Vec& q) {
  Vec p = p1;
  Select_correct_point(p, p2, q, kTurned, kOrigin, kTurnedBack);
  return p;
}

// The plane is x = 1, and x is the coordinate that is dropped.
TEST(SelectCorrectPoint, TakesTheFootOfTheFartherPoint) {
  EXPECT_POINT_EQ(Selected(Vec(5, 3, 0), Vec(7, 4, 0), Vec(9, 0, 0)), Vec(1, 4, 0));
  EXPECT_POINT_EQ(Selected(Vec(500, 3, 0), Vec(7, 0, -4), Vec(9, 0, 0)), Vec(1, 0, -4));
}

// In y and z the distances are 3 and 4.
TEST(SelectCorrectPoint, MeasuresInBothAxesOfThePlane) {
  const Vec q(9, 9, 9);
  EXPECT_POINT_EQ(Selected(Vec(5, 12, 9), Vec(7, 9, 5), q), Vec(1, 9, 5));
  EXPECT_POINT_EQ(Selected(Vec(5, 9, 12), Vec(7, 13, 9), q), Vec(1, 13, 9));
  EXPECT_POINT_EQ(Selected(Vec(5, 12, 13), Vec(7, 9, 4.5), q), Vec(5, 12, 13));
}

TEST(SelectCorrectPoint, ComparesDistancesOfTheFeet) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    const Vec p1 = RandomPoint(random, 9);
    const Vec p2 = RandomPoint(random, 9);
    const Vec q = RandomPoint(random, 9);
    const double first = std::hypot(p1[1] - q[1], p1[2] - q[2]);
    const double second = std::hypot(p2[1] - q[1], p2[2] - q[2]);
    EXPECT_POINT_NEAR(Selected(p1, p2, q), second > first ? Vec(1, p2[1], p2[2]) : p1, 1e-14);
  }
}

TEST(SelectCorrectPoint, KeepsTheFirstPointOffThePlaneWhereItIsFartherOrOnATie) {
  EXPECT_POINT_EQ(Selected(Vec(5, 5, 0), Vec(7, 4, 0), Vec(9, 0, 0)), Vec(5, 5, 0));
  EXPECT_POINT_EQ(Selected(Vec(5, 3, 0), Vec(700, -3, 0), Vec(9, 0, 0)), Vec(5, 3, 0));
  EXPECT_POINT_EQ(Selected(Vec(5, 3, 0), Vec(7, kNaN, 0), Vec(9, 0, 0)), Vec(5, 3, 0));
}

TEST(SelectCorrectPoint, MayHaveItsFirstPointInAnyPlace) {
  Vec p(5, 3, 0);
  Select_correct_point(p, p, kO, kTurned, kOrigin, kTurnedBack);
  EXPECT_POINT_EQ(p, Vec(5, 3, 0));
  Select_correct_point(p, Vec(7, 4, 0), p, kTurned, kOrigin, kTurnedBack);
  EXPECT_POINT_EQ(p, Vec(1, 4, 0));
  Vec origin = kOrigin;
  Select_correct_point(origin, Vec(7, 9, 3), kOrigin, kTurned, origin, kTurnedBack);
  EXPECT_POINT_EQ(origin, Vec(1, 9, 3));
}

// The three forms on the same plane x = 1.
using Crossing = int (*)(const Vec&, const Vec&, double*);
constexpr Crossing kCrossings[] = {
    [](const Vec& l1, const Vec& l2, double* out) {
      return Cal_inter_plane_line(kOrigin, kOrigin + kY, kOrigin + Vec(0, 0, 1), l1, l2, out);
    },
    [](const Vec& l1, const Vec& l2, double* out) {
      return Cal_inter_plane_line(kOrigin, l1, l2, out, kTurned, kTurnedBack);
    },
    [](const Vec& l1, const Vec& l2, double* out) {
      return Cal_inter_plane_line(l1, l2, out, kTurned, kOrigin, kTurnedBack);
    }};

TEST(CalInterPlaneLine, FindsTheCrossingOfTheUnboundedLine) {
  for (const Crossing crossing : kCrossings) {
    Vec out = kUnwritten;
    EXPECT_EQ(crossing(Vec(0, 0, 0), Vec(4, 8, -12), out), 1);
    EXPECT_POINT_EQ(out, Vec(1, 2, -3));
    EXPECT_EQ(crossing(Vec(5, 8, -12), Vec(3, 4, -6), out), 1);
    EXPECT_POINT_EQ(out, Vec(1, 0, 0));
    EXPECT_EQ(crossing(Vec(1, 7, 9), Vec(3, 4, -6), out), 1);
    EXPECT_POINT_EQ(out, Vec(1, 7, 9));
  }
}

TEST(CalInterPlaneLine, Gives0ForHeightsThatDifferByAtMost0Point0001) {
  const double above = std::nextafter(0.0001, 1.0);
  const Frame& f = kGlobalAxes;
  Vec out = kUnwritten;
  for (const double z : {0.0, 0.0001, -0.0001}) {
    const Vec l2(10, 0, z);
    EXPECT_EQ(Cal_inter_plane_line(kO, kX, kY, kO, l2, out), 0);
    EXPECT_EQ(Cal_inter_plane_line(kO, kO, l2, out, f, f), 0);
    EXPECT_EQ(Cal_inter_plane_line(kO, l2, out, f, kO, f), 0);
  }
  EXPECT_POINT_EQ(out, kUnwritten);
  for (const double z : {above, -above}) {
    const Vec l2(10, 0, z);
    EXPECT_EQ(Cal_inter_plane_line(kO, kX, kY, l2, kO, out), 1);
    EXPECT_EQ(Cal_inter_plane_line(kO, l2, kO, out, f, f), 1);
    EXPECT_EQ(Cal_inter_plane_line(l2, kO, out, f, kO, f), 1);
  }
  EXPECT_POINT_EQ(out, kO);
}

TEST(CalInterPlaneLine, Gives0WhereThePlaneIsALine) {
  Vec out = kUnwritten;
  EXPECT_EQ(Cal_inter_plane_line(kO, kX, 2 * kX, Vec(0, 0, -1), Vec(0, 0, 1), out), 0);
  EXPECT_EQ(Cal_inter_plane_line(kX, kX, kY, Vec(0, 0, -1), Vec(0, 0, 1), out), 0);
  EXPECT_POINT_EQ(out, kUnwritten);
}

TEST(CalInterPlaneLine, TakesALeftHandedFrame) {
  const Vec l1(4, 5, 7);
  const Vec l2(4, 7, -1);
  for (const bool originFirst : {true, false}) {
    Vec out = kUnwritten;
    const int result = originFirst
                           ? Cal_inter_plane_line(kOrigin, l1, l2, out, kLeftHanded, kLeftHanded)
                           : Cal_inter_plane_line(l1, l2, out, kLeftHanded, kOrigin, kLeftHanded);
    EXPECT_EQ(result, 1);
    EXPECT_POINT_EQ(out, Vec(4, 6, 3));
  }
}

TEST(CalInterPlaneLine, MayWriteToItsInputs) {
  support::ExpectOutputMayBeAnyInput<5>(
      {{{1, 0, 5}, {9, 1, 6}, {2, 3, 7}, {7, 8, 9}, {5, 5, -5}}}, [](Inputs<5> in, double* out) {
        EXPECT_EQ(Cal_inter_plane_line(in[0], in[1], in[2], in[3], in[4], out), 1);
      });
  const std::array<Vec, 3> line{{{1, 2, 3}, {7, 8, 9}, {5, 5, -5}}};
  support::ExpectOutputMayBeAnyInput<3>(line, [](Inputs<3> in, double* out) {
    EXPECT_EQ(Cal_inter_plane_line(in[0], in[1], in[2], out, kTurned, kTurnedBack), 1);
  });
  support::ExpectOutputMayBeAnyInput<3>(line, [](Inputs<3> in, double* out) {
    EXPECT_EQ(Cal_inter_plane_line(in[1], in[2], out, kTurned, in[0], kTurnedBack), 1);
  });
}

TEST(CalInterPlaneLine, AgreesInAllThreeFormsAndLiesOnLineAndPlane) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    const Vec a = RandomPoint(random, 50);
    const Vec b = a + Vec(random.Between(1, 20), random.Between(-5, 5), random.Between(-5, 5));
    const Vec c = a + Vec(random.Between(-5, 5), random.Between(20, 30), random.Between(-5, 5));
    const Vec l1 = RandomPoint(random, 50);
    const Vec l2 = l1 + Vec(random.Between(-5, 5), random.Between(-5, 5), random.Between(20, 50));
    Frame frame = kUnwrittenFrame;
    Frame inverse = kUnwrittenFrame;
    ASSERT_EQ(Lambda(a, b, c, frame), 1);
    ASSERT_EQ(Invmat(frame, inverse), 1);
    Vec byPoints = kUnwritten;
    Vec originFirst = kUnwritten;
    Vec lineFirst = kUnwritten;
    ASSERT_EQ(Cal_inter_plane_line(a, b, c, l1, l2, byPoints), 1);
    ASSERT_EQ(Cal_inter_plane_line(a, l1, l2, originFirst, frame, inverse), 1);
    ASSERT_EQ(Cal_inter_plane_line(l1, l2, lineFirst, frame, a, inverse), 1);
    EXPECT_POINT_EQ(originFirst, byPoints);
    EXPECT_POINT_EQ(lineFirst, byPoints);
    EXPECT_NEAR(support::Dot(frame.Row(2), byPoints - a), 0.0, 1e-10);
    EXPECT_NEAR(support::Length(support::Cross(l2 - l1, byPoints - l1)), 0.0, 1e-8);
  }
}

}  // namespace
