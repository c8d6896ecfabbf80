// Finds the arcs on whose circle another arc may lie.
#pragma once

#include "drawing/Boxes.h"

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <array>
#include <cstddef>
#include <vector>

namespace drawing {

/// Arcs with finite coordinates by centre, radius and box, in a k-d tree: arcs about one centre are
/// told apart by their radii, those of one circle by their places.
class ArcIndex {
 public:
  /// `tolerance` is how far, in millimetres, points may lie beside a circle and boxes apart.
  explicit ArcIndex(double tolerance) : tolerance_(tolerance) {}

  /// Ranks must be different from one another.
  void Add(std::size_t rank, GX2DArc& arc);

  /// To be called once, when all are added.
  void Build();

  /// Appends the ranks below `rank` of arcs whose box is near that of `arc` and whose circle may be
  /// near its ends and its middle: all that are, and few others.
  void Find(GX2DArc& arc, std::size_t rank, std::vector<std::size_t>& found) const;

 private:
  // Centre, radius, middle of the box.
  static constexpr std::size_t kKeys = 5;
  using Keys = std::array<double, kKeys>;

  struct Entry {
    std::size_t rank;
    Keys keys;
    Box box;
  };
  struct Node {
    Keys low, high;
    Box box;
    std::size_t leastRank;
    std::size_t first, last;  // Range in entries_, last excluded.
    std::size_t left, right;  // Indices of nodes, 0 in leaves.
  };
  struct Query {
    std::array<GX2DPoint, 3> points;
    Box box;
    std::size_t rank;
  };

  Node NodeOf(std::size_t first, std::size_t last) const;
  std::size_t Build(std::size_t first, std::size_t last, std::size_t key);
  bool MayLieOn(const Query& query, const Keys& low, const Keys& high) const;
  void Search(const Query& query, std::size_t index, std::vector<std::size_t>& found) const;

  double tolerance_;
  std::vector<Entry> entries_;
  std::vector<Node> nodes_;
};

}  // namespace drawing
