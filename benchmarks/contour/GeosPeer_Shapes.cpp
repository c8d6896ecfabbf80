// Smallest boxes, offsets and triangles as GEOS makes them. Its geometries stand ready.
#include "Jobs.h"
#include "TestShapes.h"

#include <geos/algorithm/MinimumDiameter.h>
#include <geos/geom/CoordinateArraySequence.h>
#include <geos/geom/GeometryFactory.h>
#include <geos/geom/LineString.h>
#include <geos/geom/LinearRing.h>
#include <geos/geom/Polygon.h>
#include <geos/operation/buffer/BufferOp.h>
#include <geos/operation/buffer/BufferParameters.h>
#include <geos/triangulate/polygon/ConstrainedDelaunayTriangulator.h>
#include <geos/triangulate/polygon/PolygonTriangulator.h>

namespace contour_benchmarks {
namespace {

using geos::geom::Coordinate;
using geos::geom::Geometry;
using geos::geom::GeometryFactory;
using geos::geom::LineString;
using geos::geom::Polygon;
using geos::operation::buffer::BufferOp;
using geos::operation::buffer::BufferParameters;

using MakeCorners = Corners (*)(std::int64_t n);

std::unique_ptr<Polygon> Area(const Corners& corners) {
  std::vector<Coordinate> coordinates;
  for (const Corner& c : corners) coordinates.emplace_back(c.x, c.y);
  coordinates.push_back(coordinates.front());
  const GeometryFactory& factory = *GeometryFactory::getDefaultInstance();
  return factory.createPolygon(factory.createLinearRing(
      std::make_unique<geos::geom::CoordinateArraySequence>(std::move(coordinates))));
}

/// Along a side of the hull, without a search; of all such boxes the one of least width, which on
/// the plate is the smallest one too.
class SmallestBox {
 public:
  explicit SmallestBox(std::int64_t n) : area_(Area(Plate(n))) {}

  double Run() {
    return geos::algorithm::MinimumDiameter::getMinimumRectangle(area_.get())->getArea();
  }

  Answer GetAnswer() { return {Run()}; }

 private:
  std::unique_ptr<Polygon> area_;
};

/// Corners as sharp as they come.
BufferParameters SharpJoins() {
  constexpr double kLongestJoin = 100.0;
  return BufferParameters(BufferParameters::DEFAULT_QUADRANT_SEGMENTS, BufferParameters::CAP_FLAT,
                          BufferParameters::JOIN_MITRE, kLongestJoin);
}

/// The whole area that is nearer to the contour than the distance; unlike copies that are only
/// trimmed it never crosses itself.
class Buffer {
 public:
  explicit Buffer(std::int64_t n) : distance_(OffsetOf(n)), area_(Area(Teeth(n))) {}

  std::size_t Run() { return Make()->getNumPoints(); }

  Answer GetAnswer() {
    const auto buffer = Make();
    const LineString& ring = *dynamic_cast<const Polygon&>(*buffer).getExteriorRing();
    Corners corners;
    for (std::size_t i = 0; i + 1 < ring.getNumPoints(); ++i) {
      corners.push_back({ring.getCoordinateN(i).x, ring.getCoordinateN(i).y});
    }
    return RingAsAnswer(corners);
  }

 private:
  std::unique_ptr<Geometry> Make() const {
    BufferOp operation(area_.get(), SharpJoins());
    return operation.getResultGeometry(distance_);
  }

  double distance_;
  std::unique_ptr<Polygon> area_;
};

template <typename Triangulator, MakeCorners make>
class Triangulate {
 public:
  explicit Triangulate(std::int64_t n) : area_(Area(make(n))) {}

  std::size_t Run() { return Make()->getNumGeometries(); }

  Answer GetAnswer() {
    const auto triangles = Make();
    const bool isWhole = triangles->getNumGeometries() + 3 == area_->getNumPoints();
    return {isWhole ? 1.0 : 0.0, triangles->getArea()};
  }

 private:
  std::unique_ptr<Geometry> Make() const {
    const Geometry* const area = area_.get();
    return Triangulator::triangulate(area);
  }

  std::unique_ptr<Polygon> area_;
};

using ClippedEars = geos::triangulate::polygon::PolygonTriangulator;
using Delaunay = geos::triangulate::polygon::ConstrainedDelaunayTriangulator;

}  // namespace

void AddGeosJobsOnShapes() {
  Add<SmallestBox>("BM_GEOS_SmallestBox_LinesByDegrees");
  Add<SmallestBox>("BM_GEOS_SmallestBox_LinesByTenths");
  Add<Buffer>("BM_GEOS_Offset_Lines_Buffer");
  Add<Triangulate<ClippedEars, Outline>>("BM_GEOS_Triangulate_Outline_Ears");
  Add<Triangulate<Delaunay, Outline>>("BM_GEOS_Triangulate_Outline_Delaunay");
  Add<Triangulate<ClippedEars, Teeth>>("BM_GEOS_Triangulate_Teeth_Ears");
  Add<Triangulate<Delaunay, Teeth>>("BM_GEOS_Triangulate_Teeth_Delaunay");
}

}  // namespace contour_benchmarks
