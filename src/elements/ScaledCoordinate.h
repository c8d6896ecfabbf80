// Scaling of one coordinate, with the rounding that all points share.
#pragma once

#include <KTRCL_DataTypes/GXMath.h>

namespace ktrcl_internal {

/// Multiplies in place; a negative number of decimals means no rounding.
inline void ScaleCoordinate(double& coordinate, double factor, int decimals) {
  const double scaled = coordinate * factor;
  coordinate = decimals < 0 ? scaled : GXMath::RoundToDec(scaled, decimals);
}

}  // namespace ktrcl_internal
