// Vector primitives of the kernel: the exported forms of kernel/VectorArithmetic.h, and those on
// six-tuples.

#include <KTRCL_Geometry/kernel/Vectors.h>

#include <cmath>

#include "kernel/VectorArithmetic.h"

void Vector_a_b(const double* a, const double* b, double* out) {
  ktrcl_internal::Subtract(a, b, out);
}

void Vector_a_add_b(const double* a, const double* b, double* out) {
  ktrcl_internal::Add(a, b, out);
}

void Vector_mid_a_b(const double* a, const double* b, double* out) {
  ktrcl_internal::Fill((a[0] + b[0]) * 0.5, (a[1] + b[1]) * 0.5, (a[2] + b[2]) * 0.5, out);
}

double Vector_a_dot_b(const double* a, const double* b) { return ktrcl_internal::Dot(a, b); }

void Vector_a_x_b(const double* a, const double* b, double* out) {
  ktrcl_internal::Cross(a, b, out);
}

void Vector_a_x_val(const double* a, double s, double* out) { ktrcl_internal::Multiply(s, a, out); }

void Vector_by_values(double* out, double x, double y, double z) {
  ktrcl_internal::Fill(x, y, z, out);
}

void Vector_by_values_6(double* out, double x, double y, double z, double i, double j, double k) {
  ktrcl_internal::Fill(x, y, z, out);
  ktrcl_internal::Fill(i, j, k, out + 3);
}

void Vector_copy_a_to_b(const double* a, double* b) { ktrcl_internal::Copy(a, b); }

void Vector_copy_a_to_b_6(const double* a, double* b) {
  // Copying an array onto itself element by element is harmless, which std::copy does not promise.
  for (int i = 0; i < 6; ++i) b[i] = a[i];
}

void Vector_copy_a_to_b_66(const double (*a)[6], double (*b)[6]) {
  for (int row = 0; row < 6; ++row) Vector_copy_a_to_b_6(a[row], b[row]);
}

double Vector_len(const double* a) { return ktrcl_internal::Length(a); }

double Vector_len_6(const double* a) {
  double sumOfSquares = 0.0;
  for (int i = 0; i < 6; ++i) sumOfSquares += a[i] * a[i];
  return std::sqrt(sumOfSquares);
}

double Vector_len_a_b(const double* a, const double* b) { return ktrcl_internal::Distance(a, b); }

void Vector_standard(double* a) { ktrcl_internal::Standardize(a); }
