// Names in DXF files as UTF-8: code pages, and the escapes for characters that they lack.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace drawing {

/// A name as it is to be read by people.
struct DecodedText {
  std::string text;      ///< UTF-8, without control characters.
  bool guessed = false;  ///< No encoding is known, and it is not UTF-8: taken as Latin-1.
  bool lost = false;     ///< Something had no meaning in the encoding and became U+FFFD.
};

/// Decodes the names of a drawing.
///
/// Files of AC1021 and later are in UTF-8, earlier ones in the code page of their header. Where the
/// header names none that is known, what is UTF-8 is taken as that, all else as Latin-1. In all of
/// them \U+XXXX is a character of UTF-16, a pair of surrogates one character, and \M+nXXXX one of
/// the code page 932, 950, 949, 1361 or 936 (n from 1 to 5). Conversion is that of POSIX iconv.
class TextDecoder {
 public:
  TextDecoder();
  ~TextDecoder();
  TextDecoder(TextDecoder&&) noexcept;
  TextDecoder& operator=(TextDecoder&&) noexcept;

  /// The value of $ACADVER.
  void SetVersion(std::string_view version);

  /// The value of $DWGCODEPAGE, in any case: "ANSI_1252", "dos850", "iso8859-1", "utf-8" ...
  ///
  /// Returns: false where it names no code page that can be converted; then none is known.
  bool SetCodePage(std::string_view name);

  bool IsUnicode() const;  ///< By its version.

  /// The text in UTF-8. What is longer than the 255 characters that a name may have is shortened
  /// behind them and ended by "...".
  DecodedText Decode(std::string_view bytes) const;

 private:
  class Converter;

  std::size_t TakeMultibyteEscape(std::string_view text, std::size_t position,
                                  DecodedText& result) const;

  bool unicode_ = false;
  std::unique_ptr<Converter> converter_;  // Null where no code page is known.
  // Of the numbers in \M+n, opened when first met.
  mutable std::array<std::unique_ptr<Converter>, 5> multibyte_;
};

/// A name for comparison without regard to case: blanks at its ends are dropped; letters A to Z and
/// those of Latin-1, Greek and Cyrillic are made small.
std::string NameKey(std::string_view name);

}  // namespace drawing
