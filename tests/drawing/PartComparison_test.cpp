#include "drawing/PartComparison.h"

#include "PartSketch.h"
#include "drawing/PartModel.h"
#include "support/Build.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

namespace {

using drawing::Comparison;
using drawing::DecidingStep;
using support::CircleContour;
using support::PartSketch;
using support::RectangleContour;

constexpr double kPi = support::kPi;
constexpr auto kMayDiffer = GXLAContour::eNmbSegmentsMayDiffer;

Comparison Compare(const PartSketch& a, const PartSketch& b,
                   GXLAContour::eNmbSegmentsMode mode = GXLAContour::eNmbSegmentsEqual,
                   bool trace = false) {
  const drawing::PartModel partA = support::PartOf(a);
  const drawing::PartModel partB = support::PartOf(b);
  EXPECT_TRUE(partA.usable) << partA.obstacle;
  EXPECT_TRUE(partB.usable) << partB.obstacle;
  Comparison comparison;
  if (!partA.usable || !partB.usable) return comparison;
  drawing::CompareOptions options;
  options.mode = mode;
  options.trace = trace;
  return drawing::CompareParts(partA, partB, options);
}

// A plate of 100 x 60 with these cut-outs.
PartSketch Plate(const PartSketch& cutOuts) {
  PartSketch plate = {RectangleContour(0, 0, 100, 60)};
  plate.insert(plate.end(), cutOuts.begin(), cutOuts.end());
  return plate;
}

// A plate with one side longer than all others, and a corner broken by `broken` mm.
support::SketchContour Tapered(double broken) {
  std::vector<GX2DPoint> corners = {{0, 0}, {120, 0}, {100, 60}, {0, 60}};
  if (broken > 0.0) {
    corners.back() = {broken, 60};
    corners.emplace_back(0, 60 - broken);
  }
  return support::PolygonContour(corners);
}

// A round plate of diameter 100 about (7, -3), its outline drawn from `start` (radians) on.
PartSketch Round(const PartSketch& cutOuts, double start = 0.0) {
  PartSketch plate = {CircleContour(0, 0, 50, start)};
  plate.insert(plate.end(), cutOuts.begin(), cutOuts.end());
  return support::Moved(plate, 0.0, 7.0, -3.0);
}

support::SketchContour Square(double x, double y, double side, double radians) {
  support::PartSketch square = {RectangleContour(-side / 2, -side / 2, side / 2, side / 2)};
  return support::Moved(square, radians, x, y).front();
}

// A strip between two equal waves, each of two arcs of length 60 that turn by `sweep` and back, and
// two upright sides of 20: whatever the sweep, sequence of lengths and angles are the same.
support::SketchContour Wave(double sweep) {
  const double radius = 60 / sweep;
  support::SketchContour strip = {support::ArcSide({0, 0}, {0, radius}, sweep)};
  const GX2DPoint joint = strip[0].end;
  strip.push_back(support::ArcSide(joint, {2 * joint.X, 2 * joint.Y - radius}, -sweep));
  support::SketchContour top = strip;
  support::ShiftContour(top, 0, 20);
  top = support::Reversed(top);
  strip.push_back(support::LineSide(strip[1].end, top[0].start));
  strip.insert(strip.end(), top.begin(), top.end());
  strip.push_back(support::LineSide(top[1].end, {0, 0}));
  return strip;
}

TEST(CompareParts, TellsWhatMatched) {
  const PartSketch plate = Plate({CircleContour(20, 20, 4)});
  const Comparison comparison = Compare(plate, plate);
  EXPECT_TRUE(comparison.same);
  EXPECT_EQ(comparison.step, DecidingStep::kAllSteps);
  EXPECT_EQ(comparison.verdict,
            "Same: the only cut-out has its partner, largest deviation 0.0000 mm.");
  EXPECT_EQ(comparison.sense, GXLAContour::eGeometryForward);
  EXPECT_EQ(comparison.referencePosition, 0);
  // The two long sides.
  ASSERT_EQ(comparison.starts.size(), 2u);
  EXPECT_EQ(comparison.starts[0].position, 0);
  EXPECT_EQ(comparison.starts[1].position, 4);
  EXPECT_EQ(comparison.starts[0].partnersFound, 1u);
  EXPECT_EQ(comparison.starts[1].partnersFound, 0u);  // Half a turn takes the hole to (80, 40).
  EXPECT_EQ(comparison.bestStart, 0u);
  EXPECT_NEAR(comparison.starts[1].motion.AngleDegrees(), 180.0, 1e-9);
  EXPECT_TRUE(comparison.libraryStructureEqual);
  ASSERT_EQ(comparison.groups.size(), 1u);
  EXPECT_EQ(comparison.groups[0].description, "circle, diameter 8");
  ASSERT_EQ(comparison.partners.size(), 1u);
  EXPECT_TRUE(comparison.partners[0].found);
  EXPECT_EQ(comparison.partners[0].b, 0u);
  EXPECT_TRUE(comparison.partners[0].twoDistanceTest);
  EXPECT_TRUE(comparison.unmatchedInB.empty());
}

TEST(CompareParts, ListsTheFiguresInTheOrderOfTheFunnel) {
  const Comparison comparison = Compare(Plate({}), Plate({}));
  std::vector<std::string> names;
  for (const drawing::Figure& figure : comparison.figures) {
    names.push_back(figure.name);
    EXPECT_TRUE(figure.agrees) << figure.name;
    EXPECT_TRUE(figure.checked) << figure.name;
  }
  EXPECT_EQ(names, (std::vector<std::string>{"closed or open", "lines", "arcs", "total length",
                                             "total angle", "sequence"}));
  EXPECT_EQ(comparison.figures[3].a, "320");
  EXPECT_EQ(comparison.figures[3].limit, 0.05);
  EXPECT_EQ(comparison.figures[4].limit, 0.01);
  EXPECT_EQ(comparison.figures[4].a, "6.283185");  // Four right angles.
}

TEST(CompareParts, DecidesByTheTotalLength) {
  const PartSketch longer = {RectangleContour(0, 0, 100.03, 60)};
  const Comparison comparison = Compare(Plate({}), longer);
  EXPECT_EQ(comparison.step, DecidingStep::kOuterFigures);
  EXPECT_EQ(comparison.verdict,
            "Different: the outer contours differ in total length, 320 in A and 320.06 in B.");
  EXPECT_NEAR(comparison.figures[3].difference, -0.06, 1e-12);
  EXPECT_FALSE(comparison.figures[3].agrees);
  EXPECT_FALSE(comparison.figures[5].checked);
  EXPECT_TRUE(comparison.starts.empty());
  EXPECT_TRUE(comparison.partners.empty());
}

TEST(CompareParts, DecidesByTheNumberOfLinesOnlyWhereTheModeAsksForIt) {
  // A corner broken by 0.04 mm costs 0.04 (2 - sqrt 2) = 0.023 mm of the perimeter.
  const PartSketch plate = {Tapered(0.0), CircleContour(20, 20, 4)};
  const PartSketch broken = {Tapered(0.04), CircleContour(20, 20, 4)};
  const Comparison exact = Compare(plate, broken);
  EXPECT_EQ(exact.step, DecidingStep::kOuterFigures);
  EXPECT_EQ(exact.figures[1].difference, -1.0);

  const Comparison loose = Compare(plate, broken, kMayDiffer);
  EXPECT_TRUE(loose.same) << loose.verdict;
  EXPECT_FALSE(loose.figures[1].checked);
  EXPECT_FALSE(loose.figures[2].checked);
  EXPECT_FALSE(loose.figures[4].checked);
  EXPECT_EQ(loose.sense, GXLAContour::eGeometryNotSet);
  // The corner of the plate lies 0.04 / sqrt 2 = 0.0283 mm off the broken one, and the ends of
  // all other sides pin the fit.
  EXPECT_NEAR(loose.largestDeviation, 0.02828, 1e-4);
}

TEST(CompareParts, DecidesPositionsOnTheLongSidesToo) {
  const support::SketchContour broken = Tapered(0.04);
  const PartSketch plate = {Tapered(0.0), CircleContour(20, 20, 4)};
  for (const bool reversed : {false, true}) {
    const support::SketchContour outline = reversed ? support::Reversed(broken) : broken;
    const PartSketch same = {outline, CircleContour(20.03, 20, 4)};
    EXPECT_TRUE(Compare(plate, support::Moved(same, 2.0, 30, 40), kMayDiffer).same);
    EXPECT_TRUE(Compare(support::Moved(same, 2.0, 30, 40), plate, kMayDiffer).same);
    const PartSketch moved = {outline, CircleContour(20.08, 20, 4)};
    const Comparison comparison = Compare(plate, support::Moved(moved, 2.0, 30, 40), kMayDiffer);
    EXPECT_EQ(comparison.step, DecidingStep::kCutOutPositions) << comparison.verdict;
    ASSERT_EQ(comparison.partners.size(), 1u);
    EXPECT_NEAR(comparison.partners[0].deviation, 0.08, 0.001);
  }
}

TEST(CompareParts, LaysLongSidesOnEachOtherInTheirOrder) {
  // The mirror image of an L has the same sides. With one corner broken the library compares the
  // long sides alone, in any order.
  const support::SketchContour shape =
      support::PolygonContour({{0, 0}, {100, 0}, {100, 30}, {40, 30}, {40, 80}, {0, 80}});
  const support::SketchContour broken = support::PolygonContour(
      {{0, 0}, {99.96, 0}, {100, 0.04}, {100, 30}, {40, 30}, {40, 80}, {0, 80}});
  EXPECT_TRUE(Compare({shape}, {broken}, kMayDiffer).same);
  const Comparison mirrored = Compare({shape}, support::Mirrored({broken}), kMayDiffer);
  EXPECT_FALSE(mirrored.starts.empty());
  EXPECT_EQ(mirrored.step, DecidingStep::kOuterMotion) << mirrored.verdict;
}

TEST(CompareParts, DecidesByTheSequence) {
  // Two hexagons with the same sides and right angles in another order: an L and its mirror image.
  const support::SketchContour shape =
      support::PolygonContour({{0, 0}, {100, 0}, {100, 30}, {40, 30}, {40, 80}, {0, 80}});
  const Comparison comparison = Compare({shape}, support::Mirrored({shape}));
  EXPECT_EQ(comparison.step, DecidingStep::kOuterSequence);
  EXPECT_EQ(comparison.verdict,
            "Different: the outer contours have other sequences of lengths and angles.");
  EXPECT_TRUE(comparison.figures[5].checked);
  EXPECT_FALSE(comparison.figures[5].agrees);
}

TEST(CompareParts, DecidesByTheMotionWhereSmallAnglesAddUp) {
  // A rhombus leaning by 0.008 has the sides of the square and angles within 0.01 of a right one,
  // but its upper corners lie 8 mm further.
  const PartSketch square = {RectangleContour(0, 0, 1000, 1000)};
  const double lean = 1000 * std::sin(0.008);
  const double height = 1000 * std::cos(0.008);
  const PartSketch rhombus = {
      support::PolygonContour({{0, 0}, {1000, 0}, {1000 + lean, height}, {lean, height}})};
  const Comparison comparison = Compare(square, rhombus);
  EXPECT_FALSE(comparison.starts.empty());
  EXPECT_EQ(comparison.step, DecidingStep::kOuterMotion) << comparison.verdict;
  // Half of the lean stays at each corner, turned by half of it: 4 mm in x and in y, over sqrt 2.
  EXPECT_NEAR(comparison.starts[comparison.bestStart].outerDeviation, 4 / std::sqrt(2.0) * 1.0,
              0.05);
}

TEST(CompareParts, DecidesByTheMotionWhereOnlyRadiiDiffer) {
  EXPECT_TRUE(Compare({Wave(0.5)}, {Wave(0.5)}).same);
  const Comparison comparison = Compare({Wave(0.5)}, {Wave(0.6)});
  EXPECT_EQ(comparison.starts.size(), 2u);  // The library takes them for equal.
  EXPECT_EQ(comparison.step, DecidingStep::kOuterMotion) << comparison.verdict;
}

TEST(CompareParts, FindsNoPartnerForACutOutOfOtherRadii) {
  PartSketch a = {RectangleContour(-50, -50, 250, 150), Wave(0.5)};
  PartSketch b = {RectangleContour(-50, -50, 250, 150), Wave(0.6)};
  const Comparison comparison = Compare(a, b);
  EXPECT_TRUE(comparison.libraryStructureEqual);
  EXPECT_EQ(comparison.step, DecidingStep::kCutOutPositions) << comparison.verdict;
}

TEST(CompareParts, NamesTheNumbersOfCutOuts) {
  const PartSketch two = Plate({CircleContour(20, 20, 4), CircleContour(40, 20, 4)});
  const PartSketch one = Plate({CircleContour(20, 20, 4)});
  const Comparison more = Compare(one, two);
  EXPECT_TRUE(more.libraryStructureEqual);  // It does not count the members of its groups.
  EXPECT_EQ(more.step, DecidingStep::kCutOutCounts);
  EXPECT_EQ(more.verdict,
            "Different: other numbers of equal cut-outs: circle, diameter 8, 1 in A and 2 in B.");
  EXPECT_EQ(more.unmatchedInB.size(), 1u);
  ASSERT_EQ(more.partners.size(), 1u);
  EXPECT_TRUE(more.partners[0].found);

  const Comparison none = Compare(two, Plate({}));
  EXPECT_TRUE(none.libraryStructureEqual);  // Where one side has none it calls them equal.
  EXPECT_EQ(none.step, DecidingStep::kCutOutCounts);
  EXPECT_EQ(none.verdict, "Different: A has 2 cut-outs, B has none.");
  EXPECT_EQ(Compare(Plate({}), one).verdict, "Different: B has 1 cut-out, A has none.");
}

TEST(CompareParts, NamesTheShapesOfCutOuts) {
  const PartSketch round = Plate({CircleContour(20, 20, 4), CircleContour(80, 30, 5)});
  const PartSketch square = Plate({CircleContour(20, 20, 4), Square(80, 30, 9, 0)});
  const Comparison comparison = Compare(round, square);
  EXPECT_FALSE(comparison.libraryStructureEqual);
  EXPECT_EQ(comparison.step, DecidingStep::kCutOutShapes);
  EXPECT_EQ(comparison.verdict,
            "Different: cut-outs of other shapes: circle, diameter 10, 1 in A alone; 4 lines, "
            "length 36, 1 in B alone.");
  // The group of both sides comes first.
  ASSERT_EQ(comparison.groups.size(), 3u);
  EXPECT_EQ(comparison.groups[0].description, "circle, diameter 8");
  EXPECT_TRUE(comparison.groups[1].b.empty());
  EXPECT_TRUE(comparison.groups[2].a.empty());
  const auto found = std::count_if(comparison.partners.begin(), comparison.partners.end(),
                                   [](const drawing::Partner& partner) { return partner.found; });
  EXPECT_EQ(found, 1);
}

TEST(CompareParts, AllowsAHoleToBeOffByTheLimit) {
  const PartSketch plate = Plate({CircleContour(20, 20, 4)});
  const Comparison near = Compare(plate, Plate({CircleContour(20.03, 20.03, 4)}));
  EXPECT_TRUE(near.same);
  EXPECT_NEAR(near.largestDeviation, 0.03 * std::sqrt(2.0), 1e-12);
  ASSERT_EQ(near.partners.size(), 1u);
  EXPECT_FALSE(near.partners[0].twoDistanceTest);  // The library allows 0.01.

  const Comparison far = Compare(plate, Plate({CircleContour(20, 20.06, 4)}));
  EXPECT_EQ(far.step, DecidingStep::kCutOutPositions);
  EXPECT_EQ(far.verdict,
            "Different: 0 of 1 cut-out have partners; the circle of diameter 8 at (20, 20) has "
            "none, the nearest is 0.0600 mm away.");
  ASSERT_EQ(far.partners.size(), 1u);
  EXPECT_EQ(far.partners[0].b, 0u);
  EXPECT_EQ(far.unmatchedInB, (std::vector<std::size_t>{0}));
}

TEST(CompareParts, TellsASlotThatIsTurnedInItsPlace) {
  const PartSketch flat = Plate({support::SlotContour({30, 30}, 20, 3, 0)});
  const PartSketch upright = Plate({support::SlotContour({30, 30}, 20, 3, kPi / 2)});
  const Comparison comparison = Compare(flat, upright);
  EXPECT_EQ(comparison.step, DecidingStep::kCutOutPositions);
  EXPECT_NE(comparison.verdict.find("the cut-out of 2 lines and 2 arcs at (30, 30) has none"),
            std::string::npos)
      << comparison.verdict;
  // Half a turn takes the slot onto itself.
  EXPECT_TRUE(Compare(flat, Plate({support::SlotContour({30, 30}, 20, 3, kPi)})).same);
}

TEST(CompareParts, GivesEachCutOutOneFreePartner) {
  // Two holes less than the limit apart: both of A are near both of B.
  const PartSketch a = Plate({CircleContour(20, 20, 4), CircleContour(20.03, 20, 4, 1.0)});
  const Comparison comparison = Compare(a, a);
  EXPECT_TRUE(comparison.same) << comparison.verdict;
  ASSERT_EQ(comparison.partners.size(), 2u);
  EXPECT_NE(comparison.partners[0].b, comparison.partners[1].b);
  // The first hole of B would do for both of A, the second for none.
  const PartSketch b = Plate({CircleContour(20.01, 20, 4), CircleContour(20.5, 20, 4)});
  EXPECT_EQ(Compare(a, b).step, DecidingStep::kCutOutPositions);
}

TEST(CompareParts, DoesNotMindTheOrderOfShapesOfEqualLength) {
  // A circle, a square and a triangle of perimeter 60, and a hole that only one of the two longest
  // sides' starts puts in its place.
  const support::SketchContour circle = CircleContour(20, 20, 30 / kPi);
  const support::SketchContour square = Square(50, 20, 15, 0.2);
  const support::SketchContour triangle =
      support::PolygonContour({{70, 20}, {90, 20}, {80, 37.3205080757}});
  const PartSketch a = Plate({circle, square, triangle});
  for (const PartSketch& b : {Plate({triangle, square, circle}), Plate({square, triangle, circle}),
                              Plate({triangle, circle, square})}) {
    const Comparison comparison = Compare(a, b);
    EXPECT_TRUE(comparison.libraryStructureEqual);
    EXPECT_TRUE(comparison.same) << comparison.verdict;
  }
}

TEST(CompareParts, FindsTheTurnOfARoundPartFromItsHoles) {
  const PartSketch a = Round({CircleContour(30, 0, 4), CircleContour(0, 20, 3)});
  const PartSketch turned = support::Moved(a, 1.3, 200, 100);
  const Comparison comparison = Compare(a, turned);
  EXPECT_TRUE(comparison.same) << comparison.verdict;
  EXPECT_LT(comparison.largestDeviation, 1e-9);
  EXPECT_NEAR(comparison.starts[comparison.bestStart].motion.AngleDegrees(), -1.3 * 180 / kPi,
              1e-9);
  // On the other side of the first hole it is the mirror image.
  const PartSketch mirrored = Round({CircleContour(30, 0, 4), CircleContour(0, -20, 3)});
  EXPECT_EQ(Compare(a, mirrored).step, DecidingStep::kCutOutPositions);
}

TEST(CompareParts, FindsTheTurnOfARoundPartWhoseOutlineIsDrawnInPieces) {
  const PartSketch a = Round({CircleContour(30, 0, 4), CircleContour(0, 20, 3)});
  PartSketch pieces = a;
  pieces[0] = support::Reversed(support::Split(a[0].front(), {0.3, 0.4}));
  EXPECT_TRUE(Compare(a, support::Moved(pieces, 2.0, 0, 0)).same);
  EXPECT_TRUE(Compare(support::Moved(pieces, 2.0, 0, 0), a).same);
}

TEST(CompareParts, FindsTheTurnOfARoundPartFromASquareInItsMiddle) {
  const PartSketch a = Round({Square(0, 0, 20, 0.1)});
  const PartSketch b = Round({Square(0, 0, 20, 0.9)}, 2.0);
  const Comparison comparison = Compare(a, b);
  EXPECT_TRUE(comparison.same) << comparison.verdict;
  EXPECT_LT(comparison.largestDeviation, 1e-9);
  EXPECT_EQ(comparison.starts.size(), 4u);
}

TEST(CompareParts, FindsTheTurnOfARoundPartWhoseHoleIsOffTheMiddleByLittle) {
  const PartSketch a = Round({CircleContour(0.3, 0, 4)});
  EXPECT_TRUE(Compare(a, support::Moved(a, 2.5, 1, 2)).same);
  const PartSketch b = Round({CircleContour(0.0, 0, 4)});
  EXPECT_EQ(Compare(a, b).step, DecidingStep::kCutOutPositions);
}

TEST(CompareParts, ComparesRoundPartsWithoutAnyDirection) {
  EXPECT_TRUE(Compare(Round({}), Round({}, 1.0)).same);
  EXPECT_TRUE(Compare(Round({CircleContour(0, 0, 9)}), Round({CircleContour(0, 0, 9)}, 1.0)).same);
}

TEST(CompareParts, FindsTheTurnOfAHoleCircleFromTheOddHole) {
  PartSketch holes;
  for (int i = 0; i < 12; ++i) {
    const GX2DPoint p = support::OnCircle(0, 0, 40, 30 * i);
    holes.push_back(CircleContour(p.X, p.Y, 3));
  }
  PartSketch odd = holes;
  odd.push_back(CircleContour(10, 5, 2));
  const Comparison comparison = Compare(Round(odd), support::Moved(Round(odd), 0.5, 0, 0));
  EXPECT_TRUE(comparison.same) << comparison.verdict;
  EXPECT_EQ(comparison.starts.size(), 1u);
  // Without it there are twelve turns.
  const Comparison regular = Compare(Round(holes), support::Moved(Round(holes), 0.5, 0, 0));
  EXPECT_TRUE(regular.same) << regular.verdict;
  EXPECT_EQ(regular.starts.size(), 12u);
}

TEST(CompareParts, RefinesTheTurnOfARoundPartByAllHoles) {
  // The odd hole, 5 mm from the middle, is off by 0.02 mm: 0.004 rad, which is 0.16 mm at 40 mm.
  PartSketch holes;
  for (int i = 0; i < 12; ++i) {
    const GX2DPoint p = support::OnCircle(0, 0, 40, 30 * i);
    holes.push_back(CircleContour(p.X, p.Y, 3));
  }
  PartSketch a = holes;
  a.push_back(CircleContour(5, 0, 2));
  PartSketch b = holes;
  b.push_back(CircleContour(5, 0.02, 2));
  const Comparison comparison = Compare(Round(a), support::Moved(Round(b), 0.5, 0, 0));
  EXPECT_TRUE(comparison.same) << comparison.verdict;
  EXPECT_NEAR(comparison.largestDeviation, 0.02, 0.001);
}

TEST(CompareParts, TriesEveryStartOfASymmetricOutline) {
  // A square plate: only one of the four positions puts the hole in its place.
  const PartSketch a = {RectangleContour(0, 0, 50, 50), CircleContour(10, 15, 4)};
  const PartSketch b = support::Moved(a, kPi / 2, 0, 0);
  const Comparison comparison = Compare(a, b);
  EXPECT_TRUE(comparison.same) << comparison.verdict;
  EXPECT_EQ(comparison.starts.size(), 4u);
  std::size_t fitting = 0;
  for (const drawing::MatchedStart& start : comparison.starts) fitting += start.partnersFound;
  EXPECT_EQ(fitting, 1u);
}

TEST(CompareParts, ExplainsAMovedHoleByTheStartInWhichItIsNearest) {
  // Half a turn would take the hole to (58, 40), 26.9 mm off; left in its place it is 2 mm off.
  for (const double turn : {0.0, 1.0, 2.0, 3.0}) {
    const PartSketch b = support::Moved(Plate({CircleContour(42, 20, 4)}), turn, 5, 7);
    const Comparison comparison = Compare(Plate({CircleContour(40, 20, 4)}), b);
    EXPECT_EQ(comparison.starts.size(), 2u);
    EXPECT_NE(comparison.verdict.find("the nearest is 2.0000 mm away"), std::string::npos)
        << comparison.verdict;
  }
}

TEST(CompareParts, ReadsTheCutOutsOfPartsDrawnInDifferentDirections) {
  PartSketch a = Plate({support::SlotContour({30, 30}, 20, 3, 0.3), CircleContour(80, 20, 4)});
  PartSketch b = a;
  for (support::SketchContour& contour : b) contour = support::Reversed(contour);
  const Comparison comparison = Compare(a, b);
  EXPECT_EQ(comparison.sense, GXLAContour::eGeometryBackward);
  EXPECT_TRUE(comparison.same) << comparison.verdict;
  EXPECT_LT(comparison.largestDeviation, 1e-9);
}

TEST(CompareParts, CollectsTheWordsOfTheLibraryWhenAsked) {
  const PartSketch plate = Plate({CircleContour(20, 20, 4)});
  EXPECT_TRUE(Compare(plate, plate).trace.empty());
  const Comparison comparison = Compare(plate, plate, GXLAContour::eNmbSegmentsEqual, true);
  const auto has = [&](const std::string& line) {
    return std::count(comparison.trace.begin(), comparison.trace.end(), line) > 0;
  };
  EXPECT_TRUE(has("To Match Nmb start positions : 2"));
  EXPECT_TRUE(has("Start Compare Internal Contour Structure"));
  EXPECT_TRUE(has("Number of Internal Contours = 1"));
}

TEST(CompareParts, LeavesThePartsAsTheyAre) {
  const drawing::PartModel a =
      support::PartOf(Plate({CircleContour(20, 20, 4), Square(60, 30, 9, 0.1)}));
  const drawing::PartModel b = support::PartOf(
      support::Moved(Plate({CircleContour(20, 20, 4), Square(60, 30, 9, 0.1)}), 1.0, 5, 5));
  const Comparison first = drawing::CompareParts(a, b, {});
  const Comparison back = drawing::CompareParts(b, a, {});
  const Comparison again = drawing::CompareParts(a, b, {});
  EXPECT_TRUE(first.same);
  EXPECT_TRUE(back.same);
  EXPECT_EQ(first.verdict, again.verdict);
  EXPECT_EQ(first.largestDeviation, again.largestDeviation);
}

TEST(CompareParts, FindsTheOneHoleOfAPatternThatIsOff) {
  PartSketch a = {RectangleContour(0, 0, 300, 200)};
  for (int i = 0; i < 25; ++i) {
    for (int k = 0; k < 16; ++k) a.push_back(CircleContour(10.0 + 11 * i, 10.0 + 11 * k, 3));
  }
  PartSketch b = a;
  support::ShiftContour(b[123], 0.3, 0.4);
  const Comparison comparison = Compare(a, support::Moved(b, 0.7, 1, 1));
  EXPECT_EQ(comparison.step, DecidingStep::kCutOutPositions);
  EXPECT_NE(comparison.verdict.find("399 of 400 cut-outs have partners"), std::string::npos)
      << comparison.verdict;
  EXPECT_NE(comparison.verdict.find("the nearest is 0.5000 mm away"), std::string::npos)
      << comparison.verdict;
}

TEST(StepName, NamesEveryStep) {
  for (int step = 0; step <= static_cast<int>(DecidingStep::kAllSteps); ++step) {
    EXPECT_GT(std::string(drawing::StepName(static_cast<DecidingStep>(step))).size(), 5u);
  }
}

}  // namespace
