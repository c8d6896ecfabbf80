// Short ways to write points, elements and lists in tests.
//
//     GX2DElmList contour;
//     support::Add(contour, support::Line(0, 0, 1, 0), support::Arc(1, 1, 1, 0, 2, 1, 1, 2));
//     support::AddPolygon(contour, {{0, 0}, {4, 0}, {4, 3}});
//
// The lists own what is added; what they hold is destroyed with them.
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace support {

constexpr double kPi = 3.14159265358979323846;

inline GX2DPoint Point(double x, double y) { return {x, y}; }
inline GX3DPoint Point(double x, double y, double z) { return {x, y, z}; }

inline GX2DLine Line(double x1, double y1, double x2, double y2) { return {x1, y1, x2, y2}; }
inline GX3DLine Line(double x1, double y1, double z1, double x2, double y2, double z2) {
  return {Point(x1, y1, z1), Point(x2, y2, z2)};
}

inline GX2DRectangle Rect(double x1, double y1, double x2, double y2) { return {x1, y1, x2, y2}; }

/// Arc from its four points, stored as they are: centre, start, mid, end.
inline GX2DArc Arc(double centreX, double centreY, double startX, double startY, double midX,
                   double midY, double endX, double endY) {
  return {Point(centreX, centreY), Point(startX, startY), Point(midX, midY), Point(endX, endY)};
}

/// The point of a circle at an angle in degrees from the X axis, counter-clockwise.
inline GX2DPoint OnCircle(double centreX, double centreY, double radius, double degrees) {
  const double radians = degrees * kPi / 180.0;
  return {centreX + radius * std::cos(radians), centreY + radius * std::sin(radians)};
}

/// Arc from an angle on, through `sweep` degrees (positive counter-clockwise, less than a full
/// turn). Mid is the middle of the arc.
inline GX2DArc ArcByAngles(double centreX, double centreY, double radius, double fromDegrees,
                           double sweep) {
  return {Point(centreX, centreY), OnCircle(centreX, centreY, radius, fromDegrees),
          OnCircle(centreX, centreY, radius, fromDegrees + sweep / 2.0),
          OnCircle(centreX, centreY, radius, fromDegrees + sweep)};
}

/// Full circle, counter-clockwise unless said otherwise: start and end are the very same point.
inline GX2DArc Circle(double centreX, double centreY, double radius, bool clockwise = false) {
  const GX2DPoint start(centreX + radius, centreY);
  const GX2DPoint mid(centreX, clockwise ? centreY - radius : centreY + radius);
  return {Point(centreX, centreY), start, mid, start};
}

/// A 3D arc in a plane parallel to XY.
inline GX3DArc Arc3D(const GX2DArc& flat, double z) {
  return {Point(flat.Center.X, flat.Center.Y, z), Point(flat.Start.X, flat.Start.Y, z),
          Point(flat.Mid.X, flat.Mid.Y, z), Point(flat.End.X, flat.End.Y, z)};
}

/// Appends copies of the elements.
template <typename... Elements>
void Add(GX2DElmList& list, const Elements&... elements) {
  (list.push_back(new Elements(elements)), ...);
}
template <typename... Elements>
void Add(GX3DElmList& list, const Elements&... elements) {
  (list.push_back(new Elements(elements)), ...);
}

/// Appends the lines from corner to corner, and the one back to the first if `closed`.
inline void AddPolygon(GX2DElmList& list, const std::vector<GX2DPoint>& corners,
                       bool closed = true) {
  for (std::size_t i = 1; i < corners.size(); ++i) {
    Add(list, GX2DLine(corners[i - 1], corners[i]));
  }
  if (closed && !corners.empty()) {
    Add(list, GX2DLine(corners.back(), corners.front()));
  }
}
inline void AddPolygon(GX3DElmList& list, const std::vector<GX3DPoint>& corners,
                       bool closed = true) {
  for (std::size_t i = 1; i < corners.size(); ++i) {
    Add(list, GX3DLine(corners[i - 1], corners[i]));
  }
  if (closed && !corners.empty()) {
    Add(list, GX3DLine(corners.back(), corners.front()));
  }
}

/// The element at a position as the kind it is expected to be; throws std::bad_cast when it is not.
template <typename Kind, typename List>
Kind& At(const List& list, std::size_t position) {
  return dynamic_cast<Kind&>(*list.at(position));
}

}  // namespace support
