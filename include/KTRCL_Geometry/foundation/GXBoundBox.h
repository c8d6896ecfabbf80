// An axis-parallel box in space that grows by union.
#pragma once

#include <KTRCL_Geometry/Export.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

/// Axis-parallel box between two corners.
///
///     GXBoundBox box;
///     box.Minimum = first;  // start from a point, not from the default
///     box.Maximum = first;
///     box += second;
///
/// Caution: there is no empty state. A default box is a real box at the origin, and growing it by a
///   far point gives a box that still contains the origin.
/// Caution: nothing keeps `Minimum` below `Maximum`; on a box that is not normalised widths,
///   area and volume can be negative.
class KTRCL_GEOMETRY_EXPORT GXBoundBox {
 public:
  GX3DPoint Minimum;  ///< Corner of the smallest coordinates.
  GX3DPoint Maximum;  ///< Corner of the largest coordinates.

  /// @name Construction -- src/foundation/GXBoundBox.cpp

  /// Both corners at the origin.
  GXBoundBox();
  GXBoundBox(const GXBoundBox& other);
  GXBoundBox& operator=(const GXBoundBox& other);

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~GXBoundBox();

  /// Maximum X minus minimum X. Caution: signed, negative on a box that is not normalised.
  virtual double Width() const;

  /// Maximum Y minus minimum Y. Caution: signed, as `Width`.
  virtual double Height() const;

  /// Maximum Z minus minimum Z. Caution: signed, as `Width`.
  virtual double Depth() const;

  /// Middle of the box in X.
  virtual double MidX() const;

  /// Middle of the box in Y.
  virtual double MidY() const;

  /// Middle of the box in Z.
  virtual double MidZ() const;

  /// Whether both corners agree. Tolerance: 0.0001, absolute, inclusive, per coordinate.
  virtual bool IsAlmostEq(const GXBoundBox& other) const;

  /// `Height` times `Width`, signed as they are.
  virtual double GetArea() const;

  /// `Depth` times `Height` times `Width`, signed as they are.
  virtual double GetVolume() const;

  /// Moves both corners.
  virtual void Translate(const GXVector& v);

  /// Multiplies both corners by `factor` and, where `decimals` is not negative, rounds the
  /// coordinates to that many decimal places. Returns: always true.
  /// Caution: a negative factor leaves the minimum above the maximum.
  virtual bool Scale(const double& factor, const int& decimals);

  /// Negates Z of both corners.
  /// Caution: the minimum can end above the maximum; call `Normalize` afterwards.
  virtual void MirrorXY();

  /// Negates X of both corners. Caution: as `MirrorXY`.
  virtual void MirrorYZ();

  /// Negates Y of both corners. Caution: as `MirrorXY`.
  virtual void MirrorXZ();

  /// Stores the children "MIN" and "MAX", each with the numbers "X", "Y", "Z": in a new child of
  /// `paragraph` named `key`, or in `paragraph` itself where `key` is empty
  /// -- src/elements/Persistence.cpp. The last argument is not used.
  /// Requires: `paragraph` is not null. Returns: always true.
  virtual bool Write(const GXString& key, GXParagraph* const& paragraph, const int& unused);

  /// Takes the corners from the child named `key`, or from `paragraph` itself where `key` is empty.
  /// A missing corner stays as it is, a missing number in a corner becomes 0.
  ///
  /// Returns: false, unchanged, without paragraph or child; true otherwise.
  virtual bool Read(const GXString& key, GXParagraph* const& paragraph, const int& unused);

  /// Swaps minimum and maximum on each axis where the minimum is greater.
  virtual void Normalize();

  /// Exact comparison of both corners.
  virtual bool operator==(const GXBoundBox& other) const;

  /// Whether either corner differs.
  virtual bool operator!=(const GXBoundBox& other) const;

  /// A copy of this box, grown to contain the point.
  virtual GXBoundBox operator+(const GX3DPoint& p) const;

  /// A copy of this box, grown to contain the other.
  virtual GXBoundBox operator+(const GXBoundBox& other) const;

  /// Grows the box to contain the point; a coordinate that is NaN moves nothing.
  virtual GXBoundBox& operator+=(const GX3DPoint& p);

  /// Grows the box to contain the other, whose minimum only lowers and whose maximum only raises.
  virtual GXBoundBox& operator+=(const GXBoundBox& other);
};
