// Motions that may lay one part on another, from what stands out on their curves.
#pragma once

#include "drawing/PartCurves.h"
#include "drawing/RigidMotion.h"

#include <vector>

namespace drawing {

/// Turns about the centres that lay a place of A that stands out on one of B that does so in the
/// same way: where the outline comes nearest to the centre or goes farthest away from it, the
/// middles of cut-outs and, where these are not round, their nearest and farthest places.
///
/// None of these depends on how sides are split or from where they are drawn. A few places of A are
/// taken, those with the fewest counterparts in B. Parts without any, round ones, give the motion
/// that does not turn. At most 20,000 motions, no two of them nearly the same.
std::vector<RigidMotion> FeaturePlacements(const PartCurves& a, const PartCurves& b);

/// Motions that make long straight sides of both outlines parallel, with the centres or the corners
/// or the middles of their boxes on each other: for outlines that differ somewhere, so that their
/// centres are no guide. At most 200.
std::vector<RigidMotion> DirectionPlacements(const PartCurves& a, const PartCurves& b);

}  // namespace drawing
