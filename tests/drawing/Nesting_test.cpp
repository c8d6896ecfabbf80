#include "drawing/Nesting.h"

#include "PartSketch.h"
#include "drawing/ContourCrossings.h"
#include "drawing/CurveMeasures.h"
#include "support/Build.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <vector>

namespace {

using drawing::Crossing;
using drawing::kNoContour;
using support::ArcSide;
using support::CircleContour;
using support::LineSide;
using support::PartSketch;
using support::PolygonContour;
using support::RectangleContour;
using support::SketchContour;

constexpr double kPi = support::kPi;

// The contours of a sketch, in its order, nested.
struct Nested {
  explicit Nested(const PartSketch& sketch) : drawn(support::DrawingOf(sketch)) {
    contours = drawing::BuildContours(drawn, drawing::FindNetworks(drawn));
    crossings = drawing::NestContours(contours);
  }

  std::vector<std::size_t> Depths() const {
    std::vector<std::size_t> depths;
    for (const auto& contour : contours) depths.push_back(contour->depth);
    return depths;
  }

  std::vector<std::size_t> Parents() const {
    std::vector<std::size_t> parents;
    for (const auto& contour : contours) parents.push_back(contour->parent);
    return parents;
  }

  drawing::Drawing drawn;
  std::vector<std::unique_ptr<drawing::Contour>> contours;
  std::vector<Crossing> crossings;
};

using Indices = std::vector<std::size_t>;

TEST(NestContours, FindsTheSmallestHolderAtAnyDepth) {
  const Nested nested({CircleContour(50, 50, 5), RectangleContour(0, 0, 100, 100),
                       RectangleContour(30, 30, 70, 70), CircleContour(50, 50, 15),
                       CircleContour(90, 90, 5), CircleContour(200, 0, 3)});
  EXPECT_EQ(nested.Parents(), (Indices{3, kNoContour, 1, 2, 1, kNoContour}));
  EXPECT_EQ(nested.Depths(), (Indices{3, 0, 1, 2, 1, 0}));
  EXPECT_TRUE(nested.crossings.empty());
}

TEST(NestContours, LooksAtTheContourNotAtItsBox) {
  // An L with a hole in its leg, and a disk in its notch that the box of the L holds.
  const SketchContour angle =
      PolygonContour({{0, 0}, {100, 0}, {100, 20}, {20, 20}, {20, 100}, {0, 100}});
  const Nested nested({angle, CircleContour(10, 60, 5), CircleContour(60, 60, 30)});
  EXPECT_EQ(nested.Parents(), (Indices{kNoContour, 0, kNoContour}));
  EXPECT_TRUE(nested.crossings.empty());
}

TEST(NestContours, DoesNotDependOnTheDirectionOfDrawing) {
  const PartSketch sketch = {RectangleContour(0, 0, 100, 100), RectangleContour(20, 20, 80, 80),
                             support::SlotContour({50, 50}, 20, 5, 0.4)};
  for (int way = 0; way < 8; ++way) {
    PartSketch drawn = sketch;
    for (int i = 0; i < 3; ++i) {
      const auto index = static_cast<std::size_t>(i);
      if ((way >> i) % 2 == 1) drawn[index] = support::Reversed(drawn[index]);
    }
    EXPECT_EQ(Nested(drawn).Depths(), (Indices{0, 1, 2})) << way;
  }
}

TEST(NestContours, LeavesOutContoursThatAreNotUsable) {
  const Nested nested({RectangleContour(0, 0, 100, 100),
                       {LineSide({-10, 50}, {110, 50})},
                       {LineSide({10, 10}, {20, 10}), LineSide({10, 10}, {20, 10})}});
  EXPECT_EQ(nested.Parents(), (Indices{kNoContour, kNoContour, kNoContour}));
  EXPECT_TRUE(nested.crossings.empty());
}

TEST(NestContours, OfNothingIsNothing) {
  EXPECT_TRUE(Nested({}).crossings.empty());
  const std::vector<std::unique_ptr<drawing::Contour>> none;
  EXPECT_TRUE(drawing::NestContours(none).empty());
}

TEST(NestContours, ForgetsWhatStoodThere) {
  Nested nested({RectangleContour(0, 0, 100, 100), CircleContour(50, 50, 5)});
  nested.contours[0]->parent = 1;
  nested.contours[0]->depth = 9;
  nested.contours[0]->coincidesWith = 1;
  drawing::NestContours(nested.contours);
  EXPECT_EQ(nested.Parents(), (Indices{kNoContour, 0}));
  EXPECT_EQ(nested.contours[0]->depth, 0u);
  EXPECT_EQ(nested.contours[0]->coincidesWith, kNoContour);
}

// Touching and coinciding

TEST(NestContours, HoldsWhatTouchesFromInside) {
  // A rectangle on a part of a side, a circle at the middle of another, a corner on a third.
  const Nested nested({RectangleContour(0, 0, 100, 100), RectangleContour(20, 0, 60, 10),
                       CircleContour(95, 50, 5), PolygonContour({{0, 70}, {20, 60}, {20, 80}})});
  EXPECT_EQ(nested.Parents(), (Indices{kNoContour, 0, 0, 0}));
  EXPECT_TRUE(nested.crossings.empty());
}

TEST(NestContours, LeavesOutsideWhatTouchesFromOutside) {
  const Nested nested({RectangleContour(0, 0, 100, 100), RectangleContour(20, -10, 60, 0),
                       CircleContour(105, 50, 5), PolygonContour({{0, 70}, {-20, 60}, {-20, 80}})});
  EXPECT_EQ(nested.Depths(), (Indices{0, 0, 0, 0}));
  EXPECT_TRUE(nested.crossings.empty());
}

TEST(NestContours, TakesReachingOutByTheToleranceForTouching) {
  const Nested touching({RectangleContour(0, 0, 100, 60), RectangleContour(50, 10, 100.00009, 20)});
  EXPECT_EQ(touching.Depths(), (Indices{0, 1}));
  EXPECT_TRUE(touching.crossings.empty());
  const Nested crossing({RectangleContour(0, 0, 100, 60), RectangleContour(50, 10, 100.0003, 20)});
  EXPECT_EQ(crossing.Depths(), (Indices{0, 0}));
  EXPECT_EQ(crossing.crossings.size(), 1u);
}

TEST(NestContours, ContoursThatCoincideShareParentAndDepth) {
  // The hole is drawn three times: twice as a circle, once in two arcs from another start.
  const SketchContour pieces = support::Split(CircleContour(50, 50, 20, 1.0).front(), {0.3});
  const Nested nested({RectangleContour(0, 0, 100, 100), CircleContour(50, 50, 20),
                       support::Reversed(pieces), CircleContour(50, 50, 20),
                       CircleContour(50, 50, 4)});
  EXPECT_EQ(nested.Depths(), (Indices{0, 1, 1, 1, 2}));
  std::size_t twins = 0;
  for (std::size_t i = 1; i <= 3; ++i) {
    EXPECT_EQ(nested.contours[i]->parent, 0u);
    twins += nested.contours[i]->coincidesWith != kNoContour ? 1 : 0;
  }
  EXPECT_EQ(twins, 2u);
  // What lies inside is in the one that stands for the three.
  const std::size_t holder = nested.contours[4]->parent;
  EXPECT_EQ(nested.contours[holder]->coincidesWith, kNoContour);
  EXPECT_TRUE(nested.crossings.empty());
}

TEST(NestContours, TheEarlierOfEqualContoursStandsForBoth) {
  const Nested nested({CircleContour(5, 5, 5), CircleContour(5, 5, 5), CircleContour(5, 5, 1)});
  EXPECT_EQ(nested.contours[0]->coincidesWith, kNoContour);
  EXPECT_EQ(nested.contours[1]->coincidesWith, 0u);
  EXPECT_EQ(nested.Depths(), (Indices{0, 0, 1}));
  EXPECT_EQ(nested.contours[2]->parent, 0u);
}

// Crossings

void ExpectOneCrossing(const PartSketch& sketch, const std::vector<GX2DPoint>& expected) {
  const Nested nested(sketch);
  ASSERT_EQ(nested.crossings.size(), 1u);
  EXPECT_EQ(nested.crossings[0].first, 0u);
  EXPECT_EQ(nested.crossings[0].second, 1u);
  EXPECT_EQ(nested.Depths(), (Indices{0, 0}));
  const std::vector<GX2DPoint>& points = nested.crossings[0].points;
  ASSERT_EQ(points.size(), expected.size());
  for (const GX2DPoint& p : expected) {
    const auto isIt = [&](const GX2DPoint& point) { return point.IsAlmostEq(p, 1e-9); };
    EXPECT_EQ(std::count_if(points.begin(), points.end(), isIt), 1) << p.X << ", " << p.Y;
  }
}

TEST(NestContours, ReportsLinesThatLeadOutThoughTheirEndsAreInside) {
  // A C, and a bar whose corners lie in its arms: both long sides of the bar lead across the gap.
  // To the library the bar is inside, since it asks for the ends of lines only.
  const SketchContour clamp = PolygonContour(
      {{0, 0}, {60, 0}, {60, 20}, {20, 20}, {20, 80}, {60, 80}, {60, 100}, {0, 100}});
  ExpectOneCrossing({clamp, PolygonContour({{40, 10}, {50, 10}, {50.5, 90}, {40.5, 90}})},
                    {{40 + 0.5 * 10 / 80, 20},
                     {40 + 0.5 * 70 / 80, 80},
                     {50 + 0.5 * 10 / 80, 20.0},
                     {50 + 0.5 * 70 / 80, 80.0}});
}

TEST(NestContours, ReportsTwoFullCirclesThatCross) {
  // Radii 10 and 8, centres 12 apart: they meet at x = (144 + 100 - 64) / 24 = 7.5 from the first.
  const double y = std::sqrt(100 - 7.5 * 7.5);
  ExpectOneCrossing({CircleContour(3, 4, 10), CircleContour(15, 4, 8)},
                    {{10.5, 4 - y}, {10.5, 4 + y}});
}

TEST(NestContours, ReportsACircleThatCrossesAHalfCircle) {
  // The right end of the slot is a half circle of radius 10 about (20, 0); the other circle has
  // radius 5 and its centre on the end itself: x = (100 + 100 - 25) / 20 from the slot's centre.
  const double x = 8.75;
  const double y = std::sqrt(100 - x * x);
  ExpectOneCrossing({support::SlotContour({0, 0}, 40, 10, 0.0), CircleContour(30, 0, 5)},
                    {{20 + x, -y}, {20 + x, y}});
}

TEST(NestContours, ReportsLinesThatCrossAtAVeryFlatAngle) {
  // The bottom side of the thin sheet falls by 0.004 over 1000: to the library it is parallel to
  // the other bottom side, through which it passes in its middle.
  const Nested nested({RectangleContour(0, 0, 2000, 100),
                       PolygonContour({{500, 0.002}, {1500, -0.002}, {1500, 50}, {500, 50}})});
  ASSERT_EQ(nested.crossings.size(), 1u);
  EXPECT_EQ(nested.contours[1]->parent, kNoContour);
  // It leaves at the corner (1500, 0) on its right side and comes back in the middle.
  ASSERT_EQ(nested.crossings[0].points.size(), 2u);
}

TEST(NestContours, NestsAContourInWhatHoldsItThoughItCrossesAnother) {
  const Nested nested({RectangleContour(0, 0, 100, 100), CircleContour(40, 50, 20),
                       CircleContour(60, 50, 15), CircleContour(50, 50, 2)});
  EXPECT_EQ(nested.contours[1]->parent, 0u);
  EXPECT_EQ(nested.contours[2]->parent, 0u);
  ASSERT_EQ(nested.crossings.size(), 1u);
  EXPECT_EQ(nested.crossings[0].first, 1u);
  EXPECT_EQ(nested.crossings[0].second, 2u);
  // Of the two that hold the last one it is in the smaller.
  EXPECT_EQ(nested.contours[3]->parent, 2u);
}

TEST(NestContours, ReportsAllCrossingsOfAContourThatIsInside) {
  // The small circle is in the middle one, and crosses the bar that crosses the middle one too.
  const Nested nested({RectangleContour(0, 0, 100, 100), CircleContour(50, 50, 30),
                       RectangleContour(10, 48, 90, 80), CircleContour(50, 45, 6)});
  ASSERT_EQ(nested.crossings.size(), 2u);
  EXPECT_EQ(nested.contours[3]->parent, 1u);
  EXPECT_EQ(nested.crossings[0].first, 1u);
  EXPECT_EQ(nested.crossings[0].second, 2u);
  EXPECT_EQ(nested.crossings[1].first, 2u);
  EXPECT_EQ(nested.crossings[1].second, 3u);
}

TEST(NestContours, EndsSoonWhereEverythingCrosses) {
  PartSketch circles;
  for (int i = 0; i < 300; ++i) circles.push_back(CircleContour(0.1 * i, 0, 50 - 0.01 * i));
  const Nested nested(circles);
  std::vector<std::size_t> crossed(300, 0);
  for (const Crossing& crossing : nested.crossings) {
    EXPECT_LT(crossing.first, crossing.second);
    ++crossed[crossing.second];  // The later one encloses less and is held against the earlier
                                 // ones.
  }
  // All of the first hundred, then a hundred each.
  for (std::size_t i = 0; i < 300; ++i) {
    EXPECT_EQ(crossed[i], std::min(i, drawing::kMostCrossings)) << i;
  }
}

// Against an independent test: the winding number of points of one contour about the other, summed
// in long double over short chords.

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
    const double direction = 2 * kPi * (i + random.Between(-0.3, 0.3)) / count;
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
    const SketchContour contour = RandomContour(random, 100.0, 1.0, 90.0);
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

TEST(NestContours, AgreesWithWindingNumbersOnRandomNests) {
  support::Random random;
  std::size_t deepest = 0;
  std::size_t contours = 0;
  std::size_t held = 0;
  for (int round = 0; round < 30; ++round) {
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

TEST(NestContours, AgreesWithWindingNumbersOnWhatCrosses) {
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
