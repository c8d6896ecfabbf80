// The picture of a comparison: both parts side by side.
#pragma once

#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"

#include <string>

namespace drawing {

/// An SVG document with both parts at one scale, each as it was drawn; arcs are arcs.
///
/// The outline's start points that the comparison matched are marked by dots. What has no equal on
/// the other side is dashed and in another colour: cut-outs without a partner, and, where the
/// outlines do not match, the segments for which the other outline has none of the same kind and
/// length (the whole outline where every segment has one).
std::string ComparisonSvg(const PartModel& a, const PartModel& b, const Comparison& comparison);

}  // namespace drawing
