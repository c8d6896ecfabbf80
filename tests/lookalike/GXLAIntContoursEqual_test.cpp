#include "support/Build.h"
#include "support/LookAlike.h"
#include "support/RecordingEvent.h"

#include <KTRCL_Geometry/lookalike/GXLAEquality.h>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

using support::ClosedContour;
using support::kCCW;
using support::kCW;
using Texts = std::vector<std::string>;

constexpr auto kEqual = GXLAContour::eNmbSegmentsEqual;
constexpr auto kMayDiffer = GXLAContour::eNmbSegmentsMayDiffer;

// Adds contours; the part takes the elements of those that it keeps.
void AddCutOut(GXLAPart& part, std::unique_ptr<GXLAContour> contour) {
  GX2DElmList elements;
  GXLATolerances tolerances;
  const std::size_t before = part.GetInternalLAContourList().size();
  part.AddInternalContourInstance(elements, *contour, kEqual, tolerances, nullptr);
  if (part.GetInternalLAContourList().size() > before) contour->clear();
}

std::unique_ptr<GXLAContour> Hole(double length) {
  auto contour = std::make_unique<GXLAContour>(true, kCW);
  support::AddArc(*contour, length);
  support::AddAngle(*contour, 180.0 * support::kDegree);
  return contour;
}

void AddHoles(GXLAPart& part, double length, int count) {
  for (int i = 0; i < count; ++i) AddCutOut(part, Hole(length));
}

bool SameStructure(GXLAPart& a, GXLAPart& b, GXLAContourInstanceMapping& mapping,
                   GXEvent1Param<const GXString&>* trace = nullptr, bool headerOnly = false,
                   GXLAContour::eNmbSegmentsMode mode = kEqual) {
  GXLATolerances tolerances;
  return GXLAIntContoursEqual(a, b, mode, tolerances, trace)
      .HasSameInternalContourStructure(mapping, headerOnly);
}

bool SameStructure(GXLAPart& a, GXLAPart& b, bool headerOnly = false,
                   GXLAContour::eNmbSegmentsMode mode = kEqual) {
  GXLAContourInstanceMapping mapping;
  return SameStructure(a, b, mapping, nullptr, headerOnly, mode);
}

TEST(GXLAIntContoursEqual, TakesThePartsManagersAndLists) {
  GXLAPart a;
  GXLAPart b;
  GXLATolerances tolerances;
  support::RecordingEvent trace;
  const GXLAIntContoursEqual equal(a, b, kMayDiffer, tolerances, trace.Event());
  EXPECT_EQ(equal.FirstManager, &a.GetInternalLAContourManager());
  EXPECT_EQ(equal.SecondManager, &b.GetInternalLAContourManager());
  EXPECT_EQ(equal.FirstContours, &a.GetInternalLAContourList());
  EXPECT_EQ(equal.SecondContours, &b.GetInternalLAContourList());
  EXPECT_EQ(equal.Mode, kMayDiffer);
  EXPECT_EQ(&equal.Tolerances, &tolerances);
  EXPECT_EQ(equal.Trace, trace.Event());
}

TEST(InternalStructure, PartsWithoutCutOutsAreEqual) {
  GXLAPart a;
  GXLAPart b;
  GXLAContourInstanceMapping mapping;
  GXLAContourInstanceRefList stray;
  mapping.AddToMap(stray, stray);
  support::RecordingEvent trace;
  EXPECT_TRUE(SameStructure(a, b, mapping, trace.Event()));
  EXPECT_EQ(trace.Texts(), Texts({"Start Compare Internal Contour Structure",
                                  "Empty Internal Structure detected : are considered as EQUAL"}));
  EXPECT_EQ(mapping.size(), 1U) << "the mapping is left as it is";
}

TEST(InternalStructure, APartWithAHoleAndOneWithoutAreEqualHere) {
  GXLAPart a;
  GXLAPart b;
  AddHoles(a, 10, 1);
  EXPECT_TRUE(SameStructure(a, b));
  EXPECT_TRUE(SameStructure(b, a));
}

TEST(InternalStructure, DifferentNumbersOfGroupsAreRefused) {
  GXLAPart a;
  GXLAPart b;
  AddHoles(a, 10, 1);
  AddHoles(a, 20, 1);
  AddHoles(b, 10, 1);
  AddHoles(b, 20, 1);
  AddHoles(b, 30, 1);
  GXLAContourInstanceMapping mapping;
  GXLAContourInstanceRefList stray;
  mapping.AddToMap(stray, stray);
  support::RecordingEvent trace;
  EXPECT_FALSE(SameStructure(a, b, mapping, trace.Event()));
  EXPECT_EQ(trace.Texts(), Texts({"Start Compare Internal Contour Structure",
                                  "Number of Internal Contour Groups differs2 <-> 3"}));
  EXPECT_EQ(mapping.size(), 1U);
}

TEST(InternalStructure, DifferentCountsInAGroupPassAndAreMapped) {
  GXLAPart a;
  GXLAPart b;
  AddHoles(a, 10, 3);
  AddHoles(b, 10, 4);
  GXLAContourInstanceMapping mapping;
  support::RecordingEvent trace;
  EXPECT_TRUE(SameStructure(a, b, mapping, trace.Event()));
  auto& groupA = a.GetInternalLAContourManager().begin()->second;
  auto& groupB = b.GetInternalLAContourManager().begin()->second;
  EXPECT_EQ(mapping.FindInMap(groupA), &groupB);
  EXPECT_EQ(mapping.size(), 1U);
  EXPECT_EQ(trace.Texts(),
            Texts({"Start Compare Internal Contour Structure",
                   "Number of Internal Contour Groups = 1", "Number of Internal Contours = 3"}));
}

TEST(InternalStructure, TheMappingHoldsOneEntryForEachGroupAndForgetsOlderOnes) {
  GXLAPart a;
  GXLAPart b;
  for (const double length : {10.0, 30.0, 20.0}) AddHoles(a, length, 2);
  for (const double length : {20.0, 10.0, 30.0}) AddHoles(b, length, 1);
  GXLAContourInstanceMapping mapping;
  GXLAContourInstanceRefList stray;
  mapping.AddToMap(stray, stray);
  ASSERT_TRUE(SameStructure(a, b, mapping));
  EXPECT_EQ(mapping.size(), 3U);
  for (auto& [shape, group] : a.GetInternalLAContourManager()) {
    GXLAContourInstanceRefList* const partner = mapping.FindInMap(group);
    ASSERT_NE(partner, nullptr);
    EXPECT_EQ(partner->front()->GetLAContour()->GetTotalGeometryLength(),
              shape->GetTotalGeometryLength());
  }
}

TEST(InternalStructure, LengthsBeyondAThousandthAreRefused) {
  GXLAPart a;
  GXLAPart b;
  AddHoles(a, 10, 1);
  AddHoles(b, 10.002, 1);
  GXLAContourInstanceMapping mapping;
  GXLAContourInstanceRefList stray;
  mapping.AddToMap(stray, stray);
  support::RecordingEvent trace;
  EXPECT_FALSE(SameStructure(a, b, mapping, trace.Event()));
  EXPECT_EQ(trace.Texts().back(), "SortedInternalLAContourListCheck FAILS !");
  EXPECT_EQ(mapping.FindInMap(stray), &stray) << "the mapping is left as it is";
  GXLAPart c;
  AddHoles(c, 10.0009, 1);
  EXPECT_TRUE(SameStructure(a, c));
}

TEST(InternalStructure, ShapesWithinAThousandthStandInTheOrderOfAddingAndFail) {
  // Different shapes of length 100 and 100.0005; in the other part added the other way round.
  const char* const oblong = "L 40 A 90 L 10 A 90 L 40 A 90 L 10 A 90";
  const char* const square = "L 25 A 90 L 25 A 90 L 25 A 90 L 25.0005 A 90";
  GXLAPart a;
  GXLAPart b;
  AddCutOut(a, ClosedContour(kCW, oblong));
  AddCutOut(a, ClosedContour(kCW, square));
  AddCutOut(b, ClosedContour(kCW, square));
  AddCutOut(b, ClosedContour(kCW, oblong));
  EXPECT_FALSE(SameStructure(a, b));
  GXLAPart c;
  AddCutOut(c, ClosedContour(kCW, oblong));
  AddCutOut(c, ClosedContour(kCW, square));
  EXPECT_TRUE(SameStructure(a, c));
}

TEST(InternalStructure, HeaderOnlyPassesAnotherOrderOfElements) {
  GXLAPart a;
  GXLAPart b;
  AddCutOut(a, ClosedContour(kCW, "L 3 A 90 L 4 A 80 L 5 A 70"));
  AddCutOut(b, ClosedContour(kCW, "L 3 A 80 L 4 A 90 L 5 A 70"));
  EXPECT_TRUE(SameStructure(a, b, true));
  EXPECT_FALSE(SameStructure(a, b, false));
}

TEST(InternalStructure, TheTraceChangesNoResult) {
  GXLAPart a;
  GXLAPart b;
  AddHoles(a, 10, 1);
  AddHoles(b, 10, 2);
  support::RecordingEvent trace;
  GXLAContourInstanceMapping told;
  GXLAContourInstanceMapping silent;
  EXPECT_EQ(SameStructure(a, b, told, trace.Event()), SameStructure(a, b, silent, nullptr));
  EXPECT_EQ(told.size(), silent.size());
}

TEST(InternalStructure, AShapeThatIsNoGroupIsRefused) {
  GXLAPart a;
  GXLAPart b;
  AddHoles(a, 10, 1);
  AddHoles(b, 10, 1);
  // The manager speaks of another contour than the list.
  GXLAContourInstanceRefList group = b.GetInternalLAContourManager().begin()->second;
  GXLAContour stranger(true, kCW);
  b.GetInternalLAContourManager().clear();
  b.GetInternalLAContourManager()[&stranger] = group;
  GXLAContourInstanceMapping mapping;
  GXLAContourInstanceRefList stray;
  mapping.AddToMap(stray, stray);
  EXPECT_FALSE(SameStructure(a, b, mapping));
  EXPECT_FALSE(SameStructure(b, a, mapping)) << "the strange group is the first part's";
  EXPECT_TRUE(mapping.empty()) << "what the mapping held before is gone";
}

// ---- SameInternalLAContourLists

bool SameLists(GXLAContourList& a, GXLAContourList& b,
               std::map<GXLAContour*, GXLAContour*>& matches, bool headerOnly = false,
               GXLAContour::eNmbSegmentsMode mode = kEqual) {
  GXLATolerances tolerances;
  return CSortedInternalLAContourListCheck::SameInternalLAContourLists(a, b, headerOnly, matches,
                                                                       mode, tolerances);
}

bool SamePair(std::unique_ptr<GXLAContour> a, std::unique_ptr<GXLAContour> b,
              bool headerOnly = true, GXLAContour::eNmbSegmentsMode mode = kEqual) {
  GXLAContourList first;
  GXLAContourList second;
  first.AddElement(*a.release());
  second.AddElement(*b.release());
  std::map<GXLAContour*, GXLAContour*> matches;
  return SameLists(first, second, matches, headerOnly, mode);
}

TEST(SameInternalLists, AnEmptyListIsEqualToAnyAndClearsTheMap) {
  GXLAContourList empty;
  GXLAContourList filled;
  filled.AddElement(*Hole(10).release());
  std::map<GXLAContour*, GXLAContour*> matches = {{nullptr, nullptr}};
  EXPECT_TRUE(SameLists(empty, filled, matches));
  EXPECT_TRUE(matches.empty());
  EXPECT_TRUE(SameLists(filled, empty, matches));
  EXPECT_EQ(filled.front()->GetContourIndex(), -1) << "no renumbering before the sizes agree";
}

TEST(SameInternalLists, DifferentSizesAreRefused) {
  GXLAContourList a;
  GXLAContourList b;
  a.AddElement(*Hole(10).release());
  b.AddElement(*Hole(10).release());
  b.AddElement(*Hole(10).release());
  std::map<GXLAContour*, GXLAContour*> matches;
  EXPECT_FALSE(SameLists(a, b, matches));
  EXPECT_EQ(a.front()->GetContourIndex(), -1);
}

TEST(SameInternalLists, RenumberBothListsAndMapEntryToEntry) {
  GXLAContourList a;
  GXLAContourList b;
  for (const double length : {20.0, 10.0}) {
    a.AddElement(*Hole(length).release());
    b.AddElement(*Hole(length).release());
  }
  std::map<GXLAContour*, GXLAContour*> matches;
  EXPECT_TRUE(SameLists(a, b, matches));
  EXPECT_EQ(matches.at(a.front()), b.front());
  EXPECT_EQ(matches.at(a.back()), b.back());
  EXPECT_EQ(a.back()->GetContourIndex(), 2);
  EXPECT_EQ(b.front()->GetContourIndex(), 1);
}

TEST(SameInternalLists, KeepWhatWasMatchedBeforeARefusal) {
  GXLAContourList a;
  GXLAContourList b;
  a.AddElement(*Hole(20).release());
  a.AddElement(*Hole(10).release());
  b.AddElement(*Hole(20).release());
  b.AddElement(*Hole(9).release());
  std::map<GXLAContour*, GXLAContour*> matches;
  EXPECT_FALSE(SameLists(a, b, matches));
  EXPECT_EQ(matches.size(), 1U);
}

TEST(SameInternalLists, RefuseNullEntries) {
  GXLAContourList a;
  GXLAContourList b;
  a.push_back(nullptr);
  b.AddElement(*Hole(9).release());
  std::map<GXLAContour*, GXLAContour*> matches;
  EXPECT_FALSE(SameLists(a, b, matches));
  EXPECT_FALSE(SameLists(b, a, matches));
}

TEST(SameInternalLists, CompareAnglesModuloATurnAndNegatedForOpenContours) {
  const auto open = [](double angle) {
    auto contour = support::OpenContour("L 10");
    contour->TotalGeometryAngle = angle;
    return contour;
  };
  const auto closed = [](double angle) {
    auto contour = ClosedContour(kCW, "L 10");
    contour->TotalGeometryAngle = angle;
    return contour;
  };
  EXPECT_TRUE(SamePair(closed(1.0), closed(1.0 + 6.283185307179586)));
  EXPECT_TRUE(SamePair(open(1.0), open(-1.0)));
  EXPECT_FALSE(SamePair(closed(1.0), closed(-1.0)));
  EXPECT_FALSE(SamePair(open(1.0), open(0.5)));
}

TEST(SameInternalLists, AcceptLengthsThatDifferByExactlyAThousandth) {
  // Against 0 the difference is the very 0.001 of the tolerance.
  EXPECT_TRUE(SamePair(ClosedContour(kCW, "L 0 A 90"), ClosedContour(kCW, "L 0.001 A 90")));
  EXPECT_TRUE(SamePair(ClosedContour(kCW, "L 0.001 A 90"), ClosedContour(kCW, "L 0 A 90")));
  EXPECT_FALSE(SamePair(ClosedContour(kCW, "L 0 A 90"), ClosedContour(kCW, "L 0.00101 A 90")));
}

TEST(SameInternalLists, DoNotNegateTheAngleOfOneOpenAndOneClosedContour) {
  auto open = support::OpenContour("L 10");
  auto closed = ClosedContour(kCW, "L 10");
  open->TotalGeometryAngle = 1.0;
  closed->TotalGeometryAngle = 1.0;
  EXPECT_FALSE(SamePair(std::move(open), std::move(closed)));
}

TEST(SameInternalLists, RefuseClosedAgainstOpen) {
  auto open = support::OpenContour("L 10");
  EXPECT_FALSE(SamePair(std::move(open), ClosedContour(kCW, "L 10")));
}

TEST(SameInternalLists, CompareTheNumbersOfSegmentsInTheRelaxedModeToo) {
  EXPECT_FALSE(SamePair(ClosedContour(kCW, "L 10 A 0"), ClosedContour(kCW, "L 5 A 0 L 5 A 0"), true,
                        kMayDiffer));
  EXPECT_FALSE(
      SamePair(ClosedContour(kCW, "L 10 A 0"), ClosedContour(kCW, "R 10 A 0"), true, kMayDiffer));
}

}  // namespace
