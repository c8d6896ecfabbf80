// GX2DVector. As in GXVector, fields are used directly.

#include <KTRCL_Geometry/foundation/GXVector.h>

#include <KTRCL_DataTypes/GXMath.h>

#include <cmath>

GX2DVector::GX2DVector() : X(0.0), Y(0.0) {}

GX2DVector::GX2DVector(const double& x, const double& y) : X(x), Y(y) {}

GX2DVector::GX2DVector(const GX2DVector& other) = default;

GX2DVector::GX2DVector(const GX2DVector& from, const GX2DVector& to)
    : X(to.X - from.X), Y(to.Y - from.Y) {}

GX2DVector::GX2DVector(double x1, double y1, double x2, double y2) : X(x2 - x1), Y(y2 - y1) {}

GX2DVector::~GX2DVector() = default;

double GX2DVector::Len() const {
  const double sumOfSquares = X * X + Y * Y;
  return sumOfSquares == 0.0 ? 0.0 : std::sqrt(sumOfSquares);
}

void GX2DVector::Standard() {
  const double length = GX2DVector::Len();
  if (length == 0.0) return;
  X /= length;
  Y /= length;
}

void GX2DVector::Reverse() {
  X = -X;
  Y = -Y;
}

GX2DVector GX2DVector::GetReversed() const { return GX2DVector(-X, -Y); }

GX2DVector GX2DVector::GetPerpendicular() const { return GX2DVector(-Y, X); }

GX2DVector GX2DVector::Add(GX2DVector& other) const { return GX2DVector(X + other.X, Y + other.Y); }

GX2DVector GX2DVector::operator-() const { return GX2DVector(-X, -Y); }

GX2DVector GX2DVector::operator-(const GX2DVector& other) const {
  return GX2DVector(X - other.X, Y - other.Y);
}

GX2DVector GX2DVector::operator+(const GX2DVector& other) const {
  return GX2DVector(X + other.X, Y + other.Y);
}

GX2DVector& GX2DVector::operator=(const GX2DVector& other) = default;

bool GX2DVector::operator==(const GX2DVector& other) const { return X == other.X && Y == other.Y; }

// Through the table, so that a host's class which redefines equality keeps the two in step.
bool GX2DVector::operator!=(const GX2DVector& other) const { return !(*this == other); }

double GX2DVector::dot(const GX2DVector& other) const { return X * other.X + Y * other.Y; }

GX2DVector GX2DVector::Mid(const GX2DVector& other) const {
  return GX2DVector((X + other.X) * 0.5, (Y + other.Y) * 0.5);
}

GX2DVector GX2DVector::operator*(double factor) const { return GX2DVector(X * factor, Y * factor); }

bool GX2DVector::IsAlmostEq(const GX2DVector& other, const double& tol) const {
  return GXMath::AlmostEq(X, other.X, tol) && GXMath::AlmostEq(Y, other.Y, tol);
}

double GX2DVector::GetX() const { return X; }
double GX2DVector::GetY() const { return Y; }

void GX2DVector::SetX(const double& x) { X = x; }
void GX2DVector::SetY(const double& y) { Y = y; }

void GX2DVector::SetVector(double x, double y) {
  X = x;
  Y = y;
}

double GX2DVector::GetAngleRad(const GX2DVector& other, bool signedAngle) const {
  // X stands first in atan2: the angles are bearings from the positive Y axis, clockwise.
  const double otherBearing = std::atan2(other.X, other.Y);
  const double ownBearing = std::atan2(X, Y);
  const double turn = otherBearing - ownBearing;
  if (turn < 0.0 && !signedAngle) return ownBearing - otherBearing;
  return turn;
}
