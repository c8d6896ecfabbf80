// Whether two contours have the same geometry, wherever they lie and start: header figures first,
// then the start positions that a longest segment leaves, then a circular walk from each of them.
#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/lookalike/GXLAContour.h>

#include "lookalike/CircularMatch.h"
#include "lookalike/ComparisonTrace.h"
#include "lookalike/ElementFigure.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <vector>

namespace {

using ktrcl_internal::CircularMatch;
using ktrcl_internal::ElementFigure;
using ktrcl_internal::ElementKind;
using ktrcl_internal::FigureOf;
using ktrcl_internal::Tell;
using ktrcl_internal::Trace;

constexpr double kFullTurn = 6.283185307179586;
constexpr double kTieTolerance = 0.00001;  // length unit: ties among the longest segments
constexpr double kShortLength = 1.0;       // length unit: a long segment is longer than this
constexpr double kLongShare = 0.95;        // of the length of all segments
constexpr std::size_t kMaxPairedSegments = 9998;

// What the texts of the walks differ in.
struct WalkWords {
  const char* CheckAngle;
  const char* Failed;
};

constexpr const char* kCheckAngle = " : Check ANGLE : ";
constexpr const char* kFailed = " FAILED";
constexpr WalkWords kForwardWords = {kCheckAngle, kFailed};
// Backward, no blank parts the word from the number in front of it: hosts search for these texts.
constexpr WalkWords kClosedBackwardWords = {" : Check ANGLE (CC) : ", "FAILED"};
constexpr WalkWords kOpenBackwardWords = {" : Check ANGLE (OC) : ", "FAILED"};

const char* CheckText(ElementKind kind, const WalkWords& words) {
  if (kind == ElementKind::kLine) return " : Check LINE : ";
  return kind == ElementKind::kArc ? " : Check ARC : " : words.CheckAngle;
}

const char* MismatchText(ElementKind kind) {
  if (kind == ElementKind::kLine) return " : Type mismatch LINE";
  return kind == ElementKind::kArc ? " : Type mismatch ARC" : " : Type mismatch ANGLE";
}

const char* VerdictText(bool same, const WalkWords& words) { return same ? " OK" : words.Failed; }

int SegmentNumber(int position) { return position / 2 + 1; }

double ToleranceOf(ElementKind kind, const GXLATolerances& tolerances) {
  return kind == ElementKind::kAngle ? tolerances.ToleranceAngle() : tolerances.ToleranceLengthMM();
}

bool IsSameElement(const ElementFigure& x, const ElementFigure& y, bool negateAngle,
                   const WalkWords& words, const GXLATolerances& tolerances, int& number,
                   Trace* trace) {
  if (x.Kind == ElementKind::kNone) return false;
  if (x.Kind != y.Kind) {
    if (trace != nullptr) Tell(trace, number++, MismatchText(x.Kind));
    return false;
  }
  const bool negate = negateAngle && x.Kind == ElementKind::kAngle;
  const bool same =
      GXMath::AlmostEq(x.Value, negate ? -y.Value : y.Value, ToleranceOf(x.Kind, tolerances));
  if (trace != nullptr) {
    Tell(trace, number++, CheckText(x.Kind, words), x.Value, " ", y.Value,
         VerdictText(same, words));
  }
  return same;
}

bool IsPositionIn(const GXLAContour& contour, int position) {
  return position >= 0 && static_cast<std::size_t>(position) < contour.size();
}

struct Reference {
  int Position = 0;
  GXLAElement* Element = nullptr;
  double Length = 0.0;
};

// The longest segment; of equally long ones the first. A contour of one element is its own
// reference, with length 0.
Reference ChooseReference(const GXLAContour& contour) {
  Reference reference;
  reference.Element = contour.front();
  if (contour.size() < 2) return reference;
  for (std::size_t i = 0; i < contour.size(); i += 2) {
    const auto* segment = dynamic_cast<const GXLAElementSegment*>(contour[i]);
    if (segment == nullptr) continue;
    const double length = segment->GetSegmentLength();
    if (!GXMath::AlmostEqOrLess(length, reference.Length, kTieTolerance)) {
      reference = {static_cast<int>(i), contour[i], length};
    }
  }
  return reference;
}

// Fewer candidates than this are walked directly: tables take both contours whole, and a walk that
// fails mostly ends early.
constexpr std::size_t kManyCandidates = 5;

// The walks from each of several candidates in the second contour. A trace hears every element, so
// with one they are all walked directly; the results are the same.
class CandidateWalks {
 public:
  CandidateWalks(const GXLAContour& reference, int referencePosition, const GXLAContour& second,
                 std::size_t candidates, GXLATolerances& tolerances, Trace* trace)
      : reference_(reference),
        referencePosition_(referencePosition),
        second_(second),
        tolerances_(tolerances),
        trace_(trace) {
    const bool silent = trace == nullptr;
    if (silent && candidates >= kManyCandidates && reference.size() == second.size()) {
      prepared_.emplace(reference, referencePosition, second, tolerances);
    }
  }

  bool MatchFrom(int candidate, GXLAContour::eReversedGeometry& reversed) const {
    if (!prepared_) {
      return GXLAContour::HaveSameGeometryFromAnyPosition(reference_, second_, referencePosition_,
                                                          candidate, reversed, tolerances_, trace_);
    }
    if (!prepared_->MatchesFrom(candidate)) return false;
    reversed =
        prepared_->IsBackward() ? GXLAContour::eGeometryBackward : GXLAContour::eGeometryForward;
    return true;
  }

 private:
  const GXLAContour& reference_;
  int referencePosition_;
  const GXLAContour& second_;
  GXLATolerances& tolerances_;
  Trace* trace_;
  std::optional<CircularMatch> prepared_;
};

// The long segments of a contour, and what they amount to.
struct LongSegments {
  double SumOfLong = 0.0;
  double SumOfAll = 0.0;
  GXIntList LongestPositions;
  std::list<GXLAElementSegment*> Segments;  // last: making it fills the others

  explicit LongSegments(const GXLAContour& contour)
      : Segments(GXLAContour::CreateLongElementSegmentList(contour, SumOfLong, SumOfAll,
                                                           LongestPositions)) {}

  bool CarryTheContour() const {
    return Segments.size() >= 2 && !(SumOfLong / SumOfAll < kLongShare) &&
           !LongestPositions.empty();
  }
};

// Whether the segments pair off by length, each with the first of its length that is still free.
// The kind plays no part: a line pairs with an arc.
bool PairOff(const std::list<GXLAElementSegment*>& first,
             const std::list<GXLAElementSegment*>& second, const GXLATolerances& tolerances) {
  if (first.size() != second.size() || first.size() > kMaxPairedSegments) return false;
  const double tolerance = tolerances.ToleranceLengthMM();
  std::vector<double> free;
  free.reserve(second.size());
  for (const GXLAElementSegment* segment : second) free.push_back(segment->GetSegmentLength());

  for (const GXLAElementSegment* segment : first) {
    const double length = segment->GetSegmentLength();
    const auto partner = std::find_if(free.begin(), free.end(), [length, tolerance](double other) {
      return GXMath::AlmostEq(length, other, tolerance);
    });
    // One without a partner is enough: something would be left over on both sides.
    if (partner == free.end()) return false;
    free.erase(partner);
  }
  return true;
}

bool HaveSameLongSegments(const GXLAContour& reference, const GXLAContour& second,
                          int& referencePosition, GXIntList& startPositions,
                          const GXLATolerances& tolerances) {
  LongSegments first(reference);
  LongSegments other(second);
  if (!first.CarryTheContour() || !other.CarryTheContour()) return false;
  if (first.LongestPositions.size() != other.LongestPositions.size()) return false;
  if (!PairOff(first.Segments, other.Segments, tolerances)) return false;

  referencePosition = first.LongestPositions.front();
  startPositions = other.LongestPositions;
  return true;
}

}  // namespace

bool GXLAContour::IsSameAngle(double first, double second, double tolerance) {
  const double difference = std::fabs(first - second);
  if (!std::isfinite(difference)) return false;
  if (GXMath::AlmostEq(difference, 0.0, tolerance)) return true;
  constexpr double kCountLimit = 2147483648.0;  // first figure beyond a 32-bit count
  const double turns = difference / kFullTurn + 0.5;
  if (!(turns < kCountLimit)) return false;
  const int fullTurns = static_cast<int>(turns);
  if (fullTurns == 0) return false;
  return GXMath::AlmostEq(difference - fullTurns * kFullTurn, 0.0, tolerance);
}

bool GXLAContour::HaveSameGeometry_BasicChecks(const GXLAContour& reference,
                                               const GXLAContour& second, eNmbSegmentsMode mode,
                                               GXLATolerances& tolerances,
                                               GXEvent1Param<const GXString&>* trace) {
  if (reference.empty() || second.empty()) return false;
  if (reference.Closed != second.Closed) {
    Tell(trace, "Open/Close mismatch");
    return false;
  }
  if (mode == eNmbSegmentsEqual && reference.NumberOfLines != second.NumberOfLines) {
    Tell(trace, "Number of lines mismatch : ", reference.NumberOfLines, " / ",
         second.NumberOfLines);
    return false;
  }
  if (mode == eNmbSegmentsEqual && reference.NumberOfArcs != second.NumberOfArcs) {
    Tell(trace, "Number of arcs mismatch : ", reference.NumberOfArcs, " / ", second.NumberOfArcs);
    return false;
  }
  const double length = reference.TotalGeometryLength;
  const double secondLength = second.TotalGeometryLength;
  if (!GXMath::AlmostEq(length, secondLength, tolerances.ToleranceLengthMM())) {
    Tell(trace, "TotalGeometryLength mismatch : Diff = ", length - secondLength);
    return false;
  }
  if (mode == eNmbSegmentsMayDiffer) return true;

  const double angle = reference.TotalGeometryAngle;
  const double secondAngle = second.TotalGeometryAngle;
  if (IsSameAngle(angle, secondAngle, tolerances.ToleranceAngle())) return true;
  Tell(trace, "TotalGeometryAngle mismatch : Diff = ", angle - secondAngle);
  if (reference.Closed) return false;

  // Drawn the other way round, an open contour has all its angles negated.
  if (IsSameAngle(angle, -secondAngle, tolerances.ToleranceAngle())) return true;
  Tell(trace, "TotalGeometryAngle OPEN CONTOUR mismatch : Diff = ", angle + secondAngle);
  return false;
}

bool GXLAContour::GetSameElementPositions(GXLAElement& element, GXIntList& positions,
                                          GXLATolerances& tolerances,
                                          GXEvent1Param<const GXString&>* trace) const {
  const ElementFigure wanted = FigureOf(&element);
  if (wanted.Kind == ElementKind::kNone) return false;
  const double tolerance = ToleranceOf(wanted.Kind, tolerances);
  for (std::size_t i = 0; i < size(); ++i) {
    const ElementFigure figure = FigureOf((*this)[i]);
    if (figure.Kind != wanted.Kind) continue;
    const bool same = GXMath::AlmostEq(figure.Value, wanted.Value, tolerance);
    if (same) positions.push_back(static_cast<int>(i));
    Tell(trace, CheckText(wanted.Kind, kForwardWords), figure.Value, " ", wanted.Value,
         VerdictText(same, kForwardWords));
  }
  return true;
}

std::list<GXLAElementSegment*> GXLAContour::CreateLongElementSegmentList(
    const GXLAContour& contour, double& sumOfLong, double& sumOfAll, GXIntList& longestPositions) {
  sumOfLong = 0.0;
  sumOfAll = 0.0;
  longestPositions.clear();
  std::list<GXLAElementSegment*> longSegments;
  double longest = 0.0;
  for (std::size_t i = 0; i < contour.size(); i += 2) {
    auto* segment = dynamic_cast<GXLAElementSegment*>(contour[i]);
    if (segment == nullptr) continue;
    const double length = segment->GetSegmentLength();
    sumOfAll += length;
    if (!(length > kShortLength)) continue;

    longSegments.push_back(segment);
    sumOfLong += length;
    if (GXMath::AlmostEq(length, longest, kTieTolerance)) {
      longestPositions.push_back(static_cast<int>(i));
    } else if (length > longest) {
      longest = length;
      longestPositions.clear();
      longestPositions.push_back(static_cast<int>(i));
    }
  }
  return longSegments;
}

bool GXLAContour::SameElementAtPositionForward(const_iterator first, const_iterator second,
                                               GXLATolerances& tolerances, int& number,
                                               GXEvent1Param<const GXString&>* trace) {
  return IsSameElement(FigureOf(*first), FigureOf(*second), false, kForwardWords, tolerances,
                       number, trace);
}

bool GXLAContour::SameElementAtPositionBackwards(const_iterator first,
                                                 const const_reverse_iterator& second,
                                                 bool openContour, GXLATolerances& tolerances,
                                                 int& number,
                                                 GXEvent1Param<const GXString&>* trace) {
  return IsSameElement(FigureOf(*first), FigureOf(*second), openContour,
                       openContour ? kOpenBackwardWords : kClosedBackwardWords, tolerances, number,
                       trace);
}

// Each walk begins behind the two start elements and ends with them, once around.
bool GXLAContour::HaveSameGeometryFromAnyPosition(const GXLAContour& reference,
                                                  const GXLAContour& second, int referencePosition,
                                                  int position, eReversedGeometry& reversed,
                                                  GXLATolerances& tolerances,
                                                  GXEvent1Param<const GXString&>* trace) {
  if (reference.size() != second.size()) return false;
  if (trace != nullptr) {
    Tell(trace, "RefContour DIR=", reference.GetContourDirectionAsString());
    Tell(trace, "ToCheckContour DIR=", second.GetContourDirectionAsString());
  }
  if (!IsPositionIn(reference, referencePosition) || !IsPositionIn(second, position)) return false;

  const const_iterator start = reference.begin() + referencePosition;
  const_iterator first = start;
  int number = referencePosition + 1;
  if (reference.Direction == second.Direction) {
    Tell(trace, "Start FORWARD Check");
    const_iterator other = second.begin() + position;
    do {
      reference.GetNextCircIt(first);
      second.GetNextCircIt(other);
      if (!SameElementAtPositionForward(first, other, tolerances, number, trace)) return false;
    } while (first != start);
    reversed = eGeometryForward;
    return true;
  }

  Tell(trace, "Start BACKWARD Check");
  const_reverse_iterator other(second.begin() + position + 1);  // reads the element at `position`
  do {
    reference.GetNextCircIt(first);
    second.GetNextCircIt(other);
    if (!SameElementAtPositionBackwards(first, other, false, tolerances, number, trace)) {
      return false;
    }
  } while (first != start);
  reversed = eGeometryBackward;
  return true;
}

bool GXLAContour::HaveSameGeometry(const GXLAContour& reference, const GXLAContour& second,
                                   eReversedGeometry& reversed, int& referencePosition,
                                   GXIntList& startPositions, eNmbSegmentsMode mode,
                                   GXLATolerances& tolerances,
                                   GXEvent1Param<const GXString&>* trace) {
  reversed = eGeometryNotSet;
  referencePosition = -1;
  startPositions.clear();
  if (!HaveSameGeometry_BasicChecks(reference, second, mode, tolerances, trace)) return false;
  if (mode == eNmbSegmentsMayDiffer && reference.size() != second.size()) {
    return HaveSameLongSegments(reference, second, referencePosition, startPositions, tolerances);
  }

  const Reference chosen = ChooseReference(reference);
  referencePosition = chosen.Position;
  Tell(trace, "Ref position : ", chosen.Position, " SegmId=", SegmentNumber(chosen.Position));
  Tell(trace, "Ref length : ", chosen.Length);
  GXIntList candidates;
  if (chosen.Element != nullptr) {
    second.GetSameElementPositions(*chosen.Element, candidates, tolerances, nullptr);
  }
  Tell(trace, "To Match nmb candidate positions : ", candidates.size());
  const CandidateWalks walks(reference, chosen.Position, second, candidates.size(), tolerances,
                             trace);
  for (const int candidate : candidates) {
    Tell(trace, "To Match Candidate position : ", candidate, " SegmId=", SegmentNumber(candidate));
    if (walks.MatchFrom(candidate, reversed)) startPositions.push_back(candidate);
  }
  Tell(trace, "To Match Nmb start positions : ", startPositions.size());
  return !startPositions.empty();
}

bool GXLAContour::HaveSameGeometry(const GXLAContour& reference, const GXLAContour& second,
                                   eReversedGeometry& reversed, int& startPosition,
                                   eNmbSegmentsMode mode, GXLATolerances& tolerances,
                                   GXEvent1Param<const GXString&>* trace) {
  if (!HaveSameGeometry_BasicChecks(reference, second, mode, tolerances, trace)) return false;
  if (dynamic_cast<const GXLAElementSegment*>(reference.front()) == nullptr) return false;
  // An open contour has no start position to search for.
  if (reference.IsOpen()) return true;

  GXIntList candidates;
  second.GetSameElementPositions(*reference.front(), candidates, tolerances, trace);
  const CandidateWalks walks(reference, 0, second, candidates.size(), tolerances, trace);
  for (const int candidate : candidates) {
    if (walks.MatchFrom(candidate, reversed)) {
      startPosition = candidate;
      return true;
    }
  }
  return false;
}

bool GXLAContour::HaveSameGeometryFromStartPositionStraight(const GXLAContour& reference,
                                                            const GXLAContour& second,
                                                            GXLATolerances& tolerances,
                                                            GXEvent1Param<const GXString&>* trace) {
  int number = 1;
  const_iterator other = second.begin();
  for (const_iterator first = reference.begin(); first != reference.end(); ++first, ++other) {
    if (other == second.end()) return false;
    if (!SameElementAtPositionForward(first, other, tolerances, number, trace)) return false;
  }
  return true;
}

bool GXLAContour::HaveSameGeometryFromStartPositionReverse(const GXLAContour& reference,
                                                           const GXLAContour& second,
                                                           GXLATolerances& tolerances,
                                                           GXEvent1Param<const GXString&>* trace) {
  int number = 1;
  const_reverse_iterator other = second.rbegin();
  for (const_iterator first = reference.begin(); first != reference.end(); ++first, ++other) {
    if (other == second.rend()) return false;
    if (!SameElementAtPositionBackwards(first, other, true, tolerances, number, trace)) {
      return false;
    }
  }
  return true;
}
