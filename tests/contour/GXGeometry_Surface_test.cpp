// Signed surface of closed contours.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using support::Add;
using support::AddPolygon;
using support::Arc;
using support::ArcByAngles;
using support::Circle;
using support::kPi;
using support::Line;
using support::Point;
using support::Rect;

double Surface(const GX2DElmList& list, bool absolute = false) {
  return GXGeometry::GetContourSurface(list, absolute);
}

TEST(GetContourSurface, IsNegativeForACounterClockwiseSquare) {
  GX2DElmList square;
  AddPolygon(square, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
  EXPECT_EQ(Surface(square), -100.0);
  EXPECT_EQ(Surface(square, true), 100.0);
  square.Reverse();
  EXPECT_EQ(Surface(square), 100.0);
  EXPECT_EQ(Surface(square, true), 100.0);
}

TEST(GetContourSurface, IsZeroForAnEmptyList) {
  EXPECT_EQ(Surface(GX2DElmList()), 0.0);
  EXPECT_EQ(Surface(GX2DElmList(), true), 0.0);
}

TEST(GetContourSurface, IsZeroWhereTheLastEndIsNotOnTheFirstStart) {
  GX2DElmList closed, open;
  AddPolygon(closed, {{0, 0}, {8, 0}, {8, 8}, {0.0001, -0.0001}}, false);
  AddPolygon(open, {{0, 0}, {8, 0}, {8, 8}, {0.00011, 0}}, false);
  // 0.5 * 8 * 8 less or more slivers of 8 * 0.0001.
  EXPECT_NEAR(Surface(closed), -32.0, 0.002);
  EXPECT_EQ(Surface(open), 0.0);
  GX2DElmList arc;
  Add(arc, Arc(0, 0, 5, 0, 0, 5, -5, 0));
  EXPECT_EQ(Surface(arc), 0.0);
}

TEST(GetContourSurface, DoesNotLookForGapsBetweenTheElements) {
  GX2DElmList list;
  Add(list, Line(0, 0, 10, 0), Line(10, 5, 0, 0));
  EXPECT_EQ(Surface(list), 0.0 + (5.0 + 0.0) * (0.0 - 10.0) * 0.5);
}

TEST(GetContourSurface, IsThePlainAreaOfALoneRectangle) {
  GX2DElmList list;
  Add(list, Rect(10, 4, 7, 0));
  EXPECT_EQ(Surface(list), 12.0);
  EXPECT_EQ(Surface(list, true), 12.0);
}

TEST(GetContourSurface, IsPositiveForALoneCircleInBothSenses) {
  for (const bool clockwise : {false, true}) {
    GX2DElmList list;
    Add(list, Circle(0, 0, 3.7, clockwise));
    EXPECT_EQ(Surface(list), 3.7 * 3.141592653589793 * 3.7);
    EXPECT_EQ(Surface(list, true), 3.7 * 3.141592653589793 * 3.7);
  }
  GX2DElmList midOnEnd;
  Add(midOnEnd, Arc(0, 0, 3, 0, 0, 3, 0, 3));
  EXPECT_EQ(Surface(midOnEnd), 3.0 * 3.141592653589793 * 3.0);
}

TEST(GetContourSurface, IsZeroForALonePoint) {
  GX2DElmList list;
  Add(list, Point(3, 4));
  EXPECT_EQ(Surface(list), 0.0);
}

// Chord and arc close a segment of area r^2 / 2 (sweep - sin sweep); its sign is that of the
// contour's direction.
TEST(GetContourSurface, IsTheAreaOfASegmentOfOneLineAndOneArc) {
  const double r = 7.0;
  for (const double degrees : {1.0, 30.0, 90.0, 150.0, 179.0, 180.0, 181.0, 200.0, 270.0, 359.0}) {
    const double sweep = degrees * kPi / 180.0;
    const double area = 0.5 * r * r * (sweep - std::sin(sweep));
    // The difference of the sector and the triangle is off by some roundings of the sector; at 179
    // and 181 the square root of |r r - h h| loses half of the digits of its small argument.
    const double bound = 1e-9;
    for (const double from : {0.0, 77.0, 200.0}) {
      SCOPED_TRACE(testing::Message() << degrees << " from " << from);
      GX2DElmList counterClockwise, clockwise;
      const GX2DArc ccw = ArcByAngles(3, 40, r, from, degrees);
      const GX2DArc cw = ArcByAngles(3, 40, r, from, -degrees);
      Add(counterClockwise, ccw, GX2DLine(ccw.End, ccw.Start));
      Add(clockwise, cw, GX2DLine(cw.End, cw.Start));
      EXPECT_NEAR(Surface(counterClockwise), -area, bound);
      EXPECT_NEAR(Surface(clockwise), area, bound);
      EXPECT_NEAR(Surface(counterClockwise, true), area, bound);
    }
  }
}

TEST(GetContourSurface, TakesABiteOutForAnArcAgainstTheDirection) {
  GX2DElmList list;  // a clockwise square with a half disc of radius 1 out of its top
  Add(list, Line(0, 0, 0, 4), Line(0, 4, 1, 4), Arc(2, 4, 1, 4, 2, 3, 3, 4), Line(3, 4, 4, 4),
      Line(4, 4, 4, 0), Line(4, 0, 0, 0));
  EXPECT_NEAR(Surface(list), 16.0 - kPi / 2.0, 1e-12);
  list.Reverse();
  EXPECT_NEAR(Surface(list), -(16.0 - kPi / 2.0), 1e-12);
}

TEST(GetContourSurface, DropsTheTriangleWhereTheChordIsAlmostTheDiameter) {
  // Radius 1, sweep pi - d: the half chord cos(d / 2) misses the radius by d^2 / 8, which is 4.5e-6
  // at d = 0.006 and 1.25e-5 at d = 0.01. Only beyond 1e-5 the triangle sin(d) / 2 is taken off.
  for (const double d : {0.006, 0.01}) {
    const double sweep = kPi - d;
    const GX2DArc arc(Point(0, 0), Point(1, 0), Point(0, 1),
                      Point(std::cos(sweep), std::sin(sweep)));
    GX2DElmList list;
    Add(list, arc, GX2DLine(arc.End, arc.Start));
    const double sector = 0.5 * sweep;
    const double triangle = d < 0.008 ? 0.0 : 0.5 * std::sin(d);
    EXPECT_NEAR(Surface(list), -(sector - triangle), 1e-9);
  }
}

TEST(GetContourSurface, IsHalfADiscForAHalfCircleOnItsDiameter) {
  GX2DElmList list;
  Add(list, Arc(0, 0, 2, 0, 0, 2, -2, 0), Line(-2, 0, 2, 0));
  EXPECT_NEAR(Surface(list), -2.0 * kPi, 1e-12);
}

TEST(GetContourSurface, AddsACircleInALongerListWhicheverWayItRuns) {
  for (const bool clockwise : {false, true}) {
    GX2DElmList list;
    Add(list, Line(0, 0, 10, 0), Circle(5, 5, 2, clockwise), Line(10, 0, 10, 10),
        Line(10, 10, 0, 10), Line(0, 10, 0, 0));
    EXPECT_NEAR(Surface(list), -100.0 + 4.0 * kPi, 1e-12);
    EXPECT_NEAR(Surface(list, true), 100.0 - 4.0 * kPi, 1e-12);
    list.Reverse();
    EXPECT_NEAR(Surface(list), 100.0 + 4.0 * kPi, 1e-12);
  }
}

TEST(GetContourSurface, SkipsNullEntriesAndOtherKinds) {
  GX2DElmList list;
  Add(list, Line(0, 0, 10, 0));
  list.push_back(nullptr);
  Add(list, Line(10, 0, 10, 10), Point(50, 50), Rect(0, 0, 7, 7), Line(10, 10, 0, 10));
  list.push_back(new support::Foreign2D(Point(0, 10), Point(70, 70)));
  Add(list, Line(0, 10, 0, 0));
  EXPECT_EQ(Surface(list), -100.0);
}

TEST(GetContourSurface, IsZeroWhereTheFirstOrLastEntryIsNull) {
  GX2DElmList front, back;
  AddPolygon(front, {{0, 0}, {10, 0}, {10, 10}});
  AddPolygon(back, {{0, 0}, {10, 0}, {10, 10}});
  front.push_front(nullptr);
  back.push_back(nullptr);
  EXPECT_EQ(Surface(front), 0.0);
  EXPECT_EQ(Surface(back), 0.0);
}

TEST(GetContourSurface, TakesALoneLineBackToItsStartForClosed) {
  GX2DElmList list;
  Add(list, Line(3, 8, 3, 8));
  EXPECT_EQ(Surface(list), 0.0);
}

TEST(GetContourSurface, AddsAnArcOfStartAndMidInLineAsCounterClockwise) {
  // No cross product, so not clockwise; the sweep is 0, and so are sector and, the chord being
  // r sqrt 2, not the triangle r^2 / 2. T - (0 - triangle) with the trapezoid below the chord.
  GX2DElmList list;
  Add(list, Arc(0, 0, 2, 0, 1, 0, 0, 2), Line(0, 2, 0, 0), Line(0, 0, 2, 0));
  EXPECT_NEAR(Surface(list), -2.0 + 2.0, 1e-12);
}

/// Half the sum of the cross products of neighbouring corners: positive counter-clockwise.
long double Shoelace(const std::vector<GX2DPoint>& corners) {
  long double sum = 0;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const GX2DPoint& a = corners[i];
    const GX2DPoint& b = corners[(i + 1) % corners.size()];
    sum += static_cast<long double>(a.X) * b.Y - static_cast<long double>(a.Y) * b.X;
  }
  return sum / 2;
}

TEST(GetContourSurface, AgreesWithTheCrossProductsOfRandomPolygons) {
  support::Random random;
  for (int round = 0; round < 300; ++round) {
    std::vector<GX2DPoint> corners;
    for (int i = random.Int(3, 30); i > 0; --i) {
      corners.push_back(random.Point2D(100));
    }
    GX2DElmList list;
    AddPolygon(list, corners);
    // Each of up to 30 terms of at most 20000 is rounded a few times.
    EXPECT_NEAR(Surface(list), static_cast<double>(-Shoelace(corners)), 1e-9);
  }
}

TEST(GetContourSurface, AgreesWithCrossProductsAndSegmentsOnRandomContours) {
  support::Random random;
  for (int round = 0; round < 300; ++round) {
    std::vector<GX2DPoint> corners;
    long double segments = 0;  // counter-clockwise positive
    GX2DElmList list;
    // Arcs of any sweep, each joined to the next by a line.
    for (int i = random.Int(1, 6); i > 0; --i) {
      const double r = random.Between(1, 20);
      const double sweep = random.Between(5, 170) + (random.Bool() ? 185 : 0);
      const double sign = random.Bool() ? 1.0 : -1.0;
      const GX2DPoint center = random.Point2D(50);
      const GX2DArc arc = ArcByAngles(center.X, center.Y, r, random.Between(0, 360), sign * sweep);
      if (!list.empty()) {
        Add(list, GX2DLine(list.back()->GetEndPoint(), arc.Start));
      }
      Add(list, arc);
      corners.push_back(arc.Start);
      corners.push_back(arc.End);
      const long double angle = static_cast<long double>(sweep) * kPi / 180;
      segments += sign * r * r * (angle - std::sin(angle)) / 2;
    }
    Add(list, GX2DLine(corners.back(), corners.front()));
    // The sweep comes from an arc cosine, which loses up to half of the digits near 0 and pi;
    // 5 degrees off, it is good to 1e-14, times r^2 = 400.
    EXPECT_NEAR(Surface(list), static_cast<double>(-(Shoelace(corners) + segments)), 1e-9);
  }
}

}  // namespace
