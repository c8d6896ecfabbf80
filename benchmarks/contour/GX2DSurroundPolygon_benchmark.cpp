// Rings around contours. Making the ring and destroying it are timed.
#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>

#include "ElementLists.h"
#include "Jobs.h"

namespace contour_benchmarks {
namespace {

template <Pieces (*make)(std::int64_t n)>
class Construct {
 public:
  explicit Construct(std::int64_t n) { FillWithPieces(contour_, make(n)); }

  std::size_t Run() {
    GX2DSurroundPolygon ring;
    ring.ConstructFrom2DElmList(contour_, nullptr);
    return ring.size();
  }

  Answer GetAnswer() {
    GX2DSurroundPolygon ring;
    ring.ConstructFrom2DElmList(contour_, nullptr);
    Corners corners;
    for (const GX2DSurroundPoint* const vertex : ring) corners.push_back(CornerAt(*vertex->Point));
    return CornersAsAnswer(corners);
  }

 private:
  GX2DElmList contour_;
};

}  // namespace

void AddRingJobs() {
  Add<Construct<OutlineOfLines>>("BM_GX2DSurroundPolygon_ConstructRing_Lines", kMostOfQuickJobs);
  Add<Construct<LargeRoundedTeeth>>("BM_GX2DSurroundPolygon_ConstructRing_LinesWithFillets",
                                    kMostOfQuickJobs);
  Add<Construct<LargeArcs>>("BM_GX2DSurroundPolygon_ConstructRing_LargeArcs", kMostOfQuickJobs);
}

}  // namespace contour_benchmarks
