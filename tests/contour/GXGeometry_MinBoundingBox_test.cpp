// The rotation for which the upright box of a contour is smallest.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/foundation/GXBoundBox.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace {

using support::Add;
using support::AddPolygon;
using support::ArcByAngles;
using support::At;
using support::Circle;
using support::Line;
using support::OnCircle;
using support::Point;
using support::Rect;

double Angle(const GX2DElmList& list, double step, bool snap = false) {
  return GXGeometry::GetAngleWithMinBoundingBox(list, step, snap);
}

/// A rectangle turned counter-clockwise about its first corner.
void AddTurned(GX2DElmList& list, double width, double height, double degrees, double x = 0,
               double y = 0) {
  AddPolygon(list, {{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}});
  list.RotateAxis(Point(x, y), degrees);
}

TEST(GetAngleWithMinBoundingBox, TurnsARectangleUpright) {
  for (const int degrees : {1, 10, 30, 45, 60, 77, 89}) {
    SCOPED_TRACE(degrees);
    GX2DElmList list;
    AddTurned(list, 10, 4, degrees);
    EXPECT_EQ(Angle(list, 1), 90.0 - degrees);
  }
}

TEST(GetAngleWithMinBoundingBox, FindsTheTurnOfARandomRectangleWithinAStep) {
  support::Random random;
  for (int round = 0; round < 100; ++round) {
    const double turn = random.Between(3, 87), step = random.Between(0.3, 3);
    GX2DElmList list;
    const double width = random.Between(5, 20), height = random.Between(1, 20);
    const GX2DPoint corner = random.Point2D(50);
    AddTurned(list, width, height, turn, corner.X, corner.Y);
    SCOPED_TRACE(testing::Message() << "turned by " << turn << " step " << step);
    EXPECT_NEAR(Angle(list, step), 90 - turn, step);
  }
}

TEST(GetAngleWithMinBoundingBox, StaysAtZeroWhereNothingIsStrictlySmaller) {
  GX2DElmList square;
  AddPolygon(square, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
  EXPECT_EQ(Angle(square, 1), 0.0);
  EXPECT_EQ(Angle(square, 89.999), 0.0);
  GX2DElmList turned;
  AddTurned(turned, 10, 10, 45);
  EXPECT_EQ(Angle(turned, 45), 45.0);
}

// A rectangle of a list does not turn, so every box is the very same.
TEST(GetAngleWithMinBoundingBox, KeepsTheFirstOfEqualBoxes) {
  GX2DElmList list;
  Add(list, Rect(0, 0, 10, 4));
  EXPECT_EQ(Angle(list, 1), 0.0);
  EXPECT_EQ(Angle(list, 30), 0.0);
}

// A slim rectangle turned by 10 degrees is upright at 80, and the worse the farther from that; at 0
// it is 10 degrees off.
TEST(GetAngleWithMinBoundingBox, LooksAtMultiplesOfTheStepBelowNinety) {
  GX2DElmList list;
  AddTurned(list, 20, 1, 10);
  EXPECT_EQ(Angle(list, 45), 0.0);  // 35 off, and 90 is not looked at
  EXPECT_EQ(Angle(list, 80), 80.0);
  EXPECT_EQ(Angle(list, 16), 80.0);
  EXPECT_EQ(Angle(list, 37), 74.0);
  EXPECT_EQ(Angle(list, 89.5), 89.5);
  GX2DElmList half;  // upright at 50
  AddTurned(half, 20, 1, 40);
  EXPECT_EQ(Angle(half, 45), 45.0);
  EXPECT_EQ(Angle(half, 30), 60.0);
  GX2DElmList flat;
  AddTurned(flat, 20, 1, 0.001);  // 90 would be no better than 0 is
  EXPECT_EQ(Angle(flat, 22.5), 0.0);
}

TEST(GetAngleWithMinBoundingBox, AddsItsStepsUp) {
  GX2DElmList list;
  AddTurned(list, 20, 1, 89.3);  // upright at 0.7
  double sum = 0;
  for (int i = 0; i < 7; ++i) sum += 0.1;
  ASSERT_NE(sum, 0.1 * 7);
  EXPECT_EQ(Angle(list, 0.1), sum);
}

TEST(GetAngleWithMinBoundingBox, IsZeroForABoxWithoutArea) {
  GX2DElmList level, upright, nothing, point;
  Add(level, Line(0, 3, 10, 3));
  Add(upright, Line(4, 0, 4, 10));
  Add(point, Point(4, 3));
  for (const bool snap : {false, true}) {
    EXPECT_EQ(Angle(level, 1, snap), 0.0);
    EXPECT_EQ(Angle(upright, 1, snap), 0.0);
    EXPECT_EQ(Angle(nothing, 1, snap), 0.0);
    EXPECT_EQ(Angle(point, 1, snap), 0.0);
  }
}

TEST(GetAngleWithMinBoundingBox, LooksFromATenThousandthOfAreaOn) {
  GX2DElmList below, above;
  Add(below, Line(0, 0, 0.00999, 0.00999));  // 0.0000998
  Add(above, Line(0, 0, 0.01001, 0.01001));  // 0.0001002
  EXPECT_EQ(Angle(below, 1), 0.0);
  EXPECT_EQ(Angle(above, 1), 45.0);
  EXPECT_EQ(Angle(below, 100, true), 0.0);
  EXPECT_NEAR(Angle(above, 100, true), 45.0, 1e-9);
}

TEST(GetAngleWithMinBoundingBox, DoesNotSearchFromAStepOfNinetyOn) {
  GX2DElmList list;
  AddTurned(list, 10, 4, 30);
  for (const double step : {90.0, 90.5, 1e300, HUGE_VAL}) EXPECT_EQ(Angle(list, step), 0.0);
  EXPECT_NE(Angle(list, 89.9), 0.0);
}

TEST(GetAngleWithMinBoundingBox, DoesNotSearchWithAStepThatLeadsNowhere) {
  GX2DElmList list;
  AddTurned(list, 10, 4, 30);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const double step : {0.0, -0.0, -1.0, -100.0, -HUGE_VAL, nan}) {
    EXPECT_EQ(Angle(list, step), 0.0);
  }
  for (const double step : {1e-300, 5e-324, 1e-20}) {  // would take for ever
    EXPECT_EQ(Angle(list, step), 0.0);
  }
}

TEST(GetAngleWithMinBoundingBox, LeavesTheListAlone) {
  GX2DElmList list, before;
  AddTurned(list, 10, 4, 30);
  Add(list, ArcByAngles(3, 4, 5, 10, 100));
  before.Clone(list);
  Angle(list, 7, true);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_POINT_EQ(At<GX2DLine>(list, i), At<GX2DLine>(before, i));
  }
  EXPECT_POINT_EQ(At<GX2DArc>(list, 4), At<GX2DArc>(before, 4));
}

TEST(GetAngleWithMinBoundingBox, SnapsToTheDirectionOfALine) {
  GX2DElmList list;
  AddTurned(list, 10, 4, 29.7);
  EXPECT_EQ(Angle(list, 1), 60.0);
  EXPECT_NEAR(Angle(list, 1, true), 60.3, 1e-9);
}

/// A line of length 10 from a point, in a direction in degrees.
GX2DLine Ray(double x, double y, double degrees) {
  return {Point(x, y), OnCircle(x, y, 10, degrees)};
}

/// Bare points that make 0 the best angle, with a box of 100 by 50 about the origin.
void AddUprightFrame(GX2DElmList& list) {
  Add(list, Point(-50, -25), Point(50, -25), Point(50, 25), Point(-50, 25));
}

TEST(GetAngleWithMinBoundingBox, SnapsWithinHalfAStepStrictly) {
  const auto snapped = [](double direction, double step) {
    GX2DElmList list;
    AddUprightFrame(list);
    Add(list, Ray(0, 0, direction));
    return Angle(list, step, true);
  };
  EXPECT_NEAR(snapped(86, 10), 4, 1e-9);
  EXPECT_NEAR(snapped(94, 10), 4, 1e-9);  // the angle has no sense
  EXPECT_NEAR(snapped(85.01, 10), 4.99, 1e-9);
  EXPECT_EQ(snapped(84.99, 10), 0.0);
  EXPECT_EQ(snapped(-90, 180), 0.0);  // 180 from the best angle, and half a step is 90
  EXPECT_EQ(snapped(0, 180), 0.0);    // 90 exactly: not below
  EXPECT_EQ(snapped(0, 180.0001), 90.0);
}

TEST(GetAngleWithMinBoundingBox, SnapsToTheNearestLine) {
  for (const bool nearFirst : {false, true}) {
    GX2DElmList list;
    AddUprightFrame(list);
    Add(list, Ray(0, 0, nearFirst ? 88 : 86), Ray(0, 0, nearFirst ? 86 : 88));
    EXPECT_NEAR(Angle(list, 10, true), 2, 1e-9);
  }
}

TEST(GetAngleWithMinBoundingBox, KeepsTheFirstOfTwoLinesEquallyNear) {
  GX2DElmList list;
  AddUprightFrame(list);
  Add(list, Ray(0, 0, 86));
  const double alone = Angle(list, 10, true);
  Add(list,
      GX2DLine(Point(0, 0), Point(-At<GX2DLine>(list, 4).End.X, At<GX2DLine>(list, 4).End.Y)));
  EXPECT_EQ(Angle(list, 10, true), alone);
}

TEST(GetAngleWithMinBoundingBox, SnapsOnlyToLines) {
  GX2DElmList list;
  AddUprightFrame(list);
  Add(list, ArcByAngles(0, 0, 10, -4, 10), Rect(0, 0, 5, 5));
  list.push_back(nullptr);
  list.push_back(new support::Foreign2D({0, 0}, {0.1, 10}));
  EXPECT_EQ(Angle(list, 10, true), 0.0);
}

// The upright line goes from (x, y) to (x, x + 5): down from a start that lies higher than that.
TEST(GetAngleWithMinBoundingBox, MeasuresAgainstALineWhoseSenseDependsOnTheStart) {
  const auto snapped = [](double x, double y, double direction) {
    GX2DElmList list;
    AddUprightFrame(list);
    Add(list, Ray(x, y, direction));
    return Angle(list, 10, true);
  };
  EXPECT_NEAR(snapped(3, 7.9, 88), 2, 1e-9);
  EXPECT_EQ(snapped(3, 8.1, 88), 0.0);
  EXPECT_EQ(snapped(3, 7.9, 268), 0.0);
  EXPECT_NEAR(snapped(3, 8.1, 268), 2, 1e-9);
  EXPECT_NEAR(snapped(-9, -4.1, 88), 2, 1e-9);
  EXPECT_EQ(snapped(-9, -3.9, 88), 0.0);
}

TEST(GetAngleWithMinBoundingBox, MeasuresZeroFromAStartAtTheEndOfTheUprightLine) {
  GX2DElmList list;
  AddUprightFrame(list);
  Add(list, Ray(3, 8, 88));  // the upright line has no length
  EXPECT_EQ(Angle(list, 10, true), 0.0);
}

// A line measured at exactly 0 is the nearest one, but never replaces the best angle.
TEST(GetAngleWithMinBoundingBox, LosesTheSnapToATiltedLineWhereThereIsAnUprightOne) {
  for (const bool uprightFirst : {false, true}) {
    GX2DElmList list;
    AddUprightFrame(list);
    Add(list, Ray(0, 0, 88));
    EXPECT_NEAR(Angle(list, 10, true), 2, 1e-9);
    GX2DLine* const upright = new GX2DLine(0, 0, 0, 10);
    list.insert(uprightFirst ? list.begin() : list.end(), upright);
    EXPECT_EQ(Angle(list, 10, true), 0.0);
  }
}

TEST(GetAngleWithMinBoundingBox, SnapsBeyondNinetyWithALargeStep) {
  GX2DElmList list;
  AddUprightFrame(list);
  Add(list, Ray(0, 0, -20));
  EXPECT_NEAR(Angle(list, 300, true), 110, 1e-9);
}

TEST(GetAngleWithMinBoundingBox, SnapsWithTheAmountOfANegativeStep) {
  GX2DElmList list;
  AddUprightFrame(list);
  Add(list, Ray(0, 0, 86));
  EXPECT_NEAR(Angle(list, -10, true), 4, 1e-9);
  EXPECT_EQ(Angle(list, -7, true), 0.0);
  EXPECT_EQ(Angle(list, 0, true), 0.0);
  EXPECT_EQ(Angle(list, std::numeric_limits<double>::quiet_NaN(), true), 0.0);
}

TEST(GetAngleWithMinBoundingBox, ToleratesCoordinatesThatAreNotFinite) {
  for (const double odd : {std::numeric_limits<double>::quiet_NaN(), HUGE_VAL, 1e308}) {
    GX2DElmList list;
    AddTurned(list, 10, 4, 30);
    Add(list, Line(odd, 0, 5, odd), Circle(odd, odd, 3));
    for (const bool snap : {false, true}) EXPECT_FALSE(Angle(list, 5, snap) < 0.0);
  }
}

/// Area of the upright box of corners and circles turned by an angle, in long double.
long double BoxArea(const std::vector<GX2DPoint>& corners, const std::vector<GX2DPoint>& circles,
                    double r, long double degrees) {
  const long double radians = degrees * 3.14159265358979323846264338L / 180;
  const long double c = std::cos(radians), s = std::sin(radians);
  long double low[2] = {HUGE_VALL, HUGE_VALL}, high[2] = {-HUGE_VALL, -HUGE_VALL};
  const auto widen = [&](const GX2DPoint& p, double by) {
    const long double turned[2] = {c * p.X - s * p.Y, s * p.X + c * p.Y};
    for (int axis = 0; axis < 2; ++axis) {
      low[axis] = std::min(low[axis], turned[axis] - by);
      high[axis] = std::max(high[axis], turned[axis] + by);
    }
  };
  for (const GX2DPoint& corner : corners) widen(corner, 0);
  for (const GX2DPoint& center : circles) widen(center, r);
  return (high[0] - low[0]) * (high[1] - low[1]);
}

TEST(GetAngleWithMinBoundingBox, AgreesWithABruteForceInLongDouble) {
  support::Random random;
  for (int round = 0; round < 200; ++round) {
    std::vector<GX2DPoint> corners, circles;
    for (int i = random.Int(3, 8); i > 0; --i) corners.push_back(random.Point2D(40));
    for (int i = random.Int(0, 2); i > 0; --i) circles.push_back(random.Point2D(40));
    const double r = random.Between(1, 20), step = random.Between(0.5, 100);
    GX2DElmList list;
    AddPolygon(list, corners);
    for (const GX2DPoint& center : circles) Add(list, Circle(center.X, center.Y, r));
    double best = 0;
    long double smallest = BoxArea(corners, circles, r, 0);
    const double found = Angle(list, step);
    bool isMultiple = found == 0;
    for (double angle = step; angle < 90 && step < 90; angle += step) {
      isMultiple = isMultiple || found == angle;
      const long double area = BoxArea(corners, circles, r, angle);
      if (area < smallest) {
        smallest = area;
        best = angle;
      }
    }
    SCOPED_TRACE(testing::Message() << "step " << step << ", best at " << best);
    EXPECT_TRUE(isMultiple) << found;
    // Two boxes may be alike; a turn of many steps is off by some 1e-14 of the extent.
    EXPECT_LE(BoxArea(corners, circles, r, found), smallest * (1 + 1e-10L));
  }
}

/// The search in its plainest form, with the operations of the list itself.
double PlainSearch(const GX2DElmList& list, double step) {
  GX2DElmList clone;
  clone.Clone(list);
  GXBoundBox box;
  clone.GetBoundBox(box);
  const GX2DPoint corner(box.Minimum.X, box.Minimum.Y);
  double best = 0, smallest = box.GetArea();
  for (double angle = step; angle < 90; angle += step) {
    clone.RotateAxis(corner, step);
    clone.GetBoundBox(box);
    if (box.GetArea() < smallest) {
      smallest = box.GetArea();
      best = angle;
    }
  }
  return best;
}

TEST(GetAngleWithMinBoundingBox, AgreesWithTurningTheListItself) {
  support::Random random;
  for (int round = 0; round < 100; ++round) {
    GX2DElmList list;
    AddPolygon(list, {random.Point2D(9), random.Point2D(9), random.Point2D(9)});
    const double x = random.Between(-9, 9), r = random.Between(1, 9);
    const double from = random.Between(0, 360), sweep = random.Between(10, 300);
    Add(list, ArcByAngles(x, 3, r, from, sweep));
    const double step = random.Between(0.5, 20);
    EXPECT_EQ(Angle(list, step), PlainSearch(list, step));
  }
}

// A square that is d degrees off has the very same box when it is turned by 90 - 2 d: roundings
// decide, and those depend on every single step and on the point it is turned about.
TEST(GetAngleWithMinBoundingBox, DecidesBetweenEqualBoxesByTheRoundingsOfItsSteps) {
  support::Random random;
  int later = 0;
  for (int round = 0; round < 200; ++round) {
    const int off = random.Int(2, 20), parts = random.Int(1, 3);
    const GX2DPoint corner = random.Point2D(30);
    GX2DElmList list;
    AddTurned(list, 7, 7, off, corner.X, corner.Y);
    const double step = (90.0 - 2 * off) / parts, found = Angle(list, step);
    ASSERT_EQ(found, PlainSearch(list, step));
    if (found != 0) ++later;
  }
  EXPECT_GT(later, 0);  // both happen
  EXPECT_LT(later, 200);
}

}  // namespace
