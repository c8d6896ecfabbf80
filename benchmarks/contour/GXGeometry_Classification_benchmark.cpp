// Places of points and contours, direction, surface and perimeter. Nothing is kept from one call to
// the next.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include "ElementLists.h"
#include "Jobs.h"

#include <limits>

namespace contour_benchmarks {
namespace {

constexpr double kTolerance = 0.0001;

using MakeCorners = Corners (*)(std::int64_t n);
using Fill = void (*)(GX2DElmList& list, const Corners& corners);

/// One place each time, the next one of the probes.
class PointInContour {
 public:
  PointInContour(Fill fill, const Corners& outline, double radius) {
    fill(contour_, outline);
    for (const Corner& probe : Probes(outline, radius)) probes_.push_back(PointAt(probe));
  }

  bool Run() { return IsCovered(probes_[next_++ & (probes_.size() - 1)]); }

  Answer GetAnswer() {
    Answer answer;
    for (GX2DPoint& probe : probes_) answer.push_back(IsCovered(probe) ? 1.0 : 0.0);
    return answer;
  }

 private:
  bool IsCovered(GX2DPoint& p) const {
    auto place = GXGeometry::ePointOutsideContour;
    return GXGeometry::IsPointInClosedContour(contour_, p, place, kTolerance) &&
           place != GXGeometry::ePointOutsideContour;
  }

  GX2DElmList contour_;
  std::vector<GX2DPoint> probes_;
  std::size_t next_ = 0;
};

struct PointInLines : PointInContour {
  explicit PointInLines(std::int64_t n) : PointInContour(FillWithLines, Outline(n), kRadius) {}
};

struct PointInArcs : PointInContour {
  explicit PointInArcs(std::int64_t n)
      : PointInContour(FillWithArcs, LargeOutline(n), kLargeRadius) {}
};

template <MakeCorners outer, MakeCorners inner, Fill fill>
class ContourInContour {
 public:
  explicit ContourInContour(std::int64_t n) {
    fill(outline_, outer(n));
    fill(hole_, inner(n));
  }

  bool Run() { return GXGeometry::IsContourInClosedContour(outline_, hole_, true); }

  Answer GetAnswer() {
    const bool reverse = GXGeometry::IsContourInClosedContour(hole_, outline_, true);
    return {Run() ? 1.0 : 0.0, reverse ? 1.0 : 0.0};
  }

 private:
  GX2DElmList outline_;
  GX2DElmList hole_;
};

/// What is asked of one contour and answered by one number.
template <Fill fill>
class OneContour {
 public:
  explicit OneContour(std::int64_t n) { fill(contour_, Outline(n)); }

 protected:
  GX2DElmList contour_;
};

template <Fill fill>
class Surface : OneContour<fill> {
 public:
  using OneContour<fill>::OneContour;
  double Run() { return GXGeometry::GetContourSurface(this->contour_, true); }
  Answer GetAnswer() { return {Run()}; }
};

template <Fill fill>
class Perimeter : OneContour<fill> {
 public:
  using OneContour<fill>::OneContour;
  double Run() { return GXGeometry::GetContourPerimeter(this->contour_); }
  Answer GetAnswer() { return {Run()}; }
};

template <Fill fill>
class Direction : OneContour<fill> {
 public:
  using OneContour<fill>::OneContour;

  bool Run() {
    // What is neither answer stays, should there be none.
    isClockwise_ = true;
    return GXGeometry::CheckDirectionOfElementList(this->contour_, isClockwise_, true,
                                                   std::numeric_limits<double>::lowest());
  }

  Answer GetAnswer() { return {Run() && !isClockwise_ ? 1.0 : 0.0}; }

 private:
  bool isClockwise_ = true;
};

}  // namespace

void AddClassificationJobs() {
  Add<PointInLines>("BM_GXGeometry_PointInContour_Lines");
  Add<PointInArcs>("BM_GXGeometry_PointInContour_LargeArcs");
  Add<ContourInContour<Outline, Hole, FillWithLines>>("BM_GXGeometry_ContourInContour_Lines");
  Add<ContourInContour<LargeOutline, LargeHole, FillWithArcs>>(
      "BM_GXGeometry_ContourInContour_LargeArcs");
  Add<Surface<FillWithLines>>("BM_GXGeometry_Surface_Lines");
  Add<Surface<FillWithArcs>>("BM_GXGeometry_Surface_Arcs");
  Add<Perimeter<FillWithLines>>("BM_GXGeometry_Perimeter_Lines");
  Add<Perimeter<FillWithArcs>>("BM_GXGeometry_Perimeter_Arcs");
  Add<Direction<FillWithLines>>("BM_GXGeometry_Direction_Lines");
  Add<Direction<FillWithArcs>>("BM_GXGeometry_Direction_Arcs");
}

}  // namespace contour_benchmarks
