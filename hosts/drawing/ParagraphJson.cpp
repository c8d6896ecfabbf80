#include "drawing/ParagraphJson.h"

#include "drawing/EscapedText.h"
#include "drawing/Utf8Text.h"

#include <cmath>
#include <string>
#include <utility>

namespace drawing {

namespace {

using Json = nlohmann::ordered_json;
using Value = TreeParagraph::Value;

Json ValueJson(const Value& value) {
  double number = 0.0;
  if (value.kind == TreeParagraph::Kind::kText || !NumberFromText(value.text, number) ||
      !std::isfinite(number)) {
    return value.text;
  }
  // A double holds every int.
  if (value.kind == TreeParagraph::Kind::kInt) return static_cast<int>(number);
  return number;
}

void PutName(Json& json, const char* name, const char* escapedName, const std::string& text) {
  if (IsUtf8(text)) {
    json[name] = text;
  } else {
    json[escapedName] = Escaped(text);
  }
}

Json EntryJson(const Value& value) {
  Json json = Json::object();
  PutName(json, "key", "escapedKey", value.key);
  if (IsUtf8(value.text)) {
    json["value"] = ValueJson(value);
  } else {
    json["escapedValue"] = Escaped(value.text);
  }
  return json;
}

void PutAttributes(Json& json, const TreeParagraph& paragraph) {
  Json plain = Json::object();
  Json escaped = Json::object();
  for (const Value& attribute : paragraph.Attributes()) {
    if (IsUtf8(attribute.key) && IsUtf8(attribute.text)) {
      plain[attribute.key] = ValueJson(attribute);
    } else {
      escaped[Escaped(attribute.key)] = Escaped(attribute.text);
    }
  }
  if (!plain.empty()) json["attributes"] = std::move(plain);
  if (!escaped.empty()) json["escapedAttributes"] = std::move(escaped);
}

}  // namespace

Json ParagraphJson(const TreeParagraph& paragraph) {
  Json json = Json::object();
  PutName(json, "name", "escapedName", paragraph.Name());
  PutAttributes(json, paragraph);
  Json content = Json::array();
  for (const TreeParagraph::Entry& entry : paragraph.Entries()) {
    content.push_back(entry.paragraph != nullptr ? ParagraphJson(*entry.paragraph)
                                                 : EntryJson(entry.value));
  }
  if (!content.empty()) json["content"] = std::move(content);
  return json;
}

}  // namespace drawing
