// ktrcl: looks at drawings of sheet-metal parts and tells whether two of them show the same part.
#include "ktrcl/Commands.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

namespace {

// A range lets "nan" pass, which is neither below nor above it.
std::string IsNumber(const std::string& text) {
  return std::isnan(std::strtod(text.c_str(), nullptr)) ? text + " is no number" : std::string();
}

void AddCurve(CLI::App& command, double& curve) {
  command
      .add_option("--curve", curve,
                  "How far, in mm, the lines and arcs in place of an ellipse or a spline may be "
                  "from it")
      ->check(CLI::Range(0.0001, 10.0))
      ->check(IsNumber)
      ->capture_default_str();
}

void AddInfo(CLI::App& app, ktrcl::InfoRequest& request) {
  CLI::App* info = app.add_subcommand("info", "Tell what drawings hold: unit, entities, contours");
  info->add_option("FILE", request.files, "DXF drawings")->required();
  AddCurve(*info, request.curve);
  info->add_flag("--json", request.json, "Tell it as JSON");
}

void AddCompare(CLI::App& app, ktrcl::CompareRequest& request) {
  CLI::App* compare = app.add_subcommand("compare", "Tell whether two drawings show the same part");
  compare->add_option("A", request.a, "DXF drawing, the reference")->required();
  compare->add_option("B", request.b, "DXF drawing to compare with it")->required();
  compare
      ->add_option(
          "--mode", request.mode,
          "equal: element by element; may-differ: segments up to 1 mm may differ in number")
      ->check(CLI::IsMember({"equal", "may-differ"}));
  AddCurve(*compare, request.curve);
  compare->add_flag("--positions", request.positions, "Tell the partner of every cut-out");
  compare->add_flag("--trace", request.trace, "Tell the steps in the library's words");
  compare->add_flag("--json", request.json, "Tell it as JSON");
  compare->add_option("--svg", request.svg, "Draw both parts side by side into this file");
}

void AddDump(CLI::App& app, ktrcl::DumpRequest& request) {
  CLI::App* dump =
      app.add_subcommand("dump", "Write out the shapes and cut-outs that are compared");
  dump->add_option("FILE", request.file, "DXF drawing")->required();
  AddCurve(*dump, request.curve);
  CLI::Option* xml = dump->add_flag("--xml", "Write it as XML, as without a choice");
  dump->add_flag("--json", request.json, "Write it as JSON")->excludes(xml);
}

int Run(int argc, char** argv) {
  CLI::App app(
      "Looks at drawings of sheet-metal parts and compares them.\n"
      "Exit status: 0 same, 1 different, 2 usage, 3 a file could not be used.",
      "ktrcl");
  app.require_subcommand(1);
  ktrcl::InfoRequest info;
  ktrcl::CompareRequest compare;
  ktrcl::DumpRequest dump;
  AddInfo(app, info);
  AddCompare(app, compare);
  AddDump(app, dump);
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& success) {
    return app.exit(success);
  } catch (const CLI::ParseError& error) {
    std::string line = error.what();
    for (char& c : line) {
      if (c == '\n') c = ' ';
    }
    std::cerr << "ktrcl: " << line << "\n";
    return ktrcl::kUsage;
  }
  if (app.got_subcommand("dump")) return ktrcl::RunDump(dump);
  return app.got_subcommand("info") ? ktrcl::RunInfo(info) : ktrcl::RunCompare(compare);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "ktrcl: " << error.what() << "\n";
    return ktrcl::kUnusable;
  }
}
