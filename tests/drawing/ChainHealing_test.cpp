#include "drawing/ChainHealing.h"

#include "drawing/Contours.h"
#include "drawing/CurveMeasures.h"
#include "support/Build.h"
#include "support/Random.h"

#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

namespace drawing {
namespace {

using support::Add;
using support::ArcByAngles;
using support::Line;

using Origins = std::vector<std::size_t>;

void NumberElements(HealedChain& chain) {
  for (std::size_t i = 0; i < chain.elements.size(); ++i) chain.origins.push_back(i);
}

bool AreSame(const GX2DElmList& a, const GX2DElmList& b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](auto* p, auto* q) {
           return p->GetStartPoint() == q->GetStartPoint() && p->GetEndPoint() == q->GetEndPoint();
         });
}

TEST(PutInOrder, LeavesAChainInItsOrder) {
  HealedChain chain;
  support::AddPolygon(chain.elements, {{0, 0}, {4, 0}, {4, 3}, {0, 3}});
  NumberElements(chain);
  std::vector<ChainChange> changes;
  EXPECT_TRUE(PutInOrder(chain, changes));
  EXPECT_TRUE(changes.empty());
  EXPECT_EQ(chain.origins, (Origins{0, 1, 2, 3}));
}

TEST(PutInOrder, TellsOrderAndLinesTurnedRound) {
  HealedChain chain;
  Add(chain.elements, Line(0, 0, 4, 0), Line(0, 3, 0, 0), Line(4, 3, 4, 0), Line(4, 3, 0, 3));
  NumberElements(chain);
  std::vector<ChainChange> changes;
  EXPECT_TRUE(PutInOrder(chain, changes));
  EXPECT_EQ(chain.origins, (Origins{0, 2, 3, 1}));
  ASSERT_EQ(changes.size(), 1u);
  EXPECT_EQ(changes[0].kind, ChangeKind::kPutInOrder);
  EXPECT_EQ(changes[0].count, 1u);
  EXPECT_EQ(changes[0].movement, 0.0);
}

TEST(PutInOrder, TurnsArcsRoundInSilence) {
  // A slot as it comes out of a file, all arcs counter-clockwise, drawn clockwise by its lines.
  HealedChain chain;
  Add(chain.elements, ArcByAngles(0, 0, 1, 90, 180), Line(0, 1, 5, 1),
      ArcByAngles(5, 0, 1, 270, 180), Line(5, -1, 0, -1));
  NumberElements(chain);
  std::vector<ChainChange> changes;
  EXPECT_TRUE(PutInOrder(chain, changes));
  EXPECT_TRUE(changes.empty());
  EXPECT_EQ(chain.origins, (Origins{1, 2, 3, 0}));
  EXPECT_TRUE(RunsClockwise(chain.elements));
  EXPECT_NEAR(SignedArea(chain.elements), -10.0 - support::kPi, 1e-12);
}

TEST(PutInOrder, BeginsAContourOfArcsCounterClockwise) {
  HealedChain chain;
  Add(chain.elements, ArcByAngles(0, 0, 2, 180, -180), ArcByAngles(0, 0, 2, 0, -180));
  NumberElements(chain);
  std::vector<ChainChange> changes;
  EXPECT_TRUE(PutInOrder(chain, changes));
  EXPECT_NEAR(SignedArea(chain.elements), 4.0 * support::kPi, 1e-12);
}

TEST(PutInOrder, KeepsTheSenseOfAnArcWhoseMidIsFarFromItsMiddle) {
  // 300 degrees with the mid at 100: seen from the other end it would be 200 degrees away.
  HealedChain chain;
  GX2DArc arc = ArcByAngles(0, 0, 2, 30, 300);
  arc.Mid = support::OnCircle(0, 0, 2, 130);
  Add(chain.elements, GX2DLine(arc.Start, arc.End), arc);
  NumberElements(chain);
  std::vector<ChainChange> changes;
  EXPECT_TRUE(PutInOrder(chain, changes));
  // The circle less the segment of 60 degrees: r r / 2 (sweep - sin sweep).
  const double segment = 2.0 * (support::kPi / 3.0 - std::sin(support::kPi / 3.0));
  EXPECT_NEAR(std::fabs(SignedArea(chain.elements)), 4.0 * support::kPi - segment, 1e-12);
}

TEST(PutInOrder, TellsWhatIsNoChain) {
  HealedChain chain;
  Add(chain.elements, Line(0, 0, 4, 0), Line(4, 0, 4, 3), Line(4, 4, 0, 0));
  NumberElements(chain);
  std::vector<ChainChange> changes;
  EXPECT_FALSE(PutInOrder(chain, changes));
}

TEST(MakeJointsExact, LeavesRoundingAlone) {
  HealedChain chain;
  Add(chain.elements, Line(0, 0, 4, 0), Line(4, 5e-10, 4, 3), Line(4, 3, 0, 0));
  NumberElements(chain);
  std::vector<ChainChange> changes;
  MakeJointsExact(chain, changes);
  EXPECT_TRUE(changes.empty());
  EXPECT_EQ(chain.elements[1]->GetStartPoint().Y, 5e-10);
}

TEST(MakeJointsExact, DrawsAnArcAnewWhoseEndMoved) {
  HealedChain chain;
  Add(chain.elements, Line(-5, 0, 5, 0.00006), ArcByAngles(0, 0, 5, 0, 180));
  NumberElements(chain);
  std::vector<ChainChange> changes;
  MakeJointsExact(chain, changes);
  ASSERT_EQ(changes.size(), 1u);
  EXPECT_EQ(changes[0].kind, ChangeKind::kEndsSnapped);
  EXPECT_EQ(changes[0].count, 1u);
  EXPECT_NEAR(changes[0].movement, 0.00006, 1e-12);
  EXPECT_NEAR(changes[0].distance, 0.00006, 1e-12);
  const GX2DArc& arc = support::At<GX2DArc>(chain.elements, 1);
  EXPECT_TRUE(arc.Start == GX2DPoint(5, 0.00006));
  EXPECT_NEAR(Distance(arc.Center, arc.Start), Distance(arc.Center, arc.End), 1e-14);
  EXPECT_NEAR(SignedSweep(arc), support::kPi, 1e-12);
}

TEST(MakeJointsExact, MakesALineOfAnArcThatBecomesTooShort) {
  // 0.00022 from end to end, and 0.00017 once its start is where the line ends; the library takes
  // arcs whose mid is within 0.0001 of their end for full circles.
  HealedChain chain;
  Add(chain.elements, Line(-5, -8, -0.00006, 0), ArcByAngles(0, 0, 0.00011, 180, -180),
      Line(0.00011, 0, -5, -8));
  NumberElements(chain);
  auto& arc = static_cast<GX2DArc&>(*chain.elements[1]);
  ASSERT_FALSE(arc.IsCircle());
  std::vector<ChainChange> changes;
  MakeJointsExact(chain, changes);
  ASSERT_EQ(changes.size(), 1u);
  EXPECT_EQ(changes[0].straightened, 1u);
  ASSERT_EQ(chain.elements.size(), 3u);
  const GX2DLine& line = support::At<GX2DLine>(chain.elements, 1);
  EXPECT_TRUE(line.Start == GX2DPoint(-0.00006, 0));
  EXPECT_NEAR(line.End.X, 0.00011, 1e-15);
  // No point of the half circle was farther from the line than its radius.
  EXPECT_LE(changes[0].movement, 0.00012);
}

TEST(CleanUpChain, MergesPiecesOfOneSide) {
  HealedChain chain;
  support::AddPolygon(chain.elements, {{0, 0}, {1, 0}, {2, 0}, {4, 0}, {4, 3}, {2, 1.5}});
  NumberElements(chain);
  std::vector<ChainChange> changes;
  std::vector<std::string> refused;
  CleanUpChain(chain, true, changes, refused);
  ASSERT_EQ(chain.elements.size(), 3u);
  EXPECT_EQ(chain.origins, (Origins{2, 3, 5}));
  EXPECT_EQ(SignedArea(chain.elements), 6.0);
  ASSERT_EQ(changes.size(), 2u);
  EXPECT_EQ(changes[0].kind, ChangeKind::kPiecesMerged);
  EXPECT_EQ(changes[0].origins, (Origins{2, 0, 1}));
  EXPECT_EQ(changes[1].origins, (Origins{5, 4}));
  EXPECT_TRUE(refused.empty());
}

TEST(CleanUpChain, LeavesPiecesWhereNothingMayBeMerged) {
  HealedChain chain;
  support::AddPolygon(chain.elements, {{0, 0}, {1, 0}, {4, 0}, {4, 3}});
  NumberElements(chain);
  std::vector<ChainChange> changes;
  std::vector<std::string> refused;
  CleanUpChain(chain, false, changes, refused);
  EXPECT_EQ(chain.elements.size(), 4u);
  EXPECT_TRUE(changes.empty());
}

TEST(CleanUpChain, TakesAFoldAway) {
  HealedChain chain;
  support::AddPolygon(chain.elements, {{0, 0}, {7, 0}, {4, 0}, {4, 3}});
  NumberElements(chain);
  std::vector<ChainChange> changes;
  std::vector<std::string> refused;
  CleanUpChain(chain, true, changes, refused);
  EXPECT_EQ(chain.origins, (Origins{1, 2, 3}));
  EXPECT_EQ(SignedArea(chain.elements), 6.0);
  ASSERT_EQ(changes.size(), 1u);
  EXPECT_EQ(changes[0].kind, ChangeKind::kFoldRemoved);
  EXPECT_TRUE(changes[0].place == GX2DPoint(7, 0));
  EXPECT_EQ(changes[0].distance, 3.0);
}

TEST(CleanUpChain, DropsElementsWithoutLength) {
  HealedChain chain;
  Add(chain.elements, Line(0, 0, 4, 0), Line(4, 0, 4.00005, 0), Line(4.00005, 0, 4, 3),
      Line(4, 3, 0, 0));
  NumberElements(chain);
  std::vector<ChainChange> changes;
  std::vector<std::string> refused;
  CleanUpChain(chain, true, changes, refused);
  EXPECT_EQ(chain.origins, (Origins{0, 2, 3}));
  EXPECT_EQ(WidestJoint(chain.elements), 0.0);
  ASSERT_EQ(changes.size(), 2u);
  EXPECT_EQ(changes[0].kind, ChangeKind::kPointRemoved);
  EXPECT_EQ(changes[0].origins, (Origins{1}));
  EXPECT_EQ(changes[1].kind, ChangeKind::kEndsSnapped);
  EXPECT_NEAR(changes[1].movement, 0.00005, 1e-12);
}

TEST(CleanUpChain, MergesArcsToACircle) {
  // In four quarters, which the library alone would leave with a wrong sense.
  for (const double sense : {1.0, -1.0}) {
    HealedChain chain;
    for (int i = 0; i < 4; ++i) {
      Add(chain.elements, ArcByAngles(1, 2, 5, sense * 90.0 * i, sense * 90.0));
    }
    NumberElements(chain);
    std::vector<ChainChange> changes;
    std::vector<std::string> refused;
    CleanUpChain(chain, true, changes, refused);
    ASSERT_EQ(chain.elements.size(), 1u);
    const GX2DArc* const circle = AsFullCircle(chain.elements);
    ASSERT_NE(circle, nullptr);
    EXPECT_NEAR(circle->Radius(), 5.0, 1e-14);
    EXPECT_TRUE(refused.empty());
  }
}

TEST(CleanUpChain, MergesPiecesOfALargeArc) {
  // Three pieces of 80 degrees and a line across: the mid of the last is beyond half a turn.
  HealedChain chain;
  GX2DArc whole = ArcByAngles(0, 0, 5, 0, 240);
  Add(chain.elements, GX2DLine(whole.End, whole.Start), ArcByAngles(0, 0, 5, 0, 80),
      ArcByAngles(0, 0, 5, 80, 80), ArcByAngles(0, 0, 5, 160, 80));
  NumberElements(chain);
  const double area = SignedArea(chain.elements);
  std::vector<ChainChange> changes;
  std::vector<std::string> refused;
  CleanUpChain(chain, true, changes, refused);
  EXPECT_EQ(chain.origins, (Origins{0, 3}));
  EXPECT_NEAR(SignedArea(chain.elements), area, 1e-12);
  const GX2DArc& arc = support::At<GX2DArc>(chain.elements, 1);
  EXPECT_NEAR(SignedSweep(arc), support::kPi * 4.0 / 3.0, 1e-12);
  EXPECT_NEAR(Distance(arc.Mid, ArcMiddle(arc)), 0.0, 1e-12);
}

TEST(CleanUpChain, TakesAMergeBackThatLeavesAVertexBeside) {
  // Sides of 0.01 on a circle of 1,000: the library takes the next one for straight as long as its
  // end is nearer than 0.00001, which about 200 are, and they have a rise of 2 * 2 / 8,000.
  HealedChain chain;
  std::vector<GX2DPoint> corners;
  for (int i = 0; i <= 400; ++i) {
    corners.push_back(support::OnCircle(0, 0, 1000, 0.00001 * i * 180.0 / support::kPi));
  }
  corners.push_back({0, 0});
  support::AddPolygon(chain.elements, corners);
  NumberElements(chain);
  GX2DElmList plain;
  plain.Clone(&chain.elements);
  GXGeometry::Stitch(plain, true, true);
  ASSERT_LT(plain.size(), 20u);
  std::vector<ChainChange> changes;
  std::vector<std::string> refused;
  CleanUpChain(chain, true, changes, refused);
  EXPECT_TRUE(changes.empty());
  EXPECT_EQ(chain.elements.size(), corners.size());
  ASSERT_FALSE(refused.empty());
  EXPECT_EQ(refused[0],
            "clean-up of the contour at (1000, 0): merging pieces of lines and arcs would have "
            "changed its shape and was not done");
}

// A closed polygon with sides in pieces, folds and short sides.
void AddRandomPolygon(GX2DElmList& list, support::Random& random) {
  std::vector<GX2DPoint> corners;
  const int count = random.Int(3, 12);
  for (int i = 0; i < count; ++i) {
    const GX2DPoint corner = support::OnCircle(0, 0, random.Between(20, 40), 360.0 * i / count);
    if (!corners.empty() && random.Int(0, 2) == 0) {
      const GX2DPoint& last = corners.back();
      const double share = random.Between(0.2, 1.4);  // Beyond 1 the side folds back.
      corners.emplace_back(last.X + share * (corner.X - last.X),
                           last.Y + share * (corner.Y - last.Y));
    }
    corners.push_back(corner);
    if (random.Int(0, 5) == 0) corners.emplace_back(corner.X + 0.00003, corner.Y);
  }
  support::AddPolygon(list, corners);
}

TEST(CleanUpChain, IsTheCleanUpOfTheLibraryOnChainsThatKeepTheirShape) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    SCOPED_TRACE(i);
    HealedChain chain;
    AddRandomPolygon(chain.elements, random);
    NumberElements(chain);
    GX2DElmList plain;
    plain.Clone(&chain.elements);
    GXGeometry::CleanUp(plain);
    GXGeometry::CleanUp(plain);  // What the seam of the list left in the first round.
    std::vector<ChainChange> changes;
    std::vector<std::string> refused;
    CleanUpChain(chain, true, changes, refused);
    ASSERT_TRUE(refused.empty()) << refused.front();
    ASSERT_TRUE(AreSame(chain.elements, plain));
  }
}

TEST(CleanUpChain, FindsNothingToDoTheSecondTime) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    SCOPED_TRACE(i);
    HealedChain chain;
    AddRandomPolygon(chain.elements, random);
    NumberElements(chain);
    std::vector<ChainChange> changes;
    std::vector<std::string> refused;
    CleanUpChain(chain, true, changes, refused);
    changes.clear();
    CleanUpChain(chain, true, changes, refused);
    ASSERT_TRUE(changes.empty());
  }
}

}  // namespace
}  // namespace drawing
