// The drawing primitives of a flat contour: point, line, rectangle and arc under one base, with the
// visitor that tells them apart and the creator that copies them.
//
// Elements hold their points by value; `GetStartPoint` and `GetEndPoint` hand out references to the
// element's own fields, so that a list can move a shared end by writing through them. An arc
// carries no direction flag, no radius and no angles: everything follows from its four points.
#pragma once

#include <KTRCL_Geometry/Export.h>

class GX2DArc;
class GX2DElement;
class GX2DElmList;
class GX2DLine;
class GX2DPoint;
class GX2DPointList;
class GX2DRectangle;
class GX2DVector;
class GX3DArc;
class GX3DLine;
class GX3DPoint;
class GXParagraph;
class GXString;
class GXVector;

/// Type dispatch over the four kinds of 2D elements.
///
/// The class has virtual operations and no virtual destructor, which would change the table; the
/// destructor is protected so that nobody destroys through the base.
class KTRCL_GEOMETRY_EXPORT GX2DElementVisitor {
 public:
  /// A visitor that has not been stopped.
  GX2DElementVisitor();
  /// Copies the stop flag with the rest.
  GX2DElementVisitor(const GX2DElementVisitor& other);
  GX2DElementVisitor& operator=(const GX2DElementVisitor& other);

  /// @name Virtual operations: their order is part of the binary interface

  /// Called for an arc. Returns: false to end a walk over a list, with result false.
  virtual bool Visit(const GX2DArc& arc) = 0;

  /// Called for a rectangle; result as above.
  virtual bool Visit(const GX2DRectangle& rectangle) = 0;

  /// Called for a line; result as above.
  virtual bool Visit(const GX2DLine& line) = 0;

  /// Called for a point; result as above.
  virtual bool Visit(const GX2DPoint& point) = 0;

  /// Asks the walk over a list to end, with result true, behind the current element.
  void StopAcceptElementVisitor();

  /// Whether the visitor has been stopped. Nothing takes the flag back, apart from assignment.
  bool IsAcceptElementVisitorStopped() const;

 protected:
  ~GX2DElementVisitor();

 private:
  bool stop_;
};

/// Common base of the 2D elements. Kinds are told apart by `dynamic_cast` or by a visitor.
///
///     std::unique_ptr<GX2DElement> copy(element.Clone());
///     copy->RotateAxis(GX2DPoint(0, 0), 90);        // degrees, counter-clockwise
///     copy->GetEndPoint() = next.GetStartPoint();   // moves the end itself
class KTRCL_GEOMETRY_EXPORT GX2DElement {
 public:
  GX2DElement();
  GX2DElement(const GX2DElement& other);
  GX2DElement& operator=(const GX2DElement& other);

  /// @name Virtual operations: their order is part of the binary interface

  /// Elements are destroyed through this base, usually by the list that owns them.
  virtual ~GX2DElement();

  /// New copy; the caller owns it.
  virtual GX2DElement* Clone() const = 0;

  /// Calls the `Visit` of the element's kind and hands its result on.
  virtual bool Accept(GX2DElementVisitor& visitor) = 0;

  /// Moves by (dx, dy). The base does nothing, here and in all transforms below; arguments may
  /// belong to the element itself.
  virtual void Translate(const double& dx, const double& dy);

  /// Turns about `centre` by an angle in degrees, counter-clockwise for a positive one.
  ///
  /// Caution: degrees here, radians in `GX3DElement::RotateAxis`. A rectangle does not turn.
  virtual void RotateAxis(const GX2DPoint& centre, const double& degrees);

  /// Multiplies all coordinates. With `decimals` of 0 or more each is then rounded to that many
  /// decimal places with `GXMath::RoundToDec`; a negative number means no rounding.
  virtual void Scale(const double& factor, const int& decimals);

  /// As `Scale`, for X alone.
  ///
  /// Caution: an arc keeps its four points and its radius is that to the start, so scaling one
  ///   coordinate does not make an ellipse of it.
  virtual void ScaleX(const double& factor, const int& decimals);

  /// As `ScaleX`, for Y.
  virtual void ScaleY(const double& factor, const int& decimals);

  /// Negates X: reflects in the Y axis.
  virtual void MirrorX();

  /// Negates Y: reflects in the X axis.
  virtual void MirrorY();

  /// Lets the element run the other way. Nothing happens to points, rectangles and full circles.
  virtual void Reverse();

  /// Length along the element, length units, 0 or more.
  virtual double Len() const = 0;

  /// Point at the share `t` of the element, 0 at its start and 1 at its end, with no limit on `t`.
  /// Returns: false, with `out` untouched, for a rectangle and for an arc whose points span no
  /// plane.
  virtual bool GetParametricPoint(GX2DPoint& out, const double& t) const = 0;

  /// Smallest X on the element.
  virtual double GetMinX() const = 0;

  /// Largest X on the element.
  virtual double GetMaxX() const = 0;

  /// Smallest Y on the element.
  virtual double GetMinY() const = 0;

  /// Largest Y on the element.
  virtual double GetMaxY() const = 0;

  /// The element's own start; writing through the reference moves it. A point is its own start, a
  /// rectangle starts at corner one.
  virtual GX2DPoint& GetStartPoint() = 0;

  /// The element's own end; writing through the reference moves it. A point is its own end, a
  /// rectangle ends at corner two.
  virtual GX2DPoint& GetEndPoint() = 0;

  /// Appends the element to `list` as lines, which the list owns; what it holds stays in front
  /// -- src/elements/ArcPolygons.cpp.
  virtual void AddAsPolygon(GX2DElmList& list) const = 0;

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
};

/// Point in the plane, a drawing element of its own and the corner stone of the others. It has no
/// accessors: hosts use the fields.
class KTRCL_GEOMETRY_EXPORT GX2DPoint : public GX2DElement {
 public:
  double X;  ///< First coordinate.
  double Y;  ///< Second coordinate.

  /// The origin.
  GX2DPoint();
  /// The point (x, y).
  GX2DPoint(const double& x, const double& y);
  /// Copy.
  GX2DPoint(const GX2DPoint& other);
  /// The point at the tip of `v`.
  GX2DPoint(const GX2DVector& v);

  /// From the first two entries of an array.
  ///
  /// Degenerate: a null pointer gives the origin.
  explicit GX2DPoint(const double* const coordinates);

  /// Flattened by a plane selector, which names the axis left out: 0 gives (Z, Y), 1 gives (X, Z),
  /// any other value, normally 2, gives (X, Y).
  GX2DPoint(const GX3DPoint& p, const int& plane);
  /// The same of a vector.
  GX2DPoint(const GXVector& v, const int& plane);
  /// Copies the coordinates.
  GX2DPoint& operator=(const GX2DPoint& other);

  ~GX2DPoint() override;
  GX2DPoint* Clone() const override;
  bool Accept(GX2DElementVisitor& visitor) override;
  void Translate(const double& dx, const double& dy) override;
  void RotateAxis(const GX2DPoint& centre, const double& degrees) override;
  void Scale(const double& factor, const int& decimals) override;
  void ScaleX(const double& factor, const int& decimals) override;
  void ScaleY(const double& factor, const int& decimals) override;
  void MirrorX() override;
  void MirrorY() override;
  void Reverse() override;

  /// Always 0.
  double Len() const override;

  /// Copies the point to `out` and returns true, for every `t`.
  bool GetParametricPoint(GX2DPoint& out, const double& t) const override;

  double GetMinX() const override;
  double GetMaxX() const override;
  double GetMinY() const override;
  double GetMaxY() const override;
  GX2DPoint& GetStartPoint() override;
  GX2DPoint& GetEndPoint() override;

  /// Adds nothing.
  void AddAsPolygon(GX2DElmList& list) const override;

  /// Stores the numbers "X", "Y".
  void Write(const GXString& key, GXParagraph* const& paragraph, const int& unused) override;

  /// Takes the numbers "X", "Y".
  void Read(const GXString& key, GXParagraph* const& paragraph, const int& unused) override;

  /// @name Further virtual operations: their order is part of the binary interface

  /// Whether the points coincide.
  ///
  /// Tolerance: `tol` length units on each coordinate by itself, inclusive; it is no distance.
  virtual bool IsAlmostEq(const GX2DPoint& other, const double& tol) const;

  /// Exact on both coordinates.
  virtual bool operator==(const GX2DPoint& other) const;

  /// Exact: whether a coordinate differs.
  virtual bool operator!=(const GX2DPoint& other) const;

  /// New point, moved by `v`; its Z is ignored.
  virtual GX2DPoint operator+(const GXVector& v) const;

  /// New point, moved by the opposite of `v`; its Z is ignored.
  virtual GX2DPoint operator-(const GXVector& v) const;

  /// The text "X:1.5 Y: 2", without a blank behind the first colon, the numbers as
  /// `GXString(value, decimals)` writes them -- src/elements/Persistence.cpp.
  GXString ToString(int decimals) const;
};

/// Straight line between two points.
class KTRCL_GEOMETRY_EXPORT GX2DLine : public GX2DElement {
 public:
  GX2DPoint Start;  ///< First point.
  GX2DPoint End;    ///< Second point.

  /// Both ends at the origin.
  GX2DLine();
  /// From (x1, y1) to (x2, y2).
  GX2DLine(const double& x1, const double& y1, const double& x2, const double& y2);
  /// Copy.
  GX2DLine(const GX2DLine& other);
  /// From `start` to `end`.
  GX2DLine(const GX2DPoint& start, const GX2DPoint& end);
  /// Flattened; for the plane selector see `GX2DPoint`.
  GX2DLine(const GX3DLine& line, const int& plane);
  /// Copies both ends.
  GX2DLine& operator=(const GX2DLine& other);

  ~GX2DLine() override;
  GX2DLine* Clone() const override;
  bool Accept(GX2DElementVisitor& visitor) override;
  void Translate(const double& dx, const double& dy) override;
  void RotateAxis(const GX2DPoint& centre, const double& degrees) override;
  void Scale(const double& factor, const int& decimals) override;
  void ScaleX(const double& factor, const int& decimals) override;
  void ScaleY(const double& factor, const int& decimals) override;
  void MirrorX() override;
  void MirrorY() override;

  /// Swaps start and end.
  void Reverse() override;

  /// Euclidean length; 0 for equal ends.
  double Len() const override;

  /// See `GXGeometry::GetParametricPointOn2DLine`; always true.
  bool GetParametricPoint(GX2DPoint& out, const double& t) const override;

  double GetMinX() const override;
  double GetMaxX() const override;
  double GetMinY() const override;
  double GetMaxY() const override;
  GX2DPoint& GetStartPoint() override;
  GX2DPoint& GetEndPoint() override;

  /// Appends a copy of the line.
  void AddAsPolygon(GX2DElmList& list) const override;

  /// Stores the points "Start", "End", each in a child.
  void Write(const GXString& key, GXParagraph* const& paragraph, const int& unused) override;

  /// Takes the points "Start", "End".
  void Read(const GXString& key, GXParagraph* const& paragraph, const int& unused) override;

  /// @name Further virtual operations: their order is part of the binary interface

  /// Whether start agrees with start and end with end; with `sameDirection` false a line is also
  /// almost equal to the reverse of itself.
  ///
  /// Tolerance: `tol` on each coordinate, inclusive.
  virtual bool IsAlmostEq(const GX2DLine& other, bool sameDirection, const double& tol) const;

  /// Swaps start and end, like `Reverse`.
  virtual void SwapPoints();

  /// Squared length.
  virtual double SquareLen() const;

  /// Sets the start.
  void SetStartPoint(const GX2DPoint& p);

  /// Sets the end.
  void SetEndPoint(const GX2DPoint& p);

  /// The middle, as a new point.
  GX2DPoint GetMidPoint() const;

  /// The vector from start to end turned a quarter to the left. It is as long as the line, not
  /// normalised; Z is 0.
  GXVector GetPerpendicular() const;

  /// Start + (end - start) * d, or counted from the end, end + (start - end) * d.
  ///
  /// Caution: `d` is a fraction of the line's length and not a distance, whatever the name says;
  ///   callers depend on it. `GetPointAtDistance(1, false)` is the start.
  GX2DPoint GetPointAtDistance(double d, bool fromStart) const;
};

/// Axis-parallel rectangle given by two opposite corners.
class KTRCL_GEOMETRY_EXPORT GX2DRectangle : public GX2DElement {
 public:
  GX2DPoint Corner1;  ///< Corner one.
  GX2DPoint Corner2;  ///< Corner two, opposite to corner one.

  /// Both corners at the origin.
  GX2DRectangle();
  /// Corners (x1, y1) and (x2, y2), kept in this order.
  GX2DRectangle(const double& x1, const double& y1, const double& x2, const double& y2);
  /// Copy.
  GX2DRectangle(const GX2DRectangle& other);
  /// Corners one and two, kept in this order.
  GX2DRectangle(const GX2DPoint& corner1, const GX2DPoint& corner2);
  /// Copies both corners.
  GX2DRectangle& operator=(const GX2DRectangle& other);

  ~GX2DRectangle() override;
  GX2DRectangle* Clone() const override;
  bool Accept(GX2DElementVisitor& visitor) override;
  void Translate(const double& dx, const double& dy) override;

  /// Does nothing.
  ///
  /// Caution: a rectangle in a list that is turned stays where it is.
  void RotateAxis(const GX2DPoint& centre, const double& degrees) override;

  void Scale(const double& factor, const int& decimals) override;
  void ScaleX(const double& factor, const int& decimals) override;
  void ScaleY(const double& factor, const int& decimals) override;
  void MirrorX() override;
  void MirrorY() override;

  /// Does nothing.
  void Reverse() override;

  /// The perimeter: twice the width plus twice the height.
  double Len() const override;

  /// Always false, with `out` untouched.
  bool GetParametricPoint(GX2DPoint& out, const double& t) const override;

  double GetMinX() const override;
  double GetMaxX() const override;
  double GetMinY() const override;
  double GetMaxY() const override;
  GX2DPoint& GetStartPoint() override;
  GX2DPoint& GetEndPoint() override;

  /// Appends four lines: from corner one along Y, then along X to corner two, then back along Y and
  /// X. A normalised rectangle is thus walked clockwise from its lower left corner.
  void AddAsPolygon(GX2DElmList& list) const override;

  /// Stores the points "Corner1", "Corner2", each in a child.
  void Write(const GXString& key, GXParagraph* const& paragraph, const int& unused) override;

  /// Takes the points "Corner1", "Corner2".
  void Read(const GXString& key, GXParagraph* const& paragraph, const int& unused) override;

  /// @name Further virtual operations: their order is part of the binary interface

  /// Makes corner one the one of the smallest coordinates and corner two that of the largest.
  virtual void Normalize();

  /// Swaps the corners.
  virtual void SwapPoints();

  /// Absolute difference of the corners in X.
  virtual double GetWidth() const;

  /// Absolute difference of the corners in Y.
  virtual double GetHeight() const;

  /// Width times height.
  virtual double GetArea() const;
};

/// Circular arc from start to end about center. Nothing but the four points is stored:
///
/// (1) the radius is the distance from center to start;
/// (2) the arc runs from start to end on the side of mid, the sign of (start - center) x (mid -
///   center). Mid need not lie on the circle, nor within the sweep;
/// (3) a full circle has start equal to end, or mid equal to end.
///
///     GX2DArc quarter(GX2DPoint(0, 0), GX2DPoint(1, 0), GX2DPoint(0, 1), false);
///     quarter.Len();      // pi / 2
///     quarter.Reverse();  // from (0, 1) to (1, 0), clockwise
class KTRCL_GEOMETRY_EXPORT GX2DArc : public GX2DElement {
 public:
  GX2DPoint Start;   ///< Start point; it defines the radius.
  GX2DPoint Mid;     ///< Direction indicator; it need not lie on the circle.
  GX2DPoint End;     ///< End point.
  GX2DPoint Center;  ///< Centre of the circle.

  /// All four points at the origin.
  GX2DArc();
  /// Copy.
  GX2DArc(const GX2DArc& other);
  /// From its points, stored unchanged.
  GX2DArc(const GX2DPoint& center, const GX2DPoint& start, const GX2DPoint& mid,
          const GX2DPoint& end);
  /// From start to end in the given sense; mid comes from `CreateMidPoint`.
  GX2DArc(const GX2DPoint& center, const GX2DPoint& start, const GX2DPoint& end, bool clockwise);
  /// Each of the four points flattened; for the plane selector see `GX2DPoint`.
  GX2DArc(const GX3DArc& arc, const int& plane);
  /// Copies the four points.
  GX2DArc& operator=(const GX2DArc& other);

  ~GX2DArc() override;
  GX2DArc* Clone() const override;
  bool Accept(GX2DElementVisitor& visitor) override;
  void Translate(const double& dx, const double& dy) override;
  void RotateAxis(const GX2DPoint& centre, const double& degrees) override;
  void Scale(const double& factor, const int& decimals) override;
  void ScaleX(const double& factor, const int& decimals) override;
  void ScaleY(const double& factor, const int& decimals) override;
  void MirrorX() override;
  void MirrorY() override;

  /// Swaps start and end and sets mid a quarter turn from the new start in the new sense. If that
  /// falls on the end, mid goes half-way back towards the start's side, since an arc with its mid
  /// on its end is a circle.
  ///
  /// Caution: a full circle is left as it is; it keeps its sense.
  void Reverse() override;

  /// Radius times sweep (`GXGeometry::GetArcAngleRad`), without its sign.
  double Len() const override;

  /// See `GXGeometry::GetParametricPointOn2DArc`.
  bool GetParametricPoint(GX2DPoint& out, const double& t) const override;

  /// The side of the whole circle if `GXGeometry::Point2DOnArc` finds that point on the arc, else
  /// the end that is farther out; the same for the three below.
  double GetMinX() const override;

  double GetMaxX() const override;
  double GetMinY() const override;
  double GetMaxY() const override;
  GX2DPoint& GetStartPoint() override;
  GX2DPoint& GetEndPoint() override;

  /// Appends lines along the arc: whole steps of 5 degrees, or of 5 degrees divided by
  /// log10(radius) where the whole part of the radius is above 10, then one line that ends exactly
  /// on the arc's end.
  ///
  /// Degenerate: a circle takes 72 steps or more; any other arc shorter than a step, and one of
  ///   infinite radius, becomes one line from start to end.
  /// Caution: the last line is appended even when the steps already reach the end; its length is
  ///   then about 0. The angles are those of the ends about the centre.
  void AddAsPolygon(GX2DElmList& list) const override;

  /// Stores the points "Center", "Start", "Mid", "End", each in a child.
  void Write(const GXString& key, GXParagraph* const& paragraph, const int& unused) override;

  /// Takes the points "Center", "Start", "Mid", "End".
  void Read(const GXString& key, GXParagraph* const& paragraph, const int& unused) override;

  /// @name Further virtual operations: their order is part of the binary interface

  /// Whether start, end, center and mid agree.
  ///
  /// Tolerance: `tol` on each coordinate, inclusive.
  /// Caution: arcs of one shape with mid at different places are not almost equal.
  virtual bool IsAlmostEq(const GX2DArc& other, const double& tol) const;

  /// Distance from center to start; end and mid do not count.
  virtual double Radius() const;

  /// Moves end and mid to the circle, each along its ray from the center; start and center stay.
  ///
  /// Returns: false, with nothing changed, when the center coincides exactly with end or mid.
  /// Tolerance: 0.0001 length units; a point nearer to the circle than that stays as it is.
  virtual bool Normalize();

  /// Whether (start - center) x (mid - center) is below 0.
  ///
  /// Degenerate: with mid on the line of start and center the arc counts as counter-clockwise.
  virtual bool IsClockwise() const;

  /// `IsClockwise`.
  virtual bool IsCW() const;

  /// The negation of `IsClockwise`.
  virtual bool IsCounterClockwise() const;

  /// `IsCounterClockwise`.
  virtual bool IsCCW() const;

  /// Whether this is a full circle: start on end, or mid on end.
  ///
  /// Tolerance: 0.0001 on each coordinate, inclusive.
  /// Caution: short arcs whose ends lie that near count as full circles, and so does an arc whose
  ///   mid has come to lie on its end, wherever its start is.
  virtual bool IsCircle() const;

  /// Sets mid with `CreateMidPoint`, thus at half the radius, so that the arc runs clockwise; start
  /// and end stay.
  virtual void SetClockWise();

  /// The same, counter-clockwise.
  virtual void SetCounterClockWise();

  /// Swaps start and end and leaves mid.
  ///
  /// Caution: unlike `Reverse` it does not renew mid, so the sense follows from the old mid and
  ///   the new start, and the swapped arc may well be the other part of the circle.
  virtual void SwapPoints();

  /// Appends start and the points of n equal turns of it about the centre, which the list owns. n
  /// is the sweep divided by arccos((radius - height) / radius), rounded up, and at least 1.
  /// `height` is in length units and above 0.
  ///
  /// Degenerate: nothing is appended for a radius below 0.000001, nor for a length below 0.000001
  ///   whose n is 0. The quotient is held between -1 and 1 and n is limited to 999,999, which only
  ///   a height next to nothing reaches. A sweep below 0 (-1: there is none) gives start alone.
  /// Caution: the chords stay about four times closer to the arc than `height`. The polygon ends on
  ///   a computed point near the arc's end, not on the end itself.
  virtual void AddAsPolygon(GX2DPointList& list, double height) const;

  /// Appends start and the points of n equal turns of it about the centre, which the list owns. n
  /// is the sweep divided by `maxAngle`, rounded up. `maxAngle` is in whole degrees and above 0.
  ///
  /// Degenerate: a sweep of 0 gives start alone. There is no test of the radius. The sign of
  ///   `maxAngle` is passed over; 0 gives 999,999 turns.
  /// Caution: the polygon ends on a computed point near the arc's end, not on the end itself.
  virtual void AddAsPolygonMaxAngle(GX2DPointList& list, int maxAngle) const;

  /// Direction indicator for an arc from start to end in the given sense: on the bisector of the
  /// way that the arc takes, at half the radius.
  ///
  /// Degenerate: where the cross product of the two radii is within 0.0001 of null (a half or full
  ///   turn, and every arc with a radius below about 0.01) the point lies a quarter turn from the
  ///   start.
  /// Caution: half the radius and not the radius. The point is inside the circle, and hosts know
  ///   it there; `Normalize` moves it out.
  static GX2DPoint CreateMidPoint(const GX2DPoint& center, const GX2DPoint& start,
                                  const GX2DPoint& end, bool clockwise);
};

/// Copies an element of any of the four kinds.
class KTRCL_GEOMETRY_EXPORT GX2DElementCreator : public GX2DElementVisitor {
 public:
  /// A creator that has created nothing yet.
  GX2DElementCreator();

  /// New copy of the element, by its kind; the caller owns it. Returns: null where the element's
  /// `Accept` visits nothing.
  static ::GX2DElement* GX2DElement(::GX2DElement& element);

 private:
  bool Visit(const GX2DArc& arc) override;
  bool Visit(const GX2DRectangle& rectangle) override;
  bool Visit(const GX2DLine& line) override;
  bool Visit(const GX2DPoint& point) override;

  ::GX2DElement* created_;
};
