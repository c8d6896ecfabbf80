#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

namespace {

using support::Arc;
using support::Circle;
using support::Line;
using support::Point;

const GX2DPoint kPreset2D(-77, -78);
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();

/// Both hits as one line, the presets when there are none.
const GX2DLine kNoHits(kPreset2D, kPreset2D);
GX2DLine Hits(const GX2DLine& line, const GX2DArc& arc) {
  GX2DLine hits = kNoHits;
  const bool found = GXGeometry::Get2DLineArcIntersections(line, arc, hits.Start, hits.End);
  EXPECT_EQ(found, hits.Start != kPreset2D);
  EXPECT_EQ(found, hits.End != kPreset2D);
  return hits;
}
GX2DLine Hits(const GX2DArc& arc1, const GX2DArc& arc2) {
  GX2DLine hits = kNoHits;
  const bool found = GXGeometry::Get2DCirclesIntersection(arc1, arc2, hits.Start, hits.End);
  EXPECT_EQ(found, hits.Start != kPreset2D);
  EXPECT_EQ(found, hits.End != kPreset2D);
  return hits;
}

bool Meet(const GX2DArc& arc1, const GX2DArc& arc2) { return Hits(arc1, arc2).Start != kPreset2D; }

/// A quarter circle whose local frame, X from the centre to the start and Y towards the end, is
/// that of the plane.
GX2DArc Quarter(double centreX, double centreY, double radius) {
  const double diagonal = radius * std::sqrt(0.5);
  return Arc(centreX, centreY, centreX + radius, centreY, centreX + diagonal, centreY + diagonal,
             centreX, centreY + radius);
}

// A line and a circle.

TEST(Get2DLineArcIntersections, OnALevelLineHandsOutTheRightHitFirst) {
  const GX2DArc circle = Circle(1, 2, 5);
  // 3, 4 and 5: level at height 3 above the centre.
  EXPECT_POINT_EQ(Hits(Line(-9, 5, 9, 5), circle), Line(5, 5, -3, 5));
  EXPECT_POINT_EQ(Hits(Line(9, 5, -9, 5), circle), Line(5, 5, -3, 5));
}

TEST(Get2DLineArcIntersections, OnAVerticalLineHandsOutTheUpperHitFirst) {
  const GX2DArc circle = Circle(1, 2, 5);
  EXPECT_POINT_EQ(Hits(Line(4, -9, 4, 9), circle), Line(4, 6, 4, -2));
  EXPECT_POINT_EQ(Hits(Line(4, 9, 4, -9), circle), Line(4, 6, 4, -2));
}

TEST(Get2DLineArcIntersections, OnASlopingLineHandsOutTheUpperHitFirst) {
  // y = x and y = -x meet the circle of radius 5 about (0, 0) at 5 / sqrt(2).
  const double d = 5 * std::sqrt(0.5);
  EXPECT_POINT_NEAR(Hits(Line(-1, -1, 9, 9), Circle(0, 0, 5)), Line(d, d, -d, -d), 1e-12);
  EXPECT_POINT_NEAR(Hits(Line(9, 9, -1, -1), Circle(0, 0, 5)), Line(d, d, -d, -d), 1e-12);
  EXPECT_POINT_NEAR(Hits(Line(-1, 1, 9, -9), Circle(0, 0, 5)), Line(-d, d, d, -d), 1e-12);
}

TEST(Get2DLineArcIntersections, AreThoseOfTheUnboundedLineAndTheWholeCircle) {
  EXPECT_POINT_EQ(Hits(Line(100, 3, 101, 3), Quarter(0, 0, 5)), Line(4, 3, -4, 3));
}

TEST(Get2DLineArcIntersections, ThroughTheExactCentreAreSolvedDirectly) {
  EXPECT_POINT_EQ(Hits(Line(-9, 2, 9, 2), Circle(1, 2, 5)), Line(6, 2, -4, 2));
  // Even where the radius is so small that the tangent test would hold.
  EXPECT_POINT_EQ(Hits(Line(-9, 0, 9, 0), Circle(0, 0, 0.000005)), Line(0.000005, 0, -0.000005, 0));
  // Just off the centre of that circle it does hold.
  EXPECT_POINT_EQ(Hits(Line(-9, 0.000001, 9, 0.000001), Circle(0, 0, 0.000005)),
                  Line(0, 0.000001, 0, 0.000001));
}

TEST(Get2DLineArcIntersections, OfATangentAreTwiceTheFoot) {
  const GX2DArc circle = Circle(0, 0, 1);
  EXPECT_POINT_NEAR(Hits(Line(-3, 1, 5, 1), circle), Line(0, 1, 0, 1), 1e-15);
  EXPECT_POINT_NEAR(Hits(Line(-3, 1.000005, 5, 1.000005), circle), Line(0, 1.000005, 0, 1.000005),
                    1e-15);
  EXPECT_POINT_NEAR(Hits(Line(-3, 0.999995, 5, 0.999995), circle), Line(0, 0.999995, 0, 0.999995),
                    1e-15);
  EXPECT_POINT_EQ(Hits(Line(-3, 1.00002, 5, 1.00002), circle), kNoHits);
  const double d = std::sqrt(0.5);
  const GX2DLine hits = Hits(Line(2 * d, 0, 0, 2 * d), circle);
  EXPECT_POINT_NEAR(hits, Line(d, d, d, d), 1e-15);
  EXPECT_POINT_EQ(hits.Start, hits.End);
}

TEST(Get2DLineArcIntersections, AdmitATangent0_00001AwayFromTheCircle) {
  // Radius 0.00001 and distance 0.00002 differ by exactly the limit.
  const GX2DArc circle = Circle(0, 0, 0.00001);
  EXPECT_POINT_EQ(Hits(Line(-1, 0.00002, 1, 0.00002), circle), Line(0, 0.00002, 0, 0.00002));
  const double above = std::nextafter(0.00002, 1);
  EXPECT_POINT_EQ(Hits(Line(-1, above, 1, above), circle), kNoHits);
}

TEST(Get2DLineArcIntersections, CloseInsideTheTangentAreTwoHits) {
  // At height 1 - 0.00002 the hits lie at sqrt(2 * 0.00002 - 0.00002^2) from the foot.
  const double half = std::sqrt(0.00004 - 4e-10);
  EXPECT_POINT_NEAR(Hits(Line(-3, 0.99998, 5, 0.99998), Circle(0, 0, 1)),
                    Line(half, 0.99998, -half, 0.99998), 1e-12);
}

TEST(Get2DLineArcIntersections, OfACircleWithoutRadiusAreItsCentreTwice) {
  const GX2DArc none = Circle(2, 3, 0);
  EXPECT_POINT_EQ(Hits(Line(0, 3, 9, 3), none), Line(2, 3, 2, 3));
  EXPECT_POINT_EQ(Hits(Line(2, 0, 2, 9), none), Line(2, 3, 2, 3));
  EXPECT_POINT_EQ(Hits(Line(0, 0, 9, 9), Circle(0, 0, 0)), Line(0, 0, 0, 0));
  // There is no tangent to it either.
  EXPECT_POINT_EQ(Hits(Line(0, 3.000005, 9, 3.000005), none), kNoHits);
  EXPECT_POINT_EQ(Hits(Line(0, 4, 9, 4), none), kNoHits);
  EXPECT_POINT_EQ(Hits(Line(3, 0, 3, 9), none), kNoHits);
  EXPECT_POINT_EQ(Hits(Line(0, 4, 9, 9), none), kNoHits);
}

TEST(Get2DLineArcIntersections, TakeALineWithoutLengthForALevelOne) {
  EXPECT_POINT_EQ(Hits(Line(0, 3, 0, 3), Circle(0, 0, 5)), Line(4, 3, -4, 3));
  EXPECT_POINT_EQ(Hits(Line(0, 9, 0, 9), Circle(0, 0, 5)), kNoHits);
}

TEST(Get2DLineArcIntersections, AskForALevelLineBeforeAVerticalOne) {
  // 0.00001 high and upright: still level.
  EXPECT_POINT_EQ(Hits(Line(0.5, 0, 0.5, 0.00001), Circle(0, 0, 1)), Line(1, 0, -1, 0));
  const double above = std::nextafter(0.00001, 1);
  const double half = std::sqrt(0.75);
  EXPECT_POINT_NEAR(Hits(Line(0.5, 0, 0.5, above), Circle(0, 0, 1)), Line(0.5, half, 0.5, -half),
                    1e-15);
}

TEST(Get2DLineArcIntersections, CountAnExtentOf0_00001AsVertical) {
  EXPECT_POINT_EQ(Hits(Line(0, -1, 0.00001, 1), Circle(0, 0, 1)), Line(0, 1, 0, -1));
  const double above = std::nextafter(0.00001, 1);
  // The sloping line leaves the circle near (0.00001, 1) and (0, -1).
  EXPECT_POINT_NEAR(Hits(Line(0, -1, above, 1), Circle(0, 0, 1)), Line(above, 1, 0, -1), 1e-9);
}

TEST(Get2DLineArcIntersections, OnAFlatLineAreTheSameAsOnAnyOther) {
  // y = 0.005 x + 1 in a circle of radius 5: x = (-0.005 +- sqrt(25 * 1.000025 - 1)) / 1.000025.
  const double root = std::sqrt(25 * 1.000025 - 1);
  const double right = (-0.005 + root) / 1.000025;
  const double left = (-0.005 - root) / 1.000025;
  const GX2DLine expected(right, 0.005 * right + 1, left, 0.005 * left + 1);
  EXPECT_POINT_NEAR(Hits(Line(0, 1, 1, 1.005), Circle(0, 0, 5)), expected, 1e-11);
  // The same line given by points that are far apart is not flat, and climbs to the right.
  EXPECT_POINT_NEAR(Hits(Line(-100, 0.5, 100, 1.5), Circle(0, 0, 5)), expected, 1e-9);
}

TEST(Get2DLineArcIntersections, OnAFlatLineTurnAboutTheCentre) {
  const GX2DLine expected = Hits(Line(0, 1, 1, 1.005), Circle(0, 0, 5));
  const GX2DLine moved = Hits(Line(30, -19, 31, -18.995), Circle(30, -20, 5));
  EXPECT_POINT_NEAR(
      moved,
      Line(expected.Start.X + 30, expected.Start.Y - 20, expected.End.X + 30, expected.End.Y - 20),
      1e-10);
}

TEST(Get2DLineArcIntersections, OnAFlatLineHandOutTheRightHitFirst) {
  // Falling to the right the right hit is the lower one, which otherwise comes second.
  const GX2DLine flat = Hits(Line(0, 0, 1, -0.005), Circle(0, 0, 2));
  EXPECT_GT(flat.Start.X, 0);
  EXPECT_LT(flat.End.X, 0);
  const GX2DLine atLimit = Hits(Line(0, 0, 1, -0.01), Circle(0, 0, 2));
  EXPECT_GT(atLimit.Start.X, 0);
  EXPECT_LT(atLimit.End.X, 0);
  const GX2DLine above = Hits(Line(0, 0, 1, -std::nextafter(0.01, 1)), Circle(0, 0, 2));
  EXPECT_LT(above.Start.X, 0);
  EXPECT_GT(above.End.X, 0);
}

TEST(Get2DLineArcIntersections, OnAShortSteepLineTurnAsWell) {
  // 0.009 high only, though it climbs nine for one: y = 9 x, hits at x = +-5 / sqrt(82).
  const double x = 5 / std::sqrt(82.0);
  EXPECT_POINT_NEAR(Hits(Line(0, 0, 0.001, 0.009), Circle(0, 0, 5)), Line(x, 9 * x, -x, -9 * x),
                    1e-10);
}

TEST(Get2DLineArcIntersections, FindNoneForALineThatPasses) {
  EXPECT_POINT_EQ(Hits(Line(-9, 6, 9, 6), Circle(0, 0, 5)), kNoHits);
  EXPECT_POINT_EQ(Hits(Line(6, -9, 6, 9), Circle(0, 0, 5)), kNoHits);
  EXPECT_POINT_EQ(Hits(Line(0, 10, 10, 0), Circle(0, 0, 5)), kNoHits);
  EXPECT_POINT_EQ(Hits(Line(0, 6, 1, 6.005), Circle(0, 0, 5)), kNoHits);
}

TEST(Get2DLineArcIntersections, MayWriteIntoTheArguments) {
  GX2DLine line(0, 1, 1, 1.005);
  GX2DArc circle = Circle(0, 0, 5);
  const GX2DLine expected = Hits(line, circle);
  EXPECT_TRUE(GXGeometry::Get2DLineArcIntersections(line, circle, line.Start, line.End));
  EXPECT_POINT_EQ(line, expected);
  EXPECT_TRUE(GXGeometry::Get2DLineArcIntersections(Line(0, 1, 1, 1.005), circle, circle.Center,
                                                    circle.Start));
  EXPECT_POINT_EQ(GX2DLine(circle.Center, circle.Start), expected);
}

TEST(Get2DLineArcIntersections, AgreeWithTheFootAndTheHalfChord) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const GX2DLine line(random.Point2D(20), random.Point2D(20));
    const GX2DPoint centre = random.Point2D(20);
    const double r = random.Between(1, 10);
    const long double vx = static_cast<long double>(line.End.X) - line.Start.X;
    const long double vy = static_cast<long double>(line.End.Y) - line.Start.Y;
    const long double length = std::sqrt(vx * vx + vy * vy);
    const long double ux = vx / length;
    const long double uy = vy / length;
    const long double along = (centre.X - line.Start.X) * ux + (centre.Y - line.Start.Y) * uy;
    const long double side = (centre.X - line.Start.X) * uy - (centre.Y - line.Start.Y) * ux;
    if (length < 1 || std::fabs(vy) < 0.2L || std::fabs(vx) < 0.2L) {
      continue;  // level, vertical and flat lines have tests of their own
    }
    if (std::fabs(std::fabs(side) - r) < 0.01L * r) {
      continue;
    }
    if (std::fabs(side) > r) {
      EXPECT_POINT_EQ(Hits(line, Circle(centre.X, centre.Y, r)), kNoHits);
      continue;
    }
    const long double half = std::sqrt(r * r - side * side);
    const long double up = uy > 0 ? half : -half;  // the upper hit comes first
    const GX2DLine expected(static_cast<double>(line.Start.X + (along + up) * ux),
                            static_cast<double>(line.Start.Y + (along + up) * uy),
                            static_cast<double>(line.Start.X + (along - up) * ux),
                            static_cast<double>(line.Start.Y + (along - up) * uy));
    // x as a function of y: figures of 1e12 below the root, whose rounding x multiplies by 200.
    EXPECT_POINT_NEAR(Hits(line, Circle(centre.X, centre.Y, r)), expected, 1e-7) << i;
  }
}

// Two circles.

TEST(Get2DCirclesIntersection, HandsOutTheHitOnTheEndsSideOfTheFirstArcFirst) {
  // Centres 6 apart, radii 5: half way, 4 to either side.
  EXPECT_POINT_NEAR(Hits(Quarter(0, 0, 5), Quarter(6, 0, 5)), Line(3, 4, 3, -4), 1e-12);
  const GX2DArc downwards = Arc(0, 0, 5, 0, 3, -4, 0, -5);
  EXPECT_POINT_NEAR(Hits(downwards, Quarter(6, 0, 5)), Line(3, -4, 3, 4), 1e-12);
  const GX2DArc fromTheLeft = Arc(0, 0, -5, 0, -3, 4, 0, 5);
  EXPECT_POINT_NEAR(Hits(fromTheLeft, Quarter(6, 0, 5)), Line(3, 4, 3, -4), 1e-12);
}

TEST(Get2DCirclesIntersection, IsThatOfWholeCirclesOfAnyRadii) {
  // Radii 15 and 13, centres 14 apart: the triangle 13, 14, 15 has height 12, foot 9 from the
  // first.
  EXPECT_POINT_NEAR(Hits(Quarter(1, 2, 15), Quarter(15, 2, 13)), Line(10, 14, 10, -10), 1e-12);
  EXPECT_POINT_NEAR(Hits(Quarter(15, 2, 13), Quarter(1, 2, 15)), Line(10, 14, 10, -10), 1e-12);
}

TEST(Get2DCirclesIntersection, TakesTheRadiiFromTheStarts) {
  const GX2DArc first = Arc(0, 0, 5, 0, 3, 4, 0, 7);
  const GX2DArc second = Arc(6, 0, 11, 0, 9, 4, 6, 9);
  EXPECT_POINT_NEAR(Hits(first, second), Line(3, 4, 3, -4), 1e-12);
}

TEST(Get2DCirclesIntersection, RefusesHalfCirclesAndFullCircles) {
  const GX2DArc quarter = Quarter(0, 0, 5);
  const GX2DArc half = Arc(6, 0, 11, 0, 6, 5, 1, 0);
  EXPECT_POINT_EQ(Hits(quarter, half), kNoHits);
  EXPECT_POINT_EQ(Hits(half, quarter), kNoHits);
  EXPECT_POINT_EQ(Hits(quarter, Circle(6, 0, 5)), kNoHits);
  EXPECT_POINT_EQ(Hits(Circle(6, 0, 5), quarter), kNoHits);
}

TEST(Get2DCirclesIntersection, RefusesEndsNearerThan0_00001ToTheLineThroughCentreAndStart) {
  const double below = std::nextafter(0.00001, 0);
  EXPECT_POINT_EQ(Hits(Arc(0, 0, 5, 0, 0, 5, -5, below), Quarter(6, 0, 5)), kNoHits);
  EXPECT_POINT_NEAR(Hits(Arc(0, 0, 5, 0, 0, 5, -5, 0.00001), Quarter(6, 0, 5)), Line(3, 4, 3, -4),
                    1e-9);
}

TEST(Get2DCirclesIntersection, FindsNoneForCirclesThatTouchFromOutside) {
  EXPECT_POINT_EQ(Hits(Quarter(0, 0, 5), Quarter(8, 0, 3)), kNoHits);
  EXPECT_POINT_EQ(Hits(Quarter(0, 0, 5), Quarter(9, 0, 3)), kNoHits);
  EXPECT_POINT_EQ(Hits(Quarter(0, 0, 5), Quarter(8 - 0.0000009, 0, 3)), kNoHits);
  EXPECT_TRUE(Meet(Quarter(0, 0, 5), Quarter(8 - 0.0000011, 0, 3)));
}

TEST(Get2DCirclesIntersection, AdmitsDistancesAtBothLimits) {
  // Starting straight above its centre the second has a radius of exactly 3.
  for (const double d : {(5.0 + 3.0) - 0.000001, (5.0 + 0.00001) - 3.0}) {
    EXPECT_TRUE(Meet(Quarter(0, 0, 5), Arc(d, 0, d, 3, d - 2, 2, d - 3, 0))) << d;
  }
}

TEST(Get2DCirclesIntersection, FindsTwoHitsForCirclesThatOverlapBy0_00001) {
  // The half chord is sqrt(r1^2 - f^2), f = (d^2 + 25 - 9) / (2 d), d = 8 - 0.00001.
  const double d = 8 - 0.00001;
  const double foot = (d * d + 16) / (2 * d);
  const double half = std::sqrt((5 - foot) * (5 + foot));
  // Some 0.006, a root of figures that carry 1e-14.
  EXPECT_POINT_NEAR(Hits(Quarter(0, 0, 5), Quarter(d, 0, 3)), Line(foot, half, foot, -half), 1e-9);
}

TEST(Get2DCirclesIntersection, FindsNoneForCirclesThatTouchFromInside) {
  EXPECT_POINT_EQ(Hits(Quarter(0, 0, 5), Quarter(1, 0, 3)), kNoHits);
  EXPECT_POINT_EQ(Hits(Quarter(0, 0, 5), Quarter(2, 0, 3)), kNoHits);
  EXPECT_POINT_EQ(Hits(Quarter(2, 0, 3), Quarter(0, 0, 5)), kNoHits);
  EXPECT_POINT_EQ(Hits(Quarter(0, 0, 5), Quarter(2.0000099, 0, 3)), kNoHits);
  EXPECT_TRUE(Meet(Quarter(0, 0, 5), Quarter(2.0000101, 0, 3)));
  EXPECT_TRUE(Meet(Quarter(2.0000101, 0, 3), Quarter(0, 0, 5)));
  EXPECT_POINT_EQ(Hits(Quarter(0, 0, 5), Quarter(0, 0, 5)), kNoHits);
}

TEST(Get2DCirclesIntersection, WithCentresOnAVerticalOfTheFrameRootsTheWrongFigure) {
  // Radii 5, centres 6 apart: K = 36 / 2 = 18, y = 18 / 6 = 3, and sqrt(18 - 9) = 3 where the true
  // half chord is sqrt(25 - 9) = 4.
  EXPECT_POINT_NEAR(Hits(Quarter(0, 0, 5), Quarter(0, 6, 5)), Line(3, 3, -3, 3), 1e-12);
  // Below the first centre: K = 18 again, y = 18 / -6 = -3.
  EXPECT_POINT_NEAR(Hits(Quarter(0, 0, 5), Quarter(0, -6, 5)), Line(3, -3, -3, -3), 1e-12);
  // 13, 14, 15: K = (225 - 169 + 196) / 2 = 126, y = 9, sqrt(126 - 81) where 12 would be true.
  EXPECT_POINT_NEAR(Hits(Quarter(1, 2, 15), Quarter(1, 16, 13)),
                    Line(1 + std::sqrt(45.0), 11, 1 - std::sqrt(45.0), 11), 1e-12);
}

TEST(Get2DCirclesIntersection, DependsOnWhereTheFirstArcStarts) {
  // The same two circles. From (5, 0) the second centre lies on the local X axis: the true hits.
  const GX2DArc second = Quarter(-6, 0, 5);
  EXPECT_POINT_NEAR(Hits(Quarter(0, 0, 5), second), Line(-3, 4, -3, -4), 1e-12);
  // From (0, 5) with Y to the left it lies on the local vertical: 3 either way along local X.
  const GX2DArc upwards = Arc(0, 0, 0, 5, -3, 4, -5, 0);
  EXPECT_POINT_NEAR(Hits(upwards, second), Line(-3, 3, -3, -3), 1e-12);
}

TEST(Get2DCirclesIntersection, OnTheVerticalMayTakeTheRootOfANegativeFigure) {
  // K = (4 - 36 + 25) / 2 = -3.5, y = -0.7: within the first circle, but -3.5 - 0.49 has no root.
  GX2DPoint first;
  GX2DPoint second;
  EXPECT_TRUE(
      GXGeometry::Get2DCirclesIntersection(Quarter(0, 0, 2), Quarter(0, 5, 6), first, second));
  EXPECT_TRUE(std::isnan(first.X));
  EXPECT_TRUE(std::isnan(second.X));
}

TEST(Get2DCirclesIntersection, CountsAnOffsetOf0_0000001AsVertical) {
  EXPECT_POINT_NEAR(Hits(Quarter(0, 0, 5), Quarter(1e-7, 6, 5)), Line(3, 3, -3, 3), 1e-6);
  EXPECT_POINT_NEAR(Hits(Quarter(0, 0, 5), Quarter(-1e-7, 6, 5)), Line(3, 3, -3, 3), 1e-6);
  // A little further the offset is divided by, and little of what comes out can be trusted.
  EXPECT_GT(std::fabs(Hits(Quarter(0, 0, 5), Quarter(1.1e-7, 6, 5)).Start.X - 3), 1e-3);
  // A hundred times as far the true hits come out, the upper one, at the left, first. The formula
  // divides by the offset twice and keeps four digits.
  EXPECT_POINT_NEAR(Hits(Quarter(0, 0, 5), Quarter(1e-5, 6, 5)), Line(-4, 3, 4, 3), 0.01);
}

TEST(Get2DCirclesIntersection, MayWriteIntoTheArguments) {
  GX2DArc arc1 = Quarter(0, 0, 5);
  GX2DArc arc2 = Quarter(6, 1, 5);
  const GX2DLine expected = Hits(arc1, arc2);
  EXPECT_TRUE(GXGeometry::Get2DCirclesIntersection(arc1, arc2, arc1.Center, arc2.Start));
  EXPECT_POINT_EQ(GX2DLine(arc1.Center, arc2.Start), expected);
}

/// The crossings of two circles that have some, that on the left of the way between the centres
/// first, in long double.
GX2DLine PlainHits(const GX2DPoint& centre1, double r1, const GX2DPoint& centre2, double r2) {
  const long double dx = static_cast<long double>(centre2.X) - centre1.X;
  const long double dy = static_cast<long double>(centre2.Y) - centre1.Y;
  const long double d = std::sqrt(dx * dx + dy * dy);
  const long double q1 = static_cast<long double>(r1) * r1;
  const long double foot = (d * d + q1 - static_cast<long double>(r2) * r2) / (2 * d);
  const long double half = std::sqrt(q1 - foot * foot);
  const long double x = centre1.X + foot * dx / d;
  const long double y = centre1.Y + foot * dy / d;
  return {static_cast<double>(x - half * dy / d), static_cast<double>(y + half * dx / d),
          static_cast<double>(x + half * dy / d), static_cast<double>(y - half * dx / d)};
}

/// A circle in the frame of the first arc; the square of the radius is that of the distance to the
/// start.
struct LocalCircle {
  GX2DPoint centre;
  double squaredRadius;
};

double Squared(double x) { return x * x; }

/// The crossings of two circles whose centres are not above each other, by the formula that fixes
/// every bit of them.
GX2DLine LocalHits(const LocalCircle& one, const LocalCircle& two) {
  const GX2DPoint& c1 = one.centre;
  const GX2DPoint& c2 = two.centre;
  const double dx = c2.X - c1.X, dy = c2.Y - c1.Y;
  const double k = ((one.squaredRadius - two.squaredRadius) - (Squared(c1.X) - Squared(c2.X)) -
                    (Squared(c1.Y) - Squared(c2.Y))) *
                   0.5;
  const double m = dy / dx, a = m * m + 1, e = k / dx - c1.X, b = (e * m + c1.Y) * -2;
  const double root = std::sqrt(b * b - 4 * a * ((e * e + c1.Y * c1.Y) - one.squaredRadius));
  const double upper = (root - b) / (2 * a);
  const double lower = (-b - root) / (2 * a);
  return {(k - dy * upper) / dx, upper, (k - dy * lower) / dx, lower};
}

TEST(Get2DCirclesIntersection, ComesFromTheFrameOfTheFirstArcToTheLastBit) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const GX2DPoint p = random.Point2D(3), q = random.Point2D(3);
    const GX2DArc arc1 = support::ArcByAngles(p.X, p.Y, 5, random.Between(0, 360), 80);
    const GX2DArc arc2 = support::ArcByAngles(q.X, q.Y, 6, random.Between(0, 360), -70);
    const GX3DPoint origin(p, 2);
    const GXColBasedTransformMatrix toLocal(origin, {arc1.Start, 2}, {arc1.End, 2});
    GXColBasedTransformMatrix toGlobal = toLocal;
    ASSERT_TRUE(toGlobal.Inverse());
    const auto local = [&](const GX2DArc& arc) {
      GX3DPoint centre(arc.Center, 2), start(arc.Start, 2);
      centre.TransformGloLoc(origin, toLocal);
      start.TransformGloLoc(origin, toLocal);
      return LocalCircle{{centre, 2}, Squared(start.X - centre.X) + Squared(start.Y - centre.Y)};
    };
    const GX2DPoint offset = local(arc2).centre;
    if (offset.X * offset.X + offset.Y * offset.Y < 1.21 || std::fabs(offset.X) < 0.001) {
      continue;  // one inside the other, or on the vertical of the frame
    }
    GX3DLine expected(LocalHits(local(arc1), local(arc2)), 2);
    expected.TransformLocGlo(origin, toGlobal);
    EXPECT_POINT_EQ(Hits(arc1, arc2), GX2DLine(expected, 2));
  }
}

TEST(Get2DCirclesIntersection, AgreesWithTheRadicalLine) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const GX2DPoint centre1 = random.Point2D(20);
    const double r1 = random.Between(2, 10);
    const double r2 = random.Between(2, 10);
    const double bearing = random.Between(0, 360);
    const double d = random.Between(std::fabs(r1 - r2) + 0.5, r1 + r2 - 0.5);
    const GX2DPoint centre2 = support::OnCircle(centre1.X, centre1.Y, d, bearing);
    const double from = random.Between(0, 360);
    const bool clockwise = random.Bool();
    const double localX = d * std::cos((bearing - from) * support::kPi / 180);
    if (std::fabs(localX) < 2) {
      continue;  // near the vertical of the frame
    }
    const GX2DArc arc1 = support::ArcByAngles(centre1.X, centre1.Y, r1, from, clockwise ? -80 : 80);
    const GX2DArc arc2 = support::ArcByAngles(centre2.X, centre2.Y, r2, random.Between(0, 360), 70);
    GX2DLine expected = PlainHits(centre1, r1, centre2, r2);
    // The first hit is the higher one in the frame of the first arc: left of the way between the
    // centres is upwards where that way leads to positive x.
    if ((localX > 0) == clockwise) {
      std::swap(expected.Start, expected.End);
    }
    // With slopes up to 10 in the frame the discriminant loses six digits at most.
    EXPECT_POINT_NEAR(Hits(arc1, arc2), expected, 1e-7) << i;
  }
}

TEST(CircleCrossings, SurviveNumbersThatAreNotFinite) {
  for (const double odd : {kNaN, kInfinity, -kInfinity, 1e308}) {
    GX2DPoint first;
    GX2DPoint second;
    for (const GX2DLine& line : {Line(odd, 0, 1, 1), Line(0, odd, 1, 1), Line(0, 0, odd, odd)}) {
      GXGeometry::Get2DLineArcIntersections(line, Circle(0, 0, 5), first, second);
      GXGeometry::Get2DLineArcIntersections(Line(0, 1, 1, 2), Circle(odd, 0, 5), first, second);
    }
    GXGeometry::Get2DCirclesIntersection(Quarter(odd, 0, 5), Quarter(6, 0, 5), first, second);
    GXGeometry::Get2DCirclesIntersection(Quarter(0, 0, 5), Quarter(6, odd, 5), first, second);
    GXGeometry::Get2DCirclesIntersection(Quarter(0, 0, odd), Quarter(6, 0, 5), first, second);
  }
}

}  // namespace
