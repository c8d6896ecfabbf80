// Points along an ellipse, fillets, and lines beside bends: as many points as elements, or one call
// for each of as many corners.
#include <KTRCL_Geometry/contour/GXGeometry.h>
#include <KTRCL_Geometry/elements/GX3DElements.h>

#include "ElementLists.h"
#include "Jobs.h"

namespace contour_benchmarks {
namespace {

class EllipsePoints {
 public:
  explicit EllipsePoints(std::int64_t n) : end_(EllipseEnd(n)) {}

  std::size_t Run() { return Points().size(); }

  Answer GetAnswer() {
    Corners corners;
    for (const GX2DPoint& p : Points()) corners.push_back(CornerAt(p));
    return CornersAsAnswer(corners);
  }

 private:
  std::vector<GX2DPoint> Points() const {
    std::vector<GX2DPoint> points;
    GXGeometry::ConvertEllipseToPoints(center_, axisEnd_, kEllipseRatio, 0.0, end_, points);
    return points;
  }

  GX3DPoint center_ = {kEllipseCenter.x, kEllipseCenter.y, 0.0};
  GX3DPoint axisEnd_ = {kEllipseAxisEnd.x, kEllipseAxisEnd.y, 0.0};
  double end_;
};

class Fillets {
 public:
  explicit Fillets(std::int64_t n) : radius_(FilletRadius(n)) {
    for (const Piece& p : TeethOfLines(n)) lines_.emplace_back(PointAt(p.start), PointAt(p.end));
    fillets_.resize(lines_.size());
  }

  std::size_t Run() {
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      const GX2DLine& next = lines_[i + 1 == lines_.size() ? 0 : i + 1];
      GXGeometry::Construct2DArcBetween2Lines(lines_[i], next, radius_, fillets_[i]);
    }
    return fillets_.size();
  }

  Answer GetAnswer() {
    Run();
    Corners centers;
    for (const GX2DArc& fillet : fillets_) centers.push_back(CornerAt(fillet.Center));
    return CornersAsAnswer(centers);
  }

 private:
  double radius_;
  std::vector<GX2DLine> lines_;
  std::vector<GX2DArc> fillets_;
};

/// Both points of an obtuse bend, at every corner.
class BendLines {
 public:
  explicit BendLines(std::int64_t n) : corners_(PointsAt(Teeth(n))), ends_(corners_.size()) {}

  std::size_t Run() {
    const std::size_t n = corners_.size();
    for (std::size_t i = 0; i < n; ++i) {
      const GX2DPoint& first = corners_[i == 0 ? n - 1 : i - 1];
      const GX2DPoint& second = corners_[i + 1 == n ? 0 : i + 1];
      const GX2DPoint& corner = corners_[i];
      // On the other side of the first leg.
      const GX2DPoint opposite(2.0 * corner.X - second.X, 2.0 * corner.Y - second.Y);
      GXGeometry::GetLinesWithThickness(first, corner, second, opposite, kBendDegrees, kBendLeg,
                                        kBendRadius, kBendThickness, ends_[i].points);
    }
    return n;
  }

  Answer GetAnswer() {
    Run();
    Corners corners;
    for (const Ends& ends : ends_) {
      corners.push_back({ends.points[0].X, ends.points[0].Y});
      corners.push_back({ends.points[1].X, ends.points[1].Y});
    }
    return CornersAsAnswer(corners);
  }

 private:
  struct Ends {
    GX3DPoint points[3];
  };

  std::vector<GX2DPoint> corners_;
  std::vector<Ends> ends_;
};

}  // namespace

void AddConstructionJobs() {
  Add<EllipsePoints>("BM_GXGeometry_ConvertEllipseToPoints_Points");
  Add<Fillets>("BM_GXGeometry_Construct2DArcBetween2Lines_EveryCorner");
  Add<BendLines>("BM_GXGeometry_GetLinesWithThickness_EveryCorner");
}

}  // namespace contour_benchmarks
