// Arcs as rows of points, by chord height and by largest angle: how many points, and whether the
// last one is the arc's end or a computed place near it.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
using support::kPi;

// Each point is the one before turned in a frame that is spanned with a place some 10,000 off:
// about 1e-12 per step, up to some hundred steps and radii of some ten.
constexpr double kTurned = 1e-9;

std::vector<GX2DPoint> Copy(const GX2DPointList& list) {
  std::vector<GX2DPoint> points;
  for (const GX2DPoint* const point : list) {
    points.push_back(*point);
  }
  return points;
}
std::vector<GX2DPoint> ByHeight(const GX2DArc& arc, double height) {
  GX2DPointList list;
  arc.AddAsPolygon(list, height);
  return Copy(list);
}
std::vector<GX2DPoint> ByAngle(const GX2DArc& arc, int maxAngle) {
  GX2DPointList list;
  arc.AddAsPolygonMaxAngle(list, maxAngle);
  return Copy(list);
}
std::vector<GX3DPoint> ByHeight(const GX3DArc& arc, double height) {
  GX3DPointList list;
  arc.AddAsPolygon(list, height);
  return {list.begin(), list.end()};
}
std::vector<GX3DPoint> ByAngle(const GX3DArc& arc, int maxAngle) {
  GX3DPointList list;
  arc.AddAsPolygonMaxAngle(list, maxAngle);
  return {list.begin(), list.end()};
}

/// The height whose step is `degrees`: the angle of the step is arccos((r - h) / r).
double HeightFor(double radius, double degrees) {
  return radius * (1 - std::cos(degrees * kPi / 180));
}

/// The same arc in space, in a tilted plane: (x, y) becomes (0.6 x, y, 0.8 x) + (1, 2, 3).
GX3DPoint Tilted(const GX2DPoint& p) { return {1 + 0.6 * p.X, 2 + p.Y, 3 + 0.8 * p.X}; }
GX3DArc Tilted(const GX2DArc& arc) {
  return {Tilted(arc.Center), Tilted(arc.Start), Tilted(arc.Mid), Tilted(arc.End)};
}

const GX2DArc kUpperHalf = support::Arc(0, 0, 10, 0, 0, 10, -10, 0);
const GX2DArc kLowerHalf = support::Arc(0, 0, 10, 0, 0, -10, -10, 0);

// The radii to start and mid lie in one line: no sweep, no length.
const GX2DArc kNoSweep = support::Arc(0, 0, 10, 0, 5, 0, 0, 10);

// The end is on the center: the sweep is not to be had, and comes out as -1.
const GX2DArc kEndOnCenter = support::Arc(0, 0, 10, 0, 0, 10, 0, 0);

TEST(AddAsPolygonByHeight2D, AppendsTheStartAndAPointPerStep) {
  // Steps of at most 11 degrees: 180 / 11 = 16.4, so 17.
  const std::vector<GX2DPoint> points = ByHeight(kUpperHalf, HeightFor(10, 11));
  ASSERT_EQ(points.size(), 18u);
  EXPECT_POINT_EQ(points[0], kUpperHalf.Start);
  for (std::size_t i = 1; i < points.size(); ++i) {
    EXPECT_POINT_NEAR(points[i], support::OnCircle(0, 0, 10, 180.0 / 17 * static_cast<double>(i)),
                      kTurned);
  }
}

TEST(AddAsPolygonByHeight2D, RunsClockwiseForAMidOnTheRight) {
  const std::vector<GX2DPoint> points = ByHeight(kLowerHalf, HeightFor(10, 11));
  ASSERT_EQ(points.size(), 18u);
  EXPECT_POINT_NEAR(points[5], support::OnCircle(0, 0, 10, -180.0 / 17 * 5), kTurned);
}

TEST(AddAsPolygonByHeight2D, GoesRoundACircle) {
  // 360 / 11 = 32.7.
  for (const bool clockwise : {false, true}) {
    const GX2DArc circle = support::Circle(3, 4, 10, clockwise);
    const std::vector<GX2DPoint> points = ByHeight(circle, HeightFor(10, 11));
    ASSERT_EQ(points.size(), 34u);
    EXPECT_POINT_NEAR(points[7], support::OnCircle(3, 4, 10, (clockwise ? -360.0 : 360.0) / 33 * 7),
                      kTurned);
    EXPECT_POINT_NEAR(points.back(), circle.Start, kTurned);
  }
}

TEST(AddAsPolygonByHeight2D, StaysFourTimesCloserThanTheHeight) {
  // The sagitta of a chord over an angle x is r (1 - cos(x / 2)), for small x a quarter of
  // r (1 - cos x).
  for (const double height : {0.5, 0.1, 0.001}) {
    const std::vector<GX2DPoint> points = ByHeight(kUpperHalf, height);
    ASSERT_GT(points.size(), 2u);
    const GX2DPoint middle((points[0].X + points[1].X) / 2, (points[0].Y + points[1].Y) / 2);
    EXPECT_LT(10 - std::hypot(middle.X, middle.Y), height / 3.9);
  }
}

TEST(AddAsPolygonByHeight2D, AHeightOfTheRadiusStepsByAQuarterAndOneOfTheDiameterByAHalf) {
  EXPECT_EQ(ByHeight(kUpperHalf, 10).size(), 3u);
  EXPECT_EQ(ByHeight(support::Circle(0, 0, 10), 10).size(), 5u);
  for (const double height : {20.0, 30.0, 1e300, kInf}) {
    EXPECT_EQ(ByHeight(kUpperHalf, height).size(), 2u) << height;
    EXPECT_EQ(ByHeight(support::Circle(0, 0, 10), height).size(), 3u) << height;
  }
}

TEST(AddAsPolygonByHeight2D, AnArcOfLessThanAStepGivesStartAndOnePointNearTheEnd) {
  const GX2DArc arc = support::ArcByAngles(0, 0, 10, 20, 4);
  const std::vector<GX2DPoint> points = ByHeight(arc, HeightFor(10, 11));
  ASSERT_EQ(points.size(), 2u);
  EXPECT_POINT_EQ(points[0], arc.Start);
  EXPECT_POINT_NEAR(points[1], arc.End, kTurned);
}

TEST(AddAsPolygonByHeight2D, AnArcWithoutSweepAndLengthAppendsNothing) {
  EXPECT_TRUE(ByHeight(kNoSweep, 0.1).empty());
}

TEST(AddAsPolygonByHeight2D, AnArcThatEndsOnItsCenterGivesItsStartAlone) {
  const std::vector<GX2DPoint> points = ByHeight(kEndOnCenter, 0.1);
  ASSERT_EQ(points.size(), 1u);
  EXPECT_POINT_EQ(points[0], kEndOnCenter.Start);
}

TEST(AddAsPolygonByHeight2D, ARadiusBelowAMillionthAppendsNothing) {
  EXPECT_TRUE(ByHeight(support::Circle(0, 0, std::nextafter(1e-6, 0.0)), 1e-7).empty());
  EXPECT_TRUE(ByHeight(GX2DArc(), 1e-7).empty());
  // arccos(0.9) = 0.451 goes 13.9 times into the whole turn.
  EXPECT_EQ(ByHeight(support::Circle(0, 0, 1e-6), 1e-7).size(), 15u);
}

TEST(AddAsPolygonByHeight2D, KeepsWhatTheListHolds) {
  GX2DPointList list;
  list.push_back(new GX2DPoint(1, 1));
  GX2DPoint* const old = list[0];
  kUpperHalf.AddAsPolygon(list, 10);
  ASSERT_EQ(list.size(), 4u);
  EXPECT_EQ(list[0], old);
  EXPECT_NE(list[1], list[2]);
}

TEST(AddAsPolygonByHeight2D, CountsOfRandomArcs) {
  support::Random random;
  for (int round = 0; round < 200; ++round) {
    const double radius = random.Between(1, 50);
    const double step = random.Between(2, 80);
    const int steps = random.Int(1, static_cast<int>(340 / step) + 1);
    const double sweep = (steps - random.Between(0.2, 0.8)) * step * (random.Bool() ? 1 : -1);
    if (std::fabs(sweep) > 340 || std::fabs(sweep) < 1 || std::fabs(std::fabs(sweep) - 180) < 1) {
      continue;  // where the sweep is rounded to nothing, to a half turn or to a whole one
    }
    const double from = random.Between(-180, 180);
    const GX2DArc arc = support::ArcByAngles(-7, 8, radius, from, sweep);
    const std::vector<GX2DPoint> points = ByHeight(arc, HeightFor(radius, step));
    ASSERT_EQ(points.size(), static_cast<std::size_t>(steps) + 1) << sweep << " by " << step;
    for (int i = 1; i <= steps; ++i) {
      ASSERT_POINT_NEAR(points[static_cast<std::size_t>(i)],
                        support::OnCircle(-7, 8, radius, from + sweep / steps * i), 1e-8);
    }
    const std::vector<GX3DPoint> raised = ByHeight(Tilted(arc), HeightFor(radius, step));
    ASSERT_EQ(raised.size(), points.size());
    ASSERT_POINT_EQ(raised.back(), Tilted(arc).End);
  }
}

TEST(AddAsPolygonByHeight3D, EndsExactlyOnTheEnd) {
  const GX3DArc arc = Tilted(kUpperHalf);
  const std::vector<GX3DPoint> points = ByHeight(arc, HeightFor(10, 11));
  ASSERT_EQ(points.size(), 18u);
  EXPECT_POINT_EQ(points.front(), arc.Start);
  EXPECT_POINT_EQ(points.back(), arc.End);
  for (std::size_t i = 1; i < 17; ++i) {
    EXPECT_POINT_NEAR(points[i],
                      Tilted(support::OnCircle(0, 0, 10, 180.0 / 17 * static_cast<double>(i))),
                      kTurned);
  }
}

TEST(AddAsPolygonByHeight3D, TurnsAboutTheNormalOnTheSideOfMid) {
  const std::vector<GX3DPoint> points = ByHeight(Tilted(kLowerHalf), HeightFor(10, 11));
  ASSERT_EQ(points.size(), 18u);
  EXPECT_POINT_NEAR(points[5], Tilted(support::OnCircle(0, 0, 10, -180.0 / 17 * 5)), kTurned);
}

TEST(AddAsPolygonByHeight3D, GoesRoundACircleAndEndsOnItsStart) {
  const GX3DArc circle = Tilted(support::Circle(3, 4, 10));
  const std::vector<GX3DPoint> points = ByHeight(circle, HeightFor(10, 11));
  ASSERT_EQ(points.size(), 34u);
  EXPECT_POINT_NEAR(points[7], Tilted(support::OnCircle(3, 4, 10, 360.0 / 33 * 7)), kTurned);
  EXPECT_POINT_EQ(points.back(), circle.Start);
}

TEST(AddAsPolygonByHeight3D, AnArcOfLessThanAStepIsStartAndEnd) {
  const GX3DArc arc = Tilted(support::ArcByAngles(0, 0, 10, 20, 4));
  const std::vector<GX3DPoint> points = ByHeight(arc, HeightFor(10, 11));
  ASSERT_EQ(points.size(), 2u);
  EXPECT_POINT_EQ(points[0], arc.Start);
  EXPECT_POINT_EQ(points[1], arc.End);
}

TEST(AddAsPolygonByHeight3D, AnArcWithoutSweepAppendsNothing) {
  EXPECT_TRUE(ByHeight(Tilted(kNoSweep), 0.1).empty());
}

TEST(AddAsPolygonByHeight3D, AnArcThatEndsOnItsCenterGivesStartAndEnd) {
  const GX3DArc arc(kEndOnCenter, 2);
  const std::vector<GX3DPoint> points = ByHeight(arc, 0.1);
  ASSERT_EQ(points.size(), 2u);
  EXPECT_POINT_EQ(points[0], arc.Start);
  EXPECT_POINT_EQ(points[1], arc.End);
}

TEST(AddAsPolygonByHeight3D, ARadiusBelowAMillionthAppendsNothing) {
  EXPECT_TRUE(ByHeight(GX3DArc(support::Circle(0, 0, std::nextafter(1e-6, 0.0)), 2), 1e-7).empty());
  EXPECT_TRUE(ByHeight(GX3DArc(), 1e-7).empty());
  EXPECT_EQ(ByHeight(GX3DArc(support::Circle(0, 0, 1e-6), 2), 1e-7).size(), 15u);
}

TEST(AddAsPolygonByHeight3D, ACircleWithMidOppositeItsStartCannotBeTurned) {
  // No axis follows from its points, so every computed point is the start.
  const GX3DArc circle(support::Point(0, 0, 0), support::Point(10, 0, 0), support::Point(-10, 0, 0),
                       support::Point(10, 0, 0));
  const std::vector<GX3DPoint> points = ByHeight(circle, 10);
  ASSERT_EQ(points.size(), 5u);
  for (const GX3DPoint& point : points) {
    EXPECT_POINT_EQ(point, circle.Start);
  }
}

TEST(AddAsPolygonByHeight3D, KeepsWhatTheListHolds) {
  GX3DPointList list;
  list.push_back(support::Point(1, 1, 1));
  Tilted(kUpperHalf).AddAsPolygon(list, 10);
  ASSERT_EQ(list.size(), 4u);
  EXPECT_POINT_EQ(list.front(), support::Point(1, 1, 1));
}

TEST(AddAsPolygonByHeight, NoHeightAppendsMoreThanAMillionPoints) {
  for (const double height : {0.0, -kInf, kNaN}) {
    EXPECT_LE(ByHeight(kUpperHalf, height).size(), 1000000u) << height;
    EXPECT_LE(ByHeight(Tilted(kUpperHalf), height).size(), 1000000u) << height;
  }
}

TEST(AddAsPolygonByHeight, AHugeRadiusWithATinyHeightKeepsTheLimit) {
  // (r - h) / r is 1 and the step nothing.
  const GX2DArc huge = support::Arc(0, 0, 1e9, 0, 0, 1e9, -1e9, 0);
  EXPECT_LE(ByHeight(huge, 1e-9).size(), 1000000u);
  const std::vector<GX3DPoint> points = ByHeight(Tilted(huge), 1e-9);
  EXPECT_LE(points.size(), 1000000u);
  EXPECT_POINT_EQ(points.back(), Tilted(huge).End);
}

TEST(AddAsPolygonByHeight, EndsForArcsThatAreNoPlaces) {
  for (const double bad : {kNaN, kInf}) {
    for (int field = 0; field < 4; ++field) {
      GX2DArc arc = support::ArcByAngles(0, 0, 10, 0, 90);
      GX2DPoint* const points[] = {&arc.Start, &arc.Mid, &arc.End, &arc.Center};
      points[field]->X = bad;
      EXPECT_LE(ByHeight(arc, 0.1).size(), 1000000u);
      EXPECT_LE(ByHeight(GX3DArc(arc, 2), 0.1).size(), 1000000u);
      EXPECT_LE(ByAngle(arc, 5).size(), 1000000u);
      EXPECT_LE(ByAngle(GX3DArc(arc, 2), 5).size(), 1000000u);
    }
  }
}

TEST(AddAsPolygonMaxAngle2D, NinetyDegreesOnAHalfCircleGiveThreePoints) {
  const std::vector<GX2DPoint> points = ByAngle(kUpperHalf, 90);
  ASSERT_EQ(points.size(), 3u);
  EXPECT_POINT_EQ(points[0], kUpperHalf.Start);
  EXPECT_POINT_NEAR(points[1], support::Point(0, 10), kTurned);
  EXPECT_POINT_NEAR(points[2], support::Point(-10, 0), kTurned);
}

TEST(AddAsPolygonMaxAngle2D, StepsAreEqualAndNoLargerThanAsked) {
  // 100 / 30 = 3.3: four steps of 25 degrees.
  const GX2DArc arc = support::ArcByAngles(3, 4, 10, 20, -100);
  const std::vector<GX2DPoint> points = ByAngle(arc, 30);
  ASSERT_EQ(points.size(), 5u);
  for (std::size_t i = 1; i < 5; ++i) {
    EXPECT_POINT_NEAR(points[i], support::OnCircle(3, 4, 10, 20 - 25.0 * static_cast<double>(i)),
                      kTurned);
  }
}

TEST(AddAsPolygonMaxAngle2D, GoesRoundACircle) {
  const std::vector<GX2DPoint> points = ByAngle(support::Circle(0, 0, 10, true), 90);
  ASSERT_EQ(points.size(), 5u);
  EXPECT_POINT_NEAR(points[1], support::Point(0, -10), kTurned);
  EXPECT_POINT_NEAR(points[4], support::Point(10, 0), kTurned);
}

TEST(AddAsPolygonMaxAngle2D, NoSweepGivesTheStartAlone) {
  const std::vector<GX2DPoint> points = ByAngle(kNoSweep, 5);
  ASSERT_EQ(points.size(), 1u);
  EXPECT_POINT_EQ(points[0], kNoSweep.Start);
}

TEST(AddAsPolygonMaxAngle2D, AnArcThatEndsOnItsCenterIsTurnedByOneRadian) {
  // The sweep of -1 counts without its sign: 57.3 degrees.
  const std::vector<GX2DPoint> points = ByAngle(kEndOnCenter, 90);
  ASSERT_EQ(points.size(), 2u);
  EXPECT_POINT_NEAR(points[1], support::Point(10 * std::cos(1), 10 * std::sin(1)), kTurned);
  EXPECT_EQ(ByAngle(kEndOnCenter, 10).size(), 7u);
}

TEST(AddAsPolygonMaxAngle2D, HasNoLeastRadius) {
  EXPECT_EQ(ByAngle(support::Circle(0, 0, 1e-7), 90).size(), 5u);
  EXPECT_EQ(ByAngle(GX2DArc(), 90).size(), 5u);
}

TEST(AddAsPolygonMaxAngle2D, KeepsWhatTheListHolds) {
  GX2DPointList list;
  list.push_back(new GX2DPoint(1, 1));
  GX2DPoint* const old = list[0];
  kUpperHalf.AddAsPolygonMaxAngle(list, 90);
  ASSERT_EQ(list.size(), 4u);
  EXPECT_EQ(list[0], old);
}

TEST(AddAsPolygonMaxAngle3D, EndsOnAComputedPointToo) {
  const GX3DArc arc = Tilted(support::ArcByAngles(3, 4, 10, 20, 100));
  const std::vector<GX3DPoint> points = ByAngle(arc, 30);
  ASSERT_EQ(points.size(), 5u);
  EXPECT_POINT_EQ(points[0], arc.Start);
  for (std::size_t i = 1; i < 5; ++i) {
    EXPECT_POINT_NEAR(points[i],
                      Tilted(support::OnCircle(3, 4, 10, 20 + 25.0 * static_cast<double>(i))),
                      kTurned);
  }
  // An end that is off the circle is not reached.
  GX3DArc off = arc;
  off.End = Tilted(support::OnCircle(3, 4, 25, 120));
  const std::vector<GX3DPoint> near = ByAngle(off, 30);
  ASSERT_EQ(near.size(), 5u);
  EXPECT_POINT_NEAR(near.back(), arc.End, kTurned);
}

TEST(AddAsPolygonMaxAngle3D, NoSweepGivesTheStartAloneAndNoRadiusIsTooSmall) {
  EXPECT_EQ(ByAngle(Tilted(kNoSweep), 5).size(), 1u);
  EXPECT_EQ(ByAngle(GX3DArc(support::Circle(0, 0, 1e-7), 2), 90).size(), 5u);
  EXPECT_EQ(ByAngle(GX3DArc(), 90).size(), 5u);
}

TEST(AddAsPolygonMaxAngle3D, KeepsWhatTheListHolds) {
  GX3DPointList list;
  list.push_back(support::Point(1, 1, 1));
  Tilted(kUpperHalf).AddAsPolygonMaxAngle(list, 90);
  EXPECT_EQ(list.size(), 4u);
  EXPECT_POINT_EQ(list.front(), support::Point(1, 1, 1));
}

TEST(AddAsPolygonMaxAngle, TheSignOfTheAngleMakesNoDifference) {
  EXPECT_EQ(ByAngle(kUpperHalf, -90).size(), 3u);
  EXPECT_EQ(ByAngle(Tilted(kUpperHalf), -90).size(), 3u);
}

TEST(AddAsPolygonMaxAngle, ExtremeAnglesEndWithinTheLimit) {
  for (const int angle : {0, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_LE(ByAngle(kUpperHalf, angle).size(), 1000000u) << angle;
    EXPECT_LE(ByAngle(Tilted(kUpperHalf), angle).size(), 1000000u) << angle;
  }
  EXPECT_EQ(ByAngle(kUpperHalf, std::numeric_limits<int>::max()).size(), 2u);
}

// A frame that is found once for all steps is only a matter of speed.
TEST(AddAsPolygonByHeight, PointsAreThoseOfOneRotateAfterTheOtherToTheLastBit) {
  support::Random random;
  for (int round = 0; round < 300; ++round) {
    const GX2DArc flat = support::ArcByAngles(random.Between(-50, 50), random.Between(-50, 50),
                                              random.Between(0.1, 90), random.Between(0, 360),
                                              (random.Bool() ? 1 : -1) * random.Between(1, 350));
    const GX3DArc arc(flat, 2);
    const std::vector<GX2DPoint> points = ByHeight(flat, 0.01);
    const double step = GXGeometry::GetArcAngleRad(arc) / static_cast<double>(points.size() - 1);
    GXVector radius(flat.Center, flat.Start);
    for (std::size_t i = 1; i < points.size(); ++i) {
      radius.Rotate(GXVector(0.0, 0.0, flat.IsClockwise() ? -1.0 : 1.0), step);
      ASSERT_POINT_EQ(points[i], flat.Center + radius) << "round " << round << ", point " << i;
    }
  }
}

}  // namespace
