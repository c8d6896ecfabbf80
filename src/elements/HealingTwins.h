// Contour healing, once for the flat and the spatial list. `Flat` and `Spatial` name the types and
// hold every deliberate difference between the twins; the procedures below them are common.
// Chaining and the search for duplicates have headers of their own.
#pragma once

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "foundation/Tolerance.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <deque>
#include <iterator>
#include <memory>
#include <vector>

namespace ktrcl_internal {

/// What two elements have in common, seen from the first one.
enum class Joint { kNone, kElsewhere, kAtEnd };

/// The 2D side of the twins.
struct Flat {
  using Element = GX2DElement;
  using Point = GX2DPoint;
  using Line = GX2DLine;
  using Arc = GX2DArc;
  using List = GX2DElmList;
  static constexpr std::size_t kDimension = 2;

  static std::array<double, 2> Place(const Point& p) { return {p.X, p.Y}; }
  static bool IsFinite(const Point& p) { return std::isfinite(p.X) && std::isfinite(p.Y); }

  /// Only the one common point that is reported first is held against `end`.
  static Joint FindJoint(Element* current, Element* candidate, const Point* end, Point& common) {
    if (!GXGeometry::GetCommon2DPoint(current, candidate, common)) return Joint::kNone;
    if (end == nullptr || !end->IsAlmostEq(common, kLengthTolerance)) return Joint::kElsewhere;
    return Joint::kAtEnd;
  }

  /// The flat form tries the first element's end before its start.
  static void FindCommonPoint(Element* first, Element* second, Point& common) {
    GXGeometry::GetCommon2DPoint(first, second, common);
  }

  static int PointOnClosedLine(const Line& line, const Point& p) {
    return GXGeometry::Point2DOnClosedLine(line, p);
  }

  /// Flat corners are repaired outwards: away from the neighbour, beyond `p`.
  static GXVector RepairVector(const Point& p, const Point& farEnd) { return GXVector(farEnd, p); }

  /// Two elements are closed by the general rule.
  static bool HasOwnRuleForTwo() { return false; }
};

/// The 3D side of the twins.
struct Spatial {
  using Element = GX3DElement;
  using Point = GX3DPoint;
  using Line = GX3DLine;
  using Arc = GX3DArc;
  using List = GX3DElmList;
  static constexpr std::size_t kDimension = 3;

  static std::array<double, 3> Place(const Point& p) { return {p.X, p.Y, p.Z}; }
  static bool IsFinite(const Point& p) {
    return std::isfinite(p.X) && std::isfinite(p.Y) && std::isfinite(p.Z);
  }

  /// Every common point is held against `end`; the first that agrees counts.
  static Joint FindJoint(Element* current, Element* candidate, const Point* end, Point& common) {
    GX3DPointList shared;
    if (!GXGeometry::GetCommon3DPoints(current, candidate, shared)) return Joint::kNone;
    if (end == nullptr) return Joint::kElsewhere;
    for (const Point& p : shared) {
      if (!end->IsAlmostEq(p, kLengthTolerance)) continue;
      common = p;
      return Joint::kAtEnd;
    }
    return Joint::kElsewhere;
  }

  /// The spatial form tries the first element's start before its end.
  static void FindCommonPoint(Element* first, Element* second, Point& common) {
    GXGeometry::GetCommon3DPoint(first, second, common);
  }

  static int PointOnClosedLine(const Line& line, const Point& p) {
    return GXGeometry::Point3DOnClosedLine(line, p);
  }

  /// Spatial corners are repaired inwards: from `p` along the neighbour.
  static GXVector RepairVector(const Point& p, const Point& farEnd) { return GXVector(p, farEnd); }

  /// Two elements are closed by a table of their own.
  static bool HasOwnRuleForTwo() { return true; }
};

// Kinds and ends

template <typename Traits>
bool IsPoint(typename Traits::Element* element) {
  return dynamic_cast<typename Traits::Point*>(element) != nullptr;
}

template <typename Traits>
typename Traits::Line* AsLine(typename Traits::Element* element) {
  return dynamic_cast<typename Traits::Line*>(element);
}

template <typename Traits>
typename Traits::Arc* AsArc(typename Traits::Element* element) {
  return dynamic_cast<typename Traits::Arc*>(element);
}

/// Whether an element is a line or an arc; null is neither.
template <typename Traits>
bool IsSegment(typename Traits::Element* element) {
  return AsLine<Traits>(element) != nullptr || AsArc<Traits>(element) != nullptr;
}

template <typename Point>
bool Meet(const Point& a, const Point& b) {
  return a.IsAlmostEq(b, kLengthTolerance);
}

/// Exchanges the ends of a line or an arc; leaves other kinds alone.
template <typename Traits>
void TurnRound(typename Traits::Element* element) {
  if (auto* const line = AsLine<Traits>(element)) {
    line->SwapPoints();
  } else if (auto* const arc = AsArc<Traits>(element)) {
    arc->SwapPoints();
  }
}

// Removal

/// Destroys and erases, from the front on, the entries that `isUnwanted` picks.
template <typename List, typename Predicate>
void DestroyIf(List& list, Predicate isUnwanted) {
  auto kept = list.begin();
  for (auto* const element : list) {
    if (isUnwanted(element)) {
      delete element;
    } else {
      *kept++ = element;
    }
  }
  list.erase(kept, list.end());
}

// Snapping

/// Copies `from` onto `to` where the two meet.
template <typename Point>
bool SnapTo(const Point& from, Point& to) {
  if (!Meet(from, to)) return false;
  to = from;
  return true;
}

/// Moves ends of `next` onto those of `element`. For a point both ends are the point itself, so
/// that one order of tests serves all kinds.
template <typename Traits>
void SnapNeighbours(typename Traits::Element* element, typename Traits::Element* next) {
  if (!IsSegment<Traits>(element) && !IsPoint<Traits>(element)) return;
  if (!IsSegment<Traits>(next) && !IsPoint<Traits>(next)) return;
  auto& start = element->GetStartPoint();
  auto& end = element->GetEndPoint();
  auto& nextStart = next->GetStartPoint();
  auto& nextEnd = next->GetEndPoint();
  const bool startSnapped = SnapTo(start, nextStart) || SnapTo(start, nextEnd);
  // Two elements may share both ends when the later one is an arc; any other is moved at one end.
  if (startSnapped && AsArc<Traits>(next) == nullptr) return;
  if (!SnapTo(end, nextStart)) SnapTo(end, nextEnd);
}

template <typename Traits>
void SnapAll(typename Traits::List& list) {
  for (std::size_t i = 0; i < list.size(); ++i) {
    SnapNeighbours<Traits>(list[i], list[i + 1 < list.size() ? i + 1 : 0]);
  }
}

// Closing

/// Whether a new line is to lead from `element` to `next`. Ends that are not finite are never
/// bridged: the bridge would not close the gap.
template <typename Traits>
bool HasGap(typename Traits::Element* element, typename Traits::Element* next) {
  if (!IsSegment<Traits>(element) || !IsSegment<Traits>(next)) return false;
  const bool isLineToArc = AsLine<Traits>(element) != nullptr && AsArc<Traits>(next) != nullptr;
  // Between a line and an arc the line's start decides, though the bridge leaves from its end.
  auto& compared = isLineToArc ? element->GetStartPoint() : element->GetEndPoint();
  if (Meet(compared, next->GetStartPoint())) return false;
  return Traits::IsFinite(element->GetEndPoint()) && Traits::IsFinite(next->GetStartPoint());
}

/// New lines on their way into a list, which are destroyed should they not get there.
template <typename Traits>
using Bridges = std::vector<std::unique_ptr<typename Traits::Line>>;

/// Appends to `sequence` the lines that lead from `element` to `next`. There are up to two: a
/// bridge in front of an arc starts away from it, so a line of length zero follows by the rule
/// above.
template <typename Traits>
void Bridge(typename Traits::Element* element, typename Traits::Element* next,
            std::deque<typename Traits::Element*>& sequence, Bridges<Traits>& bridges) {
  while (HasGap<Traits>(element, next)) {
    bridges.push_back(
        std::make_unique<typename Traits::Line>(element->GetEndPoint(), next->GetStartPoint()));
    element = bridges.back().get();
    sequence.push_back(element);
  }
}

/// Bridges every gap of the cyclic sequence. The lines from the last element to the first land at
/// the front, since each stands before the element to which it leads.
template <typename Traits>
void BridgeGaps(typename Traits::List& list) {
  if (list.empty()) return;
  using Sequence = std::deque<typename Traits::Element*>;
  Bridges<Traits> bridges;
  Sequence closed;
  Bridge<Traits>(list.back(), list.front(), closed, bridges);
  for (std::size_t i = 0; i < list.size(); ++i) {
    closed.push_back(list[i]);
    if (i + 1 < list.size()) Bridge<Traits>(list[i], list[i + 1], closed, bridges);
  }
  static_cast<Sequence&>(list).swap(closed);
  for (auto& line : bridges) line.release();
}

/// The segment from start to end of a line or arc; a line at the origin for other kinds.
template <typename Traits>
typename Traits::Line Chord(typename Traits::Element* element) {
  if (!IsSegment<Traits>(element)) return typename Traits::Line();
  return typename Traits::Line(element->GetStartPoint(), element->GetEndPoint());
}

/// The end of an outer segment that its inner neighbour does not share.
template <typename Traits>
typename Traits::Point FreeEnd(typename Traits::Line outer, typename Traits::Line inner) {
  // Without a common point the ends are held against the origin.
  typename Traits::Point common;
  Traits::FindCommonPoint(&outer, &inner, common);
  return Meet(outer.Start, common) ? outer.End : outer.Start;
}

template <typename Traits>
void InsertLine(typename Traits::List& list, typename Traits::List::iterator position,
                const typename Traits::Point& start, const typename Traits::Point& end) {
  auto line = std::make_unique<typename Traits::Line>(start, end);
  list.insert(position, line.get());
  line.release();
}

/// Closes two elements, by the table of the spatial list.
template <typename Traits>
void CloseTwo(typename Traits::List& list) {
  const auto x = Chord<Traits>(list[0]);
  const auto y = Chord<Traits>(list[1]);
  const bool startStart = Meet(x.Start, y.Start);
  const bool endEnd = Meet(x.End, y.End);
  const bool startEnd = Meet(x.Start, y.End);
  const bool endStart = Meet(x.End, y.Start);
  if (startStart && !endEnd) {
    InsertLine<Traits>(list, list.end(), y.End, x.End);
  } else if (endEnd && !startStart) {
    InsertLine<Traits>(list, list.end(), y.Start, x.Start);
  } else if (endStart && !startEnd) {
    InsertLine<Traits>(list, list.end(), y.End, x.Start);
  } else if (!endStart && (startEnd || !startStart)) {
    // Two that are apart at both ends come here as well (start-start and end-end agree by now):
    // only the gap between them is bridged.
    InsertLine<Traits>(list, std::next(list.begin()), x.End, y.Start);
  }
}

/// Closes an open chain with one line at the back. Elements need not all run the same way.
template <typename Traits>
void CloseBeginEnd(typename Traits::List& list) {
  if (list.size() < 2) return;
  if (list.size() == 2 && Traits::HasOwnRuleForTwo()) return CloseTwo<Traits>(list);
  const auto first = FreeEnd<Traits>(Chord<Traits>(list[0]), Chord<Traits>(list[1]));
  const auto last =
      FreeEnd<Traits>(Chord<Traits>(list[list.size() - 1]), Chord<Traits>(list[list.size() - 2]));
  if (!Meet(first, last)) InsertLine<Traits>(list, list.end(), last, first);
}

// Repair of folds
//
//        far end of b
//   +---------+===================+  common end: b lies along a
//   far end of a

/// The far ends of two lines that share an end.
template <typename Traits>
struct FarEnds {
  typename Traits::Point a;
  typename Traits::Point b;
};

template <typename Traits>
bool FindFarEnds(const typename Traits::Line& a, const typename Traits::Line& b,
                 FarEnds<Traits>& far) {
  if (Meet(a.Start, b.Start)) {
    far = {a.End, b.End};
  } else if (Meet(a.Start, b.End)) {
    far = {a.End, b.Start};
  } else if (Meet(a.End, b.Start)) {
    far = {a.Start, b.End};
  } else if (Meet(a.End, b.End)) {
    far = {a.Start, b.Start};
  } else {
    return false;
  }
  return true;
}

/// Whether one line lies along the other. A far end on an end of the other line makes no fold.
template <typename Traits>
bool IsFold(const typename Traits::Line& a, const typename Traits::Line& b,
            const FarEnds<Traits>& far) {
  constexpr int kStrictlyInside = 1;
  return Traits::PointOnClosedLine(a, far.b) == kStrictlyInside ||
         Traits::PointOnClosedLine(b, far.a) == kStrictlyInside;
}

/// Hands each fold of consecutive lines to `modify(line, neighbour, far end, fraction)`. The pair
/// of last and first is not looked at.
template <typename Traits, typename Modify>
void RepairFolds(typename Traits::List& list, double fraction, Modify modify) {
  for (std::size_t i = 0; i + 1 < list.size(); ++i) {
    auto* const a = AsLine<Traits>(list[i]);
    auto* const b = AsLine<Traits>(list[i + 1]);
    FarEnds<Traits> far;
    if (a == nullptr || b == nullptr || !FindFarEnds<Traits>(*a, *b, far)) continue;
    if (!IsFold<Traits>(*a, *b, far)) continue;
    // The shorter line gives way, the earlier one when they are equally long.
    const bool moveB = GXVector(*a).Len() > GXVector(*b).Len();
    const std::size_t beside = (moveB ? i + 2 : i + list.size() - 1) % list.size();
    auto* const neighbour = AsLine<Traits>(list[beside]);
    if (neighbour != nullptr) modify(moveB ? *b : *a, *neighbour, moveB ? far.b : far.a, fraction);
  }
}

/// Moves the joint of a line and its neighbour along the neighbour.
/// `p` and `fraction` come by value: they may belong to the lines that are changed.
template <typename Traits>
void MoveJoint(typename Traits::Line& line, typename Traits::Line& neighbour,
               typename Traits::Point p, double fraction) {
  const bool atNeighbourStart = Meet(p, neighbour.Start);
  const bool atLineStart = Meet(p, line.Start);
  const GXVector v = Traits::RepairVector(p, atNeighbourStart ? neighbour.End : neighbour.Start);
  if (!(v.Len() > kLengthTolerance)) return;
  const typename Traits::Point moved = p + v * fraction;
  (atNeighbourStart ? neighbour.Start : neighbour.End) = moved;
  (atLineStart ? line.Start : line.End) = moved;
}

}  // namespace ktrcl_internal
