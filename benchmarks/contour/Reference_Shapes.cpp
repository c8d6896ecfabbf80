// The answers on further shapes, from the way the shapes were made and from closed forms, without
// any library. They are not timed.
#include "Jobs.h"
#include "TestShapes.h"

#include <array>
#include <cmath>
#include <limits>

namespace contour_benchmarks {
namespace {

double Cross(const Corner& a, const Corner& b) { return a.x * b.y - a.y * b.x; }
Corner Minus(const Corner& a, const Corner& b) { return {a.x - b.x, a.y - b.y}; }

// Rings: the ends of all elements, and what lies on the square around the circle of an arc

/// How far along the arc a direction from the center lies: 0 at the start, 1 at the end, below 0
/// just in front of the start.
double ShareOf(const Piece& arc, const Corner& p) {
  const auto sweepTo = [&](const Corner& place) {
    const Corner from = Minus(arc.start, arc.center);
    const Corner to = Minus(place, arc.center);
    const double angle =
        std::atan2(Cross(from, to), from.x * to.x + from.y * to.y) * (arc.isClockwise ? -1.0 : 1.0);
    return angle < -1e-3 ? angle + kTurn : angle;
  };
  return sweepTo(p) / sweepTo(arc.end);
}

/// Where the tangent at `end` meets the lines of the four sides of the square. None of the tangents
/// here runs along a side, or through a corner.
std::array<Corner, 4> TangentOnSides(const Corner& center, const Corner& end) {
  const Corner radial = Minus(end, center);
  const double r = std::hypot(radial.x, radial.y);
  const auto atHeight = [&](double y) -> Corner {
    return {center.x + (r * r - radial.y * y) / radial.x, center.y + y};
  };
  const auto atWidth = [&](double x) -> Corner {
    return {center.x + x, center.y + (r * r - radial.x * x) / radial.y};
  };
  return {atHeight(r), atHeight(-r), atWidth(-r), atWidth(r)};
}

Corners OnSquare(const Piece& arc) {
  const Corner& c = arc.center;
  const double r = std::hypot(arc.start.x - c.x, arc.start.y - c.y);
  Corners candidates = {{c.x, c.y + r}, {c.x + r, c.y}, {c.x, c.y - r}, {c.x - r, c.y}};
  for (const Corner& end : {arc.start, arc.end}) {
    for (const Corner& hit : TangentOnSides(c, end)) candidates.push_back(hit);
  }
  const auto isOff = [&](const Corner& p) {
    const double share = ShareOf(arc, p);
    return share < -1e-5 || share > 1.0 + 1e-5 || std::fabs(p.x - c.x) > r + 1e-5 ||
           std::fabs(p.y - c.y) > r + 1e-5;
  };
  candidates.erase(std::remove_if(candidates.begin(), candidates.end(), isOff), candidates.end());
  std::sort(candidates.begin(), candidates.end(),
            [&](const Corner& a, const Corner& b) { return ShareOf(arc, a) < ShareOf(arc, b); });
  return candidates;
}

template <Pieces (*make)(std::int64_t n)>
struct Ring {
  explicit Ring(std::int64_t n) : pieces_(make(n)) {}

  Answer GetAnswer() const {
    Corners vertices;
    for (const Piece& piece : pieces_) {
      vertices.push_back(piece.start);
      if (!piece.isArc) continue;
      for (const Corner& p : OnSquare(piece)) vertices.push_back(p);
    }
    return CornersAsAnswer(vertices);
  }

  Pieces pieces_;
};

struct OnOutline {
  explicit OnOutline(std::int64_t n) : corners_(Outline(n)) {}

  template <typename IsBetter>
  Corner Best(IsBetter isBetter) const {
    return *std::min_element(corners_.begin(), corners_.end(), isBetter);
  }

  Corner Top() const {
    return Best([](const Corner& a, const Corner& b) { return a.y > b.y; });
  }

  Corners corners_;
};

struct Leftmost : OnOutline {
  using OnOutline::OnOutline;
  Answer GetAnswer() const {
    return CornersAsAnswer({Best([](const Corner& a, const Corner& b) { return a.x < b.x; })});
  }
};

struct TopLeftOfX : OnOutline {
  explicit TopLeftOfX(std::int64_t n) : OnOutline(n) {
    corners_.erase(std::remove_if(corners_.begin(), corners_.end(),
                                  [](const Corner& c) { return c.x >= kQueryX; }),
                   corners_.end());
  }
  Answer GetAnswer() const { return CornersAsAnswer({Top()}); }
};

/// One corner is alone on the highest level.
struct TopLevel : OnOutline {
  using OnOutline::OnOutline;
  Answer GetAnswer() const { return CornersAsAnswer({Top(), Top()}); }
};

/// Where the lines of the outline pass through an unbounded line.
Corners Passages(const Corners& corners, const Corner& start, const Corner& end) {
  const Corner along = Minus(end, start);
  Corners points;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Corner& a = corners[i];
    const Corner& b = Behind(corners, i);
    const double sideA = Cross(along, Minus(a, start));
    const double sideB = Cross(along, Minus(b, start));
    if ((sideA < 0.0) == (sideB < 0.0)) continue;
    const double t = sideA / (sideA - sideB);
    points.push_back({a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)});
  }
  return points;
}

struct WidthAtY : OnOutline {
  using OnOutline::OnOutline;
  Answer GetAnswer() const {
    const Corners points = Passages(corners_, {0.0, kQueryY}, {1.0, kQueryY});
    const auto [left, right] = std::minmax_element(
        points.begin(), points.end(), [](const Corner& a, const Corner& b) { return a.x < b.x; });
    return {left->x, right->x};
  }
};

struct LineCrossings : OnOutline {
  using OnOutline::OnOutline;
  Answer GetAnswer() const {
    return CrossingsAsAnswer(Passages(corners_, kQueryLineStart, kQueryLineEnd));
  }
};

// Polygons of corners: from the corner at the end of the first line on

template <Corners (*make)(std::int64_t n)>
struct SharpPolygon {
  explicit SharpPolygon(std::int64_t n) : corners_(make(n)) {
    std::rotate(corners_.begin(), corners_.begin() + 1, corners_.end());
  }
  Answer GetAnswer() const { return CornersAsAnswer(corners_); }
  Corners corners_;
};

Corners LargeSharpCorners(std::int64_t n) { return SharpCorners(n, kLargeRadius); }

struct PolygonOfArcs {
  explicit PolygonOfArcs(std::int64_t n) : arcs_(OutlineOfArcs(n)) {}

  /// Start, middle and end of every arc; as the chord is as long as the radius, the middle of the
  /// arc lies opposite the center at that distance.
  Answer GetAnswer() const {
    Corners corners;
    for (const Piece& arc : arcs_) {
      const Corner between = {0.5 * (arc.start.x + arc.end.x), 0.5 * (arc.start.y + arc.end.y)};
      const double radius = std::hypot(arc.start.x - arc.center.x, arc.start.y - arc.center.y);
      corners.push_back(arc.start);
      corners.push_back(Along(arc.center, Towards(arc.center, between), radius));
      corners.push_back(arc.end);
    }
    return CornersAsAnswer(corners);
  }

  Pieces arcs_;
};

struct PlateArea {
  explicit PlateArea(std::int64_t /*n*/) {}
  Answer GetAnswer() const { return {kPlateWidth * kPlateHeight}; }
};

// Constructions

struct EllipsePoints {
  explicit EllipsePoints(std::int64_t n) : n_(n) {}

  Answer GetAnswer() const {
    const Corner major = Minus(kEllipseAxisEnd, kEllipseCenter);
    const Corner minor = {-kEllipseRatio * major.y, kEllipseRatio * major.x};
    Corners corners;
    for (std::int64_t k = 0; k < n_; ++k) {
      const double s = k + 1 < n_ ? kEllipseStep * static_cast<double>(k) : EllipseEnd(n_);
      corners.push_back(Along(Along(kEllipseCenter, major, std::cos(s)), minor, std::sin(s)));
    }
    return CornersAsAnswer(corners);
  }

  std::int64_t n_;
};

/// Calls `visit` with every corner of the teeth and the directions to the corners beside it.
template <typename Visit>
void ForEveryTooth(const Corners& teeth, Visit visit) {
  for (std::size_t i = 0; i < teeth.size(); ++i) {
    visit(teeth[i], Towards(teeth[i], Before(teeth, i)), Towards(teeth[i], Behind(teeth, i)));
  }
}

/// The first fillet is that of the second corner.
struct FilletCenters {
  explicit FilletCenters(std::int64_t n) : radius_(FilletRadius(n)), teeth_(Teeth(n)) {}

  Answer GetAnswer() const {
    Corners centers;
    ForEveryTooth(teeth_, [&](const Corner& corner, const Corner& back, const Corner& on) {
      centers.push_back(FilletCenter(corner, back, on, radius_));
    });
    std::rotate(centers.begin(), centers.begin() + 1, centers.end());
    return CornersAsAnswer(centers);
  }

  double radius_;
  Corners teeth_;
};

/// The lines end where the bend touches its legs.
struct BendLines {
  explicit BendLines(std::int64_t n) : teeth_(Teeth(n)) {}

  Answer GetAnswer() const {
    const double cut = kBendRadius / std::tan(0.5 * kBendDegrees * kTurn / 360.0);
    Corners corners;
    ForEveryTooth(teeth_, [&](const Corner& corner, const Corner& back, const Corner& on) {
      const Corner nearEnd = Along(corner, back, cut);
      corners.push_back(Along(nearEnd, on, kBendLeg - cut));
      corners.push_back(nearEnd);
    });
    return CornersAsAnswer(corners);
  }

  Corners teeth_;
};

// Approximations: a chain from the first point to the last one

template <Corners (*make)(std::int64_t n)>
struct ChainToLast {
  explicit ChainToLast(std::int64_t n) : last_(make(n).back()) {}
  Answer GetAnswer() const { return {1.0, last_.x, last_.y}; }
  Corner last_;
};

// Offsets: the joints of the elements

/// Unit normal to the right of a direction.
Corner RightOf(const Corner& direction) { return {direction.y, -direction.x}; }

struct OffsetOfLines {
  explicit OffsetOfLines(std::int64_t n) : distance_(OffsetOf(n)), teeth_(Teeth(n)) {}

  /// Both lines beside a corner are at the distance from the joint.
  Answer GetAnswer() const {
    Corners joints;
    ForEveryTooth(teeth_, [&](const Corner& corner, const Corner& back, const Corner& on) {
      const Corner a = RightOf({-back.x, -back.y});
      const Corner b = RightOf(on);
      const double share = distance_ / (1.0 + a.x * b.x + a.y * b.y);
      joints.push_back(Along(corner, {a.x + b.x, a.y + b.y}, share));
    });
    return RingAsAnswer(joints);
  }

  double distance_;
  Corners teeth_;
};

/// Lines and fillets touch, so the joint is beside the joint of the contour.
struct OffsetOfFillets {
  explicit OffsetOfFillets(std::int64_t n) : distance_(OffsetOf(n)), pieces_(RoundedTeeth(n)) {}

  Answer GetAnswer() const {
    Corners joints;
    for (std::size_t i = 0; i < pieces_.size(); i += 2) {
      const Piece& line = pieces_[i];
      const Corner right = RightOf(Towards(line.start, line.end));
      joints.push_back(Along(line.start, right, distance_));
      joints.push_back(Along(line.end, right, distance_));
    }
    return RingAsAnswer(joints);
  }

  double distance_;
  Pieces pieces_;
};

/// Of the two places at given distances from two centers, the nearer one to a corner.
Corner AtDistances(const Corner& a, double ra, const Corner& b, double rb, const Corner& corner) {
  const Corner along = Towards(a, b);
  const double d = std::hypot(b.x - a.x, b.y - a.y);
  const double x = (d * d + ra * ra - rb * rb) / (2.0 * d);
  const double y = std::sqrt(ra * ra - x * x);
  const Corner foot = Along(a, along, x);
  const Corner one = Along(foot, RightOf(along), y);
  const Corner two = Along(foot, RightOf(along), -y);
  const auto far = [&](const Corner& p) { return std::hypot(p.x - corner.x, p.y - corner.y); };
  return far(one) < far(two) ? one : two;
}

struct OffsetOfArcs {
  explicit OffsetOfArcs(std::int64_t n) : distance_(OffsetOf(n)), arcs_(OutlineOfArcs(n)) {}

  Answer GetAnswer() const {
    Corners joints;
    for (std::size_t i = 0; i < arcs_.size(); ++i) {
      const Piece& a = arcs_[i == 0 ? arcs_.size() - 1 : i - 1];
      const Piece& b = arcs_[i];
      joints.push_back(AtDistances(a.center, RadiusOf(a), b.center, RadiusOf(b), b.start));
    }
    return RingAsAnswer(joints);
  }

  double RadiusOf(const Piece& arc) const {
    return std::hypot(arc.start.x - arc.center.x, arc.start.y - arc.center.y) + distance_;
  }

  double distance_;
  Pieces arcs_;
};

// Triangulations: a yes to what holds for all, and the area for those that cover it

template <Corners (*make)(std::int64_t n)>
struct AreaInTriangles {
  explicit AreaInTriangles(std::int64_t n) : corners_(make(n)) {}

  Answer GetAnswer() const {
    double twice = 0.0;
    for (std::size_t i = 0; i < corners_.size(); ++i) {
      twice += Cross(corners_[i], Behind(corners_, i));
    }
    return {1.0, 0.5 * twice};
  }

  Corners corners_;
};

}  // namespace

void AddReferenceAnswersOnShapes() {
  AddCheck<Ring<OutlineOfLines>>("Reference_All_ConstructRing_Lines");
  AddCheck<Ring<LargeRoundedTeeth>>("Reference_All_ConstructRing_LinesWithFillets");
  AddCheck<Ring<LargeArcs>>("Reference_All_ConstructRing_LargeArcs");
  AddCheck<Leftmost>("Reference_All_RingQuery_Leftmost");
  AddCheck<TopLeftOfX>("Reference_All_RingQuery_TopLeftOfX");
  AddCheck<TopLevel>("Reference_All_RingQuery_TopLevel");
  AddCheck<WidthAtY>("Reference_All_RingQuery_WidthAtY");
  AddCheck<LineCrossings>("Reference_All_RingQuery_LineCrossings");
  AddCheck<SharpPolygon<Teeth>>("Reference_All_GetSurroundingPolygon_Lines");
  AddCheck<SharpPolygon<LargeSharpCorners>>("Reference_All_GetSurroundingPolygon_LinesWithFillets");
  AddCheck<PolygonOfArcs>("Reference_All_GetSurroundingPolygon_Arcs");
  AddCheck<PlateArea>("Reference_All_SmallestBox_LinesByDegrees");
  AddCheck<PlateArea>("Reference_All_SmallestBox_LinesByTenths");
  AddCheck<PlateArea>("Reference_All_SmallestBox_ArcsByDegrees");
  AddCheck<PlateArea>("Reference_All_SmallestBox_ArcsByTenths");
  AddCheck<EllipsePoints>("Reference_All_ConvertEllipseToPoints_Points");
  AddCheck<FilletCenters>("Reference_All_Construct2DArcBetween2Lines_EveryCorner");
  AddCheck<BendLines>("Reference_All_GetLinesWithThickness_EveryCorner");
  AddCheck<ChainToLast<OnEllipse>>("Reference_All_Approximate_EllipseWithin0.1");
  AddCheck<ChainToLast<OnEllipse>>("Reference_All_Approximate_EllipseWithin0.001");
  AddCheck<ChainToLast<OnEllipse>>("Reference_All_Approximate_EllipseWithin0.00001");
  AddCheck<ChainToLast<OnWaves>>("Reference_All_Approximate_WavesWithin0.1");
  AddCheck<ChainToLast<OnWaves>>("Reference_All_Approximate_WavesWithin0.001");
  AddCheck<ChainToLast<OnCircle>>("Reference_All_Approximate_OneArc");
  AddCheck<OffsetOfLines>("Reference_All_Offset_Lines");
  AddCheck<OffsetOfFillets>("Reference_All_Offset_LinesWithFillets");
  AddCheck<OffsetOfArcs>("Reference_All_Offset_Arcs");
  AddCheck<AreaInTriangles<Outline>>("Reference_All_Triangulate_Outline");
  AddCheck<AreaInTriangles<Teeth>>("Reference_All_Triangulate_Teeth");
}

}  // namespace contour_benchmarks
