#include "drawing/Boxes.h"

#include "drawing/CurveMeasures.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace drawing {

namespace {

constexpr std::size_t kLeafSize = 8;

// In millimetres: so far an extreme of the circle may lie beside its arc and is taken in.
constexpr double kExtremeSlack = 0.0001;

void Widen(Box& box, double x, double y) {
  box.minX = std::min(box.minX, x);
  box.minY = std::min(box.minY, y);
  box.maxX = std::max(box.maxX, x);
  box.maxY = std::max(box.maxY, y);
}

}  // namespace

bool Holds(const Box& outer, const Box& inner, double slack) {
  return inner.minX >= outer.minX - slack && inner.minY >= outer.minY - slack &&
         inner.maxX <= outer.maxX + slack && inner.maxY <= outer.maxY + slack;
}

bool Meet(const Box& p, const Box& q) {
  return p.minX <= q.maxX && q.minX <= p.maxX && p.minY <= q.maxY && q.minY <= p.maxY;
}

Box Grown(const Box& box, double margin) {
  return {box.minX - margin, box.minY - margin, box.maxX + margin, box.maxY + margin};
}

Box BoxOf(GX2DElement& element) {
  const GX2DPoint& start = element.GetStartPoint();
  const GX2DPoint& end = element.GetEndPoint();
  Box box = {start.X, start.Y, start.X, start.Y};
  Widen(box, end.X, end.Y);
  const auto* arc = dynamic_cast<const GX2DArc*>(&element);
  if (arc == nullptr) return box;
  const double radius = arc->Radius();
  const GX2DPoint& centre = arc->Center;
  for (const GX2DPoint& extreme :
       {GX2DPoint(centre.X + radius, centre.Y), GX2DPoint(centre.X, centre.Y + radius),
        GX2DPoint(centre.X - radius, centre.Y), GX2DPoint(centre.X, centre.Y - radius)}) {
    if (DistanceToElement(extreme, element) <= kExtremeSlack) Widen(box, extreme.X, extreme.Y);
  }
  return box;
}

BoxTree::BoxTree(std::vector<Box> boxes) : boxes_(std::move(boxes)), order_(boxes_.size()) {
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  if (!order_.empty()) Build(0, order_.size());
}

// The depth is the logarithm of the number of boxes, since every step halves them.
std::size_t BoxTree::Build(std::size_t first, std::size_t last) {
  Node node{boxes_[order_[first]], first, last, 0, 0};
  for (std::size_t i = first; i < last; ++i) {
    const Box& box = boxes_[order_[i]];
    Widen(node.box, box.minX, box.minY);
    Widen(node.box, box.maxX, box.maxY);
  }
  const std::size_t index = nodes_.size();
  nodes_.push_back(node);
  if (last - first <= kLeafSize) return index;
  const std::size_t middle = first + (last - first) / 2;
  const bool alongX = node.box.maxX - node.box.minX >= node.box.maxY - node.box.minY;
  // Half of the sum would be the middle; halved first, it cannot overflow.
  const auto key = [&](std::size_t i) {
    const Box& box = boxes_[i];
    return alongX ? 0.5 * box.minX + 0.5 * box.maxX : 0.5 * box.minY + 0.5 * box.maxY;
  };
  const auto at = [&](std::size_t i) { return order_.begin() + static_cast<std::ptrdiff_t>(i); };
  std::nth_element(at(first), at(middle), at(last), [&](std::size_t a, std::size_t b) {
    return key(a) != key(b) ? key(a) < key(b) : a < b;
  });
  const std::size_t left = Build(first, middle);
  const std::size_t right = Build(middle, last);
  nodes_[index].left = left;
  nodes_[index].right = right;
  return index;
}

void BoxTree::Find(std::size_t index, const Box& box, std::vector<std::size_t>& found) const {
  const Node& node = nodes_[index];
  if (!Meet(node.box, box)) return;
  if (node.left != 0) {
    Find(node.left, box, found);
    Find(node.right, box, found);
    return;
  }
  for (std::size_t i = node.first; i < node.last; ++i) {
    if (Meet(boxes_[order_[i]], box)) found.push_back(order_[i]);
  }
}

void BoxTree::FindMeeting(const Box& box, std::vector<std::size_t>& found) const {
  found.clear();
  if (!nodes_.empty()) Find(0, box, found);
}

}  // namespace drawing
