// INSERT: the contents of blocks, read anew for every copy.
#include "drawing/DxfEntityReader.h"

#include "drawing/DxfPolyline.h"

#include <utility>

namespace drawing {

void DxfEntityReader::ReadInsert(DxfValues& values, const DrawnEntity& entity) {
  const DxfInsert insert = ReadDxfInsert(values);
  if (!values.Failure().empty()) {
    Refuse(entity, values.FailureLine(), values.Failure());
    return;
  }
  const std::string name = Decode(Trim(insert.name));
  const DxfBlock* block = definitions_.blocks.Find(name);
  if (block == nullptr) {
    Refuse(entity, entity.line, "its block \"" + name + "\" is not defined");
    return;
  }
  std::string obstacle = ObstacleTo(*block, entity);
  if (obstacle.empty() && !Spend(*block, insert)) {
    obstacle = "its block \"" + name + "\" comes to more than is left of what the inserts of a " +
               "drawing may come to";
  }
  if (!obstacle.empty()) {
    Refuse(entity, entity.line, std::move(obstacle));
    return;
  }
  TellDecimalComma(values, entity);
  ++drawing_.expandedInserts;
  if (block->records == 0) {
    Say(Severity::kNote, entity.line, entity, "its block \"" + name + "\" is empty", "");
    return;
  }
  ReadCopies(*block, insert, entity);
}

std::string DxfEntityReader::ObstacleTo(const DxfBlock& block, const DrawnEntity& entity) const {
  if (!block.failure.empty()) return "its block \"" + block.name + "\" " + block.failure;
  if (placement_->block != nullptr) {
    const std::string cycle = definitions_.blocks.CycleClosedBy(*placement_->block, entity.line);
    if (!cycle.empty()) return "its block contains itself: " + cycle;
  }
  if (placement_->depth >= kDeepestNest) {
    return "blocks are nested deeper than " + std::to_string(kDeepestNest);
  }
  return {};
}

// What is nested in an INSERT is paid with it.
bool DxfEntityReader::Spend(const DxfBlock& block, const DxfInsert& insert) {
  if (placement_->block != nullptr) return true;
  const double records = insert.Copies() * block.cost.records;
  const double bytes = insert.Copies() * block.cost.bytes;
  if (!(records <= recordsLeft_) || !(bytes <= bytesLeft_)) return false;
  recordsLeft_ -= records;
  bytesLeft_ -= bytes;
  return true;
}

void DxfEntityReader::ReadCopies(const DxfBlock& block, const DxfInsert& insert,
                                 const DrawnEntity& entity) {
  const DxfPlacement& outer = *placement_;
  const HeightMap heights = insert.Heights(block.baseZ);
  DxfPlacement placement;
  placement.block = &block;
  placement.heights = {outer.heights.scale * heights.scale,
                       outer.heights.scale * heights.shift + outer.heights.shift};
  placement.depth = outer.depth + 1;
  placement.chain = ChainText(outer.chain, block.name);
  placement.insertLine = outer.block == nullptr ? entity.line : outer.insertLine;
  placement.layer = entity.layer;
  placement.colour = entity.colour;
  placement.linetype = entity.linetype;
  for (int row = 0; row < insert.rows; ++row) {
    for (int column = 0; column < insert.columns; ++column) {
      placement.map = Composed(outer.map, insert.Map(block.base, column, row));
      ReadContents(placement);
    }
  }
}

void DxfEntityReader::ReadContents(const DxfPlacement& placement) {
  const DxfPlacement* const outer = std::exchange(placement_, &placement);
  const DxfRecord* const outerRecord = record_;
  const bool outerAttributes = std::exchange(attributesFollow_, false);
  DxfRecordReader records(placement.block->text, placement.block->textLine);
  DxfRecord record;
  while (records.Next(record) && !DxfBlocks::EndsContents(record.type)) Read(record);
  EndSequence();
  placement_ = outer;
  record_ = outerRecord;
  attributesFollow_ = outerAttributes;
}

}  // namespace drawing
