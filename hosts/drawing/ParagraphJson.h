// Trees of paragraphs as JSON, for programs.
#pragma once

#include "drawing/ParagraphTree.h"

#include <nlohmann/json.hpp>

namespace drawing {

/// The tree below and with `paragraph`, in the order in which it is stored:
///
///     {"name": "GXLAPart",
///      "attributes": {"COMMENT": "bracket.dxf"},
///      "content": [{"key": "Id", "value": 1},
///                  {"name": "ELEMENTS", "attributes": {...}, "content": [...]}]}
///
/// Entries with a "key" are values, those with a "name" children; "attributes" and "content" are
/// left out where there are none. What was stored as a number is a number, but a text where JSON
/// has none: "inf", "nan". Names, keys and texts that are no UTF-8 stand Escaped under
/// "escapedName", "escapedKey" and "escapedValue"; attributes with such a key or text stand under
/// "escapedAttributes", both Escaped.
///
/// Cost: linear, but quadratic in the number of attributes of one paragraph.
nlohmann::ordered_json ParagraphJson(const TreeParagraph& paragraph);

}  // namespace drawing
