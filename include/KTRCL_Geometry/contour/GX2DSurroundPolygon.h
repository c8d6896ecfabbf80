// A ring of points around a closed contour, on which hosts look for extremes and cut with straight
// lines.
#pragma once

#include <KTRCL_Geometry/Export.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <list>
#include <utility>
#include <vector>

class GXProblemList;

/// A vertex of the ring.
///
/// Caution: copying and assigning copy the pointer, not the point. Only one of the two may be
///   destroyed, and the copy must not outlive its source; assignment forgets what was held.
class KTRCL_GEOMETRY_EXPORT GX2DSurroundPoint {
 public:
  /// A vertex without a position.
  GX2DSurroundPoint();
  GX2DSurroundPoint(const GX2DSurroundPoint& other);
  GX2DSurroundPoint& operator=(const GX2DSurroundPoint& other);

  /// @name Virtual operations: their order is part of the binary interface
  /// Destroys the position and forgets the elements.
  virtual ~GX2DSurroundPoint();

  GX2DPoint* Point;      ///< Position, owned; null until set.
  GX2DElmList Elements;  ///< Elements of the source list that meet here, borrowed.
};

/// The vertices around a closed contour, in list order: the ends of its lines, and for each arc its
/// ends and what the tangents at its ends and its circumscribed square give: crossings of the two,
/// and the extreme points of its circle. It is neither a convex hull nor an envelope.
///
/// Caution: quarter circles between level and upright lines, and arcs over exactly one extreme
///   point, are enclosed by their vertices. Half circles, arcs over two extreme points and narrow
///   arcs reach outside.
///
/// Queries walk a stretch of the ring, from `first` up to but not including `last`, and from the
/// end of the vector on to its beginning, unless `last` is the end itself. With `whole` and `first
/// == last` the stretch is the whole ring, without `whole` it is empty; every walk also ends on the
/// end of the vector. Iterators belong to this vector; outputs may be the same variables.
///
///     GX2DSurroundPolygon ring;
///     ring.ConstructFrom2DElmList(contour, nullptr);
///     auto first = ring.begin(), last = ring.end(), left = ring.end();
///     ring.GetMinLeft(first, last, false, left);  // ring.end() on an empty ring
///
/// Ownership: the ring owns its vertices and borrows the source list, which must outlive it.
/// Copying and assigning copy pointers: exactly one holder may be destroyed filled, and assignment
/// forgets what the receiver held. The inherited `clear` only forgets.
class KTRCL_GEOMETRY_EXPORT GX2DSurroundPolygon : public std::vector<GX2DSurroundPoint*> {
 public:
  /// Candidates for the vertices of one arc, owned, each with its angle clockwise from the start of
  /// the arc, in degrees.
  using ArcPoints = std::list<std::pair<double, GX2DPoint*>>;

  /// An empty ring without a source list.
  GX2DSurroundPolygon();
  GX2DSurroundPolygon(const GX2DSurroundPolygon& other);
  GX2DSurroundPolygon& operator=(const GX2DSurroundPolygon& other);

  /// @name Virtual operations: their order is part of the binary interface

  /// Destroys the vertices.
  virtual ~GX2DSurroundPolygon();

  /// Adds the vertices of a contour to the ring and makes `list` the source list. Always true. The
  /// problem list is not used and may be null.
  ///
  /// Lines and arcs of `list` are turned, where they end at the joint with the one before, so that
  /// they run in list order. Positions that coincide within 0.0001 on each coordinate are one
  /// vertex, which lists every element that meets there.
  ///
  /// Degenerate: other kinds and null entries are passed over.
  /// Caution: the ring is not cleared first; a second contour is merged into the first.
  /// Caution: without a joint the origin is taken for one. Where two elements share both ends, the
  ///   end of the later one counts as the joint, so that both are turned.
  /// Caution: in front of the first element stands the last entry of the list, of whatever kind.
  /// Caution: the closing vertex lists the last line in front of the first, if that line is the
  /// last
  ///   entry. An arc is put in front at its end, unless an extreme point of its circle, which goes
  ///   to the back, lies there.
  virtual bool ConstructFrom2DElmList(GX2DElmList& list, GXProblemList* const& problems);

  /// Of the vertices with an x strictly below `x` the highest, and of those within 0.00001 in
  /// height the rightmost; the end where there is none. Always true.
  ///
  /// Caution: heights are held against the best so far, so that a slanted run of close points can
  ///   creep.
  virtual bool GetTopMaxRightLeftFromX(iterator& first, iterator& last, const bool& whole,
                                       iterator& result, const double& x);

  /// Of the vertices with an x strictly above `x` the highest, and of those within 0.00001 in
  /// height the leftmost; the end where there is none. Always true.
  ///
  /// Caution: creeps as `GetTopMaxRightLeftFromX`.
  virtual bool GetTopMinLeftRightFromX(iterator& first, iterator& last, const bool& whole,
                                       iterator& result, const double& x);

  /// Leftmost and rightmost vertex of the highest level; the end for an empty stretch. Always true.
  ///
  /// Tolerance: 0.00001 in height, inclusive.
  /// Caution: the level moves with the left vertex, so that a slanted run of close points can
  /// creep.
  virtual bool GetTopMinLeftMaxRight(iterator& first, iterator& last, const bool& whole,
                                     iterator& left, iterator& right);

  /// Leftmost vertex, of equal ones the first, compared exactly; the end for an empty stretch.
  /// Always true.
  virtual bool GetMinLeft(iterator& first, iterator& last, const bool& whole, iterator& result);

  /// Rightmost vertex, of equal ones the first, compared exactly; the end for an empty stretch.
  /// Always true.
  virtual bool GetMaxRight(iterator& first, iterator& last, const bool& whole, iterator& result);

  /// Leftmost and rightmost vertex of the lowest level, as `GetTopMinLeftMaxRight`.
  virtual bool GetBottomMinLeftMaxRight(iterator& first, iterator& last, const bool& whole,
                                        iterator& left, iterator& right);

  /// Takes level runs off both ends of a stretch, which `last` belongs to here: `first` moves
  /// forward to the last vertex of equal height, but not past `last`; `last` moves back to the
  /// first one of equal height, but no nearer than two vertices behind the new `first`. Always
  /// true.
  ///
  /// Tolerance: 0.00001 in height, inclusive, against the vertex the run started from.
  /// Degenerate: nothing changes on an empty ring. A `first` or `last` that is the end of the
  ///   vector stands for its beginning.
  /// Caution: where the new `first` is the last vertex of the vector and the vertices from the
  ///   beginning up to `last` are level, `last` becomes the second vertex of the vector, also
  ///   where it was the first one (the end on a ring of one vertex).
  /// Caution: where all of the stretch is level, the new `first` is the old `last`, and `last` goes
  ///   on back from there, beyond the old `first` if that is level too.
  virtual bool GetTrimEqualInY(iterator& first, iterator& last);

  /// Smallest and largest x at which a stretch meets a height: at vertices of that height and where
  /// the ring passes through it.
  ///
  /// Returns: false for an empty ring, otherwise true.
  /// Tolerance: 0.00001 in height, inclusive.
  /// Degenerate: where nothing is met, `minX` is the largest and `maxX` the lowest double, on an
  ///   empty ring too.
  /// Caution: the segment from the last vertex of the stretch back to its first is not looked at.
  virtual bool GetMinLeftMaxRightAtY(const double& y, iterator& first, iterator& last,
                                     const bool& whole, double& minX, double& maxX);

  /// Destroys the vertices, from the front, and empties the ring. The source list stays named.
  virtual void ClearWithContents();

  /// Appends the points where an unbounded line meets the segments of a stretch, the one that ends
  /// at `last` included; `hits` owns them.
  ///
  /// Returns: whether `hits` holds anything; false for a ring with fewer than two vertices.
  /// Tolerance: parameter on the segment from 0 to 1 give or take 0.00001, inclusive.
  /// Degenerate: a `first` that is the end of the vector stands for its beginning. Behind the last
  ///   vertex of the vector the walk goes on at the first one, also where `last` is the end.
  /// Caution: `hits` is not cleared first. A vertex on the line is found with both its segments.
  /// Caution: an empty stretch has a segment of length zero at `last`; any line that is not upright
  ///   is found to meet it at that x.
  virtual bool GetConstrLineIntersection(iterator& first, iterator& last, const bool& whole,
                                         const GX2DLine& line, GX2DElmList& hits);

  /// The source list; null before the first `ConstructFrom2DElmList`.
  virtual GX2DElmList* GetOrigElmList() const;

 protected:
  /// Takes over `candidate` and puts it among the candidates of the arc, or destroys it: where it
  /// is not on the arc by `PointParametricOnArc` (0 to 1 give or take 0.00001), within 0.0001 of a
  /// corner of the circumscribed square whose flag is false, outside the square by more than
  /// 0.00001, or where a candidate with exactly its angle is there already.
  ///
  /// Degenerate: a null candidate adds nothing.
  virtual void AddArcPoint(GX2DArc& arc, GX2DPoint* const& candidate, ArcPoints& points,
                           const bool& keepTopLeft, const bool& keepTopRight,
                           const bool& keepBottomLeft, const bool& keepBottomRight);

  /// Puts an element at the vertex within 0.0001 of `position`, the first there is, or at a new
  /// vertex behind all others: at the back of its elements with `append`, otherwise at the front,
  /// and once only.
  virtual void AddPoint(GX2DPoint& position, GX2DElement* const& element, const bool& append);

 public:
  GX2DElmList* OrigElmList;  ///< The source list, borrowed.
};
