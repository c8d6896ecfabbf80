// Points and ways of the plane, for the planar routines of the kernel and for those that have moved
// into a local frame, where z has served its turn.
#pragma once

#include <cmath>

namespace ktrcl_internal {

/// A point of the plane, or the way from one to another.
struct PlanePoint {
  double x;
  double y;
};

inline PlanePoint operator-(const PlanePoint& a, const PlanePoint& b) {
  return {a.x - b.x, a.y - b.y};
}

inline PlanePoint operator+(const PlanePoint& a, const PlanePoint& b) {
  return {a.x + b.x, a.y + b.y};
}

inline PlanePoint operator*(double s, const PlanePoint& a) { return {s * a.x, s * a.y}; }

inline double Dot(const PlanePoint& a, const PlanePoint& b) { return a.x * b.x + a.y * b.y; }

/// The z of the vector product: above 0 where b lies to the left of a.
inline double Cross(const PlanePoint& a, const PlanePoint& b) { return a.x * b.y - a.y * b.x; }

inline double SquaredDistance(const PlanePoint& a, const PlanePoint& b) {
  const PlanePoint way = a - b;
  return Dot(way, way);
}

inline double Distance(const PlanePoint& a, const PlanePoint& b) {
  return std::sqrt(SquaredDistance(a, b));
}

/// The way from one point to another at length 1, without a guard: equal points give NaN.
inline PlanePoint UnitWay(const PlanePoint& from, const PlanePoint& to) {
  const PlanePoint way = to - from;
  const double length = std::sqrt(Dot(way, way));
  return {way.x / length, way.y / length};
}

/// Drops the z of a point in space.
inline PlanePoint Flat(const double* p) { return {p[0], p[1]}; }

}  // namespace ktrcl_internal
