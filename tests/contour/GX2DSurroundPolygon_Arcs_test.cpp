// The ring of points around a contour: vertices from arcs.
//
//     corner +----------+ top side      candidates of an arc are the crossings of its two end
//            |  .-""-.  |               tangents with the sides of its square, and the four
//            | /      \ |               extreme points of its circle
//            |(   +    )|
#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Ring.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace {

using support::Add;
using support::Arc;
using support::ArcByAngles;
using support::At;
using support::ElementsAt;
using support::Flat;
using support::kPi;
using support::Line;
using support::OnCircle;
using support::Point;

using ArcPoints = GX2DSurroundPolygon::ArcPoints;
using Places = std::vector<int>;

/// The flags of the four corners of the square.
struct Corners {
  bool topLeft = false;
  bool topRight = false;
  bool bottomLeft = false;
  bool bottomRight = false;

  bool operator==(const Corners& o) const {
    return topLeft == o.topLeft && topRight == o.topRight && bottomLeft == o.bottomLeft &&
           bottomRight == o.bottomRight;
  }
};

/// Writes down what is offered for the arcs of a list.
class Recorder : public GX2DSurroundPolygon {
 public:
  std::vector<std::pair<GX2DPoint, Corners>> offers;

 protected:
  void AddArcPoint(GX2DArc& arc, GX2DPoint* const& candidate, ArcPoints& points,
                   const bool& keepTopLeft, const bool& keepTopRight, const bool& keepBottomLeft,
                   const bool& keepBottomRight) override {
    offers.emplace_back(*candidate,
                        Corners{keepTopLeft, keepTopRight, keepBottomLeft, keepBottomRight});
    GX2DSurroundPolygon::AddArcPoint(arc, candidate, points, keepTopLeft, keepTopRight,
                                     keepBottomLeft, keepBottomRight);
  }
};

/// Adds an arc and two lines that close it over a far corner, so that each joint is a single one.
void AddArcWithLegs(GX2DElmList& list, const GX2DArc& arc) {
  const GX2DPoint far(arc.Center.X + 1000, arc.Center.Y + 777);
  Add(list, arc, GX2DLine(arc.End, far), GX2DLine(far, arc.Start));
}

std::vector<GX2DPoint> Positions(const Recorder& recorder) {
  std::vector<GX2DPoint> positions;
  for (const auto& offer : recorder.offers) positions.push_back(offer.first);
  return positions;
}

// The tangents of a circle at the angles a and b cross at the angle (a + b) / 2, r / cos((a - b) /
// 2) from the center; the sides touch it at 90, 270, 180 and 0 degrees.
TEST(ConstructFrom2DElmList, OffersTheTangentsOfStartAndEndThenTheExtremesOfTheCircle) {
  for (const bool clockwise : {false, true}) {
    const double from = clockwise ? 70 : 20, to = 90 - from;
    GX2DElmList list;
    AddArcWithLegs(list, ArcByAngles(3, -2, 10, from, to - from));
    Recorder recorder;
    recorder.ConstructFrom2DElmList(list, nullptr);
    std::vector<GX2DPoint> expected;
    for (const double end : {from, to}) {
      for (const double side : {90.0, 270.0, 180.0, 0.0}) {
        const double reach = 10 / std::cos((end - side) / 2 * kPi / 180);
        expected.push_back(OnCircle(3, -2, reach, (end + side) / 2));
      }
    }
    for (const double side : {90.0, 0.0, 270.0, 180.0})
      expected.push_back(OnCircle(3, -2, 10, side));
    ASSERT_EQ(recorder.offers.size(), 12U);
    EXPECT_POINT_NEAR(Flat(Positions(recorder)), Flat(expected), 1e-11);
    for (const auto& offer : recorder.offers) EXPECT_TRUE(offer.second == Corners());
  }
}

std::vector<GX2DPoint> LastFour(const Recorder& recorder) {
  const std::vector<GX2DPoint> all = Positions(recorder);
  return {all.end() - std::min<std::ptrdiff_t>(4, all.end() - all.begin()), all.end()};
}

TEST(ConstructFrom2DElmList, OffersTheExtremesOfTheCircleExactly) {
  GX2DElmList list;
  AddArcWithLegs(list, ArcByAngles(3, -2, 10, 20, 50));
  const GX2DArc& arc = At<GX2DArc>(list, 0);
  Recorder recorder;
  recorder.ConstructFrom2DElmList(list, nullptr);
  const double r = arc.Radius();
  EXPECT_EQ(Flat(LastFour(recorder)), Flat({{3, -2 + r}, {3 + r, -2}, {3, -2 - r}, {3 - r, -2}}));
}

// On a quarter with level and upright end tangents two candidates fall on the corner, one of each
// tangent, and both carry its flag; together the eight quarters fill every cell of the flags.
TEST(ConstructFrom2DElmList, KeepsACornerWhereBothTangentsPassThroughIt) {
  struct Case {
    double from;
    double sweep;
    Corners keep;
    int places[2];  // among the offers
  };
  const Corners topRight{false, true, false, false}, topLeft{true, false, false, false};
  const Corners bottomRight{false, false, false, true}, bottomLeft{false, false, true, false};
  // An upright start tangent crosses top and bottom, the level end tangent then left and right.
  const Case cases[] = {{0, 90, topRight, {0, 3}},      {0, -90, bottomRight, {1, 3}},
                        {180, -90, topLeft, {0, 2}},    {180, 90, bottomLeft, {1, 2}},
                        {90, -90, topRight, {1, 2}},    {90, 90, topLeft, {0, 2}},
                        {270, 90, bottomRight, {1, 3}}, {270, -90, bottomLeft, {0, 3}}};
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.from << " by " << c.sweep);
    const auto on = [](double degrees) {
      const int quarter = (static_cast<int>(degrees) / 90 + 4) % 4;
      const GX2DPoint points[] = {{10, 0}, {0, 10}, {-10, 0}, {0, -10}};
      return points[quarter];
    };
    GX2DElmList list;
    AddArcWithLegs(list, GX2DArc(Point(0, 0), on(c.from), OnCircle(0, 0, 10, c.from + c.sweep / 2),
                                 on(c.from + c.sweep)));
    Recorder recorder;
    recorder.ConstructFrom2DElmList(list, nullptr);
    ASSERT_EQ(recorder.offers.size(), 8U);  // four tangent crossings and four extremes
    for (int i = 0; i < 8; ++i) {
      const bool atCorner = i == c.places[0] || i == c.places[1];
      EXPECT_TRUE(recorder.offers[static_cast<std::size_t>(i)].second ==
                  (atCorner ? c.keep : Corners()))
          << i;
    }
    const GX2DPoint corner(on(c.from).X + on(c.from + c.sweep).X,
                           on(c.from).Y + on(c.from + c.sweep).Y);
    ASSERT_EQ(recorder.size(), 4U);  // start, corner, end and the far corner of the lines
    EXPECT_POINT_NEAR(*recorder[0]->Point, on(c.from), 1e-12);
    EXPECT_POINT_NEAR(*recorder[1]->Point, corner, 1e-12);
    EXPECT_POINT_NEAR(*recorder[2]->Point, on(c.from + c.sweep), 1e-12);
  }
}

// The end tangent of an arc that stops short of 90 degrees by the angle d meets the right side
// r d below the corner; d is so small that the tangent still counts as level.
TEST(ConstructFrom2DElmList, SeesBothTangentsAtACornerWithinATenthOfAThousandth) {
  for (const bool within : {true, false}) {
    const double gap = within ? 0.000095 : 0.000105;
    const GX2DArc arc(Point(0, 0), Point(100, 0), OnCircle(0, 0, 100, 45), Point(gap, 100));
    GX2DElmList list;
    AddArcWithLegs(list, arc);
    Recorder recorder;
    recorder.ConstructFrom2DElmList(list, nullptr);
    ASSERT_EQ(recorder.offers.size(), 8U);
    EXPECT_EQ(recorder.offers[0].second.topRight, within);
    EXPECT_EQ(recorder.offers[3].second.topRight, within);
    EXPECT_POINT_NEAR(recorder.offers[3].first, Point(100, 100 - gap), 1e-9);
  }
}

TEST(ConstructFrom2DElmList, PutsTheCornerOfAFilletBetweenItsStartAndEnd) {
  GX2DElmList list;
  Add(list, Line(20, -10, 10, -10), Line(10, -10, 10, 0),
      Arc(0, 0, 10, 0, 10 * std::sqrt(0.5), 10 * std::sqrt(0.5), 0, 10), Line(0, 10, 20, -10));
  GX2DSurroundPolygon ring;
  ring.ConstructFrom2DElmList(list, nullptr);
  ASSERT_EQ(Flat(ring), Flat({{20, -10}, {10, -10}, {10, 0}, {10, 10}, {0, 10}}));
  EXPECT_EQ(ElementsAt(ring, 0, list), Places({3, 0}));
  EXPECT_EQ(ElementsAt(ring, 2, list), Places({1, 2}));
  EXPECT_EQ(ElementsAt(ring, 3, list), Places({2}));
  EXPECT_EQ(ElementsAt(ring, 4, list), Places({2, 3}));
}

TEST(ConstructFrom2DElmList, ListsAnArcInFrontAtTheVertexOfItsEnd) {
  GX2DElmList list;
  const GX2DArc arc = ArcByAngles(0, 0, 10, 0, 60);
  Add(list, GX2DLine(arc.End, Point(30, 0)), Line(30, 0, 10, 0), arc);
  GX2DSurroundPolygon ring;
  ring.ConstructFrom2DElmList(list, nullptr);
  EXPECT_EQ(ElementsAt(ring, 0, list), Places({2, 0}));  // its end
  EXPECT_EQ(ElementsAt(ring, 2, list), Places({1, 2}));  // its start, at the back
}

// There the arc comes to its end as one of its candidates first.
TEST(ConstructFrom2DElmList, ListsAnArcBehindWhereItEndsAtAnExtremePoint) {
  GX2DElmList list;
  Add(list, Line(0, 10, 30, 0), Line(30, 0, 10, 0), ArcByAngles(0, 0, 10, 0, 90));
  GX2DSurroundPolygon ring;
  ring.ConstructFrom2DElmList(list, nullptr);
  EXPECT_EQ(ElementsAt(ring, 0, list), Places({0, 2}));
}

TEST(ConstructFrom2DElmList, HasNoCornersAroundAHalfCircleWithUprightEndTangents) {
  GX2DElmList list;
  Add(list, Arc(0, 0, 10, 0, 0, 10, -10, 0), Line(-10, 0, 0, -30), Line(0, -30, 10, 0));
  Recorder recorder;
  recorder.ConstructFrom2DElmList(list, nullptr);
  // Neither tangent meets the left or the right side; the four points on top and bottom are
  // corners that only one tangent passes through.
  const std::vector<GX2DPoint> all = Positions(recorder);
  ASSERT_EQ(all.size(), 8U);
  EXPECT_EQ(Flat({all[0], all[1], all[2], all[3]}),
            Flat({{10, 10}, {10, -10}, {-10, 10}, {-10, -10}}));
  for (const auto& offer : recorder.offers) EXPECT_TRUE(offer.second == Corners());
  EXPECT_EQ(Flat(recorder), Flat({{10, 0}, {0, 10}, {-10, 0}, {0, -30}}));
}

TEST(ConstructFrom2DElmList, TurnsAnArcThatEndsAtTheJoint) {
  GX2DElmList list;
  Add(list, Line(20, -10, 10, 0), ArcByAngles(0, 0, 10, 90, -90), Line(0, 10, 20, -10));
  const GX2DArc before = At<GX2DArc>(list, 1);
  GX2DSurroundPolygon ring;
  ring.ConstructFrom2DElmList(list, nullptr);
  const GX2DArc& after = At<GX2DArc>(list, 1);
  EXPECT_POINT_EQ(after.Start, before.End);
  EXPECT_POINT_EQ(after.End, before.Start);
  EXPECT_POINT_EQ(after.Mid, before.Mid);
  EXPECT_POINT_NEAR(Flat(ring), Flat({{20, -10}, {10, 0}, {10, 10}, {0, 10}}), 1e-12);
}

// The radius is that of the start, and turning exchanges the ends: 10 before and 20 after it. The
// half circle of radius 20 from (20, 0) has its top at (0, 20).
TEST(ConstructFrom2DElmList, TakesTheRadiusAfterTurning) {
  GX2DElmList list;
  Add(list, Line(50, -50, 20, 0), Arc(0, 0, -10, 0, 0, 10, 20, 0), Line(-10, 0, 50, -50));
  Recorder recorder;
  recorder.ConstructFrom2DElmList(list, nullptr);
  EXPECT_POINT_EQ(At<GX2DArc>(list, 1).Start, Point(20, 0));
  EXPECT_EQ(Flat(LastFour(recorder)), Flat({{0, 20}, {20, 0}, {0, -20}, {-20, 0}}));
}

// One arc between `from` and `to`, in degrees that keep clear of every limit: the expected vertices
// by the formula for crossing tangents, in the order along the arc.
std::vector<GX2DPoint> VerticesAround(double from, double sweep, double r) {
  std::vector<std::pair<double, double>> polar;  // way along the arc, distance from the center
  const auto offer = [&](double degrees, double reach) {
    const double sense = sweep < 0 ? -1 : 1;
    const double way = std::fmod((degrees - from) * sense + 1080, 360);
    const double x = reach * std::cos(degrees * kPi / 180);
    const double y = reach * std::sin(degrees * kPi / 180);
    if (way <= std::fabs(sweep) && std::fabs(x) <= r + 1e-6 && std::fabs(y) <= r + 1e-6) {
      polar.emplace_back(way, reach);
    }
  };
  for (const double side : {0.0, 90.0, 180.0, 270.0}) {
    offer(side, r);
    for (const double end : {from, from + sweep}) {
      const double reach = r / std::cos((end - side) / 2 * kPi / 180);
      offer(reach < 0 ? (end + side) / 2 + 180 : (end + side) / 2, std::fabs(reach));
    }
  }
  polar.emplace_back(0, r);
  polar.emplace_back(std::fabs(sweep), r);
  std::sort(polar.begin(), polar.end());
  std::vector<GX2DPoint> vertices;
  for (const auto& [way, reach] : polar) {
    vertices.push_back(OnCircle(0, 0, reach, from + (sweep < 0 ? -way : way)));
  }
  return vertices;
}

TEST(ConstructFrom2DElmList, RunsAroundRandomArcsFromStartToEnd) {
  support::Random random;
  for (int round = 0; round < 1000; ++round) {
    // The fractions keep ends, tangents and extremes apart by a twentieth of a degree and more.
    const double from = random.Int(-180, 179) + 0.25;
    double sweep = random.Int(2, 357) - 0.1;
    if (random.Bool()) sweep = -sweep - 0.3;
    const double r = random.Between(1, 500);
    SCOPED_TRACE(testing::Message() << from << " by " << sweep << " radius " << r);
    GX2DElmList list;
    AddArcWithLegs(list, ArcByAngles(0, 0, r, from, sweep));
    GX2DSurroundPolygon ring;
    ring.ConstructFrom2DElmList(list, nullptr);
    std::vector<GX2DPoint> expected = VerticesAround(from, sweep, r);
    expected.emplace_back(1000, 777);
    // Tangents are crossed by slopes; a tangent 0.05 degrees off an axis loses four digits.
    ASSERT_POINT_NEAR(Flat(ring), Flat(expected), r * 1e-9);
  }
}

// An arc over exactly one extreme point of its circle lies within the chain of its vertices: both
// end tangents meet the side at that extreme in front of the corners.
TEST(ConstructFrom2DElmList, EnclosesArcsOverOneExtremePoint) {
  support::Random random;
  for (int round = 0; round < 300; ++round) {
    const int side = random.Int(0, 3) * 90;
    const double before = random.Int(2, 88) + 0.25, behind = random.Int(2, 88) + 0.15;
    const bool clockwise = random.Bool();
    const double from = clockwise ? side + behind : side - before;
    const double sweep = clockwise ? -(before + behind) : before + behind;
    SCOPED_TRACE(testing::Message() << from << " by " << sweep);
    GX2DElmList list;
    AddArcWithLegs(list, ArcByAngles(0, 0, 10, from, sweep));
    GX2DSurroundPolygon ring;
    ring.ConstructFrom2DElmList(list, nullptr);
    ASSERT_EQ(ring.size(), 6U);  // start, tangent, extreme, tangent, end and the far corner
    for (std::size_t i = 1; i < 5; ++i) {
      // No segment of the chain comes nearer to the center than the radius.
      const GX2DPoint &a = *ring[i - 1]->Point, &b = *ring[i]->Point;
      const double length = std::hypot(b.X - a.X, b.Y - a.Y);
      EXPECT_GE(std::fabs(a.X * b.Y - a.Y * b.X) / length, 10 - 1e-9);
    }
  }
}

TEST(ConstructFrom2DElmList, LeavesANarrowArcWithItsChord) {
  GX2DElmList list;
  // From 40 to 60 degrees: the tangents meet the sides at 65 and 30 degrees, outside the arc.
  AddArcWithLegs(list, ArcByAngles(0, 0, 10, 40, 20));
  GX2DSurroundPolygon ring;
  ring.ConstructFrom2DElmList(list, nullptr);
  EXPECT_POINT_NEAR(Flat(ring), Flat({OnCircle(0, 0, 10, 40), OnCircle(0, 0, 10, 60), {1000, 777}}),
                    1e-12);
}

// Start and end are one vertex, both tangents are the same line, and the corners belong to no pair
// of tangents; in both senses the ring runs along the circle.
TEST(ConstructFrom2DElmList, GivesAFullCircleItsExtremePoints) {
  for (const bool clockwise : {false, true}) {
    GX2DElmList list;
    Add(list, support::Circle(0, 0, 10, clockwise));
    GX2DSurroundPolygon ring;
    EXPECT_TRUE(ring.ConstructFrom2DElmList(list, nullptr));
    const double first = clockwise ? -10 : 10;
    EXPECT_EQ(Flat(ring), Flat({{10, 0}, {0, first}, {-10, 0}, {0, -first}}));
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(ElementsAt(ring, i, list), Places({0}));
  }
}

// Each half shares both ends with the other, and then the end counts as the joint: both are
// turned, and their middle points make arcs of the other sense of them.
TEST(ConstructFrom2DElmList, TurnsBothHalvesOfACircle) {
  GX2DElmList list;
  Add(list, Arc(0, 0, 10, 0, 0, 10, -10, 0), Arc(0, 0, -10, 0, 0, -10, 10, 0));
  GX2DSurroundPolygon ring;
  ring.ConstructFrom2DElmList(list, nullptr);
  EXPECT_POINT_EQ(At<GX2DArc>(list, 0).Start, Point(-10, 0));
  EXPECT_EQ(Flat(ring), Flat({{-10, 0}, {0, 10}, {10, 0}, {0, -10}}));
  EXPECT_EQ(ElementsAt(ring, 0, list), Places({0, 1}));
  EXPECT_EQ(ElementsAt(ring, 2, list), Places({0, 1}));
}

}  // namespace
