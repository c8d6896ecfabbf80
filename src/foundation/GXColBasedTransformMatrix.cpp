// GXColBasedTransformMatrix: Base[i] is column i, the i-th axis of the local frame.

#include <KTRCL_Geometry/foundation/GXMatrix.h>

#include "foundation/CofactorInverse.h"
#include "foundation/Tolerance.h"

#include <utility>

namespace {

// By the first column: its components with their minors, signs alternating.
double Determinant(const GXVector (&columns)[3]) {
  const GXVector& a = columns[0];
  const GXVector& b = columns[1];
  const GXVector& c = columns[2];
  return a.X * (b.Y * c.Z - c.Y * b.Z) - a.Y * (b.X * c.Z - c.X * b.Z) +
         a.Z * (b.X * c.Y - c.X * b.Y);
}

}  // namespace

GXColBasedTransformMatrix::GXColBasedTransformMatrix() = default;

GXColBasedTransformMatrix::GXColBasedTransformMatrix(const GXColBasedTransformMatrix& other) =
    default;

GXColBasedTransformMatrix::GXColBasedTransformMatrix(GXVector* const vectors) {
  if (vectors == nullptr) return;
  for (int i = 0; i < 3; ++i) Base[i] = vectors[i];
}

GXColBasedTransformMatrix::GXColBasedTransformMatrix(double (*const rows)[3]) {
  if (rows == nullptr) return;
  for (int i = 0; i < 3; ++i) Base[i].SetVector(rows[i][0], rows[i][1], rows[i][2]);
}

GXColBasedTransformMatrix& GXColBasedTransformMatrix::operator=(
    const GXColBasedTransformMatrix& other) = default;

GXColBasedTransformMatrix::~GXColBasedTransformMatrix() = default;

void GXColBasedTransformMatrix::AsDbl(double (*const rows)[3]) const {
  if (rows == nullptr) return;
  for (int i = 0; i < 3; ++i) Base[i].GXVector::AsDbl(rows[i]);
}

void GXColBasedTransformMatrix::Transpose() {
  std::swap(Base[0].Y, Base[1].X);
  std::swap(Base[0].Z, Base[2].X);
  std::swap(Base[1].Z, Base[2].Y);
}

bool GXColBasedTransformMatrix::Inverse() {
  const double determinant = Determinant(Base);
  // Signed on purpose: a left-handed frame has no inverse here.
  if (determinant < ktrcl_internal::kDeterminantGuard) return false;
  ktrcl_internal::ReplaceByInverse(Base, determinant);
  return true;
}
