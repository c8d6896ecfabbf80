#include "drawing/EndJoining.h"

#include "drawing/CurveMeasures.h"
#include "drawing/ElementOverlap.h"
#include "drawing/Overlaps.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace drawing {

namespace {

// 240 degrees in radians.
constexpr double kLargeSweep = 4.1887902047863905;

// The sine of the angle at which lines are too nearly parallel to cross anywhere in particular.
constexpr double kLeastSine = 1.0e-6;

// A crossing farther away than so many gaps is no corner that was meant.
constexpr double kFarthestCrossing = 4.0;

// Rounding of distances, in millimetres.
constexpr double kRounding = 1.0e-10;

GX2DPoint HalfWay(const GX2DPoint& p, const GX2DPoint& q) {
  return {0.5 * (p.X + q.X), 0.5 * (p.Y + q.Y)};
}

bool Crossing(const GX2DLine& a, const GX2DLine& b, GX2DPoint& crossing) {
  const double ax = a.End.X - a.Start.X;
  const double ay = a.End.Y - a.Start.Y;
  const double bx = b.End.X - b.Start.X;
  const double by = b.End.Y - b.Start.Y;
  const double cross = ax * by - ay * bx;
  if (!(std::fabs(cross) > kLeastSine * std::hypot(ax, ay) * std::hypot(bx, by))) return false;
  const double share = ((b.Start.X - a.Start.X) * by - (b.Start.Y - a.Start.Y) * bx) / cross;
  crossing = GX2DPoint(a.Start.X + share * ax, a.Start.Y + share * ay);
  return true;
}

// One of the two ends, with its element.
struct End {
  GX2DElement* element;
  bool atStart;

  const GX2DPoint& Point() const {
    return atStart ? element->GetStartPoint() : element->GetEndPoint();
  }
  const GX2DPoint& FarPoint() const {
    return atStart ? element->GetEndPoint() : element->GetStartPoint();
  }
  GX2DArc* AsArc() const { return dynamic_cast<GX2DArc*>(element); }
  GX2DLine* AsLine() const { return dynamic_cast<GX2DLine*>(element); }

  void MoveTo(const GX2DPoint& place) const {
    if (GX2DArc* const arc = AsArc()) {
      RefitArc(*arc, atStart ? place : arc->Start, atStart ? arc->End : place);
    } else {
      (atStart ? element->GetStartPoint() : element->GetEndPoint()) = place;
    }
  }
};

// Whether what leads from the far end to the place still runs as it did, and is not half gone.
bool KeepsItsRun(const End& end, const GX2DPoint& place) {
  const GX2DPoint& from = end.FarPoint();
  const double x = end.Point().X - from.X;
  const double y = end.Point().Y - from.Y;
  return (place.X - from.X) * x + (place.Y - from.Y) * y >= 0.5 * (x * x + y * y);
}

bool IsNear(const End& end, const GX2DPoint& place, double gap) {
  return Distance(end.Point(), place) <= gap + kRounding;
}

bool SuitsArc(const End& end, const GX2DPoint& place, double gap) {
  GX2DArc moved = *end.AsArc();
  End{&moved, end.atStart}.MoveTo(place);
  return !moved.IsCircle() && MovementOf(*end.element, moved) <= gap + kRounding;
}

bool Suits(const End& end, const GX2DPoint& place, double gap) {
  if (place == end.Point()) return true;
  if (!IsNear(end, place, gap)) return false;
  return end.AsArc() != nullptr ? SuitsArc(end, place, gap) : KeepsItsRun(end, place);
}

// Whether one of the two would lie on the other from end to end, and be taken for drawn twice.
bool LieOnOneAnother(const End& a, const End& b, const GX2DPoint& place) {
  const std::unique_ptr<GX2DElement> movedA(a.element->Clone());
  const std::unique_ptr<GX2DElement> movedB(b.element->Clone());
  End{movedA.get(), a.atStart}.MoveTo(place);
  End{movedB.get(), b.atStart}.MoveTo(place);
  const bool longerA = ElementLength(*movedA) >= ElementLength(*movedB);
  GX2DElement& longer = longerA ? *movedA : *movedB;
  GX2DElement& shorter = longerA ? *movedB : *movedA;
  SharedStretch stretch;
  return FindSharedStretch(longer, shorter, kOverlapTolerance, stretch) && stretch.holdsAll;
}

std::vector<GX2DPoint> PlacesFor(const End& a, const End& b, double gap) {
  const GX2DPoint half = HalfWay(a.Point(), b.Point());
  const bool lineA = a.AsLine() != nullptr;
  const bool lineB = b.AsLine() != nullptr;
  if (lineA && !lineB) return {b.Point(), half, a.Point()};
  if (!lineA && lineB) return {a.Point(), half, b.Point()};
  std::vector<GX2DPoint> places = {half, a.Point(), b.Point()};
  GX2DPoint crossing;
  if (!lineA || !Crossing(*a.AsLine(), *b.AsLine(), crossing)) return places;
  const double most = std::min(gap, kFarthestCrossing * Distance(a.Point(), b.Point()));
  if (IsNear(a, crossing, most) && IsNear(b, crossing, most)) {
    places.insert(places.begin(), crossing);
  }
  return places;
}

bool FindPlace(const End& a, const End& b, double gap,
               const std::function<bool(const GX2DPoint&)>& isFree, GX2DPoint& place) {
  const std::vector<GX2DPoint> places = PlacesFor(a, b, gap);
  for (const GX2DPoint& tried : places) {
    if (!Suits(a, tried, gap) || !Suits(b, tried, gap)) continue;
    if (!isFree(tried) || LieOnOneAnother(a, b, tried)) continue;
    place = tried;
    return true;
  }
  // Lines shorter than the gap are better turned round than left open; arcs could get anywhere.
  if (a.AsArc() != nullptr && b.AsArc() != nullptr) return false;
  const bool lines = a.AsArc() == nullptr && b.AsArc() == nullptr;
  place = lines ? HalfWay(a.Point(), b.Point()) : places.front();
  return isFree(place) && IsNear(a, place, gap) && IsNear(b, place, gap) &&
         !LieOnOneAnother(a, b, place);
}

bool IsLineOrArc(const End& end) { return end.AsArc() != nullptr || end.AsLine() != nullptr; }

}  // namespace

void CentreMid(GX2DArc& arc) { arc.Mid = ArcMiddle(arc); }

void MakeFullCircle(GX2DArc& arc) {
  const double radius = arc.Radius();
  arc.Start = GX2DPoint(arc.Center.X + radius, arc.Center.Y);
  arc.Mid = GX2DPoint(arc.Center.X - radius, arc.Center.Y);
  arc.End = arc.Start;
}

void RefitArc(GX2DArc& arc, const GX2DPoint& start, const GX2DPoint& end) {
  const double sweep = SignedSweep(arc);
  const double radius = arc.Radius();
  const double dx = end.X - start.X;
  const double dy = end.Y - start.Y;
  const double chord = std::hypot(dx, dy);
  arc.Start = start;
  arc.End = end;
  if (!(chord > 0.0)) return;

  // The centre stands on the left of the chord at this height.
  double height = 0.5 * chord / std::tan(0.5 * sweep);
  if (std::fabs(sweep) > kLargeSweep && 0.5 * chord < radius) {
    const double side = sweep > 0.0 ? -1.0 : 1.0;
    height = side * std::sqrt((radius - 0.5 * chord) * (radius + 0.5 * chord));
  }
  const double nx = -dy / chord;
  const double ny = dx / chord;
  arc.Center =
      GX2DPoint(0.5 * (start.X + end.X) + height * nx, 0.5 * (start.Y + end.Y) + height * ny);
  // A counter-clockwise arc has its middle on the right of its chord.
  const double reach = (sweep > 0.0 ? -1.0 : 1.0) * std::hypot(height, 0.5 * chord);
  arc.Mid = GX2DPoint(arc.Center.X + reach * nx, arc.Center.Y + reach * ny);
}

double MovementOf(GX2DElement& before, GX2DElement& now) {
  constexpr int kSteps = 16;
  double movement = std::max(Distance(before.GetStartPoint(), now.GetStartPoint()),
                             Distance(before.GetEndPoint(), now.GetEndPoint()));
  if (dynamic_cast<GX2DArc*>(&before) == nullptr) return movement;
  for (int step = 1; step < kSteps; ++step) {
    const double share = static_cast<double>(step) / kSteps;
    movement = std::max(movement, Distance(PointAt(before, share), PointAt(now, share)));
  }
  return movement;
}

bool JoinEnds(GX2DElement& a, bool aAtStart, GX2DElement& b, bool bAtStart, double gap,
              const std::function<bool(const GX2DPoint&)>& isFree, JoinedEnds& joined) {
  const End endA = {&a, aAtStart};
  const End endB = {&b, bAtStart};
  if (!IsLineOrArc(endA) || !IsLineOrArc(endB)) return false;
  if (&a == &b) {
    GX2DArc* const arc = endA.AsArc();
    if (arc == nullptr || aAtStart == bAtStart) return false;
    joined = {HalfWay(arc->Start, arc->End), Distance(arc->Start, arc->End), true};
    MakeFullCircle(*arc);
    return true;
  }
  GX2DPoint place;
  if (!FindPlace(endA, endB, gap, isFree, place)) return false;
  joined = {place, 0.0, false};
  for (const End& end : {endA, endB}) {
    const std::unique_ptr<GX2DElement> before(end.element->Clone());
    if (end.Point() != place) end.MoveTo(place);
    joined.movement = std::max(joined.movement, MovementOf(*before, *end.element));
  }
  return true;
}

}  // namespace drawing
