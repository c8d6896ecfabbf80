// Compares the answers of all libraries, then times them. Nothing is timed where answers differ.
#include "Jobs.h"

#include <cmath>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <map>

namespace contour_benchmarks {
namespace {

void AddAllJobs() {
  AddReferenceAnswers();
  AddReferenceAnswersOnShapes();
  AddIntersectionJobs();
  AddClassificationJobs();
  AddCleanUpJobs();
  AddRingJobs();
  AddRingQueryJobs();
  AddSurroundingPolygonJobs();
  AddConstructionJobs();
  AddApproximationJobs();
  AddOffsetJobs();
  AddTriangulationJobs();
#ifdef KTRCL_BENCHMARKS_WITH_GEOS
  AddGeosJobs();
  AddGeosJobsOnShapes();
#endif
#ifdef KTRCL_BENCHMARKS_WITH_BOOST
  AddBoostJobs();
#endif
#ifdef KTRCL_BENCHMARKS_WITH_CGAL
  AddCgalJobs();
  AddCgalJobsOnShapes();
#endif
}

/// Third and fourth part of a name: the operation and the case.
std::string QuestionOf(const std::string& name) {
  const std::size_t library = name.find('_') + 1;
  const std::size_t operation = name.find('_', library) + 1;
  const std::size_t end = name.find('_', name.find('_', operation) + 1);
  return name.substr(operation, end == std::string::npos ? end : end - operation);
}

/// The libraries compute crossings in different ways; far less than the tolerance of the elements.
bool AreClose(double a, double b) {
  return std::fabs(a - b) <= 1e-6 * std::max({1.0, std::fabs(a), std::fabs(b)});
}

/// Empty where both say the same.
std::string DifferenceOf(const Answer& a, const Answer& b) {
  const bool yesOrNo = a.size() == 1 || b.size() == 1;
  if (!yesOrNo && a.size() != b.size()) {
    return std::to_string(b.size()) + " numbers instead of " + std::to_string(a.size());
  }
  const std::size_t count = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < count; ++i) {
    if (AreClose(a[i], b[i])) continue;
    return std::to_string(b[i]) + " instead of " + std::to_string(a[i]) + " as number " +
           std::to_string(i);
  }
  return {};
}

bool DoAnswersAgree(std::int64_t n) {
  std::map<std::string, Answer> first;
  bool agree = true;
  for (const Check& check : Checks()) {
    const Answer answer = check.answer(n);
    const auto [known, isFirst] = first.emplace(QuestionOf(check.name), answer);
    const std::string difference = answer.empty() ? "no answer"
                                   : isFirst      ? ""
                                                  : DifferenceOf(known->second, answer);
    if (difference.empty()) continue;
    std::cerr << check.name << '/' << n << ": " << difference << '\n';
    agree = false;
  }
  return agree;
}

int Run(int argc, char** argv) {
  AddAllJobs();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return EXIT_FAILURE;
  bool agree = true;
  for (std::int64_t n = kFewest; n <= kMost; n *= 10) agree = DoAnswersAgree(n) && agree;
  if (!agree) {
    std::cerr << "The answers differ: nothing is timed.\n";
    return EXIT_FAILURE;
  }
  std::cerr << "The answers of " << Checks().size() << " jobs agree for " << kFewest << " to "
            << kMost << " elements.\n";
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return EXIT_SUCCESS;
}

}  // namespace

}  // namespace contour_benchmarks

int main(int argc, char** argv) {
  try {
    return contour_benchmarks::Run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
