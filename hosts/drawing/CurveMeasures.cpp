#include "drawing/CurveMeasures.h"

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

constexpr double kTwoPi = 6.283185307179586;

// Angle from the arc's start to a point, in the sense of the arc, from 0 to below 2 pi.
double AngleAlong(const GX2DArc& arc, const GX2DPoint& p, bool clockwise) {
  const double sx = arc.Start.X - arc.Center.X;
  const double sy = arc.Start.Y - arc.Center.Y;
  const double px = p.X - arc.Center.X;
  const double py = p.Y - arc.Center.Y;
  const double cross = sx * py - sy * px;
  const double angle = std::atan2(clockwise ? -cross : cross, sx * px + sy * py);
  return angle < 0.0 ? angle + kTwoPi : angle;
}

GX2DPoint PointOnArc(const GX2DArc& arc, double share) {
  const double angle = share * SignedSweep(arc);
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  const double dx = arc.Start.X - arc.Center.X;
  const double dy = arc.Start.Y - arc.Center.Y;
  return {arc.Center.X + cosine * dx - sine * dy, arc.Center.Y + sine * dx + cosine * dy};
}

// Share of the foot of a point on the line, limited to the line.
double ShareOnLine(const GX2DPoint& p, const GX2DLine& line) {
  const double dx = line.End.X - line.Start.X;
  const double dy = line.End.Y - line.Start.Y;
  const double square = dx * dx + dy * dy;
  if (square == 0.0) return 0.0;
  const double share = ((p.X - line.Start.X) * dx + (p.Y - line.Start.Y) * dy) / square;
  return std::clamp(share, 0.0, 1.0);
}

double ShareOnArc(const GX2DPoint& p, const GX2DArc& arc) {
  const double sweep = std::fabs(SignedSweep(arc));
  const double angle = AngleAlong(arc, p, arc.IsClockwise());
  if (angle <= sweep) return angle / sweep;
  return Distance(p, arc.Start) <= Distance(p, arc.End) ? 0.0 : 1.0;
}

double DistanceToLine(const GX2DPoint& p, const GX2DLine& line) {
  const double t = ShareOnLine(p, line);
  return std::hypot(p.X - (line.Start.X + t * (line.End.X - line.Start.X)),
                    p.Y - (line.Start.Y + t * (line.End.Y - line.Start.Y)));
}

double DistanceToArc(const GX2DPoint& p, const GX2DArc& arc) {
  const double sweep = std::fabs(SignedSweep(arc));
  if (AngleAlong(arc, p, arc.IsClockwise()) <= sweep) {
    return std::fabs(Distance(p, arc.Center) - arc.Radius());
  }
  return std::min(Distance(p, arc.Start), Distance(p, arc.End));
}

}  // namespace

double Distance(const GX2DPoint& p, const GX2DPoint& q) { return std::hypot(p.X - q.X, p.Y - q.Y); }

double SignedSweep(const GX2DArc& arc) {
  const bool clockwise = arc.IsClockwise();
  double sweep = arc.IsCircle() ? kTwoPi : AngleAlong(arc, arc.End, clockwise);
  // Ends on one ray, yet too far apart for a circle: a spiral step, which goes all the way round.
  if (sweep == 0.0) sweep = kTwoPi;
  return clockwise ? -sweep : sweep;
}

GX2DPoint ArcMiddle(const GX2DArc& arc) { return PointOnArc(arc, 0.5); }

GX2DPoint MiddleOf(GX2DElement& element) {
  if (const auto* arc = dynamic_cast<const GX2DArc*>(&element)) return ArcMiddle(*arc);
  if (const auto* line = dynamic_cast<const GX2DLine*>(&element)) return line->GetMidPoint();
  return element.GetStartPoint();
}

GX2DPoint PointAt(GX2DElement& element, double share) {
  if (const auto* arc = dynamic_cast<const GX2DArc*>(&element)) return PointOnArc(*arc, share);
  const GX2DPoint& start = element.GetStartPoint();
  if (dynamic_cast<const GX2DLine*>(&element) == nullptr) return start;
  const GX2DPoint& end = element.GetEndPoint();
  return {start.X + share * (end.X - start.X), start.Y + share * (end.Y - start.Y)};
}

double ShareAt(const GX2DPoint& p, GX2DElement& element) {
  if (const auto* line = dynamic_cast<const GX2DLine*>(&element)) return ShareOnLine(p, *line);
  if (const auto* arc = dynamic_cast<const GX2DArc*>(&element)) return ShareOnArc(p, *arc);
  return 0.0;
}

double ElementLength(const GX2DElement& element) {
  const auto* arc = dynamic_cast<const GX2DArc*>(&element);
  return arc == nullptr ? element.Len() : arc->Radius() * std::fabs(SignedSweep(*arc));
}

bool TangentAt(GX2DElement& element, bool atEnd, double& x, double& y) {
  double dx = 0.0;
  double dy = 0.0;
  if (const auto* line = dynamic_cast<const GX2DLine*>(&element)) {
    dx = line->End.X - line->Start.X;
    dy = line->End.Y - line->Start.Y;
  } else if (const auto* arc = dynamic_cast<const GX2DArc*>(&element)) {
    // A quarter turn from the radius vector, to the side on which the arc runs.
    const GX2DPoint& p = atEnd ? arc->End : arc->Start;
    const double side = arc->IsClockwise() ? -1.0 : 1.0;
    dx = -side * (p.Y - arc->Center.Y);
    dy = side * (p.X - arc->Center.X);
  }
  if (dx == 0.0 && dy == 0.0) return false;
  x = dx;
  y = dy;
  return true;
}

double DistanceToElement(const GX2DPoint& p, GX2DElement& element) {
  if (const auto* line = dynamic_cast<const GX2DLine*>(&element)) return DistanceToLine(p, *line);
  if (const auto* arc = dynamic_cast<const GX2DArc*>(&element)) return DistanceToArc(p, *arc);
  return Distance(p, element.GetStartPoint());
}

GX2DPoint WireCentre(const GX2DElmList& elements) {
  double length = 0.0;
  double x = 0.0;
  double y = 0.0;
  for (GX2DElement* const element : elements) {
    const double share = ElementLength(*element);
    length += share;
    if (const auto* arc = dynamic_cast<const GX2DArc*>(element)) {
      // The integral of the radius vector along the arc is r times the chord turned by a quarter.
      const double side = (arc->IsClockwise() ? -1.0 : 1.0) * arc->Radius();
      const bool circle = arc->IsCircle();
      x += share * arc->Center.X + (circle ? 0.0 : side * (arc->End.Y - arc->Start.Y));
      y += share * arc->Center.Y - (circle ? 0.0 : side * (arc->End.X - arc->Start.X));
    } else {
      const GX2DPoint middle = MiddleOf(*element);
      x += share * middle.X;
      y += share * middle.Y;
    }
  }
  return length == 0.0 ? GX2DPoint() : GX2DPoint(x / length, y / length);
}

const GX2DArc* AsFullCircle(const GX2DElmList& elements) {
  if (elements.size() != 1) return nullptr;
  const auto* arc = dynamic_cast<const GX2DArc*>(elements.front());
  return arc != nullptr && arc->IsCircle() ? arc : nullptr;
}

}  // namespace drawing
