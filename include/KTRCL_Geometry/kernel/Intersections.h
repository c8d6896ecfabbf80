// Kernel routines that cross lines and circles. The conventions stand in kernel/Kernel.h.
//
// Lines are unbounded and circles whole, except where a routine says otherwise: the caller checks
// ends and spans. Lines are held by slope and intercept; 1e-08 model units is the guard, inclusive
// and not scaled by any unit, up to which a line counts as upright or level and roots count as one.
#pragma once

#include <KTRCL_Geometry/Export.h>

/// @name Lines with lines -- src/kernel/LineIntersections.cpp

/// How unbounded line A meets segment B, in the plane.
/// Given: `unit`: unit flag, handed to `Inline_tol`; `x1`, `y1`, `x2`, `y2`: points 1 and 2 on A;
///   `x3`, `y3`, `x4`, `y4`: points 3 and 4, the ends of B.
/// Result:
///   - 0: parallel and not collinear, or the crossing lies off B
///   - 1: crossing on B, at point 2's end of A: not nearer to point 1 than to point 2
///   - 2: crossing on B, strictly nearer to point 1
///   - 3: collinear, and (point 1 - point 2).(point 4 - point 2) is 0 or below: 4 lies beyond 2
///   - 4: collinear, and that product is above 0: 4 lies on the side of 1
/// Notes: collinear, asked first, means that points 1 and 2 are both in line with B by `Inline_tol`
///   from point 3 with limit 1e-05 (over 25.4 for flag exactly 1). Slopes that differ by at most
///   1e-08 are parallel. A crossing is on B between its ends or within 0.0001 of one (distance,
///   inclusive, in inches too).
/// Degenerate: a B no longer than 0.0001 is collinear with every A. A of length 0 counts as
///   upright.
KTRCL_GEOMETRY_EXPORT int Intlin(const int& unit, double x1, double y1, double x2, double y2,
                                 double x3, double y3, double x4, double y4);

/// How unbounded line A meets segment B, in the plane; the leaner twin of `Intlin`.
/// Given: `unit`: unit flag, handed to `Inline`; `x1`, `y1`, `x2`, `y2`: points 1 and 2 on A; `x3`,
///   `y3`, `x4`, `y4`: points 3 and 4, the ends of B.
/// Result:
///   - 0: parallel and not collinear, or the crossing lies off B
///   - 1: crossing on B, at point 2's end of A: not nearer to point 1 than to point 2
///   - 2: crossing on B, strictly nearer to point 1
///   - 3: collinear, and (point 1 - point 3).(point 4 - point 3) is 0 or below
///   - 4: collinear, and that product is above 0
/// Notes: collinear is asked only where the slopes differ by at most 1e-08 or both lines are
///   upright, and means that points 1 and 2 are both in line with B by `Inline` from point 3. The
///   ends of B belong to it, without slack.
/// Caution: codes 3 and 4 look from point 3, those of `Intlin` from point 2; and lines that are
///   almost, not exactly, collinear have a crossing here.
KTRCL_GEOMETRY_EXPORT int Intlind(const int& unit, double x1, double y1, double x2, double y2,
                                  double x3, double y3, double x4, double y4);

/// Crossing of two lines in one plane of space.
/// Given: `unit`: unit flag, handed to `Inline`; `a1`, `a2`, `b1`, `b2`: points on the lines.
/// Returned: `out`: the crossing, in the plane of a1, a2 and b1 (b2 where b1 is in line with a).
/// Result: 1; 0, with `out` untouched, where the lines are parallel by `Inline`, both are upright
///   in that plane, their slopes in it differ by at most 1e-08, or the points span no plane.
/// Notes: `out` may be any of the inputs.
/// Caution: skew lines are projected into the plane in silence, where they have a crossing.
KTRCL_GEOMETRY_EXPORT int Intspt(const int& unit, const double* a1, const double* a2,
                                 const double* b1, const double* b2, double* out);

/// Crossing of two lines in the plane.
/// Given: `x1`, `x2`: x of two points on the first line; `x3`, `x4`: x of two on the second; `y1`,
///   `y2`, `y3`, `y4`: their y.
/// Returned: `x`, `y`: the crossing.
/// Result: 0; -1, with the outputs untouched, where the slopes differ by at most 1e-08 or both
///   lines are upright.
/// Caution: all x come before all y, and 0 is the success.
KTRCL_GEOMETRY_EXPORT int Intspnt_dll(double x1, double x2, double x3, double x4, double y1,
                                      double y2, double y3, double y4, double* x, double* y);

/// Crossing of two lines in one plane of space: `Intspt` with the output in front.
/// Given: `unit`: unit flag, handed on; `a1`, `a2`, `b1`, `b2`: points on the lines.
/// Returned: `out`: the crossing.
/// Result: 1; 0, with `out` untouched, where `Intspt` finds none.
/// Notes: `out` may be any of the inputs.
/// Caution: the output comes second.
KTRCL_GEOMETRY_EXPORT int Obtain_intersect_point(const int& unit, double* out, const double* a1,
                                                 const double* a2, const double* b1,
                                                 const double* b2);

/// Whether two rays meet.
/// Given: `unit`: unit flag, handed to `Intspt`; `a`, `b`: where the rays start.
/// Given and returned: `da`, `db`: their directions; they come back standardized, whatever the
///   result.
/// Result: 1 where the lines cross (`Intspt`) and the crossing lies strictly ahead of both starts,
///   else 0.
/// Notes: `da` and `db` must be other arrays than `a` and `b`, and than each other.
/// Caution: 0 for rays that start at the crossing, and for rays on one line.
KTRCL_GEOMETRY_EXPORT int Intpmf(const int& unit, const double* a, double* da, const double* b,
                                 double* db);

/// @name Circles in the plane -- src/kernel/CircleIntersections.cpp

/// Crossings of a line and a circle.
/// Given: `x1`, `y1`, `x2`, `y2`: two points on the line; `cx`, `cy`: centre; `sx`, `sy`: a point
///   on the circle.
/// Returned: `outX1`, `outY1`: the root with the plus sign, that of greater y (of greater x on a
///   level line); `outX2`, `outY2`: the other one.
/// Result: 0, with the outputs untouched, for none; 1 for a tangent: both coordinates of the roots
///   differ by at most 1e-08 (inclusive); 2 for two points.
/// Notes: a line whose y differ by at most 1e-08 counts as level at `y1`. On a tangent both outputs
///   are written.
/// Degenerate: a line of length 0 counts as level.
KTRCL_GEOMETRY_EXPORT int IntPnts_circle(double x1, double y1, double x2, double y2, double cx,
                                         double cy, double sx, double sy, double* outX1,
                                         double* outY1, double* outX2, double* outY2);

/// Crossing of a line and a circle that is nearer to a reference point.
/// Given: `x1`, `y1`, `x2`, `y2`: two points on the line; `cx`, `cy`: centre; `sx`, `sy`: a point
///   on the circle.
/// Given and returned: `x`, `y`: the reference; comes back as the crossing.
/// Result: 1; 0, with `x` and `y` untouched, where there is none.
/// Notes: the centre's distance from the line is that of `Dislpt`. Above the radius it means no
///   crossing where both are positive; below 0.000001 (strict) the crossings are the centre plus
///   and minus the radius along the standardized direction from point 1 to point 2. Otherwise they
///   are the roots of `IntPnts_circle`. On a tie the first one, plus, is taken.
/// Degenerate: a line of length 0 counts as level at `y1`.
/// Caution: `Dislpt` knows no distance up to 0.001 but 0, so a line that passes the centre as near
///   gives a crossing beside it; and the direction of one no longer than 0.0001 stays as it is, so
///   that its crossing through the centre lies off the circle.
KTRCL_GEOMETRY_EXPORT int Pntlac(double x1, double y1, double x2, double y2, double cx, double cy,
                                 double sx, double sy, double* x, double* y);

/// Crossing of two circles that is nearer to a reference point.
/// Given: `c1x`, `c1y`, `s1x`, `s1y`: centre of the first circle and a point on it; `c2x`, `c2y`,
///   `s2x`, `s2y`: the same of the second.
/// Given and returned: `x`, `y`: the reference; comes back as the crossing.
/// Result: 1; 0, with `x` and `y` untouched, where there is none.
/// Notes: 0 where the centres are farther apart than R1 + R2 - 0.000001, and where the greater
///   radius plus 1e-08 exceeds the smaller one plus that distance; circles that touch have so no
///   crossing. Roots within 1e-08 (inclusive) count as one; on a tie the first one, plus, is taken.
/// Caution: centres whose x differ by at most 1e-08 take half the chord as the root of k - (y -
///   c1y)^2, k being the constant of the radical line and not R1^2; hosts rely on that figure,
///   right or wrong, and 0 comes of a negative one.
KTRCL_GEOMETRY_EXPORT int Pntlaa(double c1x, double c1y, double s1x, double s1y, double c2x,
                                 double c2y, double s2x, double s2y, double* x, double* y);

/// Snaps a point to a circle, radially.
/// Given: `cx`, `cy`: centre; `sx`, `sy`: a point on the circle.
/// Given and returned: `x`, `y`: the point.
/// Result: always 1.
/// Notes: a point whose distance from the centre is the radius within 1e-08 (inclusive) stays as it
///   is, and so does one at the centre, which has no side.
KTRCL_GEOMETRY_EXPORT int Pntarc(double cx, double cy, double sx, double sy, double* x, double* y);

/// The two points of a circle along a direction.
/// Given: `cx`, `cy`: centre; `sx`, `sy`: a point on the circle; `dx`, `dy`: a point that gives the
///   direction from the centre.
/// Returned: `outX1`, `outY1`: the one of greater y, or of greater x where `dy` is exactly `cy`;
///   `outX2`, `outY2`: the other one.
/// Result: scalar product of the first output minus the centre with the direction: above 0 where
///   the first output faces the direction point, below 0 where the second does.
/// Degenerate: a direction point at the centre counts as level, with result 0.
KTRCL_GEOMETRY_EXPORT double Pntdet_dll(double cx, double cy, double sx, double sy, double dx,
                                        double dy, double* outX1, double* outY1, double* outX2,
                                        double* outY2);

/// Whether two points stand at given distances from a centre.
/// Given: `cx`, `cy`: centre; `px`, `py`: first point; `r1`: its distance; `qx`, `qy`: second
///   point; `r2`: its distance.
/// Result: 1 where both distances agree within 0.0001 (inclusive), else 0.
KTRCL_GEOMETRY_EXPORT int Detpnt(double cx, double cy, double px, double py, double r1, double qx,
                                 double qy, double r2);

/// The two points at a distance from point 0 on the line through points 0 and 1.
/// Given: `r`: distance; `x0`, `y0`, `x1`, `y1`: the points.
/// Returned: `out1`: the one of greater y, or of greater x where `y1` is exactly `y0`; `out2`: the
///   other one. Only x and y of them are written.
/// Result: scalar product of out1 minus point 0 with the way from point 0 to point 1: above 0 where
///   out1 lies towards point 1, below 0 where out2 does.
/// Notes: a negative `r` swaps the outputs. Points 0 and 1 that are equal count as level, with
///   result 0.
KTRCL_GEOMETRY_EXPORT double Offset_arc1(double r, double x0, double y0, double x1, double y1,
                                         double* out1, double* out2);

/// @name Circles in space -- src/kernel/ArcIntersections.cpp

/// Crossings of two circles in one plane of space.
/// Given: `unit`: unit flag, handed to `Inline`; `c1`, `s1`, `t1`: centre of the first circle, a
///   point on it, a third point that spans the plane with them; `c2`, `s2`, `t2`: the same of the
///   second.
/// Returned: `out1`: the root with the plus sign; `out2`: the other one.
/// Result: 0, with the outputs untouched, for none; 1 for outputs that coincide by `Pntcmp`; 2 for
///   two points. 0 also where the three points of a circle are in line by `Inline`.
/// Notes: the tests of `Pntlaa`, in the frame of `Lambda` on c1, s1, t1; the centres' local x are
///   told apart above 1e-07. `t2` is asked for being off the line alone. Either output may be any
///   of the inputs.
/// Caution: circles that touch give 0, and the second circle is projected into the plane of the
///   first in silence. Centres of the same local x take half the chord as in `Pntlaa`.
KTRCL_GEOMETRY_EXPORT int Intersect2D_circles(const int& unit, const double* c1, const double* s1,
                                              const double* t1, const double* c2, const double* s2,
                                              const double* t2, double* out1, double* out2);

/// Crossings of a line and the whole circle of an arc, where the line lies in the arc's plane.
/// Given: `unit`: unit flag, handed to `Inline`; `p1`, `p2`: two points on the line; `centre`,
///   `start`, `third`: points of the arc, not in line; `tol`: how far p1 and p2 may stand off its
///   plane, model units.
/// Returned: `out1`: the root with the plus sign, in the plane of the arc; `out2`: the other one.
/// Result: 0, with the outputs untouched, for none, for arc points in line by `Inline`, and where
///   p1 or p2 stands off by more than `tol`; 1 for roots that differ by at most 1e-08 in both local
///   coordinates; 2 for two points.
/// Notes: a line whose local y differ by at most 1e-08 counts as level. Both outputs are written
///   with 1 too. Either output may be any of the inputs.
KTRCL_GEOMETRY_EXPORT int Intersection_3D_line_arc(const int& unit, const double* p1,
                                                   const double* p2, const double* centre,
                                                   const double* start, const double* third,
                                                   double tol, double* out1, double* out2);

/// Crossings of a line, projected into an arc's plane, and the whole circle of the arc.
/// Given: `unit`: unit flag, handed to `Inline`; `p1`, `p2`: two points on the line; `centre`,
///   `start`, `third`: points of the arc, not in line; `ignored`: any figure.
/// Returned: `out1`: the root with the plus sign, in the plane of the arc; `out2`: the other one.
/// Result: 0, with the outputs untouched, for none, for arc points in line by `Inline`, and where
///   the projected line is farther from the centre (`Dislpt`) than the radius; 1 for roots that
///   differ by at most 1e-08 in both local coordinates; 2 for two points.
/// Notes: a projected line whose local y differ by at most 1e-08 counts as level. Both outputs are
///   written with 1 too. Either output may be any of the inputs.
/// Caution: a line across the plane projects to a point and is taken for a level line.
KTRCL_GEOMETRY_EXPORT int Intersection_line_arc_on_arc_plane(const int& unit, const double* p1,
                                                             const double* p2, const double* centre,
                                                             const double* start,
                                                             const double* third, double ignored,
                                                             double* out1, double* out2);

/// Crossings of a line, projected into an arc's plane, and the whole circle of the arc, with a
/// wider guard.
/// Given: `unit`: unit flag, handed to `Inline`; `p1`, `p2`: two points on the line; `centre`,
///   `start`, `third`: points of the arc, not in line; `ignored`: any figure.
/// Returned: `out1`: the root with the plus sign, in the plane of the arc; `out2`: the other one.
/// Result: as of `Intersection_line_arc_on_arc_plane`.
/// Notes: a projected line whose local y differ by at most 1e-05, not 1e-08, counts as level.
KTRCL_GEOMETRY_EXPORT int Intersection_line_arc_on_arc_plane_tol(
    const int& unit, const double* p1, const double* p2, const double* centre, const double* start,
    const double* third, double ignored, double* out1, double* out2);
