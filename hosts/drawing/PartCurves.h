// A part as curves about its own middle, ready to be laid on another one.
#pragma once

#include "drawing/CurveDistances.h"
#include "drawing/PartModel.h"

#include <vector>

namespace drawing {

/// A contour as drawn, before any merge.
struct ContourCurve {
  CurveTree curve;
  Place centre;             ///< Of gravity of the curve, as of a thin wire.
  double reach = 0.0;       ///< Largest distance of a place of the curve from its centre.
  double leastReach = 0.0;  ///< Least distance.
  bool clockwise = false;   ///< Direction of drawing.

  /// Whether it is a circle, or lies within `tolerance` between two circles about its centre.
  bool IsRound(double tolerance) const { return reach - leastReach <= tolerance; }
};

/// All contours of a part in coordinates whose origin is the centre of gravity of its outer curve:
/// far away from the origin of the drawing too, places are then as exact as they were drawn.
struct PartCurves {
  /// Requires: `part.usable`. `mirrored`: x is negated first.
  PartCurves(const PartModel& part, bool mirrored);

  Place origin;  ///< In the coordinates of the drawing, negated x where mirrored.
  ContourCurve outer;
  std::vector<ContourCurve> cutOuts;  ///< In the order of the part.
  CurveTree all;                      ///< The pieces of all contours, the outer one first.
};

}  // namespace drawing
