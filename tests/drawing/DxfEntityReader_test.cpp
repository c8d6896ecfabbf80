// What is used, counted, refused and said, entity by entity.
#include "drawing/DxfEntityReader.h"

#include "drawing/DxfReader.h"
#include "support/DxfText.h"

#include <gtest/gtest.h>

#include <string>

namespace drawing {
namespace {

const char* const kGoodLine = " 0 LINE 5 AA 10 0 20 0 11 9 21 0 ";
const char* const kRectangleVertices =
    " 0 VERTEX 10 0 20 0 0 VERTEX 10 4 20 0 0 VERTEX 10 4 20 2 0 VERTEX 10 0 20 2 ";

Drawing Read(const std::string& entities) {
  return ReadDrawingText(support::Dxf(entities), "test.dxf");
}

int Sum(const std::map<std::string, int>& counts) {
  int sum = 0;
  for (const auto& entry : counts) sum += entry.second;
  return sum;
}

// The entity is refused with this one complaint, and the line behind it is used.
void ExpectRefused(const std::string& entity, const std::string& complaint) {
  SCOPED_TRACE(entity);
  const Drawing drawing = Read(entity + kGoodLine);
  ASSERT_TRUE(drawing.usable);
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(drawing.entities[0].handle, "AA");
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(ToLine(drawing.complaints[0]), complaint);
  EXPECT_EQ(Sum(drawing.refusedByType), 1);
  EXPECT_EQ(Sum(drawing.entitiesByType), 2);
}

TEST(Entities, CarryTypeLayerColourLinetypeHandleAndLine) {
  const Drawing drawing =
      Read("0 LINE 5 2F 8 cut 62 3 6 DASHED 10 0 20 0 11 1 21 0 0 CIRCLE 10 0 20 0 40 1");
  ASSERT_EQ(drawing.entities.size(), 2u);
  const DrawnEntity& line = drawing.entities[drawing.elements[0].entity];
  EXPECT_EQ(line.type, "LINE");
  EXPECT_EQ(line.layer, "cut");
  EXPECT_EQ(line.colour, 3);
  EXPECT_EQ(line.linetype, "DASHED");
  EXPECT_EQ(line.handle, "2F");
  EXPECT_EQ(line.line, 20u);
  const DrawnEntity& circle = drawing.entities[drawing.elements[1].entity];
  EXPECT_EQ(circle.layer, "0");
  EXPECT_EQ(circle.colour, 256);
  EXPECT_EQ(circle.linetype, "BYLAYER");
  EXPECT_EQ(circle.handle, "");
  EXPECT_EQ(circle.line, 38u);
}

TEST(Entities, AreCountedByTypeAndLayer) {
  const Drawing drawing = Read(
      "0 LINE 8 a 10 0 20 0 11 1 21 0 0 LINE 8 b 10 0 20 0 11 1 21 0 0 TEXT 8 b 1 hello 0 INSERT 8 "
      "a 2 X");
  EXPECT_EQ(drawing.entitiesByType,
            (std::map<std::string, int>{{"INSERT", 1}, {"LINE", 2}, {"TEXT", 1}}));
  EXPECT_EQ(drawing.entitiesByLayer, (std::map<std::string, int>{{"a", 2}, {"b", 2}}));
  EXPECT_EQ(drawing.unusedByType, (std::map<std::string, int>{{"TEXT", 1}}));
  EXPECT_EQ(drawing.refusedByType, (std::map<std::string, int>{{"INSERT", 1}}));
}

TEST(Entities, OfPaperSpaceAreCountedApart) {
  const Drawing drawing = Read(std::string("0 LINE 67 1 10 0 20 0 11 1 21 0 0 POLYLINE 67 1 66 1") +
                               kRectangleVertices + "0 SEQEND 0 LINE 67 0 10 0 20 0 11 1 21 0");
  EXPECT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(drawing.entitiesByType, (std::map<std::string, int>{{"LINE", 1}}));
  EXPECT_EQ(drawing.paperSpaceByType, (std::map<std::string, int>{{"LINE", 1}, {"POLYLINE", 1}}));
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(ToLine(drawing.complaints[0]),
            "test.dxf:20: note: 2 entities in the paper space: LINE 1, POLYLINE 1; left out");
}

TEST(Entities, OfPaperSpaceThatAreOnlyViewportsAreNotToldOf) {
  const Drawing drawing = Read(std::string("0 VIEWPORT 67 1 10 0 20 0") + kGoodLine);
  EXPECT_EQ(drawing.paperSpaceByType, (std::map<std::string, int>{{"VIEWPORT", 1}}));
  EXPECT_TRUE(drawing.complaints.empty());
}

TEST(Entities, OfLengthZeroAreRememberedWithTheirPlaces) {
  const Drawing drawing = Read(
      "0 LINE 5 A 10 3 20 4 11 3 21 4 "
      "0 LWPOLYLINE 5 B 90 4 10 0 20 0 10 5 20 0 10 5 20 0 10 5 20 0");
  ASSERT_EQ(drawing.zeroLength.size(), 3u);
  EXPECT_EQ(drawing.zeroLength[0].entity.handle, "A");
  EXPECT_EQ(drawing.zeroLength[0].place.X, 3.0);
  EXPECT_EQ(drawing.zeroLength[0].place.Y, 4.0);
  // One for each side of the polyline, whose first side is used.
  for (const std::size_t i : {1, 2}) {
    EXPECT_EQ(drawing.zeroLength[i].entity.handle, "B");
    EXPECT_EQ(drawing.zeroLength[i].place.X, 5.0);
    EXPECT_EQ(drawing.zeroLength[i].place.Y, 0.0);
  }
  EXPECT_EQ(drawing.refusedByType, (std::map<std::string, int>{{"LINE", 1}}));
}

TEST(Entities, WithTextsForNumbersAreRefused) {
  ExpectRefused("0 LINE 5 2F 10 abc 20 0 11 1 21 0",
                "test.dxf:24: error: LINE 2F: \"abc\" is no number (group 10); not used");
  ExpectRefused("0 LINE 10 0 20 1.5.2 11 1 21 0",
                "test.dxf:24: error: LINE: \"1.5.2\" is no number (group 20); not used");
  ExpectRefused("0 CIRCLE 10 0 20 0 40 1e999",
                "test.dxf:26: error: CIRCLE: \"1e999\" is too large (group 40); not used");
  ExpectRefused("0 CIRCLE 10 nan 20 0 40 1",
                "test.dxf:22: error: CIRCLE: \"nan\" is no number (group 10); not used");
  ExpectRefused("0 ARC 10 0 20 0 40 1 50 inf 51 0",
                "test.dxf:28: error: ARC: \"inf\" is no number (group 50); not used");
  ExpectRefused("0 LWPOLYLINE 70 x 10 0 20 0 10 1 20 0",
                "test.dxf:22: error: LWPOLYLINE: \"x\" is no whole number (group 70); not used");
  ExpectRefused("0 LWPOLYLINE 10 0 20 0 42 b 10 1 20 0",
                "test.dxf:26: error: LWPOLYLINE: \"b\" is no number (group 42); not used");
}

TEST(Entities, WithADecimalCommaAreUsedWithAWarning) {
  const Drawing drawing = Read("0 LINE 5 2F 10 0,5 20 0 11 1,5 21 0");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(drawing.elements[0].element->GetStartPoint().X, 0.5);
  EXPECT_EQ(drawing.elements[0].element->GetEndPoint().X, 1.5);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(ToLine(drawing.complaints[0]),
            "test.dxf:24: warning: LINE 2F: \"0,5\" has a decimal comma; read as a decimal point");
}

TEST(Entities, WithoutARequiredGroupAreRefused) {
  ExpectRefused("0 LINE 10 0 20 0 11 1", "test.dxf:20: error: LINE: group 21 is missing; not used");
  ExpectRefused("0 CIRCLE 10 0 20 0", "test.dxf:20: error: CIRCLE: group 40 is missing; not used");
  ExpectRefused("0 ARC 10 0 20 0 40 1 50 0",
                "test.dxf:20: error: ARC: group 51 is missing; not used");
  ExpectRefused("0 LWPOLYLINE 10 0 10 1 20 0",
                "test.dxf:24: error: LWPOLYLINE: a vertex has no group 20; not used");
  ExpectRefused("0 LWPOLYLINE 10 0 20 0 10 1",
                "test.dxf:20: error: LWPOLYLINE: the last vertex has no group 20; not used");
  ExpectRefused("0 LWPOLYLINE 20 0 10 1 20 0 10 2 20 0",
                "test.dxf:22: error: LWPOLYLINE: group 20 stands without a group 10; not used");
}

TEST(Entities, WithAGroupGivenTwiceAreRefused) {
  // Two lines whose border has been lost.
  ExpectRefused("0 LINE 10 0 20 0 11 1 21 0 10 1 20 0 11 2 21 0",
                "test.dxf:30: error: LINE: group 10 is given more than once; not used");
}

TEST(Entities, WithARadiusNotAboveZeroAreRefused) {
  ExpectRefused("0 CIRCLE 10 0 20 0 40 0",
                "test.dxf:20: error: CIRCLE: its radius is not above 0; not used");
  ExpectRefused("0 ARC 10 0 20 0 40 -1 50 0 51 90",
                "test.dxf:20: error: ARC: its radius is not above 0; not used");
}

TEST(Entities, OfLengthZeroAreLeftOutWithAWarning) {
  ExpectRefused("0 LINE 10 3 20 4 11 3 21 4",
                "test.dxf:20: warning: LINE: its length is zero; not used");
  ExpectRefused("0 LINE 10 3 20 4 30 0 11 3 21 4 31 7",
                "test.dxf:20: warning: LINE: seen along z its length is zero; not used");
  ExpectRefused("0 LWPOLYLINE 10 3 20 4 10 3 20 4",
                "test.dxf:20: warning: LWPOLYLINE: its length is zero; not used");
}

TEST(Entities, WithATiltedExtrusionAreRefusedExceptLines) {
  ExpectRefused("0 CIRCLE 10 0 20 0 40 1 210 1 220 0 230 0",
                "test.dxf:20: error: CIRCLE: its extrusion is not along z; not used");
  ExpectRefused("0 ARC 10 0 20 0 40 1 50 0 51 90 210 0 220 0.1 230 0.99",
                "test.dxf:20: error: ARC: its extrusion is not along z; not used");
  ExpectRefused("0 LWPOLYLINE 10 0 20 0 10 1 20 0 210 0 220 0 230 0",
                "test.dxf:20: error: LWPOLYLINE: its extrusion is not along z; not used");
  EXPECT_EQ(Read("0 LINE 10 0 20 0 11 1 21 0 210 1 220 0 230 0").elements.size(), 1u);
}

TEST(Entities, WithHeightsAreProjectedAndToldOncePerDrawing) {
  const Drawing drawing = Read(
      "0 LINE 10 0 20 0 30 5 11 1 21 0 31 5 0 CIRCLE 10 0 20 0 30 -2 40 1 "
      "0 LWPOLYLINE 38 1 10 0 20 0 10 1 20 0");
  EXPECT_EQ(drawing.elements.size(), 3u);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(ToLine(drawing.complaints[0]),
            "test.dxf:20: warning: 3 entities have heights other than z = 0, the first one here; "
            "projected along z");
}

TEST(Entities, WithHeightsOfRoundingErrorsAreFlat) {
  EXPECT_TRUE(Read("0 LINE 10 0 20 0 30 1e-12 11 1 21 0 31 -1e-12").complaints.empty());
}

TEST(Entities, WithAColourThatIsNoNumberAreUsedAsByLayer) {
  const Drawing drawing = Read("0 LINE 62 red 10 0 20 0 11 1 21 0");
  ASSERT_EQ(drawing.entities.size(), 1u);
  EXPECT_EQ(drawing.entities[0].colour, 256);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].line, 22u);
}

TEST(Entities, WithLayersInLatin1AreReadAsUtf8WithANote) {
  const Drawing drawing = Read(
      "0 LINE 8 Au\xdf"
      "en 10 0 20 0 11 1 21 0");
  EXPECT_EQ(drawing.entities.at(0).layer,
            "Au\xc3\x9f"
            "en");
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].severity, Severity::kNote);
}

TEST(Entities, MarkedInvisibleAreUsedWithANote) {
  const Drawing drawing = Read("0 LINE 60 1 10 0 20 0 11 1 21 0 0 LINE 60 0 10 0 20 0 11 1 21 0");
  EXPECT_EQ(drawing.elements.size(), 2u);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].done, "used all the same");
}

TEST(Entities, DamagedByALostLineAreRefusedAndTheNextIsUsed) {
  // A group code that is none.
  ExpectRefused("0 LINE 10 0 x 0 11 1 21 0",
                "test.dxf:23: error: LINE: \"x\" stands where a group code is expected; not used");
  // The value of 21 is missing: the pairs slip by one line.
  ExpectRefused(
      "0 LINE 10 0 20 0 11 1 21",
      "test.dxf:29: error: LINE: \"LINE\" stands where a group code is expected; not used");
}

TEST(LightPolyline, WithFewerThanTwoVerticesIsRefused) {
  ExpectRefused("0 LWPOLYLINE 90 1 70 1 10 0 20 0",
                "test.dxf:20: error: LWPOLYLINE: it has fewer than 2 vertices; not used");
  ExpectRefused("0 LWPOLYLINE 90 0 70 1",
                "test.dxf:20: error: LWPOLYLINE: it has fewer than 2 vertices; not used");
}

TEST(LightPolyline, WithAWrongCountIsUsedWithAWarning) {
  const Drawing drawing = Read("0 LWPOLYLINE 90 2000000000 10 0 20 0 10 1 20 0");
  EXPECT_EQ(drawing.elements.size(), 1u);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(
      ToLine(drawing.complaints[0]),
      "test.dxf:20: warning: LWPOLYLINE: it states 2000000000 vertices and has 2; those that it "
      "has are used");
}

TEST(LightPolyline, WithAWidthIsItsCentreLineWithANote) {
  const Drawing drawing = Read("0 LWPOLYLINE 43 2.5 10 0 20 0 10 1 20 0");
  EXPECT_EQ(drawing.elements.size(), 1u);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].done, "the centre line is used");
}

TEST(LightPolyline, WithABulgeBeforeTheFirstVertexIsRefused) {
  ExpectRefused("0 LWPOLYLINE 42 1 10 0 20 0 10 1 20 0",
                "test.dxf:22: error: LWPOLYLINE: a bulge stands before the first vertex; not used");
}

TEST(Polyline, TakesItsVerticesUpToItsEnd) {
  const Drawing drawing = Read(std::string("0 POLYLINE 5 10 66 1 70 1 10 0 20 0 30 0") +
                               kRectangleVertices + "0 SEQEND");
  EXPECT_EQ(drawing.elements.size(), 4u);
  EXPECT_EQ(drawing.entities.size(), 1u);
  EXPECT_EQ(drawing.entitiesByType, (std::map<std::string, int>{{"POLYLINE", 1}}));
  EXPECT_TRUE(drawing.complaints.empty());
}

TEST(Polyline, ReadsBulgesIncludingTheClosingOne) {
  const Drawing drawing =
      Read("0 POLYLINE 66 1 70 1 0 VERTEX 10 0 20 0 42 1 0 VERTEX 10 4 20 0 42 1 0 SEQEND");
  ASSERT_EQ(drawing.elements.size(), 2u);
  const GX2DArc& closing = dynamic_cast<GX2DArc&>(*drawing.elements[1].element);
  EXPECT_TRUE(closing.Mid == GX2DPoint(2, 2));
}

TEST(Polyline, IsMirroredByItsExtrusion) {
  const Drawing drawing =
      Read("0 POLYLINE 66 1 210 0 220 0 230 -1 0 VERTEX 10 1 20 0 0 VERTEX 10 3 20 0 0 SEQEND");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(drawing.elements[0].element->GetEndPoint().X, -3.0);
}

TEST(Polyline, In3DIsProjectedAndKeepsItsCoordinatesWhateverItsExtrusion) {
  const Drawing drawing = Read(
      "0 POLYLINE 66 1 70 8 210 0 220 0 230 -1 0 VERTEX 10 1 20 0 30 0 0 VERTEX 10 3 20 0 30 9 0 "
      "SEQEND");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_EQ(drawing.elements[0].element->GetEndPoint().X, 3.0);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].done, "projected along z");
}

TEST(Polyline, AsMeshIsCountedAsNotUsable) {
  const Drawing drawing = Read(
      "0 POLYLINE 66 1 70 64 0 VERTEX 70 192 10 0 20 0 30 0 0 VERTEX 70 128 71 1 72 2 73 3 0 "
      "SEQEND "
      "0 POLYLINE 66 1 70 16 0 VERTEX 70 64 10 0 20 0 0 SEQEND");
  EXPECT_TRUE(drawing.elements.empty());
  EXPECT_EQ(drawing.entitiesByType.at("POLYLINE"), 2);
  EXPECT_EQ(drawing.unusedByType, (std::map<std::string, int>{{"POLYLINE (mesh)", 2}}));
}

TEST(Polyline, FittedToASplineLeavesItsFrameOut) {
  const Drawing drawing = Read(
      "0 POLYLINE 66 1 70 4 0 VERTEX 70 16 10 0 20 50 0 VERTEX 70 8 10 0 20 0 0 VERTEX 70 8 10 1 "
      "20 0 "
      "0 VERTEX 70 16 10 1 20 50 0 SEQEND");
  ASSERT_EQ(drawing.elements.size(), 1u);
  EXPECT_TRUE(drawing.elements[0].element->GetStartPoint() == GX2DPoint(0, 0));
  EXPECT_TRUE(drawing.elements[0].element->GetEndPoint() == GX2DPoint(1, 0));
}

TEST(Polyline, WithADamagedVertexIsRefusedWhole) {
  ExpectRefused(
      "0 POLYLINE 66 1 0 VERTEX 10 0 20 0 0 VERTEX 10 abc 20 0 0 VERTEX 10 2 20 0 0 SEQEND",
      "test.dxf:32: error: POLYLINE: a VERTEX: \"abc\" is no number (group 10); not used");
  ExpectRefused("0 POLYLINE 66 1 0 VERTEX 10 0 20 0 0 VERTEX 10 1 0 SEQEND",
                "test.dxf:30: error: POLYLINE: a VERTEX: group 20 is missing; not used");
}

TEST(Polyline, WithoutItsEndIsUsedWithAWarning) {
  const Drawing drawing =
      Read(std::string("0 POLYLINE 66 1 70 0") + kRectangleVertices + kGoodLine);
  EXPECT_EQ(drawing.elements.size(), 4u);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(
      ToLine(drawing.complaints[0]),
      "test.dxf:20: warning: POLYLINE: it is not ended by SEQEND; the vertices up to the next "
      "entity belong to it");
  // The end of the section ends it just so.
  EXPECT_EQ(Read(std::string("0 POLYLINE 66 1 70 0") + kRectangleVertices).elements.size(), 3u);
}

TEST(Polyline, WithFewerThanTwoVerticesIsRefused) {
  ExpectRefused("0 POLYLINE 66 1 70 1 0 VERTEX 10 0 20 0 0 SEQEND",
                "test.dxf:20: error: POLYLINE: it has fewer than 2 vertices; not used");
}

TEST(Vertex, OutsideAPolylineIsRefused) {
  ExpectRefused("0 VERTEX 5 7 10 0 20 0",
                "test.dxf:20: error: VERTEX 7: it stands outside a POLYLINE; not used");
}

TEST(SequenceEnd, ThatEndsNothingIsComplainedAbout) {
  const Drawing drawing = Read(std::string("0 SEQEND 5 8") + kGoodLine);
  EXPECT_EQ(drawing.elements.size(), 1u);
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(ToLine(drawing.complaints[0]),
            "test.dxf:20: warning: SEQEND 8: it ends nothing; passed over");
}

TEST(SequenceEnd, OfTheAttributesOfAnInsertIsNoComplaint) {
  const Drawing drawing = Read("0 INSERT 2 X 66 1 0 ATTRIB 1 a 0 ATTRIB 1 b 0 SEQEND");
  EXPECT_EQ(drawing.entitiesByType, (std::map<std::string, int>{{"INSERT", 1}}));
  for (const Complaint& complaint : drawing.complaints) EXPECT_NE(complaint.entity, "SEQEND");
}

}  // namespace
}  // namespace drawing
