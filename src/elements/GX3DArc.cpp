#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/CommonEnds.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <utility>

using ktrcl_internal::kLengthTolerance;

namespace {

/// Applies a transform to center, start, mid and end. Points, lines and numbers are captured by
/// value, since a host may pass a coordinate or a point of this very arc.
template <class Transform>
void ForAllPoints(GX3DArc& arc, Transform transform) {
  transform(arc.Center);
  transform(arc.Start);
  transform(arc.Mid);
  transform(arc.End);
}

/// The point of the circle's box side where the arc reaches it; else the given end coordinate.
double ExtentOnArc(const GX3DArc& arc, const GX3DPoint& candidate, double reached, double ends) {
  return GXGeometry::Point3DOnArc(arc, candidate) ? reached : ends;
}

}  // namespace

GX3DArc::GX3DArc() = default;
GX3DArc::GX3DArc(const GX3DArc& other) = default;
GX3DArc::GX3DArc(const GX3DPoint& center, const GX3DPoint& start, const GX3DPoint& mid,
                 const GX3DPoint& end)
    : Start(start), Mid(mid), End(end), Center(center) {}
GX3DArc::GX3DArc(const GX2DArc& arc, const int& plane)
    : Start(arc.Start, plane),
      Mid(arc.Mid, plane),
      End(arc.End, plane),
      Center(arc.Center, plane) {}
GX3DArc& GX3DArc::operator=(const GX3DArc& other) = default;
GX3DArc::~GX3DArc() = default;

void GX3DArc::Translate(const GXVector& v) {
  ForAllPoints(*this, [&v](GX3DPoint& p) { p.Translate(v); });
}

void GX3DArc::Scale(const double& factor, const int& decimals) {
  ForAllPoints(*this, [factor, decimals](GX3DPoint& p) { p.Scale(factor, decimals); });
}

void GX3DArc::ScaleX(const double& factor, const int& decimals) {
  ForAllPoints(*this, [factor, decimals](GX3DPoint& p) { p.ScaleX(factor, decimals); });
}

void GX3DArc::ScaleY(const double& factor, const int& decimals) {
  ForAllPoints(*this, [factor, decimals](GX3DPoint& p) { p.ScaleY(factor, decimals); });
}

void GX3DArc::ScaleZ(const double& factor, const int& decimals) {
  ForAllPoints(*this, [factor, decimals](GX3DPoint& p) { p.ScaleZ(factor, decimals); });
}

void GX3DArc::MirrorXY() {
  ForAllPoints(*this, [](GX3DPoint& p) { p.MirrorXY(); });
}

void GX3DArc::MirrorYZ() {
  ForAllPoints(*this, [](GX3DPoint& p) { p.MirrorYZ(); });
}

void GX3DArc::MirrorXZ() {
  ForAllPoints(*this, [](GX3DPoint& p) { p.MirrorXZ(); });
}

void GX3DArc::TransformGloLoc(const GX3DPoint& origin, const GXMatrix& m) {
  ForAllPoints(*this, [origin, &m](GX3DPoint& p) { p.TransformGloLoc(origin, m); });
}

void GX3DArc::TransformGloLoc(const GX3DPoint& origin, const GXColBasedTransformMatrix& m) {
  ForAllPoints(*this, [origin, &m](GX3DPoint& p) { p.TransformGloLoc(origin, m); });
}

void GX3DArc::TransformLocGlo(const GX3DPoint& origin, const GXMatrix& m) {
  ForAllPoints(*this, [origin, &m](GX3DPoint& p) { p.TransformLocGlo(origin, m); });
}

void GX3DArc::TransformLocGlo(const GX3DPoint& origin, const GXColBasedTransformMatrix& m) {
  ForAllPoints(*this, [origin, &m](GX3DPoint& p) { p.TransformLocGlo(origin, m); });
}

void GX3DArc::RotateX(const double& radians) {
  ForAllPoints(*this, [radians](GX3DPoint& p) { p.RotateX(radians); });
}

void GX3DArc::RotateY(const double& radians) {
  ForAllPoints(*this, [radians](GX3DPoint& p) { p.RotateY(radians); });
}

void GX3DArc::RotateZ(const double& radians) {
  ForAllPoints(*this, [radians](GX3DPoint& p) { p.RotateZ(radians); });
}

void GX3DArc::RotateAxis(const GX3DLine& axis, const double& radians) {
  ForAllPoints(*this, [axis, radians](GX3DPoint& p) { p.RotateAxis(axis, radians); });
}

void GX3DArc::Rotate(const GXRotation& rotation) {
  ForAllPoints(*this, [&rotation](GX3DPoint& p) { p.Rotate(rotation); });
}

double GX3DArc::GetMinX() const {
  const double reached = Center.X - Radius();
  const GX3DPoint candidate(reached, Center.Y, Center.Z);
  return ExtentOnArc(*this, candidate, reached, std::min(Start.X, End.X));
}

double GX3DArc::GetMaxX() const {
  const double reached = Center.X + Radius();
  const GX3DPoint candidate(reached, Center.Y, Center.Z);
  return ExtentOnArc(*this, candidate, reached, std::max(Start.X, End.X));
}

double GX3DArc::GetMinY() const {
  const double reached = Center.Y - Radius();
  const GX3DPoint candidate(Center.X, reached, Center.Z);
  return ExtentOnArc(*this, candidate, reached, std::min(Start.Y, End.Y));
}

double GX3DArc::GetMaxY() const {
  const double reached = Center.Y + Radius();
  const GX3DPoint candidate(Center.X, reached, Center.Z);
  return ExtentOnArc(*this, candidate, reached, std::max(Start.Y, End.Y));
}

double GX3DArc::GetMinZ() const {
  const double reached = Center.Z - Radius();
  const GX3DPoint candidate(Center.X, Center.Y, reached);
  return ExtentOnArc(*this, candidate, reached, std::min(Start.Z, End.Z));
}

double GX3DArc::GetMaxZ() const {
  const double reached = Center.Z + Radius();
  const GX3DPoint candidate(Center.X, Center.Y, reached);
  return ExtentOnArc(*this, candidate, reached, std::max(Start.Z, End.Z));
}

bool GX3DArc::IsActuallyAPoint() { return Center.IsAlmostEq(Start, kLengthTolerance); }
GX3DPoint& GX3DArc::GetStartPoint() { return Start; }
GX3DPoint& GX3DArc::GetEndPoint() { return End; }

double GX3DArc::Radius() const { return GXVector(Center, Start).Len(); }

bool GX3DArc::HasEqualPoint(GX3DLine& other, GX3DPoint& out) {
  return ktrcl_internal::HasEqualEnd(*this, other, out);
}

bool GX3DArc::HasEqualPoint(GX3DArc& other, GX3DPoint& out) {
  return ktrcl_internal::HasEqualEnd(*this, other, out);
}

void GX3DArc::SwapPoints() { std::swap(Start, End); }

bool GX3DArc::IsCircle() const {
  return Start.IsAlmostEq(End, kLengthTolerance) || End.IsAlmostEq(Mid, kLengthTolerance);
}

GXVector GX3DArc::GetNormal() const {
  GXVector normal = GXVector(Center, Start) * GXVector(Center, Mid);
  normal.Standard();
  return normal;
}

GXVector GX3DArc::GetReversedNormal() const {
  GXVector normal = GXVector(Center, Mid) * GXVector(Center, Start);
  normal.Standard();
  return normal;
}
