#include "drawing/ArcIndex.h"

#include "drawing/CurveMeasures.h"

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

constexpr std::size_t kLeafSize = 8;

enum Key { kCentreX, kCentreY, kRadius, kBoxX, kBoxY };

// Of distances, as a share of them; far more than there can be.
constexpr double kRounding = 1.0e-12;

// Halved first, so that no sum overflows.
double HalfWay(double a, double b) { return 0.5 * a + 0.5 * b; }

}  // namespace

void ArcIndex::Add(std::size_t rank, GX2DArc& arc) {
  const Box box = BoxOf(arc);
  entries_.push_back({rank,
                      {arc.Center.X, arc.Center.Y, arc.Radius(), HalfWay(box.minX, box.maxX),
                       HalfWay(box.minY, box.maxY)},
                      box});
}

void ArcIndex::Build() {
  if (!entries_.empty()) Build(0, entries_.size(), 0);
}

ArcIndex::Node ArcIndex::NodeOf(std::size_t first, std::size_t last) const {
  const Entry& one = entries_[first];
  Node node = {one.keys, one.keys, one.box, one.rank, first, last, 0, 0};
  for (std::size_t i = first; i < last; ++i) {
    const Entry& entry = entries_[i];
    for (std::size_t k = 0; k < kKeys; ++k) {
      node.low[k] = std::min(node.low[k], entry.keys[k]);
      node.high[k] = std::max(node.high[k], entry.keys[k]);
    }
    node.box = {std::min(node.box.minX, entry.box.minX), std::min(node.box.minY, entry.box.minY),
                std::max(node.box.maxX, entry.box.maxX), std::max(node.box.maxY, entry.box.maxY)};
    node.leastRank = std::min(node.leastRank, entry.rank);
  }
  return node;
}

// Keys take turns, but for those in which all arcs are alike. The depth is the logarithm of the
// number of arcs, since every step halves them.
std::size_t ArcIndex::Build(std::size_t first, std::size_t last, std::size_t key) {
  const std::size_t index = nodes_.size();
  nodes_.push_back(NodeOf(first, last));
  if (last - first <= kLeafSize) return index;
  for (std::size_t k = 0; k < kKeys && !(nodes_[index].low[key] < nodes_[index].high[key]); ++k) {
    key = (key + 1) % kKeys;
  }
  const std::size_t middle = first + (last - first) / 2;
  const auto at = [&](std::size_t i) { return entries_.begin() + static_cast<std::ptrdiff_t>(i); };
  std::nth_element(at(first), at(middle), at(last), [key](const Entry& a, const Entry& b) {
    return a.keys[key] != b.keys[key] ? a.keys[key] < b.keys[key] : a.rank < b.rank;
  });
  const std::size_t next = (key + 1) % kKeys;
  const std::size_t left = Build(first, middle, next);
  const std::size_t right = Build(middle, last, next);
  nodes_[index].left = left;
  nodes_[index].right = right;
  return index;
}

// Whether a circle whose centre and radius lie between the bounds may run near all points.
bool ArcIndex::MayLieOn(const Query& query, const Keys& low, const Keys& high) const {
  return std::all_of(query.points.begin(), query.points.end(), [&](const GX2DPoint& p) {
    const double nearX = std::max({low[kCentreX] - p.X, 0.0, p.X - high[kCentreX]});
    const double nearY = std::max({low[kCentreY] - p.Y, 0.0, p.Y - high[kCentreY]});
    const double farX = std::max(high[kCentreX] - p.X, p.X - low[kCentreX]);
    const double farY = std::max(high[kCentreY] - p.Y, p.Y - low[kCentreY]);
    const double farthest = std::hypot(farX, farY);
    const double slack = tolerance_ + kRounding * (farthest + high[kRadius]);
    return !(std::hypot(nearX, nearY) > high[kRadius] + slack) &&
           !(farthest < low[kRadius] - slack);
  });
}

void ArcIndex::Search(const Query& query, std::size_t index,
                      std::vector<std::size_t>& found) const {
  const Node& node = nodes_[index];
  if (node.leastRank >= query.rank || !Meet(node.box, query.box)) return;
  if (!MayLieOn(query, node.low, node.high)) return;
  if (node.left != 0) {
    Search(query, node.left, found);
    Search(query, node.right, found);
    return;
  }
  for (std::size_t i = node.first; i < node.last; ++i) {
    const Entry& entry = entries_[i];
    if (entry.rank < query.rank && Meet(entry.box, query.box) &&
        MayLieOn(query, entry.keys, entry.keys)) {
      found.push_back(entry.rank);
    }
  }
}

void ArcIndex::Find(GX2DArc& arc, std::size_t rank, std::vector<std::size_t>& found) const {
  if (nodes_.empty()) return;
  const Query query = {{PointAt(arc, 0.0), PointAt(arc, 0.5), PointAt(arc, 1.0)},
                       Grown(BoxOf(arc), tolerance_),
                       rank};
  Search(query, 0, found);
}

}  // namespace drawing
