// Offset elements. A copy is placed in the frame of its element, with x along the line or out from
// the center of the arc, and turned into the drawing by a rotation.
#include <KTRCL_Geometry/contour/GXGeometryFunctions.h>

#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include <cmath>

namespace {

// Length unit, strict: an extent below it gives no direction.
constexpr double kNoExtent = 0.0001;

// The middle of an arc only shows the side on which it runs and goes half the way.
constexpr double kShareOfMiddle = 0.5;

GX2DMatrix TurnTo(const GX2DLine& line) {
  const double angle = GXGeometryFunctions::GetAngleRad(line);
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  return GX2DMatrix(cosine, -sine, sine, cosine);
}

// `offset` is positive to the left.
GX2DLine LineBeside(const GX2DLine& line, double offset) {
  const double length = line.Len();
  const GX2DMatrix turn = TurnTo(line);
  const GX2DVector start(line.Start);
  const GX2DVector newStart = turn * GX2DVector(0.0, offset) + start;
  const GX2DVector newEnd = turn * GX2DVector(length, offset) + start;
  return GX2DLine(GX2DPoint(newStart), GX2DPoint(newEnd));
}

GX2DPoint MovedOutward(const GX2DPoint& p, const GX2DPoint& center, double offset) {
  const GX2DMatrix turn = TurnTo(GX2DLine(center, p));
  return GX2DPoint(GX2DVector(p) + turn * GX2DVector(offset, 0.0));
}

// `offset` is positive outward.
GX2DArc ArcBeside(const GX2DArc& arc, double offset) {
  const GX2DPoint start = MovedOutward(arc.Start, arc.Center, offset);
  const GX2DPoint mid = MovedOutward(arc.Mid, arc.Center, kShareOfMiddle * offset);
  const GX2DPoint end = MovedOutward(arc.End, arc.Center, offset);
  return GX2DArc(arc.Center, start, mid, end);
}

// On a tie the second one.
const GX2DPoint& Nearer(const GX2DPoint& first, const GX2DPoint& second, const GX2DPoint& place) {
  const double toFirst = GXGeometry::GetDistancePointPoint(first, place);
  const double toSecond = GXGeometry::GetDistancePointPoint(second, place);
  return toSecond > toFirst ? first : second;
}

template <class From, class To>
void Join(From& from, To& to, const GX2DPoint& joint) {
  from.End = joint;
  to.Start = joint;
}

}  // namespace

GXGeometryFunctions::GXGeometryFunctions() = default;
GXGeometryFunctions::~GXGeometryFunctions() = default;

double GXGeometryFunctions::GetAngleRad(const GX2DLine& line) {
  const double dx = line.End.X - line.Start.X;
  const double dy = line.End.Y - line.Start.Y;
  if (std::fabs(dx) < kNoExtent && std::fabs(dy) < kNoExtent) return 0.0;
  return std::atan2(dy, dx);
}

GX2DLine GXGeometryFunctions::GetLeftLineAtDistance(const GX2DLine& line, double distance) {
  return LineBeside(line, std::fabs(distance));
}

GX2DLine GXGeometryFunctions::GetRightLineAtDistance(const GX2DLine& line, double distance) {
  return LineBeside(line, -std::fabs(distance));
}

GX2DArc GXGeometryFunctions::GetInnerArcAtDistance(const GX2DArc& arc, double distance) {
  return ArcBeside(arc, -std::fabs(distance));
}

GX2DArc GXGeometryFunctions::GetOuterArcAtDistance(const GX2DArc& arc, double distance) {
  return ArcBeside(arc, std::fabs(distance));
}

GX2DArc GXGeometryFunctions::GetLeftArcAtDistance(const GX2DArc& arc, double distance) {
  return arc.IsCW() ? GetOuterArcAtDistance(arc, distance) : GetInnerArcAtDistance(arc, distance);
}

GX2DArc GXGeometryFunctions::GetRightArcAtDistance(const GX2DArc& arc, double distance) {
  return arc.IsCW() ? GetInnerArcAtDistance(arc, distance) : GetOuterArcAtDistance(arc, distance);
}

bool GXGeometryFunctions::DoIntersection_FromLine_ToLine(GX2DLine& from, GX2DLine& to) {
  GX2DPoint joint;
  if (!GXGeometry::Get2DLineIntersection(from, to, joint)) return false;
  Join(from, to, joint);
  return true;
}

bool GXGeometryFunctions::DoIntersection_FromLine_ToArc(GX2DLine& from, GX2DArc& to) {
  GX2DPoint first;
  GX2DPoint second;
  if (!GXGeometry::Get2DLineArcIntersections(from, to, first, second)) return false;
  Join(from, to, Nearer(first, second, from.End));
  return true;
}

bool GXGeometryFunctions::DoIntersection_FromArc_ToLine(GX2DArc& from, GX2DLine& to) {
  GX2DPoint first;
  GX2DPoint second;
  if (!GXGeometry::Get2DLineArcIntersections(to, from, first, second)) return false;
  Join(from, to, Nearer(first, second, to.Start));
  return true;
}

bool GXGeometryFunctions::DoIntersection_FromArc_ToArc(GX2DArc& from, GX2DArc& to) {
  GX2DPoint first;
  GX2DPoint second;
  if (!GXGeometry::Get2DCirclesIntersection(from, to, first, second)) return false;
  Join(from, to, Nearer(first, second, from.End));
  return true;
}
