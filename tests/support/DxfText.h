// Short ways to write DXF texts in tests: words between blanks become lines.
//
//     support::Dxf("0 LINE 8 cut 10 0 20 0 11 5 21 0")   // a whole file in millimetres
#pragma once

#include <sstream>
#include <string>

namespace support {

/// The words as lines.
inline std::string Lines(const std::string& words, const std::string& lineEnd = "\n") {
  std::istringstream in(words);
  std::string text;
  for (std::string word; in >> word;) text += word + lineEnd;
  return text;
}

/// A file with these header variables and these entities; the first entity is named on line
/// 10 + the number of words in `header`.
inline std::string DxfWithHeader(const std::string& header, const std::string& entities) {
  return Lines("0 SECTION 2 HEADER " + header + " 0 ENDSEC 0 SECTION 2 ENTITIES " + entities +
               " 0 ENDSEC 0 EOF");
}

/// A file in millimetres, version AC1015; the first entity is named on line 20.
inline std::string Dxf(const std::string& entities) {
  return DxfWithHeader("9 $ACADVER 1 AC1015 9 $INSUNITS 70 4", entities);
}

}  // namespace support
