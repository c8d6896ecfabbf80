#include "drawing/ParagraphJson.h"

#include "TreeSketch.h"
#include "drawing/EscapedText.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

using drawing::ParagraphJson;
using drawing::TreeParagraph;
using Json = nlohmann::ordered_json;

std::string Unescaped(const Json& json) {
  std::string bytes;
  EXPECT_TRUE(drawing::Unescape(json.get<std::string>(), bytes));
  return bytes;
}

std::string NameIn(const Json& json, const char* plain, const char* escaped) {
  return json.contains(plain) ? json[plain].get<std::string>() : Unescaped(json.at(escaped));
}

GXString TextIn(const Json& value) {
  if (value.is_number_integer()) return {value.get<int>(), false};
  if (value.is_number()) return {value.get<double>(), -1};
  return {value.get<std::string>()};
}

// Reads what a program would.
void ReadInto(const Json& json, TreeParagraph& paragraph) {
  const Json attributes = json.value("attributes", Json::object());
  for (const auto& [key, value] : attributes.items()) paragraph.SetAttribute(key, TextIn(value));
  const Json escaped = json.value("escapedAttributes", Json::object());
  for (const auto& [key, value] : escaped.items()) {
    paragraph.SetAttribute(Unescaped(key), GXString(Unescaped(value)));
  }
  for (const Json& entry : json.value("content", Json::array())) {
    if (entry.contains("name") || entry.contains("escapedName")) {
      paragraph.AddParagraph(NameIn(entry, "name", "escapedName"));
      ReadInto(entry, *paragraph.Entries().back().paragraph);
      continue;
    }
    const std::string key = NameIn(entry, "key", "escapedKey");
    paragraph.AddString(key, entry.contains("value") ? TextIn(entry["value"])
                                                     : GXString(Unescaped(entry["escapedValue"])));
  }
}

TEST(ParagraphJson, KeepsTheOrderAndTellsNumbersFromTexts) {
  TreeParagraph root("GXLAPart");
  root.SetAttribute("COMMENT", GXString("a.dxf"));
  root.SetAttribute("Count", 3);
  root.AddInt("Id", -1);
  root.AddParagraph("P")->AddString("S", "1.5");
  root.AddDouble("D", 0.1, -1);
  root.AddDouble("D", std::numeric_limits<double>::infinity(), -1);
  EXPECT_EQ(ParagraphJson(root).dump(),
            "{\"name\":\"GXLAPart\",\"attributes\":{\"COMMENT\":\"a.dxf\",\"Count\":3},"
            "\"content\":[{\"key\":\"Id\",\"value\":-1},"
            "{\"name\":\"P\",\"content\":[{\"key\":\"S\",\"value\":\"1.5\"}]},"
            "{\"key\":\"D\",\"value\":0.1},{\"key\":\"D\",\"value\":\"inf\"}]}");
}

TEST(ParagraphJson, EscapesBytesThatAreNoUtf8) {
  TreeParagraph root("\xE4");
  root.SetAttribute("LAYER", GXString("\xFF%"));
  root.AddString("\xE4", "a\nb");
  root.AddString("K", "\xE4");
  EXPECT_EQ(ParagraphJson(root).dump(),
            "{\"escapedName\":\"%E4\",\"escapedAttributes\":{\"LAYER\":\"%FF%25\"},"
            "\"content\":[{\"escapedKey\":\"%E4\",\"value\":\"a\\nb\"},"
            "{\"key\":\"K\",\"escapedValue\":\"%E4\"}]}");
}

TEST(ParagraphJson, GivesRandomTreesOfRandomBytesBack) {
  support::Random random;
  for (int i = 0; i < 1000; ++i) {
    TreeParagraph tree(support::RandomName(random));
    support::GrowRandomly(tree, random, 4);
    const Json json = Json::parse(ParagraphJson(tree).dump(2));
    TreeParagraph back(NameIn(json, "name", "escapedName"));
    ReadInto(json, back);
    ASSERT_EQ(support::Described(back), support::Described(tree)) << json.dump(2);
  }
}

TEST(ParagraphJson, HoldsTheDeepestTree) {
  TreeParagraph root("A");
  GXParagraph* paragraph = &root;
  for (int level = 2; level <= drawing::kDeepestParagraph; ++level) {
    paragraph = paragraph->AddParagraph("A");
  }
  const Json json = Json::parse(ParagraphJson(root).dump());
  TreeParagraph back("A");
  ReadInto(json, back);
  EXPECT_EQ(support::Described(back), support::Described(root));
}

}  // namespace
