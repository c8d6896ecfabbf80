#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>

#include "support/Build.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

namespace {

using support::Line;

GX2DLine Reversed(const GX2DLine& line) { return {line.End, line.Start}; }

/// Both directions of a line against another: the code of the line and that of its reverse.
std::pair<int, int> Codes(const GX2DLine& l1, const GX2DLine& l2) {
  return {GXGeometry::GetTypeIntersectionLines(l1, l2),
          GXGeometry::GetTypeIntersectionLines(Reversed(l1), l2)};
}

using Pair = std::pair<int, int>;

TEST(GetTypeIntersectionLines, IsOneTowardsTheBarOfATAndTwoAwayFromIt) {
  const GX2DLine level(0, 0, 10, 0);
  EXPECT_EQ(Codes(Line(5, 5, 5, 1), level), Pair(1, 2));  // vertical to level
  EXPECT_EQ(Codes(Line(4, 5, 5, 1), level), Pair(1, 2));  // sloping to level
  const GX2DLine upright(0, 0, 0, 10);
  EXPECT_EQ(Codes(Line(5, 5, 1, 4), upright), Pair(1, 2));  // sloping to vertical
  EXPECT_EQ(Codes(Line(5, 5, 1, 5), upright), Pair(1, 2));  // level to vertical
}

TEST(GetTypeIntersectionLines, DoesNotAskForTheSenseOfTheSecond) {
  EXPECT_EQ(Codes(Line(5, 5, 5, 1), Line(10, 0, 0, 0)), Pair(1, 2));
  EXPECT_EQ(Codes(Line(5, 5, 1, 4), Line(0, 10, 0, 0)), Pair(1, 2));
}

TEST(GetTypeIntersectionLines, IsOneWhereTheCrossingIsInTheMiddle) {
  EXPECT_EQ(Codes(Line(4, 2, 6, -2), Line(0, 0, 10, 0)), Pair(1, 1));
  EXPECT_EQ(Codes(Line(5, 2, 5, -2), Line(0, 0, 10, 0)), Pair(1, 1));
  EXPECT_EQ(Codes(Line(2, 4, -2, 6), Line(0, 0, 0, 10)), Pair(1, 1));
}

TEST(GetTypeIntersectionLines, WithTheBarAsTheFirstIsDecidedByTheFoot) {
  EXPECT_EQ(Codes(Line(0, 0, 10, 0), Line(7, 5, 7, 0)), Pair(1, 2));
  EXPECT_EQ(Codes(Line(0, 0, 10, 0), Line(3, 5, 3, 0)), Pair(2, 1));
  EXPECT_EQ(Codes(Line(0, 0, 10, 0), Line(8, 5, 7, 0)), Pair(1, 2));
  EXPECT_EQ(Codes(Line(0, 0, 0, 10), Line(5, 7, 0, 7)), Pair(1, 2));
  EXPECT_EQ(Codes(Line(0, 0, 0, 10), Line(5, 4, 0, 3)), Pair(2, 1));
}

TEST(GetTypeIntersectionLines, IsNothingWhereTheCrossingIsOffTheSecond) {
  EXPECT_EQ(Codes(Line(12, 5, 12, 1), Line(0, 0, 10, 0)), Pair(0, 0));
  EXPECT_EQ(Codes(Line(-4, 5, -3, 1), Line(0, 0, 10, 0)), Pair(0, 0));
  EXPECT_EQ(Codes(Line(5, 12, 1, 12), Line(0, 0, 0, 10)), Pair(0, 0));
  EXPECT_EQ(Codes(Line(0, 0, 10, 0), Line(7, 5, 7, 0.001)), Pair(0, 0));
}

TEST(GetTypeIntersectionLines, ReachesTheSecondUpTo0_000001BeyondItsEnds) {
  for (const GX2DLine& l2 : {Line(-10, 0, 0, 0), Line(0, 0, -10, 0)}) {
    EXPECT_EQ(Codes(Line(0.000001, 5, 0.000001, 1), l2), Pair(1, 2));
    const double above = std::nextafter(0.000001, 1);
    EXPECT_EQ(Codes(Line(above, 5, above, 1), l2), Pair(0, 0));
  }
  EXPECT_EQ(Codes(Line(0, 0, 10, 0), Line(7, 5, 7, 0.0000005)), Pair(1, 2));
  EXPECT_EQ(Codes(Line(0, 0, 10, 0), Line(7, 5, 7, 0.000002)), Pair(0, 0));
}

TEST(GetTypeIntersectionLines, TakesALeaningLineThatCountsAsVerticalByItsStart) {
  // As the first: dropped from x = 0 it meets the end of the second, from x = 0.00001 it misses.
  EXPECT_EQ(Codes(Line(0, 5, 0.00001, 1), Line(-10, 0, 0, 0)), Pair(1, 0));
  // As the second: the crossing has the x of its start, 0.00001 from its end or straight above it.
  const GX2DLine level(-9, 10.0000005, -5, 10.0000005);
  EXPECT_EQ(Codes(level, Line(0, 0, 0.00001, 10)), Pair(0, 0));
  EXPECT_EQ(Codes(level, Line(0.00001, 10, 0, 0)), Pair(1, 2));
}

TEST(GetTypeIntersectionLines, IsThreeWhereTheSecondEndsBeyondTheFirst) {
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(0, 0, 1, 0), Line(1, 0, 2, 0)), 3);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(0, 0, 1, 1), Line(5, 5, 3, 3)), 3);
}

TEST(GetTypeIntersectionLines, IsFourWhereTheSecondEndsOnTheSideOfTheFirst) {
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(0, 0, 1, 0), Line(2, 0, 0.5, 0)), 4);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(0, 0, 1, 1), Line(5, 5, -3, -3)), 4);
}

TEST(GetTypeIntersectionLines, IsThreeWhereTheSecondEndsAtTheEndOfTheFirst) {
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(0, 0, 1, 0), Line(2, 0, 1, 0)), 3);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(0, 0, 1, 0), Line(0, 0, 1, 0)), 3);
}

TEST(GetTypeIntersectionLines, KnowsVerticalLinesInLine) {
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(3, 0, 3, 1), Line(3, 1, 3, 2)), 3);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(3, 0, 3, 1), Line(3, 2, 3, 0.5)), 4);
}

TEST(GetTypeIntersectionLines, KnowsAShortFirstLineThatCountsAsVertical) {
  // 0.000005 along x: upright by its extent, yet in line with the level second.
  const GX2DLine brief(5, 0, 5.000005, 0);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(brief, Line(0, 0, 10, 0)), 3);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(brief, Line(10, 0, 0, 0)), 4);
}

TEST(GetTypeIntersectionLines, KnowsAShortSecondLineThatCountsAsVertical) {
  const GX2DLine brief(5, 0, 5.000005, 0);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(0, 0, 10, 0), brief), 4);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(0, 0, 3, 0), brief), 3);
}

TEST(GetTypeIntersectionLines, IsNothingForParallelLinesApart) {
  EXPECT_EQ(Codes(Line(0, 1, 10, 1), Line(0, 0, 10, 0)), Pair(0, 0));
  EXPECT_EQ(Codes(Line(1, 0, 1, 10), Line(0, 0, 0, 10)), Pair(0, 0));
  // Slopes 0.00001 apart do cross, at the origin.
  EXPECT_EQ(Codes(Line(0, 0, 1, 0.00001), Line(-5, 0, 5, 0)), Pair(0, 0));
  // So do leaning lines that both count as vertical.
  EXPECT_EQ(Codes(Line(0, -50, 0.00001, 50), Line(0.00001, -1, 0, 1)), Pair(0, 0));
}

TEST(GetTypeIntersectionLines, CountsLessThan0_00001AsInLine) {
  const GX2DLine l2(0, 0, 1, 0);
  EXPECT_EQ(Codes(Line(2, 0.00001, 5, 0.00001), l2), Pair(0, 0));
  const double below = std::nextafter(0.00001, 0);
  EXPECT_EQ(Codes(Line(2, below, 5, below), l2), Pair(4, 3));
  EXPECT_EQ(Codes(Line(2, below, 5, 0.00001), l2), Pair(0, 0));
}

TEST(GetTypeIntersectionLines, MeasuresTheFirstAgainstTheSecondAndNotTheOtherWay) {
  // The ends of the short line lie on the long one, whose ends lie far from the short one's.
  const GX2DLine brief(0, 0, 0.001, 0.000009);
  const GX2DLine level(-10, 0, 10, 0);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(brief, level), 3);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(level, brief), 1);
}

TEST(GetTypeIntersectionLines, TakesEveryLineForInLineWithOneThatHasNoLength) {
  const GX2DLine none(5, 5, 5, 5);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(0, 0, 1, 0), none), 3);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(0, 0, 9, 0), none), 4);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(0, 0, 0, 9), none), 4);
}

TEST(GetTypeIntersectionLines, DropsAFirstLineWithoutLengthVertically) {
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(5, 5, 5, 5), Line(0, 0, 10, 0)), 1);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(15, 5, 15, 5), Line(0, 0, 10, 0)), 0);
  EXPECT_EQ(GXGeometry::GetTypeIntersectionLines(Line(5, 0, 5, 0), Line(0, 0, 10, 0)), 3);
}

TEST(GetTypeIntersectionLines, SurvivesNumbersThatAreNotFinite) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double odd : {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, 1e308}) {
    for (const GX2DLine& line : {Line(odd, 0, 1, 1), Line(0, odd, 1, 1), Line(0, 0, odd, odd)}) {
      for (const int code : {GXGeometry::GetTypeIntersectionLines(line, Line(0, 1, 1, 0)),
                             GXGeometry::GetTypeIntersectionLines(Line(0, 1, 0, 2), line)}) {
        EXPECT_TRUE(code >= 0 && code <= 4);
      }
    }
  }
}

}  // namespace
