#include "drawing/DxfInsert.h"

#include <algorithm>
#include <cmath>

namespace drawing {
namespace {

// Copies without a distance between them would lie upon each other.
int Count(DxfValues& values, int code, double spacing) {
  const int count = std::max(values.Integer(code, 1), 1);
  return spacing == 0.0 ? 1 : count;
}

}  // namespace

double DxfInsert::Copies() const {
  return static_cast<double>(columns) * static_cast<double>(rows);
}

PlaneMap DxfInsert::Map(const DrawnPoint& base, int column, int row) const {
  const PlaneVector turn = DirectionOf(rotation);
  PlaneMap map;
  map.xx = turn.x * scaleX;
  map.xy = -turn.y * scaleY;
  map.yx = turn.y * scaleX;
  map.yy = turn.x * scaleY;
  const double right = column == 0 ? 0.0 : column * columnSpacing;
  const double up = row == 0 ? 0.0 : row * rowSpacing;
  const PlaneVector moved = map.Direction({base.x, base.y});
  map.x0 = point.x + (turn.x * right - turn.y * up) - moved.x;
  map.y0 = point.y + (turn.y * right + turn.x * up) - moved.y;
  return fromBelow ? Composed(SeenFromBelow(), map) : map;
}

HeightMap DxfInsert::Heights(double baseZ) const {
  const double side = fromBelow ? -1.0 : 1.0;
  return {side * scaleZ, side * (z - scaleZ * baseZ)};
}

DxfInsert ReadDxfInsert(DxfValues& values) {
  DxfInsert insert;
  const std::size_t line = values.Record().line;
  insert.name = values.Text(2);
  if (Trim(insert.name).empty()) values.Fail("it names no block", line);
  insert.point = {values.Required(10), values.Required(20)};
  insert.z = values.Optional(30, 0.0);
  insert.scaleX = values.Optional(41, 1.0);
  insert.scaleY = values.Optional(42, 1.0);
  insert.scaleZ = values.Optional(43, 1.0);
  if (insert.scaleX == 0.0 || insert.scaleY == 0.0) values.Fail("its scale is 0", line);
  insert.rotation = values.Optional(50, 0.0);
  insert.columnSpacing = values.Optional(44, 0.0);
  insert.rowSpacing = values.Optional(45, 0.0);
  insert.columns = Count(values, 70, insert.columnSpacing);
  insert.rows = Count(values, 71, insert.rowSpacing);
  const Extrusion extrusion = ReadExtrusion(values);
  if (extrusion == Extrusion::kTilted) values.Fail("its extrusion is not along z", line);
  insert.fromBelow = extrusion == Extrusion::kDown;
  return insert;
}

}  // namespace drawing
