// GXVector (three components) and GX2DVector (two): the value classes on which all directions and
// offsets are computed. Both hold plain doubles in the host's length unit and keep no invariant: a
// vector may be null, and nothing keeps it normalised. No operation fails, throws or allocates; NaN
// and infinities travel through the arithmetic as in the language.
#pragma once

#include <KTRCL_Geometry/Export.h>

class GXParagraph;
class GXString;
class GX2DLine;
class GX2DPoint;
class GX2DVector;
class GX3DLine;
class GX3DPoint;

/// Vector in space; also the offset by which points of the plane are moved.
///
///     GXVector a(1, 0, 0), b(0, 2, 0);
///     GXVector normal = a * b;  // cross product, (0, 0, 2)
///     normal.Standard();        // (0, 0, 1)
///
/// (1) a * b is -(b * a), right-handed: X times Y is Z;
/// (2) a.dot(b) is b.dot(a), to the last bit;
/// (3) a == b is exact, a.IsAlmostEq(b, tol) has a tolerance per component; a != b is !(a == b).
class KTRCL_GEOMETRY_EXPORT GXVector {
 public:
  double X;  ///< First component.
  double Y;  ///< Second component.
  double Z;  ///< Third component.

  /// @name Construction -- src/foundation/GXVector.cpp, from elements:
  /// src/elements/ElementConversions.cpp

  /// The null vector.
  GXVector();
  GXVector(const double& x, const double& y, const double& z);

  /// (x, y, 0).
  GXVector(const double& x, const double& y);

  /// The first three entries of an array. Degenerate: a null pointer gives the null vector.
  explicit GXVector(const double* const components);
  GXVector(const GXVector& other);

  /// The offset `to` - `from`.
  GXVector(const GXVector& from, const GXVector& to);

  /// (v.X, v.Y, 0).
  GXVector(const GX2DVector& v);

  /// (p.X, p.Y, 0).
  GXVector(const GX2DPoint& p);

  /// The offset `to` - `from` with Z 0.
  GXVector(const GX2DPoint& from, const GX2DPoint& to);

  /// The offset from the start of the line to its end, with Z 0.
  GXVector(const GX2DLine& line);

  /// (p.X, p.Y, p.Z), the offset from the origin.
  GXVector(const GX3DPoint& p);

  /// The offset `to` - `from`.
  GXVector(const GX3DPoint& from, const GX3DPoint& to);

  /// The offset from the start of the line to its end.
  GXVector(const GX3DLine& line);

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~GXVector();

  /// Euclidean length.
  ///
  /// Degenerate: exactly 0 where the sum of squares is 0, which components below about 1e-162 give
  ///   too; infinite where it overflows, from components of about 1e154 on.
  virtual double Len() const;

  /// Scales the vector to length 1, in place.
  ///
  /// Degenerate: a vector of length exactly 0 stays as it is; the guard has no tolerance. Where the
  ///   length overflows, finite components become 0.
  virtual void Standard();

  /// Negates all components, in place.
  virtual void Reverse();

  /// A new vector with all components negated.
  virtual GXVector GetReversed() const;

  /// Becomes (-Y, X, Z): a quarter turn about the Z axis from +X towards +Y, counter-clockwise seen
  /// from +Z.
  virtual void PerpendicalXY();

  /// A new vector (-Y, X, Z): the turn of `PerpendicalXY`.
  virtual GXVector GetPerpendicalXY() const;

  /// Becomes (X, -Z, Y): a quarter turn about the X axis from +Y towards +Z, counter-clockwise seen
  /// from +X.
  virtual void PerpendicalYZ();

  /// A new vector (X, -Z, Y): the turn of `PerpendicalYZ`.
  virtual GXVector GetPerpendicalYZ() const;

  /// Becomes (-Z, Y, X): a quarter turn about the Y axis from +X towards +Z, clockwise seen from
  /// +Y. (1, 2, 3) becomes (-3, 2, 1).
  ///
  /// Caution: `GetPerpendicalXZ` gives another vector, not the one that this operation leaves.
  virtual void PerpendicalXZ();

  /// A new vector (Z, -Y, X): X and Z change places and Y is negated, which is half a turn about
  /// the bisector of +X and +Z. (1, 2, 3) gives (3, -2, 1).
  ///
  /// Caution: not the quarter turn of `PerpendicalXZ`. At right angles to this vector only where
  ///   Y * Y is 2 * X * Z.
  virtual GXVector GetPerpendicalXZ() const;

  /// A new vector, the sum. `other` stays as it is, though it is taken by plain reference.
  virtual GXVector Add(GXVector& other) const;

  /// A new vector with all components negated.
  virtual GXVector operator-() const;

  /// This vector minus `other`.
  virtual GXVector operator-(const GXVector& other) const;

  /// The sum of both vectors.
  virtual GXVector operator+(const GXVector& other) const;

  /// Each component times `factor`.
  virtual GXVector operator*(double factor) const;

  /// The cross product, this times `other`: at right angles to both, with the length of the
  /// parallelogram's area, right-handed. Degenerate: null for parallel or null vectors.
  virtual GXVector operator*(const GXVector& other) const;
  virtual GXVector& operator=(const GXVector& other);

  /// Exact comparison of X, then Y, then Z. 0.0 and -0.0 are equal; with a NaN the result is false,
  /// also against itself.
  virtual bool operator==(const GXVector& other) const;

  /// The negation of `operator==`, through the virtual call.
  virtual bool operator!=(const GXVector& other) const;

  /// The scalar product. The terms are added in the order Y, X, Z, which decides the last bit.
  virtual double dot(const GXVector& other) const;

  /// A new vector, the mean of both.
  virtual GXVector Mid(const GXVector& other) const;

  /// Hands out X, Y, Z.
  virtual void AsDbl(double& x, double& y, double& z) const;

  /// Writes X, Y, Z to three array entries. Degenerate: nothing is written through a null pointer.
  virtual void AsDbl(double* const components) const;

  /// Stores the numbers "X", "Y", "Z" unrounded: in a new child of `paragraph` named `key`, or in
  /// `paragraph` itself where `key` is empty. The last argument is not used.
  /// Requires: `paragraph` is not null.
  virtual void Write(const GXString& key, GXParagraph* const& paragraph, const int& unused) const;

  /// Takes the numbers "X", "Y", "Z" from the child named `key`, or from `paragraph` itself where
  /// `key` is empty; a missing number becomes 0. The last argument is not used.
  ///
  /// Degenerate: without paragraph or child the vector stays as it is.
  virtual void Read(const GXString& key, GXParagraph* const& paragraph, const int& unused);

  /// Whether each component differs by no more than `tol`.
  /// Tolerance: the argument, absolute, inclusive, per component in the order X, Y, Z, never on the
  ///   distance. At 0 only equal components pass; a NaN never does.
  virtual bool IsAlmostEq(const GXVector& other, const double& tol) const;

  /// Rounds each component to `decimals` decimal places, in place, by `GXMath::RoundToDec`.
  /// Caution: negative `decimals` do not mean "no rounding" here as they do in the scaling
  ///   operations; they round to tens, hundreds and so on.
  virtual void RoundToDec(const int& decimals);

  /// @name Components
  double GetX() const;
  double GetY() const;
  double GetZ() const;
  void SetX(const double& x);
  void SetY(const double& y);
  void SetZ(const double& z);
  void SetVector(double x, double y, double z);

  /// Becomes the offset of the point from the origin -- src/elements/ElementConversions.cpp.
  void SetVector(const GX3DPoint& p);

  /// Becomes the offset `to` - `from` -- src/elements/ElementConversions.cpp.
  void SetVector(const GX3DPoint& from, const GX3DPoint& to);

  /// @name Angle and rotation

  /// The angle between this vector and `other`, in radians, 0 to pi.
  ///
  /// Where the normal, this cross `other` brought to length 1, is exactly `reference` reversed, the
  /// angle comes out as -angle when `signedAngle` is true.
  ///
  /// Degenerate: 0 with a null vector on either side, `reference` untouched. NaN where rounding
  ///   carries the cosine of parallel vectors beyond -1..1, for it is not clamped. A null
  ///   `reference` counts as the reversed normal of parallel vectors, which is null too.
  /// Caution: `reference` is brought to length 1 in place.
  /// Caution: with `signedAngle` false the opposed case gives angle + pi, not the reflex angle
  ///   2 pi - angle.
  /// Caution: the normal is compared exactly; a reference off by the last bit does not count as
  ///   opposed, and the angle comes out positive.
  double GetAngleRad(const GXVector& other, bool signedAngle, GXVector& reference) const;

  /// Turns the vector by `angle` radians about the axis through the origin along `axis`,
  /// right-handed: counter-clockwise seen against the axis -- src/elements/ElementConversions.cpp.
  ///
  /// Degenerate: unchanged for a null axis.
  /// Caution: unchanged too for an axis whose line passes closer than 0.00001 to the fixed point
  ///   (1234.1234, 5678.5678, 9012.9012) that the rotation uses as its aid.
  void Rotate(const GXVector& axis, double angle);
};

/// Vector in the plane, without relation to `GXVector` other than that class's constructor.
///
///     GX2DVector side(3, 4);
///     side.Len();                                 // 5
///     GX2DVector left = side.GetPerpendicular();  // (-4, 3)
class KTRCL_GEOMETRY_EXPORT GX2DVector {
 public:
  double X;  ///< First component.
  double Y;  ///< Second component.

  /// @name Construction -- src/foundation/GX2DVector.cpp, from elements:
  /// src/elements/ElementConversions.cpp

  /// The null vector.
  GX2DVector();
  GX2DVector(const double& x, const double& y);
  GX2DVector(const GX2DVector& other);

  /// The offset `to` - `from`.
  GX2DVector(const GX2DVector& from, const GX2DVector& to);

  /// The offset from (x1, y1) to (x2, y2).
  GX2DVector(double x1, double y1, double x2, double y2);

  /// The offset of the point from the origin.
  GX2DVector(const GX2DPoint& p);

  /// The offset `to` - `from`.
  GX2DVector(const GX2DPoint& from, const GX2DPoint& to);

  /// The offset from the start of the line to its end.
  GX2DVector(const GX2DLine& line);

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~GX2DVector();

  /// Euclidean length. Degenerate: as `GXVector::Len`.
  virtual double Len() const;

  /// Scales the vector to length 1, in place. Degenerate: a vector of length exactly 0 stays.
  virtual void Standard();

  /// Negates both components, in place.
  virtual void Reverse();

  /// A new vector with both components negated.
  virtual GX2DVector GetReversed() const;

  /// A new vector (-Y, X): a quarter turn counter-clockwise.
  virtual GX2DVector GetPerpendicular() const;

  /// A new vector, the sum. `other` stays as it is, though it is taken by plain reference.
  virtual GX2DVector Add(GX2DVector& other) const;

  /// A new vector with both components negated.
  virtual GX2DVector operator-() const;

  /// This vector minus `other`.
  virtual GX2DVector operator-(const GX2DVector& other) const;

  /// The sum of both vectors.
  virtual GX2DVector operator+(const GX2DVector& other) const;
  virtual GX2DVector& operator=(const GX2DVector& other);

  /// Exact comparison of X, then Y. 0.0 and -0.0 are equal; with a NaN the result is false.
  virtual bool operator==(const GX2DVector& other) const;

  /// The negation of `operator==`, through the virtual call.
  virtual bool operator!=(const GX2DVector& other) const;

  /// The scalar product.
  virtual double dot(const GX2DVector& other) const;

  /// A new vector, the mean of both.
  virtual GX2DVector Mid(const GX2DVector& other) const;

  /// Each component times `factor`.
  virtual GX2DVector operator*(double factor) const;

  /// Stores the numbers "X", "Y"; otherwise as `GXVector::Write`.
  virtual void Write(const GXString& key, GXParagraph* const& paragraph, const int& unused) const;

  /// Takes the numbers "X", "Y"; otherwise as `GXVector::Read`.
  virtual void Read(const GXString& key, GXParagraph* const& paragraph, const int& unused);

  /// Whether both components differ by no more than `tol`.
  /// Tolerance: the argument, absolute, inclusive, per component, never on the distance.
  virtual bool IsAlmostEq(const GX2DVector& other, const double& tol) const;

  /// @name Components
  double GetX() const;
  double GetY() const;
  void SetX(const double& x);
  void SetY(const double& y);
  void SetVector(double x, double y);

  /// @name Angle

  /// The turn from this vector to `other`, in radians: the bearing of `other` minus the bearing of
  /// this. A bearing is atan2(X, Y), measured from the +Y axis, growing clockwise, -pi to pi.
  ///
  /// Returns: with `signedAngle` the difference, -2 pi to 2 pi, positive clockwise; else its
  ///   absolute value, 0 to 2 pi. From (1, 0) to (0, 1): -pi/2, else pi/2.
  /// Degenerate: a null vector has the bearing 0 (pi or -pi by the signs of its zeros).
  /// Caution: clockwise is positive, unlike everywhere else, and the difference is not reduced to a
  ///   half turn: two vectors close to the -Y axis, one on each side, are almost 2 pi apart.
  double GetAngleRad(const GX2DVector& other, bool signedAngle) const;
};
