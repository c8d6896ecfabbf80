// Writes drawings in both versions into a folder, and on standard output what is in them as JSON,
// for the check against another reader:
//
//     [{"file": "plain-r12.dxf", "version": "AC1009", "entities": [
//       {"kind": "LINE", "layer": "CUT", "colour": 256, "linetype": "BYLAYER",
//        "points": [[0, 0], [1, 0]], "radius": 0}]}]
//
// The points are start and end of a line, the ends of an arc counter-clockwise and its middle, the
// centre of a circle.
//
// Usage: written_drawings FOLDER
#include "DrawingSketch.h"
#include "drawing/CurveMeasures.h"
#include "drawing/DxfWriter.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <cstddef>
#include <iostream>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using drawing::Drawing;
using nlohmann::json;

json PointJson(const GX2DPoint& p) { return json::array({p.X, p.Y}); }

json ElementJson(GX2DElement& element) {
  auto* const arc = dynamic_cast<GX2DArc*>(&element);
  json entity;
  entity["radius"] = arc == nullptr ? 0.0 : arc->Radius();
  if (arc == nullptr) {
    entity["kind"] = "LINE";
    entity["points"] = {PointJson(element.GetStartPoint()), PointJson(element.GetEndPoint())};
  } else if (arc->IsCircle()) {
    entity["kind"] = "CIRCLE";
    entity["points"] = json::array({PointJson(arc->Center)});
  } else {
    const bool clockwise = arc->IsClockwise();
    entity["kind"] = "ARC";
    entity["points"] = {PointJson(clockwise ? arc->End : arc->Start),
                        PointJson(clockwise ? arc->Start : arc->End),
                        PointJson(drawing::ArcMiddle(*arc))};
  }
  return entity;
}

json DrawingJson(const Drawing& drawing) {
  json entities = json::array();
  for (const drawing::DrawnElement& drawn : drawing.elements) {
    json entity = ElementJson(*drawn.element);
    const drawing::DrawnEntity& from = drawing.entities[drawn.entity];
    entity["layer"] = from.layer;
    entity["colour"] = from.colour;
    entity["linetype"] = from.linetype;
    entities.push_back(std::move(entity));
  }
  return entities;
}

Drawing PlainDrawing() {
  Drawing drawing;
  support::AddLine(drawing, 0, 0, 100, 0, "OUTLINE");
  support::AddArc(drawing, 100, 25, 25, -90, 180, "OUTLINE").colour = 1;
  support::AddLine(drawing, 100, 50, 0, 50, "OUTLINE").linetype = "DASHED";
  support::AddArc(drawing, 0, 25, 25, 270, -180, "OUTLINE").linetype = "BYBLOCK";
  support::AddCircle(drawing, 30, 25, 8, "CUT").colour = 0;
  support::AddCircle(drawing, 70, 25, 8, "0").linetype = "Continuous";
  return drawing;
}

// A line on each layer.
Drawing OnLayers(const std::vector<std::string>& names) {
  Drawing drawing;
  for (const std::string& name : names) {
    const double y = static_cast<double>(drawing.elements.size());
    support::AddLine(drawing, 0, y, 10, y, name).linetype = y == 0.0 ? "dash*dot" : "BYLAYER";
  }
  return drawing;
}

// Names that a table of layers must not hold as they are, and some that it may.
Drawing OddNames() {
  return OnLayers({"<>/\\\":;?*|=`", "a<b", "a>b", "a_b", "A_B", "tab\there", " blank ", "",
                   "bytes \xFF\xFE", "cut", "CUT", "x\\U+0041"});
}

Drawing OtherLetters() {
  return OnLayers({"Zuschnitt \xC3\xA4\xC3\x9F", "\xE2\x8C\x80 5", "\xE5\xA4\x96\xE5\xBD\xA2"});
}

Drawing RandomDrawing(std::uint64_t seed, double extent, double offset) {
  std::mt19937_64 engine(seed);
  const auto between = [&](double low, double high) {
    return low + (high - low) * static_cast<double>(engine() >> 11U) * 0x1p-53;
  };
  Drawing drawing;
  for (int i = 0; i < 200; ++i) {
    const double x = offset + between(-extent, extent);
    const double y = between(-extent, extent) - offset;
    const double size = extent * between(0.05, 0.5);
    const double turn = between(0, 360);
    const double sign = engine() % 2 == 0 ? 1.0 : -1.0;
    if (i % 4 == 0) support::AddLine(drawing, x, y, x + size, y - sign * size, "LINES");
    if (i % 4 == 1) support::AddCircle(drawing, x, y, size, "CIRCLES");
    if (i % 4 == 2) support::AddArc(drawing, x, y, size, turn, sign * between(3, 357), "ARCS");
    if (i % 4 == 3) {  // Flat, with its centre far away.
      const double radius = 2e4 * extent;
      const double radians = turn * 3.14159265358979323846 / 180.0;
      support::AddArc(drawing, x - radius * std::cos(radians), y - radius * std::sin(radians),
                      radius, turn, sign * between(0.003, 0.01), "FLAT");
    }
    drawing.entities.back().colour = static_cast<int>(engine() % 257);
  }
  return drawing;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  std::vector<std::pair<std::string, Drawing>> drawings;
  drawings.emplace_back("plain", PlainDrawing());
  drawings.emplace_back("odd-names", OddNames());
  drawings.emplace_back("other-letters", OtherLetters());
  drawings.emplace_back("empty", Drawing());
  drawings.emplace_back("small", RandomDrawing(1, 1.0, 0.0));
  drawings.emplace_back("middle", RandomDrawing(2, 400.0, 0.0));
  drawings.emplace_back("far", RandomDrawing(3, 100.0, 5000.0));
  json all = json::array();
  for (const auto& [name, drawing] : drawings) {
    for (const bool modern : {false, true}) {
      const std::string file = name + (modern ? "-r2000.dxf" : "-r12.dxf");
      const auto version = modern ? drawing::DxfVersion::kR2000 : drawing::DxfVersion::kR12;
      const std::string problem = drawing::WriteWholeFile(std::string(argv[1]) + "/" + file,
                                                          drawing::DxfText(drawing, version));
      if (!problem.empty()) {
        std::cerr << file << ": " << problem << "\n";
        return 1;
      }
      all.push_back({{"file", file},
                     {"version", modern ? "AC1015" : "AC1009"},
                     {"entities", DrawingJson(drawing)}});
    }
  }
  std::cout << all.dump(-1, ' ', true, json::error_handler_t::replace) << "\n";
  return 0;
}
