// A sketch, its contours built and nested.
#pragma once

#include "PartSketch.h"
#include "drawing/Contours.h"
#include "drawing/Nesting.h"
#include "drawing/Networks.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace support {

/// The contours of a sketch, in its order.
struct Nested {
  explicit Nested(const PartSketch& sketch) : drawn(support::DrawingOf(sketch)) {
    contours = drawing::BuildContours(drawn, drawing::FindNetworks(drawn));
    crossings = drawing::NestContours(contours);
  }

  std::vector<std::size_t> Depths() const {
    std::vector<std::size_t> depths;
    for (const auto& contour : contours) depths.push_back(contour->depth);
    return depths;
  }

  std::vector<std::size_t> Parents() const {
    std::vector<std::size_t> parents;
    for (const auto& contour : contours) parents.push_back(contour->parent);
    return parents;
  }

  drawing::Drawing drawn;
  std::vector<std::unique_ptr<drawing::Contour>> contours;
  std::vector<drawing::Crossing> crossings;
};

}  // namespace support
