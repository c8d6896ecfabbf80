// Kernel predicates and measures of points and straight lines. The conventions stand in
// kernel/Kernel.h.
#pragma once

#include <KTRCL_Geometry/Export.h>

/// @name Directions of lines -- src/kernel/LineDirections.cpp

/// Whether two segments are parallel; only their directions are compared, and opposite ones count.
/// Given: `unit`: unit flag, exactly 1 is inches; `a1`, `a2`, `b1`, `b2`: ends of the segments.
/// Result: 1 where the absolute components of the cross product of the unit directions add up to at
///   most 0.0001 (in inches 3.937007874015748e-06), else 0.
/// Notes: the limit is inclusive, and a ratio although it follows the unit. A segment no longer
///   than 0.0001, in inches too, is parallel to everything: 1.
KTRCL_GEOMETRY_EXPORT int Inline(const int& unit, const double* a1, const double* a2,
                                 const double* b1, const double* b2);

/// Whether two segments are parallel at a limit.
/// Given: `unit`: unit flag, exactly 1 is inches; `a1`, `a2`, `b1`, `b2`: ends of the segments;
///   `tol`: limit of the sum that `Inline` forms, divided by 25.4 in inches.
/// Result: 1 where the sum is at most the limit (inclusive), else 0.
/// Notes: a segment no longer than 0.0001, in inches too, gives 1.
KTRCL_GEOMETRY_EXPORT int Inline_tol(const int& unit, const double* a1, const double* a2,
                                     const double* b1, const double* b2, double tol);

/// Whether two segments are parallel, by the angle.
/// Given: `unit`: unit flag, not used; `a1`, `a2`, `b1`, `b2`: ends of the segments.
/// Result: 1 where the cosine is 1.00000001 or more in magnitude, or differs from 1 by at most
///   0.0001, or the angle is at most 0.0001 degrees or above 179.5 degrees; else 0.
/// Notes: a segment no longer than 0.0001 gives 1. A cosine that rounding takes beyond 1 counts as
///   1.
/// Caution: lopsided: about 0.8 degrees pass at the same direction, 0.5 at the opposite one.
KTRCL_GEOMETRY_EXPORT int Inline_new(const int& unit, const double* a1, const double* a2,
                                     const double* b1, const double* b2);

/// Whether segment b turns off from segment a at an end that they share.
/// Given: `unit`: unit flag, handed to `Inline`; `a1`, `a2`, `b1`, `b2`: ends of the segments.
/// Result: 1 where the way from the shared end of a (a1 tried first) to its far end is not
///   parallel, by `Inline`, to the way to b1 or to that to b2; 0 where both are, and where no end
///   is shared.
/// Notes: ends coincide by `Pntcmp`.
/// Caution: 1 means that b does not continue a in a straight line, forth or back; 0 may mean as
///   well that they do not meet.
KTRCL_GEOMETRY_EXPORT int Pre_inline(const int& unit, const double* a1, const double* a2,
                                     const double* b1, const double* b2);

/// Whether b and c stand in line with a, with more room where one of them is close to a.
/// Given: `unit`: unit flag; `a`, `b`, `c`: points.
/// Result: true where the ways from a to b and to c are parallel by `Inline`; also where one of
///   them is shorter than 0.05 (0.0019685039370078744 in inches, both strict) and they open by more
///   than 179.95 degrees.
/// Notes: a cosine that rounding takes beyond 1 counts as 1.
/// Caution: every non-zero flag is inches for the short length, exactly 1 for `Inline`.
KTRCL_GEOMETRY_EXPORT bool Almost_inline(const int& unit, const double* a, const double* b,
                                         const double* c);

/// Whether two segments that share an end run on almost straight.
/// Given: `a1`, `a2`, `b1`, `b2`: ends of the segments.
/// Result: 1 where they open by 177 degrees or more at the shared end: a cosine of at most
///   cos(3.0892327760299634), inclusive; else 0.
/// Notes: shared ends are sought by `Pntcmp` in the order a1 b1, a1 b2, a2 b1, a2 b2; none gives 0,
///   and so does a segment of length 0. Each direction starts at the segment's own end.
/// Caution: segments that lie on top of each other give 0, whereas `Inline` gives 1.
KTRCL_GEOMETRY_EXPORT int Collne(const double* a1, const double* a2, const double* b1,
                                 const double* b2);

/// Whether two segments are parallel, by the sine of their angle; opposite directions count.
/// Given: `a1`, `a2`, `b1`, `b2`: ends of the segments.
/// Result: 1 where the sine is at most 0.01 in magnitude (inclusive), else 0.
/// Notes: a segment of length exactly 0 gives 1.
KTRCL_GEOMETRY_EXPORT int Are_parallel_lines(const double* a1, const double* a2, const double* b1,
                                             const double* b2);

/// Whether two segments are parallel at a limit of the sine of their angle.
/// Given: `a1`, `a2`, `b1`, `b2`: ends of the segments; `tol`: limit, a ratio.
/// Result: 1 where the sine is at most `tol` in magnitude (inclusive), else 0.
/// Notes: a segment of length exactly 0 gives 1.
KTRCL_GEOMETRY_EXPORT int Are_parallel_lines_tol(const double* a1, const double* a2,
                                                 const double* b1, const double* b2, double tol);

/// Whether the ends of segment b stand equally far from the unbounded line through a.
/// Given: `a1`, `a2`, `b1`, `b2`: ends of the segments; `tol`: limit, model units.
/// Result: 1 where the two distances differ by less than `tol` (strict), else 0.
/// Notes: a segment of length exactly 0 gives 1, whatever `tol` is.
/// Caution: distances have no sign, so a segment that crosses the line in its own middle passes.
KTRCL_GEOMETRY_EXPORT int Are_parallel_lines_tol_distan(const double* a1, const double* a2,
                                                        const double* b1, const double* b2,
                                                        double tol);

/// Whether the ways b to a and d to c stand at a right angle.
/// Given: `a`, `b`, `c`, `d`: points.
/// Result: true where the scalar product of the standardized a - b and c - d is at most 0.000001 in
///   magnitude (inclusive).
/// Notes: a way no longer than 0.0001 is not brought to length 1 and so may pass at any angle.
KTRCL_GEOMETRY_EXPORT bool Penpendiculer_vectors(const double* a, const double* b, const double* c,
                                                 const double* d);

/// Whether two segments stand at a right angle, crossing or not.
/// Given: `unit`: unit flag, handed to `Inline`; `a1`, `a2`, `b1`, `b2`: ends of the segments.
/// Result: 1 where b1 and b2 lie equally far along line a, within 0.0001 model units (inclusive, in
///   inches too); else 0, also where both are in line with a by `Inline`.
/// Notes: measured in the plane of a1, a2 and b1 (b2 where b1 is in line with a).
/// Caution: a length is compared, not an angle: a short segment passes at a worse angle than a long
///   one. Where a is no longer than 0.0001 everything is in line with it: 0.
KTRCL_GEOMETRY_EXPORT int Are_perpendicular_lines(const int& unit, const double* a1,
                                                  const double* a2, const double* b1,
                                                  const double* b2);

/// @name Points beside and on lines -- src/kernel/PointsOnLines.cpp

/// Whether a point lies from `p` in a direction; z is not looked at.
/// Given: `x`, `y`: coordinates of the point, one double each; `dir`: direction, of any length;
///   `p`: where to look from.
/// Result: 0 where the cosine between the way from `p` to the point and `dir` is within 0.0001 of 1
///   (inclusive), else 1.
/// Notes: 1 where the point stands on `p` or `dir` has no length in the plane.
/// Caution: 0 is the yes here.
KTRCL_GEOMETRY_EXPORT int Chkpnt(const double* x, const double* y, const double* dir,
                                 const double* p);

/// Tells whether two points lie on the same side of the unbounded line through a and b, in a plane
/// that they share with it.
/// Given: `a`, `b`: the line; `p1`, `p2`: the points.
/// Result: the scalar product of (b - a) x (p2 - a) with (b - a) x (p1 - a): above 0 on the same
///   side, below 0 on opposite ones, 0 with a point on the line. Not normalized.
KTRCL_GEOMETRY_EXPORT double Cp1ptp2(const double* a, const double* b, const double* p1,
                                     const double* p2);

/// Whether two points do not lie on the same side of the unbounded line through a and b.
/// Given: `a`, `b`: the line; `p1`, `p2`: the points.
/// Result: 1 where the scalar product of (b - a) x (p1 - a) with (b - a) x (p2 - a) is 0 or below,
///   else 0.
/// Notes: a point exactly on the line gives 1, and so does a line of length 0.
KTRCL_GEOMETRY_EXPORT int P1intp2(const double* a, const double* b, const double* p1,
                                  const double* p2);

/// Whether a point lies on a segment, ends included.
/// Given: `unit`: unit flag, handed to `Inline`; `a`, `b`: ends of the segment; `p`: the point.
/// Returned: `t`: parameter of `p`, 0 at a and 1 at b (`Point_parametrc_value_on_line`).
/// Result: true where a, b, p are in line by `Inline` and the parameter lies between -0.000001 and
///   1.000001, both strict.
/// Notes: `t` may be null; it stays untouched where the result is false.
/// Degenerate: true with parameter 0 for any point, where the segment is no longer than 0.0001.
KTRCL_GEOMETRY_EXPORT bool Inside_line_point(const int& unit, const double* a, const double* b,
                                             const double* p, double* t);

/// Place of a point on a segment.
/// Given: `unit`: unit flag, handed to `Inline`; `a`, `b`: ends of the segment; `p`: the point.
/// Result: 2 where `p` coincides with a or b by `Pntcmp`; 1 strictly between the ends; 0 elsewhere,
///   and first of all where a, b, p are not in line by `Inline`.
/// Notes: between means that (b - a).(p - a) and (a - b).(p - b) are both above 0.
KTRCL_GEOMETRY_EXPORT int Insidp(const int& unit, const double* a, const double* b,
                                 const double* p);

/// Place on a segment of a point that may stand beside it in x.
/// Given: `unit`: unit flag, handed on; `a`, `b`: ends of the segment; `p`: the point; `tol`: how
///   far it may stand off, model units.
/// Result: 2 where `p` coincides with a or b by `Pntcmp`; `Insidp` where it is in line by `Inline`;
///   else `Insidp` of the point where the horizontal through `p` crosses the line (`Intspt`) if
///   that one is strictly nearer to `p` than `tol`; 0 where it is not, or nothing is crossed.
/// Notes: the horizontal is the first line for `Intspt`, so it spans the plane with a (or b).
KTRCL_GEOMETRY_EXPORT int Insidp_crossing_X_tol(const int& unit, const double* a, const double* b,
                                                const double* p, double tol);

/// Place of a point along an unbounded line; the point need not be on it.
/// Given: `p`: the point; `a`, `b`: the line.
/// Result: the share of one component of p - a in that of b - a: x where b - a has more than 0.0001
///   of it in magnitude, else y where it has more of that, else z. 0.0 where a and b are at most
///   0.0001 apart (inclusive).
/// Caution: not the foot of a perpendicular. A line just longer than 0.0001 may have no z: infinity
///   or NaN.
KTRCL_GEOMETRY_EXPORT double Point_parametrc_value_on_line(const double* p, const double* a,
                                                           const double* b);

/// Whether two segments overlap.
/// Given: `unit`: unit flag, handed to `Insidp`; `a1`, `a2`, `b1`, `b2`: ends of the segments.
/// Result: 1 where an end of one lies strictly inside the other (`Insidp` 1), else 0.
/// Caution: equal segments give 0, and so do those that only touch at ends. Segments that meet in a
///   T give 1: directions are not compared.
KTRCL_GEOMETRY_EXPORT int Overlapped_lines(const int& unit, const double* a1, const double* a2,
                                           const double* b1, const double* b2);

/// Whether segment b lies in segment a.
/// Given: `unit`: unit flag, handed to `Insidp`; `a1`, `a2`, `b1`, `b2`: ends of the segments.
/// Result: 1 where `Insidp` of b1 and b2 on a is 1 and 1, 2 and 1, or 1 and 2; else 0.
/// Caution: 2 and 2, equal segments, gives 0.
KTRCL_GEOMETRY_EXPORT int Overlapped_completely_lines(const int& unit, const double* a1,
                                                      const double* a2, const double* b1,
                                                      const double* b2);

/// Whether two segments have the same ends, in either pairing.
/// Given: `a1`, `a2`, `b1`, `b2`: ends of the segments.
/// Result: true where they coincide by `Pntcmp`.
KTRCL_GEOMETRY_EXPORT bool Overlapped_exactly_lines(const double* a1, const double* a2,
                                                    const double* b1, const double* b2);

/// @name Distances and angles -- src/kernel/LineMeasures.cpp

/// Distance of a point from an unbounded line.
/// Given: `a`, `b`: the line; `p`: the point.
/// Result: the distance, 0 or more; 0.0 where a and b are exactly equal.
KTRCL_GEOMETRY_EXPORT double Distance_line_point(const double* a, const double* b, const double* p);

/// Distance of a point from an unbounded line, with a flag.
/// Given: `a`, `b`: the line; `p`: the point.
/// Returned: `d`: the distance, 0 or more, as of `Distance_line_point`.
/// Result: 1; 0, with `d` untouched, where a and b are exactly equal.
KTRCL_GEOMETRY_EXPORT int Dislar(const double* a, const double* b, const double* p, double* d);

/// Distance of a point from an unbounded line, by the squared distances.
/// Given: `a`, `b`: the line; `p`: the point.
/// Returned: `d`: the distance, 0 or more; exactly 0.0 where its square is at most 0.000001 in
///   magnitude.
/// Result: 1; 0 where the squared length of a to b is exactly 0, and where the squared distance
///   comes out below -0.000001.
/// Notes: points nearer than 0.001 so stand on the line.
/// Caution: `d` is written on failure too: it then holds the squared length of a to b.
KTRCL_GEOMETRY_EXPORT int Dislpt(const double* a, const double* b, const double* p, double* d);

/// Distance between two unbounded lines in space.
/// Given: `a1`, `a2`, `b1`, `b2`: points on the lines.
/// Returned: `d`: magnitude of a1 - b1 along the normalized cross product of the directions.
/// Result: 1; 0, with `d` untouched, for parallel lines: a cross product of exactly zero.
/// Caution: lines that rounding keeps from being exactly parallel give 1 and a distance without
///   meaning.
KTRCL_GEOMETRY_EXPORT int Dislln(const double* a1, const double* a2, const double* b1,
                                 const double* b2, double* d);

/// Distance between two points.
/// Given: `a`, `b`: points.
/// Returned: `d`: the distance, 0 or more.
/// Result: always 1.
KTRCL_GEOMETRY_EXPORT int Disaar(const double* a, const double* b, double* d);

/// Distance between two points of the plane in whole units.
/// Given: `x1`, `y1`, `x2`, `y2`: coordinates, any `int`.
/// Result: the distance, truncated towards zero; the largest `int` where it is beyond that.
KTRCL_GEOMETRY_EXPORT int Distance_XY(int x1, int y1, int x2, int y2);

/// Unsigned angle between two segments, at the end that they share or at their crossing.
/// Given: `unit`: unit flag, handed to `PointInPlane` and `Intspt`; `a1`, `a2`, `b1`, `b2`: ends of
///   the segments; `useCrossing`: whether segments without a shared end are measured.
/// Result: 0 to pi, between the ways from the shared end to the far ends. Without a shared end,
///   -1.0 if `useCrossing` is false; else between the ways from the crossing of the unbounded lines
///   to a1 and to b1, or to a2 and b2 where the first lies within 0.000001 of the crossing (each
///   coordinate by itself, inclusive). -1.0 where a segment is no longer than 0.0001, where they
///   are not in one plane (`PointInPlane`), and where no crossing exists (`Intspt`).
/// Notes: shared ends are sought by `Pntcmp` in the order a1 b1, a1 b2, a2 b1, a2 b2; each way
///   starts at the segment's own end.
/// Caution: a cosine above 0.999999 in magnitude counts as 1: angles within about 0.0014 of 0 or pi
///   come out as exactly that.
KTRCL_GEOMETRY_EXPORT double Angle_between_2_lines(const int& unit, const double* a1,
                                                   const double* a2, const double* b1,
                                                   const double* b2, const bool& useCrossing);

/// How far b lies from a along a direction: from a to the foot of b on the line through a.
/// Given: `unit`: unit flag, not used; `a`, `b`: points; `dir`: direction of length 1.
/// Result: 0 or more. 0.0 where a and b are at most 0.0001 apart (inclusive); the plain distance
///   where the way from a to b is parallel to `dir`: a cosine within 0.000001 of 1 in magnitude
///   (inclusive).
/// Notes: a `dir` of another length is the caller's mistake; it is not brought to length 1.
KTRCL_GEOMETRY_EXPORT double Get_length_on_direction(const int& unit, const double* a,
                                                     const double* b, const double* dir);
