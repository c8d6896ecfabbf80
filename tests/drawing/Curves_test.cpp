// Expected places come from closed forms and from the definition of the basis functions, which is
// another road than the triangle of the code.
#include "drawing/Curves.h"

#include "CurveSketch.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace drawing {
namespace {

constexpr double kPi = 3.14159265358979323846;

// The recursion of Cox and de Boor for one basis function.
double Basis(const std::vector<double>& knots, std::size_t i, std::size_t degree, double t) {
  if (degree == 0) return knots[i] <= t && t < knots[i + 1] ? 1.0 : 0.0;
  double sum = 0.0;
  const double left = knots[i + degree] - knots[i];
  const double right = knots[i + degree + 1] - knots[i + 1];
  if (left > 0.0) sum += (t - knots[i]) / left * Basis(knots, i, degree - 1, t);
  if (right > 0.0) sum += (knots[i + degree + 1] - t) / right * Basis(knots, i + 1, degree - 1, t);
  return sum;
}

PlaneVector ByDefinition(const std::vector<double>& knots, const std::vector<ControlPoint>& points,
                         std::size_t degree, double t) {
  PlaneVector sum;
  double weight = 0.0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const double share = points[i].weight * Basis(knots, i, degree, t);
    sum.x += share * points[i].place.x;
    sum.y += share * points[i].place.y;
    weight += share;
  }
  return {sum.x / weight, sum.y / weight};
}

std::vector<ControlPoint> RandomPoints(support::Random& random, std::size_t count, bool weighted) {
  std::vector<ControlPoint> points;
  for (std::size_t i = 0; i < count; ++i) {
    points.push_back({{random.Between(-50, 50), random.Between(-50, 50)},
                      weighted ? random.Between(0.2, 5.0) : 1.0});
  }
  return points;
}

void ExpectLikeDefinition(const std::vector<double>& knots, const std::vector<ControlPoint>& points,
                          std::size_t degree) {
  const SplineCurve curve(degree, knots, points);
  const std::vector<double>& breaks = curve.Breaks();
  for (std::size_t piece = 0; piece + 1 < breaks.size(); ++piece) {
    for (const double share : {0.0, 0.1, 0.5, 0.9}) {
      const double t = breaks[piece] + share * (breaks[piece + 1] - breaks[piece]);
      const PlaneVector expected = ByDefinition(knots, points, degree, t);
      const PlaneVector place = curve.At(piece, t).place;
      // Coordinates up to 50; both ways round some dozens of times.
      EXPECT_NEAR(place.x, expected.x, 1e-11);
      EXPECT_NEAR(place.y, expected.y, 1e-11);
    }
  }
}

TEST(SplineCurve, FollowsTheBasisFunctionsOnClampedKnots) {
  support::Random random;
  for (std::size_t degree = 1; degree <= 5; ++degree) {
    SCOPED_TRACE(degree);
    const auto points = RandomPoints(random, degree + 6, false);
    ExpectLikeDefinition(support::ClampedKnots(degree, points.size()), points, degree);
  }
}

TEST(SplineCurve, FollowsTheBasisFunctionsOnUnclampedKnots) {
  support::Random random;
  for (std::size_t degree = 1; degree <= 5; ++degree) {
    SCOPED_TRACE(degree);
    const auto points = RandomPoints(random, degree + 4, false);
    ExpectLikeDefinition(support::EvenKnots(degree, points.size()), points, degree);
  }
}

TEST(SplineCurve, FollowsTheBasisFunctionsWithWeightsAndUnevenKnots) {
  support::Random random;
  for (std::size_t degree = 1; degree <= 5; ++degree) {
    SCOPED_TRACE(degree);
    const auto points = RandomPoints(random, degree + 6, true);
    std::vector<double> knots = support::ClampedKnots(degree, points.size());
    for (std::size_t i = degree + 1; i < points.size(); ++i) knots[i] += random.Between(-0.4, 0.4);
    ExpectLikeDefinition(knots, points, degree);
  }
}

TEST(SplineCurve, InBezierFormIsThePolynomialWithItsDerivatives) {
  // B(t) = (1-t)^3 p + 3 (1-t)^2 t q + 3 (1-t) t^2 r + t^3 s in powers of t: with these points
  // x = 9 t - 9 t^2 + 10 t^3 and y = 12 t - 30 t^2 + 18 t^3.
  const auto curve = support::BezierPieces({{0, 0}, {3, 4}, {3, -2}, {10, 0}});
  ASSERT_EQ(curve->Breaks().size(), 2u);
  for (const double t : {0.0, 0.25, 0.5, 0.8, 1.0}) {
    const CurvePoint p = curve->At(0, t);
    EXPECT_NEAR(p.place.x, 9 * t - 9 * t * t + 10 * t * t * t, 1e-13);
    EXPECT_NEAR(p.place.y, 12 * t - 30 * t * t + 18 * t * t * t, 1e-13);
    EXPECT_NEAR(p.first.x, 9 - 18 * t + 30 * t * t, 1e-13);
    EXPECT_NEAR(p.first.y, 12 - 60 * t + 54 * t * t, 1e-13);
    EXPECT_NEAR(p.second.x, -18 + 60 * t, 1e-12);
    EXPECT_NEAR(p.second.y, -60 + 108 * t, 1e-12);
  }
}

TEST(SplineCurve, HasDerivativesLikeDifferencesOfPlaces) {
  support::Random random;
  for (std::size_t degree = 1; degree <= 5; ++degree) {
    const auto points = RandomPoints(random, degree + 4, true);
    const SplineCurve curve(degree, support::ClampedKnots(degree, points.size()), points);
    constexpr double kStep = 1e-4;
    const double t = 1.5;
    const CurvePoint p = curve.At(1, t);
    const PlaneVector before = curve.At(1, t - kStep).place;
    const PlaneVector behind = curve.At(1, t + kStep).place;
    // Central differences are off by the square of the step and by rounding over the step
    // (squared).
    EXPECT_NEAR(p.first.x, (behind.x - before.x) / (2 * kStep), 1e-3);
    EXPECT_NEAR(p.first.y, (behind.y - before.y) / (2 * kStep), 1e-3);
    EXPECT_NEAR(p.second.x, (behind.x - 2 * p.place.x + before.x) / (kStep * kStep), 1e-2);
    EXPECT_NEAR(p.second.y, (behind.y - 2 * p.place.y + before.y) / (kStep * kStep), 1e-2);
  }
}

TEST(SplineCurve, RationalOfDegreeTwoIsAQuarterCircleExactly) {
  const double half = std::sqrt(0.5);
  const SplineCurve curve(2, {0, 0, 0, 1, 1, 1}, {{{5, 0}, 1.0}, {{5, 5}, half}, {{0, 5}, 1.0}});
  for (int i = 0; i <= 20; ++i) {
    const CurvePoint p = curve.At(0, i / 20.0);
    EXPECT_NEAR(std::hypot(p.place.x, p.place.y), 5.0, 1e-14 * 5.0);
    // The tangent of a circle is square to the radius.
    EXPECT_NEAR(p.place.x * p.first.x + p.place.y * p.first.y, 0.0, 1e-13 * 50.0);
  }
}

TEST(SplineCurve, TakesOnlyTheRatiosOfWeights) {
  const auto with = [](double w) {
    return SplineCurve(2, {0, 0, 0, 1, 1, 1}, {{{5, 0}, w}, {{5, 5}, 3 * w}, {{0, 5}, w}})
        .At(0, 0.3)
        .place;
  };
  EXPECT_NEAR(with(1.0).x, with(1e200).x, 1e-14);
  EXPECT_NEAR(with(1.0).y, with(1e-200).y, 1e-14);
}

TEST(SplineCurve, PeriodicClosesSmoothly) {
  // Five points, the first three again, even knots: degree 3 closes with two derivatives.
  const std::vector<PlaneVector> places = {{0, 0},  {9, -2}, {12, 6}, {5, 11},
                                           {-3, 6}, {0, 0},  {9, -2}, {12, 6}};
  const SplineCurve curve(3, support::EvenKnots(3, places.size()), support::Unweighted(places));
  ASSERT_EQ(curve.Breaks().size(), 6u);
  const CurvePoint start = curve.At(0, 3.0);
  const CurvePoint end = curve.At(4, 8.0);
  EXPECT_NEAR(start.place.x, end.place.x, 1e-13);
  EXPECT_NEAR(start.place.y, end.place.y, 1e-13);
  EXPECT_NEAR(start.first.x, end.first.x, 1e-13);
  EXPECT_NEAR(start.second.y, end.second.y, 1e-13);
  // Of even cubic splines a joint is (p + 4 q + r) / 6.
  EXPECT_NEAR(start.place.x, (0 + 4 * 9 + 12) / 6.0, 1e-13);
}

TEST(SplineCurve, HasTwoDirectionsAtAKnotOfFullMultiplicity) {
  const auto curve =
      support::BezierPieces({{0, 0}, {1, 0}, {2, 0}, {3, 0}, {3, 1}, {3, 2}, {3, 3}});
  ASSERT_EQ(curve->Breaks().size(), 3u);
  EXPECT_GT(curve->At(0, 1.0).first.x, 1.0);
  EXPECT_NEAR(curve->At(0, 1.0).first.y, 0.0, 1e-14);
  EXPECT_NEAR(curve->At(1, 1.0).first.x, 0.0, 1e-14);
  EXPECT_GT(curve->At(1, 1.0).first.y, 1.0);
}

TEST(EllipseCurve, BeginsAPieceAtEveryEndOfAnAxis) {
  const EllipseCurve part({0, 0}, {10, 0}, {0, 4}, 0.5, 4.0);
  ASSERT_EQ(part.Breaks().size(), 4u);
  EXPECT_EQ(part.Breaks()[0], 0.5);
  EXPECT_NEAR(part.Breaks()[1], kPi / 2, 1e-15);
  EXPECT_NEAR(part.Breaks()[2], kPi, 1e-15);
  EXPECT_EQ(part.Breaks()[3], 4.0);
  EXPECT_EQ(EllipseCurve({0, 0}, {10, 0}, {0, 4}, 0.0, 2 * kPi).Breaks().size(), 5u);
}

TEST(EllipseCurve, FulfilsItsEquation) {
  // Half axes 10 along (0.6, 0.8) and 4 to the left of it.
  const EllipseCurve curve({3, -2}, {6, 8}, {-3.2, 2.4}, 0.0, 2 * kPi);
  for (int i = 0; i < 40; ++i) {
    const CurvePoint p = curve.At(0, i * 0.15);
    const double x = (p.place.x - 3) * 0.6 + (p.place.y + 2) * 0.8;
    const double y = -(p.place.x - 3) * 0.8 + (p.place.y + 2) * 0.6;
    EXPECT_NEAR(x * x / 100 + y * y / 16, 1.0, 1e-14);
    EXPECT_NEAR(p.second.x + (p.place.x - 3), 0.0, 1e-14);
  }
}

double SecondJump(const Curve& curve, std::size_t piece) {
  const double knot = curve.Breaks()[piece + 1];
  const CurvePoint before = curve.At(piece, knot);
  const CurvePoint behind = curve.At(piece + 1, knot);
  return std::hypot(before.first.x - behind.first.x, before.first.y - behind.first.y) +
         std::hypot(before.second.x - behind.second.x, before.second.y - behind.second.y);
}

const std::vector<PlaneVector> kFits = {{0, 0}, {7, 3}, {9, 10}, {20, 11}, {24, 2}};

TEST(SplineThrough, PassesThroughItsPointsTwiceDifferentiably) {
  FitPoints fit;
  fit.points = kFits;
  const auto curve = SplineThrough(fit);
  ASSERT_EQ(curve->Breaks().size(), kFits.size());
  for (std::size_t i = 0; i + 1 < kFits.size(); ++i) {
    const PlaneVector p = curve->At(i, curve->Breaks()[i]).place;
    EXPECT_NEAR(p.x, kFits[i].x, 1e-13);
    EXPECT_NEAR(p.y, kFits[i].y, 1e-13);
    // The parameter grows by the chord.
    EXPECT_NEAR(curve->Breaks()[i + 1] - curve->Breaks()[i],
                std::hypot(kFits[i + 1].x - kFits[i].x, kFits[i + 1].y - kFits[i].y), 1e-13);
  }
  for (std::size_t i = 0; i + 2 < kFits.size(); ++i) EXPECT_NEAR(SecondJump(*curve, i), 0, 1e-12);
}

TEST(SplineThrough, HasNoCurvatureAtFreeEndsAndTheGivenTangentsElsewhere) {
  FitPoints fit;
  fit.points = kFits;
  fit.startTangent = {0, 5};
  const auto curve = SplineThrough(fit);
  const CurvePoint start = curve->At(0, 0.0);
  EXPECT_NEAR(start.first.x, 0.0, 1e-14);
  EXPECT_NEAR(start.first.y, 1.0, 1e-14);
  const CurvePoint end = curve->At(3, curve->Breaks()[4]);
  EXPECT_NEAR(std::hypot(end.second.x, end.second.y), 0.0, 1e-13);
}

TEST(SplineThrough, ClosedRunsOnSmoothlyOverItsStart) {
  FitPoints fit;
  fit.points = kFits;
  fit.closed = true;
  const auto curve = SplineThrough(fit);
  const std::size_t last = curve->Breaks().size() - 2;
  EXPECT_EQ(last + 1, kFits.size());
  const CurvePoint start = curve->At(0, 0.0);
  const CurvePoint end = curve->At(last, curve->Breaks().back());
  EXPECT_NEAR(start.place.x, end.place.x, 1e-12);
  EXPECT_NEAR(start.first.x, end.first.x, 1e-12);
  EXPECT_NEAR(start.first.y, end.first.y, 1e-12);
  EXPECT_NEAR(start.second.x, end.second.x, 1e-12);
  EXPECT_NEAR(start.second.y, end.second.y, 1e-12);
  for (std::size_t i = 0; i < last; ++i) EXPECT_NEAR(SecondJump(*curve, i), 0, 1e-12);
}

TEST(SplineThrough, PassesOverRepeatedPointsAndGivesALineThroughTwo) {
  FitPoints fit;
  fit.points = {{1, 1}, {1, 1}, {5, 4}, {5, 4}};
  EXPECT_EQ(CountDistinct(fit.points), 2u);
  const auto curve = SplineThrough(fit);
  ASSERT_EQ(curve->Breaks().size(), 2u);
  const CurvePoint p = curve->At(0, 2.5);
  EXPECT_NEAR(p.place.x, 3.0, 1e-14);
  EXPECT_NEAR(p.place.y, 2.5, 1e-14);
}

}  // namespace
}  // namespace drawing
