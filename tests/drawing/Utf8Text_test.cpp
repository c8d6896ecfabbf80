#include "drawing/Utf8Text.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace {

using drawing::kNoCharacter;

char32_t First(const std::string& text, std::size_t& length) {
  length = 0;
  return drawing::NextCharacter(text, length);
}

TEST(NextCharacter, ReadsTheFirstAndLastCharacterOfEveryLength) {
  const struct {
    std::string bytes;
    char32_t character;
  } cases[] = {
      {std::string(1, '\0'), 0},     {"\x7F", 0x7F},           {"\xC2\x80", 0x80},
      {"\xDF\xBF", 0x7FF},           {"\xE0\xA0\x80", 0x800},  {"\xEF\xBF\xBF", 0xFFFF},
      {"\xED\x9F\xBF", 0xD7FF},      {"\xEE\x80\x80", 0xE000}, {"\xF0\x90\x80\x80", 0x10000},
      {"\xF4\x8F\xBF\xBF", 0x10FFFF}};
  for (const auto& c : cases) {
    std::size_t length = 0;
    EXPECT_EQ(First(c.bytes + "z", length), c.character);
    EXPECT_EQ(length, c.bytes.size());
  }
}

TEST(NextCharacter, StepsOverOneByteWhereNoCharacterBegins) {
  for (const std::string bytes :
       {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3z", "\xE0\x9F\xBF", "\xE2\x82",
        "\xED\xA0\x80", "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
        "\xFE", "\xFF"}) {
    std::size_t length = 0;
    EXPECT_EQ(First(bytes, length), kNoCharacter) << testing::PrintToString(bytes);
    EXPECT_EQ(length, 1U);
  }
}

TEST(IsUtf8, IsTrueForAnEmptyText) { EXPECT_TRUE(drawing::IsUtf8("")); }

}  // namespace
