#include "drawing/PlacementFit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace drawing {

namespace {

constexpr std::size_t kRoughPlaces = 12;  // By index and by way each.
constexpr std::size_t kRoughCutOuts = 16;
constexpr std::size_t kFittedPlaces = 96;  // By index and by way each.
constexpr std::size_t kFittedCutOuts = 96;
constexpr std::size_t kPlacesOfCutOut = 4;

// In millimetres: an outline between two circles that are no further apart tells no turn.
constexpr double kRoundOutline = 0.2;

// In millimetres: cut-outs draw no further.
constexpr double kCutOutReach = 1.0;

// Where distances are cut off, as a share of the size of the part.
constexpr double kRoughCap = 0.05;

constexpr int kSquareRounds = 8;
constexpr int kSumRounds = 24;
constexpr int kLargestRounds = 60;

// No place loses more of its weight in a round than down to this share: it may come to count again.
constexpr double kLeastEmphasis = 0.1;

// In millimetres: places nearer than this all weigh alike.
constexpr double kNear = 1.0e-6;

// A step that moves no place by more than this share of the size is the last.
constexpr double kNoStep = 1.0e-15;

// What a place of an outline weighs against one of a cut-out.
constexpr double kOutlineWeight = 1.0e6;

// Keeps the equations solvable where the turn or a shift is free, as a share of their sum.
constexpr double kDamping = 1.0e-12;

// Every so-many-th start of a piece, `count` of them.
void AddByIndex(const std::vector<MeasuredPiece>& pieces, std::size_t count,
                std::vector<Place>& places) {
  const std::size_t taken = std::min(count, pieces.size());
  for (std::size_t i = 0; i < taken; ++i) {
    places.push_back(pieces[i * pieces.size() / taken].start);
  }
}

// `count` places at equal ways along the curve.
void AddByWay(const std::vector<MeasuredPiece>& pieces, std::size_t count,
              std::vector<Place>& places) {
  double total = 0.0;
  for (const MeasuredPiece& piece : pieces) total += piece.length;
  const double step = total / static_cast<double>(count);
  double next = 0.5 * step;
  double done = 0.0;
  std::size_t added = 0;
  for (const MeasuredPiece& piece : pieces) {
    for (; added < count && next <= done + piece.length; ++added) {
      places.push_back(PlaceAt(piece, (next - done) / piece.length));
      next += step;
    }
    done += piece.length;
  }
}

std::vector<Place> OutlinePlaces(const ContourCurve& outer, std::size_t count) {
  std::vector<Place> places;
  AddByIndex(outer.curve.Pieces(), count, places);
  AddByWay(outer.curve.Pieces(), count, places);
  return places;
}

std::vector<Place> CutOutPlaces(const std::vector<ContourCurve>& cutOuts, std::size_t count,
                                std::size_t each) {
  std::vector<Place> places;
  const std::size_t taken = std::min(count, cutOuts.size());
  for (std::size_t i = 0; i < taken; ++i) {
    AddByWay(cutOuts[i * cutOuts.size() / taken].curve.Pieces(), each, places);
  }
  return places;
}

// Solves the three equations with the symmetric matrix m (by Cholesky's method).
bool Solve(std::array<std::array<double, 3>, 3> m, std::array<double, 3>& v) {
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j <= i; ++j) {
      double sum = m[i][j];
      for (std::size_t k = 0; k < j; ++k) sum -= m[i][k] * m[j][k];
      if (i == j && !(sum > 0.0)) return false;
      m[i][j] = i == j ? std::sqrt(sum) : sum / m[j][j];
    }
  }
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t k = 0; k < i; ++k) v[i] -= m[i][k] * v[k];
    v[i] /= m[i][i];
  }
  for (std::size_t i = 3; i-- > 0;) {
    for (std::size_t k = i + 1; k < 3; ++k) v[i] -= m[k][i] * v[k];
    v[i] /= m[i][i];
  }
  return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]);
}

int RoundsFor(FitAim aim) {
  switch (aim) {
    case FitAim::kSquares:
      return kSquareRounds;
    case FitAim::kSum:
      return kSumRounds;
    case FitAim::kLargest:
      break;
  }
  return kLargestRounds;
}

}  // namespace

PlacementFit::PlacementFit(const PartCurves& a, const PartCurves& b)
    : a_(a), b_(b), withCutOuts_(a.outer.IsRound(kRoundOutline)) {
  const auto follow = [](const std::vector<Place>& places, std::vector<Follower>& followers) {
    for (const Place& p : places) followers.push_back({p, 0});
  };
  roughA_ = OutlinePlaces(a.outer, kRoughPlaces);
  roughB_ = OutlinePlaces(b.outer, kRoughPlaces);
  roughCutOutsA_ = CutOutPlaces(a.cutOuts, kRoughCutOuts, 2);
  roughCutOutsB_ = CutOutPlaces(b.cutOuts, kRoughCutOuts, 2);
  follow(OutlinePlaces(a.outer, kFittedPlaces), ofA_);
  follow(OutlinePlaces(b.outer, kFittedPlaces), ofB_);
  if (!withCutOuts_) return;
  follow(CutOutPlaces(a.cutOuts, kFittedCutOuts, kPlacesOfCutOut), ofCutOutsA_);
  follow(CutOutPlaces(b.cutOuts, kFittedCutOuts, kPlacesOfCutOut), ofCutOutsB_);
}

double PlacementFit::Roughly(const RigidMotion& motion) const {
  const double cap = kRoughCap * a_.outer.reach;
  double sum = 0.0;
  std::size_t hint = 0;
  const auto add = [&](const Place& p, const CurveTree& tree) {
    const PlaceOnCurve near = tree.Nearest(p, hint);
    hint = near.piece;
    sum += std::min(near.distance, cap);
  };
  for (const Place& p : roughB_) add(Moved(motion, p), a_.outer.curve);
  for (const Place& p : roughCutOutsB_) add(Moved(motion, p), a_.all);
  for (const Place& p : roughA_) add(MovedBack(motion, p), b_.outer.curve);
  for (const Place& p : roughCutOutsA_) add(MovedBack(motion, p), b_.all);
  const std::size_t count =
      roughA_.size() + roughB_.size() + roughCutOutsA_.size() + roughCutOutsB_.size();
  const double mean = sum / static_cast<double>(std::max<std::size_t>(count, 1));
  return std::isnan(mean) ? HUGE_VAL : mean;
}

double PlacementFit::MeanDistance(const RigidMotion& motion) const {
  double sum = 0.0;
  for (const Follower& follower : ofB_) {
    sum += a_.outer.curve.Nearest(Moved(motion, follower.place), follower.hint).distance;
  }
  for (const Follower& follower : ofA_) {
    sum += b_.outer.curve.Nearest(MovedBack(motion, follower.place), follower.hint).distance;
  }
  return sum / static_cast<double>(std::max<std::size_t>(ofA_.size() + ofB_.size(), 1));
}

// The equations of places of B on curves of A, or (`ofA`) of places of A on curves of B, always in
// the coordinates of A. Beside a curve the distance from it counts; beyond the end of a piece, at a
// corner, both coordinates do.
void PlacementFit::AddRows(const RigidMotion& motion, std::vector<Follower>& followers,
                           const CurveTree& tree, bool ofA, double reach) {
  for (Follower& follower : followers) {
    const Place p = ofA ? MovedBack(motion, follower.place) : Moved(motion, follower.place);
    const PlaceOnCurve near = tree.Nearest(p, follower.hint);
    follower.hint = near.piece;
    if (!(near.distance <= reach)) continue;
    const MeasuredPiece& piece = tree.Pieces()[near.piece];
    Place onCurve = PlaceAt(piece, near.share);
    Place along = DirectionAt(piece, near.share);
    Place mine = p;
    if (ofA) {
      onCurve = Moved(motion, onCurve);
      along = {motion.cosine * along.x - motion.sine * along.y,
               motion.sine * along.x + motion.cosine * along.y};
      mine = follower.place;
    }
    // The place of B is the one that moves.
    const Place& moving = ofA ? onCurve : mine;
    const Place& fixed = ofA ? mine : onCurve;
    const bool beside = near.share > 0.0 && near.share < 1.0;
    const auto add = [&](double x, double y) {
      rows_.push_back({x, y, x * -moving.y + y * moving.x,
                       x * (moving.x - fixed.x) + y * (moving.y - fixed.y), 1.0});
    };
    add(-along.y, along.x);
    if (!beside) add(along.x, along.y);
  }
}

void PlacementFit::CollectRows(const RigidMotion& motion) {
  rows_.clear();
  AddRows(motion, ofB_, a_.outer.curve, false, HUGE_VAL);
  AddRows(motion, ofA_, b_.outer.curve, true, HUGE_VAL);
  outlineRows_ = rows_.size();
  if (!withCutOuts_) return;
  AddRows(motion, ofCutOutsB_, a_.all, false, kCutOutReach);
  AddRows(motion, ofCutOutsA_, b_.all, true, kCutOutReach);
}

double PlacementFit::LargestOfRows() const {
  double largest = 0.0;
  for (const Row& row : rows_) largest = std::max(largest, std::fabs(row.distance));
  return largest;
}

// For the largest distance, weights grow with the distances round by round (Lawson's method).
void PlacementFit::Weigh(FitAim aim) {
  if (aim == FitAim::kSquares) return;
  if (aim == FitAim::kSum) {
    for (Row& row : rows_) row.weight = 1.0 / std::max(std::fabs(row.distance), kNear);
    return;
  }
  // Another number of rows, since a place has come to lie beyond an end, begins anew.
  if (emphasis_.size() != rows_.size()) emphasis_.assign(rows_.size(), 1.0);
  const double least = std::max(kLeastEmphasis * LargestOfRows(), kNear);
  double sum = 0.0;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    emphasis_[i] *= std::max(std::fabs(rows_[i].distance), least);
    sum += emphasis_[i];
  }
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    emphasis_[i] /= sum;
    rows_[i].weight = emphasis_[i];
  }
}

// Returns: false where the motion moves no more.
bool PlacementFit::Step(RigidMotion& motion) const {
  const double size = std::max(a_.outer.reach, kNear);
  std::array<std::array<double, 3>, 3> m = {};
  std::array<double, 3> v = {};
  for (const Row& row : rows_) {
    // The lever in units of the size, so that all three unknowns are lengths.
    const std::array<double, 3> factors = {row.x, row.y, row.lever / size};
    for (std::size_t i = 0; i < 3; ++i) {
      for (std::size_t j = 0; j < 3; ++j) m[i][j] += row.weight * factors[i] * factors[j];
      v[i] -= row.weight * factors[i] * row.distance;
    }
  }
  const double damping = kDamping * (m[0][0] + m[1][1] + m[2][2]);
  for (std::size_t i = 0; i < 3; ++i) m[i][i] += damping;
  if (!Solve(m, v)) return false;
  RigidMotion turn;
  turn.cosine = std::cos(v[2] / size);
  turn.sine = std::sin(v[2] / size);
  turn.shiftX = v[0];
  turn.shiftY = v[1];
  const Place shift = Moved(turn, {motion.shiftX, motion.shiftY});
  const double cosine = turn.cosine * motion.cosine - turn.sine * motion.sine;
  const double sine = turn.sine * motion.cosine + turn.cosine * motion.sine;
  const double length = std::sqrt(cosine * cosine + sine * sine);
  motion.cosine = cosine / length;
  motion.sine = sine / length;
  motion.shiftX = shift.x;
  motion.shiftY = shift.y;
  return std::fabs(v[0]) + std::fabs(v[1]) + std::fabs(v[2]) > kNoStep * size;
}

RigidMotion PlacementFit::Fitted(const RigidMotion& motion, FitAim aim) {
  RigidMotion fitted = motion;
  RigidMotion best = motion;
  double least = HUGE_VAL;
  emphasis_.clear();
  const int rounds = RoundsFor(aim);
  for (int round = 0; round < rounds; ++round) {
    CollectRows(fitted);
    // The largest distance does not fall in every round.
    if (LargestOfRows() < least) {
      least = LargestOfRows();
      best = fitted;
    }
    Weigh(aim);
    for (std::size_t i = 0; i < outlineRows_; ++i) rows_[i].weight *= kOutlineWeight;
    if (!Step(fitted)) break;
  }
  return aim == FitAim::kLargest ? best : fitted;
}

}  // namespace drawing
