// Planar routines of the kernel beside operations of the classes that find the same figure with
// code of their own; DifferentialToClasses_Space_test.cpp has those of space. Away from the
// thresholds both agree, on random input; at the thresholds they differ, and each difference is a
// test by itself, with both figures from closed form.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/kernel/Kernel.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using support::Line;
using support::Point;

constexpr int kRounds = 4000;

// The least number of rounds that must be left when those near a threshold have been passed over.
constexpr int kEnough = 1000;

const GX2DPoint kPreset(-77, -78);

double Distance(const GX2DPoint& a, const GX2DPoint& b) { return std::hypot(b.X - a.X, b.Y - a.Y); }

// Two lines of the plane.

int Cross(const GX2DLine& a, const GX2DLine& b, GX2DPoint& hit) {
  return Intspnt_dll(a.Start.X, a.End.X, b.Start.X, b.End.X, a.Start.Y, a.End.Y, b.Start.Y, b.End.Y,
                     &hit.X, &hit.Y);
}

TEST(IntspntDllBesideClass, CrossesWhereTheClassDoes) {
  support::Random random;
  int compared = 0;
  for (int i = 0; i < kRounds; ++i) {
    const GX2DLine a(random.Point2D(100), random.Point2D(100));
    const GX2DLine b(random.Point2D(100), random.Point2D(100));
    const double slopeA = (a.End.Y - a.Start.Y) / (a.End.X - a.Start.X);
    const double slopeB = (b.End.Y - b.Start.Y) / (b.End.X - b.Start.X);
    if (std::max(std::fabs(slopeA), std::fabs(slopeB)) > 100) continue;
    if (std::fabs(slopeA - slopeB) < 0.1) continue;
    GX2DPoint ofKernel = kPreset;
    GX2DPoint ofClass = kPreset;
    ASSERT_EQ(Cross(a, b, ofKernel), 0) << i;
    ASSERT_TRUE(GXGeometry::Get2DLineIntersection(a, b, ofClass)) << i;
    // Heights at x = 0 are at most 10100, with errors of some 1e-12; divided by 0.1 that is 1e-11
    // in x and, at a slope of 100, 1e-9 in y.
    ASSERT_POINT_NEAR(ofKernel, ofClass, 1e-8) << i;
    ++compared;
  }
  EXPECT_GE(compared, kEnough);
}

TEST(IntspntDllBesideClass, SaysZeroForTheSuccessThatIsTrueInTheClass) {
  GX2DPoint hit = kPreset;
  EXPECT_EQ(Cross(Line(0, 0, 1, 0), Line(0, 1, 1, 1), hit), -1);
  EXPECT_FALSE(GXGeometry::Get2DLineIntersection(Line(0, 0, 1, 0), Line(0, 1, 1, 1), hit));
  EXPECT_POINT_EQ(hit, kPreset);
}

TEST(IntspntDllBesideClass, CrossesLinesThatClimbOneInAMillionWhereTheClassDoesNot) {
  const GX2DLine level(0, 0, 1, 0);
  const GX2DLine climbing(0, -0.000002, 1, -0.000001);  // 0 at x = 2
  GX2DPoint hit = kPreset;
  EXPECT_FALSE(GXGeometry::Get2DLineIntersection(level, climbing, hit));
  EXPECT_POINT_EQ(hit, kPreset);
  EXPECT_EQ(Cross(level, climbing, hit), 0);
  EXPECT_POINT_NEAR(hit, Point(2, 0), 1e-9);
}

TEST(IntspntDllBesideClass, SeesTheSlopeOfALineThatTheClassTakesForUpright) {
  const GX2DLine steep(0, 0, 0.000001, 1);  // at y = 5 its x is 0.000005
  const GX2DLine level(-1, 5, 1, 5);
  GX2DPoint hit = kPreset;
  EXPECT_TRUE(GXGeometry::Get2DLineIntersection(steep, level, hit));
  EXPECT_POINT_EQ(hit, Point(0, 5));
  EXPECT_EQ(Cross(steep, level, hit), 0);
  EXPECT_POINT_NEAR(hit, Point(0.000005, 5), 1e-12);
}

// A line and a circle.

struct Hits {
  int count;
  GX2DPoint first;
  GX2DPoint second;
};

Hits BothHits(const GX2DLine& l, const GX2DArc& circle) {
  Hits hits = {0, kPreset, kPreset};
  hits.count = IntPnts_circle(l.Start.X, l.Start.Y, l.End.X, l.End.Y, circle.Center.X,
                              circle.Center.Y, circle.Start.X, circle.Start.Y, &hits.first.X,
                              &hits.first.Y, &hits.second.X, &hits.second.Y);
  return hits;
}

int NearerHit(const GX2DLine& l, const GX2DArc& circle, GX2DPoint& p) {
  return Pntlac(l.Start.X, l.Start.Y, l.End.X, l.End.Y, circle.Center.X, circle.Center.Y,
                circle.Start.X, circle.Start.Y, &p.X, &p.Y);
}

/// A line that climbs at least one in ten, and a circle that it neither touches nor halves.
struct LineAndCircle {
  explicit LineAndCircle(support::Random& random) {
    double gap = 0.0;
    do {
      circle = support::ArcByAngles(random.Between(-20, 20), random.Between(-20, 20),
                                    random.Between(1, 30), random.Between(0, 360), 90);
      line = GX2DLine(random.Point2D(50), random.Point2D(50));
      GXGeometry::GetDistanceLinePoint(line, circle.Center, distance);
      gap = std::fabs(distance - circle.Radius());
    } while (gap < 0.1 || distance < 0.1 || std::fabs(line.End.Y - line.Start.Y) < 1 ||
             std::fabs(line.End.X - line.Start.X) < 0.001);
  }
  GX2DLine line;
  GX2DArc circle;
  double distance = 0.0;
};

// The terms of the discriminant go up to (2 * 100 * 520)^2 = 1e10, with errors of 1e-6; chords are
// longer than 0.8, so roots are off by some 1e-6 / 0.8 / 200 in y and a hundred times that in x.
constexpr double kChordBound = 1e-6;

TEST(IntPntsCircleBesideClass, CrossesWhereTheClassDoesInTheSameOrder) {
  support::Random random;
  int crossed = 0;
  for (int i = 0; i < kRounds; ++i) {
    const LineAndCircle scene(random);
    const Hits hits = BothHits(scene.line, scene.circle);
    GX2DPoint first;
    GX2DPoint second;
    const bool crosses =
        GXGeometry::Get2DLineArcIntersections(scene.line, scene.circle, first, second);
    ASSERT_EQ(hits.count, crosses ? 2 : 0) << i;
    if (!crosses) continue;
    ASSERT_POINT_NEAR(hits.first, first, kChordBound) << i;
    ASSERT_POINT_NEAR(hits.second, second, kChordBound) << i;
    ++crossed;
  }
  EXPECT_GE(crossed, kEnough);
}

TEST(PntlacBesideClass, TakesTheNearerOneOfTheHitsOfTheClass) {
  support::Random random;
  int crossed = 0;
  for (int i = 0; i < kRounds; ++i) {
    const LineAndCircle scene(random);
    const GX2DPoint reference = random.Point2D(50);
    GX2DPoint hit = reference;
    GX2DPoint first;
    GX2DPoint second;
    const bool crosses =
        GXGeometry::Get2DLineArcIntersections(scene.line, scene.circle, first, second);
    ASSERT_EQ(NearerHit(scene.line, scene.circle, hit), crosses ? 1 : 0) << i;
    const double lead = Distance(reference, second) - Distance(reference, first);
    if (!crosses || std::fabs(lead) < 0.001) continue;
    ASSERT_POINT_NEAR(hit, lead > 0 ? first : second, kChordBound) << i;
    ++crossed;
  }
  EXPECT_GE(crossed, kEnough);
}

TEST(PntlacBesideClass, WalksTheRadiusOnALineThroughTheCentreToTheHitsOfTheClass) {
  support::Random random;
  for (int i = 0; i < kRounds; ++i) {
    const GX2DArc circle = support::ArcByAngles(random.Between(-20, 20), random.Between(-20, 20),
                                                random.Between(1, 30), random.Between(0, 360), 90);
    const double angle = random.Between(0.1, 3.0);
    const GX2DPoint ahead(circle.Center.X + 40 * std::cos(angle),
                          circle.Center.Y + 40 * std::sin(angle));
    GX2DPoint hit = ahead;
    GX2DPoint first;
    GX2DPoint second;
    ASSERT_EQ(NearerHit(GX2DLine(circle.Center, ahead), circle, hit), 1) << i;
    ASSERT_TRUE(GXGeometry::Get2DLineArcIntersections(GX2DLine(circle.Center, ahead), circle, first,
                                                      second));
    // The line rises, so its upper end is the root of greater y, the first one.
    ASSERT_POINT_NEAR(hit, first, 1e-9) << i;
  }
}

const GX2DArc kUnitCircle = support::ArcByAngles(0, 0, 1, 30, 90);

TEST(PntlacBesideClass, HasNoCrossingWhereTheClassLetsALineTouchFromOutside) {
  const GX2DLine above(-3, 1.000005, 3, 1.000005);
  GX2DPoint hit(0.5, 1);
  EXPECT_EQ(NearerHit(above, kUnitCircle, hit), 0);
  EXPECT_POINT_EQ(hit, Point(0.5, 1));
  EXPECT_EQ(BothHits(above, kUnitCircle).count, 0);
  GX2DPoint second;
  EXPECT_TRUE(GXGeometry::Get2DLineArcIntersections(above, kUnitCircle, hit, second));
  EXPECT_POINT_NEAR(hit, Point(0, 1.000005), 1e-12);
  EXPECT_POINT_EQ(second, hit);
}

TEST(PntlacBesideClass, HasAChordWhereTheClassLetsALineTouchFromInside) {
  const GX2DLine below(-3, 0.999995, 3, 0.999995);
  const double half = std::sqrt(1 - 0.999995 * 0.999995);  // 0.0032
  GX2DPoint hit(0.5, 1);
  EXPECT_EQ(NearerHit(below, kUnitCircle, hit), 1);
  EXPECT_POINT_NEAR(hit, Point(half, 0.999995), 1e-10);
  GX2DPoint second;
  EXPECT_TRUE(GXGeometry::Get2DLineArcIntersections(below, kUnitCircle, hit, second));
  EXPECT_POINT_NEAR(hit, Point(0, 0.999995), 1e-12);
}

TEST(PntlacBesideClass, TakesALineNextToTheCentreAsThroughItWhereTheClassKeepsItsHeight) {
  const GX2DLine line(-3, 0.0005, 3, 0.0005);
  GX2DPoint hit(5, 0);
  EXPECT_EQ(NearerHit(line, kUnitCircle, hit), 1);
  EXPECT_POINT_EQ(hit, Point(1, 0));
  GX2DPoint second;
  EXPECT_TRUE(GXGeometry::Get2DLineArcIntersections(line, kUnitCircle, hit, second));
  EXPECT_POINT_NEAR(hit, Point(std::sqrt(1 - 0.0005 * 0.0005), 0.0005), 1e-12);
}

TEST(IntPntsCircleBesideClass, SeesTheClimbOfALineThatTheClassTakesForLevel) {
  const GX2DLine line(0, 0, 2, 0.000001);  // about 0.0005 high at x = 1000
  const GX2DArc circle = support::ArcByAngles(1000, 0, 1, 30, 90);
  GX2DPoint first;
  GX2DPoint second;
  EXPECT_TRUE(GXGeometry::Get2DLineArcIntersections(line, circle, first, second));
  EXPECT_POINT_NEAR(first, Point(1001, 0), 1e-9);
  const Hits hits = BothHits(line, circle);
  EXPECT_EQ(hits.count, 2);
  // y = x / 2e6; the chord is shorter than the diameter by 1e-7 only.
  EXPECT_POINT_NEAR(hits.first, Point(1001, 0.0005005), 1e-6);
  EXPECT_POINT_NEAR(hits.second, Point(999, 0.0004995), 1e-6);
}

// Two circles.

int NearerHit(const GX2DArc& a, const GX2DArc& b, GX2DPoint& p) {
  return Pntlaa(a.Center.X, a.Center.Y, a.Start.X, a.Start.Y, b.Center.X, b.Center.Y, b.Start.X,
                b.Start.Y, &p.X, &p.Y);
}

/// Quarter arcs of circles that do not touch, with centres well aside, both along X and along the
/// start of the first one, which is where the class divides.
struct TwoCircles {
  explicit TwoCircles(support::Random& random) {
    do {
      a = Draw(random);
      b = Draw(random);
    } while (IsNearThreshold());
  }
  static GX2DArc Draw(support::Random& random) {
    const GX2DPoint centre = random.Point2D(20);
    return support::ArcByAngles(centre.X, centre.Y, random.Between(1, 20), random.Between(0, 360),
                                90);
  }
  bool IsNearThreshold() const {
    const double dx = b.Center.X - a.Center.X;
    const double dy = b.Center.Y - a.Center.Y;
    const double along =
        (dx * (a.Start.X - a.Center.X) + dy * (a.Start.Y - a.Center.Y)) / a.Radius();
    const double apart = std::hypot(dx, dy);
    return std::fabs(dx) < 1 || std::fabs(along) < 1 ||
           std::fabs(apart - a.Radius() - b.Radius()) < 0.1 ||
           std::fabs(apart - std::fabs(a.Radius() - b.Radius())) < 0.1;
  }
  GX2DArc a;
  GX2DArc b;
};

TEST(PntlaaBesideClass, TakesTheNearerOneOfTheHitsOfTheClass) {
  support::Random random;
  int crossed = 0;
  for (int i = 0; i < kRounds; ++i) {
    const TwoCircles scene(random);
    const GX2DPoint reference = random.Point2D(50);
    GX2DPoint hit = reference;
    GX2DPoint first;
    GX2DPoint second;
    const bool crosses = GXGeometry::Get2DCirclesIntersection(scene.a, scene.b, first, second);
    ASSERT_EQ(NearerHit(scene.a, scene.b, hit), crosses ? 1 : 0) << i;
    const double lead = Distance(reference, second) - Distance(reference, first);
    if (!crosses || std::fabs(lead) < 0.001) continue;
    ASSERT_POINT_NEAR(hit, lead > 0 ? first : second, kChordBound) << i;
    ++crossed;
  }
  EXPECT_GE(crossed, kEnough);
}

TEST(PntlaaBesideClass, HasAFigureOfItsOwnForCentresOfTheSameXWhereTheClassIsRight) {
  // Radii of 5 about (0, 0) and (0, 6): the chord lies at y = 3, its half is the root of 25 - 9.
  // The constant of the chord line is 18, and 3 the root of 18 - 9.
  const GX2DArc lower = support::ArcByAngles(0, 0, 5, 30, 90);
  const GX2DArc upper = support::ArcByAngles(0, 6, 5, 30, 90);
  GX2DPoint hit(9, 3);
  EXPECT_EQ(NearerHit(lower, upper, hit), 1);
  EXPECT_POINT_NEAR(hit, Point(3, 3), 1e-12);
  GX2DPoint first;
  GX2DPoint second;
  EXPECT_TRUE(GXGeometry::Get2DCirclesIntersection(lower, upper, first, second));
  EXPECT_NEAR(std::fabs(first.X), 4, 1e-12);
  EXPECT_NEAR(std::fabs(second.X), 4, 1e-12);
}

TEST(PntlaaBesideClass, CrossesCirclesThatAlmostTouchFromInsideWhereTheClassDoesNot) {
  const GX2DArc outer = support::ArcByAngles(0, 0, 5, 30, 90);
  const GX2DArc inner = support::ArcByAngles(3.000005, 0, 2, 30, 90);
  GX2DPoint hit(5, 1);
  GX2DPoint second;
  EXPECT_FALSE(GXGeometry::Get2DCirclesIntersection(outer, inner, hit, second));
  EXPECT_POINT_EQ(hit, Point(5, 1));
  EXPECT_EQ(NearerHit(outer, inner, hit), 1);
  const double x = (25 - 4 + 3.000005 * 3.000005) / (2 * 3.000005);
  EXPECT_POINT_NEAR(hit, Point(x, std::sqrt(25 - x * x)), 1e-9);
}

TEST(PntlaaBesideClass, CrossesHalfCirclesWhichTheClassPassesOver) {
  const GX2DArc half = support::ArcByAngles(0, 0, 5, 30, 180);
  const GX2DArc quarter = support::ArcByAngles(6, 0, 5, 30, 90);
  GX2DPoint hit(3, 9);
  GX2DPoint second;
  EXPECT_FALSE(GXGeometry::Get2DCirclesIntersection(half, quarter, hit, second));
  EXPECT_POINT_EQ(hit, Point(3, 9));
  EXPECT_EQ(NearerHit(half, quarter, hit), 1);
  EXPECT_POINT_NEAR(hit, Point(3, 4), 1e-12);
}

}  // namespace
