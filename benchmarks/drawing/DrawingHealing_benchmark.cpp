// Healing and writing drawings of loose, shuffled lines, one in ten of them drawn twice.
#include "LooseDrawing.h"
#include "drawing/DrawingHealing.h"
#include "drawing/DxfWriter.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

void HealLoose(benchmark::State& state, double gap) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const drawing::Drawing drawing = benchmarks::LooseLines(count, gap);
  for (auto _ : state) {
    const drawing::HealedDrawing healed = drawing::HealDrawing(drawing, {});
    if (healed.after.closed < count / 20) state.SkipWithError("contours are missing");
  }
  state.SetComplexityN(state.range(0));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_HealDrawing_ExactEnds(benchmark::State& state) { HealLoose(state, 0.0); }

void BM_HealDrawing_Gaps(benchmark::State& state) { HealLoose(state, 0.05); }

void BM_DxfText(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const drawing::Drawing drawing = benchmarks::LooseLines(count, 0.0);
  std::size_t bytes = 0;
  for (auto _ : state) {
    const std::string text = DxfText(drawing, drawing::DxfVersion::kR2000);
    bytes = text.size();
  }
  state.SetComplexityN(state.range(0));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

BENCHMARK(BM_HealDrawing_ExactEnds)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK(BM_HealDrawing_Gaps)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK(BM_DxfText)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

}  // namespace
