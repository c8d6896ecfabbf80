// An entity that is damaged, cut off or not understood is refused whole: nobody knows which of its
// values are right.
#include "drawing/DxfEntityReader.h"

#include "drawing/Utf8Text.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace drawing {
namespace {

// Group 70 of a POLYLINE and of a VERTEX.
constexpr int kClosedFlag = 1;
constexpr int k3DPolylineFlag = 8;
constexpr int kMeshFlags = 16 | 64;
constexpr int kFrameVertexFlag = 16;

constexpr int kColourByLayer = 256;
constexpr std::size_t kQuoteLimit = 40;

// The trace of a curve is finer than the tolerance by this factor.
constexpr double kTraceShare = 0.04;

// Samples that the trace of one curve may take, with those for each of its pieces, and all
// together. Only curves far larger than parts reach them.
constexpr std::size_t kMostSamples = 20000;
constexpr std::size_t kMostSamplesOfPiece = 64;
constexpr std::size_t kMostSamplesOfDrawing = 2000000;
// A refused curve has no samples, but looking for them took its time.
constexpr std::size_t kSamplesOfRefused = 2000;

// Heights over z = 0, in millimetres, that are rounding errors of the program that wrote the file.
constexpr double kFlatHeight = 1.0e-6;

std::string Plural(std::size_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

bool IsInPaperSpace(DxfValues& values) { return values.Integer(67, 0) == 1; }

}  // namespace

// The POLYLINE that is waiting for its vertices.
struct DxfEntityReader::OpenPolyline {
  DrawnEntity entity;
  std::vector<PolylineVertex> vertices;
  std::string failure;  // The first thing that is wrong with the head or a vertex.
  std::size_t failureLine = 0;
  int flags = 0;
  bool mirrored = false;
  bool paperSpace = false;
  bool hasWidth = false;
  double elevation = 0.0;

  bool IsMesh() const { return (flags & kMeshFlags) != 0; }
  bool Is3D() const { return (flags & k3DPolylineFlag) != 0; }
  void Fail(std::string what, std::size_t line) {
    if (!failure.empty() || what.empty()) return;
    failure = std::move(what);
    failureLine = line;
  }
};

DxfEntityReader::DxfEntityReader(Drawing& drawing) : drawing_(drawing) {}
DxfEntityReader::~DxfEntityReader() = default;

void DxfEntityReader::Tally::Add(std::size_t line) {
  if (count == 0) firstLine = line;
  ++count;
}

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
  if (IsInPaperSpace(values)) {
    ++drawing_.paperSpaceByType[entity.type];
    TellPassedOver();
    if (entity.type == "POLYLINE") OpenSequence(values, std::move(entity), true);
    return;
  }
  Count(entity);
  if (entity.type == "POLYLINE") {
    OpenSequence(values, std::move(entity), false);
    return;
  }
  if (RefuseDamaged(entity)) return;
  attributesFollow_ = entity.type == "INSERT" && Trim(values.Text(66)) == "1";
  if (IsSimpleCurve(entity.type)) {
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
    if (group.code == 6) entity.linetype = ReadableText(Trim(group.value));
    if (group.code == 8) entity.layer = ReadableText(group.value);
    if (group.code == 8 && !IsUtf8(group.value)) foreignText_.Add(record_->line);
    if (group.code == 60 && Trim(group.value) != "0") invisible_.Add(record_->line);
    if (group.code == 62) {
      colour = group.value;
      colourLine = group.line;
    }
  }
  if (colourLine != 0 && !ParseInteger(colour, entity.colour)) {
    entity.colour = kColourByLayer;
    Complain(drawing_, Severity::kWarning, colourLine, &entity,
             "its colour \"" + ReadableText(Trim(colour), kQuoteLimit) + "\" is no whole number",
             "taken as by layer");
  }
  return entity;
}

void DxfEntityReader::Count(const DrawnEntity& entity) {
  ++drawing_.entitiesByType[entity.type];
  ++drawing_.entitiesByLayer[entity.layer];
}

void DxfEntityReader::Refuse(const DrawnEntity& entity, std::size_t line, std::string what) {
  ++drawing_.refusedByType[entity.type];
  Complain(drawing_, Severity::kError, line, &entity, std::move(what), "not used");
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
  if (record_->damage.empty()) return;
  Complain(drawing_, Severity::kWarning, record_->damageLine, nullptr, record_->damage,
           "passed over up to the next record");
}

void DxfEntityReader::TellDecimalComma(const DxfValues& values, const DrawnEntity& entity) {
  if (values.DecimalComma().empty()) return;
  Complain(drawing_, Severity::kWarning, values.DecimalCommaLine(), &entity,
           values.DecimalComma() + " has a decimal comma", "read as a decimal point");
}

void DxfEntityReader::ReadSimpleCurve(DxfValues& values, DrawnEntity entity) {
  // The ends of a LINE are given in the coordinates of the drawing, whatever its extrusion.
  Extrusion extrusion = Extrusion::kUp;
  if (entity.type != "LINE") extrusion = ReadExtrusion(values);
  if (extrusion == Extrusion::kTilted) values.Fail("its extrusion is not along z", entity.line);
  builder_.Begin(drawing_.unit.millimetresPerUnit, extrusion == Extrusion::kDown);
  BuildSimpleCurve(values, builder_);
  if (!values.Failure().empty()) {
    Refuse(entity, values.FailureLine(), values.Failure());
    return;
  }
  TellDecimalComma(values, entity);
  UseBuilt(std::move(entity));
}

void DxfEntityReader::ReadCurve(DxfValues& values, DrawnEntity entity) {
  const DxfCurve curve = ReadDxfCurve(values, drawing_.unit.millimetresPerUnit);
  if (!values.Failure().empty()) {
    Refuse(entity, values.FailureLine(), values.Failure());
    return;
  }
  CurveTrace trace;
  const std::size_t most = kMostSamples + kMostSamplesOfPiece * curve.curve->Breaks().size();
  const std::size_t left = kMostSamplesOfDrawing - curveSamples_;
  std::string failure = TraceCurve(*curve.curve, kTraceShare * drawing_.curves.tolerance,
                                   std::min(most, left), trace);
  if (!failure.empty()) {
    curveSamples_ += std::min(left, kSamplesOfRefused);
    if (left < most) {
      failure = "the curves of a drawing may take " + std::to_string(kMostSamplesOfDrawing) +
                " points together, and few are left: " + failure;
    }
    Refuse(entity, entity.line, std::move(failure));
    return;
  }
  TellDecimalComma(values, entity);
  TellCurveOddities(curve, trace, entity);
  if (curve.vertices.empty()) {
    UseTrace(std::move(trace), curve.elevation, std::move(entity));
  } else {
    UseVertices(curve, std::move(entity));
  }
}

void DxfEntityReader::TellCurveOddities(const DxfCurve& curve, const CurveTrace& trace,
                                        const DrawnEntity& entity) {
  if (curve.equalParameters) {
    Complain(drawing_, Severity::kWarning, entity.line, &entity, "its parameters are equal",
             "taken as a whole ellipse");
  }
  if (curve.markedClosed && trace.Samples().size() > 1 && !trace.IsClosed()) {
    Complain(drawing_, Severity::kWarning, entity.line, &entity,
             "it is marked as closed, and its ends do not meet", "taken as drawn");
  }
}

// A spline of degree 1 is the row of its control points, exactly.
void DxfEntityReader::UseVertices(const DxfCurve& curve, DrawnEntity entity) {
  builder_.Begin(1.0, false);
  builder_.elevation = curve.elevation;
  for (std::size_t i = 0; i + 1 < curve.vertices.size(); ++i) {
    const PlaneVector& p = curve.vertices[i];
    const PlaneVector& q = curve.vertices[i + 1];
    builder_.AddLine({p.x, p.y}, {q.x, q.y});
  }
  if (builder_.failure.empty() && !builder_.elements.empty()) {
    ++drawing_.curves.curves;
    drawing_.curves.lines += builder_.elements.size();
  }
  UseBuilt(std::move(entity));
}

void DxfEntityReader::UseTrace(CurveTrace trace, double elevation, DrawnEntity entity) {
  if (trace.Samples().size() < 2) {
    ++drawing_.refusedByType[entity.type];
    Complain(drawing_, Severity::kWarning, entity.line, &entity, "its length is zero", "not used");
    return;
  }
  if (IsHigh(elevation)) heights_.Add(entity.line);
  curveSamples_ += trace.Samples().size();
  curves_.push_back({std::move(trace), drawing_.entities.size()});
  drawing_.entities.push_back(std::move(entity));
}

void DxfEntityReader::UseWaitingCurves() {
  UseCurves(std::move(curves_), drawing_.curves.tolerance, drawing_);
  curves_.clear();
  curveSamples_ = 0;
}

// Takes over what the builder has made.
void DxfEntityReader::UseBuilt(DrawnEntity entity) {
  if (!builder_.failure.empty()) {
    Refuse(entity, entity.line, builder_.failure);
    return;
  }
  if (builder_.elements.empty()) {
    ++drawing_.refusedByType[entity.type];
    Complain(drawing_, Severity::kWarning, entity.line, &entity,
             builder_.rises ? "seen along z its length is zero" : "its length is zero", "not used");
    return;
  }
  TellOddities(entity);
  const std::size_t index = drawing_.entities.size();
  drawing_.entities.push_back(std::move(entity));
  for (std::unique_ptr<GX2DElement>& element : builder_.elements) {
    drawing_.elements.push_back({std::move(element), index});
  }
}

void DxfEntityReader::TellOddities(const DrawnEntity& entity) {
  if (builder_.zeroLength > 0) {
    Complain(drawing_, Severity::kNote, entity.line, &entity,
             Plural(builder_.zeroLength, "side has", "sides have") + " length zero", "dropped");
  }
  if (builder_.equalAngles) {
    Complain(drawing_, Severity::kWarning, entity.line, &entity, "its angles are equal",
             "taken as a full circle");
  }
  if (!builder_.remark.empty()) {
    Complain(drawing_, Severity::kWarning, entity.line, &entity, builder_.remark,
             "those that it has are used");
  }
  if (IsHigh(builder_.elevation)) heights_.Add(entity.line);
  if (builder_.hasWidth) widths_.Add(entity.line);
  if (builder_.flatSides > 0) flatSides_.Add(entity.line);
  if (builder_.shortArcs > 0) shortArcs_.Add(entity.line);
  if (builder_.nearCircles > 0) nearCircles_.Add(entity.line);
}

bool DxfEntityReader::IsHigh(double elevation) const {
  return std::fabs(elevation) * drawing_.unit.millimetresPerUnit > kFlatHeight;
}

void DxfEntityReader::OpenSequence(DxfValues& values, DrawnEntity entity, bool paperSpace) {
  polyline_ = std::make_unique<OpenPolyline>();
  OpenPolyline& open = *polyline_;
  open.entity = std::move(entity);
  open.paperSpace = paperSpace;
  if (paperSpace) return;
  open.Fail(record_->damage, record_->damageLine);
  open.flags = values.Integer(70, 0);
  open.elevation = values.Optional(30, 0.0);
  open.hasWidth = values.Optional(40, 0.0) != 0.0 || values.Optional(41, 0.0) != 0.0;
  // The vertices of a 3D polyline are given in the coordinates of the drawing; a mesh has no side
  // from which it could be seen.
  if (!open.Is3D() && !open.IsMesh()) {
    const Extrusion extrusion = ReadExtrusion(values);
    if (extrusion == Extrusion::kTilted) values.Fail("its extrusion is not along z", record_->line);
    open.mirrored = extrusion == Extrusion::kDown;
  }
  TellDecimalComma(values, open.entity);
  open.Fail(values.Failure(), values.FailureLine());
}

void DxfEntityReader::ReadVertex() {
  if (!polyline_) {
    const DrawnEntity vertex = Describe();
    Count(vertex);
    Refuse(vertex, record_->line, "it stands outside a POLYLINE");
    return;
  }
  OpenPolyline& open = *polyline_;
  if (open.paperSpace) {
    TellPassedOver();
    return;
  }
  if (!record_->damage.empty()) open.Fail("a VERTEX: " + record_->damage, record_->damageLine);
  if (open.IsMesh()) return;
  DxfValues values(*record_);
  const int flags = values.Integer(70, 0);
  // The frame that steered a spline is no part of the curve.
  if ((flags & kFrameVertexFlag) != 0 && values.Failure().empty()) return;
  PolylineVertex vertex{{values.Required(10), values.Required(20)}, 0.0};
  const double z = values.Optional(30, 0.0);
  if (!open.Is3D()) vertex.bulge = values.Optional(42, 0.0);
  if (values.Optional(40, 0.0) != 0.0 || values.Optional(41, 0.0) != 0.0) open.hasWidth = true;
  if (std::fabs(z) > std::fabs(open.elevation)) open.elevation = z;
  TellDecimalComma(values, open.entity);
  if (!values.Failure().empty()) open.Fail("a VERTEX: " + values.Failure(), values.FailureLine());
  open.vertices.push_back(vertex);
}

void DxfEntityReader::ReadSequenceEnd() {
  if (polyline_) {
    CloseSequence(true);
  } else if (!attributesFollow_) {
    const DrawnEntity end = Describe();
    Complain(drawing_, Severity::kWarning, record_->line, &end, "it ends nothing", "passed over");
  }
  attributesFollow_ = false;
  TellPassedOver();
}

void DxfEntityReader::EndSequence() {
  if (polyline_) CloseSequence(false);
  attributesFollow_ = false;
}

void DxfEntityReader::EndCutOff() {
  const std::unique_ptr<OpenPolyline> open = std::move(polyline_);
  if (!open || open->paperSpace) return;
  Refuse(open->entity, open->entity.line, "the file ends within it");
}

void DxfEntityReader::CloseSequence(bool ended) {
  const std::unique_ptr<OpenPolyline> open = std::move(polyline_);
  if (open->paperSpace) return;
  if (!open->failure.empty()) {
    Refuse(open->entity, open->failureLine, open->failure);
    return;
  }
  if (!ended) {
    Complain(drawing_, Severity::kWarning, open->entity.line, &open->entity,
             "it is not ended by SEQEND", "the vertices up to the next entity belong to it");
  }
  if (open->IsMesh()) {
    ++drawing_.unusedByType["POLYLINE (mesh)"];
    return;
  }
  builder_.Begin(drawing_.unit.millimetresPerUnit, open->mirrored);
  builder_.elevation = open->elevation;
  builder_.hasWidth = open->hasWidth;
  BuildPolyline(open->vertices, (open->flags & kClosedFlag) != 0, builder_);
  UseBuilt(std::move(open->entity));
}

void DxfEntityReader::Tell(const Tally& tally, Severity severity, const char* one, const char* many,
                           const char* done) {
  if (tally.count == 0) return;
  const std::string what = Plural(static_cast<std::size_t>(tally.count), one, many);
  Complain(drawing_, severity, tally.firstLine, nullptr, what, done);
}

void DxfEntityReader::TellTallies() {
  Tell(heights_, Severity::kWarning, "entity has a height other than z = 0, here",
       "entities have heights other than z = 0, the first one here", "projected along z");
  Tell(widths_, Severity::kNote, "polyline has a width, here",
       "polylines have a width, the first one here", "the centre line is used");
  Tell(flatSides_, Severity::kNote, "polyline has a bulge too flat for an arc, here",
       "polylines have bulges too flat for an arc, the first one here",
       "such sides are straight lines");
  Tell(shortArcs_, Severity::kNote, "entity has an arc too short to be told from a circle, here",
       "entities have arcs too short to be told from circles, the first one here",
       "such arcs are straight lines");
  Tell(nearCircles_, Severity::kNote, "entity has an arc whose ends are within 0.0001 mm, here",
       "entities have arcs whose ends are within 0.0001 mm, the first one here",
       "such arcs count as circles");
  Tell(foreignText_, Severity::kNote, "entity has a layer name that is not UTF-8, here",
       "entities have layer names that are not UTF-8, the first one here", "taken as Latin-1");
  Tell(invisible_, Severity::kNote, "entity is marked as invisible, here",
       "entities are marked as invisible, the first one here", "used all the same");
}

}  // namespace drawing
