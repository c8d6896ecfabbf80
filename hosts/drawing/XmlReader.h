// Reading of the XML form of paragraphs, which XmlParagraph.h describes, and the names in it.
#pragma once

#include "drawing/ParagraphTree.h"

#include <memory>
#include <string>
#include <string_view>

namespace drawing {

inline constexpr char kXmlAttribute[] = "_attribute";
inline constexpr char kXmlValue[] = "_value";
inline constexpr char kXmlParagraph[] = "_paragraph";
inline constexpr char kXmlName[] = "_name";
inline constexpr char kXmlKey[] = "_key";
inline constexpr char kXmlText[] = "_text";

/// Whether a name can be that of an element or an attribute.
bool IsPlainXmlName(std::string_view name);

/// Whether a text is empty or of blanks, tabs and ends of line alone.
bool IsBlankXml(std::string_view text);

/// The tree of a document, see XmlDocument::LoadText.
///
/// Returns: null with one line in `error` where it cannot be loaded.
std::unique_ptr<TreeParagraph> ReadXml(std::string_view text, std::string& error);

}  // namespace drawing
