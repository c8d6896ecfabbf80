// The contours of a drawing: every connected network in order, healed, measured, and told apart
// into what a part can be made of and what has to be left out.
#pragma once

#include "drawing/Boxes.h"
#include "drawing/Drawing.h"
#include "drawing/Healing.h"
#include "drawing/Networks.h"

#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace drawing {

/// Stands for a contour where there is none.
inline constexpr std::size_t kNoContour = static_cast<std::size_t>(-1);

/// One network of the drawing after it was put in order.
struct Contour {
  /// Own copies. Those of closed and open networks are in contour order, without elements whose two
  /// ends are one node; those of all other networks are as drawn.
  GX2DElmList elements;
  bool closed = false;     ///< Every end meets the next element's start.
  bool usable = false;     ///< Closed, and fit to be a contour of a part.
  std::string obstacle;    ///< Why it is not usable, with coordinates; empty where it is.
  bool clockwise = false;  ///< Direction of drawing, by RunsClockwise; false where not closed.

  /// By the library's GetContourPerimeter and GetContourSurface, in millimetres and their square;
  /// the surface is 0 where the contour is not closed.
  ///
  /// Caution: to the library, arcs within about 0.0014 radians of a half or a full turn are exactly
  /// that, and arcs of a radius of about 0.01 or less have a wrong sweep, since its guards are
  /// absolute. ElementLength and SignedArea are exact.
  double perimeter = 0.0;
  double surface = 0.0;

  Box box;
  Healing healing;
  std::size_t network = 0;           ///< Index into the networks of the drawing.
  std::vector<std::size_t> origins;  ///< Indices into Drawing::elements, sorted.

  /// @name Written by NestContours, for usable contours; indices into the contours of the drawing

  std::size_t parent = kNoContour;         ///< The smallest contour that holds this one.
  std::size_t depth = 0;                   ///< How many hold it: 0 for an outermost one.
  std::size_t coincidesWith = kNoContour;  ///< The contour that this one lies on all along.

  Contour() = default;
  Contour(const Contour&) = delete;
  Contour& operator=(const Contour&) = delete;
};

/// Puts every network of a drawing in order by the library's MakeConnectingElements.
///
/// The result is in the order of the networks. An open or branching network becomes a contour that
/// is not usable, its `obstacle` naming the coordinates of its loose ends and junctions. A closed
/// one is usable unless it encloses no area or its figures are not finite. Closed contours are
/// healed (HealContour): ends that differ by up to the gap of the networks become one point. All
/// others stay as drawn.
std::vector<std::unique_ptr<Contour>> BuildContours(const Drawing& drawing,
                                                    const std::vector<Network>& networks);

/// Whether a closed contour is drawn clockwise.
///
/// The library's CheckDirectionOfElementList decides, with its own choice of the scan line and the
/// check for even crossings; where it gives no answer, the sign of SignedArea. The sign of the
/// library's GetContourSurface would do but for small arcs, with which it can be the wrong one. A
/// contour that is one full circle runs as its arc does (GX2DArc::IsClockwise): the library's
/// surface of a circle is positive either way.
bool RunsClockwise(GX2DElmList& elements);

/// Area that a closed chain of lines and arcs encloses, exact, counter-clockwise positive: also
/// where arcs are small or close to a half turn, and far away from the origin, where the library's
/// surface loses digits.
double SignedArea(const GX2DElmList& elements);

/// Angle at the vertex between two consecutive elements, radians, in (0, 2 pi]: straight is pi.
///
/// It is measured on the left of the direction of drawing, between the tangents of the two elements
/// at their common end: on the inner side of a counter-clockwise contour. With `innerOnRight` it is
/// measured on the right, the inner side of a clockwise one. Drawing a closed contour the other way
/// round thus leaves its inner angles as they are, and the left angle of an open one becomes what
/// is missing to 2 pi. A contour that turns straight back has 2 pi on either side, which a
/// GXLAElementAngle stores as 0. Elements without a tangent (length zero) count as straight.
double VertexAngle(GX2DElement& before, GX2DElement& behind, bool innerOnRight);

}  // namespace drawing
