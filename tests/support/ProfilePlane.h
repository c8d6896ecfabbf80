// Profiles in space that are written down once, in the coordinates of their own plane, and tried in
// each of the three coordinate planes.
//
//     class IntersectionPointProfile : public support::ProfilePlane {};
//     TEST_P(IntersectionPointProfile, FindsTheCrossing) {
//       GX3DElmList profile;
//       AddPath(profile, {{5, -1}, {5, 1}});        // a line in the plane, at depth 0
//       const GX3DPoint p = In(5, 0, 2);            // x, y, depth
//       ... Plane() ...
//     }
//     INSTANTIATE_TEST_SUITE_P(Planes, IntersectionPointProfile, support::AllPlanes());
#pragma once

#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "support/Build.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace support {

class ProfilePlane : public testing::TestWithParam<int> {
 protected:
  static const int& Plane() { return GetParam(); }

  /// The point of the plane in the axes of the caller. Plane 1 is (X, Y), 2 is (Y, Z), 3 is (Z, X),
  /// each with the axis that is left as its depth.
  static GX3DPoint In(double x, double y, double depth = 0) {
    switch (Plane()) {
      case 1:
        return {x, y, depth};
      case 2:
        return {depth, x, y};
      default:
        return {y, depth, x};
    }
  }

  /// The line from corner to corner of the plane, at one depth.
  static GX3DLine LineIn(double x1, double y1, double x2, double y2, double depth = 0) {
    return {In(x1, y1, depth), In(x2, y2, depth)};
  }

  /// The same arc in the plane.
  static GX3DArc ArcIn(const GX2DArc& arc) {
    return {In(arc.Center.X, arc.Center.Y), In(arc.Start.X, arc.Start.Y), In(arc.Mid.X, arc.Mid.Y),
            In(arc.End.X, arc.End.Y)};
  }

  /// Appends the lines from corner to corner; a repeated first corner closes.
  static void AddPath(GX3DElmList& profile, const std::vector<GX2DPoint>& corners) {
    for (std::size_t i = 1; i < corners.size(); ++i) {
      const GX2DPoint& a = corners[i - 1];
      const GX2DPoint& b = corners[i];
      Add(profile, LineIn(a.X, a.Y, b.X, b.Y));
    }
  }
};

inline auto AllPlanes() { return testing::Values(1, 2, 3); }

}  // namespace support
