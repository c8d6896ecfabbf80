// GXMatrix: rows as base vectors, applied to column vectors from the left.

#include <KTRCL_Geometry/foundation/GXMatrix.h>

#include <KTRCL_DataTypes/GXMath.h>

#include "foundation/CofactorInverse.h"
#include "foundation/Tolerance.h"

#include <cmath>
#include <utility>

namespace {

// Elements of two matrices are the same within this; one part in ten thousand of a unit vector.
constexpr double kSameElementTolerance = 0.0001;

// An element stands for 0 or 1 within this when a matrix is asked whether it is zero or identity.
constexpr double kPlainElementTolerance = 0.00001;

constexpr double GXVector::*kComponents[3] = {&GXVector::X, &GXVector::Y, &GXVector::Z};

bool IsIndex(int index) { return index >= 0 && index <= 2; }

bool IsZero(double element) { return GXMath::AlmostEq(element, 0.0, kPlainElementTolerance); }

bool IsOne(double element) { return GXMath::AlmostEq(element, 1.0, kPlainElementTolerance); }

bool IsZero(const GXVector& row) { return IsZero(row.X) && IsZero(row.Y) && IsZero(row.Z); }

double Determinant(const GXVector (&rows)[3]) {
  const GXVector& a = rows[0];
  const GXVector& b = rows[1];
  const GXVector& c = rows[2];
  return a.X * b.Y * c.Z + a.Y * b.Z * c.X + a.Z * b.X * c.Y - a.Z * b.Y * c.X - a.Y * b.X * c.Z -
         a.X * b.Z * c.Y;
}

}  // namespace

GXMatrix::GXMatrix() {
  Base[0].X = 1.0;
  Base[1].Y = 1.0;
  Base[2].Z = 1.0;
}

GXMatrix::GXMatrix(const GXMatrix& other) = default;

GXMatrix::GXMatrix(const GX2DMatrix& m) : GXMatrix(m.E11, m.E12, m.E21, m.E22) {}

GXMatrix::GXMatrix(double e11, double e12, double e13, double e21, double e22, double e23,
                   double e31, double e32, double e33)
    : Base{GXVector(e11, e12, e13), GXVector(e21, e22, e23), GXVector(e31, e32, e33)} {}

GXMatrix::GXMatrix(double e11, double e12, double e21, double e22)
    : GXMatrix(e11, e12, 0.0, e21, e22, 0.0, 0.0, 0.0, 1.0) {}

GXMatrix::GXMatrix(double angle, bool mirrorOne, bool mirrorTwo)
    : GXMatrix(GX2DMatrix(angle, mirrorOne, mirrorTwo)) {}

GXMatrix::GXMatrix(const GXVector& a, const GXVector& b, const GXVector& c) : Base{a, b, c} {
  for (GXVector& row : Base) row.GXVector::Standard();
}

GXMatrix::GXMatrix(const GXVector& a, const GXVector& b)
    : Base{a, GXVector(), a.GXVector::operator*(b)} {
  Base[0].GXVector::Standard();
  Base[2].GXVector::Standard();
  Base[1] = Base[2].GXVector::operator*(Base[0]);
}

GXMatrix::~GXMatrix() = default;

GXMatrix& GXMatrix::operator=(const GXMatrix& other) = default;

GXMatrix GXMatrix::Identity() { return GXMatrix(1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0); }

GXMatrix GXMatrix::NoMirror() { return GXMatrix(0.0, false, false); }
GXMatrix GXMatrix::MirrorAroundX() { return GXMatrix(0.0, false, true); }
GXMatrix GXMatrix::MirrorAroundY() { return GXMatrix(0.0, true, false); }
GXMatrix GXMatrix::MirrorBoth() { return GXMatrix(0.0, true, true); }

double GXMatrix::Deg2Rad(double degrees) { return std::atan(1.0) * degrees / 45.0; }
double GXMatrix::Rad2Deg(double radians) { return radians * 45.0 / std::atan(1.0); }

double GXMatrix::Get11() const { return Base[0].X; }
double GXMatrix::Get12() const { return Base[0].Y; }
double GXMatrix::Get13() const { return Base[0].Z; }
double GXMatrix::Get21() const { return Base[1].X; }
double GXMatrix::Get22() const { return Base[1].Y; }
double GXMatrix::Get23() const { return Base[1].Z; }
double GXMatrix::Get31() const { return Base[2].X; }
double GXMatrix::Get32() const { return Base[2].Y; }
double GXMatrix::Get33() const { return Base[2].Z; }

void GXMatrix::Set11(const double& value) { Base[0].X = value; }
void GXMatrix::Set12(const double& value) { Base[0].Y = value; }
void GXMatrix::Set13(const double& value) { Base[0].Z = value; }
void GXMatrix::Set21(const double& value) { Base[1].X = value; }
void GXMatrix::Set22(const double& value) { Base[1].Y = value; }
void GXMatrix::Set23(const double& value) { Base[1].Z = value; }
void GXMatrix::Set31(const double& value) { Base[2].X = value; }
void GXMatrix::Set32(const double& value) { Base[2].Y = value; }
void GXMatrix::Set33(const double& value) { Base[2].Z = value; }

double GXMatrix::GetBase0(const int& row, const int& col) const {
  if (!IsIndex(row) || !IsIndex(col)) return 0.0;
  return Base[row].*kComponents[col];
}

// The range is tested before 1 is taken off, which the smallest int would not survive.
double GXMatrix::GetBase1(const int& row, const int& col) const {
  if (row < 1 || col < 1) return 0.0;
  return GetBase0(row - 1, col - 1);
}

void GXMatrix::SetBase0(const int& row, const int& col, const double& value) {
  if (!IsIndex(row) || !IsIndex(col)) return;
  Base[row].*kComponents[col] = value;
}

void GXMatrix::SetBase1(const int& row, const int& col, const double& value) {
  if (row < 1 || col < 1) return;
  SetBase0(row - 1, col - 1, value);
}

bool GXMatrix::operator==(const GXMatrix& other) const {
  return Base[0].GXVector::operator==(other.Base[0]) &&
         Base[1].GXVector::operator==(other.Base[1]) && Base[2].GXVector::operator==(other.Base[2]);
}

bool GXMatrix::IsAlmostEq(const GXMatrix& other) const {
  return Base[0].GXVector::IsAlmostEq(other.Base[0], kSameElementTolerance) &&
         Base[1].GXVector::IsAlmostEq(other.Base[1], kSameElementTolerance) &&
         Base[2].GXVector::IsAlmostEq(other.Base[2], kSameElementTolerance);
}

bool GXMatrix::IsEmpty() const { return IsZero(Base[0]) && IsZero(Base[1]) && IsZero(Base[2]); }

bool GXMatrix::IsIdentity() const {
  return IsOne(Base[0].X) && IsZero(Base[0].Y) && IsZero(Base[0].Z) &&  //
         IsZero(Base[1].X) && IsOne(Base[1].Y) && IsZero(Base[1].Z) &&  //
         IsZero(Base[2].X) && IsZero(Base[2].Y) && IsOne(Base[2].Z);
}

bool GXMatrix::IsMirrored() const {
  return ktrcl_internal::kMirrorThreshold > std::fabs(Base[0].X + Base[1].Y);
}

// Each element is summed from the first column to the last.
GXMatrix GXMatrix::MultMatrix(const GXMatrix& other) const {
  const GXVector& a = other.Base[0];
  const GXVector& b = other.Base[1];
  const GXVector& c = other.Base[2];
  GXMatrix product;
  for (int i = 0; i < 3; ++i) {
    const GXVector& row = Base[i];
    GXVector& result = product.Base[i];
    result.X = row.X * a.X + row.Y * b.X + row.Z * c.X;
    result.Y = row.X * a.Y + row.Y * b.Y + row.Z * c.Y;
    result.Z = row.X * a.Z + row.Y * b.Z + row.Z * c.Z;
  }
  return product;
}

GXMatrix GXMatrix::operator*(const GXMatrix& other) const { return MultMatrix(other); }

GXVector GXMatrix::MultVector(const GXVector& v) const {
  return GXVector(Base[0].GXVector::dot(v), Base[1].GXVector::dot(v), Base[2].GXVector::dot(v));
}

GXVector GXMatrix::operator*(const GXVector& v) const { return MultVector(v); }

void GXMatrix::Transpose() {
  std::swap(Base[0].Y, Base[1].X);
  std::swap(Base[0].Z, Base[2].X);
  std::swap(Base[1].Z, Base[2].Y);
}

bool GXMatrix::Inverse() {
  const double determinant = Determinant(Base);
  // Signed on purpose: a mirrored matrix has no inverse here.
  if (determinant < ktrcl_internal::kDeterminantGuard) return false;
  ktrcl_internal::ReplaceByInverse(Base, determinant);
  return true;
}

GXMatrix GXMatrix::GetInverse() const {
  GXMatrix inverse(*this);
  if (!inverse.Inverse()) return Identity();
  return inverse;
}
