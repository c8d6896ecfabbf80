// The cubic spline through points: a tridiagonal system for the derivatives at the points, then the
// piece between two points in Bezier form.
#include "drawing/Curves.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace drawing {
namespace {

bool Same(const PlaneVector& a, const PlaneVector& b) { return a.x == b.x && a.y == b.y; }

PlaneVector Sum(double a, const PlaneVector& p, double b, const PlaneVector& q) {
  return {a * p.x + b * q.x, a * p.y + b * q.y};
}

// below[i] m[i - 1] + middle[i] m[i] + above[i] m[i + 1] = right[i].
struct Tridiagonal {
  std::vector<double> below, middle, above;
  std::vector<PlaneVector> right;

  explicit Tridiagonal(std::size_t n) : below(n), middle(n), above(n), right(n) {}
};

// Elimination without pivots: the systems here are diagonally dominant.
std::vector<PlaneVector> Solve(Tridiagonal system) {
  const std::size_t n = system.middle.size();
  for (std::size_t i = 1; i < n; ++i) {
    const double factor = system.below[i] / system.middle[i - 1];
    system.middle[i] -= factor * system.above[i - 1];
    system.right[i] = Sum(1.0, system.right[i], -factor, system.right[i - 1]);
  }
  std::vector<PlaneVector> m(n);
  for (std::size_t i = n; i-- > 0;) {
    PlaneVector rest = system.right[i];
    if (i + 1 < n) rest = Sum(1.0, rest, -system.above[i], m[i + 1]);
    m[i] = {rest.x / system.middle[i], rest.y / system.middle[i]};
  }
  return m;
}

// The row that makes the second derivative continuous at a point between two chords.
void SetInnerRow(Tridiagonal& system, std::size_t i, const PlaneVector& slopeBefore, double before,
                 const PlaneVector& slopeBehind, double behind) {
  system.below[i] = behind;
  system.middle[i] = 2.0 * (before + behind);
  system.above[i] = before;
  system.right[i] = Sum(3.0 * behind, slopeBefore, 3.0 * before, slopeBehind);
}

// An end: the tangent where one is given, otherwise no curvature.
void SetEndRow(Tridiagonal& system, std::size_t i, const PlaneVector& tangent,
               const PlaneVector& slope) {
  const double length = std::hypot(tangent.x, tangent.y);
  if (length > 0.0 && std::isfinite(length)) {
    system.middle[i] = 1.0;
    system.right[i] = {tangent.x / length, tangent.y / length};
    return;
  }
  system.middle[i] = 2.0;
  (i == 0 ? system.above[i] : system.below[i]) = 1.0;
  system.right[i] = Sum(3.0, slope, 0.0, slope);
}

// The points and, for each chord, its length and its slope.
struct Chords {
  std::vector<PlaneVector> points;
  std::vector<double> lengths;
  std::vector<PlaneVector> slopes;
};

Chords MakeChords(const FitPoints& fit, bool& closed) {
  Chords chords;
  for (const PlaneVector& p : fit.points) {
    if (chords.points.empty() || !Same(p, chords.points.back())) chords.points.push_back(p);
  }
  if (fit.closed && chords.points.size() > 1 && Same(chords.points.back(), chords.points.front())) {
    chords.points.pop_back();
  }
  closed = fit.closed && chords.points.size() > 2;
  if (closed) chords.points.push_back(chords.points.front());
  for (std::size_t i = 0; i + 1 < chords.points.size(); ++i) {
    const PlaneVector chord = Sum(1.0, chords.points[i + 1], -1.0, chords.points[i]);
    const double length = std::hypot(chord.x, chord.y);
    chords.lengths.push_back(length);
    chords.slopes.push_back({chord.x / length, chord.y / length});
  }
  return chords;
}

std::vector<PlaneVector> OpenDerivatives(const Chords& chords, const FitPoints& fit) {
  const std::size_t n = chords.points.size();
  Tridiagonal system(n);
  SetEndRow(system, 0, fit.startTangent, chords.slopes.front());
  for (std::size_t i = 1; i + 1 < n; ++i) {
    SetInnerRow(system, i, chords.slopes[i - 1], chords.lengths[i - 1], chords.slopes[i],
                chords.lengths[i]);
  }
  SetEndRow(system, n - 1, fit.endTangent, chords.slopes.back());
  return Solve(std::move(system));
}

// The cyclic system has two entries beside the three diagonals, in its corners. It is the sum of a
// tridiagonal one and the product of a column u and a row v; one more solution, for u, corrects
// that of the tridiagonal system.
std::vector<PlaneVector> ClosedDerivatives(const Chords& chords) {
  const std::size_t n = chords.lengths.size();
  Tridiagonal system(n);
  for (std::size_t i = 0; i < n; ++i) {
    const std::size_t before = (i + n - 1) % n;
    SetInnerRow(system, i, chords.slopes[before], chords.lengths[before], chords.slopes[i],
                chords.lengths[i]);
  }
  const double firstCorner = system.below[0];
  const double lastCorner = system.above[n - 1];
  const double gamma = -system.middle[0];
  system.middle[0] -= gamma;
  system.middle[n - 1] -= lastCorner * firstCorner / gamma;
  Tridiagonal forColumn = system;
  for (PlaneVector& entry : forColumn.right) entry = {};
  forColumn.right[0] = {gamma, 0.0};
  forColumn.right[n - 1] = {lastCorner, 0.0};
  std::vector<PlaneVector> m = Solve(std::move(system));
  const std::vector<PlaneVector> column = Solve(std::move(forColumn));
  const double row = firstCorner / gamma;
  const PlaneVector product = Sum(1.0, m[0], row, m[n - 1]);
  const double divisor = 1.0 + column[0].x + row * column[n - 1].x;
  for (std::size_t i = 0; i < n; ++i) m[i] = Sum(1.0, m[i], -column[i].x / divisor, product);
  m.push_back(m.front());
  return m;
}

}  // namespace

std::size_t CountDistinct(const std::vector<PlaneVector>& points) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i == 0 || !Same(points[i], points[i - 1])) ++count;
  }
  return count;
}

std::unique_ptr<Curve> SplineThrough(const FitPoints& fit) {
  bool closed = false;
  const Chords chords = MakeChords(fit, closed);
  const std::vector<PlaneVector> derivatives =
      closed ? ClosedDerivatives(chords) : OpenDerivatives(chords, fit);
  std::vector<ControlPoint> controls;
  std::vector<double> knots(4, 0.0);
  controls.push_back({chords.points.front(), 1.0});
  for (std::size_t i = 0; i < chords.lengths.size(); ++i) {
    const double third = chords.lengths[i] / 3.0;
    controls.push_back({Sum(1.0, chords.points[i], third, derivatives[i]), 1.0});
    controls.push_back({Sum(1.0, chords.points[i + 1], -third, derivatives[i + 1]), 1.0});
    controls.push_back({chords.points[i + 1], 1.0});
    const double knot = knots.back() + chords.lengths[i];
    knots.insert(knots.end(), 3, knot);
  }
  knots.push_back(knots.back());
  return std::make_unique<SplineCurve>(3, std::move(knots), controls);
}

}  // namespace drawing
