// Trees of paragraphs as XML 1.0, to be saved, mailed, read by people, and loaded again.
//
//     <?xml version="1.0" encoding="UTF-8"?>
//     <GXLAPart COMMENT="bracket.dxf">            a paragraph with an attribute
//       <IntGXLAContourList>                      a child paragraph
//         <Id>1</Id>                              a value
//         <_value _key="2nd side" _text=""/>      a value that XML has no plain form for
//
// Attributes of a paragraph are attributes, values are elements that hold text alone, children are
// elements that hold none. Texts that XML cannot hold or would not give back (IsPlainText: bytes
// that are no UTF-8, control characters), blank texts, and names that are no plain names stand in
// one of three elements, with all they are told Escaped ("%" and two hexadecimal digits for each
// such byte, and for "%" itself):
//
//     <_attribute _key="..." _text="..."/>        of the paragraph in which it stands
//     <_value _key="..." _text="..."/>
//     <_paragraph _name="...">...</_paragraph>
//
// A plain name begins with a letter, goes on with letters, digits, "_", "-" and ".", all of ASCII,
// and does not begin with "xml" in whatever case. So no name of a host's meets one with a "_" in
// front.
#pragma once

#include "drawing/ParagraphTree.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace drawing {

/// The largest text that is loaded, in bytes.
inline constexpr std::size_t kLargestXml = std::size_t{256} << 20U;

/// The most "<" and "=" in it: every element and every attribute needs one, and memory goes with
/// their number.
inline constexpr std::size_t kMostXmlMarks = 10'000'000;

/// The tree below and with `paragraph` as a document whose root it is, valid UTF-8, with an end of
/// line behind it. The same tree gives the same bytes.
///
/// Loading the text gives the tree again: names, attributes, values and children, values and
/// children in their order. Only that a value was a number is not told; it is read as before.
/// Attributes that need an element come behind the others.
std::string XmlText(const TreeParagraph& paragraph);

/// A document and its tree.
///
///     drawing::XmlDocument document("contours");
///     GXParagraph* const root = &document.Root();
///     list.Write("Outer", root, 0);
///     std::string error;
///     if (!document.SaveFile("contours.xml", error)) ...
class XmlDocument {
 public:
  /// A tree of a root alone.
  explicit XmlDocument(const std::string& rootName = "document");

  /// The document owns the root and all below it; loading makes a new one.
  TreeParagraph& Root();
  const TreeParagraph& Root() const;

  /// XmlText of the root.
  std::string Text() const;

  /// Returns: false with the reason in `error`, and perhaps a part of the file written.
  bool SaveFile(const std::string& path, std::string& error) const;

  /// Makes the tree that a text describes.
  ///
  /// Read are documents in UTF-8, or with that in a declaration, without a document type; with
  /// comments, instructions, CDATA, and the five entities of XML and numbered characters. Blanks
  /// between elements mean nothing, and neither does text of blanks alone. Elements that hold
  /// nothing are paragraphs.
  ///
  /// Returns: false with one line in `error`, "line 3: ...", and the tree as it was, for any other
  ///   text, thus for document types and entities of their own; text beside elements or attributes,
  ///   since it is neither value nor paragraph; names with a "_" in front beside those above; more
  ///   than kDeepestParagraph levels of paragraphs; and texts beyond kLargestXml or kMostXmlMarks.
  bool LoadText(std::string_view text, std::string& error);

  /// The same for a file. `error` does not name it.
  bool LoadFile(const std::string& path, std::string& error);

 private:
  std::unique_ptr<TreeParagraph> root_;
};

}  // namespace drawing
