// CloseBeginEndIfNeeded: between which ends the closing line runs, and where it lands.
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Twins.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

using support::Chain;
using support::Seg;

template <typename Twin>
class CloseBeginEndIfNeeded : public testing::Test {};
TYPED_TEST_SUITE(CloseBeginEndIfNeeded, support::BothTwins, support::TwinNames);

TYPED_TEST(CloseBeginEndIfNeeded, DoesNothingBelowTwoElements) {
  Chain<TypeParam> chain;
  chain.list.CloseBeginEndIfNeeded();
  EXPECT_TRUE(chain.list.empty());
  auto* const a = chain.AddLine(1, 1, 5, 1);
  chain.list.CloseBeginEndIfNeeded();
  EXPECT_EQ(chain.Entries(), chain.Order({a}));
}

TYPED_TEST(CloseBeginEndIfNeeded, AppendsALineFromTheLastEndToTheFirstStart) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 1);
  auto* const b = chain.AddArc(5, 1, 5, 4);
  auto* const c = chain.AddLine(5, 4, 1, 4);
  chain.list.CloseBeginEndIfNeeded();
  ASSERT_EQ(chain.list.size(), 4u);
  EXPECT_EQ(chain.Entries(), chain.Order({a, b, c, chain.list[3]}));
  EXPECT_TRUE(chain.IsLineAt(3));
  EXPECT_POINT_EQ(chain.EndsAt(3), Seg<TypeParam>(1, 4, 1, 1));
}

TYPED_TEST(CloseBeginEndIfNeeded, FindsTheFreeEndsOfElementsThatRunEitherWay) {
  for (int turned = 0; turned < 8; ++turned) {
    Chain<TypeParam> chain;
    (turned & 1) != 0 ? chain.AddArc(5, 1, 1, 1) : chain.AddArc(1, 1, 5, 1);
    (turned & 2) != 0 ? chain.AddLine(5, 4, 5, 1) : chain.AddLine(5, 1, 5, 4);
    (turned & 4) != 0 ? chain.AddLine(1, 4, 5, 4) : chain.AddLine(5, 4, 1, 4);
    chain.list.CloseBeginEndIfNeeded();
    ASSERT_EQ(chain.list.size(), 4u);
    EXPECT_POINT_EQ(chain.EndsAt(3), Seg<TypeParam>(1, 4, 1, 1)) << turned;
  }
}

TYPED_TEST(CloseBeginEndIfNeeded, LeavesAClosedChainAndGapsInsideAlone) {
  Chain<TypeParam> chain;
  chain.AddLine(1, 1, 5, 1);
  chain.AddLine(5, 1, 5, 4);
  chain.AddLine(50, 40, 70, 40);  // a gap on both sides
  chain.AddLine(1, 4, 1, 7);
  chain.AddLine(1.0001, 0.9999, 1, 4);
  chain.list.CloseBeginEndIfNeeded();
  EXPECT_EQ(chain.list.size(), 5u);
}

TYPED_TEST(CloseBeginEndIfNeeded, ClosesAGapBeyondATenThousandth) {
  const double beyond = std::nextafter(0.0001, 1.0);
  Chain<TypeParam> chain;
  chain.AddLine(0, 0, 5, 1);
  chain.AddLine(5, 1, 5, 4);
  chain.AddLine(5, 4, 0, beyond);
  chain.list.CloseBeginEndIfNeeded();
  ASSERT_EQ(chain.list.size(), 4u);
  EXPECT_POINT_EQ(chain.EndsAt(3), Seg<TypeParam>(0, beyond, 0, 0));
}

TYPED_TEST(CloseBeginEndIfNeeded, HoldsEndsThatTheNeighbourDoesNotShareAgainstTheOrigin) {
  for (const bool atOrigin : {false, true}) {
    Chain<TypeParam> chain;
    chain.AddLine(atOrigin ? 0.0001 : 1, 0, 5, 1);
    chain.AddLine(20, 20, 30, 30);
    chain.AddLine(50, 50, 0, 0);
    chain.list.CloseBeginEndIfNeeded();
    ASSERT_EQ(chain.list.size(), 4u);
    // A start at the origin passes for the shared end, so the other end is taken for free.
    const auto expected = atOrigin ? Seg<TypeParam>(50, 50, 5, 1) : Seg<TypeParam>(50, 50, 1, 0);
    EXPECT_POINT_EQ(chain.EndsAt(3), expected);
  }
}

TYPED_TEST(CloseBeginEndIfNeeded, AnotherKindCountsAsALineAtTheOrigin) {
  Chain<TypeParam> chain;
  chain.AddPoint(7, 7);
  chain.AddLine(1, 0, 2, 0);
  chain.AddLine(2, 0, 3, 0);
  chain.list.CloseBeginEndIfNeeded();
  ASSERT_EQ(chain.list.size(), 4u);
  EXPECT_POINT_EQ(chain.EndsAt(3), Seg<TypeParam>(3, 0, 0, 0));
}

TYPED_TEST(CloseBeginEndIfNeeded, SurvivesNullEntriesAndEndsThatAreNoPlaces) {
  Chain<TypeParam> chain;
  chain.AddNull();
  chain.AddLine(1, 0, 2, 0);
  chain.AddNull();
  chain.list.CloseBeginEndIfNeeded();
  EXPECT_LE(chain.list.size(), 4u);

  for (const double bad : {kNaN, kInf}) {
    Chain<TypeParam> odd;
    odd.AddLine(bad, 0, 2, 0);
    odd.AddLine(2, 0, 3, bad);
    odd.list.CloseBeginEndIfNeeded();
    EXPECT_LE(odd.list.size(), 3u);
    odd.AddLine(bad, bad, bad, bad);
    odd.list.CloseBeginEndIfNeeded();
    EXPECT_LE(odd.list.size(), 5u);
  }
}

// First and second share both ends. In the plane their first common point is the end of the first,
// so its start is the free one; in space it is the other way round.
TYPED_TEST(CloseBeginEndIfNeeded, OfTwoCommonEndsThePlaneTakesTheEndAndSpaceTheStart) {
  Chain<TypeParam> chain;
  chain.AddLine(1, 1, 5, 1);
  chain.AddArc(5, 1, 1, 1);
  chain.AddLine(20, 20, 30, 30);
  chain.list.CloseBeginEndIfNeeded();
  ASSERT_EQ(chain.list.size(), 4u);
  constexpr bool kFlat = std::is_same_v<TypeParam, support::Flat>;
  EXPECT_POINT_EQ(chain.EndsAt(3),
                  kFlat ? Seg<TypeParam>(20, 20, 1, 1) : Seg<TypeParam>(20, 20, 5, 1));
}

TEST(CloseBeginEndIfNeeded2D, ClosesTwoLinesThatShareOneEnd) {
  for (int turned = 0; turned < 4; ++turned) {
    GX2DElmList list;
    support::Add(list, (turned & 1) != 0 ? support::Line(5, 1, 1, 1) : support::Line(1, 1, 5, 1),
                 (turned & 2) != 0 ? support::Line(5, 4, 5, 1) : support::Line(5, 1, 5, 4));
    list.CloseBeginEndIfNeeded();
    ASSERT_EQ(list.size(), 3u);
    EXPECT_POINT_EQ(support::At<GX2DLine>(list, 2), support::Line(5, 4, 1, 1)) << turned;
  }
}

TEST(CloseBeginEndIfNeeded2D, HoldsTwoLinesThatDoNotTouchAgainstTheOrigin) {
  GX2DElmList list;
  support::Add(list, support::Line(1, 1, 2, 2), support::Line(5, 5, 6, 5));
  list.CloseBeginEndIfNeeded();
  ASSERT_EQ(list.size(), 3u);
  EXPECT_POINT_EQ(support::At<GX2DLine>(list, 2), support::Line(5, 5, 1, 1));

  GX2DElmList atOrigin;
  support::Add(atOrigin, support::Line(0, 0, 2, 2), support::Line(0, 0.0002, 5, 5));
  atOrigin.CloseBeginEndIfNeeded();
  ASSERT_EQ(atOrigin.size(), 3u);
  EXPECT_POINT_EQ(support::At<GX2DLine>(atOrigin, 2), support::Line(0, 0.0002, 2, 2));
}

TEST(CloseBeginEndIfNeeded2D, TwoElementsThatShareBothEndsStillGetALine) {
  // From the first the shared end is its own end, from the second its own end too: the free ends
  // are the two starts, which differ.
  GX2DElmList list;
  support::Add(list, support::Line(1, 1, 5, 1), support::Line(5, 1, 1, 1));
  list.CloseBeginEndIfNeeded();
  ASSERT_EQ(list.size(), 3u);
  EXPECT_POINT_EQ(support::At<GX2DLine>(list, 2), support::Line(5, 1, 1, 1));
}

/// Two elements in space and the line that is added, at its place; a place of 0 for none.
void ExpectSpatialPair(const GX3DLine& first, const GX3DLine& second, std::size_t place,
                       const GX3DLine& expected) {
  for (int arcs = 0; arcs < 4; ++arcs) {
    SCOPED_TRACE(arcs);
    const GX3DPoint off(70, 80, 90);
    GX3DElmList list;
    list.push_back((arcs & 1) != 0
                       ? static_cast<GX3DElement*>(new GX3DArc(off, first.Start, off, first.End))
                       : new GX3DLine(first));
    list.push_back((arcs & 2) != 0
                       ? static_cast<GX3DElement*>(new GX3DArc(off, second.Start, off, second.End))
                       : new GX3DLine(second));
    GX3DElement* const a = list[0];
    GX3DElement* const b = list[1];
    list.CloseBeginEndIfNeeded();
    ASSERT_EQ(list.size(), place == 0 ? 2u : 3u);
    EXPECT_EQ(list.front(), a);
    EXPECT_EQ(list[place == 1 ? 2 : 1], b);
    if (place != 0) {
      EXPECT_POINT_EQ(support::At<GX3DLine>(list, place), expected);
    }
  }
}

const GX3DPoint kX1(1, 1, 1);
const GX3DPoint kX2(5, 1, 2);
const GX3DPoint kY1(5, 9, 3);
const GX3DPoint kY2(1, 9, 4);
/// A point within the tolerance of another.
GX3DPoint Near(const GX3DPoint& p) { return {p.X + 0.00005, p.Y - 0.00005, p.Z + 0.00005}; }

TEST(CloseBeginEndIfNeeded3D, TwoThatShareTheirStartsGetALineAtTheBackFromTheSecondEnd) {
  ExpectSpatialPair({kX1, kX2}, {Near(kX1), kY2}, 2, {kY2, kX2});
}

TEST(CloseBeginEndIfNeeded3D, TwoThatShareTheirEndsGetALineAtTheBackFromTheSecondStart) {
  ExpectSpatialPair({kX1, kX2}, {kY1, Near(kX2)}, 2, {kY1, kX1});
}

TEST(CloseBeginEndIfNeeded3D, WhereTheFirstStartsAtTheSecondEndTheLineStandsBetweenThem) {
  ExpectSpatialPair({kX1, kX2}, {kY1, Near(kX1)}, 1, {kX2, kY1});
}

TEST(CloseBeginEndIfNeeded3D, WhereTheFirstEndsAtTheSecondStartTheLineStandsAtTheBack) {
  ExpectSpatialPair({kX1, kX2}, {Near(kX2), kY2}, 2, {kY2, kX1});
}

TEST(CloseBeginEndIfNeeded3D, TwoThatShareBothEndsStay) {
  ExpectSpatialPair({kX1, kX2}, {Near(kX1), Near(kX2)}, 0, {});
  ExpectSpatialPair({kX1, kX2}, {Near(kX2), Near(kX1)}, 0, {});
}

TEST(CloseBeginEndIfNeeded3D, TwoThatShareNothingGetOneLineBetweenThemAndStayOpen) {
  ExpectSpatialPair({kX1, kX2}, {kY1, kY2}, 1, {kX2, kY1});
}

TEST(CloseBeginEndIfNeeded3D, CommonStartsGoBeforeTheFirstStartAtTheSecondEnd) {
  ExpectSpatialPair({kX1, kX2}, {kX1, Near(kX1)}, 2, {Near(kX1), kX2});
}

TEST(CloseBeginEndIfNeeded3D, CommonEndsGoBeforeAnyMixedPair) {
  // One of the two is no longer than the tolerance, so that both of its ends meet the other's end.
  ExpectSpatialPair({kX1, Near(kX1)}, {kY1, kX1}, 2, {kY1, kX1});
  ExpectSpatialPair({kX1, kX2}, {Near(kX2), kX2}, 2, {Near(kX2), kX1});
}

TEST(CloseBeginEndIfNeeded3D, TwoOfAnotherKindCountAsLinesAtTheOrigin) {
  GX3DElmList list;
  support::Add(list, support::Point(7, 7, 7), GX3DLine(kY1, kY2));
  list.CloseBeginEndIfNeeded();
  ASSERT_EQ(list.size(), 3u);
  EXPECT_POINT_EQ(support::At<GX3DLine>(list, 1), GX3DLine(support::Point(0, 0, 0), kY1));
}

}  // namespace
