// The scan that places a point to a closed contour: a level line through the point, crossings left
// and right of it counted apart. `PlacePointPlainly` looks at every element; the exported form
// leaves out those that cannot contribute and has to give the same answer.
#pragma once

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "contour/ElementKind.h"
#include "elements/PlaneSelector.h"
#include "foundation/Tolerance.h"

#include <array>
#include <cstddef>
#include <limits>

namespace ktrcl_internal {

using PointPlace = GXGeometry::ePointInContourResult;

/// The point at a share of an arc, on the arc promoted to space; the origin where there is none.
inline GX2DPoint PointAtShare(const GX3DArc& arc, double share) {
  GX3DPoint point;
  GXGeometry::GetParametricPointOn3DArc(point, share, arc);
  return GX2DPoint(point, kLeftOutZ);
}

/// The arc of a list that holds one full circle and nothing else; else null.
inline const GX2DArc* LoneCircle(const GX2DElmList& contour) {
  if (contour.size() != 1 || KindOf(contour.front()) != PrimitiveKind::kArc) return nullptr;
  const auto* const arc = static_cast<const GX2DArc*>(contour.front());
  return arc->IsCircle() ? arc : nullptr;
}

/// Place of a point to a full circle.
inline PointPlace PlaceInCircle(const GX2DArc& circle, const GX2DPoint& p) {
  // An area: the band is the narrower the larger the circle is.
  constexpr double kSquaredBand = 0.00001;
  const double dx = p.X - circle.Center.X;
  const double dy = p.Y - circle.Center.Y;
  const double radius = circle.Radius();
  const double beyond = dx * dx + dy * dy - radius * radius;
  if (GXMath::AlmostEq(beyond, 0.0, kSquaredBand)) return GXGeometry::ePointOnContour;
  const bool isOutside = GXMath::GreaterNotAlmostEq(beyond, 0.0, kSquaredBand);
  return isOutside ? GXGeometry::ePointOutsideContour : GXGeometry::ePointInsideContour;
}

/// Place of a point to a rectangle that is a contour by itself.
inline PointPlace PlaceInRectangle(const GX2DRectangle& rectangle, const GX2DPoint& p) {
  constexpr double kBoxTolerance = 0.00001;
  const double minX = rectangle.GetMinX();
  const double maxX = rectangle.GetMaxX();
  const double minY = rectangle.GetMinY();
  const double maxY = rectangle.GetMaxY();
  const bool isInBox = GXMath::AlmostEqOrLess(minX, p.X, kBoxTolerance) &&
                       GXMath::AlmostEqOrGreater(maxX, p.X, kBoxTolerance) &&
                       GXMath::AlmostEqOrLess(minY, p.Y, kBoxTolerance) &&
                       GXMath::AlmostEqOrGreater(maxY, p.Y, kBoxTolerance);
  if (!isInBox) return GXGeometry::ePointOutsideContour;
  const std::array<GX2DLine, 4> sides = {
      GX2DLine(minX, minY, minX, maxY), GX2DLine(minX, maxY, maxX, maxY),
      GX2DLine(maxX, maxY, maxX, minY), GX2DLine(maxX, minY, minX, minY)};
  for (const GX2DLine& side : sides) {
    if (GXGeometry::Point2DOnClosedLine(side, p) != 0) return GXGeometry::ePointOnContour;
  }
  return GXGeometry::ePointInsideContour;
}

/// One point on its way through the elements of a contour.
class LevelScan {
 public:
  /// What an element means for the walk over the contour.
  enum class Verdict {
    kGoOn,           ///< Counted or passed over.
    kPlaced,         ///< `Place` holds the answer.
    kNotAnswerable,  ///< No contour that can be classified.
  };

  LevelScan(const GX2DElmList& contour, const GX2DPoint& p, double tolerance)
      : size_(contour.size()), p_(p), tolerance_(tolerance), level_(p.X, p.Y, p.X - 50.0, p.Y) {}

  Verdict Visit(const GX2DElement* element) {
    switch (KindOf(element)) {
      case PrimitiveKind::kLine:
        return VisitLine(static_cast<const GX2DLine&>(*element));
      case PrimitiveKind::kArc:
        return VisitArc(static_cast<const GX2DArc&>(*element));
      case PrimitiveKind::kRectangle:
        if (size_ > 1) return Verdict::kNotAnswerable;
        place_ = PlaceInRectangle(static_cast<const GX2DRectangle&>(*element), p_);
        return Verdict::kPlaced;
      case PrimitiveKind::kPoint:
      case PrimitiveKind::kOther:
        break;
    }
    return Verdict::kNotAnswerable;
  }

  PointPlace Place() const { return place_; }

  /// Behind the last element: true with the place, false when the crossings on both sides differ
  /// in parity, as those of a closed contour cannot.
  bool Finish(PointPlace& place) const {
    if ((left_ + right_) % 2 != 0) return false;
    if (left_ % 2 != 0) place = GXGeometry::ePointInsideContour;
    return true;
  }

 private:
  /// A hit that is missing or has been turned down.
  static GX2DPoint NoHit() {
    return GX2DPoint(std::numeric_limits<double>::max(), std::numeric_limits<double>::max());
  }

  bool IsThePoint(const GX2DPoint& hit) const { return hit.IsAlmostEq(p_, tolerance_); }

  Verdict PlaceOnContour() {
    place_ = GXGeometry::ePointOnContour;
    return Verdict::kPlaced;
  }

  /// Whether a way from one height to another counts: one end strictly below the level, the other
  /// at or above it. A vertex on the level is thus counted once where the contour passes through.
  bool Crosses(double y1, double y2) const { return Rises(y1, y2) || Rises(y2, y1); }
  bool Rises(double low, double high) const {
    return GXMath::LessNotAlmostEq(low, p_.Y, tolerance_) &&
           GXMath::AlmostEqOrGreater(high, p_.Y, tolerance_);
  }

  void Count(const GX2DPoint& hit) { ++(p_.X <= hit.X ? right_ : left_); }

  Verdict VisitLine(const GX2DLine& line) {
    GX2DPoint hit;
    if (!GXGeometry::Get2DLineIntersection(level_, line, hit)) {
      // Parallel to the level within the tolerance on slopes: never counted, however it slants.
      return GXGeometry::Point2DOnClosedLine(line, p_) != 0 ? PlaceOnContour() : Verdict::kGoOn;
    }
    if (GXGeometry::Point2DOnClosedLine(line, hit) == 0) return Verdict::kGoOn;
    if (IsThePoint(hit)) return PlaceOnContour();
    if (Crosses(line.Start.Y, line.End.Y)) Count(hit);
    return Verdict::kGoOn;
  }

  Verdict VisitArc(const GX2DArc& arc) {
    const GX2DPoint none = NoHit();
    GX2DPoint first = none;
    GX2DPoint second = none;
    if (!GXGeometry::Get2DLineArcIntersections(level_, arc, first, second)) return Verdict::kGoOn;
    if (!GXGeometry::Point2DOnArc(arc, first)) first = none;
    if (!GXGeometry::Point2DOnArc(arc, second)) second = none;
    const bool hasFirst = first != none;
    const bool hasSecond = second != none;
    if (!hasFirst && !hasSecond) return Verdict::kGoOn;
    // The level only touches the arc: nothing is counted, and even the point that is touched is
    // not taken for one on the contour.
    if (first.IsAlmostEq(second, tolerance_) && !first.IsAlmostEq(arc.Start, kLengthTolerance) &&
        !first.IsAlmostEq(arc.End, kLengthTolerance)) {
      return Verdict::kGoOn;
    }
    if (hasFirst && hasSecond) return CountBoth(arc, first, second);
    return CountOne(arc, hasFirst ? first : second);
  }

  Verdict CountOne(const GX2DArc& arc, const GX2DPoint& hit) {
    if (arc.IsCircle() || !Crosses(arc.Start.Y, arc.End.Y)) return Verdict::kGoOn;
    if (IsThePoint(hit)) return PlaceOnContour();
    Count(hit);
    return Verdict::kGoOn;
  }

  /// Both hits lie on the arc: it is cut into four chords at points between the hits, and each
  /// chord that crosses the level counts a hit.
  Verdict CountBoth(const GX2DArc& arc, const GX2DPoint& first, const GX2DPoint& second) {
    if (IsThePoint(first) || IsThePoint(second)) return PlaceOnContour();
    const double t1 = GXGeometry::PointParametricOnArc(first, arc, false);
    const double t2 = GXGeometry::PointParametricOnArc(second, arc, false);
    const bool inOrder = t1 < t2;
    const GX2DPoint& early = inOrder ? first : second;
    const GX2DPoint& late = inOrder ? second : first;
    const double low = inOrder ? t1 : t2;
    const double high = inOrder ? t2 : t1;

    const GX3DArc spatial(arc, kLeftOutZ);
    const double y1 = PointAtShare(spatial, low * 0.5).Y;
    const double y2 = PointAtShare(spatial, (t1 + t2) * 0.5).Y;
    const double y3 = PointAtShare(spatial, (high + 1.0) * 0.5).Y;
    if (Crosses(arc.Start.Y, y1)) Count(early);
    if (Crosses(y1, y2)) Count(early);
    if (Crosses(y2, y3)) Count(late);
    // The early hit once more and not the late one: hosts know the answers that come of it.
    if (Crosses(y3, arc.IsCircle() ? arc.Start.Y : arc.End.Y)) Count(early);
    return Verdict::kGoOn;
  }

  std::size_t size_;
  const GX2DPoint& p_;
  double tolerance_;
  /// From the point to the left; its length only fixes the direction.
  GX2DLine level_;
  std::size_t left_ = 0;
  std::size_t right_ = 0;
  PointPlace place_ = GXGeometry::ePointOutsideContour;
};

/// The walk over the elements of a contour to which `seek` leads: given an iterator and the end, it
/// answers with the first one from there on that is to be looked at.
template <class Seek>
bool PlacePoint(const GX2DElmList& contour, const GX2DPoint& p, PointPlace& result,
                double tolerance, Seek seek) {
  if (const GX2DArc* const circle = LoneCircle(contour)) {
    result = PlaceInCircle(*circle, p);
    return true;
  }
  result = GXGeometry::ePointOutsideContour;
  LevelScan scan(contour, p, tolerance);
  const auto end = contour.end();
  for (auto it = seek(contour.begin(), end); it != end; it = seek(++it, end)) {
    const LevelScan::Verdict verdict = scan.Visit(*it);
    if (verdict == LevelScan::Verdict::kGoOn) continue;
    result = scan.Place();
    return verdict == LevelScan::Verdict::kPlaced;
  }
  return scan.Finish(result);
}

/// `GXGeometry::IsPointInClosedContour`, every element looked at.
inline bool PlacePointPlainly(const GX2DElmList& contour, const GX2DPoint& p, PointPlace& result,
                              double tolerance) {
  using Iterator = GX2DElmList::const_iterator;
  return PlacePoint(contour, p, result, tolerance,
                    [](const Iterator& it, const Iterator& /*end*/) { return it; });
}

}  // namespace ktrcl_internal
