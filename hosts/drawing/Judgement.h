// Both verdicts on two parts, the library's and the host's own, and that on the mirror image.
#pragma once

#include "drawing/GeometricVerdict.h"
#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"

#include <memory>
#include <string>

namespace drawing {

/// One comparison, judged by the library's lengths and angles and by places alone.
struct DoubleVerdict {
  Comparison comparison;
  GeometricVerdict own;
  std::string disagreement;  ///< How the two disagree; empty where they agree.
};

/// What a comparison of two parts comes to.
struct Judgement {
  /// Of B as it is, or of its mirror image where `mirrored` is set.
  DoubleVerdict verdict;
  bool mirrored = false;  ///< B is different, and its mirror image is the same.
  /// B turned over, where that was tried.
  std::unique_ptr<PartModel> turned;
  /// That of the mirror image, where it was tried and is different too; else null.
  std::unique_ptr<DoubleVerdict> mirrorImage;

  /// What was compared with A: B itself, or its mirror image.
  const PartModel& Compared(const PartModel& b) const { return mirrored ? *turned : b; }
};

/// Compares two usable parts, and with `tryMirror` also A with the mirror image of B, where the
/// library calls B different. Only the library's verdict decides whether they are the same.
///
/// The verdict in words of a part that is the same turned over begins "Same as the mirror image: ".
/// The placement of a mirror image is told for B as it is: x is negated first.
Judgement Judge(const PartModel& a, const PartModel& b, const CompareOptions& options,
                bool tryMirror);

}  // namespace drawing
