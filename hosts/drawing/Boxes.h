// Axis-parallel boxes in the plane, and a tree that finds those which meet a given one.
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <cstddef>
#include <vector>

namespace drawing {

/// Axis-parallel box in the plane, millimetres.
struct Box {
  double minX = 0.0;
  double minY = 0.0;
  double maxX = 0.0;
  double maxY = 0.0;
};

/// Whether `inner` reaches beyond no side of `outer` by more than `slack`, inclusive.
bool Holds(const Box& outer, const Box& inner, double slack);

/// Whether two boxes have a point in common, touching included.
bool Meet(const Box& p, const Box& q);

/// The box, wider by `margin` on every side.
Box Grown(const Box& box, double margin);

/// The box of a line or an arc, exact but for 0.0001 by which an extreme of the circle may lie
/// beside the arc; of other kinds that of start and end.
Box BoxOf(GX2DElement& element);

/// Finds boxes of a set, in a tree that halves them along the longer side of what they cover.
class BoxTree {
 public:
  /// All coordinates must be finite. Cost: n log n.
  explicit BoxTree(std::vector<Box> boxes);

  /// Replaces `found` by the indices of the boxes that meet `box`, in no order to rely on.
  ///
  /// Cost: log n for boxes that lie apart, plus the number of those found.
  void FindMeeting(const Box& box, std::vector<std::size_t>& found) const;

 private:
  struct Node {
    Box box;
    std::size_t first = 0;  // Range in order_, last excluded.
    std::size_t last = 0;
    std::size_t left = 0;  // Indices of nodes, 0 in leaves.
    std::size_t right = 0;
  };

  std::size_t Build(std::size_t first, std::size_t last);
  void Find(std::size_t index, const Box& box, std::vector<std::size_t>& found) const;

  std::vector<Box> boxes_;
  std::vector<std::size_t> order_;
  std::vector<Node> nodes_;
};

}  // namespace drawing
