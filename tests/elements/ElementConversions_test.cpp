#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Turn.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::Arc;
using support::Line;
using support::Point;

TEST(PlaneSelector, NamesTheAxisLeftOutOfAPoint) {
  const GX3DPoint p(1, 2, 3);
  EXPECT_POINT_EQ(GX2DPoint(p, 0), Point(3, 2));
  EXPECT_POINT_EQ(GX2DPoint(p, 1), Point(1, 3));
  for (const int plane : {2, 3, -1, 7}) {
    EXPECT_POINT_EQ(GX2DPoint(p, plane), Point(1, 2)) << plane;
  }
}

TEST(PlaneSelector, NamesTheAxisLeftOutOfAVector) {
  const GXVector v(1, 2, 3);
  EXPECT_POINT_EQ(GX2DPoint(v, 0), Point(3, 2));
  EXPECT_POINT_EQ(GX2DPoint(v, 1), Point(1, 3));
  EXPECT_POINT_EQ(GX2DPoint(v, 2), Point(1, 2));
  EXPECT_POINT_EQ(GX2DPoint(v, -5), Point(1, 2));
}

TEST(PlaneSelector, NamesTheAxisOnWhichAFlatPointIsZero) {
  const GX2DPoint p(1, 2);
  EXPECT_POINT_EQ(GX3DPoint(p, 0), Point(0, 2, 1));
  EXPECT_POINT_EQ(GX3DPoint(p, 1), Point(1, 0, 2));
  for (const int plane : {2, 3, -1, 7}) {
    EXPECT_POINT_EQ(GX3DPoint(p, plane), Point(1, 2, 0)) << plane;
  }
}

TEST(PlaneSelector, ConvertsLinesPointByPoint) {
  const GX3DLine line = Line(1, 2, 3, 4, 5, 6);
  EXPECT_POINT_EQ(GX2DLine(line, 0), Line(3, 2, 6, 5));
  EXPECT_POINT_EQ(GX2DLine(line, 1), Line(1, 3, 4, 6));
  EXPECT_POINT_EQ(GX2DLine(line, 2), Line(1, 2, 4, 5));
  const GX2DLine flat = Line(1, 2, 3, 4);
  EXPECT_POINT_EQ(GX3DLine(flat, 0), Line(0, 2, 1, 0, 4, 3));
  EXPECT_POINT_EQ(GX3DLine(flat, 1), Line(1, 0, 2, 3, 0, 4));
  EXPECT_POINT_EQ(GX3DLine(flat, 2), Line(1, 2, 0, 3, 4, 0));
}

TEST(PlaneSelector, ConvertsArcsPointByPoint) {
  const GX3DArc arc(Point(1, 2, 3), Point(4, 5, 6), Point(7, 8, 9), Point(10, 11, 12));
  EXPECT_POINT_EQ(GX2DArc(arc, 0), Arc(3, 2, 6, 5, 9, 8, 12, 11));
  EXPECT_POINT_EQ(GX2DArc(arc, 1), Arc(1, 3, 4, 6, 7, 9, 10, 12));
  EXPECT_POINT_EQ(GX2DArc(arc, 2), Arc(1, 2, 4, 5, 7, 8, 10, 11));
  const GX2DArc flat = Arc(1, 2, 3, 4, 5, 6, 7, 8);
  EXPECT_POINT_EQ(GX3DArc(flat, 0),
                  GX3DArc(Point(0, 2, 1), Point(0, 4, 3), Point(0, 6, 5), Point(0, 8, 7)));
  EXPECT_POINT_EQ(GX3DArc(flat, 1),
                  GX3DArc(Point(1, 0, 2), Point(3, 0, 4), Point(5, 0, 6), Point(7, 0, 8)));
  EXPECT_POINT_EQ(GX3DArc(flat, 2),
                  GX3DArc(Point(1, 2, 0), Point(3, 4, 0), Point(5, 6, 0), Point(7, 8, 0)));
}

TEST(PlaneSelector, ThereAndBackKeepsAFlatPoint) {
  const GX2DPoint p(1, 2);
  for (const int plane : {0, 1, 2}) {
    EXPECT_POINT_EQ(GX2DPoint(GX3DPoint(p, plane), plane), p) << plane;
  }
}

TEST(GXVectorFromElements, IsThePointOrTheWayBetweenTwo) {
  EXPECT_POINT_EQ(GXVector(Point(1, 2)), GXVector(1, 2, 0));
  EXPECT_POINT_EQ(GXVector(Point(1, 2), Point(5, 7)), GXVector(4, 5, 0));
  EXPECT_POINT_EQ(GXVector(Line(1, 2, 5, 7)), GXVector(4, 5, 0));
  EXPECT_POINT_EQ(GXVector(Point(1, 2, 3)), GXVector(1, 2, 3));
  EXPECT_POINT_EQ(GXVector(Point(1, 2, 3), Point(5, 7, 9)), GXVector(4, 5, 6));
  EXPECT_POINT_EQ(GXVector(Line(1, 2, 3, 5, 7, 9)), GXVector(4, 5, 6));
}

TEST(GX2DVectorFromElements, IsThePointOrTheWayBetweenTwo) {
  EXPECT_POINT_EQ(GX2DVector(Point(1, 2)), GX2DVector(1, 2));
  EXPECT_POINT_EQ(GX2DVector(Point(1, 2), Point(5, 7)), GX2DVector(4, 5));
  EXPECT_POINT_EQ(GX2DVector(Line(1, 2, 5, 7)), GX2DVector(4, 5));
}

TEST(SetVector, TakesAPointOrTheWayBetweenTwo) {
  GXVector v(9, 9, 9);
  v.SetVector(Point(1, 2, 3));
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
  v.SetVector(Point(1, 2, 3), Point(5, 7, 9));
  EXPECT_POINT_EQ(v, GXVector(4, 5, 6));
}

TEST(GXMatrixFromPoints, IsTheFrameOfTheTwoWaysFromTheFirst) {
  const GXMatrix m(Point(1, 1, 1), Point(3, 1, 1), Point(4, 1, 6));
  EXPECT_POINT_EQ(m, GXMatrix(1, 0, 0, 0, 0, 1, 0, -1, 0));
  support::Random random;
  for (int i = 0; i < 100; ++i) {
    const GX3DPoint p0 = random.Point3D(9), p1 = random.Point3D(9), p2 = random.Point3D(9);
    EXPECT_POINT_EQ(GXMatrix(p0, p1, p2), GXMatrix(GXVector(p0, p1), GXVector(p0, p2)));
  }
}

TEST(GXRotationFromPoints, IsThatOfTheThreePointMatrix) {
  support::Random random;
  for (int i = 0; i < 100; ++i) {
    const GX3DPoint p0 = random.Point3D(9), p1 = random.Point3D(9), p2 = random.Point3D(9);
    const GXRotation fromPoints(p0, p1, p2);
    const GXRotation fromMatrix{GXMatrix(p0, p1, p2)};
    EXPECT_EQ(fromPoints.A, fromMatrix.A);
    EXPECT_EQ(fromPoints.B, fromMatrix.B);
    EXPECT_EQ(fromPoints.C, fromMatrix.C);
    EXPECT_EQ(fromPoints.O, 0);
  }
}

TEST(GXRotationFromPoints, TurnsTheAxesOfTheFrameBack) {
  // The rows of the matrix are X and Y of the frame; their images are the unit vectors.
  const GXRotation rotation(Point(0, 0, 0), Point(0, 5, 0), Point(-5, 0, 0));
  EXPECT_POINT_NEAR(rotation * GXVector(0, 1, 0), GXVector(1, 0, 0), 1e-14);
  EXPECT_POINT_NEAR(rotation * GXVector(-1, 0, 0), GXVector(0, 1, 0), 1e-14);
}

TEST(FrameFromPoints, HasXTowardsTheSecondPointAndTheThirdInXY) {
  const GXColBasedTransformMatrix frame(Point(1, 1, 1), Point(3, 1, 1), Point(4, 1, 6));
  EXPECT_POINT_EQ(frame.Base[0], GXVector(1, 0, 0));
  EXPECT_POINT_EQ(frame.Base[1], GXVector(0, 0, 1));
  EXPECT_POINT_EQ(frame.Base[2], GXVector(0, -1, 0));
}

TEST(FrameFromPoints, OfPointsInLineKeepsTheRawDifferences) {
  const GXColBasedTransformMatrix frame(Point(1, 1, 1), Point(3, 1, 1), Point(6, 1, 1));
  EXPECT_POINT_EQ(frame, (std::vector<double>{2, 0, 0, 5, 0, 0, 0, 0, 0}));
  const GXColBasedTransformMatrix twice(Point(1, 1, 1), Point(1, 1, 1), Point(6, 2, 3));
  EXPECT_POINT_EQ(twice, (std::vector<double>{0, 0, 0, 5, 1, 2, 0, 0, 0}));
  const GXColBasedTransformMatrix back(Point(1, 1, 1), Point(6, 2, 3), Point(1, 1, 1));
  EXPECT_POINT_EQ(back, (std::vector<double>{5, 1, 2, 0, 0, 0, 0, 0, 0}));
}

TEST(FrameFromPoints, NormalizesBelowEveryTolerance) {
  // The cross product is 1e-12 long: far below any tolerance, yet not 0.
  const GXColBasedTransformMatrix frame(Point(0, 0, 0), Point(1e-6, 0, 0), Point(1e-6, 1e-6, 0));
  EXPECT_POINT_NEAR(frame, (std::vector<double>{1, 0, 0, 0, 1, 0, 0, 0, 1}), 1e-15);
}

TEST(FrameFromPoints, IsOrthonormalAndRightHanded) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const GX3DPoint p0 = random.Point3D(100), p1 = random.Point3D(100), p2 = random.Point3D(100);
    const GXColBasedTransformMatrix frame(p0, p1, p2);
    const support::Triple x = support::Offset(p0, p1);
    const support::Triple y = support::Offset(p0, p2);
    const long double sine =
        support::Length(support::Cross(x, y)) / (support::Length(x) * support::Length(y));
    // The directions are wrong by a few roundings over the sine of the spanning angle.
    const double bound = static_cast<double>(16 * 2.3e-16L / sine);
    EXPECT_NEAR(frame.Base[0].Len(), 1, 1e-15);
    EXPECT_NEAR(frame.Base[2].Len(), 1, 1e-15);
    EXPECT_NEAR(frame.Base[0].dot(frame.Base[2]), 0, bound);
    EXPECT_POINT_NEAR(frame.Base[2] * frame.Base[0], frame.Base[1], 0.0);
    EXPECT_GT(frame.Base[1].dot(GXVector(p0, p2)), 0);
    EXPECT_NEAR(frame.Base[2].dot(GXVector(p0, p2)), 0, bound * 350);
  }
}

TEST(RotateVector, AgreesWithTheFormulaOfRodrigues) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const GXVector direction = random.Vector3D(100);
    const GX3DPoint start = random.Point3D(100);
    const double radians = random.Between(-7, 7);
    GXVector v(start);
    v.Rotate(direction, radians);
    const GX3DLine axis(Point(0, 0, 0), GX3DPoint(direction));
    EXPECT_POINT_NEAR(v, support::Numbers(support::Turned(axis, radians, start)),
                      support::TurnBound(axis, start));
  }
}

TEST(RotateVector, TurnsRightHandedByRadians) {
  GXVector v(1, 2, 3);
  v.Rotate(GXVector(0, 0, 10), support::kPi / 2);
  EXPECT_POINT_NEAR(v, GXVector(-2, 1, 3), 1e-14);
}

TEST(RotateVector, AboutItselfStays) {
  GXVector v(1, 2, 3);
  v.Rotate(v, 1);
  const GX3DLine axis = Line(0, 0, 0, 1, 2, 3);
  EXPECT_POINT_NEAR(v, GXVector(1, 2, 3), support::TurnBound(axis, axis.End));
}

TEST(RotateVector, StaysForANullAxisAndForOneThroughTheFixedPoint) {
  GXVector v(1, 2, 3);
  v.Rotate(GXVector(), 1);
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
  v.Rotate(GXVector(1234.1234, 5678.5678, 9012.9012), 1);
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
  v.Rotate(GXVector(-1234.1234, -5678.5678, -9012.9012), 1);
  EXPECT_POINT_EQ(v, GXVector(1, 2, 3));
}

}  // namespace
