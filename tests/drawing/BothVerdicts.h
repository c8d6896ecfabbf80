// Two sketches judged by the library and by places alone.
#pragma once

#include "PartSketch.h"
#include "drawing/GeometricVerdict.h"
#include "drawing/PartComparison.h"

#include <gtest/gtest.h>

#include <string>

namespace support {

struct BothVerdicts {
  drawing::Comparison comparison;
  drawing::GeometricVerdict own;
  std::string disagreement;
};

inline BothVerdicts JudgeBoth(const PartSketch& a, const PartSketch& b,
                              GXLAContour::eNmbSegmentsMode mode = GXLAContour::eNmbSegmentsEqual) {
  const drawing::PartModel partA = PartOf(a);
  const drawing::PartModel partB = PartOf(b);
  EXPECT_TRUE(partA.usable) << partA.obstacle;
  EXPECT_TRUE(partB.usable) << partB.obstacle;
  BothVerdicts both;
  if (!partA.usable || !partB.usable) return both;
  drawing::CompareOptions options;
  options.mode = mode;
  both.comparison = drawing::CompareParts(partA, partB, options);
  both.own = drawing::CompareGeometry(partA, partB, false, &both.comparison);
  both.disagreement = drawing::DisagreementText(partA, partB, both.comparison, both.own);
  return both;
}

}  // namespace support
