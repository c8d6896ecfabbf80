// The circular walks over two contours, for many start positions and without words. Both sequences
// are read once into plain tables, the second one twice in a row, so that each walk is a comparison
// with one window of the table: on contours with thousands of equal segments, where every position
// is a candidate, that is what costs.
#pragma once

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/lookalike/GXLAContour.h>

#include "lookalike/ElementFigure.h"

#include <cstddef>
#include <vector>

namespace ktrcl_internal {

class CircularMatch {
 public:
  /// Requires: contours of the same size, and a position inside the first.
  CircularMatch(const GXLAContour& reference, int referencePosition, const GXLAContour& second,
                const GXLATolerances& tolerances)
      : backward_(reference.Direction != second.Direction), size_(second.size()) {
    expected_.reserve(size_);
    for (std::size_t step = 1; step <= size_; ++step) {
      const std::size_t i = (static_cast<std::size_t>(referencePosition) + step) % size_;
      const ElementFigure figure = FigureOf(reference[i]);
      const bool angle = figure.Kind == ElementKind::kAngle;
      expected_.push_back(
          {figure, angle ? tolerances.ToleranceAngle() : tolerances.ToleranceLengthMM()});
    }
    found_.reserve(2 * size_);
    for (std::size_t i = 0; i < size_; ++i) {
      found_.push_back(FigureOf(second[backward_ ? size_ - 1 - i : i]));
    }
    for (std::size_t i = 0; i < size_; ++i) found_.push_back(found_[i]);
  }

  /// Whether the walk reads the second contour against its sense.
  bool IsBackward() const { return backward_; }

  /// Walks once around from behind both start elements, which come last.
  /// Requires: a position inside the second contour.
  bool MatchesFrom(int position) const {
    const std::size_t start = static_cast<std::size_t>(position);
    const ElementFigure* found = &found_[backward_ ? size_ - start : start + 1];
    for (const Expected& expected : expected_) {
      if (!IsSame(expected, *found)) return false;
      ++found;
    }
    return true;
  }

 private:
  struct Expected {
    ElementFigure Figure;
    double Tolerance;
  };

  static bool IsSame(const Expected& expected, const ElementFigure& found) {
    return expected.Figure.Kind == found.Kind && found.Kind != ElementKind::kNone &&
           GXMath::AlmostEq(expected.Figure.Value, found.Value, expected.Tolerance);
  }

  bool backward_;
  std::size_t size_;
  std::vector<Expected> expected_;    // in the order of the walk
  std::vector<ElementFigure> found_;  // in the order of the walk, twice
};

}  // namespace ktrcl_internal
