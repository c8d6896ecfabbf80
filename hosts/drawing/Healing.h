// Ends of a contour that meet within the tolerance only are made one point, and it is recorded what
// that moved.
#pragma once

#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <cstddef>

namespace drawing {

/// What healing did to a contour.
struct Healing {
  std::size_t joinedEnds = 0;    ///< Joints whose two ends were apart by more than rounding.
  double largestMovement = 0.0;  ///< Of any end, in millimetres; rounding included.
};

/// Makes every joint of a closed chain exactly one point, by the library's
/// MakeAlmostEqualPointsEqual. A chain whose joints are exact is not touched.
///
/// Nothing is inserted, removed or reordered, so no end moves by more than 0.0001 on each
/// coordinate. Ends that are apart by no more than 1e-9 are joined too, but not counted: that much
/// is rounding where coordinates were computed.
///
/// The library's CleanUp is no part of it. Its merge looks at one element and the end of the next,
/// so that a short side which it takes up when the contour is drawn one way round stays when it is
/// drawn the other way round, and two drawings of one part would differ. Arcs that it merges keep
/// the mid of the last piece, and with it may lose their sense; a contour that is one full circle
/// comes out empty. The sides that a straight vertex cuts are merged in ShapeContour instead, by a
/// rule that is the same from both sides.
///
/// Requires: a closed chain in order (IsFullyConnected and IsClosed at 0.0001).
/// Degenerate: lists of one element, full circles among them, are left alone.
Healing HealContour(GX2DElmList& elements);

}  // namespace drawing
