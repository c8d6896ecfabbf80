#include "drawing/DxfEntities.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace drawing {
namespace {

// Points that the library takes as one, in millimetres, each coordinate by itself.
constexpr double kSamePoint = 0.0001;
// Height of a side over its chord, in millimetres, up to which it is straight.
constexpr double kFlatSide = 1.0e-6;
// Share of the z axis up to which the x and y of an extrusion are rounding errors.
constexpr double kTilt = 1.0e-6;
constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2.0 * kPi;

constexpr int kClosedFlag = 1;

DrawnPoint OnCircle(const DrawnPoint& center, double radius, double degrees) {
  const PlaneVector direction = DirectionOf(degrees);
  return {center.x + radius * direction.x, center.y + radius * direction.y};
}

bool IsFinite(const GX2DPoint& p) { return std::isfinite(p.X) && std::isfinite(p.Y); }

bool SamePlace(const GX2DPoint& a, const GX2DPoint& b) { return a.X == b.X && a.Y == b.Y; }

bool HasCode(const DxfRecord& record, int code) {
  for (const DxfGroup& group : record.groups) {
    if (group.code == code) return true;
  }
  return false;
}

void BuildLine(DxfValues& values, ElementBuilder& builder) {
  const DrawnPoint start{values.Required(10), values.Required(20)};
  const DrawnPoint end{values.Required(11), values.Required(21)};
  const double startZ = values.Optional(30, 0.0);
  const double endZ = values.Optional(31, 0.0);
  builder.heights.Add(startZ);
  builder.heights.Add(endZ);
  builder.rises = startZ != endZ;
  builder.AddLine(start, end);
}

void BuildCircleOrArc(DxfValues& values, ElementBuilder& builder) {
  const DrawnPoint center{values.Required(10), values.Required(20)};
  builder.heights.Add(values.Optional(30, 0.0));
  const double radius = values.Required(40);
  if (!(radius > 0.0)) values.Fail("its radius is not above 0", values.Record().line);
  if (values.Record().type == "CIRCLE") {
    builder.AddCircle(center, radius);
    return;
  }
  const double startDegrees = values.Required(50);
  const double endDegrees = values.Required(51);
  builder.AddArc(center, radius, startDegrees, endDegrees);
}

// The vertices of an LWPOLYLINE: 10 begins one, 20 and 42 belong to the one begun last.
std::vector<PolylineVertex> LightVertices(DxfValues& values, ElementBuilder& builder) {
  std::vector<PolylineVertex> vertices;
  bool wantsY = false;
  for (const DxfGroup& group : values.Record().groups) {
    const bool known = group.code == 10 || group.code == 20 || group.code == 42 ||
                       group.code == 40 || group.code == 41 || group.code == 43;
    if (!known) continue;
    const double number = values.Number(group);
    if (group.code == 10) {
      if (wantsY) values.Fail("a vertex has no group 20", group.line);
      vertices.push_back({{number, 0.0}, 0.0});
      wantsY = true;
    } else if (group.code == 20) {
      if (!wantsY) values.Fail("group 20 stands without a group 10", group.line);
      if (!vertices.empty()) vertices.back().point.y = number;
      wantsY = false;
    } else if (group.code == 42) {
      if (vertices.empty()) values.Fail("a bulge stands before the first vertex", group.line);
      if (!vertices.empty()) vertices.back().bulge = number;
    } else if (number != 0.0) {
      builder.hasWidth = true;
    }
  }
  if (wantsY) values.Fail("the last vertex has no group 20", values.Record().line);
  return vertices;
}

void BuildLightPolyline(DxfValues& values, ElementBuilder& builder) {
  const int flags = values.Integer(70, 0);
  builder.heights.Add(values.Optional(38, 0.0));
  const std::vector<PolylineVertex> vertices = LightVertices(values, builder);
  if (HasCode(values.Record(), 90)) {
    const int stated = values.Integer(90, 0);
    if (stated < 0 || static_cast<std::size_t>(stated) != vertices.size()) {
      builder.remark = "it states " + std::to_string(stated) + " vertices and has " +
                       std::to_string(vertices.size());
    }
  }
  BuildPolyline(vertices, (flags & kClosedFlag) != 0, builder);
}

}  // namespace

void HeightRange::Add(double z) {
  low = empty ? z : std::min(low, z);
  high = empty ? z : std::max(high, z);
  empty = false;
}

void HeightRange::Add(const HeightRange& other) {
  if (other.empty) return;
  Add(other.low);
  Add(other.high);
}

void HeightRange::SeeFromBelow() {
  std::swap(low, high);
  low = -low;
  high = -high;
}

DxfValues::DxfValues(const DxfRecord& record) : record_(record) {}

const DxfGroup* DxfValues::FindOnly(int code) {
  const DxfGroup* found = nullptr;
  for (const DxfGroup& group : record_.groups) {
    if (group.code != code) continue;
    if (found != nullptr) {
      Fail("group " + std::to_string(code) + " is given more than once", group.line);
      break;
    }
    found = &group;
  }
  return found;
}

double DxfValues::Number(const DxfGroup& group) {
  double value = 0.0;
  const NumberForm form = ParseNumber(group.value, value);
  if (form == NumberForm::kPlain) return value;
  const std::string quoted = "\"" + ReadableText(Trim(group.value), 40) + "\"";
  const std::string where = " (group " + std::to_string(group.code) + ")";
  if (form == NumberForm::kNotANumber) Fail(quoted + " is no number" + where, group.line);
  if (form == NumberForm::kOutOfRange) Fail(quoted + " is too large" + where, group.line);
  if (form == NumberForm::kDecimalComma && decimalComma_.empty()) {
    decimalComma_ = quoted;
    decimalCommaLine_ = group.line;
  }
  return value;
}

double DxfValues::Required(int code) {
  const DxfGroup* group = FindOnly(code);
  if (group != nullptr) return Number(*group);
  Fail("group " + std::to_string(code) + " is missing", record_.line);
  return 0.0;
}

double DxfValues::Optional(int code, double fallback) {
  const DxfGroup* group = FindOnly(code);
  return group == nullptr ? fallback : Number(*group);
}

int DxfValues::Integer(int code, int fallback) {
  const DxfGroup* group = FindOnly(code);
  if (group == nullptr) return fallback;
  int value = fallback;
  if (!ParseInteger(group->value, value)) {
    Fail("\"" + ReadableText(Trim(group->value), 40) + "\" is no whole number (group " +
             std::to_string(code) + ")",
         group->line);
  }
  return value;
}

std::string_view DxfValues::Text(int code) const {
  for (const DxfGroup& group : record_.groups) {
    if (group.code == code) return group.value;
  }
  return {};
}

void DxfValues::Fail(std::string what, std::size_t line) {
  if (!failure_.empty()) return;
  failure_ = std::move(what);
  failureLine_ = line;
}

const DxfRecord& DxfValues::Record() const { return record_; }
const std::string& DxfValues::Failure() const { return failure_; }
std::size_t DxfValues::FailureLine() const { return failureLine_; }
const std::string& DxfValues::DecimalComma() const { return decimalComma_; }
std::size_t DxfValues::DecimalCommaLine() const { return decimalCommaLine_; }

void ElementBuilder::Begin(double millimetresPerUnit, const PlaneMap& map) {
  elements.clear();
  curves.clear();
  zeroLength.clear();
  shortArcs = 0;
  flatSides = 0;
  nearCircles = 0;
  equalAngles = false;
  heights = HeightRange();
  rises = false;
  hasWidth = false;
  remark.clear();
  failure.clear();
  factor_ = millimetresPerUnit;
  map_ = map;
  keepsCircles_ = map.IsSimilarity();
  stretch_ = map.LargestStretch() * millimetresPerUnit;
}

void ElementBuilder::Fail(std::string what) {
  if (failure.empty()) failure = std::move(what);
}

GX2DPoint ElementBuilder::Place(double x, double y) {
  // The sums of the map end with its origin, so a mirrored 0 stays without sign.
  const PlaneVector mapped = map_.Place({x, y});
  const GX2DPoint placed(mapped.x * factor_, mapped.y * factor_);
  if (!IsFinite(placed)) Fail("a coordinate in millimetres is too large");
  return placed;
}

void ElementBuilder::Add(std::unique_ptr<GX2DElement> element) {
  elements.push_back(std::move(element));
}

void ElementBuilder::AddPlacedLine(const GX2DPoint& start, const GX2DPoint& end) {
  if (SamePlace(start, end)) {
    zeroLength.push_back(start);
    return;
  }
  Add(std::make_unique<GX2DLine>(start.X, start.Y, end.X, end.Y));
}

void ElementBuilder::AddPlacedArc(const GX2DPoint& center, const GX2DPoint& start,
                                  const GX2DPoint& mid, const GX2DPoint& end, bool overHalf) {
  const bool endsMeet = start.IsAlmostEq(end, kSamePoint);
  if (mid.IsAlmostEq(end, kSamePoint) || (endsMeet && !overHalf)) {
    if (!SamePlace(start, end)) ++shortArcs;
    AddPlacedLine(start, end);
    return;
  }
  if (endsMeet && !SamePlace(start, end)) ++nearCircles;
  Add(std::make_unique<GX2DArc>(center, start, mid, end));
}

void ElementBuilder::AddWholeTurn(const GX2DPoint& center, const GX2DPoint& start,
                                  const GX2DPoint& mid) {
  if (SamePlace(start, mid)) Fail("its radius is lost beside its coordinates");
  Add(std::make_unique<GX2DArc>(center, start, mid, start));
}

// The arc from center + u over center + v, in drawing units; under an uneven map it is a part of an
// ellipse.
void ElementBuilder::AddMappedArc(const DrawnPoint& center, const PlaneVector& u,
                                  const PlaneVector& v, double sweep) {
  const GX2DPoint placed = Place(center.x, center.y);
  const PlaneVector mappedU = map_.Direction({u.x * factor_, u.y * factor_});
  const PlaneVector mappedV = map_.Direction({v.x * factor_, v.y * factor_});
  const EllipseAxes axes = AxesOf(mappedU, mappedV);
  if (!std::isfinite(axes.first.x + axes.first.y) ||
      !std::isfinite(axes.second.x + axes.second.y)) {
    Fail("a coordinate in millimetres is too large");
  }
  if (!failure.empty()) return;
  curves.push_back(std::make_unique<EllipseCurve>(PlaneVector{placed.X, placed.Y}, axes.first,
                                                  axes.second, -axes.shift, sweep - axes.shift));
}

void ElementBuilder::AddLine(const DrawnPoint& start, const DrawnPoint& end) {
  AddPlacedLine(Place(start.x, start.y), Place(end.x, end.y));
}

void ElementBuilder::AddCircle(const DrawnPoint& center, double radius) {
  if (!keepsCircles_) {
    AddMappedArc(center, {radius, 0.0}, {0.0, radius}, kTwoPi);
    return;
  }
  AddWholeTurn(Place(center.x, center.y), Place(center.x + radius, center.y),
               Place(center.x - radius, center.y));
}

void ElementBuilder::AddArc(const DrawnPoint& center, double radius, double startDegrees,
                            double endDegrees) {
  double sweep = std::fmod(endDegrees - startDegrees, 360.0);
  if (!std::isfinite(sweep)) {
    Fail("its angles are too large");
    return;
  }
  if (endDegrees == startDegrees) equalAngles = true;
  if (!(sweep > 0.0)) sweep += 360.0;
  const double first = std::fmod(startDegrees, 360.0);
  if (!keepsCircles_) {
    const PlaneVector u = DirectionOf(first);
    AddMappedArc(center, {radius * u.x, radius * u.y}, {-radius * u.y, radius * u.x},
                 sweep == 360.0 ? kTwoPi : sweep * (kPi / 180.0));
    return;
  }
  const DrawnPoint start = OnCircle(center, radius, first);
  const DrawnPoint mid = OnCircle(center, radius, first + sweep / 2.0);
  const GX2DPoint placedStart = Place(start.x, start.y);
  const GX2DPoint placedMid = Place(mid.x, mid.y);
  if (sweep == 360.0) {
    AddWholeTurn(Place(center.x, center.y), placedStart, placedMid);
    return;
  }
  const DrawnPoint end = OnCircle(center, radius, endDegrees);
  AddPlacedArc(Place(center.x, center.y), placedStart, placedMid, Place(end.x, end.y),
               sweep > 180.0);
}

void ElementBuilder::AddSide(const DrawnPoint& start, const DrawnPoint& end, double bulge) {
  const double dx = end.x - start.x;
  const double dy = end.y - start.y;
  // The middle of a side stands bulge times half the chord to the right of its chord.
  const double height = std::fabs(bulge) * 0.5 * std::hypot(dx, dy) * stretch_;
  if (!(height > kFlatSide)) {
    if (bulge != 0.0 && (dx != 0.0 || dy != 0.0)) ++flatSides;
    AddLine(start, end);
    return;
  }
  // The centre stands (1 - b * b) / (4 b) chords to the left; in this form no square overflows.
  const double toCenter = (1.0 / bulge - bulge) * 0.25;
  const double x = 0.5 * start.x + 0.5 * end.x;
  const double y = 0.5 * start.y + 0.5 * end.y;
  if (!keepsCircles_) {
    const DrawnPoint center{x - dy * toCenter, y + dx * toCenter};
    const PlaneVector u{start.x - center.x, start.y - center.y};
    const double side = bulge > 0.0 ? 1.0 : -1.0;
    AddMappedArc(center, u, {-side * u.y, side * u.x}, 4.0 * std::atan(std::fabs(bulge)));
    return;
  }
  AddPlacedArc(Place(x - dy * toCenter, y + dx * toCenter), Place(start.x, start.y),
               Place(x + dy * bulge * 0.5, y - dx * bulge * 0.5), Place(end.x, end.y),
               std::fabs(bulge) > 1.0);
}

Extrusion ReadExtrusion(DxfValues& values) {
  const double x = values.Optional(210, 0.0);
  const double y = values.Optional(220, 0.0);
  const double z = values.Optional(230, 1.0);
  const double tilt = kTilt * std::fabs(z);
  if (z == 0.0 || !(std::fabs(x) <= tilt) || !(std::fabs(y) <= tilt)) return Extrusion::kTilted;
  return z > 0.0 ? Extrusion::kUp : Extrusion::kDown;
}

bool IsSimpleCurve(std::string_view type) {
  return type == "LINE" || type == "ARC" || type == "CIRCLE" || type == "LWPOLYLINE";
}

void BuildSimpleCurve(DxfValues& values, ElementBuilder& builder) {
  const std::string_view type = values.Record().type;
  if (type == "LINE") {
    BuildLine(values, builder);
  } else if (type == "LWPOLYLINE") {
    BuildLightPolyline(values, builder);
  } else {
    BuildCircleOrArc(values, builder);
  }
}

void BuildPolyline(const std::vector<PolylineVertex>& vertices, bool closed,
                   ElementBuilder& builder) {
  if (vertices.size() < 2) {
    builder.Fail("it has fewer than 2 vertices");
    return;
  }
  for (std::size_t i = 0; i + 1 < vertices.size(); ++i) {
    builder.AddSide(vertices[i].point, vertices[i + 1].point, vertices[i].bulge);
  }
  if (closed) {
    builder.AddSide(vertices.back().point, vertices.front().point, vertices.back().bulge);
  }
}

}  // namespace drawing
