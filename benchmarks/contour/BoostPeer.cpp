// The jobs as Boost.Geometry does them. Its geometries stand ready; what is searched in them is
// built in `Run`.
#include "Jobs.h"

// Once its functions are inlined, g++ finds a variable that it cannot prove to be written.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/linestring.hpp>
#include <boost/geometry/geometries/multi_point.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#include <boost/geometry/geometries/segment.hpp>
#include <boost/geometry/index/rtree.hpp>
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

#include <iterator>

namespace contour_benchmarks {
namespace {

namespace bg = boost::geometry;
namespace bgi = boost::geometry::index;

using Point = bg::model::d2::point_xy<double>;
using Box = bg::model::box<Point>;
using Points = bg::model::multi_point<Point>;
using Line = bg::model::segment<Point>;
using Path = bg::model::linestring<Point>;
/// Counter-clockwise, the first corner repeated behind the last.
using Area = bg::model::polygon<Point, false, true>;

using MakeCorners = Corners (*)(std::int64_t n);

Path PathOf(const Corners& corners) {
  Path path;
  for (const Corner& c : corners) path.emplace_back(c.x, c.y);
  path.push_back(path.front());
  return path;
}

Area AreaOf(const Corners& corners) {
  Area area;
  const Path path = PathOf(corners);
  area.outer().assign(path.begin(), path.end());
  return area;
}

Answer AnswerOfPoints(const Points& points) {
  Corners corners;
  for (const Point& p : points) corners.push_back({p.x(), p.y()});
  return CrossingsAsAnswer(corners);
}

// Crossings

template <MakeCorners first, MakeCorners second>
class AllCrossings {
 public:
  explicit AllCrossings(std::int64_t n) : one_(PathOf(first(n))), two_(PathOf(second(n))) {}

  std::size_t Run() { return Find().size(); }
  Answer GetAnswer() { return AnswerOfPoints(Find()); }

 private:
  Points Find() const {
    Points points;
    bg::intersection(one_, two_, points);
    return points;
  }

  Path one_;
  Path two_;
};

/// A packed tree over the boxes of the lines of a path, each with its position.
class LineTree {
 public:
  using Entry = std::pair<Box, std::size_t>;

  explicit LineTree(const Path& path) : tree_(Entries(path)) {}

  template <typename Take>
  void ForEachTouching(const Box& box, Take take) const {
    for (auto it = tree_.qbegin(bgi::intersects(box)); it != tree_.qend(); ++it) take(it->second);
  }

  static Box BoxOf(const Path& path, std::size_t i) {
    Box box;
    bg::envelope(Line(path[i], path[i + 1]), box);
    return box;
  }

 private:
  static std::vector<Entry> Entries(const Path& path) {
    std::vector<Entry> entries;
    entries.reserve(path.size());
    for (std::size_t i = 0; i + 1 < path.size(); ++i) entries.emplace_back(BoxOf(path, i), i);
    return entries;
  }

  bgi::rtree<Entry, bgi::linear<16>> tree_;
};

/// What a user of the library builds where its own search is too slow.
template <MakeCorners first, MakeCorners second>
class AllCrossingsByTree {
 public:
  explicit AllCrossingsByTree(std::int64_t n) : one_(PathOf(first(n))), two_(PathOf(second(n))) {}

  std::size_t Run() { return Find().size(); }
  Answer GetAnswer() { return AnswerOfPoints(Find()); }

 private:
  Points Find() const {
    const LineTree tree(two_);
    Points points;
    for (std::size_t i = 0; i + 1 < one_.size(); ++i) {
      tree.ForEachTouching(LineTree::BoxOf(one_, i), [&](std::size_t j) {
        bg::intersection(Line(one_[i], one_[i + 1]), Line(two_[j], two_[j + 1]), points);
      });
    }
    return points;
  }

  Path one_;
  Path two_;
};

template <MakeCorners first, MakeCorners second>
class AnyCrossing {
 public:
  explicit AnyCrossing(std::int64_t n) : one_(PathOf(first(n))), two_(PathOf(second(n))) {}

  bool Run() { return bg::intersects(one_, two_); }
  Answer GetAnswer() { return {Run() ? 1.0 : 0.0}; }

 private:
  Path one_;
  Path two_;
};

/// Only whether there is one. Not by `is_simple`, which in version 1.74 answers no for some paths
/// that do not cross themselves.
template <MakeCorners make>
class AnySelfCrossing {
 public:
  explicit AnySelfCrossing(std::int64_t n) : path_(PathOf(make(n))) {}

  bool Run() { return bg::intersects(path_); }
  Answer GetAnswer() { return {Run() ? 1.0 : 0.0}; }

 private:
  Path path_;
};

template <MakeCorners make>
class SelfCrossingsByTree {
 public:
  explicit SelfCrossingsByTree(std::int64_t n) : path_(PathOf(make(n))) {}

  std::size_t Run() { return Find().size(); }
  Answer GetAnswer() { return AnswerOfPoints(Find()); }

 private:
  Points Find() const {
    const std::size_t n = path_.size() - 1;
    const LineTree tree(path_);
    Points points;
    for (std::size_t i = 0; i < n; ++i) {
      tree.ForEachTouching(LineTree::BoxOf(path_, i), [&](std::size_t j) {
        // Each pair once, and no neighbours.
        if (j < i + 2 || (i == 0 && j == n - 1)) return;
        bg::intersection(Line(path_[i], path_[i + 1]), Line(path_[j], path_[j + 1]), points);
      });
    }
    return points;
  }

  Path path_;
};

// Places

class PointInContour {
 public:
  explicit PointInContour(std::int64_t n) : area_(AreaOf(Outline(n))) {
    for (const Corner& probe : Probes(Outline(n))) probes_.emplace_back(probe.x, probe.y);
  }

  bool Run() { return bg::covered_by(probes_[next_++ & (probes_.size() - 1)], area_); }

  Answer GetAnswer() {
    Answer answer;
    for (const Point& probe : probes_) answer.push_back(bg::covered_by(probe, area_) ? 1.0 : 0.0);
    return answer;
  }

 private:
  Area area_;
  std::vector<Point> probes_;
  std::size_t next_ = 0;
};

/// The whole relation of the areas: lines that lead outside are noticed too.
struct AreaCovered {
  static bool IsCovered(const Area& inner, const Area& outer) {
    return bg::covered_by(inner, outer);
  }
};

/// The same question as ours: the place of every corner.
struct CornersCovered {
  static bool IsCovered(const Area& inner, const Area& outer) {
    const auto& corners = inner.outer();
    return std::all_of(corners.begin(), std::prev(corners.end()),
                       [&](const Point& corner) { return bg::covered_by(corner, outer); });
  }
};

template <typename How>
class ContourInContour {
 public:
  explicit ContourInContour(std::int64_t n)
      : outline_(AreaOf(Outline(n))), hole_(AreaOf(Hole(n))) {}

  bool Run() { return How::IsCovered(hole_, outline_); }
  Answer GetAnswer() { return {Run() ? 1.0 : 0.0, How::IsCovered(outline_, hole_) ? 1.0 : 0.0}; }

 private:
  Area outline_;
  Area hole_;
};

// Measures

struct OneContour {
  explicit OneContour(std::int64_t n) : area_(AreaOf(Outline(n))) {}
  Area area_;
};

struct Surface : OneContour {
  using OneContour::OneContour;
  double Run() { return bg::area(area_); }
  Answer GetAnswer() { return {Run()}; }
};

struct Perimeter : OneContour {
  using OneContour::OneContour;
  // Summed up in long double.
  double Run() { return static_cast<double>(bg::perimeter(area_)); }
  Answer GetAnswer() { return {Run()}; }
};

// Clean-up

/// Leaves out what lies on a straight line, which is all there is to do on these contours.
class Simplify {
 public:
  explicit Simplify(std::int64_t n) : path_(PathOf(CutLines(n).path)) {}

  std::size_t Run() { return Simplified().size(); }

  Answer GetAnswer() {
    Path path = Simplified();
    path.pop_back();
    Corners kept;
    for (const Point& p : path) kept.push_back({p.x(), p.y()});
    return CornersAsAnswer(kept);
  }

 private:
  Path Simplified() const {
    constexpr double kTolerance = 0.00001;
    Path simplified;
    bg::simplify(path_, simplified, kTolerance);
    return simplified;
  }

  Path path_;
};

}  // namespace

void AddBoostJobs() {
  Add<AllCrossings<Outline, Neighbour>>("BM_Boost_GetIntersections_FewHitsLines");
  Add<AllCrossingsByTree<Outline, Neighbour>>("BM_Boost_GetIntersections_FewHitsLines_RTree");
  Add<AllCrossings<Teeth, OppositeTeeth>>("BM_Boost_GetIntersections_ManyHitsLines");
  Add<AllCrossingsByTree<Teeth, OppositeTeeth>>("BM_Boost_GetIntersections_ManyHitsLines_RTree");
  Add<AnyCrossing<Outline, Neighbour>>("BM_Boost_CheckIfIntersection_CrossingLines");
  Add<AnyCrossing<Outline, Hole>>("BM_Boost_CheckIfIntersection_NestedLines");
  Add<AnySelfCrossing<Outline>>("BM_Boost_HasSelfIntersection_NoneLines_YesNo");
  Add<SelfCrossingsByTree<Outline>>("BM_Boost_HasSelfIntersection_NoneLines_RTree");
  Add<AnySelfCrossing<Knot>>("BM_Boost_HasSelfIntersection_FewHitsLines_YesNo");
  Add<SelfCrossingsByTree<Knot>>("BM_Boost_HasSelfIntersection_FewHitsLines_RTree");
  Add<SelfCrossingsByTree<Braid>>("BM_Boost_HasSelfIntersection_ManyHitsLines_RTree");
  Add<PointInContour>("BM_Boost_PointInContour_Lines");
  Add<ContourInContour<CornersCovered>>("BM_Boost_ContourInContour_Lines_Corners");
  Add<ContourInContour<AreaCovered>>("BM_Boost_ContourInContour_Lines_Areas");
  Add<Surface>("BM_Boost_Surface_Lines");
  Add<Perimeter>("BM_Boost_Perimeter_Lines");
  Add<Simplify>("BM_Boost_CleanUp_CutLines_Simplify");
}

}  // namespace contour_benchmarks
