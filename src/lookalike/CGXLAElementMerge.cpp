// Removes vertices that are no vertices. Where two segments become one, the earlier is absorbed and
// the later survives, across the seam as well, where the last segment is the earlier of the two:
// hosts rely on that element staying alive.
#include <KTRCL_Geometry/lookalike/CGXLAElementMerge.h>

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>
#include <KTRCL_Geometry/elements/GXElementLists.h>
#include <KTRCL_Geometry/lookalike/GXLAContour.h>

#include "lookalike/ElementFigure.h"

#include <cstddef>
#include <iterator>

namespace {

using ktrcl_internal::ElementFigure;
using ktrcl_internal::ElementKind;
using ktrcl_internal::FigureOf;
using ktrcl_internal::KindOf;

constexpr double kPi = 3.141592653589793;
constexpr double kCentreTolerance = 0.00001;  // length unit, each coordinate by itself

// One segment in both of its forms.
struct Segment {
  GXLAElement* Description;
  GX2DElement* Element;
};

bool IsStraight(const GXLAElement* angle, double tolerance) {
  const ElementFigure figure = FigureOf(angle);
  return figure.Kind == ElementKind::kAngle && GXMath::AlmostEq(figure.Value, kPi, tolerance);
}

bool HaveSameCentre(const GX2DArc& first, const GX2DArc& second) {
  return GXMath::AlmostEq(first.Center.X, second.Center.X, kCentreTolerance) &&
         GXMath::AlmostEq(first.Center.Y, second.Center.Y, kCentreTolerance);
}

bool AbsorbLine(const Segment& earlier, const Segment& later) {
  const auto* from = dynamic_cast<const GX2DLine*>(earlier.Element);
  auto* into = dynamic_cast<GX2DLine*>(later.Element);
  if (from == nullptr || into == nullptr) return false;
  into->Start = from->Start;
  return true;
}

bool AbsorbArc(const Segment& earlier, const Segment& later) {
  const auto* from = dynamic_cast<const GX2DArc*>(earlier.Element);
  auto* into = dynamic_cast<GX2DArc*>(later.Element);
  if (from == nullptr || into == nullptr || !HaveSameCentre(*from, *into)) return false;
  // Asked before the start moves: the old mid point seen from the new start may turn the other way.
  const bool clockwise = into->IsClockwise();
  into->Start = from->Start;
  into->Mid = GX2DArc::CreateMidPoint(into->Center, into->Start, into->End, clockwise);
  return true;
}

// Lengthens `later` by `earlier` where both are lines, or arcs on one centre. Destroys nothing.
bool Absorb(const Segment& earlier, const Segment& later) {
  const ElementKind kind = KindOf(earlier.Description);
  if (kind != KindOf(later.Description)) return false;
  const bool absorbed = (kind == ElementKind::kLine && AbsorbLine(earlier, later)) ||
                        (kind == ElementKind::kArc && AbsorbArc(earlier, later));
  if (!absorbed) return false;

  const auto* from = static_cast<const GXLAElementSegment*>(earlier.Description);
  auto* into = static_cast<GXLAElementSegment*>(later.Description);
  into->SetSegmentLength(into->GetSegmentLength() + from->GetSegmentLength());
  return true;
}

// The last segment goes into the first when the contour runs straight over its seam.
bool MergeAcrossSeam(GXLAContour& contour, GX2DElmList& elements, double tolerance) {
  if (!contour.IsClosed() || !IsStraight(contour.back(), tolerance)) return false;
  const Segment last = {contour[contour.size() - 2], elements.back()};
  const Segment first = {contour.front(), elements.front()};
  if (!Absorb(last, first)) return false;

  delete last.Element;
  delete last.Description;
  delete contour.back();
  elements.pop_back();
  contour.pop_back();
  contour.pop_back();
  return true;
}

// Runs of any length collapse in one pass, which moves what stays to the front.
bool MergeInside(GXLAContour& contour, GX2DElmList& elements, double tolerance) {
  const std::size_t count = elements.size();
  std::size_t kept = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const Segment current = {contour[2 * i], elements[i]};
    GXLAElement* const angle = contour[2 * i + 1];
    if (i + 1 < count && IsStraight(angle, tolerance) &&
        Absorb(current, {contour[2 * i + 2], elements[i + 1]})) {
      delete current.Element;
      delete current.Description;
      delete angle;
      continue;
    }
    elements[kept] = current.Element;
    contour[2 * kept] = current.Description;
    contour[2 * kept + 1] = angle;
    ++kept;
  }
  elements.erase(std::next(elements.begin(), static_cast<std::ptrdiff_t>(kept)), elements.end());
  contour.erase(std::next(contour.begin(), static_cast<std::ptrdiff_t>(2 * kept)), contour.end());
  return kept < count;
}

}  // namespace

CGXLAElementMerge::CGXLAElementMerge() = default;
CGXLAElementMerge::~CGXLAElementMerge() = default;

void CGXLAElementMerge::MergeContour(GXLAContour& contour, GX2DElmList& elements,
                                     double tolerance) {
  if (elements.size() < 2 || contour.size() != 2 * elements.size()) return;
  const bool mergedSeam = MergeAcrossSeam(contour, elements, tolerance);
  const bool mergedInside = MergeInside(contour, elements, tolerance);
  if (mergedSeam || mergedInside) contour.FillInGXLAContourHeaderData();
}

bool CGXLAElementMerge::SameArcCenter(GX2DArc* first, GX2DArc* second) {
  return first != nullptr && second != nullptr && HaveSameCentre(*first, *second);
}
