#include <KTRCL_DataTypes/GXString.h>

#include <gtest/gtest.h>

#include <charconv>
#include <clocale>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <type_traits>
#include <utility>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

double Read(const GXString& text) {
  double value = 0.0;
  const std::string& bytes = text.Str();
  const auto result = std::from_chars(bytes.data(), bytes.data() + bytes.size(), value);
  EXPECT_EQ(result.ptr, bytes.data() + bytes.size()) << bytes;
  return value;
}

}  // namespace

TEST(GXString, IsEmptyByDefault) {
  EXPECT_TRUE(GXString().IsEmpty());
  EXPECT_EQ(GXString().Str(), "");
}

TEST(GXString, TakesTextThatEndsWithANull) {
  const GXString text("Start");
  EXPECT_FALSE(text.IsEmpty());
  EXPECT_EQ(text.Str(), "Start");
  EXPECT_TRUE(GXString("").IsEmpty());
}

TEST(GXString, TakesANullPointerForTheEmptyText) {
  const char* const nothing = nullptr;
  EXPECT_TRUE(GXString(nothing).IsEmpty());
}

TEST(GXString, TakesStandardStringsWithNullBytes) {
  const std::string bytes("a\0b", 3);
  EXPECT_EQ(GXString(bytes).Str().size(), 3u);
  EXPECT_EQ(GXString(std::string("x") + "y").Str(), "xy");
}

TEST(GXString, ConvertsFromTextsAndCountsWithoutBeingAsked) {
  EXPECT_TRUE((std::is_convertible_v<const char*, GXString>));
  EXPECT_TRUE((std::is_convertible_v<std::string, GXString>));
  EXPECT_TRUE((std::is_convertible_v<std::uint64_t, GXString>));
}

TEST(GXString, HasAVirtualDestructorAndMovesWithoutThrowing) {
  EXPECT_TRUE(std::has_virtual_destructor_v<GXString>);
  EXPECT_TRUE(std::is_nothrow_move_constructible_v<GXString>);
  EXPECT_TRUE(std::is_nothrow_move_assignable_v<GXString>);
}

TEST(GXString, GivesAccessToTheInnerString) {
  GXString text("Arc");
  text.Str() += "2D";
  text.Str().insert(0, "GX");
  EXPECT_EQ(text.Str().compare("GXArc2D"), 0);
  const GXString taken(std::move(text.Str()));
  EXPECT_EQ(taken.Str(), "GXArc2D");
}

TEST(GXString, CopiesAndMoves) {
  const GXString text("a text that is too long to be held without memory of its own");
  GXString copy(text);
  EXPECT_EQ(copy.Str(), text.Str());
  copy = GXString("b");
  EXPECT_EQ(copy.Str(), "b");
  GXString moved(std::move(copy));
  EXPECT_EQ(moved.Str(), "b");
  const GXString& itself = moved;
  moved = itself;
  EXPECT_EQ(moved.Str(), "b");
}

TEST(GXStringFromDouble, IsTheShortestTextThatReadsBack) {
  EXPECT_EQ(GXString(0.1, -1).Str(), "0.1");
  EXPECT_EQ(GXString(5.0, -1).Str(), "5");
  EXPECT_EQ(GXString(-2.5, -1).Str(), "-2.5");
  EXPECT_EQ(GXString(0.1 + 0.2, -1).Str(), "0.30000000000000004");
  EXPECT_EQ(GXString(1e300, -1).Str(), "1e+300");
  EXPECT_EQ(GXString(0.0, -1).Str(), "0");
  EXPECT_EQ(GXString(-0.0, -1).Str(), "-0");
  EXPECT_EQ(GXString(0.1, -7).Str(), "0.1");
}

TEST(GXStringFromDouble, ReadsBackToTheSameNumberForRandomBits) {
  const unsigned seed = 55;
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  std::mt19937_64 random(seed);
  for (int i = 0; i < 20000; ++i) {
    const std::uint64_t bits = random();
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    if (value != value || value == kInfinity || value == -kInfinity) {
      continue;
    }
    const double back = Read(GXString(value, -1));
    ASSERT_EQ(std::memcmp(&back, &value, sizeof value), 0) << value;
  }
}

TEST(GXStringFromDouble, ReadsBackAtTheEndsOfTheRange) {
  for (const double value :
       {std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
        std::numeric_limits<double>::denorm_min(), -std::numeric_limits<double>::max()}) {
    EXPECT_EQ(Read(GXString(value, -1)), value);
  }
}

TEST(GXStringFromDouble, WritesTheDecimalsAskedFor) {
  EXPECT_EQ(GXString(2.0, 3).Str(), "2.000");
  EXPECT_EQ(GXString(1.23456, 2).Str(), "1.23");
  EXPECT_EQ(GXString(-1.5, 0).Str(), "-2");
  EXPECT_EQ(GXString(12345.678, 1).Str(), "12345.7");
  EXPECT_EQ(GXString(0.5, 0).Str(), "0");  // a tie goes to the even digit
  EXPECT_EQ(GXString(1e22, 1).Str(), "10000000000000000000000.0");
}

TEST(GXStringFromDouble, HasRoomForTheLongestTexts) {
  // The largest double has 309 digits in front of the point; the sign and the point come on top.
  const GXString largest(-std::numeric_limits<double>::max(), std::numeric_limits<int>::max());
  EXPECT_EQ(largest.Str().size(), 1u + 309u + 1u + 1100u);
  // The smallest double is 2^-1074, which ends with a 5 in its 1074th decimal.
  const std::string smallest = GXString(std::numeric_limits<double>::denorm_min(), 1074).Str();
  EXPECT_EQ(smallest.size(), 2u + 1074u);
  EXPECT_EQ(smallest.back(), '5');
  EXPECT_EQ(smallest.substr(0, 326), "0." + std::string(323, '0') + "4");
}

TEST(GXStringFromDouble, NamesWhatIsNotFinite) {
  EXPECT_EQ(GXString(kInfinity, -1).Str(), "inf");
  EXPECT_EQ(GXString(-kInfinity, 3).Str(), "-inf");
  EXPECT_EQ(GXString(std::numeric_limits<double>::quiet_NaN(), -1).Str(), "nan");
}

TEST(GXStringFromDouble, UsesAPointWhateverTheLocale) {
  const std::string before = std::setlocale(LC_NUMERIC, nullptr);
  // Not every machine has one of these; without it the check is weaker, not wrong.
  const bool german = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr ||
                      std::setlocale(LC_NUMERIC, "fr_FR.UTF-8") != nullptr;
  EXPECT_EQ(GXString(1234.5, -1).Str(), "1234.5");
  EXPECT_EQ(GXString(1234.5, 2).Str(), "1234.50");
  std::setlocale(LC_NUMERIC, before.c_str());
  RecordProperty("locale_with_comma", german ? "yes" : "no");
}

TEST(GXStringFromInt, WritesTheInteger) {
  EXPECT_EQ(GXString(0, false).Str(), "0");
  EXPECT_EQ(GXString(-17, false).Str(), "-17");
  EXPECT_EQ(GXString(std::numeric_limits<int>::min(), false).Str(), "-2147483648");
  EXPECT_EQ(GXString(std::numeric_limits<int>::max(), false).Str(), "2147483647");
}

TEST(GXStringFromInt, WritesAPlusSignWhenAsked) {
  EXPECT_EQ(GXString(17, true).Str(), "+17");
  EXPECT_EQ(GXString(0, true).Str(), "0");
  EXPECT_EQ(GXString(-17, true).Str(), "-17");
}

TEST(GXStringFromInt, IsChosenByTheTypesOfBothArguments) {
  EXPECT_EQ(GXString(5, false).Str(), "5");
  EXPECT_EQ(GXString(5.0, 1).Str(), "5.0");
  // Neither fits better, so neither compiles.
  EXPECT_FALSE((std::is_constructible_v<GXString, int, int>));
  EXPECT_FALSE((std::is_constructible_v<GXString, double, bool>));
}

TEST(GXStringFromUnsigned, WritesTheWholeRange) {
  EXPECT_EQ(GXString(std::uint64_t{0}).Str(), "0");
  EXPECT_EQ(GXString(std::string("four").size()).Str(), "4");
  EXPECT_EQ(GXString(std::numeric_limits<std::uint64_t>::max()).Str(), "18446744073709551615");
}
