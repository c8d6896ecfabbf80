// What is told once per drawing, with the number of entities that show it.
#pragma once

#include "drawing/Drawing.h"

#include <cstddef>

namespace drawing {

/// How many entities show something, and where the first one of them stands.
struct DxfTally {
  int count = 0;
  std::size_t firstLine = 0;

  void Add(std::size_t line);
};

/// All that is tallied while entities are read.
struct DxfTallies {
  DxfTally heights;
  DxfTally widths;
  DxfTally flatSides;
  DxfTally shortArcs;
  DxfTally nearCircles;
  DxfTally guessedText;
  DxfTally lostText;
  DxfTally invisible;
  DxfTally hidden;
  DxfTally paperSpace;

  /// Complains about each once. Of what lies on hidden layers and in the paper space the counts of
  /// the drawing tell the rest.
  void Tell(Drawing& drawing) const;
};

}  // namespace drawing
