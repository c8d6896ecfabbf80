#include "drawing/TextTable.h"

#include <algorithm>
#include <utility>

namespace drawing {

namespace {

// Counts characters, not bytes: continuation bytes of UTF-8 take no column.
std::size_t Width(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

}  // namespace

TextTable::TextTable(std::string alignment) : alignment_(std::move(alignment)) {}

void TextTable::Row(std::vector<std::string> cells) {
  cells.resize(alignment_.size());
  rows_.push_back(std::move(cells));
}

std::string TextTable::Print(const std::string& indent) const {
  std::vector<std::size_t> widths(alignment_.size(), 0);
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Width(row[i]));
  }
  std::string text;
  for (const auto& row : rows_) {
    std::string line = indent;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string blanks(widths[i] - Width(row[i]), ' ');
      if (i > 0) line += "  ";
      line += alignment_[i] == 'r' ? blanks + row[i] : row[i] + blanks;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + "\n";
  }
  return text;
}

}  // namespace drawing
