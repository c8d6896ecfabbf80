// GXVector. Fields are used directly and own operations called by their full name: a vector is
// never anything else than a GXVector here, and these are the most called operations of the
// library.

#include <KTRCL_Geometry/foundation/GXVector.h>

#include <KTRCL_DataTypes/GXMath.h>

#include <cmath>

GXVector::GXVector() : X(0.0), Y(0.0), Z(0.0) {}

GXVector::GXVector(const double& x, const double& y, const double& z) : X(x), Y(y), Z(z) {}

GXVector::GXVector(const double& x, const double& y) : X(x), Y(y), Z(0.0) {}

GXVector::GXVector(const double* const components) : GXVector() {
  // A literal 0 is a null pointer too: GXVector(0) arrives here.
  if (components == nullptr) return;
  X = components[0];
  Y = components[1];
  Z = components[2];
}

GXVector::GXVector(const GXVector& other) = default;

GXVector::GXVector(const GXVector& from, const GXVector& to)
    : X(to.X - from.X), Y(to.Y - from.Y), Z(to.Z - from.Z) {}

GXVector::GXVector(const GX2DVector& v) : X(v.X), Y(v.Y), Z(0.0) {}

GXVector::~GXVector() = default;

double GXVector::Len() const {
  const double sumOfSquares = X * X + Y * Y + Z * Z;
  return sumOfSquares == 0.0 ? 0.0 : std::sqrt(sumOfSquares);
}

void GXVector::Standard() {
  const double length = GXVector::Len();
  if (length == 0.0) return;
  X /= length;
  Y /= length;
  Z /= length;
}

void GXVector::Reverse() {
  X = -X;
  Y = -Y;
  Z = -Z;
}

GXVector GXVector::GetReversed() const { return GXVector(-X, -Y, -Z); }

void GXVector::PerpendicalXY() {
  const double x = X;
  X = -Y;
  Y = x;
}

GXVector GXVector::GetPerpendicalXY() const { return GXVector(-Y, X, Z); }

void GXVector::PerpendicalYZ() {
  const double y = Y;
  Y = -Z;
  Z = y;
}

GXVector GXVector::GetPerpendicalYZ() const { return GXVector(X, -Z, Y); }

// The two XZ forms differ on purpose: hosts rely on each of them.
void GXVector::PerpendicalXZ() {
  const double x = X;
  X = -Z;
  Z = x;
}

GXVector GXVector::GetPerpendicalXZ() const { return GXVector(Z, -Y, X); }

GXVector GXVector::Add(GXVector& other) const {
  return GXVector(X + other.X, Y + other.Y, Z + other.Z);
}

GXVector GXVector::operator-() const { return GXVector(-X, -Y, -Z); }

GXVector GXVector::operator-(const GXVector& other) const {
  return GXVector(X - other.X, Y - other.Y, Z - other.Z);
}

GXVector GXVector::operator+(const GXVector& other) const {
  return GXVector(X + other.X, Y + other.Y, Z + other.Z);
}

GXVector GXVector::operator*(double factor) const {
  return GXVector(X * factor, Y * factor, Z * factor);
}

GXVector GXVector::operator*(const GXVector& other) const {
  return GXVector(Y * other.Z - other.Y * Z, other.X * Z - X * other.Z, X * other.Y - other.X * Y);
}

GXVector& GXVector::operator=(const GXVector& other) = default;

bool GXVector::operator==(const GXVector& other) const {
  return X == other.X && Y == other.Y && Z == other.Z;
}

// Through the table, so that a host's class which redefines equality keeps the two in step.
bool GXVector::operator!=(const GXVector& other) const { return !(*this == other); }

// The order of the terms decides the last bit and is fixed.
double GXVector::dot(const GXVector& other) const {
  return Y * other.Y + X * other.X + Z * other.Z;
}

GXVector GXVector::Mid(const GXVector& other) const {
  return GXVector((X + other.X) * 0.5, (Y + other.Y) * 0.5, (Z + other.Z) * 0.5);
}

void GXVector::AsDbl(double& x, double& y, double& z) const {
  x = X;
  y = Y;
  z = Z;
}

void GXVector::AsDbl(double* const components) const {
  if (components == nullptr) return;
  components[0] = X;
  components[1] = Y;
  components[2] = Z;
}

bool GXVector::IsAlmostEq(const GXVector& other, const double& tol) const {
  return GXMath::AlmostEq(X, other.X, tol) && GXMath::AlmostEq(Y, other.Y, tol) &&
         GXMath::AlmostEq(Z, other.Z, tol);
}

void GXVector::RoundToDec(const int& decimals) {
  X = GXMath::RoundToDec(X, decimals);
  Y = GXMath::RoundToDec(Y, decimals);
  Z = GXMath::RoundToDec(Z, decimals);
}

double GXVector::GetX() const { return X; }
double GXVector::GetY() const { return Y; }
double GXVector::GetZ() const { return Z; }

void GXVector::SetX(const double& x) { X = x; }
void GXVector::SetY(const double& y) { Y = y; }
void GXVector::SetZ(const double& z) { Z = z; }

void GXVector::SetVector(double x, double y, double z) {
  X = x;
  Y = y;
  Z = z;
}

double GXVector::GetAngleRad(const GXVector& other, bool signedAngle, GXVector& reference) const {
  const double lengths = other.GXVector::Len() * GXVector::Len();
  if (lengths == 0.0) return 0.0;
  // Everything is taken from both vectors before `reference` changes, which may be one of them.
  const double angle = std::acos(GXVector::dot(other) / lengths);
  GXVector normal = GXVector::operator*(other);
  normal.GXVector::Standard();
  reference.GXVector::Standard();
  const bool opposed =
      normal.X == -reference.X && normal.Y == -reference.Y && normal.Z == -reference.Z;
  if (!opposed) return angle;
  return signedAngle ? -angle : angle + 4.0 * std::atan(1.0);
}
