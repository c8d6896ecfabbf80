// MakeClosed: which gaps are bridged, and where the new lines land.
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Twins.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

using support::Chain;
using support::Seg;

/// A list that leaves order and points alone and tells what it was asked for.
template <typename List>
class Inert : public List {
 public:
  std::vector<std::string> calls;
  void RemovePoints() override { calls.emplace_back("RemovePoints"); }
  void MakeConnectingElements() override { calls.emplace_back("MakeConnectingElements"); }
};
template <typename Twin>
using InertChain = Chain<Twin, Inert<typename Twin::List>>;

template <typename Twin>
class MakeClosed : public testing::Test {};
TYPED_TEST_SUITE(MakeClosed, support::BothTwins, support::TwinNames);

TYPED_TEST(MakeClosed, ChangesNothingInAClosedChainOfLines) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 1);
  auto* const b = chain.AddLine(5, 1, 5, 4);
  auto* const c = chain.AddLine(5, 4, 1, 1);
  chain.list.MakeClosed();
  EXPECT_EQ(chain.Entries(), chain.Order({a, b, c}));
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(1, 1, 5, 1));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(5, 1, 5, 4));
  EXPECT_POINT_EQ(*c, Seg<TypeParam>(5, 4, 1, 1));
}

TYPED_TEST(MakeClosed, ClosesAnOpenChainOfLinesAtTheFront) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 1);
  auto* const b = chain.AddLine(5, 1, 5, 4);
  chain.list.MakeClosed();
  ASSERT_EQ(chain.list.size(), 3u);
  ASSERT_TRUE(chain.IsLineAt(0));
  EXPECT_POINT_EQ(chain.EndsAt(0), Seg<TypeParam>(5, 4, 1, 1));
  EXPECT_EQ(chain.Entries(), chain.Order({chain.list[0], a, b}));
}

TYPED_TEST(MakeClosed, BridgesGapsOfAnySizeInPlace) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 1);
  auto* const b = chain.AddLine(1e9, 1, 1e9, 4);
  chain.list.MakeClosed();
  ASSERT_EQ(chain.list.size(), 4u);
  EXPECT_EQ(chain.Entries(), chain.Order({chain.list[0], a, chain.list[2], b}));
  EXPECT_POINT_EQ(chain.EndsAt(0), Seg<TypeParam>(1e9, 4, 1, 1));
  EXPECT_POINT_EQ(chain.EndsAt(2), Seg<TypeParam>(5, 1, 1e9, 1));
}

TYPED_TEST(MakeClosed, AGapOfATenThousandthInEachCoordinateIsNone) {
  const double beyond = std::nextafter(0.0001, 1.0);
  for (const bool gap : {false, true}) {
    InertChain<TypeParam> chain;
    chain.AddLine(1, 1, 0, 0);
    chain.AddLine(gap ? beyond : 0.0001, -0.0001, 1, 1);
    chain.list.MakeClosed();
    EXPECT_EQ(chain.list.size(), gap ? 3u : 2u);
  }
}

TYPED_TEST(MakeClosed, BridgesFromAnArcToALineByTheArcsEnd) {
  InertChain<TypeParam> chain;
  auto* const arc = chain.AddArc(1, 1, 5, 1);
  auto* const line = chain.AddLine(6, 1, 1, 1);
  chain.list.MakeClosed();
  // Behind the line its start is held against the start of the arc, hence the line of length zero
  // at the front.
  ASSERT_EQ(chain.list.size(), 4u);
  EXPECT_POINT_EQ(chain.EndsAt(0), Seg<TypeParam>(1, 1, 1, 1));
  EXPECT_EQ(chain.list[1], arc);
  EXPECT_POINT_EQ(chain.EndsAt(2), Seg<TypeParam>(5, 1, 6, 1));
  EXPECT_EQ(chain.list[3], line);
}

TYPED_TEST(MakeClosed, BridgesFromAnArcToAnArcWithAZeroLineBehindTheBridge) {
  InertChain<TypeParam> chain;
  auto* const a = chain.AddArc(1, 1, 5, 1);
  auto* const b = chain.AddArc(7, 1, 1, 1);
  chain.list.MakeClosed();
  ASSERT_EQ(chain.list.size(), 4u);
  EXPECT_EQ(chain.list[0], a);
  EXPECT_POINT_EQ(chain.EndsAt(1), Seg<TypeParam>(5, 1, 7, 1));
  EXPECT_POINT_EQ(chain.EndsAt(2), Seg<TypeParam>(7, 1, 7, 1));
  EXPECT_EQ(chain.list[3], b);
}

TYPED_TEST(MakeClosed, ArcsThatTouchNeedNoBridge) {
  InertChain<TypeParam> chain;
  auto* const a = chain.AddArc(1, 1, 5, 1);
  auto* const b = chain.AddArc(5, 1.0001, 1, 1);
  chain.list.MakeClosed();
  EXPECT_EQ(chain.Entries(), chain.Order({a, b}));
}

TYPED_TEST(MakeClosed, PutsAZeroLineBetweenALineAndAnArcThatStartsAtItsEnd) {
  Chain<TypeParam> chain;
  auto* const line = chain.AddLine(1, 1, 5, 1);
  auto* const arc = chain.AddArc(5, 1, 9, 1);
  auto* const back = chain.AddLine(9, 1, 1, 1);
  chain.list.MakeClosed();
  ASSERT_EQ(chain.list.size(), 4u);
  EXPECT_EQ(chain.Entries(), chain.Order({line, chain.list[1], arc, back}));
  EXPECT_TRUE(chain.IsLineAt(1));
  EXPECT_POINT_EQ(chain.EndsAt(1), Seg<TypeParam>(5, 1, 5, 1));
}

TYPED_TEST(MakeClosed, ALineThatStartsWhereTheArcStartsGetsNoBridgeHoweverFarItsEndIs) {
  Chain<TypeParam> chain;
  auto* const front = chain.AddLine(-1, 1, 1, 1);
  auto* const line = chain.AddLine(1, 1, 500, 1);
  auto* const arc = chain.AddArc(1, 1.0001, -1, 1);
  chain.list.MakeClosed();
  EXPECT_EQ(chain.Entries(), chain.Order({front, line, arc}));
}

TYPED_TEST(MakeClosed, ALineBeforeAFarArcGetsABridgeAndAZeroLine) {
  InertChain<TypeParam> chain;
  auto* const line = chain.AddLine(1, 1, 5, 1);
  auto* const arc = chain.AddArc(9, 1, 9, 5);
  chain.list.MakeClosed();
  ASSERT_EQ(chain.list.size(), 5u);
  EXPECT_POINT_EQ(chain.EndsAt(0), Seg<TypeParam>(9, 5, 1, 1));
  EXPECT_EQ(chain.list[1], line);
  EXPECT_POINT_EQ(chain.EndsAt(2), Seg<TypeParam>(5, 1, 9, 1));
  EXPECT_POINT_EQ(chain.EndsAt(3), Seg<TypeParam>(9, 1, 9, 1));
  EXPECT_EQ(chain.list[4], arc);
}

TYPED_TEST(MakeClosed, ABridgeThatStartsWhereTheArcStartsIsFollowedByNothing) {
  InertChain<TypeParam> chain;
  chain.AddLine(1, 1, 5, 1);
  chain.AddArc(5, 1.0001, 1, 1);  // within the tolerance of the line's end
  chain.list.MakeClosed();
  ASSERT_EQ(chain.list.size(), 3u);
  EXPECT_POINT_EQ(chain.EndsAt(1), Seg<TypeParam>(5, 1, 5, 1.0001));
}

TYPED_TEST(MakeClosed, ASingleLineGetsTheWayBackInFrontOfIt) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 1);
  chain.list.MakeClosed();
  ASSERT_EQ(chain.list.size(), 2u);
  EXPECT_POINT_EQ(chain.EndsAt(0), Seg<TypeParam>(5, 1, 1, 1));
  EXPECT_EQ(chain.list[1], a);
}

TYPED_TEST(MakeClosed, ASingleOpenArcGetsTheWayBackAndAZeroLineInFrontOfIt) {
  Chain<TypeParam> chain;
  auto* const arc = chain.AddArc(1, 1, 5, 1);
  chain.list.MakeClosed();
  ASSERT_EQ(chain.list.size(), 3u);
  EXPECT_POINT_EQ(chain.EndsAt(0), Seg<TypeParam>(5, 1, 1, 1));
  EXPECT_POINT_EQ(chain.EndsAt(1), Seg<TypeParam>(1, 1, 1, 1));
  EXPECT_EQ(chain.list[2], arc);
}

TYPED_TEST(MakeClosed, LeavesACircleAlone) {
  Chain<TypeParam> chain;
  auto* const circle = chain.AddArc(1, 1, 1, 1);
  chain.list.MakeClosed();
  EXPECT_EQ(chain.Entries(), chain.Order({circle}));
}

TYPED_TEST(MakeClosed, EmptiesAListOfPointsAndLeavesAnEmptyOneEmpty) {
  Chain<TypeParam> chain;
  chain.list.MakeClosed();
  EXPECT_TRUE(chain.list.empty());
  chain.AddPoint(1, 1);
  chain.AddPoint(2, 2);
  chain.list.MakeClosed();
  EXPECT_TRUE(chain.list.empty());
}

TYPED_TEST(MakeClosed, OrdersAndTurnsBeforeItBridges) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 1);
  chain.AddPoint(3, 3);
  auto* const c = chain.AddLine(5, 4, 1, 4);
  auto* const b = chain.AddLine(5, 4, 5, 1);
  chain.list.MakeClosed();
  ASSERT_EQ(chain.list.size(), 4u);
  EXPECT_EQ(chain.Entries(), chain.Order({chain.list[0], a, b, c}));
  EXPECT_POINT_EQ(chain.EndsAt(0), Seg<TypeParam>(1, 4, 1, 1));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(5, 1, 5, 4));
}

TYPED_TEST(MakeClosed, CallsRemovalAndChainingAsADerivedListDefinesThem) {
  InertChain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 1);
  auto* const p = chain.AddPoint(3, 3);
  auto* const b = chain.AddLine(7, 7, 8, 8);
  chain.list.MakeClosed();
  EXPECT_EQ(chain.list.calls, (std::vector<std::string>{"RemovePoints", "MakeConnectingElements"}));
  // The point that the derived list kept takes no part; the way from b back to a does.
  ASSERT_EQ(chain.list.size(), 4u);
  EXPECT_EQ(chain.Entries(), chain.Order({chain.list[0], a, p, b}));
  EXPECT_POINT_EQ(chain.EndsAt(0), Seg<TypeParam>(8, 8, 1, 1));
}

TYPED_TEST(MakeClosed, PassesOverOtherKindsAndNullEntries) {
  InertChain<TypeParam> chain;
  auto* const stranger = chain.AddForeign(9, 9, 9, 9);
  auto* const a = chain.AddLine(1, 1, 5, 1);
  chain.AddNull();
  auto* const b = chain.AddLine(7, 7, 8, 8);
  chain.list.MakeClosed();
  EXPECT_EQ(chain.Entries(), chain.Order({stranger, a, nullptr, b}));
}

TEST(MakeClosed2D, PassesOverRectangles) {
  GX2DElmList list;
  support::Add(list, support::Line(1, 1, 5, 1), support::Rect(7, 7, 8, 8),
               support::Line(10, 1, 12, 1), support::Rect(9, 9, 8, 8));
  list.MakeClosed();
  EXPECT_EQ(list.size(), 4u);
}

/// Adds a line, or an arc with the same ends.
template <typename Twin>
void AddEither(InertChain<Twin>& chain, bool arc, double x1, double y1, double x2, double y2) {
  if (arc) {
    chain.AddArc(x1, y1, x2, y2);
  } else {
    chain.AddLine(x1, y1, x2, y2);
  }
}

TYPED_TEST(MakeClosed, NeverBridgesEndsThatAreNotFinite) {
  for (const double bad : {kNaN, kInf, -kInf}) {
    // The end of the first, the start of the second, or both are no places.
    for (const bool atEnd : {false, true}) {
      for (const bool atStart : {false, true}) {
        for (int arcs = 0; arcs < 4; ++arcs) {
          if (!atEnd && !atStart) {
            continue;
          }
          InertChain<TypeParam> chain;
          AddEither(chain, (arcs & 1) != 0, 1, 1, atEnd ? bad : 5, 2);
          AddEither(chain, (arcs & 2) != 0, 3, atStart ? bad : 6, 1, 1);
          chain.AddLine(1, 1, 1, 1);  // closes without a gap, to lines and arcs
          const auto before = chain.Entries();
          chain.list.MakeClosed();
          EXPECT_EQ(chain.Entries(), before) << bad << " " << atEnd << atStart << arcs;
        }
      }
    }
  }
}

TYPED_TEST(MakeClosed, AClosedResultStaysAsItIs) {
  support::Random random;
  for (int round = 0; round < 100; ++round) {
    Chain<TypeParam> chain;
    const int count = random.Int(2, 9);
    for (int i = 0; i < count; ++i) {
      chain.AddLine(10 * i + random.Between(0, 3), random.Between(0, 50),
                    10 * i + random.Between(5, 8), random.Between(0, 50));
    }
    chain.list.MakeClosed();
    // Nothing touched, so there are as many bridges as lines, the last of them at the front.
    ASSERT_EQ(chain.list.size(), 2 * static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < chain.list.size(); ++i) {
      ASSERT_POINT_EQ(chain.EndsAt(i).End, chain.EndsAt((i + 1) % chain.list.size()).Start);
    }
    const auto closed = chain.Entries();
    chain.list.MakeClosed();
    ASSERT_EQ(chain.Entries(), closed);
  }
}

}  // namespace
