// POLYLINE, VERTEX and SEQEND.
#include "drawing/DxfEntityReader.h"

#include "drawing/DxfPolyline.h"

#include <utility>

namespace drawing {
namespace {

// Of group 70 of a VERTEX.
constexpr int kFrameVertexFlag = 16;

}  // namespace

void DxfEntityReader::OpenSequence(DxfValues& values, DrawnEntity entity, bool leftOut) {
  polyline_ = std::make_unique<DxfPolyline>();
  DxfPolyline& open = *polyline_;
  open.entity = std::move(entity);
  open.leftOut = leftOut;
  if (leftOut) return;
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
  DxfPolyline& open = *polyline_;
  if (open.leftOut) {
    TellPassedOver();
    return;
  }
  if (!record_->damage.empty()) open.Fail("a VERTEX: " + record_->damage, record_->damageLine);
  if (!record_->complete) open.Fail("the file ends within it", open.entity.line);
  if (open.IsMesh()) return;
  DxfValues values(*record_);
  const int flags = values.Integer(70, 0);
  // The frame that steered a spline is no part of the curve.
  if ((flags & kFrameVertexFlag) != 0 && values.Failure().empty()) return;
  PolylineVertex vertex{{values.Required(10), values.Required(20)}, 0.0};
  const double z = values.Optional(30, 0.0);
  if (!open.Is3D()) vertex.bulge = values.Optional(42, 0.0);
  if (values.Optional(40, 0.0) != 0.0 || values.Optional(41, 0.0) != 0.0) open.hasWidth = true;
  open.heights.Add(z);
  TellDecimalComma(values, open.entity);
  if (!values.Failure().empty()) open.Fail("a VERTEX: " + values.Failure(), values.FailureLine());
  open.vertices.push_back(vertex);
}

void DxfEntityReader::ReadSequenceEnd() {
  if (polyline_) {
    CloseSequence(true);
  } else if (!attributesFollow_) {
    const DrawnEntity end = Describe();
    Say(Severity::kWarning, record_->line, end, "it ends nothing", "passed over");
  }
  attributesFollow_ = false;
  TellPassedOver();
}

void DxfEntityReader::EndSequence() {
  if (polyline_) CloseSequence(false);
  attributesFollow_ = false;
}

void DxfEntityReader::EndCutOff() {
  const std::unique_ptr<DxfPolyline> open = std::move(polyline_);
  if (!open || open->leftOut) return;
  Refuse(open->entity, open->entity.line, "the file ends within it");
}

void DxfEntityReader::CloseSequence(bool ended) {
  const std::unique_ptr<DxfPolyline> open = std::move(polyline_);
  if (open->leftOut) return;
  if (!open->failure.empty()) {
    Refuse(open->entity, open->failureLine, open->failure);
    return;
  }
  if (!ended) {
    Say(Severity::kWarning, open->entity.line, open->entity, "it is not ended by SEQEND",
        "the vertices up to the next entity belong to it");
  }
  if (open->IsMesh()) {
    ++drawing_.unusedByType["POLYLINE (mesh)"];
    return;
  }
  const PlaneMap& map = placement_->map;
  builder_.Begin(drawing_.unit.millimetresPerUnit,
                 open->mirrored ? Composed(map, SeenFromBelow()) : map);
  builder_.heights = open->Heights();
  if (open->mirrored) builder_.heights.SeeFromBelow();
  builder_.hasWidth = open->hasWidth;
  BuildPolyline(open->vertices, open->IsClosed(), builder_);
  UseBuilt(std::move(open->entity));
}

}  // namespace drawing
