#include "drawing/CurveDistances.h"

#include "PartSketch.h"
#include "RandomPart.h"
#include "drawing/CurveMeasures.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using drawing::CurveTree;
using drawing::DeviationMeter;
using drawing::LargestDistance;
using drawing::MeasuredPiece;
using drawing::Place;
using drawing::RigidMotion;
using support::ArcSide;
using support::CircleContour;
using support::LineSide;
using support::Random;
using support::RectangleContour;
using support::SketchContour;

// What a measurement may miss, in millimetres.
constexpr double kMissed = 0.001;

std::vector<MeasuredPiece> PiecesOf(const SketchContour& contour) {
  GX2DElmList elements;
  for (const support::Side& side : contour) {
    elements.push_back(support::ElementOf(side).release());
  }
  return drawing::PiecesOf(elements, {0.0, 0.0}, false);
}

double LargestDistanceFrom(const SketchContour& from, const SketchContour& to,
                           const RigidMotion& motion = {}) {
  DeviationMeter meter;
  LargestDistance largest;
  meter.Raise(PiecesOf(from), motion, CurveTree(PiecesOf(to)), HUGE_VAL, largest);
  return largest.distance;
}

TEST(PiecesOf, CutsArcsIntoQuarters) {
  EXPECT_EQ(PiecesOf(CircleContour(3, 4, 5)).size(), 4u);
  EXPECT_EQ(PiecesOf({ArcSide({5, 0}, {0, 0}, 1.5)}).size(), 1u);
  EXPECT_EQ(PiecesOf({ArcSide({5, 0}, {0, 0}, -1.6)}).size(), 2u);
  double length = 0.0;
  for (const MeasuredPiece& piece : PiecesOf(CircleContour(3, 4, 5))) length += piece.length;
  EXPECT_NEAR(length, 5.0 * support::kFullTurn, 1e-12);
}

TEST(PiecesOf, TurnsOverBeforeTheOriginIsTakenAway) {
  GX2DElmList elements;
  elements.push_back(new GX2DLine(10, 20, 30, 40));
  const std::vector<MeasuredPiece> pieces = drawing::PiecesOf(elements, {-5, 7}, true);
  ASSERT_EQ(pieces.size(), 1u);
  EXPECT_EQ(pieces[0].start.x, -5.0);
  EXPECT_EQ(pieces[0].start.y, 13.0);
  EXPECT_EQ(pieces[0].end.x, -25.0);
}

TEST(PiecesOf, TakesTheMeanRadiusOfAnArcWhoseEndsDiffer) {
  GX2DElmList elements;
  elements.push_back(
      new GX2DArc(GX2DPoint(0, 0), GX2DPoint(10, 0), GX2DPoint(7, 7), GX2DPoint(0, 10.1)));
  const std::vector<MeasuredPiece> pieces = drawing::PiecesOf(elements, {0, 0}, false);
  ASSERT_EQ(pieces.size(), 1u);
  EXPECT_NEAR(pieces[0].radius, 10.05, 1e-12);
}

TEST(PiecesOf, LeavesOutWhatHasNoLength) {
  EXPECT_TRUE(PiecesOf({LineSide({1, 1}, {1, 1})}).empty());
  const drawing::PlaceOnCurve near = CurveTree().Nearest({1, 2}, 0);
  EXPECT_EQ(near.distance, HUGE_VAL);
}

TEST(CurveTree, FindsTheNearestPlaceOfAnyCurve) {
  Random random;
  for (int i = 0; i < 60; ++i) {
    SCOPED_TRACE(i);
    const SketchContour contour = support::MakeRandomPart(random).Sketch().front();
    const CurveTree tree(PiecesOf(contour));
    for (int k = 0; k < 40; ++k) {
      const GX2DPoint p = random.Point2D(120.0);
      double least = HUGE_VAL;
      for (const support::Side& side : contour) {
        least = std::min(least, drawing::DistanceToElement(p, *support::ElementOf(side)));
      }
      const auto hint = static_cast<std::size_t>(random.Int(0, 30));
      const drawing::PlaceOnCurve near = tree.Nearest({p.X, p.Y}, hint);
      // Two ways of computing on coordinates of about 100.
      EXPECT_NEAR(near.distance, least, 1e-11);
      const Place foot = PlaceAt(tree.Pieces()[near.piece], near.share);
      EXPECT_NEAR(drawing::Distance(foot, Place{p.X, p.Y}), least, 1e-10);
    }
  }
}

TEST(DeviationMeter, MeasuresClosedForms) {
  // Circles about one centre; a circle shifted by d is d away at most, straight ahead.
  EXPECT_NEAR(LargestDistanceFrom(CircleContour(0, 0, 10), CircleContour(0, 0, 10.3)), 0.3, 1e-12);
  EXPECT_NEAR(LargestDistanceFrom(CircleContour(2, 0, 10), CircleContour(0, 0, 10)), 2.0, kMissed);
  // An arc of a quarter of radius 10 over its chord: the sagitta 10 (1 - sqrt 0.5), the other way
  // too.
  const SketchContour arc = {ArcSide({10, 0}, {0, 0}, support::kFullTurn / 4)};
  const SketchContour chord = {LineSide({10, 0}, {0, 10})};
  const double sagitta = 10.0 * (1.0 - std::sqrt(0.5));
  EXPECT_NEAR(LargestDistanceFrom(arc, chord), sagitta, kMissed);
  EXPECT_NEAR(LargestDistanceFrom(chord, arc), sagitta, kMissed);
  // A rectangle in a larger one, 3 and 1 away: at the corners of the larger one hypot(3, 1), from
  // the smaller one 3, on the upright sides, but where a level side is nearer.
  const SketchContour inner = RectangleContour(0, 0, 100, 60);
  const SketchContour outer = RectangleContour(-3, -1, 103, 61);
  EXPECT_NEAR(LargestDistanceFrom(outer, inner), std::hypot(3.0, 1.0), 1e-12);
  EXPECT_NEAR(LargestDistanceFrom(inner, outer), 3.0, kMissed);
}

TEST(DeviationMeter, IsNotTheSameBothWays) {
  const SketchContour line = {LineSide({0, 0}, {10, 0})};
  const SketchContour longer = {LineSide({0, 0}, {14, 0})};
  EXPECT_EQ(LargestDistanceFrom(line, longer), 0.0);
  EXPECT_EQ(LargestDistanceFrom(longer, line), 4.0);
}

TEST(DeviationMeter, SeesABumpBetweenThePlacesItBeginsWith) {
  // A tooth of 0.02 at a seventh of a line of 1000, far from ends and middle.
  const SketchContour line = {LineSide({0, 0}, {1000, 0})};
  const double x = 1000.0 / 7.0;
  const SketchContour tooth = {LineSide({0, 0}, {x, 0}), LineSide({x, 0}, {x + 0.01, 0.02}),
                               LineSide({x + 0.01, 0.02}, {x + 0.02, 0}),
                               LineSide({x + 0.02, 0}, {1000, 0})};
  EXPECT_NEAR(LargestDistanceFrom(tooth, line), 0.02, kMissed);
  // A gap in the other curve: the middle of it is half of its width away.
  const SketchContour gap = {LineSide({0, 0}, {x, 0}), LineSide({x + 0.06, 0}, {1000, 0})};
  EXPECT_NEAR(LargestDistanceFrom(line, gap), 0.03, kMissed);
}

TEST(DeviationMeter, TellsWhere) {
  DeviationMeter meter;
  LargestDistance largest;
  RigidMotion motion;
  motion.shiftX = 5.0;
  meter.Raise(PiecesOf(CircleContour(0, 0, 10)), motion,
              CurveTree(PiecesOf(CircleContour(0, 0, 10))), HUGE_VAL, largest);
  EXPECT_NEAR(largest.distance, 5.0, kMissed);
  // Straight ahead or straight behind the circle is 5 away: 15 - 10 or 10 - 5.
  EXPECT_NEAR(std::fabs(largest.place.x - 5.0), 10.0, 0.2);
}

TEST(DeviationMeter, GivesUpBeyondTheLimit) {
  DeviationMeter meter;
  LargestDistance largest;
  meter.Raise(PiecesOf(RectangleContour(0, 0, 100, 60)), {},
              CurveTree(PiecesOf(RectangleContour(500, 0, 600, 60))), 1.0, largest);
  EXPECT_GT(largest.distance, 1.0);
}

TEST(DeviationMeter, FindsACurveOnItselfHoweverItIsSplit) {
  Random random;
  for (int i = 0; i < 100; ++i) {
    SCOPED_TRACE(i);
    const SketchContour contour = support::MakeRandomPart(random).Sketch().front();
    const SketchContour split = support::Reversed(support::SplitSome(contour, random));
    // Pieces are computed anew from their ends: some roundings of numbers of about 100.
    EXPECT_LT(LargestDistanceFrom(contour, split), 1e-11);
    EXPECT_LT(LargestDistanceFrom(split, contour), 1e-11);
  }
}

TEST(DeviationMeter, MissesNothingThatAFineRowOfPlacesFinds) {
  Random random;
  for (int i = 0; i < 60; ++i) {
    SCOPED_TRACE(i);
    const SketchContour from = support::MakeRandomPart(random).Sketch().front();
    const SketchContour to = support::MakeRandomPart(random).Sketch().front();
    const RigidMotion motion = drawing::TurnAndShift(
        random.Between(-3, 3), {0, 0}, {random.Between(-5, 5), random.Between(-5, 5)});
    const double found = LargestDistanceFrom(from, to, motion);
    const CurveTree tree(PiecesOf(to));
    double rows = 0.0;
    for (const MeasuredPiece& piece : PiecesOf(from)) {
      for (int k = 0; k <= 300; ++k) {
        const Place p = drawing::Moved(motion, PlaceAt(piece, k / 300.0));
        rows = std::max(rows, tree.Nearest(p, 0).distance);
      }
    }
    EXPECT_GE(found, rows - kMissed);
    // Pieces are shorter than 200. Between two of 301 places on one the distance rises by no more
    // than half of the way between them.
    EXPECT_LE(found, rows + 0.34);
  }
}

TEST(Inverse, TakesBackAMotion) {
  Random random;
  for (int i = 0; i < 100; ++i) {
    const RigidMotion motion =
        drawing::TurnAndShift(random.Between(-3, 3), random.Point2D(100), random.Point2D(100));
    const GX2DPoint p = random.Point2D(100);
    const Place there = drawing::Moved(motion, Place{p.X, p.Y});
    for (const Place& back :
         {drawing::Moved(drawing::Inverse(motion), there), drawing::MovedBack(motion, there)}) {
      EXPECT_NEAR(back.x, p.X, 1e-12);
      EXPECT_NEAR(back.y, p.Y, 1e-12);
    }
  }
}

}  // namespace
