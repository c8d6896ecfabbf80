// Polygons for arcs, in the five forms that hosts know, and for the other elements that take part
// in the element-list form. The forms differ in their rule of density, in what they append and in
// how they end; the points they make are part of the results built on them, so the order of the
// floating-point operations stays.

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/AxisTurn.h"
#include "elements/ElementSequences.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>

namespace {

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kTwoPi = 6.283185307179586;

// Five degrees in radians: the step of the element-list form for radii up to 10.
constexpr double kBaseStep = 0.08726646259971647;
// From a whole radius above this one, the step shrinks with the decimal logarithm of the radius.
constexpr int kBaseStepRadius = 10;

// Guard of the chord-height forms against radii and lengths of nothing (length units).
constexpr double kDegenerateLength = 1e-06;

// The most steps of one arc, so that one arc appends at most a million entries whatever it holds.
// No sensible input comes near; an allowed height of 0 does.
constexpr int kMaxSteps = 999999;

// Cuts the decimals off a count. What is no number, or is below 0, counts as 0.
int ToCount(double figure) {
  if (!(figure > 0.0)) return 0;
  return figure < kMaxSteps ? static_cast<int>(figure) : kMaxSteps;
}

void AppendLine(GX2DElmList& list, const GX2DPoint& start, const GX2DPoint& end) {
  ktrcl_internal::PushOwned(list, std::make_unique<GX2DLine>(start, end));
}

// Direction from the centre to p, from -pi to pi; upright where the x offset is next to nothing.
double AngleAbout(const GX2DPoint& center, const GX2DPoint& p) {
  const double dx = p.X - center.X;
  if (std::fabs(dx) > ktrcl_internal::kLengthTolerance) return std::atan2(p.Y - center.Y, dx);
  return center.Y - p.Y > 0.0 ? -kHalfPi : kHalfPi;
}

double ElementListStep(double radius) {
  return ToCount(radius) > kBaseStepRadius ? kBaseStep / std::log10(radius) : kBaseStep;
}

// Number of whole steps on the way from one angle to the other; a circle, where they are equal,
// takes the whole turn.
int ElementListSteps(double from, double to, double step, bool isCircle) {
  // The step of an infinite radius is 0: there is no next point on such an arc.
  if (step == 0.0) return 0;
  const int count = ToCount(std::fabs((to - from) / step));
  if (count != 0) return count;
  return ToCount(std::fabs(isCircle ? kTwoPi / step : (to - from) / 10.0));
}

// Calls `append` with the vector after each `GXVector::Rotate` by `step`, as long as `goesOn` holds
// for the angle turned so far. A step that is not above 0, NaN included, would never arrive: no
// turn is made.
template <typename GoesOn, typename Append>
void TurnStepwise(GXVector v, const GXVector& axis, double step, GoesOn goesOn, Append append) {
  if (!(step > 0.0) || std::isinf(step)) return;
  const ktrcl_internal::AxisTurn turn(GX3DPoint(0.0, 0.0, 0.0), GX3DPoint(axis), step);
  for (double angle = step; goesOn(angle); angle += step) {
    if (turn.HasAxis()) v = GXVector(turn(GX3DPoint(v)));
    append(v);
  }
}

// The angle by which a chord-height form steps at most. The full angle is taken although the chord
// of this sagitta spans twice as much, so the polygon stays closer to the arc than the height.
double LargestStep(double radius, double height) {
  return std::fabs(std::acos(std::clamp((radius - height) / radius, -1.0, 1.0)));
}

int StepsOf(double sweep, double largestStep) {
  return ToCount(GXMath::CeilToDec(std::fabs(sweep / largestStep), 0));
}

GXVector AxisOf(const GX2DArc& arc) { return GXVector(0.0, 0.0, arc.IsClockwise() ? -1.0 : 1.0); }

// Not normalised: `GXVector::Rotate` works with any length.
GXVector AxisOf(const GX3DArc& arc) {
  return GXVector(arc.Center, arc.Start) * GXVector(arc.Center, arc.Mid);
}

void AppendPoint(GX2DPointList& list, const GX2DPoint& p) {
  ktrcl_internal::PushOwned(list, std::make_unique<GX2DPoint>(p));
}

void AppendPoint(GX3DPointList& list, const GX3DPoint& p) { list.push_back(p); }

// The two angle forms: start, then one point per step, the last one near the end.
template <typename Arc, typename List>
void AppendByMaxAngle(const Arc& arc, double sweep, int maxAngle, List& list) {
  const double degrees = std::fabs(GXMath::RadToDeg(sweep));
  const int count = StepsOf(degrees, maxAngle);
  const double step = GXMath::DegToRad(degrees / count);
  AppendPoint(list, arc.Start);
  const double limit = GXMath::DegToRad(degrees) + step * 0.5;
  TurnStepwise(
      GXVector(arc.Center, arc.Start), AxisOf(arc), step,
      [limit](double angle) { return angle <= limit; },
      [&](const GXVector& v) { AppendPoint(list, arc.Center + v); });
}

// The sweep of a flat arc is asked for in space.
double SweepOf(const GX2DArc& arc) { return GXGeometry::GetArcAngleRad(GX3DArc(arc, 2)); }

}  // namespace

void GX2DPoint::AddAsPolygon(GX2DElmList&) const {}

void GX2DLine::AddAsPolygon(GX2DElmList& list) const {
  ktrcl_internal::PushOwned(list, std::make_unique<GX2DLine>(*this));
}

void GX2DRectangle::AddAsPolygon(GX2DElmList& list) const {
  const GX2DPoint besideCorner1(Corner1.X, Corner2.Y);
  const GX2DPoint besideCorner2(Corner2.X, Corner1.Y);
  AppendLine(list, Corner1, besideCorner1);
  AppendLine(list, besideCorner1, Corner2);
  AppendLine(list, Corner2, besideCorner2);
  AppendLine(list, besideCorner2, Corner1);
}

void GX2DArc::AddAsPolygon(GX2DElmList& list) const {
  const double radius = Radius();
  const bool isCircle = IsCircle();
  double angle = AngleAbout(Center, Start);
  const double endAngle = isCircle ? angle : AngleAbout(Center, End);
  double step = ElementListStep(radius);
  if (IsClockwise()) {
    if (angle < endAngle) angle += kTwoPi;
    step = -step;
  } else if (endAngle < angle) {
    angle -= kTwoPi;
  }
  const int count = ElementListSteps(angle, endAngle, step, isCircle);
  GX2DPoint p = Start;
  for (int i = 0; i < count; ++i) {
    angle += step;
    const GX2DPoint next(std::cos(angle) * radius + Center.X, std::sin(angle) * radius + Center.Y);
    AppendLine(list, p, next);
    p = next;
  }
  AppendLine(list, p, End);
}

void GX2DArc::AddAsPolygon(GX2DPointList& list, double height) const {
  const double radius = Radius();
  if (radius < kDegenerateLength) return;
  const double largestStep = LargestStep(radius, height);
  const double sweep = SweepOf(*this);
  int count = StepsOf(sweep, largestStep);
  if (count == 0) {
    if (Len() < kDegenerateLength) return;
    count = 1;
  }
  const double step = sweep / count;
  AppendPoint(list, Start);
  const double limit = sweep + step * 0.5;
  TurnStepwise(
      GXVector(Center, Start), AxisOf(*this), step,
      [limit](double angle) { return angle <= limit; },
      [&](const GXVector& v) { AppendPoint(list, Center + v); });
}

void GX3DArc::AddAsPolygon(GX3DPointList& list, double height) const {
  const double radius = Radius();
  if (radius < kDegenerateLength) return;
  const double sweep = GXGeometry::GetArcAngleRad(*this);
  const int count = StepsOf(sweep, LargestStep(radius, height));
  if (count == 0) return;
  const double step = sweep / count;
  AppendPoint(list, Start);
  const double limit = sweep - step * 0.5;
  // Strictly below: the place of the last step is taken by the end point itself.
  TurnStepwise(
      GXVector(Center, Start), AxisOf(*this), step, [limit](double angle) { return angle < limit; },
      [&](const GXVector& v) { AppendPoint(list, Center + v); });
  AppendPoint(list, End);
}

void GX2DArc::AddAsPolygonMaxAngle(GX2DPointList& list, int maxAngle) const {
  AppendByMaxAngle(*this, SweepOf(*this), maxAngle, list);
}

void GX3DArc::AddAsPolygonMaxAngle(GX3DPointList& list, int maxAngle) const {
  AppendByMaxAngle(*this, GXGeometry::GetArcAngleRad(*this), maxAngle, list);
}

void GX2DElmList::AddAsPolygon(GX2DElmList& list) {
  MakeConnectingElements();
  // By position and up to the size at the start, since `list` may be this very list.
  const std::size_t count = size();
  for (std::size_t i = 0; i < count; ++i) {
    const GX2DElement* const element = (*this)[i];
    if (element != nullptr) element->AddAsPolygon(list);
  }
}
