// Kernel routines for sheet thickness, unfolding, corners and extents. The conventions stand in
// kernel/Kernel.h.
#pragma once

#include <KTRCL_DataTypes/GXDoubleVector.h>
#include <KTRCL_Geometry/Export.h>

/// @name Thickness and bends -- src/kernel/Bends.cpp

/// Moves points 1 and 2 along the way from point 2 to point 3, in the plane.
/// Given: `x1`, `y1`, `x2`, `y2`, `x3`, `y3`: the points; `t`: factor on the fixed length of 15.0.
/// Returned: `out` (2 rows): point 1 and point 2, each moved by 15.0 * t; z = 0.
/// Degenerate: points 2 and 3 that are equal give no numbers.
/// Caution: `t` is not a thickness in model units, and stands behind the output.
KTRCL_GEOMETRY_EXPORT void Cal_thickness(double x1, double y1, double x2, double y2, double x3,
                                         double y3, double (*out)[3], double t);

/// Outline of a bent flange at the sheet's thickness, in the plane: two lines meet at point 2, from
/// point 1 and towards point 3.
/// Given: `x1`, `y1`, `x2`, `y2`, `x3`, `y3`: the points; `x4`, `y4`: a point on the side of the
///   material; `angle`: bend angle, radians; `length`: length along the second line; `thickness`,
///   `radius`: of sheet and bend.
/// Returned: `out` (2 rows): the outline's points. u and v are the unit vectors from point 2 to
///   points 1 and 3, d is the distance of points 1 and 2, a = |angle|:
///   - a above 1.5707963167948966, material on the side of point 3: out[0] = point 2 + v length
///   - a above it, other side: out[1] = point 1 - u (d - w), out[0] = out[1] + v (length - w), with
///     w = thickness / tan(a/2)
///   - else: out[1] = point 1 - u (k + d), out[0] = out[1] + v (k + length); with
///     c = 1 / tan(a/2) - 1, k is c (thickness + radius) for material on the side of point 3, and
///     c radius - thickness for the other side
/// Result: 1 or 2, the number of rows written.
/// Notes: only x and y of a row are written. The side of point 3 means strictly so: both cross
///   products with the line through 1 and 2 of one sign. An angle above pi in magnitude is replaced
///   by -(2 pi - |angle|), and the side changes. The limit is strict and 1e-08 below pi/2.
/// Degenerate: equal points 1 and 2, or 2 and 3, and an angle of 0 give infinities or NaN.
KTRCL_GEOMETRY_EXPORT int Cal_lines_with_thick(double x1, double y1, double x2, double y2,
                                               double x3, double y3, double x4, double y4,
                                               double angle, double length, double thickness,
                                               double radius, double (*out)[3]);

/// K factor, the place of the neutral line in the sheet, from a measured unfolded length.
/// Given: `thickness`: of the sheet; `unfolded`: measured length; `lengths`: flange lengths;
///   `radii`, `angles`: of the bend before the flange of the same index, from 1 on; degrees, 180 is
///   flat.
/// Result: N / D. N starts as lengths[0] - unfolded and D as 0; each bend, b = (180 - |angle|)
///   pi / 180, adds radius b + length - 2 (radius + thickness) to N and takes b thickness from D;
///   above 90.01 degrees the last term of N is multiplied by tan(b/2). -1.0 where D is at most
///   0.0001 in magnitude (inclusive), as without bends, where `lengths` is empty, and where `radii`
///   or `angles` has fewer entries.
/// Notes: entry 0 of `radii` and `angles` is not read.
/// Caution: the setback jumps at 90.01 degrees, and -1.0 may be a computed factor too.
KTRCL_GEOMETRY_EXPORT double K_factor_by_unfolding_and_3D(const double& thickness,
                                                          const double& unfolded,
                                                          GXDoubleVector lengths,
                                                          GXDoubleVector radii,
                                                          GXDoubleVector angles);

/// Lengthens a segment at both ends by 30000.0 model units each.
/// Given and returned: `x1`, `y1`, `z1`, `x2`, `y2`, `z2`: its ends.
/// Notes: all six must be different places.
/// Degenerate: a segment of length zero comes back as no numbers.
KTRCL_GEOMETRY_EXPORT void Alluco(double* x1, double* y1, double* z1, double* x2, double* y2,
                                  double* z2);

/// @name Corners -- src/kernel/Corners.cpp

/// The point of a grid that keeps clear of two circles at the least cost.
/// Given: `gridX`, `gridY` (n + 1 rows of 8): the candidates; `tableAx`, `tableAy`: centre of the
///   first circle for each row; `n`: greatest row; `tableBx`, `tableBy`: centre of the second for
///   each column; `m`: greatest column; `rA`, `rB`: the radii.
/// Returned: `x`, `y`: the candidate; `ax`, `ay`: its entry of table A; `bx`, `by`: its entry of
///   table B.
/// Result: true; false, with the outputs untouched, where no candidate keeps clear, and where `n`
///   or `m` is negative.
/// Notes: the clearances are the distances from the centres less the radii; both have to be 0 or
///   more, and their sum is the cost. The lowest one wins, on equal cost the first one by row, then
///   by column. The tables have n + 1 and m + 1 entries, the grid n + 1 rows; an `m` above 7 counts
///   as 7. The outputs may be entries of the inputs, but must be six different places.
KTRCL_GEOMETRY_EXPORT bool Dtpnt1(double* x, double* y, double* ax, double* ay, double* bx,
                                  double* by, const double (*gridX)[8], const double (*gridY)[8],
                                  const double* tableAx, const double* tableAy, int n,
                                  const double* tableBx, const double* tableBy, int m, double rA,
                                  double rB);

/// Flags that steer how far the lines at a corner are extended, from x and y.
/// Given: `Px`, `Py`, `Qx`, `Qy`, `Rx`, `Ry`, `Sx`, `Sy`, `Tx`, `Ty`, `Ux`, `Uy`, `Wx`, `Wy`: seven
///   points of the plane.
/// Returned: `f1`: where R and Q lie on one side of P strictly in x and loosely in y, whether PQ <
///   PR, else whether PQ <= QU; `f2`: where T and S do, whether PS < PT, else whether PS <= SW. 1
///   for yes, 0 for no.
/// Notes: on one side means both above or both below; equality fails strictly and passes loosely.
///   Distances are compared as squares. `f1` and `f2` must be different places.
KTRCL_GEOMETRY_EXPORT void Aggius_utl1(double Px, double Py, double Qx, double Qy, double Rx,
                                       double Ry, double Sx, double Sy, double Tx, double Ty,
                                       double Ux, double Uy, double Wx, double Wy, int* f1,
                                       int* f2);

/// Flags that steer how far the lines at a corner are extended, the first one from y alone.
/// Given: `Px`, `Py`, `Qx`, `Qy`, `Rx`, `Ry`, `Sx`, `Sy`, `Tx`, `Ty`, `Ux`, `Uy`, `Wx`, `Wy`: seven
///   points of the plane.
/// Returned: `f1`: where Q and R lie on one side of P strictly in y, whether PQ < PR, else whether
///   PQ <= QU; `f2`: as by `Aggius_utl1`. 1 for yes, 0 for no.
/// Notes: as `Aggius_utl1`.
KTRCL_GEOMETRY_EXPORT void Aggius_utl2(double Px, double Py, double Qx, double Qy, double Rx,
                                       double Ry, double Sx, double Sy, double Tx, double Ty,
                                       double Ux, double Uy, double Wx, double Wy, int* f1,
                                       int* f2);

/// Flags that steer how far the lines at a corner are extended, the second one from y alone.
/// Given: `Px`, `Py`, `Qx`, `Qy`, `Rx`, `Ry`, `Sx`, `Sy`, `Tx`, `Ty`, `Ux`, `Uy`, `Wx`, `Wy`: seven
///   points of the plane.
/// Returned: `f1`: as by `Aggius_utl1`; `f2`: where S and T lie on one side of P strictly in y,
///   whether PS < PT, else whether PS <= SW. 1 for yes, 0 for no.
/// Notes: as `Aggius_utl1`.
KTRCL_GEOMETRY_EXPORT void Aggius_utl3(double Px, double Py, double Qx, double Qy, double Rx,
                                       double Ry, double Sx, double Sy, double Tx, double Ty,
                                       double Ux, double Uy, double Wx, double Wy, int* f1,
                                       int* f2);

/// @name Extents -- src/kernel/Extents.cpp
///
/// A box is `double[4]`: min x, max x, min y, max y. It must be another array than the points.

/// Whether at least one of two points lies in a rectangle, its border included.
/// Given: `minX`, `maxX`, `minY`, `maxY`: the rectangle; `x1`, `y1`, `x2`, `y2`: the points.
/// Result: 1 for yes, else 0.
/// Caution: only the two points are looked at; a segment between them may cross the rectangle and
///   give 0.
KTRCL_GEOMETRY_EXPORT int Inreta(double minX, double maxX, double minY, double maxY, double x1,
                                 double y1, double x2, double y2);

/// Starts a box at a point.
/// Given: `p`: the point; z is not read.
/// Returned: `box`: all four bounds.
KTRCL_GEOMETRY_EXPORT void Inf_maxmin_xy_setup(const double* p, double* box);

/// Widens a box by a point.
/// Given: `p`: the point; z is not read.
/// Given and returned: `box`: the bounds; one is replaced where the point is strictly beyond it.
KTRCL_GEOMETRY_EXPORT void Inf_maxmin_xy_pnt(const double* p, double* box);

/// Widens a box by a segment, or starts it there.
/// Given: `a`, `b`: ends of the segment.
/// Given and returned: `box`: the bounds, not read where it is started; `first`: exactly 1 starts
///   the box and comes back as 0, every other value stays.
KTRCL_GEOMETRY_EXPORT void Inf_maxmin_xy_line(const double* a, const double* b, double* box,
                                              int* first);

/// Widens a box by an arc of the plane, or starts it there.
/// Given: `centre`, `start`, `middle`, `end`: the arc.
/// Given and returned: `box`: the bounds, not read where it is started; `first`: exactly 1 starts
///   the box and comes back as 0, every other value stays.
/// Notes: start and end count in all cases. A point of the circle straight right, left, above or
///   below the centre counts where the cross product of the ways from start to end and to it, times
///   that of the ways from centre to start and to middle, is strictly below 0: on the arc's side of
///   the chord.
/// Caution: an arc whose end is its start has no chord and so none of the four, and a full circle
///   counts as the lesser arc from start to end. The radius is the distance from centre to start in
///   space.
KTRCL_GEOMETRY_EXPORT void Inf_maxmin_xy_arc(const double* centre, const double* start,
                                             const double* middle, const double* end, double* box,
                                             int* first);
