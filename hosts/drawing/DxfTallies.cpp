#include "drawing/DxfTallies.h"

#include <map>
#include <string>

namespace drawing {
namespace {

constexpr int kMostNames = 5;

void TellTally(Drawing& drawing, const DxfTally& tally, Severity severity, const char* one,
               const char* many, const char* done) {
  if (tally.count == 0) return;
  const char* noun = tally.count == 1 ? one : many;
  Complain(drawing, severity, tally.firstLine, nullptr, std::to_string(tally.count) + " " + noun,
           done);
}

int Sum(const std::map<std::string, int>& counts) {
  int sum = 0;
  for (const auto& entry : counts) sum += entry.second;
  return sum;
}

// "the layer "cut"", "the layers "0" and "cut"", "the layers "0", "a" and 3 more".
std::string LayersText(const std::map<std::string, int>& layers) {
  const int count = static_cast<int>(layers.size());
  std::string text = count == 1 ? "the layer " : "the layers ";
  int told = 0;
  for (const auto& entry : layers) {
    if (told > 0) text += told + 1 == count ? " and " : ", ";
    text += "\"" + entry.first + "\"";
    if (++told < kMostNames || told + 1 >= count) continue;
    return text + " and " + std::to_string(count - told) + " more";
  }
  return text;
}

void TellHidden(Drawing& drawing, const DxfTally& tally) {
  if (tally.count == 0) return;
  const bool one = drawing.hiddenByLayer.size() == 1;
  Complain(drawing, Severity::kWarning, tally.firstLine, nullptr,
           std::to_string(tally.count) + (tally.count == 1 ? " entity" : " entities") + " on " +
               LayersText(drawing.hiddenByLayer) + (one ? " that is" : " that are") +
               " off or frozen",
           "left out");
}

// A viewport only shows the model space; there is one in nearly every layout.
void TellPaperSpace(Drawing& drawing, const DxfTally& tally) {
  std::string list;
  for (const auto& [type, count] : drawing.paperSpaceByType) {
    if (!list.empty()) list += ", ";
    list += type + " " + std::to_string(count);
  }
  if (list.empty()) return;
  if (drawing.paperSpaceByType.size() == 1 && drawing.paperSpaceByType.count("VIEWPORT") == 1) {
    return;
  }
  const int sum = Sum(drawing.paperSpaceByType);
  Complain(
      drawing, Severity::kNote, tally.firstLine, nullptr,
      std::to_string(sum) + (sum == 1 ? " entity" : " entities") + " in the paper space: " + list,
      "left out");
}

}  // namespace

void DxfTally::Add(std::size_t line) {
  if (count == 0) firstLine = line;
  ++count;
}

void DxfTallies::Tell(Drawing& drawing) const {
  TellTally(drawing, heights, Severity::kWarning, "entity has a height other than z = 0, here",
            "entities have heights other than z = 0, the first one here", "projected along z");
  TellTally(drawing, widths, Severity::kNote, "polyline has a width, here",
            "polylines have a width, the first one here", "the centre line is used");
  TellTally(drawing, flatSides, Severity::kNote, "polyline has a bulge too flat for an arc, here",
            "polylines have bulges too flat for an arc, the first one here",
            "such sides are straight lines");
  TellTally(drawing, shortArcs, Severity::kNote,
            "entity has an arc too short to be told from a circle, here",
            "entities have arcs too short to be told from circles, the first one here",
            "such arcs are straight lines");
  TellTally(drawing, nearCircles, Severity::kNote,
            "entity has an arc whose ends are within 0.0001 mm, here",
            "entities have arcs whose ends are within 0.0001 mm, the first one here",
            "such arcs count as circles");
  TellTally(drawing, guessedText, Severity::kNote,
            "entity has a layer name that is not UTF-8, here",
            "entities have layer names that are not UTF-8, the first one here", "taken as Latin-1");
  TellTally(drawing, lostText, Severity::kNote,
            "entity has a name with bytes that mean nothing in the encoding of the file, here",
            "entities have names with bytes that mean nothing in the encoding of the file, the "
            "first one here",
            "replaced by U+FFFD");
  TellTally(drawing, invisible, Severity::kNote, "entity is marked as invisible, here",
            "entities are marked as invisible, the first one here", "used all the same");
  TellHidden(drawing, hidden);
  TellPaperSpace(drawing, paperSpace);
}

}  // namespace drawing
