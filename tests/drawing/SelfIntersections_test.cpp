#include "drawing/SelfIntersections.h"

#include "PartSketch.h"
#include "drawing/ContourCrossings.h"
#include "support/Build.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace {

using drawing::SelfIntersection;
using support::Add;
using support::AddPolygon;
using support::ArcByAngles;
using support::Line;

constexpr std::size_t kMany = 1000;

// A crossing is computed with a few roundings of coordinates up to 100.
constexpr double kRounding = 1e-12;

void ExpectPlace(const SelfIntersection& found, std::size_t first, std::size_t second, double x,
                 double y, double length = 0.0) {
  EXPECT_EQ(found.first, first);
  EXPECT_EQ(found.second, second);
  EXPECT_NEAR(found.place.X, x, kRounding);
  EXPECT_NEAR(found.place.Y, y, kRounding);
  EXPECT_NEAR(found.length, length, kRounding);
}

TEST(FindSelfIntersections, TellsWhereABowTieCrosses) {
  GX2DElmList contour;
  AddPolygon(contour, {{0, 0}, {10, 10}, {10, 0}, {0, 10}});
  const auto found = drawing::FindSelfIntersections(contour, kMany).found;
  ASSERT_EQ(found.size(), 1U);
  // The diagonals of a square.
  ExpectPlace(found[0], 0, 2, 5, 5);
}

TEST(FindSelfIntersections, TellsNothingOfAContourThatOnlyJoins) {
  GX2DElmList slot;
  Add(slot, Line(0, -5, 20, -5), ArcByAngles(20, 0, 5, -90, 180), Line(20, 5, 0, 5),
      ArcByAngles(0, 0, 5, 90, 180));
  EXPECT_TRUE(drawing::FindSelfIntersections(slot, kMany).found.empty());
  GX2DElmList circle;
  Add(circle, support::Circle(3, 4, 5));
  EXPECT_TRUE(drawing::FindSelfIntersections(circle, kMany).found.empty());
  GX2DElmList halves;
  Add(halves, ArcByAngles(0, 0, 5, 0, 180), ArcByAngles(0, 0, 5, 180, 180));
  EXPECT_TRUE(drawing::FindSelfIntersections(halves, kMany).found.empty());
  GX2DElmList empty;
  EXPECT_TRUE(drawing::FindSelfIntersections(empty, kMany).found.empty());
}

TEST(FindSelfIntersections, TellsOfALineThatLeavesAnArcAndMeetsItAgain) {
  GX2DElmList chain;
  Add(chain, ArcByAngles(0, 0, 5, 0, 180), Line(-5, 0, 5, 5));
  const auto found = drawing::FindSelfIntersections(chain, kMany).found;
  ASSERT_EQ(found.size(), 1U);
  // (-5 + 2 t)^2 + t^2 = 25 has the roots 0, the joint, and 4.
  ExpectPlace(found[0], 0, 1, 3, 4);
}

TEST(FindSelfIntersections, TellsBothPlacesWhereALinePassesThroughAnArc) {
  GX2DElmList chain;
  Add(chain, Line(-10, 3, 10, 3), Line(10, 3, 5, 0), ArcByAngles(0, 0, 5, 0, 180));
  const auto found = drawing::FindSelfIntersections(chain, kMany).found;
  ASSERT_EQ(found.size(), 2U);
  // 5^2 - 3^2 = 4^2.
  ExpectPlace(found[0], 0, 2, -4, 3);
  ExpectPlace(found[1], 0, 2, 4, 3);
}

TEST(FindSelfIntersections, TellsOfTwoArcsThatMeetAgain) {
  // Circles of radius 5 whose centres are 6 apart meet at 3, +-4: once as a joint.
  const double angle = std::atan2(4.0, 3.0) * 180.0 / support::kPi;
  GX2DElmList chain;
  Add(chain, ArcByAngles(0, 0, 5, 90, -90 - angle),
      ArcByAngles(6, 0, 5, 180 + angle, -2 * angle - 60));
  const auto found = drawing::FindSelfIntersections(chain, kMany).found;
  ASSERT_EQ(found.size(), 1U);
  ExpectPlace(found[0], 0, 1, 3, 4);
}

TEST(FindSelfIntersections, TellsTheMiddleWhereALineRunsBackOverTheOneBefore) {
  GX2DElmList chain;
  Add(chain, Line(0, 0, 10, 0), Line(10, 0, 4, 0), Line(4, 0, 4, 7));
  const auto found = drawing::FindSelfIntersections(chain, kMany).found;
  // From 4 to 10; and the last line begins upon the first.
  ASSERT_EQ(found.size(), 2U);
  ExpectPlace(found[0], 0, 1, 7, 0, 6);
  ExpectPlace(found[1], 0, 2, 4, 0);
}

TEST(FindSelfIntersections, TellsTheMiddleWhereAnArcRunsBackOverTheOneBefore) {
  GX2DElmList chain;
  Add(chain, ArcByAngles(0, 0, 10, 0, 90), ArcByAngles(0, 0, 10, 90, -60));
  const auto found = drawing::FindSelfIntersections(chain, kMany).found;
  ASSERT_EQ(found.size(), 1U);
  // From 30 to 90 degrees; the middle is at 60.
  ExpectPlace(found[0], 0, 1, 5, 5 * std::sqrt(3.0), 10 * support::kPi / 3);
}

TEST(FindSelfIntersections, TellsTheMiddleOfAStretchOfElementsThatAreNoNeighbours) {
  GX2DElmList chain;
  AddPolygon(chain, {{0, 0}, {10, 0}, {10, 5}, {2, 5}, {2, 0}, {7, 0}, {7, -4}}, false);
  const auto found = drawing::FindSelfIntersections(chain, kMany).found;
  // The line from 2 to 7 lies on the first; its neighbours end and begin there.
  ASSERT_EQ(found.size(), 3U);
  ExpectPlace(found[0], 0, 3, 2, 0);
  ExpectPlace(found[1], 0, 4, 4.5, 0, 5);
  ExpectPlace(found[2], 0, 5, 7, 0);
}

TEST(FindSelfIntersections, TellsNothingOfASpike) {
  GX2DElmList spike;
  AddPolygon(spike, {{0, 0}, {10, 0}, {0, 0.01}});
  EXPECT_TRUE(drawing::FindSelfIntersections(spike, kMany).found.empty());
}

TEST(FindSelfIntersections, TellsNothingOfALineAndAnArcThatPartAtACusp) {
  GX2DElmList cusp;
  Add(cusp, Line(50, 0, 0, 0), ArcByAngles(0, 100, 100, -90, 40));
  EXPECT_TRUE(drawing::FindSelfIntersections(cusp, kMany).found.empty());
}

TEST(FindSelfIntersections, TakesATangentForOnePlace) {
  GX2DElmList chain;
  Add(chain, Line(-20, 5, 20, 5), Line(20, 5, 5, 0), ArcByAngles(0, 0, 5, 0, 180));
  const auto found = drawing::FindSelfIntersections(chain, kMany).found;
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].second, 2U);
  // The root of a rounding of 1e-15 moves the foot along the line.
  EXPECT_NEAR(found[0].place.X, 0.0, 1e-6);
  EXPECT_NEAR(found[0].place.Y, 5.0, kRounding);
}

TEST(FindSelfIntersections, TellsWhereAnEndTouchesWithinTheTolerance) {
  for (const double gap : {-0.00009, 0.0, 0.00009}) {
    GX2DElmList chain;
    AddPolygon(chain, {{0, 0}, {10, 0}, {10, 5}, {4, gap}}, false);
    const auto found = drawing::FindSelfIntersections(chain, kMany).found;
    ASSERT_EQ(found.size(), 1U) << gap;
    EXPECT_NEAR(found[0].place.X, 4.0, 2 * drawing::kTouchTolerance) << gap;
  }
  GX2DElmList apart;
  AddPolygon(apart, {{0, 0}, {10, 0}, {10, 5}, {4, 0.00011}}, false);
  EXPECT_TRUE(drawing::FindSelfIntersections(apart, kMany).found.empty());
}

TEST(FindSelfIntersections, DoesNotMindJointsThatMeetWithinTheTolerance) {
  GX2DElmList contour;
  Add(contour, Line(0, 0, 10, 0.0001), Line(10.0001, 0, 10, 10), Line(10, 10.0001, 0, 0));
  EXPECT_TRUE(drawing::FindSelfIntersections(contour, kMany).found.empty());
}

TEST(FindSelfIntersections, FindsCrossingsOfNearlyParallelLines) {
  GX2DElmList chain;
  // Slopes of +-0.000002 cross half way.
  AddPolygon(chain, {{0, -0.001}, {1000, 0.001}, {1000, 50}, {0, 50}, {0, 0.001}, {1000, -0.001}},
             false);
  const auto found = drawing::FindSelfIntersections(chain, kMany).found;
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].second, 4U);
  EXPECT_NEAR(found[0].place.X, 500.0, 1e-6);
}

TEST(FindSelfIntersections, TellsNoMoreThanIsAskedFor) {
  GX2DElmList zigzag;
  for (int i = 0; i < 20; ++i) {
    Add(zigzag, Line(i, 0, i, 10));
    Add(zigzag, Line(-1, 0.3 * i + 0.1, 30, 0.3 * i + 0.1));
  }
  EXPECT_EQ(drawing::FindSelfIntersections(zigzag, kMany).found.size(), 400U);
  const auto found = drawing::FindSelfIntersections(zigzag, 7).found;
  ASSERT_EQ(found.size(), 7U);
  EXPECT_EQ(found.back().first, 0U);
  EXPECT_EQ(found.back().second, 13U);
}

TEST(FindSelfIntersections, SaysWhetherThereAreMore) {
  GX2DElmList bowTie;
  AddPolygon(bowTie, {{0, 0}, {10, 10}, {10, 0}, {0, 10}});
  EXPECT_TRUE(drawing::FindSelfIntersections(bowTie, 1).complete);
  EXPECT_FALSE(drawing::FindSelfIntersections(bowTie, 0).complete);
}

// 4,000,000 boxes and 500 for each element are more than the square of 2000, not of 6000.
TEST(FindSelfIntersections, EndsEarlyWhereEveryElementMayMeetEveryOther) {
  for (const auto& [count, complete] : {std::pair(2000, true), std::pair(6000, false)}) {
    SCOPED_TRACE(count);
    GX2DElmList star;
    for (int i = 0; i < count; ++i) Add(star, Line(0, 0, 1000, 1.0 * i));
    const auto result = drawing::FindSelfIntersections(star, kMany);
    EXPECT_TRUE(result.found.empty());
    EXPECT_EQ(result.complete, complete);
  }
}

TEST(FindSelfIntersections, TellsOfLinesFromOnePointThatReachOneAnother) {
  GX2DElmList fan;
  // The far end of the second lies on the first, though both begin at one corner.
  Add(fan, Line(0, 0, 20, 0), Line(10, 0.00005, 0, 0), Line(0, 0, 20, 0.0002));
  const auto found = drawing::FindSelfIntersections(fan, kMany).found;
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].second, 1U);
  EXPECT_NEAR(found[0].length, 10.0, 1e-4);
  // The third runs on the second from end to end as well, and slowly away from the first.
  EXPECT_EQ(found[1].first, 1U);
  EXPECT_EQ(found[1].second, 2U);
}

TEST(FindSelfIntersections, TellsNothingWhereNumbersEnd) {
  GX2DElmList contour;
  Add(contour, Line(0, 0, 1e308, 1e308), Line(1e308, 1e308, HUGE_VAL, 0), Line(5, 9, 9, 5));
  EXPECT_TRUE(drawing::FindSelfIntersections(contour, kMany).found.empty());
}

// --- Against a plain search along every element ---------------------------------------------

GX2DPoint PointOfSide(const support::Side& side, double share) {
  if (side.sweep != 0.0) return support::Turned(side.start, side.centre, share * side.sweep);
  return {side.start.X + share * (side.end.X - side.start.X),
          side.start.Y + share * (side.end.Y - side.start.Y)};
}

// Distance of a point to a side, written out without the host's own measures.
double DistanceToSide(const GX2DPoint& p, const support::Side& side) {
  const auto distance = [&](const GX2DPoint& q) { return std::hypot(p.X - q.X, p.Y - q.Y); };
  const double toEnds = std::min(distance(side.start), distance(side.end));
  if (side.sweep == 0.0) {
    const double dx = side.end.X - side.start.X;
    const double dy = side.end.Y - side.start.Y;
    const double along = (p.X - side.start.X) * dx + (p.Y - side.start.Y) * dy;
    if (along <= 0.0 || along >= dx * dx + dy * dy) return toEnds;
    return std::fabs((p.X - side.start.X) * dy - (p.Y - side.start.Y) * dx) / std::hypot(dx, dy);
  }
  const auto angle = [&](const GX2DPoint& q) {
    return std::atan2(q.Y - side.centre.Y, q.X - side.centre.X);
  };
  double turned = angle(p) - angle(side.start);
  if (side.sweep < 0.0) turned = -turned;
  while (turned < 0.0) turned += support::kFullTurn;
  if (turned > std::fabs(side.sweep)) return toEnds;
  const double radius = std::hypot(side.start.X - side.centre.X, side.start.Y - side.centre.Y);
  return std::fabs(distance(side.centre) - radius);
}

// The least distance near a share, by golden section.
double Descend(const support::Side& p, const support::Side& q, double low, double high,
               GX2DPoint& place) {
  constexpr double kGolden = 0.6180339887498949;
  for (int i = 0; i < 60; ++i) {
    const double a = high - kGolden * (high - low);
    const double b = low + kGolden * (high - low);
    if (DistanceToSide(PointOfSide(p, a), q) < DistanceToSide(PointOfSide(p, b), q)) {
      high = b;
    } else {
      low = a;
    }
  }
  place = PointOfSide(p, 0.5 * (low + high));
  return DistanceToSide(place, q);
}

// Places where a walk along `p` comes to `q`; false where it comes so near that it is a matter of
// the tolerance.
bool WalkedPlaces(const support::Side& p, const support::Side& q, std::vector<GX2DPoint>& places) {
  constexpr int kSteps = 3000;
  std::vector<double> distances;
  for (int i = 0; i <= kSteps; ++i) {
    distances.push_back(DistanceToSide(PointOfSide(p, static_cast<double>(i) / kSteps), q));
  }
  for (int i = 0; i <= kSteps; ++i) {
    const int before = std::max(i - 1, 0);
    const int behind = std::min(i + 1, kSteps);
    const auto at = [&](int step) { return distances[static_cast<std::size_t>(step)]; };
    if (at(i) > at(before) || at(i) > at(behind)) continue;
    GX2DPoint place;
    const double least = Descend(p, q, static_cast<double>(before) / kSteps,
                                 static_cast<double>(behind) / kSteps, place);
    if (least > 1e-6 && least < 1e-3) return false;
    const bool isNew = std::none_of(places.begin(), places.end(), [&](const GX2DPoint& other) {
      return std::hypot(place.X - other.X, place.Y - other.Y) < 0.02;
    });
    if (least <= 1e-6 && isNew) places.push_back(place);
  }
  return true;
}

support::Side RandomSide(support::Random& random) {
  const GX2DPoint start = random.Point2D(10);
  if (random.Bool()) return support::LineSide(start, random.Point2D(10));
  const double sweep = random.Between(0.3, 5.9) * (random.Bool() ? 1 : -1);
  return support::ArcSide(start, random.Point2D(10), sweep);
}

bool HasPlaceNear(const std::vector<GX2DPoint>& places, const GX2DPoint& p) {
  return std::any_of(places.begin(), places.end(), [&](const GX2DPoint& place) {
    return std::hypot(place.X - p.X, place.Y - p.Y) < 0.02;
  });
}

TEST(FindSelfIntersections, FindsWhatAWalkAlongEveryElementFinds) {
  support::Random random;
  std::size_t compared = 0;
  std::size_t meetings = 0;
  for (int round = 0; round < 60; ++round) {
    support::SketchContour sides;
    GX2DElmList elements;
    for (int i = 0; i < 8; ++i) {
      sides.push_back(RandomSide(random));
      elements.push_back(support::ElementOf(sides.back()).release());
    }
    const auto found = drawing::FindSelfIntersections(elements, kMany).found;
    for (std::size_t i = 0; i < sides.size(); ++i) {
      for (std::size_t j = i + 1; j < sides.size(); ++j) {
        SCOPED_TRACE(testing::Message() << "round " << round << ", " << i << " and " << j);
        std::vector<GX2DPoint> walked;
        if (!WalkedPlaces(sides[i], sides[j], walked)) continue;
        std::vector<GX2DPoint> told;
        for (const SelfIntersection& place : found) {
          if (place.first == i && place.second == j) told.push_back(place.place);
        }
        for (const GX2DPoint& place : walked) EXPECT_TRUE(HasPlaceNear(told, place));
        for (const GX2DPoint& place : told) EXPECT_TRUE(HasPlaceNear(walked, place));
        ++compared;
        meetings += walked.size();
      }
    }
  }
  EXPECT_GT(compared, 1500U);
  EXPECT_GT(meetings, 300U);
}

}  // namespace
