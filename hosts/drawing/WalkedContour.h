// A contour as a ring of corners and middles that can be walked from any side in either sense, so
// that two contours whose sequences match can be laid on each other point by point.
#pragma once

#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <cstddef>
#include <vector>

namespace drawing {

/// Where a walk begins: at a side, and whether against the direction of drawing.
struct WalkStart {
  std::size_t side = 0;
  bool backward = false;
};

/// The points of a closed contour.
class WalkedContour {
 public:
  explicit WalkedContour(const GX2DElmList& elements);

  std::size_t Sides() const;

  /// The points of a walk once around: the corner in front of each side and the middle of that side
  /// (the true middle of an arc), beginning with the side of the start.
  ///
  /// Walks of two contours with as many sides have their points in correspondence.
  std::vector<GX2DPoint> Points(const WalkStart& start) const;

  /// Point `i` of that walk, `i` below twice the number of sides.
  const GX2DPoint& Point(const WalkStart& start, std::size_t i) const;

 private:
  std::vector<GX2DPoint> corners_;  // In front of each side, as drawn.
  std::vector<GX2DPoint> middles_;
};

}  // namespace drawing
