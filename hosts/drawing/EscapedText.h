// Which bytes may stand in a text file as they are, and a form for all others that reads back.
#pragma once

#include <string>
#include <string_view>

namespace drawing {

/// Whether XML 1.0 allows the character in a document.
bool IsXmlCharacter(char32_t character);

/// Whether a text comes back from XML and from any editor as it is: valid UTF-8 of characters that
/// XML 1.0 allows, without control characters, tabs and ends of line among them, which readers of
/// XML may turn into blanks.
bool IsPlainText(std::string_view text);

/// The bytes as plain text: control characters, "%", and what is no valid UTF-8 or not allowed in
/// XML become "%" and two hexadecimal digits per byte: "100%\n" becomes "100%25%0A".
std::string Escaped(std::string_view bytes);

/// Appends to `bytes` what Escaped was given.
///
/// Returns: false, with `bytes` partly written, where a "%" is not followed by two hexadecimal
///   digits.
bool Unescape(std::string_view text, std::string& bytes);

}  // namespace drawing
