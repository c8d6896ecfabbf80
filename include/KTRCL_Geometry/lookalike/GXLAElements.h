// The vocabulary of the look-alike description: segments that carry only their length, angles
// between them, the header figures of a contour, and the tolerances of the comparison.
//
// A line and an arc of equal length differ only by their type; two arcs of equal length and
// different radius are the same element.
#pragma once

#include <KTRCL_Geometry/Export.h>

class GXString;

/// One element of a look-alike contour: a segment or the angle behind it. It holds nothing itself;
/// the comparison asks for the kind at run time, so that a class derived from a line counts as a
/// line.
class KTRCL_GEOMETRY_EXPORT GXLAElement {
 public:
  GXLAElement();

  /// Copies and assigns by value, like all classes here.
  GXLAElement(const GXLAElement& other);
  GXLAElement& operator=(const GXLAElement& other);

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~GXLAElement();
};

/// A line or an arc, reduced to its length.
class KTRCL_GEOMETRY_EXPORT GXLAElementSegment : public GXLAElement {
 public:
  /// Length 0.
  GXLAElementSegment();

  /// Takes a length in the host's length unit, whatever it is: negative lengths and NaN are kept.
  GXLAElementSegment(double length);
  GXLAElementSegment(const GXLAElementSegment& other);
  GXLAElementSegment& operator=(const GXLAElementSegment& other);

  /// @name Virtual operations: their order is part of the binary interface
  ~GXLAElementSegment() override;

  /// Whether this is a straight segment.
  virtual bool IsALine() const = 0;

  /// Whether this is a circular segment.
  virtual bool IsAnArc() const = 0;

  /// The length, host's length unit. Caution: a contour that holds the segment does not hear of a
  /// new length; `GXLAContour::FillInGXLAContourHeaderData` renews its sums.
  double GetSegmentLength() const;
  void SetSegmentLength(double length);

 private:
  double Length;
};

/// A straight segment. Two of them are the same when their lengths agree within 0.05 (inclusive).
class KTRCL_GEOMETRY_EXPORT GXLAElementLine : public GXLAElementSegment {
 public:
  /// Takes a length in the host's length unit.
  GXLAElementLine(double length);
  GXLAElementLine(const GXLAElementLine& other);
  GXLAElementLine& operator=(const GXLAElementLine& other);
  ~GXLAElementLine() override;

  /// True.
  bool IsALine() const override;

  /// False.
  bool IsAnArc() const override;
};

/// A circular segment, a full circle included. Two of them are the same when their lengths along
/// the arc agree within 0.05 (inclusive).
///
/// Caution: radius, centre and sense are not held, so arcs of equal length and different radius are
///   the same element.
class KTRCL_GEOMETRY_EXPORT GXLAElementArc : public GXLAElementSegment {
 public:
  /// Takes a length along the arc in the host's length unit.
  GXLAElementArc(double length);
  GXLAElementArc(const GXLAElementArc& other);
  GXLAElementArc& operator=(const GXLAElementArc& other);
  ~GXLAElementArc() override;

  /// False.
  bool IsALine() const override;

  /// True.
  bool IsAnArc() const override;
};

/// The angle at the vertex between two neighbouring segments, in radians, in the measure in which a
/// straight continuation is pi. Two of them are the same when the stored values agree within 0.01
/// (inclusive, compared directly, without reduction by full turns).
///
/// How the host measures is its own affair as long as (1) drawing a closed contour the other way
/// round leaves every angle as it is, and (2) drawing an open one the other way round negates it.
/// The angle on the inner side of a closed contour and on the left of an open one does that.
class KTRCL_GEOMETRY_EXPORT GXLAElementAngle : public GXLAElement {
 public:
  /// Stores `angle` (radians) brought by whole turns into the open range from -pi to pi, which
  /// `tolerance` extends at its upper end: a straight continuation is always stored as about +pi,
  /// never as about -pi.
  ///
  ///     GXLAElementAngle(-3.14159, 0.001).GetAngle();   // about +3.14159
  ///     GXLAElementAngle(1.5, 0.001).GetAngle();        // 1.5, unchanged
  ///
  /// Tolerance: absolute, inclusive, radians; below 0 it acts as 0.
  /// Degenerate: an angle or a tolerance that is not finite stores the angle as it is. With a
  ///   tolerance of pi or more no angle lies in the range, and which full turn is stored has no
  ///   meaning.
  GXLAElementAngle(double angle, const double& tolerance);
  GXLAElementAngle(const GXLAElementAngle& other);
  GXLAElementAngle& operator=(const GXLAElementAngle& other);
  ~GXLAElementAngle() override;

  /// The stored angle, radians.
  double GetAngle() const;

 private:
  double Angle;
};

/// The tolerances of the comparison: constants, asked through an object that is passed along. They
/// are absolute and inclusive.
///
/// Caution: the comparison always takes the length tolerance in millimetres, whatever unit the part
///   is drawn in; a host that works in inches scales first.
class KTRCL_GEOMETRY_EXPORT GXLATolerances {
 public:
  GXLATolerances();
  GXLATolerances(const GXLATolerances& other);
  GXLATolerances& operator=(const GXLATolerances& other);

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~GXLATolerances();

  /// 0.05 mm: for the length of a segment and for the total length of a contour.
  double ToleranceLengthMM() const;

  /// 0.0008 inches: for hosts; nothing here uses it.
  double ToleranceLengthInch() const;

  /// 0.01 radians: for the angle at a vertex and for the sum of the angles of a contour.
  double ToleranceAngle() const;
};

/// Header figures of a look-alike contour, the cheapest part of its comparison.
///
/// Caution: the fields follow the elements only through the adding operations of `GXLAContour`, and
///   through its `FillInGXLAContourHeaderData`.
class KTRCL_GEOMETRY_EXPORT GXLAContourParameters {
 public:
  /// Sense of traversal, with its text in traces and dumps. Any other value reads "---" too.
  enum GXLAContourDirection {
    GXLADirectionNone = 0,  ///< "---"
    GXLADirectionCW = 1,    ///< "CW"
    GXLADirectionCCW = 2,   ///< "CCW"
  };

  double TotalGeometryLength;      ///< Sum of the lengths of all segments, host's length unit.
  double TotalGeometryAngle;       ///< Sum of all angle elements, radians.
  int NumberOfLines;               ///< Count of `GXLAElementLine`.
  int NumberOfArcs;                ///< Count of `GXLAElementArc`.
  bool Closed;                     ///< True for a closed contour.
  GXLAContourDirection Direction;  ///< Sense of traversal.

  /// Sums and counts 0. The direction is taken as it is, for an open contour too.
  GXLAContourParameters(bool closed, GXLAContourDirection direction);

  /// Copies and assigns all six fields.
  GXLAContourParameters(const GXLAContourParameters& other);
  GXLAContourParameters& operator=(const GXLAContourParameters& other);

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~GXLAContourParameters();
};
