// Points beside and on straight lines, and segments that overlap.

#include <KTRCL_Geometry/kernel/Intersections.h>
#include <KTRCL_Geometry/kernel/PointsAndLines.h>
#include <KTRCL_Geometry/kernel/Vectors.h>

#include <cmath>

#include "kernel/VectorArithmetic.h"

using ktrcl_internal::Cross;
using ktrcl_internal::Dot;
using ktrcl_internal::Subtract;

namespace {

// `Chkpnt`: cosine of the angle to the direction.
constexpr double kCosineNearOne = 0.0001;

// Shares of the segment, both strict.
constexpr double kLeastParameter = -0.000001;
constexpr double kLargestParameter = 1.000001;

// Component of a line's direction, model units, that is enough to divide by.
constexpr double kUsableComponent = 0.0001;

// Any length would do: only the direction of the horizontal counts.
constexpr double kHorizontalLength = 10.0;

// Scalar product of the normals that the line a b spans with either point.
double SideProduct(const double* a, const double* b, const double* p1, const double* p2) {
  double line[3];
  double toP1[3];
  double toP2[3];
  Subtract(b, a, line);
  Subtract(p1, a, toP1);
  Subtract(p2, a, toP2);
  double normal1[3];
  double normal2[3];
  Cross(line, toP1, normal1);
  Cross(line, toP2, normal2);
  return Dot(normal1, normal2);
}

// Whether the foot of p lies strictly between a and b.
bool IsBetween(const double* a, const double* b, const double* p) {
  double line[3];
  double fromA[3];
  Subtract(b, a, line);
  Subtract(p, a, fromA);
  double back[3];
  double fromB[3];
  Subtract(a, b, back);
  Subtract(p, b, fromB);
  return Dot(line, fromA) > 0.0 && Dot(back, fromB) > 0.0;
}

bool IsAnEnd(const double* a, const double* b, const double* p) {
  return Pntcmp(p, a) == 1 || Pntcmp(p, b) == 1;
}

}  // namespace

int Chkpnt(const double* x, const double* y, const double* dir, const double* p) {
  const double wayX = *x - p[0];
  const double wayY = *y - p[1];
  const double wayLength = std::sqrt(wayX * wayX + wayY * wayY);
  const double dirLength = std::sqrt(dir[0] * dir[0] + dir[1] * dir[1]);
  if (wayLength == 0.0 || dirLength == 0.0) return 1;
  const double cosine = (wayX * dir[0] + wayY * dir[1]) / (wayLength * dirLength);
  return std::fabs(cosine - 1.0) <= kCosineNearOne ? 0 : 1;
}

double Cp1ptp2(const double* a, const double* b, const double* p1, const double* p2) {
  return SideProduct(a, b, p2, p1);
}

int P1intp2(const double* a, const double* b, const double* p1, const double* p2) {
  return SideProduct(a, b, p1, p2) <= 0.0 ? 1 : 0;
}

bool Inside_line_point(const int& unit, const double* a, const double* b, const double* p,
                       double* t) {
  if (Inline(unit, a, b, a, p) == 0) return false;
  const double parameter = Point_parametrc_value_on_line(p, a, b);
  if (!(parameter > kLeastParameter && parameter < kLargestParameter)) return false;
  if (t != nullptr) *t = parameter;
  return true;
}

int Insidp(const int& unit, const double* a, const double* b, const double* p) {
  if (Inline(unit, a, b, a, p) == 0) return 0;
  if (IsAnEnd(a, b, p)) return 2;
  return IsBetween(a, b, p) ? 1 : 0;
}

int Insidp_crossing_X_tol(const int& unit, const double* a, const double* b, const double* p,
                          double tol) {
  if (IsAnEnd(a, b, p)) return 2;
  if (Inline(unit, a, b, a, p) == 1) return Insidp(unit, a, b, p);

  const double onHorizontal[3] = {p[0] + kHorizontalLength, p[1], p[2]};
  double crossing[3];
  if (Intspt(unit, p, onHorizontal, a, b, crossing) == 0) return 0;
  return Vector_len_a_b(crossing, p) < tol ? Insidp(unit, a, b, crossing) : 0;
}

double Point_parametrc_value_on_line(const double* p, const double* a, const double* b) {
  if (Vector_len_a_b(a, b) <= ktrcl_internal::kShortLength) return 0.0;
  double line[3];
  double toP[3];
  Subtract(b, a, line);
  Subtract(p, a, toP);
  if (std::fabs(line[0]) > kUsableComponent) return toP[0] / line[0];
  if (std::fabs(line[1]) > kUsableComponent) return toP[1] / line[1];
  return toP[2] / line[2];
}

int Overlapped_lines(const int& unit, const double* a1, const double* a2, const double* b1,
                     const double* b2) {
  const bool overlap = Insidp(unit, a1, a2, b1) == 1 || Insidp(unit, a1, a2, b2) == 1 ||
                       Insidp(unit, b1, b2, a1) == 1 || Insidp(unit, b1, b2, a2) == 1;
  return overlap ? 1 : 0;
}

int Overlapped_completely_lines(const int& unit, const double* a1, const double* a2,
                                const double* b1, const double* b2) {
  const int place1 = Insidp(unit, a1, a2, b1);
  const int place2 = Insidp(unit, a1, a2, b2);
  const bool inside =
      (place1 == 1 && place2 == 1) || (place1 == 2 && place2 == 1) || (place1 == 1 && place2 == 2);
  return inside ? 1 : 0;
}

bool Overlapped_exactly_lines(const double* a1, const double* a2, const double* b1,
                              const double* b2) {
  return (Pntcmp(a1, b1) == 1 && Pntcmp(a2, b2) == 1) ||
         (Pntcmp(a1, b2) == 1 && Pntcmp(a2, b1) == 1);
}
