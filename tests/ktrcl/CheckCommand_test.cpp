#include "support/DxfText.h"
#include "support/Program.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <sys/wait.h>

namespace {

support::ProgramRun Check(const std::string& arguments) {
  return support::RunProgram(KTRCL_PROGRAM, "check " + arguments);
}

std::string Sample(const std::string& name) {
  return "\"" + std::string(KTRCL_SAMPLES_DIR) + "/" + name + "\"";
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// A square whose third side is 0.03 short of the corner.
std::string OpenSquare() {
  return support::Dxf(
      "0 LINE 5 A1 8 CUT 10 0 20 0 11 40 21 0 0 LINE 5 A2 8 CUT 10 40 20 0 11 40 21 40 "
      "0 LINE 5 A3 8 CUT 10 40 20 40 11 0.03 21 40 0 LINE 5 A4 8 CUT 10 0 20 40 11 0 21 0");
}

TEST(Check, SaysThatADrawingIsClean) {
  const auto run = Check(Sample("bracket.dxf"));
  EXPECT_EQ(run.status, 0) << run.output;
  EXPECT_TRUE(Contains(run.output, "bracket.dxf: clean\n")) << run.output;
  EXPECT_TRUE(Contains(run.output, "5 closed (1 outer, 4 cut-outs)")) << run.output;
  EXPECT_TRUE(run.errors.empty()) << run.errors;
}

TEST(Check, TellsAGapWithBothSidesAndWhatClosesIt) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write("open.dxf", OpenSquare());
  const std::string before = support::ReadWhole(file);
  const auto run = Check(file);
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(Contains(run.output, "open.dxf: 1 finding\n")) << run.output;
  EXPECT_TRUE(Contains(run.output,
                       "loose end at (0.03, 40): LINE A3 on layer CUT, line 48; the other side is "
                       "LINE A4 on layer CUT, line 62 at (0, 40), 0.03 mm away; closes with --gap "
                       "0.03"))
      << run.output;
  EXPECT_EQ(support::ReadWhole(file), before);
}

TEST(Check, LooksAtEveryFileAndTellsTheWorst) {
  const support::TemporaryFolder folder;
  const std::string open = folder.Write("open.dxf", OpenSquare());
  EXPECT_EQ(Check(Sample("bracket.dxf") + " " + open).status, 1);
  const auto run = Check("no-such-file.dxf " + open + " " + Sample("bracket.dxf"));
  EXPECT_EQ(run.status, 3);
  EXPECT_TRUE(Contains(run.errors, "ktrcl: no-such-file.dxf: ")) << run.errors;
  EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
  EXPECT_TRUE(Contains(run.output, "open.dxf: 1 finding\n")) << run.output;
  EXPECT_TRUE(Contains(run.output, "bracket.dxf: clean\n")) << run.output;
}

TEST(Check, GivesJsonOfEveryFile) {
  const support::TemporaryFolder folder;
  const std::string open = folder.Write("open.dxf", OpenSquare());
  const auto run = Check("--json " + Sample("bracket.dxf") + " " + open + " no-such-file.dxf");
  EXPECT_EQ(run.status, 3);
  const auto json = nlohmann::json::parse(run.output);
  ASSERT_EQ(json.size(), 3U);
  EXPECT_EQ(json[0]["clean"], true);
  EXPECT_EQ(json[0]["contours"].size(), 5U);
  EXPECT_EQ(json[1]["count"], 1);
  EXPECT_EQ(json[1]["findings"][0]["kind"], "loose end");
  EXPECT_EQ(json[1]["findings"][0]["entities"][0]["handle"], "A3");
  EXPECT_EQ(json[1]["findings"][0]["closedBy"], 0.03);
  EXPECT_EQ(json[2]["usable"], false);
}

TEST(Check, GivesTheSameBytesAgain) {
  const support::TemporaryFolder folder;
  const std::string open = folder.Write("open.dxf", OpenSquare());
  EXPECT_EQ(Check(open).output, Check(open).output);
  EXPECT_EQ(Check("--json " + open).output, Check("--json " + open).output);
}

TEST(Check, TellsWhatIsShorterThanAsked) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write(
      "step.dxf", support::Dxf("0 LWPOLYLINE 8 CUT 90 5 70 1 10 0 20 0 10 40 20 0 10 40 20 40 "
                               "10 39.5 20 40 10 0 20 40"));
  EXPECT_EQ(Check(file).status, 0);
  const auto run = Check("--tiny 1 " + file);
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(Contains(run.output, "is 0.5 mm long, at (40, 40)")) << run.output;
  EXPECT_EQ(Check("--tiny nan " + file).status, 2);
  EXPECT_EQ(Check("--tiny -1 " + file).status, 2);
}

TEST(Check, TellsAllWhereAllIsAskedFor) {
  const support::TemporaryFolder folder;
  std::string circles;
  for (int i = 0; i < 24; ++i) {
    circles += " 0 CIRCLE 8 CUT 10 " + std::to_string(30 * (i / 2)) + " 20 0 40 5";
  }
  const std::string file = folder.Write("doubled.dxf", support::Dxf(circles));
  EXPECT_TRUE(Contains(Check(file).output, "and 2 more (--all)"));
  EXPECT_FALSE(Contains(Check("--all " + file).output, "more (--all)"));
}

TEST(Check, FailsWhereItsFindingsDoNotArrive) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "there is no /dev/full";
  const support::TemporaryFolder folder;
  const std::string errors = folder.File("errors");
  for (const std::string output : {">/dev/full", ">&-"}) {
    const std::string command = "\"" + std::string(KTRCL_PROGRAM) + "\" check " +
                                Sample("bracket.dxf") + " " + output + " 2>" + errors;
    const int result = std::system(command.c_str());
    ASSERT_TRUE(WIFEXITED(result));
    EXPECT_EQ(WEXITSTATUS(result), 3) << output;
    EXPECT_EQ(support::ReadWhole(errors), "ktrcl: standard output: it cannot be written\n");
  }
}

TEST(Check, NeedsAFile) { EXPECT_EQ(Check("").status, 2); }

}  // namespace
