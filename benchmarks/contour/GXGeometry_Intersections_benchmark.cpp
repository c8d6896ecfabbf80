// Crossings of two contours and of a contour with itself. The lists stand ready; what is searched
// in them is built anew on every call.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include "ElementLists.h"
#include "Jobs.h"

namespace contour_benchmarks {
namespace {

using MakeCorners = Corners (*)(std::int64_t n);
using Fill = void (*)(GX2DElmList& list, const Corners& corners);

template <MakeCorners first, MakeCorners second, Fill fill>
class TwoLists {
 public:
  explicit TwoLists(std::int64_t n) {
    fill(list1_, first(n));
    fill(list2_, second(n));
  }

 protected:
  GX2DElmList list1_;
  GX2DElmList list2_;
};

template <MakeCorners first, MakeCorners second, Fill fill>
class AllCrossings : TwoLists<first, second, fill> {
 public:
  using TwoLists<first, second, fill>::TwoLists;

  std::size_t Run() {
    GX2DPointList points;
    GXGeometry::GetIntersections(this->list1_, this->list2_, points);
    return points.size();
  }

  Answer GetAnswer() {
    GX2DPointList points;
    GXGeometry::GetIntersections(this->list1_, this->list2_, points);
    return CrossingsAsAnswer(CornersOf(points));
  }
};

template <MakeCorners first, MakeCorners second, Fill fill>
class AnyCrossing : TwoLists<first, second, fill> {
 public:
  using TwoLists<first, second, fill>::TwoLists;

  bool Run() {
    bool found = false;
    GXGeometry::CheckIfIntersection(this->list1_, this->list2_, found);
    return found;
  }

  Answer GetAnswer() { return {Run() ? 1.0 : 0.0}; }
};

template <MakeCorners make, Fill fill>
class SelfCrossings {
 public:
  explicit SelfCrossings(std::int64_t n) { fill(list_, make(n)); }

  bool Run() {
    GX2DPointList points;
    return GXGeometry::HasSelfIntersection(list_, points);
  }

  Answer GetAnswer() {
    GX2DPointList points;
    const bool found = GXGeometry::HasSelfIntersection(list_, points);
    Answer answer = CrossingsAsAnswer(CornersOf(points));
    answer.front() = found ? 1.0 : 0.0;
    return answer;
  }

 private:
  GX2DElmList list_;
};

}  // namespace

void AddIntersectionJobs() {
  Add<AllCrossings<Outline, Neighbour, FillWithLines>>(
      "BM_GXGeometry_GetIntersections_FewHitsLines");
  Add<AllCrossings<Teeth, OppositeTeeth, FillWithLines>>(
      "BM_GXGeometry_GetIntersections_ManyHitsLines");
  Add<AllCrossings<Outline, Neighbour, FillWithArcs>>("BM_GXGeometry_GetIntersections_FewHitsArcs");
  Add<AllCrossings<Teeth, OppositeTeeth, FillWithArcs>>(
      "BM_GXGeometry_GetIntersections_ManyHitsArcs");
  Add<AnyCrossing<Outline, Neighbour, FillWithLines>>(
      "BM_GXGeometry_CheckIfIntersection_CrossingLines");
  Add<AnyCrossing<Outline, Hole, FillWithLines>>("BM_GXGeometry_CheckIfIntersection_NestedLines");
  Add<AnyCrossing<Outline, Hole, FillWithArcs>>("BM_GXGeometry_CheckIfIntersection_NestedArcs");
  Add<SelfCrossings<Outline, FillWithLines>>("BM_GXGeometry_HasSelfIntersection_NoneLines");
  Add<SelfCrossings<Outline, FillWithArcs>>("BM_GXGeometry_HasSelfIntersection_NoneArcs");
  Add<SelfCrossings<Knot, FillWithLines>>("BM_GXGeometry_HasSelfIntersection_FewHitsLines");
  Add<SelfCrossings<Braid, FillWithLines>>("BM_GXGeometry_HasSelfIntersection_ManyHitsLines");
}

}  // namespace contour_benchmarks
