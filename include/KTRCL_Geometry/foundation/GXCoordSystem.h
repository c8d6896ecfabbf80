// A position and three angles, recorded for host data.
#pragma once

#include <KTRCL_Geometry/Export.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

/// Coordinate system as plain data: a position and three angles to which the library attaches no
/// unit and no meaning. It performs no transforms of its own.
class KTRCL_GEOMETRY_EXPORT GXCoordSystem {
 public:
  GX3DPoint Origin;  ///< Origin of the system, length units.
  double AngleX;     ///< Angle about X; unit and meaning are the host's.
  double AngleY;     ///< Angle about Y; unit and meaning are the host's.
  double AngleZ;     ///< Angle about Z; unit and meaning are the host's.

  /// @name Construction -- src/foundation/GXCoordSystem.cpp

  /// All coordinates and angles 0.
  GXCoordSystem();
  GXCoordSystem(const GXCoordSystem& other);
  GXCoordSystem& operator=(const GXCoordSystem& other);

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~GXCoordSystem();

  /// Whether both systems agree.
  /// Tolerance: 0.0001 on each coordinate of the origin, 0.00001 on each angle in the host's unit;
  ///   absolute, inclusive. Angles a full turn apart do not agree.
  virtual bool IsAlmostEq(const GXCoordSystem& other) const;

  /// Multiplies the origin by `factor` and, where `decimals` is not negative, rounds its
  /// coordinates to that many decimal places. The angles stay. Returns: always true.
  virtual bool Scale(const double& factor, const int& decimals);

  /// Stores the numbers "ORIGINX", "ORIGINY", "ORIGINZ", "ANGLEX", "ANGLEY", "ANGLEZ" unrounded: in
  /// a new child of `paragraph` named `key`, or in `paragraph` itself where `key` is empty
  /// -- src/elements/Persistence.cpp. The last argument is not used.
  /// Requires: `paragraph` is not null. Returns: always true.
  virtual bool Write(const GXString& key, GXParagraph* const& paragraph, const int& unused);

  /// Takes the numbers from the child named `key`, or from `paragraph` itself where `key` is empty;
  /// a missing number becomes 0. Returns: false, unchanged, without paragraph or child.
  virtual bool Read(const GXString& key, GXParagraph* const& paragraph, const int& unused);

  /// Exact comparison of the origin and the three angles; false with a NaN.
  virtual bool operator==(const GXCoordSystem& other) const;

  /// Whether the origin differs or any angle differs; true with a NaN.
  virtual bool operator!=(const GXCoordSystem& other) const;
};
