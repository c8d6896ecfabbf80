// What a picture of a comparison marks: the cut-outs and segments without an equal on the other
// side.
#pragma once

#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"

#include <cstddef>
#include <set>
#include <vector>

namespace drawing {

/// What differs on one side of a comparison.
struct Marks {
  std::set<std::size_t> cutOuts;  ///< Indices into the cut-outs of the part.
  std::vector<bool> segments;  ///< One per element of the outline; empty where the outlines agree.
};

/// Finds what to mark on both sides.
///
/// Cut-outs are marked where the other side has none of their group, or where no partner was found.
/// Where the outlines do not agree, their segments are compared by kind and length: outlines with
/// the same number of segments are laid on each other at the start that agrees best, others are
/// matched in any order. Where every segment has an equal and only the order differs, as in a
/// mirror image, the whole outline is marked.
void MarkDifferences(const PartModel& a, const PartModel& b, const Comparison& comparison,
                     Marks& marksA, Marks& marksB);

}  // namespace drawing
