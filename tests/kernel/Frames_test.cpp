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

constexpr Vec kO(0, 0, 0);

// X = Y, Y = Z, Z = X of the global axes, and its mirror image.
constexpr Frame kTurned({0, 1, 0}, {0, 0, 1}, {1, 0, 0});
constexpr Frame kLeftHanded({1, 0, 0}, {0, -1, 0}, {0, 0, 1});

template <std::size_t kCount>
using Inputs = const std::array<const double*, kCount>&;

Vec RandomPoint(support::Random& random, double extent) {
  const double x = random.Between(-extent, extent);
  const double y = random.Between(-extent, extent);
  return {x, y, random.Between(-extent, extent)};
}

TEST(Lambda, StandsXOnTheSecondAndYTowardsTheThirdPoint) {
  Frame frame = kUnwrittenFrame;
  EXPECT_EQ(Lambda(Vec(1, 2, 3), Vec(6, 2, 3), Vec(-4, 9, 3), frame), 1);
  EXPECT_POINT_EQ(frame, kGlobalAxes);
  EXPECT_EQ(Lambda(kO, Vec(0, 5, 0), Vec(0, 9, 7), frame), 1);
  EXPECT_POINT_EQ(frame, kTurned);
  EXPECT_EQ(Lambda(kO, Vec(5, 0, 0), Vec(1, -7, 0), frame), 1);
  EXPECT_POINT_EQ(frame, Frame({1, 0, 0}, {0, -1, 0}, {0, 0, -1}));
}

TEST(Lambda, GivesRightHandedUnitAxesWithTheThirdPointOnPositiveY) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    const Vec p0 = RandomPoint(random, 100);
    const Vec p1 = RandomPoint(random, 100);
    const Vec p2 = RandomPoint(random, 100);
    Frame frame = kUnwrittenFrame;
    ASSERT_EQ(Lambda(p0, p1, p2, frame), 1);
    for (int row = 0; row < 3; ++row) {
      EXPECT_NEAR(support::Length(frame.Row(row)), 1.0, 1e-15);
      // Row Z is normalized from a product that may be as short as a hundredth.
      EXPECT_NEAR(support::Dot(frame.Row(row), frame.Row((row + 1) % 3)), 0.0, 1e-12);
    }
    EXPECT_POINT_NEAR(support::Cross(frame.Row(0), frame.Row(1)), frame.Row(2), 1e-12);
    EXPECT_NEAR(support::Dot(frame.Row(0), p1 - p0), support::Length(p1 - p0), 1e-12);
    EXPECT_GT(support::Dot(frame.Row(1), p2 - p0), 0.0);
    EXPECT_NEAR(support::Dot(frame.Row(2), p2 - p0), 0.0, 1e-11);
  }
}

TEST(Lambda, Gives0ForAThirdPointOnTheLine) {
  for (const double x : {-3.0, 0.0, 2.0, 5.0, 9.0}) {
    Frame frame = kUnwrittenFrame;
    EXPECT_EQ(Lambda(kO, Vec(5, 0, 0), Vec(x, 0, 0), frame), 0);
    EXPECT_POINT_EQ(frame.Row(0), Vec(1, 0, 0));
    EXPECT_POINT_EQ(frame.Row(1), kUnwrittenFrame.Row(1));
    EXPECT_POINT_EQ(frame.Row(2), kUnwrittenFrame.Row(2));
  }
}

TEST(Lambda, Gives0WhereTheFirstTwoPointsAreEqual) {
  Frame frame = kUnwrittenFrame;
  EXPECT_EQ(Lambda(Vec(1, 2, 3), Vec(1, 2, 3), Vec(7, 8, 9), frame), 0);
  EXPECT_POINT_EQ(frame.Row(1), kUnwrittenFrame.Row(1));
  EXPECT_POINT_EQ(frame.Row(2), kUnwrittenFrame.Row(2));
}

TEST(Lambda, HasNoToleranceAboutTheLine) {
  Frame frame = kUnwrittenFrame;
  EXPECT_EQ(Lambda(kO, Vec(5, 0, 0), Vec(3, 1e-100, 0), frame), 1);
  EXPECT_POINT_EQ(frame, kGlobalAxes);
  EXPECT_EQ(Lambda(kO, Vec(1e-100, 0, 0), Vec(0, 3, 0), frame), 1);
  EXPECT_POINT_EQ(frame, kGlobalAxes);
}

TEST(Lambda, WritesWhatComesOfNaN) {
  Frame frame = kUnwrittenFrame;
  EXPECT_EQ(Lambda(kO, Vec(kNaN, 0, 0), Vec(0, 3, 0), frame), 1);
  for (int row = 0; row < 3; ++row) {
    EXPECT_TRUE(std::isnan(frame.rows[row][0]));
  }
}

TEST(Gloloc, SubtractsTheOriginAndMultipliesByTheFrame) {
  Vec out = kUnwritten;
  EXPECT_EQ(Gloloc(Vec(11, 22, 33), out, Vec(1, 2, 3), kTurned), 1);
  EXPECT_POINT_EQ(out, Vec(20, 30, 10));
  const Frame any({1, 2, 3}, {4, 5, 6}, {7, 8, 9});
  EXPECT_EQ(Gloloc(Vec(2, 2, 2), out, Vec(1, 0, -1), any), 1);
  EXPECT_POINT_EQ(out, Vec(14, 32, 50));
}

TEST(Gloloc, TakesALeftHandedFrame) {
  Vec out = kUnwritten;
  EXPECT_EQ(Gloloc(Vec(4, 5, 6), out, Vec(1, 1, 1), kLeftHanded), 1);
  EXPECT_POINT_EQ(out, Vec(3, -4, 5));
}

TEST(Gloloc, MayWriteToThePointOrTheOrigin) {
  support::ExpectOutputMayBeAnyInput<2>({{{11, 22, 33}, {1, 2, 4}}}, [](Inputs<2> in, double* out) {
    EXPECT_EQ(Gloloc(in[0], out, in[1], kTurned), 1);
  });
}

TEST(Locglo, MultipliesByTheInverseAndAddsTheOrigin) {
  Vec out = kUnwritten;
  EXPECT_EQ(Locglo(Vec(20, 30, 10), out, Vec(1, 2, 3), support::Transposed(kTurned)), 1);
  EXPECT_POINT_EQ(out, Vec(11, 22, 33));
  const Frame any({1, 2, 3}, {4, 5, 6}, {7, 8, 9});
  EXPECT_EQ(Locglo(Vec(1, 2, 3), out, Vec(100, 200, 300), any), 1);
  EXPECT_POINT_EQ(out, Vec(114, 232, 350));
}

TEST(Locglo, MayWriteToThePointOrTheOrigin) {
  support::ExpectOutputMayBeAnyInput<2>({{{11, 22, 33}, {1, 2, 4}}}, [](Inputs<2> in, double* out) {
    EXPECT_EQ(Locglo(in[0], out, in[1], kTurned), 1);
  });
}

TEST(Locglo, WritesWhatComesOfOddFigures) {
  Vec out = kUnwritten;
  EXPECT_EQ(Locglo(Vec(kNaN, 0, 0), out, kO, kGlobalAxes), 1);
  EXPECT_TRUE(std::isnan(out[0]));
  EXPECT_EQ(Gloloc(Vec(kInfinity, 0, 0), out, Vec(kInfinity, 0, 0), kGlobalAxes), 1);
  EXPECT_TRUE(std::isnan(out[0]));
}

TEST(Locglo, IsTheWayBackFromGloloc) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    const Vec origin = RandomPoint(random, 100);
    const Vec p = RandomPoint(random, 100);
    Frame frame = kUnwrittenFrame;
    Frame inverse = kUnwrittenFrame;
    ASSERT_EQ(Lambda(origin, RandomPoint(random, 100), RandomPoint(random, 100), frame), 1);
    ASSERT_EQ(Invmat(frame, inverse), 1);
    Vec local = kUnwritten;
    Vec back = kUnwritten;
    Gloloc(p, local, origin, frame);
    EXPECT_NEAR(support::Length(local), support::Length(p - origin), 1e-10);
    Locglo(local, back, origin, inverse);
    EXPECT_POINT_NEAR(back, p, 1e-11);  // a few hundred roundings of 350
  }
}

TEST(Invmat, InvertsByCofactors) {
  Frame inverse = kUnwrittenFrame;
  EXPECT_EQ(Invmat(kGlobalAxes, inverse), 1);
  EXPECT_POINT_EQ(inverse, kGlobalAxes);
  EXPECT_EQ(Invmat(kTurned, inverse), 1);
  EXPECT_POINT_EQ(inverse, support::Transposed(kTurned));
  // Of determinant 1: 1 * (0 - 24) - 2 * (0 - 20) + 3 * (0 - 5).
  EXPECT_EQ(Invmat(Frame({1, 2, 3}, {0, 1, 4}, {5, 6, 0}), inverse), 1);
  EXPECT_POINT_EQ(inverse, Frame({-24, 18, 5}, {20, -15, -4}, {-5, 4, 1}));
  EXPECT_EQ(Invmat(Frame({2, 0, 0}, {0, 4, 0}, {0, 0, 8}), inverse), 1);
  EXPECT_POINT_EQ(inverse, Frame({0.5, 0, 0}, {0, 0.25, 0}, {0, 0, 0.125}));
}

TEST(Invmat, TakesALeftHandedFrameAsSingular) {
  Frame inverse = kUnwrittenFrame;
  EXPECT_EQ(Invmat(kLeftHanded, inverse), 0);
  EXPECT_EQ(Invmat(Frame({0, 1, 0}, {1, 0, 0}, {0, 0, 1}), inverse), 0);
  EXPECT_POINT_EQ(inverse, kUnwrittenFrame);
}

TEST(Invmat, LeavesTheInverseAloneForASingularFrame) {
  Frame inverse = kUnwrittenFrame;
  EXPECT_EQ(Invmat(Frame({1, 2, 3}, {4, 5, 6}, {7, 8, 9}), inverse), 0);
  EXPECT_EQ(Invmat(Frame(kO, kO, kO), inverse), 0);
  EXPECT_POINT_EQ(inverse, kUnwrittenFrame);
}

TEST(Invmat, RefusesADeterminantBelow1EMinus20) {
  Frame inverse = kUnwrittenFrame;
  const double below = std::nextafter(1e-20, 0.0);
  EXPECT_EQ(Invmat(Frame({below, 0, 0}, {0, 1, 0}, {0, 0, 1}), inverse), 0);
  EXPECT_POINT_EQ(inverse, kUnwrittenFrame);
  EXPECT_EQ(Invmat(Frame({1e-20, 0, 0}, {0, 1, 0}, {0, 0, 1}), inverse), 1);
  EXPECT_POINT_EQ(inverse, Frame({1 / 1e-20, 0, 0}, {0, 1, 0}, {0, 0, 1}));
}

TEST(Invmat, GoesOnWithNaN) {
  Frame inverse = kUnwrittenFrame;
  EXPECT_EQ(Invmat(Frame({kNaN, 0, 0}, {0, 1, 0}, {0, 0, 1}), inverse), 1);
  EXPECT_TRUE(std::isnan(inverse.rows[0][0]));
}

TEST(Invmat, MayWriteToTheFrame) {
  Frame frame({1, 2, 3}, {0, 1, 4}, {5, 6, 0});
  EXPECT_EQ(Invmat(frame, frame), 1);
  EXPECT_POINT_EQ(frame, Frame({-24, 18, 5}, {20, -15, -4}, {-5, 4, 1}));
}

TEST(PlacePointToPosition, GivesTheGlobalPositionOfTheMovedPoint) {
  Vec p(15, 27, 6);
  PlacePointToPosition(p, Vec(5, 3, 4), Vec(1, 2, 3), support::Transposed(kTurned));
  EXPECT_POINT_EQ(p, Vec(11, 22, 33));
}

TEST(PlacePointToPosition, TakesThePointAsShiftOrOriginToo) {
  Vec p(10, 15, 5);
  PlacePointToPosition(p, p, Vec(1, 2, 3), support::Transposed(kTurned));
  EXPECT_POINT_EQ(p, Vec(11, 22, 33));
  Vec q(10, 15, 5);
  PlacePointToPosition(q, Vec(10, 15, 5), q, support::Transposed(kTurned));
  EXPECT_POINT_EQ(q, Vec(20, 35, 35));
}

}  // namespace
