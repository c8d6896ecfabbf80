// The elements of a drawing as strokes of a pen that is lifted as seldom as possible. A dashed line
// of many short elements is seen to be dashed only where it is drawn in one stroke.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/Networks.h"
#include "drawing/SvgScene.h"

#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

/// An element on the way of the pen.
struct DrawnStroke {
  std::size_t element = 0;  ///< Index into Drawing::elements.
  bool backward = false;    ///< From its end to its start.
};

/// Elements that follow one another.
struct DrawnChain {
  std::vector<DrawnStroke> strokes;
  bool closed = false;                    ///< The last leads back to where the first begins.
  NetworkKind kind = NetworkKind::kOpen;  ///< Of the network they belong to.
};

/// All elements in chains: from loose ends and junctions first, then loops. Chains end at
/// junctions. Elements whose both ends are one node, and networks that are specks, are in none.
///
/// `networks` are those of the drawing, at the tolerance of FindNodes.
/// Cost: n log n.
std::vector<DrawnChain> ChainsOf(const Drawing& drawing, const std::vector<Network>& networks);

/// The path along a chain.
std::string ChainPathData(const SvgScene& scene, const Drawing& drawing, const DrawnChain& chain);

}  // namespace drawing
