// Prints what the host makes of the entities of a drawing, for the check against another reader:
//
//     unit 25.4
//     deviation 0.0093
//     left 2                                 entities that were refused or are not usable
//     element LINE 2F cut 0.5 1 0.75 1.25    type, handle, layer, and x and y of places along one
//                                            line or arc, mm; "_" for no handle
//
// Blanks in names become "_". All layers count.
//
// Usage: entity_places DRAWING TOLERANCE
#include "drawing/CurveMeasures.h"
#include "drawing/DxfReader.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

namespace {

int Sum(const std::map<std::string, int>& counts) {
  int sum = 0;
  for (const auto& entry : counts) sum += entry.second;
  return sum;
}

// Chords over the places are off by less than a twentieth of the tolerance.
int Steps(const GX2DElement& element, double tolerance) {
  const auto* arc = dynamic_cast<const GX2DArc*>(&element);
  if (arc == nullptr) return 1;
  const double step = std::sqrt(8.0 * arc->Radius() * 0.05 * tolerance);
  return std::clamp(static_cast<int>(std::ceil(drawing::ElementLength(*arc) / step)), 4, 100000);
}

std::string Word(std::string text) {
  std::replace(text.begin(), text.end(), ' ', '_');
  return text.empty() ? "_" : text;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  drawing::ReadOptions options;
  options.curveTolerance = std::strtod(argv[2], nullptr);
  options.allLayers = true;
  const drawing::Drawing drawing = drawing::ReadDrawing(argv[1], options);
  if (!drawing.usable) {
    std::printf("unusable\n");
    return 0;
  }
  std::printf("unit %.17g\ndeviation %.17g\nleft %d\n", drawing.unit.millimetresPerUnit,
              drawing.curves.largestDeviation,
              Sum(drawing.refusedByType) + Sum(drawing.unusedByType));
  for (const drawing::DrawnElement& drawn : drawing.elements) {
    const drawing::DrawnEntity& entity = drawing.entities[drawn.entity];
    const int steps = Steps(*drawn.element, options.curveTolerance);
    std::printf("element %s %s %s", entity.type.c_str(), Word(entity.handle).c_str(),
                Word(entity.layer).c_str());
    for (int i = 0; i <= steps; ++i) {
      const GX2DPoint p = drawing::PointAt(*drawn.element, static_cast<double>(i) / steps);
      std::printf(" %.12g %.12g", p.X, p.Y);
    }
    std::printf("\n");
  }
  return 0;
}
