// Ownership, joining, queries and bulk transforms of the 2D element list.
#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <KTRCL_Geometry/foundation/GXBoundBox.h>

#include "elements/CommonEnds.h"
#include "elements/ElementSequences.h"
#include "foundation/Tolerance.h"

#include <algorithm>
#include <memory>

using ktrcl_internal::DestroyContents;
using ktrcl_internal::EndsOf;
using ktrcl_internal::ForEachElement;
using ktrcl_internal::Largest;
using ktrcl_internal::MoveContents;
using ktrcl_internal::PushOwned;
using ktrcl_internal::Smallest;

namespace {

/// The flat counterpart of a point, line or arc in space; null for any other kind.
std::unique_ptr<GX2DElement> Flattened(GX3DElement* element, int plane) {
  if (const auto* point = dynamic_cast<GX3DPoint*>(element)) {
    return std::make_unique<GX2DPoint>(*point, plane);
  }
  if (const auto* line = dynamic_cast<GX3DLine*>(element)) {
    return std::make_unique<GX2DLine>(*line, plane);
  }
  if (const auto* arc = dynamic_cast<GX3DArc*>(element)) {
    return std::make_unique<GX2DArc>(*arc, plane);
  }
  return nullptr;
}

/// Whether one element alone makes a closed contour by its kind.
bool ClosesOnItself(GX2DElement* element) {
  if (dynamic_cast<GX2DPoint*>(element) || dynamic_cast<GX2DRectangle*>(element)) return true;
  const auto* arc = dynamic_cast<GX2DArc*>(element);
  return arc && arc->IsCircle();
}

}  // namespace

GX2DElmList::GX2DElmList() = default;
GX2DElmList::GX2DElmList(const GX2DElmList& other) = default;
GX2DElmList& GX2DElmList::operator=(const GX2DElmList& other) = default;
GX2DElmList::~GX2DElmList() { DestroyContents(*this); }

bool GX2DElmList::Accept(GX2DElementVisitor& visitor) {
  for (GX2DElement* element : *this) {
    if (!element) continue;
    if (!element->Accept(visitor)) return false;
    if (visitor.IsAcceptElementVisitorStopped()) return true;
  }
  return true;
}

void GX2DElmList::ClearWithContents() { DestroyContents(*this); }

void GX2DElmList::Clone(const GX3DElmList* const& source, const int& plane) {
  if (source) Clone(*source, plane);
}

void GX2DElmList::Clone(const GX2DElmList* const& source) {
  if (source) Clone(*source);
}

void GX2DElmList::Clone(const GX3DElmList& source, const int& plane) {
  GX2DElmList copies;
  for (GX3DElement* element : source) {
    if (auto copy = Flattened(element, plane)) PushOwned(copies, std::move(copy));
  }
  ClearWithContents();
  MoveContents(*this, copies);
}

void GX2DElmList::Clone(const GX2DElmList& source) {
  // Copied before anything is destroyed: the source may be this list, or share its elements.
  GX2DElmList copies;
  ForEachElement(source, [&copies](GX2DElement& element) {
    std::unique_ptr<GX2DElement> copy(GX2DElementCreator::GX2DElement(element));
    if (copy) PushOwned(copies, std::move(copy));
  });
  ClearWithContents();
  MoveContents(*this, copies);
}

void GX2DElmList::Append(GX2DElmList* const& list) {
  GX2DElmList copies;
  copies.Clone(list);
  MoveContents(*this, copies);
}

void GX2DElmList::Connect(GX2DElmList* const& list) {
  GX2DElmList copies;
  copies.Clone(list);
  if (!copies.empty() && !empty()) {
    const GX2DPoint from = EndsOf(back()).end;
    const GX2DPoint to = EndsOf(copies.front()).start;
    PushOwned(*this, std::make_unique<GX2DLine>(from, to));
  }
  MoveContents(*this, copies);
  if (!empty()) {
    const GX2DPoint from = EndsOf(back()).end;
    const GX2DPoint to = EndsOf(front()).start;
    PushOwned(*this, std::make_unique<GX2DLine>(from, to));
  }
}

bool GX2DElmList::IsClosed(const double& tol) const {
  if (empty() || !front()) return false;
  if (size() == 1 && ClosesOnItself(front())) return true;
  if (!back()) return false;
  return back()->GetEndPoint().IsAlmostEq(front()->GetStartPoint(), tol);
}

bool GX2DElmList::IsFullyConnected() const {
  // A single entry has no neighbour to be apart from, and an open chain no seam to test.
  return std::adjacent_find(begin(), end(), [](GX2DElement* element, GX2DElement* next) {
           return !element || !next ||
                  !element->GetEndPoint().IsAlmostEq(next->GetStartPoint(),
                                                     ktrcl_internal::kLengthTolerance);
         }) == end();
}

void GX2DElmList::Translate(const double& dx, const double& dy) {
  ForEachElement(*this, [dx, dy](GX2DElement& element) { element.Translate(dx, dy); });
}

void GX2DElmList::Scale(const double& factor, const int& decimals) {
  ForEachElement(*this, [factor, decimals](GX2DElement& e) { e.Scale(factor, decimals); });
}

void GX2DElmList::ScaleX(const double& factor, const int& decimals) {
  ForEachElement(*this, [factor, decimals](GX2DElement& e) { e.ScaleX(factor, decimals); });
}

void GX2DElmList::ScaleY(const double& factor, const int& decimals) {
  ForEachElement(*this, [factor, decimals](GX2DElement& e) { e.ScaleY(factor, decimals); });
}

void GX2DElmList::RotateAxis(const GX2DPoint& centre, const double& degrees) {
  ForEachElement(*this, [centre, degrees](GX2DElement& e) { e.RotateAxis(centre, degrees); });
}

void GX2DElmList::MirrorX() {
  ForEachElement(*this, [](GX2DElement& element) { element.MirrorX(); });
}

void GX2DElmList::MirrorY() {
  ForEachElement(*this, [](GX2DElement& element) { element.MirrorY(); });
}

void GX2DElmList::Reverse() {
  ForEachElement(*this, [](GX2DElement& element) { element.Reverse(); });
  std::reverse(begin(), end());
}

double GX2DElmList::GetMinX() const { return Smallest(*this, &GX2DElement::GetMinX); }
double GX2DElmList::GetMaxX() const { return Largest(*this, &GX2DElement::GetMaxX); }
double GX2DElmList::GetMinY() const { return Smallest(*this, &GX2DElement::GetMinY); }
double GX2DElmList::GetMaxY() const { return Largest(*this, &GX2DElement::GetMaxY); }

GX2DElmList::iterator GX2DElmList::Find(GX2DElement* const& element) {
  return std::find(begin(), end(), element);
}

void GX2DElmList::GetBoundBox(GXBoundBox& box) const {
  box.Minimum = GX3DPoint(GetMinX(), GetMinY(), 0.0);
  box.Maximum = GX3DPoint(GetMaxX(), GetMaxY(), 0.0);
}

bool GX2DElmList::GetNextCircularIterator(iterator& it) {
  if (empty()) return false;
  if (it != end()) ++it;
  if (it == end()) it = begin();
  return true;
}

bool GX2DElmList::GetPreviousCircularIterator(iterator& it) {
  if (empty()) return false;
  if (it == begin()) it = end();
  --it;
  return true;
}
