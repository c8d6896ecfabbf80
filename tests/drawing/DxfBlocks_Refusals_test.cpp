// Inserts that are wrong, lead in circles or come to too much.
#include "BlockSketch.h"
#include "drawing/DxfReader.h"

#include <gtest/gtest.h>

#include <string>

namespace drawing {
namespace {

using support::ExpectLine;
using support::kLineBlock;
using support::ReadWithBlocks;

// The INSERT is refused with this complaint alone; nothing comes out of it.
void ExpectRefused(const std::string& blocks, const std::string& insert, const std::string& what) {
  SCOPED_TRACE(insert);
  const Drawing drawing = ReadWithBlocks(blocks, insert + " 0 LINE 10 0 20 0 11 9 21 0");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(drawing.refusedByType, (std::map<std::string, int>{{"INSERT", 1}}));
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].severity, Severity::kError);
  EXPECT_EQ(drawing.complaints[0].entity, "INSERT");
  EXPECT_EQ(drawing.complaints[0].what, what);
}

TEST(Insert, ThatIsWrongIsRefused) {
  ExpectRefused(kLineBlock, "0 INSERT 2 X 10 0 20 0", "its block \"X\" is not defined");
  ExpectRefused(kLineBlock, "0 INSERT 10 0 20 0", "it names no block");
  ExpectRefused(kLineBlock, "0 INSERT 2 L", "group 10 is missing");
  ExpectRefused(kLineBlock, "0 INSERT 2 L 10 0 20 0 41 0", "its scale is 0");
  ExpectRefused(kLineBlock, "0 INSERT 2 L 10 0 20 0 42 0", "its scale is 0");
  ExpectRefused(kLineBlock, "0 INSERT 2 L 10 0 20 0 41 nan", "\"nan\" is no number (group 41)");
  ExpectRefused(kLineBlock, "0 INSERT 2 L 10 0 20 0 210 1 230 1", "its extrusion is not along z");
  ExpectRefused("0 BLOCK 2 L 70 4 1 other.dwg 0 ENDBLK", "0 INSERT 2 L 10 0 20 0",
                "its block \"L\" stands in another file");
  ExpectRefused(
      "0 BLOCK 2 L 10 x 0 LINE 10 0 20 0 11 1 21 0 0 ENDBLK", "0 INSERT 2 L 10 0 20 0",
      "its block \"L\" is defined in line 20 with a fault: \"x\" is no number (group 10)");
}

TEST(Insert, WithAScaleOfZeroAlongZIsUsed) {
  EXPECT_EQ(ReadWithBlocks(kLineBlock, "0 INSERT 2 L 10 0 20 0 43 0").elements.size(), 1u);
}

TEST(Insert, OfHugeScalesRefusesWhatIsNotFinite) {
  for (const char* block : {"0 LINE 10 1 20 0 11 1e300 21 1", "0 CIRCLE 10 0 20 0 40 1e300",
                            "0 ELLIPSE 10 0 20 0 11 1e300 21 0 40 0.5",
                            "0 LWPOLYLINE 90 2 10 0 20 0 42 1 10 1e300 20 0",
                            "0 SPLINE 71 3 74 2 11 0 21 0 11 1e300 21 1"}) {
    for (const char* scale : {"41 1e300 42 1e300", "41 1e300 42 -1"}) {
      const Drawing drawing = ReadWithBlocks(std::string("0 BLOCK 2 H ") + block + " 0 ENDBLK",
                                             std::string("0 INSERT 2 H 10 0 20 0 50 30 ") + scale);
      SCOPED_TRACE(std::string(block) + " " + scale);
      EXPECT_TRUE(drawing.elements.empty());
      EXPECT_EQ(drawing.refusedByType.size(), 1u);
    }
  }
}

TEST(Insert, OfABlockInItselfIsRefusedAndTheRestIsUsed) {
  const Drawing drawing =
      ReadWithBlocks("0 BLOCK 2 A 0 LINE 10 0 20 0 11 1 21 0 0 INSERT 2 a 10 1 20 0 0 ENDBLK",
                     "0 INSERT 2 A 10 0 20 0 0 INSERT 2 A 10 0 20 5");
  EXPECT_EQ(drawing.elements.size(), 2u);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].what, "its block contains itself: A / A (in block \"A\")");
  EXPECT_EQ(drawing.complaints[0].severity, Severity::kError);
  EXPECT_EQ(drawing.refusedByType, (std::map<std::string, int>{{"INSERT", 2}}));
}

TEST(Insert, OfARingOfBlocksIsRefusedWhereTheRingCloses) {
  const char* const blocks =
      "0 BLOCK 2 A 0 LINE 10 0 20 0 11 1 21 0 0 INSERT 2 B 10 1 20 0 0 ENDBLK "
      "0 BLOCK 2 B 0 LINE 10 0 20 0 11 1 21 0 0 INSERT 2 C 10 1 20 0 0 ENDBLK "
      "0 BLOCK 2 C 0 LINE 10 0 20 0 11 1 21 0 0 INSERT 2 A 10 1 20 0 0 ENDBLK";
  const Drawing drawing = ReadWithBlocks(blocks, "0 INSERT 2 A 10 0 20 0");
  EXPECT_EQ(drawing.elements.size(), 3u);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].what,
            "its block contains itself: A / B / C / A (in block \"A / B / C\")");
}

// Blocks 1 to `count`, each of them inserting the next one `copies` times; the last holds a line.
std::string NestOf(int count, int copies) {
  std::string blocks;
  for (int i = 1; i <= count; ++i) {
    blocks += " 0 BLOCK 2 N" + std::to_string(i);
    for (int k = 0; k < copies && i < count; ++k) {
      blocks += " 0 INSERT 2 N" + std::to_string(i + 1) + " 10 1 20 0";
    }
    if (i == count) blocks += " 0 LINE 10 0 20 0 11 1 21 0";
    blocks += " 0 ENDBLK";
  }
  return blocks;
}

TEST(Insert, NestsToTheStatedDepth) {
  const int deepest = static_cast<int>(kDeepestNest);
  const Drawing allowed = ReadWithBlocks(NestOf(deepest, 1), "0 INSERT 2 N1 10 0 20 0");
  ASSERT_EQ(allowed.elements.size(), 1u);
  ExpectLine(allowed, 0, deepest - 1, 0, deepest, 0);
  const Drawing refused = ReadWithBlocks(NestOf(deepest + 1, 1), "0 INSERT 2 N1 10 0 20 0");
  EXPECT_TRUE(refused.elements.empty());
  EXPECT_EQ(refused.refusedByType.at("INSERT"), 1);
}

TEST(Insert, BeyondTheMostRecordsOfADrawingIsRefused) {
  ReadOptions options;
  options.mostInserted = 10;
  const Drawing drawing =
      ReadWithBlocks(kLineBlock,
                     "0 INSERT 2 L 10 0 20 0 70 6 44 1 0 INSERT 2 L 10 0 20 0 70 5 44 1 0 "
                     "INSERT 2 L 10 0 20 0 70 4 44 1",
                     options);
  EXPECT_EQ(drawing.elements.size(), 10u);
  EXPECT_EQ(drawing.refusedByType, (std::map<std::string, int>{{"INSERT", 1}}));
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(
      drawing.complaints[0].what,
      "its block \"L\" comes to more than is left of what the inserts of a drawing may come to");
}

TEST(Insert, OfNestsThatGrowByPowersIsRefusedBeforeItIsRead) {
  const Drawing nest = ReadWithBlocks(NestOf(30, 10), "0 INSERT 2 N1 10 0 20 0");
  EXPECT_TRUE(nest.elements.empty());
  EXPECT_EQ(nest.refusedByType.at("INSERT"), 1);
  const Drawing array =
      ReadWithBlocks(kLineBlock, "0 INSERT 2 L 10 0 20 0 70 32767 71 32767 44 1 45 1");
  EXPECT_TRUE(array.elements.empty());
  EXPECT_EQ(array.refusedByType.at("INSERT"), 1);
  // A nest that comes to more than a number can hold.
  EXPECT_TRUE(ReadWithBlocks(NestOf(400, 10), "0 INSERT 2 N1 10 0 20 0").elements.empty());
}

TEST(Insert, OfAVeryLongChainOfBlocksIsFollowedWithoutRecursion) {
  const Drawing drawing = ReadWithBlocks(NestOf(20000, 1), "0 INSERT 2 N19990 10 0 20 0");
  EXPECT_EQ(drawing.elements.size(), 1u);
}

}  // namespace
}  // namespace drawing
