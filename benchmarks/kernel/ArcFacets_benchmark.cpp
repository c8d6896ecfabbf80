// Facets of an arc, by their number, and its polygon of as many chords. Emptying the list counts.
#include "RandomInputs.h"

#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/kernel/Arcs.h>

#include <cmath>

namespace {

using kernel_benchmarks::Arc;

constexpr double kPi = 3.14159265358979323846;
constexpr double kRadius = 50.0;
constexpr double kSpan = 1.5 * kPi;

const Arc& ThreeQuarters() {
  static const Arc arc = kernel_benchmarks::ArcAbout({{10.0, 20.0, 30.0}}, kRadius, 0.3, kSpan);
  return arc;
}

void BM_Facet_3D_arc(benchmark::State& state) {
  const Arc& arc = ThreeQuarters();
  const double step = kSpan / static_cast<double>(state.range(0));
  GX3DElmList lines;
  for (auto _ : state) {
    Facet_3D_arc(0, arc.centre, arc.start, arc.middle, arc.end, step, lines, false);
    benchmark::DoNotOptimize(lines);
    lines.ClearWithContents();
  }
  state.SetComplexityN(state.range(0));
}

void BM_GX3DArc_AddAsPolygon(benchmark::State& state) {
  const GX3DArc arc = ThreeQuarters().In3D();
  // Its chords span the angle whose cosine falls short of 1 by the height over the radius.
  const double height = kRadius * (1.0 - std::cos(kSpan / static_cast<double>(state.range(0))));
  GX3DPointList points;
  for (auto _ : state) {
    arc.AddAsPolygon(points, height);
    benchmark::DoNotOptimize(points);
    points.clear();
  }
  state.SetComplexityN(state.range(0));
}

BENCHMARK(BM_Facet_3D_arc)->RangeMultiplier(10)->Range(10, 10000)->Complexity();
BENCHMARK(BM_GX3DArc_AddAsPolygon)->RangeMultiplier(10)->Range(10, 10000)->Complexity();

}  // namespace
