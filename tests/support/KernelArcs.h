// Arcs as the kernel takes them, made from angles in long double.
//
//     const support::KernelCircle circle = support::FlatCircle(0, 0, 10);
//     const support::KernelArc arc = circle.Arc(0, support::kPi / 2);   // a quarter, to the left
//     EXPECT_NEAR(Arc_angle(0, arc.centre, arc.start, arc.middle, arc.end), kPi / 2, 1e-14);
#pragma once

#include "support/Build.h"
#include "support/KernelArrays.h"
#include "support/Random.h"

#include <cmath>

namespace support {

constexpr double kDegree = kPi / 180.0;

/// The point that all turns about an axis in space are made with; an axis through it fails.
constexpr Vec kFixedPoint(1234.1234, 5678.5678, 9012.9012);

struct KernelArc {
  Vec centre;
  Vec start;
  Vec middle;
  Vec end;
};

/// A circle in the plane of the unit vectors `u` and `v`, which stand square on each other.
struct KernelCircle {
  Vec centre;
  Vec u;
  Vec v;
  double radius;

  /// The point at an angle in radians from `u` towards `v`, and that many radii from the centre.
  Vec At(double angle, double radii = 1) const {
    const long double c = std::cos(static_cast<long double>(angle)) * radius * radii;
    const long double s = std::sin(static_cast<long double>(angle)) * radius * radii;
    const auto sum = [&](int i) { return static_cast<double>(centre[i] + c * u[i] + s * v[i]); };
    return {sum(0), sum(1), sum(2)};
  }

  /// Arc from an angle through a span in radians, less than a full turn, from u towards v if it is
  /// positive; the middle halfway.
  KernelArc Arc(double from, double span) const {
    return {centre, At(from), At(from + span / 2), At(from + span)};
  }

  /// Full circle that starts at `from`; middle and end are the point at `middle`.
  KernelArc Full(double from, double middle) const {
    return {centre, At(from), At(middle), At(middle)};
  }
};

/// Circle in the plane z = 0.
inline KernelCircle FlatCircle(double x, double y, double radius) {
  return {Vec(x, y, 0), Vec(1, 0, 0), Vec(0, 1, 0), radius};
}

/// Circle whose axis runs along x through the point 1000 before the fixed point and `off` beside
/// it: from there the fixed point is seen at an angle of off / 1000 to the axis.
inline KernelCircle CircleBeforeTheFixedPoint(double off) {
  return {kFixedPoint + Vec(-1000, off, 0), Vec(0, 1, 0), Vec(0, 0, 1), 5};
}

/// Circle of any radius from 1 to 50, in any plane, with its centre within 50 of the origin in each
/// coordinate.
inline KernelCircle RandomCircle(Random& random) {
  const auto any = [&](double extent) {
    const GX3DPoint p = random.Point3D(extent);
    return Vec(p.X, p.Y, p.Z);
  };
  const Vec centre = any(50);
  Vec u = any(1);
  while (Length(u) < 0.1) u = any(1);
  u = (1 / Length(u)) * u;
  Vec v = Cross(u, any(1));
  while (Length(v) < 0.1) v = Cross(u, any(1));
  v = (1 / Length(v)) * v;
  return {centre, u, v, random.Between(1, 50)};
}

/// A span in radians of either sense whose magnitude keeps `apart` from 0, half and a full turn.
inline double RandomSpan(Random& random, double apart) {
  const double within = random.Between(apart, kPi - apart);
  const double span = random.Bool() ? within : within + kPi;
  return random.Bool() ? span : -span;
}

}  // namespace support
