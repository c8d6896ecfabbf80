// The blocks of a drawing: where their contents stand in the text, and what inserting them comes
// to.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/DxfEntities.h"
#include "drawing/DxfText.h"
#include "drawing/DxfTokens.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace drawing {

/// What inserting something comes to, all that is nested in it included. Counts beyond the range of
/// the type are infinite.
struct BlockCost {
  double records = 0.0;
  double bytes = 0.0;  ///< Of the text to be read.
};

/// A block as it is defined. Its contents stay in the text of the file.
struct DxfBlock {
  std::string name;         ///< Decoded by DxfBlocks::Index.
  std::string_view inFile;  ///< The name as it stands in the file.
  std::size_t line = 0;     ///< Of its record BLOCK.
  DrawnPoint base;
  double baseZ = 0.0;
  std::string failure;       ///< Why it cannot be inserted; empty for sound blocks.
  std::string_view text;     ///< From the type of its first record to that of the one behind it.
  std::size_t textLine = 0;  ///< Line at which `text` begins.
  std::size_t records = 0;
  BlockCost cost;  ///< Of one copy; known after DxfBlocks::Index.
};

/// Collects the definitions of blocks, record by record, and finds them by name.
///
/// Names are compared without regard to case; of two definitions the first counts. An INSERT within
/// a block that would lead back into this block closes a cycle: of every ring of blocks one INSERT
/// does, namely the one met last on the way from the block that is defined first.
class DxfBlocks {
 public:
  explicit DxfBlocks(std::string_view text);

  /// Begins a definition with its record BLOCK. One that is open is ended and complained about.
  void Begin(const DxfRecord& record);

  /// Takes over a record of the contents; nothing happens where no definition is open.
  void Add(const DxfRecord& record);

  /// Ends the open definition in front of `record`, which need not be ENDBLK.
  void End(const DxfRecord& record);

  /// Ends the open definition with the text.
  void EndCutOff();

  bool IsOpen() const;
  bool IsEmpty() const;  ///< Nothing was defined.

  /// Reads the names, finds cycles and counts what blocks come to. Called when all is added, again
  /// when there is more or other texts. Pointers to blocks become invalid.
  void Index(const TextDecoder& texts);

  /// Returns: null where there is none.
  const DxfBlock* Find(const std::string& name) const;

  /// The ring of names that an INSERT, at a line within a block, closes: "A / B / A"; empty where
  /// it closes none.
  std::string CycleClosedBy(const DxfBlock& block, std::size_t line) const;

  /// What was wrong with the definitions; `file` stays empty.
  std::vector<Complaint> Complaints() const;

  /// Whether what is read ends the contents of a block.
  static bool EndsContents(std::string_view type);

 private:
  // An INSERT within a block.
  struct Reference {
    std::string_view inFile;
    std::size_t line;
    double copies;
    std::size_t target;  // Index of the block.
  };
  struct Definition {
    DxfBlock block;
    std::vector<Reference> inserts;  // In the order of their lines.
  };
  class Walk;

  void Close(std::string_view text);
  void Tell(Severity severity, std::size_t line, std::string what, std::string done);

  std::string_view text_;
  std::vector<Definition> definitions_;
  bool open_ = false;
  bool nameless_ = false;            // The open one, which is dropped.
  bool external_ = false;            // The open one says that its contents are elsewhere.
  const char* textBegin_ = nullptr;  // Of the contents of the open one.
  std::unordered_map<std::string, std::size_t> byName_;
  std::map<std::pair<std::size_t, std::size_t>, std::string> cycles_;  // By definition and line.
  std::vector<Complaint> complaints_;
  std::vector<Complaint> doubles_;
};

/// The names of nested blocks, from the outermost in, as one text: "FRAME / BOLT". Of long ones the
/// middle is left out.
std::string ChainText(const std::string& outer, const std::string& name);

}  // namespace drawing
