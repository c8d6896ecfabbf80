// The whole road of a drawing on any bytes: reading, networks, contours, the part, its comparison
// with itself and with its mirror image, and everything that is told of it.
#include "drawing/DxfReader.h"
#include "drawing/HealingSummary.h"
#include "drawing/Judgement.h"
#include "drawing/Mirroring.h"
#include "drawing/Report.h"
#include "drawing/SvgPicture.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

namespace {

// Inserts may come to so many records, so that a round takes no longer than its input lets expect.
constexpr std::size_t kMostInserted = 20000;

std::size_t Sum(const std::map<std::string, int>& counts) {
  std::size_t sum = 0;
  for (const auto& entry : counts) sum += static_cast<std::size_t>(entry.second);
  return sum;
}

void Require(bool holds) {
  if (!holds) std::abort();
}

// Nothing that was drawn is lost: every entity is used, or counted with the reason why it is not.
void RequireCounts(const drawing::Drawing& drawing) {
  const std::size_t seen = Sum(drawing.entitiesByType) + Sum(drawing.blockEntitiesByType);
  Require(seen == Sum(drawing.entitiesByLayer));
  Require(seen == drawing.entities.size() + Sum(drawing.unusedByType) + Sum(drawing.refusedByType) +
                      Sum(drawing.hiddenByLayer) +
                      static_cast<std::size_t>(drawing.expandedInserts));
  for (const drawing::DrawnElement& drawn : drawing.elements) {
    Require(drawn.element != nullptr && drawn.entity < drawing.entities.size());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  drawing::ReadOptions reading;
  reading.mostInserted = kMostInserted;
  const drawing::Drawing read = drawing::ReadDrawingText(bytes, "fuzz.dxf", reading);
  RequireCounts(read);
  const drawing::PartModel part = drawing::BuildPart(drawing::CopyOf(read));
  RequireCounts(drawing::CopyOf(part.drawing));
  if (drawing::InfoText(part).empty()) std::abort();
  if (drawing::InfoJson(part).empty()) std::abort();
  const drawing::HealingSummary asDrawn;
  if (drawing::PartsText(part, asDrawn).empty()) std::abort();
  if (drawing::PartsJson(part, asDrawn).empty()) std::abort();
  if (!part.usable) return 0;
  const drawing::PartModel turned = drawing::MirroredPart(part);
  for (const auto mode : {GXLAContour::eNmbSegmentsEqual, GXLAContour::eNmbSegmentsMayDiffer}) {
    drawing::CompareOptions options;
    options.mode = mode;
    for (const drawing::PartModel* const b : {&part, &turned}) {
      if (!b->usable) continue;
      const drawing::Judgement judgement = drawing::Judge(part, *b, options, true);
      const drawing::ComparisonTold told{part, *b, judgement, asDrawn, asDrawn};
      if (drawing::ComparisonText(told, true).empty()) std::abort();
      if (drawing::ComparisonJson(told).empty()) std::abort();
      const drawing::PartModel& compared = judgement.Compared(*b);
      if (drawing::ComparisonSvg(part, compared, judgement.verdict.comparison).empty()) {
        std::abort();
      }
    }
  }
  return 0;
}
