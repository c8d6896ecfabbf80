// Kernel routines on frames, rotations and planes. The conventions stand in kernel/Kernel.h.
//
// From global to local: subtract the origin, multiply by the frame. Back: multiply by the inverse,
// add the origin. The caller keeps the inverse beside the frame; routines that go back ask for it.
#pragma once

#include <KTRCL_Geometry/Export.h>

/// @name Frames -- src/kernel/Frames.cpp

/// Frame of three points: X from p0 to p1, Z along X x (p2 - p0), Y = Z x X, all of length 1, so
/// that p2 lies on the positive side of Y.
/// Given: `p0`, `p1`, `p2`: the points.
/// Returned: `frame`: rows X, Y, Z.
/// Result: 1; 0 where p0 is p1, and where the cross product is exactly zero.
/// Notes: with 0 row X is written (no numbers where p0 is p1), rows Y and Z stay.
/// Caution: points that rounding keeps from being exactly in line give 1 and a Z without meaning.
KTRCL_GEOMETRY_EXPORT int Lambda(const double* p0, const double* p1, const double* p2,
                                 double (*frame)[3]);

/// Takes a point to local coordinates: frame times (p - origin).
/// Given: `p`: global point; `origin`, `frame`: the frame.
/// Returned: `out`: local point. Caution: it comes second.
/// Result: always 1.
/// Notes: `out` may be `p` or `origin`.
KTRCL_GEOMETRY_EXPORT int Gloloc(const double* p, double* out, const double* origin,
                                 const double (*frame)[3]);

/// Takes a point back to global coordinates: inverse times p, plus origin.
/// Given: `p`: local point; `origin`: origin of the frame; `inverse`: its inverse, not the frame.
/// Returned: `out`: global point. Caution: it comes second.
/// Result: always 1.
/// Notes: `out` may be `p` or `origin`.
KTRCL_GEOMETRY_EXPORT int Locglo(const double* p, double* out, const double* origin,
                                 const double (*inverse)[3]);

/// Inverse of a frame, by cofactors.
/// Given: `frame`: any nine values.
/// Returned: `inverse`: the inverse.
/// Result: 1; 0, with `inverse` untouched, where the determinant is below 1e-20 (strict).
/// Notes: `inverse` may be `frame`.
/// Caution: the determinant is compared with its sign: a left-handed frame counts as singular.
KTRCL_GEOMETRY_EXPORT int Invmat(const double (*frame)[3], double (*inverse)[3]);

/// Moves a local point and takes it to global coordinates.
/// Given: `shift`: local vector; `origin`: origin of the frame; `inverse`: its inverse.
/// Given and returned: `p`: local point; comes back as the global position of p + shift.
/// Notes: `p` may be `shift` or `origin`.
KTRCL_GEOMETRY_EXPORT void PlacePointToPosition(double* p, const double* shift,
                                                const double* origin, const double (*inverse)[3]);

/// @name Rotations -- src/kernel/Rotations.cpp
///
/// Right-handed about the axis from a to b. The frame of the turn stands on a, b and the fixed
/// point (1234.1234, 5678.5678, 9012.9012); an axis that points there fails.

/// Turns a point about an axis.
/// Given: `unit`: unit flag, handed to `Inline`; `ax`, `ay`, `az`, `bx`, `by`, `bz`: two points of
///   the axis; `angle`: radians; `p`: the point.
/// Returned: `out`: the turned point.
/// Result: 1; 0, with `out` untouched, where a, b and the fixed point are in line by `Inline`, so
///   also for an axis no longer than 0.0001.
/// Notes: `out` may be `p`.
KTRCL_GEOMETRY_EXPORT int Rotate_a_point(const int& unit, double ax, double ay, double az,
                                         double bx, double by, double bz, double angle,
                                         const double* p, double* out);

/// Turns a point about an axis, in place, without the `Inline` test.
/// Given: `ax`, `ay`, `az`, `bx`, `by`, `bz`: two points of the axis; `angle`: radians.
/// Given and returned: `p`: the point.
/// Result: always 1.
/// Notes: `p` stays for an angle of at most 1e-08 in magnitude (inclusive), and where a, b and the
///   fixed point span no frame (`Lambda`).
KTRCL_GEOMETRY_EXPORT int Rotatp(double ax, double ay, double az, double bx, double by, double bz,
                                 double angle, double* p);

/// Turns a point about an axis, in place.
/// Given: `unit`: unit flag, handed on; `a`, `b`: two points of the axis; `angle`: radians.
/// Given and returned: `p`: the point; stays where `Rotate_a_point` fails.
/// Notes: `p` may be `a` or `b`.
KTRCL_GEOMETRY_EXPORT void Rotate_on_an_axis(const int& unit, const double* a, const double* b,
                                             const double& angle, double* p);

/// Turns a point about an axis, in place; `Rotate_on_an_axis` under a second name.
/// Given: `unit`: unit flag, handed on; `a`, `b`: two points of the axis; `angle`: radians.
/// Given and returned: `p`: the point; stays where `Rotate_a_point` fails.
/// Notes: `p` may be `a` or `b`.
KTRCL_GEOMETRY_EXPORT void Rotate_an_axis(const int& unit, const double* a, const double* b,
                                          const double& angle, double* p);

/// Turns a point about a parallel to a global axis, in place; right-handed about its positive
/// direction.
/// Given: `unit`: unit flag, handed on; `angle`: radians; `axis`: 0 for X, 1 for Y, every other
///   value for Z; `origin`: a point of the line.
/// Given and returned: `p`: the point; stays where `Rotate_a_point` fails.
/// Notes: a null `origin` stands for the global one. `p` may be `origin`.
KTRCL_GEOMETRY_EXPORT void Rotate_a_point_on_XYZ_axis(const int& unit, double angle, double* p,
                                                      int axis, const double* origin);

/// Turns a point of the plane about a centre, in place, counter-clockwise.
/// Given: `cx`, `cy`: centre; `angle`: radians.
/// Given and returned: `x`, `y`: the point.
/// Result: always 0.
KTRCL_GEOMETRY_EXPORT int Ruotac(double* x, double* y, double cx, double cy, double angle);

/// @name Planes -- src/kernel/Planes.cpp

/// Frame in the plane through a point across a normal.
/// Given: `unit`: unit flag, handed to `Inline`; `normal`: the normal, of any length; `p`: the
///   point.
/// Returned: `frame`: rows X, Y, Z. With `p` as origin, X points to the first point of the plane
///   that is used.
/// Result: 1; 0, with `frame` untouched, where no two of the points are usable: off the line with p
///   by `Inline`.
/// Notes: the points A, B, C are tried in the pairs A B, A C, B C. They depend on the components of
///   the normal n that are not zero (above 0.0001 in magnitude), with k = n.p:
///   - y only, or none: A = p + (10, 0, 0), B = C = p + (0, 0, 10)
///   - x only: A = p + (0, 10, 0), B = C = p + (0, 0, 10)
///   - z only: A = p + (0, 10, 0), B = C = p + (10, 0, 0)
///   - x and y: A = (0, k/ny, pz), B = C = (k/nx, 0, pz + 10)
///   - y and z: A = (px, k/ny, 0), B = C = p plus the standardized n x w, w the standardized A - p
///   - x and z: A = (0, py, k/nz), B = C as before
///   - all: A = (0, 0, k/nz), B = (0, k/ny, 0), C = (k/nx, 0, 0)
/// Caution: Z may oppose the normal, whose sign does not steer it. A normal of zero gives a frame.
///   Where points coincide the result is 0: with three components for every plane through the
///   global origin, with two for every p that is A.
KTRCL_GEOMETRY_EXPORT int Plane_by_a_Normal_Point(const int& unit, const double* normal,
                                                  const double* p, double (*frame)[3]);

/// Three points of the plane through a across the line from a to b.
/// Given: `a`, `b`: the line.
/// Returned: `o1`: a; `o2`, `o3`: a moved by 100 along one and the other of two axes, and along a
///   third one as far as the plane asks: along x where the standardized direction has an x that is
///   not exactly 0, else along y, else along z.
/// Result: 1; 0, with the outputs untouched, where the direction is exactly zero.
/// Notes: the outputs may be `a` or `b`.
/// Caution: for a line along z the x of o2 is the z of a, and that of o3 is it plus 100; the plane
///   is the right one all the same.
KTRCL_GEOMETRY_EXPORT int Perpendicular_plane_of_line(const double* a, const double* b, double* o1,
                                                      double* o2, double* o3);

/// Whether a point lies on the plane through three points.
/// Given: `unit`: unit flag, exactly 1 is inches; `a`, `b`, `c`: the plane; `p`: the point.
/// Result: true where its distance from the plane is at most 0.01 (0.00039370078740157485 in
///   inches, both inclusive).
/// Caution: where the normal is shorter than 1e-08 the triple product itself, with its sign, is
///   compared: every negative one passes.
KTRCL_GEOMETRY_EXPORT bool PointInPlane(const int& unit, const double* a, const double* b,
                                        const double* c, const double* p);

/// Tells on which side of the plane through a, b, c a point lies.
/// Given: `a`, `b`, `c`: the plane; `d`: the point.
/// Result: the triple product ((b - a) x (c - a)).(d - a): above 0 on the side from which a, b, c
///   run counter-clockwise, below 0 on the other, 0 on the plane. Not normalized.
KTRCL_GEOMETRY_EXPORT double dirchk1_dll(const double* a, const double* b, const double* c,
                                         const double* d);

/// Foot of a point on the plane through three points.
/// Given: `a`, `b`, `c`: the plane; `p`: the point.
/// Returned: `out`: the foot.
/// Result: always 1.
/// Notes: `out` stays untouched where a, b, c span no frame (`Lambda`). `out` may be any of the
///   inputs.
KTRCL_GEOMETRY_EXPORT int Project_point_on_plane(const double* a, const double* b, const double* c,
                                                 const double* p, double* out);

/// Foot of a point on the plane of a frame.
/// Given: `frame`, `inverse`, `origin`: the frame; `p`: the point.
/// Returned: `out`: the foot.
/// Result: always 1.
/// Notes: `out` may be `p` or `origin`.
KTRCL_GEOMETRY_EXPORT int Project_point_on_plane_m(const double (*frame)[3],
                                                   const double (*inverse)[3], const double* origin,
                                                   const double* p, double* out);

/// Mirrors a point in the line through a and b, within the plane of the three.
/// Given: `unit`: unit flag, handed to `Inline`; `p`: the point; `a`, `b`: the line.
/// Returned: `out`: the mirrored point.
/// Result: 1; 0, with `out` untouched, where a, b, p are in line by `Inline`, or span no frame
///   (`Lambda`).
/// Notes: `out` may be any of the inputs.
KTRCL_GEOMETRY_EXPORT int Planar_symmetric_a_point_by_a_line(const int& unit, const double* p,
                                                             const double* a, const double* b,
                                                             double* out);

/// Keeps the one of two points that is farther from a third in the plane of a frame.
/// Given: `p2`: second candidate; `q`: where to measure from; `frame`, `origin`, `inverse`: the
///   frame.
/// Given and returned: `p1`: first candidate; replaced by the foot of p2 on the plane where that
///   one is strictly farther from the foot of `q` than the foot of p1 is.
/// Notes: `p1` may be any of the inputs. Where it is not replaced it stays as it was, off the plane
///   too.
KTRCL_GEOMETRY_EXPORT void Select_correct_point(double* p1, const double* p2, const double* q,
                                                const double (*frame)[3], const double* origin,
                                                const double (*inverse)[3]);

/// Crossing of a line with the plane through three points.
/// Given: `a`, `b`, `c`: the plane; `l1`, `l2`: two points on the line.
/// Returned: `out`: the crossing.
/// Result: 1; 0, with `out` untouched, where l1 and l2 differ by at most 0.0001 (inclusive) in
///   their height over the plane, and where a, b, c span no frame (`Lambda`).
/// Notes: `out` may be any of the inputs.
KTRCL_GEOMETRY_EXPORT int Cal_inter_plane_line(const double* a, const double* b, const double* c,
                                               const double* l1, const double* l2, double* out);

/// Crossing of a line with the plane of a frame, origin first.
/// Given: `origin`, `frame`, `inverse`: the frame; `l1`, `l2`: two points on the line.
/// Returned: `out`: the crossing. Caution: it stands in the middle.
/// Result: 1; 0, with `out` untouched, where l1 and l2 differ by at most 0.0001 (inclusive) in
///   their height over the plane.
/// Notes: `out` may be `origin`, `l1` or `l2`.
KTRCL_GEOMETRY_EXPORT int Cal_inter_plane_line(const double* origin, const double* l1,
                                               const double* l2, double* out,
                                               const double (*frame)[3],
                                               const double (*inverse)[3]);

/// Crossing of a line with the plane of a frame, line first.
/// Given: `l1`, `l2`: two points on the line; `frame`, `origin`, `inverse`: the frame.
/// Returned: `out`: the crossing. Caution: it stands in the middle.
/// Result: 1; 0, with `out` untouched, where l1 and l2 differ by at most 0.0001 (inclusive) in
///   their height over the plane.
/// Notes: `out` may be `origin`, `l1` or `l2`.
KTRCL_GEOMETRY_EXPORT int Cal_inter_plane_line(const double* l1, const double* l2, double* out,
                                               const double (*frame)[3], const double* origin,
                                               const double (*inverse)[3]);
