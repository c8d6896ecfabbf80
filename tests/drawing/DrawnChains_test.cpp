#include "drawing/DrawnChains.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace drawing {
namespace {

void AddLine(Drawing& drawing, double x1, double y1, double x2, double y2) {
  drawing.elements.push_back({std::make_unique<GX2DLine>(x1, y1, x2, y2), 0});
}

std::vector<DrawnChain> Chains(const Drawing& drawing) {
  return ChainsOf(drawing, FindNetworks(drawing));
}

// "+0 -1": the elements in the order of the pen, backward ones with a minus.
std::string WayOf(const DrawnChain& chain) {
  std::string text;
  for (const DrawnStroke& stroke : chain.strokes) {
    text += (text.empty() ? "" : " ") + std::string(stroke.backward ? "-" : "+") +
            std::to_string(stroke.element);
  }
  return text;
}

TEST(ChainsOf, DrawsALoopInOneStrokeWhateverTheDirections) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 0, 10, 0, 0);
  AddLine(drawing, 10, 10, 10, 0);
  AddLine(drawing, 10, 10, 0, 10);
  const auto chains = Chains(drawing);
  ASSERT_EQ(chains.size(), 1u);
  EXPECT_TRUE(chains[0].closed);
  EXPECT_EQ(chains[0].kind, NetworkKind::kClosed);
  EXPECT_EQ(WayOf(chains[0]), "+0 -2 +3 +1");
}

TEST(ChainsOf, BeginsAnOpenChainAtALooseEnd) {
  Drawing drawing;
  AddLine(drawing, 1, 0, 2, 0);
  AddLine(drawing, 3, 0, 2, 0);
  AddLine(drawing, 0, 0, 1, 0);
  const auto chains = Chains(drawing);
  ASSERT_EQ(chains.size(), 1u);
  EXPECT_FALSE(chains[0].closed);
  EXPECT_EQ(chains[0].kind, NetworkKind::kOpen);
  EXPECT_EQ(WayOf(chains[0]), "+1 -0 -2");
}

TEST(ChainsOf, EndsChainsAtJunctions) {
  // A square with a tail at (0, 0).
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10, 0, 10, 10);
  AddLine(drawing, 10, 10, 0, 0);
  AddLine(drawing, 0, 0, -5, -5);
  const auto chains = Chains(drawing);
  ASSERT_EQ(chains.size(), 2u);
  EXPECT_EQ(WayOf(chains[0]), "-3");
  EXPECT_EQ(WayOf(chains[1]), "+0 +1 +2");
  EXPECT_FALSE(chains[1].closed);
  EXPECT_EQ(chains[1].kind, NetworkKind::kBranching);
}

TEST(ChainsOf, TakesACircleForALoop) {
  Drawing drawing;
  drawing.elements.push_back({std::make_unique<GX2DArc>(GX2DPoint(0, 0), GX2DPoint(5, 0),
                                                        GX2DPoint(-5, 0), GX2DPoint(5, 0)),
                              0});
  const auto chains = Chains(drawing);
  ASSERT_EQ(chains.size(), 1u);
  EXPECT_TRUE(chains[0].closed);
}

TEST(ChainsOf, PassesOverSpecks) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 10, 0);
  AddLine(drawing, 10, 0, 10.00005, 0);
  AddLine(drawing, 10, 0, 10, 10);
  AddLine(drawing, 10, 10, 0, 0);
  AddLine(drawing, 50, 50, 50.00005, 50);
  const auto chains = Chains(drawing);
  ASSERT_EQ(chains.size(), 1u);
  EXPECT_EQ(WayOf(chains[0]), "+0 +2 +3");
  EXPECT_TRUE(chains[0].closed);
}

TEST(ChainPathData, LeadsAroundALoopAndCloses) {
  Drawing drawing;
  AddLine(drawing, 0, 0, 100, 0);
  AddLine(drawing, 0, 0, 0, 100);
  AddLine(drawing, 0, 100, 100, 0);
  const SvgScene scene({0, 0, 100, 100});
  const auto chains = Chains(drawing);
  ASSERT_EQ(chains.size(), 1u);
  EXPECT_EQ(ChainPathData(scene, drawing, chains[0]), "M 70 1070 L 1070 1070 L 70 70 L 70 1070 Z ");
}

}  // namespace
}  // namespace drawing
