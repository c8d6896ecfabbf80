#include "drawing/XmlParagraph.h"

#include "TreeSketch.h"
#include "drawing/EscapedText.h"
#include "drawing/Utf8Text.h"
#include "support/Near.h"
#include "support/Program.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

using drawing::TreeParagraph;
using drawing::XmlDocument;
using support::Described;

const std::string kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

XmlDocument Loaded(const std::string& text) {
  XmlDocument document;
  std::string error;
  EXPECT_TRUE(document.LoadText(text, error)) << error << "\n" << text;
  return document;
}

std::string Refusal(const std::string& text) {
  XmlDocument document("before");
  std::string error;
  EXPECT_FALSE(document.LoadText(text, error)) << text;
  EXPECT_EQ(document.Root().Name(), "before");
  EXPECT_FALSE(error.empty());
  EXPECT_EQ(error.find('\n'), std::string::npos);
  return error;
}

void ExpectRefused(const std::string& text, const std::string& why) {
  const std::string error = Refusal(text);
  EXPECT_NE(error.find(why), std::string::npos) << "\"" << error << "\" of " << text.substr(0, 200);
}

TEST(XmlText, ShowsAttributesValuesAndChildrenInPlainForm) {
  XmlDocument document("GXLAPart");
  document.Root().SetAttribute("COMMENT", GXString("a & \"b\" <c>"));
  document.Root().AddInt("Id", 1);
  GXParagraph* const child = document.Root().AddParagraph("ELEMENTS");
  child->SetAttribute("Count", 2);
  child->AddString("LINE_1", " x > 1 ");
  document.Root().AddParagraph("EMPTY");
  document.Root().AddDouble("LENGTH", 0.1, -1);
  EXPECT_EQ(document.Text(), kHead +
                                 "<GXLAPart COMMENT=\"a &amp; &quot;b&quot; &lt;c>\">\n"
                                 "  <Id>1</Id>\n"
                                 "  <ELEMENTS Count=\"2\">\n"
                                 "    <LINE_1> x &gt; 1 </LINE_1>\n"
                                 "  </ELEMENTS>\n"
                                 "  <EMPTY />\n"
                                 "  <LENGTH>0.1</LENGTH>\n"
                                 "</GXLAPart>\n");
}

TEST(XmlText, ShowsAllElseEscaped) {
  XmlDocument document("2nd part");
  document.Root().SetAttribute("a:b", GXString("100%"));
  document.Root().SetAttribute("LAYER", GXString("\xE4"));
  document.Root().AddString("EMPTY", "");
  document.Root().AddString("BLANK", "  ");
  document.Root().AddString("LINES", "a\nb");
  document.Root().AddString("", "c");
  document.Root().AddParagraph("_value");
  EXPECT_EQ(document.Text(), kHead +
                                 "<_paragraph _name=\"2nd part\">\n"
                                 "  <_attribute _key=\"a:b\" _text=\"100%25\" />\n"
                                 "  <_attribute _key=\"LAYER\" _text=\"%E4\" />\n"
                                 "  <_value _key=\"EMPTY\" _text=\"\" />\n"
                                 "  <_value _key=\"BLANK\" _text=\"  \" />\n"
                                 "  <_value _key=\"LINES\" _text=\"a%0Ab\" />\n"
                                 "  <_value _key=\"\" _text=\"c\" />\n"
                                 "  <_paragraph _name=\"_value\" />\n"
                                 "</_paragraph>\n");
}

TEST(XmlText, EscapesNamesThatXmlKeepsForItself) {
  for (const char* const name : {"xml", "XML", "xmlns", "XmlPart"}) {
    XmlDocument document(name);
    document.Root().SetAttribute(name, GXString("1"));
    EXPECT_EQ(document.Text(), kHead + "<_paragraph _name=\"" + name +
                                   "\">\n  <_attribute _key=\"" + name +
                                   "\" _text=\"1\" />\n</_paragraph>\n");
  }
}

TEST(XmlDocument, GivesRandomTreesOfRandomBytesBack) {
  support::Random random;
  for (int i = 0; i < 2000; ++i) {
    XmlDocument document(support::RandomName(random));
    support::GrowRandomly(document.Root(), random, 4);
    const std::string text = document.Text();
    const XmlDocument back = Loaded(text);
    ASSERT_EQ(Described(back.Root()), Described(document.Root())) << text;
    // Attributes that need an element have moved behind the others, and stay there.
    ASSERT_EQ(Loaded(back.Text()).Text(), back.Text());
    for (std::size_t position = 0; position < text.size();) {
      ASSERT_TRUE(drawing::IsXmlCharacter(drawing::NextCharacter(text, position)));
    }
  }
}

TEST(XmlDocument, GivesNumbersBackToTheBit) {
  support::Random random;
  std::vector<double> numbers = {0.0,
                                 -0.0,
                                 5e-324,
                                 std::numeric_limits<double>::max(),
                                 -std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN()};
  for (int i = 0; i < 20000; ++i) numbers.push_back(support::RandomDouble(random));
  XmlDocument document;
  for (const double number : numbers) document.Root().AddParagraph("P")->AddDouble("X", number, -1);
  const XmlDocument back = Loaded(document.Text());
  ASSERT_EQ(back.Root().Entries().size(), numbers.size());
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    EXPECT_SAME_BITS(back.Root().Entries()[i].paragraph->GetDouble("X", 4711.0), numbers[i]);
  }
}

TEST(XmlDocument, GivesTheDeepestTreeBackAndRefusesADeeperOne) {
  XmlDocument document;
  GXParagraph* paragraph = &document.Root();
  for (int level = 2; level <= drawing::kDeepestParagraph; ++level) {
    paragraph = paragraph->AddParagraph("A");
  }
  paragraph->AddInt("N", 7);
  EXPECT_EQ(Described(Loaded(document.Text()).Root()), Described(document.Root()));

  std::string deeper;
  for (int level = 0; level < drawing::kDeepestParagraph + 1; ++level) deeper += "<A>";
  std::string end;
  for (int level = 0; level < drawing::kDeepestParagraph + 1; ++level) end += "</A>";
  ExpectRefused(deeper + end, "nested deeper than 256 levels");
}

TEST(XmlDocument, ReadsAMillionLevelsWithoutHarm) {
  constexpr int kLevels = 1000000;
  std::string text;
  for (int i = 0; i < kLevels; ++i) text += "<a>";
  Refusal(text);
  for (int i = 0; i < kLevels; ++i) text += "</a>";
  ExpectRefused(text, "nested deeper");
}

TEST(XmlDocument, HoldsManyEntriesOfDifferentNames) {
  XmlDocument document;
  constexpr int kCount = 100000;
  for (int i = 0; i < kCount; ++i) {
    document.Root().AddInt("v" + std::to_string(i), i);
    document.Root().AddParagraph("p" + std::to_string(i))->AddInt("N", i);
  }
  const XmlDocument back = Loaded(document.Text());
  for (int i = 0; i < kCount; ++i) {
    ASSERT_EQ(back.Root().GetDouble("v" + std::to_string(i), -1.0), i);
    ASSERT_EQ(back.Root().FindChild("p" + std::to_string(i))->GetDouble("N", -1.0), i);
  }
}

TEST(LoadText, ReadsWhatOthersWrite) {
  const XmlDocument document = Loaded(
      "\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8' standalone='yes'?>\r\n<!-- by hand -->\r\n"
      "<root b='1&#x41;&#66;'>\r\n\t<?skip this?>\r\n\t<T>a<!-- x --> "
      "<![CDATA[<&b>]]>&lt;&#228;</T>"
      "\r\n\t<W>&#32;</W><P>\r\n</P>\r\n</root>\r\n<!-- end -->");
  const TreeParagraph& root = document.Root();
  EXPECT_EQ(*root.FindAttribute("b"), "1AB");
  EXPECT_EQ(root.GetString("T", "", false).Str(), "a <&b><\xC3\xA4");
  EXPECT_EQ(root.GetString("W", "", false).Str(), " ");
  ASSERT_NE(root.FindChild("P"), nullptr);
  EXPECT_TRUE(root.FindChild("P")->Entries().empty());
}

TEST(LoadText, RefusesDocumentTypesAndEntities) {
  ExpectRefused(
      "<!DOCTYPE a [<!ENTITY l0 \"lol\"><!ENTITY l1 \"&l0;&l0;&l0;\">]>\n<a><b>&l1;</b></a>",
      "document type");
  ExpectRefused("<!DOCTYPE a SYSTEM \"file:///etc/passwd\"><a/>", "document type");
  ExpectRefused("<!DOCTYPE a [", "document type");
  ExpectRefused("<a>\n<b>&l1;</b></a>", "line 2: \"&\" without");
  ExpectRefused("<a b='&xxe;'/>", "\"&\" without");
  ExpectRefused("<a><b>1 & 2</b></a>", "\"&\" without");
  ExpectRefused("<a><b>&amp</b></a>", "\"&\" without");
}

TEST(LoadText, RefusesNumberedCharactersThatXmlDoesNotAllow) {
  for (const char* const number : {"0", "x0", "8", "xD800", "xFFFE", "x110000", "4294967361",
                                   "99999999999999999999", "", "x", "-5", "+65", "X41", "6 5"}) {
    ExpectRefused("<a><b>&#" + std::string(number) + ";</b></a>", "\"&\" without");
  }
}

TEST(LoadText, RefusesBytesThatAreNoText) {
  ExpectRefused("<a><b>\n\xE4</b></a>", "line 2: bytes that are no UTF-8");
  ExpectRefused(std::string("<a>\0</a>", 8), "does not allow");
  ExpectRefused("<a b='\x1B'/>", "does not allow");
  ExpectRefused("<a>\xEF\xBF\xBF</a>", "does not allow");
  ExpectRefused("<?xml version='1.0' encoding='ISO-8859-1'?><a/>", "encoding");
  ExpectRefused("<?xml version='1.0' encoding='UTF-16'?><a/>", "encoding");
}

TEST(LoadText, RefusesWhatIsNoDocument) {
  ExpectRefused("", "no element");
  ExpectRefused(" \n ", "no element");
  ExpectRefused("<!-- only -->", "no element");
  ExpectRefused("just text", "text outside the root");
  ExpectRefused("<a/>\ntext", "text outside the root");
  ExpectRefused("<a/>\n<b/>", "line 2: a second root \"b\"");
  for (const char* const text :
       {"<", "<a", "<a>", "</a>", "<a></b>", "<a b/>", "<a b=c/>", "<a b='1/>", "<1/>", "<a><!--",
        "<a><![CDATA[", "<a/", "<>", "<a><?xml version='1.0'?></a>"}) {
    Refusal(text);
  }
}

TEST(LoadText, RefusesWhatIsNeitherValueNorParagraph) {
  ExpectRefused("<a>text</a>", "the root is no paragraph");
  ExpectRefused("<a><b>text<c/></b></a>", "text beside elements in \"b\"");
  ExpectRefused("<a><b c='1'>text</b></a>", "text beside attributes in \"b\"");
  ExpectRefused("<a b='1' b='2'/>", "a second attribute \"b\"");
  ExpectRefused("<a b='<'/>", "\"<\" in the attribute");
}

TEST(LoadText, RefusesEscapedFormsThatAreNotWhole) {
  ExpectRefused("<_value _key='a' _text='b'/>", "the root is no paragraph");
  ExpectRefused("<_other/>", "the root is no paragraph");
  ExpectRefused("<a><_other/></a>", "an unknown element \"_other\"");
  ExpectRefused("<a><_value _key='a'/></a>", "without \"_text\"");
  ExpectRefused("<a><_attribute _text='a'/></a>", "without \"_key\"");
  ExpectRefused("<a><_paragraph/></a>", "without \"_name\"");
  ExpectRefused("<a><_value _key='a' _text='%4'/></a>", "hexadecimal");
  ExpectRefused("<a><_value _key='a' _text='b' c='d'/></a>", "too many attributes");
  ExpectRefused("<a><_value _key='a' _text='b'>c</_value></a>", "holds something");
  ExpectRefused("<a><_value _key='a' _text='b'><c/></_value></a>", "holds something");
  ExpectRefused("<a><_paragraph _name='a' _name='b'/></a>", "out of place");
  ExpectRefused("<a _name='b'/>", "out of place");
  ExpectRefused("<a b='1'><_attribute _key='b' _text='2'/></a>", "a second attribute \"b\"");
}

TEST(LoadText, RefusesMoreMarksThanMemoryIsMeantFor) {
  std::string text = "<a>";
  for (std::size_t i = 0; i < drawing::kMostXmlMarks; ++i) text += "<b/>";
  ExpectRefused(text + "</a>", "more than 10000000");
}

TEST(LoadText, NamesLongNamesInShort) {
  const std::string error = Refusal("<a><_" + std::string(5000, 'x') + "/></a>");
  EXPECT_LT(error.size(), 200U);
}

// Whatever one byte becomes: a tree that is given back, or one line why not.
TEST(LoadText, TakesOrRefusesEveryChangeOfOneByte) {
  support::Random random;
  XmlDocument document;
  support::GrowRandomly(document.Root(), random, 3);
  const std::string text = document.Text();
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::string changed = text;
    changed[i] = "<>&\"'= /!?a\x01\xE4_;"[random.Int(0, 14)];
    XmlDocument read;
    std::string error;
    if (read.LoadText(changed, error)) {
      EXPECT_EQ(Described(Loaded(read.Text()).Root()), Described(read.Root()));
    } else {
      EXPECT_FALSE(error.empty());
    }
  }
}

TEST(XmlFile, IsSavedAndLoaded) {
  const support::TemporaryFolder folder;
  XmlDocument document("contours");
  document.Root().AddString("A", "\xFF");
  std::string error;
  ASSERT_TRUE(document.SaveFile(folder.File("a.xml"), error)) << error;
  EXPECT_EQ(support::ReadWhole(folder.File("a.xml")), document.Text());
  XmlDocument back;
  ASSERT_TRUE(back.LoadFile(folder.File("a.xml"), error)) << error;
  EXPECT_EQ(Described(back.Root()), Described(document.Root()));
}

TEST(XmlFile, ThatCannotBeUsedIsTold) {
  const support::TemporaryFolder folder;
  XmlDocument document("before");
  std::string error;
  EXPECT_FALSE(document.LoadFile(folder.File("none.xml"), error));
  EXPECT_EQ(error, "it cannot be read");
  EXPECT_FALSE(document.LoadFile(folder.File("."), error));
  EXPECT_EQ(error, "it cannot be read");
  EXPECT_FALSE(document.SaveFile(folder.File("none/a.xml"), error));
  EXPECT_EQ(error, "it cannot be written");
  EXPECT_FALSE(document.LoadFile(folder.Write("a.xml", "<a>"), error));
  EXPECT_EQ(document.Root().Name(), "before");
}

TEST(XmlFile, ThatNeverEndsIsRefused) {
  XmlDocument document;
  std::string error;
  EXPECT_FALSE(document.LoadFile("/dev/zero", error));
  EXPECT_EQ(error, "it is larger than 256 MiB");
}

}  // namespace
