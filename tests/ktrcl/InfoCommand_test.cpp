#include "support/Program.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>

namespace {

support::ProgramRun Ktrcl(const std::string& arguments) {
  return support::RunProgram(KTRCL_PROGRAM, arguments);
}

std::string Sample(const std::string& name) {
  return "\"" + std::string(KTRCL_SAMPLES_DIR) + "/" + name + "\"";
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(Info, TellsUnitEntitiesAndContours) {
  const auto run = Ktrcl("info " + Sample("bracket.dxf"));
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(Contains(run.output, "mm ($INSUNITS 4)")) << run.output;
  EXPECT_TRUE(Contains(run.output, "CIRCLE 4")) << run.output;
  EXPECT_TRUE(Contains(run.output, "5 closed, 0 open or branching")) << run.output;
  // Two circles of diameter 9: perimeter 9 pi = 28.2743.
  EXPECT_TRUE(Contains(run.output, "perimeter 28.2743")) << run.output;
  // 4.5 squared times pi.
  EXPECT_TRUE(Contains(run.output, "surface 63.6173")) << run.output;
  EXPECT_TRUE(Contains(run.output, "depth 1 in 1")) << run.output;
  EXPECT_TRUE(run.errors.empty()) << run.errors;
}

TEST(Info, SaysThatAnAbsentUnitWasTakenAsMillimetres) {
  const auto run = Ktrcl("info " + Sample("bracket-no-unit.dxf"));
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(Contains(run.output, "taken as millimetres")) << run.output;
}

TEST(Info, GivesJsonOfEveryFile) {
  const auto run = Ktrcl("info --json " + Sample("bracket.dxf") + " " + Sample("bracket-inch.dxf"));
  EXPECT_EQ(run.status, 0);
  const auto json = nlohmann::json::parse(run.output);
  ASSERT_EQ(json.size(), 2U);
  EXPECT_EQ(json[0]["contours"].size(), 5U);
  EXPECT_EQ(json[0]["entities"]["CIRCLE"], 4);
  EXPECT_EQ(json[1]["unit"]["name"], "inch");
  EXPECT_EQ(json[1]["unit"]["millimetresPerUnit"], 25.4);
  // The inch drawing shows the same part: 120 mm by 90 mm.
  const auto& box = json[1]["contours"][0]["box"];
  EXPECT_NEAR(box[2].get<double>() - box[0].get<double>(), 120.0, 1e-6);
}

TEST(Info, NamesAFileThatCannotBeUsedAndGoesOn) {
  const auto run = Ktrcl("info no-such-file.dxf " + Sample("bracket.dxf"));
  EXPECT_EQ(run.status, 3);
  EXPECT_TRUE(Contains(run.errors, "ktrcl: no-such-file.dxf: ")) << run.errors;
  EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1);
  EXPECT_TRUE(Contains(run.output, "5 closed")) << run.output;
}

TEST(Info, ReportsLooseEndsWithTheirCoordinates) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write("open.dxf",
                                        "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n1.5\n20\n2."
                                        "5\n11\n7\n21\n2.5\n0\nENDSEC\n0\nEOF\n");
  const auto run = Ktrcl("info " + file);
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(Contains(run.output, "0 closed, 1 open or branching")) << run.output;
  EXPECT_TRUE(Contains(run.output, "1.5")) << run.output;
  EXPECT_TRUE(Contains(run.output, "no part")) << run.output;
}

TEST(Usage, UnknownOptionsAreNamedInOneLine) {
  const auto run = Ktrcl("info --bogus " + Sample("bracket.dxf"));
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(Contains(run.errors, "--bogus")) << run.errors;
  EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1);
  EXPECT_TRUE(run.output.empty());
}

TEST(Usage, ACommandAndItsFilesAreRequired) {
  EXPECT_EQ(Ktrcl("").status, 2);
  EXPECT_EQ(Ktrcl("info").status, 2);
  EXPECT_EQ(Ktrcl("frobnicate").status, 2);
}

TEST(Usage, HelpIsNoMistake) {
  const auto run = Ktrcl("--help");
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(Contains(run.output, "compare")) << run.output;
}

}  // namespace
