// Kernel routines on single points and vectors. The conventions stand in kernel/Kernel.h.
#pragma once

#include <KTRCL_Geometry/Export.h>

/// @name Units and rounding by print -- src/kernel/Units.cpp

/// Millimetres in one model unit.
/// Given: `unit`: unit flag, every non-zero value is inches.
/// Result: 1.0 in millimetres, 25.4 in inches.
KTRCL_GEOMETRY_EXPORT double Inch_conversion(const int& unit);

/// Model units in one millimetre.
/// Given: `unit`: unit flag, every non-zero value is inches.
/// Result: 1.0 in millimetres, 0.03937007874015748 in inches.
KTRCL_GEOMETRY_EXPORT double MM_to_inch_convertor(const int& unit);

/// Rounds a figure to what is printed of it with 2 decimals, in inches with 4.
/// Given: `unit`: unit flag, every non-zero value is inches; `value`: any figure.
/// Result: the printed figure, read back.
/// Notes: independent of the host's locale; infinities and NaN come back as they are.
/// Caution: the stored binary value decides, not its decimal figure: 1.005 is stored a little lower
///   and gives 1.0. A small negative figure gives -0.0.
KTRCL_GEOMETRY_EXPORT double Round_effect_digits(const int& unit, double value);

/// Rounds a figure to what is printed of it with 4 decimals, in inches with 6.
/// Given: `unit`: unit flag, every non-zero value is inches; `value`: any figure.
/// Result: the printed figure, read back.
/// Notes: as `Round_effect_digits`.
KTRCL_GEOMETRY_EXPORT double Round_effect_digits_46(const int& unit, double value);

/// Rounds a figure to what is printed of it with 3 decimals, in inches with 5.
/// Given: `unit`: unit flag, every non-zero value is inches; `value`: any figure.
/// Result: the printed figure, read back.
/// Notes: as `Round_effect_digits`.
KTRCL_GEOMETRY_EXPORT double Round_effect_digits_a(const int& unit, double value);

/// @name Vectors -- src/kernel/Vectors.cpp

/// Difference of two vectors, a - b: the way from `b` to `a`.
/// Given: `a`, `b`: vectors.
/// Returned: `out`: the difference.
/// Notes: `out` may be `a` or `b`.
KTRCL_GEOMETRY_EXPORT void Vector_a_b(const double* a, const double* b, double* out);

/// Sum of two vectors.
/// Given: `a`, `b`: vectors.
/// Returned: `out`: the sum.
/// Notes: `out` may be `a` or `b`.
KTRCL_GEOMETRY_EXPORT void Vector_a_add_b(const double* a, const double* b, double* out);

/// Middle between two points, (a + b) * 0.5.
/// Given: `a`, `b`: points.
/// Returned: `out`: the middle.
/// Notes: `out` may be `a` or `b`.
KTRCL_GEOMETRY_EXPORT void Vector_mid_a_b(const double* a, const double* b, double* out);

/// Scalar product.
/// Given: `a`, `b`: vectors.
/// Result: the product, summed in the order x, y, z.
KTRCL_GEOMETRY_EXPORT double Vector_a_dot_b(const double* a, const double* b);

/// Vector product a x b.
/// Given: `a`, `b`: vectors.
/// Returned: `out`: the product, right-handed.
/// Notes: `out` may be `a` or `b`.
KTRCL_GEOMETRY_EXPORT void Vector_a_x_b(const double* a, const double* b, double* out);

/// Multiple of a vector.
/// Given: `a`: vector; `s`: factor.
/// Returned: `out`: s * a.
/// Notes: `out` may be `a`.
KTRCL_GEOMETRY_EXPORT void Vector_a_x_val(const double* a, double s, double* out);

/// Fills a vector.
/// Given: `x`, `y`, `z`: components.
/// Returned: `out`: the vector. Caution: it comes first.
KTRCL_GEOMETRY_EXPORT void Vector_by_values(double* out, double x, double y, double z);

/// Fills a six-tuple.
/// Given: `x`, `y`, `z`, `i`, `j`, `k`: components.
/// Returned: `out` (6): the six-tuple. Caution: it comes first.
KTRCL_GEOMETRY_EXPORT void Vector_by_values_6(double* out, double x, double y, double z, double i,
                                              double j, double k);

/// Copies a vector, source first.
/// Given: `a`: source.
/// Returned: `b`: the copy.
/// Notes: `b` may be `a`.
KTRCL_GEOMETRY_EXPORT void Vector_copy_a_to_b(const double* a, double* b);

/// Copies a six-tuple, source first.
/// Given: `a` (6): source.
/// Returned: `b` (6): the copy.
/// Notes: `b` may be `a`.
KTRCL_GEOMETRY_EXPORT void Vector_copy_a_to_b_6(const double* a, double* b);

/// Copies six six-tuples, source first.
/// Given: `a` (6 by 6): source.
/// Returned: `b` (6 by 6): the copy.
/// Notes: `b` may be `a`.
KTRCL_GEOMETRY_EXPORT void Vector_copy_a_to_b_66(const double (*a)[6], double (*b)[6]);

/// Euclidean length.
/// Given: `a`: vector.
/// Result: the length, 0 or more.
KTRCL_GEOMETRY_EXPORT double Vector_len(const double* a);

/// Euclidean length over six components.
/// Given: `a` (6): six-tuple.
/// Result: the length, 0 or more.
KTRCL_GEOMETRY_EXPORT double Vector_len_6(const double* a);

/// Distance between two points.
/// Given: `a`, `b`: points.
/// Result: the distance, 0 or more.
KTRCL_GEOMETRY_EXPORT double Vector_len_a_b(const double* a, const double* b);

/// Brings a vector to length 1.
/// Given and returned: `a`: vector.
/// Notes: only where its length is above 0.0001 (no unit flag).
/// Caution: a shorter vector stays as it is, neither zero nor unit.
KTRCL_GEOMETRY_EXPORT void Vector_standard(double* a);

/// @name Coinciding points -- src/kernel/PointComparisons.cpp

/// Whether two points coincide.
/// Given: `a`, `b`: points.
/// Result: 1 where each coordinate differs by at most 0.0001 (inclusive, no unit flag), else 0.
/// Caution: a box, not a distance: points up to 0.000173 apart can coincide.
KTRCL_GEOMETRY_EXPORT int Pntcmp(const double* a, const double* b);

/// Whether two points coincide; the same test as `Pntcmp`.
/// Given: `a`, `b`: points.
/// Result: 1 where each coordinate differs by at most 0.0001 (inclusive, no unit flag), else 0.
KTRCL_GEOMETRY_EXPORT int Pntcmp1(const double* a, const double* b);

/// Whether two points coincide at a tolerance.
/// Given: `a`, `b`: points; `tol`: tolerance, model units.
/// Result: 1 where each coordinate differs by at most `tol` (inclusive), else 0.
KTRCL_GEOMETRY_EXPORT int Pntcmp_tol(const double* a, const double* b, double tol);

/// Whether two six-tuples coincide.
/// Given: `a`, `b` (6): six-tuples.
/// Result: 1 where the first three values coincide by `Pntcmp` and each of the others differs by at
///   most 0.000001 (inclusive), else 0.
KTRCL_GEOMETRY_EXPORT int Pntcmp6(const double* a, const double* b);

/// End of segment a that is also an end of segment b.
/// Given: `a1`, `a2`, `b1`, `b2`: ends of the segments.
/// Returned: `out`: a1 where it coincides with b1 or b2, else a2 where that does.
/// Result: 1 with `out` written; 0, `out` untouched, where no ends coincide.
/// Notes: ends coincide by `Pntcmp`. `out` may be any of the inputs.
KTRCL_GEOMETRY_EXPORT int Common_point_pointer_2Points1_in_2Points2(const double* a1,
                                                                    const double* a2,
                                                                    const double* b1,
                                                                    const double* b2, double* out);

/// The other end of segment a: the one behind the end that it shares with segment b.
/// Given: `a1`, `a2`, `b1`, `b2`: ends of the segments.
/// Returned: `out`: a2 where a1 coincides with b1 or b2, else a1 where a2 does.
/// Result: 1 with `out` written; 0, `out` untouched, where no ends coincide.
/// Notes: ends coincide by `Pntcmp`. `out` may be any of the inputs.
/// Caution: where both ends are shared, a2.
KTRCL_GEOMETRY_EXPORT int Not_Common_point_pointer_2Points1_in_2Points2(
    const double* a1, const double* a2, const double* b1, const double* b2, double* out);

/// End of segment (c, d) that segment (a, b) does not share.
/// Given: `a`, `b`, `c`, `d`: ends of the segments.
/// Returned: `out`: d where a coincides with c; else c where a does with d; else d where b does
///   with c; else c where b does with d.
/// Result: 1 with `out` written; 0, `out` untouched, where no ends coincide.
/// Notes: ends coincide by `Pntcmp`. `out` may be any of the inputs.
KTRCL_GEOMETRY_EXPORT int Get_not_same_vector(const double* a, const double* b, const double* c,
                                              const double* d, double* out);

/// The other one of two points, seen from `o`.
/// Given: `o`: where to look from; `p1`, `p2`: the points.
/// Returned: `out`: p2 where `o` coincides with p1; else p1 where it does with p2; else the farther
///   one from `o`, p1 on a tie.
/// Result: always 1.
/// Notes: points coincide by `Pntcmp`. `out` may be any of the inputs.
KTRCL_GEOMETRY_EXPORT int Vector_another_Pnt(const double* o, const double* p1, const double* p2,
                                             double* out);

/// The way to the other one of two points: from `o` to the choice of `Vector_another_Pnt`.
/// Given: `o`: where to start; `p1`, `p2`: the points.
/// Returned: `out`: the chosen point minus `o`, a vector.
/// Result: always 1.
/// Notes: points coincide by `Pntcmp`. `out` may be any of the inputs.
KTRCL_GEOMETRY_EXPORT int Vector_endp_Pnt(const double* o, const double* p1, const double* p2,
                                          double* out);
