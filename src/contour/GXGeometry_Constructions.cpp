// Operations that make new geometry. Results are formed in locals and written at the end: outputs
// may belong to an argument.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/LineMeasures.h"
#include "foundation/Tolerance.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

using ktrcl_internal::Cross;
using ktrcl_internal::Dot;
using ktrcl_internal::kFullTurn;
using ktrcl_internal::kLengthTolerance;
using ktrcl_internal::kPi;
using ktrcl_internal::Length;
using ktrcl_internal::Plain;
using ktrcl_internal::PlainVector;
using ktrcl_internal::Standard;

namespace {

constexpr double kHalfTurnDegrees = 180.0;
constexpr double kQuarterTurn = 1.5707963267948966;

double Squared(double x) { return x * x; }

GX2DPoint PointAt(const PlainVector& v) { return GX2DPoint(v.x, v.y); }

// Corner with thickness

/// Angles above this are obtuse, strictly: a right angle less 0.00001 radians.
constexpr double kObtuseThreshold = 1.5707863267948965;

/// Legs (length units) and tangents of half the angle that count as nothing, inclusive.
constexpr double kNothingTolerance = 0.00001;

bool IsNothing(double value) { return GXMath::AlmostEq(value, 0.0, kNothingTolerance); }

/// A corner with a leg to `first` and another one.
struct Corner {
  PlainVector corner;
  PlainVector first;
  PlainVector toFirst;
  PlainVector toSecond;
};

/// Whether `p` and the second leg are on one side of the first leg.
bool IsOnSideOfSecondLeg(const Corner& c, const GX2DPoint& p) {
  const PlainVector& u = c.toFirst;
  const PlainVector& w = c.toSecond;
  return ((p.Y - c.corner.y) * u.x - (p.X - c.corner.x) * u.y) * (w.y * u.x - w.x * u.y) > 0.0;
}

/// `from` moved along a leg; a leg of no length moves nothing.
PlainVector MovedAlong(const PlainVector& from, const PlainVector& leg, double distance) {
  const double length = Length(leg);
  return IsNothing(length) ? from : from + (leg / length) * distance;
}

/// The first end of a corner, `distance` back from the end of the first leg.
PlainVector MovedBack(const Corner& c, double distance) {
  const double length = Length(c.toFirst);
  return IsNothing(length) ? c.first : c.first - (c.toFirst / length) * distance;
}

void SetInPlane(GX3DPoint& result, const PlainVector& p) {
  result.X = p.x;
  result.Y = p.y;
}

// Fillet

/// Directions of two lines away from the end they share.
struct Legs {
  PlainVector first = {};
  PlainVector second = {};
};

/// Null legs where the lines share no end.
Legs LegsOf(const GX2DLine& l1, const GX2DLine& l2) {
  const auto coincide = [](const GX2DPoint& a, const GX2DPoint& b) {
    return a.IsAlmostEq(b, kLengthTolerance);
  };
  const PlainVector start1 = Plain(l1.Start), end1 = Plain(l1.End);
  const PlainVector start2 = Plain(l2.Start), end2 = Plain(l2.End);
  // Both legs start at the end of the first line, also where the second one's is a little off.
  if (coincide(l1.Start, l2.Start)) return {end1 - start1, end2 - start1};
  if (coincide(l1.Start, l2.End)) return {end1 - start1, start2 - start1};
  if (coincide(l1.End, l2.Start)) return {start1 - end1, end2 - end1};
  if (coincide(l1.End, l2.End)) return {start1 - end1, start2 - end1};
  return {};
}

/// The end that two lines share; the origin where there is none.
GX2DPoint CornerOf(const GX2DLine& l1, const GX2DLine& l2) {
  GX2DLine first(l1);
  GX2DLine second(l2);
  GX2DPoint corner;
  GXGeometry::GetCommon2DPoint(&first, &second, corner);
  return corner;
}

/// Tangent of half the angle between two legs.
double HalfAngleTangent(const Legs& legs) {
  const PlainVector& u = legs.first;
  const PlainVector& w = legs.second;
  const bool hasAngle = !IsNothing(Dot(u, u) * Dot(w, w));
  const double angle = hasAngle ? std::acos(Dot(u, w) / (Length(u) * Length(w))) : 0.0;
  return std::tan(angle * 0.5);
}

/// Tangent point of the fillet on the line along `leg`, out of the two places at its distance from
/// the corner.
GX2DPoint TangentPoint(const GX2DPoint& corner, const PlainVector& leg, const PlainVector& other,
                       double radius, double halfTangent) {
  std::array<GX2DPoint, 2> candidates;
  if (IsNothing(leg.y)) {
    // A right angle by the axes has a tangent of 1, but for rounding.
    const double offset = IsNothing(other.x) ? radius : radius / halfTangent;
    candidates = {GX2DPoint(corner.X + offset, corner.Y), GX2DPoint(corner.X - offset, corner.Y)};
  } else {
    const double d = radius / (std::sqrt(Squared(leg.x) / Squared(leg.y) + 1.0) * halfTangent);
    const auto atHeight = [&](double y) {
      return GX2DPoint((y - corner.Y) * (leg.x / leg.y) + corner.X, y);
    };
    candidates = {atHeight(corner.Y + d), atHeight(corner.Y - d)};
  }
  // 0 where the first one lies in the direction of the leg, else 1.
  const int chosen = GXGeometry::Chk2DPnt(candidates.data(), PointAt(leg), corner);
  return candidates.at(static_cast<std::size_t>(chosen));
}

/// Where the normals of the two legs meet that stand on their tangent points.
GX2DPoint CrossingOfNormals(const Legs& legs, const GX2DPoint& t1, const GX2DPoint& t2) {
  const PlainVector& u1 = legs.first;
  const PlainVector& u2 = legs.second;
  const bool isLevel1 = IsNothing(u1.y);
  const bool isLevel2 = IsNothing(u2.y);
  if (isLevel1 && isLevel2) return GX2DPoint(t2.X, t1.Y);
  if (isLevel1) return GX2DPoint(t1.X, t2.Y - (t1.X - t2.X) * u2.x / u2.y);
  if (isLevel2) return GX2DPoint(t2.X, t1.Y - (t2.X - t1.X) * u1.x / u1.y);
  const double m1 = u1.x / u1.y;
  const double m2 = u2.x / u2.y;
  const double x = ((t2.Y - t1.Y) - m1 * t1.X + m2 * t2.X) / (m2 - m1);
  return GX2DPoint(x, t2.Y - (x - t2.X) * m2);
}

// Ellipse

/// Step of the parameter, 0.6 degrees.
constexpr double kEllipseStep = 0.010471975511965976;

/// More points than any ellipse needs; the end point included.
constexpr std::size_t kMostEllipsePoints = 1000000;

/// An ellipse with the semi-axes reversed and turned by half a turn more, which is the same one.
class Ellipse {
 public:
  Ellipse(const GX3DPoint& centre, const GX3DPoint& axisEnd, double ratio)
      : centreX_(centre.X), centreY_(centre.Y) {
    const double length = Length(Plain(axisEnd) - Plain(centre));
    major_ = -length;
    minor_ = -length * ratio;
    double turn = length == 0.0 ? 0.0 : std::acos((axisEnd.X - centre.X) / length);
    if (length != 0.0 && axisEnd.Y < centre.Y) turn = kFullTurn - turn;
    rotation_ = kPi + turn;
  }

  GX2DPoint At(double s) const {
    const double across = rotation_ + kQuarterTurn;
    return GX2DPoint(std::cos(rotation_) * std::cos(s) * major_ + centreX_ +
                         std::cos(across) * std::sin(s) * minor_,
                     std::sin(rotation_) * std::cos(s) * major_ + centreY_ +
                         std::sin(across) * std::sin(s) * minor_);
  }

 private:
  double centreX_;
  double centreY_;
  double major_ = 0.0;
  double minor_ = 0.0;
  double rotation_ = 0.0;
};

/// The parameters from `start` up to `end`, which is left out; none where the steps get lost.
std::vector<double> ParametersBefore(double start, double end) {
  std::vector<double> parameters;
  if (!std::isfinite(start)) return parameters;
  double s = start;
  while (end > s && parameters.size() + 1 < kMostEllipsePoints) {
    parameters.push_back(s);
    const double next = s + kEllipseStep;
    if (next == s) return {};
    s = next;
  }
  return parameters;
}

// Tangents

/// How far, strictly, the squared distance of a point has to exceed the squared radius to be
/// outside the circle (an area).
constexpr double kOutsideTolerance = 0.0001;

/// Offset in x or y (length units) below which, strictly, a point is straight above or beside.
constexpr double kAsideTolerance = 0.0001;

void AppendLines(const GX2DPoint& from, const GX2DPoint& first, const GX2DPoint& second,
                 std::vector<GX2DLine>& lines) {
  // Both are made before either is appended: the point may belong to the vector.
  const GX2DLine toFirst(from, first);
  const GX2DLine toSecond(from, second);
  lines.push_back(toFirst);
  lines.push_back(toSecond);
}

void AppendTangentsFromAbove(const GX2DPoint& p, const GX2DPoint& c, double squaredRadius,
                             std::vector<GX2DLine>& lines) {
  const double y = (squaredRadius - (Squared(c.Y) - p.Y * c.Y)) / (p.Y - c.Y);
  const double s = std::sqrt(squaredRadius - Squared(y - c.Y));
  AppendLines(p, GX2DPoint(c.X + s, y), GX2DPoint(c.X - s, y), lines);
}

/// The tangent points lie on the line x = m * y + k, which is put into the equation of the circle.
bool AppendTangentsFromAside(const GX2DPoint& p, const GX2DPoint& c, double squaredRadius,
                             std::vector<GX2DLine>& lines) {
  const double dx = p.X - c.X;
  const double dy = p.Y - c.Y;
  const double k = (squaredRadius - Squared(c.X) - Squared(c.Y) + p.X * c.X + p.Y * c.Y) / dx;
  const double m = -dy / dx;
  const double a = Squared(m) + 1.0;
  const double b = ((k - c.X) * m - c.Y) * 2.0;
  const double discriminant =
      Squared(b) - 4.0 * a * (Squared(k - c.X) + Squared(c.Y) - squaredRadius);
  if (discriminant < 0.0) return false;
  const double root = std::sqrt(discriminant);
  const double y1 = (root - b) / (2.0 * a);
  const double y2 = (-b - root) / (2.0 * a);
  AppendLines(p, GX2DPoint(m * y1 + k, y1), GX2DPoint(m * y2 + k, y2), lines);
  return true;
}

// Circle through three points

/// Crossing of the perpendicular bisectors of a-b and c-b.
GX2DPoint CrossingOfBisectors(const GX2DPoint& a, const GX2DPoint& b, const GX2DPoint& c) {
  const GX2DPoint middleAB = GXGeometry::Get2DMidPoint(a, b);
  const GX2DPoint middleCB = GXGeometry::Get2DMidPoint(c, b);
  const PlainVector u = Plain(b) - Plain(a);
  const PlainVector v = Plain(b) - Plain(c);
  if (v.y == 0.0) {
    const double x = middleCB.X;
    return GX2DPoint(x, middleAB.Y - (x - middleAB.X) * u.x / u.y);
  }
  if (u.y == 0.0) {
    const double x = middleAB.X;
    return GX2DPoint(x, middleCB.Y - (x - middleCB.X) * v.x / v.y);
  }
  const double mU = u.x / u.y;
  const double mV = v.x / v.y;
  const double x = (mV * middleCB.X + (middleCB.Y - middleAB.Y) - mU * middleAB.X) / (mV - mU);
  return GX2DPoint(x, middleCB.Y - (x - middleCB.X) * mV);
}

// Axis and angle

/// Components of what the raw axis makes of a unit vector and of its image (an area), within which,
/// inclusive, the two are opposite: half a turn.
constexpr double kHalfTurnTolerance = 0.0001;

/// Angle (radians) below which, strictly, the axis is taken from the skew part of the matrix.
constexpr double kSmallAngleThreshold = 0.05;

using Columns = std::array<PlainVector, 3>;

constexpr Columns kUnits = {PlainVector{1.0, 0.0, 0.0}, PlainVector{0.0, 1.0, 0.0},
                            PlainVector{0.0, 0.0, 1.0}};

PlainVector Plain(const GXVector& v) { return {v.X, v.Y, v.Z}; }

/// Longest of the cross products of what the rotation adds to two of the unit vectors; of equal
/// ones the last.
PlainVector RawAxis(const Columns& c) {
  const PlainVector d0 = c[0] - kUnits[0];
  const PlainVector d1 = c[1] - kUnits[1];
  const PlainVector d2 = c[2] - kUnits[2];
  const PlainVector fromXY = Cross(d0, d1);
  const PlainVector fromYZ = Cross(d1, d2);
  const PlainVector fromZX = Cross(d2, d0);
  const PlainVector& longer = Length(fromXY) <= Length(fromYZ) ? fromYZ : fromXY;
  return Length(fromZX) >= Length(longer) ? fromZX : longer;
}

/// Index of the smallest coordinate, with its sign; of equal ones the last.
std::size_t LeastAlong(const PlainVector& axis) {
  const double p0 = Dot(axis, kUnits[0]);
  const double p1 = Dot(axis, kUnits[1]);
  const double p2 = Dot(axis, kUnits[2]);
  if (p1 <= p0) return p2 <= p1 ? 2 : 1;
  return p2 <= p0 ? 2 : 0;
}

double AngleAbout(const PlainVector& axis, const Columns& c) {
  const std::size_t k = LeastAlong(axis);
  const PlainVector u = Cross(axis, kUnits.at(k));
  const PlainVector w = Cross(axis, c.at(k));
  if (u.IsAlmostEq(PlainVector{-w.x, -w.y, -w.z}, kHalfTurnTolerance)) return kPi;
  const PlainVector normal = Cross(u, w);
  const double angle = std::atan2(Length(normal), Dot(u, w));
  // z twice and x not at all: hosts know the signs that come of it.
  const double sense = normal.y * axis.y + normal.z * axis.z + normal.z * axis.z;
  return sense < 0.0 ? -angle : angle;
}

/// For small angles axis times angle.
PlainVector SkewPart(const Columns& c) {
  return {Dot(kUnits[2], c[1]), Dot(kUnits[0], c[2]), Dot(kUnits[1], c[0])};
}

}  // namespace

int GXGeometry::GetLinesWithThickness(const GX2DPoint& p0, const GX2DPoint& p1, const GX2DPoint& p2,
                                      const GX2DPoint& p3, const double& angle,
                                      const double& length, const double& r, const double& t,
                                      GX3DPoint (&result)[3]) {
  const Corner c = {Plain(p1), Plain(p0), Plain(p0) - Plain(p1), Plain(p2) - Plain(p1)};
  bool isSameSide = IsOnSideOfSecondLeg(c, p3);
  double a = angle * kPi / kHalfTurnDegrees;
  if (std::fabs(a) > kPi) {
    isSameSide = !isSameSide;
    a = a - kFullTurn;
  }
  a = std::fabs(a);
  const bool isObtuse = a > kObtuseThreshold;
  if (isObtuse && isSameSide) {
    SetInPlane(result[0], MovedAlong(c.corner, c.toSecond, length));
    return 1;
  }

  const double halfTangent = std::tan(a * 0.5);
  const double firstLength = Length(c.toFirst);
  PlainVector nearEnd = c.first;
  PlainVector farEnd = c.first;
  if (!IsNothing(halfTangent)) {
    const double k = 1.0 / halfTangent - 1.0;
    double back = k * t - r + firstLength;
    double on = k * t - r + length;
    if (isObtuse) {
      back = firstLength - r / halfTangent;
      on = length - r / halfTangent;
    } else if (isSameSide) {
      back = (r + t) * k + firstLength;
      on = (r + t) * k + length;
    }
    nearEnd = MovedBack(c, back);
    farEnd = MovedAlong(nearEnd, c.toSecond, on);
  }
  SetInPlane(result[0], farEnd);
  SetInPlane(result[1], nearEnd);
  return 2;
}

void GXGeometry::Construct2DArcBetween2Lines(const GX2DLine& l1, const GX2DLine& l2,
                                             const double& radius, GX2DArc& arc) {
  const GX2DPoint corner = CornerOf(l1, l2);
  const Legs legs = LegsOf(l1, l2);
  const double halfTangent = HalfAngleTangent(legs);
  const GX2DPoint t1 = TangentPoint(corner, legs.first, legs.second, radius, halfTangent);
  const GX2DPoint t2 = TangentPoint(corner, legs.second, legs.first, radius, halfTangent);
  arc.Start = t2;
  arc.Mid = corner;
  arc.End = t1;
  arc.Center = CrossingOfNormals(legs, t1, t2);
  arc.Normalize();
}

void GXGeometry::ConvertEllipseToPoints(const GX3DPoint& centre, const GX3DPoint& axisEnd,
                                        const double& ratio, const double& startParam,
                                        const double& endParam, std::vector<GX2DPoint>& points) {
  // A copy: the parameter may belong to a point of the vector.
  const double end = endParam;
  if (end <= startParam || !std::isfinite(end)) return;
  const Ellipse ellipse(centre, axisEnd, ratio);
  for (const double s : ParametersBefore(startParam, end)) points.push_back(ellipse.At(s));
  points.push_back(ellipse.At(end));
}

bool GXGeometry::GetLinesTangentToArcFromPoint(const GX2DPoint& p, const GX2DArc& arc,
                                               std::vector<GX2DLine>& lines) {
  const GX2DPoint& c = arc.Center;
  const PlainVector radial = Plain(arc.Start) - Plain(c);
  const PlainVector offset = Plain(p) - Plain(c);
  const double squaredRadius = Dot(radial, radial);
  if (!(Dot(offset, offset) - squaredRadius > kOutsideTolerance)) return false;
  if (!(std::fabs(offset.x) < kAsideTolerance)) {
    return AppendTangentsFromAside(p, c, squaredRadius, lines);
  }
  if (std::fabs(offset.y) >= kAsideTolerance) AppendTangentsFromAbove(p, c, squaredRadius, lines);
  // Although there are tangents: hosts look at the vector.
  return false;
}

bool GXGeometry::IsPointXExternalPointOnArc(const GX3DPoint& p1, const GX3DPoint& p2,
                                            const GX3DPoint& p3) {
  constexpr double kRightmostTolerance = 0.000001;
  GX3DPoint center;
  GetCenterArcBy3Points(p1, p2, p3, center);
  const double radius = GetDistancePointPoint(center, p1);
  return p2.X - center.X > radius - kRightmostTolerance;
}

int GXGeometry::GetCenterArcBy3Points(const GX3DPoint& a, const GX3DPoint& b, const GX3DPoint& c,
                                      GX3DPoint& centre) {
  if (PointsInLine(a, b, c)) return 0;
  const GXColBasedTransformMatrix toLocal(a, b, c);
  GXColBasedTransformMatrix toGlobal(toLocal);
  toGlobal.Inverse();
  GX2DPoint localA, localB, localC;
  ConvertPnt3DTo2DByCoordSystem(a, localA, toLocal, a);
  ConvertPnt3DTo2DByCoordSystem(b, localB, toLocal, a);
  ConvertPnt3DTo2DByCoordSystem(c, localC, toLocal, a);
  ConvertPnt2DTo3DByCoordSystem(CrossingOfBisectors(localA, localB, localC), centre, toGlobal, a);
  return 1;
}

// The arc by value is part of the exported form.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void GXGeometry::Divide2DArcAtPoint(GX2DArc arc, const GX2DPoint& p, GX2DArc& first,
                                    GX2DArc& second) {
  GX2DArc front(arc);
  GX2DArc rear(arc);
  front.End = p;
  rear.Start = p;
  GXVector radial(arc.Center, p);
  GXVector quarterTurn = radial.GetPerpendicalXY();
  if (!arc.IsCounterClockwise()) quarterTurn.Reverse();
  rear.Mid = arc.Center + quarterTurn;
  // A mid a quarter turn on is not told from that of a circle where the end is there too.
  if (rear.IsCircle()) {
    GXVector eighthTurn = radial + quarterTurn;
    eighthTurn.Standard();
    rear.Mid = arc.Center + eighthTurn * radial.Len();
  }
  first = front;
  second = rear;
}

void GXGeometry::GetRotationAxisAndAngle(const GXColBasedTransformMatrix& matrix, GXVector& axis,
                                         double& angle) {
  const Columns columns = {Plain(matrix.Base[0]), Plain(matrix.Base[1]), Plain(matrix.Base[2])};
  PlainVector found = RawAxis(columns);
  double turn = 0.0;
  if (Length(found) != 0.0) {
    turn = AngleAbout(found, columns);
    found = Standard(found);
    if (std::fabs(turn) < kSmallAngleThreshold) {
      const PlainVector skew = SkewPart(columns);
      turn = Length(skew);
      found = Standard(skew);
    }
  }
  axis = GXVector(found.x, found.y, found.z);
  angle = turn;
}
