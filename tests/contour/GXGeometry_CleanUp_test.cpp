// The whole clean-up, and its first two steps: elements that are points go, and neighbouring ends
// become identical. The other steps have their own files.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/Near.h"
#include "support/Random.h"
#include "support/Twins.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using support::Chain;
using support::kPi;
using support::Seg;

using Log = std::vector<std::string>;

/// An arc of the twin from its four points.
template <typename Twin>
typename Twin::Arc ArcOf(double cx, double cy, double sx, double sy, double mx, double my,
                         double ex, double ey) {
  return {Twin::At(cx, cy), Twin::At(sx, sy), Twin::At(mx, my), Twin::At(ex, ey)};
}

template <typename Twin>
class ClearElementsAsPoints : public testing::Test {
 public:
  using ArcKind = typename Twin::Arc;

  Chain<Twin> contour;

  static bool Clear(typename Twin::List& list, bool lines = true, bool arcs = true) {
    return GXGeometry::ClearElementsAsPoints(list, lines, arcs);
  }
  ArcKind* AddArc(double cx, double cy, double sx, double sy, double mx, double my, double ex,
                  double ey) {
    return contour.Take(new ArcKind(ArcOf<Twin>(cx, cy, sx, sy, mx, my, ex, ey)));
  }
};
TYPED_TEST_SUITE(ClearElementsAsPoints, support::BothTwins, support::TwinNames);

TYPED_TEST(ClearElementsAsPoints, IsTrueForAnEmptyList) {
  EXPECT_TRUE(this->Clear(this->contour.list));
  EXPECT_TRUE(this->contour.list.empty());
}

TYPED_TEST(ClearElementsAsPoints, RemovesLinesWhoseEndsAreNearOnEachCoordinate) {
  Chain<TypeParam>& chain = this->contour;
  chain.AddLine(0, 0, 0.0001, -0.0001);
  auto* const inX = chain.AddLine(0, 0, 0.00011, 0);
  chain.AddLine(0, 0, 0, 0);
  auto* const inY = chain.AddLine(0, 0, 0, 0.00011);
  chain.AddLine(0, 0.0001, 0, 0);
  EXPECT_TRUE(this->Clear(chain.list));
  EXPECT_EQ(chain.Entries(), chain.Order({inX, inY}));
}

TYPED_TEST(ClearElementsAsPoints, RemovesArcsOfNoRadius) {
  this->AddArc(0, 0, 0.00001, 0, 0, 1, 5, 5);
  auto* const above = this->AddArc(0, 0, 0.000011, 0, 0, 1, 5, 5);
  this->AddArc(2, 2, 2, 2, 0, 1, 5, 5);
  EXPECT_TRUE(this->Clear(this->contour.list));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({above}));
}

TYPED_TEST(ClearElementsAsPoints, RemovesArcsWhoseStartIsNearTheirEnd) {
  this->AddArc(0, 3, 0, 0, 2, 2, 0.0001, -0.0001);
  auto* const apart = this->AddArc(0, 3, 0, 0, 2, 2, 0.00011, 0);
  EXPECT_TRUE(this->Clear(this->contour.list));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({apart}));
}

TYPED_TEST(ClearElementsAsPoints, RemovesACircleStoredWithItsEndOnItsStart) {
  this->AddArc(0, 0, 5, 0, 0, 5, 5, 0);
  EXPECT_TRUE(this->Clear(this->contour.list));
  EXPECT_TRUE(this->contour.list.empty());
}

TYPED_TEST(ClearElementsAsPoints, KeepsACircleStoredWithItsEndOnItsMid) {
  auto* const circle = this->AddArc(0, 0, 5, 0, 0, 5, 0, 5);
  ASSERT_TRUE(circle->IsCircle());
  EXPECT_TRUE(this->Clear(this->contour.list));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({circle}));
}

TYPED_TEST(ClearElementsAsPoints, ClearsOnlyTheKindsAskedFor) {
  Chain<TypeParam>& chain = this->contour;
  auto* const noRadius = this->AddArc(0, 0, 0, 0, 1, 0, 5, 5);
  auto* const circle = this->AddArc(0, 0, 5, 0, 0, 5, 5, 0);
  auto* const line = chain.AddLine(1, 1, 1, 1);
  EXPECT_TRUE(this->Clear(chain.list, false, false));
  EXPECT_EQ(chain.Entries(), chain.Order({noRadius, circle, line}));
  EXPECT_TRUE(this->Clear(chain.list, true, false));
  EXPECT_EQ(chain.Entries(), chain.Order({noRadius, circle}));
  auto* const later = chain.AddLine(1, 1, 1, 1);
  EXPECT_TRUE(this->Clear(chain.list, false, true));
  EXPECT_EQ(chain.Entries(), chain.Order({later}));
}

TYPED_TEST(ClearElementsAsPoints, KeepsPointsAndOtherKinds) {
  Chain<TypeParam>& chain = this->contour;
  auto* const point = chain.AddPoint(1, 1);
  auto* const foreign = chain.AddForeign(2, 2, 2, 2);
  EXPECT_TRUE(this->Clear(chain.list));
  EXPECT_EQ(chain.Entries(), chain.Order({point, foreign}));
}

TEST(ClearElementsAsPointsInThePlane, KeepsRectangles) {
  GX2DElmList list;
  support::Add(list, support::Rect(3, 3, 3, 3));
  EXPECT_TRUE(GXGeometry::ClearElementsAsPoints(list, true, true));
  EXPECT_EQ(list.size(), 1U);
}

TYPED_TEST(ClearElementsAsPoints, DestroysWhatItRemovesFromTheFrontOn) {
  using LoggedLine = support::Logged<typename TypeParam::Line>;
  using LoggedArc = support::Logged<typename TypeParam::Arc>;
  Log log;
  Chain<TypeParam>& chain = this->contour;
  chain.Take(new LoggedLine(log, "a", Seg<TypeParam>(0, 0, 0, 0)));
  chain.Take(new LoggedArc(log, "b", ArcOf<TypeParam>(0, 0, 5, 0, 0, 5, 5, 0)));
  chain.Take(new LoggedLine(log, "kept", Seg<TypeParam>(0, 0, 1, 0)));
  chain.Take(new LoggedLine(log, "c", Seg<TypeParam>(1, 0, 1, 0)));
  EXPECT_TRUE(this->Clear(chain.list));
  EXPECT_EQ(log, (Log{"a", "b", "c"}));
  EXPECT_EQ(chain.list.size(), 1U);
  chain.list.ClearWithContents();
  EXPECT_EQ(log, (Log{"a", "b", "c", "kept"}));
}

template <typename Twin>
class FixConnections : public testing::Test {
 public:
  Chain<Twin> contour;
};
TYPED_TEST_SUITE(FixConnections, support::BothTwins, support::TwinNames);

TYPED_TEST(FixConnections, DoesNothingBelowTwoElements) {
  Chain<TypeParam>& chain = this->contour;
  EXPECT_TRUE(GXGeometry::FixConnections(chain.list));
  auto* const line = chain.AddLine(0, 0, 0.00005, 0);
  EXPECT_TRUE(GXGeometry::FixConnections(chain.list));
  EXPECT_POINT_EQ(*line, Seg<TypeParam>(0, 0, 0.00005, 0));
}

TYPED_TEST(FixConnections, MovesTheStartOfALineBehindALine) {
  auto* const a = this->contour.AddLine(-5, 0, 0, 0);
  auto* const b = this->contour.AddLine(0.0001, -0.0001, 3, 3);
  EXPECT_TRUE(GXGeometry::FixConnections(this->contour.list));
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(-5, 0, 0, 0));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(0, 0, 3, 3));
}

TYPED_TEST(FixConnections, MovesTheEndOfALineBeforeAnArc) {
  auto* const a = this->contour.AddLine(-5, 0, 0, 0);
  auto* const b = this->contour.AddArc(0.0001, -0.0001, 3, 3);
  EXPECT_TRUE(GXGeometry::FixConnections(this->contour.list));
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(-5, 0, 0.0001, -0.0001));
  EXPECT_POINT_EQ(b->Start, TypeParam::At(0.0001, -0.0001));
}

TYPED_TEST(FixConnections, MovesTheStartOfALineBehindAnArc) {
  auto* const a = this->contour.AddArc(-5, 0, 0, 0);
  auto* const b = this->contour.AddLine(0.0001, -0.0001, 3, 3);
  EXPECT_TRUE(GXGeometry::FixConnections(this->contour.list));
  EXPECT_POINT_EQ(a->End, TypeParam::At(0, 0));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(0, 0, 3, 3));
}

TYPED_TEST(FixConnections, MovesTheEndOfAnArcBeforeAnArc) {
  auto* const a = this->contour.AddArc(-5, 0, 0, 0);
  auto* const b = this->contour.AddArc(0.0001, -0.0001, 3, 3);
  EXPECT_TRUE(GXGeometry::FixConnections(this->contour.list));
  EXPECT_POINT_EQ(a->Start, TypeParam::At(-5, 0));
  EXPECT_POINT_EQ(a->End, TypeParam::At(0.0001, -0.0001));
  EXPECT_POINT_EQ(a->Mid, this->contour.Mid());
  EXPECT_POINT_EQ(a->Center, this->contour.Center());
  EXPECT_POINT_EQ(b->Start, TypeParam::At(0.0001, -0.0001));
}

TYPED_TEST(FixConnections, LeavesWiderGapsInEveryPairing) {
  Chain<TypeParam>& chain = this->contour;
  chain.AddLine(-5, 0, 0, 0);
  chain.AddLine(0.00011, 0, 10, 0);
  chain.AddArc(10.00011, 0, 20, 0);
  chain.AddArc(20.00011, 0, 30, 0);
  chain.AddLine(30, 0.00011, 40, 0);
  EXPECT_TRUE(GXGeometry::FixConnections(chain.list));
  EXPECT_POINT_EQ(chain.EndsAt(0), Seg<TypeParam>(-5, 0, 0, 0));
  EXPECT_POINT_EQ(chain.EndsAt(1), Seg<TypeParam>(0.00011, 0, 10, 0));
  EXPECT_POINT_EQ(chain.EndsAt(2), Seg<TypeParam>(10.00011, 0, 20, 0));
  EXPECT_POINT_EQ(chain.EndsAt(3), Seg<TypeParam>(20.00011, 0, 30, 0));
  EXPECT_POINT_EQ(chain.EndsAt(4), Seg<TypeParam>(30, 0.00011, 40, 0));
}

TYPED_TEST(FixConnections, JoinsTheLastWithTheFirst) {
  Chain<TypeParam>& chain = this->contour;
  auto* const first = chain.AddLine(0.00005, 0, 4, 0);
  chain.AddLine(4, 0, 4, 4);
  auto* const last = chain.AddLine(4, 4, 0, 0);
  EXPECT_TRUE(GXGeometry::FixConnections(chain.list));
  EXPECT_POINT_EQ(*first, Seg<TypeParam>(0, 0, 4, 0));
  EXPECT_POINT_EQ(*last, Seg<TypeParam>(4, 4, 0, 0));
}

TYPED_TEST(FixConnections, JoinsTwoElementsAtBothEnds) {
  auto* const line = this->contour.AddLine(0.00005, 0, 4, 0);
  auto* const arc = this->contour.AddArc(4.00005, 0, 0, 0);
  EXPECT_TRUE(GXGeometry::FixConnections(this->contour.list));
  EXPECT_POINT_EQ(*line, Seg<TypeParam>(0, 0, 4.00005, 0));
  EXPECT_POINT_EQ(support::Ends<TypeParam>(*arc), Seg<TypeParam>(4.00005, 0, 0, 0));
}

TYPED_TEST(FixConnections, LooksOnlyAtAnEndAndTheNextStart) {
  Chain<TypeParam>& chain = this->contour;
  chain.AddLine(-5, 0, 0, 0);
  chain.AddLine(3, 3, 0.00005, 0);  // wrong way round
  chain.AddLine(2.99995, 3, 9, 9);  // its start is near the other's start
  EXPECT_TRUE(GXGeometry::FixConnections(chain.list));
  EXPECT_POINT_EQ(chain.EndsAt(0), Seg<TypeParam>(-5, 0, 0, 0));
  EXPECT_POINT_EQ(chain.EndsAt(1), Seg<TypeParam>(3, 3, 0.00005, 0));
  EXPECT_POINT_EQ(chain.EndsAt(2), Seg<TypeParam>(2.99995, 3, 9, 9));
}

TYPED_TEST(FixConnections, PassesOverPointsAndOtherKinds) {
  Chain<TypeParam>& chain = this->contour;
  auto* const a = chain.AddLine(-5, 0, 0, 0);
  auto* const point = chain.AddPoint(0.00005, 0);
  auto* const b = chain.AddLine(0, 0.00005, 3, 3);
  auto* const foreign = chain.AddForeign(3.00005, 3, 7, 7);
  auto* const c = chain.AddArc(7.00005, 7, -5, 0.00005);
  EXPECT_TRUE(GXGeometry::FixConnections(chain.list));
  EXPECT_POINT_EQ(*a, Seg<TypeParam>(-5, 0.00005, 0, 0));  // behind the arc at the end
  EXPECT_POINT_EQ(*point, TypeParam::At(0.00005, 0));
  EXPECT_POINT_EQ(*b, Seg<TypeParam>(0, 0.00005, 3, 3));
  EXPECT_POINT_EQ(support::Ends<TypeParam>(*foreign), Seg<TypeParam>(3.00005, 3, 7, 7));
  EXPECT_POINT_EQ(support::Ends<TypeParam>(*c), Seg<TypeParam>(7.00005, 7, -5, 0.00005));
}

TEST(FixConnectionsInSpace, CopiesAllThreeCoordinates) {
  using support::Line;
  using support::Point;
  GX3DElmList list;
  support::Add(list, Line(0, 0, 0, 1, 2, 3), Line(1.00005, 1.99995, 3.00005, 5, 5, 5),
               GX3DArc(Point(9, 9, 9), Point(5, 5, 5.00005), Point(8, 8, 8), Point(6, 6, 6)),
               GX3DArc(Point(9, 9, 9), Point(6, 6, 6.00011), Point(8, 8, 8), Point(7, 7, 7)));
  EXPECT_TRUE(GXGeometry::FixConnections(list));
  EXPECT_POINT_EQ(support::At<GX3DLine>(list, 1).Start, Point(1, 2, 3));
  EXPECT_POINT_EQ(support::At<GX3DLine>(list, 1).End, Point(5, 5, 5.00005));
  EXPECT_POINT_EQ(support::At<GX3DArc>(list, 2).End, Point(6, 6, 6));
}

template <typename Twin>
class CleanUp : public testing::Test {
 public:
  Chain<Twin> contour;

  void AddLines(const std::vector<std::vector<double>>& corners) {
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const std::vector<double>& a = corners[i];
      const std::vector<double>& b = corners[(i + 1) % corners.size()];
      contour.AddLine(a[0], a[1], b[0], b[1]);
    }
  }
  void ExpectLines(const std::vector<std::vector<double>>& corners) {
    ASSERT_EQ(contour.list.size(), corners.size());
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const std::vector<double>& a = corners[i];
      const std::vector<double>& b = corners[(i + 1) % corners.size()];
      EXPECT_TRUE(contour.IsLineAt(i));
      EXPECT_POINT_NEAR(contour.EndsAt(i), Seg<Twin>(a[0], a[1], b[0], b[1]), 1e-9);
    }
  }
};
TYPED_TEST_SUITE(CleanUp, support::BothTwins, support::TwinNames);

TYPED_TEST(CleanUp, IsTrueForAnEmptyListAndForOneElement) {
  EXPECT_TRUE(GXGeometry::CleanUp(this->contour.list));
  auto* const line = this->contour.AddLine(0, 0, 5, 0);
  EXPECT_TRUE(GXGeometry::CleanUp(this->contour.list));
  EXPECT_EQ(this->contour.Entries(), this->contour.Order({line}));
}

TYPED_TEST(CleanUp, LeavesACleanSquareAsItIs) {
  this->AddLines({{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  const auto before = this->contour.Entries();
  EXPECT_TRUE(GXGeometry::CleanUp(this->contour.list));
  EXPECT_EQ(this->contour.Entries(), before);
  this->ExpectLines({{0, 0}, {4, 0}, {4, 4}, {0, 4}});
}

TYPED_TEST(CleanUp, RemovesALoneCircleStoredWithItsEndOnItsStart) {
  this->contour.Take(new typename TypeParam::Arc(ArcOf<TypeParam>(0, 0, 5, 0, 0, 5, 5, 0)));
  EXPECT_TRUE(GXGeometry::CleanUp(this->contour.list));
  EXPECT_TRUE(this->contour.list.empty());
}

TYPED_TEST(CleanUp, KeepsALoneCircleStoredWithItsEndOnItsMid) {
  this->contour.Take(new typename TypeParam::Arc(ArcOf<TypeParam>(0, 0, 5, 0, 0, 5, 0, 5)));
  EXPECT_TRUE(GXGeometry::CleanUp(this->contour.list));
  EXPECT_EQ(this->contour.list.size(), 1U);
}

TYPED_TEST(CleanUp, JoinsLinesThatHadAPointBetweenThem) {
  // The line of length zero goes first; only then its neighbours meet and become one.
  this->AddLines({{0, 0}, {2, 0}, {2, 0}, {4, 0}, {4, 4}, {0, 4}});
  EXPECT_TRUE(GXGeometry::CleanUp(this->contour.list));
  this->ExpectLines({{0, 0}, {4, 0}, {4, 4}, {0, 4}});
}

TYPED_TEST(CleanUp, JoinsLinesAroundALoop) {
  // A loop hangs on the bottom edge at (2, 0). Once it is gone the two halves become one line.
  this->AddLines({{0, 0}, {2, 0}, {2, 1}, {1, 1}, {2, 0}, {4, 0}, {4, 4}, {0, 4}});
  EXPECT_TRUE(GXGeometry::CleanUp(this->contour.list));
  this->ExpectLines({{0, 0}, {4, 0}, {4, 4}, {0, 4}});
}

TYPED_TEST(CleanUp, FoldsASpikeAway) {
  this->AddLines({{0, 0}, {9, 0}, {4, 0}, {4, 4}, {0, 4}});
  EXPECT_TRUE(GXGeometry::CleanUp(this->contour.list));
  this->ExpectLines({{0, 0}, {4, 0}, {4, 4}, {0, 4}});
}

TYPED_TEST(CleanUp, ClosesSmallGapsBeforeItLooksAtTheLines) {
  // The first line starts where the last one ends before it is joined with the second.
  Chain<TypeParam>& chain = this->contour;
  chain.AddLine(0, 0, 2, 0);
  chain.AddLine(2.00005, 0.00005, 4, 0);
  chain.AddLine(4.00005, 0, 4, 4);
  chain.AddLine(4, 4, 0, 4);
  chain.AddLine(0, 4, 0.00005, 0);
  EXPECT_TRUE(GXGeometry::CleanUp(chain.list));
  this->ExpectLines({{0.00005, 0}, {4, 0}, {4, 4}, {0, 4}});
}

TYPED_TEST(CleanUp, MakesOneCircleOfTwoHalves) {
  using ArcKind = typename TypeParam::Arc;
  this->contour.Take(new ArcKind(ArcOf<TypeParam>(0, 0, 5, 0, 0, 5, -5, 0)));
  this->contour.Take(new ArcKind(ArcOf<TypeParam>(0, 0, -5, 0, 0, -5, 5, 0)));
  EXPECT_TRUE(GXGeometry::CleanUp(this->contour.list));
  ASSERT_EQ(this->contour.list.size(), 1U);
  auto& arc = dynamic_cast<ArcKind&>(*this->contour.list.front());
  EXPECT_POINT_EQ(arc, ArcOf<TypeParam>(0, 0, -5, 0, 0, -5, 0, -5));
  // Its end is on its mid, so a second round leaves it as it is.
  EXPECT_TRUE(GXGeometry::CleanUp(this->contour.list));
  EXPECT_EQ(this->contour.list.size(), 1U);
}

// Two edges cross at the origin without a vertex there. In space they are cut, and the smaller lobe
// is dropped; in the plane nothing cuts them.
TYPED_TEST(CleanUp, CutsCrossingEdgesInSpaceOnly) {
  this->AddLines({{-1, -1}, {10, 10}, {10, -10}, {-1, 1}});
  EXPECT_TRUE(GXGeometry::CleanUp(this->contour.list));
  if (std::is_same_v<TypeParam, support::Flat>) {
    this->ExpectLines({{-1, -1}, {10, 10}, {10, -10}, {-1, 1}});
  } else {
    this->ExpectLines({{0, 0}, {10, 10}, {10, -10}});
  }
}

TYPED_TEST(CleanUp, BringsSubdividedPolygonsBack) {
  support::Random random;
  for (int round = 0; round < 60; ++round) {
    const int count = random.Int(3, 9);
    std::vector<std::vector<double>> corners, subdivided;
    for (int i = 0; i < count; ++i) {
      const double angle = 2 * kPi * (i + random.Between(-0.15, 0.15)) / count;
      corners.push_back({10 * std::cos(angle), 10 * std::sin(angle)});
    }
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const std::vector<double>& a = corners[i];
      const std::vector<double>& b = corners[(i + 1) % corners.size()];
      const int pieces = random.Int(1, 4);
      for (int k = 0; k < pieces; ++k) {
        const double t = static_cast<double>(k) / pieces;
        subdivided.push_back({a[0] + (b[0] - a[0]) * t, a[1] + (b[1] - a[1]) * t});
        if (random.Int(0, 3) == 0) {
          subdivided.push_back(subdivided.back());
        }
      }
    }
    this->contour.list.ClearWithContents();
    this->AddLines(subdivided);
    EXPECT_TRUE(GXGeometry::CleanUp(this->contour.list));
    this->ExpectLines(corners);
  }
}

}  // namespace
