// Parallel copies of lines and arcs, and the trimming of two neighbours to their common point.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/contour/GXGeometryFunctions.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

using support::Arc;
using support::ArcByAngles;
using support::kPi;
using support::Line;
using support::Point;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Some roundings of coordinates of about 10 to 100.
constexpr double kRounding = 1e-12;

using Functions = GXGeometryFunctions;

double Distance(const GX2DPoint& a, const GX2DPoint& b) { return std::hypot(a.X - b.X, a.Y - b.Y); }

TEST(GXGeometryFunctions, HasAVirtualDestructorAndNoData) {
  static_assert(std::has_virtual_destructor_v<GXGeometryFunctions>);
  static_assert(sizeof(GXGeometryFunctions) == sizeof(void*));
  EXPECT_NO_THROW(GXGeometryFunctions());
}

TEST(GetAngleRad, IsTheDirectionOfTheLine) {
  EXPECT_EQ(Functions::GetAngleRad(Line(0, 0, 10, 0)), 0.0);
  EXPECT_EQ(Functions::GetAngleRad(Line(3, 4, 3, 9)), std::atan2(5.0, 0.0));
  EXPECT_EQ(Functions::GetAngleRad(Line(0, 0, -10, 0)), kPi);
  EXPECT_EQ(Functions::GetAngleRad(Line(1, 1, 1, -4)), -kPi / 2.0);
  EXPECT_NEAR(Functions::GetAngleRad(Line(1, 2, 4, 5)), kPi / 4.0, 1e-15);
  EXPECT_NEAR(Functions::GetAngleRad(Line(1, 2, -2, -1)), -3.0 * kPi / 4.0, 1e-15);
}

TEST(GetAngleRad, IsZeroForALineOfLengthZero) {
  EXPECT_EQ(Functions::GetAngleRad(Line(0, 0, 0, 0)), 0.0);
  EXPECT_EQ(Functions::GetAngleRad(Line(7, -3, 7, -3)), 0.0);
}

TEST(GetAngleRad, IsZeroForALineBelowTheThresholdInBothAxes) {
  EXPECT_EQ(Functions::GetAngleRad(Line(0, 0, -0.00009, 0.00009)), 0.0);
  EXPECT_EQ(Functions::GetAngleRad(Line(0, 0, 0, -0.00009)), 0.0);
}

TEST(GetAngleRad, TakesALineOfTheVeryThreshold) {
  // Strictly below 0.0001 counts as nothing, 0.0001 itself does not.
  EXPECT_EQ(Functions::GetAngleRad(Line(0, 0, -0.0001, 0)), kPi);
  EXPECT_EQ(Functions::GetAngleRad(Line(0, 0, 0, 0.0001)), std::atan2(0.0001, 0.0));
  EXPECT_EQ(Functions::GetAngleRad(Line(0, 0, -std::nextafter(0.0001, 0.0), 0)), 0.0);
}

TEST(GetAngleRad, TakesALineThatReachesTheThresholdInOneAxis) {
  EXPECT_EQ(Functions::GetAngleRad(Line(0, 0, 0.0002, 0.00001)), std::atan2(0.00001, 0.0002));
  EXPECT_EQ(Functions::GetAngleRad(Line(0, 0, 0.00001, -0.0002)), std::atan2(-0.0002, 0.00001));
}

TEST(GetLeftLineAtDistance, CopiesALevelLineUpward) {
  EXPECT_POINT_EQ(Functions::GetLeftLineAtDistance(Line(0, 0, 10, 0), 2), Line(0, 2, 10, 2));
}

TEST(GetLeftLineAtDistance, TakesTheAbsoluteValueOfTheDistance) {
  EXPECT_POINT_EQ(Functions::GetLeftLineAtDistance(Line(0, 0, 10, 0), -2), Line(0, 2, 10, 2));
}

TEST(GetLeftLineAtDistance, LeavesTheLineWhereItIsAtDistanceZero) {
  EXPECT_POINT_NEAR(Functions::GetLeftLineAtDistance(Line(1, 2, 4, 6), 0), Line(1, 2, 4, 6),
                    kRounding);
}

TEST(GetRightLineAtDistance, CopiesALevelLineDownward) {
  EXPECT_POINT_EQ(Functions::GetRightLineAtDistance(Line(0, 0, 10, 0), 2), Line(0, -2, 10, -2));
  EXPECT_POINT_EQ(Functions::GetRightLineAtDistance(Line(0, 0, 10, 0), -2), Line(0, -2, 10, -2));
}

TEST(GetLeftLineAtDistance, KeepsLengthAndDirection) {
  // (3, 4) is 5 long; its left normal is (-4, 3) / 5.
  const GX2DLine line = Line(1, 2, 4, 6);
  EXPECT_POINT_NEAR(Functions::GetLeftLineAtDistance(line, 10), Line(-7, 8, -4, 12), kRounding);
  EXPECT_POINT_NEAR(Functions::GetRightLineAtDistance(line, 10), Line(9, -4, 12, 0), kRounding);
}

TEST(GetLeftLineAtDistance, MovesALineBelowTheThresholdAlongY) {
  const GX2DLine tiny = Line(5, 5, 5, 5.00005);
  // Its direction counts as that of X, also for the end.
  const GX2DLine left = Functions::GetLeftLineAtDistance(tiny, 1);
  EXPECT_POINT_EQ(left.Start, Point(5, 6));
  EXPECT_POINT_NEAR(left.End, Point(5.00005, 6), kRounding);
  const GX2DLine right = Functions::GetRightLineAtDistance(tiny, 1);
  EXPECT_POINT_EQ(right.Start, Point(5, 4));
  EXPECT_POINT_NEAR(right.End, Point(5.00005, 4), kRounding);
}

TEST(GetLeftLineAtDistance, IsParallelAtTheDistanceForAnyLine) {
  support::Random random;
  for (int round = 0; round < 500; ++round) {
    const GX2DLine line(random.Point2D(50), random.Point2D(50));
    const double distance = random.Between(-20, 20);
    const double length = line.Len();
    // The left normal of length |distance|.
    const double x = -(line.End.Y - line.Start.Y) / length * std::fabs(distance);
    const double y = (line.End.X - line.Start.X) / length * std::fabs(distance);
    GX2DLine left = line;
    left.Translate(x, y);
    GX2DLine right = line;
    right.Translate(-x, -y);
    EXPECT_POINT_NEAR(Functions::GetLeftLineAtDistance(line, distance), left, kRounding);
    EXPECT_POINT_NEAR(Functions::GetRightLineAtDistance(line, distance), right, kRounding);
  }
}

TEST(GetLeftLineAtDistance, CarriesStrayNumbers) {
  EXPECT_TRUE(std::isnan(Functions::GetLeftLineAtDistance(Line(0, 0, 10, 0), kNaN).Start.Y));
  EXPECT_TRUE(std::isnan(Functions::GetRightLineAtDistance(Line(0, 0, kNaN, 0), 1).End.X));
  EXPECT_EQ(Functions::GetLeftLineAtDistance(Line(0, 0, kInf, kInf), 1).End.X, kInf);
}

// A counter-clockwise quarter of radius 10 about (1, 2), its middle on the circle at (6, 8) from
// the center.
GX2DArc Quarter() { return Arc(1, 2, 11, 2, 7, 10, 1, 12); }
GX2DArc ClockwiseQuarter() { return Arc(1, 2, 1, 12, 7, 10, 11, 2); }

TEST(GetOuterArcAtDistance, MovesTheEndsByTheDistanceAndKeepsTheCenter) {
  const GX2DArc outer = Functions::GetOuterArcAtDistance(Quarter(), 1);
  EXPECT_POINT_EQ(outer.Center, Point(1, 2));
  EXPECT_POINT_NEAR(outer.Start, Point(12, 2), kRounding);
  EXPECT_POINT_NEAR(outer.End, Point(1, 13), kRounding);
  EXPECT_NEAR(outer.Radius(), 11.0, kRounding);
}

TEST(GetOuterArcAtDistance, MovesTheMiddleByHalfTheDistance) {
  const GX2DArc outer = Functions::GetOuterArcAtDistance(Quarter(), 1);
  // Radius 10.5 in the direction (0.6, 0.8).
  EXPECT_POINT_NEAR(outer.Mid, Point(1 + 6.3, 2 + 8.4), kRounding);
  EXPECT_NEAR(Distance(outer.Center, outer.Mid), 10.5, kRounding);
}

TEST(GetInnerArcAtDistance, MovesTheEndsByTheDistanceAndTheMiddleByHalfOfIt) {
  const GX2DArc inner = Functions::GetInnerArcAtDistance(Quarter(), 4);
  EXPECT_POINT_EQ(inner.Center, Point(1, 2));
  EXPECT_POINT_NEAR(inner.Start, Point(7, 2), kRounding);
  EXPECT_POINT_NEAR(inner.End, Point(1, 8), kRounding);
  EXPECT_POINT_NEAR(inner.Mid, Point(1 + 4.8, 2 + 6.4), kRounding);
}

TEST(GetInnerArcAtDistance, PassesThroughTheCenterBeyondTheRadius) {
  const GX2DArc inner = Functions::GetInnerArcAtDistance(Quarter(), 14);
  EXPECT_POINT_NEAR(inner.Start, Point(1 - 4, 2), kRounding);
  EXPECT_POINT_NEAR(inner.End, Point(1, 2 - 4), kRounding);
  // The middle is still on its own side, 3 from the center.
  EXPECT_POINT_NEAR(inner.Mid, Point(1 + 1.8, 2 + 2.4), kRounding);
}

TEST(GetInnerArcAtDistance, PutsTheEndsOnTheCenterAtTheRadius) {
  const GX2DArc inner = Functions::GetInnerArcAtDistance(Quarter(), 10);
  EXPECT_POINT_NEAR(inner.Start, Point(1, 2), kRounding);
  EXPECT_POINT_NEAR(inner.End, Point(1, 2), kRounding);
}

TEST(GetOuterArcAtDistance, TakesTheAbsoluteValueOfTheDistance) {
  EXPECT_POINT_EQ(Functions::GetOuterArcAtDistance(Quarter(), -3),
                  Functions::GetOuterArcAtDistance(Quarter(), 3));
  EXPECT_POINT_EQ(Functions::GetInnerArcAtDistance(Quarter(), -3),
                  Functions::GetInnerArcAtDistance(Quarter(), 3));
  EXPECT_GT(Functions::GetOuterArcAtDistance(Quarter(), -3).Radius(), 12.9);
  EXPECT_LT(Functions::GetInnerArcAtDistance(Quarter(), -3).Radius(), 7.1);
}

TEST(GetOuterArcAtDistance, MovesEachPointAlongItsOwnRay) {
  // Start, middle and end need not lie on one circle: radii 5, 2 and 13 about the origin.
  const GX2DArc odd = Arc(0, 0, 3, 4, 0, 2, -5, 12);
  const GX2DArc outer = Functions::GetOuterArcAtDistance(odd, 5);
  EXPECT_POINT_NEAR(outer.Start, Point(6, 8), kRounding);
  EXPECT_POINT_NEAR(outer.Mid, Point(0, 4.5), kRounding);
  EXPECT_POINT_NEAR(outer.End, Point(-5 * 18.0 / 13.0, 12 * 18.0 / 13.0), kRounding);
}

TEST(GetOuterArcAtDistance, MovesPointsOnTheCenterAlongX) {
  // The direction from the center to itself counts as that of X.
  const GX2DArc dot = Arc(4, 4, 4, 4, 4, 4, 4, 4);
  EXPECT_POINT_EQ(Functions::GetOuterArcAtDistance(dot, 2), Arc(4, 4, 6, 4, 5, 4, 6, 4));
  EXPECT_POINT_EQ(Functions::GetInnerArcAtDistance(dot, 2), Arc(4, 4, 2, 4, 3, 4, 2, 4));
}

TEST(GetLeftArcAtDistance, IsTheOuterCopyOfAClockwiseArc) {
  ASSERT_TRUE(ClockwiseQuarter().IsCW());
  EXPECT_POINT_EQ(Functions::GetLeftArcAtDistance(ClockwiseQuarter(), 3),
                  Functions::GetOuterArcAtDistance(ClockwiseQuarter(), 3));
  EXPECT_NEAR(Functions::GetLeftArcAtDistance(ClockwiseQuarter(), 3).Radius(), 13.0, kRounding);
}

TEST(GetLeftArcAtDistance, IsTheInnerCopyOfACounterClockwiseArc) {
  ASSERT_TRUE(Quarter().IsCCW());
  EXPECT_POINT_EQ(Functions::GetLeftArcAtDistance(Quarter(), 3),
                  Functions::GetInnerArcAtDistance(Quarter(), 3));
  EXPECT_NEAR(Functions::GetLeftArcAtDistance(Quarter(), 3).Radius(), 7.0, kRounding);
}

TEST(GetRightArcAtDistance, IsTheInnerCopyOfAClockwiseArc) {
  EXPECT_NEAR(Functions::GetRightArcAtDistance(ClockwiseQuarter(), 3).Radius(), 7.0, kRounding);
  EXPECT_NEAR(Functions::GetRightArcAtDistance(ClockwiseQuarter(), -3).Radius(), 7.0, kRounding);
}

TEST(GetRightArcAtDistance, IsTheOuterCopyOfACounterClockwiseArc) {
  EXPECT_NEAR(Functions::GetRightArcAtDistance(Quarter(), 3).Radius(), 13.0, kRounding);
  EXPECT_NEAR(Functions::GetLeftArcAtDistance(Quarter(), -3).Radius(), 7.0, kRounding);
}

TEST(GetLeftArcAtDistance, LiesLeftOfTheTangentAtTheStart) {
  support::Random random;
  for (int round = 0; round < 200; ++round) {
    const double radius = random.Between(5, 50);
    const GX2DArc arc = ArcByAngles(random.Between(-20, 20), random.Between(-20, 20), radius,
                                    random.Between(0, 360), random.Between(-170, 170));
    const double distance = random.Between(0.5, 4);
    const GX2DArc left = Functions::GetLeftArcAtDistance(arc, distance);
    const GX2DArc right = Functions::GetRightArcAtDistance(arc, distance);
    const double sign = arc.IsCCW() ? 1.0 : -1.0;
    // The tangent at the start, and where the copies start, seen from there.
    const double tx = -(arc.Start.Y - arc.Center.Y) * sign / radius;
    const double ty = (arc.Start.X - arc.Center.X) * sign / radius;
    const auto side = [&](const GX2DPoint& p) {
      return tx * (p.Y - arc.Start.Y) - ty * (p.X - arc.Start.X);
    };
    EXPECT_NEAR(side(left.Start), distance, 1e-11);
    EXPECT_NEAR(side(right.Start), -distance, 1e-11);
  }
}

TEST(DoIntersection_FromLine_ToLine, MakesTheCrossingTheEndAndTheStart) {
  GX2DLine from = Line(0, 2, 8, 2);
  GX2DLine to = Line(10, -5, 10, 5);
  EXPECT_TRUE(Functions::DoIntersection_FromLine_ToLine(from, to));
  EXPECT_POINT_EQ(from, Line(0, 2, 10, 2));
  EXPECT_POINT_EQ(to, Line(10, 2, 10, 5));
}

TEST(DoIntersection_FromLine_ToLine, LeavesParallelLinesAlone) {
  GX2DLine from = Line(0, 0, 10, 1);
  GX2DLine to = Line(0, 3, 20, 5);
  EXPECT_FALSE(Functions::DoIntersection_FromLine_ToLine(from, to));
  EXPECT_POINT_EQ(from, Line(0, 0, 10, 1));
  EXPECT_POINT_EQ(to, Line(0, 3, 20, 5));
}

TEST(DoIntersection_FromLine_ToArc, TakesTheCrossingNearerToTheEndOfTheLine) {
  // y = 3 meets the circle of radius 5 at x = 4, the first, and x = -4.
  GX2DLine east = Line(-20, 3, 1, 3);
  GX2DArc arc = Arc(0, 0, 5, 0, 0, 5, -5, 0);
  EXPECT_TRUE(Functions::DoIntersection_FromLine_ToArc(east, arc));
  EXPECT_POINT_EQ(east, Line(-20, 3, 4, 3));
  EXPECT_POINT_EQ(arc, Arc(0, 0, 4, 3, 0, 5, -5, 0));
  GX2DLine west = Line(20, 3, -1, 3);
  arc = Arc(0, 0, 5, 0, 0, 5, -5, 0);
  EXPECT_TRUE(Functions::DoIntersection_FromLine_ToArc(west, arc));
  EXPECT_POINT_EQ(west, Line(20, 3, -4, 3));
  EXPECT_POINT_EQ(arc, Arc(0, 0, -4, 3, 0, 5, -5, 0));
}

TEST(DoIntersection_FromLine_ToArc, TakesTheSecondOfTwoCrossingsAtOneDistance) {
  GX2DLine line = Line(-20, 3, 0, 3);
  GX2DArc arc = Arc(0, 0, 5, 0, 0, 5, -5, 0);
  GX2DPoint first, second;
  ASSERT_TRUE(GXGeometry::Get2DLineArcIntersections(line, arc, first, second));
  ASSERT_EQ(Distance(first, line.End), Distance(second, line.End));
  EXPECT_TRUE(Functions::DoIntersection_FromLine_ToArc(line, arc));
  EXPECT_POINT_EQ(line.End, second);
  EXPECT_POINT_EQ(arc.Start, second);
  EXPECT_POINT_EQ(second, Point(-4, 3));
}

TEST(DoIntersection_FromLine_ToArc, LeavesElementsThatDoNotMeetAlone) {
  GX2DLine line = Line(-20, 6, 0, 6);
  GX2DArc arc = Arc(0, 0, 5, 0, 0, 5, -5, 0);
  EXPECT_FALSE(Functions::DoIntersection_FromLine_ToArc(line, arc));
  EXPECT_POINT_EQ(line, Line(-20, 6, 0, 6));
  EXPECT_POINT_EQ(arc, Arc(0, 0, 5, 0, 0, 5, -5, 0));
}

TEST(DoIntersection_FromArc_ToLine, TakesTheCrossingNearerToTheStartOfTheLine) {
  // x = 3 meets the circle of radius 5 at y = 4, the first, and y = -4. The end of the line is near
  // the other one.
  GX2DArc arc = Arc(0, 0, 0, -5, 5, 0, 0, 5);
  GX2DLine down = Line(3, 1, 3, -4);
  EXPECT_TRUE(Functions::DoIntersection_FromArc_ToLine(arc, down));
  EXPECT_POINT_EQ(arc, Arc(0, 0, 0, -5, 5, 0, 3, 4));
  EXPECT_POINT_EQ(down, Line(3, 4, 3, -4));
  arc = Arc(0, 0, 0, -5, 5, 0, 0, 5);
  GX2DLine up = Line(3, -1, 3, 4);
  EXPECT_TRUE(Functions::DoIntersection_FromArc_ToLine(arc, up));
  EXPECT_POINT_EQ(arc, Arc(0, 0, 0, -5, 5, 0, 3, -4));
  EXPECT_POINT_EQ(up, Line(3, -4, 3, 4));
}

TEST(DoIntersection_FromArc_ToLine, TakesTheSecondOfTwoCrossingsAtOneDistance) {
  GX2DArc arc = Arc(0, 0, 0, -5, 5, 0, 0, 5);
  GX2DLine line = Line(3, 0, 3, 9);
  EXPECT_TRUE(Functions::DoIntersection_FromArc_ToLine(arc, line));
  EXPECT_POINT_EQ(arc.End, Point(3, -4));
  EXPECT_POINT_EQ(line.Start, Point(3, -4));
}

TEST(DoIntersection_FromArc_ToLine, LeavesElementsThatDoNotMeetAlone) {
  GX2DArc arc = Arc(0, 0, 0, -5, 5, 0, 0, 5);
  GX2DLine line = Line(6, 0, 6, 9);
  EXPECT_FALSE(Functions::DoIntersection_FromArc_ToLine(arc, line));
  EXPECT_POINT_EQ(arc, Arc(0, 0, 0, -5, 5, 0, 0, 5));
  EXPECT_POINT_EQ(line, Line(6, 0, 6, 9));
}

// Circles of radius 5 about the origin and (7, 7) cross at (3, 4), the first, and (4, 3); from
// (5, 0) on everything is exact. The end of an arc need not be on its circle.
GX2DArc AboutOrigin(double endX, double endY) { return Arc(0, 0, 5, 0, 4, 1, endX, endY); }
GX2DArc AboutSeven() { return Arc(7, 7, 7, 2, 10, 3, 12, 7); }

TEST(DoIntersection_FromArc_ToArc, TakesTheCrossingNearerToTheEndOfTheFirst) {
  GX2DArc from = AboutOrigin(0, 5);
  GX2DArc to = AboutSeven();
  EXPECT_TRUE(Functions::DoIntersection_FromArc_ToArc(from, to));
  EXPECT_POINT_NEAR(from, Arc(0, 0, 5, 0, 4, 1, 3, 4), kRounding);
  EXPECT_POINT_NEAR(to, Arc(7, 7, 3, 4, 10, 3, 12, 7), kRounding);
  from = AboutOrigin(4.5, 2);
  to = AboutSeven();
  EXPECT_TRUE(Functions::DoIntersection_FromArc_ToArc(from, to));
  EXPECT_POINT_NEAR(from, Arc(0, 0, 5, 0, 4, 1, 4, 3), kRounding);
  EXPECT_POINT_NEAR(to, Arc(7, 7, 4, 3, 10, 3, 12, 7), kRounding);
}

TEST(DoIntersection_FromArc_ToArc, TakesTheSecondOfTwoCrossingsAtOneDistance) {
  GX2DArc from = AboutOrigin(2, 2);
  GX2DArc to = AboutSeven();
  GX2DPoint first, second;
  ASSERT_TRUE(GXGeometry::Get2DCirclesIntersection(from, to, first, second));
  ASSERT_POINT_EQ(first, Point(3, 4));
  ASSERT_POINT_EQ(second, Point(4, 3));
  EXPECT_TRUE(Functions::DoIntersection_FromArc_ToArc(from, to));
  EXPECT_POINT_EQ(from.End, Point(4, 3));
  EXPECT_POINT_EQ(to.Start, Point(4, 3));
}

TEST(DoIntersection_FromArc_ToArc, LeavesCirclesThatDoNotMeetAlone) {
  GX2DArc from = AboutOrigin(0, 5);
  GX2DArc to = Arc(27, 7, 27, 2, 30, 3, 32, 7);
  EXPECT_FALSE(Functions::DoIntersection_FromArc_ToArc(from, to));
  EXPECT_POINT_EQ(from, AboutOrigin(0, 5));
  EXPECT_POINT_EQ(to, Arc(27, 7, 27, 2, 30, 3, 32, 7));
}

TEST(DoIntersection_FromArc_ToArc, LeavesHalfCirclesAlone) {
  // The crossing of circles does not take them, though these cross.
  GX2DArc from = Arc(0, 0, 5, 0, 0, 5, -5, 0);
  GX2DArc to = AboutSeven();
  EXPECT_FALSE(Functions::DoIntersection_FromArc_ToArc(from, to));
  EXPECT_POINT_EQ(from, Arc(0, 0, 5, 0, 0, 5, -5, 0));
  EXPECT_POINT_EQ(to, AboutSeven());
}

TEST(DoIntersection, LeavesMiddlesAndCentersOfArcsAlone) {
  GX2DArc from = AboutOrigin(0, 5);
  GX2DArc to = AboutSeven();
  ASSERT_TRUE(Functions::DoIntersection_FromArc_ToArc(from, to));
  EXPECT_POINT_EQ(from.Mid, Point(4, 1));
  EXPECT_POINT_EQ(from.Center, Point(0, 0));
  EXPECT_POINT_EQ(from.Start, Point(5, 0));
  EXPECT_POINT_EQ(to.Mid, Point(10, 3));
  EXPECT_POINT_EQ(to.Center, Point(7, 7));
  EXPECT_POINT_EQ(to.End, Point(12, 7));
}

TEST(DoIntersection, JoinsTheCopiesOfACorner) {
  // The corner of a rectangle, offset inward: the copies meet at (8, 2).
  GX2DLine bottom = Functions::GetLeftLineAtDistance(Line(0, 0, 10, 0), 2);
  GX2DLine side = Functions::GetLeftLineAtDistance(Line(10, 0, 10, 10), 2);
  EXPECT_TRUE(Functions::DoIntersection_FromLine_ToLine(bottom, side));
  EXPECT_POINT_NEAR(bottom, Line(0, 2, 8, 2), kRounding);
  EXPECT_POINT_NEAR(side, Line(8, 2, 8, 10), kRounding);
}

TEST(DoIntersection, LinesThatAreNotFiniteDoNoHarm) {
  GX2DLine nowhere = Line(kNaN, kNaN, kNaN, kNaN);
  GX2DLine line = Line(0, 0, 0, 5);
  // Without an extent in X both count as upright.
  EXPECT_FALSE(Functions::DoIntersection_FromLine_ToLine(nowhere, line));
  EXPECT_POINT_EQ(line, Line(0, 0, 0, 5));
}

}  // namespace
