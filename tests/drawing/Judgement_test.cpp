#include "drawing/Judgement.h"

#include "PartSketch.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using drawing::Judge;
using drawing::Judgement;
using drawing::PartModel;
using support::CircleContour;
using support::PartSketch;
using support::PolygonContour;
using support::RectangleContour;

// An L with a hole near its foot: no turn lays it on its mirror image.
PartSketch Angle() {
  return {PolygonContour({{0, 0}, {100, 0}, {100, 20}, {20, 20}, {20, 60}, {0, 60}}),
          CircleContour(80, 10, 4)};
}

TEST(Judge, NeedsNoMirrorImageWherePartsAreTheSame) {
  const PartModel a = support::PartOf({RectangleContour(0, 0, 100, 60)});
  const PartModel b = support::PartOf({RectangleContour(5, 5, 65, 105)});
  const Judgement judgement = Judge(a, b, {}, true);
  EXPECT_TRUE(judgement.verdict.comparison.same);
  EXPECT_FALSE(judgement.mirrored);
  EXPECT_EQ(judgement.turned, nullptr);
  EXPECT_EQ(judgement.mirrorImage, nullptr);
  EXPECT_EQ(&judgement.Compared(b), &b);
}

TEST(Judge, TriesTheMirrorImageOnlyWhenAsked) {
  const PartModel a = support::PartOf(Angle());
  const PartModel b = support::PartOf(support::Mirrored(Angle()));
  const Judgement without = Judge(a, b, {}, false);
  EXPECT_FALSE(without.verdict.comparison.same);
  EXPECT_EQ(without.mirrorImage, nullptr);
  const Judgement with = Judge(a, b, {}, true);
  EXPECT_TRUE(with.verdict.comparison.same);
  EXPECT_TRUE(with.mirrored);
  EXPECT_EQ(with.verdict.comparison.verdict.rfind("Same as the mirror image: the only cut-out", 0),
            0u)
      << with.verdict.comparison.verdict;
  EXPECT_EQ(&with.Compared(b), with.turned.get());
}

TEST(Judge, PlacesTheMirrorImageForThePartAsItIs) {
  // Turned over, then turned by 30 degrees and shifted: the placement takes B's points to A's.
  const PartModel a = support::PartOf(Angle());
  const PartModel b =
      support::PartOf(support::Moved(support::Mirrored(Angle()), std::acos(-1.0) / 6, 40, -7));
  const Judgement judgement = Judge(a, b, {}, true);
  ASSERT_TRUE(judgement.mirrored);
  EXPECT_TRUE(judgement.verdict.own.same);
  EXPECT_TRUE(judgement.verdict.own.placement.mirrored);
  EXPECT_EQ(judgement.verdict.disagreement, "");
  const GX2DPoint centre = support::Turned({-80, 10}, {0, 0}, std::acos(-1.0) / 6);
  const GX2DPoint placed =
      judgement.verdict.own.placement.Apply(GX2DPoint(centre.X + 40, centre.Y - 7));
  EXPECT_NEAR(placed.X, 80, 1e-6);
  EXPECT_NEAR(placed.Y, 10, 1e-6);
}

TEST(Judge, KeepsTheVerdictOnAMirrorImageThatIsDifferentToo) {
  const PartModel a = support::PartOf(Angle());
  PartSketch moved = Angle();
  support::ShiftContour(moved[1], -30, 0);
  const PartModel b = support::PartOf(moved);
  const Judgement judgement = Judge(a, b, {}, true);
  EXPECT_FALSE(judgement.verdict.comparison.same);
  EXPECT_FALSE(judgement.mirrored);
  EXPECT_EQ(&judgement.Compared(b), &b);
  ASSERT_NE(judgement.mirrorImage, nullptr);
  EXPECT_FALSE(judgement.mirrorImage->comparison.same);
  EXPECT_TRUE(judgement.mirrorImage->own.placement.mirrored);
  EXPECT_EQ(judgement.mirrorImage->comparison.verdict.rfind("Different: ", 0), 0u);
  // By places alone they are different too, and the only cut-out is 30 off.
  EXPECT_FALSE(judgement.verdict.own.same);
  EXPECT_NEAR(judgement.verdict.own.largestDeviation, 30, 0.01);
}

TEST(Judge, SaysHowTheVerdictsDisagree) {
  // Three sides of 0.4 in place of two of 0.6: short sides are passed over, but the ridge of the
  // two, sqrt(0.6^2 - 0.4^2) high, is 0.6 from the nearest point of the other outline.
  const double ridge = std::sqrt(0.2);
  const double trough = std::sqrt(0.12);
  const PartModel a = support::PartOf(
      {PolygonContour({{0, 0}, {120, 0}, {100, 60}, {0.8, 60}, {0.4, 60 + ridge}, {0, 60}})});
  const PartModel b = support::PartOf({PolygonContour(
      {{0, 0}, {120, 0}, {100, 60}, {0.8, 60}, {0.6, 60 - trough}, {0.2, 60 - trough}, {0, 60}})});
  drawing::CompareOptions options;
  options.mode = GXLAContour::eNmbSegmentsMayDiffer;
  const Judgement judgement = Judge(a, b, options, false);
  ASSERT_TRUE(judgement.verdict.comparison.same) << judgement.verdict.comparison.verdict;
  EXPECT_FALSE(judgement.verdict.own.same);
  EXPECT_NEAR(judgement.verdict.own.largestDeviation, 0.6, 0.002);
  EXPECT_NE(judgement.verdict.disagreement, "");
}

}  // namespace
