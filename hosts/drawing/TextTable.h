// Columns of text, padded to the widest entry of each.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

/// Collects rows and prints them in columns. Figures stand to the right, words to the left.
class TextTable {
 public:
  /// One letter per column: 'l' for words, 'r' for figures.
  explicit TextTable(std::string alignment);

  /// Missing cells are empty, surplus ones are ignored.
  void Row(std::vector<std::string> cells);

  /// Every row on a line of its own behind `indent`, without blanks at the end.
  std::string Print(const std::string& indent) const;

 private:
  std::string alignment_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace drawing
