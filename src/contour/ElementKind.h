// The kind of an element, as `dynamic_cast` tells it, at the price of a comparison of addresses.
#pragma once

#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include <typeinfo>

namespace ktrcl_internal {

/// `kOther` stands for null entries and for kinds that the library does not know.
enum class PrimitiveKind { kLine, kArc, kPoint, kRectangle, kOther };

/// Whether the element is of this very class and of none derived from it.
///
/// Only addresses are compared: an equal one proves the class, a different one proves nothing, as a
/// program may hold the description of a class twice. Requires: no null pointer.
template <class Kind, class Element>
bool IsExactly(const Element* element) {
  return &typeid(*element) == &typeid(Kind);
}

/// Kind of a flat element; one of a class derived from a line is a line.
inline PrimitiveKind KindOf(const GX2DElement* element) {
  if (element == nullptr) return PrimitiveKind::kOther;
  // Nearly every element; the casts behind cost twenty times as much.
  if (IsExactly<GX2DLine>(element)) return PrimitiveKind::kLine;
  if (IsExactly<GX2DArc>(element)) return PrimitiveKind::kArc;
  if (dynamic_cast<const GX2DLine*>(element) != nullptr) return PrimitiveKind::kLine;
  if (dynamic_cast<const GX2DArc*>(element) != nullptr) return PrimitiveKind::kArc;
  if (dynamic_cast<const GX2DPoint*>(element) != nullptr) return PrimitiveKind::kPoint;
  if (dynamic_cast<const GX2DRectangle*>(element) != nullptr) return PrimitiveKind::kRectangle;
  return PrimitiveKind::kOther;
}

/// The same in space, where there are no rectangles.
inline PrimitiveKind KindOf(const GX3DElement* element) {
  if (element == nullptr) return PrimitiveKind::kOther;
  if (IsExactly<GX3DLine>(element)) return PrimitiveKind::kLine;
  if (IsExactly<GX3DArc>(element)) return PrimitiveKind::kArc;
  if (dynamic_cast<const GX3DLine*>(element) != nullptr) return PrimitiveKind::kLine;
  if (dynamic_cast<const GX3DArc*>(element) != nullptr) return PrimitiveKind::kArc;
  if (dynamic_cast<const GX3DPoint*>(element) != nullptr) return PrimitiveKind::kPoint;
  return PrimitiveKind::kOther;
}

}  // namespace ktrcl_internal
