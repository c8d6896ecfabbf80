#include "ktrcl/GapOption.h"

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

void AddGap(CLI::App& command, double& gap, const std::string& help) {
  command.add_option("--gap", gap, help)
      ->check(CLI::Range(0.0, 1000.0))
      ->check(IsNumber)
      ->capture_default_str();
}

}  // namespace ktrcl
