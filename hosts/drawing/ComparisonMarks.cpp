#include "drawing/ComparisonMarks.h"

#include "drawing/OutlineStrip.h"

#include <algorithm>
#include <tuple>

namespace drawing {

namespace {

// Laying outlines on each other tries every start: longer ones are matched in any order instead.
constexpr std::size_t kMostAligned = 2000;

// Both rows are sorted, so the shortest that is left on either side pairs with the shortest of the
// other or with none; each stands for at most one.
void MarkInAnyOrder(std::vector<OutlineSegment> a, std::vector<OutlineSegment> b,
                    std::vector<bool>& marksA, std::vector<bool>& marksB) {
  const auto shorter = [](const OutlineSegment& x, const OutlineSegment& y) {
    return std::tie(x.isArc, x.length) < std::tie(y.isArc, y.length);
  };
  std::stable_sort(a.begin(), a.end(), shorter);
  std::stable_sort(b.begin(), b.end(), shorter);
  marksA.assign(a.size(), true);
  marksB.assign(b.size(), true);
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < a.size() && j < b.size()) {
    if (HaveSameLength(a[i], b[j])) {
      marksA[a[i++].index] = false;
      marksB[b[j++].index] = false;
    } else if (shorter(a[i], b[j])) {
      ++i;
    } else {
      ++j;
    }
  }
}

void MarkAligned(const std::vector<OutlineSegment>& a, const std::vector<OutlineSegment>& b,
                 bool backward, std::vector<bool>& marksA, std::vector<bool>& marksB) {
  const std::size_t best = BestAgreeingStart(a, b, backward);
  for (std::size_t k = 0; k < a.size(); ++k) {
    const std::size_t other = SegmentBeside(k, best, a.size(), backward);
    marksA[k] = marksB[other] = !HaveSameLength(a[k], b[other]);
  }
}

bool HasMark(const std::vector<bool>& marks) {
  return std::find(marks.begin(), marks.end(), true) != marks.end();
}

void MarkOutlines(const ShapedContour& a, const ShapedContour& b, Marks& marksA, Marks& marksB) {
  const std::vector<OutlineSegment> segmentsA = OutlineSegments(a);
  const std::vector<OutlineSegment> segmentsB = OutlineSegments(b);
  MarkInAnyOrder(segmentsA, segmentsB, marksA.segments, marksB.segments);
  if (!HasMark(marksA.segments) && !HasMark(marksB.segments)) {
    marksA.segments.assign(segmentsA.size(), true);
    marksB.segments.assign(segmentsB.size(), true);
    return;
  }
  if (segmentsA.size() != segmentsB.size() || segmentsA.size() > kMostAligned) return;
  const bool backward = a.source->clockwise != b.source->clockwise;
  MarkAligned(segmentsA, segmentsB, backward, marksA.segments, marksB.segments);
}

bool OutlinesDiffer(DecidingStep step) {
  return step == DecidingStep::kOuterFigures || step == DecidingStep::kOuterSequence ||
         step == DecidingStep::kOuterMotion;
}

void MarkCutOuts(const Comparison& comparison, Marks& marksA, Marks& marksB) {
  for (const CutOutGroup& group : comparison.groups) {
    if (group.b.empty()) marksA.cutOuts.insert(group.a.begin(), group.a.end());
    if (group.a.empty()) marksB.cutOuts.insert(group.b.begin(), group.b.end());
  }
  for (const Partner& partner : comparison.partners) {
    if (!partner.found) marksA.cutOuts.insert(partner.a);
  }
  marksB.cutOuts.insert(comparison.unmatchedInB.begin(), comparison.unmatchedInB.end());
}

}  // namespace

void MarkDifferences(const PartModel& a, const PartModel& b, const Comparison& comparison,
                     Marks& marksA, Marks& marksB) {
  if (OutlinesDiffer(comparison.step)) MarkOutlines(*a.outer, *b.outer, marksA, marksB);
  MarkCutOuts(comparison, marksA, marksB);
}

}  // namespace drawing
