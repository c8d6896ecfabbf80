#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/PlaneSelector.h"
#include "elements/ScaledCoordinate.h"

using ktrcl_internal::kLeftOutX;
using ktrcl_internal::kLeftOutY;
using ktrcl_internal::ScaleCoordinate;

namespace {

/// The point turned about the line from the origin to `axisEnd`.
GX3DPoint TurnedAbout(const GX3DPoint& axisEnd, double radians, const GX3DPoint& p) {
  GX3DPoint turned(p);
  GXGeometry::Rotate3DPoint(GX3DLine(GX3DPoint(), axisEnd), radians, p, turned);
  return turned;
}

/// Scalar products with the three base vectors.
GXVector InFrame(const GXColBasedTransformMatrix& m, const GXVector& v) {
  return GXVector(m.Base[0].dot(v), m.Base[1].dot(v), m.Base[2].dot(v));
}

}  // namespace

GX3DPoint::GX3DPoint() : X(0.0), Y(0.0), Z(0.0) {}
GX3DPoint::GX3DPoint(const double& x, const double& y, const double& z) : X(x), Y(y), Z(z) {}
GX3DPoint::GX3DPoint(const GX3DPoint& other) = default;
GX3DPoint::GX3DPoint(const GXVector& v) : X(v.X), Y(v.Y), Z(v.Z) {}
GX3DPoint::GX3DPoint(const double* const coordinates) : GX3DPoint() {
  // A literal 0 is a null pointer too: GX3DPoint(0) arrives here.
  if (coordinates == nullptr) return;
  X = coordinates[0];
  Y = coordinates[1];
  Z = coordinates[2];
}

GX3DPoint::GX3DPoint(const GX2DPoint& p, const int& plane) : X(p.X), Y(p.Y), Z(0.0) {
  if (plane == kLeftOutX) {
    X = 0.0;
    Z = p.X;
  } else if (plane == kLeftOutY) {
    Y = 0.0;
    Z = p.Y;
  }
}

GX3DPoint::~GX3DPoint() = default;

void GX3DPoint::Translate(const GXVector& v) {
  X += v.X;
  Y += v.Y;
  Z += v.Z;
}

void GX3DPoint::Scale(const double& factor, const int& decimals) {
  // Copied first: a host may pass one of this point's own coordinates.
  const double sameFactor = factor;
  ScaleCoordinate(X, sameFactor, decimals);
  ScaleCoordinate(Y, sameFactor, decimals);
  ScaleCoordinate(Z, sameFactor, decimals);
}

void GX3DPoint::ScaleX(const double& factor, const int& decimals) {
  ScaleCoordinate(X, factor, decimals);
}

void GX3DPoint::ScaleY(const double& factor, const int& decimals) {
  ScaleCoordinate(Y, factor, decimals);
}

void GX3DPoint::ScaleZ(const double& factor, const int& decimals) {
  ScaleCoordinate(Z, factor, decimals);
}

void GX3DPoint::MirrorXY() { Z = -Z; }
void GX3DPoint::MirrorYZ() { X = -X; }
void GX3DPoint::MirrorXZ() { Y = -Y; }

// In the four transforms the origin may be this very point: nothing is written before it was read.

void GX3DPoint::TransformGloLoc(const GX3DPoint& origin, const GXMatrix& m) {
  *this = m * GXVector(origin, *this);
}

void GX3DPoint::TransformGloLoc(const GX3DPoint& origin, const GXColBasedTransformMatrix& m) {
  *this = InFrame(m, GXVector(origin, *this));
}

void GX3DPoint::TransformLocGlo(const GX3DPoint& origin, const GXMatrix& m) {
  *this = m * GXVector(*this) + GXVector(origin);
}

void GX3DPoint::TransformLocGlo(const GX3DPoint& origin, const GXColBasedTransformMatrix& m) {
  *this = InFrame(m, GXVector(*this)) + GXVector(origin);
}

// The coordinate along the axis is left alone, so that turning adds no rounding to it.

void GX3DPoint::RotateX(const double& radians) {
  const GX3DPoint turned = TurnedAbout(GX3DPoint(1.0, 0.0, 0.0), radians, *this);
  Y = turned.Y;
  Z = turned.Z;
}

void GX3DPoint::RotateY(const double& radians) {
  const GX3DPoint turned = TurnedAbout(GX3DPoint(0.0, 1.0, 0.0), radians, *this);
  X = turned.X;
  Z = turned.Z;
}

void GX3DPoint::RotateZ(const double& radians) {
  const GX3DPoint turned = TurnedAbout(GX3DPoint(0.0, 0.0, 1.0), radians, *this);
  X = turned.X;
  Y = turned.Y;
}

void GX3DPoint::RotateAxis(const GX3DLine& axis, const double& radians) {
  GXGeometry::Rotate3DPoint(axis, radians, *this, *this);
}

void GX3DPoint::Rotate(const GXRotation& rotation) { *this = rotation * GXVector(*this); }

double GX3DPoint::GetMinX() const { return X; }
double GX3DPoint::GetMaxX() const { return X; }
double GX3DPoint::GetMinY() const { return Y; }
double GX3DPoint::GetMaxY() const { return Y; }
double GX3DPoint::GetMinZ() const { return Z; }
double GX3DPoint::GetMaxZ() const { return Z; }
bool GX3DPoint::IsActuallyAPoint() { return true; }
GX3DPoint& GX3DPoint::GetStartPoint() { return *this; }
GX3DPoint& GX3DPoint::GetEndPoint() { return *this; }

void GX3DPoint::SetPoint(const GX3DPoint& p) {
  X = p.X;
  Y = p.Y;
  Z = p.Z;
}

double GX3DPoint::GetIValue(const int& index) const {
  if (index == 1) return Y;
  if (index == 2) return Z;
  return X;
}

void GX3DPoint::SetIValue(const int& index, const double& value) {
  if (index == 0) X = value;
  if (index == 1) Y = value;
  if (index == 2) Z = value;
}

void GX3DPoint::AsDbl(double& x, double& y, double& z) const {
  x = X;
  y = Y;
  z = Z;
}

void GX3DPoint::AsDbl(double* const coordinates) const {
  if (coordinates == nullptr) return;
  coordinates[0] = X;
  coordinates[1] = Y;
  coordinates[2] = Z;
}

bool GX3DPoint::IsAlmostEq(const GX3DPoint& other, const double& tol) const {
  return GXMath::AlmostEq(X, other.X, tol) && GXMath::AlmostEq(Y, other.Y, tol) &&
         GXMath::AlmostEq(Z, other.Z, tol);
}

bool GX3DPoint::operator==(const GX3DPoint& other) const {
  return X == other.X && Y == other.Y && Z == other.Z;
}

bool GX3DPoint::operator!=(const GX3DPoint& other) const {
  return X != other.X || Y != other.Y || Z != other.Z;
}

bool GX3DPoint::operator=(const GX2DPoint& p) {
  X = p.X;
  Y = p.Y;
  Z = 0.0;
  return true;
}

GX3DPoint& GX3DPoint::operator=(const GX3DPoint& p) {
  SetPoint(p);
  return *this;
}

bool GX3DPoint::operator=(const GXVector& v) {
  X = v.X;
  Y = v.Y;
  Z = v.Z;
  return true;
}

GX3DPoint GX3DPoint::operator+(const GXVector& v) const {
  return GX3DPoint(X + v.X, Y + v.Y, Z + v.Z);
}

GX3DPoint GX3DPoint::operator-(const GXVector& v) const {
  return GX3DPoint(X - v.X, Y - v.Y, Z - v.Z);
}

bool GX3DPoint::operator<(const GX3DPoint& other) const {
  if (X != other.X) return X < other.X;
  if (Y != other.Y) return Y < other.Y;
  return Z < other.Z;
}

bool GX3DPoint::operator>(const GX3DPoint& other) const { return !(*this < other); }
