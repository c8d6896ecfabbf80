// Arithmetic on arrays of three doubles for use inside the kernel; the exported vector routines are
// thin forms of it. All inputs are read before the output is written, so `out` may be an input.
// Sums run in the order x, y, z: results are compared with stored figures to the last bit.
#pragma once

#include <cmath>

#include "kernel/KernelTolerances.h"

namespace ktrcl_internal {

inline constexpr double kPi = 3.14159265358979323846;

inline void Fill(double x, double y, double z, double* out) {
  out[0] = x;
  out[1] = y;
  out[2] = z;
}

inline void Copy(const double* from, double* to) { Fill(from[0], from[1], from[2], to); }

/// out = a - b, the way from b to a.
inline void Subtract(const double* a, const double* b, double* out) {
  Fill(a[0] - b[0], a[1] - b[1], a[2] - b[2], out);
}

inline void Add(const double* a, const double* b, double* out) {
  Fill(a[0] + b[0], a[1] + b[1], a[2] + b[2], out);
}

inline void Multiply(double s, const double* a, double* out) {
  Fill(s * a[0], s * a[1], s * a[2], out);
}

inline void Divide(const double* a, double s, double* out) {
  Fill(a[0] / s, a[1] / s, a[2] / s, out);
}

inline double Dot(const double* a, const double* b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// out = a x b, right-handed.
inline void Cross(const double* a, const double* b, double* out) {
  Fill(a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0], out);
}

/// out = (a - from) x (b - from).
inline void CrossFrom(const double* from, const double* a, const double* b, double* out) {
  double toA[3];
  double toB[3];
  Subtract(a, from, toA);
  Subtract(b, from, toB);
  Cross(toA, toB, out);
}

inline double Length(const double* a) { return std::sqrt(Dot(a, a)); }

inline double Distance(const double* a, const double* b) {
  double way[3];
  Subtract(a, b, way);
  return Length(way);
}

/// Brings a vector to length 1 in place, unless it has no direction: then it stays as it is.
inline void Standardize(double* a) {
  const double length = Length(a);
  if (length > kShortLength) Divide(a, length, a);
}

/// Cosine of the angle between two vectors, as rounding leaves it: it may lie a little beyond
/// -1..1. NaN where one of them has no length.
inline double Cosine(const double* a, const double* b) {
  return Dot(a, b) / (Length(a) * Length(b));
}

/// Brings a cosine into the range of the arc cosine; a NaN stays one.
inline double ClampCosine(double cosine) {
  if (cosine > 1.0) return 1.0;
  if (cosine < -1.0) return -1.0;
  return cosine;
}

}  // namespace ktrcl_internal
