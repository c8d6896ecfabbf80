#include "support/DxfText.h"
#include "support/Program.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/stat.h>

namespace {

support::ProgramRun Ktrcl(const std::string& arguments) {
  return support::RunProgram(KTRCL_PROGRAM, arguments);
}

std::string Quoted(const std::string& path) { return "\"" + path + "\""; }

std::string Sample(const std::string& name) { return std::string(KTRCL_SAMPLES_DIR) + "/" + name; }

support::ProgramRun Heal(const std::string& in, const std::string& out,
                         const std::string& options = "") {
  return Ktrcl("heal " + Quoted(in) + " " + Quoted(out) + " " + options);
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

std::ptrdiff_t FilesIn(const support::TemporaryFolder& folder) {
  const std::filesystem::directory_iterator files(folder.File("."));
  return std::distance(begin(files), end(files));
}

// A square of 10 mm whose last side ends `gap` before the first begins.
std::string OpenSquare(const std::string& gap) {
  return support::Dxf(
      "0 LINE 8 CUT 10 0 20 0 11 10 21 0  0 LINE 8 CUT 10 10 20 0 11 10 21 10 "
      "0 LINE 8 CUT 10 10 20 10 11 0 21 10  0 LINE 8 CUT 10 0 20 10 11 0 21 " +
      gap);
}

nlohmann::json HealedJson(const std::string& text, const std::string& options = "") {
  const support::TemporaryFolder folder;
  const std::string in = folder.Write("in.dxf", text);
  const auto run = Heal(in, folder.File("out.dxf"), "--json " + options);
  EXPECT_EQ(run.status, 0) << run.errors;
  return nlohmann::json::parse(run.output);
}

TEST(Heal, ClosesAGapAndTellsIt) {
  const support::TemporaryFolder folder;
  const std::string in = folder.Write("in.dxf", OpenSquare("0.05"));
  const std::string out = folder.File("out.dxf");
  const auto run = Heal(in, out);
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(run.errors.empty()) << run.errors;
  EXPECT_TRUE(Contains(run.output, "closed contours         0        1\n")) << run.output;
  EXPECT_TRUE(Contains(run.output, "area, mm2           0.000  100.000\n")) << run.output;
  EXPECT_TRUE(Contains(run.output, "ends joined: 1, moved by up to 0.05 mm\n")) << run.output;
  EXPECT_TRUE(Contains(run.output, "Written: " + out)) << run.output;
  EXPECT_TRUE(Contains(support::ReadWhole(out), "AC1015"));
  EXPECT_EQ(FilesIn(folder), 2);
}

TEST(Heal, ChangesNothingTheSecondTime) {
  std::vector<std::string> drawings = {Sample("messy-bracket.dxf"), Sample("messy-sheet.dxf"),
                                       Sample("bracket-turned.dxf"), Sample("panel-inch.dxf"),
                                       Sample("chain-guard-turned.dxf")};
  const support::TemporaryFolder folder;
  drawings.push_back(folder.Write("open.dxf", OpenSquare("0.05")));
  for (const std::string& drawing : drawings) {
    for (const std::string options : {"", "--r12", "--no-clean-up", "--gap 0 --r12", "--gap 1"}) {
      SCOPED_TRACE(drawing + " " + options);
      const std::string once = folder.File("once.dxf");
      const std::string twice = folder.File("twice.dxf");
      ASSERT_EQ(Heal(drawing, once, options).status, 0);
      const auto run = Heal(once, twice, options);
      ASSERT_EQ(run.status, 0);
      EXPECT_EQ(run.output.rfind(once + ": no changes", 0), 0U) << run.output;
      EXPECT_EQ(support::ReadWhole(once), support::ReadWhole(twice));
    }
  }
}

TEST(Heal, MakesTheBracketOfTheMessyOne) {
  const support::TemporaryFolder folder;
  const auto clean = Heal(Sample("bracket.dxf"), folder.File("clean.dxf"), "--json");
  const auto messy = Heal(Sample("messy-bracket.dxf"), folder.File("messy.dxf"), "--json");
  const auto expected = nlohmann::json::parse(clean.output)["after"];
  const auto found = nlohmann::json::parse(messy.output)["after"];
  for (const char* count : {"elements", "closed", "open", "branching", "other"}) {
    EXPECT_EQ(found[count], expected[count]) << count;
  }
  // Ten decimals in the drawings, added up along 526 mm.
  EXPECT_NEAR(found["perimeter"].get<double>(), expected["perimeter"].get<double>(), 1e-7);
  EXPECT_NEAR(found["area"].get<double>(), expected["area"].get<double>(), 1e-6);
}

TEST(Heal, TellsALineWithoutLengthOnce) {
  const support::TemporaryFolder folder;
  const std::string text = Heal(Sample("messy-bracket.dxf"), folder.File("out.dxf")).output;
  EXPECT_TRUE(Contains(text, "has no length; left out")) << text;
  EXPECT_FALSE(Contains(text, "refused")) << text;
}

TEST(Heal, GivesEveryChangeAsJson) {
  const auto json = HealedJson(OpenSquare("0.05"), "--gap 0.06 --r12");
  EXPECT_EQ(json["gap"], 0.06);
  EXPECT_EQ(json["version"], "R12");
  EXPECT_EQ(json["before"]["open"], 1);
  EXPECT_EQ(json["after"]["closed"], 1);
  EXPECT_EQ(json["after"]["area"], 100.0);
  EXPECT_EQ(json["largestMovement"], 0.05);
  ASSERT_EQ(json["changes"].size(), 1U);
  const auto& change = json["changes"][0];
  EXPECT_EQ(change["kind"], "ends joined");
  EXPECT_EQ(change["place"], nlohmann::json::array({0.0, 0.0}));
  EXPECT_EQ(change["movement"], 0.05);
  EXPECT_EQ(change["elements"].size(), 2U);
  EXPECT_TRUE(Contains(change["what"].get<std::string>(), "CUT")) << change;
  EXPECT_TRUE(json["stillOpen"].empty());
}

TEST(Heal, LeavesWiderGapsOpenAndTellsHowWideTheyAre) {
  const auto json = HealedJson(OpenSquare("0.5"));
  EXPECT_TRUE(json["changes"].empty());
  EXPECT_EQ(json["after"]["open"], 1);
  ASSERT_EQ(json["stillOpen"].size(), 1U);
  EXPECT_EQ(json["stillOpen"][0]["distance"], 0.5);
  EXPECT_EQ(json["stillOpen"][0]["second"]["place"], nlohmann::json::array({0.0, 0.5}));
  EXPECT_EQ(HealedJson(OpenSquare("0.5"), "--gap 0.5")["after"]["closed"], 1);
  EXPECT_EQ(HealedJson(OpenSquare("0.05"), "--gap 0")["after"]["closed"], 0);
}

TEST(Heal, CleansUpUnlessToldNotTo) {
  const std::string split = support::Dxf(
      "0 LINE 8 0 10 0 20 0 11 4 21 0  0 LINE 8 0 10 4 20 0 11 10 21 0 "
      "0 LINE 8 0 10 10 20 0 11 10 21 10  0 LINE 8 0 10 10 20 10 11 0 21 0");
  EXPECT_EQ(HealedJson(split)["after"]["elements"], 3);
  EXPECT_EQ(HealedJson(split, "--no-clean-up")["after"]["elements"], 4);
}

TEST(Heal, TellsTheFirstTwentyOfVeryManyChangesOfAKind) {
  std::string squares;
  for (int i = 0; i < 25; ++i) {
    const std::string line =
        "0 LINE 8 0 10 0 20 " + std::to_string(i) + " 11 5 21 " + std::to_string(i) + " ";
    squares += line + line;
  }
  const support::TemporaryFolder folder;
  const std::string in = folder.Write("in.dxf", support::Dxf(squares));
  const auto run = Heal(in, folder.File("out.dxf"));
  EXPECT_TRUE(Contains(run.output, "duplicate removed: 25\n")) << run.output;
  EXPECT_TRUE(Contains(run.output, "\n  and 5 more (see --report or --json)\n")) << run.output;
  EXPECT_EQ(HealedJson(support::Dxf(squares))["changes"].size(), 25U);
}

TEST(Heal, WritesAReport) {
  const support::TemporaryFolder folder;
  const std::string in = folder.Write("in.dxf", OpenSquare("0.05"));
  const std::string report = folder.File("report.html");
  const auto run = Heal(in, folder.File("out.dxf"), "--report " + Quoted(report));
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(Contains(run.output, "Report: " + report)) << run.output;
  const std::string html = support::ReadWhole(report);
  EXPECT_EQ(html.rfind("<!", 0), 0U);
  EXPECT_TRUE(Contains(html, "</html>"));
}

TEST(Heal, RefusesToWriteOverTheDrawing) {
  const support::TemporaryFolder folder;
  const std::string in = folder.Write("in.dxf", OpenSquare("0.05"));
  const std::string link = folder.File("link.dxf");
  std::filesystem::create_hard_link(in, link);
  for (const std::string& out : {in, link, folder.File("./in.dxf")}) {
    const auto run = Heal(in, out);
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.errors, "ktrcl: " + out + ": it is the drawing itself; nothing was written\n");
    EXPECT_TRUE(run.output.empty());
  }
  const std::string other = folder.File("out.dxf");
  const std::string alias = folder.File("./out.dxf");
  for (const std::string& report : {in, other, alias}) {
    const auto run = Heal(in, other, "--report " + Quoted(report));
    EXPECT_EQ(run.status, 3);
    EXPECT_TRUE(Contains(run.errors, "the report would overwrite a drawing")) << run.errors;
  }
  EXPECT_EQ(support::ReadWhole(in), OpenSquare("0.05"));
  EXPECT_FALSE(std::filesystem::exists(other));
}

TEST(Heal, NamesWhatCannotBeReadOrWritten) {
  const support::TemporaryFolder folder;
  const std::string out = folder.File("out.dxf");
  const auto missing = Heal(folder.File("none.dxf"), out);
  EXPECT_EQ(missing.status, 3);
  EXPECT_TRUE(Contains(missing.errors, "none.dxf: it cannot be opened")) << missing.errors;
  const std::string empty = folder.Write("empty.dxf", support::Dxf(""));
  const auto nothing = Heal(empty, out);
  EXPECT_EQ(nothing.status, 3);
  EXPECT_TRUE(Contains(nothing.errors, "no element that can be used")) << nothing.errors;
  EXPECT_FALSE(std::filesystem::exists(out));

  const std::string in = folder.Write("in.dxf", OpenSquare("0.05"));
  const auto nowhere = Heal(in, folder.File("none/out.dxf"));
  EXPECT_EQ(nowhere.status, 3);
  EXPECT_TRUE(Contains(nowhere.errors, "it cannot be created")) << nowhere.errors;
  EXPECT_TRUE(nowhere.output.empty()) << nowhere.output;
  const auto noReport = Heal(in, out, "--report " + Quoted(folder.File("none/report.html")));
  EXPECT_EQ(noReport.status, 3);
  EXPECT_TRUE(Contains(noReport.errors, "report.html: it cannot be created")) << noReport.errors;
}

TEST(Heal, TellsOfEntitiesThatItCouldNotRead) {
  const support::TemporaryFolder folder;
  const std::string in =
      folder.Write("in.dxf", support::Dxf("0 LINE 8 0 10 0 20 0 11 5 21 0 "
                                          "0 CIRCLE 8 0 10 0 20 0 40 -1 0 HATCH 8 0"));
  const auto run = Heal(in, folder.File("out.dxf"));
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(Contains(run.errors, "its radius is not above 0")) << run.errors;
  EXPECT_TRUE(Contains(run.errors, "1 HATCH cannot be used yet")) << run.errors;
}

TEST(Heal, RefusesGapsOutOfRange) {
  for (const std::string gap : {"-0.1", "1000.1", "nan", "wide"}) {
    const auto run = Heal(Sample("bracket.dxf"), "/nonexistent/out.dxf", "--gap " + gap);
    EXPECT_EQ(run.status, 2) << gap;
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
  }
  EXPECT_EQ(Ktrcl("heal " + Quoted(Sample("bracket.dxf"))).status, 2);
}

TEST(Heal, ShowsNoProgressInAFile) {
  const support::TemporaryFolder folder;
  const auto run = Heal(Sample("panel.dxf"), folder.File("out.dxf"));
  EXPECT_TRUE(run.errors.empty()) << run.errors;
}

}  // namespace
