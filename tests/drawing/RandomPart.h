// Parts of random shape for the tests: outlines with corners, some of them rounded, or round ones,
// and cut-outs of several kinds, some of them alike.
#pragma once

#include "PartSketch.h"
#include "support/Random.h"

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace support {

// A part that can be built again with one corner of its outline elsewhere.
struct RandomPart {
  std::vector<GX2DPoint> corners;
  std::vector<double> radii;
  PartSketch cutOuts;

  PartSketch Sketch() const {
    PartSketch sketch = {RoundedPolygon(corners, radii)};
    sketch.insert(sketch.end(), cutOuts.begin(), cutOuts.end());
    return sketch;
  }
};

// Corners in all directions from the origin, none of them straight.
inline std::vector<GX2DPoint> StarCorners(Random& random) {
  const int count = random.Int(5, 11);
  std::vector<GX2DPoint> corners;
  for (int i = 0; i < count; ++i) {
    const double direction = kFullTurn * (i + random.Between(-0.3, 0.3)) / count;
    const double radius = i % 2 == 0 ? random.Between(45.0, 60.0) : random.Between(65.0, 100.0);
    corners.emplace_back(radius * std::cos(direction), radius * std::sin(direction));
  }
  return corners;
}

// A rectangle with a notch in one or two of its corners.
inline std::vector<GX2DPoint> NotchedCorners(Random& random) {
  const double right = random.Between(60.0, 120.0);
  const double top = random.Between(30.0, 50.0);
  const double notchX = random.Between(8.0, 15.0);
  const double notchY = random.Between(16.0, 20.0);
  std::vector<GX2DPoint> corners = {{-40, -30}, {right, -30}};
  corners.insert(corners.end(),
                 {{right, top - notchY}, {right - notchX, top - notchY}, {right - notchX, top}});
  if (random.Bool()) {
    const double other = random.Between(3.0, 7.0);
    corners.insert(corners.end(), {{other - 40, top}, {other - 40, top - 2 * other}});
    corners.emplace_back(-40, top - 2 * other);
  } else {
    corners.emplace_back(-40, top);
  }
  return corners;
}

inline SketchContour RandomCutOut(Random& random, const GX2DPoint& middle) {
  const double direction = random.Between(0.0, 6.0);
  const double radius = random.Between(0.8, 2.0);
  switch (random.Int(0, 3)) {
    case 0:
      return CircleContour(middle.X, middle.Y, radius, direction);
    case 1:
      return SlotContour(middle, random.Between(2.0, 5.0), radius, direction);
    case 2: {
      const double w = random.Between(1.0, 2.5);
      const double h = random.Between(1.0, 2.5);
      std::vector<GX2DPoint> corners = {{-w, -h}, {w, -h}, {w, h}, {-w, h}};
      for (GX2DPoint& p : corners) {
        p = Turned({middle.X + p.X, middle.Y + p.Y}, middle, direction);
      }
      return RoundedPolygon(corners, {0.0, 0.3, 0.0, 0.3});
    }
    default:
      return PolygonContour({{middle.X - 2, middle.Y - 1},
                             {middle.X + 1, middle.Y - random.Between(0.5, 1.5)},
                             {middle.X, middle.Y + 2}});
  }
}

// Cut-outs on a loose grid about the origin, every second of them a repetition of another; the
// first is a circle.
inline PartSketch RandomCutOuts(Random& random) {
  const int count = random.Int(1, 12);
  PartSketch cutOuts;
  for (int i = 0; i < count; ++i) {
    const GX2DPoint middle(10.0 * (i % 4 - 1.5) + random.Between(-1.0, 1.0),
                           10.0 * (i / 4 - 1.0) + random.Between(-1.0, 1.0));
    if (i == 0) {
      cutOuts.push_back(CircleContour(middle.X, middle.Y, random.Between(1.0, 3.0)));
    } else if (random.Bool()) {
      const auto other = static_cast<std::size_t>(random.Int(0, i - 1));
      SketchContour copy = cutOuts[other];
      ShiftContour(copy, middle.X - 10.0 * (static_cast<int>(other) % 4 - 1.5),
                   middle.Y - 10.0 * (static_cast<int>(other) / 4 - 1.0));
      cutOuts.push_back(copy);
    } else {
      cutOuts.push_back(RandomCutOut(random, middle));
    }
  }
  return cutOuts;
}

inline RandomPart MakeRandomPart(Random& random) {
  RandomPart part;
  part.corners = random.Bool() ? StarCorners(random) : NotchedCorners(random);
  for (std::size_t i = 0; i < part.corners.size(); ++i) {
    part.radii.push_back(random.Bool() ? random.Between(0.5, 6.0) : 0.0);
  }
  part.cutOuts = RandomCutOuts(random);
  return part;
}

// A round part with at least four cut-outs.
inline PartSketch RoundPart(Random& random) {
  PartSketch sketch = {CircleContour(0.0, 0.0, 60.0, random.Between(0.0, 6.0))};
  PartSketch cutOuts = RandomCutOuts(random);
  while (cutOuts.size() < 4) cutOuts = RandomCutOuts(random);
  sketch.insert(sketch.end(), cutOuts.begin(), cutOuts.end());
  return sketch;
}

}  // namespace support
