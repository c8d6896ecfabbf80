// The circles of arcs in space, cut in the plane of the (first) arc.

#include <KTRCL_Geometry/kernel/Intersections.h>
#include <KTRCL_Geometry/kernel/PointsAndLines.h>
#include <KTRCL_Geometry/kernel/Vectors.h>

#include <cmath>

#include "kernel/CircleCrossings.h"
#include "kernel/PlanePoint.h"
#include "kernel/TwoWayFrame.h"
#include "kernel/VectorArithmetic.h"

using ktrcl_internal::CircleRoots;
using ktrcl_internal::Copy;
using ktrcl_internal::Flat;
using ktrcl_internal::PlaneCircle;
using ktrcl_internal::TwoWayFrame;

namespace {

// Local y extent of a line, model units, inclusive, up to which it is level.
constexpr double kLevelGuard = 1e-08;
constexpr double kWideLevelGuard = 1e-05;

// Difference of the centres' local x, model units, inclusive, up to which they stand one above the
// other: ten times what the planar routine takes.
constexpr double kUprightGuard = 1e-07;

// An arc's circle and a line, both in the frame of the arc, whose origin is the centre.
struct LocalScene {
  TwoWayFrame plane;
  PlaneCircle circle;
  double p1[3];
  double p2[3];
};

bool SpanPlane(const int& unit, const double* centre, const double* start, const double* third,
               TwoWayFrame& plane) {
  if (Inline(unit, centre, start, centre, third) == 1) return false;
  return ktrcl_internal::MakeFrame(centre, start, third, plane);
}

// Returns: false for arc points in line.
bool MakeLocal(const int& unit, const double* p1, const double* p2, const double* centre,
               const double* start, const double* third, LocalScene& scene) {
  if (!SpanPlane(unit, centre, start, third, scene.plane)) return false;
  Gloloc(p1, scene.p1, centre, scene.plane.frame);
  Gloloc(p2, scene.p2, centre, scene.plane.frame);
  double toStart[3];
  ktrcl_internal::Subtract(start, centre, toStart);
  scene.circle = {{0.0, 0.0}, ktrcl_internal::Dot(toStart, toStart)};
  return true;
}

// Both roots in space, before either is written: an output may be the origin itself.
struct SpaceRoots {
  double plus[3];
  double minus[3];
};

SpaceRoots ToSpace(const CircleRoots& roots, const double* origin, const TwoWayFrame& plane) {
  const double plus[3] = {roots.plus.x, roots.plus.y, 0.0};
  const double minus[3] = {roots.minus.x, roots.minus.y, 0.0};
  SpaceRoots made;
  Locglo(plus, made.plus, origin, plane.inverse);
  Locglo(minus, made.minus, origin, plane.inverse);
  return made;
}

int CutLocalLine(const LocalScene& scene, const double* centre, double levelGuard, double* out1,
                 double* out2) {
  CircleRoots roots;
  if (!ktrcl_internal::CutWithLine(Flat(scene.p1), Flat(scene.p2), scene.circle, levelGuard,
                                   roots)) {
    return 0;
  }
  const SpaceRoots made = ToSpace(roots, centre, scene.plane);
  Copy(made.plus, out1);
  Copy(made.minus, out2);
  return ktrcl_internal::RootsCoincide(roots) ? 1 : 2;
}

bool PassesCircle(const LocalScene& scene) {
  const double centre[3] = {0.0, 0.0, 0.0};
  double d = 0.0;
  // A line across the plane is a point here, without a distance, and goes on as a level line.
  if (Dislpt(scene.p1, scene.p2, centre, &d) == 0) return false;
  return d > std::sqrt(scene.circle.squaredRadius);
}

int CutProjectedLine(const int& unit, const double* p1, const double* p2, const double* centre,
                     const double* start, const double* third, double levelGuard, double* out1,
                     double* out2) {
  LocalScene scene;
  if (!MakeLocal(unit, p1, p2, centre, start, third, scene)) return 0;
  scene.p1[2] = 0.0;
  scene.p2[2] = 0.0;
  if (PassesCircle(scene)) return 0;
  return CutLocalLine(scene, centre, levelGuard, out1, out2);
}

}  // namespace

int Intersect2D_circles(const int& unit, const double* c1, const double* s1, const double* t1,
                        const double* c2, const double* s2, const double* t2, double* out1,
                        double* out2) {
  if (Inline(unit, c2, s2, c2, t2) == 1) return 0;
  TwoWayFrame plane;
  if (!SpanPlane(unit, c1, s1, t1, plane)) return 0;

  const auto toLocal = [c1, &plane](const double* p) {
    double local[3];
    Gloloc(p, local, c1, plane.frame);
    return Flat(local);
  };
  const PlaneCircle first = ktrcl_internal::CircleThrough(toLocal(c1), toLocal(s1));
  const PlaneCircle second = ktrcl_internal::CircleThrough(toLocal(c2), toLocal(s2));
  CircleRoots roots;
  if (!ktrcl_internal::CutCircles(first, second, kUprightGuard, roots)) return 0;

  const SpaceRoots made = ToSpace(roots, c1, plane);
  Copy(made.plus, out1);
  Copy(made.minus, out2);
  return Pntcmp(made.plus, made.minus) == 1 ? 1 : 2;
}

int Intersection_3D_line_arc(const int& unit, const double* p1, const double* p2,
                             const double* centre, const double* start, const double* third,
                             double tol, double* out1, double* out2) {
  LocalScene scene;
  if (!MakeLocal(unit, p1, p2, centre, start, third, scene)) return 0;
  if (std::fabs(scene.p1[2]) > tol || std::fabs(scene.p2[2]) > tol) return 0;
  return CutLocalLine(scene, centre, kLevelGuard, out1, out2);
}

int Intersection_line_arc_on_arc_plane(const int& unit, const double* p1, const double* p2,
                                       const double* centre, const double* start,
                                       const double* third, double /*ignored*/, double* out1,
                                       double* out2) {
  return CutProjectedLine(unit, p1, p2, centre, start, third, kLevelGuard, out1, out2);
}

int Intersection_line_arc_on_arc_plane_tol(const int& unit, const double* p1, const double* p2,
                                           const double* centre, const double* start,
                                           const double* third, double /*ignored*/, double* out1,
                                           double* out2) {
  return CutProjectedLine(unit, p1, p2, centre, start, third, kWideLevelGuard, out1, out2);
}
