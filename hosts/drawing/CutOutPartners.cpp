#include "drawing/CutOutPartners.h"

#include "drawing/CurveMeasures.h"
#include "drawing/OutlineMotions.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace drawing {

namespace {

// Side of a cell of the grid, in millimetres; no search radius is larger.
constexpr double kCellSize = 1.0;

// Reference points of two cut-outs whose corners lie within kPositionLimit differ by that and by
// what lengths within the library's tolerance shift the centre of gravity.
constexpr double kReferenceRadius = 2.0 * kPositionLimit;

// Deviation, in millimetres, below which no other start of a symmetric shape can gain anything.
constexpr double kNoDeviation = 1.0e-7;

// Cells beyond this are folded together, which costs time there but finds the same.
constexpr double kLargestCell = 1.0e9;

std::int64_t CellNumber(double coordinate) {
  if (std::isnan(coordinate)) return 0;
  return static_cast<std::int64_t>(
      std::floor(std::clamp(coordinate / kCellSize, -kLargestCell, kLargestCell)));
}

std::uint64_t CellKey(std::int64_t column, std::int64_t row) {
  constexpr std::int64_t kOffset = std::int64_t{1} << 31;
  return (static_cast<std::uint64_t>(column + kOffset) << 32) ^
         static_cast<std::uint64_t>(row + kOffset);
}

// Largest distance of corresponding points; given up, with a distance that is too large, where it
// is no longer below `enough`.
double WalkDeviation(const PlacedCutOut& a, const PlacedCutOut& b, const WalkStart& start,
                     const RigidMotion& motion, double enough) {
  double largest = 0.0;
  for (std::size_t i = 0; i < 2 * a.walk.Sides() && largest < enough; ++i) {
    const GX2DPoint image = motion.Apply(b.walk.Point(start, i));
    const double distance = Distance(image, a.walk.Point(a.starts.front(), i));
    // A distance that is not a number is too large.
    if (!(distance <= largest)) largest = std::isnan(distance) ? HUGE_VAL : distance;
  }
  return largest;
}

std::vector<PlacedCutOut> PlaceAll(const PartModel& part) {
  std::vector<PlacedCutOut> placed;
  placed.reserve(part.cutOuts.size());
  for (const auto& cutOut : part.cutOuts) placed.emplace_back(*cutOut);
  return placed;
}

}  // namespace

PlacedCutOut::PlacedCutOut(const ShapedContour& contour)
    : group(kNoCutOut),
      reference(WireCentre(contour.elements)),
      circle(AsFullCircle(contour.elements) != nullptr),
      radius(circle ? AsFullCircle(contour.elements)->Radius() : 0.0),
      walk(contour.elements) {}

CutOutPartners::CutOutPartners(const PartModel& a, const PartModel& b,
                               const std::vector<ShapeGroup>& groups,
                               GXLAContour::eNmbSegmentsMode mode)
    : a_(PlaceAll(a)), b_(PlaceAll(b)) {
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].a == nullptr || groups[i].b == nullptr) continue;
    for (const std::size_t index : groups[i].inA) {
      a_[index].group = i;
      FindStarts(a_[index], *groups[i].a, *a.cutOuts[index], mode);
    }
    for (const std::size_t index : groups[i].inB) {
      b_[index].group = i;
      FindStarts(b_[index], *groups[i].a, *b.cutOuts[index], mode);
    }
  }
  for (std::size_t i = 0; i < b_.size(); ++i) {
    const GX2DPoint& p = b_[i].reference;
    cells_[CellKey(CellNumber(p.X), CellNumber(p.Y))].push_back(i);
  }
}

void CutOutPartners::FindStarts(PlacedCutOut& cutOut, const GXLAContour& shape,
                                const ShapedContour& contour,
                                GXLAContour::eNmbSegmentsMode mode) const {
  if (cutOut.circle) return;
  const MatchedGeometry match = MatchGeometry(shape, *contour.shape, mode, nullptr);
  if (match.sense == GXLAContour::eGeometryNotSet) return;
  const bool backward = match.sense == GXLAContour::eGeometryBackward;
  for (const int start : match.starts) {
    cutOut.starts.push_back({static_cast<std::size_t>(start) / 2, backward});
  }
}

const std::vector<PlacedCutOut>& CutOutPartners::A() const { return a_; }

const std::vector<PlacedCutOut>& CutOutPartners::B() const { return b_; }

double CutOutPartners::Deviation(const PlacedCutOut& a, const PlacedCutOut& b,
                                 const RigidMotion& motion) const {
  if (a.circle && b.circle) {
    return Distance(motion.Apply(b.reference), a.reference) + std::fabs(a.radius - b.radius);
  }
  double least = HUGE_VAL;
  if (a.starts.empty() || a.walk.Sides() != b.walk.Sides()) return least;
  for (const WalkStart& start : b.starts) {
    least = std::min(least, WalkDeviation(a, b, start, motion, least));
    if (least <= kNoDeviation) break;
  }
  return least;
}

void CutOutPartners::CollectNear(Cell cell, const GX2DPoint& place, double radius,
                                 std::vector<std::size_t>& near) const {
  const auto members = cells_.find(cell);
  if (members == cells_.end()) return;
  for (const std::size_t index : members->second) {
    if (Distance(b_[index].reference, place) <= radius) near.push_back(index);
  }
}

std::vector<std::size_t> CutOutPartners::Near(const RigidMotion& motion, const GX2DPoint& p,
                                              double radius) const {
  const GX2DPoint place = motion.Undo(p);
  const std::int64_t lastColumn = CellNumber(place.X + radius);
  const std::int64_t lastRow = CellNumber(place.Y + radius);
  std::vector<std::size_t> near;
  for (std::int64_t column = CellNumber(place.X - radius); column <= lastColumn; ++column) {
    for (std::int64_t row = CellNumber(place.Y - radius); row <= lastRow; ++row) {
      CollectNear(CellKey(column, row), place, radius, near);
    }
  }
  std::sort(near.begin(), near.end());
  return near;
}

PartnerSearch CutOutPartners::Search(const RigidMotion& motion) const {
  PartnerSearch search;
  search.taken.assign(b_.size(), false);
  for (std::size_t i = 0; i < a_.size(); ++i) {
    Partner partner;
    partner.a = i;
    partner.deviation = HUGE_VAL;
    const bool grouped = a_[i].group != kNoCutOut;
    const std::vector<std::size_t> near =
        grouped ? Near(motion, a_[i].reference, kReferenceRadius) : std::vector<std::size_t>();
    for (const std::size_t j : near) {
      if (search.taken[j] || b_[j].group != a_[i].group) continue;
      const double deviation = Deviation(a_[i], b_[j], motion);
      if (!(deviation <= kPositionLimit) || deviation >= partner.deviation) continue;
      partner.b = j;
      partner.deviation = deviation;
      partner.found = true;
    }
    if (partner.found) {
      search.taken[partner.b] = true;
      search.largestDeviation = std::max(search.largestDeviation, partner.deviation);
      ++search.found;
    }
    search.partners.push_back(partner);
  }
  return search;
}

void CutOutPartners::NameNearest(const RigidMotion& motion, PartnerSearch& search) const {
  for (Partner& partner : search.partners) {
    if (partner.found) continue;
    const PlacedCutOut& mine = a_[partner.a];
    const GX2DPoint place = motion.Undo(mine.reference);
    double least = HUGE_VAL;
    for (std::size_t j = 0; j < b_.size(); ++j) {
      if (mine.group == kNoCutOut || search.taken[j] || b_[j].group != mine.group) continue;
      const double distance = Distance(b_[j].reference, place);
      if (distance >= least) continue;
      least = distance;
      partner.b = j;
    }
    partner.deviation =
        partner.b == kNoCutOut ? 0.0 : std::max(least, Deviation(mine, b_[partner.b], motion));
  }
}

}  // namespace drawing
