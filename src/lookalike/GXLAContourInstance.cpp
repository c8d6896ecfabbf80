// One occurrence of a shape with its real elements, and where it lies against a reference.
#include <KTRCL_Geometry/lookalike/GXLAContourInstance.h>

#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <cstdint>
#include <limits>

namespace {

constexpr double kCircleTolerance = 0.0001;  // length unit: start and end of a full circle
constexpr double kPositionTolerance = 0.01;  // length unit: one distance against another

// The points by which an element is placed.
struct Ends {
  GX2DPoint Start;
  GX2DPoint End;
};

// The list element at a position of the element sequence; null where there is none. The position is
// wide enough for the sum of two positions.
GX2DElement* ElementAt(const GX2DElmList& list, std::int64_t position) {
  if (position < 0 || position > std::numeric_limits<int>::max()) return nullptr;
  if (position % 2 != 0) return nullptr;  // an angle, not a segment
  const std::size_t index = static_cast<std::size_t>(position / 2);
  return index < list.size() ? list[index] : nullptr;
}

// A full circle has no start that means anything: unless `keepCircle`, its centre stands for both
// ends.
Ends EndsOf(GX2DElement& element, bool keepCircle) {
  const auto* arc = keepCircle ? nullptr : dynamic_cast<const GX2DArc*>(&element);
  if (arc != nullptr && arc->Start.IsAlmostEq(arc->End, kCircleTolerance)) {
    return {arc->Center, arc->Center};
  }
  return {element.GetStartPoint(), element.GetEndPoint()};
}

double Distance(const GX2DPoint& a, const GX2DPoint& b) { return GX2DLine(a, b).Len(); }

// Whether a point has the two distances from the reference's ends, in either order: the reference
// may have been drawn the other way round.
bool HasDistances(const GX2DPoint& point, const Ends& reference, double first, double second) {
  const double p = Distance(point, reference.Start);
  const double q = Distance(point, reference.End);
  if (GXMath::AlmostEq(p, first, kPositionTolerance) &&
      GXMath::AlmostEq(q, second, kPositionTolerance)) {
    return true;
  }
  return GXMath::AlmostEq(p, second, kPositionTolerance) &&
         GXMath::AlmostEq(q, first, kPositionTolerance);
}

}  // namespace

GXLAContourInstance::GXLAContourInstance(const GX2DElmList& elements, GXLAContour* contour,
                                         bool reversed, int startPosition)
    : LAContour(contour), Reversed(reversed), StartPosition(startPosition) {
  GX2DElmList::Clone(elements);
}

GXLAContourInstance::GXLAContourInstance(const GXLAContourInstance& other) = default;
GXLAContourInstance& GXLAContourInstance::operator=(const GXLAContourInstance& other) = default;
GXLAContourInstance::~GXLAContourInstance() = default;

GXLAContour* GXLAContourInstance::GetLAContour() const { return LAContour; }

bool GXLAContourInstance::IsLAContourReversed() const { return Reversed; }

int GXLAContourInstance::GetLAContourStartPosition() const { return StartPosition; }

bool GXLAContourInstance::GetStartPointDistanceToRefContour(const GXLAContourInstance& refInstance,
                                                            int referencePosition,
                                                            double& firstDistance,
                                                            double& secondDistance,
                                                            bool keepReferenceCircle) const {
  GX2DElement* own = ElementAt(*this, StartPosition);
  GX2DElement* other = ElementAt(refInstance, referencePosition);
  if (own == nullptr || other == nullptr) return false;

  const Ends ends = EndsOf(*own, false);
  const Ends referenceEnds = EndsOf(*other, keepReferenceCircle);
  firstDistance = Distance(ends.Start, referenceEnds.Start);
  secondDistance = Distance(ends.Start, referenceEnds.End);
  return true;
}

bool GXLAContourInstance::HasSamePositionToRefContour(const double& firstDistance,
                                                      const double& secondDistance,
                                                      const GXLAContourInstance& refInstance,
                                                      int referencePosition, int offset,
                                                      bool keepReferenceCircle) const {
  // Each by itself, too: the sum of two odd positions would be even.
  if (offset < 0 || StartPosition < 0 || offset % 2 != 0 || StartPosition % 2 != 0) return false;
  GX2DElement* own = ElementAt(*this, std::int64_t{offset} + StartPosition);
  GX2DElement* other = ElementAt(refInstance, referencePosition);
  if (own == nullptr || other == nullptr) return false;

  const Ends ends = EndsOf(*own, false);
  const Ends referenceEnds = EndsOf(*other, keepReferenceCircle);
  // Either end of the element: the instance may have been drawn the other way round.
  return HasDistances(ends.Start, referenceEnds, firstDistance, secondDistance) ||
         HasDistances(ends.End, referenceEnds, firstDistance, secondDistance);
}

GXLAContourInstanceRefList::GXLAContourInstanceRefList() = default;
GXLAContourInstanceRefList::GXLAContourInstanceRefList(const GXLAContourInstanceRefList& other) =
    default;
GXLAContourInstanceRefList& GXLAContourInstanceRefList::operator=(
    const GXLAContourInstanceRefList& other) = default;
GXLAContourInstanceRefList::~GXLAContourInstanceRefList() = default;

GXLAContourInstanceList::GXLAContourInstanceList() = default;
GXLAContourInstanceList::GXLAContourInstanceList(const GXLAContourInstanceList& other) = default;
GXLAContourInstanceList& GXLAContourInstanceList::operator=(const GXLAContourInstanceList& other) =
    default;

GXLAContourInstanceList::~GXLAContourInstanceList() { ClearWithContent(); }

void GXLAContourInstanceList::ClearWithContent() {
  for (GXLAContourInstance* instance : *this) delete instance;
  clear();
}
