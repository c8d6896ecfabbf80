// Dumps of parts as texts, and the parts to dump.
#pragma once

#include "support/LookAlike.h"
#include "support/MemoryParagraph.h"

#include <KTRCL_Geometry/lookalike/CGXLAPartDump.h>
#include <KTRCL_Geometry/lookalike/GXLAPart.h>

#include <cstddef>
#include <iomanip>
#include <limits>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

namespace support {

/// One stored value as "Call key=value", with the decimals of a double behind it.
inline std::string Told(const MemoryParagraph::Value& value) {
  std::ostringstream text;
  text << std::setprecision(std::numeric_limits<double>::max_digits10);
  switch (value.kind) {
    case MemoryParagraph::Value::kAttributeText:
      text << "attribute " << value.key << "=\"" << value.text << '"';
      break;
    case MemoryParagraph::Value::kAttributeInt:
      text << "attribute " << value.key << '=' << value.integer;
      break;
    case MemoryParagraph::Value::kText:
      text << value.key << "=\"" << value.text << '"';
      break;
    case MemoryParagraph::Value::kInt:
      text << "int " << value.key << '=' << value.integer;
      break;
    case MemoryParagraph::Value::kDouble:
      text << value.key << '=' << value.number << '@' << value.decimals;
      break;
  }
  return text.str();
}

/// The whole tree below a paragraph, a line for each call in the order of calls.
inline std::string Tree(const MemoryParagraph& paragraph, const std::string& indent = "") {
  std::string text;
  std::size_t value = 0;
  std::size_t child = 0;
  for (const std::string& call : paragraph.Calls()) {
    if (call.rfind("AddParagraph ", 0) == 0) {
      const MemoryParagraph& next = paragraph.ChildAt(child++);
      text += indent + next.GetName().Str() + "\n" + Tree(next, indent + "  ");
    } else {
      text += indent + Told(paragraph.Values().at(value++)) + "\n";
    }
  }
  return text;
}

inline std::string Dumped(GXLAPart& part, const GXString& comment = "",
                          IGXLAPartDump_GXLAContourInstanceXmlAttribute* attributes = nullptr) {
  MemoryParagraph root;
  CGXLAPartDump::DoDump(part, root, comment, attributes);
  return Tree(root);
}

/// A part whose fields are filled one by one; it owns what it is given.
struct Part : GXLAPart {
  GXLAContour& SetExternal(std::unique_ptr<GXLAContour> contour) {
    ExternalLAContour = contour.release();
    return *ExternalLAContour;
  }
  GXLAContourInstance& SetExternalInstance(const GX2DElmList& elements) {
    ExternalLAContourInstance = new GXLAContourInstance(elements, ExternalLAContour, false, 0);
    return *ExternalLAContourInstance;
  }
  GXLAContour& AddShape(std::unique_ptr<GXLAContour> contour) {
    InternalLAContours.AddElement(*contour);
    InternalLAContourManager[contour.get()];
    return *contour.release();
  }
  GXLAContourInstance& AddOccurrence(GXLAContour& shape, const GX2DElmList& elements) {
    auto* const instance = new GXLAContourInstance(elements, &shape, false, 0);
    InternalLAContourInstances.push_back(instance);
    InternalLAContourManager[&shape].push_back(instance);
    return *instance;
  }
};

/// The paragraph "GXLAPart" of a dump, which the root keeps.
inline MemoryParagraph& DumpInto(MemoryParagraph& root, GXLAPart& part) {
  CGXLAPartDump::DoDump(part, root, "", nullptr);
  return root.Child("GXLAPart");
}

/// What stands for one contour: the dump of it as the external one.
class ContourDump {
 public:
  explicit ContourDump(std::unique_ptr<GXLAContour> contour) {
    part_.SetExternal(std::move(contour));
    DumpInto(root_, part_);
  }
  MemoryParagraph& Contour() { return root_.Child("GXLAPart").Child("ExtGXLAContour"); }
  MemoryParagraph& Elements() { return Contour().Child("ELEMENTS"); }

 private:
  Part part_;
  MemoryParagraph root_;
};

/// What stands for one occurrence of an internal shape with these elements.
class InstanceDump {
 public:
  explicit InstanceDump(const GX2DElmList& elements) {
    GXLAContourInstance& instance = part_.AddOccurrence(
        part_.AddShape(std::make_unique<GXLAContour>(false, kNone)), GX2DElmList());
    // Not by copying: other kinds are to come along.
    for (GX2DElement* const element : elements) {
      instance.push_back(element);
    }
    DumpInto(root_, part_);
    instance.clear();
  }
  MemoryParagraph& Instance() {
    return root_.Child("GXLAPart")
        .Child("IntGXLAContourManager")
        .Child("IntGXLAContour")
        .Child("GXLAContourInstance");
  }
  MemoryParagraph& Element(std::size_t position) { return Instance().ChildAt(position); }

 private:
  Part part_;
  MemoryParagraph root_;
};

/// A closed contour of two lines and an arc between them. The angles need not fit a figure.
inline std::unique_ptr<GXLAContour> Triangle() {
  auto contour = std::make_unique<GXLAContour>(true, kCCW);
  AddLine(*contour, 3);
  AddAngle(*contour, 0.5);
  AddArc(*contour, 4);
  AddAngle(*contour, 1);
  AddLine(*contour, 5);
  AddAngle(*contour, 1.5);
  return contour;
}

/// The dump of it. 180 / pi is 57.295779513082320877..., and the angles stand there as the shortest
/// texts that read back to the same number.
constexpr const char* kTriangle =
    "int Id=-1\n"
    "LENGTH=12@-1\n"
    "ANGLE=\"3 (171.88733853924697)\"\n"
    "LINES=2@-1\n"
    "ARCS=1@-1\n"
    "KIND=\"CLOSED\"\n"
    "DIR=\"CCW\"\n"
    "ELEMENTS\n"
    "  attribute Count=6\n"
    "  LINE_1=\"3\"\n"
    "  ANGLE=\"0.5 (28.64788975654116)\"\n"
    "  ARC_2=\"4\"\n"
    "  ANGLE=\"1 (57.29577951308232)\"\n"
    "  LINE_3=\"5\"\n"
    "  ANGLE=\"1.5 (85.94366926962348)\"\n";

/// Each line of a text moved to the right.
inline std::string Indented(const std::string& text, const std::string& indent) {
  std::string moved;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    moved += indent + line + "\n";
  }
  return moved;
}

}  // namespace support
