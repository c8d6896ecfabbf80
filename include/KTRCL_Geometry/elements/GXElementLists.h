// The containers of elements. A class whose name says `Ref` borrows its pointers, every other
// pointer list owns what it holds. The sequence itself is the public standard container; copying a
// list copies the pointers, so exactly one holder may destroy the shared objects.
#pragma once

#include <KTRCL_Geometry/Export.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <deque>
#include <list>

class GX3DElmList;
class GX3DPointBoolPairList;
class GXBoundBox;

/// Owning, ordered list of 2D elements: a contour. Hosts push, erase and walk through the public
/// container; nothing sorts the list.
///
///     GX2DElmList contour;
///     contour.push_back(new GX2DLine(0, 0, 1, 0));  // owned from here on
///     contour.push_back(new GX2DLine(1, 0, 0, 0));
///     contour.IsClosed(0.0001);                     // true
class KTRCL_GEOMETRY_EXPORT GX2DElmList : public std::deque<GX2DElement*> {
 public:
  /// The empty list.
  GX2DElmList();

  /// Copies the sequence.
  ///
  /// Caution: copies the pointers, so both lists name the same elements. One of the two is to be
  ///   emptied with the plain `clear` before it is destroyed; `Clone` makes a list of its own.
  GX2DElmList(const GX2DElmList& other);

  /// Copies the pointers, as above, and forgets what the list held without destroying it.
  GX2DElmList& operator=(const GX2DElmList& other);

  /// @name Virtual operations: their order is part of the binary interface

  /// Destroys the elements.
  virtual ~GX2DElmList();

  /// Lets every element accept the visitor, in order. Returns: false, at once, when an element
  /// answers false; true otherwise. A visitor that was stopped ends the walk behind the current
  /// element.
  ///
  /// Degenerate: true for an empty list; null entries are passed over.
  virtual bool Accept(GX2DElementVisitor& visitor);

  /// Destroys every element, from the front, and empties the list. The inherited `clear` only
  /// forgets.
  virtual void ClearWithContents();

  /// As the form by reference; with a null pointer nothing happens and the list keeps its
  /// elements.
  virtual void Clone(const GX3DElmList* const& source, const int& plane);

  /// As the form by reference; with a null pointer nothing happens and the list keeps its
  /// elements.
  virtual void Clone(const GX2DElmList* const& source);

  /// Replaces the contents by flattened copies of the points, lines and arcs of `source`, in
  /// order; other kinds are passed over. For the plane selector see `GX2DPoint`.
  virtual void Clone(const GX3DElmList& source, const int& plane);

  /// Replaces the contents by copies of the elements of `source`, in order, rectangles included.
  /// The source may be this list or share its elements: copies are made before anything is
  /// destroyed.
  virtual void Clone(const GX2DElmList& source);

  /// Adds copies of the elements of `list` at the back; `list` is untouched. A list appended to
  /// itself is doubled, a null pointer adds nothing.
  virtual void Append(GX2DElmList* const& list);

  /// Adds a line from the end of the last element to the start of the first one of `list`, copies
  /// of the elements of `list`, and a line from the last of them back to the start of this list.
  ///
  /// Degenerate: with `list` null or empty only the closing line is added; with this list empty
  ///   the line in front is left out. A rectangle has its ends at the origin here.
  /// Caution: both lines are always added, also where the ends meet already and the line has
  ///   length zero.
  virtual void Connect(GX2DElmList* const& list);

  /// Whether the end of the last element lies on the start of the first. One point, rectangle or
  /// full circle alone is closed.
  ///
  /// Tolerance: `tol` on each coordinate, inclusive.
  /// Degenerate: false for an empty list.
  virtual bool IsClosed(const double& tol) const;

  /// Whether every element ends where the next one starts. The seam from last to first is not
  /// asked: an open chain is fully connected.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  /// Degenerate: true for an empty list and a single element; a null entry among several is
  ///   connected to nothing.
  virtual bool IsFullyConnected() const;

  /// Reorders the elements into a chain, turning lines and arcs where needed; creates and destroys
  /// none -- src/elements/ContourHealing.cpp.
  ///
  /// The front element begins. Next comes, each time, the earliest of the remaining elements that
  /// touches the end of the one before, turned so that it starts there; where none does, the front
  /// one of the remaining comes as it stands. A point that lies at the end is taken like a line,
  /// and a rectangle counts as a point at the origin; nothing is ever taken behind one of them.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  /// Degenerate: null entries and ends that are NaN touch nothing.
  /// Cost: near-linear, unless very many ends lie within a few tolerances of one another and do not
  ///   coincide; at most quadratic.
  ///   Should memory run out, the list keeps its elements, in their old order.
  /// Caution: when the first element is touched only at its start, it is turned round, but the next
  ///   one is then simply the front one of the remaining, whether it touches or not.
  virtual void MakeConnectingElements();

  /// Makes neighbouring ends that coincide exactly equal: each element in turn hands its end on to
  /// the next one, the last to the first. Nothing is inserted or removed; arcs keep centre and
  /// middle.
  ///
  /// The first pair of ends that coincides is taken, in the order start-start, start-end,
  /// end-start, end-end; where the next element is an arc, both ends of the element are looked at,
  /// so that two ends may move. Points have one place for both ends. Rectangles and null entries
  /// take no part.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  /// Caution: the earlier element wins. On a closed chain the last element moves the start of the
  ///   first one. A single arc whose ends coincide gets its end for its start.
  virtual void MakeAlmostEqualPointsEqual();

  /// Destroys and erases every point.
  virtual void RemovePoints();

  /// Makes a closed chain: `RemovePoints`, `MakeConnectingElements` (virtual calls), then a new
  /// line, owned by the list, in every gap from the end of one line or arc to the start of the
  /// next, the last to the first. Gaps of any size are bridged; other kinds are passed over.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  /// Degenerate: ends that are not finite are never bridged.
  /// Caution: between a line and an arc behind it the *start* of the line is held against the start
  ///   of the arc. A line that ends where the arc starts thus gets a bridge of length zero, as does
  ///   a bridge in front of an arc; a line that starts where the arc starts gets none, however far
  ///   its end is.
  /// Caution: the line from the last element to the first lands at the front of the list.
  virtual void MakeClosed();

  /// Appends one line from the free end of the last element to that of the first, unless they
  /// coincide. The free end is the one that the neighbour inside the chain does not share, so
  /// elements need not all run the same way. Nothing is reordered; gaps inside the chain stay.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  /// Degenerate: with fewer than two elements nothing happens. Other kinds than lines and arcs
  ///   count as a line at the origin.
  /// Caution: where the neighbour shares no end, the ends are held against the origin instead.
  virtual void CloseBeginEndIfNeeded();

  /// Opens folds: two consecutive lines that leave a common end in the same direction, one along
  /// the other. The shorter one (the earlier when equally long) gives way: its far end, and the
  /// neighbour on its far side, move by `fraction` times the length of that neighbour --
  /// `ModifyPntForRepair`. Nothing happens where the neighbour is no line. The pair of last and
  /// first is not looked at.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive, for common ends; the far end must lie
  ///   strictly inside the other line (`GXGeometry::Point2DOnClosedLine` gives 1).
  /// Caution: corners move outwards in 2D and inwards in 3D.
  virtual void RepairLines(const double& fraction);

  /// `GX2DElement::Translate` of every element, in order. So with all transforms below; null
  /// entries are passed over, and arguments may belong to an element of the list.
  virtual void Translate(const double& dx, const double& dy);

  /// `GX2DElement::Scale` of every element.
  virtual void Scale(const double& factor, const int& decimals);

  /// `GX2DElement::ScaleX` of every element.
  virtual void ScaleX(const double& factor, const int& decimals);

  /// `GX2DElement::ScaleY` of every element.
  virtual void ScaleY(const double& factor, const int& decimals);

  /// `GX2DElement::RotateAxis` of every element: degrees, and rectangles stay.
  virtual void RotateAxis(const GX2DPoint& centre, const double& degrees);

  /// `GX2DElement::MirrorX` of every element.
  virtual void MirrorX();

  /// `GX2DElement::MirrorY` of every element.
  virtual void MirrorY();

  /// Reverses every element, then their order: a connected chain stays connected and runs the
  /// other way.
  virtual void Reverse();

  /// Smallest X of the elements; an empty list gives the largest finite double.
  virtual double GetMinX() const;

  /// Largest X of the elements; an empty list gives the lowest finite double, which is below its
  /// `GetMinX`.
  virtual double GetMaxX() const;

  /// As `GetMinX`, in Y.
  virtual double GetMinY() const;

  /// As `GetMaxX`, in Y.
  virtual double GetMaxY() const;

  /// Appends every element to `list` as lines, in chain order; see `GX2DElement::AddAsPolygon`.
  /// What `list` holds stays in front; it may be this list -- src/elements/ArcPolygons.cpp.
  ///
  /// Caution: runs `MakeConnectingElements` on this list first, so it is itself reordered and its
  ///   elements are turned.
  virtual void AddAsPolygon(GX2DElmList& list);

  /// First entry that is this very pointer, or `end()`. Linear.
  virtual iterator Find(GX2DElement* const& element);

  /// Stores each element, in order, in a child of its own named "POINT", "LINE", "RECT" or "ARC":
  /// in a new child of `paragraph` named `key`, or in `paragraph` itself where `key` is empty.
  /// Other kinds are skipped -- src/elements/Persistence.cpp. The last argument is not used.
  /// Requires: `paragraph` is not null.
  virtual void Write(const GXString& key, GXParagraph* const& paragraph, const int& unused);

  /// Replaces the contents by the elements stored in the child of `paragraph` named `key`, or in
  /// `paragraph` itself where `key` is empty. Children of other names are skipped.
  ///
  /// Degenerate: without paragraph or child the list stays as it is.
  /// Caution: the old elements are destroyed, also when the paragraph holds none; elements
  ///   themselves only overwrite what they find.
  virtual void Read(const GXString& key, GXParagraph* const& paragraph, const int& unused);

 protected:
  /// Moves the joint `p` of a line and its neighbour outwards: away from the far end of the
  /// neighbour by `fraction` (a share, not a distance) of the neighbour's length.
  ///
  /// Tolerance: 0.0001. A neighbour no longer than that changes nothing.
  /// Caution: where `p` is not the start of a line, its end is moved, even when `p` is on neither.
  virtual void ModifyPntForRepair(GX2DLine& line, GX2DLine& neighbour, const GX2DPoint& p,
                                  const double& fraction);

 public:
  /// @name Queries

  /// Writes the extent of the list, with Z 0.
  ///
  /// Caution: an empty list writes an inverted box.
  void GetBoundBox(GXBoundBox& box) const;

  /// Steps forward, from the last entry to the first. Returns: false, with `it` untouched, for an
  /// empty list.
  bool GetNextCircularIterator(iterator& it);

  /// Steps back, from the first entry to the last. Returns: false, with `it` untouched, for an
  /// empty list.
  bool GetPreviousCircularIterator(iterator& it);
};

/// Owning, ordered list of 3D elements. It deliberately lacks the walk, the joining and the
/// queries of its flat twin.
class KTRCL_GEOMETRY_EXPORT GX3DElmList : public std::deque<GX3DElement*> {
 public:
  /// The empty list.
  GX3DElmList();

  /// Copies the sequence.
  ///
  /// Caution: copies the pointers, so both lists name the same elements. One of the two is to be
  ///   emptied with the plain `clear` before it is destroyed; `Clone` makes a list of its own.
  GX3DElmList(const GX3DElmList& other);

  /// Copies the pointers, as above, and forgets what the list held without destroying it.
  GX3DElmList& operator=(const GX3DElmList& other);

  /// @name Virtual operations: their order is part of the binary interface

  /// Destroys the elements.
  virtual ~GX3DElmList();

  /// Destroys every element, from the front, and empties the list. The inherited `clear` only
  /// forgets.
  virtual void ClearWithContents();

  /// Replaces the contents by copies of the points, lines and arcs of `source`, in order; other
  /// kinds are passed over. With a null pointer nothing happens. The source may be this list.
  virtual void Clone(GX3DElmList* const& source);

  /// Replaces the contents by the points, lines and arcs of `source`, raised into space. With a
  /// null pointer nothing happens. For the plane selector see `GX3DPoint`.
  ///
  /// Caution: rectangles have no counterpart in space and are dropped without a word.
  virtual void Clone(GX2DElmList* const& source, const int& plane);

  /// Smallest X of the elements; an empty list gives the largest finite double.
  virtual double GetMinX() const;

  /// Largest X of the elements; an empty list gives the lowest finite double.
  virtual double GetMaxX() const;

  /// As `GetMinX`, in Y.
  virtual double GetMinY() const;

  /// As `GetMaxX`, in Y.
  virtual double GetMaxY() const;

  /// As `GetMinX`, in Z.
  virtual double GetMinZ() const;

  /// As `GetMaxX`, in Z.
  virtual double GetMaxZ() const;

  /// `GX3DElement::RotateX` of every element, radians. In all transforms null entries are passed
  /// over, and arguments may belong to an element of the list.
  virtual void RotateX(const double& radians);

  /// `GX3DElement::RotateY` of every element, radians.
  virtual void RotateY(const double& radians);

  /// `GX3DElement::RotateZ` of every element, radians.
  virtual void RotateZ(const double& radians);

  /// `GX3DElement::RotateAxis` of every element, radians.
  virtual void RotateAxis(const GX3DLine& axis, const double& radians);

  /// `GX3DElement::Rotate` of every element.
  virtual void Rotate(const GXRotation& rotation);

  /// `GX3DElement::MirrorXY` of every element.
  virtual void MirrorXY();

  /// `GX3DElement::MirrorYZ` of every element.
  virtual void MirrorYZ();

  /// `GX3DElement::MirrorXZ` of every element.
  virtual void MirrorXZ();

  /// Destroys and erases every point -- src/elements/ContourHealing.cpp.
  virtual void RemovePoints();

  /// Destroys and erases later elements that repeat an earlier line or arc: lines with the same
  /// ends, in the same or in swapped order; arcs with the same centre, the same ends in either
  /// order, and the same normal. A line is never compared with an arc.
  ///
  /// Tolerance: 0.0001 on each coordinate and on each component of the unit normals, inclusive.
  /// Cost: near-linear, unless very many elements that are no duplicates lie together at both of
  ///   their ends; at most quadratic.
  /// Caution: an arc that runs the other way has swapped ends and the opposite normal, and stays;
  ///   the other part of the same circle has swapped ends and the same normal, and goes.
  virtual void RemoveDuplicates();

  /// As `GX2DElmList::MakeConnectingElements`, with a foreign kind in the place of the rectangle.
  ///
  /// Caution: every common end is looked at here, in 2D only the first that is found; for elements
  ///   shorter than the tolerance the next one may therefore be turned differently.
  virtual void MakeConnectingElements();

  /// As `GX2DElmList::MakeAlmostEqualPointsEqual`.
  virtual void MakeAlmostEqualPointsEqual();

  /// `GX3DElement::Translate` of every element.
  virtual void Translate(const GXVector& v);

  /// `GX3DElement::Scale` of every element, never rounding: unlike the 2D list this one takes no
  /// number of decimals.
  virtual void Scale(const double& factor);

  /// `GX3DElement::ScaleX` of every element, never rounding.
  virtual void ScaleX(const double& factor);

  /// `GX3DElement::ScaleY` of every element, never rounding.
  virtual void ScaleY(const double& factor);

  /// `GX3DElement::ScaleZ` of every element, never rounding.
  virtual void ScaleZ(const double& factor);

  /// `GX3DElement::TransformGloLoc` of every element.
  virtual void TransformGloLoc(const GX3DPoint& origin, const GXMatrix& m);

  /// `GX3DElement::TransformGloLoc` of every element, with a frame matrix.
  virtual void TransformGloLoc(const GX3DPoint& origin, const GXColBasedTransformMatrix& m);

  /// `GX3DElement::TransformLocGlo` of every element; the matrix is applied as it stands.
  virtual void TransformLocGlo(const GX3DPoint& origin, const GXMatrix& m);

  /// `GX3DElement::TransformLocGlo` of every element, with a frame matrix as it stands.
  virtual void TransformLocGlo(const GX3DPoint& origin, const GXColBasedTransformMatrix& m);

  /// Adds copies of the points, lines and arcs of `list` at the back; `list` is untouched and may
  /// be this one. A null pointer adds nothing.
  virtual void Append(GX3DElmList* const& list);

  /// Stores each element, in order, in a child of its own named "POINT", "LINE" or "ARC": in a new
  /// child of `paragraph` named `key`, or in `paragraph` itself where `key` is empty. Other kinds
  /// are skipped -- src/elements/Persistence.cpp. The last argument is not used.
  /// Requires: `paragraph` is not null.
  virtual void Write(const GXString& key, GXParagraph* const& paragraph, const int& unused);

  /// Replaces the contents by the elements stored in the child of `paragraph` named `key`, or in
  /// `paragraph` itself where `key` is empty. Children of other names, "RECT" included, are
  /// skipped.
  ///
  /// Degenerate: without paragraph or child the list stays as it is.
  /// Caution: the old elements are destroyed, also when the paragraph holds none; elements
  ///   themselves only overwrite what they find.
  virtual void Read(const GXString& key, GXParagraph* const& paragraph, const int& unused);

  /// Erases null entries, and destroys and erases every element whose `IsActuallyAPoint` holds:
  /// each point, a line whose ends coincide, an arc with hardly a radius (a full circle stays).
  virtual void EliminateElmsActuallyPoint();

  /// As `GX2DElmList::MakeClosed`, the row of line and arc and the closing line at the front
  /// included.
  virtual void MakeClosed();

  /// As `GX2DElmList::CloseBeginEndIfNeeded` for three elements and more.
  ///
  /// Two elements that share one end get a line between their other ends: at the back, but between
  /// the two where the first one's start meets the second one's end. Two that share both ends stay.
  /// Caution: two that share no end get one line, from the end of the first to the start of the
  ///   second and between them, and remain open.
  virtual void CloseBeginEndIfNeeded();

  /// As `GX2DElmList::RepairLines`.
  ///
  /// Caution: corners move inwards in 3D and outwards in 2D.
  virtual void RepairLines(const double& fraction);

  /// Appends a polygon of the contour to `out`, which is not cleared: the ends of lines and arcs
  /// with false, points made on arcs with true. The start of an element is appended only while
  /// `out` is empty. An arc is walked in equal steps, their number rounded up, of at most 5 degrees
  /// and of a sag of at most 5 length units. When `out` then holds more than two points and the
  /// last coincides with the first, the last one is removed.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  /// Degenerate: steps in excess of 72 per arc, which only radii above 5000 need, are limited to a
  ///   million for the whole call.
  /// Caution: an arc of a single step or none adds no point of its own, not even its end: callers
  ///   get that place from the start of what follows, and at the end of a contour it is absent.
  virtual void ConvertTo3DPointList(GX3DPointBoolPairList& out);

 protected:
  /// As `GX2DElmList::ModifyPntForRepair`.
  ///
  /// Caution: moves the joint inwards, along the neighbour, where the 2D twin moves it outwards.
  virtual void ModifyPntForRepair(GX3DLine& line, GX3DLine& neighbour, const GX3DPoint& p,
                                  const double& fraction);
};

/// Borrowed 2D points. The destructor is not virtual and frees only the queue.
class KTRCL_GEOMETRY_EXPORT GX2DPointRefList : public std::deque<GX2DPoint*> {
 public:
  /// The empty list.
  GX2DPointRefList();

  /// Copies the pointers.
  GX2DPointRefList(const GX2DPointRefList& other);

  /// Copies the pointers.
  GX2DPointRefList& operator=(const GX2DPointRefList& other);
  ~GX2DPointRefList();

  /// @name Virtual operations: their order is part of the binary interface

  /// Smallest X of the points; an empty list gives the largest finite double.
  virtual double GetMinX() const;

  /// Largest X of the points; an empty list gives the lowest finite double.
  virtual double GetMaxX() const;

  /// As `GetMinX`, in Y.
  virtual double GetMinY() const;

  /// As `GetMaxX`, in Y.
  virtual double GetMaxY() const;

  /// Whether a point of the list coincides with `p` at `tol` (each coordinate, inclusive); with
  /// `byValue` false, whether the very object `p` is in the list. Linear.
  bool ContainsPoint(GX2DPoint& p, bool byValue, double tol) const;
};

/// Owning list of 2D points.
///
/// Caution: the base has no virtual destructor. Do not destroy this list through it.
class KTRCL_GEOMETRY_EXPORT GX2DPointList : public GX2DPointRefList {
 public:
  /// The empty list.
  GX2DPointList();

  /// Copies the sequence.
  ///
  /// Caution: copies the pointers, so both lists name the same points. One of the two is to be
  ///   emptied with the plain `clear` before it is destroyed.
  GX2DPointList(const GX2DPointList& other);

  /// Copies the pointers, as above, and forgets what the list held without destroying it.
  GX2DPointList& operator=(const GX2DPointList& other);

  /// @name Further virtual operations: their order is part of the binary interface

  /// Destroys the points.
  virtual ~GX2DPointList();

  /// Destroys every point and empties the list. The inherited `clear` only forgets.
  virtual void ClearWithContents();

  /// Destroys and erases every point that coincides with `p`, which may itself be one of them.
  /// Linear.
  ///
  /// Tolerance: `tol` on each coordinate, inclusive.
  void RemovePointWithValue(GX2DPoint& p, const double& tol);
};

/// Owning list of 2D lines.
class KTRCL_GEOMETRY_EXPORT GX2DLineList : public std::deque<GX2DLine*> {
 public:
  /// The empty list.
  GX2DLineList();

  /// Copies the sequence.
  ///
  /// Caution: copies the pointers, so both lists name the same lines. One of the two is to be
  ///   emptied with the plain `clear` before it is destroyed; `CloneFrom` makes a list of its own.
  GX2DLineList(const GX2DLineList& other);

  /// Copies the pointers, as above, and forgets what the list held without destroying it.
  GX2DLineList& operator=(const GX2DLineList& other);

  /// @name Virtual operations: their order is part of the binary interface

  /// Destroys the lines.
  virtual ~GX2DLineList();

  /// Destroys every line and empties the list. The inherited `clear` only forgets.
  virtual void ClearWithContents();

  /// Replaces the contents by copies of the lines of `source`, which may be this list.
  virtual void CloneFrom(const GX2DLineList& source);
};

/// Borrowed element lists.
class KTRCL_GEOMETRY_EXPORT GX2DElmListRefList : public std::list<GX2DElmList*> {
 public:
  /// The empty list.
  GX2DElmListRefList();

  /// Copies the pointers.
  GX2DElmListRefList(const GX2DElmListRefList& other);

  /// Copies the pointers.
  GX2DElmListRefList& operator=(const GX2DElmListRefList& other);

  /// @name Virtual operations: their order is part of the binary interface

  /// Leaves the element lists alone.
  virtual ~GX2DElmListRefList();

  /// Lets every list accept the visitor. Always true.
  ///
  /// Caution: results and the stop flag are not looked at, so a stopped visitor only ends the walk
  ///   over the list it stands in and is shown one element of each that follows.
  virtual bool Accept(GX2DElementVisitor& visitor);
};

/// Owning list of element lists.
class KTRCL_GEOMETRY_EXPORT GX2DElmListList : public GX2DElmListRefList {
 public:
  /// The empty list.
  GX2DElmListList();

  /// Copies the sequence.
  ///
  /// Caution: copies the pointers, so both lists name the same element lists. One of the two is to
  ///   be emptied with the plain `clear` before it is destroyed.
  GX2DElmListList(const GX2DElmListList& other);

  /// Copies the pointers, as above, and forgets what the list held without destroying it.
  GX2DElmListList& operator=(const GX2DElmListList& other);

  /// @name Virtual operations: their order is part of the binary interface

  /// Destroys the element lists with their elements.
  ~GX2DElmListList() override;

  /// Destroys every element list with its elements and empties this one. The inherited `clear`
  /// only forgets.
  virtual void ClearWithContents();
};

/// 3D points by value.
class KTRCL_GEOMETRY_EXPORT GX3DPointList : public std::list<GX3DPoint> {};

/// 3D points with a flag, by value; see `GX3DElmList::ConvertTo3DPointList`.
class KTRCL_GEOMETRY_EXPORT GX3DPointBoolPairList : public std::list<GX3DPointBoolPair> {};
