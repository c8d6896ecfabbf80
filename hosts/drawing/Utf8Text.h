// Characters of texts in UTF-8.
#pragma once

#include <cstddef>
#include <string_view>

namespace drawing {

/// Stands for bytes that are no UTF-8.
inline constexpr char32_t kNoCharacter = 0xFFFFFFFF;

/// The character of a UTF-8 text at `position`, which moves behind it.
///
/// Returns: kNoCharacter, with `position` moved by one byte, where no valid UTF-8 begins: stray and
///   missing bytes, longer forms than needed, surrogates, characters above U+10FFFF.
/// Requires: `position` is inside the text.
char32_t NextCharacter(std::string_view text, std::size_t& position);

/// Whether the bytes are valid UTF-8. An empty text is.
bool IsUtf8(std::string_view text);

}  // namespace drawing
