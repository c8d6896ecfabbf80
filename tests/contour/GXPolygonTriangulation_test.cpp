// Which ears are clipped, and what the removal of vertices leaves out.
#include <KTRCL_Geometry/contour/GXPolygonTriangulation.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using support::OnCircle;
using support::Point;

using Points = std::vector<GX2DPoint>;
using Triangle = std::array<std::size_t, 3>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

/// Corners of a polygon, counter-clockwise, the first one anywhere.
Points Regular(std::size_t count, double from = 0.0) {
  Points points;
  for (std::size_t i = 0; i < count; ++i) {
    const double share = static_cast<double>(i) / static_cast<double>(count);
    points.push_back(OnCircle(3, -2, 10, from + 360.0 * share));
  }
  return points;
}

/// Fails unless the result and the triangles, by the positions of their corners, are as given.
void ExpectTriangles(const Points& contour, bool expected, const std::vector<Triangle>& triangles) {
  Points result;
  EXPECT_EQ(GXPolygonTriangulation::Process(contour, result), expected);
  ASSERT_EQ(result.size(), 3 * triangles.size());
  for (std::size_t i = 0; i < result.size(); ++i) {
    EXPECT_POINT_EQ(result[i], contour[triangles[i / 3][i % 3]]) << "corner " << i;
  }
}

void ExpectTrianglesOfRegular(std::size_t count, bool expected,
                              const std::vector<Triangle>& triangles) {
  for (double from = 0.0; from < 360.0; from += 17.0) {
    SCOPED_TRACE("first corner at " + std::to_string(from) + " degrees");
    ExpectTriangles(Regular(count, from), expected, triangles);
  }
}

TEST(Process, RefusesRegularPolygonsOfTwoCorners) { ExpectTrianglesOfRegular(2, false, {}); }

TEST(Process, TakesARegularTriangle) { ExpectTrianglesOfRegular(3, true, {{2, 0, 1}}); }

TEST(Process, GivesOneTriangleOfASquare) { ExpectTrianglesOfRegular(4, true, {{3, 0, 1}}); }

TEST(Process, FailsOnARegularPentagonBehindOneTriangle) {
  ExpectTrianglesOfRegular(5, false, {{4, 0, 1}});
}

TEST(Process, GivesTwoTrianglesOfARegularHexagon) {
  ExpectTrianglesOfRegular(6, true, {{5, 0, 1}, {1, 2, 3}});
}

TEST(Process, FailsOnARegularHeptagonBehindOneTriangle) {
  ExpectTrianglesOfRegular(7, false, {{6, 0, 1}});
}

TEST(Process, FailsOnARegularOctagonBehindTwoTriangles) {
  ExpectTrianglesOfRegular(8, false, {{7, 0, 1}, {1, 2, 3}});
}

TEST(Process, GivesTheSameTrianglesWhicheverCornerComesFirst) {
  // The positions in the list stay, the corners there change.
  Points corners = Regular(6);
  for (int turn = 0; turn < 6; ++turn) {
    std::rotate(corners.begin(), corners.begin() + 1, corners.end());
    ExpectTriangles(corners, true, {{5, 0, 1}, {1, 2, 3}});
  }
}

TEST(Process, TheRemovalOfAnEarDropsVerticesWithoutTriangles) {
  // Four triangles cover a hexagon; there are two, each a corner with its two neighbours. With the
  // radius r that is r * r * sqrt(3) / 4, a sixth of the whole 3 * r * r * sqrt(3) / 2.
  const Points hexagon = Regular(6);
  Points result;
  ASSERT_TRUE(GXPolygonTriangulation::Process(hexagon, result));
  ASSERT_EQ(result.size(), 6U);
  const double whole = GXPolygonTriangulation::Area(hexagon);
  for (std::size_t i = 0; i < result.size(); i += 3) {
    const Points triangle(result.begin() + static_cast<std::ptrdiff_t>(i),
                          result.begin() + static_cast<std::ptrdiff_t>(i) + 3);
    EXPECT_NEAR(GXPolygonTriangulation::Area(triangle), whole / 6.0, 1e-12);
  }
}

TEST(Process, AnEarAtTheLastPositionStaysAndIsTakenAgainAtAnotherCorner) {
  // Of nine corners the first ear leaves 1, 2, 3, 4, 4 and the second one 1, 3, 4. Corner 4 stands
  // last there: nothing moves, and the same triangle follows once more, at corner 1.
  ExpectTrianglesOfRegular(9, true, {{8, 0, 1}, {1, 2, 3}, {3, 4, 1}, {4, 1, 3}});
}

TEST(Process, TheOnlyEarLeftAtTheLastPositionIsNotRepeated) {
  // Clockwise, so walked as (3, 2), (4, 0), (2, 4), (2, 2). A reflex corner, a flat one, one with
  // (3, 2) on its far side, and the last one as an ear, which stays for ever.
  const Points contour = {{2, 2}, {2, 4}, {4, 0}, {3, 2}};
  ExpectTriangles(contour, false, {{1, 0, 3}});
}

TEST(Process, ATriangleMayCoverANotchAmongTheDroppedVertices) {
  // (8, 6) is a notch in the triangle of the corners 1, 2, 3. With the ear at corner 0 it is
  // dropped, and nothing keeps the next triangle within the polygon.
  const Points contour = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {8, 6}, {0, 1}};
  ExpectTriangles(contour, true, {{5, 0, 1}, {1, 2, 3}});
}

TEST(Process, WalksAClockwiseTriangleTheOtherWay) {
  const Points clockwise = {{0, 0}, {0, 3}, {4, 0}};
  // Walked as 2, 1, 0: the first triangle is the last, first and second of these.
  ExpectTriangles(clockwise, true, {{0, 2, 1}});
}

TEST(Process, GivesCounterClockwiseTrianglesOfAClockwisePolygon) {
  Points hexagon = Regular(6);
  std::reverse(hexagon.begin(), hexagon.end());
  ExpectTriangles(hexagon, true, {{0, 5, 4}, {4, 3, 2}});
}

TEST(Process, FailsOnThreeCollinearPoints) {
  ExpectTriangles({{0, 0}, {1, 1}, {2, 2}}, false, {});
  ExpectTriangles({{0, 0}, {2, 0}, {1, 0}}, false, {});
}

TEST(Process, FailsOnPointsAtOneSpot) { ExpectTriangles(Points(5, Point(1, 1)), false, {}); }

TEST(Process, RefusesFewerThanThreePoints) {
  ExpectTriangles({}, false, {});
  ExpectTriangles({{1, 2}}, false, {});
  ExpectTriangles({{1, 2}, {3, 4}}, false, {});
}

TEST(Process, AppendsBehindWhatTheResultHolds) {
  const Points triangle = Regular(3);
  Points result = {{7, 7}};
  EXPECT_TRUE(GXPolygonTriangulation::Process(triangle, result));
  EXPECT_TRUE(GXPolygonTriangulation::Process(triangle, result));
  ASSERT_EQ(result.size(), 7U);
  EXPECT_POINT_EQ(result[0], Point(7, 7));
  EXPECT_POINT_EQ(result[1], result[4]);
  EXPECT_FALSE(GXPolygonTriangulation::Process({}, result));
  EXPECT_EQ(result.size(), 7U);
}

TEST(Process, KeepsTheTrianglesFoundBeforeItFails) {
  Points result;
  EXPECT_FALSE(GXPolygonTriangulation::Process(Regular(5), result));
  EXPECT_EQ(result.size(), 3U);
}

TEST(Process, RejectsAnEarWithAVertexOnItsDiagonal) {
  // The ear at (4, 0) has (2, 1) on its diagonal from (4, 2) to (0, 0). The next one, at (4, 2), is
  // free, and what it leaves, (4, 0) and twice (2, 1), is flat.
  const Points contour = {{4, 0}, {4, 2}, {2, 1}, {0, 0}};
  ExpectTriangles(contour, false, {{0, 1, 2}});
}

TEST(Process, AnEarNeedsACrossProductOfOneInTenThousandMillion) {
  // Right triangles with the legs 1 and h: the cross product is h, inclusive.
  ExpectTriangles({{0, 0}, {1, 0}, {0, 1e-10}}, true, {{2, 0, 1}});
  ExpectTriangles({{0, 0}, {1, 0}, {0, std::nextafter(1e-10, 0.0)}}, false, {});
}

TEST(Process, AnyNumberThatIsNotFiniteEnds) {
  for (const double stray : {kNaN, kInf, -kInf, 1e308, 1e-320}) {
    for (std::size_t count = 3; count < 14; ++count) {
      Points contour = Regular(count);
      contour[count / 2].X = stray;
      Points result;
      GXPolygonTriangulation::Process(contour, result);
      EXPECT_LE(result.size(), 9 * count);
      contour[0].Y = stray;
      GXPolygonTriangulation::Process(contour, result);
      EXPECT_LE(result.size(), 18 * count);
    }
  }
}

TEST(Area, IsOneForTheUnitSquareCounterClockwise) {
  EXPECT_EQ(GXPolygonTriangulation::Area({{0, 0}, {1, 0}, {1, 1}, {0, 1}}), 1.0);
}

TEST(Area, IsNegativeForTheUnitSquareClockwise) {
  EXPECT_EQ(GXPolygonTriangulation::Area({{0, 1}, {1, 1}, {1, 0}, {0, 0}}), -1.0);
}

TEST(Area, IsZeroForFewPointsAndFlatOnes) {
  EXPECT_EQ(GXPolygonTriangulation::Area({}), 0.0);
  EXPECT_EQ(GXPolygonTriangulation::Area({{3, 4}}), 0.0);
  EXPECT_EQ(GXPolygonTriangulation::Area({{1, 0}, {0, 1}}), 0.0);
  EXPECT_EQ(GXPolygonTriangulation::Area({{0, 0}, {1, 1}, {2, 2}}), 0.0);
}

TEST(Area, OfARegularPolygonIsThatOfItsTriangles) {
  for (std::size_t count = 3; count < 20; ++count) {
    const double turn = 2.0 * support::kPi / static_cast<double>(count);
    EXPECT_NEAR(GXPolygonTriangulation::Area(Regular(count, 13)),
                0.5 * static_cast<double>(count) * 100.0 * std::sin(turn), 1e-11);
  }
}

TEST(Area, TakesTheLoopsOfAFigureOfEightAgainstEachOther) {
  EXPECT_EQ(GXPolygonTriangulation::Area({{0, 0}, {2, 2}, {2, 0}, {0, 2}}), 0.0);
}

bool Inside(double px, double py) {
  return GXPolygonTriangulation::InsideTriangle(0, 0, 4, 0, 0, 3, px, py);
}

TEST(InsideTriangle, HoldsForPointsWithin) {
  EXPECT_TRUE(Inside(1, 1));
  EXPECT_TRUE(Inside(0.25, 2.5));
}

TEST(InsideTriangle, HoldsForPointsOnEverySideAndCorner) {
  EXPECT_TRUE(Inside(2, 0));
  EXPECT_TRUE(Inside(2, 1.5));
  EXPECT_TRUE(Inside(0, 1));
  EXPECT_TRUE(Inside(0, 0));
  EXPECT_TRUE(Inside(4, 0));
  EXPECT_TRUE(Inside(0, 3));
}

TEST(InsideTriangle, FailsBeyondEachSideWithoutATolerance) {
  EXPECT_FALSE(Inside(2, -1e-300));
  EXPECT_FALSE(Inside(-1e-300, 1));
  EXPECT_FALSE(Inside(2, std::nextafter(1.5, 2.0)));
}

TEST(InsideTriangle, TakesTheTriangleAsCounterClockwise) {
  EXPECT_FALSE(GXPolygonTriangulation::InsideTriangle(0, 0, 0, 3, 4, 0, 1, 1));
}

TEST(InsideTriangle, FailsForWhatIsNoNumber) {
  EXPECT_FALSE(Inside(kNaN, 1));
  EXPECT_FALSE(GXPolygonTriangulation::InsideTriangle(0, kNaN, 4, 0, 0, 3, 1, 1));
}

// The walk written down a second time, with the positions of the corners as result.
namespace plain {

double Area(const Points& contour) {
  double sum = 0.0;
  for (std::size_t q = 0; q < contour.size(); ++q) {
    const GX2DPoint& before = contour[q == 0 ? contour.size() - 1 : q - 1];
    sum += before.X * contour[q].Y - contour[q].X * before.Y;
  }
  return 0.5 * sum;
}

bool Holds(const GX2DPoint& a, const GX2DPoint& b, const GX2DPoint& c, const GX2DPoint& p) {
  return (c.X - b.X) * (p.Y - b.Y) - (p.X - b.X) * (c.Y - b.Y) >= 0.0 &&
         (a.X - c.X) * (p.Y - c.Y) - (a.Y - c.Y) * (p.X - c.X) >= 0.0 &&
         (b.X - a.X) * (p.Y - a.Y) - (b.Y - a.Y) * (p.X - a.X) >= 0.0;
}

bool IsEar(const Points& contour, const std::vector<std::size_t>& walk, std::size_t u,
           std::size_t v, std::size_t w) {
  const GX2DPoint& a = contour[walk[u]];
  const GX2DPoint& b = contour[walk[v]];
  const GX2DPoint& c = contour[walk[w]];
  if ((c.Y - a.Y) * (b.X - a.X) - (b.Y - a.Y) * (c.X - a.X) < 0.0000000001) return false;
  for (std::size_t p = 0; p < walk.size(); ++p) {
    if (p != u && p != v && p != w && Holds(a, b, c, contour[walk[p]])) return false;
  }
  return true;
}

bool Process(const Points& contour, std::vector<Triangle>& triangles) {
  if (contour.size() < 3) return false;
  std::vector<std::size_t> walk(contour.size());
  for (std::size_t i = 0; i < walk.size(); ++i) {
    walk[i] = plain::Area(contour) > 0.0 ? i : walk.size() - 1 - i;
  }
  std::size_t v = walk.size() - 1;
  std::size_t count = 2 * walk.size();
  bool keptAtTheEnd = false;
  for (; walk.size() > 2; --count) {
    if (count == 0) return false;
    const std::size_t n = walk.size();
    const std::size_t u = v < n ? v : 0;
    v = u + 1 < n ? u + 1 : 0;
    const std::size_t w = v + 1 < n ? v + 1 : 0;
    if (!IsEar(contour, walk, u, v, w)) continue;
    const bool atTheEnd = v == n - 1;
    if (atTheEnd && keptAtTheEnd) return false;
    keptAtTheEnd = atTheEnd;
    triangles.push_back({walk[u], walk[v], walk[w]});
    // Half of what stands behind moves up by one, the other half is lost.
    std::size_t left = n;
    for (std::size_t t = v + 1; t < left; ++t) {
      walk[t - 1] = walk[t];
      --left;
    }
    walk.resize(left);
    count = 2 * left + 1;
  }
  return true;
}

}  // namespace plain

/// Fails unless the library and the plain form agree; returns the number of triangles.
std::size_t ExpectPlainForm(const Points& contour) {
  std::vector<Triangle> triangles;
  const bool expected = plain::Process(contour, triangles);
  Points result;
  EXPECT_EQ(GXPolygonTriangulation::Process(contour, result), expected);
  EXPECT_SAME_BITS(GXPolygonTriangulation::Area(contour), plain::Area(contour));
  EXPECT_EQ(result.size(), 3 * triangles.size());
  for (std::size_t i = 0; i < std::min(result.size(), 3 * triangles.size()); ++i) {
    const GX2DPoint& corner = contour[triangles[i / 3][i % 3]];
    EXPECT_SAME_BITS(result[i].X, corner.X);
    EXPECT_SAME_BITS(result[i].Y, corner.Y);
  }
  return triangles.size();
}

TEST(Process, WalksRandomPolygonsAsThePlainFormDoes) {
  support::Random random;
  std::size_t triangles = 0;
  for (int round = 0; round < 2000; ++round) {
    // Star-shaped about the origin, either way round.
    Points contour;
    const int count = random.Int(3, 30);
    const double sense = random.Bool() ? 1.0 : -1.0;
    for (int i = 0; i < count; ++i) {
      contour.push_back(OnCircle(0, 0, random.Between(2, 10), sense * 360.0 * i / count));
    }
    triangles += ExpectPlainForm(contour);
  }
  EXPECT_GT(triangles, 2000U);
}

TEST(Process, WalksPointsOfAGridAsThePlainFormDoes) {
  // Crossing sides, equal and collinear corners, ears at the last position.
  support::Random random;
  std::size_t triangles = 0;
  for (int round = 0; round < 5000; ++round) {
    Points contour;
    for (int i = random.Int(3, 10); i > 0; --i) {
      contour.push_back(Point(random.Int(0, 4), random.Int(0, 4)));
    }
    triangles += ExpectPlainForm(contour);
  }
  EXPECT_GT(triangles, 2000U);
}

TEST(Process, CarriesStrayNumbersAsThePlainFormDoes) {
  constexpr double kStrays[] = {kNaN, kInf, -kInf, 1e308, 1e-320, -0.0};
  support::Random random;
  for (int round = 0; round < 2000; ++round) {
    Points contour = Regular(static_cast<std::size_t>(random.Int(3, 12)));
    for (int i = random.Int(1, 3); i > 0; --i) {
      const int at = random.Int(0, static_cast<int>(contour.size()) - 1);
      GX2DPoint& corner = contour[static_cast<std::size_t>(at)];
      (random.Bool() ? corner.X : corner.Y) = kStrays[random.Int(0, 5)];
    }
    ExpectPlainForm(contour);
  }
}

/// Whether the point is left of every side of a convex polygon, or on it but for rounding.
bool WithinConvex(const Points& polygon, const GX2DPoint& p) {
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const GX2DPoint& a = polygon[i];
    const GX2DPoint& b = polygon[(i + 1) % polygon.size()];
    if ((b.X - a.X) * (p.Y - a.Y) - (b.Y - a.Y) * (p.X - a.X) < -1e-9) return false;
  }
  return true;
}

TEST(Process, EveryTriangleOfAConvexPolygonIsCounterClockwiseAndWithinIt) {
  support::Random random;
  for (int round = 0; round < 300; ++round) {
    std::vector<double> degrees;
    for (int i = random.Int(3, 25); i > 0; --i) {
      degrees.push_back(random.Between(0, 360));
    }
    std::sort(degrees.begin(), degrees.end());
    Points contour;
    for (const double angle : degrees) {
      contour.push_back(OnCircle(1, 2, 10, angle));
    }
    Points result;
    GXPolygonTriangulation::Process(contour, result);
    ASSERT_EQ(result.size() % 3, 0U);
    for (std::size_t i = 0; i < result.size(); i += 3) {
      EXPECT_GT(GXPolygonTriangulation::Area({result[i], result[i + 1], result[i + 2]}), 0.0);
      const GX2DPoint middle((result[i].X + result[i + 1].X + result[i + 2].X) / 3.0,
                             (result[i].Y + result[i + 1].Y + result[i + 2].Y) / 3.0);
      EXPECT_TRUE(WithinConvex(contour, middle));
    }
  }
}

TEST(Process, GivesTheSameCornersOfAPolygonMovedByWholeNumbers) {
  support::Random random;
  for (int round = 0; round < 300; ++round) {
    Points contour, moved;
    for (int i = random.Int(3, 12); i > 0; --i) {
      contour.push_back(Point(random.Int(-9, 9), random.Int(-9, 9)));
      moved.push_back(Point(contour.back().X + 100, contour.back().Y - 50));
    }
    Points result, ofMoved;
    EXPECT_EQ(GXPolygonTriangulation::Process(contour, result),
              GXPolygonTriangulation::Process(moved, ofMoved));
    ASSERT_EQ(result.size(), ofMoved.size());
    for (std::size_t i = 0; i < result.size(); ++i) {
      EXPECT_POINT_EQ(ofMoved[i], Point(result[i].X + 100, result[i].Y - 50));
    }
  }
}

}  // namespace
