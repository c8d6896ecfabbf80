// Where one chain of elements meets itself other than at its joints.
#pragma once

#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <cstddef>
#include <vector>

namespace drawing {

/// A place where two elements of one list meet, and it is no joint of neighbours.
struct SelfIntersection {
  std::size_t first = 0;  ///< Indices into the list, the smaller one first.
  std::size_t second = 0;
  GX2DPoint place;      ///< Of a stretch, the middle.
  double length = 0.0;  ///< Of the common stretch, millimetres; 0 where they cross or touch.
};

/// What was found in a list.
struct SelfIntersections {
  std::vector<SelfIntersection> found;  ///< By `first`, then `second`, then along `first`.
  bool complete = true;                 ///< False where the search ended early.
};

/// Finds the places where a list of elements crosses or touches itself, and where stretches of it
/// lie on one another (the middle of the stretch).
///
/// Common points within kTouchTolerance of a common end of two elements are joints and not told,
/// nor is a stretch that begins at a common end and along which the two only part slowly, as at the
/// tip of a spike. A stretch that begins at a common end and goes on to another end, longer than
/// kOverlapTolerance, is told: there one element runs back over the other. Ends are common where
/// both coordinates differ by at most kTouchTolerance; a full circle has none.
///
/// Tolerance: elements meet where they come as near as kTouchTolerance, inclusive. Points between
///   which they stay as near are one place.
/// Degenerate: a list with coordinates that are not finite gives nothing.
/// Returns: at most `most` places. The search ends early, the same way every time, where there are
///   more, and where too many elements lie in the boxes of others, as in a star of many thousands
///   of lines: the boxes met and, twenty times each, the pairs that have to be held against one
///   another may add up to 4,000,000 and 500 for each element.
/// Cost: near n log n for elements that mostly lie apart; never beyond that bound.
SelfIntersections FindSelfIntersections(GX2DElmList& elements, std::size_t most);

}  // namespace drawing
