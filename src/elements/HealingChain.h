// Chaining: how the elements of a list are brought into an order in which each starts where the one
// before ends. There are two forms with the same results: the plain one asks every element that
// comes into question, the indexed one finds them by place. Tests hold the two against each other.
#pragma once

#include "elements/CommonEnds.h"
#include "elements/EndPointIndex.h"
#include "elements/HealingTwins.h"

#include <algorithm>
#include <cstddef>
#include <deque>
#include <iterator>
#include <optional>
#include <vector>

namespace ktrcl_internal {

/// What `current` has in common with a waiting element; nothing with a null entry.
template <typename Traits>
Joint JointWith(typename Traits::Element* current, typename Traits::Element* candidate,
                typename Traits::Point& common) {
  if (current == nullptr || candidate == nullptr) return Joint::kNone;
  const auto* const end = IsSegment<Traits>(current) ? &current->GetEndPoint() : nullptr;
  return Traits::FindJoint(current, candidate, end, common);
}

/// The position from the front of the first element that touches the end of `current`, with the
/// place in `common`, or the number of elements. `foundCommon` is set when an element on the way
/// had any point in common with `current`.
template <typename Traits, typename Elements>
std::size_t FindTouching(typename Traits::Element* current, const Elements& elements,
                         typename Traits::Point& common, bool& foundCommon) {
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const Joint joint = JointWith<Traits>(current, elements[i], common);
    foundCommon = foundCommon || joint != Joint::kNone;
    if (joint == Joint::kAtEnd) return i;
  }
  return elements.size();
}

/// The elements that are not in the chain yet, in their order; each is asked in turn.
template <typename Traits>
class PlainWaiting {
 public:
  using Element = typename Traits::Element;
  using Point = typename Traits::Point;

  explicit PlainWaiting(const typename Traits::List& list)
      : elements_(std::next(list.begin()), list.end()) {}

  /// Takes out and returns the earliest element that touches the end of `current`, with the place
  /// in `common`, or null. `foundCommon` tells whether an element on the way had any point in
  /// common with `current`; only the first search of a chain needs it.
  Element* TakeTouching(Element* current, bool /*isFirst*/, Point& common, bool& foundCommon) {
    const std::size_t position = FindTouching<Traits>(current, elements_, common, foundCommon);
    return position < elements_.size() ? Take(position) : nullptr;
  }

  /// Takes out and returns the earliest element, which may be a null entry. Requires: one is left.
  Element* TakeFront() { return Take(0); }

 private:
  Element* Take(std::size_t position) {
    const auto it = elements_.begin() + static_cast<std::ptrdiff_t>(position);
    Element* const taken = *it;
    elements_.erase(it);
    return taken;
  }

  std::deque<Element*> elements_;
};

/// The same with an index over the ends. Elements do not change while they wait, so it is filled
/// once, and not at all for a list that is in order already.
template <typename Traits>
class IndexedWaiting {
 public:
  using Element = typename Traits::Element;
  using Point = typename Traits::Point;

  explicit IndexedWaiting(const typename Traits::List& list)
      : elements_(std::next(list.begin()), list.end()), isTaken_(elements_.size(), false) {}

  Element* TakeTouching(Element* current, bool isFirst, Point& common, bool& foundCommon) {
    if (isFirst) {
      // The first element of a chain is turned round for common points at either end: it asks all.
      const std::size_t position = FindTouching<Traits>(current, elements_, common, foundCommon);
      return position < elements_.size() ? Take(position) : nullptr;
    }
    if (JointWith<Traits>(current, elements_[Front()], common) == Joint::kAtEnd) return TakeFront();
    if (!IsSegment<Traits>(current)) return nullptr;
    const std::size_t position = FindByPlace(current->GetStartPoint(), current->GetEndPoint());
    if (position == Index::kNone) return nullptr;
    JointWith<Traits>(current, elements_[position], common);
    return Take(position);
  }

  Element* TakeFront() { return Take(Front()); }

 private:
  using Index = EndPointIndex<Traits::kDimension>;

  std::size_t FindByPlace(const Point& start, const Point& end) {
    if (!index_) FillIndex();
    const std::size_t position = index_->First(Traits::Place(end));
    // What touches the start of an element shorter than the tolerance touches its end as well.
    return Meet(end, start) ? std::min(position, index_->First(Traits::Place(start))) : position;
  }

  void FillIndex() {
    index_.emplace(elements_.size());
    for (std::size_t i = elements_.size(); i-- > front_;) {
      if (isTaken_[i] || elements_[i] == nullptr) continue;
      const auto ends = EndsOf(elements_[i]);
      index_->Add(i, Traits::Place(ends.start));
      index_->Add(i, Traits::Place(ends.end));
    }
  }

  std::size_t Front() {
    while (isTaken_[front_]) ++front_;
    return front_;
  }

  Element* Take(std::size_t position) {
    isTaken_[position] = true;
    if (index_) index_->Drop(position);
    return elements_[position];
  }

  std::vector<Element*> elements_;
  std::vector<bool> isTaken_;
  std::optional<Index> index_;
  std::size_t front_ = 0;  // Nothing waits before this position.
};

/// Reorders and turns the elements of a list into a chain, greedily from its front element on.
/// Should memory run out, the list still holds all its elements, in their old order.
template <typename Traits, typename Waiting>
void Chain(typename Traits::List& list) {
  if (list.empty()) return;
  Waiting waiting(list);
  std::vector<typename Traits::Element*> chain;
  chain.reserve(list.size());
  auto* current = list.front();
  chain.push_back(current);
  for (bool isFirst = true; chain.size() < list.size(); isFirst = false) {
    typename Traits::Point common;
    bool foundCommon = false;
    auto* next = waiting.TakeTouching(current, isFirst, common, foundCommon);
    if (next != nullptr) {
      if (IsSegment<Traits>(next) && Meet(next->GetEndPoint(), common)) TurnRound<Traits>(next);
    } else {
      // The first element alone may have been stored the wrong way round. What follows it is not
      // searched for: the front element comes next, whether it touches or not.
      if (foundCommon && isFirst) TurnRound<Traits>(current);
      next = waiting.TakeFront();
    }
    chain.push_back(next);
    current = next;
  }
  std::copy(chain.begin(), chain.end(), list.begin());
}

template <typename Traits>
void ChainPlain(typename Traits::List& list) {
  Chain<Traits, PlainWaiting<Traits>>(list);
}

template <typename Traits>
void ChainIndexed(typename Traits::List& list) {
  Chain<Traits, IndexedWaiting<Traits>>(list);
}

}  // namespace ktrcl_internal
