// The account of a healing as one HTML file that needs nothing else.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/DrawingHealing.h"

#include <string>

namespace drawing {

/// An HTML document: what was done in one sentence, the drawing as read and as healed side by side,
/// loose ends numbered in both and in a table, the table of changes, figures before and after, and
/// what was left. The same input gives the same bytes; nothing is loaded from anywhere.
std::string HealingReportHtml(const Drawing& asRead, const HealedDrawing& healed,
                              const HealOptions& options);

}  // namespace drawing
