// Crossings of lists, every element against every other: the measure of the indexed form, which
// gives the same hits in the same order.
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "contour/ElementPairs.h"
#include "elements/ElementSequences.h"
#include "foundation/Tolerance.h"

#include <cstddef>
#include <memory>

namespace ktrcl_internal {

/// Appends a new point, which the list owns.
inline void AppendHit(GX2DPointList& points, const GX2DPoint& hit) {
  PushOwned(points, std::make_unique<GX2DPoint>(hit));
}

/// Hands the hits of one element with a row of others to `take` until it answers false.
template <typename Iterator, typename Take>
bool TakeHitsPlain(const GX2DElement* element, Iterator first, Iterator last, Take& take) {
  const CrossingKind kind = KindByCast(element);
  if (!kind.line && !kind.arc) return true;
  for (; first != last; ++first) {
    if (!TakeHits(kind, KindByCast(*first), IsAnyWanted, take)) return false;
  }
  return true;
}

template <typename Take>
bool TakeHitsPlain(const GX2DElmList& list1, const GX2DElmList& list2, Take& take) {
  for (const GX2DElement* const element : list1) {
    if (!TakeHitsPlain(element, list2.begin(), list2.end(), take)) return false;
  }
  return true;
}

inline void GetIntersectionsPlain(const GX2DElmList& list1, const GX2DElmList& list2,
                                  GX2DPointList& points) {
  const auto append = [&points](const GX2DPoint& hit) {
    AppendHit(points, hit);
    return true;
  };
  TakeHitsPlain(list1, list2, append);
}

inline bool IntersectPlain(const GX2DElmList& list1, const GX2DElmList& list2) {
  const auto stop = [](const GX2DPoint&) { return false; };
  return !TakeHitsPlain(list1, list2, stop);
}

/// Crosses each element with those behind it and takes the points at its own ends out of all that
/// was found so far. Returns: whether anything was left at the end of a pass.
inline bool HasSelfIntersectionPlain(GX2DElmList& list, GX2DPointList& points) {
  const auto append = [&points](const GX2DPoint& hit) {
    AppendHit(points, hit);
    return true;
  };
  bool hasAny = false;
  for (std::size_t i = 0; i + 1 < list.size(); ++i) {
    TakeHitsPlain(list[i], list.begin() + static_cast<std::ptrdiff_t>(i) + 1, list.end(), append);
    if (list[i]) {
      points.RemovePointWithValue(list[i]->GetStartPoint(), kLengthTolerance);
      points.RemovePointWithValue(list[i]->GetEndPoint(), kLengthTolerance);
    }
    hasAny = hasAny || !points.empty();
  }
  return hasAny;
}

}  // namespace ktrcl_internal
