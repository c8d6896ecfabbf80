#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/CommonEnds.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <utility>

namespace {

/// Applies a transform to start, then end. Points, lines and numbers are captured by value, since a
/// host may pass a coordinate or an end of this line, or the line itself as its axis.
template <class Transform>
void ForBothEnds(GX3DLine& line, Transform transform) {
  transform(line.Start);
  transform(line.End);
}

}  // namespace

GX3DLine::GX3DLine() = default;
GX3DLine::GX3DLine(const GX3DLine& other) = default;
GX3DLine::GX3DLine(const GX3DPoint& start, const GX3DPoint& end) : Start(start), End(end) {}
GX3DLine::GX3DLine(const GXVector& start, const GXVector& end) : Start(start), End(end) {}
GX3DLine::GX3DLine(const GX2DLine& line, const int& plane)
    : Start(line.Start, plane), End(line.End, plane) {}
GX3DLine& GX3DLine::operator=(const GX3DLine& other) = default;
GX3DLine::~GX3DLine() = default;

void GX3DLine::Translate(const GXVector& v) {
  ForBothEnds(*this, [&v](GX3DPoint& p) { p.Translate(v); });
}

void GX3DLine::Scale(const double& factor, const int& decimals) {
  ForBothEnds(*this, [factor, decimals](GX3DPoint& p) { p.Scale(factor, decimals); });
}

void GX3DLine::ScaleX(const double& factor, const int& decimals) {
  ForBothEnds(*this, [factor, decimals](GX3DPoint& p) { p.ScaleX(factor, decimals); });
}

void GX3DLine::ScaleY(const double& factor, const int& decimals) {
  ForBothEnds(*this, [factor, decimals](GX3DPoint& p) { p.ScaleY(factor, decimals); });
}

void GX3DLine::ScaleZ(const double& factor, const int& decimals) {
  ForBothEnds(*this, [factor, decimals](GX3DPoint& p) { p.ScaleZ(factor, decimals); });
}

void GX3DLine::MirrorXY() {
  ForBothEnds(*this, [](GX3DPoint& p) { p.MirrorXY(); });
}

void GX3DLine::MirrorYZ() {
  ForBothEnds(*this, [](GX3DPoint& p) { p.MirrorYZ(); });
}

void GX3DLine::MirrorXZ() {
  ForBothEnds(*this, [](GX3DPoint& p) { p.MirrorXZ(); });
}

void GX3DLine::TransformGloLoc(const GX3DPoint& origin, const GXMatrix& m) {
  ForBothEnds(*this, [origin, &m](GX3DPoint& p) { p.TransformGloLoc(origin, m); });
}

void GX3DLine::TransformGloLoc(const GX3DPoint& origin, const GXColBasedTransformMatrix& m) {
  ForBothEnds(*this, [origin, &m](GX3DPoint& p) { p.TransformGloLoc(origin, m); });
}

void GX3DLine::TransformLocGlo(const GX3DPoint& origin, const GXMatrix& m) {
  ForBothEnds(*this, [origin, &m](GX3DPoint& p) { p.TransformLocGlo(origin, m); });
}

void GX3DLine::TransformLocGlo(const GX3DPoint& origin, const GXColBasedTransformMatrix& m) {
  ForBothEnds(*this, [origin, &m](GX3DPoint& p) { p.TransformLocGlo(origin, m); });
}

void GX3DLine::RotateX(const double& radians) {
  ForBothEnds(*this, [radians](GX3DPoint& p) { p.RotateX(radians); });
}

void GX3DLine::RotateY(const double& radians) {
  ForBothEnds(*this, [radians](GX3DPoint& p) { p.RotateY(radians); });
}

void GX3DLine::RotateZ(const double& radians) {
  ForBothEnds(*this, [radians](GX3DPoint& p) { p.RotateZ(radians); });
}

void GX3DLine::RotateAxis(const GX3DLine& axis, const double& radians) {
  ForBothEnds(*this, [axis, radians](GX3DPoint& p) { p.RotateAxis(axis, radians); });
}

void GX3DLine::Rotate(const GXRotation& rotation) {
  ForBothEnds(*this, [&rotation](GX3DPoint& p) { p.Rotate(rotation); });
}

double GX3DLine::GetMinX() const { return std::min(Start.X, End.X); }
double GX3DLine::GetMaxX() const { return std::max(Start.X, End.X); }
double GX3DLine::GetMinY() const { return std::min(Start.Y, End.Y); }
double GX3DLine::GetMaxY() const { return std::max(Start.Y, End.Y); }
double GX3DLine::GetMinZ() const { return std::min(Start.Z, End.Z); }
double GX3DLine::GetMaxZ() const { return std::max(Start.Z, End.Z); }

bool GX3DLine::IsActuallyAPoint() {
  return Start.IsAlmostEq(End, ktrcl_internal::kLengthTolerance);
}

GX3DPoint& GX3DLine::GetStartPoint() { return Start; }
GX3DPoint& GX3DLine::GetEndPoint() { return End; }

GX3DPoint GX3DLine::GetMidPoint() const {
  return GX3DPoint((Start.X + End.X) * 0.5, (Start.Y + End.Y) * 0.5, (Start.Z + End.Z) * 0.5);
}

GX3DPoint GX3DLine::GetPointAtDistance(double d, bool fromStart) const {
  // The vector is not brought to unit length: callers rely on d being a share of the line.
  return fromStart ? Start + GXVector(Start, End) * d : End + GXVector(End, Start) * d;
}

double GX3DLine::Len() const { return GXVector(Start, End).Len(); }

bool GX3DLine::HasEqualPoint(GX3DArc& other, GX3DPoint& out) {
  return ktrcl_internal::HasEqualEnd(*this, other, out);
}

bool GX3DLine::HasEqualPoint(GX3DLine& other, GX3DPoint& out) {
  return ktrcl_internal::HasEqualEnd(*this, other, out);
}

void GX3DLine::SwapPoints() { std::swap(Start, End); }

void GX3DLine::SetStartPoint(const GX3DPoint& p) { Start = p; }
void GX3DLine::SetEndPoint(const GX3DPoint& p) { End = p; }
