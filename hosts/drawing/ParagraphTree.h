// A tree of paragraphs in memory, for the library to write into and read from, and for the host to
// walk over: what the library calls storage. XmlParagraph and ParagraphJson are its forms as text.
#pragma once

#include <KTRCL_DataTypes/GXParagraph.h>

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace drawing {

/// The levels that a tree may have. Everything that walks over it may thus call itself.
inline constexpr int kDeepestParagraph = 256;

/// One node. Names, keys and texts may be any bytes, also none at all; they are kept as they are.
///
/// Values and children stand in one order, that of adding. Those of one name are kept apart, and
/// neither hides the other. A number is kept as its text, so that GetString reads it too, and
/// GetDouble a text that is a number; with decimals below 0 the text is the shortest that reads
/// back to the very same number, also for infinities, minus zero and numbers that are no number.
/// Nothing depends on the locale.
///
/// Cost: adding and looking up by key take log n in the number of entries, all else is linear.
/// Several threads may read one tree.
class TreeParagraph : public GXParagraph {
 public:
  /// What a value was stored as.
  enum class Kind { kText, kInt, kDouble };

  /// A named value.
  struct Value {
    std::string key;
    std::string text;
    Kind kind = Kind::kText;
  };

  /// A value or a child.
  struct Entry {
    Value value;                               ///< Unused where `paragraph` is set.
    std::unique_ptr<TreeParagraph> paragraph;  ///< Null for values.
  };

  /// A paragraph without a parent.
  explicit TreeParagraph(std::string name);
  TreeParagraph(const TreeParagraph&) = delete;
  TreeParagraph& operator=(const TreeParagraph&) = delete;
  ~TreeParagraph() override;

  /// @name What the library asks for

  GXString GetName() const override;

  /// A second attribute of the same key replaces the first.
  void SetAttribute(const GXString& key, const GXString& value) override;
  void SetAttribute(const GXString& key, const int& value) override;

  void AddString(const GXString& key, const GXString& value) override;
  void AddInt(const GXString& key, const int& value) override;
  void AddDouble(const GXString& key, const double& value, const int& decimals) override;

  /// The first value of that key. Attributes are no values.
  GXString GetString(const GXString& key, const GXString& defaultValue, bool flag) const override;

  /// The first value of that key. Degenerate: `defaultValue` also where its text is no number, or
  /// one that no double holds (1e999).
  double GetDouble(const GXString& key, const double& defaultValue) const override;

  /// Throws std::length_error for a child below the level kDeepestParagraph.
  GXParagraph* AddParagraph(const GXString& key) override;

  GXParagraph* FindParagraph(const GXString& key) const override;
  void GetParagraphs(GXParagraphList& paragraphs) const override;

  /// @name What the host asks for beside it

  const std::string& Name() const;

  /// 1 for a paragraph without a parent, and one more for each step down.
  int Level() const;

  /// In the order in which they were first set.
  const std::vector<Value>& Attributes() const;

  /// The text of an attribute, or null.
  const std::string* FindAttribute(const std::string& key) const;

  /// Values and children in stored order.
  const std::vector<Entry>& Entries() const;

  /// The first child of that name, or null.
  TreeParagraph* FindChild(const std::string& name) const;

  /// Sorts the children by `before`, equal ones staying in order. Each takes the place of a child:
  /// values stay where they are.
  void SortParagraphs(
      const std::function<bool(const TreeParagraph&, const TreeParagraph&)>& before);

 private:
  // The first place of each key; made when a paragraph has more entries than are quickly searched.
  // Trees and not tables of hash values, which a file could be made to fill unevenly.
  struct Index {
    std::map<std::string, std::size_t> attributes;
    std::map<std::string, std::size_t> values;
    std::map<std::string, std::size_t> paragraphs;
  };

  void SetAttributeText(const std::string& key, std::string text, Kind kind);
  void AddValue(const std::string& key, std::string text, Kind kind);
  void MakeIndex();
  void NoteAttribute(std::size_t position);
  void NoteEntry(std::size_t position);
  std::size_t PlaceOfAttribute(const std::string& key) const;
  const Value* FindValue(const std::string& key) const;

  std::string name_;
  int level_ = 1;
  std::vector<Value> attributes_;
  std::vector<Entry> entries_;
  std::unique_ptr<Index> index_;
};

/// A number from the whole of a text, whatever the locale: "-1.5", "1e-320", "inf", "nan".
///
/// Returns: false, with `number` untouched, for any other text, an empty one, and a number that no
///   double holds.
bool NumberFromText(const std::string& text, double& number);

}  // namespace drawing
