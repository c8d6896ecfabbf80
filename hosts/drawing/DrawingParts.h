// The parts of a drawing: every outer contour with its cut-outs, islands being parts themselves.
#pragma once

#include "drawing/Boxes.h"
#include "drawing/Contours.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace drawing {

/// Stands for a part where there is none.
inline constexpr std::size_t kNoPart = static_cast<std::size_t>(-1);

/// A contour at an even depth with the cut-outs right inside it; millimetres and their square.
struct DrawingPart {
  std::size_t outer = 0;             ///< Index into the contours.
  std::vector<std::size_t> cutOuts;  ///< Indices into the contours, in their order.
  std::size_t islandIn = kNoPart;    ///< The part in one of whose cut-outs this one lies.
  double area = 0.0;                 ///< Of the outer contour, cut-outs subtracted.
  double perimeter = 0.0;            ///< Of the outer contour and the cut-outs.
  Box box;
  std::size_t pierces = 0;  ///< Contours to be cut: the outer one and the cut-outs.
};

/// Finds the parts of nested contours (NestContours), the one whose outer contour encloses most
/// first, of equal ones the earlier contour. Contours that coincide with another belong to no part.
std::vector<DrawingPart> FindParts(const std::vector<std::unique_ptr<Contour>>& contours);

}  // namespace drawing
