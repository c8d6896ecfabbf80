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

/// Unit and where it came from, entities by type and layer, contours, complaints. Ends with a
/// newline.
std::string InfoText(const PartModel& part);

/// The same for programs. Lengths in millimetres.
nlohmann::json InfoJson(const PartModel& part);

/// Verdict, deciding step, figures, matched start positions, groups of cut-outs; with `positions`
/// the partner of every cut-out; the library's words where they were collected. Ends with a
/// newline.
std::string ComparisonText(const PartModel& a, const PartModel& b, const Comparison& comparison,
                           bool positions);

/// The same for programs, always with the partners.
nlohmann::json ComparisonJson(const PartModel& a, const PartModel& b, const Comparison& comparison);

}  // namespace drawing
