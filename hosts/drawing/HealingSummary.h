// What healing changed, in one line: for commands that heal a drawing on their way to something
// else.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/DrawingHealing.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <map>
#include <string>

namespace drawing {

/// How much of what was changed. That elements were put in order is left out: nothing moved.
struct HealingSummary {
  double gap = 0.0;                          ///< That was allowed, millimetres; 0 for as drawn.
  std::map<ChangeKind, std::size_t> counts;  ///< Kinds that occurred.
  double largestMovement = 0.0;              ///< Millimetres.
};

/// Heals a drawing as parts are found and compared: without clean-up, whose result depends on the
/// direction of drawing. With a gap of 0 the drawing stays as drawn, and so does an unusable one.
Drawing HealedForParts(Drawing drawing, double gap, HealingSummary& summary);

/// "2 duplicates removed, 3 pairs of ends joined, nothing moved by more than 0.0412 mm"; empty
/// where nothing was changed.
std::string HealingSummaryText(const HealingSummary& summary);

/// The same for programs; `changes` counts by the names of the kinds.
nlohmann::json HealingSummaryJson(const HealingSummary& summary);

}  // namespace drawing
