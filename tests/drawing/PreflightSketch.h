// Preflights of sketches and of DXF texts, for the tests.
#pragma once

#include "PartSketch.h"
#include "drawing/DxfReader.h"
#include "drawing/Preflight.h"
#include "support/DxfText.h"

#include <string>
#include <utility>
#include <vector>

namespace support {

inline drawing::Preflight Look(drawing::Drawing drawn) {
  return drawing::Inspect(std::move(drawn), {});
}

inline drawing::Preflight LookAt(const PartSketch& sketch) {
  drawing::Drawing drawn = DrawingOf(sketch);
  drawn.unit.assumed = false;
  return Look(std::move(drawn));
}

inline drawing::Preflight LookAtDxf(const std::string& entities) {
  return Look(drawing::ReadDrawingText(Dxf(entities), "part.dxf"));
}

inline std::string LineDxf(double x1, double y1, double x2, double y2) {
  std::string text = " 0 LINE 8 CUT";
  const double values[] = {x1, y1, x2, y2};
  const char* const codes[] = {" 10 ", " 20 ", " 11 ", " 21 "};
  for (int i = 0; i < 4; ++i) text += codes[i] + std::to_string(values[i]);
  return text;
}

inline std::vector<drawing::Finding> OfKind(const drawing::Preflight& preflight,
                                            drawing::FindingKind kind) {
  std::vector<drawing::Finding> found;
  for (const drawing::Finding& finding : preflight.findings) {
    if (finding.kind == kind) found.push_back(finding);
  }
  return found;
}

inline bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

inline SketchContour Lines(const std::vector<std::pair<GX2DPoint, GX2DPoint>>& lines) {
  SketchContour sides;
  for (const auto& [from, to] : lines) sides.push_back(LineSide(from, to));
  return sides;
}

}  // namespace support
