// Ownership, joining, extent and bulk transforms of the 3D element list.
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <KTRCL_Geometry/foundation/GXMatrix.h>
#include <KTRCL_Geometry/foundation/GXRotation.h>
#include <KTRCL_Geometry/foundation/GXVector.h>

#include "elements/ElementSequences.h"

#include <memory>

using ktrcl_internal::DestroyContents;
using ktrcl_internal::ForEachElement;
using ktrcl_internal::Largest;
using ktrcl_internal::MoveContents;
using ktrcl_internal::PushOwned;
using ktrcl_internal::Smallest;

namespace {

/// The list scales without rounding.
constexpr int kNoRounding = -1;

/// Copy of a point, line or arc; null for any other kind.
std::unique_ptr<GX3DElement> Copied(GX3DElement* element) {
  if (const auto* point = dynamic_cast<GX3DPoint*>(element)) {
    return std::make_unique<GX3DPoint>(*point);
  }
  if (const auto* line = dynamic_cast<GX3DLine*>(element)) {
    return std::make_unique<GX3DLine>(*line);
  }
  if (const auto* arc = dynamic_cast<GX3DArc*>(element)) return std::make_unique<GX3DArc>(*arc);
  return nullptr;
}

/// The spatial counterpart of a point, line or arc; null for any other kind, rectangles included.
std::unique_ptr<GX3DElement> Raised(GX2DElement* element, int plane) {
  if (const auto* point = dynamic_cast<GX2DPoint*>(element)) {
    return std::make_unique<GX3DPoint>(*point, plane);
  }
  if (const auto* line = dynamic_cast<GX2DLine*>(element)) {
    return std::make_unique<GX3DLine>(*line, plane);
  }
  if (const auto* arc = dynamic_cast<GX2DArc*>(element)) {
    return std::make_unique<GX3DArc>(*arc, plane);
  }
  return nullptr;
}

}  // namespace

GX3DElmList::GX3DElmList() = default;
GX3DElmList::GX3DElmList(const GX3DElmList& other) = default;
GX3DElmList& GX3DElmList::operator=(const GX3DElmList& other) = default;
GX3DElmList::~GX3DElmList() { DestroyContents(*this); }

void GX3DElmList::ClearWithContents() { DestroyContents(*this); }

void GX3DElmList::Clone(GX3DElmList* const& source) {
  if (!source) return;
  // Copied before anything is destroyed: the source may be this list, or share its elements.
  GX3DElmList copies;
  for (GX3DElement* element : *source) {
    if (auto copy = Copied(element)) PushOwned(copies, std::move(copy));
  }
  ClearWithContents();
  MoveContents(*this, copies);
}

void GX3DElmList::Clone(GX2DElmList* const& source, const int& plane) {
  if (!source) return;
  GX3DElmList copies;
  for (GX2DElement* element : *source) {
    if (auto copy = Raised(element, plane)) PushOwned(copies, std::move(copy));
  }
  ClearWithContents();
  MoveContents(*this, copies);
}

void GX3DElmList::Append(GX3DElmList* const& list) {
  GX3DElmList copies;
  copies.Clone(list);
  MoveContents(*this, copies);
}

double GX3DElmList::GetMinX() const { return Smallest(*this, &GX3DElement::GetMinX); }
double GX3DElmList::GetMaxX() const { return Largest(*this, &GX3DElement::GetMaxX); }
double GX3DElmList::GetMinY() const { return Smallest(*this, &GX3DElement::GetMinY); }
double GX3DElmList::GetMaxY() const { return Largest(*this, &GX3DElement::GetMaxY); }
double GX3DElmList::GetMinZ() const { return Smallest(*this, &GX3DElement::GetMinZ); }
double GX3DElmList::GetMaxZ() const { return Largest(*this, &GX3DElement::GetMaxZ); }

void GX3DElmList::RotateX(const double& radians) {
  ForEachElement(*this, [radians](GX3DElement& element) { element.RotateX(radians); });
}

void GX3DElmList::RotateY(const double& radians) {
  ForEachElement(*this, [radians](GX3DElement& element) { element.RotateY(radians); });
}

void GX3DElmList::RotateZ(const double& radians) {
  ForEachElement(*this, [radians](GX3DElement& element) { element.RotateZ(radians); });
}

void GX3DElmList::RotateAxis(const GX3DLine& axis, const double& radians) {
  ForEachElement(*this, [axis, radians](GX3DElement& e) { e.RotateAxis(axis, radians); });
}

void GX3DElmList::Rotate(const GXRotation& rotation) {
  ForEachElement(*this, [&rotation](GX3DElement& element) { element.Rotate(rotation); });
}

void GX3DElmList::MirrorXY() {
  ForEachElement(*this, [](GX3DElement& element) { element.MirrorXY(); });
}

void GX3DElmList::MirrorYZ() {
  ForEachElement(*this, [](GX3DElement& element) { element.MirrorYZ(); });
}

void GX3DElmList::MirrorXZ() {
  ForEachElement(*this, [](GX3DElement& element) { element.MirrorXZ(); });
}

void GX3DElmList::Translate(const GXVector& v) {
  ForEachElement(*this, [&v](GX3DElement& element) { element.Translate(v); });
}

void GX3DElmList::Scale(const double& factor) {
  ForEachElement(*this, [factor](GX3DElement& element) { element.Scale(factor, kNoRounding); });
}

void GX3DElmList::ScaleX(const double& factor) {
  ForEachElement(*this, [factor](GX3DElement& element) { element.ScaleX(factor, kNoRounding); });
}

void GX3DElmList::ScaleY(const double& factor) {
  ForEachElement(*this, [factor](GX3DElement& element) { element.ScaleY(factor, kNoRounding); });
}

void GX3DElmList::ScaleZ(const double& factor) {
  ForEachElement(*this, [factor](GX3DElement& element) { element.ScaleZ(factor, kNoRounding); });
}

void GX3DElmList::TransformGloLoc(const GX3DPoint& origin, const GXMatrix& m) {
  ForEachElement(*this, [origin, &m](GX3DElement& e) { e.TransformGloLoc(origin, m); });
}

void GX3DElmList::TransformGloLoc(const GX3DPoint& origin, const GXColBasedTransformMatrix& m) {
  ForEachElement(*this, [origin, &m](GX3DElement& e) { e.TransformGloLoc(origin, m); });
}

void GX3DElmList::TransformLocGlo(const GX3DPoint& origin, const GXMatrix& m) {
  ForEachElement(*this, [origin, &m](GX3DElement& e) { e.TransformLocGlo(origin, m); });
}

void GX3DElmList::TransformLocGlo(const GX3DPoint& origin, const GXColBasedTransformMatrix& m) {
  ForEachElement(*this, [origin, &m](GX3DElement& e) { e.TransformLocGlo(origin, m); });
}
