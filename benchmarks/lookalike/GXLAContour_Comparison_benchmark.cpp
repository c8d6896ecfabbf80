// The long form of HaveSameGeometry on contours of 10 to 10,000 segments: equal, from another
// start, drawn the other way, with another last element, and with all segments equal, where every
// position is a candidate.
#include <KTRCL_Geometry/lookalike/GXLAContour.h>

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace {

struct Corner {
  double length;
  double angle;
};

std::vector<Corner> RandomCorners(std::int64_t segments) {
  std::mt19937 engine(7);
  std::uniform_real_distribution<double> length(2.0, 50.0);
  std::uniform_real_distribution<double> angle(0.2, 3.0);
  std::vector<Corner> corners;
  for (std::int64_t i = 0; i < segments; ++i) {
    const double l = length(engine);
    const double a = angle(engine);
    corners.push_back({l, a});
  }
  return corners;
}

void Fill(GXLAContour& contour, const std::vector<Corner>& corners) {
  for (const Corner& corner : corners) {
    auto* line = new GXLAElementLine(corner.length);
    contour.AddLineElement(line);
    auto* angle = new GXLAElementAngle(corner.angle, 0.01);
    contour.AddAngleElement(angle);
  }
}

// From another start: corner k becomes the first.
std::vector<Corner> Rotated(const std::vector<Corner>& corners, std::size_t k) {
  std::vector<Corner> rotated(corners.begin() + static_cast<std::ptrdiff_t>(k), corners.end());
  rotated.insert(rotated.end(), corners.begin(), corners.begin() + static_cast<std::ptrdiff_t>(k));
  return rotated;
}

// Drawn the other way: the angle behind a segment is the one that stood in front of it.
std::vector<Corner> Reversed(const std::vector<Corner>& corners) {
  std::vector<Corner> reversed;
  const std::size_t n = corners.size();
  for (std::size_t i = 0; i < n; ++i) {
    const std::size_t segment = n - 1 - i;
    reversed.push_back({corners[segment].length, corners[(segment + n - 1) % n].angle});
  }
  return reversed;
}

void Compare(benchmark::State& state, const std::vector<Corner>& first,
             const std::vector<Corner>& second, GXLAContour::GXLAContourDirection secondDirection,
             bool expected) {
  GXLAContour a(true, GXLAContour::GXLADirectionCCW);
  GXLAContour b(true, secondDirection);
  Fill(a, first);
  Fill(b, second);
  GXLATolerances tolerances;
  for (auto _ : state) {
    auto reversed = GXLAContour::eGeometryNotSet;
    int reference = 0;
    GXIntList starts;
    const bool same = GXLAContour::HaveSameGeometry(
        a, b, reversed, reference, starts, GXLAContour::eNmbSegmentsEqual, tolerances, nullptr);
    if (same != expected) state.SkipWithError("unexpected verdict");
    benchmark::DoNotOptimize(starts);
  }
  state.SetComplexityN(state.range(0));
}

void BM_GXLAContour_HaveSameGeometry_Equal(benchmark::State& state) {
  const auto corners = RandomCorners(state.range(0));
  Compare(state, corners, corners, GXLAContour::GXLADirectionCCW, true);
}

void BM_GXLAContour_HaveSameGeometry_RotatedStart(benchmark::State& state) {
  const auto corners = RandomCorners(state.range(0));
  Compare(state, corners, Rotated(corners, corners.size() / 3), GXLAContour::GXLADirectionCCW,
          true);
}

void BM_GXLAContour_HaveSameGeometry_Reversed(benchmark::State& state) {
  const auto corners = RandomCorners(state.range(0));
  Compare(state, corners, Reversed(corners), GXLAContour::GXLADirectionCW, true);
}

// Two neighbours in front of the longest segment change places: the header figures agree and the
// walk fails close to its end.
void BM_GXLAContour_HaveSameGeometry_LastDifferent(benchmark::State& state) {
  auto corners = RandomCorners(state.range(0));
  corners[0].length = 60.0;
  auto changed = corners;
  const std::size_t n = changed.size();
  changed[n - 1].length = corners[n - 2].length;
  changed[n - 2].length = corners[n - 1].length;
  Compare(state, corners, changed, GXLAContour::GXLADirectionCCW, false);
}

void BM_GXLAContour_HaveSameGeometry_AllEqual(benchmark::State& state) {
  const std::vector<Corner> corners(static_cast<std::size_t>(state.range(0)), {10.0, 2.5});
  Compare(state, corners, corners, GXLAContour::GXLADirectionCCW, true);
}

BENCHMARK(BM_GXLAContour_HaveSameGeometry_Equal)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Complexity();
BENCHMARK(BM_GXLAContour_HaveSameGeometry_RotatedStart)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Complexity();
BENCHMARK(BM_GXLAContour_HaveSameGeometry_Reversed)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Complexity();
BENCHMARK(BM_GXLAContour_HaveSameGeometry_LastDifferent)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Complexity();
BENCHMARK(BM_GXLAContour_HaveSameGeometry_AllEqual)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Complexity();

}  // namespace
