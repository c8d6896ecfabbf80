#include <KTRCL_Geometry/elements/GX2DElements.h>

#include "support/Build.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using support::Point;
using support::Rect;

TEST(GX2DRectangle, IsBothTimesTheOriginByDefault) {
  EXPECT_POINT_EQ(GX2DRectangle(), Rect(0, 0, 0, 0));
}

TEST(GX2DRectangle, KeepsItsCornersInTheGivenOrder) {
  EXPECT_POINT_EQ(GX2DRectangle(5, 1, 2, 7), (std::vector<double>{5, 1, 2, 7}));
  EXPECT_POINT_EQ(GX2DRectangle(Point(5, 1), Point(2, 7)), Rect(5, 1, 2, 7));
}

TEST(GX2DRectangle, CopiesAreIndependent) {
  GX2DRectangle original(5, 1, 2, 7);
  const GX2DRectangle copy(original);
  GX2DRectangle assigned;
  assigned = original;
  original.Corner2.Y = 9;
  EXPECT_POINT_EQ(copy, Rect(5, 1, 2, 7));
  EXPECT_POINT_EQ(assigned, Rect(5, 1, 2, 7));
}

TEST(GX2DRectangle, CloneIsANewRectangleOfTheCaller) {
  const GX2DRectangle rectangle(5, 1, 2, 7);
  const std::unique_ptr<GX2DElement> clone(rectangle.Clone());
  EXPECT_NE(clone.get(), &rectangle);
  EXPECT_POINT_EQ(dynamic_cast<GX2DRectangle&>(*clone), rectangle);
}

TEST(GX2DRectangle, StartAndEndAreItsOwnCorners) {
  GX2DRectangle rectangle(5, 1, 2, 7);
  EXPECT_EQ(&rectangle.GetStartPoint(), &rectangle.Corner1);
  EXPECT_EQ(&rectangle.GetEndPoint(), &rectangle.Corner2);
}

TEST(GX2DRectangle, TransformsReachBothCorners) {
  GX2DRectangle rectangle(1, 2, 3, 4);
  rectangle.Translate(10, 20);
  EXPECT_POINT_EQ(rectangle, Rect(11, 22, 13, 24));
  rectangle.MirrorX();
  EXPECT_POINT_EQ(rectangle, Rect(-11, 22, -13, 24));
  rectangle.MirrorY();
  EXPECT_POINT_EQ(rectangle, Rect(-11, -22, -13, -24));
  rectangle.Scale(-0.5, -1);
  EXPECT_POINT_EQ(rectangle, Rect(5.5, 11, 6.5, 12));
  rectangle.ScaleX(2, -1);
  EXPECT_POINT_EQ(rectangle, Rect(11, 11, 13, 12));
  rectangle.ScaleY(0.5, 0);
  EXPECT_POINT_EQ(rectangle, Rect(11, 6, 13, 6));
}

TEST(GX2DRectangle, ArgumentsMayBeItsOwnCoordinates) {
  GX2DRectangle moved(1, 2, 3, 4);
  moved.Translate(moved.Corner1.X, moved.Corner1.Y);
  EXPECT_POINT_EQ(moved, Rect(2, 4, 4, 6));
  GX2DRectangle scaled(2, 3, 4, 5);
  scaled.Scale(scaled.Corner1.X, -1);
  EXPECT_POINT_EQ(scaled, Rect(4, 6, 8, 10));
}

TEST(GX2DRectangle, RotateAxisAndReverseChangeNothing) {
  GX2DRectangle rectangle(1, 2, 3, 4);
  rectangle.RotateAxis(Point(0, 0), 90);
  rectangle.Reverse();
  EXPECT_POINT_EQ(rectangle, Rect(1, 2, 3, 4));
}

TEST(GX2DRectangle, LengthIsThatOfTheFourSides) {
  EXPECT_EQ(Rect(5, 1, 2, 8).Len(), 20.0);  // twice 3 plus twice 7
}

TEST(GX2DRectangle, GetParametricPointAnswersFalseAndWritesNothing) {
  GX2DPoint out(-77, -78);
  EXPECT_FALSE(Rect(0, 0, 1, 1).GetParametricPoint(out, 0.5));
  EXPECT_POINT_EQ(out, Point(-77, -78));
}

TEST(GX2DRectangle, ExtentIsThatOfTheCornersInAnyOrder) {
  for (const GX2DRectangle& rectangle : {Rect(5, 1, 2, 7), Rect(2, 7, 5, 1), Rect(2, 1, 5, 7)}) {
    EXPECT_EQ(rectangle.GetMinX(), 2.0);
    EXPECT_EQ(rectangle.GetMaxX(), 5.0);
    EXPECT_EQ(rectangle.GetMinY(), 1.0);
    EXPECT_EQ(rectangle.GetMaxY(), 7.0);
  }
}

TEST(GX2DRectangle, NormalizeSortsTheCorners) {
  for (GX2DRectangle rectangle :
       {Rect(5, 1, 2, 7), Rect(2, 7, 5, 1), Rect(5, 7, 2, 1), Rect(2, 1, 5, 7)}) {
    rectangle.Normalize();
    EXPECT_POINT_EQ(rectangle, Rect(2, 1, 5, 7));
  }
}

TEST(GX2DRectangle, SwapPointsSwapsTheCorners) {
  GX2DRectangle rectangle(5, 1, 2, 7);
  rectangle.SwapPoints();
  EXPECT_POINT_EQ(rectangle, Rect(2, 7, 5, 1));
}

TEST(GX2DRectangle, WidthHeightAndAreaAreNeverNegative) {
  for (const GX2DRectangle& rectangle : {Rect(5, 1, 2, 8), Rect(2, 8, 5, 1)}) {
    EXPECT_EQ(rectangle.GetWidth(), 3.0);
    EXPECT_EQ(rectangle.GetHeight(), 7.0);
    EXPECT_EQ(rectangle.GetArea(), 21.0);
  }
}

}  // namespace
