// Place of a point to contours with arcs: which hits of the level through the point count.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

namespace {

using support::Add;
using support::AddPolygon;
using support::Arc;
using support::ArcByAngles;
using support::Circle;
using support::Line;
using support::OnCircle;
using support::Point;

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

/// The upper half of the disc of radius 5, counter-clockwise from (-5, 0).
class HalfDisc : public GX2DElmList {
 public:
  HalfDisc() { Add(*this, Line(-5, 0, 5, 0), Arc(0, 0, 5, 0, 0, 5, -5, 0)); }
};

TEST(IsPointInArcContour, TellsInsideFromOutsideOfAHalfDisc) {
  const HalfDisc disc;
  EXPECT_EQ(Place(disc, 0, 3), "inside");
  EXPECT_EQ(Place(disc, 3.9, 3), "inside");
  EXPECT_EQ(Place(disc, 4.1, 3), "outside");
  EXPECT_EQ(Place(disc, -4.1, 3), "outside");
  EXPECT_EQ(Place(disc, 0, 6), "outside");
  EXPECT_EQ(Place(disc, 0, -3), "outside");  // the hits lie on the missing half of the circle
  EXPECT_EQ(Place(disc, 4, 3), "on");
  EXPECT_EQ(Place(disc, -4, 3), "on");
  EXPECT_EQ(Place(disc, 1, 0), "on");
}

TEST(IsPointInArcContour, TakesAnArcOnItsOwnForClosedByItsChord) {
  GX2DElmList list;
  Add(list, Arc(0, 0, 5, 0, 0, 5, -5, 0));
  EXPECT_EQ(Place(list, 0, 2.5), "inside");
  EXPECT_EQ(Place(list, 4.9, 2.5), "outside");
  EXPECT_EQ(Place(list, 0, -2.5), "outside");
}

TEST(IsPointInArcContour, ReachesSidewaysWithTheTolerance) {
  const HalfDisc disc;
  EXPECT_EQ(Place(disc, 4.0625, 3, 0.0625), "on");
  EXPECT_EQ(Place(disc, 4.07, 3, 0.0625), "outside");
  EXPECT_EQ(Place(disc, -3.9375, 3, 0.0625), "on");
  EXPECT_EQ(Place(disc, -3.93, 3, 0.0625), "inside");
}

TEST(IsPointInArcContour, DoesNotReportThePointWhereTheLevelTouchesAnArc) {
  const HalfDisc disc;
  EXPECT_EQ(Place(disc, 0, 5), "outside");
  // With a square around a hole the other elements say inside, though the point is on the hole.
  GX2DElmList plate;
  AddPolygon(plate, {{-10, -10}, {10, -10}, {10, 10}, {-10, 10}});
  Add(plate, Circle(0, 0, 5));
  EXPECT_EQ(Place(plate, 0, 5), "inside");
  EXPECT_EQ(Place(plate, 0, -5), "inside");
  EXPECT_EQ(Place(plate, 3, 5), "inside");
  EXPECT_EQ(Place(plate, 12, 5), "outside");
}

TEST(IsPointInArcContour, TakesHitsWithinTheToleranceForATouch) {
  // At the level 4.99 the half chord is sqrt(25 - 24.9001) = 0.316, the hits are 0.632 apart.
  const HalfDisc disc;
  EXPECT_EQ(Place(disc, 0, 4.99, 0.0001), "inside");
  EXPECT_EQ(Place(disc, 0, 4.99, 1.0), "outside");
  EXPECT_EQ(Place(disc, 0.3161, 4.99, 1.0), "outside");  // not even on the contour
}

TEST(IsPointInArcContour, CountsATouchAtTheEndOfAnArc) {
  GX2DElmList quarter;  // starts at its top, where the level 5 touches it
  Add(quarter, Arc(0, 0, 0, 5, -3, 4, -5, 0), Line(-5, 0, 0, 0), Line(0, 0, 0, 5));
  EXPECT_EQ(Place(quarter, 3, 5), "outside");
  EXPECT_EQ(Place(quarter, -3, 5), "outside");
  EXPECT_EQ(Place(quarter, 0, 5), "on");
  quarter.Reverse();
  EXPECT_EQ(Place(quarter, 3, 5), "outside");
  EXPECT_EQ(Place(quarter, -3, 5), "outside");
  GX2DElmList alone;
  Add(alone, Arc(0, 0, 0, 5, -3, 4, -5, 0));
  EXPECT_EQ(Place(alone, 0, 5), "on");
  EXPECT_EQ(Place(alone, 3, 5), "refused, outside");  // exactly one crossing
}

TEST(IsPointInArcContour, CountsASingleHitWhenTheEndsLieOnBothSides) {
  GX2DElmList quarter;
  Add(quarter, Line(0, 0, 5, 0), Arc(0, 0, 5, 0, 4, 3, 0, 5), Line(0, 5, 0, 0));
  EXPECT_EQ(Place(quarter, 1, 3), "inside");
  EXPECT_EQ(Place(quarter, 5, 3), "outside");
  EXPECT_EQ(Place(quarter, -1, 3), "outside");
  EXPECT_EQ(Place(quarter, 4, 3), "on");
  EXPECT_EQ(Place(quarter, 4.00009, 3), "on");
  EXPECT_EQ(Place(quarter, 4.0002, 3), "outside");
}

TEST(IsPointInArcContour, DoesNotLookAtASingleHitWhenTheEndsLieOnOneSide) {
  // Over the top from a start above the level 4 to the end (3, 4) on it: nothing is below, so even
  // the end of the arc is not found on the contour.
  GX2DElmList cap;
  Add(cap, Arc(0, 0, -std::sqrt(25 - 4.5 * 4.5), 4.5, 0, 5, 3, 4));
  EXPECT_EQ(Place(cap, 3, 4), "outside");
  EXPECT_EQ(Place(cap, 0, 4), "outside");
  EXPECT_EQ(Place(cap, 8, 4), "outside");
}

TEST(IsPointInArcContour, ComparesTheEndsOfAnArcAtTheTolerance) {
  // The start is 0.5 below the level 3 and the end above it; one hit, at (4, 3).
  GX2DElmList arc;
  Add(arc, Arc(0, 0, std::sqrt(25 - 2.5 * 2.5), 2.5, 4, 3, 0, 5));
  EXPECT_EQ(Place(arc, 1, 3, 0.25), "refused, outside");  // one crossing
  EXPECT_EQ(Place(arc, 1, 3, 0.5), "outside");            // the start counts as at the level: none
  EXPECT_EQ(Place(arc, 4, 3, 0.25), "on");
  EXPECT_EQ(Place(arc, 4, 3, 0.5), "outside");
}

TEST(IsPointInArcContour, FollowsTwoHitsOfAnArcThatRunsOverTheTop) {
  // From 200 degrees clockwise over the top to -20: the ends lie below the level 0, the hits are
  // (-5, 0) and (5, 0).
  for (const bool clockwise : {true, false}) {
    GX2DElmList list;
    Add(list, clockwise ? ArcByAngles(0, 0, 5, 200, -220) : ArcByAngles(0, 0, 5, -20, 220));
    const GX2DPoint start = list.front()->GetStartPoint();
    const GX2DPoint end = list.front()->GetEndPoint();
    Add(list, GX2DLine(end, start));
    EXPECT_EQ(Place(list, 0, 0), "inside");
    EXPECT_EQ(Place(list, 7, 0), "outside");
    EXPECT_EQ(Place(list, -7, 0), "outside");
    EXPECT_EQ(Place(list, 5, 0), "on");
    EXPECT_EQ(Place(list, -5, 0), "on");
  }
}

// A circle of radius 10 with a small gap just below the level 0 on its right. At a tolerance of 0.1
// both ends of the arc count as at the level.
//
// Counter-clockwise the arc begins at -0.002 and ends at -0.005 radians. Its hits are A = (10, 0)
// and B = (-10, 0), in this order. Chords: start - first quarter point: both at the level; up to
// the top: none below; down to the bottom: crosses, B; from the bottom to the end: crosses, and
// that one is A's. One crossing on each side of the center: inside.
TEST(IsPointInArcContour, CountsTheFirstHitForTheLastChord) {
  GX2DElmList list;
  Add(list, GX2DArc(Point(0, 0), Point(10 * std::cos(-0.002), 10 * std::sin(-0.002)), Point(0, 10),
                    Point(10 * std::cos(-0.005), 10 * std::sin(-0.005))));
  EXPECT_EQ(Place(list, 0, 0, 0.1), "inside");
  EXPECT_EQ(Place(list, 20, 0, 0.1), "outside");
  EXPECT_EQ(Place(list, -20, 0, 0.1), "outside");
}

// The same clockwise, from -0.005 to -0.002: A = (-10, 0), B = (10, 0). Start - bottom: crosses, A;
// bottom - top: crosses, A again; top - end: both at the level. Two crossings on the left: outside,
// though the arc is the same.
TEST(IsPointInArcContour, CountsTheFirstHitForTheFirstTwoChords) {
  GX2DElmList list;
  Add(list, GX2DArc(Point(0, 0), Point(10 * std::cos(-0.005), 10 * std::sin(-0.005)), Point(0, -10),
                    Point(10 * std::cos(-0.002), 10 * std::sin(-0.002))));
  EXPECT_EQ(Place(list, 0, 0, 0.1), "outside");
  EXPECT_EQ(Place(list, 20, 0, 0.1), "outside");
}

TEST(IsPointInArcContour, CountsBothHitsOfACircleBesideOtherElements) {
  for (const bool clockwise : {true, false}) {
    GX2DElmList ring;
    Add(ring, Circle(0, 0, 10), Circle(0, 0, 5, clockwise));
    for (const double y : {0.1, -0.1, 2.0, -2.0, 4.9, -4.9}) {
      SCOPED_TRACE(y);
      EXPECT_EQ(Place(ring, 7, y), "inside");
      EXPECT_EQ(Place(ring, -7, y), "inside");
      EXPECT_EQ(Place(ring, 0.2, y), "outside");
      EXPECT_EQ(Place(ring, 11, y), "outside");
      EXPECT_EQ(Place(ring, -11, y), "outside");
    }
    EXPECT_EQ(Place(ring, 4, 3), "on");
    EXPECT_EQ(Place(ring, -8, -6), "on");
  }
}

TEST(IsPointInArcContour, ClosesACircleWithItsStart) {
  // At the level of start and end, the last chord goes back to the start.
  GX2DElmList list;
  Add(list, Circle(0, 0, 5), Line(-20, 50, 20, 50));
  EXPECT_EQ(Place(list, 0, 0), "inside");
  EXPECT_EQ(Place(list, 9, 0), "outside");
  EXPECT_EQ(Place(list, -9, 0), "outside");
  EXPECT_EQ(Place(list, 5, 0), "on");
}

TEST(IsPointInArcContour, TakesTheFourthChordOfACircleBackToItsStart) {
  // Stored with the mid on the end: start (5, 0), end (0, 5), but the whole circle. A chord to the
  // end would cross the level 3 once more.
  GX2DElmList list;
  Add(list, Arc(0, 0, 5, 0, 0, 5, 0, 5), Line(-20, 50, 20, 50));
  EXPECT_EQ(Place(list, 0, 3), "inside");
  EXPECT_EQ(Place(list, 9, 3), "outside");
  EXPECT_EQ(Place(list, 0, -3), "inside");
}

TEST(IsPointInArcContour, CountsNothingWhereOneHitOfACircleIsLostToRounding) {
  // Right of 2^37 doubles are 2^-15 apart, left of it 2^-16. With s = 32000.45 * 2^-15 the hit at
  // center + s is rounded by 0.45 * 2^-15 = 1.4e-5 and falls off the circle, the one at center - s
  // is rounded by 0.1 * 2^-16 = 1.5e-6 and stays.
  const double x = std::ldexp(1.0, 37);
  const double s = 32000.45 / 32768;
  const double y = std::sqrt(1 - s * s);
  const GX2DArc circle = Arc(x, 0, x + 1, 0, x, 1, x, 1);
  GX2DPoint right, left;
  ASSERT_TRUE(GXGeometry::Get2DLineArcIntersections(Line(x, y, x - 50, y), circle, right, left));
  ASSERT_FALSE(GXGeometry::Point2DOnArc(circle, right));
  ASSERT_TRUE(GXGeometry::Point2DOnArc(circle, left));
  GX2DElmList list;
  Add(list, circle, Line(x - 9, 50, x + 9, 50));
  EXPECT_EQ(Place(list, x, y), "outside");
}

/// A contour of lines and arcs, and the same as a fine polygon.
struct Bulged {
  GX2DElmList contour;
  std::vector<GX2DPoint> corners;  ///< Vertices, and the extremes of the arcs' circles.
  std::vector<GX2DPoint> outline;  ///< Points along the whole contour.
};

/// Appends an arc over the chord from a to b whose height is `share` of the chord, to the right of
/// the chord for a positive one.
void AddBulge(Bulged& shape, const GX2DPoint& a, const GX2DPoint& b, double share) {
  const double c = std::hypot(b.X - a.X, b.Y - a.Y);
  const double nx = (b.Y - a.Y) / c, ny = -(b.X - a.X) / c;  // right of the chord
  const double h = share * c;
  const double r = (c * c / 4 + h * h) / (2 * std::fabs(h));
  const double inwards = (h > 0 ? r : -r) - h;  // from the middle of the chord to the center
  const double mx = (a.X + b.X) / 2, my = (a.Y + b.Y) / 2;
  const GX2DPoint center(mx - nx * inwards, my - ny * inwards);
  Add(shape.contour, GX2DArc(center, a, Point(mx + nx * h, my + ny * h), b));
  for (const double degrees : {0.0, 90.0, 180.0, 270.0}) {
    shape.corners.push_back(OnCircle(center.X, center.Y, r, degrees));
  }
  const double from = std::atan2(a.Y - center.Y, a.X - center.X);
  double sweep = std::atan2(b.Y - center.Y, b.X - center.X) - from;
  // Less than half a turn: to the right of the chord runs counter-clockwise.
  if (h > 0 && sweep < 0) sweep += 2 * support::kPi;
  if (h < 0 && sweep > 0) sweep -= 2 * support::kPi;
  for (int i = 0; i < 400; ++i) {
    const double angle = from + sweep * i / 400;
    shape.outline.push_back(Point(center.X + r * std::cos(angle), center.Y + r * std::sin(angle)));
  }
}

void MakeBulged(Bulged& shape, support::Random& random) {
  const int count = random.Int(5, 9);
  std::vector<GX2DPoint> vertices;
  for (int i = 0; i < count; ++i) {
    const double angle = 360.0 * (i + random.Between(-0.1, 0.1)) / count;
    vertices.push_back(OnCircle(4, 7, random.Between(45, 55), angle));
  }
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    const GX2DPoint a = vertices[i], b = vertices[(i + 1) % vertices.size()];
    shape.corners.push_back(a);
    if (random.Int(0, 2) == 0) {
      Add(shape.contour, GX2DLine(a, b));
      shape.outline.push_back(a);
    } else {
      AddBulge(shape, a, b, random.Between(0.03, 0.1) * (random.Bool() ? 1 : -1));
    }
  }
}

/// How often the outline winds around the point, summed up from the angles under which it is seen.
long Winding(const std::vector<GX2DPoint>& outline, const GX2DPoint& p) {
  long double sum = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const GX2DPoint& a = outline[i];
    const GX2DPoint& b = outline[(i + 1) % outline.size()];
    const long double ax = a.X - p.X, ay = a.Y - p.Y, bx = b.X - p.X, by = b.Y - p.Y;
    sum += std::atan2(ax * by - ay * bx, ax * bx + ay * by);
  }
  return std::lround(sum / (2 * static_cast<long double>(support::kPi)));
}

TEST(IsPointInArcContour, AgreesWithTheWindingNumberOfAFineOutline) {
  support::Random random;
  int tested = 0;
  for (int round = 0; round < 60; ++round) {
    Bulged shape;
    MakeBulged(shape, random);
    if (random.Bool()) {
      shape.contour.Reverse();
    }
    for (int i = 0; i < 50; ++i) {
      const GX2DPoint p(random.Between(-60, 68), random.Between(-57, 71));
      // The outline is off the arcs by less than 0.001; levels of vertices and extremes are apart
      // from what this test claims.
      const auto nearOutline = [&](const GX2DPoint& q) {
        return std::hypot(q.X - p.X, q.Y - p.Y) < 0.3;
      };
      const auto nearLevel = [&](const GX2DPoint& q) { return std::fabs(q.Y - p.Y) < 0.01; };
      if (std::any_of(shape.outline.begin(), shape.outline.end(), nearOutline) ||
          std::any_of(shape.corners.begin(), shape.corners.end(), nearLevel)) {
        continue;
      }
      ++tested;
      EXPECT_EQ(Place(shape.contour, p.X, p.Y),
                Winding(shape.outline, p) != 0 ? "inside" : "outside")
          << "round " << round << ": " << p.X << ", " << p.Y;
    }
  }
  EXPECT_GT(tested, 2000);
}

}  // namespace
