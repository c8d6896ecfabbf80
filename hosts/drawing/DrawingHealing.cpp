// The whole road is gone again and again until nothing changes any more, which is mostly the second
// time: what one step does may give work to another, and a healed drawing is to be one on which
// healing finds nothing to do.
#include "drawing/DrawingHealing.h"

#include "drawing/ChainHealing.h"
#include "drawing/CurveMeasures.h"
#include "drawing/EndJoining.h"
#include "drawing/HealingWords.h"
#include "drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <tuple>
#include <utility>

namespace drawing {

namespace {

constexpr int kMostRounds = 8;

// A gap that is named with the digits of a report is to close what it was told for.
constexpr double kGapRounding = 5.0e-10;

// A contour that is nowhere wider than about this, in millimetres, encloses nothing to tidy up.
constexpr double kLeastWidth = 0.0001;

double GapOf(const HealOptions& options) {
  return options.gap >= 0.0 ? options.gap + kGapRounding : kGapRounding;
}

double LengthOf(const GX2DElmList& elements) {
  double length = 0.0;
  for (const GX2DElement* const element : elements) length += ElementLength(*element);
  return length;
}

// The ends of a drawing, found by their places.
class EndPlaces {
 public:
  void Add(const GX2DPoint& p, std::size_t end) {
    if (std::isfinite(p.X) && std::isfinite(p.Y)) ends_[CellOf(p.X, p.Y)].push_back({p, end});
  }

  // Whether no end but the two stands within the tolerance of a place.
  bool IsFree(const GX2DPoint& p, std::size_t a, std::size_t b) const {
    for (const double dx : {-kNear, kNear}) {
      for (const double dy : {-kNear, kNear}) {
        const auto cell = ends_.find(CellOf(p.X + dx, p.Y + dy));
        if (cell == ends_.end()) continue;
        for (const auto& [place, end] : cell->second) {
          if (end != a && end != b && place.IsAlmostEq(p, kNear)) return false;
        }
      }
    }
    return true;
  }

 private:
  // What is joined beside other ends would overlap with what ends there.
  static constexpr double kNear = kOverlapTolerance;
  static constexpr double kCell = 4.0 * kNear;

  static std::pair<double, double> CellOf(double x, double y) {
    return {std::floor(x / kCell), std::floor(y / kCell)};
  }

  std::map<std::pair<double, double>, std::vector<std::pair<GX2DPoint, std::size_t>>> ends_;
};

class Healer {
 public:
  Healer(const Drawing& source, const HealOptions& options)
      : source_(source), options_(options), gap_(GapOf(options)), work_(CopyOf(source)) {
    auto& elements = work_.elements;
    for (std::size_t i = 0; i < elements.size(); ++i) {
      if (elements[i].element != nullptr) origins_.push_back(i);
    }
    elements.erase(std::remove_if(elements.begin(), elements.end(),
                                  [](const DrawnElement& drawn) { return !drawn.element; }),
                   elements.end());
    work_.zeroLength.clear();
  }

  void Run() {
    TellZeroLength();
    for (int round = 0; round < kMostRounds; ++round) {
      const std::size_t before = changes_.size();
      refused_.clear();
      RemoveOverlaps();
      JoinLooseEnds();
      TidyContours();
      if (changes_.size() == before) return;
    }
  }

  void HandOver(HealedDrawing& healed) {
    for (const Change& change : changes_) {
      healed.largestMovement = std::max(healed.largestMovement, change.movement);
    }
    healed.drawing = std::move(work_);
    healed.changes = std::move(changes_);
    healed.notes = std::move(refused_);
  }

 private:
  // Puts the changes behind `from` into the order of their kinds, and within them of elements.
  void SortChanges(std::size_t from) {
    std::stable_sort(changes_.begin() + static_cast<std::ptrdiff_t>(from), changes_.end(),
                     [](const Change& a, const Change& b) {
                       return std::tie(a.kind, a.elements) < std::tie(b.kind, b.elements);
                     });
  }

  void TellZeroLength() {
    for (const ZeroLengthEntity& dropped : source_.zeroLength) {
      changes_.push_back({ChangeKind::kZeroLengthDropped,
                          {},
                          dropped.place,
                          0.0,
                          EntityText(dropped.entity) + " at " + PlaceText(dropped.place) +
                              " has no length; left out"});
    }
  }

  void RemoveOverlaps() {
    const std::vector<Overlap> removable = RemovableOverlaps(work_, FindOverlaps(work_));
    if (removable.empty()) return;
    const std::size_t from = changes_.size();
    std::vector<bool> goes(work_.elements.size(), false);
    for (const Overlap& overlap : removable) goes[overlap.other] = true;
    for (Overlap overlap : removable) {
      NameWhatStays(removable, goes, overlap);
      overlap.keeper = origins_[overlap.keeper];
      overlap.other = origins_[overlap.other];
      const bool duplicate = overlap.kind == OverlapKind::kDuplicate;
      changes_.push_back({duplicate ? ChangeKind::kDuplicateRemoved : ChangeKind::kContainedRemoved,
                          {overlap.keeper, overlap.other},
                          overlap.place,
                          0.0,
                          RemovedText(source_, overlap)});
    }
    SortChanges(from);
    KeepOnly(goes);
  }

  // The keeper of an overlap may go itself, for a longer one or a copy of it.
  static void NameWhatStays(const std::vector<Overlap>& removable, const std::vector<bool>& goes,
                            Overlap& overlap) {
    while (goes[overlap.keeper]) {
      const auto next =
          std::lower_bound(removable.begin(), removable.end(), overlap.keeper,
                           [](const Overlap& a, std::size_t other) { return a.other < other; });
      overlap.keeper = next->keeper;
      if (next->kind == OverlapKind::kContained) overlap.kind = OverlapKind::kContained;
    }
  }

  void KeepOnly(const std::vector<bool>& goes) {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < goes.size(); ++i) {
      if (goes[i]) continue;
      if (kept != i) {
        work_.elements[kept] = std::move(work_.elements[i]);
        origins_[kept] = origins_[i];
      }
      ++kept;
    }
    work_.elements.resize(kept);
    origins_.resize(kept);
  }

  // An end that was moved once is not moved again: both movements together could be more than the
  // gap.
  bool IsAsRead(const LooseEnd& end) const {
    GX2DElement& drawn = *source_.elements[origins_[end.element]].element;
    return end.point == drawn.GetStartPoint() || end.point == drawn.GetEndPoint();
  }

  void JoinLooseEnds() {
    const std::vector<Network> networks = FindNetworksOnly(work_);
    const std::vector<LooseEndPair> pairs = PairLooseEnds(work_, networks, gap_);
    if (pairs.empty()) return;
    EndPlaces places = PlacesOf(networks);
    const std::size_t from = changes_.size();
    for (const LooseEndPair& pair : pairs) {
      if (IsAsRead(pair.first) && IsAsRead(pair.second)) Join(pair, places);
    }
    SortChanges(from);
  }

  // Specks are in nobody's way.
  EndPlaces PlacesOf(const std::vector<Network>& networks) const {
    EndPlaces places;
    for (const Network& network : networks) {
      for (const std::size_t i : network.elements) {
        if (std::binary_search(network.specks.begin(), network.specks.end(), i)) continue;
        GX2DElement& element = *work_.elements[i].element;
        places.Add(element.GetStartPoint(), 2 * i);
        places.Add(element.GetEndPoint(), 2 * i + 1);
      }
    }
    return places;
  }

  void Join(const LooseEndPair& pair, EndPlaces& places) {
    const LooseEnd& a = pair.first;
    const LooseEnd& b = pair.second;
    const std::size_t endA = 2 * a.element + (a.atStart ? 0 : 1);
    const std::size_t endB = 2 * b.element + (b.atStart ? 0 : 1);
    const auto isFree = [&](const GX2DPoint& p) { return places.IsFree(p, endA, endB); };
    JoinedEnds joined;
    if (!JoinEnds(*work_.elements[a.element].element, a.atStart, *work_.elements[b.element].element,
                  b.atStart, gap_, isFree, joined)) {
      return;
    }
    places.Add(joined.place, endA);
    Change change;
    change.kind = joined.becameCircle ? ChangeKind::kBecameCircle : ChangeKind::kEndsJoined;
    change.elements = {origins_[a.element]};
    change.place = joined.place;
    change.movement = joined.movement;
    change.what = EntityText(source_, origins_[a.element]);
    if (joined.becameCircle) {
      change.what += " ran all round but for " + DistanceText(pair.distance) + " at " +
                     PlaceText(joined.place) + "; made a full circle";
    } else {
      change.elements.push_back(origins_[b.element]);
      change.what += " and " + EntityText(source_, origins_[b.element]) + " joined at " +
                     PlaceText(joined.place) + " across " + DistanceText(pair.distance);
    }
    changes_.push_back(std::move(change));
  }

  void TidyContours() {
    const std::size_t from = changes_.size();
    std::vector<DrawnElement> tidied;
    std::vector<std::size_t> tidiedOrigins;
    std::vector<bool> goes(work_.elements.size(), false);
    nodes_.clear();
    for (const Network& network : FindNetworksOnly(work_)) {
      if (network.kind == NetworkKind::kSpeck) {
        for (const std::size_t speck : network.elements) {
          goes[speck] = true;
          Tell(DropOf(speck));
        }
      }
      if (network.kind != NetworkKind::kClosed) continue;
      HealedChain chain;
      std::vector<ChainChange> changes;
      if (!TidyContour(network, chain, changes)) continue;
      for (const ChainChange& change : changes) Tell(change);
      for (const std::size_t element : network.elements) goes[element] = true;
      for (std::size_t i = 0; i < chain.elements.size(); ++i) {
        const std::size_t origin = chain.origins[i];
        DrawnElement drawn;
        drawn.element.reset(chain.elements[i]);
        drawn.entity = source_.elements[origin].entity;
        tidied.push_back(std::move(drawn));
        tidiedOrigins.push_back(origin);
      }
      chain.elements.clear();  // The plain clear: the elements have a new owner.
    }
    KeepOnly(goes);
    std::move(work_.elements.begin(), work_.elements.end(), std::back_inserter(tidied));
    tidiedOrigins.insert(tidiedOrigins.end(), origins_.begin(), origins_.end());
    work_.elements = std::move(tidied);
    origins_ = std::move(tidiedOrigins);
    SortChanges(from);
  }

  void Tell(const ChainChange& change) {
    changes_.push_back({change.kind, change.origins, change.place, change.movement,
                        ChainChangeText(source_, change)});
  }

  // The largest distance of two ends that meet in a closed network, be it over specks.
  double WidestNode(const Network& network) {
    if (nodes_.empty()) nodes_ = FindNodes(work_);
    std::map<std::size_t, GX2DPoint> firstAt;
    double widest = 0.0;
    for (const std::size_t i : network.elements) {
      if (std::binary_search(network.specks.begin(), network.specks.end(), i)) continue;
      GX2DElement& element = *work_.elements[i].element;
      for (const std::size_t end : {2 * i, 2 * i + 1}) {
        const GX2DPoint& p = end % 2 == 0 ? element.GetStartPoint() : element.GetEndPoint();
        const auto [first, isFirst] = firstAt.emplace(nodes_[end], p);
        if (!isFirst) widest = std::max(widest, Distance(first->second, p));
      }
    }
    return widest;
  }

  ChainChange DropOf(std::size_t speck) const {
    const GX2DPoint& place = work_.elements[speck].element->GetStartPoint();
    return {ChangeKind::kPointRemoved, {origins_[speck]}, place, 0.0, 1, 0.0};
  }

  // False where the network is to stay as it was drawn.
  bool TidyContour(const Network& network, HealedChain& chain, std::vector<ChainChange>& changes) {
    CopyChain(network, chain);
    const bool follows = PutInOrder(chain, changes);
    if (!follows) {
      // Where a speck bridged more than neighbours may be apart, its going gives loose ends that
      // are near enough to be joined.
      if (network.specks.empty() || !(WidestNode(network) <= gap_)) return false;
      changes.clear();
    }
    for (const std::size_t speck : network.specks) {
      GX2DElement& element = *work_.elements[speck].element;
      changes.push_back(
          {ChangeKind::kPointRemoved, {origins_[speck]}, element.GetStartPoint(), 0.0, 1, 0.0});
    }
    if (!follows) return true;
    MakeJointsExact(chain, changes);
    if (!options_.cleanUp || chain.elements.size() < 2) return true;
    const double area = std::fabs(SignedArea(chain.elements));
    if (!(area > kLeastWidth * LengthOf(chain.elements))) return true;
    CleanUpChain(chain, AreOfOneKind(chain.origins), changes, refused_);
    return true;
  }

  void CopyChain(const Network& network, HealedChain& chain) const {
    auto speck = network.specks.begin();
    for (const std::size_t element : network.elements) {
      if (speck != network.specks.end() && *speck == element) {
        ++speck;
        continue;
      }
      chain.elements.push_back(work_.elements[element].element->Clone());
      chain.origins.push_back(origins_[element]);
    }
  }

  bool AreOfOneKind(const std::vector<std::size_t>& origins) const {
    const auto entity = [&](std::size_t origin) -> const DrawnEntity* {
      const std::size_t index = source_.elements[origin].entity;
      return index < source_.entities.size() ? &source_.entities[index] : nullptr;
    };
    const DrawnEntity* const first = entity(origins.front());
    return std::all_of(origins.begin(), origins.end(), [&](std::size_t origin) {
      const DrawnEntity* const other = entity(origin);
      if (first == nullptr || other == nullptr) return first == other;
      return std::tie(first->layer, first->colour, first->linetype) ==
             std::tie(other->layer, other->colour, other->linetype);
    });
  }

  const Drawing& source_;
  const HealOptions& options_;
  double gap_;
  Drawing work_;
  std::vector<std::size_t> origins_;  // Of the elements of work_, in those of source_.
  std::vector<std::size_t> nodes_;    // Of the ends of work_, empty until they are asked for.
  std::vector<Change> changes_;
  std::vector<std::string> refused_;  // What the last round found.
};

DrawingFigures FiguresBefore(const Drawing& drawing) {
  const std::vector<Network> networks = FindNetworksOnly(drawing);
  const auto contours = BuildContours(drawing, networks);
  NestContours(contours);
  return FiguresOf(drawing, networks, contours);
}

}  // namespace

HealedDrawing HealDrawing(const Drawing& drawing, const HealOptions& options) {
  HealedDrawing healed;
  healed.before = FiguresBefore(drawing);
  Healer healer(drawing, options);
  healer.Run();
  healer.HandOver(healed);
  healed.networks = FindNetworks(healed.drawing);
  healed.contours = BuildContours(healed.drawing, healed.networks);
  healed.crossings = NestContours(healed.contours);
  healed.after = FiguresOf(healed.drawing, healed.networks, healed.contours);
  healed.stillOpen =
      PairLooseEnds(healed.drawing, healed.networks, std::numeric_limits<double>::infinity());
  healed.overlapsLeft = FindOverlaps(healed.drawing);
  AddOpenNotes(healed, GapOf(options));
  AddOverlapNotes(healed);
  AddNotUsedNotes(drawing, healed.notes);
  return healed;
}

}  // namespace drawing
