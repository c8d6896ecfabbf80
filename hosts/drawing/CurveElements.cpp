#include "drawing/CurveElements.h"

#include "drawing/CurveSplits.h"

#include <KTRCL_Geometry/contour/GXApproximatePoints.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <map>

namespace drawing {
namespace {

// Shares of the tolerance: for what becomes one element at once, for what the search finds, and for
// the chords between the points that are handed to the library.
constexpr double kWholeShare = 0.5;
constexpr double kSearchShare = 0.9;
constexpr double kChordShare = 0.1;

// The work of the library grows with the square of the points of an arc.
constexpr double kLeastSteps = 8.0;
constexpr double kMostSteps = 100.0;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// The trace turns by less than twice 0.3 radians from sample to sample.
constexpr double kLargestTurn = 0.6;

// More samples in both, and two neighbours are left alone: each of many unions would look at all of
// them again.
constexpr std::size_t kMostUnited = 5000;

// A chord of length c over a curvature k stands c^2 k / 8 off.
constexpr double kRise = 8.0;

// Two neighbouring points of a row, or all from one to another that one arc stands for.
struct Division {
  std::size_t first;
  std::size_t last;
  bool isArc;
  PlaneVector center;
};

PlaneVector Place(const GX2DPoint& p) { return {p.X, p.Y}; }

// The later point of a row that is meant by the end of an arc; `first` itself where there is none.
// The library computes the ends of its arcs from angles, so they are a little beside the points.
std::size_t IndexOf(const std::vector<GX2DPoint>& points, std::size_t first, const GX2DPoint& end) {
  std::size_t nearest = first;
  for (std::size_t i = first + 1; i < points.size(); ++i) {
    const bool nearer = std::hypot(points[i].X - end.X, points[i].Y - end.Y) <
                        std::hypot(points[nearest].X - end.X, points[nearest].Y - end.Y);
    if (nearer) nearest = i;
  }
  return nearest;
}

// An arc may run from the end of its stretch to the start.
bool BeginsAtEnd(const GX2DPoint& from, GX2DElement& element) {
  const GX2DPoint& start = element.GetStartPoint();
  const GX2DPoint& end = element.GetEndPoint();
  return std::hypot(end.X - from.X, end.Y - from.Y) <
         std::hypot(start.X - from.X, start.Y - from.Y);
}

// Appends what the library makes of the points from `first` on, as far as it goes.
std::size_t DivideFrom(const std::vector<GX2DPoint>& points, std::size_t first, double tolerance,
                       std::vector<Division>& divisions) {
  if (points.size() - first < 3) return first;
  const std::vector<GX2DPoint> rest(points.begin() + static_cast<std::ptrdiff_t>(first),
                                    points.end());
  GX2DElmList elements;
  GXApproximatePoints::ApproximateByLinesAndArcs(rest, elements, tolerance);
  for (GX2DElement* const element : elements) {
    const bool reversed = BeginsAtEnd(points[first], *element);
    const std::size_t last =
        IndexOf(points, first, reversed ? element->GetStartPoint() : element->GetEndPoint());
    if (last == first) break;
    const auto* arc = dynamic_cast<const GX2DArc*>(element);
    divisions.push_back(
        {first, last, arc != nullptr, arc != nullptr ? Place(arc->Center) : PlaneVector{}});
    first = last;
  }
  return first;
}

std::vector<Division> Divide(const std::vector<GX2DPoint>& points, double tolerance) {
  std::vector<Division> divisions;
  std::size_t first = 0;
  while (first + 1 < points.size()) {
    first = DivideFrom(points, first, tolerance, divisions);
    if (first + 1 >= points.size()) break;
    // A straight stretch, which has no circle: one chord on, and try again.
    divisions.push_back({first, first + 1, false, {}});
    ++first;
  }
  return divisions;
}

// Lengths along a part of a curve that divide it so that the chords are about equally far off.
// Between neighbours the steps change but little: the library takes the chord of a point's
// neighbours for the tangent at it.
class EvenSteps {
 public:
  EvenSteps(const CurveTrace& trace, const Stretch& part, double chord);

  // In rows of at most kMostSteps steps, all of them equally many: seen from either end the rows
  // are the same. Each row begins where the last one ends.
  std::vector<std::vector<double>> Rows() const;

 private:
  std::vector<double> Lengths(std::size_t count) const;

  double step_;
  std::vector<double> lengths_;  // Of the samples.
  std::vector<double> sums_;     // Up to each of them; a step is worth step_.
};

EvenSteps::EvenSteps(const CurveTrace& trace, const Stretch& part, double chord)
    : step_(std::sqrt(kRise * chord)) {
  // So flat a curvature that kLeastSteps steps remain.
  const double root = step_ * kLeastSteps / (part.to - part.from);
  const double least = root * root;
  const std::vector<TraceSample>& samples = trace.Samples();
  const std::size_t behind = std::max<std::size_t>(trace.FirstBehind(part.from), 1);
  lengths_.push_back(part.from);
  sums_.push_back(0.0);
  double last = samples[behind - 1].curvatureOut;
  for (std::size_t i = behind; i < samples.size() && lengths_.back() < part.to; ++i) {
    const double to = std::min(samples[i].length, part.to);
    const double width = to - lengths_.back();
    // A sample beside a cusp has any curvature; between samples the curve hardly turns.
    const double most = std::max(least, kLargestTurn / width);
    const double before = std::clamp(std::fabs(last), least, most);
    const double after = std::clamp(std::fabs(samples[i].curvatureIn), least, most);
    sums_.push_back(sums_.back() + 0.5 * (std::sqrt(before) + std::sqrt(after)) * width);
    lengths_.push_back(to);
    last = samples[i].curvatureOut;
  }
}

std::vector<double> EvenSteps::Lengths(std::size_t count) const {
  std::vector<double> result = {lengths_.front()};
  std::size_t i = 1;
  for (std::size_t k = 1; k < count; ++k) {
    const double sum = sums_.back() * (static_cast<double>(k) / static_cast<double>(count));
    while (i + 1 < sums_.size() && sums_[i] < sum) ++i;
    const double width = sums_[i] - sums_[i - 1];
    const double share = width > 0.0 ? (sum - sums_[i - 1]) / width : 1.0;
    result.push_back(lengths_[i - 1] + share * (lengths_[i] - lengths_[i - 1]));
  }
  result.push_back(lengths_.back());
  return result;
}

std::vector<std::vector<double>> EvenSteps::Rows() const {
  // Never more than the samples are fine.
  const double most = std::max(kLeastSteps, 2.0 * static_cast<double>(lengths_.size()));
  const double wanted = std::clamp(sums_.back() / step_, kLeastSteps, most);
  const double rows = std::ceil(wanted / kMostSteps);
  const double steps = std::ceil(wanted / rows);
  const std::vector<double> all = Lengths(static_cast<std::size_t>(rows * steps));
  const auto size = static_cast<std::ptrdiff_t>(steps);
  std::vector<std::vector<double>> result;
  for (auto first = all.begin(); first + 1 != all.end(); first += size) {
    std::vector<double> row = {*first};
    for (auto next = first + 1; next <= first + size; ++next) {
      if (*next > row.back()) row.push_back(*next);
    }
    if (row.size() > 1) result.push_back(std::move(row));
  }
  return result;
}

// The work on one curve.
class Approximator {
 public:
  Approximator(CurveTrace& trace, double tolerance) : trace_(trace), tolerance_(tolerance) {}

  void AddStretch(const Stretch& stretch);
  // A closed curve without a corner; `seam` is its start. Returns the shift of that.
  double AddRing(const Split& seam);

  std::vector<CurvePiece> Pieces() const;

 private:
  bool AddSingle(const Stretch& part);
  std::vector<Split> AddParts(const Stretch& stretch);
  double BeginBetweenSplits(std::vector<Split>& splits);
  void AddSpiral(const Stretch& part);
  void AddSteps(const std::vector<double>& lengths, bool fromEnd);
  void AddDivision(const Stretch& part, const Division& division,
                   std::vector<CurvePiece>& pieces) const;
  void AddHalves(const Stretch& part, std::vector<CurvePiece>& pieces) const;
  void UniteInOrder(std::vector<CurvePiece>& pieces) const;
  void UniteOver(std::vector<Split> splits);
  bool UniteAt(double at, double limit);

  void Put(const Stretch& stretch, const CurveFit& fit) { pieces_[stretch.from] = {stretch, fit}; }

  CurveTrace& trace_;
  double tolerance_;
  std::map<double, CurvePiece> pieces_;  // By where they begin.
};

bool Approximator::AddSingle(const Stretch& part) {
  const CurveFit fit = FitSingle(trace_, part, kWholeShare * tolerance_);
  if (!fit.Found()) return false;
  Put(part, fit);
  return true;
}

// Divides a stretch at its splits, which are returned, and each part as it needs.
std::vector<Split> Approximator::AddParts(const Stretch& stretch) {
  std::vector<Split> splits = FindSplits(trace_, stretch, tolerance_);
  double from = stretch.from;
  for (std::size_t i = 0; i <= splits.size(); ++i) {
    const double to = i == splits.size() ? stretch.to : splits[i].at;
    if (!AddSingle({from, to})) AddSpiral({from, to});
    from = to;
  }
  return splits;
}

void Approximator::AddStretch(const Stretch& stretch) {
  if (!AddSingle(stretch)) UniteOver(AddParts(stretch));
}

double Approximator::AddRing(const Split& seam) {
  std::vector<Split> splits = AddParts({0.0, trace_.Length()});
  splits.insert(splits.begin(), {0.0, seam.curvature, seam.jumps});
  const double shift = BeginBetweenSplits(splits);
  UniteOver(std::move(splits));
  return shift;
}

// Begins a ring anew where two pieces meet, if there is such a place, that is no split: so its
// seam can be united like every other split.
double Approximator::BeginBetweenSplits(std::vector<Split>& splits) {
  const auto isSplit = [&](double at) {
    const auto found =
        std::lower_bound(splits.begin(), splits.end(), at,
                         [](const Split& split, double value) { return split.at < value; });
    return found != splits.end() && found->at == at;
  };
  const auto first = std::find_if(pieces_.begin(), pieces_.end(),
                                  [&](const auto& entry) { return !isSplit(entry.first); });
  if (first == pieces_.end()) return 0.0;
  const double start = first->first;
  const double rest = trace_.Length() - start;
  trace_.BeginAt(start);
  const auto turned = [&](double at) { return at >= start ? at - start : at + rest; };
  for (Split& split : splits) split.at = turned(split.at);
  std::map<double, CurvePiece> old;
  old.swap(pieces_);
  for (const auto& [from, piece] : old) {
    const double to = turned(piece.stretch.to);
    Put({turned(from), to == 0.0 ? trace_.Length() : to}, piece.fit);
  }
  return start;
}

// A part in which the curvature only grows or only falls.
void Approximator::AddSpiral(const Stretch& part) {
  const auto curvatureNear = [&](double share) {
    const double at = part.from + share * (part.to - part.from);
    const std::size_t behind = std::min(trace_.FirstBehind(at), trace_.Samples().size() - 1);
    return std::fabs(trace_.Samples()[behind].curvatureIn);
  };
  constexpr double kNearStart = 0.1;
  const bool fromEnd = curvatureNear(1.0 - kNearStart) > curvatureNear(kNearStart);
  std::vector<Split> seams;
  for (const std::vector<double>& row : EvenSteps(trace_, part, kChordShare * tolerance_).Rows()) {
    AddSteps(row, fromEnd);
    if (row.back() < part.to) seams.push_back({row.back(), 0.0, false});
  }
  UniteOver(seams);
}

void Approximator::AddSteps(const std::vector<double>& lengths, bool fromEnd) {
  std::vector<double> order = lengths;
  if (fromEnd) std::reverse(order.begin(), order.end());
  std::vector<GX2DPoint> points;
  for (const double length : order) {
    const PlaneVector p = trace_.PlaceAt(length);
    points.emplace_back(p.x, p.y);
  }
  std::vector<CurvePiece> made;
  for (const Division& division : Divide(points, kSearchShare * tolerance_)) {
    const double a = order[division.first];
    const double b = order[division.last];
    AddDivision({std::min(a, b), std::max(a, b)}, division, made);
  }
  UniteInOrder(made);
  for (const CurvePiece& piece : made) Put(piece.stretch, piece.fit);
}

// One element where the library's arc or another one holds, otherwise more.
void Approximator::AddDivision(const Stretch& part, const Division& division,
                               std::vector<CurvePiece>& pieces) const {
  const double limit = kSearchShare * tolerance_;
  CurveFit fit;
  if (division.isArc) fit = FitArcAbout(trace_, part, division.center, limit);
  if (!fit.Found()) fit = FitSingle(trace_, part, limit);
  if (fit.Found()) {
    pieces.push_back({part, fit});
    return;
  }
  const bool descends = !pieces.empty() && pieces.back().stretch.from >= part.to;
  std::vector<CurvePiece> halves;
  AddHalves(part, halves);
  if (descends) std::reverse(halves.begin(), halves.end());
  pieces.insert(pieces.end(), halves.begin(), halves.end());
}

void Approximator::AddHalves(const Stretch& part, std::vector<CurvePiece>& pieces) const {
  const std::size_t inside = trace_.FirstBehind(part.from);
  const bool isStep =
      inside == trace_.Samples().size() || trace_.Samples()[inside].length >= part.to;
  const CurveFit fit = isStep ? FitLine(trace_, part, kInfinity)
                              : FitSingle(trace_, part, kSearchShare * tolerance_);
  if (fit.Found()) {
    pieces.push_back({part, fit});
    return;
  }
  // At the sample nearest to the middle, so that every division leaves fewer samples.
  const double half = 0.5 * (part.from + part.to);
  const std::size_t behind = trace_.FirstBehind(half);
  double middle = trace_.Samples()[inside].length;
  for (std::size_t i = std::max(behind, inside + 1) - 1; i <= behind; ++i) {
    const double length = trace_.Samples()[std::min(i, trace_.Samples().size() - 1)].length;
    if (length < part.to && std::fabs(length - half) < std::fabs(middle - half)) middle = length;
  }
  AddHalves({part.from, middle}, pieces);
  AddHalves({middle, part.to}, pieces);
}

// Each piece takes in the next ones as long as one element does for all of them. The pieces may run
// either way along the curve.
void Approximator::UniteInOrder(std::vector<CurvePiece>& pieces) const {
  std::vector<CurvePiece> united;
  for (const CurvePiece& piece : pieces) {
    if (!united.empty()) {
      Stretch& before = united.back().stretch;
      const Stretch both{std::min(before.from, piece.stretch.from),
                         std::max(before.to, piece.stretch.to)};
      const CurveFit fit = FitSingle(trace_, both, kSearchShare * tolerance_);
      if (fit.Found()) {
        united.back() = {both, fit};
        continue;
      }
    }
    united.push_back(piece);
  }
  pieces = std::move(united);
}

// The strongest curvature first, so that the order follows from the shape.
void Approximator::UniteOver(std::vector<Split> splits) {
  std::stable_sort(splits.begin(), splits.end(),
                   [](const Split& a, const Split& b) { return a.curvature > b.curvature; });
  for (const Split& split : splits) {
    UniteAt(split.at, (split.jumps ? kWholeShare : kSearchShare) * tolerance_);
  }
}

bool Approximator::UniteAt(double at, double limit) {
  const auto behind = pieces_.find(at);
  if (behind == pieces_.begin() || behind == pieces_.end()) return false;
  const Stretch both{std::prev(behind)->first, behind->second.stretch.to};
  if (trace_.FirstBehind(both.to) - trace_.FirstBehind(both.from) > kMostUnited) return false;
  const CurveFit fit = FitSingle(trace_, both, limit);
  if (!fit.Found()) return false;
  pieces_.erase(behind);
  Put(both, fit);
  return true;
}

// Measured again, closer. What is too far off after all becomes chords from sample to sample.
std::vector<CurvePiece> Approximator::Pieces() const {
  std::vector<CurvePiece> checked;
  for (const auto& [begin, piece] : pieces_) {
    const double deviation = MeasureDeviation(trace_, piece.stretch, piece.fit);
    if (deviation <= tolerance_) {
      checked.push_back(piece);
      checked.back().fit.deviation = deviation;
      continue;
    }
    double from = begin;
    while (from < piece.stretch.to) {
      const std::size_t behind = trace_.FirstBehind(from);
      const bool inside = behind < trace_.Samples().size();
      const double to =
          inside ? std::min(trace_.Samples()[behind].length, piece.stretch.to) : piece.stretch.to;
      CurveFit chord = FitLine(trace_, {from, to}, kInfinity);
      chord.deviation = MeasureDeviation(trace_, {from, to}, chord);
      checked.push_back({{from, to}, chord});
      from = to;
    }
  }
  return checked;
}

}  // namespace

CurveApproximation ApproximateCurve(CurveTrace& trace, double tolerance,
                                    double millimetresPerUnit) {
  CurveApproximation result;
  if (trace.IsClosed()) {
    trace.CloseExactly();
    CurveFit circle = FitCircle(trace, kWholeShare * tolerance, millimetresPerUnit);
    const Stretch whole{0.0, trace.Length()};
    if (circle.Found()) {
      circle.deviation = MeasureDeviation(trace, whole, circle);
      result.pieces.push_back({whole, circle});
      return result;
    }
    const Split start = BestStart(trace, tolerance);
    result.shift = start.at;
    trace.BeginAt(start.at);
    if (!BeginsAtCorner(trace)) {
      Approximator approximator(trace, tolerance);
      result.shift += approximator.AddRing(start);
      result.pieces = approximator.Pieces();
      return result;
    }
  }
  Approximator approximator(trace, tolerance);
  double from = 0.0;
  for (const double corner : FindCorners(trace)) {
    approximator.AddStretch({from, corner});
    from = corner;
  }
  approximator.AddStretch({from, trace.Length()});
  result.pieces = approximator.Pieces();
  return result;
}

}  // namespace drawing
