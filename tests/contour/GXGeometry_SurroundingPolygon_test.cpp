// Tangents of arcs, and the polygon of bare points around a contour.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Ring.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace {

using support::Add;
using support::AddPolygon;
using support::Arc;
using support::ArcByAngles;
using support::At;
using support::Circle;
using support::Flat;
using support::kPi;
using support::Line;
using support::Logged;
using support::OnCircle;
using support::Point;

using Log = std::vector<std::string>;

TEST(GetTangentLineToArcAtPoint, RunsCounterClockwiseFromThePointAsLongAsTheRadius) {
  GX2DLine tangent;
  const GX2DArc arc = Arc(1, 2, 4, 6, 0, 0, 6, 2);
  EXPECT_TRUE(GXGeometry::GetTangentLineToArcAtPoint(arc, Point(4, 6), tangent));
  EXPECT_POINT_EQ(tangent, Line(4, 6, 0, 9));  // (3, 4) turned is (-4, 3)
  // Neither the sense of the arc nor the circle counts.
  EXPECT_TRUE(GXGeometry::GetTangentLineToArcAtPoint(arc, Point(3, 2), tangent));
  EXPECT_POINT_EQ(tangent, Line(3, 2, 3, 4));
}

TEST(GetTangentLineToArcAtPoint, StandsOnTheRadius) {
  support::Random random;
  for (int round = 0; round < 100; ++round) {
    const GX2DArc arc{random.Point2D(9), random.Point2D(9), random.Point2D(9), random.Point2D(9)};
    const GX2DPoint p = random.Point2D(9);
    GX2DLine tangent;
    EXPECT_TRUE(GXGeometry::GetTangentLineToArcAtPoint(arc, p, tangent));
    const double rx = p.X - arc.Center.X, ry = p.Y - arc.Center.Y;
    EXPECT_POINT_EQ(tangent.Start, p);
    EXPECT_POINT_EQ(tangent.End, Point(p.X - ry, p.Y + rx));
  }
}

TEST(GetTangentLineToArcAtPoint, HasNoLengthAtTheCenter) {
  GX2DLine tangent = Line(7, 7, 8, 8);
  EXPECT_TRUE(GXGeometry::GetTangentLineToArcAtPoint(Circle(1, 2, 5), Point(1, 2), tangent));
  EXPECT_POINT_EQ(tangent, Line(1, 2, 1, 2));
}

TEST(GetTangentLineToArcAtPoint, MayTakeThePointFromTheTangent) {
  GX2DLine tangent = Line(7, 7, 4, 6);
  EXPECT_TRUE(GXGeometry::GetTangentLineToArcAtPoint(Circle(1, 2, 5), tangent.End, tangent));
  EXPECT_POINT_EQ(tangent, Line(4, 6, 0, 9));
}

TEST(GetTangentLineToArcAtPoint, TakesStartAndEndOfTheArc) {
  const GX2DArc arc = Arc(1, 2, 4, 6, 0, 0, 6, 2);
  GX2DLine start, end;
  EXPECT_TRUE(GXGeometry::GetTangentLineToArcAtStart(arc, start));
  EXPECT_TRUE(GXGeometry::GetTangentLineToArcAtEnd(arc, end));
  EXPECT_POINT_EQ(start, Line(4, 6, 0, 9));
  EXPECT_POINT_EQ(end, Line(6, 2, 6, 7));
}

/// The points that a contour gives; all of them must be points.
std::vector<GX2DPoint> Around(GX2DElmList& source) {
  GX2DElmList target;
  EXPECT_TRUE(GXGeometry::GetSurroundingPolygon(&source, &target));
  std::vector<GX2DPoint> points;
  for (std::size_t i = 0; i < target.size(); ++i) points.push_back(At<GX2DPoint>(target, i));
  return points;
}

/// The field mid of an arc in a list.
GX2DPoint MidOf(const GX2DElmList& list, std::size_t place) { return At<GX2DArc>(list, place).Mid; }

TEST(GetSurroundingPolygon, IsFalseForANullPointer) {
  GX2DElmList list;
  Add(list, Point(1, 1));
  EXPECT_FALSE(GXGeometry::GetSurroundingPolygon(nullptr, &list));
  EXPECT_FALSE(GXGeometry::GetSurroundingPolygon(&list, nullptr));
  EXPECT_FALSE(GXGeometry::GetSurroundingPolygon(nullptr, nullptr));
  EXPECT_EQ(list.size(), 1U);
}

TEST(GetSurroundingPolygon, DestroysWhatTheTargetHolds) {
  Log log;
  GX2DElmList source, target;
  target.push_back(new Logged<GX2DPoint>(log, "old", 1.0, 1.0));
  EXPECT_TRUE(GXGeometry::GetSurroundingPolygon(&source, &target));
  EXPECT_EQ(log, Log({"old"}));
  EXPECT_TRUE(target.empty());
}

TEST(GetSurroundingPolygon, GivesARectangleItsFourCorners) {
  GX2DElmList source;
  AddPolygon(source, {{0, 0}, {10, 0}, {10, 6}, {0, 6}});
  EXPECT_EQ(Flat(Around(source)), Flat({{10, 0}, {10, 6}, {0, 6}, {0, 0}}));
}

/// A rectangle of 20 by 10 with corners rounded by 2, counter-clockwise from its lower side.
void AddRounded(GX2DElmList& list) {
  Add(list, Line(2, 0, 18, 0), ArcByAngles(18, 2, 2, -90, 90), Line(20, 2, 20, 8),
      ArcByAngles(18, 8, 2, 0, 90), Line(18, 10, 2, 10), ArcByAngles(2, 8, 2, 90, 90),
      Line(0, 8, 0, 2), ArcByAngles(2, 2, 2, 180, 90));
}

const std::vector<GX2DPoint> kSharpCorners = {{20, 0}, {20, 10}, {0, 10}, {0, 0}};

TEST(GetSurroundingPolygon, GivesARoundedRectangleItsSharpCorners) {
  GX2DElmList source;
  AddRounded(source);
  EXPECT_POINT_NEAR(Flat(Around(source)), Flat(kSharpCorners), 1e-12);
}

TEST(GetSurroundingPolygon, LeavesTheSourceAlone) {
  GX2DElmList source, before;
  AddRounded(source);
  for (GX2DElement* element : source) element->Reverse();
  before.Clone(source);
  Around(source);
  ASSERT_EQ(source.size(), before.size());
  for (std::size_t i = 0; i < source.size(); i += 2) {
    EXPECT_POINT_EQ(At<GX2DLine>(source, i), At<GX2DLine>(before, i));
    EXPECT_POINT_EQ(At<GX2DArc>(source, i + 1), At<GX2DArc>(before, i + 1));
  }
}

// Lines and arcs of a contour may run either way.
TEST(GetSurroundingPolygon, FindsFilletsWhicheverWayTheElementsRun) {
  for (int turned = 0; turned < 256; ++turned) {
    SCOPED_TRACE(turned);
    GX2DElmList source;
    AddRounded(source);
    for (std::size_t i = 0; i < 8; ++i) {
      if ((turned >> i & 1) != 0) source[i]->Reverse();
    }
    ASSERT_POINT_NEAR(Flat(Around(source)), Flat(kSharpCorners), 1e-12);
  }
}

TEST(GetSurroundingPolygon, FindsFilletsOfAContourThatRunsTheOtherWayOrBeginsElsewhere) {
  GX2DElmList source;
  AddRounded(source);
  source.Reverse();
  EXPECT_POINT_NEAR(Flat(Around(source)), Flat({{0, 0}, {0, 10}, {20, 10}, {20, 0}}), 1e-12);
  GX2DElmList fromArc;
  AddRounded(fromArc);
  fromArc.push_back(fromArc.front());
  fromArc.pop_front();  // the first element is an arc now, and its line before it the last
  EXPECT_POINT_NEAR(Flat(Around(fromArc)), Flat(kSharpCorners), 1e-12);
}

// Two lines from the corner P at the angles a and b, rounded with radius r: the tangent points are
// r / tan(half the opening) from P, the center r / sin(half) from it on the bisector.
TEST(GetSurroundingPolygon, FindsFilletsOfAnyOpening) {
  support::Random random;
  for (int round = 0; round < 500; ++round) {
    const GX2DPoint corner = random.Point2D(50);
    const double a = random.Between(0, 360), opening = random.Between(20, 160);
    const double half = opening / 2 * kPi / 180, r = random.Between(1, 10);
    const double reach = r / std::tan(half);
    const GX2DPoint center = OnCircle(corner.X, corner.Y, r / std::sin(half), a + opening / 2);
    const GX2DPoint from = OnCircle(corner.X, corner.Y, reach, a);
    const GX2DPoint to = OnCircle(corner.X, corner.Y, reach, a + opening);
    const GX2DPoint middle = OnCircle(corner.X, corner.Y, r / std::sin(half) - r, a + opening / 2);
    const GX2DPoint far1 = OnCircle(corner.X, corner.Y, reach + 20, a);
    const GX2DPoint far2 = OnCircle(corner.X, corner.Y, reach + 20, a + opening);
    GX2DElmList source;
    Add(source, GX2DArc(center, from, middle, to), GX2DLine(to, far2), GX2DLine(far2, far1),
        GX2DLine(far1, from));
    if (random.Bool()) source[0]->Reverse();
    if (random.Bool()) source[1]->Reverse();
    if (random.Bool()) source[3]->Reverse();
    SCOPED_TRACE(testing::Message() << "angle " << a << " opening " << opening);
    // Steep lines lose digits in slope form: up to about 50 / sin^2 of their angle to the vertical.
    ASSERT_POINT_NEAR(Flat(Around(source)), Flat({corner, far2, far1}), 1e-3);
  }
}

/// One corner rounded about a center that is moved by `off` along X from the true one.
void AddWithMovedCenter(GX2DElmList& list, double off) {
  Add(list, Line(0, 0, 8, 0), Arc(8 + off, 2, 8, 0, 9.5, 0.5, 10, 2), Line(10, 2, 10, 10),
      Line(10, 10, 0, 0));
}

// The radius is that to the start: it grows by off^2 / 4 only, which is below a millionth here.
TEST(GetSurroundingPolygon, TakesAFilletWhoseCenterIsNearerThanAThousandth) {
  for (const double off : {0.00099, -0.00099, 0.0}) {
    GX2DElmList source;
    AddWithMovedCenter(source, off);
    EXPECT_POINT_NEAR(Flat(Around(source)), Flat({{10, 0}, {10, 10}, {0, 0}}), 1e-12);
  }
}

TEST(GetSurroundingPolygon, GivesStartMiddleAndEndWhereTheCenterIsAThousandthOff) {
  for (const double off : {0.00101, -0.00101, 0.5}) {
    GX2DElmList source;
    AddWithMovedCenter(source, off);
    EXPECT_POINT_NEAR(Flat(Around(source)), Flat({{8, 0}, {9.5, 0.5}, {10, 2}, {10, 10}, {0, 0}}),
                      1e-12);
  }
}

// The sides of the fillet are told by the far ends of the lines, not by those at the arc: here one
// line runs from the arc over the corner (10, 0) to the other side.
TEST(GetSurroundingPolygon, TakesNoFilletOfALineThatRunsOverTheCorner) {
  const GX2DArc arc = Arc(8, 2, 8, 0, 9.5, 0.5, 10, 2);
  for (const bool turned : {false, true}) {
    GX2DElmList incoming, outgoing;
    Add(incoming, Line(20, 0, 8, 0), arc, Line(10, 2, 10, 10), Line(10, 10, 20, 0));
    Add(outgoing, Line(0, 0, 8, 0), arc, Line(10, 2, 10, -9), Line(10, -9, 0, 0));
    if (turned) incoming[0]->Reverse();
    if (turned) outgoing[2]->Reverse();
    const std::vector<double> threePoints = Flat({{8, 0}, {9.5, 0.5}, {10, 2}});
    for (GX2DElmList* list : {&incoming, &outgoing}) {
      std::vector<double> points = Flat(Around(*list));
      ASSERT_GE(points.size(), 6U);
      points.resize(6);
      EXPECT_EQ(points, threePoints);
    }
  }
}

TEST(GetSurroundingPolygon, RunsThroughAnArcFromTheElementBeforeItToTheOneBehind) {
  for (const bool reversed : {false, true}) {
    GX2DElmList source;
    AddWithMovedCenter(source, 0.5);
    if (reversed) At<GX2DArc>(source, 1).SwapPoints();
    EXPECT_EQ(Flat(Around(source)), Flat({{8, 0}, {9.5, 0.5}, {10, 2}, {10, 10}, {0, 0}}));
  }
}

TEST(GetSurroundingPolygon, DropsTheJointOfLinesThatGoOnInTheSameDirection) {
  GX2DElmList source;
  AddPolygon(source, {{0, 0}, {4, 0}, {10, 0}, {10, 6}, {0, 6}});
  EXPECT_EQ(Flat(Around(source)), Flat({{10, 0}, {10, 6}, {0, 6}, {0, 0}}));
}

TEST(GetSurroundingPolygon, CrossesLinesThatDoNotMeet) {
  GX2DElmList source;
  Add(source, Line(1, 0, 3, 0), Line(4, 1, 4, 3), Line(3, 4, 1, 4), Line(0, 3, 0, 1));
  EXPECT_EQ(Flat(Around(source)), Flat({{4, 0}, {4, 4}, {0, 4}, {0, 0}}));
}

TEST(GetSurroundingPolygon, GivesTheHalfCirclesOfASlotThreePointsEach) {
  GX2DElmList source;
  Add(source, Line(0, 0, 10, 0), Arc(10, 2, 10, 0, 12, 2, 10, 4), Line(10, 4, 0, 4),
      Arc(0, 2, 0, 4, -2, 2, 0, 0));
  EXPECT_EQ(Flat(Around(source)), Flat({{10, 0}, {12, 2}, {10, 4}, {0, 4}, {-2, 2}, {0, 0}}));
}

// An arc beside an arc is no fillet, though it touches its line.
TEST(GetSurroundingPolygon, GivesThreePointsWhereANeighbourIsAnArc) {
  GX2DElmList source;
  Add(source, Line(0, 0, 8, 0), Arc(8, 2, 8, 0, 9.5, 0.5, 10, 2), Arc(8, 2, 10, 2, 9.5, 3.5, 8, 4),
      Line(8, 4, 0, 4), Line(0, 4, 0, 0));
  EXPECT_EQ(Flat(Around(source)),
            Flat({{8, 0}, {9.5, 0.5}, {10, 2}, {10, 2}, {9.5, 3.5}, {8, 4}, {0, 4}, {0, 0}}));
}

// Its neighbours on both sides are the arc itself, so that both ends are shared and the end counts
// as the joint: start and end change places.
TEST(GetSurroundingPolygon, GivesALoneArcFromItsEndToItsStart) {
  GX2DElmList source;
  Add(source, Arc(0, 0, 5, 0, 0, 5, -5, 0));
  EXPECT_EQ(Flat(Around(source)), Flat({{-5, 0}, {0, 5}, {5, 0}}));
}

TEST(GetSurroundingPolygon, GivesAFullCircleItsStartTwice) {
  GX2DElmList source;
  Add(source, Circle(0, 0, 5));
  EXPECT_EQ(Flat(Around(source)), Flat({{5, 0}, {0, 5}, {5, 0}}));
}

TEST(GetSurroundingPolygon, TurnsBothHalvesOfACircle) {
  GX2DElmList source;
  Add(source, Arc(0, 0, 5, 0, 0, 5, -5, 0), Arc(0, 0, -5, 0, 0, -5, 5, 0));
  EXPECT_EQ(Flat(Around(source)), Flat({{-5, 0}, {0, 5}, {5, 0}, {5, 0}, {0, -5}, {-5, 0}}));
}

TEST(GetSurroundingPolygon, HoldsAnArcWithoutJointAgainstTheOrigin) {
  GX2DElmList apart, atOrigin;
  Add(apart, Line(50, 50, 60, 60), Arc(0, 0, 5, 0, 0, 5, -5, 0), Line(70, 60, 80, 50));
  EXPECT_EQ(Flat(Around(apart)).size(), 8U);  // and the crossing of the two lines behind it
  EXPECT_POINT_EQ(Around(apart)[0], Point(-5, 0));
  EXPECT_POINT_EQ(Around(apart)[2], Point(5, 0));
  Add(atOrigin, Line(50, 50, 60, 60), Arc(5, 0, 0, 0, 5, 5, 10, 0), Line(70, 60, 80, 50));
  EXPECT_POINT_EQ(Around(atOrigin)[0], Point(0, 0));
  EXPECT_POINT_EQ(Around(atOrigin)[2], Point(10, 0));
}

// A start beside the joint, however near, turns the arc.
TEST(GetSurroundingPolygon, HoldsTheStartOfAnArcAgainstTheJointExactly) {
  GX2DElmList source;
  Add(source, Line(50, 50, 60, 60), Arc(5, 0, 0.00005, 0, 5, 5, 10, 0), Line(70, 60, 80, 50));
  EXPECT_POINT_EQ(Around(source)[0], Point(10, 0));
  EXPECT_POINT_EQ(Around(source)[2], Point(0.00005, 0));
}

TEST(GetSurroundingPolygon, GivesALoneLineAndAnEmptyListNothing) {
  GX2DElmList line, empty;
  Add(line, Line(0, 0, 10, 0));
  EXPECT_TRUE(Around(line).empty());
  EXPECT_TRUE(Around(empty).empty());
}

TEST(GetSurroundingPolygon, TakesNoOtherKindForALine) {
  GX2DElmList source;
  Add(source, Line(0, 0, 10, 0), Point(10, 0), Line(10, 0, 10, 6), Line(10, 6, 0, 0));
  source.push_back(nullptr);
  source.push_back(new support::Foreign2D({0, 0}, {5, 5}));
  Add(source, support::Rect(0, 0, 1, 1));
  EXPECT_EQ(Flat(Around(source)), Flat({{10, 6}}));  // the one place where line follows line
}

TEST(GetSurroundingPolygon, GivesThreePointsBesideAnotherKind) {
  GX2DElmList source;
  Add(source, Line(0, 0, 8, 0), Arc(8, 2, 8, 0, 9.5, 0.5, 10, 2));
  source.push_back(nullptr);
  Add(source, Line(10, 2, 10, 10), Line(10, 10, 0, 0));
  EXPECT_EQ(Flat(Around(source)), Flat({{8, 0}, {9.5, 0.5}, {10, 2}, {10, 10}, {0, 0}}));
}

TEST(GetSurroundingPolygon, TakesObjectsOfDerivedClassesForLinesAndArcs) {
  Log log;
  GX2DElmList source;
  source.push_back(new Logged<GX2DLine>(log, "line", Line(0, 0, 8, 0)));
  source.push_back(new Logged<GX2DArc>(log, "arc", Arc(8, 2, 8, 0, 9.5, 0.5, 10, 2)));
  Add(source, Line(10, 2, 10, 10), Line(10, 10, 0, 0));
  EXPECT_POINT_NEAR(Flat(Around(source)), Flat({{10, 0}, {10, 10}, {0, 0}}), 1e-12);
}

// Its points are new ones: nothing of the source is handed on.
TEST(GetSurroundingPolygon, OwnsItsPoints) {
  GX2DElmList target;
  {
    GX2DElmList source;
    AddWithMovedCenter(source, 0.5);
    GXGeometry::GetSurroundingPolygon(&source, &target);
  }
  ASSERT_EQ(target.size(), 5U);
  EXPECT_POINT_EQ(At<GX2DPoint>(target, 1), Point(9.5, 0.5));
}

TEST(GetSurroundingPolygon, TakesCoordinatesThatAreNotFinite) {
  for (const double odd : {std::numeric_limits<double>::quiet_NaN(), HUGE_VAL, 1e308}) {
    GX2DElmList source;
    Add(source, Line(0, 0, odd, 0), Arc(8, odd, 8, 0, 9.5, 0.5, odd, 2), Line(odd, 2, 10, 10),
        Line(10, 10, 0, 0), Arc(odd, odd, odd, 0, 9, odd, 3, odd));
    GX2DElmList target;
    EXPECT_TRUE(GXGeometry::GetSurroundingPolygon(&source, &target));
    EXPECT_GE(target.size(), 6U);  // three of each arc, as neither is a fillet
    EXPECT_LE(target.size(), 10U);
  }
}

TEST(GetSurroundingPolygon, UsesTheFieldMidOfAnArc) {
  GX2DElmList source;
  AddWithMovedCenter(source, 0.5);
  At<GX2DArc>(source, 1).Mid = Point(123, 456);
  EXPECT_POINT_EQ(Around(source)[1], MidOf(source, 1));
}

}  // namespace
