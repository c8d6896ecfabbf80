#pragma once

// The text type of the interface: a key, a value or a line of explanation.

#include <KTRCL_DataTypes/Export.h>

#include <cstdint>
#include <string>

/// A text around one standard byte string. The bytes are taken as they are: no encoding is assumed,
/// an empty text is a meaningful value.
///
/// Numbers become text by constructors, always with a decimal point whatever the host's locale:
///
///     GXString(0.1, -1).Str();     // "0.1": reads back to the same number
///     GXString(2.0, 3).Str();      // "2.000"
///     GXString(12, false).Str();   // "12"
///
/// Mixed argument types such as GXString(5, -1) match no constructor best and do not compile; write
/// 5.0 for a number with decimals and `false` for an integer.
class KTRCL_DATATYPES_EXPORT GXString {
 public:
  /// The empty text.
  GXString();

  /// A copy of a text that ends with a null byte. Degenerate: a null pointer gives the empty text.
  GXString(const char* text);

  /// A copy of a standard string; null bytes inside it are kept.
  GXString(const std::string& text);

  /// Takes over a standard string.
  GXString(std::string&& text) noexcept;

  /// A number as text.
  ///
  /// `decimals` 0 and above: that many digits behind the point, correctly rounded from the number
  /// held (a tie goes to the even digit), never in exponent form; more than 1100 decimals are
  /// written as 1100, where every double has ended. Below 0: the shortest text that reads back to
  /// the very same number, in exponent form where that is shorter (1e+300).
  ///
  /// Degenerate: "inf", "-inf", "nan" and "-nan"; minus zero is "-0".
  GXString(const double& value, const int& decimals);

  /// An integer as text; with `plusSign` a number above 0 gets a leading "+".
  GXString(const int& value, const bool& plusSign);

  /// An unsigned integer as text. Caution: an `int` alone converts to it, so a negative one becomes
  /// a large number; write GXString(value, false) for those.
  GXString(const std::uint64_t& value);

  GXString(const GXString& other) = default;
  GXString(GXString&& other) noexcept = default;
  GXString& operator=(const GXString& other) = default;
  GXString& operator=(GXString&& other) noexcept = default;

  // The only virtual operation; it makes the object start with a table pointer, which hosts rely
  // on.
  virtual ~GXString();

  /// Whether the text has no byte.
  bool IsEmpty() const;

  /// The text itself, to change or to read.
  std::string& Str();
  const std::string& Str() const;

 private:
  std::string text_;
};
