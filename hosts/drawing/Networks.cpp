// Ends are joined in one sweep in the direction of x over a window that is ordered by y. Any two
// ends of the window are within the gap in x; those of them that are also within the gap of a new
// end in y, on the same side of it, are within the gap of each other. So a new end need only be
// joined with its next neighbour on either side, and dense heaps cost no more than scattered ends.
#include "drawing/Networks.h"

#include "drawing/NearestPoints.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>
#include <tuple>
#include <utility>

namespace drawing {
namespace {

constexpr std::size_t kNone = kNoNode;

// Ends are numbered 2 i (start) and 2 i + 1 (end of element i).
struct ElementEnds {
  std::vector<GX2DElement*> elements;
  std::vector<double> x;
  std::vector<double> y;
  std::vector<bool> hasEnds;  // By element; false for circles and null entries.

  bool IsFinite(std::size_t end) const { return std::isfinite(x[end]) && std::isfinite(y[end]); }
};

class DisjointSets {
 public:
  explicit DisjointSets(std::size_t count) : parent_(count) {
    std::iota(parent_.begin(), parent_.end(), std::size_t{0});
  }

  std::size_t Find(std::size_t i) {
    while (parent_[i] != i) {
      parent_[i] = parent_[parent_[i]];
      i = parent_[i];
    }
    return i;
  }

  // The smaller number becomes the name of the set, which keeps all results in order.
  void Join(std::size_t a, std::size_t b) {
    a = Find(a);
    b = Find(b);
    if (a != b) parent_[std::max(a, b)] = std::min(a, b);
  }

 private:
  std::vector<std::size_t> parent_;
};

bool IsCircle(GX2DElement* element) {
  const auto* arc = dynamic_cast<const GX2DArc*>(element);
  return arc != nullptr && arc->IsCircle();
}

ElementEnds CollectEnds(const Drawing& drawing) {
  const std::size_t count = drawing.elements.size();
  ElementEnds ends;
  ends.elements.resize(count, nullptr);
  ends.x.resize(2 * count, 0.0);
  ends.y.resize(2 * count, 0.0);
  ends.hasEnds.resize(count, false);
  for (std::size_t i = 0; i < count; ++i) {
    GX2DElement* element = drawing.elements[i].element.get();
    ends.elements[i] = element;
    if (element == nullptr || IsCircle(element)) continue;
    ends.hasEnds[i] = true;
    ends.x[2 * i] = element->GetStartPoint().X;
    ends.y[2 * i] = element->GetStartPoint().Y;
    ends.x[2 * i + 1] = element->GetEndPoint().X;
    ends.y[2 * i + 1] = element->GetEndPoint().Y;
  }
  return ends;
}

std::vector<std::size_t> FiniteEndsByX(const ElementEnds& ends) {
  std::vector<std::size_t> order;
  for (std::size_t end = 0; end < ends.x.size(); ++end) {
    if (ends.hasEnds[end / 2] && ends.IsFinite(end)) order.push_back(end);
  }
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return std::tie(ends.x[a], ends.y[a], a) < std::tie(ends.x[b], ends.y[b], b);
  });
  return order;
}

DisjointSets JoinEnds(const ElementEnds& ends, double gap) {
  DisjointSets nodes(ends.x.size());
  const std::vector<std::size_t> order = FiniteEndsByX(ends);
  std::set<std::pair<double, std::size_t>> window;
  std::size_t oldest = 0;
  for (const std::size_t end : order) {
    const double x = ends.x[end];
    const double y = ends.y[end];
    for (; x - ends.x[order[oldest]] > gap; ++oldest) {
      window.erase({ends.y[order[oldest]], order[oldest]});
    }
    const auto above = window.lower_bound({y, 0});
    if (above != window.end() && above->first - y <= gap) nodes.Join(above->second, end);
    if (above != window.begin()) {
      const auto below = std::prev(above);
      if (y - below->first <= gap) nodes.Join(below->second, end);
    }
    window.insert(above, {y, end});
  }
  return nodes;
}

// An arc whose ends are one node but whose middle lies elsewhere leads around and back.
bool LeadsAround(GX2DElement* element, double gap) {
  auto* arc = dynamic_cast<GX2DArc*>(element);
  return arc != nullptr && !arc->Mid.IsAlmostEq(arc->Start, gap);
}

struct Nodes {
  std::vector<std::size_t> nodeOfEnd;
  std::vector<bool> isSpeck;            // By element.
  std::vector<std::size_t> endsAtNode;  // By name of the node; specks do not count.
};

Nodes CountEnds(const ElementEnds& ends, DisjointSets& sets, double gap) {
  Nodes nodes;
  nodes.nodeOfEnd.resize(ends.x.size(), kNone);
  nodes.isSpeck.resize(ends.elements.size(), false);
  nodes.endsAtNode.resize(ends.x.size(), 0);
  for (std::size_t i = 0; i < ends.elements.size(); ++i) {
    if (!ends.hasEnds[i]) continue;
    const std::size_t start = sets.Find(2 * i);
    const std::size_t end = sets.Find(2 * i + 1);
    nodes.nodeOfEnd[2 * i] = start;
    nodes.nodeOfEnd[2 * i + 1] = end;
    nodes.isSpeck[i] = start == end && !LeadsAround(ends.elements[i], gap);
    if (nodes.isSpeck[i]) continue;
    ++nodes.endsAtNode[start];
    ++nodes.endsAtNode[end];
  }
  return nodes;
}

// Networks hold their elements; the index of the network of each element is returned.
std::vector<std::size_t> GroupElements(const ElementEnds& ends, const Nodes& nodes,
                                       std::vector<Network>& networks) {
  const std::size_t count = ends.elements.size();
  DisjointSets sets(count);
  std::vector<std::size_t> firstAtNode(ends.x.size(), kNone);
  for (std::size_t end = 0; end < ends.x.size(); ++end) {
    const std::size_t node = nodes.nodeOfEnd[end];
    if (node == kNone) continue;
    if (firstAtNode[node] == kNone) firstAtNode[node] = end / 2;
    sets.Join(firstAtNode[node], end / 2);
  }
  std::vector<std::size_t> networkOf(count, kNone);
  for (std::size_t i = 0; i < count; ++i) {
    if (ends.elements[i] == nullptr) continue;
    const std::size_t first = sets.Find(i);
    if (networkOf[first] == kNone) {
      networkOf[first] = networks.size();
      networks.emplace_back();
    }
    networkOf[i] = networkOf[first];
    Network& network = networks[networkOf[i]];
    network.elements.push_back(i);
    if (nodes.isSpeck[i]) network.specks.push_back(i);
  }
  return networkOf;
}

void AddLooseEndsAndJunctions(const ElementEnds& ends, const Nodes& nodes,
                              const std::vector<std::size_t>& networkOf,
                              std::vector<Network>& networks) {
  std::vector<std::size_t> junctionOfNode(ends.x.size(), kNone);
  for (std::size_t end = 0; end < ends.x.size(); ++end) {
    const std::size_t node = nodes.nodeOfEnd[end];
    if (node == kNone || nodes.isSpeck[end / 2]) continue;
    Network& network = networks[networkOf[end / 2]];
    const GX2DPoint point(ends.x[end], ends.y[end]);
    if (nodes.endsAtNode[node] == 1) {
      LooseEnd loose;
      loose.point = point;
      loose.element = end / 2;
      loose.atStart = end % 2 == 0;
      network.looseEnds.push_back(loose);
    } else if (nodes.endsAtNode[node] > 2) {
      if (junctionOfNode[node] == kNone) {
        junctionOfNode[node] = network.junctions.size();
        network.junctions.push_back({point, {}});
      }
      network.junctions[junctionOfNode[node]].elements.push_back(end / 2);
    }
  }
}

NetworkKind KindOf(const Network& network) {
  if (!network.junctions.empty()) return NetworkKind::kBranching;
  if (!network.looseEnds.empty()) return NetworkKind::kOpen;
  return network.specks.size() == network.elements.size() ? NetworkKind::kSpeck
                                                          : NetworkKind::kClosed;
}

void MeasureGaps(std::vector<Network>& networks) {
  std::vector<LooseEnd*> all;
  std::vector<double> x;
  std::vector<double> y;
  for (Network& network : networks) {
    for (LooseEnd& loose : network.looseEnds) {
      // An end that is not finite has no distance to anything.
      if (!std::isfinite(loose.point.X) || !std::isfinite(loose.point.Y)) continue;
      all.push_back(&loose);
      x.push_back(loose.point.X);
      y.push_back(loose.point.Y);
    }
  }
  const NearestPoints nearest(std::move(x), std::move(y));
  for (std::size_t i = 0; i < all.size(); ++i) {
    std::size_t other = 0;
    if (!nearest.NearestOther(i, other, all[i]->distance)) continue;
    all[i]->hasNearest = true;
    all[i]->nearest = all[other]->point;
  }
}

}  // namespace

const char* NetworkKindName(NetworkKind kind) {
  switch (kind) {
    case NetworkKind::kClosed:
      return "closed";
    case NetworkKind::kOpen:
      return "open";
    case NetworkKind::kBranching:
      return "branching";
    case NetworkKind::kSpeck:
      break;
  }
  return "speck";
}

std::vector<Network> FindNetworks(const Drawing& drawing, double gap) {
  std::vector<Network> networks = FindNetworksOnly(drawing, gap);
  MeasureGaps(networks);
  return networks;
}

std::vector<Network> FindNetworksOnly(const Drawing& drawing, double gap) {
  if (!(gap > 0.0)) gap = 0.0;
  const ElementEnds ends = CollectEnds(drawing);
  DisjointSets sets = JoinEnds(ends, gap);
  const Nodes nodes = CountEnds(ends, sets, gap);
  std::vector<Network> networks;
  const std::vector<std::size_t> networkOf = GroupElements(ends, nodes, networks);
  AddLooseEndsAndJunctions(ends, nodes, networkOf, networks);
  for (Network& network : networks) network.kind = KindOf(network);
  return networks;
}

std::vector<std::size_t> FindNodes(const Drawing& drawing, double gap) {
  if (!(gap > 0.0)) gap = 0.0;
  const ElementEnds ends = CollectEnds(drawing);
  DisjointSets sets = JoinEnds(ends, gap);
  return CountEnds(ends, sets, gap).nodeOfEnd;
}

}  // namespace drawing
