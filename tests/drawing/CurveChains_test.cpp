#include "drawing/CurveChains.h"

#include "CurveSketch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace drawing {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kTolerance = 0.01;

// A drawing with an entity for each curve, and the curves still waiting.
struct Waiting {
  Drawing drawing;
  std::vector<DrawnCurve> curves;

  void Add(const Curve& curve, const std::string& layer = "CUT") {
    DrawnCurve waiting;
    EXPECT_EQ(TraceCurve(curve, kTolerance / 25, 20000, waiting.trace), "");
    waiting.entity = AddEntity("SPLINE", layer);
    curves.push_back(std::move(waiting));
  }
  void AddLine(double x1, double y1, double x2, double y2) {
    DrawnElement line;
    line.element = std::make_unique<GX2DLine>(x1, y1, x2, y2);
    line.entity = AddEntity("LINE", "CUT");
    drawing.elements.push_back(std::move(line));
  }
  void Use() { UseCurves(std::move(curves), kTolerance, drawing); }

 private:
  std::size_t AddEntity(const std::string& type, const std::string& layer) {
    DrawnEntity entity;
    entity.type = type;
    entity.layer = layer;
    drawing.entities.push_back(entity);
    return drawing.entities.size() - 1;
  }
};

// A part of a circle about the origin, as an ellipse.
EllipseCurve Part(double radius, double from, double to) {
  return EllipseCurve({0, 0}, {radius, 0}, {0, radius}, from, to);
}

EllipseCurve PartBackward(double radius, double from, double to) {
  return EllipseCurve({0, 0}, {radius, 0}, {0, -radius}, -to, -from);
}

const GX2DArc& ArcOf(const DrawnElement& element) {
  return dynamic_cast<const GX2DArc&>(*element.element);
}

TEST(UseCurves, MakesOneCircleOfPiecesInAnyOrderAndDirection) {
  Waiting waiting;
  waiting.Add(Part(4, 0.0, 1.0));
  waiting.Add(PartBackward(4, 2.5, 4.0));
  waiting.Add(Part(4, 1.0, 2.5));
  waiting.Add(PartBackward(4, 4.0, 2 * kPi));
  waiting.Use();
  ASSERT_EQ(waiting.drawing.elements.size(), 1u);
  EXPECT_TRUE(ArcOf(waiting.drawing.elements[0]).IsCircle());
  EXPECT_NEAR(ArcOf(waiting.drawing.elements[0]).Radius(), 4.0, 1e-9);
  EXPECT_EQ(waiting.drawing.curves.curves, 4u);
  EXPECT_EQ(waiting.drawing.curves.circles, 1u);
  EXPECT_EQ(waiting.drawing.curves.arcs, 0u);
  EXPECT_LT(waiting.drawing.curves.largestDeviation, 1e-6);
}

TEST(UseCurves, JoinsAnOpenChainIntoOneArc) {
  Waiting waiting;
  waiting.Add(Part(4, 1.0, 2.0));
  waiting.Add(Part(4, 0.0, 1.0));
  waiting.Add(Part(4, 2.0, 3.0));
  waiting.Use();
  ASSERT_EQ(waiting.drawing.elements.size(), 1u);
  EXPECT_NEAR(std::fabs(SignedSweep(ArcOf(waiting.drawing.elements[0]))), 3.0, 1e-9);
  // The middle of it lies in the entity that was drawn first.
  EXPECT_EQ(waiting.drawing.elements[0].entity, 0u);
}

TEST(UseCurves, DoesNotJoinWhereALineEndsToo) {
  Waiting waiting;
  waiting.Add(Part(4, 0.0, 1.0));
  waiting.Add(Part(4, 1.0, 2.0));
  waiting.AddLine(4 * std::cos(1.0), 4 * std::sin(1.0), 9, 9);
  waiting.Use();
  EXPECT_EQ(waiting.drawing.elements.size(), 3u);
  EXPECT_EQ(waiting.drawing.curves.arcs, 2u);
}

TEST(UseCurves, DoesNotJoinOverLayers) {
  Waiting waiting;
  waiting.Add(Part(4, 0.0, 1.0), "CUT");
  waiting.Add(Part(4, 1.0, 2.0), "BEND");
  waiting.Use();
  EXPECT_EQ(waiting.drawing.elements.size(), 2u);
}

TEST(UseCurves, DoesNotJoinOverAGap) {
  Waiting waiting;
  waiting.Add(Part(4, 0.0, 1.0));
  waiting.Add(Part(4, 1.0001, 2.0));
  waiting.Use();
  EXPECT_EQ(waiting.drawing.elements.size(), 2u);
}

TEST(UseCurves, JoinsEndsWithinATenthOfAMicronExactly) {
  Waiting waiting;
  waiting.Add(*support::BezierPieces({{0, 0}, {1, 2}, {5, 3}, {9, 3}}));
  waiting.Add(*support::BezierPieces({{9.00005, 3.00005}, {13, 3}, {20, 9}, {20, 30}}));
  waiting.Use();
  const auto& elements = waiting.drawing.elements;
  ASSERT_GT(elements.size(), 1u);
  for (std::size_t i = 0; i + 1 < elements.size(); ++i) {
    EXPECT_EQ(elements[i].element->GetEndPoint().X, elements[i + 1].element->GetStartPoint().X);
    EXPECT_EQ(elements[i].element->GetEndPoint().Y, elements[i + 1].element->GetStartPoint().Y);
  }
}

TEST(UseCurves, KeepsTheOrderOfEntities) {
  Waiting waiting;
  waiting.AddLine(0, 0, 1, 0);
  waiting.Add(Part(4, 0.0, 1.0));
  waiting.AddLine(50, 0, 51, 0);
  waiting.Use();
  ASSERT_EQ(waiting.drawing.elements.size(), 3u);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(waiting.drawing.elements[i].entity, i);
}

TEST(UseCurves, GivesEachElementTheEntityThatItsMiddleLiesIn) {
  // A straight piece, then a quarter circle that it does not continue smoothly.
  Waiting waiting;
  waiting.Add(*support::BezierPieces({{10, -9}, {10, -6}, {10, -3}, {10, 0}}));
  waiting.Add(EllipseCurve({5, 0}, {5, 0}, {0, 5}, 0.0, 1.5));
  waiting.Use();
  ASSERT_EQ(waiting.drawing.elements.size(), 2u);
  EXPECT_EQ(waiting.drawing.elements[0].entity, 0u);
  EXPECT_EQ(waiting.drawing.elements[1].entity, 1u);
  EXPECT_EQ(waiting.drawing.curves.lines, 1u);
  EXPECT_EQ(waiting.drawing.curves.arcs, 1u);
}

}  // namespace
}  // namespace drawing
