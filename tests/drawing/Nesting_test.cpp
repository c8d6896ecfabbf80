#include "drawing/Nesting.h"

#include "NestedSketch.h"
#include "PartSketch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <vector>

namespace {

using drawing::Crossing;
using drawing::kNoContour;
using support::CircleContour;
using support::LineSide;
using support::Nested;
using support::PartSketch;
using support::PolygonContour;
using support::RectangleContour;
using support::SketchContour;

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
  const std::vector<GX2DPoint>& points = nested.crossings[0].points;
  ASSERT_EQ(points.size(), 2u);
  const auto isMiddle = [](const GX2DPoint& p) { return p.IsAlmostEq({1000, 0}, 1e-6); };
  EXPECT_EQ(std::count_if(points.begin(), points.end(), isMiddle), 1);
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

}  // namespace
