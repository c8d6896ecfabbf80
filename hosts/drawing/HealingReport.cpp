#include "drawing/HealingReport.h"

#include "drawing/HealingPicture.h"
#include "drawing/HtmlPage.h"
#include "drawing/LooseEndAccount.h"
#include "drawing/NumberText.h"
#include "drawing/PartModel.h"

#include <algorithm>
#include <map>
#include <vector>

namespace drawing {

namespace {

constexpr const char* kNothing = "\u2013";

std::string Millimetres(double value) { return ShortNumber(value) + " mm"; }

std::size_t ContoursIn(const DrawingFigures& figures) {
  return figures.closed + figures.open + figures.branching;
}

std::string HeadSentence(const HealedDrawing& healed) {
  const std::size_t contours = ContoursIn(healed.after);
  std::string text =
      healed.changes.empty() ? "No changes" : CountText(healed.changes.size(), "change");
  text += "; " + std::to_string(healed.after.closed) + " of " + CountText(contours, "contour") +
          " closed";
  if (healed.changes.empty()) return text;
  return text + (healed.largestMovement > 0.0
                     ? "; largest movement " + Millimetres(healed.largestMovement)
                     : "; nothing moved");
}

std::string Fact(const char* name, const std::string& value) {
  return std::string("<div><dt>") + name + "</dt><dd>" + HtmlText(value) + "</dd></div>\n";
}

std::string UnitText(const Unit& unit) {
  std::string text = unit.name;
  if (unit.assumed) text += ", taken as mm";
  if (!unit.source.empty()) text += " (" + unit.source + ")";
  return text;
}

std::string Head(const Drawing& asRead, const HealedDrawing& healed, const LooseEndAccount& ends,
                 const HealOptions& options) {
  const bool whole = healed.after.closed == ContoursIn(healed.after) && healed.after.closed > 0;
  return "<header>\n<h1>Healing of " + HtmlText(asRead.file) + "</h1>\n<p class=\"lead " +
         (whole ? "good" : "bad") + "\">" + HtmlText(HeadSentence(healed)) +
         "</p>\n<dl class=\"facts\">\n" + Fact("Unit", UnitText(asRead.unit)) +
         Fact("Gap allowed", Millimetres(options.gap)) +
         Fact("Contours tidied", options.cleanUp ? "yes" : "no") +
         Fact("Loose ends", std::to_string(ends.ends.size()) + " as read, " +
                                std::to_string(ends.open) + " still open") +
         "</dl>\n</header>\n";
}

std::string Difference(double before, double after) {
  const std::string text = ShortNumber(after - before);
  if (text == "0") return kNothing;
  return text.front() == '-' ? "\u2212" + text.substr(1) : "+" + text;
}

std::string FiguresTable(const DrawingFigures& before, const DrawingFigures& after) {
  struct Line {
    const char* name;
    double before;
    double after;
  };
  const auto count = [](std::size_t n) { return static_cast<double>(n); };
  const Line lines[] = {
      {"Closed contours", count(before.closed), count(after.closed)},
      {"Open", count(before.open), count(after.open)},
      {"Branching", count(before.branching), count(after.branching)},
      {"Specks and contours without area", count(before.other), count(after.other)},
      {"Lines and arcs", count(before.elements), count(after.elements)},
      {"Area of material, mm\u00B2", before.area, after.area},
      {"Perimeter of closed contours, mm", before.perimeter, after.perimeter},
      {"Length of everything, mm", before.totalLength, after.totalLength}};
  HtmlTable table("lrrr", {"", "As read", "As healed", "Change"});
  for (const Line& line : lines) {
    table.Row({line.name, ShortNumber(line.before), ShortNumber(line.after),
               Difference(line.before, line.after)});
  }
  return "<h2>Before and after</h2>\n" + table.Html();
}

// "3 duplicates removed"-like counts in the order of the kinds.
std::string KindSummary(const std::vector<Change>& changes) {
  std::map<ChangeKind, std::size_t> counts;
  for (const Change& change : changes) ++counts[change.kind];
  std::string text;
  for (const auto& count : counts) {
    text += (text.empty() ? "" : ", ") + std::string(ChangeKindName(count.first)) + " " +
            std::to_string(count.second) + "\u00D7";
  }
  return text;
}

std::string ChangesTable(const std::vector<Change>& changes) {
  std::string text = "<h2>Changes</h2>\n";
  if (changes.empty()) return text + "<p>Nothing was changed.</p>\n";
  text += "<p class=\"quiet\">" + HtmlText(KindSummary(changes)) +
          ". A click on a row shows the place in the pictures.</p>\n";
  HtmlTable table("rnnrl", {"No.", "Kind", "Where", "Moved, mm", "What"}, kMostRows);
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const Change& change = changes[i];
    table.Row({std::to_string(i + 1), ChangeKindName(change.kind), PlaceText(change.place),
               change.movement > 0.0 ? ShortNumber(change.movement) : kNothing, change.what},
              ChangeKey(i + 1));
  }
  return text + table.Html();
}

std::string Outcome(const LooseEndEntry& end, double gap) {
  if (end.Joined()) return "\u25CF joined";
  if (!end.open) return "\u25CF gone with its element";
  if (end.partner == 0) return "\u25A0 still open, with no end to join it to";
  if (end.distance <= gap) return "\u25A0 still open, though within the gap";
  return "\u25A0 still open, closes with a gap of " + RoundedUp(end.distance) + " mm";
}

std::string LooseEndSummary(const LooseEndAccount& account) {
  const std::size_t gone = account.gone + account.ends.size() - account.open - account.joined;
  std::string text = CountText(account.ends.size(), "loose end") + ": " +
                     std::to_string(account.joined) + " joined, " + std::to_string(account.open) +
                     " still open.";
  if (gone > 0)
    text += " " + CountText(gone, "loose end") + " went with elements that lay on others.";
  return text;
}

std::string LooseEndsTable(const Drawing& asRead, const LooseEndAccount& account, double gap) {
  std::string text =
      "<h2>Loose ends</h2>\n<p class=\"quiet\">" + HtmlText(LooseEndSummary(account)) + "</p>\n";
  if (account.ends.empty()) return text;
  HtmlTable table("rnrrll", {"No.", "Where, as read", "Gap, mm", "To no.", "Became", "Entity"},
                  kMostRows);
  for (std::size_t i = 0; i < account.ends.size(); ++i) {
    const LooseEndEntry& end = account.ends[i];
    const bool alone = end.partner == 0;
    table.Row(
        {std::to_string(i + 1), PlaceText(end.place), alone ? kNothing : ShortNumber(end.distance),
         alone ? kNothing : std::to_string(end.partner), Outcome(end, gap),
         i < kMostRows ? EntityText(asRead, end.element) : ""},
        LooseEndKey(i + 1));
  }
  return text + table.Html();
}

std::string OverlapsTable(const Drawing& healed, const std::vector<Overlap>& overlaps) {
  if (overlaps.empty()) return "";
  HtmlTable table("rnnrll", {"No.", "Kind", "Where", "Length, mm", "One", "The other"}, kMostRows);
  for (std::size_t i = 0; i < overlaps.size(); ++i) {
    const Overlap& overlap = overlaps[i];
    const bool told = i < kMostRows;
    table.Row({std::to_string(i + 1), OverlapKindName(overlap.kind), PlaceText(overlap.place),
               ShortNumber(overlap.length), told ? EntityText(healed, overlap.keeper) : "",
               told ? EntityText(healed, overlap.other) : ""},
              OverlapKey(i + 1));
  }
  return "<h3>Elements that still lie on one another</h3>\n" + table.Html();
}

void Tell(std::vector<std::string>& lines, const std::map<std::string, int>& counts,
          const std::string& what) {
  for (const auto& count : counts) {
    lines.push_back(std::to_string(count.second) + " " + what + count.first);
  }
}

std::string List(const std::vector<std::string>& lines) {
  std::string text = "<ul class=\"plain\">\n";
  for (std::size_t i = 0; i < std::min(lines.size(), kMostRows); ++i) {
    text += "<li>" + HtmlText(lines[i]) + "</li>\n";
  }
  text += "</ul>\n";
  if (lines.size() <= kMostRows) return text;
  return text + "<p class=\"quiet\">" + CountText(lines.size() - kMostRows, "more line") +
         " left out.</p>\n";
}

std::string WhatWasLeft(const HealedDrawing& healed) {
  std::vector<std::string> lines = healed.notes;
  for (const Crossing& crossing : healed.crossings) lines.push_back(CrossingText(crossing));
  const std::string overlaps = OverlapsTable(healed.drawing, healed.overlapsLeft);
  std::string text = "<h2>What was left</h2>\n";
  if (lines.empty() && overlaps.empty()) return text + "<p>Nothing was found and left.</p>\n";
  return text + (lines.empty() ? "" : List(lines)) + overlaps;
}

// What never came into the drawing, and what the reader had to say.
std::string FromTheReader(const Drawing& asRead) {
  std::vector<std::string> lines;
  Tell(lines, asRead.hiddenByLayer, "on a layer that is off or frozen: ");
  Tell(lines, asRead.paperSpaceByType, "on paper space: ");
  Tell(lines, asRead.unusedByType, "not contours: ");
  Tell(lines, asRead.refusedByType, "refused: ");
  std::string text = "<h2>Reading the file</h2>\n";
  if (lines.empty() && asRead.complaints.empty()) {
    return text + "<p>Everything in the file was used.</p>\n";
  }
  if (!lines.empty()) text += "<p>Left out:</p>\n" + List(lines);
  if (asRead.complaints.empty()) return text;
  HtmlTable table("nrnll", {"Weight", "Line", "Entity", "What", "What was done"}, kMostRows);
  for (const Complaint& complaint : asRead.complaints) {
    const std::string entity =
        complaint.entity + (complaint.handle.empty() ? "" : " " + complaint.handle);
    table.Row({SeverityName(complaint.severity),
               complaint.line == 0 ? kNothing : std::to_string(complaint.line), entity,
               complaint.what, complaint.done},
              "", complaint.severity == Severity::kError ? "loud" : "");
  }
  return text + table.Html();
}

}  // namespace

std::string HealingReportHtml(const Drawing& asRead, const HealedDrawing& healed,
                              const HealOptions& options) {
  const std::vector<Network> networks = FindNetworksOnly(asRead);
  const LooseEndAccount looseEnds = AccountOfLooseEnds(asRead, networks, healed, options.gap);
  return HtmlDocument("Healing of " + asRead.file,
                      Head(asRead, healed, looseEnds, options) +
                          HealingPictures(asRead, networks, healed, looseEnds) +
                          FiguresTable(healed.before, healed.after) + ChangesTable(healed.changes) +
                          LooseEndsTable(asRead, looseEnds, options.gap) + WhatWasLeft(healed) +
                          FromTheReader(asRead));
}

}  // namespace drawing
