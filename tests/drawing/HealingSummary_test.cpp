#include "drawing/HealingSummary.h"

#include "PartSketch.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <utility>

namespace {

using drawing::ChangeKind;
using drawing::Drawing;
using drawing::HealingSummary;
using support::LineSide;

// A rectangle whose last corner is open by 0.05, with one side drawn twice.
Drawing Torn() {
  return support::DrawingOf(
      {{LineSide({0, 0}, {100, 0}), LineSide({100, 0}, {100, 60}), LineSide({100, 60}, {0, 60}),
        LineSide({0, 60}, {0, 0.05}), LineSide({0, 60}, {100, 60})}});
}

TEST(HealingSummaryText, SaysWhatWasChanged) {
  HealingSummary summary;
  EXPECT_EQ(drawing::HealingSummaryText(summary), "");
  summary.counts[ChangeKind::kDuplicateRemoved] = 2;
  EXPECT_EQ(drawing::HealingSummaryText(summary), "2 duplicates removed, nothing moved");
  summary.counts[ChangeKind::kEndsJoined] = 1;
  // Rounded up: no more is promised than was measured.
  summary.largestMovement = 0.04121;
  EXPECT_EQ(drawing::HealingSummaryText(summary),
            "2 duplicates removed, 1 pair of ends joined, nothing moved by more than 0.0413 mm");
}

TEST(HealingSummaryJson, CountsByTheNamesOfTheKinds) {
  HealingSummary summary;
  summary.gap = 0.5;
  summary.counts[ChangeKind::kEndsJoined] = 3;
  const auto json = drawing::HealingSummaryJson(summary);
  EXPECT_EQ(json["gap"], 0.5);
  EXPECT_EQ(json["changes"].size(), 1U);
  EXPECT_EQ(json["changes"][drawing::ChangeKindName(ChangeKind::kEndsJoined)], 3);
}

TEST(HealedForParts, ClosesGapsAndDropsDuplicates) {
  HealingSummary summary;
  const Drawing healed = drawing::HealedForParts(Torn(), 0.1, summary);
  EXPECT_EQ(healed.elements.size(), 4u);
  EXPECT_EQ(summary.counts[ChangeKind::kDuplicateRemoved], 1u);
  EXPECT_EQ(summary.counts[ChangeKind::kEndsJoined], 1u);
  EXPECT_GT(summary.largestMovement, 0.0);
  EXPECT_LE(summary.largestMovement, 0.1);
  EXPECT_EQ(summary.gap, 0.1);
}

TEST(HealedForParts, LeavesTheDrawingAsDrawnWithAGapOfZero) {
  HealingSummary summary;
  summary.largestMovement = 9;
  const Drawing same = drawing::HealedForParts(Torn(), 0.0, summary);
  EXPECT_EQ(same.elements.size(), 5u);
  EXPECT_TRUE(summary.counts.empty());
  EXPECT_EQ(summary.largestMovement, 0.0);
}

TEST(HealedForParts, DoesNotCountElementsPutInOrder) {
  // Drawn in another order and partly backwards, but nothing moves.
  HealingSummary summary;
  const Drawing healed = drawing::HealedForParts(
      support::DrawingOf({{LineSide({0, 0}, {100, 0}), LineSide({100, 60}, {0, 60}),
                           LineSide({100, 60}, {100, 0}), LineSide({0, 60}, {0, 0})}}),
      0.1, summary);
  EXPECT_EQ(healed.elements.size(), 4u);
  EXPECT_EQ(drawing::HealingSummaryText(summary), "");
}

TEST(HealedForParts, PassesOnADrawingThatIsNotUsable) {
  Drawing refused;
  refused.refusal = "it is empty";
  HealingSummary summary;
  EXPECT_EQ(drawing::HealedForParts(std::move(refused), 0.1, summary).refusal, "it is empty");
}

}  // namespace
