#include "drawing/DxfWriter.h"

#include "DrawingSketch.h"
#include "drawing/CurveMeasures.h"
#include "drawing/DxfReader.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using drawing::Drawing;
using drawing::DxfText;
using drawing::DxfVersion;
using drawing::ReadDrawingText;
using support::AddArc;
using support::AddCircle;
using support::AddElement;
using support::AddLine;

constexpr DxfVersion kBoth[] = {DxfVersion::kR12, DxfVersion::kR2000};

Drawing Reread(const std::string& text) { return ReadDrawingText(text, "written.dxf"); }

// The lines of the section of entities, without handles, owners and subclass markers.
std::string EntityLines(const std::string& text) {
  const std::size_t begin = text.find("ENTITIES\n") + 9;
  std::string lines = text.substr(begin, text.find("  0\nENDSEC\n", begin) - begin);
  std::string kept;
  for (std::size_t i = 0; i < lines.size();) {
    const std::size_t value = lines.find('\n', i) + 1;
    const std::size_t next = lines.find('\n', value) + 1;
    const int code = std::stoi(lines.substr(i, value - i));
    if (code != 5 && code != 330 && code != 100) {
      kept += std::to_string(code) + " " + lines.substr(value, next - value);
    }
    i = next;
  }
  return kept;
}

std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t i = text.find(part); i != std::string::npos; i = text.find(part, i + 1)) ++count;
  return count;
}

TEST(DxfText, WritesLineArcAndCircle) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 12.5, -3, "CUT");
  AddArc(drawing, 10, 20, 5, 30, 60);
  AddCircle(drawing, 1, 2, 0.5);
  for (const DxfVersion version : kBoth) {
    EXPECT_EQ(EntityLines(DxfText(drawing, version)),
              "0 LINE\n8 CUT\n10 0.0\n20 0.0\n30 0.0\n11 12.5\n21 -3.0\n31 0.0\n"
              "0 ARC\n8 0\n10 10.0\n20 20.0\n30 0.0\n40 5.0\n50 30.0\n51 90.0\n"
              "0 CIRCLE\n8 0\n10 1.0\n20 2.0\n30 0.0\n40 0.5\n");
  }
}

TEST(DxfText, WritesClockwiseArcsFromTheirEnd) {
  Drawing drawing;
  AddArc(drawing, 0, 0, 5, 90, -60);
  AddArc(drawing, 0, 0, 5, 10, -300);
  const std::string lines = EntityLines(DxfText(drawing, DxfVersion::kR12));
  EXPECT_NE(lines.find("50 30.0\n51 90.0\n"), std::string::npos) << lines;
  // 10 - 300 = -290 = 70 degrees.
  EXPECT_NE(lines.find("50 70.0\n51 10.0\n"), std::string::npos) << lines;
}

TEST(DxfText, WritesNoMinusZero) {
  Drawing drawing;
  AddLine(drawing, -0.0, -1e-14, -1.0, -1e-300);
  AddArc(drawing, -0.0, -0.0, 1, -1e-14, 180);
  for (const DxfVersion version : kBoth) {
    const std::string text = DxfText(drawing, version);
    EXPECT_EQ(text.find("-0.0\n"), std::string::npos);
    EXPECT_EQ(text.find("-0\n"), std::string::npos);
    EXPECT_EQ(text.find("360.0\n"), std::string::npos);
  }
}

TEST(DxfText, KeepsLayerColourAndLinetype) {
  Drawing drawing;
  drawing::DrawnEntity& first = AddLine(drawing, 0, 0, 1, 0, "OUTLINE");
  first.colour = 0;
  first.linetype = "BYBLOCK";
  drawing::DrawnEntity& second = AddLine(drawing, 1, 0, 2, 0, "CUT OUT");
  second.colour = 255;
  second.linetype = "DASHED";
  drawing::DrawnEntity& third = AddLine(drawing, 2, 0, 3, 0, "OUTLINE");
  third.colour = 256;
  third.linetype = "Continuous";
  for (const DxfVersion version : kBoth) {
    const std::string text = DxfText(drawing, version);
    const Drawing back = Reread(text);
    ASSERT_EQ(back.entities.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_EQ(back.entities[i].layer, drawing.entities[i].layer);
      EXPECT_EQ(back.entities[i].colour, drawing.entities[i].colour);
      EXPECT_EQ(back.entities[i].linetype, drawing.entities[i].linetype);
    }
    // Defined once and used once; the standard ones are not defined again.
    EXPECT_EQ(CountOf(text, "\nDASHED\n"), 2U);
    EXPECT_EQ(CountOf(text, "\nOUTLINE\n"), 3U);
    EXPECT_EQ(CountOf(text, "\nBYBLOCK\n"), 1U);
  }
}

TEST(DxfText, WritesColoursThatAreNoneAsByLayer) {
  Drawing drawing;
  for (const int colour : {-7, 257, 1000000, std::numeric_limits<int>::min()}) {
    AddLine(drawing, 0, 0, 1, colour > 0 ? 1 : 2).colour = colour;
  }
  const std::string lines = EntityLines(DxfText(drawing, DxfVersion::kR2000));
  EXPECT_EQ(CountOf(lines, "0 LINE\n"), 4U);
  EXPECT_EQ(CountOf(lines, "\n62 "), 0U);
}

TEST(DxfText, NamesMillimetres) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 1, 1);
  const Drawing modern = Reread(DxfText(drawing, DxfVersion::kR2000));
  EXPECT_EQ(modern.version, "AC1015");
  EXPECT_EQ(modern.unit.code, 4);
  EXPECT_FALSE(modern.unit.assumed);
  const std::string text = DxfText(drawing, DxfVersion::kR12);
  EXPECT_EQ(Reread(text).version, "AC1009");
  EXPECT_NE(text.find("999\nAll lengths are millimetres.\n"), std::string::npos);
  EXPECT_EQ(text.find("$INSUNITS"), std::string::npos);
}

TEST(DxfText, WritesNothingThatTheReaderComplainsAbout) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddArc(drawing, 10, 5, 5, -90, 180);
  AddCircle(drawing, 3, 3, 1);
  for (const DxfVersion version : kBoth) {
    const Drawing back = Reread(DxfText(drawing, version));
    EXPECT_EQ(back.elements.size(), 3U);
    for (const drawing::Complaint& complaint : back.complaints) {
      // R12 has no unit, which is said.
      EXPECT_EQ(complaint.what, "the drawing names no unit") << ToLine(complaint);
    }
    EXPECT_EQ(back.complaints.size(), version == DxfVersion::kR12 ? 1U : 0U);
  }
}

TEST(DxfText, WritesTheElementsAskedForInTheirOrder) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 1, 0, "A");
  AddLine(drawing, 0, 0, 2, 0, "B");
  AddLine(drawing, 0, 0, 3, 0, "C");
  const std::string text = DxfText(drawing, DxfVersion::kR12, {2, 0, 99});
  const Drawing back = Reread(text);
  ASSERT_EQ(back.elements.size(), 2U);
  EXPECT_EQ(back.elements[0].element->GetEndPoint().X, 3.0);
  EXPECT_EQ(back.elements[1].element->GetEndPoint().X, 1.0);
  // Layers that nothing is on are no layers of the file.
  EXPECT_EQ(text.find("\nB\n"), std::string::npos);
}

TEST(DxfText, PassesOverWhatCouldNotBeReadAgain) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinite = std::numeric_limits<double>::infinity();
  Drawing drawing;
  drawing.elements.push_back({nullptr, 0});
  AddLine(drawing, nan, 0, 1, 0);
  AddLine(drawing, 0, 0, infinite, 0);
  AddLine(drawing, 1, 1, 1, 1);
  AddLine(drawing, 1, 1, 1 + 1e-14, 1);
  AddArc(drawing, 0, nan, 1, 0, 90);
  AddArc(drawing, 0, 0, infinite, 0, 90);
  AddElement(drawing, std::make_unique<GX2DPoint>(1, 2));
  AddElement(drawing, std::make_unique<GX2DRectangle>(GX2DPoint(0, 0), GX2DPoint(1, 1)));
  for (const DxfVersion version : kBoth) {
    const std::string text = DxfText(drawing, version);
    EXPECT_EQ(EntityLines(text), "");
    EXPECT_TRUE(Reread(text).usable);
  }
}

TEST(DxfText, WritesArcsThatReadingTakesForLinesAsLines) {
  Drawing drawing;
  // 0.00015 mm long: its middle and its end are one point to the reader.
  AddArc(drawing, 0, 0, 1, 0, 0.00015 * 180.0 / 3.14159265358979323846);
  const std::string lines = EntityLines(DxfText(drawing, DxfVersion::kR2000));
  EXPECT_EQ(CountOf(lines, "0 LINE\n"), 1U) << lines;
}

TEST(DxfText, KeepsTheEndsOfFlatArcs) {
  // A sagitta of 0.01 mm over a chord of 100 mm: radius 100^2 / (8 * 0.01) = 125000 mm.
  Drawing drawing;
  const double radius = 125000.0 + 0.005;
  const GX2DPoint centre(350.123456789, 20.0 - radius + 0.01);
  const GX2DPoint start(300.123456789, 20.0);
  const GX2DPoint end(400.123456789, 20.0);
  AddElement(drawing,
             std::make_unique<GX2DArc>(centre, end, GX2DPoint(350.123456789, 20.01), start));
  for (const DxfVersion version : kBoth) {
    const Drawing back = Reread(DxfText(drawing, version));
    ASSERT_EQ(back.elements.size(), 1U);
    const auto* arc = dynamic_cast<const GX2DArc*>(back.elements[0].element.get());
    ASSERT_NE(arc, nullptr);
    EXPECT_EQ(arc->Start.X, end.X);
    EXPECT_EQ(arc->End.X, start.X);
    EXPECT_EQ(arc->End.Y, 20.0);
    // The middle is off by no more than the rounding of a bulge of 0.0002 to 13 digits.
    EXPECT_NEAR(drawing::ArcMiddle(*arc).Y, 20.01, 1e-9);
    EXPECT_NEAR(drawing::ArcMiddle(*arc).X, 350.123456789, 1e-6);
  }
}

TEST(DxfText, IsTheSameUnderALocaleWithDecimalComma) {
  Drawing drawing;
  AddLine(drawing, 1234.5, 0.25, 1e6 + 0.125, -0.5);
  AddArc(drawing, 0.5, 0.5, 2.5, 12.5, 100.25);
  const std::string plain = DxfText(drawing, DxfVersion::kR12);
  const std::string before = std::setlocale(LC_ALL, nullptr);
  const bool there = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
  const std::string comma = DxfText(drawing, DxfVersion::kR12);
  std::setlocale(LC_ALL, before.c_str());
  if (!there) GTEST_SKIP() << "the locale de_DE.UTF-8 is not installed";
  EXPECT_EQ(comma, plain);
}

TEST(DxfText, OfNoElementIsADrawing) {
  for (const DxfVersion version : kBoth) {
    const Drawing back = Reread(DxfText(Drawing(), version));
    EXPECT_TRUE(back.usable);
    EXPECT_TRUE(back.elements.empty());
  }
}

// ----- Random drawings

Drawing RandomDrawing(support::Random& random, double extent, double offset) {
  const char* const layers[] = {"0", "CUT", "a<b", "a>b", "  blanks  ", "cut"};
  Drawing drawing;
  for (int i = 0; i < 40; ++i) {
    const std::string layer = layers[random.Int(0, 5)];
    const double x = offset + random.Between(-extent, extent);
    const double y = -offset + random.Between(-extent, extent);
    const double size = extent * std::pow(10.0, random.Between(-4.0, 0.0));
    switch (random.Int(0, 3)) {
      case 0:
        AddLine(drawing, x, y, x + random.Between(-size, size), y + size, layer);
        break;
      case 1:
        AddCircle(drawing, x, y, size, layer);
        break;
      case 2:
        AddArc(drawing, x, y, size, random.Between(-720, 720), random.Between(-360, 360), layer);
        break;
      default:  // Flat, up to far beyond the drawing.
        AddArc(drawing, x, y, size * 1e4, random.Between(0, 360), random.Between(-0.1, 0.1), layer);
    }
    drawing.entities.back().colour = random.Int(0, 256);
  }
  return drawing;
}

struct Span {
  double extent;
  double offset;
};

constexpr Span kSpans[] = {{1e-2, 0.0},  {1.0, 0.0},    {100.0, 0.0}, {1000.0, 0.0}, {1e5, 0.0},
                           {1e-2, 10.0}, {1.0, 1000.0}, {100.0, 1e4}, {1000.0, 1e6}, {1.0, 1e6}};

TEST(DxfTextOfRandomDrawings, ComesBackByteForByte) {
  support::Random random;
  for (const Span& span : kSpans) {
    SCOPED_TRACE("extent " + std::to_string(span.extent) + ", offset " +
                 std::to_string(span.offset));
    for (int i = 0; i < 50; ++i) {
      const Drawing drawing = RandomDrawing(random, span.extent, span.offset);
      for (const DxfVersion version : kBoth) {
        const std::string text = DxfText(drawing, version);
        const Drawing back = Reread(text);
        ASSERT_EQ(DxfText(back, version), text);
      }
    }
  }
}

// How far the ends of what was read are from those of what was written; arcs may have been turned
// round.
double EndsMoved(GX2DElement& written, GX2DElement& read) {
  const auto apart = [](const GX2DPoint& p, const GX2DPoint& q) { return drawing::Distance(p, q); };
  const double along = std::max(apart(written.GetStartPoint(), read.GetStartPoint()),
                                apart(written.GetEndPoint(), read.GetEndPoint()));
  const double against = std::max(apart(written.GetStartPoint(), read.GetEndPoint()),
                                  apart(written.GetEndPoint(), read.GetStartPoint()));
  return std::min(along, against);
}

TEST(DxfTextOfRandomDrawings, MovesEndsAndMiddlesByTheLastFiguresOnly) {
  support::Random random;
  for (const Span& span : kSpans) {
    SCOPED_TRACE("extent " + std::to_string(span.extent) + ", offset " +
                 std::to_string(span.offset));
    // 13 figures of the largest one, which is at most ten times the power of ten below it; an end
    // collects the rounding of centre, radius and angle.
    const double reach = 2.0 * span.extent + span.offset;
    const double bound =
        std::max(3.0 * std::pow(10.0, std::floor(std::log10(reach)) - 13.0), 4e-12);
    for (int i = 0; i < 400; ++i) {
      Drawing drawing;
      const double size = span.extent * std::pow(10.0, random.Between(-1.0, 0.0));
      const double x = span.offset + random.Between(-span.extent, span.extent);
      // Neither so short nor so nearly closed that reading makes a line or a circle of it, and not
      // so large that it is written as a side.
      const double sweep = random.Between(5, 355) * (random.Bool() ? 1 : -1);
      if (size > 1e4 || size * 0.08 < 3e-4) continue;
      AddArc(drawing, x, span.offset, size, random.Between(0, 360), sweep);
      const Drawing back = Reread(DxfText(drawing, DxfVersion::kR2000));
      ASSERT_EQ(back.elements.size(), 1U);
      GX2DElement& written = *drawing.elements[0].element;
      GX2DElement& read = *back.elements[0].element;
      ASSERT_LE(EndsMoved(written, read), bound);
      ASSERT_LE(drawing::Distance(drawing::MiddleOf(written), drawing::MiddleOf(read)), bound);
    }
  }
}

}  // namespace
