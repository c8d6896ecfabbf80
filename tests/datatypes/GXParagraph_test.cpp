#include <KTRCL_DataTypes/GXParagraph.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

// The smallest host: everything is kept as text.
class TextParagraph : public GXParagraph {
 public:
  explicit TextParagraph(const GXString& name) : name_(name) {}

  GXString GetName() const override { return name_; }
  void SetAttribute(const GXString& key, const GXString& value) override {
    texts_["@" + key.Str()] = value;
  }
  void SetAttribute(const GXString& key, const int& value) override {
    texts_["@" + key.Str()] = GXString(value, false);
  }
  void AddString(const GXString& key, const GXString& value) override { texts_[key.Str()] = value; }
  void AddInt(const GXString& key, const int& value) override {
    texts_[key.Str()] = GXString(value, false);
  }
  void AddDouble(const GXString& key, const double& value, const int& decimals) override {
    texts_[key.Str()] = GXString(value, decimals);
  }
  GXString GetString(const GXString& key, const GXString& defaultValue, bool) const override {
    const auto found = texts_.find(key.Str());
    return found == texts_.end() ? defaultValue : found->second;
  }
  double GetDouble(const GXString& key, const double& defaultValue) const override {
    const auto found = texts_.find(key.Str());
    return found == texts_.end() ? defaultValue : std::stod(found->second.Str());
  }
  GXParagraph* AddParagraph(const GXString& key) override {
    children_.push_back(std::make_unique<TextParagraph>(key));
    return children_.back().get();
  }
  GXParagraph* FindParagraph(const GXString& key) const override {
    for (const auto& child : children_) {
      if (child->GetName().Str() == key.Str()) {
        return child.get();
      }
    }
    return nullptr;
  }
  void GetParagraphs(GXParagraphList& paragraphs) const override {
    paragraphs.clear();
    for (const auto& child : children_) {
      paragraphs.push_back(child.get());
    }
  }

 private:
  GXString name_;
  std::map<std::string, GXString> texts_;
  std::vector<std::unique_ptr<TextParagraph>> children_;
};

// Place of a virtual operation in the table. In the Itanium interface a pointer to a virtual member
// holds one more than eight times its place.
template <typename Member>
std::size_t Place(Member member) {
  std::size_t bits[2] = {0, 0};
  static_assert(sizeof member == sizeof bits);
  std::memcpy(bits, &member, sizeof member);
  return (bits[0] - 1) / sizeof(void*);
}

using SetText = void (GXParagraph::*)(const GXString&, const GXString&);
using SetInt = void (GXParagraph::*)(const GXString&, const int&);

}  // namespace

TEST(GXParagraph, KeepsItsVirtualOperationsInOrder) {
  EXPECT_EQ(Place(&GXParagraph::GetName), 0u);
  EXPECT_EQ(Place(static_cast<SetText>(&GXParagraph::SetAttribute)), 1u);
  EXPECT_EQ(Place(static_cast<SetInt>(&GXParagraph::SetAttribute)), 2u);
  EXPECT_EQ(Place(&GXParagraph::AddString), 3u);
  EXPECT_EQ(Place(&GXParagraph::AddInt), 4u);
  EXPECT_EQ(Place(&GXParagraph::AddDouble), 5u);
  EXPECT_EQ(Place(&GXParagraph::GetString), 6u);
  EXPECT_EQ(Place(&GXParagraph::GetDouble), 7u);
  EXPECT_EQ(Place(&GXParagraph::AddParagraph), 8u);
  EXPECT_EQ(Place(&GXParagraph::FindParagraph), 9u);
  EXPECT_EQ(Place(&GXParagraph::GetParagraphs), 10u);
}

TEST(GXParagraph, IsAbstractAndDestroyedThroughItsBase) {
  EXPECT_TRUE(std::is_abstract_v<GXParagraph>);
  const std::unique_ptr<GXParagraph> paragraph = std::make_unique<TextParagraph>("root");
  EXPECT_EQ(paragraph->GetName().Str(), "root");
}

TEST(GXParagraph, CarriesANumberThroughItsText) {
  TextParagraph paragraph("root");
  const double third = 1.0 / 3.0;
  paragraph.AddDouble("X", third, -1);
  EXPECT_EQ(paragraph.GetDouble("X", 0.0), third);
  EXPECT_EQ(paragraph.GetDouble("Y", 7.0), 7.0);
}

TEST(GXParagraph, KeepsChildrenOfOneNameApart) {
  TextParagraph root("root");
  GXParagraph* const first = root.AddParagraph("Line");
  GXParagraph* const second = root.AddParagraph("Line");
  EXPECT_NE(first, second);
  EXPECT_EQ(root.FindParagraph("Line"), first);
  EXPECT_EQ(root.FindParagraph("Arc"), nullptr);
  GXParagraphList children;
  root.GetParagraphs(children);
  ASSERT_EQ(children.size(), 2u);
  EXPECT_EQ(children.front(), first);
  EXPECT_EQ(children.back(), second);
}

TEST(GXParagraphList, HasAVirtualDestructorAndDestroysNoParagraph) {
  EXPECT_TRUE(std::has_virtual_destructor_v<GXParagraphList>);
  TextParagraph paragraph("root");
  {
    GXParagraphList list;
    list.push_back(&paragraph);
    list.push_back(nullptr);
    const GXParagraphList copy(list);
    EXPECT_EQ(copy.size(), 2u);
  }
  EXPECT_EQ(paragraph.GetName().Str(), "root");
}
