// Lines in space are cut where they cross, so that every crossing falls on an end.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace {

using support::Add;
using support::Line;
using support::Point;

/// The crossing is computed in a frame and transformed back: some roundings of coordinates of 10.
constexpr double kRounding = 1e-12;

void Divide(GX3DElmList& list) { EXPECT_TRUE(GXGeometry::DivideLinesAtIntersection(list)); }

/// A line in the plane Z = 0.
GX3DLine Flat(double x1, double y1, double x2, double y2) { return Line(x1, y1, 0, x2, y2, 0); }

/// Fails unless the list holds just these lines.
void ExpectLines(const GX3DElmList& list, const std::vector<GX3DLine>& expected,
                 double tolerance = kRounding) {
  ASSERT_EQ(list.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_POINT_NEAR(support::At<GX3DLine>(list, i), expected[i], tolerance) << "entry " << i;
  }
}

TEST(DivideLinesAtIntersection, DoesNothingBelowTwoElements) {
  GX3DElmList list;
  Divide(list);
  EXPECT_TRUE(list.empty());
  Add(list, Flat(0, 0, 5, 0));
  Divide(list);
  EXPECT_EQ(list.size(), 1U);
}

TEST(DivideLinesAtIntersection, CutsBothLinesOfACross) {
  GX3DElmList list;
  Add(list, Flat(0, 0, 10, 0), Flat(5, -5, 5, 5));
  GX3DElement* const first = list[0];
  GX3DElement* const second = list[1];
  Divide(list);
  ExpectLines(list, {Flat(0, 0, 5, 0), Flat(5, 0, 10, 0), Flat(5, -5, 5, 0), Flat(5, 0, 5, 5)});
  // The new pieces stand in front; the old objects are the last pieces.
  EXPECT_EQ(list[1], first);
  EXPECT_EQ(list[3], second);
}

TEST(DivideLinesAtIntersection, CutsOnlyTheLineThatIsCrossedInItsMiddle) {
  GX3DElmList barFirst, barLast;
  Add(barFirst, Flat(0, 0, 10, 0), Flat(5, 0, 5, 5));
  Divide(barFirst);
  ExpectLines(barFirst, {Flat(0, 0, 5, 0), Flat(5, 0, 10, 0), Flat(5, 0, 5, 5)});
  Add(barLast, Flat(5, 0, 5, 5), Flat(0, 0, 10, 0));
  Divide(barLast);
  ExpectLines(barLast, {Flat(5, 0, 5, 5), Flat(0, 0, 5, 0), Flat(5, 0, 10, 0)});
}

TEST(DivideLinesAtIntersection, LeavesLinesThatMeetAtTheirEnds) {
  GX3DElmList square, near;
  support::AddPolygon(square, {Point(0, 0, 1), Point(4, 0, 1), Point(4, 4, 1), Point(0, 4, 1)});
  Divide(square);
  EXPECT_EQ(square.size(), 4U);
  // The crossing (9.99995, 0) is within the first line, but within 0.0001 of both ends.
  Add(near, Flat(0, 0, 10, 0), Flat(9.99995, 0, 9.99995, 5));
  Divide(near);
  EXPECT_EQ(near.size(), 2U);
}

TEST(DivideLinesAtIntersection, CutsTheOtherLineNearAnEndOfTheFirst) {
  // The crossing is within 0.0001 of the end of the level line, so that one stays whole.
  GX3DElmList levelFirst, levelLast;
  Add(levelFirst, Flat(0, 0, 10, 0), Flat(9.99995, -5, 9.99995, 5));
  Divide(levelFirst);
  ExpectLines(levelFirst,
              {Flat(0, 0, 10, 0), Flat(9.99995, -5, 9.99995, 0), Flat(9.99995, 0, 9.99995, 5)});
  Add(levelLast, Flat(9.99995, -5, 9.99995, 5), Flat(0, 0, 10, 0));
  Divide(levelLast);
  ExpectLines(levelLast,
              {Flat(9.99995, -5, 9.99995, 0), Flat(9.99995, 0, 9.99995, 5), Flat(0, 0, 10, 0)});
}

TEST(DivideLinesAtIntersection, CutsTheOtherLineNearAStartOfTheFirst) {
  GX3DElmList crossed, touched;
  Add(crossed, Flat(0, 0, 10, 0), Flat(0.00005, -5, 0.00005, 5));
  Divide(crossed);
  ExpectLines(crossed,
              {Flat(0, 0, 10, 0), Flat(0.00005, -5, 0.00005, 0), Flat(0.00005, 0, 0.00005, 5)});
  Add(touched, Flat(0, 0, 10, 0), Flat(0.00005, 5, 0.00005, 0));
  Divide(touched);
  EXPECT_EQ(touched.size(), 2U);
}

TEST(DivideLinesAtIntersection, AsksForAParameterStrictlyInside) {
  // Along 1000 the parameter 5e-7 is 0.0005 from the start: no end, but not inside either.
  for (const double x : {0.0005, 999.9995}) {
    GX3DElmList first, second;
    Add(first, Flat(0, 0, 1000, 0), Flat(x, 0, x, 5));
    Divide(first);
    EXPECT_EQ(first.size(), 2U);
    Add(second, Flat(x, 0, x, 5), Flat(0, 0, 1000, 0));
    Divide(second);
    EXPECT_EQ(second.size(), 2U);
  }
  for (const double x : {0.002, 999.998}) {
    GX3DElmList first, second;
    Add(first, Flat(0, 0, 1000, 0), Flat(x, 0, x, 5));
    Divide(first);
    ExpectLines(first, {Flat(0, 0, x, 0), Flat(x, 0, 1000, 0), Flat(x, 0, x, 5)}, 1e-9);
    Add(second, Flat(x, 0, x, 5), Flat(0, 0, 1000, 0));
    Divide(second);
    ExpectLines(second, {Flat(x, 0, x, 5), Flat(0, 0, x, 0), Flat(x, 0, 1000, 0)}, 1e-9);
  }
}

TEST(DivideLinesAtIntersection, LetsTheOtherLineFallShortByAHundredThousandth) {
  // The upright line of length 1000 begins 0.005 above the level one, at the parameter -5e-6.
  GX3DElmList first, second, tooFar;
  Add(first, Flat(0, 0, 10, 0), Flat(5, 0.005, 5, 1000.005));
  Divide(first);
  ExpectLines(first, {Flat(0, 0, 5, 0), Flat(5, 0, 10, 0), Flat(5, 0.005, 5, 1000.005)}, 1e-9);
  Add(second, Flat(5, 1000.005, 5, 0.005), Flat(0, 0, 10, 0));
  Divide(second);
  ExpectLines(second, {Flat(5, 1000.005, 5, 0.005), Flat(0, 0, 5, 0), Flat(5, 0, 10, 0)}, 1e-9);
  Add(tooFar, Flat(0, 0, 10, 0), Flat(5, 0.02, 5, 1000.02));
  Divide(tooFar);
  EXPECT_EQ(tooFar.size(), 2U);
}

TEST(DivideLinesAtIntersection, LeavesParallelAndOverlappingLines) {
  GX3DElmList list;
  Add(list, Flat(0, 0, 10, 0), Flat(0, 1, 10, 1), Flat(4, 0, 20, 0), Flat(10, 0, 0, 0));
  Divide(list);
  EXPECT_EQ(list.size(), 4U);
}

TEST(DivideLinesAtIntersection, KeepsThePiecesInTheOrderOfTheChain) {
  // Crossed at 7 first and then at 3.
  GX3DElmList list;
  Add(list, Flat(0, 0, 10, 0), Flat(7, -1, 7, 1), Flat(3, 1, 3, -1));
  Divide(list);
  ExpectLines(list, {Flat(0, 0, 3, 0), Flat(3, 0, 7, 0), Flat(7, 0, 10, 0), Flat(7, -1, 7, 0),
                     Flat(7, 0, 7, 1), Flat(3, 1, 3, 0), Flat(3, 0, 3, -1)});
}

TEST(DivideLinesAtIntersection, GoesOnWithTheSameLineAfterCuttingLaterOnes) {
  // The first line ends on the second and starts on the third; both are cut in one round.
  GX3DElmList list;
  Add(list, Flat(5, 0, 5, 10), Flat(0, 10, 10, 10), Flat(0, 0, 10, 0));
  Divide(list);
  ExpectLines(list, {Flat(5, 0, 5, 10), Flat(0, 10, 5, 10), Flat(5, 10, 10, 10), Flat(0, 0, 5, 0),
                     Flat(5, 0, 10, 0)});
}

TEST(DivideLinesAtIntersection, NeverCutsArcs) {
  GX3DElmList list;
  Add(list, support::Arc3D(support::Arc(0, 0, 5, 0, 0, 5, -5, 0), 0), Flat(0, 0, 0, 9),
      Point(0, 3, 0));
  list.push_back(new support::Foreign3D(Point(-1, 4, 0), Point(1, 4, 0)));
  Divide(list);
  EXPECT_EQ(list.size(), 4U);
}

TEST(DivideLinesAtIntersection, PassesOverOtherKindsBetweenTheLines) {
  GX3DElmList list;
  Add(list, Flat(0, 0, 10, 0), Point(1, 1, 1), Flat(5, -5, 5, 5));
  Divide(list);
  ASSERT_EQ(list.size(), 5U);
  EXPECT_POINT_EQ(support::At<GX3DPoint>(list, 2), Point(1, 1, 1));
}

// The lines pass each other at a distance of 3. In the plane of the first and the start of the
// second they cross at (5, 0, 0), the foot on the first; along the longest axis of the second that
// is its middle. Both are cut there, so the second is bent over to the first.
TEST(DivideLinesAtIntersection, BendsSkewLinesToTheirCrossingInThePlane) {
  GX3DElmList list;
  Add(list, Line(0, 0, 0, 10, 0, 0), Line(5, -5, 3, 5, 5, 3));
  Divide(list);
  ExpectLines(list, {Line(0, 0, 0, 5, 0, 0), Line(5, 0, 0, 10, 0, 0), Line(5, -5, 3, 5, 0, 0),
                     Line(5, 0, 0, 5, 5, 3)});
}

TEST(DivideLinesAtIntersection, LeavesSkewLinesThatPassBesideEachOther) {
  GX3DElmList list;
  Add(list, Line(0, 0, 0, 10, 0, 0), Line(15, -5, 3, 15, 5, 3));
  Divide(list);
  EXPECT_EQ(list.size(), 2U);
}

TEST(DivideLinesAtIntersection, EndsOnCoordinatesThatAreNoNumbers) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  GX3DElmList list;
  Add(list, Line(0, 0, 0, nan, 0, 0), Line(0, -1, 0, 0, infinity, 0), Line(-1, 0, 0, 9, 0, 0),
      Line(infinity, nan, 0, -infinity, 0, 1), Line(1e300, 0, 0, -1e300, 1, 0));
  Divide(list);
  EXPECT_GE(list.size(), 5U);
}

using Corner = std::array<double, 2>;
struct Segment {
  Corner a, b;
};

/// Share of `s` at its crossing with the carrier of `other`; far off for parallel ones.
double CrossingShare(const Segment& s, const Segment& other) {
  const long double dx = static_cast<long double>(s.b[0]) - s.a[0];
  const long double dy = static_cast<long double>(s.b[1]) - s.a[1];
  const long double ex = static_cast<long double>(other.b[0]) - other.a[0];
  const long double ey = static_cast<long double>(other.b[1]) - other.a[1];
  const long double cross = dx * ey - dy * ex;
  if (std::fabs(cross) < 1e-3L) {
    return 1e9;
  }
  const long double wx = static_cast<long double>(other.a[0]) - s.a[0];
  const long double wy = static_cast<long double>(other.a[1]) - s.a[1];
  return static_cast<double>((wx * ey - wy * ex) / cross);
}

/// The point of the plane spanned by the orthonormal u and v.
GX3DPoint Lifted(const Corner& p) {
  // u = (2, 2, 1) / 3, v = (-2, 1, 2) / 3, shifted by (1, -4, 2).
  return Point(1 + (2 * p[0] - 2 * p[1]) / 3, -4 + (2 * p[0] + p[1]) / 3,
               2 + (p[0] + 2 * p[1]) / 3);
}

/// Random segments, none of which meets another within 0.01 of an end.
std::vector<Segment> RandomSegments(support::Random& random, int count) {
  std::vector<Segment> segments;
  while (static_cast<int>(segments.size()) < count) {
    const Segment s = {{random.Between(-20, 20), random.Between(-20, 20)},
                       {random.Between(-20, 20), random.Between(-20, 20)}};
    const auto clear = [&](const Segment& other) {
      for (const double t : {CrossingShare(s, other), CrossingShare(other, s)}) {
        if (t > 1e8 || std::fabs(t) < 0.02 || std::fabs(t - 1) < 0.02) return false;
      }
      return true;
    };
    if (std::hypot(s.b[0] - s.a[0], s.b[1] - s.a[1]) > 2 &&
        std::all_of(segments.begin(), segments.end(), clear)) {
      segments.push_back(s);
    }
  }
  return segments;
}

TEST(DivideLinesAtIntersection, CutsEveryLineAtAllItsCrossingsInATiltedPlane) {
  support::Random random;
  for (int round = 0; round < 60; ++round) {
    const std::vector<Segment> segments = RandomSegments(random, random.Int(2, 12));
    GX3DElmList list;
    std::vector<GX3DLine> expected;
    for (const Segment& s : segments) {
      Add(list, GX3DLine(Lifted(s.a), Lifted(s.b)));
      std::vector<double> shares = {0.0, 1.0};
      for (const Segment& other : segments) {
        const double t = CrossingShare(s, other), u = CrossingShare(other, s);
        if (&other != &s && t > 0 && t < 1 && u > 0 && u < 1) shares.push_back(t);
      }
      std::sort(shares.begin(), shares.end());
      for (std::size_t i = 1; i < shares.size(); ++i) {
        const auto at = [&](double t) {
          return Lifted({s.a[0] + (s.b[0] - s.a[0]) * t, s.a[1] + (s.b[1] - s.a[1]) * t});
        };
        expected.push_back(GX3DLine(at(shares[i - 1]), at(shares[i])));
      }
    }
    const std::vector<GX3DElement*> originals(list.begin(), list.end());
    Divide(list);
    // Pieces are cut again and again; flat angles magnify the roundings.
    ExpectLines(list, expected, 1e-6);
    // The original objects are still there, in their order.
    auto found = list.begin();
    for (GX3DElement* const original : originals) {
      found = std::find(found, list.end(), original);
      ASSERT_NE(found, list.end());
    }
  }
}

TEST(DivideLinesAtIntersection, EndsOnRandomSkewLinesAndKeepsEachChain) {
  support::Random random;
  for (int round = 0; round < 30; ++round) {
    const std::size_t count = static_cast<std::size_t>(random.Int(2, 8));
    GX3DElmList list;
    std::vector<GX3DLine> originals;
    for (std::size_t i = 0; i < count; ++i) {
      originals.push_back(GX3DLine(random.Point3D(10), random.Point3D(10)));
      Add(list, originals.back());
    }
    Divide(list);
    ASSERT_LE(list.size(), count + 16 * count * count + 1024);
    // Pieces run on from the start of each original to its end.
    std::size_t original = 0;
    GX3DPoint at = originals[0].Start;
    for (std::size_t i = 0; i < list.size(); ++i) {
      const GX3DLine& piece = support::At<GX3DLine>(list, i);
      ASSERT_LT(original, count);
      EXPECT_POINT_EQ(piece.Start, at);
      at = piece.End;
      if (at == originals[original].End) {
        ++original;
        if (original < count) at = originals[original].Start;
      }
    }
    EXPECT_EQ(original, count);
  }
}

}  // namespace
