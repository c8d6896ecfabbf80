#include "drawing/PartDump.h"

#include "PartSketch.h"
#include "drawing/DxfReader.h"
#include "drawing/XmlParagraph.h"
#include "support/DxfText.h"
#include "support/Random.h"

#include <KTRCL_DataTypes/GXString.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using drawing::PartModel;
using drawing::TreeParagraph;
using support::CircleContour;
using support::PartSketch;
using support::RectangleContour;

std::string ValueOf(const TreeParagraph& paragraph, const std::string& key) {
  return paragraph.GetString(key, "absent", false).Str();
}

std::string AttributeOf(const TreeParagraph& paragraph, const std::string& key) {
  const std::string* const text = paragraph.FindAttribute(key);
  return text != nullptr ? *text : "absent";
}

std::vector<const TreeParagraph*> ChildrenOf(const TreeParagraph& paragraph,
                                             const std::string& name) {
  std::vector<const TreeParagraph*> children;
  for (const auto& entry : paragraph.Entries()) {
    const bool named = entry.paragraph != nullptr && entry.paragraph->Name() == name;
    if (named) children.push_back(entry.paragraph.get());
  }
  return children;
}

// A plate with many holes, each shape several times.
PartSketch ManyShapes(int shapes) {
  PartSketch sketch = {RectangleContour(0, 0, 1000, 1000)};
  for (int i = 0; i < shapes; ++i) {
    const double x = 20 + 30 * (i % 30);
    const double y = 30 * (i / 30);
    sketch.push_back(CircleContour(x, 20 + y, 2 + 0.1 * i));
    sketch.push_back(CircleContour(x, 520 + y, 2 + 0.1 * i));
  }
  return sketch;
}

std::string DumpText(const PartModel& part) {
  TreeParagraph root("root");
  return drawing::XmlText(drawing::DumpPart(part, root));
}

TEST(DumpPart, TellsTheFileTheOuterContourAndTheShapes) {
  const PartModel part =
      support::PartOf({RectangleContour(0, 0, 100, 60), CircleContour(20, 20, 5),
                       CircleContour(60, 20, 5), RectangleContour(30, 40, 50, 50)});
  TreeParagraph root("root");
  root.AddParagraph("GXLAPart");
  const TreeParagraph& dump = drawing::DumpPart(part, root);
  EXPECT_EQ(&dump, root.Entries().back().paragraph.get());
  EXPECT_EQ(AttributeOf(dump, "COMMENT"), "sketch");
  const TreeParagraph& outer = *dump.FindChild("ExtGXLAContour");
  EXPECT_EQ(ValueOf(outer, "LENGTH"), "320");
  EXPECT_EQ(ValueOf(outer, "LINES"), "4");
  EXPECT_EQ(AttributeOf(*outer.FindChild("ELEMENTS"), "Count"), "8");
  const TreeParagraph& box = *outer.FindChild("GXLAContourInstance")->FindChild("BoundBox");
  EXPECT_EQ(box.GetDouble("XMax", 0.0), 100.0);
  // The rectangle of 60 and two circles of 31.4 around.
  const auto shapes = ChildrenOf(*dump.FindChild("IntGXLAContourList"), "IntGXLAContour");
  ASSERT_EQ(shapes.size(), 2U);
  EXPECT_EQ(ValueOf(*shapes[0], "Id"), "1");
  EXPECT_EQ(ValueOf(*shapes[0], "LENGTH"), "60");
  EXPECT_EQ(ValueOf(*shapes[1], "Id"), "2");
  EXPECT_EQ(ValueOf(*shapes[1], "ARCS"), "1");
  const auto groups = ChildrenOf(*dump.FindChild("IntGXLAContourManager"), "IntGXLAContour");
  ASSERT_EQ(groups.size(), 2U);
  EXPECT_EQ(ChildrenOf(*groups[0], "GXLAContourInstance").size(), 1U);
  EXPECT_EQ(ChildrenOf(*groups[1], "GXLAContourInstance").size(), 2U);
}

TEST(DumpPart, NamesLayerHandleLineAndNumberOfEveryOccurrence) {
  // The square is contour 1; the first circle is named on line 20 + 4 * 14 = 76, the second on 88.
  const auto line = [](const std::string& ends) { return "0 LINE 8 EDGE " + ends; };
  const std::string text =
      support::Dxf(line("10 0 20 0 11 50 21 0 5 A1 ") + line("10 50 20 0 11 50 21 50 5 A2 ") +
                   line("10 50 20 50 11 0 21 50 5 A3 ") + line("10 0 20 50 11 0 21 0 5 A4 ") +
                   "0 CIRCLE 8 HOLES 10 15 20 15 40 4 5 B1 0 CIRCLE 8 BOLTS 10 35 20 35 40 4");
  const PartModel part = drawing::BuildPart(drawing::ReadDrawingText(text, "a.dxf"));
  ASSERT_TRUE(part.usable) << part.obstacle;
  TreeParagraph root("root");
  const TreeParagraph& group = *drawing::DumpPart(part, root)
                                    .FindChild("IntGXLAContourManager")
                                    ->FindChild("IntGXLAContour");
  const auto holes = ChildrenOf(group, "GXLAContourInstance");
  ASSERT_EQ(holes.size(), 2U);
  EXPECT_EQ(AttributeOf(*holes[0], "CONTOUR"), "2");
  EXPECT_EQ(AttributeOf(*holes[0], "LAYER"), "HOLES");
  EXPECT_EQ(AttributeOf(*holes[0], "HANDLE"), "B1");
  EXPECT_EQ(AttributeOf(*holes[0], "LINE"), "76");
  EXPECT_EQ(AttributeOf(*holes[1], "CONTOUR"), "3");
  EXPECT_EQ(AttributeOf(*holes[1], "LAYER"), "BOLTS");
  EXPECT_EQ(AttributeOf(*holes[1], "HANDLE"), "absent");
  EXPECT_EQ(AttributeOf(*holes[1], "LINE"), "88");
  EXPECT_EQ(holes[1]->FindChild("ELEMENT")->GetDouble("XC", 0.0), 35.0);
}

TEST(DumpPart, SortsGroupsAsTheShapesOfTheList) {
  const PartModel part = support::PartOf(ManyShapes(60));
  ASSERT_TRUE(part.usable) << part.obstacle;
  TreeParagraph root("root");
  const TreeParagraph& dump = drawing::DumpPart(part, root);
  const auto shapes = ChildrenOf(*dump.FindChild("IntGXLAContourList"), "IntGXLAContour");
  const auto groups = ChildrenOf(*dump.FindChild("IntGXLAContourManager"), "IntGXLAContour");
  ASSERT_EQ(shapes.size(), 60U);
  ASSERT_EQ(groups.size(), 60U);
  for (std::size_t i = 0; i < groups.size(); ++i) {
    EXPECT_EQ(ValueOf(*shapes[i], "Id"), std::to_string(i + 1));
    EXPECT_EQ(ValueOf(*groups[i], "Id"), std::to_string(i + 1));
    EXPECT_EQ(ValueOf(*groups[i], "LENGTH"), ValueOf(*shapes[i], "LENGTH"));
    EXPECT_EQ(ChildrenOf(*groups[i], "GXLAContourInstance").size(), 2U);
  }
}

// Shapes of one part lie elsewhere in memory each time: between the runs random amounts of memory
// are taken and given back.
TEST(DumpPart, GivesTheSameTextWhereverTheShapesLie) {
  support::Random random;
  const PartModel part = support::PartOf(ManyShapes(40));
  const std::string first = DumpText(part);
  std::vector<std::unique_ptr<std::vector<char>>> blocks;
  for (int i = 0; i < 50; ++i) {
    for (int n = 0; n < 200; ++n) {
      blocks.push_back(
          std::make_unique<std::vector<char>>(static_cast<std::size_t>(random.Int(1, 300))));
    }
    for (int n = 0; n < 150; ++n) {
      blocks[static_cast<std::size_t>(random.Int(0, static_cast<int>(blocks.size()) - 1))].reset();
    }
    ASSERT_EQ(DumpText(part), first);
  }
}

TEST(DumpPart, HoldsEveryCutOutOnce) {
  const PartModel part = support::PartOf(ManyShapes(50));
  TreeParagraph root("root");
  const TreeParagraph& dump = drawing::DumpPart(part, root);
  std::set<std::string> contours;
  std::size_t occurrences = 0;
  for (const auto* group : ChildrenOf(*dump.FindChild("IntGXLAContourManager"), "IntGXLAContour")) {
    for (const auto* occurrence : ChildrenOf(*group, "GXLAContourInstance")) {
      contours.insert(AttributeOf(*occurrence, "CONTOUR"));
      ++occurrences;
    }
  }
  EXPECT_EQ(occurrences, part.cutOuts.size());
  EXPECT_EQ(contours.size(), 100U);
}

TEST(DumpPart, OfAPlainPlateHasNoShapes) {
  const PartModel part = support::PartOf({RectangleContour(0, 0, 10, 10)});
  TreeParagraph root("root");
  const TreeParagraph& dump = drawing::DumpPart(part, root);
  EXPECT_TRUE(dump.FindChild("IntGXLAContourList")->Entries().empty());
  EXPECT_TRUE(dump.FindChild("IntGXLAContourManager")->Entries().empty());
}

}  // namespace
