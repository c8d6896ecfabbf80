// Lines with lines, in the plane and in space.
#include "RandomInputs.h"

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/kernel/Intersections.h>

namespace {

using kernel_benchmarks::In2D;
using kernel_benchmarks::In3D;
using kernel_benchmarks::ManyOf;
using kernel_benchmarks::Point;
using kernel_benchmarks::RandomPoints;
using kernel_benchmarks::TimeOnAll;

struct Lines {
  Point a1, a2, b1, b2;
};

std::vector<Lines> RandomFlatLines() {
  return ManyOf(53, [](RandomPoints& random) {
    return Lines{random.Flat(), random.Flat(), random.Flat(), random.Flat()};
  });
}

// Two lines in space through one point, which lies on both.
std::vector<Lines> RandomCrossingLines() {
  return ManyOf(54, [](RandomPoints& random) {
    Lines lines = {random.InSpace(), random.InSpace(), random.InSpace(), {}};
    const double t = random.Between(0.2, 0.8);
    for (int i = 0; i < 3; ++i) {
      const double hit = lines.a1.c[i] + t * (lines.a2.c[i] - lines.a1.c[i]);
      lines.b2.c[i] = 2.0 * hit - lines.b1.c[i];
    }
    return lines;
  });
}

using PlanarRoutine = int (*)(const int&, double, double, double, double, double, double, double,
                              double);

void TimePlanar(benchmark::State& state, PlanarRoutine routine) {
  TimeOnAll(state, RandomFlatLines(), [&](const Lines& l) {
    return routine(0, l.a1.c[0], l.a1.c[1], l.a2.c[0], l.a2.c[1], l.b1.c[0], l.b1.c[1], l.b2.c[0],
                   l.b2.c[1]);
  });
}

void BM_Intlin(benchmark::State& state) { TimePlanar(state, &Intlin); }

void BM_Intlind(benchmark::State& state) { TimePlanar(state, &Intlind); }

struct Pair2D {
  GX2DLine a, b;
};

std::vector<Pair2D> RandomPairs2D() {
  std::vector<Pair2D> pairs;
  for (const Lines& l : RandomFlatLines()) {
    pairs.push_back({GX2DLine(In2D(l.a1), In2D(l.a2)), GX2DLine(In2D(l.b1), In2D(l.b2))});
  }
  return pairs;
}

void BM_GXGeometry_GetTypeIntersectionLines(benchmark::State& state) {
  TimeOnAll(state, RandomPairs2D(), [](const Pair2D& pair) {
    return GXGeometry::GetTypeIntersectionLines(pair.a, pair.b);
  });
}

void BM_GXGeometry_Get2DLineIntersection(benchmark::State& state) {
  GX2DPoint hit;
  TimeOnAll(state, RandomPairs2D(), [&](const Pair2D& pair) {
    return GXGeometry::Get2DLineIntersection(pair.a, pair.b, hit);
  });
}

void BM_Intspt(benchmark::State& state) {
  Point out = {};
  TimeOnAll(state, RandomCrossingLines(),
            [&](const Lines& l) { return Intspt(0, l.a1, l.a2, l.b1, l.b2, out); });
}

void BM_GXGeometry_Get3DLineIntersection(benchmark::State& state) {
  struct Pair3D {
    GX3DLine a, b;
  };
  std::vector<Pair3D> pairs;
  for (const Lines& l : RandomCrossingLines()) {
    pairs.push_back({GX3DLine(In3D(l.a1), In3D(l.a2)), GX3DLine(In3D(l.b1), In3D(l.b2))});
  }
  GX3DPoint hit;
  TimeOnAll(state, pairs, [&](const Pair3D& pair) {
    return GXGeometry::Get3DLineIntersection(pair.a, pair.b, hit);
  });
}

BENCHMARK(BM_Intlin);
BENCHMARK(BM_Intlind);
BENCHMARK(BM_GXGeometry_GetTypeIntersectionLines);
BENCHMARK(BM_GXGeometry_Get2DLineIntersection);
BENCHMARK(BM_Intspt);
BENCHMARK(BM_GXGeometry_Get3DLineIntersection);

}  // namespace
