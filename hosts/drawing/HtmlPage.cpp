#include "drawing/HtmlPage.h"

#include "drawing/EscapedText.h"
#include "drawing/HtmlStyle.h"
#include "drawing/NumberText.h"
#include "drawing/Utf8Text.h"

#include <algorithm>
#include <utility>

namespace drawing {

namespace {

constexpr const char* kReplacement = "\xEF\xBF\xBD";

// Marks, embeddings and isolates of the direction of writing: with them a name can be made to look
// like another.
bool TurnsDirection(char32_t c) {
  return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069);
}

bool IsHidden(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0xFEFF || TurnsDirection(c) ||
         c == kNoCharacter || !IsXmlCharacter(c);
}

const char* ReferenceOf(char32_t c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    case '\t':
    case '\n':
    case '\r':
      return " ";
    default:
      return nullptr;
  }
}

std::string Attribute(const char* name, std::string_view value) {
  if (value.empty()) return "";
  return std::string(" ") + name + "=\"" + HtmlText(value) + "\"";
}

}  // namespace

std::string HtmlText(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t begin = position;
    const char32_t c = NextCharacter(text, position);
    if (const char* reference = ReferenceOf(c)) {
      result += reference;
    } else if (IsHidden(c)) {
      result += kReplacement;
    } else {
      result += text.substr(begin, position - begin);
    }
  }
  return result;
}

std::string HtmlDocument(std::string_view title, std::string_view body) {
  std::string page =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n"
      "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
      "style-src 'unsafe-inline'; script-src 'unsafe-inline'; img-src data:\"/>\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
      "<meta name=\"color-scheme\" content=\"light dark\"/>\n"
      "<link rel=\"icon\" href=\"data:,\"/>\n<title>";
  page += HtmlText(title);
  page += "</title>\n<style>\n";
  page += HtmlStyleSheet();
  page += "</style>\n</head>\n<body>\n<main>\n";
  page += body;
  page += "</main>\n<script>\n";
  page += HtmlScript();
  return page + "</script>\n</body>\n</html>\n";
}

std::string HtmlFigure(std::string_view caption, std::string_view svg, std::string_view below) {
  std::string figure = "<figure>\n<figcaption>" + HtmlText(caption) + "</figcaption>\n";
  figure += svg;
  figure += below;
  return figure + "</figure>\n";
}

std::string HtmlLegendEntry(std::string_view strokeClasses, std::string_view text) {
  std::string entry = "<li>";
  if (!strokeClasses.empty()) {
    entry += "<svg class=\"swatch\" viewBox=\"0 0 34 10\" aria-hidden=\"true\"><path" +
             Attribute("class", strokeClasses) + " d=\"" +
             (strokeClasses.find("dots") == std::string_view::npos ? "M2 5H32" : "M17 5h.1") +
             "\"/></svg>";
  }
  return entry + HtmlText(text) + "</li>\n";
}

std::string HtmlFold(std::string_view summary, std::string_view body) {
  std::string fold =
      "<details open=\"open\" class=\"fold\">\n<summary>" + HtmlText(summary) + "</summary>\n";
  fold += body;
  return fold + "</details>\n";
}

HtmlTable::HtmlTable(std::string alignment, const std::vector<std::string>& heads,
                     std::size_t mostRows)
    : alignment_(std::move(alignment)), mostRows_(mostRows) {
  for (std::size_t i = 0; i < alignment_.size(); ++i) {
    head_ += alignment_[i] == 'r' ? "<th scope=\"col\" class=\"num\">" : "<th scope=\"col\">";
    head_ += (i < heads.size() ? HtmlText(heads[i]) : "") + "</th>";
  }
}

void HtmlTable::Row(const std::vector<std::string>& cells, std::string_view mark,
                    std::string_view rowClass) {
  if (++count_ > mostRows_) return;
  rows_ += "<tr" + Attribute("class", rowClass) + Attribute("data-mark", mark) + ">";
  for (std::size_t i = 0; i < alignment_.size(); ++i) {
    rows_ += alignment_[i] == 'r'   ? "<td class=\"num\">"
             : alignment_[i] == 'n' ? "<td class=\"line\">"
                                    : "<td>";
    rows_ += (i < cells.size() ? HtmlText(cells[i]) : "") + "</td>";
  }
  rows_ += "</tr>\n";
}

std::size_t HtmlTable::Rows() const { return count_; }

std::string HtmlTable::Html() const {
  std::string table = "<div class=\"scroll\">\n<table>\n<thead><tr>" + head_ +
                      "</tr></thead>\n<tbody>\n" + rows_ + "</tbody>\n</table>\n</div>\n";
  if (count_ > mostRows_) {
    table += "<p class=\"quiet\">Here stand the first " + std::to_string(mostRows_) + "; " +
             CountText(count_ - mostRows_, "more row") + " left out.</p>\n";
  }
  return table;
}

}  // namespace drawing
