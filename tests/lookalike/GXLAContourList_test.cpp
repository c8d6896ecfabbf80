#include "support/LookAlike.h"

#include <KTRCL_Geometry/lookalike/GXLAContourInstance.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <list>
#include <memory>
#include <vector>

namespace {

using support::ClosedContour;
using support::kCCW;
using support::kCW;
using support::Square;

constexpr auto kEqual = GXLAContour::eNmbSegmentsEqual;

// Adds a new contour of one line; the list owns it.
GXLAContour& AddSorted(GXLAContourList& list, double length) {
  auto contour = std::make_unique<GXLAContour>(true, kCW);
  support::AddLine(*contour, length);
  support::AddAngle(*contour, 1.0);
  list.AddElementSortTotalGeometryLengthDesc(*contour);
  return *contour.release();
}

std::vector<double> Lengths(const GXLAContourList& list) {
  std::vector<double> lengths;
  for (const GXLAContour* contour : list) lengths.push_back(contour->GetTotalGeometryLength());
  return lengths;
}

// Fills a list that owns what the contours hold.
void Fill(GXLAContourList& list, std::vector<std::unique_ptr<GXLAContour>> contours) {
  for (auto& contour : contours) list.AddElement(*contour.release());
}

template <typename... Contours>
std::vector<std::unique_ptr<GXLAContour>> Several(Contours... contours) {
  std::vector<std::unique_ptr<GXLAContour>> all;
  (all.push_back(std::move(contours)), ...);
  return all;
}

TEST(AddElement, AppendsTheAddressAtTheEnd) {
  GXLAContour first(true, kCW);
  GXLAContour second(true, kCW);
  GXLAContourList list;
  list.AddElement(first);
  list.AddElement(second);
  EXPECT_EQ(list.front(), &first);
  EXPECT_EQ(list.back(), &second);
  list.clear();
}

TEST(AddElementSort, RunsFromLongToShortWithTheOlderInFrontAmongEquals) {
  GXLAContourList list;
  for (const double length : {100.0, 50.0, 50.0005, 75.0}) AddSorted(list, length);
  EXPECT_EQ(Lengths(list), std::vector<double>({100.0, 75.0, 50.0, 50.0005}));
}

TEST(AddElementSort, ADifferenceOfExactlyTheToleranceIsATie) {
  GXLAContourList list;
  AddSorted(list, 0.0);
  AddSorted(list, 0.001);
  EXPECT_EQ(Lengths(list), std::vector<double>({0.0, 0.001}));
  AddSorted(list, 0.0011);
  EXPECT_EQ(Lengths(list), std::vector<double>({0.0011, 0.0, 0.001}));
}

TEST(SortOnTotalLengthDesc, SortsByPointerValueNotByLength) {
  GXLAContourList list;
  std::vector<GXLAContour*> contours;
  for (int i = 0; i < 6; ++i) contours.push_back(&AddSorted(list, 10.0 + i));
  list.clear();
  for (const int index : {3, 0, 5, 1, 4, 2})
    list.push_back(contours[static_cast<std::size_t>(index)]);
  list.SortOnTotalLengthDesc();
  std::vector<GXLAContour*> expected = contours;
  std::sort(expected.begin(), expected.end(), std::greater<>());
  EXPECT_EQ(std::vector<GXLAContour*>(list.begin(), list.end()), expected);
}

TEST(SortOnTotalLengthDesc, LeavesAListOfFewerThanTwo) {
  GXLAContourList list;
  list.SortOnTotalLengthDesc();
  EXPECT_TRUE(list.empty());
  AddSorted(list, 1.0);
  list.SortOnTotalLengthDesc();
  EXPECT_EQ(list.size(), 1U);
}

TEST(GetTotalGeometryLengthList, ClearsTheListFirst) {
  GXLAContourList list;
  AddSorted(list, 3.0);
  AddSorted(list, 5.0);
  std::list<double> lengths = {9.0};
  list.GetTotalGeometryLengthList(lengths);
  EXPECT_EQ(lengths, std::list<double>({5.0, 3.0}));
}

TEST(ReNumberGXLAContourList, CountsFromOneInListOrder) {
  GXLAContourList list;
  GXLAContour& shorter = AddSorted(list, 3.0);
  GXLAContour& longer = AddSorted(list, 5.0);
  list.ReNumberGXLAContourList();
  EXPECT_EQ(longer.GetContourIndex(), 1);
  EXPECT_EQ(shorter.GetContourIndex(), 2);
}

TEST(ReNumberGXLAContourList, SpendsANumberOnANullEntry) {
  GXLAContourList list;
  list.push_back(nullptr);
  GXLAContour& contour = AddSorted(list, 3.0);
  list.remove(&contour);
  list.push_back(&contour);
  list.ReNumberGXLAContourList();
  EXPECT_EQ(contour.GetContourIndex(), 2);
}

TEST(GetSameGeometryContour, GivesTheFirstThatMatches) {
  GXLAContourList list;
  Fill(list, Several(ClosedContour(kCW, "L 3 A 90"), Square(kCCW), Square(kCCW)));
  GXLATolerances tolerances;
  auto reversed = GXLAContour::eGeometryNotSet;
  int start = 7;
  const auto square = Square(kCW);
  EXPECT_EQ(list.GetSameGeometryContour(*square, reversed, start, kEqual, tolerances),
            *std::next(list.begin()));
  EXPECT_EQ(reversed, GXLAContour::eGeometryBackward);
  EXPECT_EQ(start, 0);
}

TEST(GetSameGeometryContour, SearchesWithTheGivenContourAsReference) {
  // The start position is one in the list entry: it stands where the given contour's first segment
  // is found.
  GXLAContourList list;
  Fill(list, Several(ClosedContour(kCW, "L 5 A 90 L 6 A 80 L 7 A 70")));
  GXLATolerances tolerances;
  auto reversed = GXLAContour::eGeometryNotSet;
  int start = -1;
  const auto other = ClosedContour(kCW, "L 7 A 70 L 5 A 90 L 6 A 80");
  EXPECT_NE(list.GetSameGeometryContour(*other, reversed, start, kEqual, tolerances), nullptr);
  EXPECT_EQ(start, 4);
}

TEST(GetSameGeometryContour, StopsAtANullEntry) {
  GXLAContourList list;
  list.push_back(nullptr);
  Fill(list, Several(Square(kCW)));
  GXLATolerances tolerances;
  auto reversed = GXLAContour::eGeometryNotSet;
  int start = -1;
  const auto square = Square(kCW);
  EXPECT_EQ(list.GetSameGeometryContour(*square, reversed, start, kEqual, tolerances), nullptr);
}

bool SameLists(GXLAContourList& a, GXLAContourList& b) {
  GXLATolerances tolerances;
  return GXLAContourList::HaveSameGeometry(a, b, kEqual, tolerances);
}

TEST(ListHaveSameGeometry, HoldsForTwoEmptyLists) {
  GXLAContourList a;
  GXLAContourList b;
  EXPECT_TRUE(SameLists(a, b));
}

TEST(ListHaveSameGeometry, RefusesDifferentSizes) {
  GXLAContourList a;
  GXLAContourList b;
  Fill(a, Several(Square(kCW)));
  EXPECT_FALSE(SameLists(a, b));
  EXPECT_EQ(a.size(), 1U);
}

TEST(ListHaveSameGeometry, MatchesInAnyOrder) {
  GXLAContourList a;
  GXLAContourList b;
  Fill(a, Several(Square(kCW), support::Rectangle(3, 4)));
  Fill(b, Several(support::Rectangle(4, 3), Square(kCCW)));
  EXPECT_TRUE(SameLists(a, b));
  EXPECT_EQ(b.size(), 2U);
}

TEST(ListHaveSameGeometry, UsesEachEntryOnce) {
  GXLAContourList a;
  GXLAContourList b;
  Fill(a, Several(Square(kCW), Square(kCW)));
  Fill(b, Several(Square(kCW), support::Rectangle(3, 4)));
  EXPECT_FALSE(SameLists(a, b));
  EXPECT_FALSE(SameLists(b, a));
}

TEST(ListHaveSameGeometry, RefusesNullEntriesOnEitherSide) {
  GXLAContourList a;
  GXLAContourList b;
  a.push_back(nullptr);
  Fill(b, Several(Square(kCW)));
  EXPECT_FALSE(SameLists(a, b));
  EXPECT_FALSE(SameLists(b, a));
}

TEST(GXLAContourList, CopiesAndAssignsPointers) {
  GXLAContourList list;
  GXLAContour& contour = AddSorted(list, 3.0);
  GXLAContourList copy(list);
  GXLAContourList assigned;
  assigned = list;
  EXPECT_EQ(copy.front(), &contour);
  EXPECT_EQ(assigned.front(), &contour);
  copy.clear();
  assigned.clear();
}

TEST(GXLAContourList, ClearWithContentPassesOverNull) {
  GXLAContourList list;
  AddSorted(list, 3.0);
  list.push_back(nullptr);
  list.ClearWithContent();
  EXPECT_TRUE(list.empty());
}

}  // namespace
