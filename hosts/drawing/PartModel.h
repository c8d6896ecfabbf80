// A drawing as a part for recognition: the contours that belong to it, and the library's look-alike
// form of each.
#pragma once

#include "drawing/Contours.h"
#include "drawing/DrawingParts.h"
#include "drawing/Nesting.h"

#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace drawing {

/// In place of the number of a part: the drawing is to be one part, islands and all.
inline constexpr std::size_t kWholeDrawing = 0;

/// Bends below this angle, in radians, are no vertices: neighbouring lines are merged over them.
inline constexpr double kStraightTolerance = 0.0005;

/// A contour with its look-alike form. `elements` and `shape` are in step: the segment at position
/// 2 i of the shape describes the element at index i.
struct ShapedContour {
  const Contour* source = nullptr;     ///< As drawn; belongs to the PartModel.
  GX2DElmList elements;                ///< Merged, beginning at a vertex.
  std::unique_ptr<GXLAContour> shape;  ///< Owns its elements.

  ShapedContour() = default;
  ShapedContour(const ShapedContour&) = delete;
  ShapedContour& operator=(const ShapedContour&) = delete;
};

/// One drawing as a part.
struct PartModel {
  Drawing drawing;
  std::vector<Network> networks;
  std::vector<std::unique_ptr<Contour>> contours;  ///< All, usable or not, in order of networks.
  std::vector<Crossing> crossings;                 ///< Contours that cross each other.
  std::vector<DrawingPart> parts;                  ///< All (FindParts), whichever was chosen.
  std::size_t number = kWholeDrawing;              ///< The chosen one of them, counted from 1.
  bool usable = false;                             ///< One outer contour was found.
  std::string obstacle;                            ///< Why not, one line; empty where usable.
  std::unique_ptr<ShapedContour> outer;            ///< Null where not usable.
  std::vector<std::unique_ptr<ShapedContour>> cutOuts;  ///< From long to short.
};

/// The look-alike form of one usable contour: rotated to begin at a true vertex, measured, merged
/// by CGXLAElementMerge.
///
/// The list is turned so that it begins behind a vertex that no merge removes; where it has none (a
/// circle in several arcs) it begins as drawn, and the library's merge leaves a single arc.
/// Vertices are merged over below kStraightTolerance; where that would cut off more than 0.01 mm,
/// as on a fine polygon along a curve, the tolerance is halved until it does not.
std::unique_ptr<ShapedContour> ShapeContour(const Contour& contour);

/// Reads nothing: makes a part of a drawing that was read.
///
/// For kWholeDrawing the outer contour is the usable one at depth 0 (NestContours); everything
/// inside it is a cut-out, at whatever depth, and so is a contour that coincides with another.
/// Several contours at depth 0 are an obstacle that names them, and where they cross each other; so
/// is a drawing without any.
///
/// For a `number` above 0 it is that part of FindParts, counted from 1, with its own cut-outs and
/// nothing else: neither islands nor contours that coincide. A number beyond the last part is an
/// obstacle.
PartModel BuildPart(Drawing drawing, std::size_t number = kWholeDrawing);

/// "contours 2 and 5 cross at (10, 20) and (30, 20)": a crossing in words, contours counted from 1.
std::string CrossingText(const Crossing& crossing);

}  // namespace drawing
