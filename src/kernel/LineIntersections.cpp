// Lines cut with lines, in the plane and in space. All of them end in the same two slope forms;
// they differ in how collinear lines are told and in what the crossing has to lie on.

#include <KTRCL_Geometry/kernel/Intersections.h>
#include <KTRCL_Geometry/kernel/PointsAndLines.h>

#include <cmath>

#include "kernel/PlanePoint.h"
#include "kernel/TwoWayFrame.h"
#include "kernel/VectorArithmetic.h"

using ktrcl_internal::Distance;
using ktrcl_internal::Dot;
using ktrcl_internal::Flat;
using ktrcl_internal::PlanePoint;
using ktrcl_internal::SquaredDistance;

namespace {

// x extent, model units, up to which (inclusive) a line is upright and has no slope.
constexpr double kUprightGuard = 1e-08;

// Difference of slopes up to which (inclusive) lines are parallel.
constexpr double kSlopeGuard = 1e-08;

// `Intlin`: limit handed to `Inline_tol`.
constexpr double kCollinear = 1e-05;

// `Intlin`: distance from an end of B, model units, inclusive, that still belongs to it.
constexpr double kEndSlack = 0.0001;

constexpr int kNoCrossing = 0;
constexpr int kCrossingNearPoint2 = 1;
constexpr int kCrossingNearPoint1 = 2;
constexpr int kCollinearBeyond = 3;
constexpr int kCollinearOnSameSide = 4;

constexpr int kParallelLines = -1;

// A line through two points.
struct PlaneLine {
  PlanePoint p1;
  PlanePoint p2;
};

// y = slope x + intercept
struct SlopeForm {
  double slope;
  double intercept;
};

bool IsUpright(const PlaneLine& line) {
  return !(std::fabs(line.p2.x - line.p1.x) > kUprightGuard);
}

SlopeForm SlopeFormOf(const PlaneLine& line) {
  const double slope = (line.p2.y - line.p1.y) / (line.p2.x - line.p1.x);
  return {slope, line.p1.y - slope * line.p1.x};
}

PlanePoint PointAt(double x, const SlopeForm& line) { return {x, line.slope * x + line.intercept}; }

// Returns: false for equal slopes and for two upright lines.
bool CrossBySlopes(const PlaneLine& a, const PlaneLine& b, PlanePoint& crossing) {
  const bool isAUpright = IsUpright(a);
  const bool isBUpright = IsUpright(b);
  if (isAUpright && isBUpright) return false;
  if (isAUpright) {
    crossing = PointAt(a.p1.x, SlopeFormOf(b));
    return true;
  }
  const SlopeForm formA = SlopeFormOf(a);
  if (isBUpright) {
    crossing = PointAt(b.p1.x, formA);
    return true;
  }
  const SlopeForm formB = SlopeFormOf(b);
  if (std::fabs(formA.slope - formB.slope) <= kSlopeGuard) return false;
  crossing = PointAt((formB.intercept - formA.intercept) / (formA.slope - formB.slope), formA);
  return true;
}

// Whether the ways from an end of b to both points of a run along b, by the test of directions that
// is handed over.
template <typename DirectionTest>
bool AreInLine(const PlaneLine& a, const PlaneLine& b, const DirectionTest& runsAlong) {
  const double b1[3] = {b.p1.x, b.p1.y, 0.0};
  const double b2[3] = {b.p2.x, b.p2.y, 0.0};
  const double a1[3] = {a.p1.x, a.p1.y, 0.0};
  const double a2[3] = {a.p2.x, a.p2.y, 0.0};
  return runsAlong(b1, b2, b1, a1) == 1 && runsAlong(b1, b2, b1, a2) == 1;
}

bool LiesBetweenEnds(const PlanePoint& crossing, const PlaneLine& b) {
  return Dot(b.p1 - crossing, b.p2 - crossing) <= 0.0;
}

bool LiesAtAnEnd(const PlanePoint& crossing, const PlaneLine& b) {
  return Distance(crossing, b.p1) <= kEndSlack || Distance(crossing, b.p2) <= kEndSlack;
}

int CodeOfCrossing(const PlanePoint& crossing, const PlaneLine& a) {
  const bool nearerToPoint1 = SquaredDistance(crossing, a.p2) > SquaredDistance(crossing, a.p1);
  return nearerToPoint1 ? kCrossingNearPoint1 : kCrossingNearPoint2;
}

// Whether point 4 lies on point 1's side of the vertex.
int CodeOfCollinear(const PlanePoint& point1, const PlanePoint& point4, const PlanePoint& vertex) {
  return Dot(point1 - vertex, point4 - vertex) > 0.0 ? kCollinearOnSameSide : kCollinearBeyond;
}

bool LiesAhead(const double* crossing, const double* start, const double* direction) {
  double way[3];
  ktrcl_internal::Subtract(crossing, start, way);
  return Dot(way, direction) > 0.0;
}

}  // namespace

int Intlin(const int& unit, double x1, double y1, double x2, double y2, double x3, double y3,
           double x4, double y4) {
  const PlaneLine a = {{x1, y1}, {x2, y2}};
  const PlaneLine b = {{x3, y3}, {x4, y4}};
  const auto runsAlong = [&unit](const double* from1, const double* to1, const double* from2,
                                 const double* to2) {
    return Inline_tol(unit, from1, to1, from2, to2, kCollinear);
  };
  if (AreInLine(a, b, runsAlong)) return CodeOfCollinear(a.p1, b.p2, a.p2);

  PlanePoint crossing;
  if (!CrossBySlopes(a, b, crossing)) return kNoCrossing;
  if (!LiesBetweenEnds(crossing, b) && !LiesAtAnEnd(crossing, b)) return kNoCrossing;
  return CodeOfCrossing(crossing, a);
}

int Intlind(const int& unit, double x1, double y1, double x2, double y2, double x3, double y3,
            double x4, double y4) {
  const PlaneLine a = {{x1, y1}, {x2, y2}};
  const PlaneLine b = {{x3, y3}, {x4, y4}};
  PlanePoint crossing;
  if (CrossBySlopes(a, b, crossing)) {
    return LiesBetweenEnds(crossing, b) ? CodeOfCrossing(crossing, a) : kNoCrossing;
  }
  const auto runsAlong = [&unit](const double* from1, const double* to1, const double* from2,
                                 const double* to2) {
    return Inline(unit, from1, to1, from2, to2);
  };
  // Seen from point 3, where the twin looks from point 2.
  return AreInLine(a, b, runsAlong) ? CodeOfCollinear(a.p1, b.p2, b.p1) : kNoCrossing;
}

int Intspnt_dll(double x1, double x2, double x3, double x4, double y1, double y2, double y3,
                double y4, double* x, double* y) {
  PlanePoint crossing;
  if (!CrossBySlopes({{x1, y1}, {x2, y2}}, {{x3, y3}, {x4, y4}}, crossing)) return kParallelLines;
  *x = crossing.x;
  *y = crossing.y;
  return 0;
}

int Intspt(const int& unit, const double* a1, const double* a2, const double* b1, const double* b2,
           double* out) {
  if (Inline(unit, a1, a2, b1, b2) == 1) return 0;
  const double* const third = Inline(unit, a1, a2, a1, b1) == 1 ? b2 : b1;
  ktrcl_internal::TwoWayFrame plane;
  if (!ktrcl_internal::MakeFrame(a1, a2, third, plane)) return 0;

  double localA1[3];
  double localA2[3];
  double localB1[3];
  double localB2[3];
  Gloloc(a1, localA1, a1, plane.frame);
  Gloloc(a2, localA2, a1, plane.frame);
  Gloloc(b1, localB1, a1, plane.frame);
  Gloloc(b2, localB2, a1, plane.frame);
  PlanePoint crossing;
  if (!CrossBySlopes({Flat(localA1), Flat(localA2)}, {Flat(localB1), Flat(localB2)}, crossing)) {
    return 0;
  }
  const double local[3] = {crossing.x, crossing.y, 0.0};
  return Locglo(local, out, a1, plane.inverse);
}

int Obtain_intersect_point(const int& unit, double* out, const double* a1, const double* a2,
                           const double* b1, const double* b2) {
  return Intspt(unit, a1, a2, b1, b2, out);
}

int Intpmf(const int& unit, const double* a, double* da, const double* b, double* db) {
  ktrcl_internal::Standardize(da);
  ktrcl_internal::Standardize(db);
  double alongA[3];
  double alongB[3];
  ktrcl_internal::Add(a, da, alongA);
  ktrcl_internal::Add(b, db, alongB);
  double crossing[3];
  if (Intspt(unit, a, alongA, b, alongB, crossing) == 0) return 0;
  return LiesAhead(crossing, a, da) && LiesAhead(crossing, b, db) ? 1 : 0;
}
