#include "drawing/Preflight.h"

#include "drawing/NumberText.h"
#include "drawing/PreflightFindings.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace drawing {

namespace {

// Elements taken out of a drawing for a while; the others keep their indices.
class TakenAside {
 public:
  TakenAside(Drawing& drawing, const std::vector<Overlap>& overlaps) : drawing_(drawing) {
    for (const Overlap& overlap : overlaps) {
      std::unique_ptr<GX2DElement>& element = drawing.elements[overlap.other].element;
      if (element != nullptr) elements_.emplace_back(overlap.other, std::move(element));
    }
  }
  TakenAside(const TakenAside&) = delete;
  TakenAside& operator=(const TakenAside&) = delete;
  ~TakenAside() {
    for (auto& [index, element] : elements_) drawing_.elements[index].element = std::move(element);
  }

 private:
  Drawing& drawing_;
  std::vector<std::pair<std::size_t, std::unique_ptr<GX2DElement>>> elements_;
};

NestingCounts CountsOf(const std::vector<std::unique_ptr<Contour>>& contours) {
  NestingCounts counts;
  for (const auto& contour : contours) {
    if (!contour->usable) continue;
    if (contour->coincidesWith != kNoContour) {
      ++counts.coincident;
    } else if (contour->depth == 0) {
      ++counts.outer;
    } else {
      ++(contour->depth % 2 == 1 ? counts.cutOuts : counts.islands);
    }
  }
  return counts;
}

Sight Look(const Drawing& drawing) {
  Sight sight;
  sight.networks = FindNetworks(drawing);
  sight.contours = BuildContours(drawing, sight.networks);
  sight.crossings = NestContours(sight.contours);
  sight.figures = FiguresOf(drawing, sight.networks, sight.contours);
  sight.nesting = CountsOf(sight.contours);
  sight.pairs = PairLooseEnds(drawing, sight.networks, std::numeric_limits<double>::infinity());
  return sight;
}

void AddFindings(Preflight& preflight, const Sight& sight, const std::vector<Overlap>& overlaps,
                 const PreflightOptions& options) {
  const Drawing& drawing = preflight.drawing;
  std::vector<Finding>& findings = preflight.findings;
  AddLooseEnds(drawing, sight, findings);
  AddJunctions(drawing, sight, findings);
  AddOverlaps(drawing, overlaps, findings);
  AddSmallOnes(drawing, sight, options.tiny, findings);
  AddSelfIntersections(drawing, sight, overlaps, findings);
  AddContourFindings(drawing, sight, overlaps, findings);
  AddFileFindings(drawing, findings);
  std::stable_sort(findings.begin(), findings.end(),
                   [](const Finding& a, const Finding& b) { return a.kind < b.kind; });
  for (const Network& network : sight.networks) preflight.looseEnds += network.looseEnds.size();
  if (!sight.pairs.empty()) preflight.closingGap = sight.pairs.back().distance;
}

}  // namespace

const char* FindingKindName(FindingKind kind) {
  switch (kind) {
    case FindingKind::kLooseEnd:
      return "loose end";
    case FindingKind::kJunction:
      return "junction";
    case FindingKind::kDuplicate:
      return "duplicate";
    case FindingKind::kContained:
      return "contained overlap";
    case FindingKind::kPartialOverlap:
      return "partial overlap";
    case FindingKind::kZeroLength:
      return "zero length";
    case FindingKind::kTiny:
      return "tiny element";
    case FindingKind::kSelfIntersection:
      return "self-intersection";
    case FindingKind::kCrossing:
      return "crossing contours";
    case FindingKind::kCoincident:
      return "coincident contours";
    case FindingKind::kNoArea:
      return "no area";
    case FindingKind::kUnit:
      return "unit";
    case FindingKind::kNotUsed:
      return "not used";
    case FindingKind::kDamage:
      return "damage";
    case FindingKind::kRemark:
      break;
  }
  return "remark";
}

bool Preflight::IsClean() const {
  return drawing.usable && std::none_of(findings.begin(), findings.end(),
                                        [](const Finding& finding) { return finding.counts; });
}

Preflight Inspect(Drawing drawing, const PreflightOptions& options) {
  Preflight preflight;
  preflight.drawing = std::move(drawing);
  if (!preflight.drawing.usable) return preflight;
  const std::vector<Overlap> overlaps = FindOverlaps(preflight.drawing);
  const std::vector<Overlap> removable = RemovableOverlaps(preflight.drawing, overlaps);
  Sight asDrawn = Look(preflight.drawing);
  preflight.hasDoubled = !removable.empty();
  Sight cleared;
  if (preflight.hasDoubled) {
    const TakenAside doubled(preflight.drawing, removable);
    cleared = Look(preflight.drawing);
  }
  const Sight& sight = preflight.hasDoubled ? cleared : asDrawn;
  preflight.withoutDoubled = sight.figures;
  preflight.nestingWithoutDoubled = sight.nesting;
  AddFindings(preflight, sight, overlaps, options);
  preflight.networks = std::move(asDrawn.networks);
  preflight.contours = std::move(asDrawn.contours);
  preflight.figures = asDrawn.figures;
  preflight.nesting = asDrawn.nesting;
  return preflight;
}

}  // namespace drawing
