#include "drawing/EscapedText.h"

#include "drawing/Utf8Text.h"

#include <cstddef>

namespace drawing {

namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

// C0 and C1. XML 1.0 forbids most of the former and advises against the latter, and a terminal may
// obey either.
bool IsControl(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

bool IsPlain(char32_t character) { return IsXmlCharacter(character) && !IsControl(character); }

int DigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

}  // namespace

bool IsXmlCharacter(char32_t character) {
  if (character < 0x20) return character == '\t' || character == '\n' || character == '\r';
  if (character >= 0xD800 && character < 0xE000) return false;
  return character <= 0x10FFFF && character != 0xFFFE && character != 0xFFFF;
}

bool IsPlainText(std::string_view text) {
  for (std::size_t position = 0; position < text.size();) {
    if (!IsPlain(NextCharacter(text, position))) return false;
  }
  return true;
}

std::string Escaped(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t position = 0; position < bytes.size();) {
    const std::size_t begin = position;
    const char32_t character = NextCharacter(bytes, position);
    if (IsPlain(character) && character != '%') {
      text.append(bytes.substr(begin, position - begin));
      continue;
    }
    for (std::size_t i = begin; i < position; ++i) {
      const auto byte = static_cast<unsigned char>(bytes[i]);
      text += {'%', kDigits[byte / 16], kDigits[byte % 16]};
    }
  }
  return text;
}

bool Unescape(std::string_view text, std::string& bytes) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      bytes += text[i];
      continue;
    }
    if (text.size() - i < 3) return false;
    const int high = DigitValue(text[i + 1]);
    const int low = DigitValue(text[i + 2]);
    if (high < 0 || low < 0) return false;
    bytes += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return true;
}

}  // namespace drawing
