#include "drawing/Preflight.h"

#include "PartSketch.h"
#include "PreflightSketch.h"
#include "drawing/DrawingHealing.h"
#include "drawing/DxfReader.h"
#include "drawing/NumberText.h"
#include "support/Build.h"
#include "support/DxfText.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using drawing::FindingKind;
using drawing::Preflight;
using support::Contains;
using support::Look;
using support::LookAt;
using support::LookAtDxf;
using support::OfKind;

TEST(PreflightText, CountsNestedContoursByTheirDepth) {
  const std::string text = drawing::PreflightText(
      LookAt({support::RectangleContour(0, 0, 100, 100), support::RectangleContour(10, 10, 60, 60),
              support::RectangleContour(20, 20, 50, 50), support::CircleContour(80, 80, 5),
              support::CircleContour(35, 35, 2)}),
      false);
  EXPECT_TRUE(Contains(text, "5 closed (1 outer, 3 cut-outs, 1 island)")) << text;
}

TEST(PreflightText, TellsTenOfAKindUnlessAllAreAskedFor) {
  support::PartSketch sketch;
  for (int i = 0; i < 12; ++i) {
    for (int twice = 0; twice < 2; ++twice) sketch.push_back(support::CircleContour(20 * i, 0, 5));
  }
  const Preflight preflight = LookAt(sketch);
  const std::string some = drawing::PreflightText(preflight, false);
  EXPECT_TRUE(Contains(some, "sketch: 12 findings\n")) << some;
  EXPECT_TRUE(Contains(some, "12 duplicates\n")) << some;
  EXPECT_TRUE(Contains(some, "and 2 more (--all)\n")) << some;
  EXPECT_FALSE(Contains(some, "(220, ")) << some;
  const std::string all = drawing::PreflightText(preflight, true);
  EXPECT_FALSE(Contains(all, "--all")) << all;
  EXPECT_EQ(std::count(all.begin(), all.end(), '\n'),
            std::count(some.begin(), some.end(), '\n') + 1);
}

TEST(PreflightJson, HoldsContoursAndEveryFinding) {
  const auto json = drawing::PreflightJson(LookAtDxf(
      "0 LINE 5 2F 8 CUT 10 0 20 0 11 120 21 0 0 LINE 5 30 8 CUT 10 120 20 0.0300001 11 120 21 40 "
      "0 LINE 5 31 8 EDGE 10 120 20 40 11 0 21 0 0 CIRCLE 8 CUT 10 300 20 0 40 20 0 CIRCLE 8 CUT "
      "10 300 20 0 40 5"));
  EXPECT_EQ(json["clean"], false);
  EXPECT_EQ(json["count"], 1);
  EXPECT_EQ(json["looseEnds"], 2);
  EXPECT_EQ(json["figures"]["closed"], 2);
  EXPECT_TRUE(json["withoutDoubled"].is_null());
  ASSERT_EQ(json["contours"].size(), 3U);
  EXPECT_EQ(json["contours"][0]["kind"], "open");
  EXPECT_EQ(json["contours"][2]["parent"], 1);
  EXPECT_EQ(json["contours"][2]["depth"], 1);
  EXPECT_TRUE(json["contours"][1]["parent"].is_null());
  ASSERT_EQ(json["findings"].size(), 1U);
  const auto& finding = json["findings"][0];
  EXPECT_EQ(finding["kind"], "loose end");
  EXPECT_EQ(finding["entities"][1]["handle"], "30");
  EXPECT_EQ(finding["entities"][1]["line"], 34);
  EXPECT_EQ(finding["places"][0], nlohmann::json({120.0, 0.0}));
  EXPECT_EQ(finding["closedBy"], 0.0301);
}

// `count` lines from one point, to all sides.
support::SketchContour Star(int count) {
  support::SketchContour star;
  for (int i = 0; i < count; ++i) {
    const double angle = 2.0 * std::acos(-1.0) * i / count;
    star.push_back(support::LineSide({0, 0}, {1000.0 * std::cos(angle), 1000.0 * std::sin(angle)}));
  }
  return star;
}

TEST(Inspect, SaysThatAStarOfVeryManyLinesWasNotLookedAtInFull) {
  const Preflight few = LookAt({Star(1000)});
  EXPECT_TRUE(OfKind(few, FindingKind::kSelfIntersection).empty());
  EXPECT_EQ(OfKind(few, FindingKind::kJunction).size(), 1U);
  EXPECT_EQ(few.looseEnds, 1000U);
  const Preflight many = LookAt({Star(30000)});
  const auto found = OfKind(many, FindingKind::kSelfIntersection);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_TRUE(found[0].counts);
  EXPECT_TRUE(Contains(found[0].what, "29999 elements that hang together with it"))
      << found[0].what;
  EXPECT_EQ(many.looseEnds, 30000U);
}

TEST(RoundedUp, PrintsNoLessThanTheGapButForNoise) {
  EXPECT_EQ(drawing::RoundedUp(0.03), "0.03");
  EXPECT_EQ(drawing::RoundedUp(0.030000001), "0.0301");
  // Noise of coordinates is no gap that must be bridged.
  EXPECT_EQ(drawing::RoundedUp(51.1 - 50.0), "1.1");
  EXPECT_EQ(drawing::RoundedUp(0.00001), "0.0001");
  EXPECT_EQ(drawing::RoundedUp(12), "12");
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const double gap = std::pow(10.0, random.Between(-6, 17));
    const double printed = std::strtod(drawing::RoundedUp(gap).c_str(), nullptr);
    EXPECT_GE(printed, gap - 1e-10);
    EXPECT_LE(printed - gap, 0.0001 + gap * 1e-15);
  }
}

// --- What is said of gaps holds for healing ---------------------------------------------------

// Takes up to 0.2 mm away from the ends of some sides; the parts are far larger.
support::PartSketch Gapped(support::PartSketch sketch, support::Random& random) {
  for (support::SketchContour& contour : sketch) {
    for (support::Side& side : contour) {
      if (side.sweep != 0.0 || random.Int(0, 2) != 0) continue;
      const double length = std::hypot(side.end.X - side.start.X, side.end.Y - side.start.Y);
      const double share = random.Between(0.001, 0.2) / length;
      side.end = {side.end.X + share * (side.start.X - side.end.X),
                  side.end.Y + share * (side.start.Y - side.end.Y)};
    }
  }
  return sketch;
}

TEST(Inspect, NamesTheSmallestGapThatHealingCloses) {
  support::Random random;
  int withGaps = 0;
  for (int round = 0; round < 60; ++round) {
    support::PartSketch sketch = {
        support::RoundedPolygon({{0, 0}, {200, 0}, {200, 90}, {120, 140}, {0, 140}},
                                {0, 10, 15, 0, 20}),
        support::RectangleContour(30, 30, 60, 55), support::SlotContour({130, 60}, 40, 8, 0.4)};
    if (random.Bool()) sketch.push_back(support::RectangleContour(30, 30, 60, 55));
    sketch = support::Moved(sketch, random.Between(-3, 3), random.Between(-90, 90),
                            random.Between(-90, 90));
    sketch = Gapped(sketch, random);
    const Preflight preflight = Look(support::ShuffledDrawingOf(sketch, random));
    if (preflight.closingGap == 0.0) continue;
    SCOPED_TRACE(testing::Message() << "round " << round << ", gap " << preflight.closingGap);
    ++withGaps;
    drawing::HealOptions options;
    options.gap = preflight.closingGap;
    EXPECT_TRUE(drawing::HealDrawing(preflight.drawing, options).stillOpen.empty());
    options.gap = std::strtod(drawing::RoundedUp(preflight.closingGap).c_str(), nullptr);
    EXPECT_TRUE(drawing::HealDrawing(preflight.drawing, options).stillOpen.empty());
    // Healing grants a gap what rounding may have cost it, far less than this.
    options.gap = preflight.closingGap - 1e-7;
    EXPECT_FALSE(drawing::HealDrawing(preflight.drawing, options).stillOpen.empty());
  }
  EXPECT_GT(withGaps, 40);
}

TEST(Inspect, TellsTheSameOfTheSameDrawing) {
  support::Random random;
  const support::PartSketch sketch =
      Gapped({support::RectangleContour(0, 0, 50, 50), support::CircleContour(25, 25, 5)}, random);
  const auto once = drawing::PreflightJson(LookAt(sketch)).dump();
  EXPECT_EQ(drawing::PreflightJson(LookAt(sketch)).dump(), once);
}

}  // namespace
