// Where two contours have points in common.
#pragma once

#include "drawing/Boxes.h"

#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <cstddef>
#include <vector>

namespace drawing {

/// Contours that come as near as this, in millimetres, touch: so far one may reach into or out of
/// another without crossing it.
inline constexpr double kTouchTolerance = 0.0001;

/// Names elements that belong to another list, as an argument of the library.
class BorrowedElements {
 public:
  BorrowedElements() = default;
  BorrowedElements(const BorrowedElements&) = delete;
  BorrowedElements& operator=(const BorrowedElements&) = delete;
  ~BorrowedElements() { list_.clear(); }  // The plain clear: nothing is destroyed.

  void Add(GX2DElement* element) { list_.push_back(element); }
  GX2DElmList& List() { return list_; }

 private:
  GX2DElmList list_;
};

/// The elements of a contour, found by their boxes. The contour must outlive it, unchanged.
class ElementIndex {
 public:
  /// All coordinates must be finite.
  explicit ElementIndex(GX2DElmList& elements);

  GX2DElmList& Elements() const { return elements_; }

  /// Replaces `found` by the indices of the elements within kTouchTolerance of a box, ascending.
  void FindNear(const Box& box, std::vector<std::size_t>& found) const;

  /// Whether an element comes as near to a point as kTouchTolerance, inclusive.
  bool Touches(const GX2DPoint& p) const;

 private:
  GX2DElmList& elements_;
  BoxTree tree_;
};

/// The points that a contour has in common with another, as cuts of its elements.
struct CommonPoints {
  bool anyNear = false;  ///< Some elements of the two come near one another at all.
  bool any = false;      ///< There are points in common, at joints also.
  /// For each element of the contour, shares of its length strictly between 0 and 1, ascending.
  /// Empty where there are none at all.
  std::vector<std::vector<double>> cuts;
};

/// Finds the points that `tested` and `other` have in common: where they cross, where they touch,
/// and the ends of stretches along which they run on one another.
///
/// The library's GetIntersections finds crossings of lines with lines and arcs. It crosses no full
/// and no half circle with any arc, and no lines whose slopes differ by less than 0.00001; these,
/// and the ends of either that lie on the other, are found here.
///
/// Tolerance: kTouchTolerance for ends on elements; the library's own for crossings.
/// Cost: near-linear in the number of elements and of pairs of them that come close.
CommonPoints FindCommonPoints(GX2DElmList& tested, const ElementIndex& other);

}  // namespace drawing
