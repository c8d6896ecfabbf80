// GXRotation: angles to matrix and back for all 24 orders at once. An order is decoded into its
// axis indices and three flags; one pair of formulas for three different axes and one for a
// repeated axis then serves all of them. Method: K. Shoemake, "Euler Angle Conversion", Graphics
// Gems IV (1994).

#include <KTRCL_Geometry/foundation/GXRotation.h>

#include <KTRCL_DataTypes/GXString.h>

#include <cmath>
#include <tuple>
#include <utility>

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kHalfTurnDegrees = 180.0;

// Threshold of the sine or cosine of the second angle, below which the first and third axis fall
// together (gimbal lock): 16 times the epsilon of single precision.
constexpr double kGimbalThreshold = 1.9073486328125e-06;

constexpr int kStaticOrders = 12;

double ToRadians(double degrees) { return degrees * kPi / kHalfTurnDegrees; }

double ToDegrees(double radians) { return radians * kHalfTurnDegrees / kPi; }

// An order taken apart. `i`, `j`, `k` are the axes of the static form, 0 for X, 1 for Y, 2 for Z; a
// rotating order is the static one with its angles in reverse.
struct AxisOrder {
  int i;
  int j;
  int k;
  bool rotating;
  bool repeats;  // the last axis is the first again
  bool odd;      // i, j, k run against X, Y, Z
};

// The orders 0 to 11 are static, 12 to 23 rotating; within each half they count up the same code:
// bit 0 repetition, bit 1 parity, bits 2 and 3 the first axis. Other numbers are taken as 0.
AxisOrder DecodeOrder(int order) {
  constexpr int kFirst[4] = {0, 1, 2, 0};
  constexpr int kNext[4] = {1, 2, 0, 1};
  if (order < 0 || order >= 2 * kStaticOrders) order = 0;
  const bool rotating = order >= kStaticOrders;
  const int code = rotating ? order - kStaticOrders : order;
  const int parity = (code >> 1) & 1;
  const int i = kFirst[(code >> 2) & 3];
  return {i, kNext[i + parity], kNext[i + 1 - parity], rotating, (code & 1) != 0, parity != 0};
}

// Three angles in the order of A, B, C.
struct Angles {
  double x;
  double y;
  double z;
};

// Cosines and sines of the three angles of the static form, and the products of the outer two: c or
// s, then i, j, h for the first, second and third angle.
struct Turns {
  explicit Turns(const Angles& radians)
      : ci(std::cos(radians.x)),
        si(std::sin(radians.x)),
        cj(std::cos(radians.y)),
        sj(std::sin(radians.y)),
        ch(std::cos(radians.z)),
        sh(std::sin(radians.z)) {}

  double ci, si, cj, sj, ch, sh;
  double cc = ci * ch;
  double cs = ci * sh;
  double sc = si * ch;
  double ss = si * sh;
};

GXMatrix MatrixWithRepeatedAxis(const AxisOrder& axes, const Turns& t) {
  const int i = axes.i;
  const int j = axes.j;
  const int k = axes.k;
  GXMatrix m;
  m.SetBase0(i, i, t.cj);
  m.SetBase0(i, j, t.sj * t.si);
  m.SetBase0(i, k, t.sj * t.ci);
  m.SetBase0(j, i, t.sj * t.sh);
  m.SetBase0(j, j, t.cc - t.cj * t.ss);
  m.SetBase0(j, k, -t.cj * t.cs - t.sc);
  m.SetBase0(k, i, -t.sj * t.ch);
  m.SetBase0(k, j, t.cj * t.sc + t.cs);
  m.SetBase0(k, k, t.cj * t.cc - t.ss);
  return m;
}

GXMatrix MatrixWithThreeAxes(const AxisOrder& axes, const Turns& t) {
  const int i = axes.i;
  const int j = axes.j;
  const int k = axes.k;
  GXMatrix m;
  m.SetBase0(i, i, t.cj * t.ch);
  m.SetBase0(i, j, t.sj * t.sc - t.cs);
  m.SetBase0(i, k, t.sj * t.cc + t.ss);
  m.SetBase0(j, i, t.cj * t.sh);
  m.SetBase0(j, j, t.sj * t.ss + t.cc);
  m.SetBase0(j, k, t.sj * t.cs - t.sc);
  m.SetBase0(k, i, -t.sj);
  m.SetBase0(k, j, t.cj * t.si);
  m.SetBase0(k, k, t.cj * t.ci);
  return m;
}

Angles AnglesWithRepeatedAxis(const GXMatrix& m, const AxisOrder& axes) {
  const int i = axes.i;
  const int j = axes.j;
  const int k = axes.k;
  const double mij = m.GetBase0(i, j);
  const double mik = m.GetBase0(i, k);
  const double sy = std::sqrt(mij * mij + mik * mik);
  const double y = std::atan2(sy, m.GetBase0(i, i));
  if (sy > kGimbalThreshold) {
    return {std::atan2(mij, mik), y, std::atan2(m.GetBase0(j, i), -m.GetBase0(k, i))};
  }
  return {std::atan2(-m.GetBase0(j, k), m.GetBase0(j, j)), y, 0.0};
}

Angles AnglesWithThreeAxes(const GXMatrix& m, const AxisOrder& axes) {
  const int i = axes.i;
  const int j = axes.j;
  const int k = axes.k;
  const double mii = m.GetBase0(i, i);
  const double mji = m.GetBase0(j, i);
  const double cy = std::sqrt(mii * mii + mji * mji);
  const double y = std::atan2(-m.GetBase0(k, i), cy);
  if (cy > kGimbalThreshold) {
    return {std::atan2(m.GetBase0(k, j), m.GetBase0(k, k)), y, std::atan2(mji, mii)};
  }
  return {std::atan2(-m.GetBase0(j, k), m.GetBase0(j, j)), y, 0.0};
}

Angles AnglesFromMatrix(const GXMatrix& m, int order) {
  const AxisOrder axes = DecodeOrder(order);
  Angles angles = axes.repeats ? AnglesWithRepeatedAxis(m, axes) : AnglesWithThreeAxes(m, axes);
  if (axes.odd) angles = {-angles.x, -angles.y, -angles.z};
  if (axes.rotating) std::swap(angles.x, angles.z);
  return angles;
}

// The right-handed turn by `angle` (radians) about `axis`.
GXMatrix AxisAngleMatrix(GXVector axis, double angle) {
  axis.Standard();
  const double x = axis.X;
  const double y = axis.Y;
  const double z = axis.Z;
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  const double t = 1.0 - c;
  return GXMatrix(x * x * t + c, x * y * t - z * s, x * z * t + y * s,  //
                  x * y * t + z * s, y * y * t + c, y * z * t - x * s,  //
                  x * z * t - y * s, y * z * t + x * s, z * z * t + c);
}

}  // namespace

GXRotation::GXRotation() : A(0.0), B(0.0), C(0.0), O(0) {}

GXRotation::GXRotation(const GXRotation& other) = default;

GXRotation::GXRotation(double a, double b, double c, int order) : A(a), B(b), C(c), O(order) {}

GXRotation::GXRotation(double a, double b, double c, const GXString& order)
    : A(a), B(b), C(c), O(ConvertString2Ord(order)) {}

GXRotation::GXRotation(double a, double b, double c, bool degrees, int order) {
  if (degrees) {
    Set(a, b, c, order);
  } else {
    SetRad(a, b, c, order);
  }
}

GXRotation::GXRotation(const GXMatrix& m) : GXRotation() {
  if (m.IsEmpty()) return;
  const Angles angles = AnglesFromMatrix(m, O);
  SetRad(angles.x, angles.y, angles.z, O);
}

GXRotation::GXRotation(double e11, double e12, double e13, double e21, double e22, double e23,
                       double e31, double e32, double e33)
    : GXRotation(GXMatrix(e11, e12, e13, e21, e22, e23, e31, e32, e33)) {}

GXRotation::GXRotation(double e11, double e12, double e21, double e22)
    : GXRotation(GXMatrix(e11, e12, e21, e22)) {}

GXRotation::GXRotation(const GXVector& a, const GXVector& b, const GXVector& c)
    : GXRotation(GXMatrix(a, b, c)) {}

GXRotation::GXRotation(const GXVector& a, const GXVector& b) : GXRotation(GXMatrix(a, b)) {}

GXRotation::GXRotation(const GXVector& axis, const double& angle)
    : GXRotation(AxisAngleMatrix(axis, angle)) {}

GXRotation& GXRotation::operator=(const GXRotation& other) = default;

double GXRotation::GetA() const { return A; }
double GXRotation::GetB() const { return B; }
double GXRotation::GetC() const { return C; }
int GXRotation::GetO() const { return O; }

GXString GXRotation::GetOStr() const { return ConvertOrd2String(O); }

GXMatrix GXRotation::GetRotationMatrix() const {
  const AxisOrder axes = DecodeOrder(O);
  Angles angles = {ToRadians(A), ToRadians(B), ToRadians(C)};
  if (axes.rotating) std::swap(angles.x, angles.z);
  if (axes.odd) angles = {-angles.x, -angles.y, -angles.z};
  const Turns turns(angles);
  return axes.repeats ? MatrixWithRepeatedAxis(axes, turns) : MatrixWithThreeAxes(axes, turns);
}

void GXRotation::Inverse() {
  GXMatrix m = GetRotationMatrix();
  // Cannot fail for a rotation; if it did, the angles come again from the unchanged matrix.
  m.Inverse();
  const Angles angles = AnglesFromMatrix(m, O);
  SetRad(angles.x, angles.y, angles.z, O);
}

GXRotation GXRotation::GetInverse() const {
  GXRotation inverse(*this);
  inverse.Inverse();
  return inverse;
}

GXRotation GXRotation::MultRotation(const GXRotation& other) const {
  const Angles angles = AnglesFromMatrix(GetRotationMatrix() * other.GetRotationMatrix(), O);
  return GXRotation(angles.x, angles.y, angles.z, false, O);
}

GXRotation GXRotation::operator*(const GXRotation& other) const { return MultRotation(other); }

GXVector GXRotation::MultVector(const GXVector& v) const { return GetRotationMatrix() * v; }

GXVector GXRotation::operator*(const GXVector& v) const { return MultVector(v); }

bool GXRotation::operator==(const GXRotation& other) const {
  return GetRotationMatrix() == other.GetRotationMatrix();
}

bool GXRotation::IsAlmostEq(const GXRotation& other) const {
  return GetRotationMatrix().IsAlmostEq(other.GetRotationMatrix());
}

bool GXRotation::operator<(const GXRotation& other) const {
  return std::tie(O, A, B, C) < std::tie(other.O, other.A, other.B, other.C);
}

void GXRotation::Set(double a, double b, double c, int order) {
  A = a;
  B = b;
  C = c;
  O = order;
}

void GXRotation::SetRad(double a, double b, double c, int order) {
  Set(ToDegrees(a), ToDegrees(b), ToDegrees(c), order);
}

void GXRotation::Get(double& a, double& b, double& c, int order) const {
  Angles degrees = {A, B, C};
  if (order != O) {
    const Angles radians = AnglesFromMatrix(GetRotationMatrix(), order);
    degrees = {ToDegrees(radians.x), ToDegrees(radians.y), ToDegrees(radians.z)};
  }
  a = degrees.x;
  b = degrees.y;
  c = degrees.z;
}

void GXRotation::GetRad(double& a, double& b, double& c, int order) const {
  Angles radians = {ToRadians(A), ToRadians(B), ToRadians(C)};
  if (order != O) radians = AnglesFromMatrix(GetRotationMatrix(), order);
  a = radians.x;
  b = radians.y;
  c = radians.z;
}
