// Vertices of a ring found with an index against the plain search, which holds every place against
// every vertex: the same vertex on rings that are random or made to mislead a grid of cells, and
// the same rings from whole contours.

#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "contour/SurroundIndex.h"
#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace {

using support::Random;

constexpr double kTolerance = 0.0001;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Behaves like its base. The base may not know that and calls its `AddPoint`, the plain form.
class HostRing : public GX2DSurroundPolygon {};

// Places

/// Steps of half a tolerance and a few last bits beside it, so that many places miss one another by
/// about the tolerance, and by rounding alone.
double NearCoordinate(double origin, Random& random) {
  const double x = origin + 0.5 * kTolerance * random.Int(-6, 6);
  return random.Int(0, 3) == 0 ? std::nextafter(x, random.Bool() ? kInfinity : -kInfinity) : x;
}

double AnyCoordinate(Random& random) {
  constexpr std::array<double, 11> kOrigins = {0.0,  -0.0, 0.0008,    -0.0016,    1.0, 1e6,
                                               1e11, 1e16, kInfinity, -kInfinity, kNaN};
  return NearCoordinate(kOrigins[static_cast<std::size_t>(random.Int(0, 10))], random);
}

GX2DPoint PlaceOf(int family, Random& random) {
  if (family == 0) {
    const double x = NearCoordinate(0.0008, random);
    return {x, NearCoordinate(-0.0004, random)};
  }
  if (family == 1) {
    const double x = AnyCoordinate(random);
    return {x, AnyCoordinate(random)};
  }
  return random.Point2D(0.005);
}

// Contours

/// Ends of neighbouring elements that agree, agree almost, and do not.
GX2DPoint Disturbed(const GX2DPoint& p, Random& random) {
  if (random.Int(0, 2) != 0) return p;
  const double x = NearCoordinate(p.X, random);
  return {x, NearCoordinate(p.Y, random)};
}

void AddContour(GX2DElmList& list, int count, double extent, Random& random) {
  GX2DPoint at = random.Point2D(extent);
  for (int i = 0; i < count; ++i) {
    if (random.Int(0, 2) == 0) {
      const GX2DPoint center = random.Point2D(extent);
      const double radius = GX2DLine(center, at).Len();
      const GX2DPoint end =
          support::OnCircle(center.X, center.Y, radius, random.Between(0.0, 360.0));
      support::Add(list, GX2DArc(center, Disturbed(at, random), end, random.Bool()));
      at = end;
    } else {
      const GX2DPoint end = random.Int(0, 9) == 0 ? at : random.Point2D(extent);
      support::Add(list, GX2DLine(Disturbed(at, random), end));
      at = end;
    }
    if (random.Bool()) list.back()->Reverse();
  }
}

void ExpectSameRings(const GX2DSurroundPolygon& ring, const GX2DSurroundPolygon& expected,
                     const GX2DElmList& list, const GX2DElmList& expectedList) {
  ASSERT_EQ(ring.size(), expected.size());
  for (std::size_t i = 0; i < ring.size(); ++i) {
    SCOPED_TRACE("vertex " + std::to_string(i));
    EXPECT_SAME_BITS(ring[i]->Point->X, expected[i]->Point->X);
    EXPECT_SAME_BITS(ring[i]->Point->Y, expected[i]->Point->Y);
    const GX2DElmList& elements = ring[i]->Elements;
    ASSERT_EQ(elements.size(), expected[i]->Elements.size());
    for (std::size_t k = 0; k < elements.size(); ++k) {
      const auto place = std::find(list.begin(), list.end(), elements[k]) - list.begin();
      const auto& others = expected[i]->Elements;
      EXPECT_EQ(place, std::find(expectedList.begin(), expectedList.end(), others[k]) -
                           expectedList.begin());
    }
  }
}

TEST(SurroundIndex, FindsTheFirstVertexOfThoseThatCoincide) {
  Random random;
  int hits = 0;
  for (int round = 0; round < 300; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    GX2DSurroundPolygon ring;
    ktrcl_internal::SurroundIndex index(ring);
    for (int i = 0; i < 150; ++i) {
      const GX2DPoint place = PlaceOf(round % 3, random);
      const std::size_t expected = ktrcl_internal::FirstVertexPlain(ring, place);
      ASSERT_EQ(index.First(place), expected);
      if (expected != ktrcl_internal::kNoVertex) ++hits;
      // Not only places that nothing coincides with: a host may have filled the ring.
      ring.push_back(nullptr);
      if (random.Int(0, 9) == 0) continue;
      ring.back() = new GX2DSurroundPoint();
      if (random.Int(0, 9) != 0) ring.back()->Point = new GX2DPoint(place);
    }
  }
  // Both answers have to come up often for the comparison to mean anything.
  EXPECT_GT(hits, 10000);
  EXPECT_LT(hits, 40000);
}

TEST(SurroundIndex, BuildsTheSameRingsAsThePlainSearch) {
  Random random;
  for (int round = 0; round < 200; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    const double extent = std::pow(10.0, random.Int(-4, 3));
    GX2DElmList list;
    AddContour(list, random.Int(1, 120), extent, random);
    GX2DElmList copy;
    copy.Clone(list);

    GX2DSurroundPolygon ring;
    HostRing expected;
    // The second time all of it meets vertices that are there already.
    for (int pass = 0; pass < 2; ++pass) {
      EXPECT_TRUE(ring.ConstructFrom2DElmList(list, nullptr));
      EXPECT_TRUE(expected.ConstructFrom2DElmList(copy, nullptr));
      ExpectSameRings(ring, expected, list, copy);
    }
  }
}

TEST(SurroundIndex, TakesInVerticesThatAHostPutThere) {
  Random random;
  GX2DElmList list;
  AddContour(list, 60, 1.0, random);
  GX2DElmList copy;
  copy.Clone(list);
  GX2DSurroundPolygon ring;
  HostRing expected;
  for (GX2DSurroundPolygon* const filled : {&ring, static_cast<GX2DSurroundPolygon*>(&expected)}) {
    for (GX2DElement* const element : list) {
      filled->push_back(new GX2DSurroundPoint());
      filled->back()->Point = new GX2DPoint(element->GetEndPoint());
    }
  }
  ring.ConstructFrom2DElmList(list, nullptr);
  expected.ConstructFrom2DElmList(copy, nullptr);
  ExpectSameRings(ring, expected, list, copy);
}

}  // namespace
