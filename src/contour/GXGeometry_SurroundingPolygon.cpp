// Tangents of arcs, the polygon of sharp corners around a contour, and the rotation in which the
// upright box of a contour is smallest.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/foundation/GXBoundBox.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "contour/ElementKind.h"
#include "elements/ElementSequences.h"
#include "elements/LineMeasures.h"
#include "foundation/Tolerance.h"

#include <cmath>
#include <cstddef>
#include <memory>
#include <utility>

using ktrcl_internal::IsExactly;
using ktrcl_internal::kLengthTolerance;
using ktrcl_internal::kPi;
using ktrcl_internal::PushOwned;

namespace {

// Polygon of corners

void Append(GX2DElmList& target, const GX2DPoint& p) {
  PushOwned(target, std::make_unique<GX2DPoint>(p));
}

/// Line from start to end of a line or arc; false for any other kind.
bool GetChord(GX2DElement* element, GX2DLine& chord) {
  if (const auto* const line = dynamic_cast<GX2DLine*>(element)) {
    chord = GX2DLine(line->Start, line->End);
    return true;
  }
  if (const auto* const arc = dynamic_cast<GX2DArc*>(element)) {
    chord = GX2DLine(arc->Start, arc->End);
    return true;
  }
  return false;
}

/// Copy of an arc, its ends exchanged unless it starts where it meets the element before.
GX2DArc StartedAtJoint(const GX2DArc& arc, GX2DElement* previous) {
  GX2DArc started(arc);
  GX2DLine chord(started.Start, started.End);
  GX2DLine previousChord;
  // Without a joint the origin stands for it.
  GX2DPoint joint;
  if (GetChord(previous, previousChord)) {
    GXGeometry::GetCommon2DPoint(&chord, &previousChord, joint);
  }
  if (started.Start != joint) std::swap(started.Start, started.End);
  return started;
}

/// Whether `arc` is the fillet of the line before it and the line behind it, whose corner is then
/// written.
bool IsFillet(const GX2DArc& arc, const GX2DLine& incoming, const GX2DLine& outgoing,
              GX2DPoint& corner) {
  // Length units, strict: how near the center has to be to that of the true fillet.
  constexpr double kCenterTolerance = 0.001;
  GX2DPoint hit;
  if (!GXGeometry::Get2DLineIntersection(incoming, outgoing, hit)) return false;
  const bool endsAtArc = incoming.End.IsAlmostEq(arc.Start, kLengthTolerance);
  const bool startsAtArc = outgoing.Start.IsAlmostEq(arc.End, kLengthTolerance);
  const GX2DLine toCorner(endsAtArc ? incoming.Start : incoming.End, hit);
  const GX2DLine fromCorner(hit, startsAtArc ? outgoing.End : outgoing.Start);
  GX2DArc fillet;
  GXGeometry::Construct2DArcBetween2Lines(toCorner, fromCorner, arc.Radius(), fillet);
  if (!(GXGeometry::GetDistancePointPoint(fillet.Center, arc.Center) < kCenterTolerance)) {
    return false;
  }
  corner = hit;
  return true;
}

/// The corner at the end of a line. Where the next element is an arc, that takes care of itself.
void AppendCorner(const GX2DLine& line, GX2DElement* next, GX2DElmList& target) {
  const auto* const nextLine = dynamic_cast<GX2DLine*>(next);
  GX2DPoint corner;
  if (nextLine && GXGeometry::Get2DLineIntersection(line, *nextLine, corner)) {
    Append(target, corner);
  }
}

void AppendArc(const GX2DArc& arc, GX2DElement* previous, GX2DElement* next, GX2DElmList& target) {
  const GX2DArc started = StartedAtJoint(arc, previous);
  const auto* const incoming = dynamic_cast<GX2DLine*>(previous);
  const auto* const outgoing = dynamic_cast<GX2DLine*>(next);
  GX2DPoint corner;
  if (incoming && outgoing && IsFillet(started, *incoming, *outgoing, corner)) {
    Append(target, corner);
    return;
  }
  Append(target, started.Start);
  Append(target, started.Mid);
  Append(target, started.End);
}

// Smallest box

constexpr double kQuarterTurnDegrees = 90.0;
constexpr double kHalfTurnDegrees = 180.0;

/// One and the same turn of many elements: `RotateAxis` to the last bit, with sine and cosine found
/// once.
class RepeatedTurn {
 public:
  RepeatedTurn(const GX2DPoint& centre, double degrees)
      : centre_(centre),
        degrees_(degrees),
        cosine_(std::cos(degrees * kPi / kHalfTurnDegrees)),
        sine_(std::sin(degrees * kPi / kHalfTurnDegrees)) {}

  void Apply(GX2DElement& element) const {
    if (IsExactly<GX2DLine>(&element)) {
      auto& line = static_cast<GX2DLine&>(element);
      Turn(line.Start);
      Turn(line.End);
    } else if (IsExactly<GX2DArc>(&element)) {
      auto& arc = static_cast<GX2DArc&>(element);
      Turn(arc.Start);
      Turn(arc.Mid);
      Turn(arc.End);
      Turn(arc.Center);
    } else {
      element.RotateAxis(centre_, degrees_);
    }
  }

 private:
  void Turn(GX2DPoint& p) const {
    const double dx = p.X - centre_.X;
    const double dy = p.Y - centre_.Y;
    p.X = dx * cosine_ - dy * sine_ + centre_.X;
    p.Y = dy * cosine_ + dx * sine_ + centre_.Y;
  }

  GX2DPoint centre_;
  double degrees_;
  double cosine_;
  double sine_;
};

/// Whether a search by this step gets anywhere, and has anywhere to go.
bool IsSearchStep(double step) {
  return step > 0.0 && step < kQuarterTurnDegrees &&
         kQuarterTurnDegrees - step < kQuarterTurnDegrees;
}

/// The first of the angles step, 2 step, ... below a quarter turn at which the box is smallest; 0
/// where none beats the box as it is.
double SearchAngle(const GX2DElmList& list, const GXBoundBox& firstBox, double step) {
  if (!IsSearchStep(step)) return 0.0;
  // No more are tried, however small the step is.
  constexpr int kMaxTurns = 1000000;
  GX2DElmList turned;
  turned.Clone(list);
  const RepeatedTurn turn(GX2DPoint(firstBox.Minimum.X, firstBox.Minimum.Y), step);
  double bestArea = firstBox.GetArea();
  double bestAngle = 0.0;
  double angle = step;
  for (int turns = 0; turns < kMaxTurns && angle < kQuarterTurnDegrees; ++turns) {
    ktrcl_internal::ForEachElement(turned, [&turn](GX2DElement& e) { turn.Apply(e); });
    GXBoundBox box;
    turned.GetBoundBox(box);
    if (box.GetArea() < bestArea) {
      bestArea = box.GetArea();
      bestAngle = angle;
    }
    angle += step;
  }
  return bestAngle;
}

/// The direction of the line that is nearest to `angle` and nearer than half a step; `angle` where
/// there is none, and where that direction is 0.
double SnappedToLine(const GX2DElmList& list, double angle, double step) {
  // Hosts know the sense that the X in place of a Y gives this line.
  constexpr double kUprightOffset = 5.0;
  double margin = std::fabs(step * 0.5);
  double candidate = -1.0;
  for (GX2DElement* const element : list) {
    const auto* const line = dynamic_cast<GX2DLine*>(element);
    if (!line) continue;
    const GX2DPoint& start = line->Start;
    const GX2DLine upright(start, GX2DPoint(start.X, start.X + kUprightOffset));
    const double direction = GXGeometry::GetAngleBetween2DLines(*line, upright, false);
    const double distance = std::fabs(angle - direction);
    if (!(distance < margin)) continue;
    candidate = direction;
    margin = distance;
  }
  return candidate > 0.0 ? candidate : angle;
}

}  // namespace

bool GXGeometry::GetTangentLineToArcAtPoint(const GX2DArc& arc, const GX2DPoint& point,
                                            GX2DLine& tangent) {
  GXVector along(arc.Center, point);
  along.PerpendicalXY();
  // Made apart: the point may be an end of the tangent.
  tangent = GX2DLine(point, point + along);
  return true;
}

bool GXGeometry::GetTangentLineToArcAtStart(const GX2DArc& arc, GX2DLine& tangent) {
  return GetTangentLineToArcAtPoint(arc, arc.Start, tangent);
}

bool GXGeometry::GetTangentLineToArcAtEnd(const GX2DArc& arc, GX2DLine& tangent) {
  return GetTangentLineToArcAtPoint(arc, arc.End, tangent);
}

bool GXGeometry::GetSurroundingPolygon(GX2DElmList* const& source, GX2DElmList* const& target) {
  if (!source || !target) return false;
  target->ClearWithContents();
  const GX2DElmList& elements = *source;
  const std::size_t count = elements.size();
  for (std::size_t i = 0; i < count; ++i) {
    GX2DElement* const next = elements[(i + 1) % count];
    GX2DElement* const previous = elements[(i + count - 1) % count];
    if (const auto* const line = dynamic_cast<GX2DLine*>(elements[i])) {
      AppendCorner(*line, next, *target);
    } else if (const auto* const arc = dynamic_cast<GX2DArc*>(elements[i])) {
      AppendArc(*arc, previous, next, *target);
    }
  }
  return true;
}

double GXGeometry::GetAngleWithMinBoundingBox(const GX2DElmList& list, double step, bool snap) {
  // Below it, in square length units, a box is a line, and no rotation is better than another.
  constexpr double kAreaThreshold = 0.0001;
  GXBoundBox box;
  list.GetBoundBox(box);
  if (box.GetArea() < kAreaThreshold) return 0.0;
  const double angle = SearchAngle(list, box, step);
  return snap ? SnappedToLine(list, angle, step) : angle;
}
