#include "drawing/Report.h"

#include "drawing/CircleGroups.h"
#include "drawing/DrawingHealing.h"
#include "drawing/NumberText.h"
#include "drawing/TextTable.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace drawing {

namespace {

// Of very many a text names so many one by one.
constexpr std::size_t kNamed = 20;

std::string LayerOf(const Drawing& drawing, std::size_t element) {
  const std::size_t entity = drawing.elements[element].entity;
  return entity < drawing.entities.size() ? drawing.entities[entity].layer : "";
}

// Layers of the elements of a part, in the order of their names.
std::set<std::string> LayersOf(const PartModel& model, const DrawingPart& part) {
  std::set<std::string> layers;
  for (const std::size_t element : ElementsOf(model, part)) {
    layers.insert(LayerOf(model.drawing, element));
  }
  return layers;
}

std::string Joined(const std::set<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
  return text;
}

std::string SizeText(const Box& box) {
  return ShortNumber(box.maxX - box.minX) + " x " + ShortNumber(box.maxY - box.minY);
}

// The sums over all parts.
struct Totals {
  double area = 0.0;
  double perimeter = 0.0;
  std::size_t pierces = 0;
};

Totals TotalsOf(const std::vector<DrawingPart>& parts) {
  Totals totals;
  for (const DrawingPart& part : parts) {
    totals.area += part.area;
    totals.perimeter += part.perimeter;
    totals.pierces += part.pierces;
  }
  return totals;
}

// Areas of such a part are sums of what overlaps.
bool HasCrossing(const PartModel& model, const DrawingPart& part) {
  const auto isIn = [&](std::size_t contour) {
    return contour == part.outer ||
           std::binary_search(part.cutOuts.begin(), part.cutOuts.end(), contour);
  };
  return std::any_of(model.crossings.begin(), model.crossings.end(), [&](const Crossing& crossing) {
    return isIn(crossing.first) || isIn(crossing.second);
  });
}

std::string PartsTable(const PartModel& model) {
  if (model.parts.empty()) return "";
  TextTable table("rrlllrlrrrll");
  table.Row({"part", "contour", "from", "to", "size", "cut-outs", "island in", "area", "perimeter",
             "pierces", "layers", ""});
  for (std::size_t i = 0; i < model.parts.size(); ++i) {
    const DrawingPart& part = model.parts[i];
    const Box& box = part.box;
    table.Row({std::to_string(i + 1), std::to_string(part.outer + 1),
               PlaceText({box.minX, box.minY}), PlaceText({box.maxX, box.maxY}), SizeText(box),
               std::to_string(part.cutOuts.size()),
               part.islandIn == kNoPart ? "" : "part " + std::to_string(part.islandIn + 1),
               Millimetres(part.area), Millimetres(part.perimeter), std::to_string(part.pierces),
               Joined(LayersOf(model, part)), HasCrossing(model, part) ? "contours cross" : ""});
  }
  const Totals totals = TotalsOf(model.parts);
  table.Row({"all", "", "", "", "", "", "", Millimetres(totals.area), Millimetres(totals.perimeter),
             std::to_string(totals.pierces)});
  return table.Print("  ");
}

std::string CirclesText(const PartModel& model) {
  const std::vector<CircleGroup> groups = FindCircleGroups(model.contours);
  if (groups.empty()) return "";
  TextTable table("lrr");
  for (const CircleGroup& group : groups) {
    table.Row({"diameter", ShortNumber(group.diameter), std::to_string(group.contours.size())});
  }
  return "Equal circles\n" + table.Print("  ");
}

std::string FirstLines(const std::vector<std::string>& lines) {
  std::string text;
  for (std::size_t i = 0; i < std::min(lines.size(), kNamed); ++i) text += "  " + lines[i] + "\n";
  if (lines.size() > kNamed) {
    text += "  and " + std::to_string(lines.size() - kNamed) + " more; JSON has them all\n";
  }
  return text;
}

std::string LeftOutText(const PartModel& model) {
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < model.contours.size(); ++i) {
    const Contour& contour = *model.contours[i];
    if (contour.usable) continue;
    lines.push_back("contour " + std::to_string(i + 1) + ", " +
                    CountText(contour.origins.size(), "element") + " from " +
                    EntityText(model.drawing, contour.origins.front()) + ": " + contour.obstacle);
  }
  for (std::size_t i = 0; i < model.contours.size(); ++i) {
    const Contour& contour = *model.contours[i];
    if (!contour.usable || contour.coincidesWith == kNoContour) continue;
    lines.push_back("contour " + std::to_string(i + 1) + " lies all along on contour " +
                    std::to_string(contour.coincidesWith + 1));
  }
  return lines.empty() ? "" : "In no part\n" + FirstLines(lines);
}

std::string CrossingsText(const PartModel& model) {
  std::vector<std::string> lines;
  for (const Crossing& crossing : model.crossings) lines.push_back(CrossingText(crossing));
  return lines.empty() ? "" : "Crossings, which are reported and not nested\n" + FirstLines(lines);
}

nlohmann::json PartJson(const PartModel& model, const DrawingPart& part) {
  const auto index = [](std::size_t i) {
    return i == kNoPart ? nlohmann::json() : nlohmann::json(i);
  };
  return {{"outer", part.outer},
          {"cutOuts", part.cutOuts},
          {"islandIn", index(part.islandIn)},
          {"area", part.area},
          {"perimeter", part.perimeter},
          {"pierces", part.pierces},
          {"box", {part.box.minX, part.box.minY, part.box.maxX, part.box.maxY}},
          {"layers", LayersOf(model, part)},
          {"crosses", HasCrossing(model, part)}};
}

}  // namespace

bool LeavesNothingOut(const PartModel& model) {
  return model.drawing.refusedByType.empty() && model.crossings.empty() &&
         std::all_of(model.contours.begin(), model.contours.end(), [](const auto& contour) {
           return contour->usable && contour->coincidesWith == kNoContour;
         });
}

std::vector<std::size_t> ElementsOf(const PartModel& model, const DrawingPart& part) {
  std::vector<std::size_t> elements = model.contours[part.outer]->origins;
  for (const std::size_t cutOut : part.cutOuts) {
    const std::vector<std::size_t>& origins = model.contours[cutOut]->origins;
    elements.insert(elements.end(), origins.begin(), origins.end());
  }
  std::sort(elements.begin(), elements.end());
  return elements;
}

std::string PartsText(const PartModel& model, const HealingSummary& healing) {
  const Drawing& drawing = model.drawing;
  const std::string healed = HealingSummaryText(healing);
  std::string text = drawing.file + ": " + CountText(model.parts.size(), "part") + "\n";
  TextTable head("ll");
  head.Row({"unit", drawing.unit.name + " (" + drawing.unit.source + ")"});
  head.Row({"healed", healing.gap == 0.0 ? "no, taken as drawn"
                      : healed.empty()   ? "nothing to change"
                                         : healed});
  return text + head.Print("  ") + PartsTable(model) + LeftOutText(model) + CrossingsText(model) +
         CirclesText(model);
}

nlohmann::json PartsJson(const PartModel& model, const HealingSummary& healing) {
  nlohmann::json json = InfoJson(model);
  json.erase("part");
  json["healing"] = HealingSummaryJson(healing);
  for (const char* const list : {"parts", "leftOut", "coincident", "circles"}) {
    json[list] = nlohmann::json::array();
  }
  for (const DrawingPart& part : model.parts) json["parts"].push_back(PartJson(model, part));
  const Totals totals = TotalsOf(model.parts);
  json["totals"] = {{"parts", model.parts.size()},
                    {"area", totals.area},
                    {"perimeter", totals.perimeter},
                    {"pierces", totals.pierces}};
  for (std::size_t i = 0; i < model.contours.size(); ++i) {
    const Contour& contour = *model.contours[i];
    if (!contour.usable) {
      json["leftOut"].push_back({{"contour", i}, {"why", contour.obstacle}});
    } else if (contour.coincidesWith != kNoContour) {
      json["coincident"].push_back({{"contour", i}, {"with", contour.coincidesWith}});
    }
  }
  for (const CircleGroup& group : FindCircleGroups(model.contours)) {
    json["circles"].push_back({{"diameter", group.diameter}, {"contours", group.contours}});
  }
  return json;
}

}  // namespace drawing
