// Points, lines and planes of the service class.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/LineMeasures.h"
#include "foundation/Tolerance.h"

#include <cmath>

using ktrcl_internal::DistanceToCarrier;
using ktrcl_internal::InLine;
using ktrcl_internal::kOnElementTolerance;
using ktrcl_internal::kPi;
using ktrcl_internal::Plain;

namespace {

constexpr double kHalfTurnDegrees = 180.0;

/// Only there to span a plane with an axis: so odd a place that no drawn axis points at it.
GX3DPoint PlaneSpanningPoint() { return GX3DPoint(1234.1234, 5678.5678, 9012.9012); }

}  // namespace

bool GXGeometry::Rotate2DPoint(GX2DPoint& point, const GX2DPoint& centre, const double& degrees) {
  const double radians = degrees * kPi / kHalfTurnDegrees;
  const double cosine = std::cos(radians);
  const double sine = std::sin(radians);
  const double dx = point.X - centre.X;
  const double dy = point.Y - centre.Y;
  // Both coordinates are found before either is written: the centre may be the point itself, and
  // the angle one of its coordinates.
  point = GX2DPoint(dx * cosine - dy * sine + centre.X, dy * cosine + dx * sine + centre.Y);
  return true;
}

bool GXGeometry::GetParametricPointOn2DLine(GX2DPoint& out, const double& t, const GX2DLine& line) {
  out = GX2DPoint(line.Start.X + (line.End.X - line.Start.X) * t,
                  line.Start.Y + (line.End.Y - line.Start.Y) * t);
  return true;
}

bool GXGeometry::GetParametricPointOn3DLine(GX3DPoint& out, const double& t, const GX3DLine& line) {
  out = GX3DPoint(line.Start.X + (line.End.X - line.Start.X) * t,
                  line.Start.Y + (line.End.Y - line.Start.Y) * t,
                  line.Start.Z + (line.End.Z - line.Start.Z) * t);
  return true;
}

bool GXGeometry::GetDistanceLinePoint(const GX2DLine& line, const GX2DPoint& p, double& distance) {
  return DistanceToCarrier(Plain(line.Start), Plain(line.End), Plain(p), distance);
}

bool GXGeometry::GetDistanceLinePoint(const GX3DLine& line, const GX3DPoint& p, double& distance) {
  return DistanceToCarrier(Plain(line.Start), Plain(line.End), Plain(p), distance);
}

double GXGeometry::GetAngleBetween3DLinesRad(const GX3DLine& a, const GX3DLine& b) {
  return ktrcl_internal::AngleAtCommonEnd(Plain(a.Start), Plain(a.End), Plain(b.Start),
                                          Plain(b.End));
}

bool GXGeometry::Rotate3DPoint(const GX3DLine& axis, double radians, const GX3DPoint& point,
                               GX3DPoint& result) {
  const GX3DPoint spanning = PlaneSpanningPoint();
  if (InLine(Plain(axis.Start), Plain(axis.End), Plain(spanning), kOnElementTolerance))
    return false;
  // A frame whose X runs along the axis, and the way back out of it.
  const GXColBasedTransformMatrix frame(axis.Start, axis.End, spanning);
  GXColBasedTransformMatrix back(frame);
  back.Inverse();

  GX3DPoint local(point);
  local.TransformGloLoc(axis.Start, frame);
  const double cosine = std::cos(radians);
  const double sine = std::sin(radians);
  GX3DPoint turned(local.X, cosine * local.Y - sine * local.Z, cosine * local.Z + sine * local.Y);
  turned.TransformLocGlo(axis.Start, back);
  // Written once, at the end: the result may be the point or an end of the axis.
  result.SetPoint(turned);
  return true;
}

bool GXGeometry::PointInPlane(const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c,
                              const GX3DPoint& d) {
  return ktrcl_internal::InPlane(Plain(a), Plain(b), Plain(c), Plain(d));
}

// Points by value are part of the exported form of these two.

// NOLINTNEXTLINE(performance-unnecessary-value-param)
bool GXGeometry::PointsInLine(GX3DPoint a, GX3DPoint b, GX3DPoint c) {
  return InLine(Plain(a), Plain(b), Plain(c), kOnElementTolerance);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param)
bool GXGeometry::PointsInLineTol(GX3DPoint a, GX3DPoint b, GX3DPoint c, const double& tol) {
  return InLine(Plain(a), Plain(b), Plain(c), tol);
}
