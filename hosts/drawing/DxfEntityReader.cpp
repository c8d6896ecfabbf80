// An entity that is damaged, cut off or not understood is refused whole: nobody knows which of its
// values are right.
#include "drawing/DxfEntityReader.h"

#include "drawing/DxfPolyline.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace drawing {
namespace {

constexpr int kColourByLayer = 256;
constexpr std::size_t kQuoteLimit = 40;

constexpr int kColourByBlock = 0;

// The text that all inserts together may have to be read: no more than the largest file has.
constexpr double kMostInsertedBytes = 256.0 * 1024.0 * 1024.0;

// Heights over z = 0, in millimetres, that are rounding errors of the program that wrote the file.
constexpr double kFlatHeight = 1.0e-6;

std::string Plural(std::size_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

bool IsByBlock(std::string_view linetype) { return NameKey(linetype) == "byblock"; }

}  // namespace

DxfEntityReader::DxfEntityReader(Drawing& drawing, const DxfDefinitions& definitions,
                                 const ReadOptions& options)
    : drawing_(drawing),
      definitions_(definitions),
      allLayers_(options.allLayers),
      recordsLeft_(static_cast<double>(options.mostInserted)),
      bytesLeft_(kMostInsertedBytes) {}

DxfEntityReader::~DxfEntityReader() = default;

bool DxfEntityReader::SawEntity() const { return sawEntity_; }

void DxfEntityReader::Read(const DxfRecord& record) {
  record_ = &record;
  sawEntity_ = true;
  if (record.type == "VERTEX") {
    ReadVertex();
  } else if (record.type == "SEQEND") {
    ReadSequenceEnd();
  } else if (record.type == "ATTRIB" && attributesFollow_) {
    // An attribute belongs to the INSERT in front of it.
    TellPassedOver();
  } else {
    EndSequence();
    ReadOther();
  }
}

void DxfEntityReader::ReadOther() {
  DxfValues values(*record_);
  DrawnEntity entity = Describe();
  attributesFollow_ = entity.type == "INSERT" && Trim(values.Text(66)) == "1";
  const bool polyline = entity.type == "POLYLINE";
  if (placement_->block == nullptr && values.Integer(67, 0) == 1) {
    ++drawing_.paperSpaceByType[entity.type];
    tallies_.paperSpace.Add(entity.line);
    TellPassedOver();
    if (polyline) OpenSequence(values, std::move(entity), true);
    return;
  }
  Count(entity);
  if (!polyline && RefuseDamaged(entity)) return;
  const bool hidden = IsHidden(entity);
  if (hidden) LeaveOutHidden(entity);
  if (polyline) {
    OpenSequence(values, std::move(entity), hidden);
  } else if (!hidden) {
    ReadByType(values, std::move(entity));
  }
}

void DxfEntityReader::ReadByType(DxfValues& values, DrawnEntity entity) {
  if (entity.type == "INSERT") {
    ReadInsert(values, entity);
  } else if (IsSimpleCurve(entity.type)) {
    ReadSimpleCurve(values, std::move(entity));
  } else if (IsDxfCurve(entity.type)) {
    ReadCurve(values, std::move(entity));
  } else {
    ++drawing_.unusedByType[entity.type];
  }
}

DrawnEntity DxfEntityReader::Describe() {
  DrawnEntity entity;
  entity.type = record_->type;
  entity.line = record_->line;
  entity.layer = "0";
  entity.linetype = "BYLAYER";
  std::string_view colour;
  std::size_t colourLine = 0;
  for (const DxfGroup& group : record_->groups) {
    if (group.code == 5 && entity.handle.empty()) entity.handle = ReadableText(Trim(group.value));
    if (group.code == 6) entity.linetype = Decode(Trim(group.value));
    if (group.code == 8) entity.layer = Decode(group.value);
    if (group.code == 60 && Trim(group.value) != "0") tallies_.invisible.Add(record_->line);
    if (group.code == 62) {
      colour = group.value;
      colourLine = group.line;
    }
  }
  if (colourLine != 0 && !ParseInteger(colour, entity.colour)) {
    entity.colour = kColourByLayer;
    Say(Severity::kWarning, colourLine, entity,
        "its colour \"" + ReadableText(Trim(colour), kQuoteLimit) + "\" is no whole number",
        "taken as by layer");
  }
  if (placement_->block != nullptr) TakeFromInsert(entity);
  return entity;
}

void DxfEntityReader::TakeFromInsert(DrawnEntity& entity) const {
  entity.block = placement_->chain;
  entity.insertLine = placement_->insertLine;
  if (Trim(entity.layer) == "0") entity.layer = placement_->layer;
  if (entity.colour == kColourByBlock) entity.colour = placement_->colour;
  if (IsByBlock(entity.linetype)) entity.linetype = placement_->linetype;
}

std::string DxfEntityReader::Decode(std::string_view bytes) {
  DecodedText decoded = definitions_.texts.Decode(bytes);
  if (decoded.guessed) tallies_.guessedText.Add(record_->line);
  if (decoded.lost) tallies_.lostText.Add(record_->line);
  return std::move(decoded.text);
}

bool DxfEntityReader::IsHidden(const DrawnEntity& entity) const {
  if (allLayers_) return false;
  const LayerState state = definitions_.layers.StateOf(entity.layer);
  // A layer that is off hides of a block only what takes over this layer.
  if (state == LayerState::kOff) return entity.type != "INSERT";
  return state == LayerState::kFrozen;
}

void DxfEntityReader::LeaveOutHidden(const DrawnEntity& entity) {
  ++drawing_.hiddenByLayer[entity.layer];
  tallies_.hidden.Add(entity.line);
}

void DxfEntityReader::Say(Severity severity, std::size_t line, const DrawnEntity& entity,
                          std::string what, std::string done) {
  if (placement_->block != nullptr) {
    if (!toldInBlocks_.emplace(line, what).second) return;
    what += " (in block \"" + placement_->chain + "\")";
  }
  Complain(drawing_, severity, line, &entity, std::move(what), std::move(done));
}

void DxfEntityReader::Count(const DrawnEntity& entity) {
  const bool inBlock = placement_->block != nullptr;
  ++(inBlock ? drawing_.blockEntitiesByType : drawing_.entitiesByType)[entity.type];
  ++drawing_.entitiesByLayer[entity.layer];
}

void DxfEntityReader::Refuse(const DrawnEntity& entity, std::size_t line, std::string what) {
  ++drawing_.refusedByType[entity.type];
  Say(Severity::kError, line, entity, std::move(what), "not used");
}

// What is left of the entity in the builder is where it would have been.
void DxfEntityReader::RefuseZeroLength(const DrawnEntity& entity) {
  ++drawing_.refusedByType[entity.type];
  Say(Severity::kWarning, entity.line, entity,
      builder_.rises ? "seen along z its length is zero" : "its length is zero", "not used");
}

bool DxfEntityReader::RefuseDamaged(const DrawnEntity& entity) {
  if (!record_->damage.empty()) {
    Refuse(entity, record_->damageLine, record_->damage);
    return true;
  }
  if (record_->complete) return false;
  Refuse(entity, record_->line, "the file ends within it");
  return true;
}

void DxfEntityReader::TellPassedOver() {
  // In a block it was told where the block is defined.
  if (record_->damage.empty() || placement_->block != nullptr) return;
  Complain(drawing_, Severity::kWarning, record_->damageLine, nullptr, record_->damage,
           "passed over up to the next record");
}

void DxfEntityReader::TellDecimalComma(const DxfValues& values, const DrawnEntity& entity) {
  if (values.DecimalComma().empty()) return;
  Say(Severity::kWarning, values.DecimalCommaLine(), entity,
      values.DecimalComma() + " has a decimal comma", "read as a decimal point");
}

void DxfEntityReader::ReadSimpleCurve(DxfValues& values, DrawnEntity entity) {
  // The ends of a LINE are given in the coordinates of the drawing, whatever its extrusion.
  Extrusion extrusion = Extrusion::kUp;
  if (entity.type != "LINE") extrusion = ReadExtrusion(values);
  if (extrusion == Extrusion::kTilted) values.Fail("its extrusion is not along z", entity.line);
  const PlaneMap& map = placement_->map;
  builder_.Begin(drawing_.unit.millimetresPerUnit,
                 extrusion == Extrusion::kDown ? Composed(map, SeenFromBelow()) : map);
  BuildSimpleCurve(values, builder_);
  if (extrusion == Extrusion::kDown) builder_.heights.SeeFromBelow();
  if (!values.Failure().empty()) {
    Refuse(entity, values.FailureLine(), values.Failure());
    return;
  }
  TellDecimalComma(values, entity);
  UseBuilt(std::move(entity));
}

// Takes over what the builder has made.
void DxfEntityReader::UseBuilt(DrawnEntity entity) {
  std::vector<CurveTrace> traces;
  if (builder_.failure.empty()) builder_.Fail(TraceBuilt(traces));
  if (!builder_.failure.empty()) {
    Refuse(entity, entity.line, builder_.failure);
    return;
  }
  for (const GX2DPoint& place : builder_.zeroLength) drawing_.zeroLength.push_back({entity, place});
  if (builder_.elements.empty() && traces.empty()) {
    RefuseZeroLength(entity);
    return;
  }
  TellOddities(entity);
  const std::size_t index = drawing_.entities.size();
  drawing_.entities.push_back(std::move(entity));
  for (std::unique_ptr<GX2DElement>& element : builder_.elements) {
    drawing_.elements.push_back({std::move(element), index});
  }
  for (CurveTrace& trace : traces) curves_.push_back({std::move(trace), index});
}

void DxfEntityReader::TellOddities(const DrawnEntity& entity) {
  if (!builder_.zeroLength.empty()) {
    Say(Severity::kNote, entity.line, entity,
        Plural(builder_.zeroLength.size(), "side has", "sides have") + " length zero", "dropped");
  }
  if (builder_.equalAngles) {
    Say(Severity::kWarning, entity.line, entity, "its angles are equal", "taken as a full circle");
  }
  if (!builder_.remark.empty()) {
    Say(Severity::kWarning, entity.line, entity, builder_.remark, "those that it has are used");
  }
  if (IsHigh(builder_.heights)) tallies_.heights.Add(entity.line);
  if (builder_.hasWidth) tallies_.widths.Add(entity.line);
  if (builder_.flatSides > 0) tallies_.flatSides.Add(entity.line);
  if (builder_.shortArcs > 0) tallies_.shortArcs.Add(entity.line);
  if (builder_.nearCircles > 0) tallies_.nearCircles.Add(entity.line);
}

bool DxfEntityReader::IsHigh(const HeightRange& heights) const {
  const auto height = [&](double z) {
    return std::fabs(placement_->heights.scale * z + placement_->heights.shift);
  };
  return std::max(height(heights.low), height(heights.high)) * drawing_.unit.millimetresPerUnit >
         kFlatHeight;
}

void DxfEntityReader::TellTallies() { tallies_.Tell(drawing_); }

}  // namespace drawing
