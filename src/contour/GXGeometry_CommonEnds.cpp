// Common ends of two elements and points on segments.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "elements/CommonEnds.h"
#include "elements/LineMeasures.h"
#include "foundation/Tolerance.h"

using ktrcl_internal::Dot;
using ktrcl_internal::EndMatch;
using ktrcl_internal::EndPair;
using ktrcl_internal::EndsOf;
using ktrcl_internal::kLengthTolerance;
using ktrcl_internal::kOnElementTolerance;
using ktrcl_internal::MatchEnds;
using ktrcl_internal::Plain;
using ktrcl_internal::PlainVector;

namespace {

// Where two elements share both ends, the end that is held first decides the answer, and hosts rely
// on the two families differing: a flat element answers with its end, one in space with its start.

EndMatch<GX2DPoint> MatchInOrder(const EndPair<GX2DPoint>& own, const EndPair<GX2DPoint>& other) {
  return MatchEnds(own.end, own.start, other.start, other.end);
}

EndMatch<GX3DPoint> MatchInOrder(const EndPair<GX3DPoint>& own, const EndPair<GX3DPoint>& other) {
  return MatchEnds(own.start, own.end, other.start, other.end);
}

/// A null entry has no end to share.
template <class Element, class Point>
bool CommonPoint(Element* e1, Element* e2, Point& common) {
  if (!e1 || !e2) return false;
  const auto own = EndsOf(e1);
  const auto other = EndsOf(e2);
  const auto match = MatchInOrder(own, other);
  if (!match.own) return false;
  common = *match.own;
  return true;
}

/// 2 at an end, 1 between the ends, 0 off the segment.
int PlaceOnSegment(const PlainVector& start, const PlainVector& end, const PlainVector& p) {
  if (!ktrcl_internal::InLine(start, end, p, kOnElementTolerance)) return 0;
  if (p.IsAlmostEq(start, kLengthTolerance) || p.IsAlmostEq(end, kLengthTolerance)) return 2;
  const bool behindStart = Dot(p - start, end - start) > 0.0;
  const bool beforeEnd = Dot(p - end, start - end) > 0.0;
  return behindStart && beforeEnd ? 1 : 0;
}

}  // namespace

bool GXGeometry::GetCommon2DPoint(GX2DElement* const& e1, GX2DElement* const& e2,
                                  GX2DPoint& common) {
  return CommonPoint(e1, e2, common);
}

bool GXGeometry::GetCommon3DPoint(GX3DElement* const& e1, GX3DElement* const& e2,
                                  GX3DPoint& common) {
  return CommonPoint(e1, e2, common);
}

bool GXGeometry::GetCommon3DPoints(GX3DElement* const& e1, GX3DElement* const& e2,
                                   GX3DPointList& common) {
  if (e1 && e2) {
    const EndPair<GX3DPoint> own = EndsOf(e1);
    const EndPair<GX3DPoint> other = EndsOf(e2);
    for (const GX3DPoint* end : {&own.start, &own.end}) {
      if (end->IsAlmostEq(other.start, kLengthTolerance)) common.push_back(*end);
      if (end->IsAlmostEq(other.end, kLengthTolerance)) common.push_back(*end);
    }
  }
  return !common.empty();
}

int GXGeometry::Point2DOnClosedLine(const GX2DLine& line, const GX2DPoint& p) {
  return PlaceOnSegment(Plain(line.Start), Plain(line.End), Plain(p));
}

int GXGeometry::Point3DOnClosedLine(const GX3DLine& line, const GX3DPoint& p) {
  return PlaceOnSegment(Plain(line.Start), Plain(line.End), Plain(p));
}
