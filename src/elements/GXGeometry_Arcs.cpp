// Sweep, parameter and membership of arcs. A 2D arc is treated as the 3D arc with Z = 0.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include "elements/LineMeasures.h"
#include "elements/PlaneSelector.h"
#include "foundation/Tolerance.h"

#include <cmath>

using ktrcl_internal::AngleAtCommonEnd;
using ktrcl_internal::Cross;
using ktrcl_internal::Dot;
using ktrcl_internal::kAngleTolerance;
using ktrcl_internal::kFullTurn;
using ktrcl_internal::kLeftOutZ;
using ktrcl_internal::kLengthTolerance;
using ktrcl_internal::kOnElementTolerance;
using ktrcl_internal::kParameterTolerance;
using ktrcl_internal::kPi;
using ktrcl_internal::Length;
using ktrcl_internal::Plain;
using ktrcl_internal::PlainVector;
using ktrcl_internal::Standard;

namespace {

/// Length of the cross product of two radius vectors (an area) up to which they count as parallel.
constexpr double kParallelThreshold = 0.0001;

/// Parameter of a point on an arc that has no sweep to share: beyond every end.
constexpr double kNoParameter = 99999.0;

/// Within this of a half turn a point on the line of start and centre lies opposite the start.
constexpr double kOppositeTolerance = 0.0001;

/// Sweep below which the 3D parameter has nothing to divide by, radians.
constexpr double kSweepThreshold = 0.0001;

struct PlainArc {
  PlainVector start;
  PlainVector mid;
  PlainVector end;
  PlainVector center;
};

template <class Arc>
PlainArc PlainArcOf(const Arc& arc) {
  return {Plain(arc.Start), Plain(arc.Mid), Plain(arc.End), Plain(arc.Center)};
}

bool IsSpanned(const PlainVector& normal) { return Length(normal) > kParallelThreshold; }

/// Whether the arc takes the longer way round: mid lies on the other side of the start than end.
bool TakesLongerWay(const PlainVector& midSide, const PlainVector& endSide) {
  return Dot(midSide, endSide) < 0.0 && IsSpanned(endSide);
}

/// Angle at the centre between two points. Where there is none, the callers reckon on with the -1
/// that stands for it: hosts know the figures that come of it.
double AngleAtCenter(const PlainVector& center, const PlainVector& p, const PlainVector& q) {
  return AngleAtCommonEnd(center, p, center, q);
}

bool IsFullCircle(const PlainArc& arc) {
  return arc.start.IsAlmostEq(arc.end, kLengthTolerance) ||
         arc.mid.IsAlmostEq(arc.end, kLengthTolerance);
}

double Sweep(const PlainArc& arc) {
  if (IsFullCircle(arc)) return kFullTurn;
  const double angle = AngleAtCenter(arc.center, arc.start, arc.end);
  const PlainVector toStart = arc.start - arc.center;
  const PlainVector toEnd = arc.end - arc.center;
  const PlainVector midSide = Cross(toStart, arc.mid - arc.center);
  if (!IsSpanned(midSide)) return 0.0;
  const PlainVector endSide = Cross(toStart, toEnd);
  if (!IsSpanned(endSide) && Dot(toStart, toEnd) > 0.0) return 0.0;
  return TakesLongerWay(midSide, endSide) ? kFullTurn - angle : angle;
}

/// Radius vector of at least unit length, so that cross products do not shrink with small arcs. The
/// null vector stays null.
PlainVector ScaleFreeRadius(const PlainVector& center, const PlainVector& p) {
  const PlainVector radius = p - center;
  return Length(radius) < 1.0 ? Standard(radius) : radius;
}

template <class Point>
double DistanceBetween(const Point& p, const Point& q) {
  return Length(Plain(q) - Plain(p));
}

template <class Arc, class Point>
bool IsOnCircle(const Arc& arc, const Point& p) {
  const double radius = DistanceBetween(arc.Center, arc.Start);
  return std::fabs(DistanceBetween(arc.Center, p) - radius) <= kOnElementTolerance;
}

}  // namespace

double GXGeometry::GetArcAngleRad(const GX3DArc& arc) { return Sweep(PlainArcOf(arc)); }

double GXGeometry::PointParametricOnArc(const GX2DPoint& p, const GX2DArc& arc, bool) {
  PlainArc part = PlainArcOf(arc);
  const PlainVector point = Plain(p);
  if (point.IsAlmostEq(part.start, kLengthTolerance)) return 0.0;
  const double total = Sweep(part);
  if (GXMath::AlmostEq(total, 0.0, kAngleTolerance)) return kNoParameter;
  // The part up to the point. Its mid goes half-way in: on the circle, a point at mid would make
  // the part a full circle.
  const double radius = Length(part.start - part.center);
  part.end = point;
  part.mid = part.center + Standard(part.mid - part.center) * (radius * 0.5);
  return Sweep(part) / total;
}

double GXGeometry::PointParametricOnArc(const GX3DPoint& p, const GX3DArc& arc) {
  const PlainArc plain = PlainArcOf(arc);
  const PlainVector& center = plain.center;
  const PlainVector toStart = ScaleFreeRadius(center, plain.start);
  const PlainVector toEnd = ScaleFreeRadius(center, plain.end);
  const PlainVector midSide = Cross(toStart, ScaleFreeRadius(center, plain.mid));
  if (!IsSpanned(midSide)) return 0.0;
  const PlainVector endSide = Cross(toStart, toEnd);
  if (!IsSpanned(endSide) && Dot(toStart, toEnd) > 0.0) return 0.0;

  double total = IsFullCircle(plain) ? kFullTurn : AngleAtCenter(center, plain.start, plain.end);
  if (TakesLongerWay(midSide, endSide)) total = kFullTurn - total;
  if (!(std::fabs(total) > kSweepThreshold)) return 0.0;

  const PlainVector point = Plain(p);
  const double angle = AngleAtCenter(center, plain.start, point);
  const PlainVector pointSide = Cross(toStart, ScaleFreeRadius(center, point));
  if (IsSpanned(pointSide)) {
    return (Dot(pointSide, midSide) < 0.0 ? kFullTurn - angle : angle) / total;
  }
  return std::fabs(angle - kPi) <= kOppositeTolerance ? angle / total : 0.0;
}

bool GXGeometry::GetParametricPointOn2DArc(GX2DPoint& out, const double& t, const GX2DArc& arc) {
  GX3DPoint spatial(out, kLeftOutZ);
  if (!GetParametricPointOn3DArc(spatial, t, GX3DArc(arc, kLeftOutZ))) return false;
  out = GX2DPoint(spatial, kLeftOutZ);
  return true;
}

bool GXGeometry::GetParametricPointOn3DArc(GX3DPoint& out, const double& t, const GX3DArc& arc) {
  const PlainArc plain = PlainArcOf(arc);
  const PlainVector normal = Cross(plain.start - plain.center, plain.mid - plain.center);
  if (!IsSpanned(normal)) return false;
  const PlainVector tip = plain.center + normal / Length(normal);
  const GX3DLine axis(arc.Center, GX3DPoint(tip.x, tip.y, tip.z));
  Rotate3DPoint(axis, Sweep(plain) * t, arc.Start, out);
  return true;
}

bool GXGeometry::Point2DOnArc(const GX2DArc& arc, const GX2DPoint& p) {
  // The radius first: it takes no arc cosine and rules out most points.
  return IsOnCircle(arc, p) &&
         GXMath::AlmostEqOrLess(PointParametricOnArc(p, arc, false), 1.0, kParameterTolerance);
}

bool GXGeometry::Point3DOnArc(const GX3DArc& arc, const GX3DPoint& p) {
  const PlainVector point = Plain(p);
  if (point.IsAlmostEq(Plain(arc.Start), kLengthTolerance) ||
      point.IsAlmostEq(Plain(arc.End), kLengthTolerance)) {
    return true;
  }
  // Strict, unlike the flat twin: a point at the end has been taken above.
  return IsOnCircle(arc, p) &&
         GXMath::LessNotAlmostEq(PointParametricOnArc(p, arc), 1.0, kParameterTolerance);
}
