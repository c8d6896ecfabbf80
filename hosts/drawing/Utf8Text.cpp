#include "drawing/Utf8Text.h"

namespace drawing {

namespace {

unsigned Byte(std::string_view text, std::size_t position) {
  return static_cast<unsigned char>(text[position]);
}

// How many bytes a character with this first byte has; 0 for a byte that begins none.
std::size_t LengthBegunBy(unsigned first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  if (first >= 0xF0 && first < 0xF5) return 4;
  return 0;
}

// The smallest character of a length; below it a shorter form is the valid one.
constexpr char32_t kLeastOfLength[] = {0, 0, 0x80, 0x800, 0x10000};

}  // namespace

char32_t NextCharacter(std::string_view text, std::size_t& position) {
  const std::size_t begin = position++;
  const unsigned first = Byte(text, begin);
  const std::size_t length = LengthBegunBy(first);
  if (length == 1) return first;
  if (length == 0 || text.size() - begin < length) return kNoCharacter;
  char32_t character = first & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const unsigned next = Byte(text, begin + i);
    if ((next & 0xC0U) != 0x80U) return kNoCharacter;
    character = (character << 6U) | (next & 0x3FU);
  }
  const bool surrogate = character >= 0xD800 && character < 0xE000;
  if (character < kLeastOfLength[length] || surrogate || character > 0x10FFFF) return kNoCharacter;
  position = begin + length;
  return character;
}

bool IsUtf8(std::string_view text) {
  for (std::size_t position = 0; position < text.size();) {
    if (NextCharacter(text, position) == kNoCharacter) return false;
  }
  return true;
}

}  // namespace drawing
