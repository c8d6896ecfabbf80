// Affine maps of the plane: how the contents of blocks lie in a drawing.
#pragma once

#include "drawing/Curves.h"

namespace drawing {

/// Cosine and sine of an angle in degrees, exact at multiples of a right angle, so that what is
/// turned by one keeps its coordinates.
PlaneVector DirectionOf(double degrees);

/// x' = xx x + xy y + x0, y' = yx x + yy y + y0. Without figures it leaves everything where it is.
struct PlaneMap {
  double xx = 1.0;
  double xy = 0.0;
  double yx = 0.0;
  double yy = 1.0;
  double x0 = 0.0;
  double y0 = 0.0;

  PlaneVector Place(const PlaneVector& p) const;
  PlaneVector Direction(const PlaneVector& d) const;  ///< Without x0 and y0.

  /// Whether circles stay circles: the map turns, scales evenly, moves and may mirror, up to a
  /// billionth of its largest figure.
  bool IsSimilarity() const;

  bool Mirrors() const;  ///< Counter-clockwise becomes clockwise.

  /// By how much the map makes a length longer at most.
  double LargestStretch() const;
};

/// x becomes -x, y stays: what is seen from below, seen from above.
PlaneMap SeenFromBelow();

/// First `inner`, then `outer`.
PlaneMap Composed(const PlaneMap& outer, const PlaneMap& inner);

/// An ellipse cos(t - shift) first + sin(t - shift) second whose axes are at right angles.
struct EllipseAxes {
  PlaneVector first;
  PlaneVector second;
  double shift = 0.0;  ///< Radians.
};

/// The axes of the ellipse cos(t) u + sin(t) v of which any two conjugate half diameters are given,
/// in the closed form of Rytz's construction: tan(2 shift) = 2 u v / (u u - v v). Half diameters at
/// right angles are the axes already and are kept.
EllipseAxes AxesOf(const PlaneVector& u, const PlaneVector& v);

}  // namespace drawing
