// Where circles of the plane are crossed by lines and by other circles. The planar routines and
// those in space, which come here from a local frame, share these quadratics; they differ in the
// guards that they hand over, and in what they make of the roots.
#pragma once

#include <algorithm>
#include <cmath>

#include "kernel/PlanePoint.h"

namespace ktrcl_internal {

/// Model units, inclusive, for each coordinate by itself: roots that are no farther apart are one.
inline constexpr double kSameRoot = 1e-08;

/// Model units. Circles whose centres are farther apart than the sum of the radii less this are
/// taken as apart, so that touching from outside is no crossing.
inline constexpr double kTouching = 0.000001;

/// Model units, strict: slack with which one circle counts as lying inside the other.
inline constexpr double kInside = 1e-08;

struct PlaneCircle {
  PlanePoint centre;
  double squaredRadius;
};

/// Both roots of a quadratic: of the plus sign first.
struct CircleRoots {
  PlanePoint plus;
  PlanePoint minus;
};

/// A circle from its centre and a point on it.
inline PlaneCircle CircleThrough(const PlanePoint& centre, const PlanePoint& onCircle) {
  return {centre, SquaredDistance(onCircle, centre)};
}

/// Whether the roots count as one point. NaN roots do not.
inline bool RootsCoincide(const CircleRoots& roots) {
  return std::fabs(roots.plus.x - roots.minus.x) <= kSameRoot &&
         std::fabs(roots.plus.y - roots.minus.y) <= kSameRoot;
}

/// Cuts a circle with the line x = m y + c; plus is the root of greater y.
/// Returns: false, with `roots` untouched, for a negative discriminant.
inline bool CutWithSlope(double m, double c, const PlaneCircle& circle, CircleRoots& roots) {
  // (m y + c - centre.x)^2 + (y - centre.y)^2 = r^2, sorted by powers of y
  const double offset = c - circle.centre.x;
  const double quadratic = m * m + 1.0;
  const double linear = 2.0 * (m * offset - circle.centre.y);
  const double constant =
      offset * offset + circle.centre.y * circle.centre.y - circle.squaredRadius;
  const double discriminant = linear * linear - 4.0 * quadratic * constant;
  if (discriminant < 0.0) return false;

  const double root = std::sqrt(discriminant);
  const double yPlus = (-linear + root) / (2.0 * quadratic);
  const double yMinus = (-linear - root) / (2.0 * quadratic);
  roots = {{m * yPlus + c, yPlus}, {m * yMinus + c, yMinus}};
  return true;
}

/// Roots at a height, half a chord to the right (plus) and to the left of x.
/// Returns: false, with `roots` untouched, for a negative square of half the chord.
inline bool CutAtHeight(double x, double y, double squaredHalfChord, CircleRoots& roots) {
  if (squaredHalfChord < 0.0) return false;
  const double halfChord = std::sqrt(squaredHalfChord);
  roots = {{x + halfChord, y}, {x - halfChord, y}};
  return true;
}

/// Cuts a circle with the unbounded line through p1 and p2. A line whose y differ by at most
/// `levelGuard` runs level at the y of p1; plus is then the root of greater x.
/// Returns: false, with `roots` untouched, for none.
inline bool CutWithLine(const PlanePoint& p1, const PlanePoint& p2, const PlaneCircle& circle,
                        double levelGuard, CircleRoots& roots) {
  if (std::fabs(p1.y - p2.y) > levelGuard) {
    const double m = (p1.x - p2.x) / (p1.y - p2.y);
    return CutWithSlope(m, p1.x - m * p1.y, circle, roots);
  }
  const double height = p1.y - circle.centre.y;
  return CutAtHeight(circle.centre.x, p1.y, circle.squaredRadius - height * height, roots);
}

/// Cuts two circles, by their radical line in the first one. Centres whose x differ by at most
/// `uprightGuard` stand one above the other.
/// Returns: false, with `roots` untouched, for circles that are apart, touch, or lie one in the
/// other.
inline bool CutCircles(const PlaneCircle& first, const PlaneCircle& second, double uprightGuard,
                       CircleRoots& roots) {
  const double radius1 = std::sqrt(first.squaredRadius);
  const double radius2 = std::sqrt(second.squaredRadius);
  const double between = Distance(first.centre, second.centre);
  if (between > radius2 + radius1 - kTouching) return false;
  if (std::max(radius1, radius2) + kInside > std::min(radius1, radius2) + between) return false;

  // The radical line is x (c2.x - c1.x) + y (c2.y - c1.y) = k.
  const PlanePoint& c1 = first.centre;
  const PlanePoint& c2 = second.centre;
  const double k = (first.squaredRadius - second.squaredRadius - (c1.x * c1.x - c2.x * c2.x) -
                    (c1.y * c1.y - c2.y * c2.y)) *
                   0.5;
  if (std::fabs(c2.x - c1.x) > uprightGuard) {
    const double m = -(c2.y - c1.y) / (c2.x - c1.x);
    return CutWithSlope(m, k / (c2.x - c1.x), first, roots);
  }
  const double y = k / (c2.y - c1.y);
  const double height = y - c1.y;
  // k stands where the squared radius of the first circle would be right: hosts have built on the
  // figures that come of it.
  return CutAtHeight(c1.x, y, k - height * height, roots);
}

}  // namespace ktrcl_internal
