#include <KTRCL_Geometry/elements/GX2DElements.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

using support::Arc;
using support::ArcByAngles;
using support::Circle;
using support::Point;

constexpr double kPi = support::kPi;
const double kHalfRoot = std::sqrt(0.5);

/// Quarter about (10, 20) with radius 2, counter-clockwise from the right to the top.
GX2DArc Quarter() { return Arc(10, 20, 12, 20, 10 + 2 * kHalfRoot, 20 + 2 * kHalfRoot, 10, 22); }

GX2DArc RandomArc(support::Random& random) {
  const GX2DPoint centre = random.Point2D(100);
  const double radius = random.Between(1, 50);
  const double sweep = random.Between(1, 359) * (random.Bool() ? 1 : -1);
  return ArcByAngles(centre.X, centre.Y, radius, random.Between(0, 360), sweep);
}

TEST(GX2DArc, IsFourTimesTheOriginByDefault) {
  EXPECT_POINT_EQ(GX2DArc(), (std::vector<double>(8, 0.0)));
}

TEST(GX2DArc, KeepsFourPointsAsTheyAre) {
  const GX2DArc arc(Point(1, 2), Point(3, 4), Point(5, 6), Point(7, 8));
  EXPECT_POINT_EQ(arc.Center, Point(1, 2));
  EXPECT_POINT_EQ(arc.Start, Point(3, 4));
  EXPECT_POINT_EQ(arc.Mid, Point(5, 6));
  EXPECT_POINT_EQ(arc.End, Point(7, 8));
}

TEST(GX2DArc, ThreePointsAndASenseTakeMidFromCreateMidPoint) {
  for (const bool clockwise : {false, true}) {
    const GX2DArc arc(Point(1, 1), Point(3, 1), Point(1, 3), clockwise);
    EXPECT_POINT_EQ(arc.Center, Point(1, 1));
    EXPECT_POINT_EQ(arc.Start, Point(3, 1));
    EXPECT_POINT_EQ(arc.End, Point(1, 3));
    EXPECT_POINT_EQ(arc.Mid,
                    GX2DArc::CreateMidPoint(Point(1, 1), Point(3, 1), Point(1, 3), clockwise));
    EXPECT_EQ(arc.IsClockwise(), clockwise);
  }
}

TEST(GX2DArc, CopiesAreIndependent) {
  GX2DArc original = Quarter();
  const GX2DArc copy(original);
  GX2DArc assigned;
  assigned = original;
  original.Mid.X = 99;
  EXPECT_POINT_EQ(copy, Quarter());
  EXPECT_POINT_EQ(assigned, Quarter());
}

TEST(GX2DArc, CloneIsANewArcOfTheCaller) {
  const GX2DArc arc = Quarter();
  const std::unique_ptr<GX2DElement> clone(arc.Clone());
  EXPECT_NE(clone.get(), &arc);
  EXPECT_POINT_EQ(dynamic_cast<GX2DArc&>(*clone), arc);
}

TEST(GX2DArc, HandsOutItsOwnEnds) {
  GX2DArc arc = Quarter();
  EXPECT_EQ(&arc.GetStartPoint(), &arc.Start);
  EXPECT_EQ(&arc.GetEndPoint(), &arc.End);
}

TEST(GX2DArc, TransformsReachAllFourPoints) {
  GX2DArc arc = Arc(1, 2, 3, 4, 5, 6, 7, 8);
  arc.Translate(10, 20);
  EXPECT_POINT_EQ(arc, Arc(11, 22, 13, 24, 15, 26, 17, 28));
  arc.MirrorX();
  EXPECT_POINT_EQ(arc, Arc(-11, 22, -13, 24, -15, 26, -17, 28));
  arc.MirrorY();
  EXPECT_POINT_EQ(arc, Arc(-11, -22, -13, -24, -15, -26, -17, -28));
  arc.Scale(-0.5, -1);
  EXPECT_POINT_EQ(arc, Arc(5.5, 11, 6.5, 12, 7.5, 13, 8.5, 14));
  arc.ScaleX(1, 0);
  EXPECT_POINT_EQ(arc, Arc(6, 11, 7, 12, 8, 13, 9, 14));  // halves go away from zero
  arc.ScaleY(2, -1);
  EXPECT_POINT_EQ(arc, Arc(6, 22, 7, 24, 8, 26, 9, 28));
}

TEST(GX2DArc, RotateAxisTurnsAllFourPoints) {
  GX2DArc arc = Arc(1, 0, 2, 0, 3, 0, 4, 0);
  arc.RotateAxis(Point(0, 0), 90);
  EXPECT_POINT_NEAR(arc, Arc(0, 1, 0, 2, 0, 3, 0, 4), 1e-15);
}

TEST(GX2DArc, TurnsAboutItsOwnCentreAndItsOwnStart) {
  GX2DArc aboutCentre = Arc(1, 1, 2, 1, 1, 2, 0, 1);
  aboutCentre.RotateAxis(aboutCentre.Center, 90);
  EXPECT_POINT_NEAR(aboutCentre, Arc(1, 1, 1, 2, 0, 1, 1, 0), 1e-15);
  GX2DArc aboutStart = Arc(1, 1, 2, 1, 1, 2, 0, 1);
  aboutStart.RotateAxis(aboutStart.Start, 90);
  EXPECT_POINT_NEAR(aboutStart, Arc(2, 0, 2, 1, 1, 0, 2, -1), 1e-15);
}

TEST(GX2DArc, ArgumentsMayBeItsOwnCoordinates) {
  GX2DArc moved = Arc(1, 2, 3, 4, 5, 6, 7, 8);
  moved.Translate(moved.Start.X, moved.Center.Y);
  EXPECT_POINT_EQ(moved, Arc(4, 4, 6, 6, 8, 8, 10, 10));
  GX2DArc scaled = Arc(1, 2, 3, 4, 5, 6, 7, 8);
  scaled.Scale(scaled.Start.X, -1);
  EXPECT_POINT_EQ(scaled, Arc(3, 6, 9, 12, 15, 18, 21, 24));
}

TEST(GX2DArc, MirroringTurnsTheSenseRound) {
  GX2DArc arc = Quarter();
  EXPECT_FALSE(arc.IsClockwise());
  arc.MirrorX();
  EXPECT_TRUE(arc.IsClockwise());
  arc.MirrorY();
  EXPECT_FALSE(arc.IsClockwise());
}

TEST(GX2DArc, RadiusIsMeasuredToTheStart) {
  EXPECT_EQ(Arc(1, 1, 4, 5, 100, 100, 50, 50).Radius(), 5.0);
  EXPECT_EQ(Arc(1, 1, 1, 1, 2, 2, 3, 3).Radius(), 0.0);
}

TEST(GX2DArc, SenseIsTheSignOfStartCrossMid) {
  const GX2DArc left = Arc(0, 0, 1, 0, 0, 0.5, -1, 0);
  EXPECT_FALSE(left.IsClockwise());
  EXPECT_FALSE(left.IsCW());
  EXPECT_TRUE(left.IsCounterClockwise());
  EXPECT_TRUE(left.IsCCW());
  const GX2DArc right = Arc(0, 0, 1, 0, 0, -0.5, -1, 0);
  EXPECT_TRUE(right.IsClockwise());
  EXPECT_TRUE(right.IsCW());
  EXPECT_FALSE(right.IsCounterClockwise());
  EXPECT_FALSE(right.IsCCW());
}

TEST(GX2DArc, WithoutASenseItCountsAsCounterClockwise) {
  EXPECT_FALSE(Arc(0, 0, 1, 0, -1, 0, 0, 1).IsClockwise());
  EXPECT_TRUE(Arc(0, 0, 1, 0, -1, 0, 0, 1).IsCounterClockwise());
  EXPECT_TRUE(GX2DArc().IsCCW());
}

TEST(GX2DArc, EqualStartAndEndMakeACircle) {
  EXPECT_TRUE(Circle(0, 0, 1).IsCircle());
  EXPECT_TRUE(Arc(5, 5, 0, 0, 4, 0, 0.0001, -0.0001).IsCircle());
  EXPECT_FALSE(Arc(5, 5, 0, 0, 4, 0, std::nextafter(0.0001, 1), 0).IsCircle());
}

TEST(GX2DArc, EqualMidAndEndMakeACircleWhereverTheStart) {
  EXPECT_TRUE(Arc(0, 0, 1, 0, 0, 1, 0, 1).IsCircle());
  EXPECT_TRUE(Arc(5, 5, 9, 9, 0, 0, -0.0001, 0.0001).IsCircle());
  EXPECT_FALSE(Arc(5, 5, 9, 9, 0, 0, 0, std::nextafter(0.0001, 1)).IsCircle());
}

TEST(GX2DArc, EqualStartAndMidMakeNoCircle) {
  EXPECT_FALSE(Arc(0, 0, 1, 0, 1, 0, 0, 1).IsCircle());
}

TEST(GX2DArc, SettingTheSenseRenewsMidAndKeepsTheEnds) {
  GX2DArc arc = Quarter();
  arc.SetClockWise();
  EXPECT_POINT_EQ(arc.Mid, GX2DArc::CreateMidPoint(arc.Center, arc.Start, arc.End, true));
  EXPECT_TRUE(arc.IsClockwise());
  arc.SetCounterClockWise();
  EXPECT_POINT_EQ(arc.Mid, GX2DArc::CreateMidPoint(arc.Center, arc.Start, arc.End, false));
  EXPECT_TRUE(arc.IsCounterClockwise());
  EXPECT_POINT_EQ(arc.Start, Quarter().Start);
  EXPECT_POINT_EQ(arc.End, Quarter().End);
  EXPECT_POINT_EQ(arc.Center, Quarter().Center);
}

TEST(GX2DArc, IsAlmostEqLooksAtEachOfTheFourPoints) {
  const GX2DArc arc = Arc(0, 0, 0, 0, 0, 0, 0, 0);
  const double above = std::nextafter(0.01, 1.0);
  EXPECT_TRUE(arc.IsAlmostEq(Arc(0.01, 0, 0, 0.01, -0.01, 0, 0, -0.01), 0.01));
  EXPECT_FALSE(arc.IsAlmostEq(Arc(above, 0, 0, 0, 0, 0, 0, 0), 0.01));
  EXPECT_FALSE(arc.IsAlmostEq(Arc(0, 0, above, 0, 0, 0, 0, 0), 0.01));
  EXPECT_FALSE(arc.IsAlmostEq(Arc(0, 0, 0, 0, above, 0, 0, 0), 0.01));
  EXPECT_FALSE(arc.IsAlmostEq(Arc(0, 0, 0, 0, 0, 0, above, 0), 0.01));
}

TEST(GX2DArc, SwapPointsLeavesMid) {
  GX2DArc arc = Arc(1, 2, 3, 4, 5, 6, 7, 8);
  arc.SwapPoints();
  EXPECT_POINT_EQ(arc, Arc(1, 2, 7, 8, 5, 6, 3, 4));
}

TEST(CreateMidPoint, ShortWayLiesOnTheBisectorAtHalfTheRadius) {
  const GX2DPoint counter = GX2DArc::CreateMidPoint(Point(1, 1), Point(3, 1), Point(1, 3), false);
  EXPECT_POINT_NEAR(counter, Point(1 + kHalfRoot, 1 + kHalfRoot), 1e-15);
  const GX2DPoint clock = GX2DArc::CreateMidPoint(Point(1, 1), Point(1, 3), Point(3, 1), true);
  EXPECT_POINT_NEAR(clock, Point(1 + kHalfRoot, 1 + kHalfRoot), 1e-15);
}

TEST(CreateMidPoint, LongWayLiesOnTheOtherSide) {
  const GX2DPoint clock = GX2DArc::CreateMidPoint(Point(1, 1), Point(3, 1), Point(1, 3), true);
  EXPECT_POINT_NEAR(clock, Point(1 - kHalfRoot, 1 - kHalfRoot), 1e-15);
  const GX2DPoint counter = GX2DArc::CreateMidPoint(Point(1, 1), Point(1, 3), Point(3, 1), false);
  EXPECT_POINT_NEAR(counter, Point(1 - kHalfRoot, 1 - kHalfRoot), 1e-15);
}

TEST(CreateMidPoint, HalfATurnGoesAQuarterFromTheStart) {
  EXPECT_POINT_EQ(GX2DArc::CreateMidPoint(Point(1, 1), Point(3, 1), Point(-1, 1), false),
                  Point(1, 2));
  EXPECT_POINT_EQ(GX2DArc::CreateMidPoint(Point(1, 1), Point(3, 1), Point(-1, 1), true),
                  Point(1, 0));
}

TEST(CreateMidPoint, AFullTurnGoesAQuarterFromTheStart) {
  const GX2DPoint start(3, 1);
  EXPECT_POINT_EQ(GX2DArc::CreateMidPoint(Point(1, 1), start, start, false), Point(1, 2));
  EXPECT_POINT_EQ(GX2DArc::CreateMidPoint(Point(1, 1), start, start, true), Point(1, 0));
  const GX2DArc circle(Point(1, 1), start, start, true);
  EXPECT_POINT_EQ(circle.Mid, Point(1, 0));
  EXPECT_TRUE(circle.IsClockwise());
}

TEST(CreateMidPoint, HalfTheRadiusIsThatOfTheStart) {
  // The bisector is the sum of (2, 0) and (0, 4); half the length of the first is 1.
  const double length = std::sqrt(20.0);
  EXPECT_POINT_NEAR(GX2DArc::CreateMidPoint(Point(0, 0), Point(2, 0), Point(0, 4), false),
                    Point(2 / length, 4 / length), 1e-15);
}

TEST(CreateMidPoint, RadiiCountAsParallelUpToACrossProductOf0_0001) {
  EXPECT_POINT_EQ(GX2DArc::CreateMidPoint(Point(0, 0), Point(1, 0), Point(0, 0.0001), false),
                  Point(0, 0.5));
  const double above = std::nextafter(0.0001, 1.0);
  EXPECT_POINT_NEAR(GX2DArc::CreateMidPoint(Point(0, 0), Point(1, 0), Point(0, above), false),
                    Point(0.5, 0.00005), 1e-8);
}

TEST(CreateMidPoint, ASmallArcIsAlwaysTakenForHalfATurn) {
  // The cross product of two radii of 0.009 is at most 0.000081.
  EXPECT_POINT_NEAR(GX2DArc::CreateMidPoint(Point(0, 0), Point(0.009, 0), Point(0, -0.009), false),
                    Point(0, 0.0045), 1e-17);
}

TEST(CreateMidPoint, WithoutARadiusIsTheCentre) {
  EXPECT_POINT_EQ(GX2DArc::CreateMidPoint(Point(1, 2), Point(1, 2), Point(5, 5), true),
                  Point(1, 2));
}

TEST(CreateMidPoint, GivesTheAskedSenseForEverySweep) {
  support::Random random;
  for (int degrees = 1; degrees <= 359; ++degrees) {
    const GX2DPoint centre = random.Point2D(100);
    const double from = random.Between(0, 360);
    const GX2DPoint start = support::OnCircle(centre.X, centre.Y, 10, from);
    const GX2DPoint end = support::OnCircle(centre.X, centre.Y, 10, from + degrees);
    const GX2DArc counter(centre, start, end, false);
    const GX2DArc clock(centre, start, end, true);
    EXPECT_FALSE(counter.IsClockwise()) << degrees;
    EXPECT_TRUE(clock.IsClockwise()) << degrees;
    // Coordinates of 100 carry 1e-14; the arc cosine loses up to 1 / sin(1 degree) of it.
    EXPECT_NEAR(counter.Len(), 10 * degrees * kPi / 180, 1e-11);
    EXPECT_NEAR(clock.Len(), 10 * (360 - degrees) * kPi / 180, 1e-11);
  }
}

TEST(ReverseArc, LeavesACircleAsItIs) {
  GX2DArc circle = Circle(3, 4, 5);
  circle.Reverse();
  EXPECT_POINT_EQ(circle, Circle(3, 4, 5));
  GX2DArc byMid = Arc(0, 0, 1, 0, 0, 1, 0, 1);
  byMid.Reverse();
  EXPECT_POINT_EQ(byMid, Arc(0, 0, 1, 0, 0, 1, 0, 1));
}

TEST(ReverseArc, PutsMidAQuarterTurnFromTheNewStart) {
  GX2DArc threeQuarters = Arc(1, 1, 3, 1, -1, 3, 1, -1);
  threeQuarters.Reverse();
  EXPECT_POINT_EQ(threeQuarters, Arc(1, 1, 1, -1, -1, 1, 3, 1));
  EXPECT_TRUE(threeQuarters.IsClockwise());
  GX2DArc half = Arc(0, 0, 1, 0, 0.1, 0.7, -1, 0);
  half.Reverse();
  EXPECT_POINT_EQ(half, Arc(0, 0, -1, 0, 0, 1, 1, 0));
  half.Reverse();
  EXPECT_POINT_EQ(half, Arc(0, 0, 1, 0, 0, 1, -1, 0));
}

TEST(ReverseArc, OfAQuarterKeepsMidOffTheEnd) {
  // A quarter turn from (0, 1) the other way is (1, 0), which is the new end; the mean of both
  // radii is taken instead.
  GX2DArc counter = Arc(0, 0, 1, 0, 0.6, 0.8, 0, 1);
  counter.Reverse();
  EXPECT_POINT_EQ(counter, Arc(0, 0, 0, 1, 0.5, 0.5, 1, 0));
  GX2DArc clock = Arc(0, 0, 0, 1, 0.6, 0.8, 1, 0);
  clock.Reverse();
  EXPECT_POINT_EQ(clock, Arc(0, 0, 1, 0, 0.5, 0.5, 0, 1));
}

TEST(ReverseArc, KeepsTheLengthAndTurnsTheSense) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const GX2DArc arc = RandomArc(random);
    GX2DArc reversed = arc;
    reversed.Reverse();
    EXPECT_POINT_EQ(reversed.Start, arc.End);
    EXPECT_POINT_EQ(reversed.End, arc.Start);
    EXPECT_POINT_EQ(reversed.Center, arc.Center);
    EXPECT_NE(reversed.IsClockwise(), arc.IsClockwise());
    // Start and end lie on the circle within 3e-14, and so do the radii.
    EXPECT_NEAR(reversed.Len(), arc.Len(), 1e-10);
  }
}

TEST(NormalizeArc, MovesMidFromHalfTheRadiusOntoTheCircle) {
  GX2DArc arc(Point(1, 1), Point(3, 1), Point(1, 3), false);
  EXPECT_TRUE(arc.Normalize());
  EXPECT_POINT_NEAR(arc.Mid, Point(1 + 2 * kHalfRoot, 1 + 2 * kHalfRoot), 1e-15);
  EXPECT_POINT_EQ(arc.End, Point(1, 3));
}

TEST(NormalizeArc, MovesEndAndMidAlongTheirRays) {
  GX2DArc arc = Arc(0, 0, 5, 0, 1.5, 2, -6, -8);
  EXPECT_TRUE(arc.Normalize());
  EXPECT_POINT_EQ(arc, Arc(0, 0, 5, 0, 3, 4, -3, -4));
  GX2DArc upright = Arc(1, 1, 6, 1, 1, 3, 1, -8);
  EXPECT_TRUE(upright.Normalize());
  EXPECT_POINT_EQ(upright, Arc(1, 1, 6, 1, 1, 6, 1, -4));
}

TEST(NormalizeArc, LevelRaysStayLevel) {
  GX2DArc arc = Arc(1, 1, 6, 1, 3, 1, -1, 1);
  EXPECT_TRUE(arc.Normalize());
  EXPECT_POINT_EQ(arc, Arc(1, 1, 6, 1, 6, 1, -4, 1));
}

TEST(NormalizeArc, MovesFromADifferenceOf0_0001OnAndLeavesSmallerOnes) {
  // 0.0002 is twice 0.0001 as a double too, so the difference is 0.0001 to the bit.
  GX2DArc atLimit = Arc(0, 0, 0.0002, 0, 0.0001, 0, 0, 0.0002);
  EXPECT_TRUE(atLimit.Normalize());
  EXPECT_POINT_EQ(atLimit.Mid, Point(0.0002, 0));
  const double closer = std::nextafter(0.0001, 1.0);
  GX2DArc below = Arc(0, 0, 0.0002, 0, closer, 0, 0, closer);
  EXPECT_TRUE(below.Normalize());
  EXPECT_POINT_EQ(below.Mid, Point(closer, 0));
  EXPECT_POINT_EQ(below.End, Point(0, closer));
}

TEST(NormalizeArc, RefusesACentreOnEndOrMid) {
  GX2DArc onEnd = Arc(1, 1, 6, 1, 3, 1, 1, 1);
  EXPECT_FALSE(onEnd.Normalize());
  EXPECT_POINT_EQ(onEnd, Arc(1, 1, 6, 1, 3, 1, 1, 1));
  GX2DArc onMid = Arc(1, 1, 6, 1, 1, 1, 1, 9);
  EXPECT_FALSE(onMid.Normalize());
  EXPECT_POINT_EQ(onMid, Arc(1, 1, 6, 1, 1, 1, 1, 9));
}

TEST(NormalizeArc, TheCentreIsHitWhereTheSumOfSquaresIsZero) {
  GX2DArc arc = Arc(0, 0, 5, 0, 1e-200, 0, 0, 9);  // 1e-400 is no double but 0
  EXPECT_FALSE(arc.Normalize());
  EXPECT_POINT_EQ(arc.End, Point(0, 9));
  GX2DArc close = Arc(0, 0, 5, 0, 1e-100, 0, 0, 5);
  EXPECT_TRUE(close.Normalize());
  EXPECT_POINT_EQ(close.Mid, Point(5, 0));
}

TEST(NormalizeArc, WithoutARadiusEverythingFallsOnTheCentre) {
  GX2DArc arc = Arc(1, 1, 1, 1, 4, 5, 4, 1);
  EXPECT_TRUE(arc.Normalize());
  EXPECT_POINT_EQ(arc, Arc(1, 1, 1, 1, 1, 1, 1, 1));
}

TEST(NormalizeArc, KeepsDirectionsForAnyPoints) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    GX2DArc arc(random.Point2D(50), random.Point2D(50), random.Point2D(50), random.Point2D(50));
    const GX2DArc before = arc;
    ASSERT_TRUE(arc.Normalize());
    for (const auto& [moved, old] : {std::pair(arc.Mid, before.Mid), {arc.End, before.End}}) {
      const double dx = old.X - arc.Center.X;
      const double dy = old.Y - arc.Center.Y;
      const double factor = arc.Radius() / std::hypot(dx, dy);
      // A dozen roundings of radii up to 142.
      EXPECT_POINT_NEAR(moved, Point(arc.Center.X + dx * factor, arc.Center.Y + dy * factor),
                        2e-13);
    }
  }
}

TEST(LenOfAnArc, IsRadiusTimesSweep) {
  EXPECT_NEAR(Quarter().Len(), kPi, 1e-15);
  EXPECT_NEAR(ArcByAngles(0, 0, 4, 10, -270).Len(), 6 * kPi, 1e-13);
  EXPECT_NEAR(Arc(0, 0, 1, 0, 0, 1, -1, 0).Len(), kPi, 1e-15);
  EXPECT_EQ(Circle(0, 0, 3).Len(), 3 * 6.283185307179586);
}

TEST(LenOfAnArc, IsZeroForArcsThatAreSmallerThanTheGuard) {
  // Radii of 0.01 have a cross product of no more than 0.0001.
  EXPECT_EQ(Arc(0, 0, 0.01, 0, 0, 0.01, -0.01, 0).Len(), 0.0);
  EXPECT_NEAR(Arc(0, 0, 0.02, 0, 0, 0.02, -0.02, 0).Len(), 0.02 * kPi, 1e-15);
}

TEST(LenOfAnArc, IsZeroWithoutARadius) {
  EXPECT_EQ(Arc(1, 1, 1, 1, 2, 2, 3, 3).Len(), 0.0);
  EXPECT_EQ(GX2DArc().Len(), 0.0);
}

TEST(GetParametricPointOfAnArc, RunsFromStartToEndInItsSense) {
  GX2DPoint out;
  EXPECT_TRUE(Quarter().GetParametricPoint(out, 0.5));
  EXPECT_POINT_NEAR(out, Quarter().Mid, 1e-12);
  EXPECT_TRUE(Circle(0, 0, 2, true).GetParametricPoint(out, 0.25));
  EXPECT_POINT_NEAR(out, Point(0, -2), 1e-12);
}

TEST(GetParametricPointOfAnArc, WithoutAPlaneWritesNothing) {
  GX2DPoint out(-77, -78);
  EXPECT_FALSE(Arc(0, 0, 1, 0, -1, 0, 0, 1).GetParametricPoint(out, 0.5));
  EXPECT_POINT_EQ(out, Point(-77, -78));
}

TEST(ExtentOfAnArc, TakesTheEndsWhereTheCircleIsNotReached) {
  EXPECT_EQ(Quarter().GetMaxX(), 12.0);
  EXPECT_EQ(Quarter().GetMinX(), 10.0);
  EXPECT_EQ(Quarter().GetMinY(), 20.0);
  EXPECT_EQ(Quarter().GetMaxY(), 22.0);
}

TEST(ExtentOfAnArc, TakesTheCircleWhereTheArcReachesIt) {
  const GX2DArc clock = Arc(10, 20, 12, 20, 10 - 2 * kHalfRoot, 20 - 2 * kHalfRoot, 10, 22);
  EXPECT_EQ(clock.GetMinX(), 8.0);
  EXPECT_EQ(clock.GetMinY(), 18.0);
  EXPECT_EQ(clock.GetMaxX(), 12.0);
  EXPECT_EQ(clock.GetMaxY(), 22.0);
  const GX2DArc circle = Circle(10, 20, 2);
  EXPECT_EQ(circle.GetMinX(), 8.0);
  EXPECT_EQ(circle.GetMaxX(), 12.0);
  EXPECT_EQ(circle.GetMinY(), 18.0);
  EXPECT_EQ(circle.GetMaxY(), 22.0);
}

TEST(ExtentOfAnArc, AgreesWithDenseSampling) {
  support::Random random;
  for (int i = 0; i < 400; ++i) {
    const GX2DPoint centre = random.Point2D(100);
    const double radius = random.Between(1, 50);
    const double from = random.Between(0, 360);
    const double sweep = random.Between(1, 359) * (random.Bool() ? 1 : -1);
    const GX2DArc arc = ArcByAngles(centre.X, centre.Y, radius, from, sweep);
    double lowX = 1e300, highX = -1e300, lowY = 1e300, highY = -1e300;
    for (int k = 0; k <= 1000; ++k) {
      const GX2DPoint p = support::OnCircle(centre.X, centre.Y, radius, from + sweep * k / 1000.0);
      lowX = std::min(lowX, p.X);
      highX = std::max(highX, p.X);
      lowY = std::min(lowY, p.Y);
      highY = std::max(highY, p.Y);
    }
    // Steps of at most 0.36 degrees miss an extreme by no more than r * (0.0032 rad)^2 / 2, and an
    // angle near half a turn counts as half a turn up to 0.0015 rad.
    const double bound = radius * 1e-5;
    EXPECT_NEAR(arc.GetMinX(), lowX, bound);
    EXPECT_NEAR(arc.GetMaxX(), highX, bound);
    EXPECT_NEAR(arc.GetMinY(), lowY, bound);
    EXPECT_NEAR(arc.GetMaxY(), highY, bound);
  }
}

}  // namespace
