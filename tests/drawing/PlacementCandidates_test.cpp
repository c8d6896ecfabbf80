#include "drawing/PlacementCandidates.h"

#include "PartSketch.h"
#include "RandomPart.h"
#include "drawing/PartCurves.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using drawing::PartCurves;
using drawing::RigidMotion;
using support::CircleContour;
using support::PartSketch;
using support::RectangleContour;

PartCurves CurvesOf(const PartSketch& sketch) { return {support::PartOf(sketch), false}; }

// By how much the candidates miss a turn at least, radians.
double Misses(const std::vector<RigidMotion>& motions, double radians) {
  double least = HUGE_VAL;
  for (const RigidMotion& motion : motions) {
    const double angle = std::atan2(motion.sine, motion.cosine);
    least = std::min(least, std::fabs(std::remainder(angle - radians, support::kFullTurn)));
  }
  return least;
}

TEST(FeaturePlacements, HoldTheTurnOfAnyPart) {
  support::Random random;
  for (int i = 0; i < 150; ++i) {
    SCOPED_TRACE(i);
    const PartSketch part =
        i % 4 == 0 ? support::RoundPart(random) : support::MakeRandomPart(random).Sketch();
    const double radians = random.Between(-3, 3);
    const auto motions =
        FeaturePlacements(CurvesOf(part), CurvesOf(support::Moved(part, radians, 30, 40)));
    EXPECT_LT(Misses(motions, -radians), 1e-6);
  }
}

TEST(FeaturePlacements, AreFewWhereSomethingStandsOut) {
  // 400 equal holes, but four corners: two of them may lie on each one.
  PartSketch sheet = {RectangleContour(-5, -5, 100, 120)};
  for (int i = 0; i < 400; ++i) sheet.push_back(CircleContour(4.8 * (i % 20), 5 * (i / 20), 1));
  EXPECT_LE(FeaturePlacements(CurvesOf(sheet), CurvesOf(sheet)).size(), 12u);
}

TEST(FeaturePlacements, DoNotTurnWhatHasNoDirection) {
  const PartCurves ring = CurvesOf({CircleContour(3, 4, 50), CircleContour(3, 4, 30)});
  const std::vector<RigidMotion> motions = FeaturePlacements(ring, ring);
  ASSERT_EQ(motions.size(), 1u);
  EXPECT_EQ(motions[0].AngleDegrees(), 0.0);
}

TEST(FeaturePlacements, BeginWithTheSmallestTurn) {
  const PartCurves square = CurvesOf({RectangleContour(0, 0, 50, 50)});
  EXPECT_NEAR(FeaturePlacements(square, square).front().AngleDegrees(), 0.0, 1e-9);
}

TEST(DirectionPlacements, LayCornersOfBoxesOnEachOther) {
  // A notch of 30 at one corner: the centres are apart, the other corners fit.
  const support::SketchContour notched =
      support::PolygonContour({{0, 0}, {100, 0}, {100, 60}, {30, 60}, {30, 30}, {0, 30}});
  const PartCurves a = CurvesOf({RectangleContour(0, 0, 100, 60)});
  const PartCurves b = CurvesOf(support::Moved({notched}, 0.7, 30, 40));
  double least = HUGE_VAL;
  const GX2DPoint corner = support::Turned({100, 0}, {0, 0}, 0.7);
  for (const RigidMotion& motion : DirectionPlacements(a, b)) {
    const drawing::Place p =
        drawing::Moved(motion, {corner.X + 30 - b.origin.x, corner.Y + 40 - b.origin.y});
    const double turn = std::fabs(motion.AngleDegrees() + 0.7 * 360 / support::kFullTurn);
    const double off = std::hypot(p.x + a.origin.x - 100, p.y + a.origin.y);
    least = std::min(least, turn + off);
  }
  EXPECT_LT(least, 1e-9);
}

}  // namespace
