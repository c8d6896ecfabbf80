// The three matrix classes. None holds a translation: origins are passed beside them. All are
// applied to column vectors from the left, so that a product a * b applies b first, and positive
// angles turn counter-clockwise (from +X towards +Y).
#pragma once

#include <KTRCL_Geometry/Export.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

class GX2DMatrix;

/// General 3 by 3 matrix. The rows are base vectors: a matrix of the axes of a frame takes global
/// coordinates to local ones, its transpose takes them back. The default is the identity.
///
///     GXMatrix quarter(GXMatrix::Deg2Rad(90.0), false, false);
///     quarter * GXVector(1, 0, 0);  // (0, 1, 0) up to rounding
class KTRCL_GEOMETRY_EXPORT GXMatrix {
 public:
  GXVector Base[3];  ///< The rows.

  /// @name Construction -- src/foundation/GXMatrix.cpp

  /// The identity.
  GXMatrix();
  GXMatrix(const GXMatrix& other);

  /// The 2 by 2 block in the upper left, 1 in the lower right, the rest 0.
  GXMatrix(const GX2DMatrix& m);

  /// Nine elements, row by row.
  GXMatrix(double e11, double e12, double e13, double e21, double e22, double e23, double e31,
           double e32, double e33);

  /// The 2 by 2 block in the upper left, 1 in the lower right, the rest 0.
  GXMatrix(double e11, double e12, double e21, double e22);

  /// The turn about the Z axis by `angle` radians, counter-clockwise, with rows (cos, -sin, 0),
  /// (sin, cos, 0), (0, 0, 1); then `mirrorOne` puts -cos at E11 and `mirrorTwo` puts -cos at E22.
  GXMatrix(double angle, bool mirrorOne, bool mirrorTwo);

  /// Three rows, each brought to length 1; nothing makes them perpendicular. A null row stays null.
  GXMatrix(const GXVector& a, const GXVector& b, const GXVector& c);

  /// Right-handed frame: row 1 along `a`, row 3 along `a` cross `b`, row 2 their completion, so
  /// that `b` lies in the plane of rows 1 and 2, on the side of row 2.
  ///
  /// Degenerate: for parallel or null vectors rows 2 and 3 are null.
  GXMatrix(const GXVector& a, const GXVector& b);

  /// The frame of the two-vector form with `a` = `p1` - `p0` and `b` = `p2` - `p0`
  /// -- src/elements/ElementConversions.cpp. Degenerate: as there, for points in line.
  GXMatrix(const GX3DPoint& p0, const GX3DPoint& p1, const GX3DPoint& p2);
  virtual ~GXMatrix();
  GXMatrix& operator=(const GXMatrix& other);

  /// The identity.
  static GXMatrix Identity();

  /// The angle form at 0 with no mirror: diagonal 1, 1, 1.
  static GXMatrix NoMirror();

  /// The angle form at 0 with the second mirror: diagonal 1, -1, 1.
  static GXMatrix MirrorAroundX();

  /// The angle form at 0 with the first mirror: diagonal -1, 1, 1.
  static GXMatrix MirrorAroundY();

  /// The angle form at 0 with both mirrors: diagonal -1, -1, 1, half a turn about Z.
  static GXMatrix MirrorBoth();

  /// Degrees to radians, as atan(1) * degrees / 45.
  static double Deg2Rad(double degrees);

  /// Radians to degrees, as radians * 45 / atan(1).
  static double Rad2Deg(double radians);

  /// @name Elements by name: row, then column, both counted from 1
  double Get11() const;
  double Get12() const;
  double Get13() const;
  double Get21() const;
  double Get22() const;
  double Get23() const;
  double Get31() const;
  double Get32() const;
  double Get33() const;
  void Set11(const double& value);
  void Set12(const double& value);
  void Set13(const double& value);
  void Set21(const double& value);
  void Set22(const double& value);
  void Set23(const double& value);
  void Set31(const double& value);
  void Set32(const double& value);
  void Set33(const double& value);

  /// @name Elements by index

  /// The element at row and column counted from 0. Degenerate: 0 for an index outside 0 to 2.
  double GetBase0(const int& row, const int& col) const;

  /// The element at row and column counted from 1. Degenerate: 0 for an index outside 1 to 3.
  double GetBase1(const int& row, const int& col) const;

  /// Sets the element at row and column counted from 0. Degenerate: nothing outside 0 to 2.
  void SetBase0(const int& row, const int& col, const double& value);

  /// Sets the element at row and column counted from 1. Degenerate: nothing outside 1 to 3.
  void SetBase1(const int& row, const int& col, const double& value);

  /// @name Comparison

  /// Exact comparison of all elements, row by row.
  bool operator==(const GXMatrix& other) const;

  /// Whether all elements agree. Tolerance: 0.0001, absolute, inclusive, per element.
  bool IsAlmostEq(const GXMatrix& other) const;

  /// Whether all elements are 0. Tolerance: 0.00001, absolute, inclusive, per element.
  bool IsEmpty() const;

  /// Whether the diagonal is 1 and the rest 0. Tolerance: as `IsEmpty`.
  bool IsIdentity() const;

  /// Quick test for the matrices of the angle form: whether exactly one axis is mirrored, seen from
  /// E11 + E22 vanishing.
  /// Tolerance: 1e-7 on the absolute value of the sum, strict.
  /// Caution: true as well for an unmirrored turn by a quarter, whose cosines vanish.
  bool IsMirrored() const;

  /// @name Algebra

  /// This times `other`: `other` acts first.
  GXMatrix MultMatrix(const GXMatrix& other) const;

  /// The same as `MultMatrix`.
  GXMatrix operator*(const GXMatrix& other) const;

  /// This times the column vector: (row 1 dot v, row 2 dot v, row 3 dot v).
  GXVector MultVector(const GXVector& v) const;

  /// The same as `MultVector`.
  GXVector operator*(const GXVector& v) const;

  /// Swaps rows and columns, in place.
  void Transpose();

  /// Inverts in place.
  ///
  /// Returns: false, the matrix unchanged, for a determinant below 1e-20.
  /// Caution: the determinant is tested with its sign, not by its size. A mirrored (left-handed)
  ///   matrix has a negative one and counts as singular, `MirrorAroundX()` for example.
  bool Inverse();

  /// A new matrix, the inverse. Degenerate: the identity wherever `Inverse` is false, mirrored
  /// matrices included; the caller cannot tell it from the inverse of the identity.
  GXMatrix GetInverse() const;

  /// @name Persistence -- src/elements/Persistence.cpp

  /// Stores the numbers "E11", "E12" to "E33" unrounded: in a new child of `paragraph` named `key`,
  /// or in `paragraph` itself where `key` is empty. Requires: `paragraph` is not null.
  void Write(const GXString& key, GXParagraph* const& paragraph);

  /// Takes the numbers from the child named `key`, or from `paragraph` itself where `key` is empty.
  /// Degenerate: unchanged without paragraph or child.
  /// Caution: a missing number becomes 0, so an empty paragraph gives all zeros, not the identity.
  void Read(const GXString& key, GXParagraph* const& paragraph);
};

/// Plain 2 by 2 value for flat rotation and mirroring.
///
/// Caution: a default matrix is all zeros, not the identity as in `GXMatrix`.
class KTRCL_GEOMETRY_EXPORT GX2DMatrix {
 public:
  double E11;  ///< First row, first column.
  double E12;  ///< First row, second column.
  double E21;  ///< Second row, first column.
  double E22;  ///< Second row, second column.

  /// @name Construction -- src/foundation/GX2DMatrix.cpp

  /// All zeros.
  GX2DMatrix();

  /// Four elements, row by row.
  GX2DMatrix(double e11, double e12, double e21, double e22);

  /// Two rows, each brought to length 1; a null row stays null.
  GX2DMatrix(const GX2DVector& a, const GX2DVector& b);

  /// The turn by `angle` radians, counter-clockwise, with rows (cos, -sin), (sin, cos); then
  /// `mirrorOne` puts -cos at E11 and `mirrorTwo` puts -cos at E22.
  GX2DMatrix(double angle, bool mirrorOne, bool mirrorTwo);

  /// The angle form at 0 with no mirror: diagonal 1, 1.
  static GX2DMatrix NoMirror();

  /// The angle form at 0 with the second mirror: diagonal 1, -1.
  static GX2DMatrix MirrorAroundX();

  /// The angle form at 0 with the first mirror: diagonal -1, 1.
  static GX2DMatrix MirrorAroundY();

  /// The angle form at 0 with both mirrors: diagonal -1, -1, half a turn.
  static GX2DMatrix MirrorBoth();

  /// Degrees to radians, as atan(1) * degrees / 45.
  static double Deg2Rad(double degrees);

  /// Radians to degrees, as radians * 45 / atan(1).
  static double Rad2Deg(double radians);

  /// @name Elements by name: row, then column
  double Get11() const;
  double Get12() const;
  double Get21() const;
  double Get22() const;
  void Set11(const double& value);
  void Set12(const double& value);
  void Set21(const double& value);
  void Set22(const double& value);

  /// @name Algebra

  /// This times the column vector, (E11 x + E12 y, E21 x + E22 y). `v` stays as it is.
  GX2DVector MultVector(GX2DVector& v) const;

  /// The same as `MultVector`.
  GX2DVector operator*(const GX2DVector& v) const;

  /// This times `other`: `other` acts first. `other` stays as it is.
  GX2DMatrix MultMatrix(GX2DMatrix& other) const;

  /// The same as `MultMatrix`.
  GX2DMatrix operator*(const GX2DMatrix& other) const;

  /// Quick test for the matrices of the angle form: whether exactly one axis is mirrored.
  /// Tolerance: 1e-7 on the absolute value of E11 + E22, strict.
  /// Caution: true as well for an unmirrored turn by a quarter, and for a default matrix.
  bool IsMirrored() const;

  /// Inverts a rotation in place.
  ///
  /// Returns: false, the matrix unchanged, for a determinant below 1e-20; the sign counts, so a
  ///   mirrored matrix is refused.
  /// Caution: there is no division by the determinant. What is left is the adjugate: the inverse
  ///   for a determinant of 1, the inverse times the determinant otherwise.
  bool Inverse();

  /// The angle of a rotation matrix, counter-clockwise, in degrees from -180 to 180, from its
  /// cosine E11 and its sine E21. `m` stays as it is.
  ///
  /// Tolerance: 0.001 degrees, inclusive, between the angle of the cosine and that of the sine.
  /// Returns: -999999.9 for a matrix that is no rotation: the two angles do not meet, or E11 or E21
  ///   lies outside -1..1, be it by rounding. E12 and E22 are not looked at.
  /// Caution: the angle comes from the arc cosine; next to 0 and 180 degrees it is exact to a
  ///   millionth of a degree only.
  static double GetAngleDegFromMatrix(GX2DMatrix& m);
};

/// Frame matrix of the global-to-local transforms of elements: `Base[i]` is the i-th base vector
/// ("column i") of the local frame, and a local coordinate is the `dot` of its column with the
/// offset from the origin of the frame. The default is the zero matrix.
class KTRCL_GEOMETRY_EXPORT GXColBasedTransformMatrix {
 public:
  GXVector Base[3];  ///< The base vectors of the local frame.

  /// @name Construction -- src/foundation/GXColBasedTransformMatrix.cpp

  /// The zero matrix, not the identity.
  GXColBasedTransformMatrix();
  GXColBasedTransformMatrix(const GXColBasedTransformMatrix& other);

  /// Copies three vectors from an array. Degenerate: a null pointer gives the zero matrix.
  explicit GXColBasedTransformMatrix(GXVector* const vectors);

  /// Three vectors from three rows of numbers. Degenerate: a null pointer gives the zero matrix.
  explicit GXColBasedTransformMatrix(double (*const rows)[3]);

  /// The right-handed frame with the origin `p0`, its X axis towards `p1` and `p2` in its XY plane
  /// -- src/elements/ElementConversions.cpp.
  /// Caution: for points exactly in line the first two vectors stay the raw offsets `p1` - `p0` and
  ///   `p2` - `p0`, and the third is null.
  GXColBasedTransformMatrix(const GX3DPoint& p0, const GX3DPoint& p1, const GX3DPoint& p2);
  GXColBasedTransformMatrix& operator=(const GXColBasedTransformMatrix& other);

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~GXColBasedTransformMatrix();

  /// Stores the children "P0", "P1", "P2", each a vector: in a new child of `paragraph` named
  /// `key`, or in `paragraph` itself where `key` is empty -- src/elements/Persistence.cpp. The last
  /// argument is not used. Requires: `paragraph` is not null.
  virtual void Write(const GXString& key, GXParagraph* const& paragraph, const int& unused);

  /// Takes the three vectors back; a missing child leaves its vector as it is -- see `Write`.
  /// Degenerate: unchanged without paragraph or child.
  virtual void Read(const GXString& key, GXParagraph* const& paragraph, const int& unused);

  /// @name Access and algebra

  /// Writes the three vectors as rows of numbers. Degenerate: nothing through a null pointer.
  void AsDbl(double (*const rows)[3]) const;

  /// Swaps component i of vector j with component j of vector i, in place.
  void Transpose();

  /// Inverts in place. For a frame of perpendicular unit vectors that is the transpose, with which
  /// the transforms go from local to global.
  ///
  /// Returns: false, the matrix unchanged, for a determinant below 1e-20.
  /// Caution: the determinant is tested with its sign: a left-handed frame counts as singular.
  bool Inverse();
};
