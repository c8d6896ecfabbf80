#include "drawing/PlacementCandidates.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace drawing {

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;

// In millimetres: how far the distances of two counterparts from the centre may differ. The centres
// of two drawings of one part differ by less than the places on them, which is 0.05 at most.
constexpr double kArmTolerance = 0.2;

// Below this change of the distance from the centre per way along the curve, a curve goes around
// the centre.
constexpr double kFlat = 1.0e-6;

// In millimetres: an arc whose centre is nearer to the centre of the part points nowhere, and so
// does a place that is.
constexpr double kLeastArm = 0.05;

// In millimetres: cut-outs that vary less are round.
constexpr double kRoundTolerance = 0.01;

// Weighs the size of a cut-out against its distance, so that both together make one figure to look
// for; any number that is no simple ratio does.
constexpr double kSizeWeight = 3.71;

// In millimetres at the farthest place: turns that differ by less are one.
constexpr double kSameTurn = 0.02;

// In radians: turns this way and that by so nearly the same angle are equally large.
constexpr double kSameSize = 1.0e-6;

constexpr std::size_t kPointers = 3;
constexpr std::size_t kMostTurns = 20000;

// Directions of sides are sorted into so many bins for a full turn.
constexpr std::size_t kDirectionBins = 3600;
constexpr std::size_t kDirectionsOfA = 2;
constexpr std::size_t kDirectionsOfB = 8;

enum class Kind { kFarthest, kNearest, kArcEnd, kCutOutMiddle, kCutOutFarthest, kCutOutNearest };

// A place that stands out.
struct Feature {
  Kind kind = Kind::kFarthest;
  double figure = 0.0;  // Distance from the centre, for cut-outs with their size.
  double arm = 0.0;
  double angle = 0.0;
};

bool ComesBefore(const Feature& p, const Feature& q) {
  return p.kind != q.kind ? p.kind < q.kind : p.figure < q.figure;
}

// What one contour adds.
class FeatureCollector {
 public:
  FeatureCollector(bool cutOut, double size, std::vector<Feature>& features)
      : cutOut_(cutOut), size_(size), features_(features) {}

  void Add(Kind kind, const Place& p) {
    Feature feature;
    feature.kind = kind;
    feature.arm = Distance({0.0, 0.0}, p);
    if (!(feature.arm > kLeastArm)) return;
    feature.figure = feature.arm + kSizeWeight * size_;
    feature.angle = std::atan2(p.y, p.x);
    features_.push_back(feature);
  }

  // Where the distance from the centre turns from growing to falling, or the other way.
  void AddExtremes(const std::vector<MeasuredPiece>& pieces) {
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      AddInside(pieces[i]);
      AddBetween(pieces[i], pieces[(i + 1) % pieces.size()]);
    }
  }

 private:
  void AddExtreme(bool farthest, const Place& p) {
    if (cutOut_) {
      Add(farthest ? Kind::kCutOutFarthest : Kind::kCutOutNearest, p);
    } else {
      Add(farthest ? Kind::kFarthest : Kind::kNearest, p);
    }
  }

  void AddInside(const MeasuredPiece& piece) {
    if (piece.sweep == 0.0) {
      const Foot foot = FootOn(piece, {0.0, 0.0});
      if (foot.share > 0.0 && foot.share < 1.0) AddExtreme(false, PlaceAt(piece, foot.share));
      return;
    }
    const double arm = Distance({0.0, 0.0}, piece.centre);
    if (!(arm > kLeastArm)) return;
    for (const bool farthest : {true, false}) {
      const double away = farthest ? piece.radius : -piece.radius;
      const Place p = {piece.centre.x * (1.0 + away / arm), piece.centre.y * (1.0 + away / arm)};
      // Rounding must not lose an extreme that lies at the end of an arc.
      if (FootOn(piece, p).distance < 1.0e-6) AddExtreme(farthest, p);
    }
  }

  void AddBetween(const MeasuredPiece& before, const MeasuredPiece& behind) {
    const Place& p = before.end;
    const double arm = Distance({0.0, 0.0}, p);
    if (!(arm > kLeastArm)) return;
    const auto growth = [&](const Place& direction) {
      const double change = (direction.x * p.x + direction.y * p.y) / arm;
      return std::fabs(change) <= kFlat ? 0.0 : change;
    };
    const double in = growth(DirectionAt(before, 1.0));
    const double out = growth(DirectionAt(behind, 0.0));
    if (in * out < 0.0) AddExtreme(in > 0.0, p);
    if ((in == 0.0) != (out == 0.0) && (before.sweep != 0.0 || behind.sweep != 0.0)) {
      Add(Kind::kArcEnd, p);
    }
  }

  bool cutOut_;
  double size_;
  std::vector<Feature>& features_;
};

std::vector<Feature> FeaturesOf(const PartCurves& part) {
  std::vector<Feature> features;
  FeatureCollector(false, 0.0, features).AddExtremes(part.outer.curve.Pieces());
  for (const ContourCurve& cutOut : part.cutOuts) {
    FeatureCollector collector(true, cutOut.reach, features);
    collector.Add(Kind::kCutOutMiddle, cutOut.centre);
    if (!cutOut.IsRound(kRoundTolerance)) collector.AddExtremes(cutOut.curve.Pieces());
  }
  std::stable_sort(features.begin(), features.end(), ComesBefore);
  return features;
}

using Iterator = std::vector<Feature>::const_iterator;

std::pair<Iterator, Iterator> Counterparts(const Feature& feature,
                                           const std::vector<Feature>& sorted) {
  const bool cutOut = feature.kind >= Kind::kCutOutMiddle;
  const double tolerance = cutOut ? (1.0 + kSizeWeight) * kArmTolerance : kArmTolerance;
  Feature low = feature;
  Feature high = feature;
  low.figure -= tolerance;
  high.figure += tolerance;
  return {std::lower_bound(sorted.begin(), sorted.end(), low, ComesBefore),
          std::upper_bound(sorted.begin(), sorted.end(), high, ComesBefore)};
}

// A place of A with what it may lie on.
struct Pointer {
  const Feature* feature = nullptr;
  Iterator first;
  Iterator last;
  std::size_t inA = 0;

  std::size_t Count() const { return static_cast<std::size_t>(last - first); }
};

// As many counterparts in B as in A is a good sign, few of them save work, and a long arm tells the
// turn best; an arm of less than a quarter of the longest is taken only for want of others.
bool PointsBetter(const Pointer& p, const Pointer& q, double longest) {
  const bool longP = p.feature->arm >= 0.25 * longest;
  const bool longQ = q.feature->arm >= 0.25 * longest;
  if (longP != longQ) return longP;
  const bool evenP = p.Count() == p.inA;
  const bool evenQ = q.Count() == q.inA;
  if (evenP != evenQ) return evenP;
  if (p.Count() != q.Count()) return p.Count() < q.Count();
  return p.feature->arm > q.feature->arm;
}

std::vector<Pointer> BestPointers(const std::vector<Feature>& a, const std::vector<Feature>& b) {
  std::vector<Pointer> pointers;
  double longest = 0.0;
  Iterator reached = b.begin();
  for (const Feature& feature : a) {
    const auto [first, last] = Counterparts(feature, b);
    if (first == last) continue;
    // Of places that are alike one is enough: those with the same first counterpart.
    if (!pointers.empty() && first == reached) continue;
    reached = first;
    const auto own = Counterparts(feature, a);
    pointers.push_back({&feature, first, last, static_cast<std::size_t>(own.second - own.first)});
    longest = std::max(longest, feature.arm);
  }
  const std::size_t count = std::min(pointers.size(), kPointers);
  std::partial_sort(pointers.begin(), pointers.begin() + static_cast<std::ptrdiff_t>(count),
                    pointers.end(), [&](const Pointer& p, const Pointer& q) {
                      if (PointsBetter(p, q, longest)) return true;
                      return !PointsBetter(q, p, longest) && p.feature < q.feature;
                    });
  pointers.resize(count);
  return pointers;
}

RigidMotion TurnAbout(double radians, const Place& shift) {
  RigidMotion motion;
  motion.cosine = std::cos(radians);
  motion.sine = std::sin(radians);
  motion.shiftX = shift.x;
  motion.shiftY = shift.y;
  return motion;
}

// Of turns within `tolerance` (radians) of each other one remains. Small turns come first, so that
// a symmetric part stays as it is where it can.
std::vector<double> Distinct(std::vector<double> turns, double tolerance) {
  for (double& turn : turns) turn = std::remainder(turn, kTwoPi);
  std::sort(turns.begin(), turns.end());
  std::vector<double> distinct;
  for (const double turn : turns) {
    if (distinct.empty() || turn - distinct.back() > tolerance) distinct.push_back(turn);
  }
  std::stable_sort(distinct.begin(), distinct.end(), [](double p, double q) {
    return std::floor(std::fabs(p) / kSameSize) < std::floor(std::fabs(q) / kSameSize);
  });
  return distinct;
}

// The length of all lines that run in each direction, the outline taken counter-clockwise.
struct Direction {
  double length = 0.0;
  double x = 0.0;
  double y = 0.0;
  std::size_t bin = 0;
};

std::vector<Direction> LongestDirections(const ContourCurve& contour, std::size_t count) {
  std::vector<Direction> bins(kDirectionBins);
  for (const MeasuredPiece& piece : contour.curve.Pieces()) {
    if (piece.sweep != 0.0) continue;
    const double sense = contour.clockwise ? -1.0 : 1.0;
    const double x = sense * (piece.end.x - piece.start.x);
    const double y = sense * (piece.end.y - piece.start.y);
    const double turns = (std::atan2(y, x) + kPi) / kTwoPi;
    if (std::isnan(turns)) continue;
    // Half a bin aside: upright and level sides stand in the middle of theirs.
    const auto bin = static_cast<std::size_t>(std::lround(turns * kDirectionBins)) % kDirectionBins;
    bins[bin].length += piece.length;
    bins[bin].x += x;
    bins[bin].y += y;
  }
  for (std::size_t i = 0; i < bins.size(); ++i) bins[i].bin = i;
  const std::size_t kept = std::min(count, bins.size());
  std::partial_sort(bins.begin(), bins.begin() + static_cast<std::ptrdiff_t>(kept), bins.end(),
                    [](const Direction& p, const Direction& q) {
                      return p.length != q.length ? p.length > q.length : p.bin < q.bin;
                    });
  bins.resize(kept);
  while (!bins.empty() && !(bins.back().length > 0.0)) bins.pop_back();
  return bins;
}

Box BoxUnder(const ContourCurve& contour, const RigidMotion& motion) {
  Box box;
  bool first = true;
  for (const MeasuredPiece& piece : contour.curve.Pieces()) {
    for (const double share : {0.0, 0.5}) {
      const Place p = Moved(motion, PlaceAt(piece, share));
      if (first) box = {p.x, p.y, p.x, p.y};
      first = false;
      box = {std::min(box.minX, p.x), std::min(box.minY, p.y), std::max(box.maxX, p.x),
             std::max(box.maxY, p.y)};
    }
  }
  return box;
}

// One motion by the centres, four by the corners of the boxes, one by their middles.
void AddShifts(const PartCurves& a, const PartCurves& b, double turn, double direction,
               std::vector<RigidMotion>& motions) {
  const RigidMotion centred = TurnAbout(turn, {0.0, 0.0});
  motions.push_back(centred);
  // Boxes along the sides that are parallel now.
  const RigidMotion level = TurnAbout(-direction, {0.0, 0.0});
  RigidMotion both = TurnAbout(turn - direction, {0.0, 0.0});
  const Box boxA = BoxUnder(a.outer, level);
  const Box boxB = BoxUnder(b.outer, both);
  const std::array<double, 3> xs = {boxA.minX - boxB.minX, boxA.maxX - boxB.maxX,
                                    0.5 * (boxA.minX - boxB.minX + boxA.maxX - boxB.maxX)};
  const std::array<double, 3> ys = {boxA.minY - boxB.minY, boxA.maxY - boxB.maxY,
                                    0.5 * (boxA.minY - boxB.minY + boxA.maxY - boxB.maxY)};
  for (const double x : xs) {
    for (const double y : ys) {
      motions.push_back(TurnAbout(turn, MovedBack(level, {x, y})));
    }
  }
}

}  // namespace

std::vector<RigidMotion> FeaturePlacements(const PartCurves& a, const PartCurves& b) {
  const std::vector<Feature> featuresOfA = FeaturesOf(a);
  const std::vector<Feature> featuresOfB = FeaturesOf(b);
  std::vector<RigidMotion> motions;
  for (const Pointer& pointer : BestPointers(featuresOfA, featuresOfB)) {
    std::vector<double> turns;
    for (Iterator other = pointer.first; other != pointer.last; ++other) {
      if (std::fabs(other->arm - pointer.feature->arm) > kArmTolerance) continue;
      turns.push_back(pointer.feature->angle - other->angle);
    }
    const double tolerance = kSameTurn / std::max(a.outer.reach, kSameTurn);
    for (const double turn : Distinct(std::move(turns), tolerance)) {
      if (motions.size() == kMostTurns) return motions;
      motions.push_back(TurnAbout(turn, {0.0, 0.0}));
    }
  }
  if (motions.empty()) motions.push_back(TurnAbout(0.0, {0.0, 0.0}));
  return motions;
}

std::vector<RigidMotion> DirectionPlacements(const PartCurves& a, const PartCurves& b) {
  std::vector<RigidMotion> motions;
  for (const Direction& mine : LongestDirections(a.outer, kDirectionsOfA)) {
    for (const Direction& other : LongestDirections(b.outer, kDirectionsOfB)) {
      const double direction = std::atan2(mine.y, mine.x);
      AddShifts(a, b, direction - std::atan2(other.y, other.x), direction, motions);
    }
  }
  return motions;
}

}  // namespace drawing
