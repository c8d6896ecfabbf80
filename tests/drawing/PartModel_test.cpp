#include "drawing/PartModel.h"

#include "PartSketch.h"
#include "drawing/CurveMeasures.h"
#include "support/Build.h"
#include "support/Near.h"

#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace {

using drawing::PartModel;
using support::CircleContour;
using support::RectangleContour;
using support::SketchContour;

constexpr double kPi = support::kPi;

double LengthAt(const GXLAContour& shape, std::size_t position) {
  return dynamic_cast<const GXLAElementSegment&>(*shape.at(position)).GetSegmentLength();
}

double AngleAt(const GXLAContour& shape, std::size_t position) {
  return dynamic_cast<const GXLAElementAngle&>(*shape.at(position)).GetAngle();
}

// Segment 2 i is of the kind and length of element i, angle 2 i + 1 lies behind it.
void ExpectInStep(const drawing::ShapedContour& contour) {
  const GXLAContour& shape = *contour.shape;
  ASSERT_EQ(shape.size(), 2 * contour.elements.size());
  const bool clockwise = shape.IsContourDirectionCW();
  for (std::size_t i = 0; i < contour.elements.size(); ++i) {
    GX2DElement& element = *contour.elements[i];
    GX2DElement& next = *contour.elements[(i + 1) % contour.elements.size()];
    const auto& segment = dynamic_cast<const GXLAElementSegment&>(*shape[2 * i]);
    EXPECT_EQ(segment.IsAnArc(), dynamic_cast<GX2DArc*>(&element) != nullptr);
    EXPECT_NEAR(segment.GetSegmentLength(), drawing::ElementLength(element), 1e-9);
    const double angle = drawing::VertexAngle(element, next, clockwise);
    EXPECT_NEAR(std::remainder(AngleAt(shape, 2 * i + 1) - angle, 2 * kPi), 0.0, 1e-9);
  }
}

TEST(ShapeContour, MergesPiecesAcrossTheSeamOfTheList) {
  // The bottom side in four pieces; the list begins with the third of them.
  const SketchContour drawn =
      support::PolygonContour({{50, 0}, {90, 0}, {100, 0}, {100, 60}, {0, 60}, {0, 0}, {20, 0}});
  const PartModel part = support::PartOf({drawn});
  ASSERT_TRUE(part.usable) << part.obstacle;
  const GXLAContour& shape = *part.outer->shape;
  ASSERT_EQ(shape.size(), 8u);
  ExpectInStep(*part.outer);
  EXPECT_EQ(shape.GetNumberOfLines(), 4);
  EXPECT_NEAR(shape.GetTotalGeometryLength(), 320.0, 1e-12);
  EXPECT_NEAR(shape.GetTotalGeometryAngle(), 2 * kPi, 1e-12);
  for (std::size_t i = 1; i < 8; i += 2) EXPECT_NEAR(AngleAt(shape, i), kPi / 2, 1e-12);
}

TEST(ShapeContour, MakesOneArcOfACircleInPieces) {
  for (const bool reversed : {false, true}) {
    SketchContour drawn = support::Split(CircleContour(3, 4, 10).front(), {0.2, 0.45, 0.9});
    if (reversed) drawn = support::Reversed(drawn);
    const PartModel part = support::PartOf({drawn});
    ASSERT_TRUE(part.usable) << part.obstacle;
    const GX2DArc* circle = drawing::AsFullCircle(part.outer->elements);
    ASSERT_NE(circle, nullptr);
    EXPECT_EQ(circle->IsClockwise(), reversed);
    ExpectInStep(*part.outer);
    EXPECT_NEAR(LengthAt(*part.outer->shape, 0), 20 * kPi, 1e-12);
    EXPECT_NEAR(AngleAt(*part.outer->shape, 1), kPi, 1e-12);
  }
}

TEST(ShapeContour, KeepsTangentVerticesBetweenLinesAndArcs) {
  const PartModel part = support::PartOf({support::SlotContour({5, 6}, 40, 8, 0.3)});
  ASSERT_TRUE(part.usable) << part.obstacle;
  EXPECT_EQ(part.outer->shape->GetNumberOfLines(), 2);
  EXPECT_EQ(part.outer->shape->GetNumberOfArcs(), 2);
  ExpectInStep(*part.outer);
}

TEST(ShapeContour, KeepsTangentVerticesBetweenArcsOfDifferentCentres) {
  // An oval of four quarter turns, radii 10 and 30 in turn, each tangent to the next.
  const double quarter = kPi / 2;
  SketchContour oval = {support::ArcSide({30, 0}, {20, 0}, quarter / 2)};
  const auto next = [&](double radius) {
    const support::Side& last = oval.back();
    const double r = std::hypot(last.end.X - last.centre.X, last.end.Y - last.centre.Y);
    const GX2DPoint centre(last.end.X + (last.centre.X - last.end.X) * radius / r,
                           last.end.Y + (last.centre.Y - last.end.Y) * radius / r);
    oval.push_back(support::ArcSide(last.end, centre, quarter));
  };
  next(30);
  next(10);
  next(30);
  const support::Side& last = oval.back();
  oval.push_back({last.end, oval.front().start, {20, 0}, quarter / 2});
  const PartModel part = support::PartOf({oval});
  ASSERT_TRUE(part.usable) << part.obstacle;
  // The two halves of the first arc are one; the four quarters stay.
  EXPECT_EQ(part.outer->elements.size(), 4u);
  ExpectInStep(*part.outer);
}

TEST(ShapeContour, TellsTheDirectionOfDrawing) {
  const PartModel left = support::PartOf({RectangleContour(0, 0, 3, 2)});
  EXPECT_TRUE(left.outer->shape->IsContourDirectionCCW());
  const PartModel right = support::PartOf({support::Reversed(RectangleContour(0, 0, 3, 2))});
  EXPECT_TRUE(right.outer->shape->IsContourDirectionCW());
}

TEST(ShapeContour, MergesALongSideInAThousandPieces) {
  SketchContour drawn = RectangleContour(0, 0, 1000, 10);
  std::vector<double> shares;
  for (int i = 1; i < 1000; ++i) shares.push_back(i / 1000.0);
  SketchContour pieces = support::Split(drawn.front(), shares);
  pieces.insert(pieces.end(), drawn.begin() + 1, drawn.end());
  std::rotate(pieces.begin(), pieces.begin() + 500, pieces.end());
  const PartModel part = support::PartOf({pieces});
  ASSERT_TRUE(part.usable) << part.obstacle;
  EXPECT_EQ(part.outer->elements.size(), 4u);
  ExpectInStep(*part.outer);
}

TEST(ShapeContour, DoesNotStraightenAFinePolygonAlongACircle) {
  // 20,000 bends of 2 pi / 20,000 = 0.00031, each of them below kStraightTolerance.
  std::vector<GX2DPoint> corners;
  for (int i = 0; i < 20000; ++i) {
    corners.push_back(support::OnCircle(0, 0, 1000, 360.0 * i / 20000));
  }
  const PartModel part = support::PartOf({support::PolygonContour(corners)});
  ASSERT_TRUE(part.usable) << part.obstacle;
  EXPECT_EQ(part.outer->elements.size(), 20000u);
}

TEST(ShapeContour, LeavesTheContourOfThePartAsDrawn) {
  const SketchContour drawn = support::Split(CircleContour(3, 4, 10).front(), {0.5});
  const PartModel part = support::PartOf({drawn});
  EXPECT_EQ(part.outer->source, part.contours.front().get());
  EXPECT_EQ(part.contours.front()->elements.size(), 2u);
}

TEST(BuildPart, TakesTheContourThatHoldsTheOthersAsOuter) {
  const PartModel part = support::PartOf(
      {CircleContour(20, 20, 5), RectangleContour(0, 0, 100, 60), CircleContour(70, 30, 10)});
  ASSERT_TRUE(part.usable) << part.obstacle;
  EXPECT_EQ(part.outer->source, part.contours[1].get());
  ASSERT_EQ(part.cutOuts.size(), 2u);
  EXPECT_EQ(part.cutOuts[0]->source, part.contours[2].get());  // The longer one.
  EXPECT_EQ(part.cutOuts[1]->source, part.contours[0].get());
}

TEST(BuildPart, TakesTheLargerOfTwoContoursWithEqualBoxes) {
  const PartModel part = support::PartOf({CircleContour(5, 5, 5), RectangleContour(0, 0, 10, 10)});
  ASSERT_TRUE(part.usable) << part.obstacle;
  EXPECT_EQ(part.outer->source, part.contours[1].get());
}

TEST(BuildPart, AllowsABoxThatReachesOutByTheSlack) {
  const PartModel part = support::PartOf(
      {RectangleContour(0, 0, 100, 60), support::RectangleContour(50, 10, 100.00009, 20)});
  EXPECT_TRUE(part.usable) << part.obstacle;
  const PartModel beyond = support::PartOf(
      {RectangleContour(0, 0, 100, 60), support::RectangleContour(50, 10, 100.0003, 20)});
  EXPECT_FALSE(beyond.usable);
}

TEST(BuildPart, NamesSeveralContoursThatNoOtherOneHolds) {
  const PartModel part = support::PartOf(
      {RectangleContour(0, 0, 10, 10), RectangleContour(20, 0, 30, 12.5), CircleContour(5, 5, 1)});
  EXPECT_FALSE(part.usable);
  EXPECT_EQ(part.outer, nullptr);
  EXPECT_NE(part.obstacle.find("from (0, 0) to (10, 10) on layer CUT"), std::string::npos)
      << part.obstacle;
  EXPECT_NE(part.obstacle.find("from (20, 0) to (30, 12.5)"), std::string::npos) << part.obstacle;
  EXPECT_EQ(part.obstacle.find("(4, 4)"), std::string::npos) << part.obstacle;
}

TEST(BuildPart, SaysHowManyPartsThereAreToChooseFrom) {
  // Two plates, and an island in the hole of one.
  const PartModel part = support::PartOf({RectangleContour(0, 0, 10, 10), CircleContour(5, 5, 4),
                                          CircleContour(5, 5, 1), RectangleContour(20, 0, 30, 10)});
  EXPECT_FALSE(part.usable);
  EXPECT_EQ(part.obstacle.rfind("the drawing holds 3 parts, of which --part chooses one; ", 0), 0u)
      << part.obstacle;
  EXPECT_EQ(part.parts.size(), 3u);
}

TEST(BuildPart, TakesTheChosenPartWithItsOwnCutOuts) {
  // The second part is the smaller plate; the third is the island in the larger one's hole.
  const support::PartSketch sketch = {RectangleContour(0, 0, 20, 20),  CircleContour(5, 5, 2),
                                      RectangleContour(50, 0, 90, 40), CircleContour(70, 20, 9),
                                      CircleContour(70, 20, 3),        CircleContour(60, 5, 1)};
  const auto chosen = [&](std::size_t number) {
    return drawing::BuildPart(support::DrawingOf(sketch), number);
  };
  const PartModel first = chosen(1);
  ASSERT_TRUE(first.usable) << first.obstacle;
  EXPECT_EQ(first.number, 1u);
  EXPECT_EQ(first.outer->source, first.contours[2].get());
  ASSERT_EQ(first.cutOuts.size(), 2u);
  EXPECT_EQ(first.cutOuts[0]->source, first.contours[3].get());
  EXPECT_EQ(first.cutOuts[1]->source, first.contours[5].get());
  const PartModel second = chosen(2);
  EXPECT_EQ(second.outer->source, second.contours[0].get());
  ASSERT_EQ(second.cutOuts.size(), 1u);
  EXPECT_EQ(second.cutOuts[0]->source, second.contours[1].get());
  const PartModel third = chosen(3);
  EXPECT_EQ(third.outer->source, third.contours[4].get());
  EXPECT_TRUE(third.cutOuts.empty());
}

TEST(BuildPart, TheChosenPartGoesWithoutIslandsAndTwins) {
  const support::PartSketch sketch = {CircleContour(0, 0, 50), CircleContour(0, 0, 20),
                                      CircleContour(0, 0, 20), CircleContour(0, 0, 5)};
  EXPECT_EQ(support::PartOf(sketch).cutOuts.size(), 3u);
  const PartModel chosen = drawing::BuildPart(support::DrawingOf(sketch), 1);
  ASSERT_EQ(chosen.cutOuts.size(), 1u);
  EXPECT_EQ(chosen.cutOuts[0]->source, chosen.contours[1].get());
}

TEST(BuildPart, RefusesAPartBeyondTheLast) {
  const support::PartSketch sketch = {RectangleContour(0, 0, 10, 10),
                                      RectangleContour(20, 0, 30, 10)};
  const PartModel part = drawing::BuildPart(support::DrawingOf(sketch), 3);
  EXPECT_FALSE(part.usable);
  EXPECT_EQ(part.obstacle, "the drawing holds 2 parts");
  EXPECT_TRUE(drawing::BuildPart(support::DrawingOf(sketch), 2).usable);
  EXPECT_EQ(drawing::BuildPart(support::DrawingOf({sketch[0]}), 2).obstacle,
            "the drawing holds 1 part");
}

TEST(BuildPart, TakesEverythingInsideAsCutOutAtAnyDepth) {
  const PartModel part =
      support::PartOf({RectangleContour(0, 0, 100, 60), CircleContour(50, 30, 20),
                       CircleContour(50, 30, 10), CircleContour(10, 10, 2)});
  ASSERT_TRUE(part.usable) << part.obstacle;
  ASSERT_EQ(part.cutOuts.size(), 3u);  // From long to short.
  EXPECT_EQ(part.cutOuts[0]->source->depth, 1u);
  EXPECT_EQ(part.cutOuts[1]->source->depth, 2u);
  EXPECT_EQ(part.cutOuts[2]->source->depth, 1u);
}

TEST(BuildPart, DoesNotTakeWhatStandsInANotchForACutOut) {
  const PartModel part = support::PartOf(
      {support::PolygonContour({{0, 0}, {100, 0}, {100, 20}, {20, 20}, {20, 100}, {0, 100}}),
       CircleContour(60, 60, 30)});
  EXPECT_FALSE(part.usable);
  EXPECT_NE(part.obstacle.find("from (30, 30) to (90, 90)"), std::string::npos) << part.obstacle;
}

TEST(BuildPart, SaysWhereContoursCross) {
  const PartModel outside =
      support::PartOf({RectangleContour(0, 0, 100, 60), RectangleContour(80, 20, 120, 40)});
  EXPECT_FALSE(outside.usable);
  EXPECT_NE(outside.obstacle.find("contours 1 and 2 cross at (100, 20) and (100, 40)"),
            std::string::npos)
      << outside.obstacle;
  // Two cut-outs that cross are both in the part, and the crossing is told.
  const PartModel inside =
      support::PartOf({RectangleContour(0, 0, 100, 60), RectangleContour(10, 10, 40, 30),
                       RectangleContour(30, 0.5, 50, 20)});
  ASSERT_TRUE(inside.usable) << inside.obstacle;
  EXPECT_EQ(inside.cutOuts.size(), 2u);
  ASSERT_EQ(inside.crossings.size(), 1u);
  EXPECT_EQ(inside.crossings[0].first, 1u);
  EXPECT_EQ(inside.crossings[0].second, 2u);
}

TEST(BuildPart, AnOutlineThatIsDrawnTwiceIsOneOutline) {
  const PartModel part =
      support::PartOf({RectangleContour(0, 0, 100, 60), RectangleContour(0, 0, 100, 60)});
  // The eight sides hang together: every corner is a junction.
  EXPECT_FALSE(part.usable);
  const PartModel round = support::PartOf({CircleContour(0, 0, 50), CircleContour(0, 0, 50)});
  ASSERT_TRUE(round.usable) << round.obstacle;
  EXPECT_EQ(round.outer->source, round.contours[0].get());
  ASSERT_EQ(round.cutOuts.size(), 1u);
  EXPECT_EQ(round.cutOuts[0]->source->coincidesWith, 0u);
}

TEST(BuildPart, NamesOnlySomeOfVeryMany) {
  support::PartSketch many;
  for (int i = 0; i < 500; ++i) many.push_back(CircleContour(10.0 * i, 0, 1));
  const PartModel part = support::PartOf(many);
  EXPECT_FALSE(part.usable);
  EXPECT_LT(part.obstacle.size(), 600u);
  EXPECT_NE(part.obstacle.find("and more"), std::string::npos);
}

TEST(BuildPart, SaysWhereThereIsNoClosedContour) {
  const PartModel part = support::PartOf({{support::LineSide({1, 2}, {3, 4.5})}});
  EXPECT_FALSE(part.usable);
  EXPECT_NE(part.obstacle.find("no closed contour"), std::string::npos);
  EXPECT_NE(part.obstacle.find("(3, 4.5)"), std::string::npos) << part.obstacle;
  const PartModel nothing = support::PartOf({});
  EXPECT_FALSE(nothing.usable);
  EXPECT_EQ(nothing.obstacle, "no closed contour in the drawing");
}

TEST(BuildPart, PassesOnWhyADrawingIsNotUsable) {
  drawing::Drawing refused;
  refused.refusal = "it is a binary DXF";
  const PartModel part = drawing::BuildPart(std::move(refused));
  EXPECT_FALSE(part.usable);
  EXPECT_EQ(part.obstacle, "it is a binary DXF");
}

TEST(BuildPart, LeavesOpenNetworksOutOfThePart) {
  const PartModel part =
      support::PartOf({RectangleContour(0, 0, 100, 60), {support::LineSide({-50, 5}, {40, 5})}});
  ASSERT_TRUE(part.usable) << part.obstacle;
  EXPECT_TRUE(part.cutOuts.empty());
  ASSERT_EQ(part.contours.size(), 2u);
  EXPECT_FALSE(part.contours[1]->usable);
}

}  // namespace
