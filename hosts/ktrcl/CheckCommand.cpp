#include "ktrcl/Commands.h"

#include "drawing/DxfReader.h"
#include "drawing/Preflight.h"
#include "ktrcl/ProgressBar.h"

#include <algorithm>
#include <iostream>

namespace ktrcl {

namespace {

int StatusOf(const drawing::Preflight& preflight) {
  if (!preflight.drawing.usable) return kUnusable;
  return preflight.IsClean() ? kSame : kDifferent;
}

}  // namespace

int RunCheck(const CheckRequest& request) {
  int status = kSame;
  nlohmann::json all = nlohmann::json::array();
  const drawing::ReadOptions options = ToReadOptions(request.reading);
  drawing::PreflightOptions look;
  look.tiny = request.tiny;
  ProgressBar progress(request.files.size(), "check");
  for (const std::string& file : request.files) {
    progress.Advance(file);
    const drawing::Preflight preflight =
        drawing::Inspect(drawing::ReadDrawing(file, options), look);
    status = std::max(status, StatusOf(preflight));
    progress.Clear();
    if (request.json) {
      all.push_back(drawing::PreflightJson(preflight));
    } else if (preflight.drawing.usable) {
      std::cout << drawing::PreflightText(preflight, request.all);
    }
    if (!preflight.drawing.usable) {
      std::cerr << "ktrcl: " << file << ": " << preflight.drawing.refusal << "\n";
    }
  }
  // Texts of a drawing may be in any encoding; what is no UTF-8 becomes a replacement character.
  if (request.json) {
    std::cout << all.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
  }
  return status;
}

}  // namespace ktrcl
