// Writes a part into a paragraph tree, for finding out why two parts did or did not look alike.
#pragma once

#include <KTRCL_Geometry/Export.h>

class GXLAContour;
class GXLAContourInstance;
class GXLAPart;
class GXParagraph;
class GXString;

/// Lets a host hang its own attributes on the paragraph of an occurrence.
class KTRCL_GEOMETRY_EXPORT IGXLAPartDump_GXLAContourInstanceXmlAttribute {
 public:
  /// @name Virtual operations: their order is part of the binary interface

  /// Called for each internal occurrence, before its content is written.
  virtual void AddXmlAttribute(GXLAContourInstance* instance, GXParagraph* paragraph) = 0;

 protected:
  IGXLAPartDump_GXLAContourInstanceXmlAttribute();
  // Hosts destroy their own classes; a virtual destructor would change the table.
  ~IGXLAPartDump_GXLAContourInstanceXmlAttribute();
};

/// Dumps parts. Stateless.
class KTRCL_GEOMETRY_EXPORT CGXLAPartDump {
 public:
  CGXLAPartDump();

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~CGXLAPartDump();

  /// Adds a paragraph "GXLAPart" with all shapes and occurrences of the part to `parent`. The part
  /// is not changed. `comment` becomes an attribute unless it is empty; `attributes` may be null.
  ///
  ///     GXLAPart
  ///       ExtGXLAContour              the external contour, if there is one
  ///         ELEMENTS                  LINE_1, ANGLE, ARC_2, ...
  ///         GXLAContourInstance       its instance, if there is one: ELEMENT ..., BoundBox
  ///       IntGXLAContourList          every internal shape: IntGXLAContour ...
  ///       IntGXLAContourManager       every internal shape once more, with its occurrences:
  ///         IntGXLAContour            ELEMENTS, GXLAContourInstance ...
  ///
  /// Angles are in radians, with degrees in brackets behind. Numbers read back as the numbers that
  /// were written.
  ///
  /// Degenerate: null contours and instances are passed over, and so are null elements of a contour
  ///   and those of other kinds. A null element of an instance, and one that is neither line nor
  ///   arc, leaves an empty "ELEMENT".
  /// Caution: the shapes of the manager come in the order of their addresses, which differs from
  ///   run to run.
  static void DoDump(GXLAPart& part, GXParagraph& parent, const GXString& comment,
                     IGXLAPartDump_GXLAContourInstanceXmlAttribute* attributes);

 private:
  static void DumpGXLAContour(GXLAContour& contour, GXParagraph& paragraph);
  static void DumpGXLAContourInstance(GXLAContourInstance& instance, GXParagraph& paragraph);
};
