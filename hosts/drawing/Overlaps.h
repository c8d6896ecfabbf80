// Elements that lie on one another: drawn twice, one within another, or in part.
#pragma once

#include "drawing/Drawing.h"

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <cstddef>
#include <vector>

namespace drawing {

/// How far, in millimetres, two elements may lie from each other to lie on one another.
inline constexpr double kOverlapTolerance = 0.001;

/// With how many longer elements the partial overlaps of one element are told.
inline constexpr std::size_t kMostPartialOverlaps = 8;

/// How two elements lie on one another.
enum class OverlapKind {
  kDuplicate,  ///< Both are the same curve, in the same direction of drawing or against it.
  kContained,  ///< One is a stretch of the other.
  kPartial     ///< They share a stretch, and each goes on beyond it.
};

/// "duplicate", "contained" or "partial overlap".
const char* OverlapKindName(OverlapKind kind);

/// Two elements that lie on one another along a stretch.
struct Overlap {
  OverlapKind kind = OverlapKind::kDuplicate;
  /// Index into Drawing::elements: of duplicates the earlier one, otherwise the one that holds the
  /// other; of partial overlaps the earlier one.
  std::size_t keeper = 0;
  std::size_t other = 0;
  double length = 0.0;  ///< Of the common stretch, millimetres.
  GX2DPoint place;      ///< The middle of it.
};

/// Finds the overlaps of a drawing: lines on one straight line, arcs and circles on one circle,
/// that is, where the shorter one lies within kOverlapTolerance of the straight line or the circle
/// of the longer. Lines that cross at a small angle are none. Stretches not longer than
/// kOverlapTolerance are none. A line and an arc never overlap.
///
/// Of many elements in one place not every pair is told: an element is told once as a duplicate or
/// as contained, of the earliest duplicate or else of the longest that holds it, and then not
/// again. Of the partial overlaps of one element with longer ones the first kMostPartialOverlaps
/// are told, beginning with the longest.
///
/// Returns: by `other`, then by `keeper`.
/// Cost: near n log n for n elements with few overlaps.
std::vector<Overlap> FindOverlaps(const Drawing& drawing);

/// Those overlaps whose `other` can be taken away without opening a contour: duplicates, and what
/// is contained, where no end that met another is left alone by it.
///
/// An element that is taken away leaves no loose end behind that was none before, other than of the
/// element that it lay on: its neighbours must meet the end of that one, meet one another, or go
/// away with it. A duplicate 0.0005 beside, whose ends hold a contour together that those of the
/// earlier one are too far from, stays; the earlier one goes for it where nothing hangs on that,
/// and then is the `other` of the two.
///
/// Returns: by `other`. A keeper may be the `other` of another overlap itself.
std::vector<Overlap> RemovableOverlaps(const Drawing& drawing,
                                       const std::vector<Overlap>& overlaps);

}  // namespace drawing
