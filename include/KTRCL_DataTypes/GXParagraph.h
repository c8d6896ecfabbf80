#pragma once

// The storage that hosts hand in for persistence: a tree of named paragraphs. The library writes
// and reads it through the virtual operations alone; the format behind them is the host's.

#include <KTRCL_DataTypes/Export.h>
#include <KTRCL_DataTypes/GXString.h>

#include <list>

class GXParagraph;

/// A list of paragraphs in stored order. Borrows them: it destroys none.
class KTRCL_DATATYPES_EXPORT GXParagraphList : public std::list<GXParagraph*> {
 public:
  GXParagraphList();
  GXParagraphList(const GXParagraphList& other) = default;
  GXParagraphList(GXParagraphList&& other) = default;
  GXParagraphList& operator=(const GXParagraphList& other) = default;
  GXParagraphList& operator=(GXParagraphList&& other) = default;
  virtual ~GXParagraphList();
};

/// A node of the tree: named values and named child paragraphs. Abstract; hosts derive from it.
///
/// A parent owns its children, so a pointer that AddParagraph or FindParagraph gives is valid as
/// long as the tree stands. Several children may bear one name. A number stored by AddDouble must
/// come back from GetDouble as the very same number; GXString(value, -1) is a text that does.
class KTRCL_DATATYPES_EXPORT GXParagraph {
 public:
  // The order of the virtual operations is part of the binary interface. New ones go to the end.

  /// The name under which this paragraph hangs in its parent.
  virtual GXString GetName() const = 0;

  /// Sets a text attribute on this paragraph.
  virtual void SetAttribute(const GXString& key, const GXString& value) = 0;

  /// Sets an integer attribute on this paragraph.
  virtual void SetAttribute(const GXString& key, const int& value) = 0;

  /// Stores a named text in this paragraph.
  virtual void AddString(const GXString& key, const GXString& value) = 0;

  /// Stores a named integer in this paragraph.
  virtual void AddInt(const GXString& key, const int& value) = 0;

  /// Stores a named number in this paragraph, with `decimals` digits behind the point; below 0 so
  /// that it reads back as the same number.
  virtual void AddDouble(const GXString& key, const double& value, const int& decimals) = 0;

  /// The stored text, or `defaultValue` when the key is absent. The flag is for the host's own use;
  /// this library always passes false.
  virtual GXString GetString(const GXString& key, const GXString& defaultValue,
                             bool flag) const = 0;

  /// The stored number, or `defaultValue` when the key is absent.
  virtual double GetDouble(const GXString& key, const double& defaultValue) const = 0;

  /// Appends a new child paragraph of that name and returns it, never null. The parent owns it.
  virtual GXParagraph* AddParagraph(const GXString& key) = 0;

  /// The first child of that name, or null. The parent owns it.
  virtual GXParagraph* FindParagraph(const GXString& key) const = 0;

  /// Fills `paragraphs` with all children in stored order, several of one name kept apart. What the
  /// list held before is dropped.
  virtual void GetParagraphs(GXParagraphList& paragraphs) const = 0;

  // Behind all others, so that the operations above keep their places.
  virtual ~GXParagraph();

 protected:
  GXParagraph();
  GXParagraph(const GXParagraph& other) = default;
  GXParagraph& operator=(const GXParagraph& other) = default;
};
