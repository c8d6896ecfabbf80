#include "drawing/HealingAccount.h"

#include "drawing/NumberText.h"
#include "drawing/TextTable.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace drawing {

namespace {

// Changes of one kind, and other lines of one sort, that are told one by one.
constexpr std::size_t kTold = 20;

// Movements below this are told as less than it.
constexpr double kLeastTold = 0.0001;

// What follows "moved by".
std::string UpToText(double movement) {
  if (movement < kLeastTold) return "less than " + ShortNumber(kLeastTold) + " mm";
  return "up to " + ShortNumber(movement) + " mm";
}

std::string Headline(const Drawing& asRead, const HealedDrawing& healed,
                     const HealOptions& options) {
  std::string text = asRead.file + ": ";
  if (healed.changes.empty()) {
    text += "no changes";
  } else {
    text += CountText(healed.changes.size(), "change") + ", ";
    text += healed.largestMovement > 0.0 ? "points moved by " + UpToText(healed.largestMovement)
                                         : "nothing moved";
  }
  return text + " (gap " + ShortNumber(options.gap) + " mm)\n";
}

void CountRow(TextTable& table, const char* name, std::size_t before, std::size_t after) {
  table.Row({name, std::to_string(before), std::to_string(after)});
}

void FigureRow(TextTable& table, const char* name, double before, double after) {
  table.Row({name, FixedNumber(before, 3), FixedNumber(after, 3)});
}

std::string FiguresTable(const DrawingFigures& before, const DrawingFigures& after) {
  TextTable table("lrr");
  table.Row({"", "before", "after"});
  CountRow(table, "elements", before.elements, after.elements);
  CountRow(table, "closed contours", before.closed, after.closed);
  CountRow(table, "open", before.open, after.open);
  CountRow(table, "branching", before.branching, after.branching);
  if (before.other + after.other > 0) CountRow(table, "other", before.other, after.other);
  FigureRow(table, "area, mm2", before.area, after.area);
  FigureRow(table, "perimeter, mm", before.perimeter, after.perimeter);
  FigureRow(table, "length of all, mm", before.totalLength, after.totalLength);
  return table.Print("  ");
}

std::string MoreText(std::size_t all) {
  if (all <= kTold) return std::string();
  return "  and " + std::to_string(all - kTold) + " more (see --report or --json)\n";
}

// The changes of one kind, in their order.
std::string KindText(const std::vector<const Change*>& changes) {
  double movement = 0.0;
  for (const Change* change : changes) movement = std::max(movement, change->movement);
  std::string text = ChangeKindName(changes.front()->kind);
  text += ": " + std::to_string(changes.size());
  if (movement > 0.0) text += ", moved by " + UpToText(movement);
  text += "\n";
  const std::size_t told = std::min(changes.size(), kTold);
  for (std::size_t i = 0; i < told; ++i) text += "  " + changes[i]->what + "\n";
  return text + MoreText(changes.size());
}

// The kinds in the order in which they first came, each once.
std::vector<std::vector<const Change*>> ByKind(const std::vector<Change>& changes) {
  std::vector<std::vector<const Change*>> kinds;
  for (const Change& change : changes) {
    const auto kind = std::find_if(kinds.begin(), kinds.end(),
                                   [&](const auto& of) { return of.front()->kind == change.kind; });
    if (kind == kinds.end()) {
      kinds.push_back({&change});
    } else {
      kind->push_back(&change);
    }
  }
  return kinds;
}

std::string NotesText(const std::vector<std::string>& notes) {
  if (notes.empty()) return std::string();
  std::string text = "left as it is:\n";
  const std::size_t told = std::min(notes.size(), kTold);
  for (std::size_t i = 0; i < told; ++i) text += "  " + notes[i] + "\n";
  return text + MoreText(notes.size());
}

nlohmann::json PlaceJson(const GX2DPoint& p) { return nlohmann::json::array({p.X, p.Y}); }

nlohmann::json FiguresJson(const DrawingFigures& figures) {
  return {{"elements", figures.elements},   {"closed", figures.closed},
          {"open", figures.open},           {"branching", figures.branching},
          {"other", figures.other},         {"area", figures.area},
          {"perimeter", figures.perimeter}, {"totalLength", figures.totalLength}};
}

nlohmann::json ChangesJson(const std::vector<Change>& changes) {
  nlohmann::json all = nlohmann::json::array();
  for (const Change& change : changes) {
    all.push_back({{"kind", ChangeKindName(change.kind)},
                   {"elements", change.elements},
                   {"place", PlaceJson(change.place)},
                   {"movement", change.movement},
                   {"what", change.what}});
  }
  return all;
}

nlohmann::json EndJson(const Drawing& drawing, const LooseEnd& end) {
  return {{"element", end.element},
          {"end", end.atStart ? "start" : "end"},
          {"place", PlaceJson(end.point)},
          {"entity", EntityText(drawing, end.element)}};
}

nlohmann::json OpenJson(const HealedDrawing& healed) {
  nlohmann::json all = nlohmann::json::array();
  for (const LooseEndPair& pair : healed.stillOpen) {
    all.push_back({{"first", EndJson(healed.drawing, pair.first)},
                   {"second", EndJson(healed.drawing, pair.second)},
                   {"distance", pair.distance}});
  }
  return all;
}

nlohmann::json OverlapsJson(const HealedDrawing& healed) {
  nlohmann::json all = nlohmann::json::array();
  for (const Overlap& overlap : healed.overlapsLeft) {
    all.push_back({{"kind", OverlapKindName(overlap.kind)},
                   {"elements", {overlap.keeper, overlap.other}},
                   {"length", overlap.length},
                   {"place", PlaceJson(overlap.place)}});
  }
  return all;
}

}  // namespace

std::string HealingText(const Drawing& asRead, const HealedDrawing& healed,
                        const HealOptions& options) {
  std::string text = Headline(asRead, healed, options);
  text += FiguresTable(healed.before, healed.after);
  for (const std::vector<const Change*>& kind : ByKind(healed.changes)) text += KindText(kind);
  return text + NotesText(healed.notes);
}

nlohmann::json HealingJson(const Drawing& asRead, const HealedDrawing& healed,
                           const HealOptions& options) {
  return {{"file", asRead.file},
          {"gap", options.gap},
          {"cleanUp", options.cleanUp},
          {"before", FiguresJson(healed.before)},
          {"after", FiguresJson(healed.after)},
          {"largestMovement", healed.largestMovement},
          {"changes", ChangesJson(healed.changes)},
          {"stillOpen", OpenJson(healed)},
          {"overlapsLeft", OverlapsJson(healed)},
          {"notes", healed.notes}};
}

}  // namespace drawing
