#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using support::kPi;
using support::Line;

const double kOneTurn = 6.283185307179586;

/// The bearing from one vector of the plane to another, counter-clockwise, 0 up to 2 pi.
double PlainTurn(const GXVector& a, const GXVector& b) {
  const long double cross =
      static_cast<long double>(a.X) * b.Y - static_cast<long double>(a.Y) * b.X;
  const long double dot = static_cast<long double>(a.X) * b.X + static_cast<long double>(a.Y) * b.Y;
  const long double turn = std::atan2(cross, dot);
  return static_cast<double>(turn < 0 ? turn + 2 * 3.14159265358979323846L : turn);
}

GX2DLine FromOrigin(const GXVector& v) { return {0, 0, v.X, v.Y}; }

TEST(GetAngleBetween2DLines, IsMeasuredClockwiseOnlyWithTheFlag) {
  EXPECT_NEAR(GXGeometry::GetAngleBetween2DLines(Line(0, 0, 1, 0), Line(0, 0, 0, 1), true), 270.0,
              1e-12);
  EXPECT_NEAR(GXGeometry::GetAngleBetween2DLines(Line(0, 0, 1, 0), Line(0, 0, 0, 1), false), 90.0,
              1e-12);
  EXPECT_NEAR(GXGeometry::GetAngleBetween2DLines(Line(0, 0, 1, 0), Line(0, 0, 0, -1), true), 90.0,
              1e-12);
  EXPECT_NEAR(GXGeometry::GetAngleBetween2DLines(Line(0, 0, 1, 0), Line(0, 0, 0, -1), false), 90.0,
              1e-12);
}

TEST(GetAngleBetween2DLines, SeesLinesFromStartToEndWhereverTheyLie) {
  EXPECT_NEAR(GXGeometry::GetAngleBetween2DLines(Line(5, 1, 7, 3), Line(9, 0, 9, -3), false), 135.0,
              1e-12);
  EXPECT_NEAR(GXGeometry::GetAngleBetween2DLines(Line(5, 1, 7, 3), Line(9, -3, 9, 0), false), 45.0,
              1e-12);
}

TEST(GetAngleBetween2DLines, OfParallelLinesIsExactlyNothingOrHalfATurn) {
  for (const bool clockwise : {false, true}) {
    EXPECT_EQ(GXGeometry::GetAngleBetween2DLines(Line(0, 0, 2, 0), Line(1, 1, 9, 1), clockwise),
              0.0);
    EXPECT_NEAR(GXGeometry::GetAngleBetween2DLines(Line(0, 0, 2, 0), Line(9, 1, 1, 1), clockwise),
                180.0, 1e-12);
  }
}

TEST(GetAngleBetween2DLines, ReachesTheFullTurnForAHairCounterClockwise) {
  // The cosine rounds to 1, yet the cross product is above 0: 360 - 0.
  const GX2DLine a(0, 0, 1, 0);
  const GX2DLine b(0, 0, 1, 1e-10);
  EXPECT_EQ(GXGeometry::GetAngleBetween2DLines(a, b, true), 360.0);
  EXPECT_EQ(GXGeometry::GetAngleBetween2DLines(b, a, true), 0.0);
  EXPECT_EQ(GXGeometry::GetAngleBetween2DLinesRad(a, b, true), kOneTurn);
}

TEST(GetAngleBetween2DLines, OfALineUpTo0_00001LongIsNothing) {
  const GX2DLine x(0, 0, 1, 0);
  EXPECT_EQ(GXGeometry::GetAngleBetween2DLines(x, Line(0, 0, 0, 0.00001), false), 0.0);
  EXPECT_EQ(GXGeometry::GetAngleBetween2DLines(Line(0, 0, 0, 0.00001), x, false), 0.0);
  const double above = std::nextafter(0.00001, 1);
  EXPECT_NEAR(GXGeometry::GetAngleBetween2DLines(x, Line(0, 0, 0, above), false), 90.0, 1e-12);
  EXPECT_NEAR(GXGeometry::GetAngleBetween2DLines(Line(0, 0, 0, above), x, false), 90.0, 1e-12);
}

TEST(GetAngleBetween2DLinesRad, IsTheSameInRadians) {
  EXPECT_NEAR(GXGeometry::GetAngleBetween2DLinesRad(Line(0, 0, 1, 0), Line(0, 0, 0, 1), true),
              1.5 * kPi, 1e-14);
  EXPECT_NEAR(GXGeometry::GetAngleBetween2DLinesRad(Line(0, 0, 1, 0), Line(0, 0, 0, 1), false),
              0.5 * kPi, 1e-14);
  EXPECT_EQ(GXGeometry::GetAngleBetween2DLinesRad(Line(0, 0, 1, 0), Line(0, 0, 0, 0.00001), true),
            0.0);
}

TEST(GetAngleBetweenVectors, IsMeasuredClockwise) {
  const GXVector x(1, 0, 0);
  const GXVector y(0, 1, 0);
  EXPECT_NEAR(GXGeometry::GetAngleBetweenVectors(x, y), 270.0, 1e-12);
  EXPECT_NEAR(GXGeometry::GetAngleBetweenVectors(y, x), 90.0, 1e-12);
}

TEST(GetAngleBetweenVectorsCCW, IsMeasuredCounterClockwise) {
  const GXVector x(1, 0, 0);
  const GXVector y(0, 1, 0);
  EXPECT_NEAR(GXGeometry::GetAngleBetweenVectorsCCW(x, y), 90.0, 1e-12);
  EXPECT_NEAR(GXGeometry::GetAngleBetweenVectorsCCW(y, x), 270.0, 1e-12);
}

TEST(GetAngleBetweenVectors, OutsideThePlaneOnlyTheZOfTheCrossProductDecides) {
  const GXVector x(1, 0, 0);
  const GXVector z(0, 0, 1);
  EXPECT_NEAR(GXGeometry::GetAngleBetweenVectors(x, z), 90.0, 1e-12);
  EXPECT_NEAR(GXGeometry::GetAngleBetweenVectorsCCW(x, z), 90.0, 1e-12);
  const GXVector upAndLeft(0, 0.001, 1);
  EXPECT_NEAR(GXGeometry::GetAngleBetweenVectors(x, upAndLeft), 270.0, 1e-12);
  EXPECT_NEAR(GXGeometry::GetAngleBetweenVectorsCCW(x, upAndLeft), 90.0, 1e-12);
}

TEST(AnglesUpToAFullTurn, AreNothingForAShortVectorWhateverTheCrossProduct) {
  // Cross product 5 and -5, far from 0, since the other vector is long.
  const GXVector tall(0, 1e6, 0);
  for (const double step : {0.000005, -0.000005}) {
    const GXVector brief(step, 0, 0);
    EXPECT_EQ(GXGeometry::GetAngleBetweenVectors(tall, brief), 0.0);
    EXPECT_EQ(GXGeometry::GetAngleBetweenVectors(brief, tall), 0.0);
    EXPECT_EQ(GXGeometry::GetAngleBetweenVectorsCCW(tall, brief), 0.0);
    EXPECT_EQ(GXGeometry::GetAngleBetweenVectorsCCW(brief, tall), 0.0);
    for (const bool clockwise : {false, true}) {
      EXPECT_EQ(GXGeometry::GetAngleBetween2DLines(FromOrigin(tall), FromOrigin(brief), clockwise),
                0.0);
      EXPECT_EQ(
          GXGeometry::GetAngleBetween2DLinesRad(FromOrigin(brief), FromOrigin(tall), clockwise),
          0.0);
    }
  }
}

TEST(GetAngleBetweenVectors, CountsALengthOf0_00001AsNone) {
  const GXVector x(1, 0, 0);
  const double above = std::nextafter(0.00001, 1);
  EXPECT_EQ(GXGeometry::GetAngleBetweenVectors(x, GXVector(0, 0.00001, 0)), 0.0);
  EXPECT_NEAR(GXGeometry::GetAngleBetweenVectors(x, GXVector(0, above, 0)), 270.0, 1e-12);
  EXPECT_EQ(GXGeometry::GetAngleBetweenVectorsCCW(GXVector(0, 0.00001, 0), x), 0.0);
  EXPECT_NEAR(GXGeometry::GetAngleBetweenVectorsCCW(GXVector(0, above, 0), x), 270.0, 1e-12);
}

TEST(GetAngleRadBetweenVectors, IsReflexOnlyWithTheFlag) {
  const GXVector x(1, 0, 0);
  const GXVector y(0, 1, 0);
  EXPECT_NEAR(GXGeometry::GetAngleRadBetweenVectors(y, x, true), 1.5 * kPi, 1e-14);
  EXPECT_NEAR(GXGeometry::GetAngleRadBetweenVectors(y, x, false), 0.5 * kPi, 1e-14);
  EXPECT_NEAR(GXGeometry::GetAngleRadBetweenVectors(x, y, true), 0.5 * kPi, 1e-14);
  EXPECT_NEAR(GXGeometry::GetAngleRadBetweenVectors(x, y, false), 0.5 * kPi, 1e-14);
}

TEST(GetAngleRadBetweenVectors, MeasuresInThePlaneOfTheTwo) {
  const GXVector x(1, 0, 0);
  EXPECT_NEAR(GXGeometry::GetAngleRadBetweenVectors(x, GXVector(0, 0, 5), true), 0.5 * kPi, 1e-14);
  EXPECT_NEAR(GXGeometry::GetAngleRadBetweenVectors(x, GXVector(3, 0, 3), true), 0.25 * kPi, 1e-14);
  // The z of the cross product, -1, decides although most of it points along -y.
  EXPECT_NEAR(GXGeometry::GetAngleRadBetweenVectors(x, GXVector(0, -1, 5), true), 1.5 * kPi, 1e-14);
}

TEST(GetAngleRadBetweenVectors, OfParallelVectorsIsNothingOrHalfATurn) {
  const GXVector a(3, 4, 0);
  for (const bool counterClockwise : {false, true}) {
    EXPECT_EQ(GXGeometry::GetAngleRadBetweenVectors(a, GXVector(6, 8, 0), counterClockwise), 0.0);
    EXPECT_NEAR(GXGeometry::GetAngleRadBetweenVectors(a, GXVector(-6, -8, 0), counterClockwise),
                kPi, 1e-14);
  }
}

TEST(GetAngleRadBetweenVectors, OfAShortVectorIsNothingOrWithTheFlagAFullTurn) {
  const GXVector tall(0, 1e6, 0);
  const GXVector brief(0.000005, 0, 0);  // the cross product with `tall` is -5
  EXPECT_EQ(GXGeometry::GetAngleRadBetweenVectors(tall, brief, false), 0.0);
  EXPECT_EQ(GXGeometry::GetAngleRadBetweenVectors(tall, brief, true), kOneTurn);
  EXPECT_EQ(GXGeometry::GetAngleRadBetweenVectors(brief, tall, true), 0.0);
  EXPECT_EQ(GXGeometry::GetAngleRadBetweenVectors(GXVector(), tall, true), 0.0);
}

TEST(Angles, AgreeWithTheBearingsOfRandomVectors) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const GXVector a(random.Between(-50, 50), random.Between(-50, 50), 0);
    const GXVector b(random.Between(-50, 50), random.Between(-50, 50), 0);
    const double turn = PlainTurn(a, b);
    const double open = turn > kPi ? kOneTurn - turn : turn;
    if (a.Len() < 0.1 || b.Len() < 0.1 || open < 0.05 || open > kPi - 0.05) {
      continue;
    }
    // Away from 0 and pi the arc cosine multiplies the rounding of the cosine by 20 at most.
    const double inRadians = 1e-13;
    const double inDegrees = 1e-11;
    const double clockwise = kOneTurn - turn;
    EXPECT_NEAR(GXGeometry::GetAngleRadBetweenVectors(a, b, true), turn, inRadians);
    EXPECT_NEAR(GXGeometry::GetAngleRadBetweenVectors(a, b, false), open, inRadians);
    EXPECT_NEAR(GXGeometry::GetAngleBetweenVectorsCCW(a, b), turn * 180 / kPi, inDegrees);
    EXPECT_NEAR(GXGeometry::GetAngleBetweenVectors(a, b), clockwise * 180 / kPi, inDegrees);
    EXPECT_NEAR(GXGeometry::GetAngleBetween2DLines(FromOrigin(a), FromOrigin(b), true),
                clockwise * 180 / kPi, inDegrees);
    EXPECT_NEAR(GXGeometry::GetAngleBetween2DLinesRad(FromOrigin(a), FromOrigin(b), true),
                clockwise, inRadians);
    EXPECT_NEAR(GXGeometry::GetAngleBetween2DLinesRad(FromOrigin(a), FromOrigin(b), false), open,
                inRadians);
  }
}

TEST(Angles, OfMultiplesOfOneVectorNeverLeaveTheArcCosine) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    const GXVector a = random.Vector3D(10);
    const GXVector b = a * random.Between(-3, 3);
    for (const double angle :
         {GXGeometry::GetAngleBetweenVectors(a, b), GXGeometry::GetAngleBetweenVectorsCCW(a, b),
          GXGeometry::GetAngleBetween2DLines(FromOrigin(a), FromOrigin(b), true)}) {
      EXPECT_TRUE(angle >= 0.0 && angle <= 360.0) << angle;
    }
    const double radians = GXGeometry::GetAngleRadBetweenVectors(a, b, true);
    EXPECT_TRUE(radians >= 0.0 && radians <= kOneTurn) << radians;
  }
}

TEST(Angles, SurviveNumbersThatAreNotFinite) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double odd : {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, 1e308}) {
    const GXVector v(odd, 1, 0);
    for (const bool flag : {false, true}) {
      GXGeometry::GetAngleRadBetweenVectors(v, GXVector(1, 0, odd), flag);
      GXGeometry::GetAngleBetween2DLines(Line(odd, 0, 1, 1), Line(0, 0, 1, odd), flag);
      GXGeometry::GetAngleBetween2DLinesRad(Line(odd, 0, 1, 1), Line(0, 0, 1, odd), flag);
    }
    GXGeometry::GetAngleBetweenVectors(v, v);
    GXGeometry::GetAngleBetweenVectorsCCW(v, GXVector(1, 2, 3));
  }
}

}  // namespace
