#include "drawing/OutlineStrip.h"

#include "drawing/CurveMeasures.h"

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace drawing {

namespace {

// Laying outlines on each other tries every start, and pairs of segments one by one.
constexpr std::size_t kMostAligned = 2000;

using Segments = std::vector<OutlineSegment>;

bool HaveSameAngle(double a, double b) {
  return std::fabs(a - b) <= GXLATolerances().ToleranceAngle();
}

// The angle between the k-th segment of a walk and the next. Walked backward, it stands in front of
// the segment as drawn.
double AngleBehind(const Segments& segments, std::size_t index, bool backward) {
  const std::size_t count = segments.size();
  return segments[backward ? (index + count - 1) % count : index].angle;
}

std::size_t SideOf(int position, std::size_t count) {
  return static_cast<std::size_t>(std::max(position, 0)) / 2 % count;
}

// Where both walks begin.
struct Anchor {
  std::size_t a = 0;
  std::size_t b = 0;
};

// The first segments of the longest run that is equal in both outlines.
//
// `run` holds for every segment of B how many equal ones end at it and at the segment of A that is
// looked at; a second lap lets runs go over the beginning of either list.
Anchor LongestRun(const Segments& a, const Segments& b, bool backward) {
  const std::size_t countA = a.size();
  const std::size_t countB = b.size();
  const std::size_t most = std::min(countA, countB);
  std::vector<std::size_t> run(countB, 0);
  std::vector<std::size_t> next(countB, 0);
  Anchor best;
  std::size_t longest = 0;
  for (std::size_t i = 0; i < 2 * countA; ++i) {
    for (std::size_t k = 0; k < countB; ++k) {
      const bool equal = HaveSameLength(a[i % countA], b[SegmentBeside(k, 0, countB, backward)]);
      next[k] = equal ? std::min(run[(k + countB - 1) % countB] + 1, most) : 0;
      if (next[k] <= longest) continue;
      longest = next[k];
      best.a = (i + 1 + countA - longest) % countA;
      best.b = SegmentBeside((k + 1 + countB - longest) % countB, 0, countB, backward);
    }
    run.swap(next);
  }
  return best;
}

// Which segments stand side by side: pairs of steps along either walk, kNoSegment for none.
using Steps = std::vector<std::pair<std::size_t, std::size_t>>;

// What it costs to have a segment alone, and two side by side: segments of one kind and of nearly
// equal length are rather a changed one than one less and one more.
constexpr int kAlone = 1000;

int CostOfPair(const OutlineSegment& a, const OutlineSegment& b) {
  if (HaveSameLength(a, b)) return 0;
  const double longer = std::max(a.length, b.length);
  const double share = longer > 0.0 ? std::fabs(a.length - b.length) / longer : 0.0;
  const int kind = a.isArc == b.isArc ? 500 : 1000;
  return kind + static_cast<int>(kAlone * std::clamp(share, 0.0, 1.0));
}

// Two walks side by side at the least cost, by the usual table of all pairs of beginnings.
class StepTable {
 public:
  StepTable(const OutlineStrip& strip, const Anchor& anchor)
      : strip_(strip),
        anchor_(anchor),
        width_(strip.b.size() + 1),
        costs_((strip.a.size() + 1) * width_, 0) {}

  Steps Cheapest() {
    Fill();
    Steps steps;
    std::size_t i = strip_.a.size();
    std::size_t j = strip_.b.size();
    while (i > 0 || j > 0) {
      if (i > 0 && j > 0 && At(i, j) == At(i - 1, j - 1) + PairCost(i, j)) {
        steps.emplace_back(--i, --j);
      } else if (i > 0 && At(i, j) == At(i - 1, j) + kAlone) {
        steps.emplace_back(--i, kNoSegment);
      } else {
        steps.emplace_back(kNoSegment, --j);
      }
    }
    std::reverse(steps.begin(), steps.end());
    return steps;
  }

 private:
  int& At(std::size_t i, std::size_t j) { return costs_[i * width_ + j]; }

  // Of the last ones of the first i segments of A and j of B.
  int PairCost(std::size_t i, std::size_t j) const {
    return CostOfPair(strip_.a[(anchor_.a + i - 1) % strip_.a.size()],
                      strip_.b[SegmentBeside(j - 1, anchor_.b, strip_.b.size(), strip_.backward)]);
  }

  void Fill() {
    for (std::size_t i = 0; i <= strip_.a.size(); ++i) {
      for (std::size_t j = 0; j <= strip_.b.size(); ++j) {
        if (i == 0 || j == 0) {
          At(i, j) = kAlone * static_cast<int>(i + j);
          continue;
        }
        At(i, j) = std::min(
            {At(i - 1, j - 1) + PairCost(i, j), At(i - 1, j) + kAlone, At(i, j - 1) + kAlone});
      }
    }
  }

  const OutlineStrip& strip_;
  Anchor anchor_;
  std::size_t width_;
  std::vector<int> costs_;
};

Steps StepsInOrder(std::size_t countA, std::size_t countB) {
  Steps steps;
  for (std::size_t k = 0; k < std::max(countA, countB); ++k) {
    steps.emplace_back(k < countA ? k : kNoSegment, k < countB ? k : kNoSegment);
  }
  return steps;
}

void SetDifferences(const OutlineStrip& strip, StripRow& row) {
  const OutlineSegment& a = strip.a[row.a];
  const OutlineSegment& b = strip.b[row.b];
  row.kindDiffers = a.isArc != b.isArc;
  row.lengthDiffers = !GXMath::AlmostEq(a.length, b.length, GXLATolerances().ToleranceLengthMM());
  row.angleDiffers = !HaveSameAngle(row.angleA, row.angleB);
  row.radiusDiffers = a.isArc && b.isArc && !(std::fabs(a.radius - b.radius) <= kPositionLimit);
}

void AddRows(OutlineStrip& strip, const Anchor& anchor, const Steps& steps) {
  for (const auto& [stepA, stepB] : steps) {
    StripRow row;
    if (stepA != kNoSegment) {
      row.a = (anchor.a + stepA) % strip.a.size();
      row.angleA = AngleBehind(strip.a, row.a, false);
    }
    if (stepB != kNoSegment) {
      row.b = SegmentBeside(stepB, anchor.b, strip.b.size(), strip.backward);
      row.angleB = AngleBehind(strip.b, row.b, strip.backward);
    }
    if (!row.Alone()) SetDifferences(strip, row);
    strip.rows.push_back(row);
  }
}

bool AreShort(const OutlineStrip& strip) {
  return strip.a.size() <= kMostAligned && strip.b.size() <= kMostAligned;
}

Anchor FindAnchor(const OutlineStrip& strip, const Comparison& comparison) {
  if (strip.matched) {
    return {SideOf(comparison.referencePosition, strip.a.size()),
            SideOf(comparison.starts[comparison.bestStart].position, strip.b.size())};
  }
  if (!AreShort(strip)) return {};
  if (strip.a.size() != strip.b.size()) return LongestRun(strip.a, strip.b, strip.backward);
  return {0, BestAgreeingStart(strip.a, strip.b, strip.backward)};
}

}  // namespace

std::vector<OutlineSegment> OutlineSegments(const ShapedContour& outline) {
  std::vector<OutlineSegment> segments;
  const GXLAContour& shape = *outline.shape;
  for (std::size_t i = 0; i < outline.elements.size(); ++i) {
    OutlineSegment segment;
    segment.index = i;
    const auto* arc = dynamic_cast<const GX2DArc*>(outline.elements[i]);
    segment.isArc = arc != nullptr;
    segment.length = outline.elements[i]->Len();
    if (arc != nullptr) {
      const bool outward = (SignedSweep(*arc) < 0.0) == outline.source->clockwise;
      segment.radius = outward ? arc->Radius() : -arc->Radius();
    }
    if (2 * i + 1 < shape.size()) {
      const auto* angle = dynamic_cast<const GXLAElementAngle*>(shape[2 * i + 1]);
      if (angle != nullptr) segment.angle = angle->GetAngle();
    }
    segments.push_back(segment);
  }
  return segments;
}

bool HaveSameLength(const OutlineSegment& a, const OutlineSegment& b) {
  return a.isArc == b.isArc &&
         GXMath::AlmostEq(a.length, b.length, GXLATolerances().ToleranceLengthMM());
}

std::size_t SegmentBeside(std::size_t k, std::size_t start, std::size_t count, bool backward) {
  return backward ? (start + count - k) % count : (start + k) % count;
}

std::size_t BestAgreeingStart(const std::vector<OutlineSegment>& a,
                              const std::vector<OutlineSegment>& b, bool backward) {
  const std::size_t count = a.size();
  std::size_t best = 0;
  std::pair<std::size_t, std::size_t> bestEqual;  // Lengths, then angles.
  for (std::size_t start = 0; start < count; ++start) {
    std::pair<std::size_t, std::size_t> equal;
    for (std::size_t k = 0; k < count; ++k) {
      const std::size_t other = SegmentBeside(k, start, count, backward);
      equal.first += HaveSameLength(a[k], b[other]) ? 1 : 0;
      equal.second += HaveSameAngle(a[k].angle, AngleBehind(b, other, backward)) ? 1 : 0;
    }
    if (equal <= bestEqual) continue;
    best = start;
    bestEqual = equal;
  }
  return best;
}

OutlineStrip AlignOutlines(const PartModel& a, const PartModel& b, const Comparison& comparison) {
  OutlineStrip strip;
  strip.a = OutlineSegments(*a.outer);
  strip.b = OutlineSegments(*b.outer);
  strip.matched = !comparison.starts.empty();
  strip.backward = comparison.sense == GXLAContour::eGeometryNotSet
                       ? a.outer->source->clockwise != b.outer->source->clockwise
                       : comparison.sense == GXLAContour::eGeometryBackward;
  if (strip.a.empty() || strip.b.empty()) return strip;
  const Anchor anchor = FindAnchor(strip, comparison);
  const bool inOrder = strip.a.size() == strip.b.size() || !AreShort(strip);
  AddRows(
      strip, anchor,
      inOrder ? StepsInOrder(strip.a.size(), strip.b.size()) : StepTable(strip, anchor).Cheapest());
  return strip;
}

std::size_t FirstDifference(const OutlineStrip& strip) {
  const auto first = std::find_if(strip.rows.begin(), strip.rows.end(),
                                  [](const StripRow& row) { return row.Differs(); });
  if (first != strip.rows.end()) return static_cast<std::size_t>(first - strip.rows.begin());
  const auto radius = std::find_if(strip.rows.begin(), strip.rows.end(),
                                   [](const StripRow& row) { return row.radiusDiffers; });
  return static_cast<std::size_t>(radius - strip.rows.begin());
}

}  // namespace drawing
