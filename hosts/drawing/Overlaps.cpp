// Equal curves are found by hashing first, so that many copies of one element cost no more than as
// many elements. What is left is held against longer elements whose boxes it meets. The boxes of
// lines are taken in a frame that is turned with them, one for each degree, where they are thin:
// however many parallel lines there are, few of their boxes meet. Arcs are told apart by their
// circles as well.
#include "drawing/Overlaps.h"

#include "drawing/ArcIndex.h"
#include "drawing/Boxes.h"
#include "drawing/CurveMeasures.h"
#include "drawing/DuplicateIndex.h"
#include "drawing/ElementOverlap.h"
#include "drawing/Networks.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>
#include <tuple>
#include <utility>

namespace drawing {

namespace {

constexpr double kPi = 3.141592653589793;
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

bool IsFinite(const GX2DPoint& p) { return std::isfinite(p.X) && std::isfinite(p.Y); }

// Lines and arcs that are long enough to overlap anything.
bool CanOverlap(GX2DElement* element) {
  if (element == nullptr || !IsFinite(element->GetStartPoint()) ||
      !IsFinite(element->GetEndPoint())) {
    return false;
  }
  const auto* const arc = dynamic_cast<const GX2DArc*>(element);
  if (arc == nullptr && dynamic_cast<const GX2DLine*>(element) == nullptr) return false;
  if (arc != nullptr && (!IsFinite(arc->Center) || !IsFinite(arc->Mid))) return false;
  const double length = ElementLength(*element);
  return std::isfinite(length) && length > kOverlapTolerance;
}

// Boxes of elements that may be found by one another.
class ElementBoxes {
 public:
  void Add(std::size_t rank, const Box& box) {
    ranks_.push_back(rank);
    boxes_.push_back(box);
  }

  void Build() {
    if (!ranks_.empty()) tree_ = std::make_unique<BoxTree>(std::move(boxes_));
  }

  // Appends the ranks below `rank` of the elements near a box.
  void Find(const Box& box, std::size_t rank, std::vector<std::size_t>& found) {
    if (tree_ == nullptr) return;
    tree_->FindMeeting(Grown(box, kOverlapTolerance), meeting_);
    for (const std::size_t i : meeting_) {
      if (ranks_[i] < rank) found.push_back(ranks_[i]);
    }
  }

 private:
  std::vector<std::size_t> ranks_;
  std::vector<Box> boxes_;
  std::unique_ptr<BoxTree> tree_;
  std::vector<std::size_t> meeting_;
};

// Lines by direction, each in the frame of its own.
class LineBoxes {
 public:
  LineBoxes() : frames_(kFrames) {}

  void Add(std::size_t rank, const GX2DLine& line) {
    const int frame = FrameOf(AngleOf(line));
    frames_[Wrapped(frame)].Add(rank, BoxIn(frame, line));
  }

  void Build() {
    for (ElementBoxes& frame : frames_) frame.Build();
  }

  // Longer lines to which the ends of this one could be near.
  void Find(const GX2DLine& line, std::size_t rank, std::vector<std::size_t>& found) {
    const double slope = 2.0 * kOverlapTolerance / line.Len();
    const double spread = slope < 1.0 ? std::asin(slope) : 0.5 * kPi;
    const double angle = AngleOf(line);
    const int first = FrameOf(angle - spread);
    const int last = std::min(FrameOf(angle + spread), first + static_cast<int>(kFrames) - 1);
    for (int frame = first; frame <= last; ++frame) {
      frames_[Wrapped(frame)].Find(BoxIn(frame, line), rank, found);
    }
  }

 private:
  static constexpr std::size_t kFrames = 180;

  static double AngleOf(const GX2DLine& line) {
    return std::atan2(line.End.Y - line.Start.Y, line.End.X - line.Start.X);
  }

  static int FrameOf(double angle) {
    return static_cast<int>(std::lround(angle / kPi * static_cast<double>(kFrames)));
  }

  static std::size_t Wrapped(int frame) {
    const int count = static_cast<int>(kFrames);
    return static_cast<std::size_t>((frame % count + count) % count);
  }

  static Box BoxIn(int frame, const GX2DLine& line) {
    const double angle = kPi * static_cast<double>(Wrapped(frame)) / static_cast<double>(kFrames);
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    const auto x = [&](const GX2DPoint& p) { return cosine * p.X + sine * p.Y; };
    const auto y = [&](const GX2DPoint& p) { return cosine * p.Y - sine * p.X; };
    const auto [minX, maxX] = std::minmax({x(line.Start), x(line.End)});
    const auto [minY, maxY] = std::minmax({y(line.Start), y(line.End)});
    return {minX, minY, maxX, maxY};
  }

  std::vector<ElementBoxes> frames_;
};

class OverlapSearch {
 public:
  explicit OverlapSearch(const Drawing& drawing) : drawing_(drawing) {}

  std::vector<Overlap> Run() {
    FindDuplicates();
    SortByLength();
    BuildBoxes();
    for (std::size_t rank = 0; rank < order_.size(); ++rank) Place(rank);
    std::sort(overlaps_.begin(), overlaps_.end(), [](const Overlap& a, const Overlap& b) {
      return std::tie(a.other, a.keeper) < std::tie(b.other, b.keeper);
    });
    return std::move(overlaps_);
  }

 private:
  GX2DElement& At(std::size_t index) const { return *drawing_.elements[index].element; }

  void Tell(OverlapKind kind, std::size_t keeper, std::size_t other, double length,
            const GX2DPoint& place) {
    Overlap overlap;
    overlap.kind = kind;
    overlap.keeper = keeper;
    overlap.other = other;
    overlap.length = length;
    overlap.place = place;
    overlaps_.push_back(overlap);
  }

  void FindDuplicates() {
    DuplicateIndex index(kOverlapTolerance);
    for (std::size_t i = 0; i < drawing_.elements.size(); ++i) {
      if (!CanOverlap(drawing_.elements[i].element.get())) continue;
      const std::size_t first = index.FindOrAdd(At(i), i);
      if (first == i) {
        order_.push_back(i);
      } else {
        Tell(OverlapKind::kDuplicate, first, i, ElementLength(At(i)), MiddleOf(At(i)));
      }
    }
  }

  // What can hold an element stands in front of it.
  void SortByLength() {
    std::vector<double> lengths(drawing_.elements.size(), 0.0);
    for (const std::size_t i : order_) lengths[i] = ElementLength(At(i));
    std::stable_sort(order_.begin(), order_.end(),
                     [&](std::size_t a, std::size_t b) { return lengths[a] > lengths[b]; });
    isHeld_.resize(order_.size(), false);
  }

  void BuildBoxes() {
    for (std::size_t rank = 0; rank < order_.size(); ++rank) {
      GX2DElement& element = At(order_[rank]);
      if (const auto* const line = dynamic_cast<const GX2DLine*>(&element)) {
        lines_.Add(rank, *line);
      } else if (auto* const arc = dynamic_cast<GX2DArc*>(&element)) {
        arcs_.Add(rank, *arc);
      }
    }
    lines_.Build();
    arcs_.Build();
  }

  // An element that is held by another is told once and takes part in nothing else. What is told
  // of it goes by the longest that holds it, so that this one is not held itself.
  void Place(std::size_t rank) {
    GX2DElement& element = At(order_[rank]);
    near_.clear();
    if (const auto* const line = dynamic_cast<const GX2DLine*>(&element)) {
      lines_.Find(*line, rank, near_);
    } else if (auto* const arc = dynamic_cast<GX2DArc*>(&element)) {
      arcs_.Find(*arc, rank, near_);
    }
    std::sort(near_.begin(), near_.end());
    std::vector<std::pair<std::size_t, SharedStretch>> partial;
    for (const std::size_t longer : near_) {
      SharedStretch stretch;
      if (isHeld_[longer] ||
          !FindSharedStretch(At(order_[longer]), element, kOverlapTolerance, stretch)) {
        continue;
      }
      if (stretch.holdsAll) {
        isHeld_[rank] = true;
        Tell(OverlapKind::kContained, order_[longer], order_[rank], stretch.length, stretch.place);
        return;
      }
      if (partial.size() < kMostPartialOverlaps) partial.emplace_back(longer, stretch);
    }
    for (const auto& [longer, stretch] : partial) {
      const auto [first, second] = std::minmax({order_[longer], order_[rank]});
      Tell(OverlapKind::kPartial, first, second, stretch.length, stretch.place);
    }
  }

  const Drawing& drawing_;
  std::vector<Overlap> overlaps_;
  std::vector<std::size_t> order_;  // Element by rank.
  std::vector<bool> isHeld_;        // By rank.
  LineBoxes lines_;
  ArcIndex arcs_{kOverlapTolerance};
  std::vector<std::size_t> near_;
};

// Takes back, from what is to be removed, all that would leave an end alone.
class Removal {
 public:
  Removal(const Drawing& drawing, const std::vector<Overlap>& overlaps)
      : nodeOfEnd_(FindNodes(drawing)),
        keeperOf_(drawing.elements.size(), kNone),
        endsAtNode_(nodeOfEnd_.size()),
        isAsked_(nodeOfEnd_.size(), false),
        wasExchanged_(drawing.elements.size(), false) {
    for (std::size_t end = 0; end < nodeOfEnd_.size(); ++end) {
      if (nodeOfEnd_[end] != kNoNode) endsAtNode_[nodeOfEnd_[end]].push_back(end);
    }
    for (const Overlap& overlap : overlaps) {
      if (IsToGo(overlap)) keeperOf_[overlap.other] = overlap.keeper;
    }
  }

  std::vector<Overlap> Run(const std::vector<Overlap>& overlaps) {
    for (const Overlap& overlap : overlaps) {
      if (IsToGo(overlap)) Ask(overlap.other);
    }
    Settle(false);
    ExchangeCopies(overlaps);
    Settle(true);
    std::vector<Overlap> removable;
    for (const Overlap& overlap : overlaps) {
      if (!IsToGo(overlap)) continue;
      Overlap told = overlap;
      if (wasExchanged_[overlap.keeper] && keeperOf_[overlap.keeper] == overlap.other) {
        std::swap(told.keeper, told.other);
      } else {
        told.keeper = keeperOf_[overlap.other];
      }
      if (told.keeper != kNone) removable.push_back(told);
    }
    std::sort(removable.begin(), removable.end(), [](const Overlap& p, const Overlap& q) {
      return std::tie(p.other, p.keeper) < std::tie(q.other, q.keeper);
    });
    return removable;
  }

 private:
  bool IsToGo(const Overlap& overlap) const {
    return overlap.kind != OverlapKind::kPartial && overlap.other < keeperOf_.size() &&
           overlap.keeper < keeperOf_.size();
  }

  void Ask(std::size_t element) {
    for (const std::size_t node : {nodeOfEnd_[2 * element], nodeOfEnd_[2 * element + 1]}) {
      if (node == kNoNode || isAsked_[node]) continue;
      isAsked_[node] = true;
      asked_.push_back(node);
    }
  }

  // A copy that others hang on stays; then the first one may go for it, where nothing hangs on
  // that, and the other copies for this one.
  void ExchangeCopies(const std::vector<Overlap>& overlaps) {
    for (const Overlap& overlap : overlaps) {
      if (overlap.kind != OverlapKind::kDuplicate || !IsToGo(overlap)) continue;
      const std::size_t first = overlap.keeper;
      const std::size_t copy = overlap.other;
      if (keeperOf_[copy] != kNone) continue;
      const bool firstStays = keeperOf_[first] == kNone;
      if (!firstStays && !wasExchanged_[first]) continue;
      const std::size_t goes = firstStays ? first : copy;
      keeperOf_[goes] = firstStays ? copy : keeperOf_[first];
      wasExchanged_[goes] = true;
      Ask(goes);
    }
  }

  // Takes back until no end is left alone; of what was found to be removable before copies were
  // exchanged, nothing any more.
  void Settle(bool exchangedOnly) {
    while (!asked_.empty()) {
      const std::size_t node = asked_.back();
      asked_.pop_back();
      isAsked_[node] = false;
      if (LeavesOneAlone(node)) TakeBack(node, exchangedOnly);
    }
  }

  // A duplicate's keeper may be held by another itself, and either may have gone for a copy; three
  // steps lead to what stays.
  std::size_t KeeperOf(std::size_t element) const {
    std::size_t keeper = element;
    for (int step = 0; step < 3 && keeperOf_[keeper] != kNone; ++step) keeper = keeperOf_[keeper];
    return keeper;
  }

  // One end stays where others go, and it is not that of an element they lay on.
  bool LeavesOneAlone(std::size_t node) const {
    std::size_t stays = kNone;
    std::size_t staying = 0;
    for (const std::size_t end : endsAtNode_[node]) {
      if (keeperOf_[end / 2] != kNone) continue;
      ++staying;
      stays = end / 2;
    }
    if (staying != 1) return false;
    return std::any_of(endsAtNode_[node].begin(), endsAtNode_[node].end(), [&](std::size_t end) {
      return keeperOf_[end / 2] != kNone && KeeperOf(end / 2) != stays;
    });
  }

  void TakeBack(std::size_t node, bool exchangedOnly) {
    for (const std::size_t end : endsAtNode_[node]) {
      const std::size_t element = end / 2;
      if (keeperOf_[element] == kNone || (exchangedOnly && !wasExchanged_[element])) continue;
      keeperOf_[element] = kNone;
      wasExchanged_[element] = false;
      Ask(element);
    }
  }

  std::vector<std::size_t> nodeOfEnd_;
  std::vector<std::size_t> keeperOf_;  // By element; none for what stays.
  std::vector<std::vector<std::size_t>> endsAtNode_;
  std::vector<std::size_t> asked_;  // Nodes to be looked at.
  std::vector<bool> isAsked_;
  std::vector<bool> wasExchanged_;  // By element; goes for a later copy.
};

}  // namespace

const char* OverlapKindName(OverlapKind kind) {
  switch (kind) {
    case OverlapKind::kDuplicate:
      return "duplicate";
    case OverlapKind::kContained:
      return "contained";
    case OverlapKind::kPartial:
      break;
  }
  return "partial overlap";
}

std::vector<Overlap> FindOverlaps(const Drawing& drawing) { return OverlapSearch(drawing).Run(); }

std::vector<Overlap> RemovableOverlaps(const Drawing& drawing,
                                       const std::vector<Overlap>& overlaps) {
  return Removal(drawing, overlaps).Run(overlaps);
}

}  // namespace drawing
