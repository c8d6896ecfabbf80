#include "drawing/CurveMeasures.h"

#include "support/Build.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr double kPi = support::kPi;

TEST(SignedSweep, IsPositiveCounterClockwise) {
  EXPECT_NEAR(drawing::SignedSweep(support::ArcByAngles(3, 4, 5, 10, 90)), kPi / 2, 1e-14);
  EXPECT_NEAR(drawing::SignedSweep(support::ArcByAngles(3, 4, 5, 10, -90)), -kPi / 2, 1e-14);
}

TEST(SignedSweep, GoesBeyondHalfATurn) {
  EXPECT_NEAR(drawing::SignedSweep(support::ArcByAngles(0, 0, 5, 10, 300)), 300 * kPi / 180, 1e-14);
  EXPECT_NEAR(drawing::SignedSweep(support::ArcByAngles(0, 0, 5, 10, -359)), -359 * kPi / 180,
              1e-13);
}

TEST(SignedSweep, OfACircleIsAFullTurn) {
  EXPECT_EQ(drawing::SignedSweep(support::Circle(1, 2, 3)), 2 * kPi);
  EXPECT_EQ(drawing::SignedSweep(support::Circle(1, 2, 3, true)), -2 * kPi);
}

TEST(SignedSweep, ChangesItsSignWhenTheEndsAreSwapped) {
  for (const double sweep : {20.0, 180.0, 200.0, 340.0, -20.0, -200.0}) {
    GX2DArc arc = support::ArcByAngles(2, 1, 7, 33, sweep);
    arc.SwapPoints();
    EXPECT_NEAR(drawing::SignedSweep(arc), -sweep * kPi / 180, 1e-13) << sweep;
  }
}

TEST(ArcMiddle, LiesOnTheCircleWhereverMidIs) {
  GX2DArc arc = support::ArcByAngles(2, 1, 4, 0, 240);
  arc.Mid = support::OnCircle(2, 1, 2, 120);  // The direction indicator, at half the radius.
  EXPECT_POINT_NEAR(drawing::ArcMiddle(arc), support::OnCircle(2, 1, 4, 120), 1e-14);
}

TEST(ElementLength, IsExactForArcsTooSmallForTheLibrarysSweep) {
  // Radius 0.005: the cross product of its radii stays below the guard of 0.0001.
  const GX2DArc arc = support::ArcByAngles(0, 0, 0.005, 0, 90);
  EXPECT_EQ(arc.Len(), 0.0);
  EXPECT_NEAR(drawing::ElementLength(arc), 0.005 * kPi / 2, 1e-17);
}

TEST(TangentAt, IsPerpendicularToTheRadiusInTheSenseOfTheArc) {
  GX2DArc arc = support::ArcByAngles(0, 0, 2, 0, 90);
  double x = 9;
  double y = 9;
  ASSERT_TRUE(drawing::TangentAt(arc, false, x, y));
  EXPECT_EQ(x, 0.0);
  EXPECT_EQ(y, 2.0);
  ASSERT_TRUE(drawing::TangentAt(arc, true, x, y));
  EXPECT_NEAR(x, -2.0, 1e-15);
  EXPECT_NEAR(y, 0.0, 1e-15);
  arc.SwapPoints();  // Clockwise now, from the top down.
  ASSERT_TRUE(drawing::TangentAt(arc, true, x, y));
  EXPECT_EQ(x, 0.0);
  EXPECT_EQ(y, -2.0);
}

TEST(TangentAt, HasNoneForElementsWithoutLength) {
  GX2DLine line(1, 1, 1, 1);
  double x = 7;
  double y = 8;
  EXPECT_FALSE(drawing::TangentAt(line, true, x, y));
  EXPECT_EQ(x, 7.0);
  EXPECT_EQ(y, 8.0);
}

TEST(DistanceToElement, IsThatOfTheBoundedLine) {
  GX2DLine line(0, 0, 10, 0);
  EXPECT_EQ(drawing::DistanceToElement({4, 3}, line), 3.0);
  EXPECT_EQ(drawing::DistanceToElement({13, 4}, line), 5.0);
  EXPECT_EQ(drawing::DistanceToElement({-3, -4}, line), 5.0);
}

TEST(DistanceToElement, IsThatOfTheArcNotOfTheCircle) {
  GX2DArc arc = support::ArcByAngles(0, 0, 5, 0, 90);
  EXPECT_NEAR(drawing::DistanceToElement(support::OnCircle(0, 0, 8, 45), arc), 3.0, 1e-14);
  EXPECT_NEAR(drawing::DistanceToElement(support::OnCircle(0, 0, 1, 45), arc), 4.0, 1e-14);
  // Below the start: the start is nearest, not the circle.
  EXPECT_NEAR(drawing::DistanceToElement({5, -2}, arc), 2.0, 1e-14);
  arc.SwapPoints();
  EXPECT_NEAR(drawing::DistanceToElement(support::OnCircle(0, 0, 8, 45), arc), 3.0, 1e-14);
}

TEST(WireCentre, OfAHalfCircleLiesTwoRadiiByPiOffTheCentre) {
  GX2DElmList list;
  support::Add(list, support::ArcByAngles(1, 2, 3, 0, 180));
  EXPECT_POINT_NEAR(drawing::WireCentre(list), GX2DPoint(1, 2 + 2 * 3 / kPi), 1e-14);
  list.Reverse();
  EXPECT_POINT_NEAR(drawing::WireCentre(list), GX2DPoint(1, 2 + 2 * 3 / kPi), 1e-14);
}

TEST(WireCentre, OfACircleIsItsCentre) {
  GX2DElmList list;
  support::Add(list, support::Circle(1, 2, 3));
  EXPECT_POINT_NEAR(drawing::WireCentre(list), GX2DPoint(1, 2), 1e-15);
}

TEST(WireCentre, DoesNotDependOnHowSidesAreSplit) {
  GX2DElmList whole;
  support::AddPolygon(whole, {{0, 0}, {8, 0}, {0, 6}});
  GX2DElmList split;
  support::AddPolygon(split, {{5, 0}, {8, 0}, {4, 3}, {0, 6}, {0, 5}, {0, 0}});
  // Sides 8, 10, 6 with middles (4, 0), (4, 3), (0, 3): (72 / 24, 48 / 24).
  EXPECT_POINT_NEAR(drawing::WireCentre(whole), GX2DPoint(3, 2), 1e-14);
  EXPECT_POINT_NEAR(drawing::WireCentre(split), GX2DPoint(3, 2), 1e-14);
}

TEST(AsFullCircle, IsNullForAnythingButOneCircle) {
  GX2DElmList list;
  EXPECT_EQ(drawing::AsFullCircle(list), nullptr);
  support::Add(list, support::Circle(1, 2, 3));
  EXPECT_EQ(drawing::AsFullCircle(list), list.front());
  support::Add(list, support::Circle(1, 2, 3));
  EXPECT_EQ(drawing::AsFullCircle(list), nullptr);
}

}  // namespace
