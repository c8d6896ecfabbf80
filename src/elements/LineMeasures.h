// Distance, plane and angle of lines given by two points each, shared by the operations on lines,
// on arcs and on segments. Nothing here allocates.
#pragma once

#include "elements/CommonEnds.h"
#include "elements/PlainVector.h"
#include "foundation/Tolerance.h"

#include <cmath>

namespace ktrcl_internal {

inline constexpr double kPi = 3.141592653589793;
inline constexpr double kFullTurn = 6.283185307179586;

/// What an angle between lines is when there is none.
inline constexpr double kNoAngle = -1.0;

/// Distance of `p` from the unbounded line; for a line of length exactly 0 false, with 0 in
/// `distance`.
inline bool DistanceToCarrier(const PlainVector& start, const PlainVector& end,
                              const PlainVector& p, double& distance) {
  const PlainVector along = end - start;
  distance = Length(along);
  if (distance == 0.0) return false;
  const PlainVector foot = start + along * (Dot(p - start, along) / Dot(along, along));
  distance = Length(p - foot);
  return true;
}

/// Whether c is nearer than `tol` to the unbounded line through a and b. Where a and b are one
/// point the distance stays 0 and every c passes.
inline bool InLine(const PlainVector& a, const PlainVector& b, const PlainVector& c, double tol) {
  double distance = 0.0;
  DistanceToCarrier(a, b, c, distance);
  return tol > distance;
}

/// Whether d lies on the plane through a, b and c.
inline bool InPlane(const PlainVector& a, const PlainVector& b, const PlainVector& c,
                    const PlainVector& d) {
  // Below this length of the cross product (an area) a, b and c span no plane to divide by; the
  // determinant is then compared with its sign, so that every negative one passes.
  constexpr double kPlaneThreshold = 0.00001;
  const PlainVector normal = Cross(b - a, c - a);
  const double determinant = Dot(d - a, normal);
  const double length = Length(normal);
  const double distance = length >= kPlaneThreshold ? std::fabs(determinant) / length : determinant;
  return distance <= kOnElementTolerance;
}

/// Unsigned angle at the common end of two lines, `kNoAngle` where there is none.
inline double AngleAtCommonEnd(const PlainVector& aStart, const PlainVector& aEnd,
                               const PlainVector& bStart, const PlainVector& bEnd) {
  // Nearer than this to 1 the cosine has lost the angle to rounding: the lines count as parallel.
  constexpr double kParallelCosine = 0.999999;
  if (!InPlane(aStart, aEnd, bStart, bEnd)) return kNoAngle;
  const double aLength = Length(aEnd - aStart);
  const double bLength = Length(bEnd - bStart);
  if (!(aLength > kLengthTolerance) || !(bLength > kLengthTolerance)) return kNoAngle;

  const EndMatch<PlainVector> common = MatchEnds(aStart, aEnd, bStart, bEnd);
  if (!common.own) return kNoAngle;
  const PlainVector a = common.own == &aStart ? aStart - aEnd : aEnd - aStart;
  const PlainVector b = common.other == &bStart ? bStart - bEnd : bEnd - bStart;
  double cosine = Dot(a, b) / (aLength * bLength);
  if (std::fabs(cosine) > kParallelCosine) cosine = cosine > 0.0 ? 1.0 : -1.0;
  return std::acos(cosine);
}

}  // namespace ktrcl_internal
