// Names of layers and linetypes in the form that DXF allows.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace drawing {

/// Names in the form in which a file holds them.
///
/// A file holds ASCII; other characters stand as \U+XXXX, those beyond U+FFFF as two of them. The
/// characters < > / \ " : ; ? * | = ` and control characters, blanks at either end and bytes
/// that are no UTF-8 become underscores, an empty name is one underscore, and a name longer than
/// 255 bytes is cut. Names that are fit for a file stay as they are. Two names that differ still
/// differ: where two would fall together, the later one gets "-2", "-3", ... behind it. Upper and
/// lower case of ASCII letters are no difference, as in every table of a DXF file.
class DxfNames {
 public:
  /// Adds a name; one that was added before changes nothing. All names must be added before the
  /// first is asked for.
  void Add(const std::string& name);

  /// The form of a name that was added. The result does not depend on how often names were added,
  /// only on the order in which they came first.
  const std::string& Written(const std::string& name);

  /// The forms of all names in the order in which they came first, without those that differ from
  /// an earlier one by nothing but case.
  std::vector<std::string> Table();

 private:
  void Settle();
  std::string Unused(const std::string& form) const;

  std::vector<std::string> order_;
  std::map<std::string, std::string> written_;  // Of every name added; empty until settled.
  std::set<std::string> taken_;                 // Forms in upper case.
  std::size_t settled_ = 0;
};

}  // namespace drawing
