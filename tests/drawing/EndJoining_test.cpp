#include "drawing/EndJoining.h"

#include "DrawingSketch.h"
#include "drawing/CurveMeasures.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>

namespace drawing {
namespace {

constexpr double kPi = 3.14159265358979323846;

bool Anywhere(const GX2DPoint&) { return true; }

TEST(JoinEnds, OfTwoLinesMeetsAtTheirCrossing) {
  GX2DLine a(0, 0, 9.95, 0);
  GX2DLine b(10, 0.04, 10, 8);
  JoinedEnds joined;
  ASSERT_TRUE(JoinEnds(a, false, b, true, 0.1, Anywhere, joined));
  EXPECT_NEAR(a.End.X, 10.0, 1e-14);
  EXPECT_NEAR(a.End.Y, 0.0, 1e-14);
  EXPECT_TRUE(b.Start == a.End);
  EXPECT_TRUE(joined.place == a.End);
  EXPECT_NEAR(joined.movement, 0.05, 1e-14);  // The farther one of 0.05 and 0.04.
  EXPECT_TRUE(a.Start == GX2DPoint(0, 0));
  EXPECT_TRUE(b.End == GX2DPoint(10, 8));
}

TEST(JoinEnds, OfTwoLinesMeetsHalfWayWhereTheCrossingIsFar) {
  // They cross at (100, 0), the gap being 0.2.
  GX2DLine a(0, 0, 10, 0);
  GX2DLine b(10, 0.2, -80, 0.4);
  JoinedEnds joined;
  ASSERT_TRUE(JoinEnds(a, false, b, true, 1000.0, Anywhere, joined));
  EXPECT_TRUE(a.End == GX2DPoint(10, 0.1));
  EXPECT_TRUE(b.Start == GX2DPoint(10, 0.1));
  EXPECT_DOUBLE_EQ(joined.movement, 0.1);
}

TEST(JoinEnds, OfLinesInOneRowMeetsHalfWay) {
  GX2DLine a(0, 0, 10, 0);
  GX2DLine b(10.5, 0, 20, 0);
  JoinedEnds joined;
  ASSERT_TRUE(JoinEnds(a, false, b, true, 0.5, Anywhere, joined));
  EXPECT_TRUE(a.End == GX2DPoint(10.25, 0));
  EXPECT_TRUE(b.Start == GX2DPoint(10.25, 0));
}

TEST(JoinEnds, NeverTurnsALineRoundWhereItCanBeHelped) {
  // Half way, at 0.2, the short line would come from the left of its other end at 0.3.
  GX2DLine a(-10, 0, 0, 0);
  GX2DLine b(0.4, 0.2, 0.3, 0.2);
  JoinedEnds joined;
  ASSERT_TRUE(JoinEnds(a, false, b, true, 0.5, Anywhere, joined));
  EXPECT_TRUE(a.End == GX2DPoint(0.4, 0.2));
  EXPECT_TRUE(b.Start == GX2DPoint(0.4, 0.2));
}

TEST(JoinEnds, MovesTheLineToTheArc) {
  const auto arc = support::ArcElement(0, 0, 5, 0, 90);
  const GX2DArc before = *arc;
  GX2DLine line(5.03, -8, 5.03, -0.04);
  JoinedEnds joined;
  ASSERT_TRUE(JoinEnds(*arc, true, line, false, 0.1, Anywhere, joined));
  EXPECT_TRUE(line.End == before.Start);
  EXPECT_TRUE(arc->IsAlmostEq(before, 0.0));
  EXPECT_NEAR(joined.movement, 0.05, 1e-14);  // 0.03 across and 0.04 up.
}

TEST(JoinEnds, OfTwoArcsMeetsHalfWayOnCirclesOfTheirOwn) {
  const auto a = support::ArcElement(0, 0, 5, 90, -90);           // Ends in (5, 0).
  const auto b = support::ArcElement(10.06, 0.08, 5, 180, -120);  // Begins in (5.06, 0.08).
  JoinedEnds joined;
  ASSERT_TRUE(JoinEnds(*a, false, *b, true, 0.1, Anywhere, joined));
  EXPECT_NEAR(a->End.X, 5.03, 1e-14);
  EXPECT_NEAR(a->End.Y, 0.04, 1e-14);
  EXPECT_TRUE(b->Start == a->End);
  EXPECT_NEAR(SignedSweep(*a), -kPi / 2.0, 1e-12);
  EXPECT_NEAR(SignedSweep(*b), -kPi * 2.0 / 3.0, 1e-12);
  for (const GX2DArc* const arc : {a.get(), b.get()}) {
    EXPECT_NEAR(Distance(arc->End, arc->Center), arc->Radius(), 1e-14);
    EXPECT_NEAR(Distance(arc->Mid, ArcMiddle(*arc)), 0.0, 1e-13);
  }
  EXPECT_LE(joined.movement, 0.1);
}

TEST(JoinEnds, MakesACircleOfAnArcWhoseEndsMeet) {
  const auto arc = support::ArcElement(3, 4, 5, 10, 359);
  JoinedEnds joined;
  ASSERT_TRUE(JoinEnds(*arc, true, *arc, false, 0.1, Anywhere, joined));
  EXPECT_TRUE(joined.becameCircle);
  EXPECT_NEAR(joined.movement, 10.0 * std::sin(kPi / 360.0), 1e-12);  // The chord of a degree.
  EXPECT_TRUE(arc->IsCircle());
  EXPECT_NEAR(arc->Radius(), 5.0, 1e-14);
  EXPECT_TRUE(arc->Center == GX2DPoint(3, 4));
}

TEST(JoinEnds, LeavesWhatWouldLieOnOneAnother) {
  GX2DLine a(0, 0, 10, 0);
  GX2DLine b(0, 0, 10, 0.05);
  JoinedEnds joined;
  EXPECT_FALSE(JoinEnds(a, false, b, false, 0.1, Anywhere, joined));
  EXPECT_TRUE(a.End == GX2DPoint(10, 0));
  EXPECT_TRUE(b.End == GX2DPoint(10, 0.05));
}

TEST(JoinEnds, LeavesEndsWhereNoPlaceIsFree) {
  GX2DLine a(0, 0, 10, 0);
  GX2DLine b(10.1, 0, 20, 3);
  JoinedEnds joined;
  const auto nowhere = [](const GX2DPoint&) { return false; };
  EXPECT_FALSE(JoinEnds(a, false, b, true, 0.1, nowhere, joined));
  EXPECT_TRUE(a.End == GX2DPoint(10, 0));
}

TEST(JoinEnds, LeavesOtherKindsAlone) {
  GX2DPoint point(1, 1);
  GX2DLine line(0, 0, 1, 1.05);
  JoinedEnds joined;
  EXPECT_FALSE(JoinEnds(point, true, line, false, 1.0, Anywhere, joined));
}

TEST(RefitArc, KeepsTheSweepOfArcsUpToTwoThirdsOfATurn) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const double sweep = (random.Bool() ? 1.0 : -1.0) * random.Between(1.0, 239.0);
    const auto arc = support::ArcElement(random.Between(-9, 9), random.Between(-9, 9),
                                         random.Between(1, 50), random.Between(0, 360), sweep);
    const GX2DPoint start(arc->Start.X + random.Between(-0.2, 0.2), arc->Start.Y);
    const GX2DPoint end(arc->End.X, arc->End.Y + random.Between(-0.2, 0.2));
    RefitArc(*arc, start, end);
    EXPECT_TRUE(arc->Start == start);
    EXPECT_TRUE(arc->End == end);
    // Chords may be as short as 0.02 on a radius of 1, or sweeps change sign only if it is flipped.
    const double slack = 1e-9;
    EXPECT_NEAR(std::fabs(SignedSweep(*arc)), std::fabs(sweep) * kPi / 180.0, slack);
    EXPECT_NEAR(Distance(arc->End, arc->Center), arc->Radius(), 1e-12 * arc->Radius());
  }
}

TEST(RefitArc, KeepsTheRadiusOfLargerArcs) {
  // The sweep would make a radius of about 11 out of a chord of 0.2 instead of 0.17.
  const auto arc = support::ArcElement(0, 0, 10, 0, 359);
  GX2DArc before = *arc;
  RefitArc(*arc, GX2DPoint(10, 0.02), arc->End);
  EXPECT_NEAR(arc->Radius(), 10.0, 1e-12);
  EXPECT_FALSE(arc->IsClockwise());
  EXPECT_LE(MovementOf(before, *arc), 0.03);
}

TEST(MakeFullCircle, KeepsCentreAndRadius) {
  const auto arc = support::ArcElement(1, 2, 3, 70, 300);
  MakeFullCircle(*arc);
  EXPECT_TRUE(arc->Start == GX2DPoint(4, 2) || std::fabs(arc->Start.X - 4.0) < 1e-15);
  EXPECT_TRUE(arc->Start == arc->End);
  EXPECT_FALSE(arc->IsClockwise());
}

}  // namespace
}  // namespace drawing
