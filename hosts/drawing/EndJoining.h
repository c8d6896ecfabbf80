// Joining two loose ends, and arcs through new ends.
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <functional>

namespace drawing {

/// What joining did.
struct JoinedEnds {
  GX2DPoint place;            ///< Where the ends are now.
  double movement = 0.0;      ///< How far any point of the two elements moved, millimetres.
  bool becameCircle = false;  ///< An arc whose own ends met.
};

/// Makes one point of an end of `a` and an end of `b`.
///
/// Two lines meet at the crossing of their straight lines where that lies within the gap of both
/// ends and not four times as far away as these are apart; a line and an arc at the arc's end;
/// everything else half way. A place at which a line would be turned round or lose half its length,
/// at which an arc would move by more than the gap, for which `isFree` is false, or at which one of
/// the two would lie on the other from end to end, gives way to another. Where `a` is an arc and
/// `b` the same one, it becomes a full circle on its own centre.
///
/// Returns: false, nothing changed, where no place is within the gap, and for elements that are
///   neither lines nor arcs.
bool JoinEnds(GX2DElement& a, bool aAtStart, GX2DElement& b, bool bAtStart, double gap,
              const std::function<bool(const GX2DPoint&)>& isFree, JoinedEnds& joined);

/// Draws an arc anew through other ends, in its direction, with its sweep; an arc of more than 240
/// degrees keeps its radius instead, since its sweep would make much of a small movement. Its
/// centre is equally far from both ends, its mid half way.
void RefitArc(GX2DArc& arc, const GX2DPoint& start, const GX2DPoint& end);

/// Makes an arc a full circle on its centre, counter-clockwise from its rightmost point.
void MakeFullCircle(GX2DArc& arc);

/// Puts the mid of an arc half way between its ends, on the circle, the direction kept.
void CentreMid(GX2DArc& arc);

/// How far the points of an element moved from how it was before to how it is now, millimetres.
/// Requires: the same kind.
double MovementOf(GX2DElement& before, GX2DElement& now);

}  // namespace drawing
