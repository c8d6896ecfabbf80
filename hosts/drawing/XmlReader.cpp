// The parser of pugixml is quick and lenient. What it lets pass and should not is looked for here:
// characters before it runs, references by leaving them to this file, structure behind it.
#include "drawing/XmlReader.h"

#include "drawing/EscapedText.h"
#include "drawing/Utf8Text.h"
#include "drawing/XmlParagraph.h"

#include <pugixml.hpp>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <system_error>

namespace drawing {

namespace {

// References stay as they are written, so that unknown ones can be told.
constexpr unsigned kParseOptions =
    pugi::parse_cdata | pugi::parse_eol | pugi::parse_wconv_attribute | pugi::parse_doctype |
    pugi::parse_declaration | pugi::parse_fragment | pugi::parse_ws_pcdata;

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string LowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), Lower);
  return text;
}

bool IsText(const pugi::xml_node& node) {
  return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

void AppendCharacter(char32_t character, std::string& text) {
  const auto byte = [&](char32_t bits) { text += static_cast<char>(bits); };
  const auto follow = [&](unsigned shift) { byte(0x80U | ((character >> shift) & 0x3FU)); };
  if (character < 0x80) {
    byte(character);
  } else if (character < 0x800) {
    byte(0xC0U | (character >> 6U));
    follow(0);
  } else if (character < 0x10000) {
    byte(0xE0U | (character >> 12U));
    follow(6);
    follow(0);
  } else {
    byte(0xF0U | (character >> 18U));
    follow(12);
    follow(6);
    follow(0);
  }
}

// The character behind "&" and before ";", or kNoCharacter.
char32_t ReferredCharacter(std::string_view name) {
  if (name == "amp") return '&';
  if (name == "lt") return '<';
  if (name == "gt") return '>';
  if (name == "quot") return '"';
  if (name == "apos") return '\'';
  if (name.size() < 2 || name[0] != '#') return kNoCharacter;
  const bool hexadecimal = name[1] == 'x';
  const char* const begin = name.data() + (hexadecimal ? 2 : 1);
  const char* const end = name.data() + name.size();
  std::uint32_t number = 0;
  const auto result = std::from_chars(begin, end, number, hexadecimal ? 16 : 10);
  const bool read = result.ec == std::errc() && result.ptr == end;
  return read && IsXmlCharacter(number) ? number : kNoCharacter;
}

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  std::unique_ptr<TreeParagraph> Read() {
    if (!CheckSize() || !CheckCharacters()) return nullptr;
    const pugi::xml_parse_result result =
        document_.load_buffer(text_.data(), text_.size(), kParseOptions, pugi::encoding_utf8);
    if (!result) {
      const bool type = result.status == pugi::status_bad_doctype;
      Fail(static_cast<std::size_t>(result.offset), type ? kDocumentType : result.description());
      return nullptr;
    }
    const pugi::xml_node top = FindRoot();
    if (!top) return nullptr;
    return ReadRoot(top);
  }

  const std::string& Error() const { return error_; }

 private:
  static constexpr char kDocumentType[] = "a document type is not accepted";

  // Always false, so that a caller can hand it on. The first reason stands.
  bool Fail(std::size_t offset, const std::string& why) {
    if (!error_.empty()) return false;
    const auto end = text_.begin() + static_cast<std::ptrdiff_t>(std::min(offset, text_.size()));
    const auto line = std::count(text_.begin(), end, '\n') + 1;
    error_ = "line " + std::to_string(line) + ": " + why;
    return false;
  }
  bool Fail(const pugi::xml_node& node, const std::string& why) {
    return Fail(static_cast<std::size_t>(std::max<std::ptrdiff_t>(node.offset_debug(), 0)), why);
  }

  // Names come from the file.
  static std::string Quoted(const char* name) {
    constexpr std::size_t kLongest = 60;
    const std::string_view text = name;
    if (text.size() <= kLongest) return "\"" + std::string(text) + "\"";
    std::size_t cut = 0;
    for (std::size_t next = 0; next < kLongest; NextCharacter(text, next)) cut = next;
    return "\"" + std::string(text.substr(0, cut)) + "...\"";
  }

  bool CheckSize() {
    if (text_.size() > kLargestXml) {
      error_ = "it is larger than " + std::to_string(kLargestXml >> 20U) + " MiB";
      return false;
    }
    const auto marks =
        std::count_if(text_.begin(), text_.end(), [](char c) { return c == '<' || c == '='; });
    if (static_cast<std::size_t>(marks) <= kMostXmlMarks) return true;
    error_ = "it has more than " + std::to_string(kMostXmlMarks) + " elements and attributes";
    return false;
  }

  bool CheckCharacters() {
    for (std::size_t position = 0; position < text_.size();) {
      const std::size_t begin = position;
      const char32_t character = NextCharacter(text_, position);
      if (character == kNoCharacter) return Fail(begin, "bytes that are no UTF-8");
      if (!IsXmlCharacter(character)) return Fail(begin, "a character that XML does not allow");
    }
    return true;
  }

  // Replaces the references of a text by what they stand for.
  bool Resolve(const pugi::xml_node& node, const char* raw, std::string& text) {
    const char* const end = raw + std::strlen(raw);
    while (raw != end) {
      const char* const reference = std::find(raw, end, '&');
      text.append(raw, reference);
      if (reference == end) break;
      const char* const semicolon = std::find(reference, end, ';');
      const char32_t character =
          semicolon == end
              ? kNoCharacter
              : ReferredCharacter(
                    {reference + 1, static_cast<std::size_t>(semicolon - reference - 1)});
      if (character == kNoCharacter) {
        return Fail(node, "\"&\" without one of the five entities of XML or a character behind it");
      }
      AppendCharacter(character, text);
      raw = semicolon + 1;
    }
    return true;
  }

  bool ResolveAttribute(const pugi::xml_node& node, const pugi::xml_attribute& attribute,
                        std::string& text) {
    if (std::strchr(attribute.value(), '<') != nullptr) {
      return Fail(node, "\"<\" in the attribute " + Quoted(attribute.name()));
    }
    return Resolve(node, attribute.value(), text);
  }

  bool CheckDeclaration(const pugi::xml_node& declaration) {
    const std::string encoding = LowerCase(declaration.attribute("encoding").as_string("utf-8"));
    if (encoding == "utf-8" || encoding == "us-ascii") return true;
    return Fail(declaration, "an encoding other than UTF-8");
  }

  pugi::xml_node FindRoot() {
    pugi::xml_node root;
    for (const pugi::xml_node node : document_.children()) {
      bool accepted = true;
      if (node.type() == pugi::node_doctype) {
        accepted = Fail(node, kDocumentType);
      } else if (node.type() == pugi::node_declaration) {
        accepted = CheckDeclaration(node);
      } else if (IsText(node)) {
        accepted = IsBlankXml(node.value()) || Fail(node, "text outside the root");
      } else if (node.type() == pugi::node_element) {
        accepted = !root || Fail(node, "a second root " + Quoted(node.name()));
        root = node;
      }
      if (!accepted) return {};
    }
    if (!root) Fail(text_.size(), "no element");
    return root;
  }

  std::unique_ptr<TreeParagraph> ReadRoot(const pugi::xml_node& top) {
    std::string name;
    bool value = false;
    if (!NameOf(top, name) || !IsValue(top, value)) return nullptr;
    if (value || (top.name()[0] == '_' && top.name() != std::string_view(kXmlParagraph))) {
      Fail(top, "the root is no paragraph");
      return nullptr;
    }
    auto root = std::make_unique<TreeParagraph>(name);
    if (!ReadParagraph(top, *root)) return nullptr;
    return root;
  }

  // The name of the paragraph or the key of the value that an element stands for.
  bool NameOf(const pugi::xml_node& node, std::string& name) {
    if (node.name() != std::string_view(kXmlParagraph)) {
      name = node.name();
      return true;
    }
    return UnescapedAttribute(node, kXmlName, name);
  }

  bool UnescapedAttribute(const pugi::xml_node& node, const char* name, std::string& bytes) {
    const pugi::xml_attribute attribute = node.attribute(name);
    if (!attribute) return Fail(node, Quoted(node.name()) + " without " + Quoted(name));
    std::string text;
    if (!ResolveAttribute(node, attribute, text)) return false;
    return Unescape(text, bytes) ||
           Fail(node, "\"%\" without two hexadecimal digits behind it in " + Quoted(name));
  }

  // Whether an element holds text, which then must be all that it holds.
  bool IsValue(const pugi::xml_node& node, bool& value) {
    bool elements = false;
    for (const pugi::xml_node child : node.children()) {
      elements = elements || child.type() == pugi::node_element;
      value = value || (IsText(child) && !IsBlankXml(child.value()));
    }
    if (value && elements) return Fail(node, "text beside elements in " + Quoted(node.name()));
    if (value && node.first_attribute()) {
      return Fail(node, "text beside attributes in " + Quoted(node.name()));
    }
    return true;
  }

  bool ReadText(const pugi::xml_node& node, std::string& text) {
    for (const pugi::xml_node child : node.children()) {
      if (child.type() == pugi::node_cdata) {
        text += child.value();
      } else if (child.type() == pugi::node_pcdata && !Resolve(node, child.value(), text)) {
        return false;
      }
    }
    return true;
  }

  bool ReadAttributes(const pugi::xml_node& node, TreeParagraph& paragraph) {
    const bool named = node.name() == std::string_view(kXmlParagraph);
    std::size_t names = 0;
    for (const pugi::xml_attribute attribute : node.attributes()) {
      if (named && attribute.name() == std::string_view(kXmlName) && ++names == 1) continue;
      if (attribute.name()[0] == '_') {
        return Fail(node, "an attribute " + Quoted(attribute.name()) + " out of place");
      }
      std::string text;
      if (!ResolveAttribute(node, attribute, text)) return false;
      if (!SetAttribute(node, paragraph, attribute.name(), text)) return false;
    }
    return true;
  }

  bool SetAttribute(const pugi::xml_node& node, TreeParagraph& paragraph, const std::string& key,
                    const std::string& text) {
    if (paragraph.FindAttribute(key) != nullptr) {
      return Fail(node, "a second attribute " + Quoted(Escaped(key).c_str()));
    }
    paragraph.SetAttribute(GXString(key), GXString(text));
    return true;
  }

  // "_attribute" and "_value": two attributes and nothing else.
  bool ReadEscaped(const pugi::xml_node& node, TreeParagraph& parent) {
    std::string key;
    std::string text;
    if (!UnescapedAttribute(node, kXmlKey, key) || !UnescapedAttribute(node, kXmlText, text)) {
      return false;
    }
    const auto attributes = node.attributes();
    if (std::distance(attributes.begin(), attributes.end()) != 2) {
      return Fail(node, "too many attributes in " + Quoted(node.name()));
    }
    for (const pugi::xml_node child : node.children()) {
      if (IsText(child) && IsBlankXml(child.value())) continue;
      return Fail(node, Quoted(node.name()) + " holds something");
    }
    if (node.name() == std::string_view(kXmlAttribute)) {
      return SetAttribute(node, parent, key, text);
    }
    parent.AddString(key, text);
    return true;
  }

  bool ReadElement(const pugi::xml_node& node, TreeParagraph& parent) {
    const std::string_view element = node.name();
    if (element == kXmlAttribute || element == kXmlValue) return ReadEscaped(node, parent);
    if (element[0] == '_' && element != kXmlParagraph) {
      return Fail(node, "an unknown element " + Quoted(node.name()));
    }
    std::string name;
    bool value = false;
    if (!NameOf(node, name) || !IsValue(node, value)) return false;
    if (value) {
      std::string text;
      if (!ReadText(node, text)) return false;
      parent.AddString(name, text);
      return true;
    }
    if (parent.Level() >= kDeepestParagraph) {
      return Fail(
          node, "elements are nested deeper than " + std::to_string(kDeepestParagraph) + " levels");
    }
    // What the tree makes are TreeParagraphs.
    return ReadParagraph(node, static_cast<TreeParagraph&>(*parent.AddParagraph(name)));
  }

  bool ReadParagraph(const pugi::xml_node& node, TreeParagraph& paragraph) {
    if (!ReadAttributes(node, paragraph)) return false;
    for (const pugi::xml_node child : node.children()) {
      if (child.type() == pugi::node_element && !ReadElement(child, paragraph)) return false;
    }
    return true;
  }

  std::string_view text_;
  pugi::xml_document document_;
  std::string error_;
};

}  // namespace

bool IsPlainXmlName(std::string_view name) {
  if (name.empty() || !IsLetter(name[0])) return false;
  for (const char c : name) {
    if (!IsLetter(c) && !IsDigit(c) && c != '_' && c != '-' && c != '.') return false;
  }
  return LowerCase(std::string(name.substr(0, 3))) != "xml";
}

bool IsBlankXml(std::string_view text) {
  return text.find_first_not_of(" \t\n\r") == std::string_view::npos;
}

std::unique_ptr<TreeParagraph> ReadXml(std::string_view text, std::string& error) {
  Reader reader(text);
  std::unique_ptr<TreeParagraph> root = reader.Read();
  if (root == nullptr) error = reader.Error();
  return root;
}

}  // namespace drawing
