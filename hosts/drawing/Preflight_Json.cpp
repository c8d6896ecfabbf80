#include "drawing/CurveMeasures.h"
#include "drawing/Preflight.h"

#include "drawing/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace drawing {

namespace {

nlohmann::json FiguresJson(const DrawingFigures& figures, const NestingCounts& nesting) {
  return {{"elements", figures.elements},   {"closed", figures.closed},
          {"open", figures.open},           {"branching", figures.branching},
          {"other", figures.other},         {"area", figures.area},
          {"perimeter", figures.perimeter}, {"totalLength", figures.totalLength},
          {"outer", nesting.outer},         {"cutOuts", nesting.cutOuts},
          {"islands", nesting.islands},     {"coincident", nesting.coincident}};
}

nlohmann::json UnitJson(const Unit& unit) {
  return {{"code", unit.code},
          {"name", unit.name},
          {"millimetresPerUnit", unit.millimetresPerUnit},
          {"source", unit.source},
          {"assumed", unit.assumed}};
}

nlohmann::json IndexJson(std::size_t contour) {
  return contour == kNoContour ? nlohmann::json() : nlohmann::json(contour);
}

nlohmann::json ContourJson(const Contour& contour, NetworkKind kind) {
  double perimeter = 0.0;
  for (const GX2DElement* const element : contour.elements) perimeter += ElementLength(*element);
  const Box& box = contour.box;
  nlohmann::json json = {{"kind", NetworkKindName(kind)},
                         {"usable", contour.usable},
                         {"obstacle", contour.obstacle},
                         {"elements", contour.origins},
                         {"box", {box.minX, box.minY, box.maxX, box.maxY}},
                         {"perimeter", perimeter}};
  if (!contour.usable) return json;
  json["area"] = std::fabs(SignedArea(contour.elements));
  json["clockwise"] = contour.clockwise;
  json["depth"] = contour.depth;
  json["parent"] = IndexJson(contour.parent);
  json["coincidesWith"] = IndexJson(contour.coincidesWith);
  return json;
}

nlohmann::json EntityJson(const DrawnEntity& entity) {
  return {{"type", entity.type}, {"handle", entity.handle}, {"layer", entity.layer},
          {"line", entity.line}, {"block", entity.block},   {"insertLine", entity.insertLine}};
}

nlohmann::json EntitiesJson(const Drawing& drawing, const Finding& finding) {
  nlohmann::json entities = nlohmann::json::array();
  std::set<std::size_t> named;
  for (const std::size_t element : finding.elements) {
    const std::size_t entity = drawing.elements[element].entity;
    if (entity < drawing.entities.size() && named.insert(entity).second) {
      entities.push_back(EntityJson(drawing.entities[entity]));
    }
  }
  for (const std::size_t zero : finding.zeroLength) {
    entities.push_back(EntityJson(drawing.zeroLength[zero].entity));
  }
  return entities;
}

nlohmann::json ClosedBy(const Finding& finding) {
  if (!finding.hasPartner) return {};
  const std::string text = RoundedUp(finding.measure);
  double gap = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), gap);
  return gap;
}

nlohmann::json FindingJson(const Drawing& drawing, const Finding& finding) {
  nlohmann::json places = nlohmann::json::array();
  for (const GX2DPoint& place : finding.places) places.push_back({place.X, place.Y});
  nlohmann::json json = {{"kind", FindingKindName(finding.kind)},
                         {"counts", finding.counts},
                         {"what", finding.what},
                         {"places", places},
                         {"elements", finding.elements},
                         {"entities", EntitiesJson(drawing, finding)},
                         {"measure", finding.measure}};
  if (finding.kind != FindingKind::kLooseEnd) return json;
  json["closedBy"] = ClosedBy(finding);
  json["nearest"] = finding.nearest > 0.0 ? nlohmann::json(finding.nearest) : nlohmann::json();
  return json;
}

}  // namespace

nlohmann::json PreflightJson(const Preflight& preflight) {
  const Drawing& drawing = preflight.drawing;
  nlohmann::json json = {{"file", drawing.file}, {"usable", drawing.usable}};
  if (!drawing.usable) {
    json["refusal"] = drawing.refusal;
    return json;
  }
  json["clean"] = preflight.IsClean();
  json["count"] = std::count_if(preflight.findings.begin(), preflight.findings.end(),
                                [](const Finding& finding) { return finding.counts; });
  json["version"] = drawing.version;
  json["unit"] = UnitJson(drawing.unit);
  json["figures"] = FiguresJson(preflight.figures, preflight.nesting);
  json["withoutDoubled"] =
      preflight.hasDoubled ? FiguresJson(preflight.withoutDoubled, preflight.nestingWithoutDoubled)
                           : nlohmann::json();
  json["looseEnds"] = preflight.looseEnds;
  json["closingGap"] =
      preflight.closingGap > 0.0 ? nlohmann::json(preflight.closingGap) : nlohmann::json();
  json["contours"] = nlohmann::json::array();
  for (const auto& contour : preflight.contours) {
    json["contours"].push_back(ContourJson(*contour, preflight.networks[contour->network].kind));
  }
  json["findings"] = nlohmann::json::array();
  for (const Finding& finding : preflight.findings) {
    json["findings"].push_back(FindingJson(drawing, finding));
  }
  return json;
}

}  // namespace drawing
