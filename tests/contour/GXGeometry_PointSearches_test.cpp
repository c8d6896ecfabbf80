#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <vector>

namespace {

using support::Point;

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();

double Above(double x) { return std::nextafter(x, kInfinity); }
double Below(double x) { return std::nextafter(x, -kInfinity); }

const GX2DPoint kPreset(-71, -72);

// The grid. Rows and columns are single points at the origin unless a test says otherwise, so that
// both distances of a grid point are its distance from the origin.

struct Grid {
  GX2DPoint points[4][8];
  GX2DPoint rows[4];
  GX2DPoint columns[8];
  int lastRow = 0;
  int lastColumn = 0;
  double rowLength = 0;
  double columnLength = 0;
};

struct Choice {
  GX2DPoint best = kPreset;
  GX2DPoint row = kPreset;
  GX2DPoint column = kPreset;
};

Choice Chosen(Grid grid) {
  Choice choice;
  GXGeometry::DeterminePointByLength(choice.best, choice.row, choice.column, grid.points, grid.rows,
                                     grid.lastRow, grid.columns, grid.lastColumn, grid.rowLength,
                                     grid.columnLength);
  return choice;
}

void ExpectChoice(const Grid& grid, const GX2DPoint& best) {
  EXPECT_POINT_EQ(Chosen(grid).best, best);
}

void ExpectNothing(const Grid& grid) {
  const Choice choice = Chosen(grid);
  EXPECT_POINT_EQ(choice.best, kPreset);
  EXPECT_POINT_EQ(choice.row, kPreset);
  EXPECT_POINT_EQ(choice.column, kPreset);
}

TEST(DeterminePointByLength, TakesTheSmallestExcessOfBothLengths) {
  Grid grid;
  grid.lastRow = 1;
  grid.lastColumn = 2;
  grid.points[0][0] = Point(30, 40);
  grid.points[0][1] = Point(9, 12);
  grid.points[0][2] = Point(3, 4);  // too short
  grid.points[1][0] = Point(12, 16);
  grid.points[1][1] = Point(6, 8);
  grid.points[1][2] = Point(0, 11);
  grid.rowLength = 9;
  grid.columnLength = 10;
  ExpectChoice(grid, Point(6, 8));
}

TEST(DeterminePointByLength, HandsOutThePointsOfRowAndColumn) {
  Grid grid;
  grid.lastRow = 3;
  grid.lastColumn = 7;
  grid.rows[2] = Point(10, 0);
  grid.columns[5] = Point(0, 20);
  grid.points[2][5] = Point(13, 24);
  // From (10, 0): sqrt(9 + 576) = 24.19; from (0, 20): sqrt(169 + 16) = 13.6. All others have a
  // distance of 0, 10 or 20 at most.
  grid.rowLength = 24;
  grid.columnLength = 13;
  const Choice choice = Chosen(grid);
  EXPECT_POINT_EQ(choice.best, Point(13, 24));
  EXPECT_POINT_EQ(choice.row, Point(10, 0));
  EXPECT_POINT_EQ(choice.column, Point(0, 20));
}

TEST(DeterminePointByLength, MeasuresTheFirstLengthFromTheRowAndTheSecondFromTheColumn) {
  Grid grid;
  grid.rows[0] = Point(0, 0);
  grid.columns[0] = Point(0, 10);
  grid.points[0][0] = Point(0, 7);  // 7 from the row, 3 from the column
  grid.rowLength = 7;
  grid.columnLength = 3;
  ExpectChoice(grid, Point(0, 7));
  grid.rowLength = 3;
  grid.columnLength = 7;
  ExpectNothing(grid);
}

TEST(DeterminePointByLength, CountsADistanceThatIsExactlyTheLength) {
  Grid grid;
  grid.points[0][0] = Point(3, 4);
  grid.rowLength = 5;
  grid.columnLength = 5;
  ExpectChoice(grid, Point(3, 4));
  grid.rowLength = Above(5);
  ExpectNothing(grid);
  grid.rowLength = 5;
  grid.columnLength = Above(5);
  ExpectNothing(grid);
}

TEST(DeterminePointByLength, LeavesTheOutputsAloneWhereAllIsTooShort) {
  Grid grid;
  grid.lastRow = 3;
  grid.lastColumn = 7;
  for (auto& row : grid.points) {
    for (GX2DPoint& p : row) p = Point(3, 4);
  }
  grid.rowLength = 6;
  grid.columnLength = 6;
  ExpectNothing(grid);
  grid.rowLength = 4;  // one of the two is not enough
  ExpectNothing(grid);
}

TEST(DeterminePointByLength, KeepsTheEarlierOfEqualCandidatesRowByRow) {
  Grid grid;
  grid.lastRow = 1;
  grid.lastColumn = 1;
  grid.points[0][0] = Point(0, 9);
  grid.points[0][1] = Point(3, 4);
  grid.points[1][0] = Point(4, 3);
  grid.points[1][1] = Point(0, 5);
  ExpectChoice(grid, Point(3, 4));
  grid.points[0][1] = Point(0, 9);
  ExpectChoice(grid, Point(4, 3));
  grid.points[0][0] = Point(5, 0);
  ExpectChoice(grid, Point(5, 0));
}

TEST(DeterminePointByLength, KeepsACandidateWithoutAnyExcess) {
  // An excess of 0 is a best one too: nothing behind it is taken.
  Grid grid;
  grid.lastColumn = 1;
  grid.points[0][0] = Point(3, 4);
  grid.points[0][1] = Point(6, 8);
  grid.rowLength = 5;
  grid.columnLength = 5;
  ExpectChoice(grid, Point(3, 4));
}

TEST(DeterminePointByLength, TakesTheSumAndNotEitherExcess) {
  Grid grid;
  grid.lastColumn = 1;
  grid.columns[0] = Point(0, 100);
  grid.columns[1] = Point(0, 50);
  grid.points[0][0] = Point(0, 10);  // 10 and 90
  grid.points[0][1] = Point(0, 20);  // 20 and 30
  ExpectChoice(grid, Point(0, 20));
}

TEST(DeterminePointByLength, LooksAtTheLastRowAndColumnAndNoFurther) {
  Grid grid;
  grid.lastRow = 2;
  grid.lastColumn = 6;
  grid.rowLength = 5;
  grid.points[2][6] = Point(3, 4);
  ExpectChoice(grid, Point(3, 4));
  grid.lastRow = 1;
  ExpectNothing(grid);
  grid.lastRow = 2;
  grid.lastColumn = 5;
  ExpectNothing(grid);
}

TEST(DeterminePointByLength, DoesNothingWithoutRowsOrColumns) {
  Grid grid;
  grid.points[0][0] = Point(3, 4);
  for (const int none : {-1, -2, std::numeric_limits<int>::min()}) {
    grid.lastRow = none;
    grid.lastColumn = 0;
    ExpectNothing(grid);
    grid.lastRow = 0;
    grid.lastColumn = none;
    ExpectNothing(grid);
  }
}

TEST(DeterminePointByLength, DoesNotLookBeyondTheEighthColumn) {
  // Room of its own for each array, so that a memory checker sees a step too far.
  const std::unique_ptr<GX2DPoint[][8]> points(new GX2DPoint[1][8]);
  const std::unique_ptr<GX2DPoint[]> rows(new GX2DPoint[1]);
  const std::unique_ptr<GX2DPoint[]> columns(new GX2DPoint[8]);
  points[0][7] = Point(3, 4);
  for (const int last : {7, 8, 100, std::numeric_limits<int>::max()}) {
    Choice choice;
    GXGeometry::DeterminePointByLength(choice.best, choice.row, choice.column, points.get(),
                                       rows.get(), 0, columns.get(), last, 5, 5);
    EXPECT_POINT_EQ(choice.best, Point(3, 4));
  }
}

TEST(DeterminePointByLength, DoesNothingWithANullPointer) {
  Grid grid;
  grid.points[0][0] = Point(3, 4);
  Choice choice;
  GXGeometry::DeterminePointByLength(choice.best, choice.row, choice.column, nullptr, grid.rows, 0,
                                     grid.columns, 0, 0, 0);
  GXGeometry::DeterminePointByLength(choice.best, choice.row, choice.column, grid.points, nullptr,
                                     0, grid.columns, 0, 0, 0);
  GXGeometry::DeterminePointByLength(choice.best, choice.row, choice.column, grid.points, grid.rows,
                                     0, nullptr, 0, 0, 0);
  EXPECT_POINT_EQ(choice.best, kPreset);
  EXPECT_POINT_EQ(choice.row, kPreset);
  EXPECT_POINT_EQ(choice.column, kPreset);
}

TEST(DeterminePointByLength, PassesOverWhatIsNoNumber) {
  Grid grid;
  grid.lastColumn = 2;
  grid.points[0][0] = Point(kNaN, 4);
  grid.points[0][1] = Point(3, 4);
  grid.points[0][2] = Point(0, kNaN);
  ExpectChoice(grid, Point(3, 4));
  grid.rowLength = kNaN;
  ExpectNothing(grid);
  grid.rowLength = kInfinity;
  ExpectNothing(grid);
  grid.rowLength = -kInfinity;
  ExpectChoice(grid, Point(3, 4));
}

TEST(DeterminePointByLength, MayWriteIntoTheGrid) {
  Grid grid;
  grid.lastColumn = 1;
  grid.points[0][0] = Point(6, 8);
  grid.points[0][1] = Point(3, 4);
  GX2DPoint row, column;
  GXGeometry::DeterminePointByLength(grid.points[0][0], row, column, grid.points, grid.rows, 0,
                                     grid.columns, 1, 5, 5);
  EXPECT_POINT_EQ(grid.points[0][0], Point(3, 4));
}

// Points in a direction.

struct Found {
  int last = -99;
  std::vector<GX2DPoint> points = std::vector<GX2DPoint>(12, kPreset);
};

Found InDirection(std::vector<GX2DPoint> points, const GX2DPoint& origin, const GX3DPoint& target) {
  Found found;
  found.last = GXGeometry::FindPointInList(points.data(), found.points.data(),
                                           static_cast<int>(points.size()), origin, target);
  for (std::size_t i = static_cast<std::size_t>(found.last + 1); i < found.points.size(); ++i) {
    EXPECT_POINT_EQ(found.points[i], kPreset) << i;
  }
  return found;
}

/// Whether a single point is found, seen from the origin.
bool IsFound(const GX2DPoint& p, const GX3DPoint& target) {
  return InDirection({p}, Point(0, 0), target).last == 0;
}

TEST(FindPointInList, CopiesThePointsInTheDirectionInOrder) {
  const Found found =
      InDirection({Point(9, 2), Point(1, 9), Point(4, 2), Point(-4, 2), Point(1, 2), Point(4, 2)},
                  Point(1, 2), Point(2, 2, 0));
  EXPECT_EQ(found.last, 2);
  EXPECT_POINT_EQ(found.points[0], Point(9, 2));
  EXPECT_POINT_EQ(found.points[1], Point(4, 2));
  EXPECT_POINT_EQ(found.points[2], Point(4, 2));
}

TEST(FindPointInList, IsMinusOneWhereThereIsNone) {
  EXPECT_EQ(InDirection({Point(-1, 0), Point(0, 1)}, Point(0, 0), Point(1, 0, 0)).last, -1);
}

TEST(FindPointInList, StopsAtNineHoweverManyFollow) {
  for (const std::size_t count : {8u, 9u, 10u, 100u}) {
    const std::vector<GX2DPoint> points(count, Point(3, 0));
    EXPECT_EQ(InDirection(points, Point(0, 0), Point(1, 0, 0)).last, count == 8 ? 7 : 8);
  }
}

TEST(FindPointInList, LooksAtNoMorePointsThanCounted) {
  GX2DPoint points[] = {Point(1, 0), Point(2, 0), Point(3, 0)};
  GX2DPoint found[9] = {kPreset, kPreset, kPreset, kPreset, kPreset,
                        kPreset, kPreset, kPreset, kPreset};
  EXPECT_EQ(GXGeometry::FindPointInList(points, found, 2, Point(0, 0), Point(1, 0, 0)), 1);
  EXPECT_POINT_EQ(found[2], kPreset);
  for (const int none : {0, -1, std::numeric_limits<int>::min()}) {
    EXPECT_EQ(GXGeometry::FindPointInList(points, found, none, Point(0, 0), Point(1, 0, 0)), -1);
  }
}

TEST(FindPointInList, IsMinusOneForANullPointer) {
  GX2DPoint points[] = {Point(1, 0)};
  GX2DPoint found[9];
  EXPECT_EQ(GXGeometry::FindPointInList(nullptr, found, 1, Point(0, 0), Point(1, 0, 0)), -1);
  EXPECT_EQ(GXGeometry::FindPointInList(points, nullptr, 1, Point(0, 0), Point(1, 0, 0)), -1);
}

TEST(FindPointInList, Reaches0_0001OfTheCosine) {
  // The cosine of 0.01414 is 1 - 0.00009997, that of 0.01415 is 1 - 0.00010011.
  for (const double side : {1.0, -1.0}) {
    const auto at = [&](double angle) {
      return Point(40 * std::cos(angle), side * 40 * std::sin(angle));
    };
    EXPECT_TRUE(IsFound(at(0.01414), Point(2, 0, 0)));
    EXPECT_FALSE(IsFound(at(0.01415), Point(2, 0, 0)));
  }
  EXPECT_FALSE(IsFound(Point(-40, 0), Point(2, 0, 0)));
}

TEST(FindPointInList, MeasuresTheDirectionOfTheTargetInSpace) {
  // The height makes an angle of its own: its tangent is 0.0141 or 0.0142.
  EXPECT_TRUE(IsFound(Point(5, 0), Point(1, 0, 0.0141)));
  EXPECT_FALSE(IsFound(Point(5, 0), Point(1, 0, 0.0142)));
  EXPECT_FALSE(IsFound(Point(5, 0), Point(1, 0, -0.0142)));
}

TEST(FindPointInList, DoesNotAskForTheDistance) {
  EXPECT_TRUE(IsFound(Point(3e-9, 4e-9), Point(30, 40, 0)));
  EXPECT_TRUE(IsFound(Point(3e9, 4e9), Point(30, 40, 0)));
}

TEST(FindPointInList, FindsNothingWithoutADirection) {
  EXPECT_FALSE(IsFound(Point(0, 0), Point(1, 0, 0)));
  EXPECT_FALSE(IsFound(Point(5, 0), Point(0, 0, 0)));
  for (const double odd : {kNaN, kInfinity, -kInfinity}) {
    EXPECT_FALSE(IsFound(Point(odd, 0), Point(1, 0, 0)));
    EXPECT_FALSE(IsFound(Point(1, 0), Point(odd, 0, 0)));
  }
}

TEST(FindPointInList, MayGatherThePointsInTheirOwnArray) {
  GX2DPoint points[9] = {Point(0, 1), Point(1, 0), Point(0, 2), Point(2, 0), Point(3, 0)};
  EXPECT_EQ(GXGeometry::FindPointInList(points, points, 5, Point(0, 0), Point(1, 0, 0)), 2);
  EXPECT_POINT_EQ(points[0], Point(1, 0));
  EXPECT_POINT_EQ(points[1], Point(2, 0));
  EXPECT_POINT_EQ(points[2], Point(3, 0));
}

// Two distances.

TEST(CheckIfPointAtDistanceFrom2Points, WantsBothDistances) {
  const GX2DPoint a(1, 1);
  const GX2DPoint b(4, 5);   // 5 away
  const GX2DPoint c(6, 13);  // 13 away
  EXPECT_TRUE(GXGeometry::CheckIfPointAtDistanceFrom2Points(a, b, 5, c, 13));
  EXPECT_FALSE(GXGeometry::CheckIfPointAtDistanceFrom2Points(a, b, 13, c, 5));
  EXPECT_FALSE(GXGeometry::CheckIfPointAtDistanceFrom2Points(a, b, 5.001, c, 13));
  EXPECT_FALSE(GXGeometry::CheckIfPointAtDistanceFrom2Points(a, b, 4.999, c, 13));
  EXPECT_FALSE(GXGeometry::CheckIfPointAtDistanceFrom2Points(a, b, 5, c, 13.001));
  EXPECT_FALSE(GXGeometry::CheckIfPointAtDistanceFrom2Points(a, b, 5, c, 12.999));
}

TEST(CheckIfPointAtDistanceFrom2Points, Reaches0_0001Inclusive) {
  // All distances are 0, so that the given ones are compared themselves.
  const GX2DPoint p(7, 7);
  const auto check = [&](double distanceB, double distanceC) {
    return GXGeometry::CheckIfPointAtDistanceFrom2Points(p, p, distanceB, p, distanceC);
  };
  EXPECT_TRUE(check(0.0001, 0));
  EXPECT_TRUE(check(-0.0001, 0));
  EXPECT_TRUE(check(0, 0.0001));
  EXPECT_TRUE(check(0, -0.0001));
  EXPECT_FALSE(check(Above(0.0001), 0));
  EXPECT_FALSE(check(Below(-0.0001), 0));
  EXPECT_FALSE(check(0, Above(0.0001)));
  EXPECT_FALSE(check(0, Below(-0.0001)));
}

TEST(CheckIfPointAtDistanceFrom2Points, IsFalseForWhatIsNoNumber) {
  const GX2DPoint p(0, 0);
  EXPECT_FALSE(GXGeometry::CheckIfPointAtDistanceFrom2Points(p, p, kNaN, p, 0));
  EXPECT_FALSE(GXGeometry::CheckIfPointAtDistanceFrom2Points(p, p, 0, p, kNaN));
  EXPECT_FALSE(GXGeometry::CheckIfPointAtDistanceFrom2Points(Point(kNaN, 0), p, 0, p, 0));
  EXPECT_FALSE(GXGeometry::CheckIfPointAtDistanceFrom2Points(p, p, 0, Point(0, kNaN), 0));
}

// The rightmost point.

/// With the second point at an angle on a circle of radius 5 about (10, 20, 3).
bool IsExternal(double angle) {
  const auto at = [](double radians) {
    return Point(10 + 5 * std::cos(radians), 20 + 5 * std::sin(radians), 3);
  };
  return GXGeometry::IsPointXExternalPointOnArc(at(1.5), at(angle), at(-2));
}

TEST(IsPointXExternalPointOnArc, IsTrueAtTheRightEndOfTheCircleAlone) {
  EXPECT_TRUE(IsExternal(0));
  EXPECT_FALSE(IsExternal(0.5));
  EXPECT_FALSE(IsExternal(-0.5));
  EXPECT_FALSE(IsExternal(support::kPi));
  EXPECT_FALSE(IsExternal(support::kPi / 2));
}

TEST(IsPointXExternalPointOnArc, Reaches0_000001ToTheLeft) {
  // 5 (1 - cos) is 0.0000009 at 0.0006 and 0.0000012 at 0.0007.
  for (const double side : {1.0, -1.0}) {
    EXPECT_TRUE(IsExternal(side * 0.0006));
    EXPECT_FALSE(IsExternal(side * 0.0007));
  }
}

TEST(IsPointXExternalPointOnArc, AsksForTheSecondPoint) {
  EXPECT_FALSE(
      GXGeometry::IsPointXExternalPointOnArc(Point(5, 0, 0), Point(0, 5, 0), Point(-5, 0, 0)));
  EXPECT_FALSE(
      GXGeometry::IsPointXExternalPointOnArc(Point(-5, 0, 0), Point(0, 5, 0), Point(5, 0, 0)));
  EXPECT_TRUE(
      GXGeometry::IsPointXExternalPointOnArc(Point(0, 5, 0), Point(5, 0, 0), Point(0, -5, 0)));
}

TEST(IsPointXExternalPointOnArc, MeasuresTheRadiusInSpace) {
  EXPECT_TRUE(
      GXGeometry::IsPointXExternalPointOnArc(Point(0, 0, 5), Point(5, 0, 0), Point(-3, 0, -4)));
  // On a circle that is tilted about Y no point is a whole radius to the right.
  const double half = std::sqrt(0.5);
  EXPECT_FALSE(GXGeometry::IsPointXExternalPointOnArc(Point(0, 5, 0), Point(5 * half, 0, 5 * half),
                                                      Point(0, -5, 0)));
}

TEST(IsPointXExternalPointOnArc, MeasuresPointsInLineFromTheOrigin) {
  const auto check = [](double x1, double x2, double x3) {
    return GXGeometry::IsPointXExternalPointOnArc(Point(x1, 0, 0), Point(x2, 0, 0),
                                                  Point(x3, 0, 0));
  };
  EXPECT_TRUE(check(1, 2, 3));
  EXPECT_FALSE(check(3, 2, 1));
  // The radius is 1, so that the bound itself can be asked for: strictly beyond it.
  EXPECT_FALSE(check(1, 1 - 0.000001, 3));
  EXPECT_TRUE(check(1, Above(1 - 0.000001), 3));
}

TEST(IsPointXExternalPointOnArc, IsFalseForWhatIsNoNumber) {
  EXPECT_FALSE(
      GXGeometry::IsPointXExternalPointOnArc(Point(kNaN, 0, 0), Point(5, 0, 0), Point(0, 5, 0)));
  EXPECT_FALSE(
      GXGeometry::IsPointXExternalPointOnArc(Point(0, 5, 0), Point(kNaN, 0, 0), Point(0, -5, 0)));
}

}  // namespace
