#include "drawing/CurvePartners.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace drawing {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// In millimetres. The centres of gravity of two curves that run along each other within the limit
// are hardly further apart than that, but where one of them is drawn with a jitter.
constexpr double kCentreRadius = 0.5;

// In millimetres: no other partner can be better than one that deviates by this.
constexpr double kNoDeviation = 1.0e-7;

// Cells beyond this are folded together, which costs time there but finds the same.
constexpr double kLargestCell = 1.0e15;

std::int64_t CellNumber(double coordinate) {
  if (std::isnan(coordinate)) return 0;
  return static_cast<std::int64_t>(
      std::floor(std::clamp(coordinate / kCentreRadius, -kLargestCell, kLargestCell)));
}

}  // namespace

void RaiseBothWays(DeviationMeter& meter, const CurveTree& a, const CurveTree& b,
                   const RigidMotion& motion, double limit, LargestDistance& largest) {
  meter.Raise(b.Pieces(), motion, a, limit, largest);
  if (largest.distance > limit) return;
  LargestDistance back = largest;
  meter.Raise(a.Pieces(), Inverse(motion), b, limit, back);
  if (largest.known && !(back.distance > largest.distance)) return;
  largest = {back.distance, Moved(motion, back.place), back.known};
}

CurvePartners::CurvePartners(const PartCurves& a, const PartCurves& b) : a_(a), b_(b) {
  for (std::size_t i = 0; i < b.cutOuts.size(); ++i) {
    const ContourCurve& cutOut = b.cutOuts[i];
    entries_.push_back({CellNumber(cutOut.centre.x), CellNumber(cutOut.centre.y), cutOut.reach, i});
  }
  std::sort(entries_.begin(), entries_.end(), ComesBefore);
}

bool CurvePartners::ComesBefore(const Entry& p, const Entry& q) {
  return std::tie(p.column, p.row, p.reach, p.index) < std::tie(q.column, q.row, q.reach, q.index);
}

// Within each cell only curves of about the same size can lie within the limit: of circles about
// one centre only the neighbours are looked at.
std::vector<std::size_t> CurvePartners::Near(const Place& place, double reach, double limit) const {
  const std::int64_t column = CellNumber(place.x);
  const std::int64_t row = CellNumber(place.y);
  const double slack = limit + kCentreRadius;
  std::vector<std::size_t> near;
  for (std::int64_t i = column - 1; i <= column + 1; ++i) {
    for (std::int64_t j = row - 1; j <= row + 1; ++j) {
      auto entry = std::lower_bound(entries_.begin(), entries_.end(), Entry{i, j, reach - slack, 0},
                                    ComesBefore);
      for (; entry != entries_.end() && entry->column == i && entry->row == j; ++entry) {
        if (entry->reach > reach + slack) break;
        if (Distance(b_.cutOuts[entry->index].centre, place) > kCentreRadius) continue;
        near.push_back(entry->index);
      }
    }
  }
  std::sort(near.begin(), near.end());
  return near;
}

CurvePartnerSearch CurvePartners::Search(const RigidMotion& motion, double limit,
                                         DeviationMeter& meter) const {
  CurvePartnerSearch search;
  search.taken.assign(b_.cutOuts.size(), false);
  for (const ContourCurve& mine : a_.cutOuts) {
    CurvePartner partner;
    for (const std::size_t j : Near(MovedBack(motion, mine.centre), mine.reach, limit)) {
      if (search.taken[j]) continue;
      LargestDistance largest;
      RaiseBothWays(meter, mine.curve, b_.cutOuts[j].curve, motion, limit, largest);
      if (!(largest.distance <= limit)) continue;
      if (partner.b != kNone && !(largest.distance < partner.deviation.distance)) continue;
      partner = {j, largest};
      if (largest.distance <= kNoDeviation) break;
    }
    if (partner.b != kNone) {
      search.taken[partner.b] = true;
      ++search.found;
    }
    search.partners.push_back(partner);
  }
  return search;
}

}  // namespace drawing
