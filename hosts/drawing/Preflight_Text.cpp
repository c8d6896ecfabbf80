#include "drawing/DrawingHealing.h"
#include "drawing/NumberText.h"
#include "drawing/Preflight.h"
#include "drawing/TextTable.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

namespace {

// Findings of a kind that are told one by one.
constexpr std::size_t kToldOfKind = 10;

std::string FindingsText(const Preflight& preflight) {
  const auto count = std::count_if(preflight.findings.begin(), preflight.findings.end(),
                                   [](const Finding& finding) { return finding.counts; });
  return count == 0 ? "clean" : CountText(static_cast<std::size_t>(count), "finding");
}

void AddPart(std::string& text, const std::string& part) {
  text += (text.empty() ? "" : ", ") + part;
}

// "2 outer, 5 cut-outs, 1 island".
std::string NestingText(const NestingCounts& nesting) {
  std::string text;
  if (nesting.outer > 0) AddPart(text, std::to_string(nesting.outer) + " outer");
  if (nesting.cutOuts > 0) AddPart(text, CountText(nesting.cutOuts, "cut-out"));
  if (nesting.islands > 0) AddPart(text, CountText(nesting.islands, "island"));
  if (nesting.coincident > 0) AddPart(text, std::to_string(nesting.coincident) + " upon others");
  return text;
}

std::string CountsText(const DrawingFigures& figures, const NestingCounts& counts) {
  const std::string nesting = NestingText(counts);
  std::string text = std::to_string(figures.closed) + " closed";
  if (!nesting.empty()) text += " (" + nesting + ")";
  if (figures.open > 0) text += ", " + std::to_string(figures.open) + " open";
  if (figures.branching > 0) text += ", " + std::to_string(figures.branching) + " branching";
  if (figures.other > 0) text += ", " + std::to_string(figures.other) + " without area";
  return text;
}

std::string MeasuresText(const DrawingFigures& figures) {
  return "area " + ShortNumber(figures.area) + " mm2, perimeter " + ShortNumber(figures.perimeter) +
         " mm";
}

std::string HeadText(const Preflight& preflight) {
  const Unit& unit = preflight.drawing.unit;
  TextTable head("ll");
  head.Row({"unit", unit.name + " (" + unit.source + ")"});
  head.Row({"contours", CountsText(preflight.figures, preflight.nesting)});
  if (preflight.figures.closed > 0) head.Row({"", MeasuresText(preflight.figures)});
  if (preflight.hasDoubled) {
    head.Row(
        {"without doubled", CountsText(preflight.withoutDoubled, preflight.nestingWithoutDoubled)});
    head.Row({"", MeasuresText(preflight.withoutDoubled)});
  }
  return head.Print("  ");
}

// "6 loose ends, 3 gaps, 2 of them up to 0.1 mm; --gap 12.5 would close all".
std::string LooseEndsHeading(const Preflight& preflight, const std::vector<const Finding*>& ends) {
  const double usual = HealOptions{}.gap;
  std::size_t gaps = 0;
  std::size_t small = 0;
  for (const Finding* finding : ends) {
    gaps += finding->hasPartner ? 1 : 0;
    small += finding->hasPartner && finding->measure <= usual ? 1 : 0;
  }
  std::string text = CountText(preflight.looseEnds, "loose end");
  if (gaps == 0) return text;
  text += ", " + CountText(gaps, "gap") + ", " + std::to_string(small) + " of them up to " +
          ShortNumber(usual) + " mm";
  if (preflight.closingGap > kLargestGap) return text;
  return text + "; --gap " + RoundedUp(preflight.closingGap) + " would close " +
         (gaps == 1 ? "it" : "all");
}

std::string Heading(FindingKind kind, std::size_t count) {
  switch (kind) {
    case FindingKind::kZeroLength:
      return CountText(count, "time") + " nothing but a point";
    case FindingKind::kCrossing:
      return CountText(count, "crossing") + " of contours";
    case FindingKind::kCoincident:
      return CountText(count, "contour") + " upon another";
    case FindingKind::kNoArea:
      return CountText(count, "contour") + " without area";
    case FindingKind::kUnit:
    case FindingKind::kNotUsed:
    case FindingKind::kDamage:
      return FindingKindName(kind);
    default:
      return CountText(count, FindingKindName(kind));
  }
}

std::string KindText(const std::string& heading, const std::vector<const Finding*>& findings,
                     bool all) {
  std::string text = "  " + heading + "\n";
  const std::size_t told = all ? findings.size() : std::min(findings.size(), kToldOfKind);
  for (std::size_t i = 0; i < told; ++i) text += "    " + findings[i]->what + "\n";
  if (findings.size() > told) {
    text += "    and " + std::to_string(findings.size() - told) + " more (--all)\n";
  }
  return text;
}

std::vector<const Finding*> OfKind(const Preflight& preflight, FindingKind kind, bool counts) {
  std::vector<const Finding*> findings;
  for (const Finding& finding : preflight.findings) {
    if (finding.kind == kind && finding.counts == counts) findings.push_back(&finding);
  }
  return findings;
}

}  // namespace

std::string PreflightText(const Preflight& preflight, bool all) {
  const std::string& file = preflight.drawing.file;
  if (!preflight.drawing.usable) {
    return file + ": not usable: " + preflight.drawing.refusal + "\n";
  }
  std::string text = file + ": " + FindingsText(preflight) + "\n" + HeadText(preflight);
  std::vector<const Finding*> aside;
  for (int i = 0; i <= static_cast<int>(FindingKind::kRemark); ++i) {
    const auto kind = static_cast<FindingKind>(i);
    const auto findings = OfKind(preflight, kind, true);
    const auto others = OfKind(preflight, kind, false);
    // The unit stands above already.
    if (kind != FindingKind::kUnit) aside.insert(aside.end(), others.begin(), others.end());
    if (findings.empty()) continue;
    text += KindText(kind == FindingKind::kLooseEnd ? LooseEndsHeading(preflight, findings)
                                                    : Heading(kind, findings.size()),
                     findings, all);
  }
  if (!aside.empty()) text += KindText("worth knowing", aside, all);
  return text;
}

}  // namespace drawing
