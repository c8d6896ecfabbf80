// A double and an int, sorted by the double alone; made for hosts that rank indices by a figure.
#pragma once

#include <KTRCL_Geometry/Export.h>

#include <utility>

/// A `double` (`first`) with an `int` (`second`).
class KTRCL_GEOMETRY_EXPORT GXDoubleIntegerPair : public std::pair<double, int> {
 public:
  /// The pair of `value` and `index`.
  GXDoubleIntegerPair(const double& value, const int& index);

  /// Exact comparison of the `double` alone: pairs of equal value are equivalent whatever their
  /// int.
  bool operator<(const GXDoubleIntegerPair& other) const;
};
