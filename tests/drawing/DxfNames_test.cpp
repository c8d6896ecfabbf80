#include "drawing/DxfNames.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace {

std::string Alone(const std::string& name) {
  drawing::DxfNames names;
  names.Add(name);
  return names.Written(name);
}

std::vector<std::string> Together(const std::vector<std::string>& names) {
  drawing::DxfNames all;
  for (const std::string& name : names) all.Add(name);
  std::vector<std::string> written;
  for (const std::string& name : names) written.push_back(all.Written(name));
  return written;
}

TEST(DxfNames, LeavesPlainNamesAlone) {
  EXPECT_EQ(Alone("CUT"), "CUT");
  EXPECT_EQ(Alone("cut outs 2.5 mm (laser), #1"), "cut outs 2.5 mm (laser), #1");
}

TEST(DxfNames, MakesUnderscoresOfWhatIsForbidden) {
  EXPECT_EQ(Alone("<>/\\\":;?*|=`"), "____________");
  EXPECT_EQ(Alone("a\tb\x7F"), "a_b_");
  EXPECT_EQ(Alone(" cut "), "_cut_");
  EXPECT_EQ(Alone("  "), "__");
  EXPECT_EQ(Alone(""), "_");
}

TEST(DxfNames, EscapesWhatIsNotAscii) {
  // U+00E4 and U+2300; U+1F527 is the pair D83D DD27.
  EXPECT_EQ(Alone("Ma\xC3\xA4"
                  "e \xE2\x8C\x80"),
            "Ma\\U+00E4e \\U+2300");
  EXPECT_EQ(Alone("\xF0\x9F\x94\xA7"), "\\U+D83D\\U+DD27");
  EXPECT_EQ(Alone("a\xFF"
                  "b"),
            "a_b");
}

TEST(DxfNames, CutsAtTwoHundredAndFiftyFiveBytes) {
  EXPECT_EQ(Alone(std::string(255, 'a')), std::string(255, 'a'));
  EXPECT_EQ(Alone(std::string(300, 'a')), std::string(255, 'a'));
  // An escape takes 7 bytes: 250 + 7 is too long, so it is left out whole.
  EXPECT_EQ(Alone(std::string(250, 'a') + "\xC3\xA4"), std::string(250, 'a'));
}

TEST(DxfNames, KeepsNamesApartThatWouldFallTogether) {
  EXPECT_EQ(Together({"a<b", "a>b", "a/b"}), (std::vector<std::string>{"a_b", "a_b-2", "a_b-3"}));
}

TEST(DxfNames, LetsFitNamesKeepTheirPlaceWhereverTheyStand) {
  EXPECT_EQ(Together({"a<b", "a_b", "a>b", "A_B-2"}),
            (std::vector<std::string>{"a_b-3", "a_b", "a_b-4", "A_B-2"}));
}

TEST(DxfNames, KeepsLongNamesApartWithinTheLimit) {
  const std::string longName(300, 'x');
  const std::vector<std::string> written = Together({longName + "1", longName + "2"});
  EXPECT_EQ(written[0], std::string(255, 'x'));
  EXPECT_EQ(written[1], std::string(253, 'x') + "-2");
  const std::string escaped = "\xC3\xA4";
  std::string many;
  for (int i = 0; i < 60; ++i) many += escaped;
  // 36 escapes of 7 bytes are 252 bytes; with "-2" there is room for 36 as well: 254 bytes.
  const std::vector<std::string> both = Together({many + "1", many + "2"});
  EXPECT_EQ(both[0].size(), 252U);
  EXPECT_EQ(both[1].size(), 254U);
  EXPECT_EQ(both[1].substr(252), "-2");
}

TEST(DxfNames, TakesCaseForNoDifference) {
  // One layer under two spellings, and two layers whose forms differ by case alone.
  EXPECT_EQ(Together({"cut?", "CUT?"}), (std::vector<std::string>{"cut_", "cut_"}));
  EXPECT_EQ(Together({"cut?", "CUT*"}), (std::vector<std::string>{"cut_", "CUT_-2"}));
}

TEST(DxfNames, ListsEveryNameOnce) {
  drawing::DxfNames names;
  for (const char* name : {"0", "cut", "CUT", "a<b", "cut"}) names.Add(name);
  EXPECT_EQ(names.Table(), (std::vector<std::string>{"0", "cut", "a_b"}));
}

TEST(DxfNames, DoesNothingToItsOwnForms) {
  const std::vector<std::string> once =
      Together({"a<b", "a>b", "", " ", "x\\U+0041", std::string(400, '='), std::string(400, '|')});
  EXPECT_EQ(Together(once), once);
  EXPECT_EQ(std::set<std::string>(once.begin(), once.end()).size(), once.size());
}

}  // namespace
