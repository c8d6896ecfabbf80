#include "drawing/Curves.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace drawing {
namespace {

constexpr double kQuarterTurn = 1.5707963267948966;

// Differences of parameters up to this share of a quarter turn are rounding.
constexpr double kSameParameter = 1.0e-9;

// No arc of an ellipse between the ends of two axes has more than one bend.
constexpr std::size_t kEllipseIntervals = 4;

}  // namespace

Curve::~Curve() = default;

EllipseCurve::EllipseCurve(const PlaneVector& center, const PlaneVector& major,
                           const PlaneVector& minor, double from, double to)
    : center_(center), major_(major), minor_(minor) {
  breaks_.push_back(from);
  const double first = std::floor(from / kQuarterTurn) + 1.0;
  const auto count = static_cast<int>(std::ceil(to / kQuarterTurn - first));
  for (int i = 0; i < count; ++i) {
    const double axis = (first + i) * kQuarterTurn;
    if (axis - from > kSameParameter && to - axis > kSameParameter) breaks_.push_back(axis);
  }
  breaks_.push_back(to);
}

const std::vector<double>& EllipseCurve::Breaks() const { return breaks_; }

CurvePoint EllipseCurve::At(std::size_t /*piece*/, double parameter) const {
  const double c = std::cos(parameter);
  const double s = std::sin(parameter);
  CurvePoint p;
  const PlaneVector arm{c * major_.x + s * minor_.x, c * major_.y + s * minor_.y};
  p.place = {center_.x + arm.x, center_.y + arm.y};
  p.first = {c * minor_.x - s * major_.x, c * minor_.y - s * major_.y};
  p.second = {-arm.x, -arm.y};
  return p;
}

std::size_t EllipseCurve::LeastIntervals() const { return kEllipseIntervals; }

SplineCurve::SplineCurve(std::size_t degree, std::vector<double> knots,
                         const std::vector<ControlPoint>& points)
    : degree_(degree), knots_(std::move(knots)) {
  // Only the ratios of the weights count; with the largest at 1 no product of theirs overflows.
  double largest = 0.0;
  for (const ControlPoint& p : points) largest = std::max(largest, p.weight);
  for (const ControlPoint& p : points) {
    const double w = p.weight / largest;
    points_.push_back({p.place.x * w, p.place.y * w, w});
  }
  for (std::size_t k = degree_; k < points_.size(); ++k) {
    if (!(knots_[k] < knots_[k + 1])) continue;
    spans_.push_back(k);
    breaks_.push_back(knots_[k]);
  }
  breaks_.push_back(knots_[points_.size()]);
}

const std::vector<double>& SplineCurve::Breaks() const { return breaks_; }

std::size_t SplineCurve::LeastIntervals() const { return 2 * degree_ + 2; }

// Goes up one stage of the triangle, at a parameter of the span that begins at knot k.
void SplineCurve::GoUp(Triangle& d, std::size_t k, std::size_t stage, double parameter) const {
  for (std::size_t j = degree_; j > stage; --j) {
    const double left = knots_[k - degree_ + j];
    const double share = (parameter - left) / (knots_[k + j - stage] - left);
    d[j].x = (1.0 - share) * d[j - 1].x + share * d[j].x;
    d[j].y = (1.0 - share) * d[j - 1].y + share * d[j].y;
    d[j].w = (1.0 - share) * d[j - 1].w + share * d[j].w;
  }
}

SplineCurve::Homogeneous SplineCurve::Slope(const Homogeneous& a, const Homogeneous& b,
                                            double divisor) {
  return {(b.x - a.x) / divisor, (b.y - a.y) / divisor, (b.w - a.w) / divisor};
}

CurvePoint SplineCurve::At(std::size_t piece, double parameter) const {
  const std::size_t k = spans_[piece];
  const std::size_t p = degree_;
  const auto degree = static_cast<double>(p);
  const double width = knots_[k + 1] - knots_[k];
  Triangle d;
  for (std::size_t j = 0; j <= p; ++j) d[j] = points_[k - p + j];
  Homogeneous first;
  Homogeneous second;
  for (std::size_t stage = 0; stage < p; ++stage) {
    // With two stages to go three points are left, with one two: their differences.
    if (stage + 2 == p) {
      const Homogeneous left = Slope(d[p - 2], d[p - 1], knots_[k + 1] - knots_[k - 1]);
      const Homogeneous right = Slope(d[p - 1], d[p], knots_[k + 2] - knots_[k]);
      second = Slope(left, right, width / (degree * (degree - 1.0)));
    }
    if (stage + 1 == p) first = Slope(d[p - 1], d[p], width / degree);
    GoUp(d, k, stage, parameter);
  }
  return WithoutWeight(d[p], first, second);
}

CurvePoint SplineCurve::WithoutWeight(const Homogeneous& h, const Homogeneous& first,
                                      const Homogeneous& second) {
  CurvePoint p;
  p.place = {h.x / h.w, h.y / h.w};
  p.first = {(first.x - first.w * p.place.x) / h.w, (first.y - first.w * p.place.y) / h.w};
  p.second = {(second.x - 2.0 * first.w * p.first.x - second.w * p.place.x) / h.w,
              (second.y - 2.0 * first.w * p.first.y - second.w * p.place.y) / h.w};
  return p;
}

}  // namespace drawing
