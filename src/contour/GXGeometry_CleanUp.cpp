// Clean-up of element lists that are in the order of their chain. The procedures stand in
// contour/CleanUpTwins.h, once for flat and spatial lists, and in contour/CrossingCuts.h.
#include <KTRCL_Geometry/contour/GXGeometry.h>

#include <KTRCL_Geometry/elements/GXElementLists.h>

#include "contour/CleanUpTwins.h"
#include "contour/CrossingCuts.h"

using ktrcl_internal::FlatChain;
using ktrcl_internal::SpatialChain;

namespace {

/// Every step is made, whatever the ones before have answered.
template <class Traits>
bool CleanUpList(typename Traits::List& list) {
  bool ok = GXGeometry::ClearElementsAsPoints(list, true, true);
  ok = GXGeometry::FixConnections(list) && ok;
  ok = GXGeometry::TrunkOverlappingLines(list) && ok;
  ok = Traits::CutCrossings(list) && ok;
  ok = GXGeometry::RemoveSmallLoops(list) && ok;
  return GXGeometry::Stitch(list, true, true) && ok;
}

}  // namespace

bool GXGeometry::CleanUp(GX2DElmList& list) { return CleanUpList<FlatChain>(list); }

bool GXGeometry::CleanUp(GX3DElmList& list) { return CleanUpList<SpatialChain>(list); }

bool GXGeometry::ClearElementsAsPoints(GX2DElmList& list, const bool& clearLines,
                                       const bool& clearArcs) {
  ktrcl_internal::ClearPointLike<FlatChain>(list, clearLines, clearArcs);
  return true;
}

bool GXGeometry::ClearElementsAsPoints(GX3DElmList& list, const bool& clearLines,
                                       const bool& clearArcs) {
  ktrcl_internal::ClearPointLike<SpatialChain>(list, clearLines, clearArcs);
  return true;
}

bool GXGeometry::FixConnections(GX2DElmList& list) {
  ktrcl_internal::FixAllConnections<FlatChain>(list);
  return true;
}

bool GXGeometry::FixConnections(GX3DElmList& list) {
  ktrcl_internal::FixAllConnections<SpatialChain>(list);
  return true;
}

bool GXGeometry::TrunkOverlappingLines(GX2DElmList& list) {
  ktrcl_internal::MergeFolds<FlatChain>(list);
  return true;
}

bool GXGeometry::TrunkOverlappingLines(GX3DElmList& list) {
  ktrcl_internal::MergeFolds<SpatialChain>(list);
  return true;
}

bool GXGeometry::DivideLinesAtIntersection(GX3DElmList& list) {
  ktrcl_internal::CutAtCrossings(list, ktrcl_internal::AreApart);
  return true;
}

bool GXGeometry::RemoveSmallLoops(GX2DElmList& list) {
  ktrcl_internal::LoopRemoval<FlatChain>(list).Run();
  return true;
}

bool GXGeometry::RemoveSmallLoops(GX3DElmList& list) {
  ktrcl_internal::LoopRemoval<SpatialChain>(list).Run();
  return true;
}

bool GXGeometry::Stitch(GX2DElmList& list, const bool& stitchLines, const bool& stitchArcs) {
  ktrcl_internal::StitchAll<FlatChain>(list, stitchLines, stitchArcs);
  return true;
}

bool GXGeometry::Stitch(GX3DElmList& list, const bool& stitchLines, const bool& stitchArcs) {
  ktrcl_internal::StitchAll<SpatialChain>(list, stitchLines, stitchArcs);
  return true;
}
