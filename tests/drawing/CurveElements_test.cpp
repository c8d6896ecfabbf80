// Deviations are measured here apart from the code under test: from places of the curve itself to
// the elements, and from places of the elements to a fine polygon along the curve.
#include "drawing/CurveElements.h"

#include "CurveSketch.h"
#include "drawing/Contours.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <vector>

namespace drawing {
namespace {

using support::Approximate;
using support::Approximated;
using Kind = CurveFit::Kind;

constexpr double kPi = 3.14159265358979323846;
constexpr double kTolerance = 0.01;

// Chords of the trace and of the fine polygons here are off by far less than this share of the
// tolerance.
constexpr double kMissedShare = 0.004;

// The elements run through from the first to the last, stay within the tolerance, and say how far
// off they are.
void ExpectSound(const Curve& curve, const Approximated& made, double tolerance = kTolerance) {
  ASSERT_FALSE(made.elements.empty());
  for (std::size_t i = 0; i + 1 < made.elements.size(); ++i) {
    EXPECT_EQ(made.elements[i]->GetEndPoint().X, made.elements[i + 1]->GetStartPoint().X);
    EXPECT_EQ(made.elements[i]->GetEndPoint().Y, made.elements[i + 1]->GetStartPoint().Y);
  }
  const double measured = support::FarthestFromElements(curve, made, 1000);
  EXPECT_LE(measured, tolerance);
  EXPECT_LE(measured, made.Stated() + kMissedShare * tolerance);
  EXPECT_LE(support::FarthestFromCurve(curve, made, 1000), (1.0 + kMissedShare) * tolerance);
}

void ExpectClosed(const Approximated& made) {
  EXPECT_EQ(made.elements.back()->GetEndPoint().X, made.elements.front()->GetStartPoint().X);
  EXPECT_EQ(made.elements.back()->GetEndPoint().Y, made.elements.front()->GetStartPoint().Y);
}

TEST(ApproximateCurve, MakesOneCircleOfABezierCircle) {
  const auto curve = support::BezierPieces(support::BezierCircle(20, 30, 5, 0.4));
  const Approximated made = Approximate(*curve, kTolerance);
  ASSERT_EQ(made.elements.size(), 1u);
  const auto& circle = dynamic_cast<GX2DArc&>(*made.elements[0]);
  EXPECT_TRUE(circle.IsCircle());
  EXPECT_FALSE(circle.IsClockwise());
  EXPECT_NEAR(circle.Center.X, 20.0, 1e-9);
  EXPECT_NEAR(circle.Center.Y, 30.0, 1e-9);
  EXPECT_NEAR(circle.Radius(), 5.0, 1e-9);
  // With the middle of each quarter on the circle, x^2 + y^2 is a polynomial of degree 6 whose root
  // is largest near t = 0.211, 1.00027253 times the radius.
  EXPECT_NEAR(made.Stated(), 0.00027253 * 5.0, 0.0000001);
  ExpectSound(*curve, made);
}

TEST(ApproximateCurve, MakesAnExactCircleOfAnEllipseWithEqualAxes) {
  const EllipseCurve curve({1, 2}, {0, 7}, {-7, 0}, 1.0, 1.0 + 2 * kPi);
  const Approximated made = Approximate(curve, kTolerance);
  ASSERT_EQ(made.elements.size(), 1u);
  const auto& circle = dynamic_cast<GX2DArc&>(*made.elements[0]);
  EXPECT_NEAR(circle.Radius(), 7.0, 1e-12);
  EXPECT_NEAR(circle.Center.X, 1.0, 1e-12);
  // Between the samples the trace is a cubic, which is off a little itself.
  EXPECT_LT(made.Stated(), 1e-8);
}

TEST(ApproximateCurve, TakesTheRoundDiameterThatARoughCircleLeavesOpen) {
  // Radius 1.6508, with bumps of 0.001 all round: 3.3 is left open, as is 3.302.
  std::vector<PlaneVector> places;
  for (int i = 0; i <= 24; ++i) {
    const double turn = i * kPi / 12;
    const double radius = 1.6508 + (i % 2 == 0 ? 0.001 : -0.001);
    places.push_back({radius * std::cos(turn), radius * std::sin(turn)});
  }
  FitPoints fit;
  fit.points = places;
  fit.closed = true;
  const auto curve = SplineThrough(fit);
  const Approximated made = Approximate(*curve, kTolerance);
  ASSERT_EQ(made.elements.size(), 1u);
  EXPECT_NEAR(dynamic_cast<GX2DArc&>(*made.elements[0]).Radius(), 1.65, 1e-12);
  ExpectSound(*curve, made);
  // In inches the shortest number near 3.3016 / 25.4 = 0.129984 is 0.13.
  const Approximated inches = Approximate(*curve, kTolerance, 25.4);
  ASSERT_EQ(inches.elements.size(), 1u);
  EXPECT_NEAR(dynamic_cast<GX2DArc&>(*inches.elements[0]).Radius(), 0.065 * 25.4, 1e-12);
}

TEST(ApproximateCurve, MakesTheArcThatABezierArcCameFrom) {
  // A sixth of a circle of radius 8: the handle is 4 / 3 tan(15 degrees).
  const double handle = 8.0 * 4.0 / 3.0 * std::tan(kPi / 12);
  const double c = std::cos(kPi / 3);
  const double s = std::sin(kPi / 3);
  const auto curve = support::BezierPieces(
      {{8, 0}, {8, handle}, {8 * c + handle * s, 8 * s - handle * c}, {8 * c, 8 * s}});
  const Approximated made = Approximate(*curve, kTolerance);
  ASSERT_EQ(made.elements.size(), 1u);
  const auto& arc = dynamic_cast<GX2DArc&>(*made.elements[0]);
  EXPECT_NEAR(arc.Center.X, 0.0, 1e-12);
  EXPECT_NEAR(arc.Center.Y, 0.0, 1e-12);
  EXPECT_FALSE(arc.IsClockwise());
  EXPECT_NEAR(SignedSweep(arc), kPi / 3, 1e-12);
  ExpectSound(*curve, made);
}

TEST(ApproximateCurve, MakesAnArcOverMoreThanHalfATurnClockwise) {
  const EllipseCurve curve({0, 0}, {6, 0}, {0, -6}, 0.0, 5.0);
  const Approximated made = Approximate(curve, kTolerance);
  ASSERT_EQ(made.elements.size(), 1u);
  EXPECT_NEAR(SignedSweep(dynamic_cast<GX2DArc&>(*made.elements[0])), -5.0, 1e-12);
  ExpectSound(curve, made);
}

TEST(ApproximateCurve, MakesOneLineOfAStraightSpline) {
  const auto curve = support::ClampedSpline(3, {{0, 0}, {3, 1}, {15, 5}, {18, 6}, {30, 10}});
  const Approximated made = Approximate(*curve, kTolerance);
  ASSERT_EQ(made.elements.size(), 1u);
  EXPECT_EQ(made.Count(Kind::kLine), 1u);
  EXPECT_EQ(made.elements[0]->GetEndPoint().X, 30.0);
  EXPECT_LT(made.Stated(), 1e-12);
}

TEST(ApproximateCurve, SplitsAtACorner) {
  // Out along x, back along y: the knot between is threefold and the tangent turns.
  const auto curve =
      support::BezierPieces({{0, 0}, {3, 0}, {6, 0}, {9, 0}, {9, 3}, {9, 6}, {9, 9}});
  const Approximated made = Approximate(*curve, kTolerance);
  ASSERT_EQ(made.elements.size(), 2u);
  EXPECT_EQ(made.Count(Kind::kLine), 2u);
  EXPECT_EQ(made.elements[0]->GetEndPoint().X, 9.0);
  EXPECT_EQ(made.elements[0]->GetEndPoint().Y, 0.0);
  ExpectSound(*curve, made);
}

TEST(ApproximateCurve, FindsTheLinesAndArcsOfASlotInOneSpline) {
  // 20 between the centres, radius 5, drawn from the middle of a straight side.
  const double k = 5 * support::kQuarterHandle;
  const auto curve = support::BezierPieces(
      {{0, -5},   {3, -5},      {6, -5},     {10, -5}, {10 + k, -5}, {15, -k},
       {15, 0},   {15, k},      {10 + k, 5}, {10, 5},  {4, 5},       {-4, 5},
       {-10, 5},  {-10 - k, 5}, {-15, k},    {-15, 0}, {-15, -k},    {-10 - k, -5},
       {-10, -5}, {-6, -5},     {-3, -5},    {0, -5}});
  const Approximated made = Approximate(*curve, kTolerance);
  ExpectSound(*curve, made);
  ExpectClosed(made);
  EXPECT_EQ(made.Count(Kind::kLine), 2u);
  EXPECT_EQ(made.Count(Kind::kArc), 2u);
  EXPECT_NEAR(made.Perimeter(), 40 + 10 * kPi, 0.001);
}

TEST(ApproximateCurve, ClosesAnEllipseAndKeepsItsPerimeterAndArea) {
  const EllipseCurve curve({100, 50}, {30, 0}, {0, 12}, 0.0, 2 * kPi);
  const Approximated made = Approximate(curve, kTolerance);
  ExpectSound(curve, made);
  ExpectClosed(made);
  GX2DElmList elements;
  for (const auto& element : made.elements) elements.push_back(element->Clone());
  // Nowhere farther off than the deviation, on either side: the areas differ by less than that
  // times the perimeter.
  const double perimeter = support::EllipsePerimeter(30, 12);
  EXPECT_NEAR(SignedArea(elements), 30 * 12 * kPi, made.Stated() * perimeter);
  // Moved by d along its normals, a convex curve gets longer or shorter by up to 2 pi d.
  EXPECT_NEAR(made.Perimeter(), perimeter, 2 * kPi * made.Stated());
  // The two halves are alike.
  EXPECT_EQ(made.elements.size() % 2, 0u);
  EXPECT_LE(made.elements.size(), 28u);
}

// Lengths of the elements from the longest to the shortest.
std::vector<double> Lengths(const Approximated& made) {
  std::vector<double> lengths;
  for (const auto& element : made.elements) lengths.push_back(ElementLength(*element));
  std::sort(lengths.begin(), lengths.end());
  return lengths;
}

// 0.05 mm count as equal for a segment and 0.001 mm for the whole length of a cut-out; the rows of
// samples that the points for the library come from differ a little.
void ExpectSameLengths(const std::vector<double>& a, const std::vector<double>& b) {
  ASSERT_EQ(a.size(), b.size());
  for (std::size_t i = 0; i < a.size(); ++i) EXPECT_NEAR(a[i], b[i], 0.001);
  EXPECT_NEAR(std::accumulate(a.begin(), a.end(), 0.0), std::accumulate(b.begin(), b.end(), 0.0),
              0.0001);
}

TEST(ApproximateCurve, MakesTheSameElementsOfATurnedEllipseFromAnotherStartTheOtherWayRound) {
  const std::vector<double> plain =
      Lengths(Approximate(EllipseCurve({0, 0}, {30, 0}, {0, 12}, 0.0, 2 * kPi), kTolerance));
  for (const double turn : {0.3, 1.1, 2.5}) {
    SCOPED_TRACE(turn);
    const PlaneVector major{30 * std::cos(turn), 30 * std::sin(turn)};
    const PlaneVector minor{-12 * std::sin(turn), 12 * std::cos(turn)};
    const PlaneVector other{-minor.x, -minor.y};
    const EllipseCurve turned({500, -70}, major, minor, turn, turn + 2 * kPi);
    const EllipseCurve back({500, -70}, major, other, turn, turn + 2 * kPi);
    ExpectSameLengths(Lengths(Approximate(turned, kTolerance)), plain);
    ExpectSameLengths(Lengths(Approximate(back, kTolerance)), plain);
  }
}

// A closed cubic spline steered by points around the origin, turned, begun at another of them and
// walked the other way round where `step` is -1.
Approximated Ring(const std::vector<PlaneVector>& points, std::size_t first, int step,
                  double turn) {
  const auto count = static_cast<int>(points.size());
  std::vector<PlaneVector> places;
  for (int i = 0; i < count + 3; ++i) {
    const int index = (static_cast<int>(first) + step * i + 2 * count) % count;
    const PlaneVector& p = points[static_cast<std::size_t>(index)];
    places.push_back(
        {std::cos(turn) * p.x - std::sin(turn) * p.y, std::sin(turn) * p.x + std::cos(turn) * p.y});
  }
  const SplineCurve curve(3, support::EvenKnots(3, places.size()), support::Unweighted(places));
  return Approximate(curve, kTolerance);
}

TEST(ApproximateCurve, MakesTheSameElementsOfARingHoweverItIsDrawn) {
  support::Random random;
  for (int round = 0; round < 10; ++round) {
    SCOPED_TRACE(round);
    std::vector<PlaneVector> points;
    const int count = random.Int(5, 12);
    for (int i = 0; i < count; ++i) {
      const double radius = random.Between(20, 80);
      const double angle = 2 * kPi * i / count;
      points.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    const std::vector<double> plain = Lengths(Ring(points, 0, 1, 0.0));
    ExpectSameLengths(Lengths(Ring(points, 2, 1, 0.7)), plain);
    ExpectSameLengths(Lengths(Ring(points, 3, -1, 2.1)), plain);
  }
}

TEST(ApproximateCurve, FollowsAnySplineWithinTheTolerance) {
  support::Random random;
  for (int round = 0; round < 30; ++round) {
    SCOPED_TRACE(round);
    const auto degree = static_cast<std::size_t>(random.Int(2, 6));
    const std::size_t count = degree + static_cast<std::size_t>(random.Int(1, 8));
    std::vector<ControlPoint> points;
    for (std::size_t i = 0; i < count; ++i) {
      points.push_back({{random.Between(0, 100), random.Between(0, 100)},
                        round % 2 == 0 ? 1.0 : random.Between(0.3, 3.0)});
    }
    const SplineCurve curve(degree, support::ClampedKnots(degree, count), points);
    const double tolerance = round % 3 == 0 ? 0.1 : kTolerance;
    const Approximated made = Approximate(curve, tolerance);
    ExpectSound(curve, made, tolerance);
    // An arc in place of each 0.01 mm would be no approximation.
    EXPECT_LT(made.elements.size(), 60 * count);
  }
}

TEST(ApproximateCurve, NeedsFewerElementsForACoarserTolerance) {
  const auto curve = support::ClampedSpline(3, {{0, 0}, {10, 40}, {30, -40}, {60, 10}, {61, 30}});
  const std::size_t fine = Approximate(*curve, 0.001).elements.size();
  const std::size_t middle = Approximate(*curve, 0.01).elements.size();
  const std::size_t coarse = Approximate(*curve, 0.1).elements.size();
  EXPECT_GT(fine, middle);
  EXPECT_GT(middle, coarse);
}

TEST(ApproximateCurve, FollowsACuspALoopAndAStraightMiddle) {
  for (const std::vector<PlaneVector>& places :
       std::vector<std::vector<PlaneVector>>{{{0, 0}, {10, 10}, {0, 10}, {10, 0}},
                                             {{0, 0}, {30, 10}, {-20, 10}, {10, 0}},
                                             {{0, 0},
                                              {5, 5},
                                              {9, 9},
                                              {10, 10},
                                              {20, 20},
                                              {30, 30},
                                              {40, 40},
                                              {41, 41},
                                              {50, 45},
                                              {50, 60}}}) {
    const auto curve = support::BezierPieces(places);
    ExpectSound(*curve, Approximate(*curve, kTolerance));
  }
}

TEST(ApproximateCurve, ClosesExactlyWhatEndsWithinATenthOfAMicron) {
  const auto curve = support::BezierPieces(
      {{0, 0}, {0, -9}, {9, -9}, {20, 0}, {31, 9}, {3, 19}, {0.00006, -0.00007}});
  const Approximated made = Approximate(*curve, kTolerance);
  ExpectSound(*curve, made);
  ExpectClosed(made);
}

TEST(ApproximateCurve, KeepsATinyCurve) {
  const EllipseCurve curve({5, 5}, {0.02, 0}, {0, 0.01}, 0.0, 2 * kPi);
  const Approximated made = Approximate(curve, kTolerance);
  ExpectSound(curve, made);
}

}  // namespace
}  // namespace drawing
