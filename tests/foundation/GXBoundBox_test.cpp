#include <KTRCL_Geometry/foundation/GXBoundBox.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using support::Point;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

GXBoundBox Box(const GX3DPoint& minimum, const GX3DPoint& maximum) {
  GXBoundBox box;
  box.Minimum = minimum;
  box.Maximum = maximum;
  return box;
}

void ExpectIs(const GXBoundBox& box, const GX3DPoint& minimum, const GX3DPoint& maximum) {
  EXPECT_POINT_EQ(box.Minimum, minimum);
  EXPECT_POINT_EQ(box.Maximum, maximum);
}

TEST(GXBoundBox, IsABoxAtTheOriginByDefault) {
  ExpectIs(GXBoundBox(), Point(0, 0, 0), Point(0, 0, 0));
  EXPECT_EQ(GXBoundBox().GetVolume(), 0.0);
}

TEST(GXBoundBox, CopyAndAssignmentCopyThePoints) {
  const GXBoundBox original = Box(Point(1, 2, 3), Point(4, 5, 6));
  ExpectIs(GXBoundBox(original), Point(1, 2, 3), Point(4, 5, 6));
  GXBoundBox assigned;
  EXPECT_EQ(&(assigned = original), &assigned);
  ExpectIs(assigned, Point(1, 2, 3), Point(4, 5, 6));
}

TEST(GXBoundBox, WidthHeightAndDepthLieAlongXYAndZ) {
  const GXBoundBox box = Box(Point(1, 2, 3), Point(3, 5, 8));
  EXPECT_EQ(box.Width(), 2.0);
  EXPECT_EQ(box.Height(), 3.0);
  EXPECT_EQ(box.Depth(), 5.0);
  EXPECT_EQ(box.GetArea(), 6.0);
  EXPECT_EQ(box.GetVolume(), 30.0);
}

TEST(GXBoundBox, ExtentsOfABoxThatIsNotNormalizedAreNegative) {
  const GXBoundBox box = Box(Point(3, 2, 3), Point(1, 5, 8));
  EXPECT_EQ(box.Width(), -2.0);
  EXPECT_EQ(box.GetArea(), -6.0);
  EXPECT_EQ(box.GetVolume(), -30.0);
}

TEST(GXBoundBox, TheVolumeIsDepthTimesHeightTimesWidth) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const GXBoundBox box = Box(Point(0, 0, 0), random.Point3D(10));
    EXPECT_SAME_BITS(box.GetVolume(), box.Depth() * box.Height() * box.Width());
  }
}

TEST(GXBoundBox, TheMiddleIsHalfOfTheSum) {
  const GXBoundBox box = Box(Point(1, 2, -3), Point(3, 5, 8));
  EXPECT_EQ(box.MidX(), 2.0);
  EXPECT_EQ(box.MidY(), 3.5);
  EXPECT_EQ(box.MidZ(), 2.5);
  // The sum comes before the half.
  const double large = std::numeric_limits<double>::max();
  EXPECT_TRUE(std::isinf(Box(Point(large, 0, 0), Point(large, 0, 0)).MidX()));
}

TEST(GXBoundBox, IsAlmostEqAllowsATenThousandthInEveryCoordinate) {
  const GXBoundBox zero;
  const GX3DPoint origin;
  const double beyond = std::nextafter(0.0001, 1.0);
  const GX3DPoint within = Point(0.0001, -0.0001, 0.0001);
  EXPECT_TRUE(zero.IsAlmostEq(Box(within, within)));
  for (const GX3DPoint& p :
       {Point(beyond, 0, 0), Point(0, -beyond, 0), Point(0, 0, beyond), Point(0, kNaN, 0)}) {
    EXPECT_FALSE(zero.IsAlmostEq(Box(p, origin)));
    EXPECT_FALSE(zero.IsAlmostEq(Box(origin, p)));
  }
}

TEST(GXBoundBox, EqualityIsExact) {
  const GXBoundBox box = Box(Point(1, 2, 3), Point(4, 5, 6));
  EXPECT_TRUE(box == Box(Point(1, 2, 3), Point(4, 5, 6)));
  EXPECT_FALSE(box != Box(Point(1, 2, 3), Point(4, 5, 6)));
  EXPECT_FALSE(box == Box(Point(1, 2, 3 + 1e-12), Point(4, 5, 6)));
  EXPECT_TRUE(box != Box(Point(1, 2, 3 + 1e-12), Point(4, 5, 6)));
  EXPECT_FALSE(box == Box(Point(1, 2, 3), Point(4 + 1e-12, 5, 6)));
  EXPECT_TRUE(box != Box(Point(1, 2, 3), Point(4 + 1e-12, 5, 6)));
}

TEST(GXBoundBox, TranslateMovesBothPoints) {
  GXBoundBox box = Box(Point(1, 2, 3), Point(4, 5, 6));
  box.Translate(GXVector(10, 20, 30));
  ExpectIs(box, Point(11, 22, 33), Point(14, 25, 36));
}

TEST(GXBoundBox, ScaleMultipliesBothPoints) {
  GXBoundBox box = Box(Point(1.26, -2.24, 4), Point(2.5, 3.125, 8));
  EXPECT_TRUE(box.Scale(2.0, -1));
  ExpectIs(box, Point(2.52, -4.48, 8), Point(5, 6.25, 16));
}

TEST(GXBoundBox, ScaleRoundsUnlessTheDecimalsAreNegative) {
  GXBoundBox tenths = Box(Point(1.26, -2.23, 4), Point(5.01, 6.99, 7));
  EXPECT_TRUE(tenths.Scale(1.0, 1));
  ExpectIs(tenths, Point(1.3, -2.2, 4), Point(5, 7, 7));

  GXBoundBox whole = Box(Point(1.26, -2.23, 4), Point(5.01, 6.99, 7));
  EXPECT_TRUE(whole.Scale(1.0, 0));
  ExpectIs(whole, Point(1, -2, 4), Point(5, 7, 7));

  GXBoundBox unrounded = Box(Point(149, 1.5, 0), Point(151, 2.5, 1));
  EXPECT_TRUE(unrounded.Scale(1.0, -2));
  ExpectIs(unrounded, Point(149, 1.5, 0), Point(151, 2.5, 1));
}

TEST(GXBoundBox, TheFactorMayBeACoordinateOfTheBox) {
  GXBoundBox box = Box(Point(2, 3, 4), Point(5, 6, 7));
  EXPECT_TRUE(box.Scale(box.Minimum.X, -1));
  ExpectIs(box, Point(4, 6, 8), Point(10, 12, 14));
}

TEST(GXBoundBox, ANegativeFactorLeavesTheMinimumAboveTheMaximum) {
  GXBoundBox box = Box(Point(1, 2, 3), Point(4, 5, 6));
  EXPECT_TRUE(box.Scale(-1.0, -1));
  ExpectIs(box, Point(-1, -2, -3), Point(-4, -5, -6));
}

TEST(GXBoundBox, MirroringNegatesTheCoordinateAcrossThePlaneInBothPoints) {
  GXBoundBox box = Box(Point(1, 2, 3), Point(4, 5, 6));
  box.MirrorXY();
  ExpectIs(box, Point(1, 2, -3), Point(4, 5, -6));
  box.MirrorYZ();
  ExpectIs(box, Point(-1, 2, -3), Point(-4, 5, -6));
  box.MirrorXZ();
  ExpectIs(box, Point(-1, -2, -3), Point(-4, -5, -6));
}

TEST(GXBoundBox, MirroringDoesNotNormalize) {
  GXBoundBox box = Box(Point(0, 1, 0), Point(1, 2, 1));
  box.MirrorXZ();
  EXPECT_EQ(box.Minimum.Y, -1.0);
  EXPECT_EQ(box.Maximum.Y, -2.0);
  EXPECT_EQ(box.Height(), -1.0);
  box.Normalize();
  EXPECT_EQ(box.Height(), 1.0);
  ExpectIs(box, Point(0, -2, 0), Point(1, -1, 1));
}

TEST(GXBoundBox, NormalizeSwapsEachAxisOnItsOwn) {
  GXBoundBox box = Box(Point(4, 2, 6), Point(1, 5, 3));
  box.Normalize();
  ExpectIs(box, Point(1, 2, 3), Point(4, 5, 6));
  box.Normalize();
  ExpectIs(box, Point(1, 2, 3), Point(4, 5, 6));
}

TEST(GXBoundBox, NormalizeLeavesAnUndefinedAxis) {
  GXBoundBox box = Box(Point(kNaN, 2, 3), Point(1, 1, 4));
  box.Normalize();
  EXPECT_TRUE(std::isnan(box.Minimum.X));
  EXPECT_EQ(box.Maximum.X, 1.0);
  EXPECT_EQ(box.Minimum.Y, 1.0);
}

TEST(GXBoundBox, GrownByAPointFarAwayItStillHoldsTheOrigin) {
  ExpectIs(GXBoundBox() + Point(5, 5, 5), Point(0, 0, 0), Point(5, 5, 5));
  ExpectIs(GXBoundBox() + Point(5, -5, 5), Point(0, -5, 0), Point(5, 0, 5));
}

TEST(GXBoundBox, SumsAreNewBoxes) {
  const GXBoundBox box = Box(Point(1, 1, 1), Point(2, 2, 2));
  ExpectIs(box + Point(0, 1.5, 3), Point(0, 1, 1), Point(2, 2, 3));
  ExpectIs(box + Box(Point(0, 1.5, 0), Point(1, 3, 5)), Point(0, 1, 0), Point(2, 3, 5));
  ExpectIs(box, Point(1, 1, 1), Point(2, 2, 2));
}

TEST(GXBoundBox, GrowingInPlaceGivesTheBoxItself) {
  GXBoundBox box = Box(Point(1, 1, 1), Point(2, 2, 2));
  EXPECT_EQ(&(box += Point(0, 1.5, 3)), &box);
  ExpectIs(box, Point(0, 1, 1), Point(2, 2, 3));
  EXPECT_EQ(&(box += Box(Point(-1, 1.5, 0), Point(1, 3, 5))), &box);
  ExpectIs(box, Point(-1, 1, 0), Point(2, 3, 5));
}

TEST(GXBoundBox, ABoxIsGrownMinimumByMinimumAndMaximumByMaximum) {
  // The other box is turned round; its maximum lies below everything and does not count.
  GXBoundBox box;
  box += Box(Point(7, 7, 7), Point(-7, -7, -7));
  ExpectIs(box, Point(0, 0, 0), Point(0, 0, 0));
}

TEST(GXBoundBox, APointGrowsBothEndsOfABoxThatIsNotNormalized) {
  GXBoundBox box = Box(Point(2, 0, 0), Point(-2, 0, 0));
  box += Point(0, 0, 0);
  ExpectIs(box, Point(0, 0, 0), Point(0, 0, 0));
}

TEST(GXBoundBox, AnUndefinedCoordinateGrowsNothing) {
  GXBoundBox box = Box(Point(1, 1, 1), Point(2, 2, 2));
  box += Point(kNaN, 3, kNaN);
  ExpectIs(box, Point(1, 1, 1), Point(2, 3, 2));
  box += Box(Point(kNaN, 0, 0), Point(3, kNaN, 3));
  ExpectIs(box, Point(1, 0, 0), Point(3, 3, 3));
}

TEST(GXBoundBox, GrownByItsOwnPartsItStays) {
  GXBoundBox box = Box(Point(1, 1, 1), Point(2, 2, 2));
  box += box.Maximum;
  const GXBoundBox& self = box;
  box += self;
  ExpectIs(box, Point(1, 1, 1), Point(2, 2, 2));
}

TEST(GXBoundBox, ContainsEveryPointItWasGrownBy) {
  support::Random random;
  GXBoundBox box;
  double lowest[3] = {0, 0, 0};
  double highest[3] = {0, 0, 0};
  for (int i = 0; i < 200; ++i) {
    const GX3DPoint p = random.Point3D(100);
    box += p;
    const double coordinates[3] = {p.X, p.Y, p.Z};
    for (int axis = 0; axis < 3; ++axis) {
      lowest[axis] = std::fmin(lowest[axis], coordinates[axis]);
      highest[axis] = std::fmax(highest[axis], coordinates[axis]);
    }
    ExpectIs(box, GX3DPoint(lowest), GX3DPoint(highest));
  }
}

}  // namespace
