#include "drawing/CurveSplits.h"

#include "CurveSketch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace drawing {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kTolerance = 0.01;

CurveTrace TraceOf(const Curve& curve) {
  CurveTrace trace;
  EXPECT_EQ(TraceCurve(curve, kTolerance / 25, 20000, trace), "");
  return trace;
}

std::vector<Split> SplitsOf(const CurveTrace& trace) {
  return FindSplits(trace, {0.0, trace.Length()}, kTolerance);
}

TEST(FindCorners, TellsCornersFromSmoothJoints) {
  // Two straight pieces in one line, then one at a right angle.
  const CurveTrace trace = TraceOf(*support::BezierPieces(
      {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}, {6, 0}, {6, 1}, {6, 2}, {6, 3}}));
  const std::vector<double> corners = FindCorners(trace);
  ASSERT_EQ(corners.size(), 1u);
  EXPECT_NEAR(corners[0], 6.0, 1e-12);
}

TEST(FindSplits, FindsTheEndsOfTheAxesOfAnEllipse) {
  // From 1 before the end of the minor axis to 1 behind that of the major one.
  const CurveTrace trace = TraceOf(EllipseCurve({0, 0}, {20, 0}, {0, 10}, kPi / 2 - 1, kPi + 1));
  const std::vector<Split> splits = SplitsOf(trace);
  ASSERT_EQ(splits.size(), 2u);
  // Curvature b / a^2 at the end of the minor axis, a / b^2 at that of the major one.
  EXPECT_NEAR(splits[0].curvature, 10.0 / 400, 1e-9);
  EXPECT_NEAR(splits[1].curvature, 20.0 / 100, 1e-9);
  EXPECT_NEAR(trace.PlaceAt(splits[0].at).y, 10.0, 1e-9);
  EXPECT_NEAR(trace.PlaceAt(splits[1].at).x, -20.0, 1e-9);
  EXPECT_FALSE(splits[0].jumps);
}

TEST(FindSplits, FindsTheJumpFromALineToAnArc) {
  const double k = 5 * support::kQuarterHandle;
  const CurveTrace trace = TraceOf(
      *support::BezierPieces({{-9, 0}, {-6, 0}, {-3, 0}, {0, 0}, {k, 0}, {5, 5 - k}, {5, 5}}));
  const std::vector<Split> splits = SplitsOf(trace);
  ASSERT_GE(splits.size(), 1u);
  EXPECT_TRUE(splits[0].jumps);
  EXPECT_NEAR(splits[0].at, 9.0, 1e-9);
}

TEST(FindSplits, FindsNothingInAnArc) {
  EXPECT_TRUE(SplitsOf(TraceOf(EllipseCurve({0, 0}, {8, 0}, {0, 8}, 0.0, 3.0))).empty());
}

TEST(FindSplits, IsTheSameFromTheOtherEnd) {
  CurveTrace trace = TraceOf(
      *support::ClampedSpline(3, {{0, 0}, {10, 30}, {30, 30}, {40, -20}, {70, 5}, {80, 60}}));
  const std::vector<Split> forth = SplitsOf(trace);
  trace.Reverse();
  const std::vector<Split> back = SplitsOf(trace);
  ASSERT_EQ(forth.size(), back.size());
  ASSERT_FALSE(forth.empty());
  for (std::size_t i = 0; i < forth.size(); ++i) {
    EXPECT_NEAR(forth[i].at, trace.Length() - back[back.size() - 1 - i].at, 1e-9);
  }
}

TEST(BestStart, IsACornerBeforeAllElse) {
  // A drop: round at the left, its ends meet at a right angle at (10, 0).
  CurveTrace trace =
      TraceOf(*support::BezierPieces({{0, 0}, {0, -8}, {6, -4}, {10, 0}, {6, 4}, {0, 8}, {0, 0}}));
  trace.CloseExactly();
  const Split start = BestStart(trace, kTolerance);
  EXPECT_NEAR(trace.PlaceAt(start.at).x, 10.0, 1e-9);
  EXPECT_FALSE(BeginsAtCorner(trace));
  trace.BeginAt(start.at);
  EXPECT_TRUE(BeginsAtCorner(trace));
}

TEST(BestStart, IsTheEndOfTheLongAxisOfAnEllipse) {
  CurveTrace trace = TraceOf(EllipseCurve({0, 0}, {20, 0}, {0, 10}, 1.0, 1.0 + 2 * kPi));
  trace.CloseExactly();
  EXPECT_NEAR(std::fabs(trace.PlaceAt(BestStart(trace, kTolerance).at).x), 20.0, 1e-9);
}

}  // namespace
}  // namespace drawing
