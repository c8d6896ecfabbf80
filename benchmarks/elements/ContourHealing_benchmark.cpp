// Chaining unordered, randomly turned lines of closed chains of 100 lines each, and removing the
// duplicates of lines that are all there twice.
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace {

constexpr int kLinesPerChain = 100;

// Regular polygons side by side, their lines shuffled and turned.
std::vector<GX2DLine> ShuffledChains(std::int64_t lines) {
  std::mt19937 engine(99);
  std::vector<GX2DLine> all;
  for (std::int64_t i = 0; i < lines; ++i) {
    const double centre = 30.0 * static_cast<double>(i / kLinesPerChain);
    const double step = 6.283185307179586 / kLinesPerChain;
    const auto corner = [&](std::int64_t k) {
      const double angle = step * static_cast<double>(k % kLinesPerChain);
      return GX2DPoint(centre + 10.0 * std::cos(angle), 10.0 * std::sin(angle));
    };
    GX2DLine line(corner(i), corner(i + 1));
    if ((engine() & 1U) != 0) line.SwapPoints();
    all.push_back(line);
  }
  std::shuffle(all.begin(), all.end(), engine);
  return all;
}

void BM_GX2DElmList_MakeConnectingElements(benchmark::State& state) {
  const auto lines = ShuffledChains(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    GX2DElmList list;
    for (const GX2DLine& line : lines) list.push_back(new GX2DLine(line));
    state.ResumeTiming();
    list.MakeConnectingElements();
    benchmark::DoNotOptimize(list.front());
    state.PauseTiming();
    list.ClearWithContents();
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}

void BM_GX3DElmList_MakeConnectingElements(benchmark::State& state) {
  const auto lines = ShuffledChains(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    GX3DElmList list;
    for (const GX2DLine& line : lines) list.push_back(new GX3DLine(line, 2));
    state.ResumeTiming();
    list.MakeConnectingElements();
    benchmark::DoNotOptimize(list.front());
    state.PauseTiming();
    list.ClearWithContents();
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}

void BM_GX3DElmList_RemoveDuplicates(benchmark::State& state) {
  const auto lines = ShuffledChains(state.range(0) / 2);
  for (auto _ : state) {
    state.PauseTiming();
    GX3DElmList list;
    for (const GX2DLine& line : lines) list.push_back(new GX3DLine(line, 2));
    for (const GX2DLine& line : lines) list.push_back(new GX3DLine(line, 2));
    state.ResumeTiming();
    list.RemoveDuplicates();
    benchmark::DoNotOptimize(list.front());
    state.PauseTiming();
    list.ClearWithContents();
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}

BENCHMARK(BM_GX2DElmList_MakeConnectingElements)
    ->RangeMultiplier(10)
    ->Range(100, 100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK(BM_GX3DElmList_MakeConnectingElements)
    ->RangeMultiplier(10)
    ->Range(100, 100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK(BM_GX3DElmList_RemoveDuplicates)
    ->RangeMultiplier(10)
    ->Range(100, 100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

}  // namespace
