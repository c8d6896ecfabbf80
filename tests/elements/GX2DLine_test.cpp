#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace {

using support::Line;
using support::Point;

TEST(GX2DLine, IsBothTimesTheOriginByDefault) { EXPECT_POINT_EQ(GX2DLine(), Line(0, 0, 0, 0)); }

TEST(GX2DLine, IsMadeFromNumbersOrPoints) {
  EXPECT_POINT_EQ(GX2DLine(1, 2, 3, 4), (std::vector<double>{1, 2, 3, 4}));
  EXPECT_POINT_EQ(GX2DLine(Point(1, 2), Point(3, 4)), Line(1, 2, 3, 4));
}

TEST(GX2DLine, CopiesAreIndependent) {
  GX2DLine original(1, 2, 3, 4);
  const GX2DLine copy(original);
  GX2DLine assigned;
  assigned = original;
  original.Start.X = 9;
  EXPECT_POINT_EQ(copy, Line(1, 2, 3, 4));
  EXPECT_POINT_EQ(assigned, Line(1, 2, 3, 4));
}

TEST(GX2DLine, CloneIsANewLineOfTheCaller) {
  const GX2DLine line(1, 2, 3, 4);
  const std::unique_ptr<GX2DElement> clone(line.Clone());
  EXPECT_NE(clone.get(), &line);
  EXPECT_POINT_EQ(dynamic_cast<GX2DLine&>(*clone), line);
}

TEST(GX2DLine, HandsOutItsOwnPoints) {
  GX2DLine line(1, 2, 3, 4);
  EXPECT_EQ(&line.GetStartPoint(), &line.Start);
  EXPECT_EQ(&line.GetEndPoint(), &line.End);
  line.GetEndPoint().X = 30;
  EXPECT_POINT_EQ(line, Line(1, 2, 30, 4));
}

TEST(GX2DLine, SettersSetOnePointEach) {
  GX2DLine line(1, 2, 3, 4);
  line.SetStartPoint(Point(5, 6));
  EXPECT_POINT_EQ(line, Line(5, 6, 3, 4));
  line.SetEndPoint(line.Start);
  EXPECT_POINT_EQ(line, Line(5, 6, 5, 6));
}

TEST(GX2DLine, TransformsReachBothPoints) {
  GX2DLine line(1, 2, 3, 4);
  line.Translate(10, 20);
  EXPECT_POINT_EQ(line, Line(11, 22, 13, 24));
  line.MirrorX();
  EXPECT_POINT_EQ(line, Line(-11, 22, -13, 24));
  line.MirrorY();
  EXPECT_POINT_EQ(line, Line(-11, -22, -13, -24));
  line.Scale(-0.5, -1);
  EXPECT_POINT_EQ(line, Line(5.5, 11, 6.5, 12));
  line.ScaleX(2, -1);
  EXPECT_POINT_EQ(line, Line(11, 11, 13, 12));
  line.ScaleY(0.5, 0);
  EXPECT_POINT_EQ(line, Line(11, 6, 13, 6));  // 5.5 goes away from zero
}

TEST(GX2DLine, ScaleWithDecimalsRoundsBothPoints) {
  GX2DLine line(1.26, 1.24, -1.26, -1.24);
  line.Scale(1, 1);
  EXPECT_POINT_EQ(line, Line(1.3, 1.2, -1.3, -1.2));
}

TEST(GX2DLine, RotateAxisTurnsBothPointsByDegrees) {
  GX2DLine line(1, 0, 2, 0);
  line.RotateAxis(Point(0, 0), 90);
  EXPECT_POINT_NEAR(line, Line(0, 1, 0, 2), 1e-15);
}

TEST(GX2DLine, TurnsAboutEitherOfItsOwnPoints) {
  GX2DLine aboutStart(1, 1, 3, 1);
  aboutStart.RotateAxis(aboutStart.Start, 90);
  EXPECT_POINT_NEAR(aboutStart, Line(1, 1, 1, 3), 1e-15);
  GX2DLine aboutEnd(1, 1, 3, 1);
  aboutEnd.RotateAxis(aboutEnd.End, 90);
  EXPECT_POINT_NEAR(aboutEnd, Line(3, -1, 3, 1), 1e-15);
}

TEST(GX2DLine, ArgumentsMayBeItsOwnCoordinates) {
  GX2DLine moved(1, 2, 3, 4);
  moved.Translate(moved.Start.X, moved.Start.Y);
  EXPECT_POINT_EQ(moved, Line(2, 4, 4, 6));
  GX2DLine scaled(2, 3, 4, 5);
  scaled.Scale(scaled.Start.X, -1);
  EXPECT_POINT_EQ(scaled, Line(4, 6, 8, 10));
  GX2DLine widened(2, 3, 4, 5);
  widened.ScaleX(widened.Start.X, -1);
  EXPECT_POINT_EQ(widened, Line(4, 3, 8, 5));
}

TEST(GX2DLine, ReverseAndSwapPointsBothSwapTheEnds) {
  GX2DLine line(1, 2, 3, 4);
  line.Reverse();
  EXPECT_POINT_EQ(line, Line(3, 4, 1, 2));
  line.SwapPoints();
  EXPECT_POINT_EQ(line, Line(1, 2, 3, 4));
}

TEST(GX2DLine, LengthIsEuclidean) {
  EXPECT_EQ(Line(1, 1, 4, 5).Len(), 5.0);
  EXPECT_EQ(Line(1, 1, 4, 5).SquareLen(), 25.0);
}

TEST(GX2DLine, TwoEqualPointsHaveLength0) {
  EXPECT_EQ(Line(3, 4, 3, 4).Len(), 0.0);
  EXPECT_EQ(Line(3, 4, 3, 4).SquareLen(), 0.0);
  EXPECT_EQ(Line(0, 0, 1e-200, 0).Len(), 0.0);  // the square is below the smallest double
}

TEST(GX2DLine, ExtentIsThatOfTheEndsInAnyOrder) {
  for (const GX2DLine& line : {Line(1, 7, 5, 2), Line(5, 2, 1, 7)}) {
    EXPECT_EQ(line.GetMinX(), 1.0);
    EXPECT_EQ(line.GetMaxX(), 5.0);
    EXPECT_EQ(line.GetMinY(), 2.0);
    EXPECT_EQ(line.GetMaxY(), 7.0);
  }
}

TEST(GX2DLine, GetParametricPointHasNoLimits) {
  const GX2DLine line(1, 2, 3, 6);
  GX2DPoint out;
  EXPECT_TRUE(line.GetParametricPoint(out, 0.25));
  EXPECT_POINT_EQ(out, Point(1.5, 3));
  EXPECT_TRUE(line.GetParametricPoint(out, -1));
  EXPECT_POINT_EQ(out, Point(-1, -2));
  EXPECT_TRUE(line.GetParametricPoint(out, 2));
  EXPECT_POINT_EQ(out, Point(5, 10));
}

TEST(GX2DLine, GetParametricPointMayWriteToTheLineItself) {
  GX2DLine line(1, 2, 3, 6);
  EXPECT_TRUE(line.GetParametricPoint(line.Start, 0.5));
  EXPECT_POINT_EQ(line, Line(2, 4, 3, 6));
}

TEST(GX2DLine, IsAlmostEqComparesStartsAndEnds) {
  const GX2DLine line(0, 0, 1, 0);
  EXPECT_TRUE(line.IsAlmostEq(Line(0.0001, 0, 1, 0), true, 0.0001));
  EXPECT_FALSE(line.IsAlmostEq(Line(0.0002, 0, 1, 0), true, 0.0001));
  EXPECT_FALSE(line.IsAlmostEq(Line(0, 0, 1, 0.0002), true, 0.0001));
}

TEST(GX2DLine, IsAlmostEqAcceptsTheReverseOnlyWithoutDirection) {
  const GX2DLine line(0, 0, 1, 0);
  EXPECT_FALSE(line.IsAlmostEq(Line(1, 0, 0, 0), true, 0.0001));
  EXPECT_TRUE(line.IsAlmostEq(Line(1, 0, 0, 0), false, 0.0001));
  EXPECT_TRUE(line.IsAlmostEq(line, false, 0.0001));
  EXPECT_FALSE(line.IsAlmostEq(Line(1, 0, 0, 1), false, 0.0001));
  EXPECT_FALSE(line.IsAlmostEq(Line(1, 1, 0, 0), false, 0.0001));
}

TEST(GX2DLine, MidPointIsHalfTheSumPerCoordinate) {
  EXPECT_POINT_EQ(Line(1, 2, 4, 8).GetMidPoint(), Point(2.5, 5));
}

TEST(GX2DLine, PerpendicularTurnsLeftAndKeepsTheLength) {
  EXPECT_POINT_EQ(Line(1, 1, 4, 5).GetPerpendicular(), GXVector(-4, 3, 0));
}

TEST(GetPointAtDistance2D, MeasuresAFractionOfTheLengthFromTheStart) {
  const GX2DLine line(0, 0, 10, 20);
  EXPECT_POINT_EQ(line.GetPointAtDistance(0.25, true), Point(2.5, 5));
  EXPECT_POINT_EQ(line.GetPointAtDistance(1, true), Point(10, 20));
  EXPECT_POINT_EQ(line.GetPointAtDistance(-1, true), Point(-10, -20));
}

TEST(GetPointAtDistance2D, MeasuresAFractionOfTheLengthFromTheEnd) {
  const GX2DLine line(0, 0, 10, 20);
  EXPECT_POINT_EQ(line.GetPointAtDistance(0.25, false), Point(7.5, 15));
  EXPECT_POINT_EQ(line.GetPointAtDistance(0, false), Point(10, 20));
  EXPECT_POINT_EQ(line.GetPointAtDistance(1.0, false), line.Start);
}

TEST(GetPointAtDistance2D, HalfIsTheMiddleOfAnyLine) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const GX2DLine line(random.Point2D(100), random.Point2D(100));
    // One rounding of numbers up to 200 on either way.
    EXPECT_POINT_NEAR(line.GetPointAtDistance(0.5, true), line.GetMidPoint(), 1e-13);
    EXPECT_POINT_NEAR(line.GetPointAtDistance(0.5, false), line.GetMidPoint(), 1e-13);
    EXPECT_POINT_NEAR(line.GetPointAtDistance(1.0, false), line.Start, 1e-13);
  }
}

}  // namespace
