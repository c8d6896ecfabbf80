#include "drawing/ComparisonReport.h"

#include "PartSketch.h"
#include "drawing/ComparisonFindings.h"
#include "drawing/NumberText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <pugixml.hpp>

namespace {

using support::CircleContour;
using support::PartOf;

const support::SketchContour kPlate = support::PolygonContour(
    {{0.0, 0.0}, {60.0, 0.0}, {60.0, 20.0}, {30.0, 20.0}, {30.0, 50.0}, {0.0, 50.0}});

// A comparison and the page on it.
struct Report {
  Report(const support::PartSketch& sketchA, const support::PartSketch& sketchB,
         const std::string& file = "part.dxf", bool mirrored = false) {
    a = PartOf(sketchA);
    b = PartOf(sketchB);
    a.drawing.file = b.drawing.file = file;
    drawing::CompareOptions options;
    options.trace = true;
    comparison = drawing::CompareParts(a, b, options);
    own = drawing::CompareGeometry(a, b, false, &comparison);
    text = Write(mirrored);
    page.load_buffer(text.data(), text.size(), pugi::parse_full);
  }

  std::string Write(bool mirrored) const {
    return drawing::ComparisonReportHtml({a, b, comparison, own, comparison.verdict,
                                          drawing::DisagreementText(a, b, comparison, own),
                                          mirrored});
  }

  // Elements of the path that have the key and stand for the first difference.
  bool HasFirst(const std::string& path, const std::string& key) const {
    const pugi::xpath_node_set found =
        page.select_nodes((path + "[contains(concat(' ', @class, ' '), ' first ')]").c_str());
    return std::any_of(found.begin(), found.end(), [&](const pugi::xpath_node& node) {
      return node.node().attribute("data-mark").value() == key;
    });
  }

  drawing::PartModel a;
  drawing::PartModel b;
  drawing::Comparison comparison;
  drawing::GeometricVerdict own;
  std::string text;
  pugi::xml_document page;
};

std::string Picture(const std::string& view) { return "//svg[@data-view='" + view + "']//*"; }

std::vector<std::string> Cells(const pugi::xml_node& row) {
  std::vector<std::string> cells;
  for (const pugi::xml_node& cell : row.children("td")) cells.emplace_back(cell.text().get());
  return cells;
}

// Rows of tables that have exactly this key or one that begins with it.
std::vector<std::vector<std::string>> RowsOf(const Report& report, const std::string& keyBegin) {
  std::vector<std::vector<std::string>> rows;
  for (const auto& found : report.page.select_nodes("//tr[@data-mark]")) {
    const std::string key = found.node().attribute("data-mark").value();
    if (key.rfind(keyBegin, 0) == 0 && key.find(' ') == std::string::npos) {
      rows.push_back(Cells(found.node()));
    }
  }
  return rows;
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

void ExpectFirstEverywhere(const Report& report, const std::string& key) {
  for (const char* view : {"a", "b", "overlay"}) {
    EXPECT_TRUE(report.HasFirst(Picture(view), key)) << view << " " << key;
  }
  EXPECT_TRUE(report.HasFirst("//tr", key)) << key;
  EXPECT_TRUE(report.HasFirst("//p", key)) << key;
}

TEST(ComparisonReportHtml, IsWellFormedAndTellsTheVerdict) {
  const Report report({kPlate, CircleContour(10.0, 10.0, 3.0)}, {kPlate});
  ASSERT_TRUE(report.page.child("html"));
  EXPECT_EQ(report.page.select_node("//p[@class='lead bad']").node().text().get(),
            report.comparison.verdict);
  const Report same({kPlate}, {kPlate});
  EXPECT_TRUE(same.page.select_node("//p[@class='lead good']"));
  EXPECT_FALSE(same.page.select_node("//*[contains(@class, 'first')]"));
}

TEST(ComparisonReportHtml, GivesTheSameBytesForTheSameParts) {
  const support::PartSketch a = {kPlate, CircleContour(10.0, 10.0, 3.0)};
  const support::PartSketch b = {kPlate, CircleContour(12.0, 10.0, 3.0)};
  EXPECT_EQ(Report(a, b).text, Report(a, b).text);
}

TEST(ComparisonReportHtml, TakesNoMarkupFromFileNames) {
  const std::string sly = "</title><script>alert('x')</script>\"&\x01.dxf";
  const Report report({kPlate}, {kPlate}, sly);
  ASSERT_TRUE(report.page.child("html"));
  EXPECT_FALSE(Contains(report.text, "<script>alert"));
  EXPECT_FALSE(Contains(report.text, "\x01"));
  const std::string heading = report.page.select_node("//h1").node().text().get();
  EXPECT_TRUE(Contains(heading, "</title><script>alert('x')</script>\"&")) << heading;
}

TEST(ComparisonReportHtml, ShowsTheFiguresOfTheComparisonInTheirOrder) {
  const Report report({kPlate}, {support::RectangleContour(0.0, 0.0, 60.0, 50.0)});
  const auto rows = report.page.select_nodes("(//table)[1]/tbody/tr");
  ASSERT_GE(rows.size(), report.comparison.figures.size());
  for (std::size_t i = 0; i < report.comparison.figures.size(); ++i) {
    const drawing::Figure& figure = report.comparison.figures[i];
    const std::vector<std::string> cells = Cells(rows[i].node());
    ASSERT_EQ(cells.size(), 6U);
    EXPECT_EQ(cells[0], figure.name);
    EXPECT_EQ(cells[1], figure.a);
    EXPECT_EQ(cells[2], figure.b);
    EXPECT_EQ(cells[3], drawing::ShortNumber(figure.difference));
    EXPECT_EQ(cells[4], drawing::ShortNumber(figure.limit));
  }
  // Six lines against four: the second figure decides, and it alone.
  EXPECT_EQ(Cells(rows[1].node())[5], "differs, and decides");
  EXPECT_STREQ(rows[1].node().attribute("class").value(), "loud");
  EXPECT_EQ(report.page.select_nodes("(//table)[1]//tr[@class='loud']").size(), 1U);
}

TEST(ComparisonReportHtml, AlignsTheStripOfAPartThatIsDrawnTheOtherWayRound) {
  support::SketchContour reversed = support::Reversed(kPlate);
  std::rotate(reversed.begin(), reversed.begin() + 2, reversed.end());
  const Report report({kPlate}, support::Moved({reversed}, 0.4, 10.0, 20.0));
  const auto rows = RowsOf(report, "outline-");
  const std::vector<std::string> lengths = {"60.0000", "20.0000", "30.0000",
                                            "30.0000", "30.0000", "50.0000"};
  const std::vector<std::string> angles = {"90.000", "90.000", "270.000",
                                           "90.000", "90.000", "90.000"};
  ASSERT_EQ(rows.size(), lengths.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(rows[i], (std::vector<std::string>{std::to_string(i + 1), "line", lengths[i], "line",
                                                 lengths[i], "0.0000", angles[i], angles[i], ""}));
  }
}

TEST(ComparisonReportHtml, SaysThatBWasTurnedOver) {
  const Report plain({kPlate}, {kPlate});
  EXPECT_FALSE(Contains(plain.text, "turned over"));
  const Report report({kPlate}, {kPlate}, "part.dxf", true);
  EXPECT_STREQ(report.page.select_node("//p/strong").node().text().get(), "B was turned over.");
  EXPECT_TRUE(report.page.select_node("//figcaption[.='B: part.dxf, turned over']"));
}

TEST(ComparisonReportHtml, NamesEveryCutOutOfBothSides) {
  const Report report({kPlate, CircleContour(10.0, 10.0, 3.0), CircleContour(10.0, 30.0, 3.0),
                       CircleContour(25.0, 10.0, 2.0)},
                      {kPlate, CircleContour(10.0, 10.0, 3.0), CircleContour(10.0, 33.0, 3.0),
                       CircleContour(45.0, 10.0, 5.0)});
  // Rows of groups with one member have its key as well, and a cell less.
  auto rows = RowsOf(report, "cutout-");
  rows.erase(
      std::remove_if(rows.begin(), rows.end(), [](const auto& cells) { return cells.size() < 7; }),
      rows.end());
  EXPECT_EQ(rows.size(), 4U);
  const auto named = [&](std::size_t column, const std::string& place) {
    return std::count_if(rows.begin(), rows.end(), [&](const std::vector<std::string>& cells) {
      return cells.at(column) == place;
    });
  };
  for (const char* place : {"(10, 10)", "(10, 30)", "(25, 10)"}) EXPECT_EQ(named(2, place), 1);
  for (const char* place : {"(10, 10)", "(10, 33)", "(45, 10)"}) EXPECT_EQ(named(3, place), 1);
}

TEST(ComparisonReportHtml, ShowsACutOutThatWasMovedInBothPicturesAndTheTable) {
  const Report report({kPlate, CircleContour(10.0, 10.0, 3.0)},
                      {kPlate, CircleContour(12.0, 10.0, 3.0)});
  ExpectFirstEverywhere(report, "cutout-1");
}

TEST(ComparisonReportHtml, NamesWhatLiesInThePlaceOfACutOut) {
  const Report report({kPlate, CircleContour(10.0, 10.0, 3.0)},
                      {kPlate, CircleContour(10.0, 10.0, 4.0)});
  ExpectFirstEverywhere(report, "cutout-1");
  EXPECT_STREQ(report.page.select_node("//p[@data-mark]").node().text().get(),
               "Cut-out 1: circle, diameter 6, at (10, 10) in A; circle, diameter 8, at (10, 10) "
               "in B, in its place but of another shape.");
}

TEST(ComparisonReportHtml, ShowsWhatIsMissingInThePictureOfThePartThatLacksIt) {
  const Report missingInA({kPlate}, {kPlate, CircleContour(10.0, 10.0, 3.0)});
  ExpectFirstEverywhere(missingInA, "cutout-1");
  const Report missingInB({kPlate, CircleContour(10.0, 10.0, 3.0)},
                          support::Moved({kPlate}, 1.0, 5.0, 5.0));
  ExpectFirstEverywhere(missingInB, "cutout-1");
}

TEST(ComparisonReportHtml, ShowsASegmentThatDiffersInBothPicturesAndTheTable) {
  const Report report({support::RectangleContour(0.0, 0.0, 60.0, 40.0)},
                      {support::RectangleContour(0.0, 0.0, 60.0, 42.0)});
  const auto rows = RowsOf(report, "outline-");
  ASSERT_EQ(rows.size(), 4U);
  // The sides of 40 and 42 are the second and the fourth, or the first and the third.
  const bool second = rows[0][2] == "60.0000";
  const std::vector<std::string>& first = rows[second ? 1 : 0];
  EXPECT_EQ(first[2], "40.0000");
  EXPECT_EQ(first[4], "42.0000");
  EXPECT_EQ(first[5], "-2.0000");
  EXPECT_EQ(first[8], "first difference: length differs");
  ExpectFirstEverywhere(report, second ? "outline-2" : "outline-1");
}

TEST(ComparisonReportHtml, ShowsFourHundredRowsOfALongOutlineAboutTheDifference) {
  // A comb of 300 teeth, 1,202 sides: one tooth of B is longer.
  const auto comb = [](int longTooth) {
    std::vector<GX2DPoint> corners = {{0.0, 0.0}, {1200.0, 0.0}};
    for (int i = 299; i >= 0; --i) {
      const double x = 4.0 * i;
      const double top = i == longTooth ? 13.0 : 10.0;
      for (const GX2DPoint& p : {GX2DPoint(x + 4.0, top), GX2DPoint(x + 2.0, top),
                                 GX2DPoint(x + 2.0, 5.0), GX2DPoint(x, 5.0)}) {
        corners.push_back(p);
      }
    }
    return support::PolygonContour(corners);
  };
  const Report report({comb(-1)}, {comb(100)});
  EXPECT_EQ(RowsOf(report, "outline-").size(), 400U);
  const auto first = report.page.select_nodes("//tr[contains(@class, 'first')]");
  ASSERT_EQ(first.size(), 1U);
  EXPECT_TRUE(Contains(report.text, "Of 1202 rows, "));
  ExpectFirstEverywhere(report, first[0].node().attribute("data-mark").value());
}

TEST(ComparisonReportHtml, FoldsTheWordsOfTheLibrary) {
  const Report report({kPlate}, {kPlate});
  ASSERT_FALSE(report.comparison.trace.empty());
  const std::string words = report.page.select_node("//details/pre").node().text().get();
  for (const std::string& line : report.comparison.trace) EXPECT_TRUE(Contains(words, line));
}

TEST(Inverse, UndoesAPlacement) {
  drawing::Placement placement;
  placement.motion = drawing::TurnAndShift(0.9, {0.0, 0.0}, {13.0, -4.0});
  for (const bool mirrored : {false, true}) {
    placement.mirrored = mirrored;
    const GX2DPoint p = drawing::Inverse(placement).Apply(placement.Apply({7.0, 2.0}));
    EXPECT_NEAR(p.X, 7.0, 1e-12);
    EXPECT_NEAR(p.Y, 2.0, 1e-12);
  }
}

}  // namespace
