#include "drawing/PreflightFindings.h"

#include "drawing/ContourCrossings.h"
#include "drawing/CurveMeasures.h"
#include "drawing/DrawingHealing.h"
#include "drawing/HealingWords.h"
#include "drawing/NumberText.h"
#include "drawing/SelfIntersections.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>

namespace drawing {

namespace {

// Of one network; behind that it is a scribble and no contour.
constexpr std::size_t kMostSelfIntersections = 1000;

// Entities that a line names one by one.
constexpr std::size_t kNamedEntities = 6;

std::size_t EntityOf(const Drawing& drawing, std::size_t element) {
  return drawing.elements[element].entity;
}

// Nothing where each of the two is the nearest of the other.
std::string NearerText(double nearest, double gap) {
  constexpr double kRounding = 1.0e-9;
  if (!(nearest < gap - kRounding)) return "";
  return "; the nearest loose end, " + ShortNumber(nearest) + " mm away, is no match";
}

std::string ClosingText(double gap) {
  if (gap > kLargestGap) return "too far for --gap";
  return "closes with --gap " + RoundedUp(gap);
}

Finding GapFinding(const Drawing& drawing, const LooseEndPair& pair) {
  const LooseEnd& first = pair.first;
  const LooseEnd& second = pair.second;
  Finding finding;
  finding.kind = FindingKind::kLooseEnd;
  finding.places = {first.point, second.point};
  finding.elements = {first.element, second.element};
  finding.measure = pair.distance;
  finding.hasPartner = true;
  finding.nearest = std::min(first.distance, second.distance);
  finding.what = "loose end at " + PlaceText(first.point) + ": " +
                 EntityText(drawing, first.element) + "; the other side is " +
                 EntityText(drawing, second.element) + " at " + PlaceText(second.point) + ", " +
                 ShortNumber(pair.distance) + " mm away; " + ClosingText(pair.distance) +
                 NearerText(finding.nearest, pair.distance);
  return finding;
}

Finding LoneEndFinding(const Drawing& drawing, const LooseEnd& end) {
  Finding finding;
  finding.kind = FindingKind::kLooseEnd;
  finding.places = {end.point};
  finding.elements = {end.element};
  finding.what = "loose end at " + PlaceText(end.point) + ": " + EntityText(drawing, end.element) +
                 "; no other loose end goes with it";
  if (end.hasNearest) {
    finding.nearest = end.distance;
    finding.what += ", the nearest is at " + PlaceText(end.nearest) + ", " +
                    ShortNumber(end.distance) + " mm away";
  }
  return finding;
}

// "A; B; C", of very many the first ones and "and 3 more".
std::string EntitiesText(const Drawing& drawing, const std::vector<std::size_t>& elements) {
  std::string text;
  const std::size_t named = std::min(elements.size(), kNamedEntities);
  for (std::size_t i = 0; i < named; ++i) {
    text += (i == 0 ? "" : "; ") + EntityText(drawing, elements[i]);
  }
  if (elements.size() > named) text += "; and " + std::to_string(elements.size() - named) + " more";
  return text;
}

std::string PluralPlaces(const std::vector<GX2DPoint>& places) {
  return " at " + PlacesText(places);
}

FindingKind KindOf(OverlapKind kind) {
  switch (kind) {
    case OverlapKind::kDuplicate:
      return FindingKind::kDuplicate;
    case OverlapKind::kContained:
      return FindingKind::kContained;
    case OverlapKind::kPartial:
      break;
  }
  return FindingKind::kPartialOverlap;
}

std::string OverlapText(const Drawing& drawing, const Finding& finding) {
  const std::string keeper = EntityText(drawing, finding.elements[0]);
  const std::string other = EntityText(drawing, finding.elements[1]);
  const bool isOne =
      EntityOf(drawing, finding.elements[0]) == EntityOf(drawing, finding.elements[1]);
  const std::size_t count = finding.places.size();
  std::string extent = ShortNumber(finding.measure) + " mm around ";
  if (count > 1) {
    extent = CountText(count, "element") + ", " + ShortNumber(finding.measure) +
             " mm in all, the first around ";
  }
  extent += PlaceText(finding.places.front());
  if (isOne) return keeper + " lies on itself: " + extent;
  switch (finding.kind) {
    case FindingKind::kDuplicate:
      return other + " is drawn over " + keeper + ": " + extent;
    case FindingKind::kContained:
      return other + " lies within " + keeper + ": " + extent;
    default:
      return keeper + " and " + other + " overlap in part: " + extent;
  }
}

std::string LengthText(double length) {
  constexpr double kLeastTold = 0.0001;
  return length < kLeastTold ? "less than 0.0001 mm" : ShortNumber(length) + " mm";
}

std::string TinyText(const Drawing& drawing, const Finding& finding, double tiny) {
  const std::size_t count = finding.elements.size();
  const std::string entity = EntityText(drawing, finding.elements.front());
  const std::string place = PlaceText(finding.places.front());
  if (count == 1) return entity + " is " + LengthText(finding.measure) + " long, at " + place;
  return entity + ": " + CountText(count, "element") + " shorter than " + ShortNumber(tiny) +
         " mm, the shortest " + LengthText(finding.measure) + ", the first at " + place;
}

std::vector<std::size_t> WithoutSpecks(const Network& network) {
  std::vector<std::size_t> specks = network.specks;
  std::sort(specks.begin(), specks.end());
  std::vector<std::size_t> elements;
  std::set_difference(network.elements.begin(), network.elements.end(), specks.begin(),
                      specks.end(), std::back_inserter(elements));
  return elements;
}

std::set<std::size_t> ElementsOf(const std::vector<Overlap>& overlaps) {
  std::set<std::size_t> elements;
  for (const Overlap& overlap : overlaps) {
    elements.insert(overlap.keeper);
    elements.insert(overlap.other);
  }
  return elements;
}

// Pairs of loose ends by their elements.
class Gaps {
 public:
  explicit Gaps(const std::vector<LooseEndPair>& pairs) {
    for (const LooseEndPair& pair : pairs) {
      gaps_.emplace(std::make_pair(pair.first.element, pair.second.element), &pair);
    }
  }

  // Whether two elements meet there because they run past the corner where they should end. That is
  // told as the gap between their ends.
  bool IsOvershoot(std::size_t first, std::size_t second, const GX2DPoint& place) const {
    const auto [from, to] = gaps_.equal_range({std::min(first, second), std::max(first, second)});
    return std::any_of(from, to, [&](const auto& entry) {
      const LooseEndPair& pair = *entry.second;
      const double reach = pair.distance + kTouchTolerance;
      return Distance(place, pair.first.point) <= reach &&
             Distance(place, pair.second.point) <= reach;
    });
  }

 private:
  std::multimap<std::pair<std::size_t, std::size_t>, const LooseEndPair*> gaps_;
};

// Meetings of one entity with itself or another, within one network.
class MeetingCollector {
 public:
  explicit MeetingCollector(const Drawing& drawing) : drawing_(drawing) {}

  void Add(std::size_t first, std::size_t second, const GX2DPoint& place, double length) {
    const auto key = KeyOf(first, second);
    const auto [entry, isNew] = indices_.try_emplace(key, findings_.size());
    if (isNew) {
      findings_.emplace_back();
      findings_.back().kind = FindingKind::kSelfIntersection;
    }
    Finding& finding = findings_[entry->second];
    finding.places.push_back(place);
    finding.elements.push_back(first);
    finding.elements.push_back(second);
    finding.measure += length;
  }

  void AppendTo(std::vector<Finding>& findings) {
    for (Finding& finding : findings_) {
      finding.what = TextOf(finding);
      findings.push_back(std::move(finding));
    }
  }

 private:
  std::pair<std::size_t, std::size_t> KeyOf(std::size_t first, std::size_t second) const {
    const std::size_t a = EntityOf(drawing_, first);
    const std::size_t b = EntityOf(drawing_, second);
    return {std::min(a, b), std::max(a, b)};
  }

  std::string TextOf(const Finding& finding) const {
    const std::size_t first = finding.elements[0];
    const std::size_t second = finding.elements[1];
    const bool isOne = EntityOf(drawing_, first) == EntityOf(drawing_, second);
    const std::string places = PluralPlaces(finding.places);
    if (isOne) return EntityText(drawing_, first) + " meets itself" + places;
    return EntityText(drawing_, first) + " and " + EntityText(drawing_, second) + " meet" + places +
           " without a joint";
  }

  const Drawing& drawing_;
  std::vector<Finding> findings_;
  std::map<std::pair<std::size_t, std::size_t>, std::size_t> indices_;
};

// Of elements that hang together, where not every pair of them was looked at.
Finding ScribbleFinding(const Drawing& drawing, const std::vector<std::size_t>& elements) {
  Finding finding;
  finding.kind = FindingKind::kSelfIntersection;
  finding.elements = {elements.front()};
  finding.what = EntityText(drawing, elements.front()) + " and " +
                 CountText(elements.size() - 1, "element") +
                 " that hang together with it: too many lie upon and across one another, there may "
                 "be more places where they meet";
  return finding;
}

std::string ContourText(const Drawing& drawing, const Contour& contour) {
  return "the contour of " + EntityText(drawing, contour.origins.front());
}

// Whether all of a contour was told already, element by element.
bool IsTold(const Contour& contour, const std::set<std::size_t>& told) {
  return std::all_of(contour.origins.begin(), contour.origins.end(),
                     [&](std::size_t element) { return told.count(element) > 0; });
}

Finding NoAreaFinding(const Drawing& drawing, const Contour& contour) {
  Finding finding;
  finding.kind = FindingKind::kNoArea;
  finding.elements = contour.origins;
  if (!contour.elements.empty()) finding.places = {contour.elements.front()->GetStartPoint()};
  finding.what = EntityText(drawing, contour.origins.front()) + ": " + contour.obstacle;
  if (contour.origins.size() > 1) {
    finding.what += " (" + CountText(contour.origins.size(), "element") + ")";
  }
  return finding;
}

}  // namespace

void AddLooseEnds(const Drawing& drawing, const Sight& sight, std::vector<Finding>& findings) {
  std::set<std::pair<std::size_t, bool>> paired;
  for (const LooseEndPair& pair : sight.pairs) {
    findings.push_back(GapFinding(drawing, pair));
    for (const LooseEnd* end : {&pair.first, &pair.second}) {
      paired.emplace(end->element, end->atStart);
    }
  }
  for (const Network& network : sight.networks) {
    for (const LooseEnd& end : network.looseEnds) {
      if (paired.count({end.element, end.atStart}) > 0) continue;
      findings.push_back(LoneEndFinding(drawing, end));
    }
  }
}

void AddJunctions(const Drawing& drawing, const Sight& sight, std::vector<Finding>& findings) {
  for (const Network& network : sight.networks) {
    for (const Junction& junction : network.junctions) {
      Finding finding;
      finding.kind = FindingKind::kJunction;
      finding.places = {junction.point};
      finding.elements = junction.elements;
      finding.what = "junction at " + PlaceText(junction.point) + ", " +
                     std::to_string(junction.elements.size()) +
                     " ends meet: " + EntitiesText(drawing, junction.elements);
      findings.push_back(std::move(finding));
    }
  }
}

void AddOverlaps(const Drawing& drawing, const std::vector<Overlap>& overlaps,
                 std::vector<Finding>& findings) {
  std::map<std::tuple<FindingKind, std::size_t, std::size_t>, std::size_t> indices;
  std::vector<Finding> found;
  for (const Overlap& overlap : overlaps) {
    const FindingKind kind = KindOf(overlap.kind);
    const auto [entry, isNew] = indices.try_emplace(
        {kind, EntityOf(drawing, overlap.keeper), EntityOf(drawing, overlap.other)}, found.size());
    if (isNew) {
      found.emplace_back();
      found.back().kind = kind;
    }
    Finding& finding = found[entry->second];
    finding.places.push_back(overlap.place);
    finding.elements.push_back(overlap.keeper);
    finding.elements.push_back(overlap.other);
    finding.measure += overlap.length;
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const Finding& a, const Finding& b) { return a.kind < b.kind; });
  for (Finding& finding : found) {
    finding.what = OverlapText(drawing, finding);
    findings.push_back(std::move(finding));
  }
}

void AddSmallOnes(const Drawing& drawing, const Sight& sight, double tiny,
                  std::vector<Finding>& findings) {
  for (std::size_t i = 0; i < drawing.zeroLength.size(); ++i) {
    Finding finding;
    finding.kind = FindingKind::kZeroLength;
    finding.places = {drawing.zeroLength[i].place};
    finding.zeroLength = {i};
    finding.what = EntityText(drawing.zeroLength[i].entity) + " has no length, at " +
                   PlaceText(drawing.zeroLength[i].place);
    findings.push_back(std::move(finding));
  }
  std::vector<bool> inSpeck(drawing.elements.size(), false);
  for (const Network& network : sight.networks) {
    if (network.kind != NetworkKind::kSpeck) continue;
    for (const std::size_t element : network.elements) inSpeck[element] = true;
  }
  std::map<std::size_t, Finding> byEntity;
  for (std::size_t i = 0; i < drawing.elements.size(); ++i) {
    GX2DElement* const element = drawing.elements[i].element.get();
    if (element == nullptr || inSpeck[i]) continue;
    const double length = ElementLength(*element);
    if (!(length < tiny)) continue;
    Finding& finding = byEntity[EntityOf(drawing, i)];
    finding.kind = FindingKind::kTiny;
    finding.measure = finding.elements.empty() ? length : std::min(finding.measure, length);
    finding.places.push_back(element->GetStartPoint());
    finding.elements.push_back(i);
  }
  for (auto& [entity, finding] : byEntity) {
    finding.what = TinyText(drawing, finding, tiny);
    findings.push_back(std::move(finding));
  }
}

void AddSelfIntersections(const Drawing& drawing, const Sight& sight,
                          const std::vector<Overlap>& overlaps, std::vector<Finding>& findings) {
  const std::set<std::size_t> overlapping = ElementsOf(overlaps);
  const Gaps gaps(sight.pairs);
  for (const Network& network : sight.networks) {
    if (network.kind == NetworkKind::kSpeck || network.elements.size() < 2) continue;
    const std::vector<std::size_t> indices = WithoutSpecks(network);
    BorrowedElements elements;
    for (const std::size_t i : indices) elements.Add(drawing.elements[i].element.get());
    MeetingCollector meetings(drawing);
    const auto meeting = FindSelfIntersections(elements.List(), kMostSelfIntersections);
    for (const SelfIntersection& place : meeting.found) {
      const std::size_t first = indices[place.first];
      const std::size_t second = indices[place.second];
      const bool isOverlap =
          place.length > 0.0 && overlapping.count(first) > 0 && overlapping.count(second) > 0;
      if (isOverlap || gaps.IsOvershoot(first, second, place.place)) continue;
      meetings.Add(first, second, place.place, place.length);
    }
    meetings.AppendTo(findings);
    if (!meeting.complete) findings.push_back(ScribbleFinding(drawing, indices));
  }
}

void AddContourFindings(const Drawing& drawing, const Sight& sight,
                        const std::vector<Overlap>& overlaps, std::vector<Finding>& findings) {
  for (const Crossing& crossing : sight.crossings) {
    const Contour& first = *sight.contours[crossing.first];
    const Contour& second = *sight.contours[crossing.second];
    Finding finding;
    finding.kind = FindingKind::kCrossing;
    finding.places = crossing.points;
    finding.elements = {first.origins.front(), second.origins.front()};
    finding.what = ContourText(drawing, first) + " and " + ContourText(drawing, second) + " cross" +
                   PluralPlaces(crossing.points);
    findings.push_back(std::move(finding));
  }
  const std::set<std::size_t> told = ElementsOf(overlaps);
  for (const auto& contour : sight.contours) {
    if (contour->coincidesWith == kNoContour || IsTold(*contour, told)) continue;
    const Contour& under = *sight.contours[contour->coincidesWith];
    Finding finding;
    finding.kind = FindingKind::kCoincident;
    finding.places = {contour->elements.front()->GetStartPoint()};
    finding.elements = {under.origins.front(), contour->origins.front()};
    finding.what = ContourText(drawing, *contour) + " lies all along on " +
                   ContourText(drawing, under) + PluralPlaces(finding.places);
    findings.push_back(std::move(finding));
  }
  for (const auto& contour : sight.contours) {
    const NetworkKind kind = sight.networks[contour->network].kind;
    if (contour->usable || kind == NetworkKind::kOpen || kind == NetworkKind::kBranching) continue;
    findings.push_back(NoAreaFinding(drawing, *contour));
  }
}

}  // namespace drawing
