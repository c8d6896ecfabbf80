// The clean-up of chains as it would be written down first: erasing element by element, starting
// again at the front after each loop, every pair of lines looked at. Nothing but the tests uses it;
// the exported forms have to leave the same elements with the same coordinates, and to destroy the
// others in the same order.
#pragma once

#include "contour/CleanUpTwins.h"
#include "contour/CrossingCuts.h"

#include <cstddef>

namespace ktrcl_internal {

template <class List>
void EraseAndDestroy(List& list, std::size_t position) {
  auto* const element = list[position];
  list.erase(list.begin() + static_cast<typename List::difference_type>(position));
  delete element;
}

template <class Traits>
void ClearPointLikePlainly(typename Traits::List& list, bool clearLines, bool clearArcs) {
  std::size_t i = 0;
  while (i < list.size()) {
    if (IsPointLike<Traits>(list[i], clearLines, clearArcs)) {
      EraseAndDestroy(list, i);
    } else {
      ++i;
    }
  }
}

template <class List, class Merge>
void MergeIntoNextPlainly(List& list, Merge merge) {
  std::size_t i = 0;
  while (i < list.size()) {
    if (list.size() > 1 && merge(list[i], list[(i + 1) % list.size()])) {
      EraseAndDestroy(list, i);
    } else {
      ++i;
    }
  }
}

template <class Traits>
void MergeFoldsPlainly(typename Traits::List& list) {
  MergeIntoNextPlainly(list, [](auto* a, auto* b) { return MergeFold<Traits>(a, b); });
}

template <class Traits>
void StitchAllPlainly(typename Traits::List& list, bool stitchLines, bool stitchArcs) {
  MergeIntoNextPlainly(list, [stitchLines, stitchArcs](auto* a, auto* b) {
    return MergeStraightOn<Traits>(a, b, stitchLines, stitchArcs);
  });
}

/// The first element from `i` on, going round, that starts where the one at `i` does; `i` where
/// there is none.
template <class List>
std::size_t FindDoublePass(const List& list, std::size_t i) {
  if (list[i] == nullptr) return i;
  const auto start = list[i]->GetStartPoint();
  std::size_t j = (i + 1) % list.size();
  while (j != i && (list[j] == nullptr || !Coincide(list[j]->GetStartPoint(), start))) {
    j = (j + 1) % list.size();
  }
  return j;
}

/// Extent of the elements from `from` up to `to`, going round, seen from the start of the one at
/// `seenFrom`.
template <class Traits>
double ExtentOfLoop(const typename Traits::List& list, std::size_t from, std::size_t to,
                    std::size_t seenFrom) {
  Reach<Traits> reach(list[seenFrom]->GetStartPoint());
  for (std::size_t i = from; i != to; i = (i + 1) % list.size()) reach.Extend(list[i]);
  return reach.Extent();
}

/// Destroys and erases the elements from `from` up to `to`, going round.
template <class List>
void EraseLoop(List& list, std::size_t from, std::size_t to) {
  std::size_t count = to > from ? to - from : list.size() - from + to;
  for (; count > 0; --count) {
    if (from == list.size()) from = 0;
    auto* const element = list[from];
    delete element;
    list.erase(list.begin() + static_cast<typename List::difference_type>(from));
  }
}

template <class Traits>
void RemoveLoopsPlainly(typename Traits::List& list) {
  std::size_t i = 0;
  while (list.size() >= 2 && i < list.size()) {
    const std::size_t j = FindDoublePass(list, i);
    if (j == i) {
      ++i;
      continue;
    }
    const bool isFirstSmaller =
        ExtentOfLoop<Traits>(list, i, j, i) < ExtentOfLoop<Traits>(list, j, i, i);
    if (isFirstSmaller) {
      EraseLoop(list, i, j);
    } else {
      EraseLoop(list, j, i);
    }
    i = 0;
  }
}

inline void CutAtCrossingsPlainly(GX3DElmList& list) {
  CutAtCrossings(list, [](const GX3DLine& /*first*/, const GX3DLine& /*second*/) { return false; });
}

inline void CutIfTold(GX2DElmList& /*list*/) {}
inline void CutIfTold(GX3DElmList& list) { CutAtCrossingsPlainly(list); }

template <class Traits>
void CleanUpPlainly(typename Traits::List& list) {
  ClearPointLikePlainly<Traits>(list, true, true);
  FixAllConnections<Traits>(list);
  MergeFoldsPlainly<Traits>(list);
  CutIfTold(list);
  RemoveLoopsPlainly<Traits>(list);
  StitchAllPlainly<Traits>(list, true, true);
}

}  // namespace ktrcl_internal
