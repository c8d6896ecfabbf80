// A drawing as it comes into one whose contours close: doubled elements taken away, loose ends
// joined, chains put in order and cleaned up, with an account of every change.
#pragma once

#include "drawing/Contours.h"
#include "drawing/Drawing.h"
#include "drawing/DrawingFigures.h"
#include "drawing/LooseEndPairs.h"
#include "drawing/Nesting.h"
#include "drawing/Networks.h"
#include "drawing/Overlaps.h"

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace drawing {

/// How a drawing is to be healed.
struct HealOptions {
  double gap = 0.1;  ///< Loose ends farther apart, in millimetres, are not joined.
  /// Tidy closed contours by the steps of the library's CleanUp. What these merge depends on the
  /// direction of drawing, so a comparison of parts goes without.
  bool cleanUp = true;
};

/// What was changed.
enum class ChangeKind {
  kZeroLengthDropped,  ///< An entity without length was left out.
  kDuplicateRemoved,
  kContainedRemoved,
  kEndsJoined,    ///< Two loose ends became one point.
  kEndsSnapped,   ///< Ends that met within the tolerance became exactly one point.
  kPutInOrder,    ///< Elements of a contour were reordered or lines turned round.
  kPointRemoved,  ///< Clean-up: an element too short to be one.
  kFoldRemoved,   ///< Clean-up: a line that ran back over the one before.
  kLoopRemoved,   ///< Clean-up: the smaller of two loops that met in one point.
  kPiecesMerged,  ///< Clean-up: pieces of one straight line or one arc became one.
  kBecameCircle   ///< An arc whose ends met was made a full circle.
};

/// "duplicate removed", "ends joined", ...: a kind of change in words.
const char* ChangeKindName(ChangeKind kind);

/// One change.
struct Change {
  ChangeKind kind = ChangeKind::kEndsJoined;
  /// Indices into the elements of the drawing as read; of what was removed or merged, the one that
  /// was kept comes first, unless nothing was kept. Empty for entities that never had an element.
  std::vector<std::size_t> elements;
  GX2DPoint place;        ///< Where.
  double movement = 0.0;  ///< How far any point moved for it, millimetres.
  std::string what;       ///< One line for people, with entities and their lines in the file.
};

/// A drawing after healing, with everything that is to be told of it.
struct HealedDrawing {
  /// The healed elements: contour after contour, each closed one in its order; then what was not
  /// closed, as drawn. Entities, unit and counts are those of the drawing as read; nothing in it is
  /// of zero length any more.
  Drawing drawing;
  std::vector<Network> networks;                   ///< Of the healed drawing.
  std::vector<std::unique_ptr<Contour>> contours;  ///< Of the healed drawing, nested.
  std::vector<Crossing> crossings;                 ///< Of the healed drawing.
  std::vector<Change> changes;  ///< In the order of the work, within a kind by element.
  double largestMovement = 0.0;
  DrawingFigures before;
  DrawingFigures after;
  /// Pairs of the healed drawing, by its elements, nearest first: farther apart than the gap, but
  /// for those that could not be joined.
  std::vector<LooseEndPair> stillOpen;
  std::vector<Overlap> overlapsLeft;  ///< Partial ones, and those whose removal would open.
  /// What was looked at and left, in words: what stayed open, steps of the clean-up that would have
  /// changed a shape and were taken back, and what the drawing holds and this one does not.
  std::vector<std::string> notes;
};

/// Heals a usable drawing; it stays as it is.
///
/// In this order: duplicates and contained overlaps are removed (RemovableOverlaps); loose ends up
/// to the gap apart are joined (PairLooseEnds): two lines at their crossing where that lies within
/// the gap of both ends and within four times their distance, a line and an arc at the arc's end,
/// everything else half way; an arc whose end moves keeps its sweep (or, of more than 240 degrees,
/// its radius) and is drawn anew through its ends, so that no arc misses its own circle. Ends are
/// not joined where others stand, nor where one element would come to lie on the other. Then every
/// closed network goes through the library's MakeConnectingElements and
/// MakeAlmostEqualPointsEqual and, where asked for, through the steps of its CleanUp one by one, so
/// that each change has a name; a step that would change area, closedness or shape is taken back
/// and noted. Lines and arcs are merged only where all elements of the contour are of one layer,
/// colour and linetype. One full circle as a contour never goes through the clean-up, whose first
/// step takes it for a degenerate arc. All of it is done again until nothing changes.
///
/// A closed contour begins with its first line as it is drawn, one of arcs only with the first that
/// runs counter-clockwise, so that a written drawing is read in the same order; that arcs were
/// turned round is no change, since a file has them counter-clockwise anyway.
///
/// No point moves by more than the gap or, where ends within 0.0001 on each coordinate are made one
/// point, by 0.0002. What a fold ran back for is left out, however long it is; its change names the
/// length. Contours whose joints are exact but for rounding are not touched: healing a
/// healed drawing changes nothing.
///
/// Requires: `drawing.usable`; a gap that is not a number or below 0 counts as 0. Its last digits
/// do not matter: 5e-10 is added to it.
/// Cost: near n log n for n elements, however they are ordered.
HealedDrawing HealDrawing(const Drawing& drawing, const HealOptions& options);

/// "LINE 2F4 on layer CUT, line 120" or "LINE on layer CUT, line 120 (block BOLT, inserted in line
/// 900)": the entity of an element in words.
std::string EntityText(const Drawing& drawing, std::size_t element);

}  // namespace drawing
