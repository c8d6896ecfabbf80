#include "drawing/Report.h"

#include "drawing/NumberText.h"
#include "drawing/TextTable.h"

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace drawing {

namespace {

// A movement within the tolerance of 0.0001 mm is still to be seen.
constexpr int kMovementDecimals = 6;

std::string CountsText(const std::map<std::string, int>& counts) {
  std::string text;
  for (const auto& [name, count] : counts) {
    if (!text.empty()) text += ", ";
    text += name + " " + std::to_string(count);
  }
  return text.empty() ? "none" : text;
}

// Rounded up, so that no more is promised than was measured.
std::string DeviationText(double deviation) {
  constexpr double kStep = 10000.0;
  return Millimetres(std::ceil(deviation * kStep) / kStep);
}

std::string UnitText(const Unit& unit) { return unit.name + " (" + unit.source + ")"; }

std::string BoxText(const Box& box) {
  return Position(box.minX, box.minY) + " to " + Position(box.maxX, box.maxY);
}

const char* DirectionText(const Contour& contour) { return contour.clockwise ? "CW" : "CCW"; }

std::string DepthText(const Contour& contour) {
  std::string text = "depth " + std::to_string(contour.depth);
  if (contour.parent != kNoContour) text += " in " + std::to_string(contour.parent + 1);
  return text;
}

// What a person should know of a contour beside its figures.
std::string RemarkText(const Contour& contour) {
  std::string text = contour.obstacle;
  const auto add = [&](const std::string& remark) {
    if (!text.empty()) text += "; ";
    text += remark;
  };
  if (contour.coincidesWith != kNoContour) {
    add("coincides with " + std::to_string(contour.coincidesWith + 1));
  }
  if (contour.healing.joinedEnds > 0) {
    add("healed: " + CountText(contour.healing.joinedEnds, "joint") + " closed, moved by at most " +
        FixedNumber(contour.healing.largestMovement, kMovementDecimals) + " mm");
  }
  return text;
}

std::string ContourTable(const PartModel& part) {
  TextTable table("rlrlllllll");
  for (std::size_t i = 0; i < part.contours.size(); ++i) {
    const Contour& contour = *part.contours[i];
    const std::string elements = contour.elements.size() == 1 ? "element" : "elements";
    table.Row({std::to_string(i + 1), contour.closed ? "closed" : "open",
               std::to_string(contour.elements.size()), elements,
               contour.usable ? DirectionText(contour) : "",
               contour.usable ? DepthText(contour) : "",
               "perimeter " + Millimetres(contour.perimeter),
               contour.closed ? "surface " + Millimetres(contour.surface) : "",
               "box " + BoxText(contour.box), RemarkText(contour)});
  }
  return table.Print("    ");
}

// "12 curves became 84 arcs and 31 lines, at most 0.0093 mm from the curve".
std::string CurvesText(const CurveSummary& summary) {
  std::vector<std::string> kinds;
  if (summary.circles > 0) kinds.push_back(CountText(summary.circles, "circle"));
  if (summary.arcs > 0) kinds.push_back(CountText(summary.arcs, "arc"));
  if (summary.lines > 0) kinds.push_back(CountText(summary.lines, "line"));
  std::string text = CountText(summary.curves, "curve") + " became ";
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    if (i > 0) text += i + 1 == kinds.size() ? " and " : ", ";
    text += kinds[i];
  }
  return text + ", at most " + DeviationText(summary.largestDeviation) + " mm from the curve";
}

std::size_t CountClosed(const PartModel& part) {
  std::size_t closed = 0;
  for (const auto& contour : part.contours) closed += contour->closed ? 1 : 0;
  return closed;
}

nlohmann::json IndexJson(std::size_t contour) {
  return contour == kNoContour ? nlohmann::json() : nlohmann::json(contour);
}

nlohmann::json ContourJson(const Contour& contour) {
  nlohmann::json json = {
      {"closed", contour.closed},
      {"usable", contour.usable},
      {"obstacle", contour.obstacle},
      {"elements", contour.elements.size()},
      {"perimeter", contour.perimeter},
      {"area", contour.surface},
      {"box", {contour.box.minX, contour.box.minY, contour.box.maxX, contour.box.maxY}},
      {"healing",
       {{"joints", contour.healing.joinedEnds},
        {"largestMovement", contour.healing.largestMovement}}}};
  if (!contour.usable) return json;
  json["direction"] = DirectionText(contour);
  json["depth"] = contour.depth;
  json["parent"] = IndexJson(contour.parent);
  json["coincidesWith"] = IndexJson(contour.coincidesWith);
  return json;
}

nlohmann::json CrossingJson(const Crossing& crossing) {
  nlohmann::json points = nlohmann::json::array();
  for (const GX2DPoint& p : crossing.points) points.push_back({p.X, p.Y});
  return {{"contours", {crossing.first, crossing.second}}, {"points", points}};
}

nlohmann::json ComplaintJson(const Complaint& complaint) {
  return {{"file", complaint.file},
          {"line", complaint.line},
          {"entity", complaint.entity},
          {"handle", complaint.handle},
          {"what", complaint.what},
          {"done", complaint.done},
          {"severity", SeverityName(complaint.severity)}};
}

}  // namespace

std::string Millimetres(double value) {
  char text[400];
  std::snprintf(text, sizeof text, "%.4f", value);
  return std::string(text) == "-0.0000" ? "0.0000" : text;
}

std::string Position(double x, double y) {
  return "(" + Millimetres(x) + ", " + Millimetres(y) + ")";
}

std::string InfoText(const PartModel& part) {
  const Drawing& drawing = part.drawing;
  std::string text = drawing.file + "\n";
  if (!drawing.usable) return text + "  not usable: " + drawing.refusal + "\n";
  TextTable head("ll");
  head.Row({"unit", UnitText(drawing.unit)});
  head.Row({"version", drawing.version.empty() ? "not stated" : drawing.version});
  head.Row({"entities", CountsText(drawing.entitiesByType)});
  if (drawing.expandedInserts > 0) {
    head.Row({"out of blocks",
              CountsText(drawing.blockEntitiesByType) + " by " +
                  CountText(static_cast<std::size_t>(drawing.expandedInserts), "INSERT")});
  }
  head.Row({"layers", CountsText(drawing.entitiesByLayer)});
  if (!drawing.unusedByType.empty()) head.Row({"not usable yet", CountsText(drawing.unusedByType)});
  if (!drawing.refusedByType.empty()) head.Row({"refused", CountsText(drawing.refusedByType)});
  if (!drawing.hiddenByLayer.empty()) {
    head.Row({"off or frozen", CountsText(drawing.hiddenByLayer)});
  }
  if (!drawing.paperSpaceByType.empty()) {
    head.Row({"paper space", CountsText(drawing.paperSpaceByType)});
  }
  if (drawing.curves.curves > 0) head.Row({"curves", CurvesText(drawing.curves)});
  const std::size_t closed = CountClosed(part);
  head.Row({"contours", std::to_string(closed) + " closed, " +
                            std::to_string(part.contours.size() - closed) + " open or branching"});
  text += head.Print("  ") + ContourTable(part);
  for (const Crossing& crossing : part.crossings) text += "  " + CrossingText(crossing) + "\n";
  if (!part.usable) text += "  no part: " + part.obstacle + "\n";
  for (const Complaint& complaint : drawing.complaints) text += "  " + ToLine(complaint) + "\n";
  return text;
}

nlohmann::json InfoJson(const PartModel& part) {
  const Drawing& drawing = part.drawing;
  nlohmann::json json = {{"file", drawing.file}, {"usable", drawing.usable}};
  if (!drawing.usable) {
    json["refusal"] = drawing.refusal;
    return json;
  }
  json["unit"] = {{"code", drawing.unit.code},
                  {"name", drawing.unit.name},
                  {"millimetresPerUnit", drawing.unit.millimetresPerUnit},
                  {"source", drawing.unit.source},
                  {"assumed", drawing.unit.assumed}};
  json["version"] = drawing.version;
  json["entities"] = drawing.entitiesByType;
  json["blockEntities"] = drawing.blockEntitiesByType;
  json["expandedInserts"] = drawing.expandedInserts;
  json["layers"] = drawing.entitiesByLayer;
  json["notUsableYet"] = drawing.unusedByType;
  json["refused"] = drawing.refusedByType;
  json["hiddenByLayer"] = drawing.hiddenByLayer;
  json["paperSpace"] = drawing.paperSpaceByType;
  json["curves"] = {{"count", drawing.curves.curves},
                    {"circles", drawing.curves.circles},
                    {"arcs", drawing.curves.arcs},
                    {"lines", drawing.curves.lines},
                    {"tolerance", drawing.curves.tolerance},
                    {"largestDeviation", drawing.curves.largestDeviation}};
  json["contours"] = nlohmann::json::array();
  for (const auto& contour : part.contours) json["contours"].push_back(ContourJson(*contour));
  json["crossings"] = nlohmann::json::array();
  for (const Crossing& crossing : part.crossings)
    json["crossings"].push_back(CrossingJson(crossing));
  json["part"] = {{"usable", part.usable}, {"obstacle", part.obstacle}};
  json["complaints"] = nlohmann::json::array();
  for (const Complaint& complaint : drawing.complaints) {
    json["complaints"].push_back(ComplaintJson(complaint));
  }
  return json;
}

}  // namespace drawing
