// A plane with its coordinate system, on plain arrays. The conventions stand in kernel/Kernel.h.
#pragma once

#include <KTRCL_Geometry/Export.h>

/// A plane and the frame on it, held as plain arrays. The frame's X and Y axes lie in the plane, Z
/// is its normal.
///
/// An object that is not valid works as the identity: its local coordinates are the global ones.
/// Nothing is reported by construction; ask `Valid`, `Calculate` or the result of a conversion.
///
///     double o[3] = {0, 0, 5}, x[3] = {1, 0, 5}, y[3] = {0, 1, 5}, p[3] = {3, 4, 7}, local[3];
///     ttvPlaneCS plane(0, o, x, y, 0);
///     plane.Get_local_point(p, local);  // true, and local is 3, 4, 2
class KTRCL_GEOMETRY_EXPORT ttvPlaneCS {
 public:
  bool Valid;            ///< Whether the frame may be used.
  double Origin[3];      ///< Origin of the frame, the first defining point.
  double XPoint[3];      ///< Global point on the local X axis.
  double YPoint[3];      ///< Global point in the plane, on the positive side of Y.
  double ZPoint[3];      ///< Global point on the local Z axis, set while the object is valid.
  double UnitX[3];       ///< Global position of local (1, 0, 0).
  double UnitY[3];       ///< Global position of local (0, 1, 0).
  double UnitZ[3];       ///< Global position of local (0, 0, 1).
  double Frame[3][3];    ///< Rows are the unit axes, by `Lambda`.
  double Inverse[3][3];  ///< Inverse of the frame, by `Invmat`.
  int Unit;              ///< Unit flag, handed to the routines.

  /// @name Construction -- src/kernel/ttvPlaneCS.cpp

  /// Not valid, with the unit flag; every other field is 0.
  ttvPlaneCS(const int& unit);

  /// The plane through three points; `Calculate` and `CS_points` run on it.
  /// Given: `unit`: unit flag; `o`: origin; `x`: point on X; `y`: point on the positive side of Y;
  ///   `mode`: -3 where `y` only fixes a plane whose normal is to be Y: the y point is then o plus
  ///   the standardized cross product of x - o and y - o. Every other value has no effect.
  /// Notes: not valid where the points are in line by `Inline`. The array `y` itself is not
  ///   changed.
  ttvPlaneCS(const int& unit, const double* o, const double* x, const double* y, const int& mode);

  /// The plane through a point across a normal; `Calculate` and `CS_points` run on it.
  /// Given: `unit`: unit flag; `o`: origin; `normal`: Z, of length 1, which is not checked.
  /// Notes: X is the standardized direction from o to the foot of o + normal + (1, 1, 1) on the
  ///   plane, Y is normal x X. Where that direction is no longer than 0.0001, as for a normal along
  ///   (1, 1, 1), the object is not valid and every field but the unit flag is 0.
  ttvPlaneCS(const int& unit, const double* o, const double* normal);

  /// The plane of a ready frame: valid whatever the frame is; `CS_points` runs on it.
  /// Given: `unit`: unit flag; `o`: origin; `frame`: rows are the unit axes, stored unchanged.
  /// Notes: the x, y and z points are the global positions of the local unit points.
  /// Caution: a frame that `Invmat` refuses, a left-handed one too, leaves the inverse 0, and all
  ///   that goes back to global coordinates ends at the origin.
  ttvPlaneCS(const int& unit, const double* o, const double (*frame)[3]);

  /// @name Setting up -- src/kernel/ttvPlaneCS.cpp

  /// Computes frame and inverse from origin, x point and y point, and sets the flag, where these
  /// are not in line by `Inline`.
  /// Result: the flag.
  /// Caution: the flag is not cleared here: points in line leave a valid object valid, with its old
  ///   frame.
  bool Calculate();

  /// Renews the unit points: the global positions of the local unit points, the z point with them;
  /// the global axes (1, 0, 0), (0, 1, 0), (0, 0, 1), and the z point as it was, where the object
  /// is not valid.
  void CS_points();

  /// Makes the direction to a point the X axis in the same plane, by `Calculate`.
  /// Given: `p`: global point. The x point becomes its foot on the plane, the y point that foot
  ///   turned by a quarter turn about the origin (`Ruotac`).
  /// Notes: nothing happens where the foot is no farther than 0.0001 from the origin. `p` may be a
  ///   field of the object.
  /// Caution: the unit points and the z point are not renewed.
  void Change_x_dir(const double* p);

  /// Sets the object up anew, as the constructor from three points does.
  /// Given: `o`, `x`, `y`, `mode`: as there.
  /// Result: the flag.
  /// Notes: the arguments may be fields of the object. Where the points are in line the flag is
  ///   cleared and frame and inverse keep their values.
  bool Resetup(const double* o, const double* x, const double* y, const int& mode);

  /// Gives the plane a new origin and X axis, by `Resetup` with mode 0.
  /// Given: `o`: new origin; `x`: new point on X; both in the plane.
  /// Notes: the y point is x moved by 10.0 in the old local x where o and x differ in it by less
  ///   than 0.0001 (strict), else by 10.0 in the old local y. The arguments may be fields of the
  ///   object.
  /// Caution: the y point does not follow the sense of the new X axis, so Z may turn over.
  void Resetup_to_new_X(const double* o, const double* x);

  /// @name Points and lines -- src/kernel/ttvPlaneCS.cpp

  /// Takes a local point to global coordinates (`Locglo`); a copy where the object is not valid.
  /// Given: `p`: local point.
  /// Returned: `out`: global point, written in all cases.
  /// Result: the flag.
  /// Notes: `out` may be `p`.
  bool Get_global_point(const double* p, double* out) const;

  /// Takes a global point to local coordinates (`Gloloc`); a copy where the object is not valid.
  /// Given: `p`: global point.
  /// Returned: `out`: local point, written in all cases.
  /// Result: the flag.
  /// Notes: `out` may be `p`.
  bool Get_local_point(const double* p, double* out) const;

  /// Foot of a point on the plane; on z = 0 where the object is not valid.
  /// Given: `p`: global point.
  /// Returned: `out`: the foot, global.
  /// Notes: `out` may be `p`.
  void Project(const double* p, double* out) const;

  /// Foot of a point on the plane, in place.
  /// Given and returned: `p`: global point; comes back as the foot.
  void Project(double* p) const;

  /// Crossing of a line with the plane.
  /// Given: `l1`, `l2`: two points on the line, global; `global`: whether the crossing is wanted in
  ///   global coordinates, not in local ones.
  /// Returned: `out`: the crossing.
  /// Result: true; false, with `out` untouched, where l1 and l2 differ by at most 0.0001
  ///   (inclusive) in local z.
  /// Notes: `out` may be `l1` or `l2`.
  bool Cal_inter_plane_line(const double* l1, const double* l2, double* out,
                            const bool& global) const;

  /// The same for a line given in local coordinates.
  /// Given: `l1`, `l2`: two points on the line, local; `global`: as there.
  /// Returned: `out`: the crossing.
  /// Result: true; false, with `out` untouched, where l1 and l2 differ by at most 0.0001
  ///   (inclusive) in local z.
  /// Notes: `out` may be `l1` or `l2`.
  bool Cal_inter_plane_line_local(const double* l1, const double* l2, double* out,
                                  const bool& global) const;

  /// @name Comparison -- src/kernel/ttvPlaneCS.cpp

  /// Whether two systems are the same.
  /// Result: true where the origins coincide by `Pntcmp`, and the rows of the frames do.
  /// Notes: the flags are not looked at.
  bool Define_same_CS(ttvPlaneCS& other) const;

  /// Whether two planes have the same normal.
  /// Result: true where the standardized ways from origin to unit Z point coincide by `Pntcmp`.
  /// Caution: opposite normals do not count. The unit points count, which `Change_x_dir` leaves old
  ///   and an object that is not valid has at the global axes.
  bool Parallel(ttvPlaneCS& other) const;

  /// Whether two planes stand at a right angle or more.
  /// Result: true where the scalar product of the standardized ways from origin to unit Z point is
  ///   below 0.0001 (strict).
  /// Caution: the product keeps its sign, so normals that open by more than a right angle pass, up
  ///   to opposite ones.
  bool Perpendicular(ttvPlaneCS& other) const;
};
