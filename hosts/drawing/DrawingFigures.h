// The figures by which a drawing is told before and after something was done to it.
#pragma once

#include "drawing/Contours.h"
#include "drawing/Drawing.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace drawing {

/// Counts, lengths and area of what stands in a drawing; millimetres and their square.
struct DrawingFigures {
  std::size_t elements = 0;
  std::size_t closed = 0;  ///< Networks that are closed contours fit for a part.
  std::size_t open = 0;
  std::size_t branching = 0;
  std::size_t other = 0;     ///< Specks, and closed ones that enclose nothing.
  double area = 0.0;         ///< Of material: outer contours less cut-outs, and so on inwards.
  double perimeter = 0.0;    ///< Of the closed contours.
  double totalLength = 0.0;  ///< Of all elements.
};

/// Figures of a drawing whose contours were built and nested (BuildContours, NestContours).
/// Contours that coincide with another count with their perimeter, not with their area. By exact
/// lengths and areas (ElementLength, SignedArea).
DrawingFigures FiguresOf(const Drawing& drawing, const std::vector<Network>& networks,
                         const std::vector<std::unique_ptr<Contour>>& contours);

}  // namespace drawing
