#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using support::Arc3D;
using support::ArcByAngles;
using support::Line;
using support::Point;

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();

/// A matrix without any symmetry, whose inverse is another.
GXColBasedTransformMatrix Odd() {
  double rows[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 10}};
  return GXColBasedTransformMatrix(rows);
}

GX2DPoint OnLine(const GX2DLine& line, const GX2DPoint& p) {
  GX2DPoint result(-77, -78);
  EXPECT_TRUE(GXGeometry::ProjectPointOnLine(result, line, p));
  return result;
}

GX3DPoint OnPlane(GX3DPoint p, const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c) {
  EXPECT_TRUE(GXGeometry::ProjectPointOnPlane(p, a, b, c));
  return p;
}

struct Box {
  GX2DPoint min = GX2DPoint(-1000, -1000);
  GX2DPoint max = GX2DPoint(-999, -999);
  bool first = true;

  void Add(const GX3DArc& arc) {
    GXGeometry::Inf_maxmin_xy_arc(arc.Center, arc.Start, arc.Mid, arc.End, min, max, first);
  }
};

void ExpectBox(const Box& box, double minX, double minY, double maxX, double maxY, double tol) {
  EXPECT_FALSE(box.first);
  EXPECT_POINT_NEAR(box.min, Point(minX, minY), tol);
  EXPECT_POINT_NEAR(box.max, Point(maxX, maxY), tol);
}

// Onto lines and planes.

TEST(ProjectPointOnLine, DropsThePerpendicularOnTheUnboundedLine) {
  EXPECT_POINT_NEAR(OnLine(Line(0, 0, 4, 0), Point(1, 7)), Point(1, 0), 1e-12);
  EXPECT_POINT_NEAR(OnLine(Line(0, 0, 4, 0), Point(-5, 7)), Point(-5, 0), 1e-12);
  EXPECT_POINT_NEAR(OnLine(Line(3, 1, 3, 2), Point(9, 9)), Point(3, 9), 1e-12);
  // On y = x the foot of (0, 4) is (2, 2).
  EXPECT_POINT_NEAR(OnLine(Line(1, 1, -1, -1), Point(0, 4)), Point(2, 2), 1e-12);
}

TEST(ProjectPointOnLine, OfAPointOnTheLineIsThatPoint) {
  EXPECT_POINT_NEAR(OnLine(Line(1, 2, 4, 6), Point(2.5, 4)), Point(2.5, 4), 1e-12);
}

TEST(ProjectPointOnLine, OnALineWithoutLengthIsItsPoint) {
  EXPECT_POINT_EQ(OnLine(Line(3, 4, 3, 4), Point(9, 9)), Point(3, 4));
}

TEST(ProjectPointOnLine, MayWriteIntoItsArguments) {
  GX2DPoint p(1, 7);
  EXPECT_TRUE(GXGeometry::ProjectPointOnLine(p, Line(0, 2, 4, 2), p));
  EXPECT_POINT_NEAR(p, Point(1, 2), 1e-12);
  GX2DLine line(0, 2, 4, 2);
  EXPECT_TRUE(GXGeometry::ProjectPointOnLine(line.Start, line, Point(1, 7)));
  EXPECT_POINT_NEAR(line.Start, Point(1, 2), 1e-12);
}

TEST(ProjectPointOnLine, AgreesWithTheFootOfThePerpendicular) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const GX2DLine line(random.Point2D(50), random.Point2D(50));
    if (line.Len() < 5) {
      continue;
    }
    const GX2DPoint p = random.Point2D(50);
    const long double vx = static_cast<long double>(line.End.X) - line.Start.X;
    const long double vy = static_cast<long double>(line.End.Y) - line.Start.Y;
    const long double t =
        (vx * (p.X - line.Start.X) + vy * (p.Y - line.Start.Y)) / (vx * vx + vy * vy);
    const GX2DPoint foot(static_cast<double>(line.Start.X + t * vx),
                         static_cast<double>(line.Start.Y + t * vy));
    // Unit axes and figures below 200: some 1e-13.
    EXPECT_POINT_NEAR(OnLine(line, p), foot, 1e-11) << i;
  }
}

TEST(ProjectPointOnPlane, MovesThePointAlongTheNormal) {
  EXPECT_POINT_NEAR(OnPlane(Point(7, 8, 5), Point(0, 0, 2), Point(3, 0, 2), Point(1, 4, 2)),
                    Point(7, 8, 2), 1e-12);
  // The plane x + y + z = 3 has the normal (1, 1, 1); from (3, 3, 3) it is reached at (1, 1, 1).
  EXPECT_POINT_NEAR(OnPlane(Point(3, 3, 3), Point(3, 0, 0), Point(0, 3, 0), Point(0, 0, 3)),
                    Point(1, 1, 1), 1e-12);
}

TEST(ProjectPointOnPlane, DoesNotAskForTheSenseOfTheThreePoints) {
  EXPECT_POINT_NEAR(OnPlane(Point(3, 3, 3), Point(3, 0, 0), Point(0, 0, 3), Point(0, 3, 0)),
                    Point(1, 1, 1), 1e-12);
}

TEST(ProjectPointOnPlane, WithThreePointsInLineKeepsTheMatrixThatHasNoInverse) {
  // Only the first row, the direction u of the line, is there. The local point is (u . v, 0, 0),
  // and the same matrix makes (u.X * (u . v), 0, 0) of it. Along x that is the foot,
  EXPECT_POINT_EQ(OnPlane(Point(5, 3, 4), Point(0, 0, 0), Point(1, 0, 0), Point(2, 0, 0)),
                  Point(5, 0, 0));
  // along y the first point,
  EXPECT_POINT_EQ(OnPlane(Point(5, 3, 4), Point(0, 0, 0), Point(0, 1, 0), Point(0, 2, 0)),
                  Point(0, 0, 0));
  // along (3, 4, 0), from (1, 1, 1) on: u . v = 0.6 * 5 = 3, then 0.6 * 3 = 1.8.
  EXPECT_POINT_NEAR(OnPlane(Point(6, 1, 1), Point(1, 1, 1), Point(4, 5, 1), Point(7, 9, 1)),
                    Point(2.8, 1, 1), 1e-14);
}

TEST(ProjectPointOnPlane, MayMoveAPointThatSpansThePlane) {
  GX3DPoint a(1, 2, 3);
  EXPECT_TRUE(GXGeometry::ProjectPointOnPlane(a, a, Point(4, 2, 9), Point(5, 5, 5)));
  EXPECT_POINT_NEAR(a, Point(1, 2, 3), 1e-12);
  GX3DPoint c(5, 5, 5);
  EXPECT_TRUE(GXGeometry::ProjectPointOnPlane(c, Point(1, 2, 3), Point(4, 2, 9), c));
  EXPECT_POINT_NEAR(c, Point(5, 5, 5), 1e-12);
}

TEST(ProjectPointOnPlane, AgreesWithTheNormalForm) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const GX3DPoint a = random.Point3D(20);
    const GX3DPoint b = random.Point3D(20);
    const GX3DPoint c = random.Point3D(20);
    GXVector normal = GXVector(a, b) * GXVector(a, c);
    if (normal.Len() < 20) {
      continue;
    }
    normal.Standard();
    const GX3DPoint p = random.Point3D(50);
    const GXVector foot = GXVector(p) - normal * normal.dot(GXVector(a, p));
    EXPECT_POINT_NEAR(OnPlane(p, a, b, c), foot, 1e-10) << i;
  }
}

TEST(ProjectPointOnPlaneByMatrices, AppliesBothMatricesAsTheyStand) {
  // (3, 4, 5) - (1, 1, 1) = (2, 3, 4). Locally (1*2+2*3+3*4, 4*2+5*3+6*4, dropped) = (20, 47, 0).
  // Back with a matrix that is no inverse: (2*20, 3*47, 0) + (1, 1, 1).
  double back[3][3] = {{2, 0, 0}, {0, 3, 0}, {0, 0, 5}};
  GX3DPoint result(9, 9, 9);
  GXGeometry::ProjectPointOnPlane(Odd(), GXColBasedTransformMatrix(back), Point(1, 1, 1),
                                  Point(3, 4, 5), result);
  EXPECT_POINT_EQ(result, Point(41, 142, 1));
}

TEST(ProjectPointOnPlaneByMatrices, TakesTheZOutOfTheLocalPointOnly) {
  double quarter[3][3] = {{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}};  // local z is -x
  GXColBasedTransformMatrix toLocal(quarter);
  GXColBasedTransformMatrix toGlobal = toLocal;
  ASSERT_TRUE(toGlobal.Inverse());
  GX3DPoint result;
  GXGeometry::ProjectPointOnPlane(toLocal, toGlobal, Point(2, 0, 0), Point(9, 4, 5), result);
  EXPECT_POINT_EQ(result, Point(2, 4, 5));
}

TEST(ProjectPointOnPlaneByMatrices, MayWriteIntoThePointOrTheOrigin) {
  double plain[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  const GXColBasedTransformMatrix identity(plain);
  GX3DPoint p(3, 4, 5);
  GXGeometry::ProjectPointOnPlane(identity, identity, Point(1, 1, 2), p, p);
  EXPECT_POINT_EQ(p, Point(3, 4, 2));
  GX3DPoint origin(1, 1, 2);
  GXGeometry::ProjectPointOnPlane(identity, identity, origin, Point(3, 4, 5), origin);
  EXPECT_POINT_EQ(origin, Point(3, 4, 2));
}

// Projection codes.

TEST(Convert3DPointsByProjection, TurnsTheAxesRound) {
  GX3DPoint to;
  EXPECT_EQ(GXGeometry::Convert3DPointsByProjection(Point(1, 2, 3), to, 1), 1);
  EXPECT_POINT_EQ(to, Point(1, 2, 3));
  EXPECT_EQ(GXGeometry::Convert3DPointsByProjection(Point(1, 2, 3), to, 2), 1);
  EXPECT_POINT_EQ(to, Point(2, 3, 1));
  EXPECT_EQ(GXGeometry::Convert3DPointsByProjection(Point(1, 2, 3), to, 3), 1);
  EXPECT_POINT_EQ(to, Point(3, 1, 2));
}

TEST(Reconvert3DPointsByProjection, TurnsThemBack) {
  GX3DPoint to;
  EXPECT_EQ(GXGeometry::Reconvert3DPointsByProjection(Point(1, 2, 3), to, 1), 1);
  EXPECT_POINT_EQ(to, Point(1, 2, 3));
  EXPECT_EQ(GXGeometry::Reconvert3DPointsByProjection(Point(1, 2, 3), to, 2), 1);
  EXPECT_POINT_EQ(to, Point(3, 1, 2));
  EXPECT_EQ(GXGeometry::Reconvert3DPointsByProjection(Point(1, 2, 3), to, 3), 1);
  EXPECT_POINT_EQ(to, Point(2, 3, 1));
}

TEST(Convert3DTo2DPointByProjection, DropsTheLastOfTheTurnedAxes) {
  GX2DPoint to;
  EXPECT_EQ(GXGeometry::Convert3DTo2DPointByProjection(Point(1, 2, 3), to, 1), 1);
  EXPECT_POINT_EQ(to, Point(1, 2));
  EXPECT_EQ(GXGeometry::Convert3DTo2DPointByProjection(Point(1, 2, 3), to, 2), 1);
  EXPECT_POINT_EQ(to, Point(2, 3));
  EXPECT_EQ(GXGeometry::Convert3DTo2DPointByProjection(Point(1, 2, 3), to, 3), 1);
  EXPECT_POINT_EQ(to, Point(3, 1));
}

TEST(ConversionsByProjection, LeaveTheOutputForAnyOtherCodeAndStillAnswerOne) {
  for (const int code : {7, 0, 4, -1, std::numeric_limits<int>::min()}) {
    GX3DPoint to(-7, -8, -9);
    GX2DPoint flat(-7, -8);
    EXPECT_EQ(GXGeometry::Convert3DPointsByProjection(Point(1, 2, 3), to, code), 1);
    EXPECT_EQ(GXGeometry::Reconvert3DPointsByProjection(Point(1, 2, 3), to, code), 1);
    EXPECT_EQ(GXGeometry::Convert3DTo2DPointByProjection(Point(1, 2, 3), flat, code), 1);
    EXPECT_POINT_EQ(to, Point(-7, -8, -9));
    EXPECT_POINT_EQ(flat, Point(-7, -8));
  }
}

TEST(ConversionsByProjection, WorkInPlace) {
  for (const int code : {1, 2, 3}) {
    GX3DPoint expected;
    GXGeometry::Convert3DPointsByProjection(Point(1, 2, 3), expected, code);
    GX3DPoint p(1, 2, 3);
    GXGeometry::Convert3DPointsByProjection(p, p, code);
    EXPECT_POINT_EQ(p, expected);
    GXGeometry::Reconvert3DPointsByProjection(p, p, code);
    EXPECT_POINT_EQ(p, Point(1, 2, 3));
  }
}

// Planar coordinate systems.

TEST(ConvertPnt2DTo3DByCoordSystem, ScalesTheBaseVectorsAndAddsTheOrigin) {
  // Base vector i times (3, 4, 0): 1*3+2*4, 4*3+5*4, 7*3+8*4.
  GX3DPoint result;
  GXGeometry::ConvertPnt2DTo3DByCoordSystem(Point(3, 4), result, Odd(), Point(100, 200, 300));
  EXPECT_POINT_EQ(result, Point(111, 232, 353));
}

TEST(ConvertPnt2DTo3DByCoordSystem, MayWriteIntoTheOrigin) {
  GX3DPoint origin(100, 200, 300);
  GXGeometry::ConvertPnt2DTo3DByCoordSystem(Point(3, 4), origin, Odd(), origin);
  EXPECT_POINT_EQ(origin, Point(111, 232, 353));
}

TEST(ConvertPnt3DTo2DByCoordSystem, MeasuresTheOffsetOnTheFirstTwoBaseVectors) {
  // (3, 4, 5) - (1, 1, 1) = (2, 3, 4): 1*2+2*3+3*4 and 4*2+5*3+6*4.
  GX2DPoint result;
  GXGeometry::ConvertPnt3DTo2DByCoordSystem(Point(3, 4, 5), result, Odd(), Point(1, 1, 1));
  EXPECT_POINT_EQ(result, Point(20, 47));
}

TEST(ConversionsByCoordSystem, UndoEachOtherWithTheInverse) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const GX3DPoint origin = random.Point3D(20);
    const GX3DPoint onX = random.Point3D(20);
    const GX3DPoint inPlane = random.Point3D(20);
    if ((GXVector(origin, onX) * GXVector(origin, inPlane)).Len() < 20) {
      continue;
    }
    const GXColBasedTransformMatrix toLocal(origin, onX, inPlane);
    GXColBasedTransformMatrix toGlobal = toLocal;
    ASSERT_TRUE(toGlobal.Inverse());
    const GX2DPoint p = random.Point2D(20);
    GX3DPoint inSpace;
    GX2DPoint back;
    GXGeometry::ConvertPnt2DTo3DByCoordSystem(p, inSpace, toGlobal, origin);
    GXGeometry::ConvertPnt3DTo2DByCoordSystem(inSpace, back, toLocal, origin);
    // Orthonormal axes and figures below 100.
    EXPECT_POINT_NEAR(back, p, 1e-12);
  }
}

// Extents.

TEST(Inf_maxmin_xy_setup, SetsBothCornersToThePoint) {
  Box box;
  GXGeometry::Inf_maxmin_xy_setup(Point(3, -4, 99), box.min, box.max);
  EXPECT_POINT_EQ(box.min, Point(3, -4));
  EXPECT_POINT_EQ(box.max, Point(3, -4));
}

TEST(Inf_maxmin_xy_pnt, WidensAndNeverNarrows) {
  GX2DPoint min(0, 0);
  GX2DPoint max(4, 4);
  GXGeometry::Inf_maxmin_xy_pnt(Point(2, 2, 99), min, max);
  EXPECT_POINT_EQ(min, Point(0, 0));
  EXPECT_POINT_EQ(max, Point(4, 4));
  GXGeometry::Inf_maxmin_xy_pnt(Point(-1, 2, -99), min, max);
  GXGeometry::Inf_maxmin_xy_pnt(Point(2, 7, 0), min, max);
  EXPECT_POINT_EQ(min, Point(-1, 0));
  EXPECT_POINT_EQ(max, Point(4, 7));
  GXGeometry::Inf_maxmin_xy_pnt(Point(8, -8, 0), min, max);
  EXPECT_POINT_EQ(min, Point(-1, -8));
  EXPECT_POINT_EQ(max, Point(8, 7));
}

TEST(Inf_maxmin_xy_line, StartsAfreshOnlyWhileFirstIsSet) {
  Box box;
  GXGeometry::Inf_maxmin_xy_line(Point(5, 1, 9), Point(2, 8, -9), box.min, box.max, box.first);
  ExpectBox(box, 2, 1, 5, 8, 0);
  GXGeometry::Inf_maxmin_xy_line(Point(3, -1, 0), Point(9, 3, 0), box.min, box.max, box.first);
  ExpectBox(box, 2, -1, 9, 8, 0);
}

TEST(Inf_maxmin_xy_arc, OfAQuarterCircleWidensByItsEndsOnly) {
  Box box;
  box.Add(Arc3D(ArcByAngles(0, 0, 1, 0, 90), 0));
  ExpectBox(box, 0, 0, 1, 1, 1e-12);
}

TEST(Inf_maxmin_xy_arc, OfThreeQuartersReachesTheExtremesBetween) {
  Box box;
  box.Add(Arc3D(support::Arc(0, 0, 1, 0, 0, 1, 0, -1), 0));
  ExpectBox(box, -1, -1, 1, 1, 0);
}

TEST(Inf_maxmin_xy_arc, FollowsTheSideOfTheMiddle) {
  Box upper;
  upper.Add(Arc3D(support::Arc(0, 0, 1, 0, 0, 1, -1, 0), 0));
  ExpectBox(upper, -1, 0, 1, 1, 0);
  Box lower;
  lower.Add(Arc3D(support::Arc(0, 0, 1, 0, 0, -1, -1, 0), 0));
  ExpectBox(lower, -1, -1, 1, 0, 0);
}

TEST(Inf_maxmin_xy_arc, TakesTheMiddleAsADirectionOnly) {
  Box box;
  box.Add(Arc3D(support::Arc(0, 0, 1, 0, 0, 0.25, -1, 0), 0));
  ExpectBox(box, -1, 0, 1, 1, 0);
}

TEST(Inf_maxmin_xy_arc, OfAFullCircleIsItsStart) {
  // Every extreme lies on the chord of length zero, and on the chord counts as outside.
  Box box;
  box.Add(Arc3D(support::Circle(0, 0, 1), 0));
  ExpectBox(box, 1, 0, 1, 0, 0);
}

TEST(Inf_maxmin_xy_arc, WithTheMiddleInLineWithTheStartWidensByItsEndsOnly) {
  Box box;
  box.Add(Arc3D(support::Arc(0, 0, 1, 0, 0.5, 0, 0, -1), 0));
  ExpectBox(box, 0, -1, 1, 0, 0);
}

TEST(Inf_maxmin_xy_arc, MeasuresTheRadiusInThePlane) {
  Box box;
  box.Add(GX3DArc(Point(0, 0, 0), Point(3, 0, 4), Point(0, 3, 4), Point(-3, 0, 4)));
  ExpectBox(box, -3, 0, 3, 3, 0);
}

TEST(Inf_maxmin_xy_arc, StartsAfreshOnlyWhileFirstIsSet) {
  Box box;
  box.Add(Arc3D(support::Arc(0, 0, 1, 0, 0, 1, -1, 0), 0));
  box.Add(Arc3D(support::Arc(5, 5, 6, 5, 5, 6, 4, 5), 7));
  ExpectBox(box, -1, 0, 6, 6, 0);
}

TEST(Inf_maxmin_xy_arc, AgreesWithSamplesOfTheArc) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    const GX2DPoint centre = random.Point2D(20);
    const double radius = random.Between(0.5, 10);
    const double from = random.Between(0, 360);
    const double sweep = random.Between(1, 355) * (random.Bool() ? 1 : -1);
    Box samples;
    samples.min = samples.max = support::OnCircle(centre.X, centre.Y, radius, from);
    for (int step = 0; step <= 2000; ++step) {
      const GX2DPoint p =
          support::OnCircle(centre.X, centre.Y, radius, from + sweep * (step / 2000.0));
      samples.min = Point(std::min(samples.min.X, p.X), std::min(samples.min.Y, p.Y));
      samples.max = Point(std::max(samples.max.X, p.X), std::max(samples.max.Y, p.Y));
    }
    Box box;
    box.Add(Arc3D(ArcByAngles(centre.X, centre.Y, radius, from, sweep), random.Between(-5, 5)));
    // Half a step of 0.18 degrees hides radius * (1 - cos 0.09 degrees), 1.3e-5 at most.
    ExpectBox(box, samples.min.X, samples.min.Y, samples.max.X, samples.max.Y, 2e-5);
  }
}

TEST(Projections, SurviveNumbersThatAreNotFinite) {
  for (const double odd : {kNaN, kInfinity, -kInfinity, 1e308}) {
    OnLine(Line(odd, 0, 1, 1), Point(0, odd));
    OnLine(Line(0, 0, 1, 1), Point(odd, 0));
    OnPlane(Point(1, odd, 1), Point(0, 0, odd), Point(1, 0, 0), Point(0, 1, 0));
    GX3DPoint inSpace;
    GX2DPoint flat;
    GXGeometry::ConvertPnt2DTo3DByCoordSystem(Point(odd, 1), inSpace, Odd(), Point(0, odd, 0));
    GXGeometry::ConvertPnt3DTo2DByCoordSystem(Point(odd, 1, 1), flat, Odd(), Point(0, odd, 0));
    Box box;
    box.Add(GX3DArc(Point(odd, 0, 0), Point(1, 0, 0), Point(0, 1, odd), Point(0, odd, 0)));
    EXPECT_FALSE(box.first);
  }
}

}  // namespace
