// Directions, spans and parameters of arcs.

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/kernel/Arcs.h>
#include <KTRCL_Geometry/kernel/Frames.h>
#include <KTRCL_Geometry/kernel/PointsAndLines.h>
#include <KTRCL_Geometry/kernel/Vectors.h>

#include <cmath>

#include "kernel/VectorArithmetic.h"

using ktrcl_internal::CrossFrom;
using ktrcl_internal::Dot;
using ktrcl_internal::kPi;
using ktrcl_internal::Length;
using ktrcl_internal::Subtract;

namespace {

// `Angolo`: model units, inclusive. A way with no more extent in x is upright.
constexpr double kUprightRadians = 1e-08;

// `arc_with_hor`: model units, strict.
constexpr double kUprightDegrees = 1e-05;

// Length of a cross product of two radii, an area, up to which they are parallel.
constexpr double kParallelRadii = 0.0001;

// The same for a point whose parameter is asked. It is finer than the one of the span, so that a
// point close to the start still has a parameter of its own.
constexpr double kOnDiameter = 0.000001;

// Radians, inclusive. An arc that spans no more has no parameters.
constexpr double kNoSpan = 0.0001;

// Radians, inclusive. How far from pi the angle of a point opposite the start may be.
constexpr double kOppositeStart = 0.0001;

// Least length, inclusive, of a normal that tells the sense of an arc.
constexpr double kNormalWithSense = 0.0001;

double DotOfRadii(const double* centre, const double* first, const double* second) {
  double toFirst[3];
  double toSecond[3];
  Subtract(first, centre, toFirst);
  Subtract(second, centre, toSecond);
  return Dot(toFirst, toSecond);
}

// Point at parameter t of the segment from a to b.
void PointOnSegment(double t, const double* a, const double* b, double* out) {
  double way[3];
  Subtract(b, a, way);
  ktrcl_internal::Multiply(t, way, way);
  ktrcl_internal::Add(a, way, out);
}

void PointOnArc(int unit, double t, const double* centre, const double* start, const double* middle,
                const double* end, double* out) {
  double normal[3];
  CrossFrom(centre, start, middle, normal);
  if (Length(normal) <= kParallelRadii) return;
  ktrcl_internal::Standardize(normal);
  double tip[3];
  ktrcl_internal::Add(centre, normal, tip);
  const double angle = t * Arc_angle(unit, centre, start, middle, end);
  double turned[3];
  if (Rotate_a_point(unit, centre[0], centre[1], centre[2], tip[0], tip[1], tip[2], angle, start,
                     turned) == 0) {
    return;
  }
  ktrcl_internal::Copy(turned, out);
}

}  // namespace

double Angolo(double x1, double y1, double x2, double y2) {
  const double dx = x2 - x1;
  const double dy = y2 - y1;
  if (std::fabs(dx) <= kUprightRadians) return dy > 0.0 ? kPi / 2.0 : -kPi / 2.0;
  const double angle = std::atan(dy / dx);
  return dx > 0.0 ? angle : angle + kPi;
}

double arc_with_hor(double x1, double y1, double x2, double y2) {
  const double dx = x2 - x1;
  if (std::fabs(dx) < kUprightDegrees) return y1 > y2 ? -90.0 : 90.0;
  const double angle = GXMath::RadToDeg(std::atan((y2 - y1) / dx));
  if (dx < 0.0) return angle <= 0.0 ? angle + 180.0 : angle - 180.0;
  return angle;
}

double arc_angle(double x1, double y1, double cx, double cy, double x2, double y2) {
  const double sweep = arc_with_hor(cx, cy, x2, y2) - arc_with_hor(cx, cy, x1, y1);
  return std::fmod(sweep + 360.0, 360.0);
}

bool Arcdir_c(double x1, double y1, double x2, double y2, double x3, double y3, double /*idle1*/,
              double /*idle2*/) {
  return (x2 - x1) * (y3 - y1) - (y2 - y1) * (x3 - x1) > 0.0;
}

double Arc_angle(const int& unit, const double* centre, const double* start, const double* middle,
                 const double* end) {
  if (Pntcmp(middle, end) != 0) return 2.0 * kPi;

  double normal[3];
  CrossFrom(centre, start, middle, normal);
  if (Length(normal) <= kParallelRadii) return 0.0;

  const double angle = Angle_between_2_lines(unit, centre, start, centre, end, false);
  double cross[3];
  CrossFrom(centre, start, end, cross);
  const double crossLength = Length(cross);
  if (crossLength <= kParallelRadii && DotOfRadii(centre, start, end) > 0.0) return 0.0;
  // Half a turn has no cross product whose sense could count.
  const bool isReflex = Dot(normal, cross) < 0.0 && crossLength > kParallelRadii;
  return isReflex ? 2.0 * kPi - angle : angle;
}

double Point_parametrc_value_on_arc(const int& unit, const double* p, const double* centre,
                                    const double* start, const double* middle, const double* end) {
  double normal[3];
  CrossFrom(centre, start, middle, normal);
  if (Length(normal) <= kParallelRadii) return 0.0;
  const double span = Arc_angle(unit, centre, start, middle, end);
  if (std::fabs(span) <= kNoSpan) return 0.0;

  double angle = Angle_between_2_lines(unit, centre, start, centre, p, false);
  double cross[3];
  CrossFrom(centre, start, p, cross);
  if (Length(cross) <= kOnDiameter) {
    if (!(std::fabs(angle - kPi) <= kOppositeStart)) return 0.0;
  } else if (Dot(normal, cross) < 0.0) {
    angle = 2.0 * kPi - angle;
  }
  return angle / span;
}

void Obtain_a_point_in_parametric_curve(const int& unit, double* out, double t, int kind,
                                        const double* a, const double* b, const double* c,
                                        const double* d) {
  if (kind == 0) PointOnSegment(t, a, b, out);
  if (kind == 1) PointOnArc(unit, t, a, b, c, d, out);
}

bool Same_direction_arcs(const double* c1, const double* s1, const double* m1, const double* c2,
                         const double* s2, const double* m2) {
  double normal1[3];
  double normal2[3];
  CrossFrom(c1, s1, m1, normal1);
  CrossFrom(c2, s2, m2, normal2);
  const bool haveSense = Length(normal1) >= kNormalWithSense && Length(normal2) >= kNormalWithSense;
  if (!haveSense) return false;
  ktrcl_internal::Standardize(normal1);
  ktrcl_internal::Standardize(normal2);
  return Dot(normal1, normal2) > 0.0;
}
