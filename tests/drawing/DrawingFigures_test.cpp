#include "drawing/DrawingFigures.h"

#include "DrawingSketch.h"
#include "drawing/Nesting.h"

#include <gtest/gtest.h>

namespace drawing {
namespace {

constexpr double kPi = 3.14159265358979323846;

DrawingFigures Figures(const Drawing& drawing) {
  const auto networks = FindNetworks(drawing);
  const auto contours = BuildContours(drawing, networks);
  NestContours(contours);
  return FiguresOf(drawing, networks, contours);
}

void AddSquare(Drawing& drawing, double x, double y, double side) {
  support::AddLine(drawing, x, y, x + side, y);
  support::AddLine(drawing, x + side, y, x + side, y + side);
  support::AddLine(drawing, x + side, y + side, x, y + side);
  support::AddLine(drawing, x, y + side, x, y);
}

TEST(FiguresOf, TakesCutOutsOffAndAddsIslands) {
  Drawing drawing;
  AddSquare(drawing, 0, 0, 20);
  AddSquare(drawing, 5, 5, 10);
  support::AddCircle(drawing, 10, 10, 2);
  const DrawingFigures figures = Figures(drawing);
  EXPECT_EQ(figures.elements, 9u);
  EXPECT_EQ(figures.closed, 3u);
  EXPECT_NEAR(figures.area, 400.0 - 100.0 + 4.0 * kPi, 1e-9);
  EXPECT_NEAR(figures.perimeter, 80.0 + 40.0 + 4.0 * kPi, 1e-9);
  EXPECT_NEAR(figures.totalLength, figures.perimeter, 1e-12);
}

TEST(FiguresOf, TakesACoincidentContourForItsPerimeterOnly) {
  Drawing drawing;
  support::AddCircle(drawing, 0, 0, 2);
  support::AddCircle(drawing, 0, 0, 2);
  const DrawingFigures figures = Figures(drawing);
  EXPECT_EQ(figures.closed, 2u);
  EXPECT_NEAR(figures.area, 4.0 * kPi, 1e-9);
  EXPECT_NEAR(figures.perimeter, 8.0 * kPi, 1e-9);
}

TEST(FiguresOf, CountsWhatIsNoContourByKind) {
  Drawing drawing;
  support::AddLine(drawing, 0, 0, 10, 0);   // Open.
  support::AddLine(drawing, 50, 0, 60, 0);  // Branching, with two more.
  support::AddLine(drawing, 50, 0, 50, 10);
  support::AddLine(drawing, 50, 0, 40, 0);
  support::AddLine(drawing, 100, 0, 100.00005, 0);  // A speck.
  support::AddLine(drawing, 200, 0, 210, 0);        // Closed, but there and back.
  support::AddLine(drawing, 210, 0, 200, 0);
  const DrawingFigures figures = Figures(drawing);
  EXPECT_EQ(figures.closed, 0u);
  EXPECT_EQ(figures.open, 1u);
  EXPECT_EQ(figures.branching, 1u);
  EXPECT_EQ(figures.other, 2u);
  EXPECT_EQ(figures.area, 0.0);
  EXPECT_NEAR(figures.totalLength, 60.00005, 1e-12);
}

}  // namespace
}  // namespace drawing
