// What the library may expect of the paragraphs that it is handed.
#include "drawing/ParagraphTree.h"

#include "TreeSketch.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using drawing::TreeParagraph;
using Names = std::vector<std::string>;

Names ChildNames(const TreeParagraph& paragraph) {
  GXParagraphList children;
  children.push_back(nullptr);  // Is dropped.
  paragraph.GetParagraphs(children);
  Names names;
  for (const GXParagraph* const child : children) names.push_back(child->GetName().Str());
  return names;
}

TEST(TreeParagraph, KeepsValuesAndChildrenOfOneNameApart) {
  TreeParagraph root("root");
  root.AddString("A", "text");
  GXParagraph* const child = root.AddParagraph("A");
  root.SetAttribute("A", GXString("attribute"));
  EXPECT_EQ(root.GetString("A", "none", false).Str(), "text");
  EXPECT_EQ(root.FindParagraph("A"), child);
  ASSERT_NE(root.FindAttribute("A"), nullptr);
  EXPECT_EQ(*root.FindAttribute("A"), "attribute");
  EXPECT_EQ(ChildNames(root), (Names{"A"}));
  EXPECT_EQ(child->GetString("A", "none", false).Str(), "none");
}

TEST(TreeParagraph, FindsTheFirstOfSeveralOfOneName) {
  TreeParagraph root("root");
  GXParagraph* const first = root.AddParagraph("A");
  root.AddParagraph("B");
  GXParagraph* const third = root.AddParagraph("A");
  root.AddInt("N", 1);
  root.AddInt("N", 2);
  EXPECT_EQ(root.FindParagraph("A"), first);
  EXPECT_NE(first, third);
  EXPECT_EQ(root.GetDouble("N", 0.0), 1.0);
  EXPECT_EQ(ChildNames(root), (Names{"A", "B", "A"}));
}

TEST(TreeParagraph, GivesDefaultsForWhatIsAbsent) {
  TreeParagraph root("root");
  root.SetAttribute("A", 5);
  EXPECT_EQ(root.GetString("A", "none", false).Str(), "none");
  EXPECT_EQ(root.GetDouble("A", -7.0), -7.0);
  EXPECT_EQ(root.FindParagraph("A"), nullptr);
  EXPECT_EQ(root.FindAttribute("B"), nullptr);
  EXPECT_EQ(ChildNames(root), (Names{}));
}

TEST(TreeParagraph, GivesTheDefaultWhereTheTextIsNoNumber) {
  TreeParagraph root("root");
  for (const char* const text : {"", " 1", "1 ", "1,5", "0x10", "1e999", "abc", "+1", "--1"}) {
    root.AddString(text, text);
    EXPECT_EQ(root.GetDouble(text, -7.0), -7.0) << text;
  }
  root.AddString("A", "1e3");
  EXPECT_EQ(root.GetDouble("A", -7.0), 1000.0);
}

TEST(TreeParagraph, ReplacesAnAttributeThatIsSetAgain) {
  TreeParagraph root("root");
  root.SetAttribute("A", GXString("one"));
  root.SetAttribute("B", GXString("two"));
  root.SetAttribute("A", 3);
  ASSERT_EQ(root.Attributes().size(), 2U);
  EXPECT_EQ(root.Attributes()[0].key, "A");
  EXPECT_EQ(root.Attributes()[0].text, "3");
}

TEST(TreeParagraph, GivesNumbersBackToTheBit) {
  support::Random random;
  TreeParagraph root("root");
  std::vector<double> numbers = {0.0,
                                 -0.0,
                                 0.1,
                                 5e-324,
                                 2.2250738585072009e-308,
                                 std::numeric_limits<double>::min(),
                                 std::numeric_limits<double>::max(),
                                 std::numeric_limits<double>::infinity(),
                                 -std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN()};
  for (int i = 0; i < 20000; ++i) numbers.push_back(support::RandomDouble(random));
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    root.AddDouble(std::to_string(i), numbers[i], -1);
    EXPECT_SAME_BITS(root.GetDouble(std::to_string(i), 4711.0), numbers[i]);
  }
}

TEST(TreeParagraph, RoundsNumbersToTheirDecimals) {
  TreeParagraph root("root");
  root.AddDouble("A", 2.0, 3);
  root.AddDouble("B", 1.25, 1);
  EXPECT_EQ(root.GetString("A", "", false).Str(), "2.000");
  EXPECT_EQ(root.GetDouble("B", 0.0), 1.2);
}

TEST(TreeParagraph, KnowsNoLocale) {
  const std::string before = std::setlocale(LC_NUMERIC, nullptr);
  // Where none of them is installed the point stays, and the test proves less.
  const bool comma = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr ||
                     std::setlocale(LC_NUMERIC, "fr_FR.UTF-8") != nullptr;
  TreeParagraph root("root");
  root.AddDouble("A", 1.5, -1);
  const double read = root.GetDouble("A", 0.0);
  std::setlocale(LC_NUMERIC, before.c_str());
  EXPECT_EQ(read, 1.5);
  EXPECT_EQ(root.GetString("A", "", false).Str(), "1.5");
  RecordProperty("locale_with_comma", comma ? "yes" : "no");
}

// The answers must not change where a paragraph begins to keep an index.
TEST(TreeParagraph, AnswersAsOneThatIsSearchedFromTheFront) {
  support::Random random;
  for (int round = 0; round < 300; ++round) {
    TreeParagraph root("root");
    support::GrowRandomly(root, random, 1);
    for (int i = 0; i < 30; ++i) {
      const std::string name = support::RandomName(random);
      std::string value = "none";
      const TreeParagraph* child = nullptr;
      for (const auto& entry : root.Entries()) {
        if (entry.paragraph == nullptr && entry.value.key == name && value == "none") {
          value = entry.value.text;
        }
        const bool named = entry.paragraph != nullptr && entry.paragraph->Name() == name;
        if (named && child == nullptr) child = entry.paragraph.get();
      }
      EXPECT_EQ(root.GetString(name, "none", false).Str(), value);
      EXPECT_EQ(root.FindChild(name), child);
    }
  }
}

TEST(TreeParagraph, HoldsManyEntriesOfDifferentNames) {
  TreeParagraph root("root");
  constexpr int kCount = 100000;
  for (int i = 0; i < kCount; ++i) {
    const std::string key = "key" + std::to_string(i);
    root.SetAttribute(key, i);
    root.AddInt(key, i);
    root.AddParagraph(key);
  }
  for (int i = 0; i < kCount; ++i) {
    const std::string key = "key" + std::to_string(i);
    ASSERT_EQ(root.GetDouble(key, -1.0), i);
    ASSERT_NE(root.FindParagraph(key), nullptr);
    ASSERT_EQ(root.FindParagraph(key)->GetName().Str(), key);
    ASSERT_NE(root.FindAttribute(key), nullptr);
  }
}

TEST(TreeParagraph, RefusesTheLevelBelowTheDeepest) {
  TreeParagraph root("root");
  GXParagraph* paragraph = &root;
  for (int level = 2; level <= drawing::kDeepestParagraph; ++level) {
    paragraph = paragraph->AddParagraph("A");
  }
  EXPECT_THROW(paragraph->AddParagraph("A"), std::length_error);
  GXParagraphList children;
  paragraph->GetParagraphs(children);
  EXPECT_TRUE(children.empty());
}

TEST(SortParagraphs, MovesChildrenAmongTheirPlacesAndLeavesEqualOnesInOrder) {
  TreeParagraph root("root");
  for (const char* const name : {"C", "A1", "B", "A2"}) {
    root.AddString("A1", name);
    root.AddParagraph(name);
  }
  root.SortParagraphs([](const TreeParagraph& p, const TreeParagraph& q) {
    return p.Name().front() < q.Name().front();
  });
  EXPECT_EQ(ChildNames(root), (Names{"A1", "A2", "B", "C"}));
  for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(root.Entries()[i].paragraph == nullptr, i % 2 == 0);
}

TEST(SortParagraphs, LeavesManyEqualOnesInOrder) {
  TreeParagraph root("root");
  for (int i = 0; i < 200; ++i) root.AddParagraph(i % 2 == 0 ? "B" : "A")->AddInt("N", i);
  root.SortParagraphs(
      [](const TreeParagraph& p, const TreeParagraph& q) { return p.Name() < q.Name(); });
  for (std::size_t i = 0; i < 200; ++i) {
    const double number = static_cast<double>(i < 100 ? 2 * i + 1 : 2 * (i - 100));
    EXPECT_EQ(root.Entries()[i].paragraph->GetDouble("N", -1.0), number);
  }
}

TEST(SortParagraphs, LeavesAnIndexThatFindsTheFirst) {
  TreeParagraph root("root");
  for (int i = 40; i > 0; --i) {
    root.AddParagraph(i % 2 == 0 ? "even" : "odd")->AddInt("N", i);
  }
  root.SortParagraphs([](const TreeParagraph& p, const TreeParagraph& q) {
    return p.GetDouble("N", 0.0) < q.GetDouble("N", 0.0);
  });
  EXPECT_EQ(root.FindChild("odd")->GetDouble("N", 0.0), 1.0);
  EXPECT_EQ(root.FindChild("even")->GetDouble("N", 0.0), 2.0);
}

}  // namespace
