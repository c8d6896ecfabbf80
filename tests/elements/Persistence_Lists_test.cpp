// Storing lists of elements: a child per element, named by its tag, and what reading makes of them.
#include <KTRCL_DataTypes/GXParagraph.h>
#include <KTRCL_DataTypes/GXString.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"
#include "support/Foreign.h"
#include "support/MemoryParagraph.h"
#include "support/Near.h"
#include "support/Paragraphs.h"
#include "support/Random.h"
#include "support/Twins.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <typeinfo>
#include <vector>

namespace {

using support::Chain;
using support::MemoryParagraph;
using support::Seg;
using Log = std::vector<std::string>;

template <typename List>
void Write(List& list, const GXString& key, MemoryParagraph& root) {
  GXParagraph* const paragraph = &root;
  list.Write(key, paragraph, 0);
}
template <typename List>
void Read(List& list, const GXString& key, MemoryParagraph& root) {
  GXParagraph* const paragraph = &root;
  list.Read(key, paragraph, 0);
}

Log ChildNames(const MemoryParagraph& paragraph) {
  Log names;
  for (std::size_t i = 0; i < paragraph.ChildCount(); ++i) {
    names.push_back(paragraph.ChildAt(i).GetName().Str());
  }
  return names;
}

TEST(StoredFlatList, HasAChildPerElementNamedByItsKind) {
  GX2DElmList list;
  support::Add(list, support::Line(1, 2, 3, 4), support::Circle(0, 0, 5), support::Point(6, 7),
               support::Rect(8, 9, 10, 11), support::Line(12, 13, 14, 15));
  MemoryParagraph root;
  Write(list, "Contour", root);
  EXPECT_EQ(support::Layout(root),
            "Contour(LINE(Start(X Y) End(X Y)) "
            "ARC(Center(X Y) Start(X Y) Mid(X Y) End(X Y)) POINT(X Y) "
            "RECT(Corner1(X Y) Corner2(X Y)) LINE(Start(X Y) End(X Y)))");
  EXPECT_EQ(root.Child("Contour").ChildAt(4).Child("Start").Number("X"), 12.0);
}

TEST(StoredListInSpace, HasAChildPerElementNamedByItsKind) {
  GX3DElmList list;
  support::Add(list, support::Line(1, 2, 3, 4, 5, 6), support::Point(6, 7, 8), GX3DArc());
  MemoryParagraph root;
  Write(list, "Contour", root);
  EXPECT_EQ(support::Layout(root),
            "Contour(LINE(Start(X Y Z) End(X Y Z)) POINT(X Y Z) "
            "ARC(Center(X Y Z) Start(X Y Z) Mid(X Y Z) End(X Y Z)))");
}

template <typename Twin>
class StoredList : public testing::Test {};
TYPED_TEST_SUITE(StoredList, support::BothTwins, support::TwinNames);

TYPED_TEST(StoredList, StandsInTheParagraphItselfForAnEmptyKey) {
  Chain<TypeParam> chain;
  chain.AddLine(1, 2, 3, 4);
  chain.AddPoint(5, 6);
  MemoryParagraph root;
  Write(chain.list, "", root);
  EXPECT_EQ(ChildNames(root), (Log{"LINE", "POINT"}));
}

TYPED_TEST(StoredList, AnEmptyOneStillHasItsParagraph) {
  Chain<TypeParam> chain;
  MemoryParagraph root;
  Write(chain.list, "Contour", root);
  EXPECT_EQ(support::Layout(root), "Contour()");
}

TYPED_TEST(StoredList, SkipsOtherKindsAndNullEntries) {
  Chain<TypeParam> chain;
  chain.AddForeign(1, 2, 3, 4);
  chain.AddNull();
  chain.AddPoint(5, 6);
  MemoryParagraph root;
  Write(chain.list, "Contour", root);
  EXPECT_EQ(ChildNames(root.Child("Contour")), (Log{"POINT"}));
}

/// A line that writes down how it is asked to store itself.
template <typename Line>
class Spy : public Line {
 public:
  using Line::Line;
  Log keys;
  std::vector<int> numbers;
  GXParagraph* target = nullptr;
  void Write(const GXString& key, GXParagraph* const& paragraph, const int& unused) override {
    keys.push_back(key.Str());
    numbers.push_back(unused);
    target = paragraph;
  }
};

TYPED_TEST(StoredList, AsksADerivedLineToStoreItselfUnderTheTagOfALine) {
  Chain<TypeParam> chain;
  auto* const spy = chain.Take(new Spy<typename TypeParam::Line>());
  MemoryParagraph root;
  GXParagraph* const paragraph = &root;
  chain.list.Write("Contour", paragraph, 99);
  EXPECT_EQ(spy->keys, (Log{"LINE"}));
  EXPECT_EQ(spy->numbers, (std::vector<int>{0}));
  EXPECT_EQ(spy->target, &root.Child("Contour"));
}

TYPED_TEST(StoredList, ComesBackWithKindsOrderAndNumbers) {
  support::Random random;
  Chain<TypeParam> chain;
  for (int i = 0; i < 40; ++i) {
    const double x = random.Between(-1e6, 1e6);
    const double y = random.Between(-1, 1);
    switch (random.Int(0, 2)) {
      case 0:
        chain.AddPoint(x, y);
        break;
      case 1:
        chain.AddLine(x, y, y, -0.0);
        break;
      default:
        chain.AddArc(x, y, y, 5e-324);
    }
  }
  MemoryParagraph root;
  Write(chain.list, "Contour", root);
  const std::string layout = support::Layout(root);
  Chain<TypeParam> back;
  Read(back.list, "Contour", root);
  ASSERT_EQ(back.list.size(), chain.list.size());
  for (std::size_t i = 0; i < back.list.size(); ++i) {
    EXPECT_EQ(typeid(*back.list[i]), typeid(*chain.list[i]));
    const auto actual = support::Numbers(back.EndsAt(i));
    const auto expected = support::Numbers(chain.EndsAt(i));
    for (std::size_t n = 0; n < actual.size(); ++n) {
      EXPECT_SAME_BITS(actual[n], expected[n]);
    }
  }
  MemoryParagraph again;
  Write(back.list, "Contour", again);
  EXPECT_EQ(support::Layout(again), layout);
}

TEST(StoredFlatList, RectanglesComeBack) {
  GX2DElmList list;
  support::Add(list, support::Rect(8, 9, 1, 2));
  MemoryParagraph root;
  Write(list, "Contour", root);
  GX2DElmList back;
  Read(back, "Contour", root);
  ASSERT_EQ(back.size(), 1u);
  EXPECT_POINT_EQ(support::At<GX2DRectangle>(back, 0), support::Rect(8, 9, 1, 2));
}

TYPED_TEST(StoredList, ReadReplacesAndDestroysTheOldElements) {
  Log log;
  Chain<TypeParam> chain;
  chain.Take(new support::Logged<typename TypeParam::Line>(log, "a"));
  chain.Take(new support::Logged<typename TypeParam::Point>(log, "b"));
  MemoryParagraph root;
  MemoryParagraph& line = root.Grow("Contour").Grow("LINE");
  line.Grow("Start").AddDouble("X", 3, -1);
  Read(chain.list, "Contour", root);
  EXPECT_EQ(log, (Log{"a", "b"}));
  ASSERT_EQ(chain.list.size(), 1u);
  EXPECT_TRUE(chain.IsLineAt(0));
}

TYPED_TEST(StoredList, AParagraphWithoutChildrenEmptiesIt) {
  Log log;
  Chain<TypeParam> chain;
  chain.Take(new support::Logged<typename TypeParam::Line>(log, "a"));
  MemoryParagraph root;
  root.Grow("Contour").AddDouble("X", 3, -1);
  Read(chain.list, "Contour", root);
  EXPECT_TRUE(chain.list.empty());
  EXPECT_EQ(log, (Log{"a"}));
}

TYPED_TEST(StoredList, StaysAsItIsWithoutParagraphOrChild) {
  Chain<TypeParam> chain;
  auto* const a = chain.AddLine(1, 2, 3, 4);
  MemoryParagraph root;
  root.Grow("contour");
  Read(chain.list, "Contour", root);
  EXPECT_EQ(chain.Entries(), chain.Order({a}));
  GXParagraph* const none = nullptr;
  chain.list.Read("Contour", none, 0);
  chain.list.Read("", none, 0);
  EXPECT_EQ(chain.Entries(), chain.Order({a}));
}

TYPED_TEST(StoredList, UnknownChildrenMakeNoElement) {
  MemoryParagraph root;
  MemoryParagraph& contour = root.Grow("Contour");
  for (const char* const name : {"POINT", "SPLINE", "point", "", "LINES", " LINE", "LINE"}) {
    contour.Grow(name);
  }
  Chain<TypeParam> chain;
  Read(chain.list, "Contour", root);
  ASSERT_EQ(chain.list.size(), 2u);
  EXPECT_NE(dynamic_cast<typename TypeParam::Point*>(chain.list[0]), nullptr);
  EXPECT_TRUE(chain.IsLineAt(1));
}

TEST(StoredListInSpace, SkipsRectangles) {
  MemoryParagraph root;
  for (const char* const name : {"LINE", "RECT", "ARC"}) {
    root.Grow(name);
  }
  GX3DElmList list;
  Read(list, "", root);
  ASSERT_EQ(list.size(), 2u);
  EXPECT_NE(dynamic_cast<GX3DLine*>(list[0]), nullptr);
  EXPECT_NE(dynamic_cast<GX3DArc*>(list[1]), nullptr);
}

TYPED_TEST(StoredList, ElementsReadFromTheirChildItselfAndMissingPartsAreNull) {
  MemoryParagraph root;
  MemoryParagraph& line = root.Grow("LINE");
  line.Grow("Start").AddDouble("Y", 3, -1);
  line.Grow("LINE").Grow("End").AddDouble("Y", 99, -1);
  Chain<TypeParam> chain;
  Read(chain.list, "", root);
  ASSERT_EQ(chain.list.size(), 1u);
  EXPECT_EQ(chain.EndsAt(0).Start.Y, 3.0);
  EXPECT_EQ(chain.EndsAt(0).Start.X, 0.0);
  EXPECT_POINT_EQ(chain.EndsAt(0).End, typename TypeParam::Point());
  const Log& calls = line.Calls();
  for (const std::string& call : calls) {
    EXPECT_NE(call, "FindParagraph LINE");
  }
}

/// A paragraph that names null children too and tells what a log held when it was asked.
class Witness : public MemoryParagraph {
 public:
  explicit Witness(const Log& log) : log_(log) {}
  mutable Log seen;
  void GetParagraphs(GXParagraphList& paragraphs) const override {
    seen = log_;
    MemoryParagraph::GetParagraphs(paragraphs);
    paragraphs.push_front(nullptr);
    paragraphs.push_back(nullptr);
  }

 private:
  const Log& log_;
};

TYPED_TEST(StoredList, NullChildrenAreSkipped) {
  const Log log;
  Witness root(log);
  root.Grow("POINT");
  Chain<TypeParam> chain;
  Read(chain.list, "", root);
  EXPECT_EQ(chain.list.size(), 1u);
}

TYPED_TEST(StoredList, OldElementsAreGoneBeforeTheChildrenAreAskedFor) {
  Log log;
  Witness root(log);
  Chain<TypeParam> chain;
  chain.Take(new support::Logged<typename TypeParam::Line>(log, "a"));
  Read(chain.list, "", root);
  EXPECT_EQ(root.seen, (Log{"a"}));
}

TYPED_TEST(StoredList, ReadingTwiceGivesTheSameAgain) {
  Chain<TypeParam> chain;
  chain.AddLine(1, 2, 3, 4);
  MemoryParagraph root;
  Write(chain.list, "Contour", root);
  Read(chain.list, "Contour", root);
  Read(chain.list, "Contour", root);
  ASSERT_EQ(chain.list.size(), 1u);
  EXPECT_POINT_EQ(chain.EndsAt(0), Seg<TypeParam>(1, 2, 3, 4));
}

}  // namespace
