// The verdict of a comparison in words.
#pragma once

#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"

#include <string>

namespace drawing {

/// A cut-out by its shape: "circle, diameter 8" or "4 lines and 4 arcs, length 60.3".
std::string ShapeText(const ShapedContour& cutOut);

/// One sentence on a finished comparison.
std::string VerdictText(const PartModel& a, const PartModel& b, const Comparison& comparison);

}  // namespace drawing
