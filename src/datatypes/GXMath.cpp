#include <KTRCL_DataTypes/GXMath.h>

// Rounding is decided on the exact value of the double. In the common range the error of scaling by
// a power of ten is recovered with a fused multiply-add; outside it the exact decimal digits are
// written out and rounded as text.

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

namespace {

// The powers of ten up to here are exact doubles.
constexpr int kExactPowers = 22;
constexpr std::array<double, kExactPowers + 1> kPowersOfTen = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// From 2^53 on neighbouring doubles are at least 1 apart.
constexpr double kWholeFromHere = 9007199254740992.0;

// Below this a scaling error may itself be too small to be held exactly.
constexpr double kSmallestScaled = 1e-200;

// A double ends at most 1074 digits behind the point; the largest has 309 digits in front of it.
constexpr int kMostDecimals = 1074;
constexpr int kMostDigits = 309;

// Which number of the given decimals is wanted: the one nearest to a magnitude, or the neighbour
// above or below that one.
enum class Neighbour { kNearest, kAbove, kBelow };

// Nearest whole number to magnitude * scale, ties up, for a product below 2^53. With the recovered
// error the product is exact: `fraction - 0.5` is exact too, and the sign of a sum is never
// rounded.
double NearestWhole(double magnitude, double scale) {
  const double product = magnitude * scale;
  const double error = std::fma(magnitude, scale, -product);
  const double whole = std::floor(product);
  const double fraction = product - whole;
  return (fraction - 0.5) + error >= 0.0 ? whole + 1.0 : whole;
}

// Adds one to the number that `digits` spells.
void Increment(std::string& digits) {
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    if (*digit != '9') {
      ++*digit;
      return;
    }
    *digit = '0';
  }
  digits.insert(digits.begin(), '1');
}

// Takes one from the number above zero that `digits` spells.
void Decrement(std::string& digits) {
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    if (*digit != '0') {
      --*digit;
      return;
    }
    *digit = '9';
  }
}

// All decimal digits of a finite magnitude, kMostDecimals of them behind the point, without the
// point.
std::string ExactDigits(double magnitude) {
  std::array<char, kMostDigits + kMostDecimals + 8> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                    std::chars_format::fixed, kMostDecimals);
  std::string digits(buffer.data(), result.ptr);
  digits.erase(digits.find('.'), 1);
  return digits;
}

// The double nearest to digits * 10^-decimals, or `fallback` when that is larger than any double.
double ReadDigits(const std::string& digits, int decimals, double fallback) {
  const std::string text = digits + "e" + std::to_string(-decimals);
  double value = fallback;
  // On failure the value stays as it is.
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

// Rounds a finite magnitude on its digits; `decimals` lies in -kMostDigits..kMostDecimals.
double RoundDigits(double magnitude, int decimals, Neighbour neighbour) {
  std::string digits = ExactDigits(magnitude);
  const auto dropped = static_cast<std::size_t>(kMostDecimals - decimals);
  if (dropped >= digits.size()) {
    digits.insert(0, dropped + 1 - digits.size(), '0');
  }
  const bool up = dropped > 0 && digits[digits.size() - dropped] >= '5';
  digits.resize(digits.size() - dropped);
  if (up) {
    Increment(digits);
  }
  if (neighbour == Neighbour::kAbove) {
    Increment(digits);
  } else if (neighbour == Neighbour::kBelow) {
    Decrement(digits);
  }
  return ReadDigits(digits, decimals, magnitude);
}

// Whether every double of this magnitude is the one nearest to some number of that many decimals.
bool IsFinerThanDoubles(double magnitude, int decimals) {
  if (decimals < 0) {
    return false;
  }
  const auto power = static_cast<std::size_t>(std::min(decimals, kExactPowers));
  return decimals >= kMostDecimals || magnitude * kPowersOfTen[power] >= kWholeFromHere;
}

// Number of that many decimals at a magnitude that is finite, not 0 and not finer than doubles;
// ties go up. `decimals` is not below -kMostDigits.
double RoundMagnitude(double magnitude, int decimals, Neighbour neighbour) {
  if (decimals < 0 || decimals > kExactPowers || magnitude < kSmallestScaled) {
    return RoundDigits(magnitude, decimals, neighbour);
  }
  const double scale = kPowersOfTen[static_cast<std::size_t>(decimals)];
  double whole = NearestWhole(magnitude, scale);
  if (neighbour == Neighbour::kAbove) {
    whole += 1.0;
  } else if (neighbour == Neighbour::kBelow) {
    whole -= 1.0;
  }
  return whole / scale;
}

}  // namespace

double GXMath::RoundToDec(const double& value, const int& decimals) {
  const double magnitude = std::fabs(value);
  if (!std::isfinite(value) || value == 0.0 || IsFinerThanDoubles(magnitude, decimals)) {
    return value;
  }
  if (decimals < -kMostDigits) {
    return std::copysign(0.0, value);
  }
  return std::copysign(RoundMagnitude(magnitude, decimals, Neighbour::kNearest), value);
}

double GXMath::CeilToDec(const double& value, const int& decimals) {
  const double rounded = RoundToDec(value, decimals);
  if (!(rounded < value)) {
    return rounded;
  }
  if (decimals < -kMostDigits) {
    return value;
  }
  // Rounding went down, so the number wanted is the next one above.
  const Neighbour upward = value > 0.0 ? Neighbour::kAbove : Neighbour::kBelow;
  return std::copysign(RoundMagnitude(std::fabs(value), decimals, upward), value);
}
