// What healing did and what it left, in words.
#pragma once

#include "drawing/ChainHealing.h"
#include "drawing/DrawingHealing.h"

#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

/// An entity in words, as EntityText has that of an element.
std::string EntityText(const DrawnEntity& entity);

/// "0.05 mm": a distance, of very small ones six digits behind the point.
std::string DistanceText(double distance);

/// "LINE on layer CUT, line 12 lies on LINE on layer CUT, line 4, for 10 mm; removed": what became
/// of an overlap whose `other` was removed. The indices are those of `drawing`.
std::string RemovedText(const Drawing& drawing, const Overlap& overlap);

/// The text of a change to a contour; its origins are indices into the elements of `drawing`.
std::string ChainChangeText(const Drawing& drawing, const ChainChange& change);

/// Appends what a healed drawing has still open, with the gap that would close it, and what is
/// closed but no contour. Pairs within the gap are those that could not be joined.
void AddOpenNotes(HealedDrawing& healed, double gap);

/// Appends the overlaps that were left.
void AddOverlapNotes(HealedDrawing& healed);

/// Appends what the drawing as read holds that is not in the healed one.
void AddNotUsedNotes(const Drawing& drawing, std::vector<std::string>& notes);

}  // namespace drawing
