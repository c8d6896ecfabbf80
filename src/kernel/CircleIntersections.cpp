// Circles of the plane: cut with lines and circles, and their points along a direction.

#include <KTRCL_Geometry/kernel/Intersections.h>
#include <KTRCL_Geometry/kernel/PointsAndLines.h>

#include <cmath>

#include "kernel/CircleCrossings.h"
#include "kernel/PlanePoint.h"
#include "kernel/VectorArithmetic.h"

using ktrcl_internal::CircleRoots;
using ktrcl_internal::CircleThrough;
using ktrcl_internal::Distance;
using ktrcl_internal::Dot;
using ktrcl_internal::kSameRoot;
using ktrcl_internal::PlaneCircle;
using ktrcl_internal::PlanePoint;
using ktrcl_internal::RootsCoincide;
using ktrcl_internal::SquaredDistance;

namespace {

// y extent of a line, model units, inclusive, up to which it is level.
constexpr double kLevelGuard = 1e-08;

// Difference of two centres' x, model units, inclusive, up to which they stand one above the other.
constexpr double kUprightGuard = 1e-08;

// `Pntlac`: distance of the centre, model units, strict, below which a line passes through it.
constexpr double kThroughCentre = 0.000001;

// `Pntarc`: model units, inclusive.
constexpr double kOnCircle = 1e-08;

// `Detpnt`: model units, inclusive.
constexpr double kSameDistance = 0.0001;

// The second point only where it is strictly nearer.
PlanePoint NearerOf(const CircleRoots& roots, const PlanePoint& reference) {
  const bool isMinusNearer =
      SquaredDistance(roots.minus, reference) < SquaredDistance(roots.plus, reference);
  return isMinusNearer ? roots.minus : roots.plus;
}

PlanePoint ChosenRoot(const CircleRoots& roots, const PlanePoint& reference) {
  return RootsCoincide(roots) ? roots.plus : NearerOf(roots, reference);
}

int Answer(const PlanePoint& chosen, double* x, double* y) {
  *x = chosen.x;
  *y = chosen.y;
  return 1;
}

// Way from the centre to a point at distance r along the line of a direction, on its upper side, or
// to the right along a level one. The other such point lies the opposite way.
PlanePoint WayAlong(double r, const PlanePoint& direction) {
  if (direction.y == 0.0) return {r, 0.0};
  const double ratio = direction.x / direction.y;
  const double y = r / std::sqrt(ratio * ratio + 1.0);
  return {ratio * y, y};
}

// Both such points; the plus root is the upper one.
CircleRoots PointsAlong(double r, const PlanePoint& centre, const PlanePoint& direction) {
  const PlanePoint way = WayAlong(r, direction);
  return {centre + way, centre - way};
}

// Distance of a point from the unbounded line through p1 and p2.
// Returns: false where there is no such figure, as for a line without length.
bool DistanceFromLine(const PlanePoint& p1, const PlanePoint& p2, const PlanePoint& p, double& d) {
  const double first[3] = {p1.x, p1.y, 0.0};
  const double second[3] = {p2.x, p2.y, 0.0};
  const double point[3] = {p.x, p.y, 0.0};
  return Dislpt(first, second, point, &d) == 1;
}

// The points of a circle on a line through its centre; plus lies towards p2.
CircleRoots CutThroughCentre(const PlanePoint& p1, const PlanePoint& p2, const PlanePoint& centre,
                             double radius) {
  double direction[3] = {p2.x - p1.x, p2.y - p1.y, 0.0};
  ktrcl_internal::Standardize(direction);
  const PlanePoint way = radius * ktrcl_internal::Flat(direction);
  return {centre + way, centre - way};
}

}  // namespace

int IntPnts_circle(double x1, double y1, double x2, double y2, double cx, double cy, double sx,
                   double sy, double* outX1, double* outY1, double* outX2, double* outY2) {
  const PlaneCircle circle = CircleThrough({cx, cy}, {sx, sy});
  CircleRoots roots;
  if (!ktrcl_internal::CutWithLine({x1, y1}, {x2, y2}, circle, kLevelGuard, roots)) return 0;
  *outX1 = roots.plus.x;
  *outY1 = roots.plus.y;
  *outX2 = roots.minus.x;
  *outY2 = roots.minus.y;
  // Not quite `RootsCoincide`: an x that is no number leaves the answer to y.
  if (std::fabs(roots.plus.x - roots.minus.x) > kSameRoot) return 2;
  return std::fabs(roots.plus.y - roots.minus.y) <= kSameRoot ? 1 : 2;
}

int Pntlac(double x1, double y1, double x2, double y2, double cx, double cy, double sx, double sy,
           double* x, double* y) {
  const PlanePoint p1 = {x1, y1};
  const PlanePoint p2 = {x2, y2};
  const PlanePoint reference = {*x, *y};
  const PlaneCircle circle = CircleThrough({cx, cy}, {sx, sy});

  double d = 0.0;
  if (DistanceFromLine(p1, p2, circle.centre, d)) {
    const double radius = std::sqrt(circle.squaredRadius);
    if (d > 0.0 && radius > 0.0 && d > radius) return 0;
    if (d < kThroughCentre) {
      return Answer(NearerOf(CutThroughCentre(p1, p2, circle.centre, radius), reference), x, y);
    }
  }
  CircleRoots roots;
  if (!ktrcl_internal::CutWithLine(p1, p2, circle, kLevelGuard, roots)) return 0;
  return Answer(ChosenRoot(roots, reference), x, y);
}

int Pntlaa(double c1x, double c1y, double s1x, double s1y, double c2x, double c2y, double s2x,
           double s2y, double* x, double* y) {
  const PlaneCircle first = CircleThrough({c1x, c1y}, {s1x, s1y});
  const PlaneCircle second = CircleThrough({c2x, c2y}, {s2x, s2y});
  CircleRoots roots;
  if (!ktrcl_internal::CutCircles(first, second, kUprightGuard, roots)) return 0;
  return Answer(ChosenRoot(roots, {*x, *y}), x, y);
}

int Pntarc(double cx, double cy, double sx, double sy, double* x, double* y) {
  const PlanePoint centre = {cx, cy};
  const PlanePoint point = {*x, *y};
  const double radius = Distance({sx, sy}, centre);
  if (std::fabs(Distance(point, centre) - radius) <= kOnCircle) return 1;

  const PlanePoint direction = point - centre;
  const CircleRoots onCircle = PointsAlong(radius, centre, direction);
  if (Dot(onCircle.plus - centre, direction) > 0.0) return Answer(onCircle.plus, x, y);
  if (Dot(onCircle.minus - centre, direction) > 0.0) return Answer(onCircle.minus, x, y);
  return 1;
}

double Pntdet_dll(double cx, double cy, double sx, double sy, double dx, double dy, double* outX1,
                  double* outY1, double* outX2, double* outY2) {
  const PlanePoint centre = {cx, cy};
  const PlanePoint direction = PlanePoint{dx, dy} - centre;
  const CircleRoots onCircle = PointsAlong(Distance({sx, sy}, centre), centre, direction);
  *outX1 = onCircle.plus.x;
  *outY1 = onCircle.plus.y;
  *outX2 = onCircle.minus.x;
  *outY2 = onCircle.minus.y;
  return Dot(onCircle.plus - centre, direction);
}

int Detpnt(double cx, double cy, double px, double py, double r1, double qx, double qy, double r2) {
  const PlanePoint centre = {cx, cy};
  const bool firstAgrees = std::fabs(Distance({px, py}, centre) - r1) <= kSameDistance;
  const bool secondAgrees = std::fabs(Distance({qx, qy}, centre) - r2) <= kSameDistance;
  return firstAgrees && secondAgrees ? 1 : 0;
}

double Offset_arc1(double r, double x0, double y0, double x1, double y1, double* out1,
                   double* out2) {
  const PlanePoint point0 = {x0, y0};
  const PlanePoint direction = PlanePoint{x1, y1} - point0;
  const CircleRoots points = PointsAlong(r, point0, direction);
  out1[0] = points.plus.x;
  out1[1] = points.plus.y;
  out2[0] = points.minus.x;
  out2[1] = points.minus.y;
  return Dot(points.plus - point0, direction);
}
