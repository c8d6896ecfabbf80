// The ring of points around a contour: vertices from lines, and the elements that meet there.
#include <KTRCL_DataTypes/GXProblemList.h>
#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Ring.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace {

using support::Add;
using support::AddPolygon;
using support::At;
using support::ElementsAt;
using support::Flat;
using support::Foreign2D;
using support::Line;
using support::Logged;
using support::Point;
using support::Rect;
using support::Ring;

using Places = std::vector<int>;
using Log = std::vector<std::string>;

bool Construct(GX2DSurroundPolygon& ring, GX2DElmList& list) {
  return ring.ConstructFrom2DElmList(list, nullptr);
}

void AddSquare(GX2DElmList& list) { AddPolygon(list, {{0, 0}, {10, 0}, {10, 10}, {0, 10}}); }

TEST(ConstructFrom2DElmList, GivesASquareFourVerticesWithTwoElementsEach) {
  GX2DElmList list;
  AddSquare(list);
  GX2DSurroundPolygon ring;
  EXPECT_TRUE(Construct(ring, list));
  EXPECT_EQ(ring.GetOrigElmList(), &list);
  EXPECT_EQ(Flat(ring), Flat({{0, 0}, {10, 0}, {10, 10}, {0, 10}}));
  EXPECT_EQ(ElementsAt(ring, 1, list), Places({0, 1}));
  EXPECT_EQ(ElementsAt(ring, 2, list), Places({1, 2}));
  EXPECT_EQ(ElementsAt(ring, 3, list), Places({2, 3}));
}

TEST(ConstructFrom2DElmList, ListsTheLastLineInFrontOfTheFirstAtTheClosingVertex) {
  GX2DElmList list;
  AddSquare(list);
  GX2DSurroundPolygon ring;
  Construct(ring, list);
  EXPECT_EQ(ElementsAt(ring, 0, list), Places({3, 0}));
}

TEST(ConstructFrom2DElmList, GivesTheSameWithAndWithoutAListOfProblems) {
  GXProblemList problems;
  GX2DElmList list, again;
  AddSquare(list);
  AddSquare(again);
  GX2DSurroundPolygon with, without;
  EXPECT_TRUE(with.ConstructFrom2DElmList(list, &problems));
  EXPECT_TRUE(without.ConstructFrom2DElmList(again, nullptr));
  EXPECT_EQ(Flat(with), Flat(without));
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(ElementsAt(with, i, list), ElementsAt(without, i, again));
  }
}

TEST(ConstructFrom2DElmList, NamesAnEmptyListAsItsSource) {
  GX2DElmList list, empty;
  AddSquare(list);
  GX2DSurroundPolygon ring;
  Construct(ring, list);
  EXPECT_TRUE(Construct(ring, empty));
  EXPECT_EQ(ring.GetOrigElmList(), &empty);
  EXPECT_EQ(ring.size(), 4U);
}

TEST(ConstructFrom2DElmList, DoesNotClearTheRingFirst) {
  GX2DElmList list, next;
  AddSquare(list);
  AddPolygon(next, {{10, 0}, {20, 0}, {10, 10}});
  GX2DSurroundPolygon ring;
  Construct(ring, list);
  Construct(ring, next);
  EXPECT_EQ(ring.GetOrigElmList(), &next);
  EXPECT_EQ(Flat(ring), Flat({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {20, 0}}));
  // The shared corner keeps the lines of the square and takes the two of the triangle.
  const GX2DElmList& shared = ring[1]->Elements;
  ASSERT_EQ(shared.size(), 4U);
  EXPECT_EQ(shared[0], next[2]);
  EXPECT_EQ(shared[1], list[0]);
  EXPECT_EQ(shared[2], list[1]);
  EXPECT_EQ(shared[3], next[0]);
}

TEST(ConstructFrom2DElmList, AddsNothingTheSecondTime) {
  GX2DElmList list;
  AddSquare(list);
  GX2DSurroundPolygon ring;
  Construct(ring, list);
  Construct(ring, list);
  EXPECT_EQ(Flat(ring), Flat({{0, 0}, {10, 0}, {10, 10}, {0, 10}}));
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(ring[i]->Elements.size(), 2U);
}

TEST(ConstructFrom2DElmList, TurnsLinesThatEndAtTheJoint) {
  for (int turned = 0; turned < 16; ++turned) {
    SCOPED_TRACE(turned);
    GX2DElmList list;
    AddSquare(list);
    for (std::size_t i = 0; i < 4; ++i) {
      if ((turned >> i & 1) != 0) At<GX2DLine>(list, i).SwapPoints();
    }
    GX2DSurroundPolygon ring;
    Construct(ring, list);
    EXPECT_EQ(Flat(ring), Flat({{0, 0}, {10, 0}, {10, 10}, {0, 10}}));
    EXPECT_POINT_EQ(At<GX2DLine>(list, 0), Line(0, 0, 10, 0));
    EXPECT_POINT_EQ(At<GX2DLine>(list, 1), Line(10, 0, 10, 10));
    EXPECT_POINT_EQ(At<GX2DLine>(list, 2), Line(10, 10, 0, 10));
    EXPECT_POINT_EQ(At<GX2DLine>(list, 3), Line(0, 10, 0, 0));
  }
}

TEST(ConstructFrom2DElmList, TakesTheEndOfALineThatSharesBothEndsForTheJoint) {
  GX2DElmList alone;  // the line before it is the line itself
  Add(alone, Line(0, 0, 10, 0));
  GX2DSurroundPolygon ring;
  Construct(ring, alone);
  EXPECT_POINT_EQ(At<GX2DLine>(alone, 0), Line(10, 0, 0, 0));
  EXPECT_EQ(Flat(ring), Flat({{10, 0}, {0, 0}}));
  EXPECT_EQ(ElementsAt(ring, 0, alone), Places({0}));
  EXPECT_EQ(ElementsAt(ring, 1, alone), Places({0}));
}

TEST(ConstructFrom2DElmList, TakesTheOriginForTheJointWhereThereIsNone) {
  GX2DElmList near, apart;
  Add(near, Line(5, 5, 0.0001, -0.0001), Line(20, 20, 30, 20));
  Add(apart, Line(5, 5, 0.000101, 0), Line(20, 20, 30, 20));
  GX2DSurroundPolygon ring, other;
  Construct(ring, near);
  Construct(other, apart);
  EXPECT_POINT_EQ(At<GX2DLine>(near, 0), Line(0.0001, -0.0001, 5, 5));
  EXPECT_POINT_EQ(At<GX2DLine>(near, 1), Line(20, 20, 30, 20));
  EXPECT_EQ(Flat(ring), Flat({{0.0001, -0.0001}, {5, 5}, {20, 20}, {30, 20}}));
  EXPECT_POINT_EQ(At<GX2DLine>(apart, 0), Line(5, 5, 0.000101, 0));
}

TEST(ConstructFrom2DElmList, MeetsWithinATenthOfAThousandth) {
  GX2DElmList list;
  Add(list, Line(0, 0, 10, 0), Line(10, 10, 10.00009, 0.00009), Line(10, 10, 0, 0));
  GX2DSurroundPolygon ring;
  Construct(ring, list);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 1), Line(10.00009, 0.00009, 10, 10));
  EXPECT_EQ(Flat(ring), Flat({{0, 0}, {10, 0}, {10, 10}}));
}

TEST(ConstructFrom2DElmList, PassesOverOtherKindsAndNullEntries) {
  GX2DElmList list;
  Add(list, Line(0, 0, 10, 0), Point(10, 0), Rect(10, 0, 90, 90));
  list.push_back(nullptr);
  list.push_back(new Foreign2D({10, 0}, {70, 70}));
  Add(list, Line(10, 10, 10, 0), Line(10, 10, 0, 0));  // turned against the line in front of all
  GX2DSurroundPolygon ring;
  EXPECT_TRUE(Construct(ring, list));
  EXPECT_POINT_EQ(At<GX2DLine>(list, 5), Line(10, 0, 10, 10));
  EXPECT_EQ(Flat(ring), Flat({{0, 0}, {10, 0}, {10, 10}}));
  EXPECT_EQ(ElementsAt(ring, 1, list), Places({0, 5}));
}

// The element in front of the first is the last of the list whatever it is, so a point there hides
// the line before it.
TEST(ConstructFrom2DElmList, LooksForTheFirstJointAtTheLastEntryOfAnyKind) {
  GX2DElmList list;
  Add(list, Line(5, 5, 9, 9), Line(9, 9, 5, 0), Line(5, 0, 9, 9), Point(9, 9));
  GX2DSurroundPolygon ring;
  Construct(ring, list);
  EXPECT_POINT_EQ(At<GX2DLine>(list, 0), Line(9, 9, 5, 5));

  GX2DElmList withNull;
  Add(withNull, Line(5, 5, 0, 0), Line(0, 0, 5, 0), Line(5, 0, 5, 5));
  withNull.push_back(nullptr);  // no joint: the origin
  GX2DSurroundPolygon other;
  Construct(other, withNull);
  EXPECT_POINT_EQ(At<GX2DLine>(withNull, 0), Line(0, 0, 5, 5));
}

TEST(ConstructFrom2DElmList, PutsOnlyTheLastEntryOfTheListInFront) {
  GX2DElmList list;
  AddSquare(list);
  Add(list, Point(50, 50));  // the closing line is no longer the last
  GX2DSurroundPolygon ring;
  Construct(ring, list);
  EXPECT_EQ(ElementsAt(ring, 0, list), Places({0, 3}));
}

TEST(ConstructFrom2DElmList, TakesObjectsOfDerivedClassesForLines) {
  Log log;
  GX2DElmList list;
  list.push_back(new Logged<GX2DLine>(log, "line", Line(0, 0, 5, 0)));
  Add(list, Line(5, 0, 5, 5), Line(5, 5, 0, 0));
  GX2DSurroundPolygon ring;
  Construct(ring, list);
  EXPECT_EQ(ring.size(), 3U);
}

TEST(ConstructFrom2DElmList, TakesCoordinatesThatAreNotFinite) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinite = std::numeric_limits<double>::infinity();
  for (const double odd : {nan, infinite, -infinite, 1e308}) {
    GX2DElmList list;
    Add(list, Line(0, odd, 10, 0), support::Arc(odd, 0, 10, 0, 5, odd, 0, 10),
        support::Arc(0, 0, odd, 0, 0, 1, 0, 10), Line(0, 10, 0, odd));
    GX2DSurroundPolygon ring;
    EXPECT_TRUE(Construct(ring, list));
    for (const GX2DSurroundPoint* vertex : ring) EXPECT_NE(vertex->Point, nullptr);
  }
}

// Corners of random polygons lie farther apart than any tolerance; each line may run either way.
TEST(ConstructFrom2DElmList, FollowsRandomPolygonsWhicheverWayTheirLinesRun) {
  support::Random random;
  for (int round = 0; round < 200; ++round) {
    const int count = random.Int(3, 12);
    std::vector<GX2DPoint> corners;
    for (int i = 0; i < count; ++i) {
      const double x = 100.0 * i + random.Between(1, 40);
      corners.emplace_back(x, random.Between(-50, 50));
    }
    GX2DElmList list;
    AddPolygon(list, corners);
    for (GX2DElement* line : list) {
      if (random.Bool()) line->Reverse();
    }
    GX2DSurroundPolygon ring;
    ASSERT_TRUE(Construct(ring, list));
    ASSERT_EQ(Flat(ring), Flat(corners));
    for (std::size_t i = 1; i < ring.size(); ++i) {
      ASSERT_EQ(ElementsAt(ring, i, list), Places({static_cast<int>(i) - 1, static_cast<int>(i)}));
    }
    ASSERT_EQ(ElementsAt(ring, 0, list), Places({count - 1, 0}));
  }
}

/// Lines and arcs between places that crowd around a few tolerances.
void AddCrowd(GX2DElmList& list, support::Random& random, int count) {
  const auto place = [&random] {
    const double odd[] = {std::numeric_limits<double>::quiet_NaN(), HUGE_VAL, -1e300};
    if (random.Int(0, 60) == 0) return Point(odd[random.Int(0, 2)], 0);
    double numbers[2];
    for (double& number : numbers) {
      number = random.Int(-2, 2) * 7.0;
      number += random.Int(-9, 9) * 0.00004;
    }
    return Point(numbers[0], numbers[1]);
  };
  for (int i = 0; i < count; ++i) {
    if (random.Int(0, 3) == 0) {
      Add(list, GX2DArc{place(), place(), place(), place()});
    } else {
      Add(list, GX2DLine{place(), place()});
    }
  }
}

// A derived ring hears of every point through its own AddPoint; this one hands them on.
TEST(ConstructFrom2DElmList, AgreesWithARingThatIsToldPointByPoint) {
  support::Random random;
  for (int round = 0; round < 60; ++round) {
    GX2DElmList list, again;
    AddCrowd(list, random, random.Int(1, 120));
    again.Clone(list);
    GX2DSurroundPolygon ring;
    Ring derived;
    Construct(ring, list);
    Construct(derived, again);
    ASSERT_EQ(ring.size(), derived.size());
    const std::vector<double> places = Flat(ring), expected = Flat(derived);
    for (std::size_t i = 0; i < places.size(); ++i) EXPECT_SAME_BITS(places[i], expected[i]);
    for (std::size_t i = 0; i < ring.size(); ++i) {
      ASSERT_EQ(ElementsAt(ring, i, list), ElementsAt(derived, i, again));
    }
  }
}

TEST(ConstructFrom2DElmList, CallsTheAddPointOfADerivedRing) {
  class Counting : public GX2DSurroundPolygon {
   public:
    std::vector<bool> appends;

   protected:
    void AddPoint(GX2DPoint&, GX2DElement* const&, const bool& append) override {
      appends.push_back(append);
    }
  };
  GX2DElmList list;
  AddPolygon(list, {{0, 0}, {10, 0}, {10, 10}});
  Counting ring;
  Construct(ring, list);
  EXPECT_EQ(ring.appends, std::vector<bool>({true, true, true, true, true, false}));
}

TEST(ConstructFrom2DElmList, FindsVerticesOfALargeRingAgain) {
  GX2DElmList list, inside;
  std::vector<GX2DPoint> corners;
  for (int i = 0; i < 500; ++i) corners.push_back(support::OnCircle(0, 0, 1000, i * 0.72));
  AddPolygon(list, corners);
  GX2DSurroundPolygon ring;
  Construct(ring, list);
  ASSERT_EQ(ring.size(), 500U);
  ring.push_back(nullptr);
  ring.push_back(new GX2DSurroundPoint());
  Add(inside, GX2DLine(corners[17], Point(0, 0)), GX2DLine(Point(0, 0), corners[400]),
      GX2DLine(corners[400], corners[17]));
  Construct(ring, inside);
  EXPECT_EQ(ring.size(), 503U);
  EXPECT_EQ(ring[17]->Elements.size(), 4U);
  EXPECT_EQ(ring[400]->Elements.size(), 4U);
}

}  // namespace
