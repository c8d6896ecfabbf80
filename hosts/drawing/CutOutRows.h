// The cut-outs of both parts in rows: which stand for each other, which are alone, and what lies in
// place of those that are.
#pragma once

#include "drawing/GeometricVerdict.h"
#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"

#include <cstddef>
#include <vector>

namespace drawing {

/// How the two sides of a row stand to each other.
enum class CutOutStanding {
  kPartners,  ///< They lie on each other within kPositionLimit.
  kNearest,   ///< Of one shape, but apart: neither has a partner.
  kReplaced,  ///< One side alone; a cut-out of another shape that is alone too lies in its place.
  kAlone      ///< One side alone, with nothing in its place.
};

/// A cut-out of either part, or two that stand side by side.
struct CutOutRow {
  std::size_t a = kNoCutOut;  ///< Indices into the cut-outs of the parts.
  std::size_t b = kNoCutOut;
  CutOutStanding standing = CutOutStanding::kAlone;
  /// Of rows with two sides: the distance that the comparison measured; where the outlines did not
  /// match, that of the geometric verdict, or of the middles where it has no partner either.
  double deviation = 0.0;
  bool hasOwn = false;        ///< The geometric verdict has these two as partners as well.
  double ownDeviation = 0.0;  ///< What it measured.
  std::size_t group = 0;      ///< Index into Comparison::groups.
  /// Counted from 1. Rows have the same number where one is replaced by the other.
  std::size_t number = 0;
};

/// Every cut-out of both sides in one row, by groups: partners in the order of A, then what is
/// alone in A, then what is alone in B.
std::vector<CutOutRow> RowsOfCutOuts(const PartModel& a, const PartModel& b,
                                     const Comparison& comparison, const GeometricVerdict& own);

/// The middle of the box of a cut-out.
GX2DPoint MiddleOfCutOut(const PartModel& part, std::size_t cutOut);

}  // namespace drawing
