// The rigid motions that lay the outer contour of B on that of A, one for each start position that
// the library matched.
#pragma once

#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"

#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <vector>

namespace drawing {

/// What the long form of HaveSameGeometry found on two contours.
struct MatchedGeometry {
  bool same = false;
  GXLAContour::eReversedGeometry sense = GXLAContour::eGeometryNotSet;
  int referencePosition = -1;
  GXIntList starts;
};

/// Calls the long form, `a` being the reference.
MatchedGeometry MatchGeometry(const GXLAContour& a, const GXLAContour& b,
                              GXLAContour::eNmbSegmentsMode mode,
                              GXEvent1Param<const GXString&>* trace);

/// Whether both outlines are one full circle: their start positions leave the turn open.
bool AreBothCircles(const ShapedContour& a, const ShapedContour& b);

/// The motions for outlines that matched, in the order of the start positions.
///
/// Outlines that were walked are fitted corner by corner, middle by middle. Those that matched on
/// their long sides alone are fitted by these, in the order in which they follow each other from
/// the longest one on, so that a short side in between moves nothing; the deviation is then the
/// largest distance of a corner or middle of either outline from the other outline, and where it
/// goes beyond kShortSideLimit it is a distance that does, not the largest one.
///
/// Requires: not both of them circles.
std::vector<MatchedStart> OutlineMotions(const ShapedContour& a, const ShapedContour& b,
                                         const MatchedGeometry& match);

}  // namespace drawing
