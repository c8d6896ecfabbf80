#include "drawing/GeometricVerdict.h"

#include "drawing/CurvePartners.h"
#include "drawing/PartCurves.h"
#include "drawing/PlacementCandidates.h"
#include "drawing/PlacementFit.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace drawing {

namespace {

// In millimetres: by less than this no placement fits better than another, so that among symmetric
// ones the first stays, whatever the last digits are.
constexpr double kNoGain = 1.0e-6;

// In millimetres: places that lie so near on each other can only be those of one part.
constexpr double kRoughlyPerfect = 1.0e-7;

// Candidates that look perfect at a glance are tried at once, so many of a row.
constexpr std::size_t kTriedAtOnce = 8;

// Candidates of a row that are measured, and pieces that all of these may have together.
constexpr std::size_t kMostTrials = 32;
constexpr std::size_t kLeastTrials = 3;
constexpr std::size_t kPiecesInTrials = 300000;

// Candidates that are fitted with an eye to what agrees, not to what differs.
constexpr std::size_t kRobustTrials = 4;

// In millimetres: outlines within this can still come to agree.
constexpr double kNearlyAgreeing = 4.0 * kPositionLimit;

// Cut-outs without partner that are measured to choose between two placements.
constexpr std::size_t kMeasuredAlone = 100;

// One placement with what it comes to, about the centres of both parts.
struct Trial {
  RigidMotion motion;
  LargestDistance outer;
  bool outlinesAgree = false;
  CurvePartnerSearch cutOuts;
  double mean = 0.0;     // Distance of the outlines, where they do not agree.
  double largest = 0.0;  // Of all contours, of those alone only some.
};

class PlacementJudge {
 public:
  PlacementJudge(const PartModel& a, const PartModel& b, bool mirrored)
      : a_(a, false), b_(b, mirrored), mirrored_(mirrored), fit_(a_, b_), partners_(a_, b_) {}

  // The motions that the library's starts led to.
  std::vector<RigidMotion> PlacementsOf(const Comparison& comparison) const {
    std::vector<RigidMotion> motions;
    for (std::size_t i = 0; i < comparison.starts.size(); ++i) {
      // The best one first: mostly no other is needed.
      const std::size_t index =
          i == 0 ? comparison.bestStart : (i <= comparison.bestStart ? i - 1 : i);
      motions.push_back(Centred(comparison.starts[index].motion));
    }
    return motions;
  }

  // The library's motions were fitted to corners and are tried as they are, too. Candidates that
  // point at features are not: they would turn the outline to please a cut-out that was moved.
  void TryAll(const std::vector<RigidMotion>& motions, bool asTheyAre) {
    std::vector<std::pair<double, std::size_t>> order;
    std::size_t tried = 0;
    for (std::size_t i = 0; i < motions.size(); ++i) {
      order.emplace_back(fit_.Roughly(motions[i]), i);
      if (order.back().first > kRoughlyPerfect || tried == kTriedAtOnce) continue;
      ++tried;
      Try(asTheyAre ? motions[i] : fit_.Fitted(motions[i], FitAim::kSquares));
      if (IsPerfect()) return;
    }
    // In steps, so that of symmetric ones the first stays the first, whatever the last digits are.
    std::stable_sort(order.begin(), order.end(), [](const auto& p, const auto& q) {
      return std::floor(p.first / kNoGain) < std::floor(q.first / kNoGain);
    });
    order.resize(std::min(order.size(), TrialCount()));
    for (const auto& [rough, index] : order) {
      if (asTheyAre) Try(motions[index]);
      if (!IsPerfect()) Try(fit_.Fitted(motions[index], FitAim::kSquares));
      if (IsPerfect()) return;
    }
    for (std::size_t i = 0; i < std::min(order.size(), kRobustTrials) && !IsPerfect(); ++i) {
      Try(fit_.Fitted(motions[order[i].second], FitAim::kSum));
    }
  }

  // Features tell where outlines agree. Where no outlines did, directions of long sides may, and
  // outlines that nearly agree may do so when the largest distance is pressed down.
  void TryOwn() {
    if (!IsPerfect()) TryAll(FeaturePlacements(a_, b_), false);
    if (!best_.outlinesAgree) TryAll(DirectionPlacements(a_, b_), false);
    if (!best_.outlinesAgree && best_.outer.distance <= kNearlyAgreeing) {
      Try(fit_.Fitted(best_.motion, FitAim::kLargest));
    }
  }

  bool IsPerfect() const {
    return tried_ && best_.outlinesAgree && IsComplete(best_) && best_.largest <= kNoGain;
  }

  GeometricVerdict Verdict() {
    GeometricVerdict verdict;
    verdict.same = best_.outlinesAgree && IsComplete(best_);
    verdict.placement.mirrored = mirrored_;
    verdict.placement.motion = InDrawings(best_.motion);
    verdict.outerDeviation = best_.outer.distance;
    verdict.outerPlace = InDrawing(best_.outer.place);
    verdict.largestDeviation = verdict.outerDeviation;
    TellPartners(verdict);
    for (const ContourDeviation& alone :
         MeasureAlone(best_, b_.cutOuts.size() + a_.cutOuts.size())) {
      verdict.cutOuts.push_back(alone);
    }
    for (const ContourDeviation& cutOut : verdict.cutOuts) {
      verdict.largestDeviation = std::max(verdict.largestDeviation, cutOut.deviation);
    }
    return verdict;
  }

 private:
  std::size_t TrialCount() const {
    const std::size_t pieces = a_.all.Pieces().size() + b_.all.Pieces().size();
    return std::clamp(kPiecesInTrials / std::max<std::size_t>(pieces, 1), kLeastTrials,
                      kMostTrials);
  }

  void Try(const RigidMotion& motion) {
    Trial trial;
    trial.motion = motion;
    // Once outlines agree, others that do not are of no interest.
    const double limit = best_.outlinesAgree ? kPositionLimit : HUGE_VAL;
    RaiseBothWays(meter_, a_.outer.curve, b_.outer.curve, motion, limit, trial.outer);
    trial.outlinesAgree = trial.outer.known && trial.outer.distance <= kPositionLimit;
    if (!trial.outlinesAgree && best_.outlinesAgree) return;
    trial.cutOuts = partners_.Search(motion, kPositionLimit, meter_);
    trial.largest = trial.outer.distance;
    if (!trial.outlinesAgree) trial.mean = fit_.MeanDistance(motion);
    for (const CurvePartner& partner : trial.cutOuts.partners) {
      if (partner.b == kNoCutOut) continue;
      trial.largest = std::max(trial.largest, partner.deviation.distance);
    }
    // What is alone can only make it worse.
    if (tried_ && !FitsBetter(trial)) return;
    for (const ContourDeviation& alone : MeasureAlone(trial, kMeasuredAlone)) {
      trial.largest = std::max(trial.largest, alone.deviation);
    }
    if (tried_ && !FitsBetter(trial)) return;
    best_ = std::move(trial);
    tried_ = true;
  }

  // Outlines that agree come first, then more partners. Among those that agree the smaller largest
  // deviation is better. Where they do not, the mean tells which placement explains the difference:
  // one corner that is cut off is to be seen as that, not spread over all of the outline.
  bool FitsBetter(const Trial& trial) const {
    if (trial.outlinesAgree != best_.outlinesAgree) return trial.outlinesAgree;
    if (trial.cutOuts.found != best_.cutOuts.found)
      return trial.cutOuts.found > best_.cutOuts.found;
    return trial.outlinesAgree ? trial.largest < best_.largest - kNoGain
                               : trial.mean < best_.mean - kNoGain;
  }

  bool IsComplete(const Trial& trial) const {
    return trial.cutOuts.found == a_.cutOuts.size() && trial.cutOuts.found == b_.cutOuts.size();
  }

  // What cut-outs without partner are measured against: those of the other side that have none
  // either, or all contours where there are none.
  static CurveTree AloneOf(const PartCurves& part, const std::vector<bool>& hasPartner) {
    std::vector<MeasuredPiece> pieces;
    for (std::size_t i = 0; i < part.cutOuts.size(); ++i) {
      if (hasPartner[i]) continue;
      const std::vector<MeasuredPiece>& own = part.cutOuts[i].curve.Pieces();
      pieces.insert(pieces.end(), own.begin(), own.end());
    }
    return pieces.empty() ? part.all : CurveTree(std::move(pieces));
  }

  // Of each side at most `count` cut-outs.
  std::vector<ContourDeviation> MeasureAlone(const Trial& trial, std::size_t count) {
    std::vector<bool> hasPartner(a_.cutOuts.size());
    for (std::size_t i = 0; i < hasPartner.size(); ++i) {
      hasPartner[i] = trial.cutOuts.partners[i].b != kNoCutOut;
    }
    std::vector<ContourDeviation> measured;
    if (IsComplete(trial)) return measured;
    const CurveTree aloneA = AloneOf(a_, hasPartner);
    const CurveTree aloneB = AloneOf(b_, trial.cutOuts.taken);
    for (std::size_t i = 0; i < a_.cutOuts.size() && measured.size() < count; ++i) {
      if (hasPartner[i]) continue;
      LargestDistance largest;
      meter_.Raise(a_.cutOuts[i].curve.Pieces(), Inverse(trial.motion), aloneB, HUGE_VAL, largest);
      measured.push_back(
          {i, kNoCutOut, largest.distance, InDrawing(Moved(trial.motion, largest.place))});
    }
    const std::size_t most = measured.size() + std::min(count, b_.cutOuts.size());
    for (std::size_t j = 0; j < b_.cutOuts.size() && measured.size() < most; ++j) {
      if (trial.cutOuts.taken[j]) continue;
      LargestDistance largest;
      meter_.Raise(b_.cutOuts[j].curve.Pieces(), trial.motion, aloneA, HUGE_VAL, largest);
      measured.push_back({kNoCutOut, j, largest.distance, InDrawing(largest.place)});
    }
    return measured;
  }

  void TellPartners(GeometricVerdict& verdict) const {
    for (std::size_t i = 0; i < best_.cutOuts.partners.size(); ++i) {
      const CurvePartner& partner = best_.cutOuts.partners[i];
      if (partner.b == kNoCutOut) continue;
      verdict.cutOuts.push_back(
          {i, partner.b, partner.deviation.distance, InDrawing(partner.deviation.place)});
    }
  }

  GX2DPoint InDrawing(const Place& p) const { return {p.x + a_.origin.x, p.y + a_.origin.y}; }

  // From motions between the drawings to those between the parts about their centres, and back.
  RigidMotion Centred(const RigidMotion& motion) const {
    RigidMotion centred = motion;
    const Place image = Moved(motion, b_.origin);
    centred.shiftX = image.x - a_.origin.x;
    centred.shiftY = image.y - a_.origin.y;
    return centred;
  }

  RigidMotion InDrawings(const RigidMotion& centred) const {
    RigidMotion motion = centred;
    motion.shiftX = 0.0;
    motion.shiftY = 0.0;
    const Place turned = Moved(motion, b_.origin);
    motion.shiftX = a_.origin.x - turned.x + centred.shiftX;
    motion.shiftY = a_.origin.y - turned.y + centred.shiftY;
    return motion;
  }

  PartCurves a_;
  PartCurves b_;
  bool mirrored_;
  PlacementFit fit_;
  CurvePartners partners_;
  DeviationMeter meter_;
  Trial best_;
  bool tried_ = false;
};

}  // namespace

GX2DPoint Placement::Apply(const GX2DPoint& p) const {
  return motion.Apply(mirrored ? GX2DPoint(-p.X, p.Y) : p);
}

GeometricVerdict CompareGeometry(const PartModel& a, const PartModel& b, bool mirrored,
                                 const Comparison* comparison) {
  PlacementJudge judge(a, b, mirrored);
  if (comparison != nullptr && !mirrored) judge.TryAll(judge.PlacementsOf(*comparison), true);
  judge.TryOwn();
  return judge.Verdict();
}

}  // namespace drawing
