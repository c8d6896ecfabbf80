#include "drawing/Networks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace drawing {
namespace {

void AddLine(Drawing& drawing, double x1, double y1, double x2, double y2) {
  drawing.elements.push_back({std::make_unique<GX2DLine>(x1, y1, x2, y2), 0});
}

void AddArc(Drawing& drawing, const GX2DPoint& center, const GX2DPoint& start, const GX2DPoint& mid,
            const GX2DPoint& end) {
  drawing.elements.push_back({std::make_unique<GX2DArc>(center, start, mid, end), 0});
}

void AddCircle(Drawing& drawing, double x, double y, double radius) {
  AddArc(drawing, {x, y}, {x + radius, y}, {x - radius, y}, {x + radius, y});
}

// Four lines; every other one is drawn the other way round.
void AddSquare(Drawing& drawing, double x, double y, double side) {
  AddLine(drawing, x, y, x + side, y);
  AddLine(drawing, x + side, y + side, x + side, y);
  AddLine(drawing, x + side, y + side, x, y + side);
  AddLine(drawing, x, y, x, y + side);
}

using Indices = std::vector<std::size_t>;

TEST(FindNetworks, OfNothingAreNone) { EXPECT_TRUE(FindNetworks(Drawing()).empty()); }

TEST(FindNetworks, TellsALoopWhateverTheDirectionOfItsElements) {
  Drawing drawing;
  AddSquare(drawing, 0, 0, 10);
  const auto networks = FindNetworks(drawing);
  ASSERT_EQ(networks.size(), 1u);
  EXPECT_EQ(networks[0].kind, NetworkKind::kClosed);
  EXPECT_EQ(networks[0].elements, (Indices{0, 1, 2, 3}));
  EXPECT_TRUE(networks[0].looseEnds.empty());
  EXPECT_TRUE(networks[0].junctions.empty());
  EXPECT_TRUE(networks[0].specks.empty());
}

TEST(FindNetworks, TellsAChainWithItsLooseEnds) {
  Drawing drawing;
  AddLine(drawing, 1, 0, 0, 0);
  AddLine(drawing, 1, 0, 1, 2);
  const auto networks = FindNetworks(drawing);
  ASSERT_EQ(networks.size(), 1u);
  EXPECT_EQ(networks[0].kind, NetworkKind::kOpen);
  ASSERT_EQ(networks[0].looseEnds.size(), 2u);
  const LooseEnd& first = networks[0].looseEnds[0];
  EXPECT_TRUE(first.point == GX2DPoint(0, 0));
  EXPECT_EQ(first.element, 0u);
  EXPECT_FALSE(first.atStart);
  EXPECT_TRUE(first.hasNearest);
  EXPECT_TRUE(first.nearest == GX2DPoint(1, 2));
  EXPECT_DOUBLE_EQ(first.distance, std::sqrt(5.0));
  const LooseEnd& second = networks[0].looseEnds[1];
  EXPECT_TRUE(second.point == GX2DPoint(1, 2));
  EXPECT_EQ(second.element, 1u);
  EXPECT_FALSE(second.atStart);
}

TEST(FindNetworks, TellsJunctionsWithTheElementsThatMeetThere) {
  Drawing drawing;
  AddSquare(drawing, 0, 0, 10);
  AddLine(drawing, 10, 10, 20, 20);
  const auto networks = FindNetworks(drawing);
  ASSERT_EQ(networks.size(), 1u);
  EXPECT_EQ(networks[0].kind, NetworkKind::kBranching);
  ASSERT_EQ(networks[0].junctions.size(), 1u);
  EXPECT_TRUE(networks[0].junctions[0].point == GX2DPoint(10, 10));
  EXPECT_EQ(networks[0].junctions[0].elements, (Indices{1, 2, 4}));
  ASSERT_EQ(networks[0].looseEnds.size(), 1u);
  EXPECT_TRUE(networks[0].looseEnds[0].point == GX2DPoint(20, 20));
  EXPECT_FALSE(networks[0].looseEnds[0].hasNearest);
}

TEST(FindNetworks, ComesInTheOrderOfTheFirstElements) {
  Drawing drawing;
  AddLine(drawing, 100, 0, 101, 0);
  AddLine(drawing, 0, 0, 1, 0);
  AddLine(drawing, 50, 0, 51, 0);
  AddLine(drawing, 1, 0, 1, 1);
  AddLine(drawing, 101, 0, 100, 1);
  const auto networks = FindNetworks(drawing);
  ASSERT_EQ(networks.size(), 3u);
  EXPECT_EQ(networks[0].elements, (Indices{0, 4}));
  EXPECT_EQ(networks[1].elements, (Indices{1, 3}));
  EXPECT_EQ(networks[2].elements, (Indices{2}));
}

TEST(FindNetworks, JoinsEndsUpToTheGapInEachCoordinate) {
  // 0.25 and the coordinates are exact in binary, so the bound itself is tested.
  const auto count = [](double dx, double dy) {
    Drawing drawing;
    AddLine(drawing, -1, 0, 0, 0);
    AddLine(drawing, dx, dy, 5, 5);
    return FindNetworks(drawing, 0.25).size();
  };
  EXPECT_EQ(count(0.25, 0.25), 1u);
  EXPECT_EQ(count(-0.25, 0.25), 1u);
  EXPECT_EQ(count(0.2500001, 0), 2u);
  EXPECT_EQ(count(0, -0.2500001), 2u);
}

TEST(FindNetworks, JoinsEndsThatMeetACommonThird) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10.4, 0, 20, 0);
  AddLine(drawing, 10.2, 0, 10, 9);
  const auto networks = FindNetworks(drawing, 0.25);
  ASSERT_EQ(networks.size(), 1u);
  EXPECT_EQ(networks[0].junctions.size(), 1u);
}

TEST(FindNetworks, JoinsEqualPointsOnlyWithoutAGap) {
  for (const double gap : {0.0, -1.0, std::nan("")}) {
    Drawing drawing;
    AddSquare(drawing, 0, 0, 10);
    AddLine(drawing, 10, 1e-15, 20, 0);
    const auto networks = FindNetworks(drawing, gap);
    ASSERT_EQ(networks.size(), 2u);
    EXPECT_EQ(networks[0].kind, NetworkKind::kClosed);
  }
}

TEST(FindNetworks, TakesAFullCircleAsALoopOfItsOwn) {
  Drawing drawing;
  AddCircle(drawing, 0, 0, 5);
  // A line that ends where the circle happens to be stored to start is not joined with it.
  AddLine(drawing, 5, 0, 9, 0);
  const auto networks = FindNetworks(drawing);
  ASSERT_EQ(networks.size(), 2u);
  EXPECT_EQ(networks[0].kind, NetworkKind::kClosed);
  EXPECT_EQ(networks[0].elements, (Indices{0}));
  EXPECT_EQ(networks[1].kind, NetworkKind::kOpen);
  EXPECT_EQ(networks[1].looseEnds.size(), 2u);
}

TEST(FindNetworks, TakesTwoHalfCirclesAsOneLoop) {
  Drawing drawing;
  AddArc(drawing, {0, 0}, {5, 0}, {0, 5}, {-5, 0});
  AddArc(drawing, {0, 0}, {5, 0}, {0, -5}, {-5, 0});
  const auto networks = FindNetworks(drawing);
  ASSERT_EQ(networks.size(), 1u);
  EXPECT_EQ(networks[0].kind, NetworkKind::kClosed);
}

TEST(FindNetworks, TakesAnArcWhoseEndsAreWithinTheGapAsALoop) {
  Drawing drawing;
  AddArc(drawing, {0, 0}, {5, 0}, {-5, 0}, {5, -0.05});
  EXPECT_EQ(FindNetworks(drawing, 0.1).at(0).kind, NetworkKind::kClosed);
  EXPECT_EQ(FindNetworks(drawing, 0.01).at(0).kind, NetworkKind::kOpen);
}

TEST(FindNetworks, DoesNotTakeASpeckBetweenTwoElementsForABranch) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10, 0, 10.00005, 0);
  AddLine(drawing, 10.00005, 0, 5, 5);
  AddLine(drawing, 5, 5, 0, 0);
  const auto networks = FindNetworks(drawing);
  ASSERT_EQ(networks.size(), 1u);
  EXPECT_EQ(networks[0].kind, NetworkKind::kClosed);
  EXPECT_EQ(networks[0].elements, (Indices{0, 1, 2, 3}));
  EXPECT_EQ(networks[0].specks, (Indices{1}));
}

TEST(FindNetworks, CallsAHeapWithinTheGapASpeck) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 0.00005, 0);
  AddLine(drawing, 0.00005, 0, 0.00005, 0.00005);
  const auto networks = FindNetworks(drawing);
  ASSERT_EQ(networks.size(), 1u);
  EXPECT_EQ(networks[0].kind, NetworkKind::kSpeck);
  EXPECT_EQ(networks[0].specks.size(), 2u);
}

TEST(FindNetworks, MeasuresTheGapToTheNearestLooseEndOfTheWholeDrawing) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10.3, 0.4, 50, 50);
  AddLine(drawing, 10, 100, 10, 90);
  const auto networks = FindNetworks(drawing);
  ASSERT_EQ(networks.size(), 3u);
  const LooseEnd& end = networks[0].looseEnds[1];
  EXPECT_TRUE(end.point == GX2DPoint(10, 0));
  EXPECT_TRUE(end.nearest == GX2DPoint(10.3, 0.4));
  EXPECT_NEAR(end.distance, 0.5, 1e-12);  // 3, 4, 5
}

TEST(FindNetworks, LeavesOutMissingElementsAndSurvivesCoordinatesThatAreNone) {
  const double nan = std::nan("");
  const double infinite = std::numeric_limits<double>::infinity();
  Drawing drawing;
  drawing.elements.push_back({nullptr, 0});
  AddLine(drawing, nan, 0, 1, 0);
  AddLine(drawing, 1, 0, infinite, 0);
  AddLine(drawing, nan, nan, infinite, 0);
  const auto networks = FindNetworks(drawing);
  ASSERT_EQ(networks.size(), 2u);
  EXPECT_EQ(networks[0].elements, (Indices{1, 2}));
  EXPECT_EQ(networks[0].kind, NetworkKind::kOpen);
  EXPECT_FALSE(networks[0].looseEnds[0].hasNearest);
  EXPECT_EQ(networks[1].elements, (Indices{3}));
}

TEST(FindNetworks, HandlesCoordinatesOfAnySize) {
  for (const double size : {1e18, 1e100, 1.7e308, -1.7e308}) {
    SCOPED_TRACE(size);
    Drawing drawing;
    AddLine(drawing, 0, 0, size, 0);
    AddLine(drawing, size, 0, size, size);
    AddLine(drawing, size, size, 0, 0);
    AddLine(drawing, -size, -size, -size, 0);
    const auto networks = FindNetworks(drawing);
    ASSERT_EQ(networks.size(), 2u);
    EXPECT_EQ(networks[0].kind, NetworkKind::kClosed);
    EXPECT_EQ(networks[1].looseEnds.size(), 2u);
    EXPECT_EQ(networks[1].looseEnds[0].distance, std::fabs(size));
  }
}

TEST(FindNetworks, JoinsAHundredThousandCoincidingElements) {
  Drawing drawing;
  for (int i = 0; i < 100000; ++i) AddLine(drawing, 0, 0, 1, 0);
  const auto networks = FindNetworks(drawing);
  ASSERT_EQ(networks.size(), 1u);
  EXPECT_EQ(networks[0].junctions.size(), 2u);
  EXPECT_EQ(networks[0].junctions[0].elements.size(), 100000u);
}

TEST(FindNetworks, HandlesFiftyThousandEndsCrowdedWithinTheGap) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> tiny(0, 0.00005);
  Drawing drawing;
  for (int i = 0; i < 50000; ++i) {
    AddLine(drawing, tiny(random), tiny(random), 10 + 0.001 * i, 0);
  }
  const auto networks = FindNetworks(drawing);
  ASSERT_EQ(networks.size(), 1u);
  EXPECT_EQ(networks[0].junctions.size(), 1u);
  EXPECT_EQ(networks[0].looseEnds.size(), 50000u);
  // Neighbours stand 0.001 apart.
  EXPECT_NEAR(networks[0].looseEnds[777].distance, 0.001, 1e-9);
}

TEST(FindNetworks, FindsEachOfManySquaresInAShuffledDrawing) {
  Drawing drawing;
  for (int row = 0; row < 50; ++row) {
    for (int column = 0; column < 100; ++column) AddSquare(drawing, 3.0 * column, 3.0 * row, 2.0);
  }
  std::shuffle(drawing.elements.begin(), drawing.elements.end(), std::mt19937(11));
  const auto networks = FindNetworks(drawing);
  ASSERT_EQ(networks.size(), 5000u);
  for (const Network& network : networks) {
    EXPECT_EQ(network.kind, NetworkKind::kClosed);
    EXPECT_EQ(network.elements.size(), 4u);
  }
}

// Pair by pair, as the definition says; only for small drawings.
std::vector<Indices> PlainNetworks(const Drawing& drawing, double gap) {
  const std::size_t count = drawing.elements.size();
  std::vector<std::size_t> name(count);
  for (std::size_t i = 0; i < count; ++i) name[i] = i;
  const auto meets = [&](std::size_t a, std::size_t b) {
    GX2DElement& first = *drawing.elements[a].element;
    GX2DElement& second = *drawing.elements[b].element;
    return first.GetStartPoint().IsAlmostEq(second.GetStartPoint(), gap) ||
           first.GetStartPoint().IsAlmostEq(second.GetEndPoint(), gap) ||
           first.GetEndPoint().IsAlmostEq(second.GetStartPoint(), gap) ||
           first.GetEndPoint().IsAlmostEq(second.GetEndPoint(), gap);
  };
  for (std::size_t a = 0; a < count; ++a) {
    for (std::size_t b = a + 1; b < count; ++b) {
      if (!meets(a, b) || name[a] == name[b]) continue;
      const std::size_t from = std::max(name[a], name[b]);
      const std::size_t to = std::min(name[a], name[b]);
      std::replace(name.begin(), name.end(), from, to);
    }
  }
  std::vector<Indices> networks;
  std::vector<std::size_t> position(count);
  for (std::size_t i = 0; i < count; ++i) {
    if (name[i] == i) {
      position[i] = networks.size();
      networks.emplace_back();
    }
    networks[position[name[i]]].push_back(i);
  }
  return networks;
}

TEST(FindNetworks, AgreesWithTheComparisonOfAllPairs) {
  constexpr unsigned kSeed = 4711;
  std::mt19937 random(kSeed);
  for (int round = 0; round < 300; ++round) {
    SCOPED_TRACE("seed " + std::to_string(kSeed) + ", round " + std::to_string(round));
    // Coordinates on a lattice of a quarter of the gap, so that many distances are the gap itself.
    const auto coordinate = [&] { return 0.0625 * static_cast<double>(random() % 80); };
    Drawing drawing;
    for (int i = 0; i < 25; ++i) {
      AddLine(drawing, coordinate(), coordinate(), coordinate(), coordinate());
    }
    const auto networks = FindNetworks(drawing, 0.25);
    const auto plain = PlainNetworks(drawing, 0.25);
    ASSERT_EQ(networks.size(), plain.size());
    for (std::size_t i = 0; i < plain.size(); ++i) EXPECT_EQ(networks[i].elements, plain[i]);
  }
}

TEST(FindNodes, NumbersEndsThatMeetAlike) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 5, 0);
  AddLine(drawing, 9, 9, 5.00005, 0);
  drawing.elements.emplace_back();  // Null.
  AddLine(drawing, 0, 0.001, 7, 7);
  const std::vector<std::size_t> nodes = FindNodes(drawing);
  ASSERT_EQ(nodes.size(), 8u);
  EXPECT_EQ(nodes[1], nodes[3]);
  EXPECT_NE(nodes[0], nodes[1]);
  EXPECT_NE(nodes[0], nodes[6]);
  EXPECT_EQ(nodes[4], kNoNode);
  EXPECT_EQ(nodes[5], kNoNode);
}

TEST(NetworkKindName, NamesEveryKind) {
  EXPECT_STREQ(NetworkKindName(NetworkKind::kClosed), "closed");
  EXPECT_STREQ(NetworkKindName(NetworkKind::kOpen), "open");
  EXPECT_STREQ(NetworkKindName(NetworkKind::kBranching), "branching");
  EXPECT_STREQ(NetworkKindName(NetworkKind::kSpeck), "speck");
}

}  // namespace
}  // namespace drawing
