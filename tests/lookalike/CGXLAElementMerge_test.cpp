#include "support/Build.h"
#include "support/LookAlike.h"
#include "support/Near.h"
#include "support/Random.h"

#include <KTRCL_Geometry/lookalike/CGXLAElementMerge.h>
#include <KTRCL_Geometry/lookalike/GXLAContour.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

using support::At;
using support::kCCW;
using support::kCW;

constexpr double kTolerance = 0.001;

// A contour and its list, filled together: each element with the angle behind it in degrees.
struct Pair {
  explicit Pair(bool closed = true) : contour(closed, kCCW) {}
  void Line(double x1, double y1, double x2, double y2, double degrees) {
    const GX2DLine line = support::Line(x1, y1, x2, y2);
    support::Add(list, line);
    support::AddLine(contour, line.Len());
    support::AddAngle(contour, degrees * support::kDegree);
  }
  void Arc(const GX2DArc& arc, double degrees) {
    support::Add(list, arc);
    support::AddArc(contour, arc.Len());
    support::AddAngle(contour, degrees * support::kDegree);
  }
  void Merge(double tolerance = kTolerance) {
    CGXLAElementMerge::MergeContour(contour, list, tolerance);
  }
  double Length(std::size_t position) const {
    return dynamic_cast<const GXLAElementSegment&>(*contour.at(position)).GetSegmentLength();
  }
  GXLAContour contour;
  GX2DElmList list;
};

TEST(MergeContour, RemovesTheExtraVertexOfASquareSide) {
  Pair p;
  p.Line(0, 0, 4, 0, 180);
  p.Line(4, 0, 10, 0, 90);
  p.Line(10, 0, 10, 10, 90);
  p.Line(10, 10, 0, 10, 90);
  p.Line(0, 10, 0, 0, 90);
  const double angle = p.contour.GetTotalGeometryAngle();
  p.Merge();
  EXPECT_EQ(p.list.size(), 4U);
  EXPECT_EQ(p.contour.size(), 8U);
  EXPECT_EQ(p.contour.GetNumberOfLines(), 4);
  EXPECT_EQ(p.contour.GetTotalGeometryLength(), 40.0);
  EXPECT_NEAR(p.contour.GetTotalGeometryAngle(), angle - support::kPi, 1e-12);
  EXPECT_POINT_EQ(At<GX2DLine>(p.list, 0), support::Line(0, 0, 10, 0));
  EXPECT_EQ(p.Length(0), 10.0);
}

TEST(MergeContour, CollapsesARunOfThreeInOnePass) {
  Pair p;
  p.Line(0, 10, 0, 0, 90);
  p.Line(0, 0, 2, 0, 180);
  p.Line(2, 0, 5, 0, 180);
  p.Line(5, 0, 10, 0, 90);
  p.Line(10, 0, 0, 10, 45);
  p.Merge();
  ASSERT_EQ(p.list.size(), 3U);
  EXPECT_POINT_EQ(At<GX2DLine>(p.list, 1), support::Line(0, 0, 10, 0));
  EXPECT_EQ(p.Length(2), 10.0);
}

TEST(MergeContour, TheLaterElementOfAPairSurvives) {
  Pair p;
  p.Line(0, 0, 4, 0, 180);
  p.Line(4, 0, 10, 0, 90);
  p.Line(10, 0, 0, 0, 90);
  const GX2DElement* const survivor = p.list[1];
  const GXLAElement* const segment = p.contour[2];
  p.Merge();
  EXPECT_EQ(p.list[0], survivor);
  EXPECT_EQ(p.contour[0], segment);
}

TEST(MergeContour, MergesFirstAndLastOfAClosedContourIntoTheFirst) {
  Pair p;
  p.Line(4, 0, 10, 0, 90);
  p.Line(10, 0, 10, 10, 90);
  p.Line(10, 10, 0, 10, 90);
  p.Line(0, 10, 0, 0, 90);
  p.Line(0, 0, 4, 0, 180);
  const GX2DElement* const first = p.list[0];
  p.Merge();
  ASSERT_EQ(p.list.size(), 4U);
  EXPECT_EQ(p.contour.size(), 8U);
  EXPECT_EQ(p.list[0], first);
  EXPECT_POINT_EQ(At<GX2DLine>(p.list, 0), support::Line(0, 0, 10, 0));
  EXPECT_EQ(p.Length(0), 10.0);
}

TEST(MergeContour, DoesNotRepeatTheMergeAcrossTheStart) {
  // The last two and the first line are one side. The first merge takes the last; the new last
  // angle is straight too and stays.
  Pair p;
  p.Line(6, 0, 10, 0, 90);
  p.Line(10, 0, 10, 10, 90);
  p.Line(10, 10, 0, 0, 45);
  p.Line(0, 0, 3, 0, 180);
  p.Line(3, 0, 6, 0, 180);
  p.Merge();
  ASSERT_EQ(p.list.size(), 4U);
  EXPECT_POINT_EQ(At<GX2DLine>(p.list, 0), support::Line(3, 0, 10, 0));
  EXPECT_POINT_EQ(At<GX2DLine>(p.list, 3), support::Line(0, 0, 3, 0));
}

TEST(MergeContour, DoesNotWrapAroundAnOpenContour) {
  Pair p(false);
  p.Line(4, 0, 10, 0, 90);
  p.Line(10, 0, 10, 10, 90);
  p.Line(0, 0, 4, 0, 180);
  p.Merge();
  EXPECT_EQ(p.list.size(), 3U);
  EXPECT_EQ(p.contour.size(), 6U);
}

TEST(MergeContour, TwoHalfCirclesBecomeOneCircle) {
  Pair p;
  p.Arc(support::ArcByAngles(0, 0, 5, 0, 180), 180);
  p.Arc(support::ArcByAngles(0, 0, 5, 180, 180), 180);
  p.Merge();
  ASSERT_EQ(p.list.size(), 1U);
  ASSERT_EQ(p.contour.size(), 2U);
  const auto& circle = At<GX2DArc>(p.list, 0);
  EXPECT_POINT_NEAR(circle.Start, circle.End, 1e-12);
  EXPECT_TRUE(circle.IsCounterClockwise());
  EXPECT_NEAR(p.Length(0), 10.0 * support::kPi, 1e-12);
  EXPECT_EQ(p.contour.GetNumberOfArcs(), 1);
}

TEST(MergeContour, AMergedArcKeepsItsSense) {
  // A clockwise circle in two halves: after the start has moved, a half-radius mid decides.
  for (const bool clockwise : {false, true}) {
    Pair p;
    const double sweep = clockwise ? -180.0 : 180.0;
    p.Arc(support::ArcByAngles(0, 0, 5, 0, sweep), 180);
    p.Arc(support::ArcByAngles(0, 0, 5, sweep, sweep), 180);
    p.Merge();
    EXPECT_EQ(At<GX2DArc>(p.list, 0).IsClockwise(), clockwise);
    Pair q;
    q.Arc(support::ArcByAngles(0, 0, 5, 0, sweep * 0.75), 180);
    q.Arc(support::ArcByAngles(0, 0, 5, sweep * 0.75, sweep * 0.75), 90);
    q.Line(0, 0, 5, 0, 90);
    q.Merge();
    ASSERT_EQ(q.list.size(), 2U);
    EXPECT_EQ(At<GX2DArc>(q.list, 0).IsClockwise(), clockwise);
    EXPECT_NEAR(At<GX2DArc>(q.list, 0).Len(), 7.5 * support::kPi, 1e-9);
  }
}

TEST(MergeContour, PutsTheMidOfAMergedArcAtHalfTheRadius) {
  Pair p;
  p.Arc(support::ArcByAngles(0, 0, 8, 0, 40), 180);
  p.Arc(support::ArcByAngles(0, 0, 8, 40, 50), 90);
  p.Line(0, 8, 8, 0, 90);
  p.Merge();
  ASSERT_EQ(p.list.size(), 2U);
  const auto& arc = At<GX2DArc>(p.list, 0);
  EXPECT_POINT_NEAR(arc.Start, support::Point(8, 0), 1e-12);
  EXPECT_POINT_NEAR(arc.End, support::Point(0, 8), 1e-12);
  EXPECT_POINT_NEAR(arc.Mid, support::OnCircle(0, 0, 4, 45), 1e-12);
}

TEST(MergeContour, LooksAtCentresPerCoordinateWithinAHundredThousandth) {
  const auto tangent = [](double shift, double shiftY = 0.0) {
    Pair p;
    p.Arc(support::ArcByAngles(0, 0, 5, 0, 40), 180);
    p.Arc(support::ArcByAngles(shift, shiftY, 5, 40, 50), 90);
    p.Line(0, 5, 5, 0, 90);
    p.Merge();
    return p.list.size();
  };
  EXPECT_EQ(tangent(0.00002), 3U);
  EXPECT_EQ(tangent(0.000001), 2U);
  EXPECT_EQ(tangent(-0.00002), 3U);
  EXPECT_EQ(tangent(0.0, 0.00002), 3U);
  EXPECT_EQ(tangent(0.0, -0.000001), 2U);
  // The limit counts, in both coordinates at once: the distance of the centres is no matter.
  EXPECT_EQ(tangent(0.00001, 0.00001), 2U);
}

TEST(MergeContour, LeavesALineWithATangentArc) {
  Pair p;
  p.Line(0, 0, 10, 0, 180);
  p.Arc(support::ArcByAngles(10, 5, 5, -90, 180), 180);
  p.Line(10, 10, 0, 10, 90);
  p.Line(0, 10, 0, 0, 90);
  p.Merge();
  EXPECT_EQ(p.list.size(), 4U);
  EXPECT_EQ(p.contour.size(), 8U);
}

TEST(MergeContour, LeavesASeamBetweenALineAndAnArc) {
  Pair p;
  p.Line(0, 0, 10, 0, 90);
  p.Line(10, 0, 0, 10, 90);
  p.Arc(support::ArcByAngles(0, 5, 5, 90, 180), 180);
  p.Merge();
  EXPECT_EQ(p.list.size(), 3U);
  EXPECT_EQ(p.contour.size(), 6U);
}

TEST(MergeContour, LeavesASeamBetweenArcsOnDifferentCentres) {
  Pair p;
  p.Arc(support::ArcByAngles(0, 0, 5, 90, 90), 90);
  p.Line(-5, 0, 5, 1, 90);
  p.Arc(support::ArcByAngles(0, 1, 4, 0, 90), 180);
  p.Merge();
  EXPECT_EQ(p.list.size(), 3U);
  EXPECT_EQ(p.contour.size(), 6U);
}

TEST(MergeContour, WantsTheSameKindInTheDescriptionAndInTheList) {
  // The description tells of two lines where the list holds two arcs on one centre, and the other
  // way round.
  Pair p;
  support::Add(p.list, support::ArcByAngles(0, 0, 5, 0, 40), support::ArcByAngles(0, 0, 5, 40, 50));
  support::AddElements(p.contour, "L 3 A 180 L 3 A 180");
  p.Merge();
  EXPECT_EQ(p.list.size(), 2U);
  Pair q;
  support::Add(q.list, support::Line(0, 0, 4, 0), support::Line(4, 0, 9, 0));
  support::AddElements(q.contour, "R 4 A 180 R 5 A 180");
  q.Merge();
  EXPECT_EQ(q.list.size(), 2U);
  EXPECT_EQ(q.contour.size(), 4U);
}

TEST(MergeContour, DoesNotLookAtRadiusAndSenseOfArcs) {
  Pair p;
  p.Arc(support::ArcByAngles(0, 0, 5, 0, 90), 180);
  p.Arc(support::ArcByAngles(0, 0, 8, 90, -45), 90);
  p.Line(6, 6, 5, 0, 90);
  p.Merge();
  ASSERT_EQ(p.list.size(), 2U);
  EXPECT_POINT_NEAR(At<GX2DArc>(p.list, 0).Start, support::Point(5, 0), 1e-12);
  // A quarter of 2 pi 5 and an eighth of 2 pi 8.
  EXPECT_NEAR(p.Length(0), 4.5 * support::kPi, 1e-12);
}

TEST(MergeContour, TakesAnglesWithinTheToleranceForStraight) {
  const auto bent = [](double radians, double tolerance) {
    Pair p;
    support::Add(p.list, support::Line(0, 0, 4, 0), support::Line(4, 0, 10, 0),
                 support::Line(10, 0, 0, 0));
    for (const double angle : {3.141592653589793 + radians, 1.0, 1.0}) {
      support::AddLine(p.contour, 5.0);
      support::AddAngle(p.contour, angle, 0.1);
    }
    p.Merge(tolerance);
    return p.list.size();
  };
  EXPECT_EQ(bent(0.0009, 0.001), 2U);
  EXPECT_EQ(bent(-0.0009, 0.001), 2U);
  EXPECT_EQ(bent(0.0011, 0.001), 3U);
  EXPECT_EQ(bent(0.0, 0.0), 2U);
}

TEST(MergeContour, DoesNotTestTheCoordinatesOfLines) {
  Pair p;
  p.Line(0, 0, 4, 0, 180);
  p.Line(7, 7, 10, 3, 90);
  p.Line(10, 3, 0, 0, 90);
  p.Merge();
  ASSERT_EQ(p.list.size(), 2U);
  EXPECT_POINT_EQ(At<GX2DLine>(p.list, 0), support::Line(0, 0, 10, 3));
  EXPECT_EQ(p.Length(0), 9.0);
}

TEST(MergeContour, LeavesWhatDoesNotStandInStepAndTheHeader) {
  // One element; a count that is not half the sequence; an open contour of 2n - 1 elements.
  Pair single;
  single.Line(0, 0, 4, 0, 180);
  single.contour.TotalGeometryLength = 77.0;
  single.Merge();
  EXPECT_EQ(single.contour.GetTotalGeometryLength(), 77.0);
  Pair odd;
  odd.Line(0, 0, 4, 0, 180);
  odd.Line(4, 0, 9, 0, 180);
  support::AddLine(odd.contour, 5.0);
  odd.contour.TotalGeometryLength = 77.0;
  odd.Merge();
  EXPECT_EQ(odd.list.size(), 2U);
  EXPECT_EQ(odd.contour.GetTotalGeometryLength(), 77.0);
}

TEST(MergeContour, RecomputesTheHeaderOnlyWhenSomethingWasMerged) {
  Pair p;
  p.Line(0, 0, 4, 0, 90);
  p.Line(4, 0, 9, 0, 90);
  p.contour.TotalGeometryLength = 77.0;
  p.Merge();
  EXPECT_EQ(p.contour.GetTotalGeometryLength(), 77.0);
}

TEST(MergeContour, PassesOverNullEntries) {
  Pair p;
  p.Line(0, 0, 4, 0, 180);
  p.Line(4, 0, 9, 0, 180);
  p.Line(9, 0, 0, 0, 90);
  delete p.list[1];
  p.list[1] = nullptr;
  delete p.contour[1];
  p.contour[1] = nullptr;
  p.Merge();
  EXPECT_EQ(p.list.size(), 3U);
  EXPECT_EQ(p.contour.size(), 6U);
}

TEST(MergeContour, KeepsListAndSequenceInStepOnLongRuns) {
  // A side in many random pieces collapses to one line of the same ends and total length.
  support::Random random;
  for (int round = 0; round < 50; ++round) {
    Pair p;
    const int pieces = random.Int(2, 40);
    double x = 0.0;
    for (int i = 0; i < pieces; ++i) {
      const double next = x + random.Between(0.1, 3.0);
      p.Line(x, 0, next, 0, i + 1 < pieces ? 180 : 90);
      x = next;
    }
    p.Line(x, 0, x, 5, 90);
    p.Line(x, 5, 0, 0, 45);
    const double total = p.contour.GetTotalGeometryLength();
    p.Merge();
    ASSERT_EQ(p.list.size(), 3U);
    ASSERT_EQ(p.contour.size(), 6U);
    EXPECT_POINT_EQ(At<GX2DLine>(p.list, 0), support::Line(0, 0, x, 0));
    EXPECT_NEAR(p.contour.GetTotalGeometryLength(), total, 1e-9);
  }
}

}  // namespace
