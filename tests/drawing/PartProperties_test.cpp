// What must hold for any part: redrawing it in other ways leaves it the same, changing it does not.
#include "PartSketch.h"

#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using support::PartSketch;
using support::Random;
using support::SketchContour;

constexpr int kParts = 320;

// A part that can be built again with one corner of its outline elsewhere.
struct RandomPart {
  std::vector<GX2DPoint> corners;
  std::vector<double> radii;
  PartSketch cutOuts;

  PartSketch Sketch() const {
    PartSketch sketch = {support::RoundedPolygon(corners, radii)};
    sketch.insert(sketch.end(), cutOuts.begin(), cutOuts.end());
    return sketch;
  }
};

// Corners in all directions from the origin, none of them straight.
std::vector<GX2DPoint> StarCorners(Random& random) {
  const int count = random.Int(5, 11);
  std::vector<GX2DPoint> corners;
  for (int i = 0; i < count; ++i) {
    const double direction = support::kFullTurn * (i + random.Between(-0.3, 0.3)) / count;
    const double radius = i % 2 == 0 ? random.Between(45.0, 60.0) : random.Between(65.0, 100.0);
    corners.emplace_back(radius * std::cos(direction), radius * std::sin(direction));
  }
  return corners;
}

// A rectangle with a notch in one or two of its corners.
std::vector<GX2DPoint> NotchedCorners(Random& random) {
  const double right = random.Between(60.0, 120.0);
  const double top = random.Between(30.0, 50.0);
  const double notchX = random.Between(8.0, 15.0);
  const double notchY = random.Between(16.0, 20.0);
  std::vector<GX2DPoint> corners = {{-40, -30}, {right, -30}};
  corners.insert(corners.end(),
                 {{right, top - notchY}, {right - notchX, top - notchY}, {right - notchX, top}});
  if (random.Bool()) {
    const double other = random.Between(3.0, 7.0);
    corners.insert(corners.end(), {{other - 40, top}, {other - 40, top - 2 * other}});
    corners.emplace_back(-40, top - 2 * other);
  } else {
    corners.emplace_back(-40, top);
  }
  return corners;
}

SketchContour RandomCutOut(Random& random, const GX2DPoint& middle) {
  const double direction = random.Between(0.0, 6.0);
  const double radius = random.Between(0.8, 2.0);
  switch (random.Int(0, 3)) {
    case 0:
      return support::CircleContour(middle.X, middle.Y, radius, direction);
    case 1:
      return support::SlotContour(middle, random.Between(2.0, 5.0), radius, direction);
    case 2: {
      const double w = random.Between(1.0, 2.5);
      const double h = random.Between(1.0, 2.5);
      std::vector<GX2DPoint> corners = {{-w, -h}, {w, -h}, {w, h}, {-w, h}};
      for (GX2DPoint& p : corners) {
        p = support::Turned({middle.X + p.X, middle.Y + p.Y}, middle, direction);
      }
      return support::RoundedPolygon(corners, {0.0, 0.3, 0.0, 0.3});
    }
    default:
      return support::PolygonContour({{middle.X - 2, middle.Y - 1},
                                      {middle.X + 1, middle.Y - random.Between(0.5, 1.5)},
                                      {middle.X, middle.Y + 2}});
  }
}

// Cut-outs on a loose grid about the origin, every second of them a repetition of another; the
// first is a circle.
PartSketch RandomCutOuts(Random& random) {
  const int count = random.Int(1, 12);
  PartSketch cutOuts;
  for (int i = 0; i < count; ++i) {
    const GX2DPoint middle(10.0 * (i % 4 - 1.5) + random.Between(-1.0, 1.0),
                           10.0 * (i / 4 - 1.0) + random.Between(-1.0, 1.0));
    if (i == 0) {
      cutOuts.push_back(support::CircleContour(middle.X, middle.Y, random.Between(1.0, 3.0)));
    } else if (random.Bool()) {
      const auto other = static_cast<std::size_t>(random.Int(0, i - 1));
      SketchContour copy = cutOuts[other];
      support::ShiftContour(copy, middle.X - 10.0 * (static_cast<int>(other) % 4 - 1.5),
                            middle.Y - 10.0 * (static_cast<int>(other) / 4 - 1.0));
      cutOuts.push_back(copy);
    } else {
      cutOuts.push_back(RandomCutOut(random, middle));
    }
  }
  return cutOuts;
}

RandomPart MakeRandomPart(Random& random) {
  RandomPart part;
  part.corners = random.Bool() ? StarCorners(random) : NotchedCorners(random);
  for (std::size_t i = 0; i < part.corners.size(); ++i) {
    part.radii.push_back(random.Bool() ? random.Between(0.5, 6.0) : 0.0);
  }
  part.cutOuts = RandomCutOuts(random);
  return part;
}

// A round part with at least four cut-outs.
PartSketch RoundPart(Random& random) {
  PartSketch sketch = {support::CircleContour(0.0, 0.0, 60.0, random.Between(0.0, 6.0))};
  PartSketch cutOuts = RandomCutOuts(random);
  while (cutOuts.size() < 4) cutOuts = RandomCutOuts(random);
  sketch.insert(sketch.end(), cutOuts.begin(), cutOuts.end());
  return sketch;
}

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
