// The two frame calls that hosts may make around their use of the library.
#pragma once

#include <KTRCL_Geometry/Export.h>

/// Frame of the library. The library has no state, so both calls do nothing; they are exported
/// because hosts link against them. A host that never calls them loses nothing.
class KTRCL_GEOMETRY_EXPORT GXKTRCL_GeometryInit {
 public:
  /// There is nothing to copy.
  GXKTRCL_GeometryInit& operator=(const GXKTRCL_GeometryInit& other);

  /// Does nothing, whatever the argument, null included.
  static void Init(void* ignored);

  /// Does nothing, with or without an `Init` before.
  static void Terminate();
};
