#include "ktrcl/Commands.h"

#include "drawing/DrawingHealing.h"
#include "drawing/DxfReader.h"
#include "drawing/DxfWriter.h"
#include "drawing/HealingAccount.h"
#include "drawing/HealingReport.h"
#include "ktrcl/Admission.h"
#include "ktrcl/ProgressBar.h"

#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

namespace ktrcl {

namespace {

// Read, heal, tell, write.
constexpr std::size_t kSteps = 4;

int TellError(const std::string& file, const std::string& cause) {
  std::cerr << "ktrcl: " << file << ": " << cause << "\n";
  return kUnusable;
}

// A file that is not there yet is known by its path.
bool AreOneFile(const std::string& a, const std::string& b) {
  std::error_code unknown;
  if (a == b || std::filesystem::equivalent(a, b, unknown)) return true;
  const std::filesystem::path first = std::filesystem::weakly_canonical(a, unknown);
  if (unknown) return false;
  const std::filesystem::path second = std::filesystem::weakly_canonical(b, unknown);
  return !unknown &&
         std::filesystem::absolute(first, unknown) == std::filesystem::absolute(second, unknown);
}

// Looked at before anything is read, so that nothing is lost by a slip of the hand.
bool WouldOverwrite(const HealRequest& request) {
  if (AreOneFile(request.in, request.out)) {
    TellError(request.out, "it is the drawing itself; nothing was written");
    return true;
  }
  if (request.report.empty()) return false;
  if (AreOneFile(request.in, request.report) || AreOneFile(request.out, request.report)) {
    TellError(request.report, "the report would overwrite a drawing; nothing was written");
    return true;
  }
  return false;
}

void Tell(const HealRequest& request, const drawing::Drawing& asRead,
          const drawing::HealedDrawing& healed, const drawing::HealOptions& options) {
  if (request.json) {
    nlohmann::json json = drawing::HealingJson(asRead, healed, options);
    json["written"] = request.out;
    json["version"] = request.r12 ? "R12" : "R2000";
    if (!request.report.empty()) json["report"] = request.report;
    std::cout << json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
    return;
  }
  std::cout << drawing::HealingText(asRead, healed, options);
  std::cout << "Written: " << request.out << "\n";
  if (!request.report.empty()) std::cout << "Report: " << request.report << "\n";
}

bool Write(const std::string& path, const std::string& bytes) {
  const std::string problem = drawing::WriteWholeFile(path, bytes);
  if (!problem.empty()) TellError(path, problem);
  return problem.empty();
}

}  // namespace

int RunHeal(const HealRequest& request) {
  if (WouldOverwrite(request)) return kUnusable;
  ProgressBar progress(kSteps, "heal");
  progress.Advance("reading " + request.in);
  const drawing::Drawing asRead = drawing::ReadDrawing(request.in, ToReadOptions(request.reading));
  progress.Clear();
  TellComplaints(asRead, "healed drawing");
  if (!asRead.usable) return TellError(request.in, asRead.refusal);
  if (asRead.elements.empty()) {
    return TellError(request.in, "there is no element that can be used; nothing was written");
  }
  drawing::HealOptions options;
  options.gap = request.gap;
  options.cleanUp = request.cleanUp;
  progress.Advance("healing");
  const drawing::HealedDrawing healed = drawing::HealDrawing(asRead, options);
  progress.Advance("writing " + request.out);
  const auto version = request.r12 ? drawing::DxfVersion::kR12 : drawing::DxfVersion::kR2000;
  const std::string text = drawing::DxfText(healed.drawing, version);
  progress.Clear();
  if (!Write(request.out, text)) return kUnusable;
  if (!request.report.empty()) {
    progress.Advance("reporting to " + request.report);
    const std::string report = drawing::HealingReportHtml(asRead, healed, options);
    progress.Clear();
    if (!Write(request.report, report)) return kUnusable;
  }
  progress.Clear();
  Tell(request, asRead, healed, options);
  return kSame;
}

}  // namespace ktrcl
