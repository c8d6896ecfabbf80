// The ring of points around a contour: which candidates of an arc are kept.
#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Ring.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace {

using support::Arc;
using support::ArcByAngles;
using support::kPi;
using support::Logged;
using support::OnCircle;
using support::Point;
using support::Ring;

using ArcPoints = GX2DSurroundPolygon::ArcPoints;
using Log = std::vector<std::string>;

/// The flags of the four corners of the square.
struct Corners {
  bool topLeft = false;
  bool topRight = false;
  bool bottomLeft = false;
  bool bottomRight = false;

  static Corners All() { return {true, true, true, true}; }
  bool operator==(const Corners& o) const {
    return topLeft == o.topLeft && topRight == o.topRight && bottomLeft == o.bottomLeft &&
           bottomRight == o.bottomRight;
  }
};

/// Candidates of one arc, destroyed with it.
struct Candidates {
  ArcPoints points;

  Candidates() = default;
  Candidates(const Candidates&) = delete;
  Candidates& operator=(const Candidates&) = delete;
  ~Candidates() {
    for (const auto& candidate : points) delete candidate.second;
  }

  /// Offers a point; whether it was kept.
  bool Offer(GX2DArc arc, const GX2DPoint& position, const Corners& keep = Corners()) {
    const std::size_t before = points.size();
    Ring ring;
    ring.AddArcPoint(arc, new GX2DPoint(position), points, keep.topLeft, keep.topRight,
                     keep.bottomLeft, keep.bottomRight);
    return points.size() == before + 1;
  }
};

/// Whether a fresh list takes a point.
bool Takes(const GX2DArc& arc, const GX2DPoint& position, const Corners& keep = Corners()) {
  return Candidates().Offer(arc, position, keep);
}

GX2DArc WideArc() { return ArcByAngles(0, 0, 10, -135, 359); }  // all but one degree

TEST(AddArcPoint, KeepsTheClockwiseAngleFromTheStart) {
  Candidates candidates;
  const GX2DArc arc = ArcByAngles(1, 2, 10, 0, 300);
  EXPECT_TRUE(candidates.Offer(arc, Point(1, 12)));   // a quarter counter-clockwise
  EXPECT_TRUE(candidates.Offer(arc, Point(-9, 2)));   // half-way round
  EXPECT_TRUE(candidates.Offer(arc, Point(1, -8)));   // a quarter clockwise
  EXPECT_TRUE(candidates.Offer(arc, Point(11, 10)));  // off the circle, atan(8 / 10) = 38.66 up
  EXPECT_TRUE(candidates.Offer(arc, Point(11, 2)));   // the start
  const std::vector<double> expected = {270, 180, 90, 360 - std::atan(0.8) * 180 / kPi, 0};
  std::vector<double> angles;
  for (const auto& candidate : candidates.points) angles.push_back(candidate.first);
  EXPECT_POINT_NEAR(angles, expected, 1e-9);  // appended in the order of the offers
}

TEST(AddArcPoint, TakesOverTheCandidateItself) {
  Log log;
  GX2DArc arc = ArcByAngles(0, 0, 10, 0, 90);
  auto* const kept = new Logged<GX2DPoint>(log, "kept", 0.0, 10.0);
  auto* const outside = new Logged<GX2DPoint>(log, "not on the arc", -10.0, 0.0);
  Candidates candidates;
  Ring ring;
  ring.AddArcPoint(arc, kept, candidates.points, false, false, false, false);
  EXPECT_TRUE(log.empty());
  ASSERT_EQ(candidates.points.size(), 1U);
  EXPECT_EQ(candidates.points.front().second, kept);
  ring.AddArcPoint(arc, outside, candidates.points, true, true, true, true);
  EXPECT_EQ(log, Log({"not on the arc"}));
  EXPECT_TRUE(ring.empty());
}

TEST(AddArcPoint, DestroysWhatItRejects) {
  Log log;
  GX2DArc arc = WideArc();
  Candidates candidates;
  Ring ring;
  const auto offer = [&](const char* name, double x, double y) {
    ring.AddArcPoint(arc, new Logged<GX2DPoint>(log, name, x, y), candidates.points, false, false,
                     false, false);
  };
  offer("corner", 10, 10);
  offer("outside", 11, 0);
  offer("not a number", std::numeric_limits<double>::quiet_NaN(), 0);
  offer("kept", 5, 0);
  offer("same angle", 10, 0);
  EXPECT_EQ(log, Log({"corner", "outside", "not a number", "same angle"}));
  EXPECT_EQ(candidates.points.size(), 1U);
}

TEST(AddArcPoint, AddsNothingForANullCandidate) {
  Candidates candidates;
  GX2DArc arc = WideArc();
  Ring ring;
  ring.AddArcPoint(arc, nullptr, candidates.points, true, true, true, true);
  EXPECT_TRUE(candidates.points.empty());
}

// The share of the sweep may exceed 1 by 0.00001; of 90 degrees that is 0.0009.
TEST(AddArcPoint, TakesWhatLiesAHundredThousandthBehindTheEnd) {
  for (const bool clockwise : {false, true}) {
    const double sense = clockwise ? -1 : 1;
    const GX2DArc arc = ArcByAngles(0, 0, 10, 20, sense * 90);
    EXPECT_TRUE(Takes(arc, OnCircle(0, 0, 9, 20 + sense * 90)));
    EXPECT_TRUE(Takes(arc, OnCircle(0, 0, 9, 20 + sense * 90.00089)));
    EXPECT_FALSE(Takes(arc, OnCircle(0, 0, 9, 20 + sense * 90.00091)));
    EXPECT_TRUE(Takes(arc, OnCircle(0, 0, 9, 20 + sense * 0.2)));
    EXPECT_FALSE(Takes(arc, OnCircle(0, 0, 9, 20 - sense * 0.2)));  // in front of the start
  }
}

TEST(AddArcPoint, TakesACornerOfTheSquareOnlyWithItsFlag) {
  struct Case {
    double x;
    double y;
    Corners keep;
  };
  const Case cases[] = {{10, 10, {false, true, false, false}},
                        {-10, 10, {true, false, false, false}},
                        {10, -10, {false, false, false, true}},
                        {-10, -10, {false, false, true, false}}};
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.x << " " << c.y);
    const GX2DArc arc = ArcByAngles(0, 0, 10, 3, 359);
    const Corners& k = c.keep;
    EXPECT_TRUE(Takes(arc, Point(c.x, c.y), c.keep));
    EXPECT_TRUE(Takes(arc, Point(c.x, c.y), Corners::All()));
    EXPECT_FALSE(Takes(arc, Point(c.x, c.y)));
    EXPECT_FALSE(
        Takes(arc, Point(c.x, c.y), {!k.topLeft, !k.topRight, !k.bottomLeft, !k.bottomRight}));
  }
}

TEST(AddArcPoint, TakesPointsWithinATenthOfAThousandthForTheCorner) {
  const GX2DArc arc = ArcByAngles(0, 0, 10, 3, 359);
  for (const double x : {-1.0, 1.0}) {
    for (const double y : {-1.0, 1.0}) {
      EXPECT_FALSE(Takes(arc, Point(x * 9.99991, y * 9.99991)));
      EXPECT_TRUE(Takes(arc, Point(x * 9.99989, y * 10)));
      EXPECT_TRUE(Takes(arc, Point(x * 10, y * 9.99989)));
    }
  }
}

TEST(AddArcPoint, TakesPointsAHundredThousandthOutsideTheSquare) {
  const GX2DArc arc = ArcByAngles(100, 200, 10, 45, 359);
  for (const double side : {-1.0, 1.0}) {
    EXPECT_TRUE(Takes(arc, Point(100 + side * 10.000009, 203)));
    EXPECT_FALSE(Takes(arc, Point(100 + side * 10.000011, 203)));
    EXPECT_TRUE(Takes(arc, Point(103, 200 + side * 10.000009)));
    EXPECT_FALSE(Takes(arc, Point(103, 200 + side * 10.000011)));
  }
}

TEST(AddArcPoint, TakesPointsInsideTheCircle) { EXPECT_TRUE(Takes(WideArc(), Point(0.5, 0.25))); }

// Half and full coordinates have the very same direction in floating point.
TEST(AddArcPoint, DropsALaterCandidateOfTheSameAngleWhicheverIsNearer) {
  const GX2DArc arc = ArcByAngles(0, 0, 10, 0, 90);
  for (const bool nearFirst : {false, true}) {
    Candidates candidates;
    const GX2DPoint nearer(3, 4), farther(6, 8);
    EXPECT_TRUE(candidates.Offer(arc, nearFirst ? nearer : farther));
    EXPECT_FALSE(candidates.Offer(arc, nearFirst ? farther : nearer));
    EXPECT_POINT_EQ(*candidates.points.front().second, nearFirst ? nearer : farther);
  }
}

TEST(AddArcPoint, KeepsAnglesThatDifferByNextToNothing) {
  const GX2DArc arc = ArcByAngles(0, 0, 10, 0, 90);
  Candidates candidates;
  EXPECT_TRUE(candidates.Offer(arc, Point(6, 8)));
  EXPECT_TRUE(candidates.Offer(arc, Point(6, 8.00000000001)));
}

TEST(AddArcPoint, ToleratesPointsAndArcsWithoutExtentOrNumber) {
  const double odd[] = {0, std::numeric_limits<double>::quiet_NaN(),
                        std::numeric_limits<double>::infinity(), 1e308, -1e308};
  for (const double a : odd) {
    for (const double b : odd) {
      Candidates candidates;
      candidates.Offer(GX2DArc(), Point(a, b), Corners::All());
      candidates.Offer(Arc(0, 0, a, b, b, a, b, b), Point(1, 1), Corners::All());
      candidates.Offer(WideArc(), Point(a, b), Corners::All());
      EXPECT_LE(candidates.points.size(), 3U);
    }
  }
}

}  // namespace
