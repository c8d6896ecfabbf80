#pragma once

// Comparison at a tolerance, decimal rounding and angle units. Nothing here has a default
// tolerance: every caller states its own.

#include <KTRCL_DataTypes/Export.h>

#include <cmath>

/// Static operations on single numbers.
///
/// The five predicates agree with one another. For all a, b and tol none of which is NaN
///   (1) exactly one of LessNotAlmostEq, AlmostEq, GreaterNotAlmostEq is true;
///   (2) AlmostEqOrLess is "LessNotAlmostEq or AlmostEq", AlmostEqOrGreater the mirror of it;
///   (3) swapping a and b swaps less with greater and leaves AlmostEq as it is.
/// With a NaN among the three all five are false.
///
/// Tolerance: absolute, inclusive, compared with the rounded difference of a and b. Equal numbers
///   are almost equal at every tolerance, so a tolerance below 0 acts as 0. An infinity is almost
///   equal to itself, and to anything else only at an infinite tolerance.
///
///     GXMath::AlmostEq(1.5, 1.25, 0.25);         // true: the limit itself counts
///     GXMath::LessNotAlmostEq(1.0, 1.5, 0.25);   // true
class KTRCL_DATATYPES_EXPORT GXMath {
 public:
  GXMath() = delete;

  /// @name Comparison at a tolerance

  /// Whether a and b differ by no more than `tol`.
  static bool AlmostEq(const double& a, const double& b, const double& tol) {
    // The first half is for infinities, whose difference is NaN; it must not let a NaN tolerance
    // pass.
    return (a == b && !std::isnan(tol)) || std::fabs(a - b) <= tol;
  }

  /// Whether a is almost equal to b, or greater.
  static bool AlmostEqOrGreater(const double& a, const double& b, const double& tol) {
    return AlmostEq(a, b, tol) || GreaterNotAlmostEq(a, b, tol);
  }

  /// Whether a is almost equal to b, or less.
  static bool AlmostEqOrLess(const double& a, const double& b, const double& tol) {
    return AlmostEq(a, b, tol) || LessNotAlmostEq(a, b, tol);
  }

  /// Whether a is greater than b by more than `tol`.
  static bool GreaterNotAlmostEq(const double& a, const double& b, const double& tol) {
    return a > b && a - b > tol;
  }

  /// Whether a is less than b by more than `tol`.
  static bool LessNotAlmostEq(const double& a, const double& b, const double& tol) {
    return a < b && b - a > tol;
  }

  /// @name Decimal rounding -- src/datatypes/GXMath.cpp

  /// `value` rounded to `decimals` decimal places, to nearest, ties away from zero: 2.5 gives 3 and
  /// -2.5 gives -3 at 0 decimals, 0.125 gives 0.13 at 2. Negative `decimals` round to tens,
  /// hundreds and so on: 1250 gives 1300 at -2.
  ///
  /// Which of two neighbours is nearer is decided on the number that the double holds, without any
  /// error from scaling. 1.005 is held as 1.00499999999999989..., so at 2 decimals it gives 1.0 and
  /// not 1.01. The result is the double nearest to the rounded decimal number; rounding it again
  /// changes nothing.
  ///
  /// Degenerate: infinities and NaN come back as they are, and so does a value whose doubles lie
  ///   further apart than the decimal places, such as 1e300 at 20 decimals. A zero takes the sign
  ///   of `value`. When the rounded number would be larger than any double (the largest double at
  ///   -308 decimals), `value` comes back unchanged.
  static double RoundToDec(const double& value, const int& decimals);

  /// `value` rounded upward, towards plus infinity, at `decimals` decimal places: 1.21 gives 1.3
  /// and -1.29 gives -1.2 at 1 decimal.
  ///
  /// A value that is the double nearest to a number of that many decimals stays as it is: 0.1 at 1
  /// decimal is 0.1, although the double holds a little more than a tenth.
  ///
  /// Degenerate: as RoundToDec.
  static double CeilToDec(const double& value, const int& decimals);

  /// @name Angle units

  /// Degrees to radians; 180 gives the double nearest to pi.
  static double DegToRad(const double& degrees) { return degrees * kPi / kHalfTurn; }

  /// Radians to degrees; the double nearest to pi gives 180.
  static double RadToDeg(const double& radians) { return radians * kHalfTurn / kPi; }

 private:
  static constexpr double kPi = 3.14159265358979323846;
  static constexpr double kHalfTurn = 180.0;
};
