// Whole contours offset outwards, as hosts do it: a copy beside every element, then each trimmed to
// the next one. Making and destroying the copies are timed.
#include <KTRCL_Geometry/contour/GXGeometryFunctions.h>

#include "ElementLists.h"
#include "Jobs.h"

namespace contour_benchmarks {
namespace {

using Functions = GXGeometryFunctions;

GX2DElement* CopyBeside(GX2DElement* element, double distance) {
  if (const auto* const line = dynamic_cast<GX2DLine*>(element)) {
    return new GX2DLine(Functions::GetRightLineAtDistance(*line, distance));
  }
  return new GX2DArc(
      Functions::GetRightArcAtDistance(dynamic_cast<const GX2DArc&>(*element), distance));
}

void Trim(GX2DElement* from, GX2DElement* to) {
  auto* const fromLine = dynamic_cast<GX2DLine*>(from);
  auto* const fromArc = dynamic_cast<GX2DArc*>(from);
  auto* const toLine = dynamic_cast<GX2DLine*>(to);
  auto* const toArc = dynamic_cast<GX2DArc*>(to);
  if (fromLine && toLine) Functions::DoIntersection_FromLine_ToLine(*fromLine, *toLine);
  if (fromLine && toArc) Functions::DoIntersection_FromLine_ToArc(*fromLine, *toArc);
  if (fromArc && toLine) Functions::DoIntersection_FromArc_ToLine(*fromArc, *toLine);
  if (fromArc && toArc) Functions::DoIntersection_FromArc_ToArc(*fromArc, *toArc);
}

template <Pieces (*make)(std::int64_t n)>
class Offset {
 public:
  explicit Offset(std::int64_t n) : distance_(OffsetOf(n)) { FillWithPieces(contour_, make(n)); }

  std::size_t Run() {
    GX2DElmList beside;
    Make(beside);
    return beside.size();
  }

  Answer GetAnswer() {
    GX2DElmList beside;
    Make(beside);
    Corners joints;
    for (GX2DElement* const element : beside) joints.push_back(CornerAt(element->GetStartPoint()));
    return RingAsAnswer(joints);
  }

 private:
  void Make(GX2DElmList& beside) const {
    for (GX2DElement* const element : contour_) beside.push_back(CopyBeside(element, distance_));
    for (std::size_t i = 0; i < beside.size(); ++i) {
      Trim(beside[i], beside[i + 1 == beside.size() ? 0 : i + 1]);
    }
  }

  double distance_;
  GX2DElmList contour_;
};

}  // namespace

void AddOffsetJobs() {
  Add<Offset<TeethOfLines>>("BM_GXGeometryFunctions_Offset_Lines");
  Add<Offset<RoundedTeeth>>("BM_GXGeometryFunctions_Offset_LinesWithFillets");
  Add<Offset<OutlineOfArcs>>("BM_GXGeometryFunctions_Offset_Arcs");
}

}  // namespace contour_benchmarks
