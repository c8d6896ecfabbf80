// Layers that are off or frozen.
#include "drawing/DxfReader.h"

#include "support/DxfText.h"

#include <gtest/gtest.h>

#include <string>

namespace drawing {
namespace {

const char* const kLayers =
    "0 TABLE 2 LAYER 70 4 0 LAYER 2 off 70 0 62 -3 0 LAYER 2 Ice 70 1 62 3 0 LAYER 2 open 70 4 62 "
    "3 "
    "0 LAYER 2 open 70 1 62 -3 0 ENDTAB";
const char* const kEnds = " 10 0 20 0 11 1 21 0 ";

std::string LineOn(const std::string& layer) { return " 0 LINE 8 " + layer + kEnds; }

Drawing Read(const std::string& blocks, const std::string& entities, bool allLayers = false) {
  ReadOptions options;
  options.allLayers = allLayers;
  return ReadDrawingText(
      support::Lines(
          std::string("0 SECTION 2 HEADER 9 $INSUNITS 70 4 0 ENDSEC 0 SECTION 2 TABLES ") +
          kLayers + " 0 ENDSEC 0 SECTION 2 BLOCKS " + blocks + " 0 ENDSEC 0 SECTION 2 ENTITIES " +
          entities + " 0 ENDSEC 0 EOF"),
      "a.dxf", options);
}

TEST(Layers, OffOrFrozenHideWhatLiesOnThem) {
  const Drawing drawing = Read(
      "", LineOn("off") + LineOn("ICE") + LineOn("ice") + LineOn("open") + " 0 TEXT 8 off 1 x");
  ASSERT_EQ(drawing.entities.size(), 1u);
  EXPECT_EQ(drawing.entities[0].layer, "open");
  EXPECT_EQ(drawing.hiddenByLayer,
            (std::map<std::string, int>{{"ICE", 1}, {"ice", 1}, {"off", 2}}));
  EXPECT_TRUE(drawing.unusedByType.empty());
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(
      ToLine(drawing.complaints[0]),
      "a.dxf:68: warning: 4 entities on the layers \"ICE\", \"ice\" and \"off\" that are off or "
      "frozen; left out");
}

TEST(Layers, HiddenAreToldInOneComplaintHoweverMany) {
  const Drawing one = Read("", LineOn("off"));
  EXPECT_EQ(one.complaints.back().what, "1 entity on the layer \"off\" that is off or frozen");
}

TEST(Layers, OffOrFrozenAreUsedWhereAllAreWanted) {
  const Drawing drawing = Read("", LineOn("off") + LineOn("ice"), true);
  EXPECT_EQ(drawing.elements.size(), 2u);
  EXPECT_TRUE(drawing.hiddenByLayer.empty());
  EXPECT_TRUE(drawing.complaints.empty());
}

TEST(Layers, HideAPolylineWithItsVertices) {
  const Drawing drawing = Read(
      "", "0 POLYLINE 8 ice 66 1 0 VERTEX 8 ice 10 0 20 0 0 VERTEX 8 ice 10 1 20 0 0 SEQEND 8 ice" +
              LineOn("0"));
  EXPECT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(drawing.hiddenByLayer, (std::map<std::string, int>{{"ice", 1}}));
  EXPECT_EQ(drawing.complaints.size(), 1u);
}

std::string Block() {
  return "0 BLOCK 2 B" + LineOn("0") + LineOn("open") + LineOn("ice") + "0 ENDBLK";
}

TEST(Layers, FrozenOfAnInsertHideAllOfItsBlock) {
  const Drawing drawing =
      Read(Block(), "0 INSERT 8 ice 66 1 2 B 10 0 20 0 0 ATTRIB 8 ice 1 x 0 SEQEND 8 ice");
  EXPECT_TRUE(drawing.elements.empty());
  EXPECT_EQ(drawing.hiddenByLayer, (std::map<std::string, int>{{"ice", 1}}));
  EXPECT_TRUE(drawing.blockEntitiesByType.empty());
  EXPECT_EQ(drawing.expandedInserts, 0);
}

TEST(Layers, OffOfAnInsertHideOnlyWhatLiesOnLayerZeroInItsBlock) {
  const Drawing drawing = Read(Block(), "0 INSERT 8 off 2 B 10 0 20 0");
  ASSERT_EQ(drawing.entities.size(), 1u);
  EXPECT_EQ(drawing.entities[0].layer, "open");
  EXPECT_EQ(drawing.hiddenByLayer, (std::map<std::string, int>{{"ice", 1}, {"off", 1}}));
  EXPECT_EQ(drawing.expandedInserts, 1);
}

TEST(Layers, FrozenHideANestedInsert) {
  const Drawing drawing =
      Read("0 BLOCK 2 O 0 INSERT 8 ice 2 B 10 0 20 0" + LineOn("0") + "0 ENDBLK " + Block(),
           "0 INSERT 8 open 2 O 10 0 20 0");
  EXPECT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(drawing.hiddenByLayer, (std::map<std::string, int>{{"ice", 1}}));
}

TEST(Layers, DefinedBehindTheEntitiesHideAsWell) {
  const Drawing drawing =
      ReadDrawingText(support::Lines("0 SECTION 2 ENTITIES" + LineOn("off") + LineOn("0") +
                                     "0 ENDSEC 0 SECTION 2 TABLES " + kLayers + " 0 ENDSEC 0 EOF"),
                      "a.dxf");
  EXPECT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(drawing.hiddenByLayer, (std::map<std::string, int>{{"off", 1}}));
}

TEST(Layers, OfManyHiddenAreNotAllNamed) {
  std::string table = "0 SECTION 2 TABLES";
  std::string entities = " 0 ENDSEC 0 SECTION 2 ENTITIES";
  for (int i = 1; i <= 7; ++i) {
    table += " 0 LAYER 2 L" + std::to_string(i) + " 70 1";
    entities += LineOn("L" + std::to_string(i));
  }
  const Drawing drawing =
      ReadDrawingText(support::Lines(table + entities + " 0 ENDSEC 0 EOF"), "a.dxf");
  bool told = false;
  for (const Complaint& complaint : drawing.complaints) {
    told = told || complaint.what ==
                       "7 entities on the layers \"L1\", \"L2\", \"L3\", \"L4\", \"L5\" and 2 more "
                       "that are off or frozen";
  }
  EXPECT_TRUE(told);
}

}  // namespace
}  // namespace drawing
