// The text of a DXF file as numbered groups, and the groups as records that begin with group code
// 0.
//
// Everything is a view into one buffer that must outlive the readers. Nothing is allocated from a
// figure that stands in the file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace drawing {

/// What a text turned out to be when a number was wanted.
enum class NumberForm { kPlain, kDecimalComma, kNotANumber, kOutOfRange };

/// Reads a decimal number, independent of the locale; blanks around it and a leading plus are
/// accepted.
///
/// Returns: kPlain or kDecimalComma ("12,5") with the number in `value`; kNotANumber ("abc",
/// "1.5.2",
///   "nan", "inf", "", hexadecimal) or kOutOfRange ("1e999"), `value` untouched. Numbers too small
///   for a double are 0.
NumberForm ParseNumber(std::string_view text, double& value);

/// Reads a whole number; blanks around it and a leading plus are accepted.
///
/// Returns: false, `value` untouched, for everything that is no 32-bit whole number.
bool ParseInteger(std::string_view text, int& value);

/// The text without blanks, tabs and carriage returns at either end.
std::string_view Trim(std::string_view text);

/// The text as UTF-8 for people: bytes that are not UTF-8 are taken as Latin-1, control characters
/// become question marks. At most `limit` bytes of `text` are looked at; an ellipsis marks the
/// rest.
std::string ReadableText(std::string_view text, std::size_t limit = 255);

/// One pair of lines: a group code and its value.
struct DxfGroup {
  int code = 0;
  std::string_view value;  ///< Without the line end and blanks behind it.
  std::size_t line = 0;    ///< Of the value, counted from 1.
};

/// Reads a text pair by pair. Lines end with LF or CR LF; a text without any LF may use CR alone.
class DxfGroupReader {
 public:
  enum class Result {
    kGroup,    ///< A pair was read.
    kEnd,      ///< Nothing but blank lines was left.
    kBadCode,  ///< The line where a group code should stand is none; `value` and `line` tell it.
    kNoValue   ///< The text ends behind a group code.
  };

  explicit DxfGroupReader(std::string_view text);

  /// Reads a part of a text; `line` is the number of its first line.
  DxfGroupReader(std::string_view text, std::size_t line);

  Result Next(DxfGroup& group);

  /// Reads the next line as the value of a group 0.
  ///
  /// Returns: false when there is none.
  bool NextHead(DxfGroup& group);

  /// Looks for the next line "0" that is followed by the name of a record, beginning with the value
  /// of the last pair that was read, and reads that pair. A pair of lines that has slipped by one
  /// is put right by this.
  ///
  /// Returns: false when there is none; the text is then at its end.
  bool Resynchronise(DxfGroup& group);

  /// True when nothing but blanks is left.
  bool OnlyBlanksLeft() const;

 private:
  struct Position {
    std::size_t offset;
    std::size_t line;
  };

  bool ReadLine(std::string_view& line);

  std::string_view text_;
  char lineEnd_;
  Position position_;
  Position lastValue_;
};

/// What begins with a group code 0 and reaches to the next one: an entity, a section's head, ...
struct DxfRecord {
  std::string_view type;         ///< A view into the text that is read.
  std::size_t line = 0;          ///< Of the type, counted from 1.
  std::vector<DxfGroup> groups;  ///< Without comments (group code 999).
  bool complete = false;         ///< False when the text ended before the next record began.
  std::string damage;  ///< What is wrong with the sequence of groups; empty for sound records.
  std::size_t damageLine = 0;
};

/// Reads a text record by record, and finds the way back after damage.
class DxfRecordReader {
 public:
  explicit DxfRecordReader(std::string_view text);

  /// Reads a part of a text that begins with the type of a record, at the line `line`. Start is not
  /// called.
  DxfRecordReader(std::string_view text, std::size_t line);

  /// Finds the first record.
  ///
  /// Returns: false where the text is no DXF; `problem` then tells why. With a result of true it is
  ///   empty or tells what stood in front of the first record and was passed over; `problemLine` is
  ///   its line.
  bool Start(std::string& problem, std::size_t& problemLine);

  /// Reads one record; `record` is filled anew, its capacity is used again. The record EOF is the
  /// last one, whatever stands behind it.
  ///
  /// Returns: false when no record is left.
  bool Next(DxfRecord& record);

  /// True when nothing but blanks is left behind the last record.
  bool OnlyBlanksLeft() const;

 private:
  void Recover(DxfRecord& record, std::string damage, std::size_t line);

  DxfGroupReader groups_;
  DxfGroup head_;  // The 0-group of the next record.
  bool haveHead_ = false;
};

}  // namespace drawing
