// Which loose ends belong together across a gap.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/Networks.h"

#include <cstddef>
#include <vector>

namespace drawing {

/// Two loose ends that are each other's partner.
struct LooseEndPair {
  LooseEnd first;  ///< The one of the earlier element; of one element, its start.
  LooseEnd second;
  double distance = 0.0;  ///< Between them, millimetres: the smallest gap that closes it.
};

/// Pairs the loose ends of a drawing, nearest first: the two that are nearest to each other, then
/// the two nearest of what is left, and so on up to `gap` (inclusive).
///
/// Ends that meet others are never touched, so small features keep their shape however large the
/// gap is. The two ends of one chain, which pairs before may have made of several, are a pair only
/// where the chain is longer than four times their distance, so that a speck is not closed onto
/// itself, and is more than one or two lines, which would lie on one another. Ends that are not
/// finite are passed over. A smaller gap gives the first pairs of a
/// larger one, so that the distance of a pair is the smallest gap with which it is closed. Of equal
/// distances the pair with the earlier elements counts.
///
/// `networks` are those of the drawing, at the tolerance at which ends meet.
///
/// Returns: pairs by ascending distance; none for a gap that is not a number or below 0.
/// Cost: near n log n for n loose ends, however they lie.
std::vector<LooseEndPair> PairLooseEnds(const Drawing& drawing,
                                        const std::vector<Network>& networks, double gap);

}  // namespace drawing
