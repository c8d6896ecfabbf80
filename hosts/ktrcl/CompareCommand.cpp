#include "ktrcl/Commands.h"

#include "drawing/ComparisonReport.h"
#include "drawing/DxfReader.h"
#include "drawing/HealingSummary.h"
#include "drawing/Judgement.h"
#include "drawing/Report.h"
#include "drawing/SvgPicture.h"
#include "ktrcl/Admission.h"

#include <cstddef>
#include <fstream>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace ktrcl {

namespace {

// One of the two drawings, healed, as a part.
struct Side {
  drawing::HealingSummary healing;
  drawing::PartModel part;
};

// With `anyOnlyOne` a drawing with a single part takes that one whatever number was asked for.
Side ReadSide(const CompareRequest& request, const std::string& file, std::size_t number,
              bool anyOnlyOne) {
  Side side;
  side.part = drawing::BuildPart(
      drawing::HealedForParts(drawing::ReadDrawing(file, ToReadOptions(request.reading)),
                              request.gap, side.healing),
      number);
  if (anyOnlyOne && number > 1 && side.part.parts.size() == 1) {
    side.part = drawing::BuildPart(std::move(side.part.drawing), 1);
  }
  return side;
}

bool WriteFile(const std::string& name, const std::string& text) {
  std::ofstream file(name, std::ios::binary);
  file << text;
  file.close();
  if (!file) std::cerr << "ktrcl: " << name << ": cannot be written\n";
  return static_cast<bool>(file);
}

void Tell(const CompareRequest& request, const drawing::ComparisonTold& told) {
  if (!request.json) {
    std::cout << drawing::ComparisonText(told, request.positions);
    return;
  }
  std::cout << drawing::ComparisonJson(told).dump(2, ' ', false,
                                                  nlohmann::json::error_handler_t::replace)
            << "\n";
}

bool WritePictures(const CompareRequest& request, const drawing::ComparisonTold& told) {
  const drawing::DoubleVerdict& verdict = told.judgement.verdict;
  const drawing::PartModel& b = told.judgement.Compared(told.b);
  if (!request.svg.empty() &&
      !WriteFile(request.svg, drawing::ComparisonSvg(told.a, b, verdict.comparison))) {
    return false;
  }
  if (request.report.empty()) return true;
  // The report shows the mirror image itself, which needs no turning over any more.
  drawing::GeometricVerdict own = verdict.own;
  own.placement.mirrored = false;
  const drawing::ComparisonAccount account{told.a,
                                           b,
                                           verdict.comparison,
                                           own,
                                           verdict.comparison.verdict,
                                           verdict.disagreement,
                                           told.judgement.mirrored};
  return WriteFile(request.report, drawing::ComparisonReportHtml(account));
}

}  // namespace

int RunCompare(const CompareRequest& request) {
  const Side a = ReadSide(request, request.a, request.part, true);
  const bool ownNumber = request.partB > 0;
  const Side b = ReadSide(request, request.b, ownNumber ? request.partB : request.part, !ownNumber);
  const bool admitA = Admit(a.part, "verdict");
  const bool admitB = Admit(b.part, "verdict");
  if (!admitA || !admitB) return kUnusable;
  drawing::CompareOptions options;
  options.mode = request.mode == "may-differ" ? GXLAContour::eNmbSegmentsMayDiffer
                                              : GXLAContour::eNmbSegmentsEqual;
  // The report always folds the library's words away; the text has them only where asked for.
  options.trace = request.trace || !request.report.empty();
  drawing::Judgement judgement = drawing::Judge(a.part, b.part, options, request.mirror);
  const drawing::ComparisonTold told{a.part, b.part, judgement, a.healing, b.healing};
  std::vector<std::string>& words = judgement.verdict.comparison.trace;
  std::vector<std::string> kept;
  if (!request.trace) kept.swap(words);
  Tell(request, told);
  if (!request.trace) kept.swap(words);
  if (!WritePictures(request, told)) return kUnusable;
  return judgement.verdict.comparison.same ? kSame : kDifferent;
}

}  // namespace ktrcl
