#include "drawing/OutlineMotions.h"

#include "drawing/CurveMeasures.h"
#include "drawing/WalkedContour.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace drawing {

namespace {

// In millimetres. Below it a point need not be measured any closer: it lies on the outline.
constexpr double kOnOutline = 1.0e-9;

std::size_t SideOf(int position) { return static_cast<std::size_t>(position) / 2; }

MatchedStart FitWalk(const std::vector<GX2DPoint>& to, const WalkedContour& b, int start,
                     bool backward) {
  const std::vector<GX2DPoint> from = b.Points({SideOf(start), backward});
  MatchedStart matched;
  matched.position = start;
  matched.motion = FitRigidMotion(from, to);
  matched.outerDeviation = LargestDeviation(matched.motion, from, to);
  matched.outlinesAgree = matched.outerDeviation <= kPositionLimit;
  return matched;
}

// The sides that the library calls long, in the order of the contour.
std::vector<std::size_t> LongSides(const GXLAContour& shape) {
  std::vector<std::size_t> sides;
  for (std::size_t position = 0; position < shape.size(); position += 2) {
    const auto* segment = dynamic_cast<const GXLAElementSegment*>(shape[position]);
    if (segment != nullptr && segment->GetSegmentLength() > kShortSideLimit) {
      sides.push_back(position / 2);
    }
  }
  return sides;
}

// Both ends and the middle of every long side, from `first` on once around.
std::vector<GX2DPoint> LongSidePoints(const ShapedContour& contour, std::size_t first,
                                      bool backward) {
  const std::vector<std::size_t> sides = LongSides(*contour.shape);
  const auto found = std::find(sides.begin(), sides.end(), first);
  const auto begin = static_cast<std::size_t>(found - sides.begin());
  std::vector<GX2DPoint> points;
  for (std::size_t k = 0; k < sides.size(); ++k) {
    const std::size_t step = backward ? sides.size() - k : k;
    GX2DElement& side = *contour.elements[sides[(begin + step) % sides.size()]];
    points.push_back(backward ? side.GetEndPoint() : side.GetStartPoint());
    points.push_back(MiddleOf(side));
    points.push_back(backward ? side.GetStartPoint() : side.GetEndPoint());
  }
  return points;
}

// The side that is `k` tries away from `from`: the side itself, the next, the one in front, ...
std::size_t SideNear(std::size_t from, std::size_t k, std::size_t sides) {
  const std::size_t away = (k + 1) / 2;
  return k % 2 == 1 ? (from + away) % sides : (from + sides - away) % sides;
}

// Largest distance of points from an outline. Points in contour order lie on sides in contour
// order, so each search begins where the last one ended, and ends as soon as it cannot raise the
// largest distance any more. It is given up at the first point beyond `limit`.
double LargestDistance(const std::vector<GX2DPoint>& points, const GX2DElmList& outline,
                       double limit) {
  double largest = 0.0;
  std::size_t last = 0;
  for (const GX2DPoint& p : points) {
    double least = HUGE_VAL;
    const std::size_t from = last;
    for (std::size_t k = 0; k < outline.size() && least > std::max(largest, kOnOutline); ++k) {
      const std::size_t side = SideNear(from, k, outline.size());
      const double distance = DistanceToElement(p, *outline[side]);
      if (distance >= least) continue;
      least = distance;
      last = side;
    }
    largest = std::max(largest, least);
    if (largest > limit) return largest;
  }
  return largest;
}

double OutlineDistance(const ShapedContour& a, const ShapedContour& b, const RigidMotion& motion) {
  std::vector<GX2DPoint> pointsOfB = WalkedContour(b.elements).Points({0, false});
  for (GX2DPoint& p : pointsOfB) p = motion.Apply(p);
  std::vector<GX2DPoint> pointsOfA = WalkedContour(a.elements).Points({0, false});
  for (GX2DPoint& p : pointsOfA) p = motion.Undo(p);
  const double there = LargestDistance(pointsOfB, a.elements, kShortSideLimit);
  if (there > kShortSideLimit) return there;
  return std::max(there, LargestDistance(pointsOfA, b.elements, kShortSideLimit));
}

// A proper motion keeps the sense of a contour, so the two directions of drawing tell in which
// order the sides of B have to be taken.
MatchedStart FitLongSides(const ShapedContour& a, const ShapedContour& b,
                          const MatchedGeometry& match, int start) {
  const bool backward = a.shape->GetContourDirection() != b.shape->GetContourDirection();
  const std::vector<GX2DPoint> to = LongSidePoints(a, SideOf(match.referencePosition), false);
  const std::vector<GX2DPoint> from = LongSidePoints(b, SideOf(start), backward);
  MatchedStart matched;
  matched.position = start;
  matched.motion = FitRobustly(from, to);
  matched.outerDeviation = OutlineDistance(a, b, matched.motion);
  matched.outlinesAgree = matched.outerDeviation <= kShortSideLimit;
  return matched;
}

}  // namespace

MatchedGeometry MatchGeometry(const GXLAContour& a, const GXLAContour& b,
                              GXLAContour::eNmbSegmentsMode mode,
                              GXEvent1Param<const GXString&>* trace) {
  MatchedGeometry match;
  GXLATolerances tolerances;
  match.same = GXLAContour::HaveSameGeometry(a, b, match.sense, match.referencePosition,
                                             match.starts, mode, tolerances, trace);
  return match;
}

bool AreBothCircles(const ShapedContour& a, const ShapedContour& b) {
  return AsFullCircle(a.elements) != nullptr && AsFullCircle(b.elements) != nullptr;
}

std::vector<MatchedStart> OutlineMotions(const ShapedContour& a, const ShapedContour& b,
                                         const MatchedGeometry& match) {
  std::vector<MatchedStart> motions;
  if (match.sense == GXLAContour::eGeometryNotSet) {
    for (const int start : match.starts) motions.push_back(FitLongSides(a, b, match, start));
    return motions;
  }
  const bool backward = match.sense == GXLAContour::eGeometryBackward;
  const std::vector<GX2DPoint> to =
      WalkedContour(a.elements).Points({SideOf(match.referencePosition), false});
  const WalkedContour walkB(b.elements);
  for (const int start : match.starts) motions.push_back(FitWalk(to, walkB, start, backward));
  return motions;
}

}  // namespace drawing
