#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <limits>
#include <memory>
#include <type_traits>

namespace {

using support::Point;

static_assert(!std::is_convertible_v<const double*, GX2DPoint>);

TEST(GX2DPoint, IsTheOriginByDefault) {
  const GX2DPoint p;
  EXPECT_SAME_BITS(p.X, 0.0);
  EXPECT_SAME_BITS(p.Y, 0.0);
}

TEST(GX2DPoint, IsMadeFromNumbersVectorsAndArrays) {
  const double entries[3] = {5, 6, 7};
  EXPECT_POINT_EQ(GX2DPoint(1, 2), (std::vector<double>{1, 2}));
  EXPECT_POINT_EQ(GX2DPoint(GX2DVector(3, 4)), Point(3, 4));
  EXPECT_POINT_EQ(GX2DPoint(entries), Point(5, 6));
  EXPECT_POINT_EQ(GX2DPoint(0, 1), Point(0, 1));
}

TEST(GX2DPoint, CopiesAreIndependent) {
  GX2DPoint original(1, 2);
  const GX2DPoint copy(original);
  GX2DPoint assigned;
  assigned = original;
  original.X = 9;
  EXPECT_POINT_EQ(copy, Point(1, 2));
  EXPECT_POINT_EQ(assigned, Point(1, 2));
}

TEST(GX2DPoint, AssignmentToItselfChangesNothing) {
  GX2DPoint p(1, 2);
  const GX2DPoint& same = p;
  p = same;
  EXPECT_POINT_EQ(p, Point(1, 2));
}

TEST(GX2DPoint, CloneIsANewPointOfTheCaller) {
  const GX2DPoint p(1, 2);
  const std::unique_ptr<GX2DElement> clone(p.Clone());
  ASSERT_NE(dynamic_cast<GX2DPoint*>(clone.get()), nullptr);
  EXPECT_NE(clone.get(), &p);
  EXPECT_POINT_EQ(dynamic_cast<GX2DPoint&>(*clone), p);
}

TEST(GX2DPoint, TranslateAddsBothOffsets) {
  GX2DPoint p(1, 2);
  p.Translate(10, -20);
  EXPECT_POINT_EQ(p, Point(11, -18));
}

TEST(GX2DPoint, TranslateByItsOwnCoordinateUsesTheOldOne) {
  GX2DPoint p(3, 5);
  p.Translate(p.X, p.X);
  EXPECT_POINT_EQ(p, Point(6, 8));
}

TEST(GX2DPoint, ScaleByItsOwnCoordinateUsesTheOldOne) {
  GX2DPoint p(3, 5);
  p.Scale(p.X, -1);
  EXPECT_POINT_EQ(p, Point(9, 15));
}

TEST(GX2DPoint, ScaleMultipliesBothCoordinates) {
  GX2DPoint p(1.5, -2);
  p.Scale(3, -1);
  EXPECT_POINT_EQ(p, Point(4.5, -6));
}

TEST(GX2DPoint, ScaleWithNegativeDecimalsNeverRounds) {
  for (const int decimals : {-1, -2, -300, std::numeric_limits<int>::min()}) {
    GX2DPoint p(1234.56789, -0.000123);
    p.Scale(1, decimals);
    EXPECT_POINT_EQ(p, Point(1234.56789, -0.000123)) << decimals;
  }
}

TEST(GX2DPoint, ScaleWithNoDecimalsRoundsToWholeNumbers) {
  GX2DPoint p(1.25, -1.2);
  p.Scale(2, 0);
  EXPECT_POINT_EQ(p, Point(3, -2));  // 2.5 goes away from zero, -2.4 to the nearest
}

TEST(GX2DPoint, ScaleRoundsAfterMultiplying) {
  GX2DPoint p(1.04, 2.06);
  p.Scale(10, 1);
  EXPECT_POINT_EQ(p, Point(10.4, 20.6));
}

TEST(GX2DPoint, ScaleXAndScaleYTouchOneCoordinateEach) {
  GX2DPoint p(1.26, 1.26);
  p.ScaleX(1, 1);
  EXPECT_POINT_EQ(p, Point(1.3, 1.26));
  p.ScaleY(2, -1);
  EXPECT_POINT_EQ(p, Point(1.3, 2.52));
  p.ScaleY(1, 1);
  EXPECT_POINT_EQ(p, Point(1.3, 2.5));
}

TEST(GX2DPoint, MirrorXNegatesXAndMirrorYNegatesY) {
  GX2DPoint p(3, 4);
  p.MirrorX();
  EXPECT_POINT_EQ(p, Point(-3, 4));
  p.MirrorY();
  EXPECT_POINT_EQ(p, Point(-3, -4));
}

TEST(GX2DPoint, ReverseChangesNothing) {
  GX2DPoint p(3, 4);
  p.Reverse();
  EXPECT_POINT_EQ(p, Point(3, 4));
}

TEST(GX2DPoint, HasNoLengthAndItsCoordinatesAsExtent) {
  const GX2DPoint p(3, 4);
  EXPECT_EQ(p.Len(), 0.0);
  EXPECT_EQ(p.GetMinX(), 3.0);
  EXPECT_EQ(p.GetMaxX(), 3.0);
  EXPECT_EQ(p.GetMinY(), 4.0);
  EXPECT_EQ(p.GetMaxY(), 4.0);
}

TEST(GX2DPoint, GetParametricPointIgnoresItsParameter) {
  const GX2DPoint p(3, 4);
  for (const double t : {-7.0, 0.0, 0.5, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
    GX2DPoint out(-77, -77);
    EXPECT_TRUE(p.GetParametricPoint(out, t));
    EXPECT_POINT_EQ(out, p);
  }
}

TEST(GX2DPoint, IsItsOwnStartAndEnd) {
  GX2DPoint p(3, 4);
  EXPECT_EQ(&p.GetStartPoint(), &p);
  EXPECT_EQ(&p.GetEndPoint(), &p);
}

TEST(GX2DPoint, IsAlmostEqIsInclusiveInEachCoordinateByItself) {
  const GX2DPoint p(0, 0);
  const double above = std::nextafter(0.0001, 1.0);
  EXPECT_TRUE(p.IsAlmostEq(Point(0.0001, 0.0001), 0.0001));  // further than 0.0001 away
  EXPECT_TRUE(p.IsAlmostEq(Point(-0.0001, 0.0001), 0.0001));
  EXPECT_FALSE(p.IsAlmostEq(Point(above, 0), 0.0001));
  EXPECT_FALSE(p.IsAlmostEq(Point(0, -above), 0.0001));
  EXPECT_TRUE(p.IsAlmostEq(p, 0));
}

TEST(GX2DPoint, EqualityIsExact) {
  const GX2DPoint p(1, 2);
  EXPECT_TRUE(p == Point(1, 2));
  EXPECT_FALSE(p != Point(1, 2));
  EXPECT_FALSE(p == Point(std::nextafter(1.0, 2.0), 2));
  EXPECT_TRUE(p != Point(1, std::nextafter(2.0, 3.0)));
  EXPECT_TRUE(p != Point(0, 2));
}

TEST(GX2DPoint, AddsAndSubtractsVectorsWithoutTheirZ) {
  const GX2DPoint p(1, 2);
  EXPECT_POINT_EQ(p + GXVector(10, 20, 30), Point(11, 22));
  EXPECT_POINT_EQ(p - GXVector(10, 20, 30), Point(-9, -18));
  EXPECT_POINT_EQ(p, Point(1, 2));
}

TEST(RotateAxis2D, PositiveDegreesTurnCounterClockwise) {
  GX2DPoint p(3, 1);
  p.RotateAxis(Point(1, 1), 90);
  EXPECT_POINT_NEAR(p, Point(1, 3), 1e-15);  // the cosine of pi/2 as a double is 6e-17
  p.RotateAxis(Point(1, 1), -90);
  EXPECT_POINT_NEAR(p, Point(3, 1), 1e-15);
}

TEST(RotateAxis2D, AgreesWithMultiplicationByAComplexNumber) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const GX2DPoint centre = random.Point2D(100);
    const GX2DPoint start = random.Point2D(100);
    const double degrees = random.Between(-720, 720);
    GX2DPoint p = start;
    p.RotateAxis(centre, degrees);
    using Complex = std::complex<long double>;
    const Complex middle(centre.X, centre.Y);
    const long double angle = static_cast<long double>(degrees) * 3.14159265358979323846L / 180;
    const Complex turned =
        middle + (Complex(start.X, start.Y) - middle) * std::polar<long double>(1, angle);
    // Offsets up to 283 and angles up to 13 radians, each rounded a few times at 2^-53: 1e-12.
    EXPECT_POINT_NEAR(
        p, Point(static_cast<double>(turned.real()), static_cast<double>(turned.imag())), 2e-12);
  }
}

TEST(RotateAxis2D, AboutItselfAPointStays) {
  GX2DPoint p(3, 4);
  p.RotateAxis(p, 30);
  EXPECT_POINT_EQ(p, Point(3, 4));
}

TEST(RotateAxis2D, TheAngleMayBeACoordinateOfWhatTurns) {
  const GX2DPoint origin;
  GX2DPoint p(90, 0);
  p.RotateAxis(origin, p.X);
  EXPECT_POINT_NEAR(p, Point(0, 90), 1e-13);
  GX2DLine line(90, 0, 2, 0);
  line.RotateAxis(origin, line.Start.X);
  EXPECT_POINT_NEAR(line, support::Line(0, 90, 0, 2), 1e-13);
  GX2DArc arc = support::Arc(0, 0, 90, 0, 0, 90, -90, 0);
  arc.RotateAxis(origin, arc.Start.X);
  EXPECT_POINT_NEAR(arc, support::Arc(0, 0, 0, 90, -90, 0, 0, -90), 1e-13);
}

TEST(Rotate2DPoint, TheAngleMayBeACoordinateOfThePoint) {
  GX2DPoint p(90, 0);
  EXPECT_TRUE(GXGeometry::Rotate2DPoint(p, Point(0, 0), p.X));
  EXPECT_POINT_NEAR(p, Point(0, 90), 1e-13);
}

TEST(Rotate2DPoint, IsTheSameComputation) {
  support::Random random;
  for (int i = 0; i < 200; ++i) {
    const GX2DPoint centre = random.Point2D(100);
    const double degrees = random.Between(-720, 720);
    GX2DPoint a = random.Point2D(100);
    GX2DPoint b = a;
    a.RotateAxis(centre, degrees);
    EXPECT_TRUE(GXGeometry::Rotate2DPoint(b, centre, degrees));
    EXPECT_POINT_EQ(a, b);
  }
}

TEST(Rotate2DPoint, AngleMayBeACoordinateOfThePointItself) {
  GX2DPoint p(90, 0);
  EXPECT_TRUE(GXGeometry::Rotate2DPoint(p, GX2DPoint(0, 0), p.X));
  // A quarter turn; the cosine of the rounded angle is 6e-17, times 90.
  EXPECT_POINT_NEAR(p, Point(0, 90), 1e-13);
}

TEST(Rotate2DPoint, TakesTheAngleByReference) {
  using Form = bool (*)(GX2DPoint&, const GX2DPoint&, const double&);
  EXPECT_TRUE((std::is_same_v<decltype(&GXGeometry::Rotate2DPoint), Form>));
}

}  // namespace
