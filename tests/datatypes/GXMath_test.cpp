#include <KTRCL_DataTypes/GXMath.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kTiniest = std::numeric_limits<double>::denorm_min();

std::vector<double> SpecialValues() {
  return {0.0,    -0.0,     1.0,       -1.0, 0.0001,   -0.0001,   1.0001,    0.9999,    1e300,
          -1e300, kLargest, -kLargest, 1e-5, kTiniest, -kTiniest, kInfinity, -kInfinity};
}

std::vector<double> SpecialTolerances() {
  return {0.0, -0.0, 0.0001, 1e-20, 1.0, 1e300, kLargest, kTiniest, kInfinity, -1.0, -kInfinity};
}

// The five answers at once; `holding` is how many of less, almost equal, greater are true.
struct Answers {
  Answers(double a, double b, double tol)
      : almost(GXMath::AlmostEq(a, b, tol)),
        orGreater(GXMath::AlmostEqOrGreater(a, b, tol)),
        orLess(GXMath::AlmostEqOrLess(a, b, tol)),
        greater(GXMath::GreaterNotAlmostEq(a, b, tol)),
        less(GXMath::LessNotAlmostEq(a, b, tol)),
        holding((almost ? 1 : 0) + (greater ? 1 : 0) + (less ? 1 : 0)) {}

  bool almost;
  bool orGreater;
  bool orLess;
  bool greater;
  bool less;
  int holding;
};

void ExpectConsistent(double a, double b, double tol) {
  SCOPED_TRACE(testing::Message() << "a " << a << ", b " << b << ", tol " << tol);
  const Answers answers(a, b, tol);
  EXPECT_EQ(answers.holding, 1);
  EXPECT_EQ(answers.orGreater, answers.almost || answers.greater);
  EXPECT_EQ(answers.orLess, answers.almost || answers.less);
  const Answers swapped(b, a, tol);
  EXPECT_EQ(swapped.almost, answers.almost);
  EXPECT_EQ(swapped.greater, answers.less);
  EXPECT_EQ(swapped.orGreater, answers.orLess);
}

}  // namespace

TEST(AlmostEq, CountsADifferenceOfExactlyTheTolerance) {
  // All numbers are sums of powers of two, so the differences are exact.
  EXPECT_TRUE(GXMath::AlmostEq(1.5, 1.25, 0.25));
  EXPECT_TRUE(GXMath::AlmostEq(1.25, 1.5, 0.25));
  EXPECT_TRUE(GXMath::AlmostEq(0.0, 0.0001, 0.0001));
  EXPECT_TRUE(GXMath::AlmostEq(-0.0001, 0.0, 0.0001));
}

TEST(AlmostEq, EndsOneUnitBeyondTheTolerance) {
  EXPECT_FALSE(GXMath::AlmostEq(0.0, std::nextafter(0.0001, 1.0), 0.0001));
  EXPECT_FALSE(GXMath::AlmostEq(1.5, 1.25, std::nextafter(0.25, 0.0)));
}

TEST(AlmostEq, TakesEqualNumbersAtAnyTolerance) {
  EXPECT_TRUE(GXMath::AlmostEq(3.0, 3.0, 0.0));
  EXPECT_TRUE(GXMath::AlmostEq(0.0, -0.0, 0.0));
  EXPECT_TRUE(GXMath::AlmostEq(3.0, 3.0, -1.0));
  EXPECT_TRUE(GXMath::AlmostEq(3.0, 3.0, -kInfinity));
}

TEST(AlmostEq, TreatsANegativeToleranceAsZero) {
  EXPECT_FALSE(GXMath::AlmostEq(3.0, std::nextafter(3.0, 4.0), -1.0));
  EXPECT_TRUE(GXMath::LessNotAlmostEq(3.0, std::nextafter(3.0, 4.0), -1.0));
  EXPECT_TRUE(GXMath::GreaterNotAlmostEq(4.0, 3.0, -5.0));
}

TEST(AlmostEq, TellsTheSmallestNumberFromZero) {
  EXPECT_FALSE(GXMath::AlmostEq(kTiniest, 0.0, 0.0));
  EXPECT_TRUE(GXMath::AlmostEq(kTiniest, 0.0, kTiniest));
}

TEST(AlmostEq, HoldsAnInfinityEqualToItselfOnly) {
  EXPECT_TRUE(GXMath::AlmostEq(kInfinity, kInfinity, 0.0001));
  EXPECT_TRUE(GXMath::AlmostEq(-kInfinity, -kInfinity, 0.0));
  EXPECT_FALSE(GXMath::AlmostEq(kInfinity, kLargest, kLargest));
  EXPECT_FALSE(GXMath::AlmostEq(kInfinity, -kInfinity, kLargest));
  EXPECT_TRUE(GXMath::GreaterNotAlmostEq(kInfinity, kLargest, 1.0));
  EXPECT_TRUE(GXMath::LessNotAlmostEq(-kInfinity, kInfinity, 1.0));
}

TEST(AlmostEq, HoldsEverythingEqualAtAnInfiniteTolerance) {
  for (const double a : SpecialValues()) {
    for (const double b : SpecialValues()) {
      EXPECT_TRUE(GXMath::AlmostEq(a, b, kInfinity)) << a << " and " << b;
    }
  }
}

TEST(AlmostEq, IsNotFooledByADifferenceThatOverflows) {
  EXPECT_FALSE(GXMath::AlmostEq(kLargest, -kLargest, kLargest));
  EXPECT_TRUE(GXMath::GreaterNotAlmostEq(kLargest, -kLargest, kLargest));
}

TEST(Predicates, AreAllFalseWithANan) {
  const std::vector<std::vector<double>> triples = {
      {kNan, 1.0, 0.1},   {1.0, kNan, 0.1},       {1.0, 1.0, kNan},
      {1.0, 2.0, kNan},   {2.0, 1.0, kNan},       {kNan, kNan, 0.1},
      {kNan, kNan, kNan}, {kNan, 1.0, kInfinity}, {kInfinity, kInfinity, kNan}};
  for (const std::vector<double>& triple : triples) {
    SCOPED_TRACE(testing::Message() << triple[0] << ", " << triple[1] << ", " << triple[2]);
    const Answers answers(triple[0], triple[1], triple[2]);
    EXPECT_EQ(answers.holding, 0);
    EXPECT_FALSE(answers.orGreater);
    EXPECT_FALSE(answers.orLess);
  }
}

TEST(Predicates, SplitSpecialValuesIntoExactlyOneOfThree) {
  for (const double a : SpecialValues()) {
    for (const double b : SpecialValues()) {
      for (const double tol : SpecialTolerances()) {
        ExpectConsistent(a, b, tol);
      }
    }
  }
}

TEST(Predicates, SplitRandomNeighboursIntoExactlyOneOfThree) {
  const unsigned seed = 20240611;
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> place(-1000.0, 1000.0);
  std::uniform_int_distribution<int> units(-3, 3);
  for (int i = 0; i < 20000; ++i) {
    const double a = place(random);
    const double tol = std::fabs(place(random)) * 1e-6;
    // Around the limit itself, a few units to either side.
    double b = a + (i % 2 == 0 ? tol : -tol);
    for (int n = units(random); n != 0; n += n < 0 ? 1 : -1) {
      b = std::nextafter(b, n < 0 ? -kInfinity : kInfinity);
    }
    ExpectConsistent(a, b, tol);
  }
}

TEST(RoundToDec, RoundsTiesAwayFromZero) {
  // Each tie is exact in binary.
  EXPECT_EQ(GXMath::RoundToDec(0.5, 0), 1.0);
  EXPECT_EQ(GXMath::RoundToDec(-0.5, 0), -1.0);
  EXPECT_EQ(GXMath::RoundToDec(2.5, 0), 3.0);
  EXPECT_EQ(GXMath::RoundToDec(-2.5, 0), -3.0);
  EXPECT_EQ(GXMath::RoundToDec(0.125, 2), 0.13);
  EXPECT_EQ(GXMath::RoundToDec(-0.125, 2), -0.13);
  EXPECT_EQ(GXMath::RoundToDec(0.0625, 3), 0.063);
  EXPECT_EQ(GXMath::RoundToDec(1250.0, -2), 1300.0);
  EXPECT_EQ(GXMath::RoundToDec(-1250.0, -2), -1300.0);
}

TEST(RoundToDec, RoundsToTheNearerNumber) {
  EXPECT_EQ(GXMath::RoundToDec(1.2344, 3), 1.234);
  EXPECT_EQ(GXMath::RoundToDec(1.2346, 3), 1.235);
  EXPECT_EQ(GXMath::RoundToDec(-1.2346, 3), -1.235);
  EXPECT_EQ(GXMath::RoundToDec(1249.0, -2), 1200.0);
  EXPECT_EQ(GXMath::RoundToDec(std::nextafter(2.5, 0.0), 0), 2.0);
  EXPECT_EQ(GXMath::RoundToDec(std::nextafter(0.5, 0.0), 0), 0.0);
}

TEST(RoundToDec, DecidesOnTheNumberHeldAndNotOnAScaledOne) {
  // 1.005 is held as 1.00499999999999989..., below the tie.
  EXPECT_EQ(GXMath::RoundToDec(1.005, 2), 1.0);
  // 1.115 is held as 1.1149999999999999911..., though 1.115 * 100 comes out as 111.5.
  EXPECT_EQ(GXMath::RoundToDec(1.115, 2), 1.11);
  // 2.675 is held as 2.67499999999999982..., though 2.675 * 100 comes out as 267.5.
  EXPECT_EQ(GXMath::RoundToDec(2.675, 2), 2.67);
}

TEST(RoundToDec, AgreesWithExactScalingOnRandomNumbers) {
  if (std::numeric_limits<long double>::digits < 64) {
    GTEST_SKIP() << "needs a long double of 64 bits";
  }
  const unsigned seed = 731;
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> place(-1e6, 1e6);
  const double powers[] = {1.0, 10.0, 100.0, 1000.0, 10000.0};
  for (int i = 0; i < 20000; ++i) {
    const int decimals = i % 5;
    double value = place(random);
    if (i % 3 == 0) {
      // Near a tie: half a step and a hair.
      value = (std::floor(value) + 0.5) / powers[decimals];
    }
    // 53 bits times 5^4 (10 bits) fit in 64: the product has no error.
    const long double scaled = static_cast<long double>(value) * powers[decimals];
    const double expected = static_cast<double>(std::round(scaled)) / powers[decimals];
    ASSERT_EQ(GXMath::RoundToDec(value, decimals), expected) << value << " at " << decimals;
  }
}

TEST(RoundToDec, ChangesNothingTheSecondTime) {
  const unsigned seed = 99;
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> exponent(-30.0, 30.0);
  std::uniform_int_distribution<int> places(-32, 40);
  for (int i = 0; i < 5000; ++i) {
    const double value = std::pow(10.0, exponent(random)) * (i % 2 == 0 ? 1.0 : -1.0);
    const int decimals = places(random);
    const double once = GXMath::RoundToDec(value, decimals);
    ASSERT_EQ(GXMath::RoundToDec(once, decimals), once) << value << " at " << decimals;
    ASSERT_EQ(GXMath::CeilToDec(once, decimals), once) << value << " at " << decimals;
  }
}

TEST(RoundToDec, LeavesNumbersTooLargeForTheDecimals) {
  EXPECT_EQ(GXMath::RoundToDec(1e300, 20), 1e300);
  EXPECT_EQ(GXMath::RoundToDec(-1e300, 20), -1e300);
  EXPECT_EQ(GXMath::RoundToDec(kLargest, 0), kLargest);
  EXPECT_EQ(GXMath::RoundToDec(kLargest, 400), kLargest);
  EXPECT_EQ(GXMath::RoundToDec(9007199254740993.0, 3), 9007199254740993.0);
  // The largest double with a half.
  EXPECT_EQ(GXMath::RoundToDec(4503599627370495.5, 0), 4503599627370496.0);
}

TEST(RoundToDec, WorksWithMoreDecimalsThanADoubleHas) {
  EXPECT_EQ(GXMath::RoundToDec(0.1, 30), 0.1);
  EXPECT_EQ(GXMath::RoundToDec(0.1, std::numeric_limits<int>::max()), 0.1);
  EXPECT_EQ(GXMath::RoundToDec(1.26e-30, 31), 1.3e-30);
  EXPECT_EQ(GXMath::RoundToDec(6e-31, 30), 1e-30);
  EXPECT_EQ(GXMath::RoundToDec(4e-31, 30), 0.0);
  // The smallest double is 4.94e-324.
  EXPECT_EQ(GXMath::RoundToDec(kTiniest, 2000), kTiniest);
  EXPECT_EQ(GXMath::RoundToDec(kTiniest, 324), kTiniest);
  EXPECT_EQ(GXMath::RoundToDec(kTiniest, 323), 0.0);
}

TEST(RoundToDec, RoundsToTensAndBeyondForNegativeDecimals) {
  EXPECT_EQ(GXMath::RoundToDec(14.0, -1), 10.0);
  EXPECT_EQ(GXMath::RoundToDec(15.0, -1), 20.0);
  EXPECT_EQ(GXMath::RoundToDec(4.0, -1), 0.0);
  EXPECT_EQ(GXMath::RoundToDec(1.26e300, -299), 1.3e300);
  EXPECT_EQ(GXMath::RoundToDec(6e299, -300), 1e300);
  EXPECT_EQ(GXMath::RoundToDec(kLargest, -309), 0.0);
  EXPECT_EQ(GXMath::RoundToDec(-kLargest, std::numeric_limits<int>::min()), 0.0);
}

TEST(RoundToDec, LeavesANumberWhoseRoundedFormIsTooLarge) {
  // 1.797e308 to the nearest 1e308 would be 2e308.
  EXPECT_EQ(GXMath::RoundToDec(kLargest, -308), kLargest);
  EXPECT_EQ(GXMath::RoundToDec(-kLargest, -308), -kLargest);
}

TEST(RoundToDec, KeepsWhatIsNotFinite) {
  EXPECT_EQ(GXMath::RoundToDec(kInfinity, 3), kInfinity);
  EXPECT_EQ(GXMath::RoundToDec(-kInfinity, -3), -kInfinity);
  EXPECT_TRUE(std::isnan(GXMath::RoundToDec(kNan, 3)));
}

TEST(RoundToDec, KeepsTheSignOfWhatBecomesZero) {
  EXPECT_TRUE(std::signbit(GXMath::RoundToDec(-0.2, 0)));
  EXPECT_FALSE(std::signbit(GXMath::RoundToDec(0.2, 0)));
  EXPECT_TRUE(std::signbit(GXMath::RoundToDec(-0.0, 0)));
}

TEST(CeilToDec, RoundsTowardsPlusInfinity) {
  EXPECT_EQ(GXMath::CeilToDec(1.21, 1), 1.3);
  EXPECT_EQ(GXMath::CeilToDec(1.29, 1), 1.3);
  EXPECT_EQ(GXMath::CeilToDec(-1.21, 1), -1.2);
  EXPECT_EQ(GXMath::CeilToDec(-1.29, 1), -1.2);
  EXPECT_EQ(GXMath::CeilToDec(2.5, 0), 3.0);
  EXPECT_EQ(GXMath::CeilToDec(-2.5, 0), -2.0);
  EXPECT_EQ(GXMath::CeilToDec(0.0001, 0), 1.0);
  EXPECT_EQ(GXMath::CeilToDec(1201.0, -2), 1300.0);
  EXPECT_EQ(GXMath::CeilToDec(-1299.0, -2), -1200.0);
}

TEST(CeilToDec, TakesTheNextWholeNumberForTheSmallestExcess) {
  EXPECT_EQ(GXMath::CeilToDec(std::nextafter(7.0, 8.0), 0), 8.0);
  EXPECT_EQ(GXMath::CeilToDec(7.0, 0), 7.0);
  EXPECT_EQ(GXMath::CeilToDec(std::nextafter(7.0, 6.0), 0), 7.0);
  EXPECT_EQ(GXMath::CeilToDec(kTiniest, 0), 1.0);
  EXPECT_EQ(GXMath::CeilToDec(-kTiniest, 0), 0.0);
}

TEST(CeilToDec, LeavesNumbersThatHaveTheDecimals) {
  // 0.1 is held above a tenth, 0.3 below three tenths, and 0.07 * 100 comes out above 7.
  EXPECT_EQ(GXMath::CeilToDec(0.1, 1), 0.1);
  EXPECT_EQ(GXMath::CeilToDec(0.3, 1), 0.3);
  EXPECT_EQ(GXMath::CeilToDec(0.07, 2), 0.07);
  EXPECT_EQ(GXMath::CeilToDec(-0.1, 1), -0.1);
  for (int hundredths = -1000; hundredths <= 1000; ++hundredths) {
    const double value = hundredths / 100.0;
    ASSERT_EQ(GXMath::CeilToDec(value, 2), value);
  }
}

TEST(CeilToDec, AgreesWithTheCeilingForWholeNumbers) {
  const unsigned seed = 4;
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> place(-1e5, 1e5);
  for (int i = 0; i < 5000; ++i) {
    const double value = place(random);
    ASSERT_EQ(GXMath::CeilToDec(value, 0), std::ceil(value));
  }
}

TEST(CeilToDec, StaysSaneWhereScalingOverflows) {
  EXPECT_EQ(GXMath::CeilToDec(1e300, 20), 1e300);
  EXPECT_EQ(GXMath::CeilToDec(-1e300, 20), -1e300);
  EXPECT_EQ(GXMath::CeilToDec(0.1, std::numeric_limits<int>::max()), 0.1);
  EXPECT_EQ(GXMath::CeilToDec(1e-31, 30), 1e-30);
  EXPECT_EQ(GXMath::CeilToDec(-1e-31, 30), 0.0);
  EXPECT_EQ(GXMath::CeilToDec(1e299, -300), 1e300);
  EXPECT_EQ(GXMath::CeilToDec(-6e299, -300), 0.0);
}

TEST(CeilToDec, LeavesANumberWhoseRoundedFormIsTooLarge) {
  EXPECT_EQ(GXMath::CeilToDec(1.2e308, -308), 1.2e308);
  EXPECT_EQ(GXMath::CeilToDec(5.0, -400), 5.0);
  EXPECT_EQ(GXMath::CeilToDec(-5.0, -400), 0.0);
  EXPECT_EQ(GXMath::CeilToDec(5.0, std::numeric_limits<int>::min()), 5.0);
}

TEST(CeilToDec, KeepsWhatIsNotFinite) {
  EXPECT_EQ(GXMath::CeilToDec(kInfinity, 3), kInfinity);
  EXPECT_EQ(GXMath::CeilToDec(-kInfinity, 0), -kInfinity);
  EXPECT_TRUE(std::isnan(GXMath::CeilToDec(kNan, 0)));
}

TEST(AngleUnits, ConvertTheQuartersExactly) {
  const double pi = std::acos(-1.0);
  EXPECT_EQ(GXMath::DegToRad(0.0), 0.0);
  EXPECT_EQ(GXMath::DegToRad(90.0), pi / 2.0);
  EXPECT_EQ(GXMath::DegToRad(180.0), pi);
  EXPECT_EQ(GXMath::DegToRad(-360.0), -2.0 * pi);
  EXPECT_EQ(GXMath::RadToDeg(pi / 2.0), 90.0);
  EXPECT_EQ(GXMath::RadToDeg(pi), 180.0);
  EXPECT_EQ(GXMath::RadToDeg(-2.0 * pi), -360.0);
}

TEST(AngleUnits, AreInverseToOneAnother) {
  for (int degrees = -720; degrees <= 720; ++degrees) {
    // Four roundings, each of at most half a unit in the last place of about 720.
    EXPECT_NEAR(GXMath::RadToDeg(GXMath::DegToRad(degrees)), degrees, 4.0e-13);
  }
}
