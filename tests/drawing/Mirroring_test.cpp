#include "drawing/Mirroring.h"

#include "PartSketch.h"
#include "drawing/CurveMeasures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

namespace {

using drawing::Drawing;
using drawing::PartModel;
using support::CircleContour;
using support::RectangleContour;

TEST(Mirrored, NegatesXOfLinesAndNothingElse) {
  Drawing drawn = support::DrawingOf({{support::LineSide({1, 2}, {-3, 4})}});
  drawn.unit.name = "inch";
  drawn.zeroLength.push_back({{}, GX2DPoint(7, 8)});
  const Drawing mirrored = drawing::Mirrored(drawn);
  ASSERT_EQ(mirrored.elements.size(), 1u);
  EXPECT_EQ(mirrored.elements[0].element->GetStartPoint(), GX2DPoint(-1, 2));
  EXPECT_EQ(mirrored.elements[0].element->GetEndPoint(), GX2DPoint(3, 4));
  EXPECT_EQ(mirrored.entities[0].layer, "CUT");
  EXPECT_EQ(mirrored.unit.name, "inch");
  EXPECT_EQ(mirrored.zeroLength[0].place.X, -7);
  // The drawing itself stays.
  EXPECT_EQ(drawn.elements[0].element->GetStartPoint(), GX2DPoint(1, 2));
  EXPECT_EQ(drawn.zeroLength[0].place.X, 7);
}

TEST(Mirrored, LeavesZeroWithoutASign) {
  const Drawing mirrored =
      drawing::Mirrored(support::DrawingOf({{support::LineSide({0, 0}, {0, 5})}}));
  EXPECT_FALSE(std::signbit(mirrored.elements[0].element->GetStartPoint().X));
}

TEST(Mirrored, TurnsTheSenseOfArcsRound) {
  for (const double sweep : {0.3, 2.0, 3.5, 6.0, -0.3, -6.0}) {
    const support::Side side = support::ArcSide({5, 1}, {2, 3}, sweep);
    const Drawing mirrored = drawing::Mirrored(support::DrawingOf({{side}}));
    auto& arc = dynamic_cast<GX2DArc&>(*mirrored.elements[0].element);
    EXPECT_NEAR(drawing::SignedSweep(arc), -sweep, 1e-12);
    EXPECT_EQ(arc.Center, GX2DPoint(-2, 3));
    // Half way along it is the mirror image of what was half way along.
    const GX2DPoint middle = support::Turned({5, 1}, {2, 3}, sweep / 2);
    EXPECT_NEAR(drawing::ArcMiddle(arc).X, -middle.X, 1e-12);
    EXPECT_NEAR(drawing::ArcMiddle(arc).Y, middle.Y, 1e-12);
  }
}

TEST(Mirrored, LeavesFullCirclesWhole) {
  const Drawing mirrored = drawing::Mirrored(support::DrawingOf({CircleContour(10, 5, 3, 0.7)}));
  const auto& circle = dynamic_cast<const GX2DArc&>(*mirrored.elements[0].element);
  EXPECT_TRUE(circle.IsCircle());
  EXPECT_EQ(circle.Center, GX2DPoint(-10, 5));
  EXPECT_NEAR(circle.Radius(), 3.0, 1e-12);
}

TEST(MirroredPart, IsThePartThatASketchTurnedOverGives) {
  const support::PartSketch sketch = {RectangleContour(0, 0, 100, 60), CircleContour(20, 20, 5)};
  const PartModel mirrored = drawing::MirroredPart(support::PartOf(sketch));
  ASSERT_TRUE(mirrored.usable) << mirrored.obstacle;
  EXPECT_EQ(mirrored.outer->source->box.minX, -100);
  EXPECT_EQ(mirrored.outer->source->box.maxX, 0);
  ASSERT_EQ(mirrored.cutOuts.size(), 1u);
  EXPECT_NEAR(mirrored.cutOuts[0]->source->box.maxX, -15, 1e-12);
}

TEST(MirroredPart, KeepsTheChoiceOfAPart) {
  const support::PartSketch sketch = {RectangleContour(0, 0, 10, 10), CircleContour(5, 5, 1),
                                      RectangleContour(50, 0, 90, 40)};
  const PartModel part = drawing::BuildPart(support::DrawingOf(sketch), 2);
  const PartModel mirrored = drawing::MirroredPart(part);
  ASSERT_TRUE(mirrored.usable) << mirrored.obstacle;
  EXPECT_EQ(mirrored.number, 2u);
  EXPECT_EQ(mirrored.outer->source, mirrored.contours[0].get());
  EXPECT_EQ(mirrored.cutOuts.size(), 1u);
}

}  // namespace
