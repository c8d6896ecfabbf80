#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// Applies a transform to both corners. Its arguments are captured by value, since a host may pass
/// a coordinate of this very rectangle.
template <class Transform>
void ForBothCorners(GX2DRectangle& rectangle, Transform transform) {
  transform(rectangle.Corner1);
  transform(rectangle.Corner2);
}

}  // namespace

GX2DRectangle::GX2DRectangle() = default;
GX2DRectangle::GX2DRectangle(const double& x1, const double& y1, const double& x2, const double& y2)
    : Corner1(x1, y1), Corner2(x2, y2) {}
GX2DRectangle::GX2DRectangle(const GX2DRectangle& other) = default;
GX2DRectangle::GX2DRectangle(const GX2DPoint& corner1, const GX2DPoint& corner2)
    : Corner1(corner1), Corner2(corner2) {}
GX2DRectangle& GX2DRectangle::operator=(const GX2DRectangle& other) = default;
GX2DRectangle::~GX2DRectangle() = default;

GX2DRectangle* GX2DRectangle::Clone() const { return new GX2DRectangle(*this); }

bool GX2DRectangle::Accept(GX2DElementVisitor& visitor) { return visitor.Visit(*this); }

void GX2DRectangle::Translate(const double& dx, const double& dy) {
  ForBothCorners(*this, [dx, dy](GX2DPoint& p) { p.Translate(dx, dy); });
}

// A turned rectangle would no longer be parallel to the axes.
void GX2DRectangle::RotateAxis(const GX2DPoint&, const double&) {}

void GX2DRectangle::Scale(const double& factor, const int& decimals) {
  ForBothCorners(*this, [factor, decimals](GX2DPoint& p) { p.Scale(factor, decimals); });
}

void GX2DRectangle::ScaleX(const double& factor, const int& decimals) {
  ForBothCorners(*this, [factor, decimals](GX2DPoint& p) { p.ScaleX(factor, decimals); });
}

void GX2DRectangle::ScaleY(const double& factor, const int& decimals) {
  ForBothCorners(*this, [factor, decimals](GX2DPoint& p) { p.ScaleY(factor, decimals); });
}

void GX2DRectangle::MirrorX() {
  ForBothCorners(*this, [](GX2DPoint& p) { p.MirrorX(); });
}

void GX2DRectangle::MirrorY() {
  ForBothCorners(*this, [](GX2DPoint& p) { p.MirrorY(); });
}

void GX2DRectangle::Reverse() {}

double GX2DRectangle::Len() const { return 2.0 * GetWidth() + 2.0 * GetHeight(); }

bool GX2DRectangle::GetParametricPoint(GX2DPoint&, const double&) const { return false; }

double GX2DRectangle::GetMinX() const { return std::min(Corner1.X, Corner2.X); }
double GX2DRectangle::GetMaxX() const { return std::max(Corner1.X, Corner2.X); }
double GX2DRectangle::GetMinY() const { return std::min(Corner1.Y, Corner2.Y); }
double GX2DRectangle::GetMaxY() const { return std::max(Corner1.Y, Corner2.Y); }
GX2DPoint& GX2DRectangle::GetStartPoint() { return Corner1; }
GX2DPoint& GX2DRectangle::GetEndPoint() { return Corner2; }

void GX2DRectangle::Normalize() {
  const GX2DPoint smallest(GetMinX(), GetMinY());
  const GX2DPoint largest(GetMaxX(), GetMaxY());
  Corner1 = smallest;
  Corner2 = largest;
}

void GX2DRectangle::SwapPoints() { std::swap(Corner1, Corner2); }

double GX2DRectangle::GetWidth() const { return std::fabs(Corner2.X - Corner1.X); }
double GX2DRectangle::GetHeight() const { return std::fabs(Corner2.Y - Corner1.Y); }
double GX2DRectangle::GetArea() const { return GetWidth() * GetHeight(); }
