// Laying one part on another by places alone.
#include "drawing/GeometricVerdict.h"

#include "drawing/PartSketch.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <vector>

namespace {

using support::CircleContour;
using support::PartSketch;
using support::RectangleContour;

void Measure(benchmark::State& state, const PartSketch& a, const PartSketch& b, bool same) {
  const drawing::PartModel partA = support::PartOf(a);
  const drawing::PartModel partB = support::PartOf(support::Moved(b, 0.3, 20.0, 10.0));
  for (auto _ : state) {
    if (drawing::CompareGeometry(partA, partB, false, nullptr).same != same) {
      state.SkipWithError("the verdict is wrong");
    }
  }
}

// A plate with a slot and a hole.
PartSketch SmallPart(double hole) {
  return {support::RoundedPolygon({{0, 0}, {100, 0}, {100, 60}, {0, 60}}, {5, 5, 0, 0}),
          CircleContour(hole, 20, 4), support::SlotContour({60, 30}, 20, 3, 0.3)};
}

// A sheet with `perSide` squared equal holes, one of them moved by `shift`.
PartSketch Perforated(std::int64_t perSide, double shift) {
  const double size = 5.0 * static_cast<double>(perSide);
  PartSketch part = {RectangleContour(-5, -5, size + 10, size)};
  for (std::int64_t i = 0; i < perSide * perSide; ++i) {
    const double x = 5.0 * static_cast<double>(i % perSide) + (i == 7 ? shift : 0.0);
    part.push_back(CircleContour(x, 5.0 * static_cast<double>(i / perSide), 1));
  }
  return part;
}

// A ring of lines about a circle, one corner of it moved outwards by `shift`.
PartSketch Polygon(std::int64_t sides, double shift) {
  std::vector<GX2DPoint> corners;
  for (std::int64_t i = 0; i < sides; ++i) {
    const double angle = support::kFullTurn * static_cast<double>(i) / static_cast<double>(sides);
    const double radius = 500.0 + (i == 7 ? shift : 0.0);
    corners.emplace_back(radius * std::cos(angle), radius * std::sin(angle));
  }
  return {support::PolygonContour(corners)};
}

void BM_CompareGeometry_SmallPart(benchmark::State& state) {
  Measure(state, SmallPart(20.0), SmallPart(20.0), true);
}

void BM_CompareGeometry_SmallPartHoleMoved(benchmark::State& state) {
  Measure(state, SmallPart(20.0), SmallPart(22.0), false);
}

void BM_CompareGeometry_Holes(benchmark::State& state) {
  Measure(state, Perforated(state.range(0), 0.0), Perforated(state.range(0), 0.0), true);
}

void BM_CompareGeometry_HolesOneMoved(benchmark::State& state) {
  Measure(state, Perforated(state.range(0), 0.0), Perforated(state.range(0), 0.2), false);
}

void BM_CompareGeometry_Polygon(benchmark::State& state) {
  Measure(state, Polygon(state.range(0), 0.0), Polygon(state.range(0), 0.0), true);
}

void BM_CompareGeometry_PolygonCornerMoved(benchmark::State& state) {
  Measure(state, Polygon(state.range(0), 0.0), Polygon(state.range(0), 0.2), false);
}

BENCHMARK(BM_CompareGeometry_SmallPart)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_CompareGeometry_SmallPartHoleMoved)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_CompareGeometry_Holes)->Arg(32)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CompareGeometry_HolesOneMoved)->Arg(32)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CompareGeometry_Polygon)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CompareGeometry_PolygonCornerMoved)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond);

}  // namespace
