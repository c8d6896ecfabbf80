#include "drawing/ComparisonReportSections.h"
#include "drawing/HtmlPage.h"
#include "drawing/NumberText.h"
#include "drawing/Report.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

namespace {

constexpr const char* kAgrees = "agrees";
constexpr const char* kDecides = "differs, and decides";
constexpr const char* kNotReached = "not reached";

// The steps of the comparison, row by row, up to the one that decided.
class StepTable {
 public:
  explicit StepTable(const ComparisonAccount& account)
      : account_(account),
        comparison_(account.comparison),
        table_("lrrrrl", {"", "A", "B", "difference", "limit", ""}) {}

  std::string Html() {
    for (const Figure& figure : comparison_.figures) AddFigure(figure);
    AddMotion();
    AddShapes();
    AddCounts();
    AddPositions();
    return table_.Html();
  }

 private:
  void AddFigure(const Figure& figure) {
    std::string word = figure.agrees ? kAgrees : "differs";
    if (!figure.checked) word = "not looked at";
    const bool decides = figure.checked && !figure.agrees && !decided_;
    if (decides) word = kDecides;
    decided_ = decided_ || decides;
    table_.Row({figure.name, figure.a, figure.b, ShortNumber(figure.difference),
                ShortNumber(figure.limit), word},
               "",
               decides          ? "loud"
               : figure.checked ? ""
                                : "quiet");
  }

  void AddStep(DecidingStep step, std::vector<std::string> cells) {
    const bool decides = comparison_.step == step;
    const bool reached = !decided_ || decides;
    cells.emplace_back(decides ? kDecides : reached ? kAgrees : kNotReached);
    decided_ = decided_ || decides;
    table_.Row(cells, "", decides ? "loud" : reached ? "" : "quiet");
  }

  void AddMotion() {
    std::string deviation;
    if (!comparison_.starts.empty()) {
      deviation = Millimetres(comparison_.starts[comparison_.bestStart].outerDeviation);
    }
    AddStep(DecidingStep::kOuterMotion,
            {"outlines laid on each other", "", "", deviation, ShortNumber(kPositionLimit)});
  }

  void AddShapes() {
    std::size_t ofA = 0;
    std::size_t ofB = 0;
    for (const CutOutGroup& group : comparison_.groups) {
      ofA += group.a.empty() ? 0 : 1;
      ofB += group.b.empty() ? 0 : 1;
    }
    AddStep(DecidingStep::kCutOutShapes,
            {"shapes of cut-outs", std::to_string(ofA), std::to_string(ofB), "", ""});
  }

  void AddCounts() {
    AddStep(DecidingStep::kCutOutCounts,
            {"numbers of cut-outs", std::to_string(account_.a.cutOuts.size()),
             std::to_string(account_.b.cutOuts.size()), "", ""});
  }

  void AddPositions() {
    const auto found = static_cast<std::size_t>(
        std::count_if(comparison_.partners.begin(), comparison_.partners.end(),
                      [](const Partner& partner) { return partner.found; }));
    const std::size_t all = account_.a.cutOuts.size();
    std::string words;
    if (!comparison_.partners.empty()) {
      words = std::to_string(found) + " of " + std::to_string(all) + " found";
    }
    AddStep(DecidingStep::kCutOutPositions,
            {"partners of cut-outs", words, "", "", ShortNumber(kPositionLimit)});
  }

  const ComparisonAccount& account_;
  const Comparison& comparison_;
  HtmlTable table_;
  bool decided_ = false;
};

// The keys of all rows of a group, and how many of them have partners.
struct GroupSummary {
  std::string keys;
  std::string numbers;
  std::size_t partners = 0;
  std::size_t others = 0;
};

std::vector<GroupSummary> Summaries(const ComparisonFindings& findings, std::size_t groups) {
  constexpr std::size_t kNamed = 12;
  std::vector<GroupSummary> summaries(groups);
  for (const CutOutRow& row : findings.cutOuts) {
    GroupSummary& summary = summaries[row.group];
    const std::size_t before = summary.partners + summary.others;
    summary.keys += (before == 0 ? "" : " ") + CutOutKey(row);
    if (before < kNamed) {
      summary.numbers += (before == 0 ? "" : ", ") + std::to_string(row.number);
    } else if (before == kNamed) {
      summary.numbers += ", \xE2\x80\xA6";  // An ellipsis.
    }
    (IsMarked(row) ? summary.others : summary.partners) += 1;
  }
  return summaries;
}

std::string Matrix(const ComparisonAccount& account, const ComparisonFindings& findings) {
  const std::vector<CutOutGroup>& groups = account.comparison.groups;
  const std::vector<GroupSummary> summaries = Summaries(findings, groups.size());
  HtmlTable table("lrrrll", {"shape", "in A", "in B", "partners", "", "numbers"});
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const CutOutGroup& group = groups[i];
    std::string word;
    if (group.a.empty() || group.b.empty()) {
      word = group.a.empty() ? "only in B" : "only in A";
    } else if (group.a.size() != group.b.size()) {
      word = "counts differ";
    } else if (summaries[i].others > 0) {
      word = "places differ";
    }
    table.Row({group.description, std::to_string(group.a.size()), std::to_string(group.b.size()),
               std::to_string(summaries[i].partners), word, summaries[i].numbers},
              summaries[i].keys, word.empty() ? "" : "loud");
  }
  return table.Html();
}

std::string PlaceOf(const PartModel& part, std::size_t cutOut) {
  return cutOut == kNoCutOut ? "\xE2\x80\x93" : PlaceText(MiddleOfCutOut(part, cutOut));
}

const char* StandingText(const CutOutRow& row) {
  switch (row.standing) {
    case CutOutStanding::kPartners:
      return "";
    case CutOutStanding::kNearest:
      return "no partners, but nearest";
    case CutOutStanding::kReplaced:
      return "another shape in its place";
    case CutOutStanding::kAlone:
      break;
  }
  return row.a == kNoCutOut ? "only in B" : "only in A";
}

std::string RowsTable(const ComparisonAccount& account, const ComparisonFindings& findings,
                      bool marked) {
  HtmlTable table("rlllrrl", {"", "shape", "A", "B", "apart", "by the curves", ""});
  for (std::size_t i = 0; i < findings.cutOuts.size(); ++i) {
    const CutOutRow& row = findings.cutOuts[i];
    if ((IsMarked(row) || i == findings.first.cutOutRow) != marked) continue;
    const bool first = CutOutKey(row) == findings.first.key;
    std::string words = StandingText(row);
    if (first) words.insert(0, words.empty() ? "first difference" : "first difference: ");
    const bool both = row.a != kNoCutOut && row.b != kNoCutOut;
    table.Row({std::to_string(row.number), account.comparison.groups[row.group].description,
               PlaceOf(account.a, row.a), PlaceOf(account.b, row.b),
               both ? Millimetres(row.deviation) : "",
               row.hasOwn ? Millimetres(row.ownDeviation) : "", words},
              CutOutKey(row),
              first    ? "loud first"
              : marked ? "loud"
                       : "");
  }
  return table.Rows() == 0 ? "" : table.Html();
}

}  // namespace

std::string FiguresSection(const ComparisonAccount& account) {
  return "<h2>Figures in the order in which they decide</h2>\n" + StepTable(account).Html();
}

std::string CutOutsSection(const ComparisonAccount& account, const ComparisonFindings& findings) {
  std::string section = "<h2>Cut-outs</h2>\n";
  if (findings.cutOuts.empty()) return section + "<p>Neither part has any.</p>\n";
  section += Matrix(account, findings);
  const std::string apart = RowsTable(account, findings, true);
  if (!apart.empty()) section += "<h3>Cut-outs that differ</h3>\n" + apart;
  const std::string partners = RowsTable(account, findings, false);
  if (!partners.empty()) section += HtmlFold("Cut-outs with their partners", partners);
  return section;
}

}  // namespace drawing
