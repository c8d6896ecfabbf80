// What the host tells of a drawing and of a comparison: for people as text, for programs as JSON.
#pragma once

#include "drawing/HealingSummary.h"
#include "drawing/Judgement.h"
#include "drawing/PartModel.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

/// A length or coordinate in millimetres with four decimals, never "-0.0000".
std::string Millimetres(double value);

/// "(x, y)" in millimetres.
std::string Position(double x, double y);

/// Unit and where it came from, entities by type and layer; of each contour, counted from 1, its
/// direction, depth, the contour it is in, perimeter, surface, box, and what healing did;
/// contours that cross; complaints. Ends with a newline.
std::string InfoText(const PartModel& part);

/// The same for programs. Lengths in millimetres, `area` in their square; contours are named by
/// their place in `contours`, counted from 0, and null stands for none. `direction`, `depth`,
/// `parent` and `coincidesWith` are there for usable contours only.
nlohmann::json InfoJson(const PartModel& part);

/// @name Parts -- Report_Parts.cpp

/// Whether everything that was drawn is in a part: no contour is open, branching, without area or
/// on another one, none cross, and the reader refused nothing.
bool LeavesNothingOut(const PartModel& model);

/// The elements of a part, as indices into those of the drawing, ascending.
std::vector<std::size_t> ElementsOf(const PartModel& model, const DrawingPart& part);

/// What healing changed, a table of the parts, counted from 1, with totals; what is in no part, and
/// where contours cross; circles by diameter. Of very many contours in no part the first ones. Ends
/// with a newline.
std::string PartsText(const PartModel& model, const HealingSummary& healing);

/// The same for programs: as InfoJson, with `parts` (contours and parts counted from 0, null for
/// none), `totals`, `circles`, `leftOut`, `coincident` and `healing`.
nlohmann::json PartsJson(const PartModel& model, const HealingSummary& healing);

/// @name Comparisons -- Report_Comparison.cpp

/// What a comparison was asked and what it came to.
struct ComparisonTold {
  const PartModel& a;
  const PartModel& b;  ///< As drawn, also where its mirror image is the same.
  const Judgement& judgement;
  const HealingSummary& healingA;
  const HealingSummary& healingB;
};

/// Verdict, deciding step, the host's own verdict and where the two disagree, what healing changed;
/// figures, matched start positions, groups of cut-outs; with `positions` the partner of every
/// cut-out; the library's words where they were collected. Of a mirror image that is the same, B
/// is the mirror image, with x negated. Ends with a newline.
std::string ComparisonText(const ComparisonTold& told, bool positions);

/// The same for programs, always with the partners. `same` is the library's verdict, `own` the
/// host's; `mirrored` says that both are about B's mirror image, as are `b` and the places in it.
/// `mirrorImage` is there where that was tried and is different too.
nlohmann::json ComparisonJson(const ComparisonTold& told);

}  // namespace drawing
