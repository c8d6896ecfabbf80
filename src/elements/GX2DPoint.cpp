#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/PlaneSelector.h"
#include "elements/ScaledCoordinate.h"

using ktrcl_internal::kLeftOutX;
using ktrcl_internal::kLeftOutY;
using ktrcl_internal::ScaleCoordinate;

namespace {

/// First coordinate in the plane that leaves one axis out. Where that is X, Z comes in its place
/// and Y stays the second one.
template <class Spatial>
double FirstInPlane(const Spatial& p, int plane) {
  return plane == kLeftOutX ? p.Z : p.X;
}

template <class Spatial>
double SecondInPlane(const Spatial& p, int plane) {
  return plane == kLeftOutY ? p.Z : p.Y;
}

}  // namespace

GX2DPoint::GX2DPoint() : X(0.0), Y(0.0) {}
GX2DPoint::GX2DPoint(const double& x, const double& y) : X(x), Y(y) {}
GX2DPoint::GX2DPoint(const GX2DPoint& other) = default;
GX2DPoint::GX2DPoint(const GX2DVector& v) : X(v.X), Y(v.Y) {}
GX2DPoint::GX2DPoint(const double* const coordinates) : GX2DPoint() {
  // A literal 0 is a null pointer too: GX2DPoint(0) arrives here.
  if (coordinates == nullptr) return;
  X = coordinates[0];
  Y = coordinates[1];
}
GX2DPoint::GX2DPoint(const GX3DPoint& p, const int& plane)
    : X(FirstInPlane(p, plane)), Y(SecondInPlane(p, plane)) {}
GX2DPoint::GX2DPoint(const GXVector& v, const int& plane)
    : X(FirstInPlane(v, plane)), Y(SecondInPlane(v, plane)) {}
GX2DPoint& GX2DPoint::operator=(const GX2DPoint& other) = default;
GX2DPoint::~GX2DPoint() = default;

GX2DPoint* GX2DPoint::Clone() const { return new GX2DPoint(*this); }

bool GX2DPoint::Accept(GX2DElementVisitor& visitor) { return visitor.Visit(*this); }

void GX2DPoint::Translate(const double& dx, const double& dy) {
  // Both are read before either coordinate changes: a host may pass this point's own fields.
  const double x = X + dx;
  const double y = Y + dy;
  X = x;
  Y = y;
}

void GX2DPoint::RotateAxis(const GX2DPoint& centre, const double& degrees) {
  GXGeometry::Rotate2DPoint(*this, centre, degrees);
}

void GX2DPoint::Scale(const double& factor, const int& decimals) {
  const double sameFactor = factor;
  ScaleCoordinate(X, sameFactor, decimals);
  ScaleCoordinate(Y, sameFactor, decimals);
}

void GX2DPoint::ScaleX(const double& factor, const int& decimals) {
  ScaleCoordinate(X, factor, decimals);
}

void GX2DPoint::ScaleY(const double& factor, const int& decimals) {
  ScaleCoordinate(Y, factor, decimals);
}

void GX2DPoint::MirrorX() { X = -X; }
void GX2DPoint::MirrorY() { Y = -Y; }
void GX2DPoint::Reverse() {}
double GX2DPoint::Len() const { return 0.0; }

bool GX2DPoint::GetParametricPoint(GX2DPoint& out, const double&) const {
  out = *this;
  return true;
}

double GX2DPoint::GetMinX() const { return X; }
double GX2DPoint::GetMaxX() const { return X; }
double GX2DPoint::GetMinY() const { return Y; }
double GX2DPoint::GetMaxY() const { return Y; }
GX2DPoint& GX2DPoint::GetStartPoint() { return *this; }
GX2DPoint& GX2DPoint::GetEndPoint() { return *this; }

bool GX2DPoint::IsAlmostEq(const GX2DPoint& other, const double& tol) const {
  return GXMath::AlmostEq(X, other.X, tol) && GXMath::AlmostEq(Y, other.Y, tol);
}

bool GX2DPoint::operator==(const GX2DPoint& other) const { return X == other.X && Y == other.Y; }
bool GX2DPoint::operator!=(const GX2DPoint& other) const { return X != other.X || Y != other.Y; }

GX2DPoint GX2DPoint::operator+(const GXVector& v) const { return GX2DPoint(X + v.X, Y + v.Y); }
GX2DPoint GX2DPoint::operator-(const GXVector& v) const { return GX2DPoint(X - v.X, Y - v.Y); }
