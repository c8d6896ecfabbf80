// What a comparison reads of an element: its kind and its one number.
#pragma once

#include <KTRCL_Geometry/lookalike/GXLAElements.h>

#include <typeinfo>

namespace ktrcl_internal {

enum class ElementKind {
  kNone,  // null, or a class of the host's own
  kLine,
  kArc,
  kAngle
};

struct ElementFigure {
  ElementKind Kind = ElementKind::kNone;
  double Value = 0.0;  // a length, or an angle in radians; 0 for kNone
};

/// The kind of an element. A class derived from a line is a line, and so on.
inline ElementKind KindOf(const GXLAElement* element) {
  if (element == nullptr) return ElementKind::kNone;
  // Comparing addresses settles nearly every element several times faster than a cast. One type may
  // still have two descriptions in a process, so a difference proves nothing.
  const std::type_info* type = &typeid(*element);
  if (type == &typeid(GXLAElementAngle)) return ElementKind::kAngle;
  if (type == &typeid(GXLAElementLine)) return ElementKind::kLine;
  if (type == &typeid(GXLAElementArc)) return ElementKind::kArc;

  if (dynamic_cast<const GXLAElementLine*>(element) != nullptr) return ElementKind::kLine;
  if (dynamic_cast<const GXLAElementArc*>(element) != nullptr) return ElementKind::kArc;
  if (dynamic_cast<const GXLAElementAngle*>(element) != nullptr) return ElementKind::kAngle;
  return ElementKind::kNone;
}

/// Kind and number of an element.
inline ElementFigure FigureOf(const GXLAElement* element) {
  const ElementKind kind = KindOf(element);
  if (kind == ElementKind::kNone) return {};
  if (kind == ElementKind::kAngle) {
    return {kind, static_cast<const GXLAElementAngle*>(element)->GetAngle()};
  }
  return {kind, static_cast<const GXLAElementSegment*>(element)->GetSegmentLength()};
}

}  // namespace ktrcl_internal
