// Shapes and their occurrences: an instance is one occurrence of a shape in a part, with its real
// 2D elements; the lists keep shapes and instances, the manager groups the instances by shape.
#pragma once

#include <KTRCL_Geometry/Export.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/lookalike/GXLAContour.h>

#include <list>
#include <map>

/// One occurrence of a shape in a part: the element list of one contour, with the shape that it
/// has.
///
/// A position here is a position of the shape's element sequence: segments stand at even positions,
/// and position p belongs to list element p / 2.
///
/// Ownership: it owns its elements, not the shape. Copies share the elements, so exactly one of
/// them may be destroyed filled.
class KTRCL_GEOMETRY_EXPORT GXLAContourInstance : public GX2DElmList {
 public:
  GXLAContour* LAContour;  ///< The shape; not owned.
  bool Reversed;           ///< As handed in; see `GXLAPart::AddInternalContourInstance`.
  int StartPosition;       ///< Position here that corresponds to position 0 of the stored shape.

  /// Copies the elements; the given list stays the caller's. Entries that cannot be copied (null, a
  /// class of the host's own) are left out.
  GXLAContourInstance(const GX2DElmList& elements, GXLAContour* contour, bool reversed,
                      int startPosition);

  /// Copies the fields and the pointers to the elements. Assignment forgets, without destroying,
  /// what the receiver held.
  GXLAContourInstance(const GXLAContourInstance& other);
  GXLAContourInstance& operator=(const GXLAContourInstance& other);

  /// Destroys the elements.
  ~GXLAContourInstance() override;

  /// The three fields.
  GXLAContour* GetLAContour() const;
  bool IsLAContourReversed() const;
  int GetLAContourStartPosition() const;

  /// Where this occurrence lies: the distances from the start point of its element at
  /// `StartPosition` to the start (first) and the end (second) of the reference's element at
  /// `referencePosition`. The reference is normally the external contour of the same part.
  ///
  /// A full circle (an arc whose start and end agree within 0.0001 in each coordinate) is placed by
  /// its centre, so that the point where it was begun does not count. With `keepReferenceCircle`
  /// the reference's element keeps its own points.
  ///
  /// Returns: false, both distances untouched, where a position is odd, negative or outside its
  ///   list, or the element there is null.
  bool GetStartPointDistanceToRefContour(const GXLAContourInstance& refInstance,
                                         int referencePosition, double& firstDistance,
                                         double& secondDistance, bool keepReferenceCircle) const;

  /// Whether this occurrence lies at the two distances from its reference, as one of another part
  /// does according to `GetStartPointDistanceToRefContour`.
  ///
  /// Asked of this occurrence's element at `offset` + `StartPosition`, where `offset` is the start
  /// position at which the shape here corresponds with the shape there. Either end of the element
  /// counts, and the distances in either order, so that the sense in which both were drawn does
  /// not. Circles are placed as above.
  ///
  /// Tolerance: 0.01, absolute, inclusive, for each distance by itself.
  /// Returns: false also where a position or the offset is odd, negative or leads outside its list,
  ///   or the element there is null.
  /// Caution: offset and start position do not wrap around, even where that would fit.
  bool HasSamePositionToRefContour(const double& firstDistance, const double& secondDistance,
                                   const GXLAContourInstance& refInstance, int referencePosition,
                                   int offset, bool keepReferenceCircle) const;
};

/// Borrowed instances: destroying the list removes only its nodes. No virtual operations.
class KTRCL_GEOMETRY_EXPORT GXLAContourInstanceRefList : public std::list<GXLAContourInstance*> {
 public:
  GXLAContourInstanceRefList();
  GXLAContourInstanceRefList(const GXLAContourInstanceRefList& other);
  GXLAContourInstanceRefList& operator=(const GXLAContourInstanceRefList& other);
  ~GXLAContourInstanceRefList();
};

/// Owned instances. Copies share them: exactly one holder may be destroyed filled, and assignment
/// forgets, without destroying, what the receiver held.
///
/// Caution: the destructor is not virtual; destroyed as a `GXLAContourInstanceRefList` the list
///   leaves its instances alive.
class KTRCL_GEOMETRY_EXPORT GXLAContourInstanceList : public GXLAContourInstanceRefList {
 public:
  GXLAContourInstanceList();
  GXLAContourInstanceList(const GXLAContourInstanceList& other);
  GXLAContourInstanceList& operator=(const GXLAContourInstanceList& other);

  /// Destroys the instances.
  ~GXLAContourInstanceList();

  /// Destroys every instance and empties the list; the plain `clear` only forgets.
  void ClearWithContent();
};

/// Owned shapes, from long to short where filled by `AddElementSortTotalGeometryLengthDesc`. Copies
/// share them: exactly one holder may be destroyed filled, and assignment forgets, without
/// destroying, what the receiver held.
class KTRCL_GEOMETRY_EXPORT GXLAContourList : public std::list<GXLAContour*> {
 public:
  GXLAContourList();
  GXLAContourList(const GXLAContourList& other);
  GXLAContourList& operator=(const GXLAContourList& other);

  /// Destroys the contours.
  ~GXLAContourList();

  /// Appends a contour, which must live on the heap: the list then owns it.
  void AddElement(GXLAContour& contour);

  /// Inserts a contour in front of the first that is shorter by more than 0.001 (strict, total
  /// length); the list then owns it. Among lengths within 0.001 the older contour stays in front.
  /// Null entries are passed over.
  void AddElementSortTotalGeometryLengthDesc(GXLAContour& contour);

  /// Sorts the entries by descending value of their pointers.
  ///
  /// Caution: not by length, whatever the name says; hosts that want the order of lengths add with
  ///   `AddElementSortTotalGeometryLengthDesc`.
  void SortOnTotalLengthDesc();

  /// Destroys every contour and empties the list; the plain `clear` only forgets.
  void ClearWithContent();

  /// Sets `lengths` to the total lengths in list order, host's length unit; null entries have none.
  void GetTotalGeometryLengthList(std::list<double>& lengths) const;

  /// Numbers the contours 1, 2, 3 ... in list order. A null entry spends its number.
  void ReNumberGXLAContourList();

  /// The first entry with the geometry of `contour` by the short form of
  /// `GXLAContour::HaveSameGeometry`, which writes `reversed` and `startPosition`, the position in
  /// the entry that lies on position 0 of `contour`. The list keeps owning it.
  ///
  /// Returns: null where there is none or a null entry comes before it. The outputs then stay as
  ///   before, and so they do for open contours.
  GXLAContour* GetSameGeometryContour(GXLAContour& contour,
                                      GXLAContour::eReversedGeometry& reversed, int& startPosition,
                                      GXLAContour::eNmbSegmentsMode mode,
                                      GXLATolerances& tolerances) const;

  /// Whether each contour of the first list has a partner of its own with the same geometry in the
  /// second, in any order; each takes the first partner that is still free.
  ///
  /// Degenerate: two empty lists are the same, lists of different sizes are not. A null entry that
  ///   the search meets gives false.
  static bool HaveSameGeometry(GXLAContourList& first, GXLAContourList& second,
                               GXLAContour::eNmbSegmentsMode mode, GXLATolerances& tolerances);
};

/// Groups of instances by shape, ordered by the value of the shape's pointer. Owns nothing, copies
/// the map.
///
/// Caution: the order of the groups differs from run to run; sort by a key of your own before
///   printing.
class KTRCL_GEOMETRY_EXPORT GXLAContourManager
    : public std::map<GXLAContour*, GXLAContourInstanceRefList> {
 public:
  GXLAContourManager();
  GXLAContourManager(const GXLAContourManager& other);
  GXLAContourManager& operator=(const GXLAContourManager& other);
  ~GXLAContourManager();

  /// The number of instances in all groups; the number of groups is the map's size.
  int CountNmbContourInstances() const;
};
