// RepairLines and ModifyPntForRepair: what counts as a fold, which of the two lines gives way, and
// where the joint with its neighbour goes.
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Twins.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

using support::Chain;
using support::Seg;

/// What one call of ModifyPntForRepair was given.
template <typename Twin>
struct Repair {
  typename Twin::Line* line;
  typename Twin::Line* neighbour;
  typename Twin::Point p;
  double fraction;
};

/// A list that writes down the repairs it is asked for and makes none.
template <typename Twin>
class Asked : public Twin::List {
 public:
  std::vector<Repair<Twin>> repairs;

 protected:
  void ModifyPntForRepair(typename Twin::Line& line, typename Twin::Line& neighbour,
                          const typename Twin::Point& p, const double& fraction) override {
    repairs.push_back({&line, &neighbour, p, fraction});
  }
};
template <typename Twin>
using AskedChain = Chain<Twin, Asked<Twin>>;

/// Opens the protected operation.
template <typename Twin>
class Open : public Twin::List {
 public:
  using Twin::List::ModifyPntForRepair;
};

template <typename Twin>
class RepairLines : public testing::Test {};
TYPED_TEST_SUITE(RepairLines, support::BothTwins, support::TwinNames);

//        c                     a runs to (10, 1) and b back over it to (4, 1), where the
//        |                     contour goes on with c. b is the shorter one, so the joint of b
//   a ---+=====b               and c moves along c.
TYPED_TEST(RepairLines, MovesTheFarEndOfAShorterSecondWithTheElementBehindIt) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(0, 1, 10, 1);
  auto* const b = chain.AddLine(10, 1, 4, 1);
  auto* const c = chain.AddLine(4, 1, 4, 6);
  chain.list.RepairLines(0.1);
  // A tenth of the length 5 of c: outwards, away from its far end, in the plane; inwards in space.
  const double y = std::is_same_v<TypeParam, support::Flat> ? 0.5 : 1.5;
  EXPECT_EQ(chain.Entries(), chain.Order({a, b, c}));
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(0, 1, 10, 1));
  EXPECT_POINT_NEAR(*b, Seg<TypeParam>(10, 1, 4, y), 1e-15);
  EXPECT_POINT_NEAR(*c, Seg<TypeParam>(4, y, 4, 6), 1e-15);
}

TYPED_TEST(RepairLines, MovesTheFarEndOfAShorterFirstWithTheElementBeforeIt) {
  Chain<TypeParam> chain;
  auto* const z = chain.AddLine(2, 9, 2, 1);
  auto* const a = chain.AddLine(2, 1, 8, 1);
  auto* const b = chain.AddLine(8, 1, 0, 1);
  auto* const c = chain.AddLine(0, 1, 0, 9);
  chain.list.RepairLines(0.25);
  const double y = std::is_same_v<TypeParam, support::Flat> ? -1 : 3;  // a quarter of 8
  EXPECT_POINT_EQ(*z, Seg<TypeParam>(2, 9, 2, y));
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(2, y, 8, 1));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(8, 1, 0, 1));
  EXPECT_POINT_EQ(*c, Seg<TypeParam>(0, 1, 0, 9));
}

TYPED_TEST(RepairLines, WrapsToTheFirstElementBehindTheLast) {
  AskedChain<TypeParam> chain;
  auto* const front = chain.AddLine(4, 1, 4, 6);
  chain.AddLine(4, 6, 0, 1);
  chain.AddLine(0, 1, 10, 1);
  auto* const last = chain.AddLine(10, 1, 4, 1);
  chain.list.RepairLines(0.5);
  ASSERT_EQ(chain.list.repairs.size(), 1u);
  EXPECT_EQ(chain.list.repairs[0].line, last);
  EXPECT_EQ(chain.list.repairs[0].neighbour, front);
}

TYPED_TEST(RepairLines, WrapsToTheLastElementBeforeTheFirst) {
  AskedChain<TypeParam> chain;
  auto* const front = chain.AddLine(2, 1, 8, 1);
  chain.AddLine(8, 1, 0, 1);
  chain.AddLine(0, 1, 0, 9);
  auto* const last = chain.AddLine(0, 9, 2, 9);
  chain.list.RepairLines(0.5);
  ASSERT_EQ(chain.list.repairs.size(), 1u);
  EXPECT_EQ(chain.list.repairs[0].line, front);
  EXPECT_EQ(chain.list.repairs[0].neighbour, last);
}

TYPED_TEST(RepairLines, AsksForTheRepairWithTheFarEndAndTheFraction) {
  for (int turned = 0; turned < 4; ++turned) {
    AskedChain<TypeParam> chain;
    // Each of the four ways in which the two may share the end at (10, 1).
    if ((turned & 1) != 0) {
      chain.AddLine(10, 1, 0, 1);
    } else {
      chain.AddLine(0, 1, 10, 1);
    }
    auto* const b = (turned & 2) != 0 ? chain.AddLine(4, 1, 10, 1) : chain.AddLine(10, 1, 4, 1);
    auto* const c = chain.AddLine(40, 10, 40, 60);  // need not touch
    chain.list.RepairLines(-0.75);
    ASSERT_EQ(chain.list.repairs.size(), 1u) << turned;
    EXPECT_EQ(chain.list.repairs[0].line, b);
    EXPECT_EQ(chain.list.repairs[0].neighbour, c);
    EXPECT_POINT_EQ(chain.list.repairs[0].p, TypeParam::At(4, 1));
    EXPECT_EQ(chain.list.repairs[0].fraction, -0.75);
  }
}

TYPED_TEST(RepairLines, TheSharedEndsMayBeATenThousandthApart) {
  const double beyond = std::nextafter(0.0001, 1.0);
  for (const bool apart : {false, true}) {
    AskedChain<TypeParam> chain;
    chain.AddLine(-10, 0, 0, 0);
    chain.AddLine(apart ? beyond : 0.0001, 0, -6, 0);
    chain.AddLine(-6, 0, -6, 5);
    chain.list.RepairLines(0.1);
    EXPECT_EQ(chain.list.repairs.size(), apart ? 0u : 1u);
  }
}

TYPED_TEST(RepairLines, LinesInOneDirectionOrAtAnAngleAreNoFold) {
  AskedChain<TypeParam> chain;
  chain.AddLine(0, 1, 10, 1);
  chain.AddLine(10, 1, 14, 1);  // straight on
  chain.AddLine(14, 1, 10, 3);  // back at an angle
  chain.AddLine(70, 1, 60, 1);  // apart from its neighbours
  chain.AddLine(62, 1, 68, 1);
  chain.list.RepairLines(0.1);
  EXPECT_TRUE(chain.list.repairs.empty());
}

TYPED_TEST(RepairLines, LinesThatOverlapInAllTheirLengthAreNoFold) {
  AskedChain<TypeParam> chain;
  chain.AddLine(0, 1, 10, 1);
  chain.AddLine(10, 1, 0, 1);
  chain.AddLine(0.0001, 1, 10, 1);  // its far end still passes for the end of the other
  chain.list.RepairLines(0.1);
  EXPECT_TRUE(chain.list.repairs.empty());
}

TYPED_TEST(RepairLines, AFarEndBesideTheOtherLineIsNoFold) {
  for (const bool off : {false, true}) {
    AskedChain<TypeParam> chain;
    chain.AddLine(0, 1, 10, 1);
    chain.AddLine(10, 1, 4, off ? 1.00002 : 1.000005);  // the line is hit within 0.00001
    chain.AddLine(4, 1, 4, 6);
    chain.list.RepairLines(0.1);
    EXPECT_EQ(chain.list.repairs.size(), off ? 0u : 1u);
  }
}

TYPED_TEST(RepairLines, DoesNotExamineThePairOfLastAndFirst) {
  AskedChain<TypeParam> chain;
  chain.AddLine(10, 1, 4, 1);
  chain.AddLine(4, 1, 4, 6);
  chain.AddLine(0, 1, 10, 1);
  chain.list.RepairLines(0.1);
  EXPECT_TRUE(chain.list.repairs.empty());
}

TYPED_TEST(RepairLines, DoesNothingWithANeighbourThatIsNoLine) {
  AskedChain<TypeParam> chain;
  chain.AddLine(0, 1, 10, 1);
  chain.AddLine(10, 1, 4, 1);
  chain.AddArc(4, 1, 4, 6);
  chain.list.RepairLines(0.1);
  EXPECT_TRUE(chain.list.repairs.empty());
}

TYPED_TEST(RepairLines, PassesOverPairsWithAnotherKindBetween) {
  AskedChain<TypeParam> chain;
  chain.AddLine(0, 1, 10, 1);
  chain.AddArc(10, 1, 10, 1);
  chain.AddLine(10, 1, 4, 1);
  chain.AddPoint(4, 1);
  chain.AddLine(4, 1, 9, 1);
  chain.AddNull();
  chain.AddLine(9, 1, 5, 1);
  chain.list.RepairLines(0.1);
  EXPECT_TRUE(chain.list.repairs.empty());
}

TEST(RepairLines2D, PassesOverRectangles) {
  GX2DElmList list;
  support::Add(list, support::Rect(0, 1, 10, 1), support::Line(10, 1, 4, 1));
  list.RepairLines(0.1);
  EXPECT_POINT_EQ(support::At<GX2DRectangle>(list, 0), support::Rect(0, 1, 10, 1));
  EXPECT_POINT_EQ(support::At<GX2DLine>(list, 1), support::Line(10, 1, 4, 1));
}

TYPED_TEST(RepairLines, DoesNothingBelowTwoElements) {
  AskedChain<TypeParam> chain;
  chain.list.RepairLines(0.1);
  chain.AddLine(0, 1, 10, 1);
  chain.list.RepairLines(0.1);
  EXPECT_TRUE(chain.list.repairs.empty());
}

TYPED_TEST(RepairLines, InAListOfTwoTheLongerLineIsTheNeighbourOfTheShorter) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(0, 1, 10, 1);
  auto* const b = chain.AddLine(10, 1, 4, 1);
  chain.list.RepairLines(0.5);
  // The joint (4, 1) is on neither end of a, so a's end is moved all the same, by half of the way
  // from a's start to the joint: on in the plane, back in space.
  const double x = std::is_same_v<TypeParam, support::Flat> ? 6 : 2;
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(0, 1, x, 1));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(10, 1, x, 1));
}

TYPED_TEST(RepairLines, EndsThatAreNoPlacesAreNoFold) {
  for (const double bad : {kNaN, kInf}) {
    AskedChain<TypeParam> chain;
    chain.AddLine(0, 1, bad, 1);
    chain.AddLine(bad, 1, 4, 1);
    chain.AddLine(4, 1, 10, 1);
    chain.AddLine(10, 1, bad, 1);
    chain.list.RepairLines(0.1);
    EXPECT_TRUE(chain.list.repairs.empty());
  }
}

TYPED_TEST(RepairLines, OneFoldAfterTheOtherIsRepairedOnWhatIsThere) {
  Chain<TypeParam> chain;
  chain.AddLine(0, 1, 10, 1);
  chain.AddLine(10, 1, 4, 1);
  auto* const c = chain.AddLine(4, 1, 4, 11);
  auto* const d = chain.AddLine(4, 11, 4, 6);
  auto* const e = chain.AddLine(4, 6, 9, 6);
  chain.list.RepairLines(0.1);
  constexpr bool kFlat = std::is_same_v<TypeParam, support::Flat>;
  EXPECT_POINT_EQ(*c, Seg<TypeParam>(4, kFlat ? 0 : 2, 4, 11));
  EXPECT_POINT_EQ(*d, Seg<TypeParam>(4, 11, kFlat ? 3.5 : 4.5, 6));
  EXPECT_POINT_EQ(*e, Seg<TypeParam>(kFlat ? 3.5 : 4.5, 6, 9, 6));
}

template <typename Twin>
class ModifyPntForRepair : public testing::Test {};
TYPED_TEST_SUITE(ModifyPntForRepair, support::BothTwins, support::TwinNames);

/// Where the joint (2, 3) goes when the neighbour's far end is (6, 3): half of 4, outwards in the
/// plane and inwards in space.
template <typename Twin>
double MovedX() {
  return std::is_same_v<Twin, support::Flat> ? 0.0 : 4.0;
}

TYPED_TEST(ModifyPntForRepair, MovesTheEndsThatLieAtTheJoint) {
  const double x = MovedX<TypeParam>();
  for (int turned = 0; turned < 4; ++turned) {
    const bool atLineStart = (turned & 1) != 0;
    const bool atNeighbourStart = (turned & 2) != 0;
    auto line = atLineStart ? Seg<TypeParam>(2, 3, 2, 9) : Seg<TypeParam>(2, 9, 2, 3);
    auto neighbour = atNeighbourStart ? Seg<TypeParam>(2, 3, 6, 3) : Seg<TypeParam>(6, 3, 2, 3);
    Open<TypeParam> list;
    list.ModifyPntForRepair(line, neighbour, TypeParam::At(2, 3), 0.5);
    EXPECT_POINT_EQ(line, (atLineStart ? Seg<TypeParam>(x, 3, 2, 9) : Seg<TypeParam>(2, 9, x, 3)));
    EXPECT_POINT_EQ(neighbour,
                    (atNeighbourStart ? Seg<TypeParam>(x, 3, 6, 3) : Seg<TypeParam>(6, 3, x, 3)));
  }
}

TYPED_TEST(ModifyPntForRepair, AStartWithinATenThousandthIsAtTheJoint) {
  const double beyond = std::nextafter(0.0001, 1.0);
  for (const bool apart : {false, true}) {
    const double gap = apart ? beyond : 0.0001;
    auto line = Seg<TypeParam>(gap, 0, 0, 9);
    auto neighbour = Seg<TypeParam>(0, 0, 4, 0);
    Open<TypeParam> list;
    list.ModifyPntForRepair(line, neighbour, TypeParam::At(0, 0), 0.0);
    // A fraction of 0 puts the joint itself in the place of the end.
    EXPECT_POINT_EQ(line, (apart ? Seg<TypeParam>(gap, 0, 0, 0) : Seg<TypeParam>(0, 0, 0, 9)));
  }
}

TYPED_TEST(ModifyPntForRepair, MovesTheEndsWhereTheJointIsOnNoEndAtAll) {
  auto line = Seg<TypeParam>(50, 50, 60, 60);
  auto neighbour = Seg<TypeParam>(6, 3, 8, 8);
  Open<TypeParam> list;
  list.ModifyPntForRepair(line, neighbour, TypeParam::At(2, 3), 0.5);
  const double x = MovedX<TypeParam>();
  EXPECT_POINT_EQ(line, Seg<TypeParam>(50, 50, x, 3));
  EXPECT_POINT_EQ(neighbour, Seg<TypeParam>(6, 3, x, 3));
}

TYPED_TEST(ModifyPntForRepair, AStartAsNearAsTheToleranceIsTheJointAndTheFarEndIsTheOther) {
  // Run towards the joint (0, 0). Up to the tolerance its start passes for the joint, its end for
  // the far end, and the way between joint and far end has no length.
  for (const double length : {0.0001, 0.0002}) {
    auto line = Seg<TypeParam>(0, 9, 0, 0);
    auto neighbour = Seg<TypeParam>(length, 0, 0, 0);
    Open<TypeParam> list;
    list.ModifyPntForRepair(line, neighbour, TypeParam::At(0, 0), 1.0);
    const double outwards = length > 0.0001 ? -length : 0.0;
    const double x = std::is_same_v<TypeParam, support::Flat> ? outwards : -outwards;
    EXPECT_POINT_EQ(line, Seg<TypeParam>(0, 9, x, 0));
    EXPECT_POINT_EQ(neighbour, Seg<TypeParam>(length, 0, x, 0));
  }
}

TYPED_TEST(ModifyPntForRepair, TheNeighbourHasToBeLongerThanTheLimitStrictly) {
  const double beyond = std::nextafter(0.0001, 1.0);
  for (const double length : {0.0001, beyond}) {
    auto line = Seg<TypeParam>(0, 9, 0, 0);
    auto neighbour = Seg<TypeParam>(0, 0, length, 0);
    Open<TypeParam> list;
    list.ModifyPntForRepair(line, neighbour, TypeParam::At(0, 0), 1.0);
    const double moved =
        length == beyond ? (std::is_same_v<TypeParam, support::Flat> ? -beyond : beyond) : 0.0;
    EXPECT_POINT_EQ(line, Seg<TypeParam>(0, 9, moved, 0));
    EXPECT_POINT_EQ(neighbour, Seg<TypeParam>(moved, 0, length, 0));
  }
}

TYPED_TEST(ModifyPntForRepair, TheJointMayBeAnEndOfOneOfTheLines) {
  const double x = MovedX<TypeParam>();
  for (const bool ofLine : {false, true}) {
    auto line = Seg<TypeParam>(2, 3, 2, 9);
    auto neighbour = Seg<TypeParam>(2, 3, 6, 3);
    Open<TypeParam> list;
    list.ModifyPntForRepair(line, neighbour, ofLine ? line.Start : neighbour.Start, 0.5);
    EXPECT_POINT_EQ(line, Seg<TypeParam>(x, 3, 2, 9));
    EXPECT_POINT_EQ(neighbour, Seg<TypeParam>(x, 3, 6, 3));
  }
}

TEST(ModifyPntForRepair3D, MovesAllThreeCoordinates) {
  GX3DLine line = support::Line(0, 0, 0, 1, 2, 3);
  GX3DLine neighbour = support::Line(1, 2, 3, 5, 10, 15);
  Open<support::InSpace> list;
  list.ModifyPntForRepair(line, neighbour, support::Point(1, 2, 3), 0.25);
  EXPECT_POINT_EQ(line, support::Line(0, 0, 0, 2, 4, 6));
  EXPECT_POINT_EQ(neighbour, support::Line(2, 4, 6, 5, 10, 15));
}

}  // namespace
