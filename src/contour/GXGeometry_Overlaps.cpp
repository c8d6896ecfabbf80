// Overlaps of lines, and positions of points to one another.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "elements/LineMeasures.h"
#include "foundation/Tolerance.h"

#include <cmath>

using ktrcl_internal::Cross;
using ktrcl_internal::Dot;
using ktrcl_internal::InLine;
using ktrcl_internal::kLengthTolerance;
using ktrcl_internal::kOnElementTolerance;
using ktrcl_internal::Length;
using ktrcl_internal::Plain;
using ktrcl_internal::PlainVector;

namespace {

bool AreInLine(const GX2DLine& a, const GX2DLine& b) {
  const PlainVector start = Plain(a.Start);
  const PlainVector end = Plain(a.End);
  return InLine(start, end, Plain(b.Start), kOnElementTolerance) &&
         InLine(start, end, Plain(b.End), kOnElementTolerance);
}

bool IsOn(const GX2DLine& line, const GX2DPoint& p) {
  return GXGeometry::Point2DOnClosedLine(line, p) != 0;
}

bool IsStrictlyInside(const GX3DLine& line, const GX3DPoint& p) {
  return GXGeometry::Point3DOnClosedLine(line, p) == 1;
}

bool Coincide(const GX3DPoint& p, const GX3DPoint& q) { return p.IsAlmostEq(q, kLengthTolerance); }

/// The first end that lies on the other line becomes the start of the overlap, the next one that
/// lies elsewhere its end. The lines may not be those that `overlap` belongs to.
bool CollectOverlap(const GX2DLine& a, const GX2DLine& b, GX2DLine& overlap) {
  if (!AreInLine(a, b)) return false;
  bool isFound = false;
  if (IsOn(b, a.Start)) {
    overlap.Start = a.Start;
    isFound = true;
  }
  if (IsOn(b, a.End)) {
    if (isFound) {
      overlap.End = a.End;
      return true;
    }
    overlap.Start = a.End;
    isFound = true;
  }
  if (IsOn(a, b.Start)) {
    if (isFound && !b.Start.IsAlmostEq(overlap.Start, kLengthTolerance)) {
      overlap.End = b.Start;
      return true;
    }
    if (!isFound) overlap.Start = b.Start;
    isFound = true;
  }
  if (!isFound || !IsOn(a, b.End)) return false;
  if (b.End.IsAlmostEq(overlap.Start, kLengthTolerance)) return false;
  overlap.End = b.End;
  return true;
}

}  // namespace

bool GXGeometry::GetOverlapLine(const GX2DLine& a, const GX2DLine& b, GX2DLine& overlap) {
  // Its start is written before the lines are done with, and it may be one of them.
  GX2DLine collected(overlap);
  const bool isFound = CollectOverlap(a, b, collected);
  overlap = collected;
  return isFound;
}

bool GXGeometry::GetOverlapLine(const GX2DElmList& list, const GX2DLine& line, GX2DLine& overlap) {
  // One overlap goes through all tries, so that a try that fails may leave its start behind.
  GX2DLine collected(overlap);
  bool isFound = false;
  for (const GX2DElement* const element : list) {
    const auto* const other = dynamic_cast<const GX2DLine*>(element);
    if (!other) continue;
    isFound = CollectOverlap(*other, line, collected);
    if (isFound) break;
  }
  overlap = collected;
  return isFound;
}

bool GXGeometry::CheckOverlappedLines(const GX3DLine& a, const GX3DLine& b) {
  return IsStrictlyInside(a, b.Start) || IsStrictlyInside(a, b.End) ||
         IsStrictlyInside(b, a.Start) || IsStrictlyInside(b, a.End);
}

int GXGeometry::Chk2DPnt(GX2DPoint* p, const GX2DPoint& direction, const GX2DPoint& origin) {
  // How far the cosine may be from 1 for the point to lie in the direction.
  constexpr double kSameDirectionTolerance = 0.0001;
  if (!p) return 0;
  const PlainVector along = Plain(direction);
  const PlainVector offset = Plain(*p) - Plain(origin);
  const double alongLength = Length(along);
  const double offsetLength = Length(offset);
  if (alongLength == 0.0 || offsetLength == 0.0) return 0;
  const double cosine = Dot(along, offset) / (alongLength * offsetLength);
  return std::fabs(cosine - 1.0) > kSameDirectionTolerance ? 1 : 0;
}

bool GXGeometry::CheckIntermediarPoint(const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c,
                                       const GX3DPoint& d) {
  const PlainVector from = Plain(a);
  const PlainVector toC = Plain(c) - from;
  const PlainVector sideOfD = Cross(toC, Plain(d) - from);
  const PlainVector sideOfB = Cross(toC, Plain(b) - from);
  return Dot(sideOfD, sideOfB) <= 0.0;
}

bool GXGeometry::GetNotSamePoint(const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c,
                                 const GX3DPoint& d, GX3DPoint& other) {
  // An element that shares both ends with the other is asked in this order.
  const bool isDFree = Coincide(a, c) || (!Coincide(a, d) && Coincide(b, c));
  const bool isCFree = Coincide(a, d) || Coincide(b, d);
  if (!isDFree && !isCFree) return false;
  other = isDFree ? d : c;
  return true;
}
