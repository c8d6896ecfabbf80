// The account of a healing as text for people and as JSON for programs.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/DrawingHealing.h"

#include <nlohmann/json.hpp>

#include <string>

namespace drawing {

/// Figures before and after, the changes by kind with the largest movement of each, and what was
/// left. Of very many changes of a kind the first 20 are told one by one.
std::string HealingText(const Drawing& asRead, const HealedDrawing& healed,
                        const HealOptions& options);

/// The same with every change. Lengths in millimetres, areas in their square; elements are indices
/// into the elements of the drawing as read, and so are those of the ends that are still open
/// into the healed one.
nlohmann::json HealingJson(const Drawing& asRead, const HealedDrawing& healed,
                           const HealOptions& options);

}  // namespace drawing
