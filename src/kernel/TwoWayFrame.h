// A frame together with the way back from it.
#pragma once

#include <KTRCL_Geometry/kernel/Frames.h>

namespace ktrcl_internal {

/// What `Gloloc` and `Locglo` need besides the origin.
struct TwoWayFrame {
  double frame[3][3];
  double inverse[3][3];
};

/// Frame with its origin in p0, x axis towards p1, and p2 in its plane.
/// Returns: true; false, with `made` without meaning, for points that span no plane.
inline bool MakeFrame(const double* p0, const double* p1, const double* p2, TwoWayFrame& made) {
  return Lambda(p0, p1, p2, made.frame) == 1 && Invmat(made.frame, made.inverse) == 1;
}

}  // namespace ktrcl_internal
