// Random points and arcs for the benchmarks of the kernel, the same in every run, as plain arrays
// and as the objects of the classes beside it.
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

namespace kernel_benchmarks {

struct Point {
  double c[3];

  operator double*() { return c; }
  operator const double*() const { return c; }
};

inline GX2DPoint In2D(const Point& p) { return {p.c[0], p.c[1]}; }
inline GX3DPoint In3D(const Point& p) { return {p.c[0], p.c[1], p.c[2]}; }

/// A power of two: `TimeOnAll` takes the inputs in turn.
inline constexpr std::size_t kInputs = 1024;

class RandomPoints {
 public:
  explicit RandomPoints(unsigned seed) : engine_(seed) {}

  double Between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(engine_);
  }
  Point Flat() {
    const double x = Between(-100.0, 100.0);
    return {{x, Between(-100.0, 100.0), 0.0}};
  }
  Point InSpace() {
    Point p = Flat();
    p.c[2] = Between(-100.0, 100.0);
    return p;
  }

 private:
  std::mt19937 engine_;
};

/// `kInputs` inputs, each made by `make(random)`.
template <typename Make>
auto ManyOf(unsigned seed, Make make) {
  RandomPoints random(seed);
  std::vector<decltype(make(random))> all;
  for (std::size_t i = 0; i < kInputs; ++i) all.push_back(make(random));
  return all;
}

/// Times `call(input)` on the inputs in turn.
template <typename Input, typename Call>
void TimeOnAll(benchmark::State& state, const std::vector<Input>& inputs, Call call) {
  std::size_t i = 0;
  for (auto _ : state) {
    auto result = call(inputs[i++ & (kInputs - 1)]);
    benchmark::DoNotOptimize(result);
    benchmark::ClobberMemory();
  }
}

struct Arc {
  Point centre;
  Point start;
  Point middle;
  Point end;

  GX2DArc In2D() const {
    return {kernel_benchmarks::In2D(centre), kernel_benchmarks::In2D(start),
            kernel_benchmarks::In2D(middle), kernel_benchmarks::In2D(end)};
  }
  GX3DArc In3D() const {
    return {kernel_benchmarks::In3D(centre), kernel_benchmarks::In3D(start),
            kernel_benchmarks::In3D(middle), kernel_benchmarks::In3D(end)};
  }
};

/// Arc about a centre in a plane z = constant, counter-clockwise from an angle through a span.
inline Arc ArcAbout(const Point& centre, double radius, double from, double span) {
  const auto at = [&](double angle) {
    return Point{{centre.c[0] + radius * std::cos(angle), centre.c[1] + radius * std::sin(angle),
                  centre.c[2]}};
  };
  return {centre, at(from), at(from + 0.5 * span), at(from + span)};
}

inline Arc RandomArc(RandomPoints& random, const Point& centre) {
  const double radius = random.Between(60.0, 100.0);
  const double from = random.Between(-3.0, 3.0);
  return ArcAbout(centre, radius, from, random.Between(0.5, 3.0));
}

}  // namespace kernel_benchmarks
