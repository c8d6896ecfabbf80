// Crossings of element lists.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "contour/ElementPairs.h"
#include "contour/IndexedIntersections.h"
#include "contour/PlainIntersections.h"

using ktrcl_internal::CrossingKind;

bool GXGeometry::GetIntersections(GX2DElmList& list1, GX2DElmList& list2, GX2DPointList& points) {
  ktrcl_internal::GetIntersectionsIndexed(list1, list2, points);
  return true;
}

bool GXGeometry::CheckIfIntersection(GX2DElmList& list1, GX2DElmList& list2, bool& found) {
  if (ktrcl_internal::IntersectIndexed(list1, list2)) found = true;
  return true;
}

bool GXGeometry::CheckIfIntersection(GX2DElmList& list, const GX2DLine& line, bool unbounded,
                                     bool& found) {
  const auto isOnLine = [&](const GX2DPoint& hit) {
    return unbounded || Point2DOnClosedLine(line, hit) > 0;
  };
  const auto isHit = [&](const CrossingKind& kind) {
    GX2DPoint first;
    GX2DPoint second;
    if (kind.line) {
      return Get2DLineIntersection(*kind.line, line, first) &&
             Point2DOnClosedLine(*kind.line, first) > 0 && isOnLine(first);
    }
    if (!kind.arc || !Get2DLineArcIntersections(line, *kind.arc, first, second)) return false;
    return (Point2DOnArc(*kind.arc, first) && isOnLine(first)) ||
           (Point2DOnArc(*kind.arc, second) && isOnLine(second));
  };
  for (const GX2DElement* const element : list) {
    if (!isHit(ktrcl_internal::KindByCast(element))) continue;
    found = true;
    return true;
  }
  return true;
}

bool GXGeometry::HasSelfIntersection(GX2DElmList& list, GX2DPointList& points) {
  points.ClearWithContents();
  // A host's list may keep points. They take part in every pass.
  if (!points.empty()) return ktrcl_internal::HasSelfIntersectionPlain(list, points);
  return ktrcl_internal::HasSelfIntersectionIndexed(list, points);
}
