// Rotation in space by the formula of Rodrigues, in long double, and what the rotation with the
// fixed aid point may differ from it.
//
//     EXPECT_POINT_NEAR(turned, support::Turned(axis, radians, p), support::TurnBound(axis, p));
#pragma once

#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <array>
#include <cfloat>
#include <cmath>

namespace support {

using Triple = std::array<long double, 3>;

inline Triple Offset(const GX3DPoint& from, const GX3DPoint& to) {
  return {static_cast<long double>(to.X) - from.X, static_cast<long double>(to.Y) - from.Y,
          static_cast<long double>(to.Z) - from.Z};
}
inline long double Dot(const Triple& a, const Triple& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
inline Triple Cross(const Triple& a, const Triple& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
inline long double Length(const Triple& a) { return std::sqrt(Dot(a, a)); }

/// `p` turned about the axis by `radians`, right-handed about its direction:
/// q cos + (k x q) sin + k (k . q)(1 - cos), k the unit direction and q the offset from the axis.
inline GX3DPoint Turned(const GX3DLine& axis, double radians, const GX3DPoint& p) {
  Triple k = Offset(axis.Start, axis.End);
  const long double length = Length(k);
  for (long double& component : k) {
    component /= length;
  }
  const Triple q = Offset(axis.Start, p);
  const Triple across = Cross(k, q);
  const long double along = Dot(k, q);
  const long double c = std::cos(static_cast<long double>(radians));
  const long double s = std::sin(static_cast<long double>(radians));
  Triple turned{};
  for (std::size_t i = 0; i < 3; ++i) {
    turned[i] = q[i] * c + across[i] * s + k[i] * along * (1 - c);
  }
  return {static_cast<double>(axis.Start.X + turned[0]),
          static_cast<double>(axis.Start.Y + turned[1]),
          static_cast<double>(axis.Start.Z + turned[2])};
}

/// Largest difference from `Turned` that rounding explains.
///
/// The rotation works in a frame whose plane is spanned by the axis and the fixed point
/// (1234.1234, 5678.5678, 9012.9012). With f the angle between the two, the cross product of both
/// is off by a few roundings of the product of their lengths but only sin f times as long, so the
/// directions of the frame are wrong by a few roundings / sin f. There and back, with the inverse,
/// that happens to the offset of the point from the axis about a dozen times; 64 leaves room for
/// the constants. The rest is the subtraction and addition of the origin of the frame.
inline double TurnBound(const GX3DLine& axis, const GX3DPoint& p) {
  const GX3DPoint aid(1234.1234, 5678.5678, 9012.9012);
  const Triple direction = Offset(axis.Start, axis.End);
  const Triple toAid = Offset(axis.Start, aid);
  const long double sine = Length(Cross(direction, toAid)) / (Length(direction) * Length(toAid));
  const long double offset = Length(Offset(axis.Start, p));
  const long double origin = Length(Offset(GX3DPoint(), axis.Start));
  return static_cast<double>(DBL_EPSILON * (64.0L * offset / sine + 4.0L * (origin + offset)));
}

}  // namespace support
