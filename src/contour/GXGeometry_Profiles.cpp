// Profiles in space. A profile is looked at in its own coordinate plane: points are projected so
// that x and y are that plane and z is the depth, and taken back at the end. Arcs are their chords.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "contour/ElementKind.h"
#include "elements/HealingTwins.h"
#include "elements/PlainVector.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

using ktrcl_internal::KindOf;
using ktrcl_internal::kLengthTolerance;
using ktrcl_internal::Plain;
using ktrcl_internal::PlainVector;
using ktrcl_internal::PrimitiveKind;

namespace {

/// Extent in x (length units) below which, strictly, a line counts as upright; an upright one has
/// to be higher than this, strictly.
constexpr double kUprightThreshold = 0.0001;

/// Slopes that differ by no more than this are parallel.
constexpr double kParallelTolerance = 0.0001;

/// Shares of a line strictly between which a crossing counts.
constexpr double kFirstShare = 0.0001;
constexpr double kLastShare = 0.9999;

/// Share where there is none: outside every line.
constexpr double kNoShare = -1.0;

/// Results of the integer predicates.
constexpr int kInside = 1;
constexpr int kNotInside = 0;
constexpr int kTurnsLeft = 1;
constexpr int kTurnsRight = 0;
constexpr int kAtStart = 0;

// Elements

/// The line itself or the chord of an arc; nothing for other kinds and null entries.
std::optional<GX3DLine> ChordOf(const GX3DElement* element) {
  const PrimitiveKind kind = KindOf(element);
  if (kind == PrimitiveKind::kLine) return *static_cast<const GX3DLine*>(element);
  if (kind != PrimitiveKind::kArc) return std::nullopt;
  const auto* const arc = static_cast<const GX3DArc*>(element);
  return GX3DLine(arc->Start, arc->End);
}

GX2DPoint Flattened(const GX3DPoint& p, int plane) {
  GX2DPoint flat;
  GXGeometry::Convert3DTo2DPointByProjection(p, flat, plane);
  return flat;
}

GX2DLine Flattened(const GX3DLine& line, int plane) {
  return GX2DLine(Flattened(line.Start, plane), Flattened(line.End, plane));
}

// Crossings

struct ProjectedLine {
  PlainVector start;
  PlainVector end;
};

PlainVector Projected(const GX3DPoint& p, int plane) {
  GX3DPoint projected;
  GXGeometry::Convert3DPointsByProjection(p, projected, plane);
  return Plain(projected);
}

ProjectedLine Projected(const GX3DLine& line, int plane) {
  return {Projected(line.Start, plane), Projected(line.End, plane)};
}

double ShareInX(const ProjectedLine& line, double x) {
  return (x - line.start.x) / (line.end.x - line.start.x);
}

double ShareInY(const ProjectedLine& line, double y) {
  return (y - line.start.y) / (line.end.y - line.start.y);
}

/// y = slope * x + intercept, for a line that is not upright.
struct Carrier {
  double slope;
  double intercept;
};

Carrier CarrierOf(const ProjectedLine& line) {
  const double slope = (line.end.y - line.start.y) / (line.end.x - line.start.x);
  return {slope, line.start.y - slope * line.start.x};
}

double HeightAt(const Carrier& carrier, double x) { return carrier.slope * x + carrier.intercept; }

/// A line for which crossings are sought, by its course.
enum class Course { kSlanted, kUpright, kNone };

bool IsUpright(const ProjectedLine& line) {
  return std::fabs(line.end.x - line.start.x) < kUprightThreshold;
}

bool IsHigh(const ProjectedLine& line) {
  return std::fabs(line.end.y - line.start.y) > kUprightThreshold;
}

Course CourseOf(const ProjectedLine& line) {
  if (std::fabs(line.end.x - line.start.x) >= kUprightThreshold) return Course::kSlanted;
  // An extent that is NaN is neither slanted nor upright.
  return IsUpright(line) && IsHigh(line) ? Course::kUpright : Course::kNone;
}

/// Crossing of two carriers by its place and its shares of both lines.
struct Crossing {
  double x = 0.0;
  double y = 0.0;
  double onQuery = kNoShare;
  double onElement = kNoShare;
};

bool IsBetweenEnds(double share) { return share > kFirstShare && share < kLastShare; }

Crossing SlantedWithUpright(const ProjectedLine& query, const ProjectedLine& element) {
  Crossing crossing;
  crossing.x = element.start.x;
  crossing.onQuery = ShareInX(query, crossing.x);
  crossing.y = query.start.y + crossing.onQuery * (query.end.y - query.start.y);
  if (IsHigh(element)) crossing.onElement = ShareInY(element, crossing.y);
  return crossing;
}

Crossing SlantedWithSlanted(const ProjectedLine& query, const ProjectedLine& element) {
  const Carrier own = CarrierOf(query);
  const Carrier other = CarrierOf(element);
  Crossing crossing;
  if (!(std::fabs(other.slope - own.slope) > kParallelTolerance)) return crossing;
  crossing.x = (own.intercept - other.intercept) / (other.slope - own.slope);
  crossing.y = HeightAt(own, crossing.x);
  crossing.onQuery = ShareInX(query, crossing.x);
  crossing.onElement = ShareInX(element, crossing.x);
  return crossing;
}

Crossing UprightWithSlanted(const ProjectedLine& query, const ProjectedLine& element) {
  Crossing crossing;
  crossing.x = query.start.x;
  crossing.y = HeightAt(CarrierOf(element), crossing.x);
  crossing.onQuery = ShareInY(query, crossing.y);
  crossing.onElement = ShareInX(element, crossing.x);
  return crossing;
}

Crossing Cross(const ProjectedLine& query, const ProjectedLine& element) {
  const Course course = CourseOf(query);
  if (course == Course::kNone) return Crossing();
  if (course == Course::kSlanted) {
    return IsUpright(element) ? SlantedWithUpright(query, element)
                              : SlantedWithSlanted(query, element);
  }
  return IsUpright(element) ? Crossing() : UprightWithSlanted(query, element);
}

/// What a walk over a profile found, in the caller's axes.
struct ProfileCrossings {
  int count = 0;  ///< 0, 1, or 2 for more.
  GX3DPoint first;
  GX3DPoint last;
};

/// Nothing is written to the caller's points before the end: they may belong to the profile.
ProfileCrossings CrossProfile(const GX3DLine& line, const GX3DElmList& list, int plane) {
  constexpr int kMore = 2;
  const ProjectedLine query = Projected(line, plane);
  ProfileCrossings found;
  for (const GX3DElement* const element : list) {
    const std::optional<GX3DLine> chord = ChordOf(element);
    if (!chord) continue;
    const Crossing crossing = Cross(query, Projected(*chord, plane));
    if (!IsBetweenEnds(crossing.onQuery) || !IsBetweenEnds(crossing.onElement)) continue;
    // The depth is that of the line: the profile stands for all depths.
    const double depth = query.start.z + crossing.onQuery * (query.end.z - query.start.z);
    GXGeometry::Reconvert3DPointsByProjection(GX3DPoint(crossing.x, crossing.y, depth), found.last,
                                              plane);
    if (found.count == 0) found.first = found.last;
    found.count = std::min(found.count + 1, kMore);
  }
  return found;
}

// Sides

/// Line against which the first turn of a profile is told.
GX3DLine ReferenceOf(const GX3DElement* first) {
  const PrimitiveKind kind = KindOf(first);
  if (kind == PrimitiveKind::kLine) return *static_cast<const GX3DLine*>(first);
  if (kind != PrimitiveKind::kArc) return GX3DLine();
  const auto* const arc = static_cast<const GX3DArc*>(first);
  return GX3DLine(arc->Center, arc->Start);
}

int TurnAt(const GX2DPoint& a, const GX2DPoint& b, const GX2DPoint& c) {
  const PlainVector v = Plain(b) - Plain(a);
  const PlainVector w = Plain(c) - Plain(b);
  return v.x * w.y - v.y * w.x > 0.0 ? kTurnsLeft : kTurnsRight;
}

/// Whether `p` is on the outer side of an element of a profile that turns as told.
bool IsOutside(const GX2DPoint& p, const GX2DLine& chord, int turn) {
  const PlainVector v = Plain(p) - Plain(chord.End);
  const PlainVector w = Plain(chord.Start) - Plain(chord.End);
  const double side = v.y * w.x - v.x * w.y;
  return (side < 0.0 && turn == kTurnsLeft) || (side > 0.0 && turn == kTurnsRight);
}

bool IsInsideOfAllElements(const GX3DElmList& list, const GX2DLine& query, int turn, int plane) {
  for (const GX3DElement* const element : list) {
    const std::optional<GX3DLine> chord = ChordOf(element);
    if (!chord) continue;
    const GX2DLine flat = Flattened(*chord, plane);
    if (IsOutside(query.Start, flat, turn) || IsOutside(query.End, flat, turn)) return false;
  }
  return true;
}

bool IsOdd(std::size_t count) { return count % 2 == 1; }

/// Whether an odd number of elements is crossed towards each end of the line.
bool IsCrossedOddly(const GX3DElmList& list, const GX3DLine& line, const GX2DLine& query,
                    int plane) {
  // By type: those to be passed over, nearer to the end, nearer to the start. Higher types are in
  // line.
  std::array<std::size_t, 3> counts = {};
  for (GX3DElement* const element : list) {
    const std::optional<GX3DLine> chord = ChordOf(element);
    if (!chord) continue;
    const int type = GXGeometry::GetTypeIntersectionLines(query, Flattened(*chord, plane));
    if (type >= static_cast<int>(counts.size())) continue;
    const int counted = GXGeometry::CheckFurtherOnElement(line, element, type);
    ++counts.at(static_cast<std::size_t>(counted));
  }
  return IsOdd(counts[1]) && IsOdd(counts[2]);
}

}  // namespace

int GXGeometry::IntersectionPointProfile(const GX3DLine& line, GX3DPoint& point, GX3DElmList& list,
                                         const int& plane) {
  const ProfileCrossings found = CrossProfile(line, list, plane);
  if (found.count > 0) point = found.last;
  // Also after a crossing: hosts compare the point.
  return 0;
}

int GXGeometry::IntersectionPointsProfile(const GX3DLine& line, GX3DPoint& first, GX3DPoint& second,
                                          GX3DElmList& list, const int& plane) {
  const ProfileCrossings found = CrossProfile(line, list, plane);
  if (found.count > 0) first = found.first;
  if (found.count > 1) second = found.last;
  return found.count;
}

int GXGeometry::CheckDirection3DElmList(GX3DElmList& list, const int& plane) {
  if (list.empty()) return kTurnsRight;
  const GX3DLine reference = ReferenceOf(list.front());
  for (const GX3DElement* const element : list) {
    if (KindOf(element) != PrimitiveKind::kLine) continue;
    const GX3DPoint& end = static_cast<const GX3DLine*>(element)->End;
    if (PointsInLine(reference.Start, reference.End, end)) continue;
    return TurnAt(Flattened(reference.Start, plane), Flattened(reference.End, plane),
                  Flattened(end, plane));
  }
  return kTurnsLeft;
}

int GXGeometry::CheckFurtherOnElement(const GX3DLine& line, GX3DElement* const& element,
                                      const int& type) {
  const std::optional<GX3DLine> chord = ChordOf(element);
  if (!chord) return type;
  GX3DPoint hit;
  const bool isMet = Get3DLineIntersection(line, *chord, hit);
  return isMet && hit.IsAlmostEq(chord->Start, kLengthTolerance) ? kAtStart : type;
}

int GXGeometry::LineIn3DElmList(GX3DElmList& list, const GX3DLine& line, const int& plane) {
  const int turn = CheckDirection3DElmList(list, plane);
  const GX2DLine query = Flattened(line, plane);
  if (IsInsideOfAllElements(list, query, turn, plane)) return kInside;
  return IsCrossedOddly(list, line, query, plane) ? kInside : kNotInside;
}

void GXGeometry::Filter3DElementListByMinY(GX3DElmList& list, const double& minY) {
  // A copy: the bound may belong to an element that goes.
  const double bound = minY;
  ktrcl_internal::DestroyIf(list, [bound](const GX3DElement* element) {
    return element != nullptr && element->GetMinY() < bound;
  });
}
