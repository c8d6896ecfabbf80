// Whether two elements lie on one another, and where.
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>

namespace drawing {

/// A stretch that two elements have in common.
struct SharedStretch {
  bool holdsAll = false;  ///< All of the shorter element belongs to it.
  double length = 0.0;    ///< Millimetres, along the longer one.
  GX2DPoint place;        ///< Its middle; where there are two stretches, that of the longer.
};

/// Whether two lines, or two arcs or circles, are the same curve, whatever their directions of
/// drawing and the mids of arcs. Ends and middles may be `tolerance` apart, of circles the centres
/// and the radii together.
bool AreSameCurve(GX2DElement& p, GX2DElement& q, double tolerance);

/// Finds the stretch along which the shorter of two elements lies on the longer one: both ends of a
/// shorter line lie within `tolerance` of the straight line of the longer, five points of a shorter
/// arc within `tolerance` of the circle.
///
/// Returns: false, `stretch` untouched, where they have no stretch in common that is longer than
///   `tolerance`, and for elements of different kinds.
bool FindSharedStretch(GX2DElement& longer, GX2DElement& shorter, double tolerance,
                       SharedStretch& stretch);

}  // namespace drawing
