#include "drawing/DxfNames.h"

#include "drawing/Utf8Text.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace drawing {

namespace {

constexpr std::size_t kLongest = 255;
constexpr std::string_view kForbidden = "<>/\\\":;?*|=`";

std::string UpperCase(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

bool IsControl(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

void AppendCodeUnit(char32_t unit, std::string& text) {
  char escaped[8];
  std::snprintf(escaped, sizeof escaped, "\\U+%04X", static_cast<unsigned>(unit & 0xFFFFU));
  text += escaped;
}

std::string Escaped(char32_t character) {
  std::string text;
  if (character > 0xFFFF) {
    const char32_t rest = character - 0x10000;
    AppendCodeUnit(0xD800 + (rest >> 10U), text);
    AppendCodeUnit(0xDC00 + (rest & 0x3FFU), text);
  } else {
    AppendCodeUnit(character, text);
  }
  return text;
}

// The form of one character.
//
// Returns: whether it is fit for a file, so that reading gives it back.
bool FormOf(char32_t character, std::string& form) {
  const bool ascii = character < 0x80;
  const bool forbidden =
      ascii && kForbidden.find(static_cast<char>(character)) != std::string_view::npos;
  if (character == kNoCharacter || IsControl(character) || forbidden) {
    form = "_";
    return false;
  }
  form = ascii ? std::string(1, static_cast<char>(character)) : Escaped(character);
  return true;
}

// The form of a name by itself.
//
// Returns: whether reading gives the name back.
bool FormOf(const std::string& name, std::string& form) {
  form.clear();
  bool fit = !name.empty();
  for (std::size_t i = 0; i < name.size();) {
    const bool atBegin = i == 0;
    std::string character;
    fit = FormOf(NextCharacter(name, i), character) && fit;
    if (character == " " && (atBegin || i == name.size())) {
      character = "_";
      fit = false;
    }
    if (form.size() + character.size() > kLongest) return false;
    form += character;
  }
  if (form.empty()) form = "_";
  return fit;
}

// Cut to a length without a torn escape at the end.
std::string Cut(const std::string& form, std::size_t length) {
  if (form.size() <= length) return form;
  const std::size_t escape = form.rfind('\\', length);
  const bool torn = escape != std::string::npos && escape < length && escape + 7 > length;
  return form.substr(0, torn ? escape : length);
}

}  // namespace

void DxfNames::Add(const std::string& name) {
  if (written_.emplace(name, std::string()).second) order_.push_back(name);
}

std::string DxfNames::Unused(const std::string& form) const {
  std::string unused = form;
  for (std::size_t number = 2; taken_.count(UpperCase(unused)) > 0; ++number) {
    const std::string suffix = "-" + std::to_string(number);
    unused = Cut(form, kLongest - suffix.size()) + suffix;
  }
  return unused;
}

// Names that are fit for a file come first, so that nothing takes their place.
void DxfNames::Settle() {
  if (settled_ == order_.size()) return;
  settled_ = order_.size();
  std::string form;
  for (const std::string& name : order_) {
    if (!FormOf(name, form)) continue;
    written_[name] = form;
    taken_.insert(UpperCase(form));
  }
  std::map<std::string, std::string> byUpperCase;
  for (const std::string& name : order_) {
    if (!written_[name].empty()) continue;
    FormOf(name, form);
    std::string& shared = byUpperCase[UpperCase(name)];
    if (shared.empty()) {
      shared = Unused(form);
      taken_.insert(UpperCase(shared));
    }
    written_[name] = shared;
  }
}

const std::string& DxfNames::Written(const std::string& name) {
  Settle();
  return written_[name];
}

std::vector<std::string> DxfNames::Table() {
  Settle();
  std::vector<std::string> table;
  std::set<std::string> listed;
  for (const std::string& name : order_) {
    const std::string& form = written_[name];
    if (listed.insert(UpperCase(form)).second) table.push_back(form);
  }
  return table;
}

}  // namespace drawing
