// Corners: the candidate that keeps clear at the least cost, and how far lines are extended there.

#include <KTRCL_Geometry/kernel/Unfolding.h>

#include <algorithm>

#include "kernel/PlanePoint.h"

using ktrcl_internal::Distance;
using ktrcl_internal::PlanePoint;
using ktrcl_internal::SquaredDistance;

namespace {

constexpr int kLastColumn = 7;

// No cost of a candidate is negative.
constexpr double kNoCandidate = -1.0;

// Neither test lets values on both sides of the limit pass; equality passes only the loose one.
bool AreStrictlyOnOneSide(double a, double b, double limit) {
  return (a > limit && b > limit) || (a < limit && b < limit);
}

bool AreLooselyOnOneSide(double a, double b, double limit) {
  return (a >= limit && b >= limit) || (a <= limit && b <= limit);
}

bool AreOnOneSideInXAndY(const PlanePoint& a, const PlanePoint& b, const PlanePoint& limit) {
  return AreStrictlyOnOneSide(a.x, b.x, limit.x) && AreLooselyOnOneSide(a.y, b.y, limit.y);
}

bool AreOnOneSideInY(const PlanePoint& a, const PlanePoint& b, const PlanePoint& limit) {
  return AreStrictlyOnOneSide(a.y, b.y, limit.y);
}

// Whether `near` is nearer to the corner than its rival on the same side, or, where there is no
// such rival, at least not farther from the corner than from `beyond`.
int ExtensionFlag(bool isOnOneSide, const PlanePoint& corner, const PlanePoint& near,
                  const PlanePoint& rival, const PlanePoint& beyond) {
  const double reach = SquaredDistance(corner, near);
  const bool isNear =
      isOnOneSide ? reach < SquaredDistance(corner, rival) : reach <= SquaredDistance(near, beyond);
  return isNear ? 1 : 0;
}

}  // namespace

bool Dtpnt1(double* x, double* y, double* ax, double* ay, double* bx, double* by,
            const double (*gridX)[8], const double (*gridY)[8], const double* tableAx,
            const double* tableAy, int n, const double* tableBx, const double* tableBy, int m,
            double rA, double rB) {
  const int lastColumn = std::min(m, kLastColumn);
  double bestCost = kNoCandidate;
  PlanePoint best = {0.0, 0.0};
  PlanePoint bestA = {0.0, 0.0};
  PlanePoint bestB = {0.0, 0.0};
  // Counted in a wider type, so that the greatest int may be the last row.
  for (long long i = 0; i <= n && lastColumn >= 0; ++i) {
    const PlanePoint a = {tableAx[i], tableAy[i]};
    for (int j = 0; j <= lastColumn; ++j) {
      const PlanePoint b = {tableBx[j], tableBy[j]};
      const PlanePoint candidate = {gridX[i][j], gridY[i][j]};
      const double clearanceA = Distance(candidate, a) - rA;
      const double clearanceB = Distance(candidate, b) - rB;
      if (!(clearanceA >= 0.0 && clearanceB >= 0.0)) continue;
      const double cost = clearanceA + clearanceB;
      if (bestCost != kNoCandidate && !(cost < bestCost)) continue;
      bestCost = cost;
      best = candidate;
      bestA = a;
      bestB = b;
    }
  }
  if (bestCost == kNoCandidate) return false;
  *x = best.x;
  *y = best.y;
  *ax = bestA.x;
  *ay = bestA.y;
  *bx = bestB.x;
  *by = bestB.y;
  return true;
}

void Aggius_utl1(double Px, double Py, double Qx, double Qy, double Rx, double Ry, double Sx,
                 double Sy, double Tx, double Ty, double Ux, double Uy, double Wx, double Wy,
                 int* f1, int* f2) {
  const PlanePoint p = {Px, Py};
  const PlanePoint q = {Qx, Qy};
  const PlanePoint r = {Rx, Ry};
  const PlanePoint s = {Sx, Sy};
  const PlanePoint t = {Tx, Ty};
  *f1 = ExtensionFlag(AreOnOneSideInXAndY(r, q, p), p, q, r, {Ux, Uy});
  *f2 = ExtensionFlag(AreOnOneSideInXAndY(t, s, p), p, s, t, {Wx, Wy});
}

void Aggius_utl2(double Px, double Py, double Qx, double Qy, double Rx, double Ry, double Sx,
                 double Sy, double Tx, double Ty, double Ux, double Uy, double Wx, double Wy,
                 int* f1, int* f2) {
  const PlanePoint p = {Px, Py};
  const PlanePoint q = {Qx, Qy};
  const PlanePoint r = {Rx, Ry};
  const PlanePoint s = {Sx, Sy};
  const PlanePoint t = {Tx, Ty};
  *f1 = ExtensionFlag(AreOnOneSideInY(q, r, p), p, q, r, {Ux, Uy});
  *f2 = ExtensionFlag(AreOnOneSideInXAndY(t, s, p), p, s, t, {Wx, Wy});
}

void Aggius_utl3(double Px, double Py, double Qx, double Qy, double Rx, double Ry, double Sx,
                 double Sy, double Tx, double Ty, double Ux, double Uy, double Wx, double Wy,
                 int* f1, int* f2) {
  const PlanePoint p = {Px, Py};
  const PlanePoint q = {Qx, Qy};
  const PlanePoint r = {Rx, Ry};
  const PlanePoint s = {Sx, Sy};
  const PlanePoint t = {Tx, Ty};
  *f1 = ExtensionFlag(AreOnOneSideInXAndY(r, q, p), p, q, r, {Ux, Uy});
  *f2 = ExtensionFlag(AreOnOneSideInY(s, t, p), p, s, t, {Wx, Wy});
}
