// Arcs along rows of points. An arc is tested against all its points whenever it grows by one, so
// the time depends on how many points an arc takes: all of them on a circle, and the more the wider
// the tolerance is on the other curves.
#include <KTRCL_Geometry/contour/GXApproximatePoints.h>

#include "ElementLists.h"
#include "Jobs.h"

#include <cmath>

namespace contour_benchmarks {
namespace {

template <Corners (*make)(std::int64_t n), int perTolerance>
class Approximate {
 public:
  explicit Approximate(std::int64_t n) : points_(PointsAt(make(n))) {}

  std::size_t Run() {
    GX2DElmList curve;
    GXApproximatePoints::ApproximateByLinesAndArcs(points_, curve, kTolerance);
    return curve.size();
  }

  /// Whether every element begins where the one before ended, and where the last one ends.
  Answer GetAnswer() {
    GX2DElmList curve;
    GXApproximatePoints::ApproximateByLinesAndArcs(points_, curve, kTolerance);
    GX2DPoint place = points_.front();
    bool isChain = true;
    for (GX2DElement* const element : curve) {
      // Along points that run clockwise an arc runs backwards.
      const bool backwards = AreNear(element->GetEndPoint(), place);
      isChain = isChain && (backwards || AreNear(element->GetStartPoint(), place));
      place = backwards ? element->GetStartPoint() : element->GetEndPoint();
    }
    return {isChain ? 1.0 : 0.0, place.X, place.Y};
  }

 private:
  static constexpr double kTolerance = 1.0 / perTolerance;

  static bool AreNear(const GX2DPoint& a, const GX2DPoint& b) {
    return std::hypot(a.X - b.X, a.Y - b.Y) < 1e-6;
  }

  std::vector<GX2DPoint> points_;
};

}  // namespace

void AddApproximationJobs() {
  Add<Approximate<OnEllipse, 10>>("BM_GXApproximatePoints_Approximate_EllipseWithin0.1");
  Add<Approximate<OnEllipse, 1000>>("BM_GXApproximatePoints_Approximate_EllipseWithin0.001");
  Add<Approximate<OnEllipse, 100000>>("BM_GXApproximatePoints_Approximate_EllipseWithin0.00001");
  Add<Approximate<OnWaves, 10>>("BM_GXApproximatePoints_Approximate_WavesWithin0.1");
  Add<Approximate<OnWaves, 1000>>("BM_GXApproximatePoints_Approximate_WavesWithin0.001");
  Add<Approximate<OnCircle, 1000>>("BM_GXApproximatePoints_Approximate_OneArc");
}

}  // namespace contour_benchmarks
