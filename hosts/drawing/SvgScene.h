// Drawings in millimetres, y upward, as pictures in a page: places, paths, marks.
#pragma once

#include "drawing/Boxes.h"

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <string>
#include <string_view>
#include <vector>

namespace drawing {

/// Where a drawing lies in a picture: x to the right, y downward.
struct SvgPlacing {
  double left = 0.0;
  double top = 0.0;
  double scale = 1.0;  ///< Units of the picture per millimetre.
  double minX = 0.0;   ///< The place of the drawing that comes to `left`, `top`.
  double maxY = 0.0;
  bool fixedDecimals = false;  ///< Trailing zeros are kept.

  /// "12.5 30": a place in the picture with at most three decimals; what is not finite becomes 0.
  std::string At(const GX2DPoint& p) const;

  /// A length in the picture, written likewise.
  std::string Length(double millimetres) const;
};

/// The way along a line or an arc from its start, where the pen stands, to its end: "L" or "A"
/// commands, blanks behind all numbers. A full circle is two half ones, and so is a turn whose ends
/// come to one place of the picture. `backward` leads from the end to the start.
std::string SvgStrokeTo(const SvgPlacing& placing, GX2DElement& element, bool backward = false);

/// The size that pictures share, in millimetres.
struct SvgFrame {
  double width = 0.0;
  double height = 0.0;
};

/// The frame into which each of the boxes fits, neither very wide nor very high, so that pictures
/// with it have one scale where they are shown in one size.
SvgFrame FrameAround(const std::vector<Box>& boxes);

/// The smallest box around both.
Box Joined(const Box& p, const Box& q);

/// The box around all elements of a list; a box of size 0 at the origin for an empty one.
Box BoxOfAll(const GX2DElmList& elements);

/// What a mark looks like. Shapes tell marks apart where colours do not.
enum class MarkShape { kRound, kSquare, kDiamond };

/// Draws in a picture whose frame is 1000 units wide or high, with a margin around for marks.
///
/// Marks and labels have a constant size on screen and paper, whatever the zoom: they are drawn in
/// pixels inside a group that the page scales.
class SvgScene {
 public:
  /// A drawing in the middle of a frame. Boxes that are not finite, or next to nothing, give a
  /// picture all the same.
  SvgScene(const Box& box, const SvgFrame& frame);
  /// In a frame of its own.
  explicit SvgScene(const Box& box);

  /// How the drawing is placed.
  const SvgPlacing& Placing() const;

  /// The path along one element, from its start.
  std::string PathData(GX2DElement& element) const;

  /// The path along a list. The pen is lifted where an element does not start where the one before
  /// ended, as far as the picture tells; nothing is closed.
  std::string PathData(const GX2DElmList& elements) const;

  /// The path along a closed contour: as above, closed by Z.
  std::string ClosedPathData(const GX2DElmList& elements) const;

  /// `<path class="..." data-mark="..." d="..."/>`; nothing where there is no data. An empty mark
  /// is left out.
  static std::string Path(std::string_view classes, std::string_view data,
                          std::string_view mark = {});

  /// Data of dots at places, one after the other; drawn by a path of the class "dots" they are
  /// round and of a constant size. For very many places.
  std::string DotData(const GX2DPoint& place) const;

  /// A pin at a place with a badge beside it, on the side away from the middle of the picture.
  /// `colour` is a class such as "red", `text` a number or a short word.
  std::string Badge(const GX2DPoint& place, MarkShape shape, std::string_view colour,
                    std::string_view text, std::string_view mark = {}) const;

  /// A small mark at a place without a text.
  std::string Pin(const GX2DPoint& place, MarkShape shape, std::string_view colour,
                  std::string_view mark = {}) const;

  /// A ring around a place that is seen only while it is marked.
  std::string Spot(const GX2DPoint& place, std::string_view mark) const;

  /// The whole picture around `content`. `label` says in words what is seen; pictures of equal
  /// `view` are zoomed together.
  std::string Picture(std::string_view label, std::string_view view,
                      std::string_view content) const;

 private:
  std::string Group(const GX2DPoint& place, std::string_view classes, std::string_view mark,
                    std::string_view content) const;

  double width_;  // Of the whole picture, margins included.
  double height_;
  SvgPlacing placing_;
};

}  // namespace drawing
