#include "drawing/ContourCrossings.h"

#include "drawing/CurveMeasures.h"
#include "drawing/ElementCrossings.h"

#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <algorithm>
#include <utility>

namespace drawing {

namespace {

// Indices into the tested contour and into the other one.
using Pair = std::pair<std::size_t, std::size_t>;

std::vector<Box> BoxesOf(const GX2DElmList& elements) {
  std::vector<Box> boxes;
  boxes.reserve(elements.size());
  for (GX2DElement* const element : elements) boxes.push_back(BoxOf(*element));
  return boxes;
}

std::vector<Pair> NearPairs(const GX2DElmList& tested, const ElementIndex& other) {
  std::vector<Pair> pairs;
  std::vector<std::size_t> near;
  for (std::size_t i = 0; i < tested.size(); ++i) {
    other.FindNear(BoxOf(*tested[i]), near);
    for (const std::size_t j : near) pairs.emplace_back(i, j);
  }
  return pairs;
}

// What GetIntersections leaves out of a pair: candidates, which need not lie on both elements.
void AddCandidates(GX2DElement& p, GX2DElement& q, std::vector<GX2DPoint>& points) {
  const auto* arc = dynamic_cast<const GX2DArc*>(&p);
  const auto* otherArc = dynamic_cast<const GX2DArc*>(&q);
  const auto* line = dynamic_cast<const GX2DLine*>(&p);
  const auto* otherLine = dynamic_cast<const GX2DLine*>(&q);
  if (arc != nullptr && otherArc != nullptr) CrossCircles(*arc, *otherArc, points);
  if (line != nullptr && otherLine != nullptr) CrossLines(*line, *otherLine, points);
  AddEnds(p, points);
  AddEnds(q, points);
}

// Gathers points on the elements of the tested contour.
class CutCollector {
 public:
  CutCollector(const GX2DElmList& tested, CommonPoints& common) : tested_(tested), common_(common) {
    common_.cuts.resize(tested.size());
  }

  void Add(std::size_t index, const GX2DPoint& p) {
    if (!(DistanceToElement(p, *tested_[index]) <= kTouchTolerance)) return;
    common_.any = true;
    const double share = ShareAt(p, *tested_[index]);
    if (share > 0.0 && share < 1.0) common_.cuts[index].push_back(share);
  }

 private:
  const GX2DElmList& tested_;
  CommonPoints& common_;
};

// Crossings as the library finds them, each on those near elements of the tested contour that have
// it.
void AddLibraryCrossings(GX2DElmList& tested, const ElementIndex& other,
                         const std::vector<Pair>& pairs, CutCollector& cuts) {
  BorrowedElements near;
  BorrowedElements nearOthers;
  std::vector<std::size_t> indices;
  std::vector<std::size_t> others;
  for (const auto& [i, j] : pairs) {
    if (indices.empty() || indices.back() != i) indices.push_back(i);
    others.push_back(j);
  }
  std::sort(others.begin(), others.end());
  others.erase(std::unique(others.begin(), others.end()), others.end());
  for (const std::size_t i : indices) near.Add(tested[i]);
  for (const std::size_t j : others) nearOthers.Add(other.Elements()[j]);
  GX2DPointList points;
  GXGeometry::GetIntersections(near.List(), nearOthers.List(), points);
  if (points.empty()) return;
  const ElementIndex finder(near.List());
  std::vector<std::size_t> found;
  for (const GX2DPoint* point : points) {
    finder.FindNear({point->X, point->Y, point->X, point->Y}, found);
    for (const std::size_t k : found) cuts.Add(indices[k], *point);
  }
}

}  // namespace

ElementIndex::ElementIndex(GX2DElmList& elements) : elements_(elements), tree_(BoxesOf(elements)) {}

void ElementIndex::FindNear(const Box& box, std::vector<std::size_t>& found) const {
  tree_.FindMeeting(Grown(box, kTouchTolerance), found);
  std::sort(found.begin(), found.end());
}

bool ElementIndex::Touches(const GX2DPoint& p) const {
  std::vector<std::size_t> found;
  tree_.FindMeeting(Grown({p.X, p.Y, p.X, p.Y}, kTouchTolerance), found);
  return std::any_of(found.begin(), found.end(), [&](std::size_t i) {
    return DistanceToElement(p, *elements_[i]) <= kTouchTolerance;
  });
}

CommonPoints FindCommonPoints(GX2DElmList& tested, const ElementIndex& other) {
  CommonPoints common;
  const std::vector<Pair> pairs = NearPairs(tested, other);
  common.anyNear = !pairs.empty();
  if (pairs.empty()) return common;
  CutCollector cuts(tested, common);
  AddLibraryCrossings(tested, other, pairs, cuts);
  std::vector<GX2DPoint> candidates;
  for (const auto& [i, j] : pairs) {
    GX2DElement& element = *other.Elements()[j];
    candidates.clear();
    AddCandidates(*tested[i], element, candidates);
    for (const GX2DPoint& p : candidates) {
      if (DistanceToElement(p, element) <= kTouchTolerance) cuts.Add(i, p);
    }
  }
  if (!common.any) common.cuts.clear();
  for (std::vector<double>& shares : common.cuts) {
    std::sort(shares.begin(), shares.end());
    shares.erase(std::unique(shares.begin(), shares.end()), shares.end());
  }
  return common;
}

}  // namespace drawing
