#include "drawing/NumberText.h"
#include "drawing/PreflightFindings.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace drawing {

namespace {

// What can be a part of an outline, and is lost where it cannot be used. The rest is writing,
// measuring, filling and what stands in space.
constexpr std::array<std::string_view, 10> kOutlineTypes = {
    "3DFACE", "ACAD_PROXY_ENTITY", "ARC_DIMENSION", "BODY",   "HELIX", "INSERT",
    "MLINE",  "POLYLINE (mesh)",   "REGION",        "SURFACE"};

// The reader says the same of every unit that it had to assume.
constexpr std::string_view kTakenAsMillimetres = "lengths are taken as millimetres";

void AddPlain(FindingKind kind, bool counts, std::string what, std::vector<Finding>& findings) {
  Finding finding;
  finding.kind = kind;
  finding.counts = counts;
  finding.what = std::move(what);
  findings.push_back(std::move(finding));
}

bool IsAboutUnit(const Drawing& drawing, const Complaint& complaint) {
  return drawing.unit.assumed && complaint.entity.empty() && complaint.done == kTakenAsMillimetres;
}

// That there is nothing to cut is a finding of its own.
bool IsAboutNothing(const Drawing& drawing, const Complaint& complaint) {
  return drawing.elements.empty() && complaint.line == 0 && complaint.done.empty();
}

// What stands on hidden layers and in paper space is told with its counts.
bool IsAboutLeftOut(const Drawing& drawing, const Complaint& complaint) {
  if (!complaint.entity.empty() || complaint.done != "left out") return false;
  return !drawing.hiddenByLayer.empty() || !drawing.paperSpaceByType.empty();
}

// What has no length is told with its place, not as damage.
class ZeroLengths {
 public:
  explicit ZeroLengths(const Drawing& drawing) {
    for (const ZeroLengthEntity& zero : drawing.zeroLength) {
      entities_.emplace(zero.entity.line, zero.entity.type);
    }
  }

  bool Tell(const Complaint& complaint) const {
    return complaint.what.find("length") != std::string::npos &&
           entities_.count({complaint.line, complaint.entity}) > 0;
  }

 private:
  std::set<std::pair<std::size_t, std::string>> entities_;
};

std::string ComplaintText(const Complaint& complaint) {
  Complaint nameless = complaint;
  nameless.file = complaint.line > 0 ? "line" : "file";
  std::string text = ToLine(nameless);
  const std::string severity = std::string(SeverityName(complaint.severity)) + ": ";
  const std::size_t at = text.find(severity);
  if (at != std::string::npos) text.erase(at, severity.size());
  if (complaint.line > 0) text.replace(4, 1, " ");
  return text;
}

void AddUnit(const Drawing& drawing, std::vector<Finding>& findings) {
  if (!drawing.unit.assumed) return;
  bool counts = false;
  std::string what = "the drawing names no unit, lengths are taken as millimetres";
  for (const Complaint& complaint : drawing.complaints) {
    if (!IsAboutUnit(drawing, complaint)) continue;
    counts = complaint.severity != Severity::kNote;
    what = complaint.what + ", " + complaint.done;
    break;
  }
  AddPlain(FindingKind::kUnit, counts, std::move(what), findings);
}

void AddNotUsed(const Drawing& drawing, std::vector<Finding>& findings) {
  if (drawing.elements.empty()) {
    AddPlain(FindingKind::kNotUsed, true, "there is no line, arc or curve that can be cut",
             findings);
  }
  for (const auto& [type, count] : drawing.unusedByType) {
    const bool counts =
        std::find(kOutlineTypes.begin(), kOutlineTypes.end(), type) != kOutlineTypes.end();
    AddPlain(FindingKind::kNotUsed, counts,
             std::to_string(count) + " " + type + " not used" +
                 (counts ? "; it may be part of an outline" : ""),
             findings);
  }
  for (const auto& [layer, count] : drawing.hiddenByLayer) {
    AddPlain(FindingKind::kNotUsed, false,
             std::to_string(count) + " on layer " + layer + ", off or frozen, left out", findings);
  }
  for (const auto& [type, count] : drawing.paperSpaceByType) {
    AddPlain(FindingKind::kNotUsed, false,
             std::to_string(count) + " " + type + " in paper space left out", findings);
  }
}

}  // namespace

void AddFileFindings(const Drawing& drawing, std::vector<Finding>& findings) {
  AddUnit(drawing, findings);
  AddNotUsed(drawing, findings);
  const ZeroLengths zeroLengths(drawing);
  for (const bool remarks : {false, true}) {
    for (const Complaint& complaint : drawing.complaints) {
      const bool isRemark = complaint.severity == Severity::kNote;
      if (isRemark != remarks) continue;
      if (IsAboutUnit(drawing, complaint) || IsAboutNothing(drawing, complaint)) continue;
      if (IsAboutLeftOut(drawing, complaint) || zeroLengths.Tell(complaint)) continue;
      AddPlain(isRemark ? FindingKind::kRemark : FindingKind::kDamage, !isRemark,
               ComplaintText(complaint), findings);
    }
  }
}

}  // namespace drawing
