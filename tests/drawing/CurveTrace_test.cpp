#include "drawing/CurveTrace.h"

#include "CurveSketch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>

namespace drawing {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kChord = 0.0004;
constexpr std::size_t kMost = 20000;

CurveTrace TraceOf(const Curve& curve, double chord = kChord) {
  CurveTrace trace;
  EXPECT_EQ(TraceCurve(curve, chord, kMost, trace), "");
  return trace;
}

TEST(TraceCurve, MeasuresTheLengthOfAnEllipse) {
  const CurveTrace trace = TraceOf(EllipseCurve({3, 4}, {30, 0}, {0, 12}, 0.0, 2 * kPi));
  // A chord of height c over a curve is shorter by 8 c^2 / (3 s) of its own length s; with c below
  // 0.0004 and s above 0.1 that is a share below 5e-6.
  const double perimeter = support::EllipsePerimeter(30, 12);
  EXPECT_LT(trace.Length(), perimeter);
  EXPECT_NEAR(trace.Length(), perimeter, 5e-6 * perimeter);
  EXPECT_TRUE(trace.IsClosed());
}

TEST(TraceCurve, StaysWithinTheChordOfEveryStep) {
  const auto curve = support::ClampedSpline(3, {{0, 0}, {10, 40}, {20, -40}, {30, 0}, {31, 1}});
  const CurveTrace trace = TraceOf(*curve);
  for (const GX2DPoint& p : support::PlacesAlong(*curve, 5000)) {
    double nearest = 1e300;
    for (std::size_t i = 0; i + 1 < trace.Samples().size(); ++i) {
      const PlaneVector& a = trace.Samples()[i].place;
      const PlaneVector& b = trace.Samples()[i + 1].place;
      GX2DLine chord(a.x, a.y, b.x, b.y);
      nearest = std::min(nearest, DistanceToElement(p, chord));
    }
    EXPECT_LE(nearest, kChord);
  }
}

TEST(TraceCurve, KnowsTheCurvatureOfACircle) {
  const CurveTrace left = TraceOf(EllipseCurve({0, 0}, {8, 0}, {0, 8}, 0.0, 2.0));
  const CurveTrace right = TraceOf(EllipseCurve({0, 0}, {8, 0}, {0, -8}, 0.0, 2.0));
  EXPECT_NEAR(left.Samples()[5].curvatureOut, 0.125, 1e-12);
  EXPECT_NEAR(right.Samples()[5].curvatureOut, -0.125, 1e-12);
}

TEST(TraceCurve, TakesTheDirectionOfTheStepWhereTheDerivativeMisleads) {
  // A weight of 1e9 in the middle: nearly all of the parameter stands at (5, 5), and the two
  // straight ways to it and from it are passed in next to none.
  const SplineCurve curve(2, {0, 0, 0, 1, 1, 1}, {{{0, 0}, 1.0}, {{5, 5}, 1e9}, {{10, 0}, 1.0}});
  const CurveTrace trace = TraceOf(curve);
  EXPECT_NEAR(trace.Length(), 10 * std::sqrt(2.0), 1e-3);
  for (int i = 0; i <= 400; ++i) {
    const PlaneVector p = trace.PlaceAt(trace.Length() * i / 400);
    EXPECT_NEAR(p.y, p.x < 5.0 ? p.x : 10.0 - p.x, 0.002);
  }
}

TEST(TraceCurve, RefusesACurveSoFarOutThatRoundingCounts) {
  CurveTrace trace;
  const EllipseCurve far({1e13, 0}, {10, 0}, {0, 5}, 0.0, 2.0);
  EXPECT_EQ(TraceCurve(far, kChord, kMost, trace),
            "it lies too far from the origin to be followed");
}

TEST(TraceCurve, FindsADirectionWhereTheCurveStandsStill) {
  // Two equal control points at the start: the first derivative is zero there.
  const auto curve = support::BezierPieces({{0, 0}, {0, 0}, {5, 5}, {10, 0}});
  const TraceSample start = TraceOf(*curve).Samples().front();
  // It sets off towards the next control point.
  EXPECT_NEAR(start.out.x, std::sqrt(0.5), 1e-3);
  EXPECT_NEAR(start.out.y, std::sqrt(0.5), 1e-3);
}

TEST(TraceCurve, SeesBothDirectionsAtACusp) {
  // x' = 30 (1 - 2 t)^2 and y' = 30 (1 - 2 t): the curve comes from below, stands still at t = 1/2
  // and goes down again.
  const CurveTrace trace = TraceOf(*support::BezierPieces({{0, 0}, {10, 10}, {0, 10}, {10, 0}}));
  bool turnsBack = false;
  for (const TraceSample& s : trace.Samples()) {
    const double cosine = s.in.x * s.out.x + s.in.y * s.out.y;
    turnsBack = turnsBack || cosine < -0.9;
  }
  EXPECT_TRUE(turnsBack);
}

TEST(TraceCurve, RefusesACurveThatTakesTooManySamples) {
  CurveTrace trace;
  const EllipseCurve huge({0, 0}, {1e9, 0}, {0, 5e8}, 0.0, 2 * kPi);
  EXPECT_EQ(TraceCurve(huge, kChord, kMost, trace), "it cannot be followed by 20000 points");
  EXPECT_TRUE(trace.Samples().empty());
}

TEST(TraceCurve, RefusesFiguresThatAreTooLarge) {
  CurveTrace trace;
  const double large = std::numeric_limits<double>::max();
  const auto curve = support::BezierPieces({{-large, 0}, {large, 0}, {-large, 9}, {large, 0}});
  EXPECT_NE(TraceCurve(*curve, kChord, kMost, trace), "");
}

TEST(TraceCurve, RefusesACurveThatFallsApart) {
  // A knot inside four times over: one piece ends at (3, 0), the next begins at (5, 0).
  const SplineCurve curve(
      3, {0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2},
      support::Unweighted({{0, 0}, {1, 0}, {2, 0}, {3, 0}, {5, 0}, {6, 0}, {7, 0}, {8, 0}}));
  CurveTrace trace;
  EXPECT_EQ(TraceCurve(curve, kChord, kMost, trace), "it falls apart at a knot");
}

TEST(TraceCurve, GivesASingleSampleForACurveWithoutExtent) {
  CurveTrace trace;
  const auto curve = support::BezierPieces({{2, 3}, {2, 3}, {2, 3}, {2, 3}});
  EXPECT_EQ(TraceCurve(*curve, kChord, kMost, trace), "");
  EXPECT_LT(trace.Samples().size(), 2u);
}

TEST(CurveTrace, PlacesBetweenSamplesAreNearerThanTheChord) {
  const EllipseCurve curve({0, 0}, {10, 0}, {0, 10}, 0.0, 3.0);
  const CurveTrace trace = TraceOf(curve, 0.01);
  const double step = trace.Length() / 1000.0;
  for (int i = 0; i <= 1000; ++i) {
    const PlaneVector p = trace.PlaceAt(i * step);
    EXPECT_NEAR(std::hypot(p.x, p.y), 10.0, 0.0001);
  }
}

TEST(CurveTrace, ReversedHasTheSameLengthAndOppositeCurvature) {
  CurveTrace trace = TraceOf(EllipseCurve({0, 0}, {10, 0}, {0, 4}, 0.3, 2.0));
  const CurveTrace before = trace;
  trace.Reverse();
  EXPECT_EQ(trace.Length(), before.Length());
  EXPECT_EQ(trace.Samples().front().place.x, before.Samples().back().place.x);
  EXPECT_EQ(trace.Samples().front().out.x, -before.Samples().back().in.x);
  EXPECT_EQ(trace.Samples().front().curvatureOut, -before.Samples().back().curvatureIn);
  EXPECT_EQ(trace.Samples().front().length, 0.0);
}

TEST(CurveTrace, AppendedHasOneSampleAtTheJoint) {
  CurveTrace trace = TraceOf(*support::BezierPieces({{0, 0}, {1, 0}, {2, 0}, {3, 0}}));
  const std::size_t count = trace.Samples().size();
  const CurveTrace next = TraceOf(*support::BezierPieces({{3, 0}, {3, 1}, {3, 2}, {3, 3}}));
  trace.Append(next);
  ASSERT_EQ(trace.Samples().size(), count + next.Samples().size() - 1);
  const TraceSample& joint = trace.Samples()[count - 1];
  EXPECT_TRUE(joint.isBreak);
  EXPECT_EQ(joint.in.x, 1.0);
  EXPECT_EQ(joint.out.y, 1.0);
  EXPECT_NEAR(trace.Length(), 6.0, 1e-12);
}

TEST(CurveTrace, ClosedBeginsElsewhereWithTheSameLength) {
  CurveTrace trace = TraceOf(EllipseCurve({0, 0}, {10, 0}, {0, 4}, 0.0, 2 * kPi));
  trace.CloseExactly();
  const CurveTrace before = trace;
  const TraceSample& sample = before.Samples()[17];
  trace.BeginAt(sample.length);
  EXPECT_EQ(trace.Samples().size(), before.Samples().size());
  EXPECT_EQ(trace.Samples().front().place.x, sample.place.x);
  EXPECT_EQ(trace.Samples().back().place.x, sample.place.x);
  EXPECT_EQ(trace.PlaceAt(before.Length() - sample.length).x, before.Samples()[0].place.x);
  EXPECT_NEAR(trace.Length(), before.Length(), 1e-12);
}

TEST(CurveTrace, ClosedBeginsBetweenSamplesToo) {
  CurveTrace trace = TraceOf(EllipseCurve({0, 0}, {10, 0}, {0, 10}, 0.0, 2 * kPi));
  trace.CloseExactly();
  const CurveTrace before = trace;
  trace.BeginAt(12.34567);
  EXPECT_EQ(trace.Samples().size(), before.Samples().size() + 1);
  EXPECT_EQ(trace.Samples().front().place.x, before.PlaceAt(12.34567).x);
  EXPECT_NEAR(trace.Samples().front().curvatureOut, 0.1, 1e-9);
  const PlaneVector p = trace.PlaceAt(5.0);
  const PlaneVector q = before.PlaceAt(17.34567);
  EXPECT_NEAR(p.x, q.x, 1e-9);
  EXPECT_NEAR(p.y, q.y, 1e-9);
}

}  // namespace
}  // namespace drawing
