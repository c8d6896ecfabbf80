// Distances, angles and parameters.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/LineMeasures.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <cmath>

using ktrcl_internal::Cross;
using ktrcl_internal::Dot;
using ktrcl_internal::kFullTurn;
using ktrcl_internal::kLengthTolerance;
using ktrcl_internal::kPi;
using ktrcl_internal::Length;
using ktrcl_internal::Plain;
using ktrcl_internal::PlainVector;
using ktrcl_internal::Standard;

namespace {

constexpr double kHalfTurnDegrees = 180.0;
constexpr double kFullTurnDegrees = 360.0;

/// Length up to which (inclusive) a vector has no direction to measure an angle from.
constexpr double kNullVectorTolerance = 0.00001;

PlainVector Plain(const GXVector& v) { return {v.X, v.Y, v.Z}; }

GX2DPoint PointAt(const PlainVector& v) { return GX2DPoint(v.x, v.y); }

// Angles

bool IsAlmostNull(const PlainVector& v) {
  return GXMath::AlmostEq(Length(v), 0.0, kNullVectorTolerance);
}

/// 0 to pi. Rounding may carry the cosine of parallel vectors beyond 1.
double UnsignedAngle(const PlainVector& a, const PlainVector& b) {
  return std::acos(std::clamp(Dot(a, b) / (Length(a) * Length(b)), -1.0, 1.0));
}

double InDegrees(double radians) { return radians * kHalfTurnDegrees / kPi; }

double CrossZ(const PlainVector& a, const PlainVector& b) { return Cross(a, b).z; }

/// Unsigned angle of two lines from start to end, or the turn from a to b clockwise.
double AngleOfLines(const GX2DLine& a, const GX2DLine& b, bool clockwise, bool inDegrees) {
  const PlainVector alongA = Plain(a.End) - Plain(a.Start);
  const PlainVector alongB = Plain(b.End) - Plain(b.Start);
  if (IsAlmostNull(alongA) || IsAlmostNull(alongB)) return 0.0;
  const double radians = UnsignedAngle(alongA, alongB);
  const double angle = inDegrees ? InDegrees(radians) : radians;
  if (!clockwise || !(CrossZ(alongA, alongB) > 0.0)) return angle;
  return (inDegrees ? kFullTurnDegrees : kFullTurn) - angle;
}

// Parameter on a line

/// The share of the first coordinate on which the line is long enough.
double Parameter(const PlainVector& p, const PlainVector& start, const PlainVector& end) {
  const PlainVector along = start - end;
  const PlainVector part = start - p;
  if (!(Length(along) > kLengthTolerance)) return 0.0;
  if (std::fabs(along.x) > kLengthTolerance) return part.x / along.x;
  if (std::fabs(along.y) > kLengthTolerance) return part.y / along.y;
  if (std::fabs(along.z) > kLengthTolerance) return part.z / along.z;
  return 0.0;
}

// Parallel lines

bool AreParallel(const GX3DLine& a, const GX3DLine& b, double largestSine) {
  const PlainVector alongA = Plain(a.End) - Plain(a.Start);
  const PlainVector alongB = Plain(b.End) - Plain(b.Start);
  const double lengthA = Length(alongA);
  const double lengthB = Length(alongB);
  if (lengthA == 0.0 || lengthB == 0.0) return false;
  return Length(Cross(alongA, alongB)) / (lengthB * lengthA) <= largestSine;
}

}  // namespace

double GXGeometry::GetDistancePointPoint(const GX2DPoint& a, const GX2DPoint& b) {
  return Length(Plain(b) - Plain(a));
}

double GXGeometry::GetDistancePointPoint(const GX3DPoint& a, const GX3DPoint& b) {
  return Length(Plain(b) - Plain(a));
}

bool GXGeometry::GetDistanceLimitedLinePoint(const GX3DLine& line, const GX3DPoint& p,
                                             double& distance) {
  const PlainVector start = Plain(line.Start);
  const PlainVector end = Plain(line.End);
  const PlainVector point = Plain(p);
  const PlainVector along = end - start;
  if (Length(along) == 0.0) {
    distance = 0.0;
    return false;
  }
  const PlainVector foot = start + along * (Dot(point - start, along) / Dot(along, along));
  const double t = Parameter(foot, start, end);
  PlainVector nearest = foot;
  if (t < 0.0) nearest = start;
  if (t > 1.0) nearest = end;
  distance = Length(point - nearest);
  return true;
}

double GXGeometry::GetDistanceBetweenPointPlane(GX3DPoint& p, const GX3DPoint& a,
                                                const GX3DPoint& b, const GX3DPoint& c) {
  GX3DPoint projected(p);
  ProjectPointOnPlane(projected, a, b, c);
  return GX3DLine(p, projected).Len();
}

double GXGeometry::GetLengthOnDirection(const GX2DPoint& p1, const GX2DPoint& p2,
                                        const GXVector& direction) {
  // How far the cosine may be from 1 for the points to stand along the direction.
  constexpr double kAlongTolerance = 0.0001;
  const PlainVector from = Plain(p1);
  const PlainVector to = Plain(p2);
  const PlainVector along = Plain(direction);
  const double distance = Length(from - to);
  if (!(distance > kLengthTolerance)) return 0.0;
  const PlainVector unit = Standard(from - to);
  if (std::fabs(std::fabs(Dot(unit, along)) - 1.0) < kAlongTolerance) return distance;
  const PlainVector across = Standard(Cross(Cross(unit, along), along));
  // Where nothing crosses, p1 itself stands for the hit: nothing is covered.
  GX2DPoint hit(p1);
  Get2DLineIntersection(GX2DLine(p1, PointAt(from + along)), GX2DLine(p2, PointAt(to + across)),
                        hit);
  return GetDistancePointPoint(p1, hit);
}

GX2DPoint GXGeometry::Get2DMidPoint(const GX2DPoint& a, const GX2DPoint& b) {
  return GX2DPoint(0.5 * (a.X + b.X), 0.5 * (a.Y + b.Y));
}

double GXGeometry::GetAngleBetween2DLines(const GX2DLine& a, const GX2DLine& b,
                                          const bool& clockwise) {
  return AngleOfLines(a, b, clockwise, true);
}

double GXGeometry::GetAngleBetween2DLinesRad(const GX2DLine& a, const GX2DLine& b,
                                             const bool& clockwise) {
  return AngleOfLines(a, b, clockwise, false);
}

double GXGeometry::GetAngleBetweenVectors(const GXVector& a, const GXVector& b) {
  if (IsAlmostNull(Plain(a)) || IsAlmostNull(Plain(b))) return 0.0;
  const double angle = InDegrees(UnsignedAngle(Plain(a), Plain(b)));
  return CrossZ(Plain(a), Plain(b)) > 0.0 ? kFullTurnDegrees - angle : angle;
}

double GXGeometry::GetAngleBetweenVectorsCCW(const GXVector& a, const GXVector& b) {
  if (IsAlmostNull(Plain(a)) || IsAlmostNull(Plain(b))) return 0.0;
  const double angle = InDegrees(UnsignedAngle(Plain(a), Plain(b)));
  return CrossZ(Plain(a), Plain(b)) < 0.0 ? kFullTurnDegrees - angle : angle;
}

double GXGeometry::GetAngleRadBetweenVectors(const GXVector& a, const GXVector& b,
                                             bool counterClockwise) {
  const GXVector normal = a.GXVector::operator*(b);
  const GXVector inPlane = normal * a;
  // The constructor brings each row to unit length and leaves a null one as it is.
  const GXMatrix toLocal(a, inPlane, a.GXVector::operator*(inPlane));
  const GX3DPoint origin;
  GX3DPoint localOrigin(origin);
  GX3DPoint tipA(a);
  GX3DPoint tipB(b);
  localOrigin.TransformGloLoc(origin, toLocal);
  tipA.TransformGloLoc(origin, toLocal);
  tipB.TransformGloLoc(origin, toLocal);

  const PlainVector localA = Plain(tipA) - Plain(localOrigin);
  const PlainVector localB = Plain(tipB) - Plain(localOrigin);
  const bool hasAngle = !IsAlmostNull(localA) && !IsAlmostNull(localB);
  const double angle = hasAngle ? UnsignedAngle(localA, localB) : 0.0;
  // A vector that is almost null may still tell the sides apart: the full turn is meant.
  return counterClockwise && normal.Z < 0.0 ? kFullTurn - angle : angle;
}

double GXGeometry::PointParametricOnLine(const GX2DPoint& p, const GX2DLine& line) {
  return Parameter(Plain(p), Plain(line.Start), Plain(line.End));
}

double GXGeometry::PointParametricOnLine(const GX3DPoint& p, const GX3DLine& line) {
  return Parameter(Plain(p), Plain(line.Start), Plain(line.End));
}

void GXGeometry::VectorAnotherPnt(const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c,
                                  GXVector& result) {
  result = GXVector(a.IsAlmostEq(b, kLengthTolerance) ? c : b);
}

void GXGeometry::VectorEndpPnt(const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c,
                               GXVector& result) {
  result = GXVector(a.IsAlmostEq(b, kLengthTolerance) ? c : b, a);
}

bool GXGeometry::AreParallel3DLines(const GX3DLine& a, const GX3DLine& b) {
  constexpr double kLargestSine = 0.01;
  return AreParallel(a, b, kLargestSine);
}

bool GXGeometry::AreParallel3DLinesTol(const GX3DLine& a, const GX3DLine& b, const double& limit) {
  return AreParallel(a, b, limit);
}
