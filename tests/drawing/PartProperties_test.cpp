// What must hold for any part: redrawing it in other ways leaves it the same, changing it does not.
#include "PartSketch.h"
#include "RandomPart.h"

#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using support::MakeRandomPart;
using support::PartSketch;
using support::Random;
using support::RandomPart;
using support::RoundPart;
using support::SketchContour;

constexpr int kParts = 320;

drawing::Comparison Compare(const PartSketch& a, const PartSketch& b,
                            GXLAContour::eNmbSegmentsMode mode = GXLAContour::eNmbSegmentsEqual) {
  const drawing::PartModel partA = support::PartOf(a);
  const drawing::PartModel partB = support::PartOf(b);
  EXPECT_TRUE(partA.usable) << partA.obstacle;
  EXPECT_TRUE(partB.usable) << partB.obstacle;
  drawing::Comparison comparison;
  if (!partA.usable || !partB.usable) return comparison;
  drawing::CompareOptions options;
  options.mode = mode;
  return drawing::CompareParts(partA, partB, options);
}

void ExpectSame(const drawing::Comparison& comparison) {
  EXPECT_TRUE(comparison.same) << comparison.verdict;
  // Coordinates up to about 1000 mm are exact to 2e-13; turning and fitting cost a few digits.
  EXPECT_LT(comparison.largestDeviation, 1.0e-6);
}

TEST(PartProperties, AnyPartIsTheSameAsItself) {
  Random random;
  for (int i = 0; i < kParts; ++i) {
    SCOPED_TRACE(i);
    const PartSketch part = i % 4 == 0 ? RoundPart(random) : MakeRandomPart(random).Sketch();
    ExpectSame(Compare(part, part));
    ExpectSame(Compare(part, part, GXLAContour::eNmbSegmentsMayDiffer));
  }
}

TEST(PartProperties, AnyPartIsTheSameWhenRedrawn) {
  Random random;
  for (int i = 0; i < kParts; ++i) {
    SCOPED_TRACE(i);
    const PartSketch part = i % 4 == 0 ? RoundPart(random) : MakeRandomPart(random).Sketch();
    ExpectSame(Compare(part, support::Redrawn(part, random)));
    ExpectSame(Compare(support::Redrawn(part, random), support::Redrawn(part, random),
                       GXLAContour::eNmbSegmentsMayDiffer));
  }
}

TEST(PartProperties, AnyPartIsTheSameAsItsLooseElements) {
  Random random;
  for (int i = 0; i < kParts; ++i) {
    SCOPED_TRACE(i);
    const PartSketch part = i % 4 == 0 ? RoundPart(random) : MakeRandomPart(random).Sketch();
    const drawing::PartModel drawn = support::PartOf(part);
    const drawing::PartModel loose =
        drawing::BuildPart(support::ShuffledDrawingOf(support::Redrawn(part, random), random));
    ASSERT_TRUE(loose.usable) << loose.obstacle;
    ExpectSame(drawing::CompareParts(drawn, loose, {}));
  }
}

TEST(PartProperties, TheVerdictDoesNotDependOnWhichPartComesFirst) {
  Random random;
  for (int i = 0; i < kParts; ++i) {
    SCOPED_TRACE(i);
    const RandomPart part = MakeRandomPart(random);
    RandomPart other = part;
    if (random.Bool()) other.radii[0] = part.radii[0] > 0.0 ? 0.0 : 2.0;
    if (random.Bool()) support::ShiftContour(other.cutOuts.back(), 0.3, 0.0);
    const PartSketch redrawn = support::Redrawn(other.Sketch(), random);
    const drawing::Comparison there = Compare(part.Sketch(), redrawn);
    const drawing::Comparison back = Compare(redrawn, part.Sketch());
    EXPECT_EQ(there.same, back.same) << there.verdict << "\n" << back.verdict;
    EXPECT_EQ(there.step, back.step);
  }
}

TEST(PartProperties, AMovedCornerIsToldApart) {
  Random random;
  for (int i = 0; i < kParts; ++i) {
    SCOPED_TRACE(i);
    const RandomPart part = MakeRandomPart(random);
    RandomPart changed = part;
    const double direction = random.Between(0.0, support::kFullTurn);
    const int corner = random.Int(0, static_cast<int>(part.corners.size()) - 1);
    changed.corners[static_cast<std::size_t>(corner)].Translate(0.5 * std::cos(direction),
                                                                0.5 * std::sin(direction));
    const PartSketch redrawn = support::Redrawn(changed.Sketch(), random);
    EXPECT_FALSE(Compare(part.Sketch(), redrawn).same);
  }
}

TEST(PartProperties, AMovedHoleIsToldApart) {
  Random random;
  for (int i = 0; i < kParts; ++i) {
    SCOPED_TRACE(i);
    const PartSketch part = i % 4 == 0 ? RoundPart(random) : MakeRandomPart(random).Sketch();
    PartSketch changed = part;
    const double direction = random.Between(0.0, support::kFullTurn);
    support::ShiftContour(changed.back(), 0.2 * std::cos(direction), 0.2 * std::sin(direction));
    const drawing::Comparison comparison = Compare(part, support::Redrawn(changed, random));
    EXPECT_EQ(comparison.step, drawing::DecidingStep::kCutOutPositions) << comparison.verdict;
    EXPECT_FALSE(comparison.same);
  }
}

TEST(PartProperties, AnotherHoleRadiusIsToldApart) {
  Random random;
  for (int i = 0; i < kParts; ++i) {
    SCOPED_TRACE(i);
    const RandomPart part = MakeRandomPart(random);
    RandomPart changed = part;
    const support::Side hole = part.cutOuts[0][0];
    const double radius = std::hypot(hole.start.X - hole.centre.X, hole.start.Y - hole.centre.Y);
    changed.cutOuts[0] =
        support::CircleContour(hole.centre.X, hole.centre.Y, radius + random.Between(0.06, 0.3));
    EXPECT_FALSE(Compare(part.Sketch(), support::Redrawn(changed.Sketch(), random)).same);
  }
}

TEST(PartProperties, OneHoleMoreIsToldApart) {
  Random random;
  for (int i = 0; i < kParts; ++i) {
    SCOPED_TRACE(i);
    const PartSketch part = MakeRandomPart(random).Sketch();
    PartSketch more = part;
    SketchContour copy = more.back();
    support::ShiftContour(copy, 0.0, 11.0);
    more.push_back(copy);
    EXPECT_EQ(Compare(part, support::Redrawn(more, random)).step,
              drawing::DecidingStep::kCutOutCounts);
  }
}

TEST(PartProperties, TheMirrorImageIsToldApart) {
  Random random;
  for (int i = 0; i < kParts; ++i) {
    SCOPED_TRACE(i);
    const PartSketch part = MakeRandomPart(random).Sketch();
    EXPECT_FALSE(Compare(part, support::Redrawn(support::Mirrored(part), random)).same);
    // Mirrored twice it is the part again.
    const PartSketch twice = support::Mirrored(support::Mirrored(part));
    ExpectSame(Compare(part, support::Redrawn(twice, random)));
  }
}

}  // namespace
