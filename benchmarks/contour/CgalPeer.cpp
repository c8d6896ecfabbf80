// The jobs as CGAL does them, with exact predicates and coordinates in doubles. Its polygons and
// segments stand ready; boxes are made in `Run`.
#include "Jobs.h"

#include <CGAL/Box_intersection_d/Box_with_handle_d.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Polygon_2.h>
#include <CGAL/Polygon_2_algorithms.h>
#include <CGAL/box_intersection_d.h>

namespace contour_benchmarks {
namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using Point = Kernel::Point_2;
using Line = Kernel::Segment_2;
using Polygon = CGAL::Polygon_2<Kernel>;
using Lines = std::vector<Line>;
using Box = CGAL::Box_intersection_d::Box_with_handle_d<double, 2, Lines::const_iterator>;

using MakeCorners = Corners (*)(std::int64_t n);

Polygon PolygonOf(const Corners& corners) {
  Polygon polygon;
  for (const Corner& c : corners) polygon.push_back(Point(c.x, c.y));
  return polygon;
}

Lines LinesOf(const Corners& corners) {
  const Polygon polygon = PolygonOf(corners);
  return {polygon.edges_begin(), polygon.edges_end()};
}

std::vector<Box> BoxesOf(const Lines& lines) {
  std::vector<Box> boxes;
  boxes.reserve(lines.size());
  for (auto it = lines.begin(); it != lines.end(); ++it) boxes.emplace_back(it->bbox(), it);
  return boxes;
}

Answer AnswerOfPoints(const std::vector<Point>& points) {
  Corners corners;
  for (const Point& p : points) corners.push_back({p.x(), p.y()});
  return CrossingsAsAnswer(corners);
}

void AddCrossing(const Line& a, const Line& b, std::vector<Point>& points) {
  const auto crossing = CGAL::intersection(a, b);
  if (!crossing) return;
  if (const Point* const p = boost::get<Point>(&*crossing)) points.push_back(*p);
}

// Crossings

template <MakeCorners first, MakeCorners second>
class AllCrossings {
 public:
  explicit AllCrossings(std::int64_t n) : one_(LinesOf(first(n))), two_(LinesOf(second(n))) {}

  std::size_t Run() { return Find().size(); }
  Answer GetAnswer() { return AnswerOfPoints(Find()); }

 private:
  std::vector<Point> Find() const {
    std::vector<Box> one = BoxesOf(one_);
    std::vector<Box> two = BoxesOf(two_);
    std::vector<Point> points;
    CGAL::box_intersection_d(
        one.begin(), one.end(), two.begin(), two.end(),
        [&](const Box& a, const Box& b) { AddCrossing(*a.handle(), *b.handle(), points); });
    return points;
  }

  Lines one_;
  Lines two_;
};

/// Has no way to stop at the first crossing, so it is only asked where there is none.
template <MakeCorners first, MakeCorners second>
class AnyCrossing {
 public:
  explicit AnyCrossing(std::int64_t n) : one_(LinesOf(first(n))), two_(LinesOf(second(n))) {}

  bool Run() {
    std::vector<Box> one = BoxesOf(one_);
    std::vector<Box> two = BoxesOf(two_);
    bool found = false;
    CGAL::box_intersection_d(one.begin(), one.end(), two.begin(), two.end(),
                             [&](const Box& a, const Box& b) {
                               found = found || CGAL::do_intersect(*a.handle(), *b.handle());
                             });
    return found;
  }

  Answer GetAnswer() { return {Run() ? 1.0 : 0.0}; }

 private:
  Lines one_;
  Lines two_;
};

template <MakeCorners make>
class SelfCrossings {
 public:
  explicit SelfCrossings(std::int64_t n) : lines_(LinesOf(make(n))) {}

  std::size_t Run() { return Find().size(); }
  Answer GetAnswer() { return AnswerOfPoints(Find()); }

 private:
  std::vector<Point> Find() const {
    const auto n = static_cast<std::ptrdiff_t>(lines_.size());
    std::vector<Box> boxes = BoxesOf(lines_);
    std::vector<Point> points;
    CGAL::box_self_intersection_d(boxes.begin(), boxes.end(), [&](const Box& a, const Box& b) {
      const std::ptrdiff_t apart = std::abs(a.handle() - b.handle());
      // Neighbours share an end.
      if (apart > 1 && apart < n - 1) AddCrossing(*a.handle(), *b.handle(), points);
    });
    return points;
  }

  Lines lines_;
};

/// Only whether there is one; stops at the first.
template <MakeCorners make>
class IsSimple {
 public:
  explicit IsSimple(std::int64_t n) : polygon_(PolygonOf(make(n))) {}

  bool Run() { return polygon_.is_simple(); }
  Answer GetAnswer() { return {Run() ? 0.0 : 1.0}; }

 private:
  Polygon polygon_;
};

// Places

/// The function behind the operation of the polygon, which in builds with assertions first tests
/// whether the polygon crosses itself.
bool IsCovered(const Polygon& polygon, const Point& p) {
  return CGAL::bounded_side_2(polygon.vertices_begin(), polygon.vertices_end(), p, Kernel()) !=
         CGAL::ON_UNBOUNDED_SIDE;
}

class PointInContour {
 public:
  explicit PointInContour(std::int64_t n) : polygon_(PolygonOf(Outline(n))) {
    for (const Corner& probe : Probes(Outline(n))) probes_.emplace_back(probe.x, probe.y);
  }

  bool Run() { return IsCovered(polygon_, probes_[next_++ & (probes_.size() - 1)]); }

  Answer GetAnswer() {
    Answer answer;
    for (const Point& probe : probes_) answer.push_back(IsCovered(polygon_, probe) ? 1.0 : 0.0);
    return answer;
  }

 private:
  Polygon polygon_;
  std::vector<Point> probes_;
  std::size_t next_ = 0;
};

/// The same question as ours: the place of every corner.
class ContourInContour {
 public:
  explicit ContourInContour(std::int64_t n)
      : outline_(PolygonOf(Outline(n))), hole_(PolygonOf(Hole(n))) {}

  bool Run() { return AreCornersCovered(outline_, hole_); }
  Answer GetAnswer() { return {Run() ? 1.0 : 0.0, AreCornersCovered(hole_, outline_) ? 1.0 : 0.0}; }

 private:
  static bool AreCornersCovered(const Polygon& outer, const Polygon& inner) {
    return std::all_of(inner.vertices_begin(), inner.vertices_end(),
                       [&](const Point& corner) { return IsCovered(outer, corner); });
  }

  Polygon outline_;
  Polygon hole_;
};

// Measures

struct OneContour {
  explicit OneContour(std::int64_t n) : polygon_(PolygonOf(Outline(n))) {}
  Polygon polygon_;
};

struct Surface : OneContour {
  using OneContour::OneContour;
  double Run() { return CGAL::to_double(polygon_.area()); }
  Answer GetAnswer() { return {Run()}; }
};

struct Direction : OneContour {
  using OneContour::OneContour;
  bool Run() {
    return CGAL::orientation_2(polygon_.vertices_begin(), polygon_.vertices_end(), Kernel()) ==
           CGAL::COUNTERCLOCKWISE;
  }
  Answer GetAnswer() { return {Run() ? 1.0 : 0.0}; }
};

}  // namespace

void AddCgalJobs() {
  Add<AllCrossings<Outline, Neighbour>>("BM_CGAL_GetIntersections_FewHitsLines");
  Add<AllCrossings<Teeth, OppositeTeeth>>("BM_CGAL_GetIntersections_ManyHitsLines");
  Add<AnyCrossing<Outline, Hole>>("BM_CGAL_CheckIfIntersection_NestedLines");
  Add<SelfCrossings<Outline>>("BM_CGAL_HasSelfIntersection_NoneLines");
  Add<IsSimple<Outline>>("BM_CGAL_HasSelfIntersection_NoneLines_YesNo");
  Add<SelfCrossings<Knot>>("BM_CGAL_HasSelfIntersection_FewHitsLines");
  Add<IsSimple<Knot>>("BM_CGAL_HasSelfIntersection_FewHitsLines_YesNo");
  Add<SelfCrossings<Braid>>("BM_CGAL_HasSelfIntersection_ManyHitsLines");
  Add<PointInContour>("BM_CGAL_PointInContour_Lines");
  Add<ContourInContour>("BM_CGAL_ContourInContour_Lines_Corners");
  Add<Surface>("BM_CGAL_Surface_Lines");
  Add<Direction>("BM_CGAL_Direction_Lines");
}

}  // namespace contour_benchmarks
