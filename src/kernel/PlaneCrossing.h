// A line cut with the plane z = 0 of local coordinates, for the free routines and for the plane
// that holds its frame.
#pragma once

#include <cmath>

#include "kernel/VectorArithmetic.h"

namespace ktrcl_internal {

/// Model units, inclusive. A line whose two points differ by no more in height runs along the
/// plane.
inline constexpr double kSameHeight = 0.0001;

/// Crossing of the line through local points l1 and l2 with z = 0, by linear interpolation; its z
/// is exactly 0.
/// Returns: true; false, with `out` untouched, for a line along the plane.
inline bool CrossLevelPlane(const double* l1, const double* l2, double* out) {
  const double drop = l1[2] - l2[2];
  if (std::fabs(drop) <= kSameHeight) return false;
  const double t = l1[2] / drop;
  Fill(l1[0] + t * (l2[0] - l1[0]), l1[1] + t * (l2[1] - l1[1]), 0.0, out);
  return true;
}

}  // namespace ktrcl_internal
