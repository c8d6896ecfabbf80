// The whole road of checking and healing on any bytes: what was healed and written is read again
// without a loss, and healing it once more finds nothing to do.
#include "drawing/DrawingHealing.h"
#include "drawing/DrawingParts.h"
#include "drawing/DxfReader.h"
#include "drawing/DxfWriter.h"
#include "drawing/HealingAccount.h"
#include "drawing/HealingReport.h"
#include "drawing/Preflight.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

namespace {

// Drawings beyond a kilometre, and more elements than a round takes in good time, are healed but
// not held to it: their figures do not bear it.
constexpr double kLargest = 1e6;
constexpr std::size_t kMostElements = 2000;

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "violated: %s\n", what);
  std::abort();
}

// Coordinates and radii, centres of flat arcs included.
bool IsOfCommonSize(const drawing::Drawing& drawing) {
  return std::all_of(drawing.elements.begin(), drawing.elements.end(), [](const auto& drawn) {
    const auto* arc = dynamic_cast<const GX2DArc*>(drawn.element.get());
    double most =
        std::max(std::fabs(drawn.element->GetMinX()), std::fabs(drawn.element->GetMaxX()));
    most =
        std::max({most, std::fabs(drawn.element->GetMinY()), std::fabs(drawn.element->GetMaxY())});
    if (arc != nullptr) {
      most = std::max({most, std::fabs(arc->Center.X), std::fabs(arc->Center.Y), arc->Radius()});
    }
    return most <= kLargest;
  });
}

void RequireHealed(const drawing::HealedDrawing& healed, const drawing::HealOptions& options,
                   drawing::DxfVersion version) {
  const std::string text = drawing::DxfText(healed.drawing, version);
  const drawing::Drawing back = drawing::ReadDrawingText(text, "healed.dxf");
  Require(back.usable, "what was written is read");
  Require(back.refusedByType.empty() && back.unusedByType.empty(), "all that was written is used");
  if (!IsOfCommonSize(healed.drawing)) return;
  Require(drawing::DxfText(back, version) == text, "the same bytes again");
  const drawing::HealedDrawing again = drawing::HealDrawing(back, options);
  Require(again.changes.empty(), "healing a healed drawing changes nothing");
  Require(drawing::DxfText(again.drawing, version) == text, "the same bytes once healed again");
}

void Heal(const drawing::Drawing& drawing, double gap, bool cleanUp) {
  drawing::HealOptions options;
  options.gap = gap;
  options.cleanUp = cleanUp;
  const drawing::HealedDrawing healed = drawing::HealDrawing(drawing, options);
  Require(!drawing::HealingText(drawing, healed, options).empty(), "there is an account");
  Require(!drawing::HealingJson(drawing, healed, options).empty(), "there is an account");
  Require(!drawing::HealingReportHtml(drawing, healed, options).empty(), "there is a report");
  static_cast<void>(drawing::FindParts(healed.contours));
  RequireHealed(healed, options, drawing::DxfVersion::kR12);
  RequireHealed(healed, options, drawing::DxfVersion::kR2000);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  drawing::ReadOptions reading;
  reading.mostInserted = 20000;
  drawing::Drawing drawing = drawing::ReadDrawingText(bytes, "fuzz.dxf", reading);
  if (drawing.elements.size() > kMostElements) return 0;
  if (drawing.usable) {
    for (const double gap : {0.0, 0.1, 10.0}) {
      Heal(drawing, gap, true);
      Heal(drawing, gap, false);
    }
  }
  const drawing::Preflight preflight = drawing::Inspect(std::move(drawing), {});
  Require(!drawing::PreflightText(preflight, true).empty(), "there is a list of findings");
  Require(!drawing::PreflightJson(preflight).empty(), "there is a list of findings");
  return 0;
}
