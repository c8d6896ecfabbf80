// The contours that are timed. Each is made from its number of elements alone, so that all
// libraries are given the same corners on every run and every machine.
//
// All run counter-clockwise about a place near the origin; unless they are said to be large, at a
// radius of about 100 length units.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace contour_benchmarks {

struct Corner {
  double x;
  double y;
};

/// Closed: the last corner is joined to the first one.
using Corners = std::vector<Corner>;

inline constexpr double kTurn = 6.283185307179586;
inline constexpr double kRadius = 100.0;
inline constexpr double kLargeRadius = 1000.0 * kRadius;

/// Numbers that are the same everywhere; the distributions of the standard library need not be.
class Noise {
 public:
  explicit Noise(unsigned seed) : engine_(seed) {}

  /// Evenly from -1 to 1.
  double Next() { return static_cast<double>(engine_()) * (2.0 / 4294967295.0) - 1.0; }

 private:
  std::mt19937 engine_;
};

inline Corner At(const Corner& center, double radius, double angle) {
  return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

/// A ring with five wide lobes. Its corners are shifted at random, by up to a fifth of an element
/// both along and across, so that the lines run in all directions.
inline Corners LobedRing(std::int64_t n, const Corner& center, double radius, unsigned seed) {
  Noise noise(seed);
  const double step = kTurn / static_cast<double>(n);
  Corners corners;
  for (std::int64_t k = 0; k < n; ++k) {
    const double angle = step * (static_cast<double>(k) + 0.2 * noise.Next());
    const double across = 0.2 * step * noise.Next();
    corners.push_back(At(center, radius * (1.0 + 0.15 * std::sin(5.0 * angle) + across), angle));
  }
  return corners;
}

/// A ring of teeth, a tooth being two elements: corners stand outside and inside in turn.
inline Corners ToothedRing(std::int64_t n, bool firstOutside, unsigned seed) {
  Noise noise(seed);
  const double step = kTurn / static_cast<double>(n);
  Corners corners;
  for (std::int64_t k = 0; k < n; ++k) {
    const double side = ((k % 2 == 0) == firstOutside) ? 0.4 : -0.4;
    const double angle = step * (static_cast<double>(k) + 0.05 * noise.Next());
    corners.push_back(At({0.0, 0.0}, kRadius * (1.0 + step * (side + 0.05 * noise.Next())), angle));
  }
  return corners;
}

/// A contour that goes round twice and swings about a circle meanwhile; `waves`, an odd number, is
/// how often it crosses itself. Where `waves` divides half of `n`, the crossings lie in the middle
/// of the lines, far from the places at joints that do not count as crossings.
inline Corners TwoTurns(std::int64_t n, std::int64_t waves, unsigned seed) {
  Noise noise(seed);
  const double step = 2.0 * kTurn / static_cast<double>(n);
  const double height = 0.5 * kTurn / static_cast<double>(waves);
  Corners corners;
  for (std::int64_t k = 0; k < n; ++k) {
    const double angle = step * (static_cast<double>(k) + 0.5 + 0.1 * noise.Next());
    const double swing = height * std::sin(0.5 * static_cast<double>(waves) * angle);
    corners.push_back(At({0.0, 0.0}, kRadius * (1.0 + swing), angle));
  }
  return corners;
}

// The contours by their use

inline Corners Outline(std::int64_t n) { return LobedRing(n, {0.0, 0.0}, kRadius, 1); }

/// Crosses the outline in a few places.
inline Corners Neighbour(std::int64_t n) { return LobedRing(n, {60.0, 25.0}, kRadius, 2); }

/// Lies inside the outline.
inline Corners Hole(std::int64_t n) { return LobedRing(n, {0.0, 0.0}, 0.4 * kRadius, 3); }

/// Cross one another once with nearly every line.
inline Corners Teeth(std::int64_t n) { return ToothedRing(n, true, 4); }
inline Corners OppositeTeeth(std::int64_t n) { return ToothedRing(n, false, 5); }

/// Crosses itself in three places.
inline Corners Knot(std::int64_t n) { return TwoTurns(n, 3, 6); }

/// Crosses itself once in two elements (of 10) to once in sixteen (of 10,000).
inline Corners Braid(std::int64_t n) {
  std::int64_t waves = n;
  while (waves % 2 == 0) waves /= 2;
  return TwoTurns(n, waves, 7);
}

/// The outline and the hole for arcs, a thousand times as large. A scan from a place that is level
/// with a joint of arcs, give or take 0.0001, may miss both; so many small arcs in a contour of the
/// usual size leave no place for which that is not so.
inline Corners LargeOutline(std::int64_t n) { return LobedRing(n, {0.0, 0.0}, kLargeRadius, 1); }
inline Corners LargeHole(std::int64_t n) { return LobedRing(n, {0.0, 0.0}, 0.4 * kLargeRadius, 3); }

/// Places over the box of the outline and a little beyond, in random order; one in sixteen is a
/// corner. As many as a power of two.
inline Corners Probes(const Corners& outline, double radius = kRadius) {
  constexpr int kCount = 256;
  Noise noise(8);
  Corners probes;
  for (int k = 0; k < kCount; ++k) {
    const std::size_t corner = static_cast<std::size_t>(k) * outline.size() / kCount;
    const Corner anywhere = {1.2 * radius * noise.Next(), 1.2 * radius * noise.Next()};
    probes.push_back(k % 16 == 0 ? outline[corner] : anywhere);
  }
  return probes;
}

/// An arc of a sixth of a turn, counter-clockwise about its center.
struct Bulge {
  Corner start;
  Corner end;
  Corner center;
};

inline constexpr double kBulgeSweep = kTurn / 6.0;

/// The contour with arcs in place of its lines, bent outwards.
inline std::vector<Bulge> Bulges(const Corners& corners) {
  // Height of the triangle of chord and center, as a share of the chord: that of equal sides.
  constexpr double kHeight = 0.8660254037844386;
  std::vector<Bulge> bulges;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Corner& a = corners[i];
    const Corner& b = corners[(i + 1) % corners.size()];
    const Corner middle = {0.5 * (a.x + b.x), 0.5 * (a.y + b.y)};
    bulges.push_back({a, b, {middle.x - kHeight * (b.y - a.y), middle.y + kHeight * (b.x - a.x)}});
  }
  return bulges;
}

// Contours to be cleaned up

/// A contour whose corners are kept while the rest of its lines goes.
struct Untidy {
  Corners path;  ///< Starts of the lines, in order and closed.
  Corners kept;  ///< Corners after the clean-up.
};

/// Every line cut in the middle.
inline Untidy CutLines(std::int64_t n) {
  Untidy contour;
  contour.kept = ToothedRing(n / 2, true, 9);
  for (std::size_t i = 0; i < contour.kept.size(); ++i) {
    const Corner& a = contour.kept[i];
    const Corner& b = contour.kept[(i + 1) % contour.kept.size()];
    contour.path.push_back(a);
    contour.path.push_back({0.5 * (a.x + b.x), 0.5 * (a.y + b.y)});
  }
  return contour;
}

/// A small loop of three lines at about one corner of eleven.
inline Untidy Loops(std::int64_t n) {
  const std::int64_t loops = std::max<std::int64_t>(n / 11, 1);
  const double size = 0.2 * kRadius * kTurn / static_cast<double>(n);
  Untidy contour;
  contour.kept = ToothedRing(n - 3 * loops, true, 10);
  const auto corners = static_cast<std::int64_t>(contour.kept.size());
  for (std::int64_t i = 0; i < corners; ++i) {
    const Corner& c = contour.kept[static_cast<std::size_t>(i)];
    // So that `loops` corners, evenly spread, have one.
    const bool hasLoop = (i + 1) * loops / corners != i * loops / corners;
    contour.path.push_back(c);
    if (!hasLoop) continue;
    contour.path.push_back({c.x + size, c.y + 0.3 * size});
    contour.path.push_back({c.x - 0.2 * size, c.y + size});
    contour.path.push_back(c);
  }
  return contour;
}

/// Of seven sides one is cut, one goes beyond its corner and comes back, and one is followed by a
/// line of length zero.
inline Untidy Debris(std::int64_t n) {
  Untidy contour;
  contour.kept = ToothedRing(n * 7 / 10, true, 11);
  for (std::size_t i = 0; i < contour.kept.size(); ++i) {
    const Corner& a = contour.kept[i];
    const Corner& b = contour.kept[(i + 1) % contour.kept.size()];
    const auto along = [&](double t) -> Corner {
      return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
    };
    contour.path.push_back(a);
    if (i % 7 == 1) contour.path.push_back(along(0.5));
    if (i % 7 == 3) contour.path.push_back(along(1.2));
    if (i % 7 == 5) contour.path.push_back(a);
  }
  return contour;
}

}  // namespace contour_benchmarks
