// The host's own verdict, beside that of the library: how far two parts lie apart at most under the
// rigid motion that lays one on the other best. It looks at places only, never at the library's
// lengths and angles.
#pragma once

#include "drawing/PartComparison.h"
#include "drawing/PartModel.h"
#include "drawing/RigidMotion.h"

#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

/// A motion that may turn the part over first.
struct Placement {
  bool mirrored = false;  ///< x is negated before the motion.
  RigidMotion motion;

  GX2DPoint Apply(const GX2DPoint& p) const;
};

/// How far a contour of A and one of B lie apart under the placement.
struct ContourDeviation {
  std::size_t a = kNoCutOut;  ///< Index into the cut-outs of A, kNoCutOut where B's has no partner.
  std::size_t b = kNoCutOut;
  /// Largest distance of a point of either from the other, millimetres; for a contour without a
  /// partner the largest distance of its points from what is nearest on the other side.
  double deviation = 0.0;
  GX2DPoint place;  ///< Where, in the coordinates of A.
};

/// What the host finds by itself.
struct GeometricVerdict {
  bool same = false;                      ///< Every contour has a partner within kPositionLimit.
  Placement placement;                    ///< Lays B on A.
  double outerDeviation = 0.0;            ///< Of the outer contours, both ways, millimetres.
  GX2DPoint outerPlace;                   ///< Where, in the coordinates of A.
  std::vector<ContourDeviation> cutOuts;  ///< Partners in the order of A, then what is alone.
  double largestDeviation = 0.0;          ///< Over all contours.
};

/// Lays B on A as well as it can, `mirrored` turned over.
///
/// Placements are those of the starts that the library matched (`comparison`, where not null and
/// not mirrored) and the host's own, from places of outlines and cut-outs that stand alike about
/// the centre, and where no outlines agree from the directions of long sides. Each is fitted to the
/// nearest places on the outlines, round ones to the cut-outs too. Placements under which the
/// outlines agree within kPositionLimit come first, then those under which most cut-outs find a
/// partner; of these counts the one with the least largest deviation or, where the outlines do not
/// agree, with the least mean distance, so that a single corner that differs stays the only one; of
/// equal ones the first.
///
/// Contours are taken as drawn, before any merge. Deviations are measured between the curves
/// themselves, arcs as arcs: places along one against the other, both ways, so fine that between
/// two places nothing is missed by more than 0.001 mm. A cut-out without partner is measured
/// against those of the other side that have none either or, where there are none, against all
/// contours.
///
/// Cost: n log n in the number of elements for each placement that is tried, most often one to
/// about thirty of them, the fewer the larger the parts.
///
/// Requires: `a.usable` and `b.usable`.
GeometricVerdict CompareGeometry(const PartModel& a, const PartModel& b, bool mirrored,
                                 const Comparison* comparison);

/// Where the two verdicts disagree, in one sentence that says how; empty where they agree.
///
/// That is so where one of them calls the parts the same, but also where lengths and angles match
/// and only the places decided: arcs of equal length and different radius, small differences that
/// add up. A cut-out that was moved is no disagreement.
///
/// Requires: both verdicts are about the same two parts, B turned over in both or in neither.
std::string DisagreementText(const PartModel& a, const PartModel& b, const Comparison& comparison,
                             const GeometricVerdict& verdict);

/// "turned by 90 degrees and shifted by (10, 20), largest deviation 0.0012 mm": for people. The
/// turn is about the origin of B's drawing; "turned over (x negated)" comes first, and parts that
/// need no motion are "left in its place".
std::string PlacementText(const GeometricVerdict& verdict);

}  // namespace drawing
