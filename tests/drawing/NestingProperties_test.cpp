// Nesting against an independent test: the winding number of points of one contour about the other,
// summed in long double over short chords.
#include "NestedSketch.h"
#include "PartSketch.h"
#include "drawing/ContourCrossings.h"
#include "drawing/CurveMeasures.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using drawing::kNoContour;
using support::ArcSide;
using support::CircleContour;
using support::LineSide;
using support::Nested;
using support::PartSketch;
using support::SketchContour;

struct FarPoint {
  long double x = 0.0L;
  long double y = 0.0L;
};
using Outline = std::vector<FarPoint>;

// Every line and every arc in so many chords.
Outline OutlineOf(const SketchContour& contour, int perLine, int perArc) {
  Outline outline;
  for (const support::Side& side : contour) {
    const int count = side.sweep == 0.0 ? perLine : perArc;
    for (int i = 0; i < count; ++i) {
      const long double share = static_cast<long double>(i) / count;
      if (side.sweep == 0.0) {
        outline.push_back({side.start.X + share * (side.end.X - side.start.X),
                           side.start.Y + share * (side.end.Y - side.start.Y)});
        continue;
      }
      const long double x = static_cast<long double>(side.start.X) - side.centre.X;
      const long double y = static_cast<long double>(side.start.Y) - side.centre.Y;
      const long double c = std::cos(share * side.sweep);
      const long double s = std::sin(share * side.sweep);
      outline.push_back({side.centre.X + c * x - s * y, side.centre.Y + s * x + c * y});
    }
  }
  return outline;
}

bool WindsAround(const Outline& outline, const FarPoint& p) {
  long double turn = 0.0L;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const FarPoint& a = outline[i];
    const FarPoint& b = outline[(i + 1) % outline.size()];
    const long double ax = a.x - p.x;
    const long double ay = a.y - p.y;
    const long double bx = b.x - p.x;
    const long double by = b.y - p.y;
    turn += std::atan2(ax * by - ay * bx, ax * bx + ay * by);
  }
  return std::fabs(turn) > 3.0L;
}

long double AreaOf(const Outline& outline) {
  long double twice = 0.0L;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const FarPoint& a = outline[i];
    const FarPoint& b = outline[(i + 1) % outline.size()];
    twice += a.x * b.y - a.y * b.x;
  }
  return std::fabs(twice) / 2.0L;
}

long double StepOf(const Outline& outline) {
  long double step = 0.0L;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const FarPoint& b = outline[(i + 1) % outline.size()];
    step = std::max(step, std::hypot(outline[i].x - b.x, outline[i].y - b.y));
  }
  return step;
}

// Whether no point of one outline comes as near to one of the other as their steps: then they do
// not cross.
bool KeepApart(const Outline& p, const Outline& q, long double distance) {
  for (const FarPoint& a : p) {
    for (const FarPoint& b : q) {
      const long double dx = a.x - b.x;
      const long double dy = a.y - b.y;
      if (dx * dx + dy * dy <= distance * distance) return false;
    }
  }
  return true;
}

// A C of two arcs about one centre and the lines between their ends: its box holds much that it
// does not.
SketchContour RingPiece(const GX2DPoint& centre, double radius, double from, double sweep) {
  const GX2DPoint start = support::Turned({centre.X + radius, centre.Y}, centre, from);
  const GX2DPoint inner = support::Turned({centre.X + 0.6 * radius, centre.Y}, centre, from);
  const support::Side out = ArcSide(start, centre, sweep);
  const support::Side back = support::Reversed({ArcSide(inner, centre, sweep)}).front();
  return {out, LineSide(out.end, back.start), back, LineSide(back.end, start)};
}

SketchContour StarContour(support::Random& random, const GX2DPoint& centre, double radius) {
  const int count = random.Int(5, 12);
  std::vector<GX2DPoint> corners;
  std::vector<double> radii;
  for (int i = 0; i < count; ++i) {
    const double direction = support::kFullTurn * (i + random.Between(-0.3, 0.3)) / count;
    const double reach = radius * random.Between(0.25, 1.0);
    corners.emplace_back(centre.X + reach * std::cos(direction),
                         centre.Y + reach * std::sin(direction));
    radii.push_back(random.Bool() ? 0.1 * radius : 0.0);
  }
  return support::RoundedPolygon(corners, radii);
}

// Of an arc that all but goes straight on, start and end coincide within the tolerance, and it
// counts as a full circle.
bool HasTinyArc(const SketchContour& contour) {
  return std::any_of(contour.begin(), contour.end(), [](const support::Side& side) {
    return side.sweep != 0.0 && std::fabs(side.sweep) < 0.01;
  });
}

SketchContour RandomContour(support::Random& random, double extent, double least, double most) {
  const GX2DPoint centre(random.Between(-extent, extent), random.Between(-extent, extent));
  const double radius = std::exp(random.Between(std::log(least), std::log(most)));
  const double direction = random.Between(0.0, 6.0);
  SketchContour contour;
  switch (random.Int(0, 4)) {
    case 0:
      contour = CircleContour(centre.X, centre.Y, radius, direction);
      break;
    case 1:
      contour = support::SlotContour(centre, radius, 0.3 * radius, direction);
      break;
    case 2:
      contour = RingPiece(centre, radius, direction, random.Between(1.0, 5.8));
      break;
    default:
      contour = StarContour(random, centre, radius);
  }
  return random.Bool() ? support::Reversed(contour) : contour;
}

// Contours that keep apart, many of them in one another, and their outlines.
PartSketch RandomContours(support::Random& random, std::vector<Outline>& outlines) {
  PartSketch sketch;
  for (int attempt = 0; attempt < 150; ++attempt) {
    // Large ones come first, and about half of all lie around the middle.
    const double extent = random.Bool() ? 100.0 : 15.0;
    const double most = 90.0 - 0.55 * attempt;
    const SketchContour contour = RandomContour(random, extent, 2.0, most);
    if (HasTinyArc(contour)) continue;
    const int points = 60 / static_cast<int>(contour.size()) + 1;
    const Outline outline = OutlineOf(contour, points, points);
    const long double step = StepOf(outline);
    const bool apart = std::all_of(outlines.begin(), outlines.end(), [&](const Outline& other) {
      return KeepApart(outline, other, std::max(step, StepOf(other)));
    });
    if (!apart) continue;
    sketch.push_back(contour);
    outlines.push_back(outline);
  }
  return sketch;
}

TEST(NestingProperties, AgreesWithWindingNumbersOnRandomNests) {
  support::Random random;
  std::size_t deepest = 0;
  std::size_t contours = 0;
  std::size_t held = 0;
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE(round);
    std::vector<Outline> outlines;
    const PartSketch sketch = RandomContours(random, outlines);
    const Nested nested(sketch);
    ASSERT_EQ(nested.contours.size(), sketch.size());
    EXPECT_TRUE(nested.crossings.empty());
    for (std::size_t i = 0; i < sketch.size(); ++i) {
      ASSERT_TRUE(nested.contours[i]->usable) << nested.contours[i]->obstacle;
      std::size_t parent = kNoContour;
      std::size_t depth = 0;
      for (std::size_t j = 0; j < sketch.size(); ++j) {
        if (j == i || AreaOf(outlines[j]) < AreaOf(outlines[i])) continue;
        if (!WindsAround(outlines[j], outlines[i].front())) continue;
        ++depth;
        if (parent == kNoContour || AreaOf(outlines[j]) < AreaOf(outlines[parent])) parent = j;
      }
      EXPECT_EQ(nested.contours[i]->parent, parent) << i;
      EXPECT_EQ(nested.contours[i]->depth, depth) << i;
      deepest = std::max(deepest, depth);
      held += depth > 0 ? 1 : 0;
    }
    contours += sketch.size();
  }
  // The contours are worth the test: very many, hundreds of them held, some three deep.
  EXPECT_GE(contours, 1000u);
  EXPECT_GE(held, 200u);
  EXPECT_GE(deepest, 3u);
}

double DistanceTo(const GX2DPoint& p, const GX2DElmList& elements) {
  double distance = 1e300;
  for (GX2DElement* element : elements) {
    distance = std::min(distance, drawing::DistanceToElement(p, *element));
  }
  return distance;
}

// What winding numbers say of one contour about another.
struct Sides {
  int inside = 0;
  int outside = 0;
  bool clear = true;  // It keeps so far away that nothing can happen between the points.
};

Sides SidesOf(const SketchContour& contour, const Outline& holder, const GX2DElmList& elements) {
  const int points = 300 / static_cast<int>(contour.size());
  const Outline outline = OutlineOf(contour, points, points);
  const auto step = static_cast<double>(StepOf(outline));
  Sides sides;
  for (const FarPoint& p : outline) {
    const GX2DPoint place(static_cast<double>(p.x), static_cast<double>(p.y));
    const double distance = DistanceTo(place, elements);
    if (distance < step) sides.clear = false;
    // 240 chords of an arc of radius 60 and 5.8 radians are off by 60 (5.8 / 240)^2 / 8 = 0.0044.
    if (distance > 0.01) ++(WindsAround(holder, p) ? sides.inside : sides.outside);
  }
  return sides;
}

TEST(NestingProperties, AgreesWithWindingNumbersOnWhatCrosses) {
  support::Random random;
  int crossing = 0;
  int apart = 0;
  for (int round = 0; round < 250; ++round) {
    SCOPED_TRACE(round);
    const PartSketch sketch = {RandomContour(random, 20.0, 10.0, 60.0),
                               RandomContour(random, 30.0, 3.0, 60.0)};
    if (HasTinyArc(sketch[0]) || HasTinyArc(sketch[1])) continue;
    const Outline first = OutlineOf(sketch[0], 1, 240);
    const Outline second = OutlineOf(sketch[1], 1, 240);
    const std::size_t larger = AreaOf(first) >= AreaOf(second) ? 0 : 1;
    const std::size_t smaller = 1 - larger;
    const Nested nested(sketch);
    ASSERT_EQ(nested.contours.size(), 2u);
    const Sides sides =
        SidesOf(sketch[smaller], larger == 0 ? first : second, nested.contours[larger]->elements);
    if (sides.inside > 0 && sides.outside > 0) {
      ++crossing;
      ASSERT_EQ(nested.crossings.size(), 1u);
      EXPECT_GE(nested.crossings[0].points.size(), 2u);
      EXPECT_EQ(nested.crossings[0].points.size() % 2, 0u);
      for (const GX2DPoint& p : nested.crossings[0].points) {
        EXPECT_LE(DistanceTo(p, nested.contours[0]->elements), drawing::kTouchTolerance);
        EXPECT_LE(DistanceTo(p, nested.contours[1]->elements), drawing::kTouchTolerance);
      }
    } else if (sides.clear) {
      ++apart;
      EXPECT_TRUE(nested.crossings.empty());
      EXPECT_EQ(nested.contours[smaller]->depth, sides.inside > 0 ? 1u : 0u);
    }
  }
  EXPECT_GE(crossing, 60);
  EXPECT_GE(apart, 40);
}

}  // namespace
