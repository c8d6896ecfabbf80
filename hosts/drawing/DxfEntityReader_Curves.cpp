// ELLIPSE, SPLINE, and what an uneven scale makes of arcs: traces that wait for their neighbours.
#include "drawing/DxfEntityReader.h"

#include <algorithm>
#include <utility>

namespace drawing {
namespace {

// The trace of a curve is finer than the tolerance by this factor.
constexpr double kTraceShare = 0.04;

// Samples that the trace of one curve may take, with those for each of its pieces, and all
// together. Only curves far larger than parts reach them.
constexpr std::size_t kMostSamples = 20000;
constexpr std::size_t kMostSamplesOfPiece = 64;
constexpr std::size_t kMostSamplesOfDrawing = 2000000;
// A refused curve has no samples, but looking for them took its time.
constexpr std::size_t kSamplesOfRefused = 2000;

}  // namespace

// Follows a curve. Returns why it cannot be followed, or nothing.
std::string DxfEntityReader::Trace(const Curve& curve, CurveTrace& trace) {
  const std::size_t most = kMostSamples + kMostSamplesOfPiece * curve.Breaks().size();
  const std::size_t left = kMostSamplesOfDrawing - curveSamples_;
  std::string failure =
      TraceCurve(curve, kTraceShare * drawing_.curves.tolerance, std::min(most, left), trace);
  if (failure.empty()) {
    curveSamples_ += std::min(left, trace.Samples().size());
    return failure;
  }
  curveSamples_ += std::min(left, kSamplesOfRefused);
  if (left >= most) return failure;
  return "the curves of a drawing may take " + std::to_string(kMostSamplesOfDrawing) +
         " points together, and few are left: " + failure;
}

// Follows the curves that the builder has made of arcs.
std::string DxfEntityReader::TraceBuilt(std::vector<CurveTrace>& traces) {
  for (const std::unique_ptr<Curve>& curve : builder_.curves) {
    CurveTrace trace;
    std::string failure = Trace(*curve, trace);
    if (!failure.empty()) return failure;
    if (trace.Samples().size() >= 2) {
      traces.push_back(std::move(trace));
    } else {
      const PlaneVector place = curve->At(0, curve->Breaks().front()).place;
      builder_.zeroLength.emplace_back(place.x, place.y);
    }
  }
  return {};
}

void DxfEntityReader::ReadCurve(DxfValues& values, DrawnEntity entity) {
  const DxfCurve curve = ReadDxfCurve(values, drawing_.unit.millimetresPerUnit, placement_->map);
  if (!values.Failure().empty()) {
    Refuse(entity, values.FailureLine(), values.Failure());
    return;
  }
  CurveTrace trace;
  std::string failure = Trace(*curve.curve, trace);
  if (!failure.empty()) {
    Refuse(entity, entity.line, std::move(failure));
    return;
  }
  TellDecimalComma(values, entity);
  TellCurveOddities(curve, trace, entity);
  if (!curve.vertices.empty()) {
    UseVertices(curve, std::move(entity));
  } else if (trace.Samples().size() < 2) {
    const PlaneVector place = curve.curve->At(0, curve.curve->Breaks().front()).place;
    drawing_.zeroLength.push_back({entity, GX2DPoint(place.x, place.y)});
    builder_.Begin(1.0, PlaneMap());
    RefuseZeroLength(entity);
  } else {
    UseTrace(std::move(trace), curve.heights, std::move(entity));
  }
}

void DxfEntityReader::TellCurveOddities(const DxfCurve& curve, const CurveTrace& trace,
                                        const DrawnEntity& entity) {
  if (curve.equalParameters) {
    Say(Severity::kWarning, entity.line, entity, "its parameters are equal",
        "taken as a whole ellipse");
  }
  if (curve.markedClosed && trace.Samples().size() > 1 && !trace.IsClosed()) {
    Say(Severity::kWarning, entity.line, entity, "it is marked as closed, and its ends do not meet",
        "taken as drawn");
  }
}

// A spline of degree 1 is the row of its control points, exactly.
void DxfEntityReader::UseVertices(const DxfCurve& curve, DrawnEntity entity) {
  builder_.Begin(1.0, PlaneMap());
  builder_.heights = curve.heights;
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

void DxfEntityReader::UseTrace(CurveTrace trace, const HeightRange& heights, DrawnEntity entity) {
  if (IsHigh(heights)) tallies_.heights.Add(entity.line);
  curves_.push_back({std::move(trace), drawing_.entities.size()});
  drawing_.entities.push_back(std::move(entity));
}

void DxfEntityReader::UseWaitingCurves() {
  UseCurves(std::move(curves_), drawing_.curves.tolerance, drawing_);
  curves_.clear();
  curveSamples_ = 0;
}

}  // namespace drawing
