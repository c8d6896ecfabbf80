// Frames of three points, the way into them and back, and their inverse.

#include <KTRCL_Geometry/kernel/Frames.h>

#include "kernel/VectorArithmetic.h"

using ktrcl_internal::Copy;
using ktrcl_internal::Cross;
using ktrcl_internal::Dot;
using ktrcl_internal::Length;
using ktrcl_internal::Subtract;

namespace {

// Compared with the signed determinant, strictly: a left-handed frame is refused with the singular
// ones, and callers count on never seeing a mirrored way back.
constexpr double kDeterminantGuard = 1e-20;

}  // namespace

int Lambda(const double* p0, const double* p1, const double* p2, double (*frame)[3]) {
  double x[3];
  double toP2[3];
  Subtract(p1, p0, x);
  Subtract(p2, p0, toP2);
  const double length = Length(x);
  ktrcl_internal::Divide(x, length, x);
  double z[3];
  Cross(x, toP2, z);

  Copy(x, frame[0]);
  if (length == 0.0) return 0;
  if (z[0] == 0.0 && z[1] == 0.0 && z[2] == 0.0) return 0;

  ktrcl_internal::Divide(z, Length(z), z);
  Cross(z, x, frame[1]);
  Copy(z, frame[2]);
  return 1;
}

int Gloloc(const double* p, double* out, const double* origin, const double (*frame)[3]) {
  double way[3];
  Subtract(p, origin, way);
  ktrcl_internal::Fill(Dot(frame[0], way), Dot(frame[1], way), Dot(frame[2], way), out);
  return 1;
}

int Locglo(const double* p, double* out, const double* origin, const double (*inverse)[3]) {
  const double way[3] = {Dot(inverse[0], p), Dot(inverse[1], p), Dot(inverse[2], p)};
  ktrcl_internal::Add(way, origin, out);
  return 1;
}

int Invmat(const double (*frame)[3], double (*inverse)[3]) {
  // The columns of the inverse, times the determinant.
  double columns[3][3];
  Cross(frame[1], frame[2], columns[0]);
  Cross(frame[2], frame[0], columns[1]);
  Cross(frame[0], frame[1], columns[2]);
  const double determinant = Dot(frame[0], columns[0]);
  if (determinant < kDeterminantGuard) return 0;

  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      inverse[row][column] = columns[column][row] / determinant;
    }
  }
  return 1;
}

void PlacePointToPosition(double* p, const double* shift, const double* origin,
                          const double (*inverse)[3]) {
  double moved[3];
  ktrcl_internal::Add(p, shift, moved);
  Locglo(moved, p, origin, inverse);
}
