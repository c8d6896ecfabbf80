// Points, lines and planes of the service class.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/AxisTurn.h"
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
  const ktrcl_internal::AxisTurn turn(axis.Start, axis.End, radians);
  if (!turn.HasAxis()) return false;
  // Written once, at the end: the result may be the point or an end of the axis.
  result.SetPoint(turn(point));
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
