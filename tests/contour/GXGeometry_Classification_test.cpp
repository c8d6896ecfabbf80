// A contour within another, points on lists, and perimeters. The place of a single point, the
// direction and the surface have their own files.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using support::Add;
using support::AddPolygon;
using support::Arc;
using support::Circle;
using support::Line;
using support::OnCircle;
using support::Point;
using support::Rect;

/// (-10, -10) to (10, 10), counter-clockwise.
class Square : public GX2DElmList {
 public:
  Square() { AddPolygon(*this, {{-10, -10}, {10, -10}, {10, 10}, {-10, 10}}); }
};

/// The same with a slit from the left edge to x = `tip`, `half` wide to both sides of the level.
class SlitSquare : public GX2DElmList {
 public:
  SlitSquare(double tip, double level, double half) {
    AddPolygon(*this, {{-10, -10},
                       {10, -10},
                       {10, 10},
                       {-10, 10},
                       {-10, level + half},
                       {tip, level + half},
                       {tip, level - half},
                       {-10, level - half}});
  }
};

bool Within(const GX2DElmList& enclosing, GX2DElmList& tested, bool onCounts = false) {
  return GXGeometry::IsContourInClosedContour(enclosing, tested, onCounts);
}

TEST(IsContourInClosedContour, TellsAHoleFromAContourBeside) {
  const Square square;
  GX2DElmList hole, beside, across;
  AddPolygon(hole, {{1, 1}, {3, 1}, {2, 4}});
  AddPolygon(beside, {{11, 1}, {13, 1}, {12, 4}});
  AddPolygon(across, {{8, 1}, {13, 1}, {12, 4}});
  EXPECT_TRUE(Within(square, hole));
  EXPECT_FALSE(Within(square, beside));
  EXPECT_FALSE(Within(square, across));
  EXPECT_TRUE(Within(square, hole, true));
  EXPECT_FALSE(Within(square, across, true));
}

TEST(IsContourInClosedContour, HoldsForAnEmptyContour) {
  GX2DElmList empty, refused;
  Add(refused, Point(0, 0));
  EXPECT_TRUE(Within(Square(), empty));
  EXPECT_TRUE(Within(GX2DElmList(), empty));
  EXPECT_TRUE(Within(refused, empty));
}

TEST(IsContourInClosedContour, LeavesItToTheCallerWhetherOnIsInside) {
  const Square square;
  GX2DElmList touching;
  AddPolygon(touching, {{0, 0}, {10, 10}, {0, 5}});
  EXPECT_FALSE(Within(square, touching, false));
  EXPECT_TRUE(Within(square, touching, true));
}

TEST(IsContourInClosedContour, ReachesOneTenThousandthSideways) {
  const Square square;
  GX2DElmList justOut, tooFar;
  AddPolygon(justOut, {{0, 0}, {10.00009, 1}, {0, 5}});
  AddPolygon(tooFar, {{0, 0}, {10.00011, 1}, {0, 5}});
  EXPECT_TRUE(Within(square, justOut, true));
  EXPECT_FALSE(Within(square, justOut, false));
  EXPECT_FALSE(Within(square, tooFar, true));
}

TEST(IsContourInClosedContour, DoesNotNoticeLinesThatCrossTheContourBetweenTheirEnds) {
  const SlitSquare slit(0, 0, 1);
  GX2DElmList tested;
  AddPolygon(tested, {{-5, -5}, {5, -5}, {5, 5}, {-5, 5}});  // its left edge crosses the slit
  EXPECT_TRUE(Within(slit, tested));
}

TEST(IsContourInClosedContour, LooksAtTheStartOfTheFirstElementOnly) {
  const Square square;
  GX2DElmList first, second, end;
  Add(first, Line(99, 0, 1, 1), Line(1, 1, 2, 2));
  Add(second, Line(0, 0, 1, 1), Line(99, 0, 2, 2));
  Add(end, Line(0, 0, 1, 1), Line(1, 1, 99, 0));
  EXPECT_FALSE(Within(square, first));
  EXPECT_TRUE(Within(square, second));
  EXPECT_FALSE(Within(square, end));
}

TEST(IsContourInClosedContour, LooksAtTheEndOfEveryKind) {
  const Square square;
  GX2DElmList point, foreign;
  Add(point, Line(0, 0, 1, 1), Point(99, 0));
  Add(foreign, Line(0, 0, 1, 1));
  foreign.push_back(new support::Foreign2D(Point(1, 1), Point(99, 0)));
  EXPECT_FALSE(Within(square, point));
  EXPECT_FALSE(Within(square, foreign));
  GX2DElmList inside;
  Add(inside, Line(0, 0, 1, 1), Point(2, 0));
  inside.push_back(new support::Foreign2D(Point(99, 1), Point(3, 0)));
  EXPECT_TRUE(Within(square, inside));
}

TEST(IsContourInClosedContour, LooksAtAllFourCornersOfARectangle) {
  GX2DElmList rectangle;
  Add(rectangle, Rect(-9, -8, 9, 8));
  EXPECT_TRUE(Within(Square(), rectangle));
  // One corner at a time is cut off the enclosing square.
  const std::vector<std::vector<GX2DPoint>> cut = {
      {{-10, -5}, {-5, -10}, {10, -10}, {10, 10}, {-10, 10}},
      {{-10, -10}, {5, -10}, {10, -5}, {10, 10}, {-10, 10}},
      {{-10, -10}, {10, -10}, {10, 5}, {5, 10}, {-10, 10}},
      {{-10, -10}, {10, -10}, {10, 10}, {-5, 10}, {-10, 5}}};
  for (const std::vector<GX2DPoint>& corners : cut) {
    GX2DElmList enclosing;
    AddPolygon(enclosing, corners);
    EXPECT_FALSE(Within(enclosing, rectangle));
  }
}

// The half circle of radius 5 on the left, from the top down: ten samples, 18 degrees apart.
TEST(IsContourInClosedContour, SamplesAnArcAtEveryTenth) {
  GX2DElmList tested;
  Add(tested, Arc(0, 0, 0, 5, -5, 0, 0, -5));
  ASSERT_TRUE(Within(Square(), tested));
  for (int k = 1; k <= 9; ++k) {
    SCOPED_TRACE(k);
    const GX2DPoint sample = OnCircle(0, 0, 5, 90 + 18 * k);
    EXPECT_FALSE(Within(SlitSquare(sample.X + 0.1, sample.Y, 0.05), tested));
    const GX2DPoint between = OnCircle(0, 0, 5, 90 + 18 * k - 9);
    EXPECT_TRUE(Within(SlitSquare(between.X + 0.1, between.Y, 0.05), tested));
  }
}

TEST(IsContourInClosedContour, SamplesAnArcATenthTimeJustBeforeItsEnd) {
  // The end is off the circle, at (0, 3), so the tenth sample near (0, 1) is a place of its own;
  // the ninth is at 81 degrees, x = 0.156.
  GX2DElmList tested;
  Add(tested, Arc(0, 0, 1, 0, 0.7, 0.7, 0, 3));
  ASSERT_TRUE(Within(Square(), tested));
  EXPECT_FALSE(Within(SlitSquare(0.05, 1, 0.01), tested));
  EXPECT_TRUE(Within(SlitSquare(0.05, 2, 0.01), tested));
  EXPECT_FALSE(Within(SlitSquare(0.05, 3, 0.01), tested));
}

TEST(IsContourInClosedContour, SamplesACircleOnItsWayRound) {
  const Square square;
  GX2DElmList inside, across;
  Add(inside, Circle(0, 0, 9));
  Add(across, Circle(5, 0, 5.5));  // start (10.5, 0) is out already
  EXPECT_TRUE(Within(square, inside));
  EXPECT_FALSE(Within(square, across));
  GX2DElmList leftOut;  // start (9, 0) is in, the far side is not
  Add(leftOut, Circle(-3, 0, 12));
  EXPECT_FALSE(Within(square, leftOut));
}

TEST(IsContourInClosedContour, SamplesTheOriginWhereAPointOfAnArcCannotBeComputed) {
  // Start, mid and center in line span no plane, so there is no point at a parameter.
  GX2DElmList tested;
  Add(tested, Arc(1, 1, 3, 1, 5, 1, 1, 3));
  EXPECT_TRUE(Within(Square(), tested));
  GX2DElmList awayFromOrigin;
  AddPolygon(awayFromOrigin, {{0.5, 0.5}, {9, 0.5}, {9, 9}, {0.5, 9}});
  EXPECT_FALSE(Within(awayFromOrigin, tested));
}

TEST(IsContourInClosedContour, TakesALoneCircleAndALoneRectangleAsEnclosing) {
  GX2DElmList circle, rectangle, inside, corner;
  Add(circle, Circle(0, 0, 5));
  Add(rectangle, Rect(-4, -4, 4, 4));
  AddPolygon(inside, {{-3, -3}, {3, -3}, {3, 3}, {-3, 3}});
  AddPolygon(corner, {{-3.9, -3.9}, {3.9, -3.9}, {3.9, 3.9}, {-3.9, 3.9}});
  EXPECT_TRUE(Within(circle, inside));
  EXPECT_FALSE(Within(circle, corner));
  EXPECT_TRUE(Within(rectangle, inside));
  EXPECT_TRUE(Within(rectangle, corner));
}

TEST(IsContourInClosedContour, HoldsNothingInAContourThatIsRefused) {
  Square withPoint;
  Add(withPoint, Point(0, 0));
  GX2DElmList tested;
  AddPolygon(tested, {{1, 1}, {3, 1}, {2, 4}});
  EXPECT_FALSE(Within(withPoint, tested, true));
  // On the contour is said before the point is reached, and counts.
  GX2DElmList onTheEdge;
  Add(onTheEdge, Line(10, 1, 10, 2));
  EXPECT_TRUE(Within(withPoint, onTheEdge, true));
}

TEST(GetContourPerimeter, AddsUpTheLengths) {
  GX2DElmList list;
  EXPECT_EQ(GXGeometry::GetContourPerimeter(list), 0.0);
  Add(list, Line(0, 0, 3, 4), Point(7, 7), Rect(0, 0, 2, 1));
  EXPECT_EQ(GXGeometry::GetContourPerimeter(list), 5.0 + 0.0 + 6.0);
  Add(list, Circle(0, 0, 2), Arc(0, 0, 2, 0, 0, 2, -2, 0));
  // 4 pi and 2 pi; each is a product of the radius and a sweep that is pi within rounding.
  EXPECT_NEAR(GXGeometry::GetContourPerimeter(list), 11.0 + 6.0 * support::kPi, 1e-12);
  list.push_back(new support::Foreign2D(Point(0, 0), Point(9, 9)));  // its length is 1
  EXPECT_NEAR(GXGeometry::GetContourPerimeter(list), 12.0 + 6.0 * support::kPi, 1e-12);
}

TEST(GetContourPerimeter, SkipsNullEntries) {
  GX2DElmList list;
  list.push_back(nullptr);
  Add(list, Line(0, 0, 3, 4));
  list.push_back(nullptr);
  EXPECT_EQ(GXGeometry::GetContourPerimeter(list), 5.0);
}

TEST(GetContourPerimeter, AddsInTheOrderOfTheList) {
  GX2DElmList list;
  Add(list, Line(0, 0, 0.1, 0), Line(0, 0, 0.2, 0), Line(0, 0, 0.3, 0));
  EXPECT_EQ(GXGeometry::GetContourPerimeter(list), (0.1 + 0.2) + 0.3);  // 0.6000000000000001
  list.Reverse();
  EXPECT_EQ(GXGeometry::GetContourPerimeter(list), (0.3 + 0.2) + 0.1);  // 0.6
}

bool OnList(const GX2DElmList& list, double x, double y) {
  return GXGeometry::Point2DOnElmList(list, Point(x, y));
}

TEST(Point2DOnElmList, IsFalseForAnEmptyList) { EXPECT_FALSE(OnList(GX2DElmList(), 0, 0)); }

TEST(Point2DOnElmList, FindsThePointOnAnyElement) {
  GX2DElmList list;
  Add(list, Line(0, 0, 10, 0), Arc(10, 5, 10, 0, 15, 5, 10, 10), Point(3, 7), Line(10, 10, 0, 0));
  EXPECT_TRUE(OnList(list, 5, 0));   // between the ends
  EXPECT_TRUE(OnList(list, 0, 0));   // at an end
  EXPECT_TRUE(OnList(list, 15, 5));  // on the arc
  EXPECT_TRUE(OnList(list, 3, 7));   // the point
  EXPECT_TRUE(OnList(list, 4, 4));   // the last
  EXPECT_FALSE(OnList(list, 5, 5.1));
  EXPECT_FALSE(OnList(list, 5, -1));
  EXPECT_FALSE(OnList(list, 6, 8));  // on the circle of the arc, off the arc
  EXPECT_FALSE(OnList(list, 11, 0));
}

TEST(Point2DOnElmList, KeepsToTheToleranceOfEachKind) {
  GX2DElmList list;
  Add(list, Line(0, 0, 10, 0));
  EXPECT_TRUE(OnList(list, 5, 0.0000099));
  EXPECT_FALSE(OnList(list, 5, 0.00001));  // strict off the line
  EXPECT_TRUE(OnList(list, 10.00009, 0));  // wider along it, at an end
  EXPECT_FALSE(OnList(list, 10.0002, 0));
  GX2DElmList point;
  Add(point, Point(0, 0));
  EXPECT_TRUE(OnList(point, 0.0001, -0.0001));  // inclusive, on each coordinate
  EXPECT_FALSE(OnList(point, 0.00011, 0));
  GX2DElmList arc;
  Add(arc, Arc(0, 0, 5, 0, 0, 5, -5, 0));
  EXPECT_TRUE(OnList(arc, 0, 5.000009));
  EXPECT_FALSE(OnList(arc, 0, 5.000011));
  EXPECT_FALSE(OnList(arc, 0, -5));
}

TEST(Point2DOnElmList, AnswersFromARectangleAtOnce) {
  GX2DElmList list;
  Add(list, Rect(0, 0, 10, 10), Line(20, 0, 30, 0));
  EXPECT_TRUE(OnList(list, 0, 5));
  EXPECT_TRUE(OnList(list, 10, 5));
  EXPECT_TRUE(OnList(list, 5, 0));
  EXPECT_TRUE(OnList(list, 5, 10));
  EXPECT_TRUE(OnList(list, 10, 10));
  EXPECT_FALSE(OnList(list, 5, 5));
  EXPECT_FALSE(OnList(list, 25, 0));  // on the line behind it
  GX2DElmList lineFirst;
  Add(lineFirst, Line(20, 0, 30, 0), Rect(0, 0, 10, 10), Rect(40, 0, 50, 10));
  EXPECT_TRUE(OnList(lineFirst, 25, 0));
  EXPECT_TRUE(OnList(lineFirst, 0, 5));
  EXPECT_FALSE(OnList(lineFirst, 40, 5));  // the first rectangle has spoken
}

TEST(Point2DOnElmList, PassesOverOtherKinds) {
  GX2DElmList list;
  list.push_back(new support::Foreign2D(Point(0, 0), Point(1, 0)));
  Add(list, Line(2, 0, 3, 0));
  EXPECT_FALSE(OnList(list, 0, 0));
  EXPECT_TRUE(OnList(list, 2.5, 0));
}

TEST(Point2DOnElmList, TakesAnObjectOfAClassDerivedFromAnArcForAnArc) {
  std::vector<std::string> log;
  GX2DElmList list;
  list.push_back(new support::Logged<GX2DArc>(log, "a", Circle(0, 0, 5)));
  EXPECT_TRUE(OnList(list, -3, -4));
}

}  // namespace
