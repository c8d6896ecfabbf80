// Crossings of single lines, circles and planes. All work on the unbounded carriers; what lies on
// the bounded elements is for the caller to ask. Outputs are written once, at the end, so that they
// may belong to an argument.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include "elements/LineMeasures.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <cmath>

using ktrcl_internal::Cross;
using ktrcl_internal::DistanceToCarrier;
using ktrcl_internal::Dot;
using ktrcl_internal::InLine;
using ktrcl_internal::kDeterminantGuard;
using ktrcl_internal::kOnElementTolerance;
using ktrcl_internal::kSlopeTolerance;
using ktrcl_internal::Length;
using ktrcl_internal::Plain;
using ktrcl_internal::PlainVector;

namespace {

// Line and circle

/// Extent of a line in X or Y (length units) up to which it counts as upright or level. Never for
/// the slope that follows from it.
constexpr double kLevelTolerance = 0.00001;

/// Extent in Y (length units) up to which a line is turned upright before X is written as a
/// function of Y: the slope dx/dy of so flat a line would be too steep.
constexpr double kFlatThreshold = 0.01;

constexpr double kQuarterTurnDegrees = 90.0;

/// Both crossings with a circle; equal where the line touches it.
struct TwoHits {
  GX2DPoint first;
  GX2DPoint second;
};

double Squared(double x) { return x * x; }

bool CrossLevel(const GX2DPoint& start, const GX2DPoint& center, double radius, TwoHits& hits) {
  const double squaredHalf = radius * radius - Squared(start.Y - center.Y);
  if (squaredHalf < 0.0) return false;
  const double half = std::sqrt(squaredHalf);
  hits.first = GX2DPoint(center.X + half, start.Y);
  hits.second = GX2DPoint(center.X - half, start.Y);
  return true;
}

bool CrossUpright(const GX2DPoint& start, const GX2DPoint& center, double radius, TwoHits& hits) {
  const double squaredHalf = radius * radius - Squared(start.X - center.X);
  if (squaredHalf < 0.0) return false;
  const double half = std::sqrt(squaredHalf);
  hits.first = GX2DPoint(start.X, center.Y + half);
  hits.second = GX2DPoint(start.X, center.Y - half);
  return true;
}

/// The line x = m * y + b put into the equation of the circle, a * y^2 + linear * y + ... = 0.
bool CrossSlanted(const GX2DPoint& start, const GX2DPoint& end, const GX2DPoint& center,
                  double radius, TwoHits& hits) {
  const double m = (start.X - end.X) / (start.Y - end.Y);
  const double b = start.X - m * start.Y;
  const double e = b - center.X;
  const double a = m * m + 1.0;
  const double linear = (e * m - center.Y) * 2.0;
  const double discriminant =
      linear * linear - 4.0 * a * (Squared(center.Y) + Squared(e) - radius * radius);
  if (discriminant < 0.0) return false;
  const double root = std::sqrt(discriminant);
  const double firstY = (root - linear) / (2.0 * a);
  const double secondY = (-linear - root) / (2.0 * a);
  hits.first = GX2DPoint(m * firstY + b, firstY);
  hits.second = GX2DPoint(m * secondY + b, secondY);
  return true;
}

bool CrossFlat(GX2DPoint start, GX2DPoint end, const GX2DPoint& center, double radius,
               TwoHits& hits) {
  GXGeometry::Rotate2DPoint(start, center, kQuarterTurnDegrees);
  GXGeometry::Rotate2DPoint(end, center, kQuarterTurnDegrees);
  if (!CrossSlanted(start, end, center, radius, hits)) return false;
  GXGeometry::Rotate2DPoint(hits.first, center, -kQuarterTurnDegrees);
  GXGeometry::Rotate2DPoint(hits.second, center, -kQuarterTurnDegrees);
  return true;
}

bool CrossCircle(const GX2DPoint& start, const GX2DPoint& end, const GX2DPoint& center,
                 double radius, TwoHits& hits) {
  if (std::fabs(start.Y - end.Y) <= kLevelTolerance) {
    return CrossLevel(start, center, radius, hits);
  }
  if (std::fabs(start.X - end.X) <= kLevelTolerance) {
    return CrossUpright(start, center, radius, hits);
  }
  if (std::fabs(start.Y - end.Y) <= kFlatThreshold) {
    return CrossFlat(start, end, center, radius, hits);
  }
  return CrossSlanted(start, end, center, radius, hits);
}

/// Foot of the perpendicular from `p`.
GX2DPoint FootOn(const GX2DLine& line, const GX2DPoint& p) {
  const PlainVector start = Plain(line.Start);
  const PlainVector along = Plain(line.End) - start;
  const PlainVector foot = start + along * (Dot(Plain(p) - start, along) / Dot(along, along));
  return GX2DPoint(foot.x, foot.y);
}

// Frames

/// Bare counterparts of the flat point and line, for lines in the plane of a frame: nothing to
/// construct, nothing to destroy. The formulas for flat lines take either.
struct LocalPoint {
  double X;
  double Y;
};

struct LocalLine {
  LocalPoint Start;
  LocalPoint End;
};

/// The base vectors of `GXColBasedTransformMatrix`.
struct Columns {
  PlainVector x;
  PlainVector y;
  PlainVector z;
};

/// Unit vectors on three points. In line these span no plane: z is null then, x and y stay as long
/// as the points are apart.
Columns ColumnsOn(const PlainVector& origin, const PlainVector& onX, const PlainVector& onPlane) {
  const PlainVector x = onX - origin;
  const PlainVector y = onPlane - origin;
  const PlainVector z = Cross(x, y);
  const double length = Length(z);
  if (length == 0.0) return {x, y, z};
  const PlainVector unitX = x / Length(x);
  const PlainVector unitZ = z / length;
  return {unitX, Cross(unitZ, unitX), unitZ};
}

/// The inverse by cofactors; the columns themselves where there is none.
Columns InverseOf(const Columns& c) {
  const PlainVector minors = Cross(c.y, c.z);
  const double determinant =
      c.x.x * minors.x - c.x.y * (c.y.x * c.z.z - c.z.x * c.y.z) + c.x.z * minors.z;
  if (determinant < kDeterminantGuard) return c;
  const PlainVector x = {c.y.y * c.z.z - c.y.z * c.z.y, c.x.z * c.z.y - c.x.y * c.z.z,
                         c.x.y * c.y.z - c.x.z * c.y.y};
  const PlainVector y = {c.y.z * c.z.x - c.y.x * c.z.z, c.x.x * c.z.z - c.x.z * c.z.x,
                         c.x.z * c.y.x - c.x.x * c.y.z};
  const PlainVector z = {c.y.x * c.z.y - c.y.y * c.z.x, c.x.y * c.z.x - c.x.x * c.z.y,
                         c.x.x * c.y.y - c.x.y * c.y.x};
  return {x / determinant, y / determinant, z / determinant};
}

/// Frame on three points, X from the first to the second, and the way back out of it: the formulas
/// of `GXColBasedTransformMatrix`, in the same order and thus with the same bits, but inline. Lines
/// in space are crossed by the pair, and the calls would cost more than the arithmetic.
class LocalFrame {
 public:
  LocalFrame(const PlainVector& origin, const PlainVector& onX, const PlainVector& onPlane)
      : origin_(origin),
        toLocal_(ColumnsOn(origin, onX, onPlane)),
        toGlobal_(InverseOf(toLocal_)) {}

  /// In the plane of the frame; what stands off it is dropped.
  LocalPoint ToLocal(const PlainVector& p) const {
    const PlainVector fromOrigin = p - origin_;
    return {Dot(toLocal_.x, fromOrigin), Dot(toLocal_.y, fromOrigin)};
  }

  LocalLine ToLocal(const GX3DLine& line) const {
    return {ToLocal(Plain(line.Start)), ToLocal(Plain(line.End))};
  }

  PlainVector ToGlobal(const LocalPoint& p) const {
    const PlainVector local = {p.X, p.Y, 0.0};
    return PlainVector{Dot(toGlobal_.x, local), Dot(toGlobal_.y, local), Dot(toGlobal_.z, local)} +
           origin_;
  }

 private:
  PlainVector origin_;
  Columns toLocal_;
  Columns toGlobal_;
};

// Two circles

struct Circle {
  double x;
  double y;
  double squaredRadius;
};

/// Half circles and full circles, whose frame would have no plane.
bool SpansNoFrame(const GX2DArc& arc) {
  return InLine(Plain(arc.Center), Plain(arc.Start), Plain(arc.End), kOnElementTolerance);
}

Circle LocalCircle(const LocalFrame& frame, const GX2DArc& arc) {
  const LocalPoint center = frame.ToLocal(Plain(arc.Center));
  const LocalPoint start = frame.ToLocal(Plain(arc.Start));
  return {center.X, center.Y, Squared(start.X - center.X) + Squared(start.Y - center.Y)};
}

/// Whether two circles are apart, one inside the other, or touch.
bool StandClear(const Circle& one, const Circle& two) {
  constexpr double kOutsideTolerance = 0.000001;
  constexpr double kInsideTolerance = 0.00001;
  const double r1 = std::sqrt(one.squaredRadius);
  const double r2 = std::sqrt(two.squaredRadius);
  const double distance = std::sqrt(Squared(two.x - one.x) + Squared(two.y - one.y));
  if (distance > r1 + r2 - kOutsideTolerance) return true;
  return std::max(r1, r2) + kInsideTolerance > std::min(r1, r2) + distance;
}

/// The line through both crossings is dx * x + dy * y = k.
double ChordConstant(const Circle& one, const Circle& two) {
  return ((one.squaredRadius - two.squaredRadius) - (Squared(one.x) - Squared(two.x)) -
          (Squared(one.y) - Squared(two.y))) *
         0.5;
}

bool CrossAboveEachOther(const Circle& one, double dy, double k, TwoHits& hits) {
  const double y = k / dy;
  if (one.squaredRadius - Squared(y - one.y) < 0.0) return false;
  // With k and not the squared radius under the root: hosts know the points that come of it.
  const double half = std::sqrt(k - Squared(y - one.y));
  hits.first = GX2DPoint(one.x + half, y);
  hits.second = GX2DPoint(one.x - half, y);
  return true;
}

bool CrossAside(const Circle& one, double dx, double dy, double k, TwoHits& hits) {
  const double m = dy / dx;
  const double a = m * m + 1.0;
  const double e = k / dx - one.x;
  const double b = (e * m + one.y) * -2.0;
  const double discriminant = b * b - 4.0 * a * ((e * e + one.y * one.y) - one.squaredRadius);
  if (discriminant < 0.0) return false;
  const double root = std::sqrt(discriminant);
  const double firstY = (root - b) / (2.0 * a);
  const double secondY = (-b - root) / (2.0 * a);
  hits.first = GX2DPoint((k - dy * firstY) / dx, firstY);
  hits.second = GX2DPoint((k - dy * secondY) / dx, secondY);
  return true;
}

bool CrossCircles(const Circle& one, const Circle& two, TwoHits& hits) {
  // Offset of the centres in the local X (length units) up to which they count as standing above
  // each other: a guard of the division by it.
  constexpr double kAboveGuard = 0.0000001;
  if (StandClear(one, two)) return false;
  const double dx = two.x - one.x;
  const double dy = two.y - one.y;
  const double k = ChordConstant(one, two);
  if (std::fabs(dx) <= kAboveGuard) return CrossAboveEachOther(one, dy, k, hits);
  return CrossAside(one, dx, dy, k, hits);
}

// Two lines

bool IsInLineWith(const GX3DLine& line, const GX3DPoint& p) {
  return InLine(Plain(line.Start), Plain(line.End), Plain(p), kOnElementTolerance);
}

template <class Line>
double SlopeOf(const Line& line) {
  return (line.End.Y - line.Start.Y) / (line.End.X - line.Start.X);
}

/// Height of a line of slope `m` at X = 0.
template <class Point>
double HeightAtOrigin(const Point& start, double m) {
  return start.Y - start.X * m;
}

/// Point of the carrier of a line that is not upright at a given X.
template <class Line>
auto PointOnCarrier(const Line& line, double x) -> decltype(line.Start) {
  const double m = SlopeOf(line);
  return {x, x * m + HeightAtOrigin(line.Start, m)};
}

/// Crossing of two carriers neither of which is upright; false for parallel ones.
template <class Line, class Point>
bool CrossSlopes(const Line& a, const Line& b, Point& hit) {
  const double mA = SlopeOf(a);
  const double mB = SlopeOf(b);
  const double difference = mA - mB;
  if (!(std::fabs(difference) > kSlopeTolerance)) return false;
  const double bA = HeightAtOrigin(a.Start, mA);
  const double x = (HeightAtOrigin(b.Start, mB) - bA) / difference;
  hit = {x, x * mA + bA};
  return true;
}

/// Crossing of two carriers; false for parallel ones.
template <class Line, class Point>
bool CrossFlatLines(const Line& a, const Line& b, Point& hit) {
  const double extentA = std::fabs(a.End.X - a.Start.X);
  const double extentB = std::fabs(b.End.X - b.Start.X);
  const bool isSlantedA = extentA > kSlopeTolerance;
  const bool isSlantedB = extentB > kSlopeTolerance;
  if (isSlantedA && isSlantedB) return CrossSlopes(a, b, hit);
  // An extent that is NaN is neither slanted nor upright.
  if (isSlantedB && extentA <= kSlopeTolerance) {
    hit = PointOnCarrier(b, a.Start.X);
    return true;
  }
  if (isSlantedA && extentB <= kSlopeTolerance) {
    hit = PointOnCarrier(a, b.Start.X);
    return true;
  }
  return false;
}

double SquaredDistance(const GX2DPoint& a, const GX2DPoint& b) {
  return Squared(b.X - a.X) + Squared(b.Y - a.Y);
}

// How one line meets another

constexpr int kNoUsableCrossing = 0;
constexpr int kNearerToEnd = 1;
constexpr int kNearerToStart = 2;
constexpr int kRunsOn = 3;
constexpr int kRunsBack = 4;

bool AreCollinear(const GX2DLine& l1, const GX2DLine& l2) {
  const PlainVector start = Plain(l2.Start);
  const PlainVector end = Plain(l2.End);
  return InLine(start, end, Plain(l1.Start), kOnElementTolerance) &&
         InLine(start, end, Plain(l1.End), kOnElementTolerance);
}

int CollinearType(const GX2DLine& l1, const GX2DLine& l2) {
  const PlainVector end = Plain(l1.End);
  return Dot(Plain(l1.Start) - end, Plain(l2.End) - end) > 0.0 ? kRunsBack : kRunsOn;
}

/// Crossing of the carriers, at least one of which is not upright; false for parallel ones.
bool CrossCarriers(const GX2DLine& l1, bool isUpright1, const GX2DLine& l2, bool isUpright2,
                   GX2DPoint& hit) {
  if (isUpright1) {
    hit = PointOnCarrier(l2, l1.Start.X);
    return true;
  }
  if (isUpright2) {
    hit = PointOnCarrier(l1, l2.Start.X);
    return true;
  }
  return CrossSlopes(l1, l2, hit);
}

/// Whether `hit`, which lies on the carrier, lies beyond an end of the line.
bool IsBeyondEnds(const GX2DLine& line, const GX2DPoint& hit) {
  constexpr double kAtEndTolerance = 0.000001;
  const PlainVector toStart = Plain(line.Start) - Plain(hit);
  const PlainVector toEnd = Plain(line.End) - Plain(hit);
  return Dot(toEnd, toStart) > 0.0 && Length(toStart) > kAtEndTolerance &&
         Length(toEnd) > kAtEndTolerance;
}

}  // namespace

bool GXGeometry::Get2DLineIntersection(const GX2DLine& a, const GX2DLine& b, GX2DPoint& hit) {
  return CrossFlatLines(a, b, hit);
}

bool GXGeometry::Get3DLineIntersection(const GX3DLine& a, const GX3DLine& b, GX3DPoint& hit) {
  const bool isStartInLine = IsInLineWith(a, b.Start);
  if (isStartInLine && IsInLineWith(a, b.End)) return false;
  const LocalFrame frame(Plain(a.Start), Plain(a.End), Plain(isStartInLine ? b.End : b.Start));
  LocalPoint localHit = {};
  if (!CrossFlatLines(frame.ToLocal(a), frame.ToLocal(b), localHit)) return false;
  const PlainVector place = frame.ToGlobal(localHit);
  hit.X = place.x;
  hit.Y = place.y;
  hit.Z = place.z;
  return true;
}

bool GXGeometry::Get2DCirclesIntersection(const GX2DArc& arc1, const GX2DArc& arc2,
                                          GX2DPoint& first, GX2DPoint& second) {
  if (SpansNoFrame(arc1) || SpansNoFrame(arc2)) return false;
  const LocalFrame frame(Plain(arc1.Center), Plain(arc1.Start), Plain(arc1.End));
  TwoHits hits;
  if (!CrossCircles(LocalCircle(frame, arc1), LocalCircle(frame, arc2), hits)) return false;
  const PlainVector placeOfFirst = frame.ToGlobal({hits.first.X, hits.first.Y});
  const PlainVector placeOfSecond = frame.ToGlobal({hits.second.X, hits.second.Y});
  first = GX2DPoint(placeOfFirst.x, placeOfFirst.y);
  second = GX2DPoint(placeOfSecond.x, placeOfSecond.y);
  return true;
}

bool GXGeometry::Get2DLineArcIntersections(const GX2DLine& line, const GX2DArc& arc,
                                           GX2DPoint& first, GX2DPoint& second) {
  const double radius = arc.Radius();
  double distance = 0.0;
  const bool hasDistance =
      DistanceToCarrier(Plain(line.Start), Plain(line.End), Plain(arc.Center), distance);
  if (hasDistance && distance > 0.0 && radius > 0.0) {
    if (std::fabs(distance - radius) <= kOnElementTolerance) {
      const GX2DPoint foot = FootOn(line, arc.Center);
      first = foot;
      second = foot;
      return true;
    }
    if (distance > radius) return false;
  }
  TwoHits hits;
  if (!CrossCircle(line.Start, line.End, arc.Center, radius, hits)) return false;
  first = hits.first;
  second = hits.second;
  return true;
}

bool GXGeometry::GetLinePlaneIntersection(const GX3DLine& line, const GX3DPoint& a,
                                          const GX3DPoint& b, const GX3DPoint& c, GX3DPoint& hit) {
  const PlainVector onPlane = Plain(a);
  const PlainVector start = Plain(line.Start);
  const PlainVector along = Plain(line.End) - start;
  const PlainVector normal = Cross(Plain(b) - onPlane, Plain(c) - onPlane);
  const double denominator = Dot(normal, along);
  if (denominator == 0.0) return false;
  const PlainVector place = start + along * (Dot(normal, onPlane - start) / denominator);
  hit = GX3DPoint(place.x, place.y, place.z);
  return true;
}

int GXGeometry::GetTypeIntersectionLines(const GX2DLine& l1, const GX2DLine& l2) {
  if (AreCollinear(l1, l2)) return CollinearType(l1, l2);
  const bool isUpright1 = !(std::fabs(l1.End.X - l1.Start.X) > kSlopeTolerance);
  const bool isUpright2 = !(std::fabs(l2.End.X - l2.Start.X) > kSlopeTolerance);
  if (isUpright1 && isUpright2) return kNoUsableCrossing;
  GX2DPoint hit;
  if (!CrossCarriers(l1, isUpright1, l2, isUpright2, hit)) return kNoUsableCrossing;
  if (IsBeyondEnds(l2, hit)) return kNoUsableCrossing;
  return SquaredDistance(l1.End, hit) > SquaredDistance(l1.Start, hit) ? kNearerToStart
                                                                       : kNearerToEnd;
}
