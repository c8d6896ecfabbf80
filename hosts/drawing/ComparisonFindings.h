// What a report of a comparison shows, found once for all its pictures and tables.
#pragma once

#include "drawing/ComparisonReport.h"
#include "drawing/CutOutRows.h"
#include "drawing/OutlineStrip.h"

#include <KTRCL_Geometry/elements/GXElementLists.h>

#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

/// Rows of a strip that a report shows one by one.
inline constexpr std::size_t kMostStripRows = 400;

/// Stands for a row where there is none.
inline constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

/// The difference that a report points at. At most one of the rows is set.
struct FirstFinding {
  std::size_t segmentRow = kNoRow;  ///< Index into the rows of the strip.
  std::size_t cutOutRow = kNoRow;   ///< Index into the rows of the cut-outs.
  std::string key;                  ///< Its data-mark; empty where there is no difference.
  std::string text;                 ///< One or two sentences.
};

/// Everything that was found.
struct ComparisonFindings {
  Placement placement;  ///< Lays B, as compared, on A.
  OutlineStrip strip;
  std::vector<CutOutRow> cutOuts;
  std::size_t firstShown = 0;  ///< Range of the rows of the strip that are shown, last excluded.
  std::size_t lastShown = 0;
  bool outlinesDiffer = false;  ///< Rows of the strip that differ are differences of the parts.
  FirstFinding first;
};

ComparisonFindings FindingsOf(const ComparisonAccount& account);

/// The data-mark of a row of the strip ("outline-12") or of a cut-out ("cutout-3").
std::string OutlineKey(std::size_t row);
std::string CutOutKey(const CutOutRow& row);

/// Whether a row is to be marked as a difference.
bool IsMarked(const ComparisonFindings& findings, const StripRow& row);
bool IsMarked(const CutOutRow& row);

/// "line of 40", "arc of 7.854, radius 5", "arc of 7.854, radius 5 inward".
std::string SegmentText(const OutlineSegment& segment);

/// The angle of a corner as the library holds it, in degrees on the inner side: above 0, up to 360.
double InnerDegrees(double radians);

/// What undoes a placement.
Placement Inverse(const Placement& placement);

/// Appends copies of lines and arcs, laid by the placement.
void AppendPlaced(const GX2DElement& element, const Placement& placement, GX2DElmList& placed);

}  // namespace drawing
