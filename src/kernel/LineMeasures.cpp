// Distances and angles between points and straight lines.

#include <KTRCL_Geometry/kernel/Frames.h>
#include <KTRCL_Geometry/kernel/Intersections.h>
#include <KTRCL_Geometry/kernel/PointsAndLines.h>
#include <KTRCL_Geometry/kernel/Vectors.h>

#include <cmath>
#include <limits>

#include "kernel/SharedEnd.h"
#include "kernel/VectorArithmetic.h"

using ktrcl_internal::Distance;
using ktrcl_internal::Dot;
using ktrcl_internal::kShortLength;
using ktrcl_internal::Length;
using ktrcl_internal::Subtract;

namespace {

constexpr double kNoAngle = -1.0;

// `Dislpt`: squared distance, inclusive, up to which a point counts as standing on the line.
constexpr double kSquareOnLine = 0.000001;

// `Angle_between_2_lines`: cosines above it, in magnitude, are a 1 that rounding has spoilt.
constexpr double kCosineOfStraight = 0.999999;

// `Angle_between_2_lines`: model units, inclusive, for each coordinate by itself. An end that is no
// farther from the crossing gives no direction.
constexpr double kOnCrossing = 0.000001;

// `Get_length_on_direction`: inclusive, how far the cosine may be from 1 in magnitude.
constexpr double kParallelCosine = 0.000001;

bool AreExactlyEqual(const double* a, const double* b) {
  return a[0] == b[0] && a[1] == b[1] && a[2] == b[2];
}

double DistanceFromLine(const double* a, const double* b, const double* p) {
  double line[3];
  double toP[3];
  Subtract(b, a, line);
  Subtract(p, a, toP);
  double normal[3];
  ktrcl_internal::Cross(line, toP, normal);
  return Length(normal) / Length(line);
}

// Way from a crossing along a line, to its first point unless that one is the crossing.
void WayFromCrossing(const double* crossing, const double* p1, const double* p2, double* way) {
  Subtract(Pntcmp_tol(p1, crossing, kOnCrossing) == 1 ? p2 : p1, crossing, way);
}

double AngleBetweenWays(const double* a, const double* b) {
  double cosine = ktrcl_internal::Cosine(a, b);
  if (cosine > kCosineOfStraight) cosine = 1.0;
  if (cosine < -kCosineOfStraight) cosine = -1.0;
  return std::acos(cosine);
}

}  // namespace

double Distance_line_point(const double* a, const double* b, const double* p) {
  return AreExactlyEqual(a, b) ? 0.0 : DistanceFromLine(a, b, p);
}

int Dislar(const double* a, const double* b, const double* p, double* d) {
  if (AreExactlyEqual(a, b)) return 0;
  *d = DistanceFromLine(a, b, p);
  return 1;
}

int Dislpt(const double* a, const double* b, const double* p, double* d) {
  double line[3];
  double toP[3];
  Subtract(b, a, line);
  Subtract(p, a, toP);
  const double squaredLength = Dot(line, line);
  // Callers read the squared length where the distance fails.
  *d = squaredLength;
  if (squaredLength == 0.0) return 0;

  const double along = Dot(toP, line);
  const double squaredDistance = Dot(toP, toP) - along * along / squaredLength;
  if (squaredDistance < -kSquareOnLine) return 0;
  *d = squaredDistance <= kSquareOnLine ? 0.0 : std::sqrt(squaredDistance);
  return 1;
}

int Dislln(const double* a1, const double* a2, const double* b1, const double* b2, double* d) {
  double a[3];
  double b[3];
  Subtract(a2, a1, a);
  Subtract(b2, b1, b);
  double normal[3];
  ktrcl_internal::Cross(a, b, normal);
  const double length = Length(normal);
  if (length == 0.0) return 0;

  ktrcl_internal::Divide(normal, length, normal);
  double between[3];
  Subtract(a1, b1, between);
  *d = std::fabs(Dot(between, normal));
  return 1;
}

int Disaar(const double* a, const double* b, double* d) {
  *d = Distance(a, b);
  return 1;
}

int Distance_XY(int x1, int y1, int x2, int y2) {
  const double dx = static_cast<double>(x2) - static_cast<double>(x1);
  const double dy = static_cast<double>(y2) - static_cast<double>(y1);
  const double distance = std::sqrt(dx * dx + dy * dy);
  constexpr int kLargest = std::numeric_limits<int>::max();
  return distance >= static_cast<double>(kLargest) ? kLargest : static_cast<int>(distance);
}

double Angle_between_2_lines(const int& unit, const double* a1, const double* a2, const double* b1,
                             const double* b2, const bool& useCrossing) {
  if (!PointInPlane(unit, a1, a2, b1, b2)) return kNoAngle;
  if (!(Distance(a1, a2) > kShortLength && Distance(b1, b2) > kShortLength)) return kNoAngle;

  double a[3];
  double b[3];
  if (ktrcl_internal::WaysFromSharedEnd(a1, a2, b1, b2, a, b)) return AngleBetweenWays(a, b);
  if (!useCrossing) return kNoAngle;

  double crossing[3];
  if (Intspt(unit, a1, a2, b1, b2, crossing) == 0) return kNoAngle;
  WayFromCrossing(crossing, a1, a2, a);
  WayFromCrossing(crossing, b1, b2, b);
  return AngleBetweenWays(a, b);
}

double Get_length_on_direction(const int& /*unit*/, const double* a, const double* b,
                               const double* dir) {
  double way[3];
  Subtract(b, a, way);
  const double distance = Length(way);
  if (distance <= kShortLength) return 0.0;
  const double along = Dot(way, dir);
  const double cosine = along / distance;
  if (std::fabs(std::fabs(cosine) - 1.0) <= kParallelCosine) return distance;
  return std::fabs(along);
}
