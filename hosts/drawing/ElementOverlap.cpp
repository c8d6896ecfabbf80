#include "drawing/ElementOverlap.h"

#include "drawing/CurveMeasures.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace drawing {

namespace {

constexpr double kTwoPi = 6.283185307179586;

bool AreSameCircles(const GX2DArc& p, const GX2DArc& q, double tolerance) {
  return Distance(p.Center, q.Center) + std::fabs(p.Radius() - q.Radius()) <= tolerance;
}

bool HaveSameEnds(GX2DElement& p, GX2DElement& q, double tolerance) {
  const auto near = [&](const GX2DPoint& a, const GX2DPoint& b) {
    return Distance(a, b) <= tolerance;
  };
  return (near(p.GetStartPoint(), q.GetStartPoint()) && near(p.GetEndPoint(), q.GetEndPoint())) ||
         (near(p.GetStartPoint(), q.GetEndPoint()) && near(p.GetEndPoint(), q.GetStartPoint()));
}

bool FindOnLine(const GX2DLine& longer, const GX2DLine& shorter, double tolerance,
                SharedStretch& stretch) {
  const double length = longer.Len();
  if (!(length > 0.0)) return false;
  const double ux = (longer.End.X - longer.Start.X) / length;
  const double uy = (longer.End.Y - longer.Start.Y) / length;
  const auto along = [&](const GX2DPoint& p) {
    return (p.X - longer.Start.X) * ux + (p.Y - longer.Start.Y) * uy;
  };
  const auto beside = [&](const GX2DPoint& p) {
    return std::fabs((p.Y - longer.Start.Y) * ux - (p.X - longer.Start.X) * uy);
  };
  if (!(beside(shorter.Start) <= tolerance && beside(shorter.End) <= tolerance)) return false;
  const auto [low, high] = std::minmax({along(shorter.Start), along(shorter.End)});
  const double from = std::max(low, 0.0);
  const double to = std::min(high, length);
  if (!(to - from > tolerance)) return false;
  const double middle = 0.5 * (from + to);
  stretch.holdsAll = low >= -tolerance && high <= length + tolerance;
  stretch.length = to - from;
  stretch.place = GX2DPoint(longer.Start.X + middle * ux, longer.Start.Y + middle * uy);
  return true;
}

double AngleFrom(double from, double to) {
  const double angle = std::fmod(to - from, kTwoPi);
  return angle < 0.0 ? angle + kTwoPi : angle;
}

// An arc as a range of angles on a circle, counter-clockwise.
struct Range {
  double begin = 0.0;
  double sweep = 0.0;
};

Range RangeOn(GX2DArc& arc, const GX2DPoint& centre) {
  const bool clockwise = arc.IsClockwise();
  const auto angle = [&](const GX2DPoint& p) { return std::atan2(p.Y - centre.Y, p.X - centre.X); };
  const double begin = angle(clockwise ? arc.End : arc.Start);
  if (arc.IsCircle()) return {begin, kTwoPi};
  const double middle = angle(ArcMiddle(arc));
  const double end = angle(clockwise ? arc.Start : arc.End);
  return {begin, AngleFrom(begin, middle) + AngleFrom(middle, end)};
}

bool LiesOnCircle(GX2DArc& arc, const GX2DArc& circle, double tolerance) {
  const double radius = circle.Radius();
  for (const double share : {0.0, 0.25, 0.5, 0.75, 1.0}) {
    const double distance = Distance(PointAt(arc, share), circle.Center);
    if (!(std::fabs(distance - radius) <= tolerance)) return false;
  }
  return true;
}

bool FindOnCircle(GX2DArc& longer, GX2DArc& shorter, double tolerance, SharedStretch& stretch) {
  const double radius = longer.Radius();
  if (!(radius > tolerance) || !LiesOnCircle(shorter, longer, tolerance)) return false;
  const double slack = tolerance / radius;
  const Range holder = RangeOn(longer, longer.Center);
  const Range held = RangeOn(shorter, longer.Center);
  double from = AngleFrom(holder.begin, held.begin);
  if (from > kTwoPi - slack) from -= kTwoPi;
  const double to = from + held.sweep;

  // The held range may reach round to the beginning of the holder once more.
  double best = 0.0;
  double middle = 0.0;
  double total = 0.0;
  for (const double turn : {0.0, kTwoPi}) {
    const double low = std::max(from, turn);
    const double high = std::min(to, turn + holder.sweep);
    if (!(high - low > slack)) continue;
    total += high - low;
    if (high - low <= best) continue;
    best = high - low;
    middle = 0.5 * (low + high);
  }
  if (total == 0.0) return false;
  const double angle = holder.begin + middle;
  stretch.holdsAll = longer.IsCircle() || to <= holder.sweep + slack;
  stretch.length = radius * std::min(total, held.sweep);
  stretch.place = GX2DPoint(longer.Center.X + radius * std::cos(angle),
                            longer.Center.Y + radius * std::sin(angle));
  return true;
}

}  // namespace

bool AreSameCurve(GX2DElement& p, GX2DElement& q, double tolerance) {
  const auto* const arcP = dynamic_cast<const GX2DArc*>(&p);
  const auto* const arcQ = dynamic_cast<const GX2DArc*>(&q);
  if ((arcP == nullptr) != (arcQ == nullptr)) return false;
  if (arcP == nullptr) {
    return dynamic_cast<const GX2DLine*>(&p) != nullptr &&
           dynamic_cast<const GX2DLine*>(&q) != nullptr && HaveSameEnds(p, q, tolerance);
  }
  if (arcP->IsCircle() != arcQ->IsCircle()) return false;
  if (arcP->IsCircle()) return AreSameCircles(*arcP, *arcQ, tolerance);
  return HaveSameEnds(p, q, tolerance) && Distance(ArcMiddle(*arcP), ArcMiddle(*arcQ)) <= tolerance;
}

bool FindSharedStretch(GX2DElement& longer, GX2DElement& shorter, double tolerance,
                       SharedStretch& stretch) {
  auto* const lineP = dynamic_cast<GX2DLine*>(&longer);
  auto* const lineQ = dynamic_cast<GX2DLine*>(&shorter);
  if (lineP != nullptr && lineQ != nullptr) return FindOnLine(*lineP, *lineQ, tolerance, stretch);
  auto* const arcP = dynamic_cast<GX2DArc*>(&longer);
  auto* const arcQ = dynamic_cast<GX2DArc*>(&shorter);
  return arcP != nullptr && arcQ != nullptr && FindOnCircle(*arcP, *arcQ, tolerance, stretch);
}

}  // namespace drawing
