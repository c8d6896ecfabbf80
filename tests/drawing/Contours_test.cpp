#include "drawing/Contours.h"

#include "PartSketch.h"
#include "drawing/CurveMeasures.h"
#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

using drawing::VertexAngle;
using support::ArcSide;
using support::LineSide;

constexpr double kPi = support::kPi;

std::vector<std::unique_ptr<drawing::Contour>> ContoursOf(const drawing::Drawing& drawing) {
  return drawing::BuildContours(drawing, drawing::FindNetworks(drawing));
}

// The angles behind each element, on the inner side of a closed list.
std::vector<double> InnerAngles(const GX2DElmList& list) {
  const bool clockwise = drawing::SignedArea(list) < 0.0;
  std::vector<double> angles;
  for (std::size_t i = 0; i < list.size(); ++i) {
    angles.push_back(VertexAngle(*list[i], *list[(i + 1) % list.size()], clockwise));
  }
  return angles;
}

void ExpectAngles(const GX2DElmList& list, const std::vector<double>& expected) {
  const std::vector<double> angles = InnerAngles(list);
  ASSERT_EQ(angles.size(), expected.size());
  for (std::size_t i = 0; i < angles.size(); ++i) {
    EXPECT_NEAR(angles[i], expected[i], 1e-12) << i;
  }
}

TEST(VertexAngle, OfASquareIsARightAngleInBothDirections) {
  GX2DElmList square;
  support::AddPolygon(square, {{0, 0}, {1, 0}, {1, 1}, {0, 1}});
  ExpectAngles(square, {kPi / 2, kPi / 2, kPi / 2, kPi / 2});
  square.Reverse();
  ExpectAngles(square, {kPi / 2, kPi / 2, kPi / 2, kPi / 2});
}

TEST(VertexAngle, OfAConcaveCornerIsAboveHalfATurn) {
  // An L: the angle behind the third side, at (1, 1), is three quarters of a turn.
  GX2DElmList shape;
  support::AddPolygon(shape, {{0, 0}, {2, 0}, {2, 1}, {1, 1}, {1, 2}, {0, 2}});
  ExpectAngles(shape, {kPi / 2, kPi / 2, 1.5 * kPi, kPi / 2, kPi / 2, kPi / 2});
  shape.Reverse();  // It runs 5' 4' 3' ...: (1, 1) lies behind the third element again.
  ExpectAngles(shape, {kPi / 2, kPi / 2, 1.5 * kPi, kPi / 2, kPi / 2, kPi / 2});
}

TEST(VertexAngle, OfAStraightContinuationIsPi) {
  GX2DLine first(0, 0, 3, 1);
  GX2DLine second(3, 1, 6, 2);
  EXPECT_NEAR(VertexAngle(first, second, false), kPi, 1e-15);
  EXPECT_NEAR(VertexAngle(first, second, true), kPi, 1e-15);
}

TEST(VertexAngle, BetweenALineAndATangentArcIsPi) {
  // Along the x axis into a quarter circle about (1, 1).
  GX2DLine line(0, 0, 1, 0);
  GX2DArc left = support::ArcByAngles(1, 1, 1, -90, 90);
  EXPECT_NEAR(VertexAngle(line, left, false), kPi, 1e-15);
  GX2DArc right = support::ArcByAngles(1, -1, 1, 90, -90);
  EXPECT_NEAR(VertexAngle(line, right, false), kPi, 1e-15);
}

TEST(VertexAngle, OfAHalfDiskIsARightAngleAtBothCorners) {
  GX2DElmList half;
  support::Add(half, support::Line(-2, 0, 2, 0), support::ArcByAngles(0, 0, 2, 0, 180));
  ExpectAngles(half, {kPi / 2, kPi / 2});
  half.Reverse();
  ExpectAngles(half, {kPi / 2, kPi / 2});
}

TEST(VertexAngle, OfACircleWithItselfIsPi) {
  GX2DElmList circle;
  support::Add(circle, support::Circle(0, 0, 5));
  ExpectAngles(circle, {kPi});
}

TEST(VertexAngle, OnTheLeftOfAnOpenContourTurnsIntoTheRestWhenReversed) {
  // 60 degrees to the left: 120 on the left, 240 on the right, which is the left of the way back.
  GX2DLine first(0, 0, 1, 0);
  GX2DLine second(1, 0, 1.5, std::sqrt(0.75));
  EXPECT_NEAR(VertexAngle(first, second, false), 2 * kPi / 3, 1e-15);
  first.Reverse();
  second.Reverse();
  EXPECT_NEAR(VertexAngle(second, first, false), 4 * kPi / 3, 1e-15);
}

TEST(VertexAngle, OfATurnStraightBackIsAFullTurnOnBothSides) {
  GX2DLine there(0, 0, 1, 0);
  GX2DLine back(1, 0, 0.5, 0);
  EXPECT_EQ(VertexAngle(there, back, false), 2 * kPi);
  EXPECT_EQ(VertexAngle(there, back, true), 2 * kPi);
  EXPECT_EQ(GXLAElementAngle(2 * kPi, 0.01).GetAngle(), 0.0);
  GX2DLine down(0, 0, 0, -1);
  GX2DLine up(0, -1, 0, 0);
  EXPECT_EQ(VertexAngle(down, up, false), 2 * kPi);
  EXPECT_EQ(VertexAngle(down, up, true), 2 * kPi);
}

TEST(VertexAngle, NextToAnElementWithoutLengthIsPi) {
  GX2DLine line(0, 0, 1, 0);
  GX2DLine nothing(1, 0, 1, 0);
  EXPECT_EQ(VertexAngle(line, nothing, false), kPi);
  EXPECT_EQ(VertexAngle(nothing, line, true), kPi);
}

TEST(RunsClockwise, IsToldFromTheTopmostElement) {
  GX2DElmList square;
  support::AddPolygon(square, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
  EXPECT_FALSE(drawing::RunsClockwise(square));
  square.Reverse();
  EXPECT_TRUE(drawing::RunsClockwise(square));
}

TEST(RunsClockwise, OfAFullCircleIsTheSenseOfItsArc) {
  for (const bool clockwise : {false, true}) {
    GX2DElmList circle;
    support::Add(circle, support::Circle(3, 4, 5, clockwise));
    EXPECT_EQ(drawing::RunsClockwise(circle), clockwise);
    // The library's surface does not tell them apart.
    EXPECT_GT(GXGeometry::GetContourSurface(circle, false), 0.0);
    // So small that its chords are upright to the library, which then gives no answer.
    GX2DElmList dot;
    support::Add(dot, support::Circle(3, 4, 0.000004, clockwise));
    EXPECT_EQ(drawing::RunsClockwise(dot), clockwise);
  }
}

TEST(RunsClockwise, IsRightForAHoleOfTwoSmallArcs) {
  for (const bool reversed : {false, true}) {
    support::SketchContour hole =
        support::Split(support::CircleContour(0, 0, 0.008).front(), {0.4});
    if (reversed) hole = support::Reversed(hole);
    const auto contours = ContoursOf(support::DrawingOf({hole}));
    ASSERT_EQ(contours.size(), 1u);
    EXPECT_EQ(contours[0]->clockwise, reversed);
    // The library's surface, positive for a clockwise contour, has the wrong sign.
    EXPECT_EQ(GXGeometry::GetContourSurface(contours[0]->elements, false) > 0.0, !reversed);
  }
}

TEST(RunsClockwise, OfAContourThatCrossesItselfIsWhatTheLibrarySays) {
  // A tall lobe on the left, counter-clockwise, and a flat one on the right, clockwise. The widest
  // gap between corners is over the flat one.
  GX2DElmList eight;
  support::AddPolygon(eight,
                      {{0, -50}, {3, -50}, {3, -1}, {14, 2}, {14, -1}, {3, 1}, {3, 50}, {0, 50}});
  EXPECT_GT(drawing::SignedArea(eight), 0.0);
  EXPECT_TRUE(drawing::RunsClockwise(eight));
}

TEST(RunsClockwise, IsToldByTheAreaWhereTheLibraryGivesNoAnswer) {
  // Narrower than 0.00001, so that a cut across it finds both sides parallel to it.
  for (const bool reversed : {false, true}) {
    GX2DElmList upright;
    support::AddPolygon(upright, {{0, 0}, {0.000005, 0}, {0.000005, 900}, {0, 900}});
    if (reversed) upright.Reverse();
    bool clockwise = false;
    ASSERT_FALSE(GXGeometry::CheckDirectionOfElementList(upright, clockwise, true,
                                                         std::numeric_limits<double>::lowest()));
    EXPECT_EQ(drawing::RunsClockwise(upright), reversed);
  }
}

TEST(RunsClockwise, AgreesWithTheExactAreaOnRandomContours) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    std::vector<GX2DPoint> corners;
    std::vector<double> radii;
    const int count = random.Int(3, 14);
    for (int k = 0; k < count; ++k) {
      corners.push_back(support::OnCircle(7, -3, random.Between(10, 60),
                                          360.0 * (k + random.Between(0, 0.6)) / count));
      radii.push_back(random.Bool() ? random.Between(0.5, 5.0) : 0.0);
    }
    GX2DElmList list;
    for (const support::Side& side : support::RoundedPolygon(corners, radii)) {
      list.push_back(support::ElementOf(side).release());
    }
    if (random.Bool()) list.Reverse();
    EXPECT_EQ(drawing::RunsClockwise(list), drawing::SignedArea(list) < 0.0) << i;
  }
}

TEST(SignedArea, IsPositiveCounterClockwise) {
  GX2DElmList shape;
  support::AddPolygon(shape, {{1, 1}, {5, 1}, {5, 4}});
  EXPECT_EQ(drawing::SignedArea(shape), 6.0);
  shape.Reverse();
  EXPECT_EQ(drawing::SignedArea(shape), -6.0);
}

TEST(SignedArea, CountsArcsExactly) {
  GX2DElmList circle;
  support::Add(circle, support::Circle(7, 8, 2));
  EXPECT_NEAR(drawing::SignedArea(circle), 4 * kPi, 1e-14);
  GX2DElmList clockwise;
  support::Add(clockwise, support::Circle(7, 8, 2, true));
  EXPECT_NEAR(drawing::SignedArea(clockwise), -4 * kPi, 1e-14);
  // A square of side 4 with a half disk of radius 2 on one side and one bitten out of another.
  GX2DElmList shape;
  support::Add(shape, support::Line(0, 0, 4, 0), support::ArcByAngles(4, 2, 2, -90, 180),
               support::Line(4, 4, 0, 4), support::ArcByAngles(0, 2, 2, 90, -180));
  EXPECT_NEAR(drawing::SignedArea(shape), 16.0, 1e-14);
}

TEST(SignedArea, KeepsItsDigitsFarFromTheOrigin) {
  GX2DElmList shape;
  support::AddPolygon(shape, {{1e9, 1e9}, {1e9 + 1, 1e9}, {1e9 + 1, 1e9 + 1}, {1e9, 1e9 + 1}});
  EXPECT_EQ(drawing::SignedArea(shape), 1.0);
}

TEST(BuildContours, TakesACircleAsClosed) {
  const auto contours = ContoursOf(support::DrawingOf({support::CircleContour(1, 2, 3)}));
  ASSERT_EQ(contours.size(), 1u);
  EXPECT_TRUE(contours[0]->closed);
  EXPECT_TRUE(contours[0]->usable) << contours[0]->obstacle;
  EXPECT_NEAR(contours[0]->perimeter, 6 * kPi, 1e-14);
  EXPECT_NEAR(contours[0]->surface, 9 * kPi, 1e-13);
  EXPECT_NEAR(contours[0]->box.minX, -2.0, 1e-14);
  EXPECT_NEAR(contours[0]->box.maxY, 5.0, 1e-14);
}

TEST(BuildContours, ClosesTwoArcsOfOneCircle) {
  const support::SketchContour circle =
      support::Split(support::CircleContour(0, 0, 5).front(), {0.3});
  for (const bool turned : {false, true}) {
    support::SketchContour drawn = circle;
    if (turned) drawn[1] = support::Reversed({drawn[1]}).front();
    const auto contours = ContoursOf(support::DrawingOf({drawn}));
    ASSERT_EQ(contours.size(), 1u);
    EXPECT_TRUE(contours[0]->usable) << contours[0]->obstacle;
    EXPECT_NEAR(contours[0]->surface, 25 * kPi, 1e-13);
  }
}

TEST(BuildContours, ClosesALineAndAnArcHoweverTheyAreDrawn) {
  for (int way = 0; way < 4; ++way) {
    support::SketchContour drawn = {LineSide({-5, 0}, {5, 0}), ArcSide({5, 0}, {0, 0}, kPi)};
    if (way % 2 == 1) drawn[0] = support::Reversed({drawn[0]}).front();
    if (way / 2 == 1) drawn[1] = support::Reversed({drawn[1]}).front();
    const auto contours = ContoursOf(support::DrawingOf({drawn}));
    ASSERT_EQ(contours.size(), 1u);
    EXPECT_TRUE(contours[0]->usable) << way << contours[0]->obstacle;
    EXPECT_NEAR(contours[0]->surface, 12.5 * kPi, 1e-13) << way;
  }
}

TEST(BuildContours, OrdersShuffledSidesIntoAClosedChain) {
  support::Random random;
  support::SketchContour shape = support::RoundedPolygon(
      {{0, 0}, {60, 0}, {60, 20}, {30, 20}, {30, 50}, {0, 50}}, {3, 0, 4, 5, 0, 6});
  const double area = drawing::SignedArea(ContoursOf(support::DrawingOf({shape}))[0]->elements);
  for (int i = 0; i < 100; ++i) {
    const auto contours = ContoursOf(support::ShuffledDrawingOf({shape}, random));
    ASSERT_EQ(contours.size(), 1u);
    ASSERT_TRUE(contours[0]->usable) << contours[0]->obstacle;
    EXPECT_TRUE(contours[0]->elements.IsFullyConnected());
    EXPECT_NEAR(contours[0]->surface, area, 1e-9);
  }
}

TEST(BuildContours, OrdersAnOpenChainThatIsDrawnFromTheMiddle) {
  const support::SketchContour chain = {LineSide({10, 0}, {20, 0}), LineSide({10, 0}, {0, 0}),
                                        LineSide({30, 5}, {20, 0}), LineSide({30, 5}, {40, 0})};
  const auto contours = ContoursOf(support::DrawingOf({chain}));
  ASSERT_EQ(contours.size(), 1u);
  EXPECT_TRUE(contours[0]->elements.IsFullyConnected());
  EXPECT_FALSE(contours[0]->closed);
  EXPECT_FALSE(contours[0]->usable);
  EXPECT_NEAR(contours[0]->perimeter, 20 + 2 * std::sqrt(125.0), 1e-13);
  EXPECT_EQ(contours[0]->surface, 0.0);
}

TEST(BuildContours, NamesTheLooseEndsOfAnOpenNetwork) {
  const support::SketchContour chain = {LineSide({0, 0}, {20, 0}), LineSide({20, 0}, {20, 7.5})};
  const auto contours = ContoursOf(support::DrawingOf({chain}));
  ASSERT_EQ(contours.size(), 1u);
  EXPECT_NE(contours[0]->obstacle.find("(0, 0)"), std::string::npos) << contours[0]->obstacle;
  EXPECT_NE(contours[0]->obstacle.find("(20, 7.5)"), std::string::npos) << contours[0]->obstacle;
}

TEST(BuildContours, NamesTheJunctionsOfABranchingNetwork) {
  support::SketchContour lines = support::RectangleContour(0, 0, 10, 10);
  lines.push_back(LineSide({10, 10}, {20, 25}));
  const auto contours = ContoursOf(support::DrawingOf({lines}));
  ASSERT_EQ(contours.size(), 1u);
  EXPECT_FALSE(contours[0]->usable);
  EXPECT_NE(contours[0]->obstacle.find("junction at (10, 10)"), std::string::npos)
      << contours[0]->obstacle;
  EXPECT_NE(contours[0]->obstacle.find("(20, 25)"), std::string::npos) << contours[0]->obstacle;
  EXPECT_EQ(contours[0]->elements.size(), 5u);
}

TEST(BuildContours, LeavesOutALineThatIsDrawnTwice) {
  const auto contours =
      ContoursOf(support::DrawingOf({{LineSide({1, 2}, {9, 2}), LineSide({1, 2}, {9, 2})}}));
  ASSERT_EQ(contours.size(), 1u);
  EXPECT_FALSE(contours[0]->usable);
  EXPECT_NE(contours[0]->obstacle.find("encloses no area"), std::string::npos);
}

TEST(BuildContours, PassesOverASpeckInAChain) {
  support::SketchContour shape = support::RectangleContour(0, 0, 10, 10);
  shape.push_back(LineSide({10, 10}, {10.00005, 10}));
  const auto contours = ContoursOf(support::DrawingOf({shape}));
  ASSERT_EQ(contours.size(), 1u);
  EXPECT_TRUE(contours[0]->usable) << contours[0]->obstacle;
  EXPECT_EQ(contours[0]->elements.size(), 4u);
  EXPECT_EQ(contours[0]->origins.size(), 5u);
}

TEST(BuildContours, JoinsEndsThatMeetWithinTheToleranceAndTellsSo) {
  support::SketchContour shape = support::RectangleContour(0, 0, 10, 10);
  shape[1].start = {10.00008, 0.00003};
  const auto contours = ContoursOf(support::DrawingOf({shape}));
  ASSERT_EQ(contours.size(), 1u);
  EXPECT_TRUE(contours[0]->usable) << contours[0]->obstacle;
  EXPECT_POINT_EQ(contours[0]->elements[0]->GetEndPoint(), support::Point(10, 0));
  EXPECT_POINT_EQ(contours[0]->elements[1]->GetStartPoint(), support::Point(10, 0));
  EXPECT_EQ(contours[0]->healing.joinedEnds, 1u);
  EXPECT_NEAR(contours[0]->healing.largestMovement, std::hypot(0.00008, 0.00003), 1e-14);
}

TEST(BuildContours, MovesNoEndOfAnOpenNetwork) {
  const auto contours = ContoursOf(
      support::DrawingOf({{LineSide({0, 0}, {10, 0}), LineSide({10.00008, 0}, {10, 9})}}));
  ASSERT_EQ(contours.size(), 1u);
  EXPECT_FALSE(contours[0]->usable);
  EXPECT_EQ(contours[0]->elements[1]->GetStartPoint().X, 10.00008);
  EXPECT_EQ(contours[0]->healing.joinedEnds, 0u);
}

TEST(BuildContours, TellsDirectionSurfaceAndPerimeter) {
  // 4 by 3 with a half disk of radius 1.5 on the right side.
  const support::SketchContour shape = {LineSide({0, 0}, {4, 0}), ArcSide({4, 0}, {4, 1.5}, kPi),
                                        LineSide({4, 3}, {0, 3}), LineSide({0, 3}, {0, 0})};
  for (const bool reversed : {false, true}) {
    const auto contours =
        ContoursOf(support::DrawingOf({reversed ? support::Reversed(shape) : shape}));
    ASSERT_EQ(contours.size(), 1u);
    EXPECT_EQ(contours[0]->clockwise, reversed);
    EXPECT_NEAR(contours[0]->surface, 12 + 1.125 * kPi, 1e-13);
    EXPECT_NEAR(contours[0]->perimeter, 11 + 1.5 * kPi, 1e-13);
  }
}

TEST(BuildContours, UsesAHoleOfTwoSmallArcs) {
  // Radius 0.008: so small an arc is below the guards of the library, whose figures are wrong.
  const support::SketchContour hole =
      support::Split(support::CircleContour(0, 0, 0.008).front(), {0.4});
  const auto contours = ContoursOf(support::DrawingOf({hole}));
  ASSERT_EQ(contours.size(), 1u);
  EXPECT_TRUE(contours[0]->usable) << contours[0]->obstacle;
  EXPECT_NEAR(drawing::SignedArea(contours[0]->elements), 0.000064 * kPi, 1e-15);
}

TEST(BuildContours, LeavesOutFiguresBeyondTheRangeOfNumbers) {
  const double huge = std::numeric_limits<double>::max() / 2;
  const auto contours =
      ContoursOf(support::DrawingOf({support::RectangleContour(-huge, -huge, huge, huge)}));
  ASSERT_EQ(contours.size(), 1u);
  EXPECT_FALSE(contours[0]->usable);
  EXPECT_FALSE(contours[0]->obstacle.empty());
}

TEST(BuildContours, KeepsTheOrderOfTheNetworks) {
  const auto contours = ContoursOf(support::DrawingOf({support::RectangleContour(0, 0, 10, 10),
                                                       support::CircleContour(5, 5, 1),
                                                       {LineSide({20, 0}, {30, 0})}}));
  ASSERT_EQ(contours.size(), 3u);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(contours[i]->network, i);
  EXPECT_EQ(contours[1]->origins, (std::vector<std::size_t>{4}));
}

}  // namespace
