#include "drawing/WalkedContour.h"

#include "drawing/CurveMeasures.h"

#include <cstddef>
#include <vector>

namespace drawing {

WalkedContour::WalkedContour(const GX2DElmList& elements) {
  corners_.reserve(elements.size());
  middles_.reserve(elements.size());
  for (GX2DElement* const element : elements) {
    corners_.push_back(element->GetStartPoint());
    middles_.push_back(MiddleOf(*element));
  }
}

std::size_t WalkedContour::Sides() const { return corners_.size(); }

const GX2DPoint& WalkedContour::Point(const WalkStart& start, std::size_t i) const {
  const std::size_t sides = corners_.size();
  const std::size_t step = i / 2;
  const std::size_t side =
      start.backward ? (start.side + sides - step) % sides : (start.side + step) % sides;
  if (i % 2 == 1) return middles_[side];
  // Walked backward, a side begins where it was drawn to end: in front of its successor.
  return corners_[start.backward ? (side + 1) % sides : side];
}

std::vector<GX2DPoint> WalkedContour::Points(const WalkStart& start) const {
  std::vector<GX2DPoint> points;
  points.reserve(2 * corners_.size());
  for (std::size_t i = 0; i < 2 * corners_.size(); ++i) points.push_back(Point(start, i));
  return points;
}

}  // namespace drawing
