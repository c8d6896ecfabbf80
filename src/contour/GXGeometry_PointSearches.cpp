// Searches in arrays of points.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include "elements/PlainVector.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

using ktrcl_internal::Dot;
using ktrcl_internal::kLengthTolerance;
using ktrcl_internal::Length;
using ktrcl_internal::Plain;
using ktrcl_internal::PlainVector;

namespace {

/// Points that `FindPointInList` has room for.
constexpr int kMostFound = 9;

/// What `FindPointInList` answers where it finds nothing.
constexpr int kNothingFound = -1;

/// How far the cosine may be from 1 for a point to lie in a direction, inclusive.
constexpr double kSameDirectionTolerance = 0.0001;

/// Last column of a grid.
constexpr int kLastGridColumn = 7;

/// A place in a grid of points and how far it is beyond both lengths together.
class ShortestExcess {
 public:
  std::ptrdiff_t Row() const { return row_; }
  std::ptrdiff_t Column() const { return column_; }
  bool IsFound() const { return excess_ != kNone; }

  /// Takes a place that is beyond both lengths, if it is beyond by less than the one it has.
  void Offer(std::ptrdiff_t row, std::ptrdiff_t column, double beyondRow, double beyondColumn) {
    if (!(beyondRow >= 0.0) || !(beyondColumn >= 0.0)) return;
    const double excess = beyondRow + beyondColumn;
    if (IsFound() && !(excess < excess_)) return;
    excess_ = excess;
    row_ = row;
    column_ = column;
  }

 private:
  static constexpr double kNone = -1.0;

  double excess_ = kNone;
  std::ptrdiff_t row_ = 0;
  std::ptrdiff_t column_ = 0;
};

bool IsDistance(const GX2DPoint& a, const GX2DPoint& b, double distance) {
  return std::fabs(GXGeometry::GetDistancePointPoint(a, b) - distance) <= kLengthTolerance;
}

}  // namespace

void GXGeometry::DeterminePointByLength(GX2DPoint& best, GX2DPoint& bestRow, GX2DPoint& bestColumn,
                                        GX2DPoint (*grid)[8], GX2DPoint* rows, int lastRow,
                                        GX2DPoint* columns, int lastColumn, const double& rowLength,
                                        const double& columnLength) {
  if (!grid || !rows || !columns) return;
  const std::ptrdiff_t rowCount = std::ptrdiff_t{lastRow} + 1;
  const std::ptrdiff_t columnCount = std::ptrdiff_t{std::min(lastColumn, kLastGridColumn)} + 1;
  ShortestExcess shortest;
  for (std::ptrdiff_t i = 0; i < rowCount; ++i) {
    for (std::ptrdiff_t j = 0; j < columnCount; ++j) {
      shortest.Offer(i, j, GetDistancePointPoint(grid[i][j], rows[i]) - rowLength,
                     GetDistancePointPoint(grid[i][j], columns[j]) - columnLength);
    }
  }
  if (!shortest.IsFound()) return;
  // Copies: the outputs may belong to the arrays.
  const GX2DPoint point(grid[shortest.Row()][shortest.Column()]);
  const GX2DPoint rowPoint(rows[shortest.Row()]);
  const GX2DPoint columnPoint(columns[shortest.Column()]);
  best = point;
  bestRow = rowPoint;
  bestColumn = columnPoint;
}

int GXGeometry::FindPointInList(GX2DPoint* points, GX2DPoint* found, int count,
                                const GX2DPoint& origin, const GX3DPoint& target) {
  if (!points || !found) return kNothingFound;
  // A copy: the origin may be one of the points that are written.
  const PlainVector from = Plain(origin);
  const PlainVector direction = Plain(target) - from;
  int foundCount = 0;
  for (int i = 0; i < count && foundCount < kMostFound; ++i) {
    const PlainVector offset = Plain(points[i]) - from;
    const double cosine = Dot(offset, direction) / (Length(direction) * Length(offset));
    // Without a length the cosine is NaN: a point at the origin lies in no direction.
    if (!(std::fabs(cosine - 1.0) <= kSameDirectionTolerance)) continue;
    found[foundCount].X = points[i].X;
    found[foundCount].Y = points[i].Y;
    ++foundCount;
  }
  return foundCount - 1;
}

bool GXGeometry::CheckIfPointAtDistanceFrom2Points(const GX2DPoint& a, const GX2DPoint& b,
                                                   const double& distanceB, const GX2DPoint& c,
                                                   const double& distanceC) {
  return IsDistance(a, b, distanceB) && IsDistance(a, c, distanceC);
}
