// Deviations are measured at all samples of a stretch and at places between them. From the curve to
// the element that is the distance to the bounded line or arc; since the curve leads without a gap
// from one end to the other, the element is then nowhere farther from the curve, unless it is an
// arc that takes the other way round. The middle of the arc tells that.
#include "drawing/CurveFits.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace drawing {
namespace {

constexpr double kTwoPi = 6.283185307179586;

// A stretch whose line is no farther from it than points that are one, in millimetres, is straight.
constexpr double kStraight = 0.0001;

// An arc counts in place of a line that would do, too, where it is nearer by this factor.
constexpr double kClearlyNearer = 0.25;

// How far a turn about a centre may be from a whole one, radians: only whole ones come close.
constexpr double kSameTurn = 1.0e-6;

// The centre of a rough circle is open as well, so its radius is by a little more than its
// deviation.
constexpr double kOpenShare = 1.25;
constexpr int kMostDecimals = 9;

// Where no sample stands between the ends, the curve is looked at in these shares.
constexpr std::array<double, 3> kShares = {0.25, 0.5, 0.75};

constexpr double kInfinity = std::numeric_limits<double>::infinity();

PlaneVector Minus(const PlaneVector& p, const PlaneVector& q) { return {p.x - q.x, p.y - q.y}; }
double Dot(const PlaneVector& p, const PlaneVector& q) { return p.x * q.x + p.y * q.y; }
double Cross(const PlaneVector& p, const PlaneVector& q) { return p.x * q.y - p.y * q.x; }
double Size(const PlaneVector& p) { return std::hypot(p.x, p.y); }

double FromSegment(const PlaneVector& p, const PlaneVector& a, const PlaneVector& b) {
  const PlaneVector chord = Minus(b, a);
  const double square = Dot(chord, chord);
  if (square == 0.0) return Size(Minus(p, a));
  const double share = std::clamp(Dot(Minus(p, a), chord) / square, 0.0, 1.0);
  return Size(Minus(p, {a.x + share * chord.x, a.y + share * chord.y}));
}

// A bounded arc, for distances.
struct Arc {
  PlaneVector center;
  PlaneVector start;
  PlaneVector end;
  double radius;
  double sense;  // 1 counter-clockwise, -1 clockwise.
  bool overHalf;

  bool Covers(const PlaneVector& arm) const {
    const double fromStart = sense * Cross(Minus(start, center), arm);
    const double toEnd = sense * Cross(arm, Minus(end, center));
    if (overHalf) return fromStart >= 0.0 || toEnd >= 0.0;
    return fromStart >= 0.0 && toEnd >= 0.0;
  }

  double From(const PlaneVector& p) const {
    const PlaneVector arm = Minus(p, center);
    if (Covers(arm)) return std::fabs(Size(arm) - radius);
    return std::min(Size(Minus(p, start)), Size(Minus(p, end)));
  }
};

// Calls `measure` for every place of the stretch at which deviations are looked for and returns the
// largest result; ends early once that is above `limit`.
template <class Measure>
double LargestOver(const CurveTrace& trace, const Stretch& stretch, double limit,
                   const Measure& measure) {
  double largest = 0.0;
  const std::vector<TraceSample>& samples = trace.Samples();
  for (const double share : kShares) {
    const double at = stretch.from + share * (stretch.to - stretch.from);
    largest = std::max(largest, measure(trace.PlaceAt(at)));
  }
  const std::size_t first = trace.FirstBehind(stretch.from);
  for (std::size_t i = first; i < samples.size() && samples[i].length < stretch.to; ++i) {
    const double distance = measure(samples[i].place);
    if (!(distance <= limit)) return kInfinity;
    largest = std::max(largest, distance);
  }
  return largest;
}

// Distance of a place from the curve within a stretch.
double FromCurve(const CurveTrace& trace, const Stretch& stretch, const PlaneVector& p) {
  const std::vector<TraceSample>& samples = trace.Samples();
  PlaneVector last = trace.PlaceAt(stretch.from);
  double least = kInfinity;
  for (std::size_t i = trace.FirstBehind(stretch.from); i < samples.size(); ++i) {
    if (!(samples[i].length < stretch.to)) break;
    least = std::min(least, FromSegment(p, last, samples[i].place));
    last = samples[i].place;
  }
  return std::min(least, FromSegment(p, last, trace.PlaceAt(stretch.to)));
}

// A stretch seen from its chord: the middle of the ends is the origin, x runs along the chord.
struct ChordFrame {
  PlaneVector start;
  PlaneVector end;
  PlaneVector middle;
  PlaneVector along;
  PlaneVector normal;  // To the left.
  double half;         // Half the chord.

  ChordFrame(const CurveTrace& trace, const Stretch& stretch)
      : start(trace.PlaceAt(stretch.from)), end(trace.PlaceAt(stretch.to)) {
    const PlaneVector chord = Minus(end, start);
    const double length = Size(chord);
    middle = {start.x + 0.5 * chord.x, start.y + 0.5 * chord.y};
    along = length == 0.0 ? PlaneVector{} : PlaneVector{chord.x / length, chord.y / length};
    normal = {-along.y, along.x};
    half = 0.5 * length;
  }

  PlaneVector See(const PlaneVector& p) const {
    const PlaneVector arm = Minus(p, middle);
    return {Dot(arm, along), Dot(arm, normal)};
  }
};

// Height of the middle of an arc over its chord, to the left of it. The height of the centre and
// the radius nearly cancel out where an arc is flat.
double Bulge(double height, double half, double radius, bool clockwise) {
  const double away = clockwise ? height : -height;
  const double size = away > 0.0 ? away + radius : half * half / (radius - away);
  return clockwise ? size : -size;
}

PlaneVector OnBisector(const ChordFrame& frame, double height) {
  return {frame.middle.x + height * frame.normal.x, frame.middle.y + height * frame.normal.y};
}

Arc MakeArc(const ChordFrame& frame, double height, bool clockwise) {
  Arc arc{};
  arc.center = OnBisector(frame, height);
  arc.start = frame.start;
  arc.end = frame.end;
  arc.radius = std::hypot(frame.half, height);
  arc.sense = clockwise ? -1.0 : 1.0;
  arc.overHalf = clockwise ? height > 0.0 : height < 0.0;
  return arc;
}

// Sums over the stretch: on which side of the chord it is, and the height of the centre over the
// chord with the least squares of x^2 + (y - h)^2 - radius^2.
struct BisectorSums {
  double side = 0.0;
  double height = 0.0;
};

BisectorSums SumUp(const CurveTrace& trace, const Stretch& stretch, const ChordFrame& frame) {
  BisectorSums sums;
  double upper = 0.0;
  double lower = 0.0;
  LargestOver(trace, stretch, kInfinity, [&](const PlaneVector& p) {
    const PlaneVector seen = frame.See(p);
    sums.side += seen.y;
    upper += seen.y * (seen.x * seen.x + seen.y * seen.y - frame.half * frame.half);
    lower += 2.0 * seen.y * seen.y;
    return 0.0;
  });
  sums.height = upper / lower;
  return sums;
}

CurveFit ArcAt(const CurveTrace& trace, const Stretch& stretch, const ChordFrame& frame,
               double side, double height, double limit) {
  CurveFit fit;
  if (!std::isfinite(height)) return fit;
  // An arc that bulges to the left of its chord runs clockwise.
  const bool clockwise = side > 0.0;
  const Arc arc = MakeArc(frame, height, clockwise);
  const double deviation =
      LargestOver(trace, stretch, limit, [&](const PlaneVector& p) { return arc.From(p); });
  if (!(deviation <= limit)) return fit;
  const PlaneVector top = OnBisector(frame, Bulge(height, frame.half, arc.radius, clockwise));
  const double back = FromCurve(trace, stretch, top);
  if (!(back <= limit)) return fit;
  fit.kind = CurveFit::Kind::kArc;
  fit.center = arc.center;
  fit.radius = arc.radius;
  fit.clockwise = clockwise;
  fit.deviation = std::max(deviation, back);
  return fit;
}

// Height of the point of the bisector on the normal of the curve at an end.
double HeightByNormal(const PlaneVector& fromEnd, const PlaneVector& direction,
                      const ChordFrame& frame) {
  return -Dot(fromEnd, direction) / Dot(frame.normal, direction);
}

double HeightByTangents(const CurveTrace& trace, const Stretch& stretch, const ChordFrame& frame) {
  const double atStart = HeightByNormal(Minus(frame.middle, frame.start),
                                        trace.DirectionAt(stretch.from, true), frame);
  const double atEnd =
      HeightByNormal(Minus(frame.middle, frame.end), trace.DirectionAt(stretch.to, false), frame);
  return 0.5 * (atStart + atEnd);
}

double HeightByMiddle(const CurveTrace& trace, const Stretch& stretch, const ChordFrame& frame) {
  const PlaneVector p = frame.See(trace.PlaceAt(0.5 * (stretch.from + stretch.to)));
  return (p.x * p.x + p.y * p.y - frame.half * frame.half) / (2.0 * p.y);
}

// Kasa's circle through places, the sum of the squares of x^2 + y^2 - 2 a x - 2 b y - c at its
// least; the places are taken from their centre of gravity.
bool LeastSquaresCircle(const std::vector<PlaneVector>& places, PlaneVector& center) {
  const auto count = static_cast<double>(places.size());
  PlaneVector mean;
  for (const PlaneVector& p : places) mean = {mean.x + p.x / count, mean.y + p.y / count};
  double xx = 0.0;
  double xy = 0.0;
  double yy = 0.0;
  double xq = 0.0;
  double yq = 0.0;
  for (const PlaneVector& p : places) {
    const PlaneVector arm = Minus(p, mean);
    const double square = Dot(arm, arm);
    xx += arm.x * arm.x;
    xy += arm.x * arm.y;
    yy += arm.y * arm.y;
    xq += arm.x * square;
    yq += arm.y * square;
  }
  const double determinant = 2.0 * (xx * yy - xy * xy);
  const PlaneVector offset{(xq * yy - yq * xy) / determinant, (yq * xx - xq * xy) / determinant};
  center = {mean.x + offset.x, mean.y + offset.y};
  return std::isfinite(center.x) && std::isfinite(center.y);
}

// How far the samples turn about a centre, radians, counter-clockwise positive.
double TurnAbout(const CurveTrace& trace, const PlaneVector& center) {
  double turn = 0.0;
  const std::vector<TraceSample>& samples = trace.Samples();
  for (std::size_t i = 0; i + 1 < samples.size(); ++i) {
    const PlaneVector a = Minus(samples[i].place, center);
    const PlaneVector b = Minus(samples[i + 1].place, center);
    turn += std::atan2(Cross(a, b), Dot(a, b));
  }
  return turn;
}

double CircleDeviation(const CurveTrace& trace, const PlaneVector& center, double radius,
                       double limit) {
  return LargestOver(trace, {0.0, trace.Length()}, limit, [&](const PlaneVector& p) {
    return std::fabs(Size(Minus(p, center)) - radius);
  });
}

CurveFit CircleThrough(const CurveTrace& trace, const std::vector<PlaneVector>& places,
                       double limit) {
  CurveFit fit;
  PlaneVector center;
  if (places.size() < 3 || !LeastSquaresCircle(places, center)) return fit;
  double radius = 0.0;
  for (const PlaneVector& p : places) radius += Size(Minus(p, center));
  radius /= static_cast<double>(places.size());
  const double deviation = CircleDeviation(trace, center, radius, limit);
  if (!(deviation <= limit) || !(radius > 2.0 * deviation)) return fit;
  const double turn = TurnAbout(trace, center);
  if (std::fabs(std::fabs(turn) - kTwoPi) > kSameTurn) return fit;
  fit.kind = CurveFit::Kind::kCircle;
  fit.center = center;
  fit.radius = radius;
  fit.clockwise = turn < 0.0;
  fit.deviation = deviation;
  return fit;
}

// The number with the fewest decimals that is no farther than `open` from `value`.
double ShortestNumber(double value, double open) {
  double scale = 1.0;
  for (int decimals = 0; decimals <= kMostDecimals; ++decimals, scale *= 10.0) {
    const double number = std::round(value * scale) / scale;
    if (std::fabs(number - value) <= open) return number;
  }
  return value;
}

CurveFit WithShortDiameter(const CurveTrace& trace, CurveFit fit, double limit, double unit) {
  const double open = kOpenShare * 2.0 * fit.deviation / unit;
  const double radius = 0.5 * unit * ShortestNumber(2.0 * fit.radius / unit, open);
  const double deviation = CircleDeviation(trace, fit.center, radius, limit);
  if (!(deviation <= limit) || !(radius > 2.0 * deviation)) return fit;
  fit.radius = radius;
  fit.deviation = deviation;
  return fit;
}

}  // namespace

CurveFit FitLine(const CurveTrace& trace, const Stretch& stretch, double limit) {
  const PlaneVector start = trace.PlaceAt(stretch.from);
  const PlaneVector end = trace.PlaceAt(stretch.to);
  const double deviation = LargestOver(
      trace, stretch, limit, [&](const PlaneVector& p) { return FromSegment(p, start, end); });
  CurveFit fit;
  if (!(deviation <= limit)) return fit;
  fit.kind = CurveFit::Kind::kLine;
  fit.deviation = deviation;
  return fit;
}

CurveFit FitArc(const CurveTrace& trace, const Stretch& stretch, double limit) {
  const ChordFrame frame(trace, stretch);
  if (frame.half <= kCurveEndGap) return {};
  const BisectorSums sums = SumUp(trace, stretch, frame);
  for (const double height : {HeightByTangents(trace, stretch, frame),
                              HeightByMiddle(trace, stretch, frame), sums.height}) {
    const CurveFit fit = ArcAt(trace, stretch, frame, sums.side, height, limit);
    if (fit.Found()) return fit;
  }
  return {};
}

CurveFit FitArcAbout(const CurveTrace& trace, const Stretch& stretch, const PlaneVector& center,
                     double limit) {
  const ChordFrame frame(trace, stretch);
  if (frame.half <= kCurveEndGap) return {};
  const double side = SumUp(trace, stretch, frame).side;
  return ArcAt(trace, stretch, frame, side, frame.See(center).y, limit);
}

CurveFit FitSingle(const CurveTrace& trace, const Stretch& stretch, double limit) {
  CurveFit line = FitLine(trace, stretch, limit);
  if (line.Found() && line.deviation <= kStraight) return line;
  const CurveFit arc = FitArc(trace, stretch, limit);
  if (!line.Found()) return arc;
  return arc.Found() && arc.deviation <= kClearlyNearer * line.deviation ? arc : line;
}

CurveFit FitCircle(const CurveTrace& trace, double limit, double millimetresPerUnit) {
  std::vector<PlaneVector> breaks;
  std::vector<PlaneVector> all;
  for (std::size_t i = 0; i + 1 < trace.Samples().size(); ++i) {
    const TraceSample& sample = trace.Samples()[i];
    if (sample.isBreak) breaks.push_back(sample.place);
    all.push_back(sample.place);
  }
  CurveFit fit = CircleThrough(trace, breaks, limit);
  if (!fit.Found()) fit = CircleThrough(trace, all, limit);
  return fit.Found() ? WithShortDiameter(trace, fit, limit, millimetresPerUnit) : fit;
}

double MeasureDeviation(const CurveTrace& trace, const Stretch& stretch, const CurveFit& fit) {
  const ChordFrame frame(trace, stretch);
  const Arc arc = MakeArc(frame, frame.See(fit.center).y, fit.clockwise);
  const auto measure = [&](const PlaneVector& p) {
    if (fit.kind == CurveFit::Kind::kLine) return FromSegment(p, frame.start, frame.end);
    if (fit.kind == CurveFit::Kind::kArc) return arc.From(p);
    return std::fabs(Size(Minus(p, fit.center)) - fit.radius);
  };
  double largest = fit.deviation;
  double last = stretch.from;
  for (std::size_t i = trace.FirstBehind(stretch.from);; ++i) {
    const bool inside = i < trace.Samples().size() && trace.Samples()[i].length < stretch.to;
    const double next = inside ? trace.Samples()[i].length : stretch.to;
    for (const double share : kShares) {
      largest = std::max(largest, measure(trace.PlaceAt(last + share * (next - last))));
    }
    if (!inside) return largest;
    largest = std::max(largest, measure(trace.Samples()[i].place));
    last = next;
  }
}

std::unique_ptr<GX2DElement> MakeElement(const CurveTrace& trace, const Stretch& stretch,
                                         const CurveFit& fit) {
  const PlaneVector from = trace.PlaceAt(stretch.from);
  const PlaneVector to = trace.PlaceAt(stretch.to);
  const GX2DPoint center(fit.center.x, fit.center.y);
  if (fit.kind == CurveFit::Kind::kCircle) {
    const GX2DPoint start(fit.center.x + fit.radius, fit.center.y);
    const GX2DPoint opposite(fit.center.x - fit.radius, fit.center.y);
    return std::make_unique<GX2DArc>(center, start, opposite, start);
  }
  if (fit.kind == CurveFit::Kind::kLine) {
    return std::make_unique<GX2DLine>(from.x, from.y, to.x, to.y);
  }
  const ChordFrame frame(trace, stretch);
  const double height = frame.See(fit.center).y;
  const PlaneVector mid = OnBisector(frame, Bulge(height, frame.half, fit.radius, fit.clockwise));
  return std::make_unique<GX2DArc>(center, GX2DPoint(from.x, from.y), GX2DPoint(mid.x, mid.y),
                                   GX2DPoint(to.x, to.y));
}

}  // namespace drawing
