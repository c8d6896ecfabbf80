// Directions of straight lines compared: parallel, straight on, at a right angle.

#include <KTRCL_Geometry/kernel/Frames.h>
#include <KTRCL_Geometry/kernel/PointsAndLines.h>
#include <KTRCL_Geometry/kernel/Vectors.h>

#include <cmath>

#include "kernel/SharedEnd.h"
#include "kernel/UnitFlag.h"
#include "kernel/VectorArithmetic.h"

using ktrcl_internal::Cosine;
using ktrcl_internal::Cross;
using ktrcl_internal::kShortLength;
using ktrcl_internal::Length;
using ktrcl_internal::Subtract;

namespace {

// Limits of the sum that `Inline` forms of the cross product of two unit directions.
constexpr double kInlineLimit = 0.0001;
constexpr double kInlineLimitInches = 3.937007874015748e-06;

// `Inline_new`: cosines, and angles in degrees.
constexpr double kBeyondAnyCosine = 1.00000001;
constexpr double kCosineNearOne = 0.0001;
constexpr double kSameDirectionDegrees = 0.0001;
constexpr double kOppositeDirectionDegrees = 179.5;

// `Almost_inline`: below this length (strict) a point says little about a direction.
constexpr double kNearby = 0.05;
constexpr double kNearbyInches = 0.0019685039370078744;
constexpr double kAlmostOppositeDegrees = 179.95;

// `Collne`: 177 degrees.
constexpr double kStraightOnRadians = 3.0892327760299634;

constexpr double kParallelSine = 0.01;
constexpr double kRightAngleCosine = 0.000001;

// Model units along the first line, in inches too.
constexpr double kSameFoot = 0.0001;

bool AreParallelWithin(const double* a1, const double* a2, const double* b1, const double* b2,
                       double limit) {
  double a[3];
  double b[3];
  Subtract(a2, a1, a);
  Subtract(b2, b1, b);
  const double lengthA = Length(a);
  const double lengthB = Length(b);
  if (lengthA <= kShortLength || lengthB <= kShortLength) return true;

  ktrcl_internal::Divide(a, lengthA, a);
  ktrcl_internal::Divide(b, lengthB, b);
  double normal[3];
  Cross(a, b, normal);
  return std::fabs(normal[0]) + std::fabs(normal[1]) + std::fabs(normal[2]) <= limit;
}

double AngleDegrees(double cosine) {
  return std::acos(ktrcl_internal::ClampCosine(cosine)) * 180.0 / ktrcl_internal::kPi;
}

}  // namespace

int Inline(const int& unit, const double* a1, const double* a2, const double* b1,
           const double* b2) {
  const double limit = ktrcl_internal::OneIsInches(unit) ? kInlineLimitInches : kInlineLimit;
  return AreParallelWithin(a1, a2, b1, b2, limit) ? 1 : 0;
}

int Inline_tol(const int& unit, const double* a1, const double* a2, const double* b1,
               const double* b2, double tol) {
  const double limit =
      ktrcl_internal::OneIsInches(unit) ? tol / ktrcl_internal::kMillimetresPerInch : tol;
  return AreParallelWithin(a1, a2, b1, b2, limit) ? 1 : 0;
}

int Inline_new(const int& /*unit*/, const double* a1, const double* a2, const double* b1,
               const double* b2) {
  double a[3];
  double b[3];
  Subtract(a2, a1, a);
  Subtract(b2, b1, b);
  if (Length(a) <= kShortLength || Length(b) <= kShortLength) return 1;

  const double cosine = Cosine(a, b);
  if (std::fabs(cosine) >= kBeyondAnyCosine) return 1;
  if (std::fabs(cosine - 1.0) <= kCosineNearOne) return 1;
  const double degrees = AngleDegrees(cosine);
  return degrees <= kSameDirectionDegrees || degrees > kOppositeDirectionDegrees ? 1 : 0;
}

int Pre_inline(const int& unit, const double* a1, const double* a2, const double* b1,
               const double* b2) {
  const double* shared = nullptr;
  const double* far = nullptr;
  if (Pntcmp(a1, b1) == 1 || Pntcmp(a1, b2) == 1) {
    shared = a1;
    far = a2;
  } else if (Pntcmp(a2, b1) == 1 || Pntcmp(a2, b2) == 1) {
    shared = a2;
    far = a1;
  } else {
    return 0;
  }
  // The way to the end of b that is shared is as a rule too short to have a direction.
  const bool straightOn =
      Inline(unit, shared, far, shared, b1) == 1 && Inline(unit, shared, far, shared, b2) == 1;
  return straightOn ? 0 : 1;
}

bool Almost_inline(const int& unit, const double* a, const double* b, const double* c) {
  if (Inline(unit, a, b, a, c) == 1) return true;

  double toB[3];
  double toC[3];
  Subtract(b, a, toB);
  Subtract(c, a, toC);
  const double nearby = ktrcl_internal::NonZeroIsInches(unit) ? kNearbyInches : kNearby;
  if (!(Length(toB) < nearby || Length(toC) < nearby)) return false;
  return AngleDegrees(Cosine(toB, toC)) > kAlmostOppositeDegrees;
}

int Collne(const double* a1, const double* a2, const double* b1, const double* b2) {
  double a[3];
  double b[3];
  if (!ktrcl_internal::WaysFromSharedEnd(a1, a2, b1, b2, a, b)) return 0;
  // A segment of no length gives a NaN, and with it the 0.
  return Cosine(a, b) <= std::cos(kStraightOnRadians) ? 1 : 0;
}

int Are_parallel_lines(const double* a1, const double* a2, const double* b1, const double* b2) {
  return Are_parallel_lines_tol(a1, a2, b1, b2, kParallelSine);
}

int Are_parallel_lines_tol(const double* a1, const double* a2, const double* b1, const double* b2,
                           double tol) {
  double a[3];
  double b[3];
  Subtract(a2, a1, a);
  Subtract(b2, b1, b);
  const double lengthA = Length(a);
  const double lengthB = Length(b);
  if (lengthA == 0.0 || lengthB == 0.0) return 1;

  double normal[3];
  Cross(a, b, normal);
  return Length(normal) / (lengthA * lengthB) <= tol ? 1 : 0;
}

int Are_parallel_lines_tol_distan(const double* a1, const double* a2, const double* b1,
                                  const double* b2, double tol) {
  if (Vector_len_a_b(a1, a2) == 0.0 || Vector_len_a_b(b1, b2) == 0.0) return 1;
  const double distance1 = Distance_line_point(a1, a2, b1);
  const double distance2 = Distance_line_point(a1, a2, b2);
  return std::fabs(distance1 - distance2) < tol ? 1 : 0;
}

bool Penpendiculer_vectors(const double* a, const double* b, const double* c, const double* d) {
  double first[3];
  double second[3];
  Subtract(a, b, first);
  Subtract(c, d, second);
  ktrcl_internal::Standardize(first);
  ktrcl_internal::Standardize(second);
  return std::fabs(ktrcl_internal::Dot(first, second)) <= kRightAngleCosine;
}

int Are_perpendicular_lines(const int& unit, const double* a1, const double* a2, const double* b1,
                            const double* b2) {
  const double* third = nullptr;
  if (Inline(unit, a1, a2, a1, b1) == 0) {
    third = b1;
  } else if (Inline(unit, a1, a2, a1, b2) == 0) {
    third = b2;
  } else {
    return 0;
  }
  double frame[3][3];
  if (Lambda(a1, a2, third, frame) == 0) return 0;

  double local1[3];
  double local2[3];
  Gloloc(b1, local1, a1, frame);
  Gloloc(b2, local2, a1, frame);
  return std::fabs(local1[0] - local2[0]) <= kSameFoot ? 1 : 0;
}
