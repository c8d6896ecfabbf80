#include "ktrcl/Reading.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <cstdlib>
#include <string>

namespace ktrcl {
namespace {

// A range lets "nan" pass, which is neither below nor above it.
std::string IsNumber(const std::string& text) {
  return std::isnan(std::strtod(text.c_str(), nullptr)) ? text + " is no number" : std::string();
}

}  // namespace

void AddReading(CLI::App& command, ReadingRequest& request) {
  command
      .add_option("--curve", request.curve,
                  "How far, in mm, the lines and arcs in place of an ellipse or a spline may be "
                  "from it")
      ->check(CLI::Range(0.0001, 10.0))
      ->check(IsNumber)
      ->capture_default_str();
  command.add_flag("--all-layers", request.allLayers,
                   "Use what lies on layers that are off or frozen, too");
}

drawing::ReadOptions ToReadOptions(const ReadingRequest& request) {
  drawing::ReadOptions options;
  options.curveTolerance = request.curve;
  options.allLayers = request.allLayers;
  return options;
}

}  // namespace ktrcl
