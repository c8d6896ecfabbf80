// Polygons of arcs in all their forms. Making and destroying the polygons are timed.
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>

namespace {

constexpr double kTurn = 6.283185307179586;
constexpr double kSweep = 0.75 * kTurn;

GX2DPoint OnCircle(double radius, double angle) {
  return {radius * std::cos(angle), radius * std::sin(angle)};
}

GX2DArc ArcOf(double radius) {
  return GX2DArc(GX2DPoint(0.0, 0.0), OnCircle(radius, 0.1), OnCircle(radius, 0.1 + 0.5 * kSweep),
                 OnCircle(radius, 0.1 + kSweep));
}

// The polygon turns by the angle whose sagitta is the height.
double HeightForTurns(double radius, std::int64_t turns) {
  return radius * (1.0 - std::cos(kSweep / static_cast<double>(turns)));
}

// Times `append` on a list that is made anew, and tells the rate by what stands in it.
template <typename List, typename Append>
void TimeAppending(benchmark::State& state, Append append) {
  std::size_t appended = 0;
  for (auto _ : state) {
    List list;
    append(list);
    appended = list.size();
    benchmark::DoNotOptimize(appended);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(appended));
}

// The argument is the radius, which alone tells the number of lines.
void BM_GX2DArc_AddAsPolygon_Lines(benchmark::State& state) {
  const GX2DArc arc = ArcOf(static_cast<double>(state.range(0)));
  TimeAppending<GX2DElmList>(state, [&](GX2DElmList& list) { arc.AddAsPolygon(list); });
}

// The argument is the number of turns.
void BM_GX2DArc_AddAsPolygon_ByHeight(benchmark::State& state) {
  const GX2DArc arc = ArcOf(100.0);
  const double height = HeightForTurns(100.0, state.range(0));
  TimeAppending<GX2DPointList>(state, [&](GX2DPointList& list) { arc.AddAsPolygon(list, height); });
  state.SetComplexityN(state.range(0));
}

void BM_GX3DArc_AddAsPolygon_ByHeight(benchmark::State& state) {
  const GX3DArc arc(ArcOf(100.0), 2);
  const double height = HeightForTurns(100.0, state.range(0));
  TimeAppending<GX3DPointList>(state, [&](GX3DPointList& list) { arc.AddAsPolygon(list, height); });
  state.SetComplexityN(state.range(0));
}

// The argument is the angle in whole degrees.
void BM_GX2DArc_AddAsPolygonMaxAngle(benchmark::State& state) {
  const GX2DArc arc = ArcOf(100.0);
  const int degrees = static_cast<int>(state.range(0));
  TimeAppending<GX2DPointList>(
      state, [&](GX2DPointList& list) { arc.AddAsPolygonMaxAngle(list, degrees); });
}

void BM_GX3DArc_AddAsPolygonMaxAngle(benchmark::State& state) {
  const GX3DArc arc(ArcOf(100.0), 2);
  const int degrees = static_cast<int>(state.range(0));
  TimeAppending<GX3DPointList>(
      state, [&](GX3DPointList& list) { arc.AddAsPolygonMaxAngle(list, degrees); });
}

// A chain of sixths of a circle, which is put in order first. The argument is their number.
void BM_GX2DElmList_AddAsPolygon_Arcs(benchmark::State& state) {
  GX2DElmList chain;
  for (std::int64_t i = 0; i < state.range(0); ++i) {
    const double x = 10.0 * static_cast<double>(i);
    chain.push_back(new GX2DArc(GX2DPoint(x + 5.0, -8.660254037844386), GX2DPoint(x, 0.0),
                                GX2DPoint(x + 10.0, 0.0), true));
  }
  TimeAppending<GX2DElmList>(state, [&](GX2DElmList& list) { chain.AddAsPolygon(list); });
  state.SetComplexityN(state.range(0));
}

BENCHMARK(BM_GX2DArc_AddAsPolygon_Lines)->Arg(1)->Arg(100)->Arg(10000);
BENCHMARK(BM_GX2DArc_AddAsPolygon_ByHeight)->RangeMultiplier(10)->Range(10, 10000)->Complexity();
BENCHMARK(BM_GX3DArc_AddAsPolygon_ByHeight)->RangeMultiplier(10)->Range(10, 10000)->Complexity();
BENCHMARK(BM_GX2DArc_AddAsPolygonMaxAngle)->Arg(1)->Arg(5)->Arg(30);
BENCHMARK(BM_GX3DArc_AddAsPolygonMaxAngle)->Arg(1)->Arg(5)->Arg(30);
BENCHMARK(BM_GX2DElmList_AddAsPolygon_Arcs)->RangeMultiplier(10)->Range(10, 10000)->Complexity();

}  // namespace
