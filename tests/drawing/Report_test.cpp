#include "drawing/Report.h"

#include "PartSketch.h"
#include "drawing/DxfReader.h"
#include "drawing/TextTable.h"
#include "support/DxfText.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

TEST(Millimetres, HasFourDecimalsAndNoNegativeZero) {
  EXPECT_EQ(drawing::Millimetres(12.34567), "12.3457");
  EXPECT_EQ(drawing::Millimetres(-0.00001), "0.0000");
  EXPECT_EQ(drawing::Millimetres(-0.5), "-0.5000");
  EXPECT_EQ(drawing::Position(1, -2), "(1.0000, -2.0000)");
}

TEST(Millimetres, WritesTheLargestNumbers) {
  EXPECT_EQ(drawing::Millimetres(1.7976931348623157e308).size(), 309U + 5U);
}

TEST(TextTable, PadsColumnsAndDropsBlanksAtTheEnd) {
  drawing::TextTable table("lrl");
  table.Row({"a", "1", "x"});
  table.Row({"long", "1234"});
  table.Row({"b", "12", "y", "surplus"});
  EXPECT_EQ(table.Print("  "), "  a        1  x\n  long  1234\n  b       12  y\n");
}

TEST(TextTable, CountsCharactersOfUtf8) {
  drawing::TextTable table("ll");
  table.Row({"\xC3\xA4", "x"});
  table.Row({"ab", "y"});
  EXPECT_EQ(table.Print(""), "\xC3\xA4   x\nab  y\n");
}

TEST(InfoText, TellsWhyADrawingIsNotUsable) {
  drawing::Drawing refused;
  refused.file = "a.dxf";
  refused.refusal = "it is empty";
  const drawing::PartModel part = drawing::BuildPart(std::move(refused));
  EXPECT_EQ(drawing::InfoText(part), "a.dxf\n  not usable: it is empty\n");
  EXPECT_EQ(drawing::InfoJson(part)["refusal"], "it is empty");
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(InfoText, TellsDirectionDepthParentAndFiguresOfEveryContour) {
  const drawing::PartModel part =
      support::PartOf({support::RectangleContour(0, 0, 100, 60),
                       support::Reversed(support::RectangleContour(10, 10, 50, 50)),
                       support::RectangleContour(20, 20, 30, 30)});
  const std::string text = drawing::InfoText(part);
  EXPECT_TRUE(Contains(text, "CCW  depth 0       perimeter 320.0000  surface 6000.0000")) << text;
  EXPECT_TRUE(Contains(text, "CW   depth 1 in 1  perimeter 160.0000  surface 1600.0000")) << text;
  EXPECT_TRUE(Contains(text, "CCW  depth 2 in 2  perimeter 40.0000   surface 100.0000")) << text;
  const auto json = drawing::InfoJson(part)["contours"];
  EXPECT_EQ(json[0]["direction"], "CCW");
  EXPECT_EQ(json[1]["direction"], "CW");
  EXPECT_TRUE(json[0]["parent"].is_null());
  EXPECT_EQ(json[2]["parent"], 1);
  EXPECT_EQ(json[2]["depth"], 2);
  EXPECT_EQ(json[1]["area"], 1600.0);
  EXPECT_EQ(json[1]["perimeter"], 160.0);
  EXPECT_TRUE(json[1]["coincidesWith"].is_null());
}

// INSERT 2 in the model space and 1 within A: A comes once with its LINE and its INSERT of B, B
// twice with its CIRCLE. The layer "x" hides one of the two LINEs of the model space.
constexpr const char* kDrawingWithBlocks =
    "0 SECTION 2 TABLES 0 LAYER 2 x 70 1 62 7 0 ENDSEC 0 SECTION 2 BLOCKS "
    "0 BLOCK 2 A 0 LINE 8 cut 10 0 20 0 11 5 21 0 0 INSERT 8 cut 2 B 10 0 20 0 0 ENDBLK "
    "0 BLOCK 2 B 0 CIRCLE 8 cut 10 2 20 2 40 1 0 ENDBLK 0 ENDSEC 0 SECTION 2 ENTITIES "
    "0 INSERT 8 cut 2 A 10 0 20 0 0 INSERT 8 cut 2 B 10 9 20 0 "
    "0 LINE 8 cut 10 5 20 0 11 5 21 5 0 LINE 8 x 10 5 20 0 11 5 21 5 0 ENDSEC 0 EOF";

TEST(InfoText, TellsWhatCameOutOfBlocksAndWhatLayersHide) {
  const drawing::PartModel part =
      drawing::BuildPart(drawing::ReadDrawingText(support::Lines(kDrawingWithBlocks), "a.dxf"));
  const std::string text = drawing::InfoText(part);
  EXPECT_TRUE(Contains(text, "  entities       INSERT 2, LINE 2\n")) << text;
  EXPECT_TRUE(Contains(text, "  out of blocks  CIRCLE 2, INSERT 1, LINE 1 by 3 INSERTs\n")) << text;
  EXPECT_TRUE(Contains(text, "  off or frozen  x 1\n")) << text;
  const auto json = drawing::InfoJson(part);
  EXPECT_EQ(json["entities"], (nlohmann::json{{"INSERT", 2}, {"LINE", 2}}));
  EXPECT_EQ(json["blockEntities"], (nlohmann::json{{"CIRCLE", 2}, {"INSERT", 1}, {"LINE", 1}}));
  EXPECT_EQ(json["expandedInserts"], 3);
  EXPECT_EQ(json["hiddenByLayer"], (nlohmann::json{{"x", 1}}));
}

TEST(InfoText, IsSilentAboutBlocksAndHiddenLayersWhereThereAreNone) {
  const drawing::PartModel part = support::PartOf({support::RectangleContour(0, 0, 10, 10)});
  const std::string text = drawing::InfoText(part);
  EXPECT_FALSE(Contains(text, "out of blocks")) << text;
  EXPECT_FALSE(Contains(text, "off or frozen")) << text;
  EXPECT_EQ(drawing::InfoJson(part)["expandedInserts"], 0);
  EXPECT_TRUE(drawing::InfoJson(part)["hiddenByLayer"].empty());
}

TEST(InfoText, TellsWhatHealingMoved) {
  support::SketchContour shape = support::RectangleContour(0, 0, 10, 10);
  shape[1].start = {10.00008, 0.00006};
  const drawing::PartModel part = support::PartOf({shape});
  const std::string text = drawing::InfoText(part);
  EXPECT_TRUE(Contains(text, "healed: 1 joint closed, moved by at most 0.000100 mm")) << text;
  EXPECT_EQ(drawing::InfoJson(part)["contours"][0]["healing"]["joints"], 1);
}

TEST(InfoText, TellsWhichContoursCrossOrCoincide) {
  const drawing::PartModel part = support::PartOf(
      {support::RectangleContour(0, 0, 100, 60), support::RectangleContour(10, 10, 40, 30),
       support::RectangleContour(20, 5, 30, 20), support::CircleContour(70, 30, 8),
       support::CircleContour(70, 30, 8)});
  const std::string text = drawing::InfoText(part);
  EXPECT_TRUE(Contains(text, "contours 2 and 3 cross at ")) << text;
  EXPECT_TRUE(Contains(text, "coincides with 4")) << text;
  const auto json = drawing::InfoJson(part);
  EXPECT_EQ(json["crossings"][0]["contours"][0], 1);
  EXPECT_EQ(json["crossings"][0]["contours"][1], 2);
  EXPECT_EQ(json["crossings"][0]["points"].size(), 2U);
  EXPECT_EQ(json["contours"][4]["coincidesWith"], 3);
}

TEST(InfoText, TellsWhatBecameOfCurves) {
  drawing::Drawing drawn = support::DrawingOf({support::RectangleContour(0, 0, 10, 10)});
  drawn.curves.curves = 12;
  drawn.curves.arcs = 84;
  drawn.curves.lines = 31;
  drawn.curves.largestDeviation = 0.00921;
  drawn.curves.tolerance = 0.01;
  drawing::PartModel part = drawing::BuildPart(std::move(drawn));
  // Rounded up: no more is promised than was measured.
  EXPECT_TRUE(Contains(drawing::InfoText(part),
                       "curves    12 curves became 84 arcs and 31 lines, at most 0.0093 mm from "
                       "the curve"))
      << drawing::InfoText(part);
  part.drawing.curves = {};
  part.drawing.curves.curves = 1;
  part.drawing.curves.circles = 1;
  EXPECT_TRUE(Contains(drawing::InfoText(part),
                       "1 curve became 1 circle, at most 0.0000 mm from the curve"));
  part.drawing.curves.circles = 2;
  part.drawing.curves.arcs = 1;
  part.drawing.curves.lines = 1;
  EXPECT_TRUE(Contains(drawing::InfoText(part), "became 2 circles, 1 arc and 1 line, at most"));
}

TEST(InfoText, SaysNothingOfCurvesWhereThereAreNone) {
  const drawing::PartModel part = support::PartOf({support::RectangleContour(0, 0, 10, 10)});
  EXPECT_FALSE(Contains(drawing::InfoText(part), "curve"));
  EXPECT_EQ(drawing::InfoJson(part)["curves"]["count"], 0);
}

}  // namespace
