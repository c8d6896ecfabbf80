// What a person should know of a drawing before it is cut; nothing is changed.
#pragma once

#include "drawing/Contours.h"
#include "drawing/Drawing.h"
#include "drawing/DrawingFigures.h"
#include "drawing/LooseEndPairs.h"
#include "drawing/Nesting.h"
#include "drawing/Networks.h"
#include "drawing/Overlaps.h"

#include <KTRCL_Geometry/elements/GX2DElements.h>

#include <nlohmann/json.hpp>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace drawing {

/// The largest gap, in millimetres, that the commands of the program take.
inline constexpr double kLargestGap = 1000.0;

/// What was found.
enum class FindingKind {
  kLooseEnd,
  kJunction,
  kDuplicate,
  kContained,
  kPartialOverlap,
  kZeroLength,
  kTiny,
  kSelfIntersection,
  kCrossing,    ///< Contours that cross.
  kCoincident,  ///< A contour that lies on another all along.
  kNoArea,      ///< A closed contour that encloses nothing, or a speck.
  kUnit,        ///< The drawing names no known unit, and millimetres were taken.
  kNotUsed,  ///< Entities that cannot be used, hidden layers, paper space; nothing to cut at all.
  kDamage,   ///< What the reader complained about: warnings and errors.
  kRemark    ///< What the reader noted.
};

/// "loose end", "junction", ...: a kind of finding in words.
const char* FindingKindName(FindingKind kind);

/// One finding: one thing to be mended or known, however many elements have part in it.
struct Finding {
  FindingKind kind = FindingKind::kLooseEnd;
  /// False for what is only worth knowing: that there is no unit, text and dimensions that are no
  /// contours, hidden layers, paper space, remarks. Only findings that count make a drawing not
  /// clean.
  bool counts = true;
  /// Empty where none is meant. Of a gap both loose ends, the one of the earlier element first; of
  /// elements that lie on one another the middle of every common stretch.
  std::vector<GX2DPoint> places;
  /// Indices into Drawing::elements. Of a gap the two with the loose ends; of elements that lie on
  /// one another pairs, in step with the places: the one that would stay, then the other.
  std::vector<std::size_t> elements;
  std::vector<std::size_t> zeroLength;  ///< Indices into Drawing::zeroLength.
  double measure = 0.0;  ///< Gap, length of overlaps, of the shortest tiny element; millimetres.
  /// For loose ends: they are a pair (PairLooseEnds without a limit), so that `measure` is the
  /// smallest gap tolerance that closes them. False for one that has no partner.
  bool hasPartner = false;
  /// For loose ends: how far away the nearest other loose end is; 0 where there is no other.
  double nearest = 0.0;
  std::string what;  ///< One line for people, with coordinates, entities and their lines.
};

/// How closely is looked.
struct PreflightOptions {
  double tiny = 0.01;  ///< Elements shorter than this, in millimetres, are tiny.
};

/// How the closed contours of a drawing lie in one another.
struct NestingCounts {
  std::size_t outer = 0;
  std::size_t cutOuts = 0;     ///< At odd depth.
  std::size_t islands = 0;     ///< Inside cut-outs.
  std::size_t coincident = 0;  ///< Lying on another all along, and counted nowhere else.
};

/// A drawing and everything found.
///
/// Networks, contours and figures are those of the drawing as drawn. What is drawn twice makes
/// junctions of corners and hides loose ends; so loose ends, junctions and whatever concerns whole
/// contours are found as they are without the elements that RemovableOverlaps names. These are
/// findings of their own, and each defect is told once.
struct Preflight {
  Drawing drawing;
  std::vector<Network> networks;
  std::vector<std::unique_ptr<Contour>> contours;  ///< Nested.
  DrawingFigures figures;
  NestingCounts nesting;
  bool hasDoubled = false;        ///< There are elements that RemovableOverlaps names.
  DrawingFigures withoutDoubled;  ///< Figures without them; as drawn if there are none.
  NestingCounts nestingWithoutDoubled;
  /// By kind; loose ends by their gap, those without a partner last; others by place in the file.
  std::vector<Finding> findings;
  std::size_t looseEnds = 0;  ///< In all findings of that kind.
  /// The smallest gap tolerance that closes every pair of loose ends; 0 where there is none.
  double closingGap = 0.0;

  /// The drawing is usable and no finding counts.
  bool IsClean() const;
};

/// Looks at a drawing, which may be unusable; then there is nothing but its refusal.
///
/// Cost: near n log n for n elements that mostly lie apart, however many are doubled or left open.
/// Of networks that meet themselves more than 1000 times, or too often come near themselves
/// (FindSelfIntersections), not all is looked at, and a finding says so.
Preflight Inspect(Drawing drawing, const PreflightOptions& options);

/// For people: a summary line, contours and nesting, then the findings by kind with counts; of
/// more than ten of a kind the first ten and how many more, unless `all`. Ends with a newline.
std::string PreflightText(const Preflight& preflight, bool all);

/// For programs; every finding. Lengths in millimetres, areas in their square.
///
/// {"file", "usable", "refusal"} and nothing else for an unusable drawing; otherwise
///   "file", "usable", "clean", "count" (findings that count), "version",
///   "unit"      {"code", "name", "millimetresPerUnit", "source", "assumed"}
///   "figures"   {"elements", "closed", "open", "branching", "other", "area", "perimeter",
///                "totalLength", "outer", "cutOuts", "islands", "coincident"}, as drawn
///   "withoutDoubled"  the same without elements that are drawn twice; null where there are none
///   "looseEnds" their number, "closingGap" or null where nothing is to be closed
///   "contours"  one for each network: {"kind", "usable", "obstacle", "elements" (indices), "box",
///               "perimeter"} and, where it is usable, {"area", "clockwise", "depth", "parent",
///               "coincidesWith"}, the latter two indices of contours or null
///   "findings"  {"kind", "counts", "what", "places" ([x, y] each), "elements" (indices),
///               "entities" ({"type", "handle", "layer", "line", "block", "insertLine"}, each one
///               once), "measure"}, and for loose ends "closedBy", a gap or null, and "nearest",
///               the distance of the nearest other loose end or null
nlohmann::json PreflightJson(const Preflight& preflight);

}  // namespace drawing
