// Curves that are neither lines nor arcs: ellipses and splines, as places and derivatives over a
// parameter. Everything is in millimetres, in the plane z = 0.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace drawing {

/// A place or a direction in the plane.
struct PlaneVector {
  double x = 0.0;
  double y = 0.0;
};

/// A curve at one parameter: the place, its first and its second derivative.
struct CurvePoint {
  PlaneVector place;
  PlaneVector first;
  PlaneVector second;
};

/// A curve in pieces, each of them smooth. Where two pieces meet, the curve may have a corner.
class Curve {
 public:
  Curve() = default;
  Curve(const Curve&) = delete;
  Curve& operator=(const Curve&) = delete;
  virtual ~Curve();

  /// Where the pieces begin and end, ascending, one more than there are pieces; at least two.
  virtual const std::vector<double>& Breaks() const = 0;

  /// The curve at a parameter of a piece, both ends of the piece included.
  ///
  /// Requires: `piece` + 1 < Breaks().size().
  /// Degenerate: the result may hold infinities or NaN where the figures of the curve are too large
  ///   for the arithmetic.
  virtual CurvePoint At(std::size_t piece, double parameter) const = 0;

  /// How many intervals of a piece must be looked at for none of its bends to be missed.
  virtual std::size_t LeastIntervals() const = 0;
};

/// center + cos(t) major + sin(t) minor. Its pieces end at the ends of its axes.
class EllipseCurve : public Curve {
 public:
  /// From parameter `from` to parameter `to`, in radians; a whole turn is 2 pi.
  ///
  /// Requires: from < to, both finite and not many turns away from 0.
  EllipseCurve(const PlaneVector& center, const PlaneVector& major, const PlaneVector& minor,
               double from, double to);

  const std::vector<double>& Breaks() const override;
  CurvePoint At(std::size_t piece, double parameter) const override;
  std::size_t LeastIntervals() const override;

 private:
  PlaneVector center_;
  PlaneVector major_;
  PlaneVector minor_;
  std::vector<double> breaks_;
};

/// A point that steers a spline, with its weight.
struct ControlPoint {
  PlaneVector place;
  double weight = 1.0;
};

/// A spline of any degree, rational where its weights differ, over the knots as they are given:
/// clamped, unclamped or periodic. Its pieces lie between neighbouring knots that differ, from the
/// knot behind the first `degree` ones to the one in front of the last `degree` ones.
///
/// The triangle of de Boor (C. de Boor, On calculating with B-splines, 1972) gives the place in
/// homogeneous coordinates, its last two stages the derivatives; the rule for quotients takes the
/// weight out of them (L. Piegl, W. Tiller, The NURBS Book, chapter 4).
class SplineCurve : public Curve {
 public:
  static constexpr std::size_t kHighestDegree = 25;

  /// Requires: `degree` from 1 to kHighestDegree, more than `degree` points, as many knots as
  /// points and `degree` and one more, none smaller than the one before, knots[degree] below
  /// knots[points.size()], weights above 0.
  SplineCurve(std::size_t degree, std::vector<double> knots,
              const std::vector<ControlPoint>& points);

  const std::vector<double>& Breaks() const override;
  CurvePoint At(std::size_t piece, double parameter) const override;
  std::size_t LeastIntervals() const override;

 private:
  struct Homogeneous {
    double x = 0.0;
    double y = 0.0;
    double w = 0.0;
  };

  using Triangle = std::array<Homogeneous, kHighestDegree + 1>;

  void GoUp(Triangle& d, std::size_t k, std::size_t stage, double parameter) const;
  static Homogeneous Slope(const Homogeneous& a, const Homogeneous& b, double divisor);
  static CurvePoint WithoutWeight(const Homogeneous& h, const Homogeneous& first,
                                  const Homogeneous& second);

  std::size_t degree_;
  std::vector<double> knots_;
  std::vector<Homogeneous> points_;
  std::vector<std::size_t> spans_;  // By piece: the knot at which it begins.
  std::vector<double> breaks_;
};

/// What is asked of a spline through points.
struct FitPoints {
  std::vector<PlaneVector> points;
  PlaneVector startTangent;  ///< Its direction counts, not its length; zero where it is free.
  PlaneVector endTangent;    ///< The same.
  bool closed = false;       ///< The curve runs on from the last point to the first, smoothly.
};

/// The cubic spline through points: twice continuously differentiable, the parameter growing by the
/// length of the chords (C. de Boor, A Practical Guide to Splines, chapter IV). At an end with a
/// tangent it runs that way at unit speed; at one without it has no curvature. A closed one is
/// periodic; its cyclic system of equations is solved by the formula of Sherman and Morrison.
///
/// Points equal to the one before are passed over, and so is the last one of a closed curve where
/// it equals the first. A closed curve through two points is taken as open.
///
/// Requires: two points that differ, all finite.
std::unique_ptr<Curve> SplineThrough(const FitPoints& fit);

/// Counts the points of which none equals the one before.
std::size_t CountDistinct(const std::vector<PlaneVector>& points);

}  // namespace drawing
