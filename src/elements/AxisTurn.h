// One turn about an axis in space, for one point or for many: the frame along the axis, its
// inverse, sine and cosine are found once. Points come out the same in every bit, however many are
// turned.
#pragma once

#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>

#include <cmath>

#include "elements/LineMeasures.h"
#include "foundation/Tolerance.h"

namespace ktrcl_internal {

class AxisTurn {
 public:
  /// About the line from `start` to `end`, right-handed, by an angle in radians.
  AxisTurn(const GX3DPoint& start, const GX3DPoint& end, double radians)
      : origin_(start),
        hasAxis_(
            !InLine(Plain(start), Plain(end), Plain(PlaneSpanningPoint()), kOnElementTolerance)) {
    if (!hasAxis_) return;
    // X runs along the axis.
    frame_ = GXColBasedTransformMatrix(start, end, PlaneSpanningPoint());
    back_ = frame_;
    back_.Inverse();
    cosine_ = std::cos(radians);
    sine_ = std::sin(radians);
  }

  /// False for an axis of length zero, and for one that points at the place that spans the plane.
  bool HasAxis() const { return hasAxis_; }

  /// The turned point; only where there is an axis.
  GX3DPoint operator()(const GX3DPoint& point) const {
    GX3DPoint local(point);
    local.TransformGloLoc(origin_, frame_);
    GX3DPoint turned(local.X, cosine_ * local.Y - sine_ * local.Z,
                     cosine_ * local.Z + sine_ * local.Y);
    turned.TransformLocGlo(origin_, back_);
    return turned;
  }

 private:
  // Only there to span a plane with an axis: so odd a place that no drawn axis points at it.
  static GX3DPoint PlaneSpanningPoint() { return GX3DPoint(1234.1234, 5678.5678, 9012.9012); }

  GX3DPoint origin_;
  bool hasAxis_;
  GXColBasedTransformMatrix frame_;
  GXColBasedTransformMatrix back_;
  double cosine_ = 1.0;
  double sine_ = 0.0;
};

}  // namespace ktrcl_internal
