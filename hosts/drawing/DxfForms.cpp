#include "drawing/DxfForms.h"

#include "drawing/CurveMeasures.h"
#include "drawing/DxfEntities.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace drawing {

namespace {

constexpr double kPi = 3.14159265358979323846;

// A double keeps 15 significant digits of every decimal number. Further decimals than 12 are noise
// on a part.
constexpr int kDigits = 15;
constexpr int kMostDecimals = 12;
// The radius of an arc that was read is off by some units in the last place of the coordinates;
// with two digits less it comes out as it was written.
constexpr int kRadiusDigits = kDigits - 1;
// From here on rounding would take more than it gives.
constexpr double kLargest = 1e13;

// Arcs that stand as a side of a polyline: by radius in millimetres, and chord over diameter.
constexpr double kFlatRadius = 1e4;
constexpr double kFlatShare = 0.5;
constexpr int kBulgeDigits = 13;

// Forms follow one another until two are the same; that takes one or two steps.
constexpr int kMostSteps = 8;

// The power of ten at or below a number: 2 for 100 and for 999.
int Decade(double value) {
  if (!(value > 0.0)) return -kMostDecimals;
  char buffer[40];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific);
  const char* exponent = std::find(buffer, end.ptr, 'e') + 1;
  if (*exponent == '+') ++exponent;
  int decade = 0;
  std::from_chars(exponent, end.ptr, decade);
  return decade;
}

// The double nearest to the decimal number with so many decimals, 0 to 12.
double Rounded(double value, int decimals) {
  if (!(std::fabs(value) < kLargest)) return value;
  char buffer[64];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed,
                                 std::clamp(decimals, 0, kMostDecimals));
  double rounded = value;
  std::from_chars(buffer, end.ptr, rounded);
  return rounded == 0.0 ? 0.0 : rounded;
}

// The double nearest to the decimal number with so many significant digits.
double RoundedToDigits(double value, int digits) {
  char buffer[64];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value,
                                 std::chars_format::scientific, digits - 1);
  double rounded = value;
  std::from_chars(buffer, end.ptr, rounded);
  return rounded;
}

// The same coordinate gives the same figure in every element, so that ends that meet still meet.
double Coordinate(double value) { return Rounded(value, kDigits - 1 - Decade(std::fabs(value))); }

GX2DPoint RoundedPoint(const GX2DPoint& p) { return {Coordinate(p.X), Coordinate(p.Y)}; }

bool AreFinite(std::initializer_list<double> values) {
  return std::all_of(values.begin(), values.end(), [](double v) { return std::isfinite(v); });
}

DxfForm LineForm(const GX2DPoint& start, const GX2DPoint& end) {
  const GX2DPoint p = RoundedPoint(start);
  const GX2DPoint q = RoundedPoint(end);
  if (p.X == q.X && p.Y == q.Y) return {};
  return {DxfForm::Kind::kLine, {p.X, p.Y, q.X, q.Y, 0.0}};
}

// The decade of the largest figure about a centre, after rounding.
int ArcDecade(const GX2DPoint& center, double radius) {
  const double most = std::max(std::fabs(center.X), std::fabs(center.Y));
  const int decade = Decade(std::max(most, radius));
  const double rounded = Rounded(radius, kRadiusDigits - 1 - decade);
  return Decade(std::max(most, rounded));
}

double RadiusFigure(double radius, int decade) {
  const int decimals = std::clamp(kRadiusDigits - 1 - decade, 0, kMostDecimals);
  const double rounded = Rounded(radius, decimals);
  // A radius must be above 0.
  return rounded > 0.0 ? rounded : Rounded(std::pow(10.0, -decimals), decimals);
}

// Degrees from 0 to below 360.
double AngleFigure(const GX2DPoint& center, const GX2DPoint& p, double radius, int decade) {
  double degrees = std::atan2(p.Y - center.Y, p.X - center.X) * (180.0 / kPi);
  if (degrees < 0.0) degrees += 360.0;
  // One step moves the end by 0.3 to 3 steps of the radius: finer ones are lost in reading.
  const double steps = std::log10(radius * (kPi / 180.0) / 3.0);
  const double decimals = static_cast<double>(kRadiusDigits - 1 - decade) + std::ceil(steps);
  const double most = static_cast<double>(kMostDecimals);
  const double rounded = Rounded(degrees, static_cast<int>(std::clamp(decimals, 0.0, most)));
  return rounded >= 360.0 ? 0.0 : rounded;
}

// The library also takes arcs for circles that are too short to tell their middle from their end.
bool LeadsAround(const GX2DArc& arc) {
  if (!arc.IsCircle()) return false;
  const double chord = Distance(arc.Start, arc.End);
  return chord == 0.0 || Distance(arc.Start, arc.Mid) > chord;
}

bool IsFlat(const GX2DArc& arc, double radius) {
  const double share = Distance(arc.Start, arc.End) / (2.0 * radius);
  return radius > kFlatRadius && share < kFlatShare && std::fabs(SignedSweep(arc)) < 0.5 * kPi;
}

DxfForm SideForm(const GX2DArc& arc, double radius) {
  const GX2DPoint p = RoundedPoint(arc.Start);
  const GX2DPoint q = RoundedPoint(arc.End);
  const double half = std::asin(std::min(1.0, Distance(p, q) / (2.0 * radius)));
  const double bulge = RoundedToDigits(std::tan(0.5 * half), kBulgeDigits);
  if (bulge == 0.0) return LineForm(arc.Start, arc.End);
  return {DxfForm::Kind::kSide, {p.X, p.Y, q.X, q.Y, arc.IsClockwise() ? -bulge : bulge}};
}

DxfForm ArcForm(const GX2DArc& arc) {
  const double radius = 0.5 * Distance(arc.Start, arc.Center) + 0.5 * Distance(arc.End, arc.Center);
  if (!AreFinite({arc.Center.X, arc.Center.Y, arc.Mid.X, arc.Mid.Y, radius})) return {};
  if (!(radius > 0.0)) return LineForm(arc.Start, arc.End);
  const GX2DPoint center = RoundedPoint(arc.Center);
  const int decade = ArcDecade(center, radius);
  const double figure = RadiusFigure(radius, decade);
  if (LeadsAround(arc)) return {DxfForm::Kind::kCircle, {center.X, center.Y, figure, 0.0, 0.0}};
  if (IsFlat(arc, figure)) return SideForm(arc, radius);
  const bool clockwise = arc.IsClockwise();
  const double from = AngleFigure(arc.Center, clockwise ? arc.End : arc.Start, radius, decade);
  const double to = AngleFigure(arc.Center, clockwise ? arc.Start : arc.End, radius, decade);
  // Equal angles would be read as a full circle.
  if (from == to) return LineForm(arc.Start, arc.End);
  return {DxfForm::Kind::kArc, {center.X, center.Y, figure, from, to}};
}

DxfForm RoundedForm(const GX2DElement& element) {
  if (const auto* line = dynamic_cast<const GX2DLine*>(&element)) {
    if (!AreFinite({line->Start.X, line->Start.Y, line->End.X, line->End.Y})) return {};
    return LineForm(line->Start, line->End);
  }
  const auto* arc = dynamic_cast<const GX2DArc*>(&element);
  return arc == nullptr ? DxfForm() : ArcForm(*arc);
}

// What the reader makes of the figures.
std::unique_ptr<GX2DElement> Read(const DxfForm& form) {
  const std::array<double, 5>& f = form.figures;
  ElementBuilder builder;
  builder.Begin(1.0, {});
  if (form.kind == DxfForm::Kind::kLine) builder.AddLine({f[0], f[1]}, {f[2], f[3]});
  if (form.kind == DxfForm::Kind::kCircle) builder.AddCircle({f[0], f[1]}, f[2]);
  if (form.kind == DxfForm::Kind::kArc) builder.AddArc({f[0], f[1]}, f[2], f[3], f[4]);
  if (form.kind == DxfForm::Kind::kSide) builder.AddSide({f[0], f[1]}, {f[2], f[3]}, f[4]);
  if (!builder.failure.empty() || builder.elements.empty()) return nullptr;
  return std::move(builder.elements.front());
}

}  // namespace

bool DxfForm::operator==(const DxfForm& other) const {
  return kind == other.kind && figures == other.figures;
}

DxfForm FormOf(const GX2DElement& element, std::unique_ptr<GX2DElement>& read) {
  DxfForm form = RoundedForm(element);
  for (int step = 0; step < kMostSteps; ++step) {
    std::unique_ptr<GX2DElement> next = Read(form);
    if (!next) return {};
    read = std::move(next);
    if (form.kind == DxfForm::Kind::kLine) break;
    const DxfForm again = RoundedForm(*read);
    if (again == form) break;
    form = again;
  }
  return form;
}

std::string FigureText(double figure) {
  if (figure == 0.0) return "0.0";
  // 309 digits in front of the point or 340 behind it, and a sign.
  char buffer[400];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, figure, std::chars_format::fixed);
  std::string text(buffer, end.ptr);
  if (text.find('.') == std::string::npos) text += ".0";
  return text;
}

}  // namespace drawing
