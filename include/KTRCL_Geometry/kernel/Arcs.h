// Kernel routines on arcs. The conventions stand in kernel/Kernel.h.
//
// The normal of an arc is (start - centre) x (middle - centre); the sense of travel is right-handed
// about it. An arc whose middle is its end by `Pntcmp` is a full circle. No routine checks that
// middle or end lie on the circle.
#pragma once

#include <KTRCL_Geometry/Export.h>

class GX3DElmList;

/// @name Angles and parameters -- src/kernel/ArcAngles.cpp

/// Direction from point 1 to point 2 in the plane.
/// Given: `x1`, `y1`, `x2`, `y2`: the points.
/// Result: radians from the x axis, counter-clockwise, -pi/2 up to 3 pi/2; where the x differ by at
///   most 1e-08 (inclusive), pi/2 if point 2 is strictly higher and else -pi/2.
/// Caution: equal points give -pi/2.
KTRCL_GEOMETRY_EXPORT double Angolo(double x1, double y1, double x2, double y2);

/// Direction from point 1 to point 2 in the plane, in degrees.
/// Given: `x1`, `y1`, `x2`, `y2`: the points.
/// Result: degrees from the x axis, counter-clockwise, above -180 up to 180; where the x differ by
///   less than 1e-05 (strict), -90 if point 1 is strictly higher and else 90.
/// Caution: equal points give 90.
KTRCL_GEOMETRY_EXPORT double arc_with_hor(double x1, double y1, double x2, double y2);

/// Counter-clockwise sweep about a centre in the plane, in degrees.
/// Given: `x1`, `y1`: where the sweep starts; `cx`, `cy`: centre; `x2`, `y2`: where it ends.
/// Result: degrees, 0 up to 360: `arc_with_hor` from the centre to point 2 minus that to point 1.
KTRCL_GEOMETRY_EXPORT double arc_angle(double x1, double y1, double cx, double cy, double x2,
                                       double y2);

/// Whether three points of the plane turn to the left.
/// Given: `x1`, `y1`, `x2`, `y2`, `x3`, `y3`: the points; `idle1`, `idle2`: any figures.
/// Result: true where the cross product of the ways from point 1 to point 2 and to point 3 is
///   strictly above 0.
KTRCL_GEOMETRY_EXPORT bool Arcdir_c(double x1, double y1, double x2, double y2, double x3,
                                    double y3, double idle1, double idle2);

/// Span of an arc.
/// Given: `unit`: unit flag, handed to `Angle_between_2_lines`; `centre`, `start`, `middle`, `end`:
///   the arc.
/// Result: radians, 0 to 2 pi: 2 pi where the middle is the end by `Pntcmp`, asked first of all;
///   0.0 where the normal is no longer than 0.0001, or where the radii to start and end point the
///   same way with a cross product no longer than 0.0001; else the angle between these radii, or 2
///   pi less it where their cross product, longer than 0.0001, opposes the normal.
/// Notes: both limits are inclusive, and areas: an arc of radius 0.01 or less, unless a full
///   circle, has no span.
/// Caution: an arc whose end is its start, with the middle elsewhere, has span 0.0; a full circle
///   must have its middle at its end. Where `Angle_between_2_lines` finds no angle its -1.0 is used
///   like one.
KTRCL_GEOMETRY_EXPORT double Arc_angle(const int& unit, const double* centre, const double* start,
                                       const double* middle, const double* end);

/// Place of a point along an arc: angle from the start to the point over the span.
/// Given: `unit`: unit flag, handed on; `p`: the point, by its direction from the centre; `centre`,
///   `start`, `middle`, `end`: the arc.
/// Result: 0 at the start, 1 at the end, above 1 behind it; never below 0 but as said under
///   Caution. 0.0 where the normal is no longer than 0.0001, on a full circle too, and where the
///   span (`Arc_angle`) is at most 0.0001 in magnitude.
/// Notes: a point on the start's diameter, (start - centre) x (p - centre) no longer than 0.000001,
///   has 0.0 unless its angle is within 0.0001 of pi. Limits are inclusive.
/// Caution: points just before the start are far above 1. A -1.0 of `Angle_between_2_lines` is used
///   like an angle.
KTRCL_GEOMETRY_EXPORT double Point_parametrc_value_on_arc(const int& unit, const double* p,
                                                          const double* centre, const double* start,
                                                          const double* middle, const double* end);

/// Point at a parameter of a segment or an arc.
/// Given: `unit`: unit flag, handed on; `t`: parameter, 0 at the start and 1 at the end, not
///   limited; `kind`: 0 for the segment from `a` to `b`, 1 for the arc of centre `a`, start `b`,
///   middle `c`, end `d`.
/// Returned: `out`: a + t (b - a); or the start turned by t times `Arc_angle` about the axis
///   through the centre along the normal (`Rotate_a_point`). Caution: it comes second.
/// Notes: `out` stays untouched where the normal is no longer than 0.0001, where `Rotate_a_point`
///   fails, and for every other kind. `c` and `d` may be null for a segment. `out` may be any of
///   the inputs.
KTRCL_GEOMETRY_EXPORT void Obtain_a_point_in_parametric_curve(const int& unit, double* out,
                                                              double t, int kind, const double* a,
                                                              const double* b, const double* c,
                                                              const double* d);

/// Whether two arcs run in the same sense.
/// Given: `c1`, `s1`, `m1`: centre, start, middle of the first arc; `c2`, `s2`, `m2`: of the
///   second.
/// Result: true where both normals are at least 0.0001 long (inclusive) and the scalar product of
///   the standardized normals is strictly above 0.
KTRCL_GEOMETRY_EXPORT bool Same_direction_arcs(const double* c1, const double* s1, const double* m1,
                                               const double* c2, const double* s2,
                                               const double* m2);

/// @name Centres, middles and tangents -- src/kernel/ArcConstructions.cpp

/// Centre of the circle through three points.
/// Given: `unit`: unit flag, handed to `Inline`; `p1`, `p2`, `p3`: the points.
/// Returned: `out`: the centre.
/// Result: 1; 0, with `out` untouched, where the points are in line by `Inline`, or span no frame
///   (`Lambda`).
/// Notes: `out` may be any of the inputs.
KTRCL_GEOMETRY_EXPORT int Calculate_center_arc(const int& unit, const double* p1, const double* p2,
                                               const double* p3, double* out);

/// Plane coordinates of a point in a frame.
/// Given: `p`: the point; `frame`: the frame, not its inverse; `origin`: its origin.
/// Returned: `u`, `v`: the first two local coordinates, rows X and Y of the frame times p - origin.
/// Result: always 0.
KTRCL_GEOMETRY_EXPORT int Arcmpi(const double* p, const double (*frame)[3], double* u, double* v,
                                 const double* origin);

/// Point at plane coordinates in a frame, the way back of `Arcmpi`.
/// Given: `u`, `v`: local coordinates; `frame`: the frame, not its inverse; `origin`: its origin.
/// Returned: `x`, `y`, `z`: coordinates of origin + u times row X + v times row Y.
/// Result: always 1.
/// Notes: the outputs may be the coordinates of `origin`.
KTRCL_GEOMETRY_EXPORT int Arcpmo(double u, double v, const double (*frame)[3], double* x, double* y,
                                 double* z, const double* origin);

/// Middle of an arc of the plane that runs counter-clockwise.
/// Given: `cx`, `cy`: centre; `sx`, `sy`: start; `ex`, `ey`: end.
/// Returned: `mx`, `my`: the start turned counter-clockwise by half the angle to the end.
/// Caution: where the cross product of the radii to start and end is 0 or below, a half turn and
///   more, the start is turned by pi/2 whatever the span: a reflex arc has its middle a quarter
///   turn from its start.
KTRCL_GEOMETRY_EXPORT void Middle_pnt_on_arc(double cx, double cy, double sx, double sy, double ex,
                                             double ey, double* mx, double* my);

/// Snaps a point to the sphere of an arc, radially; in the arc's plane that is its circle.
/// Given: `centre`, `start`: the circle; `p`: the point.
/// Returned: `out`: `p` itself where its distance from the centre is the radius within 0.00001
///   (inclusive), else the centre plus the radius along the standardized way to `p`.
/// Result: true; false, with `out` untouched, where `p` is no farther than 0.00001 from the centre.
/// Notes: `out` may be any of the inputs.
/// Caution: a way between 0.00001 and 0.0001 is not brought to length 1 (`Vector_standard`), so
///   `out` then stands next to the centre.
KTRCL_GEOMETRY_EXPORT bool Obtain_midpoint_on_an_arc(const double* centre, const double* start,
                                                     const double* p, double* out);

/// Crossing of the tangents at both ends of an arc.
/// Given: `centre`, `start`: the circle; `ignored`: the arc's middle, not read; `end`: the end.
/// Returned: `out`: the centre plus r over the root of (k + 1) * 0.5 along the standardized way to
///   the chord's middle, r being the radius and k the cosine between the radii.
/// Result: 1; 0, with `out` untouched, where the chord's middle is no farther than 0.0001 from the
///   centre (half a turn).
/// Notes: `ignored` may be null. `out` may be any of the inputs. A cosine that rounding takes
///   beyond 1 counts as 1.
KTRCL_GEOMETRY_EXPORT int Tangent_point_for_arc_endpoints(const double* centre, const double* start,
                                                          const double* ignored, const double* end,
                                                          double* out);

/// The directions in which the tangents from a point touch an arc.
/// Given: `unit`: unit flag, handed on; `p`: the point; `centre`, `start`, `middle`, `end`: the
///   arc, its centre at the origin.
/// Returned: `out1`, `out2`: `p` turned by plus and by minus arccos(r / d), r being the radius and
///   d its distance from the centre. The plus one is `out1` where its parameter on the arc lies
///   between -0.0001 and 0.9999 (both strict), and the minus one `out2`; else the other way round.
/// Notes: untouched where r exceeds d - 0.0001, and where `Rotate_a_point` fails. Either output may
///   be any of the inputs.
/// Caution: the outputs keep the distance of `p`: they mark the directions, not the points of
///   tangency. The axis runs from the centre to the point whose coordinates are the normal; hence
///   the centre at the origin.
KTRCL_GEOMETRY_EXPORT void Tangent_points_on_arc(const int& unit, const double* p,
                                                 const double* centre, const double* start,
                                                 const double* middle, const double* end,
                                                 double* out1, double* out2);

/// @name Dividing arcs -- src/kernel/ArcDivision.cpp

/// Divides an arc at a point: the point on the arc and the middles of both parts.
/// Given: `px`, `py`, `pz`: the point; `cx`, `cy`, `cz`: centre; `sx`, `sy`, `sz`: start; `mx`,
///   `my`, `mz`: middle; `ex`, `ey`, `ez`: end.
/// Returned: `pointOut`: the point, brought into the arc's plane and, where it stands off the
///   circle by 0.0001 or more, snapped radially; `mid1`: the start turned in the arc's sense by
///   half the angle to the point; `mid2`: the point turned so by half the angle to the end.
/// Result: always 1.
/// Notes: the outputs stay untouched where centre, start and middle span no frame. A point at the
///   centre is not snapped. An angle counts as 0 where the product of the lengths is below 0.0001.
/// Caution: angles are taken without sense, 0 to pi: the middle of a part above half a turn is not
///   half-way but less than a quarter turn behind the start of the part. It still runs in the arc's
///   sense, so that `Make_sure_middle_points_correct` does not mend it.
KTRCL_GEOMETRY_EXPORT int Divide_arc_by_a_point(double px, double py, double pz, double cx,
                                                double cy, double cz, double sx, double sy,
                                                double sz, double mx, double my, double mz,
                                                double ex, double ey, double ez, double* pointOut,
                                                double* mid1, double* mid2);

/// Mends middles of a divided arc (`Divide_arc_by_a_point`) that do not run in its sense.
/// Given: `unit`: unit flag, handed on; `centre`, `start`, `middle`, `end`: the arc; `divide`: the
///   dividing point.
/// Given and returned: `mid1`: where centre, start, mid1 do not run in the arc's sense
///   (`Same_direction_arcs`), replaced by the point at half the parameter of mid1; then `mid2`:
///   where centre, divide, mid2 do not, replaced by the point at the mean of the parameters of
///   divide and mid2.
/// Notes: parameters are those of `Point_parametrc_value_on_arc`, points those of
///   `Obtain_a_point_in_parametric_curve`; a middle stays where that one writes nothing.
/// Caution: a middle that runs in the arc's sense stays, even if it is not half-way.
KTRCL_GEOMETRY_EXPORT void Make_sure_middle_points_correct(const int& unit, const double* centre,
                                                           const double* start,
                                                           const double* middle, const double* end,
                                                           const double* divide, double* mid1,
                                                           double* mid2);

/// Where two arcs of one plane divide each other.
/// Given: `unit`: unit flag, handed on; `c1`, `s1`, `m1`, `e1`: the first arc; `c2`, `s2`, `m2`,
///   `e2`: the second.
/// Returned: `q1`, `q2`: crossings of the whole circles; `cnt1`, `cnt2`: how many points divide the
///   first and the second arc, 0 to 2; `r1`, `r2`: these points, `r2` only where a count started at
///   2.
/// Result: true where a count is above 0; else false, with the outputs untouched.
/// Notes: crossings are those of `Intersect2D_circles`. Their parameters
///   (`Point_parametrc_value_on_arc`) are set to 0.0 at the start, to 1.0 at the end of an arc that
///   is no full circle (1.0 where it is both); a crossing off one arc, below -0.000001 or above
///   1.000001, is off both. No parameter strictly between 0.000001 and 0.999999: false. One
///   crossing on the arcs: both counts 1; r1 and q1 take it, q2 keeps its own. A full circle has
///   count 0 then, and so does an arc of which the point is an end. Two crossings: both counts 2,
///   r1 = q1, r2 = q2. An arc that is no full circle loses one for each crossing at its end, and r1
///   takes q2 where the first one is an end of the first arc. Points coincide by `Pntcmp`. No two
///   of the four point outputs, and no output and input, may be the same array.
/// Caution: for the second arc the points are not put in order: with `cnt2` 1 it may be r1 or r2.
///   Where q1 is an end of the first arc and `cnt2` stays 2, r1 and r2 are both q2: the other point
///   that divides the second arc is q1.
KTRCL_GEOMETRY_EXPORT bool Are_two_arcs_needed_division(
    const int& unit, const double* c1, const double* s1, const double* m1, const double* e1,
    const double* c2, const double* s2, const double* m2, const double* e2, double* q1, double* q2,
    int& cnt1, double* r1, double* r2, int& cnt2);

/// Where the first of two arcs of one plane is divided by the second.
/// Given: `unit`: unit flag, handed on; `c1`, `s1`, `m1`, `e1`: the first arc; `c2`, `s2`, `m2`,
///   `e2`: the second.
/// Returned: as by `Are_two_arcs_needed_division`, but `cnt2` keeps the 1 or 2 that it starts with.
/// Result: true where the arcs cross as there, strictly inside either of them; `cnt1` may then be
///   0.
/// Notes: as `Are_two_arcs_needed_division`; only the first arc is looked at for full circles and
///   for points at its ends.
/// Caution: true does not say that the first arc is divided: ask `cnt1`.
KTRCL_GEOMETRY_EXPORT bool Is_1st_arc_needed_division(const int& unit, const double* c1,
                                                      const double* s1, const double* m1,
                                                      const double* e1, const double* c2,
                                                      const double* s2, const double* m2,
                                                      const double* e2, double* q1, double* q2,
                                                      int& cnt1, double* r1, double* r2, int& cnt2);

/// @name Facets -- src/kernel/ArcFacets.cpp

/// Angle of a facet that departs from its arc by a given height.
/// Given: `radius`: radius; `sag`: height of the arc over the facet, model units.
/// Result: radians, 2 arccos((radius - sag) / radius); 0.0 unless `radius` and `sag` are above
///   0.0001 in magnitude and radius - sag is above 0.0001 (all strict).
/// Caution: 0.0 for a sag of the radius and more. A cosine beyond 1, of a negative sag, gives NaN.
KTRCL_GEOMETRY_EXPORT double Min_angle_radian_facet_3D_arc(double radius, double sag);

/// Angle of a facet that departs from its arc by a given height, by two points.
/// Given: `centre`, `start`: the circle; `sag`: height of the arc over the facet, model units.
/// Result: as of the form with the radius, which is the distance of the points.
KTRCL_GEOMETRY_EXPORT double Min_angle_radian_facet_3D_arc(const double* centre,
                                                           const double* start, double sag);

/// Appends the facets of an arc to a list, as lines from start to end.
/// Given: `unit`: unit flag, handed on; `centre`, `start`, `middle`, `end`: the arc; `step`:
///   greatest angle per facet; `degrees`: whether `step` is in degrees, not radians.
/// Given and returned: `out`: the list; it is not cleared and owns the new lines.
/// Result: always 1, without meaning.
/// Notes: |span| / |step| + 0.5, truncated, is the number of facets, at most 1,000,000; the points
///   between are those of `Obtain_a_point_in_parametric_curve`, or the last point again where that
///   one writes nothing, and the last line ends exactly at `end`. One line from start to end where
///   centre, start, middle are in line by `Inline`, where the span (`Arc_angle`) is below the step
///   in magnitude, and where the step is below 0.0001 radians (strict) or no number; none where
///   start and end are then at most 0.0001 apart.
/// Caution: the number is rounded, so a facet may exceed `step`. The last line goes to `end` on a
///   full circle as well, wherever that lies.
KTRCL_GEOMETRY_EXPORT int Facet_3D_arc(const int& unit, const double* centre, const double* start,
                                       const double* middle, const double* end, double step,
                                       GX3DElmList& out, bool degrees);

/// Number of segments of a circle whose segments depart from it by a given height.
/// Given: `radius`: radius; `sag`: height of the circle over a segment, model units.
/// Result: pi / arccos((radius - sag) / radius) + 1, truncated; 0 where that is no number or too
///   large for a count.
/// Notes: nothing checks that `sag` lies between 0 and `radius`.
KTRCL_GEOMETRY_EXPORT int Cal_segment_n(double radius, double sag);
