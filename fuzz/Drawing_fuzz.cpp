// The whole road of a drawing on any bytes: reading, networks, contours, the part, its comparison
// with itself, and everything that is told of it.
#include "drawing/DxfReader.h"
#include "drawing/PartComparison.h"
#include "drawing/Report.h"
#include "drawing/SvgPicture.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const drawing::PartModel part = drawing::BuildPart(drawing::ReadDrawingText(bytes, "fuzz.dxf"));
  if (drawing::InfoText(part).empty()) std::abort();
  if (drawing::InfoJson(part).empty()) std::abort();
  if (!part.usable) return 0;
  for (const auto mode : {GXLAContour::eNmbSegmentsEqual, GXLAContour::eNmbSegmentsMayDiffer}) {
    drawing::CompareOptions options;
    options.mode = mode;
    const drawing::Comparison comparison = drawing::CompareParts(part, part, options);
    if (drawing::ComparisonText(part, part, comparison, true).empty()) std::abort();
    if (drawing::ComparisonSvg(part, part, comparison).empty()) std::abort();
  }
  return 0;
}
