// A tree of boxes over a row of elements, and the pairs of elements whose boxes touch. It lives
// inside one call. The tree is packed without pointers: eight neighbours in the row form a node,
// eight nodes one of the next level, and so on up to a single node.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>
#include <vector>

namespace ktrcl_internal {

/// Closed box with sides along the axes; infinite sides are welcome, NaN is not.
struct Box {
  double minX;
  double minY;
  double maxX;
  double maxY;
};

inline bool Touch(const Box& a, const Box& b) {
  return a.minX <= b.maxX && b.minX <= a.maxX && a.minY <= b.maxY && b.minY <= a.maxY;
}

/// The box that touches every other.
inline Box Everywhere() {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  return {-kInfinity, -kInfinity, kInfinity, kInfinity};
}

inline Box Union(const Box& a, const Box& b) {
  return {std::min(a.minX, b.minX), std::min(a.minY, b.minY), std::max(a.maxX, b.maxX),
          std::max(a.maxY, b.maxY)};
}

inline double HalfPerimeter(const Box& box) {
  return (box.maxX - box.minX) + (box.maxY - box.minY);
}

/// Boxes in levels: level 0 holds those of the elements, in their order.
class BoxTree {
 public:
  static constexpr std::size_t kFanOut = 8;

  /// Requires: at least one box.
  explicit BoxTree(std::vector<Box> boxes) : boxes_(std::move(boxes)) {
    starts_ = {0, boxes_.size()};
    do AddLevel();
    while (CountAt(Top()) > 1);
  }

  /// Number of boxes in a tree over so many elements: room for them spares a copy.
  static std::size_t RoomFor(std::size_t elements) {
    return elements + elements / (kFanOut - 1) + kMostLevels;
  }

  /// The level of the node that holds everything.
  std::size_t Top() const { return starts_.size() - 2; }

  /// Puts levels of a single node on top until there are as many as asked for.
  void RaiseTo(std::size_t top) {
    while (Top() < top) AddLevel();
  }

  std::size_t CountAt(std::size_t level) const { return starts_[level + 1] - starts_[level]; }

  const Box& At(std::size_t level, std::size_t node) const { return boxes_[starts_[level] + node]; }

  /// First child of a node, one level below, and the one behind its last.
  std::pair<std::size_t, std::size_t> Children(std::size_t level, std::size_t node) const {
    return {node * kFanOut, std::min((node + 1) * kFanOut, CountAt(level - 1))};
  }

  /// Box of all elements but those that are infinite.
  Box FiniteWhole() const {
    const Box& top = At(Top(), 0);
    if (std::isfinite(HalfPerimeter(top))) return top;
    Box whole = {0.0, 0.0, 0.0, 0.0};
    bool isFirst = true;
    for (std::size_t i = 0; i < CountAt(0); ++i) {
      if (!std::isfinite(HalfPerimeter(At(0, i)))) continue;
      whole = isFirst ? At(0, i) : Union(whole, At(0, i));
      isFirst = false;
    }
    return whole;
  }

  /// Whether elements that follow each other in the row also lie beside each other, as in a
  /// contour. The boxes of the lowest nodes then hardly spread further than their elements do; a
  /// few jumps of the row are let pass. Infinite boxes, for which no order is better, do not count.
  bool IsCoherent() const {
    constexpr double kSpread = 2.0;
    constexpr double kJumps = 8.0;
    return FiniteSumAt(1) <= kSpread * FiniteSumAt(0) + kJumps * HalfPerimeter(FiniteWhole());
  }

  /// Appends the elements whose boxes touch `box`, in order.
  void AppendTouching(const Box& box, std::vector<std::size_t>& elements) const {
    if (Touch(box, At(Top(), 0))) AppendTouching(box, Top(), 0, elements);
  }

 private:
  // Each level may have one node that is not full.
  static constexpr std::size_t kMostLevels = 24;

  void AddLevel() {
    const std::size_t level = Top();
    const std::size_t count = CountAt(level);
    for (std::size_t first = 0; first < count; first += kFanOut) {
      Box box = At(level, first);
      const std::size_t behind = std::min(first + kFanOut, count);
      for (std::size_t i = first + 1; i < behind; ++i) box = Union(box, At(level, i));
      boxes_.push_back(box);
    }
    starts_.push_back(boxes_.size());
  }

  double FiniteSumAt(std::size_t level) const {
    double sum = 0.0;
    for (std::size_t i = 0; i < CountAt(level); ++i) {
      const double size = HalfPerimeter(At(level, i));
      if (std::isfinite(size)) sum += size;
    }
    return sum;
  }

  void AppendTouching(const Box& box, std::size_t level, std::size_t node,
                      std::vector<std::size_t>& elements) const {
    const auto [first, behind] = Children(level, node);
    for (std::size_t child = first; child < behind; ++child) {
      if (!Touch(box, At(level - 1, child))) continue;
      if (level == 1) {
        elements.push_back(child);
      } else {
        AppendTouching(box, level - 1, child, elements);
      }
    }
  }

  std::vector<Box> boxes_;
  std::vector<std::size_t> starts_;  ///< Where each level begins, and where the last one ends.
};

/// Walks down two trees at once and visits the pairs of elements whose boxes touch: first by the
/// element of the outer tree, then by that of the inner one, both in order. Below every outer node
/// only those inner nodes of the same level are carried along that touch it.
template <typename Visit>
class TouchingPairs {
 public:
  /// Requires: trees of the same height. With `laterOnly`, which is for a tree with itself, the
  ///   inner element comes behind the outer one.
  TouchingPairs(const BoxTree& outer, const BoxTree& inner, bool laterOnly, Visit& visit)
      : outer_(outer),
        inner_(inner),
        laterOnly_(laterOnly),
        visit_(visit),
        touching_(outer.Top() + 1) {}

  /// Returns: false as soon as a visit answers false, true otherwise.
  bool Run() {
    touching_[outer_.Top()].push_back(0);
    return Walk(outer_.Top(), 0);
  }

 private:
  bool Walk(std::size_t level, std::size_t node) {
    const auto [first, behind] = outer_.Children(level, node);
    for (std::size_t child = first; child < behind; ++child) {
      if (level == 1) {
        if (!VisitElement(child)) return false;
        continue;
      }
      CollectTouching(level, child);
      if (!touching_[level - 1].empty() && !Walk(level - 1, child)) return false;
    }
    return true;
  }

  bool VisitElement(std::size_t element) {
    const Box& box = outer_.At(0, element);
    for (const std::size_t node : touching_[1]) {
      const auto [first, behind] = inner_.Children(1, node);
      for (std::size_t i = laterOnly_ ? std::max(first, element + 1) : first; i < behind; ++i) {
        if (Touch(box, inner_.At(0, i)) && !visit_(element, i)) return false;
      }
    }
    return true;
  }

  void CollectTouching(std::size_t level, std::size_t child) {
    const Box& box = outer_.At(level - 1, child);
    std::vector<std::size_t>& found = touching_[level - 1];
    found.clear();
    for (const std::size_t node : touching_[level]) {
      const auto [first, behind] = inner_.Children(level, node);
      for (std::size_t i = laterOnly_ ? std::max(first, child) : first; i < behind; ++i) {
        if (Touch(box, inner_.At(level - 1, i))) found.push_back(i);
      }
    }
  }

  const BoxTree& outer_;
  const BoxTree& inner_;
  bool laterOnly_;
  Visit& visit_;
  std::vector<std::vector<std::size_t>> touching_;  ///< Inner nodes by level.
};

/// Order of boxes along a Hilbert curve through their centres, after Kamel and Faloutsos, "Hilbert
/// R-tree" (1994): rows that jump about become coherent.
class HilbertOrder {
 public:
  /// Order of the elements of a tree. Infinite boxes come first.
  static std::vector<std::size_t> Of(const BoxTree& tree) {
    const Box whole = tree.FiniteWhole();
    std::vector<std::uint32_t> keys(tree.CountAt(0));
    for (std::size_t i = 0; i < keys.size(); ++i) {
      const Box& box = tree.At(0, i);
      keys[i] = DistanceAlong(Cell(box.minX, box.maxX, whole.minX, whole.maxX),
                              Cell(box.minY, box.maxY, whole.minY, whole.maxY));
    }
    std::vector<std::size_t> order(keys.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(),
              [&keys](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
    return order;
  }

 private:
  static constexpr std::uint32_t kBits = 16;
  static constexpr std::uint32_t kCells = 1U << kBits;

  static std::uint32_t Cell(double min, double max, double wholeMin, double wholeMax) {
    const double share = ((min + max) * 0.5 - wholeMin) / (wholeMax - wholeMin);
    if (!(share > 0.0)) return 0;
    return static_cast<std::uint32_t>(std::min(share, 1.0) * (kCells - 1));
  }

  static std::uint32_t DistanceAlong(std::uint32_t x, std::uint32_t y) {
    std::uint32_t distance = 0;
    for (std::uint32_t side = kCells / 2; side > 0; side /= 2) {
      const std::uint32_t right = (x & side) != 0 ? 1 : 0;
      const std::uint32_t upper = (y & side) != 0 ? 1 : 0;
      distance += side * side * ((3 * right) ^ upper);
      // Each quarter holds the same curve, turned over so that its ends meet those of the next.
      if (upper != 0) continue;
      if (right != 0) {
        x = kCells - 1 - x;
        y = kCells - 1 - y;
      }
      std::swap(x, y);
    }
    return distance;
  }
};

}  // namespace ktrcl_internal
