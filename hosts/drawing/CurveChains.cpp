#include "drawing/CurveChains.h"

#include "drawing/CurveElements.h"
#include "drawing/Networks.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <memory>
#include <utility>

namespace drawing {
namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// Ends of curves are numbered 2 i (start) and 2 i + 1 (end of curve i).
std::size_t OtherEnd(std::size_t end) { return end ^ std::size_t{1}; }

GX2DPoint PointOf(const TraceSample& sample) { return {sample.place.x, sample.place.y}; }

// The node of every end of the curves, among all ends of the drawing. Closed curves have no ends.
std::vector<std::size_t> NodesOfCurves(const std::vector<DrawnCurve>& curves, Drawing& drawing,
                                       std::vector<std::size_t>& endsAtNode) {
  const std::size_t others = drawing.elements.size();
  for (const DrawnCurve& curve : curves) {
    DrawnElement chord;
    const std::vector<TraceSample>& samples = curve.trace.Samples();
    if (!curve.trace.IsClosed()) {
      chord.element = std::make_unique<GX2DLine>(PointOf(samples.front()), PointOf(samples.back()));
    }
    drawing.elements.push_back(std::move(chord));
  }
  std::vector<std::size_t> nodes = FindNodes(drawing, kCurveEndGap);
  drawing.elements.resize(others);
  endsAtNode.assign(nodes.size(), 0);
  for (const std::size_t node : nodes) {
    if (node != kNoNode) ++endsAtNode[node];
  }
  nodes.erase(nodes.begin(), nodes.begin() + static_cast<std::ptrdiff_t>(2 * others));
  return nodes;
}

// By end: the end of another curve that continues this one, kNone where there is none.
std::vector<std::size_t> FindPartners(const std::vector<DrawnCurve>& curves, Drawing& drawing) {
  std::vector<std::size_t> endsAtNode;
  const std::vector<std::size_t> nodes = NodesOfCurves(curves, drawing, endsAtNode);
  std::vector<std::size_t> partners(nodes.size(), kNone);
  std::vector<std::size_t> firstAtNode(endsAtNode.size(), kNone);
  for (std::size_t end = 0; end < nodes.size(); ++end) {
    if (nodes[end] == kNoNode || endsAtNode[nodes[end]] != 2) continue;
    std::size_t& first = firstAtNode[nodes[end]];
    if (first == kNone) {
      first = end;
      continue;
    }
    const std::string& layer = drawing.entities[curves[end / 2].entity].layer;
    if (first / 2 == end / 2 || drawing.entities[curves[first / 2].entity].layer != layer) continue;
    partners[first] = end;
    partners[end] = first;
  }
  return partners;
}

// Curves one behind the other, with the length at which each begins.
struct Chain {
  struct Part {
    double from;
    std::size_t entity;
  };

  CurveTrace trace;
  std::vector<Part> parts;

  std::size_t EntityAt(double length) const {
    const auto behind =
        std::upper_bound(parts.begin(), parts.end(), length,
                         [](double value, const Part& part) { return value < part.from; });
    return behind == parts.begin() ? parts.front().entity : std::prev(behind)->entity;
  }
};

// The end at which the chain through a curve begins; in a ring the start of the curve itself.
std::size_t FirstEnd(std::size_t curve, const std::vector<std::size_t>& partners) {
  std::size_t end = 2 * curve;
  while (partners[end] != kNone) {
    end = OtherEnd(partners[end]);
    if (end == 2 * curve) break;
  }
  return end;
}

Chain TakeChain(std::size_t first, std::vector<DrawnCurve>& curves,
                const std::vector<std::size_t>& partners, std::vector<bool>& taken) {
  Chain chain;
  for (std::size_t end = first; end != kNone && !taken[end / 2]; end = partners[OtherEnd(end)]) {
    DrawnCurve& curve = curves[end / 2];
    taken[end / 2] = true;
    chain.parts.push_back({chain.trace.Length(), curve.entity});
    if (end % 2 == 1) curve.trace.Reverse();
    chain.trace.Append(curve.trace);
    curve.trace = CurveTrace();
  }
  return chain;
}

void Count(const CurveFit& fit, CurveSummary& summary) {
  if (fit.kind == CurveFit::Kind::kCircle) ++summary.circles;
  if (fit.kind == CurveFit::Kind::kArc) ++summary.arcs;
  if (fit.kind == CurveFit::Kind::kLine) ++summary.lines;
  summary.largestDeviation = std::max(summary.largestDeviation, fit.deviation);
}

void AddElements(Chain& chain, double tolerance, Drawing& drawing) {
  const CurveApproximation made =
      ApproximateCurve(chain.trace, tolerance, drawing.unit.millimetresPerUnit);
  drawing.curves.curves += chain.parts.size();
  for (const CurvePiece& piece : made.pieces) {
    Count(piece.fit, drawing.curves);
    double middle = made.shift + 0.5 * (piece.stretch.from + piece.stretch.to);
    middle = std::fmod(middle, chain.trace.Length());
    DrawnElement element;
    element.element = MakeElement(chain.trace, piece.stretch, piece.fit);
    element.entity = chain.EntityAt(middle);
    drawing.elements.push_back(std::move(element));
  }
}

}  // namespace

void UseCurves(std::vector<DrawnCurve> curves, double tolerance, Drawing& drawing) {
  if (curves.empty()) return;
  const std::vector<std::size_t> partners = FindPartners(curves, drawing);
  std::vector<bool> taken(curves.size(), false);
  for (std::size_t i = 0; i < curves.size(); ++i) {
    if (taken[i]) continue;
    Chain chain = TakeChain(FirstEnd(i, partners), curves, partners, taken);
    AddElements(chain, tolerance, drawing);
  }
  std::stable_sort(
      drawing.elements.begin(), drawing.elements.end(),
      [](const DrawnElement& a, const DrawnElement& b) { return a.entity < b.entity; });
}

}  // namespace drawing
