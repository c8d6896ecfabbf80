// Rotations of a point about an axis: into a frame whose X is the axis, a turn in its y and z, and
// back.

#include <KTRCL_Geometry/kernel/Frames.h>
#include <KTRCL_Geometry/kernel/PointsAndLines.h>

#include <cmath>

#include "kernel/TwoWayFrame.h"
#include "kernel/VectorArithmetic.h"

namespace {

// Any point off the axis fixes the frame; where its y and z start plays no part in a turn. An odd
// one, so that no axis of practice points there.
constexpr double kOffAxis[3] = {1234.1234, 5678.5678, 9012.9012};

// Radians, inclusive; `Rotatp` alone.
constexpr double kNoTurn = 1e-08;

bool TurnAboutAxis(const double* a, const double* b, double angle, const double* p, double* out) {
  ktrcl_internal::TwoWayFrame made;
  if (!ktrcl_internal::MakeFrame(a, b, kOffAxis, made)) return false;

  double local[3];
  Gloloc(p, local, a, made.frame);
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  const double turned[3] = {local[0], local[1] * cosine - local[2] * sine,
                            local[1] * sine + local[2] * cosine};
  Locglo(turned, out, a, made.inverse);
  return true;
}

void RotateInPlace(const int& unit, const double* a, const double* b, double angle, double* p) {
  Rotate_a_point(unit, a[0], a[1], a[2], b[0], b[1], b[2], angle, p, p);
}

}  // namespace

int Rotate_a_point(const int& unit, double ax, double ay, double az, double bx, double by,
                   double bz, double angle, const double* p, double* out) {
  const double a[3] = {ax, ay, az};
  const double b[3] = {bx, by, bz};
  if (Inline(unit, a, b, a, kOffAxis) == 1) return 0;
  return TurnAboutAxis(a, b, angle, p, out) ? 1 : 0;
}

int Rotatp(double ax, double ay, double az, double bx, double by, double bz, double angle,
           double* p) {
  if (std::fabs(angle) <= kNoTurn) return 1;
  const double a[3] = {ax, ay, az};
  const double b[3] = {bx, by, bz};
  TurnAboutAxis(a, b, angle, p, p);
  return 1;
}

void Rotate_on_an_axis(const int& unit, const double* a, const double* b, const double& angle,
                       double* p) {
  RotateInPlace(unit, a, b, angle, p);
}

void Rotate_an_axis(const int& unit, const double* a, const double* b, const double& angle,
                    double* p) {
  RotateInPlace(unit, a, b, angle, p);
}

void Rotate_a_point_on_XYZ_axis(const int& unit, double angle, double* p, int axis,
                                const double* origin) {
  double a[3] = {0.0, 0.0, 0.0};
  if (origin != nullptr) ktrcl_internal::Copy(origin, a);
  double b[3];
  ktrcl_internal::Copy(a, b);
  b[axis == 0 || axis == 1 ? axis : 2] += 1.0;
  RotateInPlace(unit, a, b, angle, p);
}

int Ruotac(double* x, double* y, double cx, double cy, double angle) {
  const double dx = *x - cx;
  const double dy = *y - cy;
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  *x = cx + (dx * cosine - dy * sine);
  *y = cy + (dx * sine + dy * cosine);
  return 0;
}
