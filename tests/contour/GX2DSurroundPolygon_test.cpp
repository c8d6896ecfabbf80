// The ring of points around a contour: copying, ownership, and adding a point.
#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Ring.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using support::AddPolygon;
using support::ElementsAt;
using support::Flat;
using support::Line;
using support::Logged;
using support::Point;
using support::Ring;
using support::Vertex;

using Places = std::vector<int>;
using Log = std::vector<std::string>;

bool Construct(GX2DSurroundPolygon& ring, GX2DElmList& list) {
  return ring.ConstructFrom2DElmList(list, nullptr);
}

void AddSquare(GX2DElmList& list) { AddPolygon(list, {{0, 0}, {10, 0}, {10, 10}, {0, 10}}); }

TEST(GX2DSurroundPoint, HasNoPositionAndNoElementsAtFirst) {
  const GX2DSurroundPoint vertex;
  EXPECT_EQ(vertex.Point, nullptr);
  EXPECT_TRUE(vertex.Elements.empty());
}

TEST(GX2DSurroundPoint, DestroysItsPointAndOnlyForgetsItsElements) {
  Log log;
  Logged<GX2DLine> line(log, "line", Line(0, 0, 1, 0));
  {
    GX2DSurroundPoint vertex;
    vertex.Point = new Logged<GX2DPoint>(log, "point", 1.0, 2.0);
    vertex.Elements.push_back(&line);
  }
  EXPECT_EQ(log, Log({"point"}));
}

TEST(GX2DSurroundPoint, CopiesThePointerAndTheReferences) {
  GX2DLine line;
  const auto source = Vertex({3, 4});
  source->Elements.push_back(&line);
  GX2DSurroundPoint copy(*source);
  EXPECT_EQ(copy.Point, source->Point);
  ASSERT_EQ(copy.Elements.size(), 1U);
  EXPECT_EQ(copy.Elements.front(), &line);
  copy.Point = nullptr;  // the source alone destroys it
}

TEST(GX2DSurroundPoint, ForgetsWhatItHeldWhenAssigned) {
  Log log;
  Logged<GX2DPoint> point(log, "point", 1.0, 2.0);
  GX2DLine line, other;
  const auto source = Vertex({3, 4});
  source->Elements.push_back(&line);
  GX2DSurroundPoint target;
  target.Point = &point;
  target.Elements.push_back(&other);
  EXPECT_EQ(&(target = *source), &target);
  EXPECT_EQ(target.Point, source->Point);
  ASSERT_EQ(target.Elements.size(), 1U);
  EXPECT_EQ(target.Elements.front(), &line);
  EXPECT_TRUE(log.empty());
  target.Point = nullptr;
}

TEST(GX2DSurroundPolygon, IsEmptyAtFirst) {
  GX2DSurroundPolygon ring;
  EXPECT_TRUE(ring.empty());
  EXPECT_EQ(ring.GetOrigElmList(), nullptr);
}

TEST(GX2DSurroundPolygon, IsTheVectorOfItsVertices) {
  static_assert(std::is_base_of_v<std::vector<GX2DSurroundPoint*>, GX2DSurroundPolygon>);
  GX2DSurroundPolygon ring;
  GX2DSurroundPoint* const vertex = Vertex({1, 2}).release();
  ring.push_back(vertex);
  ASSERT_EQ(ring.end() - ring.begin(), 1);
  EXPECT_EQ(*ring.begin(), vertex);
}

TEST(GX2DSurroundPolygon, ClearsItsVerticesFromTheFront) {
  Log log;
  GX2DElmList list;
  GX2DSurroundPolygon ring;
  Construct(ring, list);
  for (const char* name : {"first", "second", "third"}) {
    ring.push_back(new Logged<GX2DSurroundPoint>(log, name));
  }
  ring.ClearWithContents();
  EXPECT_TRUE(ring.empty());
  EXPECT_EQ(log, Log({"first", "second", "third"}));
  EXPECT_EQ(ring.GetOrigElmList(), &list);
  ring.ClearWithContents();  // nothing left to destroy
  EXPECT_EQ(log.size(), 3U);
}

TEST(GX2DSurroundPolygon, DestroysItsVerticesWithItself) {
  Log log;
  {
    GX2DSurroundPolygon ring;
    ring.push_back(new Logged<GX2DSurroundPoint>(log, "first"));
    ring.push_back(new Logged<GX2DSurroundPoint>(log, "second"));
  }
  EXPECT_EQ(log, Log({"first", "second"}));
}

TEST(GX2DSurroundPolygon, NeverDestroysElementsOfTheSourceList) {
  Log log;
  GX2DElmList list;
  list.push_back(new Logged<GX2DLine>(log, "a", Line(0, 0, 5, 0)));
  list.push_back(new Logged<GX2DLine>(log, "b", Line(5, 0, 0, 0)));
  {
    GX2DSurroundPolygon ring;
    Construct(ring, list);
    EXPECT_EQ(ring.size(), 2U);
  }
  EXPECT_TRUE(log.empty());
  EXPECT_EQ(list.size(), 2U);
}

TEST(GX2DSurroundPolygon, ToleratesNullEntriesWhenItIsCleared) {
  GX2DSurroundPolygon ring;
  ring.push_back(nullptr);
  ring.push_back(new GX2DSurroundPoint());
  ring.ClearWithContents();
  EXPECT_TRUE(ring.empty());
}

TEST(GX2DSurroundPolygon, CopiesPointersOnly) {
  GX2DElmList list;
  AddSquare(list);
  GX2DSurroundPolygon ring;
  Construct(ring, list);
  GX2DSurroundPolygon copy(ring);
  ASSERT_EQ(copy.size(), 4U);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(copy[i], ring[i]);
  EXPECT_EQ(copy.GetOrigElmList(), &list);
  copy.clear();  // the ring alone destroys them
}

TEST(GX2DSurroundPolygon, ForgetsWhatItHeldWhenAssigned) {
  GX2DElmList list;
  AddSquare(list);
  GX2DSurroundPolygon ring, target;
  Construct(ring, list);
  Log log;
  const auto kept = std::make_unique<Logged<GX2DSurroundPoint>>(log, "kept");
  target.push_back(kept.get());
  EXPECT_EQ(&(target = ring), &target);
  EXPECT_TRUE(log.empty());
  ASSERT_EQ(target.size(), 4U);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(target[i], ring[i]);
  EXPECT_EQ(target.GetOrigElmList(), &list);
  target.clear();
}

TEST(AddPoint, AppendsAVertexWithACopyOfThePosition) {
  Ring ring;
  GX2DLine line;
  GX2DPoint position(3, 4);
  ring.AddPoint(position, &line, true);
  position = GX2DPoint(8, 8);
  ASSERT_EQ(ring.size(), 1U);
  EXPECT_POINT_EQ(*ring[0]->Point, Point(3, 4));
  ASSERT_EQ(ring[0]->Elements.size(), 1U);
  EXPECT_EQ(ring[0]->Elements.front(), &line);
  GX2DPoint behind(1, 1);
  ring.AddPoint(behind, &line, false);  // a new vertex goes to the end with either flag
  EXPECT_EQ(Flat(ring), Flat({{3, 4}, {1, 1}}));
}

TEST(AddPoint, PutsFurtherElementsAtTheBackOrTheFront) {
  Ring ring;
  GX2DElmList list;
  AddSquare(list);
  GX2DPoint position(3, 4);
  ring.AddPoint(position, list[0], true);
  ring.AddPoint(position, list[1], true);
  ring.AddPoint(position, list[2], false);
  ASSERT_EQ(ring.size(), 1U);
  EXPECT_EQ(ElementsAt(ring, 0, list), Places({2, 0, 1}));
  ring.AddPoint(position, list[1], false);  // there already: it does not move either
  ring.AddPoint(position, list[2], true);
  EXPECT_EQ(ElementsAt(ring, 0, list), Places({2, 0, 1}));
}

TEST(AddPoint, TakesPositionsWithinATenthOfAThousandthForOne) {
  GX2DLine line;
  for (const double offset : {0.0001, -0.0001}) {
    Ring ring({{0, 0}});
    GX2DPoint corner(offset, -offset);  // on each coordinate by itself: no distance
    ring.AddPoint(corner, &line, true);
    EXPECT_EQ(ring.size(), 1U);
    EXPECT_POINT_EQ(*ring[0]->Point, Point(0, 0));
  }
  for (const GX2DPoint& apart : {Point(0.000101, 0), Point(0, -0.000101)}) {
    Ring ring({{0, 0}});
    GX2DPoint position(apart);
    ring.AddPoint(position, &line, true);
    EXPECT_EQ(ring.size(), 2U);
  }
}

TEST(AddPoint, TakesTheFirstVertexThatMatches) {
  Ring ring({{5, 5}, {0, 0}, {0.00015, 0}});
  GX2DLine line;
  GX2DPoint position(0.00009, 0);  // 0.00006 from the third and 0.00009 from the second
  ring.AddPoint(position, &line, true);
  ASSERT_EQ(ring.size(), 3U);
  EXPECT_EQ(ring[1]->Elements.size(), 1U);
  EXPECT_TRUE(ring[2]->Elements.empty());
}

TEST(AddPoint, TakesThePositionOfAVertexItself) {
  Ring ring({{5, 5}});
  GX2DLine line;
  ring.AddPoint(*ring[0]->Point, &line, true);
  EXPECT_EQ(ring.size(), 1U);
  EXPECT_EQ(ring[0]->Elements.size(), 1U);
}

TEST(AddPoint, MakesAVertexOfItsOwnOfEveryNan) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Ring ring;
  GX2DLine line;
  GX2DPoint position(nan, 0);
  ring.AddPoint(position, &line, true);
  ring.AddPoint(position, &line, true);
  EXPECT_EQ(ring.size(), 2U);
}

TEST(AddPoint, PassesOverVerticesWithoutPosition) {
  Ring ring;
  ring.push_back(nullptr);
  ring.push_back(new GX2DSurroundPoint());
  GX2DLine line;
  GX2DPoint origin(0, 0);
  ring.AddPoint(origin, &line, true);
  ASSERT_EQ(ring.size(), 3U);
  EXPECT_POINT_EQ(*ring[2]->Point, Point(0, 0));
}

}  // namespace
