#include "drawing/ComparisonFindings.h"

#include "drawing/ComparisonWords.h"
#include "drawing/CurveMeasures.h"
#include "drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <string>

namespace drawing {

namespace {

bool DecidedByOutlines(DecidingStep step) {
  return step == DecidingStep::kOuterFigures || step == DecidingStep::kOuterSequence ||
         step == DecidingStep::kOuterMotion;
}

// The row of the strip whose segment of A is nearest to a place.
std::size_t RowAt(const PartModel& a, const OutlineStrip& strip, const GX2DPoint& place) {
  std::size_t nearest = kNoRow;
  double least = HUGE_VAL;
  for (std::size_t i = 0; i < strip.rows.size(); ++i) {
    if (strip.rows[i].a == kNoSegment) continue;
    const double distance = DistanceToElement(place, *a.outer->elements[strip.rows[i].a]);
    if (!(distance < least)) continue;
    least = distance;
    nearest = i;
  }
  return nearest;
}

std::string SideText(const std::vector<OutlineSegment>& segments, std::size_t index) {
  return index == kNoSegment ? "nothing" : SegmentText(segments[index]);
}

std::string RowText(const OutlineStrip& strip, std::size_t index) {
  const StripRow& row = strip.rows[index];
  std::string text = "Segment " + std::to_string(index + 1) +
                     " of the outline: " + SideText(strip.a, row.a) + " in A, " +
                     SideText(strip.b, row.b) + " in B";
  const bool sameFigures = !row.Alone() && !row.kindDiffers && !row.lengthDiffers;
  if (sameFigures && row.angleDiffers) {
    text += "; the corner behind it is " + ShortNumber(InnerDegrees(row.angleA)) +
            " degrees in A and " + ShortNumber(InnerDegrees(row.angleB)) + " in B";
  }
  return text + ".";
}

std::string NameOf(const PartModel& part, std::size_t cutOut) {
  return ShapeText(*part.cutOuts[cutOut]) + ", at " + PlaceText(MiddleOfCutOut(part, cutOut));
}

// Both sides of a row; of one that is replaced, or replaces, those of the two rows with its number.
CutOutRow WithReplacement(CutOutRow row, const std::vector<CutOutRow>& rows) {
  for (const CutOutRow& other : rows) {
    if (row.standing != CutOutStanding::kReplaced || other.number != row.number) continue;
    if (other.a != kNoCutOut) row.a = other.a;
    if (other.b != kNoCutOut) row.b = other.b;
  }
  return row;
}

std::string RowText(const ComparisonAccount& account, const CutOutRow& row) {
  std::string text = "Cut-out " + std::to_string(row.number) + ": ";
  if (row.a != kNoCutOut) text += NameOf(account.a, row.a) + " in A";
  if (row.a != kNoCutOut && row.b != kNoCutOut) text += "; ";
  if (row.b != kNoCutOut) text += NameOf(account.b, row.b) + " in B";
  switch (row.standing) {
    case CutOutStanding::kPartners:
      return text + "; they are up to " + FixedNumber(row.ownDeviation, 4) + " mm apart.";
    case CutOutStanding::kNearest:
      return text + "; laid on each other they are up to " + FixedNumber(row.deviation, 4) +
             " mm apart.";
    case CutOutStanding::kReplaced:
      return text + ", in its place but of another shape.";
    case CutOutStanding::kAlone:
      break;
  }
  return text + "; the other part has none there.";
}

// Whether the group of a cut-out is of those that decided.
bool GroupDecides(const Comparison& comparison, const CutOutRow& row) {
  const CutOutGroup& group = comparison.groups[row.group];
  switch (comparison.step) {
    case DecidingStep::kCutOutShapes:
      return group.a.empty() || group.b.empty();
    case DecidingStep::kCutOutCounts:
      return group.a.size() != group.b.size();
    default:
      return true;
  }
}

std::size_t FirstCutOut(const Comparison& comparison, const std::vector<CutOutRow>& rows) {
  const auto decides = std::find_if(rows.begin(), rows.end(), [&](const CutOutRow& row) {
    return IsMarked(row) && GroupDecides(comparison, row);
  });
  if (decides != rows.end()) return static_cast<std::size_t>(decides - rows.begin());
  const auto any =
      std::find_if(rows.begin(), rows.end(), [](const CutOutRow& row) { return IsMarked(row); });
  return any == rows.end() ? kNoRow : static_cast<std::size_t>(any - rows.begin());
}

// The cut-outs that the geometric verdict finds farther apart than the outlines.
std::size_t FarthestCutOut(const GeometricVerdict& own, const std::vector<CutOutRow>& rows) {
  std::size_t farthest = kNoRow;
  double most = own.outerDeviation;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!rows[i].hasOwn || !(rows[i].ownDeviation > most)) continue;
    most = rows[i].ownDeviation;
    farthest = i;
  }
  return farthest;
}

// Of the outlines: where lengths and angles differ, otherwise where they lie apart most.
std::size_t FirstSegment(const ComparisonAccount& account, const OutlineStrip& strip) {
  const std::size_t first = FirstDifference(strip);
  return first < strip.rows.size() ? first : RowAt(account.a, strip, account.own.outerPlace);
}

FirstFinding FindFirst(const ComparisonAccount& account, const ComparisonFindings& findings) {
  FirstFinding first;
  const Comparison& comparison = account.comparison;
  if (comparison.same && account.own.same) return first;
  if (comparison.same) {
    first.cutOutRow = FarthestCutOut(account.own, findings.cutOuts);
  } else if (!DecidedByOutlines(comparison.step)) {
    first.cutOutRow = FirstCutOut(comparison, findings.cutOuts);
  }
  if (first.cutOutRow != kNoRow) {
    const CutOutRow& row = findings.cutOuts[first.cutOutRow];
    first.key = CutOutKey(row);
    first.text = RowText(account, WithReplacement(row, findings.cutOuts));
    return first;
  }
  first.segmentRow = FirstSegment(account, findings.strip);
  if (first.segmentRow == kNoRow) return first;
  first.key = OutlineKey(first.segmentRow);
  first.text = RowText(findings.strip, first.segmentRow);
  if (account.own.outerDeviation > kPositionLimit) {
    first.text += " The outlines lie up to " + FixedNumber(account.own.outerDeviation, 4) +
                  " mm apart, at " + PlaceText(account.own.outerPlace) + " of A.";
  }
  return first;
}

// A stretch of rows about the first difference, a quarter of it in front.
void ChooseShown(ComparisonFindings& findings) {
  const std::size_t count = findings.strip.rows.size();
  const std::size_t length = std::min(count, kMostStripRows);
  const std::size_t row = findings.first.segmentRow == kNoRow ? 0 : findings.first.segmentRow;
  findings.firstShown = std::min(row - std::min(row, kMostStripRows / 4), count - length);
  findings.lastShown = findings.firstShown + length;
}

}  // namespace

ComparisonFindings FindingsOf(const ComparisonAccount& account) {
  ComparisonFindings findings;
  findings.placement = account.own.placement;
  // B was turned over before it was handed on.
  if (account.mirrored) findings.placement.mirrored = false;
  findings.strip = AlignOutlines(account.a, account.b, account.comparison);
  GeometricVerdict own = account.own;
  own.placement = findings.placement;
  findings.cutOuts = RowsOfCutOuts(account.a, account.b, account.comparison, own);
  findings.outlinesDiffer =
      DecidedByOutlines(account.comparison.step) || own.outerDeviation > kPositionLimit;
  findings.first = FindFirst(account, findings);
  ChooseShown(findings);
  return findings;
}

std::string OutlineKey(std::size_t row) { return "outline-" + std::to_string(row + 1); }

std::string CutOutKey(const CutOutRow& row) { return "cutout-" + std::to_string(row.number); }

bool IsMarked(const ComparisonFindings& findings, const StripRow& row) {
  return findings.outlinesDiffer && (row.Differs() || row.radiusDiffers);
}

bool IsMarked(const CutOutRow& row) { return row.standing != CutOutStanding::kPartners; }

std::string SegmentText(const OutlineSegment& segment) {
  if (!segment.isArc) return "line of " + ShortNumber(segment.length);
  return "arc of " + ShortNumber(segment.length) + ", radius " +
         ShortNumber(std::fabs(segment.radius)) + (segment.radius < 0.0 ? " inward" : "");
}

double InnerDegrees(double radians) {
  constexpr double kHalfTurn = 180.0;
  const double degrees = radians * kHalfTurn / 3.141592653589793;
  return degrees > 0.0 ? degrees : degrees + 2.0 * kHalfTurn;
}

// Turned over on both sides, a turn is the turn back: so the turn itself stays, and only the shift
// has to be found.
Placement Inverse(const Placement& placement) {
  const RigidMotion& motion = placement.motion;
  Placement inverse = placement;
  if (placement.mirrored) {
    inverse.motion.shiftX = motion.cosine * motion.shiftX + motion.sine * motion.shiftY;
    inverse.motion.shiftY = motion.sine * motion.shiftX - motion.cosine * motion.shiftY;
    return inverse;
  }
  inverse.motion.sine = -motion.sine;
  inverse.motion.shiftX = -(motion.cosine * motion.shiftX + motion.sine * motion.shiftY);
  inverse.motion.shiftY = motion.sine * motion.shiftX - motion.cosine * motion.shiftY;
  return inverse;
}

void AppendPlaced(const GX2DElement& element, const Placement& placement, GX2DElmList& placed) {
  std::unique_ptr<GX2DElement> copy;
  if (const auto* arc = dynamic_cast<const GX2DArc*>(&element)) {
    copy = std::make_unique<GX2DArc>(placement.Apply(arc->Center), placement.Apply(arc->Start),
                                     placement.Apply(arc->Mid), placement.Apply(arc->End));
  } else if (const auto* line = dynamic_cast<const GX2DLine*>(&element)) {
    copy = std::make_unique<GX2DLine>(placement.Apply(line->Start), placement.Apply(line->End));
  }
  if (copy == nullptr) return;
  placed.push_back(copy.get());
  copy.release();
}

}  // namespace drawing
