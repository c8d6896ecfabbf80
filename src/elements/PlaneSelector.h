// The plane selector of conversions between 2D and 3D: the axis that is left out. Every value but
// these two leaves out Z.
#pragma once

namespace ktrcl_internal {

inline constexpr int kLeftOutX = 0;
inline constexpr int kLeftOutY = 1;
inline constexpr int kLeftOutZ = 2;

}  // namespace ktrcl_internal
