// A cylinder about the Z axis of a frame.

#include <KTRCL_Geometry/kernel/GXConicSurface.h>
#include <KTRCL_Geometry/kernel/PointsAndLines.h>

#include <cmath>

#include "kernel/UnitFlag.h"
#include "kernel/VectorArithmetic.h"

namespace {

// Model units, strict; a cylinder that is thinner is none.
constexpr double kLeastRadius = 0.0001;

constexpr double kAxisPoint[3] = {0.0, 0.0, 0.0};

bool IsUsable(double radius) { return !(std::fabs(radius) < kLeastRadius); }

// Local position of a point, taken along the axis to the origin's height.
void DropToSection(const ttvPlaneCS& frame, const double* p, double* local) {
  frame.Get_local_point(p, local);
  local[2] = 0.0;
}

double AngleAboutAxis(const GXConicSurface& surface, const double* p1, const double* p2) {
  double local1[3];
  double local2[3];
  DropToSection(surface, p1, local1);
  DropToSection(surface, p2, local2);
  return Angle_between_2_lines(surface.Unit, kAxisPoint, local1, kAxisPoint, local2, false);
}

}  // namespace

GXConicSurface::GXConicSurface(const int& unit) : ttvPlaneCS(unit), Radius(0.0) {}

GXConicSurface::GXConicSurface(const int& unit, const double* o, const double* x, const double* y,
                               double radius)
    : ttvPlaneCS(unit, o, x, y, 0), Radius(radius) {
  if (!IsUsable(radius)) Valid = false;
}

GXConicSurface::GXConicSurface(const int& unit, const double* o, const double* normal,
                               double radius)
    : ttvPlaneCS(unit, o, normal), Radius(radius) {
  if (!IsUsable(radius)) Valid = false;
}

GXConicSurface::GXConicSurface(const int& unit, const double* o, const double (*frame)[3],
                               double radius)
    : ttvPlaneCS(unit, o, frame), Radius(radius) {
  if (!IsUsable(radius)) Valid = false;
}

bool GXConicSurface::Point_on_surface(const double* p) const {
  const double tolerance = ktrcl_internal::NonZeroIsInches(Unit) ? ktrcl_internal::kOnSurfaceInches
                                                                 : ktrcl_internal::kOnSurface;
  double local[3];
  DropToSection(*this, p, local);
  return std::fabs(ktrcl_internal::Length(local) - Radius) < tolerance;
}

double GXConicSurface::Cylindrical_angle_radian(const double* p1, const double* p2) const {
  return AngleAboutAxis(*this, p1, p2);
}

double GXConicSurface::Cylindrical_simple_angle_radian(const double* p1, const double* p2) const {
  return AngleAboutAxis(*this, p1, p2);
}
