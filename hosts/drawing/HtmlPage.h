// Pages that need nothing but a browser: text made safe, one style sheet, one small script, tables.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace drawing {

/// A text as it may stand between tags and in quoted attributes.
///
/// The characters & < > " ' become references, ends of line and tabs blanks. What could not be seen
/// or would change the order of what is seen (other control characters, marks that turn the
/// direction of writing, what is no valid UTF-8 or no character of XML) becomes U+FFFD.
std::string HtmlText(std::string_view text);

/// A whole document around `body`, which is markup; `title` is text.
///
/// The document is valid HTML and well-formed XML, if `body` is: tags are closed, attributes
/// quoted. It loads nothing, and its policy forbids that it ever does. The style sheet has a light
/// and a dark face by the reader's preference and a white one for paper. The script adds comfort
/// only.
///
/// Classes for `body`:
///
///     lead                 the sentence that tells everything, behind the h1
///     facts                a dl of short facts in one row
///     side                 holds two figures, beside each other on wide screens
///     quiet                words of less weight
///     good, bad            on a verdict: a tick or a cross stands in front, besides the colour
///     legend               a ul whose entries come from HtmlLegendEntry
///
/// In pictures (svg class="picture", see SvgScene) every stroke keeps its width whatever the zoom:
///
///     sheet                the area of material, without an edge
///     filled               a line with the area of material inside it (even-odd)
///     solid dashed dotted dashdot     the style of a line, always given
///     ink faint blue red green purple its colour, never without a style of its own
///     thin, thick          its weight, where it is not the usual one
///     dots                 round dots of a constant size (SvgScene::DotData), with "square" square
///     ones
///
/// Anything with data-mark="K" can be marked: a click, or Enter or Space on it while it has the
/// focus, gives the class "marked" and aria-pressed="true" to everything that shares a key with it,
/// takes them from all others, and brings the counterpart into view: the picture for a row of a
/// table, the row for a mark in a picture. A second click takes the mark away. One element may have
/// several keys, separated by blanks. Pictures with the same data-view are zoomed and moved
/// together; the buttons for that come from the script.
std::string HtmlDocument(std::string_view title, std::string_view body);

/// A picture with its caption (text), and markup below it, such as a legend.
std::string HtmlFigure(std::string_view caption, std::string_view svg, std::string_view below = {});

/// An entry of a legend: a short stroke of these classes of a picture ("dashed red"), and a text.
/// Without classes there is the text alone.
std::string HtmlLegendEntry(std::string_view strokeClasses, std::string_view text);

/// Something that is folded away by the script and lies open without it and on paper. `summary` is
/// text, `body` markup.
std::string HtmlFold(std::string_view summary, std::string_view body);

/// A table whose cells are text. It scrolls by itself, with its head staying in sight.
class HtmlTable {
 public:
  /// `alignment` has one letter per column: 'l' for words, 'n' for words that stay on one line, 'r'
  /// for figures. Rows beyond `mostRows` are counted and not kept.
  HtmlTable(std::string alignment, const std::vector<std::string>& heads,
            std::size_t mostRows = 2000);

  /// Missing cells are empty, surplus ones are ignored. `mark` is the row's data-mark, where not
  /// empty; `rowClass` its class: "loud" for rows that matter most, "quiet" for the least.
  void Row(const std::vector<std::string>& cells, std::string_view mark = {},
           std::string_view rowClass = {});

  /// How many rows were given.
  std::size_t Rows() const;

  /// The table, and where rows were left out a sentence that says how many.
  std::string Html() const;

 private:
  std::string alignment_;
  std::string head_;
  std::string rows_;
  std::size_t mostRows_;
  std::size_t count_ = 0;
};

}  // namespace drawing
