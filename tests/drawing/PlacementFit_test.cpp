#include "drawing/PlacementFit.h"

#include "PartSketch.h"
#include "drawing/PartCurves.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using drawing::FitAim;
using drawing::PartCurves;
using drawing::PlacementFit;
using drawing::RigidMotion;
using support::CircleContour;
using support::PartSketch;
using support::RectangleContour;

PartCurves CurvesOf(const PartSketch& sketch) { return {support::PartOf(sketch), false}; }

// How far a motion takes points within 60 of the origin from themselves, at most.
double Strays(const RigidMotion& motion) {
  double largest = 0.0;
  for (const drawing::Place& p : {drawing::Place{60, 0}, {-60, 0}, {0, 60}, {0, -60}}) {
    largest = std::max(largest, drawing::Distance(drawing::Moved(motion, p), p));
  }
  return largest;
}

TEST(PlacementFit, FindsBackToThePartItself) {
  support::Random random;
  const PartCurves part =
      CurvesOf({support::RoundedPolygon({{0, 0}, {100, 0}, {90, 60}, {0, 60}}, {5, 0, 8, 0})});
  PlacementFit fit(part, part);
  for (int i = 0; i < 50; ++i) {
    SCOPED_TRACE(i);
    const RigidMotion off =
        drawing::TurnAndShift(random.Between(-0.02, 0.02), {0, 0},
                              {random.Between(-0.5, 0.5), random.Between(-0.5, 0.5)});
    // Newton's method squares what is missing, so eight rounds end at rounding level.
    EXPECT_LT(Strays(fit.Fitted(off, FitAim::kSquares)), 1e-10);
    EXPECT_LT(Strays(fit.Fitted(off, FitAim::kSum)), 1e-6);
  }
}

TEST(PlacementFit, LeavesTheTurnOfARoundPartWithoutCutOuts) {
  const PartCurves part = CurvesOf({CircleContour(0, 0, 50)});
  PlacementFit fit(part, part);
  const RigidMotion fitted =
      fit.Fitted(drawing::TurnAndShift(0.3, {0, 0}, {0.4, 0.2}), FitAim::kSquares);
  // The first step, which shifts by 0.45, takes a trace of a turn along.
  EXPECT_NEAR(fitted.AngleDegrees(), 0.3 * 360 / support::kFullTurn, 1e-3);
  EXPECT_NEAR(fitted.shiftX, 0.0, 1e-9);
  EXPECT_NEAR(fitted.shiftY, 0.0, 1e-9);
}

TEST(PlacementFit, TurnsARoundPartByItsCutOutsButDoesNotShiftIt) {
  // One of two holes is 0.4 further out: no reason to shift the outline.
  const PartCurves a =
      CurvesOf({CircleContour(0, 0, 50), CircleContour(30, 0, 4), CircleContour(0, 20, 3)});
  const PartCurves b =
      CurvesOf({CircleContour(0, 0, 50), CircleContour(30.4, 0, 4), CircleContour(0, 20, 3)});
  PlacementFit fit(a, b);
  const RigidMotion fitted =
      fit.Fitted(drawing::TurnAndShift(0.01, {0, 0}, {0.3, 0.2}), FitAim::kSquares);
  EXPECT_NEAR(fitted.AngleDegrees(), 0.0, 0.01);
  EXPECT_NEAR(std::hypot(fitted.shiftX, fitted.shiftY), 0.0, 1e-4);
}

TEST(PlacementFit, SpreadsADifferenceOrLeavesItWhereItIsAsAimed) {
  // A plate whose right side is 0.3 further out: the least largest distance is half of it, on both
  // sides; the sum leaves the three equal sides where they are.
  const PartCurves a = CurvesOf({RectangleContour(0, 0, 100, 60)});
  const PartCurves b = CurvesOf({RectangleContour(0, 0, 100.3, 60)});
  PlacementFit fit(a, b);
  // About their centres both are even; the shift is told against that.
  const RigidMotion largest =
      fit.Fitted(drawing::TurnAndShift(0.0, {0, 0}, {0.1, 0.0}), FitAim::kLargest);
  EXPECT_NEAR(largest.shiftX, 0.0, 0.01);
  EXPECT_LT(fit.MeanDistance(largest), 0.15);
  // 60 mm of each side are 0.15 away, the 200 and more of the others are not.
  EXPECT_NEAR(fit.MeanDistance(RigidMotion{}), 0.15 * 120 / 320, 0.02);
}

TEST(PlacementFit, TellsRoughlyHowBadAMotionIs) {
  const PartCurves part = CurvesOf({RectangleContour(0, 0, 100, 60), CircleContour(20, 20, 4)});
  const PlacementFit fit(part, part);
  EXPECT_LT(fit.Roughly(RigidMotion{}), 1e-12);
  EXPECT_GT(fit.Roughly(drawing::TurnAndShift(0.1, {0, 0}, {0, 0})), 0.5);
  // Half a turn lays the plate on itself, but not the hole.
  EXPECT_GT(fit.Roughly(drawing::TurnAndShift(support::kFullTurn / 2, {0, 0}, {0, 0})), 0.1);
}

}  // namespace
