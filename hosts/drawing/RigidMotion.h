// Turning and shifting in the plane, and the motion that lays one row of points on another.
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <vector>

namespace drawing {

/// p -> R p + t with a proper rotation R: no mirror, no scale.
struct RigidMotion {
  double cosine = 1.0;
  double sine = 0.0;
  double shiftX = 0.0;
  double shiftY = 0.0;

  GX2DPoint Apply(const GX2DPoint& p) const;

  /// The point that Apply takes to `p`.
  GX2DPoint Undo(const GX2DPoint& p) const;

  /// Angle of the rotation, degrees in (-180, 180], counter-clockwise positive.
  double AngleDegrees() const;
};

/// The turn by `radians`, counter-clockwise positive, that takes the point `from` to `to`.
RigidMotion TurnAndShift(double radians, const GX2DPoint& from, const GX2DPoint& to);

/// The motion with the least sum of squared distances between `to[i]` and the image of `from[i]`
/// (the closed form of the plane Procrustes problem without reflection).
///
/// Degenerate: rows of different length, empty rows or rows of one repeated point give a pure shift
///   of the centres of gravity.
RigidMotion FitRigidMotion(const std::vector<GX2DPoint>& from, const std::vector<GX2DPoint>& to);

/// The same with a weight per pair: sum of weight times squared distance.
///
/// Requires: as many weights as pairs, none negative, their sum above 0; otherwise all weigh alike.
RigidMotion FitRigidMotion(const std::vector<GX2DPoint>& from, const std::vector<GX2DPoint>& to,
                           const std::vector<double>& weights);

/// About the motion with the least sum of distances, not squared: a few pairs that are far off,
/// corners that differ, hardly draw it away from where all the others agree (Weiszfeld's iteration
/// on the weighted form, a fixed number of rounds).
RigidMotion FitRobustly(const std::vector<GX2DPoint>& from, const std::vector<GX2DPoint>& to);

/// Largest distance between `to[i]` and the image of `from[i]` (0 for empty rows).
double LargestDeviation(const RigidMotion& motion, const std::vector<GX2DPoint>& from,
                        const std::vector<GX2DPoint>& to);

}  // namespace drawing
