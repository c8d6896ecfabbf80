// What hosts ask of the ring: extremes, levels and crossings on a stretch of it.
#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "contour/SurroundIndex.h"
#include "elements/ElementSequences.h"
#include "foundation/Tolerance.h"

#include <cmath>
#include <limits>
#include <memory>

using ktrcl_internal::kParameterTolerance;
using ktrcl_internal::PlaceOf;
using ktrcl_internal::PushOwned;

namespace {

using Vertex = GX2DSurroundPolygon::iterator;

/// Vertices whose heights differ by no more, in length units, are on one level.
constexpr double kHeightTolerance = 0.00001;

bool AreLevel(double y1, double y2) { return GXMath::AlmostEq(y1, y2, kHeightTolerance); }

bool IsHigher(double y1, double y2) { return GXMath::GreaterNotAlmostEq(y1, y2, kHeightTolerance); }

/// A stretch of the ring, held by value: outputs of a query may be the variables it was told by.
struct Stretch {
  Stretch(GX2DSurroundPolygon& ring, Vertex firstVertex, Vertex lastVertex, bool isWhole)
      : begin(ring.begin()),
        end(ring.end()),
        first(firstVertex),
        last(lastVertex),
        goesRound(isWhole && firstVertex == lastVertex) {}

  bool IsEmpty() const { return first == last && !goesRound; }

  /// Where a step forward leads to. A last that is the end of the vector stops the walk there.
  Vertex Next(Vertex it) const {
    ++it;
    return it == end && last != end ? begin : it;
  }

  Vertex begin;
  Vertex end;
  Vertex first;
  Vertex last;
  bool goesRound;
};

/// Calls `visit` with each vertex from `from` on and its position. Vertices that a host left
/// without a position are passed over.
template <class Visit>
void WalkFrom(const Stretch& stretch, Vertex from, Visit visit) {
  bool mayStandOnLast = stretch.goesRound;
  for (Vertex it = from; it != stretch.end && (mayStandOnLast || it != stretch.last);
       it = stretch.Next(it)) {
    mayStandOnLast = false;
    if (const GX2DPoint* const place = PlaceOf(*it)) visit(it, *place);
  }
}

template <class Visit>
void Walk(const Stretch& stretch, Visit visit) {
  WalkFrom(stretch, stretch.first, visit);
}

/// The vertex that beats all before it; the end for an empty stretch. A NaN beats nothing.
template <class IsBetter>
Vertex BestInX(const Stretch& stretch, IsBetter isBetter) {
  Vertex best = stretch.end;
  double bestX = 0.0;
  Walk(stretch, [&](Vertex it, const GX2DPoint& place) {
    if (best == stretch.end ? std::isnan(place.X) : !isBetter(place.X, bestX)) return;
    best = it;
    bestX = place.X;
  });
  return best;
}

struct LevelEnds {
  Vertex left;
  Vertex right;
};

/// Leftmost and rightmost vertex of the level that `isBeyond` prefers. `worst` is the level to
/// begin with, at which there is nothing.
template <class IsBeyond>
LevelEnds EndsOfLevel(const Stretch& stretch, double worst, IsBeyond isBeyond) {
  LevelEnds ends = {stretch.end, stretch.end};
  double level = worst;
  double leftX = 0.0;
  double rightX = 0.0;
  Walk(stretch, [&](Vertex it, const GX2DPoint& place) {
    const bool isOnLevel = AreLevel(place.Y, level);
    if (!isOnLevel && !isBeyond(place.Y, level)) return;
    const bool isFirst = !isOnLevel || ends.left == stretch.end;
    if (isFirst || place.X < leftX) {
      ends.left = it;
      leftX = place.X;
      // The level follows the left vertex alone, so that a slanted run can creep.
      level = place.Y;
    }
    if (isFirst || place.X > rightX) {
      ends.right = it;
      rightX = place.X;
    }
  });
  return ends;
}

/// The highest vertex that `isOnSide`, and of those on its level the one that `isNearer` prefers.
template <class IsOnSide, class IsNearer>
Vertex HighestOnSide(const Stretch& stretch, IsOnSide isOnSide, IsNearer isNearer) {
  Vertex best = stretch.end;
  GX2DPoint bestPlace;
  Walk(stretch, [&](Vertex it, const GX2DPoint& place) {
    if (!isOnSide(place.X)) return;
    const bool isBetter = best == stretch.end
                              ? !std::isnan(place.Y)
                              : IsHigher(place.Y, bestPlace.Y) || (AreLevel(place.Y, bestPlace.Y) &&
                                                                   isNearer(place.X, bestPlace.X));
    if (!isBetter) return;
    best = it;
    bestPlace = place;
  });
  return best;
}

bool IsLess(double a, double b) { return a < b; }
bool IsGreater(double a, double b) { return a > b; }

// Level ends of a stretch

/// A height that is level with nothing where a vertex has no position.
double HeightOf(const GX2DSurroundPoint* vertex) {
  const GX2DPoint* const place = PlaceOf(vertex);
  return place ? place->Y : std::numeric_limits<double>::quiet_NaN();
}

/// Where a walk from `from` first leaves its level, or `stop`, if it comes there before. The stop
/// may be the end of the vector, which the walk passes on its way to the beginning.
Vertex EndOfRunForward(const Stretch& ring, Vertex from, Vertex stop) {
  const double height = HeightOf(*from);
  Vertex it = from;
  do {
    ++it;
    if (it == stop) break;
    if (it == ring.end) it = ring.begin;
  } while (it != stop && AreLevel(HeightOf(*it), height));
  return it;
}

/// The same backward. Here the end of the vector comes between the beginning and the last vertex.
Vertex EndOfRunBackward(const Stretch& ring, Vertex from, Vertex stop) {
  const double height = HeightOf(*from);
  Vertex it = from;
  do {
    if (it == ring.begin) it = ring.end;
    if (it == stop) break;
    --it;
  } while (it != stop && AreLevel(HeightOf(*it), height));
  return it;
}

}  // namespace

bool GX2DSurroundPolygon::GetTopMaxRightLeftFromX(iterator& first, iterator& last,
                                                  const bool& whole, iterator& result,
                                                  const double& x) {
  result = HighestOnSide(
      Stretch(*this, first, last, whole), [&x](double vertexX) { return vertexX < x; }, IsGreater);
  return true;
}

bool GX2DSurroundPolygon::GetTopMinLeftRightFromX(iterator& first, iterator& last,
                                                  const bool& whole, iterator& result,
                                                  const double& x) {
  result = HighestOnSide(
      Stretch(*this, first, last, whole), [&x](double vertexX) { return vertexX > x; }, IsLess);
  return true;
}

bool GX2DSurroundPolygon::GetTopMinLeftMaxRight(iterator& first, iterator& last, const bool& whole,
                                                iterator& left, iterator& right) {
  const LevelEnds ends = EndsOfLevel(Stretch(*this, first, last, whole),
                                     std::numeric_limits<double>::lowest(), IsHigher);
  left = ends.left;
  right = ends.right;
  return true;
}

bool GX2DSurroundPolygon::GetMinLeft(iterator& first, iterator& last, const bool& whole,
                                     iterator& result) {
  result = BestInX(Stretch(*this, first, last, whole), IsLess);
  return true;
}

bool GX2DSurroundPolygon::GetMaxRight(iterator& first, iterator& last, const bool& whole,
                                      iterator& result) {
  result = BestInX(Stretch(*this, first, last, whole), IsGreater);
  return true;
}

bool GX2DSurroundPolygon::GetBottomMinLeftMaxRight(iterator& first, iterator& last,
                                                   const bool& whole, iterator& left,
                                                   iterator& right) {
  const auto isLower = [](double y1, double y2) {
    return GXMath::LessNotAlmostEq(y1, y2, kHeightTolerance);
  };
  const LevelEnds ends =
      EndsOfLevel(Stretch(*this, first, last, whole), std::numeric_limits<double>::max(), isLower);
  left = ends.left;
  right = ends.right;
  return true;
}

bool GX2DSurroundPolygon::GetTrimEqualInY(iterator& first, iterator& last) {
  if (empty()) return true;
  const Stretch ring(*this, first, last, false);
  const Vertex from = first == end() ? begin() : first;
  const Vertex to = last == end() ? begin() : last;

  const Vertex behindFirst = EndOfRunForward(ring, from, to + 1);
  const Vertex newFirst = (behindFirst == begin() ? end() : behindFirst) - 1;

  // Starting on the stop, `last` is all there is of the run.
  const Vertex stop = newFirst + 1;
  Vertex newLast = to;
  if (to != stop) {
    const Vertex beforeLast = EndOfRunBackward(ring, to, stop);
    // The end stands for the beginning here, as it does where it is `last`.
    newLast = (beforeLast == end() ? begin() : beforeLast) + 1;
    if (newLast == end() && beforeLast != end()) newLast = begin();
  }
  first = newFirst;
  last = newLast;
  return true;
}

bool GX2DSurroundPolygon::GetMinLeftMaxRightAtY(const double& y, iterator& first, iterator& last,
                                                const bool& whole, double& minX, double& maxX) {
  const double level = y;
  double smallest = std::numeric_limits<double>::max();
  double largest = std::numeric_limits<double>::lowest();
  const auto widen = [&](double x) {
    if (x < smallest) smallest = x;
    if (x > largest) largest = x;
  };
  const auto areOnOppositeSides = [level](double y1, double y2) {
    return (IsHigher(y1, level) && IsHigher(level, y2)) ||
           (IsHigher(y2, level) && IsHigher(level, y1));
  };

  const GX2DPoint* previous = nullptr;
  Walk(Stretch(*this, first, last, whole), [&](Vertex, const GX2DPoint& place) {
    if (AreLevel(place.Y, level)) {
      widen(place.X);
    } else if (previous && areOnOppositeSides(previous->Y, place.Y)) {
      widen((level - place.Y) * (previous->X - place.X) / (previous->Y - place.Y) + place.X);
    }
    previous = &place;
  });
  minX = smallest;
  maxX = largest;
  return !empty();
}

bool GX2DSurroundPolygon::GetConstrLineIntersection(iterator& first, iterator& last,
                                                    const bool& whole, const GX2DLine& line,
                                                    GX2DElmList& hits) {
  if (size() < 2) return false;
  const Vertex start = first == end() ? begin() : first;
  const Stretch stretch(*this, start, last, whole);
  const GX2DPoint* from = PlaceOf(*start);
  const auto cutSegmentTo = [&](Vertex, const GX2DPoint& to) {
    const GX2DPoint* const segmentStart = from;
    from = &to;
    if (!segmentStart) return;
    const GX2DLine segment(*segmentStart, to);
    GX2DPoint hit;
    if (!GXGeometry::Get2DLineIntersection(line, segment, hit)) return;
    const double t = GXGeometry::PointParametricOnLine(hit, segment);
    if (GXMath::AlmostEqOrGreater(t, 0.0, kParameterTolerance) &&
        GXMath::AlmostEqOrLess(t, 1.0, kParameterTolerance)) {
      PushOwned(hits, std::make_unique<GX2DPoint>(hit));
    }
  };

  // Behind the last vertex the walk begins at the first one, also where `last` is the end.
  const Vertex second = start + 1 == end() ? begin() : start + 1;
  if (!stretch.IsEmpty()) WalkFrom(stretch, second, cutSegmentTo);
  // The segment that closes the stretch; of an empty one, that of length zero.
  if (last != end()) {
    if (const GX2DPoint* const to = PlaceOf(*last)) cutSegmentTo(last, *to);
  }
  return !hits.empty();
}
