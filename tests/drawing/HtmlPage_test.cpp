#include "drawing/HtmlPage.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include <pugixml.hpp>

namespace drawing {
namespace {

const char* const kReplacement = "\xEF\xBF\xBD";

bool IsWellFormed(const std::string& page) {
  pugi::xml_document document;
  return static_cast<bool>(document.load_buffer(page.data(), page.size(), pugi::parse_full));
}

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

TEST(HtmlText, WritesTheFiveCharactersOfMarkupAsReferences) {
  EXPECT_EQ(HtmlText("a<b>&\"c'"), "a&lt;b&gt;&amp;&quot;c&#39;");
}

TEST(HtmlText, LeavesNothingOfMarkupInNames) {
  EXPECT_EQ(HtmlText("</script><img onerror=\"x\">"),
            "&lt;/script&gt;&lt;img onerror=&quot;x&quot;&gt;");
}

TEST(HtmlText, KeepsOtherLettersAsTheyAre) {
  EXPECT_EQ(HtmlText("Zuschnitt \u00D8 8 \u2013 \u677F\u91D1"),
            "Zuschnitt \u00D8 8 \u2013 \u677F\u91D1");
}

TEST(HtmlText, MakesEndsOfLineAndTabsBlanks) { EXPECT_EQ(HtmlText("a\nb\tc\rd"), "a b c d"); }

TEST(HtmlText, ReplacesWhatCannotBeSeen) {
  EXPECT_EQ(HtmlText(std::string("a\0b", 3)), std::string("a") + kReplacement + "b");
  EXPECT_EQ(HtmlText("\x1B\x7F"), std::string(kReplacement) + kReplacement);
  EXPECT_EQ(HtmlText("\xC2\x85"), kReplacement);      // A control character of Latin-1.
  EXPECT_EQ(HtmlText("\xEF\xBF\xBF"), kReplacement);  // U+FFFF is no character.
}

TEST(HtmlText, ReplacesMarksThatTurnTheDirectionOfWriting) {
  // U+202E makes "fxd.exe" out of what is written behind it as "exe.dxf".
  EXPECT_EQ(HtmlText("\u202Eexe.dxf"), std::string(kReplacement) + "exe.dxf");
}

TEST(HtmlText, ReplacesEveryByteThatIsNoUtf8) {
  EXPECT_EQ(HtmlText("a\xFF\xC3"), std::string("a") + kReplacement + kReplacement);
}

TEST(HtmlDocument, IsWellFormedXmlAroundAnyTitle) {
  const std::string page = HtmlDocument("</title><script>alert(1)</script>\x01\xFF", "<p>x</p>\n");
  EXPECT_TRUE(IsWellFormed(page));
  EXPECT_EQ(Count(page, "<script>"), 1u);
  EXPECT_EQ(Count(page, "alert(1)"), 1u);
}

TEST(HtmlDocument, NamesNoAddressToLoadFrom) {
  const std::string page = HtmlDocument("title", "<p>x</p>\n");
  for (const char* part : {"http:", "https:", "//cdn", "src=", "@import", "url("}) {
    EXPECT_EQ(page.find(part), std::string::npos) << part;
  }
  EXPECT_EQ(Count(page, "href="), 1u);
  EXPECT_EQ(Count(page, "<link rel=\"icon\" href=\"data:,\"/>"), 1u);
}

TEST(HtmlDocument, ForbidsEverythingThatIsNotInIt) {
  const std::string page = HtmlDocument("title", "");
  EXPECT_NE(page.find("default-src 'none'; style-src 'unsafe-inline'; script-src 'unsafe-inline'; "
                      "img-src data:"),
            std::string::npos);
}

TEST(HtmlTable, EscapesItsCells) {
  HtmlTable table("lr", {"<a>", "b&c"});
  table.Row({"</td><img onerror=x>", "1"}, "k\"1", "loud");
  const std::string html = table.Html();
  EXPECT_NE(
      html.find("<th scope=\"col\">&lt;a&gt;</th><th scope=\"col\" class=\"num\">b&amp;c</th>"),
      std::string::npos);
  EXPECT_NE(html.find("<tr class=\"loud\" data-mark=\"k&quot;1\"><td>&lt;/td&gt;&lt;img "
                      "onerror=x&gt;</td><td class=\"num\">1</td></tr>"),
            std::string::npos);
}

TEST(HtmlTable, FillsMissingCellsAndLeavesSurplusOnesOut) {
  HtmlTable table("ll", {"a"});
  table.Row({"1"});
  table.Row({"2", "3", "4"});
  const std::string html = table.Html();
  EXPECT_NE(html.find("<tr><td>1</td><td></td></tr>"), std::string::npos);
  EXPECT_NE(html.find("<tr><td>2</td><td>3</td></tr>"), std::string::npos);
}

TEST(HtmlTable, SaysHowManyRowsItLeavesOut) {
  HtmlTable table("l", {"a"}, 2);
  for (const char* cell : {"one", "two", "three", "four"}) table.Row({cell});
  const std::string html = table.Html();
  EXPECT_EQ(table.Rows(), 4u);
  EXPECT_NE(html.find("two"), std::string::npos);
  EXPECT_EQ(html.find("three"), std::string::npos);
  EXPECT_NE(html.find("Here stand the first 2; 2 more rows left out."), std::string::npos);
}

TEST(HtmlFold, LiesOpenInTheFile) {
  EXPECT_EQ(
      HtmlFold("a & b", "<p>c</p>"),
      "<details open=\"open\" class=\"fold\">\n<summary>a &amp; b</summary>\n<p>c</p></details>\n");
}

}  // namespace
}  // namespace drawing
