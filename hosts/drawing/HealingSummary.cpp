#include "drawing/HealingSummary.h"

#include "drawing/NumberText.h"

#include <utility>

namespace drawing {

namespace {

std::string KindText(ChangeKind kind, std::size_t count) {
  switch (kind) {
    case ChangeKind::kZeroLengthDropped:
      return std::to_string(count) + " without length left out";
    case ChangeKind::kDuplicateRemoved:
      return CountText(count, "duplicate") + " removed";
    case ChangeKind::kContainedRemoved:
      return CountText(count, "element") + " within others removed";
    case ChangeKind::kEndsJoined:
      return CountText(count, "pair") + " of ends joined";
    case ChangeKind::kEndsSnapped:
      return CountText(count, "joint") + " made exact";
    case ChangeKind::kBecameCircle:
      return CountText(count, "arc") + " made a full circle";
    default:
      return std::string(ChangeKindName(kind)) + " " + std::to_string(count);
  }
}

// Rounded up, so that no more is promised than was measured.
std::string MovementText(double movement) { return RoundedUp(movement) + " mm"; }

}  // namespace

Drawing HealedForParts(Drawing drawing, double gap, HealingSummary& summary) {
  summary = {};
  if (!drawing.usable || !(gap > 0.0)) return drawing;
  HealOptions options;
  options.gap = gap;
  options.cleanUp = false;
  HealedDrawing healed = HealDrawing(drawing, options);
  summary.gap = gap;
  summary.largestMovement = healed.largestMovement;
  for (const Change& change : healed.changes) {
    if (change.kind != ChangeKind::kPutInOrder) ++summary.counts[change.kind];
  }
  return std::move(healed.drawing);
}

std::string HealingSummaryText(const HealingSummary& summary) {
  std::string text;
  for (const auto& [kind, count] : summary.counts) text += KindText(kind, count) + ", ";
  if (text.empty()) return text;
  if (summary.largestMovement == 0.0) return text + "nothing moved";
  return text + "nothing moved by more than " + MovementText(summary.largestMovement);
}

nlohmann::json HealingSummaryJson(const HealingSummary& summary) {
  nlohmann::json changes = nlohmann::json::object();
  for (const auto& [kind, count] : summary.counts) changes[ChangeKindName(kind)] = count;
  return {{"gap", summary.gap}, {"changes", changes}, {"largestMovement", summary.largestMovement}};
}

}  // namespace drawing
