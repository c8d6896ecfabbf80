// The two readings of the unit flag. They part for every value but 0 and 1, and hosts have passed
// such values for long enough that neither may give way to the other.
#pragma once

namespace ktrcl_internal {

/// Whether the flag stands for inches where only exactly 1 does.
inline bool OneIsInches(int unit) { return unit == 1; }

/// Whether the flag stands for inches where every value but 0 does.
inline bool NonZeroIsInches(int unit) { return unit != 0; }

/// Millimetres in one inch.
inline constexpr double kMillimetresPerInch = 25.4;

}  // namespace ktrcl_internal
