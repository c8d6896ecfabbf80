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

// An ellipse with half axes 20 and 8.
const char* const kEllipse =
    "0\nSECTION\n2\nENTITIES\n0\nELLIPSE\n8\n0\n10\n50\n20\n30\n11\n20\n21\n0\n40\n0.4\n41\n0\n"
    "42\n6.283185307179586\n0\nENDSEC\n0\nEOF\n";

TEST(Info, TellsWhatBecameOfCurvesAndHowFarOffItIs) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write("ellipse.dxf", kEllipse);
  const auto run = Ktrcl("info " + file);
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(Contains(run.output, "1 curve became ")) << run.output;
  EXPECT_TRUE(Contains(run.output, "1 closed, 0 open")) << run.output;
  EXPECT_FALSE(Contains(run.output, "not usable yet")) << run.output;
  const auto json = nlohmann::json::parse(Ktrcl("info --json " + file).output)[0];
  EXPECT_EQ(json["curves"]["count"], 1);
  EXPECT_EQ(json["curves"]["tolerance"], 0.01);
  const double deviation = json["curves"]["largestDeviation"].get<double>();
  EXPECT_GT(deviation, 0.0);
  EXPECT_LE(deviation, 0.01);
  // The area is 20 * 8 * pi = 502.6548; the elements are nowhere farther off than the deviation,
  // over a length below 100.
  EXPECT_NEAR(json["contours"][0]["area"].get<double>(), 502.6548, 100 * deviation);
}

TEST(Info, FollowsCurvesAsCloselyAsItIsAsked) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write("ellipse.dxf", kEllipse);
  const auto fine = nlohmann::json::parse(Ktrcl("info --json --curve 0.001 " + file).output)[0];
  const auto coarse = nlohmann::json::parse(Ktrcl("info --json --curve 0.5 " + file).output)[0];
  EXPECT_LE(fine["curves"]["largestDeviation"].get<double>(), 0.001);
  EXPECT_LT(coarse["contours"][0]["elements"], fine["contours"][0]["elements"]);
  EXPECT_EQ(Ktrcl("info --curve 0 " + file).status, 2);
  EXPECT_EQ(Ktrcl("info --curve -1 " + file).status, 2);
  EXPECT_EQ(Ktrcl("info --curve nan " + file).status, 2);
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
