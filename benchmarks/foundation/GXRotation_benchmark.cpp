// Euler angles to a matrix and back, in a static and in a rotating order, with and without
// repetition.
#include <KTRCL_Geometry/foundation/GXRotation.h>

#include <benchmark/benchmark.h>

#include <cstddef>
#include <random>
#include <vector>

namespace {

std::vector<GXRotation> RandomRotations(int order) {
  std::mt19937 engine(12345);
  std::uniform_real_distribution<double> angle(-180.0, 180.0);
  std::vector<GXRotation> rotations;
  for (int i = 0; i < 1024; ++i) {
    const double a = angle(engine);
    const double b = angle(engine);
    const double c = angle(engine);
    rotations.emplace_back(a, b, c, order);
  }
  return rotations;
}

void BM_GXRotation_GetRotationMatrix(benchmark::State& state) {
  const auto rotations = RandomRotations(static_cast<int>(state.range(0)));
  std::size_t i = 0;
  for (auto _ : state) {
    GXMatrix matrix = rotations[i++ & 1023U].GetRotationMatrix();
    benchmark::DoNotOptimize(matrix);
  }
}

void BM_GXRotation_FromMatrix(benchmark::State& state) {
  std::vector<GXMatrix> matrices;
  for (const GXRotation& rotation : RandomRotations(0)) {
    matrices.push_back(rotation.GetRotationMatrix());
  }
  std::size_t i = 0;
  for (auto _ : state) {
    GXRotation rotation(matrices[i++ & 1023U]);
    benchmark::DoNotOptimize(rotation);
  }
}

// From one order into another: to the matrix and back.
void BM_GXRotation_GetZYZr(benchmark::State& state) {
  const auto rotations = RandomRotations(0);
  std::size_t i = 0;
  for (auto _ : state) {
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    rotations[i++ & 1023U].GetZYZr(a, b, c);
    benchmark::DoNotOptimize(a);
    benchmark::DoNotOptimize(b);
    benchmark::DoNotOptimize(c);
  }
}

BENCHMARK(BM_GXRotation_GetRotationMatrix)->ArgName("order")->Arg(0)->Arg(1)->Arg(12)->Arg(23);
BENCHMARK(BM_GXRotation_FromMatrix);
BENCHMARK(BM_GXRotation_GetZYZr);

}  // namespace
