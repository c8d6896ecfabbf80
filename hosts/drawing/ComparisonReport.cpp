#include "drawing/ComparisonReport.h"

#include "drawing/ComparisonReportSections.h"
#include "drawing/HtmlPage.h"
#include "drawing/NumberText.h"

#include <string>

namespace drawing {

namespace {

std::string Paragraph(const std::string& text, const char* classes = "") {
  const std::string attribute = *classes == '\0' ? "" : " class=\"" + std::string(classes) + "\"";
  return text.empty() ? "" : "<p" + attribute + ">" + HtmlText(text) + "</p>\n";
}

std::string Fact(const std::string& name, const std::string& text) {
  return "<div><dt>" + HtmlText(name) + "</dt><dd>" + HtmlText(text) + "</dd></div>\n";
}

std::string PartFacts(const char* name, const PartModel& part) {
  const Contour& outline = *part.outer->source;
  return Fact(name, ShortNumber(outline.box.maxX - outline.box.minX) + " by " +
                        ShortNumber(outline.box.maxY - outline.box.minY) + " mm, perimeter " +
                        ShortNumber(outline.perimeter) + ", " +
                        CountText(part.outer->elements.size(), "segment") + ", " +
                        CountText(part.cutOuts.size(), "cut-out"));
}

std::string Heading(const ComparisonAccount& account) {
  return "<h1>Comparison of A, " + HtmlText(account.a.drawing.file) + ", with B, " +
         HtmlText(account.b.drawing.file) + "</h1>\n<p class=\"lead " +
         (account.comparison.same ? "good" : "bad") + "\">" + HtmlText(account.verdict) + "</p>\n";
}

std::string OwnVerdict(const ComparisonAccount& account) {
  return std::string("By places alone the parts are ") +
         (account.own.same ? "the same: " : "different: ") + PlacementText(account.own) + ".";
}

std::string Verdicts(const ComparisonAccount& account) {
  std::string text;
  if (account.mirrored) {
    text +=
        "<p><strong>B was turned over.</strong> Everything on this page compares A with the mirror "
        "image of B.</p>\n";
  }
  text += Paragraph("Decided by: " + std::string(StepName(account.comparison.step)) + ".");
  text += Paragraph(OwnVerdict(account));
  text += account.disagreement.empty()
              ? ""
              : Paragraph("The two verdicts disagree. " + account.disagreement);
  text +=
      "<dl class=\"facts\">\n" + PartFacts("A", account.a) + PartFacts("B", account.b) + "</dl>\n";
  return text;
}

// A button to the script, plain words without it.
std::string FirstDifferenceText(const ComparisonFindings& findings) {
  if (findings.first.key.empty()) return "";
  return "<h2>First difference</h2>\n<p class=\"first\" data-mark=\"" + findings.first.key + "\">" +
         HtmlText(findings.first.text) + "</p>\n";
}

std::string Trace(const Comparison& comparison) {
  if (comparison.trace.empty()) return "";
  std::string words = "<pre>";
  for (const std::string& line : comparison.trace) words += HtmlText(line) + "\n";
  return HtmlFold("The library's words, " + CountText(comparison.trace.size(), "line"),
                  words + "</pre>\n");
}

}  // namespace

std::string ComparisonReportHtml(const ComparisonAccount& account) {
  const ComparisonFindings findings = FindingsOf(account);
  const std::string body = Heading(account) + Verdicts(account) + FirstDifferenceText(findings) +
                           SideBySideSection(account, findings) +
                           OverlaySection(account, findings) + FiguresSection(account) +
                           StripSection(findings) + CutOutsSection(account, findings) +
                           Trace(account.comparison);
  return HtmlDocument("Comparison: " + account.a.drawing.file + ", " + account.b.drawing.file,
                      body);
}

}  // namespace drawing
