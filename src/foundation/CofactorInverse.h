// The last step of inverting a 3 by 3 matrix, shared by GXMatrix and GXColBasedTransformMatrix.
#pragma once

#include <KTRCL_Geometry/foundation/GXVector.h>

namespace ktrcl_internal {

/// Replaces the three rows by the rows of the inverse: transposed cofactors divided by
/// `determinant`. Transposing before or after gives the same, so the three vectors may as well be
/// read as columns.
inline void ReplaceByInverse(GXVector (&rows)[3], double determinant) {
  const double ax = rows[0].X, ay = rows[0].Y, az = rows[0].Z;
  const double bx = rows[1].X, by = rows[1].Y, bz = rows[1].Z;
  const double cx = rows[2].X, cy = rows[2].Y, cz = rows[2].Z;

  rows[0].X = (by * cz - bz * cy) / determinant;
  rows[0].Y = (az * cy - ay * cz) / determinant;
  rows[0].Z = (ay * bz - az * by) / determinant;

  rows[1].X = (bz * cx - bx * cz) / determinant;
  rows[1].Y = (ax * cz - az * cx) / determinant;
  rows[1].Z = (az * bx - ax * bz) / determinant;

  rows[2].X = (bx * cy - by * cx) / determinant;
  rows[2].Y = (ay * cx - ax * cy) / determinant;
  rows[2].Z = (ax * by - ay * bx) / determinant;
}

}  // namespace ktrcl_internal
