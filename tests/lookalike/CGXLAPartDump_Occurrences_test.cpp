// What a dump writes for the occurrences of shapes: their elements, and what the host adds.
#include "DumpedPart.h"
#include "support/Build.h"
#include "support/Foreign.h"
#include "support/LookAlike.h"
#include "support/MemoryParagraph.h"
#include "support/Near.h"

#include <KTRCL_Geometry/foundation/GXBoundBox.h>
#include <KTRCL_Geometry/lookalike/CGXLAPartDump.h>
#include <KTRCL_Geometry/lookalike/GXLAPart.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace {

using support::Dumped;
using support::DumpInto;
using support::InstanceDump;
using support::MemoryParagraph;
using support::OpenContour;
using support::Part;
using support::Tree;
using support::Triangle;

TEST(DoDump, WritesNoCountAndNoBoxForInternalOccurrences) {
  GX2DElmList elements;
  support::Add(elements, support::Line(1, 2, 3, 4));
  InstanceDump dump(elements);
  EXPECT_TRUE(dump.Instance().Values().empty());
  EXPECT_FALSE(dump.Instance().HasChild("BoundBox"));
  EXPECT_EQ(dump.Instance().ChildCount(), 1U);
}

TEST(DoDump, WritesALineByItsEnds) {
  GX2DElmList elements;
  support::Add(elements, support::Line(0.1, 1.0 / 3.0, -3, 4e-20));
  InstanceDump dump(elements);
  EXPECT_EQ(dump.Element(0).GetName().Str(), "ELEMENT");
  EXPECT_EQ(dump.Element(0).Keys(), (std::vector<std::string>{"XS", "YS", "XE", "YE"}));
  EXPECT_SAME_BITS(dump.Element(0).Number("XS"), 0.1);
  EXPECT_SAME_BITS(dump.Element(0).Number("YS"), 1.0 / 3.0);
  EXPECT_SAME_BITS(dump.Element(0).Number("XE"), -3.0);
  EXPECT_SAME_BITS(dump.Element(0).Number("YE"), 4e-20);
}

TEST(DoDump, WritesACounterClockwiseArc) {
  GX2DElmList elements;
  support::Add(elements, support::Arc(1, 2, 6, 2, 4, 6, 1, 7));
  InstanceDump dump(elements);
  EXPECT_EQ(Tree(dump.Element(0)),
            "XS=6@-1\nYS=2@-1\nXE=1@-1\nYE=7@-1\nXC=1@-1\nYC=2@-1\nXM=4@-1\nYM=6@-1\nR=5@-1\n"
            "DIR=\"CCW\"\nKIND=\"ARC\"\n");
}

TEST(DoDump, WritesAClockwiseArc) {
  GX2DElmList elements;
  support::Add(elements, support::Arc(1, 2, 1, 7, 4, 6, 6, 2));
  InstanceDump dump(elements);
  EXPECT_EQ(Tree(dump.Element(0)),
            "XS=1@-1\nYS=7@-1\nXE=6@-1\nYE=2@-1\nXC=1@-1\nYC=2@-1\nXM=4@-1\nYM=6@-1\nR=5@-1\n"
            "DIR=\"CW\"\nKIND=\"ARC\"\n");
}

TEST(DoDump, WritesAFullCircle) {
  GX2DElmList elements;
  support::Add(elements, support::Circle(1, 2, 3), support::Circle(1, 2, 3, true));
  InstanceDump dump(elements);
  EXPECT_EQ(dump.Element(0).TextOf("KIND"), "CIRCLE");
  EXPECT_EQ(dump.Element(0).TextOf("DIR"), "CCW");
  EXPECT_EQ(dump.Element(1).TextOf("KIND"), "CIRCLE");
  EXPECT_EQ(dump.Element(1).TextOf("DIR"), "CW");
  EXPECT_EQ(dump.Element(0).Number("R"), 3.0);
}

TEST(DoDump, WritesAnArcWithItsEndsWithinTheToleranceOfCirclesAsOne) {
  GX2DElmList elements;
  support::Add(elements, support::Arc(0, 0, 3, 0, 0, 3, 3, -0.00009),
               support::Arc(0, 0, 3, 0, 0, 3, 3, -0.00011));
  InstanceDump dump(elements);
  EXPECT_EQ(dump.Element(0).TextOf("KIND"), "CIRCLE");
  EXPECT_EQ(dump.Element(1).TextOf("KIND"), "ARC");
}

TEST(DoDump, WritesTheRadiusToTheStart) {
  GX2DElmList elements;
  support::Add(elements, support::Arc(0, 0, 3, 4, 0, 7, -11, 0));
  InstanceDump dump(elements);
  EXPECT_EQ(dump.Element(0).Number("R"), 5.0);
}

// An arc that answers both questions about its sense with yes.
class BothWays : public GX2DArc {
 public:
  using GX2DArc::GX2DArc;
  explicit BothWays(const GX2DArc& arc) : GX2DArc(arc) {}
  bool IsCW() const override { return true; }
  bool IsCCW() const override { return true; }
};

TEST(DoDump, AsksForEachSenseByItself) {
  GX2DElmList elements;
  support::Add(elements, BothWays(support::Circle(1, 2, 3)));
  InstanceDump dump(elements);
  const std::string text = Tree(dump.Element(0));
  EXPECT_EQ(text.substr(text.find("DIR")), "DIR=\"CW\"\nDIR=\"CCW\"\nKIND=\"CIRCLE\"\n");
}

TEST(DoDump, LeavesTheElementOfAnotherKindEmpty) {
  GX2DElmList elements;
  support::Add(elements, support::Point(1, 2), support::Rect(1, 2, 3, 4),
               support::Foreign2D({0, 0}, {4, 3}), support::Line(1, 2, 3, 4));
  InstanceDump dump(elements);
  ASSERT_EQ(dump.Instance().ChildCount(), 4U);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(dump.Element(i).GetName().Str(), "ELEMENT");
    EXPECT_TRUE(dump.Element(i).Calls().empty());
  }
  EXPECT_EQ(dump.Element(3).Values().size(), 4U);
}

TEST(DoDump, SurvivesAMissingElement) {
  GX2DElmList elements;
  support::Add(elements, support::Line(1, 2, 3, 4));
  elements.push_back(nullptr);
  support::Add(elements, support::Line(5, 6, 7, 8));
  InstanceDump dump(elements);
  std::vector<double> starts;
  for (std::size_t i = 0; i < dump.Instance().ChildCount(); ++i) {
    if (!dump.Element(i).Values().empty()) starts.push_back(dump.Element(i).Number("XS"));
  }
  EXPECT_EQ(starts, (std::vector<double>{1, 5}));
}

TEST(DoDump, CountsTheElementsOfTheExternalInstance) {
  Part part;
  part.SetExternal(Triangle());
  GX2DElmList outline;
  support::AddPolygon(outline, {{0, 0}, {4, 0}, {4, 3}});
  GXLAContourInstance& instance = part.SetExternalInstance(outline);
  support::Add(instance, support::Foreign2D({-1, -2}, {0, 0}));
  MemoryParagraph root;
  const MemoryParagraph& dump =
      DumpInto(root, part).Child("ExtGXLAContour").Child("GXLAContourInstance");
  EXPECT_EQ(dump.Calls().front(), "SetAttribute Count");
  EXPECT_EQ(dump.Values().at(0).kind, MemoryParagraph::Value::kAttributeInt);
  EXPECT_EQ(dump.Values().at(0).integer, 4);
  ASSERT_EQ(dump.ChildCount(), 5U);
  EXPECT_EQ(dump.ChildAt(4).GetName().Str(), "BoundBox");
  EXPECT_EQ(dump.ChildAt(4).Number("XMin"), -1.0);
  EXPECT_EQ(dump.ChildAt(4).Number("YMin"), -2.0);
}

TEST(DoDump, WritesTheBoxOfAnEmptyExternalInstanceAsTheListGivesIt) {
  Part part;
  part.SetExternal(Triangle());
  GXLAContourInstance& instance = part.SetExternalInstance(GX2DElmList());
  GXBoundBox box;
  instance.GetBoundBox(box);
  MemoryParagraph root;
  const MemoryParagraph& dump =
      DumpInto(root, part).Child("ExtGXLAContour").Child("GXLAContourInstance");
  EXPECT_EQ(dump.Values().at(0).integer, 0);
  ASSERT_EQ(dump.ChildCount(), 1U);
  EXPECT_EQ(dump.ChildAt(0).Keys(), (std::vector<std::string>{"XMin", "XMax", "YMin", "YMax"}));
  EXPECT_SAME_BITS(dump.ChildAt(0).Number("XMin"), box.Minimum.X);
  EXPECT_SAME_BITS(dump.ChildAt(0).Number("XMax"), box.Maximum.X);
  EXPECT_SAME_BITS(dump.ChildAt(0).Number("YMin"), box.Minimum.Y);
  EXPECT_SAME_BITS(dump.ChildAt(0).Number("YMax"), box.Maximum.Y);
}

// A host that hangs its own number on each occurrence.
class Host final : public IGXLAPartDump_GXLAContourInstanceXmlAttribute {
 public:
  void AddXmlAttribute(GXLAContourInstance* instance, GXParagraph* paragraph) override {
    instances.push_back(instance);
    const auto& memory = dynamic_cast<const MemoryParagraph&>(*paragraph);
    names.push_back(memory.GetName().Str());
    wasEmpty.push_back(memory.Calls().empty());
    paragraph->SetAttribute("Number", static_cast<int>(instances.size()));
  }
  std::vector<GXLAContourInstance*> instances;
  std::vector<std::string> names;
  std::vector<bool> wasEmpty;
};

TEST(DoDump, AsksTheHostForEachInternalOccurrenceBeforeItsContent) {
  Part part;
  part.SetExternal(Triangle());
  GX2DElmList elements;
  support::Add(elements, support::Line(1, 2, 3, 4));
  part.SetExternalInstance(elements);
  GXLAContour& shape = part.AddShape(OpenContour("L 2"));
  GXLAContourInstance& first = part.AddOccurrence(shape, elements);
  GXLAContourInstance& second = part.AddOccurrence(shape, elements);
  Host host;
  MemoryParagraph root;
  CGXLAPartDump::DoDump(part, root, "", &host);
  EXPECT_EQ(host.instances, (std::vector<GXLAContourInstance*>{&first, &second}));
  EXPECT_EQ(host.names, std::vector<std::string>(2, "GXLAContourInstance"));
  EXPECT_EQ(host.wasEmpty, std::vector<bool>(2, true));
  const MemoryParagraph& group =
      root.Child("GXLAPart").Child("IntGXLAContourManager").Child("IntGXLAContour");
  ASSERT_EQ(group.ChildCount(), 3U);
  const std::string line = "ELEMENT\n  XS=1@-1\n  YS=2@-1\n  XE=3@-1\n  YE=4@-1\n";
  EXPECT_EQ(Tree(group.ChildAt(1)), "attribute Number=1\n" + line);
  EXPECT_EQ(Tree(group.ChildAt(2)), "attribute Number=2\n" + line);
}

TEST(DoDump, WritesTheSameTreeWithoutAHostButForItsAttributes) {
  Part part;
  part.SetExternal(Triangle());
  GX2DElmList elements;
  support::Add(elements, support::Line(1, 2, 3, 4));
  part.SetExternalInstance(elements);
  part.AddOccurrence(part.AddShape(OpenContour("L 2")), elements);
  Host host;
  std::string with = Dumped(part, "x", &host);
  const std::string attribute = "        attribute Number=1\n";
  const std::size_t at = with.find(attribute);
  ASSERT_NE(at, std::string::npos);
  with.erase(at, attribute.size());
  EXPECT_EQ(Dumped(part, "x", nullptr), with);
}

}  // namespace
