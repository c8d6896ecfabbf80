// Direction of a contour from its topmost point on one upright scan line.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

namespace {

using support::Add;
using support::AddPolygon;
using support::Arc;
using support::ArcByAngles;
using support::Circle;
using support::Line;
using support::OnCircle;
using support::Point;
using support::Rect;

/// The operation chooses the scan line.
constexpr double kChoose = -1.7976931348623157e+308;

/// The answer in words, from two calls with different presets of the output.
std::string Direction(GX2DElmList& list, bool even = false, double x = kChoose) {
  bool presetTrue = true, presetFalse = false;
  const bool first = GXGeometry::CheckDirectionOfElementList(list, presetTrue, even, x);
  const bool second = GXGeometry::CheckDirectionOfElementList(list, presetFalse, even, x);
  EXPECT_EQ(first, second);
  const std::string start = first ? "" : "undecided, ";
  if (presetTrue && !presetFalse) {
    return start + "unwritten";
  }
  EXPECT_EQ(presetTrue, presetFalse);
  return start + (presetTrue ? "clockwise" : "counter-clockwise");
}

const char* const kUndecided = "undecided, unwritten";

TEST(CheckDirectionOfElementList, TellsTheDirectionOfASquare) {
  GX2DElmList square;
  AddPolygon(square, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
  EXPECT_EQ(Direction(square), "counter-clockwise");
  EXPECT_EQ(Direction(square, true), "counter-clockwise");
  square.Reverse();
  EXPECT_EQ(Direction(square), "clockwise");
  EXPECT_EQ(Direction(square, true), "clockwise");
}

TEST(CheckDirectionOfElementList, TellsTheDirectionOfACircle) {
  for (const double r : {0.5, 1.0, 3.7, 10.0, 100.0, 2500.0}) {
    SCOPED_TRACE(r);
    GX2DElmList counterClockwise, clockwise;
    Add(counterClockwise, Circle(2, -7, r));
    Add(clockwise, Circle(2, -7, r, true));
    EXPECT_EQ(Direction(counterClockwise, true), "counter-clockwise");
    EXPECT_EQ(Direction(clockwise, true), "clockwise");
  }
}

TEST(CheckDirectionOfElementList, TellsTheDirectionOfASlotWithARoundTop) {
  GX2DElmList slot;
  Add(slot, Line(0, 0, 10, 0), Line(10, 0, 10, 5), Arc(5, 5, 10, 5, 5, 10, 0, 5), Line(0, 5, 0, 0));
  EXPECT_EQ(Direction(slot, true), "counter-clockwise");
  slot.Reverse();
  EXPECT_EQ(Direction(slot, true), "clockwise");
}

TEST(CheckDirectionOfElementList, TellsTheDirectionOfAHollowTop) {
  // A clockwise bite in the top of a counter-clockwise square: the topmost element is the arc.
  GX2DElmList bite;
  Add(bite, Line(0, 0, 10, 0), Line(10, 0, 10, 10), Arc(5, 10, 10, 10, 5, 5, 0, 10),
      Line(0, 10, 0, 0));
  EXPECT_EQ(Direction(bite, true, 4.0), "counter-clockwise");
  bite.Reverse();
  EXPECT_EQ(Direction(bite, true, 4.0), "clockwise");
}

TEST(CheckDirectionOfElementList, TellsWhichWayASingleLineRuns) {
  GX2DElmList right, left;
  Add(right, Line(0, 3, 4, 5));
  Add(left, Line(4, 5, 0, 3));
  EXPECT_EQ(Direction(right), "clockwise");
  EXPECT_EQ(Direction(left), "counter-clockwise");
}

TEST(CheckDirectionOfElementList, AsksForAnEvenNumberOfCrossingsOnlyOnDemand) {
  GX2DElmList line;
  Add(line, Line(0, 3, 4, 5));
  EXPECT_EQ(Direction(line, false), "clockwise");
  EXPECT_EQ(Direction(line, true), kUndecided);
  GX2DElmList noBottom;
  Add(noBottom, Line(0, 0, 0, 5), Line(0, 5, 5, 5), Line(5, 5, 5, 0));
  EXPECT_EQ(Direction(noBottom, false), "clockwise");
  EXPECT_EQ(Direction(noBottom, true), kUndecided);
}

TEST(CheckDirectionOfElementList, CountsTheHitsOnArcsOneByOne) {
  GX2DElmList halfOpen;  // over the top only: one hit
  Add(halfOpen, Arc(0, 0, 5, 0, 0, 5, -5, 0));
  EXPECT_EQ(Direction(halfOpen, false, 1.0), "counter-clockwise");
  EXPECT_EQ(Direction(halfOpen, true, 1.0), kUndecided);
  GX2DElmList right;  // round the right side: two hits
  Add(right, Arc(0, 0, 0, -5, 5, 0, 0, 5));
  EXPECT_EQ(Direction(right, true, 1.0), "counter-clockwise");
}

TEST(CheckDirectionOfElementList, NeedsTwoDifferentAbscissas) {
  GX2DElmList empty, upright, rectangle;
  AddPolygon(upright, {{3, 0}, {3, 5}, {3, 2}});
  Add(rectangle, Rect(0, 0, 5, 5));
  EXPECT_EQ(Direction(empty), kUndecided);
  EXPECT_EQ(Direction(upright), kUndecided);
  EXPECT_EQ(Direction(rectangle), kUndecided);
}

TEST(CheckDirectionOfElementList, MeetsAPointOnlyWhileItChoosesTheScanLine) {
  GX2DElmList list;
  Add(list, Line(0, 3, 4, 5), Point(2, 9));
  EXPECT_EQ(Direction(list), kUndecided);
  EXPECT_EQ(Direction(list, false, 2.0), "clockwise");
  GX2DElmList alone;
  Add(alone, Point(2, 9));
  EXPECT_EQ(Direction(alone), kUndecided);
  EXPECT_EQ(Direction(alone, false, 2.0), kUndecided);
}

TEST(CheckDirectionOfElementList, PassesOverOtherKinds) {
  // The rectangle and the stranger lie higher and would widen the range.
  GX2DElmList list;
  Add(list, Rect(-50, 20, 50, 30), Line(0, 3, 4, 5));
  list.push_back(new support::Foreign2D(Point(90, 50), Point(-90, 50)));
  EXPECT_EQ(Direction(list), "clockwise");
  EXPECT_EQ(Direction(list, false, 2.0), "clockwise");
  EXPECT_EQ(Direction(list, false, 40.0), kUndecided);
}

TEST(CheckDirectionOfElementList, ScansTheMiddleOfTheWidestGap) {
  GX2DElmList leftWider, rightWider;  // one line to the right, one to the left beside it
  Add(leftWider, Line(0, 0, 3, 0), Line(5, 0, 3, 0));
  Add(rightWider, Line(0, 0, 2, 0), Line(5, 0, 2, 0));
  EXPECT_EQ(Direction(leftWider), "clockwise");
  EXPECT_EQ(Direction(rightWider), "counter-clockwise");
}

TEST(CheckDirectionOfElementList, ScansTheLeftmostOfEqualGaps) {
  GX2DElmList rightFirst, leftFirst;
  Add(rightFirst, Line(0, 0, 1, 0), Line(2, 0, 1, 0));
  Add(leftFirst, Line(1, 0, 0, 0), Line(1, 0, 2, 0));
  EXPECT_EQ(Direction(rightFirst), "clockwise");
  EXPECT_EQ(Direction(leftFirst), "counter-clockwise");
}

TEST(CheckDirectionOfElementList, KeepsTheScanLineOffTheEndsOfArcs) {
  // A circle with a gap of its bottom between x = -1 and 1. The middle of the whole extent has one
  // crossing; the ends make the widest gaps lie beside it, with two.
  GX2DElmList list;
  const double y = -std::sqrt(24.0);
  Add(list, Arc(0, 0, 1, y, 0, 5, -1, y));
  EXPECT_EQ(Direction(list, true), "counter-clockwise");
  EXPECT_EQ(Direction(list, true, 0.0), kUndecided);
  EXPECT_EQ(Direction(list, false, 0.0), "counter-clockwise");
}

TEST(CheckDirectionOfElementList, TakesInTheLowEndOfAnElementAndNotTheHighOne) {
  GX2DElmList line, arc;
  Add(line, Line(0, 0, 4, 0));
  Add(arc, Arc(2, 0, 4, 0, 2, 2, 0, 0));
  EXPECT_EQ(Direction(line, false, 0.0), "clockwise");
  EXPECT_EQ(Direction(line, false, 4.0), kUndecided);
  EXPECT_EQ(Direction(line, false, -0.1), kUndecided);
  EXPECT_EQ(Direction(line, false, std::nextafter(4.0, 0.0)), "clockwise");
  EXPECT_EQ(Direction(arc, false, 4.0), kUndecided);
}

TEST(CheckDirectionOfElementList, PassesOverUprightLines) {
  GX2DElmList list;
  Add(list, Line(2, 50, 2, 60), Line(0, 0, 4, 0));
  EXPECT_EQ(Direction(list, false, 2.0), "clockwise");
}

TEST(CheckDirectionOfElementList, GivesUpOnAnAlmostUprightLineAtTheScanLine) {
  // 5e-6 wide: the scan line lies within, but both count as upright and have no crossing.
  GX2DElmList list;
  Add(list, Line(-1, 0, 1, 0), Line(0, 5, 0.000005, 9));
  EXPECT_EQ(Direction(list, false, 0.000001), kUndecided);
  EXPECT_EQ(Direction(list, false, -0.5), "clockwise");
}

TEST(CheckDirectionOfElementList, GivesUpOnAnArcWhoseCircleIsMissed) {
  // The end is off the circle, so the extent reaches beyond it.
  GX2DElmList list;
  Add(list, Line(-99, 50, 99, 50), Arc(0, 0, 0, 5, -3, 4, -90, 90));
  EXPECT_EQ(Direction(list, false, -50.0), kUndecided);
  EXPECT_EQ(Direction(list, false, 50.0), "clockwise");
}

TEST(CheckDirectionOfElementList, GivesUpWhereTwoLinesMeetAtTheTop) {
  GX2DElmList cross;
  Add(cross, Line(0, 0, 2, 2), Line(0, 2, 2, 0));
  EXPECT_EQ(Direction(cross, false, 1.0), kUndecided);
  EXPECT_EQ(Direction(cross, false, 0.5), "clockwise");
  GX2DElmList higherLater, higherFirst;
  Add(higherLater, Line(0, 0, 2, 2), Line(0, 2, 2, 0), Line(2, 9, 0, 9));
  Add(higherFirst, Line(2, 9, 0, 9), Line(0, 0, 2, 2), Line(0, 2, 2, 0));
  EXPECT_EQ(Direction(higherLater, false, 1.0), kUndecided);
  EXPECT_EQ(Direction(higherFirst, false, 1.0), "counter-clockwise");
}

TEST(CheckDirectionOfElementList, KeepsTheFirstWhereAnArcMeetsTheTop) {
  // The line (-1, 5) - (1, 5) touches the top (0, 5) of a counter-clockwise circle.
  GX2DElmList arcLater, arcFirst, arcs;
  Add(arcLater, Line(-1, 5, 1, 5), Circle(0, 0, 5));
  Add(arcFirst, Circle(0, 0, 5), Line(-1, 5, 1, 5));
  Add(arcs, Circle(0, 0, 5), Circle(0, 2, 3, true));
  EXPECT_EQ(Direction(arcLater, false, 0.0), "clockwise");
  EXPECT_EQ(Direction(arcFirst, false, 0.0), kUndecided);
  EXPECT_EQ(Direction(arcs, false, 0.0), "counter-clockwise");
  GX2DElmList swapped;
  Add(swapped, Circle(0, 2, 3, true), Circle(0, 0, 5));
  EXPECT_EQ(Direction(swapped, false, 0.0), "clockwise");
}

TEST(CheckDirectionOfElementList, GoesByTheTopmostElement) {
  GX2DElmList list;
  Add(list, Line(0, 1, 4, 1), Line(4, 9, 0, 9), Line(0, 3, 4, 3), Circle(2, 4, 1, true));
  EXPECT_EQ(Direction(list, false, 2.5), "counter-clockwise");
  Add(list, Circle(2, 12, 2, true));
  EXPECT_EQ(Direction(list, false, 2.5), "clockwise");
}

TEST(CheckDirectionOfElementList, LeavesTheOutputWhereTheChordsMissTheScanLine) {
  // The chords of this circle end at 2.5, 7.5, ... degrees and reach no further than
  // 10 cos 2.5 = 9.9905. At 9.995 only the arc itself is met: true, without a direction.
  const GX2DPoint start = OnCircle(0, 0, 10, 2.5);
  GX2DElmList list;
  Add(list, GX2DArc(Point(0, 0), start, OnCircle(0, 0, 10, 92.5), start));
  EXPECT_EQ(Direction(list, false, 9.995), "unwritten");
  EXPECT_EQ(Direction(list, true, 9.995), "unwritten");
  EXPECT_EQ(Direction(list, true, 9.98), "counter-clockwise");
}

TEST(CheckDirectionOfElementList, IsUndecidedWhereNothingIsHit) {
  GX2DElmList list;
  AddPolygon(list, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
  EXPECT_EQ(Direction(list, false, 20.0), kUndecided);
  EXPECT_EQ(Direction(list, true, 20.0), kUndecided);
  GX2DElmList empty;
  EXPECT_EQ(Direction(empty, false, 20.0), kUndecided);
}

TEST(CheckDirectionOfElementList, TakesAnObjectOfAClassDerivedFromALineForALine) {
  std::vector<std::string> log;
  GX2DElmList list;
  list.push_back(new support::Logged<GX2DLine>(log, "a", Line(0, 0, 4, 0)));
  EXPECT_EQ(Direction(list), "clockwise");
}

TEST(CheckDirectionOfElementList, LeavesTheListAlone) {
  GX2DElmList list;
  Add(list, Circle(0, 0, 5), Line(0, 0, 4, 0));
  const std::vector<GX2DElement*> before(list.begin(), list.end());
  Direction(list);
  EXPECT_EQ(std::vector<GX2DElement*>(list.begin(), list.end()), before);
}

TEST(CheckDirectionOfElementList, AgreesWithTheSignOfTheAreaOfRandomPolygons) {
  support::Random random;
  for (int round = 0; round < 500; ++round) {
    const int count = random.Int(3, 25);
    const bool clockwise = random.Bool();
    std::vector<GX2DPoint> corners;
    for (int i = 0; i < count; ++i) {
      const double angle = 360.0 * (i + random.Between(0.1, 0.9)) / count;
      corners.push_back(OnCircle(30, -20, random.Between(5, 50), clockwise ? -angle : angle));
    }
    // For three corners the center may lie outside, so the area decides what is right.
    double area = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const GX2DPoint& a = corners[i];
      const GX2DPoint& b = corners[(i + 1) % corners.size()];
      area += a.X * b.Y - a.Y * b.X;
    }
    GX2DElmList list;
    AddPolygon(list, corners);
    EXPECT_EQ(Direction(list, true), area < 0 ? "clockwise" : "counter-clockwise") << round;
  }
}

TEST(CheckDirectionOfElementList, AgreesWithTheWayRandomRoundedContoursAreDrawn) {
  // Rounded rectangles, turned: lines and quarter arcs, drawn counter-clockwise or reversed.
  support::Random random;
  for (int round = 0; round < 200; ++round) {
    const double w = random.Between(5, 50), h = random.Between(5, 50), r = random.Between(0.5, 2);
    GX2DElmList list;
    Add(list, Line(r, 0, w - r, 0), ArcByAngles(w - r, r, r, -90, 90), Line(w, r, w, h - r),
        ArcByAngles(w - r, h - r, r, 0, 90), Line(w - r, h, r, h), ArcByAngles(r, h - r, r, 90, 90),
        Line(0, h - r, 0, r), ArcByAngles(r, r, r, 180, 90));
    list.RotateAxis(Point(0, 0), random.Between(0, 360));
    const bool clockwise = random.Bool();
    if (clockwise) {
      list.Reverse();
    }
    EXPECT_EQ(Direction(list, true), clockwise ? "clockwise" : "counter-clockwise") << round;
  }
}

}  // namespace
