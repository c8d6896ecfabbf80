// The tree that a dump writes: tags, their order and their values, and what stands for a shape.
#include "DumpedPart.h"
#include "support/Build.h"
#include "support/LookAlike.h"
#include "support/MemoryParagraph.h"
#include "support/Near.h"

#include <KTRCL_Geometry/lookalike/CGXLAPartDump.h>
#include <KTRCL_Geometry/lookalike/GXLAPart.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using support::ClosedContour;
using support::ContourDump;
using support::Dumped;
using support::DumpInto;
using support::Indented;
using support::kCCW;
using support::kCW;
using support::kTriangle;
using support::MemoryParagraph;
using support::OpenContour;
using support::Part;
using support::Tree;
using support::Triangle;

TEST(DoDump, WritesTwoEmptyParagraphsForANewPart) {
  GXLAPart part;
  EXPECT_EQ(Dumped(part),
            "GXLAPart\n"
            "  IntGXLAContourList\n"
            "  IntGXLAContourManager\n");
}

TEST(DoDump, WritesNoExternalContourForAPartWithoutOne) {
  Part part;
  part.AddShape(OpenContour("L 1"));
  MemoryParagraph root;
  EXPECT_FALSE(DumpInto(root, part).HasChild("ExtGXLAContour"));
}

TEST(DoDump, WritesTheCommentAsTheFirstAttribute) {
  GXLAPart part;
  EXPECT_EQ(Dumped(part, "why <not> alike?"),
            "GXLAPart\n"
            "  attribute COMMENT=\"why <not> alike?\"\n"
            "  IntGXLAContourList\n"
            "  IntGXLAContourManager\n");
}

TEST(DoDump, WritesNoAttributeForAnEmptyComment) {
  GXLAPart part;
  MemoryParagraph root;
  CGXLAPartDump::DoDump(part, root, "", nullptr);
  EXPECT_TRUE(root.Child("GXLAPart").Values().empty());
}

TEST(DoDump, AppendsToTheParentAtEachCall) {
  GXLAPart part;
  MemoryParagraph root;
  root.Grow("Before");
  CGXLAPartDump::DoDump(part, root, "1", nullptr);
  CGXLAPartDump::DoDump(part, root, "2", nullptr);
  ASSERT_EQ(root.ChildCount(), 3U);
  EXPECT_EQ(root.ChildAt(1).GetName().Str(), "GXLAPart");
  EXPECT_EQ(root.ChildAt(2).GetName().Str(), "GXLAPart");
  EXPECT_EQ(root.ChildAt(2).Values().at(0).text, "2");
  EXPECT_TRUE(root.Values().empty());
}

TEST(DoDump, NumbersLinesAndArcsTogetherAndAnglesNot) {
  ContourDump dump(Triangle());
  EXPECT_EQ(Tree(dump.Contour()), kTriangle);
}

TEST(DoDump, WritesTheWholeTreeInItsOrder) {
  Part part;
  part.SetExternal(Triangle());
  GX2DElmList outline, hole;
  support::Add(outline, support::Line(0, 0.5, 4, 3), support::Arc(1, 2, 4, 2, 1, 5, -2, 2));
  support::Add(hole, support::Line(1, 2, 3, 4));
  part.SetExternalInstance(outline);
  GXLAContour& shape = part.AddShape(OpenContour("L 2"));
  part.AddOccurrence(shape, hole);
  part.AddOccurrence(shape, GX2DElmList());
  const std::string open =
      "int Id=-1\nLENGTH=2@-1\nANGLE=\"0 (0)\"\nLINES=1@-1\nARCS=0@-1\nKIND=\"OPEN\"\n"
      "DIR=\"---\"\nELEMENTS\n  attribute Count=1\n  LINE_1=\"2\"\n";
  EXPECT_EQ(Dumped(part, "a"),
            "GXLAPart\n"
            "  attribute COMMENT=\"a\"\n"
            "  ExtGXLAContour\n" +
                Indented(kTriangle, "    ") +
                "    GXLAContourInstance\n"
                "      attribute Count=2\n"
                "      ELEMENT\n"
                "        XS=0@-1\n        YS=0.5@-1\n        XE=4@-1\n        YE=3@-1\n"
                "      ELEMENT\n"
                "        XS=4@-1\n        YS=2@-1\n        XE=-2@-1\n        YE=2@-1\n"
                "        XC=1@-1\n        YC=2@-1\n        XM=1@-1\n        YM=5@-1\n"
                "        R=3@-1\n        DIR=\"CCW\"\n        KIND=\"ARC\"\n"
                "      BoundBox\n"
                "        XMin=-2@-1\n        XMax=4@-1\n        YMin=0.5@-1\n        YMax=5@-1\n"
                "  IntGXLAContourList\n"
                "    IntGXLAContour\n" +
                Indented(open, "      ") +
                "  IntGXLAContourManager\n"
                "    IntGXLAContour\n" +
                Indented(open, "      ") +
                "      GXLAContourInstance\n"
                "        ELEMENT\n"
                "          XS=1@-1\n          YS=2@-1\n          XE=3@-1\n          YE=4@-1\n"
                "      GXLAContourInstance\n");
}

TEST(DoDump, WritesAnExternalContourWithoutInstance) {
  Part part;
  part.SetExternal(Triangle());
  MemoryParagraph root;
  const MemoryParagraph& contour = DumpInto(root, part).Child("ExtGXLAContour");
  EXPECT_EQ(Tree(contour), kTriangle);
}

TEST(DoDump, WritesNoExternalInstanceWithoutItsContour) {
  Part part;
  GX2DElmList outline;
  support::Add(outline, support::Line(0, 0, 4, 3));
  part.SetExternalInstance(outline);
  EXPECT_EQ(Dumped(part),
            "GXLAPart\n"
            "  IntGXLAContourList\n"
            "  IntGXLAContourManager\n");
}

TEST(DoDump, WritesTheIdOfAContourThatWasNeverNumbered) {
  ContourDump dump(Triangle());
  EXPECT_EQ(dump.Contour().Integer("Id"), -1);
}

TEST(DoDump, WritesTheIdsOfARenumberedList) {
  Part part;
  part.AddShape(OpenContour("L 1"));
  part.AddShape(OpenContour("L 2"));
  part.InternalLAContours.ReNumberGXLAContourList();
  MemoryParagraph root;
  const MemoryParagraph& list = DumpInto(root, part).Child("IntGXLAContourList");
  ASSERT_EQ(list.ChildCount(), 2U);
  EXPECT_EQ(list.ChildAt(0).Integer("Id"), 1);
  EXPECT_EQ(list.ChildAt(1).Integer("Id"), 2);
}

TEST(DoDump, WritesATotalAngleOfPiInRadiansAndDegrees) {
  auto contour = std::make_unique<GXLAContour>(true, kCCW);
  support::AddAngle(*contour, support::kPi);
  ContourDump dump(std::move(contour));
  EXPECT_EQ(dump.Contour().TextOf("ANGLE"), "3.141592653589793 (180)");
  EXPECT_EQ(dump.Elements().TextOf("ANGLE"), "3.141592653589793 (180)");
}

TEST(DoDump, WritesNegativeAngles) {
  auto contour = OpenContour("");
  support::AddAngle(*contour, -support::kPi / 2.0);
  ContourDump dump(std::move(contour));
  EXPECT_EQ(dump.Elements().TextOf("ANGLE"), "-1.5707963267948966 (-90)");
}

TEST(DoDump, WritesTheHeaderAsItIsStored) {
  // The figures of the header, not new sums over the elements.
  auto contour = OpenContour("L 1 A 10 R 2");
  contour->TotalGeometryLength = 0.1;
  contour->TotalGeometryAngle = 0.2;
  contour->NumberOfLines = 7;
  contour->NumberOfArcs = -8;
  ContourDump dump(std::move(contour));
  EXPECT_SAME_BITS(dump.Contour().Number("LENGTH"), 0.1);
  EXPECT_EQ(dump.Contour().TextOf("ANGLE").substr(0, 5), "0.2 (");
  EXPECT_EQ(dump.Contour().Number("LINES"), 7.0);
  EXPECT_EQ(dump.Contour().Number("ARCS"), -8.0);
  EXPECT_EQ(dump.Elements().Values().at(0).integer, 3);
}

TEST(DoDump, WritesEachKindAndDirection) {
  EXPECT_EQ(ContourDump(ClosedContour(kCW, "")).Contour().TextOf("DIR"), "CW");
  EXPECT_EQ(ContourDump(ClosedContour(kCCW, "")).Contour().TextOf("DIR"), "CCW");
  EXPECT_EQ(ContourDump(OpenContour("")).Contour().TextOf("DIR"), "---");
  EXPECT_EQ(ContourDump(ClosedContour(kCW, "")).Contour().TextOf("KIND"), "CLOSED");
  EXPECT_EQ(ContourDump(OpenContour("")).Contour().TextOf("KIND"), "OPEN");
}

TEST(DoDump, WritesTheKindOfTheFlagAndNotOfTheDirection) {
  // A contour that was opened later keeps its direction.
  auto contour = ClosedContour(kCW, "L 1 A 90");
  contour->SetLAContourOpen();
  ContourDump dump(std::move(contour));
  EXPECT_EQ(dump.Contour().TextOf("KIND"), "OPEN");
  EXPECT_EQ(dump.Contour().TextOf("DIR"), "CW");
}

TEST(DoDump, WritesAnEmptyContour) {
  ContourDump dump(OpenContour(""));
  EXPECT_EQ(Tree(dump.Elements()), "attribute Count=0\n");
}

TEST(DoDump, WritesLengthsThatReadBackToTheBit) {
  auto contour = std::make_unique<GXLAContour>(false, support::kNone);
  const double third = 1.0 / 3.0;
  support::AddLine(*contour, third);
  support::AddArc(*contour, 1e300);
  support::AddLine(*contour, 0.1 + 0.2);
  ContourDump dump(std::move(contour));
  EXPECT_SAME_BITS(std::stod(dump.Elements().TextOf("LINE_1")), third);
  EXPECT_SAME_BITS(std::stod(dump.Elements().TextOf("ARC_2")), 1e300);
  EXPECT_SAME_BITS(std::stod(dump.Elements().TextOf("LINE_3")), 0.1 + 0.2);
  EXPECT_SAME_BITS(dump.Contour().Number("LENGTH"), third + 1e300 + (0.1 + 0.2));
}

TEST(DoDump, NumbersBeyondNineGoOn) {
  ContourDump dump(OpenContour("L 1 L 1 L 1 L 1 L 1 L 1 L 1 L 1 L 1 R 10 L 11"));
  EXPECT_EQ(dump.Elements().TextOf("ARC_10"), "10");
  EXPECT_EQ(dump.Elements().TextOf("LINE_11"), "11");
}

// Elements that no contour has of itself.
class OddElement : public GXLAElement {};
class OddSegment : public GXLAElementSegment {
 public:
  bool IsALine() const override { return true; }
  bool IsAnArc() const override { return true; }
};
class OwnLine : public GXLAElementLine {
 public:
  OwnLine() : GXLAElementLine(8) {}
};

TEST(DoDump, CountsOtherAndMissingElementsAndWritesNothingForThem) {
  auto contour = OpenContour("L 1");
  contour->push_back(nullptr);
  contour->push_back(new OddElement);
  contour->push_back(new OddSegment);
  contour->push_back(new OwnLine);
  ContourDump dump(std::move(contour));
  EXPECT_EQ(Tree(dump.Elements()),
            "attribute Count=5\n"
            "LINE_1=\"1\"\n"
            "LINE_2=\"8\"\n");
}

TEST(DoDump, WritesEachInternalShapeInTheListAndInTheManager) {
  Part part;
  part.AddShape(OpenContour("L 1"));
  part.AddShape(OpenContour("R 2"));
  MemoryParagraph root;
  const MemoryParagraph& dump = DumpInto(root, part);
  ASSERT_EQ(dump.Child("IntGXLAContourList").ChildCount(), 2U);
  ASSERT_EQ(dump.Child("IntGXLAContourManager").ChildCount(), 2U);
  EXPECT_TRUE(dump.Child("IntGXLAContourList").Values().empty());
  EXPECT_TRUE(dump.Child("IntGXLAContourManager").Values().empty());
}

TEST(DoDump, WritesTheListInItsOwnOrder) {
  Part part;
  for (const char* shape : {"L 3", "L 1", "L 2"}) {
    part.AddShape(OpenContour(shape));
  }
  MemoryParagraph root;
  const MemoryParagraph& list = DumpInto(root, part).Child("IntGXLAContourList");
  ASSERT_EQ(list.ChildCount(), 3U);
  EXPECT_EQ(list.ChildAt(0).Number("LENGTH"), 3.0);
  EXPECT_EQ(list.ChildAt(1).Number("LENGTH"), 1.0);
  EXPECT_EQ(list.ChildAt(2).Number("LENGTH"), 2.0);
}

TEST(DoDump, WritesTheManagerInTheOrderOfAddresses) {
  GXLAContour shapes[3] = {GXLAContour(false, support::kNone), GXLAContour(false, support::kNone),
                           GXLAContour(false, support::kNone)};
  GXLAPart part;
  for (int i = 2; i >= 0; --i) {
    shapes[i].SetContourIndex(i);
    part.InternalLAContourManager[&shapes[i]];
  }
  MemoryParagraph root;
  const MemoryParagraph& manager = DumpInto(root, part).Child("IntGXLAContourManager");
  ASSERT_EQ(manager.ChildCount(), 3U);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(manager.ChildAt(static_cast<std::size_t>(i)).Integer("Id"), i);
  }
}

TEST(DoDump, PassesOverMissingContoursAndInstances) {
  Part part;
  part.InternalLAContours.push_back(nullptr);
  GXLAContour& shape = part.AddShape(OpenContour("L 1"));
  part.InternalLAContours.push_back(nullptr);
  part.InternalLAContourManager[nullptr].push_back(nullptr);
  part.InternalLAContourManager[&shape].push_back(nullptr);
  part.AddOccurrence(shape, GX2DElmList());
  MemoryParagraph root;
  const MemoryParagraph& dump = DumpInto(root, part);
  EXPECT_EQ(dump.Child("IntGXLAContourList").ChildCount(), 1U);
  ASSERT_EQ(dump.Child("IntGXLAContourManager").ChildCount(), 1U);
  // "ELEMENTS" and one occurrence.
  EXPECT_EQ(dump.Child("IntGXLAContourManager").ChildAt(0).ChildCount(), 2U);
}

TEST(DoDump, PassesOverTheOccurrencesOfAMissingContour) {
  Part part;
  GXLAContourInstance instance(GX2DElmList(), nullptr, false, 0);
  part.InternalLAContourManager[nullptr].push_back(&instance);
  EXPECT_EQ(Dumped(part),
            "GXLAPart\n"
            "  IntGXLAContourList\n"
            "  IntGXLAContourManager\n");
}

void ExpectOnlyWritingCalls(const MemoryParagraph& paragraph) {
  for (const std::string& call : paragraph.Calls()) {
    EXPECT_TRUE(call.rfind("Add", 0) == 0 || call.rfind("Set", 0) == 0) << call;
  }
  for (std::size_t i = 0; i < paragraph.ChildCount(); ++i) {
    ExpectOnlyWritingCalls(paragraph.ChildAt(i));
  }
}

TEST(DoDump, ReadsNothingFromTheParagraphsAndChangesNothingInThePart) {
  Part part;
  GXLAContour& external = part.SetExternal(Triangle());
  GX2DElmList elements;
  support::Add(elements, support::Line(1, 2, 3, 4), support::Circle(1, 2, 3));
  part.SetExternalInstance(elements);
  GXLAContour& shape = part.AddShape(OpenContour("L 2"));
  part.AddOccurrence(shape, elements);
  const std::string before = Dumped(part);
  EXPECT_EQ(Dumped(part), before);
  EXPECT_EQ(part.ExternalLAContour, &external);
  EXPECT_EQ(external.size(), 6U);
  EXPECT_EQ(part.ExternalLAContourInstance->size(), 2U);
  EXPECT_EQ(part.InternalLAContours.size(), 1U);
  EXPECT_EQ(part.InternalLAContourInstances.size(), 1U);
  EXPECT_EQ(part.InternalLAContourManager.size(), 1U);
  MemoryParagraph root;
  CGXLAPartDump::DoDump(part, root, "", nullptr);
  ExpectOnlyWritingCalls(root);
}

TEST(DoDump, WritesFiguresThatAreNotFinite) {
  const double inf = std::numeric_limits<double>::infinity();
  auto contour = std::make_unique<GXLAContour>(false, support::kNone);
  support::AddLine(*contour, inf);
  support::AddAngle(*contour, -inf);
  ContourDump dump(std::move(contour));
  EXPECT_EQ(dump.Contour().Number("LENGTH"), inf);
  EXPECT_EQ(dump.Contour().TextOf("ANGLE"), "-inf (-inf)");
  EXPECT_EQ(dump.Elements().TextOf("LINE_1"), "inf");
}

TEST(CGXLAPartDump, HasAVirtualDestructorAndNoData) {
  static_assert(std::has_virtual_destructor_v<CGXLAPartDump>);
  static_assert(sizeof(CGXLAPartDump) == sizeof(void*));
  static_assert(!std::has_virtual_destructor_v<IGXLAPartDump_GXLAContourInstanceXmlAttribute>);
  static_assert(std::is_abstract_v<IGXLAPartDump_GXLAContourInstanceXmlAttribute>);
  EXPECT_NO_THROW(CGXLAPartDump());
}

}  // namespace
