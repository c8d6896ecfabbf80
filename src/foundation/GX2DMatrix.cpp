// GX2DMatrix: rows first, applied to column vectors from the left.

#include <KTRCL_Geometry/foundation/GXMatrix.h>

#include <KTRCL_DataTypes/GXMath.h>

#include "foundation/Tolerance.h"

#include <cmath>
#include <utility>

namespace {

// Degrees. The arc cosine of a rounded cosine near 1 is off by up to a millionth of a degree, its
// elements may come rounded from a file; a thousandth leaves room for both.
constexpr double kSameTurnTolerance = 0.001;

constexpr double kNoRotation = -999999.9;

// An angle within one turn of the range from -180 to 180 brought into it.
double WithinHalfTurn(double degrees) {
  if (degrees > 180.0) degrees -= 360.0;
  if (degrees < -180.0) degrees += 360.0;
  return degrees;
}

}  // namespace

GX2DMatrix::GX2DMatrix() : E11(0.0), E12(0.0), E21(0.0), E22(0.0) {}

GX2DMatrix::GX2DMatrix(double e11, double e12, double e21, double e22)
    : E11(e11), E12(e12), E21(e21), E22(e22) {}

GX2DMatrix::GX2DMatrix(const GX2DVector& a, const GX2DVector& b) {
  GX2DVector first(a);
  GX2DVector second(b);
  first.GX2DVector::Standard();
  second.GX2DVector::Standard();
  E11 = first.X;
  E12 = first.Y;
  E21 = second.X;
  E22 = second.Y;
}

GX2DMatrix::GX2DMatrix(double angle, bool mirrorOne, bool mirrorTwo) {
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  E11 = mirrorOne ? -cosine : cosine;
  E12 = -sine;
  E21 = sine;
  E22 = mirrorTwo ? -cosine : cosine;
}

GX2DMatrix GX2DMatrix::NoMirror() { return GX2DMatrix(0.0, false, false); }
GX2DMatrix GX2DMatrix::MirrorAroundX() { return GX2DMatrix(0.0, false, true); }
GX2DMatrix GX2DMatrix::MirrorAroundY() { return GX2DMatrix(0.0, true, false); }
GX2DMatrix GX2DMatrix::MirrorBoth() { return GX2DMatrix(0.0, true, true); }

double GX2DMatrix::Deg2Rad(double degrees) { return std::atan(1.0) * degrees / 45.0; }
double GX2DMatrix::Rad2Deg(double radians) { return radians * 45.0 / std::atan(1.0); }

double GX2DMatrix::Get11() const { return E11; }
double GX2DMatrix::Get12() const { return E12; }
double GX2DMatrix::Get21() const { return E21; }
double GX2DMatrix::Get22() const { return E22; }

void GX2DMatrix::Set11(const double& value) { E11 = value; }
void GX2DMatrix::Set12(const double& value) { E12 = value; }
void GX2DMatrix::Set21(const double& value) { E21 = value; }
void GX2DMatrix::Set22(const double& value) { E22 = value; }

GX2DVector GX2DMatrix::MultVector(GX2DVector& v) const { return *this * v; }

GX2DVector GX2DMatrix::operator*(const GX2DVector& v) const {
  return GX2DVector(E11 * v.X + E12 * v.Y, E21 * v.X + E22 * v.Y);
}

GX2DMatrix GX2DMatrix::MultMatrix(GX2DMatrix& other) const { return *this * other; }

GX2DMatrix GX2DMatrix::operator*(const GX2DMatrix& other) const {
  return GX2DMatrix(E11 * other.E11 + E12 * other.E21, E11 * other.E12 + E12 * other.E22,
                    E21 * other.E11 + E22 * other.E21, E21 * other.E12 + E22 * other.E22);
}

bool GX2DMatrix::IsMirrored() const {
  return ktrcl_internal::kMirrorThreshold > std::fabs(E11 + E22);
}

bool GX2DMatrix::Inverse() {
  const double determinant = E11 * E22 - E12 * E21;
  if (determinant < ktrcl_internal::kDeterminantGuard) return false;
  // No division: this is the adjugate, right for rotations, whose determinant is 1.
  std::swap(E11, E22);
  E12 = -E12;
  E21 = -E21;
  return true;
}

// The angle is one of the two that share the cosine E11 and one of the two that share the sine E21;
// where the pairs meet, it is found. A NaN from acos or asin meets nothing.
double GX2DMatrix::GetAngleDegFromMatrix(GX2DMatrix& m) {
  const double byCosine = GXMath::RadToDeg(std::acos(m.E11));
  const double bySine = GXMath::RadToDeg(std::asin(m.E21));
  const double otherByCosine = WithinHalfTurn(-byCosine);
  const double otherBySine = WithinHalfTurn(180.0 - bySine);
  if (GXMath::AlmostEq(byCosine, bySine, kSameTurnTolerance) ||
      GXMath::AlmostEq(byCosine, otherBySine, kSameTurnTolerance)) {
    return byCosine;
  }
  if (GXMath::AlmostEq(otherByCosine, bySine, kSameTurnTolerance) ||
      GXMath::AlmostEq(otherByCosine, otherBySine, kSameTurnTolerance)) {
    return otherByCosine;
  }
  return kNoRotation;
}
