#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using support::Arc3D;
using support::ArcByAngles;
using support::Circle;
using support::Point;

const double kHalfRoot = std::sqrt(0.5);

GX3DArc Counting() {
  return GX3DArc(Point(1, 2, 3), Point(4, 5, 6), Point(7, 8, 9), Point(10, 11, 12));
}

/// The same operation on the arc and on each of its points by itself.
template <typename Operation>
void ExpectAppliedToEachPoint(Operation operation) {
  GX3DArc arc = Counting();
  operation(arc);
  GX3DPoint center(1, 2, 3), start(4, 5, 6), mid(7, 8, 9), end(10, 11, 12);
  operation(center);
  operation(start);
  operation(mid);
  operation(end);
  EXPECT_POINT_EQ(arc, GX3DArc(center, start, mid, end));
}

TEST(GX3DArc, IsFourTimesTheOriginByDefault) {
  EXPECT_POINT_EQ(GX3DArc(), (std::vector<double>(12, 0.0)));
}

TEST(GX3DArc, KeepsFourPointsAsTheyAre) {
  const GX3DArc arc = Counting();
  EXPECT_POINT_EQ(arc.Center, Point(1, 2, 3));
  EXPECT_POINT_EQ(arc.Start, Point(4, 5, 6));
  EXPECT_POINT_EQ(arc.Mid, Point(7, 8, 9));
  EXPECT_POINT_EQ(arc.End, Point(10, 11, 12));
}

TEST(GX3DArc, CopiesAreIndependent) {
  GX3DArc original = Counting();
  const GX3DArc copy(original);
  GX3DArc assigned;
  assigned = original;
  original.Mid.Z = 99;
  EXPECT_POINT_EQ(copy, Counting());
  EXPECT_POINT_EQ(assigned, Counting());
}

TEST(GX3DArc, HandsOutItsOwnEnds) {
  GX3DArc arc = Counting();
  EXPECT_EQ(&arc.GetStartPoint(), &arc.Start);
  EXPECT_EQ(&arc.GetEndPoint(), &arc.End);
}

TEST(GX3DArc, MovesScalesAndMirrorsReachAllFourPoints) {
  ExpectAppliedToEachPoint([](GX3DElement& e) { e.Translate(GXVector(10, 20, 30)); });
  ExpectAppliedToEachPoint([](GX3DElement& e) { e.Scale(1.05, 1); });
  ExpectAppliedToEachPoint([](GX3DElement& e) { e.ScaleX(1.05, 0); });
  ExpectAppliedToEachPoint([](GX3DElement& e) { e.ScaleY(1.05, 0); });
  ExpectAppliedToEachPoint([](GX3DElement& e) { e.ScaleZ(1.05, -1); });
  ExpectAppliedToEachPoint([](GX3DElement& e) { e.MirrorXY(); });
  ExpectAppliedToEachPoint([](GX3DElement& e) { e.MirrorYZ(); });
  ExpectAppliedToEachPoint([](GX3DElement& e) { e.MirrorXZ(); });
}

TEST(GX3DArc, TurnsReachAllFourPoints) {
  ExpectAppliedToEachPoint([](GX3DElement& e) { e.RotateX(0.5); });
  ExpectAppliedToEachPoint([](GX3DElement& e) { e.RotateY(0.5); });
  ExpectAppliedToEachPoint([](GX3DElement& e) { e.RotateZ(0.5); });
  ExpectAppliedToEachPoint(
      [](GX3DElement& e) { e.RotateAxis(support::Line(1, 0, 2, 5, 3, 1), 0.5); });
  ExpectAppliedToEachPoint([](GX3DElement& e) { e.Rotate(GXRotation(10, 20, 30, 7)); });
}

TEST(GX3DArc, FramesReachAllFourPoints) {
  const GXMatrix matrix(0, 1, 2, 3, 0, 1, 1, 5, 0);
  GXVector vectors[3] = {GXVector(0, 1, 2), GXVector(3, 0, 1), GXVector(1, 5, 0)};
  const GXColBasedTransformMatrix frame(vectors);
  const GX3DPoint origin(1, 1, 1);
  ExpectAppliedToEachPoint([&](GX3DElement& e) { e.TransformGloLoc(origin, matrix); });
  ExpectAppliedToEachPoint([&](GX3DElement& e) { e.TransformGloLoc(origin, frame); });
  ExpectAppliedToEachPoint([&](GX3DElement& e) { e.TransformLocGlo(origin, matrix); });
  ExpectAppliedToEachPoint([&](GX3DElement& e) { e.TransformLocGlo(origin, frame); });
}

TEST(GX3DArc, TheOriginOfAFrameMayBeItsOwnPoint) {
  for (GX3DPoint GX3DArc::*own :
       {&GX3DArc::Center, &GX3DArc::Start, &GX3DArc::Mid, &GX3DArc::End}) {
    const GX3DPoint origin = Counting().*own;
    GX3DArc expected = Counting();
    expected.Translate(GXVector(-origin.X, -origin.Y, -origin.Z));
    GX3DArc arc = Counting();
    arc.TransformGloLoc(arc.*own, GXMatrix());
    EXPECT_POINT_EQ(arc, expected);
    GX3DArc back = Counting();
    back.TransformLocGlo(back.*own, GXMatrix());
    GX3DArc shifted = Counting();
    shifted.Translate(GXVector(origin));
    EXPECT_POINT_EQ(back, shifted);
  }
}

TEST(GX3DArc, AScaleFactorMayBeItsOwnCoordinate) {
  GX3DArc arc = Counting();
  arc.Scale(arc.Start.X, -1);
  GX3DArc expected = Counting();
  expected.Scale(4, -1);
  EXPECT_POINT_EQ(arc, expected);
}

TEST(GX3DArc, RadiusIsMeasuredToTheStart) {
  EXPECT_EQ(GX3DArc(Point(1, 1, 1), Point(3, 4, 7), Point(9, 9, 9), Point(8, 8, 8)).Radius(), 7.0);
}

TEST(GX3DArc, IsActuallyAPointWhenTheRadiusVanishes) {
  EXPECT_TRUE(GX3DArc(Point(1, 1, 1), Point(1, 1, 1), Point(2, 2, 2), Point(90, 90, 90))
                  .IsActuallyAPoint());
  EXPECT_TRUE(
      GX3DArc(Point(0, 0, 0), Point(0.0001, -0.0001, 0.0001), Point(2, 2, 2), Point(9, 9, 9))
          .IsActuallyAPoint());
  EXPECT_FALSE(GX3DArc(Point(0, 0, 0), Point(std::nextafter(0.0001, 1), 0, 0), Point(2, 2, 2),
                       Point(9, 9, 9))
                   .IsActuallyAPoint());
}

TEST(GX3DArc, IsNoPointForEqualEnds) { EXPECT_FALSE(Arc3D(Circle(0, 0, 1), 5).IsActuallyAPoint()); }

TEST(GX3DArc, IsACircleForEqualStartAndEndOrEqualMidAndEnd) {
  const GX3DPoint o(0, 0, 0), near(0.0001, 0.0001, -0.0001), p(1, 0, 0), q(0, 1, 0);
  const GX3DPoint beyond(0, 0, std::nextafter(0.0001, 1));
  EXPECT_TRUE(GX3DArc(q, o, p, near).IsCircle());
  EXPECT_FALSE(GX3DArc(q, o, p, beyond).IsCircle());
  EXPECT_TRUE(GX3DArc(q, p, o, near).IsCircle());
  EXPECT_FALSE(GX3DArc(q, p, o, beyond).IsCircle());
  EXPECT_FALSE(GX3DArc(q, o, near, p).IsCircle());
}

TEST(GX3DArc, NormalIsTheUnitCrossProductOfStartAndMid) {
  const GX3DArc arc(Point(1, 1, 1), Point(3, 1, 1), Point(1, 1, 4), Point(-1, 1, 1));
  EXPECT_POINT_EQ(arc.GetNormal(), GXVector(0, -1, 0));
  EXPECT_POINT_EQ(arc.GetReversedNormal(), GXVector(0, 1, 0));
}

TEST(GX3DArc, NormalIsNullForStartCentreAndMidInLine) {
  const GX3DArc arc(Point(0, 0, 0), Point(1, 0, 0), Point(-1, 0, 0), Point(0, 1, 0));
  EXPECT_POINT_EQ(arc.GetNormal(), GXVector(0, 0, 0));
  EXPECT_POINT_EQ(arc.GetReversedNormal(), GXVector(0, 0, 0));
}

TEST(GX3DArc, SwapPointsLeavesMid) {
  GX3DArc arc = Counting();
  arc.SwapPoints();
  EXPECT_POINT_EQ(arc, GX3DArc(Point(1, 2, 3), Point(10, 11, 12), Point(7, 8, 9), Point(4, 5, 6)));
}

TEST(ExtentOfA3DArc, TakesTheCircleWhereTheArcReachesIt) {
  // Half circle about (10, 20, 30) with radius 2 in a plane parallel to YZ, through +Z.
  const GX3DArc arc(Point(10, 20, 30), Point(10, 22, 30), Point(10, 20, 32), Point(10, 18, 30));
  EXPECT_EQ(arc.GetMinY(), 18.0);
  EXPECT_EQ(arc.GetMaxY(), 22.0);
  EXPECT_EQ(arc.GetMaxZ(), 32.0);
  EXPECT_EQ(arc.GetMinZ(), 30.0);
}

TEST(ExtentOfA3DArc, TakesTheEndsWhereTheCircleIsNotReached) {
  const double c = 2 * kHalfRoot;
  const GX3DArc arc(Point(10, 20, 5), Point(12, 20, 5), Point(10 + c, 20 + c, 5), Point(10, 22, 5));
  EXPECT_EQ(arc.GetMinX(), 10.0);
  EXPECT_EQ(arc.GetMinY(), 20.0);
  EXPECT_EQ(arc.GetMaxX(), 12.0);
  EXPECT_EQ(arc.GetMaxY(), 22.0);
}

TEST(ExtentOfA3DArc, AgreesWithDenseSamplingInAPlaneOfTwoAxes) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const GX2DPoint centre = random.Point2D(100);
    const double radius = random.Between(1, 50);
    const double from = random.Between(0, 360);
    const double sweep = random.Between(1, 359) * (random.Bool() ? 1 : -1);
    const GX2DArc flat = ArcByAngles(centre.X, centre.Y, radius, from, sweep);
    const GX3DArc arc(flat, 0);  // first coordinate to Z, second to Y
    double lowZ = 1e300, highZ = -1e300, lowY = 1e300, highY = -1e300;
    for (int k = 0; k <= 1000; ++k) {
      const GX2DPoint p = support::OnCircle(centre.X, centre.Y, radius, from + sweep * k / 1000.0);
      lowZ = std::min(lowZ, p.X);
      highZ = std::max(highZ, p.X);
      lowY = std::min(lowY, p.Y);
      highY = std::max(highY, p.Y);
    }
    // As in the plane: sampling and the clamping of angles near half a turn.
    const double bound = radius * 1e-5;
    EXPECT_NEAR(arc.GetMinZ(), lowZ, bound);
    EXPECT_NEAR(arc.GetMaxZ(), highZ, bound);
    EXPECT_NEAR(arc.GetMinY(), lowY, bound);
    EXPECT_NEAR(arc.GetMaxY(), highY, bound);
  }
}

TEST(ExtentOfA3DArc, OfATiltedArcIsThatOfTheEndsWhereTheAxisPointIsNotOnIt) {
  // Quarter from X towards the bisector of Y and Z. The point on the Z axis is a quarter turn away
  // from the start and no nearer than 0.7 to the end, so the end decides.
  const double s = std::sin(support::kPi / 4) * kHalfRoot;
  const GX3DArc arc(Point(0, 0, 0), Point(1, 0, 0), Point(kHalfRoot, s, s),
                    Point(0, kHalfRoot, kHalfRoot));
  EXPECT_EQ(arc.GetMaxZ(), kHalfRoot);
  EXPECT_EQ(arc.GetMaxY(), kHalfRoot);
  EXPECT_EQ(arc.GetMinX(), 0.0);
  EXPECT_EQ(arc.GetMinY(), 0.0);
  EXPECT_EQ(arc.GetMaxX(), 1.0);
}

TEST(ExtentOfA3DArc, AcceptsAnAxisPointByAngleAndRadiusAlone) {
  // Half circle from X over the bisector of Y and Z to -X. The point (0, 1, 0) lies outside its
  // plane, yet a quarter turn from the start and on the radius, which is all that is tested.
  const GX3DArc arc(Point(0, 0, 0), Point(1, 0, 0), Point(0, kHalfRoot, kHalfRoot),
                    Point(-1, 0, 0));
  EXPECT_EQ(arc.GetMaxY(), 1.0);
  EXPECT_EQ(arc.GetMaxZ(), 1.0);
}

TEST(ExtentOfA3DArc, OfAFullCircleIsThatOfTheCircle) {
  for (const bool clockwise : {false, true}) {
    const GX3DArc arc = Arc3D(Circle(10, 20, 2, clockwise), 5);
    EXPECT_EQ(arc.GetMinX(), 8.0);
    EXPECT_EQ(arc.GetMaxX(), 12.0);
    EXPECT_EQ(arc.GetMinY(), 18.0);
    EXPECT_EQ(arc.GetMaxY(), 22.0);
  }
}

}  // namespace
