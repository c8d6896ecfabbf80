#include "drawing/DxfTokens.h"

#include "drawing/Utf8Text.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace drawing {
namespace {

// Group codes run from -5 to 1071; some writers add their own a little above.
constexpr int kLargestGroupCode = 9999;
constexpr int kComment = 999;
constexpr std::size_t kQuoteLimit = 40;

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\0'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsUpper(char c) { return c >= 'A' && c <= 'Z'; }
bool IsLower(char c) { return c >= 'a' && c <= 'z'; }

std::string_view WithoutPlus(std::string_view text) {
  // "+-5" is no number: the sign that is left must not be taken for the first one.
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  return text;
}

// from_chars reports numbers too small and too large alike. Without an exponent only a text that
// begins with zeros can be too small.
bool IsTooSmall(std::string_view text) {
  if (!text.empty() && text[0] == '-') text.remove_prefix(1);
  const std::size_t exponent = text.find_first_of("eE");
  if (exponent != std::string_view::npos) {
    return exponent + 1 < text.size() && text[exponent + 1] == '-';
  }
  return !text.empty() && (text[0] == '0' || text[0] == '.');
}

NumberForm ParsePlain(std::string_view text, double& value) {
  text = WithoutPlus(text);
  // from_chars knows "inf" and "nan"; a number begins with a digit or a point.
  const std::size_t first = !text.empty() && text[0] == '-' ? 1 : 0;
  if (first >= text.size()) return NumberForm::kNotANumber;
  if (!IsDigit(text[first]) && text[first] != '.') return NumberForm::kNotANumber;
  double number = 0.0;
  const char* end = text.data() + text.size();
  const std::from_chars_result read = std::from_chars(text.data(), end, number);
  if (read.ec == std::errc::invalid_argument || read.ptr != end) return NumberForm::kNotANumber;
  if (read.ec == std::errc::result_out_of_range) {
    if (!IsTooSmall(text)) return NumberForm::kOutOfRange;
    number = 0.0;
  }
  value = number;
  return NumberForm::kPlain;
}

bool ParseGroupCode(std::string_view text, int& code) {
  text = Trim(text);
  if (text.empty() || text.size() > 5) return false;
  int value = 0;
  if (!ParseInteger(text, value)) return false;
  if (value < -5 || value > kLargestGroupCode) return false;
  code = value;
  return true;
}

bool BeginsLikeRecordName(std::string_view text) {
  if (text.empty()) return false;
  return IsUpper(text[0]) || IsLower(text[0]) || text.substr(0, 2) == "3D";
}

bool IsRecordName(std::string_view text) {
  if (!BeginsLikeRecordName(text)) return false;
  for (const char c : text) {
    if (!IsUpper(c) && !IsLower(c) && !IsDigit(c) && c != '_' && c != '-') return false;
  }
  return true;
}

// Narrower than what is accepted where a name is expected: a word that stands behind a line "0" by
// chance is seldom all in capitals.
bool IsRecordNameInCapitals(std::string_view text) {
  if (!IsRecordName(text)) return false;
  for (const char c : text) {
    if (IsLower(c)) return false;
  }
  return true;
}

// What the head of a text may be that began with something else.
bool MayFollowDamagedStart(std::string_view type) {
  return type == "SECTION" || type == "LINE" || type == "ARC" || type == "CIRCLE" ||
         type == "LWPOLYLINE" || type == "POLYLINE";
}

// Length of the well-formed UTF-8 sequence at the beginning of the text, 0 for none.
std::size_t Utf8Length(std::string_view text) {
  std::size_t position = 0;
  return NextCharacter(text, position) == kNoCharacter ? 0 : position;
}

std::string Quoted(std::string_view text) {
  return "\"" + ReadableText(Trim(text), kQuoteLimit) + "\"";
}

}  // namespace

NumberForm ParseNumber(std::string_view text, double& value) {
  text = Trim(text);
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return ParsePlain(text, value);
  if (text.find('.') != std::string_view::npos) return NumberForm::kNotANumber;
  std::string withPoint(text);
  withPoint[comma] = '.';
  const NumberForm form = ParsePlain(withPoint, value);
  return form == NumberForm::kPlain ? NumberForm::kDecimalComma : form;
}

bool ParseInteger(std::string_view text, int& value) {
  text = WithoutPlus(Trim(text));
  int number = 0;
  const char* end = text.data() + text.size();
  const std::from_chars_result read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return false;
  value = number;
  return true;
}

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string ReadableText(std::string_view text, std::size_t limit) {
  const bool shortened = text.size() > limit;
  std::string_view rest = text.substr(0, limit);
  std::string result;
  result.reserve(rest.size());
  while (!rest.empty()) {
    const auto byte = static_cast<unsigned char>(rest[0]);
    std::size_t length = Utf8Length(rest);
    if (length == 0) {
      result += static_cast<char>(0xc0 | byte >> 6);
      result += static_cast<char>(0x80 | (byte & 0x3f));
      length = 1;
    } else if (byte < 0x20 || byte == 0x7f) {
      result += '?';
    } else {
      result += rest.substr(0, length);
    }
    rest.remove_prefix(length);
  }
  return shortened ? result + "..." : result;
}

DxfGroupReader::DxfGroupReader(std::string_view text)
    : text_(text), lineEnd_('\n'), position_{0, 1}, lastValue_{0, 1} {
  if (text_.substr(0, 3) == "\xef\xbb\xbf") text_.remove_prefix(3);
  if (text_.find('\n') == std::string_view::npos) lineEnd_ = '\r';
}

DxfGroupReader::DxfGroupReader(std::string_view text, std::size_t line)
    : text_(text),
      lineEnd_(text.find('\n') == std::string_view::npos ? '\r' : '\n'),
      position_{0, line},
      lastValue_{0, line} {}

bool DxfGroupReader::NextHead(DxfGroup& group) {
  lastValue_ = position_;
  group.code = 0;
  group.line = position_.line;
  return ReadLine(group.value);
}

bool DxfGroupReader::ReadLine(std::string_view& line) {
  if (position_.offset >= text_.size()) return false;
  const std::size_t found = text_.find(lineEnd_, position_.offset);
  const std::size_t end = found == std::string_view::npos ? text_.size() : found;
  line = text_.substr(position_.offset, end - position_.offset);
  while (!line.empty() && IsBlank(line.back())) line.remove_suffix(1);
  position_.offset = end + 1;
  ++position_.line;
  return true;
}

bool DxfGroupReader::OnlyBlanksLeft() const {
  for (std::size_t i = position_.offset; i < text_.size(); ++i) {
    // An end-of-file character of old systems counts as blank too.
    if (!IsBlank(text_[i]) && text_[i] != '\n' && text_[i] != '\x1a') return false;
  }
  return true;
}

DxfGroupReader::Result DxfGroupReader::Next(DxfGroup& group) {
  std::string_view line;
  const Position before = position_;
  if (!ReadLine(line)) return Result::kEnd;
  if (!ParseGroupCode(line, group.code)) {
    position_ = before;
    if (OnlyBlanksLeft()) return Result::kEnd;
    ReadLine(group.value);
    group.line = before.line;
    return Result::kBadCode;
  }
  lastValue_ = position_;
  group.line = position_.line;
  if (!ReadLine(group.value)) return Result::kNoValue;
  return Result::kGroup;
}

bool DxfGroupReader::Resynchronise(DxfGroup& group) {
  position_ = lastValue_;
  bool zeroBefore = false;
  std::string_view line;
  while (true) {
    const std::size_t number = position_.line;
    const std::size_t offset = position_.offset;
    if (!ReadLine(line)) return false;
    const std::string_view word = Trim(line);
    if (zeroBefore && IsRecordNameInCapitals(word)) {
      group = DxfGroup{0, word, number};
      lastValue_ = Position{offset, number};
      return true;
    }
    zeroBefore = word == "0";
  }
}

DxfRecordReader::DxfRecordReader(std::string_view text) : groups_(text) {}

DxfRecordReader::DxfRecordReader(std::string_view text, std::size_t line) : groups_(text, line) {
  haveHead_ = groups_.NextHead(head_);
}

bool DxfRecordReader::Start(std::string& problem, std::size_t& problemLine) {
  problem.clear();
  DxfGroup group;
  DxfGroupReader::Result result = groups_.Next(group);
  while (result == DxfGroupReader::Result::kGroup && group.code == kComment) {
    result = groups_.Next(group);
  }
  problemLine = group.line;
  if (result == DxfGroupReader::Result::kEnd || result == DxfGroupReader::Result::kNoValue) {
    problem = "it ends before the first record";
    return false;
  }
  if (result == DxfGroupReader::Result::kGroup && group.code == 0 &&
      IsRecordNameInCapitals(Trim(group.value))) {
    head_ = group;
    haveHead_ = true;
    return true;
  }
  problem = result == DxfGroupReader::Result::kBadCode
                ? Quoted(group.value) + " stands where the first group code is expected"
                : "the first group is " + std::to_string(group.code) + " " + Quoted(group.value) +
                      ", not the head of a record";
  while (groups_.Resynchronise(group)) {
    if (!MayFollowDamagedStart(group.value)) continue;
    head_ = group;
    haveHead_ = true;
    return true;
  }
  return false;
}

void DxfRecordReader::Recover(DxfRecord& record, std::string damage, std::size_t line) {
  record.damage = std::move(damage);
  record.damageLine = line;
  haveHead_ = groups_.Resynchronise(head_);
  record.complete = haveHead_;
}

bool DxfRecordReader::Next(DxfRecord& record) {
  if (!haveHead_) return false;
  record.type = Trim(head_.value);
  record.line = head_.line;
  record.groups.clear();
  record.damage.clear();
  record.complete = false;
  haveHead_ = false;
  // Behind the end mark there may be anything.
  if (record.type == "EOF") return record.complete = true;
  DxfGroup group;
  while (true) {
    const DxfGroupReader::Result result = groups_.Next(group);
    if (result == DxfGroupReader::Result::kEnd || result == DxfGroupReader::Result::kNoValue) {
      return true;
    }
    if (result == DxfGroupReader::Result::kBadCode) {
      Recover(record, Quoted(group.value) + " stands where a group code is expected", group.line);
      return true;
    }
    if (group.code == kComment) continue;
    if (group.code != 0) {
      record.groups.push_back(group);
      continue;
    }
    if (!IsRecordName(Trim(group.value))) {
      Recover(record, Quoted(group.value) + " is no name of a record", group.line);
      return true;
    }
    head_ = group;
    haveHead_ = true;
    record.complete = true;
    return true;
  }
}

bool DxfRecordReader::OnlyBlanksLeft() const { return groups_.OnlyBlanksLeft(); }

}  // namespace drawing
