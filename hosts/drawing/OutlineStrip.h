// The segments of two outlines side by side, from the places on that lie on each other.
#pragma once

#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"

#include <cstddef>
#include <vector>

namespace drawing {

/// Stands for a segment where a row has none on that side.
inline constexpr std::size_t kNoSegment = static_cast<std::size_t>(-1);

/// One segment of an outline, with what the library keeps of it and the radius that it does not.
struct OutlineSegment {
  std::size_t index = kNoSegment;  ///< Into the elements of the outline.
  bool isArc = false;
  double length = 0.0;
  /// Of an arc, millimetres: above 0 where it bulges outward, below 0 where it bulges inward.
  double radius = 0.0;
  double angle = 0.0;  ///< Behind the segment in drawing order, as the library holds it, radians.
};

/// All segments of an outline in the order of drawing.
std::vector<OutlineSegment> OutlineSegments(const ShapedContour& outline);

/// Whether two segments are of one kind and their lengths agree within the library's tolerance.
bool HaveSameLength(const OutlineSegment& a, const OutlineSegment& b);

/// The segment of B beside A's k-th when B, of `count` segments, is walked from `start`.
std::size_t SegmentBeside(std::size_t k, std::size_t start, std::size_t count, bool backward);

/// The segment of B that lies beside the first one of A where most segments agree in kind and
/// length, of several such starts the one with the most equal angles, then the first.
///
/// Requires: as many segments on both sides. Cost: quadratic.
std::size_t BestAgreeingStart(const std::vector<OutlineSegment>& a,
                              const std::vector<OutlineSegment>& b, bool backward);

/// What stands side by side, and how it differs. Of a row with one side alone nothing else is set.
struct StripRow {
  std::size_t a = kNoSegment;  ///< Index into the segments of A, kNoSegment where B's is alone.
  std::size_t b = kNoSegment;
  double angleA = 0.0;  ///< Between this segment and the next one of the walk, radians.
  double angleB = 0.0;
  bool kindDiffers = false;
  bool lengthDiffers = false;
  bool angleDiffers = false;
  bool radiusDiffers = false;  ///< By more than kPositionLimit; the library does not see it.

  bool Alone() const { return a == kNoSegment || b == kNoSegment; }
  /// Whether the library takes the two for different.
  bool Differs() const { return Alone() || kindDiffers || lengthDiffers || angleDiffers; }
};

/// Two outlines side by side.
struct OutlineStrip {
  std::vector<OutlineSegment> a;
  std::vector<OutlineSegment> b;
  std::vector<StripRow> rows;  ///< Once around A in the order of drawing.
  bool matched = false;        ///< Begins at the start that the library matched and that fits best.
  bool backward = false;       ///< B is walked against the direction of drawing.
};

/// Puts the outlines side by side.
///
/// Where the library matched them, from its reference position in A and the best start in B, B
/// walked as the library walked it. Otherwise both run in the same sense about the sheet: with the
/// same number of segments from the start on that agrees best, with different numbers from the
/// longest run of equal segments on, so that what one outline has more stands in rows of its own.
/// Of outlines with more than 2,000 segments that have no match both begin where they are drawn to.
OutlineStrip AlignOutlines(const PartModel& a, const PartModel& b, const Comparison& comparison);

/// The first row that the library takes for different; the first with another radius where there is
/// none; the number of rows where all agree.
std::size_t FirstDifference(const OutlineStrip& strip);

}  // namespace drawing
