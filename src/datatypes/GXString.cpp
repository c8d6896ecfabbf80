#include <KTRCL_DataTypes/GXString.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace {

// No double has more than 1074 digits behind the point; the largest has 309 in front of it.
constexpr int kMostDecimals = 1100;
constexpr std::size_t kNumberTextSize = kMostDecimals + 320;

// std::to_chars knows no locale. The buffer is large enough for every double, so it never fails.
std::string NumberText(double value, int decimals) {
  std::array<char, kNumberTextSize> buffer;
  char* const first = buffer.data();
  char* const last = first + buffer.size();
  const auto result = decimals < 0 ? std::to_chars(first, last, value)
                                   : std::to_chars(first, last, value, std::chars_format::fixed,
                                                   std::min(decimals, kMostDecimals));
  return std::string(first, result.ptr);
}

}  // namespace

GXString::GXString() = default;

GXString::GXString(const char* text) : text_(text == nullptr ? "" : text) {}

GXString::GXString(const std::string& text) : text_(text) {}

GXString::GXString(std::string&& text) noexcept : text_(std::move(text)) {}

GXString::GXString(const double& value, const int& decimals) : text_(NumberText(value, decimals)) {}

GXString::GXString(const int& value, const bool& plusSign)
    : text_((plusSign && value > 0 ? "+" : "") + std::to_string(value)) {}

GXString::GXString(const std::uint64_t& value) : text_(std::to_string(value)) {}

GXString::~GXString() = default;

bool GXString::IsEmpty() const { return text_.empty(); }

std::string& GXString::Str() { return text_; }

const std::string& GXString::Str() const { return text_; }
