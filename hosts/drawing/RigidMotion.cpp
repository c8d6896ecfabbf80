#include "drawing/RigidMotion.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <vector>

namespace drawing {

namespace {

constexpr double kPi = 3.141592653589793;
constexpr int kRounds = 30;

// Guards the division by a distance: pairs nearer than this, in millimetres, all weigh alike.
constexpr double kLeastDistance = 1.0e-6;

// Guards the direction of the turn: rows that spread less than this, in millimetres, have none.
constexpr double kLeastSpread = 1.0e-9;

struct Centres {
  GX2DPoint from;
  GX2DPoint to;
};

GX2DPoint WeightedCentre(const std::vector<GX2DPoint>& points, const std::vector<double>& weights) {
  double sum = 0.0;
  double x = 0.0;
  double y = 0.0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    sum += weights[i];
    x += weights[i] * points[i].X;
    y += weights[i] * points[i].Y;
  }
  return sum > 0.0 ? GX2DPoint(x / sum, y / sum) : GX2DPoint();
}

RigidMotion ShiftBetween(const Centres& centres, double cosine, double sine) {
  RigidMotion motion;
  motion.cosine = cosine;
  motion.sine = sine;
  const GX2DPoint turned = motion.Apply(centres.from);
  motion.shiftX = centres.to.X - turned.X;
  motion.shiftY = centres.to.Y - turned.Y;
  return motion;
}

double WeightOf(const std::vector<double>& weights) {
  return std::accumulate(weights.begin(), weights.end(), 0.0);
}

bool AreUsable(const std::vector<double>& weights, std::size_t count) {
  const bool negative =
      std::any_of(weights.begin(), weights.end(), [](double weight) { return !(weight >= 0.0); });
  return weights.size() == count && !negative && WeightOf(weights) > 0.0;
}

}  // namespace

GX2DPoint RigidMotion::Apply(const GX2DPoint& p) const {
  return {cosine * p.X - sine * p.Y + shiftX, sine * p.X + cosine * p.Y + shiftY};
}

GX2DPoint RigidMotion::Undo(const GX2DPoint& p) const {
  const double x = p.X - shiftX;
  const double y = p.Y - shiftY;
  return {cosine * x + sine * y, cosine * y - sine * x};
}

double RigidMotion::AngleDegrees() const {
  const double degrees = std::atan2(sine, cosine) * 180.0 / kPi;
  return degrees <= -180.0 ? 180.0 : degrees;
}

RigidMotion TurnAndShift(double radians, const GX2DPoint& from, const GX2DPoint& to) {
  return ShiftBetween({from, to}, std::cos(radians), std::sin(radians));
}

RigidMotion FitRigidMotion(const std::vector<GX2DPoint>& from, const std::vector<GX2DPoint>& to) {
  return FitRigidMotion(from, to, {});
}

RigidMotion FitRigidMotion(const std::vector<GX2DPoint>& from, const std::vector<GX2DPoint>& to,
                           const std::vector<double>& weights) {
  const std::vector<double> fromAlike(from.size(), 1.0);
  const std::vector<double> toAlike(to.size(), 1.0);
  if (from.size() != to.size()) {
    return ShiftBetween({WeightedCentre(from, fromAlike), WeightedCentre(to, toAlike)}, 1.0, 0.0);
  }
  const std::vector<double>& used = AreUsable(weights, from.size()) ? weights : fromAlike;
  const Centres centres{WeightedCentre(from, used), WeightedCentre(to, used)};

  // With both rows about their centres, the turn has the direction of (sum of dots, sum of
  // crosses).
  double dots = 0.0;
  double crosses = 0.0;
  for (std::size_t i = 0; i < from.size(); ++i) {
    const double fx = from[i].X - centres.from.X;
    const double fy = from[i].Y - centres.from.Y;
    const double tx = to[i].X - centres.to.X;
    const double ty = to[i].Y - centres.to.Y;
    dots += used[i] * (fx * tx + fy * ty);
    crosses += used[i] * (fx * ty - fy * tx);
  }
  const double size = std::hypot(dots, crosses);
  const double least = kLeastSpread * kLeastSpread * WeightOf(used);
  if (!(size > least) || !std::isfinite(size)) return ShiftBetween(centres, 1.0, 0.0);
  return ShiftBetween(centres, dots / size, crosses / size);
}

RigidMotion FitRobustly(const std::vector<GX2DPoint>& from, const std::vector<GX2DPoint>& to) {
  RigidMotion motion = FitRigidMotion(from, to);
  if (from.size() != to.size()) return motion;
  std::vector<double> weights(from.size());
  for (int round = 0; round < kRounds; ++round) {
    for (std::size_t i = 0; i < from.size(); ++i) {
      const GX2DPoint image = motion.Apply(from[i]);
      const double distance = std::hypot(image.X - to[i].X, image.Y - to[i].Y);
      weights[i] = 1.0 / std::max(distance, kLeastDistance);
    }
    motion = FitRigidMotion(from, to, weights);
  }
  return motion;
}

double LargestDeviation(const RigidMotion& motion, const std::vector<GX2DPoint>& from,
                        const std::vector<GX2DPoint>& to) {
  double largestSquare = 0.0;
  const std::size_t count = std::min(from.size(), to.size());
  for (std::size_t i = 0; i < count; ++i) {
    const GX2DPoint& p = from[i];
    const double dx = motion.cosine * p.X - motion.sine * p.Y + motion.shiftX - to[i].X;
    const double dy = motion.sine * p.X + motion.cosine * p.Y + motion.shiftY - to[i].Y;
    const double square = dx * dx + dy * dy;
    // Written so that a distance that is not a number counts as one that is too large.
    if (!(square <= largestSquare)) largestSquare = std::isnan(square) ? HUGE_VAL : square;
  }
  return std::sqrt(largestSquare);
}

}  // namespace drawing
