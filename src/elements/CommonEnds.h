// Which ends two elements share. Four operations ask the same four questions; they differ in the
// end of the first element that is asked first and in whose point is the answer.
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include "foundation/Tolerance.h"

namespace ktrcl_internal {

/// Both ends of an element, as values: a rectangle, a foreign kind and a null entry have the
/// origin.
template <class Point>
struct EndPair {
  Point start;
  Point end;
};

inline EndPair<GX2DPoint> EndsOf(GX2DElement* element) {
  if (dynamic_cast<GX2DLine*>(element) || dynamic_cast<GX2DArc*>(element) ||
      dynamic_cast<GX2DPoint*>(element)) {
    return {element->GetStartPoint(), element->GetEndPoint()};
  }
  return {};
}

inline EndPair<GX3DPoint> EndsOf(GX3DElement* element) {
  if (dynamic_cast<GX3DLine*>(element) || dynamic_cast<GX3DArc*>(element) ||
      dynamic_cast<GX3DPoint*>(element)) {
    return {element->GetStartPoint(), element->GetEndPoint()};
  }
  return {};
}

/// The two ends that coincide, one of either element; null where none do.
template <class Point>
struct EndMatch {
  const Point* own;
  const Point* other;
};

/// First pair of ends that coincide: `first` is held against both ends of the other element, then
/// `second`. Which end the caller hands in as `first` decides where two elements share both ends.
template <class Point>
EndMatch<Point> MatchEnds(const Point& first, const Point& second, const Point& otherStart,
                          const Point& otherEnd) {
  if (first.IsAlmostEq(otherStart, kLengthTolerance)) return {&first, &otherStart};
  if (first.IsAlmostEq(otherEnd, kLengthTolerance)) return {&first, &otherEnd};
  if (second.IsAlmostEq(otherStart, kLengthTolerance)) return {&second, &otherStart};
  if (second.IsAlmostEq(otherEnd, kLengthTolerance)) return {&second, &otherEnd};
  return {nullptr, nullptr};
}

/// `HasEqualPoint` of lines and arcs in space, in all pairings: the answer is the other element's.
template <class Own, class Other>
bool HasEqualEnd(const Own& own, const Other& other, GX3DPoint& out) {
  const EndMatch<GX3DPoint> match = MatchEnds(own.Start, own.End, other.Start, other.End);
  if (!match.other) return false;
  out.SetPoint(*match.other);
  return true;
}

}  // namespace ktrcl_internal
