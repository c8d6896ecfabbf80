#include <KTRCL_Geometry/kernel/Vectors.h>

#include "support/KernelArrays.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <string>

namespace {

using support::kInfinity;
using support::kNaN;

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();

using Rounding = double (*)(const int&, double);
constexpr Rounding kRoundings[] = {Round_effect_digits, Round_effect_digits_46,
                                   Round_effect_digits_a};

TEST(InchConversion, IsMillimetresPerUnit) {
  support::ExpectAllBut0AreInches([](int unit) { return Inch_conversion(unit); }, 1.0, 25.4);
}

TEST(MMToInchConvertor, IsUnitsPerMillimetre) {
  support::ExpectAllBut0AreInches([](int unit) { return MM_to_inch_convertor(unit); }, 1.0,
                                  0.03937007874015748);
}

// 1/128 = 0.0078125 has all its digits in binary too, so that every cut shows and the exact half
// goes to the even digit, as in print.
TEST(RoundEffectDigits, Keeps2DecimalsOfMillimetresAnd4OfInches) {
  const auto rounded = [](int unit) { return Round_effect_digits(unit, 0.0078125); };
  support::ExpectAllBut0AreInches(rounded, 0.01, 0.0078);
}

TEST(RoundEffectDigits46, Keeps4DecimalsOfMillimetresAnd6OfInches) {
  const auto rounded = [](int unit) { return Round_effect_digits_46(unit, 0.0078125); };
  support::ExpectAllBut0AreInches(rounded, 0.0078, 0.007812);
}

TEST(RoundEffectDigitsA, Keeps3DecimalsOfMillimetresAnd5OfInches) {
  const auto rounded = [](int unit) { return Round_effect_digits_a(unit, 0.0078125); };
  support::ExpectAllBut0AreInches(rounded, 0.008, 0.00781);
}

// The double next to 1.005 is 1.00499999999999989..., that next to 2.675 is 2.67499999999999982...
TEST(RoundEffectDigits, FollowsThePrintedTextOfTheDouble) {
  EXPECT_EQ(Round_effect_digits(0, 1.005), 1.0);
  EXPECT_EQ(Round_effect_digits(0, 2.675), 2.67);
  EXPECT_EQ(Round_effect_digits(0, -2.675), -2.67);
  EXPECT_EQ(Round_effect_digits_a(0, 1.005), 1.005);
}

TEST(RoundEffectDigits, TakesAnExactHalfToTheEvenDigit) {
  EXPECT_EQ(Round_effect_digits(0, 0.125), 0.12);
  EXPECT_EQ(Round_effect_digits(0, 0.375), 0.38);
  EXPECT_EQ(Round_effect_digits(0, -0.125), -0.12);
  EXPECT_EQ(Round_effect_digits(1, 0.03125), 0.0312);
  EXPECT_EQ(Round_effect_digits_a(0, 0.0625), 0.062);
  EXPECT_EQ(Round_effect_digits_a(1, 0.015625), 0.01562);
}

TEST(RoundEffectDigits, GivesTheDoubleNextToThePrintedFigure) {
  EXPECT_EQ(Round_effect_digits(0, 0.1 + 0.2), 0.3);
  EXPECT_EQ(Round_effect_digits(0, 1234567.891), 1234567.89);
  EXPECT_EQ(Round_effect_digits(1, -1234567.89125), -1234567.8913);  // stored a little lower
}

TEST(RoundEffectDigits, KeepsTheSignOfASmallNegativeFigure) {
  for (const Rounding rounding : kRoundings) {
    EXPECT_SAME_BITS(rounding(0, -0.00001), -0.0);
    EXPECT_SAME_BITS(rounding(1, -0.0), -0.0);
    EXPECT_SAME_BITS(rounding(1, 0.0000001), 0.0);
    EXPECT_SAME_BITS(rounding(0, -kSmallest), -0.0);
  }
}

TEST(RoundEffectDigits, TakesTheLargestFigures) {
  for (const Rounding rounding : kRoundings) {
    for (const int unit : {0, 1, 2, -1}) {
      EXPECT_EQ(rounding(unit, kLargest), kLargest);
      EXPECT_EQ(rounding(unit, -kLargest), -kLargest);
      EXPECT_EQ(rounding(unit, 1e300), 1e300);
    }
  }
}

TEST(RoundEffectDigits, HandsBackWhatIsNoFigure) {
  for (const Rounding rounding : kRoundings) {
    for (const int unit : {0, 1, 2, -1}) {
      EXPECT_TRUE(std::isnan(rounding(unit, kNaN)));
      EXPECT_EQ(rounding(unit, kInfinity), kInfinity);
      EXPECT_EQ(rounding(unit, -kInfinity), -kInfinity);
    }
  }
}

TEST(RoundEffectDigits, IsWithinHalfAStepAndRoundsTheResultToItself) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    const double value = random.Between(-1000, 1000);
    const double rounded = Round_effect_digits(0, value);
    EXPECT_NEAR(rounded, value, 0.005 + 1e-12);  // room for the conversion to the nearest double
    EXPECT_EQ(Round_effect_digits(0, rounded), rounded);
    EXPECT_NEAR(Round_effect_digits_46(1, value), value, 0.0000005 + 1e-12);
    EXPECT_NEAR(Round_effect_digits_a(1, value), value, 0.000005 + 1e-12);
  }
}

// The host's locale while it lives; the old one afterwards.
class HostLocale {
 public:
  explicit HostLocale(const char* name)
      : old_(std::setlocale(LC_ALL, nullptr)), set_(std::setlocale(LC_ALL, name) != nullptr) {}
  ~HostLocale() { std::setlocale(LC_ALL, old_.c_str()); }
  HostLocale(const HostLocale&) = delete;
  HostLocale& operator=(const HostLocale&) = delete;

  bool HasDecimalComma() const { return set_ && std::string(",") == localeconv()->decimal_point; }

 private:
  std::string old_;
  bool set_;
};

TEST(RoundEffectDigits, IsIndependentOfAHostLocaleWithDecimalComma) {
  const HostLocale locale("de_DE.UTF-8");
  if (!locale.HasDecimalComma()) {
    GTEST_SKIP() << "this system has no locale de_DE.UTF-8";
  }
  EXPECT_EQ(Round_effect_digits(0, 1234.5678), 1234.57);
  EXPECT_EQ(Round_effect_digits(1, 1234.56785), 1234.5678);  // stored a little lower
  EXPECT_EQ(Round_effect_digits_46(0, -0.12345), -0.1235);   // stored a little higher
  EXPECT_EQ(Round_effect_digits_a(0, 0.5), 0.5);
}

}  // namespace
