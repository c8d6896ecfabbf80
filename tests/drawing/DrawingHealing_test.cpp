#include "drawing/DrawingHealing.h"

#include "DrawingSketch.h"
#include "drawing/CurveMeasures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace drawing {
namespace {

using support::AddArc;
using support::AddCircle;
using support::AddLine;

constexpr double kPi = 3.14159265358979323846;

HealedDrawing Heal(const Drawing& drawing, double gap = 0.1, bool cleanUp = true) {
  HealOptions options;
  options.gap = gap;
  options.cleanUp = cleanUp;
  return HealDrawing(drawing, options);
}

std::vector<ChangeKind> KindsOf(const HealedDrawing& healed) {
  std::vector<ChangeKind> kinds;
  for (const Change& change : healed.changes) kinds.push_back(change.kind);
  return kinds;
}

bool HasNote(const HealedDrawing& healed, const std::string& text) {
  return std::any_of(healed.notes.begin(), healed.notes.end(),
                     [&](const std::string& note) { return note.find(text) != std::string::npos; });
}

using Kinds = std::vector<ChangeKind>;

TEST(HealDrawing, OfNothingIsNothing) {
  Drawing drawing;
  drawing.usable = true;
  const HealedDrawing healed = Heal(drawing);
  EXPECT_TRUE(healed.changes.empty());
  EXPECT_TRUE(healed.notes.empty());
  EXPECT_TRUE(healed.drawing.elements.empty());
}

TEST(HealDrawing, LeavesACleanContourToTheLastDigit) {
  Drawing drawing;
  // Apart by what reading figures of twelve digits leaves.
  AddLine(drawing, 0, 0, 100.000000000013, 0);
  AddLine(drawing, 100, 0, 100, 50.00000000002);
  AddLine(drawing, 100, 50, 0, 0);
  const HealedDrawing healed = Heal(drawing);
  EXPECT_TRUE(healed.changes.empty());
  ASSERT_EQ(healed.drawing.elements.size(), 3u);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_TRUE(healed.drawing.elements[i].element->GetStartPoint() ==
                drawing.elements[i].element->GetStartPoint());
    EXPECT_TRUE(healed.drawing.elements[i].element->GetEndPoint() ==
                drawing.elements[i].element->GetEndPoint());
  }
  EXPECT_NEAR(healed.after.area, 2500.0, 1e-6);
}

TEST(HealDrawing, ClosesASquareWhoseCornersAreShort) {
  // Each side is 0.05 short at each end, so the ends are 0.05 times the root of two apart.
  Drawing drawing;
  AddLine(drawing, 0.05, 0, 9.95, 0);
  AddLine(drawing, 10, 9.95, 10, 0.05);
  AddLine(drawing, 0.05, 10, 9.95, 10);
  AddLine(drawing, 0, 0.05, 0, 9.95);
  const HealedDrawing healed = Heal(drawing);
  EXPECT_EQ(KindsOf(healed),
            (Kinds{ChangeKind::kEndsJoined, ChangeKind::kEndsJoined, ChangeKind::kEndsJoined,
                   ChangeKind::kEndsJoined, ChangeKind::kPutInOrder}));
  EXPECT_EQ(healed.before.closed, 0u);
  EXPECT_EQ(healed.before.open, 4u);
  EXPECT_EQ(healed.after.closed, 1u);
  EXPECT_NEAR(healed.after.area, 100.0, 1e-12);
  EXPECT_NEAR(healed.after.perimeter, 40.0, 1e-12);
  EXPECT_NEAR(healed.largestMovement, 0.05, 1e-14);
  ASSERT_EQ(healed.contours.size(), 1u);
  EXPECT_TRUE(healed.contours[0]->usable);
}

TEST(HealDrawing, BridgesNothingBeyondTheGap) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10, 0, 10, 10);
  AddLine(drawing, 10, 10, 0, 0.25);
  const HealedDrawing healed = Heal(drawing, 0.2);
  EXPECT_TRUE(healed.changes.empty());
  ASSERT_EQ(healed.stillOpen.size(), 1u);
  EXPECT_EQ(healed.stillOpen[0].distance, 0.25);
  EXPECT_TRUE(HasNote(healed, "would close with --gap 0.25"));
  EXPECT_EQ(Heal(drawing, 0.25).after.closed, 1u);
}

TEST(HealDrawing, ClosesWithTheGapThatItNamed) {
  // A root of two hundredths, which no four digits are.
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10, 0, 10, 10);
  AddLine(drawing, 10, 10, 0.01, 0.01);
  ASSERT_TRUE(HasNote(Heal(drawing, 0.0), "would close with --gap 0.0142"));
  EXPECT_EQ(Heal(drawing, 0.0142).after.closed, 1u);
}

TEST(HealDrawing, TellsEntitiesAndTheirLines) {
  Drawing drawing;
  DrawnEntity& first = AddLine(drawing, 0, 0, 10, 0, "CUT");
  first.handle = "2F4";
  first.line = 120;
  DrawnEntity& second = AddLine(drawing, 10, 0, 0, 0, "PEN");
  second.line = 140;
  second.block = "BOLT";
  second.insertLine = 900;
  const HealedDrawing healed = Heal(drawing);
  ASSERT_EQ(KindsOf(healed), (Kinds{ChangeKind::kDuplicateRemoved}));
  EXPECT_EQ(healed.changes[0].what,
            "LINE on layer PEN, line 140 (block BOLT, inserted in line 900) lies on LINE 2F4 on "
            "layer CUT, line 120, for 10 mm; removed");
  EXPECT_EQ(healed.changes[0].elements, (std::vector<std::size_t>{0, 1}));
}

TEST(HealDrawing, NamesTheElementThatStaysOfThoseThatWereDoubled) {
  // The copy lies within the long line as much as what it is a copy of.
  Drawing drawing;
  AddLine(drawing, 4, 0, 6, 0);
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 6, 0, 4, 0);
  const HealedDrawing healed = Heal(drawing);
  ASSERT_EQ(KindsOf(healed), (Kinds{ChangeKind::kContainedRemoved, ChangeKind::kContainedRemoved}));
  EXPECT_EQ(healed.changes[0].elements, (std::vector<std::size_t>{1, 0}));
  EXPECT_EQ(healed.changes[1].elements, (std::vector<std::size_t>{1, 2}));
}

TEST(HealDrawing, ClosesAContourWhoseSidesHaveCopiesBesideThem) {
  // Copies that come first lie 0.0006 beside the sides of the square, which are drawn twice.
  Drawing drawing;
  const double corners[][2] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  for (int side = 0; side < 4; ++side) {
    const auto& [x1, y1] = corners[side];
    const auto& [x2, y2] = corners[(side + 1) % 4];
    if (side < 2) AddLine(drawing, x1 + 0.0006, y1 + 0.0006, x2 + 0.0006, y2 + 0.0006);
    for (int copy = 0; copy < 2; ++copy) AddLine(drawing, x1, y1, x2, y2);
  }
  const HealedDrawing healed = Heal(drawing);
  ASSERT_EQ(healed.after.closed, 1u);
  EXPECT_EQ(healed.after.elements, 4u);
  EXPECT_EQ(healed.after.area, 100.0);
  EXPECT_TRUE(healed.overlapsLeft.empty());
}

TEST(HealDrawing, KeepsAContourClosedThatHasATinyArc) {
  Drawing drawing;
  AddArc(drawing, 0, 0, 0.00011, 180, -180);
  AddLine(drawing, 0.00011, 0, 5, -8);
  AddLine(drawing, 5, -8, -5, -8);
  AddLine(drawing, -5, -8, -0.00006, 0);
  for (const double gap : {0.0, 0.1}) {
    const HealedDrawing healed = Heal(drawing, gap);
    EXPECT_EQ(healed.after.closed, 1u);
    EXPECT_NEAR(healed.after.area, 40.0, 0.001);
    ASSERT_EQ(healed.changes.size(), 1u);
    EXPECT_NE(healed.changes[0].what.find("; 1 tiny arc drawn straight"), std::string::npos);
    EXPECT_TRUE(Heal(healed.drawing, gap).changes.empty());
  }
}

TEST(HealDrawing, TellsHowFarAFoldRanBack) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 7, 0);
  AddLine(drawing, 7, 0, 4, 0);
  AddLine(drawing, 4, 0, 4, 3);
  AddLine(drawing, 4, 3, 0, 0);
  const HealedDrawing healed = Heal(drawing);
  ASSERT_EQ(KindsOf(healed), (Kinds{ChangeKind::kFoldRemoved}));
  EXPECT_EQ(healed.changes[0].what,
            "LINE on layer 0: ran back for 3 mm in a fold at (7, 0); drawn straight in LINE on "
            "layer 0");
  EXPECT_EQ(healed.after.area, 6.0);
}

TEST(HealDrawing, MergesWithinOneLayerOnly) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 5, 0);
  AddLine(drawing, 5, 0, 10, 0);
  AddLine(drawing, 10, 0, 10, 10);
  AddLine(drawing, 10, 10, 0, 0);
  EXPECT_EQ(KindsOf(Heal(drawing)), (Kinds{ChangeKind::kPiecesMerged}));
  EXPECT_EQ(Heal(drawing).after.elements, 3u);
  EXPECT_TRUE(Heal(drawing, 0.1, false).changes.empty());
  drawing.entities[1].layer = "OTHER";
  EXPECT_TRUE(Heal(drawing).changes.empty());
}

TEST(HealDrawing, LeavesAFullCircle) {
  Drawing drawing;
  AddCircle(drawing, 5, 5, 3);
  const HealedDrawing healed = Heal(drawing);
  EXPECT_TRUE(healed.changes.empty());
  EXPECT_EQ(healed.after.closed, 1u);
  EXPECT_NEAR(healed.after.area, 9.0 * kPi, 1e-12);
}

TEST(HealDrawing, MakesACircleOfAnArcThatNearlyIsOne) {
  Drawing drawing;
  AddArc(drawing, 0, 0, 10, 20, 359.8);
  const HealedDrawing healed = Heal(drawing);
  EXPECT_EQ(KindsOf(healed), (Kinds{ChangeKind::kBecameCircle}));
  EXPECT_NEAR(healed.after.area, 100.0 * kPi, 1e-10);
}

TEST(HealDrawing, MakesACircleOfTwoHalves) {
  Drawing drawing;
  AddArc(drawing, 0, 0, 10, 0, 180);
  AddArc(drawing, 0, 0, 10, 180, 180);
  const HealedDrawing healed = Heal(drawing);
  EXPECT_EQ(KindsOf(healed), (Kinds{ChangeKind::kPiecesMerged}));
  ASSERT_EQ(healed.drawing.elements.size(), 1u);
  EXPECT_TRUE(static_cast<GX2DArc&>(*healed.drawing.elements[0].element).IsCircle());
  EXPECT_NEAR(healed.after.area, 100.0 * kPi, 1e-10);
}

TEST(HealDrawing, DropsWhatHasNoLength) {
  Drawing drawing;
  AddCircle(drawing, 5, 5, 3);
  AddLine(drawing, 20, 20, 20.00005, 20);
  DrawnEntity entity;
  entity.type = "LINE";
  entity.layer = "0";
  entity.line = 77;
  drawing.zeroLength.push_back({entity, GX2DPoint(1, 2)});
  const HealedDrawing healed = Heal(drawing);
  EXPECT_EQ(KindsOf(healed), (Kinds{ChangeKind::kZeroLengthDropped, ChangeKind::kPointRemoved}));
  EXPECT_EQ(healed.changes[0].what, "LINE on layer 0, line 77 at (1, 2) has no length; left out");
  EXPECT_TRUE(healed.changes[0].elements.empty());
  EXPECT_TRUE(healed.drawing.zeroLength.empty());
  EXPECT_EQ(healed.drawing.elements.size(), 1u);
}

TEST(HealDrawing, PutsContoursFirstAndWhatIsOpenBehind) {
  Drawing drawing;
  AddLine(drawing, 50, 50, 60, 60);
  AddLine(drawing, 0, 0, 10, 0);
  AddCircle(drawing, 30, 30, 2);
  AddLine(drawing, 10, 10, 0, 0);
  AddLine(drawing, 10, 0, 10, 10);
  const HealedDrawing healed = Heal(drawing);
  ASSERT_EQ(healed.drawing.elements.size(), 5u);
  std::vector<std::size_t> entities;
  for (const DrawnElement& drawn : healed.drawing.elements) entities.push_back(drawn.entity);
  EXPECT_EQ(entities, (std::vector<std::size_t>{1, 4, 3, 2, 0}));
}

TEST(HealDrawing, SaysWhatItLeft) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 5, 0, 15, 0);
  drawing.unusedByType["TEXT"] = 3;
  drawing.refusedByType["ARC"] = 1;
  drawing.paperSpaceByType["LINE"] = 4;
  drawing.hiddenByLayer["FRAME"] = 2;
  const HealedDrawing healed = Heal(drawing);
  EXPECT_TRUE(healed.changes.empty());
  EXPECT_EQ(healed.overlapsLeft.size(), 1u);
  for (const char* const text : {"partial overlap", "open: 1 element", "3 TEXT", "1 ARC refused",
                                 "4 LINE in paper space", "2 entities on layer FRAME"}) {
    EXPECT_TRUE(HasNote(healed, text)) << text;
  }
}

TEST(HealDrawing, KeepsAContourFromGettingABranch) {
  // The ends of two loose lines are on both sides of a corner; half way is the corner itself.
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10, 0, 10, 10);
  AddLine(drawing, 10, 10, 0, 0);
  AddLine(drawing, 10.04, 0, 20, 0);
  AddLine(drawing, 9.96, 0, 5, -9);
  const HealedDrawing healed = Heal(drawing);
  EXPECT_EQ(healed.after.closed, 1u);
  EXPECT_EQ(healed.after.branching, 0u);
}

TEST(HealDrawing, BearsWhatIsNotFinite) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  Drawing drawing;
  AddLine(drawing, nan, 0, 10, 0);
  AddLine(drawing, 10, 0, infinity, 5);
  AddLine(drawing, 1e308, 1e308, -1e308, -1e308);
  AddLine(drawing, -1e308, -1e308, 1e308, 1e308);
  AddCircle(drawing, nan, nan, 1);
  AddCircle(drawing, 0, 0, infinity);
  drawing.elements.push_back({nullptr, 0});
  AddCircle(drawing, 0, 0, 1);
  for (const double gap : {0.1, 0.0, -1.0, nan, infinity, 1e300}) {
    const HealedDrawing healed = Heal(drawing, gap);
    EXPECT_EQ(healed.after.closed, 1u);
  }
}

TEST(EntityText, OfAnElementThatIsNotThereIsItsNumber) {
  EXPECT_EQ(EntityText(Drawing(), 4), "element 5");
}

}  // namespace
}  // namespace drawing
