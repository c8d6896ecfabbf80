#include "drawing/ComparisonMarks.h"

#include <KTRCL_DataTypes/GXMath.h>

#include <algorithm>
#include <tuple>

namespace drawing {

namespace {

// Laying outlines on each other tries every start: longer ones are matched in any order instead.
constexpr std::size_t kMostAligned = 2000;

// One segment of an outline, for matching by kind and length.
struct SegmentFigure {
  bool isArc = false;
  double length = 0.0;
  std::size_t index = 0;
};

std::vector<SegmentFigure> SegmentsOf(const GX2DElmList& elements) {
  std::vector<SegmentFigure> figures;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const bool isArc = dynamic_cast<const GX2DArc*>(elements[i]) != nullptr;
    figures.push_back({isArc, elements[i]->Len(), i});
  }
  return figures;
}

bool AreEqual(const SegmentFigure& x, const SegmentFigure& y) {
  return x.isArc == y.isArc &&
         GXMath::AlmostEq(x.length, y.length, GXLATolerances().ToleranceLengthMM());
}

// Both rows are sorted, so the shortest that is left on either side pairs with the shortest of the
// other or with none; each stands for at most one.
void MarkInAnyOrder(std::vector<SegmentFigure> a, std::vector<SegmentFigure> b,
                    std::vector<bool>& marksA, std::vector<bool>& marksB) {
  const auto shorter = [](const SegmentFigure& x, const SegmentFigure& y) {
    return std::tie(x.isArc, x.length) < std::tie(y.isArc, y.length);
  };
  std::stable_sort(a.begin(), a.end(), shorter);
  std::stable_sort(b.begin(), b.end(), shorter);
  marksA.assign(a.size(), true);
  marksB.assign(b.size(), true);
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < a.size() && j < b.size()) {
    if (AreEqual(a[i], b[j])) {
      marksA[a[i++].index] = false;
      marksB[b[j++].index] = false;
    } else if (shorter(a[i], b[j])) {
      ++i;
    } else {
      ++j;
    }
  }
}

// B's segment beside A's k-th when B is walked from `start`.
std::size_t Beside(std::size_t k, std::size_t start, std::size_t count, bool backward) {
  return backward ? (start + count - k) % count : (start + k) % count;
}

void MarkAligned(const std::vector<SegmentFigure>& a, const std::vector<SegmentFigure>& b,
                 bool backward, std::vector<bool>& marksA, std::vector<bool>& marksB) {
  const std::size_t count = a.size();
  std::size_t best = 0;
  std::size_t bestEqual = 0;
  for (std::size_t start = 0; start < count; ++start) {
    std::size_t equal = 0;
    for (std::size_t k = 0; k < count; ++k) {
      equal += AreEqual(a[k], b[Beside(k, start, count, backward)]) ? 1 : 0;
    }
    if (equal > bestEqual) {
      best = start;
      bestEqual = equal;
    }
  }
  for (std::size_t k = 0; k < count; ++k) {
    const std::size_t other = Beside(k, best, count, backward);
    marksA[k] = marksB[other] = !AreEqual(a[k], b[other]);
  }
}

bool HasMark(const std::vector<bool>& marks) {
  return std::find(marks.begin(), marks.end(), true) != marks.end();
}

void MarkOutlines(const ShapedContour& a, const ShapedContour& b, Marks& marksA, Marks& marksB) {
  const std::vector<SegmentFigure> segmentsA = SegmentsOf(a.elements);
  const std::vector<SegmentFigure> segmentsB = SegmentsOf(b.elements);
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
