// Place of a point to contours of lines, to a lone circle and to a lone rectangle, and which lists
// are refused. Contours with arcs have their own file.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace {

using support::Add;
using support::AddPolygon;
using support::Circle;
using support::Line;
using support::Point;
using support::Rect;

/// The answer in words. The result is preset to something else, so that a missing write shows.
std::string Place(const GX2DElmList& contour, double x, double y, double tolerance = 0.0001) {
  GX2DPoint p(x, y);
  auto result = static_cast<GXGeometry::ePointInContourResult>(3);
  const bool reliable = GXGeometry::IsPointInClosedContour(contour, p, result, tolerance);
  const std::string start = reliable ? "" : "refused, ";
  switch (result) {
    case GXGeometry::ePointOutsideContour:
      return start + "outside";
    case GXGeometry::ePointInsideContour:
      return start + "inside";
    case GXGeometry::ePointOnContour:
      return start + "on";
  }
  return start + "unwritten";
}

/// (0, 0), (10, 0), (10, 10), (0, 10), counter-clockwise.
class Square : public GX2DElmList {
 public:
  Square() { AddPolygon(*this, {{0, 0}, {10, 0}, {10, 10}, {0, 10}}); }
};

TEST(PointInContourResult, HasTheValuesZeroToTwo) {
  EXPECT_EQ(static_cast<int>(GXGeometry::ePointOutsideContour), 0);
  EXPECT_EQ(static_cast<int>(GXGeometry::ePointInsideContour), 1);
  EXPECT_EQ(static_cast<int>(GXGeometry::ePointOnContour), 2);
  EXPECT_EQ(sizeof(GXGeometry::ePointInContourResult), 4U);
}

TEST(IsPointInClosedContour, TellsInsideFromOutside) {
  const Square square;
  EXPECT_EQ(Place(square, 5, 5), "inside");
  EXPECT_EQ(Place(square, 0.001, 9.999), "inside");
  EXPECT_EQ(Place(square, 15, 5), "outside");
  EXPECT_EQ(Place(square, -5, 5), "outside");
  EXPECT_EQ(Place(square, 5, 15), "outside");
  EXPECT_EQ(Place(square, 5, -5), "outside");
}

TEST(IsPointInClosedContour, LeavesThePointAlone) {
  const Square square;
  GX2DPoint p(3, 4);
  GXGeometry::ePointInContourResult result{};
  EXPECT_TRUE(GXGeometry::IsPointInClosedContour(square, p, result, 0.0001));
  EXPECT_TRUE(p == Point(3, 4));
}

TEST(IsPointInClosedContour, DoesNotDependOnTheSenseOfTheContour) {
  Square square;
  square.Reverse();
  EXPECT_EQ(Place(square, 5, 5), "inside");
  EXPECT_EQ(Place(square, 15, 5), "outside");
  EXPECT_EQ(Place(square, 10, 5), "on");
}

TEST(IsPointInClosedContour, FindsVerticesAndEdgesAtAnyTolerance) {
  const Square square;
  for (const double tolerance : {1e-12, 0.0001, 0.5}) {
    SCOPED_TRACE(tolerance);
    for (const GX2DPoint& p : {Point(0, 0), Point(10, 0), Point(10, 10), Point(0, 10)}) {
      EXPECT_EQ(Place(square, p.X, p.Y, tolerance), "on");
    }
    for (const GX2DPoint& p : {Point(5, 0), Point(10, 5), Point(5, 10), Point(0, 5)}) {
      EXPECT_EQ(Place(square, p.X, p.Y, tolerance), "on");
    }
  }
}

TEST(IsPointInClosedContour, IsOutsideBesideAVertexAtItsLevel) {
  const Square square;
  EXPECT_EQ(Place(square, -5, 10), "outside");
  EXPECT_EQ(Place(square, 15, 10), "outside");
  EXPECT_EQ(Place(square, -5, 0), "outside");
  EXPECT_EQ(Place(square, 15, 0), "outside");
}

TEST(IsPointInClosedContour, CountsAVertexOnceWhereTheContourPassesThroughIt) {
  GX2DElmList diamond;
  AddPolygon(diamond, {{0, -5}, {5, 0}, {0, 5}, {-5, 0}});
  EXPECT_EQ(Place(diamond, 1, 0), "inside");
  EXPECT_EQ(Place(diamond, 10, 0), "outside");
  EXPECT_EQ(Place(diamond, -10, 0), "outside");
}

TEST(IsPointInClosedContour, CountsAVertexTwiceOrNeverWhereTheContourTouchesTheLevel) {
  GX2DElmList diamond;
  AddPolygon(diamond, {{0, -5}, {5, 0}, {0, 5}, {-5, 0}});
  EXPECT_EQ(Place(diamond, 1, 5), "outside");  // both edges end at the level: twice
  EXPECT_EQ(Place(diamond, -1, 5), "outside");
  EXPECT_EQ(Place(diamond, 1, -5), "outside");  // no edge has an end below: never
  EXPECT_EQ(Place(diamond, -1, -5), "outside");
}

//   +----+          The level of the points is that of the edge (10, 5) - (5, 5).
//   |    |
//   |    +----+
//   |         |
//   +---------+
TEST(IsPointInClosedContour, PassesOverALevelEdgeThatDoesNotHoldThePoint) {
  GX2DElmList step;
  AddPolygon(step, {{0, 0}, {10, 0}, {10, 5}, {5, 5}, {5, 10}, {0, 10}});
  EXPECT_EQ(Place(step, 2, 5), "inside");
  EXPECT_EQ(Place(step, 12, 5), "outside");
  EXPECT_EQ(Place(step, -3, 5), "outside");
  EXPECT_EQ(Place(step, 7, 5), "on");
  EXPECT_EQ(Place(step, 5, 5), "on");
}

TEST(IsPointInClosedContour, TakesAnAlmostLevelEdgeForLevel) {
  // The top rises by 0.008 over 1000: a slope of 8e-6, which counts as parallel to the level. It
  // crosses the level 0.006 at x = 750 all the same; without that crossing only the right edge is
  // left, and one crossing is no closed contour.
  GX2DElmList flat;
  AddPolygon(flat, {{0, 0}, {0, -10}, {1000, -10}, {1000, 0.008}});
  EXPECT_EQ(Place(flat, 500, 0.006), "refused, outside");
  EXPECT_EQ(Place(flat, 500, 0.004), "on");
  // At a slope of 2e-5 both crossings are there.
  GX2DElmList steeper;
  AddPolygon(steeper, {{0, 0}, {0, -10}, {1000, -10}, {1000, 0.02}});
  EXPECT_EQ(Place(steeper, 500, 0.016), "outside");
  EXPECT_EQ(Place(steeper, 900, 0.016), "inside");
}

TEST(IsPointInClosedContour, IgnoresCrossingsBesideTheFiniteEdges) {
  GX2DElmList triangle;  // the carrier of the right edge crosses the level 5 at x = 15
  AddPolygon(triangle, {{0, 0}, {10, 0}, {12, 2}});
  EXPECT_EQ(Place(triangle, 8, 5), "outside");
  EXPECT_EQ(Place(triangle, 15, 5), "outside");
}

TEST(IsPointInClosedContour, RefusesAContourWithAnOddNumberOfCrossings) {
  GX2DElmList open;  // the right edge is missing
  Add(open, Line(10, 10, 0, 10), Line(0, 10, 0, 0), Line(0, 0, 10, 0));
  EXPECT_EQ(Place(open, 5, 5), "refused, outside");
  EXPECT_EQ(Place(open, 15, 5), "refused, outside");
  EXPECT_EQ(Place(open, -5, 5), "refused, outside");
  EXPECT_EQ(Place(open, 5, 15), "outside");
}

TEST(IsPointInClosedContour, DoesNotNoticeAMissingLevelEdge) {
  GX2DElmList open;  // the top edge is missing
  Add(open, Line(0, 10, 0, 0), Line(0, 0, 10, 0), Line(10, 0, 10, 10));
  EXPECT_EQ(Place(open, 5, 5), "inside");
}

TEST(IsPointInClosedContour, IsOutsideOfAnEmptyList) {
  EXPECT_EQ(Place(GX2DElmList(), 0, 0), "outside");
}

TEST(IsPointInClosedContour, ReachesSidewaysWithTheTolerance) {
  const Square square;
  EXPECT_EQ(Place(square, 9.95, 5, 0.1), "on");
  EXPECT_EQ(Place(square, 10.05, 5, 0.1), "on");
  EXPECT_EQ(Place(square, 9.8, 5, 0.1), "inside");
  EXPECT_EQ(Place(square, 10.2, 5, 0.1), "outside");
  // Above and below, the level edges are only looked at with their own 0.00001.
  EXPECT_EQ(Place(square, 5, 9.95, 0.1), "inside");
  EXPECT_EQ(Place(square, 5, 9.999995, 0.1), "on");
}

TEST(IsPointInClosedContour, CountsTheToleranceInclusively) {
  GX2DElmList square;  // the right edge at x = 0, where the tolerance itself is a difference
  AddPolygon(square, {{-8, 0}, {0, 0}, {0, 8}, {-8, 8}});
  EXPECT_EQ(Place(square, 0.25, 4, 0.25), "on");
  EXPECT_EQ(Place(square, std::nextafter(0.25, 1.0), 4, 0.25), "outside");
  EXPECT_EQ(Place(square, -0.25, 4, 0.25), "on");
  EXPECT_EQ(Place(square, -0.2500001, 4, 0.25), "inside");
}

TEST(IsPointInClosedContour, TakesAnEndWithinTheToleranceBelowTheLevelForOneAtTheLevel) {
  const Square square;
  // Level 0.25: both lower ends are at the level, nothing is below, nothing is counted.
  EXPECT_EQ(Place(square, 5, 0.25, 0.25), "outside");
  EXPECT_EQ(Place(square, 5, 0.2500001, 0.25), "inside");
  // Level 10.25 would still be reached by the upper ends, but the edges do not reach the level.
  EXPECT_EQ(Place(square, 5, 10.2, 0.25), "outside");
}

TEST(IsPointInClosedContour, ReachesUpwardsByOneTenThousandthWhateverTheTolerance) {
  // The carriers cross the level above the ends of the upright edges. Within 0.0001 of an end that
  // is still a hit, beyond it is none, though the ends count as at the level.
  const Square square;
  EXPECT_EQ(Place(square, 5, 10.00009, 0.25), "inside");
  EXPECT_EQ(Place(square, 10, 10.00009, 0.25), "on");
  EXPECT_EQ(Place(square, 5, 10.00015, 0.25), "outside");
  EXPECT_EQ(Place(square, 10, 10.00015, 0.25), "outside");
}

TEST(IsPointInClosedContour, FindsThePointOnAnEdgeThatWouldNotCount) {
  // The edge from (0, 0) to (10, 0.2) has no end strictly below the level at this tolerance.
  GX2DElmList list;
  Add(list, Line(0, 0, 10, 0.2));
  EXPECT_EQ(Place(list, 5, 0.1, 0.25), "on");
  EXPECT_EQ(Place(list, 8, 0.1, 0.25), "outside");
}

TEST(IsPointInClosedContour, RefusesAListWithAPoint) {
  Square square;
  Add(square, Point(20, 20));
  EXPECT_EQ(Place(square, 5, 5), "refused, outside");
  EXPECT_EQ(Place(square, 25, 25), "refused, outside");
  GX2DElmList alone;
  Add(alone, Point(1, 1));
  EXPECT_EQ(Place(alone, 1, 1), "refused, outside");
}

TEST(IsPointInClosedContour, RefusesAListWithAKindThatItDoesNotKnow) {
  Square square;
  square.push_back(new support::Foreign2D(Point(0, 0), Point(1, 1)));
  EXPECT_EQ(Place(square, 5, 5), "refused, outside");
}

TEST(IsPointInClosedContour, AnswersOnBeforeAPointIsReached) {
  GX2DElmList list;
  Add(list, Line(10, 0, 10, 10), Point(20, 20));
  EXPECT_EQ(Place(list, 10, 5), "on");
  GX2DElmList pointFirst;
  Add(pointFirst, Point(20, 20), Line(10, 0, 10, 10));
  EXPECT_EQ(Place(pointFirst, 10, 5), "refused, outside");
}

TEST(IsPointInClosedContour, TakesAnObjectOfAClassDerivedFromALineForALine) {
  std::vector<std::string> log;
  GX2DElmList list;
  list.push_back(new support::Logged<GX2DLine>(log, "a", Line(10, 0, 10, 10)));
  EXPECT_EQ(Place(list, 10, 5), "on");
  EXPECT_EQ(Place(list, 5, 5), "refused, outside");
}

TEST(IsPointInClosedContour, DecidesOnALoneCircleByTheSquaredDistance) {
  GX2DElmList list;
  Add(list, Circle(0, 0, 1000));
  // d = x^2 - 1000^2: 8e-6 at 4e-9 from the circle, 1.2e-5 at 6e-9.
  EXPECT_EQ(Place(list, 1000 + 4e-9, 0), "on");
  EXPECT_EQ(Place(list, 1000 - 4e-9, 0), "on");
  EXPECT_EQ(Place(list, 1000 + 6e-9, 0), "outside");
  EXPECT_EQ(Place(list, 1000 - 6e-9, 0), "inside");
  EXPECT_EQ(Place(list, 0, -1000), "on");
  EXPECT_EQ(Place(list, 600, -800), "on");
}

TEST(IsPointInClosedContour, WidensTheBandOfASmallLoneCircle) {
  GX2DElmList list;
  Add(list, Circle(5, 5, 0.001));
  // d = -1e-6 at the center; the band ends where distance^2 = 1.1e-5, at 0.0033.
  EXPECT_EQ(Place(list, 5, 5), "on");
  EXPECT_EQ(Place(list, 5, 5.003), "on");
  EXPECT_EQ(Place(list, 5, 5.004), "outside");
}

TEST(IsPointInClosedContour, DoesNotUseTheToleranceOnALoneCircle) {
  GX2DElmList list;
  Add(list, Circle(2, 3, 5, true));
  EXPECT_EQ(Place(list, 6.5, 3, 1.0), "inside");
  EXPECT_EQ(Place(list, 7.5, 3, 1.0), "outside");
  EXPECT_EQ(Place(list, 7, 3, 0.0), "on");
}

TEST(IsPointInClosedContour, TakesAnArcWithItsMidOnItsEndForALoneCircle) {
  GX2DElmList list;
  Add(list, support::Arc(0, 0, 5, 0, 0, 5, 0, 5));
  EXPECT_EQ(Place(list, 3, -3), "inside");
  EXPECT_EQ(Place(list, -3, -4), "on");
  EXPECT_EQ(Place(list, 4, -4), "outside");
}

TEST(IsPointInClosedContour, DecidesOnALoneRectangleByItsBox) {
  GX2DElmList list;
  Add(list, Rect(10, 4, 0, 0));
  EXPECT_EQ(Place(list, 5, 2), "inside");
  EXPECT_EQ(Place(list, 11, 2), "outside");
  EXPECT_EQ(Place(list, -1, 2), "outside");
  EXPECT_EQ(Place(list, 5, 5), "outside");
  EXPECT_EQ(Place(list, 5, -1), "outside");
  for (const GX2DPoint& p : {Point(0, 2), Point(5, 4), Point(10, 2), Point(5, 0), Point(0, 0),
                             Point(0, 4), Point(10, 4), Point(10, 0)}) {
    EXPECT_EQ(Place(list, p.X, p.Y), "on");
  }
}

TEST(IsPointInClosedContour, KeepsToItsOwnToleranceOnALoneRectangle) {
  GX2DElmList list;
  Add(list, Rect(0, 0, 10, 10));
  EXPECT_EQ(Place(list, 10.05, 5, 0.1), "outside");
  EXPECT_EQ(Place(list, 9.95, 5, 0.1), "inside");
  EXPECT_EQ(Place(list, 10.000005, 5, 0.0), "on");
  EXPECT_EQ(Place(list, 9.999995, 5, 0.0), "on");
  EXPECT_EQ(Place(list, 5, 10.00002, 0.1), "outside");
  EXPECT_EQ(Place(list, 5, -0.000005, 0.0), "on");
}

TEST(IsPointInClosedContour, IsInsideARectangleAtExactlyTheTolerance) {
  // The box takes 0.00001 in, the sides do not: the point is in the box and on no side.
  GX2DElmList list;
  Add(list, Rect(-10, -10, 0, 0));
  EXPECT_EQ(Place(list, 0.00001, -5), "inside");
  EXPECT_EQ(Place(list, 0.000011, -5), "outside");
}

TEST(IsPointInClosedContour, RefusesARectangleBesideOtherElements) {
  GX2DElmList front, back;
  Add(front, Rect(0, 0, 10, 10), Line(20, 0, 20, 10));
  Add(back, Line(20, 0, 20, 10), Rect(0, 0, 10, 10));
  EXPECT_EQ(Place(front, 5, 5), "refused, outside");
  EXPECT_EQ(Place(back, 5, 5), "refused, outside");
  EXPECT_EQ(Place(front, 20, 5), "refused, outside");
  EXPECT_EQ(Place(back, 20, 5), "on");
}

TEST(IsPointInClosedContour, SurvivesCoordinatesThatAreNoNumbers) {
  const Square square;
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_NE(Place(square, nan, 5), "inside");
  EXPECT_NE(Place(square, 5, nan), "inside");
  EXPECT_NE(Place(square, infinity, 5), "inside");
  EXPECT_NE(Place(square, 5, -infinity), "inside");
}

/// How often the polygon winds around the point, summed up from the angles of its edges.
long Winding(const std::vector<GX2DPoint>& corners, const GX2DPoint& p) {
  long double sum = 0;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const GX2DPoint& a = corners[i];
    const GX2DPoint& b = corners[(i + 1) % corners.size()];
    const long double ax = static_cast<long double>(a.X) - p.X;
    const long double ay = static_cast<long double>(a.Y) - p.Y;
    const long double bx = static_cast<long double>(b.X) - p.X;
    const long double by = static_cast<long double>(b.Y) - p.Y;
    sum += std::atan2(ax * by - ay * bx, ax * bx + ay * by);
  }
  return std::lround(sum / (2 * static_cast<long double>(support::kPi)));
}

/// Distance of the point from the nearest edge.
double EdgeDistance(const std::vector<GX2DPoint>& corners, const GX2DPoint& p) {
  double nearest = 1e300;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const GX2DPoint& a = corners[i];
    const GX2DPoint& b = corners[(i + 1) % corners.size()];
    const double dx = b.X - a.X, dy = b.Y - a.Y;
    const double t = ((p.X - a.X) * dx + (p.Y - a.Y) * dy) / (dx * dx + dy * dy);
    const double s = std::clamp(t, 0.0, 1.0);
    nearest = std::min(nearest, std::hypot(a.X + s * dx - p.X, a.Y + s * dy - p.Y));
  }
  return nearest;
}

void ExpectTheWinding(const GX2DElmList& contour, const std::vector<GX2DPoint>& corners,
                      const GX2DPoint& p) {
  if (EdgeDistance(corners, p) < 0.001) {
    return;
  }
  EXPECT_EQ(Place(contour, p.X, p.Y), Winding(corners, p) != 0 ? "inside" : "outside")
      << p.X << ", " << p.Y;
}

TEST(IsPointInClosedContour, AgreesWithTheWindingNumberOnStarShapedPolygons) {
  support::Random random;
  for (int round = 0; round < 200; ++round) {
    const int count = random.Int(3, 20);
    std::vector<GX2DPoint> corners;
    for (int i = 0; i < count; ++i) {
      const double angle = 360.0 * (i + random.Between(0.1, 0.9)) / count;
      corners.push_back(support::OnCircle(3, -2, random.Between(5, 50), angle));
    }
    GX2DElmList contour;
    AddPolygon(contour, corners);
    for (int i = 0; i < 40; ++i) {
      const GX2DPoint p = random.Point2D(55);
      const bool nearALevel = std::any_of(corners.begin(), corners.end(), [&](const GX2DPoint& c) {
        return std::fabs(c.Y - p.Y) < 0.001;
      });
      if (!nearALevel) {
        ExpectTheWinding(contour, corners, p);
      }
    }
    // At exactly the level of a vertex.
    for (const GX2DPoint& corner : corners) {
      ExpectTheWinding(contour, corners, Point(random.Between(-55, 55), corner.Y));
    }
  }
}

TEST(IsPointInClosedContour, AgreesWithTheWindingNumberOnBarCharts) {
  // Bars of whole widths and heights: many level and upright edges, many vertices on one level.
  support::Random random;
  for (int round = 0; round < 100; ++round) {
    std::vector<GX2DPoint> corners = {{0, 0}};
    double x = 0;
    std::vector<GX2DPoint> top;
    int last = 0;
    for (int bar = random.Int(2, 8); bar > 0; --bar) {
      const int height = random.Int(1, 5) == last ? last + 1 : random.Int(1, 5);
      if (height == last) {
        continue;
      }
      top.push_back(Point(x, height));
      x += random.Int(1, 3);
      top.push_back(Point(x, height));
      last = height;
    }
    corners.push_back(Point(x, 0));
    corners.insert(corners.end(), top.rbegin(), top.rend());
    GX2DElmList contour;
    AddPolygon(contour, corners);
    for (double px = -0.5; px < x + 1; px += 0.5) {
      for (double py = -0.5; py < 7; py += 0.5) {
        ExpectTheWinding(contour, corners, Point(px, py));
      }
    }
  }
}

}  // namespace
