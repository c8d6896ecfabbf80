// A bare vector in space for the predicates that hosts call most: the formulas of `GXVector` in the
// same order, so that they give the same bits, without its table of virtual operations and with
// everything inline. 2D points are promoted with Z = 0, which changes no sum and no product.
#pragma once

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <cmath>

namespace ktrcl_internal {

struct PlainVector {
  double x;
  double y;
  double z;

  /// Coordinate by coordinate, inclusive, like `GX3DPoint::IsAlmostEq`.
  bool IsAlmostEq(const PlainVector& other, const double& tol) const {
    return GXMath::AlmostEq(x, other.x, tol) && GXMath::AlmostEq(y, other.y, tol) &&
           GXMath::AlmostEq(z, other.z, tol);
  }
};

inline PlainVector Plain(const GX2DPoint& p) { return {p.X, p.Y, 0.0}; }
inline PlainVector Plain(const GX3DPoint& p) { return {p.X, p.Y, p.Z}; }

inline PlainVector operator+(const PlainVector& a, const PlainVector& b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}

inline PlainVector operator-(const PlainVector& a, const PlainVector& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline PlainVector operator*(const PlainVector& a, double factor) {
  return {a.x * factor, a.y * factor, a.z * factor};
}

inline PlainVector operator/(const PlainVector& a, double divisor) {
  return {a.x / divisor, a.y / divisor, a.z / divisor};
}

/// Scalar product, with the terms in the order Y, X, Z of `GXVector::dot`.
inline double Dot(const PlainVector& a, const PlainVector& b) {
  return a.y * b.y + a.x * b.x + a.z * b.z;
}

inline PlainVector Cross(const PlainVector& a, const PlainVector& b) {
  return {a.y * b.z - b.y * a.z, b.x * a.z - a.x * b.z, a.x * b.y - b.x * a.y};
}

inline double Length(const PlainVector& a) { return std::sqrt(a.x * a.x + a.y * a.y + a.z * a.z); }

/// Unit vector of `a`; one of length exactly 0 stays as it is.
inline PlainVector Standard(const PlainVector& a) {
  const double length = Length(a);
  return length == 0.0 ? a : a / length;
}

}  // namespace ktrcl_internal
