#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using support::Line;
using support::Logged;
using support::Point;
using Log = std::vector<std::string>;

constexpr double kLargest = std::numeric_limits<double>::max();

static_assert(std::is_base_of_v<std::deque<GX2DPoint*>, GX2DPointRefList>);
static_assert(std::is_base_of_v<GX2DPointRefList, GX2DPointList>);
static_assert(std::is_base_of_v<std::deque<GX2DLine*>, GX2DLineList>);
static_assert(std::is_base_of_v<std::list<GX2DElmList*>, GX2DElmListRefList>);
static_assert(std::is_base_of_v<GX2DElmListRefList, GX2DElmListList>);
static_assert(std::is_base_of_v<std::list<GX3DPoint>, GX3DPointList>);
static_assert(std::is_base_of_v<std::list<GX3DPointBoolPair>, GX3DPointBoolPairList>);

static_assert(!std::has_virtual_destructor_v<GX2DPointRefList>);
static_assert(std::has_virtual_destructor_v<GX2DPointList>);
static_assert(std::has_virtual_destructor_v<GX2DLineList>);
static_assert(std::has_virtual_destructor_v<GX2DElmListRefList>);
static_assert(!std::is_polymorphic_v<GX3DPointList>);
static_assert(!std::is_polymorphic_v<GX3DPointBoolPairList>);

// The lists add no data of their own.
static_assert(sizeof(GX2DLineList) == sizeof(std::deque<GX2DLine*>) + sizeof(void*));
static_assert(sizeof(GX3DPointList) == sizeof(std::list<GX3DPoint>));

void Fill(GX2DPointRefList& list, const std::vector<GX2DPoint*>& points) {
  list.insert(list.end(), points.begin(), points.end());
}

TEST(GX2DPointRefList, LeavesItsPointsAlone) {
  Log log;
  Logged<GX2DPoint> p(log, "p", Point(1, 2));
  {
    GX2DPointRefList list;
    list.push_back(&p);
    list.push_back(&p);  // the same point may come twice
    EXPECT_EQ(list.size(), 2U);
  }
  EXPECT_EQ(log, Log());
}

TEST(GX2DPointRefList, CopiesShareThePoints) {
  GX2DPoint p(1, 2), q(3, 4);
  GX2DPointRefList list;
  Fill(list, {&p, &q});
  const GX2DPointRefList copy(list);
  GX2DPointRefList assigned;
  assigned.push_back(&q);
  assigned = list;
  EXPECT_EQ(copy, list);
  EXPECT_EQ(assigned, list);
}

TEST(GX2DPointRefList, ExtentFoldsThePoints) {
  GX2DPoint p(1, 8), q(3, 4), r(2, 6);
  GX2DPointRefList list;
  Fill(list, {&p, &q, &r});
  EXPECT_EQ(list.GetMinX(), 1.0);
  EXPECT_EQ(list.GetMaxX(), 3.0);
  EXPECT_EQ(list.GetMinY(), 4.0);
  EXPECT_EQ(list.GetMaxY(), 8.0);
}

TEST(GX2DPointRefList, ExtentOfNothingIsInverted) {
  const GX2DPointRefList list;
  EXPECT_EQ(list.GetMinX(), kLargest);
  EXPECT_EQ(list.GetMaxX(), -kLargest);
  EXPECT_EQ(list.GetMinY(), kLargest);
  EXPECT_EQ(list.GetMaxY(), -kLargest);
}

TEST(ContainsPoint, ByIdentityWantsTheVeryObject) {
  GX2DPoint p(1, 2), equal(1, 2);
  GX2DPointRefList list;
  Fill(list, {&p});
  EXPECT_TRUE(list.ContainsPoint(p, false, 0.0001));
  EXPECT_FALSE(list.ContainsPoint(equal, false, 0.0001));
  EXPECT_FALSE(list.ContainsPoint(equal, false, 1e9));
}

TEST(ContainsPoint, ByValueWantsOneWithinTheTolerance) {
  GX2DPoint p(5, 5), q(0, 0);
  GX2DPointRefList list;
  Fill(list, {&p, &q});
  GX2DPoint corner(0.25, -0.25), beyond(std::nextafter(0.25, 1), 0);
  EXPECT_TRUE(list.ContainsPoint(corner, true, 0.25));
  EXPECT_FALSE(list.ContainsPoint(beyond, true, 0.25));
}

TEST(ContainsPoint, InNothingIsFalse) {
  GX2DPoint p(1, 2);
  GX2DPointRefList list;
  EXPECT_FALSE(list.ContainsPoint(p, true, 1e9));
  EXPECT_FALSE(list.ContainsPoint(p, false, 1e9));
}

TEST(GX2DPointList, DestroysItsPointsFromTheFront) {
  Log log;
  {
    GX2DPointList list;
    list.push_back(new Logged<GX2DPoint>(log, "a", Point(1, 2)));
    list.push_back(new Logged<GX2DPoint>(log, "b", Point(1, 2)));
  }
  EXPECT_EQ(log, (Log{"a", "b"}));
}

TEST(GX2DPointList, ClearWithContentsPassesOverNullEntries) {
  Log log;
  GX2DPointList list;
  list.push_back(nullptr);
  list.push_back(new Logged<GX2DPoint>(log, "a", Point(1, 2)));
  list.push_back(nullptr);
  list.ClearWithContents();
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(log, (Log{"a"}));
  list.ClearWithContents();
  EXPECT_TRUE(list.empty());
}

TEST(GX2DPointList, CopiesShareThePointsSoOneIsDrained) {
  Log log;
  {
    GX2DPointList list;
    list.push_back(new Logged<GX2DPoint>(log, "a", Point(1, 2)));
    GX2DPointList copy(list);
    EXPECT_EQ(copy.front(), list.front());
    GX2DPointList assigned;
    assigned = list;
    EXPECT_EQ(assigned.front(), list.front());
    list.clear();
    copy.clear();
    EXPECT_EQ(log, Log());
  }
  EXPECT_EQ(log, (Log{"a"}));
}

TEST(RemovePointWithValue, TakesAllMatchesNeighboursIncluded) {
  Log log;
  GX2DPointList list;
  list.push_back(new Logged<GX2DPoint>(log, "a", Point(0, 0)));
  list.push_back(new Logged<GX2DPoint>(log, "b", Point(0.25, 0)));
  list.push_back(new Logged<GX2DPoint>(log, "c", Point(5, 5)));
  list.push_back(new Logged<GX2DPoint>(log, "d", Point(0, -0.25)));
  GX2DPoint p(0, 0);
  list.RemovePointWithValue(p, 0.25);
  EXPECT_EQ(log, (Log{"a", "b", "d"}));
  ASSERT_EQ(list.size(), 1U);
  EXPECT_POINT_EQ(*list.front(), Point(5, 5));
}

TEST(RemovePointWithValue, WithoutAMatchChangesNothing) {
  GX2DPointList list;
  GX2DPoint p(0, 0);
  list.RemovePointWithValue(p, 1e9);
  EXPECT_TRUE(list.empty());
  list.push_back(new GX2DPoint(std::nextafter(0.25, 1), 0));
  list.RemovePointWithValue(p, 0.25);
  EXPECT_EQ(list.size(), 1U);
}

TEST(RemovePointWithValue, ThePointMayLieInTheList) {
  GX2DPointList list;
  list.push_back(new GX2DPoint(0, 0));
  list.push_back(new GX2DPoint(0.25, 0));
  list.push_back(new GX2DPoint(0.5, 0));
  list.RemovePointWithValue(*list.front(), 0.25);
  ASSERT_EQ(list.size(), 1U);
  EXPECT_POINT_EQ(*list.front(), Point(0.5, 0));
}

TEST(GX2DLineList, DestroysItsLinesAndPassesOverNull) {
  Log log;
  {
    GX2DLineList list;
    list.push_back(new Logged<GX2DLine>(log, "a", Line(0, 0, 1, 0)));
    list.push_back(nullptr);
    list.ClearWithContents();
    EXPECT_TRUE(list.empty());
    list.push_back(new Logged<GX2DLine>(log, "b", Line(0, 0, 1, 0)));
    list.push_back(new Logged<GX2DLine>(log, "c", Line(0, 0, 1, 0)));
  }
  EXPECT_EQ(log, (Log{"a", "b", "c"}));
}

TEST(GX2DLineList, CopiesShareTheLines) {
  GX2DLineList list;
  list.push_back(new GX2DLine(0, 0, 1, 0));
  GX2DLineList copy(list);
  EXPECT_EQ(copy.front(), list.front());
  copy.clear();
  copy = list;
  EXPECT_EQ(copy.front(), list.front());
  copy.clear();
}

TEST(GX2DLineList, CloneFromReplacesWhatWasThereByCopies) {
  Log log;
  GX2DLineList source;
  source.push_back(new GX2DLine(0, 0, 1, 0));
  source.push_back(new GX2DLine(1, 0, 1, 1));
  GX2DLineList list;
  list.push_back(new Logged<GX2DLine>(log, "old", Line(9, 9, 9, 9)));
  list.CloneFrom(source);
  EXPECT_EQ(log, (Log{"old"}));
  ASSERT_EQ(list.size(), 2U);
  EXPECT_NE(list[0], source[0]);
  EXPECT_POINT_EQ(*list[0], Line(0, 0, 1, 0));
  EXPECT_POINT_EQ(*list[1], Line(1, 0, 1, 1));
  list.CloneFrom(GX2DLineList());
  EXPECT_TRUE(list.empty());
}

TEST(GX2DElmListRefList, LeavesItsListsAlone) {
  Log log;
  Logged<GX2DElmList> inner(log, "inner");
  {
    GX2DElmListRefList list;
    list.push_back(&inner);
    GX2DElmListRefList copy(list);
    EXPECT_EQ(copy.front(), &inner);
  }
  EXPECT_EQ(log, Log());
}

TEST(GX2DElmListList, DestroysItsListsWithTheirElements) {
  Log log;
  {
    GX2DElmListList lists;
    auto first = std::make_unique<Logged<GX2DElmList>>(log, "first list");
    first->push_back(new Logged<GX2DLine>(log, "line", Line(0, 0, 1, 0)));
    lists.push_back(first.release());
    lists.push_back(nullptr);
    lists.push_back(new Logged<GX2DElmList>(log, "second list"));
    lists.ClearWithContents();
    EXPECT_TRUE(lists.empty());
    EXPECT_EQ(log, (Log{"first list", "line", "second list"}));
    lists.push_back(new Logged<GX2DElmList>(log, "third list"));
  }
  EXPECT_EQ(log.back(), "third list");
}

TEST(GX2DElmListList, IsDestroyedThroughTheBorrowingBase) {
  Log log;
  auto lists = std::make_unique<GX2DElmListList>();
  lists->push_back(new Logged<GX2DElmList>(log, "inner"));
  std::unique_ptr<GX2DElmListRefList> base = std::move(lists);
  base.reset();
  EXPECT_EQ(log, (Log{"inner"}));
}

TEST(GX2DElmListList, CopiesShareTheLists) {
  GX2DElmListList lists;
  lists.push_back(new GX2DElmList);
  GX2DElmListList copy(lists);
  EXPECT_EQ(copy.front(), lists.front());
  copy.clear();
  copy = lists;
  EXPECT_EQ(copy.front(), lists.front());
  copy.clear();
}

/// Counts what it is shown; refuses lines on demand and stops at the first element on demand.
class Counter final : public GX2DElementVisitor {
 public:
  int count = 0;
  bool refuse = false;
  bool stop = false;

  bool Visit(const GX2DArc& /*arc*/) override { return Note(); }
  bool Visit(const GX2DRectangle& /*rectangle*/) override { return Note(); }
  bool Visit(const GX2DLine& /*line*/) override { return Note(); }
  bool Visit(const GX2DPoint& /*point*/) override { return Note(); }

 private:
  bool Note() {
    ++count;
    if (stop) {
      StopAcceptElementVisitor();
    }
    return !refuse;
  }
};

class AcceptOfListOfLists : public testing::Test {
 protected:
  void SetUp() override {
    for (int i = 0; i < 3; ++i) {
      lists_.push_back(new GX2DElmList);
      support::Add(*lists_.back(), Line(0, 0, 1, 0), Point(1, 1));
    }
  }
  GX2DElmListList lists_;
  Counter visitor_;
};

TEST_F(AcceptOfListOfLists, VisitsEverything) {
  EXPECT_TRUE(lists_.Accept(visitor_));
  EXPECT_EQ(visitor_.count, 6);
}

TEST_F(AcceptOfListOfLists, ARefusalEndsOnlyTheInnerWalk) {
  visitor_.refuse = true;
  EXPECT_TRUE(lists_.Accept(visitor_));
  EXPECT_EQ(visitor_.count, 3);
}

TEST_F(AcceptOfListOfLists, ARaisedFlagEndsOnlyTheInnerWalk) {
  visitor_.stop = true;
  EXPECT_TRUE(lists_.Accept(visitor_));
  EXPECT_EQ(visitor_.count, 3);
  EXPECT_TRUE(visitor_.IsAcceptElementVisitorStopped());
}

TEST_F(AcceptOfListOfLists, OfNothingIsTrue) {
  GX2DElmListRefList nothing;
  EXPECT_TRUE(nothing.Accept(visitor_));
}

TEST(GX3DPointList, HoldsItsPointsByValue) {
  GX3DPoint p(1, 2, 3);
  GX3DPointList list;
  list.push_back(p);
  p.X = 9;
  const GX3DPointList copy(list);
  list.front().Y = 9;
  EXPECT_POINT_EQ(copy.front(), Point(1, 2, 3));
}

}  // namespace
