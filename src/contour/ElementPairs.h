// The crossings of two elements that lie on both of them: what the operations on lists count as
// hits. All forms of those operations, plain and indexed, ask here.
#pragma once

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>

namespace ktrcl_internal {

/// An element as the kind that crossings are defined for; both are null for points, rectangles,
/// foreign kinds and null entries, which are never hit.
struct CrossingKind {
  const GX2DLine* line = nullptr;
  const GX2DArc* arc = nullptr;
};

/// The kind by `dynamic_cast`: what is derived from a line is a line.
inline CrossingKind KindByCast(const GX2DElement* element) {
  CrossingKind kind;
  kind.line = dynamic_cast<const GX2DLine*>(element);
  if (!kind.line) kind.arc = dynamic_cast<const GX2DArc*>(element);
  return kind;
}

// Each of the forms below hands the hits to `take`, the first before the second, and ends with
// false as soon as `take` answers false. Crossings that `isWanted` turns down are not looked at any
// further; that spares the tests whether they lie on the elements.

template <typename IsWanted, typename Take>
bool TakeHits(const GX2DLine& a, const GX2DLine& b, const IsWanted& isWanted, Take& take) {
  GX2DPoint hit;
  if (!GXGeometry::Get2DLineIntersection(a, b, hit) || !isWanted(hit)) return true;
  const bool isOnBoth =
      GXGeometry::Point2DOnClosedLine(a, hit) > 0 && GXGeometry::Point2DOnClosedLine(b, hit) > 0;
  return !isOnBoth || take(hit);
}

template <typename IsWanted, typename Take>
bool TakeHits(const GX2DLine& line, const GX2DArc& arc, const IsWanted& isWanted, Take& take) {
  const auto takeIfOnBoth = [&](const GX2DPoint& hit) {
    const bool isOnBoth = isWanted(hit) && GXGeometry::Point2DOnClosedLine(line, hit) > 0 &&
                          GXGeometry::Point2DOnArc(arc, hit);
    return !isOnBoth || take(hit);
  };
  GX2DPoint first;
  GX2DPoint second;
  if (!GXGeometry::Get2DLineArcIntersections(line, arc, first, second)) return true;
  return takeIfOnBoth(first) && takeIfOnBoth(second);
}

template <typename IsWanted, typename Take>
bool TakeHits(const GX2DArc& a, const GX2DArc& b, const IsWanted& isWanted, Take& take) {
  const auto takeIfOnBoth = [&](const GX2DPoint& hit) {
    const bool isOnBoth =
        isWanted(hit) && GXGeometry::Point2DOnArc(b, hit) && GXGeometry::Point2DOnArc(a, hit);
    return !isOnBoth || take(hit);
  };
  GX2DPoint first;
  GX2DPoint second;
  if (!GXGeometry::Get2DCirclesIntersection(a, b, first, second)) return true;
  return takeIfOnBoth(first) && takeIfOnBoth(second);
}

/// The order of two arcs decides the frame in which they are crossed, and with it the last bits.
template <typename IsWanted, typename Take>
bool TakeHits(const CrossingKind& a, const CrossingKind& b, const IsWanted& isWanted, Take& take) {
  if (a.line && b.line) return TakeHits(*a.line, *b.line, isWanted, take);
  if (a.line && b.arc) return TakeHits(*a.line, *b.arc, isWanted, take);
  if (a.arc && b.line) return TakeHits(*b.line, *a.arc, isWanted, take);
  if (a.arc && b.arc) return TakeHits(*a.arc, *b.arc, isWanted, take);
  return true;
}

inline bool IsAnyWanted(const GX2DPoint&) { return true; }

}  // namespace ktrcl_internal
