// Centres, middles and tangents of arcs.

#include <KTRCL_Geometry/kernel/Arcs.h>
#include <KTRCL_Geometry/kernel/Frames.h>
#include <KTRCL_Geometry/kernel/PointsAndLines.h>

#include <cmath>

#include "kernel/PlanePoint.h"
#include "kernel/VectorArithmetic.h"

using ktrcl_internal::Add;
using ktrcl_internal::Copy;
using ktrcl_internal::Cross;
using ktrcl_internal::CrossFrom;
using ktrcl_internal::Distance;
using ktrcl_internal::Dot;
using ktrcl_internal::kPi;
using ktrcl_internal::PlanePoint;
using ktrcl_internal::Standardize;
using ktrcl_internal::Subtract;

namespace {

// `Obtain_midpoint_on_an_arc`: model units, inclusive. The distance from the circle that is none,
// and the distance from the centre that gives no direction.
constexpr double kOnCircle = 0.00001;

// `Tangent_point_for_arc_endpoints`: model units, inclusive. The tangents at the ends of a chord
// whose middle is no farther from the centre are parallel.
constexpr double kChordThroughCentre = 0.0001;

// `Tangent_points_on_arc`: model units. A point has tangents if it is farther out than the circle
// by this much.
constexpr double kOutsideCircle = 0.0001;

// `Tangent_points_on_arc`: both strict. The end of an arc is no place for the first tangent, since
// the next element touches there.
constexpr double kLeastParameter = -0.0001;
constexpr double kGreatestParameter = 0.9999;

// Perpendicular bisector of a chord in slope form, y = slope * x + offset. That of a level chord is
// upright at `middleX` and has no slope.
struct Bisector {
  bool isUpright;
  double middleX;
  double slope;
  double offset;

  double At(double x) const { return slope * x + offset; }
};

Bisector BisectorOf(const PlanePoint& a, const PlanePoint& b) {
  const PlanePoint middle = 0.5 * (a + b);
  const double slope = -(b.x - a.x) / (b.y - a.y);
  return {a.y == b.y, middle.x, slope, middle.y - slope * middle.x};
}

PlanePoint CrossingOf(const Bisector& first, const Bisector& second) {
  if (second.isUpright) return {second.middleX, first.At(second.middleX)};
  const double x = first.isUpright ? first.middleX
                                   : (second.offset - first.offset) / (first.slope - second.slope);
  return {x, second.At(x)};
}

PlanePoint LocalPoint(const double* p, const double (*frame)[3], const double* origin) {
  PlanePoint local{};
  Arcmpi(p, frame, &local.x, &local.y, origin);
  return local;
}

// `p` turned about the axis from `centre` to the point `axisTip`.
bool TurnAboutAxis(int unit, const double* centre, const double* axisTip, double angle,
                   const double* p, double* out) {
  return Rotate_a_point(unit, centre[0], centre[1], centre[2], axisTip[0], axisTip[1], axisTip[2],
                        angle, p, out) != 0;
}

}  // namespace

int Calculate_center_arc(const int& unit, const double* p1, const double* p2, const double* p3,
                         double* out) {
  if (Inline(unit, p1, p2, p1, p3) != 0) return 0;
  double frame[3][3];
  if (Lambda(p1, p2, p3, frame) == 0) return 0;

  const PlanePoint local1 = LocalPoint(p1, frame, p1);
  const PlanePoint local2 = LocalPoint(p2, frame, p1);
  const PlanePoint local3 = LocalPoint(p3, frame, p1);
  const PlanePoint centre = CrossingOf(BisectorOf(local1, local2), BisectorOf(local2, local3));
  double global[3];
  Arcpmo(centre.x, centre.y, frame, &global[0], &global[1], &global[2], p1);
  Copy(global, out);
  return 1;
}

int Arcmpi(const double* p, const double (*frame)[3], double* u, double* v, const double* origin) {
  double way[3];
  Subtract(p, origin, way);
  const double alongX = Dot(frame[0], way);
  const double alongY = Dot(frame[1], way);
  *u = alongX;
  *v = alongY;
  return 0;
}

int Arcpmo(double u, double v, const double (*frame)[3], double* x, double* y, double* z,
           const double* origin) {
  double global[3];
  for (int i = 0; i < 3; ++i) global[i] = origin[i] + u * frame[0][i] + v * frame[1][i];
  *x = global[0];
  *y = global[1];
  *z = global[2];
  return 1;
}

void Middle_pnt_on_arc(double cx, double cy, double sx, double sy, double ex, double ey, double* mx,
                       double* my) {
  const PlanePoint centre = {cx, cy};
  const PlanePoint start = {sx, sy};
  const PlanePoint end = {ex, ey};
  // From half a turn on the arc cosine would give the other side.
  double halfAngle = kPi / 2.0;
  if (Cross(start - centre, end - centre) > 0.0) {
    const double cosine =
        Dot(start - centre, end - centre) / (Distance(start, centre) * Distance(end, centre));
    halfAngle = std::acos(ktrcl_internal::ClampCosine(cosine)) * 0.5;
  }
  double x = sx;
  double y = sy;
  Ruotac(&x, &y, cx, cy, halfAngle);
  *mx = x;
  *my = y;
}

bool Obtain_midpoint_on_an_arc(const double* centre, const double* start, const double* p,
                               double* out) {
  const double radius = Distance(centre, start);
  const double distance = Distance(centre, p);
  if (std::fabs(distance - radius) <= kOnCircle) {
    Copy(p, out);
    return true;
  }
  if (!(distance > kOnCircle)) return false;
  double way[3];
  Subtract(p, centre, way);
  Standardize(way);
  ktrcl_internal::Multiply(radius, way, way);
  Add(centre, way, out);
  return true;
}

int Tangent_point_for_arc_endpoints(const double* centre, const double* start,
                                    const double* /*ignored*/, const double* end, double* out) {
  const double chordMiddle[3] = {(start[0] + end[0]) * 0.5, (start[1] + end[1]) * 0.5,
                                 (start[2] + end[2]) * 0.5};
  double way[3];
  Subtract(chordMiddle, centre, way);
  if (!(ktrcl_internal::Length(way) > kChordThroughCentre)) return 0;

  double toStart[3];
  double toEnd[3];
  Subtract(start, centre, toStart);
  Subtract(end, centre, toEnd);
  const double cosine = ktrcl_internal::ClampCosine(ktrcl_internal::Cosine(toStart, toEnd));
  const double distance = ktrcl_internal::Length(toStart) / std::sqrt((cosine + 1.0) * 0.5);
  Standardize(way);
  ktrcl_internal::Multiply(distance, way, way);
  Add(centre, way, out);
  return 1;
}

void Tangent_points_on_arc(const int& unit, const double* p, const double* centre,
                           const double* start, const double* middle, const double* end,
                           double* out1, double* out2) {
  const double radius = Distance(centre, start);
  const double distance = Distance(p, centre);
  if (radius > distance - kOutsideCircle) return;

  double normal[3];
  CrossFrom(centre, start, middle, normal);
  const double angle = std::acos(radius / distance);
  double plus[3];
  double minus[3];
  // The raw normal is the second point of the axis, not a direction from the centre.
  if (!TurnAboutAxis(unit, centre, normal, angle, p, plus)) return;
  if (!TurnAboutAxis(unit, centre, normal, -angle, p, minus)) return;

  const double parameter = Point_parametrc_value_on_arc(unit, plus, centre, start, middle, end);
  const bool isOnArc = kLeastParameter < parameter && parameter < kGreatestParameter;
  Copy(isOnArc ? plus : minus, out1);
  Copy(isOnArc ? minus : plus, out2);
}
