#include "drawing/CurveTrace.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace drawing {
namespace {

// Samples nearer than this, in millimetres, are one.
constexpr double kSameSample = 1.0e-9;

// Steps, in millimetres, below which a turn is taken as a corner and not looked into.
constexpr double kShortestStep = 0.0001;

constexpr double kLargestTurn = 0.3;  // radians from sample to sample

// A direction at one end takes the cubic of a step aside by up to this share of the length of the
// step and of the sine of the angle: the largest value of t (1 - t)^2.
constexpr double kCubicHeight = 4.0 / 27.0;

// A speed below this share of the mean speed of the piece tells no direction: it is then looked at
// this share of the piece further in.
constexpr double kNoSpeed = 1.0e-6;
constexpr double kLookFurther = 1.0e-4;

// A curve whose ends are one point and that is no longer, in millimetres, is a short open one.
constexpr double kShortestLoop = 4.0 * kCurveEndGap;

// So many units in the last place of a coordinate must be less than a chord may be off: the work on
// samples takes some dozens of operations.
constexpr double kRounding = 1.0e-14;

constexpr int kDeepest = 40;
constexpr std::size_t kLooksPerSample = 4;

double DistanceOf(const PlaneVector& p, const PlaneVector& q) {
  return std::hypot(q.x - p.x, q.y - p.y);
}

PlaneVector Negated(const PlaneVector& v) { return {-v.x, -v.y}; }

double Turn(const PlaneVector& from, const PlaneVector& to) {
  return std::fabs(std::atan2(from.x * to.y - from.y * to.x, from.x * to.x + from.y * to.y));
}

double FromChord(const PlaneVector& p, const PlaneVector& a, const PlaneVector& b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double square = dx * dx + dy * dy;
  if (square == 0.0) return DistanceOf(p, a);
  const double share = std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / square, 0.0, 1.0);
  return DistanceOf(p, {a.x + share * dx, a.y + share * dy});
}

bool IsFinite(const TraceSample& s) {
  const double sum =
      s.place.x + s.place.y + s.in.x + s.in.y + s.out.x + s.out.y + s.curvatureIn + s.curvatureOut;
  return std::isfinite(sum);
}

// Follows one piece of a curve from its start to its end.
class PieceTracer {
 public:
  PieceTracer(const Curve& curve, std::size_t piece, double chord, std::size_t most,
              CurveTrace& trace)
      : curve_(curve),
        piece_(piece),
        from_(curve.Breaks()[piece]),
        to_(curve.Breaks()[piece + 1]),
        chord_(chord),
        most_(most),
        trace_(trace) {}

  // False where the samples do not suffice or are not finite.
  bool Run();
  // Why not; empty where the samples did not suffice.
  const std::string& Problem() const { return problem_; }

 private:
  struct Station {
    double parameter;
    TraceSample sample;
  };

  bool HasSpeed(const CurvePoint& p) const;
  static void Measure(const CurvePoint& p, PlaneVector& direction, double& curvature);
  Station StationAt(double parameter) const;
  void MeasureSpeed(std::size_t intervals);
  bool IsFine(const Station& a, const Station& middle, const Station& b) const;
  bool Refine(const Station& a, const Station& b, int depth);
  bool Put(const Station& station);

  const Curve& curve_;
  std::size_t piece_;
  double from_;
  double to_;
  double chord_;
  std::size_t most_;
  CurveTrace& trace_;
  double speed_ = 0.0;     // Mean over the piece.
  std::size_t looks_ = 0;  // Steps that were looked into.
  std::string problem_;
};

bool PieceTracer::HasSpeed(const CurvePoint& p) const {
  return std::hypot(p.first.x, p.first.y) > kNoSpeed * speed_;
}

// Direction and curvature, from the side of the piece on which there is a direction.
void PieceTracer::Measure(const CurvePoint& p, PlaneVector& direction, double& curvature) {
  const double speed = std::hypot(p.first.x, p.first.y);
  if (speed == 0.0) return;
  direction = {p.first.x / speed, p.first.y / speed};
  curvature = (direction.x * (p.second.y / speed) - direction.y * (p.second.x / speed)) / speed;
}

PieceTracer::Station PieceTracer::StationAt(double parameter) const {
  Station station{parameter, {}};
  TraceSample& sample = station.sample;
  const CurvePoint p = curve_.At(piece_, parameter);
  sample.place = p.place;
  sample.isBreak = parameter == from_ || parameter == to_;
  if (HasSpeed(p)) {
    Measure(p, sample.out, sample.curvatureOut);
    sample.in = sample.out;
    sample.curvatureIn = sample.curvatureOut;
    return station;
  }
  const double step = kLookFurther * (to_ - from_);
  const double before = std::max(from_, parameter - step);
  const double behind = std::min(to_, parameter + step);
  Measure(curve_.At(piece_, parameter == from_ ? behind : before), sample.in, sample.curvatureIn);
  Measure(curve_.At(piece_, parameter == to_ ? before : behind), sample.out, sample.curvatureOut);
  return station;
}

void PieceTracer::MeasureSpeed(std::size_t intervals) {
  double length = 0.0;
  PlaneVector last = curve_.At(piece_, from_).place;
  for (std::size_t i = 1; i <= intervals; ++i) {
    const double share = static_cast<double>(i) / static_cast<double>(intervals);
    const PlaneVector next = curve_.At(piece_, from_ + share * (to_ - from_)).place;
    length += DistanceOf(last, next);
    last = next;
  }
  speed_ = length / (to_ - from_);
}

bool PieceTracer::Put(const Station& station) {
  if (!IsFinite(station.sample)) {
    problem_ = "a coordinate is too large";
    return false;
  }
  const PlaneVector& place = station.sample.place;
  if (kRounding * std::max(std::fabs(place.x), std::fabs(place.y)) > chord_) {
    problem_ = "it lies too far from the origin to be followed";
    return false;
  }
  if (trace_.Samples().size() >= most_) return false;
  trace_.Add(station.sample);
  return true;
}

bool PieceTracer::IsFine(const Station& a, const Station& middle, const Station& b) const {
  const double span = b.parameter - a.parameter;
  const PlaneVector& p = a.sample.place;
  const PlaneVector& q = b.sample.place;
  if (!(FromChord(middle.sample.place, p, q) <= chord_)) return false;
  for (const double share : {0.25, 0.75}) {
    const PlaneVector beside = curve_.At(piece_, a.parameter + share * span).place;
    if (!(FromChord(beside, p, q) <= chord_)) return false;
  }
  const double length = DistanceOf(p, middle.sample.place) + DistanceOf(middle.sample.place, q);
  if (length <= kShortestStep) return true;
  return Turn(a.sample.out, middle.sample.out) <= kLargestTurn &&
         Turn(middle.sample.out, b.sample.out) <= kLargestTurn;
}

// Puts the samples behind `a` up to `b`.
bool PieceTracer::Refine(const Station& a, const Station& b, int depth) {
  const Station middle = StationAt(0.5 * a.parameter + 0.5 * b.parameter);
  if (!IsFinite(middle.sample)) return Put(middle);
  if (trace_.Samples().size() >= most_ || ++looks_ > kLooksPerSample * most_) return false;
  if (depth == kDeepest || IsFine(a, middle, b)) return Put(middle) && Put(b);
  return Refine(a, middle, depth + 1) && Refine(middle, b, depth + 1);
}

bool PieceTracer::Run() {
  const std::size_t intervals = curve_.LeastIntervals();
  MeasureSpeed(intervals);
  Station station = StationAt(from_);
  if (!Put(station)) return false;
  for (std::size_t i = 1; i <= intervals; ++i) {
    const double share = static_cast<double>(i) / static_cast<double>(intervals);
    const Station next = StationAt(i == intervals ? to_ : from_ + share * (to_ - from_));
    if (!IsFinite(next.sample)) return Put(next);
    if (!Refine(station, next, 0)) return false;
    station = next;
  }
  return true;
}

}  // namespace

void CurveTrace::Add(const TraceSample& sample) {
  if (!samples_.empty()) {
    TraceSample& last = samples_.back();
    const double chord = DistanceOf(last.place, sample.place);
    if (chord <= kSameSample) {
      last.out = sample.out;
      last.curvatureOut = sample.curvatureOut;
      last.isBreak = last.isBreak || sample.isBreak;
      return;
    }
    samples_.push_back(sample);
    samples_.back().length = samples_[samples_.size() - 2].length + chord;
    return;
  }
  samples_.push_back(sample);
  samples_.back().length = 0.0;
}

const std::vector<TraceSample>& CurveTrace::Samples() const { return samples_; }

double CurveTrace::Length() const { return samples_.empty() ? 0.0 : samples_.back().length; }

std::size_t CurveTrace::FirstBehind(double length) const {
  const auto behind = std::upper_bound(
      samples_.begin(), samples_.end(), length,
      [](double value, const TraceSample& sample) { return value < sample.length; });
  return static_cast<std::size_t>(behind - samples_.begin());
}

PlaneVector CurveTrace::PlaceAt(double length) const {
  const std::size_t behind = FirstBehind(length);
  if (behind == 0) return samples_.front().place;
  const TraceSample& a = samples_[behind - 1];
  if (behind == samples_.size() || a.length == length) return a.place;
  const TraceSample& b = samples_[behind];
  const double chord = b.length - a.length;
  const double t = (length - a.length) / chord;
  const double u = 1.0 - t;
  const double atA = u * u * (1.0 + 2.0 * t);
  const double atB = t * t * (1.0 + 2.0 * u);
  const double alongA = t * u * u * chord;
  const double alongB = -t * t * u * chord;
  return {atA * a.place.x + atB * b.place.x + alongA * a.out.x + alongB * b.in.x,
          atA * a.place.y + atB * b.place.y + alongA * a.out.y + alongB * b.in.y};
}

PlaneVector CurveTrace::DirectionAt(double length, bool behind) const {
  const std::size_t next = std::clamp<std::size_t>(FirstBehind(length), 1, samples_.size());
  const TraceSample& a = samples_[next - 1];
  if (next == samples_.size() || a.length == length) return behind ? a.out : a.in;
  const TraceSample& b = samples_[next];
  const double t = (length - a.length) / (b.length - a.length);
  const PlaneVector mixed{(1.0 - t) * a.out.x + t * b.in.x, (1.0 - t) * a.out.y + t * b.in.y};
  const double size = std::hypot(mixed.x, mixed.y);
  return size == 0.0 ? a.out : PlaneVector{mixed.x / size, mixed.y / size};
}

bool CurveTrace::IsClosed() const {
  if (samples_.size() < 3 || !(Length() > kShortestLoop)) return false;
  const PlaneVector& start = samples_.front().place;
  const PlaneVector& end = samples_.back().place;
  return std::fabs(start.x - end.x) <= kCurveEndGap && std::fabs(start.y - end.y) <= kCurveEndGap;
}

void CurveTrace::Reverse() {
  const double length = Length();
  std::reverse(samples_.begin(), samples_.end());
  for (TraceSample& s : samples_) {
    s.length = length - s.length;
    const PlaneVector in = s.in;
    s.in = Negated(s.out);
    s.out = Negated(in);
    std::swap(s.curvatureIn, s.curvatureOut);
    s.curvatureIn = -s.curvatureIn;
    s.curvatureOut = -s.curvatureOut;
  }
}

void CurveTrace::Append(const CurveTrace& next) {
  if (next.samples_.empty()) return;
  if (samples_.empty()) {
    samples_ = next.samples_;
    return;
  }
  TraceSample joint = next.samples_.front();
  joint.place = samples_.back().place;
  Add(joint);
  samples_.back().isBreak = true;
  for (std::size_t i = 1; i < next.samples_.size(); ++i) Add(next.samples_[i]);
}

void CurveTrace::CloseExactly() {
  if (samples_.size() < 2) return;
  TraceSample& start = samples_.front();
  TraceSample& end = samples_.back();
  end.place = start.place;
  start.in = end.in;
  start.curvatureIn = end.curvatureIn;
  end.out = start.out;
  end.curvatureOut = start.curvatureOut;
}

TraceSample CurveTrace::SampleAt(double length) const {
  const std::size_t behind = FirstBehind(length);
  const TraceSample& a = samples_[behind - 1];
  if (a.length == length || behind == samples_.size()) return a;
  const TraceSample& b = samples_[behind];
  const double share = (length - a.length) / (b.length - a.length);
  TraceSample sample;
  sample.place = PlaceAt(length);
  sample.length = length;
  sample.in = DirectionAt(length, false);
  sample.out = sample.in;
  sample.curvatureIn = (1.0 - share) * a.curvatureOut + share * b.curvatureIn;
  sample.curvatureOut = sample.curvatureIn;
  return sample;
}

void CurveTrace::BeginAt(double length) {
  if (!(length > 0.0 && length < Length())) return;
  const double rest = Length() - length;
  TraceSample start = SampleAt(length);
  std::vector<TraceSample> turned;
  turned.reserve(samples_.size() + 1);
  turned.push_back(start);
  turned.back().length = 0.0;
  for (std::size_t i = FirstBehind(length); i < samples_.size(); ++i) {
    turned.push_back(samples_[i]);
    turned.back().length -= length;
  }
  // The old end is the old start and is there already.
  for (std::size_t i = 1; i < samples_.size() && samples_[i].length < length; ++i) {
    turned.push_back(samples_[i]);
    turned.back().length += rest;
  }
  start.length = length + rest;
  turned.push_back(start);
  samples_ = std::move(turned);
}

void CurveTrace::MendDirections(double chord) {
  for (std::size_t i = 0; i + 1 < samples_.size(); ++i) {
    TraceSample& a = samples_[i];
    TraceSample& b = samples_[i + 1];
    const PlaneVector step{b.place.x - a.place.x, b.place.y - a.place.y};
    const double length = std::hypot(step.x, step.y);
    const auto leads = [&](const PlaneVector& d) {
      const double aside = kCubicHeight * std::fabs(step.x * d.y - step.y * d.x);
      return step.x * d.x + step.y * d.y > 0.0 && aside <= 2.0 * chord;
    };
    const PlaneVector along{step.x / length, step.y / length};
    if (!leads(a.out)) a.out = along;
    if (!leads(b.in)) b.in = along;
  }
}

std::string TraceCurve(const Curve& curve, double chord, std::size_t mostSamples,
                       CurveTrace& trace) {
  trace = CurveTrace();
  CurveTrace made;
  for (std::size_t piece = 0; piece + 1 < curve.Breaks().size(); ++piece) {
    if (!made.Samples().empty()) {
      const PlaneVector next = curve.At(piece, curve.Breaks()[piece]).place;
      if (DistanceOf(made.Samples().back().place, next) > kCurveEndGap) {
        return "it falls apart at a knot";
      }
    }
    PieceTracer tracer(curve, piece, chord, mostSamples, made);
    if (tracer.Run()) continue;
    if (!tracer.Problem().empty()) return tracer.Problem();
    return "it cannot be followed by " + std::to_string(mostSamples) + " points";
  }
  made.MendDirections(chord);
  trace = std::move(made);
  return {};
}

}  // namespace drawing
