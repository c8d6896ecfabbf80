// The loose ends of a drawing as read, numbered for people, and what healing made of each.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/DrawingHealing.h"

#include <cstddef>
#include <vector>

namespace drawing {

/// One loose end.
struct LooseEndEntry {
  GX2DPoint place;          ///< As read.
  std::size_t element = 0;  ///< Index into the elements of the drawing as read.
  std::size_t partner = 0;  ///< Number of its partner; 0 where it has none.
  double distance = 0.0;    ///< To the partner, millimetres.
  bool open = false;        ///< Still a loose end of the healed drawing.

  /// No loose end any more, and it had a partner. One without either went with its element, when
  /// that was taken away after its other end had been joined.
  bool Joined() const;
};

/// The loose ends; the number of an entry is its index and 1.
struct LooseEndAccount {
  std::vector<LooseEndEntry> ends;
  std::size_t open = 0;    ///< How many of them still are.
  std::size_t joined = 0;  ///< How many were joined.
  /// Loose ends of elements that were taken away because they lay on others; they have no number.
  std::size_t gone = 0;
};

/// Numbers the loose ends that are there once doubled elements are taken away (but for those that
/// were joined before they were), in the order of the drawing, each followed by its partner.
/// Partners up to the gap are those of PairLooseEnds, others those of HealedDrawing::stillOpen.
///
/// `readNetworks` are those of the drawing as read.
/// Cost: near n log n.
LooseEndAccount AccountOfLooseEnds(const Drawing& asRead, const std::vector<Network>& readNetworks,
                                   const HealedDrawing& healed, double gap);

/// The elements as read that were taken away as lying on others.
std::vector<bool> RemovedElements(const Drawing& asRead, const std::vector<Change>& changes);

}  // namespace drawing
