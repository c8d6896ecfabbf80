// The sections of the report of a comparison, as markup.
#pragma once

#include "drawing/ComparisonFindings.h"
#include "drawing/ComparisonReport.h"

#include <string>

namespace drawing {

/// Both parts beside each other, each as drawn, at one scale, from their start points.
std::string SideBySideSection(const ComparisonAccount& account, const ComparisonFindings& findings);

/// B laid on A, and around the first difference once more, larger.
std::string OverlaySection(const ComparisonAccount& account, const ComparisonFindings& findings);

/// The steps of the comparison in the order in which they decide, with their figures.
std::string FiguresSection(const ComparisonAccount& account);

/// Lengths and angles of both outlines side by side, as a band and as a table.
std::string StripSection(const ComparisonFindings& findings);

/// Groups of cut-outs with their counts, and all cut-outs with their partners.
std::string CutOutsSection(const ComparisonAccount& account, const ComparisonFindings& findings);

}  // namespace drawing
