#include "drawing/Boxes.h"

#include "support/Build.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using drawing::Box;
using drawing::BoxOf;

TEST(Holds, CountsTheSlackOnEverySideAsInside) {
  const Box outer{0, 0, 10, 10};
  EXPECT_TRUE(drawing::Holds(outer, {-0.5, -0.5, 10.5, 10.5}, 0.5));
  EXPECT_FALSE(drawing::Holds(outer, {-0.75, 0, 10, 10}, 0.5));
  EXPECT_FALSE(drawing::Holds(outer, {0, -0.75, 10, 10}, 0.5));
  EXPECT_FALSE(drawing::Holds(outer, {0, 0, 10.75, 10}, 0.5));
  EXPECT_FALSE(drawing::Holds(outer, {0, 0, 10, 10.75}, 0.5));
}

TEST(Meet, IncludesTouching) {
  EXPECT_TRUE(drawing::Meet({0, 0, 1, 1}, {1, 1, 2, 2}));
  EXPECT_FALSE(drawing::Meet({0, 0, 1, 1}, {1.5, 0, 2, 1}));
  EXPECT_FALSE(drawing::Meet({0, 0, 1, 1}, {0, 1.5, 1, 2}));
}

TEST(BoxOf, HoldsTheExtremesThatTheArcReaches) {
  // From 45 to 225 degrees about (1, 2): over the top and the left of the circle of radius 2.
  GX2DArc arc = support::ArcByAngles(1, 2, 2, 45, 180);
  const Box box = BoxOf(arc);
  EXPECT_NEAR(box.minX, -1.0, 1e-14);
  EXPECT_NEAR(box.maxY, 4.0, 1e-14);
  EXPECT_NEAR(box.maxX, 1 + std::sqrt(2.0), 1e-14);
  EXPECT_NEAR(box.minY, 2 - std::sqrt(2.0), 1e-14);
}

TEST(BoxOf, OfALineIsThatOfItsEnds) {
  GX2DLine line(3, -1, -2, 5);
  const Box box = BoxOf(line);
  EXPECT_EQ(box.minX, -2.0);
  EXPECT_EQ(box.minY, -1.0);
  EXPECT_EQ(box.maxX, 3.0);
  EXPECT_EQ(box.maxY, 5.0);
}

TEST(BoxTree, FindsWhatTheDoubleLoopFinds) {
  support::Random random;
  for (int round = 0; round < 50; ++round) {
    std::vector<Box> boxes;
    const int count = random.Int(0, 200);
    for (int i = 0; i < count; ++i) {
      // On a coarse raster, so that many touch and many are equal.
      const double x = random.Int(0, 30);
      const double y = random.Int(0, 30);
      boxes.push_back({x, y, x + random.Int(0, 5), y + random.Int(0, 20)});
    }
    const drawing::BoxTree tree(boxes);
    std::vector<std::size_t> found = {12345};
    for (int query = 0; query < 20; ++query) {
      const double x = random.Int(-5, 35);
      const double y = random.Int(-5, 35);
      const Box box{x, y, x + random.Int(0, 8), y + random.Int(0, 8)};
      tree.FindMeeting(box, found);
      std::sort(found.begin(), found.end());
      std::vector<std::size_t> expected;
      for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (drawing::Meet(boxes[i], box)) expected.push_back(i);
      }
      EXPECT_EQ(found, expected);
    }
  }
}

}  // namespace
