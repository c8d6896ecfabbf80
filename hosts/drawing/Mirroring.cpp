#include "drawing/Mirroring.h"

#include <cstddef>
#include <utility>

namespace drawing {

namespace {

// Taken from zero, so that zero stays positive.
void Mirror(GX2DPoint& p) { p.X = 0.0 - p.X; }

void Mirror(GX2DElement& element) {
  if (auto* const line = dynamic_cast<GX2DLine*>(&element)) {
    Mirror(line->Start);
    Mirror(line->End);
  } else if (auto* const arc = dynamic_cast<GX2DArc*>(&element)) {
    // The mid goes along, and tells the new sense of the arc.
    for (GX2DPoint* const p : {&arc->Center, &arc->Start, &arc->Mid, &arc->End}) Mirror(*p);
  }
}

}  // namespace

Drawing Mirrored(const Drawing& drawing) {
  Drawing mirrored = CopyOf(drawing);
  for (const DrawnElement& drawn : mirrored.elements) {
    if (drawn.element != nullptr) Mirror(*drawn.element);
  }
  for (ZeroLengthEntity& entity : mirrored.zeroLength) Mirror(entity.place);
  return mirrored;
}

PartModel MirroredPart(const PartModel& part) {
  PartModel mirrored = BuildPart(Mirrored(part.drawing), part.number);
  if (part.number == kWholeDrawing) return mirrored;
  // Parts are in the order of their areas, and equal ones may change places by rounding.
  const std::size_t outer = part.parts[part.number - 1].outer;
  for (std::size_t i = 0; i < mirrored.parts.size(); ++i) {
    if (mirrored.parts[i].outer != outer || i + 1 == part.number) continue;
    return BuildPart(std::move(mirrored.drawing), i + 1);
  }
  return mirrored;
}

}  // namespace drawing
