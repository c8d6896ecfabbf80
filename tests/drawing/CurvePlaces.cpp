// Prints what the host makes of the curves of a drawing, for the check against another reader:
//
//     unit 25.4
//     deviation 0.0093
//     refused 0
//     element 0.5 1 0.75 1.25 ...     x and y of places along one line or arc, in millimetres
//
// Usage: curve_places DRAWING TOLERANCE
#include "drawing/CurveMeasures.h"
#include "drawing/DxfReader.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

bool IsCurve(const std::string& type) { return type == "ELLIPSE" || type == "SPLINE"; }

int CountRefused(const drawing::Drawing& drawing) {
  int count = 0;
  for (const auto& [type, refused] : drawing.refusedByType) count += IsCurve(type) ? refused : 0;
  return count;
}

// Chords over the places are off by less than a twentieth of the tolerance.
int Steps(const GX2DElement& element, double tolerance) {
  const auto* arc = dynamic_cast<const GX2DArc*>(&element);
  if (arc == nullptr) return 1;
  const double step = std::sqrt(8.0 * arc->Radius() * 0.05 * tolerance);
  return std::clamp(static_cast<int>(std::ceil(drawing::ElementLength(*arc) / step)), 4, 100000);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  drawing::ReadOptions options;
  options.curveTolerance = std::strtod(argv[2], nullptr);
  const drawing::Drawing drawing = drawing::ReadDrawing(argv[1], options);
  if (!drawing.usable) {
    std::printf("unusable\n");
    return 0;
  }
  std::printf("unit %.17g\ndeviation %.17g\nrefused %d\n", drawing.unit.millimetresPerUnit,
              drawing.curves.largestDeviation, CountRefused(drawing));
  for (const drawing::DrawnElement& drawn : drawing.elements) {
    const drawing::DrawnEntity& entity = drawing.entities[drawn.entity];
    // What comes out of blocks is compared elsewhere.
    if (!IsCurve(entity.type) || !entity.block.empty()) continue;
    const int steps = Steps(*drawn.element, options.curveTolerance);
    std::printf("element");
    for (int i = 0; i <= steps; ++i) {
      const GX2DPoint p = drawing::PointAt(*drawn.element, static_cast<double>(i) / steps);
      std::printf(" %.12g %.12g", p.X, p.Y);
    }
    std::printf("\n");
  }
  return 0;
}
