// The end that two segments share, for the routines that measure an angle there.
#pragma once

#include <KTRCL_Geometry/kernel/Vectors.h>

#include "kernel/VectorArithmetic.h"

namespace ktrcl_internal {

/// Ways from the shared end of segments a and b to their far ends, each from the segment's own end.
/// Ends coincide by `Pntcmp`; the pairs are tried in the order a1 b1, a1 b2, a2 b1, a2 b2, and the
/// first one counts.
/// Returns: true; false, with the ways untouched, where no end is shared.
inline bool WaysFromSharedEnd(const double* a1, const double* a2, const double* b1,
                              const double* b2, double* wayA, double* wayB) {
  const double* const pairs[4][4] = {
      {a1, a2, b1, b2}, {a1, a2, b2, b1}, {a2, a1, b1, b2}, {a2, a1, b2, b1}};
  for (const auto& [nearA, farA, nearB, farB] : pairs) {
    if (Pntcmp(nearA, nearB) == 0) continue;
    Subtract(farA, nearA, wayA);
    Subtract(farB, nearB, wayB);
    return true;
  }
  return false;
}

}  // namespace ktrcl_internal
