// Smallest boxes and triangles as CGAL makes them, with exact predicates and coordinates in
// doubles. The points stand ready.
#include "Jobs.h"
#include "TestShapes.h"

#include <CGAL/Constrained_Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Polygon_2.h>
#include <CGAL/Triangulation_face_base_with_info_2.h>
#include <CGAL/convex_hull_2.h>
#include <CGAL/min_quadrilateral_2.h>

namespace contour_benchmarks {
namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using Point = Kernel::Point_2;
using Polygon = CGAL::Polygon_2<Kernel>;

std::vector<Point> PointsOf(const Corners& corners) {
  std::vector<Point> points;
  for (const Corner& c : corners) points.emplace_back(c.x, c.y);
  return points;
}

/// Along a side of the hull, without a search.
class SmallestBox {
 public:
  explicit SmallestBox(std::int64_t n) : points_(PointsOf(Plate(n))) {}

  double Run() {
    Polygon hull;
    CGAL::convex_hull_2(points_.begin(), points_.end(), std::back_inserter(hull));
    Polygon box;
    CGAL::min_rectangle_2(hull.vertices_begin(), hull.vertices_end(), std::back_inserter(box));
    return CGAL::to_double(box.area());
  }

  Answer GetAnswer() { return {Run()}; }

 private:
  std::vector<Point> points_;
};

struct Place {
  bool isOutside = false;
};

using Vertices = CGAL::Triangulation_vertex_base_2<Kernel>;
using Faces = CGAL::Constrained_triangulation_face_base_2<
    Kernel, CGAL::Triangulation_face_base_with_info_2<Place, Kernel>>;
using Delaunay = CGAL::Constrained_Delaunay_triangulation_2<
    Kernel, CGAL::Triangulation_data_structure_2<Vertices, Faces>>;

/// What is reached from far outside without passing a side.
void MarkOutside(Delaunay& triangles) {
  std::vector<Delaunay::Face_handle> reached = {triangles.infinite_face()};
  reached.front()->info().isOutside = true;
  while (!reached.empty()) {
    const Delaunay::Face_handle face = reached.back();
    reached.pop_back();
    for (int i = 0; i < 3; ++i) {
      const Delaunay::Face_handle next = face->neighbor(i);
      if (next->info().isOutside || face->is_constrained(i)) continue;
      next->info().isOutside = true;
      reached.push_back(next);
    }
  }
}

template <Corners (*make)(std::int64_t n)>
class Triangulate {
 public:
  explicit Triangulate(std::int64_t n) : points_(PointsOf(make(n))) {}

  std::size_t Run() {
    std::size_t count = 0;
    Visit([&count](const Delaunay&, Delaunay::Face_handle) { ++count; });
    return count;
  }

  Answer GetAnswer() {
    double area = 0.0;
    std::size_t count = 0;
    Visit([&](const Delaunay& triangles, Delaunay::Face_handle face) {
      area += CGAL::to_double(triangles.triangle(face).area());
      ++count;
    });
    return {count + 2 == points_.size() ? 1.0 : 0.0, area};
  }

 private:
  template <typename VisitTriangle>
  void Visit(VisitTriangle visit) const {
    Delaunay triangles;
    triangles.insert_constraint(points_.begin(), points_.end(), true);
    MarkOutside(triangles);
    for (const Delaunay::Face_handle face : triangles.finite_face_handles()) {
      if (!face->info().isOutside) visit(triangles, face);
    }
  }

  std::vector<Point> points_;
};

}  // namespace

void AddCgalJobsOnShapes() {
  Add<SmallestBox>("BM_CGAL_SmallestBox_LinesByDegrees");
  Add<SmallestBox>("BM_CGAL_SmallestBox_LinesByTenths");
  Add<Triangulate<Outline>>("BM_CGAL_Triangulate_Outline_Delaunay");
  Add<Triangulate<Teeth>>("BM_CGAL_Triangulate_Teeth_Delaunay");
}

}  // namespace contour_benchmarks
