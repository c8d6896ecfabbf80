// MakeConnectingElements: which element comes next, which way it runs, and what is left alone.
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Twins.h"

#include <gtest/gtest.h>

#include <algorithm>
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

template <typename Twin>
class MakeConnectingElements : public testing::Test {};
TYPED_TEST_SUITE(MakeConnectingElements, support::BothTwins, support::TwinNames);

TYPED_TEST(MakeConnectingElements, LeavesAnEmptyListEmpty) {
  Chain<TypeParam> chain;
  chain.list.MakeConnectingElements();
  EXPECT_TRUE(chain.list.empty());
}

TYPED_TEST(MakeConnectingElements, LeavesASingleElementAsItIs) {
  Chain<TypeParam> lines;
  auto* const line = lines.AddLine(0, 0, 1, 0);
  lines.list.MakeConnectingElements();
  EXPECT_EQ(lines.Entries(), lines.Order({line}));
  EXPECT_POINT_EQ(*line, Seg<TypeParam>(0, 0, 1, 0));

  Chain<TypeParam> arcs;
  auto* const arc = arcs.AddArc(0, 0, 0, 0);
  arcs.list.MakeConnectingElements();
  EXPECT_EQ(arcs.Entries(), arcs.Order({arc}));
}

TYPED_TEST(MakeConnectingElements, FlipsTheFirstOfTwoLinesThatMeetAtTheirStarts) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 5);
  auto* const b = chain.AddLine(1, 1, 0, 7);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, b}));
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(5, 5, 1, 1));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(1, 1, 0, 7));
}

TYPED_TEST(MakeConnectingElements, FlipsAFirstArcWithoutMovingMidAndCenter) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddArc(1, 1, 5, 5);
  chain.AddLine(1, 1, 0, 7);
  chain.list.MakeConnectingElements();
  EXPECT_POINT_EQ(support::Ends<TypeParam>(*a), Seg<TypeParam>(5, 5, 1, 1));
  EXPECT_POINT_EQ(a->Mid, chain.Mid());
  EXPECT_POINT_EQ(a->Center, chain.Center());
}

TYPED_TEST(MakeConnectingElements, TakesTheNextElementAsItStandsBehindAFlippedFirst) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 5);
  auto* const b = chain.AddLine(0, 7, 1, 1);  // touches with its end, and is not turned
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, b}));
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(5, 5, 1, 1));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(0, 7, 1, 1));
}

TYPED_TEST(MakeConnectingElements, DoesNotSearchBehindAFlippedFirst) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 5);
  auto* const far = chain.AddLine(50, 50, 60, 60);
  auto* const b = chain.AddLine(1, 1, 0, 7);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, far, b}));
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(5, 5, 1, 1));
}

TYPED_TEST(MakeConnectingElements, SearchesAgainBehindTheElementThatFollowedTheFlip) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 5);
  auto* const b = chain.AddLine(1, 1, 0, 7);
  auto* const far = chain.AddLine(50, 50, 60, 60);
  auto* const c = chain.AddLine(3, 9, 0, 7);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, b, c, far}));
  EXPECT_POINT_EQ(*c, Seg<TypeParam>(0, 7, 3, 9));
}

TYPED_TEST(MakeConnectingElements, DoesNotFlipAFirstElementThatTouchesNothing) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 5);
  auto* const b = chain.AddLine(9, 9, 8, 8);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, b}));
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(1, 1, 5, 5));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(9, 9, 8, 8));
}

TYPED_TEST(MakeConnectingElements, DoesNotFlipAFirstElementWhoseEndIsTouchedToo) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 5);
  auto* const atStart = chain.AddLine(1, 1, 0, 7);
  auto* const atEnd = chain.AddLine(5, 5, 9, 5);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, atEnd, atStart}));
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(1, 1, 5, 5));
}

TYPED_TEST(MakeConnectingElements, FlipsNoLaterElement) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(0, 1, 1, 1);
  auto* const b = chain.AddLine(1, 1, 2, 1);
  auto* const atStartOfB = chain.AddLine(1, 1, 1, 5);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, b, atStartOfB}));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(1, 1, 2, 1));
}

TYPED_TEST(MakeConnectingElements, TurnsALineThatTouchesWithItsEnd) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(0, 1, 1, 1);
  auto* const b = chain.AddLine(2, 1, 1, 1);
  auto* const c = chain.AddLine(2, 1, 2, 5);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, b, c}));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(1, 1, 2, 1));
  EXPECT_POINT_EQ(*c, Seg<TypeParam>(2, 1, 2, 5));
}

TYPED_TEST(MakeConnectingElements, TurnsAnArcBySwappingItsEndsAlone) {
  Chain<TypeParam> chain;
  chain.AddLine(0, 1, 1, 1);
  auto* const b = chain.AddArc(2, 1, 1, 1);
  chain.list.MakeConnectingElements();
  EXPECT_POINT_EQ(support::Ends<TypeParam>(*b), Seg<TypeParam>(1, 1, 2, 1));
  EXPECT_POINT_EQ(b->Mid, chain.Mid());
  EXPECT_POINT_EQ(b->Center, chain.Center());
}

TYPED_TEST(MakeConnectingElements, TurnsAnElementThatTouchesWithBothEnds) {
  // An almost closed arc: its start is found, but what decides is that its end coincides too.
  Chain<TypeParam> chain;
  chain.AddLine(0, 1, 1, 1);
  auto* const loop = chain.AddArc(1, 1, 1, 1.00005);
  chain.list.MakeConnectingElements();
  EXPECT_POINT_EQ(support::Ends<TypeParam>(*loop), Seg<TypeParam>(1, 1.00005, 1, 1));
}

TYPED_TEST(MakeConnectingElements, TurnsADuplicateOfTheCurrentElement) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(0, 1, 1, 1);
  auto* const b = chain.AddLine(0, 1, 1, 1);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, b}));
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(0, 1, 1, 1));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(1, 1, 0, 1));
}

TYPED_TEST(MakeConnectingElements, OfSeveralThatTouchTheEarliestWins) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(0, 1, 1, 1);
  auto* const byItsEnd = chain.AddLine(7, 7, 1, 1);
  auto* const byItsStart = chain.AddLine(1, 1, 8, 8);
  auto* const next = chain.AddLine(7, 7, 8, 8);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, byItsEnd, next, byItsStart}));
  EXPECT_POINT_EQ(*byItsEnd, Seg<TypeParam>(1, 1, 7, 7));
  EXPECT_POINT_EQ(*byItsStart, Seg<TypeParam>(8, 8, 1, 1));
}

TYPED_TEST(MakeConnectingElements, TheFrontOfTheRemainingComesWhereNothingTouches) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(0, 1, 1, 1);
  auto* const x = chain.AddLine(30, 30, 31, 30);
  auto* const y = chain.AddLine(40, 40, 41, 40);
  auto* const b = chain.AddLine(1, 1, 2, 1);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, b, x, y}));
}

TYPED_TEST(MakeConnectingElements, EndsATenThousandthApartInEachCoordinateTouch) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(-5, -5, 0, 0);
  auto* const far = chain.AddLine(50, 50, 60, 60);
  auto* const b = chain.AddLine(0.0001, -0.0001, 9, 9);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, b, far}));
}

TYPED_TEST(MakeConnectingElements, EndsFartherApartInOneCoordinateDoNotTouch) {
  const double beyond = std::nextafter(0.0001, 1.0);
  for (const bool second : {false, true}) {
    Chain<TypeParam> chain;
    auto* const a = chain.AddLine(-5, -5, 0, 0);
    auto* const far = chain.AddLine(50, 50, 60, 60);
    auto* const b = chain.AddLine(second ? 0.0 : beyond, second ? beyond : 0.0, 9, 9);
    chain.list.MakeConnectingElements();
    EXPECT_EQ(chain.Entries(), chain.Order({a, far, b}));
  }
}

TEST(MakeConnectingElements3D, EveryCoordinateCounts) {
  const double beyond = std::nextafter(0.0001, 1.0);
  for (int axis = 0; axis < 3; ++axis) {
    GX3DPoint start(0, 0, 0);
    start.SetIValue(axis, beyond);
    GX3DElmList list;
    support::Add(list, support::Line(-5, -5, -5, 0, 0, 0), support::Line(50, 50, 50, 60, 60, 60),
                 GX3DLine(start, GX3DPoint(9, 9, 9)));
    GX3DElement* const far = list[1];
    list.MakeConnectingElements();
    EXPECT_EQ(list[1], far) << "axis " << axis;
  }
}

TYPED_TEST(MakeConnectingElements, TakesAPointAtTheEndButNothingBehindIt) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(0, 1, 1, 1);
  auto* const far = chain.AddLine(50, 50, 60, 60);
  auto* const p = chain.AddPoint(1, 1);
  auto* const b = chain.AddLine(1, 1, 2, 1);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, p, far, b}));
}

TYPED_TEST(MakeConnectingElements, PassesAPointInFrontOn) {
  Chain<TypeParam> chain;
  auto* const p = chain.AddPoint(1, 1);
  auto* const far = chain.AddLine(50, 50, 60, 60);
  auto* const a = chain.AddLine(1, 1, 2, 1);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({p, far, a}));
  EXPECT_POINT_EQ(*p, TypeParam::At(1, 1));
}

TYPED_TEST(MakeConnectingElements, AnotherKindCountsAsAPointAtTheOrigin) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(-3, -3, 0, 0);
  auto* const far = chain.AddLine(50, 50, 60, 60);
  auto* const stranger = chain.AddForeign(8, 8, 9, 9);
  auto* const b = chain.AddLine(0, 0, 4, 4);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, stranger, far, b}));
  EXPECT_POINT_EQ(support::Ends<TypeParam>(*stranger), Seg<TypeParam>(8, 8, 9, 9));
}

TYPED_TEST(MakeConnectingElements, NeverTurnsAnotherKind) {
  Chain<TypeParam> chain;
  auto* const stranger = chain.AddForeign(8, 8, 0, 0);
  auto* const a = chain.AddLine(0, 0, 4, 4);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({stranger, a}));
  EXPECT_POINT_EQ(support::Ends<TypeParam>(*stranger), Seg<TypeParam>(8, 8, 0, 0));
}

TEST(MakeConnectingElements2D, ARectangleCountsAsAPointAtTheOriginAndKeepsItsCorners) {
  GX2DElmList list;
  support::Add(list, support::Rect(0, 0, 2, 3), support::Line(-3, -3, 0, 0),
               support::Line(50, 50, 60, 60), support::Rect(7, 7, 8, 9));
  const std::vector<GX2DElement*> old(list.begin(), list.end());
  list.MakeConnectingElements();
  const std::vector<GX2DElement*> now(list.begin(), list.end());
  EXPECT_EQ(now, (std::vector<GX2DElement*>{old[0], old[1], old[3], old[2]}));
  EXPECT_POINT_EQ(support::At<GX2DRectangle>(list, 0), support::Rect(0, 0, 2, 3));
  EXPECT_POINT_EQ(support::At<GX2DRectangle>(list, 2), support::Rect(7, 7, 8, 9));
}

TYPED_TEST(MakeConnectingElements, NullEntriesTouchNothing) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(0, 0, 1, 1);
  chain.AddNull();
  auto* const b = chain.AddLine(1, 1, 2, 1);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, b, nullptr}));

  Chain<TypeParam> nullFirst;
  nullFirst.AddNull();
  auto* const c = nullFirst.AddLine(0, 0, 1, 1);
  auto* const d = nullFirst.AddLine(0, 0, 2, 1);
  nullFirst.list.MakeConnectingElements();
  EXPECT_EQ(nullFirst.Entries(), nullFirst.Order({nullptr, c, d}));
  EXPECT_POINT_EQ(*c, Seg<TypeParam>(0, 0, 1, 1));
}

TYPED_TEST(MakeConnectingElements, NaNTouchesNothing) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(0, 1, kNaN, 1);
  auto* const b = chain.AddLine(30, 30, 31, 31);
  auto* const c = chain.AddLine(kNaN, 1, 2, 1);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, b, c}));
}

TYPED_TEST(MakeConnectingElements, EqualInfinitiesTouch) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(0, 1, kInf, 1);
  auto* const b = chain.AddLine(30, 30, -kInf, 1);
  auto* const c = chain.AddLine(2, 1, kInf, 1);
  chain.list.MakeConnectingElements();
  EXPECT_EQ(chain.Entries(), chain.Order({a, c, b}));
  EXPECT_POINT_EQ(*c, Seg<TypeParam>(kInf, 1, 2, 1));
}

TYPED_TEST(MakeConnectingElements, CreatesAndDestroysNothing) {
  std::vector<std::string> log;
  {
    Chain<TypeParam> chain;
    using Line = support::Logged<typename TypeParam::Line>;
    chain.Take(new Line(log, "b", TypeParam::At(1, 1), TypeParam::At(2, 2)));
    chain.Take(new Line(log, "c", TypeParam::At(3, 3), TypeParam::At(4, 4)));
    chain.Take(new Line(log, "a", TypeParam::At(1, 1), TypeParam::At(0, 0)));
    chain.list.MakeConnectingElements();
    EXPECT_EQ(chain.list.size(), 3u);
    EXPECT_TRUE(log.empty());
  }
  EXPECT_EQ(log.size(), 3u);
}

/// A line that tells how often it was turned.
template <typename Line>
class TurnCounter : public Line {
 public:
  using Line::Line;
  int turns = 0;
  void SwapPoints() override {
    ++turns;
    Line::SwapPoints();
  }
};

TYPED_TEST(MakeConnectingElements, TurnsDerivedLinesByTheirOwnSwapPoints) {
  using Line = TurnCounter<typename TypeParam::Line>;
  Chain<TypeParam> chain;
  Line* const first = chain.Take(new Line(TypeParam::At(1, 1), TypeParam::At(0, 0)));
  Line* const second = chain.Take(new Line(TypeParam::At(1, 1), TypeParam::At(2, 2)));
  Line* const third = chain.Take(new Line(TypeParam::At(3, 3), TypeParam::At(2, 2)));
  chain.list.MakeConnectingElements();
  EXPECT_EQ(first->turns, 1);
  EXPECT_EQ(second->turns, 0);
  EXPECT_EQ(third->turns, 1);
}

// The first line is shorter than the tolerance, so that its start stands for its end. In the plane
// the pair of ends is found first, and the next line is turned for it; in space the pair of starts
// is, and the next line stays.
constexpr double kShort = 0.00008;
constexpr double kNextStart = -0.00005;
constexpr double kNextEnd = 0.00015;

TEST(MakeConnectingElements2D, HoldsTheFirstCommonEndAloneAgainstTheCurrentOne) {
  GX2DElmList list;
  support::Add(list, support::Line(0, 0, kShort, 0), support::Line(kNextStart, 0, kNextEnd, 0));
  list.MakeConnectingElements();
  EXPECT_POINT_EQ(support::At<GX2DLine>(list, 1), support::Line(kNextEnd, 0, kNextStart, 0));
}

TEST(MakeConnectingElements3D, HoldsEveryCommonEndAgainstTheCurrentOneFromItsStartOn) {
  GX3DElmList list;
  support::Add(list, support::Line(0, 0, 0, kShort, 0, 0),
               support::Line(kNextStart, 0, 0, kNextEnd, 0, 0));
  list.MakeConnectingElements();
  EXPECT_POINT_EQ(support::At<GX3DLine>(list, 1), support::Line(kNextStart, 0, 0, kNextEnd, 0, 0));
}

/// Vertices that lie at least 5 apart.
std::vector<GX2DPoint> FarVertices(support::Random& random, int count) {
  std::vector<GX2DPoint> vertices;
  for (int i = 0; i < count; ++i) {
    vertices.emplace_back(10.0 * i + random.Between(-2, 2), random.Between(-100, 100));
  }
  return vertices;
}

/// Adds a line or an arc, run either way, between two vertices.
template <typename Twin>
typename Twin::Element* AddSide(Chain<Twin>& chain, const GX2DPoint& from, const GX2DPoint& to,
                                bool arc) {
  if (arc) {
    return chain.AddArc(from.X, from.Y, to.X, to.Y);
  }
  return chain.AddLine(from.X, from.Y, to.X, to.Y);
}

TYPED_TEST(MakeConnectingElements, ChainsAShuffledLoopFromItsFirstElementRound) {
  support::Random random;
  for (int round = 0; round < 200; ++round) {
    const int count = random.Int(3, 60);
    const std::vector<GX2DPoint> vertices = FarVertices(random, count);
    Chain<TypeParam> chain;
    for (int i = 0; i < count; ++i) {
      const GX2DPoint& from = vertices[static_cast<std::size_t>(i)];
      const GX2DPoint& to = vertices[static_cast<std::size_t>((i + 1) % count)];
      const bool turned = random.Bool();
      AddSide(chain, turned ? to : from, turned ? from : to, random.Bool());
    }
    std::shuffle(chain.list.begin(), chain.list.end(), random.Engine());
    auto* const front = chain.list.front();
    const auto frontEnds = chain.EndsAt(0);
    auto before = chain.Entries();

    chain.list.MakeConnectingElements();

    ASSERT_EQ(chain.list.front(), front);
    ASSERT_POINT_EQ(chain.EndsAt(0), frontEnds);
    for (std::size_t i = 0; i < chain.list.size(); ++i) {
      ASSERT_POINT_EQ(chain.EndsAt(i).End, chain.EndsAt((i + 1) % chain.list.size()).Start);
    }
    auto after = chain.Entries();
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    ASSERT_EQ(after, before);
  }
}

TYPED_TEST(MakeConnectingElements, ChainsAShuffledOpenRowThatBeginsWithItsOwnFirst) {
  support::Random random;
  for (int round = 0; round < 200; ++round) {
    const int count = random.Int(2, 60);
    const std::vector<GX2DPoint> vertices = FarVertices(random, count + 1);
    Chain<TypeParam> chain;
    // The first one runs outwards half of the time; the second then stands right behind it.
    const bool flipped = random.Bool();
    for (std::size_t i = 0; i + 1 < vertices.size(); ++i) {
      const bool turned = i == 0 ? flipped : (i > 1 || !flipped) && random.Bool();
      AddSide(chain, vertices[turned ? i + 1 : i], vertices[turned ? i : i + 1], random.Bool());
    }
    const auto inOrder = chain.Entries();
    std::shuffle(chain.list.begin() + (flipped ? 2 : 1), chain.list.end(), random.Engine());

    chain.list.MakeConnectingElements();

    ASSERT_EQ(chain.Entries(), inOrder);
    for (std::size_t i = 0; i + 1 < vertices.size(); ++i) {
      ASSERT_POINT_EQ(chain.EndsAt(i), Seg<TypeParam>(vertices[i].X, vertices[i].Y,
                                                      vertices[i + 1].X, vertices[i + 1].Y));
    }
  }
}

TYPED_TEST(MakeConnectingElements, LeavesAnOrderedChainAsItIs) {
  support::Random random;
  for (const bool closed : {false, true}) {
    const int count = 12;
    const std::vector<GX2DPoint> vertices = FarVertices(random, count);
    Chain<TypeParam> chain;
    for (int i = 0; i + (closed ? 0 : 1) < count; ++i) {
      AddSide(chain, vertices[static_cast<std::size_t>(i)],
              vertices[static_cast<std::size_t>((i + 1) % count)], random.Bool());
    }
    const auto order = chain.Entries();
    std::vector<typename TypeParam::Line> ends;
    for (std::size_t i = 0; i < chain.list.size(); ++i) {
      ends.push_back(chain.EndsAt(i));
    }
    chain.list.MakeConnectingElements();
    ASSERT_EQ(chain.Entries(), order);
    for (std::size_t i = 0; i < ends.size(); ++i) {
      EXPECT_POINT_EQ(chain.EndsAt(i), ends[i]);
    }
  }
}

}  // namespace
