#include "drawing/CutOutRows.h"

#include "drawing/CurveMeasures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <set>
#include <utility>
#include <vector>

namespace drawing {

namespace {

// Pairs of lone cut-outs that are looked at for what replaces what; beyond it nothing is told.
constexpr std::size_t kMostPairs = 4000000;

// Two cut-outs side by side, with what was measured.
struct Side {
  std::size_t b = kNoCutOut;
  double deviation = 0.0;
  bool partners = false;
  bool hasOwn = false;
  double ownDeviation = 0.0;
};

void TakeOwnVerdict(const GeometricVerdict& own, bool pairsToo, std::vector<Side>& sides) {
  for (const ContourDeviation& found : own.cutOuts) {
    if (found.a >= sides.size() || found.b == kNoCutOut) continue;
    Side& side = sides[found.a];
    if (pairsToo) side = {found.b, found.deviation, found.deviation <= kPositionLimit};
    if (side.b != found.b) continue;
    side.hasOwn = true;
    side.ownDeviation = found.deviation;
  }
}

// What stands beside each cut-out of A: as the comparison found it, otherwise by the other verdict.
std::vector<Side> SidesOfA(const PartModel& a, const Comparison& comparison,
                           const GeometricVerdict& own) {
  std::vector<Side> sides(a.cutOuts.size());
  for (const Partner& partner : comparison.partners) {
    if (partner.a >= sides.size()) continue;
    sides[partner.a] = {partner.b, partner.deviation, partner.found};
  }
  TakeOwnVerdict(own, comparison.partners.empty(), sides);
  return sides;
}

// Collects the rows of one group after the other.
class RowCollector {
 public:
  RowCollector(const PartModel& a, const PartModel& b, const Comparison& comparison,
               const GeometricVerdict& own)
      : a_(a), b_(b), placement_(own.placement), sides_(SidesOfA(a, comparison, own)) {
    for (std::size_t i = 0; i < comparison.groups.size(); ++i) AddGroup(comparison.groups[i], i);
  }

  std::vector<CutOutRow> Take() { return std::move(rows_); }

 private:
  void AddGroup(const CutOutGroup& group, std::size_t index) {
    std::set<std::size_t> leftInB(group.b.begin(), group.b.end());
    std::vector<CutOutRow> alone;
    for (const std::size_t a : group.a) {
      CutOutRow row;
      row.a = a;
      row.group = index;
      // What the other verdict lays on a cut-out may be of another group.
      if (leftInB.erase(sides_[a].b) == 0) {
        alone.push_back(row);
      } else {
        rows_.push_back(WithSide(row, sides_[a]));
      }
    }
    const bool few = alone.size() * leftInB.size() <= kMostPairs;
    for (CutOutRow& row : alone) {
      rows_.push_back(few && !leftInB.empty() ? WithNearest(row, leftInB) : row);
    }
    for (const std::size_t b : leftInB) {
      CutOutRow row;
      row.b = b;
      row.group = index;
      rows_.push_back(row);
    }
  }

  static CutOutRow WithSide(CutOutRow row, const Side& side) {
    row.b = side.b;
    row.standing = side.partners ? CutOutStanding::kPartners : CutOutStanding::kNearest;
    row.deviation = side.deviation;
    row.hasOwn = side.hasOwn;
    row.ownDeviation = side.ownDeviation;
    return row;
  }

  CutOutRow WithNearest(CutOutRow row, std::set<std::size_t>& leftInB) const {
    const GX2DPoint place = MiddleOfCutOut(a_, row.a);
    row.deviation = HUGE_VAL;
    for (const std::size_t b : leftInB) {
      const double distance = Distance(place, placement_.Apply(MiddleOfCutOut(b_, b)));
      if (!(distance < row.deviation)) continue;
      row.deviation = distance;
      row.b = b;
    }
    if (row.b == kNoCutOut) return row;
    leftInB.erase(row.b);
    row.standing = CutOutStanding::kNearest;
    return row;
  }

  const PartModel& a_;
  const PartModel& b_;
  Placement placement_;
  std::vector<Side> sides_;  // One per cut-out of A.
  std::vector<CutOutRow> rows_;
};

// How far the middle of a cut-out of A may lie from that of B for one to stand in the other's
// place: what they reach from their middles.
double ReachOf(const PartModel& part, std::size_t cutOut) {
  const Box& box = part.cutOuts[cutOut]->source->box;
  return 0.5 * std::max(box.maxX - box.minX, box.maxY - box.minY);
}

// Of every row the one whose number it has: itself, or for a row of B alone that of A alone which
// lies in the same place.
std::vector<std::size_t> FindReplacements(const PartModel& a, const PartModel& b,
                                          const Placement& placement,
                                          std::vector<CutOutRow>& rows) {
  std::vector<std::size_t> replaces(rows.size());
  std::vector<std::size_t> ofA;
  std::vector<std::size_t> ofB;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    replaces[i] = i;
    if (rows[i].b == kNoCutOut) ofA.push_back(i);
    if (rows[i].a == kNoCutOut) ofB.push_back(i);
  }
  if (ofA.size() * ofB.size() > kMostPairs) return replaces;
  for (const std::size_t j : ofB) {
    const GX2DPoint place = placement.Apply(MiddleOfCutOut(b, rows[j].b));
    double least = ReachOf(b, rows[j].b);
    for (const std::size_t i : ofA) {
      const double distance = Distance(place, MiddleOfCutOut(a, rows[i].a));
      if (rows[i].standing != CutOutStanding::kAlone || !(distance < least)) continue;
      least = distance;
      replaces[j] = i;
    }
    if (replaces[j] == j) continue;
    rows[j].standing = rows[replaces[j]].standing = CutOutStanding::kReplaced;
  }
  return replaces;
}

}  // namespace

std::vector<CutOutRow> RowsOfCutOuts(const PartModel& a, const PartModel& b,
                                     const Comparison& comparison, const GeometricVerdict& own) {
  std::vector<CutOutRow> rows = RowCollector(a, b, comparison, own).Take();
  const std::vector<std::size_t> replaces = FindReplacements(a, b, own.placement, rows);
  std::size_t number = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (replaces[i] == i) rows[i].number = ++number;
  }
  for (std::size_t i = 0; i < rows.size(); ++i) rows[i].number = rows[replaces[i]].number;
  return rows;
}

GX2DPoint MiddleOfCutOut(const PartModel& part, std::size_t cutOut) {
  const Box& box = part.cutOuts[cutOut]->source->box;
  return {0.5 * (box.minX + box.maxX), 0.5 * (box.minY + box.maxY)};
}

}  // namespace drawing
