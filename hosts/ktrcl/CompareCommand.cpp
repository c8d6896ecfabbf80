#include "ktrcl/Commands.h"

#include "drawing/DxfReader.h"
#include "drawing/PartComparison.h"
#include "drawing/Report.h"
#include "drawing/SvgPicture.h"
#include "ktrcl/Admission.h"

#include <fstream>
#include <iostream>

namespace ktrcl {

namespace {

bool WriteFile(const std::string& name, const std::string& text) {
  std::ofstream file(name, std::ios::binary);
  file << text;
  file.close();
  if (!file) std::cerr << "ktrcl: " << name << ": cannot be written\n";
  return static_cast<bool>(file);
}

}  // namespace

int RunCompare(const CompareRequest& request) {
  drawing::ReadOptions reading;
  reading.curveTolerance = request.curve;
  const drawing::PartModel a = drawing::BuildPart(drawing::ReadDrawing(request.a, reading));
  const drawing::PartModel b = drawing::BuildPart(drawing::ReadDrawing(request.b, reading));
  const bool admitA = Admit(a, "verdict");
  const bool admitB = Admit(b, "verdict");
  if (!admitA || !admitB) return kUnusable;
  drawing::CompareOptions options;
  options.mode = request.mode == "may-differ" ? GXLAContour::eNmbSegmentsMayDiffer
                                              : GXLAContour::eNmbSegmentsEqual;
  options.trace = request.trace;
  const drawing::Comparison comparison = drawing::CompareParts(a, b, options);
  if (request.json) {
    std::cout << drawing::ComparisonJson(a, b, comparison)
                     .dump(2, ' ', false, nlohmann::json::error_handler_t::replace)
              << "\n";
  } else {
    std::cout << drawing::ComparisonText(a, b, comparison, request.positions);
  }
  if (!request.svg.empty() && !WriteFile(request.svg, drawing::ComparisonSvg(a, b, comparison))) {
    return kUnusable;
  }
  return comparison.same ? kSame : kDifferent;
}

}  // namespace ktrcl
