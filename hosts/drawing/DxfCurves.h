// ELLIPSE and SPLINE: curves out of the groups of a record.
#pragma once

#include "drawing/Curves.h"
#include "drawing/DxfEntities.h"
#include "drawing/PlaneMap.h"

#include <memory>
#include <string_view>
#include <vector>

namespace drawing {

/// What a record says of a curve.
struct DxfCurve {
  std::unique_ptr<Curve> curve;       ///< In millimetres, mapped; null for refused records.
  std::vector<PlaneVector> vertices;  ///< Of a spline of degree 1, which is a row of lines.
  HeightRange heights;                ///< Of its points.
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
///
/// The map leads from the coordinates of the record to those of the drawing, both in drawing units.
/// Control points keep their weights; a spline through points is mapped as it runs through them
/// unmapped.
DxfCurve ReadDxfCurve(DxfValues& values, double millimetresPerUnit, const PlaneMap& map);

}  // namespace drawing
