#include "drawing/PartCurves.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace drawing {

namespace {

Place WireCentre(const std::vector<MeasuredPiece>& pieces) {
  double length = 0.0;
  Place sum;
  for (const MeasuredPiece& piece : pieces) {
    Place middle = {0.5 * (piece.start.x + piece.end.x), 0.5 * (piece.start.y + piece.end.y)};
    if (piece.sweep != 0.0) {
      // An arc has its centre of gravity on the ray to its middle, at r sin(h) / h for 2 h radians.
      const double half = 0.5 * std::fabs(piece.sweep);
      const double arm = piece.radius * std::sin(half) / half;
      middle = {piece.centre.x + arm * piece.middleDirection.x,
                piece.centre.y + arm * piece.middleDirection.y};
    }
    length += piece.length;
    sum.x += piece.length * middle.x;
    sum.y += piece.length * middle.y;
  }
  return length > 0.0 ? Place{sum.x / length, sum.y / length} : Place{};
}

// The farthest place of an arc is on the ray from `p` through its centre, or else one of its ends.
double FarthestOf(const MeasuredPiece& piece, const Place& p) {
  const double ends = std::max(Distance(p, piece.start), Distance(p, piece.end));
  if (piece.sweep == 0.0) return ends;
  const double dx = piece.centre.x - p.x;
  const double dy = piece.centre.y - p.y;
  const double arm = std::sqrt(dx * dx + dy * dy);
  const double along = dx * piece.middleDirection.x + dy * piece.middleDirection.y;
  return along >= arm * piece.cosineOfHalf ? arm + piece.radius : ends;
}

ContourCurve CurveOf(const Contour& contour, const Place& origin, bool mirrored) {
  ContourCurve made;
  std::vector<MeasuredPiece> pieces = PiecesOf(contour.elements, origin, mirrored);
  made.centre = WireCentre(pieces);
  made.leastReach = HUGE_VAL;
  for (const MeasuredPiece& piece : pieces) {
    made.reach = std::max(made.reach, FarthestOf(piece, made.centre));
    made.leastReach = std::min(made.leastReach, FootOn(piece, made.centre).distance);
  }
  made.clockwise = contour.clockwise != mirrored;
  made.curve = CurveTree(std::move(pieces));
  return made;
}

// First about the middle of the box, where no digits are lost in sums over all elements.
Place OriginOf(const Contour& contour, bool mirrored) {
  const Box& box = contour.box;
  const double middle = 0.5 * box.minX + 0.5 * box.maxX;
  const Place first = {mirrored ? -middle : middle, 0.5 * box.minY + 0.5 * box.maxY};
  const Place centre = WireCentre(PiecesOf(contour.elements, first, mirrored));
  return {first.x + centre.x, first.y + centre.y};
}

}  // namespace

PartCurves::PartCurves(const PartModel& part, bool mirrored)
    : origin(OriginOf(*part.outer->source, mirrored)),
      outer(CurveOf(*part.outer->source, origin, mirrored)) {
  std::vector<MeasuredPiece> pieces = outer.curve.Pieces();
  cutOuts.reserve(part.cutOuts.size());
  for (const auto& cutOut : part.cutOuts) {
    cutOuts.push_back(CurveOf(*cutOut->source, origin, mirrored));
    const std::vector<MeasuredPiece>& own = cutOuts.back().curve.Pieces();
    pieces.insert(pieces.end(), own.begin(), own.end());
  }
  all = CurveTree(std::move(pieces));
}

}  // namespace drawing
