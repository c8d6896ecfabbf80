// Arcs as lines. The only source of the kernel that knows the element classes: it fills a list.

#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/kernel/Arcs.h>
#include <KTRCL_Geometry/kernel/PointsAndLines.h>

#include <cmath>
#include <limits>
#include <memory>

#include "elements/ElementSequences.h"
#include "kernel/VectorArithmetic.h"

using ktrcl_internal::Copy;
using ktrcl_internal::Distance;
using ktrcl_internal::kPi;

namespace {

// Model units, strict: below it neither a radius, a sag nor their difference makes a facet.
constexpr double kLeastSize = 0.0001;

// Radians, strict. A step below it, every negative one among them, asks for a single line.
constexpr double kLeastStep = 0.0001;

constexpr double kRadiansPerDegree = 0.017453292519943295;

// No step that makes sense asks for more; it bounds the memory of one call.
constexpr int kMostFacets = 1000000;

void AppendLine(const double* from, const double* to, GX3DElmList& list) {
  ktrcl_internal::PushOwned(list, std::make_unique<GX3DLine>(GX3DPoint(from[0], from[1], from[2]),
                                                             GX3DPoint(to[0], to[1], to[2])));
}

void AppendSingleLine(const double* start, const double* end, GX3DElmList& list) {
  if (Distance(start, end) <= ktrcl_internal::kShortLength) return;
  AppendLine(start, end, list);
}

// Whether the arc is cut into facets at all. A span or step that is no number is never cut.
bool IsCut(double span, double step) {
  return std::fabs(span) >= std::fabs(step) && step >= kLeastStep;
}

// The rounded number of steps in the span, not the one that keeps every facet within the step.
int CountOfFacets(double span, double step) {
  const double count = std::fabs(span) / std::fabs(step) + 0.5;
  return count < kMostFacets ? static_cast<int>(count) : kMostFacets;
}

}  // namespace

double Min_angle_radian_facet_3D_arc(double radius, double sag) {
  const bool haveSize = std::fabs(radius) > kLeastSize && std::fabs(sag) > kLeastSize;
  if (!haveSize || !(radius - sag > kLeastSize)) return 0.0;
  return 2.0 * std::acos((radius - sag) / radius);
}

double Min_angle_radian_facet_3D_arc(const double* centre, const double* start, double sag) {
  return Min_angle_radian_facet_3D_arc(Distance(centre, start), sag);
}

int Facet_3D_arc(const int& unit, const double* centre, const double* start, const double* middle,
                 const double* end, double step, GX3DElmList& out, bool degrees) {
  const double radians = degrees ? step * kRadiansPerDegree : step;
  const double span = Arc_angle(unit, centre, start, middle, end);
  if (Inline(unit, centre, start, centre, middle) != 0 || !IsCut(span, radians)) {
    AppendSingleLine(start, end, out);
    return 1;
  }

  const int count = CountOfFacets(span, radians);
  double from[3];
  Copy(start, from);
  for (int i = 1; i < count; ++i) {
    double to[3];
    Copy(from, to);  // for an arc whose points cannot be computed
    const double t = static_cast<double>(i) / static_cast<double>(count);
    Obtain_a_point_in_parametric_curve(unit, to, t, 1, centre, start, middle, end);
    AppendLine(from, to, out);
    Copy(to, from);
  }
  AppendLine(from, end, out);
  return 1;
}

int Cal_segment_n(double radius, double sag) {
  const double count = kPi / std::acos((radius - sag) / radius) + 1.0;
  const bool isCount = count >= 0.0 && count <= std::numeric_limits<int>::max();
  return isCount ? static_cast<int>(count) : 0;
}
