#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <KTRCL_Geometry/foundation/GXBoundBox.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
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

constexpr double kLargest = std::numeric_limits<double>::max();

static_assert(std::is_base_of_v<std::deque<GX2DElement*>, GX2DElmList>);
static_assert(std::has_virtual_destructor_v<GX2DElmList>);
static_assert(sizeof(GX2DElmList) == sizeof(std::deque<GX2DElement*>) + sizeof(void*));

/// Writes down what is asked of it.
class Recorder : public Foreign2D {
 public:
  explicit Recorder(Log& log) : Foreign2D({0, 0}, {0, 0}), log_(log) {}

  void Translate(const double& dx, const double& dy) override { Note("Translate", {dx, dy}); }
  void RotateAxis(const GX2DPoint& centre, const double& degrees) override {
    Note("RotateAxis", {centre.X, centre.Y, degrees});
  }
  void Scale(const double& f, const int& d) override { Note("Scale", {f, double(d)}); }
  void ScaleX(const double& f, const int& d) override { Note("ScaleX", {f, double(d)}); }
  void ScaleY(const double& f, const int& d) override { Note("ScaleY", {f, double(d)}); }
  void MirrorX() override { Note("MirrorX", {}); }
  void MirrorY() override { Note("MirrorY", {}); }
  void Reverse() override { Note("Reverse", {}); }

 private:
  void Note(const std::string& name, const std::vector<double>& arguments) {
    std::ostringstream text;
    text << name;
    for (const double argument : arguments) {
      text << ' ' << argument;
    }
    log_.push_back(text.str());
  }
  Log& log_;
};

/// Line (0,0)-(4,0), half circle to (0,0).
void AddClosedPair(GX2DElmList& list) { Add(list, Line(0, 0, 4, 0), Arc(2, 0, 4, 0, 2, 2, 0, 0)); }

TEST(GX2DElmList, IsEmptyByDefault) { EXPECT_TRUE(GX2DElmList().empty()); }

TEST(GX2DElmList, DestroysItsElementsFromTheFront) {
  Log log;
  {
    GX2DElmList list;
    list.push_back(new Logged<GX2DLine>(log, "line", Line(0, 0, 1, 0)));
    list.push_back(nullptr);
    list.push_back(new Logged<GX2DArc>(log, "arc", Circle(0, 0, 1)));
    list.push_back(new Logged<Foreign2D>(log, "stranger", Point(0, 0), Point(1, 1)));
  }
  EXPECT_EQ(log, (Log{"line", "arc", "stranger"}));
}

TEST(GX2DElmList, ClearWithContentsDestroysAndEmpties) {
  Log log;
  GX2DElmList list;
  list.push_back(nullptr);
  list.push_back(new Logged<GX2DPoint>(log, "point", Point(1, 2)));
  list.ClearWithContents();
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(log, (Log{"point"}));
  list.ClearWithContents();
  EXPECT_EQ(log.size(), 1U);
}

TEST(GX2DElmList, PlainClearOnlyForgets) {
  Log log;
  auto element = std::make_unique<Logged<GX2DLine>>(log, "line", Line(0, 0, 1, 0));
  {
    GX2DElmList list;
    list.push_back(element.get());
    list.clear();
  }
  EXPECT_EQ(log, Log());
  element.reset();
  EXPECT_EQ(log, (Log{"line"}));
}

TEST(GX2DElmList, CopiesShareTheElementsSoOneIsDrained) {
  Log log;
  {
    GX2DElmList list;
    list.push_back(new Logged<GX2DLine>(log, "line", Line(0, 0, 1, 0)));
    GX2DElmList copy(list);
    EXPECT_EQ(copy.front(), list.front());
    list.clear();
    EXPECT_EQ(log, Log());
    EXPECT_EQ(copy.size(), 1U);
  }
  EXPECT_EQ(log, (Log{"line"}));
}

TEST(GX2DElmList, AssignmentForgetsWhatTheReceiverHeld) {
  Log log;
  auto held = std::make_unique<Logged<GX2DLine>>(log, "held", Line(0, 0, 1, 0));
  GX2DElmList source;
  Add(source, Line(5, 5, 6, 6));
  GX2DElmList list;
  list.push_back(held.get());
  GX2DElmList& result = list = source;
  EXPECT_EQ(&result, &list);
  EXPECT_EQ(log, Log());
  EXPECT_EQ(list.front(), source.front());
  source.clear();
}

TEST(GX2DElmList, AssignmentToItselfKeepsEverything) {
  GX2DElmList list;
  Add(list, Line(5, 5, 6, 6));
  const GX2DElmList& same = list;
  list = same;
  ASSERT_EQ(list.size(), 1U);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 0), Line(5, 5, 6, 6));
}

TEST(IsClosed, IsFalseForNothingAndForANullEntryAtAnEnd) {
  GX2DElmList list;
  EXPECT_FALSE(list.IsClosed(1e9));
  list.push_back(nullptr);
  EXPECT_FALSE(list.IsClosed(1e9));
  Add(list, Line(0, 0, 0, 0));
  EXPECT_FALSE(list.IsClosed(1e9));
  GX2DElmList endsInNull;
  Add(endsInNull, Line(0, 0, 0, 0));
  endsInNull.push_back(nullptr);
  EXPECT_FALSE(endsInNull.IsClosed(1e9));
}

TEST(IsClosed, OnePointRectangleOrCircleIsClosedWhateverTheTolerance) {
  for (const double tol : {-1.0, 0.0, 1e-300}) {
    GX2DElmList point, rectangle, circle, circleByMid;
    Add(point, Point(1, 2));
    Add(rectangle, Rect(1, 2, 3, 4));
    Add(circle, Arc(0, 0, 1, 0, 0, 1, 1.00005, 0));
    Add(circleByMid, Arc(0, 0, 1, 0, 0, 1, 0, 1));
    EXPECT_TRUE(point.IsClosed(tol));
    EXPECT_TRUE(rectangle.IsClosed(tol));
    EXPECT_TRUE(circle.IsClosed(tol));
    EXPECT_TRUE(circleByMid.IsClosed(tol));
  }
}

TEST(IsClosed, OneOrdinaryArcOrLineAsksItsEnds) {
  GX2DElmList arc, line, loop, strange;
  Add(arc, Arc(2, 0, 4, 0, 2, 2, 0, 0));
  EXPECT_FALSE(arc.IsClosed(0.0001));
  EXPECT_TRUE(arc.IsClosed(4));
  Add(line, Line(0, 0, 4, 0));
  EXPECT_FALSE(line.IsClosed(0.0001));
  Add(loop, Line(3, 3, 3, 3));
  EXPECT_TRUE(loop.IsClosed(0));
  Add(strange, Foreign2D({1, 1}, {1, 1.5}));
  EXPECT_TRUE(strange.IsClosed(0.5));
  EXPECT_FALSE(strange.IsClosed(0.25));
}

TEST(IsClosed, ComparesLastEndWithFirstStartInclusivelyPerCoordinate) {
  GX2DElmList list;
  Add(list, Line(0, 0, 4, 0), Line(99, 99, 0.25, -0.25));  // what lies between does not count
  EXPECT_TRUE(list.IsClosed(0.25));
  EXPECT_FALSE(list.IsClosed(std::nextafter(0.25, 0)));
}

TEST(IsClosed, TwoRectanglesAskTheirCorners) {
  GX2DElmList list;
  Add(list, Rect(0, 0, 1, 1), Rect(5, 5, 6, 6));
  EXPECT_FALSE(list.IsClosed(1));
  EXPECT_TRUE(list.IsClosed(6));
}

TEST(IsFullyConnected, IsTrueForNothingAndForOneElement) {
  GX2DElmList list;
  EXPECT_TRUE(list.IsFullyConnected());
  Add(list, Line(0, 0, 4, 0));
  EXPECT_TRUE(list.IsFullyConnected());
}

TEST(IsFullyConnected, AnOpenChainIsFullyConnected) {
  GX2DElmList list;
  Add(list, Line(0, 0, 4, 0), Arc(4, 2, 4, 0, 6, 2, 4, 4), Point(4, 4), Line(4, 4, 9, 9));
  EXPECT_TRUE(list.IsFullyConnected());
}

TEST(IsFullyConnected, AdmitsGapsOf0_0001PerCoordinate) {
  GX2DElmList list;
  Add(list, Line(4, 4, 0, 0), Line(0.0001, -0.0001, 9, 9));
  EXPECT_TRUE(list.IsFullyConnected());
  At<GX2DLine>(list, 1).Start.X = std::nextafter(0.0001, 1);
  EXPECT_FALSE(list.IsFullyConnected());
}

TEST(IsFullyConnected, LooksAtEveryPair) {
  GX2DElmList list;
  Add(list, Line(0, 0, 1, 0), Line(1, 0, 2, 0), Line(2, 0, 3, 0));
  EXPECT_TRUE(list.IsFullyConnected());
  At<GX2DLine>(list, 2).Start.X = 2.5;
  EXPECT_FALSE(list.IsFullyConnected());
  At<GX2DLine>(list, 2).Start.X = 2;
  At<GX2DLine>(list, 0).End.X = 0.5;
  EXPECT_FALSE(list.IsFullyConnected());
}

TEST(BulkOperations2D, ForwardToEveryElementInOrder) {
  Log log;
  GX2DElmList list;
  list.push_back(new Recorder(log));
  list.push_back(nullptr);
  list.Translate(1, 2);
  list.RotateAxis(Point(3, 4), 5);
  list.Scale(2, 7);
  list.ScaleX(3, -4);
  list.ScaleY(4, 0);
  list.MirrorX();
  list.MirrorY();
  EXPECT_EQ(log, (Log{"Translate 1 2", "RotateAxis 3 4 5", "Scale 2 7", "ScaleX 3 -4", "ScaleY 4 0",
                      "MirrorX", "MirrorY"}));
}

TEST(BulkOperations2D, ReachEveryElement) {
  GX2DElmList list;
  Add(list, Point(1, 2), Line(1, 2, 3, 4));
  list.push_back(nullptr);
  Add(list, Rect(1, 2, 3, 4), Arc(1, 2, 3, 4, 5, 6, 7, 8));
  list.Translate(10, 20);
  EXPECT_POINT_EQ(At<GX2DPoint>(list, 0), Point(11, 22));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 1), Line(11, 22, 13, 24));
  EXPECT_EQ(list[2], nullptr);
  EXPECT_POINT_EQ(At<GX2DRectangle>(list, 3), Rect(11, 22, 13, 24));
  EXPECT_POINT_EQ(At<GX2DArc>(list, 4), Arc(11, 22, 13, 24, 15, 26, 17, 28));
}

TEST(BulkOperations2D, ArgumentsMayBelongToAnElementOfTheList) {
  GX2DElmList moved, scaled, turned;
  Add(moved, Point(3, 5), Point(10, 10));
  GX2DPoint& first = At<GX2DPoint>(moved, 0);
  moved.Translate(first.X, first.Y);
  EXPECT_POINT_EQ(At<GX2DPoint>(moved, 1), Point(13, 15));
  Add(scaled, Point(3, 5), Point(10, 10));
  scaled.Scale(At<GX2DPoint>(scaled, 0).X, -1);
  EXPECT_POINT_EQ(At<GX2DPoint>(scaled, 1), Point(30, 30));
  Add(turned, Line(1, 1, 3, 1), Point(2, 1));
  turned.RotateAxis(turned[0]->GetEndPoint(), 90);
  EXPECT_POINT_NEAR(At<GX2DLine>(turned, 0), Line(3, -1, 3, 1), 1e-15);
  EXPECT_POINT_NEAR(At<GX2DPoint>(turned, 1), Point(3, 0), 1e-15);
}

TEST(Reverse2D, KeepsAConnectedChainConnected) {
  GX2DElmList list;
  AddClosedPair(list);
  Add(list, Line(0, 0, -5, 0));
  list.Reverse();
  ASSERT_EQ(list.size(), 3U);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 0), Line(-5, 0, 0, 0));
  EXPECT_POINT_EQ(At<GX2DArc>(list, 1).Start, Point(0, 0));
  EXPECT_TRUE(At<GX2DArc>(list, 1).IsClockwise());
  EXPECT_POINT_EQ(At<GX2DLine>(list, 2), Line(4, 0, 0, 0));
  EXPECT_TRUE(list.IsFullyConnected());
}

TEST(Reverse2D, ReversesElementsFirstAndPassesOverNull) {
  Log log;
  GX2DElmList list;
  Add(list, Point(1, 2));
  list.push_back(nullptr);
  list.push_back(new Recorder(log));
  list.Reverse();
  ASSERT_EQ(list.size(), 3U);
  EXPECT_NE(dynamic_cast<Recorder*>(list[0]), nullptr);
  EXPECT_EQ(list[1], nullptr);
  EXPECT_EQ(log, (Log{"Reverse"}));
}

TEST(Extent2D, FoldsTheElements) {
  GX2DElmList list;
  Add(list, Line(3, 9, 5, 7), Arc(0, 0, 1, 0, 0, 1, -1, 0), Point(4, -2));
  EXPECT_EQ(list.GetMinX(), -1.0);
  EXPECT_EQ(list.GetMaxX(), 5.0);
  EXPECT_EQ(list.GetMinY(), -2.0);
  EXPECT_EQ(list.GetMaxY(), 9.0);
}

TEST(Extent2D, OfNothingIsInverted) {
  const GX2DElmList list;
  EXPECT_EQ(list.GetMinX(), kLargest);
  EXPECT_EQ(list.GetMinY(), kLargest);
  EXPECT_EQ(list.GetMaxX(), -kLargest);
  EXPECT_EQ(list.GetMaxY(), -kLargest);
  EXPECT_GT(list.GetMinX(), list.GetMaxX());
}

TEST(Extent2D, NumbersThatCompareWithNothingAreLeftOut) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  GX2DElmList list;
  Add(list, Point(nan, nan), Point(5, 6), Point(nan, nan));
  EXPECT_EQ(list.GetMinX(), 5.0);
  EXPECT_EQ(list.GetMaxX(), 5.0);
  EXPECT_EQ(list.GetMinY(), 6.0);
  EXPECT_EQ(list.GetMaxY(), 6.0);
}

TEST(GetBoundBox, IsTheExtentAtZ0) {
  GX2DElmList list;
  Add(list, Line(3, 9, 5, 7), Point(4, -2));
  GXBoundBox box;
  box.Minimum.Z = box.Maximum.Z = -77;
  list.GetBoundBox(box);
  EXPECT_POINT_EQ(box.Minimum, Point(3, -2, 0));
  EXPECT_POINT_EQ(box.Maximum, Point(5, 9, 0));
}

TEST(GetBoundBox, OfNothingIsInverted) {
  GXBoundBox box;
  GX2DElmList().GetBoundBox(box);
  EXPECT_POINT_EQ(box.Minimum, Point(kLargest, kLargest, 0));
  EXPECT_POINT_EQ(box.Maximum, Point(-kLargest, -kLargest, 0));
}

TEST(Find, GoesByIdentity) {
  GX2DElmList list;
  Add(list, Point(1, 2), Point(1, 2));
  GX2DPoint other(1, 2);
  EXPECT_EQ(list.Find(list[1]) - list.begin(), 1);
  EXPECT_EQ(list.Find(list[0]), list.begin());
  EXPECT_EQ(list.Find(&other), list.end());
  EXPECT_EQ(list.Find(nullptr), list.end());
  list.push_back(nullptr);
  EXPECT_EQ(list.Find(nullptr) - list.begin(), 2);
}

TEST(CircularIterators, WrapAtBothEnds) {
  GX2DElmList list;
  Add(list, Point(0, 0), Point(1, 0), Point(2, 0));
  auto it = list.begin();
  EXPECT_TRUE(list.GetNextCircularIterator(it));
  EXPECT_EQ(it - list.begin(), 1);
  EXPECT_TRUE(list.GetNextCircularIterator(it));
  EXPECT_TRUE(list.GetNextCircularIterator(it));
  EXPECT_EQ(it, list.begin());
  EXPECT_TRUE(list.GetPreviousCircularIterator(it));
  EXPECT_EQ(it - list.begin(), 2);
  EXPECT_TRUE(list.GetPreviousCircularIterator(it));
  EXPECT_EQ(it - list.begin(), 1);
}

TEST(CircularIterators, OneElementFollowsItself) {
  GX2DElmList list;
  Add(list, Point(0, 0));
  auto it = list.begin();
  EXPECT_TRUE(list.GetNextCircularIterator(it));
  EXPECT_EQ(it, list.begin());
  EXPECT_TRUE(list.GetPreviousCircularIterator(it));
  EXPECT_EQ(it, list.begin());
}

TEST(CircularIterators, TheEndStepsBackToTheLast) {
  GX2DElmList list;
  Add(list, Point(0, 0), Point(1, 0));
  auto it = list.end();
  EXPECT_TRUE(list.GetPreviousCircularIterator(it));
  EXPECT_EQ(it - list.begin(), 1);
}

TEST(CircularIterators, OfNothingStayAndAnswerFalse) {
  GX2DElmList list;
  auto it = list.begin();
  EXPECT_FALSE(list.GetNextCircularIterator(it));
  EXPECT_EQ(it, list.end());
  EXPECT_FALSE(list.GetPreviousCircularIterator(it));
  EXPECT_EQ(it, list.end());
}

}  // namespace
