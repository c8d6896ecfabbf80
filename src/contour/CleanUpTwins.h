// The clean-up of chains, once for the flat and the spatial list. `FlatChain` and `SpatialChain`
// name the types and hold every deliberate difference between the twins; the procedures below them
// are common.
//
// Elements vanish from the middle of lists here. All procedures therefore make a single pass that
// moves what stays to the front and cut off the rest at the end; what vanishes is destroyed on the
// way, in the order of the plain procedure that erases one element after the other.
#pragma once

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "contour/ElementKind.h"
#include "elements/EndPointIndex.h"
#include "elements/LineMeasures.h"
#include "elements/PlainVector.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <optional>

namespace ktrcl_internal {

/// 0.00001 length units: radii that agree within it are the same, one within it of 0 is none.
inline constexpr double kRadiusTolerance = 0.00001;

/// How the directions of two arcs about one center stand to each other.
enum class Sense { kSame, kOpposite, kNeither };

/// The 2D side of the twins.
struct FlatChain {
  using Element = GX2DElement;
  using Point = GX2DPoint;
  using Line = GX2DLine;
  using Arc = GX2DArc;
  using List = GX2DElmList;
  static constexpr std::size_t kDimension = 2;

  static std::array<double, 2> Place(const Point& p) { return {p.X, p.Y}; }

  /// Distance from the first line up to which (strictly) a fold counts as one; sharper than in
  /// space.
  static constexpr double kFoldTolerance = kOnElementTolerance;

  /// From the turn of each arc; one of the two senses always holds.
  static Sense SenseOf(const Arc& a, const Arc& b) {
    if ((a.IsCW() && b.IsCW()) || (a.IsCCW() && b.IsCCW())) return Sense::kSame;
    if ((a.IsCW() && b.IsCCW()) || (a.IsCCW() && b.IsCW())) return Sense::kOpposite;
    return Sense::kNeither;
  }

  /// The parameter may reach 1 here; in space a point near the end counts only as the end.
  static bool IsOnArc(const Arc& arc, const PlainVector& p) {
    return GXGeometry::Point2DOnArc(arc, Point(p.x, p.y));
  }

  /// Crossings stay: a flat contour that crosses itself is left to the removal of loops.
  static bool CutCrossings(List&) { return true; }
};

/// The 3D side of the twins.
struct SpatialChain {
  using Element = GX3DElement;
  using Point = GX3DPoint;
  using Line = GX3DLine;
  using Arc = GX3DArc;
  using List = GX3DElmList;
  static constexpr std::size_t kDimension = 3;

  static std::array<double, 3> Place(const Point& p) { return {p.X, p.Y, p.Z}; }

  /// Ten times that of the flat twin.
  static constexpr double kFoldTolerance = kLengthTolerance;

  /// From the normals; arcs in different planes have neither sense.
  static Sense SenseOf(const Arc& a, const Arc& b) {
    constexpr double kNormalTolerance = 0.0001;
    const GXVector normalA = a.GetNormal();
    const GXVector normalB = b.GetNormal();
    const GXVector reversedA = a.GetReversedNormal();
    const GXVector reversedB = b.GetReversedNormal();
    if (normalA.IsAlmostEq(normalB, kNormalTolerance) ||
        reversedA.IsAlmostEq(reversedB, kNormalTolerance)) {
      return Sense::kSame;
    }
    if (reversedA.IsAlmostEq(normalB, kNormalTolerance) ||
        normalA.IsAlmostEq(reversedB, kNormalTolerance)) {
      return Sense::kOpposite;
    }
    return Sense::kNeither;
  }

  static bool IsOnArc(const Arc& arc, const PlainVector& p) {
    return GXGeometry::Point3DOnArc(arc, Point(p.x, p.y, p.z));
  }

  static bool CutCrossings(List& list) { return GXGeometry::DivideLinesAtIntersection(list); }
};

// Kinds

/// The element as a line; null for other kinds.
template <class Traits>
typename Traits::Line* LineOf(typename Traits::Element* element) {
  return KindOf(element) == PrimitiveKind::kLine ? static_cast<typename Traits::Line*>(element)
                                                 : nullptr;
}

template <class Traits>
typename Traits::Arc* ArcOf(typename Traits::Element* element) {
  return KindOf(element) == PrimitiveKind::kArc ? static_cast<typename Traits::Arc*>(element)
                                                : nullptr;
}

template <class Point>
bool Coincide(const Point& a, const Point& b) {
  return a.IsAlmostEq(b, kLengthTolerance);
}

// Elements that are points

/// Whether a line or an arc is to go because it is no longer than a point. `IsCircle` is not asked:
/// a circle whose ends coincide goes too, one whose mid is its end stays.
template <class Traits>
bool IsPointLike(typename Traits::Element* element, bool clearLines, bool clearArcs) {
  if (const auto* const line = clearLines ? LineOf<Traits>(element) : nullptr) {
    return Coincide(line->Start, line->End);
  }
  if (const auto* const arc = clearArcs ? ArcOf<Traits>(element) : nullptr) {
    return GXMath::AlmostEq(arc->Radius(), 0.0, kRadiusTolerance) || Coincide(arc->Start, arc->End);
  }
  return false;
}

template <class Traits>
void ClearPointLike(typename Traits::List& list, bool clearLines, bool clearArcs) {
  auto kept = list.begin();
  for (auto* const element : list) {
    if (IsPointLike<Traits>(element, clearLines, clearArcs)) {
      delete element;
    } else {
      *kept++ = element;
    }
  }
  list.erase(kept, list.end());
}

// Connections

/// Makes the end of `a` and the start of `b` one point where they nearly are. A line gives way to
/// an arc, so that starts of arcs, from which the radius is measured, stay where they are.
template <class Traits>
void FixConnection(typename Traits::Element* a, typename Traits::Element* b) {
  auto* const lineA = LineOf<Traits>(a);
  auto* const arcA = ArcOf<Traits>(a);
  auto* const lineB = LineOf<Traits>(b);
  auto* const arcB = ArcOf<Traits>(b);
  if ((lineA == nullptr && arcA == nullptr) || (lineB == nullptr && arcB == nullptr)) return;
  auto& end = lineA != nullptr ? lineA->End : arcA->End;
  auto& start = lineB != nullptr ? lineB->Start : arcB->Start;
  if (!Coincide(end, start)) return;
  if (lineB != nullptr) {
    start = end;
  } else {
    end = start;
  }
}

template <class Traits>
void FixAllConnections(typename Traits::List& list) {
  if (list.size() < 2) return;
  for (std::size_t i = 0; i < list.size(); ++i) {
    FixConnection<Traits>(list[i], list[i + 1 < list.size() ? i + 1 : 0]);
  }
}

// Merging an element into the next

/// Parameter at which a line ends.
inline constexpr double kLineEnd = 1.0;

/// Whether `b` goes on where `a` ends and all of it lies nearer than `tolerance` to the carrier of
/// `a`, strictly.
template <class Line>
bool RunsAlong(const Line& a, const Line& b, double tolerance) {
  return Coincide(a.End, b.Start) && InLine(Plain(a.Start), Plain(a.End), Plain(b.End), tolerance);
}

/// Where `b` doubles back over `a`, lets it lead from the start of `a` to its own end; also when
/// that lies behind the start of `a`. True when `a` is to go.
template <class Traits>
bool MergeFold(typename Traits::Element* a, typename Traits::Element* b) {
  const auto* const first = LineOf<Traits>(a);
  auto* const second = LineOf<Traits>(b);
  if (first == nullptr || second == nullptr) return false;
  if (!RunsAlong(*first, *second, Traits::kFoldTolerance)) return false;
  if (!(GXGeometry::PointParametricOnLine(second->End, *first) < kLineEnd)) return false;
  second->Start = first->Start;
  return true;
}

/// Where `b` goes straight on from `a`, lets it start where `a` does. True when `a` is to go.
template <class Traits>
bool StitchLines(const typename Traits::Line& a, typename Traits::Line& b) {
  if (!RunsAlong(a, b, kOnElementTolerance)) return false;
  if (!(GXGeometry::PointParametricOnLine(b.End, a) > kLineEnd)) return false;
  b.Start = a.Start;
  return true;
}

/// Joins two arcs about one center that meet. A single point of `b` is set and its mid never: hosts
/// rely on the arcs that come of it, one whose start is its end included. True when `a` is to go.
template <class Traits>
bool StitchArcs(const typename Traits::Arc& a, typename Traits::Arc& b) {
  if (!Coincide(a.Center, b.Center)) return false;
  if (!GXMath::AlmostEq(a.Radius(), b.Radius(), kRadiusTolerance)) return false;
  if (a.IsCircle()) {
    b.Start = a.Start;
    b.Mid = a.Mid;
    b.End = a.End;
    b.Center = a.Center;
    return true;
  }
  if (b.IsCircle()) return true;

  const Sense sense = Traits::SenseOf(a, b);
  if (sense == Sense::kNeither) return false;
  const bool isSame = sense == Sense::kSame;
  const auto& joint = isSame ? b.Start : b.End;
  const auto& farEnd = isSame ? b.End : b.Start;
  if (!Coincide(a.End, joint)) return false;
  if (Coincide(farEnd, a.Start)) {
    b.End = b.Mid;
  } else {
    b.Start = isSame ? a.Start : a.End;
  }
  return true;
}

template <class Traits>
bool MergeStraightOn(typename Traits::Element* a, typename Traits::Element* b, bool stitchLines,
                     bool stitchArcs) {
  const auto* const lineA = stitchLines ? LineOf<Traits>(a) : nullptr;
  auto* const lineB = stitchLines ? LineOf<Traits>(b) : nullptr;
  if (lineA != nullptr && lineB != nullptr) return StitchLines<Traits>(*lineA, *lineB);
  const auto* const arcA = stitchArcs ? ArcOf<Traits>(a) : nullptr;
  auto* const arcB = stitchArcs ? ArcOf<Traits>(b) : nullptr;
  return arcA != nullptr && arcB != nullptr && StitchArcs<Traits>(*arcA, *arcB);
}

/// Walks over the list and destroys each element that `merge(element, next)` has merged into the
/// next one, behind the last of which stands the first. A single element has none.
template <class List, class Merge>
void MergeIntoNext(List& list, Merge merge) {
  // What stays stands before `kept`, what is still to come from `it` on.
  auto kept = list.begin();
  for (auto it = list.begin(); it != list.end(); ++it) {
    const auto next = std::next(it);
    const bool isLast = next == list.end();
    const bool isAlone = isLast && kept == list.begin();
    if (!isAlone && merge(*it, isLast ? list.front() : *next)) {
      delete *it;
    } else {
      *kept++ = *it;
    }
  }
  list.erase(kept, list.end());
}

template <class Traits>
void MergeFolds(typename Traits::List& list) {
  MergeIntoNext(list, [](auto* a, auto* b) { return MergeFold<Traits>(a, b); });
}

template <class Traits>
void StitchAll(typename Traits::List& list, bool stitchLines, bool stitchArcs) {
  MergeIntoNext(list, [stitchLines, stitchArcs](auto* a, auto* b) {
    return MergeStraightOn<Traits>(a, b, stitchLines, stitchArcs);
  });
}

// Loops

/// How far the elements shown so far reach from the double point. Ends are not looked at, since
/// each is the start of the next element.
template <class Traits>
class Reach {
 public:
  explicit Reach(const typename Traits::Point& doublePoint) : from_(Plain(doublePoint)) {}

  double Extent() const { return extent_; }

  void Extend(typename Traits::Element* element) {
    if (element == nullptr) return;
    Extend(Plain(element->GetStartPoint()));
    const auto* const arc = ArcOf<Traits>(element);
    if (arc == nullptr) return;
    // The point of the whole circle that is farthest from the double point.
    const PlainVector center = Plain(arc->Center);
    const double radius = Length(center - Plain(arc->Start));
    const PlainVector farthest = center + Standard(center - from_) * radius;
    if (Traits::IsOnArc(*arc, farthest)) Extend(farthest);
  }

 private:
  void Extend(const PlainVector& p) {
    const double distance = Length(p - from_);
    if (distance > extent_) extent_ = distance;
  }

  PlainVector from_;
  double extent_ = 0.0;
};

/// Loops of a list, dropped in place. What is left of the list stands in two pieces: before `kept_`
/// the elements passed, from `current_` up to `end_` those to come.
///
/// The plain procedure starts again at the front after each loop. Going on behind it is the same:
/// an element is passed when no other starts where it does, and since elements only vanish and
/// starts do not move, that remains so. For the same reason nothing in front of the current element
/// has to be held against it, and the first match on the way round is the first one behind it. When
/// all but the loop behind the current element vanishes, that loop holds no further match for it,
/// or the match would have been found sooner.
template <class Traits>
class LoopRemoval {
 public:
  explicit LoopRemoval(typename Traits::List& list) : list_(list), end_(list.size()) {}

  void Run() {
    if (list_.size() < kIndexThreshold) {
      RunWith([this] { return FindByWalk(); });
    } else {
      BuildIndex();
      RunWith([this] { return FindByIndex(); });
    }
    MoveTogether();
  }

 private:
  using Index = EndPointIndex<Traits::kDimension>;

  /// Number of elements from which the index pays.
  static constexpr std::size_t kIndexThreshold = 64;
  static constexpr std::size_t kNone = Index::kNone;

  template <class Find>
  void RunWith(Find find) {
    while (current_ < end_ && kept_ + (end_ - current_) >= 2) {
      const std::size_t again = find();
      if (again == kNone) {
        Drop(current_);
        list_[kept_++] = list_[current_++];
      } else if (IsFirstLoopSmaller(again)) {
        Destroy(current_, again);
        current_ = again;
      } else {
        Destroy(again, end_);
        Destroy(0, kept_);
        end_ = again;
        kept_ = 0;
      }
    }
  }

  void BuildIndex() {
    index_.emplace(list_.size());
    for (std::size_t i = list_.size(); i-- > 0;) {
      if (list_[i] != nullptr) index_->Add(i, Traits::Place(list_[i]->GetStartPoint()));
    }
  }

  /// The next element that starts where the current one does.
  std::size_t FindByWalk() const {
    auto* const element = list_[current_];
    if (element == nullptr) return kNone;
    const auto& start = element->GetStartPoint();
    for (std::size_t i = current_ + 1; i < end_; ++i) {
      if (list_[i] != nullptr && Coincide(list_[i]->GetStartPoint(), start)) return i;
    }
    return kNone;
  }

  std::size_t FindByIndex() {
    if (list_[current_] == nullptr) return kNone;
    Drop(current_);
    return index_->First(Traits::Place(list_[current_]->GetStartPoint()));
  }

  void Drop(std::size_t position) {
    if (index_) index_->Drop(position);
  }

  /// Whether the loop from the current element up to `again` reaches less far than the rest. Both
  /// are measured in step and no further than it takes to tell: the one that is measured out has
  /// lost when the other is already beyond it.
  bool IsFirstLoopSmaller(std::size_t again) const {
    const auto& start = list_[current_]->GetStartPoint();
    Reach<Traits> first(start);
    Reach<Traits> rest(start);
    std::size_t inFirst = current_;
    std::size_t inRest = 0;
    const std::size_t restSize = (end_ - again) + kept_;
    for (;;) {
      if (inFirst == again) {
        if (first.Extent() < rest.Extent()) return true;
      } else {
        first.Extend(list_[inFirst++]);
      }
      if (inRest == restSize) {
        if (!(first.Extent() < rest.Extent())) return false;
      } else {
        rest.Extend(list_[RestAt(again, inRest++)]);
      }
    }
  }

  /// Position of the element at `step` on the way from `again` round to the current element.
  std::size_t RestAt(std::size_t again, std::size_t step) const {
    const std::size_t ahead = end_ - again;
    return step < ahead ? again + step : step - ahead;
  }

  void Destroy(std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) {
      Drop(i);
      delete list_[i];
    }
  }

  void MoveTogether() {
    const auto at = [this](std::size_t i) {
      return list_.begin() + static_cast<typename Traits::List::difference_type>(i);
    };
    list_.erase(std::move(at(current_), at(end_), at(kept_)), list_.end());
  }

  typename Traits::List& list_;
  std::size_t kept_ = 0;
  std::size_t current_ = 0;
  std::size_t end_;
  std::optional<Index> index_;
};

}  // namespace ktrcl_internal
