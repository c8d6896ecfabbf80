// Extremes, levels and crossings on a ring that stands ready, each on the whole of it.
#include <KTRCL_Geometry/contour/GX2DSurroundPolygon.h>

#include "ElementLists.h"
#include "Jobs.h"

namespace contour_benchmarks {
namespace {

class OnRing {
 public:
  explicit OnRing(std::int64_t n) {
    FillWithLines(contour_, Outline(n));
    ring_.ConstructFrom2DElmList(contour_, nullptr);
  }

 protected:
  using Vertex = GX2DSurroundPolygon::iterator;

  static void AddPlace(const Vertex& vertex, Answer& answer) {
    answer.push_back((*vertex)->Point->X);
    answer.push_back((*vertex)->Point->Y);
  }

  GX2DElmList contour_;
  GX2DSurroundPolygon ring_;
};

/// The queries that end on one vertex.
template <typename Query>
struct OneVertex : OnRing {
  using OnRing::OnRing;

  GX2DSurroundPoint* Run() { return *Find(); }

  Answer GetAnswer() {
    Answer answer;
    AddPlace(Find(), answer);
    return answer;
  }

 private:
  Vertex Find() {
    Vertex first = ring_.begin();
    Vertex last = ring_.begin();
    Vertex result = ring_.end();
    Query::Ask(ring_, first, last, result);
    return result;
  }
};

struct Leftmost {
  template <typename Vertex>
  static void Ask(GX2DSurroundPolygon& ring, Vertex& first, Vertex& last, Vertex& result) {
    ring.GetMinLeft(first, last, true, result);
  }
};

struct TopLeftOfX {
  template <typename Vertex>
  static void Ask(GX2DSurroundPolygon& ring, Vertex& first, Vertex& last, Vertex& result) {
    ring.GetTopMaxRightLeftFromX(first, last, true, result, kQueryX);
  }
};

struct TopLevel : OnRing {
  using OnRing::OnRing;

  GX2DSurroundPoint* Run() {
    Find();
    return *left_;
  }

  Answer GetAnswer() {
    Find();
    Answer answer;
    AddPlace(left_, answer);
    AddPlace(right_, answer);
    return answer;
  }

 private:
  void Find() {
    Vertex first = ring_.begin();
    Vertex last = ring_.begin();
    ring_.GetTopMinLeftMaxRight(first, last, true, left_, right_);
  }

  Vertex left_;
  Vertex right_;
};

struct WidthAtY : OnRing {
  using OnRing::OnRing;

  double Run() {
    Vertex first = ring_.begin();
    Vertex last = ring_.begin();
    ring_.GetMinLeftMaxRightAtY(kQueryY, first, last, true, minX_, maxX_);
    return minX_;
  }

  Answer GetAnswer() {
    Run();
    return {minX_, maxX_};
  }

 private:
  double minX_ = 0.0;
  double maxX_ = 0.0;
};

struct LineCrossings : OnRing {
  using OnRing::OnRing;

  std::size_t Run() {
    GX2DElmList hits;
    Find(hits);
    return hits.size();
  }

  Answer GetAnswer() {
    GX2DElmList hits;
    Find(hits);
    Corners corners;
    for (GX2DElement* const hit : hits) corners.push_back(CornerAt(hit->GetStartPoint()));
    return CrossingsAsAnswer(corners);
  }

 private:
  void Find(GX2DElmList& hits) {
    Vertex first = ring_.begin();
    Vertex last = ring_.begin();
    const GX2DLine line(PointAt(kQueryLineStart), PointAt(kQueryLineEnd));
    ring_.GetConstrLineIntersection(first, last, true, line, hits);
  }
};

}  // namespace

void AddRingQueryJobs() {
  Add<OneVertex<Leftmost>>("BM_GX2DSurroundPolygon_RingQuery_Leftmost", kMostOfQuickJobs);
  Add<OneVertex<TopLeftOfX>>("BM_GX2DSurroundPolygon_RingQuery_TopLeftOfX", kMostOfQuickJobs);
  Add<TopLevel>("BM_GX2DSurroundPolygon_RingQuery_TopLevel", kMostOfQuickJobs);
  Add<WidthAtY>("BM_GX2DSurroundPolygon_RingQuery_WidthAtY", kMostOfQuickJobs);
  Add<LineCrossings>("BM_GX2DSurroundPolygon_RingQuery_LineCrossings", kMostOfQuickJobs);
}

}  // namespace contour_benchmarks
