// INSERT: where the contents of a block lie.
#pragma once

#include "drawing/DxfEntities.h"
#include "drawing/PlaneMap.h"

#include <cstddef>
#include <string_view>

namespace drawing {

/// Heights over the plane, in drawing units: z' = scale z + shift.
struct HeightMap {
  double scale = 1.0;
  double shift = 0.0;
};

/// What the record of an INSERT says.
struct DxfInsert {
  std::string_view name;  ///< Of the block, as it stands in the file.
  DrawnPoint point;       ///< In the coordinates of the entity, as is all else.
  double z = 0.0;
  double scaleX = 1.0;
  double scaleY = 1.0;
  double scaleZ = 1.0;
  double rotation = 0.0;  ///< Degrees.
  int columns = 1;        ///< At least 1; 1 where the columns lie upon each other.
  int rows = 1;           ///< The same.
  double columnSpacing = 0.0;
  double rowSpacing = 0.0;
  bool fromBelow = false;  ///< Its extrusion is (0, 0, -1).

  /// How many times the contents are drawn. Whole numbers, in a type that holds any product.
  double Copies() const;

  /// Where the contents of a block with a base point lie, for one place of the array. The array is
  /// turned with the block and not scaled.
  PlaneMap Map(const DrawnPoint& base, int column, int row) const;

  HeightMap Heights(double baseZ) const;
};

/// Reads the record of an INSERT; what is wrong with it stands in the failure of `values`: no
/// name, no insertion point, a scale of 0 in x or y, a tilted extrusion.
///
/// A scale of 0 in z is none: what is drawn flat stays as it is.
DxfInsert ReadDxfInsert(DxfValues& values);

}  // namespace drawing
