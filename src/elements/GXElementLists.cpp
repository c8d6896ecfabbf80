// The small lists: points, lines and lists of element lists.
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "elements/ElementSequences.h"

#include <algorithm>
#include <memory>

using ktrcl_internal::DestroyContents;
using ktrcl_internal::Largest;
using ktrcl_internal::MoveContents;
using ktrcl_internal::PushOwned;
using ktrcl_internal::Smallest;

GX2DPointRefList::GX2DPointRefList() = default;
GX2DPointRefList::GX2DPointRefList(const GX2DPointRefList& other) = default;
GX2DPointRefList& GX2DPointRefList::operator=(const GX2DPointRefList& other) = default;
GX2DPointRefList::~GX2DPointRefList() = default;

double GX2DPointRefList::GetMinX() const { return Smallest(*this, &GX2DElement::GetMinX); }
double GX2DPointRefList::GetMaxX() const { return Largest(*this, &GX2DElement::GetMaxX); }
double GX2DPointRefList::GetMinY() const { return Smallest(*this, &GX2DElement::GetMinY); }
double GX2DPointRefList::GetMaxY() const { return Largest(*this, &GX2DElement::GetMaxY); }

bool GX2DPointRefList::ContainsPoint(GX2DPoint& p, bool byValue, double tol) const {
  return std::any_of(begin(), end(), [&](const GX2DPoint* point) {
    return byValue ? point && point->IsAlmostEq(p, tol) : point == &p;
  });
}

GX2DPointList::GX2DPointList() = default;
GX2DPointList::GX2DPointList(const GX2DPointList& other) = default;
GX2DPointList& GX2DPointList::operator=(const GX2DPointList& other) = default;
GX2DPointList::~GX2DPointList() { DestroyContents(*this); }

void GX2DPointList::ClearWithContents() { DestroyContents(*this); }

void GX2DPointList::RemovePointWithValue(GX2DPoint& p, const double& tol) {
  // Nothing is destroyed before all are compared, since p and tol may belong to one of the points.
  const auto removed = std::stable_partition(
      begin(), end(), [&](const GX2DPoint* point) { return !point || !point->IsAlmostEq(p, tol); });
  std::for_each(removed, end(), [](const GX2DPoint* point) { delete point; });
  erase(removed, end());
}

GX2DLineList::GX2DLineList() = default;
GX2DLineList::GX2DLineList(const GX2DLineList& other) = default;
GX2DLineList& GX2DLineList::operator=(const GX2DLineList& other) = default;
GX2DLineList::~GX2DLineList() { DestroyContents(*this); }

void GX2DLineList::ClearWithContents() { DestroyContents(*this); }

void GX2DLineList::CloneFrom(const GX2DLineList& source) {
  // Copied before anything is destroyed: the source may share its lines with this list.
  GX2DLineList copies;
  for (const GX2DLine* line : source) {
    if (line) PushOwned(copies, std::make_unique<GX2DLine>(*line));
  }
  ClearWithContents();
  MoveContents(*this, copies);
}

GX2DElmListRefList::GX2DElmListRefList() = default;
GX2DElmListRefList::GX2DElmListRefList(const GX2DElmListRefList& other) = default;
GX2DElmListRefList& GX2DElmListRefList::operator=(const GX2DElmListRefList& other) = default;
GX2DElmListRefList::~GX2DElmListRefList() = default;

bool GX2DElmListRefList::Accept(GX2DElementVisitor& visitor) {
  // Neither a result nor the stop flag ends this walk: they concern the list they arose in.
  for (GX2DElmList* elements : *this) {
    if (elements) elements->Accept(visitor);
  }
  return true;
}

GX2DElmListList::GX2DElmListList() = default;
GX2DElmListList::GX2DElmListList(const GX2DElmListList& other) = default;
GX2DElmListList& GX2DElmListList::operator=(const GX2DElmListList& other) = default;
GX2DElmListList::~GX2DElmListList() { DestroyContents(*this); }

void GX2DElmListList::ClearWithContents() { DestroyContents(*this); }
