// Tangents from a point and an arc cut in two.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using support::Arc;
using support::ArcByAngles;
using support::Circle;
using support::Line;
using support::Point;

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();

struct Tangents {
  bool result = false;
  std::vector<GX2DLine> lines;
};

Tangents From(const GX2DPoint& p, const GX2DArc& arc) {
  Tangents tangents;
  tangents.result = GXGeometry::GetLinesTangentToArcFromPoint(p, arc, tangents.lines);
  return tangents;
}

/// A radius of 3 and a distance of 5: the contacts lie 9/5 towards the point and 12/5 across.
void ExpectTangents(const GX2DPoint& p, bool result, const GX2DPoint& first,
                    const GX2DPoint& second) {
  const Tangents tangents = From(p, Circle(10, 20, 3));
  EXPECT_EQ(tangents.result, result);
  ASSERT_EQ(tangents.lines.size(), 2u);
  EXPECT_POINT_EQ(tangents.lines[0].Start, p);
  EXPECT_POINT_EQ(tangents.lines[1].Start, p);
  EXPECT_POINT_NEAR(tangents.lines[0].End, first, 1e-12);
  EXPECT_POINT_NEAR(tangents.lines[1].End, second, 1e-12);
}

TEST(GetLinesTangentToArcFromPoint, BesideTheCenterAppendsTheUpperLineFirst) {
  ExpectTangents(Point(15, 20), true, Point(11.8, 22.4), Point(11.8, 17.6));
  ExpectTangents(Point(5, 20), true, Point(8.2, 22.4), Point(8.2, 17.6));
}

TEST(GetLinesTangentToArcFromPoint, AboveAndBelowTheCenterReturnsFalseThoughItAppendsBothLines) {
  ExpectTangents(Point(10, 25), false, Point(12.4, 21.8), Point(7.6, 21.8));
  ExpectTangents(Point(10, 15), false, Point(12.4, 18.2), Point(7.6, 18.2));
}

TEST(GetLinesTangentToArcFromPoint, TakesAPointForUprightBelow0_0001) {
  const GX2DArc arc = Circle(0, 0, 3);
  for (const double side : {1.0, -1.0}) {
    EXPECT_TRUE(From(Point(side * 0.0001, 5), arc).result);
    const Tangents upright = From(Point(std::nextafter(side * 0.0001, 0), 5), arc);
    EXPECT_FALSE(upright.result);
    ASSERT_EQ(upright.lines.size(), 2u);
    EXPECT_POINT_NEAR(upright.lines[0].End, Point(2.4, 1.8), 1e-12);
  }
}

TEST(GetLinesTangentToArcFromPoint, AppendsNothingFromTheCircleOrInsideIt) {
  const GX2DArc arc = Circle(10, 20, 3);
  for (const GX2DPoint& p : {Point(13, 20), Point(10, 23), Point(11, 20), Point(10, 20)}) {
    const Tangents none = From(p, arc);
    EXPECT_FALSE(none.result);
    EXPECT_TRUE(none.lines.empty());
  }
}

TEST(GetLinesTangentToArcFromPoint, WantsTheSquareOfTheDistanceMoreThan0_0001Greater) {
  // A circle without radius, so that the square itself is compared: 0.01 * 0.01 is 0.0001.
  const GX2DArc dot = Circle(0, 0, 0);
  EXPECT_TRUE(From(Point(0.01, 0), dot).lines.empty());
  EXPECT_EQ(From(Point(0.0100001, 0), dot).lines.size(), 2u);
  EXPECT_TRUE(From(Point(0, 0.01), dot).lines.empty());
  EXPECT_EQ(From(Point(0, 0.0100001), dot).lines.size(), 2u);
  // 0.001 outside a circle of radius 3 is 0.006 in the square; 0.00001 is 0.00006.
  EXPECT_EQ(From(Point(3.001, 0), Circle(0, 0, 3)).lines.size(), 2u);
  EXPECT_TRUE(From(Point(3.00001, 0), Circle(0, 0, 3)).lines.empty());
}

TEST(GetLinesTangentToArcFromPoint, AppendsToWhatIsThere) {
  for (const GX2DPoint& p : {Point(15, 20), Point(10, 25)}) {
    std::vector<GX2DLine> lines = {Line(1, 2, 3, 4)};
    GXGeometry::GetLinesTangentToArcFromPoint(p, Circle(10, 20, 3), lines);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_POINT_EQ(lines[0], Line(1, 2, 3, 4));
  }
}

TEST(GetLinesTangentToArcFromPoint, AsksForTheWholeCircleByTheStartOfTheArc) {
  // The end and the middle lie elsewhere, and neither contact lies on the arc.
  const Tangents tangents = From(Point(5, 0), Arc(0, 0, -3, 0, -99, 5, 0, -77));
  EXPECT_TRUE(tangents.result);
  ASSERT_EQ(tangents.lines.size(), 2u);
  EXPECT_POINT_NEAR(tangents.lines[0].End, Point(1.8, 2.4), 1e-12);
}

TEST(GetLinesTangentToArcFromPoint, TouchesTheCircleAtRightAnglesToTheRadius) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const GX2DPoint centre = random.Point2D(50);
    const double radius = random.Between(1, 20);
    const GX2DPoint p = random.Point2D(100);
    if (std::hypot(p.X - centre.X, p.Y - centre.Y) < radius + 0.1) continue;
    if (std::fabs(p.X - centre.X) < 1) continue;
    const Tangents tangents = From(p, ArcByAngles(centre.X, centre.Y, radius, 30 * i, 50));
    ASSERT_TRUE(tangents.result) << i;
    ASSERT_EQ(tangents.lines.size(), 2u) << i;
    EXPECT_GT(tangents.lines[0].End.Y, tangents.lines[1].End.Y) << i;
    for (const GX2DLine& line : tangents.lines) {
      EXPECT_POINT_EQ(line.Start, p) << i;
      const double x = line.End.X - centre.X;
      const double y = line.End.Y - centre.Y;
      // Slopes up to 150 and offsets up to some 1000 enter squared.
      EXPECT_NEAR(std::hypot(x, y), radius, 1e-6) << i;
      const double length = line.Len();
      EXPECT_NEAR((x * (line.End.X - p.X) + y * (line.End.Y - p.Y)) / (length * radius), 0, 1e-6)
          << i;
    }
  }
}

TEST(GetLinesTangentToArcFromPoint, SurvivesNumbersThatAreNotFinite) {
  for (const double odd : {kNaN, kInfinity, -kInfinity, 1e308}) {
    for (const GX2DPoint& p : {Point(odd, 1), Point(0, odd), Point(odd, odd), Point(7, 8)}) {
      EXPECT_LE(From(p, Circle(0, 0, 3)).lines.size(), 2u);
      EXPECT_LE(From(p, Circle(odd, 0, 3)).lines.size(), 2u);
      EXPECT_LE(From(p, Circle(0, odd, odd)).lines.size(), 2u);
    }
  }
  EXPECT_TRUE(From(Point(kNaN, 1), Circle(0, 0, 3)).lines.empty());
}

// Cutting an arc.

struct Halves {
  GX2DArc first = Arc(-1, -2, -3, -4, -5, -6, -7, -8);
  GX2DArc second = Arc(-1, -2, -3, -4, -5, -6, -7, -8);
};

Halves Divided(const GX2DArc& arc, const GX2DPoint& p) {
  Halves halves;
  GXGeometry::Divide2DArcAtPoint(arc, p, halves.first, halves.second);
  return halves;
}

const double kDiagonal = 5 / std::sqrt(2.0);

TEST(Divide2DArcAtPoint, EndsTheFirstAndStartsTheSecondAtThePoint) {
  const Halves halves = Divided(Arc(10, 20, 15, 20, 14, 23, 10, 25), Point(13, 24));
  EXPECT_POINT_EQ(halves.first, Arc(10, 20, 15, 20, 14, 23, 13, 24));
  EXPECT_POINT_EQ(halves.second, Arc(10, 20, 13, 24, 10 - 4, 20 + 3, 10, 25));
}

TEST(Divide2DArcAtPoint, PutsTheMiddleOfTheSecondAQuarterTurnBehindThePointInTheSenseOfTheArc) {
  const Halves clockwise = Divided(Arc(10, 20, 15, 20, 14, 17, 10, 15), Point(13, 16));
  EXPECT_POINT_EQ(clockwise.second, Arc(10, 20, 13, 16, 10 - 4, 20 - 3, 10, 15));
  EXPECT_TRUE(clockwise.second.IsClockwise());
}

TEST(Divide2DArcAtPoint, LeavesTheFirstItsMiddleEvenBeyondThePoint) {
  // The middle (0, 5) lies beyond (4, 3).
  const Halves halves = Divided(Arc(0, 0, 5, 0, 0, 5, -5, 0), Point(4, 3));
  EXPECT_POINT_EQ(halves.first, Arc(0, 0, 5, 0, 0, 5, 4, 3));
}

TEST(Divide2DArcAtPoint, CountsAnArcWithoutASenseAsCounterClockwise) {
  const Halves halves = Divided(Arc(0, 0, 5, 0, -5, 0, 0, 5), Point(4, 3));
  EXPECT_POINT_EQ(halves.second.Mid, Point(-3, 4));
}

TEST(Divide2DArcAtPoint, OfACircleAtItsStartPutsTheMiddleAnEighthBehindThePoint) {
  const Halves left = Divided(Circle(0, 0, 5), Point(5, 0));
  EXPECT_POINT_EQ(left.first, Circle(0, 0, 5));  // with the old middle
  EXPECT_POINT_NEAR(left.second, Arc(0, 0, 5, 0, kDiagonal, kDiagonal, 5, 0), 1e-14);
  const Halves right = Divided(Circle(0, 0, 5, true), Point(5, 0));
  EXPECT_POINT_EQ(right.first, Circle(0, 0, 5, true));
  EXPECT_POINT_NEAR(right.second, Arc(0, 0, 5, 0, kDiagonal, -kDiagonal, 5, 0), 1e-14);
}

TEST(Divide2DArcAtPoint, OfACircleElsewhereLeavesAnArcAndItsMiddleAQuarterBehindThePoint) {
  const Halves halves = Divided(Circle(0, 0, 5), Point(0, 5));
  EXPECT_POINT_EQ(halves.first, Arc(0, 0, 5, 0, 0, 5, 0, 5));
  EXPECT_POINT_EQ(halves.second, Arc(0, 0, 0, 5, -5, 0, 5, 0));
}

TEST(Divide2DArcAtPoint, PutsTheMiddleAnEighthBehindThePointWhereAQuarterIsTheEnd) {
  const Halves half = Divided(Arc(0, 0, 5, 0, 0, 5, -5, 0), Point(0, 5));
  EXPECT_POINT_NEAR(half.second, Arc(0, 0, 0, 5, -kDiagonal, kDiagonal, -5, 0), 1e-14);
  const Halves circle = Divided(Circle(0, 0, 5), Point(0, -5));
  EXPECT_POINT_NEAR(circle.second, Arc(0, 0, 0, -5, kDiagonal, -kDiagonal, 5, 0), 1e-14);
  // Within the 0.0001 of a circle.
  const Halves near = Divided(Arc(0, 0, 5, 0, 0, 5, -5, 0.00009), Point(0, 5));
  EXPECT_POINT_NEAR(near.second.Mid, Point(-kDiagonal, kDiagonal), 1e-14);
  const Halves far = Divided(Arc(0, 0, 5, 0, 0, 5, -5, 0.00011), Point(0, 5));
  EXPECT_POINT_EQ(far.second.Mid, Point(-5, 0));
}

TEST(Divide2DArcAtPoint, KeepsTheDistanceOfAPointOffTheArc) {
  const Halves halves = Divided(Arc(0, 0, 5, 0, 4, 3, 0, 5), Point(6, 8));
  EXPECT_POINT_EQ(halves.first.End, Point(6, 8));
  EXPECT_POINT_EQ(halves.second.Mid, Point(-8, 6));
  // A circle of its own making: the end is the point, 10 from the center.
  const Halves circle = Divided(Arc(0, 0, 5, 0, 4, 3, 10, 0), Point(10, 0));
  EXPECT_POINT_NEAR(circle.second.Mid, Point(2 * kDiagonal, 2 * kDiagonal), 1e-14);
}

TEST(Divide2DArcAtPoint, MayWriteIntoTheArcAndIntoThePoint) {
  GX2DArc arc = Arc(0, 0, 5, 0, 4, 3, 0, 5);
  GX2DArc rest;
  GXGeometry::Divide2DArcAtPoint(arc, arc.Mid, arc, rest);
  EXPECT_POINT_EQ(arc, Arc(0, 0, 5, 0, 4, 3, 4, 3));
  EXPECT_POINT_EQ(rest, Arc(0, 0, 4, 3, -3, 4, 0, 5));
  for (GX2DPoint GX2DArc::*field : {&GX2DArc::Start, &GX2DArc::Mid, &GX2DArc::End}) {
    GX2DArc first;
    GX2DArc second;
    first.*field = Point(4, 3);
    GXGeometry::Divide2DArcAtPoint(Arc(0, 0, 5, 0, 3, 4, 0, 5), first.*field, first, second);
    EXPECT_POINT_EQ(second, Arc(0, 0, 4, 3, -3, 4, 0, 5));
    second.*field = Point(4, 3);
    GXGeometry::Divide2DArcAtPoint(Arc(0, 0, 5, 0, 3, 4, 0, 5), second.*field, first, second);
    EXPECT_POINT_EQ(first, Arc(0, 0, 5, 0, 3, 4, 4, 3));
    EXPECT_POINT_EQ(second, Arc(0, 0, 4, 3, -3, 4, 0, 5));
  }
}

TEST(Divide2DArcAtPoint, SurvivesAPointAtTheCenterAndNumbersThatAreNotFinite) {
  const Halves centre = Divided(Arc(0, 0, 5, 0, 4, 3, 0, 5), Point(0, 0));
  EXPECT_POINT_EQ(centre.second, Arc(0, 0, 0, 0, 0, 0, 0, 5));
  Divided(Arc(0, 0, 0, 0, 0, 0, 0, 0), Point(0, 0));
  for (const double odd : {kNaN, kInfinity, 1e308}) {
    EXPECT_EQ(Divided(Circle(0, 0, 5), Point(odd, 1)).first.End.Y, 1);
    EXPECT_EQ(Divided(Circle(odd, odd, odd), Point(1, 1)).first.End.Y, 1);
  }
}

}  // namespace
