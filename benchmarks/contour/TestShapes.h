// Further shapes that are timed: contours of lines and arcs, plates that lie aslant, and rows of
// points along curves. As the contours, each is made from its number of elements alone.
#pragma once

#include "TestContours.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace contour_benchmarks {

/// A line or an arc.
struct Piece {
  Corner start;
  Corner end;
  Corner center;  ///< Of an arc.
  bool isArc;
  bool isClockwise;
};

/// A closed contour of lines and arcs, in order.
using Pieces = std::vector<Piece>;

inline Corner Along(const Corner& from, const Corner& direction, double distance) {
  return {from.x + direction.x * distance, from.y + direction.y * distance};
}

/// Direction of length 1.
inline Corner Towards(const Corner& from, const Corner& to) {
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  return {(to.x - from.x) / length, (to.y - from.y) / length};
}

inline const Corner& Before(const Corners& corners, std::size_t i) {
  return corners[i == 0 ? corners.size() - 1 : i - 1];
}

inline const Corner& Behind(const Corners& corners, std::size_t i) {
  return corners[i + 1 == corners.size() ? 0 : i + 1];
}

/// Half of the angle between two directions.
inline double HalfAngle(const Corner& a, const Corner& b) {
  return 0.5 * std::acos(a.x * b.x + a.y * b.y);
}

/// Center of the circle of a fillet between two directions out of a corner.
inline Corner FilletCenter(const Corner& corner, const Corner& a, const Corner& b, double radius) {
  const Corner between = Towards({0.0, 0.0}, {a.x + b.x, a.y + b.y});
  return Along(corner, between, radius / std::sin(HalfAngle(a, b)));
}

/// The fillet at a corner takes away a quarter of its shorter side.
inline Piece Fillet(const Corner& before, const Corner& corner, const Corner& behind) {
  const auto length = [&](const Corner& to) {
    return std::hypot(to.x - corner.x, to.y - corner.y);
  };
  const double cut = 0.25 * std::min(length(before), length(behind));
  const Corner back = Towards(corner, before);
  const Corner on = Towards(corner, behind);
  const double radius = cut * std::tan(HalfAngle(back, on));
  const bool turnsRight = back.x * on.y - back.y * on.x > 0.0;
  return {Along(corner, back, cut), Along(corner, on, cut), FilletCenter(corner, back, on, radius),
          true, turnsRight};
}

/// A ring of teeth at `radius`, whose corners the fillets replace.
inline Corners SharpCorners(std::int64_t n, double radius) {
  Corners corners = ToothedRing(n / 2, true, 12);
  for (Corner& c : corners) c = {c.x * radius / kRadius, c.y * radius / kRadius};
  return corners;
}

/// Every other element is a line, with the fillet of the corner at its end behind it. `n` is even.
inline Pieces Rounded(std::int64_t n, double radius) {
  const Corners corners = SharpCorners(n, radius);
  const auto fillet = [&](std::size_t i) {
    return Fillet(Before(corners, i), corners[i], Behind(corners, i));
  };
  Pieces pieces;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Piece next = fillet(i + 1 == corners.size() ? 0 : i + 1);
    pieces.push_back({fillet(i).end, next.start, {}, false, false});
    pieces.push_back(next);
  }
  return pieces;
}

inline Pieces LinesBetween(const Corners& corners) {
  Pieces pieces;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    pieces.push_back({corners[i], Behind(corners, i), {}, false, false});
  }
  return pieces;
}

inline Pieces ArcsBetween(const Corners& corners) {
  Pieces pieces;
  for (const Bulge& b : Bulges(corners)) pieces.push_back({b.start, b.end, b.center, true, false});
  return pieces;
}

inline Pieces OutlineOfLines(std::int64_t n) { return LinesBetween(Outline(n)); }
inline Pieces OutlineOfArcs(std::int64_t n) { return ArcsBetween(Outline(n)); }
inline Pieces TeethOfLines(std::int64_t n) { return LinesBetween(Teeth(n)); }
inline Pieces RoundedTeeth(std::int64_t n) { return Rounded(n, kRadius); }

/// A thousand times as large: vertices around the small arcs of a contour of the usual size come
/// nearer to one another than 0.0001, where they are taken for one.
inline Pieces LargeArcs(std::int64_t n) { return ArcsBetween(LargeOutline(n)); }
inline Pieces LargeRoundedTeeth(std::int64_t n) { return Rounded(n, kLargeRadius); }

// Plates

inline constexpr double kPlateWidth = 200.0;
inline constexpr double kPlateHeight = 120.0;
/// A turn by this much, or by a quarter turn less, puts the plate upright.
inline constexpr double kPlateSlant = 27.0;

/// `corner` turned counter-clockwise about the origin.
inline Corner Turned(const Corner& corner, double degrees) {
  const double angle = degrees * kTurn / 360.0;
  return {corner.x * std::cos(angle) - corner.y * std::sin(angle),
          corner.x * std::sin(angle) + corner.y * std::cos(angle)};
}

/// A rectangle that lies aslant. Between its corners the sides are rough, by up to a fifth of an
/// element inwards, so that its smallest box is the rectangle.
inline Corners Plate(std::int64_t n) {
  Noise noise(13);
  const Corners frame = {
      {0.0, 0.0}, {kPlateWidth, 0.0}, {kPlateWidth, kPlateHeight}, {0.0, kPlateHeight}};
  Corners corners;
  for (std::size_t side = 0; side < frame.size(); ++side) {
    const Corner& a = frame[side];
    const Corner& b = Behind(frame, side);
    const Corner on = Towards(a, b);
    const std::int64_t count = (n + static_cast<std::int64_t>(side)) / 4;
    const double step = std::hypot(b.x - a.x, b.y - a.y) / static_cast<double>(count);
    corners.push_back(a);
    for (std::int64_t k = 1; k < count; ++k) {
      const double depth = 0.1 * step * (1.0 + noise.Next());
      corners.push_back(Along(Along(a, on, step * static_cast<double>(k)), {-on.y, on.x}, depth));
    }
  }
  for (Corner& c : corners) c = Turned(c, -kPlateSlant);
  return corners;
}

/// The plate as it runs clockwise, for arcs that bend inwards.
inline Corners PlateBackwards(std::int64_t n) {
  const Corners corners = Plate(n);
  return {corners.rbegin(), corners.rend()};
}

// Rows of points along curves, which are not closed

/// Nine tenths of an ellipse.
inline Corners OnEllipse(std::int64_t n) {
  const double step = 0.9 * kTurn / static_cast<double>(n - 1);
  Corners points;
  for (std::int64_t k = 0; k < n; ++k) {
    const double angle = step * static_cast<double>(k);
    points.push_back({kRadius * std::cos(angle), 0.6 * kRadius * std::sin(angle)});
  }
  return points;
}

/// Four waves and a little more. Points that lie evenly about a change of bend are straight, which
/// ends an approximation: they begin beside one, so that there are none.
inline Corners OnWaves(std::int64_t n) {
  const double step = 4.1 * kTurn / static_cast<double>(n - 1);
  Corners points;
  for (std::int64_t k = 0; k < n; ++k) {
    const double angle = 0.37 + step * static_cast<double>(k);
    points.push_back({10.0 * angle, 8.0 * std::sin(angle)});
  }
  return points;
}

/// Three quarters of a circle about the origin.
inline Corners OnCircle(std::int64_t n) {
  const double step = 0.75 * kTurn / static_cast<double>(n - 1);
  Corners points;
  for (std::int64_t k = 0; k < n; ++k) {
    points.push_back(At({0.0, 0.0}, kRadius, 0.1 + step * static_cast<double>(k)));
  }
  return points;
}

/// How far contours are offset: a twentieth of the width of a tooth.
inline double OffsetOf(std::int64_t n) { return 0.05 * kRadius * kTurn / static_cast<double>(n); }

// What rings are asked for

inline constexpr double kQueryX = 0.3 * kRadius;
inline constexpr double kQueryY = 0.3 * kRadius;
inline constexpr Corner kQueryLineStart = {0.0, 30.0};
inline constexpr Corner kQueryLineEnd = {100.0, 45.0};

// Ellipses and bends

inline constexpr Corner kEllipseCenter = {12.0, -7.0};
inline constexpr Corner kEllipseAxisEnd = {92.0, 53.0};
inline constexpr double kEllipseRatio = 0.6;
inline constexpr double kEllipseStep = kTurn / 600.0;

/// End of the parameters from 0 on that give `n` points, the last two half a step apart.
inline double EllipseEnd(std::int64_t n) { return kEllipseStep * (static_cast<double>(n) - 1.5); }

/// Radius of the fillets that are constructed at the corners of the teeth.
inline double FilletRadius(std::int64_t n) { return OffsetOf(n); }

/// A bend by less than a right angle.
inline constexpr double kBendDegrees = 120.0;
inline constexpr double kBendRadius = 1.5;
inline constexpr double kBendThickness = 0.8;
inline constexpr double kBendLeg = 25.0;

}  // namespace contour_benchmarks
