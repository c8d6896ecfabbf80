// Arcs, and the other elements, as polygons of lines: how many lines, where they begin and end.
#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kMax = std::numeric_limits<double>::max();
using support::kPi;

/// 5 degrees in radians.
constexpr double kStep = kPi / 36;

std::vector<GX2DLine> Lines(const GX2DElement& element) {
  GX2DElmList list;
  element.AddAsPolygon(list);
  std::vector<GX2DLine> lines;
  for (std::size_t i = 0; i < list.size(); ++i) {
    lines.push_back(support::At<GX2DLine>(list, i));
  }
  return lines;
}

/// What holds for the lines of every arc: they run from its start to its end without a gap, and
/// every corner between lies on the circle.
void ExpectChain(const std::vector<GX2DLine>& lines, const GX2DArc& arc) {
  ASSERT_FALSE(lines.empty());
  EXPECT_POINT_EQ(lines.front().Start, arc.Start);
  EXPECT_POINT_EQ(lines.back().End, arc.End);
  for (std::size_t i = 1; i < lines.size(); ++i) {
    EXPECT_POINT_EQ(lines[i].Start, lines[i - 1].End);
    const double fromCenter =
        std::hypot(lines[i].Start.X - arc.Center.X, lines[i].Start.Y - arc.Center.Y);
    EXPECT_NEAR(fromCenter, arc.Radius(), 1e-12 * (1 + arc.Radius()));
  }
}

/// The corner behind the first line lies `radians` on from the start.
void ExpectFirstStep(const GX2DArc& arc, double fromRadians, double radians) {
  const std::vector<GX2DLine> lines = Lines(arc);
  const double r = arc.Radius();
  ASSERT_GT(lines.size(), 1u);
  EXPECT_NEAR(lines[0].End.X, arc.Center.X + r * std::cos(fromRadians + radians), 1e-9);
  EXPECT_NEAR(lines[0].End.Y, arc.Center.Y + r * std::sin(fromRadians + radians), 1e-9);
}

TEST(AddAsPolygonOfAPoint, AddsNothing) { EXPECT_TRUE(Lines(support::Point(1, 2)).empty()); }

TEST(AddAsPolygonOfALine, AddsANewCopy) {
  const GX2DLine line = support::Line(1, 2, 3, 4);
  GX2DElmList list;
  line.AddAsPolygon(list);
  ASSERT_EQ(list.size(), 1u);
  EXPECT_NE(list[0], &line);
  EXPECT_POINT_EQ(support::At<GX2DLine>(list, 0), line);
}

TEST(AddAsPolygonOfARectangle, WalksClockwiseFromTheLowerLeftCorner) {
  const std::vector<GX2DLine> lines = Lines(support::Rect(1, 2, 5, 8));
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_POINT_EQ(lines[0], support::Line(1, 2, 1, 8));
  EXPECT_POINT_EQ(lines[1], support::Line(1, 8, 5, 8));
  EXPECT_POINT_EQ(lines[2], support::Line(5, 8, 5, 2));
  EXPECT_POINT_EQ(lines[3], support::Line(5, 2, 1, 2));
}

TEST(AddAsPolygonOfARectangle, FollowsTheCornersAsTheyAreStored) {
  const std::vector<GX2DLine> lines = Lines(support::Rect(5, 2, 1, 8));
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_POINT_EQ(lines[0], support::Line(5, 2, 5, 8));
  EXPECT_POINT_EQ(lines[1], support::Line(5, 8, 1, 8));
  EXPECT_POINT_EQ(lines[2], support::Line(1, 8, 1, 2));
  EXPECT_POINT_EQ(lines[3], support::Line(1, 2, 5, 2));
}

TEST(AddAsPolygonOfAnArc, AHalfCircleOfRadius10Has37LinesTheLastOfAboutNoLength) {
  const GX2DArc arc = support::Arc(0, 0, 10, 0, 0, 10, -10, 0);
  const std::vector<GX2DLine> lines = Lines(arc);
  ASSERT_EQ(lines.size(), 37u);
  ExpectChain(lines, arc);
  EXPECT_NEAR(lines.back().Len(), 0.0, 1e-12);
  for (std::size_t i = 0; i < 36; ++i) {
    EXPECT_NEAR(lines[i].Len(), 20 * std::sin(kStep / 2), 1e-12);
  }
  EXPECT_POINT_NEAR(lines[18].Start, support::Point(0, 10), 1e-12);
}

TEST(AddAsPolygonOfAnArc, TheClockwiseHalfRunsBelow) {
  const GX2DArc arc = support::Arc(0, 0, 10, 0, 0, -10, -10, 0);
  const std::vector<GX2DLine> lines = Lines(arc);
  ASSERT_EQ(lines.size(), 37u);
  ExpectChain(lines, arc);
  EXPECT_POINT_NEAR(lines[18].Start, support::Point(0, -10), 1e-12);
}

TEST(AddAsPolygonOfAnArc, ACircleOfRadius10Has73Lines) {
  for (const bool clockwise : {false, true}) {
    const GX2DArc circle = support::Circle(3, 4, 10, clockwise);
    const std::vector<GX2DLine> lines = Lines(circle);
    ASSERT_EQ(lines.size(), 73u);
    ExpectChain(lines, circle);
    EXPECT_POINT_NEAR(lines[18].Start, support::Point(3, clockwise ? -6 : 14), 1e-12);
    EXPECT_NEAR(lines.back().Len(), 0.0, 1e-12);
  }
}

TEST(AddAsPolygonOfAnArc, ComputesEachCornerFromItsAngleBitForBit) {
  // The angle of the start, 0 here, is stepped by 5 degrees, and each corner is cos times radius
  // plus center: no other order of operations gives these very numbers.
  for (const bool clockwise : {false, true}) {
    const std::vector<GX2DLine> lines = Lines(support::Circle(3, 4, 10, clockwise));
    double angle = 0;
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
      angle += clockwise ? -0.08726646259971647 : 0.08726646259971647;
      EXPECT_SAME_BITS(lines[i].End.X, std::cos(angle) * 10.0 + 3.0);
      EXPECT_SAME_BITS(lines[i].End.Y, std::sin(angle) * 10.0 + 4.0);
    }
  }
}

TEST(AddAsPolygonOfAnArc, AnArcWithMidOnItsEndIsWalkedAsACircleAndEndsOnItsEnd) {
  const GX2DArc arc = support::Arc(0, 0, 10, 0, 0, 10, 0, 10);
  const std::vector<GX2DLine> lines = Lines(arc);
  ASSERT_EQ(lines.size(), 73u);
  ExpectChain(lines, arc);
  EXPECT_POINT_NEAR(lines.back().Start, support::Point(10, 0), 1e-12);
}

TEST(AddAsPolygonOfAnArc, TheStepShrinksWithTheLogarithmOfARadiusAbove10) {
  // Steps of 88 degrees: 5 degrees up to a whole part of 10; 4.8013 at 11, 2.5 at 100 and 1.6667
  // at 1000, that is 17.6, 18.33, 35.2 and 52.8 steps, cut down, and one line more.
  struct Row {
    double radius;
    std::size_t lines;
  };
  for (const Row& row : {Row{1, 18}, Row{9.99, 18}, Row{10, 18}, Row{10.99, 18}, Row{11, 19},
                         Row{100, 36}, Row{1000, 53}}) {
    const GX2DArc arc = support::ArcByAngles(0, 0, row.radius, 0, 88);
    const std::vector<GX2DLine> lines = Lines(arc);
    EXPECT_EQ(lines.size(), row.lines) << row.radius;
    ExpectChain(lines, arc);
  }
}

TEST(AddAsPolygonOfAnArc, TheStepIsTwoAndAHalfDegreesAtRadius100) {
  ExpectFirstStep(support::Arc(0, 0, 100, 0, 0, 100, -100, 0), 0, kStep / 2);
  ExpectFirstStep(support::Circle(0, 0, 100, true), 0, -kStep / 2);
  EXPECT_EQ(Lines(support::Circle(0, 0, 100)).size(), 145u);
}

TEST(AddAsPolygonOfAnArc, AnArcShorterThanAStepIsOneLine) {
  const GX2DArc arc = support::ArcByAngles(5, 6, 10, 30, 4.5);
  const std::vector<GX2DLine> lines = Lines(arc);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_POINT_EQ(lines[0], GX2DLine(arc.Start, arc.End));
}

TEST(AddAsPolygonOfAnArc, CrossesTheNegativeXAxisEitherWay) {
  const GX2DArc left = support::ArcByAngles(0, 0, 10, 169, 22);
  EXPECT_EQ(Lines(left).size(), 5u);
  ExpectFirstStep(left, 169 * kPi / 180, kStep);
  ExpectChain(Lines(left), left);
  const GX2DArc right = support::ArcByAngles(0, 0, 10, -169, -22);
  EXPECT_EQ(Lines(right).size(), 5u);
  ExpectFirstStep(right, -169 * kPi / 180, -kStep);
  ExpectChain(Lines(right), right);
}

TEST(AddAsPolygonOfAnArc, TakesTheLongWayOnTheSideOfMid) {
  const GX2DArc arc = support::ArcByAngles(0, 0, 10, 20, 267);
  EXPECT_EQ(Lines(arc).size(), 54u);  // 53.4 steps
  ExpectChain(Lines(arc), arc);
  ExpectFirstStep(arc, 20 * kPi / 180, kStep);
}

TEST(AddAsPolygonOfAnArc, EndsWithinATenThousandthAboveOrBelowTheCenterCountAsExactlyThere) {
  // The start is off the vertical by 1e-5 radians, which the first corner does not show.
  const GX2DArc top(support::Point(0, 0), support::Point(0.0001, 10), support::Point(-10, 0),
                    support::Point(0, -10));
  ExpectFirstStep(top, kPi / 2, kStep);
  const GX2DArc bottom(support::Point(0, 0), support::Point(-0.0001, -10), support::Point(10, 0),
                       support::Point(0, 10));
  ExpectFirstStep(bottom, -kPi / 2, kStep);
}

TEST(AddAsPolygonOfAnArc, EndsFartherOffTheVerticalHaveTheirOwnAngle) {
  const GX2DArc top(support::Point(0, 0), support::Point(0.00011, 10), support::Point(-10, 0),
                    support::Point(0, -10));
  ExpectFirstStep(top, std::atan2(10, 0.00011), kStep);
}

TEST(AddAsPolygonOfAnArc, TheEndIsTakenForExactlyVerticalToo) {
  // 90 degrees less 1e-5 radians are not 18 steps; as exactly 90 degrees plus a trace they are. The
  // start is set on by 1e-6 radians so that rounding does not decide.
  const double from = -1e-6;
  const GX2DArc arc(support::Point(0, 0), support::Point(10 * std::cos(from), 10 * std::sin(from)),
                    support::Point(7, 7), support::Point(0.0001, 10));
  EXPECT_EQ(Lines(arc).size(), 19u);
}

TEST(AddAsPolygonOfAnArc, HasNoLeastRadius) {
  // Ends that lie so near are those of a circle, and their angle counts as a quarter turn.
  const GX2DArc tiny = support::Arc(0, 0, 1e-7, 0, 0, 1e-7, -1e-7, 0);
  EXPECT_EQ(Lines(tiny).size(), 73u);
  EXPECT_EQ(Lines(GX2DArc()).size(), 73u);
}

TEST(AddAsPolygonOfAnArc, KeepsWhatTheListHolds) {
  GX2DElmList list;
  support::Add(list, support::Point(1, 1));
  GX2DElement* const old = list[0];
  support::ArcByAngles(0, 0, 10, 0, 12).AddAsPolygon(list);
  ASSERT_EQ(list.size(), 4u);
  EXPECT_EQ(list[0], old);
}

TEST(AddAsPolygonOfAnArc, HugeRadiiKeepTheCountSmall) {
  // 5 degrees / 150 at a radius of 1e150: 72 * 150 steps for a circle, give or take one.
  const std::size_t count = Lines(support::Circle(0, 0, 1e150)).size();
  EXPECT_NEAR(static_cast<double>(count), 10801, 1);
}

TEST(AddAsPolygonOfAnArc, EndsForArcsThatAreNoPlaces) {
  for (const double bad : {kNaN, kInf, -kInf, kMax}) {
    for (int field = 0; field < 4; ++field) {
      for (const bool circle : {false, true}) {
        GX2DArc arc = circle ? support::Circle(0, 0, 10) : support::ArcByAngles(0, 0, 10, 0, 90);
        GX2DPoint* const points[] = {&arc.Start, &arc.Mid, &arc.End, &arc.Center};
        points[field]->X = bad;
        EXPECT_LE(Lines(arc).size(), 1000001u);
      }
    }
  }
}

TEST(AddAsPolygonOfAnArc, CountsAndAnglesOfRandomArcs) {
  support::Random random;
  for (int round = 0; round < 300; ++round) {
    const double radius = std::pow(10, random.Between(-2, 4));
    const double step = radius >= 11 ? 5 / std::log10(radius) : 5;
    // Between two multiples of the step, so that rounding does not decide the count.
    const int steps = random.Int(0, static_cast<int>(340 / step));
    const double sweep = (steps + random.Between(0.2, 0.8)) * step * (random.Bool() ? 1 : -1);
    const double from = random.Between(-180, 180);
    const GX2DPoint center = random.Point2D(100);
    GX2DArc arc = support::ArcByAngles(center.X, center.Y, radius, from, sweep);
    // On the right side for a sweep beyond the half turn too.
    arc.Mid = support::OnCircle(center.X, center.Y, radius, from + (sweep > 0 ? 90 : -90));
    if (arc.IsCircle() || std::fabs(arc.Start.X - center.X) < 0.001 ||
        std::fabs(arc.End.X - center.X) < 0.001) {
      continue;
    }
    const std::vector<GX2DLine> lines = Lines(arc);
    ASSERT_EQ(lines.size(), static_cast<std::size_t>(steps) + 1) << radius << " " << sweep;
    ASSERT_POINT_EQ(lines.back().End, arc.End);
    for (int i = 1; i <= steps; ++i) {
      const GX2DPoint expected =
          support::OnCircle(center.X, center.Y, radius, from + (sweep > 0 ? i : -i) * step);
      // Angles are added up: some 1e-13 for hundreds of steps, times the radius.
      ASSERT_POINT_NEAR(lines[static_cast<std::size_t>(i)].Start, expected, 1e-12 * radius + 1e-12);
    }
  }
}

TEST(AddAsPolygonOfAList, OrdersAndTurnsTheReceiverItself) {
  GX2DElmList list;
  support::Add(list, support::Line(1, 1, 5, 1), support::Line(9, 9, 5, 4),
               support::Line(5, 4, 5, 1));
  GX2DElement* const second = list[1];
  GX2DElement* const third = list[2];
  GX2DElmList polygon;
  list.AddAsPolygon(polygon);
  EXPECT_EQ(list[1], third);
  EXPECT_EQ(list[2], second);
  EXPECT_POINT_EQ(support::At<GX2DLine>(list, 1), support::Line(5, 1, 5, 4));
  EXPECT_POINT_EQ(support::At<GX2DLine>(list, 2), support::Line(5, 4, 9, 9));
  ASSERT_EQ(polygon.size(), 3u);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NE(polygon[i], list[i]);
    EXPECT_POINT_EQ(support::At<GX2DLine>(polygon, i), support::At<GX2DLine>(list, i));
  }
}

TEST(AddAsPolygonOfAList, AddsEachKindBehindWhatIsThereAndSkipsNullEntries) {
  GX2DElmList list;
  support::Add(list, support::Point(70, 70), support::ArcByAngles(50, 50, 10, 0, 12));
  list.push_back(nullptr);
  support::Add(list, support::Rect(30, 30, 40, 40));
  GX2DElmList polygon;
  support::Add(polygon, support::Line(0, 0, 1, 1));
  GX2DElement* const old = polygon[0];
  list.AddAsPolygon(polygon);
  EXPECT_EQ(list.size(), 4u);
  ASSERT_EQ(polygon.size(), 1u + 3u + 4u);
  EXPECT_EQ(polygon[0], old);
  EXPECT_POINT_EQ(support::At<GX2DLine>(polygon, 4), support::Line(30, 30, 30, 40));
}

TEST(AddAsPolygonOfAList, MayAddToItself) {
  GX2DElmList list;
  support::Add(list, support::Line(1, 1, 5, 1), support::Line(5, 1, 5, 4));
  list.AddAsPolygon(list);
  ASSERT_EQ(list.size(), 4u);
  EXPECT_POINT_EQ(support::At<GX2DLine>(list, 2), support::Line(1, 1, 5, 1));
  EXPECT_POINT_EQ(support::At<GX2DLine>(list, 3), support::Line(5, 1, 5, 4));
}

TEST(AddAsPolygonOfAList, OfNothingAddsNothing) {
  GX2DElmList list;
  GX2DElmList polygon;
  list.AddAsPolygon(polygon);
  EXPECT_TRUE(polygon.empty());
}

}  // namespace
