// What the classes do not have in common when they are stored: results, the order of a rotation,
// keys, and the text of a point.
#include <KTRCL_DataTypes/GXParagraph.h>
#include <KTRCL_DataTypes/GXString.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXBoundBox.h>
#include <KTRCL_Geometry/foundation/GXCoordSystem.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/MemoryParagraph.h"
#include "support/Near.h"
#include "support/Paragraphs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace {

using support::MemoryParagraph;

GXParagraph* const kNoParagraph = nullptr;

TEST(WriteOfAPoint, PutsXAndYIntoTheParagraphItselfForAnEmptyKey) {
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  GX2DPoint(1.5, -2.5).Write("", paragraph, 0);
  EXPECT_EQ(root.Calls(), (std::vector<std::string>{"AddDouble X", "AddDouble Y"}));
  EXPECT_EQ(root.Number("X"), 1.5);
  EXPECT_EQ(root.Number("Y"), -2.5);
}

TEST(WriteOfAPoint, TakesAnyTextOfOneByteOrMoreForAKey) {
  for (const std::string& key : {std::string(" "), std::string(1, '\0'), std::string("X")}) {
    MemoryParagraph root;
    GXParagraph* const paragraph = &root;
    GX2DPoint(1, 2).Write(key, paragraph, 0);
    ASSERT_EQ(root.ChildCount(), 1u);
    EXPECT_TRUE(root.Values().empty());
    GX2DPoint back;
    back.Read(key, paragraph, 0);
    EXPECT_POINT_EQ(back, GX2DPoint(1, 2));
  }
}

TEST(WriteOfAVector, IsAConstantOperation) {
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  const GXVector v(1, 2, 3);
  const GX2DVector w(4, 5);
  v.Write("V", paragraph, 0);
  w.Write("W", paragraph, 0);
  EXPECT_EQ(support::Layout(root), "V(X Y Z) W(X Y)");
}

TEST(ReadOfAPoint, InSpaceGivesZ0ForAPointStoredFlat) {
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  GX2DPoint(1, 2).Write("P", paragraph, 0);
  GX3DPoint back(7, 7, 7);
  back.Read("P", paragraph, 0);
  EXPECT_POINT_EQ(back, GX3DPoint(1, 2, 0));
}

TEST(ReadOfAPoint, AsksForTheChildAndItsNumbersAndNoMore) {
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  MemoryParagraph& child = root.Grow("P");
  GX2DPoint back(7, 7);
  back.Read("P", paragraph, 0);
  EXPECT_EQ(root.Calls(), (std::vector<std::string>{"FindParagraph P"}));
  std::vector<std::string> calls = child.Calls();
  std::sort(calls.begin(), calls.end());
  EXPECT_EQ(calls, (std::vector<std::string>{"GetDouble X", "GetDouble Y"}));
  EXPECT_POINT_EQ(back, GX2DPoint(0, 0));
}

TEST(ReadOfALine, WithoutEndUpdatesTheStartAlone) {
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  GX2DPoint(1, 2).Write("Start", paragraph, 0);
  GX2DLine line(7, 7, 8, 8);
  line.Read("", paragraph, 0);
  EXPECT_POINT_EQ(line, GX2DLine(1, 2, 8, 8));
}

TEST(ReadOfAMatrix, FromAnEmptyParagraphGivesZerosAndNotTheIdentity) {
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  GXMatrix m;
  m.Read("", paragraph);
  EXPECT_POINT_EQ(m, std::vector<double>(9, 0.0));
}

TEST(StoredCoordSystem, AnswersWhetherItFoundItsParagraph) {
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  GXCoordSystem system;
  EXPECT_TRUE(system.Write("S", paragraph, 0));
  EXPECT_TRUE(system.Write("", paragraph, 0));
  EXPECT_TRUE(system.Read("S", paragraph, 0));
  EXPECT_TRUE(system.Read("", paragraph, 0));
  EXPECT_FALSE(system.Read("T", paragraph, 0));
  EXPECT_FALSE(system.Read("S", kNoParagraph, 0));
  EXPECT_FALSE(system.Read("", kNoParagraph, 0));
}

TEST(StoredCoordSystem, IsFoundWithoutAnyNumber) {
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  root.Grow("S");
  GXCoordSystem system;
  system.AngleY = 7;
  EXPECT_TRUE(system.Read("S", paragraph, 0));
  EXPECT_EQ(system.AngleY, 0.0);
}

TEST(StoredBoundBox, AnswersWhetherItFoundItsParagraph) {
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  GXBoundBox box;
  EXPECT_TRUE(box.Write("B", paragraph, 0));
  EXPECT_TRUE(box.Write("", paragraph, 0));
  EXPECT_TRUE(box.Read("B", paragraph, 0));
  EXPECT_TRUE(box.Read("", paragraph, 0));
  EXPECT_FALSE(box.Read("C", paragraph, 0));
  EXPECT_FALSE(box.Read("B", kNoParagraph, 0));
  EXPECT_FALSE(box.Read("", kNoParagraph, 0));
}

TEST(StoredBoundBox, KeepsItsOldMinimumAndAnswersTrueForAMaximumAlone) {
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  root.Grow("MAX").AddDouble("Y", 5, -1);
  GXBoundBox box;
  box.Minimum = GX3DPoint(1, 2, 3);
  box.Maximum = GX3DPoint(7, 7, 7);
  EXPECT_TRUE(box.Read("", paragraph, 0));
  EXPECT_POINT_EQ(box.Minimum, GX3DPoint(1, 2, 3));
  EXPECT_POINT_EQ(box.Maximum, GX3DPoint(0, 5, 0));
}

TEST(StoredBoundBox, StaysAsItIsAndAnswersTrueForAnEmptyParagraph) {
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  GXBoundBox box;
  box.Minimum = GX3DPoint(1, 2, 3);
  box.Maximum = GX3DPoint(4, 5, 6);
  EXPECT_TRUE(box.Read("", paragraph, 0));
  EXPECT_POINT_EQ(box.Minimum, GX3DPoint(1, 2, 3));
  EXPECT_POINT_EQ(box.Maximum, GX3DPoint(4, 5, 6));
}

// The orders by number.
constexpr const char* kOrders[] = {"XYZs", "XYXs", "XZYs", "XZXs", "YZXs", "YZYs", "YXZs", "YXYs",
                                   "ZXYs", "ZXZs", "ZYXs", "ZYZs", "ZYXr", "XYXr", "YZXr", "XZXr",
                                   "XZYr", "YZYr", "ZXYr", "YXYr", "YXZr", "ZXZr", "XYZr", "ZYZr"};

TEST(StoredRotation, KeepsItsOrderAsText) {
  for (int order = 0; order < 24; ++order) {
    MemoryParagraph root;
    GXParagraph* const paragraph = &root;
    GXRotation rotation(10, 400, -30, order);
    rotation.Write("R", paragraph);
    EXPECT_EQ(root.Child("R").TextOf("O"), kOrders[order]);
    GXRotation back(1, 2, 3, 5);
    back.Read("R", paragraph);
    EXPECT_EQ(back.O, order);
    EXPECT_EQ(back.B, 400.0);
  }
}

TEST(StoredRotation, KeepsItsAnglesInDegrees) {
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  GXRotation rotation = GXRotation::XYZs(90, 45, -30);
  rotation.Write("", paragraph);
  EXPECT_EQ(root.Number("A"), 90.0);
  EXPECT_EQ(root.Number("B"), 45.0);
  EXPECT_EQ(root.Number("C"), -30.0);
}

TEST(StoredRotation, HasOrder0WithoutATextOrWithAnUnknownOne) {
  for (const char* const text : {"", "xyzs", "XYZ", "ZYXr ", "unknown"}) {
    MemoryParagraph root;
    GXParagraph* const paragraph = &root;
    root.AddDouble("A", 1, -1);
    root.AddDouble("B", 2, -1);
    root.AddDouble("C", 3, -1);
    if (*text != '\0') {
      root.AddString("O", text);
    }
    GXRotation rotation(7, 7, 7, 12);
    rotation.Read("", paragraph);
    EXPECT_EQ(rotation.O, 0) << text;
    EXPECT_EQ(rotation.A, 1.0);
    EXPECT_EQ(rotation.B, 2.0);
    EXPECT_EQ(rotation.C, 3.0);
  }
}

TEST(StoredRotation, AsksForItsOrderWithTheFlagClear) {
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  GXRotation rotation;
  rotation.Read("", paragraph);
  const std::vector<std::string>& calls = root.Calls();
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "GetString O"), 1);
  EXPECT_EQ(calls.size(), 4u);
}

TEST(StoredRotation, OfAnUnknownOrderHasAnEmptyText) {
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  GXRotation rotation(1, 2, 3, 24);
  rotation.Write("", paragraph);
  ASSERT_TRUE(root.Has(MemoryParagraph::Value::kText, "O"));
  EXPECT_EQ(root.TextOf("O"), "");
}

TEST(ToString, HasNoBlankBehindTheFirstColon) {
  EXPECT_EQ(GX2DPoint(1.5, 2).ToString(-1).Str(), "X:1.5 Y: 2");
  EXPECT_EQ(GX2DPoint(1.5, -2).ToString(3).Str(), "X:1.500 Y: -2.000");
  EXPECT_EQ(GX2DPoint(0.25, 10).ToString(0).Str(), "X:0 Y: 10");
}

TEST(ToString, WritesNumbersAsTextsOfNumbersDo) {
  for (const int decimals : {-1, 0, 2, 5}) {
    for (const double value : {0.1, -0.0, 1e300, 123456.789}) {
      const std::string number = GXString(value, decimals).Str();
      EXPECT_EQ(GX2DPoint(value, value).ToString(decimals).Str(), "X:" + number + " Y: " + number);
    }
  }
}

}  // namespace
