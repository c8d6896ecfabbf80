#include "drawing/HealingReport.h"

#include "drawing/HealingPicture.h"
#include "drawing/NumberText.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <pugixml.hpp>

namespace drawing {
namespace {

void AddLine(Drawing& drawing, double x1, double y1, double x2, double y2) {
  DrawnEntity entity;
  entity.type = "LINE";
  entity.layer = "CUT";
  entity.line = 10 * (drawing.entities.size() + 1);
  drawing.elements.push_back({std::make_unique<GX2DLine>(x1, y1, x2, y2), drawing.entities.size()});
  drawing.entities.push_back(entity);
}

Drawing Named(const std::string& file) {
  Drawing drawing;
  drawing.file = file;
  drawing.usable = true;
  return drawing;
}

// A square of 40 that does not meet at (40, 0) by 0.08 and at (0, 40) by 0.5, with its first side
// drawn twice: elements 0 and 4.
Drawing Square() {
  Drawing drawing = Named("square.dxf");
  AddLine(drawing, 0, 0, 40, 0);
  AddLine(drawing, 40, 0.08, 40, 40);
  AddLine(drawing, 40, 40, 0.5, 40);
  AddLine(drawing, 0, 40, 0, 0);
  AddLine(drawing, 40, 0, 0, 0);
  return drawing;
}

std::string Report(const Drawing& drawing, double gap = 0.1) {
  HealOptions options;
  options.gap = gap;
  return HealingReportHtml(drawing, HealDrawing(drawing, options), options);
}

class Page {
 public:
  explicit Page(const std::string& html) : parsed_(document_.load_string(html.c_str())) {}

  bool IsWellFormed() const { return static_cast<bool>(parsed_); }

  std::size_t Count(const std::string& xpath) const {
    return document_.select_nodes(xpath.c_str()).size();
  }

  std::string Text(const std::string& xpath) const {
    return document_.select_node(xpath.c_str()).node().text().get();
  }

  // The cells of the first row that an XPath finds.
  std::vector<std::string> Cells(const std::string& xpath) const {
    std::vector<std::string> cells;
    for (const auto& cell : document_.select_node(xpath.c_str()).node().children()) {
      cells.emplace_back(cell.text().get());
    }
    return cells;
  }

 private:
  pugi::xml_document document_;
  pugi::xml_parse_result parsed_;
};

using Strings = std::vector<std::string>;

TEST(HealingReportHtml, IsWellFormedAndHasTheSameBytesTwice) {
  const Drawing drawing = Square();
  const std::string html = Report(drawing);
  EXPECT_TRUE(Page(html).IsWellFormed());
  EXPECT_EQ(html, Report(drawing));
}

TEST(HealingReportHtml, LoadsNothing) {
  const std::string html = Report(Square());
  for (const char* part : {"http:", "https:", "src=", "@import", "url("}) {
    EXPECT_EQ(html.find(part), std::string::npos) << part;
  }
}

TEST(HealingReportHtml, BeginsWithTheSentenceThatTellsEverything) {
  // The doubled side goes, the lines at (40, 0) meet in their crossing, 0.5 mm stay open.
  const Page page(Report(Square()));
  EXPECT_EQ(page.Text("//h1"), "Healing of square.dxf");
  EXPECT_EQ(page.Text("//p[starts-with(@class, 'lead')]"),
            "2 changes; 0 of 1 contour closed; largest movement 0.08 mm");
  EXPECT_EQ(page.Count("//p[@class='lead bad']"), 1u);
  const Page closed(Report(Square(), 0.6));
  EXPECT_EQ(closed.Count("//p[@class='lead good']"), 1u);
}

TEST(HealingReportHtml, SaysThatACleanDrawingNeedsNothing) {
  Drawing drawing = Named("clean.dxf");
  AddLine(drawing, 0, 0, 40, 0);
  AddLine(drawing, 40, 0, 0, 30);
  AddLine(drawing, 0, 30, 0, 0);
  const Page page(Report(drawing));
  EXPECT_EQ(page.Text("//p[@class='lead good']"), "No changes; 1 of 1 contour closed");
  EXPECT_EQ(page.Count("//p[text()='Nothing was changed.']"), 1u);
}

TEST(HealingReportHtml, ShowsTwoPicturesInOneView) {
  const Page page(Report(Square()));
  EXPECT_EQ(page.Count("//svg[@class='picture']"), 2u);
  EXPECT_EQ(page.Count("//svg[@class='picture'][@data-view='drawing']"), 2u);
  // As read the doubled side makes a junction at both of its ends; healed it is an open chain.
  EXPECT_EQ(page.Count("//figure[1]//path[@class='dotted purple']"), 1u);
  EXPECT_EQ(page.Count("//figure[1]//path[@class='dashdot blue thick'][@data-mark='c1']"), 1u);
  EXPECT_EQ(page.Count("//figure[2]//path[@class='dashed red']"), 1u);
  EXPECT_EQ(page.Count("//figure[2]//path[@class='dotted purple']"), 0u);
}

TEST(HealingReportHtml, FillsContoursThatClose) {
  const Page page(Report(Square(), 0.6));
  EXPECT_EQ(page.Count("//figure[1]//path[@class='sheet']"), 0u);
  EXPECT_EQ(page.Count("//figure[2]//path[@class='sheet']"), 1u);
}

TEST(HealingReportHtml, DrawsVeryManyContoursInPathsThatLieApart) {
  Drawing drawing = Named("many.dxf");
  for (int i = 0; i < 500; ++i) {
    const double x = 20.0 * (i % 25);
    const double y = 20.0 * (i / 25);
    AddLine(drawing, x, y, x + 10.0, y);
    AddLine(drawing, x + 10.0, y, x, y + 10.0);
    AddLine(drawing, x, y + 10.0, x, y);
  }
  const Page page(Report(drawing));
  EXPECT_EQ(page.Count("//figure[2]//path[@class='sheet']"), 1u);
  EXPECT_GT(page.Count("//figure[2]//path[@class='solid ink']"), 100u);
  EXPECT_LT(page.Count("//figure[2]//path[@class='solid ink']"), 500u);
}

TEST(HealingReportHtml, NumbersLooseEndsInBothPicturesByShapeAndInTheTable) {
  const Page page(Report(Square()));
  // 1 and 2 at (40, 0), 3 and 4 at (0, 40), each pair under one badge.
  for (const char* figure : {"//figure[1]", "//figure[2]"}) {
    const std::string badge = std::string(figure) + "//g[starts-with(@class, 'badge')]";
    EXPECT_EQ(page.Count(badge), 2u);
    EXPECT_EQ(page.Text(badge + "[@data-mark='e1 e2']//text"), "1\u20132");
    EXPECT_EQ(page.Text(badge + "[@data-mark='e3 e4']//text"), "3\u20134");
    EXPECT_EQ(page.Count(badge + "[@data-mark='e1 e2']//rect[@rx]"), 1u);
    EXPECT_EQ(page.Count(badge + "[@data-mark='e3 e4']//rect[not(@rx)]"), 1u);
  }
  EXPECT_EQ(page.Cells("//tr[@data-mark='e1']"),
            (Strings{"1", "(40, 0)", "0.08", "2", "\u25CF joined", "LINE on layer CUT, line 10"}));
  EXPECT_EQ(page.Cells("//tr[@data-mark='e4']"),
            (Strings{"4", "(0, 40)", "0.5", "3", "\u25A0 still open, closes with a gap of 0.5 mm",
                     "LINE on layer CUT, line 40"}));
}

TEST(HealingReportHtml, LetsEveryRowFindItsPlaceInBothPictures) {
  const Page page(Report(Square()));
  for (const char* key : {"c1", "c2", "e1", "e2", "e3", "e4"}) {
    const std::string mark = std::string("[@data-mark='") + key + "']";
    EXPECT_EQ(page.Count("//tr" + mark), 1u) << key;
    EXPECT_EQ(page.Count("//figure[1]//g[@class='spot']" + mark), 1u) << key;
    EXPECT_EQ(page.Count("//figure[2]//g[@class='spot']" + mark), 1u) << key;
  }
}

TEST(HealingReportHtml, HasTheNumbersOfTheHealedDrawingInItsTables) {
  const Drawing drawing = Square();
  HealOptions options;
  options.gap = 0.6;
  const HealedDrawing healed = HealDrawing(drawing, options);
  const Page page(HealingReportHtml(drawing, healed, options));
  EXPECT_EQ(page.Count("//tr[starts-with(@data-mark, 'c')]"), healed.changes.size());
  for (std::size_t i = 0; i < healed.changes.size(); ++i) {
    const Change& change = healed.changes[i];
    const std::string number = std::to_string(i + 1);
    EXPECT_EQ(
        page.Cells("//tr[@data-mark='c" + number + "']"),
        (Strings{number, ChangeKindName(change.kind), PlaceText(change.place),
                 change.movement > 0.0 ? ShortNumber(change.movement) : "\u2013", change.what}));
  }
  // Closed it is a square of 40: area 1600, perimeter 160. As read, five lines of 40, 40, 39.5,
  // 39.92 and 40 millimetres, none of them a contour.
  EXPECT_EQ(page.Cells("//tr[td='Closed contours']"), (Strings{"Closed contours", "0", "1", "+1"}));
  EXPECT_EQ(page.Cells("//tr[td='Lines and arcs']"),
            (Strings{"Lines and arcs", "5", "4", "\u22121"}));
  EXPECT_EQ(page.Cells("//tr[starts-with(td, 'Area')]"),
            (Strings{"Area of material, mm\u00B2", "0", "1600", "+1600"}));
  EXPECT_EQ(page.Cells("//tr[starts-with(td, 'Perimeter')]"),
            (Strings{"Perimeter of closed contours, mm", "0", "160", "+160"}));
  EXPECT_EQ(page.Cells("//tr[starts-with(td, 'Length')]"),
            (Strings{"Length of everything, mm", "199.42", "160", "\u221239.42"}));
}

TEST(HealingReportHtml, ShowsNamesAsTextAndNeverAsMarkup) {
  const std::string evil = "</script><img src=x onerror=alert(1)>";
  Drawing drawing = Square();
  drawing.file = evil;
  for (DrawnEntity& entity : drawing.entities) {
    entity.layer = evil;
    entity.handle = "\"><b>\xFF";
  }
  drawing.hiddenByLayer[evil] = 3;
  Complain(drawing, Severity::kError, 7, &drawing.entities[0], evil, evil);
  const std::string html = Report(drawing);
  const Page page(html);
  EXPECT_TRUE(page.IsWellFormed());
  EXPECT_EQ(page.Count("//img"), 0u);
  EXPECT_EQ(page.Count("//b"), 0u);
  EXPECT_EQ(page.Count("//script"), 1u);
  EXPECT_EQ(page.Text("//h1"), "Healing of " + evil);
  EXPECT_EQ(page.Text("//li[starts-with(., '3 on a layer')]"),
            "3 on a layer that is off or frozen: " + evil);
}

TEST(HealingReportHtml, TellsWhatTheReaderComplainedAbout) {
  Drawing drawing = Square();
  Complain(drawing, Severity::kWarning, 12, &drawing.entities[1], "no end point", "left out");
  const Page page(Report(drawing));
  EXPECT_EQ(page.Cells("//tr[td='no end point']"),
            (Strings{"warning", "12", "LINE", "no end point", "left out"}));
}

TEST(HealingReportHtml, StopsTablesAndMarksAtTheSameRow) {
  // Lines apart from each other, in 44 rows of 25: two loose ends each, all open.
  Drawing drawing = Named("many.dxf");
  for (int i = 0; i < 1100; ++i) {
    const double x = 20.0 * (i % 25);
    const double y = 10.0 * (i / 25);
    AddLine(drawing, x, y, x, y + 5.0);
  }
  const Page page(Report(drawing));
  EXPECT_EQ(page.Count("//tr[starts-with(@data-mark, 'e')]"), kMostRows);
  EXPECT_EQ(page.Count("//figure[1]//g[@class='spot'][starts-with(@data-mark, 'e')]"), kMostRows);
  EXPECT_EQ(page.Count("//p[text()='Here stand the first 2000; 200 more rows left out.']"), 1u);
  // Badges would cover the drawing.
  EXPECT_EQ(page.Count("//g[starts-with(@class, 'badge')]"), 0u);
  EXPECT_EQ(page.Count("//figure[1]//path[@class='dots thin square red']"), 1u);
}

TEST(HealingReportHtml, OfAnEmptyDrawingIsAPageAllTheSame) {
  EXPECT_TRUE(Page(Report(Named("empty.dxf"))).IsWellFormed());
}

TEST(NumberRanges, JoinsNeighboursAndStopsAfterTwo) {
  EXPECT_EQ(NumberRanges({3}), "3");
  EXPECT_EQ(NumberRanges({1, 2}), "1\u20132");
  EXPECT_EQ(NumberRanges({1, 2, 3, 7}), "1\u20133, 7");
  EXPECT_EQ(NumberRanges({1, 4, 9, 11}), "1, 4 \u2026");
}

}  // namespace
}  // namespace drawing
