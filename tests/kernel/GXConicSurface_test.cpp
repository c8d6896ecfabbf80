#include <KTRCL_Geometry/kernel/GXConicSurface.h>

#include "support/Build.h"
#include "support/KernelArrays.h"
#include "support/Near.h"

#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>

namespace {

using support::Frame;
using support::kGlobalAxes;
using support::kNaN;
using support::kPi;
using support::Vec;

constexpr Vec kO(0, 0, 0);
constexpr Vec kOrigin(1, 2, 3);
constexpr Frame kTurned({0, 1, 0}, {0, 0, 1}, {1, 0, 0});

// About the global Z axis, where local coordinates are exact.
GXConicSurface Cylinder(double radius, int unit = 0) { return {unit, kO, kGlobalAxes, radius}; }

TEST(GXConicSurfaceFields, AddTheRadiusBehindThePlane) {
  static_assert(std::is_base_of_v<ttvPlaneCS, GXConicSurface>);
  static_assert(!std::is_polymorphic_v<GXConicSurface>);
  static_assert(sizeof(GXConicSurface) == 336);
  const GXConicSurface surface(0);
  EXPECT_EQ(
      reinterpret_cast<const char*>(&surface.Radius) - reinterpret_cast<const char*>(&surface),
      328);
}

TEST(GXConicSurfaceFromUnit, IsNotValidWithARadiusOf0) {
  const GXConicSurface surface(7);
  EXPECT_FALSE(surface.Valid);
  EXPECT_EQ(surface.Unit, 7);
  EXPECT_SAME_BITS(surface.Radius, 0.0);
  EXPECT_POINT_EQ(Vec(surface.Origin), kO);
  EXPECT_POINT_EQ(Vec(surface.UnitX), kO);
}

TEST(GXConicSurfaceFromPoints, IsThePlaneInMode0WithTheRadius) {
  const GXConicSurface surface(7, kOrigin, kOrigin + Vec(0, 5, 0), kOrigin + Vec(0, 5, 5), 2.5);
  EXPECT_TRUE(surface.Valid);
  EXPECT_EQ(surface.Unit, 7);
  EXPECT_EQ(surface.Radius, 2.5);
  EXPECT_POINT_EQ(Vec(surface.Origin), kOrigin);
  EXPECT_POINT_EQ(Frame(surface.Frame), kTurned);
  EXPECT_POINT_EQ(Vec(surface.UnitZ), kOrigin + Vec(1, 0, 0));
}

TEST(GXConicSurfaceFromNormal, IsThePlaneAcrossTheAxisWithTheRadius) {
  const GXConicSurface surface(0, kOrigin, Vec(0, 0, 1), 2.5);
  EXPECT_TRUE(surface.Valid);
  EXPECT_EQ(surface.Radius, 2.5);
  EXPECT_POINT_NEAR(Frame(surface.Frame).Row(2), Vec(0, 0, 1), 1e-15);
  const double third = 1 / std::sqrt(3.0);
  const GXConicSurface diagonal(0, kOrigin, Vec(third, third, third), 2.5);
  EXPECT_FALSE(diagonal.Valid);
  EXPECT_EQ(diagonal.Radius, 2.5);
}

TEST(GXConicSurfaceFromFrame, IsThePlaneOfTheFrameWithTheRadius) {
  const GXConicSurface surface(0, kOrigin, kTurned, -2.5);
  EXPECT_TRUE(surface.Valid);
  EXPECT_EQ(surface.Radius, -2.5);
  EXPECT_POINT_EQ(Frame(surface.Frame), kTurned);
  EXPECT_POINT_EQ(Vec(surface.UnitX), kOrigin + Vec(0, 1, 0));
}

TEST(GXConicSurfaceConstructors, ClearTheFlagForARadiusBelow0Point0001InMagnitude) {
  const Vec x(5, 0, 0);
  const Vec y(0, 5, 0);
  const Vec normal(0, 0, 1);
  const double below = std::nextafter(0.0001, 0.0);
  for (const double radius : {0.0, below, -below}) {
    EXPECT_FALSE(GXConicSurface(0, kO, x, y, radius).Valid);
    EXPECT_FALSE(GXConicSurface(0, kO, normal, radius).Valid);
    EXPECT_FALSE(GXConicSurface(0, kO, kGlobalAxes, radius).Valid);
    EXPECT_EQ(GXConicSurface(0, kO, kGlobalAxes, radius).Radius, radius);
    EXPECT_POINT_EQ(Frame(GXConicSurface(0, kO, x, y, radius).Frame), kGlobalAxes);
  }
  for (const double radius : {0.0001, -0.0001}) {
    EXPECT_TRUE(GXConicSurface(0, kO, x, y, radius).Valid);
    EXPECT_TRUE(GXConicSurface(0, kO, normal, radius).Valid);
    EXPECT_TRUE(GXConicSurface(0, kO, kGlobalAxes, radius).Valid);
  }
}

TEST(GXConicSurfacePointOnSurface, MeasuresFromTheAxis) {
  const GXConicSurface surface(0, kOrigin, kTurned, 5);
  EXPECT_TRUE(surface.Point_on_surface(kOrigin + Vec(700, 3, 4)));
  EXPECT_TRUE(surface.Point_on_surface(kOrigin + Vec(-700, -4, 3)));
  EXPECT_FALSE(surface.Point_on_surface(kOrigin + Vec(0, 3, 3)));
  EXPECT_FALSE(surface.Point_on_surface(kOrigin));
}

// 0.02 is twice the double 0.01, so that the differences are exact.
TEST(GXConicSurfacePointOnSurface, IsFalseExactly0Point01OffTheRadiusInMillimetres) {
  const GXConicSurface surface = Cylinder(0.01);
  EXPECT_FALSE(surface.Point_on_surface(Vec(0.02, 0, 0)));
  EXPECT_TRUE(surface.Point_on_surface(Vec(std::nextafter(0.02, 0.0), 0, 0)));
  EXPECT_FALSE(surface.Point_on_surface(kO));
  EXPECT_TRUE(Cylinder(std::nextafter(0.01, 0.0)).Point_on_surface(kO));
  EXPECT_FALSE(Cylinder(-0.01).Point_on_surface(kO));
}

TEST(GXConicSurfacePointOnSurface, IsInInchesForAnyUnitBut0) {
  const double limit = 0.00039370078740157485;
  const auto off = [](double radius) {
    return [radius](int unit) { return Cylinder(radius, unit).Point_on_surface(kO); };
  };
  support::ExpectAllBut0AreInches(off(0.005), true, false);
  support::ExpectAllBut0AreInches(off(limit), true, false);
  support::ExpectAllBut0AreInches(off(std::nextafter(limit, 0.0)), true, true);
}

TEST(GXConicSurfacePointOnSurface, WorksInGlobalCoordinatesWhereTheObjectIsNotValid) {
  GXConicSurface surface(0, kOrigin, kTurned, 5);
  surface.Valid = false;
  EXPECT_TRUE(surface.Point_on_surface(Vec(3, 4, 700)));
  EXPECT_FALSE(surface.Point_on_surface(kOrigin + Vec(700, 3, 4)));
  EXPECT_FALSE(surface.Point_on_surface(Vec(kNaN, 4, 700)));
}

using Angle = double (GXConicSurface::*)(const double*, const double*) const;
constexpr Angle kAngles[] = {&GXConicSurface::Cylindrical_angle_radian,
                             &GXConicSurface::Cylindrical_simple_angle_radian};

TEST(GXConicSurfaceCylindricalAngleRadian, IsMeasuredAboutTheAxisUnderBothNames) {
  const GXConicSurface surface(0, kOrigin, kTurned, 5);
  for (const Angle angle : kAngles) {
    const Vec start = kOrigin + Vec(9, 5, 0);
    EXPECT_NEAR((surface.*angle)(start, kOrigin + Vec(-7, 0, 2)), kPi / 2, 1e-15);
    EXPECT_NEAR((surface.*angle)(start, kOrigin + Vec(0, 0, -2)), kPi / 2, 1e-15);
    EXPECT_NEAR((surface.*angle)(start, kOrigin + Vec(3, -1, 1)), kPi * 3 / 4, 1e-15);
    EXPECT_SAME_BITS((surface.*angle)(start, kOrigin + Vec(1, 8, 0)), 0.0);
    EXPECT_EQ((surface.*angle)(start, kOrigin + Vec(1, -8, 0)), std::acos(-1.0));
  }
}

TEST(GXConicSurfaceCylindricalAngleRadian, IsMinus1ForAPointOnTheAxis) {
  for (const Angle angle : kAngles) {
    const GXConicSurface surface = Cylinder(5);
    EXPECT_EQ((surface.*angle)(Vec(0, 0, 9), Vec(5, 0, 0)), -1.0);
    EXPECT_EQ((surface.*angle)(Vec(5, 0, 0), Vec(0, 0.0001, 9)), -1.0);
    EXPECT_NEAR((surface.*angle)(Vec(5, 0, 0), Vec(0, 0.00011, 9)), kPi / 2, 1e-15);
    EXPECT_EQ((surface.*angle)(Vec(5, kNaN, 0), Vec(0, 5, 9)), -1.0);
  }
}

}  // namespace
