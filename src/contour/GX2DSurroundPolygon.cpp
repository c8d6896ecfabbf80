// How the ring is built from a contour. What an arc gives lies on the sides of the square around
// its circle:
//
//      sT ------------ corner     The tangents at start (s) and end (e) are cut with the top (T),
//       .   .-''''-.  |           bottom (B), left (L) and right (R) side. What lies in the sweep
//        . '        ' | eR        becomes a vertex, and so do the extreme points of the circle; a
//     start          end          corner only where both tangents pass through it.
#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "contour/ElementKind.h"
#include "contour/SurroundIndex.h"
#include "elements/ElementSequences.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <utility>

using ktrcl_internal::kLengthTolerance;
using ktrcl_internal::kParameterTolerance;
using ktrcl_internal::PushOwned;
using ktrcl_internal::SurroundIndex;

namespace {

using ArcPoints = GX2DSurroundPolygon::ArcPoints;

// Turning elements

/// Turns a line or arc that ends at its joint with the element before.
template <class Element>
void StartAtJoint(Element& element, GX2DElement* previous) {
  // Without a joint the origin stands for it.
  GX2DPoint joint;
  GXGeometry::GetCommon2DPoint(&element, previous, joint);
  if (element.End.IsAlmostEq(joint, kLengthTolerance)) element.SwapPoints();
}

// Candidates of an arc

/// The square around the circle of an arc.
struct Square {
  explicit Square(const GX2DArc& arc) : x(arc.Center.X), y(arc.Center.Y), r(arc.Radius()) {}

  bool Contains(const GX2DPoint& p) const {
    // Length units; beside the square a vertex would not serve to enclose the arc.
    constexpr double kSquareTolerance = 0.00001;
    return GXMath::AlmostEqOrGreater(p.X, x - r, kSquareTolerance) &&
           GXMath::AlmostEqOrLess(p.X, x + r, kSquareTolerance) &&
           GXMath::AlmostEqOrGreater(p.Y, y - r, kSquareTolerance) &&
           GXMath::AlmostEqOrLess(p.Y, y + r, kSquareTolerance);
  }

  double x;
  double y;
  double r;
};

/// Its sides as unbounded lines.
struct SquareSides {
  explicit SquareSides(const Square& s)
      : top(s.x, s.y + s.r, s.x + kAlong, s.y + s.r),
        bottom(s.x, s.y - s.r, s.x + kAlong, s.y - s.r),
        left(s.x - s.r, s.y, s.x - s.r, s.y + kAlong),
        right(s.x + s.r, s.y, s.x + s.r, s.y + kAlong) {}

  // Only there to give the sides a direction.
  static constexpr double kAlong = 100.0;

  GX2DLine top;
  GX2DLine bottom;
  GX2DLine left;
  GX2DLine right;
};

using Crossing = std::optional<GX2DPoint>;

Crossing Crossed(const GX2DLine& tangent, const GX2DLine& side) {
  GX2DPoint hit;
  if (!GXGeometry::Get2DLineIntersection(tangent, side, hit)) return std::nullopt;
  return hit;
}

/// Where a tangent meets the sides; nothing where it runs along one.
struct SideCrossings {
  SideCrossings(const GX2DLine& tangent, const SquareSides& sides)
      : top(Crossed(tangent, sides.top)),
        bottom(Crossed(tangent, sides.bottom)),
        left(Crossed(tangent, sides.left)),
        right(Crossed(tangent, sides.right)) {}

  Crossing top;
  Crossing bottom;
  Crossing left;
  Crossing right;
};

bool Coincide(const Crossing& a, const Crossing& b) {
  return a && b && a->IsAlmostEq(*b, kLengthTolerance);
}

/// Corners of the square that a candidate may stand on.
struct Corners {
  bool topLeft = false;
  bool topRight = false;
  bool bottomLeft = false;
  bool bottomRight = false;
};

/// Offers the crossings of one tangent. One at a corner counts where the tangent at the other end
/// of the arc meets the other side there.
template <class Offer>
void OfferCrossings(const SideCrossings& own, const SideCrossings& other, Offer offer) {
  if (own.top) {
    offer(*own.top, {Coincide(own.top, other.left), Coincide(own.top, other.right), false, false});
  }
  if (own.bottom) {
    offer(*own.bottom,
          {false, false, Coincide(own.bottom, other.left), Coincide(own.bottom, other.right)});
  }
  if (own.left) {
    offer(*own.left,
          {Coincide(own.left, other.top), false, Coincide(own.left, other.bottom), false});
  }
  if (own.right) {
    offer(*own.right,
          {false, Coincide(own.right, other.top), false, Coincide(own.right, other.bottom)});
  }
}

template <class Offer>
void OfferCandidates(const GX2DArc& arc, Offer offer) {
  const Square square(arc);
  const SquareSides sides(square);
  GX2DLine atStart;
  GX2DLine atEnd;
  GXGeometry::GetTangentLineToArcAtStart(arc, atStart);
  GXGeometry::GetTangentLineToArcAtEnd(arc, atEnd);
  const SideCrossings start(atStart, sides);
  const SideCrossings end(atEnd, sides);
  OfferCrossings(start, end, offer);
  OfferCrossings(end, start, offer);
  offer(GX2DPoint(square.x, square.y + square.r), Corners());
  offer(GX2DPoint(square.x + square.r, square.y), Corners());
  offer(GX2DPoint(square.x, square.y - square.r), Corners());
  offer(GX2DPoint(square.x - square.r, square.y), Corners());
}

bool IsOnForbiddenCorner(const GX2DPoint& p, const Square& s, const Corners& kept) {
  const auto isAt = [&p](double x, double y) {
    return p.IsAlmostEq(GX2DPoint(x, y), kLengthTolerance);
  };
  return (!kept.topRight && isAt(s.x + s.r, s.y + s.r)) ||
         (!kept.topLeft && isAt(s.x - s.r, s.y + s.r)) ||
         (!kept.bottomRight && isAt(s.x + s.r, s.y - s.r)) ||
         (!kept.bottomLeft && isAt(s.x - s.r, s.y - s.r));
}

bool IsWithinSweep(const GX2DPoint& p, const GX2DArc& arc) {
  const double t = GXGeometry::PointParametricOnArc(p, arc, false);
  return GXMath::AlmostEqOrGreater(t, 0.0, kParameterTolerance) &&
         GXMath::AlmostEqOrLess(t, 1.0, kParameterTolerance);
}

/// Candidates that are destroyed with the list, whatever happens on the way.
struct OwnedArcPoints {
  OwnedArcPoints() = default;
  OwnedArcPoints(const OwnedArcPoints&) = delete;
  OwnedArcPoints& operator=(const OwnedArcPoints&) = delete;
  ~OwnedArcPoints() {
    for (const auto& point : list) delete point.second;
  }

  ArcPoints list;
};

void SortAlongArc(ArcPoints& points, const GX2DArc& arc) {
  points.sort([](const auto& a, const auto& b) { return a.first < b.first; });
  if (!arc.IsClockwise()) points.reverse();
}

// Following the contour

template <class Add>
void AddLine(GX2DLine& line, bool isLastOfContour, Add add) {
  add(line.Start, &line, true);
  add(line.End, &line, !isLastOfContour);
}

template <class Add, class AddCandidate>
void AddArc(GX2DArc& arc, Add add, AddCandidate addCandidate) {
  OwnedArcPoints points;
  OfferCandidates(arc, [&](const GX2DPoint& place, const Corners& kept) {
    addCandidate(arc, place, points.list, kept);
  });
  add(arc.Start, &arc, true);
  SortAlongArc(points.list, arc);
  for (const auto& point : points.list) {
    if (point.second) add(*point.second, &arc, true);
  }
  add(arc.End, &arc, false);
}

/// Turns the elements so that they run in list order, and adds what each contributes.
template <class Add, class AddCandidate>
void FollowContour(GX2DElmList& list, Add add, AddCandidate addCandidate) {
  GX2DElement* previous = list.back();
  for (std::size_t i = 0; i < list.size(); ++i) {
    GX2DElement* const element = list[i];
    if (auto* const line = dynamic_cast<GX2DLine*>(element)) {
      StartAtJoint(*line, previous);
      AddLine(*line, i + 1 == list.size(), add);
    } else if (auto* const arc = dynamic_cast<GX2DArc*>(element)) {
      StartAtJoint(*arc, previous);
      AddArc(*arc, add, addCandidate);
    } else {
      continue;
    }
    previous = element;
  }
}

// Vertices

/// Puts an element at the vertex with the given index, or at a new one behind all others.
void PutAt(GX2DSurroundPolygon& ring, std::size_t index, const GX2DPoint& position,
           GX2DElement* element, bool append) {
  if (index == ktrcl_internal::kNoVertex) {
    auto vertex = std::make_unique<GX2DSurroundPoint>();
    vertex->Point = new GX2DPoint(position);
    vertex->Elements.push_back(element);
    PushOwned(ring, std::move(vertex));
    return;
  }
  GX2DElmList& elements = ring[index]->Elements;
  if (std::find(elements.begin(), elements.end(), element) != elements.end()) return;
  if (append) {
    elements.push_back(element);
  } else {
    elements.push_front(element);
  }
}

}  // namespace

GX2DSurroundPolygon::GX2DSurroundPolygon() : OrigElmList(nullptr) {}
GX2DSurroundPolygon::GX2DSurroundPolygon(const GX2DSurroundPolygon& other) = default;
GX2DSurroundPolygon& GX2DSurroundPolygon::operator=(const GX2DSurroundPolygon& other) = default;
GX2DSurroundPolygon::~GX2DSurroundPolygon() { GX2DSurroundPolygon::ClearWithContents(); }

void GX2DSurroundPolygon::ClearWithContents() { ktrcl_internal::DestroyContents(*this); }

GX2DElmList* GX2DSurroundPolygon::GetOrigElmList() const { return OrigElmList; }

bool GX2DSurroundPolygon::ConstructFrom2DElmList(GX2DElmList& list, GXProblemList* const&) {
  OrigElmList = &list;
  if (list.empty()) return true;

  // A derived ring may have an `AddPoint` of its own, which is to hear of every point.
  std::optional<SurroundIndex> index;
  if (ktrcl_internal::IsExactly<GX2DSurroundPolygon>(this)) index.emplace(*this);
  const auto add = [&](GX2DPoint& position, GX2DElement* element, bool append) {
    if (index) {
      PutAt(*this, index->First(position), position, element, append);
    } else {
      AddPoint(position, element, append);
    }
  };
  const auto addCandidate = [this](GX2DArc& arc, const GX2DPoint& place, ArcPoints& points,
                                   const Corners& kept) {
    AddArcPoint(arc, new GX2DPoint(place), points, kept.topLeft, kept.topRight, kept.bottomLeft,
                kept.bottomRight);
  };
  FollowContour(list, add, addCandidate);
  return true;
}

void GX2DSurroundPolygon::AddArcPoint(GX2DArc& arc, GX2DPoint* const& candidate, ArcPoints& points,
                                      const bool& keepTopLeft, const bool& keepTopRight,
                                      const bool& keepBottomLeft, const bool& keepBottomRight) {
  std::unique_ptr<GX2DPoint> point(candidate);
  if (!point || !IsWithinSweep(*point, arc)) return;
  const Square square(arc);
  const Corners kept = {keepTopLeft, keepTopRight, keepBottomLeft, keepBottomRight};
  if (IsOnForbiddenCorner(*point, square, kept) || !square.Contains(*point)) return;

  const double angle = GXGeometry::GetAngleBetween2DLines(GX2DLine(arc.Center, arc.Start),
                                                          GX2DLine(arc.Center, *point), true);
  const auto isThere = [angle](const auto& other) { return other.first == angle; };
  if (std::any_of(points.begin(), points.end(), isThere)) return;
  points.emplace_back(angle, point.get());
  point.release();
}

void GX2DSurroundPolygon::AddPoint(GX2DPoint& position, GX2DElement* const& element,
                                   const bool& append) {
  PutAt(*this, ktrcl_internal::FirstVertexPlain(*this, position), position, element, append);
}
