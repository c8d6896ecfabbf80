// Which contour lies in which, to any depth.
#pragma once

#include "drawing/Contours.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace drawing {

/// After so many crossings a contour is a scribble and no part of a nest.
inline constexpr std::size_t kMostCrossings = 100;

/// Two contours that cross: each has stretches on both sides of the other, or one of them has.
struct Crossing {
  std::size_t first = 0;  ///< Indices of the contours, the smaller one first.
  std::size_t second = 0;
  /// Where the one that encloses less enters and leaves the other, in its order.
  std::vector<GX2DPoint> points;
};

/// Writes `parent`, `depth` and `coincidesWith` of every usable contour; the others are in nothing
/// and nothing is in them.
///
/// The parent is the contour that encloses least among those that hold the contour. Whether one
/// holds another is told by the library's IsContourInClosedContour, contours that touch from inside
/// counting as held. That test looks at the ends of lines only, so the points that both have in
/// common are found first; where there are any, the contour is cut there, and the middle of every
/// piece is looked at. Pieces nearer than kTouchTolerance to the other contour lie on it and decide
/// nothing. A contour with pieces inside and pieces outside crosses the other and is not in it.
///
/// Contours that enclose most are placed first, of equal ones the earlier. A contour that lies all
/// along on one that was placed before it coincides with it: it shares its parent and its depth,
/// and other contours are in the first one only.
///
/// Returns: the crossings, by contours. They are complete but for contours that coincide, where the
///   first one stands for both, and for a contour that crosses kMostCrossings others which
///   enclose at least as much: it is held against no more.
/// Cost: near n log n for contours that lie apart or in few others: boxes are found in a tree, and
/// a
///   contour is held against others only up to the first that holds it. Quadratic where the boxes
///   of all meet, and in the depth.
std::vector<Crossing> NestContours(const std::vector<std::unique_ptr<Contour>>& contours);

}  // namespace drawing
