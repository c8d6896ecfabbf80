#include "drawing/XmlParagraph.h"

#include "drawing/EscapedText.h"
#include "drawing/XmlReader.h"

#include <pugixml.hpp>

#include <fstream>
#include <new>
#include <utility>

namespace drawing {

namespace {

// pugixml gives an empty handle where memory runs out; the text would lack something unnoticed.
template <typename Handle>
Handle Made(Handle handle) {
  if (!handle) throw std::bad_alloc();
  return handle;
}

void SetText(pugi::xml_node node, const char* name, const std::string& text) {
  if (!Made(node.append_attribute(name)).set_value(text.c_str())) throw std::bad_alloc();
}

pugi::xml_node AddElement(pugi::xml_node parent, const char* name) {
  return Made(parent.append_child(name));
}

void AddEscaped(pugi::xml_node parent, const char* element, const TreeParagraph::Value& value) {
  const pugi::xml_node node = AddElement(parent, element);
  SetText(node, kXmlKey, Escaped(value.key));
  SetText(node, kXmlText, Escaped(value.text));
}

void WriteAttributes(const TreeParagraph& paragraph, pugi::xml_node node) {
  for (const TreeParagraph::Value& attribute : paragraph.Attributes()) {
    if (IsPlainXmlName(attribute.key) && IsPlainText(attribute.text)) {
      SetText(node, attribute.key.c_str(), attribute.text);
    } else {
      AddEscaped(node, kXmlAttribute, attribute);
    }
  }
}

void WriteValue(const TreeParagraph::Value& value, pugi::xml_node parent) {
  if (!IsPlainXmlName(value.key) || !IsPlainText(value.text) || IsBlankXml(value.text)) {
    AddEscaped(parent, kXmlValue, value);
    return;
  }
  pugi::xml_node text = AddElement(parent, value.key.c_str()).append_child(pugi::node_pcdata);
  if (!Made(text).set_value(value.text.c_str())) throw std::bad_alloc();
}

void WriteParagraph(const TreeParagraph& paragraph, pugi::xml_node parent) {
  pugi::xml_node node;
  if (IsPlainXmlName(paragraph.Name())) {
    node = AddElement(parent, paragraph.Name().c_str());
  } else {
    node = AddElement(parent, kXmlParagraph);
    SetText(node, kXmlName, Escaped(paragraph.Name()));
  }
  WriteAttributes(paragraph, node);
  for (const TreeParagraph::Entry& entry : paragraph.Entries()) {
    if (entry.paragraph != nullptr) {
      WriteParagraph(*entry.paragraph, node);
    } else {
      WriteValue(entry.value, node);
    }
  }
}

class StringWriter : public pugi::xml_writer {
 public:
  std::string text;
  void write(const void* data, std::size_t size) override {
    text.append(static_cast<const char*>(data), size);
  }
};

}  // namespace

std::string XmlText(const TreeParagraph& paragraph) {
  pugi::xml_document document;
  const pugi::xml_node declaration = Made(document.append_child(pugi::node_declaration));
  SetText(declaration, "version", "1.0");
  SetText(declaration, "encoding", "UTF-8");
  WriteParagraph(paragraph, document);
  StringWriter writer;
  document.save(writer, "  ", pugi::format_default, pugi::encoding_utf8);
  return std::move(writer.text);
}

XmlDocument::XmlDocument(const std::string& rootName)
    : root_(std::make_unique<TreeParagraph>(rootName)) {}

TreeParagraph& XmlDocument::Root() { return *root_; }

const TreeParagraph& XmlDocument::Root() const { return *root_; }

std::string XmlDocument::Text() const { return XmlText(*root_); }

bool XmlDocument::SaveFile(const std::string& path, std::string& error) const {
  std::ofstream file(path, std::ios::binary);
  file << Text();
  file.close();
  if (!file) error = "it cannot be written";
  return static_cast<bool>(file);
}

bool XmlDocument::LoadText(std::string_view text, std::string& error) {
  std::unique_ptr<TreeParagraph> root = ReadXml(text, error);
  if (root == nullptr) return false;
  root_ = std::move(root);
  return true;
}

bool XmlDocument::LoadFile(const std::string& path, std::string& error) {
  std::ifstream file(path, std::ios::binary);
  std::string text;
  // One byte more than is loaded, so that a file that never ends does not fill the memory.
  char buffer[1U << 16U];
  while (text.size() <= kLargestXml && file.read(buffer, sizeof buffer)) {
    text.append(buffer, sizeof buffer);
  }
  if (text.size() <= kLargestXml) text.append(buffer, static_cast<std::size_t>(file.gcount()));
  if (file.bad() || (!file.eof() && text.size() <= kLargestXml)) {
    error = "it cannot be read";
    return false;
  }
  return LoadText(text, error);
}

}  // namespace drawing
