// The contours of a drawing: every connected network in order, measured, and told apart into what a
// part can be made of and what has to be left out.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/Networks.h"

#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace drawing {

/// Axis-parallel box in the plane, millimetres.
struct Box {
  double minX = 0.0;
  double minY = 0.0;
  double maxX = 0.0;
  double maxY = 0.0;
};

/// One network of the drawing after it was put in order.
struct Contour {
  /// Own copies. Those of closed and open networks are in contour order, without elements whose two
  /// ends are one node; those of all other networks are as drawn.
  GX2DElmList elements;
  bool closed = false;      ///< Every end meets the next element's start.
  bool usable = false;      ///< Closed, and fit to be a contour of a part.
  std::string obstacle;     ///< Why it is not usable, with coordinates; empty where it is.
  double perimeter = 0.0;   ///< Sum of the element lengths.
  double signedArea = 0.0;  ///< Counter-clockwise positive, arcs included; 0 where not closed.
  Box box;
  std::size_t network = 0;           ///< Index into the networks of the drawing.
  std::vector<std::size_t> origins;  ///< Indices into Drawing::elements, sorted.

  Contour() = default;
  Contour(const Contour&) = delete;
  Contour& operator=(const Contour&) = delete;
};

/// Puts every network of a drawing in order by the library's MakeConnectingElements.
///
/// The result is in the order of the networks. An open or branching network becomes a contour that
/// is not usable, its `obstacle` naming the coordinates of its loose ends and junctions. A closed
/// one is usable unless it encloses no area or its figures are not finite. Nothing is moved: ends
/// that differ by up to the gap of the networks stay as they are.
std::vector<std::unique_ptr<Contour>> BuildContours(const Drawing& drawing,
                                                    const std::vector<Network>& networks);

/// Area that a closed chain of lines and arcs encloses, exact, counter-clockwise positive.
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
