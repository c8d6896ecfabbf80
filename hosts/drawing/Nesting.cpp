// Contours are placed one by one, those that enclose most first, so that whatever can hold a
// contour is placed before it. The first that holds it, seen from the smallest up, is its parent;
// what holds the parent without crossing it cannot meet the contour any more.
#include "drawing/Nesting.h"

#include "drawing/Boxes.h"
#include "drawing/ContourCrossings.h"
#include "drawing/CurveMeasures.h"

#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace drawing {

namespace {

// How a contour lies to another that encloses at least as much.
enum class Relation { kApart, kInside, kCoincident, kCrossing };

// On which side of a contour a point or a stretch lies.
enum class Side { kOn, kInside, kOutside };

// A stretch of an element between two points in common with another contour.
struct Piece {
  GX2DElement* element = nullptr;
  double from = 0.0;  // Shares of the element's length.
  double to = 1.0;
};

// The side of one point; false where the library cannot tell.
bool SideOfPoint(const ElementIndex& other, GX2DPoint p, Side& side) {
  if (other.Touches(p)) {
    side = Side::kOn;
    return true;
  }
  GXGeometry::ePointInContourResult place = GXGeometry::ePointOutsideContour;
  if (!GXGeometry::IsPointInClosedContour(other.Elements(), p, place, kTouchTolerance)) {
    return false;
  }
  if (place == GXGeometry::ePointOnContour) return false;
  side = place == GXGeometry::ePointInsideContour ? Side::kInside : Side::kOutside;
  return true;
}

// The side of a piece that crosses nothing. Its middle tells, unless it happens to touch there, or
// lies at the height of an end that the library's level scan cannot make out.
Side SideOfPiece(const ElementIndex& other, const Piece& piece) {
  for (const double share : {0.5, 0.25, 0.75, 0.4, 0.6, 0.1, 0.9}) {
    Side side = Side::kOn;
    const GX2DPoint p = PointAt(*piece.element, piece.from + share * (piece.to - piece.from));
    if (SideOfPoint(other, p, side) && side != Side::kOn) return side;
  }
  return Side::kOn;
}

std::vector<Piece> PiecesOf(GX2DElmList& elements, const CommonPoints& common) {
  std::vector<Piece> pieces;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    double from = 0.0;
    for (const double cut : common.cuts[i]) {
      pieces.push_back({elements[i], from, cut});
      from = cut;
    }
    pieces.push_back({elements[i], from, 1.0});
  }
  return pieces;
}

// The relation of a contour that has points in common with another; where it changes sides is added
// to `points`.
Relation RelationByPieces(GX2DElmList& elements, const CommonPoints& common,
                          const ElementIndex& other, std::vector<GX2DPoint>& points) {
  std::vector<std::pair<Piece, Side>> sided;
  for (const Piece& piece : PiecesOf(elements, common)) {
    const Side side = SideOfPiece(other, piece);
    if (side != Side::kOn) sided.emplace_back(piece, side);
  }
  if (sided.empty()) return Relation::kCoincident;
  const Side first = sided.front().second;
  const bool oneSided = std::all_of(sided.begin(), sided.end(),
                                    [&](const auto& entry) { return entry.second == first; });
  if (oneSided) return first == Side::kInside ? Relation::kInside : Relation::kApart;
  for (std::size_t i = 0; i < sided.size(); ++i) {
    const auto& [piece, side] = sided[i];
    const Side before = sided[(i + sided.size() - 1) % sided.size()].second;
    if (side != before) points.push_back(PointAt(*piece.element, piece.from));
  }
  return Relation::kCrossing;
}

// Whether a contour without a point in common lies inside the other one.
bool LiesInside(GX2DElmList& elements, const ElementIndex& other, bool anyNear) {
  // Where no element comes near the other contour, one of them answers for all.
  BorrowedElements first;
  first.Add(elements.front());
  GX2DElmList& tested = anyNear ? elements : first.List();
  if (GXGeometry::IsContourInClosedContour(other.Elements(), tested, true)) return true;
  // A single sample at the height of an end that the scan cannot make out is enough for a no.
  for (GX2DElement* const element : elements) {
    const Side side = SideOfPiece(other, {element, 0.0, 1.0});
    if (side != Side::kOn) return side == Side::kInside;
  }
  return false;
}

Relation RelationOf(Contour& tested, const Contour& holder, const ElementIndex& index,
                    std::vector<GX2DPoint>& points) {
  if (!Meet(Grown(tested.box, kTouchTolerance), holder.box)) return Relation::kApart;
  const CommonPoints common = FindCommonPoints(tested.elements, index);
  if (common.any) return RelationByPieces(tested.elements, common, index, points);
  if (!Holds(holder.box, tested.box, kTouchTolerance)) return Relation::kApart;
  return LiesInside(tested.elements, index, common.anyNear) ? Relation::kInside : Relation::kApart;
}

class Nester {
 public:
  explicit Nester(const std::vector<std::unique_ptr<Contour>>& contours)
      : contours_(contours),
        order_(ByArea(contours)),
        boxes_(BoxesInOrder(contours, order_)),
        indices_(order_.size()),
        crosses_(order_.size(), false) {}

  std::vector<Crossing> Run() {
    std::vector<std::size_t> candidates;
    for (std::size_t rank = 0; rank < order_.size(); ++rank) {
      const Box& box = At(rank).box;
      boxes_.FindMeeting(Grown(box, kTouchTolerance), candidates);
      const auto isSmaller = [&](std::size_t other) { return other >= rank; };
      candidates.erase(std::remove_if(candidates.begin(), candidates.end(), isSmaller),
                       candidates.end());
      // From the smallest up.
      std::sort(candidates.rbegin(), candidates.rend());
      Place(rank, candidates);
    }
    std::sort(crossings_.begin(), crossings_.end(), [](const Crossing& p, const Crossing& q) {
      return std::pair(p.first, p.second) < std::pair(q.first, q.second);
    });
    return std::move(crossings_);
  }

 private:
  // Indices of the usable contours: those that enclose most first, of equal ones the earlier.
  static std::vector<std::size_t> ByArea(const std::vector<std::unique_ptr<Contour>>& contours) {
    std::vector<std::size_t> order;
    std::vector<double> areas;
    for (std::size_t i = 0; i < contours.size(); ++i) {
      areas.push_back(std::fabs(SignedArea(contours[i]->elements)));
      if (contours[i]->usable) order.push_back(i);
    }
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t p, std::size_t q) { return areas[p] > areas[q]; });
    return order;
  }

  static std::vector<Box> BoxesInOrder(const std::vector<std::unique_ptr<Contour>>& contours,
                                       const std::vector<std::size_t>& order) {
    std::vector<Box> boxes;
    boxes.reserve(order.size());
    for (const std::size_t index : order) boxes.push_back(contours[index]->box);
    return boxes;
  }

  Contour& At(std::size_t rank) const { return *contours_[order_[rank]]; }

  const ElementIndex& IndexOf(std::size_t rank) {
    if (indices_[rank] == nullptr) {
      indices_[rank] = std::make_unique<ElementIndex>(At(rank).elements);
    }
    return *indices_[rank];
  }

  bool IsAncestor(const Contour& contour, std::size_t index) const {
    for (std::size_t up = contour.parent; up != kNoContour; up = contours_[up]->parent) {
      if (up == index) return true;
    }
    return false;
  }

  // Behind a parent only contours that cross others are looked at: the rest cannot meet what the
  // parent holds.
  bool IsSettled(const Contour& contour, std::size_t candidate) const {
    if (contour.parent == kNoContour) return false;
    return !crosses_[candidate] || IsAncestor(contour, order_[candidate]);
  }

  void Place(std::size_t rank, const std::vector<std::size_t>& candidates) {
    Contour& contour = At(rank);
    std::size_t crossed = 0;
    for (const std::size_t candidate : candidates) {
      const Contour& other = At(candidate);
      if (other.coincidesWith != kNoContour || IsSettled(contour, candidate)) continue;
      std::vector<GX2DPoint> points;
      switch (RelationOf(contour, other, IndexOf(candidate), points)) {
        case Relation::kApart:
          break;
        case Relation::kInside:
          if (contour.parent != kNoContour) break;
          contour.parent = order_[candidate];
          contour.depth = other.depth + 1;
          if (!anyCrosses_) return;
          break;
        case Relation::kCoincident:
          contour.coincidesWith = order_[candidate];
          contour.parent = other.parent;
          contour.depth = other.depth;
          return;
        case Relation::kCrossing:
          AddCrossing(rank, candidate, std::move(points));
          if (++crossed == kMostCrossings) return;
          break;
      }
    }
  }

  void AddCrossing(std::size_t rank, std::size_t candidate, std::vector<GX2DPoint> points) {
    anyCrosses_ = true;
    crosses_[rank] = true;
    crosses_[candidate] = true;
    const auto [first, second] = std::minmax(order_[rank], order_[candidate]);
    crossings_.push_back({first, second, std::move(points)});
  }

  const std::vector<std::unique_ptr<Contour>>& contours_;
  std::vector<std::size_t> order_;  // By rank.
  BoxTree boxes_;                   // By rank.
  std::vector<std::unique_ptr<ElementIndex>> indices_;
  std::vector<bool> crosses_;
  bool anyCrosses_ = false;
  std::vector<Crossing> crossings_;
};

}  // namespace

std::vector<Crossing> NestContours(const std::vector<std::unique_ptr<Contour>>& contours) {
  for (const auto& contour : contours) {
    contour->parent = kNoContour;
    contour->depth = 0;
    contour->coincidesWith = kNoContour;
  }
  return Nester(contours).Run();
}

}  // namespace drawing
