// Coinciding points, and the choice of the ends that two segments share or do not share.

#include <KTRCL_Geometry/kernel/Vectors.h>

#include <cmath>
#include <initializer_list>

#include "kernel/VectorArithmetic.h"

using ktrcl_internal::Copy;

namespace {

// Model units, inclusive, for each coordinate by itself.
constexpr double kCoincidence = 0.0001;

// Inclusive, for each component of the vector that a six-tuple carries behind its point.
constexpr double kSameVector = 0.000001;

bool DifferByAtMost(const double* a, const double* b, double tol) {
  return std::fabs(a[0] - b[0]) <= tol && std::fabs(a[1] - b[1]) <= tol &&
         std::fabs(a[2] - b[2]) <= tol;
}

bool Coincide(const double* a, const double* b) { return DifferByAtMost(a, b, kCoincidence); }

bool IsOneOf(const double* p, const double* b1, const double* b2) {
  return Coincide(p, b1) || Coincide(p, b2);
}

int Answer(const double* chosen, double* out) {
  if (chosen == nullptr) return 0;
  Copy(chosen, out);
  return 1;
}

const double* OtherPoint(const double* o, const double* p1, const double* p2) {
  if (Coincide(o, p1)) return p2;
  if (Coincide(o, p2)) return p1;
  return ktrcl_internal::Distance(o, p2) > ktrcl_internal::Distance(o, p1) ? p2 : p1;
}

}  // namespace

int Pntcmp(const double* a, const double* b) { return Coincide(a, b) ? 1 : 0; }

int Pntcmp1(const double* a, const double* b) { return Coincide(a, b) ? 1 : 0; }

int Pntcmp_tol(const double* a, const double* b, double tol) {
  return DifferByAtMost(a, b, tol) ? 1 : 0;
}

int Pntcmp6(const double* a, const double* b) {
  return Coincide(a, b) && DifferByAtMost(a + 3, b + 3, kSameVector) ? 1 : 0;
}

int Common_point_pointer_2Points1_in_2Points2(const double* a1, const double* a2, const double* b1,
                                              const double* b2, double* out) {
  const double* chosen = nullptr;
  if (IsOneOf(a1, b1, b2)) {
    chosen = a1;
  } else if (IsOneOf(a2, b1, b2)) {
    chosen = a2;
  }
  return Answer(chosen, out);
}

int Not_Common_point_pointer_2Points1_in_2Points2(const double* a1, const double* a2,
                                                  const double* b1, const double* b2, double* out) {
  const double* chosen = nullptr;
  if (IsOneOf(a1, b1, b2)) {
    chosen = a2;
  } else if (IsOneOf(a2, b1, b2)) {
    chosen = a1;
  }
  return Answer(chosen, out);
}

int Get_not_same_vector(const double* a, const double* b, const double* c, const double* d,
                        double* out) {
  for (const double* end : {a, b}) {
    if (Coincide(end, c)) return Answer(d, out);
    if (Coincide(end, d)) return Answer(c, out);
  }
  return 0;
}

int Vector_another_Pnt(const double* o, const double* p1, const double* p2, double* out) {
  Copy(OtherPoint(o, p1, p2), out);
  return 1;
}

int Vector_endp_Pnt(const double* o, const double* p1, const double* p2, double* out) {
  ktrcl_internal::Subtract(OtherPoint(o, p1, p2), o, out);
  return 1;
}
