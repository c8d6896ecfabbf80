#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Turn.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::Arc;
using support::Arc3D;
using support::ArcByAngles;
using support::Circle;
using support::Point;

constexpr double kPi = support::kPi;
constexpr double kFullTurn = 6.283185307179586;
const double kHalfRoot = std::sqrt(0.5);

/// An arc of radius and sweep in a plane given by two perpendicular unit vectors.
struct ArcInSpace {
  GX3DPoint centre;
  GXVector u;
  GXVector v;
  double radius;
  double sweep;

  GX3DPoint At(double t) const {
    const double angle = sweep * t;
    return centre + u * (radius * std::cos(angle)) + v * (radius * std::sin(angle));
  }
  GX3DArc Arc() const { return GX3DArc(centre, At(0), At(0.5), At(1)); }
};

/// Any plane; turning one of the axes round turns the sense round.
ArcInSpace RandomArcInSpace(support::Random& random, double sweep) {
  GXVector u = random.Vector3D(1);
  u.Standard();
  GXVector v = random.Vector3D(1) * u;
  v.Standard();
  return {random.Point3D(100), u, v, random.Between(1, 50), sweep};
}

/// What rounding does to an angle at the centre: coordinates up to 150 carry 3e-14, the directions
/// of the radii a dozen times that over the radius, and the arc cosine 1 / sin of the angle.
double AngleBound(double radius, double angle) {
  return 12 * 3e-14 / radius / std::fmax(std::fabs(std::sin(angle)), 1e-2) + 1e-14;
}

double Sweep(const GX3DPoint& s, const GX3DPoint& m, const GX3DPoint& e) {
  return GXGeometry::GetArcAngleRad(GX3DArc(Point(0, 0, 0), s, m, e));
}

/// The sweep from the bearings of the three points in the plane of start and mid, by atan2.
double SweepByBearings(const GX3DArc& arc) {
  using support::Cross;
  using support::Dot;
  using support::Length;
  const support::Triple start = support::Offset(arc.Center, arc.Start);
  const support::Triple mid = support::Offset(arc.Center, arc.Mid);
  const support::Triple end = support::Offset(arc.Center, arc.End);
  const support::Triple normal = Cross(start, mid);
  const support::Triple quarter = Cross(normal, start);
  const long double angle =
      std::atan2(Dot(end, quarter) / Length(quarter), Dot(end, start) / Length(start));
  return static_cast<double>(angle < 0 ? angle + 2 * std::acos(-1.0L) : angle);
}

TEST(GetArcAngleRad, AgreesWithBearingsForEverySweepAndSense) {
  support::Random random;
  for (int degrees = 1; degrees <= 359; ++degrees) {
    for (const int sense : {1, -1}) {
      const double sweep = sense * degrees * kPi / 180;
      const ArcInSpace spatial = RandomArcInSpace(random, sweep);
      const double bound = AngleBound(spatial.radius, sweep);
      const double angle = GXGeometry::GetArcAngleRad(spatial.Arc());
      EXPECT_NEAR(angle, degrees * kPi / 180, bound);
      EXPECT_NEAR(angle, SweepByBearings(spatial.Arc()), bound);
      const GX2DPoint c = random.Point2D(100);
      const GX2DArc flat =
          ArcByAngles(c.X, c.Y, spatial.radius, random.Between(0, 360), sense * double(degrees));
      EXPECT_NEAR(GXGeometry::GetArcAngleRad(GX3DArc(flat, 2)), degrees * kPi / 180, bound);
    }
  }
}

TEST(GetArcAngleRad, MidMayStandAnywhereOnItsSide) {
  const GX3DPoint s(1, 0, 0), e(0, 1, 0);
  EXPECT_NEAR(Sweep(s, Point(0.3, 0.1, 0), e), kPi / 2, 1e-15);
  EXPECT_NEAR(Sweep(s, Point(-50, 9, 0), e), kPi / 2, 1e-15);
  EXPECT_NEAR(Sweep(s, Point(0.3, -0.1, 0), e), 3 * kPi / 2, 1e-15);
}

TEST(GetArcAngleRad, EqualStartAndEndOrMidAndEndAreAFullTurn) {
  const GX3DPoint s(1, 0, 0), m(0, 1, 0);
  EXPECT_EQ(Sweep(s, m, Point(1 - 0.00009, 0.0001, -0.0001)), kFullTurn);
  EXPECT_EQ(Sweep(s, m, m), kFullTurn);
  EXPECT_EQ(Sweep(s, m, Point(0.0001, 1 - 0.00009, 0.0001)), kFullTurn);
  // A full turn is answered before the plane is looked at.
  EXPECT_EQ(Sweep(s, Point(5, 0, 0), s), kFullTurn);
  EXPECT_EQ(Sweep(Point(0, 0, 0), Point(0, 0, 0), Point(0, 0, 0)), kFullTurn);
}

TEST(GetArcAngleRad, WithoutAPlaneIs0UpToACrossProductOf0_0001) {
  const GX3DPoint s(1, 0, 0), e(0, 1, 0);
  EXPECT_EQ(Sweep(s, Point(-1, 0, 0), e), 0.0);
  EXPECT_EQ(Sweep(s, Point(0, 0.0001, 0), e), 0.0);
  EXPECT_NEAR(Sweep(s, Point(0, std::nextafter(0.0001, 1), 0), e), kPi / 2, 1e-15);
}

TEST(GetArcAngleRad, OfAnArcWithRadius0_01IsAlways0) {
  EXPECT_EQ(GXGeometry::GetArcAngleRad(Arc3D(ArcByAngles(0, 0, 0.0099, 0, 180), 0)), 0.0);
  EXPECT_NEAR(GXGeometry::GetArcAngleRad(Arc3D(ArcByAngles(0, 0, 0.02, 0, 180), 0)), kPi, 1e-14);
}

TEST(GetArcAngleRad, EndBesideStartOnOneRayIs0) {
  const GX3DPoint s(1, 0, 0), clockwise(0, -1, 0);
  EXPECT_EQ(Sweep(s, clockwise, Point(0.5, 0, 0)), 0.0);
  EXPECT_EQ(Sweep(s, clockwise, Point(0.5, 0.0001, 0)), 0.0);
  // A little further the end lies almost a full turn ahead; its angle of 0.0004 counts as 0.
  EXPECT_EQ(Sweep(s, clockwise, Point(0.5, 0.0002, 0)), kFullTurn);
}

TEST(GetArcAngleRad, ASmallCrossProductOutweighsAnAngleThatIsNotSmall) {
  // The end is so near the centre that its cross product with the start stays at 0.00005, though it
  // is 0.005 off the line of start and centre: on the side of the start that is no sweep, on the
  // other side half a turn less 0.005, whichever way the arc runs.
  const GX3DPoint s(1, 0, 0), counter(0, 1, 0), clock(0, -1, 0);
  EXPECT_EQ(Sweep(s, counter, Point(0.01, 0.00005, 0)), 0.0);
  EXPECT_EQ(Sweep(s, clock, Point(0.01, 0.00005, 0)), 0.0);
  EXPECT_NEAR(Sweep(s, counter, Point(-0.01, 0.00005, 0)), kPi - std::atan(0.005), 1e-13);
  EXPECT_NEAR(Sweep(s, clock, Point(-0.01, 0.00005, 0)), kPi - std::atan(0.005), 1e-13);
}

TEST(GetArcAngleRad, HalfACircleIsPi) {
  const GX3DPoint s(1, 0, 0), opposite(-1, 0, 0);
  EXPECT_EQ(Sweep(s, Point(0, 1, 0), opposite), std::acos(-1.0));
  EXPECT_EQ(Sweep(s, Point(0, -1, 0), opposite), std::acos(-1.0));
  EXPECT_EQ(Sweep(s, Point(0, 0, 2), opposite), std::acos(-1.0));
}

TEST(GetArcAngleRad, DoesNotTestTheErrorValueOfTheAngle) {
  // The radius is not above 0.0001, so the angle of the radii is -1; the plane is there all the
  // same.
  const GX3DPoint s(0.0001, 0, 0), e(0, 2, 0);
  EXPECT_EQ(Sweep(s, Point(0, 10, 0), e), -1.0);
  EXPECT_EQ(Sweep(s, Point(0, -10, 0), e), kFullTurn + 1.0);
}

TEST(PointParametricOnArc2D, IsTheShareOfTheSweep) {
  const GX2DArc quarter = ArcByAngles(0, 0, 2, 0, 90);
  const auto at = [&](double degrees) {
    return GXGeometry::PointParametricOnArc(support::OnCircle(0, 0, 2, degrees), quarter, false);
  };
  EXPECT_EQ(at(0), 0.0);
  EXPECT_NEAR(at(90), 1.0, 1e-15);
  EXPECT_NEAR(at(45), 0.5, 1e-15);  // the very point of mid
  EXPECT_NEAR(at(30), 1.0 / 3, 1e-15);
  EXPECT_NEAR(at(180), 2.0, 1e-14);
  EXPECT_NEAR(at(-90), 3.0, 1e-14);
}

TEST(PointParametricOnArc2D, PaysNoHeedToItsFlag) {
  const GX2DArc arc = ArcByAngles(1, 2, 3, 40, -200);
  for (const double degrees : {0.0, 33.0, -120.0}) {
    const GX2DPoint p = support::OnCircle(1, 2, 3, degrees);
    EXPECT_EQ(GXGeometry::PointParametricOnArc(p, arc, false),
              GXGeometry::PointParametricOnArc(p, arc, true));
  }
}

TEST(PointParametricOnArc2D, ACircleIsAFullTurnInTheSenseOfMid) {
  const GX2DPoint down(0, -2);
  EXPECT_NEAR(GXGeometry::PointParametricOnArc(down, Circle(0, 0, 2), false), 0.75, 1e-15);
  EXPECT_NEAR(GXGeometry::PointParametricOnArc(down, Circle(0, 0, 2, true), false), 0.25, 1e-15);
  EXPECT_NEAR(GXGeometry::PointParametricOnArc(down, Arc(0, 0, 2, 0, 0, 2, 0, 2), false), 0.75,
              1e-15);
}

TEST(PointParametricOnArc2D, IsZeroWithin0_0001OfTheStartEvenWithoutASweep) {
  const GX2DArc none = Arc(5, 5, 0, 0, 10, 10, 0, 10);  // start, centre and mid in line
  EXPECT_EQ(GXGeometry::PointParametricOnArc(Point(0.0001, -0.0001), none, false), 0.0);
  EXPECT_EQ(GXGeometry::PointParametricOnArc(Point(std::nextafter(0.0001, 1), 0), none, false),
            99999.0);
}

TEST(PointParametricOnArc2D, Is99999WithoutASweep) {
  EXPECT_EQ(GXGeometry::PointParametricOnArc(Point(0, 1), Arc(0, 0, 1, 0, -1, 0, 0, 1), false),
            99999.0);
  EXPECT_EQ(
      GXGeometry::PointParametricOnArc(Point(0, 0.005), ArcByAngles(0, 0, 0.005, 0, 180), false),
      99999.0);
}

TEST(PointParametricOnArc2D, APointHalfWayToMidIsTakenForAFullTurn) {
  const GX2DArc quarter = Arc(0, 0, 2, 0, 2 * kHalfRoot, 2 * kHalfRoot, 0, 2);
  EXPECT_NEAR(GXGeometry::PointParametricOnArc(Point(kHalfRoot, kHalfRoot), quarter, false), 4.0,
              1e-14);
}

TEST(PointParametricOnArc2D, OfACircleWithMidOnTheCentreIs0) {
  EXPECT_EQ(GXGeometry::PointParametricOnArc(Point(0, 1), Arc(0, 0, 1, 0, 0, 0, 1, 0), false), 0.0);
}

TEST(PointParametricOnArc3D, IsTheShareOfTheSweep) {
  const GX3DArc quarter = Arc3D(ArcByAngles(0, 0, 2, 0, 90), 7);
  const auto at = [&](double degrees) {
    const GX2DPoint p = support::OnCircle(0, 0, 2, degrees);
    return GXGeometry::PointParametricOnArc(Point(p.X, p.Y, 7), quarter);
  };
  EXPECT_EQ(at(0), 0.0);
  EXPECT_NEAR(at(90), 1.0, 1e-15);
  EXPECT_NEAR(at(45), 0.5, 1e-15);
  EXPECT_NEAR(at(30), 1.0 / 3, 1e-15);
  EXPECT_NEAR(at(180), 2.0, 1e-14);
  EXPECT_NEAR(at(-90), 3.0, 1e-14);
}

TEST(PointParametricOnArc3D, ACircleWithEqualStartAndEndAnswers0Everywhere) {
  const GX3DArc circle = Arc3D(Circle(0, 0, 2), 0);
  EXPECT_EQ(GXGeometry::PointParametricOnArc(Point(0, 2, 0), circle), 0.0);
  EXPECT_EQ(GXGeometry::PointParametricOnArc(Point(0, -2, 0), circle), 0.0);
}

TEST(PointParametricOnArc3D, ACircleWithEqualMidAndEndIsAFullTurn) {
  const GX3DArc circle = Arc3D(Arc(0, 0, 2, 0, 0, 2, 0, 2), 0);
  EXPECT_NEAR(GXGeometry::PointParametricOnArc(Point(0, 2, 0), circle), 0.25, 1e-15);
  EXPECT_NEAR(GXGeometry::PointParametricOnArc(Point(0, -2, 0), circle), 0.75, 1e-15);
}

TEST(PointParametricOnArc3D, WorksForSmallRadiiWhereTheFlatFormGivesUp) {
  const GX2DArc flat = ArcByAngles(0, 0, 0.005, 0, 90);
  EXPECT_NEAR(GXGeometry::PointParametricOnArc(GX3DPoint(flat.Mid, 2), GX3DArc(flat, 2)), 0.5,
              1e-13);
  EXPECT_EQ(GXGeometry::PointParametricOnArc(flat.Mid, flat, false), 99999.0);
}

TEST(PointParametricOnArc3D, WithoutAPlaneOrASweepIs0) {
  const GX3DPoint c(0, 0, 0), s(1, 0, 0), p(0, 1, 0);
  EXPECT_EQ(GXGeometry::PointParametricOnArc(p, GX3DArc(c, s, Point(-1, 0, 0), p)), 0.0);
  EXPECT_EQ(GXGeometry::PointParametricOnArc(p, GX3DArc(c, s, p, Point(5, 0, 0))), 0.0);
  // A sweep of 0.001 counts as parallel radii: no sweep here, the failure value in the plane.
  const GX2DArc thin = Arc(0, 0, 10, 0, 0, 10, 10 * std::cos(0.001), 10 * std::sin(0.001));
  EXPECT_EQ(GXGeometry::PointParametricOnArc(Point(0, 10, 0), GX3DArc(thin, 2)), 0.0);
  EXPECT_EQ(GXGeometry::PointParametricOnArc(Point(0, 10), thin, false), 99999.0);
}

TEST(PointParametricOnArc3D, APointInLineWithStartAndCentreIsHalfATurnAheadOr0) {
  const GX3DArc arc = Arc3D(ArcByAngles(0, 0, 2, 0, 270), 0);
  EXPECT_NEAR(GXGeometry::PointParametricOnArc(Point(-2, 0, 0), arc), 2.0 / 3, 1e-15);
  EXPECT_NEAR(GXGeometry::PointParametricOnArc(Point(-9, 0, 0), arc), 2.0 / 3, 1e-15);
  EXPECT_EQ(GXGeometry::PointParametricOnArc(Point(9, 0, 0), arc), 0.0);
  EXPECT_EQ(GXGeometry::PointParametricOnArc(Point(0, 0, 0), arc), 0.0);
}

TEST(PointParametricOnArc3D, AgreesWithTheFlatFormAndTheClosedForm) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const GX2DPoint c = random.Point2D(100);
    const double radius = random.Between(1, 50);
    const double from = random.Between(0, 360);
    const double degrees = random.Between(5, 175) + (random.Bool() ? 180 : 0);
    const double sweep = random.Bool() ? degrees : -degrees;
    const double t = random.Between(0.05, 0.95);
    if (std::fabs(degrees * t - 180) < 1) {
      continue;  // angles of less than 0.0015 to half a turn count as half a turn
    }
    const GX2DArc flat = ArcByAngles(c.X, c.Y, radius, from, sweep);
    const GX2DPoint p = support::OnCircle(c.X, c.Y, radius, from + sweep * t);
    const double bound = 4 * AngleBound(radius, degrees * t * kPi / 180) +
                         4 * AngleBound(radius, degrees * kPi / 180);
    EXPECT_NEAR(GXGeometry::PointParametricOnArc(p, flat, false), t, bound * 12);
    EXPECT_NEAR(GXGeometry::PointParametricOnArc(GX3DPoint(p, 2), GX3DArc(flat, 2)), t, bound * 12);
  }
}

TEST(GetParametricPointOn3DArc, AgreesWithTheClosedForm) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const double sweep = random.Between(5, 175) * kPi / 180 + (random.Bool() ? kPi : 0);
    const ArcInSpace spatial = RandomArcInSpace(random, random.Bool() ? sweep : -sweep);
    const double t = random.Between(-0.5, 1.5);
    GX3DPoint out;
    ASSERT_TRUE(GXGeometry::GetParametricPointOn3DArc(out, t, spatial.Arc()));
    GXVector normal = spatial.Arc().GetNormal();
    const GX3DLine axis(spatial.centre, spatial.centre + normal);
    // The axis is a difference of numbers up to 100, so its direction is wrong by 3e-14; the sine
    // of half the sweep, between start and mid, divides the error of the normal.
    const double bound = support::TurnBound(axis, spatial.Arc().Start) +
                         spatial.radius * 1.5 * AngleBound(spatial.radius, sweep) +
                         spatial.radius * 2e-13 / std::sin(sweep / 2) + 1e-12;
    EXPECT_POINT_NEAR(out, spatial.At(t), bound);
  }
}

TEST(GetParametricPointOn2DArc, AgreesWithTheClosedFormAndTheSpatialForm) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const GX2DPoint c = random.Point2D(100);
    const double radius = random.Between(1, 50);
    const double from = random.Between(0, 360);
    const double degrees = random.Between(5, 175) + (random.Bool() ? 180 : 0);
    const double sweep = random.Bool() ? degrees : -degrees;
    const double t = random.Between(-0.5, 1.5);
    const GX2DArc flat = ArcByAngles(c.X, c.Y, radius, from, sweep);
    GX2DPoint out;
    ASSERT_TRUE(GXGeometry::GetParametricPointOn2DArc(out, t, flat));
    const double bound = radius * 2 * AngleBound(radius, degrees * kPi / 180) + 1e-12;
    EXPECT_POINT_NEAR(out, support::OnCircle(c.X, c.Y, radius, from + sweep * t), bound);
    GX3DPoint spatial;
    ASSERT_TRUE(GXGeometry::GetParametricPointOn3DArc(spatial, t, GX3DArc(flat, 2)));
    EXPECT_POINT_EQ(out, GX2DPoint(spatial, 2));
  }
}

TEST(GetParametricPointOn2DArc, ACircleRunsAFullTurnInTheSenseOfMid) {
  GX2DPoint out;
  EXPECT_TRUE(GXGeometry::GetParametricPointOn2DArc(out, 0.25, Circle(1, 1, 2)));
  EXPECT_POINT_NEAR(out, Point(1, 3), 1e-14);
  EXPECT_TRUE(GXGeometry::GetParametricPointOn2DArc(out, 0.25, Circle(1, 1, 2, true)));
  EXPECT_POINT_NEAR(out, Point(1, -1), 1e-14);
  EXPECT_TRUE(GXGeometry::GetParametricPointOn2DArc(out, 1, Circle(1, 1, 2)));
  EXPECT_POINT_NEAR(out, Point(3, 1), 1e-14);
}

TEST(GetParametricPointOnAnArc, WithoutAPlaneWritesNothingUpToACrossProductOf0_0001) {
  const auto withMid = [](double y) { return Arc(0, 0, 1, 0, 0, y, 0, 1); };
  GX2DPoint flat(-77, -78);
  GX3DPoint spatial(-77, -78, -79);
  EXPECT_FALSE(GXGeometry::GetParametricPointOn2DArc(flat, 0.5, withMid(0.0001)));
  EXPECT_FALSE(GXGeometry::GetParametricPointOn3DArc(spatial, 0.5, GX3DArc(withMid(0.0001), 2)));
  EXPECT_POINT_EQ(flat, Point(-77, -78));
  EXPECT_POINT_EQ(spatial, Point(-77, -78, -79));
  const double above = std::nextafter(0.0001, 1);
  EXPECT_TRUE(GXGeometry::GetParametricPointOn2DArc(flat, 0.5, withMid(above)));
  EXPECT_POINT_NEAR(flat, Point(kHalfRoot, kHalfRoot), 1e-14);
}

TEST(GetParametricPointOnAnArc, AboutTheFixedPointIsTrueWithTheOldOutput) {
  const GX2DArc arc = ArcByAngles(1234.1234, 5678.5678, 10, 0, 90);
  GX2DPoint flat(-77, -78);
  GX3DPoint spatial(-77, -78, -79);
  EXPECT_TRUE(GXGeometry::GetParametricPointOn2DArc(flat, 0.5, arc));
  EXPECT_TRUE(GXGeometry::GetParametricPointOn3DArc(spatial, 0.5, GX3DArc(arc, 2)));
  EXPECT_POINT_EQ(flat, Point(-77, -78));
  EXPECT_POINT_EQ(spatial, Point(-77, -78, -79));
}

TEST(GetParametricPointOnAnArc, TheOutputMayBeAPointOfTheArc) {
  GX2DArc flat = ArcByAngles(1, 1, 2, 0, 90);
  EXPECT_TRUE(GXGeometry::GetParametricPointOn2DArc(flat.Start, 1.0, flat));
  EXPECT_POINT_NEAR(flat.Start, Point(1, 3), 1e-14);
  GX3DArc spatial = Arc3D(ArcByAngles(1, 1, 2, 0, 90), 5);
  EXPECT_TRUE(GXGeometry::GetParametricPointOn3DArc(spatial.Center, 1.0, spatial));
  EXPECT_POINT_NEAR(spatial.Center, Point(1, 3, 5), 1e-14);
}

TEST(Point2DOnArc, TakesPointsOfTheArcAndNoOthersOfTheCircle) {
  const GX2DArc arc = ArcByAngles(10, 20, 5, 0, -100);
  EXPECT_TRUE(GXGeometry::Point2DOnArc(arc, arc.Start));
  EXPECT_TRUE(GXGeometry::Point2DOnArc(arc, arc.End));
  EXPECT_TRUE(GXGeometry::Point2DOnArc(arc, support::OnCircle(10, 20, 5, -50)));
  EXPECT_FALSE(GXGeometry::Point2DOnArc(arc, support::OnCircle(10, 20, 5, 1)));
  EXPECT_FALSE(GXGeometry::Point2DOnArc(arc, support::OnCircle(10, 20, 5, -101)));
}

TEST(Point2DOnArc, AdmitsARadiusOffBy0_00001) {
  const GX2DArc circle = Circle(0, 0, 1);
  EXPECT_TRUE(GXGeometry::Point2DOnArc(circle, Point(0, 1.0000099)));
  EXPECT_TRUE(GXGeometry::Point2DOnArc(circle, Point(0, 0.9999901)));
  EXPECT_FALSE(GXGeometry::Point2DOnArc(circle, Point(0, 1.0000101)));
  EXPECT_FALSE(GXGeometry::Point2DOnArc(circle, Point(0, 0.9999899)));
}

TEST(Point2DOnArc, TheRadiusLimitIsInclusive) {
  // A radius and its double differ by the radius itself, to the bit: 0.00001 against 0.00002. A
  // circle that small has no sweep, and a point at its start has the parameter 0.
  const double limit = 0.00001;
  const double above = std::nextafter(limit, 1);
  EXPECT_TRUE(GXGeometry::Point2DOnArc(Circle(0, 0, limit), Point(2 * limit, 0)));
  EXPECT_FALSE(GXGeometry::Point2DOnArc(Circle(0, 0, above), Point(2 * above, 0)));
}

TEST(Point2DOnArc, AdmitsAParameterUpTo1_00001) {
  const GX2DArc arc = ArcByAngles(0, 0, 100, 0, 90);
  EXPECT_TRUE(GXGeometry::Point2DOnArc(arc, support::OnCircle(0, 0, 100, 90 * 1.0000099)));
  EXPECT_FALSE(GXGeometry::Point2DOnArc(arc, support::OnCircle(0, 0, 100, 90 * 1.0000101)));
}

TEST(Point3DOnArc, WantsAParameterBelow0_99999) {
  // On this arc 0.00001 of the sweep is 0.0016 long, far beyond the 0.0001 about the end.
  const GX3DArc arc = Arc3D(ArcByAngles(0, 0, 100, 0, 90), 3);
  const auto at = [&](double t) {
    const GX2DPoint p = support::OnCircle(0, 0, 100, 90 * t);
    return GXGeometry::Point3DOnArc(arc, Point(p.X, p.Y, 3));
  };
  EXPECT_TRUE(at(0.5));
  EXPECT_TRUE(at(0.9999899));
  EXPECT_FALSE(at(0.9999901));
  EXPECT_FALSE(at(0.999999));
  EXPECT_TRUE(at(1));
  EXPECT_FALSE(at(1.000005));
}

TEST(Point3DOnArc, DiffersFromItsTwinShortlyBeforeTheEnd) {
  const GX2DArc flat = ArcByAngles(0, 0, 100, 0, 90);
  const GX2DPoint p = support::OnCircle(0, 0, 100, 90 * 0.999995);
  EXPECT_TRUE(GXGeometry::Point2DOnArc(flat, p));
  EXPECT_FALSE(GXGeometry::Point3DOnArc(GX3DArc(flat, 2), GX3DPoint(p, 2)));
}

TEST(Point3DOnArc, TakesPointsWithin0_0001OfEitherEndBeforeAnythingElse) {
  const GX3DArc arc(Point(0, 0, 0), Point(1, 0, 0), Point(0.5, 0.5, 0), Point(0, 7, 0));
  EXPECT_TRUE(GXGeometry::Point3DOnArc(arc, Point(1.00009, 0.0001, -0.0001)));
  EXPECT_TRUE(GXGeometry::Point3DOnArc(arc, Point(0.0001, 7, 0)));  // far off the radius
  EXPECT_FALSE(GXGeometry::Point3DOnArc(arc, Point(std::nextafter(0.0001, 1), 7, 0)));
  const GX2DArc flat(arc, 2);
  EXPECT_FALSE(GXGeometry::Point2DOnArc(flat, Point(1.00009, 0.0001)));
  EXPECT_FALSE(GXGeometry::Point2DOnArc(flat, Point(0.0001, 7)));
}

TEST(Point3DOnArc, AdmitsARadiusOffBy0_00001) {
  const GX3DArc arc = Arc3D(ArcByAngles(0, 0, 1, 0, 180), 0);
  EXPECT_TRUE(GXGeometry::Point3DOnArc(arc, Point(0, 1.0000099, 0)));
  EXPECT_FALSE(GXGeometry::Point3DOnArc(arc, Point(0, 1.0000101, 0)));
  EXPECT_FALSE(GXGeometry::Point3DOnArc(arc, Point(0, 0.9999899, 0)));
}

TEST(Point2DOnArc, OfAZeroAngleHoldsOnlyAtTheStart) {
  const GX2DArc none = Arc(0, 0, 1, 0, -1, 0, 0, 1);
  EXPECT_TRUE(GXGeometry::Point2DOnArc(none, Point(1, 0)));
  EXPECT_FALSE(GXGeometry::Point2DOnArc(none, Point(0, 1)));
  EXPECT_FALSE(GXGeometry::Point2DOnArc(none, Point(-1, 0)));
}

TEST(Point3DOnArc, OfAZeroAngleHoldsOnTheWholeCircle) {
  // Its parameter is 0 there, not the failure value.
  const GX3DArc none = Arc3D(Arc(0, 0, 1, 0, -1, 0, 0, 1), 0);
  EXPECT_TRUE(GXGeometry::Point3DOnArc(none, Point(-1, 0, 0)));
  EXPECT_FALSE(GXGeometry::Point3DOnArc(none, Point(-2, 0, 0)));
}

TEST(Point2DOnArc, TellsPointsOnRandomArcsFromPointsBesideThem) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const GX2DPoint c = random.Point2D(100);
    const double radius = random.Between(1, 50);
    const double from = random.Between(0, 360);
    const double degrees = random.Between(1, 350);
    const double sweep = random.Bool() ? degrees : -degrees;
    const GX2DArc arc = ArcByAngles(c.X, c.Y, radius, from, sweep);
    const double on = random.Between(0.01, 0.99) * sweep;
    // Half a degree is more than the 0.0015 rad that count as parallel or opposite.
    const double gap = random.Between(0.5, 359.5 - degrees);
    const double off = sweep + (sweep > 0 ? gap : -gap);
    EXPECT_TRUE(GXGeometry::Point2DOnArc(arc, support::OnCircle(c.X, c.Y, radius, from + on)));
    EXPECT_FALSE(GXGeometry::Point2DOnArc(arc, support::OnCircle(c.X, c.Y, radius, from + off)));
  }
}

}  // namespace
