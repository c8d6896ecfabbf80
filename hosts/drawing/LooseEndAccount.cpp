#include "drawing/LooseEndAccount.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <tuple>
#include <utility>

namespace drawing {

namespace {

// Ends of one place, in millimetres: far more than rounding moves, and no more than makes ends
// meet.
constexpr double kSamePlace = 0.0001;

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// So much larger that most places have all their neighbours in their own cell.
constexpr double kCell = 0.01;

// Finds positions in a list by place.
class PlaceIndex {
 public:
  explicit PlaceIndex(const std::vector<LooseEnd>& ends) {
    entries_.reserve(ends.size());
    for (std::size_t i = 0; i < ends.size(); ++i) {
      if (IsFinite(ends[i].point)) entries_.push_back({CellOf(ends[i].point), ends[i].point, i});
    }
    std::sort(entries_.begin(), entries_.end(), [](const Entry& p, const Entry& q) {
      return std::tie(p.cell, p.position) < std::tie(q.cell, q.position);
    });
  }

  // The position of an end at a place, kNone where there is none.
  std::size_t Find(const GX2DPoint& p) const {
    if (!IsFinite(p)) return kNone;
    const Cell low = CellOf({p.X - kSamePlace, p.Y - kSamePlace});
    const Cell high = CellOf({p.X + kSamePlace, p.Y + kSamePlace});
    std::size_t position = FindIn(low, p);
    if (low == high) return position;
    for (const Cell& cell : {Cell(low.first, high.second), Cell(high.first, low.second), high}) {
      if (position == kNone) position = FindIn(cell, p);
    }
    return position;
  }

 private:
  using Cell = std::pair<double, double>;
  struct Entry {
    Cell cell;
    GX2DPoint place;
    std::size_t position = 0;
  };

  std::size_t FindIn(const Cell& cell, const GX2DPoint& p) const {
    auto entry = std::lower_bound(entries_.begin(), entries_.end(), cell,
                                  [](const Entry& e, const Cell& c) { return e.cell < c; });
    for (; entry != entries_.end() && entry->cell == cell; ++entry) {
      if (IsNear(entry->place, p)) return entry->position;
    }
    return kNone;
  }

  // What is not finite has no order among cells.
  static bool IsFinite(const GX2DPoint& p) { return std::isfinite(p.X) && std::isfinite(p.Y); }

  static Cell CellOf(const GX2DPoint& p) {
    return {std::floor(p.X / kCell), std::floor(p.Y / kCell)};
  }

  static bool IsNear(const GX2DPoint& p, const GX2DPoint& q) {
    return std::abs(p.X - q.X) <= kSamePlace && std::abs(p.Y - q.Y) <= kSamePlace;
  }

  std::vector<Entry> entries_;
};

// The drawing without what was taken away. `origins` tells the elements as read.
Drawing WithoutRemoved(const Drawing& asRead, const std::vector<bool>& removed,
                       std::vector<std::size_t>& origins) {
  Drawing rest;
  for (std::size_t i = 0; i < asRead.elements.size(); ++i) {
    const DrawnElement& drawn = asRead.elements[i];
    if (removed[i] || drawn.element == nullptr) continue;
    rest.elements.push_back({std::unique_ptr<GX2DElement>(drawn.element->Clone()), drawn.entity});
    origins.push_back(i);
  }
  return rest;
}

// In the order of the drawing: by element, the start before the end.
bool StandsBefore(const LooseEnd& p, const LooseEnd& q) {
  return std::make_pair(p.element, !p.atStart) < std::make_pair(q.element, !q.atStart);
}

std::vector<LooseEnd> CollectLooseEnds(const std::vector<Network>& networks) {
  std::vector<LooseEnd> ends;
  for (const Network& network : networks) {
    ends.insert(ends.end(), network.looseEnds.begin(), network.looseEnds.end());
  }
  std::sort(ends.begin(), ends.end(), StandsBefore);
  return ends;
}

struct Partner {
  std::size_t position = kNone;
  double distance = 0.0;
};

// Partners of loose ends, by their positions.
class Partners {
 public:
  explicit Partners(const std::vector<LooseEnd>& ends) : ends_(ends), partners_(ends.size()) {}

  void JoinWithin(const Drawing& drawing, const std::vector<Network>& networks, double gap) {
    for (const LooseEndPair& pair : PairLooseEnds(drawing, networks, gap)) {
      Join(PositionOf(pair.first), PositionOf(pair.second), pair.distance);
    }
  }

  // What stays open has its places in the healed drawing.
  void JoinStillOpen(const HealedDrawing& healed) {
    const PlaceIndex places(ends_);
    for (const LooseEndPair& pair : healed.stillOpen) {
      const std::size_t p = places.Find(pair.first.point);
      const std::size_t q = places.Find(pair.second.point);
      if (p != kNone && q != kNone && p != q) Join(p, q, pair.distance);
    }
  }

  const Partner& Of(std::size_t position) const { return partners_[position]; }

 private:
  std::size_t PositionOf(const LooseEnd& end) const {
    return static_cast<std::size_t>(
        std::lower_bound(ends_.begin(), ends_.end(), end, StandsBefore) - ends_.begin());
  }

  void Join(std::size_t p, std::size_t q, double distance) {
    partners_[p] = {q, distance};
    partners_[q] = {p, distance};
  }

  const std::vector<LooseEnd>& ends_;
  std::vector<Partner> partners_;
};

// The number of each end, from 1: each is followed by its partner.
std::vector<std::size_t> NumbersOf(const std::vector<LooseEnd>& ends, const Partners& partners) {
  std::vector<std::size_t> numbers(ends.size(), 0);
  std::size_t last = 0;
  for (std::size_t i = 0; i < ends.size(); ++i) {
    if (numbers[i] == 0) numbers[i] = ++last;
    const std::size_t partner = partners.Of(i).position;
    if (partner != kNone && numbers[partner] == 0) numbers[partner] = ++last;
  }
  return numbers;
}

// What was joined first and taken away later had loose ends of its own when they were paired.
void KeepJoined(std::vector<bool>& removed, const std::vector<Change>& changes) {
  for (const Change& change : changes) {
    if (change.kind != ChangeKind::kEndsJoined) continue;
    for (const std::size_t element : change.elements) {
      if (element < removed.size()) removed[element] = false;
    }
  }
}

std::size_t LooseEndsGone(const std::vector<Network>& networks, const std::vector<bool>& removed) {
  std::size_t gone = 0;
  for (const Network& network : networks) {
    for (const LooseEnd& loose : network.looseEnds) gone += removed[loose.element] ? 1U : 0U;
  }
  return gone;
}

}  // namespace

bool LooseEndEntry::Joined() const { return !open && partner != 0; }

std::vector<bool> RemovedElements(const Drawing& asRead, const std::vector<Change>& changes) {
  std::vector<bool> removed(asRead.elements.size(), false);
  for (const Change& change : changes) {
    const bool takesAway = change.kind == ChangeKind::kDuplicateRemoved ||
                           change.kind == ChangeKind::kContainedRemoved;
    // The first one is what was kept.
    for (std::size_t i = 1; takesAway && i < change.elements.size(); ++i) {
      if (change.elements[i] < removed.size()) removed[change.elements[i]] = true;
    }
  }
  return removed;
}

LooseEndAccount AccountOfLooseEnds(const Drawing& asRead, const std::vector<Network>& readNetworks,
                                   const HealedDrawing& healed, double gap) {
  std::vector<bool> removed = RemovedElements(asRead, healed.changes);
  KeepJoined(removed, healed.changes);
  std::vector<std::size_t> origins;
  const Drawing rest = WithoutRemoved(asRead, removed, origins);
  const std::vector<Network> networks = FindNetworksOnly(rest);
  const std::vector<LooseEnd> ends = CollectLooseEnds(networks);
  Partners partners(ends);
  partners.JoinWithin(rest, networks, gap);
  partners.JoinStillOpen(healed);
  const PlaceIndex openPlaces(CollectLooseEnds(healed.networks));

  LooseEndAccount account;
  account.gone = LooseEndsGone(readNetworks, removed);
  account.ends.resize(ends.size());
  const std::vector<std::size_t> numbers = NumbersOf(ends, partners);
  for (std::size_t i = 0; i < ends.size(); ++i) {
    const Partner& partner = partners.Of(i);
    LooseEndEntry& entry = account.ends[numbers[i] - 1];
    entry.place = ends[i].point;
    entry.element = origins[ends[i].element];
    entry.open = openPlaces.Find(ends[i].point) != kNone;
    entry.partner = partner.position == kNone ? 0 : numbers[partner.position];
    entry.distance = partner.distance;
    account.open += entry.open ? 1U : 0U;
    account.joined += entry.Joined() ? 1U : 0U;
  }
  return account;
}

}  // namespace drawing
