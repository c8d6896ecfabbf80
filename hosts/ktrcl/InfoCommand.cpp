#include "ktrcl/Commands.h"

#include "drawing/DxfReader.h"
#include "drawing/PartModel.h"
#include "drawing/Report.h"
#include "ktrcl/ProgressBar.h"

#include <cstdio>
#include <iostream>

namespace ktrcl {

int RunInfo(const InfoRequest& request) {
  int status = kSame;
  nlohmann::json all = nlohmann::json::array();
  const drawing::ReadOptions options = ToReadOptions(request.reading);
  ProgressBar progress(request.files.size(), "info");
  for (const std::string& file : request.files) {
    progress.Advance(file);
    const drawing::PartModel part = drawing::BuildPart(drawing::ReadDrawing(file, options));
    progress.Clear();
    if (request.json) {
      all.push_back(drawing::InfoJson(part));
    } else if (part.drawing.usable) {
      std::cout << drawing::InfoText(part);
    }
    if (!part.drawing.usable) {
      std::cerr << "ktrcl: " << file << ": " << part.drawing.refusal << "\n";
      status = kUnusable;
    }
  }
  // Texts of a drawing may be in any encoding; what is no UTF-8 becomes a replacement character.
  if (request.json) {
    std::cout << all.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
  }
  return status;
}

}  // namespace ktrcl
