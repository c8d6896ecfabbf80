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
  // The circle of radius 5 about (20, 0) in thirds: rational of degree 2, weights 1 and 1/2.
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

}  // namespace
