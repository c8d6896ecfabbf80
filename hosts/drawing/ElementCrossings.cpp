#include "drawing/ElementCrossings.h"

#include "drawing/ContourCrossings.h"
#include "drawing/CurveMeasures.h"

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

// Signed distance of a point from the line, positive on the left.
double SideOf(const GX2DLine& line, const GX2DPoint& p) {
  const double dx = line.End.X - line.Start.X;
  const double dy = line.End.Y - line.Start.Y;
  const double length = std::hypot(dx, dy);
  if (length == 0.0) return 0.0;
  return (dx * (p.Y - line.Start.Y) - dy * (p.X - line.Start.X)) / length;
}

}  // namespace

void CrossCircles(const GX2DArc& p, const GX2DArc& q, std::vector<GX2DPoint>& points) {
  const double distance = Distance(p.Center, q.Center);
  const double r = p.Radius();
  const double s = q.Radius();
  if (!(distance > 0.0) || distance > r + s + kTouchTolerance ||
      distance < std::fabs(r - s) - kTouchTolerance) {
    return;
  }
  const double along = 0.5 * (distance + (r - s) * (r + s) / distance);
  const double across = std::sqrt(std::max(0.0, (r - along) * (r + along)));
  const double ux = (q.Center.X - p.Center.X) / distance;
  const double uy = (q.Center.Y - p.Center.Y) / distance;
  for (const double side : {across, -across}) {
    points.emplace_back(p.Center.X + along * ux - side * uy, p.Center.Y + along * uy + side * ux);
  }
}

void CrossLines(const GX2DLine& p, const GX2DLine& q, std::vector<GX2DPoint>& points) {
  const double before = SideOf(q, p.Start);
  const double behind = SideOf(q, p.End);
  if (!(before < 0.0 && behind > 0.0) && !(before > 0.0 && behind < 0.0)) return;
  const double share = before / (before - behind);
  points.emplace_back(p.Start.X + share * (p.End.X - p.Start.X),
                      p.Start.Y + share * (p.End.Y - p.Start.Y));
}

void CrossLineAndCircle(const GX2DLine& line, const GX2DArc& arc, std::vector<GX2DPoint>& points) {
  const double dx = line.End.X - line.Start.X;
  const double dy = line.End.Y - line.Start.Y;
  const double length = std::hypot(dx, dy);
  if (!(length > 0.0)) return;
  const double ux = dx / length;
  const double uy = dy / length;
  const double along = ux * (arc.Center.X - line.Start.X) + uy * (arc.Center.Y - line.Start.Y);
  const double side = SideOf(line, arc.Center);
  const double radius = arc.Radius();
  if (std::fabs(side) > radius + kTouchTolerance) return;
  const double half = std::sqrt(std::max(0.0, (radius - side) * (radius + side)));
  for (const double share : {along - half, along + half}) {
    points.emplace_back(line.Start.X + share * ux, line.Start.Y + share * uy);
  }
}

void AddEnds(GX2DElement& element, std::vector<GX2DPoint>& points) {
  points.push_back(element.GetStartPoint());
  points.push_back(element.GetEndPoint());
}

}  // namespace drawing
