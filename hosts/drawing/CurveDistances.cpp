#include "drawing/CurveDistances.h"

#include "drawing/CurveMeasures.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace drawing {

namespace {

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kTwoPi = 6.283185307179586;
constexpr std::size_t kLeafSize = 6;

// In millimetres: what a measurement may leave out.
constexpr double kMissed = 0.001;

// Places that one measurement looks at before it is content with what it has.
constexpr std::size_t kMostLooks = 1000000;

// Of a full turn divided in four nothing is left over for a fifth part.
constexpr double kSweepSlack = 1.0e-9;

// A stretch is divided at the end of a piece of the other curve only where both halves are at
// least this share of it.
constexpr double kLeastShare = 0.02;

double AngleOf(const Place& centre, const Place& p) {
  return std::atan2(p.y - centre.y, p.x - centre.x);
}

Place OnCircle(const Place& centre, double radius, double angle) {
  return {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
}

MeasuredPiece LinePiece(const Place& start, const Place& end) {
  MeasuredPiece piece;
  piece.start = start;
  piece.end = end;
  piece.length = Distance(start, end);
  return piece;
}

MeasuredPiece ArcPiece(const Place& centre, double radius, double middleAngle, double sweep) {
  MeasuredPiece piece;
  piece.centre = centre;
  piece.radius = radius;
  piece.sweep = sweep;
  piece.middleAngle = middleAngle;
  piece.middleDirection = {std::cos(middleAngle), std::sin(middleAngle)};
  piece.cosineOfHalf = std::cos(0.5 * sweep);
  piece.length = radius * std::fabs(sweep);
  piece.start = OnCircle(centre, radius, middleAngle - 0.5 * sweep);
  piece.end = OnCircle(centre, radius, middleAngle + 0.5 * sweep);
  return piece;
}

void AddArc(const GX2DArc& arc, const Place& origin, bool mirrored,
            std::vector<MeasuredPiece>& pieces) {
  const auto placed = [&](const GX2DPoint& p) {
    return Place{(mirrored ? -p.X : p.X) - origin.x, p.Y - origin.y};
  };
  const Place centre = placed(arc.Center);
  const double radius =
      0.5 * (Distance(centre, placed(arc.Start)) + Distance(centre, placed(arc.End)));
  const double sweep = mirrored ? -SignedSweep(arc) : SignedSweep(arc);
  if (!(radius > 0.0)) return;
  const int parts =
      std::clamp(static_cast<int>(std::ceil(std::fabs(sweep) / kHalfPi - kSweepSlack)), 1, 4);
  const double first = AngleOf(centre, placed(arc.Start));
  for (int i = 0; i < parts; ++i) {
    pieces.push_back(ArcPiece(centre, radius, first + (i + 0.5) * sweep / parts, sweep / parts));
  }
}

bool IsBeside(const MeasuredPiece& arc, double dx, double dy, double distance) {
  return dx * arc.middleDirection.x + dy * arc.middleDirection.y >= distance * arc.cosineOfHalf;
}

double DistanceTo(const MeasuredPiece& piece, const Place& p) {
  if (piece.sweep == 0.0) {
    const double dx = piece.end.x - piece.start.x;
    const double dy = piece.end.y - piece.start.y;
    const double along = (p.x - piece.start.x) * dx + (p.y - piece.start.y) * dy;
    const double share = std::clamp(along / (piece.length * piece.length), 0.0, 1.0);
    return Distance(p, {piece.start.x + share * dx, piece.start.y + share * dy});
  }
  const double dx = p.x - piece.centre.x;
  const double dy = p.y - piece.centre.y;
  const double distance = std::sqrt(dx * dx + dy * dy);
  if (IsBeside(piece, dx, dy, distance)) return std::fabs(distance - piece.radius);
  return std::min(Distance(p, piece.start), Distance(p, piece.end));
}

Box BoxOf(const MeasuredPiece& piece) {
  Box box = {std::min(piece.start.x, piece.end.x), std::min(piece.start.y, piece.end.y),
             std::max(piece.start.x, piece.end.x), std::max(piece.start.y, piece.end.y)};
  if (piece.sweep == 0.0) return box;
  const Place& c = piece.centre;
  const double r = piece.radius;
  // An axis direction lies within the arc where its cosine to the middle is large enough.
  if (piece.middleDirection.x >= piece.cosineOfHalf) box.maxX = std::max(box.maxX, c.x + r);
  if (piece.middleDirection.y >= piece.cosineOfHalf) box.maxY = std::max(box.maxY, c.y + r);
  if (-piece.middleDirection.x >= piece.cosineOfHalf) box.minX = std::min(box.minX, c.x - r);
  if (-piece.middleDirection.y >= piece.cosineOfHalf) box.minY = std::min(box.minY, c.y - r);
  return box;
}

double DistanceTo(const Box& box, const Place& p) {
  const double dx = std::max({0.0, box.minX - p.x, p.x - box.maxX});
  const double dy = std::max({0.0, box.minY - p.y, p.y - box.maxY});
  return std::sqrt(dx * dx + dy * dy);
}

Box Around(const Box& p, const Box& q) {
  return {std::min(p.minX, q.minX), std::min(p.minY, q.minY), std::max(p.maxX, q.maxX),
          std::max(p.maxY, q.maxY)};
}

// How far a stretch of `piece` between two shares can run from `other` at most, given the feet of
// its ends there.
//
// Both the stretch x(t) and the part y(t) of `other` between the feet are run through evenly, t
// from 0 to 1. Then e = x - y has the second derivative x" - y", where x" is the squared length
// over the radius, towards the centre, and 0 for a line. Hence |e| is at most the larger of |e(0)|
// and |e(1)| plus an eighth of the largest |x" - y"|. Of two lines that is the larger end, of a
// line and an arc the sagitta comes on top, and two equal arcs give nearly nothing.
double StretchBound(const MeasuredPiece& piece, double from, double to, const MeasuredPiece& other,
                    const Foot& footFrom, const Foot& footTo) {
  const double share = to - from;
  const double otherShare = footTo.share - footFrom.share;
  const double length = share * piece.length;
  const double otherLength = otherShare * other.length;
  const double pull = piece.sweep == 0.0 ? 0.0 : length * length / piece.radius;
  const double otherPull = other.sweep == 0.0 ? 0.0 : otherLength * otherLength / other.radius;
  double second = pull + otherPull;
  if (pull > 0.0 && otherPull > 0.0) {
    // The angle between both directions to the centres changes evenly with t.
    const double angle = piece.middleAngle + (from - 0.5) * piece.sweep;
    const double otherAngle = other.middleAngle + (footFrom.share - 0.5) * other.sweep;
    const double before = std::remainder(angle - otherAngle, kTwoPi);
    const double behind = before + share * piece.sweep - otherShare * other.sweep;
    const double between = std::max(std::fabs(before), std::fabs(behind));
    second = std::min(second, std::fabs(pull - otherPull) + std::min(pull, otherPull) * between);
  }
  return std::max(footFrom.distance, footTo.distance) + 0.125 * second;
}

Foot FootOfNear(const PlaceOnCurve& near, std::size_t piece, const MeasuredPiece& other,
                const Place& p) {
  return near.piece == piece ? Foot{near.distance, near.share} : FootOn(other, p);
}

// The share of a piece that comes nearest to an end of a piece of the other curve: behind that end
// the other curve goes on differently.
double ShareBesideEnd(const MeasuredPiece& piece, const MeasuredPiece& other,
                      const Place& towards) {
  const bool atEnd = Distance(other.end, towards) < Distance(other.start, towards);
  return FootOn(piece, atEnd ? other.end : other.start).share;
}

}  // namespace

double Distance(const Place& p, const Place& q) {
  const double dx = p.x - q.x;
  const double dy = p.y - q.y;
  return std::sqrt(dx * dx + dy * dy);
}

Place Moved(const RigidMotion& motion, const Place& p) {
  return {motion.cosine * p.x - motion.sine * p.y + motion.shiftX,
          motion.sine * p.x + motion.cosine * p.y + motion.shiftY};
}

Place MovedBack(const RigidMotion& motion, const Place& p) {
  const double x = p.x - motion.shiftX;
  const double y = p.y - motion.shiftY;
  return {motion.cosine * x + motion.sine * y, motion.cosine * y - motion.sine * x};
}

RigidMotion Inverse(const RigidMotion& motion) {
  const Place shift = MovedBack(motion, {0.0, 0.0});
  RigidMotion inverse;
  inverse.cosine = motion.cosine;
  inverse.sine = -motion.sine;
  inverse.shiftX = shift.x;
  inverse.shiftY = shift.y;
  return inverse;
}

Place PlaceAt(const MeasuredPiece& piece, double share) {
  if (share == 0.0) return piece.start;
  if (share == 1.0) return piece.end;
  if (piece.sweep == 0.0) {
    return {piece.start.x + share * (piece.end.x - piece.start.x),
            piece.start.y + share * (piece.end.y - piece.start.y)};
  }
  return OnCircle(piece.centre, piece.radius, piece.middleAngle + (share - 0.5) * piece.sweep);
}

Place DirectionAt(const MeasuredPiece& piece, double share) {
  if (piece.sweep == 0.0) {
    return {(piece.end.x - piece.start.x) / piece.length,
            (piece.end.y - piece.start.y) / piece.length};
  }
  const double angle = piece.middleAngle + (share - 0.5) * piece.sweep;
  const double side = piece.sweep > 0.0 ? 1.0 : -1.0;
  return {-side * std::sin(angle), side * std::cos(angle)};
}

MeasuredPiece Moved(const MeasuredPiece& piece, const RigidMotion& motion, double turn) {
  MeasuredPiece moved = piece;
  moved.start = Moved(motion, piece.start);
  moved.end = Moved(motion, piece.end);
  if (piece.sweep == 0.0) return moved;
  const Place& direction = piece.middleDirection;
  moved.centre = Moved(motion, piece.centre);
  moved.middleAngle = piece.middleAngle + turn;
  moved.middleDirection = {motion.cosine * direction.x - motion.sine * direction.y,
                           motion.sine * direction.x + motion.cosine * direction.y};
  return moved;
}

Foot FootOn(const MeasuredPiece& piece, const Place& p) {
  if (piece.sweep == 0.0) {
    const double dx = piece.end.x - piece.start.x;
    const double dy = piece.end.y - piece.start.y;
    const double along = (p.x - piece.start.x) * dx + (p.y - piece.start.y) * dy;
    const double share = std::clamp(along / (piece.length * piece.length), 0.0, 1.0);
    return {Distance(p, {piece.start.x + share * dx, piece.start.y + share * dy}), share};
  }
  const double dx = p.x - piece.centre.x;
  const double dy = p.y - piece.centre.y;
  const double distance = std::sqrt(dx * dx + dy * dy);
  if (distance == 0.0) return {piece.radius, 0.5};
  if (IsBeside(piece, dx, dy, distance)) {
    const double angle = std::remainder(std::atan2(dy, dx) - piece.middleAngle, kTwoPi);
    return {std::fabs(distance - piece.radius), std::clamp(0.5 + angle / piece.sweep, 0.0, 1.0)};
  }
  const double toStart = Distance(p, piece.start);
  const double toEnd = Distance(p, piece.end);
  return toEnd < toStart ? Foot{toEnd, 1.0} : Foot{toStart, 0.0};
}

std::vector<MeasuredPiece> PiecesOf(const GX2DElmList& elements, const Place& origin,
                                    bool mirrored) {
  std::vector<MeasuredPiece> pieces;
  pieces.reserve(elements.size());
  for (GX2DElement* const element : elements) {
    if (const auto* arc = dynamic_cast<const GX2DArc*>(element)) {
      AddArc(*arc, origin, mirrored, pieces);
    } else if (const auto* line = dynamic_cast<const GX2DLine*>(element)) {
      const MeasuredPiece piece = LinePiece(
          {(mirrored ? -line->Start.X : line->Start.X) - origin.x, line->Start.Y - origin.y},
          {(mirrored ? -line->End.X : line->End.X) - origin.x, line->End.Y - origin.y});
      // The square of the length divides, so it must not vanish either.
      if (piece.length * piece.length > 0.0) pieces.push_back(piece);
    }
  }
  return pieces;
}

CurveTree::CurveTree(std::vector<MeasuredPiece> pieces)
    : pieces_(std::move(pieces)), order_(pieces_.size()) {
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  std::vector<Box> boxes;
  boxes.reserve(pieces_.size());
  for (const MeasuredPiece& piece : pieces_) boxes.push_back(BoxOf(piece));
  nodes_.reserve(pieces_.empty() ? 0 : 1 + 4 * pieces_.size() / kLeafSize);
  if (!pieces_.empty()) Build(0, pieces_.size(), boxes);
}

// The depth is the logarithm of the number of pieces, since every step halves them.
std::size_t CurveTree::Build(std::size_t first, std::size_t last, const std::vector<Box>& boxes) {
  Node node{boxes[order_[first]], first, last, 0, 0};
  for (std::size_t i = first; i < last; ++i) node.box = Around(node.box, boxes[order_[i]]);
  const std::size_t index = nodes_.size();
  nodes_.push_back(node);
  if (last - first <= kLeafSize) return index;
  const std::size_t middle = first + (last - first) / 2;
  const bool alongX = node.box.maxX - node.box.minX >= node.box.maxY - node.box.minY;
  const auto key = [&](std::size_t i) {
    const double sum = alongX ? boxes[i].minX + boxes[i].maxX : boxes[i].minY + boxes[i].maxY;
    return std::isnan(sum) ? 0.0 : sum;
  };
  const auto at = [&](std::size_t i) { return order_.begin() + static_cast<std::ptrdiff_t>(i); };
  std::nth_element(at(first), at(middle), at(last), [&](std::size_t a, std::size_t b) {
    return key(a) != key(b) ? key(a) < key(b) : a < b;
  });
  const std::size_t left = Build(first, middle, boxes);
  const std::size_t right = Build(middle, last, boxes);
  nodes_[index].left = left;
  nodes_[index].right = right;
  return index;
}

void CurveTree::Search(const Node& node, const Place& p, PlaceOnCurve& best) const {
  if (node.left == 0) {
    for (std::size_t i = node.first; i < node.last; ++i) {
      const double distance = DistanceTo(pieces_[order_[i]], p);
      if (!(distance < best.distance)) continue;
      best.distance = distance;
      best.piece = order_[i];
    }
    return;
  }
  const Node* near = &nodes_[node.left];
  const Node* far = &nodes_[node.right];
  double toNear = DistanceTo(near->box, p);
  double toFar = DistanceTo(far->box, p);
  if (toFar < toNear) {
    std::swap(near, far);
    std::swap(toNear, toFar);
  }
  if (toNear < best.distance) Search(*near, p, best);
  if (toFar < best.distance) Search(*far, p, best);
}

PlaceOnCurve CurveTree::Nearest(const Place& p, std::size_t hint) const {
  PlaceOnCurve best;
  best.distance = HUGE_VAL;
  if (pieces_.empty()) return best;
  best.piece = hint < pieces_.size() ? hint : 0;
  best.distance = DistanceTo(pieces_[best.piece], p);
  Search(nodes_.front(), p, best);
  best.share = FootOn(pieces_[best.piece], p).share;
  return best;
}

DeviationMeter::Probe DeviationMeter::Look(const MeasuredPiece& piece, double share,
                                           std::size_t hint, const CurveTree& to,
                                           LargestDistance& largest) {
  const Place p = PlaceAt(piece, share);
  Probe probe;
  probe.share = share;
  probe.near = to.Nearest(p, hint);
  ++looks_;
  if (!largest.known || probe.near.distance > largest.distance) {
    largest = {probe.near.distance, p, true};
  }
  return probe;
}

// A stretch is left alone where nothing on it can be further away than the largest distance found
// so far and what may be missed. Along a curve the distance from another one changes by no more
// than the way, so in the middle it is at most half of the sum of both ends' distances and the
// length; where both ends are nearest to one piece, or as good as, StretchBound tells more.
void DeviationMeter::Divide(const MeasuredPiece& piece, const CurveTree& to, double limit,
                            LargestDistance& largest) {
  while (!open_.empty() && looks_ < kMostLooks && !(largest.distance > limit)) {
    const Stretch stretch = open_.back();
    open_.pop_back();
    const Probe& from = stretch.from;
    const Probe& behind = stretch.to;
    const double enough = largest.distance + kMissed;
    const double way = (behind.share - from.share) * piece.length;
    // Written so that what is not a number, beyond all range, is not divided for ever.
    if (!(0.5 * (from.near.distance + behind.near.distance + way) > enough)) continue;
    const Place start = PlaceAt(piece, from.share);
    const Place end = PlaceAt(piece, behind.share);
    bool bounded = false;
    for (const std::size_t index : {from.near.piece, behind.near.piece}) {
      const MeasuredPiece& other = to.Pieces()[index];
      bounded = bounded || StretchBound(piece, from.share, behind.share, other,
                                        FootOfNear(from.near, index, other, start),
                                        FootOfNear(behind.near, index, other, end)) <= enough;
    }
    if (bounded) continue;
    const double width = behind.share - from.share;
    double share = 0.5 * (from.share + behind.share);
    if (from.near.piece != behind.near.piece) {
      const double beside = ShareBesideEnd(piece, to.Pieces()[from.near.piece], end);
      const double margin = kLeastShare * width;
      if (beside > from.share + margin && beside < behind.share - margin) share = beside;
    }
    // Nothing lies between neighbouring numbers.
    if (!(share > from.share && share < behind.share)) continue;
    const Probe middle = Look(piece, share, from.near.piece, to, largest);
    open_.push_back({middle, behind});
    open_.push_back({from, middle});
  }
}

void DeviationMeter::Raise(const std::vector<MeasuredPiece>& from, const RigidMotion& motion,
                           const CurveTree& to, double limit, LargestDistance& largest) {
  const double turn = std::atan2(motion.sine, motion.cosine);
  moved_.clear();
  probes_.clear();
  open_.clear();
  looks_ = 0;
  if (to.Pieces().empty()) return;
  // All ends and middles first: the larger the largest distance, the less is divided.
  std::size_t hint = 0;
  for (const MeasuredPiece& piece : from) {
    moved_.push_back(Moved(piece, motion, turn));
    for (const double share : {0.0, 0.5, 1.0}) {
      probes_.push_back(Look(moved_.back(), share, hint, to, largest));
      hint = probes_.back().near.piece;
    }
    if (largest.distance > limit) return;
  }
  for (std::size_t i = 0; i < moved_.size(); ++i) {
    open_.clear();
    open_.push_back({probes_[3 * i + 1], probes_[3 * i + 2]});
    open_.push_back({probes_[3 * i], probes_[3 * i + 1]});
    Divide(moved_[i], to, limit, largest);
  }
}

}  // namespace drawing
