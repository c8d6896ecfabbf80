// Routines of the kernel in space beside operations of the classes that find the same figure with
// code of their own. Away from the thresholds both agree, on random input; at the thresholds they
// differ, and each difference is a test by itself.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/kernel/Kernel.h>

#include "support/Build.h"
#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::Frame;
using support::kPi;
using support::kUnwritten;
using support::kUnwrittenFrame;
using support::Line;
using support::Point;
using support::Vec;

constexpr int kMillimetres = 0;
constexpr int kInches = 1;
constexpr int kRounds = 4000;

// The least number of rounds that must be left when those near a threshold have been passed over.
constexpr int kEnough = 1000;

const GX3DPoint kPreset(-77, -78, -79);

Vec Of(const GX3DPoint& p) { return {p.X, p.Y, p.Z}; }
Vec Of(const GX2DPoint& p) { return {p.X, p.Y, 0.0}; }
Vec Of(const GXVector& v) { return {v.X, v.Y, v.Z}; }
GX3DPoint PointOf(const Vec& v) { return {v[0], v[1], v[2]}; }

GX3DPoint Moved(const GX3DPoint& p, double t, const Vec& way) { return PointOf(Of(p) + t * way); }

Vec UnitVector(support::Random& random) {
  const double z = random.Between(-1, 1);
  const double angle = random.Between(0, 2 * kPi);
  const double r = std::sqrt(1.0 - z * z);
  return {r * std::cos(angle), r * std::sin(angle), z};
}

/// Three unit vectors, right-handed.
struct Axes {
  explicit Axes(support::Random& random)
      : x(UnitVector(random)), y(UnitVector(random)), z(support::Cross(x, y)) {
    while (support::Length(z) < 0.3) z = support::Cross(x, UnitVector(random));
    z = (1.0 / support::Length(z)) * z;
    y = support::Cross(z, x);
  }
  GX3DPoint OnCircle(const GX3DPoint& centre, double radius, double angle) const {
    return Moved(Moved(centre, radius * std::cos(angle), x), radius * std::sin(angle), y);
  }
  Vec x;
  Vec y;
  Vec z;
};

// Two lines of space.

int Cross(const GX3DLine& a, const GX3DLine& b, GX3DPoint& hit) {
  Vec out = Of(hit);
  const int result = Intspt(kMillimetres, Of(a.Start), Of(a.End), Of(b.Start), Of(b.End), out);
  hit = PointOf(out);
  return result;
}

TEST(IntsptBesideClass, CrossesWhereTheClassDoes) {
  support::Random random;
  for (int i = 0; i < kRounds; ++i) {
    const Axes axes(random);
    const GX3DPoint meeting = random.Point3D(100);
    const double angle = random.Between(0.05, 1.5);
    const Vec across = std::cos(angle) * axes.x + std::sin(angle) * axes.y;
    const GX3DLine a(Moved(meeting, random.Between(-50, -1), axes.x),
                     Moved(meeting, random.Between(1, 50), axes.x));
    const GX3DLine b(Moved(meeting, random.Between(2, 50), across),
                     Moved(meeting, random.Between(60, 100), across));
    GX3DPoint ofKernel = kPreset;
    GX3DPoint ofClass = kPreset;
    ASSERT_EQ(Cross(a, b, ofKernel), 1) << i;
    ASSERT_TRUE(GXGeometry::Get3DLineIntersection(a, b, ofClass)) << i;
    // Coordinates to 200 with errors of 1e-13, over the sine of 0.05 at the least.
    ASSERT_POINT_NEAR(ofKernel, meeting, 1e-10) << i;
    ASSERT_POINT_NEAR(ofKernel, ofClass, 1e-10) << i;
  }
}

TEST(IntsptBesideClass, ProjectsSkewLinesLikeTheClass) {
  support::Random random;
  int compared = 0;
  for (int i = 0; i < kRounds; ++i) {
    const GX3DLine a(random.Point3D(100), random.Point3D(100));
    const GX3DLine b(random.Point3D(100), random.Point3D(100));
    GX3DPoint ofKernel = kPreset;
    GX3DPoint ofClass = kPreset;
    ASSERT_EQ(Cross(a, b, ofKernel), 1) << i;
    ASSERT_TRUE(GXGeometry::Get3DLineIntersection(a, b, ofClass)) << i;
    // Far crossings are those of projections that are almost parallel.
    if (std::fabs(ofClass.X) + std::fabs(ofClass.Y) + std::fabs(ofClass.Z) > 1000) continue;
    ASSERT_POINT_NEAR(ofKernel, ofClass, 1e-8) << i;
    ++compared;
  }
  EXPECT_GE(compared, kEnough);
}

TEST(IntsptBesideClass, FindsLinesParallelByTheirAngleWhereTheClassCrossesThem) {
  const GX3DLine level = Line(0, 0, 0, 10, 0, 0);
  const GX3DLine climbing = Line(0, -0.0001, 0, 4, 0.0001, 0);  // slope 0.00005, 0 at x = 2
  GX3DPoint hit = kPreset;
  EXPECT_EQ(Cross(level, climbing, hit), 0);
  EXPECT_POINT_EQ(hit, kPreset);
  EXPECT_TRUE(GXGeometry::Get3DLineIntersection(level, climbing, hit));
  EXPECT_POINT_NEAR(hit, Point(2, 0, 0), 1e-9);
}

TEST(IntsptBesideClass, CrossesAShortLineWithBothEndsNextToTheOtherWhereTheClassDoesNot) {
  const GX3DLine level = Line(0, 0, 0, 10, 0, 0);
  const GX3DLine shortOne = Line(1, -0.000004, 0, 1.0002, 0.000004, 0);
  GX3DPoint hit = kPreset;
  EXPECT_FALSE(GXGeometry::Get3DLineIntersection(level, shortOne, hit));
  EXPECT_POINT_EQ(hit, kPreset);
  EXPECT_EQ(Cross(level, shortOne, hit), 1);
  EXPECT_POINT_NEAR(hit, Point(1.0001, 0, 0), 1e-12);
}

// Two circles.

int Cross(const GX2DArc& a, const GX2DArc& b, GX3DPoint& first, GX3DPoint& second) {
  Vec out1 = Of(first);
  Vec out2 = Of(second);
  const int result = Intersect2D_circles(kMillimetres, Of(a.Center), Of(a.Start), Of(a.End),
                                         Of(b.Center), Of(b.Start), Of(b.End), out1, out2);
  first = PointOf(out1);
  second = PointOf(out2);
  return result;
}

GX3DPoint Raised(const GX2DPoint& p) { return {p.X, p.Y, 0.0}; }

/// A quarter arc anywhere near the origin.
GX2DArc DrawQuarter(support::Random& random) {
  const GX2DPoint centre = random.Point2D(20);
  return support::ArcByAngles(centre.X, centre.Y, random.Between(1, 20), random.Between(0, 360),
                              90);
}

/// Whether the circles touch within 0.1, or the second centre stands at a right angle to the start
/// of the first arc, within 1.
bool AreNearThreshold(const GX2DArc& a, const GX2DArc& b) {
  const Vec way = Of(b.Center) - Of(a.Center);
  const double along = support::Dot(way, Of(a.Start) - Of(a.Center)) / a.Radius();
  const double apart = support::Length(way);
  return std::fabs(along) < 1 || std::fabs(apart - a.Radius() - b.Radius()) < 0.1 ||
         std::fabs(apart - std::fabs(a.Radius() - b.Radius())) < 0.1;
}

TEST(Intersect2DCirclesBesideClass, CrossesWhereTheClassDoesInTheSameOrder) {
  support::Random random;
  int crossed = 0;
  for (int i = 0; i < kRounds; ++i) {
    const GX2DArc a = DrawQuarter(random);
    const GX2DArc b = DrawQuarter(random);
    if (AreNearThreshold(a, b)) continue;
    GX3DPoint first = kPreset;
    GX3DPoint second = kPreset;
    GX2DPoint firstOfClass;
    GX2DPoint secondOfClass;
    const bool crosses = GXGeometry::Get2DCirclesIntersection(a, b, firstOfClass, secondOfClass);
    ASSERT_EQ(Cross(a, b, first, second), crosses ? 2 : 0) << i;
    if (!crosses) continue;
    // Slopes up to 60 and coordinates to 60: terms of 1e8 with errors of 1e-8 under the root, and
    // chords longer than 0.8.
    ASSERT_POINT_NEAR(first, Raised(firstOfClass), 1e-7) << i;
    ASSERT_POINT_NEAR(second, Raised(secondOfClass), 1e-7) << i;
    ++crossed;
  }
  EXPECT_GE(crossed, kEnough);
}

TEST(Intersect2DCirclesBesideClass, TakesTheSameWrongHalfChordAtARightAngleToTheStart) {
  // Half the chord is the root of 25 - 9, but both take that of 18 - 9, with the constant of the
  // chord line in place of the squared radius.
  const GX2DArc lower = support::ArcByAngles(0, 0, 5, 0, 90);
  const GX2DArc upper = support::ArcByAngles(0, 6, 5, 30, 90);
  GX3DPoint first;
  GX3DPoint second;
  EXPECT_EQ(Cross(lower, upper, first, second), 2);
  EXPECT_POINT_NEAR(first, Point(3, 3, 0), 1e-12);
  EXPECT_POINT_NEAR(second, Point(-3, 3, 0), 1e-12);
  GX2DPoint firstOfClass;
  GX2DPoint secondOfClass;
  EXPECT_TRUE(GXGeometry::Get2DCirclesIntersection(lower, upper, firstOfClass, secondOfClass));
  EXPECT_POINT_NEAR(firstOfClass, Point(3, 3), 1e-12);
  EXPECT_POINT_NEAR(secondOfClass, Point(-3, 3), 1e-12);
}

TEST(Intersect2DCirclesBesideClass, HasNoCrossingWhereThatHalfChordIsNoNumberInTheClass) {
  // The constant is (25 - 9 + 9) / 2 = 12.5, the height of the chord 12.5 / 3, its square 17.4.
  const GX2DArc lower = support::ArcByAngles(0, 0, 5, 0, 90);
  const GX2DArc upper = support::ArcByAngles(0, 3, 3, 30, 90);
  GX3DPoint first = kPreset;
  GX3DPoint second = kPreset;
  EXPECT_EQ(Cross(lower, upper, first, second), 0);
  EXPECT_POINT_EQ(first, kPreset);
  EXPECT_POINT_EQ(second, kPreset);
  GX2DPoint firstOfClass;
  GX2DPoint secondOfClass;
  EXPECT_TRUE(GXGeometry::Get2DCirclesIntersection(lower, upper, firstOfClass, secondOfClass));
  EXPECT_TRUE(std::isnan(firstOfClass.X));
}

TEST(Intersect2DCirclesBesideClass, CrossesCirclesThatAlmostTouchFromInsideWhereTheClassDoesNot) {
  const GX2DArc outer = support::ArcByAngles(0, 0, 5, 0, 90);
  const GX2DArc inner = support::ArcByAngles(3.000005, 0, 2, 30, 90);
  GX2DPoint firstOfClass;
  GX2DPoint secondOfClass;
  EXPECT_FALSE(GXGeometry::Get2DCirclesIntersection(outer, inner, firstOfClass, secondOfClass));
  GX3DPoint first;
  GX3DPoint second;
  EXPECT_EQ(Cross(outer, inner, first, second), 2);
  const double x = (25 - 4 + 3.000005 * 3.000005) / (2 * 3.000005);
  EXPECT_POINT_NEAR(first, Point(x, std::sqrt(25 - x * x), 0), 1e-9);
  EXPECT_POINT_NEAR(second, Point(x, -std::sqrt(25 - x * x), 0), 1e-9);
}

// Arcs.

double SpanOf(const GX3DArc& arc) {
  return Arc_angle(kMillimetres, Of(arc.Center), Of(arc.Start), Of(arc.Mid), Of(arc.End));
}

TEST(ArcAngleBesideClass, SpansAnglesOfAllSizesLikeTheClass) {
  support::Random random;
  for (int i = 0; i < kRounds; ++i) {
    const Axes axes(random);
    const GX3DPoint centre = random.Point3D(100);
    const double radius = random.Between(0.5, 100);
    const double halfTurns = random.Int(0, 1) * kPi;
    const double span = halfTurns + random.Between(0.01, kPi - 0.01);
    const double toMid = std::fmin(span / 2, random.Between(0.1, 3.0));
    const GX3DArc arc(centre, axes.OnCircle(centre, radius, 0),
                      axes.OnCircle(centre, radius, toMid), axes.OnCircle(centre, radius, span));
    // Points to 300 have errors of 1e-13, radii of 0.5 make an angle of some 1e-12 of it, and next
    // to 0 and pi the arc cosine takes it by a hundred.
    ASSERT_NEAR(SpanOf(arc), span, 1e-9) << i;
    ASSERT_NEAR(SpanOf(arc), GXGeometry::GetArcAngleRad(arc), 1e-9) << i;
  }
}

TEST(ArcAngleBesideClass, IsAFullTurnWhereTheMiddleIsTheEndLikeInTheClass) {
  const GX3DArc arc(Point(0, 0, 0), Point(5, 0, 0), Point(0, 5, 0), Point(0, 5, 0.0001));
  EXPECT_EQ(SpanOf(arc), 2 * kPi);
  EXPECT_EQ(GXGeometry::GetArcAngleRad(arc), 2 * kPi);
}

TEST(ArcAngleBesideClass, IsNothingWhereTheStartIsTheEndWhichIsAFullTurnInTheClass) {
  const GX3DArc arc(Point(0, 0, 0), Point(5, 0, 0), Point(0, 5, 0), Point(5, 0, 0));
  EXPECT_EQ(SpanOf(arc), 0.0);
  EXPECT_EQ(GXGeometry::GetArcAngleRad(arc), 2 * kPi);
}

TEST(CalculateCenterArc, FindsTheCentreOfTheCircleLikeTheClass) {
  support::Random random;
  for (int i = 0; i < kRounds; ++i) {
    const Axes axes(random);
    const GX3DPoint centre = random.Point3D(100);
    const double radius = random.Between(1, 100);
    const double toSecond = random.Between(0.3, 2.8);
    const double toThird = toSecond + random.Between(0.3, 2.8);
    const GX3DPoint a = axes.OnCircle(centre, radius, 0);
    const GX3DPoint b = axes.OnCircle(centre, radius, toSecond);
    const GX3DPoint c = axes.OnCircle(centre, radius, toThird);
    Vec found = kUnwritten;
    GX3DPoint ofClass = kPreset;
    ASSERT_EQ(Calculate_center_arc(kMillimetres, Of(a), Of(b), Of(c), found), 1) << i;
    ASSERT_EQ(GXGeometry::GetCenterArcBy3Points(a, b, c, ofClass), 1) << i;
    // Points to 300 have errors of 1e-13; the bisectors meet at no less than 0.15 radians.
    ASSERT_POINT_NEAR(found, Of(centre), 1e-10) << i;
    ASSERT_POINT_NEAR(found, Of(ofClass), 2e-10) << i;
  }
}

// The kernel asks for the direction of the third point, 0.0001 at unit length, the class for its
// distance from the line, 0.00001.
TEST(CalculateCenterArc, TellsPointsInLineByDirectionAndTheClassByDistance) {
  const GX3DPoint a(0, 0, 0);
  const GX3DPoint b(1, 0, 0);
  const GX3DPoint far(10, 0.0005, 0);
  const GX3DPoint near(0.01, 0.000005, 0);
  Vec found = kUnwritten;
  GX3DPoint ofClass = kPreset;
  EXPECT_EQ(Calculate_center_arc(kMillimetres, Of(a), Of(b), Of(far), found), 0);
  EXPECT_EQ(GXGeometry::GetCenterArcBy3Points(a, b, far, ofClass), 1);
  EXPECT_EQ(Calculate_center_arc(kMillimetres, Of(a), Of(b), Of(near), found), 1);
  EXPECT_EQ(GXGeometry::GetCenterArcBy3Points(a, b, near, ofClass), 0);
}

// Planes.

bool InPlaneOfClass(const Vec& a, const Vec& b, const Vec& c, const Vec& p) {
  return GXGeometry::PointInPlane(PointOf(a), PointOf(b), PointOf(c), PointOf(p));
}

TEST(PointInPlaneBesideClass, TakesPointsInThePlaneAndRefusesPointsWellOffItLikeTheClass) {
  support::Random random;
  for (int i = 0; i < kRounds; ++i) {
    const Axes axes(random);
    const Vec a = Of(random.Point3D(100));
    const Vec b = a + random.Between(1, 50) * axes.x;
    const Vec c = a + random.Between(-50, 50) * axes.x + random.Between(1, 50) * axes.y;
    const Vec in = a + random.Between(-50, 50) * axes.x + random.Between(-50, 50) * axes.y;
    const Vec off = in + (random.Bool() ? 1 : -1) * random.Between(0.011, 20) * axes.z;
    for (const int unit : {kMillimetres, kInches}) {
      ASSERT_TRUE(PointInPlane(unit, a, b, c, in)) << i;
      ASSERT_FALSE(PointInPlane(unit, a, b, c, off)) << i;
    }
    ASSERT_TRUE(InPlaneOfClass(a, b, c, in)) << i;
    ASSERT_FALSE(InPlaneOfClass(a, b, c, off)) << i;
  }
}

TEST(PointInPlaneBesideClass, IsAThousandTimesAsPatientAsTheClass) {
  const Vec o(0, 0, 0);
  const Vec x(1, 0, 0);
  const Vec y(0, 1, 0);
  EXPECT_TRUE(PointInPlane(kMillimetres, o, x, y, Vec(3, 4, 0.009)));
  EXPECT_FALSE(InPlaneOfClass(o, x, y, Vec(3, 4, 0.009)));
  EXPECT_FALSE(InPlaneOfClass(o, x, y, Vec(3, 4, 0.000011)));
  EXPECT_TRUE(InPlaneOfClass(o, x, y, Vec(3, 4, 0.000009)));
}

TEST(PointInPlaneBesideClass, StillDividesByANormalThatIsTooShortForTheClass) {
  // Half a square of 0.001: a normal of length 1e-6. Not divided by it, 1 off the plane is 1e-6.
  const Vec o(0, 0, 0);
  const Vec x(0.001, 0, 0);
  const Vec y(0, 0.001, 0);
  EXPECT_FALSE(PointInPlane(kMillimetres, o, x, y, Vec(0, 0, 1)));
  EXPECT_TRUE(InPlaneOfClass(o, x, y, Vec(0, 0, 1)));
}

// Turns about an axis.

int Turn(const GX3DLine& axis, double angle, const GX3DPoint& p, GX3DPoint& turned) {
  Vec out = Of(turned);
  const int result = Rotate_a_point(kMillimetres, axis.Start.X, axis.Start.Y, axis.Start.Z,
                                    axis.End.X, axis.End.Y, axis.End.Z, angle, Of(p), out);
  turned = PointOf(out);
  return result;
}

TEST(RotateAPointBesideClass, TurnsLikeTheClass) {
  support::Random random;
  for (int i = 0; i < kRounds; ++i) {
    const GX3DPoint start = random.Point3D(100);
    const GX3DLine axis(start, Moved(start, random.Between(1, 50), UnitVector(random)));
    const double angle = random.Between(-7, 7);
    const GX3DPoint p = random.Point3D(100);
    GX3DPoint ofKernel = kPreset;
    GX3DPoint ofClass = kPreset;
    const bool turns = GXGeometry::Rotate3DPoint(axis, angle, p, ofClass);
    ASSERT_EQ(Turn(axis, angle, p, ofKernel), turns ? 1 : 0) << i;
    // The frame stands on the direction to a point 10000 away. An axis that points almost there, to
    // a hundredth at the worst of so few draws, costs a hundred of its 1e-16, times 400.
    ASSERT_POINT_NEAR(ofKernel, ofClass, 1e-10) << i;
  }
}

TEST(RotateAPointBesideClass, RefusesAnAxisThatPointsNearTheFixedPointWhereTheClassTurns) {
  // 0.00003 radians off the way to the fixed point, which is 0.3 by the time it gets there.
  const Vec toFixed(1.2341234, 5.6785678, 9.0129012);
  const Vec aside = support::Cross(toFixed, Vec(0, 0, 1));
  const Vec end = toFixed + (0.00003 * support::Length(toFixed) / support::Length(aside)) * aside;
  const GX3DLine axis(Point(0, 0, 0), PointOf(end));
  GX3DPoint turned = kPreset;
  EXPECT_EQ(Turn(axis, 1, Point(1, 2, 3), turned), 0);
  EXPECT_POINT_EQ(turned, kPreset);
  EXPECT_TRUE(GXGeometry::Rotate3DPoint(axis, 2 * kPi, Point(1, 2, 3), turned));
  EXPECT_POINT_NEAR(turned, Point(1, 2, 3), 1e-9);
}

TEST(RotateAPointBesideClass, RefusesAShortAxisWhereTheClassTurns) {
  const GX3DLine axis = Line(0, 0, 0, 0, 0, 0.00005);
  GX3DPoint turned = kPreset;
  EXPECT_EQ(Turn(axis, kPi / 2, Point(1, 0, 3), turned), 0);
  EXPECT_POINT_EQ(turned, kPreset);
  EXPECT_TRUE(GXGeometry::Rotate3DPoint(axis, kPi / 2, Point(1, 0, 3), turned));
  EXPECT_POINT_NEAR(turned, Point(0, 1, 3), 1e-12);
}

// Frames.

Frame RowsOf(const GXColBasedTransformMatrix& m) {
  return {Of(m.Base[0]), Of(m.Base[1]), Of(m.Base[2])};
}
Frame RowsOf(const GXMatrix& m) { return {Of(m.Base[0]), Of(m.Base[1]), Of(m.Base[2])}; }

// Entries of at most 1; the points span angles of 0.1 and more, so that a few roundings of 1e-14
// in the differences of coordinates grow to 1e-13.
constexpr double kFrameBound = 1e-12;

/// Three points that are not nearly in line.
struct Corner {
  explicit Corner(support::Random& random) : origin(random.Point3D(100)) {
    const Axes axes(random);
    const double angle = random.Between(0.1, kPi - 0.1);
    onX = Moved(origin, random.Between(1, 50), axes.x);
    inPlane = axes.OnCircle(origin, random.Between(1, 50), angle);
  }
  GX3DPoint origin;
  GX3DPoint onX;
  GX3DPoint inPlane;
};

TEST(LambdaBesideClass, HasTheBaseVectorsOfBothMatrixClassesAsRows) {
  support::Random random;
  for (int i = 0; i < kRounds; ++i) {
    const Corner c(random);
    Frame frame = kUnwrittenFrame;
    ASSERT_EQ(Lambda(Of(c.origin), Of(c.onX), Of(c.inPlane), frame), 1) << i;
    const GXColBasedTransformMatrix columns(c.origin, c.onX, c.inPlane);
    const GXMatrix rows(c.origin, c.onX, c.inPlane);
    ASSERT_POINT_NEAR(frame, RowsOf(columns), kFrameBound) << i;
    ASSERT_POINT_NEAR(frame, RowsOf(rows), kFrameBound) << i;
  }
}

TEST(LambdaBesideClass, LeavesTwoRowsAloneForPointsInLineWhereTheClassKeepsTheOffsets) {
  const GX3DPoint origin(1, 1, 1);
  Frame frame = kUnwrittenFrame;
  EXPECT_EQ(Lambda(Of(origin), Vec(3, 1, 1), Vec(5, 1, 1), frame), 0);
  EXPECT_POINT_EQ(frame, Frame(Vec(1, 0, 0), kUnwrittenFrame.Row(1), kUnwrittenFrame.Row(2)));
  const GXColBasedTransformMatrix columns(origin, Point(3, 1, 1), Point(5, 1, 1));
  EXPECT_POINT_EQ(RowsOf(columns), Frame(Vec(2, 0, 0), Vec(4, 0, 0), Vec(0, 0, 0)));
}

TEST(GlolocBesideClass, GoesIntoTheFrameAndBackLikeBothMatrixClasses) {
  support::Random random;
  for (int i = 0; i < kRounds; ++i) {
    const Corner c(random);
    const GX3DPoint p = random.Point3D(100);
    Frame frame = kUnwrittenFrame;
    Frame inverse = kUnwrittenFrame;
    ASSERT_EQ(Lambda(Of(c.origin), Of(c.onX), Of(c.inPlane), frame), 1) << i;
    ASSERT_EQ(Invmat(frame, inverse), 1) << i;
    Vec local = kUnwritten;
    Vec global = kUnwritten;
    Gloloc(Of(p), local, Of(c.origin), frame);
    Locglo(local, global, Of(c.origin), inverse);
    // Ways of up to 350 through frames that agree to kFrameBound.
    ASSERT_POINT_NEAR(global, Of(p), 1e-9) << i;

    GX3DPoint byColumns = p;
    byColumns.TransformGloLoc(c.origin, GXColBasedTransformMatrix(c.origin, c.onX, c.inPlane));
    ASSERT_POINT_NEAR(local, Of(byColumns), 1e-9) << i;
    GX3DPoint byRows = p;
    byRows.TransformGloLoc(c.origin, GXMatrix(c.origin, c.onX, c.inPlane));
    ASSERT_POINT_NEAR(local, Of(byRows), 1e-9) << i;
    byRows.TransformLocGlo(c.origin, GXMatrix(c.origin, c.onX, c.inPlane).GetInverse());
    ASSERT_POINT_NEAR(global, Of(byRows), 1e-9) << i;
  }
}

TEST(InvmatBesideClass, InvertsAnyMatrixOfPositiveDeterminantLikeBothMatrixClasses) {
  support::Random random;
  int inverted = 0;
  for (int i = 0; i < kRounds; ++i) {
    Frame m(Of(random.Point3D(2)), Of(random.Point3D(2)), Of(random.Point3D(2)));
    const double determinant = support::Dot(m.Row(0), support::Cross(m.Row(1), m.Row(2)));
    if (std::fabs(determinant) < 0.1) continue;
    Frame inverse = kUnwrittenFrame;
    GXColBasedTransformMatrix columns(m);
    GXMatrix rows(m.rows[0][0], m.rows[0][1], m.rows[0][2], m.rows[1][0], m.rows[1][1],
                  m.rows[1][2], m.rows[2][0], m.rows[2][1], m.rows[2][2]);
    ASSERT_EQ(Invmat(m, inverse), determinant > 0 ? 1 : 0) << i;
    ASSERT_EQ(columns.Inverse(), determinant > 0) << i;
    ASSERT_EQ(rows.Inverse(), determinant > 0) << i;
    // Minors of up to 8 over 0.1: entries to 80 that carry some 1e-15 / 0.1 of their size.
    ASSERT_POINT_NEAR(RowsOf(columns), determinant > 0 ? inverse : m, 1e-11) << i;
    ASSERT_POINT_NEAR(RowsOf(rows), determinant > 0 ? inverse : m, 1e-11) << i;
    if (determinant > 0) {
      ++inverted;
    } else {
      ASSERT_POINT_EQ(inverse, kUnwrittenFrame) << i;
    }
  }
  EXPECT_GE(inverted, kEnough);
}

}  // namespace
