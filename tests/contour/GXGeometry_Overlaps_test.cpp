#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using support::Add;
using support::Line;
using support::Point;

const GX2DLine kPreset(-77, -78, -79, -80);
const GX3DPoint kPreset3D(-77, -78, -79);

/// What the operation has written, the preset where it has written nothing.
GX2DLine Overlap(const GX2DLine& a, const GX2DLine& b, bool expected) {
  GX2DLine overlap = kPreset;
  EXPECT_EQ(GXGeometry::GetOverlapLine(a, b, overlap), expected);
  return overlap;
}

GX2DLine StartOnly(double x, double y) { return {x, y, kPreset.End.X, kPreset.End.Y}; }

// Overlaps of lines.

TEST(GetOverlapLine, OfTwoIdenticalLinesIsTheFirst) {
  EXPECT_POINT_EQ(Overlap(Line(1, 1, 5, 4), Line(1, 1, 5, 4), true), Line(1, 1, 5, 4));
  EXPECT_POINT_EQ(Overlap(Line(1, 1, 5, 4), Line(5, 4, 1, 1), true), Line(1, 1, 5, 4));
}

TEST(GetOverlapLine, OfLinesThatShareAnEndIsNoneWithTheStartWritten) {
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 1, 0), Line(1, 0, 2, 0), false), StartOnly(1, 0));
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 1, 0), Line(2, 0, 1, 0), false), StartOnly(1, 0));
  EXPECT_POINT_EQ(Overlap(Line(1, 0, 2, 0), Line(0, 0, 1, 0), false), StartOnly(1, 0));
  EXPECT_POINT_EQ(Overlap(Line(1, 0, 2, 0), Line(1, 0, 0, 0), false), StartOnly(1, 0));
}

TEST(GetOverlapLine, RunsInTheOrderOfTheTestsAndNotOfALine) {
  // The end of the first, then the start of the second: backwards.
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(2, 0, 6, 0), true), Line(4, 0, 2, 0));
  // The start of the first, then the end of the second.
  EXPECT_POINT_EQ(Overlap(Line(2, 0, 6, 0), Line(0, 0, 4, 0), true), Line(2, 0, 4, 0));
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(6, 0, 2, 0), true), Line(4, 0, 2, 0));
  EXPECT_POINT_EQ(Overlap(Line(4, 0, 0, 0), Line(2, 0, 6, 0), true), Line(4, 0, 2, 0));
}

TEST(GetOverlapLine, OfALineWithinTheOtherIsTheInnerOne) {
  EXPECT_POINT_EQ(Overlap(Line(3, 0, 2, 0), Line(0, 0, 9, 0), true), Line(3, 0, 2, 0));
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 9, 0), Line(3, 0, 2, 0), true), Line(3, 0, 2, 0));
}

TEST(GetOverlapLine, PassesOverAStartThatItHasAlready) {
  // Both lines start at (0, 0): the start of the second is no second end.
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(0, 0, 2, 0), true), Line(0, 0, 2, 0));
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(0.0001, 0, 2, 0), true), Line(0, 0, 2, 0));
  // Here the start of the first lies before the second, whose start is the only one.
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(0.001, 0, 2, 0), true), Line(0.001, 0, 2, 0));
}

TEST(GetOverlapLine, WantsASecondEndMoreThan0_0001Away) {
  // The lines overlap by 0.0001, then by a little more.
  EXPECT_POINT_EQ(Overlap(Line(1, 0, 0, 0), Line(-1, 0, 0.0001, 0), false), StartOnly(0, 0));
  EXPECT_POINT_EQ(Overlap(Line(1, 0, 0, 0), Line(-1, 0, 0.00011, 0), true), Line(0, 0, 0.00011, 0));
}

TEST(GetOverlapLine, OfLinesInLineButApartWritesNothing) {
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 1, 0), Line(2, 0, 3, 0), false), kPreset);
}

TEST(GetOverlapLine, OfLinesThatAreNotInLineWritesNothing) {
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(1, 0, 1, 4), false), kPreset);
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(1, 4, 1, 0), false), kPreset);
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(0, 1, 4, 1), false), kPreset);
}

TEST(GetOverlapLine, CountsLessThan0_00001AsInLine) {
  const double below = std::nextafter(0.00001, 0);
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(1, below, 3, below), true),
                  Line(1, below, 3, below));
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(1, 0.00001, 3, 0), false), kPreset);
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(1, 0, 3, 0.00001), false), kPreset);
}

TEST(GetOverlapLine, WantsBothEndsOfTheSecondInLineWithTheFirst) {
  // The far end is 0.00002 off, while the start of the first lies 0.00000004 off the second and the
  // near end on the first: enough for an overlap otherwise.
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(-1000, 0.00002, 2, 0), false), kPreset);
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(2, 0, -1000, 0.00002), false), kPreset);
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(-1000, 0.000005, 2, 0), true), Line(0, 0, 2, 0));
}

TEST(GetOverlapLine, OfAFirstLineWithoutLengthIsAPointTwice) {
  EXPECT_POINT_EQ(Overlap(Line(2, 0, 2, 0), Line(0, 0, 4, 0), true), Line(2, 0, 2, 0));
  EXPECT_POINT_EQ(Overlap(Line(2, 3, 2, 3), Line(0, 0, 4, 0), false), kPreset);
}

TEST(GetOverlapLine, OfASecondLineWithoutLengthIsNone) {
  EXPECT_POINT_EQ(Overlap(Line(0, 0, 4, 0), Line(2, 0, 2, 0), false), StartOnly(2, 0));
}

TEST(GetOverlapLine, MayWriteIntoEitherLine) {
  GX2DLine a(0, 0, 4, 0);
  EXPECT_TRUE(GXGeometry::GetOverlapLine(a, Line(2, 0, 6, 0), a));
  EXPECT_POINT_EQ(a, Line(4, 0, 2, 0));
  GX2DLine b(2, 0, 6, 0);
  EXPECT_TRUE(GXGeometry::GetOverlapLine(Line(0, 0, 4, 0), b, b));
  EXPECT_POINT_EQ(b, Line(4, 0, 2, 0));
}

TEST(GetOverlapLine, OfRandomLinesInLineIsTheCommonStretch) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const double a1 = random.Between(0, 10), a2 = random.Between(0, 10);
    const double b1 = random.Between(0, 10), b2 = random.Between(0, 10);
    const double from = std::fmax(std::fmin(a1, a2), std::fmin(b1, b2));
    const double to = std::fmin(std::fmax(a1, a2), std::fmax(b1, b2));
    if (std::fabs(to - from) < 0.01 || std::fabs(a1 - a2) < 0.1 || std::fabs(b1 - b2) < 0.1) {
      continue;
    }
    // Along (3, 4) / 5.
    const GX2DLine a(0.6 * a1, 0.8 * a1, 0.6 * a2, 0.8 * a2);
    const GX2DLine b(0.6 * b1, 0.8 * b1, 0.6 * b2, 0.8 * b2);
    const GX2DLine overlap = Overlap(a, b, to > from);
    if (to > from) {
      EXPECT_EQ(std::fmin(overlap.Start.X, overlap.End.X), 0.6 * from);
      EXPECT_EQ(std::fmax(overlap.Start.X, overlap.End.X), 0.6 * to);
    }
  }
}

TEST(GetOverlapLineOfList, IsThatOfTheFirstLineThatHasOne) {
  GX2DElmList list;
  Add(list, Line(0, 3, 9, 3), Point(1, 0), support::Rect(0, 0, 9, 9),
      support::Arc(0, 0, 5, 0, 0, 5, -5, 0));
  list.push_back(nullptr);
  Add(list, Line(0, 0, 4, 0), Line(0, 0, 9, 0));
  GX2DLine overlap = kPreset;
  EXPECT_TRUE(GXGeometry::GetOverlapLine(list, Line(2, 0, 6, 0), overlap));
  EXPECT_POINT_EQ(overlap, Line(4, 0, 2, 0));  // the element is the first of the two
}

TEST(GetOverlapLineOfList, HandsTheOverlapOnToEveryLine) {
  GX2DElmList list;
  Add(list, Line(0, 0, 1, 0), Line(0, 3, 9, 3));
  GX2DLine overlap = kPreset;
  EXPECT_FALSE(GXGeometry::GetOverlapLine(list, Line(1, 0, 2, 0), overlap));
  EXPECT_POINT_EQ(overlap, StartOnly(1, 0));
}

TEST(GetOverlapLineOfList, OfAnEmptyListIsNone) {
  GX2DElmList list;
  GX2DLine overlap = kPreset;
  EXPECT_FALSE(GXGeometry::GetOverlapLine(list, Line(1, 0, 2, 0), overlap));
  EXPECT_POINT_EQ(overlap, kPreset);
}

TEST(CheckOverlappedLines, WantsAnEndStrictlyWithinTheOther) {
  EXPECT_TRUE(GXGeometry::CheckOverlappedLines(Line(0, 0, 0, 2, 0, 0), Line(1, 0, 0, 3, 0, 0)));
  EXPECT_TRUE(GXGeometry::CheckOverlappedLines(Line(0, 0, 0, 9, 0, 0), Line(1, 0, 0, 3, 0, 0)));
  EXPECT_TRUE(GXGeometry::CheckOverlappedLines(Line(1, 0, 0, 3, 0, 0), Line(0, 0, 0, 9, 0, 0)));
  EXPECT_FALSE(GXGeometry::CheckOverlappedLines(Line(0, 0, 0, 2, 0, 0), Line(2, 0, 0, 3, 0, 0)));
  EXPECT_FALSE(GXGeometry::CheckOverlappedLines(Line(0, 0, 0, 2, 0, 0), Line(5, 0, 0, 6, 0, 0)));
}

TEST(CheckOverlappedLines, IsFalseForIdenticalLines) {
  EXPECT_FALSE(GXGeometry::CheckOverlappedLines(Line(0, 1, 2, 3, 4, 5), Line(0, 1, 2, 3, 4, 5)));
  EXPECT_FALSE(GXGeometry::CheckOverlappedLines(Line(0, 1, 2, 3, 4, 5), Line(3, 4, 5, 0, 1, 2)));
}

TEST(CheckOverlappedLines, KnowsEachOfTheFourEnds) {
  const GX3DLine a = Line(0, 0, 0, 4, 0, 0);
  for (const GX3DLine& b : {Line(2, 0, 0, 4, 0, 0), Line(4, 0, 0, 2, 0, 0)}) {
    EXPECT_TRUE(GXGeometry::CheckOverlappedLines(a, b));
    EXPECT_TRUE(GXGeometry::CheckOverlappedLines(b, a));
  }
}

TEST(CheckOverlappedLines, IsTrueForATThatDoesNotOverlapAtAll) {
  const GX3DLine bar = Line(0, 0, 0, 4, 0, 0);
  EXPECT_TRUE(GXGeometry::CheckOverlappedLines(bar, Line(2, 0, 0, 2, 5, 5)));
  EXPECT_TRUE(GXGeometry::CheckOverlappedLines(Line(2, 5, 5, 2, 0, 0), bar));
  EXPECT_FALSE(GXGeometry::CheckOverlappedLines(bar, Line(2, -5, 0, 2, 5, 0)));
}

// Positions of points.

int Beside(const GX2DPoint& p, const GX2DPoint& direction, const GX2DPoint& origin) {
  GX2DPoint copy = p;
  const int answer = GXGeometry::Chk2DPnt(&copy, direction, origin);
  EXPECT_POINT_EQ(copy, p);
  return answer;
}

TEST(Chk2DPnt, IsNothingOnlyWhereThePointLiesTheWayOfTheDirection) {
  EXPECT_EQ(Beside(Point(6, 9), Point(3, 4), Point(3, 5)), 0);
  EXPECT_EQ(Beside(Point(0, 1), Point(3, 4), Point(3, 5)), 1);
  EXPECT_EQ(Beside(Point(-1, 8), Point(3, 4), Point(3, 5)), 1);
}

TEST(Chk2DPnt, AdmitsACosine0_0001Below1) {
  // 1 - cos 0.0141 is 0.0000994, 1 - cos 0.0142 is 0.0001008.
  EXPECT_EQ(Beside(Point(std::cos(0.0141), std::sin(0.0141)), Point(7, 0), Point(0, 0)), 0);
  EXPECT_EQ(Beside(Point(std::cos(0.0141), -std::sin(0.0141)), Point(7, 0), Point(0, 0)), 0);
  EXPECT_EQ(Beside(Point(std::cos(0.0142), std::sin(0.0142)), Point(7, 0), Point(0, 0)), 1);
  EXPECT_EQ(Beside(Point(std::cos(0.0142), -std::sin(0.0142)), Point(7, 0), Point(0, 0)), 1);
}

TEST(Chk2DPnt, IsNothingWithoutALength) {
  EXPECT_EQ(Beside(Point(3, 5), Point(3, 4), Point(3, 5)), 0);
  EXPECT_EQ(Beside(Point(9, -5), Point(0, 0), Point(3, 5)), 0);
}

TEST(Chk2DPnt, SurvivesANullPoint) {
  const int answer = GXGeometry::Chk2DPnt(nullptr, Point(1, 0), Point(0, 0));
  EXPECT_TRUE(answer == 0 || answer == 1);
}

TEST(CheckIntermediarPoint, IsTrueForPointsOnOppositeSides) {
  const GX3DPoint a(1, 1, 5), c(5, 1, 5);
  EXPECT_TRUE(GXGeometry::CheckIntermediarPoint(a, Point(2, 4, 5), c, Point(9, -3, 5)));
  EXPECT_FALSE(GXGeometry::CheckIntermediarPoint(a, Point(2, 4, 5), c, Point(9, 3, 5)));
  EXPECT_FALSE(GXGeometry::CheckIntermediarPoint(a, Point(-8, -1, 5), c, Point(9, -3, 5)));
}

TEST(CheckIntermediarPoint, IsTrueForAPointOnTheLine) {
  const GX3DPoint a(1, 1, 5), c(5, 1, 5);
  EXPECT_TRUE(GXGeometry::CheckIntermediarPoint(a, Point(9, 1, 5), c, Point(9, 3, 5)));
  EXPECT_TRUE(GXGeometry::CheckIntermediarPoint(a, Point(2, 4, 5), c, Point(-7, 1, 5)));
  EXPECT_TRUE(GXGeometry::CheckIntermediarPoint(a, Point(2, 4, 5), a, Point(2, 4, 5)));
}

TEST(CheckIntermediarPoint, InSpaceAsksForAtLeastAQuarterTurnAboutTheLine) {
  const GX3DPoint a(0, 0, 0), c(5, 0, 0);
  EXPECT_TRUE(GXGeometry::CheckIntermediarPoint(a, Point(1, 1, 0), c, Point(1, 0, 1)));
  EXPECT_FALSE(GXGeometry::CheckIntermediarPoint(a, Point(1, 1, 0), c, Point(1, 0.001, 1)));
  EXPECT_TRUE(GXGeometry::CheckIntermediarPoint(a, Point(1, 1, 0), c, Point(1, -0.001, 1)));
}

/// The point of the other end, the preset where the pairs share nothing.
GX3DPoint NotSame(const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c, const GX3DPoint& d) {
  GX3DPoint other = kPreset3D;
  const bool found = GXGeometry::GetNotSamePoint(a, b, c, d, other);
  EXPECT_EQ(found, other != kPreset3D);
  return other;
}

const GX3DPoint kP(1, 0, 0), kQ(0, 2, 0), kR(0, 0, 3), kS(4, 4, 4);

TEST(GetNotSamePoint, IsTheOtherEndOfTheSecondPair) {
  EXPECT_POINT_EQ(NotSame(kP, kQ, kP, kS), kS);
  EXPECT_POINT_EQ(NotSame(kP, kQ, kS, kP), kS);
  EXPECT_POINT_EQ(NotSame(kP, kQ, kQ, kS), kS);
  EXPECT_POINT_EQ(NotSame(kP, kQ, kS, kQ), kS);
}

TEST(GetNotSamePoint, AnswersByTheFirstTestThatHolds) {
  EXPECT_POINT_EQ(NotSame(kP, kQ, kP, kQ), kQ);
  EXPECT_POINT_EQ(NotSame(kP, kQ, kQ, kP), kQ);
  // a is both ends of the second pair within 0.0001: its start is asked first.
  const GX3DPoint near(1, 0.0001, 0);
  EXPECT_POINT_EQ(NotSame(kP, kQ, near, kP), kP);
  EXPECT_POINT_EQ(NotSame(kQ, kP, near, kP), kP);
}

TEST(GetNotSamePoint, WithoutACommonPointWritesNothing) {
  EXPECT_POINT_EQ(NotSame(kP, kQ, kR, kS), kPreset3D);
  EXPECT_POINT_EQ(NotSame(kP, kP, kR, kR), kPreset3D);
}

TEST(GetNotSamePoint, AdmitsADifferenceOf0_0001PerCoordinate) {
  EXPECT_POINT_EQ(NotSame(Point(0, 0, 0), kQ, Point(0.0001, -0.0001, 0.0001), kS), kS);
  EXPECT_POINT_EQ(NotSame(Point(0, 0, 0), kQ, Point(0, 0, std::nextafter(0.0001, 1)), kS),
                  kPreset3D);
}

TEST(GetNotSamePoint, MayWriteIntoAPoint) {
  GX3DPoint a = kP;
  EXPECT_TRUE(GXGeometry::GetNotSamePoint(a, kQ, kP, kS, a));
  EXPECT_POINT_EQ(a, kS);
}

TEST(Overlaps, SurviveNumbersThatAreNotFinite) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double odd : {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, 1e308}) {
    GX2DLine overlap;
    GXGeometry::GetOverlapLine(Line(0, odd, 1, 1), Line(0, 0, odd, 1), overlap);
    GXGeometry::GetOverlapLine(Line(odd, odd, odd, odd), Line(odd, odd, odd, odd), overlap);
    GXGeometry::CheckOverlappedLines(Line(0, odd, 1, 1, 1, 1), Line(0, 0, odd, 1, 1, 1));
    GX2DPoint p(odd, 1);
    const int answer = GXGeometry::Chk2DPnt(&p, Point(1, odd), Point(0, 0));
    EXPECT_TRUE(answer == 0 || answer == 1);
    GXGeometry::CheckIntermediarPoint(Point(odd, 0, 0), kQ, kR, Point(0, odd, 1));
    GX3DPoint other = kPreset3D;
    EXPECT_FALSE(GXGeometry::GetNotSamePoint(Point(std::nan(""), 0, 0), kQ, kR,
                                             Point(0, std::nan(""), 0), other));
  }
}

}  // namespace
