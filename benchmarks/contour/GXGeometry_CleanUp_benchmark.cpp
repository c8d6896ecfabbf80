// Cleaning up contours, in place. Making the lists is not timed, destroying what goes is.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include "ElementLists.h"
#include "Jobs.h"

namespace contour_benchmarks {
namespace {

constexpr int kLeftOutZ = 2;

Untidy CleanContour(std::int64_t n) { return {Teeth(n), {}}; }

struct InPlane {
  using List = GX2DElmList;
  static GX2DElement* Line(const Corner& start, const Corner& end) {
    return new GX2DLine(PointAt(start), PointAt(end));
  }
  static Corner StartOf(GX2DElement& element) {
    return {element.GetStartPoint().X, element.GetStartPoint().Y};
  }
};

struct InSpace {
  using List = GX3DElmList;
  static GX3DElement* Line(const Corner& start, const Corner& end) {
    return new GX3DLine(GX2DLine(PointAt(start), PointAt(end)), kLeftOutZ);
  }
  static Corner StartOf(GX3DElement& element) {
    return {element.GetStartPoint().X, element.GetStartPoint().Y};
  }
};

template <typename Twin, Untidy (*make)(std::int64_t n)>
class CleanUp {
 public:
  explicit CleanUp(std::int64_t n) : path_(make(n).path) {}

  std::unique_ptr<typename Twin::List> Copy() const {
    auto list = std::make_unique<typename Twin::List>();
    for (std::size_t i = 0; i < path_.size(); ++i) {
      list->push_back(Twin::Line(path_[i], path_[(i + 1) % path_.size()]));
    }
    return list;
  }

  std::size_t Run(typename Twin::List& list) const {
    GXGeometry::CleanUp(list);
    return list.size();
  }

  Answer GetAnswer() const {
    const auto list = Copy();
    Run(*list);
    Corners corners;
    for (auto* const element : *list) corners.push_back(Twin::StartOf(*element));
    return CornersAsAnswer(corners);
  }

 private:
  Corners path_;
};

}  // namespace

void AddCleanUpJobs() {
  AddOnCopies<CleanUp<InPlane, CleanContour>>("BM_GXGeometry_CleanUp_CleanLines");
  AddOnCopies<CleanUp<InPlane, CutLines>>("BM_GXGeometry_CleanUp_CutLines");
  AddOnCopies<CleanUp<InPlane, Loops>>("BM_GXGeometry_CleanUp_LoopsOfLines");
  AddOnCopies<CleanUp<InPlane, Debris>>("BM_GXGeometry_CleanUp_DebrisOfLines");
  AddOnCopies<CleanUp<InSpace, CleanContour>>("BM_GXGeometry_CleanUp_CleanLinesInSpace");
}

}  // namespace contour_benchmarks
