#include "drawing/Preflight.h"

#include "PartSketch.h"
#include "PreflightSketch.h"
#include "drawing/DrawingHealing.h"
#include "drawing/DxfReader.h"
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

using drawing::Finding;
using drawing::FindingKind;
using drawing::Preflight;
using support::Contains;
using support::LineDxf;
using support::Lines;
using support::Look;
using support::LookAt;
using support::LookAtDxf;
using support::OfKind;

TEST(Inspect, FindsNothingInACleanDrawing) {
  const Preflight preflight =
      LookAt({support::RectangleContour(0, 0, 100, 50), support::CircleContour(50, 25, 10)});
  EXPECT_TRUE(preflight.IsClean());
  EXPECT_TRUE(preflight.findings.empty());
  EXPECT_EQ(preflight.figures.closed, 2U);
  EXPECT_EQ(preflight.nesting.outer, 1U);
  EXPECT_EQ(preflight.nesting.cutOuts, 1U);
  // The rectangle less the circle.
  EXPECT_NEAR(preflight.figures.area, 5000 - 100 * support::kPi, 1e-9);
  EXPECT_EQ(preflight.closingGap, 0.0);
  EXPECT_EQ(drawing::PreflightText(preflight, false).substr(0, 14), "sketch: clean\n");
}

TEST(Inspect, TellsBothSidesOfAGapAndWhatClosesIt) {
  const Preflight preflight = LookAtDxf(
      "0 LINE 5 2F 8 CUT 10 0 20 0 11 120 21 0 0 LINE 5 30 8 CUT 10 120 20 0.03 11 120 21 40 0 "
      "LINE 5 31 8 EDGE 10 120 20 40 11 0 21 0");
  const auto ends = OfKind(preflight, FindingKind::kLooseEnd);
  ASSERT_EQ(ends.size(), 1U);
  EXPECT_TRUE(ends[0].hasPartner);
  EXPECT_EQ(ends[0].measure, 0.03);
  EXPECT_EQ(ends[0].elements, (std::vector<std::size_t>{0, 1}));
  // The first entity stands in line 20 and has 14 lines.
  EXPECT_EQ(ends[0].what,
            "loose end at (120, 0): LINE 2F on layer CUT, line 20; the other side is LINE 30 on "
            "layer CUT, line 34 at (120, 0.03), 0.03 mm away; closes with --gap 0.03");
  EXPECT_EQ(preflight.looseEnds, 2U);
  EXPECT_EQ(preflight.closingGap, 0.03);
  EXPECT_FALSE(preflight.IsClean());
}

TEST(Inspect, SaysThatALooseEndHasNoPartner) {
  const Preflight preflight = LookAt({Lines({{{0, 0}, {10, 0}}})});
  const auto ends = OfKind(preflight, FindingKind::kLooseEnd);
  ASSERT_EQ(ends.size(), 2U);
  EXPECT_FALSE(ends[0].hasPartner);
  EXPECT_TRUE(Contains(ends[0].what, "no other loose end goes with it, the nearest is at (10, 0)"))
      << ends[0].what;
  EXPECT_EQ(preflight.closingGap, 0.0);
}

TEST(Inspect, TellsSmallGapsFirst) {
  const Preflight preflight = LookAt({Lines(
      {{{0, 0}, {100, 0}}, {{100, 2}, {100, 90}}, {{100, 90.5}, {0, 90}}, {{0, 90}, {0, 1}}})});
  const auto ends = OfKind(preflight, FindingKind::kLooseEnd);
  ASSERT_EQ(ends.size(), 3U);
  EXPECT_EQ(ends[0].measure, 0.5);
  EXPECT_EQ(ends[1].measure, 1.0);
  EXPECT_EQ(ends[2].measure, 2.0);
  EXPECT_EQ(preflight.closingGap, 2.0);
}

TEST(Inspect, TellsJunctionsWithTheirElements) {
  support::PartSketch sketch = {support::RectangleContour(0, 0, 10, 10)};
  sketch.push_back(Lines({{{0, 0}, {10, 10}}}));
  const auto junctions = OfKind(LookAt(sketch), FindingKind::kJunction);
  ASSERT_EQ(junctions.size(), 2U);
  EXPECT_EQ(junctions[0].elements, (std::vector<std::size_t>{0, 3, 4}));
  EXPECT_TRUE(Contains(junctions[0].what, "junction at (0, 0), 3 ends meet: LINE"))
      << junctions[0].what;
}

TEST(Inspect, TellsADoubledContourOnceAndNotTheJunctionsItMakes) {
  const Preflight preflight =
      LookAt({support::RectangleContour(0, 0, 10, 10), support::RectangleContour(0, 0, 10, 10)});
  EXPECT_EQ(OfKind(preflight, FindingKind::kDuplicate).size(), 4U);
  EXPECT_EQ(preflight.findings.size(), 4U);
  EXPECT_EQ(preflight.figures.branching, 1U);
  EXPECT_EQ(preflight.figures.closed, 0U);
  EXPECT_TRUE(preflight.hasDoubled);
  EXPECT_EQ(preflight.withoutDoubled.closed, 1U);
  EXPECT_EQ(preflight.withoutDoubled.area, 100.0);
  EXPECT_EQ(preflight.nestingWithoutDoubled.outer, 1U);
  // Nothing is changed.
  EXPECT_EQ(preflight.drawing.elements.size(), 8U);
  for (const auto& drawn : preflight.drawing.elements) EXPECT_NE(drawn.element, nullptr);
}

TEST(Inspect, TellsAPolylineThatIsDrawnTwiceAsOne) {
  const std::string square =
      " 0 LWPOLYLINE 8 CUT 90 4 70 1 10 0 20 0 10 10 20 0 10 10 20 10 10 0 20 10";
  const auto found = LookAtDxf(square + square).findings;
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].kind, FindingKind::kDuplicate);
  EXPECT_EQ(found[0].places.size(), 4U);
  EXPECT_EQ(found[0].elements.size(), 8U);
  EXPECT_NEAR(found[0].measure, 40.0, 1e-12);
  EXPECT_TRUE(Contains(found[0].what, "4 elements, 40 mm in all")) << found[0].what;
}

TEST(Inspect, FindsLooseEndsBehindDoubledLines) {
  // The side that ends at the gap is drawn twice, so that two ends meet at its loose end.
  const Preflight preflight = LookAt({Lines({{{0, 0}, {10, 0}},
                                             {{10, 0}, {10, 10}},
                                             {{10, 10}, {0.05, 0.05}},
                                             {{10, 10}, {0.05, 0.05}}})});
  const auto ends = OfKind(preflight, FindingKind::kLooseEnd);
  ASSERT_EQ(ends.size(), 1U);
  EXPECT_NEAR(ends[0].measure, 0.05 * std::sqrt(2.0), 1e-15);
  EXPECT_EQ(OfKind(preflight, FindingKind::kDuplicate).size(), 1U);
  EXPECT_TRUE(OfKind(preflight, FindingKind::kJunction).empty());
}

TEST(Inspect, TellsOverlapsOfEachKind) {
  const Preflight preflight =
      LookAt({Lines({{{0, 0}, {10, 0}}, {{2, 0}, {5, 0}}, {{0, 5}, {10, 5}}, {{6, 5}, {14, 5}}})});
  const auto contained = OfKind(preflight, FindingKind::kContained);
  ASSERT_EQ(contained.size(), 1U);
  EXPECT_NEAR(contained[0].measure, 3.0, 1e-12);
  EXPECT_TRUE(Contains(contained[0].what, "3 mm around (3.5, 0)")) << contained[0].what;
  const auto partial = OfKind(preflight, FindingKind::kPartialOverlap);
  ASSERT_EQ(partial.size(), 1U);
  EXPECT_NEAR(partial[0].measure, 4.0, 1e-12);
  EXPECT_TRUE(Contains(partial[0].what, "overlap in part: 4 mm around (8, 5)")) << partial[0].what;
}

TEST(Inspect, TellsTheTinyElementsOfOneEntityTogether) {
  const Preflight preflight = LookAtDxf(
      "0 LWPOLYLINE 8 CUT 90 6 70 1 10 0 20 0 10 10 20 0 10 10 20 0.004 10 10.003 20 0.008 10 10 "
      "20 10 10 0 20 10" +
      LineDxf(50, 0, 50.009, 0));
  const auto tiny = OfKind(preflight, FindingKind::kTiny);
  ASSERT_EQ(tiny.size(), 2U);
  // 0.004, and the hypotenuse over 0.003 and 0.004.
  EXPECT_EQ(tiny[0].elements.size(), 2U);
  EXPECT_NEAR(tiny[0].measure, 0.004, 1e-12);
  EXPECT_TRUE(Contains(tiny[0].what, "2 elements shorter than 0.01 mm, the shortest 0.004 mm"))
      << tiny[0].what;
  EXPECT_TRUE(Contains(tiny[1].what, "is 0.009 mm long, at (50, 0)")) << tiny[1].what;
}

TEST(Inspect, AsksForTinyElementsAsIsSaid) {
  const support::PartSketch sketch = {support::RectangleContour(0, 0, 10, 0.5)};
  drawing::PreflightOptions options;
  options.tiny = 0.5;
  EXPECT_TRUE(drawing::Inspect(support::DrawingOf(sketch), options).IsClean());
  options.tiny = 0.51;
  EXPECT_EQ(
      OfKind(drawing::Inspect(support::DrawingOf(sketch), options), FindingKind::kTiny).size(), 2U);
}

TEST(Inspect, TellsWhatHasNoLengthWithItsPlaceOnly) {
  drawing::Drawing drawn = support::DrawingOf({support::RectangleContour(0, 0, 10, 10)});
  drawn.unit.assumed = false;
  drawing::ZeroLengthEntity zero;
  zero.entity.type = "LINE";
  zero.entity.layer = "CUT";
  zero.entity.line = 77;
  zero.place = {3, 4};
  drawn.zeroLength.push_back(zero);
  drawing::Complain(drawn, drawing::Severity::kWarning, 77, &zero.entity, "its length is zero",
                    "not used");
  const Preflight preflight = Look(std::move(drawn));
  ASSERT_EQ(preflight.findings.size(), 1U);
  EXPECT_EQ(preflight.findings[0].kind, FindingKind::kZeroLength);
  EXPECT_EQ(preflight.findings[0].what, "LINE on layer CUT, line 77 has no length, at (3, 4)");
  EXPECT_FALSE(preflight.IsClean());
}

TEST(Inspect, TellsWhereAContourCrossesItself) {
  const Preflight preflight =
      LookAt({support::PolygonContour({{0, 0}, {30, 10}, {30, 0}, {0, 10}, {-9, 5}})});
  const auto found = OfKind(preflight, FindingKind::kSelfIntersection);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_TRUE(Contains(found[0].what, "meet at (15, 5) without a joint")) << found[0].what;
  EXPECT_EQ(found[0].elements, (std::vector<std::size_t>{0, 2}));
}

TEST(Inspect, TellsAFoldAsOneOverlap) {
  const Preflight preflight =
      LookAt({support::PolygonContour({{0, 0}, {20, 0}, {12, 0}, {12, 10}, {0, 10}})});
  EXPECT_TRUE(OfKind(preflight, FindingKind::kSelfIntersection).size() <= 1U);
  const auto overlaps = OfKind(preflight, FindingKind::kContained);
  ASSERT_EQ(overlaps.size(), 1U);
  EXPECT_NEAR(overlaps[0].measure, 8.0, 1e-12);
}

TEST(Inspect, TellsACornerThatWasOvershotOnceAsAGap) {
  // The lines cross at (10, 0), and each goes on beyond it.
  const Preflight preflight =
      LookAt({Lines({{{0, 0}, {10.05, 0}}, {{10, -0.05}, {10, 10}}, {{10, 10}, {0, 0}}})});
  ASSERT_EQ(preflight.findings.size(), 1U);
  EXPECT_EQ(preflight.findings[0].kind, FindingKind::kLooseEnd);
}

TEST(Inspect, TellsContoursThatCross) {
  const Preflight preflight =
      LookAt({support::CircleContour(0, 0, 5), support::CircleContour(6, 0, 5)});
  ASSERT_EQ(preflight.findings.size(), 1U);
  const Finding& finding = preflight.findings[0];
  EXPECT_EQ(finding.kind, FindingKind::kCrossing);
  // 5^2 = 3^2 + 4^2.
  ASSERT_EQ(finding.places.size(), 2U);
  EXPECT_NEAR(finding.places[0].X, 3.0, 1e-9);
  EXPECT_NEAR(std::fabs(finding.places[0].Y), 4.0, 1e-9);
}

TEST(Inspect, TellsACircleUponAnotherOnce) {
  const Preflight preflight =
      LookAt({support::CircleContour(0, 0, 5), support::CircleContour(0, 0, 5, 1.0)});
  ASSERT_EQ(preflight.findings.size(), 1U);
  EXPECT_EQ(preflight.findings[0].kind, FindingKind::kDuplicate);
  EXPECT_EQ(preflight.figures.closed, 2U);
  EXPECT_EQ(preflight.nesting.coincident, 1U);
  EXPECT_EQ(preflight.withoutDoubled.closed, 1U);
}

TEST(Inspect, TellsAPolygonThatLiesOnACircle) {
  // The sides are 1 - cos(pi / 400) = 0.00003 within the circle.
  std::vector<GX2DPoint> corners;
  for (int i = 0; i < 400; ++i) {
    corners.push_back({std::cos(i * support::kPi / 200), std::sin(i * support::kPi / 200)});
  }
  const Preflight preflight =
      LookAt({support::CircleContour(0, 0, 1), support::PolygonContour(corners)});
  ASSERT_EQ(preflight.findings.size(), 1U);
  EXPECT_EQ(preflight.findings[0].kind, FindingKind::kCoincident);
}

TEST(Inspect, TellsWhatEnclosesNothing) {
  // A speck, and an arc that leaves its chord by 0.0000125.
  const double half = std::asin(0.5 / 10000.0);
  support::PartSketch sketch = {Lines({{{50, 50}, {50.00005, 50}}, {{0, 0}, {1, 0}}})};
  sketch.push_back({support::ArcSide({1, 0}, {0.5, -10000.0 * std::cos(half)}, 2 * half)});
  const auto found = OfKind(LookAt(sketch), FindingKind::kNoArea);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_TRUE(Contains(found[0].what, "a speck at (50, 50)")) << found[0].what;
  EXPECT_TRUE(Contains(found[1].what, "encloses no area")) << found[1].what;
  EXPECT_TRUE(OfKind(LookAt(sketch), FindingKind::kTiny).empty());
}

const char* const kCircle = " 0 CIRCLE 8 CUT 10 0 20 0 40 5";

TEST(Inspect, SaysThatThereIsNoUnitWithoutCountingIt) {
  const Preflight preflight = Look(
      drawing::ReadDrawingText(support::DxfWithHeader("9 $ACADVER 1 AC1015", kCircle), "part.dxf"));
  ASSERT_EQ(preflight.findings.size(), 1U);
  EXPECT_EQ(preflight.findings[0].kind, FindingKind::kUnit);
  EXPECT_FALSE(preflight.findings[0].counts);
  EXPECT_TRUE(preflight.IsClean());
  EXPECT_TRUE(Contains(drawing::PreflightText(preflight, false), "taken as millimetres"));
}

TEST(Inspect, CountsAUnitThatIsNotKnown) {
  for (const std::string code : {"99", "metres"}) {
    const Preflight preflight = Look(drawing::ReadDrawingText(
        support::DxfWithHeader("9 $INSUNITS 70 " + code, kCircle), "part.dxf"));
    ASSERT_EQ(preflight.findings.size(), 1U) << code;
    EXPECT_EQ(preflight.findings[0].kind, FindingKind::kUnit) << code;
    EXPECT_FALSE(preflight.IsClean()) << code;
    EXPECT_TRUE(Contains(preflight.findings[0].what, code)) << preflight.findings[0].what;
  }
}

TEST(Inspect, CountsOnlyWhatMayBePartOfAnOutlineAmongWhatIsNotUsed) {
  Preflight preflight = LookAtDxf(std::string(kCircle) + " 0 TEXT 8 0 10 0 20 0 40 2 1 A3");
  ASSERT_EQ(preflight.findings.size(), 1U);
  EXPECT_EQ(preflight.findings[0].what, "1 TEXT not used");
  EXPECT_TRUE(preflight.IsClean());
  preflight = LookAtDxf(std::string(kCircle) + " 0 REGION 8 0");
  ASSERT_EQ(preflight.findings.size(), 1U);
  EXPECT_EQ(preflight.findings[0].kind, FindingKind::kNotUsed);
  EXPECT_FALSE(preflight.IsClean());
}

TEST(Inspect, DoesNotCountHiddenLayersAndPaperSpace) {
  drawing::Drawing drawn = support::DrawingOf({support::CircleContour(0, 0, 5)});
  drawn.unit.assumed = false;
  drawn.hiddenByLayer["NOTES"] = 3;
  drawn.paperSpaceByType["LINE"] = 2;
  const Preflight preflight = Look(std::move(drawn));
  ASSERT_EQ(preflight.findings.size(), 2U);
  EXPECT_TRUE(preflight.IsClean());
  const std::string text = drawing::PreflightText(preflight, false);
  EXPECT_TRUE(Contains(text, "3 on layer NOTES, off or frozen, left out")) << text;
  EXPECT_TRUE(Contains(text, "2 LINE in paper space left out")) << text;
}

TEST(Inspect, TellsLayersThatAreOffOnce) {
  const Preflight preflight = Look(drawing::ReadDrawingText(
      support::Lines(
          "0 SECTION 2 HEADER 9 $INSUNITS 70 4 0 ENDSEC 0 SECTION 2 TABLES 0 TABLE 2 "
          "LAYER 70 1 0 LAYER 2 NOTES 70 0 62 -7 0 ENDTAB 0 ENDSEC 0 SECTION 2 ENTITIES" +
          std::string(kCircle) + " 0 CIRCLE 8 NOTES 10 0 20 0 40 2 0 ENDSEC 0 EOF"),
      "part.dxf"));
  ASSERT_EQ(preflight.findings.size(), 1U);
  EXPECT_EQ(preflight.findings[0].what, "1 on layer NOTES, off or frozen, left out");
  EXPECT_TRUE(preflight.IsClean());
}

TEST(Inspect, CountsDamageAndPassesNotesOn) {
  const Preflight preflight = LookAtDxf(std::string(kCircle) + " 0 CIRCLE 8 CUT 10 0 20 0 40 x");
  const auto damage = OfKind(preflight, FindingKind::kDamage);
  ASSERT_EQ(damage.size(), 1U);
  EXPECT_TRUE(damage[0].counts);
  // The group with the radius stands behind the first circle's 10 lines and 8 more.
  EXPECT_EQ(damage[0].what.substr(0, 8), "line 38:") << damage[0].what;
}

TEST(Inspect, FindsThatThereIsNothingToCut) {
  const Preflight preflight = LookAtDxf("0 TEXT 8 0 10 0 20 0 40 2 1 A3");
  EXPECT_FALSE(preflight.IsClean());
  EXPECT_TRUE(Contains(drawing::PreflightText(preflight, false), "part.dxf: 1 finding\n"))
      << drawing::PreflightText(preflight, false);
}

TEST(Inspect, TellsOfAnUnusableDrawingOnlyWhyItIs) {
  const Preflight preflight = Look(drawing::ReadDrawingText("", "part.dxf"));
  EXPECT_FALSE(preflight.IsClean());
  EXPECT_TRUE(preflight.findings.empty());
  EXPECT_EQ(drawing::PreflightText(preflight, false), "part.dxf: not usable: it is empty\n");
  const auto json = drawing::PreflightJson(preflight);
  EXPECT_EQ(json,
            nlohmann::json({{"file", "part.dxf"}, {"usable", false}, {"refusal", "it is empty"}}));
}

}  // namespace
