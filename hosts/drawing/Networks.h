// The connected networks of a drawing, with their loose ends and junctions; nothing is changed.
#pragma once

#include "drawing/Drawing.h"

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <cstddef>
#include <vector>

namespace drawing {

/// What a network is.
enum class NetworkKind {
  kClosed,     ///< A loop: two ends meet at every node; or a single full circle.
  kOpen,       ///< A chain: two loose ends, two ends meeting at every other node.
  kBranching,  ///< Three or more ends meet at some node.
  kSpeck       ///< All of it lies within the gap: no loop, and no chain of any length.
};

/// "closed", "open", "branching" or "speck".
const char* NetworkKindName(NetworkKind kind);

/// An end of an element that no other end meets.
struct LooseEnd {
  GX2DPoint point;
  std::size_t element = 0;  ///< Index into Drawing::elements.
  bool atStart = false;     ///< Start or end of that element.
  bool hasNearest = false;  ///< False where the drawing has no other loose end.
  GX2DPoint nearest;        ///< The nearest other loose end of the whole drawing.
  double distance = 0.0;    ///< To it, in millimetres.
};

/// A node where three or more ends meet.
struct Junction {
  GX2DPoint point;                    ///< Of the first end that meets there.
  std::vector<std::size_t> elements;  ///< Indices into Drawing::elements, sorted, one per end.
};

/// Elements that hang together by their ends.
struct Network {
  std::vector<std::size_t> elements;  ///< Indices into Drawing::elements, sorted.
  std::vector<std::size_t> specks;    ///< Those of them whose both ends are one node.
  NetworkKind kind = NetworkKind::kSpeck;
  std::vector<LooseEnd> looseEnds;  ///< By element, the start before the end.
  std::vector<Junction> junctions;  ///< By first element.
};

/// Splits the elements of a drawing into connected networks.
///
/// Ends meet when both coordinates differ by at most `gap` (inclusive), and ends that meet a common
/// third meet: they form a node. A full circle (GX2DArc::IsCircle) is a network of its own, since
/// it has no ends. An element whose two ends are one node is a speck: it hangs together with its
/// neighbours and its ends are not counted, unless it is an arc that leads around and back; that is
/// a loop at its node.
///
/// Returns: the networks in the order of their first element.
/// Degenerate: a `gap` that is not above 0 joins equal points only; ends that are not finite meet
///   nothing; null elements are in no network.
/// Cost: n log n for n elements, however they lie.
std::vector<Network> FindNetworks(const Drawing& drawing, double gap = 0.0001);

/// The same without the nearest other loose end of each, for which most of the time is spent in
/// drawings with many of them.
std::vector<Network> FindNetworksOnly(const Drawing& drawing, double gap = 0.0001);

/// Stands for the node of an end that meets nothing because there is no end.
inline constexpr std::size_t kNoNode = static_cast<std::size_t>(-1);

/// The node of every end, joined as by FindNetworks: of the start of element i at 2 i, of its end
/// at 2 i + 1. Ends with the same number meet. Circles and null elements have kNoNode.
std::vector<std::size_t> FindNodes(const Drawing& drawing, double gap = 0.0001);

}  // namespace drawing
