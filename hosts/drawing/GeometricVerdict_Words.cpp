// The host's own verdict in words, and how it can differ from the library's.
#include "drawing/GeometricVerdict.h"

#include "drawing/CurveMeasures.h"
#include "drawing/NumberText.h"

#include <KTRCL_Geometry/KTRCL_Geometry.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace drawing {

namespace {

constexpr int kDeviationDecimals = 4;

// In radians: arcs of one length that turn by so little more than each other are alike.
constexpr double kSameSweep = 0.001;

std::string MillimetresText(double value) { return FixedNumber(value, kDeviationDecimals) + " mm"; }

struct ArcFigures {
  double length = 0.0;
  double radius = 0.0;
};

std::vector<ArcFigures> ArcsOf(const ShapedContour& contour) {
  std::vector<ArcFigures> arcs;
  for (GX2DElement* const element : contour.elements) {
    const auto* arc = dynamic_cast<const GX2DArc*>(element);
    if (arc != nullptr) arcs.push_back({ElementLength(*arc), arc->Radius()});
  }
  std::sort(arcs.begin(), arcs.end(), [](const ArcFigures& p, const ArcFigures& q) {
    return p.length != q.length ? p.length < q.length : p.radius < q.radius;
  });
  return arcs;
}

// Arcs from index `first` on that are as long as that one to the library.
std::size_t EndOfLength(const std::vector<ArcFigures>& arcs, std::size_t first) {
  const double tolerance = GXLATolerances().ToleranceLengthMM();
  std::size_t end = first;
  while (end < arcs.size() && arcs[end].length - arcs[first].length <= tolerance) ++end;
  return end;
}

std::vector<double> RadiiOf(const std::vector<ArcFigures>& arcs, std::size_t first,
                            std::size_t end) {
  std::vector<double> radii;
  for (std::size_t i = first; i < end; ++i) radii.push_back(arcs[i].radius);
  std::sort(radii.begin(), radii.end());
  return radii;
}

// "arcs of equal length, 60, have a radius of 120 in A and of 100 in B"; empty where there are
// none.
std::string ArcReason(const ShapedContour& a, const ShapedContour& b) {
  const std::vector<ArcFigures> arcsOfA = ArcsOf(a);
  const std::vector<ArcFigures> arcsOfB = ArcsOf(b);
  if (arcsOfA.size() != arcsOfB.size()) return "";
  for (std::size_t first = 0, end = 0; first < arcsOfA.size(); first = end) {
    end = EndOfLength(arcsOfA, first);
    if (EndOfLength(arcsOfB, first) != end) return "";
    const double length = arcsOfA[first].length;
    const std::vector<double> radiiOfA = RadiiOf(arcsOfA, first, end);
    const std::vector<double> radiiOfB = RadiiOf(arcsOfB, first, end);
    for (std::size_t i = 0; i < radiiOfA.size(); ++i) {
      if (!(std::fabs(length / radiiOfA[i] - length / radiiOfB[i]) > kSameSweep)) continue;
      return "arcs of equal length, " + ShortNumber(length) + ", have a radius of " +
             ShortNumber(radiiOfA[i]) + " in A and of " + ShortNumber(radiiOfB[i]) + " in B";
    }
  }
  return "";
}

// Why outlines that match in lengths and angles lie apart.
std::string OutlineReason(const PartModel& a, const PartModel& b, const Comparison& comparison) {
  std::string reason = ArcReason(*a.outer, *b.outer);
  if (!reason.empty()) return reason;
  if (comparison.sense == GXLAContour::eGeometryNotSet) {
    return "only the sides longer than " + ShortNumber(kShortSideLimit) +
           " mm were compared, not what lies between them";
  }
  return "each length is within " + ShortNumber(GXLATolerances().ToleranceLengthMM()) +
         " mm and each angle within " + ShortNumber(GXLATolerances().ToleranceAngle()) +
         " rad, but the differences add up";
}

// The cut-out without partner that lies farthest off, null where all have one.
const ContourDeviation* FarthestAlone(const GeometricVerdict& verdict) {
  const ContourDeviation* farthest = nullptr;
  for (const ContourDeviation& cutOut : verdict.cutOuts) {
    if (cutOut.a != kNoCutOut && cutOut.b != kNoCutOut) continue;
    if (farthest == nullptr || cutOut.deviation > farthest->deviation) farthest = &cutOut;
  }
  return farthest;
}

std::string ApartText(const PartModel& a, const PartModel& b, const Comparison& comparison,
                      const GeometricVerdict& verdict) {
  const std::string begin = "The library finds the same lengths and angles, yet at ";
  if (verdict.outerDeviation > kPositionLimit) {
    return begin + PlaceText(verdict.outerPlace) + " of A the outlines lie " +
           MillimetresText(verdict.outerDeviation) + " apart: " + OutlineReason(a, b, comparison) +
           ".";
  }
  const ContourDeviation* alone = FarthestAlone(verdict);
  if (alone == nullptr) return "";
  return begin + PlaceText(alone->place) + " of A a cut-out of " +
         (alone->a == kNoCutOut ? "B" : "A") + " lies " + MillimetresText(alone->deviation) +
         " away from every contour of the other part: its corners and middles match, the curve "
         "between them does not.";
}

// The cut-outs without partner of one group of equal shapes, as indices into the verdict's.
struct AloneOfGroup {
  std::vector<std::size_t> a;
  std::vector<std::size_t> b;
};

std::vector<AloneOfGroup> AloneByGroup(const Comparison& comparison,
                                       const GeometricVerdict& verdict) {
  std::map<std::size_t, std::size_t> groupsOfA;
  std::map<std::size_t, std::size_t> groupsOfB;
  for (std::size_t i = 0; i < comparison.groups.size(); ++i) {
    for (const std::size_t cutOut : comparison.groups[i].a) groupsOfA[cutOut] = i;
    for (const std::size_t cutOut : comparison.groups[i].b) groupsOfB[cutOut] = i;
  }
  std::vector<AloneOfGroup> alone(comparison.groups.size());
  for (std::size_t i = 0; i < verdict.cutOuts.size(); ++i) {
    const ContourDeviation& cutOut = verdict.cutOuts[i];
    if (cutOut.b == kNoCutOut) {
      const auto group = groupsOfA.find(cutOut.a);
      if (group != groupsOfA.end()) alone[group->second].a.push_back(i);
    } else if (cutOut.a == kNoCutOut) {
      const auto group = groupsOfB.find(cutOut.b);
      if (group != groupsOfB.end()) alone[group->second].b.push_back(i);
    }
  }
  return alone;
}

// Cut-outs that the library takes for equal in shape, though their arcs are bent otherwise.
std::string BentCutOutText(const PartModel& a, const PartModel& b, const Comparison& comparison,
                           const GeometricVerdict& verdict) {
  for (const AloneOfGroup& alone : AloneByGroup(comparison, verdict)) {
    for (std::size_t i = 0; i < std::min(alone.a.size(), alone.b.size()); ++i) {
      const ContourDeviation& mine = verdict.cutOuts[alone.a[i]];
      const ContourDeviation& other = verdict.cutOuts[alone.b[i]];
      const std::string reason = ArcReason(*a.cutOuts[mine.a], *b.cutOuts[other.b]);
      if (reason.empty()) continue;
      return "The library finds the same shapes of cut-outs, yet at " + PlaceText(mine.place) +
             " of A one lies " + MillimetresText(mine.deviation) +
             " away from every contour of B: " + reason + ".";
    }
  }
  return "";
}

const char* AlikeReason(DecidingStep step, const std::string& figure) {
  switch (step) {
    case DecidingStep::kOuterFigures:
      if (figure == "total length") return "small differences of length add up";
      if (figure == "total angle") return "small bends add up";
      return "the same curve is drawn with other sides";
    case DecidingStep::kOuterSequence:
      return "the same curve is drawn with other sides";
    case DecidingStep::kCutOutCounts:
      return "cut-outs that differ by next to nothing fall into different groups";
    case DecidingStep::kCutOutShapes:
      return "the same curves are drawn with other sides";
    case DecidingStep::kOuterMotion:
    case DecidingStep::kCutOutPositions:
      return "corresponding corners lie further apart, but along the curves";
    case DecidingStep::kAllSteps:
      break;
  }
  return "nothing else differs";
}

std::string AlikeText(const Comparison& comparison, const GeometricVerdict& verdict) {
  std::string text =
      "The library tells the parts apart by the " + std::string(StepName(comparison.step));
  std::string name;
  if (comparison.step == DecidingStep::kOuterFigures) {
    const auto decided =
        std::find_if(comparison.figures.begin(), comparison.figures.end(),
                     [](const Figure& figure) { return figure.checked && !figure.agrees; });
    if (decided != comparison.figures.end()) {
      name = decided->name;
      text += ", " + name + " " + decided->a + " in A and " + decided->b + " in B";
    }
  }
  return text + "; yet all contours lie within " + MillimetresText(verdict.largestDeviation) +
         " of each other: " + AlikeReason(comparison.step, name) + ".";
}

// "90", never "-180".
std::string DegreesText(double degrees) {
  const std::string text = ShortNumber(degrees);
  return text == "-180" ? "180" : text;
}

std::string MotionText(const Placement& placement) {
  const std::string degrees = DegreesText(placement.motion.AngleDegrees());
  const std::string shift = PlaceText({placement.motion.shiftX, placement.motion.shiftY});
  std::vector<std::string> parts;
  if (placement.mirrored) parts.emplace_back("turned over (x negated)");
  if (degrees != "0") parts.push_back("turned by " + degrees + " degrees");
  if (shift != "(0, 0)") parts.push_back("shifted by " + shift);
  if (parts.empty()) return "left in its place";
  std::string text = parts.front();
  for (std::size_t i = 1; i < parts.size(); ++i) {
    text += (i + 1 < parts.size() ? ", " : " and ") + parts[i];
  }
  return text;
}

}  // namespace

std::string DisagreementText(const PartModel& a, const PartModel& b, const Comparison& comparison,
                             const GeometricVerdict& verdict) {
  if (verdict.same) return comparison.same ? "" : AlikeText(comparison, verdict);
  if (comparison.same || comparison.step == DecidingStep::kOuterMotion) {
    return ApartText(a, b, comparison, verdict);
  }
  if (comparison.step != DecidingStep::kCutOutPositions) return "";
  return BentCutOutText(a, b, comparison, verdict);
}

std::string PlacementText(const GeometricVerdict& verdict) {
  return MotionText(verdict.placement) + ", largest deviation " +
         MillimetresText(verdict.largestDeviation);
}

}  // namespace drawing
