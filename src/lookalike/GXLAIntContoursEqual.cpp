// Whether the cut-outs of two parts match as groups: as many shapes, and shape by shape the same
// geometry in the order of the sorted lists.
#include <KTRCL_DataTypes/GXMath.h>
#include <KTRCL_Geometry/lookalike/GXLAEquality.h>

#include "lookalike/ComparisonTrace.h"

namespace {

using ktrcl_internal::Tell;

// Length unit; tighter than the tolerance of the geometry, and the one by which the lists are
// sorted.
constexpr double kTotalLengthTolerance = 0.001;

bool HaveSameHeader(const GXLAContour& a, const GXLAContour& b, const GXLATolerances& tolerances) {
  const double angleTolerance = tolerances.ToleranceAngle();
  bool sameAngle =
      GXLAContour::IsSameAngle(b.TotalGeometryAngle, a.TotalGeometryAngle, angleTolerance);
  // An open contour drawn the other way round has all its angles negated.
  if (!sameAngle && a.IsOpen() && b.IsOpen()) {
    sameAngle =
        GXLAContour::IsSameAngle(b.TotalGeometryAngle, -a.TotalGeometryAngle, angleTolerance);
  }
  return GXMath::AlmostEq(a.TotalGeometryLength - b.TotalGeometryLength, 0.0,
                          kTotalLengthTolerance) &&
         a.IsClosed() == b.IsClosed() && sameAngle && a.NumberOfLines == b.NumberOfLines &&
         a.NumberOfArcs == b.NumberOfArcs;
}

bool HaveSameGeometry(const GXLAContour& a, const GXLAContour& b,
                      GXLAContour::eNmbSegmentsMode mode, GXLATolerances& tolerances,
                      GXEvent1Param<const GXString&>* trace) {
  GXLAContour::eReversedGeometry reversed = GXLAContour::eGeometryNotSet;
  int startPosition = 0;
  return GXLAContour::HaveSameGeometry(a, b, reversed, startPosition, mode, tolerances, trace);
}

// Turns pairs of shapes into pairs of their groups.
bool MapGroups(const std::map<GXLAContour*, GXLAContour*>& shapes, GXLAContourManager& first,
               GXLAContourManager& second, GXLAContourInstanceMapping& mapping) {
  mapping.clear();
  for (const auto& [a, b] : shapes) {
    if (a == nullptr || b == nullptr) return false;
    const auto firstGroup = first.find(a);
    const auto secondGroup = second.find(b);
    if (firstGroup == first.end() || secondGroup == second.end()) return false;
    mapping.AddToMap(firstGroup->second, secondGroup->second);
  }
  return true;
}

}  // namespace

CSortedInternalLAContourListCheck::CSortedInternalLAContourListCheck() = default;
CSortedInternalLAContourListCheck::~CSortedInternalLAContourListCheck() = default;

bool CSortedInternalLAContourListCheck::SameInternalLAContourLists(
    GXLAContourList& first, GXLAContourList& second, bool headerOnly,
    std::map<GXLAContour*, GXLAContour*>& matches, GXLAContour::eNmbSegmentsMode mode,
    GXLATolerances& tolerances) {
  matches.clear();
  if (first.empty() || second.empty()) return true;
  if (first.size() != second.size()) return false;
  first.ReNumberGXLAContourList();
  second.ReNumberGXLAContourList();

  auto other = second.begin();
  for (GXLAContour* a : first) {
    GXLAContour* b = *other++;
    if (a == nullptr || b == nullptr) return false;
    if (!HaveSameHeader(*a, *b, tolerances)) return false;
    if (!headerOnly && !HaveSameGeometry(*a, *b, mode, tolerances, nullptr)) return false;
    matches[a] = b;
  }
  return true;
}

GXLAIntContoursEqual::GXLAIntContoursEqual(GXLAPart& first, GXLAPart& second,
                                           GXLAContour::eNmbSegmentsMode mode,
                                           GXLATolerances& tolerances,
                                           GXEvent1Param<const GXString&>* trace)
    : FirstManager(&first.GetInternalLAContourManager()),
      SecondManager(&second.GetInternalLAContourManager()),
      FirstContours(&first.GetInternalLAContourList()),
      SecondContours(&second.GetInternalLAContourList()),
      Mode(mode),
      Tolerances(tolerances),
      Trace(trace) {}

GXLAIntContoursEqual::~GXLAIntContoursEqual() = default;

bool GXLAIntContoursEqual::HasSameInternalContourStructure(GXLAContourInstanceMapping& mapping,
                                                           bool headerOnly) {
  Tell(Trace, "Start Compare Internal Contour Structure");
  const std::size_t firstGroups = FirstManager->size();
  const std::size_t secondGroups = SecondManager->size();
  if (firstGroups < 1 || secondGroups < 1) {
    Tell(Trace, "Empty Internal Structure detected : are considered as EQUAL");
    return true;
  }
  if (firstGroups != secondGroups) {
    Tell(Trace, "Number of Internal Contour Groups differs", firstGroups, " <-> ", secondGroups);
    return false;
  }
  Tell(Trace, "Number of Internal Contour Groups = ", firstGroups);
  // Told, not compared: groups of different sizes go on to the comparison of positions, where hosts
  // find out which occurrence has no partner.
  Tell(Trace, "Number of Internal Contours = ", FirstManager->CountNmbContourInstances());

  std::map<GXLAContour*, GXLAContour*> shapes;
  if (!CSortedInternalLAContourListCheck::SameInternalLAContourLists(
          *FirstContours, *SecondContours, headerOnly, shapes, Mode, Tolerances)) {
    Tell(Trace, "SortedInternalLAContourListCheck FAILS !");
    return false;
  }
  return MapGroups(shapes, *FirstManager, *SecondManager, mapping);
}

bool GXLAIntContoursEqual::SameContourShape(GXLAContour& first, GXLAContour& second,
                                            bool basicChecksOnly,
                                            GXLAContour::eNmbSegmentsMode mode) {
  if (basicChecksOnly) {
    return GXLAContour::HaveSameGeometry_BasicChecks(first, second, mode, Tolerances, Trace);
  }
  return HaveSameGeometry(first, second, mode, Tolerances, Trace);
}
