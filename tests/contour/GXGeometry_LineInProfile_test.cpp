// Direction of a profile, what lies inside it, and its filter by height.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/ProfilePlane.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace {

using support::Add;
using support::Arc;
using support::ArcByAngles;
using support::Line;
using support::Point;

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();

class CheckDirection3DElmList : public support::ProfilePlane {
 protected:
  static int Of(const std::vector<GX2DPoint>& corners) {
    GX3DElmList profile;
    AddPath(profile, corners);
    return GXGeometry::CheckDirection3DElmList(profile, Plane());
  }
};
INSTANTIATE_TEST_SUITE_P(Planes, CheckDirection3DElmList, support::AllPlanes());

TEST_P(CheckDirection3DElmList, IsZeroForAnEmptyList) {
  GX3DElmList profile;
  EXPECT_EQ(GXGeometry::CheckDirection3DElmList(profile, Plane()), 0);
}

TEST_P(CheckDirection3DElmList, IsOneToTheLeftAndZeroToTheRight) {
  EXPECT_EQ(Of({{0, 0}, {10, 0}, {10, 5}}), 1);
  EXPECT_EQ(Of({{0, 0}, {10, 0}, {10, -5}}), 0);
  EXPECT_EQ(Of({{1, 2}, {-3, 7}, {-9, 4}}), 1);
  EXPECT_EQ(Of({{1, 2}, {-3, 7}, {0, 14}}), 0);
}

TEST_P(CheckDirection3DElmList, IsOneForAStraightProfile) {
  EXPECT_EQ(Of({{0, 0}, {10, 0}}), 1);
  EXPECT_EQ(Of({{0, 0}, {1, 1}, {3, 3}, {2, 2}}), 1);
}

TEST_P(CheckDirection3DElmList, AsksTheFirstTurnAlone) {
  EXPECT_EQ(Of({{0, 0}, {10, 0}, {20, 0}, {20, 5}, {30, 5}, {30, 0}}), 1);
  EXPECT_EQ(Of({{0, 0}, {10, 0}, {20, 0}, {20, -5}, {30, -5}, {30, 0}}), 0);
}

TEST_P(CheckDirection3DElmList, MeasuresAgainstTheFirstElementEvenAfterAWayBack) {
  // Seen on the way back along the first line, the last line turns to the left.
  EXPECT_EQ(Of({{0, 0}, {10, 0}, {4, 0}, {4, -3}}), 0);
  EXPECT_EQ(Of({{0, 0}, {10, 0}, {4, 0}, {4, 3}}), 1);
}

TEST_P(CheckDirection3DElmList, PassesOverATurnWithin0_00001) {
  EXPECT_EQ(Of({{0, 0}, {10, 0}, {20, -0.000009}, {20, 5}}), 1);
  EXPECT_EQ(Of({{0, 0}, {10, 0}, {20, -0.000011}, {20, 5}}), 0);
}

TEST_P(CheckDirection3DElmList, MeasuresAnArcInFrontFromItsCenterToItsStart) {
  // The line ends left of center to start, right of start to end and right of center to end.
  GX3DElmList left;
  Add(left, ArcIn(ArcByAngles(0, 0, 5, 0, 90)), LineIn(0, 5, 1, 8));
  EXPECT_EQ(GXGeometry::CheckDirection3DElmList(left, Plane()), 1);
  GX3DElmList right;
  Add(right, ArcIn(ArcByAngles(0, 0, 5, 0, -90)), LineIn(0, -5, 1, -8));
  EXPECT_EQ(GXGeometry::CheckDirection3DElmList(right, Plane()), 0);
}

TEST_P(CheckDirection3DElmList, PassesOverArcsOnTheWay) {
  GX3DElmList profile;
  Add(profile, LineIn(0, 0, 10, 0), ArcIn(ArcByAngles(10, -5, 5, 90, -90)), LineIn(15, -5, 15, 9));
  EXPECT_EQ(GXGeometry::CheckDirection3DElmList(profile, Plane()), 1);
  GX3DElmList arcs;
  Add(arcs, ArcIn(ArcByAngles(0, 0, 5, 0, -90)), ArcIn(ArcByAngles(0, 0, 5, -90, -90)));
  EXPECT_EQ(GXGeometry::CheckDirection3DElmList(arcs, Plane()), 1);
}

TEST_P(CheckDirection3DElmList, TakesALineThatLeavesThroughTheDepthForATurnToTheRight) {
  // Off the first line in space, but in line with it in the plane.
  GX3DElmList profile;
  Add(profile, LineIn(0, 0, 10, 0), GX3DLine(In(10, 0, 0), In(20, 0, 1)), LineIn(20, 0, 20, 9));
  EXPECT_EQ(GXGeometry::CheckDirection3DElmList(profile, Plane()), 0);
}

TEST_P(CheckDirection3DElmList, IsOneBehindAFirstElementOfAnotherKind) {
  GX3DElmList foreign;
  foreign.push_back(new support::Foreign3D(In(0, 0), In(10, 0)));
  Add(foreign, LineIn(0, 0, 10, 0), LineIn(10, 0, 10, -5));
  EXPECT_EQ(GXGeometry::CheckDirection3DElmList(foreign, Plane()), 1);
  GX3DElmList null;
  null.push_back(nullptr);
  Add(null, LineIn(0, 0, 10, 0), LineIn(10, 0, 10, -5));
  EXPECT_EQ(GXGeometry::CheckDirection3DElmList(null, Plane()), 1);
}

TEST_P(CheckDirection3DElmList, PassesOverOtherKindsOnTheWay) {
  GX3DElmList profile;
  Add(profile, LineIn(0, 0, 10, 0), In(10, 7));
  profile.push_back(nullptr);
  profile.push_back(new support::Foreign3D(In(10, 0), In(10, 5)));
  EXPECT_EQ(GXGeometry::CheckDirection3DElmList(profile, Plane()), 1);
  Add(profile, LineIn(10, 0, 10, -5));
  EXPECT_EQ(GXGeometry::CheckDirection3DElmList(profile, Plane()), 0);
}

TEST_P(CheckDirection3DElmList, IsOneBehindAFirstElementWithoutLength) {
  EXPECT_EQ(Of({{3, 3}, {3, 3}, {10, -5}, {4, -9}}), 1);
}

TEST_P(CheckDirection3DElmList, SurvivesNumbersThatAreNotFinite) {
  for (const double odd : {kNaN, kInfinity, -kInfinity, 1e308}) {
    for (const int answer :
         {Of({{odd, 0}, {1, 0}, {1, 1}}), Of({{0, 0}, {1, odd}, {1, 1}}),
          Of({{0, 0}, {1, 0}, {odd, odd}}), Of({{-odd, odd}, {odd, 0}, {odd, odd}})}) {
      EXPECT_TRUE(answer == 0 || answer == 1);
    }
  }
}

// The start of an element.

int Further(const GX3DLine& line, GX3DElement& element, int type) {
  GX3DElement* const pointer = &element;
  return GXGeometry::CheckFurtherOnElement(line, pointer, type);
}

TEST(CheckFurtherOnElement, IsZeroThroughTheStartAndTheTypeElsewhere) {
  GX3DLine element(Point(1, 2, 3), Point(9, 2, 3));
  for (const int type : {1, 2, 3, 17, -5}) {
    EXPECT_EQ(Further(Line(1, 0, 3, 1, 5, 3), element, type), 0);
    EXPECT_EQ(Further(Line(4, 0, 3, 4, 5, 3), element, type), type);
    EXPECT_EQ(Further(Line(9, 0, 3, 9, 5, 3), element, type), type);
  }
}

TEST(CheckFurtherOnElement, TakesTheLineForUnbounded) {
  GX3DLine element(Point(1, 2, 3), Point(9, 2, 3));
  EXPECT_EQ(Further(Line(1, 10, 3, 1, 50, 3), element, 1), 0);
  EXPECT_EQ(Further(Line(1, 2, 10, 1, 2, 5), element, 1), 0);
}

TEST(CheckFurtherOnElement, KeepsTheTypeWithoutACrossing) {
  GX3DLine element(Point(1, 2, 3), Point(9, 2, 3));
  EXPECT_EQ(Further(Line(1, 4, 3, 9, 4, 3), element, 2), 2);   // parallel
  EXPECT_EQ(Further(Line(-5, 2, 3, 1, 2, 3), element, 2), 2);  // in line, ends on the start
}

TEST(CheckFurtherOnElement, TakesAnArcByItsChord) {
  // From (5, 0) through (0, 5) to (-5, 0): the chord lies on the X axis.
  GX3DArc arc = support::Arc3D(ArcByAngles(0, 0, 5, 0, 180), 0);
  EXPECT_EQ(Further(Line(5, -3, 0, 5, 3, 0), arc, 2), 0);
  EXPECT_EQ(Further(Line(8, 3, 0, 2, -3, 0), arc, 2), 0);
  EXPECT_EQ(Further(Line(0, -3, 0, 0, 3, 0), arc, 2), 2);
  EXPECT_EQ(Further(Line(-5, -3, 0, -5, 3, 0), arc, 2), 2);
}

TEST(CheckFurtherOnElement, ReachesThe0_0001AroundTheStart) {
  GX3DLine element(Point(0, 0, 0), Point(8, 0, 0));
  for (const double side : {1.0, -1.0}) {
    const double near = side * 0.0000999;
    const double far = side * 0.0001001;
    EXPECT_EQ(Further(Line(near, -1, 0, near, 1, 0), element, 1), 0);
    EXPECT_EQ(Further(Line(far, -1, 0, far, 1, 0), element, 1), 1);
  }
}

TEST(CheckFurtherOnElement, KeepsTheTypeForOtherKindsAndForNull) {
  support::Foreign3D foreign(Point(0, 0, 0), Point(8, 0, 0));
  EXPECT_EQ(Further(Line(0, -1, 0, 0, 1, 0), foreign, 2), 2);
  GX3DPoint point(0, 0, 0);
  EXPECT_EQ(Further(Line(0, -1, 0, 0, 1, 0), point, 2), 2);
  GX3DElement* const null = nullptr;
  EXPECT_EQ(GXGeometry::CheckFurtherOnElement(Line(0, -1, 0, 0, 1, 0), null, 2), 2);
}

// Inside or not.

class LineIn3DElmList : public support::ProfilePlane {
 protected:
  static int Inside(GX3DElmList& profile, const GX3DLine& line) {
    return GXGeometry::LineIn3DElmList(profile, line, Plane());
  }
  static int Inside(const std::vector<GX2DPoint>& corners, const GX3DLine& line) {
    GX3DElmList profile;
    AddPath(profile, corners);
    return Inside(profile, line);
  }
  /// Posts across the x axis, which the query from (10, 0) to (20, 0) meets if extended.
  static int BetweenPosts(const std::vector<double>& positions) {
    GX3DElmList posts;
    for (const double x : positions) AddPath(posts, {{x, -1}, {x, 1}});
    // The first post and the next one turn to the right, and the query lies to the right: the side
    // does not decide.
    return Inside(posts, LineIn(10, 0, 20, 0));
  }
};
INSTANTIATE_TEST_SUITE_P(Planes, LineIn3DElmList, support::AllPlanes());

const std::vector<GX2DPoint> kSquare = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}};
const std::vector<GX2DPoint> kSquareClockwise = {{0, 0}, {0, 10}, {10, 10}, {10, 0}, {0, 0}};
const std::vector<GX2DPoint> kLeftTurn = {{0, 0}, {10, 0}, {10, 10}};
const std::vector<GX2DPoint> kRightTurn = {{0, 0}, {10, 0}, {10, -10}};

TEST_P(LineIn3DElmList, IsOneForAnEmptyList) {
  GX3DElmList profile;
  EXPECT_EQ(Inside(profile, LineIn(0, 0, 1, 1)), 1);
}

TEST_P(LineIn3DElmList, IsOneWithinAClosedProfileOfEitherSense) {
  for (const auto& square : {kSquare, kSquareClockwise}) {
    EXPECT_EQ(Inside(square, LineIn(2, 3, 7, 4)), 1);
    EXPECT_EQ(Inside(square, LineIn(3, 2, 3, 9)), 1);
    EXPECT_EQ(Inside(square, LineIn(12, 3, 17, 4)), 0);
    EXPECT_EQ(Inside(square, LineIn(-9, -8, -5, -4)), 0);
  }
}

TEST_P(LineIn3DElmList, TakesTheOuterSideOfATurnForTheInnerOne) {
  EXPECT_EQ(Inside(kLeftTurn, LineIn(12, -3, 15, -8)), 1);   // right of both
  EXPECT_EQ(Inside(kLeftTurn, LineIn(2, 3, 5, 1)), 0);       // left of both
  EXPECT_EQ(Inside(kRightTurn, LineIn(12, 3, 15, 8)), 1);    // left of both
  EXPECT_EQ(Inside(kRightTurn, LineIn(12, -3, 15, -8)), 0);  // right of the first
}

TEST_P(LineIn3DElmList, WantsBothEndsOnThatSideOfEveryElement) {
  EXPECT_EQ(Inside(kLeftTurn, LineIn(12, -3, 12, -8)), 1);
  EXPECT_EQ(Inside(kLeftTurn, LineIn(12, -3, 12, 3)), 0);  // the end is left of the first
  EXPECT_EQ(Inside(kLeftTurn, LineIn(12, 3, 12, -3)), 0);  // the start is
  EXPECT_EQ(Inside(kLeftTurn, LineIn(9, -8, 12, -9)), 0);  // the start is left of the second
  EXPECT_EQ(Inside(kLeftTurn, LineIn(12, -9, 9, -8)), 0);  // the end is
}

TEST_P(LineIn3DElmList, CountsAnElementsOwnCarrierAsInside) {
  EXPECT_EQ(Inside({{0, 0}, {10, 0}}, LineIn(2, 0, 5, 0)), 1);
  EXPECT_EQ(Inside({{0, 0}, {10, 0}}, LineIn(20, 0, 50, 0)), 1);
  EXPECT_EQ(Inside({{0, 0}, {10, 0}}, LineIn(2, -1, 5, -1)), 1);
  EXPECT_EQ(Inside({{0, 0}, {10, 0}}, LineIn(2, 1, 5, 1)), 0);
  // Left of the second and in line with the first of a turn to the right.
  EXPECT_EQ(Inside(kRightTurn, LineIn(12, 0, 15, 0)), 1);
}

TEST_P(LineIn3DElmList, WantsAnOddNumberOfCrossingsTowardsEachEnd) {
  EXPECT_EQ(BetweenPosts({1, 2, 21, 22}), 0);
  EXPECT_EQ(BetweenPosts({1, 22}), 1);
  EXPECT_EQ(BetweenPosts({1, 2, 3, 22}), 1);
  EXPECT_EQ(BetweenPosts({1, 21, 22, 23}), 1);
  EXPECT_EQ(BetweenPosts({1, 2, 3, 21, 22, 23}), 1);
  EXPECT_EQ(BetweenPosts({1, 2, 22}), 0);
  EXPECT_EQ(BetweenPosts({1, 21, 22}), 0);
  EXPECT_EQ(BetweenPosts({1, 2, 3}), 0);
  EXPECT_EQ(BetweenPosts({1, 2}), 0);
}

TEST_P(LineIn3DElmList, CountsACrossingInTheMiddleTowardsTheEnd) {
  EXPECT_EQ(BetweenPosts({1, 15}), 1);
  EXPECT_EQ(BetweenPosts({1, 14.9}), 0);
}

TEST_P(LineIn3DElmList, MayBeOneForALineThatLeavesTheProfile) {
  // The side at x = 10 is nearer to the end than to the start, as if the line stopped before it.
  EXPECT_EQ(Inside(kSquare, LineIn(5, 5, 12, 5)), 1);
  EXPECT_EQ(Inside(kSquare, LineIn(5, 5, 16, 5)), 0);
}

TEST_P(LineIn3DElmList, CountsACornerOnceWithoutItsElementThatStartsThere) {
  EXPECT_EQ(Inside(kSquare, LineIn(3, 3, 6, 6)), 1);
  EXPECT_EQ(Inside(kSquareClockwise, LineIn(3, 3, 6, 6)), 1);
}

TEST_P(LineIn3DElmList, CountsACornerTwiceFromAnotherDepth) {
  // The line does not meet the starts in space, so that none of the four crossings is dropped.
  EXPECT_EQ(Inside(kSquare, LineIn(3, 3, 6, 6, 5)), 0);
  EXPECT_EQ(Inside(kSquare, LineIn(3, 4, 6, 6, 5)), 1);
}

TEST_P(LineIn3DElmList, DoesNotCountElementsInLineWithIt) {
  // The query runs on in line with the inner edge from (10, 5) to (5, 5).
  const std::vector<GX2DPoint> corner = {{0, 0},  {10, 0}, {10, 5}, {5, 5},
                                         {5, 10}, {0, 10}, {0, 0}};
  EXPECT_EQ(Inside(corner, LineIn(1, 5, 4, 5)), 1);
}

TEST_P(LineIn3DElmList, TakesArcsByTheirChords) {
  // A half disc whose chord is its base: nothing is inside.
  GX3DElmList half;
  Add(half, LineIn(0, 0, 10, 0), ArcIn(Arc(5, 0, 10, 0, 5, 5, 0, 0)));
  EXPECT_EQ(Inside(half, LineIn(4, 2, 6, 2)), 0);
  // Four quarters of a circle are the square of their ends.
  GX3DElmList round;
  Add(round, ArcIn(ArcByAngles(0, 0, 5, 0, 90)), ArcIn(ArcByAngles(0, 0, 5, 90, 90)),
      ArcIn(ArcByAngles(0, 0, 5, 180, 90)), ArcIn(ArcByAngles(0, 0, 5, 270, 90)));
  EXPECT_EQ(Inside(round, LineIn(-1, 0.5, 1, 0.5)), 1);
  EXPECT_EQ(Inside(round, LineIn(2.9, 2.9, 3, 3.1)), 0);  // between chord and arc
}

TEST_P(LineIn3DElmList, PassesOverOtherKinds) {
  GX3DElmList profile;
  AddPath(profile, {{0, 0}, {10, 0}, {10, 10}});
  profile.push_back(nullptr);
  profile.push_back(new support::Foreign3D(In(4, -9), In(4, 9)));
  Add(profile, In(4, 4));
  AddPath(profile, {{10, 10}, {0, 10}, {0, 0}});
  EXPECT_EQ(Inside(profile, LineIn(2, 3, 7, 4)), 1);
  EXPECT_EQ(Inside(profile, LineIn(12, 3, 17, 4)), 0);
}

TEST_P(LineIn3DElmList, TurnsToTheLeftBehindAFirstElementOfAnotherKind) {
  EXPECT_EQ(Inside(kRightTurn, LineIn(3, -3, 5, -4)), 0);
  GX3DElmList profile;
  profile.push_back(new support::Foreign3D(In(0, 0), In(1, 0)));
  AddPath(profile, kRightTurn);
  EXPECT_EQ(Inside(profile, LineIn(3, -3, 5, -4)), 1);
}

TEST_P(LineIn3DElmList, SurvivesNumbersThatAreNotFinite) {
  for (const double odd : {kNaN, kInfinity, -kInfinity, 1e308}) {
    for (const int answer :
         {Inside(kSquare, LineIn(odd, 1, 2, 3)), Inside(kSquare, LineIn(1, 1, odd, odd)),
          Inside({{0, 0}, {odd, 0}, {1, odd}}, LineIn(1, 1, 2, 3)),
          Inside({{odd, odd}, {-odd, odd}, {1, odd}}, LineIn(odd, 1, 2, odd))}) {
      EXPECT_TRUE(answer == 0 || answer == 1);
    }
  }
}

// By height.

TEST(Filter3DElementListByMinY, RemovesAndDestroysWhatLiesLower) {
  std::vector<std::string> log;
  GX3DElmList list;
  const auto add = [&](const char* name, double y1, double y2) {
    list.push_back(new support::Logged<GX3DLine>(log, name, Line(0, y1, 0, 9, y2, 0)));
  };
  add("a", 0, 0);
  add("b", 1, 0.5);
  add("c", 3, 2);
  add("d", 5, 0);
  add("e", 4, 4);
  add("f", -7, 7);
  GXGeometry::Filter3DElementListByMinY(list, 2);
  EXPECT_EQ(log, (std::vector<std::string>{"a", "b", "d", "f"}));
  ASSERT_EQ(list.size(), 2u);
  EXPECT_POINT_EQ(support::At<GX3DLine>(list, 0), Line(0, 3, 0, 9, 2, 0));
  EXPECT_POINT_EQ(support::At<GX3DLine>(list, 1), Line(0, 4, 0, 9, 4, 0));
}

TEST(Filter3DElementListByMinY, KeepsAnElementOnTheBound) {
  GX3DElmList list;
  Add(list, Line(0, 0.3, 0, 5, 8, 0));
  GXGeometry::Filter3DElementListByMinY(list, 0.3);
  EXPECT_EQ(list.size(), 1u);
  GXGeometry::Filter3DElementListByMinY(list, std::nextafter(0.3, 1));
  EXPECT_TRUE(list.empty());
}

TEST(Filter3DElementListByMinY, AsksForTheBulgeOfAnArc) {
  GX3DElmList list;
  Add(list, support::Arc3D(ArcByAngles(0, 0, 5, 180, 180), 0));  // down to -5
  GXGeometry::Filter3DElementListByMinY(list, -5.001);
  EXPECT_EQ(list.size(), 1u);
  GXGeometry::Filter3DElementListByMinY(list, -4.999);
  EXPECT_TRUE(list.empty());
}

TEST(Filter3DElementListByMinY, MeasuresTheGlobalYAlone) {
  GX3DElmList list;
  Add(list, Line(-50, 5, -60, -70, 6, -80));
  GXGeometry::Filter3DElementListByMinY(list, 4);
  EXPECT_EQ(list.size(), 1u);
}

TEST(Filter3DElementListByMinY, FiltersEveryKindAndLeavesNullEntries) {
  GX3DElmList list;
  list.push_back(nullptr);
  list.push_back(new support::Foreign3D(Point(0, 1, 0), Point(0, -1, 0)));
  list.push_back(new support::Foreign3D(Point(0, 1, 0), Point(0, 2, 0)));
  Add(list, Point(0, -3, 0), Point(0, 3, 0));
  GXGeometry::Filter3DElementListByMinY(list, 0);
  ASSERT_EQ(list.size(), 3u);
  EXPECT_EQ(list[0], nullptr);
  EXPECT_EQ(list[1]->GetMinY(), 1);
  EXPECT_EQ(list[2]->GetMinY(), 3);
}

TEST(Filter3DElementListByMinY, KeepsAllUnderABoundThatIsNoNumber) {
  GX3DElmList list;
  Add(list, Line(0, 1, 0, 2, 3, 0), Line(0, kNaN, 0, 2, kNaN, 0));
  GXGeometry::Filter3DElementListByMinY(list, kNaN);
  EXPECT_EQ(list.size(), 2u);
  GXGeometry::Filter3DElementListByMinY(list, -kInfinity);
  EXPECT_EQ(list.size(), 2u);
  GXGeometry::Filter3DElementListByMinY(list, kInfinity);
  EXPECT_EQ(list.size(), 1u);  // what has no height is not lower
}

TEST(Filter3DElementListByMinY, LeavesAnEmptyListEmpty) {
  GX3DElmList list;
  GXGeometry::Filter3DElementListByMinY(list, 0);
  EXPECT_TRUE(list.empty());
}

}  // namespace
