// Geometry that is stored in the host's paragraphs, saved as XML, and loaded again.
#include "TreeSketch.h"
#include "drawing/XmlParagraph.h"
#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <string>
#include <typeinfo>
#include <vector>

namespace {

using drawing::XmlDocument;

GX2DPoint AnyPoint2D(support::Random& random) {
  const double x = support::RandomDouble(random);
  return {x, support::RandomDouble(random)};
}
GX3DPoint AnyPoint3D(support::Random& random) {
  const double x = support::RandomDouble(random);
  const double y = support::RandomDouble(random);
  return {x, y, support::RandomDouble(random)};
}

void FillRandomly(GX2DElmList& list, support::Random& random) {
  for (int i = random.Int(0, 30); i > 0; --i) {
    const GX2DPoint p = AnyPoint2D(random);
    const GX2DPoint q = AnyPoint2D(random);
    const GX2DPoint r = AnyPoint2D(random);
    switch (random.Int(0, 3)) {
      case 0:
        support::Add(list, p);
        break;
      case 1:
        support::Add(list, GX2DLine(p, q));
        break;
      case 2:
        support::Add(list, support::Rect(p.X, p.Y, q.X, q.Y));
        break;
      default:
        support::Add(list, GX2DArc(p, q, r, AnyPoint2D(random)));
    }
  }
}

void FillRandomly(GX3DElmList& list, support::Random& random) {
  for (int i = random.Int(0, 30); i > 0; --i) {
    const GX3DPoint p = AnyPoint3D(random);
    const GX3DPoint q = AnyPoint3D(random);
    const GX3DPoint r = AnyPoint3D(random);
    switch (random.Int(0, 2)) {
      case 0:
        support::Add(list, p);
        break;
      case 1:
        support::Add(list, GX3DLine(p, q));
        break;
      default:
        support::Add(list, GX3DArc(p, q, r, AnyPoint3D(random)));
    }
  }
}

template <typename Kind, typename Element>
bool TakeNumbers(const Element& element, std::vector<double>& numbers) {
  const auto* const kind = dynamic_cast<const Kind*>(&element);
  if (kind == nullptr) return false;
  numbers = support::Numbers(*kind);
  return true;
}
std::vector<double> NumbersOf(const GX2DElement& element) {
  std::vector<double> numbers;
  const bool known =
      TakeNumbers<GX2DPoint>(element, numbers) || TakeNumbers<GX2DLine>(element, numbers) ||
      TakeNumbers<GX2DRectangle>(element, numbers) || TakeNumbers<GX2DArc>(element, numbers);
  EXPECT_TRUE(known);
  return numbers;
}
std::vector<double> NumbersOf(const GX3DElement& element) {
  std::vector<double> numbers;
  const bool known = TakeNumbers<GX3DPoint>(element, numbers) ||
                     TakeNumbers<GX3DLine>(element, numbers) ||
                     TakeNumbers<GX3DArc>(element, numbers);
  EXPECT_TRUE(known);
  return numbers;
}

template <typename List>
void ExpectSame(const List& actual, const List& expected) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < actual.size(); ++i) {
    const auto& element = *actual[i];
    const auto& model = *expected[i];
    ASSERT_EQ(typeid(element), typeid(model));
    const std::vector<double> numbers = NumbersOf(element);
    const std::vector<double> expectedNumbers = NumbersOf(model);
    ASSERT_EQ(numbers.size(), expectedNumbers.size());
    for (std::size_t n = 0; n < numbers.size(); ++n) {
      EXPECT_SAME_BITS(numbers[n], expectedNumbers[n]);
    }
  }
}

// A document that came back from its own text.
XmlDocument Reloaded(const XmlDocument& document) {
  XmlDocument back;
  std::string error;
  EXPECT_TRUE(back.LoadText(document.Text(), error)) << error;
  return back;
}

template <typename List>
class StoredInXml : public testing::Test {};
using Lists = testing::Types<GX2DElmList, GX3DElmList>;
TYPED_TEST_SUITE(StoredInXml, Lists);

TYPED_TEST(StoredInXml, RandomListsComeBackToTheBit) {
  support::Random random;
  for (int i = 0; i < 300; ++i) {
    // Names that XML has no form for, and several lists in one paragraph.
    const std::vector<std::string> names = {"Outer", "2nd contour",
                                            support::RandomBytes(random) + "x"};
    std::vector<TypeParam> lists(names.size());
    XmlDocument document;
    GXParagraph* const root = &document.Root();
    for (std::size_t n = 0; n < names.size(); ++n) {
      FillRandomly(lists[n], random);
      lists[n].Write(names[n], root, 0);
    }
    XmlDocument back = Reloaded(document);
    GXParagraph* const stored = &back.Root();
    for (std::size_t n = 0; n < names.size(); ++n) {
      TypeParam read;
      read.Read(names[n], stored, 0);
      ExpectSame(read, lists[n]);
      read.ClearWithContents();
    }
    for (TypeParam& list : lists) list.ClearWithContents();
  }
}

TYPED_TEST(StoredInXml, AListWithoutAKeyStandsInTheParagraphItself) {
  support::Random random;
  TypeParam list;
  FillRandomly(list, random);
  XmlDocument document;
  GXParagraph* const root = &document.Root();
  list.Write("", root, 0);
  XmlDocument back = Reloaded(document);
  GXParagraph* const stored = &back.Root();
  TypeParam read;
  read.Read("", stored, 0);
  ExpectSame(read, list);
  read.ClearWithContents();
  list.ClearWithContents();
}

TYPED_TEST(StoredInXml, AnEmptyListReplacesWhatAListHeld) {
  TypeParam list;
  XmlDocument document;
  GXParagraph* const root = &document.Root();
  list.Write("Outer", root, 0);
  XmlDocument back = Reloaded(document);
  GXParagraph* const stored = &back.Root();
  support::Random random;
  while (list.empty()) FillRandomly(list, random);
  list.Read("Outer", stored, 0);
  EXPECT_TRUE(list.empty());
}

TEST(StoredListInXml, HoldsAHundredThousandElements) {
  GX2DElmList list;
  constexpr int kCount = 100000;
  for (int i = 0; i < kCount; ++i) support::Add(list, support::Line(i, 0.1 * i, i + 1, -i));
  XmlDocument document;
  GXParagraph* const root = &document.Root();
  list.Write("Outer", root, 0);
  XmlDocument back = Reloaded(document);
  GXParagraph* const stored = &back.Root();
  GX2DElmList read;
  read.Read("Outer", stored, 0);
  ExpectSame(read, list);
  read.ClearWithContents();
  list.ClearWithContents();
}

TEST(StoredListInXml, ReadsAFileWrittenByHand) {
  XmlDocument document;
  std::string error;
  ASSERT_TRUE(
      document.LoadText("<part>\n"
                        "  <Outer>\n"
                        "    <LINE><Start><X>1</X><Y>2.5</Y></Start>\n"
                        "          <End><Y>-4e1</Y><X>3</X></End></LINE>\n"
                        "    <SPLINE/>\n"
                        "    <POINT><X>many</X><Y>7</Y></POINT>\n"
                        "  </Outer>\n"
                        "</part>\n",
                        error))
      << error;
  GXParagraph* const root = &document.Root();
  GX2DElmList list;
  list.Read("Outer", root, 0);
  ASSERT_EQ(list.size(), 2U);
  EXPECT_POINT_EQ(support::At<GX2DLine>(list, 0), support::Line(1, 2.5, 3, -40));
  // A number that cannot be read is absent, and an absent one is 0.
  EXPECT_POINT_EQ(support::At<GX2DPoint>(list, 1), support::Point(0, 7));
  list.ClearWithContents();
}

// The other classes that store themselves.
TEST(StoredInXmlToo, FramesMatricesRotationsAndBoxesComeBack) {
  support::Random random;
  GXMatrix matrix(AnyPoint3D(random).X, 0.1, 1e300, 5e-324, -0.0, 3, 4, 1.0 / 3.0, 6);
  GXRotation rotation(0.1, 1.0 / 3.0, 1e-310, 5);
  GXBoundBox box;
  box.Minimum = support::Point(-0.1, -1e-300, 1);
  box.Maximum = support::Point(0.3, 1e300, 2);
  XmlDocument document;
  GXParagraph* const root = &document.Root();
  matrix.Write("M", root);
  rotation.Write("R", root);
  box.Write("B", root, 0);
  XmlDocument back = Reloaded(document);
  GXParagraph* const stored = &back.Root();
  GXMatrix readMatrix;
  GXRotation readRotation;
  GXBoundBox readBox;
  readMatrix.Read("M", stored);
  readRotation.Read("R", stored);
  readBox.Read("B", stored, 0);
  const std::vector<double> numbers = support::Numbers(readMatrix);
  const std::vector<double> expected = support::Numbers(matrix);
  for (std::size_t i = 0; i < 9; ++i) EXPECT_SAME_BITS(numbers[i], expected[i]);
  EXPECT_SAME_BITS(readRotation.A, rotation.A);
  EXPECT_SAME_BITS(readRotation.B, rotation.B);
  EXPECT_SAME_BITS(readRotation.C, rotation.C);
  EXPECT_POINT_EQ(readBox.Minimum, box.Minimum);
  EXPECT_POINT_EQ(readBox.Maximum, box.Maximum);
}

}  // namespace
