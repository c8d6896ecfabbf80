// Cuts polygons into triangles.
#pragma once

#include <KTRCL_Geometry/Export.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <vector>

/// Cuts a simple polygon into triangles by clipping ears. The last vertex is joined to the first.
/// Stateless.
class KTRCL_GEOMETRY_EXPORT GXPolygonTriangulation {
 public:
  /// Appends triangles of the polygon, three points each, counter-clockwise; `result` is not
  /// cleared first. Where it is `contour` itself, they come behind the vertices.
  ///
  /// Returns: false for fewer than three vertices, and where no ear is left or only one whose
  ///   clipping changes nothing; the triangles found so far stay.
  /// Tolerance: an ear has a corner whose cross product is at least 1e-10 length units squared, and
  ///   no other vertex in it or on its boundary.
  /// Cost: cubic at worst.
  /// Caution: clipping an ear drops further vertices without triangles for them, so a polygon gets
  ///   fewer triangles than its vertices less two, and many polygons end in false: of the regular
  ///   ones those with 5, 7 or 8 vertices, for example. Hosts that need the whole area covered
  ///   compare areas.
  /// Caution: what was dropped no longer stands in the way, so triangles of a polygon that is not
  ///   convex can reach outside; and an ear at the last position stays, so that it can come again.
  static bool Process(const std::vector<GX2DPoint>& contour, std::vector<GX2DPoint>& result);

  /// Signed area, positive counter-clockwise; length units squared.
  static double Area(const std::vector<GX2DPoint>& contour);

  /// Whether the point (px, py) lies in the counter-clockwise triangle A, B, C or on its boundary;
  /// exact, without a tolerance.
  static bool InsideTriangle(double ax, double ay, double bx, double by, double cx, double cy,
                             double px, double py);

 private:
  static bool Snip(const std::vector<GX2DPoint>& contour, int u, int v, int w, int n,
                   int* vertices);
};
