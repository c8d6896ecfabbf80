// Planes: made from a normal or across a line, points set against them, projected and mirrored,
// lines cut with them.

#include <KTRCL_Geometry/kernel/Frames.h>
#include <KTRCL_Geometry/kernel/PointsAndLines.h>

#include <cmath>

#include "kernel/PlaneCrossing.h"
#include "kernel/PlanePoint.h"
#include "kernel/TwoWayFrame.h"
#include "kernel/UnitFlag.h"
#include "kernel/VectorArithmetic.h"

using ktrcl_internal::Add;
using ktrcl_internal::Copy;
using ktrcl_internal::Cross;
using ktrcl_internal::CrossFrom;
using ktrcl_internal::Dot;
using ktrcl_internal::Fill;
using ktrcl_internal::Flat;
using ktrcl_internal::MakeFrame;
using ktrcl_internal::Subtract;
using ktrcl_internal::TwoWayFrame;

namespace {

// A component of a normal that is no larger in magnitude counts as zero.
constexpr double kZeroComponent = 0.0001;

// How far the points of a plane that is made up stand from its given point, model units. Lengths of
// practice, so that the tests on short segments do not see them.
constexpr double kPlaneArm = 10.0;
constexpr double kAcrossArm = 100.0;

// A normal that is shorter (strict) is not divided by.
constexpr double kNormalGuard = 1e-08;

// Three points of a plane besides the given one; the last two may be the same.
struct PointsOfPlane {
  double a[3];
  double b[3];
  double c[3];
};

void Shift(const double* p, double dx, double dy, double dz, double* out) {
  Fill(p[0] + dx, p[1] + dy, p[2] + dz, out);
}

// A point of the plane at a right angle to the way from p to a.
void StepAcross(const double* normal, const double* p, const double* a, double* out) {
  double way[3];
  Subtract(a, p, way);
  ktrcl_internal::Standardize(way);
  double across[3];
  Cross(normal, way, across);
  ktrcl_internal::Standardize(across);
  Add(p, across, out);
}

// Across one axis: the plane runs along the two others.
void PointsForOneComponent(bool hasX, bool hasZ, const double* p, PointsOfPlane& points) {
  if (hasX) {
    Shift(p, 0.0, kPlaneArm, 0.0, points.a);
    Shift(p, 0.0, 0.0, kPlaneArm, points.b);
  } else if (hasZ) {
    Shift(p, 0.0, kPlaneArm, 0.0, points.a);
    Shift(p, kPlaneArm, 0.0, 0.0, points.b);
  } else {
    // Along y, and for a normal of zero, which so has a frame too.
    Shift(p, kPlaneArm, 0.0, 0.0, points.a);
    Shift(p, 0.0, 0.0, kPlaneArm, points.b);
  }
  Copy(points.b, points.c);
}

// Where the plane cuts the global axes, or lines parallel to them through p.
void PointsForMoreComponents(bool hasX, bool hasY, bool hasZ, const double* normal, const double* p,
                             PointsOfPlane& points) {
  const double k = Dot(normal, p);
  if (hasX && hasY && hasZ) {
    Fill(0.0, 0.0, k / normal[2], points.a);
    Fill(0.0, k / normal[1], 0.0, points.b);
    Fill(k / normal[0], 0.0, 0.0, points.c);
    return;
  }
  if (hasX && hasY) {
    Fill(0.0, k / normal[1], p[2], points.a);
    Fill(k / normal[0], 0.0, p[2] + kPlaneArm, points.b);
  } else if (hasY) {
    Fill(p[0], k / normal[1], 0.0, points.a);
    StepAcross(normal, p, points.a, points.b);
  } else {
    Fill(0.0, p[1], k / normal[2], points.a);
    StepAcross(normal, p, points.a, points.b);
  }
  Copy(points.b, points.c);
}

PointsOfPlane PointsAcrossNormal(const double* normal, const double* p) {
  const bool hasX = std::fabs(normal[0]) > kZeroComponent;
  const bool hasY = std::fabs(normal[1]) > kZeroComponent;
  const bool hasZ = std::fabs(normal[2]) > kZeroComponent;
  PointsOfPlane points;
  if (static_cast<int>(hasX) + static_cast<int>(hasY) + static_cast<int>(hasZ) > 1) {
    PointsForMoreComponents(hasX, hasY, hasZ, normal, p, points);
  } else {
    PointsForOneComponent(hasX, hasZ, p, points);
  }
  return points;
}

double TripleProduct(const double* normal, const double* a, const double* p) {
  double toP[3];
  Subtract(p, a, toP);
  return Dot(normal, toP);
}

int CrossPlane(const double* origin, const double (*frame)[3], const double (*inverse)[3],
               const double* l1, const double* l2, double* out) {
  double local1[3];
  double local2[3];
  Gloloc(l1, local1, origin, frame);
  Gloloc(l2, local2, origin, frame);
  double crossing[3];
  if (!ktrcl_internal::CrossLevelPlane(local1, local2, crossing)) return 0;
  return Locglo(crossing, out, origin, inverse);
}

}  // namespace

int Plane_by_a_Normal_Point(const int& unit, const double* normal, const double* p,
                            double (*frame)[3]) {
  const PointsOfPlane points = PointsAcrossNormal(normal, p);
  const double* const pairs[3][2] = {
      {points.a, points.b}, {points.a, points.c}, {points.b, points.c}};
  for (const auto& [first, second] : pairs) {
    if (Inline(unit, p, first, p, second) == 1) continue;
    double made[3][3];
    if (Lambda(p, first, second, made) == 0) return 0;
    for (int row = 0; row < 3; ++row) Copy(made[row], frame[row]);
    return 1;
  }
  return 0;
}

int Perpendicular_plane_of_line(const double* a, const double* b, double* o1, double* o2,
                                double* o3) {
  double d[3];
  Subtract(b, a, d);
  ktrcl_internal::Standardize(d);
  const double start[3] = {a[0], a[1], a[2]};
  double second[3];
  double third[3];
  if (d[0] != 0.0) {
    Shift(start, -(d[1] * kAcrossArm) / d[0], kAcrossArm, 0.0, second);
    Shift(start, -(d[2] * kAcrossArm) / d[0], 0.0, kAcrossArm, third);
  } else if (d[1] != 0.0) {
    Shift(start, kAcrossArm, -(d[0] * kAcrossArm) / d[1], 0.0, second);
    Shift(start, 0.0, -(d[2] * kAcrossArm) / d[1], kAcrossArm, third);
  } else if (d[2] != 0.0) {
    // The plane is z = a.z, so any x does; hosts compare with figures that have z here.
    Fill(start[2], start[1] + kAcrossArm, start[2], second);
    Fill(start[2] + kAcrossArm, start[1], start[2], third);
  } else {
    return 0;
  }
  Copy(start, o1);
  Copy(second, o2);
  Copy(third, o3);
  return 1;
}

bool PointInPlane(const int& unit, const double* a, const double* b, const double* c,
                  const double* p) {
  const double limit = ktrcl_internal::OneIsInches(unit) ? ktrcl_internal::kOnSurfaceInches
                                                         : ktrcl_internal::kOnSurface;
  double normal[3];
  CrossFrom(a, b, c, normal);
  const double product = TripleProduct(normal, a, p);
  const double length = ktrcl_internal::Length(normal);
  // Points in line span no plane: the product keeps its sign, so that all negative ones pass.
  if (length < kNormalGuard) return product <= limit;
  return std::fabs(product / length) <= limit;
}

double dirchk1_dll(const double* a, const double* b, const double* c, const double* d) {
  double normal[3];
  CrossFrom(a, b, c, normal);
  return TripleProduct(normal, a, d);
}

int Project_point_on_plane(const double* a, const double* b, const double* c, const double* p,
                           double* out) {
  TwoWayFrame made;
  if (!MakeFrame(a, b, c, made)) return 1;
  return Project_point_on_plane_m(made.frame, made.inverse, a, p, out);
}

int Project_point_on_plane_m(const double (*frame)[3], const double (*inverse)[3],
                             const double* origin, const double* p, double* out) {
  double local[3];
  Gloloc(p, local, origin, frame);
  local[2] = 0.0;
  return Locglo(local, out, origin, inverse);
}

int Planar_symmetric_a_point_by_a_line(const int& unit, const double* p, const double* a,
                                       const double* b, double* out) {
  if (Inline(unit, a, b, a, p) == 1) return 0;
  TwoWayFrame made;
  if (!MakeFrame(a, b, p, made)) return 0;
  double local[3];
  Gloloc(p, local, a, made.frame);
  local[1] = -local[1];
  return Locglo(local, out, a, made.inverse);
}

void Select_correct_point(double* p1, const double* p2, const double* q, const double (*frame)[3],
                          const double* origin, const double (*inverse)[3]) {
  double local1[3];
  double local2[3];
  double localQ[3];
  Gloloc(p1, local1, origin, frame);
  Gloloc(p2, local2, origin, frame);
  Gloloc(q, localQ, origin, frame);
  const double distance1 = ktrcl_internal::Distance(Flat(localQ), Flat(local1));
  const double distance2 = ktrcl_internal::Distance(Flat(localQ), Flat(local2));
  if (!(distance2 > distance1)) return;
  local2[2] = 0.0;
  Locglo(local2, p1, origin, inverse);
}

int Cal_inter_plane_line(const double* a, const double* b, const double* c, const double* l1,
                         const double* l2, double* out) {
  TwoWayFrame made;
  if (!MakeFrame(a, b, c, made)) return 0;
  return CrossPlane(a, made.frame, made.inverse, l1, l2, out);
}

int Cal_inter_plane_line(const double* origin, const double* l1, const double* l2, double* out,
                         const double (*frame)[3], const double (*inverse)[3]) {
  return CrossPlane(origin, frame, inverse, l1, l2, out);
}

int Cal_inter_plane_line(const double* l1, const double* l2, double* out, const double (*frame)[3],
                         const double* origin, const double (*inverse)[3]) {
  return CrossPlane(origin, frame, inverse, l1, l2, out);
}
