// One closed contour while it is healed: put in order, made exact, tidied up.
#pragma once

#include "drawing/DrawingHealing.h"

#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

/// The elements of a contour with the number of each one's origin.
struct HealedChain {
  GX2DElmList elements;  ///< Own copies.
  std::vector<std::size_t> origins;

  HealedChain() = default;
  HealedChain(const HealedChain&) = delete;
  HealedChain& operator=(const HealedChain&) = delete;
};

/// A change to a contour: `origins` are those of the elements that it is about, the ones that were
/// kept first.
struct ChainChange {
  ChangeKind kind = ChangeKind::kPutInOrder;
  std::vector<std::size_t> origins;
  GX2DPoint place;
  double movement = 0.0;  ///< Millimetres.
  std::size_t count = 0;  ///< Joints made exact, elements turned round.
  /// Between the ends of the widest joint, millimetres; of a fold, how far it ran back.
  double distance = 0.0;
  std::size_t straightened = 0;  ///< Arcs that became lines.
};

/// Puts a closed network in order by the library's MakeConnectingElements. The chain begins with
/// the first of its lines as it is drawn; one of arcs only with the first that is drawn
/// counter-clockwise, as all are in a DXF file, so that reading what was written gives the same
/// order. A change is told where the elements did not follow each other all round, or lines were
/// turned round; arcs have no direction in a drawing.
///
/// Returns: false where the elements do not follow each other end to end; they are in some order.
bool PutInOrder(HealedChain& chain, std::vector<ChainChange>& changes);

/// The widest joint of a chain: distance of an end and the next start.
double WidestJoint(GX2DElmList& elements);

/// Makes the joints of a closed chain exact by HealContour, and draws the arcs whose ends moved
/// anew. An arc with its mid within 0.0001 of its end afterwards becomes a line, as reading such an
/// arc gives. A chain whose joints are apart by no more than rounding (1e-9 mm, and 1e-12 of the
/// coordinates) is not touched.
void MakeJointsExact(HealedChain& chain, std::vector<ChainChange>& changes);

/// Runs the steps of the library's CleanUp on a closed chain of two elements or more, one by one
/// and again until none changes anything. Pieces are merged only where `mayMerge`; merged arcs are
/// drawn anew, with mid and sense of their pieces.
///
/// A step is taken back where the chain would not be closed any more, or area, length or vertices
/// would change by more than the step has a name for; `refused` then gets a line.
void CleanUpChain(HealedChain& chain, bool mayMerge, std::vector<ChainChange>& changes,
                  std::vector<std::string>& refused);

}  // namespace drawing
