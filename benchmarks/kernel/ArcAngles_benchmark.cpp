// Span and parameter of arcs.
#include "RandomInputs.h"

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/kernel/Arcs.h>

namespace {

using kernel_benchmarks::Arc;
using kernel_benchmarks::ManyOf;
using kernel_benchmarks::RandomArc;
using kernel_benchmarks::RandomPoints;
using kernel_benchmarks::TimeOnAll;

std::vector<Arc> RandomArcs() {
  return ManyOf(56, [](RandomPoints& random) { return RandomArc(random, random.InSpace()); });
}

std::vector<GX3DArc> RandomArcs3D() {
  std::vector<GX3DArc> arcs;
  for (const Arc& arc : RandomArcs()) arcs.push_back(arc.In3D());
  return arcs;
}

void BM_Arc_angle(benchmark::State& state) {
  TimeOnAll(state, RandomArcs(), [](const Arc& arc) {
    return Arc_angle(0, arc.centre, arc.start, arc.middle, arc.end);
  });
}

void BM_GXGeometry_GetArcAngleRad(benchmark::State& state) {
  TimeOnAll(state, RandomArcs3D(),
            [](const GX3DArc& arc) { return GXGeometry::GetArcAngleRad(arc); });
}

void BM_Point_parametrc_value_on_arc(benchmark::State& state) {
  TimeOnAll(state, RandomArcs(), [](const Arc& arc) {
    return Point_parametrc_value_on_arc(0, arc.middle, arc.centre, arc.start, arc.middle, arc.end);
  });
}

void BM_GXGeometry_PointParametricOnArc3D(benchmark::State& state) {
  TimeOnAll(state, RandomArcs3D(),
            [](const GX3DArc& arc) { return GXGeometry::PointParametricOnArc(arc.Mid, arc); });
}

BENCHMARK(BM_Arc_angle);
BENCHMARK(BM_GXGeometry_GetArcAngleRad);
BENCHMARK(BM_Point_parametrc_value_on_arc);
BENCHMARK(BM_GXGeometry_PointParametricOnArc3D);

}  // namespace
