// The curves of a drawing into its elements: those that continue each other are one curve.
#pragma once

#include "drawing/CurveTrace.h"
#include "drawing/Drawing.h"

#include <cstddef>
#include <vector>

namespace drawing {

/// A curve of a drawing that has no elements yet.
struct DrawnCurve {
  CurveTrace trace;        ///< At least two samples.
  std::size_t entity = 0;  ///< Index into Drawing::entities.
};

/// Replaces curves by lines and arcs within a tolerance (ApproximateCurve) and counts them in
/// `drawing.curves`.
///
/// Curves whose ends meet within 0.0001 mm, and meet nothing else, are joined first when they are
/// on one layer: a hole drawn in six pieces is one circle. The ends of elements that are there
/// already count for that. An element belongs to the entity in which its middle lies; an entity may
/// end up without any. The elements stay in the order of their entities.
void UseCurves(std::vector<DrawnCurve> curves, double tolerance, Drawing& drawing);

}  // namespace drawing
