#include "drawing/HealingWords.h"

#include "drawing/NumberText.h"

#include <map>
#include <utility>

namespace drawing {

namespace {

constexpr std::size_t kMostNamed = 4;

// The elements in words; of very many the first and how many more.
std::string ElementsText(const Drawing& drawing, const std::vector<std::size_t>& elements,
                         std::size_t first) {
  std::string text;
  const std::size_t count = elements.size() > first ? elements.size() - first : 0;
  const std::size_t named = count > kMostNamed ? kMostNamed - 1 : count;
  for (std::size_t i = 0; i < named; ++i) {
    if (i > 0) text += i + 1 == count ? " and " : "; ";
    text += EntityText(drawing, elements[first + i]);
  }
  if (named < count) text += " and " + std::to_string(count - named) + " more";
  return text;
}

std::string InOrderText(const ChainChange& change) {
  std::string text = "contour at " + PlaceText(change.place) +
                     " put in order: " + CountText(change.origins.size(), "element");
  if (change.count > 0) text += ", " + std::to_string(change.count) + " turned round";
  return text;
}

std::string SnappedText(const Drawing& drawing, const ChainChange& change) {
  return CountText(change.count, "joint") + " of the contour at " + PlaceText(change.place) +
         " made exact, apart by at most " + DistanceText(change.distance) + ": " +
         ElementsText(drawing, change.origins, 0) +
         (change.straightened > 0
              ? "; " + CountText(change.straightened, "tiny arc") + " drawn straight"
              : "");
}

// The other end of a pair, by twice its element, one more for its end.
struct Partner {
  const LooseEnd* end = nullptr;
  double distance = 0.0;
};

using Partners = std::vector<Partner>;

std::size_t NumberOf(const LooseEnd& end) { return 2 * end.element + (end.atStart ? 0 : 1); }

Partners PartnersOf(const HealedDrawing& healed) {
  Partners partners(2 * healed.drawing.elements.size());
  for (const LooseEndPair& pair : healed.stillOpen) {
    partners[NumberOf(pair.first)] = {&pair.second, pair.distance};
    partners[NumberOf(pair.second)] = {&pair.first, pair.distance};
  }
  return partners;
}

std::string LooseEndText(const HealedDrawing& healed, const LooseEnd& end, const Partners& partners,
                         double gap) {
  std::string text =
      "loose end at " + PlaceText(end.point) + " of " + EntityText(healed.drawing, end.element);
  const auto& [other, distance] = partners[NumberOf(end)];
  if (other == nullptr) return text + ", without a partner";
  text += ", " + DistanceText(distance) + " from " + PlaceText(other->point) + " of " +
          EntityText(healed.drawing, other->element);
  if (distance <= gap) return text + ": joining would spoil what is there";
  return text + ": would close with --gap " + RoundedUp(distance);
}

std::string NetworkText(const HealedDrawing& healed, const Network& network) {
  std::string text = std::string(NetworkKindName(network.kind)) + ": " +
                     CountText(network.elements.size(), "element") + " from " +
                     EntityText(healed.drawing, network.elements.front());
  if (!network.junctions.empty()) {
    std::vector<GX2DPoint> places;
    for (const Junction& junction : network.junctions) places.push_back(junction.point);
    text += places.size() == 1 ? ", junction at " : ", junctions at ";
    text += PlacesText(places);
  }
  return text;
}

void AddCounts(const std::map<std::string, int>& counts, const std::string& what,
               std::vector<std::string>& notes) {
  for (const auto& [name, count] : counts) {
    std::string note = std::to_string(count);
    note += " ";
    note += name;
    note += what;
    notes.push_back(std::move(note));
  }
}

}  // namespace

std::string DistanceText(double distance) {
  constexpr double kSmall = 0.001;
  const bool small = distance > 0.0 && distance < kSmall;
  return (small ? FixedNumber(distance, 6) : ShortNumber(distance)) + " mm";
}

std::string EntityText(const DrawnEntity& entity) {
  std::string text = entity.type.empty() ? "element" : entity.type;
  if (!entity.handle.empty()) text += " " + entity.handle;
  if (!entity.layer.empty()) text += " on layer " + entity.layer;
  if (entity.line > 0) text += ", line " + std::to_string(entity.line);
  if (!entity.block.empty()) {
    text += " (block " + entity.block;
    if (entity.insertLine > 0) text += ", inserted in line " + std::to_string(entity.insertLine);
    text += ")";
  }
  return text;
}

std::string EntityText(const Drawing& drawing, std::size_t element) {
  if (element < drawing.elements.size()) {
    const std::size_t entity = drawing.elements[element].entity;
    if (entity < drawing.entities.size()) return EntityText(drawing.entities[entity]);
  }
  return "element " + std::to_string(element + 1);
}

const char* ChangeKindName(ChangeKind kind) {
  switch (kind) {
    case ChangeKind::kZeroLengthDropped:
      return "zero length dropped";
    case ChangeKind::kDuplicateRemoved:
      return "duplicate removed";
    case ChangeKind::kContainedRemoved:
      return "contained removed";
    case ChangeKind::kEndsJoined:
      return "ends joined";
    case ChangeKind::kEndsSnapped:
      return "ends made exact";
    case ChangeKind::kPutInOrder:
      return "put in order";
    case ChangeKind::kPointRemoved:
      return "point removed";
    case ChangeKind::kFoldRemoved:
      return "fold removed";
    case ChangeKind::kLoopRemoved:
      return "loop removed";
    case ChangeKind::kPiecesMerged:
      return "pieces merged";
    case ChangeKind::kBecameCircle:
      break;
  }
  return "became a circle";
}

std::string RemovedText(const Drawing& drawing, const Overlap& overlap) {
  const bool duplicate = overlap.kind == OverlapKind::kDuplicate;
  return EntityText(drawing, overlap.other) + (duplicate ? " lies on " : " lies within ") +
         EntityText(drawing, overlap.keeper) + ", for " + DistanceText(overlap.length) +
         "; removed";
}

std::string ChainChangeText(const Drawing& drawing, const ChainChange& change) {
  switch (change.kind) {
    case ChangeKind::kPutInOrder:
      return InOrderText(change);
    case ChangeKind::kEndsSnapped:
      return SnappedText(drawing, change);
    case ChangeKind::kPointRemoved:
      return ElementsText(drawing, change.origins, 0) + ": too short for an element, at " +
             PlaceText(change.place) + "; left out";
    case ChangeKind::kLoopRemoved:
      return ElementsText(drawing, change.origins, 0) + ": a small loop at " +
             PlaceText(change.place) + "; left out";
    case ChangeKind::kFoldRemoved:
      return ElementsText(drawing, change.origins, 1) + ": ran back for " +
             DistanceText(change.distance) + " in a fold at " + PlaceText(change.place) +
             "; drawn straight in " + EntityText(drawing, change.origins.front());
    default:
      return ElementsText(drawing, change.origins, 1) + " merged into " +
             EntityText(drawing, change.origins.front()) + " at " + PlaceText(change.place);
  }
}

void AddOpenNotes(HealedDrawing& healed, double gap) {
  const Partners partners = PartnersOf(healed);
  for (const Network& network : healed.networks) {
    if (network.kind == NetworkKind::kClosed) continue;
    healed.notes.push_back(NetworkText(healed, network));
    for (const LooseEnd& end : network.looseEnds) {
      healed.notes.push_back(LooseEndText(healed, end, partners, gap));
    }
  }
  for (const auto& contour : healed.contours) {
    const Network& network = healed.networks[contour->network];
    if (contour->usable || network.kind != NetworkKind::kClosed) continue;
    healed.notes.push_back("no contour: " + CountText(network.elements.size(), "element") +
                           " from " + EntityText(healed.drawing, network.elements.front()) + ", " +
                           contour->obstacle);
  }
}

void AddOverlapNotes(HealedDrawing& healed) {
  for (const Overlap& overlap : healed.overlapsLeft) {
    const bool partial = overlap.kind == OverlapKind::kPartial;
    healed.notes.push_back(std::string(OverlapKindName(overlap.kind)) +
                           ", left: " + EntityText(healed.drawing, overlap.other) +
                           (partial ? " runs along " : " lies on ") +
                           EntityText(healed.drawing, overlap.keeper) + " for " +
                           DistanceText(overlap.length) + " at " + PlaceText(overlap.place));
  }
}

// Single curves without length are told one by one, with their places; polylines go on with the
// sides that have some.
std::map<std::string, int> RefusedForAnotherReason(const Drawing& drawing) {
  std::map<std::string, int> refused = drawing.refusedByType;
  for (const ZeroLengthEntity& zero : drawing.zeroLength) {
    const auto count = refused.find(zero.entity.type);
    if (count == refused.end() || zero.entity.type.find("POLYLINE") != std::string::npos) continue;
    if (--count->second == 0) refused.erase(count);
  }
  return refused;
}

void AddNotUsedNotes(const Drawing& drawing, std::vector<std::string>& notes) {
  AddCounts(drawing.unusedByType, " not used: no contour is made of it", notes);
  AddCounts(RefusedForAnotherReason(drawing), " refused: it could not be read", notes);
  AddCounts(drawing.paperSpaceByType, " in paper space: not taken over", notes);
  for (const auto& [layer, count] : drawing.hiddenByLayer) {
    notes.push_back(std::to_string(count) + (count == 1 ? " entity" : " entities") + " on layer " +
                    layer + ", which is off or frozen: not taken over");
  }
}

}  // namespace drawing
