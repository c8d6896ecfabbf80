// A sheet-metal part as the recognition sees it: one external contour, and the cut-outs in groups
// of the same shape.
#pragma once

#include <KTRCL_Geometry/Export.h>
#include <KTRCL_Geometry/lookalike/GXLAContourInstance.h>

#include <list>

class GXLAPart;

/// Visits parts; derive from it.
class KTRCL_GEOMETRY_EXPORT GXLAPartVisitor {
 public:
  /// @name Virtual operations: their order is part of the binary interface
  virtual ~GXLAPartVisitor();

  /// Sees one part. Returning false ends the walk over a list.
  virtual bool Visit(GXLAPart& part) = 0;
};

/// One part. While it is filled it already finds out which cut-outs have the same shape: a part
/// with a hundred equal holes holds one contour and a hundred instances.
///
/// Two parts are compared by the host, in this order: external contours by the long form of
/// `GXLAContour::HaveSameGeometry`; cut-outs by `GXLAIntContoursEqual`; where positions count, each
/// pair of instances by `GXLAContourInstance::HasSamePositionToRefContour`.
///
/// Ownership: the part owns its contours and instances. Copying and assigning copy pointers: the
/// copies share all objects, exactly one of them may be destroyed filled, and assignment forgets,
/// without destroying, what the receiver held.
class KTRCL_GEOMETRY_EXPORT GXLAPart {
 public:
  /// A part without contours.
  GXLAPart();
  GXLAPart(const GXLAPart& other);
  GXLAPart& operator=(const GXLAPart& other);

  /// @name Virtual operations: their order is part of the binary interface
  /// Destroys the external contour and instance and all internal ones.
  virtual ~GXLAPart();

  GXLAContour* ExternalLAContour;                      ///< Owned; null until set.
  GXLAContourInstance* ExternalLAContourInstance;      ///< Owned; null until set.
  GXLAContourList InternalLAContours;                  ///< Distinct shapes, from long to short.
  GXLAContourInstanceList InternalLAContourInstances;  ///< All occurrences, in order of adding.
  GXLAContourManager InternalLAContourManager;         ///< Shape to occurrences.

  /// @name Filling
  ///
  /// A contour is copied together with its pointers, so part and host share its elements, and where
  /// the copy is kept the part owns them: the host then empties its contour with the sequence's
  /// plain `clear`. An element list is always copied and stays the host's. When memory runs out the
  /// exception passes and the part is as it was.

  /// Sets the external contour; the elements of `contour` go over to the part.
  ///
  /// Returns: the new instance, which the part owns: not reversed, start position 0.
  /// Caution: a second call does not destroy what the first one set; set it once.
  GXLAContourInstance* AddExternalContourInstance(GX2DElmList& elements,
                                                  const GXLAContour& contour);

  /// Adds a cut-out to the group of its shape.
  ///
  /// The shapes of the part are asked in turn, from long to short, by the short form of
  /// `GXLAContour::HaveSameGeometry` with the given mode, tolerances and trace (null for none). On
  /// a match the instance joins that shape, with the start position found, and the elements of
  /// `contour` stay the host's. Otherwise a copy of `contour` becomes a new shape, whose elements
  /// belong to the part, and the instance starts its group with start position 0.
  ///
  /// Returns: the new instance, which the part owns; null, and nothing is added, where the list of
  ///   shapes holds a null entry before a match.
  /// Caution: `Reversed` of the instance is true for every occurrence that a walk recognised, also
  ///   forward; it means "occurrence of a shape met before", not "walked backward".
  /// Caution: open contours are not walked: one with the header figures of a shape joins it, with
  ///   `Reversed` false and start position 0.
  GXLAContourInstance* AddInternalContourInstance(GX2DElmList& elements, const GXLAContour& contour,
                                                  GXLAContour::eNmbSegmentsMode mode,
                                                  GXLATolerances& tolerances,
                                                  GXEvent1Param<const GXString&>* trace);

  /// @name Access to the fields; what the pointers lead to stays the part's
  GXLAContour* GetExternalLAContour() const;
  GXLAContourInstance* GetExternalLAContourInstance() const;
  GXLAContourList& GetInternalLAContourList();
  GXLAContourInstanceList& GetInternalLAContourInstanceList();
  GXLAContourManager& GetInternalLAContourManager();

  /// Shows this part to the visitor. Returns: what `Visit` returns.
  bool Accept(GXLAPartVisitor& visitor);
};

/// Owned parts. Copies share them: exactly one holder may be destroyed filled, and assignment
/// forgets, without destroying, what the receiver held.
class KTRCL_GEOMETRY_EXPORT GXLAPartList : public std::list<GXLAPart*> {
 public:
  GXLAPartList();
  GXLAPartList(const GXLAPartList& other);
  GXLAPartList& operator=(const GXLAPartList& other);

  /// Destroys the parts.
  ~GXLAPartList();

  /// Destroys every part and empties the list; the plain `clear` only forgets.
  void ClearWithContents();

  /// Shows each part to the visitor, in order. Null entries are passed over.
  ///
  /// Returns: false as soon as one visit does, and later parts are not visited; otherwise true, for
  ///   an empty list too.
  bool Accept(GXLAPartVisitor& visitor);
};

/// Creates parts into a list, which owns them and must outlive the creator.
class KTRCL_GEOMETRY_EXPORT GXLAPartCreator {
 public:
  GXLAPartCreator(GXLAPartList& parts);

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~GXLAPartCreator();

  /// Appends a new, empty part to the list and returns it; the list owns it.
  GXLAPart* CreateLAPart();

 private:
  GXLAPartList& parts_;
};

/// Stateless; only its assignment exists, and it does nothing. It holds no logic.
class KTRCL_GEOMETRY_EXPORT GXLAPartsEqual {
 public:
  GXLAPartsEqual& operator=(const GXLAPartsEqual& other);
};
