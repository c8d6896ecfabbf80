// Sweep and parameter of arcs, in the plane and in space.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

namespace {

GX2DPoint OnCircle(double radius, double angle) {
  return {radius * std::cos(angle), radius * std::sin(angle)};
}

std::vector<GX2DArc> RandomArcs() {
  std::mt19937 engine(2024);
  std::uniform_real_distribution<double> radius(1.0, 100.0);
  std::uniform_real_distribution<double> angle(-3.0, 3.0);
  std::vector<GX2DArc> arcs;
  for (int i = 0; i < 1024; ++i) {
    const double r = radius(engine);
    const double from = angle(engine);
    const double sweep = angle(engine);
    arcs.emplace_back(GX2DPoint(0.0, 0.0), OnCircle(r, from), OnCircle(r, from + 0.5 * sweep),
                      OnCircle(r, from + sweep));
  }
  return arcs;
}

void BM_GXGeometry_GetArcAngleRad(benchmark::State& state) {
  std::vector<GX3DArc> arcs;
  for (const GX2DArc& arc : RandomArcs()) arcs.emplace_back(arc, 2);
  std::size_t i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(GXGeometry::GetArcAngleRad(arcs[i++ & 1023U]));
}

void BM_GX2DArc_Len(benchmark::State& state) {
  const auto arcs = RandomArcs();
  std::size_t i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(arcs[i++ & 1023U].Len());
}

void BM_GXGeometry_PointParametricOnArc2D(benchmark::State& state) {
  const auto arcs = RandomArcs();
  std::size_t i = 0;
  for (auto _ : state) {
    const GX2DArc& arc = arcs[i++ & 1023U];
    benchmark::DoNotOptimize(GXGeometry::PointParametricOnArc(arc.Mid, arc, false));
  }
}

void BM_GXGeometry_PointParametricOnArc3D(benchmark::State& state) {
  std::vector<GX3DArc> arcs;
  for (const GX2DArc& arc : RandomArcs()) arcs.emplace_back(arc, 2);
  std::size_t i = 0;
  for (auto _ : state) {
    const GX3DArc& arc = arcs[i++ & 1023U];
    benchmark::DoNotOptimize(GXGeometry::PointParametricOnArc(arc.Mid, arc));
  }
}

BENCHMARK(BM_GXGeometry_GetArcAngleRad);
BENCHMARK(BM_GX2DArc_Len);
BENCHMARK(BM_GXGeometry_PointParametricOnArc2D);
BENCHMARK(BM_GXGeometry_PointParametricOnArc3D);

}  // namespace
