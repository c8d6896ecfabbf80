#include "drawing/LooseEndAccount.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace drawing {
namespace {

void AddLine(Drawing& drawing, double x1, double y1, double x2, double y2) {
  drawing.elements.push_back({std::make_unique<GX2DLine>(x1, y1, x2, y2), drawing.entities.size()});
  drawing.entities.emplace_back();
}

LooseEndAccount Account(const Drawing& drawing) {
  const HealOptions options;
  return AccountOfLooseEnds(drawing, FindNetworks(drawing), HealDrawing(drawing, options),
                            options.gap);
}

TEST(AccountOfLooseEnds, LeavesTheEndsOfDoubledElementsOut) {
  // A line of 20 within one of 100: its ends went with it.
  Drawing drawing;
  drawing.usable = true;
  AddLine(drawing, 0, 0, 100, 0);
  AddLine(drawing, 40, 0, 60, 0);
  const LooseEndAccount account = Account(drawing);
  EXPECT_EQ(account.gone, 2u);
  ASSERT_EQ(account.ends.size(), 2u);
  EXPECT_EQ(account.open, 2u);
  EXPECT_EQ(account.ends[0].element, 0u);
  EXPECT_EQ(account.ends[1].place.X, 100.0);
}

TEST(AccountOfLooseEnds, TakesAnEndForOpenOnlyWhereTheHealedDrawingHasIt) {
  Drawing drawing;
  drawing.usable = true;
  AddLine(drawing, 0, 0, 50, 0);
  AddLine(drawing, 50, 0.05, 50, 30);
  const LooseEndAccount account = Account(drawing);
  ASSERT_EQ(account.ends.size(), 4u);
  EXPECT_EQ(account.open, 2u);
  for (const LooseEndEntry& end : account.ends) {
    // The corner at (50, 0) was joined across 0.05. What is left is one chain of 80 with its ends
    // 58 apart, which is not meant to be closed.
    const bool corner = end.place.X == 50.0 && end.place.Y < 1.0;
    EXPECT_EQ(end.open, !corner);
    EXPECT_EQ(end.partner != 0, corner);
    EXPECT_EQ(end.distance, corner ? 0.05 : 0.0);
  }
}

TEST(AccountOfLooseEnds, NumbersPartnersOneBehindTheOther) {
  // Two corners of three sides, 0.05 wide, drawn so that the partners are elements 0 and 2, 1
  // and 2.
  Drawing drawing;
  drawing.usable = true;
  AddLine(drawing, 0, 0, 50, 0);
  AddLine(drawing, 90, 40, 50, 40);
  AddLine(drawing, 50, 0.05, 50, 39.95);
  const LooseEndAccount account = Account(drawing);
  ASSERT_EQ(account.ends.size(), 6u);
  EXPECT_EQ(account.open, 2u);
  // (0, 0) finds no partner: the chain that comes of it is 130 long and its ends are 98 apart.
  const std::vector<std::size_t> elements = {0, 0, 2, 1, 1, 2};
  const std::vector<std::size_t> partners = {0, 3, 2, 0, 6, 5};
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ(account.ends[i].element, elements[i]) << i;
    EXPECT_EQ(account.ends[i].partner, partners[i]) << i;
    EXPECT_EQ(account.ends[i].open, partners[i] == 0) << i;
  }
}

TEST(AccountOfLooseEnds, KeepsWhatWasJoinedBeforeItWasTakenAway) {
  // Two lines on one another whose starts, 0.05 apart, were joined half way; then the shorter one
  // was taken away, and its other end went with it.
  Drawing drawing;
  AddLine(drawing, 0, 0, 100, 0);
  AddLine(drawing, 0.05, 0, 40, 0);
  HealedDrawing healed;
  AddLine(healed.drawing, 0.025, 0, 100, 0);
  healed.networks = FindNetworks(healed.drawing);
  healed.changes.resize(2);
  healed.changes[0].kind = ChangeKind::kEndsJoined;
  healed.changes[0].elements = {0, 1};
  healed.changes[1].kind = ChangeKind::kContainedRemoved;
  healed.changes[1].elements = {0, 1};
  const LooseEndAccount account = AccountOfLooseEnds(drawing, FindNetworks(drawing), healed, 0.1);
  ASSERT_EQ(account.ends.size(), 4u);
  EXPECT_EQ(account.gone, 0u);
  EXPECT_EQ(account.joined, 2u);
  EXPECT_EQ(account.open, 1u);
  EXPECT_TRUE(account.ends[0].Joined());
  EXPECT_EQ(account.ends[0].partner, 2u);
  EXPECT_EQ(account.ends[1].partner, 1u);
  EXPECT_TRUE(account.ends[2].open);
  EXPECT_FALSE(account.ends[3].open);
  EXPECT_FALSE(account.ends[3].Joined());
}

TEST(RemovedElements, AreThoseBehindTheOneThatWasKept) {
  Drawing drawing;
  for (int i = 0; i < 4; ++i) AddLine(drawing, 0, i, 1, i);
  std::vector<Change> changes(3);
  changes[0].kind = ChangeKind::kDuplicateRemoved;
  changes[0].elements = {1, 3};
  changes[1].kind = ChangeKind::kEndsJoined;
  changes[1].elements = {0, 2};
  changes[2].kind = ChangeKind::kContainedRemoved;
  changes[2].elements = {1, 99};
  EXPECT_EQ(RemovedElements(drawing, changes), (std::vector<bool>{false, false, false, true}));
}

}  // namespace
}  // namespace drawing
