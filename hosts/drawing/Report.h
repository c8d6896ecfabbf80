// What the host tells of a drawing and of a comparison: for people as text, for programs as JSON.
#pragma once

#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"

#include <nlohmann/json.hpp>

#include <string>

namespace drawing {

/// A length or coordinate in millimetres with four decimals, never "-0.0000".
std::string Millimetres(double value);

/// "(x, y)" in millimetres.
std::string Position(double x, double y);

/// Unit and where it came from, entities by type and layer; of each contour, counted from 1, its
/// direction, depth, the contour it is in, perimeter, surface, box, and what healing did;
/// contours that cross; complaints. Ends with a newline.
std::string InfoText(const PartModel& part);

/// The same for programs. Lengths in millimetres, `area` in their square; contours are named by
/// their place in `contours`, counted from 0, and null stands for none. `direction`, `depth`,
/// `parent` and `coincidesWith` are there for usable contours only.
nlohmann::json InfoJson(const PartModel& part);

/// Verdict, deciding step, figures, matched start positions, groups of cut-outs; with `positions`
/// the partner of every cut-out; the library's words where they were collected. Ends with a
/// newline.
std::string ComparisonText(const PartModel& a, const PartModel& b, const Comparison& comparison,
                           bool positions);

/// The same for programs, always with the partners.
nlohmann::json ComparisonJson(const PartModel& a, const PartModel& b, const Comparison& comparison);

}  // namespace drawing
