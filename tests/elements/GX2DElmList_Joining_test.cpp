// What a list takes over from other lists: clones, appended copies, connected contours.
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>
#include <vector>

namespace {

using support::Add;
using support::Arc;
using support::At;
using support::Circle;
using support::Foreign2D;
using support::Line;
using support::Logged;
using support::Point;
using support::Rect;
using Log = std::vector<std::string>;

TEST(Clone2D, CopiesAllFourKindsInOrder) {
  GX2DElmList source;
  Add(source, Line(0, 0, 1, 0), Rect(1, 2, 3, 4), Circle(0, 0, 1), Point(7, 8));
  GX2DElmList list;
  list.Clone(source);
  ASSERT_EQ(list.size(), 4U);
  EXPECT_NE(list[0], source[0]);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 0), Line(0, 0, 1, 0));
  EXPECT_POINT_EQ(At<GX2DRectangle>(list, 1), Rect(1, 2, 3, 4));
  EXPECT_POINT_EQ(At<GX2DArc>(list, 2), Circle(0, 0, 1));
  EXPECT_POINT_EQ(At<GX2DPoint>(list, 3), Point(7, 8));
  EXPECT_EQ(source.size(), 4U);
}

TEST(Clone2D, DestroysWhatTheReceiverHeld) {
  Log log;
  GX2DElmList source;
  Add(source, Point(1, 2));
  GX2DElmList list;
  list.push_back(new Logged<GX2DLine>(log, "old", Line(0, 0, 1, 0)));
  list.Clone(source);
  EXPECT_EQ(log, (Log{"old"}));
  EXPECT_EQ(list.size(), 1U);
}

TEST(Clone2D, OfAnEmptyListEmptiesTheReceiver) {
  GX2DElmList list;
  Add(list, Point(1, 2));
  list.Clone(GX2DElmList());
  EXPECT_TRUE(list.empty());
}

TEST(Clone2D, ThroughANullPointerKeepsTheContents) {
  Log log;
  GX2DElmList list;
  list.push_back(new Logged<GX2DLine>(log, "old", Line(0, 0, 1, 0)));
  const GX2DElmList* const no2DList = nullptr;
  const GX3DElmList* const no3DList = nullptr;
  list.Clone(no2DList);
  list.Clone(no3DList, 2);
  EXPECT_EQ(list.size(), 1U);
  EXPECT_EQ(log, Log());
}

TEST(Clone2D, ThroughAPointerIsTheSame) {
  GX2DElmList source;
  Add(source, Point(1, 2));
  const GX2DElmList* const pointer = &source;
  GX2DElmList list;
  Add(list, Line(0, 0, 1, 0));
  list.Clone(pointer);
  ASSERT_EQ(list.size(), 1U);
  EXPECT_POINT_EQ(At<GX2DPoint>(list, 0), Point(1, 2));
}

TEST(Clone2D, SkipsElementsThatCreateNothing) {
  GX2DElmList source;
  Add(source, Point(1, 2), Foreign2D({0, 0}, {1, 1}), Point(3, 4));
  GX2DElmList list;
  list.Clone(source);
  ASSERT_EQ(list.size(), 2U);
  EXPECT_POINT_EQ(At<GX2DPoint>(list, 1), Point(3, 4));
}

TEST(Clone2D, CopiesADerivedLineAsALine) {
  Log log;
  GX2DElmList source;
  source.push_back(new Logged<GX2DLine>(log, "derived", Line(1, 2, 3, 4)));
  GX2DElmList list;
  list.Clone(source);
  ASSERT_EQ(list.size(), 1U);
  const GX2DElement& made = *list[0];
  EXPECT_EQ(typeid(made), typeid(GX2DLine));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 0), Line(1, 2, 3, 4));
}

TEST(Clone2DFrom3D, ConvertsEachKindByThePlane) {
  GX3DElmList source;
  Add(source, Point(1, 2, 3), support::Line(1, 2, 3, 4, 5, 6),
      GX3DArc(Point(1, 2, 3), Point(4, 5, 6), Point(7, 8, 9), Point(10, 11, 12)));
  GX2DElmList list;
  Add(list, Point(99, 99));
  list.Clone(source, 1);
  ASSERT_EQ(list.size(), 3U);
  EXPECT_POINT_EQ(At<GX2DPoint>(list, 0), Point(1, 3));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 1), Line(1, 3, 4, 6));
  EXPECT_POINT_EQ(At<GX2DArc>(list, 2), Arc(1, 3, 4, 6, 7, 9, 10, 12));
  const GX3DElmList* const pointer = &source;
  list.Clone(pointer, 0);
  ASSERT_EQ(list.size(), 3U);
  EXPECT_POINT_EQ(At<GX2DPoint>(list, 0), Point(3, 2));
}

TEST(Clone2DFrom3D, SkipsOtherKindsAndTakesDerivedOnes) {
  Log log;
  GX3DElmList source;
  Add(source, support::Foreign3D({0, 0, 0}, {1, 1, 1}));
  source.push_back(new Logged<GX3DLine>(log, "derived", support::Line(1, 2, 3, 4, 5, 6)));
  GX2DElmList list;
  list.Clone(source, 2);
  ASSERT_EQ(list.size(), 1U);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 0), Line(1, 2, 4, 5));
}

TEST(Append2D, AddsDeepCopiesAndLeavesTheArgument) {
  GX2DElmList list, more;
  Add(list, Point(1, 2));
  Add(more, Line(0, 0, 1, 0), Rect(1, 2, 3, 4));
  list.Append(&more);
  ASSERT_EQ(list.size(), 3U);
  EXPECT_EQ(more.size(), 2U);
  EXPECT_NE(list[1], more[0]);
  EXPECT_POINT_EQ(At<GX2DPoint>(list, 0), Point(1, 2));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 1), Line(0, 0, 1, 0));
  EXPECT_POINT_EQ(At<GX2DRectangle>(list, 2), Rect(1, 2, 3, 4));
}

TEST(Append2D, OfNothingAddsNothing) {
  GX2DElmList list, empty;
  Add(list, Point(1, 2));
  list.Append(nullptr);
  list.Append(&empty);
  EXPECT_EQ(list.size(), 1U);
}

TEST(Append2D, OfItselfDoubles) {
  GX2DElmList list;
  Add(list, Point(1, 2), Line(0, 0, 1, 0));
  list.Append(&list);
  ASSERT_EQ(list.size(), 4U);
  EXPECT_NE(list[2], list[0]);
  EXPECT_POINT_EQ(At<GX2DPoint>(list, 2), Point(1, 2));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 3), Line(0, 0, 1, 0));
}

TEST(Append2D, SkipsElementsThatCreateNothing) {
  GX2DElmList list, more;
  Add(more, Foreign2D({0, 0}, {1, 1}), Point(1, 2));
  list.Append(&more);
  ASSERT_EQ(list.size(), 1U);
}

TEST(Connect, JoinsTheListsAndGoesBackToTheStart) {
  GX2DElmList list, more;
  Add(list, Line(0, 0, 4, 0));
  Add(more, Arc(5, 1, 6, 1, 5, 2, 4, 1), Line(4, 1, 0, 1));
  list.Connect(&more);
  ASSERT_EQ(list.size(), 5U);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 0), Line(0, 0, 4, 0));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 1), Line(4, 0, 6, 1));
  EXPECT_POINT_EQ(At<GX2DArc>(list, 2), Arc(5, 1, 6, 1, 5, 2, 4, 1));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 3), Line(4, 1, 0, 1));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 4), Line(0, 1, 0, 0));
  EXPECT_EQ(more.size(), 2U);
  EXPECT_NE(list[2], more[0]);
}

TEST(Connect, OfTouchingListsStillAddsBothLines) {
  GX2DElmList list, more;
  Add(list, Line(0, 0, 4, 0));
  Add(more, Line(4, 0, 0, 0));
  list.Connect(&more);
  ASSERT_EQ(list.size(), 4U);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 1), Line(4, 0, 4, 0));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 3), Line(0, 0, 0, 0));
}

TEST(Connect, APointGivesItsCoordinates) {
  GX2DElmList list, more;
  Add(list, Point(1, 2));
  Add(more, Point(3, 4));
  list.Connect(&more);
  ASSERT_EQ(list.size(), 4U);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 1), Line(1, 2, 3, 4));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 3), Line(3, 4, 1, 2));
}

TEST(Connect, AnArcGivesItsEnds) {
  GX2DElmList list;
  Add(list, Arc(0, 0, 1, 0, 9, 9, 0, 1));
  list.Connect(nullptr);
  ASSERT_EQ(list.size(), 2U);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 1), Line(0, 1, 1, 0));
}

TEST(Connect, OtherKindsLeaveThePositionAtTheOrigin) {
  GX2DElmList list, more;
  Add(list, Rect(1, 2, 3, 4));
  Add(more, Point(5, 6), Rect(7, 8, 9, 10));
  list.Connect(&more);
  ASSERT_EQ(list.size(), 5U);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 1), Line(0, 0, 5, 6));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 4), Line(0, 0, 0, 0));
  GX2DElmList strange;
  Add(strange, Foreign2D({1, 2}, {3, 4}));
  strange.Connect(nullptr);
  EXPECT_POINT_EQ(At<GX2DLine>(strange, 1), Line(0, 0, 0, 0));
}

TEST(Connect, OfNothingOnlyGoesBackToTheStart) {
  GX2DElmList list, empty;
  Add(list, Line(0, 0, 4, 0), Line(4, 0, 4, 3));
  list.Connect(&empty);
  ASSERT_EQ(list.size(), 3U);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 2), Line(4, 3, 0, 0));
  list.Connect(nullptr);
  ASSERT_EQ(list.size(), 4U);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 3), Line(0, 0, 0, 0));
}

TEST(Connect, AnEmptyReceiverTakesTheCopiesWithoutALineInFront) {
  GX2DElmList list, more;
  Add(more, Line(1, 1, 4, 0), Line(4, 0, 4, 3));
  list.Connect(&more);
  ASSERT_EQ(list.size(), 3U);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 0), Line(1, 1, 4, 0));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 2), Line(4, 3, 1, 1));
}

TEST(Connect, OfNothingWithNothingStaysEmpty) {
  GX2DElmList list, empty;
  list.Connect(nullptr);
  list.Connect(&empty);
  list.Connect(&list);
  EXPECT_TRUE(list.empty());
}

TEST(Connect, OfItselfJoinsACopy) {
  GX2DElmList list;
  Add(list, Line(0, 0, 4, 0));
  list.Connect(&list);
  ASSERT_EQ(list.size(), 4U);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 1), Line(4, 0, 0, 0));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 2), Line(0, 0, 4, 0));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 3), Line(4, 0, 0, 0));
}

}  // namespace
