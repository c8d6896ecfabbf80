// Cutting lines in space where they cross: which line of a pair is cut and where, and the walk over
// the pairs of a list.
#pragma once

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "contour/ElementKind.h"
#include "foundation/Tolerance.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <memory>

namespace ktrcl_internal {

/// What is cut of a pair of lines.
enum class Cut { kNone, kFirst, kSecond };

/// Whether a line that is crossed at parameter `t` is to be cut there, given that the other line is
/// crossed at `other`.
inline bool IsCutAt(const GX3DLine& line, double t, double other, const GX3DPoint& hit) {
  constexpr double kInsideTolerance = 0.000001;
  if (GXMath::AlmostEqOrLess(t, 0.0, kInsideTolerance)) return false;
  if (GXMath::AlmostEqOrGreater(t, 1.0, kInsideTolerance)) return false;
  return GXMath::AlmostEqOrGreater(other, 0.0, kParameterTolerance) &&
         GXMath::AlmostEqOrLess(other, 1.0, kParameterTolerance) &&
         !hit.IsAlmostEq(line.Start, kLengthTolerance) &&
         !hit.IsAlmostEq(line.End, kLengthTolerance);
}

/// Which of two lines is to be cut; then at `hit`.
inline Cut FindCut(const GX3DLine& first, const GX3DLine& second, GX3DPoint& hit) {
  if (!GXGeometry::Get3DLineIntersection(first, second, hit)) return Cut::kNone;
  const double t1 = GXGeometry::PointParametricOnLine(hit, first);
  const double t2 = GXGeometry::PointParametricOnLine(hit, second);
  if (IsCutAt(first, t1, t2, hit)) return Cut::kFirst;
  return IsCutAt(second, t2, t1, hit) ? Cut::kSecond : Cut::kNone;
}

/// Inserts the part of the line at `position` that ends at `hit` in front of it, and lets the line
/// start there.
inline void CutInFront(GX3DElmList& list, std::size_t position, const GX3DPoint& hit) {
  auto* const line = static_cast<GX3DLine*>(list[position]);
  auto front = std::make_unique<GX3DLine>(line->Start, hit);
  list.insert(list.begin() + static_cast<GX3DElmList::difference_type>(position), front.get());
  front.release();
  line->Start = hit;
}

/// The most cuts for a list of `count` entries. Lines in one plane need fewer than the square of
/// their number; skew ones, which bend where they are cut, could go on and on.
inline std::size_t MostCuts(std::size_t count) { return 16 * count * count + 1024; }

/// The coordinate by which the parameter on a line is told, 0 to 2: the first in which the line is
/// longer than 0.0001. -1 where there is none, where a coordinate is no number, and close to the
/// limit, so that the answer can do without the length of the line.
inline int ParameterAxis(const GX3DLine& line) {
  constexpr double kClearlyLonger = 2.0 * kLengthTolerance;
  const double dx = std::fabs(line.Start.X - line.End.X);
  const double dy = std::fabs(line.Start.Y - line.End.Y);
  const double dz = std::fabs(line.Start.Z - line.End.Z);
  if (std::isnan(dx + dy + dz)) return -1;
  if (dx > kLengthTolerance) return dx > kClearlyLonger ? 0 : -1;
  if (dy > kLengthTolerance) return dy > kClearlyLonger ? 1 : -1;
  return dz > kClearlyLonger ? 2 : -1;
}

/// Ends of a line in one coordinate.
struct Extent {
  double low;
  double high;
};

inline Extent ExtentOn(int axis, const GX3DLine& line) {
  constexpr std::array<double GX3DPoint::*, 3> kCoordinates = {&GX3DPoint::X, &GX3DPoint::Y,
                                                               &GX3DPoint::Z};
  const auto coordinate = kCoordinates.at(static_cast<std::size_t>(axis));
  return {std::fmin(line.Start.*coordinate, line.End.*coordinate),
          std::fmax(line.Start.*coordinate, line.End.*coordinate)};
}

/// Sum of the extents in all coordinates: at least the length, at most 1.8 times as much.
inline double Span(const GX3DLine& line) {
  return std::fabs(line.Start.X - line.End.X) + std::fabs(line.Start.Y - line.End.Y) +
         std::fabs(line.Start.Z - line.End.Z);
}

/// Whether rounding stays far below the 0.00001 from which two lines span a plane.
inline bool IsModerate(const GX3DLine& line) {
  constexpr double kLimit = 1e5;
  const auto isNear = [](const GX3DPoint& p) {
    return std::fabs(p.X) < kLimit && std::fabs(p.Y) < kLimit && std::fabs(p.Z) < kLimit;
  };
  return isNear(line.Start) && isNear(line.End);
}

/// Whether two lines are so far apart that neither is cut. For a cut both parameters of the hit
/// have to lie between 0 and 1, give or take 0.00001.
///
/// The parameter on the second line is told by one coordinate, in which the hit thus has to lie
/// within the line's extent. Nothing follows from the others: for skew lines the hit need not be
/// near the second line. Is the first parameter told by the same coordinate, the hit has to lie
/// within both extents.
///
/// Else the hit is known to lie near the first line: it lies on its carrier, as the crossing is
/// found in a frame whose X runs along the first line. How far off rounding may put it depends on
/// how slightly the lines span a plane; with moderate coordinates and 0.00001 it is less than a
/// thousandth of the length as long as the coordinate that tells the parameter is one in which the
/// line really runs. A hundredth is allowed for.
inline bool AreApart(const GX3DLine& first, const GX3DLine& second) {
  constexpr double kShareOfExtent = 0.0001;
  constexpr double kShareOfLength = 0.01;
  constexpr double kOff = 0.001;
  const int axisOfFirst = ParameterAxis(first);
  const int axis = ParameterAxis(second);
  if (axisOfFirst < 0 || axis < 0) return false;
  const Extent one = ExtentOn(axis, first);
  const Extent two = ExtentOn(axis, second);
  double slack = kShareOfExtent * ((one.high - one.low) + (two.high - two.low));
  if (axis != axisOfFirst) {
    const Extent telling = ExtentOn(axisOfFirst, first);
    const double span = Span(first);
    if (!(telling.high - telling.low > 0.5 * span)) return false;
    if (!IsModerate(first) || !IsModerate(second)) return false;
    slack += kShareOfLength * span + kOff;
  }
  return one.high + slack < two.low || one.low - slack > two.high;
}

/// The walk over the pairs of lines for which `skip(first, second)` is false.
template <class Skip>
void CutAtCrossings(GX3DElmList& list, Skip skip) {
  std::size_t cutsLeft = MostCuts(list.size());
  std::size_t i = 0;
  while (i < list.size()) {
    bool isFirstCut = false;
    const bool isLine = KindOf(list[i]) == PrimitiveKind::kLine;
    for (std::size_t j = i + 1; isLine && j < list.size() && !isFirstCut;) {
      const auto& first = static_cast<const GX3DLine&>(*list[i]);
      GX3DPoint hit;
      Cut cut = Cut::kNone;
      if (KindOf(list[j]) == PrimitiveKind::kLine) {
        const auto& second = static_cast<const GX3DLine&>(*list[j]);
        if (!skip(first, second)) cut = FindCut(first, second, hit);
      }
      if (cut == Cut::kNone) {
        ++j;
        continue;
      }
      if (cutsLeft-- == 0) return;
      // The new piece takes the place of the line that is cut and is looked at next: as the first
      // of the pair against all that follow, or as the second against the same first.
      isFirstCut = cut == Cut::kFirst;
      CutInFront(list, isFirstCut ? i : j, hit);
    }
    if (!isFirstCut) ++i;
  }
}

}  // namespace ktrcl_internal
