#include "drawing/NearestPoints.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace drawing {
namespace {

constexpr std::size_t kLeafSize = 8;

// Distances are taken between quartered coordinates, where none can overflow; a power of two costs
// no accuracy.
constexpr double kQuarter = 0.25;

}  // namespace

NearestPoints::NearestPoints(std::vector<double> x, std::vector<double> y)
    : x_(std::move(x)),
      y_(std::move(y)),
      order_(x_.size()),
      positions_(x_.size()),
      removed_(x_.size(), false) {
  for (double& value : x_) value *= kQuarter;
  for (double& value : y_) value *= kQuarter;
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  if (!order_.empty()) Build(0, order_.size());
  for (std::size_t k = 0; k < order_.size(); ++k) positions_[order_[k]] = k;
}

// The depth is the logarithm of the number of points, since every step halves them.
std::size_t NearestPoints::Build(std::size_t first, std::size_t last) {
  Node node{
      x_[order_[first]], y_[order_[first]], x_[order_[first]], y_[order_[first]], first, last, 0, 0,
      last - first};
  for (std::size_t i = first; i < last; ++i) {
    node.minX = std::min(node.minX, x_[order_[i]]);
    node.maxX = std::max(node.maxX, x_[order_[i]]);
    node.minY = std::min(node.minY, y_[order_[i]]);
    node.maxY = std::max(node.maxY, y_[order_[i]]);
  }
  const std::size_t index = nodes_.size();
  nodes_.push_back(node);
  if (last - first <= kLeafSize) return index;
  const std::size_t middle = first + (last - first) / 2;
  const std::vector<double>& key = node.maxX - node.minX >= node.maxY - node.minY ? x_ : y_;
  const auto at = [&](std::size_t i) { return order_.begin() + static_cast<std::ptrdiff_t>(i); };
  std::nth_element(at(first), at(middle), at(last), [&](std::size_t a, std::size_t b) {
    return key[a] != key[b] ? key[a] < key[b] : a < b;
  });
  const std::size_t left = Build(first, middle);
  const std::size_t right = Build(middle, last);
  nodes_[index].left = left;
  nodes_[index].right = right;
  return index;
}

// The larger of the two coordinate distances: never above the true one, and quicker.
double NearestPoints::LeastDistance(std::size_t i, const Node& node) const {
  const double dx = std::max({node.minX - x_[i], 0.0, x_[i] - node.maxX});
  const double dy = std::max({node.minY - y_[i], 0.0, y_[i] - node.maxY});
  return std::max(dx, dy);
}

void NearestPoints::SearchLeaf(std::size_t i, const Node& node, Best& best) const {
  for (std::size_t k = node.first; k < node.last; ++k) {
    const std::size_t other = order_[k];
    if (other == i || other == best.except || removed_[other]) continue;
    const double dx = x_[other] - x_[i];
    const double dy = y_[other] - y_[i];
    if (best.found && (std::fabs(dx) > best.distance || std::fabs(dy) > best.distance)) continue;
    const double distance = std::hypot(dx, dy);
    const bool nearer = distance < best.distance;
    const bool asNearAndBefore = distance == best.distance && other < best.point;
    if (best.found && !nearer && !asNearAndBefore) continue;
    best.point = other;
    best.distance = distance;
    best.found = true;
  }
}

void NearestPoints::Search(std::size_t i, std::size_t index, Best& best) const {
  const Node& node = nodes_[index];
  if (node.present == 0) return;
  if (best.found && LeastDistance(i, node) > best.distance) return;
  if (node.left == 0) {
    SearchLeaf(i, node, best);
    return;
  }
  std::size_t near = node.left;
  std::size_t far = node.right;
  if (LeastDistance(i, nodes_[far]) < LeastDistance(i, nodes_[near])) std::swap(near, far);
  Search(i, near, best);
  Search(i, far, best);
}

bool NearestPoints::NearestOther(std::size_t i, std::size_t except, std::size_t& other,
                                 double& distance) const {
  if (i >= x_.size()) return false;
  Best best{except, 0, 0.0, false};
  Search(i, 0, best);
  if (!best.found) return false;
  other = best.point;
  distance = best.distance / kQuarter;
  return true;
}

void NearestPoints::Remove(std::size_t i) {
  if (i >= x_.size() || removed_[i]) return;
  removed_[i] = true;
  std::size_t index = 0;
  for (;;) {
    Node& node = nodes_[index];
    --node.present;
    if (node.left == 0) return;
    index = positions_[i] < nodes_[node.left].last ? node.left : node.right;
  }
}

}  // namespace drawing
