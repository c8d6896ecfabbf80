// RemovePoints, EliminateElmsActuallyPoint and RemoveDuplicates: which elements go, and in which
// order they are destroyed.
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Twins.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

using support::Chain;
using Log = std::vector<std::string>;

template <typename Twin>
class RemovePoints : public testing::Test {};
TYPED_TEST_SUITE(RemovePoints, support::BothTwins, support::TwinNames);

TYPED_TEST(RemovePoints, ErasesNeighbouringPointsAndThoseAtBothEnds) {
  Chain<TypeParam> chain;
  chain.AddPoint(0, 0);
  chain.AddPoint(0, 0);
  auto* const a = chain.AddLine(0, 0, 1, 0);
  chain.AddPoint(1, 0);
  chain.AddPoint(2, 0);
  chain.AddPoint(3, 0);
  auto* const b = chain.AddArc(1, 0, 2, 0);
  chain.AddPoint(9, 9);
  chain.list.RemovePoints();
  EXPECT_EQ(chain.Entries(), chain.Order({a, b}));
}

TYPED_TEST(RemovePoints, DestroysThePointsFromTheFrontOn) {
  Log log;
  Chain<TypeParam> chain;
  using Point = support::Logged<typename TypeParam::Point>;
  using Line = support::Logged<typename TypeParam::Line>;
  chain.Take(new Point(log, "first", TypeParam::At(0, 0)));
  chain.Take(new Line(log, "line"));
  chain.Take(new Point(log, "second", TypeParam::At(0, 0)));
  chain.Take(new Point(log, "third", TypeParam::At(5, 0)));
  chain.list.RemovePoints();
  EXPECT_EQ(log, (Log{"first", "second", "third"}));
  EXPECT_EQ(chain.list.size(), 1u);
}

TYPED_TEST(RemovePoints, KeepsLinesAndArcsWithoutLength) {
  Chain<TypeParam> chain;
  auto* const line = chain.AddLine(1, 1, 1, 1);
  auto* const arc = chain.Take(new typename TypeParam::Arc());
  chain.list.RemovePoints();
  EXPECT_EQ(chain.Entries(), chain.Order({line, arc}));
}

TYPED_TEST(RemovePoints, KeepsOtherKindsAndNullEntries) {
  Chain<TypeParam> chain;
  auto* const stranger = chain.AddForeign(0, 0, 0, 0);
  chain.AddNull();
  chain.AddPoint(1, 1);
  chain.list.RemovePoints();
  EXPECT_EQ(chain.Entries(), chain.Order({stranger, nullptr}));
}

TYPED_TEST(RemovePoints, EmptiesAListOfPointsAndLeavesAnEmptyOneEmpty) {
  Chain<TypeParam> chain;
  chain.AddPoint(1, 1);
  chain.list.RemovePoints();
  EXPECT_TRUE(chain.list.empty());
  chain.list.RemovePoints();
  EXPECT_TRUE(chain.list.empty());
}

TEST(RemovePoints2D, KeepsRectangles) {
  GX2DElmList list;
  support::Add(list, support::Rect(1, 1, 1, 1), support::Point(1, 1));
  list.RemovePoints();
  ASSERT_EQ(list.size(), 1u);
  EXPECT_POINT_EQ(support::At<GX2DRectangle>(list, 0), support::Rect(1, 1, 1, 1));
}

TEST(EliminateElmsActuallyPoint, ErasesNullEntriesPointsAndElementsThatAreHardlyMore) {
  Log log;
  GX3DElmList list;
  list.push_back(nullptr);
  list.push_back(new support::Logged<GX3DPoint>(log, "point", 5.0, 5.0, 5.0));
  list.push_back(nullptr);
  list.push_back(nullptr);
  list.push_back(
      new support::Logged<GX3DLine>(log, "line", support::Point(1, 1, 1), support::Point(1, 1, 1)));
  list.push_back(new support::Logged<GX3DArc>(log, "kept"));
  dynamic_cast<GX3DArc&>(*list.back()).Start = support::Point(1, 0, 0);
  list.push_back(new support::Logged<GX3DArc>(log, "arc"));
  list.EliminateElmsActuallyPoint();
  EXPECT_EQ(log, (Log{"point", "line", "arc"}));
  EXPECT_EQ(list.size(), 1u);
}

TEST(EliminateElmsActuallyPoint, KeepsAFullCircle) {
  GX3DElmList list;
  support::Add(list, support::Arc3D(support::Circle(0, 0, 5), 1));
  list.EliminateElmsActuallyPoint();
  EXPECT_EQ(list.size(), 1u);
}

TEST(EliminateElmsActuallyPoint, DropsAnArcByItsRadiusHoweverFarItsEndIs) {
  GX3DElmList list;
  support::Add(list, GX3DArc(support::Point(1, 1, 1), support::Point(1, 1, 1.00005),
                             support::Point(4, 4, 4), support::Point(9, 9, 9)));
  list.EliminateElmsActuallyPoint();
  EXPECT_TRUE(list.empty());
}

TEST(EliminateElmsActuallyPoint, TheLimitOfATenThousandthBelongsToThePoint) {
  const double beyond = std::nextafter(0.0001, 1.0);
  GX3DElmList list;
  support::Add(list, support::Line(0, 0, 0, 0.0001, 0.0001, -0.0001),
               support::Line(0, 0, 0, beyond, 0, 0), support::Line(0, 0, 0, 0, beyond, 0),
               support::Line(0, 0, 0, 0, 0, beyond));
  list.EliminateElmsActuallyPoint();
  EXPECT_EQ(list.size(), 3u);
}

/// An element that answers for itself.
class Doubtful : public support::Foreign3D {
 public:
  explicit Doubtful(bool point)
      : Foreign3D(support::Point(0, 0, 0), support::Point(0, 0, 0)), point_(point) {}
  bool IsActuallyAPoint() override { return point_; }

 private:
  bool point_;
};

TEST(EliminateElmsActuallyPoint, AsksTheElementItself) {
  GX3DElmList list;
  list.push_back(new Doubtful(true));
  list.push_back(new Doubtful(false));
  list.push_back(new Doubtful(true));
  GX3DElement* const kept = list[1];
  list.EliminateElmsActuallyPoint();
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list.front(), kept);
}

/// What is left of a list of logged elements named by their place, as "names destroyed".
class Duplicates {
 public:
  template <typename Kind>
  Duplicates& With(const Kind& element) {
    list_.push_back(new support::Logged<Kind>(log_, std::to_string(list_.size()), element));
    return *this;
  }
  Log Removed() {
    const std::size_t before = list_.size();
    list_.RemoveDuplicates();
    EXPECT_EQ(list_.size() + log_.size(), before);
    return log_;
  }

 private:
  Log log_;  // outlives the list, whose elements write to it
  GX3DElmList list_;
};

TEST(RemoveDuplicates, RemovesALaterLineWithTheSameEndsInEitherOrder) {
  Duplicates list;
  list.With(support::Line(0, 0, 0, 1, 2, 3))
      .With(support::Line(0, 0, 0, 1, 2, 4))
      .With(support::Line(1, 2, 3, 0, 0, 0))
      .With(support::Line(0, 0, 0, 1, 2, 3));
  EXPECT_EQ(list.Removed(), (Log{"2", "3"}));
}

TEST(RemoveDuplicates, RemovesNeighbouringDuplicatesAll) {
  Duplicates list;
  for (int i = 0; i < 5; ++i) {
    list.With(support::Line(0, 0, 0, 1, 2, 3));
  }
  EXPECT_EQ(list.Removed(), (Log{"1", "2", "3", "4"}));
}

TEST(RemoveDuplicates, DestroysInTheOrderOfTheElementsThatTheyRepeat) {
  Duplicates list;
  list.With(support::Line(0, 0, 0, 1, 0, 0))
      .With(support::Line(0, 0, 0, 2, 0, 0))
      .With(support::Line(0, 0, 0, 2, 0, 0))
      .With(support::Line(0, 0, 0, 1, 0, 0));
  EXPECT_EQ(list.Removed(), (Log{"3", "2"}));
}

TEST(RemoveDuplicates, ComparesEachCoordinateInclusively) {
  const double beyond = std::nextafter(0.0001, 1.0);
  Duplicates list;
  list.With(support::Line(0, 0, 0, 9, 9, 9))
      .With(support::Line(0.0001, -0.0001, 0.0001, 9, 9, 9))
      .With(support::Line(-beyond, 0, 0, 9, 9, 9))
      .With(support::Line(0, -beyond, 0, 9, 9, 9))
      .With(support::Line(0, 0, -beyond, 9, 9, 9));
  EXPECT_EQ(list.Removed(), (Log{"1"}));
}

TEST(RemoveDuplicates, AnElementThatIsGoneTakesNoOtherWithIt) {
  Duplicates list;
  list.With(support::Line(0, 0, 0, 9, 9, 9))
      .With(support::Line(0.0001, 0, 0, 9, 9, 9))
      .With(support::Line(0.0002, 0, 0, 9, 9, 9));
  EXPECT_EQ(list.Removed(), (Log{"1"}));
}

// The quarter from (r, 0) to (0, r) about the origin, counter-clockwise seen from above.
GX3DArc Quarter(double r) {
  const double half = r * std::sqrt(0.5);
  return support::Arc3D(support::Arc(0, 0, r, 0, half, half, 0, r), 0);
}

TEST(RemoveDuplicates, RemovesTheSameArcEvenWithItsMidElsewhereOnTheSameSide) {
  GX3DArc other = Quarter(5);
  other.Mid = support::Point(-3, 1, 0);  // still to the left of the start
  Duplicates list;
  list.With(Quarter(5)).With(other).With(Quarter(6)).With(Quarter(5));
  EXPECT_EQ(list.Removed(), (Log{"1", "3"}));
}

TEST(RemoveDuplicates, KeepsTheSameArcRunTheOtherWay) {
  GX3DArc back = Quarter(5);
  back.SwapPoints();  // mid on the inner side of the new start: the opposite normal
  Duplicates list;
  list.With(Quarter(5)).With(back);
  EXPECT_EQ(list.Removed(), Log{});
}

TEST(RemoveDuplicates, KeepsTheRestOfTheCircleWithTheSameEndsInTheSameOrder) {
  GX3DArc rest = Quarter(5);
  rest.Mid = support::Point(-5 * std::sqrt(0.5), -5 * std::sqrt(0.5), 0);
  Duplicates list;
  list.With(Quarter(5)).With(rest);
  EXPECT_EQ(list.Removed(), Log{});
}

TEST(RemoveDuplicates, RemovesTheRestOfTheCircleRunOnFromTheEnd) {
  // From (0, 5) on to (5, 0) counter-clockwise: swapped ends, equal normal.
  const GX3DArc rest = support::Arc3D(support::Arc(0, 0, 0, 5, -5, 0, 5, 0), 0);
  Duplicates list;
  list.With(Quarter(5)).With(rest);
  EXPECT_EQ(list.Removed(), (Log{"1"}));
}

TEST(RemoveDuplicates, ComparesUnitNormalsSoTinyArcsOfOppositeSenseStay) {
  // The cross product of radii of 0.005 is shorter than the tolerance; its direction decides.
  GX3DArc rest = Quarter(0.005);
  rest.Mid = support::Point(0, -0.005, 0);
  Duplicates list;
  list.With(Quarter(0.005)).With(rest).With(Quarter(0.005));
  EXPECT_EQ(list.Removed(), (Log{"2"}));
}

TEST(RemoveDuplicates, NormalsMayDifferByTheTolerance) {
  // The mid is tilted out of the plane by an angle t; the normal turns by t about the X axis and
  // changes by about t in Y.
  for (const double tilt : {0.00009, 0.00011}) {
    GX3DArc tilted = Quarter(5);
    tilted.Mid = support::Point(0, 5 * std::cos(tilt), 5 * std::sin(tilt));
    Duplicates list;
    list.With(Quarter(5)).With(tilted);
    EXPECT_EQ(list.Removed(), tilt < 0.0001 ? (Log{"1"}) : Log{}) << tilt;
  }
}

TEST(RemoveDuplicates, ArcsWithoutANormalAreEqualInIt) {
  const GX3DArc straight = support::Arc3D(support::Arc(0, 0, 5, 0, -5, 0, 0, 5), 0);
  GX3DArc other = straight;
  other.Mid = support::Point(2, 0, 0);
  Duplicates list;
  list.With(straight).With(other).With(Quarter(5));
  EXPECT_EQ(list.Removed(), (Log{"1"}));
}

TEST(RemoveDuplicates, ArcsNeedTheSameCenter) {
  GX3DArc moved = Quarter(5);
  moved.Center.Z = 0.0002;
  GX3DArc near = Quarter(5);
  near.Center.X = 0.0001;  // turns the normal by nothing: everything stays in the plane
  Duplicates list;
  list.With(Quarter(5)).With(moved).With(near);
  EXPECT_EQ(list.Removed(), (Log{"2"}));
}

TEST(RemoveDuplicates, NeverComparesALineWithAnArcNorLooksAtPoints) {
  GX3DArc arc;
  arc.End = support::Point(1, 0, 0);
  Duplicates list;
  list.With(support::Line(0, 0, 0, 1, 0, 0))
      .With(arc)
      .With(support::Point(0, 0, 0))
      .With(support::Point(0, 0, 0))
      .With(support::Foreign3D(support::Point(0, 0, 0), support::Point(1, 0, 0)));
  EXPECT_EQ(list.Removed(), Log{});
}

TEST(RemoveDuplicates, NaNRepeatsNothing) {
  Duplicates list;
  list.With(support::Line(kNaN, 0, 0, 1, 0, 0)).With(support::Line(kNaN, 0, 0, 1, 0, 0));
  GX3DArc arc = Quarter(5);
  arc.Mid.Z = kNaN;
  list.With(arc).With(arc);
  EXPECT_EQ(list.Removed(), Log{});
}

TEST(RemoveDuplicates, PassesOverNullEntries) {
  GX3DElmList list;
  list.push_back(nullptr);
  support::Add(list, support::Line(0, 0, 0, 1, 0, 0));
  list.push_back(nullptr);
  support::Add(list, support::Line(0, 0, 0, 1, 0, 0));
  GX3DElement* const kept = list[1];
  list.RemoveDuplicates();
  const std::vector<GX3DElement*> now(list.begin(), list.end());
  EXPECT_EQ(now, (std::vector<GX3DElement*>{nullptr, kept, nullptr}));
}

TEST(RemoveDuplicates, LeavesAnEmptyListAndASingleElementAlone) {
  GX3DElmList list;
  list.RemoveDuplicates();
  EXPECT_TRUE(list.empty());
  support::Add(list, support::Line(0, 0, 0, 1, 0, 0));
  list.RemoveDuplicates();
  EXPECT_EQ(list.size(), 1u);
}

}  // namespace
