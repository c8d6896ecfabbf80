#include "ktrcl/Commands.h"

#include "drawing/DxfReader.h"
#include "drawing/DxfWriter.h"
#include "drawing/HealingSummary.h"
#include "drawing/PartModel.h"
#include "drawing/Report.h"
#include "ktrcl/Admission.h"

#include <cstddef>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

namespace ktrcl {

namespace {

void TellError(const std::string& file, const std::string& cause) {
  std::cerr << "ktrcl: " << file << ": " << cause << "\n";
}

// DIR/NAME-part-1.dxf and so on, one per part.
std::vector<std::string> SplitNames(const PartsRequest& request, std::size_t parts) {
  const std::string stem = std::filesystem::path(request.file).stem().string();
  std::vector<std::string> names;
  for (std::size_t i = 0; i < parts; ++i) {
    const std::string name = stem + "-part-" + std::to_string(i + 1) + ".dxf";
    names.push_back((std::filesystem::path(request.split) / name).string());
  }
  return names;
}

// Looked at before anything is written, so that all files are written or none.
bool AllAreNew(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    std::error_code ignored;
    if (!std::filesystem::exists(std::filesystem::symlink_status(name, ignored))) continue;
    TellError(name, "is there already; --overwrite replaces it");
    return false;
  }
  return true;
}

bool MakeFolder(const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) TellError(folder, "cannot be made: " + error.message());
  return !error;
}

bool WriteParts(const PartsRequest& request, const drawing::PartModel& model,
                const std::vector<std::string>& names) {
  if (!MakeFolder(request.split)) return false;
  const drawing::DxfVersion version =
      request.r12 ? drawing::DxfVersion::kR12 : drawing::DxfVersion::kR2000;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string text =
        drawing::DxfText(model.drawing, version, drawing::ElementsOf(model, model.parts[i]));
    const std::string cause = drawing::WriteWholeFile(names[i], text);
    if (cause.empty()) continue;
    TellError(names[i], cause);
    return false;
  }
  return true;
}

void Tell(const PartsRequest& request, const drawing::PartModel& model,
          const drawing::HealingSummary& healing, const std::vector<std::string>& names) {
  if (request.json) {
    nlohmann::json json = drawing::PartsJson(model, healing);
    json["files"] = names;
    std::cout << json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
    return;
  }
  std::cout << drawing::PartsText(model, healing);
  for (const std::string& name : names) std::cout << "Written: " << name << "\n";
}

}  // namespace

int RunParts(const PartsRequest& request) {
  drawing::HealingSummary healing;
  const drawing::PartModel model = drawing::BuildPart(drawing::HealedForParts(
      drawing::ReadDrawing(request.file, ToReadOptions(request.reading)), request.gap, healing));
  TellComplaints(model.drawing, "table of parts");
  if (!model.drawing.usable) {
    TellError(request.file, model.drawing.refusal);
    return kUnusable;
  }
  std::vector<std::string> names;
  if (!request.split.empty()) names = SplitNames(request, model.parts.size());
  if (!request.overwrite && !AllAreNew(names)) return kUnusable;
  if (!names.empty() && !WriteParts(request, model, names)) return kUnusable;
  Tell(request, model, healing, names);
  if (model.parts.empty()) {
    TellError(request.file, model.obstacle);
    return kUnusable;
  }
  return drawing::LeavesNothingOut(model) ? kSame : kDifferent;
}

}  // namespace ktrcl
