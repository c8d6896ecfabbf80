#include "drawing/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

namespace {

constexpr int kShortDecimals = 4;

// Places that a text names one by one.
constexpr std::size_t kNamedPlaces = 6;

// A sign in front of nothing but zeros says nothing.
void DropSignOfZero(std::string& text) {
  if (text.empty() || text.front() != '-') return;
  if (text.find_first_of("123456789in") == std::string::npos) text.erase(0, 1);
}

}  // namespace

std::string FixedNumber(double value, int decimals) {
  // 309 digits in front of the point, a sign, the point and 17 decimals.
  char buffer[344];
  const auto result =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals);
  std::string text(buffer, result.ptr);
  DropSignOfZero(text);
  return text;
}

std::string ShortNumber(double value) {
  std::string text = FixedNumber(value, kShortDecimals);
  if (text.find('.') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

std::string RoundedUp(double value) {
  constexpr double kStep = 10000.0;
  constexpr double kNoise = 1e-10;
  std::string text = ShortNumber(std::ceil((value - kNoise) * kStep) / kStep);
  double printed = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), printed);
  if (printed >= value - kNoise) return text;
  // Beyond the range in which four digits behind the point mean anything.
  char buffer[344];
  const auto result =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
  return {buffer, result.ptr};
}

std::string PlaceText(const GX2DPoint& p) {
  return "(" + ShortNumber(p.X) + ", " + ShortNumber(p.Y) + ")";
}

std::string PlacesText(const std::vector<GX2DPoint>& places) {
  std::string text;
  const std::size_t named = std::min(places.size(), kNamedPlaces);
  for (std::size_t i = 0; i < named; ++i) {
    const bool last = i + 1 == places.size();
    text += (i == 0 ? "" : last ? " and " : ", ") + PlaceText(places[i]);
  }
  if (places.size() > named) text += " and " + std::to_string(places.size() - named) + " more";
  return text;
}

std::string CountText(std::size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace drawing
