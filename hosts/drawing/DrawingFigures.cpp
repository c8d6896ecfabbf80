#include "drawing/DrawingFigures.h"

#include "drawing/CurveMeasures.h"

#include <cmath>

namespace drawing {

namespace {

double LengthOf(const GX2DElmList& elements) {
  double length = 0.0;
  for (const GX2DElement* const element : elements) length += ElementLength(*element);
  return length;
}

// Outermost contours hold material, those right inside them take it away, and so on inwards.
void AddContour(const Contour& contour, DrawingFigures& figures) {
  ++figures.closed;
  figures.perimeter += LengthOf(contour.elements);
  if (contour.coincidesWith != kNoContour) return;
  const double area = std::fabs(SignedArea(contour.elements));
  figures.area += contour.depth % 2 == 0 ? area : -area;
}

}  // namespace

DrawingFigures FiguresOf(const Drawing& drawing, const std::vector<Network>& networks,
                         const std::vector<std::unique_ptr<Contour>>& contours) {
  DrawingFigures figures;
  for (const DrawnElement& drawn : drawing.elements) {
    if (drawn.element == nullptr) continue;
    ++figures.elements;
    figures.totalLength += ElementLength(*drawn.element);
  }
  for (const auto& contour : contours) {
    if (contour->usable) AddContour(*contour, figures);
  }
  for (const Network& network : networks) {
    if (network.kind == NetworkKind::kOpen) ++figures.open;
    if (network.kind == NetworkKind::kBranching) ++figures.branching;
  }
  figures.other = networks.size() - figures.closed - figures.open - figures.branching;
  return figures;
}

}  // namespace drawing
