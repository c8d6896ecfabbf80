// Unit factors, and rounding through text: a figure becomes what its printed form says, so that
// what is computed with and what is shown to the user can never differ.

#include <KTRCL_Geometry/kernel/Vectors.h>

#include <charconv>
#include <cmath>

#include "kernel/UnitFlag.h"

using ktrcl_internal::NonZeroIsInches;

namespace {

constexpr double kInchesPerMillimetre = 0.03937007874015748;

// Sign, the 309 digits of the largest double, decimal point and decimals.
constexpr int kLongestText = 350;

// Through the character conversions, which know no locale: a host may have set a decimal comma.
double RoundByPrint(double value, int decimals) {
  if (!std::isfinite(value)) return value;
  char text[kLongestText];
  const std::to_chars_result written =
      std::to_chars(text, text + kLongestText, value, std::chars_format::fixed, decimals);
  double rounded = value;
  std::from_chars(text, written.ptr, rounded, std::chars_format::fixed);
  return rounded;
}

}  // namespace

double Inch_conversion(const int& unit) {
  return NonZeroIsInches(unit) ? ktrcl_internal::kMillimetresPerInch : 1.0;
}

double MM_to_inch_convertor(const int& unit) {
  return NonZeroIsInches(unit) ? kInchesPerMillimetre : 1.0;
}

double Round_effect_digits(const int& unit, double value) {
  return RoundByPrint(value, NonZeroIsInches(unit) ? 4 : 2);
}

double Round_effect_digits_46(const int& unit, double value) {
  return RoundByPrint(value, NonZeroIsInches(unit) ? 6 : 4);
}

double Round_effect_digits_a(const int& unit, double value) {
  return RoundByPrint(value, NonZeroIsInches(unit) ? 5 : 3);
}
