#include "drawing/DrawingParts.h"

#include "NestedSketch.h"
#include "PartSketch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using drawing::DrawingPart;
using drawing::FindParts;
using drawing::kNoPart;
using support::CircleContour;
using support::LineSide;
using support::Nested;
using support::RectangleContour;

using Indices = std::vector<std::size_t>;

constexpr double kPi = 3.141592653589793;

Indices Outers(const std::vector<DrawingPart>& parts) {
  Indices outers;
  for (const DrawingPart& part : parts) outers.push_back(part.outer);
  return outers;
}

TEST(FindParts, OfNothingAreNone) {
  EXPECT_TRUE(FindParts({}).empty());
  EXPECT_TRUE(FindParts(Nested({{LineSide({0, 0}, {10, 0})}}).contours).empty());
}

TEST(FindParts, TakesAPlateWithItsHoles) {
  const Nested nested({CircleContour(20, 20, 5), RectangleContour(0, 0, 100, 60),
                       RectangleContour(50, 10, 70, 40)});
  const std::vector<DrawingPart> parts = FindParts(nested.contours);
  ASSERT_EQ(parts.size(), 1u);
  EXPECT_EQ(parts[0].outer, 1u);
  EXPECT_EQ(parts[0].cutOuts, (Indices{0, 2}));
  EXPECT_EQ(parts[0].islandIn, kNoPart);
  EXPECT_EQ(parts[0].pierces, 3u);
  EXPECT_NEAR(parts[0].area, 6000 - 25 * kPi - 600, 1e-9);
  EXPECT_NEAR(parts[0].perimeter, 320 + 10 * kPi + 100, 1e-9);
  EXPECT_EQ(parts[0].box.maxX, 100);
  EXPECT_EQ(parts[0].box.maxY, 60);
}

TEST(FindParts, TakesEverySecondContourOfANestForAPart) {
  // Squares of 100, 80, 60, 40 and 20 in one another: depths 0 to 4.
  const Nested nested({RectangleContour(20, 20, 80, 80), RectangleContour(0, 0, 100, 100),
                       RectangleContour(40, 40, 60, 60), RectangleContour(10, 10, 90, 90),
                       RectangleContour(30, 30, 70, 70)});
  ASSERT_EQ(nested.Depths(), (Indices{2, 0, 4, 1, 3}));
  const std::vector<DrawingPart> parts = FindParts(nested.contours);
  ASSERT_EQ(Outers(parts), (Indices{1, 0, 2}));
  EXPECT_EQ(parts[0].cutOuts, (Indices{3}));
  EXPECT_EQ(parts[1].cutOuts, (Indices{4}));
  EXPECT_TRUE(parts[2].cutOuts.empty());
  EXPECT_EQ(parts[0].islandIn, kNoPart);
  EXPECT_EQ(parts[1].islandIn, 0u);
  EXPECT_EQ(parts[2].islandIn, 1u);
  EXPECT_NEAR(parts[0].area, 10000 - 6400, 1e-9);
  EXPECT_NEAR(parts[1].area, 3600 - 1600, 1e-9);
  EXPECT_NEAR(parts[2].area, 400, 1e-9);
  EXPECT_NEAR(parts[1].perimeter, 240 + 160, 1e-9);
}

TEST(FindParts, GivesEveryPartItsOwnCutOuts) {
  const Nested nested({CircleContour(5, 5, 1), RectangleContour(0, 0, 10, 10),
                       RectangleContour(50, 0, 90, 40), CircleContour(60, 20, 2),
                       CircleContour(80, 20, 3)});
  const std::vector<DrawingPart> parts = FindParts(nested.contours);
  ASSERT_EQ(Outers(parts), (Indices{2, 1}));
  EXPECT_EQ(parts[0].cutOuts, (Indices{3, 4}));
  EXPECT_EQ(parts[1].cutOuts, (Indices{0}));
}

TEST(FindParts, PutsTheEarlierOfEqualPartsFirst) {
  const Nested nested({RectangleContour(20, 0, 30, 10), RectangleContour(-20, 0, 0, 20),
                       RectangleContour(60, 0, 70, 10), RectangleContour(40, 0, 50, 10)});
  EXPECT_EQ(Outers(FindParts(nested.contours)), (Indices{1, 0, 2, 3}));
}

TEST(FindParts, OrdersByTheOuterContourAlone) {
  // The larger plate has less material than the smaller one.
  const Nested nested({RectangleContour(0, 0, 20, 20), RectangleContour(50, 0, 80, 30),
                       RectangleContour(51, 1, 79, 29)});
  const std::vector<DrawingPart> parts = FindParts(nested.contours);
  ASSERT_EQ(Outers(parts), (Indices{1, 0}));
  EXPECT_LT(parts[0].area, parts[1].area);
}

TEST(FindParts, LeavesOutContoursThatCoincide) {
  const Nested nested({CircleContour(0, 0, 50), CircleContour(0, 0, 50), CircleContour(10, 0, 5),
                       CircleContour(10, 0, 5), CircleContour(10, 0, 2)});
  const std::vector<DrawingPart> parts = FindParts(nested.contours);
  ASSERT_EQ(Outers(parts), (Indices{0, 4}));
  EXPECT_EQ(parts[0].cutOuts, (Indices{2}));
  EXPECT_EQ(parts[0].pierces, 2u);
  EXPECT_NEAR(parts[0].area, (2500 - 25) * kPi, 1e-9);
  EXPECT_EQ(parts[1].islandIn, 0u);
}

TEST(FindParts, LeavesOutWhatIsNoContour) {
  const Nested nested({RectangleContour(0, 0, 100, 60), {LineSide({10, 10}, {20, 10})}});
  const std::vector<DrawingPart> parts = FindParts(nested.contours);
  ASSERT_EQ(parts.size(), 1u);
  EXPECT_TRUE(parts[0].cutOuts.empty());
}

TEST(FindParts, KeepsContoursThatCrossBesideEachOther) {
  const Nested outside({RectangleContour(0, 0, 100, 60), RectangleContour(80, 20, 120, 40)});
  EXPECT_EQ(Outers(FindParts(outside.contours)), (Indices{0, 1}));
  const Nested inside({RectangleContour(0, 0, 100, 60), RectangleContour(10, 10, 40, 30),
                       RectangleContour(30, 5, 50, 20)});
  const std::vector<DrawingPart> parts = FindParts(inside.contours);
  ASSERT_EQ(parts.size(), 1u);
  EXPECT_EQ(parts[0].cutOuts, (Indices{1, 2}));
}

TEST(FindParts, MeasuresByExactFigures) {
  // A slot so small that the library has no sweep for its ends: radius 0.005, 0.02 long.
  const Nested nested({support::SlotContour({0, 0}, 0.02, 0.005, 0.0)});
  const std::vector<DrawingPart> parts = FindParts(nested.contours);
  ASSERT_EQ(parts.size(), 1u);
  EXPECT_NEAR(parts[0].area, 0.02 * 0.01 + 0.005 * 0.005 * kPi, 1e-12);
  EXPECT_NEAR(parts[0].perimeter, 0.04 + 0.01 * kPi, 1e-12);
}

}  // namespace
