#include "drawing/DxfTokens.h"

#include "drawing/Utf8Text.h"
#include "support/DxfText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace drawing {
namespace {

using Result = DxfGroupReader::Result;

double Number(std::string_view text, NumberForm wanted = NumberForm::kPlain) {
  double value = -12345.0;
  EXPECT_EQ(ParseNumber(text, value), wanted) << text;
  return value;
}

// ---- numbers

TEST(ParseNumber, ReadsDecimalsAndExponents) {
  EXPECT_EQ(Number("12.5"), 12.5);
  EXPECT_EQ(Number("-3"), -3.0);
  EXPECT_EQ(Number("1.25e2"), 125.0);
  EXPECT_EQ(Number("1E-2"), 0.01);
  EXPECT_EQ(Number(".5"), 0.5);
  EXPECT_EQ(Number("-.5"), -0.5);
  EXPECT_EQ(Number("5."), 5.0);
}

TEST(ParseNumber, StripsBlanksAndALeadingPlus) {
  EXPECT_EQ(Number("  12.5\t "), 12.5);
  EXPECT_EQ(Number("+7"), 7.0);
  EXPECT_EQ(Number("7\r"), 7.0);
}

TEST(ParseNumber, AcceptsADecimalCommaAndSaysSo) {
  EXPECT_EQ(Number("12,5", NumberForm::kDecimalComma), 12.5);
  EXPECT_EQ(Number("-0,25", NumberForm::kDecimalComma), -0.25);
}

TEST(ParseNumber, RefusesWhatIsNoNumberAndLeavesTheValueAlone) {
  for (const char* text :
       {"abc", "1.5.2", "",         " ",    "+",    "-",   "+-5",     "++5",   "1e", "nan", "-nan",
        "inf", "-inf",  "infinity", "0x10", "12 5", "12a", "1,234.5", "1,2,3", ",",  "."}) {
    EXPECT_EQ(Number(text, NumberForm::kNotANumber), -12345.0) << text;
  }
}

TEST(ParseNumber, RefusesNumbersBeyondTheRangeOfADouble) {
  for (const char* text : {"1e999", "-1e999", "+1e400", "0.5e999"}) {
    EXPECT_EQ(Number(text, NumberForm::kOutOfRange), -12345.0) << text;
  }
  EXPECT_EQ(Number(std::string(400, '9'), NumberForm::kOutOfRange), -12345.0);
}

TEST(ParseNumber, TakesNumbersTooSmallForADoubleAsZero) {
  EXPECT_EQ(Number("1e-999"), 0.0);
  EXPECT_EQ(Number("-1e-999"), 0.0);
  EXPECT_EQ(Number("0." + std::string(400, '0') + "1"), 0.0);
}

TEST(ParseInteger, ReadsWholeNumbersWithinBlanks) {
  int value = 0;
  EXPECT_TRUE(ParseInteger("     70", value));
  EXPECT_EQ(value, 70);
  EXPECT_TRUE(ParseInteger("+4 ", value));
  EXPECT_EQ(value, 4);
  EXPECT_TRUE(ParseInteger("-2147483648", value));
  EXPECT_EQ(value, -2147483647 - 1);
}

TEST(ParseInteger, RefusesAllElseAndLeavesTheValueAlone) {
  int value = 42;
  for (const char* text : {"", "4.0", "x", "2147483648", "99999999999999999999", "+-1", "1 2"}) {
    EXPECT_FALSE(ParseInteger(text, value)) << text;
  }
  EXPECT_EQ(value, 42);
}

// ---- text

TEST(ReadableText, KeepsUtf8AndReadsOtherBytesAsLatin1) {
  EXPECT_EQ(ReadableText("Au\xc3\x9f"
                         "en"),
            "Au\xc3\x9f"
            "en");
  EXPECT_EQ(ReadableText("Au\xdf"
                         "en"),
            "Au\xc3\x9f"
            "en");
  EXPECT_FALSE(
      IsUtf8("Au\xdf"
             "en"));
  EXPECT_TRUE(
      IsUtf8("Au\xc3\x9f"
             "en"));
}

TEST(ReadableText, IsAlwaysUtf8) {
  // Overlong form, surrogate, beyond the last code point, cut off, lone continuation.
  for (const char* text : {"\xc0\xaf", "\xe0\x80\xaf", "\xed\xa0\x80", "\xf4\x90\x80\x80",
                           "\xe2\x82", "\x80", "\xff\xfe"}) {
    EXPECT_FALSE(IsUtf8(text));
    EXPECT_TRUE(IsUtf8(ReadableText(text)));
  }
}

TEST(ReadableText, ReplacesControlCharactersAndShortensLongTexts) {
  EXPECT_EQ(ReadableText("a\x07"
                         "b\x7f"),
            "a?b?");
  EXPECT_EQ(ReadableText("abcdef", 3), "abc...");
}

// ---- groups

std::vector<DxfGroup> AllGroups(std::string_view text) {
  DxfGroupReader reader(text);
  std::vector<DxfGroup> groups;
  DxfGroup group;
  while (reader.Next(group) == Result::kGroup) groups.push_back(group);
  return groups;
}

void ExpectLineGroups(const std::vector<DxfGroup>& groups) {
  ASSERT_EQ(groups.size(), 2u);
  EXPECT_EQ(groups[0].code, 0);
  EXPECT_EQ(groups[0].value, "LINE");
  EXPECT_EQ(groups[0].line, 2u);
  EXPECT_EQ(groups[1].code, 8);
  EXPECT_EQ(groups[1].value, "my layer");
  EXPECT_EQ(groups[1].line, 4u);
}

TEST(DxfGroupReader, ReadsLinesEndedByLf) { ExpectLineGroups(AllGroups("0\nLINE\n8\nmy layer\n")); }

TEST(DxfGroupReader, ReadsLinesEndedByCrLf) {
  ExpectLineGroups(AllGroups("0\r\nLINE\r\n8\r\nmy layer\r\n"));
}

TEST(DxfGroupReader, ReadsLinesEndedByCrAlone) {
  ExpectLineGroups(AllGroups("0\rLINE\r8\rmy layer\r"));
}

TEST(DxfGroupReader, ReadsTheLastLineWithoutAnEnd) {
  ExpectLineGroups(AllGroups("0\nLINE\n8\nmy layer"));
}

TEST(DxfGroupReader, StripsBlanksAroundCodesAndBehindValues) {
  ExpectLineGroups(AllGroups("  0 \nLINE  \n  8\t\nmy layer \t\r\n"));
}

TEST(DxfGroupReader, PassesOverAByteOrderMark) {
  ExpectLineGroups(
      AllGroups("\xef\xbb\xbf"
                "0\nLINE\n8\nmy layer\n"));
}

TEST(DxfGroupReader, EndsAtTrailingBlankLines) {
  DxfGroupReader reader("0\nEOF\n\n  \n\r\n\x1a");
  DxfGroup group;
  EXPECT_EQ(reader.Next(group), Result::kGroup);
  EXPECT_EQ(reader.Next(group), Result::kEnd);
}

TEST(DxfGroupReader, TellsACodeWithoutAValue) {
  DxfGroupReader reader("0\nLINE\n8\n");
  DxfGroup group;
  EXPECT_EQ(reader.Next(group), Result::kGroup);
  EXPECT_EQ(reader.Next(group), Result::kNoValue);
  EXPECT_EQ(reader.Next(group), Result::kEnd);
}

TEST(DxfGroupReader, TellsACodeThatIsNoneWithItsLine) {
  for (const char* code : {"x", "1.5", "10000", "-6", "99999999999999999999", "--1"}) {
    SCOPED_TRACE(code);
    const std::string text = std::string("0\nLINE\n") + code + "\n5\n";
    DxfGroupReader reader(text);
    DxfGroup group;
    EXPECT_EQ(reader.Next(group), Result::kGroup);
    EXPECT_EQ(reader.Next(group), Result::kBadCode);
    EXPECT_EQ(group.value, code);
    EXPECT_EQ(group.line, 3u);
  }
}

TEST(DxfGroupReader, FindsTheNextRecordAlsoWhereTheLinesHaveSlippedByOne) {
  // The value of 21 is missing, so that "21" takes the "0" of the next record.
  DxfGroupReader reader("21\n0\nLINE\n8\ncut\n");
  DxfGroup group;
  EXPECT_EQ(reader.Next(group), Result::kGroup);
  EXPECT_EQ(group.value, "0");
  EXPECT_EQ(reader.Next(group), Result::kBadCode);
  ASSERT_TRUE(reader.Resynchronise(group));
  EXPECT_EQ(group.code, 0);
  EXPECT_EQ(group.value, "LINE");
  EXPECT_EQ(group.line, 3u);
  EXPECT_EQ(reader.Next(group), Result::kGroup);
  EXPECT_EQ(group.value, "cut");
}

TEST(DxfGroupReader, FindsNoRecordWhereNoneIsLeft) {
  DxfGroupReader reader("x\n0\n5\nline\n0\n");
  DxfGroup group;
  EXPECT_EQ(reader.Next(group), Result::kBadCode);
  EXPECT_FALSE(reader.Resynchronise(group));
  EXPECT_EQ(reader.Next(group), Result::kEnd);
}

// ---- records

struct ReadRecord {
  std::string type;
  std::size_t groups;
  bool complete;
  std::string damage;
  std::size_t damageLine;
};

std::vector<ReadRecord> AllRecords(const std::string& text) {
  DxfRecordReader reader(text);
  std::vector<ReadRecord> records;
  std::string problem;
  std::size_t line = 0;
  EXPECT_TRUE(reader.Start(problem, line));
  DxfRecord record;
  while (reader.Next(record)) {
    records.push_back({std::string(record.type), record.groups.size(), record.complete,
                       record.damage, record.damageLine});
  }
  return records;
}

TEST(DxfRecordReader, GathersGroupsUpToTheNextRecordWithoutComments) {
  const auto records = AllRecords(support::Lines("999 made 0 LINE 8 cut 999 by 10 1 0 EOF 0 LINE"));
  ASSERT_EQ(records.size(), 2u);  // None behind the end mark.
  EXPECT_EQ(records[0].type, "LINE");
  EXPECT_EQ(records[0].groups, 2u);
  EXPECT_TRUE(records[0].complete);
  EXPECT_EQ(records[1].type, "EOF");
}

TEST(DxfRecordReader, TellsThatTheTextEndedWithinARecord) {
  for (const char* text : {"0 LINE 8 cut", "0 LINE 8", "0 LINE 8 cut 0"}) {
    const auto records = AllRecords(support::Lines(text));
    ASSERT_EQ(records.size(), 1u) << text;
    EXPECT_FALSE(records[0].complete) << text;
  }
}

TEST(DxfRecordReader, MarksTheDamagedRecordOnlyAndGoesOn) {
  const auto records = AllRecords(support::Lines("0 LINE 8 cut x 5 6 0 ARC 8 cut 0 EOF"));
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[0].damage, "\"x\" stands where a group code is expected");
  EXPECT_EQ(records[0].damageLine, 5u);
  EXPECT_TRUE(records[0].complete);
  EXPECT_EQ(records[1].type, "ARC");
  EXPECT_EQ(records[1].damage, "");
}

TEST(DxfRecordReader, TakesANumberAsNameOfARecordForDamage) {
  const auto records = AllRecords(support::Lines("0 LINE 10 20 0 11 5 21 0 ARC 8 cut 0 EOF"));
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[0].damage, "\"11\" is no name of a record");
  EXPECT_EQ(records[1].type, "ARC");
}

TEST(DxfRecordReader, PassesOverWhatStandsBeforeTheFirstRecord) {
  const std::string text = support::Lines("garbage more 0 SECTION 2 ENTITIES");
  DxfRecordReader reader(text);
  std::string problem;
  std::size_t line = 0;
  ASSERT_TRUE(reader.Start(problem, line));
  EXPECT_EQ(problem, "\"garbage\" stands where the first group code is expected");
  EXPECT_EQ(line, 1u);
  DxfRecord record;
  ASSERT_TRUE(reader.Next(record));
  EXPECT_EQ(record.type, "SECTION");
}

TEST(DxfRecordReader, RefusesTextsWithoutAnyRecord) {
  for (const char* text :
       {"hello world", "0", "8\ncut\n", "0\n12\n", "%PDF-1.4\n0\nobj\n0\nOBJ\n"}) {
    SCOPED_TRACE(text);
    DxfRecordReader reader(text);
    std::string problem;
    std::size_t line = 0;
    EXPECT_FALSE(reader.Start(problem, line));
    EXPECT_NE(problem, "");
    DxfRecord record;
    EXPECT_FALSE(reader.Next(record));
  }
}

}  // namespace
}  // namespace drawing
