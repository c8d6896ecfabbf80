// Turning a point about any axis.
#include "RandomInputs.h"

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/kernel/Frames.h>

namespace {

using kernel_benchmarks::In3D;
using kernel_benchmarks::ManyOf;
using kernel_benchmarks::Point;
using kernel_benchmarks::RandomPoints;
using kernel_benchmarks::TimeOnAll;

struct Turn {
  Point a;
  Point b;
  double angle;
};

std::vector<Turn> RandomTurns() {
  return ManyOf(52, [](RandomPoints& random) {
    const Point a = random.InSpace();
    const Point b = random.InSpace();
    return Turn{a, b, random.Between(-3.0, 3.0)};
  });
}

void BM_Rotate_a_point(benchmark::State& state) {
  const Point p = {{10.0, 20.0, 30.0}};
  Point out = {};
  TimeOnAll(state, RandomTurns(), [&](const Turn& t) {
    return Rotate_a_point(0, t.a.c[0], t.a.c[1], t.a.c[2], t.b.c[0], t.b.c[1], t.b.c[2], t.angle, p,
                          out);
  });
}

void BM_GXGeometry_Rotate3DPoint(benchmark::State& state) {
  struct ClassTurn {
    GX3DLine axis;
    double angle;
  };
  std::vector<ClassTurn> turns;
  for (const Turn& t : RandomTurns()) turns.push_back({GX3DLine(In3D(t.a), In3D(t.b)), t.angle});
  const GX3DPoint p(10.0, 20.0, 30.0);
  GX3DPoint out;
  TimeOnAll(state, turns,
            [&](const ClassTurn& t) { return GXGeometry::Rotate3DPoint(t.axis, t.angle, p, out); });
}

BENCHMARK(BM_Rotate_a_point);
BENCHMARK(BM_GXGeometry_Rotate3DPoint);

}  // namespace
