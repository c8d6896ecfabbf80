// The nearest neighbour of each point of a set.
#pragma once

#include <cstddef>
#include <vector>

namespace drawing {

/// Finds the nearest other point of a set, exactly, in a tree of boxes that halves the points along
/// the longer side of their box (a k-d tree, after J. L. Bentley, 1975).
class NearestPoints {
 public:
  /// All coordinates must be finite.
  NearestPoints(std::vector<double> x, std::vector<double> y);

  /// The point nearest to point `i`, and its distance; among equally near ones the first.
  ///
  /// Returns: false, outputs untouched, where there is no other point.
  bool NearestOther(std::size_t i, std::size_t& other, double& distance) const {
    return NearestOther(i, i, other, distance);
  }

  /// The same, with the point `except` passed over as well.
  bool NearestOther(std::size_t i, std::size_t except, std::size_t& other, double& distance) const;

  /// Takes a point out: from then on it is nobody's nearest. It may still be asked for its own.
  void Remove(std::size_t i);

 private:
  struct Node {
    double minX, minY, maxX, maxY;
    std::size_t first, last;  // Range in order_, last excluded.
    std::size_t left, right;  // Indices of nodes, 0 in leaves.
    std::size_t present;      // Points in the range that were not removed.
  };
  struct Best {
    std::size_t except;
    std::size_t point;
    double distance;
    bool found;
  };

  std::size_t Build(std::size_t first, std::size_t last);
  double LeastDistance(std::size_t i, const Node& node) const;
  void SearchLeaf(std::size_t i, const Node& node, Best& best) const;
  void Search(std::size_t i, std::size_t index, Best& best) const;

  std::vector<double> x_;
  std::vector<double> y_;
  std::vector<std::size_t> order_;
  std::vector<std::size_t> positions_;  // Of the points in order_.
  std::vector<bool> removed_;
  std::vector<Node> nodes_;
};

}  // namespace drawing
