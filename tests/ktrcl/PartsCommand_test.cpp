#include "support/DxfText.h"
#include "support/Program.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <string>

namespace {

using nlohmann::json;

constexpr double kPi = 3.141592653589793;

support::ProgramRun Ktrcl(const std::string& arguments) {
  return support::RunProgram(KTRCL_PROGRAM, arguments);
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

std::string Circle(const std::string& layer, double x, double y, double radius) {
  return " 0 CIRCLE 8 " + layer + " 10 " + std::to_string(x) + " 20 " + std::to_string(y) + " 40 " +
         std::to_string(radius);
}

std::string Line(const std::string& layer, double x1, double y1, double x2, double y2) {
  return " 0 LINE 8 " + layer + " 10 " + std::to_string(x1) + " 20 " + std::to_string(y1) + " 11 " +
         std::to_string(x2) + " 21 " + std::to_string(y2);
}

std::string Rectangle(const std::string& layer, double x1, double y1, double x2, double y2) {
  return Line(layer, x1, y1, x2, y1) + Line(layer, x2, y1, x2, y2) + Line(layer, x2, y2, x1, y2) +
         Line(layer, x1, y2, x1, y1);
}

// A small plate; a larger one with two holes of diameter 8 and a window in which an island lies.
std::string Nest() {
  return support::Dxf(Rectangle("SMALL", 200, 0, 220, 10) + Rectangle("CUT", 0, 0, 100, 60) +
                      Circle("HOLES", 10, 10, 4) + Circle("HOLES", 10, 50, 4) +
                      Rectangle("CUT", 30, 10, 90, 50) + Circle("ISLE", 60, 30, 15));
}

json Parts(const std::string& file, const std::string& options = "", int status = 0) {
  const auto run = Ktrcl("parts " + file + " --json " + options);
  EXPECT_EQ(run.status, status) << run.errors;
  return json::parse(run.output);
}

TEST(Parts, TellsEveryPartWithItsFigures) {
  const support::TemporaryFolder folder;
  const json told = Parts(folder.Write("nest.dxf", Nest()));
  ASSERT_EQ(told["parts"].size(), 3U);
  const json& plate = told["parts"][0];
  EXPECT_EQ(plate["cutOuts"].size(), 3U);
  EXPECT_NEAR(plate["area"].get<double>(), 6000 - 2400 - 32 * kPi, 1e-9);
  EXPECT_NEAR(plate["perimeter"].get<double>(), 320 + 200 + 16 * kPi, 1e-9);
  EXPECT_EQ(plate["pierces"], 4);
  EXPECT_EQ(plate["layers"], (json{"CUT", "HOLES"}));
  EXPECT_TRUE(plate["islandIn"].is_null());
  const json& isle = told["parts"][1];
  EXPECT_EQ(isle["islandIn"], 0);
  EXPECT_NEAR(isle["area"].get<double>(), 225 * kPi, 1e-9);
  EXPECT_EQ(told["parts"][2]["layers"], (json{"SMALL"}));
  EXPECT_NEAR(told["totals"]["area"].get<double>(), 6000 - 2400 - 32 * kPi + 225 * kPi + 200, 1e-9);
  EXPECT_EQ(told["totals"]["pierces"], 6);
}

TEST(Parts, PrintsATableWithTotals) {
  const support::TemporaryFolder folder;
  const auto run = Ktrcl("parts " + folder.Write("nest.dxf", Nest()));
  EXPECT_EQ(run.status, 0) << run.errors;
  EXPECT_TRUE(Contains(run.output, "nest.dxf: 3 parts\n")) << run.output;
  EXPECT_TRUE(Contains(run.output, "100 x 60")) << run.output;
  EXPECT_TRUE(Contains(run.output, "0  part 1 ")) << run.output;
  EXPECT_TRUE(Contains(run.output, "CUT, HOLES")) << run.output;
  EXPECT_TRUE(Contains(run.output, "nothing to change")) << run.output;
  EXPECT_FALSE(Contains(run.output, "In no part")) << run.output;
}

TEST(Parts, GroupsEqualCircles) {
  const support::TemporaryFolder folder;
  // Half of a circle of diameter 8 and its other half are one more.
  const std::string halves =
      " 0 ARC 8 CUT 10 300 20 0 40 4 50 0 51 180 0 ARC 8 CUT 10 300 20 0 40 4 50 180 51 360";
  const std::string file =
      folder.Write("holes.dxf", support::Dxf(Circle("CUT", 0, 0, 4) + Circle("CUT", 20, 0, 2.5) +
                                             Circle("CUT", 40, 0, 4) + halves));
  const json circles = Parts(file)["circles"];
  ASSERT_EQ(circles.size(), 2U);
  EXPECT_NEAR(circles[0]["diameter"].get<double>(), 5, 1e-9);
  EXPECT_EQ(circles[0]["contours"].size(), 1U);
  EXPECT_NEAR(circles[1]["diameter"].get<double>(), 8, 1e-9);
  EXPECT_EQ(circles[1]["contours"].size(), 3U);
}

TEST(Parts, HealsFirstAndSaysSo) {
  const support::TemporaryFolder folder;
  // One corner is open by 0.05, and one side is drawn twice.
  const std::string file = folder.Write(
      "torn.dxf", support::Dxf(Line("CUT", 0, 0, 100, 0) + Line("CUT", 100, 0, 100, 60) +
                               Line("CUT", 100, 60, 0, 60) + Line("CUT", 0, 60, 0, 0.05) +
                               Line("CUT", 100, 60, 0, 60)));
  const auto run = Ktrcl("parts " + file);
  EXPECT_EQ(run.status, 0) << run.output;
  EXPECT_TRUE(Contains(run.output,
                       "1 duplicate removed, 1 pair of ends joined, nothing moved by "
                       "more than 0.0"))
      << run.output;
  // The smaller gap leaves the corner open, and there is no part.
  EXPECT_EQ(Ktrcl("parts --gap 0.04 " + file).status, 3);
  const auto asDrawn = Ktrcl("parts --gap 0 " + file);
  EXPECT_EQ(asDrawn.status, 3);
  EXPECT_TRUE(Contains(asDrawn.output, "no, taken as drawn")) << asDrawn.output;
}

TEST(Parts, NamesWhatIsInNoPart) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write(
      "loose.dxf", support::Dxf(Rectangle("CUT", 0, 0, 100, 60) + Line("BEND", 10, 20, 90, 20)));
  const auto run = Ktrcl("parts " + file);
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(Contains(run.output, "In no part\n")) << run.output;
  // Five lines of twelve rows each; the first stands in line 20.
  EXPECT_TRUE(Contains(run.output,
                       "contour 2, 1 element from LINE on layer BEND, line 68: open, "
                       "with loose ends at (10, 20) and (90, 20)"))
      << run.output;
  const json told = Parts(file, "", 1);
  EXPECT_EQ(told["parts"].size(), 1U);
  ASSERT_EQ(told["leftOut"].size(), 1U);
  EXPECT_TRUE(Contains(told["leftOut"][0]["why"], "open"));
}

TEST(Parts, ReportsACrossingWithItsPlaces) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write(
      "crossing.dxf",
      support::Dxf(Rectangle("CUT", 0, 0, 100, 60) + Rectangle("CUT", 80, 20, 120, 40)));
  const auto run = Ktrcl("parts " + file);
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(Contains(run.output, "contours 1 and 2 cross at (100, 20) and (100, 40)"))
      << run.output;
  const json told = Parts(file, "", 1);
  EXPECT_EQ(told["parts"].size(), 2U);
  EXPECT_TRUE(told["parts"][0]["crosses"].get<bool>());
}

TEST(Parts, WritesADrawingOfEveryPart) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write("nest.dxf", Nest());
  const std::string split = folder.File("deep/parts");
  const auto run = Ktrcl("parts " + file + " --split " + split);
  EXPECT_EQ(run.status, 0) << run.errors;
  for (const char* const name : {"nest-part-1.dxf", "nest-part-2.dxf", "nest-part-3.dxf"}) {
    EXPECT_TRUE(std::filesystem::exists(split + "/" + name)) << name;
    EXPECT_TRUE(Contains(run.output, name)) << run.output;
  }
  const json plate = Parts(split + "/nest-part-1.dxf");
  ASSERT_EQ(plate["parts"].size(), 1U);
  EXPECT_NEAR(plate["parts"][0]["area"].get<double>(), 6000 - 2400 - 32 * kPi, 1e-6);
  EXPECT_EQ(plate["parts"][0]["layers"], (json{"CUT", "HOLES"}));
  EXPECT_EQ(plate["unit"]["name"], "mm");
  const json isle = Parts(split + "/nest-part-2.dxf");
  ASSERT_EQ(isle["parts"].size(), 1U);
  EXPECT_NEAR(isle["parts"][0]["area"].get<double>(), 225 * kPi, 1e-6);
}

TEST(Parts, WritesOldDrawingsWhenAsked) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write("one.dxf", support::Dxf(Circle("CUT", 0, 0, 5)));
  EXPECT_EQ(Ktrcl("parts " + file + " --r12 --split " + folder.File("old")).status, 0);
  EXPECT_TRUE(Contains(support::ReadWhole(folder.File("old/one-part-1.dxf")), "AC1009"));
}

TEST(Parts, ReplacesNoFileUnlessAsked) {
  const support::TemporaryFolder folder;
  const std::string file =
      folder.Write("two.dxf", support::Dxf(Circle("CUT", 0, 0, 5) + Circle("CUT", 100, 0, 6)));
  std::filesystem::create_directory(folder.File("out"));
  folder.Write("out/two-part-2.dxf", "mine");
  const auto run = Ktrcl("parts " + file + " --split " + folder.File("out"));
  EXPECT_EQ(run.status, 3);
  EXPECT_TRUE(Contains(run.errors, "two-part-2.dxf: is there already")) << run.errors;
  EXPECT_EQ(support::ReadWhole(folder.File("out/two-part-2.dxf")), "mine");
  // None is written, not even the one that is new.
  EXPECT_FALSE(std::filesystem::exists(folder.File("out/two-part-1.dxf")));
  EXPECT_EQ(Ktrcl("parts " + file + " --overwrite --split " + folder.File("out")).status, 0);
  EXPECT_NE(support::ReadWhole(folder.File("out/two-part-2.dxf")), "mine");
}

TEST(Parts, NamesAFolderThatCannotBeMade) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write("one.dxf", support::Dxf(Circle("CUT", 0, 0, 5)));
  const auto run = Ktrcl("parts " + file + " --split " + file + "/below");
  EXPECT_EQ(run.status, 3);
  EXPECT_TRUE(Contains(run.errors, "below")) << run.errors;
  EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
}

TEST(Parts, ExitsWithThreeWhereThereIsNoPart) {
  const support::TemporaryFolder folder;
  const std::string open = folder.Write("open.dxf", support::Dxf(Line("CUT", 1, 2, 3, 4)));
  const auto run = Ktrcl("parts " + open);
  EXPECT_EQ(run.status, 3);
  EXPECT_TRUE(Contains(run.errors, "no closed contour")) << run.errors;
  EXPECT_TRUE(Contains(run.output, "(1, 2)")) << run.output;
  const std::string text = folder.Write("text.dxf", "This is no drawing.\n");
  EXPECT_EQ(Ktrcl("parts " + text).status, 3);
}

TEST(Parts, RefusesOptionsThatMakeNoSense) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write("one.dxf", support::Dxf(Circle("CUT", 0, 0, 5)));
  for (const char* const options :
       {"--gap -1", "--gap nan", "--gap many", "--r12", "--overwrite", "--curve 0"}) {
    const auto run = Ktrcl("parts " + file + " " + options);
    EXPECT_EQ(run.status, 2) << options;
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << options;
  }
}

}  // namespace
