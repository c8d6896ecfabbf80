// Tags and order of the paragraphs are what hosts and their readers know: nothing here may be
// renamed or moved.
#include <KTRCL_Geometry/lookalike/CGXLAPartDump.h>

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_DataTypes/GXParagraph.h>
#include <KTRCL_DataTypes/GXString.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/foundation/GXBoundBox.h>
#include <KTRCL_Geometry/lookalike/GXLAPart.h>

#include "lookalike/ElementFigure.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>

namespace {

using ktrcl_internal::ElementFigure;
using ktrcl_internal::ElementKind;
using ktrcl_internal::FigureOf;

// As many decimals as the number needs to read back.
constexpr int kAllDecimals = -1;

int Count(std::size_t size) {
  constexpr std::size_t kLargest = std::numeric_limits<int>::max();
  return static_cast<int>(std::min(size, kLargest));
}

void AddNumber(GXParagraph& paragraph, const char* tag, double value) {
  paragraph.AddDouble(tag, value, kAllDecimals);
}

GXString AngleText(double radians) {
  return GXString(radians, kAllDecimals).Str() + " (" +
         GXString(GXMath::RadToDeg(radians), kAllDecimals).Str() + ")";
}

void AddSegment(GXParagraph& paragraph, const char* tag, std::size_t number, double length) {
  paragraph.AddString(tag + std::to_string(number), GXString(length, kAllDecimals));
}

// Lines and arcs share one running number, angles have none.
void AddElements(const GXLAContour& contour, GXParagraph& paragraph) {
  std::size_t number = 1;
  for (const GXLAElement* element : contour) {
    const ElementFigure figure = FigureOf(element);
    switch (figure.Kind) {
      case ElementKind::kLine:
        AddSegment(paragraph, "LINE_", number++, figure.Value);
        break;
      case ElementKind::kArc:
        AddSegment(paragraph, "ARC_", number++, figure.Value);
        break;
      case ElementKind::kAngle:
        paragraph.AddString("ANGLE", AngleText(figure.Value));
        break;
      case ElementKind::kNone:
        break;
    }
  }
}

void AddEnds(const GX2DPoint& start, const GX2DPoint& end, GXParagraph& paragraph) {
  AddNumber(paragraph, "XS", start.X);
  AddNumber(paragraph, "YS", start.Y);
  AddNumber(paragraph, "XE", end.X);
  AddNumber(paragraph, "YE", end.Y);
}

void AddArc(const GX2DArc& arc, GXParagraph& paragraph) {
  AddEnds(arc.Start, arc.End, paragraph);
  AddNumber(paragraph, "XC", arc.Center.X);
  AddNumber(paragraph, "YC", arc.Center.Y);
  AddNumber(paragraph, "XM", arc.Mid.X);
  AddNumber(paragraph, "YM", arc.Mid.Y);
  AddNumber(paragraph, "R", arc.Radius());
  if (arc.IsCW()) paragraph.AddString("DIR", "CW");
  if (arc.IsCCW()) paragraph.AddString("DIR", "CCW");
  paragraph.AddString("KIND", arc.IsCircle() ? "CIRCLE" : "ARC");
}

void AddBoundBox(const GX2DElmList& elements, GXParagraph& paragraph) {
  GXBoundBox box;
  elements.GetBoundBox(box);
  AddNumber(paragraph, "XMin", box.Minimum.X);
  AddNumber(paragraph, "XMax", box.Maximum.X);
  AddNumber(paragraph, "YMin", box.Minimum.Y);
  AddNumber(paragraph, "YMax", box.Maximum.Y);
}

}  // namespace

IGXLAPartDump_GXLAContourInstanceXmlAttribute::IGXLAPartDump_GXLAContourInstanceXmlAttribute() =
    default;
IGXLAPartDump_GXLAContourInstanceXmlAttribute::~IGXLAPartDump_GXLAContourInstanceXmlAttribute() =
    default;

CGXLAPartDump::CGXLAPartDump() = default;
CGXLAPartDump::~CGXLAPartDump() = default;

void CGXLAPartDump::DoDump(GXLAPart& part, GXParagraph& parent, const GXString& comment,
                           IGXLAPartDump_GXLAContourInstanceXmlAttribute* attributes) {
  GXParagraph& top = *parent.AddParagraph("GXLAPart");
  if (!comment.IsEmpty()) top.SetAttribute("COMMENT", comment);

  if (GXLAContour* const contour = part.GetExternalLAContour()) {
    GXParagraph& shape = *top.AddParagraph("ExtGXLAContour");
    DumpGXLAContour(*contour, shape);
    if (GXLAContourInstance* const instance = part.GetExternalLAContourInstance()) {
      GXParagraph& occurrence = *shape.AddParagraph("GXLAContourInstance");
      occurrence.SetAttribute("Count", Count(instance->size()));
      DumpGXLAContourInstance(*instance, occurrence);
      AddBoundBox(*instance, *occurrence.AddParagraph("BoundBox"));
    }
  }

  GXParagraph& shapes = *top.AddParagraph("IntGXLAContourList");
  for (GXLAContour* const contour : part.GetInternalLAContourList()) {
    if (contour != nullptr) DumpGXLAContour(*contour, *shapes.AddParagraph("IntGXLAContour"));
  }

  GXParagraph& groups = *top.AddParagraph("IntGXLAContourManager");
  for (auto& [contour, instances] : part.GetInternalLAContourManager()) {
    if (contour == nullptr) continue;
    GXParagraph& group = *groups.AddParagraph("IntGXLAContour");
    DumpGXLAContour(*contour, group);
    for (GXLAContourInstance* const instance : instances) {
      if (instance == nullptr) continue;
      GXParagraph* const occurrence = group.AddParagraph("GXLAContourInstance");
      if (attributes != nullptr) attributes->AddXmlAttribute(instance, occurrence);
      DumpGXLAContourInstance(*instance, *occurrence);
    }
  }
}

void CGXLAPartDump::DumpGXLAContour(GXLAContour& contour, GXParagraph& paragraph) {
  paragraph.AddInt("Id", contour.GetContourIndex());
  AddNumber(paragraph, "LENGTH", contour.GetTotalGeometryLength());
  paragraph.AddString("ANGLE", AngleText(contour.GetTotalGeometryAngle()));
  AddNumber(paragraph, "LINES", contour.GetNumberOfLines());
  AddNumber(paragraph, "ARCS", contour.GetNumberOfArcs());
  paragraph.AddString("KIND", contour.IsClosed() ? "CLOSED" : "OPEN");
  paragraph.AddString("DIR", contour.GetContourDirectionAsString());
  GXParagraph& elements = *paragraph.AddParagraph("ELEMENTS");
  elements.SetAttribute("Count", Count(contour.size()));
  AddElements(contour, elements);
}

void CGXLAPartDump::DumpGXLAContourInstance(GXLAContourInstance& instance, GXParagraph& paragraph) {
  for (const GX2DElement* const element : instance) {
    GXParagraph& child = *paragraph.AddParagraph("ELEMENT");
    if (const auto* line = dynamic_cast<const GX2DLine*>(element)) {
      AddEnds(line->Start, line->End, child);
    } else if (const auto* arc = dynamic_cast<const GX2DArc*>(element)) {
      AddArc(*arc, child);
    }
  }
}
