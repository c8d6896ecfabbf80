#include "drawing/CircleMotions.h"

#include "drawing/CurveMeasures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace drawing {

namespace {

// In millimetres. A cut-out nearer to the centre than this is a poor pointer: a hundredth of a
// millimetre there is a degree and a half.
constexpr double kGoodArm = 1.0;

// Distances from the centre that two partners can have at most between them, in millimetres.
constexpr double kArmTolerance = 2.0 * kPositionLimit;

// How far around, in millimetres, partners are looked for to make a first turn more exact.
constexpr double kRefineRadius = 0.5;

struct Centres {
  GX2DPoint a;
  GX2DPoint b;
};

double AngleFrom(const GX2DPoint& centre, const GX2DPoint& p) {
  return std::atan2(p.Y - centre.Y, p.X - centre.X);
}

// The cut-outs of B that a cut-out of A can lie on, by group and distance from the centre.
class PartnersByArm {
 public:
  PartnersByArm(const CutOutPartners& cutOuts, const Centres& centres)
      : cutOuts_(cutOuts), centres_(centres) {
    const std::vector<PlacedCutOut>& b = cutOuts.B();
    for (std::size_t j = 0; j < b.size(); ++j) {
      if (b[j].group == kNoCutOut) continue;
      entries_.push_back({b[j].group, Distance(centres.b, b[j].reference), j});
    }
    std::sort(entries_.begin(), entries_.end(), [](const Entry& p, const Entry& q) {
      return p.group != q.group ? p.group < q.group : p.arm < q.arm;
    });
  }

  double ArmOf(std::size_t i) const { return Distance(centres_.a, cutOuts_.A()[i].reference); }

  std::vector<std::size_t> Of(std::size_t i) const {
    const std::size_t group = cutOuts_.A()[i].group;
    const auto [first, last] = Range(group, ArmOf(i));
    std::vector<std::size_t> indices;
    for (auto entry = first; entry != last; ++entry) indices.push_back(entry->index);
    std::sort(indices.begin(), indices.end());
    return indices;
  }

  std::size_t Count(std::size_t i) const {
    const auto [first, last] = Range(cutOuts_.A()[i].group, ArmOf(i));
    return static_cast<std::size_t>(last - first);
  }

 private:
  struct Entry {
    std::size_t group;
    double arm;
    std::size_t index;
  };
  using Iterator = std::vector<Entry>::const_iterator;

  std::pair<Iterator, Iterator> Range(std::size_t group, double arm) const {
    const auto before = [](const Entry& p, const Entry& q) {
      return p.group != q.group ? p.group < q.group : p.arm < q.arm;
    };
    return {std::lower_bound(entries_.begin(), entries_.end(), Entry{group, arm - kArmTolerance, 0},
                             before),
            std::upper_bound(entries_.begin(), entries_.end(), Entry{group, arm + kArmTolerance, 0},
                             before)};
  }

  const CutOutPartners& cutOuts_;
  Centres centres_;
  std::vector<Entry> entries_;
};

// The cut-out of A with the fewest possible partners; among equals that farthest from the centre.
std::size_t BestPointer(const CutOutPartners& cutOuts, const PartnersByArm& partners,
                        double leastArm) {
  std::size_t best = kNoCutOut;
  std::size_t fewest = 0;
  double longest = 0.0;
  for (std::size_t i = 0; i < cutOuts.A().size(); ++i) {
    const double arm = partners.ArmOf(i);
    if (cutOuts.A()[i].group == kNoCutOut || !(arm > leastArm)) continue;
    const std::size_t count = partners.Count(i);
    if (count == 0) continue;
    if (best != kNoCutOut && (count > fewest || (count == fewest && arm <= longest))) continue;
    best = i;
    fewest = count;
    longest = arm;
  }
  return best;
}

std::vector<double> TurnsByArm(const CutOutPartners& cutOuts, const Centres& centres,
                               double leastArm) {
  const PartnersByArm partners(cutOuts, centres);
  std::vector<double> turns;
  const std::size_t pointer = BestPointer(cutOuts, partners, leastArm);
  if (pointer == kNoCutOut) return turns;
  const double target = AngleFrom(centres.a, cutOuts.A()[pointer].reference);
  for (const std::size_t j : partners.Of(pointer)) {
    turns.push_back(target - AngleFrom(centres.b, cutOuts.B()[j].reference));
  }
  return turns;
}

// The turns between one cut-out of A that is no circle and those of its group in B.
std::vector<double> TurnsByShape(const CutOutPartners& cutOuts, const Centres& centres) {
  const PartnersByArm partners(cutOuts, centres);
  std::vector<double> turns;
  for (std::size_t i = 0; i < cutOuts.A().size() && turns.empty(); ++i) {
    const PlacedCutOut& mine = cutOuts.A()[i];
    if (mine.group == kNoCutOut || mine.circle || mine.starts.empty()) continue;
    const std::vector<GX2DPoint> to = mine.walk.Points(mine.starts.front());
    for (const std::size_t j : partners.Of(i)) {
      const PlacedCutOut& other = cutOuts.B()[j];
      for (const WalkStart& start : other.starts) {
        const RigidMotion motion = FitRigidMotion(other.walk.Points(start), to);
        turns.push_back(std::atan2(motion.sine, motion.cosine));
      }
    }
  }
  return turns;
}

std::vector<double> Turns(const CutOutPartners& cutOuts, const Centres& centres) {
  std::vector<double> turns = TurnsByArm(cutOuts, centres, kGoodArm);
  if (turns.empty()) turns = TurnsByShape(cutOuts, centres);
  if (turns.empty()) turns = TurnsByArm(cutOuts, centres, kPositionLimit);
  if (turns.empty()) turns.push_back(0.0);
  return turns;
}

// A turn found with one cut-out alone carries its whole error to the rim. All of them together do
// better: the turn with the least squares between the reference points and those nearest to them.
RigidMotion Refine(const CutOutPartners& cutOuts, const Centres& centres,
                   const RigidMotion& motion) {
  double dots = 0.0;
  double crosses = 0.0;
  for (const PlacedCutOut& mine : cutOuts.A()) {
    if (mine.group == kNoCutOut) continue;
    double least = HUGE_VAL;
    GX2DPoint nearest;
    for (const std::size_t j : cutOuts.Near(motion, mine.reference, kRefineRadius)) {
      const PlacedCutOut& other = cutOuts.B()[j];
      const double distance = Distance(motion.Apply(other.reference), mine.reference);
      if (other.group != mine.group || distance >= least) continue;
      least = distance;
      nearest = other.reference;
    }
    if (least == HUGE_VAL) continue;
    const double fx = nearest.X - centres.b.X;
    const double fy = nearest.Y - centres.b.Y;
    const double tx = mine.reference.X - centres.a.X;
    const double ty = mine.reference.Y - centres.a.Y;
    dots += fx * tx + fy * ty;
    crosses += fx * ty - fy * tx;
  }
  if (!(std::hypot(dots, crosses) > 0.0)) return motion;
  return TurnAndShift(std::atan2(crosses, dots), centres.b, centres.a);
}

// The motion of a turn, made more exact where that finds more partners.
RigidMotion BestMotion(const CutOutPartners& cutOuts, const Centres& centres, double turn) {
  const RigidMotion first = TurnAndShift(turn, centres.b, centres.a);
  const std::size_t found = cutOuts.Search(first).found;
  if (found == cutOuts.A().size()) return first;
  const RigidMotion refined = Refine(cutOuts, centres, first);
  return cutOuts.Search(refined).found > found ? refined : first;
}

}  // namespace

std::vector<MatchedStart> CircleMotions(const ShapedContour& outerA, const ShapedContour& outerB,
                                        const CutOutPartners& cutOuts, int startPosition) {
  const GX2DArc& circleA = *AsFullCircle(outerA.elements);
  const GX2DArc& circleB = *AsFullCircle(outerB.elements);
  const Centres centres{circleA.Center, circleB.Center};
  MatchedStart matched;
  matched.position = startPosition;
  matched.outerDeviation = std::fabs(circleA.Radius() - circleB.Radius());
  matched.outlinesAgree = matched.outerDeviation <= kPositionLimit;
  std::vector<MatchedStart> motions;
  for (const double turn : Turns(cutOuts, centres)) {
    matched.motion = BestMotion(cutOuts, centres, turn);
    motions.push_back(matched);
  }
  return motions;
}

}  // namespace drawing
