// Which contours of a drawing are circles, and which of these are equal.
#pragma once

#include "drawing/Contours.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace drawing {

/// How far, in millimetres, the arcs of one circle may differ in centre and radius, and the
/// diameters of equal circles from the smallest of them (inclusive).
inline constexpr double kCircleTolerance = 0.001;

/// Circles of one diameter.
struct CircleGroup {
  double diameter = 0.0;              ///< Of the smallest one, millimetres.
  std::vector<std::size_t> contours;  ///< Indices, ascending.
};

/// Whether a closed contour is one circle, drawn whole or in any number of arcs of one centre.
///
/// Returns: true with the diameter, by length and sweep of all arcs, in `diameter`; false with it
///   untouched.
bool IsOneCircle(const GX2DElmList& elements, double& diameter);

/// Groups the usable contours that are one circle by diameter, the smallest first. Contours that
/// coincide with another are not counted again.
std::vector<CircleGroup> FindCircleGroups(const std::vector<std::unique_ptr<Contour>>& contours);

}  // namespace drawing
