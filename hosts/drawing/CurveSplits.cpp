#include "drawing/CurveSplits.h"

#include <algorithm>
#include <cmath>

namespace drawing {
namespace {

constexpr double kCornerTurn = 0.05;  // radians
constexpr double kSlightTurn = 0.005;

// Curvatures of which the smaller is above this share of the larger are alike.
constexpr double kAlike = 0.8;

// An arc over a stretch of length L with curvature k rises k L^2 / 8 over its chord.
constexpr double kRise = 8.0;
constexpr double kNegligible = 0.1;  // Of the tolerance.

double Turn(const TraceSample& s) {
  return std::fabs(
      std::atan2(s.in.x * s.out.y - s.in.y * s.out.x, s.in.x * s.out.x + s.in.y * s.out.y));
}

double NegligibleCurvature(double length, double tolerance) {
  return kRise * kNegligible * tolerance / (length * length);
}

double LargerCurvature(const TraceSample& s) {
  return std::max(std::fabs(s.curvatureIn), std::fabs(s.curvatureOut));
}

// Whether one curvature (without sign) stands out over another.
bool StandsOut(double large, double small, double negligible) {
  return kAlike * large > small + negligible;
}

double Jump(const TraceSample& s, double negligible) {
  const double before = std::fabs(s.curvatureIn);
  const double behind = std::fabs(s.curvatureOut);
  const double difference = std::fabs(s.curvatureOut - s.curvatureIn);
  const double larger = std::max(before, behind);
  return difference > (1.0 - kAlike) * larger + negligible ? difference : 0.0;
}

// Walks along the curvatures and tells a largest or smallest value once the curve has left it
// clearly. The first and the last value are ends and no splits.
class ExtremeFinder {
 public:
  ExtremeFinder(double negligible, std::vector<Split>& splits)
      : negligible_(negligible), splits_(splits) {}

  void Look(double at, double value) {
    if (!begun_) {
      begun_ = true;
      first_ = at;
      largest_ = {at, value};
      smallest_ = {at, value};
      return;
    }
    if (value > largest_.value) largest_ = {at, value};
    if (value < smallest_.value) smallest_ = {at, value};
    if (sense_ >= 0 && StandsOut(largest_.value, value, negligible_)) {
      Tell(largest_);
      sense_ = -1;
      smallest_ = {at, value};
    } else if (sense_ <= 0 && StandsOut(value, smallest_.value, negligible_)) {
      Tell(smallest_);
      sense_ = 1;
      largest_ = {at, value};
    }
  }

 private:
  struct Mark {
    double at = 0.0;
    double value = 0.0;
  };

  void Tell(const Mark& mark) {
    if (mark.at > first_) splits_.push_back({mark.at, mark.value, false});
  }

  double negligible_;
  std::vector<Split>& splits_;
  bool begun_ = false;
  double first_ = 0.0;
  int sense_ = 0;  // 1 while the curvature grows, -1 while it falls, 0 as long as nobody knows.
  Mark largest_;
  Mark smallest_;
};

}  // namespace

std::vector<double> FindCorners(const CurveTrace& trace) {
  std::vector<double> corners;
  const std::vector<TraceSample>& samples = trace.Samples();
  for (std::size_t i = 1; i + 1 < samples.size(); ++i) {
    if (Turn(samples[i]) > kCornerTurn) corners.push_back(samples[i].length);
  }
  return corners;
}

std::vector<Split> FindSplits(const CurveTrace& trace, const Stretch& stretch, double tolerance) {
  const double negligible = NegligibleCurvature(stretch.to - stretch.from, tolerance);
  std::vector<Split> splits;
  ExtremeFinder extremes(negligible, splits);
  const std::vector<TraceSample>& samples = trace.Samples();
  for (std::size_t i = std::max<std::size_t>(trace.FirstBehind(stretch.from), 1) - 1;
       i < samples.size() && samples[i].length <= stretch.to; ++i) {
    const TraceSample& s = samples[i];
    const bool inside = s.length > stretch.from && s.length < stretch.to;
    if (s.length > stretch.from) extremes.Look(s.length, std::fabs(s.curvatureIn));
    if (inside && (Turn(s) > kSlightTurn || Jump(s, negligible) > 0.0)) {
      splits.push_back({s.length, LargerCurvature(s), true});
    }
    if (s.length < stretch.to) extremes.Look(s.length, std::fabs(s.curvatureOut));
  }
  std::sort(splits.begin(), splits.end(), [](const Split& a, const Split& b) {
    return a.at != b.at ? a.at < b.at : a.jumps > b.jumps;
  });
  const auto same = [](const Split& a, const Split& b) { return a.at == b.at; };
  splits.erase(std::unique(splits.begin(), splits.end(), same), splits.end());
  return splits;
}

Split BestStart(const CurveTrace& trace, double tolerance) {
  const std::vector<TraceSample>& samples = trace.Samples();
  const double negligible = NegligibleCurvature(trace.Length(), tolerance);
  Split jump;
  Split largest{0.0, LargerCurvature(samples.front()), false};
  double jumpSize = 0.0;
  double least = largest.curvature;
  for (std::size_t i = 0; i + 1 < samples.size(); ++i) {
    const TraceSample& s = samples[i];
    const double curvature = LargerCurvature(s);
    if (Turn(s) > kCornerTurn) return {s.length, curvature, true};
    if (Jump(s, negligible) > jumpSize) {
      jump = {s.length, curvature, true};
      jumpSize = Jump(s, negligible);
    }
    if (curvature > largest.curvature) largest = {s.length, curvature, false};
    least = std::min(least, curvature);
  }
  if (jumpSize > 0.0) return jump;
  const Split first{0.0, LargerCurvature(samples.front()), false};
  return StandsOut(largest.curvature, least, negligible) ? largest : first;
}

bool BeginsAtCorner(const CurveTrace& trace) { return Turn(trace.Samples().front()) > kCornerTurn; }

}  // namespace drawing
