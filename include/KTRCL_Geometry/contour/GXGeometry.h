// The stateless service class on elements and contours. Every operation is static.
#pragma once

#include <KTRCL_Geometry/Export.h>

#include <vector>

class GX2DArc;
class GX2DElement;
class GX2DElmList;
class GX2DLine;
class GX2DPoint;
class GX2DPointList;
class GX3DArc;
class GX3DElement;
class GX3DElmList;
class GX3DLine;
class GX3DPoint;
class GX3DPointList;
class GXColBasedTransformMatrix;
class GXVector;

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

  /// @name Common ends and points on segments -- src/contour/GXGeometry_CommonEnds.cpp

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

  /// @name Distances, angles and parameters -- src/contour/GXGeometry_Measures.cpp

  /// Euclidean distance.
  static double GetDistancePointPoint(const GX2DPoint& a, const GX2DPoint& b);

  /// The same in space.
  static double GetDistancePointPoint(const GX3DPoint& a, const GX3DPoint& b);

  /// Distance of `p` from the bounded line, 0 or more: from its start or end where the foot of the
  /// perpendicular lies beyond it.
  ///
  /// Degenerate: false for a line of length exactly 0; `distance` is then 0.
  /// Caution: a line no longer than 0.0001 counts as unbounded (its `PointParametricOnLine` is 0).
  static bool GetDistanceLimitedLinePoint(const GX3DLine& line, const GX3DPoint& p,
                                          double& distance);

  /// Distance of `p` from the plane through a, b and c, 0 or more. `p` is not changed.
  ///
  /// Degenerate: with a, b and c in line, how far `ProjectPointOnPlane` moves the point.
  static double GetDistanceBetweenPointPlane(GX3DPoint& p, const GX3DPoint& a, const GX3DPoint& b,
                                             const GX3DPoint& c);

  /// Length of the stretch from `p1` to `p2` along a direction, 0 or more.
  ///
  /// Requires: `direction` of length 1; only then are points recognised that stand along it.
  /// Tolerance: 0.0001 length units, inclusive, within which the points are one and the answer is
  ///   0; 0.0001, strict, on the cosine of points along the direction, whose full distance counts.
  /// Degenerate: 0 where the direction has no crossing to offer, as one that is NaN.
  static double GetLengthOnDirection(const GX2DPoint& p1, const GX2DPoint& p2,
                                     const GXVector& direction);

  /// The middle between two points.
  static GX2DPoint Get2DMidPoint(const GX2DPoint& a, const GX2DPoint& b);

  /// Angle between two lines, each seen from start to end, in degrees: 0 to 180 without a sense, or
  /// with `clockwise` the turn from `a` to `b` clockwise, 0 up to 360.
  ///
  /// Degenerate: 0 where a line is not longer than 0.00001.
  static double GetAngleBetween2DLines(const GX2DLine& a, const GX2DLine& b, const bool& clockwise);

  /// The same in radians, 0 to pi or 0 up to 2 pi.
  static double GetAngleBetween2DLinesRad(const GX2DLine& a, const GX2DLine& b,
                                          const bool& clockwise);

  /// Turn from `a` to `b`, clockwise, in degrees from 0 up to 360: for vectors in space their
  /// angle, taken from 360 where Z of `a` cross `b` is above 0.
  ///
  /// Degenerate: 0 where a vector is not longer than 0.00001.
  static double GetAngleBetweenVectors(const GXVector& a, const GXVector& b);

  /// The same counter-clockwise: taken from 360 where Z of `a` cross `b` is below 0.
  static double GetAngleBetweenVectorsCCW(const GXVector& a, const GXVector& b);

  /// Angle between two vectors in radians: 0 to pi, or with `counterClockwise` the turn from `a` to
  /// `b`, where the side is told by the sign of Z of `a` cross `b`.
  ///
  /// Degenerate: 0 where a vector is not longer than 0.00001.
  /// Caution: also that 0 is taken from 2 pi, where the sign asks for it.
  static double GetAngleRadBetweenVectors(const GXVector& a, const GXVector& b,
                                          bool counterClockwise);

  /// Share of the line from start (0) to end (1) at which `p` stands, without limits: the ratio on
  /// X, or on Y where the line has no extent in X.
  ///
  /// Tolerance: 0.0001 length units; an extent that is no longer (inclusive) is passed over.
  /// Degenerate: 0 for a line no longer than 0.0001.
  /// Caution: no projection. For a point off the line the other coordinates have no effect.
  static double PointParametricOnLine(const GX2DPoint& p, const GX2DLine& line);

  /// The same in space: the ratio on X, else Y, else Z.
  static double PointParametricOnLine(const GX3DPoint& p, const GX3DLine& line);

  /// Of `b` and `c` the one that is not `a`, as a vector from the origin; `b` if neither is.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive, for `a` to be `b`; `c` is not looked at.
  static void VectorAnotherPnt(const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c,
                               GXVector& result);

  /// The vector to `a` from that one of `b` and `c` that is not `a`; from `b` if neither is.
  ///
  /// Tolerance: as in `VectorAnotherPnt`.
  static void VectorEndpPnt(const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c,
                            GXVector& result);

  /// Whether the sine of the angle between two lines is at most 0.01 (0.57 degrees), in the same or
  /// in opposite directions.
  ///
  /// Degenerate: false where a line has length exactly 0.
  static bool AreParallel3DLines(const GX3DLine& a, const GX3DLine& b);

  /// The same with `limit` for the sine, inclusive.
  static bool AreParallel3DLinesTol(const GX3DLine& a, const GX3DLine& b, const double& limit);

  /// @name Projections -- src/contour/GXGeometry_Projections.cpp

  /// Foot of the perpendicular from `p` to the unbounded line. Always true. `result` may be the
  /// point or an end of the line.
  ///
  /// Degenerate: a line of length zero gives its own point.
  static bool ProjectPointOnLine(GX2DPoint& result, const GX2DLine& line, const GX2DPoint& p);

  /// Moves `p` at right angles to the plane through a, b and c. Always true. The point may be one
  /// of the three.
  ///
  /// Degenerate: with a, b and c in line the frame on them has no inverse, and `p` moves to a place
  ///   of no meaning.
  static bool ProjectPointOnPlane(GX3DPoint& p, const GX3DPoint& a, const GX3DPoint& b,
                                  const GX3DPoint& c);

  /// Projects `p` along Z of a frame that is at hand, onto its plane of X and Y. `toGlobal` is the
  /// inverse of `toLocal`; nothing checks that. `result` may be `p` or `origin`.
  static void ProjectPointOnPlane(const GXColBasedTransformMatrix& toLocal,
                                  const GXColBasedTransformMatrix& toGlobal,
                                  const GX3DPoint& origin, const GX3DPoint& p, GX3DPoint& result);

  /// Exchanges coordinates by a code: 1 gives (x, y, z), 2 gives (y, z, x), 3 gives (z, x, y). Any
  /// other code leaves `to` as it is. Always 1. `to` may be `from`.
  static int Convert3DPointsByProjection(const GX3DPoint& from, GX3DPoint& to, const int& code);

  /// Takes `Convert3DPointsByProjection` with the same code back: 1 gives (x, y, z), 2 gives
  /// (z, x, y), 3 gives (y, z, x). Otherwise alike.
  static int Reconvert3DPointsByProjection(const GX3DPoint& from, GX3DPoint& to, const int& code);

  /// The first two coordinates of `Convert3DPointsByProjection`: 1 gives (x, y), 2 gives (y, z), 3
  /// gives (z, x). Otherwise alike.
  static int Convert3DTo2DPointByProjection(const GX3DPoint& from, GX2DPoint& to, const int& code);

  /// Scalar products of (x, y, 0) with the three stored vectors of the matrix, plus the origin.
  /// `result` may be `origin`.
  ///
  /// Caution: the vectors are applied as rows. To come out of a frame pass its inverse.
  static void ConvertPnt2DTo3DByCoordSystem(const GX2DPoint& p, GX3DPoint& result,
                                            const GXColBasedTransformMatrix& matrix,
                                            const GX3DPoint& origin);

  /// Coordinates of `p` in a frame: scalar products of `p` - `origin` with the first two stored
  /// vectors of the matrix. What stands off the plane of the frame is dropped.
  static void ConvertPnt3DTo2DByCoordSystem(const GX3DPoint& p, GX2DPoint& result,
                                            const GXColBasedTransformMatrix& matrix,
                                            const GX3DPoint& origin);

  /// @name Extents -- src/contour/GXGeometry_Projections.cpp

  /// Begins an extent in X and Y with a single point. In all four operations Z does not count and
  /// NaN widens nothing.
  static void Inf_maxmin_xy_setup(const GX3DPoint& p, GX2DPoint& min, GX2DPoint& max);

  /// Widens an extent by a point.
  static void Inf_maxmin_xy_pnt(const GX3DPoint& p, GX2DPoint& min, GX2DPoint& max);

  /// Widens an extent by a line. Where `first` is true the extent begins with its start; `first` is
  /// false afterwards.
  static void Inf_maxmin_xy_line(const GX3DPoint& start, const GX3DPoint& end, GX2DPoint& min,
                                 GX2DPoint& max, bool& first);

  /// Widens an extent by an arc that lies level: by start, end, and those of the four extreme
  /// points of the circle that lie on the arc's side of its chord. The radius is measured to the
  /// start, in X and Y. `first` as above.
  ///
  /// Degenerate: a full circle stored with equal ends has no chord; only its start widens.
  static void Inf_maxmin_xy_arc(const GX3DPoint& center, const GX3DPoint& start,
                                const GX3DPoint& mid, const GX3DPoint& end, GX2DPoint& min,
                                GX2DPoint& max, bool& first);

  /// @name Crossings of single elements -- src/contour/GXGeometry_Crossings.cpp

  /// Crossing of the unbounded lines.
  ///
  /// Returns: false, with `hit` untouched, for parallel lines. `hit` may be an end of a line.
  /// Tolerance: 0.00001, inclusive both times. Slopes that differ by no more are parallel; a line
  ///   with no more extent in X (length units) is upright, at the X of its start.
  /// Degenerate: a line of length zero counts as upright, as do two of them as parallel.
  /// Caution: slopes are compared, not angles, so steep lines are told apart at smaller angles than
  ///   level ones, and a level line does not cross one that rises by 5 in a million.
  static bool Get2DLineIntersection(const GX2DLine& a, const GX2DLine& b, GX2DPoint& hit);

  /// Crossing of the unbounded lines in the plane through `a` and the start of `b`, or the end of
  /// `b` where its start is in line with `a`.
  ///
  /// Returns: false, with `hit` untouched, where both ends of `b` are in line with `a`
  ///   (`PointsInLine`), and where the lines are parallel within that plane
  ///   (`Get2DLineIntersection`; X runs along `a`). `hit` may be an end of a line.
  /// Caution: nothing asks whether the lines meet. For skew lines the hit is the crossing of their
  ///   projections on the plane, which lies on `a`.
  static bool Get3DLineIntersection(const GX3DLine& a, const GX3DLine& b, GX3DPoint& hit);

  /// Crossings of the whole circles of two arcs.
  ///
  /// Returns: false, with both outputs untouched, for circles that are apart, inside one another or
  ///   touch: a distance of the centres above the sum of the radii less 0.000001, or short of their
  ///   difference plus 0.00001.
  /// Caution: false also where the center of either arc is in line with its start and end
  ///   (`PointsInLine`): half circles and full circles cross nothing.
  /// Caution: where the second center stands at a right angle to the start of `arc1`, as seen from
  ///   its center, the hits are off the circles, or NaN.
  static bool Get2DCirclesIntersection(const GX2DArc& arc1, const GX2DArc& arc2, GX2DPoint& first,
                                       GX2DPoint& second);

  /// Crossings of the unbounded line with the whole circle of the arc.
  ///
  /// Returns: false, with both outputs untouched, where the line passes the circle by. A line that
  ///   touches it gives the foot of the perpendicular twice.
  /// Tolerance: 0.00001 length units either way, inclusive, for touching.
  /// Degenerate: a line through the very centre, one of length zero, and a circle of radius zero
  ///   are not asked whether they touch. A line of length zero counts as level.
  /// Caution: a line that reaches no further than 0.00001 in Y between its ends, inclusive, is
  ///   crossed as if it were level at the height of its start; in X likewise as if it were upright.
  static bool Get2DLineArcIntersections(const GX2DLine& line, const GX2DArc& arc, GX2DPoint& first,
                                        GX2DPoint& second);

  /// Crossing of the unbounded line with the plane through a, b and c. `hit` may be any of the
  /// points.
  ///
  /// Returns: false, with `hit` untouched, where the scalar product of normal and line is exactly
  ///   0: for a line along the plane, one of length zero, and points that span no plane.
  /// Caution: no tolerance. A line that is parallel but for rounding is crossed far out.
  static bool GetLinePlaneIntersection(const GX3DLine& line, const GX3DPoint& a, const GX3DPoint& b,
                                       const GX3DPoint& c, GX3DPoint& hit);

  /// How `l1`, which is taken as unbounded, is to be brought to the bounded line `l2`.
  ///
  /// Returns:
  ///   0  no usable crossing: parallel and not in line, or the crossing lies off `l2`;
  ///   1  the crossing is at least as near to the end of `l1` as to its start;
  ///   2  the crossing is nearer to the start of `l1`;
  ///   3  in line, and the end of `l2` lies beyond the end of `l1`, or on it;
  ///   4  in line, and the end of `l2` lies on that side of the end of `l1` on which its start is.
  /// Tolerance: both ends of `l1` nearer than 0.00001 to the unbounded `l2`, strictly, for in line;
  ///   slopes as in `Get2DLineIntersection`; ends of `l2` reach 0.000001 further, inclusive.
  /// Degenerate: with an `l2` of length zero all is in line.
  static int GetTypeIntersectionLines(const GX2DLine& l1, const GX2DLine& l2);

  /// @name Crossings of lists -- src/contour/GXGeometry_Intersections.cpp

  /// Appends the crossings that lie on an element of `list1` and on one of `list2`, as new points
  /// that `points` owns: in the order of `list1`, then of `list2`, then as the two crossings of
  /// line and circle or of two circles come. What `points` holds stays in front. Always true.
  ///
  /// Tolerance: `Point2DOnClosedLine` and `Point2DOnArc` tell what lies on an element.
  /// Degenerate: points, rectangles, other kinds and null entries are passed over. The lists may be
  ///   the same one.
  /// Cost: near-linear in the number of elements and of pairs that come close to one another.
  /// Caution: a crossing at a joint is found with both elements of the joint, and a point of
  ///   touching twice with one; nothing is made unique.
  /// Caution: lines along one another do not cross, and half and full circles cross no arc.
  static bool GetIntersections(GX2DElmList& list1, GX2DElmList& list2, GX2DPointList& points);

  /// Sets `found` to true where `GetIntersections` would find something. Always true.
  ///
  /// Caution: `found` is never set to false; clear it before the call.
  static bool CheckIfIntersection(GX2DElmList& list1, GX2DElmList& list2, bool& found);

  /// Sets `found` to true where an element of the list crosses the line, bounded or, with
  /// `unbounded`, not. Always true. Otherwise as the form for two lists.
  static bool CheckIfIntersection(GX2DElmList& list, const GX2DLine& line, bool unbounded,
                                  bool& found);

  /// Replaces the points by the crossings of each element with those behind it, in the order of
  /// `GetIntersections`, without those at joints.
  ///
  /// A crossing at the start or end of an element is left out, unless that element stands in front
  /// of both that cross, or last in the list. Returns: whether there is a crossing that lies
  /// neither at the start nor at the end of the earlier one of its two elements.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  /// Degenerate: false for fewer than two elements. Points, rectangles and other kinds cross
  ///   nothing, but crossings at their start and end are left out too.
  /// Cost: as `GetIntersections`.
  /// Caution: the answer may be true while `points` is empty.
  static bool HasSelfIntersection(GX2DElmList& list, GX2DPointList& points);

  /// @name Overlaps and positions of points -- src/contour/GXGeometry_Overlaps.cpp

  /// Common part of two bounded lines that are in line (`PointsInLine`). Its ends are ends of the
  /// lines that lie on the other one (`Point2DOnClosedLine`), found in the order start and end of
  /// `a`, start and end of `b`: for equal lines it is `a`. It may be one of the lines.
  ///
  /// Returns: false where the lines are not in line, apart, or share no more than an end.
  /// Tolerance: 0.0001 on each coordinate, inclusive, within which ends coincide.
  /// Caution: where the lines share no more than an end, the start of `overlap` is written although
  ///   the answer is false.
  static bool GetOverlapLine(const GX2DLine& a, const GX2DLine& b, GX2DLine& overlap);

  /// Overlap of the first line in the list that has one with `line`; other kinds are passed over.
  /// `overlap` may be `line` or belong to the list.
  ///
  /// Caution: a line that only shares an end leaves the start of `overlap` behind, as above.
  static bool GetOverlapLine(const GX2DElmList& list, const GX2DLine& line, GX2DLine& overlap);

  /// Whether an end of one line lies strictly inside the other one (`Point3DOnClosedLine` gives 1).
  ///
  /// Caution: false for two lines with the same ends. True for a line that ends upon the other at
  ///   any angle.
  static bool CheckOverlappedLines(const GX3DLine& a, const GX3DLine& b);

  /// Whether `p`, seen from `origin`, lies off a direction, which is handed in as a point.
  ///
  /// Returns: 1 where the cosine of the angle differs from 1 by more than 0.0001 (about 0.8
  ///   degrees), 0 where `p` lies in the direction.
  /// Degenerate: 0 where the direction or the way from `origin` to `p` has length exactly 0, and
  ///   for a null pointer.
  static int Chk2DPnt(GX2DPoint* p, const GX2DPoint& direction, const GX2DPoint& origin);

  /// Whether `b` and `d` lie on opposite sides of the line from `a` through `c`, or one of them on
  /// it. Exact, without a tolerance.
  static bool CheckIntermediarPoint(const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c,
                                    const GX3DPoint& d);

  /// Two elements with the ends (a, b) and (c, d): that end of the second which the first one does
  /// not share. Asked in the order a-c, a-d, b-c, b-d. `other` may be any of the points.
  ///
  /// Returns: false, with `other` untouched, where they share none.
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  static bool GetNotSamePoint(const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c,
                              const GX3DPoint& d, GX3DPoint& other);

  /// @name Classification of contours -- src/contour/GXGeometry_Classification.cpp

  /// Place of a point to a closed contour.
  enum ePointInContourResult {
    ePointOutsideContour = 0,  ///< Outside, or the question could not be answered.
    ePointInsideContour = 1,   ///< Strictly inside.
    ePointOnContour = 2,       ///< On the contour within the tolerance.
  };

  /// Places a point by a level scan line through it: crossings to its left and to its right are
  /// counted apart, and both counts have to agree in parity. A vertex on the line counts once
  /// where the contour passes through. `p` is not changed.
  ///
  /// Returns: false, with `ePointOutsideContour`, where the crossings on both sides differ in
  ///   parity (an open contour), and where a point, a foreign kind, a null entry or a rectangle
  ///   beside other elements is met before the point is found on the contour. True with outside
  ///   for an empty list.
  /// Tolerance: `tolerance` length units, on each coordinate and inclusive, for a crossing to be
  ///   the point, and for heights. Elements have to be met within 0.00001, lines within 0.0001 at
  ///   their ends. A lone rectangle takes 0.00001 on each coordinate whatever `tolerance` is; a
  ///   lone circle 0.00001 on the difference of the squared distance and the squared radius, a band
  ///   that narrows with the radius.
  /// Cost: linear; one pass, which allocates nothing.
  /// Caution: lines whose slope is at most 0.00001 are never crossed, however they slant. An arc
  ///   that is only touched does not count, and the very point that is touched is not on the
  ///   contour unless another element has it. Of an arc that is crossed once, points are only
  ///   found on it where its ends lie on both sides of the level. A level that passes a joint of
  ///   two arcs by more than 0.00001 and less than `tolerance` can lose their crossing, and the
  ///   answer is false.
  static bool IsPointInClosedContour(const GX2DElmList& contour, GX2DPoint& p,
                                     ePointInContourResult& result, double tolerance);

  /// Whether every sample of `tested` is inside `enclosing`: its first start, all ends, ten
  /// points of each arc (every tenth of the sweep, and just before the end), the corners of
  /// rectangles. Neither list is changed.
  ///
  /// Returns: true for an empty `tested`. False from the first sample that is outside, or that
  ///   cannot be placed; and from the first on the contour where `onContourCountsAsInside` is
  ///   false.
  /// Tolerance: 0.0001 length units, as in `IsPointInClosedContour`.
  /// Degenerate: an arc whose points span no plane has the origin for its inner samples; null
  ///   entries have none.
  /// Cost: one scan of `enclosing` for each sample.
  /// Caution: lines are sampled at their ends only, so a contour whose corners lie inside and
  ///   whose lines lead outside is inside. Test for crossings beside it.
  static bool IsContourInClosedContour(const GX2DElmList& enclosing, GX2DElmList& tested,
                                       bool onContourCountsAsInside);

  /// Direction of a contour, from the topmost crossing on an upright line: below it, a clockwise
  /// contour runs to the right. With the lowest finite double for `x` the line is put in the
  /// middle of the widest gap between the X values of ends and extremes, the leftmost of equal
  /// gaps. The list is not changed.
  ///
  /// Returns: false, with `isClockwise` untouched, where no gap is left (fewer than two distinct
  ///   X values, or a point in the list), where a crossing cannot be computed, where a line is
  ///   met at exactly the height of the topmost crossing so far, where nothing is met, and with
  ///   `requireEvenCrossings`, which guards against open contours, for an odd number of
  ///   crossings.
  /// Tolerance: elements are met from their smallest X, inclusive, to their largest, exclusive;
  ///   both exact. Rectangles, foreign kinds and null entries are passed over.
  /// Degenerate: the list need not be closed; a single slanted line has a direction.
  /// Caution: an arc on top is judged by the chords of its `AddAsPolygon`. Should these give no
  ///   answer, the result is true all the same and `isClockwise` keeps what it held. Crossings of
  ///   arcs at equal heights are no error.
  static bool CheckDirectionOfElementList(GX2DElmList& list, bool& isClockwise,
                                          bool requireEvenCrossings, double x);

  /// Area inside a closed contour of lines and arcs, positive for a clockwise one; with
  /// `absolute` its absolute value. Length units squared.
  ///
  /// Degenerate: 0 for a list that is empty or not closed (`IsClosed` at 0.0001), which cannot be
  ///   told from a contour without area. A lone rectangle or full circle is positive. Null
  ///   entries and other kinds count nothing.
  /// Caution: a full circle beside other elements adds its area, whichever way it runs and
  ///   whatever the direction of the rest.
  static double GetContourSurface(const GX2DElmList& contour, bool absolute);

  /// Sum of the lengths of all elements, closed or not; 0 for an empty list. Null entries are
  /// passed over.
  static double GetContourPerimeter(const GX2DElmList& contour);

  /// Whether `p` lies on an element: on a segment (`Point2DOnClosedLine`), on an arc
  /// (`Point2DOnArc`), or on a point, within 0.0001 on each coordinate, inclusive. Other kinds
  /// and null entries are passed over.
  ///
  /// Caution: a rectangle answers for the rest of the list: what stands behind it is not looked
  ///   at.
  static bool Point2DOnElmList(const GX2DElmList& list, const GX2DPoint& p);

  /// @name Clean-up of chains -- src/contour/GXGeometry_CleanUp.cpp
  //
  // All of these work in place on lists that are in the order of their chain, destroy what they
  // remove and return true, also when nothing changes. Behind the last element stands the first;
  // a single element has no neighbour. Points, rectangles, foreign kinds and null entries are
  // passed over unless told otherwise. Iterators and pointers to removed elements are invalid
  // afterwards.

  /// `ClearElementsAsPoints` for lines and arcs, `FixConnections`, `TrunkOverlappingLines`,
  /// `RemoveSmallLoops`, then `Stitch` for lines and arcs.
  ///
  /// Cost: about linear where few loops are removed.
  /// Caution: the first step destroys full circles whose start is their end. A contour that is
  ///   one circle is not to be cleaned up.
  static bool CleanUp(GX2DElmList& list);

  /// The same in space, with `DivideLinesAtIntersection` between `TrunkOverlappingLines` and
  /// `RemoveSmallLoops`: flat contours that cross themselves stay, those in space lose a loop.
  ///
  /// Cost: quadratic, by the pairs of lines that are looked at.
  static bool CleanUp(GX3DElmList& list);

  /// With `clearLines` destroys lines whose ends coincide, with `clearArcs` arcs whose radius is
  /// 0 or whose start is their end.
  ///
  /// Tolerance: 0.0001 on each coordinate for ends, 0.00001 for the radius, both inclusive.
  /// Caution: `IsCircle` is not asked. A full circle whose start is its end goes, one whose mid
  ///   is its end stays.
  static bool ClearElementsAsPoints(GX2DElmList& list, const bool& clearLines,
                                    const bool& clearArcs);

  /// The same in space.
  static bool ClearElementsAsPoints(GX3DElmList& list, const bool& clearLines,
                                    const bool& clearArcs);

  /// Makes the end of each line or arc and the start of the next one exactly the same point where
  /// they coincide within 0.0001 on each coordinate, inclusive. The start of an arc stays: the
  /// end before it moves. In front of a line, the line's start moves.
  ///
  /// Caution: an arc whose end moves keeps mid and center. Elements that run the wrong way are
  ///   not matched.
  static bool FixConnections(GX2DElmList& list);

  /// The same in space.
  static bool FixConnections(GX3DElmList& list);

  /// Replaces two neighbouring lines, the second of which doubles back over the first, by the
  /// line from the start of the first to the end of the second. The second object survives, and
  /// is at once held against its own successor.
  ///
  /// Tolerance: the lines meet within 0.0001 on each coordinate, inclusive; the far end lies
  ///   nearer than 0.00001 to the carrier of the first line, strictly, and its parameter on that
  ///   line is below 1, exactly. It may lie behind the start.
  static bool TrunkOverlappingLines(GX2DElmList& list);

  /// The same in space.
  ///
  /// Caution: with 0.0001 for the distance from the carrier, ten times that of the flat form.
  static bool TrunkOverlappingLines(GX3DElmList& list);

  /// Cuts lines where they cross other lines of the list, so that every crossing is an end. The
  /// part in front of the crossing is a new line before the old one, which keeps the rest: a
  /// chain stays a chain. Arcs are not cut, nor lines where they cross arcs.
  ///
  /// Tolerance: the parameter of the crossing is to lie inside the line that is cut by more than
  ///   0.000001, and on the other between 0 and 1 give or take 0.00001; the crossing is to be at
  ///   neither end of the line that is cut, 0.0001 on each coordinate, inclusive.
  /// Degenerate: no more than 16 n^2 + 1024 cuts for n entries, which lines in one plane never
  ///   reach.
  /// Cost: quadratic in the lines that the list ends up with.
  /// Caution: skew lines are not told from lines that cross (`Get3DLineIntersection`), and may be
  ///   led aside: the second one's parameter is a ratio on one axis. A few of them can cut each
  ///   other up to the bound above, which a hundred lines take a minute to reach.
  static bool DivideLinesAtIntersection(GX3DElmList& list);

  /// Where two elements start at one point, takes away one of the two loops that the list
  /// consists of: the one that reaches less far from that point, of two that reach equally far
  /// the one from the later element on, past the end of the list, to the earlier one. Goes on
  /// until every start is there once.
  ///
  /// How far a loop reaches is the largest distance of its starts, and of the farthest points of
  /// the circles of its arcs where these lie on the arc. Every kind of element takes part.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  /// Cost: about linear without loops; at most quadratic.
  /// Caution: neither length nor area count, and ends are not looked at, so an open chain loses
  ///   its last stretch as easily as a loop.
  static bool RemoveSmallLoops(GX2DElmList& list);

  /// The same in space.
  static bool RemoveSmallLoops(GX3DElmList& list);

  /// With `stitchLines` joins neighbouring lines that go straight on, with `stitchArcs`
  /// neighbouring arcs about one center that meet. The second object survives, and is at once
  /// held against its own successor: a run of collinear lines becomes its last line.
  ///
  /// Lines: as in `TrunkOverlappingLines`, with 0.00001 from the carrier, but the parameter of
  /// the far end is above 1, exactly. Arcs: centers within 0.0001 on each coordinate, radii
  /// within 0.00001. A full circle takes up its neighbour. Arcs of the same sense meet at end and
  /// start; the survivor starts where the first one did. Arcs of opposite sense meet at their
  /// ends; the survivor starts at the end of the first one.
  ///
  /// Caution: one point of the survivor is set and its mid never. Two arcs that close a circle
  ///   leave one that ends at its old mid; two of opposite sense leave one whose start is its
  ///   end, unless they share both ends.
  static bool Stitch(GX2DElmList& list, const bool& stitchLines, const bool& stitchArcs);

  /// The same in space, where the sense of two arcs is told by their unit normals, 0.0001 on each
  /// component; arcs in different planes are not joined.
  static bool Stitch(GX3DElmList& list, const bool& stitchLines, const bool& stitchArcs);

  /// @name Profiles in space -- src/contour/GXGeometry_Profiles.cpp
  //
  // A profile is a list in space that lies in one coordinate plane. `plane` is 1, 2 or 3 as in
  // `Convert3DPointsByProjection`; the first two projected coordinates, called x and y below, are
  // the plane of the profile and the third is the depth. Arcs count by their chords; kinds that
  // are neither line nor arc, and null entries, are passed over. Lists are not changed unless told.

  /// Crossings of a bounded line with a profile. `point` receives the last one in list order, with
  /// the depth of the line, in the caller's axes.
  ///
  /// Returns: 0, always.
  /// Tolerance: a crossing counts strictly between the shares 0.0001 and 0.9999 of the line and of
  ///   the element. Below 0.0001 in x the line or element is upright; slopes that differ by no more
  ///   than 0.0001 are parallel. An upright element has to be higher than 0.0001.
  /// Degenerate: nothing is found where both ends of the line coincide within these bounds.
  /// Caution: the result says nothing; preset `point` and compare.
  /// Caution: a crossing at a joint of two elements or at an end of the line does not count, and a
  ///   bulge of an arc across the line is not seen.
  static int IntersectionPointProfile(const GX3DLine& line, GX3DPoint& point, GX3DElmList& list,
                                      const int& plane);

  /// The same crossings: `first` receives the first in list order and `second` the last, where
  /// there is more than one. What is not found stays unwritten.
  ///
  /// Returns: 0 for no crossing, 1 for one, 2 for more.
  static int IntersectionPointsProfile(const GX3DLine& line, GX3DPoint& first, GX3DPoint& second,
                                       GX3DElmList& list, const int& plane);

  /// Side to which a profile turns first: the first line whose end is off the carrier of the first
  /// element decides. An arc in front stands for the line from its center to its start; other arcs
  /// are passed over.
  ///
  /// Returns: 1 for a turn to the left, and where all is in line (`PointsInLine`); 0 for a turn to
  ///   the right and for an empty list.
  /// Degenerate: a first element that is neither line nor arc stands for a line of length zero at
  ///   the origin, with which every point is in line: 1.
  static int CheckDirection3DElmList(GX3DElmList& list, const int& plane);

  /// 0 where the line meets the start of the element (`Get3DLineIntersection` with the element, or
  /// the chord of an arc, within 0.0001 on each coordinate), otherwise `type`, also where there is
  /// no crossing, for other kinds and for a null pointer.
  static int CheckFurtherOnElement(const GX3DLine& line, GX3DElement* const& element,
                                   const int& type);

  /// Whether a bounded line lies inside a profile: both ends are on the inner side of every
  /// element, or the profile is crossed an odd number of times towards each end of the line
  /// (`GetTypeIntersectionLines` 1 and 2, without crossings at the start of an element).
  ///
  /// Returns: 1 inside, 0 not. 1 for an empty list.
  /// Caution: the inner side of a profile that turns left first (`CheckDirection3DElmList`, the
  ///   first turn alone) is the right one, and the other way round.
  static int LineIn3DElmList(GX3DElmList& list, const GX3DLine& line, const int& plane);

  /// Destroys and erases every element whose `GetMinY` is strictly below `minY`. Y is the global
  /// one; no projection takes part.
  ///
  /// Degenerate: null entries stay.
  static void Filter3DElementListByMinY(GX3DElmList& list, const double& minY);

  /// @name Constructions -- src/contour/GXGeometry_Constructions.cpp

  /// Where the line beside a bent corner ends. The corner is `p1` with legs towards `p0` and `p2`;
  /// `p3` tells the side, `angle` is the inner angle in degrees, `length` the leg behind the bend,
  /// `r` the bend radius and `t` the thickness. x and y of `result[0]` and, behind an answer of 2,
  /// of `result[1]` are written; z and the third entry never are.
  ///
  /// Returns: 1 for an angle above 1.5707963267948965 rad (right angles included) with `p3` on the
  ///   side of `p2`; 2 otherwise.
  /// Tolerance: a leg, or the tangent of half the angle, is nothing within 0.00001, inclusive. No
  ///   point moves along a leg of nothing; a tangent of nothing leaves both points at `p0`.
  /// Degenerate: a full turn is taken off an angle beyond half a turn, of either sign, and the side
  ///   is reversed; then the sign is dropped.
  static int GetLinesWithThickness(const GX2DPoint& p0, const GX2DPoint& p1, const GX2DPoint& p2,
                                   const GX2DPoint& p3, const double& angle, const double& length,
                                   const double& r, const double& t, GX3DPoint (&result)[3]);

  /// Fillet of two lines that share an end: from the tangent point on `l2` to that on `l1`, with
  /// its middle on the arc (`GX2DArc::Normalize`).
  ///
  ///      |
  ///     end        l1 upright, l2 level
  ///      | .
  ///      |    start
  ///      +--------------
  ///
  /// Tolerance: 0.0001 on each coordinate for the shared end; 0.00001 for directions along an axis.
  /// Caution: there is no failure result. Without a shared end, with parallel lines and with a
  ///   radius that does not fit, the arc follows from the formulas and means nothing; compare its
  ///   center with what is expected.
  static void Construct2DArcBetween2Lines(const GX2DLine& l1, const GX2DLine& l2,
                                          const double& radius, GX2DArc& arc);

  /// Appends points of an ellipse, counter-clockwise, every 0.6 degrees of the parameter from
  /// `startParam` (radians), and last the point of `endParam` exactly. `axisEnd` is the end of the
  /// major axis, at parameter 0; `ratio` is the minor axis by the major one.
  ///
  /// Degenerate: nothing is appended where `endParam` is at most `startParam`. Other parameters
  ///   that are not finite, or so large that the steps get lost, append the end point only, if that
  ///   is finite. No call appends more than 1,000,000 points.
  /// Caution: the major axis is as long as its distance in space, z included.
  static void ConvertEllipseToPoints(const GX3DPoint& centre, const GX3DPoint& axisEnd,
                                     const double& ratio, const double& startParam,
                                     const double& endParam, std::vector<GX2DPoint>& points);

  /// Appends the two lines from a point to the circle of an arc that touch it.
  ///
  /// Returns: false, with nothing appended, where the squared distance from the center is not above
  ///   the squared radius by more than 0.0001.
  /// Caution: false as well, although both lines are appended, for a point above or below the
  ///   center (nearer than 0.0001 in x).
  /// Caution: the equation of the circle is solved in the coordinates of the drawing. Far from the
  ///   origin digits are lost, most for a point nearly above the center, until ends are off the
  ///   circle, NaN, or false comes without a line.
  static bool GetLinesTangentToArcFromPoint(const GX2DPoint& p, const GX2DArc& arc,
                                            std::vector<GX2DLine>& lines);

  /// Whether `p2` is the rightmost point of the circle through three points: further right of the
  /// center than the radius less 0.000001, strictly.
  ///
  /// Degenerate: points in line are measured from the origin, the center that was never found.
  static bool IsPointXExternalPointOnArc(const GX3DPoint& p1, const GX3DPoint& p2,
                                         const GX3DPoint& p3);

  /// Center of the circle through three points in space.
  ///
  /// Returns: 1; 0, with `centre` untouched, where the points are in line (`PointsInLine`).
  static int GetCenterArcBy3Points(const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c,
                                   GX3DPoint& centre);

  /// Cuts an arc at a point: `first` runs from its start to `p`, `second` from `p` to its end. The
  /// middle of `second` is a quarter turn behind `p`, or an eighth where that makes `second` a full
  /// circle (`GX2DArc::IsCircle`, so also where its end is a quarter turn behind `p`). `p` need not
  /// lie on the arc.
  ///
  /// Caution: `first` keeps the middle of the whole arc, also where that lies beyond `p`.
  static void Divide2DArcAtPoint(GX2DArc arc, const GX2DPoint& p, GX2DArc& first, GX2DArc& second);

  /// Axis and angle, in radians, of a rotation matrix.
  ///
  /// Degenerate: a matrix without rotation gives the axis of length 0 and the angle 0.
  /// Tolerance: 0.0001 on each component for half a turn; below 0.05 rad the axis is taken from the
  ///   skew part of the matrix, and the angle is its length.
  /// Caution: the sign is taken from a sum that has the z term twice and no x term, so rotations
  ///   about axes near x may come out with the wrong sign.
  /// Caution: half a turn is looked for first, at that absolute tolerance, so a tiny rotation,
  ///   whose raw axis is short, may come out as half a turn.
  static void GetRotationAxisAndAngle(const GXColBasedTransformMatrix& matrix, GXVector& axis,
                                      double& angle);

  /// @name Searches in arrays of points -- src/contour/GXGeometry_PointSearches.cpp

  /// Of a grid of points, the one whose distances to the point of its row and of its column exceed
  /// two lengths by the smallest sum; of equal ones the first, row by row. With it its row and
  /// column point are written. `lastRow` and `lastColumn` are the last indexes, inclusive.
  ///
  /// Degenerate: without a point that exceeds both, and for a null pointer, nothing is written.
  ///   Columns beyond the eighth are not looked at.
  static void DeterminePointByLength(GX2DPoint& best, GX2DPoint& bestRow, GX2DPoint& bestColumn,
                                     GX2DPoint (*grid)[8], GX2DPoint* rows, int lastRow,
                                     GX2DPoint* columns, int lastColumn, const double& rowLength,
                                     const double& columnLength);

  /// Copies the points that lie in the direction from `origin` to `target`, in order, to `found`,
  /// which has room for nine; the search ends with the ninth.
  ///
  /// Returns: number of points found minus 1, so -1 for none, for a `count` below 1 and for a null
  ///   pointer.
  /// Tolerance: 0.0001 on the cosine of the angle, inclusive.
  /// Degenerate: a point at the origin has no direction and is not found, and with `target` at the
  ///   origin none is.
  static int FindPointInList(GX2DPoint* points, GX2DPoint* found, int count,
                             const GX2DPoint& origin, const GX3DPoint& target);

  /// Whether `a` is `distanceB` away from `b` and `distanceC` away from `c`, 0.0001, inclusive.
  static bool CheckIfPointAtDistanceFrom2Points(const GX2DPoint& a, const GX2DPoint& b,
                                                const double& distanceB, const GX2DPoint& c,
                                                const double& distanceC);

  /// @name Surrounding lines -- src/contour/GXGeometry_SurroundingPolygon.cpp

  /// Line from the point, turned counter-clockwise from the radius to it, as long as the radius.
  /// The point need not lie on the arc, and its sense does not count. Always true.
  static bool GetTangentLineToArcAtPoint(const GX2DArc& arc, const GX2DPoint& point,
                                         GX2DLine& tangent);

  /// The same at the start of the arc.
  static bool GetTangentLineToArcAtStart(const GX2DArc& arc, GX2DLine& tangent);

  /// The same at the end of the arc.
  static bool GetTangentLineToArcAtEnd(const GX2DArc& arc, GX2DLine& tangent);

  /// Replaces `target` by the points of a polygon around a closed contour of lines and arcs: where
  /// neighbouring lines meet, their crossing; for a fillet between two lines, their corner; for any
  /// other arc its start, middle and end. `target` must not be `source`, and owns its new points.
  ///
  /// Returns: false for a null pointer, and then nothing changes.
  /// Tolerance: an arc is the fillet of its lines where the center of the true one
  ///   (`Construct2DArcBetween2Lines`) is nearer than 0.001, strictly.
  /// Degenerate: other kinds and null entries add nothing and do not count as lines.
  /// Caution: where a line goes on in the same direction, their joint is left out.
  /// Caution: an arc whose start differs in any bit from its joint with the element before (the
  ///   origin where there is none) is taken the other way round; the arc itself stays.
  static bool GetSurroundingPolygon(GX2DElmList* const& source, GX2DElmList* const& target);

  /// Rotation in degrees, from 0 up to but not including 90, for which the upright box of a contour
  /// is smallest, tried every `step` degrees. With `snap` the direction of a line that is nearer to
  /// that than half a step is taken instead, the nearest one.
  ///
  /// Returns: 0 for a box with an area below 0.0001.
  /// Tolerance: boxes are compared exactly; of equal ones the first stays.
  /// Degenerate: a step that is NaN, not above 0, from 90 on, or so small that it gets lost means
  ///   no search; no more than 1,000,000 angles are tried.
  /// Caution: directions are measured against an upright line from (x, y) to (x, x + 5), which
  ///   points up or down as x + 5 lies to y, so a line may be taken for its opposite. Where the
  ///   nearest is measured at exactly 0, there is no snap. The result of a snap can lie outside 0
  ///   to 90.
  static double GetAngleWithMinBoundingBox(const GX2DElmList& list, double step, bool snap);
};
