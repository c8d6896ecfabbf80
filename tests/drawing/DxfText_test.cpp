// Names of files in all sorts of encodings. The bytes are those of the tables of the code pages.
#include "drawing/DxfText.h"

#include "drawing/DxfReader.h"
#include "support/DxfText.h"

#include <gtest/gtest.h>

#include <string>

namespace drawing {
namespace {

TextDecoder DecoderOf(const char* version, const char* page) {
  TextDecoder decoder;
  decoder.SetVersion(version);
  decoder.SetCodePage(page);
  return decoder;
}

std::string Decoded(const char* version, const char* page, const char* bytes) {
  return DecoderOf(version, page).Decode(bytes).text;
}

TEST(TextDecoder, ReadsTheCodePageOfOlderVersions) {
  EXPECT_EQ(Decoded("AC1015", "ANSI_1252", "Ma\xdf"), "Maß");
  EXPECT_EQ(Decoded("AC1015", "ansi_1252", "\x80"), "€");
  EXPECT_EQ(Decoded("AC1009", "dos850", "\x81"), "ü");
  EXPECT_EQ(Decoded("AC1018", "ANSI_936", "\xd0\xc2"), "新");
  EXPECT_EQ(Decoded("AC1015", "ANSI_1251", "\xd0\xe5\xe7"), "Рез");
  EXPECT_EQ(Decoded("AC1015", "ISO8859-1", "\xe9"), "é");
  EXPECT_EQ(Decoded("AC1015", "ANSI_950", "\xa4\xa4"), "中");
}

TEST(TextDecoder, DoesNotTakeTheSecondByteOfACharacterForABackslash) {
  // In code page 932 the bytes 83 5C are one character, and here "U+0041" follows it.
  EXPECT_EQ(Decoded("AC1015", "ANSI_932",
                    "\x83\x5c"
                    "U+0041"),
            "ソU+0041");
}

TEST(TextDecoder, ReadsLaterVersionsAsUtf8WhateverTheirCodePage) {
  EXPECT_EQ(Decoded("AC1021", "ANSI_1252", "Ma\xc3\x9f"), "Maß");
  EXPECT_EQ(Decoded("AC1032", "ANSI_936", "\xe6\x96\xb0"), "新");
  EXPECT_EQ(Decoded("AC1018", "ANSI_1252", "Ma\xc3\x9f"), "MaÃ\u0178");
}

TEST(TextDecoder, TakesBytesOfNoKnownEncodingAsUtf8OrLatin1) {
  TextDecoder decoder;
  EXPECT_FALSE(decoder.SetCodePage("KLINGON"));
  EXPECT_FALSE(decoder.SetCodePage("ANSI_99999"));
  EXPECT_FALSE(decoder.SetCodePage(""));
  EXPECT_EQ(decoder.Decode("Ma\xc3\x9f").text, "Maß");
  EXPECT_FALSE(decoder.Decode("Ma\xc3\x9f").guessed);
  EXPECT_EQ(decoder.Decode("Ma\xdf").text, "Maß");
  EXPECT_TRUE(decoder.Decode("Ma\xdf").guessed);
  EXPECT_FALSE(decoder.Decode("Ma\xdf").lost);
}

TEST(TextDecoder, ReplacesWhatTheCodePageDoesNotKnow) {
  // 81 stands for nothing in code page 1252; D0 begins a pair in 936.
  const DecodedText undefined = DecoderOf("AC1015", "ANSI_1252").Decode("a\x81z");
  EXPECT_EQ(undefined.text, "a\uFFFDz");
  EXPECT_TRUE(undefined.lost);
  EXPECT_EQ(Decoded("AC1015", "ANSI_936", "a\xd0"), "a\uFFFD");
}

TEST(TextDecoder, ReadsEscapedCharacters) {
  EXPECT_EQ(Decoded("AC1015", "ANSI_1252", "\\U+00D8 12"), "Ø 12");
  EXPECT_EQ(Decoded("AC1021", "", "a\\U+65B0z"), "a新z");
  EXPECT_EQ(Decoded("AC1015", "ANSI_1252", "\\U+D83D\\U+DE00"), "\U0001F600");
  EXPECT_EQ(Decoded("AC1015", "ANSI_1252", "\\M+5D0C2"), "新");
  EXPECT_EQ(Decoded("AC1015", "ANSI_1252", "\\M+1835C"), "ソ");
}

TEST(TextDecoder, ReplacesLoneSurrogatesAndKeepsWhatIsNoEscape) {
  const DecodedText lone = DecoderOf("AC1015", "ANSI_1252").Decode("\\U+D83Dx\\U+DE00");
  EXPECT_EQ(lone.text, "\uFFFDx\uFFFD");
  EXPECT_TRUE(lone.lost);
  EXPECT_EQ(Decoded("AC1015", "", "\\U+00G1\\U+12\\M+9D0C2\\"), "\\U+00G1\\U+12\\M+9D0C2\\");
}

TEST(TextDecoder, MakesControlCharactersQuestionMarksAndShortensBetweenCharacters) {
  EXPECT_EQ(Decoded("", "", "a\x01z"), "a?z");
  EXPECT_EQ(Decoded("AC1015", "ANSI_1252", "\\U+000Ab"), "?b");
  std::string name(254, 'a');
  EXPECT_EQ(TextDecoder().Decode(name + "\xc3\x9f").text, name + "\xc3\x9f");
  EXPECT_EQ(TextDecoder().Decode(name + "\xc3\x9fz").text, name + "\xc3\x9f...");
}

TEST(NameKey, DropsBlanksAndCase) {
  EXPECT_EQ(NameKey(" Cut-1 "), "cut-1");
  EXPECT_EQ(NameKey("ÄÖÜ×ß"), "äöü×ß");
  EXPECT_EQ(NameKey("РЁΣ"), "рёσ");
}

// ---- in drawings

TEST(CodePage, CountsForLayersLinetypesAndBlocks) {
  const Drawing drawing = ReadDrawingText(
      support::Lines(
          "0 SECTION 2 HEADER 9 $ACADVER 1 AC1015 9 $DWGCODEPAGE 3 ANSI_1252 9 $INSUNITS "
          "70 4 0 ENDSEC 0 SECTION 2 BLOCKS 0 BLOCK 2 B\xe4r 0 LINE 8 Ma\xdf 6 d\xfcnn "
          "10 0 20 0 11 1 21 0 0 ENDBLK 0 ENDSEC 0 SECTION 2 ENTITIES 0 INSERT 2 "
          "B\\U+00C4R 10 0 20 0 0 ENDSEC 0 EOF"),
      "a.dxf");
  ASSERT_EQ(drawing.entities.size(), 1u);
  EXPECT_EQ(drawing.entities[0].layer, "Maß");
  EXPECT_EQ(drawing.entities[0].linetype, "dünn");
  EXPECT_EQ(drawing.entities[0].block, "Bär");
  EXPECT_TRUE(drawing.complaints.empty());
}

TEST(CodePage, BehindTheEntitiesCountsForAll) {
  const Drawing drawing = ReadDrawingText(
      support::Lines(
          "0 SECTION 2 ENTITIES 0 LINE 8 \xd0\xc2 10 0 20 0 11 1 21 0 0 ENDSEC 0 SECTION "
          "2 HEADER 9 $ACADVER 1 AC1015 9 $DWGCODEPAGE 3 ANSI_936 9 $INSUNITS 70 4 0 "
          "ENDSEC 0 EOF"),
      "a.dxf");
  ASSERT_EQ(drawing.entities.size(), 1u);
  EXPECT_EQ(drawing.entities[0].layer, "新");
}

TEST(CodePage, UnknownIsANote) {
  const Drawing drawing = ReadDrawingText(
      support::DxfWithHeader("9 $ACADVER 1 AC1015 9 $DWGCODEPAGE 3 KLINGON 9 $INSUNITS 70 4",
                             "0 LINE 8 Ma\xdf 10 0 20 0 11 1 21 0"),
      "a.dxf");
  ASSERT_EQ(drawing.complaints.size(), 2u);
  EXPECT_EQ(
      ToLine(drawing.complaints[0]),
      "a.dxf:12: note: $DWGCODEPAGE \"KLINGON\" is no code page that is known; names that are "
      "not UTF-8 are taken as Latin-1");
  EXPECT_EQ(drawing.entities[0].layer, "Maß");
}

TEST(CodePage, WithoutAMeaningForBytesIsToldOnce) {
  const std::string line = " 0 LINE 8 \x81 10 0 20 0 11 1 21 0";
  const Drawing drawing = ReadDrawingText(
      support::DxfWithHeader("9 $ACADVER 1 AC1015 9 $DWGCODEPAGE 3 ANSI_1252 9 $INSUNITS 70 4",
                             line + line),
      "a.dxf");
  ASSERT_EQ(drawing.complaints.size(), 1u);
  EXPECT_EQ(drawing.complaints[0].severity, Severity::kNote);
  EXPECT_EQ(drawing.complaints[0].what,
            "2 entities have names with bytes that mean nothing in the encoding of the file, the "
            "first one here");
}

}  // namespace
}  // namespace drawing
