// A box of 100 by 50 has a frame of 1000 by 500 units and a margin of 70: (x, y) of the drawing
// comes to 70 + 10 x, 70 + 500 - 10 y.
#include "drawing/SvgScene.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace drawing {
namespace {

const Box kBox = {0, 0, 100, 50};

GX2DArc Arc(const GX2DPoint& center, const GX2DPoint& start, const GX2DPoint& mid,
            const GX2DPoint& end) {
  return GX2DArc(center, start, mid, end);
}

TEST(SvgScene, TurnsTheYAxisAndFillsTheFrame) {
  const SvgScene scene(kBox);
  EXPECT_EQ(scene.Placing().At({0, 0}), "70 570");
  EXPECT_EQ(scene.Placing().At({100, 50}), "1070 70");
  EXPECT_EQ(scene.Placing().At({12.5, 0.25}), "195 567.5");
  EXPECT_EQ(scene.Placing().Length(2.5), "25");
}

TEST(SvgScene, PutsASmallerBoxInTheMiddleOfItsFrame) {
  // 20 by 10 at (200, 300) in 100 by 50: 400 units to the left, 200 above.
  const SvgScene scene({200, 300, 220, 310}, {100, 50});
  EXPECT_EQ(scene.Placing().At({200, 310}), "470 270");
  EXPECT_EQ(scene.Placing().At({220, 300}), "670 370");
}

TEST(SvgScene, DrawsLinesAsLines) {
  GX2DLine line(0, 0, 10, 20);
  EXPECT_EQ(SvgScene(kBox).PathData(line), "M 70 570 L 170 370 ");
}

TEST(SvgScene, DrawsACounterClockwiseQuarterWithBothFlagsDown) {
  const double mid = 10.0 * 0.7071067811865476;
  GX2DArc arc = Arc({0, 0}, {10, 0}, {mid, mid}, {0, 10});
  EXPECT_EQ(SvgScene(kBox).PathData(arc), "M 170 570 A 100 100 0 0 0 70 470 ");
}

TEST(SvgScene, DrawsAClockwiseQuarterWithTheSweepFlag) {
  const double mid = 10.0 * 0.7071067811865476;
  GX2DArc arc = Arc({0, 0}, {0, 10}, {mid, mid}, {10, 0});
  EXPECT_EQ(SvgScene(kBox).PathData(arc), "M 70 470 A 100 100 0 0 1 170 570 ");
}

TEST(SvgScene, DrawsThreeQuartersWithTheLargeFlag) {
  // From (30, 20) over (20, 30) and (10, 20) to (20, 10), counter-clockwise about (20, 20).
  GX2DArc arc = Arc({20, 20}, {30, 20}, {20, 30}, {20, 10});
  EXPECT_EQ(SvgScene(kBox).PathData(arc), "M 370 370 A 100 100 0 1 0 270 470 ");
}

TEST(SvgStrokeTo, DrawsBackwardToTheStartInTheOtherSense) {
  GX2DArc arc = Arc({20, 20}, {30, 20}, {20, 30}, {20, 10});
  GX2DLine line(0, 0, 10, 20);
  const SvgScene scene(kBox);
  EXPECT_EQ(SvgStrokeTo(scene.Placing(), arc, true), "A 100 100 0 1 1 370 370 ");
  EXPECT_EQ(SvgStrokeTo(scene.Placing(), line, true), "L 70 570 ");
}

TEST(SvgScene, DrawsACircleAsTwoHalves) {
  GX2DArc circle = Arc({20, 20}, {30, 20}, {10, 20}, {30, 20});
  EXPECT_EQ(SvgScene(kBox).PathData(circle),
            "M 370 370 A 100 100 0 0 0 170 370 A 100 100 0 0 0 370 370 ");
}

TEST(SvgScene, DrawsATurnWhoseEndsComeToOnePlaceAsTwoHalves) {
  // The ends are 0.002 apart: no circle, and in a picture of 10 metres one place.
  GX2DArc arc = Arc({5000, 5000}, {5010, 5000}, {4990, 5000}, {5009.9999998, 4999.998});
  ASSERT_FALSE(arc.IsCircle());
  const std::string data = SvgScene({0, 0, 10000, 10000}).PathData(arc);
  EXPECT_EQ(data, "M 571 570 A 1 1 0 0 0 569 570 A 1 1 0 0 0 571 570 ");
}

TEST(SvgScene, LiftsThePenOnlyWhereElementsDoNotMeet) {
  GX2DElmList list;
  list.push_back(new GX2DLine(0, 0, 10, 0));
  list.push_back(new GX2DLine(10, 0, 10, 10));
  list.push_back(new GX2DLine(20, 10, 20, 0));
  EXPECT_EQ(SvgScene(kBox).PathData(list), "M 70 570 L 170 570 L 170 470 M 270 470 L 270 570 ");
  EXPECT_EQ(SvgScene(kBox).ClosedPathData(list),
            "M 70 570 L 170 570 L 170 470 M 270 470 L 270 570 Z ");
  EXPECT_EQ(SvgScene(kBox).ClosedPathData(GX2DElmList()), "");
}

TEST(SvgScene, WritesNumbersForWhatIsNone) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  EXPECT_EQ(SvgScene(kBox).Placing().At({nan, inf}), "0 0");
  EXPECT_EQ(SvgScene({-inf, nan, inf, 1e308}).Picture("a", "b", "").find("nan"), std::string::npos);
  EXPECT_EQ(SvgScene({-1e308, -1e308, 1e308, 1e308}).Placing().At({1e308, 0}).find("inf"),
            std::string::npos);
}

TEST(SvgScene, EscapesTextsAndMarks) {
  const std::string badge =
      SvgScene(kBox).Badge({0, 0}, MarkShape::kRound, "red", "</text><b>", "e1\"");
  EXPECT_NE(badge.find("&lt;/text&gt;&lt;b&gt;"), std::string::npos);
  EXPECT_NE(badge.find("data-mark=\"e1&quot;\""), std::string::npos);
}

TEST(FrameAround, HoldsEveryBoxAndIsNeitherVeryWideNorVeryHigh) {
  const SvgFrame both = FrameAround({{0, 0, 100, 50}, {10, 10, 40, 90}});
  EXPECT_EQ(both.width, 100.0);
  EXPECT_EQ(both.height, 80.0);
  EXPECT_EQ(FrameAround({{0, 0, 10, 100}}).width, 100.0);
  EXPECT_DOUBLE_EQ(FrameAround({{0, 0, 220, 1}}).height, 100.0);
}

TEST(BoxOfAll, IsTheBoxAroundTheElements) {
  GX2DElmList list;
  list.push_back(new GX2DLine(5, 6, 7, 2));
  list.push_back(new GX2DLine(-1, 3, 4, 4));
  const Box box = BoxOfAll(list);
  EXPECT_EQ(box.minX, -1.0);
  EXPECT_EQ(box.minY, 2.0);
  EXPECT_EQ(box.maxX, 7.0);
  EXPECT_EQ(box.maxY, 6.0);
}

}  // namespace
}  // namespace drawing
