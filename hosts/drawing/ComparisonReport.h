// The account of a comparison as one HTML file that needs nothing else.
#pragma once

#include "drawing/GeometricVerdict.h"
#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"

#include <string>

namespace drawing {

/// Everything that a report of a comparison tells.
struct ComparisonAccount {
  const PartModel& a;
  const PartModel& b;  ///< As compared: mirrored where `mirrored` is set.
  const Comparison& comparison;
  const GeometricVerdict& own;
  std::string verdict;       ///< In words, as the program prints it.
  std::string disagreement;  ///< Empty where both verdicts agree.
  bool mirrored = false;     ///< B was turned over.
};

/// An HTML document: the verdict in words, both parts side by side from their matched start points,
/// B laid on A, the first difference marked in both pictures and in its table row, the header
/// figures in the order in which they decide, lengths and angles of both outlines as one strip,
/// groups of cut-outs as a matrix, and the library's words folded away. The same input gives the
/// same bytes; nothing is loaded from anywhere.
std::string ComparisonReportHtml(const ComparisonAccount& account);

}  // namespace drawing
