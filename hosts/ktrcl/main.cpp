// ktrcl: looks at drawings of sheet-metal parts and tells whether two of them show the same part.
#include "ktrcl/Commands.h"
#include "ktrcl/GapOption.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

namespace {

void AddPart(CLI::App& command, const std::string& name, std::size_t& part,
             const std::string& help) {
  command.add_option(name, part, help + ", by its number in `ktrcl parts`")
      ->check(CLI::PositiveNumber);
}

void AddInfo(CLI::App& app, ktrcl::InfoRequest& request) {
  CLI::App* info = app.add_subcommand("info", "Tell what drawings hold: unit, entities, contours");
  info->add_option("FILE", request.files, "DXF drawings")->required();
  ktrcl::AddReading(*info, request.reading);
  info->add_flag("--json", request.json, "Tell it as JSON");
}

void AddCheck(CLI::App& app, ktrcl::CheckRequest& request) {
  CLI::App* check = app.add_subcommand(
      "check", "Tell what is wrong with drawings: gaps, doubled lines, crossings and more");
  check->add_option("FILE", request.files, "DXF drawings")->required();
  ktrcl::AddReading(*check, request.reading);
  // What is no number lies in no range, which a check for being outside would let pass.
  check->add_option("--tiny", request.tiny, "How short, in mm, elements may be")
      ->check([](const std::string& text) {
        const double length = std::strtod(text.c_str(), nullptr);
        return length >= 0.0 && length <= 1000.0 ? "" : text + " is no length from 0 to 1000";
      })
      ->capture_default_str();
  check->add_flag("--all", request.all, "Tell every finding, however many there are of a kind");
  check->add_flag("--json", request.json, "Tell it as JSON, with every finding");
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
  ktrcl::AddReading(*compare, request.reading);
  AddPart(*compare, "--part", request.part,
          "Compare this part of both drawings, or the only one that a drawing holds");
  AddPart(*compare, "--part-b", request.partB, "Take this part of B instead");
  ktrcl::AddGap(*compare, request.gap,
                "Join loose ends in both drawings up to so many mm apart; 0: take both as drawn");
  compare->add_flag("--mirror", request.mirror,
                    "Where they differ, compare with the mirror image of B as well");
  compare->add_flag("--positions", request.positions, "Tell the partner of every cut-out");
  compare->add_flag("--trace", request.trace, "Tell the steps in the library's words");
  compare->add_flag("--json", request.json, "Tell it as JSON");
  compare->add_option("--svg", request.svg, "Draw both parts side by side into this file");
  compare->add_option("--report", request.report, "Write an account as HTML into this file");
}

void AddParts(CLI::App& app, ktrcl::PartsRequest& request) {
  CLI::App* parts = app.add_subcommand("parts", "Tell the parts of a drawing and what is in none");
  parts->add_option("FILE", request.file, "DXF drawing")->required();
  ktrcl::AddReading(*parts, request.reading);
  ktrcl::AddGap(*parts, request.gap,
                "Join loose ends up to so many mm apart; 0: take the drawing as drawn");
  CLI::Option* split = parts->add_option(
      "--split", request.split, "Write each part into a drawing of its own, in this folder");
  parts->add_flag("--r12", request.r12, "Write them as R12 instead of R2000")->needs(split);
  parts->add_flag("--overwrite", request.overwrite, "Replace files that are there already")
      ->needs(split);
  parts->add_flag("--json", request.json, "Tell it as JSON");
}

void AddHeal(CLI::App& app, ktrcl::HealRequest& request) {
  CLI::App* heal =
      app.add_subcommand("heal", "Close, tidy and write a drawing, telling every change");
  heal->add_option("IN", request.in, "DXF drawing")->required();
  heal->add_option("OUT", request.out, "DXF drawing to write, another file")->required();
  ktrcl::AddGap(*heal, request.gap, "How far apart, in mm, loose ends may be to be joined");
  heal->add_flag("!--no-clean-up", request.cleanUp,
                 "Join and put in order, but merge and remove nothing in closed contours");
  heal->add_flag("--r12", request.r12, "Write R12 instead of R2000");
  ktrcl::AddReading(*heal, request.reading);
  heal->add_flag("--json", request.json, "Tell it as JSON, with every change");
  heal->add_option("--report", request.report,
                   "Write an account with pictures, HTML, to this file");
}

void AddDump(CLI::App& app, ktrcl::DumpRequest& request) {
  CLI::App* dump =
      app.add_subcommand("dump", "Write out the shapes and cut-outs that are compared");
  dump->add_option("FILE", request.file, "DXF drawing")->required();
  AddPart(*dump, "--part", request.part, "Write out this part of the drawing");
  ktrcl::AddReading(*dump, request.reading);
  CLI::Option* xml = dump->add_flag("--xml", "Write it as XML, as without a choice");
  dump->add_flag("--json", request.json, "Write it as JSON")->excludes(xml);
}

int Run(int argc, char** argv) {
  CLI::App app(
      "Checks, heals, parts and compares drawings of sheet-metal parts.\n"
      "Exit status: 0 fine, clean or same; 1 findings or different; 2 usage; 3 a file could not be "
      "used or written.",
      "ktrcl");
  app.require_subcommand(1);
  ktrcl::InfoRequest info;
  ktrcl::CheckRequest check;
  ktrcl::CompareRequest compare;
  ktrcl::PartsRequest parts;
  ktrcl::DumpRequest dump;
  ktrcl::HealRequest heal;
  AddInfo(app, info);
  AddCheck(app, check);
  AddCompare(app, compare);
  AddParts(app, parts);
  AddDump(app, dump);
  AddHeal(app, heal);
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
  if (app.got_subcommand("check")) return ktrcl::RunCheck(check);
  if (app.got_subcommand("parts")) return ktrcl::RunParts(parts);
  if (app.got_subcommand("heal")) return ktrcl::RunHeal(heal);
  if (app.got_subcommand("dump")) return ktrcl::RunDump(dump);
  return app.got_subcommand("info") ? ktrcl::RunInfo(info) : ktrcl::RunCompare(compare);
}

// What was told must have arrived, on a full disk too.
int AfterTelling(int status) {
  if (std::cout.flush()) return status;
  std::cerr << "ktrcl: standard output: it cannot be written\n";
  return ktrcl::kUnusable;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return AfterTelling(Run(argc, argv));
  } catch (const std::exception& error) {
    std::cerr << "ktrcl: " << error.what() << "\n";
    return ktrcl::kUnusable;
  }
}
