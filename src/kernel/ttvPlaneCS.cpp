// A plane with its frame. All work is done by the free routines on frames; what stands here is the
// state, and the identity that stands in for a frame while there is none.

#include <KTRCL_Geometry/kernel/Frames.h>
#include <KTRCL_Geometry/kernel/PointsAndLines.h>
#include <KTRCL_Geometry/kernel/Vectors.h>
#include <KTRCL_Geometry/kernel/ttvPlaneCS.h>

#include <cmath>

#include "kernel/PlaneCrossing.h"
#include "kernel/VectorArithmetic.h"

using ktrcl_internal::Add;
using ktrcl_internal::Copy;
using ktrcl_internal::Cross;
using ktrcl_internal::Dot;
using ktrcl_internal::kShortLength;
using ktrcl_internal::Length;
using ktrcl_internal::Standardize;
using ktrcl_internal::Subtract;

namespace {

// The y argument fixes a plane, and Y is to be its normal.
constexpr int kYIsNormal = -3;

constexpr double kQuarterTurn = ktrcl_internal::kPi / 2.0;

// `Resetup_to_new_X`: local x, strict, and how far the auxiliary point is moved; model units.
constexpr double kSameLocalX = 0.0001;
constexpr double kAuxiliaryArm = 10.0;

// `Perpendicular`: scalar product of unit vectors, strict.
constexpr double kRightAngleCosine = 0.0001;

constexpr double kLocalX[3] = {1.0, 0.0, 0.0};
constexpr double kLocalY[3] = {0.0, 1.0, 0.0};
constexpr double kLocalZ[3] = {0.0, 0.0, 1.0};

// o plus the standardized normal of the plane through o, x and y.
void PointAlongNormal(const double* o, const double* x, const double* y, double* out) {
  double toX[3];
  double toY[3];
  Subtract(x, o, toX);
  Subtract(y, o, toY);
  double normal[3];
  Cross(toX, toY, normal);
  Standardize(normal);
  Add(o, normal, out);
}

// Standardized direction from o to the foot, in the plane across the normal, of a point beside it.
void DirectionAcross(const double* o, const double* normal, double* direction) {
  const double diagonal[3] = {1.0, 1.0, 1.0};
  double auxiliary[3];
  Add(o, normal, auxiliary);
  Add(auxiliary, diagonal, auxiliary);
  double way[3];
  Subtract(auxiliary, o, way);
  double rise[3];
  ktrcl_internal::Multiply(Dot(way, normal), normal, rise);
  Subtract(way, rise, direction);
  Standardize(direction);
}

void StandardizedNormal(const ttvPlaneCS& plane, double* normal) {
  Subtract(plane.UnitZ, plane.Origin, normal);
  Standardize(normal);
}

}  // namespace

ttvPlaneCS::ttvPlaneCS(const int& unit)
    : Valid(false),
      Origin(),
      XPoint(),
      YPoint(),
      ZPoint(),
      UnitX(),
      UnitY(),
      UnitZ(),
      Frame(),
      Inverse(),
      Unit(unit) {}

ttvPlaneCS::ttvPlaneCS(const int& unit, const double* o, const double* x, const double* y,
                       const int& mode)
    : ttvPlaneCS(unit) {
  Resetup(o, x, y, mode);
}

ttvPlaneCS::ttvPlaneCS(const int& unit, const double* o, const double* normal) : ttvPlaneCS(unit) {
  double direction[3];
  DirectionAcross(o, normal, direction);
  if (!(Length(direction) > kShortLength)) return;

  Copy(o, Origin);
  Add(o, direction, XPoint);
  double across[3];
  Cross(normal, direction, across);
  Add(o, across, YPoint);
  Calculate();
  CS_points();
}

ttvPlaneCS::ttvPlaneCS(const int& unit, const double* o, const double (*frame)[3])
    : ttvPlaneCS(unit) {
  Valid = true;
  Copy(o, Origin);
  for (int row = 0; row < 3; ++row) Copy(frame[row], Frame[row]);
  Invmat(Frame, Inverse);
  Get_global_point(kLocalX, XPoint);
  Get_global_point(kLocalY, YPoint);
  Get_global_point(kLocalZ, ZPoint);
  CS_points();
}

bool ttvPlaneCS::Calculate() {
  if (Inline(Unit, Origin, XPoint, Origin, YPoint) == 0) {
    Lambda(Origin, XPoint, YPoint, Frame);
    Invmat(Frame, Inverse);
    Valid = true;
  }
  return Valid;
}

void ttvPlaneCS::CS_points() {
  // While the object is not valid these are copies: the global axes.
  Get_global_point(kLocalX, UnitX);
  Get_global_point(kLocalY, UnitY);
  Get_global_point(kLocalZ, UnitZ);
  if (Valid) Copy(UnitZ, ZPoint);
}

void ttvPlaneCS::Change_x_dir(const double* p) {
  double local[3];
  Get_local_point(p, local);
  local[2] = 0.0;
  if (!(Length(local) > kShortLength)) return;

  double turned[3];
  Copy(local, turned);
  Ruotac(&turned[0], &turned[1], 0.0, 0.0, kQuarterTurn);
  Get_global_point(local, XPoint);
  Get_global_point(turned, YPoint);
  Calculate();
}

bool ttvPlaneCS::Resetup(const double* o, const double* x, const double* y, const int& mode) {
  // The arguments may be fields, so all are read before the first one is written.
  double yPoint[3];
  if (mode == kYIsNormal) {
    PointAlongNormal(o, x, y, yPoint);
  } else {
    Copy(y, yPoint);
  }
  double xPoint[3];
  Copy(x, xPoint);

  Valid = false;
  Copy(o, Origin);
  Copy(xPoint, XPoint);
  Copy(yPoint, YPoint);
  Calculate();
  CS_points();
  return Valid;
}

void ttvPlaneCS::Resetup_to_new_X(const double* o, const double* x) {
  double localO[3];
  double localX[3];
  Get_local_point(o, localO);
  Get_local_point(x, localX);
  double auxiliary[3];
  Copy(localX, auxiliary);
  const bool alongY = std::fabs(localX[0] - localO[0]) < kSameLocalX;
  auxiliary[alongY ? 0 : 1] += kAuxiliaryArm;
  double y[3];
  Get_global_point(auxiliary, y);
  Resetup(o, x, y, 0);
}

bool ttvPlaneCS::Get_global_point(const double* p, double* out) const {
  if (Valid) {
    Locglo(p, out, Origin, Inverse);
  } else {
    Copy(p, out);
  }
  return Valid;
}

bool ttvPlaneCS::Get_local_point(const double* p, double* out) const {
  if (Valid) {
    Gloloc(p, out, Origin, Frame);
  } else {
    Copy(p, out);
  }
  return Valid;
}

void ttvPlaneCS::Project(const double* p, double* out) const {
  double local[3];
  Get_local_point(p, local);
  local[2] = 0.0;
  Get_global_point(local, out);
}

void ttvPlaneCS::Project(double* p) const { Project(p, p); }

bool ttvPlaneCS::Cal_inter_plane_line(const double* l1, const double* l2, double* out,
                                      const bool& global) const {
  double local1[3];
  double local2[3];
  Get_local_point(l1, local1);
  Get_local_point(l2, local2);
  return Cal_inter_plane_line_local(local1, local2, out, global);
}

bool ttvPlaneCS::Cal_inter_plane_line_local(const double* l1, const double* l2, double* out,
                                            const bool& global) const {
  double crossing[3];
  if (!ktrcl_internal::CrossLevelPlane(l1, l2, crossing)) return false;
  if (global) Get_global_point(crossing, crossing);
  Copy(crossing, out);
  return true;
}

bool ttvPlaneCS::Define_same_CS(ttvPlaneCS& other) const {
  if (Pntcmp(Origin, other.Origin) == 0) return false;
  for (int row = 0; row < 3; ++row) {
    if (Pntcmp(Frame[row], other.Frame[row]) == 0) return false;
  }
  return true;
}

bool ttvPlaneCS::Parallel(ttvPlaneCS& other) const {
  double normal[3];
  double otherNormal[3];
  StandardizedNormal(*this, normal);
  StandardizedNormal(other, otherNormal);
  return Pntcmp(normal, otherNormal) == 1;
}

bool ttvPlaneCS::Perpendicular(ttvPlaneCS& other) const {
  double normal[3];
  double otherNormal[3];
  StandardizedNormal(*this, normal);
  StandardizedNormal(other, otherNormal);
  return Dot(normal, otherNormal) < kRightAngleCosine;
}
