// Finds elements that are the same curve as one that came before.
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace drawing {

/// Elements by their ends, circles by centre and radius, in the cells of a grid.
class DuplicateIndex {
 public:
  explicit DuplicateIndex(double tolerance) : tolerance_(tolerance) {}

  /// The first element that was added and is the same curve (AreSameCurve); where there is none,
  /// the element itself is added under its number.
  ///
  /// Elements must be lines or arcs with finite coordinates and must outlive the index. Numbers
  /// must ascend.
  std::size_t FindOrAdd(GX2DElement& element, std::size_t number);

 private:
  using Place = std::array<double, 4>;
  struct Entry {
    GX2DElement* element;
    std::size_t number;
  };

  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  std::size_t Find(GX2DElement& element, const Place& place, int kind) const;

  double tolerance_;
  std::unordered_map<std::uint64_t, std::vector<Entry>> entries_;
};

}  // namespace drawing
