#include "drawing/CutOutRows.h"

#include "PartSketch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace {

using drawing::CutOutStanding;
using support::CircleContour;
using support::PartOf;

const support::SketchContour kPlate = support::RectangleContour(0.0, 0.0, 100.0, 60.0);
const support::SketchContour kOtherPlate = support::RectangleContour(0.0, 0.0, 100.0, 62.0);

std::vector<drawing::CutOutRow> Rows(const drawing::PartModel& a, const drawing::PartModel& b) {
  const drawing::Comparison comparison = drawing::CompareParts(a, b, {});
  return drawing::RowsOfCutOuts(a, b, comparison,
                                drawing::CompareGeometry(a, b, false, &comparison));
}

std::size_t Count(const std::vector<drawing::CutOutRow>& rows, CutOutStanding standing) {
  return static_cast<std::size_t>(
      std::count_if(rows.begin(), rows.end(),
                    [&](const drawing::CutOutRow& row) { return row.standing == standing; }));
}

TEST(RowsOfCutOuts, PutsPartnersSideBySide) {
  const auto a = PartOf({kPlate, CircleContour(20.0, 20.0, 4.0), CircleContour(70.0, 15.0, 6.0)});
  const auto rows = Rows(a, a);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(Count(rows, CutOutStanding::kPartners), 2U);
  for (const auto& row : rows) {
    EXPECT_EQ(row.a, row.b);
    EXPECT_TRUE(row.hasOwn);
    EXPECT_NEAR(row.deviation, 0.0, 1e-9);
  }
}

TEST(RowsOfCutOuts, PutsTheNearestOfTheSameShapeBesideWhatHasNoPartner) {
  const auto a = PartOf({kPlate, CircleContour(20.0, 20.0, 4.0), CircleContour(70.0, 15.0, 4.0)});
  const auto b = PartOf({kPlate, CircleContour(20.0, 20.0, 4.0), CircleContour(70.0, 18.0, 4.0)});
  const auto rows = Rows(a, b);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(Count(rows, CutOutStanding::kPartners), 1U);
  const auto apart = std::find_if(rows.begin(), rows.end(), [](const drawing::CutOutRow& row) {
    return row.standing == CutOutStanding::kNearest;
  });
  ASSERT_NE(apart, rows.end());
  EXPECT_NEAR(apart->deviation, 3.0, 1e-9);
}

TEST(RowsOfCutOuts, GivesAShapeAndWhatReplacesItOneNumber) {
  const auto a = PartOf({kPlate, CircleContour(20.0, 20.0, 4.0), CircleContour(70.0, 15.0, 6.0)});
  const auto b = PartOf(
      {kPlate, CircleContour(20.0, 20.0, 4.0), support::RectangleContour(64.0, 9.0, 76.0, 21.0)});
  const auto rows = Rows(a, b);
  ASSERT_EQ(rows.size(), 3U);
  std::vector<std::size_t> numbers;
  for (const auto& row : rows) {
    if (row.standing == CutOutStanding::kReplaced) numbers.push_back(row.number);
  }
  ASSERT_EQ(numbers.size(), 2U);
  EXPECT_EQ(numbers[0], numbers[1]);
}

TEST(RowsOfCutOuts, LeavesAloneWhatTheOtherPartHasNotGot) {
  const auto a = PartOf({kPlate, CircleContour(20.0, 20.0, 4.0)});
  const auto b = PartOf({kPlate, CircleContour(20.0, 20.0, 4.0), CircleContour(70.0, 15.0, 4.0)});
  const auto rows = Rows(a, b);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(Count(rows, CutOutStanding::kPartners), 1U);
  EXPECT_EQ(Count(rows, CutOutStanding::kAlone), 1U);
  EXPECT_EQ(rows[1].a, drawing::kNoCutOut);
  EXPECT_EQ(rows[1].number, 2U);
}

TEST(RowsOfCutOuts, NamesEveryCutOutOnceWhereTheOutlinesDiffer) {
  const auto a = PartOf({kPlate, CircleContour(20.0, 20.0, 4.0), CircleContour(70.0, 15.0, 4.0)});
  const auto b = PartOf({kOtherPlate, CircleContour(20.0, 20.0, 4.0),
                         CircleContour(70.0, 40.0, 4.0), CircleContour(40.0, 30.0, 9.0)});
  const auto rows = Rows(a, b);
  std::vector<std::size_t> ofA;
  std::vector<std::size_t> ofB;
  for (const auto& row : rows) {
    if (row.a != drawing::kNoCutOut) ofA.push_back(row.a);
    if (row.b != drawing::kNoCutOut) ofB.push_back(row.b);
  }
  std::sort(ofA.begin(), ofA.end());
  std::sort(ofB.begin(), ofB.end());
  EXPECT_EQ(ofA, (std::vector<std::size_t>{0, 1}));
  EXPECT_EQ(ofB, (std::vector<std::size_t>{0, 1, 2}));
}

}  // namespace
