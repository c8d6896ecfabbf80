// Removes vertices that are no vertices from a look-alike contour and its element list together.
#pragma once

#include <KTRCL_Geometry/Export.h>

class GX2DArc;
class GX2DElmList;
class GXLAContour;

/// Merges collinear lines and arcs on one centre, so that a contour drawn in many pieces and one
/// drawn in few get the same description. Stateless.
class KTRCL_GEOMETRY_EXPORT CGXLAElementMerge {
 public:
  CGXLAElementMerge();

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~CGXLAElementMerge();

  /// Merges in place, in the description and in the element list that it was made from, keeping
  /// both in step. What is merged away is destroyed; the header is renewed where anything was.
  ///
  /// A vertex goes where its angle is pi within `tolerance` (absolute, inclusive, radians) and both
  /// forms hold two lines there, or two arcs whose centres agree within 0.00001 in each coordinate.
  /// The later of the two elements survives: it takes over the start of the earlier one, and its
  /// length grows. A merged arc keeps its sense and gets a new mid point.
  ///
  ///     before   o-----x-----x-----o     three collinear lines
  ///     after    o-----------------o     one, the object that was the last of them
  ///
  /// In a closed contour the seam comes first: the last element is merged into the first, once.
  /// Cost: linear.
  ///
  /// Degenerate: nothing happens unless the list has more than one element and the sequence exactly
  ///   twice as many, so open contours stay as they are. Nothing is merged at null entries and
  ///   other kinds of elements.
  /// Caution: lines are merged on the angle alone, their coordinates are not tested; nor are the
  ///   radius and sense of arcs.
  /// Caution: where the merged seam leaves another straight angle at the seam, that one stays.
  static void MergeContour(GXLAContour& contour, GX2DElmList& elements, double tolerance);

 private:
  static bool SameArcCenter(GX2DArc* first, GX2DArc* second);
};
