// MakeAlmostEqualPointsEqual: which end is copied onto which, for every pair of kinds.
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

using support::Chain;
using support::Ends;
using support::Seg;

/// A little less than the tolerance.
constexpr double kBit = 0.00005;

struct Segment {
  double x1, y1, x2, y2;
};

/// Two neighbours as lines or arcs, with a line far off behind them so that the way from the last
/// to the first finds nothing.
template <typename Twin>
class Pair {
 public:
  Pair(bool arcFirst, bool arcNext, const Segment& first, const Segment& next)
      : trace_(__FILE__, __LINE__,
               std::string(arcFirst ? "arc" : "line") + " before " + (arcNext ? "arc" : "line")),
        first_(Add(arcFirst, first)),
        next_(Add(arcNext, next)) {
    chain_.AddLine(500, 500, 600, 600);
    chain_.list.MakeAlmostEqualPointsEqual();
    EXPECT_POINT_EQ(Ends<Twin>(*first_), ToLine(first)) << "the former element moved";
    EXPECT_POINT_EQ(chain_.EndsAt(2), Seg<Twin>(500, 500, 600, 600));
  }

  void ExpectNext(const Segment& expected) {
    EXPECT_POINT_EQ(Ends<Twin>(*next_), ToLine(expected));
  }

 private:
  static typename Twin::Line ToLine(const Segment& s) { return Seg<Twin>(s.x1, s.y1, s.x2, s.y2); }
  typename Twin::Element* Add(bool arc, const Segment& s) {
    if (arc) {
      return chain_.AddArc(s.x1, s.y1, s.x2, s.y2);
    }
    return chain_.AddLine(s.x1, s.y1, s.x2, s.y2);
  }

  testing::ScopedTrace trace_;
  Chain<Twin> chain_;
  typename Twin::Element* first_;
  typename Twin::Element* next_;
};

/// All four pairs of lines and arcs, the expected ends of the second one by its own kind.
template <typename Twin>
void ExpectPairs(const Segment& first, const Segment& next, const Segment& expectedLine,
                 const Segment& expectedArc) {
  for (const bool arcFirst : {false, true}) {
    Pair<Twin>(arcFirst, false, first, next).ExpectNext(expectedLine);
    Pair<Twin>(arcFirst, true, first, next).ExpectNext(expectedArc);
  }
}
template <typename Twin>
void ExpectPairs(const Segment& first, const Segment& next, const Segment& expected) {
  ExpectPairs<Twin>(first, next, expected, expected);
}

template <typename Twin>
class MakeAlmostEqualPointsEqual : public testing::Test {};
TYPED_TEST_SUITE(MakeAlmostEqualPointsEqual, support::BothTwins, support::TwinNames);

TYPED_TEST(MakeAlmostEqualPointsEqual, APointHandsItselfToAPoint) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddPoint(1, 1);
  auto* const b = chain.AddPoint(1 + kBit, 1 - kBit);
  chain.AddPoint(50, 50);
  chain.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(*a, TypeParam::At(1, 1));
  EXPECT_POINT_EQ(*b, TypeParam::At(1, 1));
  EXPECT_EQ(chain.list.size(), 3u);
}

TYPED_TEST(MakeAlmostEqualPointsEqual, APointHandsItselfToTheStartOfALineOrArc) {
  Chain<TypeParam> chain;
  chain.AddPoint(1, 1);
  auto* const line = chain.AddLine(1 + kBit, 1, 4, 4);
  chain.AddPoint(7, 7);
  auto* const arc = chain.AddArc(7, 7 - kBit, 9, 9);
  chain.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(*line, Seg<TypeParam>(1, 1, 4, 4));
  EXPECT_POINT_EQ(Ends<TypeParam>(*arc), Seg<TypeParam>(7, 7, 9, 9));
}

TYPED_TEST(MakeAlmostEqualPointsEqual, APointHandsItselfToTheEndWhereTheStartIsFar) {
  Chain<TypeParam> chain;
  chain.AddPoint(1, 1);
  auto* const line = chain.AddLine(4, 4, 1 + kBit, 1);
  chain.AddPoint(7, 7);
  auto* const arc = chain.AddArc(9, 9, 7, 7 - kBit);
  chain.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(*line, Seg<TypeParam>(4, 4, 1, 1));
  EXPECT_POINT_EQ(Ends<TypeParam>(*arc), Seg<TypeParam>(9, 9, 7, 7));
}

TYPED_TEST(MakeAlmostEqualPointsEqual, APointMovesTheStartAloneWhereBothEndsAreNear) {
  for (const bool arc : {false, true}) {
    Chain<TypeParam> chain;
    chain.AddPoint(1, 1);
    typename TypeParam::Element* next = nullptr;
    if (arc) {
      next = chain.AddArc(1 + kBit, 1, 1, 1 + kBit);
    } else {
      next = chain.AddLine(1 + kBit, 1, 1, 1 + kBit);
    }
    chain.AddLine(50, 50, 60, 60);
    chain.list.MakeAlmostEqualPointsEqual();
    EXPECT_POINT_EQ(Ends<TypeParam>(*next), Seg<TypeParam>(1, 1, 1, 1 + kBit));
  }
}

TYPED_TEST(MakeAlmostEqualPointsEqual, APointTakesTheStartOfALineOrArc) {
  Chain<TypeParam> chain;
  chain.AddLine(1, 1, 4, 4);
  auto* const p = chain.AddPoint(1 + kBit, 1);
  chain.AddArc(7, 7, 9, 9);
  auto* const q = chain.AddPoint(7, 7 - kBit);
  chain.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(*p, TypeParam::At(1, 1));
  EXPECT_POINT_EQ(*q, TypeParam::At(7, 7));
}

TYPED_TEST(MakeAlmostEqualPointsEqual, APointTakesTheEndWhereTheStartIsFar) {
  Chain<TypeParam> chain;
  chain.AddLine(4, 4, 1, 1);
  auto* const p = chain.AddPoint(1 + kBit, 1);
  chain.AddArc(9, 9, 7, 7);
  auto* const q = chain.AddPoint(7, 7 - kBit);
  chain.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(*p, TypeParam::At(1, 1));
  EXPECT_POINT_EQ(*q, TypeParam::At(7, 7));
}

TYPED_TEST(MakeAlmostEqualPointsEqual, APointTakesTheStartWhereBothEndsAreNear) {
  Chain<TypeParam> chain;
  chain.AddLine(1, 1, 1 + kBit, 1);
  auto* const p = chain.AddPoint(1, 1 + kBit);
  chain.AddArc(7, 7, 7 + kBit, 7);
  auto* const q = chain.AddPoint(7, 7 - kBit);
  chain.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(*p, TypeParam::At(1, 1));
  EXPECT_POINT_EQ(*q, TypeParam::At(7, 7));
}

TYPED_TEST(MakeAlmostEqualPointsEqual, StartMovesStart) {
  ExpectPairs<TypeParam>({1, 1, 5, 5}, {1 + kBit, 1, 9, 2}, {1, 1, 9, 2});
}

TYPED_TEST(MakeAlmostEqualPointsEqual, StartMovesEnd) {
  ExpectPairs<TypeParam>({1, 1, 5, 5}, {9, 2, 1, 1 - kBit}, {9, 2, 1, 1});
}

TYPED_TEST(MakeAlmostEqualPointsEqual, EndMovesStart) {
  ExpectPairs<TypeParam>({1, 1, 5, 5}, {5 - kBit, 5, 9, 2}, {5, 5, 9, 2});
}

TYPED_TEST(MakeAlmostEqualPointsEqual, EndMovesEnd) {
  ExpectPairs<TypeParam>({1, 1, 5, 5}, {9, 2, 5, 5 + kBit}, {9, 2, 5, 5});
}

TYPED_TEST(MakeAlmostEqualPointsEqual, StartAtStartGoesBeforeStartAtEnd) {
  ExpectPairs<TypeParam>({1, 1, 5, 5}, {1 + kBit, 1, 1, 1 + kBit}, {1, 1, 1, 1 + kBit});
}

TYPED_TEST(MakeAlmostEqualPointsEqual, EndAtStartGoesBeforeEndAtEnd) {
  ExpectPairs<TypeParam>({1, 1, 5, 5}, {5 + kBit, 5, 5, 5 + kBit}, {5, 5, 5, 5 + kBit});
}

TYPED_TEST(MakeAlmostEqualPointsEqual, ALineTakesOneEndWhereAnArcTakesBothRunAlike) {
  ExpectPairs<TypeParam>({1, 1, 5, 5}, {1 + kBit, 1, 5, 5 + kBit}, {1, 1, 5, 5 + kBit},
                         {1, 1, 5, 5});
}

TYPED_TEST(MakeAlmostEqualPointsEqual, ALineTakesOneEndWhereAnArcTakesBothRunOpposite) {
  ExpectPairs<TypeParam>({1, 1, 5, 5}, {5, 5 + kBit, 1 + kBit, 1}, {5, 5 + kBit, 1, 1},
                         {5, 5, 1, 1});
}

TYPED_TEST(MakeAlmostEqualPointsEqual, AnArcsStartIsMovedTwiceByAShortElementInFront) {
  // Both ends of the first lie at the start of the second: the later chain of tests has the word.
  ExpectPairs<TypeParam>({1, 1, 1 + kBit, 1}, {1, 1 + kBit, 9, 9}, {1, 1, 9, 9},
                         {1 + kBit, 1, 9, 9});
}

TYPED_TEST(MakeAlmostEqualPointsEqual, LeavesMidAndCenterOfAnArc) {
  Chain<TypeParam> chain;
  chain.AddLine(1, 1, 5, 5);
  auto* const arc = chain.AddArc(5 + kBit, 5, 9, 9);
  chain.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(arc->Mid, chain.Mid());
  EXPECT_POINT_EQ(arc->Center, chain.Center());
}

TYPED_TEST(MakeAlmostEqualPointsEqual, ATenThousandthInEachCoordinateIsNearAndNoMore) {
  const double beyond = std::nextafter(0.0001, 1.0);
  ExpectPairs<TypeParam>({-9, -9, 0, 0}, {0.0001, -0.0001, 9, 2}, {0, 0, 9, 2});
  ExpectPairs<TypeParam>({-9, -9, 0, 0}, {beyond, 0, 9, 2}, {beyond, 0, 9, 2});
  ExpectPairs<TypeParam>({-9, -9, 0, 0}, {0, -beyond, 9, 2}, {0, -beyond, 9, 2});
}

TEST(MakeAlmostEqualPointsEqual3D, ComparesAndCopiesAllThreeCoordinates) {
  GX3DElmList list;
  support::Add(list, support::Line(1, 2, 3, 4, 5, 6),
               support::Line(4 + kBit, 5 - kBit, 6 + kBit, 9, 9, 9),
               support::Line(50, 50, 50, 60, 60, 60));
  list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(support::At<GX3DLine>(list, 1), support::Line(4, 5, 6, 9, 9, 9));
  for (int axis = 0; axis < 3; ++axis) {
    GX3DPoint away(0, 0, 0);
    away.SetIValue(axis, std::nextafter(0.0001, 1.0));
    GX3DElmList apart;
    support::Add(apart, support::Line(5, 5, 5, 0, 0, 0), GX3DLine(away, support::Point(9, 9, 9)));
    apart.MakeAlmostEqualPointsEqual();
    EXPECT_POINT_EQ(support::At<GX3DLine>(apart, 1).Start, away);
  }
}

TYPED_TEST(MakeAlmostEqualPointsEqual, OnAClosedChainTheLastElementMovesTheStartOfTheFirst) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(0, 0, 4, 0);
  auto* const b = chain.AddLine(4, kBit, 4, 3);
  auto* const c = chain.AddLine(4 - kBit, 3, 0, kBit);
  chain.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(0, kBit, 4, 0));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(4, 0, 4, 3));
  EXPECT_POINT_EQ(*c, Seg<TypeParam>(4, 3, 0, kBit));
}

TYPED_TEST(MakeAlmostEqualPointsEqual, LaterPairsSeeWhatEarlierOnesMoved) {
  // The second point comes within reach of the third only where it stood before.
  Chain<TypeParam> chain;
  chain.AddPoint(1, 1);
  auto* const b = chain.AddPoint(1.00009, 1);
  auto* const c = chain.AddPoint(1.00018, 1);
  chain.AddPoint(50, 50);
  chain.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(*b, TypeParam::At(1, 1));
  EXPECT_POINT_EQ(*c, TypeParam::At(1.00018, 1));
}

TYPED_TEST(MakeAlmostEqualPointsEqual, OfTwoLinesBackAndForthEachMovesAnEndOfTheOther) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 5);
  auto* const b = chain.AddLine(5 + kBit, 5, 1 + kBit, 1);
  chain.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(5 + kBit, 5, 1, 1));  // a's start at b's end
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(1, 1, 5 + kBit, 5));  // b's start at a's end
}

TYPED_TEST(MakeAlmostEqualPointsEqual, NothingMovesInASingleLinePointOrOpenArc) {
  Chain<TypeParam> line;
  auto* const a = line.AddLine(1, 1, 1 + kBit, 1);
  line.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(1, 1, 1 + kBit, 1));

  Chain<TypeParam> point;
  auto* const p = point.AddPoint(1, 1);
  point.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(*p, TypeParam::At(1, 1));

  Chain<TypeParam> arc;
  auto* const b = arc.AddArc(1, 1, 5, 5);
  arc.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(Ends<TypeParam>(*b), Seg<TypeParam>(1, 1, 5, 5));
}

TYPED_TEST(MakeAlmostEqualPointsEqual, ASingleAlmostClosedArcGetsItsEndForItsStart) {
  Chain<TypeParam> chain;
  auto* const arc = chain.AddArc(1, 1, 1 + kBit, 1);
  chain.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(Ends<TypeParam>(*arc), Seg<TypeParam>(1 + kBit, 1, 1 + kBit, 1));
}

TYPED_TEST(MakeAlmostEqualPointsEqual, OtherKindsAndNullEntriesTakeNoPart) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 1, 5, 5);
  auto* const stranger = chain.AddForeign(5 + kBit, 5, 7, 7);
  auto* const b = chain.AddLine(7 + kBit, 7, 9, 9);
  chain.AddNull();
  auto* const c = chain.AddLine(9, 9 + kBit, 1, 1 + kBit);
  chain.AddNull();
  chain.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(1, 1, 5, 5));
  EXPECT_POINT_EQ(Ends<TypeParam>(*stranger), Seg<TypeParam>(5 + kBit, 5, 7, 7));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(7 + kBit, 7, 9, 9));
  EXPECT_POINT_EQ(*c, Seg<TypeParam>(9, 9 + kBit, 1, 1 + kBit));
}

TEST(MakeAlmostEqualPointsEqual2D, ARectangleNeitherGivesNorTakes) {
  GX2DElmList list;
  support::Add(list, support::Line(1, 1, 5, 5), support::Rect(5 + kBit, 5, 7, 7),
               support::Line(7 + kBit, 7, 9, 9));
  list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(support::At<GX2DLine>(list, 0), support::Line(1, 1, 5, 5));
  EXPECT_POINT_EQ(support::At<GX2DRectangle>(list, 1), support::Rect(5 + kBit, 5, 7, 7));
  EXPECT_POINT_EQ(support::At<GX2DLine>(list, 2), support::Line(7 + kBit, 7, 9, 9));
}

TYPED_TEST(MakeAlmostEqualPointsEqual, NaNIsNearNothing) {
  Chain<TypeParam> chain;
  chain.AddLine(1, 1, kNaN, 5);
  auto* const b = chain.AddLine(5, 5, kNaN, 5);
  auto* const p = chain.AddPoint(kNaN, kNaN);
  chain.list.MakeAlmostEqualPointsEqual();
  EXPECT_POINT_EQ(b->Start, TypeParam::At(5, 5));
  EXPECT_NE(*p, *p);
}

TYPED_TEST(MakeAlmostEqualPointsEqual, LeavesAnEmptyListEmpty) {
  Chain<TypeParam> chain;
  chain.list.MakeAlmostEqualPointsEqual();
  EXPECT_TRUE(chain.list.empty());
}

TYPED_TEST(MakeAlmostEqualPointsEqual, MakesAnyLoopExactAndNeverMovesAnEnd) {
  support::Random random;
  for (int round = 0; round < 100; ++round) {
    const int count = random.Int(3, 12);
    Chain<TypeParam> chain;
    std::vector<GX2DPoint> ends;
    for (int i = 0; i < count; ++i) {
      ends.emplace_back(10.0 * i + random.Between(0, 3), random.Between(-50, 50));
    }
    for (int i = 0; i < count; ++i) {
      const GX2DPoint& before = ends[static_cast<std::size_t>((i + count - 1) % count)];
      const GX2DPoint& end = ends[static_cast<std::size_t>(i)];
      const double x = before.X + random.Between(-0.00009, 0.00009);
      const double y = before.Y + random.Between(-0.00009, 0.00009);
      if (random.Bool()) {
        chain.AddLine(x, y, end.X, end.Y);
      } else {
        chain.AddArc(x, y, end.X, end.Y);
      }
    }
    chain.list.MakeAlmostEqualPointsEqual();
    for (std::size_t i = 0; i < ends.size(); ++i) {
      const GX2DPoint& before = ends[(i + ends.size() - 1) % ends.size()];
      ASSERT_POINT_EQ(chain.EndsAt(i), Seg<TypeParam>(before.X, before.Y, ends[i].X, ends[i].Y));
    }
  }
}

}  // namespace
