// The motions that lay one round part on another. The outline leaves the turn open; what it can be
// follows from the cut-outs.
#pragma once

#include "drawing/CutOutPartners.h"
#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"

#include <vector>

namespace drawing {

/// The turns that can lay the cut-outs of B on those of A, about the centre of the outline.
///
/// They come from the cut-out of A that has the fewest possible partners at its distance from the
/// centre, one turn for each; where none is off the centre, from the sides of one that is no
/// circle; where that does not help either, the only turn is none.
///
/// Requires: both outlines are one full circle; `startPosition` is copied to the results.
std::vector<MatchedStart> CircleMotions(const ShapedContour& outerA, const ShapedContour& outerB,
                                        const CutOutPartners& cutOuts, int startPosition);

}  // namespace drawing
