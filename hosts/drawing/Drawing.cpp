#include "drawing/Drawing.h"

#include <array>
#include <utility>

namespace drawing {
namespace {

struct UnitEntry {
  const char* name;
  double millimetres;
};

// In the order of the codes. Light year, astronomical unit and parsec (648000 / pi astronomical
// units) as the International Astronomical Union defines them; the survey foot is 1200 / 3937 m.
constexpr double kSurveyFoot = 1200000.0 / 3937.0;
constexpr std::array<UnitEntry, 25> kUnits = {{
    {"unitless", 1.0},
    {"inch", 25.4},
    {"foot", 304.8},
    {"mile", 1609344.0},
    {"mm", 1.0},
    {"cm", 10.0},
    {"m", 1000.0},
    {"km", 1.0e6},
    {"microinch", 25.4e-6},
    {"mil", 0.0254},
    {"yard", 914.4},
    {"angstrom", 1.0e-7},
    {"nm", 1.0e-6},
    {"micrometre", 1.0e-3},
    {"dm", 100.0},
    {"dam", 1.0e4},
    {"hm", 1.0e5},
    {"Gm", 1.0e12},
    {"astronomical unit", 1.495978707e14},
    {"light year", 9.4607304725808e18},
    {"parsec", 3.0856775814913673e19},
    {"US survey foot", kSurveyFoot},
    {"US survey inch", kSurveyFoot / 12.0},
    {"US survey yard", kSurveyFoot * 3.0},
    {"US survey mile", kSurveyFoot * 5280.0},
}};

std::string OneLine(std::string text) {
  for (char& c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7f) c = '?';
  }
  return text;
}

}  // namespace

const char* SeverityName(Severity severity) {
  switch (severity) {
    case Severity::kNote:
      return "note";
    case Severity::kWarning:
      return "warning";
    case Severity::kError:
      break;
  }
  return "error";
}

std::string ToLine(const Complaint& complaint) {
  std::string text = complaint.file;
  if (complaint.line > 0) text += ":" + std::to_string(complaint.line);
  text += std::string(": ") + SeverityName(complaint.severity) + ": ";
  if (!complaint.entity.empty()) {
    text += complaint.entity;
    if (!complaint.handle.empty()) text += " " + complaint.handle;
    text += ": ";
  }
  text += complaint.what;
  if (!complaint.done.empty()) text += "; " + complaint.done;
  return OneLine(std::move(text));
}

bool UnitFromCode(int code, Unit& unit) {
  const bool known = code >= 0 && code < static_cast<int>(kUnits.size());
  unit.code = code;
  unit.assumed = !known || code == 0;
  unit.name = known ? kUnits[static_cast<std::size_t>(code)].name : "unknown";
  unit.millimetresPerUnit = known ? kUnits[static_cast<std::size_t>(code)].millimetres : 1.0;
  unit.source = "$INSUNITS " + std::to_string(code);
  if (code == 0) unit.source += " (unitless), taken as millimetres";
  if (!known) unit.source += " (no known unit), taken as millimetres";
  return known;
}

Drawing CopyOf(const Drawing& drawing) {
  Drawing copy;
  copy.file = drawing.file;
  copy.usable = drawing.usable;
  copy.refusal = drawing.refusal;
  copy.version = drawing.version;
  copy.unit = drawing.unit;
  copy.entities = drawing.entities;
  copy.elements.reserve(drawing.elements.size());
  for (const DrawnElement& drawn : drawing.elements) {
    copy.elements.push_back(
        {drawn.element ? std::unique_ptr<GX2DElement>(drawn.element->Clone()) : nullptr,
         drawn.entity});
  }
  copy.curves = drawing.curves;
  copy.entitiesByType = drawing.entitiesByType;
  copy.blockEntitiesByType = drawing.blockEntitiesByType;
  copy.entitiesByLayer = drawing.entitiesByLayer;
  copy.expandedInserts = drawing.expandedInserts;
  copy.unusedByType = drawing.unusedByType;
  copy.refusedByType = drawing.refusedByType;
  copy.paperSpaceByType = drawing.paperSpaceByType;
  copy.hiddenByLayer = drawing.hiddenByLayer;
  copy.zeroLength = drawing.zeroLength;
  copy.complaints = drawing.complaints;
  return copy;
}

void Complain(Drawing& drawing, Severity severity, std::size_t line, const DrawnEntity* entity,
              std::string what, std::string done) {
  Complaint complaint;
  complaint.file = drawing.file;
  complaint.line = line;
  if (entity != nullptr) {
    complaint.entity = entity->type;
    complaint.handle = entity->handle;
  }
  complaint.what = std::move(what);
  complaint.done = std::move(done);
  complaint.severity = severity;
  drawing.complaints.push_back(std::move(complaint));
}

}  // namespace drawing
