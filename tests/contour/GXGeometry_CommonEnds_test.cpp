#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using support::Arc;
using support::Line;
using support::Point;

const GX2DPoint kPreset2D(-77, -78);
const GX3DPoint kPreset3D(-77, -78, -79);

/// The common point, the preset when there is none.
GX2DPoint Common(GX2DElement& e1, GX2DElement& e2) {
  GX2DPoint common = kPreset2D;
  const bool found = GXGeometry::GetCommon2DPoint(&e1, &e2, common);
  EXPECT_EQ(found, common != kPreset2D);
  return common;
}
GX3DPoint Common(GX3DElement& e1, GX3DElement& e2) {
  GX3DPoint common = kPreset3D;
  const bool found = GXGeometry::GetCommon3DPoint(&e1, &e2, common);
  EXPECT_EQ(found, common != kPreset3D);
  return common;
}

/// All common points in the order in which they were appended.
std::vector<double> AllCommon(GX3DElement& e1, GX3DElement& e2) {
  GX3DPointList list;
  const bool found = GXGeometry::GetCommon3DPoints(&e1, &e2, list);
  EXPECT_EQ(found, !list.empty());
  std::vector<double> numbers;
  for (const GX3DPoint& p : list) {
    numbers.insert(numbers.end(), {p.X, p.Y, p.Z});
  }
  return numbers;
}

TEST(GetCommon2DPoint, HandsOutThePointOfTheFirst) {
  GX2DLine e1(0, 0, 5, 0);
  GX2DLine fromEnd(5.00009, -0.0001, 9, 9), toEnd(9, 9, 4.99991, 0.0001);
  GX2DLine fromStart(0.0001, 0, 9, 9), toStart(9, 9, 0, -0.0001);
  EXPECT_POINT_EQ(Common(e1, fromStart), Point(0, 0));
  EXPECT_POINT_EQ(Common(e1, toStart), Point(0, 0));
  EXPECT_POINT_EQ(Common(e1, fromEnd), Point(5, 0));
  EXPECT_POINT_EQ(Common(e1, toEnd), Point(5, 0));
}

TEST(GetCommon2DPoint, OfTwoElementsThatShareBothEndsIsTheEndOfTheFirst) {
  GX2DLine e1(0, 0, 5, 0), same(0, 0, 5, 0), reversed(5, 0, 0, 0);
  EXPECT_POINT_EQ(Common(e1, same), Point(5, 0));
  EXPECT_POINT_EQ(Common(e1, reversed), Point(5, 0));
}

TEST(GetCommon2DPoint, AdmitsADifferenceOf0_0001PerCoordinate) {
  GX2DLine e1(9, 9, 0, 0), at(0.0001, -0.0001, 5, 5);
  GX2DLine beyond(std::nextafter(0.0001, 1), 0, 5, 5);
  EXPECT_POINT_EQ(Common(e1, at), Point(0, 0));
  EXPECT_POINT_EQ(Common(e1, beyond), kPreset2D);
}

TEST(GetCommon2DPoint, WithoutOneWritesNothing) {
  GX2DLine e1(0, 0, 5, 0), crossing(2, -2, 2, 2);
  EXPECT_POINT_EQ(Common(e1, crossing), kPreset2D);
}

TEST(GetCommon2DPoint, PointsAndArcsHaveEndsToo) {
  GX2DPoint point(5, 0);
  GX2DLine line(0, 0, 5, 0);
  GX2DArc arc = Arc(5, 2, 5, 0, 7, 2, 5, 4);
  EXPECT_POINT_EQ(Common(point, line), Point(5, 0));
  EXPECT_POINT_EQ(Common(line, point), Point(5, 0));
  EXPECT_POINT_EQ(Common(line, arc), Point(5, 0));
  EXPECT_POINT_EQ(Common(arc, line), Point(5, 0));
  EXPECT_POINT_EQ(Common(arc, point), Point(5, 0));
  GX2DPoint onCentre(5, 2);
  EXPECT_POINT_EQ(Common(arc, onCentre), kPreset2D);
}

TEST(GetCommon2DPoint, OtherKindsHaveBothEndsInTheOrigin) {
  GX2DRectangle rectangle(3, 3, 5, 5);
  support::Foreign2D stranger({3, 3}, {5, 5});
  GX2DLine atCorner(3, 3, 5, 5), atOrigin(9, 9, 0, 0);
  EXPECT_POINT_EQ(Common(rectangle, atCorner), kPreset2D);
  EXPECT_POINT_EQ(Common(stranger, atCorner), kPreset2D);
  EXPECT_POINT_EQ(Common(atOrigin, rectangle), Point(0, 0));
  EXPECT_POINT_EQ(Common(stranger, atOrigin), Point(0, 0));
  EXPECT_POINT_EQ(Common(rectangle, stranger), Point(0, 0));
}

TEST(GetCommon2DPoint, ADerivedLineIsALine) {
  std::vector<std::string> log;
  support::Logged<GX2DLine> derived(log, "derived", Line(5, 0, 9, 9));
  GX2DLine line(0, 0, 5, 0);
  EXPECT_POINT_EQ(Common(derived, line), Point(5, 0));
}

TEST(GetCommon2DPoint, TheOutputMayBelongToAnElement) {
  GX2DLine e1(0, 0, 5, 0), e2(5, 0, 0, 0);
  EXPECT_TRUE(GXGeometry::GetCommon2DPoint(&e1, &e2, e1.Start));
  EXPECT_POINT_EQ(e1, Line(5, 0, 5, 0));
}

TEST(GetCommon3DPoint, HandsOutThePointOfTheFirst) {
  GX3DLine e1 = Line(0, 0, 0, 5, 0, 0);
  GX3DLine fromEnd = Line(5.00009, -0.0001, 0, 9, 9, 9), toEnd = Line(9, 9, 9, 5, 0, 0.0001);
  GX3DLine fromStart = Line(0.0001, 0, 0, 9, 9, 9), toStart = Line(9, 9, 9, 0, 0, -0.0001);
  EXPECT_POINT_EQ(Common(e1, fromStart), Point(0, 0, 0));
  EXPECT_POINT_EQ(Common(e1, toStart), Point(0, 0, 0));
  EXPECT_POINT_EQ(Common(e1, fromEnd), Point(5, 0, 0));
  EXPECT_POINT_EQ(Common(e1, toEnd), Point(5, 0, 0));
}

TEST(GetCommon3DPoint, OfTwoElementsThatShareBothEndsIsTheStartOfTheFirst) {
  GX3DLine e1 = Line(0, 0, 0, 5, 0, 0), same = e1, reversed = Line(5, 0, 0, 0, 0, 0);
  EXPECT_POINT_EQ(Common(e1, same), Point(0, 0, 0));
  EXPECT_POINT_EQ(Common(e1, reversed), Point(0, 0, 0));
}

TEST(GetCommon3DPoint, AdmitsADifferenceOf0_0001PerCoordinate) {
  GX3DLine e1 = Line(9, 9, 9, 0, 0, 0), at = Line(0.0001, -0.0001, 0.0001, 5, 5, 5);
  GX3DLine beyond = Line(0, 0, std::nextafter(0.0001, 1), 5, 5, 5);
  EXPECT_POINT_EQ(Common(e1, at), Point(0, 0, 0));
  EXPECT_POINT_EQ(Common(e1, beyond), kPreset3D);
}

TEST(GetCommon3DPoint, TakesPointsArcsAndDerivedKindsByTheirEnds) {
  std::vector<std::string> log;
  GX3DPoint point(5, 0, 0);
  GX3DArc arc = support::Arc3D(Arc(5, 2, 5, 0, 7, 2, 5, 4), 0);
  support::Logged<GX3DLine> derived(log, "derived", Line(0, 0, 0, 5, 0, 0));
  EXPECT_POINT_EQ(Common(point, arc), Point(5, 0, 0));
  EXPECT_POINT_EQ(Common(arc, derived), Point(5, 0, 0));
  EXPECT_POINT_EQ(Common(derived, point), Point(5, 0, 0));
}

TEST(GetCommon3DPoint, OtherKindsHaveBothEndsInTheOrigin) {
  support::Foreign3D stranger({3, 3, 3}, {5, 5, 5});
  GX3DLine atCorner = Line(3, 3, 3, 5, 5, 5), atOrigin = Line(9, 9, 9, 0, 0, 0);
  EXPECT_POINT_EQ(Common(stranger, atCorner), kPreset3D);
  EXPECT_POINT_EQ(Common(atOrigin, stranger), Point(0, 0, 0));
}

TEST(GetCommon3DPoints, AppendsEveryMatchInTheOrderOfTheFirst) {
  GX3DLine e1 = Line(0, 0, 0, 5, 0, 0), same = e1, reversed = Line(5, 0, 0, 0, 0, 0);
  EXPECT_EQ(AllCommon(e1, same), (std::vector<double>{0, 0, 0, 5, 0, 0}));
  EXPECT_EQ(AllCommon(e1, reversed), (std::vector<double>{0, 0, 0, 5, 0, 0}));
  GX3DLine apart = Line(7, 7, 7, 8, 8, 8);
  EXPECT_EQ(AllCommon(e1, apart), std::vector<double>());
}

TEST(GetCommon3DPoints, MayAppendOnePointSeveralTimes) {
  GX3DPoint p(1, 2, 3), q(1, 2, 3.00009);
  EXPECT_EQ(AllCommon(p, q), (std::vector<double>{1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3}));
  GX3DLine line = Line(1, 2, 3, 9, 9, 9);
  EXPECT_EQ(AllCommon(line, p), (std::vector<double>{1, 2, 3, 1, 2, 3}));
}

TEST(GetCommon3DPoints, ShowsTheOrderOfItsFourTestsOnAShortElement) {
  // All four pairs of ends lie within 0.0001: start twice, then end twice.
  GX3DLine e1 = Line(0, 0, 0, 0.00005, 0, 0), e2 = Line(0, 0, 0.00005, 0, 0.00005, 0);
  EXPECT_EQ(AllCommon(e1, e2),
            (std::vector<double>{0, 0, 0, 0, 0, 0, 0.00005, 0, 0, 0.00005, 0, 0}));
}

TEST(GetCommon3DPoints, KeepsWhatTheListHeldAndAnswersForIt) {
  GX3DLine e1 = Line(0, 0, 0, 5, 0, 0), apart = Line(7, 7, 7, 8, 8, 8);
  GX3DPointList list;
  EXPECT_FALSE(GXGeometry::GetCommon3DPoints(&e1, &apart, list));
  list.push_back(Point(9, 9, 9));
  EXPECT_TRUE(GXGeometry::GetCommon3DPoints(&e1, &apart, list));
  ASSERT_EQ(list.size(), 1U);
  EXPECT_TRUE(GXGeometry::GetCommon3DPoints(&e1, &e1, list));
  ASSERT_EQ(list.size(), 3U);
  EXPECT_POINT_EQ(list.front(), Point(9, 9, 9));
}

TEST(Point2DOnClosedLine, TellsOffInsideAndEnd) {
  const GX2DLine line(1, 1, 5, 4);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(3, 2.5)), 1);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(1, 1)), 2);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(5, 4)), 2);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(9, 7)), 0);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(-3, -2)), 0);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(3, 3)), 0);
}

TEST(Point2DOnClosedLine, WantsADistanceStrictlyBelow0_00001) {
  const GX2DLine line(0, 0, 2, 0);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(1, 0.00001)), 0);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(1, -std::nextafter(0.00001, 0))), 1);
}

TEST(Point2DOnClosedLine, EndsReach0_0001OnBothSides) {
  const GX2DLine line(0, 0, 2, 0);
  const double above = std::nextafter(0.0001, 1);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(-0.0001, 0)), 2);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(-above, 0)), 0);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(0.0001, 0)), 2);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(above, 0)), 1);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(2.00009, 0)), 2);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(2.00011, 0)), 0);
}

TEST(Point2DOnClosedLine, BesideTheLineNoEndCounts) {
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(Line(0, 0, 2, 0), Point(0, 0.00005)), 0);
}

TEST(Point2DOnClosedLine, ALineWithoutLengthHasOnlyItsEnd) {
  const GX2DLine line(3, 3, 3, 3);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(3, 3)), 2);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(3.00009, 2.99991)), 2);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(3.00011, 3)), 0);
  EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, Point(4, 3)), 0);
}

TEST(Point3DOnClosedLine, TellsOffInsideAndEnd) {
  const GX3DLine line = Line(1, 1, 1, 5, 4, 13);
  EXPECT_EQ(GXGeometry::Point3DOnClosedLine(line, Point(3, 2.5, 7)), 1);
  EXPECT_EQ(GXGeometry::Point3DOnClosedLine(line, Point(1, 1, 1)), 2);
  EXPECT_EQ(GXGeometry::Point3DOnClosedLine(line, Point(5, 4, 13)), 2);
  EXPECT_EQ(GXGeometry::Point3DOnClosedLine(line, Point(9, 7, 25)), 0);
  EXPECT_EQ(GXGeometry::Point3DOnClosedLine(line, Point(3, 2.5, 8)), 0);
}

TEST(Point3DOnClosedLine, HasTheSameLimits) {
  const GX3DLine line = Line(0, 0, 0, 0, 0, 2);
  const double above = std::nextafter(0.0001, 1);
  EXPECT_EQ(GXGeometry::Point3DOnClosedLine(line, Point(0.00001, 0, 1)), 0);
  EXPECT_EQ(GXGeometry::Point3DOnClosedLine(line, Point(std::nextafter(0.00001, 0), 0, 1)), 1);
  EXPECT_EQ(GXGeometry::Point3DOnClosedLine(line, Point(0, 0, -0.0001)), 2);
  EXPECT_EQ(GXGeometry::Point3DOnClosedLine(line, Point(0, 0, -above)), 0);
  EXPECT_EQ(GXGeometry::Point3DOnClosedLine(line, Point(0, 0, 0.0001)), 2);
  EXPECT_EQ(GXGeometry::Point3DOnClosedLine(line, Point(0, 0, above)), 1);
  EXPECT_EQ(GXGeometry::Point3DOnClosedLine(line, Point(0, 0.00005, 2)), 0);
}

TEST(PointOnClosedLine, TwinsAgreeOnRandomPointsOfALine) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const GX2DLine line(random.Point2D(100), random.Point2D(100));
    const double t = random.Between(-1, 2);
    if (std::fabs(t) < 0.001 || std::fabs(t - 1) < 0.001 || line.Len() < 1) {
      continue;  // the ends have their own tests
    }
    GX2DPoint p;
    line.GetParametricPoint(p, t);
    const int expected = t > 0 && t < 1 ? 1 : 0;
    EXPECT_EQ(GXGeometry::Point2DOnClosedLine(line, p), expected) << t;
    EXPECT_EQ(GXGeometry::Point3DOnClosedLine(GX3DLine(line, 2), GX3DPoint(p, 2)), expected) << t;
  }
}

}  // namespace
