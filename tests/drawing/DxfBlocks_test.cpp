// What comes out of blocks: where it lies, what it is, and what it is called.
#include "BlockSketch.h"
#include "drawing/DxfReader.h"
#include "support/DxfText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace drawing {
namespace {

using support::ArcAt;
using support::ExpectLine;
using support::kLineBlock;
using support::ReadWithBlocks;

// ---- where things lie

TEST(Insert, MovesItsBlockByTheInsertionPointLessTheBasePoint) {
  const Drawing drawing = ReadWithBlocks(
      "0 BLOCK 2 B 10 1 20 2 0 LINE 10 1 20 2 11 4 21 6 0 ENDBLK", "0 INSERT 2 B 10 10 20 20");
  ASSERT_EQ(drawing.elements.size(), 1u);
  ExpectLine(drawing, 0, 10, 20, 13, 24);
  EXPECT_TRUE(drawing.complaints.empty());
}

TEST(Insert, ScalesThenTurnsThenMoves) {
  // (1, 0) and (3, 0): by 2 to (2, 0) and (6, 0), by 90 degrees to (0, 2) and (0, 6), then moved.
  const Drawing drawing = ReadWithBlocks(kLineBlock, "0 INSERT 2 L 10 5 20 7 41 2 42 3 50 90");
  ExpectLine(drawing, 0, 5, 9, 5, 13);
}

TEST(Insert, TurnedByRightAnglesLeavesCoordinatesExact) {
  const Drawing drawing =
      ReadWithBlocks(kLineBlock,
                     "0 INSERT 2 L 10 0.1 20 0.2 50 180 0 INSERT 2 L 10 0.1 20 0.2 50 "
                     "-90 0 INSERT 2 L 10 0.1 20 0.2 50 450");
  ExpectLine(drawing, 0, -1 + 0.1, 0.2, -3 + 0.1, 0.2);
  ExpectLine(drawing, 1, 0.1, -1 + 0.2, 0.1, -3 + 0.2);
  ExpectLine(drawing, 2, 0.1, 1 + 0.2, 0.1, 3 + 0.2);
}

TEST(Insert, WithANegativeScaleMirrors) {
  const Drawing drawing = ReadWithBlocks("0 BLOCK 2 Q 0 ARC 10 0 20 0 40 2 50 0 51 90 0 ENDBLK",
                                         "0 INSERT 2 Q 10 0 20 0 41 -1");
  GX2DArc& arc = ArcAt(drawing, 0);
  EXPECT_EQ(arc.GetStartPoint().X, -2.0);
  EXPECT_EQ(arc.GetStartPoint().Y, 0.0);
  EXPECT_EQ(arc.GetEndPoint().X, 0.0);
  EXPECT_EQ(arc.GetEndPoint().Y, 2.0);
  EXPECT_NEAR(arc.Mid.X, -std::sqrt(2.0), 1.0e-15);
  EXPECT_NEAR(arc.Mid.Y, std::sqrt(2.0), 1.0e-15);
  EXPECT_EQ(drawing.curves.curves, 0u);
}

TEST(Insert, SeenFromBelowMirrorsItsPointToo) {
  // In its own coordinates from (5 + 1, 7) to (5 + 3, 7); x of these points against x.
  const Drawing drawing = ReadWithBlocks(kLineBlock, "0 INSERT 2 L 10 5 20 7 230 -1");
  ExpectLine(drawing, 0, -6, 7, -8, 7);
}

TEST(Insert, SeenFromBelowTurnsTheOtherWay) {
  const Drawing drawing = ReadWithBlocks(kLineBlock, "0 INSERT 2 L 10 5 20 7 50 90 230 -1");
  ExpectLine(drawing, 0, -5, 8, -5, 10);
}

TEST(Insert, RepeatsInRowsAndColumnsThatTurnWithItAndAreNotScaled) {
  // Turned by 90 degrees the columns go up by 10 and the rows to the left by 100.
  const Drawing drawing =
      ReadWithBlocks(kLineBlock, "0 INSERT 2 L 10 0 20 0 41 2 42 2 50 90 70 2 71 2 44 10 45 100");
  ASSERT_EQ(drawing.elements.size(), 4u);
  ExpectLine(drawing, 0, 0, 2, 0, 6);
  ExpectLine(drawing, 1, 0, 12, 0, 16);
  ExpectLine(drawing, 2, -100, 2, -100, 6);
  ExpectLine(drawing, 3, -100, 12, -100, 16);
}

TEST(Insert, WithoutADistanceBetweenItsColumnsHasOne) {
  const Drawing drawing = ReadWithBlocks(kLineBlock, "0 INSERT 2 L 10 0 20 0 70 5 71 3 45 2");
  EXPECT_EQ(drawing.elements.size(), 3u);
}

TEST(Insert, OfANestMapsByTheInnermostFirst) {
  // (1, 0) -> doubled (2, 0) -> moved (12, 0) -> turned (0, 12) -> moved (100, 12).
  const Drawing drawing = ReadWithBlocks(
      std::string("0 BLOCK 2 O 0 INSERT 2 L 10 10 20 0 41 2 42 2 0 ENDBLK") + kLineBlock,
      "0 INSERT 2 O 10 100 20 0 50 90");
  ExpectLine(drawing, 0, 100, 12, 100, 16);
  ASSERT_EQ(drawing.entities.size(), 1u);
  EXPECT_EQ(drawing.entities[0].block, "O / L");
}

TEST(Insert, ComesInMillimetres) {
  const Drawing drawing = ReadDrawingText(
      support::Lines(
          std::string("0 SECTION 2 HEADER 9 $INSUNITS 70 1 0 ENDSEC 0 SECTION 2 BLOCKS") +
          kLineBlock +
          "0 ENDSEC 0 SECTION 2 ENTITIES 0 INSERT 2 L 10 1 20 1 0 ENDSEC 0 "
          "EOF"),
      "a.dxf");
  ExpectLine(drawing, 0, 50.8, 25.4, 101.6, 25.4);
}

TEST(Insert, ThatLiftsItsBlockIsToldOf) {
  const Drawing drawing = ReadWithBlocks(kLineBlock, "0 INSERT 2 L 10 0 20 0 30 5");
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].what, "1 entity has a height other than z = 0, here");
}

TEST(Insert, MayBringTheHeightsOfItsBlockBackToZero) {
  EXPECT_TRUE(ReadWithBlocks("0 BLOCK 2 B 30 4 0 LINE 10 0 20 0 30 6 11 1 21 0 31 6 0 ENDBLK",
                             "0 INSERT 2 B 10 0 20 0 30 -6 43 3")  // -6 + 3 (6 - 4)
                  .complaints.empty());
}

TEST(Insert, LiftsWhatIsSeenFromBelowTheRightWay) {
  // Seen from below 5 is -5, and lifted by 5 it is 0; lifted by -5 it is -10.
  const std::string block =
      "0 BLOCK 2 B 0 CIRCLE 10 0 20 0 30 5 40 1 210 0 220 0 230 -1 0 LWPOLYLINE 90 2 38 5 10 0 20 "
      "0 "
      "10 9 20 0 210 0 220 0 230 -1 0 ENDBLK";
  EXPECT_TRUE(ReadWithBlocks(block, "0 INSERT 2 B 10 0 20 0 30 5").complaints.empty());
  const Drawing lowered = ReadWithBlocks(block, "0 INSERT 2 B 10 0 20 0 30 -5");
  ASSERT_EQ(lowered.complaints.size(), 1u);
  EXPECT_EQ(lowered.complaints[0].what,
            "2 entities have heights other than z = 0, the first one here");
}

TEST(Insert, ThatBringsOnlyOneEndOfALineToZeroIsToldOf) {
  const Drawing drawing = ReadWithBlocks(
      "0 BLOCK 2 B 0 LINE 10 0 20 0 30 0 11 1 21 0 31 5 0 ENDBLK", "0 INSERT 2 B 10 0 20 0 30 -5");
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].what, "1 entity has a height other than z = 0, here");
}

// ---- what becomes of entities

TEST(BlockEntities, StayCirclesUnderAnEvenScale) {
  const Drawing drawing = ReadWithBlocks("0 BLOCK 2 C 0 CIRCLE 10 1 20 0 40 1 0 ENDBLK",
                                         "0 INSERT 2 C 10 0 20 0 41 3 42 -3 50 30");
  GX2DArc& circle = ArcAt(drawing, 0);
  // (1, 0) by 3, turned by 30 degrees.
  EXPECT_NEAR(circle.Center.X, 3.0 * std::sqrt(0.75), 1.0e-15);
  EXPECT_NEAR(circle.Center.Y, 1.5, 1.0e-15);
  EXPECT_NEAR(circle.Radius(), 3.0, 1.0e-15);
  EXPECT_EQ(circle.GetStartPoint().X, circle.GetEndPoint().X);
  EXPECT_EQ(drawing.curves.curves, 0u);
}

// Length and box of an ellipse with half axes a along x and b along y.
void ExpectEllipse(const Drawing& drawing, double a, double b) {
  double length = 0.0;
  double top = 0.0;
  double right = 0.0;
  for (const DrawnElement& drawn : drawing.elements) {
    length += drawn.element->Len();
    right = std::max(right, std::fabs(drawn.element->GetStartPoint().X));
    top = std::max(top, std::fabs(drawn.element->GetStartPoint().Y));
    GX2DPoint middle;
    ASSERT_TRUE(drawn.element->GetParametricPoint(middle, 0.5));
    const double x = middle.X / a;
    const double y = middle.Y / b;
    // 0.01 mm aside is 0.01 / b of the value's root, at most.
    EXPECT_NEAR(std::hypot(x, y), 1.0, 0.011 / std::min(a, b));
  }
  // Ramanujan's second formula, which is off by less than 1e-7 here.
  const double h = (a - b) * (a - b) / ((a + b) * (a + b));
  const double expected =
      3.14159265358979 * (a + b) * (1.0 + 3.0 * h / (10.0 + std::sqrt(4.0 - 3.0 * h)));
  EXPECT_NEAR(length, expected, 0.02);
  EXPECT_LE(right, a + 0.011);
  EXPECT_LE(top, b + 0.011);
}

TEST(BlockEntities, BecomeEllipsesUnderAnUnevenScale) {
  const Drawing circle = ReadWithBlocks("0 BLOCK 2 C 0 CIRCLE 10 0 20 0 40 10 0 ENDBLK",
                                        "0 INSERT 2 C 10 0 20 0 41 2 42 1");
  ExpectEllipse(circle, 20.0, 10.0);
  EXPECT_EQ(circle.curves.curves, 1u);
  EXPECT_LE(circle.curves.largestDeviation, 0.01);
  // Two half circles of a polyline.
  const Drawing sides = ReadWithBlocks(
      "0 BLOCK 2 C 0 LWPOLYLINE 90 2 70 1 10 -10 20 0 42 1 10 10 20 0 42 1 0 "
      "ENDBLK",
      "0 INSERT 2 C 10 0 20 0 41 1 42 3");
  ExpectEllipse(sides, 10.0, 30.0);
  EXPECT_EQ(sides.curves.curves, 2u);
  EXPECT_EQ(sides.entities.size(), 1u);
}

TEST(BlockEntities, KeepEndsOfArcsUnderAnUnevenScale) {
  const Drawing drawing = ReadWithBlocks("0 BLOCK 2 Q 0 ARC 10 0 20 0 40 10 50 0 51 90 0 ENDBLK",
                                         "0 INSERT 2 Q 10 1 20 2 41 2 42 -1");
  ASSERT_FALSE(drawing.elements.empty());
  const GX2DPoint start = drawing.elements.front().element->GetStartPoint();
  const GX2DPoint end = drawing.elements.back().element->GetEndPoint();
  EXPECT_NEAR(start.X, 21.0, 1.0e-9);
  EXPECT_NEAR(start.Y, 2.0, 1.0e-9);
  EXPECT_NEAR(end.X, 1.0, 1.0e-9);
  EXPECT_NEAR(end.Y, -8.0, 1.0e-9);
}

TEST(BlockEntities, BecomeCirclesAgainWhereTwoUnevenScalesCancel) {
  const Drawing drawing = ReadWithBlocks(
      "0 BLOCK 2 O 0 INSERT 2 C 10 0 20 0 41 0.5 0 ENDBLK "
      "0 BLOCK 2 C 0 CIRCLE 10 0 20 0 40 10 0 ENDBLK",
      "0 INSERT 2 O 10 0 20 0 41 2");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(ArcAt(drawing, 0).Radius(), 10.0);
  EXPECT_EQ(drawing.curves.curves, 0u);
}

TEST(BlockEntities, AreShearedByATurnBetweenUnevenScales) {
  // Turned by 45 degrees and then stretched by 3 along x, the unit directions become
  // (3, 1) / sqrt 2 and (-3, 1) / sqrt 2: still the circle of radius 5, stretched to 15 by 5.
  const Drawing drawing = ReadWithBlocks(
      "0 BLOCK 2 O 0 INSERT 2 C 10 0 20 0 50 45 0 ENDBLK "
      "0 BLOCK 2 C 0 CIRCLE 10 0 20 0 40 5 0 ENDBLK",
      "0 INSERT 2 O 10 0 20 0 41 3");
  ExpectEllipse(drawing, 15.0, 5.0);
}

TEST(BlockEntities, StayLinesUnderAnyScale) {
  const Drawing drawing =
      ReadWithBlocks("0 BLOCK 2 P 0 LWPOLYLINE 90 3 10 0 20 0 10 1 20 1 10 2 20 0 0 ENDBLK",
                     "0 INSERT 2 P 10 0 20 0 41 10 42 2");
  ASSERT_EQ(drawing.elements.size(), 2u);
  ExpectLine(drawing, 0, 0, 0, 10, 2);
  ExpectLine(drawing, 1, 10, 2, 20, 0);
  EXPECT_EQ(drawing.curves.curves, 0u);
}

TEST(BlockEntities, OfEllipsesAreMapped) {
  // 2 by 1 becomes a circle of radius 2 where y is doubled.
  const Drawing drawing =
      ReadWithBlocks("0 BLOCK 2 E 0 ELLIPSE 10 0 20 0 11 2 21 0 40 0.5 0 ENDBLK",
                     "0 INSERT 2 E 10 0 20 0 41 5 42 10");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_NEAR(ArcAt(drawing, 0).Radius(), 10.0, 0.0001);
  EXPECT_EQ(drawing.curves.circles, 1u);
}

TEST(BlockEntities, OfSplinesAreMappedByTheirControlPoints) {
  // A quarter of the unit circle as a rational parabola: weights must survive the scale of 8.
  const Drawing drawing = ReadWithBlocks(
      "0 BLOCK 2 S 0 SPLINE 70 4 71 2 72 6 73 3 40 0 40 0 40 0 40 1 40 1 40 1 41 1 41 "
      "0.70710678118654752 41 1 10 1 20 0 10 1 20 1 10 0 20 1 0 ENDBLK",
      "0 INSERT 2 S 10 0 20 0 41 8 42 8 50 90");
  ASSERT_EQ(drawing.elements.size(), 1u);
  GX2DArc& arc = ArcAt(drawing, 0);
  EXPECT_NEAR(arc.Radius(), 8.0, 0.0001);
  EXPECT_NEAR(arc.GetStartPoint().Y, 8.0, 1.0e-9);
  EXPECT_NEAR(arc.GetEndPoint().X, -8.0, 1.0e-9);
}

TEST(BlockEntities, OfSplinesThroughPointsAreMappedAsDrawn) {
  // The middle of a free spline through three points is the second one.
  const Drawing drawing =
      ReadWithBlocks("0 BLOCK 2 S 0 SPLINE 71 3 74 3 11 0 21 0 11 1 21 2 11 2 21 0 0 ENDBLK",
                     "0 INSERT 2 S 10 5 20 0 41 10 42 1");
  double nearest = 1.0e9;
  for (const DrawnElement& drawn : drawing.elements) {
    const GX2DPoint end = drawn.element->GetEndPoint();
    nearest = std::min(nearest, std::hypot(end.X - 15.0, end.Y - 2.0));
  }
  EXPECT_LE(nearest, 0.5);
  EXPECT_NEAR(drawing.elements.back().element->GetEndPoint().X, 25.0, 1.0e-9);
}

TEST(BlockEntities, OfOtherTypesAreCountedAsNotUsable) {
  const Drawing drawing = ReadWithBlocks(
      "0 BLOCK 2 T 0 TEXT 1 x 0 ATTDEF 1 y 0 POLYLINE 70 64 0 VERTEX 10 0 20 0 "
      "0 SEQEND 0 ENDBLK",
      "0 INSERT 2 T 10 0 20 0 0 INSERT 2 T 10 0 20 0");
  EXPECT_EQ(drawing.unusedByType,
            (std::map<std::string, int>{{"ATTDEF", 2}, {"POLYLINE (mesh)", 2}, {"TEXT", 2}}));
  EXPECT_EQ(drawing.blockEntitiesByType,
            (std::map<std::string, int>{{"ATTDEF", 2}, {"POLYLINE", 2}, {"TEXT", 2}}));
  EXPECT_EQ(drawing.entitiesByType, (std::map<std::string, int>{{"INSERT", 2}}));
  EXPECT_EQ(drawing.expandedInserts, 2);
}

TEST(BlockEntities, ThatAreWrongAreRefusedEachTimeAndToldOfOnce) {
  const Drawing drawing = ReadWithBlocks("0 BLOCK 2 W 0 CIRCLE 5 7 10 0 20 0 40 -1 0 ENDBLK",
                                         "0 INSERT 2 W 10 0 20 0 0 INSERT 2 W 10 0 20 0");
  EXPECT_EQ(drawing.refusedByType, (std::map<std::string, int>{{"CIRCLE", 2}}));
  ASSERT_EQ(drawing.complaints.size(), 2u);  // The other one: no element.
  EXPECT_EQ(ToLine(drawing.complaints[1]),
            "a.dxf:24: error: CIRCLE 7: its radius is not above 0 (in block \"W\"); not used");
}

TEST(BlockEntities, BelongToTheSpaceOfTheirInsert) {
  const std::string block = "0 BLOCK 2 B 0 LINE 67 1 10 0 20 0 11 1 21 0 0 ENDBLK";
  const Drawing used = ReadWithBlocks(block, "0 INSERT 2 B 10 0 20 0");
  EXPECT_EQ(used.elements.size(), 1u);
  EXPECT_TRUE(used.paperSpaceByType.empty());
  const Drawing left = ReadWithBlocks(block, "0 INSERT 67 1 2 B 10 0 20 0");
  EXPECT_TRUE(left.elements.empty());
  EXPECT_EQ(left.paperSpaceByType, (std::map<std::string, int>{{"INSERT", 1}}));
}

TEST(BlockEntities, TellWhereTheyComeFrom) {
  const Drawing drawing = ReadWithBlocks(kLineBlock, "0 INSERT 5 B0 2 l 10 0 20 0");
  ASSERT_EQ(drawing.entities.size(), 1u);
  EXPECT_EQ(drawing.entities[0].block, "L");
  EXPECT_EQ(drawing.entities[0].type, "LINE");
  EXPECT_EQ(drawing.entities[0].handle, "AA");
  EXPECT_EQ(drawing.entities[0].line, 28u);
  EXPECT_EQ(drawing.entities[0].insertLine, 48u);
}

TEST(BlockEntities, TakeLayerColourAndLinetypeFromTheInsert) {
  const char* const blocks =
      "0 BLOCK 2 B 0 LINE 8 0 62 0 6 ByBlock 10 0 20 0 11 1 21 0 0 LINE 8 own 62 5 6 DOT 10 0 20 0 "
      "11 1 21 0 0 LINE 8 0 10 0 20 0 11 1 21 0 0 ENDBLK";
  const Drawing drawing = ReadWithBlocks(blocks, "0 INSERT 2 B 8 cut 62 3 6 DASHED 10 0 20 0");
  ASSERT_EQ(drawing.entities.size(), 3u);
  EXPECT_EQ(drawing.entities[0].layer, "cut");
  EXPECT_EQ(drawing.entities[0].colour, 3);
  EXPECT_EQ(drawing.entities[0].linetype, "DASHED");
  EXPECT_EQ(drawing.entities[1].layer, "own");
  EXPECT_EQ(drawing.entities[1].colour, 5);
  EXPECT_EQ(drawing.entities[1].linetype, "DOT");
  EXPECT_EQ(drawing.entities[2].colour, 256);
  EXPECT_EQ(drawing.entities[2].linetype, "BYLAYER");
  EXPECT_EQ(drawing.entitiesByLayer, (std::map<std::string, int>{{"cut", 3}, {"own", 1}}));
}

TEST(BlockEntities, TakeThemThroughANest) {
  const Drawing drawing = ReadWithBlocks(
      "0 BLOCK 2 O 0 INSERT 2 I 8 0 62 0 6 BYBLOCK 10 0 20 0 0 ENDBLK 0 BLOCK 2 "
      "I 0 LINE 62 0 6 BYBLOCK 10 0 20 0 11 1 21 0 0 ENDBLK",
      "0 INSERT 2 O 8 cut 62 3 6 DASHED 10 0 20 0");
  ASSERT_EQ(drawing.entities.size(), 1u);
  EXPECT_EQ(drawing.entities[0].layer, "cut");
  EXPECT_EQ(drawing.entities[0].colour, 3);
  EXPECT_EQ(drawing.entities[0].linetype, "DASHED");
}

TEST(BlockEntities, OfLengthZeroAreRememberedWhereTheyLie) {
  const Drawing drawing = ReadWithBlocks("0 BLOCK 2 Z 0 LINE 10 1 20 1 11 1 21 1 0 ENDBLK",
                                         "0 INSERT 2 Z 10 5 20 0 41 2 42 2");
  ASSERT_EQ(drawing.zeroLength.size(), 1u);
  EXPECT_EQ(drawing.zeroLength[0].place.X, 7.0);
  EXPECT_EQ(drawing.zeroLength[0].place.Y, 2.0);
  EXPECT_EQ(drawing.zeroLength[0].entity.block, "Z");
}

// ---- what blocks are found

TEST(Blocks, AreFoundWithoutRegardToCaseAndBehindTheEntities) {
  const Drawing drawing = ReadDrawingText(
      support::Lines(
          std::string("0 SECTION 2 HEADER 9 $INSUNITS 70 4 0 ENDSEC 0 SECTION 2 ENTITIES "
                      "0 INSERT 2 l 10 0 20 0 0 ENDSEC 0 SECTION 2 BLOCKS") +
          kLineBlock + "0 ENDSEC 0 EOF"),
      "a.dxf");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_TRUE(drawing.complaints.empty());
}

TEST(Blocks, OutsideOfSectionsAreFound) {
  const Drawing drawing = ReadDrawingText(
      support::Lines(std::string(kLineBlock) + "0 INSERT 2 L 10 0 20 0 0 EOF"), "a.dxf");
  EXPECT_EQ(drawing.elements.size(), 1u);
}

TEST(Blocks, DefinedTwiceCountTheFirstTime) {
  const Drawing drawing =
      ReadWithBlocks(std::string(kLineBlock) + "0 BLOCK 2 l 0 LINE 10 0 20 0 11 5 21 5 0 ENDBLK",
                     "0 INSERT 2 L 10 0 20 0");
  ASSERT_EQ(drawing.elements.size(), 1u);
  ExpectLine(drawing, 0, 1, 0, 3, 0);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(ToLine(drawing.complaints[0]),
            "a.dxf:42: warning: BLOCK: \"l\" is defined already in line 20; the first definition "
            "counts");
}

TEST(Blocks, WithoutANameAreToldOf) {
  const Drawing drawing = ReadWithBlocks("0 BLOCK 10 0 20 0 0 LINE 10 0 20 0 11 5 21 5 0 ENDBLK",
                                         "0 LINE 10 0 20 0 11 1 21 0");
  EXPECT_EQ(drawing.elements.size(), 1u);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(ToLine(drawing.complaints[0]),
            "a.dxf:20: error: BLOCK: it has no name; what stands in it is not used");
}

TEST(Blocks, WithoutAnEndEndWithTheNextOne) {
  const Drawing drawing =
      ReadWithBlocks(std::string("0 BLOCK 2 A 0 LINE 10 0 20 0 11 5 21 5") + kLineBlock,
                     "0 INSERT 2 A 10 0 20 0 0 INSERT 2 L 10 0 20 0");
  ASSERT_EQ(drawing.elements.size(), 2u);
  ExpectLine(drawing, 0, 0, 0, 5, 5);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].what, "the block before is not ended by ENDBLK");
}

TEST(Blocks, CutOffWithTheFileAreUsedAsFarAsTheyGo) {
  const Drawing drawing = ReadDrawingText(
      support::Lines(
          "0 SECTION 2 ENTITIES 0 INSERT 2 A 10 0 20 0 0 ENDSEC 0 SECTION 2 BLOCKS 0 BLOCK "
          "2 A 0 LINE 10 0 20 0 11 5 21 5 0 LINE 10 0 20 0 11 5"),
      "a.dxf");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(drawing.refusedByType.at("LINE"), 1);
}

TEST(Blocks, CutOffWithinAVertexRefuseThePolyline) {
  const Drawing drawing = ReadDrawingText(
      support::Lines(
          "0 SECTION 2 ENTITIES 0 INSERT 2 A 10 0 20 0 0 ENDSEC 0 SECTION 2 BLOCKS 0 BLOCK "
          "2 A 0 POLYLINE 66 1 0 VERTEX 10 0 20 0 0 VERTEX 10 5 20 0 0 VERTEX 10 5 20 7"),
      "a.dxf");
  EXPECT_TRUE(drawing.elements.empty());
  EXPECT_EQ(drawing.refusedByType.at("POLYLINE"), 1);
}

TEST(Blocks, WithLongNamesThatDifferAtTheirEndAreTwo) {
  // 200 characters of two bytes and one more: all of it counts.
  std::string name;
  for (int i = 0; i < 200; ++i) name += "ß";
  const Drawing drawing =
      ReadWithBlocks("0 BLOCK 2 " + name + "a 0 LINE 10 0 20 0 11 1 21 0 0 ENDBLK 0 BLOCK 2 " +
                         name + "b 0 LINE 10 0 20 0 11 2 21 0 0 ENDBLK",
                     "0 INSERT 2 " + name + "b 10 0 20 0");
  ASSERT_EQ(drawing.elements.size(), 1u);
  ExpectLine(drawing, 0, 0, 0, 2, 0);
  EXPECT_EQ(drawing.entities[0].block, name + "b");
}

TEST(Blocks, DamagedInsideAreUsedUpToTheDamageAndBehindIt) {
  const Drawing drawing = ReadWithBlocks(
      "0 BLOCK 2 A 0 LINE 10 0 20 0 11 5 21 5 0 LINE 10 0 x 20 0 11 1 0 LINE 10 0 20 0 11 2 21 0 "
      "0 ENDBLK",
      "0 INSERT 2 A 10 0 20 0");
  ASSERT_EQ(drawing.elements.size(), 2u);
  ExpectLine(drawing, 1, 0, 0, 2, 0);
  EXPECT_EQ(drawing.refusedByType.at("LINE"), 1);
}

TEST(Blocks, ThatAreEmptyAreANote) {
  const Drawing drawing =
      ReadWithBlocks("0 BLOCK 2 A 0 ENDBLK", "0 INSERT 2 A 10 0 20 0 70 32767 71 32767 44 1 45 1");
  ASSERT_EQ(drawing.complaints.size(), 2u);
  EXPECT_EQ(ToLine(drawing.complaints[1]), "a.dxf:32: note: INSERT: its block \"A\" is empty");
  EXPECT_EQ(drawing.expandedInserts, 1);
}

TEST(Blocks, OfLayoutsAreCountedAsPaperSpace) {
  const Drawing drawing =
      ReadWithBlocks("0 BLOCK 2 *Paper_Space0 0 LINE 10 0 20 0 11 1 21 0 0 TEXT 1 x 0 ENDBLK",
                     "0 LINE 10 0 20 0 11 1 21 0");
  EXPECT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(drawing.paperSpaceByType, (std::map<std::string, int>{{"LINE", 1}, {"TEXT", 1}}));
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(ToLine(drawing.complaints[0]),
            "a.dxf: note: 2 entities in the paper space: LINE 1, TEXT 1; left out");
}

}  // namespace
}  // namespace drawing
