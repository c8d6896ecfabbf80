// The jobs as GEOS does them. Its geometries stand ready; indices are built in `Run`, except by the
// variant Prepared, which keeps its index from one call to the next.
#include "Jobs.h"

#include <geos/algorithm/LineIntersector.h>
#include <geos/algorithm/Orientation.h>
#include <geos/algorithm/locate/IndexedPointInAreaLocator.h>
#include <geos/algorithm/locate/SimplePointInAreaLocator.h>
#include <geos/geom/CoordinateArraySequence.h>
#include <geos/geom/GeometryFactory.h>
#include <geos/geom/LineString.h>
#include <geos/geom/LinearRing.h>
#include <geos/geom/Location.h>
#include <geos/geom/Polygon.h>
#include <geos/geom/prep/PreparedGeometry.h>
#include <geos/geom/prep/PreparedGeometryFactory.h>
#include <geos/noding/BasicSegmentString.h>
#include <geos/noding/MCIndexNoder.h>
#include <geos/noding/MCIndexSegmentSetMutualIntersector.h>
#include <geos/noding/SegmentIntersector.h>
#include <geos/operation/valid/IsSimpleOp.h>
#include <geos/simplify/DouglasPeuckerSimplifier.h>

namespace contour_benchmarks {
namespace {

using geos::geom::Coordinate;
using geos::geom::CoordinateSequence;
using geos::geom::Geometry;
using geos::geom::GeometryFactory;
using geos::geom::LineString;
using geos::geom::Location;
using geos::geom::Polygon;
using geos::noding::SegmentString;

using MakeCorners = Corners (*)(std::int64_t n);

const GeometryFactory& Factory() { return *GeometryFactory::getDefaultInstance(); }

std::unique_ptr<CoordinateSequence> Sequence(const Corners& corners) {
  std::vector<Coordinate> coordinates;
  for (const Corner& c : corners) coordinates.emplace_back(c.x, c.y);
  coordinates.push_back(coordinates.front());
  return std::make_unique<geos::geom::CoordinateArraySequence>(std::move(coordinates));
}

std::unique_ptr<LineString> Path(const Corners& corners) {
  return Factory().createLineString(Sequence(corners));
}

std::unique_ptr<Polygon> Area(const Corners& corners) {
  return Factory().createPolygon(Factory().createLinearRing(Sequence(corners)));
}

// Crossings

/// Keeps the places where segments meet, except those of neighbours on one contour.
class Collector : public geos::noding::SegmentIntersector {
 public:
  void processIntersections(SegmentString* a, std::size_t i, SegmentString* b,
                            std::size_t j) override {
    if (a == b && AreNeighbours(i, j, a->size() - 1)) return;
    intersector_.computeIntersection(a->getCoordinate(i), a->getCoordinate(i + 1),
                                     b->getCoordinate(j), b->getCoordinate(j + 1));
    for (std::size_t k = 0; k < intersector_.getIntersectionNum(); ++k) {
      points_.push_back(intersector_.getIntersection(k));
    }
  }

  const std::vector<Coordinate>& Points() const { return points_; }

  Answer GetAnswer() const {
    Corners corners;
    for (const Coordinate& p : points_) corners.push_back({p.x, p.y});
    return CrossingsAsAnswer(corners);
  }

 private:
  static bool AreNeighbours(std::size_t i, std::size_t j, std::size_t n) {
    return i == j || (i + 1) % n == j || (j + 1) % n == i;
  }

  geos::algorithm::LineIntersector intersector_;
  std::vector<Coordinate> points_;
};

/// Its search for crossings of two sets of lines, without what it builds upon them.
template <MakeCorners first, MakeCorners second>
class AllCrossings {
 public:
  explicit AllCrossings(std::int64_t n) : one_(Sequence(first(n))), two_(Sequence(second(n))) {}

  std::size_t Run() { return Collect().Points().size(); }
  Answer GetAnswer() { return Collect().GetAnswer(); }

 private:
  Collector Collect() {
    const geos::noding::BasicSegmentString one(one_.get(), nullptr);
    const geos::noding::BasicSegmentString two(two_.get(), nullptr);
    SegmentString::ConstVect base = {&one};
    SegmentString::ConstVect other = {&two};
    Collector collector;
    geos::noding::MCIndexSegmentSetMutualIntersector search;
    search.setBaseSegments(&base);
    search.setSegmentIntersector(&collector);
    search.process(&other);
    return collector;
  }

  std::unique_ptr<CoordinateSequence> one_;
  std::unique_ptr<CoordinateSequence> two_;
};

/// The intersection of the two paths as a geometry of points.
template <MakeCorners first, MakeCorners second>
class OverlayOfPaths {
 public:
  explicit OverlayOfPaths(std::int64_t n) : one_(Path(first(n))), two_(Path(second(n))) {}

  std::size_t Run() { return one_->intersection(two_.get())->getNumGeometries(); }

  Answer GetAnswer() {
    const auto result = one_->intersection(two_.get());
    Corners corners;
    for (std::size_t i = 0; i < result->getNumGeometries(); ++i) {
      const Coordinate& p = *result->getGeometryN(i)->getCoordinate();
      corners.push_back({p.x, p.y});
    }
    return CrossingsAsAnswer(corners);
  }

 private:
  std::unique_ptr<LineString> one_;
  std::unique_ptr<LineString> two_;
};

template <MakeCorners first, MakeCorners second>
class AnyCrossing {
 public:
  explicit AnyCrossing(std::int64_t n) : one_(Path(first(n))), two_(Path(second(n))) {}

  bool Run() { return one_->intersects(two_.get()); }
  Answer GetAnswer() { return {Run() ? 1.0 : 0.0}; }

 private:
  std::unique_ptr<LineString> one_;
  std::unique_ptr<LineString> two_;
};

template <MakeCorners first, MakeCorners second>
class AnyCrossingPrepared {
 public:
  explicit AnyCrossingPrepared(std::int64_t n)
      : one_(Path(first(n))),
        two_(Path(second(n))),
        prepared_(geos::geom::prep::PreparedGeometryFactory::prepare(one_.get())) {}

  bool Run() { return prepared_->intersects(two_.get()); }
  Answer GetAnswer() { return {Run() ? 1.0 : 0.0}; }

 private:
  std::unique_ptr<LineString> one_;
  std::unique_ptr<LineString> two_;
  std::unique_ptr<geos::geom::prep::PreparedGeometry> prepared_;
};

template <MakeCorners make>
class SelfCrossings {
 public:
  explicit SelfCrossings(std::int64_t n) : path_(Sequence(make(n))) {}

  std::size_t Run() { return Collect().Points().size(); }
  Answer GetAnswer() { return Collect().GetAnswer(); }

 private:
  Collector Collect() {
    geos::noding::BasicSegmentString path(path_.get(), nullptr);
    std::vector<SegmentString*> paths = {&path};
    Collector collector;
    geos::noding::MCIndexNoder search(&collector);
    search.computeNodes(&paths);
    return collector;
  }

  std::unique_ptr<CoordinateSequence> path_;
};

/// Only whether there is one; stops at the first.
template <MakeCorners make>
class IsSimple {
 public:
  explicit IsSimple(std::int64_t n) : path_(Path(make(n))) {}

  bool Run() { return geos::operation::valid::IsSimpleOp(*path_).isSimple(); }
  Answer GetAnswer() { return {Run() ? 0.0 : 1.0}; }

 private:
  std::unique_ptr<LineString> path_;
};

// Places

class PointInContour {
 public:
  explicit PointInContour(std::int64_t n) : area_(Area(Outline(n))) {
    for (const Corner& probe : Probes(Outline(n))) probes_.emplace_back(probe.x, probe.y);
  }

  bool Run() { return IsCovered(probes_[next_++ & (probes_.size() - 1)]); }

  Answer GetAnswer() {
    Answer answer;
    for (const Coordinate& probe : probes_) answer.push_back(IsCovered(probe) ? 1.0 : 0.0);
    return answer;
  }

 protected:
  std::unique_ptr<Polygon> area_;
  std::vector<Coordinate> probes_;
  std::size_t next_ = 0;

 private:
  bool IsCovered(const Coordinate& p) const {
    using geos::algorithm::locate::SimplePointInAreaLocator;
    return SimplePointInAreaLocator::locatePointInPolygon(p, area_.get()) != Location::EXTERIOR;
  }
};

class PointInContourPrepared : PointInContour {
 public:
  explicit PointInContourPrepared(std::int64_t n) : PointInContour(n), locator_(*area_) {}

  bool Run() { return IsCovered(probes_[next_++ & (probes_.size() - 1)]); }

  Answer GetAnswer() {
    Answer answer;
    for (const Coordinate& probe : probes_) answer.push_back(IsCovered(probe) ? 1.0 : 0.0);
    return answer;
  }

 private:
  bool IsCovered(const Coordinate& p) { return locator_.locate(&p) != Location::EXTERIOR; }

  geos::algorithm::locate::IndexedPointInAreaLocator locator_;
};

/// The whole relation of the areas: lines that lead outside are noticed too.
struct AreaCovers {
  static bool Covers(const Polygon& outer, const Polygon& inner) { return outer.covers(&inner); }
};

/// The same question as ours: the place of every corner. The index is built for the one call.
struct CornersLocated {
  static bool Covers(const Polygon& outer, const Polygon& inner) {
    geos::algorithm::locate::IndexedPointInAreaLocator locator(outer);
    const CoordinateSequence& corners = *inner.getExteriorRing()->getCoordinatesRO();
    for (std::size_t i = 0; i + 1 < corners.size(); ++i) {
      if (locator.locate(&corners.getAt(i)) == Location::EXTERIOR) return false;
    }
    return true;
  }
};

template <typename How>
class ContourInContour {
 public:
  explicit ContourInContour(std::int64_t n) : outline_(Area(Outline(n))), hole_(Area(Hole(n))) {}

  bool Run() { return How::Covers(*outline_, *hole_); }
  Answer GetAnswer() { return {Run() ? 1.0 : 0.0, How::Covers(*hole_, *outline_) ? 1.0 : 0.0}; }

 private:
  std::unique_ptr<Polygon> outline_;
  std::unique_ptr<Polygon> hole_;
};

class ContourInContourPrepared {
 public:
  explicit ContourInContourPrepared(std::int64_t n)
      : outline_(Area(Outline(n))),
        hole_(Area(Hole(n))),
        prepared_(geos::geom::prep::PreparedGeometryFactory::prepare(outline_.get())) {}

  bool Run() { return prepared_->covers(hole_.get()); }
  Answer GetAnswer() {
    const auto reverse = geos::geom::prep::PreparedGeometryFactory::prepare(hole_.get());
    return {Run() ? 1.0 : 0.0, reverse->covers(outline_.get()) ? 1.0 : 0.0};
  }

 private:
  std::unique_ptr<Polygon> outline_;
  std::unique_ptr<Polygon> hole_;
  std::unique_ptr<geos::geom::prep::PreparedGeometry> prepared_;
};

// Measures

struct OneContour {
  explicit OneContour(std::int64_t n) : area_(Area(Outline(n))) {}
  std::unique_ptr<Polygon> area_;
};

struct Surface : OneContour {
  using OneContour::OneContour;
  double Run() { return area_->getArea(); }
  Answer GetAnswer() { return {Run()}; }
};

struct Perimeter : OneContour {
  using OneContour::OneContour;
  double Run() { return area_->getLength(); }
  Answer GetAnswer() { return {Run()}; }
};

struct Direction : OneContour {
  using OneContour::OneContour;
  bool Run() {
    return geos::algorithm::Orientation::isCCW(area_->getExteriorRing()->getCoordinatesRO());
  }
  Answer GetAnswer() { return {Run() ? 1.0 : 0.0}; }
};

// Clean-up

/// Leaves out what lies on a straight line, which is all there is to do on these contours.
class Simplify {
 public:
  explicit Simplify(std::int64_t n) : path_(Path(CutLines(n).path)) {}

  std::size_t Run() { return Simplified()->getNumPoints(); }

  Answer GetAnswer() {
    const auto corners = Simplified()->getCoordinates();
    Corners kept;
    for (std::size_t i = 0; i + 1 < corners->size(); ++i) {
      kept.push_back({corners->getAt(i).x, corners->getAt(i).y});
    }
    return CornersAsAnswer(kept);
  }

 private:
  std::unique_ptr<Geometry> Simplified() const {
    constexpr double kTolerance = 0.00001;
    return geos::simplify::DouglasPeuckerSimplifier::simplify(path_.get(), kTolerance);
  }

  std::unique_ptr<LineString> path_;
};

}  // namespace

void AddGeosJobs() {
  Add<AllCrossings<Outline, Neighbour>>("BM_GEOS_GetIntersections_FewHitsLines");
  Add<OverlayOfPaths<Outline, Neighbour>>("BM_GEOS_GetIntersections_FewHitsLines_Overlay");
  Add<AllCrossings<Teeth, OppositeTeeth>>("BM_GEOS_GetIntersections_ManyHitsLines");
  Add<OverlayOfPaths<Teeth, OppositeTeeth>>("BM_GEOS_GetIntersections_ManyHitsLines_Overlay");
  Add<AnyCrossing<Outline, Neighbour>>("BM_GEOS_CheckIfIntersection_CrossingLines");
  Add<AnyCrossingPrepared<Outline, Neighbour>>(
      "BM_GEOS_CheckIfIntersection_CrossingLines_Prepared");
  Add<AnyCrossing<Outline, Hole>>("BM_GEOS_CheckIfIntersection_NestedLines");
  Add<AnyCrossingPrepared<Outline, Hole>>("BM_GEOS_CheckIfIntersection_NestedLines_Prepared");
  Add<SelfCrossings<Outline>>("BM_GEOS_HasSelfIntersection_NoneLines");
  Add<IsSimple<Outline>>("BM_GEOS_HasSelfIntersection_NoneLines_YesNo");
  Add<SelfCrossings<Knot>>("BM_GEOS_HasSelfIntersection_FewHitsLines");
  Add<IsSimple<Knot>>("BM_GEOS_HasSelfIntersection_FewHitsLines_YesNo");
  Add<SelfCrossings<Braid>>("BM_GEOS_HasSelfIntersection_ManyHitsLines");
  Add<PointInContour>("BM_GEOS_PointInContour_Lines");
  Add<PointInContourPrepared>("BM_GEOS_PointInContour_Lines_Prepared");
  Add<ContourInContour<CornersLocated>>("BM_GEOS_ContourInContour_Lines_Corners");
  Add<ContourInContour<AreaCovers>>("BM_GEOS_ContourInContour_Lines_Areas");
  Add<ContourInContourPrepared>("BM_GEOS_ContourInContour_Lines_AreasPrepared");
  Add<Surface>("BM_GEOS_Surface_Lines");
  Add<Perimeter>("BM_GEOS_Perimeter_Lines");
  Add<Direction>("BM_GEOS_Direction_Lines");
  Add<Simplify>("BM_GEOS_CleanUp_CutLines_Simplify");
}

}  // namespace contour_benchmarks
