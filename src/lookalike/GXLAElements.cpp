// Elements of a look-alike contour and the tolerances of their comparison.
#include <KTRCL_Geometry/lookalike/GXLAElements.h>

#include <KTRCL_DataTypes/GXMath.h>

#include <cmath>

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kFullTurn = 6.283185307179586;
// An angle beyond this comes from no vertex; stepping it down turn by turn would only cost time.
constexpr double kLargestSteppedAngle = 1e6;
// No sensible tolerance needs as many turns. An absurd one (1e300) would otherwise never be done.
constexpr int kMaxTurns = 500000;

constexpr double kLengthToleranceMM = 0.05;
constexpr double kLengthToleranceInch = 0.0008;
constexpr double kAngleTolerance = 0.01;  // radians

double ReduceAngle(double angle, double tolerance) {
  if (!std::isfinite(angle) || !std::isfinite(tolerance)) return angle;
  if (std::fabs(angle) > kLargestSteppedAngle) angle = std::remainder(angle, kFullTurn);

  // Down first, up second: a straight continuation goes to about -pi and comes back to about +pi,
  // so that it is never stored as -pi. One turn at a time, because that decides the last bits.
  for (int turn = 0; turn < kMaxTurns && GXMath::AlmostEqOrGreater(angle, kPi, tolerance); ++turn) {
    angle -= kFullTurn;
  }
  for (int turn = 0; turn < kMaxTurns && GXMath::AlmostEqOrLess(angle, -kPi, tolerance); ++turn) {
    angle += kFullTurn;
  }
  return angle;
}

}  // namespace

GXLAElement::GXLAElement() = default;
GXLAElement::GXLAElement(const GXLAElement& other) = default;
GXLAElement& GXLAElement::operator=(const GXLAElement& other) = default;
GXLAElement::~GXLAElement() = default;

GXLAElementSegment::GXLAElementSegment() : Length(0.0) {}
GXLAElementSegment::GXLAElementSegment(double length) : Length(length) {}
GXLAElementSegment::GXLAElementSegment(const GXLAElementSegment& other) = default;
GXLAElementSegment& GXLAElementSegment::operator=(const GXLAElementSegment& other) = default;
GXLAElementSegment::~GXLAElementSegment() = default;

double GXLAElementSegment::GetSegmentLength() const { return Length; }

void GXLAElementSegment::SetSegmentLength(double length) { Length = length; }

GXLAElementLine::GXLAElementLine(double length) : GXLAElementSegment(length) {}
GXLAElementLine::GXLAElementLine(const GXLAElementLine& other) = default;
GXLAElementLine& GXLAElementLine::operator=(const GXLAElementLine& other) = default;
GXLAElementLine::~GXLAElementLine() = default;

bool GXLAElementLine::IsALine() const { return true; }

bool GXLAElementLine::IsAnArc() const { return false; }

GXLAElementArc::GXLAElementArc(double length) : GXLAElementSegment(length) {}
GXLAElementArc::GXLAElementArc(const GXLAElementArc& other) = default;
GXLAElementArc& GXLAElementArc::operator=(const GXLAElementArc& other) = default;
GXLAElementArc::~GXLAElementArc() = default;

bool GXLAElementArc::IsALine() const { return false; }

bool GXLAElementArc::IsAnArc() const { return true; }

GXLAElementAngle::GXLAElementAngle(double angle, const double& tolerance)
    : Angle(ReduceAngle(angle, tolerance)) {}
GXLAElementAngle::GXLAElementAngle(const GXLAElementAngle& other) = default;
GXLAElementAngle& GXLAElementAngle::operator=(const GXLAElementAngle& other) = default;
GXLAElementAngle::~GXLAElementAngle() = default;

double GXLAElementAngle::GetAngle() const { return Angle; }

GXLATolerances::GXLATolerances() = default;
GXLATolerances::GXLATolerances(const GXLATolerances& other) = default;
GXLATolerances& GXLATolerances::operator=(const GXLATolerances& other) = default;
GXLATolerances::~GXLATolerances() = default;

double GXLATolerances::ToleranceLengthMM() const { return kLengthToleranceMM; }

double GXLATolerances::ToleranceLengthInch() const { return kLengthToleranceInch; }

double GXLATolerances::ToleranceAngle() const { return kAngleTolerance; }
