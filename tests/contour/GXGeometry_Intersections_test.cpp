#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

using support::Add;
using support::AddPolygon;
using support::Arc;
using support::ArcByAngles;
using support::Circle;
using support::Line;
using support::Point;
using support::Rect;

using Numbers = std::vector<double>;

Numbers Coordinates(const GX2DPointList& points) {
  Numbers numbers;
  for (const GX2DPoint* const p : points) {
    numbers.push_back(p->X);
    numbers.push_back(p->Y);
  }
  return numbers;
}

/// The crossings of two lists, x and y in turn.
Numbers Crossings(GX2DElmList& list1, GX2DElmList& list2) {
  GX2DPointList points;
  EXPECT_TRUE(GXGeometry::GetIntersections(list1, list2, points));
  return Coordinates(points);
}
template <typename Element1, typename Element2>
Numbers CrossingsOfTwo(const Element1& e1, const Element2& e2) {
  GX2DElmList list1;
  GX2DElmList list2;
  Add(list1, e1);
  Add(list2, e2);
  return Crossings(list1, list2);
}

bool Meet(GX2DElmList& list1, GX2DElmList& list2) {
  bool found = false;
  EXPECT_TRUE(GXGeometry::CheckIfIntersection(list1, list2, found));
  return found;
}
bool Meet(GX2DElmList& list, const GX2DLine& line, bool unbounded) {
  bool found = false;
  EXPECT_TRUE(GXGeometry::CheckIfIntersection(list, line, unbounded, found));
  return found;
}

/// Crossings that stay in the list of points, and the answer.
struct SelfIntersection {
  bool answer = false;
  Numbers left;
};
SelfIntersection OfItself(GX2DElmList& list) {
  GX2DPointList points;
  SelfIntersection result;
  result.answer = GXGeometry::HasSelfIntersection(list, points);
  result.left = Coordinates(points);
  return result;
}
void ExpectNoSelfIntersection(GX2DElmList& list) {
  const SelfIntersection result = OfItself(list);
  EXPECT_FALSE(result.answer);
  EXPECT_EQ(result.left, Numbers());
}
void ExpectSelfIntersection(GX2DElmList& list, const Numbers& left) {
  const SelfIntersection result = OfItself(list);
  EXPECT_TRUE(result.answer);
  EXPECT_EQ(result.left, left);
}

/// The half circle about (0, 0) from (5, 0) over the top.
GX2DArc Dome() { return Arc(0, 0, 5, 0, 0, 5, -5, 0); }

// All crossings of two lists.

TEST(GetIntersections, KeepsCrossingsOnBothLines) {
  EXPECT_EQ(CrossingsOfTwo(Line(0, 0, 4, 4), Line(0, 4, 4, 0)), (Numbers{2, 2}));
  EXPECT_EQ(CrossingsOfTwo(Line(0, 0, 1, 1), Line(0, 4, 4, 0)), Numbers());
  EXPECT_EQ(CrossingsOfTwo(Line(0, 0, 4, 4), Line(0, 4, 1, 3)), Numbers());
}

TEST(GetIntersections, KeepsCrossingsAtEnds) {
  EXPECT_EQ(CrossingsOfTwo(Line(0, 0, 4, 0), Line(4, 0, 4, 4)), (Numbers{4, 0}));
  EXPECT_EQ(CrossingsOfTwo(Line(0, 0, 4, 0), Line(2, 0, 2, 4)), (Numbers{2, 0}));
  // 0.0001 beyond the end still is the end.
  EXPECT_EQ(CrossingsOfTwo(Line(-4, 0, 0, 0), Line(0.0001, 0, 0.0001, 4)), (Numbers{0.0001, 0}));
  const double above = std::nextafter(0.0001, 1);
  EXPECT_EQ(CrossingsOfTwo(Line(-4, 0, 0, 0), Line(above, 0, above, 4)), Numbers());
}

TEST(GetIntersections, FindsNothingOnParallelLinesThatOverlap) {
  EXPECT_EQ(CrossingsOfTwo(Line(0, 0, 4, 0), Line(1, 0, 3, 0)), Numbers());
  EXPECT_EQ(CrossingsOfTwo(Line(0, 0, 0, 4), Line(0, 1, 0, 3)), Numbers());
}

TEST(GetIntersections, OfALineAndAnArcKeepsHitsOnBoth) {
  // At height 3 the circle is met at (4, 3) and then at (-4, 3); both lie on the dome.
  EXPECT_EQ(CrossingsOfTwo(Line(-9, 3, 9, 3), Dome()), (Numbers{4, 3, -4, 3}));
  EXPECT_EQ(CrossingsOfTwo(Line(0, 3, 9, 3), Dome()), (Numbers{4, 3}));
  EXPECT_EQ(CrossingsOfTwo(Line(-9, 3, 0, 3), Dome()), (Numbers{-4, 3}));
  EXPECT_EQ(CrossingsOfTwo(Line(-3, 3, 3, 3), Dome()), Numbers());
  EXPECT_EQ(CrossingsOfTwo(Line(-9, -3, 9, -3), Dome()), Numbers());
  EXPECT_EQ(CrossingsOfTwo(Line(3, -9, 3, 9), Dome()), (Numbers{3, 4}));
}

TEST(GetIntersections, OfAnArcAndALineIsTheSame) {
  EXPECT_EQ(CrossingsOfTwo(Dome(), Line(-9, 3, 9, 3)), (Numbers{4, 3, -4, 3}));
  EXPECT_EQ(CrossingsOfTwo(Dome(), Line(-9, 3, 0, 3)), (Numbers{-4, 3}));
  EXPECT_EQ(CrossingsOfTwo(Dome(), Line(-9, -3, 9, -3)), Numbers());
}

TEST(GetIntersections, AddsATangentPointTwice) {
  EXPECT_EQ(CrossingsOfTwo(Line(-4, 5, 4, 5), Dome()), (Numbers{0, 5, 0, 5}));
  EXPECT_EQ(CrossingsOfTwo(Dome(), Line(-4, 5, 4, 5)), (Numbers{0, 5, 0, 5}));
  EXPECT_EQ(CrossingsOfTwo(Line(-4, -5, 4, -5), Dome()), Numbers());
}

TEST(GetIntersections, MeetsFullCirclesByLinesOnly) {
  EXPECT_EQ(CrossingsOfTwo(Line(-9, 3, 9, 3), Circle(0, 0, 5)), (Numbers{4, 3, -4, 3}));
  EXPECT_EQ(CrossingsOfTwo(Circle(0, 0, 5), Circle(6, 0, 5)), Numbers());
  EXPECT_EQ(CrossingsOfTwo(Dome(), Arc(6, 0, 11, 0, 6, 5, 1, 0)), Numbers());
}

TEST(GetIntersections, OfTwoArcsKeepsHitsOnBoth) {
  // Circles of radius 5 about (0, 0) and (6, 0) meet in (3, 4) and (3, -4), the latter at 307
  // degrees of the first and 233 of the second.
  const GX2DArc wide1 = ArcByAngles(0, 0, 5, -80, 160);
  const GX2DArc wide2 = ArcByAngles(6, 0, 5, 100, 160);
  const GX2DArc upper1 = ArcByAngles(0, 0, 5, 10, 80);
  const GX2DArc upper2 = ArcByAngles(6, 0, 5, 100, 70);
  EXPECT_EQ(CrossingsOfTwo(wide1, wide2).size(), 4U);
  for (const Numbers& numbers : {CrossingsOfTwo(upper1, wide2), CrossingsOfTwo(wide1, upper2),
                                 CrossingsOfTwo(upper1, upper2)}) {
    ASSERT_EQ(numbers.size(), 2U);
    EXPECT_NEAR(numbers[0], 3, 1e-12);
    EXPECT_NEAR(numbers[1], 4, 1e-12);
  }
  EXPECT_EQ(CrossingsOfTwo(upper1, ArcByAngles(6, 0, 5, 190, 70)), Numbers());
}

TEST(GetIntersections, LosesTheHitsOfArcsWhoseCentresLieOnAVerticalOfTheFirst) {
  // Starting at (5, 0) the first has (0, 6) straight above: the figure that comes out, 3 to either
  // side, is on neither circle. From the other arc, whose frame is turned, the true hits come out.
  const GX2DArc first = ArcByAngles(0, 0, 5, 0, 160);
  const GX2DArc second = ArcByAngles(0, 6, 5, 200, 140);
  EXPECT_EQ(CrossingsOfTwo(first, second), Numbers());
  EXPECT_EQ(CrossingsOfTwo(second, first).size(), 4U);
}

TEST(GetIntersections, SkipsPointsRectanglesAndStrangers) {
  const GX2DLine line(-9, 0, 9, 0);
  EXPECT_EQ(CrossingsOfTwo(line, Point(0, 0)), Numbers());
  EXPECT_EQ(CrossingsOfTwo(Point(0, 0), line), Numbers());
  EXPECT_EQ(CrossingsOfTwo(Point(5, 0), Dome()), Numbers());
  EXPECT_EQ(CrossingsOfTwo(line, Rect(-1, -1, 1, 1)), Numbers());
  EXPECT_EQ(CrossingsOfTwo(Rect(-1, -1, 1, 1), line), Numbers());
  EXPECT_EQ(CrossingsOfTwo(Rect(-9, -1, 9, 1), Dome()), Numbers());
  EXPECT_EQ(CrossingsOfTwo(line, support::Foreign2D({0, -1}, {0, 1})), Numbers());
}

TEST(GetIntersections, TakesADerivedLineForALine) {
  std::vector<std::string> log;
  GX2DElmList list1;
  GX2DElmList list2;
  list1.push_back(new support::Logged<GX2DLine>(log, "line", Line(0, 0, 4, 4)));
  Add(list2, Line(0, 4, 4, 0));
  EXPECT_EQ(Crossings(list1, list2), (Numbers{2, 2}));
}

TEST(GetIntersections, PassesOverEmptyEntries) {
  GX2DElmList list1;
  GX2DElmList list2;
  list1.push_back(nullptr);
  Add(list1, Line(0, 0, 4, 4));
  list2.push_back(nullptr);
  Add(list2, Line(0, 4, 4, 0));
  list2.push_back(nullptr);
  EXPECT_EQ(Crossings(list1, list2), (Numbers{2, 2}));
  EXPECT_TRUE(Meet(list1, list2));
}

TEST(GetIntersections, WalksTheFirstListOutside) {
  GX2DElmList levels;
  GX2DElmList uprights;
  Add(levels, Line(0, 7, 9, 7), Line(0, 2, 9, 2));
  Add(uprights, Line(5, 0, 5, 9), Line(1, 0, 1, 9), Line(3, 0, 3, 9));
  EXPECT_EQ(Crossings(levels, uprights), (Numbers{5, 7, 1, 7, 3, 7, 5, 2, 1, 2, 3, 2}));
  EXPECT_EQ(Crossings(uprights, levels), (Numbers{5, 7, 5, 2, 1, 7, 1, 2, 3, 7, 3, 2}));
}

TEST(GetIntersections, AddsToWhatTheListHolds) {
  GX2DElmList list1;
  GX2DElmList list2;
  Add(list1, Line(0, 0, 4, 4));
  Add(list2, Line(0, 4, 4, 0));
  GX2DPointList points;
  points.push_back(new GX2DPoint(9, 9));
  EXPECT_TRUE(GXGeometry::GetIntersections(list1, list2, points));
  EXPECT_TRUE(GXGeometry::GetIntersections(list1, list2, points));
  EXPECT_EQ(Coordinates(points), (Numbers{9, 9, 2, 2, 2, 2}));
  EXPECT_NE(points[1], points[2]);
}

TEST(GetIntersections, IsTrueForEmptyLists) {
  GX2DElmList none;
  GX2DElmList list;
  Add(list, Line(0, 0, 4, 4));
  EXPECT_EQ(Crossings(none, none), Numbers());
  EXPECT_EQ(Crossings(none, list), Numbers());
  EXPECT_EQ(Crossings(list, none), Numbers());
}

TEST(GetIntersections, OfAListWithItselfFindsEveryJointFromBothSides) {
  GX2DElmList square;
  AddPolygon(square, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  EXPECT_EQ(Crossings(square, square), (Numbers{4, 0, 0, 0, 4, 0, 4, 4, 4, 4, 0, 4, 0, 0, 0, 4}));
}

// Whether there is a crossing.

TEST(CheckIfIntersection, OnlyEverSetsTheFlag) {
  GX2DElmList list1;
  GX2DElmList list2;
  Add(list1, Line(0, 0, 1, 1));
  Add(list2, Line(5, 0, 6, 9));
  bool found = true;
  EXPECT_TRUE(GXGeometry::CheckIfIntersection(list1, list2, found));
  EXPECT_TRUE(found);
  EXPECT_TRUE(GXGeometry::CheckIfIntersection(list1, Line(5, 0, 6, 9), false, found));
  EXPECT_TRUE(found);
  EXPECT_FALSE(Meet(list1, list2));
  EXPECT_FALSE(Meet(list1, Line(5, 0, 6, 9), false));
  Add(list2, Line(0, 1, 1, 0));
  EXPECT_TRUE(Meet(list1, list2));
}

TEST(CheckIfIntersection, OfTwoListsKnowsEveryPairOfKinds) {
  GX2DElmList line, crossing, dome, arc1, arc2, other;
  Add(line, Line(-9, 3, 0, 3));
  Add(crossing, Line(-1, 0, -1, 4));
  Add(dome, Dome());
  Add(arc1, ArcByAngles(0, 0, 5, 10, 80));
  Add(arc2, ArcByAngles(6, 0, 5, 100, 70));
  Add(other, Point(-1, 3), Rect(-9, -9, 9, 9));
  EXPECT_TRUE(Meet(line, crossing));
  EXPECT_TRUE(Meet(line, dome));
  EXPECT_TRUE(Meet(dome, line));
  EXPECT_TRUE(Meet(arc1, arc2));
  EXPECT_FALSE(Meet(crossing, dome));
  EXPECT_FALSE(Meet(line, other));
  EXPECT_FALSE(Meet(other, dome));
  EXPECT_FALSE(Meet(other, other));
}

TEST(CheckIfIntersection, WithAnUnboundedLineAsksForTheElementOnly) {
  GX2DElmList list;
  Add(list, Line(0, 0, 4, 0));
  EXPECT_FALSE(Meet(list, Line(2, 9, 2, 8), false));
  EXPECT_TRUE(Meet(list, Line(2, 9, 2, 8), true));
  EXPECT_TRUE(Meet(list, Line(2, 9, 2, 0), false));
  EXPECT_FALSE(Meet(list, Line(5, 9, 5, 8), true));
  EXPECT_FALSE(Meet(list, Line(5, 9, 5, -9), false));
}

TEST(CheckIfIntersection, WithAnUnboundedLineKeepsToTheArc) {
  GX2DElmList list;
  Add(list, Dome());
  EXPECT_FALSE(Meet(list, Line(7, 3, 8, 3), false));
  EXPECT_TRUE(Meet(list, Line(7, 3, 8, 3), true));
  EXPECT_TRUE(Meet(list, Line(-7, 3, 0, 3), false));  // by the second hit
  EXPECT_FALSE(Meet(list, Line(7, -3, 8, -3), true));
  EXPECT_FALSE(Meet(list, Line(-9, -3, 9, -3), false));
  EXPECT_TRUE(Meet(list, Line(7, 5, 8, 5), true));  // tangent
}

TEST(CheckIfIntersection, WithALinePassesOverOtherKindsAndEmptyEntries) {
  GX2DElmList list;
  Add(list, Point(0, 0), Rect(-1, -1, 1, 1));
  list.push_back(nullptr);
  for (const bool unbounded : {false, true}) {
    EXPECT_FALSE(Meet(list, Line(-9, 0, 9, 0), unbounded));
  }
  Add(list, Line(0, -1, 0, 1));
  for (const bool unbounded : {false, true}) {
    EXPECT_TRUE(Meet(list, Line(-9, 0, 9, 0), unbounded));
  }
}

TEST(CheckIfIntersection, TakesTheElementFirstAndTheLineSecond) {
  // The hit with a leaning line that counts as vertical has the x of its start, and its y is taken
  // on the other one.
  GX2DElmList list;
  Add(list, Line(0, 0, 0.00001, 5));
  EXPECT_TRUE(Meet(list, Line(-1, 3, 1, 3), false));
  GX2DElmList level;
  Add(level, Line(-1, 3, 1, 3));
  EXPECT_TRUE(Meet(level, Line(0, 0, 0.00001, 5), true));
}

// Crossings of a list with itself.

TEST(HasSelfIntersection, IsFalseForAClosedSquare) {
  GX2DElmList square;
  AddPolygon(square, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  ExpectNoSelfIntersection(square);
}

TEST(HasSelfIntersection, IsFalseForASlotWithTangentArcs) {
  GX2DElmList slot;
  Add(slot, Line(0, 0, 4, 0), Arc(4, 1, 4, 0, 5, 1, 4, 2), Line(4, 2, 0, 2),
      Arc(0, 1, 0, 2, -1, 1, 0, 0));
  ExpectNoSelfIntersection(slot);
}

TEST(HasSelfIntersection, FindsTheCrossingOfAFigureOfEight) {
  GX2DElmList eight;
  AddPolygon(eight, {{0, 0}, {2, 2}, {2, 0}, {0, 2}});
  ExpectSelfIntersection(eight, {1, 1});
}

TEST(HasSelfIntersection, ClearsThePointsFirst) {
  std::vector<std::string> log;
  GX2DElmList list;
  GX2DPointList points;
  points.push_back(new support::Logged<GX2DPoint>(log, "old", Point(7, 7)));
  EXPECT_FALSE(GXGeometry::HasSelfIntersection(list, points));
  EXPECT_TRUE(points.empty());
  EXPECT_EQ(log, std::vector<std::string>{"old"});
  AddPolygon(list, {{0, 0}, {2, 2}, {2, 0}, {0, 2}});
  points.push_back(new GX2DPoint(7, 7));
  EXPECT_TRUE(GXGeometry::HasSelfIntersection(list, points));
  EXPECT_EQ(Coordinates(points), (Numbers{1, 1}));
}

TEST(HasSelfIntersection, WantsTwoElements) {
  GX2DElmList list;
  ExpectNoSelfIntersection(list);
  Add(list, Circle(0, 0, 5));
  ExpectNoSelfIntersection(list);
}

TEST(HasSelfIntersection, LeavesTheElementsAlone) {
  std::vector<std::string> log;
  GX2DElmList list;
  list.push_back(new support::Logged<GX2DLine>(log, "a", Line(0, 0, 2, 2)));
  list.push_back(new support::Logged<GX2DLine>(log, "b", Line(2, 0, 0, 2)));
  ExpectSelfIntersection(list, {1, 1});
  EXPECT_TRUE(log.empty());
  EXPECT_POINT_EQ(support::At<GX2DLine>(list, 0), Line(0, 0, 2, 2));
}

TEST(HasSelfIntersection, GathersCrossingsInTheOrderOfTheElements) {
  GX2DElmList list;
  Add(list, Line(0, 0, 9, 0), Line(0, 5, 9, 5), Line(6, -1, 6, 9), Line(3, 9, 3, -1));
  ExpectSelfIntersection(list, {6, 0, 3, 0, 6, 5, 3, 5});
}

TEST(HasSelfIntersection, KeepsATouchOfTheLastElement) {
  GX2DElmList list;
  Add(list, Line(0, 0, 4, 0), Line(2, 5, 2, 0));
  ExpectSelfIntersection(list, {2, 0});
}

TEST(HasSelfIntersection, DropsATouchAtAnEndOfTheEarlierElement) {
  GX2DElmList list;
  Add(list, Line(2, 5, 2, 0), Line(0, 0, 4, 0));
  ExpectNoSelfIntersection(list);
}

TEST(HasSelfIntersection, StaysTrueWhenALaterPassRemovesThePoint) {
  // The touch at (2, 0) is found with the bar and dropped as the end of the second line.
  GX2DElmList list;
  Add(list, Line(0, 0, 4, 0), Line(2, 5, 2, 0), Line(20, 20, 21, 22));
  ExpectSelfIntersection(list, {});
}

TEST(HasSelfIntersection, FindsALaterJointOnlyWhereTheElementTouchesIt) {
  // The first line runs through the joint of the second and third. It is found twice at once, a
  // third time by the joint itself, and then dropped as an end of the second.
  GX2DElmList through;
  Add(through, Line(0, 0, 4, 0), Line(2, 3, 2, 0), Line(2, 0, 3, -3));
  ExpectSelfIntersection(through, {});
  GX2DElmList beside;
  Add(beside, Line(0, 1, 1, 1), Line(2, 3, 2, 0), Line(2, 0, 3, -3));
  ExpectNoSelfIntersection(beside);
}

TEST(HasSelfIntersection, RemovesHitsWithin0_0001OfTheEnds) {
  GX2DElmList near;
  Add(near, Line(0, 0, 4, 0), Line(0.0001, -1, 0.0001, 1));
  ExpectNoSelfIntersection(near);
  const double above = std::nextafter(0.0001, 1);
  GX2DElmList beyond;
  Add(beyond, Line(0, 0, 4, 0), Line(above, -1, above, 1));
  ExpectSelfIntersection(beyond, {above, 0});
  GX2DElmList nearEnd;
  Add(nearEnd, Line(4, 0, 0, 0), Line(-0.0001, -1, -0.0001, 1));
  ExpectNoSelfIntersection(nearEnd);
}

TEST(HasSelfIntersection, APointElementRemovesCrossingsOnIt) {
  GX2DElmList list;
  Add(list, Line(0, 0, 2, 2), Point(1, 1), Line(2, 0, 0, 2));
  ExpectSelfIntersection(list, {});
}

TEST(HasSelfIntersection, KeepsATangentPointTwice) {
  GX2DElmList list;
  Add(list, Line(-4, 5, 4, 5), Dome());
  ExpectSelfIntersection(list, {0, 5, 0, 5});
}

TEST(HasSelfIntersection, PassesOverEmptyEntries) {
  GX2DElmList list;
  list.push_back(nullptr);
  Add(list, Line(0, 0, 2, 2));
  list.push_back(nullptr);
  Add(list, Line(2, 0, 0, 2));
  list.push_back(nullptr);
  ExpectSelfIntersection(list, {1, 1});
}

TEST(Intersections, SurviveNumbersThatAreNotFinite) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double odd : {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, 1e308}) {
    GX2DElmList list;
    Add(list, Line(odd, 0, 1, 1), Line(0, 2, 2, 0), Arc(odd, 0, 5, 0, 0, 5, -5, 0), Dome(),
        Arc(0, 0, odd, 0, 0, odd, odd, odd), Line(0, odd, odd, 0));
    GX2DPointList points;
    EXPECT_TRUE(GXGeometry::GetIntersections(list, list, points));
    GXGeometry::HasSelfIntersection(list, points);
    bool found = false;
    EXPECT_TRUE(GXGeometry::CheckIfIntersection(list, list, found));
    EXPECT_TRUE(GXGeometry::CheckIfIntersection(list, Line(odd, 1, 2, odd), true, found));
  }
}

}  // namespace
