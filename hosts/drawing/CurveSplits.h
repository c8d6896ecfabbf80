// Where a curve is divided before arcs are sought: corners, jumps of the curvature, and the places
// where it is largest or smallest.
#pragma once

#include "drawing/CurveFits.h"
#include "drawing/CurveTrace.h"

#include <cstddef>
#include <vector>

namespace drawing {

/// A place between two stretches.
struct Split {
  double at = 0.0;         ///< Length along the curve.
  double curvature = 0.0;  ///< The larger one at it, without sign.
  bool jumps = false;  ///< The direction or the curvature jumps, so that a drawn joint is likely.
};

/// Lengths of the corners, ascending, those at the ends of the curve not included. A turn by more
/// than 0.05 radians is a corner.
std::vector<double> FindCorners(const CurveTrace& trace);

/// The other splits within a stretch, ascending: turns above 0.005 radians, jumps of the curvature
/// by more than a fifth, and its largest and smallest values, where they stand out by a fifth.
/// Curvatures that bend the stretch by less than a tenth of the tolerance count as equal.
std::vector<Split> FindSplits(const CurveTrace& trace, const Stretch& stretch, double tolerance);

/// Where a closed curve is best begun: at a corner; else where the curvature jumps most; else where
/// it is largest. The length 0 where it hardly varies.
///
/// Requires: CurveTrace::CloseExactly was called.
Split BestStart(const CurveTrace& trace, double tolerance);

/// Whether the two ends of a closed curve are a corner.
bool BeginsAtCorner(const CurveTrace& trace);

}  // namespace drawing
