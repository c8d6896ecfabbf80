// Sheet thickness and bends: outlines at an offset, and the K factor of an unfolded length.

#include <KTRCL_Geometry/kernel/Unfolding.h>

#include <cmath>
#include <cstddef>

#include "kernel/PlanePoint.h"
#include "kernel/VectorArithmetic.h"

using ktrcl_internal::kPi;
using ktrcl_internal::PlanePoint;

namespace {

// `Cal_thickness`: length that the factor is applied to, model units.
constexpr double kThicknessStep = 15.0;

// `Alluco`: model units at either end.
constexpr double kLengthening = 30000.0;

// `Cal_lines_with_thick`: pi/2 less 1e-08, radians, strict, so that a right angle is above it.
constexpr double kRightAngleLimit = 1.5707963167948966;

// `K_factor_by_unfolding_and_3D`: degrees, inclusive.
constexpr double kAcuteLimitDegrees = 90.01;

// `K_factor_by_unfolding_and_3D`: a denominator, inclusive, that is as good as no bend.
constexpr double kNoBend = 0.0001;
constexpr double kNoFactor = -1.0;

constexpr double kFlatDegrees = 180.0;

// The offset outline in the making: unit ways from point 2 to its neighbours, distance to point 1.
struct Corner {
  PlanePoint u;
  PlanePoint v;
  double d;
};

void WriteRow(const PlanePoint& p, double* row) {
  row[0] = p.x;
  row[1] = p.y;
}

bool LieOnSameSide(const PlanePoint& p1, const PlanePoint& p2, const PlanePoint& p3,
                   const PlanePoint& p4) {
  const PlanePoint line = p2 - p1;
  return ktrcl_internal::Cross(line, p3 - p1) * ktrcl_internal::Cross(line, p4 - p1) > 0.0;
}

// The corner moved along the first line, and the end that is reached from it along the second.
int WriteOutline(const PlanePoint& p1, const Corner& corner, double alongU, double alongV,
                 double (*out)[3]) {
  const PlanePoint moved = p1 - alongU * corner.u;
  WriteRow(moved, out[1]);
  WriteRow(moved + alongV * corner.v, out[0]);
  return 2;
}

// How much longer both lines get on the outside, or on the inside, of a bend that is not sharp.
double OpenBendSetback(double a, bool isOnSide, double thickness, double radius) {
  const double factor = 1.0 / std::tan(a / 2.0) - 1.0;
  return isOnSide ? factor * (thickness + radius) : factor * radius - thickness;
}

}  // namespace

void Cal_thickness(double x1, double y1, double x2, double y2, double x3, double y3,
                   double (*out)[3], double t) {
  const PlanePoint step = (kThicknessStep * t) * ktrcl_internal::UnitWay({x2, y2}, {x3, y3});
  ktrcl_internal::Fill(x1 + step.x, y1 + step.y, 0.0, out[0]);
  ktrcl_internal::Fill(x2 + step.x, y2 + step.y, 0.0, out[1]);
}

int Cal_lines_with_thick(double x1, double y1, double x2, double y2, double x3, double y3,
                         double x4, double y4, double angle, double length, double thickness,
                         double radius, double (*out)[3]) {
  const PlanePoint p1 = {x1, y1};
  const PlanePoint p2 = {x2, y2};
  const PlanePoint p3 = {x3, y3};
  const Corner corner = {ktrcl_internal::UnitWay(p2, p1), ktrcl_internal::UnitWay(p2, p3),
                         ktrcl_internal::Distance(p1, p2)};
  bool isOnSide = LieOnSameSide(p1, p2, p3, {x4, y4});
  // A bend beyond half a turn is the lesser one seen from the other side.
  if (std::fabs(angle) > kPi) {
    isOnSide = !isOnSide;
    angle = -(2.0 * kPi - std::fabs(angle));
  }
  const double a = std::fabs(angle);

  if (a > kRightAngleLimit) {
    if (isOnSide) {
      WriteRow(p2 + length * corner.v, out[0]);
      return 1;
    }
    const double w = thickness / std::tan(a / 2.0);
    return WriteOutline(p1, corner, corner.d - w, length - w, out);
  }
  const double k = OpenBendSetback(a, isOnSide, thickness, radius);
  return WriteOutline(p1, corner, k + corner.d, k + length, out);
}

double K_factor_by_unfolding_and_3D(const double& thickness, const double& unfolded,
                                    GXDoubleVector lengths, GXDoubleVector radii,
                                    GXDoubleVector angles) {
  const std::size_t count = lengths.size();
  if (count == 0 || radii.size() < count || angles.size() < count) return kNoFactor;

  double numerator = lengths[0] - unfolded;
  double denominator = 0.0;
  for (std::size_t i = 1; i < count; ++i) {
    const double opening = std::fabs(angles[i]);
    const double bend = (kFlatDegrees - opening) * kPi / 180.0;
    numerator += radii[i] * bend + lengths[i];
    denominator -= bend * thickness;
    const double setback = 2.0 * (radii[i] + thickness);
    // The jump at the limit is meant: sharp bends are measured to the edge of a square corner.
    numerator -= opening <= kAcuteLimitDegrees ? setback : setback * std::tan(bend / 2.0);
  }
  if (std::fabs(denominator) <= kNoBend) return kNoFactor;
  return numerator / denominator;
}

void Alluco(double* x1, double* y1, double* z1, double* x2, double* y2, double* z2) {
  const double first[3] = {*x1, *y1, *z1};
  const double second[3] = {*x2, *y2, *z2};
  double step[3];
  ktrcl_internal::Subtract(second, first, step);
  ktrcl_internal::Divide(step, ktrcl_internal::Length(step), step);
  ktrcl_internal::Multiply(kLengthening, step, step);
  *x1 = first[0] - step[0];
  *y1 = first[1] - step[1];
  *z1 = first[2] - step[2];
  *x2 = second[0] + step[0];
  *y2 = second[1] + step[1];
  *z2 = second[2] + step[2];
}
