#include "drawing/EscapedText.h"

#include "TreeSketch.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using drawing::Escaped;
using drawing::IsPlainText;

std::string Unescaped(const std::string& text) {
  std::string bytes;
  EXPECT_TRUE(drawing::Unescape(text, bytes)) << text;
  return bytes;
}

TEST(Escaped, LeavesTextAsItIsButForThePercentSign) {
  EXPECT_EQ(Escaped("Blech 2 mm <\xC3\xA4>"), "Blech 2 mm <\xC3\xA4>");
  EXPECT_EQ(Escaped("100%"), "100%25");
  EXPECT_EQ(Escaped(""), "");
}

TEST(Escaped, WritesBytesThatXmlCannotHoldAsTwoDigits) {
  EXPECT_EQ(Escaped("a\nb\tc\x7F"), "a%0Ab%09c%7F");
  EXPECT_EQ(Escaped(std::string("\0", 1)), "%00");
  EXPECT_EQ(Escaped("\xE4"), "%E4");
  // U+0085, a control character, and U+FFFE, which XML does not allow.
  EXPECT_EQ(Escaped("\xC2\x85"), "%C2%85");
  EXPECT_EQ(Escaped("\xEF\xBF\xBE"), "%EF%BF%BE");
}

TEST(Escaped, ComesBackAsTheSameBytesAndIsPlainText) {
  support::Random random;
  for (int i = 0; i < 20000; ++i) {
    const std::string bytes = support::RandomBytes(random);
    EXPECT_TRUE(IsPlainText(Escaped(bytes)));
    EXPECT_EQ(Unescaped(Escaped(bytes)), bytes);
  }
}

TEST(Unescape, TakesSmallDigitsToo) { EXPECT_EQ(Unescaped("%e4%4a"), "\xE4J"); }

TEST(Unescape, RefusesAPercentSignWithoutTwoDigits) {
  for (const char* const text : {"%", "a%", "%4", "%4g", "%g4", "%%41", "% 1"}) {
    std::string bytes;
    EXPECT_FALSE(drawing::Unescape(text, bytes)) << text;
  }
}

TEST(IsPlainText, KnowsWhatEditorsAndReadersOfXmlLeaveAlone) {
  EXPECT_TRUE(IsPlainText(""));
  EXPECT_TRUE(IsPlainText("a & b < c > \"d\" %"));
  EXPECT_TRUE(IsPlainText("\xF4\x8F\xBF\xBF"));
  EXPECT_FALSE(IsPlainText("a\tb"));
  EXPECT_FALSE(IsPlainText("a\r\nb"));
  EXPECT_FALSE(IsPlainText(std::string("a\0b", 3)));
  EXPECT_FALSE(IsPlainText("\xC2\x9B"));
  EXPECT_FALSE(IsPlainText("\xE4"));
}

TEST(IsXmlCharacter, HasTheRangesOfXml) {
  for (const char32_t c :
       {0x9U, 0xAU, 0xDU, 0x20U, 0xD7FFU, 0xE000U, 0xFFFDU, 0x10000U, 0x10FFFFU}) {
    EXPECT_TRUE(drawing::IsXmlCharacter(c)) << static_cast<unsigned>(c);
  }
  for (const char32_t c : {0x0U, 0x8U, 0xBU, 0xCU, 0xEU, 0x1FU, 0xD800U, 0xDFFFU, 0xFFFEU, 0xFFFFU,
                           0x110000U, 0xFFFFFFFFU}) {
    EXPECT_FALSE(drawing::IsXmlCharacter(c)) << static_cast<unsigned>(c);
  }
}

}  // namespace
