#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/PlaneSelector.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <cmath>
#include <utility>

using ktrcl_internal::kLeftOutZ;
using ktrcl_internal::kLengthTolerance;

namespace {

/// Applies a transform to all four points. Its arguments are captured by value, since a host may
/// pass a coordinate or a point of this very arc.
template <class Transform>
void ForAllPoints(GX2DArc& arc, Transform transform) {
  transform(arc.Start);
  transform(arc.Mid);
  transform(arc.End);
  transform(arc.Center);
}

double SquareDistance(const GX2DPoint& a, const GX2DPoint& b) {
  const double dx = b.X - a.X;
  const double dy = b.Y - a.Y;
  return dx * dx + dy * dy;
}

/// Point at `radius` from the centre on the ray through `p`, found on the line x = slope * y.
GX2DPoint PointOnRay(const GX2DPoint& center, const GX2DPoint& p, double radius) {
  const GXVector e(center, p);
  const double slope = e.X / e.Y;
  const double stretch = std::sqrt(slope * slope + 1.0);
  // Beside y = 0 there are the rays so flat that the square of the slope overflows; the formula
  // below would put their point on the centre.
  if (e.Y == 0.0 || std::isinf(stretch)) {
    return GX2DPoint(e.X > 0.0 ? center.X + radius : center.X - radius, center.Y);
  }
  const GXVector offset(slope * radius / stretch, radius / stretch);
  return offset.dot(e) > 0.0 ? center + offset : center - offset;
}

void BringOntoCircle(const GX2DPoint& center, double radius, GX2DPoint& p) {
  if (std::fabs(radius - GXVector(center, p).Len()) >= kLengthTolerance) {
    p = PointOnRay(center, p, radius);
  }
}

/// The extreme point of the whole circle where the arc reaches it; else the given end coordinate.
double ExtentOnArc(const GX2DArc& arc, const GX2DPoint& candidate, double reached, double ends) {
  return GXGeometry::Point2DOnArc(arc, candidate) ? reached : ends;
}

}  // namespace

GX2DArc::GX2DArc() = default;
GX2DArc::GX2DArc(const GX2DArc& other) = default;
GX2DArc::GX2DArc(const GX2DPoint& center, const GX2DPoint& start, const GX2DPoint& mid,
                 const GX2DPoint& end)
    : Start(start), Mid(mid), End(end), Center(center) {}
GX2DArc::GX2DArc(const GX2DPoint& center, const GX2DPoint& start, const GX2DPoint& end,
                 bool clockwise)
    : Start(start), Mid(CreateMidPoint(center, start, end, clockwise)), End(end), Center(center) {}
GX2DArc::GX2DArc(const GX3DArc& arc, const int& plane)
    : Start(arc.Start, plane),
      Mid(arc.Mid, plane),
      End(arc.End, plane),
      Center(arc.Center, plane) {}
GX2DArc& GX2DArc::operator=(const GX2DArc& other) = default;
GX2DArc::~GX2DArc() = default;

GX2DArc* GX2DArc::Clone() const { return new GX2DArc(*this); }

bool GX2DArc::Accept(GX2DElementVisitor& visitor) { return visitor.Visit(*this); }

void GX2DArc::Translate(const double& dx, const double& dy) {
  ForAllPoints(*this, [dx, dy](GX2DPoint& p) { p.Translate(dx, dy); });
}

void GX2DArc::RotateAxis(const GX2DPoint& centre, const double& degrees) {
  ForAllPoints(*this, [centre, degrees](GX2DPoint& p) { p.RotateAxis(centre, degrees); });
}

void GX2DArc::Scale(const double& factor, const int& decimals) {
  ForAllPoints(*this, [factor, decimals](GX2DPoint& p) { p.Scale(factor, decimals); });
}

void GX2DArc::ScaleX(const double& factor, const int& decimals) {
  ForAllPoints(*this, [factor, decimals](GX2DPoint& p) { p.ScaleX(factor, decimals); });
}

void GX2DArc::ScaleY(const double& factor, const int& decimals) {
  ForAllPoints(*this, [factor, decimals](GX2DPoint& p) { p.ScaleY(factor, decimals); });
}

void GX2DArc::MirrorX() {
  ForAllPoints(*this, [](GX2DPoint& p) { p.MirrorX(); });
}

void GX2DArc::MirrorY() {
  ForAllPoints(*this, [](GX2DPoint& p) { p.MirrorY(); });
}

void GX2DArc::Reverse() {
  if (IsCircle()) return;
  const bool wasClockwise = IsClockwise();
  std::swap(Start, End);
  const GXVector radial(Center, Start);
  const GXVector quarterTurn = radial.GetPerpendicalXY();
  Mid = wasClockwise ? Center + quarterTurn : Center - quarterTurn;
  // A mid on the end would make a circle of a quarter arc; half-way back it only shows the side.
  if (IsCircle()) Mid = Center + (radial + GXVector(Center, Mid)) * 0.5;
}

double GX2DArc::Len() const {
  const GX3DArc spatial(*this, kLeftOutZ);
  return std::fabs(Radius() * GXGeometry::GetArcAngleRad(spatial));
}

bool GX2DArc::GetParametricPoint(GX2DPoint& out, const double& t) const {
  return GXGeometry::GetParametricPointOn2DArc(out, t, *this);
}

double GX2DArc::GetMinX() const {
  const double reached = Center.X - Radius();
  return ExtentOnArc(*this, GX2DPoint(reached, Center.Y), reached, std::min(Start.X, End.X));
}

double GX2DArc::GetMaxX() const {
  const double reached = Center.X + Radius();
  return ExtentOnArc(*this, GX2DPoint(reached, Center.Y), reached, std::max(Start.X, End.X));
}

double GX2DArc::GetMinY() const {
  const double reached = Center.Y - Radius();
  return ExtentOnArc(*this, GX2DPoint(Center.X, reached), reached, std::min(Start.Y, End.Y));
}

double GX2DArc::GetMaxY() const {
  const double reached = Center.Y + Radius();
  return ExtentOnArc(*this, GX2DPoint(Center.X, reached), reached, std::max(Start.Y, End.Y));
}

GX2DPoint& GX2DArc::GetStartPoint() { return Start; }
GX2DPoint& GX2DArc::GetEndPoint() { return End; }

bool GX2DArc::IsAlmostEq(const GX2DArc& other, const double& tol) const {
  return Start.IsAlmostEq(other.Start, tol) && End.IsAlmostEq(other.End, tol) &&
         Center.IsAlmostEq(other.Center, tol) && Mid.IsAlmostEq(other.Mid, tol);
}

double GX2DArc::Radius() const { return GXVector(Center, Start).Len(); }

bool GX2DArc::Normalize() {
  if (SquareDistance(Center, End) == 0.0 || SquareDistance(Center, Mid) == 0.0) return false;
  const double radius = Radius();
  BringOntoCircle(Center, radius, End);
  BringOntoCircle(Center, radius, Mid);
  return true;
}

bool GX2DArc::IsClockwise() const {
  const GXVector toStart(Center, Start);
  const GXVector toMid(Center, Mid);
  return (toStart * toMid).Z < 0.0;
}

bool GX2DArc::IsCW() const { return IsClockwise(); }
bool GX2DArc::IsCounterClockwise() const { return !IsClockwise(); }
bool GX2DArc::IsCCW() const { return IsCounterClockwise(); }

bool GX2DArc::IsCircle() const {
  return Start.IsAlmostEq(End, kLengthTolerance) || End.IsAlmostEq(Mid, kLengthTolerance);
}

void GX2DArc::SetClockWise() { Mid = CreateMidPoint(Center, Start, End, true); }
void GX2DArc::SetCounterClockWise() { Mid = CreateMidPoint(Center, Start, End, false); }
void GX2DArc::SwapPoints() { std::swap(Start, End); }

GX2DPoint GX2DArc::CreateMidPoint(const GX2DPoint& center, const GX2DPoint& start,
                                  const GX2DPoint& end, bool clockwise) {
  // Largest component of the cross product (an area) at which two radii count as parallel.
  constexpr double kParallelTolerance = 0.0001;
  const GXVector toStart(center, start);
  const GXVector toEnd(center, end);
  const GXVector normal = toStart * toEnd;
  GXVector direction;
  if (normal.IsAlmostEq(GXVector(), kParallelTolerance)) {
    direction = GXVector(0.0, 0.0, 1.0) * toStart;
    if (clockwise) direction.Reverse();
  } else {
    direction = toStart + toEnd;
    const bool longerWay = clockwise ? normal.Z > 0.0 : normal.Z < 0.0;
    if (longerWay) direction.Reverse();
  }
  direction.Standard();
  return GX2DPoint(GXVector(center) + direction * (toStart.Len() * 0.5), kLeftOutZ);
}
