// What is timed is a job: a class that takes the number of elements, makes its contours when it is
// built, and does the work once in `Run`. The same class answers in numbers by `GetAnswer`, so that
// the answers that are compared are those of the code that is timed.
//
//     struct Surface {
//       explicit Surface(std::int64_t n);
//       double Run();
//       Answer GetAnswer() { return {Run()}; }
//     };
//     Add<Surface>("BM_GEOS_Surface_Lines");
//
// Names are BM_<library>_<operation>_<case>, with _<variant> behind where a library has several
// ways; for this library its class stands in front. Jobs of one operation and case have to give one
// answer.
#pragma once

#include "TestContours.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace contour_benchmarks {

/// Numbers that are to agree. A job that only says yes or no gives the first number alone.
using Answer = std::vector<double>;

struct Check {
  std::string name;
  Answer (*answer)(std::int64_t n);
};

inline constexpr std::int64_t kFewest = 10;
inline constexpr std::int64_t kMost = 10000;
/// Answers are compared up to `kMost` only.
inline constexpr std::int64_t kMostOfQuickJobs = 100000;

/// All jobs that were added, in order.
inline std::vector<Check>& Checks() {
  static std::vector<Check> checks;
  return checks;
}

/// Whether there are crossings, and where: the order in which they are found is no part of it.
inline Answer CrossingsAsAnswer(Corners points) {
  std::sort(points.begin(), points.end(),
            [](const Corner& a, const Corner& b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
  Answer answer = {points.empty() ? 0.0 : 1.0};
  for (const Corner& p : points) {
    answer.push_back(p.x);
    answer.push_back(p.y);
  }
  return answer;
}

inline Answer CornersAsAnswer(const Corners& corners) {
  Answer answer;
  for (const Corner& c : corners) {
    answer.push_back(c.x);
    answer.push_back(c.y);
  }
  return answer;
}

/// The corners of a ring, whichever comes first and whichever way it runs.
inline Answer RingAsAnswer(Corners ring) {
  double twiceArea = 0.0;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Corner& next = ring[i + 1 == ring.size() ? 0 : i + 1];
    twiceArea += ring[i].x * next.y - ring[i].y * next.x;
  }
  if (twiceArea < 0.0) std::reverse(ring.begin(), ring.end());
  const auto leftmost = std::min_element(
      ring.begin(), ring.end(), [](const Corner& a, const Corner& b) { return a.x < b.x; });
  std::rotate(ring.begin(), leftmost, ring.end());
  return CornersAsAnswer(ring);
}

template <typename Job>
Answer AnswerOf(std::int64_t n) {
  Job job(n);
  return job.GetAnswer();
}

template <typename Job>
void Time(benchmark::State& state) {
  Job job(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(job.Run());
  state.SetComplexityN(state.range(0));
}

/// For jobs that change what they are given: `Copy` makes it anew, unseen by the clock. Several are
/// made at a time, since halting the clock costs more than a small contour.
template <typename Job>
void TimeOnCopies(benchmark::State& state) {
  constexpr std::int64_t kElements = 2000;
  const Job job(state.range(0));
  const std::int64_t batch = std::max<std::int64_t>(kElements / state.range(0), 1);
  std::vector<decltype(job.Copy())> copies;
  while (state.KeepRunningBatch(batch)) {
    state.PauseTiming();
    for (std::int64_t i = 0; i < batch; ++i) copies.push_back(job.Copy());
    state.ResumeTiming();
    for (const auto& copy : copies) benchmark::DoNotOptimize(job.Run(*copy));
    state.PauseTiming();
    copies.clear();
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}

// All are timed for 10 to 10,000 elements or more, with the growth that fits best. Google Benchmark
// keeps what is registered; the analyzer of clang-tidy takes it for lost.

template <typename Job>
void AddCheck(const char* name) {
  Checks().push_back({name, &AnswerOf<Job>});
}

template <typename Job>
void Add(const char* name, std::int64_t most = kMost) {
  AddCheck<Job>(name);
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
  BENCHMARK(Time<Job>)->Name(name)->RangeMultiplier(10)->Range(kFewest, most)->Complexity();
}

template <typename Job>
void AddOnCopies(const char* name) {
  AddCheck<Job>(name);
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
  BENCHMARK(TimeOnCopies<Job>)
      ->Name(name)
      ->RangeMultiplier(10)
      ->Range(kFewest, kMost)
      ->Complexity();
}

// Where the jobs come from. Those of the library are added before those of its peers.

void AddReferenceAnswers();
void AddReferenceAnswersOnShapes();
void AddIntersectionJobs();
void AddClassificationJobs();
void AddCleanUpJobs();
void AddRingJobs();
void AddRingQueryJobs();
void AddSurroundingPolygonJobs();
void AddConstructionJobs();
void AddApproximationJobs();
void AddOffsetJobs();
void AddTriangulationJobs();
void AddGeosJobs();
void AddGeosJobsOnShapes();
void AddBoostJobs();
void AddCgalJobs();
void AddCgalJobsOnShapes();

}  // namespace contour_benchmarks
