// Lines and arcs in space that are drawn twice: what counts as a duplicate, and how duplicates
// leave a list. The plain form asks all pairs, the indexed one finds partners by place; which
// objects survive and in which order the others are destroyed is the same.
#pragma once

#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/EndPointIndex.h"
#include "elements/HealingTwins.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace ktrcl_internal {

/// Largest difference between the components of two unit normals that count as one.
inline constexpr double kNormalTolerance = 0.0001;

/// Whether two lines or two arcs have the same ends, in the same or in swapped order.
template <typename Segment>
bool HaveSameEnds(Segment& a, Segment& b) {
  return (Meet(a.GetStartPoint(), b.GetStartPoint()) && Meet(a.GetEndPoint(), b.GetEndPoint())) ||
         (Meet(a.GetStartPoint(), b.GetEndPoint()) && Meet(a.GetEndPoint(), b.GetStartPoint()));
}

/// The ends of arcs may be swapped, their normals may not be opposite: swapped arcs with one normal
/// are the two parts of a circle, yet the later one goes, and an arc drawn both ways stays twice.
inline bool AreDuplicates(GX3DElement* earlier, GX3DElement* later) {
  if (auto* const line = AsLine<Spatial>(earlier)) {
    auto* const other = AsLine<Spatial>(later);
    return other != nullptr && HaveSameEnds(*line, *other);
  }
  auto* const arc = AsArc<Spatial>(earlier);
  if (arc == nullptr) return false;
  auto* const other = AsArc<Spatial>(later);
  return other != nullptr && Meet(arc->Center, other->Center) && HaveSameEnds(*arc, *other) &&
         arc->GetNormal().IsAlmostEq(other->GetNormal(), kNormalTolerance);
}

inline void RemoveDuplicatesPlain(GX3DElmList& list) {
  for (std::size_t i = 0; i < list.size(); ++i) {
    for (auto it = list.begin() + static_cast<std::ptrdiff_t>(i) + 1; it != list.end();) {
      if (AreDuplicates(list[i], *it)) {
        delete *it;
        it = list.erase(it);
      } else {
        ++it;
      }
    }
  }
}

/// All memory is taken before the first element is destroyed, so that a list never refers to
/// destroyed elements should memory run out.
class DuplicateSearch {
 public:
  explicit DuplicateSearch(const GX3DElmList& list) : list_(list), index_(list.size()) {
    partners_.reserve(2 * list.size());
    for (std::size_t i = list.size(); i-- > 0;) {
      if (!IsSegment<Spatial>(list[i])) continue;
      index_.Add(i, Spatial::Place(list[i]->GetStartPoint()));
      index_.Add(i, Spatial::Place(list[i]->GetEndPoint()));
    }
  }

  bool IsDropped(std::size_t position) const { return index_.IsDropped(position); }
  void Drop(std::size_t position) { index_.Drop(position); }

  /// The positions of what duplicates the element at `position`, ascending, among those that have
  /// not dropped out.
  const std::vector<std::size_t>& Find(std::size_t position) {
    partners_.clear();
    GX3DElement* const element = list_[position];
    if (!IsSegment<Spatial>(element)) return partners_;
    // A duplicate has an end at either end of the element. The less crowded one is searched, so
    // that many elements from one hub do not all look at one another.
    const auto start = Spatial::Place(element->GetStartPoint());
    const auto end = Spatial::Place(element->GetEndPoint());
    index_.AppendAll(index_.CrowdAt(end) < index_.CrowdAt(start) ? end : start, partners_);
    const auto isOther = [&](std::size_t other) { return !AreDuplicates(element, list_[other]); };
    partners_.erase(std::remove_if(partners_.begin(), partners_.end(), isOther), partners_.end());
    std::sort(partners_.begin(), partners_.end());
    partners_.erase(std::unique(partners_.begin(), partners_.end()), partners_.end());
    return partners_;
  }

 private:
  const GX3DElmList& list_;
  EndPointIndex<3> index_;
  std::vector<std::size_t> partners_;
};

inline void RemoveDuplicatesIndexed(GX3DElmList& list) {
  DuplicateSearch search(list);
  std::vector<GX3DElement*> kept;
  kept.reserve(list.size());
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (search.IsDropped(i)) continue;
    kept.push_back(list[i]);
    search.Drop(i);  // No longer a later element to anyone.
    for (const std::size_t duplicate : search.Find(i)) {
      search.Drop(duplicate);
      delete list[duplicate];
    }
  }
  list.erase(std::copy(kept.begin(), kept.end(), list.begin()), list.end());
}

}  // namespace ktrcl_internal
