#include "drawing/ComparisonWords.h"

#include "drawing/CurveMeasures.h"
#include "drawing/NumberText.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace drawing {

namespace {

constexpr int kDeviationDecimals = 4;
constexpr std::size_t kNamedGroups = 3;

std::string MillimetresText(double value) { return FixedNumber(value, kDeviationDecimals) + " mm"; }

// "4 lines and 4 arcs", without the kind that does not occur.
std::string SidesText(const GXLAContour& shape) {
  const auto lines = static_cast<std::size_t>(std::max(0, shape.GetNumberOfLines()));
  const auto arcs = static_cast<std::size_t>(std::max(0, shape.GetNumberOfArcs()));
  if (arcs == 0) return CountText(lines, "line");
  if (lines == 0) return CountText(arcs, "arc");
  return CountText(lines, "line") + " and " + CountText(arcs, "arc");
}

// "the circle of diameter 8 at (12, 30)": a circle at its centre, others at the middle of their
// box.
std::string NameOf(const ShapedContour& cutOut) {
  if (const GX2DArc* circle = AsFullCircle(cutOut.elements)) {
    return "the circle of diameter " + ShortNumber(2.0 * circle->Radius()) + " at " +
           PlaceText(circle->Center);
  }
  const Box& box = cutOut.source->box;
  return "the cut-out of " + SidesText(*cutOut.shape) + " at " +
         PlaceText(GX2DPoint(0.5 * (box.minX + box.maxX), 0.5 * (box.minY + box.maxY)));
}

std::string SameText(const PartModel& a, const Comparison& comparison) {
  const std::string deviation =
      "largest deviation " + MillimetresText(comparison.largestDeviation) + ".";
  switch (a.cutOuts.size()) {
    case 0:
      return "Same: the outlines agree and there are no cut-outs, " + deviation;
    case 1:
      return "Same: the only cut-out has its partner, " + deviation;
    default:
      return "Same: all " + std::to_string(a.cutOuts.size()) + " cut-outs have partners, " +
             deviation;
  }
}

std::string FiguresText(const Comparison& comparison) {
  for (const Figure& figure : comparison.figures) {
    if (!figure.checked || figure.agrees) continue;
    return "Different: the outer contours differ in " + figure.name + ", " + figure.a +
           " in A and " + figure.b + " in B.";
  }
  return "Different: the outer contours differ.";
}

std::string MotionText(const Comparison& comparison) {
  std::string text =
      "Different: lengths and angles of the outer contours match, but they cannot be laid on each "
      "other";
  if (comparison.starts.empty()) return text + ".";
  const MatchedStart& best = comparison.starts[comparison.bestStart];
  return text + "; the best try is " + MillimetresText(best.outerDeviation) + " off.";
}

std::string CountsText(const PartModel& a, const PartModel& b, const Comparison& comparison) {
  if (a.cutOuts.empty() || b.cutOuts.empty()) {
    const bool aHas = b.cutOuts.empty();
    return "Different: " + std::string(aHas ? "A" : "B") + " has " +
           CountText((aHas ? a : b).cutOuts.size(), "cut-out") + ", " + (aHas ? "B" : "A") +
           " has none.";
  }
  std::string text = "Different: other numbers of equal cut-outs";
  std::size_t named = 0;
  for (const CutOutGroup& group : comparison.groups) {
    if (group.a.size() == group.b.size()) continue;
    if (++named > kNamedGroups) break;
    text += (named == 1 ? ": " : "; ") + group.description + ", " + std::to_string(group.a.size()) +
            " in A and " + std::to_string(group.b.size()) + " in B";
  }
  return text + (named > kNamedGroups ? "; and more." : ".");
}

std::string ShapesText(const Comparison& comparison) {
  std::string text = "Different: cut-outs of other shapes";
  std::size_t named = 0;
  for (const CutOutGroup& group : comparison.groups) {
    if (!group.a.empty() && !group.b.empty()) continue;
    if (++named > kNamedGroups) break;
    const bool inA = group.b.empty();
    text += (named == 1 ? ": " : "; ") + group.description + ", " +
            std::to_string(inA ? group.a.size() : group.b.size()) + (inA ? " in A" : " in B") +
            " alone";
  }
  return text + (named > kNamedGroups ? "; and more." : ".");
}

std::string PositionsText(const PartModel& a, const Comparison& comparison) {
  std::size_t found = 0;
  const Partner* first = nullptr;
  for (const Partner& partner : comparison.partners) {
    if (partner.found) ++found;
    if (!partner.found && first == nullptr) first = &partner;
  }
  std::string text = "Different: " + std::to_string(found) + " of " +
                     CountText(comparison.partners.size(), "cut-out") +
                     (found == 1 ? " has a partner" : " have partners");
  if (first == nullptr) return text + ".";
  text += "; " + NameOf(*a.cutOuts[first->a]) + " has none";
  if (first->b == kNoCutOut) return text + ".";
  // Of other shapes the nearest may lie at the very place, but turned.
  const bool circle = AsFullCircle(a.cutOuts[first->a]->elements) != nullptr;
  return text + ", the nearest is " + (circle ? "" : "up to ") + MillimetresText(first->deviation) +
         (circle ? " away." : " off.");
}

}  // namespace

std::string ShapeText(const ShapedContour& cutOut) {
  if (const GX2DArc* circle = AsFullCircle(cutOut.elements)) {
    return "circle, diameter " + ShortNumber(2.0 * circle->Radius());
  }
  return SidesText(*cutOut.shape) + ", length " +
         ShortNumber(cutOut.shape->GetTotalGeometryLength());
}

std::string VerdictText(const PartModel& a, const PartModel& b, const Comparison& comparison) {
  switch (comparison.step) {
    case DecidingStep::kOuterFigures:
      return FiguresText(comparison);
    case DecidingStep::kOuterSequence:
      return "Different: the outer contours have other sequences of lengths and angles.";
    case DecidingStep::kOuterMotion:
      return MotionText(comparison);
    case DecidingStep::kCutOutCounts:
      return CountsText(a, b, comparison);
    case DecidingStep::kCutOutShapes:
      return ShapesText(comparison);
    case DecidingStep::kCutOutPositions:
      return PositionsText(a, comparison);
    case DecidingStep::kAllSteps:
      break;
  }
  return SameText(a, comparison);
}

}  // namespace drawing
