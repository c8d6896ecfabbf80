// Points to arcs: two normals of the curve give a center, which is then moved onto the
// perpendicular bisector of the chord, so that every arc begins and ends on points.
#include <KTRCL_Geometry/contour/GXApproximatePoints.h>

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/ElementSequences.h"
#include "elements/LineMeasures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>

using ktrcl_internal::kFullTurn;
using ktrcl_internal::kPi;
using ktrcl_internal::PushOwned;

namespace {

constexpr double kQuarterTurn = kPi / 2.0;

// Between these directions a line is steep.
constexpr double kSteepFrom = kPi / 4.0;
constexpr double kSteepTo = 3.0 * kPi / 4.0;

// Radians, for the order of directions around a center.
constexpr double kOrderTolerance = 0.0000001;

// Radius by length of the chord beyond which (strict) points count as straight.
constexpr double kFlattestArc = 1000000.0;

const GX2DPoint& At(const std::vector<GX2DPoint>& points, int index) {
  return points[static_cast<std::size_t>(index)];
}

double DistanceOf(const std::vector<GX2DPoint>& points, int i, int j) {
  return GXGeometry::GetDistancePointPoint(At(points, i), At(points, j));
}

// Points that coincide have no line.
void AppendLine(GX2DElmList& elements, const GX2DPoint& from, const GX2DPoint& to,
                double distance) {
  if (distance > 0.0) PushOwned(elements, std::make_unique<GX2DLine>(from, to));
}

// The last index that counts leaves room for the next ones in an int.
int LastIndex(const std::vector<GX2DPoint>& points) {
  constexpr std::size_t kLargest = std::numeric_limits<int>::max() - 2;
  return static_cast<int>(std::min(points.size() - 1, kLargest));
}

// Reduced once only: a chord from three quarters of a turn on keeps a normal of half a turn and
// more.
double PerpendicularTo(double angle) {
  const double normal = angle + kQuarterTurn;
  return normal >= kPi ? normal - kPi : normal;
}

// Which directions lie inside the sweep of an arc by so much that the order of the angles, which
// are exact to some 1e-8, cannot say otherwise; told without an arc cosine.
class SafelyInside {
 public:
  explicit SafelyInside(const GX2DArc& arc)
      : center_(arc.Center),
        start_(arc.Center, arc.Start),
        end_(arc.Center, arc.End),
        startMargin_(kSafeSine * start_.Len()),
        endMargin_(kSafeSine * end_.Len()),
        isMeasurable_(std::isnormal(startMargin_) && std::isnormal(endMargin_)),
        isReflex_(start_.X * end_.Y - start_.Y * end_.X < 0.0) {}

  // `distance` is that of the point from the center.
  bool Holds(const GX2DPoint& p, double distance) const {
    if (!isMeasurable_ || !std::isnormal(distance)) return false;
    const double x = p.X - center_.X;
    const double y = p.Y - center_.Y;
    const bool behindStart = start_.X * y - start_.Y * x > startMargin_ * distance;
    const bool beforeEnd = x * end_.Y - y * end_.X > endMargin_ * distance;
    return isReflex_ ? behindStart || beforeEnd : behindStart && beforeEnd;
  }

 private:
  static constexpr double kSafeSine = 1.0e-5;

  GX2DPoint center_;
  GXVector start_;
  GXVector end_;
  double startMargin_;
  double endMargin_;
  bool isMeasurable_;  // Lengths that run over or under say nothing.
  bool isReflex_;
};

// Direction from a point to another that is `length` away, 0 to a full turn.
double DirectionAngle(const GX2DPoint& from, const GX2DPoint& to, double length) {
  if (length == 0.0) return 0.0;
  const double angle = std::acos((to.X - from.X) / length);
  return to.Y < from.Y ? kFullTurn - angle : angle;
}

GX2DPoint OnCircle(const GX2DPoint& center, double radius, double angle) {
  return GX2DPoint(center.X + radius * std::cos(angle), center.Y + radius * std::sin(angle));
}

GXVector QuarterTurnFrom(const GX2DPoint& center, const GX2DPoint& start) {
  GXVector radial(center, start);
  radial.PerpendicalXY();
  return radial;
}

// A line in the form that stays finite: y = slope * x + offset, for a steep one
// x = slope * y + offset.
struct LineForm {
  double Slope;
  double Offset;
};

LineForm FormOf(bool steep, double angle, const GX2DPoint& p) {
  const double slope = std::tan(steep ? kQuarterTurn - angle : angle);
  return {slope, steep ? p.X - slope * p.Y : p.Y - slope * p.X};
}

}  // namespace

bool GXApproximatePoints::ApproximateByLinesAndArcs(const std::vector<GX2DPoint>& points,
                                                    GX2DElmList& elements,
                                                    const double& tolerance) {
  if (points.size() < 3) return true;
  const int last = LastIndex(points);

  // Lengthens an arc as far as it holds. k ends on the last point, or on the first one that the arc
  // did not reach.
  const auto grownArc = [&points, &tolerance, last](int first, int& k) {
    GX2DArc arc = ApproximatePointsByArc(points, first, k);
    try {
      while (k < last) {
        ++k;
        const GX2DArc trial = ApproximatePointsByArc(points, first, k);
        if (!ApproximatePointsCheck(trial, points, first, k, tolerance)) throw IntersectionError();
        arc = trial;
      }
    } catch (const IntersectionError&) {
      if (k == last) {
        // The closing piece would get two points, too few to tell a center: leave it three.
        k = last - 1;
        arc = ApproximatePointsByArc(points, first, last - 2);
      }
    }
    return arc;
  };

  try {
    for (int first = 0, k = 2; k <= last; k = first + 2) {
      while (k < last && DistanceOf(points, first, k) < tolerance) ++k;
      const double distance = DistanceOf(points, first, k);
      if (distance < tolerance) {
        AppendLine(elements, At(points, first), At(points, last), distance);
        return true;
      }
      PushOwned(elements, std::make_unique<GX2DArc>(grownArc(first, k)));
      first = k - 1;
    }
  } catch (...) {
    // Straight points have no center, and memory may run out. What was found so far stays: hosts
    // rely on no exception coming out and compare the end of the chain with the last point.
  }
  return true;
}

GX2DArc GXApproximatePoints::ApproximatePointsByArc(const std::vector<GX2DPoint>& points, int i,
                                                    int j) {
  double endNormal = 0.0;
  double startNormal = 0.0;
  GX2DPoint end;
  GX2DPoint start;
  ApproximatePointsPerpendicularLine(points, j, endNormal, end);
  ApproximatePointsPerpendicularLine(points, i, startNormal, start);
  const GX2DPoint crossing = ApproximatePointsIntersection(endNormal, end, startNormal, start);

  const double bisector = PerpendicularTo(ApproximatePointsCalculateAngle(start, end));
  const GX2DPoint middle = GXGeometry::Get2DMidPoint(start, end);
  const GX2DPoint center = ApproximatePointsProjection(crossing, bisector, middle);

  const double radius = GXGeometry::GetDistancePointPoint(center, start);
  const double chord = GXGeometry::GetDistancePointPoint(start, end);
  if (radius / chord > kFlattestArc) throw NoIntersectionError();

  const double startAngle = ApproximatePointsCalculateAngle(center, start);
  const double endAngle = ApproximatePointsCalculateAngle(center, end);
  const double middleAngle = ApproximatePointsCalculateAngle(center, middle);
  const bool forward = ApproximatePointsCheckOrder(startAngle, middleAngle, endAngle, true);

  // Points that run clockwise give an arc from their end to their start.
  const GX2DPoint from = OnCircle(center, radius, forward ? startAngle : endAngle);
  const GX2DPoint to = OnCircle(center, radius, forward ? endAngle : startAngle);
  const GXVector quarterTurn = QuarterTurnFrom(center, from);
  return GX2DArc(center, from, forward ? center + quarterTurn : center - quarterTurn, to);
}

bool GXApproximatePoints::ApproximatePointsCheck(const GX2DArc& arc,
                                                 const std::vector<GX2DPoint>& points, int i, int j,
                                                 const double& tolerance) {
  // No comparison below fails for a center that is no number; points without end are to end soon.
  if (std::isnan(arc.Center.X) || std::isnan(arc.Center.Y)) return true;
  const double radius = arc.Radius();
  const double startAngle = ApproximatePointsCalculateAngle(arc.Center, arc.Start);
  const double endAngle = ApproximatePointsCalculateAngle(arc.Center, arc.End);
  const SafelyInside safelyInside(arc);
  for (int index = i; index < j; ++index) {
    const GX2DPoint& p = At(points, index);
    const double distance = GXGeometry::GetDistancePointPoint(arc.Center, p);
    if (std::fabs(distance - radius) > tolerance) return false;
    if (safelyInside.Holds(p, distance)) continue;
    const double angle = DirectionAngle(arc.Center, p, distance);
    if (!ApproximatePointsCheckOrder(startAngle, angle, endAngle, true)) return false;
  }
  return true;
}

bool GXApproximatePoints::ApproximatePointsCheckOrder(double a, double b, double c, bool flag) {
  ApproximatePointsNormalize(a);
  ApproximatePointsNormalize(b);
  ApproximatePointsNormalize(c);
  if (GXMath::AlmostEq(a, c, kOrderTolerance)) return true;
  if (GXMath::LessNotAlmostEq(c, a, kOrderTolerance)) c += kFullTurn;
  if (GXMath::LessNotAlmostEq(b, a, kOrderTolerance)) b += kFullTurn;
  return GXMath::GreaterNotAlmostEq(b, c, kOrderTolerance) ? !flag : flag;
}

double GXApproximatePoints::ApproximatePointsCalculateAngle(const GX2DPoint& from,
                                                            const GX2DPoint& to) {
  return DirectionAngle(from, to, GXGeometry::GetDistancePointPoint(from, to));
}

void GXApproximatePoints::ApproximatePointsPerpendicularLine(const std::vector<GX2DPoint>& points,
                                                             int index, double& angle,
                                                             GX2DPoint& point) {
  const bool isLast = static_cast<std::size_t>(index) + 1 == points.size();
  const GX2DPoint& before = At(points, index == 0 ? 0 : index - 1);
  const GX2DPoint& behind = At(points, index == 0 ? 1 : isLast ? index : index + 1);
  angle = PerpendicularTo(ApproximatePointsCalculateAngle(before, behind));
  point = At(points, index);
}

GX2DPoint GXApproximatePoints::ApproximatePointsIntersection(const double& angle1,
                                                             const GX2DPoint& p1,
                                                             const double& angle2,
                                                             const GX2DPoint& p2) {
  const bool steep1 = ApproximatePointsIsBetween(angle1, kSteepFrom, kSteepTo);
  const bool steep2 = ApproximatePointsIsBetween(angle2, kSteepFrom, kSteepTo);
  const LineForm line1 = FormOf(steep1, angle1, p1);
  const LineForm line2 = FormOf(steep2, angle2, p2);

  double t = 0.0;
  if (steep1 != steep2) {
    const double determinant = 1.0 - line1.Slope * line2.Slope;
    if (determinant == 0.0) throw NoIntersectionError();
    t = (line2.Slope * line1.Offset + line2.Offset) / determinant;
  } else {
    if (line1.Slope == line2.Slope) {
      if (line1.Offset == line2.Offset) throw SameLineError();
      throw NoIntersectionError();
    }
    t = (line2.Offset - line1.Offset) / (line1.Slope - line2.Slope);
  }
  const double s = t * line1.Slope + line1.Offset;
  return steep1 ? GX2DPoint(s, t) : GX2DPoint(t, s);
}

GX2DPoint GXApproximatePoints::ApproximatePointsProjection(const GX2DPoint& point,
                                                           const double& angle,
                                                           const GX2DPoint& onLine) {
  return ApproximatePointsIntersection(angle, onLine, PerpendicularTo(angle), point);
}

bool GXApproximatePoints::ApproximatePointsIsBetween(double x, double from, double to) {
  if (from == kFullTurn) return true;
  double part = x - from;
  double whole = to - from;
  ApproximatePointsNormalize(part);
  ApproximatePointsNormalize(whole);
  return part <= whole;
}

void GXApproximatePoints::ApproximatePointsNormalize(double& angle) {
  if (angle >= 0.0 && angle <= kFullTurn) return;
  const bool negative = angle < 0.0;
  angle -= kFullTurn * std::trunc(angle / kFullTurn);
  if (negative) angle += kFullTurn;
}
