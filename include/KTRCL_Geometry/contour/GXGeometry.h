// The stateless service class on elements and contours. Every operation is static.
#pragma once

#include <KTRCL_Geometry/Export.h>

class GX2DArc;
class GX2DElement;
class GX2DLine;
class GX2DPoint;
class GX3DArc;
class GX3DElement;
class GX3DLine;
class GX3DPoint;
class GX3DPointList;

/// What can be asked of lines, arcs and contours. Lines are unbounded and arcs are arcs unless an
/// operation says otherwise; points given as outputs are written only on success.
class KTRCL_GEOMETRY_EXPORT GXGeometry {
 public:
  GXGeometry() = delete;

  /// @name Points, lines and planes -- src/elements/GXGeometry_Lines.cpp

  /// Turns `point` about `centre` by an angle in degrees, counter-clockwise for a positive one.
  /// Always true. The centre may be the point itself.
  static bool Rotate2DPoint(GX2DPoint& point, const GX2DPoint& centre, const double& degrees);

  /// Start + (end - start) * t, with no limit on `t`. Always true.
  static bool GetParametricPointOn2DLine(GX2DPoint& out, const double& t, const GX2DLine& line);

  /// Start + (end - start) * t, with no limit on `t`. Always true.
  static bool GetParametricPointOn3DLine(GX3DPoint& out, const double& t, const GX3DLine& line);

  /// Distance of `p` from the unbounded line, 0 or more.
  ///
  /// Degenerate: false for a line of length exactly 0; `distance` is then 0.
  static bool GetDistanceLinePoint(const GX2DLine& line, const GX2DPoint& p, double& distance);

  /// The same in space.
  static bool GetDistanceLinePoint(const GX3DLine& line, const GX3DPoint& p, double& distance);

  /// Unsigned angle between two lines at their common end, 0 to pi radians; each line is seen from
  /// its far end.
  ///
  /// Returns: -1.0 where the lines have no common end (also when they cross), do not lie in one
  ///   plane (`PointInPlane`), or one is not longer than 0.0001.
  /// Tolerance: 0.0001 on each coordinate for the common end, inclusive. A cosine beyond 0.999999
  ///   either way counts as 1: angles within about 0.0014 of 0 or pi come out as exactly that.
  static double GetAngleBetween3DLinesRad(const GX3DLine& a, const GX3DLine& b);

  /// Turns `point` about the unbounded line from start to end of `axis`, right-handed, by an angle
  /// in radians. `result` may be the point or an end of the axis.
  ///
  /// Returns: false, with `result` untouched, for an axis of length zero and for one that points
  ///   at (1234.1234, 5678.5678, 9012.9012) within 0.00001, the place that is used to span a plane
  ///   with the axis.
  /// Caution: radians, while `Rotate2DPoint` takes degrees.
  static bool Rotate3DPoint(const GX3DLine& axis, double radians, const GX3DPoint& point,
                            GX3DPoint& result);

  /// Whether `d` lies on the plane through a, b and c.
  ///
  /// Tolerance: 0.00001 length units from the plane, inclusive.
  /// Caution: where a, b and c are almost in line (cross product shorter than 0.00001), the
  ///   determinant is compared without its sign being dropped, so every negative one passes.
  static bool PointInPlane(const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c,
                           const GX3DPoint& d);

  /// `PointsInLineTol` with 0.00001.
  ///
  /// Caution: true for any `c` where a and b are the same point.
  static bool PointsInLine(GX3DPoint a, GX3DPoint b, GX3DPoint c);

  /// Whether `c` is nearer to the unbounded line through a and b than `tol`, strictly.
  ///
  /// Caution: where a and b are the same point the distance counts as 0, and the answer is true
  ///   for any `c` (at a `tol` above 0).
  static bool PointsInLineTol(GX3DPoint a, GX3DPoint b, GX3DPoint c, const double& tol);

  /// @name Arcs -- src/elements/GXGeometry_Arcs.cpp

  /// Sweep of an arc, 0 to 2 pi radians, without a sign.
  ///
  /// Returns: 2 pi where start or mid lies on the end (0.0001 on each coordinate); 0 where the
  ///   radii to start and mid are parallel, or those to start and end are parallel and point the
  ///   same way (cross product not longer than 0.0001, an area).
  /// Caution: where `GetAngleBetween3DLinesRad` finds no angle, its -1.0 is used like one. Sweeps
  ///   within about 0.0014 of nothing, of a half and of a full turn come out as exactly that.
  static double GetArcAngleRad(const GX3DArc& arc);

  /// Share of the sweep between the arc's start and the direction of `p`: 0 at the start, 1 at the
  /// end, above 1 behind it. `p` need not lie on the circle, and the flag has no effect.
  ///
  /// Returns: 0 for a point on the start (0.0001 on each coordinate); 99999.0 for an arc without
  ///   sweep (0.00001 radians).
  /// Caution: a point half-way from the center to the arc's middle (0.0001 on each coordinate)
  ///   stands for the whole circle, 2 pi by the sweep; one at the center gives 0 or -1 by it.
  static double PointParametricOnArc(const GX2DPoint& p, const GX2DArc& arc, bool unused);

  /// The same in space, computed from the radius vectors. Vectors shorter than 1 are brought to
  /// unit length first, so that small arcs are not taken for degenerate.
  ///
  /// Degenerate: 0 where the points of the arc span no plane, where there is no sweep, and where
  ///   `p` lies on the start's side of the line through start and center.
  /// Caution: 0 for every point of a circle whose start is its end.
  static double PointParametricOnArc(const GX3DPoint& p, const GX3DArc& arc);

  /// Point at the share `t` of the sweep, from the start; `t` is not limited.
  ///
  /// Returns: false, with `out` untouched, where start, center and mid span no plane (cross
  ///   product not longer than 0.0001).
  static bool GetParametricPointOn2DArc(GX2DPoint& out, const double& t, const GX2DArc& arc);

  /// The same in space.
  ///
  /// Caution: true, with `out` untouched, in the one case in which `Rotate3DPoint` fails about the
  ///   axis of the arc.
  static bool GetParametricPointOn3DArc(GX3DPoint& out, const double& t, const GX3DArc& arc);

  /// Whether `p` lies on the arc.
  ///
  /// Tolerance: parameter at most 1 within 0.00001, inclusive; distance from the circle 0.00001
  ///   length units, inclusive.
  static bool Point2DOnArc(const GX2DArc& arc, const GX2DPoint& p);

  /// Whether `p` lies on the arc. A point on start or end (0.0001 on each coordinate, inclusive)
  /// does at once.
  ///
  /// Tolerance: distance from the circle 0.00001 length units, inclusive.
  /// Caution: unlike in the flat twin the parameter has to be below 1 by more than 0.00001, so a
  ///   point near the end is only accepted as a point on the end.
  /// Caution: the plane of the arc is not asked for. A point beside it passes when it is one radius
  ///   from the center and its angle from the start fits; on a circle whose start is its end every
  ///   point of the sphere does.
  static bool Point3DOnArc(const GX3DArc& arc, const GX3DPoint& p);

  /// @name Common ends and points on segments -- src/contour/GXGeometry_Intersections.cpp

  /// First end that two elements share, asked in the order end-start, end-end, start-start,
  /// start-end; `common` receives the point of `e1`. Elements that share both ends answer with the
  /// end of `e1`.
  ///
  /// Returns: false, with `common` untouched, where there is none, and with a null pointer.
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  /// Caution: a rectangle, and any kind but point, line and arc, has both ends at the origin here.
  static bool GetCommon2DPoint(GX2DElement* const& e1, GX2DElement* const& e2, GX2DPoint& common);

  /// The same in space, asked in the order start-start, start-end, end-start, end-end.
  ///
  /// Caution: elements that share both ends answer with the start of `e1`, those in the plane with
  ///   its end.
  static bool GetCommon3DPoint(GX3DElement* const& e1, GX3DElement* const& e2, GX3DPoint& common);

  /// Appends the point of `e1` for each of the four pairs of ends that coincide, in the order
  /// above; one point may so be appended several times.
  ///
  /// Returns: whether the list holds anything, also what it held before.
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  static bool GetCommon3DPoints(GX3DElement* const& e1, GX3DElement* const& e2,
                                GX3DPointList& common);

  /// Place of a point on a segment.
  ///
  /// Returns: 2 at an end, 1 strictly between the ends, 0 off the segment.
  /// Tolerance: nearer than 0.00001 to the unbounded line, strictly, in every case; an end then
  ///   within 0.0001 on each coordinate, inclusive.
  /// Degenerate: on a segment of length zero, 2 at its point and 0 elsewhere.
  static int Point2DOnClosedLine(const GX2DLine& line, const GX2DPoint& p);

  /// The same in space.
  static int Point3DOnClosedLine(const GX3DLine& line, const GX3DPoint& p);
};
