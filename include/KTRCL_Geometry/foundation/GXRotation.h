// A rotation held as three Euler angles in degrees and the number of one of 24 orders.
#pragma once

#include <KTRCL_Geometry/Export.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

/// Rotation as three Euler angles A, B, C in degrees and an order; converts between all 24 orders
/// through `GXMatrix`.
///
/// The name of an order gives the axes of A, B, C. Ending in s (static): A is turned about the
/// first axis, then B about the second, then C about the third, all three axes fixed. Ending in r
/// (rotating): the same, but each axis has been moved by the rotations before. All angles are
/// right-handed: counter-clockwise seen from the positive axis against its direction. They turn the
/// vector, not the frame, and the matrix is applied to column vectors from the left:
///
///     XYZs(a, b, c) has the matrix Z(c) * Y(b) * X(a), XYZr(a, b, c) has X(a) * Y(b) * Z(c).
///     GXRotation::XYZs(0, 0, 90) * GXVector(1, 0, 0);  // (0, 1, 0) up to rounding
///
/// | Number | Order | Number | Order | Number | Order | Number | Order |
/// |--------|-------|--------|-------|--------|-------|--------|-------|
/// | 0      | XYZs  | 6      | YXZs  | 12     | ZYXr  | 18     | ZXYr  |
/// | 1      | XYXs  | 7      | YXYs  | 13     | XYXr  | 19     | YXYr  |
/// | 2      | XZYs  | 8      | ZXYs  | 14     | YZXr  | 20     | YXZr  |
/// | 3      | XZXs  | 9      | ZXZs  | 15     | XZXr  | 21     | ZXZr  |
/// | 4      | YZXs  | 10     | ZYXs  | 16     | XZYr  | 22     | XYZr  |
/// | 5      | YZYs  | 11     | ZYZs  | 17     | YZYr  | 23     | ZYZr  |
///
/// (1) order n + 12 with (a, b, c) is the same rotation as order n with (c, b, a), for n below 12;
/// (2) angles read in the stored order are the stored ones, bit for bit, also beyond 360;
/// (3) angles read in any other order describe the same rotation; A and C lie in -180..180, B in
///     -90..90 for three different axes and has the size 0..180 for a repeated one.
///
/// Degenerate: where B brings the first and third axis together (a cosine of B, or a sine with a
///   repeated axis, of no more than 1.9073486328125e-06), only the sum or difference of A and C is
///   defined. A conversion then gives the whole to A and 0 to C in static orders, the whole to C
///   and 0 to A in rotating ones. In the orders 2, 3, 6, 7, 10, 11 and these plus 12 it is -0.0.
///
/// An order number outside 0 to 23 is stored as it is, has an empty text, and rotates as order 0.
class KTRCL_GEOMETRY_EXPORT GXRotation {
 public:
  /// @name Construction -- src/foundation/GXRotation.cpp

  /// No rotation: 0, 0, 0 in order 0.
  GXRotation();
  GXRotation(const GXRotation& other);

  /// Angles in degrees and the order number, stored as they are.
  GXRotation(double a, double b, double c, int order);

  /// Angles in degrees and the order text, "XYZs" for example.
  /// Degenerate: any other text, small letters included, gives order 0.
  GXRotation(double a, double b, double c, const GXString& order);

  /// Angles in degrees where `degrees` is true, else in radians.
  GXRotation(double a, double b, double c, bool degrees, int order);

  /// The rotation of a matrix, in order 0. The matrix is not tested for being a rotation.
  /// Degenerate: no rotation for a matrix of zeros (`GXMatrix::IsEmpty`).
  GXRotation(const GXMatrix& m);

  /// The same, from nine elements row by row.
  GXRotation(double e11, double e12, double e13, double e21, double e22, double e23, double e31,
             double e32, double e33);

  /// The same, from the 2 by 2 block of a turn about Z.
  /// Caution: with an integer as last argument the angles and the order number are meant.
  GXRotation(double e11, double e12, double e21, double e22);

  /// The same, from the matrix with the rows `a`, `b`, `c`, each brought to length 1.
  /// Caution: the rows are the axes of the frame, so the rotation takes the frame to X, Y, Z.
  GXRotation(const GXVector& a, const GXVector& b, const GXVector& c);

  /// The same, from the matrix with the first row along `a`, the third along `a` cross `b`.
  GXRotation(const GXVector& a, const GXVector& b);

  /// The right-handed turn by `angle` radians about `axis`, in order 0. The axis need not be of
  /// length 1.
  ///
  /// Degenerate: a null axis gives no rotation, or half a turn about Y where the cosine of
  ///   the angle is negative.
  GXRotation(const GXVector& axis, const double& angle);

  /// From the three-point matrix, `p1` and `p2` seen from `p0`
  /// -- src/elements/ElementConversions.cpp.
  GXRotation(const GX3DPoint& p0, const GX3DPoint& p1, const GX3DPoint& p2);
  GXRotation& operator=(const GXRotation& other);

  /// @name Virtual operations: their order is part of the binary interface
  /// Implemented in src/elements/Persistence.cpp.
  ///
  /// The class has no virtual destructor, which would change the table: do not destroy a derived
  /// object through it.

  /// Stores the numbers "A", "B", "C" in degrees and the order text as "O": in a new child of
  /// `paragraph` named `key`, or in `paragraph` itself where `key` is empty.
  /// Requires: `paragraph` is not null.
  virtual void Write(const GXString& key, GXParagraph* const& paragraph);

  /// Takes them back from the child named `key`, or from `paragraph` itself where `key` is empty. A
  /// missing number becomes 0, a missing or unknown order text order 0.
  /// Degenerate: unchanged without paragraph or child.
  virtual void Read(const GXString& key, GXParagraph* const& paragraph);

  double A;  ///< First angle, degrees.
  double B;  ///< Second angle, degrees.
  double C;  ///< Third angle, degrees.
  int O;     ///< Order number, 0 to 23.

  /// @name Stored data
  double GetA() const;  ///< First angle, degrees.
  double GetB() const;  ///< Second angle, degrees.
  double GetC() const;  ///< Third angle, degrees.
  int GetO() const;     ///< Order number.

  /// The text of the stored order, "XYZs" for example. Degenerate: empty for an unknown number.
  GXString GetOStr() const;

  /// @name Algebra

  /// The matrix of the rotation, to be applied to column vectors from the left.
  GXMatrix GetRotationMatrix() const;

  /// Becomes the rotation back, in the same order; the angles come out of the inverse matrix.
  void Inverse();

  /// A new rotation, the rotation back.
  GXRotation GetInverse() const;

  /// The rotation that does `other` first and this one after it, in the order of this.
  GXRotation MultRotation(const GXRotation& other) const;

  /// The same as `MultRotation`.
  GXRotation operator*(const GXRotation& other) const;

  /// The rotated vector. The matrix is computed at each call; for many vectors keep
  /// `GetRotationMatrix`.
  GXVector MultVector(const GXVector& v) const;

  /// The same as `MultVector`.
  GXVector operator*(const GXVector& v) const;

  /// @name Comparison

  /// Exact comparison of the two matrices: rotations in different orders can be equal.
  bool operator==(const GXRotation& other) const;

  /// Tolerance: 0.0001 on each element of the two matrices, inclusive; not on the angles.
  bool IsAlmostEq(const GXRotation& other) const;

  /// Strict order for sorted containers: by order number, then A, then B, then C, exactly.
  /// Requires: no angle is NaN.
  /// Caution: it looks at the stored data and so does not agree with `operator==`: one of two equal
  ///   rotations in different orders is less than the other.
  bool operator<(const GXRotation& other) const;

  /// @name Factories, degrees -- src/foundation/GXRotation_Orders.cpp
  /// A rotation in the named order with the angles as given, degrees.
  static GXRotation XYZs(double a, double b, double c);  ///< Order 0.
  static GXRotation XYXs(double a, double b, double c);  ///< Order 1.
  static GXRotation XZYs(double a, double b, double c);  ///< Order 2.
  static GXRotation XZXs(double a, double b, double c);  ///< Order 3.
  static GXRotation YZXs(double a, double b, double c);  ///< Order 4.
  static GXRotation YZYs(double a, double b, double c);  ///< Order 5.
  static GXRotation YXZs(double a, double b, double c);  ///< Order 6.
  static GXRotation YXYs(double a, double b, double c);  ///< Order 7.
  static GXRotation ZXYs(double a, double b, double c);  ///< Order 8.
  static GXRotation ZXZs(double a, double b, double c);  ///< Order 9.
  static GXRotation ZYXs(double a, double b, double c);  ///< Order 10.
  static GXRotation ZYZs(double a, double b, double c);  ///< Order 11.
  static GXRotation ZYXr(double a, double b, double c);  ///< Order 12.
  static GXRotation XYXr(double a, double b, double c);  ///< Order 13.
  static GXRotation YZXr(double a, double b, double c);  ///< Order 14.
  static GXRotation XZXr(double a, double b, double c);  ///< Order 15.
  static GXRotation XZYr(double a, double b, double c);  ///< Order 16.
  static GXRotation YZYr(double a, double b, double c);  ///< Order 17.
  static GXRotation ZXYr(double a, double b, double c);  ///< Order 18.
  static GXRotation YXYr(double a, double b, double c);  ///< Order 19.
  static GXRotation YXZr(double a, double b, double c);  ///< Order 20.
  static GXRotation ZXZr(double a, double b, double c);  ///< Order 21.
  static GXRotation XYZr(double a, double b, double c);  ///< Order 22.
  static GXRotation ZYZr(double a, double b, double c);  ///< Order 23.

  /// @name Factories, radians -- src/foundation/GXRotation_Orders.cpp
  /// A rotation in the named order from angles in radians; they are stored in degrees.
  static GXRotation XYZsRad(double a, double b, double c);  ///< Order 0.
  static GXRotation XYXsRad(double a, double b, double c);  ///< Order 1.
  static GXRotation XZYsRad(double a, double b, double c);  ///< Order 2.
  static GXRotation XZXsRad(double a, double b, double c);  ///< Order 3.
  static GXRotation YZXsRad(double a, double b, double c);  ///< Order 4.
  static GXRotation YZYsRad(double a, double b, double c);  ///< Order 5.
  static GXRotation YXZsRad(double a, double b, double c);  ///< Order 6.
  static GXRotation YXYsRad(double a, double b, double c);  ///< Order 7.
  static GXRotation ZXYsRad(double a, double b, double c);  ///< Order 8.
  static GXRotation ZXZsRad(double a, double b, double c);  ///< Order 9.
  static GXRotation ZYXsRad(double a, double b, double c);  ///< Order 10.
  static GXRotation ZYZsRad(double a, double b, double c);  ///< Order 11.
  static GXRotation ZYXrRad(double a, double b, double c);  ///< Order 12.
  static GXRotation XYXrRad(double a, double b, double c);  ///< Order 13.
  static GXRotation YZXrRad(double a, double b, double c);  ///< Order 14.
  static GXRotation XZXrRad(double a, double b, double c);  ///< Order 15.
  static GXRotation XZYrRad(double a, double b, double c);  ///< Order 16.
  static GXRotation YZYrRad(double a, double b, double c);  ///< Order 17.
  static GXRotation ZXYrRad(double a, double b, double c);  ///< Order 18.
  static GXRotation YXYrRad(double a, double b, double c);  ///< Order 19.
  static GXRotation YXZrRad(double a, double b, double c);  ///< Order 20.
  static GXRotation ZXZrRad(double a, double b, double c);  ///< Order 21.
  static GXRotation XYZrRad(double a, double b, double c);  ///< Order 22.
  static GXRotation ZYZrRad(double a, double b, double c);  ///< Order 23.

  /// @name Setters, degrees -- src/foundation/GXRotation_Orders.cpp
  /// Takes over three angles, degrees, with the named order.
  void SetXYZs(double a, double b, double c);  ///< Order 0.
  void SetXYXs(double a, double b, double c);  ///< Order 1.
  void SetXZYs(double a, double b, double c);  ///< Order 2.
  void SetXZXs(double a, double b, double c);  ///< Order 3.
  void SetYZXs(double a, double b, double c);  ///< Order 4.
  void SetYZYs(double a, double b, double c);  ///< Order 5.
  void SetYXZs(double a, double b, double c);  ///< Order 6.
  void SetYXYs(double a, double b, double c);  ///< Order 7.
  void SetZXYs(double a, double b, double c);  ///< Order 8.
  void SetZXZs(double a, double b, double c);  ///< Order 9.
  void SetZYXs(double a, double b, double c);  ///< Order 10.
  void SetZYZs(double a, double b, double c);  ///< Order 11.
  void SetZYXr(double a, double b, double c);  ///< Order 12.
  void SetXYXr(double a, double b, double c);  ///< Order 13.
  void SetYZXr(double a, double b, double c);  ///< Order 14.
  void SetXZXr(double a, double b, double c);  ///< Order 15.
  void SetXZYr(double a, double b, double c);  ///< Order 16.
  void SetYZYr(double a, double b, double c);  ///< Order 17.
  void SetZXYr(double a, double b, double c);  ///< Order 18.
  void SetYXYr(double a, double b, double c);  ///< Order 19.
  void SetYXZr(double a, double b, double c);  ///< Order 20.
  void SetZXZr(double a, double b, double c);  ///< Order 21.
  void SetXYZr(double a, double b, double c);  ///< Order 22.
  void SetZYZr(double a, double b, double c);  ///< Order 23.

  /// @name Setters, radians -- src/foundation/GXRotation_Orders.cpp
  /// Takes over three angles, radians, with the named order; they are stored in degrees.
  void SetXYZsRad(double a, double b, double c);  ///< Order 0.
  void SetXYXsRad(double a, double b, double c);  ///< Order 1.
  void SetXZYsRad(double a, double b, double c);  ///< Order 2.
  void SetXZXsRad(double a, double b, double c);  ///< Order 3.
  void SetYZXsRad(double a, double b, double c);  ///< Order 4.
  void SetYZYsRad(double a, double b, double c);  ///< Order 5.
  void SetYXZsRad(double a, double b, double c);  ///< Order 6.
  void SetYXYsRad(double a, double b, double c);  ///< Order 7.
  void SetZXYsRad(double a, double b, double c);  ///< Order 8.
  void SetZXZsRad(double a, double b, double c);  ///< Order 9.
  void SetZYXsRad(double a, double b, double c);  ///< Order 10.
  void SetZYZsRad(double a, double b, double c);  ///< Order 11.
  void SetZYXrRad(double a, double b, double c);  ///< Order 12.
  void SetXYXrRad(double a, double b, double c);  ///< Order 13.
  void SetYZXrRad(double a, double b, double c);  ///< Order 14.
  void SetXZXrRad(double a, double b, double c);  ///< Order 15.
  void SetXZYrRad(double a, double b, double c);  ///< Order 16.
  void SetYZYrRad(double a, double b, double c);  ///< Order 17.
  void SetZXYrRad(double a, double b, double c);  ///< Order 18.
  void SetYXYrRad(double a, double b, double c);  ///< Order 19.
  void SetYXZrRad(double a, double b, double c);  ///< Order 20.
  void SetZXZrRad(double a, double b, double c);  ///< Order 21.
  void SetXYZrRad(double a, double b, double c);  ///< Order 22.
  void SetZYZrRad(double a, double b, double c);  ///< Order 23.

  /// @name Getters, degrees -- src/foundation/GXRotation_Orders.cpp
  /// Hands out the angles, degrees, of this rotation in the named order: the stored ones,
  /// unchanged, where that is the stored order, else those computed through the matrix.
  void GetXYZs(double& a, double& b, double& c) const;  ///< Order 0.
  void GetXYXs(double& a, double& b, double& c) const;  ///< Order 1.
  void GetXZYs(double& a, double& b, double& c) const;  ///< Order 2.
  void GetXZXs(double& a, double& b, double& c) const;  ///< Order 3.
  void GetYZXs(double& a, double& b, double& c) const;  ///< Order 4.
  void GetYZYs(double& a, double& b, double& c) const;  ///< Order 5.
  void GetYXZs(double& a, double& b, double& c) const;  ///< Order 6.
  void GetYXYs(double& a, double& b, double& c) const;  ///< Order 7.
  void GetZXYs(double& a, double& b, double& c) const;  ///< Order 8.
  void GetZXZs(double& a, double& b, double& c) const;  ///< Order 9.
  void GetZYXs(double& a, double& b, double& c) const;  ///< Order 10.
  void GetZYZs(double& a, double& b, double& c) const;  ///< Order 11.
  void GetZYXr(double& a, double& b, double& c) const;  ///< Order 12.
  void GetXYXr(double& a, double& b, double& c) const;  ///< Order 13.
  void GetYZXr(double& a, double& b, double& c) const;  ///< Order 14.
  void GetXZXr(double& a, double& b, double& c) const;  ///< Order 15.
  void GetXZYr(double& a, double& b, double& c) const;  ///< Order 16.
  void GetYZYr(double& a, double& b, double& c) const;  ///< Order 17.
  void GetZXYr(double& a, double& b, double& c) const;  ///< Order 18.
  void GetYXYr(double& a, double& b, double& c) const;  ///< Order 19.
  void GetYXZr(double& a, double& b, double& c) const;  ///< Order 20.
  void GetZXZr(double& a, double& b, double& c) const;  ///< Order 21.
  void GetXYZr(double& a, double& b, double& c) const;  ///< Order 22.
  void GetZYZr(double& a, double& b, double& c) const;  ///< Order 23.

  /// @name Getters, radians -- src/foundation/GXRotation_Orders.cpp
  /// Hands out the angles, radians, of this rotation in the named order, as the getters in degrees.
  /// Changes nothing in this object, though it is not a constant operation.
  void GetXYZsRad(double& a, double& b, double& c);  ///< Order 0.
  void GetXYXsRad(double& a, double& b, double& c);  ///< Order 1.
  void GetXZYsRad(double& a, double& b, double& c);  ///< Order 2.
  void GetXZXsRad(double& a, double& b, double& c);  ///< Order 3.
  void GetYZXsRad(double& a, double& b, double& c);  ///< Order 4.
  void GetYZYsRad(double& a, double& b, double& c);  ///< Order 5.
  void GetYXZsRad(double& a, double& b, double& c);  ///< Order 6.
  void GetYXYsRad(double& a, double& b, double& c);  ///< Order 7.
  void GetZXYsRad(double& a, double& b, double& c);  ///< Order 8.
  void GetZXZsRad(double& a, double& b, double& c);  ///< Order 9.
  void GetZYXsRad(double& a, double& b, double& c);  ///< Order 10.
  void GetZYZsRad(double& a, double& b, double& c);  ///< Order 11.
  void GetZYXrRad(double& a, double& b, double& c);  ///< Order 12.
  void GetXYXrRad(double& a, double& b, double& c);  ///< Order 13.
  void GetYZXrRad(double& a, double& b, double& c);  ///< Order 14.
  void GetXZXrRad(double& a, double& b, double& c);  ///< Order 15.
  void GetXZYrRad(double& a, double& b, double& c);  ///< Order 16.
  void GetYZYrRad(double& a, double& b, double& c);  ///< Order 17.
  void GetZXYrRad(double& a, double& b, double& c);  ///< Order 18.
  void GetYXYrRad(double& a, double& b, double& c);  ///< Order 19.
  void GetYXZrRad(double& a, double& b, double& c);  ///< Order 20.
  void GetZXZrRad(double& a, double& b, double& c);  ///< Order 21.
  void GetXYZrRad(double& a, double& b, double& c);  ///< Order 22.
  void GetZYZrRad(double& a, double& b, double& c);  ///< Order 23.

 protected:
  /// @name Common forms, for any order -- src/foundation/GXRotation.cpp

  /// Takes over three angles, degrees, and an order number.
  void Set(double a, double b, double c, int order);

  /// Takes over three angles, radians, and an order number; stored is value * 180 / pi.
  void SetRad(double a, double b, double c, int order);

  /// Hands out the angles, degrees, in the asked order: the stored ones where it is the stored
  /// order.
  void Get(double& a, double& b, double& c, int order) const;

  /// Hands out the angles, radians, in the asked order: value * pi / 180 of the stored ones where
  /// it is the stored order.
  void GetRad(double& a, double& b, double& c, int order) const;

  /// @name Order texts -- src/foundation/GXRotation_Orders.cpp

  /// The text of an order number. Degenerate: empty for any other number.
  static GXString ConvertOrd2String(const int& order);

  /// The number of an order text, compared exactly. Degenerate: 0 for any other text.
  static int ConvertString2Ord(const GXString& order);
};
