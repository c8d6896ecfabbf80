// What the host measures on lines and arcs by itself: exact for arcs of every size, also those that
// the library's sweep takes for nothing because its guards are absolute.
#pragma once

#include <KTRCL_Geometry/elements/GXElementLists.h>

namespace drawing {

/// Angle through which an arc runs from start to end, radians: counter-clockwise positive, a full
/// circle 2 pi or -2 pi, never 0.
double SignedSweep(const GX2DArc& arc);

/// The point half way along an arc, on the circle. The arc's own mid only tells the direction.
GX2DPoint ArcMiddle(const GX2DArc& arc);

/// The point half way along a line or an arc; the start point for other kinds.
GX2DPoint MiddleOf(GX2DElement& element);

/// The point of a line or an arc at a share of its length, 0 at the start and 1 at the end; the
/// start point for other kinds.
GX2DPoint PointAt(GX2DElement& element, double share);

/// The share of a line or an arc at which a point stands that lies on it or near it, from 0 to 1;
/// beyond an end it is that end. 0 for other kinds and for elements without length.
double ShareAt(const GX2DPoint& p, GX2DElement& element);

/// Length of a line or an arc; of other kinds their own Len.
double ElementLength(const GX2DElement& element);

/// Direction of drawing of a line or an arc at its start or end, not normalised.
///
/// Returns: false, outputs untouched, for an element without direction: length or radius zero,
///   or another kind.
bool TangentAt(GX2DElement& element, bool atEnd, double& x, double& y);

/// Distance of a point from a line (bounded) or an arc; from other kinds that of their start.
double DistanceToElement(const GX2DPoint& p, GX2DElement& element);

/// Centre of gravity of the curve itself, as of a thin wire: it depends neither on where the list
/// begins nor on how its sides are split. The origin for a list without length.
GX2DPoint WireCentre(const GX2DElmList& elements);

/// The arc of a contour that is one full circle, null for all others.
const GX2DArc* AsFullCircle(const GX2DElmList& elements);

/// Distance of two points.
double Distance(const GX2DPoint& p, const GX2DPoint& q);

}  // namespace drawing
