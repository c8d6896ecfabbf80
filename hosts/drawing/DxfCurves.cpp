#include "drawing/DxfCurves.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>

namespace drawing {
namespace {

constexpr double kTwoPi = 6.283185307179586;

// Parameters of an ellipse that differ by a whole turn up to this, in radians, are a whole turn.
constexpr double kSameAngle = 1.0e-9;

// The axis that is called the major one, with room for rounding.
constexpr double kLargestRatio = 1.0 + 1.0e-9;

// More than any drawing needs; the work on one curve stays within a second.
constexpr std::size_t kMostPoints = 20000;

constexpr int kClosedFlag = 1;

bool IsFinite(const PlaneVector& p) { return std::isfinite(p.x) && std::isfinite(p.y); }

// One point out of groups that each stand for many: the code of x, of y (10 more), of z (20 more).
struct PointRow {
  int code;
  const char* name;  // "control point", "fit point"
  std::vector<PlaneVector> points;
  HeightRange heights = {};
  bool wantsY = false;

  // True where the group was one of the row's.
  bool Take(const DxfGroup& group, DxfValues& values) {
    if (group.code != code && group.code != code + 10 && group.code != code + 20) return false;
    const double number = values.Number(group);
    if (group.code == code) {
      if (wantsY) FailWithoutY(values, group.line);
      points.push_back({number, 0.0});
      wantsY = true;
    } else if (group.code == code + 10) {
      if (!wantsY) {
        values.Fail("group " + std::to_string(code + 10) + " stands without a group " +
                        std::to_string(code),
                    group.line);
      }
      if (!points.empty()) points.back().y = number;
      wantsY = false;
    } else {
      heights.Add(number);
    }
    return true;
  }

  void FailWithoutY(DxfValues& values, std::size_t line) const {
    values.Fail("a " + std::string(name) + " has no group " + std::to_string(code + 10), line);
  }

  void Map(const PlaneMap& map, double factor, DxfValues& values) {
    for (PlaneVector& p : points) {
      const PlaneVector mapped = map.Place(p);
      p = {mapped.x * factor, mapped.y * factor};
      if (!IsFinite(p)) values.Fail("a coordinate in millimetres is too large", Line(values));
    }
  }

  static std::size_t Line(const DxfValues& values) { return values.Record().line; }
};

// The groups of a SPLINE as they stand.
struct SplineGroups {
  PointRow controls{10, "control point", {}};
  PointRow fits{11, "fit point", {}};
  std::vector<double> knots;
  std::vector<double> weights;
  std::size_t lowKnotLine = 0;  // Of the first knot below the one before it; 0 where there is none.
  std::size_t badWeightLine = 0;  // Of the first weight that is not above 0.
};

SplineGroups ReadSplineGroups(DxfValues& values) {
  SplineGroups groups;
  for (const DxfGroup& group : values.Record().groups) {
    if (group.code == 40) {
      const double knot = values.Number(group);
      const bool low = !groups.knots.empty() && !(knot >= groups.knots.back());
      if (low && groups.lowKnotLine == 0) groups.lowKnotLine = group.line;
      groups.knots.push_back(knot);
    } else if (group.code == 41) {
      const double weight = values.Number(group);
      if (!(weight > 0.0) && groups.badWeightLine == 0) groups.badWeightLine = group.line;
      groups.weights.push_back(weight);
    } else if (!groups.controls.Take(group, values)) {
      groups.fits.Take(group, values);
    }
  }
  const std::size_t line = values.Record().line;
  if (groups.controls.wantsY) groups.controls.FailWithoutY(values, line);
  if (groups.fits.wantsY) groups.fits.FailWithoutY(values, line);
  return groups;
}

// A count that the record states must be that of what it has.
void CheckCount(DxfValues& values, int code, std::size_t found, const char* noun) {
  constexpr int kNotStated = -1;
  const int stated = values.Integer(code, kNotStated);
  if (values.Text(code).empty() && stated == kNotStated) return;
  if (stated >= 0 && static_cast<std::size_t>(stated) == found) return;
  values.Fail(
      "it states " + std::to_string(stated) + " " + noun + " and has " + std::to_string(found),
      values.Record().line);
}

std::size_t ReadDegree(DxfValues& values) {
  if (values.Text(71).empty()) {
    values.Fail("group 71 is missing", values.Record().line);
    return 0;
  }
  const int degree = values.Integer(71, 0);
  if (degree < 1 || degree > static_cast<int>(SplineCurve::kHighestDegree)) {
    values.Fail("its degree is " + std::to_string(degree) + ", not from 1 to " +
                    std::to_string(SplineCurve::kHighestDegree),
                values.Record().line);
    return 0;
  }
  return static_cast<std::size_t>(degree);
}

void CheckCounts(DxfValues& values, const SplineGroups& groups) {
  CheckCount(values, 72, groups.knots.size(), "knots");
  CheckCount(values, 73, groups.controls.points.size(), "control points");
  CheckCount(values, 74, groups.fits.points.size(), "fit points");
  const std::size_t most = std::max(groups.controls.points.size(), groups.fits.points.size());
  if (most <= kMostPoints) return;
  values.Fail("it has more than " + std::to_string(kMostPoints) + " points", values.Record().line);
}

void CheckKnotsAndWeights(DxfValues& values, const SplineGroups& groups, std::size_t degree) {
  const std::size_t line = values.Record().line;
  const std::size_t count = groups.controls.points.size();
  if (count <= degree) {
    values.Fail("degree " + std::to_string(degree) + " needs more than its " +
                    std::to_string(count) + " control points",
                line);
  }
  if (groups.knots.size() != count + degree + 1) {
    values.Fail("it has " + std::to_string(groups.knots.size()) + " knots; " +
                    std::to_string(count) + " control points of degree " + std::to_string(degree) +
                    " have " + std::to_string(count + degree + 1),
                line);
  }
  if (groups.lowKnotLine != 0) values.Fail("its knots decrease", groups.lowKnotLine);
  if (!groups.weights.empty() && groups.weights.size() != count) {
    values.Fail("it has " + std::to_string(groups.weights.size()) + " weights for " +
                    std::to_string(count) + " control points",
                line);
  }
  if (groups.badWeightLine != 0) values.Fail("a weight is not above 0", groups.badWeightLine);
  if (!values.Failure().empty()) return;
  const double range = groups.knots[count] - groups.knots[degree];
  if (!(range > 0.0)) values.Fail("its knots span nothing", line);
  if (!std::isfinite(range)) values.Fail("its knots are too large", line);
}

void BuildFromControls(DxfValues& values, SplineGroups& groups, std::size_t degree,
                       DxfCurve& result) {
  CheckKnotsAndWeights(values, groups, degree);
  if (!values.Failure().empty()) return;
  std::vector<ControlPoint> points;
  for (std::size_t i = 0; i < groups.controls.points.size(); ++i) {
    points.push_back({groups.controls.points[i], groups.weights.empty() ? 1.0 : groups.weights[i]});
  }
  if (degree == 1) result.vertices = groups.controls.points;
  result.curve = std::make_unique<SplineCurve>(degree, std::move(groups.knots), points);
}

PlaneVector Tangent(DxfValues& values, int code) {
  return {values.Optional(code, 0.0), values.Optional(code + 10, 0.0)};
}

// A curve seen through a map of millimetres.
class MappedCurve : public Curve {
 public:
  MappedCurve(std::unique_ptr<Curve> curve, const PlaneMap& map)
      : curve_(std::move(curve)), map_(map) {}

  const std::vector<double>& Breaks() const override { return curve_->Breaks(); }
  std::size_t LeastIntervals() const override { return curve_->LeastIntervals(); }
  CurvePoint At(std::size_t piece, double parameter) const override {
    const CurvePoint at = curve_->At(piece, parameter);
    return {map_.Place(at.place), map_.Direction(at.first), map_.Direction(at.second)};
  }

 private:
  std::unique_ptr<Curve> curve_;
  PlaneMap map_;
};

// The parameter follows the lengths of the chords as drawn, so the curve is mapped and not its
// points.
void BuildFromFitPoints(DxfValues& values, SplineGroups& groups, double factor, PlaneMap map,
                        DxfCurve& result) {
  FitPoints fit;
  fit.points = std::move(groups.fits.points);
  fit.startTangent = Tangent(values, 12);
  fit.endTangent = Tangent(values, 13);
  fit.closed = result.markedClosed;
  if (!values.Failure().empty()) return;
  if (CountDistinct(fit.points) < 2) {
    values.Fail("it has neither control points nor two fit points that differ",
                values.Record().line);
    return;
  }
  map.x0 *= factor;
  map.y0 *= factor;
  result.curve = std::make_unique<MappedCurve>(SplineThrough(fit), map);
}

void ReadSpline(DxfValues& values, double factor, const PlaneMap& map, DxfCurve& result) {
  SplineGroups groups = ReadSplineGroups(values);
  result.heights = groups.controls.points.empty() ? groups.fits.heights : groups.controls.heights;
  result.markedClosed = (values.Integer(70, 0) & kClosedFlag) != 0;
  const std::size_t degree = ReadDegree(values);
  CheckCounts(values, groups);
  groups.controls.Map(map, factor, values);
  groups.fits.Map(PlaneMap(), factor, values);
  if (!values.Failure().empty()) return;
  if (groups.controls.points.empty()) {
    BuildFromFitPoints(values, groups, factor, map, result);
  } else {
    BuildFromControls(values, groups, degree, result);
  }
}

// From below `from` to less than a turn above it.
double EndBehind(double from, double to) {
  const double sweep = std::fmod(to - from, kTwoPi);
  if (std::fabs(sweep) <= kSameAngle || kTwoPi - std::fabs(sweep) <= kSameAngle) {
    return from + kTwoPi;
  }
  return from + (sweep > 0.0 ? sweep : sweep + kTwoPi);
}

PlaneVector Scaled(const PlaneVector& v, double factor) { return {v.x * factor, v.y * factor}; }

// The axes where the map puts them. A similarity keeps the right angle between them.
EllipseAxes MappedAxes(const PlaneMap& map, const PlaneVector& major, double side) {
  const PlaneVector first = map.Direction(major);
  if (map.IsSimilarity()) {
    const double turned = map.Mirrors() ? -side : side;
    return {first, {-turned * first.y, turned * first.x}, 0.0};
  }
  return AxesOf(first, map.Direction({-side * major.y, side * major.x}));
}

void ReadEllipse(DxfValues& values, double factor, const PlaneMap& map, bool fromBelow,
                 DxfCurve& result) {
  const PlaneVector drawnCenter{values.Required(10), values.Required(20)};
  const PlaneVector center = Scaled(map.Place(drawnCenter), factor);
  const PlaneVector major = Scaled({values.Required(11), values.Required(21)}, factor);
  const double z = values.Optional(30, 0.0);
  const double rise = values.Optional(31, 0.0);
  result.heights.Add(z + rise);
  result.heights.Add(z - rise);
  const double ratio = values.Required(40);
  const double from = values.Optional(41, 0.0);
  const double to = values.Optional(42, kTwoPi);
  const std::size_t line = values.Record().line;
  if (!(ratio > 0.0 && ratio <= kLargestRatio))
    values.Fail("its ratio is not above 0 and up to 1", line);
  if (major.x == 0.0 && major.y == 0.0) values.Fail("its major axis has no length", line);
  if (!std::isfinite(std::fmod(to - from, kTwoPi)))
    values.Fail("its parameters are too large", line);
  if (!IsFinite(center) || !IsFinite(major)) {
    values.Fail("a coordinate in millimetres is too large", line);
  }
  if (!values.Failure().empty()) return;
  result.equalParameters = from == to;
  const double side = fromBelow ? -ratio : ratio;
  const double first = std::fmod(from, kTwoPi);
  const double last = EndBehind(first, first + std::fmod(to - from, kTwoPi));
  const EllipseAxes axes = MappedAxes(map, major, side);
  if (!IsFinite(axes.first) || !IsFinite(axes.second)) {
    values.Fail("a coordinate in millimetres is too large", line);
    return;
  }
  result.curve = std::make_unique<EllipseCurve>(center, axes.first, axes.second, first - axes.shift,
                                                last - axes.shift);
}

}  // namespace

bool IsDxfCurve(std::string_view type) { return type == "ELLIPSE" || type == "SPLINE"; }

DxfCurve ReadDxfCurve(DxfValues& values, double millimetresPerUnit, const PlaneMap& map) {
  DxfCurve result;
  const Extrusion extrusion = ReadExtrusion(values);
  if (extrusion == Extrusion::kTilted) {
    values.Fail("its extrusion is not along z", values.Record().line);
  }
  if (values.Record().type == "SPLINE") {
    ReadSpline(values, millimetresPerUnit, map, result);
  } else {
    ReadEllipse(values, millimetresPerUnit, map, extrusion == Extrusion::kDown, result);
  }
  return result;
}

}  // namespace drawing
