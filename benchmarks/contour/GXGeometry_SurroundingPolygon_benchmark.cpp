// The polygon of sharp corners around a contour, and the rotation in which the upright box of a
// contour is smallest. Making and destroying the polygon are timed.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include "ElementLists.h"
#include "Jobs.h"

#include <limits>

namespace contour_benchmarks {
namespace {

template <Pieces (*make)(std::int64_t n)>
class SurroundingPolygon {
 public:
  explicit SurroundingPolygon(std::int64_t n) { FillWithPieces(contour_, make(n)); }

  std::size_t Run() {
    GX2DElmList polygon;
    GXGeometry::GetSurroundingPolygon(&contour_, &polygon);
    return polygon.size();
  }

  Answer GetAnswer() {
    GX2DElmList polygon;
    GXGeometry::GetSurroundingPolygon(&contour_, &polygon);
    Corners corners;
    for (GX2DElement* const p : polygon) corners.push_back(CornerAt(p->GetStartPoint()));
    return CornersAsAnswer(corners);
  }

 private:
  GX2DElmList contour_;
};

/// Searched in steps, of whole degrees or of tenths.
template <Corners (*make)(std::int64_t n), void (*fill)(GX2DElmList& list, const Corners& corners),
          int stepsPerDegree>
class SmallestBox {
 public:
  explicit SmallestBox(std::int64_t n) : corners_(make(n)) { fill(contour_, corners_); }

  double Run() { return GXGeometry::GetAngleWithMinBoundingBox(contour_, kStep, false); }

  /// Area of the box; the corners alone reach as far as the contour does.
  Answer GetAnswer() {
    const double degrees = Run();
    Corner low = {std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
    Corner high = {std::numeric_limits<double>::lowest(), std::numeric_limits<double>::lowest()};
    for (const Corner& corner : corners_) {
      const Corner c = Turned(corner, degrees);
      low = {std::min(low.x, c.x), std::min(low.y, c.y)};
      high = {std::max(high.x, c.x), std::max(high.y, c.y)};
    }
    return {(high.x - low.x) * (high.y - low.y)};
  }

 private:
  static constexpr double kStep = 1.0 / stepsPerDegree;

  Corners corners_;
  GX2DElmList contour_;
};

}  // namespace

void AddSurroundingPolygonJobs() {
  Add<SurroundingPolygon<TeethOfLines>>("BM_GXGeometry_GetSurroundingPolygon_Lines",
                                        kMostOfQuickJobs);
  Add<SurroundingPolygon<LargeRoundedTeeth>>("BM_GXGeometry_GetSurroundingPolygon_LinesWithFillets",
                                             kMostOfQuickJobs);
  Add<SurroundingPolygon<OutlineOfArcs>>("BM_GXGeometry_GetSurroundingPolygon_Arcs",
                                         kMostOfQuickJobs);
  Add<SmallestBox<Plate, FillWithLines, 1>>("BM_GXGeometry_SmallestBox_LinesByDegrees");
  Add<SmallestBox<Plate, FillWithLines, 10>>("BM_GXGeometry_SmallestBox_LinesByTenths");
  Add<SmallestBox<PlateBackwards, FillWithArcs, 1>>("BM_GXGeometry_SmallestBox_ArcsByDegrees");
  Add<SmallestBox<PlateBackwards, FillWithArcs, 10>>("BM_GXGeometry_SmallestBox_ArcsByTenths");
}

}  // namespace contour_benchmarks
