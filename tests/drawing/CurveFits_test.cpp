#include "drawing/CurveFits.h"

#include "CurveSketch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace drawing {
namespace {

using Kind = CurveFit::Kind;

constexpr double kPi = 3.14159265358979323846;
constexpr double kLimit = 0.005;

CurveTrace TraceOf(const Curve& curve) {
  CurveTrace trace;
  EXPECT_EQ(TraceCurve(curve, 0.0004, 20000, trace), "");
  return trace;
}

CurveTrace Circle(double radius, double from, double to) {
  return TraceOf(EllipseCurve({0, 0}, {radius, 0}, {0, radius}, from, to));
}

Stretch Whole(const CurveTrace& trace) { return {0.0, trace.Length()}; }

TEST(FitLine, MeasuresTheHeightOverTheChord) {
  // The height of an arc of radius 10 over 0.1 radians is 10 (1 - cos 0.05).
  const CurveTrace trace = Circle(10, 0.0, 0.1);
  const double height = 10 * (1 - std::cos(0.05));
  const CurveFit fit = FitLine(trace, Whole(trace), 1.01 * height);
  EXPECT_EQ(fit.kind, Kind::kLine);
  EXPECT_NEAR(fit.deviation, height, 1e-5);
  EXPECT_FALSE(FitLine(trace, Whole(trace), 0.99 * height).Found());
}

TEST(FitArc, FindsArcsOfAnySweepAndBothSenses) {
  for (const double sweep : {0.05, 1.0, kPi, 4.0, 6.0}) {
    SCOPED_TRACE(sweep);
    CurveTrace trace = Circle(10, 0.5, 0.5 + sweep);
    CurveFit fit = FitArc(trace, Whole(trace), kLimit);
    ASSERT_EQ(fit.kind, Kind::kArc);
    EXPECT_NEAR(fit.center.x, 0.0, 1e-6);
    EXPECT_NEAR(fit.center.y, 0.0, 1e-6);
    EXPECT_FALSE(fit.clockwise);
    const auto arc = MakeElement(trace, Whole(trace), fit);
    EXPECT_NEAR(SignedSweep(dynamic_cast<GX2DArc&>(*arc)), sweep, 1e-6);
    trace.Reverse();
    fit = FitArc(trace, Whole(trace), kLimit);
    EXPECT_TRUE(fit.clockwise);
    const auto back = MakeElement(trace, Whole(trace), fit);
    EXPECT_NEAR(SignedSweep(dynamic_cast<GX2DArc&>(*back)), -sweep, 1e-6);
  }
}

TEST(FitArc, RefusesWhatIsNoArc) {
  const CurveTrace ellipse = TraceOf(EllipseCurve({0, 0}, {20, 0}, {0, 10}, 0.0, 2.0));
  EXPECT_FALSE(FitArc(ellipse, Whole(ellipse), kLimit).Found());
  const CurveTrace snake = TraceOf(*support::BezierPieces({{0, 0}, {10, 20}, {20, -20}, {30, 0}}));
  EXPECT_FALSE(FitArc(snake, Whole(snake), kLimit).Found());
}

TEST(FitArcAbout, TakesTheNearestCentreOnTheBisector) {
  const CurveTrace trace = Circle(10, 0.0, 2.0);
  // Off the bisector by 1: its foot is the true centre.
  const CurveFit fit = FitArcAbout(trace, Whole(trace), {-std::sin(1.0), std::cos(1.0)}, kLimit);
  ASSERT_TRUE(fit.Found());
  EXPECT_NEAR(fit.center.x, 0.0, 1e-9);
  EXPECT_NEAR(fit.center.y, 0.0, 1e-9);
  EXPECT_FALSE(FitArcAbout(trace, Whole(trace), {1, 1}, kLimit).Found());
}

TEST(FitSingle, PrefersTheLineWhereTheCurveIsStraight) {
  // 0.00005 high over its chord of 10: a radius of 250 m.
  const CurveTrace flat =
      TraceOf(*support::BezierPieces({{0, 0}, {3, 0.00006}, {7, 0.00006}, {10, 0}}));
  EXPECT_EQ(FitSingle(flat, Whole(flat), kLimit).kind, Kind::kLine);
  // 0.0025 high, as the arc of radius 5000 that it is: the arc is nearer.
  const CurveTrace arc = Circle(5000, 0.0, 0.002);
  EXPECT_EQ(FitSingle(arc, Whole(arc), kLimit).kind, Kind::kArc);
}

TEST(FitCircle, AsksForOneWholeTurn) {
  // Twice round: an ellipse with equal axes in the form of eight Bezier pieces.
  std::vector<PlaneVector> twice = support::BezierCircle(0, 0, 5);
  const std::vector<PlaneVector> again = twice;
  twice.insert(twice.end(), again.begin() + 1, again.end());
  CurveTrace trace = TraceOf(*support::BezierPieces(twice));
  trace.CloseExactly();
  EXPECT_FALSE(FitCircle(trace, kLimit, 1.0).Found());
  CurveTrace once = TraceOf(*support::BezierPieces(again));
  once.CloseExactly();
  EXPECT_EQ(FitCircle(once, kLimit, 1.0).kind, Kind::kCircle);
}

TEST(FitCircle, KeepsTheDiameterOfAnExactCircle) {
  CurveTrace trace = Circle(3.1234567, 0.0, 2 * kPi);
  trace.CloseExactly();
  const CurveFit fit = FitCircle(trace, kLimit, 1.0);
  ASSERT_TRUE(fit.Found());
  EXPECT_NEAR(fit.radius, 3.1234567, 1e-12);
}

TEST(MeasureDeviation, LooksBetweenTheSamplesToo) {
  // Three samples of a circle of radius 10 and the chord between its ends. The sample in the
  // middle, beside the top, stands 10 (cos 0.2 - cos 0.5) = 1.02 over it.
  CurveTrace trace;
  for (const double turn : {0.0, 0.7, 1.0}) {
    TraceSample sample;
    sample.place = {10 * std::cos(turn), 10 * std::sin(turn)};
    sample.in = {-std::sin(turn), std::cos(turn)};
    sample.out = sample.in;
    trace.Add(sample);
  }
  const CurveFit fit = FitLine(trace, Whole(trace), 10.0);
  const double height = 10 * (1 - std::cos(0.5));
  // Steps this wide show in the cubics between the samples.
  EXPECT_NEAR(MeasureDeviation(trace, Whole(trace), fit), height, 0.02);
}

}  // namespace
}  // namespace drawing
