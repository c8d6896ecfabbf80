// Files as a whole: what is accepted and refused, sections, units, damage.
#include "drawing/DxfReader.h"

#include "support/DxfText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <string>

namespace drawing {
namespace {

const char* const kLine = " 0 LINE 5 AA 10 0 20 0 11 9 21 0 ";

Drawing ReadLines(const std::string& words) {
  return ReadDrawingText(support::Lines(words), "test.dxf");
}

bool Complains(const Drawing& drawing, const std::string& text) {
  for (const Complaint& complaint : drawing.complaints) {
    if (ToLine(complaint).find(text) != std::string::npos) return true;
  }
  return false;
}

void ExpectRefused(std::string_view bytes, const std::string& reason) {
  const Drawing drawing = ReadDrawingText(bytes, "test.dxf");
  EXPECT_FALSE(drawing.usable);
  EXPECT_EQ(drawing.refusal, reason);
  EXPECT_EQ(drawing.file, "test.dxf");
  EXPECT_TRUE(drawing.elements.empty());
}

// ---- the file

TEST(ReadDrawing, RefusesAFileThatCannotBeOpened) {
  const Drawing drawing = ReadDrawing("/no such folder/drawing.dxf");
  EXPECT_FALSE(drawing.usable);
  EXPECT_EQ(drawing.refusal.substr(0, 22), "it cannot be opened: N");
}

TEST(ReadDrawing, RefusesAFolder) {
  const Drawing drawing = ReadDrawing("/");
  EXPECT_FALSE(drawing.usable);
  EXPECT_NE(drawing.refusal, "");
}

TEST(ReadDrawing, ReadsAFileFromDisk) {
  const std::string path = testing::TempDir() + "drawing_reader_test.dxf";
  std::FILE* file = std::fopen(path.c_str(), "wb");
  ASSERT_NE(file, nullptr);
  const std::string text = support::Dxf(kLine);
  ASSERT_EQ(std::fwrite(text.data(), 1, text.size(), file), text.size());
  std::fclose(file);
  const Drawing drawing = ReadDrawing(path);
  std::remove(path.c_str());
  EXPECT_TRUE(drawing.usable);
  EXPECT_EQ(drawing.file, path);
  EXPECT_EQ(drawing.elements.size(), 1u);
}

TEST(ReadDrawingText, RefusesEmptyAndBlankFiles) {
  ExpectRefused("", "it is empty");
  ExpectRefused(" \r\n\n\t", "it is blank");
}

TEST(ReadDrawingText, RefusesBinaryDxf) {
  const std::string_view signature("AutoCAD Binary DXF\r\n\x1a\0", 22);
  ExpectRefused(std::string(signature) + "\x01\x02SECTION",
                "it is a binary DXF; only text DXF can be read");
}

TEST(ReadDrawingText, RefusesFilesThatAreNoDxf) {
  ExpectRefused(
      "solid plate\nfacet normal 0 0 1\n",
      "it is no DXF: line 1: \"solid plate\" stands where the first group code is expected");
  ExpectRefused("<svg/>",
                "it is no DXF: line 1: \"<svg/>\" stands where the first group code is expected");
  ExpectRefused("12\n13\n",
                "it is no DXF: line 2: the first group is 12 \"13\", not the head of a record");
  ExpectRefused("0\n", "it is no DXF: line 2: it ends before the first record");
  EXPECT_FALSE(ReadDrawingText(std::string(5000, '\0') + "x", "zeros").usable);
}

TEST(ReadDrawingText, IsUsableWithoutAnyElementAndSaysSo) {
  for (const char* text : {"0 EOF", "0 SECTION 2 ENTITIES 0 ENDSEC 0 EOF"}) {
    const Drawing drawing = ReadLines(text);
    EXPECT_TRUE(drawing.usable) << text;
    EXPECT_TRUE(Complains(drawing, "warning: there is no element that can be used")) << text;
  }
}

TEST(ReadDrawingText, ReadsTheSameWhateverTheLineEnds) {
  const std::string words = "0 SECTION 2 HEADER 9 $INSUNITS 70 4 0 ENDSEC 0 SECTION 2 ENTITIES " +
                            std::string(kLine) + " 0 ENDSEC 0 EOF";
  for (const char* lineEnd : {"\n", "\r\n", " \n", "\t \r\n", "\r"}) {
    const Drawing drawing = ReadDrawingText(support::Lines(words, lineEnd), "test.dxf");
    ASSERT_EQ(drawing.elements.size(), 1u);
    EXPECT_EQ(drawing.elements[0].element->GetEndPoint().X, 9.0);
    EXPECT_TRUE(drawing.complaints.empty());
  }
}

TEST(ReadDrawingText, GivesTheVersion) {
  EXPECT_EQ(ReadDrawingText(support::Dxf(kLine), "a").version, "AC1015");
  EXPECT_EQ(ReadLines(std::string("0 SECTION 2 ENTITIES") + kLine + "0 ENDSEC 0 EOF").version, "");
}

TEST(ReadDrawingText, KeepsNoViewIntoTheText) {
  std::string text =
      support::Dxf("0 LINE 8 a_layer_name_longer_than_a_short_string 10 0 20 0 11 1 21 0");
  const Drawing drawing = ReadDrawingText(text, "test.dxf");
  text.assign(text.size(), '#');
  EXPECT_EQ(drawing.entities.at(0).layer, "a_layer_name_longer_than_a_short_string");
}

// ---- units

TEST(Units, AbsentOrUnitlessAreTakenAsMillimetresAndSaid) {
  const Drawing absent = ReadDrawingText(support::DxfWithHeader("", kLine), "a.dxf");
  EXPECT_TRUE(absent.unit.assumed);
  EXPECT_EQ(absent.unit.millimetresPerUnit, 1.0);
  EXPECT_EQ(absent.unit.source, "no $INSUNITS, taken as millimetres");
  EXPECT_TRUE(Complains(
      absent, "a.dxf: note: the drawing names no unit; lengths are taken as millimetres"));
  const Drawing unitless =
      ReadDrawingText(support::DxfWithHeader("9 $INSUNITS 70 0", kLine), "b.dxf");
  EXPECT_TRUE(unitless.unit.assumed);
  EXPECT_EQ(unitless.unit.source, "$INSUNITS 0 (unitless), taken as millimetres");
  EXPECT_TRUE(Complains(unitless, "b.dxf:8: note: $INSUNITS 0 names no unit"));
}

TEST(Units, UnknownOrUnreadableAreTakenAsMillimetresWithAWarning) {
  const Drawing unknown =
      ReadDrawingText(support::DxfWithHeader("9 $INSUNITS 70 99", kLine), "a.dxf");
  EXPECT_TRUE(unknown.unit.assumed);
  EXPECT_EQ(unknown.unit.code, 99);
  EXPECT_TRUE(Complains(unknown, "a.dxf:8: warning: $INSUNITS 99 names no unit"));
  const Drawing bad = ReadDrawingText(support::DxfWithHeader("9 $INSUNITS 70 mm", kLine), "b.dxf");
  EXPECT_TRUE(bad.unit.assumed);
  EXPECT_EQ(bad.unit.millimetresPerUnit, 1.0);
  EXPECT_TRUE(Complains(bad, "b.dxf:8: warning: $INSUNITS is \"mm\", no whole number"));
  EXPECT_EQ(bad.complaints.size(), 1u);
}

TEST(Units, AreNotTakenFromMeasurement) {
  const Drawing drawing =
      ReadDrawingText(support::DxfWithHeader("9 $MEASUREMENT 70 0", kLine), "a.dxf");
  EXPECT_TRUE(drawing.unit.assumed);
  EXPECT_EQ(drawing.unit.millimetresPerUnit, 1.0);
}

TEST(Units, BehindTheEntitiesCountForAll) {
  const Drawing drawing = ReadLines(std::string("0 SECTION 2 ENTITIES") + kLine +
                                    "0 ENDSEC 0 SECTION 2 HEADER 9 $INSUNITS 70 5 0 ENDSEC 0 EOF");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(drawing.elements[0].element->GetEndPoint().X, 90.0);
  EXPECT_EQ(drawing.unit.name, "cm");
  EXPECT_TRUE(Complains(drawing, "note: the unit stands behind the entities; it counts for all"));
}

TEST(Units, GivenTwiceCountTheFirstTime) {
  const Drawing drawing =
      ReadDrawingText(support::DxfWithHeader("9 $INSUNITS 70 4 9 $INSUNITS 70 1", kLine), "a.dxf");
  EXPECT_EQ(drawing.unit.code, 4);
  EXPECT_EQ(drawing.elements[0].element->GetEndPoint().X, 9.0);
  EXPECT_TRUE(Complains(drawing, "warning: $INSUNITS is given again with another value"));
}

// ---- sections

TEST(Sections, OtherThanEntitiesHoldNoGeometryOfTheDrawing) {
  const Drawing drawing =
      ReadLines(std::string("0 SECTION 2 BLOCKS 0 BLOCK 2 X") + kLine +
                "0 ENDBLK 0 ENDSEC 0 SECTION 2 OBJECTS 0 DICTIONARY 5 C 0 ENDSEC "
                "0 SECTION 2 ENTITIES" +
                kLine + "0 ENDSEC 0 EOF");
  EXPECT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(drawing.entitiesByType, (std::map<std::string, int>{{"LINE", 1}}));
}

TEST(Sections, WithoutHeaderAreRead) {
  const Drawing drawing = ReadLines(std::string("0 SECTION 2 ENTITIES") + kLine + "0 ENDSEC 0 EOF");
  EXPECT_EQ(drawing.elements.size(), 1u);
}

TEST(Sections, MayBeMissingAltogether) {
  const Drawing drawing = ReadLines(std::string(kLine) + kLine + "0 EOF");
  EXPECT_EQ(drawing.elements.size(), 2u);
  EXPECT_TRUE(Complains(drawing, "test.dxf:2: warning: 2 records stand outside a section"));
}

TEST(Sections, MissingAroundBlocksDoNotMakeTheirContentsGeometry) {
  const Drawing drawing =
      ReadLines(std::string("0 BLOCK 2 X") + kLine + "0 ENDBLK" + kLine + "0 EOF");
  EXPECT_EQ(drawing.elements.size(), 1u);
}

TEST(Sections, WithoutANameAreNotUsed) {
  const Drawing drawing = ReadLines(std::string("0 SECTION") + kLine + "0 ENDSEC 0 EOF");
  EXPECT_TRUE(drawing.elements.empty());
  EXPECT_TRUE(Complains(drawing,
                        "test.dxf:2: error: a section has no name; what stands in it is not used"));
}

TEST(Sections, OfUnknownNameAreNotUsed) {
  const Drawing drawing = ReadLines(std::string("0 SECTION 2 ENTITES") + kLine + "0 ENDSEC 0 EOF");
  EXPECT_TRUE(drawing.elements.empty());
  EXPECT_TRUE(Complains(drawing, "warning: the section \"ENTITES\" is not known"));
}

TEST(Sections, ThatAreNotEndedEndWithTheNextOrTheFile) {
  const Drawing drawing =
      ReadLines(std::string("0 SECTION 2 TABLES 0 SECTION 2 ENTITIES") + kLine + "0 EOF");
  EXPECT_EQ(drawing.elements.size(), 1u);
  EXPECT_TRUE(Complains(drawing, "test.dxf:6: warning: a section begins within another"));
  EXPECT_TRUE(Complains(drawing, "warning: the last section is not ended"));
}

TEST(Sections, DamagedBeforeTheEntitiesAreToldAndPassedOver) {
  const Drawing drawing = ReadLines(std::string("0 SECTION 2 TABLES 0 LAYER x y 2 cut 0 ENDSEC "
                                                "0 SECTION 2 ENTITIES") +
                                    kLine + "0 ENDSEC 0 EOF");
  EXPECT_EQ(drawing.elements.size(), 1u);
  EXPECT_TRUE(Complains(
      drawing, "test.dxf:7: warning: \"x\" stands where a group code is expected; passed over"));
}

TEST(Sections, BehindGarbageAreRead) {
  const Drawing drawing =
      ReadLines(std::string("garbage 0 SECTION 2 ENTITIES") + kLine + "0 ENDSEC 0 EOF");
  EXPECT_TRUE(drawing.usable);
  EXPECT_EQ(drawing.elements.size(), 1u);
  EXPECT_TRUE(
      Complains(drawing, "test.dxf:1: error: \"garbage\" stands where the first group code"));
}

// ---- the end

TEST(EndMark, MissingIsAnErrorAndWhatWasReadIsUsed) {
  const Drawing drawing = ReadLines(std::string("0 SECTION 2 ENTITIES") + kLine + "0 ENDSEC");
  EXPECT_TRUE(drawing.usable);
  EXPECT_EQ(drawing.elements.size(), 1u);
  EXPECT_TRUE(Complains(drawing, "test.dxf: error: the end mark EOF is missing"));
}

TEST(EndMark, MissingRefusesTheLastEntityWhichMayBeCutOff) {
  const Drawing drawing = ReadLines(std::string("0 SECTION 2 ENTITIES") + kLine + kLine);
  EXPECT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(drawing.refusedByType.at("LINE"), 1);
  EXPECT_TRUE(Complains(drawing, "error: LINE AA: the file ends within it; not used"));
}

TEST(EndMark, MissingRefusesAPolylineThatIsStillOpen) {
  const Drawing drawing = ReadLines(
      "0 SECTION 2 ENTITIES 0 POLYLINE 66 1 0 VERTEX 10 0 20 0 0 VERTEX 10 1 20 0 0 VERTEX 10 2 20 "
      "0");
  EXPECT_TRUE(drawing.elements.empty());
  EXPECT_TRUE(Complains(drawing, "test.dxf:6: error: POLYLINE: the file ends within it; not used"));
}

TEST(EndMark, EndsTheFile) {
  const Drawing drawing =
      ReadLines(std::string("0 SECTION 2 ENTITIES") + kLine + "0 ENDSEC 0 EOF" + kLine);
  EXPECT_EQ(drawing.elements.size(), 1u);
  EXPECT_TRUE(Complains(drawing, "warning: there is more behind the end mark; not read"));
}

TEST(Complaints, StandInTheOrderOfTheirLines) {
  const Drawing drawing = ReadDrawingText(
      support::DxfWithHeader("", "0 LINE 10 0 20 0 30 5 11 1 21 0 0 CIRCLE 10 0 20 0 40 -1"),
      "a.dxf");
  ASSERT_EQ(drawing.complaints.size(), 3u);
  EXPECT_EQ(drawing.complaints[0].line, 0u);
  EXPECT_LT(drawing.complaints[1].line, drawing.complaints[2].line);
}

// ---- robustness

std::string SampleText() {
  return support::Lines(
      "0 SECTION 2 HEADER 9 $ACADVER 1 AC1015 9 $DWGCODEPAGE 3 ANSI_936 9 $INSUNITS 70 4 0 ENDSEC "
      "0 SECTION 2 TABLES 0 TABLE 2 LAYER 0 LAYER 2 off 70 0 62 -7 0 LAYER 2 ice 70 1 0 ENDTAB "
      "0 ENDSEC 0 SECTION 2 BLOCKS 0 BLOCK 2 X 10 1 20 0 0 LINE 8 0 10 0 20 0 11 1 21 0 "
      "0 CIRCLE 10 0 20 0 40 1 0 INSERT 2 Y 10 0 20 0 0 ENDBLK 0 BLOCK 2 Y 0 LINE 10 0 20 0 11 2 "
      "21 0 0 INSERT 2 X 10 0 20 0 0 ENDBLK 0 ENDSEC 0 SECTION 2 ENTITIES "
      "0 INSERT 2 X 10 5 20 5 41 2 42 -2 50 30 70 2 44 3 0 INSERT 8 ice 2 X 10 0 20 0 "
      "0 INSERT 8 off 2 X 10 0 20 0 0 LINE 8 off 10 0 20 0 11 1 21 0 "
      "0 LINE 5 1 8 cut 10 0 20 0 11 9 21 0 0 ARC 5 2 10 1,5 20 0 40 2 50 0 51 90 "
      "0 CIRCLE 10 1 20 1 30 2 40 .5 230 -1 0 LWPOLYLINE 90 3 70 1 10 0 20 0 42 1 10 4 20 0 10 4 "
      "20 2 "
      "0 POLYLINE 66 1 70 1 0 VERTEX 10 0 20 0 42 1 0 VERTEX 10 4 20 0 0 SEQEND 0 TEXT 1 x "
      "0 INSERT 66 1 2 X 0 ATTRIB 1 a 0 SEQEND 0 LINE 67 1 10 0 20 0 11 1 21 1 0 ENDSEC 0 EOF");
}

// Whatever the text: every entity is accounted for, and no coordinate is other than finite.
void ExpectSound(const Drawing& drawing) {
  EXPECT_EQ(drawing.usable, drawing.refusal.empty());
  std::size_t counted = 0;
  std::size_t accounted = drawing.entities.size();
  accounted += static_cast<std::size_t>(drawing.expandedInserts);
  for (const auto& entry : drawing.entitiesByType)
    counted += static_cast<std::size_t>(entry.second);
  for (const auto& entry : drawing.blockEntitiesByType)
    counted += static_cast<std::size_t>(entry.second);
  for (const auto& entry : drawing.hiddenByLayer)
    accounted += static_cast<std::size_t>(entry.second);
  for (const auto& entry : drawing.unusedByType)
    accounted += static_cast<std::size_t>(entry.second);
  for (const auto& entry : drawing.refusedByType)
    accounted += static_cast<std::size_t>(entry.second);
  EXPECT_EQ(counted, accounted);
  for (const DrawnElement& drawn : drawing.elements) {
    ASSERT_NE(drawn.element, nullptr);
    ASSERT_LT(drawn.entity, drawing.entities.size());
    EXPECT_TRUE(std::isfinite(drawn.element->GetStartPoint().X));
    EXPECT_TRUE(std::isfinite(drawn.element->GetStartPoint().Y));
    EXPECT_TRUE(std::isfinite(drawn.element->GetEndPoint().X));
    EXPECT_TRUE(std::isfinite(drawn.element->GetEndPoint().Y));
  }
}

TEST(ReadDrawingText, IsSafeWithAFileCutOffAtAnyByte) {
  const std::string text = SampleText();
  const std::size_t whole = ReadDrawingText(text, "whole").elements.size();
  // Eight outside of blocks, and twice a line, a circle and the line of the nested block.
  ASSERT_EQ(whole, 14u);
  for (std::size_t length = 0; length < text.size(); ++length) {
    SCOPED_TRACE(length);
    const Drawing drawing = ReadDrawingText(std::string_view(text).substr(0, length), "cut");
    ExpectSound(drawing);
    EXPECT_LE(drawing.elements.size(), whole);
    // Only the line end behind the end mark can be missed without a loss.
    const bool complains = !drawing.usable || Complains(drawing, "the end mark EOF is missing");
    EXPECT_EQ(complains, length + 1 < text.size());
  }
}

TEST(ReadDrawingText, IsSafeWithRandomBytesChangedAnywhere) {
  constexpr unsigned kSeed = 20240917;
  std::mt19937 random(kSeed);
  const std::string text = SampleText();
  const std::string favourites = "0123456789.,-+eE \n\r\tx\xff\x80SECTION";
  for (int round = 0; round < 4000; ++round) {
    SCOPED_TRACE("seed " + std::to_string(kSeed) + ", round " + std::to_string(round));
    std::string changed = text;
    const std::size_t changes = 1 + random() % 4;
    for (std::size_t i = 0; i < changes; ++i) {
      const std::size_t at = random() % changed.size();
      switch (random() % 4) {
        case 0:
          changed[at] = static_cast<char>(random() % 256);
          break;
        case 1:
          changed[at] = favourites[random() % favourites.size()];
          break;
        case 2:
          changed.erase(at, 1 + random() % 12);
          if (changed.empty()) changed = "0";
          break;
        default:
          changed.insert(at, 1, favourites[random() % favourites.size()]);
      }
    }
    ExpectSound(ReadDrawingText(changed, "changed"));
  }
}

TEST(ReadDrawingText, FindsTheWayBackAfterAnyOneLineIsLost) {
  // Ten lines; whichever line of the file is lost, at most two of them are.
  std::string words;
  for (int i = 0; i < 10; ++i) words += kLine;
  const std::string text = support::Dxf(words);
  std::vector<std::size_t> starts = {0};
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] == '\n') starts.push_back(i + 1);
  }
  constexpr std::size_t kHeaderLines = 18;
  for (std::size_t i = kHeaderLines; i < starts.size(); ++i) {
    SCOPED_TRACE(i + 1);
    const std::size_t end = i + 1 < starts.size() ? starts[i + 1] : text.size();
    const Drawing drawing = ReadDrawingText(text.substr(0, starts[i]) + text.substr(end), "lost");
    ExpectSound(drawing);
    EXPECT_GE(drawing.elements.size(), 8u);
    EXPECT_FALSE(drawing.complaints.empty());
    for (const DrawnElement& drawn : drawing.elements) {
      EXPECT_TRUE(drawn.element->GetStartPoint() == GX2DPoint(0, 0));
      EXPECT_TRUE(drawn.element->GetEndPoint() == GX2DPoint(9, 0));
    }
  }
}

}  // namespace
}  // namespace drawing
