#include "support/DxfText.h"
#include "support/Program.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iomanip>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

support::ProgramRun Ktrcl(const std::string& arguments) {
  return support::RunProgram(KTRCL_PROGRAM, arguments);
}

std::string Sample(const std::string& name) {
  return "\"" + std::string(KTRCL_SAMPLES_DIR) + "/" + name + "\"";
}

support::ProgramRun Compare(const std::string& a, const std::string& b,
                            const std::string& options = "") {
  return Ktrcl("compare " + Sample(a) + " " + Sample(b) + " " + options);
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(Compare, ExitsWithZeroForTheSamePart) {
  const auto run = Compare("bracket.dxf", "bracket-turned.dxf");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output.rfind("Same: ", 0), 0U) << run.output;
}

TEST(Compare, ExitsWithOneForAnotherPart) {
  const auto run = Compare("bracket.dxf", "bracket-hole-moved.dxf");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output.rfind("Different: ", 0), 0U) << run.output;
  EXPECT_TRUE(Contains(run.output, "Decided by: positions of the cut-outs")) << run.output;
  // The hole was moved by 2 mm.
  EXPECT_TRUE(Contains(run.output, "2.0000 mm")) << run.output;
}

TEST(Compare, StatesPerimeterAndSurfaceOfTheOutline) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write("round.dxf",
                                        "0\nSECTION\n2\nENTITIES\n"
                                        "0\nCIRCLE\n8\n0\n10\n0\n20\n0\n40\n5\n"
                                        "0\nENDSEC\n0\nEOF\n");
  // Radius 5: perimeter 10 pi, surface 25 pi.
  const auto run = Ktrcl("compare " + file + " " + file);
  EXPECT_TRUE(Contains(run.output, "perimeter 31.4159, surface 78.5398")) << run.output;
}

TEST(Compare, TellsTheCountsOfAGroupThatDiffers) {
  const auto run = Compare("bracket.dxf", "bracket-extra-hole.dxf");
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(Contains(run.output, "counts differ")) << run.output;
}

TEST(Compare, TellsThatOneSideHasNoCutOuts) {
  const auto run = Compare("bracket.dxf", "bracket-blank.dxf");
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(Contains(run.output, "the library calls the structure equal")) << run.output;
}

TEST(Compare, TellsPartnersOnlyWhenAsked) {
  EXPECT_FALSE(Contains(Compare("bracket.dxf", "bracket.dxf").output, "two-distance test"));
  const auto run = Compare("bracket.dxf", "bracket.dxf", "--positions");
  EXPECT_TRUE(Contains(run.output, "two-distance test agrees")) << run.output;
}

TEST(Compare, TellsTheLibrarysWordsWhenAsked) {
  EXPECT_FALSE(Contains(Compare("bracket.dxf", "bracket.dxf").output, "Start FORWARD Check"));
  const auto run = Compare("bracket.dxf", "bracket.dxf", "--trace");
  EXPECT_TRUE(Contains(run.output, "Start FORWARD Check")) << run.output;
  EXPECT_TRUE(Contains(run.output, "Start Compare Internal Contour Structure")) << run.output;
}

TEST(Compare, GivesJson) {
  const auto run = Compare("bracket.dxf", "bracket-turned.dxf", "--json");
  EXPECT_EQ(run.status, 0);
  const auto json = nlohmann::json::parse(run.output);
  EXPECT_TRUE(json["same"].get<bool>());
  EXPECT_EQ(json["partners"].size(), 4U);
  EXPECT_LT(json["largestDeviation"].get<double>(), 1e-6);
  ASSERT_FALSE(json["starts"].empty());
}

TEST(Compare, DrawsAPictureWithArcsAndStartPoints) {
  const support::TemporaryFolder folder;
  const std::string file = folder.File("both.svg");
  const auto run = Compare("bracket.dxf", "bracket-hole-moved.dxf", "--svg " + file);
  EXPECT_EQ(run.status, 1);
  const std::string svg = support::ReadWhole(file);
  EXPECT_EQ(svg.rfind("<svg", 0), 0U);
  EXPECT_TRUE(Contains(svg, " A "));
  EXPECT_TRUE(Contains(svg, "class=\"start\""));
  EXPECT_TRUE(Contains(svg, "<path class=\"differs\""));
}

TEST(Compare, NamesAPictureFileThatCannotBeWritten) {
  const auto run = Compare("bracket.dxf", "bracket.dxf", "--svg /nonexistent/both.svg");
  EXPECT_EQ(run.status, 3);
  EXPECT_TRUE(Contains(run.errors, "/nonexistent/both.svg")) << run.errors;
}

TEST(Compare, NamesAFileThatIsNoDrawing) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write("text.dxf", "This is no drawing.\n");
  const auto run = Ktrcl("compare " + Sample("bracket.dxf") + " " + file);
  EXPECT_EQ(run.status, 3);
  EXPECT_TRUE(Contains(run.errors, "text.dxf")) << run.errors;
  EXPECT_TRUE(run.output.empty()) << run.output;
}

TEST(Compare, RefusesUnknownModes) {
  const auto run = Compare("bracket.dxf", "bracket.dxf", "--mode sometimes");
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(Contains(run.errors, "sometimes")) << run.errors;
  EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1);
}

TEST(Compare, RequiresTwoFiles) {
  const auto run = Ktrcl("compare " + Sample("bracket.dxf"));
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1);
}

TEST(Compare, WarnsOfEntitiesThatTheVerdictDoesNotKnow) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write("hatch.dxf",
                                        "0\nSECTION\n2\nENTITIES\n"
                                        "0\nCIRCLE\n8\n0\n10\n0\n20\n0\n40\n5\n"
                                        "0\nHATCH\n8\n0\n"
                                        "0\nENDSEC\n0\nEOF\n");
  const auto run = Ktrcl("compare " + file + " " + file);
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(Contains(run.errors, "1 HATCH cannot be used yet")) << run.errors;
}

TEST(Compare, FindsAHoleDrawnAsASplineEqualToACircle) {
  const support::TemporaryFolder folder;
  const std::string plate = "0\nSECTION\n2\nENTITIES\n0\nCIRCLE\n8\n0\n10\n0\n20\n0\n40\n50\n";
  const std::string circle = "0\nCIRCLE\n8\n0\n10\n20\n20\n0\n40\n5\n0\nENDSEC\n0\nEOF\n";
  // The circle of radius 5 about (20, 0) in thirds: rational of degree 2,
  // weights 1 and 1/2.
  std::string spline = "0\nSPLINE\n8\n0\n70\n12\n71\n2\n";
  for (const char* knot : {"0", "0", "0", "1", "1", "2", "2", "3", "3", "3"}) {
    spline += std::string("40\n") + knot + "\n";
  }
  const double w[7] = {1, 0.5, 1, 0.5, 1, 0.5, 1};
  // A triangle about the circle: its corners, and where its sides touch it.
  const double x[7] = {25, 25, 17.5, 10, 17.5, 25, 25};
  const double y[7] = {
      0, 8.660254037844386, 4.330127018922193, 0, -4.330127018922193, -8.660254037844386, 0};
  for (int i = 0; i < 7; ++i) {
    spline += "10\n" + std::to_string(x[i]) + "\n20\n" + std::to_string(y[i]) + "\n41\n" +
              std::to_string(w[i]) + "\n";
  }
  spline += "0\nENDSEC\n0\nEOF\n";
  const std::string a = folder.Write("circle.dxf", plate + circle);
  const std::string b = folder.Write("spline.dxf", plate + spline);
  const auto run = Ktrcl("compare " + a + " " + b);
  EXPECT_EQ(run.status, 0) << run.output;
  EXPECT_TRUE(run.errors.empty()) << run.errors;
  EXPECT_EQ(Ktrcl("compare --curve 11 " + a + " " + b).status, 2);
}

TEST(Compare, NamesSeveralOuterContours) {
  const support::TemporaryFolder folder;
  const std::string file = folder.Write("two.dxf",
                                        "0\nSECTION\n2\nENTITIES\n"
                                        "0\nCIRCLE\n8\n0\n10\n0\n20\n0\n40\n5\n"
                                        "0\nCIRCLE\n8\n0\n10\n100\n20\n0\n40\n5\n"
                                        "0\nENDSEC\n0\nEOF\n");
  const auto run = Ktrcl("compare " + file + " " + Sample("bracket.dxf"));
  EXPECT_EQ(run.status, 3);
  EXPECT_TRUE(Contains(run.errors, "two.dxf")) << run.errors;
  EXPECT_TRUE(Contains(run.errors, "95")) << run.errors;  // the second circle's box begins at x 95
}

// Two plates in one drawing, the second a bracket's neighbour of 30 by 20 with
// a hole.
std::string TwoParts() {
  return support::Dxf(
      "0 LINE 8 CUT 10 0 20 0 11 100 21 0 0 LINE 8 CUT 10 100 20 0 11 100 21 "
      "60 "
      "0 LINE 8 CUT 10 100 20 60 11 0 21 60 0 LINE 8 CUT 10 0 20 60 11 0 21 0 "
      "0 LINE 8 CUT 10 200 20 0 11 230 21 0 0 LINE 8 CUT 10 230 20 0 11 230 21 "
      "20 "
      "0 LINE 8 CUT 10 230 20 20 11 200 21 20 0 LINE 8 CUT 10 200 20 20 11 200 "
      "21 0 "
      "0 CIRCLE 8 CUT 10 210 20 10 40 3");
}

// The second of them alone, turned by 90 degrees: (x, y) to (-y, x - 200). One
// corner is open by 0.05.
std::string SmallPart() {
  return support::Dxf(
      "0 LINE 8 CUT 10 0 20 0.05 11 0 21 30 0 LINE 8 CUT 10 0 "
      "20 30 11 -20 21 30 "
      "0 LINE 8 CUT 10 -20 20 30 11 -20 21 0 0 LINE 8 CUT 10 "
      "-20 20 0 11 0 21 0 "
      "0 CIRCLE 8 CUT 10 -10 20 10 40 3");
}

TEST(Compare, TakesTheChosenPartAndTheOnlyOne) {
  const support::TemporaryFolder folder;
  const std::string two = folder.Write("two.dxf", TwoParts());
  const std::string small = folder.Write("small.dxf", SmallPart());
  const auto run = Ktrcl("compare " + two + " " + small + " --part 2");
  EXPECT_EQ(run.status, 0) << run.output << run.errors;
  EXPECT_TRUE(Contains(run.output, "two.dxf: part 2 of 2, outer contour of 4")) << run.output;
  EXPECT_TRUE(Contains(run.output, "small.dxf: part 1 of 1, outer contour of 4")) << run.output;
  EXPECT_EQ(Ktrcl("compare " + small + " " + two + " --part 2").status, 0);
  EXPECT_EQ(Ktrcl("compare " + two + " " + small + " --part 1").status, 1);
  const auto whole = Ktrcl("compare " + two + " " + small);
  EXPECT_EQ(whole.status, 3);
  EXPECT_TRUE(Contains(whole.errors, "holds 2 parts, of which --part chooses one")) << whole.errors;
}

TEST(Compare, TakesAnotherPartOfB) {
  const support::TemporaryFolder folder;
  const std::string two = folder.Write("two.dxf", TwoParts());
  EXPECT_EQ(Ktrcl("compare " + two + " " + two + " --part 1").status, 0);
  EXPECT_EQ(Ktrcl("compare " + two + " " + two + " --part 1 --part-b 2").status, 1);
  const auto run = Ktrcl("compare " + two + " " + two + " --part 3");
  EXPECT_EQ(run.status, 3);
  EXPECT_TRUE(Contains(run.errors, "two.dxf: the drawing holds 2 parts\n")) << run.errors;
  EXPECT_EQ(Ktrcl("compare " + two + " " + two + " --part 0").status, 2);
  EXPECT_EQ(Ktrcl("compare " + two + " " + two + " --part -1").status, 2);
}

TEST(Compare, HealsBothAndSaysSo) {
  const support::TemporaryFolder folder;
  const std::string two = folder.Write("two.dxf", TwoParts());
  const std::string small = folder.Write("small.dxf", SmallPart());
  const auto run = Ktrcl("compare " + two + " " + small + " --part 2");
  EXPECT_TRUE(Contains(run.output, "healed: 1 pair of ends joined")) << run.output;
  // The larger drawing has nothing to heal.
  EXPECT_EQ(run.output.find("healed: "), run.output.rfind("healed: ")) << run.output;
  // With a smaller gap the outline stays open, and the hole is the only contour left.
  for (const char* const gap : {"0.04", "0"}) {
    const auto open = Ktrcl("compare " + two + " " + small + " --part 2 --gap " + gap);
    EXPECT_EQ(open.status, 1) << gap;
    EXPECT_TRUE(Contains(open.output, "left out: open, with loose ends at (0, 0.05) and (0, 0)"))
        << open.output;
    EXPECT_FALSE(Contains(open.output, "healed: ")) << open.output;
  }
  EXPECT_EQ(Ktrcl("compare " + two + " " + small + " --gap nan").status, 2);
}

TEST(Compare, SaysThatTheMirrorImageIsTheSame) {
  EXPECT_EQ(Compare("bracket.dxf", "bracket-mirrored.dxf").status, 1);
  const auto run = Compare("bracket.dxf", "bracket-mirrored.dxf", "--mirror");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output.rfind("Same as the mirror image: all 4 cut-outs", 0), 0U) << run.output;
  const auto json = nlohmann::json::parse(
      Compare("bracket.dxf", "bracket-mirrored.dxf", "--mirror --json").output);
  EXPECT_TRUE(json["same"].get<bool>());
  EXPECT_TRUE(json["mirrored"].get<bool>());
  EXPECT_TRUE(json["own"]["mirrored"].get<bool>());
  EXPECT_FALSE(json.contains("mirrorImage"));
}

TEST(Compare, NeedsNoMirrorImageForAPartThatIsTheSame) {
  const auto run = Compare("flange.dxf", "flange-mirrored.dxf", "--mirror");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output.rfind("Same: ", 0), 0U) << run.output;
  const auto json =
      nlohmann::json::parse(Compare("flange.dxf", "flange-mirrored.dxf", "--mirror --json").output);
  EXPECT_FALSE(json["mirrored"].get<bool>());
}

TEST(Compare, TellsOfAMirrorImageThatIsDifferentToo) {
  const auto run = Compare("bracket.dxf", "bracket-hole-moved.dxf", "--mirror");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output.rfind("Different: ", 0), 0U) << run.output;
  EXPECT_TRUE(Contains(run.output, "\nMirror image: Different: ")) << run.output;
  const auto json = nlohmann::json::parse(
      Compare("bracket.dxf", "bracket-hole-moved.dxf", "--mirror --json").output);
  EXPECT_FALSE(json["mirrored"].get<bool>());
  EXPECT_FALSE(json["mirrorImage"]["same"].get<bool>());
}

TEST(Compare, TellsTheVerdictByPlacesBesideTheLibrarys) {
  const auto same = Compare("bracket.dxf", "bracket-turned.dxf");
  EXPECT_TRUE(Contains(same.output, "\nBy places alone: same, ")) << same.output;
  EXPECT_FALSE(Contains(same.output, "The two disagree")) << same.output;
  const auto json =
      nlohmann::json::parse(Compare("bracket.dxf", "bracket-hole-moved.dxf", "--json").output);
  EXPECT_FALSE(json["own"]["same"].get<bool>());
  // The hole was moved by 2 mm.
  EXPECT_NEAR(json["own"]["largestDeviation"].get<double>(), 2.0, 0.002);
  EXPECT_LT(json["own"]["outerDeviation"].get<double>(), 0.002);
}

// A polygon of corners "x y" as lines on one layer.
std::string Polygon(const std::vector<std::pair<double, double>>& corners) {
  std::ostringstream words;
  words << std::setprecision(17);
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const auto& [x, y] = corners[i];
    const auto& [nextX, nextY] = corners[(i + 1) % corners.size()];
    words << " 0 LINE 8 CUT 10 " << x << " 20 " << y << " 11 " << nextX << " 21 " << nextY;
  }
  return support::Dxf(words.str());
}

TEST(Compare, SaysWhereTheVerdictsDisagreeAndFollowsTheLibrarys) {
  // The last 0.8 mm of a side are a roof of two sides of 0.6 in one drawing and a trough of three
  // sides of 0.4 in the other: equally long, all short enough to be passed over. The ridge is 0.6
  // from the nearest point of the other outline.
  const double ridge = std::sqrt(0.2);
  const double trough = std::sqrt(0.12);
  const support::TemporaryFolder folder;
  const std::string roofed = folder.Write(
      "roof.dxf", Polygon({{0, 0}, {120, 0}, {100, 60}, {0.8, 60}, {0.4, 60 + ridge}, {0, 60}}));
  const std::string sunk = folder.Write("trough.dxf", Polygon({{0, 0},
                                                               {120, 0},
                                                               {100, 60},
                                                               {0.8, 60},
                                                               {0.6, 60 - trough},
                                                               {0.2, 60 - trough},
                                                               {0, 60}}));
  const std::string files = "compare --mode may-differ " + roofed + " " + sunk;
  const auto run = Ktrcl(files);
  EXPECT_EQ(run.status, 0) << run.output;
  EXPECT_TRUE(Contains(run.output, "\nBy places alone: different, ")) << run.output;
  EXPECT_TRUE(Contains(run.output, "\nThe two disagree: ")) << run.output;
  const auto json = nlohmann::json::parse(Ktrcl(files + " --json").output);
  EXPECT_TRUE(json["same"].get<bool>());
  EXPECT_FALSE(json["own"]["same"].get<bool>());
  EXPECT_NEAR(json["own"]["largestDeviation"].get<double>(), 0.6, 0.002);
  EXPECT_NE(json["own"]["disagreement"], "");
}

TEST(Compare, WritesAReport) {
  const support::TemporaryFolder folder;
  const std::string file = folder.File("report.html");
  EXPECT_EQ(Compare("bracket.dxf", "bracket-mirrored.dxf", "--mirror --report " + file).status, 0);
  const std::string html = support::ReadWhole(file);
  EXPECT_TRUE(Contains(html, "<html")) << html.substr(0, 200);
  EXPECT_TRUE(Contains(html, "Same as the mirror image: all 4 cut-outs"));
  const auto run = Compare("bracket.dxf", "bracket.dxf", "--report /nonexistent/report.html");
  EXPECT_EQ(run.status, 3);
  EXPECT_TRUE(Contains(run.errors, "/nonexistent/report.html")) << run.errors;
}

}  // namespace
