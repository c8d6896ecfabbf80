// The figures that more than one source of the kernel compares with, one name per purpose. A
// *tolerance* is what the trade accepts as equal, a *guard* protects a division. A figure that only
// one source needs stands in that source. None of them follows the unit flag, unless it says so.
#pragma once

namespace ktrcl_internal {

/// 0.0001 model units. A vector or segment that is no longer has no direction. Compared with a
/// length, never with single coordinates and never with angles.
inline constexpr double kShortLength = 0.0001;

/// 0.01 millimetres (inclusive or strict as the routine says). Distance from a plane or cylinder of
/// a point that is to lie on it; never for the coincidence of two points.
inline constexpr double kOnSurface = 0.01;

/// `kOnSurface` in inches.
inline constexpr double kOnSurfaceInches = 0.00039370078740157485;

}  // namespace ktrcl_internal
