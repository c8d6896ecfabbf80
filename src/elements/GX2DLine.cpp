#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// Applies a transform to both ends. Its arguments are captured by value, since a host may pass a
/// coordinate or an end of this very line.
template <class Transform>
void ForBothEnds(GX2DLine& line, Transform transform) {
  transform(line.Start);
  transform(line.End);
}

}  // namespace

GX2DLine::GX2DLine() = default;
GX2DLine::GX2DLine(const double& x1, const double& y1, const double& x2, const double& y2)
    : Start(x1, y1), End(x2, y2) {}
GX2DLine::GX2DLine(const GX2DLine& other) = default;
GX2DLine::GX2DLine(const GX2DPoint& start, const GX2DPoint& end) : Start(start), End(end) {}
GX2DLine::GX2DLine(const GX3DLine& line, const int& plane)
    : Start(line.Start, plane), End(line.End, plane) {}
GX2DLine& GX2DLine::operator=(const GX2DLine& other) = default;
GX2DLine::~GX2DLine() = default;

GX2DLine* GX2DLine::Clone() const { return new GX2DLine(*this); }

bool GX2DLine::Accept(GX2DElementVisitor& visitor) { return visitor.Visit(*this); }

void GX2DLine::Translate(const double& dx, const double& dy) {
  ForBothEnds(*this, [dx, dy](GX2DPoint& p) { p.Translate(dx, dy); });
}

void GX2DLine::RotateAxis(const GX2DPoint& centre, const double& degrees) {
  ForBothEnds(*this, [centre, degrees](GX2DPoint& p) { p.RotateAxis(centre, degrees); });
}

void GX2DLine::Scale(const double& factor, const int& decimals) {
  ForBothEnds(*this, [factor, decimals](GX2DPoint& p) { p.Scale(factor, decimals); });
}

void GX2DLine::ScaleX(const double& factor, const int& decimals) {
  ForBothEnds(*this, [factor, decimals](GX2DPoint& p) { p.ScaleX(factor, decimals); });
}

void GX2DLine::ScaleY(const double& factor, const int& decimals) {
  ForBothEnds(*this, [factor, decimals](GX2DPoint& p) { p.ScaleY(factor, decimals); });
}

void GX2DLine::MirrorX() {
  ForBothEnds(*this, [](GX2DPoint& p) { p.MirrorX(); });
}

void GX2DLine::MirrorY() {
  ForBothEnds(*this, [](GX2DPoint& p) { p.MirrorY(); });
}

void GX2DLine::Reverse() { std::swap(Start, End); }

double GX2DLine::Len() const { return std::sqrt(GX2DLine::SquareLen()); }

bool GX2DLine::GetParametricPoint(GX2DPoint& out, const double& t) const {
  return GXGeometry::GetParametricPointOn2DLine(out, t, *this);
}

double GX2DLine::GetMinX() const { return std::min(Start.X, End.X); }
double GX2DLine::GetMaxX() const { return std::max(Start.X, End.X); }
double GX2DLine::GetMinY() const { return std::min(Start.Y, End.Y); }
double GX2DLine::GetMaxY() const { return std::max(Start.Y, End.Y); }
GX2DPoint& GX2DLine::GetStartPoint() { return Start; }
GX2DPoint& GX2DLine::GetEndPoint() { return End; }

bool GX2DLine::IsAlmostEq(const GX2DLine& other, bool sameDirection, const double& tol) const {
  if (Start.IsAlmostEq(other.Start, tol) && End.IsAlmostEq(other.End, tol)) return true;
  if (sameDirection) return false;
  return Start.IsAlmostEq(other.End, tol) && End.IsAlmostEq(other.Start, tol);
}

void GX2DLine::SwapPoints() { std::swap(Start, End); }

double GX2DLine::SquareLen() const {
  const double dx = End.X - Start.X;
  const double dy = End.Y - Start.Y;
  return dx * dx + dy * dy;
}

void GX2DLine::SetStartPoint(const GX2DPoint& p) { Start = p; }
void GX2DLine::SetEndPoint(const GX2DPoint& p) { End = p; }

GX2DPoint GX2DLine::GetMidPoint() const {
  return GX2DPoint((Start.X + End.X) * 0.5, (Start.Y + End.Y) * 0.5);
}

GXVector GX2DLine::GetPerpendicular() const { return GXVector(Start, End).GetPerpendicalXY(); }

GX2DPoint GX2DLine::GetPointAtDistance(double d, bool fromStart) const {
  // The vector is not brought to unit length: callers rely on d being a share of the line.
  return fromStart ? Start + GXVector(Start, End) * d : End + GXVector(End, Start) * d;
}
