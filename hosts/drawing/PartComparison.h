// From two parts to a verdict: the library's funnel on the outer contours, the structure of the
// cut-outs, then the host's own decision on positions by a rigid motion.
#pragma once

#include "drawing/PartModel.h"
#include "drawing/RigidMotion.h"

#include <cstddef>
#include <string>
#include <vector>

namespace drawing {

/// Largest distance, in millimetres, that a point of one part may lie from its partner under the
/// rigid motion for the two parts to be the same.
inline constexpr double kPositionLimit = 0.05;

/// Where outlines with different numbers of sides are compared by their long sides: how far, in
/// millimetres, a vertex of one may lie from the outline of the other. It is what the library takes
/// for a short side, which it passes over.
inline constexpr double kShortSideLimit = 1.0;

/// Stands for a cut-out where there is none.
inline constexpr std::size_t kNoCutOut = static_cast<std::size_t>(-1);

/// What a comparison is asked.
struct CompareOptions {
  GXLAContour::eNmbSegmentsMode mode = GXLAContour::eNmbSegmentsEqual;
  bool trace = false;  ///< Collect the library's words.
};

/// The step of the funnel that decided.
enum class DecidingStep {
  kOuterFigures,     ///< Header figures of the outer contours differ.
  kOuterSequence,    ///< Their sequences of lengths and angles do not lie on each other.
  kOuterMotion,      ///< The sequences match, but no rigid motion lays the outlines on each other.
  kCutOutCounts,     ///< A part with cut-outs and one without, or groups with different counts.
  kCutOutShapes,     ///< The groups of cut-outs have different shapes.
  kCutOutPositions,  ///< A cut-out has no partner under any of the motions.
  kAllSteps          ///< Everything matched.
};

/// The name of a step in words, for people: "header figures of the outer contours", ...
const char* StepName(DecidingStep step);

/// One header figure of both parts, in the order in which the funnel looks at them.
struct Figure {
  std::string name;  ///< "lines", "total length", ...
  std::string a;     ///< As text.
  std::string b;
  double difference = 0.0;  ///< A minus B; of angles to the nearest full turn.
  double limit = 0.0;
  /// False where the mode does not look at it, and for the sequence where a figure in front of it
  /// had decided.
  bool checked = true;
  bool agrees = true;
};

/// A group of equal cut-outs, with the counts on both sides (0 where a side has none).
struct CutOutGroup {
  std::string description;     ///< "circle, diameter 8", "4 lines and 4 arcs, length 60.3".
  std::vector<std::size_t> a;  ///< Indices into the cut-outs of part A.
  std::vector<std::size_t> b;  ///< Indices into the cut-outs of part B.
};

/// A cut-out of A with what was found for it in B.
struct Partner {
  std::size_t a = 0;  ///< Index into the cut-outs of part A.
  bool found = false;
  /// Index into the cut-outs of part B. Where no partner was found it is the nearest of the same
  /// group that is nobody's partner, kNoCutOut where there is none.
  std::size_t b = kNoCutOut;
  double deviation = 0.0;        ///< Largest distance of corresponding points of the two, mm.
  bool twoDistanceTest = false;  ///< What HasSamePositionToRefContour says of the pair.
};

/// One motion that lays B's outer contour on A's: one per start position that the library matched.
/// Where the outline is a single circle there is one per turn that the cut-outs allow.
struct MatchedStart {
  int position = 0;             ///< In B's sequence.
  RigidMotion motion;           ///< Lays B on A.
  double outerDeviation = 0.0;  ///< Largest distance of corresponding outline points, mm.
  bool outlinesAgree = false;   ///< That is within the limit; partners are sought only then.
  std::size_t partnersFound = 0;
};

/// Everything that a comparison tells.
struct Comparison {
  bool same = false;
  DecidingStep step = DecidingStep::kAllSteps;
  std::string verdict;  ///< One sentence.
  std::vector<Figure> figures;
  GXLAContour::eReversedGeometry sense = GXLAContour::eGeometryNotSet;
  int referencePosition = -1;  ///< In A's sequence.
  std::vector<MatchedStart> starts;
  bool libraryStructureEqual = false;     ///< What HasSameInternalContourStructure says.
  std::vector<CutOutGroup> groups;        ///< Those with a partner first, from long to short.
  std::size_t bestStart = 0;              ///< Index into `starts` of the one that fits best.
  std::vector<Partner> partners;          ///< One per cut-out of A, under the best start.
  std::vector<std::size_t> unmatchedInB;  ///< Cut-outs of B that are nobody's partner.
  double largestDeviation = 0.0;          ///< Of outline and partners under the best start, mm.
  std::vector<std::string> trace;         ///< The library's words, where asked for.
};

/// Compares two usable parts, A being the reference.
///
/// Lengths and angles are compared by the library with its own tolerances. Then the outlines are
/// laid on each other, once for every start position that the library matched, and under each of
/// these motions every cut-out of A looks for a partner of the same group in B, one to one, within
/// kPositionLimit. The start with the most partners counts, then that with the least deviation; of
/// several that find as many, but not all, that one in which the rest is nearest.
/// Groups and partners are told as far as they can be found, also where an earlier step decided.
///
/// Requires: `a.usable` and `b.usable`.
Comparison CompareParts(const PartModel& a, const PartModel& b, const CompareOptions& options);

}  // namespace drawing
