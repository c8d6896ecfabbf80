// Where two elements can meet: candidates that their owners test against both elements.
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <vector>

namespace drawing {

/// Appends the points of the circles of two arcs: on the line through their centres, and at right
/// angles to it as far as the root says. Circles that touch, or miss each other by no more than
/// kTouchTolerance, give the point between them twice; circles about one centre give none.
void CrossCircles(const GX2DArc& p, const GX2DArc& q, std::vector<GX2DPoint>& points);

/// Appends the point at which the line `p`, bounded, passes from one side of the unbounded line
/// `q` to the other side. Nearly parallel lines are no exception.
void CrossLines(const GX2DLine& p, const GX2DLine& q, std::vector<GX2DPoint>& points);

/// Appends the points of an unbounded line and the circle of an arc. A line that touches, or misses
/// the circle by no more than kTouchTolerance, gives the foot of the centre twice.
void CrossLineAndCircle(const GX2DLine& line, const GX2DArc& arc, std::vector<GX2DPoint>& points);

/// Appends the ends of an element: of a full circle the one point where it is drawn from.
void AddEnds(GX2DElement& element, std::vector<GX2DPoint>& points);

}  // namespace drawing
