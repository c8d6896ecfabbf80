// Crossings of lists without asking every pair: boxes rule out nearly all of them. The hits are
// those of the plain form, bit for bit and in the same order.
//
// Why a box may rule a pair out. Whatever formula finds a crossing, and however far it is off, the
// crossing is kept only when it lies on both elements. So only the places matter that count as on
// an element:
//
// - On a line (`Point2DOnClosedLine`) there are two ways. Near an end each coordinate is within
//   0.0001 of the end. Else the place is nearer than 0.00001 to the carrier, and both scalar
//   products are above 0, so that it lies between the uprights on the two ends.
// - A line whose length comes out as 0 takes any place as being in line with it. What is left then
//   are the ends, within 0.0001, and the scalar products; these are 0 or, with a line of next to no
//   length, equal but for their sign, so never both above 0.
// - On an arc (`Point2DOnArc`) the distance from the centre is the radius within 0.00001. Nothing
//   tighter than the whole circle will do: behind the end places are accepted up to 0.003 radians.
//
// With coordinates up to 1e9, which is as far as boxes are trusted, the rounding of these tests
// stays below 0.00001: sums and quotients of coordinates are off by some 30 units in the last
// place, one unit being 1.1e-16 of 1e9. A place that counts is thus inside the box of the element
// grown by 0.00012 to every side, and when it counts for two elements, their grown boxes touch.
// Elements that reach further out, and those with infinities and NaN, are held against all others.
#pragma once

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "contour/BoxTree.h"
#include "contour/ElementKind.h"
#include "contour/ElementPairs.h"
#include "contour/PlainIntersections.h"
#include "elements/EndPointIndex.h"
#include "elements/PlainVector.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>
#include <vector>

namespace ktrcl_internal {

/// How the pairs are found whose boxes touch.
enum class PairSearch {
  kEach,     ///< Every box against every other, without a tree.
  kInOrder,  ///< Trees over the lists as they stand: contours.
  kSorted,   ///< A sorted tree: lists whose neighbours lie anywhere.
};

/// Length units by which boxes are grown to every side.
inline constexpr double kBoxMargin = 0.0002;

/// Coordinate (length units) up to which doubles are dense enough for `kBoxMargin` to mean
/// something.
inline constexpr double kFarthestBoxed = 1e9;

inline bool IsBoxed(const GX2DPoint& p) {
  return std::fabs(p.X) <= kFarthestBoxed && std::fabs(p.Y) <= kFarthestBoxed;
}

/// Box of all places that count as on the line.
inline Box ReachOf(const GX2DLine& line) {
  const GX2DPoint& a = line.Start;
  const GX2DPoint& b = line.End;
  if (!IsBoxed(a) || !IsBoxed(b)) return Everywhere();
  return {std::min(a.X, b.X) - kBoxMargin, std::min(a.Y, b.Y) - kBoxMargin,
          std::max(a.X, b.X) + kBoxMargin, std::max(a.Y, b.Y) + kBoxMargin};
}

/// The same of an arc: its circle counts, wherever mid and end are.
inline Box ReachOf(const GX2DArc& arc) {
  const GX2DPoint& center = arc.Center;
  if (!IsBoxed(center) || !IsBoxed(arc.Start)) return Everywhere();
  const double reach = Length(Plain(arc.Start) - Plain(center)) + kBoxMargin;
  return {center.X - reach, center.Y - reach, center.X + reach, center.Y + reach};
}

/// Whether all of `line` lies to one side of the carrier of `other`, too far off for a place that
/// counts as on both: such a place is within 0.00016 of either line.
inline bool LiesAside(const GX2DLine& line, const GX2DLine& other) {
  // Squared length below which the direction of a line means nothing.
  constexpr double kNoDirection = 1e-12;
  // Two margins, since both lines keep theirs.
  constexpr double kSquaredGap = 4.0 * kBoxMargin * kBoxMargin;
  const double dx = other.End.X - other.Start.X;
  const double dy = other.End.Y - other.Start.Y;
  const double start = dx * (line.Start.Y - other.Start.Y) - dy * (line.Start.X - other.Start.X);
  const double end = dx * (line.End.Y - other.Start.Y) - dy * (line.End.X - other.Start.X);
  const double squaredLength = dx * dx + dy * dy;
  const double gap = kSquaredGap * squaredLength;
  return squaredLength > kNoDirection && (start > 0.0) == (end > 0.0) && start * start > gap &&
         end * end > gap;
}

/// Whether no place counts as on both elements, although their boxes touch.
inline bool AreApart(const CrossingKind& a, const CrossingKind& b) {
  if (!a.line || !b.line) return false;
  if (!IsBoxed(a.line->Start) || !IsBoxed(a.line->End) || !IsBoxed(b.line->Start) ||
      !IsBoxed(b.line->End)) {
    return false;
  }
  return LiesAside(*a.line, *b.line) || LiesAside(*b.line, *a.line);
}

/// The lines and arcs of a list with their boxes, classified once.
class CrossableElements {
 public:
  explicit CrossableElements(const GX2DElmList& list) {
    kinds_.reserve(list.size());
    boxes_.reserve(BoxTree::RoomFor(list.size()));
    std::size_t position = 0;
    for (const GX2DElement* const element : list) Add(KindFor(element), position++);
  }

  const CrossingKind& operator[](std::size_t i) const { return kinds_[i]; }

  /// Place in the list, where other kinds may stand between.
  std::size_t PositionOf(std::size_t i) const { return positions_.empty() ? i : positions_[i]; }

  /// Hands the boxes over.
  std::vector<Box> TakeBoxes() { return std::move(boxes_); }

 private:
  static CrossingKind KindFor(const GX2DElement* element) {
    if (element && IsExactly<GX2DLine>(element)) {
      return {static_cast<const GX2DLine*>(element), nullptr};
    }
    if (element && IsExactly<GX2DArc>(element)) {
      return {nullptr, static_cast<const GX2DArc*>(element)};
    }
    return KindByCast(element);
  }

  void Add(const CrossingKind& kind, std::size_t position) {
    if (!kind.line && !kind.arc) return;
    // Positions are written down from the first gap on.
    if (position != kinds_.size() && positions_.empty()) {
      positions_.resize(kinds_.size());
      std::iota(positions_.begin(), positions_.end(), std::size_t{0});
      hasGaps_ = true;
    }
    if (hasGaps_) positions_.push_back(position);
    kinds_.push_back(kind);
    boxes_.push_back(kind.line ? ReachOf(*kind.line) : ReachOf(*kind.arc));
  }

  std::vector<CrossingKind> kinds_;
  std::vector<Box> boxes_;
  std::vector<std::size_t> positions_;  ///< Empty where every element is a line or an arc.
  bool hasGaps_ = false;
};

/// The elements of a tree in a better order.
class SortedTree {
 public:
  explicit SortedTree(const BoxTree& tree)
      : order_(HilbertOrder::Of(tree)), tree_(Sorted(tree, order_)) {}

  /// The elements whose boxes touch `box`, from `first` on, in their first order.
  const std::vector<std::size_t>& Find(const Box& box, std::size_t first) {
    leaves_.clear();
    tree_.AppendTouching(box, leaves_);
    found_.clear();
    for (const std::size_t leaf : leaves_) {
      if (order_[leaf] >= first) found_.push_back(order_[leaf]);
    }
    std::sort(found_.begin(), found_.end());
    return found_;
  }

 private:
  static std::vector<Box> Sorted(const BoxTree& tree, const std::vector<std::size_t>& order) {
    std::vector<Box> boxes;
    boxes.reserve(BoxTree::RoomFor(order.size()));
    for (const std::size_t i : order) boxes.push_back(tree.At(0, i));
    return boxes;
  }

  std::vector<std::size_t> order_;
  BoxTree tree_;
  std::vector<std::size_t> leaves_;
  std::vector<std::size_t> found_;
};

// The forms below visit the pairs whose boxes touch, in the order of a double loop, until a visit
// answers false; what they return is the last answer. With `laterOnly`, for a list with itself, the
// inner element comes behind the outer one.

template <typename Visit>
bool VisitEach(const std::vector<Box>& outer, const std::vector<Box>& inner, bool laterOnly,
               Visit& visit) {
  for (std::size_t i = 0; i < outer.size(); ++i) {
    for (std::size_t j = laterOnly ? i + 1 : 0; j < inner.size(); ++j) {
      if (Touch(outer[i], inner[j]) && !visit(i, j)) return false;
    }
  }
  return true;
}

template <typename Visit>
bool VisitSorted(const BoxTree& outer, const BoxTree& inner, bool laterOnly, Visit& visit) {
  SortedTree sorted(inner);
  for (std::size_t i = 0; i < outer.CountAt(0); ++i) {
    for (const std::size_t j : sorted.Find(outer.At(0, i), laterOnly ? i + 1 : 0)) {
      if (!visit(i, j)) return false;
    }
  }
  return true;
}

/// Chosen by the lists, or `forced` by a test.
inline bool AreEachAsked(std::size_t outer, std::size_t inner, std::optional<PairSearch> forced) {
  // From this number of pairs on a tree is quicker than asking each.
  constexpr std::size_t kTreePairs = 1024;
  if (outer == 0 || inner == 0) return true;  // A tree needs an element.
  if (forced) return *forced == PairSearch::kEach;
  return outer <= kTreePairs / inner;
}

/// The same, for two trees.
inline bool IsSortingWorthwhile(const BoxTree& outer, const BoxTree& inner,
                                std::optional<PairSearch> forced) {
  if (forced) return *forced == PairSearch::kSorted;
  return !outer.IsCoherent() || !inner.IsCoherent();
}

template <typename Visit>
bool VisitTouchingPairs(std::vector<Box> outer, std::vector<Box> inner,
                        std::optional<PairSearch> forced, Visit visit) {
  if (AreEachAsked(outer.size(), inner.size(), forced)) {
    return VisitEach(outer, inner, false, visit);
  }
  BoxTree outerTree(std::move(outer));
  BoxTree innerTree(std::move(inner));
  if (IsSortingWorthwhile(outerTree, innerTree, forced)) {
    return VisitSorted(outerTree, innerTree, false, visit);
  }
  outerTree.RaiseTo(innerTree.Top());
  innerTree.RaiseTo(outerTree.Top());
  return TouchingPairs<Visit>(outerTree, innerTree, false, visit).Run();
}

template <typename Visit>
bool VisitTouchingPairsWithin(std::vector<Box> boxes, std::optional<PairSearch> forced,
                              Visit visit) {
  if (AreEachAsked(boxes.size(), boxes.size() / 2, forced))
    return VisitEach(boxes, boxes, true, visit);
  const BoxTree tree(std::move(boxes));
  if (IsSortingWorthwhile(tree, tree, forced)) return VisitSorted(tree, tree, true, visit);
  return TouchingPairs<Visit>(tree, tree, true, visit).Run();
}

/// Hands the hits to `take` until it answers false. `forced` is for tests: how pairs are found
/// otherwise follows from the lists.
template <typename Take>
bool TakeHitsIndexed(const GX2DElmList& list1, const GX2DElmList& list2,
                     std::optional<PairSearch> forced, Take& take) {
  CrossableElements outer(list1);
  CrossableElements inner(list2);
  return VisitTouchingPairs(
      outer.TakeBoxes(), inner.TakeBoxes(), forced, [&](std::size_t i, std::size_t j) {
        return AreApart(outer[i], inner[j]) || TakeHits(outer[i], inner[j], IsAnyWanted, take);
      });
}

inline void GetIntersectionsIndexed(const GX2DElmList& list1, const GX2DElmList& list2,
                                    GX2DPointList& points,
                                    std::optional<PairSearch> forced = std::nullopt) {
  const auto append = [&points](const GX2DPoint& hit) {
    AppendHit(points, hit);
    return true;
  };
  TakeHitsIndexed(list1, list2, forced, append);
}

inline bool IntersectIndexed(const GX2DElmList& list1, const GX2DElmList& list2,
                             std::optional<PairSearch> forced = std::nullopt) {
  const auto stop = [](const GX2DPoint&) { return false; };
  return !TakeHitsIndexed(list1, list2, forced, stop);
}

/// Whether elements of a list have an end at a place. The last element is left out: it has no pass
/// of its own in the search for self-crossings.
class EndSearch {
 public:
  explicit EndSearch(const GX2DElmList& list) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    ends_.reserve(2 * list.size());
    for (std::size_t i = 0; i + 1 < list.size(); ++i) {
      // A null entry has no end to coincide with.
      ends_.push_back(list[i] ? Plain(list[i]->GetStartPoint()) : PlainVector{kNaN, kNaN, 0.0});
      ends_.push_back(list[i] ? Plain(list[i]->GetEndPoint()) : PlainVector{kNaN, kNaN, 0.0});
    }
  }

  /// Whether the element at `position`, or one behind it, has an end at `p`.
  bool HasEndFrom(std::size_t position, const GX2DPoint& p) {
    // So many searches are cheaper than the index.
    constexpr std::size_t kPlainSearches = 16;
    if (searches_++ < kPlainSearches) {
      const PlainVector place = Plain(p);
      return std::any_of(
          ends_.begin() + static_cast<std::ptrdiff_t>(2 * position), ends_.end(),
          [&](const PlainVector& end) { return place.IsAlmostEq(end, kLengthTolerance); });
    }
    if (!index_) BuildIndex();
    const std::size_t fromBack = index_->First({p.X, p.Y});
    return fromBack != EndPointIndex<2>::kNone && LastPosition() - fromBack >= position;
  }

 private:
  std::size_t LastPosition() const { return ends_.size() / 2 - 1; }

  /// Elements are counted from the back, so that the first one found is the last in the list.
  void BuildIndex() {
    index_.emplace(ends_.size() / 2);
    for (std::size_t i = 0; i < ends_.size(); ++i) {
      index_->Add(LastPosition() - i / 2, {ends_[i].x, ends_[i].y});
    }
  }

  std::vector<PlainVector> ends_;
  std::size_t searches_ = 0;
  std::optional<EndPointIndex<2>> index_;
};

/// Ends of the element whose pass is running.
class OwnEnds {
 public:
  bool IsAt(const GX2DPoint& p) const {
    const PlainVector place = Plain(p);
    return place.IsAlmostEq(start_, kLengthTolerance) || place.IsAlmostEq(end_, kLengthTolerance);
  }

  void MoveTo(GX2DElement* element) {
    start_ = Plain(element->GetStartPoint());
    end_ = Plain(element->GetEndPoint());
  }

 private:
  PlainVector start_{};
  PlainVector end_{};
};

/// The plain form takes points out again in every pass, of all that was found so far. A hit is thus
/// left in the end when no element from its own pass on, the last one excepted, has an end there;
/// and something was left at the end of a pass when a hit outlived its own.
inline bool HasSelfIntersectionIndexed(const GX2DElmList& list, GX2DPointList& points,
                                       std::optional<PairSearch> forced = std::nullopt) {
  CrossableElements elements(list);
  OwnEnds ownEnds;
  std::optional<EndSearch> ends;
  bool hasAny = false;
  std::size_t behindPass = 0;
  const auto isOffOwnEnds = [&](const GX2DPoint& hit) { return !ownEnds.IsAt(hit); };
  const auto take = [&](const GX2DPoint& hit) {
    hasAny = true;
    if (!ends) ends.emplace(list);
    if (!ends->HasEndFrom(behindPass, hit)) AppendHit(points, hit);
    return true;
  };
  const auto crossPair = [&](std::size_t i, std::size_t j) {
    if (AreApart(elements[i], elements[j])) return true;
    const std::size_t pass = elements.PositionOf(i);
    if (behindPass != pass + 1) ownEnds.MoveTo(list[pass]);
    behindPass = pass + 1;
    return TakeHits(elements[i], elements[j], isOffOwnEnds, take);
  };
  VisitTouchingPairsWithin(elements.TakeBoxes(), forced, crossPair);
  return hasAny;
}

}  // namespace ktrcl_internal
