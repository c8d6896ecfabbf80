#include "drawing/PartComparison.h"

#include "drawing/CircleMotions.h"
#include "drawing/ComparisonWords.h"
#include "drawing/CutOutPartners.h"
#include "drawing/LookAlikeParts.h"
#include "drawing/NumberText.h"
#include "drawing/OutlineMotions.h"

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace drawing {

namespace {

constexpr double kTwoPi = 6.283185307179586;
constexpr int kAngleDecimals = 6;

// In millimetres: by less than this no motion fits better than another, so that among symmetric
// positions the first one stays, whatever the last digits are.
constexpr double kNoGain = 1.0e-6;

// Pairs of cut-outs that are looked at to choose among starts that fit equally badly.
constexpr std::size_t kNearestEffort = 50000000;

// Hears the library's words.
class TraceCollector : public GXEvent1ParamSubscriber<const GXString&> {
 public:
  explicit TraceCollector(std::vector<std::string>& lines) : lines_(lines) {}
  void OnFire(const GXString& line) override { lines_.push_back(line.Str()); }

 private:
  std::vector<std::string>& lines_;
};

Figure CountFigure(const char* name, int a, int b, bool checked) {
  return {name,  std::to_string(a), std::to_string(b), static_cast<double>(a) - b, 0.0, checked,
          a == b};
}

Figure LengthFigure(const GXLAContour& a, const GXLAContour& b) {
  const double lengthA = a.GetTotalGeometryLength();
  const double lengthB = b.GetTotalGeometryLength();
  const double limit = GXLATolerances().ToleranceLengthMM();
  return {"total length",
          ShortNumber(lengthA),
          ShortNumber(lengthB),
          lengthA - lengthB,
          limit,
          true,
          GXMath::AlmostEq(lengthA, lengthB, limit)};
}

Figure AngleFigure(const GXLAContour& a, const GXLAContour& b, bool checked) {
  const double angleA = a.GetTotalGeometryAngle();
  const double angleB = b.GetTotalGeometryAngle();
  const double limit = GXLATolerances().ToleranceAngle();
  return {"total angle",
          FixedNumber(angleA, kAngleDecimals),
          FixedNumber(angleB, kAngleDecimals),
          std::remainder(angleA - angleB, kTwoPi),
          limit,
          checked,
          GXLAContour::IsSameAngle(angleA, angleB, limit)};
}

std::string ClosedText(const GXLAContour& contour) {
  return contour.IsClosed() ? "closed" : "open";
}

std::string SequenceText(const GXLAContour& contour) {
  return CountText(contour.size(), "element");
}

// The header figures in the order in which the library looks at them; the sequence comes last.
std::vector<Figure> HeaderFigures(const GXLAContour& a, const GXLAContour& b,
                                  GXLAContour::eNmbSegmentsMode mode) {
  const bool exact = mode == GXLAContour::eNmbSegmentsEqual;
  std::vector<Figure> figures;
  figures.push_back({"closed or open", ClosedText(a), ClosedText(b), 0.0, 0.0, true,
                     a.IsClosed() == b.IsClosed()});
  figures.push_back(CountFigure("lines", a.GetNumberOfLines(), b.GetNumberOfLines(), exact));
  figures.push_back(CountFigure("arcs", a.GetNumberOfArcs(), b.GetNumberOfArcs(), exact));
  figures.push_back(LengthFigure(a, b));
  figures.push_back(AngleFigure(a, b, exact));
  return figures;
}

bool FiguresAgree(const std::vector<Figure>& figures) {
  return std::all_of(figures.begin(), figures.end(),
                     [](const Figure& figure) { return !figure.checked || figure.agrees; });
}

std::vector<CutOutGroup> Describe(const PartModel& a, const PartModel& b,
                                  const std::vector<ShapeGroup>& groups) {
  std::vector<CutOutGroup> described;
  for (const ShapeGroup& group : groups) {
    const ShapedContour& first =
        group.inA.empty() ? *b.cutOuts[group.inB.front()] : *a.cutOuts[group.inA.front()];
    described.push_back({ShapeText(first), group.inA, group.inB});
  }
  return described;
}

// Whether the motion `p` with its search fits better than `q`: outlines that agree come first, then
// more partners, then the smaller deviation.
bool FitsBetter(const MatchedStart& p, const PartnerSearch& searchP, const MatchedStart& q,
                const PartnerSearch& searchQ) {
  if (p.outlinesAgree != q.outlinesAgree) return p.outlinesAgree;
  if (searchP.found != searchQ.found) return searchP.found > searchQ.found;
  return std::max(p.outerDeviation, searchP.largestDeviation) <
         std::max(q.outerDeviation, searchQ.largestDeviation) - kNoGain;
}

// By how much the cut-outs without partner miss the nearest one, all in all.
double MissBy(const PartnerSearch& search) {
  double sum = 0.0;
  for (const Partner& partner : search.partners) sum += partner.found ? 0.0 : partner.deviation;
  return sum;
}

// The library's own test of positions for a pair of cut-outs: two distances to the outer contour,
// taken in A at the reference position and looked for in B at the start position.
bool PassesTwoDistanceTest(const LookAlikePair& parts, const Partner& partner,
                           GXLAContour::eNmbSegmentsMode mode, int referencePosition, int start) {
  const GXLAContourInstance& a = *parts.A().instances[partner.a];
  const GXLAContourInstance& b = *parts.B().instances[partner.b];
  GXLATolerances tolerances;
  GXLAContour::eReversedGeometry reversed = GXLAContour::eGeometryNotSet;
  int offset = 0;
  double first = 0.0;
  double second = 0.0;
  return GXLAContour::HaveSameGeometry(*a.GetLAContour(), *b.GetLAContour(), reversed, offset, mode,
                                       tolerances, nullptr) &&
         a.GetStartPointDistanceToRefContour(*parts.A().part->GetExternalLAContourInstance(),
                                             referencePosition, first, second, false) &&
         b.HasSamePositionToRefContour(
             first, second, *parts.B().part->GetExternalLAContourInstance(), start, offset, false);
}

// One comparison, step by step.
class Comparer {
 public:
  Comparer(const PartModel& a, const PartModel& b, const CompareOptions& options)
      : a_(a), b_(b), mode_(options.mode), parts_(a, b, options.mode), collector_(result_.trace) {
    if (options.trace) trace_.Subscribe(&collector_);
    tracePointer_ = options.trace ? &trace_ : nullptr;
  }

  Comparison Run() {
    const MatchedGeometry outer = MatchOuterContours();
    if (outer.same) result_.libraryStructureEqual = parts_.HasSameStructure(tracePointer_);
    const std::vector<ShapeGroup> groups = parts_.Groups(result_.libraryStructureEqual);
    result_.groups = Describe(a_, b_, groups);
    if (outer.same) PlaceCutOuts(outer, groups);
    if (result_.step == DecidingStep::kAllSteps) result_.step = StepOfCutOuts();
    result_.same = result_.step == DecidingStep::kAllSteps;
    result_.verdict = VerdictText(a_, b_, result_);
    return std::move(result_);
  }

 private:
  MatchedGeometry MatchOuterContours() {
    const GXLAContour& a = *parts_.A().part->GetExternalLAContour();
    const GXLAContour& b = *parts_.B().part->GetExternalLAContour();
    result_.figures = HeaderFigures(a, b, mode_);
    const bool figuresAgree = FiguresAgree(result_.figures);
    MatchedGeometry match = MatchGeometry(a, b, mode_, tracePointer_);
    result_.figures.push_back(
        {"sequence", SequenceText(a), SequenceText(b), 0.0, 0.0, figuresAgree, match.same});
    result_.sense = match.sense;
    result_.referencePosition = match.referencePosition;
    if (!match.same) {
      result_.step = figuresAgree ? DecidingStep::kOuterSequence : DecidingStep::kOuterFigures;
    }
    return match;
  }

  void PlaceCutOuts(const MatchedGeometry& outer, const std::vector<ShapeGroup>& groups) {
    const CutOutPartners cutOuts(a_, b_, groups, mode_);
    result_.starts = AreBothCircles(*a_.outer, *b_.outer)
                         ? CircleMotions(*a_.outer, *b_.outer, cutOuts, outer.starts.front())
                         : OutlineMotions(*a_.outer, *b_.outer, outer);
    PartnerSearch best;
    for (std::size_t i = 0; i < result_.starts.size(); ++i) {
      MatchedStart& start = result_.starts[i];
      PartnerSearch search;
      if (start.outlinesAgree) search = cutOuts.Search(start.motion);
      start.partnersFound = search.found;
      if (i > 0 && !FitsBetter(start, search, result_.starts[result_.bestStart], best)) continue;
      result_.bestStart = i;
      best = std::move(search);
    }
    if (result_.starts[result_.bestStart].outlinesAgree) ChooseAmongEqual(cutOuts, best);
    TakeBest(best);
  }

  // Where several starts find as many partners, but not all, that one explains best in which the
  // others are nearest. It decides nothing, so it is given up where it would take long.
  void ChooseAmongEqual(const CutOutPartners& cutOuts, PartnerSearch& best) {
    cutOuts.NameNearest(result_.starts[result_.bestStart].motion, best);
    const std::size_t found = best.found;
    const std::size_t missing = a_.cutOuts.size() - found;
    std::size_t effort = 0;
    for (std::size_t i = 0; i < result_.starts.size() && missing > 0; ++i) {
      const MatchedStart& start = result_.starts[i];
      if (!start.outlinesAgree || start.partnersFound != found) continue;
      effort += missing * b_.cutOuts.size();
      if (effort > kNearestEffort) return;
      PartnerSearch search = cutOuts.Search(start.motion);
      cutOuts.NameNearest(start.motion, search);
      if (!(MissBy(search) < MissBy(best) - kNoGain)) continue;
      result_.bestStart = i;
      best = std::move(search);
    }
  }

  void TakeBest(PartnerSearch& search) {
    const MatchedStart& best = result_.starts[result_.bestStart];
    result_.largestDeviation = std::max(best.outerDeviation, search.largestDeviation);
    if (!best.outlinesAgree) {
      result_.step = DecidingStep::kOuterMotion;
      return;
    }
    result_.partners = std::move(search.partners);
    for (Partner& partner : result_.partners) {
      partner.twoDistanceTest =
          partner.found &&
          PassesTwoDistanceTest(parts_, partner, mode_, result_.referencePosition, best.position);
    }
    for (std::size_t i = 0; i < search.taken.size(); ++i) {
      if (!search.taken[i]) result_.unmatchedInB.push_back(i);
    }
  }

  // The library lets a part without cut-outs pass against any other, and does not count the members
  // of its groups.
  DecidingStep StepOfCutOuts() const {
    if (a_.cutOuts.empty() != b_.cutOuts.empty()) return DecidingStep::kCutOutCounts;
    if (!result_.libraryStructureEqual) return DecidingStep::kCutOutShapes;
    for (const CutOutGroup& group : result_.groups) {
      if (group.a.size() != group.b.size()) return DecidingStep::kCutOutCounts;
    }
    const bool allFound = std::all_of(result_.partners.begin(), result_.partners.end(),
                                      [](const Partner& partner) { return partner.found; });
    return allFound ? DecidingStep::kAllSteps : DecidingStep::kCutOutPositions;
  }

  const PartModel& a_;
  const PartModel& b_;
  GXLAContour::eNmbSegmentsMode mode_;
  LookAlikePair parts_;
  Comparison result_;
  TraceCollector collector_;
  GXEvent1Param<const GXString&> trace_;
  GXEvent1Param<const GXString&>* tracePointer_ = nullptr;
};

}  // namespace

const char* StepName(DecidingStep step) {
  switch (step) {
    case DecidingStep::kOuterFigures:
      return "header figures of the outer contours";
    case DecidingStep::kOuterSequence:
      return "sequence of the outer contours";
    case DecidingStep::kOuterMotion:
      return "position of the outer contours on each other";
    case DecidingStep::kCutOutCounts:
      return "numbers of cut-outs";
    case DecidingStep::kCutOutShapes:
      return "shapes of the cut-outs";
    case DecidingStep::kCutOutPositions:
      return "positions of the cut-outs";
    case DecidingStep::kAllSteps:
      break;
  }
  return "all steps";
}

Comparison CompareParts(const PartModel& a, const PartModel& b, const CompareOptions& options) {
  return Comparer(a, b, options).Run();
}

}  // namespace drawing
