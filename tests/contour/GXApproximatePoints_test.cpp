// Long sequences of points become few arcs: which points an arc covers, and where the chain ends.
#include <KTRCL_Geometry/contour/GXApproximatePoints.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <exception>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using support::At;
using support::kPi;
using support::OnCircle;
using support::Point;

using Points = std::vector<GX2DPoint>;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Directions come from an arc cosine, which near 1 keeps half of the digits: 1.5e-8 radians, on
/// circles of radius 10 or so.
constexpr double kAngleRounding = 1e-6;

void Approximate(const Points& points, GX2DElmList& list, double tolerance) {
  EXPECT_TRUE(GXApproximatePoints::ApproximateByLinesAndArcs(points, list, tolerance));
}

/// The points of a circle of radius 10 about the origin at the angles in degrees.
Points OnTen(const std::vector<double>& degrees) {
  Points points;
  for (const double angle : degrees) {
    points.push_back(OnCircle(0, 0, 10, angle));
  }
  return points;
}

/// Evenly from one angle in degrees through `sweep`, positive counter-clockwise.
Points Even(int count, double from, double sweep) {
  Points points;
  for (int i = 0; i < count; ++i) {
    points.push_back(OnCircle(0, 0, 10, from + sweep * i / (count - 1)));
  }
  return points;
}

/// The list holds one arc for each pair of neighbouring indexes. Arcs over counter-clockwise points
/// start at the first of their points, the others at the last one.
void ExpectArcsOver(const GX2DElmList& list, const Points& points, const std::vector<int>& breaks) {
  ASSERT_EQ(list.size() + 1, breaks.size());
  for (std::size_t i = 0; i < list.size(); ++i) {
    SCOPED_TRACE("arc " + std::to_string(i));
    const GX2DPoint& from = points.at(static_cast<std::size_t>(breaks[i]));
    const GX2DPoint& to = points.at(static_cast<std::size_t>(breaks[i + 1]));
    const auto* const arc = dynamic_cast<const GX2DArc*>(list[i]);
    ASSERT_NE(arc, nullptr);
    EXPECT_POINT_NEAR(arc->Start, arc->IsCCW() ? from : to, kAngleRounding);
    EXPECT_POINT_NEAR(arc->End, arc->IsCCW() ? to : from, kAngleRounding);
  }
}

// Points at even steps on a circle of radius 10 about the origin, the first one at (10, 0). The
// normal at the first point is that of its only chord, so it has the direction step / 2; the one at
// point k goes through the origin. They cross at s from the origin in the direction k * step, and
// the foot on the bisector is the center.
GX2DPoint CentreOfFirstArc(double step, int k) {
  const double s = -10.0 * std::sin(step / 2.0) / std::sin((k - 0.5) * step);
  const double c = s * std::cos(k * step / 2.0);
  return Point(c * std::cos(k * step / 2.0), c * std::sin(k * step / 2.0));
}

double Distance(const GX2DPoint& a, const GX2DPoint& b) { return std::hypot(a.X - b.X, a.Y - b.Y); }

/// The last point that such a first arc can reach within the tolerance.
int ReachOfFirstArc(double step, double tolerance) {
  for (int k = 3;; ++k) {
    const GX2DPoint center = CentreOfFirstArc(step, k);
    const double radius = Distance(center, Point(10, 0));
    for (int i = 0; i < k; ++i) {
      const GX2DPoint p = Point(10 * std::cos(i * step), 10 * std::sin(i * step));
      if (std::fabs(Distance(center, p) - radius) > tolerance) return k - 1;
    }
  }
}

TEST(ApproximateByLinesAndArcs, AHalfCircleTakesThreeArcs) {
  for (const double from : {0.0, 30.0, 100.0, 200.0, 300.0}) {
    for (const double sweep : {180.0, -180.0}) {
      SCOPED_TRACE("from " + std::to_string(from) + " through " + std::to_string(sweep));
      const Points points = Even(41, from, sweep);
      GX2DElmList list;
      Approximate(points, list, 0.01);
      ASSERT_NO_FATAL_FAILURE(ExpectArcsOver(list, points, {0, 2, 38, 40}));
      EXPECT_NEAR(At<GX2DArc>(list, 1).Radius(), 10.0, 1e-9);
      EXPECT_POINT_NEAR(At<GX2DArc>(list, 1).Center, Point(0, 0), 1e-9);
    }
  }
}

TEST(ApproximateByLinesAndArcs, TheOneSidedChordMakesTheEndPiecesOfAHalfCircleFlatter) {
  const Points points = Even(41, 0, 180);
  GX2DElmList list;
  Approximate(points, list, 0.01);
  ASSERT_EQ(list.size(), 3U);
  const GX2DPoint center = CentreOfFirstArc(kPi / 40.0, 2);
  EXPECT_EQ(ReachOfFirstArc(kPi / 40.0, 0.01), 2);
  EXPECT_POINT_NEAR(At<GX2DArc>(list, 0).Center, center, kAngleRounding);
  EXPECT_NEAR(At<GX2DArc>(list, 0).Radius(), Distance(center, Point(10, 0)), kAngleRounding);
  EXPECT_POINT_NEAR(At<GX2DArc>(list, 2).Center, Point(-center.X, center.Y), kAngleRounding);
}

TEST(ApproximateByLinesAndArcs, AHalfCircleTakesTwoArcsAtACoarserTolerance) {
  const int reach = ReachOfFirstArc(kPi / 40.0, 0.1);
  EXPECT_EQ(reach, 24);
  for (const double sweep : {180.0, -180.0}) {
    const Points points = Even(41, 0, sweep);
    GX2DElmList list;
    Approximate(points, list, 0.1);
    ExpectArcsOver(list, points, {0, reach, 40});
  }
}

TEST(ApproximateByLinesAndArcs, OneLineStandsForPointsThatAreAllNearTheFirst) {
  const Points points = {{1, 2}, {1.01, 2.02}, {1.05, 2}, {1.03, 1.99}};
  GX2DElmList list;
  Approximate(points, list, 0.1);
  ASSERT_EQ(list.size(), 1U);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 0), GX2DLine(points.front(), points.back()));
}

TEST(ApproximateByLinesAndArcs, PointsAtOneSpotAppendNothing) {
  GX2DElmList list;
  Approximate(Points(6, Point(3, 4)), list, 0.1);
  EXPECT_TRUE(list.empty());
}

TEST(ApproximateByLinesAndArcs, PointsThatComeBackToTheFirstAppendNothing) {
  GX2DElmList list;
  Approximate({{3, 4}, {3.01, 4}, {3, 4.01}, {3, 4}}, list, 0.1);
  EXPECT_TRUE(list.empty());
}

TEST(ApproximateByLinesAndArcs, CollinearPointsAlongXAppendNothing) {
  Points forward, backward;
  for (int i = 0; i < 6; ++i) {
    forward.push_back(Point(i, 1));
    backward.push_back(Point(-i, 1));
  }
  GX2DElmList list;
  Approximate(forward, list, 0.1);
  Approximate(backward, list, 0.1);
  EXPECT_TRUE(list.empty());
}

TEST(ApproximateByLinesAndArcs, CollinearPointsInAnyDirectionAppendNothing) {
  GX2DElmList list;
  for (int degrees = 0; degrees < 360; degrees += 15) {
    SCOPED_TRACE(degrees);
    Points points;
    for (int i = 0; i < 8; ++i) {
      points.push_back(OnCircle(0, 0, i, degrees));
    }
    Approximate(points, list, 0.1);
  }
  // What is not parallel by rounding has a radius of far more than a million chords.
  EXPECT_TRUE(list.empty());
}

TEST(ApproximateByLinesAndArcs, AStraightStretchEndsTheWorkWithoutAWord) {
  Points points = Even(19, -90, 90);
  for (int y = 1; y <= 30; ++y) {
    points.push_back(Point(10, y));
  }
  GX2DElmList list;
  Approximate(points, list, 0.01);
  ASSERT_GE(list.size(), 2U);
  const auto& last = At<GX2DArc>(list, list.size() - 1);
  EXPECT_TRUE(last.IsCCW());
  // Arcs as far as past the joint at (10, 0) at most, no line for the rest.
  EXPECT_LE(last.End.Y, 2.0);
  EXPECT_GE(last.End.Y, -1.0);
}

TEST(ApproximateByLinesAndArcs, AStraightStretchInFrontLeavesNothingOfTheCurve) {
  Points points;
  for (int x = -8; x < 0; ++x) {
    points.push_back(Point(x, -10));
  }
  for (const GX2DPoint& p : Even(19, -90, 90)) {
    points.push_back(p);
  }
  GX2DElmList list;
  Approximate(points, list, 0.05);
  EXPECT_TRUE(list.empty());
}

TEST(ApproximateByLinesAndArcs, ParallelNormalsDuringGrowthLoseTheArcAcceptedSoFar) {
  // The first and the last chord run along X, so the arc over all four points has no center.
  const Points four = {{0, 0}, {1, 0}, {2, 1}, {3, 1}};
  GX2DElmList list;
  Approximate(four, list, 0.1);
  EXPECT_TRUE(list.empty());
  // With a fifth point the chord at the fourth one is another, and the work goes on.
  const Points five = {{0, 0}, {1, 0}, {2, 1}, {3, 1}, {4, 3}};
  Approximate(five, list, 0.1);
  ExpectArcsOver(list, five, {0, 2, 4});
}

TEST(ApproximateByLinesAndArcs, NormalsOnOneLineEndTheWork) {
  // Both chords run along X and both points lie on X = 0: one and the same normal.
  GX2DElmList list;
  Approximate({{0, 0}, {1, 0}, {0, 2}, {-1, 0}}, list, 0.1);
  EXPECT_TRUE(list.empty());
}

TEST(ApproximateByLinesAndArcs, ElementsFoundBeforeTheEndStay) {
  Points points = Even(19, -90, 90);
  for (int y = 1; y <= 30; ++y) {
    points.push_back(Point(10, y));
  }
  GX2DElmList list;
  Approximate(points, list, 0.001);
  // (0, -10) to 10 degrees on by the one-sided chord, then up to one point before the joint.
  ASSERT_GE(list.size(), 2U);
  EXPECT_POINT_NEAR(At<GX2DArc>(list, 0).End, points[2], kAngleRounding);
  EXPECT_POINT_NEAR(At<GX2DArc>(list, 1).End, points[17], kAngleRounding);
  EXPECT_NEAR(At<GX2DArc>(list, 1).Radius(), 10.0, 1e-9);
}

TEST(ApproximateByLinesAndArcs, ARadiusOfMoreThanAMillionChordsCountsAsStraight) {
  // Three points with the height h over the middle of a chord of 2 have the normals' crossing at
  // (1, -1 / h), so the radius is 1 / (2 h) chords; the arc cosine of 1 - h * h / 2 leaves about
  // three digits of it.
  GX2DElmList list;
  Approximate({{0, 0}, {1, 4e-7}, {2, 0}}, list, 0.01);
  EXPECT_TRUE(list.empty());
  Approximate({{0, 0}, {1, 1e-6}, {2, 0}}, list, 0.01);
  ASSERT_EQ(list.size(), 1U);
  EXPECT_NEAR(At<GX2DArc>(list, 0).Radius() * 1e-6, 1.0, 0.002);
}

TEST(ApproximateByLinesAndArcs, OnlyPointsStrictlyNearerThanTheToleranceArePassedOver) {
  const Points points = {{0, 0}, {1, 1}, {2, 0}};
  GX2DElmList atTolerance, below;
  Approximate(points, atTolerance, 2.0);
  ExpectArcsOver(atTolerance, points, {0, 2});
  Approximate(points, below, std::nextafter(2.0, 3.0));
  ASSERT_EQ(below.size(), 1U);
  EXPECT_POINT_EQ(At<GX2DLine>(below, 0), GX2DLine(points.front(), points.back()));
}

TEST(ApproximateByLinesAndArcs, TheArcOverThreePointsIsNotCheckedAgainstTheMiddleOne) {
  // The normals (-1, 1) at the first and (1, 1) at the last point cross at (1, -1): the middle
  // point (1, 1) is 2 from there, the others sqrt(2).
  GX2DElmList list;
  Approximate({{0, 0}, {1, 1}, {2, 0}}, list, 0.001);
  ASSERT_EQ(list.size(), 1U);
  EXPECT_POINT_NEAR(At<GX2DArc>(list, 0).Center, Point(1, -1), 1e-12);
  EXPECT_NEAR(At<GX2DArc>(list, 0).Radius(), std::sqrt(2.0), 1e-12);
}

TEST(ApproximateByLinesAndArcs, PointsNearTheStartOfAPieceArePassedOver) {
  // The third point lies behind the first, so that no arc over it could grow; it is too near.
  const Points points = OnTen({0, 0.1, -0.1, 10});
  GX2DElmList passed, seen;
  Approximate(points, passed, 0.05);
  ExpectArcsOver(passed, points, {0, 3});
  Approximate(points, seen, 0.01);
  ExpectArcsOver(seen, points, {0, 1, 3});
}

TEST(ApproximateByLinesAndArcs, PointsOutOfOrderStopAnArcHoweverNearItTheyLie) {
  // The fourth point falls back behind the third. All are within a few hundredths of the circle.
  const Points points = OnTen({0, 10, 20, 19, 30, 40});
  const Points sorted = OnTen({0, 10, 19, 20, 30, 40});
  GX2DElmList list, ordered;
  Approximate(points, list, 1.0);
  EXPECT_GT(list.size(), 1U);
  Approximate(sorted, ordered, 1.0);
  ExpectArcsOver(ordered, sorted, {0, 5});
}

TEST(ApproximateByLinesAndArcs, APointMayFallBackByATenMillionthOfARadian) {
  // The second point lies behind the first, by less or more than the tolerance of directions.
  constexpr double kDegrees = 180.0 / kPi;
  const Points within = OnTen({80, 80 - 5e-8 * kDegrees, 90, 100});
  const Points beyond = OnTen({80, 80 - 1e-6 * kDegrees, 90, 100});
  GX2DElmList one, two;
  Approximate(within, one, 0.5);
  ExpectArcsOver(one, within, {0, 3});
  Approximate(beyond, two, 0.5);
  ExpectArcsOver(two, beyond, {0, 1, 3});
}

TEST(ApproximateByLinesAndArcs, AfterAFailedTrialTheNextPieceStartsAtThePointBefore) {
  // No distance is below or within a tolerance of -1, so that every trial fails at once.
  const Points points = Even(9, 0, 160);
  GX2DElmList list;
  Approximate(points, list, -1.0);
  ExpectArcsOver(list, points, {0, 2, 4, 6, 8});
}

TEST(ApproximateByLinesAndArcs, AFailureAtTheLastPointMovesTheBreakTwoPointsBack) {
  const Points four = Even(4, 0, 60);
  const Points six = Even(6, 0, -100);
  GX2DElmList ofFour, ofSix;
  Approximate(four, ofFour, -1.0);
  ExpectArcsOver(ofFour, four, {0, 1, 3});
  Approximate(six, ofSix, -1.0);
  ExpectArcsOver(ofSix, six, {0, 2, 3, 5});
}

TEST(ApproximateByLinesAndArcs, NoArcGrowsBeyondHalfATurn) {
  // Arcs always take the shorter way around: 25 steps of 7 degrees are 175, 26 are 182.
  for (const double sweep : {350.0, -350.0}) {
    const Points points = Even(51, 0, sweep);
    GX2DElmList list;
    Approximate(points, list, 0.05);
    ASSERT_GE(list.size(), 3U);
    const auto& second = At<GX2DArc>(list, 1);
    EXPECT_NEAR(second.Radius(), 10.0, 1e-9);
    EXPECT_NEAR(Distance(second.Start, second.End), 20.0 * std::sin(87.5 * kPi / 180.0), 1e-5);
  }
}

TEST(ApproximateByLinesAndArcs, ALineEndsTheChainWhereOnlyNearPointsAreLeft) {
  // The chord at the fourth point is upright, so the arc cannot reach it.
  Points points = OnTen({0, 10, 20});
  const GX2DPoint third = points.back();
  points.push_back(Point(third.X + 1e-7, third.Y));
  points.push_back(Point(third.X, third.Y - 1e-7));
  GX2DElmList list;
  Approximate(points, list, 1e-6);
  ASSERT_EQ(list.size(), 2U);
  EXPECT_POINT_NEAR(At<GX2DArc>(list, 0).End, third, kAngleRounding);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 1), GX2DLine(third, points.back()));
}

TEST(ApproximateByLinesAndArcs, NoLineEndsTheChainWhereTheLastPointIsTheStartOfThePiece) {
  Points points = OnTen({0, 10, 20});
  const GX2DPoint third = points.back();
  points.push_back(Point(third.X + 1e-7, third.Y));
  points.push_back(third);
  GX2DElmList list;
  Approximate(points, list, 1e-6);
  ASSERT_EQ(list.size(), 1U);
  EXPECT_POINT_NEAR(At<GX2DArc>(list, 0).End, third, kAngleRounding);
}

TEST(ApproximateByLinesAndArcs, AppendsBehindWhatTheListHolds) {
  const Points points = OnTen({0, 20, 40});
  GX2DElmList list;
  support::Add(list, support::Line(1, 2, 3, 4));
  GX2DElement* const old = list[0];
  Approximate(points, list, 0.1);
  Approximate(points, list, 0.1);
  ASSERT_EQ(list.size(), 3U);
  EXPECT_EQ(list[0], old);
  EXPECT_POINT_EQ(At<GX2DArc>(list, 1), At<GX2DArc>(list, 2));
}

TEST(ApproximateByLinesAndArcs, TheMiddleIsAQuarterTurnFromTheStart) {
  // The arc ends before its middle, which tells the sense alone.
  const Points points = OnTen({-20, 20, 60});
  GX2DElmList list;
  Approximate(points, list, 0.1);
  ASSERT_EQ(list.size(), 1U);
  const auto& arc = At<GX2DArc>(list, 0);
  EXPECT_TRUE(arc.IsCCW());
  const GXVector start(arc.Center, arc.Start);
  EXPECT_POINT_NEAR(GXVector(arc.Center, arc.Mid), start.GetPerpendicalXY(), 1e-12);
}

TEST(ApproximateByLinesAndArcs, AnArcOverClockwisePointsRunsFromTheEndOfTheStretchToItsStart) {
  const Points points = OnTen({60, 20, -20});
  GX2DElmList list;
  Approximate(points, list, 0.1);
  ASSERT_EQ(list.size(), 1U);
  const auto& arc = At<GX2DArc>(list, 0);
  EXPECT_POINT_NEAR(arc.Start, points.back(), kAngleRounding);
  EXPECT_POINT_NEAR(arc.End, points.front(), kAngleRounding);
  const GXVector start(arc.Center, arc.Start);
  EXPECT_POINT_NEAR(GXVector(arc.Center, arc.Mid), start.GetPerpendicalXY().GetReversed(), 1e-12);
}

TEST(ApproximateByLinesAndArcs, TheSenseOfAnArcOverClockwisePointsTakesTheRestOfTheCircle) {
  const Points points = OnTen({60, 20, -20});
  GX2DElmList list;
  Approximate(points, list, 0.1);
  ASSERT_EQ(list.size(), 1U);
  const auto& arc = At<GX2DArc>(list, 0);
  EXPECT_TRUE(arc.IsCW());
  // The points come counter-clockwise from its start, within half a turn.
  const GXVector start(arc.Center, arc.Start);
  const GXVector point(arc.Center, points[1]);
  EXPECT_GT(start.X * point.Y - start.Y * point.X, 0.0);
}

TEST(ApproximateByLinesAndArcs, AnArcIsStoredWithBothEndsOnItsCircle) {
  const Points points = Even(41, 10, 200);
  GX2DElmList list;
  Approximate(points, list, 0.01);
  ASSERT_FALSE(list.empty());
  for (std::size_t i = 0; i < list.size(); ++i) {
    const auto& arc = At<GX2DArc>(list, i);
    EXPECT_NEAR(Distance(arc.Center, arc.End), arc.Radius(), 1e-12);
    EXPECT_NEAR(Distance(arc.Center, arc.Mid), arc.Radius(), 1e-12);
  }
}

TEST(ApproximateByLinesAndArcs, FewerThanThreePointsAppendNothing) {
  GX2DElmList list;
  Approximate({}, list, 0.1);
  Approximate({{1, 2}}, list, 0.1);
  Approximate({{1, 2}, {3, 4}}, list, 0.1);
  Approximate({{1, 2}, {1.01, 2}}, list, 0.1);
  EXPECT_TRUE(list.empty());
}

TEST(ApproximateByLinesAndArcs, AToleranceThatIsNoNumberPassesOverNothingAndStopsNothing) {
  const Points points = OnTen({0, 0.001, 10, 20, 30});
  GX2DElmList list;
  Approximate(points, list, kNaN);
  ExpectArcsOver(list, points, {0, 4});
}

TEST(ApproximateByLinesAndArcs, AnInfiniteTolerancePassesOverEverything) {
  const Points points = Even(9, 0, 90);
  GX2DElmList list;
  Approximate(points, list, kInf);
  ASSERT_EQ(list.size(), 1U);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 0), GX2DLine(points.front(), points.back()));
}

TEST(ApproximateByLinesAndArcs, PointsThatAreNotFiniteEndNeitherInAHangNorInAnException) {
  for (const double stray : {kNaN, kInf, -kInf, 1e308, -1e308, 1e-320}) {
    for (std::size_t i = 0; i < 9; ++i) {
      for (const double tolerance : {0.1, -1.0, kNaN, kInf}) {
        Points points = Even(9, 0, 90);
        points[i].X = stray;
        points[8 - i].Y = stray;
        GX2DElmList list;
        Approximate(points, list, tolerance);
        // Each piece takes a step of at least one point.
        EXPECT_LE(list.size(), 8U);
      }
    }
  }
}

TEST(ApproximateByLinesAndArcs, PointsOfEverySizeEndInNoException) {
  for (const double scale : {0.0, 1e-320, 1e-200, 1e-10, 1e10, 1e160, 1e306}) {
    Points points;
    for (const GX2DPoint& p : Even(12, 3, 200)) {
      points.push_back(Point(p.X * scale, p.Y * scale));
    }
    for (const double tolerance : {0.0, 1e-3, 1e300}) {
      GX2DElmList list;
      Approximate(points, list, tolerance);
      EXPECT_LE(list.size(), 11U);
    }
  }
}

template <typename Error>
void ExpectOwnKindOfException() {
  static_assert(std::is_base_of_v<std::exception, Error>);
  static_assert(sizeof(Error) == sizeof(std::exception), "no data");
  EXPECT_THROW(throw Error(), Error);
  EXPECT_THROW(throw Error(), std::exception);
}

TEST(GXApproximatePoints, HasThreeUnrelatedKindsOfExceptions) {
  using Intersection = GXApproximatePoints::IntersectionError;
  using SameLine = GXApproximatePoints::SameLineError;
  using NoIntersection = GXApproximatePoints::NoIntersectionError;
  ExpectOwnKindOfException<Intersection>();
  ExpectOwnKindOfException<SameLine>();
  ExpectOwnKindOfException<NoIntersection>();
  EXPECT_FALSE((std::is_base_of_v<Intersection, SameLine>));
  EXPECT_FALSE((std::is_base_of_v<Intersection, NoIntersection>));
  EXPECT_FALSE((std::is_base_of_v<SameLine, NoIntersection>));
  EXPECT_FALSE((std::is_base_of_v<SameLine, Intersection>));
  EXPECT_FALSE((std::is_base_of_v<NoIntersection, Intersection>));
  EXPECT_FALSE((std::is_base_of_v<NoIntersection, SameLine>));
}

}  // namespace
