// Turning a point about any axis.
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include <benchmark/benchmark.h>

namespace {

void BM_GX3DPoint_RotateAxis(benchmark::State& state) {
  const GX3DLine axis(GX3DPoint(1.0, 2.0, 3.0), GX3DPoint(4.0, -1.0, 7.0));
  GX3DPoint point(10.0, 20.0, 30.0);
  for (auto _ : state) {
    point.RotateAxis(axis, 0.001);
    benchmark::DoNotOptimize(point);
  }
}

void BM_GXVector_Rotate(benchmark::State& state) {
  const GXVector axis(0.0, 0.0, 1.0);
  GXVector v(10.0, 20.0, 30.0);
  for (auto _ : state) {
    v.Rotate(axis, 0.001);
    benchmark::DoNotOptimize(v);
  }
}

BENCHMARK(BM_GX3DPoint_RotateAxis);
BENCHMARK(BM_GXVector_Rotate);

}  // namespace
