#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using support::Line;
using support::Point;

const GX2DPoint kPreset2D(-77, -78);
const GX3DPoint kPreset3D(-77, -78, -79);
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();

/// The crossing, the preset when there is none.
GX2DPoint Crossing(const GX2DLine& a, const GX2DLine& b) {
  GX2DPoint hit = kPreset2D;
  const bool found = GXGeometry::Get2DLineIntersection(a, b, hit);
  EXPECT_EQ(found, hit != kPreset2D);
  return hit;
}
GX3DPoint Crossing(const GX3DLine& a, const GX3DLine& b) {
  GX3DPoint hit = kPreset3D;
  const bool found = GXGeometry::Get3DLineIntersection(a, b, hit);
  EXPECT_EQ(found, hit != kPreset3D);
  return hit;
}

// Two lines of the plane.

TEST(Get2DLineIntersection, CrossesUnboundedLines) {
  EXPECT_POINT_EQ(Crossing(Line(0, 0, 4, 4), Line(0, 4, 4, 0)), Point(2, 2));
  EXPECT_POINT_EQ(Crossing(Line(0, 0, 1, 1), Line(10, 0, 11, -1)), Point(5, 5));
}

TEST(Get2DLineIntersection, TakesVerticalLinesByTheirStart) {
  EXPECT_POINT_EQ(Crossing(Line(3, 0, 3, 1), Line(0, 0, 1, 2)), Point(3, 6));
  EXPECT_POINT_EQ(Crossing(Line(0, 0, 1, 2), Line(3, 0, 3, 1)), Point(3, 6));
}

TEST(Get2DLineIntersection, FindsNoneForALevelLineAndOneThatHardlyClimbs) {
  EXPECT_POINT_EQ(Crossing(Line(0, 0, 10, 0), Line(0, 0, 1, 0.000005)), kPreset2D);
  EXPECT_POINT_EQ(Crossing(Line(0, 0, 1000000, 5), Line(0, 5, 10, 5)), kPreset2D);
}

TEST(Get2DLineIntersection, WantsSlopesMoreThan0_00001Apart) {
  const GX2DLine level(0, 0, 10, 0);
  EXPECT_POINT_EQ(Crossing(level, Line(0, 0, 1, 0.00001)), kPreset2D);
  EXPECT_POINT_EQ(Crossing(level, Line(0, 0, 1, std::nextafter(0.00001, 1))), Point(0, 0));
}

TEST(Get2DLineIntersection, TellsSteepLinesApartAtSmallerAngles) {
  // Slopes 1000 and 1000.5 differ by half a microradian only; 1000 x = 1000.5 x - 1 at x = 2.
  EXPECT_POINT_NEAR(Crossing(Line(0, 0, 1, 1000), Line(0, -1, 1, 999.5)), Point(2, 2000), 1e-8);
}

TEST(Get2DLineIntersection, FindsNoneForTwoVerticalLinesEvenIfTheyCoincide) {
  EXPECT_POINT_EQ(Crossing(Line(3, 0, 3, 1), Line(5, 0, 5, 1)), kPreset2D);
  EXPECT_POINT_EQ(Crossing(Line(3, 0, 3, 1), Line(3, 0, 3, 1)), kPreset2D);
}

TEST(Get2DLineIntersection, CountsAnExtentOf0_00001InXAsVertical) {
  const GX2DLine level(-1, 3, 1, 3);
  const GX2DLine leaning(0, 0, 0.00001, 5);
  EXPECT_POINT_EQ(Crossing(leaning, level), Point(0, 3));
  EXPECT_POINT_EQ(Crossing(level, leaning), Point(0, 3));
  EXPECT_POINT_EQ(Crossing(leaning, Line(0.00001, 0, 0, 5)), kPreset2D);
  const GX2DLine sloping(0, 0, std::nextafter(0.00001, 1), 5);
  EXPECT_POINT_NEAR(Crossing(sloping, level), Point(0.000006, 3), 1e-10);
  EXPECT_POINT_NEAR(Crossing(level, sloping), Point(0.000006, 3), 1e-10);
}

TEST(Get2DLineIntersection, TakesALineWithoutLengthForAVerticalOne) {
  EXPECT_POINT_EQ(Crossing(Line(2, 7, 2, 7), Line(0, 3, 1, 3)), Point(2, 3));
  EXPECT_POINT_EQ(Crossing(Line(0, 3, 1, 3), Line(2, 7, 2, 7)), Point(2, 3));
}

TEST(Get2DLineIntersection, TakesYFromTheFirstLineInItsOwnOrderOfOperations) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const GX2DLine a(random.Point2D(10), random.Point2D(10));
    const GX2DLine b(random.Point2D(10), random.Point2D(10));
    const double slopeA = (a.End.Y - a.Start.Y) / (a.End.X - a.Start.X);
    const double slopeB = (b.End.Y - b.Start.Y) / (b.End.X - b.Start.X);
    if (std::fabs(a.End.X - a.Start.X) < 0.1 || std::fabs(b.End.X - b.Start.X) < 0.1 ||
        std::fabs(slopeA - slopeB) < 0.1) {
      continue;
    }
    const double heightA = a.Start.Y - a.Start.X * slopeA;
    const double x = (b.Start.Y - b.Start.X * slopeB - heightA) / (slopeA - slopeB);
    EXPECT_POINT_EQ(Crossing(a, b), Point(x, x * slopeA + heightA));
  }
}

TEST(Get2DLineIntersection, TakesYOnTheLineThatIsNotVerticalFromItsStart) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const GX2DLine line(random.Point2D(10), random.Point2D(10));
    const double extent = line.End.X - line.Start.X;
    if (std::fabs(extent) < 0.1) {
      continue;
    }
    const double x = random.Between(-10, 10);
    const double slope = (line.End.Y - line.Start.Y) / extent;
    const GX2DPoint expected(x, x * slope + (line.Start.Y - line.Start.X * slope));
    const GX2DLine upright(x, random.Between(-10, 10), x, random.Between(-10, 10));
    EXPECT_POINT_EQ(Crossing(upright, line), expected);
    EXPECT_POINT_EQ(Crossing(line, upright), expected);
  }
}

TEST(Get2DLineIntersection, AgreesWithDeterminantsInLongDouble) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const GX2DLine a(random.Point2D(100), random.Point2D(100));
    const GX2DLine b(random.Point2D(100), random.Point2D(100));
    const long double ax = static_cast<long double>(a.End.X) - a.Start.X;
    const long double ay = static_cast<long double>(a.End.Y) - a.Start.Y;
    const long double bx = static_cast<long double>(b.End.X) - b.Start.X;
    const long double by = static_cast<long double>(b.End.Y) - b.Start.Y;
    if (std::fabs(ax) < 10 || std::fabs(bx) < 10 || std::fabs(ay / ax - by / bx) < 0.1L) {
      continue;
    }
    const long double t = ((static_cast<long double>(b.Start.X) - a.Start.X) * by -
                           (static_cast<long double>(b.Start.Y) - a.Start.Y) * bx) /
                          (ax * by - ay * bx);
    const GX2DPoint expected(static_cast<double>(a.Start.X + t * ax),
                             static_cast<double>(a.Start.Y + t * ay));
    // Slopes up to 20 and heights up to 2000 carry 5e-13; a tenth in slope makes 5e-12 of it in x,
    // the slope 1e-10 in y.
    EXPECT_POINT_NEAR(Crossing(a, b), expected, 1e-9) << i;
  }
}

TEST(Get2DLineIntersection, MayWriteIntoAnArgument) {
  GX2DLine a(0, 0, 1, 1);
  EXPECT_TRUE(GXGeometry::Get2DLineIntersection(a, Line(10, 0, 11, -1), a.Start));
  EXPECT_POINT_EQ(a, Line(5, 5, 1, 1));
  GX2DLine b(0, 0, 1, 2);
  EXPECT_TRUE(GXGeometry::Get2DLineIntersection(Line(3, 0, 3, 1), b, b.Start));
  EXPECT_POINT_EQ(b, Line(3, 6, 1, 2));
  GX2DLine c(0, 0, 1, 2);
  EXPECT_TRUE(GXGeometry::Get2DLineIntersection(c, Line(3, 0, 3, 1), c.Start));
  EXPECT_POINT_EQ(c, Line(3, 6, 1, 2));
}

// Lines and planes in space.

TEST(Get3DLineIntersection, CrossesUnboundedLinesOfOnePlane) {
  EXPECT_POINT_NEAR(Crossing(Line(0, 0, 7, 1, 1, 7), Line(10, 0, 7, 11, -1, 7)), Point(5, 5, 7),
                    1e-12);
  // In a tilted plane, half way on both.
  EXPECT_POINT_NEAR(Crossing(Line(0, 0, 0, 2, 4, 6), Line(-1, 1, 3, 3, 3, 3)), Point(1, 2, 3),
                    1e-12);
}

TEST(Get3DLineIntersection, TakesTheEndOfTheSecondWhereItsStartLiesOnTheFirst) {
  EXPECT_POINT_NEAR(Crossing(Line(0, 0, 0, 4, 0, 0), Line(3, 0, 0, 5, 0, 6)), Point(3, 0, 0),
                    1e-12);
  EXPECT_POINT_NEAR(Crossing(Line(0, 0, 0, 4, 0, 0), Line(5, 0, 6, 3, 0, 0)), Point(3, 0, 0),
                    1e-12);
}

TEST(Get3DLineIntersection, FindsNoneForLinesInLine) {
  EXPECT_POINT_EQ(Crossing(Line(0, 0, 0, 1, 1, 1), Line(2, 2, 2, 5, 5, 5)), kPreset3D);
  EXPECT_POINT_EQ(Crossing(Line(0, 0, 0, 1, 1, 1), Line(0, 0, 0, 1, 1, 1)), kPreset3D);
}

TEST(Get3DLineIntersection, FindsNoneForParallelLines) {
  EXPECT_POINT_EQ(Crossing(Line(0, 0, 0, 4, 0, 0), Line(1, 2, 3, 9, 2, 3)), kPreset3D);
}

TEST(Get3DLineIntersection, FindsNoneWhereTheFirstHasNoLength) {
  EXPECT_POINT_EQ(Crossing(Line(1, 1, 1, 1, 1, 1), Line(0, 0, 0, 5, 0, 0)), kPreset3D);
}

TEST(Get3DLineIntersection, OfSkewLinesProjectsOnThePlaneWithTheStartOfTheSecond) {
  const GX3DLine a = Line(0, 0, 0, 4, 0, 0);
  // Seen along z the second runs from (1, -1) to (3, 1).
  EXPECT_POINT_NEAR(Crossing(a, Line(1, -1, 0, 3, 1, 5)), Point(2, 0, 0), 1e-12);
  // From the other end the plane holds (3, 1, 5), sqrt(26) high; (1, -1, 0) lies 1 / sqrt(26)
  // below: the crossing is 1 / 27 of the way from there, x = 1 + 2 / 27.
  EXPECT_POINT_NEAR(Crossing(a, Line(3, 1, 5, 1, -1, 0)), Point(1 + 2.0 / 27, 0, 0), 1e-12);
}

TEST(Get3DLineIntersection, TakesAFirstLineUpTo0_00001LongForUprightInItsOwnFrame) {
  // The second is x + y = 6. Along the first it would be met at (6, 0, 0); upright, at (0, 6, 0).
  const GX3DLine b = Line(3, 3, 0, 5, 1, 0);
  EXPECT_POINT_NEAR(Crossing(Line(0, 0, 0, 0.00001, 0, 0), b), Point(0, 6, 0), 1e-12);
  EXPECT_POINT_NEAR(Crossing(Line(0, 0, 0, 0.00002, 0, 0), b), Point(6, 0, 0), 1e-9);
}

TEST(Get3DLineIntersection, MayWriteIntoAnArgument) {
  GX3DLine a = Line(0, 0, 7, 1, 1, 7);
  EXPECT_TRUE(GXGeometry::Get3DLineIntersection(a, Line(10, 0, 7, 11, -1, 7), a.Start));
  EXPECT_POINT_NEAR(a.Start, Point(5, 5, 7), 1e-12);
}

TEST(Get3DLineIntersection, FindsTheCommonPointOfRandomLines) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const GX3DPoint common = random.Point3D(20);
    const GXVector u = random.Vector3D(5);
    const GXVector v = random.Vector3D(5);
    if (u.Len() < 1 || v.Len() < 1 || (u * v).Len() < 0.2 * u.Len() * v.Len()) {
      continue;
    }
    const double s = random.Between(-3, 3);
    const double t = random.Between(-3, 3);
    const GX3DLine a(GXVector(common) + u * s, GXVector(common) + u * (s + 1));
    const GX3DLine b(GXVector(common) + v * t, GXVector(common) + v * (t + 1));
    if (std::fabs(t) < 0.1 || std::fabs(t + 1) < 0.1) {
      continue;  // the frame needs the start of b off a
    }
    // The frame is good to 1e-15 times at most 60 / 0.02, the slope of b in it is above 0.2; b may
    // be upright in it, where the slope form loses most.
    EXPECT_POINT_NEAR(Crossing(a, b), common, 1e-7) << i;
  }
}

/// The crossing step by step, with the public frame: third point, frame, flat crossing, way back.
bool CrossInFrame(const GX3DLine& a, const GX3DLine& b, GX3DPoint& hit) {
  const bool isStartInLine = GXGeometry::PointsInLine(a.Start, a.End, b.Start);
  if (isStartInLine && GXGeometry::PointsInLine(a.Start, a.End, b.End)) return false;
  const GXColBasedTransformMatrix toLocal(a.Start, a.End, isStartInLine ? b.End : b.Start);
  GXColBasedTransformMatrix toGlobal(toLocal);
  toGlobal.Inverse();
  const auto local = [&](GX3DPoint p) {
    p.TransformGloLoc(a.Start, toLocal);
    return GX2DPoint(p.X, p.Y);
  };
  GX2DPoint flat;
  if (!GXGeometry::Get2DLineIntersection(GX2DLine(local(a.Start), local(a.End)),
                                         GX2DLine(local(b.Start), local(b.End)), flat)) {
    return false;
  }
  hit = GX3DPoint(flat.X, flat.Y, 0);
  hit.TransformLocGlo(a.Start, toGlobal);
  return true;
}

bool IsSameNumber(double a, double b) {
  if (std::isnan(a)) return std::isnan(b);
  return a == b && std::signbit(a) == std::signbit(b);
}

TEST(Get3DLineIntersection, GivesTheBitsOfTheFrameOnThreePoints) {
  support::Random random;
  const double sizes[] = {1e-160, 1e-5, 1e-4, 1, 10, 1e3, 1e9, 1e150};
  const double strays[] = {kNaN, kInfinity, -kInfinity, 1e300, -0.0, 5e-324};
  int crossings = 0;
  for (int i = 0; i < 20000; ++i) {
    const double size = sizes[random.Int(0, 7)];
    const bool isGrid = random.Bool();
    const bool hasStrays = random.Int(0, 9) == 0;
    const auto number = [&] {
      if (hasStrays && random.Int(0, 5) == 0) return strays[random.Int(0, 5)];
      return isGrid ? random.Int(-2, 2) * size : random.Between(-size, size);
    };
    GX3DPoint p[4];
    for (GX3DPoint& q : p) {
      q.X = number();
      q.Y = number();
      q.Z = number();
    }
    const GX3DLine a(p[0], p[1]);
    const GX3DLine b(p[2], p[3]);
    GX3DPoint hit = kPreset3D;
    GX3DPoint expected = kPreset3D;
    ASSERT_EQ(GXGeometry::Get3DLineIntersection(a, b, hit), CrossInFrame(a, b, expected)) << i;
    ASSERT_TRUE(IsSameNumber(hit.X, expected.X)) << i;
    ASSERT_TRUE(IsSameNumber(hit.Y, expected.Y)) << i;
    ASSERT_TRUE(IsSameNumber(hit.Z, expected.Z)) << i;
    if (hit != kPreset3D) ++crossings;
  }
  EXPECT_GT(crossings, 5000);
}

TEST(GetLinePlaneIntersection, CrossesTheUnboundedLine) {
  GX3DPoint hit = kPreset3D;
  EXPECT_TRUE(GXGeometry::GetLinePlaneIntersection(Line(1, 2, 9, 1, 2, 8), Point(0, 0, 3),
                                                   Point(1, 0, 3), Point(0, 1, 3), hit));
  EXPECT_POINT_EQ(hit, Point(1, 2, 3));
  // x + y + z = 3 on the way from the origin along (2, 1, 0).
  EXPECT_TRUE(GXGeometry::GetLinePlaneIntersection(Line(0, 0, 0, 2, 1, 0), Point(3, 0, 0),
                                                   Point(0, 3, 0), Point(0, 0, 3), hit));
  EXPECT_POINT_EQ(hit, Point(2, 1, 0));
}

TEST(GetLinePlaneIntersection, LeavesTheHitForALineAlongThePlane) {
  GX3DPoint hit = kPreset3D;
  const GX3DPoint a(0, 0, 3), b(1, 0, 3), c(0, 1, 3);
  EXPECT_FALSE(GXGeometry::GetLinePlaneIntersection(Line(0, 0, 5, 4, 1, 5), a, b, c, hit));
  EXPECT_FALSE(GXGeometry::GetLinePlaneIntersection(Line(0, 0, 3, 4, 1, 3), a, b, c, hit));
  EXPECT_FALSE(GXGeometry::GetLinePlaneIntersection(Line(1, 1, 1, 1, 1, 1), a, b, c, hit));
  EXPECT_FALSE(
      GXGeometry::GetLinePlaneIntersection(Line(0, 0, 0, 1, 1, 1), a, b, Point(2, 0, 3), hit));
  EXPECT_POINT_EQ(hit, kPreset3D);
}

TEST(GetLinePlaneIntersection, HasNoToleranceForLinesAlmostAlongThePlane) {
  GX3DPoint hit = kPreset3D;
  // Rises by 2^-40 per unit, so a plane 1 above is met 2^40 away, exactly.
  const double rise = std::ldexp(1.0, -40);
  EXPECT_TRUE(GXGeometry::GetLinePlaneIntersection(Line(0, 0, 0, 1, 0, rise), Point(0, 0, 1),
                                                   Point(1, 0, 1), Point(0, 1, 1), hit));
  EXPECT_POINT_EQ(hit, Point(std::ldexp(1.0, 40), 0, 1));
}

TEST(GetLinePlaneIntersection, MayWriteIntoAnArgument) {
  GX3DLine line = Line(0, 0, 0, 2, 1, 0);
  EXPECT_TRUE(GXGeometry::GetLinePlaneIntersection(line, Point(3, 0, 0), Point(0, 3, 0),
                                                   Point(0, 0, 3), line.Start));
  EXPECT_POINT_EQ(line.Start, Point(2, 1, 0));
}

TEST(GetLinePlaneIntersection, AgreesWithThePointThatWasChosen) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const GX3DPoint a = random.Point3D(20);
    const GXVector ab = random.Vector3D(10);
    const GXVector ac = random.Vector3D(10);
    const GXVector v = random.Vector3D(10);
    const GXVector normal = ab * ac;
    if (normal.Len() < 5 || std::fabs(normal.dot(v)) < 0.2 * normal.Len()) {
      continue;
    }
    const GXVector common = GXVector(a) + ab * random.Between(-2, 2) + ac * random.Between(-2, 2);
    const double t = random.Between(-3, 3);
    GX3DPoint hit;
    EXPECT_TRUE(GXGeometry::GetLinePlaneIntersection(GX3DLine(common - v * t, common - v * (t - 1)),
                                                     a, GXVector(a) + ab, GXVector(a) + ac, hit));
    // The normal is good to some 1e-14 of 300, on figures below 100, over 0.2 * 5.
    EXPECT_POINT_NEAR(hit, common, 1e-9) << i;
  }
}

TEST(Crossings, SurviveNumbersThatAreNotFinite) {
  for (const double odd : {kNaN, kInfinity, -kInfinity, 1e308}) {
    GX2DPoint flat;
    GX3DPoint hit;
    for (const GX2DLine& line : {Line(odd, 0, 1, 1), Line(0, odd, 1, 1), Line(0, 0, odd, odd)}) {
      GXGeometry::Get2DLineIntersection(line, Line(0, 1, 1, 0), flat);
      GXGeometry::Get2DLineIntersection(Line(0, 1, 1, 0), line, flat);
      GXGeometry::Get3DLineIntersection(GX3DLine(line, 2), Line(0, 1, 0, 1, 0, 1), hit);
      GXGeometry::Get3DLineIntersection(Line(0, 1, 0, 1, 0, 1), GX3DLine(line, 1), hit);
    }
    GXGeometry::GetLinePlaneIntersection(Line(0, 0, odd, 1, 1, 1), Point(odd, 0, 0), Point(0, 1, 0),
                                         Point(0, 0, 1), hit);
  }
}

}  // namespace
