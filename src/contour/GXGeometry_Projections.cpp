// Projections on lines and planes, changes of coordinates, and flat extents. Points are read before
// one is written: outputs may be inputs.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/PlaneSelector.h"

#include <algorithm>
#include <array>
#include <cmath>

using ktrcl_internal::kLeftOutZ;

namespace {

/// The value of every conversion by code, known or not.
constexpr int kConverted = 1;

void Set(GX3DPoint& p, double x, double y, double z) {
  p.X = x;
  p.Y = y;
  p.Z = z;
}

void Widen(double x, double y, GX2DPoint& min, GX2DPoint& max) {
  min.X = std::min(min.X, x);
  min.Y = std::min(min.Y, y);
  max.X = std::max(max.X, x);
  max.Y = std::max(max.Y, y);
}

}  // namespace

bool GXGeometry::ProjectPointOnLine(GX2DPoint& result, const GX2DLine& line, const GX2DPoint& p) {
  GX3DPoint projected(p, kLeftOutZ);
  // The upright plane on the line.
  ProjectPointOnPlane(projected, GX3DPoint(line.Start, kLeftOutZ), GX3DPoint(line.End, kLeftOutZ),
                      GX3DPoint(line.Start.X, line.Start.Y, 1.0));
  result = GX2DPoint(projected, kLeftOutZ);
  return true;
}

bool GXGeometry::ProjectPointOnPlane(GX3DPoint& p, const GX3DPoint& a, const GX3DPoint& b,
                                     const GX3DPoint& c) {
  // Kept apart: the point that moves may be this one.
  const GX3DPoint origin(a.X, a.Y, a.Z);
  GXMatrix matrix(a, b, c);
  p.TransformGloLoc(origin, matrix);
  p.Z = 0.0;
  // Points in line span no plane; the matrix then has no inverse and stays as it is.
  matrix.Inverse();
  p.TransformLocGlo(origin, matrix);
  return true;
}

void GXGeometry::ProjectPointOnPlane(const GXColBasedTransformMatrix& toLocal,
                                     const GXColBasedTransformMatrix& toGlobal,
                                     const GX3DPoint& origin, const GX3DPoint& p,
                                     GX3DPoint& result) {
  GX3DPoint projected(p);
  projected.TransformGloLoc(origin, toLocal);
  projected.Z = 0.0;
  projected.TransformLocGlo(origin, toGlobal);
  result = projected;
}

int GXGeometry::Convert3DPointsByProjection(const GX3DPoint& from, GX3DPoint& to, const int& code) {
  const double x = from.X, y = from.Y, z = from.Z;
  if (code == 1) Set(to, x, y, z);
  if (code == 2) Set(to, y, z, x);
  if (code == 3) Set(to, z, x, y);
  return kConverted;
}

int GXGeometry::Reconvert3DPointsByProjection(const GX3DPoint& from, GX3DPoint& to,
                                              const int& code) {
  const double x = from.X, y = from.Y, z = from.Z;
  if (code == 1) Set(to, x, y, z);
  if (code == 2) Set(to, z, x, y);
  if (code == 3) Set(to, y, z, x);
  return kConverted;
}

int GXGeometry::Convert3DTo2DPointByProjection(const GX3DPoint& from, GX2DPoint& to,
                                               const int& code) {
  if (code == 1) to = GX2DPoint(from.X, from.Y);
  if (code == 2) to = GX2DPoint(from.Y, from.Z);
  if (code == 3) to = GX2DPoint(from.Z, from.X);
  return kConverted;
}

void GXGeometry::ConvertPnt2DTo3DByCoordSystem(const GX2DPoint& p, GX3DPoint& result,
                                               const GXColBasedTransformMatrix& matrix,
                                               const GX3DPoint& origin) {
  const GXVector v(p.X, p.Y, 0.0);
  Set(result, matrix.Base[0].GXVector::dot(v) + origin.X,
      matrix.Base[1].GXVector::dot(v) + origin.Y, matrix.Base[2].GXVector::dot(v) + origin.Z);
}

void GXGeometry::ConvertPnt3DTo2DByCoordSystem(const GX3DPoint& p, GX2DPoint& result,
                                               const GXColBasedTransformMatrix& matrix,
                                               const GX3DPoint& origin) {
  const GXVector v(origin, p);
  result = GX2DPoint(matrix.Base[0].GXVector::dot(v), matrix.Base[1].GXVector::dot(v));
}

void GXGeometry::Inf_maxmin_xy_setup(const GX3DPoint& p, GX2DPoint& min, GX2DPoint& max) {
  min = GX2DPoint(p, kLeftOutZ);
  max = GX2DPoint(p, kLeftOutZ);
}

void GXGeometry::Inf_maxmin_xy_pnt(const GX3DPoint& p, GX2DPoint& min, GX2DPoint& max) {
  Widen(p.X, p.Y, min, max);
}

void GXGeometry::Inf_maxmin_xy_line(const GX3DPoint& start, const GX3DPoint& end, GX2DPoint& min,
                                    GX2DPoint& max, bool& first) {
  if (first) Inf_maxmin_xy_setup(start, min, max);
  first = false;
  Inf_maxmin_xy_pnt(start, min, max);
  Inf_maxmin_xy_pnt(end, min, max);
}

void GXGeometry::Inf_maxmin_xy_arc(const GX3DPoint& center, const GX3DPoint& start,
                                   const GX3DPoint& mid, const GX3DPoint& end, GX2DPoint& min,
                                   GX2DPoint& max, bool& first) {
  if (first) Inf_maxmin_xy_setup(start, min, max);
  first = false;
  const double dx = start.X - center.X;
  const double dy = start.Y - center.Y;
  const double radius = std::sqrt(dx * dx + dy * dy);
  const double sense = (mid.Y - center.Y) * dx - (mid.X - center.X) * dy;
  const std::array<GX2DPoint, 4> extremes = {
      GX2DPoint(center.X + radius, center.Y), GX2DPoint(center.X - radius, center.Y),
      GX2DPoint(center.X, center.Y + radius), GX2DPoint(center.X, center.Y - radius)};
  for (const GX2DPoint& extreme : extremes) {
    const double side =
        (extreme.Y - start.Y) * (end.X - start.X) - (extreme.X - start.X) * (end.Y - start.Y);
    // On the other side of the chord than the part that is left out.
    if (side * sense < 0.0) Widen(extreme.X, extreme.Y, min, max);
  }
  Inf_maxmin_xy_pnt(start, min, max);
  Inf_maxmin_xy_pnt(end, min, max);
}
