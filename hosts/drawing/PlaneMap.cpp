#include "drawing/PlaneMap.h"

#include <algorithm>
#include <cmath>

namespace drawing {
namespace {

constexpr double kPi = 3.14159265358979323846;

// Share of the largest figure by which a map may miss an even scale.
constexpr double kUneven = 1.0e-9;

double Dot(const PlaneVector& a, const PlaneVector& b) { return a.x * b.x + a.y * b.y; }

}  // namespace

PlaneVector DirectionOf(double degrees) {
  const double turned = std::fmod(degrees, 360.0);
  const double quarters = std::floor(turned / 90.0);
  const double rest = turned - quarters * 90.0;
  const double c = rest == 0.0 ? 1.0 : std::cos(rest * (kPi / 180.0));
  const double s = rest == 0.0 ? 0.0 : std::sin(rest * (kPi / 180.0));
  switch (static_cast<int>(quarters) & 3) {
    case 0:
      return {c, s};
    case 1:
      return {-s, c};
    case 2:
      return {-c, -s};
    default:
      return {s, -c};
  }
}

PlaneVector PlaneMap::Place(const PlaneVector& p) const {
  return {xx * p.x + xy * p.y + x0, yx * p.x + yy * p.y + y0};
}

PlaneVector PlaneMap::Direction(const PlaneVector& d) const {
  return {xx * d.x + xy * d.y, yx * d.x + yy * d.y};
}

bool PlaneMap::IsSimilarity() const {
  const double room =
      kUneven * std::max({std::fabs(xx), std::fabs(xy), std::fabs(yx), std::fabs(yy)});
  const bool turns = std::fabs(xx - yy) <= room && std::fabs(xy + yx) <= room;
  const bool turnsMirrored = std::fabs(xx + yy) <= room && std::fabs(xy - yx) <= room;
  return turns || turnsMirrored;
}

bool PlaneMap::Mirrors() const { return xx * yy - xy * yx < 0.0; }

// The larger singular value: the sum of the stretches of the part that turns and the part that
// mirrors.
double PlaneMap::LargestStretch() const {
  return 0.5 * (std::hypot(xx + yy, yx - xy) + std::hypot(xx - yy, yx + xy));
}

PlaneMap SeenFromBelow() {
  PlaneMap map;
  map.xx = -1.0;
  return map;
}

PlaneMap Composed(const PlaneMap& outer, const PlaneMap& inner) {
  const PlaneVector x = outer.Direction({inner.xx, inner.yx});
  const PlaneVector y = outer.Direction({inner.xy, inner.yy});
  const PlaneVector origin = outer.Place({inner.x0, inner.y0});
  return {x.x, y.x, x.y, y.y, origin.x, origin.y};
}

EllipseAxes AxesOf(const PlaneVector& u, const PlaneVector& v) {
  const double mixed = Dot(u, v);
  if (mixed == 0.0) return {u, v, 0.0};
  const double shift = 0.5 * std::atan2(2.0 * mixed, Dot(u, u) - Dot(v, v));
  const double c = std::cos(shift);
  const double s = std::sin(shift);
  return {{c * u.x + s * v.x, c * u.y + s * v.y}, {c * v.x - s * u.x, c * v.y - s * u.y}, shift};
}

}  // namespace drawing
