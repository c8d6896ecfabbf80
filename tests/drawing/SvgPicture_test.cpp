#include "drawing/SvgPicture.h"

#include "drawing/DxfReader.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace {

// A drawing of entities that are given as text.
drawing::PartModel Part(const std::string& entities, const std::string& name = "part.dxf") {
  return drawing::BuildPart(drawing::ReadDrawingText(
      "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n", name));
}

std::string Polyline(const std::string& vertices, int count) {
  return "0\nLWPOLYLINE\n8\n0\n90\n" + std::to_string(count) + "\n70\n1\n" + vertices;
}

// 40 by 20 with half-round ends of radius 10: large, clear arcs.
const char* const kSlot =
    "10\n0\n20\n0\n10\n40\n20\n0\n42\n1\n10\n40\n20\n20\n10\n0\n20\n20\n42\n1\n";
const char* const kHole = "0\nCIRCLE\n8\n0\n10\n20\n20\n10\n40\n3\n";
const char* const kOtherHole = "0\nCIRCLE\n8\n0\n10\n25\n20\n10\n40\n3\n";

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

std::string Picture(const drawing::PartModel& a, const drawing::PartModel& b) {
  return drawing::ComparisonSvg(a, b, drawing::CompareParts(a, b, {}));
}

TEST(ComparisonSvg, DrawsArcsAsArcsAndNothingDashedForEqualParts) {
  const auto part = Part(Polyline(kSlot, 4) + kHole);
  ASSERT_TRUE(part.usable) << part.obstacle;
  const std::string svg = Picture(part, part);
  // Per side: two half rounds and two halves of the circle, drawn once as sheet and once as stroke.
  EXPECT_EQ(Count(svg, "A "), 16U + 1U);  // and the name "A  part.dxf"
  // One dashed stroke: the legend's.
  EXPECT_EQ(Count(svg, "<path class=\"differs\""), 1U);
  EXPECT_EQ(Count(svg, "class=\"start\""), 3U);
}

TEST(ComparisonSvg, MarksTheCutOutsWithoutPartnerOnBothSides) {
  const auto a = Part(Polyline(kSlot, 4) + kHole);
  const auto b = Part(Polyline(kSlot, 4) + kOtherHole);
  EXPECT_EQ(Count(Picture(a, b), "<path class=\"differs\""), 3U);
}

TEST(ComparisonSvg, MarksTheSegmentsThatTheOtherOutlineLacks) {
  // 40 by 20 against 40 by 25: two sides of each are of a length that the other lacks.
  const auto a = Part(Polyline("10\n0\n20\n0\n10\n40\n20\n0\n10\n40\n20\n20\n10\n0\n20\n20\n", 4));
  const auto b = Part(Polyline("10\n0\n20\n0\n10\n40\n20\n0\n10\n40\n20\n25\n10\n0\n20\n25\n", 4));
  EXPECT_EQ(Count(Picture(a, b), "<path class=\"differs\""), 1U + 4U);
}

TEST(ComparisonSvg, DashesTheWholeOutlineOfAMirrorImage) {
  const auto a = Part(Polyline("10\n0\n20\n0\n10\n40\n20\n0\n10\n0\n20\n30\n", 3));
  const auto longer = Part(Polyline("10\n0\n20\n0\n10\n40\n20\n0\n10\n10\n20\n30\n", 3));
  const auto mirrored = Part(Polyline("10\n0\n20\n0\n10\n40\n20\n0\n10\n30\n20\n30\n", 3));
  ASSERT_TRUE(a.usable);
  EXPECT_EQ(Count(Picture(longer, mirrored), "<path class=\"differs\""), 1U + 6U);
}

TEST(ComparisonSvg, EscapesFileNames) {
  const auto a = Part(Polyline(kSlot, 4), "<a & \"b\">\x01\xFF.dxf");
  const std::string svg = Picture(a, a);
  EXPECT_NE(svg.find("&lt;a &amp; &quot;b&quot;&gt;??.dxf"), std::string::npos);
}

TEST(ComparisonSvg, TurnsTheSenseOfArcsWithTheYAxis) {
  // The slot's first half round runs counter-clockwise from (40, 0) to (40, 20): sweep flag 0, and
  // a half circle is no large arc.
  const auto a = Part(Polyline(kSlot, 4));
  EXPECT_NE(Picture(a, a).find(" 0 0 0 "), std::string::npos);
  EXPECT_EQ(Picture(a, a).find(" 0 1 1 "), std::string::npos);
}

}  // namespace
