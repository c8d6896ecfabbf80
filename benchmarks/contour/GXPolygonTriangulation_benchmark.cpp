// Polygons cut into triangles. With every ear further vertices are dropped, so there are far fewer
// triangles than those of a whole triangulation, which is what other libraries make.
#include <KTRCL_Geometry/contour/GXPolygonTriangulation.h>

#include "ElementLists.h"
#include "Jobs.h"

namespace contour_benchmarks {
namespace {

template <Corners (*make)(std::int64_t n)>
class Triangulate {
 public:
  explicit Triangulate(std::int64_t n) : polygon_(PointsAt(make(n))) {}

  std::size_t Run() {
    std::vector<GX2DPoint> triangles;
    GXPolygonTriangulation::Process(polygon_, triangles);
    return triangles.size();
  }

  /// What holds for all triangulations: there are triangles, no more than a polygon has, and all
  /// turn counter-clockwise. The area covered is not among it.
  Answer GetAnswer() {
    std::vector<GX2DPoint> triangles;
    GXPolygonTriangulation::Process(polygon_, triangles);
    bool isFine = !triangles.empty() && triangles.size() <= 3 * (polygon_.size() - 2);
    for (std::size_t i = 0; i + 2 < triangles.size(); i += 3) {
      isFine = isFine && GXPolygonTriangulation::Area(
                             {triangles[i], triangles[i + 1], triangles[i + 2]}) > 0.0;
    }
    return {isFine ? 1.0 : 0.0};
  }

 private:
  std::vector<GX2DPoint> polygon_;
};

}  // namespace

void AddTriangulationJobs() {
  Add<Triangulate<Outline>>("BM_GXPolygonTriangulation_Triangulate_Outline");
  Add<Triangulate<Teeth>>("BM_GXPolygonTriangulation_Triangulate_Teeth");
}

}  // namespace contour_benchmarks
