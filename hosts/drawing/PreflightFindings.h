// The findings of a preflight, topic by topic.
#pragma once

#include "drawing/Preflight.h"

#include <vector>

namespace drawing {

/// A drawing with what was made of it; the drawing must outlive it, unchanged.
struct Sight {
  std::vector<Network> networks;
  std::vector<std::unique_ptr<Contour>> contours;
  std::vector<Crossing> crossings;
  DrawingFigures figures;
  NestingCounts nesting;
  std::vector<LooseEndPair> pairs;  ///< Of all loose ends, without a limit.
};

/// Appends a finding for each gap, nearest first, and for each loose end without a partner.
void AddLooseEnds(const Drawing& drawing, const Sight& sight, std::vector<Finding>& findings);

void AddJunctions(const Drawing& drawing, const Sight& sight, std::vector<Finding>& findings);

/// Duplicates, contained and partial overlaps; those of one entity with another are one finding.
void AddOverlaps(const Drawing& drawing, const std::vector<Overlap>& overlaps,
                 std::vector<Finding>& findings);

/// Zero-length entities and tiny elements; those of one entity are one finding. What stands in a
/// speck is not told as tiny.
void AddSmallOnes(const Drawing& drawing, const Sight& sight, double tiny,
                  std::vector<Finding>& findings);

/// Chains and contours that meet themselves. Stretches that are told as overlaps are left out. A
/// finding of its own says so where not all of a network could be looked at.
void AddSelfIntersections(const Drawing& drawing, const Sight& sight,
                          const std::vector<Overlap>& overlaps, std::vector<Finding>& findings);

/// Contours that cross, lie on one another or enclose nothing.
void AddContourFindings(const Drawing& drawing, const Sight& sight,
                        const std::vector<Overlap>& overlaps, std::vector<Finding>& findings);

/// Unit, entities not used, damage and remarks.
void AddFileFindings(const Drawing& drawing, std::vector<Finding>& findings);

}  // namespace drawing
