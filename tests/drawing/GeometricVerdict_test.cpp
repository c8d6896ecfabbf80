#include "drawing/GeometricVerdict.h"

#include "BothVerdicts.h"
#include "PartSketch.h"
#include "RandomPart.h"
#include "drawing/PartModel.h"
#include "support/Build.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using drawing::GeometricVerdict;
using drawing::kNoCutOut;
using support::BothVerdicts;
using support::CircleContour;
using support::JudgeBoth;
using support::MakeRandomPart;
using support::PartSketch;
using support::Random;
using support::RandomPart;
using support::RectangleContour;
using support::RoundPart;
using support::SketchContour;

constexpr double kPi = support::kPi;

// What a measurement may miss, in millimetres.
constexpr double kMissed = 0.001;

// Coordinates up to about 1000 mm are exact to 2e-13; turning and fitting cost a few digits.
constexpr double kRounding = 1.0e-9;

// The own verdict alone.
GeometricVerdict Judge(const PartSketch& a, const PartSketch& b, bool mirrored = false) {
  const drawing::PartModel partA = support::PartOf(a);
  const drawing::PartModel partB = support::PartOf(b);
  EXPECT_TRUE(partA.usable) << partA.obstacle;
  EXPECT_TRUE(partB.usable) << partB.obstacle;
  if (!partA.usable || !partB.usable) return {};
  return drawing::CompareGeometry(partA, partB, mirrored, nullptr);
}

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

// Round plate of radius 100 with a circle of `count` holes on radius 80.
PartSketch HoleCircle(int count) {
  PartSketch plate = {CircleContour(0, 0, 100)};
  for (int i = 0; i < count; ++i) {
    const GX2DPoint p = support::Turned({80, 0}, {0, 0}, support::kFullTurn * i / count);
    plate.push_back(CircleContour(p.X, p.Y, 1));
  }
  return plate;
}

void ExpectSame(const GeometricVerdict& verdict, std::size_t cutOuts) {
  EXPECT_TRUE(verdict.same) << drawing::PlacementText(verdict);
  EXPECT_LT(verdict.largestDeviation, kRounding);
  EXPECT_EQ(verdict.cutOuts.size(), cutOuts);
}

TEST(CompareGeometry, FindsAnyPartAgainHoweverItIsDrawn) {
  Random random;
  for (int i = 0; i < 200; ++i) {
    SCOPED_TRACE(i);
    const PartSketch part = i % 4 == 0 ? RoundPart(random) : MakeRandomPart(random).Sketch();
    ExpectSame(Judge(part, support::Redrawn(part, random)), part.size() - 1);
  }
}

TEST(CompareGeometry, FindsAnyPartAgainWithTheLibrarysStarts) {
  Random random;
  for (int i = 0; i < 100; ++i) {
    SCOPED_TRACE(i);
    const PartSketch part = i % 4 == 0 ? RoundPart(random) : MakeRandomPart(random).Sketch();
    const BothVerdicts both = JudgeBoth(part, support::Redrawn(part, random));
    ExpectSame(both.own, part.size() - 1);
    EXPECT_EQ(both.disagreement, "");
  }
}

TEST(CompareGeometry, FindsAnyPartTurnedOver) {
  Random random;
  for (int i = 0; i < 100; ++i) {
    SCOPED_TRACE(i);
    const PartSketch part = i % 4 == 0 ? RoundPart(random) : MakeRandomPart(random).Sketch();
    const PartSketch mirrored = support::Redrawn(support::Mirrored(part), random);
    const GeometricVerdict verdict = Judge(part, mirrored, true);
    ExpectSame(verdict, part.size() - 1);
    EXPECT_TRUE(verdict.placement.mirrored);
    EXPECT_FALSE(Judge(part, mirrored).same);
  }
}

TEST(CompareGeometry, RecoversTheMotion) {
  Random random;
  // Nothing takes this part onto itself.
  const PartSketch part = Plate({CircleContour(20, 20, 4), CircleContour(70, 30, 6)});
  for (int i = 0; i < 50; ++i) {
    SCOPED_TRACE(i);
    const double radians = random.Between(-3.1, 3.1);
    const PartSketch moved =
        support::Moved(part, radians, random.Between(-300, 300), random.Between(-300, 300));
    const GeometricVerdict verdict = Judge(part, moved);
    EXPECT_NEAR(verdict.placement.motion.AngleDegrees(), -radians * 180 / kPi, 1e-9);
    const GX2DPoint corner = verdict.placement.Apply(moved[0][2].start);
    EXPECT_NEAR(corner.X, 100, kRounding);
    EXPECT_NEAR(corner.Y, 60, kRounding);
    const GeometricVerdict over = Judge(part, support::Mirrored(moved), true);
    const GX2DPoint back = over.placement.Apply({-moved[0][2].start.X, moved[0][2].start.Y});
    EXPECT_NEAR(back.X, 100, kRounding);
    EXPECT_NEAR(back.Y, 60, kRounding);
  }
}

TEST(CompareGeometry, LeavesASymmetricPartInItsPlace) {
  // Two and four turns lay these on themselves.
  for (const PartSketch& part :
       {Plate({CircleContour(50, 30, 4)}), PartSketch{RectangleContour(0, 0, 50, 50)}}) {
    const GeometricVerdict verdict = Judge(part, part);
    ExpectSame(verdict, part.size() - 1);
    EXPECT_EQ(drawing::PlacementText(verdict), "left in its place, largest deviation 0.0000 mm");
  }
}

TEST(CompareGeometry, MeasuresHowFarAHoleWasMoved) {
  Random random;
  const PartSketch a = Plate({CircleContour(20, 20, 4), CircleContour(70, 30, 6)});
  for (const double d : {0.01, 0.04, 0.06, 0.5, 3.0}) {
    SCOPED_TRACE(d);
    PartSketch b = a;
    support::ShiftContour(b[1], d, 0);
    const GeometricVerdict verdict = Judge(a, support::Redrawn(b, random));
    EXPECT_EQ(verdict.same, d < drawing::kPositionLimit);
    EXPECT_LT(verdict.outerDeviation, kRounding);
    EXPECT_NEAR(verdict.largestDeviation, d, kMissed);
    // Partners first, then the hole of A and that of B, each as far from the other one.
    ASSERT_EQ(verdict.cutOuts.size(), verdict.same ? 2u : 3u);
    const auto moved =
        std::max_element(verdict.cutOuts.begin(), verdict.cutOuts.end(),
                         [](const auto& p, const auto& q) { return p.deviation < q.deviation; });
    // It is on the rim of either hole, before or behind its centre.
    const double x = std::fabs(moved->place.X - 20.0 - 0.5 * d);
    EXPECT_NEAR(x, 4.0 + 0.5 * d, d + 0.01);
    if (verdict.same) continue;
    EXPECT_NEAR(verdict.cutOuts[1].deviation, d, kMissed);
    EXPECT_EQ(verdict.cutOuts[1].b, kNoCutOut);
    EXPECT_NEAR(verdict.cutOuts[2].deviation, d, kMissed);
    EXPECT_EQ(verdict.cutOuts[2].a, kNoCutOut);
  }
}

TEST(CompareGeometry, MeasuresAMovedHoleOfAnyPart) {
  Random random;
  for (int i = 0; i < 100; ++i) {
    SCOPED_TRACE(i);
    const RandomPart part = MakeRandomPart(random);
    RandomPart other = part;
    const double d = random.Between(0.06, 0.3);
    const double direction = random.Between(-3, 3);
    support::ShiftContour(other.cutOuts[0], d * std::cos(direction), d * std::sin(direction));
    const GeometricVerdict verdict = Judge(part.Sketch(), support::Redrawn(other.Sketch(), random));
    EXPECT_FALSE(verdict.same);
    EXPECT_LT(verdict.outerDeviation, kRounding);
    EXPECT_NEAR(verdict.largestDeviation, d, kMissed);
  }
}

TEST(CompareGeometry, MeasuresAnotherHoleDiameter) {
  const PartSketch a = Plate({CircleContour(20, 20, 4), CircleContour(70, 30, 6)});
  const PartSketch b = Plate({CircleContour(20, 20, 4.3), CircleContour(70, 30, 6.02)});
  const GeometricVerdict verdict = Judge(a, b);
  EXPECT_FALSE(verdict.same);
  ASSERT_EQ(verdict.cutOuts.size(), 3u);
  EXPECT_NEAR(verdict.cutOuts[0].deviation, 0.02, 1e-12);
  EXPECT_NEAR(verdict.cutOuts[1].deviation, 0.3, 1e-12);
  EXPECT_NEAR(verdict.cutOuts[2].deviation, 0.3, 1e-12);
}

TEST(CompareGeometry, MeasuresAnotherCornerRadius) {
  // Between arcs of radius 5 and 7 in one right angle lie 2 (sqrt 2 - 1) along its bisector. All
  // other sides stay where they are.
  const std::vector<GX2DPoint> corners = {{0, 0}, {100, 0}, {100, 60}, {0, 60}};
  const PartSketch a = {support::RoundedPolygon(corners, {5, 5, 5, 5})};
  const PartSketch b = {support::RoundedPolygon(corners, {5, 5, 7, 5})};
  const GeometricVerdict verdict = Judge(a, b);
  EXPECT_FALSE(verdict.same);
  EXPECT_NEAR(verdict.outerDeviation, 2 * (std::sqrt(2.0) - 1), kMissed);
  EXPECT_EQ(verdict.largestDeviation, verdict.outerDeviation);
  // On the bisector through (100, 60), on the arc of radius 5 or that of 7. The place is as exact
  // as the distance is flat there: a thousandth of it is a few tenths along the arc.
  const GX2DPoint& p = verdict.outerPlace;
  EXPECT_NEAR(p.X - p.Y, 40.0, 0.5);
  EXPECT_NEAR(std::min(std::hypot(p.X - 95, p.Y - 55) - 5.0, std::hypot(p.X - 93, p.Y - 53) - 7.0),
              0.0, kMissed);
}

TEST(CompareGeometry, AllowsWhatStaysWithinTheLimit) {
  // 0.08 longer: laid on each other in the middle both ends are 0.04 off, at the end 0.08.
  const PartSketch a = {RectangleContour(0, 0, 100, 60)};
  const GeometricVerdict near = Judge(a, {RectangleContour(0, 0, 100.08, 60)});
  EXPECT_TRUE(near.same);
  EXPECT_NEAR(near.outerDeviation, 0.04, kMissed);
  EXPECT_FALSE(Judge(a, {RectangleContour(0, 0, 100.12, 60)}).same);
}

TEST(CompareGeometry, PressesTheLargestDistanceDownBeforeItSaysDifferent) {
  // Three short teeth of 0.09 on one side. Their mean is small, so the least squares leave them
  // nearly as they are; shifted by half of it, everything is within the limit.
  const PartSketch a = {RectangleContour(0, 0, 100, 60)};
  std::vector<GX2DPoint> corners = {{0, 0}, {100, 0}, {100, 60}};
  for (const double x : {80.0, 50.0, 20.0}) {
    corners.insert(corners.end(), {{x, 60}, {x - 0.3, 60.09}, {x - 0.6, 60}});
  }
  corners.emplace_back(0, 60);
  const GeometricVerdict verdict = Judge(a, {support::PolygonContour(corners)});
  EXPECT_TRUE(verdict.same) << drawing::PlacementText(verdict);
  EXPECT_NEAR(verdict.outerDeviation, 0.045, 0.003);
}

TEST(CompareGeometry, ShowsANotchAsTheOnlyDifference) {
  const SketchContour shape =
      support::PolygonContour({{0, 0}, {100, 0}, {100, 30}, {40, 30}, {40, 80}, {0, 80}});
  const SketchContour notched = support::PolygonContour(
      {{0, 0}, {100, 0}, {100, 30}, {40, 30}, {40, 80}, {20, 80}, {20, 75}, {0, 75}});
  const PartSketch a = {shape, CircleContour(20, 20, 5)};
  const PartSketch b = support::Moved({notched, CircleContour(20, 20, 5)}, 2, 30, 40);
  const GeometricVerdict verdict = Judge(a, b);
  EXPECT_FALSE(verdict.same);
  EXPECT_NEAR(verdict.outerDeviation, 5.0, kMissed);
  ASSERT_EQ(verdict.cutOuts.size(), 1u);
  EXPECT_NEAR(verdict.cutOuts[0].deviation, 0.0, 1e-3);
}

TEST(CompareGeometry, JudgesRoundParts) {
  ExpectSame(Judge({CircleContour(0, 0, 50)}, {CircleContour(7, 3, 50, 1.0)}), 0);
  const GeometricVerdict wider = Judge({CircleContour(0, 0, 50)}, {CircleContour(7, 3, 50.04)});
  EXPECT_TRUE(wider.same);
  EXPECT_NEAR(wider.outerDeviation, 0.04, 1e-12);
  EXPECT_FALSE(Judge({CircleContour(0, 0, 50)}, {CircleContour(7, 3, 50.06)}).same);
  // A ring; a ring with one hole out of its middle.
  const PartSketch ring = {CircleContour(0, 0, 50), CircleContour(0, 0, 30)};
  ExpectSame(Judge(ring, support::Moved(ring, 1, 2, 3)), 1);
  const GeometricVerdict eccentric =
      Judge(ring, {CircleContour(0, 0, 50), CircleContour(1, 0, 30)});
  EXPECT_FALSE(eccentric.same);
  EXPECT_NEAR(eccentric.largestDeviation, 1.0, kMissed);
}

TEST(CompareGeometry, FindsTheTurnOfARoundPartFromItsCutOuts) {
  PartSketch odd = HoleCircle(12);
  odd.push_back(CircleContour(10, 5, 2));
  ExpectSame(Judge(odd, support::Moved(odd, 0.4, 200, 100)), 13);
  const PartSketch square = {CircleContour(0, 0, 50), RectangleContour(-10, -10, 10, 10)};
  ExpectSame(Judge(square, support::Moved(square, 0.4, 200, 100)), 1);
  const PartSketch slot = {CircleContour(0, 0, 50), support::SlotContour({0, 0}, 20, 3, 0)};
  ExpectSame(Judge(slot, support::Moved(slot, 1.4, 200, 100)), 1);
}

TEST(CompareGeometry, TellsOneHoleOfAHoleCircleThatWasMoved) {
  const PartSketch a = HoleCircle(12);
  PartSketch b = a;
  support::ShiftContour(b[4], 0.0, 0.3);
  const GeometricVerdict verdict = Judge(a, support::Moved(b, 0.2, 3, 4));
  EXPECT_FALSE(verdict.same);
  const auto partners = std::count_if(
      verdict.cutOuts.begin(), verdict.cutOuts.end(),
      [](const auto& cutOut) { return cutOut.a != kNoCutOut && cutOut.b != kNoCutOut; });
  EXPECT_EQ(partners, 11);
  // All others may give way by up to the limit to bring it nearer.
  EXPECT_NEAR(verdict.largestDeviation, 0.3, drawing::kPositionLimit);
}

TEST(CompareGeometry, GivesEachCutOutOneFreePartner) {
  const PartSketch a = Plate({CircleContour(20, 20, 4), CircleContour(20.03, 20, 4)});
  ExpectSame(Judge(a, a), 2);
  const PartSketch b = Plate({CircleContour(20.01, 20, 4), CircleContour(20.5, 20, 4)});
  const GeometricVerdict verdict = Judge(a, b);
  EXPECT_FALSE(verdict.same);
  EXPECT_EQ(verdict.cutOuts.size(), 3u);
}

TEST(CompareGeometry, PairsCirclesAboutOneCentreBySize) {
  PartSketch a = {RectangleContour(-100, -100, 100, 90)};
  for (int i = 1; i < 60; ++i) a.push_back(CircleContour(3, 4, 1.2 * i));
  ExpectSame(Judge(a, support::Moved(a, 1, 2, 3)), 59);
}

TEST(CompareGeometry, MeasuresCutOutsWithoutPartnerAgainstOneAnother) {
  // The outline and the other hole are nearer to the hole that was moved by 20 than it is to
  // itself.
  const PartSketch a = Plate({CircleContour(20, 10, 4), CircleContour(30, 20, 3)});
  const PartSketch b = Plate({CircleContour(40, 10, 4), CircleContour(30, 20, 3)});
  const GeometricVerdict verdict = Judge(a, b);
  ASSERT_EQ(verdict.cutOuts.size(), 3u);
  EXPECT_NEAR(verdict.cutOuts[1].deviation, 20.0, kMissed);
  EXPECT_NEAR(verdict.cutOuts[2].deviation, 20.0, kMissed);
}

TEST(CompareGeometry, NamesACutOutThatIsMissing) {
  const PartSketch a = Plate({CircleContour(20, 20, 4), CircleContour(70, 30, 6)});
  const PartSketch b = Plate({CircleContour(20, 20, 4)});
  const GeometricVerdict verdict = Judge(a, b);
  EXPECT_FALSE(verdict.same);
  ASSERT_EQ(verdict.cutOuts.size(), 2u);
  EXPECT_EQ(verdict.cutOuts[1].b, kNoCutOut);
  // The hole about (70, 30) of radius 6: nearest is the right side, then those above and below; its
  // place farthest from all of them lies on its left, (64, 30), 30 from above and below.
  EXPECT_NEAR(verdict.cutOuts[1].deviation, 30.0, kMissed);
  EXPECT_NEAR(Judge(b, a).cutOuts[1].deviation, 30.0, kMissed);
}

TEST(CompareGeometry, StaysExactFarFromTheOrigin) {
  const PartSketch part =
      Plate({CircleContour(20, 20, 4), support::SlotContour({60, 30}, 9, 2, 1)});
  const PartSketch far = support::Moved(part, 0, 1e6, -1e6);
  const GeometricVerdict verdict = Judge(far, support::Moved(part, 1.1, -1e6, 1e6));
  EXPECT_TRUE(verdict.same);
  // Coordinates there are multiples of 1.2e-10.
  EXPECT_LT(verdict.largestDeviation, 2e-9);
}

TEST(CompareGeometry, LaysAPolygonOfTenThousandSidesOnItself) {
  const PartSketch part = {RegularPolygon(10000, 500)};
  ExpectSame(Judge(part, support::Moved(part, 0.1234, 5, 6)), 0);
  // One hole tells which of the ten thousand turns it is.
  const PartSketch holed = {part[0], CircleContour(300, 100, 3)};
  ExpectSame(Judge(holed, support::Moved(holed, 0.1234, 5, 6)), 1);
}

TEST(Placement, NegatesXBeforeTheMotion) {
  drawing::Placement placement;
  placement.mirrored = true;
  placement.motion = drawing::TurnAndShift(kPi / 2, {0, 0}, {10, 20});
  const GX2DPoint p = placement.Apply({3, 4});  // (-3, 4), turned (-4, -3), shifted (6, 17).
  EXPECT_NEAR(p.X, 6, 1e-12);
  EXPECT_NEAR(p.Y, 17, 1e-12);
}

}  // namespace
