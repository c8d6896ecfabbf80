// The test contours as element lists.
#pragma once

#include "TestContours.h"
#include "TestShapes.h"

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <cstddef>
#include <vector>

namespace contour_benchmarks {

inline GX2DPoint PointAt(const Corner& c) { return {c.x, c.y}; }

inline void FillWithLines(GX2DElmList& list, const Corners& corners) {
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Corner& end = corners[(i + 1) % corners.size()];
    list.push_back(new GX2DLine(PointAt(corners[i]), PointAt(end)));
  }
}

inline void FillWithArcs(GX2DElmList& list, const Corners& corners) {
  for (const Bulge& bulge : Bulges(corners)) {
    list.push_back(
        new GX2DArc(PointAt(bulge.center), PointAt(bulge.start), PointAt(bulge.end), false));
  }
}

inline void FillWithPieces(GX2DElmList& list, const Pieces& pieces) {
  for (const Piece& piece : pieces) {
    const GX2DPoint start = PointAt(piece.start);
    const GX2DPoint end = PointAt(piece.end);
    if (piece.isArc) {
      auto* const arc = new GX2DArc(PointAt(piece.center), start, end, piece.isClockwise);
      arc->Normalize();
      list.push_back(arc);
    } else {
      list.push_back(new GX2DLine(start, end));
    }
  }
}

inline std::vector<GX2DPoint> PointsAt(const Corners& corners) {
  std::vector<GX2DPoint> points;
  for (const Corner& c : corners) points.push_back(PointAt(c));
  return points;
}

inline Corner CornerAt(const GX2DPoint& p) { return {p.X, p.Y}; }

inline Corners CornersOf(const GX2DPointList& points) {
  Corners corners;
  for (const GX2DPoint* const p : points) corners.push_back({p->X, p->Y});
  return corners;
}

}  // namespace contour_benchmarks
