#include "drawing/DxfText.h"

#include "drawing/DxfTokens.h"
#include "drawing/Utf8Text.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>

namespace drawing {
namespace {

constexpr std::size_t kLongestName = 255;
// More than the escapes of a name of 255 characters take, be all of them pairs.
constexpr std::size_t kLongestRead = 4096;
constexpr std::string_view kReplacement = "\xef\xbf\xbd";

// The first version whose files are in UTF-8.
constexpr int kFirstUnicodeVersion = 1021;

constexpr std::array<const char*, 5> kMultibytePages = {"CP932", "CP950", "CP949", "JOHAB",
                                                        "CP936"};

struct NamedPage {
  std::string_view name;
  const char* page;
};

// Names of code pages that are no number behind a word, and numbers that the conversion calls
// otherwise.
constexpr std::array<NamedPage, 11> kNamedPages = {{{"ascii", "CP1252"},
                                                    {"big5", "BIG5"},
                                                    {"gb2312", "CP936"},
                                                    {"johab", "JOHAB"},
                                                    {"ansi_1361", "JOHAB"},
                                                    {"ksc5601", "CP949"},
                                                    {"macintosh", "MACINTOSH"},
                                                    {"mac-roman", "MACINTOSH"},
                                                    {"utf8", "UTF-8"},
                                                    {"utf-8", "UTF-8"},
                                                    {"ansi_65001", "UTF-8"}}};

char Small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool IsPlain(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(),
                     [](char c) { return c >= 0x20 && c < 0x7f && c != '\\'; });
}

bool IsAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// The name that iconv has for a code page; empty where the name is of no known form.
std::string PageName(std::string_view name) {
  std::string small;
  for (const char c : Trim(name).substr(0, kLongestName)) small += Small(c);
  for (const NamedPage& named : kNamedPages) {
    if (small == named.name) return named.page;
  }
  constexpr std::array<NamedPage, 6> kPrefixes = {{{"ansi_", "CP"},
                                                   {"dos", "CP"},
                                                   {"cp", "CP"},
                                                   {"iso8859-", "ISO-8859-"},
                                                   {"iso-8859-", "ISO-8859-"},
                                                   {"windows-", "CP"}}};
  for (const NamedPage& prefix : kPrefixes) {
    if (small.compare(0, prefix.name.size(), prefix.name) != 0) continue;
    const std::string number = small.substr(prefix.name.size());
    const bool digits = !number.empty() && number.size() <= 5 &&
                        number.find_first_not_of("0123456789") == std::string::npos;
    if (digits) return prefix.page + number;
  }
  return {};
}

void AppendCharacter(char32_t c, std::string& text) {
  const auto add = [&](char32_t byte) { text += static_cast<char>(byte); };
  if (c < 0x80) {
    add(c);
  } else if (c < 0x800) {
    add(0xC0 | c >> 6U);
    add(0x80 | (c & 0x3FU));
  } else if (c < 0x10000) {
    add(0xE0 | c >> 12U);
    add(0x80 | (c >> 6U & 0x3FU));
    add(0x80 | (c & 0x3FU));
  } else {
    add(0xF0 | c >> 18U);
    add(0x80 | (c >> 12U & 0x3FU));
    add(0x80 | (c >> 6U & 0x3FU));
    add(0x80 | (c & 0x3FU));
  }
}

// The number of four hexadecimal digits.
bool HexAt(std::string_view text, std::size_t position, unsigned& value) {
  if (position > text.size() || text.size() - position < 4) return false;
  unsigned number = 0;
  for (const char c : text.substr(position, 4)) {
    const char small = Small(c);
    const bool digit = small >= '0' && small <= '9';
    if (!digit && !(small >= 'a' && small <= 'f')) return false;
    number = number * 16 + static_cast<unsigned>(digit ? small - '0' : small - 'a' + 10);
  }
  value = number;
  return true;
}

bool HasUnicodeEscape(std::string_view text, std::size_t position, unsigned& unit) {
  const std::string_view mark = text.substr(std::min(position, text.size()), 3);
  return (mark == "\\U+" || mark == "\\u+") && HexAt(text, position + 3, unit);
}

// Reads \U+XXXX, two of them for a character beyond U+FFFF. Returns its length, 0 for none.
std::size_t TakeUnicodeEscape(std::string_view text, std::size_t position, DecodedText& result) {
  unsigned unit = 0;
  if (!HasUnicodeEscape(text, position, unit)) return 0;
  constexpr std::size_t kLength = 7;
  if (unit < 0xD800 || unit >= 0xE000) {
    AppendCharacter(unit, result.text);
    return kLength;
  }
  unsigned low = 0;
  const bool paired = unit < 0xDC00 && HasUnicodeEscape(text, position + kLength, low) &&
                      low >= 0xDC00 && low < 0xE000;
  if (!paired) {
    result.text += kReplacement;
    result.lost = true;
    return kLength;
  }
  AppendCharacter(0x10000U + ((unit - 0xD800U) << 10U) + (low - 0xDC00U), result.text);
  return 2 * kLength;
}

// Without control characters, and at most so long.
void Tidy(std::string& text) {
  std::size_t characters = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool begins = (byte & 0xC0U) != 0x80U;
    if (begins && ++characters > kLongestName) {
      text.resize(i);
      text += "...";
      return;
    }
    if (byte < 0x20 || byte == 0x7f) text[i] = '?';
  }
}

}  // namespace

// An open conversion into UTF-8.
class TextDecoder::Converter {
 public:
  explicit Converter(const std::string& page) : handle_(iconv_open("UTF-8", page.c_str())) {}
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() {
    if (IsOpen()) iconv_close(handle_);
  }

  // NOLINTNEXTLINE(performance-no-int-to-ptr): POSIX marks failure by (iconv_t)-1.
  bool IsOpen() const { return handle_ != reinterpret_cast<iconv_t>(std::intptr_t{-1}); }

  void Convert(std::string bytes, DecodedText& result) const {
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    char* input = bytes.data();
    std::size_t left = bytes.size();
    while (left > 0) {
      std::array<char, 256> buffer;
      char* output = buffer.data();
      std::size_t room = buffer.size();
      const bool failed = iconv(handle_, &input, &left, &output, &room) == std::size_t(-1);
      result.text.append(buffer.data(), buffer.size() - room);
      if (!failed || errno == E2BIG) continue;
      result.text += kReplacement;
      result.lost = true;
      ++input;
      --left;
    }
  }

 private:
  iconv_t handle_;
};

namespace {

// Bytes whose encoding nobody told.
void Guess(std::string_view bytes, DecodedText& result) {
  if (IsUtf8(bytes)) {
    result.text += bytes;
    return;
  }
  result.guessed = true;
  for (std::size_t position = 0; position < bytes.size();) {
    const std::size_t begin = position;
    const bool valid = NextCharacter(bytes, position) != kNoCharacter;
    if (valid) result.text += bytes.substr(begin, position - begin);
    if (!valid) AppendCharacter(static_cast<unsigned char>(bytes[begin]), result.text);
  }
}

}  // namespace

TextDecoder::TextDecoder() = default;
TextDecoder::~TextDecoder() = default;
TextDecoder::TextDecoder(TextDecoder&&) noexcept = default;
TextDecoder& TextDecoder::operator=(TextDecoder&&) noexcept = default;

void TextDecoder::SetVersion(std::string_view version) {
  version = Trim(version);
  int number = 0;
  unicode_ = version.substr(0, 2) == "AC" && ParseInteger(version.substr(2), number) &&
             number >= kFirstUnicodeVersion;
}

bool TextDecoder::SetCodePage(std::string_view name) {
  converter_.reset();
  const std::string page = PageName(name);
  if (page.empty()) return false;
  converter_ = std::make_unique<Converter>(page);
  if (!converter_->IsOpen()) converter_.reset();
  return converter_ != nullptr;
}

bool TextDecoder::IsUnicode() const { return unicode_; }

// Reads \M+nXXXX. Returns its length, 0 for none.
std::size_t TextDecoder::TakeMultibyteEscape(std::string_view text, std::size_t position,
                                             DecodedText& result) const {
  constexpr std::size_t kLength = 8;
  const std::string_view mark = text.substr(position, 4);
  unsigned code = 0;
  if (mark.substr(0, 3) != "\\M+" || mark.size() < 4 || mark[3] < '1' || mark[3] > '5') return 0;
  if (!HexAt(text, position + 4, code)) return 0;
  const auto page = static_cast<std::size_t>(mark[3] - '1');
  std::unique_ptr<Converter>& converter = multibyte_.at(page);
  if (!converter) converter = std::make_unique<Converter>(kMultibytePages.at(page));
  if (!converter->IsOpen()) return 0;
  converter->Convert({static_cast<char>(code >> 8U), static_cast<char>(code & 0xFFU)}, result);
  return kLength;
}

DecodedText TextDecoder::Decode(std::string_view bytes) const {
  DecodedText result;
  if (bytes.size() <= kLongestName && IsPlain(bytes)) {
    result.text = bytes;
    return result;
  }
  bytes = bytes.substr(0, kLongestRead);
  // The second byte of a character may look like a backslash, so escapes come after conversion.
  DecodedText raw;
  if (unicode_ || converter_ == nullptr || IsAscii(bytes)) {
    Guess(bytes, raw);
  } else {
    converter_->Convert(std::string(bytes), raw);
  }
  result.guessed = raw.guessed;
  result.lost = raw.lost;
  for (std::size_t i = 0; i < raw.text.size();) {
    std::size_t taken = TakeUnicodeEscape(raw.text, i, result);
    if (taken == 0) taken = TakeMultibyteEscape(raw.text, i, result);
    if (taken == 0) result.text += raw.text[i];
    i += taken == 0 ? 1 : taken;
  }
  Tidy(result.text);
  return result;
}

std::string NameKey(std::string_view name) {
  name = Trim(name);
  std::string key;
  key.reserve(name.size());
  for (std::size_t position = 0; position < name.size();) {
    const std::size_t begin = position;
    const char32_t c = NextCharacter(name, position);
    const bool twenty = (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7) ||
                        (c >= 0x391 && c <= 0x3A9) || (c >= 0x410 && c <= 0x42F);
    if (twenty) {
      AppendCharacter(c + 0x20, key);
    } else if (c >= 0x400 && c <= 0x40F) {
      AppendCharacter(c + 0x50, key);
    } else {
      key += name.substr(begin, position - begin);
    }
  }
  return key;
}

}  // namespace drawing
