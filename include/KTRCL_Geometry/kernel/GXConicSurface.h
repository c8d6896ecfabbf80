// A cylinder about the Z axis of a frame. The conventions stand in kernel/Kernel.h.
#pragma once

#include <KTRCL_Geometry/Export.h>
#include <KTRCL_Geometry/kernel/ttvPlaneCS.h>

/// A cylinder about the local Z axis of its frame, unbounded along it.
class KTRCL_GEOMETRY_EXPORT GXConicSurface : public ttvPlaneCS {
 public:
  double Radius;  ///< Radius about the local Z axis, model units.

  /// @name Construction -- src/kernel/GXConicSurface.cpp
  ///
  /// With a radius below 0.0001 in magnitude (strict) the object is not valid.

  /// Not valid, with the unit flag; radius and every other field are 0.
  GXConicSurface(const int& unit);

  /// From three points of the frame, as the base constructor with mode 0.
  GXConicSurface(const int& unit, const double* o, const double* x, const double* y, double radius);

  /// From a point on the axis and the axis, of length 1, as the base constructor from a normal.
  GXConicSurface(const int& unit, const double* o, const double* normal, double radius);

  /// From a ready frame, as the base constructor from a frame.
  GXConicSurface(const int& unit, const double* o, const double (*frame)[3], double radius);

  /// @name Queries -- src/kernel/GXConicSurface.cpp

  /// Whether a point lies on the cylinder.
  /// Given: `p`: global point.
  /// Result: true where its distance from the axis differs from the radius by less than 0.01, in
  ///   inches (every non-zero flag) 0.00039370078740157485; both strict.
  bool Point_on_surface(const double* p) const;

  /// Unsigned angle between two points about the axis.
  /// Given: `p1`, `p2`: global points, whose local z is dropped.
  /// Result: radians, 0 to pi, by `Angle_between_2_lines`; -1.0 where a point is no farther than
  ///   0.0001 from the axis.
  double Cylindrical_angle_radian(const double* p1, const double* p2) const;

  /// Unsigned angle between two points about the axis; `Cylindrical_angle_radian` under a second
  /// name.
  /// Given: `p1`, `p2`: global points, whose local z is dropped.
  /// Result: radians, 0 to pi, by `Angle_between_2_lines`; -1.0 where a point is no farther than
  ///   0.0001 from the axis.
  double Cylindrical_simple_angle_radian(const double* p1, const double* p2) const;
};
