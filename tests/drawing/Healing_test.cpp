#include "drawing/Healing.h"

#include "PartSketch.h"
#include "drawing/Contours.h"
#include "drawing/CurveMeasures.h"
#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <memory>
#include <vector>

namespace {

using drawing::HealContour;
using drawing::Healing;
using support::ArcSide;
using support::LineSide;
using support::SketchContour;

constexpr double kPi = support::kPi;

bool JointsAreExact(const GX2DElmList& list) {
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (list[i]->GetEndPoint() != list[(i + 1) % list.size()]->GetStartPoint()) return false;
  }
  return true;
}

TEST(HealContour, MakesJointsWithinTheToleranceOnePoint) {
  GX2DElmList list;
  support::Add(list, support::Line(0, 0, 10, 0), support::Line(10.00003, 0.00004, 10, 8),
               support::Line(10, 8, 0, 0.0001));
  const Healing healing = HealContour(list);
  EXPECT_TRUE(JointsAreExact(list));
  EXPECT_EQ(healing.joinedEnds, 2u);
  // 0.00003 and 0.00004 are the legs of a right triangle of 0.00005; the seam is 0.0001 apart.
  EXPECT_NEAR(healing.largestMovement, 0.0001, 1e-15);
  // The earlier element wins, the last one over the first.
  EXPECT_POINT_EQ(list[1]->GetStartPoint(), support::Point(10, 0));
  EXPECT_POINT_EQ(list[0]->GetStartPoint(), support::Point(0, 0.0001));
}

TEST(HealContour, LeavesExactContoursAlone) {
  GX2DElmList list;
  support::AddPolygon(list, {{0, 0}, {4, 0}, {4, 3}});
  const std::vector<GX2DElement*> before(list.begin(), list.end());
  const Healing healing = HealContour(list);
  EXPECT_EQ(healing.joinedEnds, 0u);
  EXPECT_EQ(healing.largestMovement, 0.0);
  EXPECT_EQ(std::vector<GX2DElement*>(list.begin(), list.end()), before);
}

TEST(HealContour, JoinsRoundingWithoutCountingIt) {
  GX2DElmList list;
  support::Add(list, support::Line(0, 0, 4, 0), support::Line(4, 1e-13, 4, 3),
               support::Line(4, 3, 0, 0));
  const Healing healing = HealContour(list);
  EXPECT_TRUE(JointsAreExact(list));
  EXPECT_EQ(healing.joinedEnds, 0u);
  EXPECT_EQ(healing.largestMovement, 1e-13);
}

TEST(HealContour, MovesEndsOfArcsAndKeepsTheirCentres) {
  GX2DElmList list;
  support::Add(list, support::Line(-5, 0, 5, 0.00005), support::ArcByAngles(0, 0, 5, 0, 180));
  const Healing healing = HealContour(list);
  EXPECT_TRUE(JointsAreExact(list));
  EXPECT_EQ(healing.joinedEnds, 1u);
  EXPECT_NEAR(healing.largestMovement, 0.00005, 1e-12);
  EXPECT_POINT_EQ(support::At<GX2DArc>(list, 1).Center, support::Point(0, 0));
  EXPECT_FALSE(support::At<GX2DArc>(list, 1).IsClockwise());
}

TEST(HealContour, MovesNothingFartherThanTheTolerance) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    SCOPED_TRACE(i);
    SketchContour shape = support::RoundedPolygon(
        {{0, 0}, {60, 0}, {60, 20}, {30, 20}, {30, 50}, {0, 50}}, {3, 0, 4, 5, 0, 6});
    for (support::Side& side : shape) {
      side.end.Translate(random.Between(-0.0001, 0.0001), random.Between(-0.0001, 0.0001));
    }
    GX2DElmList list;
    for (const support::Side& side : shape) list.push_back(support::ElementOf(side).release());
    const std::size_t count = list.size();
    const Healing healing = HealContour(list);
    EXPECT_TRUE(JointsAreExact(list));
    EXPECT_EQ(list.size(), count);
    // Both coordinates by 0.0001 are 0.000142 in length.
    EXPECT_LE(healing.largestMovement, 0.000142);
    EXPECT_GT(healing.largestMovement, 0.0);
  }
}

// The forms in which a full circle is stored: with equal ends in either direction, and with ends
// that all but meet.
std::vector<GX2DArc> StoredCircles() {
  const GX2DPoint centre(7, 8);
  return {support::Circle(7, 8, 2), support::Circle(7, 8, 2, true),
          GX2DArc(centre, support::Point(9, 8), support::Point(7, 10), support::Point(9, 8.00005)),
          GX2DArc(centre, support::Point(9, 8), support::Point(5, 8), support::Point(9, 8))};
}

TEST(HealContour, NeverSendsASingleCircleThroughCleanUp) {
  for (const GX2DArc& circle : StoredCircles()) {
    ASSERT_TRUE(circle.IsCircle());
    // CleanUp takes it for an arc without length: had it been called, nothing would be left.
    GX2DElmList cleaned;
    support::Add(cleaned, circle);
    GXGeometry::CleanUp(cleaned);
    ASSERT_TRUE(cleaned.empty());

    drawing::Drawing drawn;
    drawn.usable = true;
    drawn.elements.emplace_back();
    drawn.elements.back().element = std::make_unique<GX2DArc>(circle);
    const auto contours = drawing::BuildContours(drawn, drawing::FindNetworks(drawn));
    ASSERT_EQ(contours.size(), 1u);
    EXPECT_TRUE(contours[0]->usable) << contours[0]->obstacle;
    ASSERT_EQ(contours[0]->elements.size(), 1u);
    EXPECT_POINT_EQ(support::At<GX2DArc>(contours[0]->elements, 0), circle);
    EXPECT_NEAR(contours[0]->surface, 4 * kPi, 1e-13);
    EXPECT_EQ(contours[0]->healing.joinedEnds, 0u);
  }
}

TEST(HealContour, KeepsTheSenseOfArcsInPiecesUnlikeCleanUp) {
  // Three quarters of a circle in two pieces, and the chord. CleanUp leaves the mid of the second
  // piece, at 235 degrees, which seen from the start at 0 lies on the other side.
  GX2DElmList list;
  support::Add(list, support::ArcByAngles(0, 0, 5, 0, 200), support::ArcByAngles(0, 0, 5, 200, 70),
               GX2DLine(support::OnCircle(0, 0, 5, 270), support::OnCircle(0, 0, 5, 0)));
  HealContour(list);
  ASSERT_EQ(list.size(), 3u);
  // Three quarters of the disk and the triangle.
  EXPECT_NEAR(drawing::SignedArea(list), 0.75 * 25 * kPi + 12.5, 1e-9);
  GXGeometry::CleanUp(list);
  ASSERT_EQ(list.size(), 2u);
  EXPECT_TRUE(support::At<GX2DArc>(list, 0).IsClockwise());
}

TEST(HealContour, IsTheSameInBothDirectionsUnlikeCleanUp) {
  // Behind the long bottom side stands one of 0.001 mm, at half a degree to it. Its end is 8.7e-6
  // off the line of the bottom side, within the 0.00001 at which CleanUp merges. Seen from the
  // other end the small side comes first, and the bottom side leads far away from its line.
  const GX2DPoint small(100 + 0.001 * std::cos(kPi / 360), 0.001 * std::sin(kPi / 360));
  GX2DElmList forward;
  support::AddPolygon(forward, {{0, 0}, {100, 0}, small, {110, 50}, {0, 60}});
  GX2DElmList backward;
  support::AddPolygon(backward, {{0, 60}, {110, 50}, small, {100, 0}, {0, 0}});
  HealContour(forward);
  HealContour(backward);
  EXPECT_EQ(forward.size(), 5u);
  EXPECT_EQ(backward.size(), 5u);
  GXGeometry::CleanUp(forward);
  GXGeometry::CleanUp(backward);
  EXPECT_EQ(forward.size(), 4u);
  EXPECT_EQ(backward.size(), 5u);
}

}  // namespace
