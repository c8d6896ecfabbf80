// Frames of three points, their inverse, and points taken there and back; beside the matrices.
#include "RandomInputs.h"

#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/kernel/Frames.h>

namespace {

using kernel_benchmarks::In3D;
using kernel_benchmarks::ManyOf;
using kernel_benchmarks::Point;
using kernel_benchmarks::RandomPoints;
using kernel_benchmarks::TimeOnAll;

struct Place {
  Point p0;
  Point p1;
  Point p2;
  double frame[3][3];
  double inverse[3][3];
  GXMatrix matrix;
  GXMatrix back;
};

std::vector<Place> RandomPlaces() {
  return ManyOf(51, [](RandomPoints& random) {
    Place place = {random.InSpace(), random.InSpace(), random.InSpace(), {}, {}, {}, {}};
    Lambda(place.p0, place.p1, place.p2, place.frame);
    Invmat(place.frame, place.inverse);
    place.matrix = GXMatrix(In3D(place.p0), In3D(place.p1), In3D(place.p2));
    place.back = place.matrix;
    place.back.Inverse();
    return place;
  });
}

void BM_Lambda(benchmark::State& state) {
  double frame[3][3];
  TimeOnAll(state, RandomPlaces(),
            [&](const Place& place) { return Lambda(place.p0, place.p1, place.p2, frame); });
}

void BM_GXMatrix_FromThreePoints(benchmark::State& state) {
  struct Corners {
    GX3DPoint p0, p1, p2;
  };
  const auto corners = ManyOf(51, [](RandomPoints& random) {
    return Corners{In3D(random.InSpace()), In3D(random.InSpace()), In3D(random.InSpace())};
  });
  TimeOnAll(state, corners, [](const Corners& c) { return GXMatrix(c.p0, c.p1, c.p2); });
}

void BM_Invmat(benchmark::State& state) {
  double inverse[3][3];
  TimeOnAll(state, RandomPlaces(),
            [&](const Place& place) { return Invmat(place.frame, inverse); });
}

void BM_GXMatrix_Inverse(benchmark::State& state) {
  TimeOnAll(state, RandomPlaces(), [](const Place& place) {
    GXMatrix matrix = place.matrix;
    matrix.Inverse();
    return matrix;
  });
}

void BM_Gloloc(benchmark::State& state) {
  const Point p = {{10.0, 20.0, 30.0}};
  Point out = {};
  TimeOnAll(state, RandomPlaces(),
            [&](const Place& place) { return Gloloc(p, out, place.p0, place.frame); });
}

void BM_GX3DPoint_TransformGloLoc(benchmark::State& state) {
  const GX3DPoint origin(1.0, 2.0, 3.0);
  TimeOnAll(state, RandomPlaces(), [&](const Place& place) {
    GX3DPoint p(10.0, 20.0, 30.0);
    p.TransformGloLoc(origin, place.matrix);
    return p;
  });
}

void BM_Locglo(benchmark::State& state) {
  const Point p = {{10.0, 20.0, 30.0}};
  Point out = {};
  TimeOnAll(state, RandomPlaces(),
            [&](const Place& place) { return Locglo(p, out, place.p0, place.inverse); });
}

void BM_GX3DPoint_TransformLocGlo(benchmark::State& state) {
  const GX3DPoint origin(1.0, 2.0, 3.0);
  TimeOnAll(state, RandomPlaces(), [&](const Place& place) {
    GX3DPoint p(10.0, 20.0, 30.0);
    p.TransformLocGlo(origin, place.back);
    return p;
  });
}

BENCHMARK(BM_Lambda);
BENCHMARK(BM_GXMatrix_FromThreePoints);
BENCHMARK(BM_Invmat);
BENCHMARK(BM_GXMatrix_Inverse);
BENCHMARK(BM_Gloloc);
BENCHMARK(BM_GX3DPoint_TransformGloLoc);
BENCHMARK(BM_Locglo);
BENCHMARK(BM_GX3DPoint_TransformLocGlo);

}  // namespace
