// Curves for the tests, and how far elements are from them, measured apart from the code under
// test: by places of the curve itself and by the host's exact distances to lines and arcs.
#pragma once

#include "drawing/CurveElements.h"
#include "drawing/CurveMeasures.h"
#include "drawing/Curves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace support {

using drawing::PlaneVector;

/// Four times this is the handle of a quarter circle of radius 4 in Bezier form whose middle is on
/// the circle: 4 / 3 (sqrt 2 - 1).
constexpr double kQuarterHandle = 0.55228474983079340;

inline std::vector<drawing::ControlPoint> Unweighted(const std::vector<PlaneVector>& places) {
  std::vector<drawing::ControlPoint> points;
  for (const PlaneVector& place : places) points.push_back({place, 1.0});
  return points;
}

/// Knots with both ends of full multiplicity and 1, 2, 3, ... between them.
inline std::vector<double> ClampedKnots(std::size_t degree, std::size_t points) {
  std::vector<double> knots(degree, 0.0);
  for (std::size_t i = 0; i + degree <= points; ++i) knots.push_back(static_cast<double>(i));
  knots.insert(knots.end(), degree, knots.back());
  return knots;
}

/// Knots 0, 1, 2, ...
inline std::vector<double> EvenKnots(std::size_t degree, std::size_t points) {
  std::vector<double> knots;
  for (std::size_t i = 0; i < points + degree + 1; ++i) knots.push_back(static_cast<double>(i));
  return knots;
}

inline std::unique_ptr<drawing::Curve> ClampedSpline(std::size_t degree,
                                                     const std::vector<PlaneVector>& places) {
  return std::make_unique<drawing::SplineCurve>(degree, ClampedKnots(degree, places.size()),
                                                Unweighted(places));
}

/// Cubic Bezier pieces, one behind the other: 1 + 3 n places.
inline std::unique_ptr<drawing::Curve> BezierPieces(const std::vector<PlaneVector>& places) {
  std::vector<double> knots(1, 0.0);
  for (std::size_t i = 0; i + 1 < places.size() / 3 + 2; ++i) {
    knots.insert(knots.end(), 3, static_cast<double>(i));
  }
  knots.push_back(knots.back());
  return std::make_unique<drawing::SplineCurve>(3, knots, Unweighted(places));
}

/// A circle in four Bezier pieces, counter-clockwise from `startRadians`.
inline std::vector<PlaneVector> BezierCircle(double x, double y, double radius,
                                             double startRadians = 0.0) {
  std::vector<PlaneVector> places;
  for (int quarter = 0; quarter < 4; ++quarter) {
    for (int i = 0; i < 3; ++i) {
      const double u[3] = {1.0, 1.0, kQuarterHandle};
      const double v[3] = {0.0, kQuarterHandle, 1.0};
      const double turn = startRadians + quarter * std::acos(0.0);
      places.push_back({x + radius * (u[i] * std::cos(turn) - v[i] * std::sin(turn)),
                        y + radius * (u[i] * std::sin(turn) + v[i] * std::cos(turn))});
    }
  }
  places.push_back(places.front());
  return places;
}

/// Circumference of an ellipse with the half axes a and b: the series of Gauss and Kummer,
/// pi (a + b) sum of (binomial of 1/2 over n)^2 h^n with h = ((a - b) / (a + b))^2.
inline double EllipsePerimeter(double a, double b) {
  const double h = ((a - b) / (a + b)) * ((a - b) / (a + b));
  double sum = 1.0;
  double binomial = 1.0;
  double power = 1.0;
  for (int n = 1; n < 200; ++n) {
    binomial *= (0.5 - (n - 1)) / n;
    power *= h;
    sum += binomial * binomial * power;
  }
  return 2.0 * std::acos(0.0) * (a + b) * sum;
}

/// Places all along a curve, `perPiece` + 1 for each of its pieces.
inline std::vector<GX2DPoint> PlacesAlong(const drawing::Curve& curve, std::size_t perPiece) {
  std::vector<GX2DPoint> places;
  for (std::size_t piece = 0; piece + 1 < curve.Breaks().size(); ++piece) {
    const double from = curve.Breaks()[piece];
    const double to = curve.Breaks()[piece + 1];
    for (std::size_t i = 0; i <= perPiece; ++i) {
      const double share = static_cast<double>(i) / static_cast<double>(perPiece);
      const PlaneVector p = curve.At(piece, from + share * (to - from)).place;
      places.emplace_back(p.x, p.y);
    }
  }
  return places;
}

/// A curve with its elements.
struct Approximated {
  drawing::CurveTrace trace;
  std::vector<drawing::CurvePiece> pieces;
  std::vector<std::unique_ptr<GX2DElement>> elements;

  double Stated() const {
    double largest = 0.0;
    for (const auto& piece : pieces) largest = std::max(largest, piece.fit.deviation);
    return largest;
  }
  double Perimeter() const {
    double sum = 0.0;
    for (const auto& element : elements) sum += drawing::ElementLength(*element);
    return sum;
  }
  std::size_t Count(drawing::CurveFit::Kind kind) const {
    return static_cast<std::size_t>(std::count_if(
        pieces.begin(), pieces.end(), [&](const auto& piece) { return piece.fit.kind == kind; }));
  }
};

inline Approximated Approximate(const drawing::Curve& curve, double tolerance,
                                double millimetresPerUnit = 1.0) {
  Approximated made;
  EXPECT_EQ(drawing::TraceCurve(curve, tolerance / 25.0, 100000, made.trace), "");
  made.pieces = drawing::ApproximateCurve(made.trace, tolerance, millimetresPerUnit).pieces;
  for (const auto& piece : made.pieces) {
    made.elements.push_back(drawing::MakeElement(made.trace, piece.stretch, piece.fit));
  }
  return made;
}

/// Largest distance of places of the curve from the nearest element.
inline double FarthestFromElements(const drawing::Curve& curve, const Approximated& made,
                                   std::size_t perPiece) {
  double farthest = 0.0;
  for (const GX2DPoint& place : PlacesAlong(curve, perPiece)) {
    double nearest = 1.0e300;
    for (const auto& element : made.elements) {
      nearest = std::min(nearest, drawing::DistanceToElement(place, *element));
    }
    farthest = std::max(farthest, nearest);
  }
  return farthest;
}

/// Largest distance of places on the elements from the polygon through places of the curve.
inline double FarthestFromCurve(const drawing::Curve& curve, const Approximated& made,
                                std::size_t perPiece) {
  const std::vector<GX2DPoint> places = PlacesAlong(curve, perPiece);
  double farthest = 0.0;
  for (const auto& element : made.elements) {
    for (int i = 0; i <= 16; ++i) {
      const GX2DPoint p = drawing::PointAt(*element, i / 16.0);
      double nearest = 1.0e300;
      for (std::size_t k = 0; k + 1 < places.size(); ++k) {
        GX2DLine side(places[k], places[k + 1]);
        nearest = std::min(nearest, drawing::DistanceToElement(p, side));
      }
      farthest = std::max(farthest, nearest);
    }
  }
  return farthest;
}

}  // namespace support
