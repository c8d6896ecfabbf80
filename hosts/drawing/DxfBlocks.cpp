#include "drawing/DxfBlocks.h"

#include "drawing/DxfInsert.h"

namespace drawing {
namespace {

// Group 70 of a BLOCK: its contents stand in another file.
constexpr int kExternalFlags = 4 | 8;

constexpr std::size_t kNone = static_cast<std::size_t>(-1);
constexpr std::size_t kLongestChain = 255;
// Of a long ring so many names are told from its beginning and its end.
constexpr std::size_t kNamesOfRing = 3;

std::string Quoted(const std::string& name) { return "\"" + name + "\""; }

}  // namespace

// Goes from block to block along their inserts, each block once, without recursion: a chain of
// blocks may be as long as the file.
class DxfBlocks::Walk {
 public:
  explicit Walk(DxfBlocks& blocks)
      : blocks_(blocks), places_(blocks.definitions_.size(), kUnseen) {}

  void From(std::size_t start) {
    if (places_[start] != kUnseen) return;
    Enter(start);
    while (!stack_.empty()) {
      Step& step = stack_.back();
      Definition& definition = blocks_.definitions_[step.definition];
      if (step.next == definition.inserts.size()) {
        Leave();
        continue;
      }
      const Reference& insert = definition.inserts[step.next++];
      if (insert.target == kNone) continue;
      const std::size_t place = places_[insert.target];
      if (place == kUnseen) {
        Enter(insert.target);
      } else if (place != kLeft) {
        blocks_.cycles_[{step.definition, insert.line}] = RingFrom(place);
      }
    }
  }

 private:
  struct Step {
    std::size_t definition;
    std::size_t next;  // Index of the insert to be followed next.
  };

  // Instead of a place on the stack.
  static constexpr std::size_t kUnseen = kNone;
  static constexpr std::size_t kLeft = kNone - 1;

  void Enter(std::size_t definition) {
    places_[definition] = stack_.size();
    stack_.push_back({definition, 0});
  }

  // All that is nested in the block is counted by now.
  void Leave() {
    const std::size_t index = stack_.back().definition;
    Definition& definition = blocks_.definitions_[index];
    BlockCost cost{static_cast<double>(definition.block.records),
                   static_cast<double>(definition.block.text.size())};
    for (const Reference& insert : definition.inserts) {
      if (insert.target == kNone || places_[insert.target] != kLeft) continue;
      const BlockCost& nested = blocks_.definitions_[insert.target].block.cost;
      cost.records += insert.copies * nested.records;
      cost.bytes += insert.copies * nested.bytes;
    }
    definition.block.cost = cost;
    places_[index] = kLeft;
    stack_.pop_back();
  }

  std::string RingFrom(std::size_t place) const {
    std::string ring;
    for (std::size_t i = place; i < stack_.size(); ++i) {
      const bool skipped = i >= place + kNamesOfRing && i + kNamesOfRing < stack_.size();
      if (!skipped) ring += blocks_.definitions_[stack_[i].definition].block.name + " / ";
      if (skipped && i == place + kNamesOfRing) ring += "... / ";
    }
    return ring + blocks_.definitions_[stack_[place].definition].block.name;
  }

  DxfBlocks& blocks_;
  std::vector<std::size_t> places_;  // On the stack, or kUnseen, or kLeft.
  std::vector<Step> stack_;
};

DxfBlocks::DxfBlocks(std::string_view text) : text_(text) {}

void DxfBlocks::Tell(Severity severity, std::size_t line, std::string what, std::string done) {
  complaints_.push_back({"", line, "BLOCK", "", std::move(what), std::move(done), severity});
}

bool DxfBlocks::EndsContents(std::string_view type) {
  return type == "ENDBLK" || type == "BLOCK" || type == "ENDSEC" || type == "SECTION" ||
         type == "EOF";
}

bool DxfBlocks::IsOpen() const { return open_; }
bool DxfBlocks::IsEmpty() const { return definitions_.empty(); }

void DxfBlocks::Begin(const DxfRecord& record) {
  if (open_) End(record);
  Definition definition;
  DxfBlock& block = definition.block;
  block.line = record.line;
  DxfValues values(record);
  block.inFile = values.Text(2);
  block.base = {values.Optional(10, 0.0), values.Optional(20, 0.0)};
  block.baseZ = values.Optional(30, 0.0);
  external_ = (values.Integer(70, 0) & kExternalFlags) != 0;
  if (!record.damage.empty()) values.Fail(record.damage, record.damageLine);
  if (!values.Failure().empty()) {
    block.failure =
        "is defined in line " + std::to_string(record.line) + " with a fault: " + values.Failure();
  }
  open_ = true;
  textBegin_ = nullptr;
  nameless_ = Trim(block.inFile).empty();
  if (nameless_) {
    Tell(Severity::kError, record.line, "it has no name", "what stands in it is not used");
  } else {
    definitions_.push_back(std::move(definition));
  }
}

void DxfBlocks::Add(const DxfRecord& record) {
  if (!open_ || nameless_) return;
  Definition& definition = definitions_.back();
  if (textBegin_ == nullptr) {
    textBegin_ = record.type.data();
    definition.block.textLine = record.line;
  }
  ++definition.block.records;
  if (record.type != "INSERT" || !record.damage.empty()) return;
  DxfValues values(record);
  const DxfInsert insert = ReadDxfInsert(values);
  if (!values.Failure().empty()) return;
  definition.inserts.push_back({insert.name, record.line, insert.Copies(), kNone});
}

void DxfBlocks::Close(std::string_view text) {
  open_ = false;
  if (nameless_) return;
  DxfBlock& block = definitions_.back().block;
  block.text = text;
  const bool elsewhere = external_ && block.records == 0;
  if (elsewhere && block.failure.empty()) block.failure = "stands in another file";
}

void DxfBlocks::End(const DxfRecord& record) {
  if (!open_) return;
  if (record.type != "ENDBLK") {
    Tell(Severity::kWarning, record.line, "the block before is not ended by ENDBLK",
         "it is taken as ended here");
  }
  if (textBegin_ == nullptr) return Close({});
  const char* end = record.type.data() + record.type.size();
  Close({textBegin_, static_cast<std::size_t>(end - textBegin_)});
}

void DxfBlocks::EndCutOff() {
  if (!open_) return;
  if (textBegin_ == nullptr) return Close({});
  const char* end = text_.data() + text_.size();
  Close({textBegin_, static_cast<std::size_t>(end - textBegin_)});
}

void DxfBlocks::Index(const TextDecoder& texts) {
  byName_.clear();
  cycles_.clear();
  doubles_.clear();
  for (std::size_t i = 0; i < definitions_.size(); ++i) {
    DxfBlock& block = definitions_[i].block;
    block.name = texts.Decode(Trim(block.inFile)).text;
    const auto [first, isFirst] = byName_.emplace(NameKey(block.name), i);
    if (isFirst) continue;
    doubles_.push_back({"", block.line, "BLOCK", "",
                        Quoted(block.name) + " is defined already in line " +
                            std::to_string(definitions_[first->second].block.line),
                        "the first definition counts", Severity::kWarning});
  }
  for (Definition& definition : definitions_) {
    for (Reference& insert : definition.inserts) {
      const auto found = byName_.find(NameKey(texts.Decode(Trim(insert.inFile)).text));
      insert.target = found == byName_.end() ? kNone : found->second;
    }
  }
  Walk walk(*this);
  for (std::size_t i = 0; i < definitions_.size(); ++i) walk.From(i);
}

const DxfBlock* DxfBlocks::Find(const std::string& name) const {
  const auto found = byName_.find(NameKey(name));
  return found == byName_.end() ? nullptr : &definitions_[found->second].block;
}

std::string DxfBlocks::CycleClosedBy(const DxfBlock& block, std::size_t line) const {
  if (cycles_.empty()) return {};
  const auto definition = byName_.find(NameKey(block.name));
  if (definition == byName_.end()) return {};
  const auto found = cycles_.find({definition->second, line});
  return found == cycles_.end() ? std::string() : found->second;
}

std::vector<Complaint> DxfBlocks::Complaints() const {
  std::vector<Complaint> all = complaints_;
  all.insert(all.end(), doubles_.begin(), doubles_.end());
  return all;
}

std::string ChainText(const std::string& outer, const std::string& name) {
  if (outer.empty()) return name;
  if (outer.size() + name.size() <= kLongestChain) return outer + " / " + name;
  return outer.substr(0, outer.find(" / ")) + " / ... / " + name;
}

}  // namespace drawing
