#include "drawing/CircleGroups.h"

#include "NestedSketch.h"
#include "PartSketch.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace {

using drawing::CircleGroup;
using drawing::FindCircleGroups;
using support::CircleContour;
using support::Nested;
using support::RectangleContour;
using support::SketchContour;
using support::Split;

using Indices = std::vector<std::size_t>;

TEST(FindCircleGroups, CountsCirclesByDiameterFromTheSmallestUp) {
  const Nested nested({RectangleContour(0, 0, 100, 100), CircleContour(10, 10, 4),
                       CircleContour(30, 10, 2.5), CircleContour(50, 10, 4),
                       support::SlotContour({50, 50}, 10, 4, 0.0)});
  const std::vector<CircleGroup> groups = FindCircleGroups(nested.contours);
  ASSERT_EQ(groups.size(), 2u);
  EXPECT_NEAR(groups[0].diameter, 5.0, 1e-12);
  EXPECT_EQ(groups[0].contours, (Indices{2}));
  EXPECT_NEAR(groups[1].diameter, 8.0, 1e-12);
  EXPECT_EQ(groups[1].contours, (Indices{1, 3}));
}

TEST(FindCircleGroups, CountsACircleInPiecesDrawnEitherWay) {
  const SketchContour pieces = Split(CircleContour(0, 0, 4).front(), {0.2, 0.55});
  const SketchContour halves = support::Reversed(Split(CircleContour(20, 0, 4).front(), {0.5}));
  const Nested nested({pieces, halves, CircleContour(40, 0, 4)});
  const std::vector<CircleGroup> groups = FindCircleGroups(nested.contours);
  ASSERT_EQ(groups.size(), 1u);
  EXPECT_EQ(groups[0].contours, (Indices{0, 1, 2}));
}

TEST(FindCircleGroups, TakesDiametersWithinTheToleranceForEqual) {
  // Diameters 8, 8.0008 and 8.002.
  const Nested nested(
      {CircleContour(0, 0, 4.001), CircleContour(20, 0, 4), CircleContour(40, 0, 4.0004)});
  const std::vector<CircleGroup> groups = FindCircleGroups(nested.contours);
  ASSERT_EQ(groups.size(), 2u);
  EXPECT_EQ(groups[0].contours, (Indices{1, 2}));
  EXPECT_EQ(groups[1].contours, (Indices{0}));
}

TEST(FindCircleGroups, CountsACircleThatIsDrawnTwiceOnce) {
  const Nested nested({CircleContour(0, 0, 4), CircleContour(0, 0, 4)});
  const std::vector<CircleGroup> groups = FindCircleGroups(nested.contours);
  ASSERT_EQ(groups.size(), 1u);
  EXPECT_EQ(groups[0].contours, (Indices{0}));
}

TEST(FindCircleGroups, LeavesOutArcsOfOtherCentres) {
  // A lens: two arcs of one radius that are not one circle.
  const double third = support::kFullTurn / 3.0;
  const support::Side right = support::ArcSide({5, -8.660254037844386}, {0, 0}, third);
  const support::Side left = support::ArcSide({5, 8.660254037844386}, {10, 0}, third);
  EXPECT_TRUE(FindCircleGroups(Nested({{right, left}}).contours).empty());
}

TEST(IsOneCircle, LeavesTheDiameterAloneForOtherShapes) {
  double diameter = -1.0;
  EXPECT_FALSE(drawing::IsOneCircle(GX2DElmList(), diameter));
  const Nested nested({RectangleContour(0, 0, 10, 10)});
  EXPECT_FALSE(drawing::IsOneCircle(nested.contours[0]->elements, diameter));
  EXPECT_EQ(diameter, -1.0);
}

}  // namespace
