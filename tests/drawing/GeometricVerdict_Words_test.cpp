#include "BothVerdicts.h"
#include "PartSketch.h"
#include "drawing/GeometricVerdict.h"
#include "drawing/PartComparison.h"
#include "support/Build.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using drawing::GeometricVerdict;
using support::BothVerdicts;
using support::CircleContour;
using support::JudgeBoth;
using support::PartSketch;
using support::RectangleContour;
using support::SketchContour;

constexpr double kPi = support::kPi;
constexpr auto kMayDiffer = GXLAContour::eNmbSegmentsMayDiffer;

// What a measurement may miss, in millimetres.
constexpr double kMissed = 0.001;

// A plate of 100 x 60 with these cut-outs.
PartSketch Plate(const PartSketch& cutOuts) {
  PartSketch plate = {RectangleContour(0, 0, 100, 60)};
  plate.insert(plate.end(), cutOuts.begin(), cutOuts.end());
  return plate;
}

SketchContour RegularPolygon(int corners, double radius) {
  std::vector<GX2DPoint> points;
  for (int i = 0; i < corners; ++i) {
    points.push_back(support::Turned({radius, 0}, {0, 0}, support::kFullTurn * i / corners));
  }
  return support::PolygonContour(points);
}

// A strip between two equal waves, each of two arcs of length 60 that turn by `sweep` and back.
SketchContour Wave(double sweep) {
  const double radius = 60 / sweep;
  SketchContour strip = {support::ArcSide({0, 0}, {0, radius}, sweep)};
  const GX2DPoint joint = strip[0].end;
  strip.push_back(support::ArcSide(joint, {2 * joint.X, 2 * joint.Y - radius}, -sweep));
  SketchContour top = strip;
  support::ShiftContour(top, 0, 20);
  top = support::Reversed(top);
  strip.push_back(support::LineSide(strip[1].end, top[0].start));
  strip.insert(strip.end(), top.begin(), top.end());
  strip.push_back(support::LineSide(top[1].end, {0, 0}));
  return strip;
}

TEST(DisagreementText, SaysThatACurveIsDrawnInLines) {
  // 200 lines around a circle of radius 50 lie up to 50 (1 - cos(pi / 200)) = 0.0062 inside it.
  const PartSketch round = {CircleContour(0, 0, 50), CircleContour(20, 0, 5)};
  const PartSketch lines = {RegularPolygon(200, 50), CircleContour(20, 0, 5)};
  const BothVerdicts both = JudgeBoth(round, support::Moved(lines, 0.3, 2, 3));
  EXPECT_TRUE(both.own.same);
  EXPECT_NEAR(both.own.outerDeviation, 50 * (1 - std::cos(kPi / 200)), kMissed);
  EXPECT_FALSE(both.comparison.same);
  EXPECT_EQ(both.disagreement.find("The library tells the parts apart by the header figures of the "
                                   "outer contours, lines 0 in A and 200 in B; yet all contours "
                                   "lie within 0.00"),
            0u)
      << both.disagreement;
  EXPECT_NE(both.disagreement.find(": the same curve is drawn with other sides."),
            std::string::npos);
}

TEST(DisagreementText, SaysWhichArcsAreBentOtherwise) {
  const BothVerdicts both = JudgeBoth({Wave(0.5)}, {Wave(0.6)});
  EXPECT_EQ(both.comparison.step, drawing::DecidingStep::kOuterMotion);
  EXPECT_FALSE(both.own.same);
  EXPECT_EQ(both.disagreement.find("The library finds the same lengths and angles, yet at ("), 0u)
      << both.disagreement;
  EXPECT_NE(
      both.disagreement.find(" apart: arcs of equal length, 60, have a radius of 120 in A and "
                             "of 100 in B."),
      std::string::npos)
      << both.disagreement;
}

TEST(DisagreementText, SaysWhichArcsOfACutOutAreBentOtherwise) {
  const SketchContour outline = RectangleContour(-50, -50, 250, 150);
  const BothVerdicts both = JudgeBoth({outline, Wave(0.5)}, {outline, Wave(0.6)});
  EXPECT_FALSE(both.own.same);
  EXPECT_EQ(both.own.outerDeviation, 0.0);
  EXPECT_EQ(both.disagreement.find("The library finds the same shapes of cut-outs, yet at ("), 0u)
      << both.disagreement;
  EXPECT_NE(both.disagreement.find("away from every contour of B: arcs of equal length, 60, have a "
                                   "radius of 120 in A and of 100 in B."),
            std::string::npos)
      << both.disagreement;
}

TEST(DisagreementText, SaysThatShortSidesWerePassedOver) {
  // The last 0.8 mm of the upper side are a roof of two sides of 0.6 over it in A, and a trough of
  // three sides of 0.4 in B: the same length, but other sides. The ridge, sqrt(0.6^2 - 0.4^2) over
  // the side, is 0.6 away from the ends of both.
  const double ridge = std::sqrt(0.2);
  const double trough = std::sqrt(0.12);
  const PartSketch a = {support::PolygonContour(
      {{0, 0}, {120, 0}, {100, 60}, {0.8, 60}, {0.4, 60 + ridge}, {0, 60}})};
  const PartSketch b = {support::PolygonContour(
      {{0, 0}, {120, 0}, {100, 60}, {0.8, 60}, {0.6, 60 - trough}, {0.2, 60 - trough}, {0, 60}})};
  const BothVerdicts both = JudgeBoth(a, b, kMayDiffer);
  EXPECT_TRUE(both.comparison.same) << both.comparison.verdict;
  EXPECT_FALSE(both.own.same);
  EXPECT_NEAR(both.own.outerDeviation, 0.6, kMissed);
  EXPECT_EQ(
      both.disagreement,
      "The library finds the same lengths and angles, yet at (0.4, 60.4472) of A the outlines "
      "lie 0.6000 mm apart: only the sides longer than 1 mm were compared, not what lies "
      "between them.");
}

TEST(DisagreementText, SaysThatSmallDifferencesAddUp) {
  // A rhombus leaning by 0.008 has the sides of the square and angles within 0.01 of a right one.
  const double lean = 1000 * std::sin(0.008);
  const double height = 1000 * std::cos(0.008);
  const BothVerdicts both = JudgeBoth(
      {RectangleContour(0, 0, 1000, 1000)},
      {support::PolygonContour({{0, 0}, {1000, 0}, {1000 + lean, height}, {lean, height}})});
  EXPECT_FALSE(both.own.same);
  EXPECT_NE(both.disagreement.find("each length is within 0.05 mm and each angle within 0.01 rad, "
                                   "but the differences add up."),
            std::string::npos)
      << both.disagreement;
}

TEST(DisagreementText, SaysThatSmallDifferencesOfLengthAddUp) {
  // 0.03 wider and higher is 0.12 in the perimeter, but places are 0.015 off in the middle.
  const BothVerdicts both =
      JudgeBoth({RectangleContour(0, 0, 100, 60)}, {RectangleContour(0, 0, 100.03, 60.03)});
  EXPECT_TRUE(both.own.same);
  EXPECT_NEAR(both.own.outerDeviation, std::hypot(0.015, 0.015), kMissed);
  EXPECT_EQ(both.disagreement.find("The library tells the parts apart by the header figures of the "
                                   "outer contours, total length 320 in A and 320.12 in B; yet "),
            0u)
      << both.disagreement;
  EXPECT_NE(both.disagreement.find(": small differences of length add up."), std::string::npos);
}

TEST(DisagreementText, IsEmptyWhereBothAgree) {
  const PartSketch a = Plate({CircleContour(20, 20, 4)});
  EXPECT_EQ(JudgeBoth(a, a).disagreement, "");
  EXPECT_EQ(JudgeBoth(a, Plate({CircleContour(22, 20, 4)})).disagreement, "");
  EXPECT_EQ(JudgeBoth(a, Plate({})).disagreement, "");
  EXPECT_EQ(JudgeBoth(a, {RectangleContour(0, 0, 100, 61), CircleContour(20, 20, 4)}).disagreement,
            "");
}

TEST(PlacementText, NamesTurnAndShift) {
  GeometricVerdict verdict;
  verdict.largestDeviation = 0.0012;
  EXPECT_EQ(drawing::PlacementText(verdict), "left in its place, largest deviation 0.0012 mm");
  verdict.placement.motion = drawing::TurnAndShift(kPi / 2, {0, 0}, {10, 20});
  EXPECT_EQ(drawing::PlacementText(verdict),
            "turned by 90 degrees and shifted by (10, 20), largest deviation 0.0012 mm");
  verdict.placement.mirrored = true;
  EXPECT_EQ(drawing::PlacementText(verdict),
            "turned over (x negated), turned by 90 degrees and shifted by (10, 20), largest "
            "deviation 0.0012 mm");
  verdict.placement.motion = drawing::TurnAndShift(-kPi + 1e-9, {0, 0}, {0, 0});
  EXPECT_EQ(drawing::PlacementText(verdict),
            "turned over (x negated) and turned by 180 degrees, largest deviation 0.0012 mm");
}

}  // namespace
