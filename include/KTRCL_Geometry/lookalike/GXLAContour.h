// The comparable form of one contour: header figures and a position-free sequence of segment
// lengths and vertex angles.
#pragma once

#include <KTRCL_DataTypes/GXEvent.h>
#include <KTRCL_DataTypes/GXIntList.h>
#include <KTRCL_DataTypes/GXString.h>
#include <KTRCL_Geometry/Export.h>
#include <KTRCL_Geometry/lookalike/GXLAElements.h>

#include <list>
#include <vector>

/// A contour as a sequence s0, a0, s1, a1, ... of segments (even positions) and the angles behind
/// them (odd positions); a closed contour of n segments has 2n elements, an open one 2n-1. A
/// position is an index in this sequence.
///
/// Ownership: the contour owns its elements, but copying and assigning copy the pointers. Of all
/// holders of the same elements exactly one may be destroyed filled; the others are emptied with
/// the sequence's plain `clear` first.
///
/// Requires: segments at even and angles at odd positions. Another order, null entries and classes
/// of the host's own are read safely, but a comparison that meets them answers false.
///
///     GXLAContour contour(true, GXLAContour::GXLADirectionCCW);
///     for (int side = 0; side < 4; ++side) {
///       GXLAElementLine* line = new GXLAElementLine(100.0);
///       contour.AddLineElement(line);
///       GXLAElementAngle* corner = new GXLAElementAngle(1.5707963267948966, 0.001);
///       contour.AddAngleElement(corner);
///     }
class KTRCL_GEOMETRY_EXPORT GXLAContour : public GXLAContourParameters,
                                          public std::vector<GXLAElement*> {
 public:
  /// What is compared.
  enum eNmbSegmentsMode {
    /// Numbers of lines and arcs and the total angle must agree, then element by element.
    eNmbSegmentsEqual = 0,
    /// Only closed flag and total length must agree; sequences of different sizes may pass on their
    /// long segments alone.
    eNmbSegmentsMayDiffer = 1,
  };

  /// In which sense the second contour was walked.
  enum eReversedGeometry {
    eGeometryNotSet = 0,    ///< No walk decided: nothing matched, or the long segments alone.
    eGeometryForward = 1,   ///< The forward walk matched.
    eGeometryBackward = 2,  ///< The backward walk matched.
  };

  int ContourIndex;  ///< Number of the contour in its list, from 1; -1 at first.

  /// @name Construction -- src/lookalike/GXLAContour.cpp
  /// An empty contour. An open one has no direction, whatever is handed in.
  GXLAContour(bool closed, GXLAContourDirection direction);

  /// Copies header, index and pointers; both contours then hold the same elements.
  GXLAContour(const GXLAContour& other);

  /// As copying. Caution: the elements that the receiver held are forgotten, not destroyed.
  GXLAContour& operator=(const GXLAContour& other);

  /// @name Virtual operations: their order is part of the binary interface
  /// Destroys the elements.
  ~GXLAContour() override;

  /// @name Filling

  /// Appends an element, which the contour then owns, and adds it to the header figures.
  ///
  /// Returns: false, and nothing changes, for a null pointer. When memory runs out the exception
  ///   passes, nothing changes and the element stays the caller's.
  bool AddLineElement(GXLAElementLine*& element);
  bool AddArcElement(GXLAElementArc*& element);
  bool AddAngleElement(GXLAElementAngle*& element);

  /// Counts and sums the elements anew. Closed flag, direction and index stay.
  void FillInGXLAContourHeaderData();

  /// Destroys all elements and empties the sequence. Caution: the header keeps its figures.
  void ClearWithContent();

  /// @name Header

  /// Whether the contour is closed; open is the opposite.
  bool IsClosed() const;
  bool IsOpen() const;

  /// Sets the closed flag. Caution: the direction stays, so a contour opened later keeps one.
  void SetLAContourClosed();
  void SetLAContourOpen();

  /// The stored sense of traversal.
  GXLAContourDirection GetContourDirection() const;
  bool IsContourDirectionCW() const;
  bool IsContourDirectionCCW() const;

  /// Stores a sense of traversal; the sequence is not turned round.
  void SetContourDirectionCW();
  void SetContourDirectionCCW();

  /// Clockwise becomes counter-clockwise and back; no direction stays none. The sequence stays.
  void InvertContourDirection();

  /// "CW", "CCW", or "---" for anything else.
  GXString GetContourDirectionAsString() const;

  /// Number of straight, and of circular, segments in the header.
  int GetNumberOfLines() const;
  int GetNumberOfArcs() const;

  /// Length of all segments in the header, host's length unit.
  double GetTotalGeometryLength() const;

  /// Sum of all angles in the header, radians.
  double GetTotalGeometryAngle() const;

  /// Number of the contour in its list; the list numbers from 1.
  void SetContourIndex(int index);
  int GetContourIndex() const;

  /// @name Circular steps

  /// Steps to the next element, from the last one to the first. The end is no resting place: from
  /// there a step goes to the second element, or to the only one. An iterator of an empty sequence
  /// stays.
  ///
  /// A reverse iterator steps the other way, from the first element to the last; from `rend()` it
  /// goes to the second last.
  void GetNextCircIt(iterator& it);
  void GetNextCircIt(reverse_iterator& it);
  void GetNextCircIt(const_iterator& it) const;
  void GetNextCircIt(const_reverse_iterator& it) const;

  /// @name Comparison -- src/lookalike/GXLAContour_Comparison.cpp
  ///
  /// Position, radius and start point of a contour play no part. Mirror images are different shapes
  /// unless the shape is symmetric; that one of two equal contours is drawn the other way round is
  /// found out by their directions.
  ///
  /// Each operation takes a trace that hears the reasons in words, one line for each firing; null
  /// for none. It changes no result. Lengths are compared with `ToleranceLengthMM`, angles with
  /// `ToleranceAngle`, both inclusive. No operation fails on bad input: positions outside a
  /// sequence, negative ones included, give false.

  /// Whether the contours have the same geometry, and from where on the one lies on the other.
  ///
  /// Given an equal header (`HaveSameGeometry_BasicChecks`), the longest segment of the reference,
  /// the first among those within 0.00001 of each other, is looked for in the second contour, and
  /// both are walked once around from each find: forward where the directions are equal, backward
  /// where they differ, never both. Two contours without direction count as equal.
  ///
  /// Returns: true when at least one walk matched. `startPositions` then holds every position of
  ///   the second contour that lies on `referencePosition` of the first, ascending: two for a
  ///   rectangle, four for a square. `reversed` tells how it was walked. Otherwise `reversed` is
  ///   `eGeometryNotSet`, `startPositions` is empty, and `referencePosition` is -1, or the
  ///   reference position where only the walks failed.
  ///
  /// Contours of different sizes in `eNmbSegmentsMayDiffer` are not walked: they match when each
  /// has at least two segments longer than 1.0 (strict) that make up 95 % of its length or more, as
  /// many of equal greatest length (ties within 0.00001), and these long segments pair off by
  /// length. `referencePosition` is then the first longest segment, `startPositions` all longest
  /// ones of the second, `reversed` `eGeometryNotSet`. At most 9998 long segments pair off; more
  /// give false.
  ///
  /// Caution: on the long segments alone neither angles nor order nor kinds count; a line can pair
  ///   with an arc.
  /// Caution: an open contour passes only where a walk that runs on from its last segment to its
  ///   first matches; in the other sense its angles are not negated, since it has no direction.
  /// Cost: each walk is linear and ends at the first difference; there are as many walks as the
  ///   second contour has segments like the longest one.
  static bool HaveSameGeometry(const GXLAContour& reference, const GXLAContour& second,
                               eReversedGeometry& reversed, int& referencePosition,
                               GXIntList& startPositions, eNmbSegmentsMode mode,
                               GXLATolerances& tolerances, GXEvent1Param<const GXString&>* trace);

  /// Whether the contours have the same geometry, and one start position.
  ///
  /// Closed contours are walked from the first element of the reference, which must be a segment,
  /// and from every element like it in the second contour in turn; the first match ends the search.
  ///
  /// Returns: true with the position of the second contour that lies on position 0 of the first in
  ///   `startPosition`, and the sense of the walk in `reversed`. Both stay as they were for false.
  /// Caution: open contours are true on the header figures alone, whatever the order of their
  ///   elements, with nothing written; set `reversed` before the call.
  /// Caution: long segments alone are not enough here: closed contours of different sizes are false
  ///   in either mode.
  static bool HaveSameGeometry(const GXLAContour& reference, const GXLAContour& second,
                               eReversedGeometry& reversed, int& startPosition,
                               eNmbSegmentsMode mode, GXLATolerances& tolerances,
                               GXEvent1Param<const GXString&>* trace);

  /// Whether the header figures agree, in this order: neither is empty; closed flags; in
  /// `eNmbSegmentsEqual` numbers of lines and of arcs; total length; in `eNmbSegmentsEqual` total
  /// angle, by `IsSameAngle`. The total angle of an open contour may also be that of the other one
  /// negated, as it is when drawn the other way round. The first failure is told to the trace and
  /// ends it.
  static bool HaveSameGeometry_BasicChecks(const GXLAContour& reference, const GXLAContour& second,
                                           eNmbSegmentsMode mode, GXLATolerances& tolerances,
                                           GXEvent1Param<const GXString&>* trace);

  /// Walks both sequences once around, from behind the two positions to the positions themselves,
  /// and stops at the first difference. Sequences of different sizes are false.
  ///
  /// Equal directions are walked forward, different ones backward in the second contour.
  /// Returns: true with the sense of the walk in `reversed`; for false it stays as it was.
  static bool HaveSameGeometryFromAnyPosition(const GXLAContour& reference,
                                              const GXLAContour& second, int referencePosition,
                                              int position, eReversedGeometry& reversed,
                                              GXLATolerances& tolerances,
                                              GXEvent1Param<const GXString&>* trace);

  /// For open contours: whether the second, read from its beginning, starts with the elements of
  /// the first. Closed flags, directions and sizes are not looked at.
  ///
  /// Degenerate: an empty reference is true; a second contour shorter than the reference is false.
  static bool HaveSameGeometryFromStartPositionStraight(const GXLAContour& reference,
                                                        const GXLAContour& second,
                                                        GXLATolerances& tolerances,
                                                        GXEvent1Param<const GXString&>* trace);

  /// The same with the second contour read from its end and its angles negated, as they are when an
  /// open contour is drawn the other way round.
  static bool HaveSameGeometryFromStartPositionReverse(const GXLAContour& reference,
                                                       const GXLAContour& second,
                                                       GXLATolerances& tolerances,
                                                       GXEvent1Param<const GXString&>* trace);

  /// Appends to `positions`, which is not cleared, every position here whose element is the same as
  /// the given one: of its kind, with its length or angle.
  ///
  /// Returns: false for an element that is no line, arc or angle; otherwise true, found or not.
  bool GetSameElementPositions(GXLAElement& element, GXIntList& positions,
                               GXLATolerances& tolerances,
                               GXEvent1Param<const GXString&>* trace) const;

  /// The segments at even positions that are longer than 1.0 (strict, host's length unit), in
  /// order. The contour keeps owning them.
  ///
  /// `sumOfLong` and `sumOfAll` are set to the lengths of those and of all segments,
  /// `longestPositions` to the positions of the longest ones, ties within 0.00001 of the first of
  /// them; it is empty when no segment is long.
  static std::list<GXLAElementSegment*> CreateLongElementSegmentList(const GXLAContour& contour,
                                                                     double& sumOfLong,
                                                                     double& sumOfAll,
                                                                     GXIntList& longestPositions);

  /// Whether two angles (radians) are the same up to whole turns.
  ///
  ///     GXLAContour::IsSameAngle(0.0, 6.28, 0.01);   // true
  ///
  /// Tolerance: absolute, inclusive, radians.
  /// Degenerate: angles further apart than a 32-bit number of turns are the same only where the
  ///   tolerance covers the difference itself; NaN and infinite differences never are.
  static bool IsSameAngle(double first, double second, double tolerance);

 private:
  static bool SameElementAtPositionForward(const_iterator first, const_iterator second,
                                           GXLATolerances& tolerances, int& number,
                                           GXEvent1Param<const GXString&>* trace);
  static bool SameElementAtPositionBackwards(const_iterator first,
                                             const const_reverse_iterator& second, bool openContour,
                                             GXLATolerances& tolerances, int& number,
                                             GXEvent1Param<const GXString&>* trace);
};
