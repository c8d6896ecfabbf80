// Circles with lines and with circles.
#include "RandomInputs.h"

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/kernel/Intersections.h>

namespace {

using kernel_benchmarks::Arc;
using kernel_benchmarks::In2D;
using kernel_benchmarks::ManyOf;
using kernel_benchmarks::Point;
using kernel_benchmarks::RandomArc;
using kernel_benchmarks::RandomPoints;
using kernel_benchmarks::TimeOnAll;

// The centres are at most 57 apart and the radii 60 to 100, so that the circles cross unless one
// lies in the other.
Point RandomCentre(RandomPoints& random) {
  const double x = random.Between(-20.0, 20.0);
  return {{x, random.Between(-20.0, 20.0), 0.0}};
}

struct Crossing {
  Arc first;
  Arc second;
  Point p1;
  Point p2;
};

std::vector<Crossing> RandomCrossings() {
  return ManyOf(55, [](RandomPoints& random) {
    const Arc first = RandomArc(random, RandomCentre(random));
    const Arc second = RandomArc(random, RandomCentre(random));
    return Crossing{first, second, RandomCentre(random), random.Flat()};
  });
}

void BM_Pntlac(benchmark::State& state) {
  TimeOnAll(state, RandomCrossings(), [](const Crossing& c) {
    double x = 100.0;
    double y = 100.0;
    const Point& centre = c.first.centre;
    const Point& start = c.first.start;
    return Pntlac(c.p1.c[0], c.p1.c[1], c.p2.c[0], c.p2.c[1], centre.c[0], centre.c[1], start.c[0],
                  start.c[1], &x, &y);
  });
}

void BM_GXGeometry_Get2DLineArcIntersections(benchmark::State& state) {
  struct LineAndArc {
    GX2DLine line;
    GX2DArc arc;
  };
  std::vector<LineAndArc> all;
  for (const Crossing& c : RandomCrossings()) {
    all.push_back({GX2DLine(In2D(c.p1), In2D(c.p2)), c.first.In2D()});
  }
  GX2DPoint first;
  GX2DPoint second;
  TimeOnAll(state, all, [&](const LineAndArc& each) {
    return GXGeometry::Get2DLineArcIntersections(each.line, each.arc, first, second);
  });
}

void BM_Pntlaa(benchmark::State& state) {
  TimeOnAll(state, RandomCrossings(), [](const Crossing& c) {
    double x = 100.0;
    double y = 100.0;
    const Arc& a = c.first;
    const Arc& b = c.second;
    return Pntlaa(a.centre.c[0], a.centre.c[1], a.start.c[0], a.start.c[1], b.centre.c[0],
                  b.centre.c[1], b.start.c[0], b.start.c[1], &x, &y);
  });
}

void BM_Intersect2D_circles(benchmark::State& state) {
  Point out1 = {};
  Point out2 = {};
  TimeOnAll(state, RandomCrossings(), [&](const Crossing& c) {
    return Intersect2D_circles(0, c.first.centre, c.first.start, c.first.middle, c.second.centre,
                               c.second.start, c.second.middle, out1, out2);
  });
}

void BM_GXGeometry_Get2DCirclesIntersection(benchmark::State& state) {
  struct Arcs {
    GX2DArc first, second;
  };
  std::vector<Arcs> all;
  for (const Crossing& c : RandomCrossings()) all.push_back({c.first.In2D(), c.second.In2D()});
  GX2DPoint first;
  GX2DPoint second;
  TimeOnAll(state, all, [&](const Arcs& each) {
    return GXGeometry::Get2DCirclesIntersection(each.first, each.second, first, second);
  });
}

BENCHMARK(BM_Pntlac);
BENCHMARK(BM_GXGeometry_Get2DLineArcIntersections);
BENCHMARK(BM_Pntlaa);
BENCHMARK(BM_Intersect2D_circles);
BENCHMARK(BM_GXGeometry_Get2DCirclesIntersection);

}  // namespace
