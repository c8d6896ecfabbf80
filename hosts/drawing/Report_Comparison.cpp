#include "drawing/Report.h"
#include "drawing/TextTable.h"

#include <cstddef>
#include <map>
#include <string>

namespace drawing {

namespace {

std::string SenseText(GXLAContour::eReversedGeometry sense) {
  switch (sense) {
    case GXLAContour::eGeometryForward:
      return "forward";
    case GXLAContour::eGeometryBackward:
      return "backward";
    case GXLAContour::eGeometryNotSet:
      break;
  }
  return "not set";
}

// Of the cut-outs, those that lie in other cut-outs: " (2 at depth 2, 1 at depth 3)".
std::string DeepText(const PartModel& part) {
  std::map<std::size_t, std::size_t> counts;
  for (const auto& cutOut : part.cutOuts) ++counts[cutOut->source->depth];
  std::string text;
  for (const auto& [depth, count] : counts) {
    if (depth < 2) continue;
    text +=
        (text.empty() ? " (" : ", ") + std::to_string(count) + " at depth " + std::to_string(depth);
  }
  return text.empty() ? text : text + ")";
}

// "part 2 of 5, " where one was chosen.
std::string ChoiceText(const PartModel& part) {
  if (part.number == kWholeDrawing) return "";
  return "part " + std::to_string(part.number) + " of " + std::to_string(part.parts.size()) + ", ";
}

std::string PartLine(const char* name, const PartModel& part, const HealingSummary& healing) {
  const Drawing& drawing = part.drawing;
  std::string text = std::string(name) + "  " + drawing.file + ": " + ChoiceText(part) +
                     "outer contour of " + std::to_string(part.outer->elements.size()) +
                     " elements, perimeter " + Millimetres(part.outer->source->perimeter) +
                     ", surface " + Millimetres(part.outer->source->surface) + ", " +
                     std::to_string(part.cutOuts.size()) + " cut-outs" + DeepText(part) +
                     ", unit " + drawing.unit.name + " (" + drawing.unit.source + ")\n";
  const std::string healed = HealingSummaryText(healing);
  if (!healed.empty()) text += "   healed: " + healed + "\n";
  for (const auto& contour : part.contours) {
    if (!contour->usable) text += "   left out: " + contour->obstacle + "\n";
  }
  for (const Crossing& crossing : part.crossings) text += "   " + CrossingText(crossing) + "\n";
  if (!drawing.unusedByType.empty()) {
    text += "   not usable yet:";
    for (const auto& [type, count] : drawing.unusedByType) {
      text += " " + type + " " + std::to_string(count);
    }
    text += "\n";
  }
  return text;
}

// The place at which a cut-out is named: the middle of its box.
std::string PlaceOf(const PartModel& part, std::size_t cutOut) {
  const Box& box = part.cutOuts[cutOut]->source->box;
  return Position(0.5 * (box.minX + box.maxX), 0.5 * (box.minY + box.maxY));
}

std::string FiguresText(const Comparison& comparison) {
  TextTable table("lrrrrl");
  table.Row({"", "A", "B", "difference", "limit", ""});
  for (const Figure& figure : comparison.figures) {
    const std::string word = !figure.checked ? "not looked at" : figure.agrees ? "" : "differs";
    table.Row({figure.name, figure.a, figure.b, Millimetres(figure.difference),
               Millimetres(figure.limit), word});
  }
  return "Outer contours, figures in the order of the funnel\n" + table.Print("  ");
}

std::string StartsText(const Comparison& comparison) {
  if (comparison.starts.empty()) return "";
  std::string text = "Matched start positions in B for position " +
                     std::to_string(comparison.referencePosition) +
                     " in A, walked: " + SenseText(comparison.sense) + "\n";
  TextTable table("rlllll");
  for (std::size_t i = 0; i < comparison.starts.size(); ++i) {
    const MatchedStart& start = comparison.starts[i];
    table.Row({std::to_string(start.position),
               "turn " + Millimetres(start.motion.AngleDegrees()) + " degrees",
               "shift " + Position(start.motion.shiftX, start.motion.shiftY),
               "outline off by " + Millimetres(start.outerDeviation) + " mm",
               "partners " + std::to_string(start.partnersFound),
               i == comparison.bestStart ? "best" : ""});
  }
  return text + table.Print("  ");
}

std::string GroupsText(const Comparison& comparison) {
  if (comparison.groups.empty()) return "No cut-outs on either side\n";
  TextTable table("rrll");
  table.Row({"A", "B", "", ""});
  for (const CutOutGroup& group : comparison.groups) {
    table.Row({std::to_string(group.a.size()), std::to_string(group.b.size()), group.description,
               group.a.size() == group.b.size() ? "" : "counts differ"});
  }
  return std::string("Groups of cut-outs (the library calls the structure ") +
         (comparison.libraryStructureEqual ? "equal" : "not equal") + ")\n" + table.Print("  ");
}

std::string PartnersText(const PartModel& a, const PartModel& b, const Comparison& comparison) {
  std::string text = "Partners of the cut-outs of A\n";
  TextTable table("rlll");
  for (const Partner& partner : comparison.partners) {
    const std::string number = std::to_string(partner.a + 1);
    const std::string distances =
        std::string("two-distance test ") + (partner.twoDistanceTest ? "agrees" : "fails");
    if (partner.found) {
      table.Row({number, PlaceOf(a, partner.a) + " -> " + PlaceOf(b, partner.b),
                 "off by " + Millimetres(partner.deviation) + " mm", distances});
    } else {
      const bool hasNearest = partner.b != kNoCutOut;
      table.Row({number, PlaceOf(a, partner.a) + " has no partner",
                 hasNearest ? "nearest off by " + Millimetres(partner.deviation) + " mm" : "", ""});
    }
  }
  text += table.Print("  ");
  for (const std::size_t index : comparison.unmatchedInB) {
    text += "  in B " + PlaceOf(b, index) + " is nobody's partner\n";
  }
  return text;
}

std::string OwnVerdictText(const GeometricVerdict& own) {
  return std::string(own.same ? "same" : "different") + ", " + PlacementText(own);
}

std::string MirrorImageText(const Judgement& judgement) {
  if (judgement.mirrorImage == nullptr) return "";
  const DoubleVerdict& image = *judgement.mirrorImage;
  std::string text = "Mirror image: " + image.comparison.verdict + "\n";
  text += "Mirror image by places alone: " + OwnVerdictText(image.own) + "\n";
  if (!image.disagreement.empty()) text += "The two disagree: " + image.disagreement + "\n";
  return text;
}

std::string VerdictsText(const Judgement& judgement) {
  const DoubleVerdict& verdict = judgement.verdict;
  std::string text = verdict.comparison.verdict + "\n";
  text += "Decided by: " + std::string(StepName(verdict.comparison.step)) + "\n";
  text += "By places alone: " + OwnVerdictText(verdict.own) + "\n";
  if (!verdict.disagreement.empty()) text += "The two disagree: " + verdict.disagreement + "\n";
  return text + MirrorImageText(judgement);
}

nlohmann::json FigureJson(const Figure& figure) {
  return {{"name", figure.name},    {"a", figure.a},
          {"b", figure.b},          {"difference", figure.difference},
          {"limit", figure.limit},  {"checked", figure.checked},
          {"agrees", figure.agrees}};
}

nlohmann::json StartJson(const MatchedStart& start) {
  return {{"position", start.position},
          {"turnDegrees", start.motion.AngleDegrees()},
          {"shift", {start.motion.shiftX, start.motion.shiftY}},
          {"outerDeviation", start.outerDeviation},
          {"partnersFound", start.partnersFound}};
}

nlohmann::json PartnerJson(const Partner& partner) {
  nlohmann::json json = {{"a", partner.a}, {"found", partner.found}};
  if (partner.found) {
    json["b"] = partner.b;
    json["deviation"] = partner.deviation;
    json["twoDistanceTest"] = partner.twoDistanceTest;
  }
  return json;
}

nlohmann::json IndexJson(std::size_t cutOut) {
  return cutOut == kNoCutOut ? nlohmann::json() : nlohmann::json(cutOut);
}

nlohmann::json OwnVerdictJson(const DoubleVerdict& verdict) {
  const GeometricVerdict& own = verdict.own;
  const RigidMotion& motion = own.placement.motion;
  nlohmann::json cutOuts = nlohmann::json::array();
  for (const ContourDeviation& cutOut : own.cutOuts) {
    cutOuts.push_back({{"a", IndexJson(cutOut.a)},
                       {"b", IndexJson(cutOut.b)},
                       {"deviation", cutOut.deviation},
                       {"place", {cutOut.place.X, cutOut.place.Y}}});
  }
  return {{"same", own.same},
          {"mirrored", own.placement.mirrored},
          {"turnDegrees", motion.AngleDegrees()},
          {"shift", {motion.shiftX, motion.shiftY}},
          {"outerDeviation", own.outerDeviation},
          {"outerPlace", {own.outerPlace.X, own.outerPlace.Y}},
          {"largestDeviation", own.largestDeviation},
          {"cutOuts", cutOuts},
          {"disagreement", verdict.disagreement}};
}

nlohmann::json PartJson(const PartModel& part, const HealingSummary& healing) {
  nlohmann::json json = InfoJson(part);
  json["healing"] = HealingSummaryJson(healing);
  json["part"]["number"] =
      part.number == kWholeDrawing ? nlohmann::json() : nlohmann::json(part.number);
  json["part"]["of"] = part.parts.size();
  return json;
}

// What the library's comparison found.
nlohmann::json FoundJson(const Comparison& comparison) {
  nlohmann::json json = {{"same", comparison.same},
                         {"verdict", comparison.verdict},
                         {"step", StepName(comparison.step)},
                         {"sense", SenseText(comparison.sense)},
                         {"referencePosition", comparison.referencePosition},
                         {"libraryStructureEqual", comparison.libraryStructureEqual},
                         {"largestDeviation", comparison.largestDeviation},
                         {"unmatchedInB", comparison.unmatchedInB},
                         {"trace", comparison.trace}};
  for (const char* list : {"figures", "starts", "groups", "partners"}) {
    json[list] = nlohmann::json::array();
  }
  for (const Figure& figure : comparison.figures) json["figures"].push_back(FigureJson(figure));
  for (const MatchedStart& start : comparison.starts) json["starts"].push_back(StartJson(start));
  for (const CutOutGroup& group : comparison.groups) {
    json["groups"].push_back({{"description", group.description}, {"a", group.a}, {"b", group.b}});
  }
  for (const Partner& partner : comparison.partners) {
    json["partners"].push_back(PartnerJson(partner));
  }
  return json;
}

}  // namespace

std::string ComparisonText(const ComparisonTold& told, bool positions) {
  const PartModel& a = told.a;
  const PartModel& b = told.judgement.Compared(told.b);
  const Comparison& comparison = told.judgement.verdict.comparison;
  std::string text = VerdictsText(told.judgement) + "\n";
  text += PartLine("A", a, told.healingA) + PartLine("B", b, told.healingB);
  if (told.judgement.mirrored) text += "   turned over: x is negated in all places of B below\n";
  text += "\n";
  text += FiguresText(comparison);
  text += StartsText(comparison);
  text += GroupsText(comparison);
  if (positions && !comparison.starts.empty()) text += PartnersText(a, b, comparison);
  if (!comparison.trace.empty()) {
    text += "The library's words\n";
    for (const std::string& line : comparison.trace) text += "  " + line + "\n";
  }
  return text;
}

nlohmann::json ComparisonJson(const ComparisonTold& told) {
  const Judgement& judgement = told.judgement;
  nlohmann::json json = FoundJson(judgement.verdict.comparison);
  json["mirrored"] = judgement.mirrored;
  json["own"] = OwnVerdictJson(judgement.verdict);
  json["a"] = PartJson(told.a, told.healingA);
  json["b"] = PartJson(judgement.Compared(told.b), told.healingB);
  if (judgement.mirrorImage == nullptr) return json;
  const DoubleVerdict& image = *judgement.mirrorImage;
  json["mirrorImage"] = {{"same", image.comparison.same},
                         {"verdict", image.comparison.verdict},
                         {"step", StepName(image.comparison.step)},
                         {"own", OwnVerdictJson(image)}};
  return json;
}

}  // namespace drawing
