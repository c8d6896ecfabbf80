#include "ktrcl/Commands.h"

#include "drawing/DxfReader.h"
#include "drawing/PartComparison.h"
#include "drawing/Report.h"
#include "drawing/SvgPicture.h"

#include <fstream>
#include <iostream>

namespace ktrcl {

namespace {

// Prints what a person has to know before trusting the verdict; true when the part can be compared.
bool Admit(const drawing::PartModel& part) {
  for (const drawing::Complaint& complaint : part.drawing.complaints) {
    if (complaint.severity == drawing::Severity::kNote) continue;
    std::cerr << drawing::ToLine(complaint) << "\n";
  }
  for (const auto& [type, count] : part.drawing.unusedByType) {
    std::cerr << part.drawing.file << ": warning: " << count << " " << type
              << " cannot be used yet; the verdict knows nothing of them\n";
  }
  if (!part.usable) {
    std::cerr << "ktrcl: " << part.drawing.file << ": " << part.obstacle << "\n";
  }
  return part.usable;
}

bool WriteFile(const std::string& name, const std::string& text) {
  std::ofstream file(name, std::ios::binary);
  file << text;
  file.close();
  if (!file) std::cerr << "ktrcl: " << name << ": cannot be written\n";
  return static_cast<bool>(file);
}

}  // namespace

int RunCompare(const CompareRequest& request) {
  const drawing::PartModel a = drawing::BuildPart(drawing::ReadDrawing(request.a));
  const drawing::PartModel b = drawing::BuildPart(drawing::ReadDrawing(request.b));
  const bool admitA = Admit(a);
  const bool admitB = Admit(b);
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
