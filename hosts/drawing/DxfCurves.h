// ELLIPSE and SPLINE: curves out of the groups of a record.
#pragma once

#include "drawing/Curves.h"
#include "drawing/DxfEntities.h"

#include <memory>
#include <string_view>
#include <vector>

namespace drawing {

/// What a record says of a curve.
struct DxfCurve {
  std::unique_ptr<Curve> curve;       ///< In millimetres; null where the record was refused.
  std::vector<PlaneVector> vertices;  ///< Of a spline of degree 1, which is a row of lines.
  double elevation = 0.0;             ///< The z farthest from 0, in drawing units.
  bool markedClosed = false;          ///< A spline says of itself that it is closed.
  bool equalParameters = false;       ///< An ellipse was taken as whole for want of a range.
};

/// True for ELLIPSE and SPLINE.
bool IsDxfCurve(std::string_view type);

/// Reads the record of a curve; what is wrong with it stands in the failure of `values`.
///
/// The coordinates of both are those of the drawing, whatever the extrusion: seen from below, an
/// ELLIPSE only runs the other way round. A tilted extrusion is a failure. The fit points of a
/// SPLINE count where it has no control points; then the curve is SplineThrough.
DxfCurve ReadDxfCurve(DxfValues& values, double millimetresPerUnit);

}  // namespace drawing
