// Points, lines and arcs in space: the twins of the 2D elements, with frame transforms and
// rotations about axes, without clone, visitor, length and reversal in the base.
#pragma once

#include <KTRCL_Geometry/Export.h>

#include <utility>

class GX2DArc;
class GX2DLine;
class GX2DPoint;
class GX3DArc;
class GX3DLine;
class GX3DPoint;
class GX3DPointList;
class GXColBasedTransformMatrix;
class GXMatrix;
class GXParagraph;
class GXRotation;
class GXString;
class GXVector;

/// Common base of the 3D elements. Kinds are told apart by `dynamic_cast`.
class KTRCL_GEOMETRY_EXPORT GX3DElement {
 public:
  GX3DElement();
  GX3DElement(const GX3DElement& other);
  GX3DElement& operator=(const GX3DElement& other);

  /// @name Virtual operations: their order is part of the binary interface

  /// Elements are destroyed through this base, usually by the list that owns them.
  virtual ~GX3DElement();

  /// Moves by `v`. The base does nothing, here and in all transforms below; arguments may belong
  /// to the element itself.
  virtual void Translate(const GXVector& v);

  /// Multiplies all coordinates. With `decimals` of 0 or more each is then rounded to that many
  /// decimal places with `GXMath::RoundToDec`; a negative number means no rounding.
  virtual void Scale(const double& factor, const int& decimals);

  /// As `Scale`, for X alone.
  virtual void ScaleX(const double& factor, const int& decimals);

  /// As `Scale`, for Y alone.
  virtual void ScaleY(const double& factor, const int& decimals);

  /// As `Scale`, for Z alone.
  virtual void ScaleZ(const double& factor, const int& decimals);

  /// Reflects in the XY plane: negates Z.
  virtual void MirrorXY();

  /// Reflects in the YZ plane: negates X.
  virtual void MirrorYZ();

  /// Reflects in the XZ plane: negates Y.
  virtual void MirrorXZ();

  /// Into a local frame: m times (p - origin) for every point p. The rows of `m` are the axes of
  /// the frame.
  virtual void TransformGloLoc(const GX3DPoint& origin, const GXMatrix& m);

  /// The same with the three vectors of a frame matrix as axes.
  virtual void TransformGloLoc(const GX3DPoint& origin, const GXColBasedTransformMatrix& m);

  /// m times p, plus origin, for every point p.
  ///
  /// Caution: the matrix is applied as it stands. To undo `TransformGloLoc` the caller passes the
  ///   inverse.
  virtual void TransformLocGlo(const GX3DPoint& origin, const GXMatrix& m);

  /// The same with the three vectors of a frame matrix as rows.
  ///
  /// Caution: as above, the inverse of the frame undoes `TransformGloLoc`.
  virtual void TransformLocGlo(const GX3DPoint& origin, const GXColBasedTransformMatrix& m);

  /// Turns about the X axis by an angle in radians, right-handed; X never changes.
  virtual void RotateX(const double& radians);

  /// The same about the Y axis; Y never changes.
  virtual void RotateY(const double& radians);

  /// The same about the Z axis; Z never changes.
  virtual void RotateZ(const double& radians);

  /// Turns about the line from start to end of `axis`, right-handed, with
  /// `GXGeometry::Rotate3DPoint`.
  ///
  /// Degenerate: nothing happens for an axis about which `Rotate3DPoint` fails, such as one of
  ///   length zero.
  /// Caution: radians here, degrees in `GX2DElement::RotateAxis`.
  virtual void RotateAxis(const GX3DLine& axis, const double& radians);

  /// Multiplies every point, as a vector from the origin, with the rotation.
  virtual void Rotate(const GXRotation& rotation);

  /// Smallest X on the element; for arcs see `GX3DArc`.
  virtual double GetMinX() const = 0;

  /// Largest X on the element.
  virtual double GetMaxX() const = 0;

  /// Smallest Y on the element.
  virtual double GetMinY() const = 0;

  /// Largest Y on the element.
  virtual double GetMaxY() const = 0;

  /// Smallest Z on the element.
  virtual double GetMinZ() const = 0;

  /// Largest Z on the element.
  virtual double GetMaxZ() const = 0;

  /// Stores the element: in a new child of `paragraph` named `key`, or in `paragraph` itself where
  /// `key` is empty. Numbers are stored unrounded; the last argument is not used
  /// -- src/elements/Persistence.cpp. The base stores nothing.
  /// Requires: `paragraph` is not null.
  virtual void Write(const GXString& key, GXParagraph* const& paragraph, const int& unused);

  /// Takes the element back from the child of `paragraph` named `key`, or from `paragraph` itself
  /// where `key` is empty. The last argument is not used. The base takes nothing.
  ///
  /// Degenerate: without paragraph or child the element stays as it is.
  /// Caution: a missing number becomes 0, whereas a missing child (the end of a line, say) leaves
  ///   that point as it is and the others are still taken.
  virtual void Read(const GXString& key, GXParagraph* const& paragraph, const int& unused);

  /// Whether the element is too short to be anything but a point.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive; a line compares start and end, an arc center
  ///   and start.
  virtual bool IsActuallyAPoint() = 0;

  /// The element's own start; writing through the reference moves it.
  virtual GX3DPoint& GetStartPoint() = 0;

  /// The element's own end; writing through the reference moves it.
  virtual GX3DPoint& GetEndPoint() = 0;
};

/// Point in space.
class KTRCL_GEOMETRY_EXPORT GX3DPoint : public GX3DElement {
 public:
  double X;  ///< First coordinate.
  double Y;  ///< Second coordinate.
  double Z;  ///< Third coordinate.

  /// The origin.
  GX3DPoint();

  /// The point (x, y, z).
  GX3DPoint(const double& x, const double& y, const double& z);

  /// Copy.
  GX3DPoint(const GX3DPoint& other);

  /// The point at the tip of `v`.
  GX3DPoint(const GXVector& v);

  /// From the first three entries of an array.
  ///
  /// Degenerate: a null pointer gives the origin.
  explicit GX3DPoint(const double* const coordinates);

  /// Raised by a plane selector, which names the axis left out and set to 0: 0 gives (0, Y, X), 1
  /// gives (X, 0, Y), any other value, normally 2, gives (X, Y, 0).
  GX3DPoint(const GX2DPoint& p, const int& plane);

  ~GX3DPoint() override;
  void Translate(const GXVector& v) override;
  void Scale(const double& factor, const int& decimals) override;
  void ScaleX(const double& factor, const int& decimals) override;
  void ScaleY(const double& factor, const int& decimals) override;
  void ScaleZ(const double& factor, const int& decimals) override;
  void MirrorXY() override;
  void MirrorYZ() override;
  void MirrorXZ() override;
  void TransformGloLoc(const GX3DPoint& origin, const GXMatrix& m) override;
  void TransformGloLoc(const GX3DPoint& origin, const GXColBasedTransformMatrix& m) override;
  void TransformLocGlo(const GX3DPoint& origin, const GXMatrix& m) override;
  void TransformLocGlo(const GX3DPoint& origin, const GXColBasedTransformMatrix& m) override;
  void RotateX(const double& radians) override;
  void RotateY(const double& radians) override;
  void RotateZ(const double& radians) override;
  void RotateAxis(const GX3DLine& axis, const double& radians) override;
  void Rotate(const GXRotation& rotation) override;
  double GetMinX() const override;
  double GetMaxX() const override;
  double GetMinY() const override;
  double GetMaxY() const override;
  double GetMinZ() const override;
  double GetMaxZ() const override;

  /// Stores the numbers "X", "Y", "Z".
  void Write(const GXString& key, GXParagraph* const& paragraph, const int& unused) override;

  /// Takes the numbers "X", "Y", "Z".
  void Read(const GXString& key, GXParagraph* const& paragraph, const int& unused) override;

  /// Always true.
  bool IsActuallyAPoint() override;

  GX3DPoint& GetStartPoint() override;
  GX3DPoint& GetEndPoint() override;

  /// @name Further virtual operations: their order is part of the binary interface

  /// Copies the coordinates.
  virtual void SetPoint(const GX3DPoint& p);

  /// Coordinate by index: 1 gives Y, 2 gives Z, anything else gives X.
  virtual double GetIValue(const int& index) const;

  /// Sets a coordinate by index: 0, 1, 2 for X, Y, Z; any other index changes nothing.
  virtual void SetIValue(const int& index, const double& value);

  /// Hands out the coordinates.
  virtual void AsDbl(double& x, double& y, double& z) const;

  /// Writes the coordinates to three array entries.
  ///
  /// Requires: room for three numbers.
  /// Degenerate: nothing is written to a null pointer.
  virtual void AsDbl(double* const coordinates) const;

  /// Whether the points coincide.
  ///
  /// Tolerance: `tol` length units on each coordinate by itself, inclusive; it is no distance.
  virtual bool IsAlmostEq(const GX3DPoint& other, const double& tol) const;

  /// Exact on the three coordinates.
  virtual bool operator==(const GX3DPoint& other) const;

  /// Exact: whether a coordinate differs.
  virtual bool operator!=(const GX3DPoint& other) const;

  /// Copies X and Y, sets Z to 0 and returns true.
  virtual bool operator=(const GX2DPoint& p);

  /// Copies through `SetPoint`.
  virtual GX3DPoint& operator=(const GX3DPoint& p);

  /// Copies the components and returns true.
  virtual bool operator=(const GXVector& v);

  /// New point, moved by `v`.
  virtual GX3DPoint operator+(const GXVector& v) const;

  /// New point, moved by the opposite of `v`.
  virtual GX3DPoint operator-(const GXVector& v) const;

  /// Exact order by X, then Y, then Z.
  virtual bool operator<(const GX3DPoint& other) const;

  /// The negation of `operator<`.
  ///
  /// Caution: two equal points are greater than each other. Do not sort by it.
  virtual bool operator>(const GX3DPoint& other) const;
};

/// Straight line in space between two points.
class KTRCL_GEOMETRY_EXPORT GX3DLine : public GX3DElement {
 public:
  GX3DPoint Start;  ///< First point.
  GX3DPoint End;    ///< Second point.

  /// Both ends at the origin.
  GX3DLine();

  /// Copy.
  GX3DLine(const GX3DLine& other);

  /// From `start` to `end`.
  GX3DLine(const GX3DPoint& start, const GX3DPoint& end);

  /// Between the tips of two vectors.
  GX3DLine(const GXVector& start, const GXVector& end);

  /// Raised into space; for the plane selector see `GX3DPoint`.
  GX3DLine(const GX2DLine& line, const int& plane);

  /// Copies both ends.
  GX3DLine& operator=(const GX3DLine& other);

  ~GX3DLine() override;
  void Translate(const GXVector& v) override;
  void Scale(const double& factor, const int& decimals) override;
  void ScaleX(const double& factor, const int& decimals) override;
  void ScaleY(const double& factor, const int& decimals) override;
  void ScaleZ(const double& factor, const int& decimals) override;
  void MirrorXY() override;
  void MirrorYZ() override;
  void MirrorXZ() override;
  void TransformGloLoc(const GX3DPoint& origin, const GXMatrix& m) override;
  void TransformGloLoc(const GX3DPoint& origin, const GXColBasedTransformMatrix& m) override;
  void TransformLocGlo(const GX3DPoint& origin, const GXMatrix& m) override;
  void TransformLocGlo(const GX3DPoint& origin, const GXColBasedTransformMatrix& m) override;
  void RotateX(const double& radians) override;
  void RotateY(const double& radians) override;
  void RotateZ(const double& radians) override;
  void RotateAxis(const GX3DLine& axis, const double& radians) override;
  void Rotate(const GXRotation& rotation) override;
  double GetMinX() const override;
  double GetMaxX() const override;
  double GetMinY() const override;
  double GetMaxY() const override;
  double GetMinZ() const override;
  double GetMaxZ() const override;

  /// Stores the points "Start", "End", each in a child.
  void Write(const GXString& key, GXParagraph* const& paragraph, const int& unused) override;

  /// Takes the points "Start", "End".
  void Read(const GXString& key, GXParagraph* const& paragraph, const int& unused) override;

  bool IsActuallyAPoint() override;
  GX3DPoint& GetStartPoint() override;
  GX3DPoint& GetEndPoint() override;

  /// @name Further virtual operations: their order is part of the binary interface

  /// The middle, as a new point.
  virtual GX3DPoint GetMidPoint() const;

  /// Start + (end - start) * d, or counted from the end, end + (start - end) * d.
  ///
  /// Caution: `d` is a fraction of the line's length and not a distance, whatever the name says;
  ///   callers depend on it.
  virtual GX3DPoint GetPointAtDistance(double d, bool fromStart) const;

  /// Euclidean length; 0 for equal ends.
  virtual double Len() const;

  /// Whether an end of this element lies on an end of the other, asked in the order start-start,
  /// start-end, end-start, end-end. `out` receives the first match, with the coordinates of the
  /// other element. Returns: false, with `out` untouched, where there is none.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  virtual bool HasEqualPoint(GX3DArc& other, GX3DPoint& out);

  /// The same for a line.
  virtual bool HasEqualPoint(GX3DLine& other, GX3DPoint& out);

  /// Swaps start and end.
  virtual void SwapPoints();

  /// Sets the start.
  void SetStartPoint(const GX3DPoint& p);

  /// Sets the end.
  void SetEndPoint(const GX3DPoint& p);
};

/// Circular arc in space, with the same four points as `GX2DArc`; no normal is stored.
class KTRCL_GEOMETRY_EXPORT GX3DArc : public GX3DElement {
 public:
  GX3DPoint Start;   ///< Start point; it defines the radius.
  GX3DPoint Mid;     ///< Direction indicator; it need not lie on the circle.
  GX3DPoint End;     ///< End point.
  GX3DPoint Center;  ///< Centre of the circle.

  /// All four points at the origin.
  GX3DArc();

  /// Copy.
  GX3DArc(const GX3DArc& other);

  /// From its points, stored unchanged. There is no form that derives mid.
  GX3DArc(const GX3DPoint& center, const GX3DPoint& start, const GX3DPoint& mid,
          const GX3DPoint& end);

  /// Each of the four points raised; for the plane selector see `GX3DPoint`.
  GX3DArc(const GX2DArc& arc, const int& plane);

  /// Copies the four points.
  GX3DArc& operator=(const GX3DArc& other);

  ~GX3DArc() override;
  void Translate(const GXVector& v) override;
  void Scale(const double& factor, const int& decimals) override;
  void ScaleX(const double& factor, const int& decimals) override;
  void ScaleY(const double& factor, const int& decimals) override;
  void ScaleZ(const double& factor, const int& decimals) override;
  void MirrorXY() override;
  void MirrorYZ() override;
  void MirrorXZ() override;
  void TransformGloLoc(const GX3DPoint& origin, const GXMatrix& m) override;
  void TransformGloLoc(const GX3DPoint& origin, const GXColBasedTransformMatrix& m) override;
  void TransformLocGlo(const GX3DPoint& origin, const GXMatrix& m) override;
  void TransformLocGlo(const GX3DPoint& origin, const GXColBasedTransformMatrix& m) override;
  void RotateX(const double& radians) override;
  void RotateY(const double& radians) override;
  void RotateZ(const double& radians) override;
  void RotateAxis(const GX3DLine& axis, const double& radians) override;
  void Rotate(const GXRotation& rotation) override;

  /// Center minus or plus radius along the axis if `GXGeometry::Point3DOnArc` finds that point on
  /// the arc, else the end that is farther out; the same for the five below.
  ///
  /// Caution: exact only where the plane of the arc contains the direction of the axis. A tilted
  ///   arc may bulge beyond the ends that it reports. And since `Point3DOnArc` does not ask for the
  ///   plane, a long arc may report the side of the whole sphere: a half circle of radius 5 in the
  ///   XY plane about the origin has Z from -5 to 5.
  double GetMinX() const override;

  double GetMaxX() const override;
  double GetMinY() const override;
  double GetMaxY() const override;
  double GetMinZ() const override;
  double GetMaxZ() const override;

  /// Stores the points "Center", "Start", "Mid", "End", each in a child.
  void Write(const GXString& key, GXParagraph* const& paragraph, const int& unused) override;

  /// Takes the points "Center", "Start", "Mid", "End".
  void Read(const GXString& key, GXParagraph* const& paragraph, const int& unused) override;

  /// Whether center and start coincide, so only a radius near 0 counts.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  /// Caution: an arc with its start on its end is a full circle and no point.
  bool IsActuallyAPoint() override;

  GX3DPoint& GetStartPoint() override;
  GX3DPoint& GetEndPoint() override;

  /// @name Further virtual operations: their order is part of the binary interface

  /// Distance from center to start; end and mid do not count.
  virtual double Radius() const;

  /// As `GX3DLine::HasEqualPoint`: the point handed out is the other element's.
  virtual bool HasEqualPoint(GX3DLine& other, GX3DPoint& out);

  /// The same for an arc.
  virtual bool HasEqualPoint(GX3DArc& other, GX3DPoint& out);

  /// Swaps start and end and leaves mid.
  ///
  /// Caution: the sense then follows from the old mid and the new start, so the swapped arc may be
  ///   the other part of the circle.
  virtual void SwapPoints();

  /// Whether this is a full circle: start on end, or mid on end.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  virtual bool IsCircle() const;

  /// Unit vector of (start - center) x (mid - center); seen from its tip the arc runs
  /// counter-clockwise.
  ///
  /// Degenerate: the null vector where start, center and mid lie exactly in line.
  virtual GXVector GetNormal() const;

  /// The opposite of `GetNormal`.
  virtual GXVector GetReversedNormal() const;

  /// Appends start, the points of n - 1 turns of it about the centre, and the arc's end itself, n +
  /// 1 points in all -- src/elements/ArcPolygons.cpp. n is the sweep divided by arccos((radius -
  /// height) / radius), rounded up. `height` is in length units and above 0.
  ///
  /// Degenerate: nothing is appended for a radius below 0.000001 or where n is 0. The quotient is
  ///   held between -1 and 1 and n is limited to 999,999, which only a height next to nothing
  ///   reaches. A sweep below 0 (-1: there is none) gives start and end alone.
  /// Caution: the chords stay about four times closer to the arc than `height`. The 2D twin ends on
  ///   a computed point.
  virtual void AddAsPolygon(GX3DPointList& list, double height) const;

  /// Appends start and the points of n equal turns of it about the centre. n is the sweep, without
  /// its sign, divided by `maxAngle`, rounded up. `maxAngle` is in whole degrees and above 0.
  ///
  /// Degenerate: a sweep of 0 gives start alone. There is no test of the radius. The sign of
  ///   `maxAngle` is passed over; 0 gives 999,999 turns.
  /// Caution: the polygon ends on a computed point near the arc's end, not on the end itself.
  ///   Only `AddAsPolygon` ends there.
  virtual void AddAsPolygonMaxAngle(GX3DPointList& list, int maxAngle) const;
};

/// A point with a flag, for sorted sequences. Default: the origin and false.
///
/// The class has virtual operations and no virtual destructor, which would change the table.
class KTRCL_GEOMETRY_EXPORT GX3DPointBoolPair : public std::pair<GX3DPoint, bool> {
 public:
  /// The origin and false.
  GX3DPointBoolPair();

  /// From a point and a flag.
  GX3DPointBoolPair(const GX3DPoint& point, bool flag);

  /// Copy.
  GX3DPointBoolPair(const GX3DPointBoolPair& other);

  /// Copies point and flag.
  GX3DPointBoolPair& operator=(const GX3DPointBoolPair& other);

  /// @name Virtual operations: their order is part of the binary interface

  /// Exact order of the points; of equal points the one with the flag set comes first.
  virtual bool operator<(const GX3DPointBoolPair& other) const;

  /// Whether points (exactly) and flags are equal.
  virtual bool operator==(const GX3DPointBoolPair& other) const;

  /// Whether points or flags differ.
  virtual bool operator!=(const GX3DPointBoolPair& other) const;
};
