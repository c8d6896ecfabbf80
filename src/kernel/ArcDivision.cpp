// Where arcs are divided, by points and by each other.

#include <KTRCL_Geometry/kernel/Arcs.h>
#include <KTRCL_Geometry/kernel/Frames.h>
#include <KTRCL_Geometry/kernel/Intersections.h>
#include <KTRCL_Geometry/kernel/Vectors.h>

#include <cmath>
#include <initializer_list>

#include "kernel/TwoWayFrame.h"
#include "kernel/VectorArithmetic.h"

using ktrcl_internal::Copy;
using ktrcl_internal::Distance;
using ktrcl_internal::Dot;
using ktrcl_internal::Length;

namespace {

// `Divide_arc_by_a_point`: model units. A point is off the circle from here on, inclusive.
constexpr double kOffCircle = 0.0001;

// `Divide_arc_by_a_point`: product of two lengths, strict. Below it there is no angle between them.
constexpr double kNoAngle = 0.0001;

// Parameters of a crossing. Off the arc is below the first and above the last of them; strictly
// inside is between the two others. What is left are the ends.
constexpr double kOffBeforeStart = -0.000001;
constexpr double kInsideFrom = 0.000001;
constexpr double kInsideTo = 0.999999;
constexpr double kOffBehindEnd = 1.000001;

// ---- Dividing one arc by a point

// Brings a local point of height 0 onto the circle about the local origin. Of the two points in
// line with the origin that is the one on the same side; the origin has no side and stays.
void SnapToCircle(double radius, double* p) {
  const double distance = Length(p);
  if (!(std::fabs(distance - radius) >= kOffCircle)) return;
  double snapped[3];
  ktrcl_internal::Divide(p, distance, snapped);
  ktrcl_internal::Multiply(radius, snapped, snapped);
  if (Dot(snapped, p) > 0.0) Copy(snapped, p);
}

double HalfAngleBetween(const double* a, const double* b) {
  const double product = Length(a) * Length(b);
  if (product < kNoAngle) return 0.0;
  return std::acos(ktrcl_internal::ClampCosine(Dot(a, b) / product)) * 0.5;
}

// `from`, turned counter-clockwise about the local z axis by half the angle between `a` and `b`.
void TurnByHalfAngle(const double* from, const double* a, const double* b, double* out) {
  Copy(from, out);
  Ruotac(&out[0], &out[1], 0.0, 0.0, HalfAngleBetween(a, b));
}

// ---- Dividing two arcs by each other

struct Arc {
  const double* centre;
  const double* start;
  const double* middle;
  const double* end;

  bool IsFullCircle() const { return Pntcmp(middle, end) != 0; }
  bool HasEndAt(const double* p) const { return Pntcmp(p, start) != 0 || Pntcmp(p, end) != 0; }
};

struct Crossing {
  double point[3];
  double onFirst;   // parameter on the first arc
  double onSecond;  // parameter on the second arc
};

struct CrossingPair {
  Crossing q1;
  Crossing q2;
};

// What divides the arcs: both crossings, or one where the other is off the arcs.
struct DividingPoints {
  int number;
  const double* sole;  // only for one point
};

// Which of the two arcs are asked whether the points divide them.
enum class Examined { kFirstArc, kBothArcs };

struct Outputs {
  double* q1;
  double* q2;
  int& cnt1;
  double* r1;
  double* r2;
  int& cnt2;
};

bool IsOffArc(double parameter) { return parameter < kOffBeforeStart || parameter > kOffBehindEnd; }

bool IsNotInsideArc(double parameter) { return parameter <= kInsideFrom || parameter >= kInsideTo; }

bool IsOffBothArcs(const Crossing& q) { return IsOffArc(q.onFirst) && IsOffArc(q.onSecond); }

// The parameter, exactly 0 or 1 where the point is an end by `Pntcmp`. The end is asked last, so
// that it wins on an arc whose ends coincide.
double ParameterOnArc(int unit, const double* p, const Arc& arc) {
  if (Pntcmp(p, arc.end) != 0 && !arc.IsFullCircle()) return 1.0;
  if (Pntcmp(p, arc.start) != 0) return 0.0;
  return Point_parametrc_value_on_arc(unit, p, arc.centre, arc.start, arc.middle, arc.end);
}

void SetParameters(int unit, const Arc& first, const Arc& second, Crossing& q) {
  q.onFirst = ParameterOnArc(unit, q.point, first);
  q.onSecond = ParameterOnArc(unit, q.point, second);
}

// A crossing must lie on both arcs: off one of them it is off the other one too.
void ShareBeingOff(Crossing& q) {
  if (IsOffArc(q.onFirst)) {
    q.onSecond = q.onFirst;
  } else if (IsOffArc(q.onSecond)) {
    q.onFirst = q.onSecond;
  }
}

bool IsInsideNoArc(const CrossingPair& pair) {
  return IsNotInsideArc(pair.q1.onFirst) && IsNotInsideArc(pair.q1.onSecond) &&
         IsNotInsideArc(pair.q2.onFirst) && IsNotInsideArc(pair.q2.onSecond);
}

// The crossings of both circles with their parameters.
// Returns: whether there are two of them and one falls strictly inside an arc.
bool FindCrossings(int unit, const Arc& first, const Arc& second, CrossingPair& pair) {
  if (Intersect2D_circles(unit, first.centre, first.start, first.middle, second.centre,
                          second.start, second.middle, pair.q1.point, pair.q2.point) < 2) {
    return false;
  }
  for (Crossing* const q : {&pair.q1, &pair.q2}) {
    SetParameters(unit, first, second, *q);
    ShareBeingOff(*q);
  }
  return !IsInsideNoArc(pair);
}

DividingPoints DividingPointsOf(const CrossingPair& pair) {
  if (IsOffBothArcs(pair.q1)) return {1, pair.q2.point};
  if (IsOffBothArcs(pair.q2)) return {1, pair.q1.point};
  return {2, nullptr};
}

// One point never divides a full circle, and no arc at its end.
int CountOfOnePoint(const Arc& arc, const double* p) {
  return arc.IsFullCircle() || arc.HasEndAt(p) ? 0 : 1;
}

int CountOfTwoPoints(const Arc& arc, double parameter1, double parameter2) {
  int count = 2;
  if (arc.IsFullCircle()) return count;
  if (IsNotInsideArc(parameter1)) --count;
  if (IsNotInsideArc(parameter2)) --count;
  return count;
}

// How many of the points divide an arc, on which the crossings have these parameters.
int CountOnArc(const Arc& arc, const DividingPoints& points, double parameter1, double parameter2) {
  return points.number == 1 ? CountOfOnePoint(arc, points.sole)
                            : CountOfTwoPoints(arc, parameter1, parameter2);
}

void WriteOnePoint(const CrossingPair& pair, const double* sole, const Outputs& out) {
  // An off q1 gives its place to the other crossing; an off q2 stays where it is.
  Copy(sole, out.q1);
  Copy(pair.q2.point, out.q2);
  Copy(sole, out.r1);
}

void WriteTwoPoints(const Arc& first, const CrossingPair& pair, const Outputs& out) {
  const bool q1IsEnd = !first.IsFullCircle() && IsNotInsideArc(pair.q1.onFirst);
  Copy(pair.q1.point, out.q1);
  Copy(pair.q2.point, out.q2);
  Copy(q1IsEnd ? pair.q2.point : pair.q1.point, out.r1);
  Copy(pair.q2.point, out.r2);
}

bool DivideEachOther(int unit, const Arc& first, const Arc& second, Examined examined,
                     const Outputs& out) {
  CrossingPair pair{};
  if (!FindCrossings(unit, first, second, pair)) return false;

  const DividingPoints points = DividingPointsOf(pair);
  const int cnt1 = CountOnArc(first, points, pair.q1.onFirst, pair.q2.onFirst);
  // All that the two routines differ in. An unexamined second arc keeps the count that it starts
  // with, which is never 0, so that the answer is then always yes.
  const int cnt2 = examined == Examined::kBothArcs
                       ? CountOnArc(second, points, pair.q1.onSecond, pair.q2.onSecond)
                       : points.number;
  if (cnt1 == 0 && cnt2 == 0) return false;

  if (points.number == 1) {
    WriteOnePoint(pair, points.sole, out);
  } else {
    WriteTwoPoints(first, pair, out);
  }
  out.cnt1 = cnt1;
  out.cnt2 = cnt2;
  return true;
}

}  // namespace

int Divide_arc_by_a_point(double px, double py, double pz, double cx, double cy, double cz,
                          double sx, double sy, double sz, double mx, double my, double mz,
                          double ex, double ey, double ez, double* pointOut, double* mid1,
                          double* mid2) {
  const double p[3] = {px, py, pz};
  const double centre[3] = {cx, cy, cz};
  const double start[3] = {sx, sy, sz};
  const double middle[3] = {mx, my, mz};
  const double end[3] = {ex, ey, ez};
  ktrcl_internal::TwoWayFrame plane;
  if (!ktrcl_internal::MakeFrame(centre, start, middle, plane)) return 1;

  double divide[3];
  double localStart[3];
  double localEnd[3];
  Gloloc(p, divide, centre, plane.frame);
  Gloloc(start, localStart, centre, plane.frame);
  Gloloc(end, localEnd, centre, plane.frame);
  divide[2] = 0.0;
  SnapToCircle(Distance(start, centre), divide);

  double localMid1[3];
  double localMid2[3];
  TurnByHalfAngle(localStart, localStart, divide, localMid1);
  TurnByHalfAngle(divide, localEnd, divide, localMid2);
  Locglo(divide, pointOut, centre, plane.inverse);
  Locglo(localMid1, mid1, centre, plane.inverse);
  Locglo(localMid2, mid2, centre, plane.inverse);
  return 1;
}

void Make_sure_middle_points_correct(const int& unit, const double* centre, const double* start,
                                     const double* middle, const double* end, const double* divide,
                                     double* mid1, double* mid2) {
  const auto parameterOf = [&](const double* p) {
    return Point_parametrc_value_on_arc(unit, p, centre, start, middle, end);
  };
  const auto placeAt = [&](double t, double* out) {
    Obtain_a_point_in_parametric_curve(unit, out, t, 1, centre, start, middle, end);
  };
  double mended1[3];
  double mended2[3];
  Copy(mid1, mended1);
  Copy(mid2, mended2);
  if (!Same_direction_arcs(centre, start, mid1, centre, start, middle)) {
    placeAt(0.5 * parameterOf(mid1), mended1);
  }
  if (!Same_direction_arcs(centre, divide, mid2, centre, start, middle)) {
    placeAt((parameterOf(divide) + parameterOf(mid2)) * 0.5, mended2);
  }
  Copy(mended1, mid1);
  Copy(mended2, mid2);
}

bool Are_two_arcs_needed_division(const int& unit, const double* c1, const double* s1,
                                  const double* m1, const double* e1, const double* c2,
                                  const double* s2, const double* m2, const double* e2, double* q1,
                                  double* q2, int& cnt1, double* r1, double* r2, int& cnt2) {
  return DivideEachOther(unit, {c1, s1, m1, e1}, {c2, s2, m2, e2}, Examined::kBothArcs,
                         {q1, q2, cnt1, r1, r2, cnt2});
}

bool Is_1st_arc_needed_division(const int& unit, const double* c1, const double* s1,
                                const double* m1, const double* e1, const double* c2,
                                const double* s2, const double* m2, const double* e2, double* q1,
                                double* q2, int& cnt1, double* r1, double* r2, int& cnt2) {
  return DivideEachOther(unit, {c1, s1, m1, e1}, {c2, s2, m2, e2}, Examined::kFirstArc,
                         {q1, q2, cnt1, r1, r2, cnt2});
}
